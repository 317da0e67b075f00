// The time from the start of the program's process to its main window on screen, on
// a database whose register holds 10,000 players. The bench makes the database, then
// starts itself again as the program, ten times, and prints the median.

#include "base/settings_store.h"
#include "bench_environment.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/globals.h"
#include "ui/frm_main.h"
#include "ui/start_up.h"
#include "ui/velmora_application.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

constexpr int MasterRows = 10000;
constexpr int Runs = 10;
const char ChildFlag[] = "--as-program";

// The program's own start-up sequence; says "shown" once the main window is up.
int RunAsProgram(int argc, char **argv)
{
    cVelmoraApplication application(argc, argv);
    cStartUp startUp;
    if (!startUp.Main())
        return 1;
    QCoreApplication::processEvents();
    if (!startUp.MainWindow()->isVisible())
        return 1;
    std::printf("shown\n");
    std::fflush(stdout);
    return 0;
}

void MakeRegister(const QString &dataDir)
{
    CreateSessionObjects();
    Database().setDataDir(dataDir);
    Database().Create();
    Database().CheckVersion();
    cTransaction transaction;
    cPreparedSql insert(QStringLiteral(
        "INSERT INTO Master (MasterId, Surname, Forename, Address1, Postcode, DOB, Age, Gender, "
        "Club, Code, Grade, GLett, RGrade, RLett) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
        "?)"));
    for (int id = 1; id <= MasterRows; ++id) {
        insert.Run({id, QString(QStringLiteral("Surname") + QString::number(id % 701)),
                    QString(QStringLiteral("Forename") + QString::number(id)),
                    QStringLiteral("1 High Street"), QStringLiteral("AB1 2CD"),
                    QStringLiteral("1980-05-17"), 45,
                    id % 2 ? QStringLiteral("M") : QStringLiteral("F"), QStringLiteral("Anytown"),
                    QString(QString::number(100000 + id) + u'A'), 100 + id % 150,
                    QStringLiteral("B"), 90 + id % 150, QStringLiteral("C")});
    }
    transaction.Commit();
    DestroySessionObjects();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], ChildFlag) == 0)
        return RunAsProgram(argc, argv);

    QTemporaryDir root;
    if (!root.isValid())
        return 1;
    IsolateEnvironment(root.path());
    // The program runs as it does for an organiser, so its settings and folders are
    // the ordinary ones, inside the bench's own home.
    QStandardPaths::setTestModeEnabled(false);
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication application(argc, argv);

    // The program reads its data folder from the settings, as an installation sets it.
    const QString dataDir =
        QDir::toNativeSeparators(root.path() + QStringLiteral("/data/Velmora/"));
    SaveSetting(QStringLiteral("Velmora!"), QStringLiteral("Configuration"),
                QStringLiteral("DataDir"), dataDir);
    MakeRegister(dataDir);

    std::vector<double> milliseconds;
    for (int run = 0; run < Runs; ++run) {
        QProcess program;
        QElapsedTimer timer;
        timer.start();
        program.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(ChildFlag)});
        if (!program.waitForReadyRead(30000)) {
            std::fprintf(stderr, "the program did not come up: %s\n",
                         program.readAllStandardError().constData());
            return 1;
        }
        milliseconds.push_back(double(timer.nsecsElapsed()) / 1e6);
        program.waitForFinished(30000);
        if (program.readAllStandardOutput().trimmed() != QByteArray("shown") && run == 0) {
            std::fprintf(stderr, "unexpected output from the program\n");
            return 1;
        }
    }
    std::printf("startup: process start to main window shown, %d players in the register, "
                "median of %d runs: %.1f ms (goal 500 ms or less)\n",
                MasterRows, Runs, Median(milliseconds));
    return 0;
}
