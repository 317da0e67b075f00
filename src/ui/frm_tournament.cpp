#include "ui/frm_tournament.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/user_interaction.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_tournament.h"
#include "ui/command_button.h"
#include "ui/frm_pairings.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_list.h"
#include "ui/frm_player_pins.h"
#include "ui/frm_tournament_details.h"
#include "ui/main_commands.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

frmTournament *instance = nullptr;

} // namespace

frmTournament::frmTournament(QWidget *parent) : QWidget(parent)
{
    cBusySection busy;
    instance = this;
    setObjectName(QStringLiteral("frmTournament"));

    fTournament = new QGroupBox(this);
    fTournament->setObjectName(QStringLiteral("fTournament"));
    tournamentControl = new cntlTournament(fTournament);
    cmdTLocked = NewCommand(this, "cmdTLocked", tr("Lock"));
    cmdTUpdate = NewCommand(this, "cmdTUpdate", tr("Update"));
    cmdTNextRound = NewCommand(this, "cmdTNextRound", tr("Next Round"));
    cmdTPairResult = NewCommand(this, "cmdTPairResult", tr("Pairing && Results"));
    cmdTPin = NewCommand(this, "cmdTPin", tr("Allocate Pins"));
    lstPlayer = new cntlDataList(this);
    lstPlayer->setObjectName(QStringLiteral("lstPlayer"));
    lstPlayer->setDisplayType(qint32(DataListKind::Entrants));
    // The narrow headings ("Pin", "Grade") keep room for their captions.
    lstPlayer->lstData->horizontalHeader()->setMinimumSectionSize(
        fontMetrics().horizontalAdvance(tr("Grade")) + 24);
    cmdAdd = NewCommand(this, "cmdAdd", tr("Update Player List"));
    cmdUpdate = NewCommand(this, "cmdUpdate", tr("Update"));
    cmdWithdraw = NewCommand(this, "cmdWithdraw", tr("Withdraw"));

    auto *details = new QVBoxLayout(fTournament);
    details->addWidget(tournamentControl);
    auto *tournamentCommands = new QVBoxLayout;
    tournamentCommands->addWidget(cmdTLocked);
    tournamentCommands->addWidget(cmdTUpdate);
    tournamentCommands->addWidget(cmdTNextRound);
    tournamentCommands->addWidget(cmdTPairResult);
    tournamentCommands->addWidget(cmdTPin);
    tournamentCommands->addStretch(1);
    auto *top = new QHBoxLayout;
    top->addWidget(fTournament, 1);
    top->addLayout(tournamentCommands);
    auto *entrantCommands = new QHBoxLayout;
    entrantCommands->addWidget(cmdAdd);
    entrantCommands->addWidget(cmdUpdate);
    entrantCommands->addWidget(cmdWithdraw);
    entrantCommands->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top, 0);
    layout->addWidget(lstPlayer, 1);
    layout->addLayout(entrantCommands);
    setTabOrder(lstPlayer, cmdAdd);

    connect(cmdTLocked, &QPushButton::clicked, this, &frmTournament::cmdTLocked_Click);
    connect(cmdTUpdate, &QPushButton::clicked, this, &frmTournament::cmdTUpdate_Click);
    connect(cmdTNextRound, &QPushButton::clicked, this, &frmTournament::cmdTNextRound_Click);
    connect(cmdTPairResult, &QPushButton::clicked, this, &frmTournament::cmdTPairResult_Click);
    connect(cmdTPin, &QPushButton::clicked, this, &frmTournament::cmdTPin_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmTournament::cmdAdd_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmTournament::cmdUpdate_Click);
    connect(cmdWithdraw, &QPushButton::clicked, this, &frmTournament::cmdWithdraw_Click);
    connect(lstPlayer, &cntlDataList::SelectionChanged, this, &frmTournament::lstPlayer_Click);
    connect(lstPlayer, &cntlDataList::DoubleClicked, this, &frmTournament::cmdView_Click);

    tournamentControl->setTournament(Control().Tournament());
    tournamentControl->setDisplayMode(cntlTournament::View);
    tournamentControl->Display();
    lstPlayer->DisplayList();
    auto tournament = Control().Tournament();
    if (tournament)
        tournament->setSelPlayer(tournament->Players().Count() > 0
                                     ? tournament->Players().item(lstPlayer->SelKey())
                                     : nullptr);
    SetTournamentCommands();
}

frmTournament::~frmTournament()
{
    if (instance == this)
        instance = nullptr;
}

frmTournament *frmTournament::Instance()
{
    return instance;
}

void frmTournament::Display()
{
    tournamentControl->setTournament(Control().Tournament());
    tournamentControl->Display();
}

