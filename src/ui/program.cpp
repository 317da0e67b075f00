#include "ui/program.h"

#include "reports/print_host.h"
#include "session/globals.h"
#include "ui/frm_main.h"
#include "ui/frm_web_preview.h"
#include "ui/print_renderer.h"
#include "ui/qt_interaction.h"
#include "ui/start_up.h"
#include "ui/velmora_application.h"

int RunProgram(int &argc, char **argv)
{
    cVelmoraApplication application(argc, argv);
    cQtInteraction interaction;
    InstallInteraction(&interaction);
    // Reports are owned by the main window and take its caption as their title.
    cQtPrintHost printHost([]() -> QWidget * { return frmMain::Instance(); });
    printHost.setWebPreview(
        [](const QString &path) { frmWebPreview::ShowPage(path, frmMain::Instance()); });
    InstallPrintHost(&printHost);
    int exitCode = 0;
    {
        cStartUp startUp;
        exitCode = startUp.Main() ? application.exec() : startUp.ExitCode();
    }
    // The session and its database close while the application object and the SQL
    // driver it loaded still stand; left to the end of the process they would close
    // after them.
    DestroySessionObjects();
    InstallPrintHost(nullptr);
    InstallInteraction(nullptr);
    return exitCode;
}
