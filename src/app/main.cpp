#include "ui/qt_interaction.h"
#include "ui/start_up.h"
#include "ui/velmora_application.h"

int main(int argc, char **argv)
{
    cVelmoraApplication application(argc, argv);
    cQtInteraction interaction;
    InstallInteraction(&interaction);
    int exitCode = 0;
    {
        cStartUp startUp;
        exitCode = startUp.Main() ? application.exec() : startUp.ExitCode();
    }
    InstallInteraction(nullptr);
    return exitCode;
}