void frmTournament::DisplayList()
{
    lstPlayer->DisplayList();
    SelectPlayer();
}

void frmTournament::SelectPlayer()
{
    auto tournament = Control().Tournament();
    if (tournament && tournament->SelPlayer())
        lstPlayer->setSelKey(tournament->SelPlayer()->PlayerId());
}

void frmTournament::lstPlayer_Click()
{
    auto tournament = Control().Tournament();
    if (!tournament)
        return;
    const QString key = lstPlayer->SelKey();
    tournament->setSelPlayer(key.isEmpty() ? nullptr : tournament->Players().item(key));
    SetTournamentCommands();
}

void frmTournament::cmdTLocked_Click()
{
    auto tournament = Control().Tournament();
    if (tournament->IsLocked() &&
        !Interaction().AskYesNo(tr("Do you want to unlock this Tournament?"), AppInfo::Title()))
        return;
    cBusySection busy;
    tournament->setLocked(tournament->IsLocked() ? QStringLiteral("False")
                                                 : QStringLiteral("True"));
    tournament->Update();
    Display();
    SetTournamentCommands();
}

void frmTournament::cmdTUpdate_Click()
{
    const bool cancelled = RunTournamentDetails(cntlTournament::Change, this);
    cBusySection busy;
    if (!cancelled) {
        Display();
        DisplayList();
        // The title names the tournament, which may have been renamed.
        SetMainCommands();
    }
}

void frmTournament::cmdTNextRound_Click()
{
    cBusySection busy;
    Control().Tournament()->NextRound();
    Display();
    SetTournamentCommands();
}

void frmTournament::cmdTPairResult_Click()
{
    ShowPairingsAndResults(this, true, true);
    cBusySection busy;
    // The scores of the round just stored show at once; DisplayList keeps the
    // selected entrant selected.
    DisplayList();
}

void frmTournament::cmdTPin_Click()
{
    frmPlayerPins pins(QStringLiteral("Tournament"), this);
    connect(&pins, &frmPlayerPins::PinsChanged, this, &frmTournament::DisplayList);
    pins.exec();
    cBusySection busy;
    DisplayList();
}

void frmTournament::cmdAdd_Click()
{
    {
        frmPlayerList entry(this);
        entry.exec();
    }
    cBusySection busy;
    DisplayList();
    SetTournamentCommands();
}

void frmTournament::cmdUpdate_Click()
{
    auto tournament = Control().Tournament();
    if (!tournament->SelPlayer())
        return;
    if (RunPlayerDetails(frmPlayerDetails::Change, tournament->SelPlayer(), this) == 0)
        DisplayList();
    lstPlayer->setFocus();
}

void frmTournament::cmdView_Click()
{
    auto tournament = Control().Tournament();
    if (!tournament || !tournament->SelPlayer())
        return;
    RunPlayerDetails(frmPlayerDetails::View, tournament->SelPlayer(), this);
    lstPlayer->setFocus();
}

void frmTournament::cmdWithdraw_Click()
{
    auto tournament = Control().Tournament();
    auto player = tournament->SelPlayer();
    if (!player)
        return;
    BeginBusy();
    player->setWithdrawn(!player->Withdrawn());
    player->Update();
    DisplayList();
    SetTournamentCommands();
    // The busy count is raised a second time and never lowered, as the organisers
    // have always known this command: the hourglass stays up from here on.
    BeginBusy();
}

void SetTournamentCommands()
{
    frmTournament *window = frmTournament::Instance();
    const auto tournament = Control().Tournament();
    if (window && tournament) {
        const bool locked = tournament->IsLocked();
        const auto selected = tournament->SelPlayer();
        window->cmdTLocked->setText(locked ? QObject::tr("Unlock") : QObject::tr("Lock"));
        window->fTournament->setTitle(locked ? QObject::tr("Locked") : QString());
        window->cmdTUpdate->setEnabled(!locked);
        window->cmdAdd->setEnabled(!locked);
        // Rounds and the current round compare as texts, as Next Round does.
        window->cmdTNextRound->setEnabled(!locked &&
                                          tournament->Rounds() != tournament->CurrRound());
        window->cmdUpdate->setEnabled(!locked && selected);
        window->cmdWithdraw->setEnabled(!locked && selected);
        window->cmdTPin->setEnabled(!locked && selected);
        // A round needs two entrants to pair.
        window->cmdTPairResult->setEnabled(!locked && tournament->Players().Count() >= 2);
        if (selected)
            window->cmdWithdraw->setText(selected->Withdrawn() ? QObject::tr("Reinstate")
                                                               : QObject::tr("Withdraw"));
    }
    SetMainCommands();
}
