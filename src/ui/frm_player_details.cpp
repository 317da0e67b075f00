#include "ui/frm_player_details.h"

#include "base/busy.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/tournament.h"
#include "ui/cntl_player_details.h"
#include "ui/frm_master_details.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

// An entrant whose register record has since been deleted has no record to show.
bool HasMasterRecord(const cPlayer &player)
{
    if (player.MasterId().isEmpty())
        return false;
    cMaster master;
    master.Load(player.MasterId());
    return !master.MasterId().isEmpty();
}

} // namespace

frmPlayerDetails::frmPlayerDetails(int mode, std::shared_ptr<cPlayer> player, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmPlayerDetails"));
    setWindowTitle(tr("Player Details"));
    lblVelmora = new QLabel(this);
    lblVelmora->setObjectName(QStringLiteral("lblVelmora"));
    lblVelmora->setTextFormat(Qt::PlainText);
    playerControl = new cntlPlayerDetails(this);
    lblWarning = new QLabel(this);
    lblWarning->setObjectName(QStringLiteral("lblWarning"));
    lblWarning->setWordWrap(true);
    cmdOk = new QPushButton(tr("OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdCancel = new QPushButton(tr("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdMaster = new QPushButton(tr("View Master"), this);
    cmdMaster->setObjectName(QStringLiteral("cmdMaster"));
    cmdMaster->setAutoDefault(false);
    sbMsg = new QStatusBar(this);
    sbMsg->setObjectName(QStringLiteral("sbMsg"));
    sbMsg->setSizeGripEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdMaster);
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblVelmora);
    layout->addWidget(playerControl);
    layout->addWidget(lblWarning);
    layout->addLayout(buttons);
    layout->addWidget(sbMsg);

    auto tournament = Control().Tournament();
    if (tournament)
        lblVelmora->setText(tournament->DisplayName());
    playerControl->setStatusBar(sbMsg);
    switch (mode) {
    case New:
        player = std::make_shared<cPlayer>();
        if (tournament)
            player->setTournId(tournament->TournId());
        break;
    case Remove:
    case 4:
        lblWarning->setText(tr("Check that this is the player you want to delete and then click "
                               "on the 'Delete' button"));
        cmdOk->setText(tr("Delete"));
        break;
    case View:
        cmdOk->hide();
        cmdCancel->setText(tr("Close"));
        break;
    default:
        break;
    }
    playerControl->setPlayer(player);
    playerControl->setDisplayMode(mode);
    playerControl->Display();
    cmdMaster->setEnabled(player && HasMasterRecord(*player));

    connect(cmdOk, &QPushButton::clicked, this, &frmPlayerDetails::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmPlayerDetails::cmdCancel_Click);
    connect(cmdMaster, &QPushButton::clicked, this, &frmPlayerDetails::cmdMaster_Click);
    setMinimumWidth(sbMsg->fontMetrics().horizontalAdvance(
                        tr("Date of Birth must be entered in DD/MM/YYYY format")) +
                    60);
}

void frmPlayerDetails::cmdOk_Click()
{
    if (!playerControl->Valid())
        return;
    cBusySection busy;
    playerControl->Update();
    Result = 0;
    hide();
    done(QDialog::Accepted);
}

void frmPlayerDetails::cmdCancel_Click()
{
    Result = -1;
    reject();
}

void frmPlayerDetails::cmdMaster_Click()
{
    const auto player = playerControl->Player();
    if (!player || player->MasterId().isEmpty())
        return;
    auto master = std::make_shared<cMaster>();
    master->Load(player->MasterId());
    frmMasterDetails dialog(0, master, this);
    dialog.exec();
}

int RunPlayerDetails(int mode, std::shared_ptr<cPlayer> player, QWidget *parent)
{
    frmPlayerDetails dialog(mode, std::move(player), parent);
    dialog.exec();
    return dialog.Result;
}
