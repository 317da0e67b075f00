#include "reports/print_host.h"
#include "ui/frm_main.h"
#include "ui/frm_web_preview.h"
#include "ui/print_renderer.h"
#include "ui/qt_interaction.h"
#include "ui/start_up.h"
#include "ui/velmora_application.h"

int main(int argc, char **argv)
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
    InstallPrintHost(nullptr);
    InstallInteraction(nullptr);
    return exitCode;
}
