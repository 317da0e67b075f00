#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStatusBar;
class cntlResultList;

// "Pairings and Results": the entry grid of one round of the open tournament and the
// round commands around it. It works on the games in memory, read afresh when it
// opens, and stores a round as a whole.
class frmPairings : public QDialog
{
    Q_OBJECT

public:
    explicit frmPairings(QWidget *parent = nullptr);

    // Set by the caller to tell which command opened the window; the window behaves
    // alike either way.
    bool PairingOn = true;
    bool ResultOn = true;

    // True when a round or a recalculation reached the file while the window was open.
    bool Stored() const { return stored_; }
    bool Cancelled() const { return cancelled_; }
    // The round chosen in cmbRound.
    qint16 SelectedRound() const;

    QComboBox *cmbRound;
    QLineEdit *txtFirstBoard;
    cntlResultList *lstResults;
    QLabel *lblKeys1;
    QLabel *lblKeys2;
    QPushButton *cmdRenumber;
    QPushButton *cmdRemove;
    QPushButton *cmdReorder;
    QPushButton *cmdValidate;
    QPushButton *cmdPairRound;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QPushButton *cmdAuto;
    QPushButton *cmdAutoPair;
    QStatusBar *sbMsg;

public slots:
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void Load();
    QPushButton *AddButton(const QString &name, const QString &caption, const QString &help);
    bool AcceptFirstBoard();
    void DisplayRound(qint16 round);
    void EnableRoundCommands(int rows);
    void cmbRound_Click();
    void cmdRenumber_Click();
    void cmdRemove_Click();
    void cmdReorder_Click();
    void cmdValidate_Click();
    void EnablePairRound();
    void cmdPairRound_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdAuto_Click();

    bool loading_ = false;
    bool stored_ = false;
    bool cancelled_ = false;
};

// Opens the window over the open tournament and waits. True when anything was stored,
// so the caller shows the entrants' new scores.
bool ShowPairingsAndResults(QWidget *parent, bool pairingOn = true, bool resultOn = true);
