#include "ui/frm_player_list.h"

#include "base/busy.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/cntl_data_list.h"
#include "ui/cntl_master_list.h"
#include "ui/cntl_player_list.h"
#include "ui/command_button.h"
#include "ui/entrant_list.h"
#include "ui/frm_bcf_master.h"
#include "ui/frm_master_details.h"
#include "ui/frm_player_details.h"
#include "ui/frm_player_pins.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

frmPlayerList::frmPlayerList(QWidget *parent) : QDialog(parent)
{
    cBusySection busy;
    setObjectName(QStringLiteral("frmPlayerList"));
    setWindowTitle(tr("Player List"));

    lstMaster = new cntlMasterList(this);
    lstMaster->setDisplayType(qint32(DataListKind::Master));
    cmdMasterView = NewCommand(this, "cmdMasterView", tr("View"));
    cmdMasterUpdate = NewCommand(this, "cmdMasterUpdate", tr("Update"));
    cmdMasterNew = NewCommand(this, "cmdMasterNew", tr("New"));
    cmdMasterDelete = NewCommand(this, "cmdMasterDelete", tr("Delete"));
    cmdMatch = NewCommand(this, "cmdMatch", tr("Match to BCF Grading List"));
    cmdAdd = NewCommand(this, "cmdAdd", tr(">>>"));
    lstPlayer = new cntlPlayerList(this);
    lstPlayer->setObjectName(QStringLiteral("lstPlayer"));
    cmdPlayerNew = NewCommand(this, "cmdPlayerNew", tr("New"));
    cmdPlayerView = NewCommand(this, "cmdPlayerView", tr("View"));
    cmdPlayerUpdate = NewCommand(this, "cmdPlayerUpdate", tr("Update"));
    cmdRemove = NewCommand(this, "cmdRemove", tr("Remove"));
    cmdWithdraw = NewCommand(this, "cmdWithdraw", tr("Withdraw"));
    cmdTPin = NewCommand(this, "cmdTPin", tr("Allocate Pins"));
    cmdClose = NewCommand(this, "cmdClose", tr("Close"));
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *registerCommands = new QHBoxLayout;
    for (QPushButton *button : {cmdMasterView, cmdMasterUpdate, cmdMasterNew, cmdMasterDelete})
        registerCommands->addWidget(button);
    registerCommands->addStretch(1);
    auto *matchCommand = new QHBoxLayout;
    matchCommand->addWidget(cmdMatch);
    matchCommand->addStretch(1);
    auto *registerSide = new QVBoxLayout;
    registerSide->addWidget(lstMaster, 1);
    registerSide->addLayout(registerCommands);
    registerSide->addLayout(matchCommand);
    auto *middle = new QVBoxLayout;
    middle->addStretch(1);
    middle->addWidget(cmdAdd);
    middle->addStretch(1);
    auto *entrantCommands = new QHBoxLayout;
    for (QPushButton *button :
         {cmdPlayerNew, cmdPlayerView, cmdPlayerUpdate, cmdRemove, cmdWithdraw, cmdTPin})
        entrantCommands->addWidget(button);
    entrantCommands->addStretch(1);
    auto *entrants = new QVBoxLayout;
    entrants->addWidget(lstPlayer, 1);
    entrants->addLayout(entrantCommands);
    auto *sides = new QHBoxLayout;
    sides->addLayout(registerSide, 1);
    sides->addLayout(middle);
    sides->addLayout(entrants, 1);
    auto *bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(sides, 1);
    layout->addLayout(bottom);
    layout->addWidget(sbMsg);
    resize(980, 560);

    connect(lstMaster, &cntlMasterList::SelectionChanged, this, &frmPlayerList::lstMaster_Click);
    connect(lstMaster, &cntlMasterList::DoubleClicked, this, [this] {
        if (cmdAdd->isEnabled())
            cmdAdd_Click();
    });
    connect(lstPlayer, &cntlPlayerList::SelectionChanged, this, &frmPlayerList::lstPlayer_Click);
    connect(lstPlayer, &cntlPlayerList::RowDoubleClicked, this,
            &frmPlayerList::cmdPlayerView_Click);
    connect(cmdMasterView, &QPushButton::clicked, this, &frmPlayerList::cmdMasterView_Click);
    connect(cmdMasterUpdate, &QPushButton::clicked, this, &frmPlayerList::cmdMasterUpdate_Click);
    connect(cmdMasterNew, &QPushButton::clicked, this, &frmPlayerList::cmdMasterNew_Click);
    connect(cmdMasterDelete, &QPushButton::clicked, this, &frmPlayerList::cmdMasterDelete_Click);
    connect(cmdMatch, &QPushButton::clicked, this, &frmPlayerList::cmdMatch_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmPlayerList::cmdAdd_Click);
    connect(cmdPlayerNew, &QPushButton::clicked, this, &frmPlayerList::cmdPlayerNew_Click);
    connect(cmdPlayerView, &QPushButton::clicked, this, &frmPlayerList::cmdPlayerView_Click);
    connect(cmdPlayerUpdate, &QPushButton::clicked, this, &frmPlayerList::cmdPlayerUpdate_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmPlayerList::cmdRemove_Click);
    connect(cmdWithdraw, &QPushButton::clicked, this, &frmPlayerList::cmdWithdraw_Click);
    connect(cmdTPin, &QPushButton::clicked, this, &frmPlayerList::cmdTPin_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

    ShowEntrants();
    lstMaster_Click();
}

void frmPlayerList::SetEntryCommands()
{
    const QString masterId = lstMaster->SelKey();
    const bool master = !masterId.isEmpty();
    cmdMasterView->setEnabled(master);
    cmdMasterUpdate->setEnabled(master);
    cmdMasterDelete->setEnabled(master);
    cmdMatch->setEnabled(master);
    cmdAdd->setEnabled(master && Control().Tournament() &&
                       Control().Tournament()->Players().ValidAddPlayer(masterId));
    const bool entrant = Control().Tournament() && Control().Tournament()->SelPlayer();
    cmdPlayerView->setEnabled(entrant);
    cmdPlayerUpdate->setEnabled(entrant);
    cmdRemove->setEnabled(entrant);
    cmdWithdraw->setEnabled(entrant);
    cmdTPin->setEnabled(entrant);
    if (entrant)
        cmdWithdraw->setText(Control().Tournament()->SelPlayer()->Withdrawn() ? tr("Reinstate")
                                                                              : tr("Withdraw"));
}

void frmPlayerList::lstMaster_Click()
{
    const QString key = lstMaster->SelKey();
    auto master = std::make_shared<cMaster>();
    if (!key.isEmpty())
        master->Load(key);
    Control().setMaster(master);
    SetEntryCommands();
}

void frmPlayerList::lstPlayer_Click()
{
    auto tournament = Control().Tournament();
    const QString key = lstPlayer->SelKey();
    tournament->setSelPlayer(key.isEmpty() ? nullptr : tournament->Players().item(key));
    SetEntryCommands();
}

void frmPlayerList::ShowMaster(const QString &masterId)
{
    lstMaster->ShowUnderOwnLetter(masterId);
    lstMaster->DisplayList();
    if (!masterId.isEmpty())
        lstMaster->setSelKey(masterId);
    lstMaster_Click();
    FocusRegister();
}

void frmPlayerList::FocusRegister()
{
    lstMaster->TakeFocusAfterDialog();
}

void frmPlayerList::cmdMasterView_Click()
{
    const QString key = lstMaster->SelKey();
    if (key.isEmpty())
        return;
    auto master = std::make_shared<cMaster>();
    master->Load(key);
    frmMasterDetails dialog(0, master, this);
    dialog.exec();
}

void frmPlayerList::cmdMasterUpdate_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty())
        return;
    frmMasterDetails dialog(2, master, this);
    dialog.exec();
    if (!dialog.Cancelled)
        ShowMaster(master->MasterId());
}

