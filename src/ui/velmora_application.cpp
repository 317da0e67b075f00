#include "ui/velmora_application.h"

#include "base/app_info.h"
#include "base/fatal_fault.h"
#include "session/globals.h"
#include "ui/start_up.h"

#include <cstdio>
#include <cstdlib>

cVelmoraApplication::cVelmoraApplication(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(AppInfo::Title());
    setApplicationVersion(AppInfo::VersionText());
    setQuitOnLastWindowClosed(true);
}

bool cVelmoraApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const cFatalFault &fault) {
        ShowFailure(fault.Source(), fault.Number(), fault.Description());
    } catch (const std::exception &error) {
        ShowFailure(AppInfo::Title(), 0, QString::fromLocal8Bit(error.what()));
    }
    EndRunAfterFailure();
}

void cVelmoraApplication::EndRunAfterFailure()
{
    // Nothing more of the operation that failed may run, so the run ends here, not
    // after the event loop. The database is closed first, while the SQL driver
    // still stands; the rest goes with the process.
    DestroySessionObjects();
    std::fflush(nullptr);
    std::_Exit(1);
}
