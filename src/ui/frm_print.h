#pragma once

#include "reports/report_options.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QStatusBar;
class QWidget;

// The one window through which every report is chosen and started: the list of
// reports, the options of the chosen one in its frame, and the outputs (paper,
// preview, web page and PDF file). One instance serves the whole run, so the report
// and its options stay as they were left from one opening to the next.
class frmPrint : public QDialog
{
    Q_OBJECT

public:
    explicit frmPrint(QWidget *parent = nullptr);

    // The instance of the run, made on first use as a child of parent.
    static frmPrint &Instance(QWidget *parent);
    // Shows the dialog and waits until it closes, after any output it started.
    static void Run(QWidget *parent);

    // The choices of the frames as the reports read them.
    cPrintOptions Options() const;

    QLabel *Label1;
    QComboBox *cmbPrint;
    QPushButton *cmdHTML;
    QPushButton *cmdPreview;
    QPushButton *cmdPrint;
    QPushButton *cmdPDF;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

    QWidget *fPlayerList;
    QGroupBox *Frame1;
    QRadioButton *optAll;
    QRadioButton *optUser1;
    QRadioButton *optUser2;
    QRadioButton *optUser3;
    QRadioButton *optUser4;
    QRadioButton *optTournament;
    QGroupBox *Frame2;
    QRadioButton *optName;
    QRadioButton *optAge;
    QRadioButton *optClub;
    QRadioButton *optGradeCode;
    QRadioButton *optSchool;
    QRadioButton *optCounty;

    QWidget *fPairingList;
    QLabel *Label2;
    QComboBox *cmbRound;

    QGroupBox *fResultList;
    QRadioButton *optSum;
    QRadioButton *optPro;
    QRadioButton *optSB;
    QRadioButton *optNone;

    QWidget *fCrossTable;
    QGroupBox *Frame5;
    QRadioButton *optByPin;
    QRadioButton *optByName;
    QRadioButton *optByGrade;
    QRadioButton *optByScore;
    QGroupBox *Frame4;
    QRadioButton *optPPos;
    QRadioButton *optPPin;
    QCheckBox *chkPlayerCodes;

    QWidget *fPairingCards;
    QCheckBox *chkUserDetails;
    QLabel *Label3;
    QComboBox *cmbCardType;
    QLabel *Label4;
    QComboBox *cmbRounds;
    QLabel *Label6;
    QLabel *Label5;
    QLabel *Label7;

protected:
    void showEvent(QShowEvent *event) override;

private:
    // Where an output sends the finished report.
    enum class Output { Paper, Preview, WebPage, Pdf };

    void BuildPlayerListFrame();
    void BuildPairingListFrame();
    void BuildResultListFrame();
    void BuildCrossTableFrame();
    void BuildPairingCardsFrame();
    QList<QWidget *> Frames() const;
    void KeepRoomForEveryFrame();
    void Activate();
    void cmbPrint_Click();
    void SelectionClicked();
    void optTournament_Click();
    void CrossTableOrderClicked();
    void RunOutput(Output output);
    // Composes the chosen report for the destination; false when the entry names none.
    bool ComposeReport(qint32 destination);
    void SavePdf(const QString &fileName);

    QWidget *framesArea_ = nullptr;
    int rememberedIndex_ = -1;
};