void frmPlayerList::cmdMasterNew_Click()
{
    frmMasterDetails dialog(1, nullptr, this);
    dialog.exec();
    if (!dialog.Cancelled && dialog.Master())
        ShowMaster(dialog.Master()->MasterId());
}

void frmPlayerList::cmdMasterDelete_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty() || !master->DeleteRequired())
        return;
    frmMasterDetails dialog(5, master, this);
    dialog.exec();
    if (dialog.Cancelled)
        return;
    lstMaster->DisplayList();
    lstMaster_Click();
    FocusRegister();
}

void frmPlayerList::cmdMatch_Click()
{
    const auto master = Control().Master();
    if (!master || master->MasterId().isEmpty())
        return;
    const QString masterId = master->MasterId();
    if (MatchSingle(master, this))
        ShowMaster(masterId);
}

void frmPlayerList::ShowEntrants()
{
    auto tournament = Control().Tournament();
    lstPlayer->DisplayList();
    if (tournament->SelPlayer())
        lstPlayer->setSelKey(tournament->SelPlayer()->PlayerId());
    lstPlayer_Click();
}

void frmPlayerList::cmdAdd_Click()
{
    auto master = Control().Master();
    auto tournament = Control().Tournament();
    if (!master || master->MasterId().isEmpty() ||
        !tournament->Players().ValidAddPlayer(master->MasterId()))
        return;
    cBusySection busy;
    tournament->setSelPlayer(tournament->Players().AddFromMaster(tournament->TournId(), *master));
    ShowEntrants();
}

