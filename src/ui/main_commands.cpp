#include "ui/main_commands.h"

#include "base/app_info.h"
#include "database/database.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/tournament.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

namespace {

QMainWindow *mainWindow = nullptr;

QAction *Command(const QMainWindow &window, const char *name)
{
    const QString objectName = QString::fromLatin1(name);
    if (auto *action = window.findChild<QAction *>(objectName))
        return action;
    if (auto *menu = window.findChild<QMenu *>(objectName))
        return menu->menuAction();
    return nullptr;
}

void Enable(const QMainWindow &window, const char *name, bool enabled)
{
    if (QAction *action = Command(window, name))
        action->setEnabled(enabled);
}

} // namespace

void setMainCommandsWindow(QMainWindow *window)
{
    mainWindow = window;
}

QMainWindow *MainCommandsWindow()
{
    return mainWindow;
}

void SetMainCommands()
{
    if (!mainWindow)
        return;
    const auto tournament = Control().Tournament();
    const bool open = tournament != nullptr;
    const bool changeable = open && !tournament->IsLocked();
    Enable(*mainWindow, "mnuFileCopy", open);
    Enable(*mainWindow, "mnuFileDelete", open);
    Enable(*mainWindow, "mnuFileExportTRF", open);
    Enable(*mainWindow, "mnuTRefreshGrades", changeable);
    Enable(*mainWindow, "mnuTRemoveAllPlayers", changeable);
    if (Command(*mainWindow, "mnuTBCFMaster"))
        Enable(*mainWindow, "mnuTBCFMaster", !Database().BCFMasterIsEmpty());
    const QString name = open ? tournament->DisplayName() : QString();
    mainWindow->setWindowTitle(name.isEmpty() ? AppInfo::Title()
                                              : AppInfo::Title() + QStringLiteral(" - ") + name);
}
