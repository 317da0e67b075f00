#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QStatusBar;
class cntlTournament;

// The details of one tournament in a dialog: view, new, update, copy or delete.
class frmTournamentDetails : public QDialog
{
    Q_OBJECT

public:
    // The mode is one of cntlTournament's; the dialog is made for that mode.
    explicit frmTournamentDetails(int mode, QWidget *parent = nullptr);

    int Mode() const { return mode_; }
    bool Cancelled = true;

    cntlTournament *tournamentControl;
    QLabel *lblMsg;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QStatusBar *sbMsg;

private:
    void cmdOk_Click();
    void cmdCancel_Click();

    int mode_;
};

// Runs the dialog in the mode and tells whether it was cancelled.
bool RunTournamentDetails(int mode, QWidget *parent);
