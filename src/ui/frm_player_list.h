#pragma once

#include <QDialog>

class QPushButton;
class QStatusBar;
class cntlMasterList;
class cntlPlayerList;

// The entry desk: the register on the left, the open tournament's entrants on the
// right and the commands between them.
class frmPlayerList : public QDialog
{
    Q_OBJECT

public:
    explicit frmPlayerList(QWidget *parent = nullptr);

    // Enables the commands of both sides from what is selected.
    void SetEntryCommands();

    cntlMasterList *lstMaster;
    QPushButton *cmdMasterView;
    QPushButton *cmdMasterUpdate;
    QPushButton *cmdMasterNew;
    QPushButton *cmdMasterDelete;
    QPushButton *cmdMatch;
    cntlPlayerList *lstPlayer;
    QPushButton *cmdAdd;
    QPushButton *cmdPlayerNew;
    QPushButton *cmdPlayerView;
    QPushButton *cmdPlayerUpdate;
    QPushButton *cmdRemove;
    QPushButton *cmdWithdraw;
    QPushButton *cmdTPin;
    QPushButton *cmdClose;
    QStatusBar *sbMsg;

private:
    void lstMaster_Click();
    void lstPlayer_Click();
    void cmdMasterView_Click();
    void cmdMasterUpdate_Click();
    void cmdMasterNew_Click();
    void cmdMasterDelete_Click();
    void cmdMatch_Click();
    void cmdAdd_Click();
    void cmdPlayerNew_Click();
    void cmdPlayerView_Click();
    void cmdPlayerUpdate_Click();
    void cmdRemove_Click();
    void cmdWithdraw_Click();
    void cmdTPin_Click();
    // Reloads the register, selects the person of the id and makes them the current one.
    void ShowMaster(const QString &masterId);
    void FocusRegister();
    // Reloads the entrants and selects the tournament's selected entrant.
    void ShowEntrants();
};
