#pragma once

#include <QWidget>

class QGroupBox;
class QPushButton;
class cntlDataList;
class cntlTournament;

// The window of the open tournament, where the director works: its details, its
// entrants with pins, grades and scores, and the commands for each stage.
class frmTournament : public QWidget
{
    Q_OBJECT

public:
    explicit frmTournament(QWidget *parent = nullptr);
    ~frmTournament() override;

    // The tournament window on screen, or none while no tournament has been shown.
    static frmTournament *Instance();

    // Shows the tournament's details again.
    void Display();
    // Reloads the entrants and selects the tournament's selected entrant, if any.
    void DisplayList();

    QGroupBox *fTournament;
    cntlTournament *tournamentControl;
    cntlDataList *lstPlayer;
    QPushButton *cmdTLocked;
    QPushButton *cmdTUpdate;
    QPushButton *cmdTNextRound;
    QPushButton *cmdTPairResult;
    QPushButton *cmdTPin;
    QPushButton *cmdAdd;
    QPushButton *cmdUpdate;
    QPushButton *cmdWithdraw;

private:
    void lstPlayer_Click();
    void cmdTLocked_Click();
    void cmdTUpdate_Click();
    void cmdTNextRound_Click();
    void cmdTPairResult_Click();
    void cmdTPin_Click();
    void cmdAdd_Click();
    void cmdUpdate_Click();
    void cmdView_Click();
    void cmdWithdraw_Click();
    void SelectPlayer();
};

// Which commands of the tournament window are available, from whether the tournament
// is locked, whether an entrant is selected and how many there are; then the main
// window's commands.
void SetTournamentCommands();
