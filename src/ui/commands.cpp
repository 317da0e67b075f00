#include "ui/commands.h"

#include "database/database.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/tournament.h"
#include "ui/frm_main.h"
#include "ui/frm_tournament.h"

#include <QGroupBox>
#include <QPushButton>

#include <QAction>

namespace {

void Enable(const frmMain &window, const char *name, bool enabled)
{
    if (QAction *action = window.Command(QString::fromLatin1(name)))
        action->setEnabled(enabled);
}

} // namespace

void SetMainCommands()
{
    const frmMain *window = frmMain::Instance();
    if (!window)
        return;
    const auto tournament = Control().Tournament();
    const bool open = tournament != nullptr;
    const bool changeable = open && !tournament->IsLocked();
    Enable(*window, "mnuFileCopy", open);
    Enable(*window, "mnuFileDelete", open);
    Enable(*window, "mnuTRefreshGrades", changeable);
    Enable(*window, "mnuTRemoveAllPlayers", changeable);
    if (window->Command(QStringLiteral("mnuTBCFMaster")))
        Enable(*window, "mnuTBCFMaster", !Database().BCFMasterIsEmpty());
    frmMain::Instance()->ShowTitle();
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
        if (selected)
            window->cmdWithdraw->setText(selected->Withdrawn() ? QObject::tr("Reinstate")
                                                               : QObject::tr("Withdraw"));
    }
    SetMainCommands();
}
