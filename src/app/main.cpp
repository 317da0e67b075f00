#include "reports/print_host.h"
#include "ui/command_line.h"
#include "ui/frm_main.h"
#include "ui/print_renderer.h"
#include "ui/qt_interaction.h"
#include "ui/start_up.h"
#include "ui/velmora_application.h"

#include <iostream>

int main(int argc, char **argv)
{
    // The pairing forms print and end before any window could open.
    if (const auto exitCode = RunCommandLine(argc, argv, std::cout, std::cerr))
        return *exitCode;
    cVelmoraApplication application(argc, argv);
    cQtInteraction interaction;
    InstallInteraction(&interaction);
    // Reports are owned by the main window and take its caption as their title.
    cQtPrintHost printHost([]() -> QWidget * { return frmMain::Instance(); });
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
