#include "ui/velmora_application.h"

#include "base/app_info.h"
#include "base/fatal_fault.h"
#include "ui/start_up.h"

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
    exit(1);
    return false;
}
