#pragma once

#include <QDialog>

#include <memory>

class QLabel;
class QPushButton;
class QStatusBar;
class cPlayer;
class cntlPlayerDetails;

// One entrant in a dialog: view, new entrant, update or delete.
class frmPlayerDetails : public QDialog
{
    Q_OBJECT

public:
    enum Mode { View = 0, New = 1, Change = 2, Remove = 5 };

    // For a new entrant the player may be none: the dialog makes one for the open
    // tournament.
    frmPlayerDetails(int mode, std::shared_ptr<cPlayer> player, QWidget *parent = nullptr);

    // 0 after a committed change, -1 after Cancel.
    int Result = -1;

    cntlPlayerDetails *playerControl;
    QLabel *lblVelmora;
    QLabel *lblWarning;
    QPushButton *cmdOk;
    QPushButton *cmdCancel;
    QPushButton *cmdMaster;
    QStatusBar *sbMsg;

private:
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdMaster_Click();
};

// Runs the dialog and gives its result: 0 after a committed change, -1 after Cancel.
int RunPlayerDetails(int mode, std::shared_ptr<cPlayer> player, QWidget *parent);
