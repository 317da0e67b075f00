#include "ui/commands.h"

#include "database/database.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"
#include "ui/frm_main.h"

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
}
