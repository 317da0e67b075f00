#pragma once

#include "reports/report_options.h"

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStatusBar;

// The comma-separated export of the register or of the open tournament's entrants:
// which people, which details, and the file that receives them. One instance serves
// the run, so the choices stay from one opening to the next.
class frmExport : public QDialog
{
    Q_OBJECT

public:
    explicit frmExport(QWidget *parent = nullptr);

    static frmExport &Instance(QWidget *parent);
    // Shows the dialog and waits; on OK the export is written before it returns.
    static void Run(QWidget *parent);

    // The choices as the writers read them.
    cExportOptions Options() const;

    QGroupBox *Frame1;
    QRadioButton *optAll;
    QRadioButton *optUser1;
    QRadioButton *optUser2;
    QRadioButton *optUser3;
    QRadioButton *optUser4;
    QRadioButton *optTournament;
    QGroupBox *Frame3;
    QCheckBox *chkPersonal;
    QCheckBox *chkContact;
    QCheckBox *chkClub;
    QCheckBox *chkGrade;
    QCheckBox *chkUser;
    QCheckBox *chkResults;
    QLabel *Label1;
    QLineEdit *txtDestination;
    QPushButton *cmdBrowse;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Activate();
    void SelectionClicked();
    void cmdBrowse_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void WriteExport(const cExportOptions &options);
};