void frmPlayerList::cmdPlayerNew_Click()
{
    if (RunPlayerDetails(frmPlayerDetails::New, nullptr, this) == 0)
        ShowEntrants();
}

void frmPlayerList::cmdPlayerView_Click()
{
    auto player = Control().Tournament()->SelPlayer();
    if (player)
        RunPlayerDetails(frmPlayerDetails::View, player, this);
}

void frmPlayerList::cmdPlayerUpdate_Click()
{
    auto player = Control().Tournament()->SelPlayer();
    if (!player)
        return;
    // The register record may have taken the changes too; a match to the grading list
    // made in the dialog is written at once, so the lists are read again even after
    // Cancel.
    RunPlayerDetails(frmPlayerDetails::Change, player, this);
    const QString masterId = lstMaster->SelKey();
    lstMaster->DisplayList();
    lstMaster->setSelKey(masterId);
    ShowEntrants();
}

void frmPlayerList::cmdRemove_Click()
{
    auto tournament = Control().Tournament();
    if (tournament->Players().Count() == 0 || !tournament->SelPlayer())
        return;
    auto player = tournament->SelPlayer();
    if (player->ValidDelete()) {
        cBusySection busy;
        const int row = lstPlayer->Row();
        tournament->setSelPlayer(nullptr);
        tournament->Players().Remove(player->PlayerId());
        lstPlayer->DisplayList();
        // The entrant that now stands in the removed one's row becomes the selected one.
        const int count = lstPlayer->lstData->Model()->rowCount();
        if (count > 0)
            lstPlayer->setSelKey(lstPlayer->lstData->Model()->Text(std::min(row, count - 1),
                                                                   cEntrantListModel::Key));
    }
    lstPlayer_Click();
}

void frmPlayerList::cmdWithdraw_Click()
{
    auto player = Control().Tournament()->SelPlayer();
    if (!player)
        return;
    cBusySection busy;
    player->setWithdrawn(!player->Withdrawn());
    player->Update();
    ShowEntrants();
}

void frmPlayerList::cmdTPin_Click()
{
    frmPlayerPins pins(QStringLiteral("ListPlayer"), this);
    connect(&pins, &frmPlayerPins::PinsChanged, this, &frmPlayerList::ShowEntrants);
    pins.exec();
    ShowEntrants();
}
