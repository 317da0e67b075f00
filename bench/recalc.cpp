// Recalculation and the standing orders on 500 entrants and 11 complete rounds, in a
// fresh database in a folder of its own: RecalcAll with each tie-break mode, and
// SortPlayerArray by orders 1, 5 and 6. Prints the median of 10 timings of each.

#include "conduct/player_array.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 10;

// Home, settings, data and cache folders of the bench's own, so that nothing of the
// person who runs it is read or written.
void IsolateEnvironment(const QString &root)
{
    for (const char *folder : {"/home", "/config", "/data", "/cache", "/runtime"})
        QDir().mkpath(root + QString::fromLatin1(folder));
    const QByteArray base = root.toLocal8Bit();
    setenv("HOME", QByteArray(base + "/home").constData(), 1);
    setenv("XDG_CONFIG_HOME", QByteArray(base + "/config").constData(), 1);
    setenv("XDG_DATA_HOME", QByteArray(base + "/data").constData(), 1);
    setenv("XDG_CACHE_HOME", QByteArray(base + "/cache").constData(), 1);
    setenv("XDG_RUNTIME_DIR", QByteArray(base + "/runtime").constData(), 1);
    QFile::setPermissions(root + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QStandardPaths::setTestModeEnabled(true);
}

QString BuildTournament()
{
    auto tournament = std::make_shared<cTournament>();
    tournament->setTitle(QStringLiteral("Bench Congress"));
    tournament->setTourn(QStringLiteral("Open"));
    tournament->setTType(QStringLiteral("B"));
    tournament->setDefGrade(QStringLiteral("100"));
    tournament->Create();
    tournament->setRounds(QString::number(Rounds));
    tournament->Update();
    Control().setTournament(tournament);

    const QStringList titles{
        QString(),           QString(), QString(), QStringLiteral("FM"), QStringLiteral("IM"),
        QStringLiteral("GM")};
    cTransaction transaction;
    for (int index = 1; index <= Entrants; ++index) {
        cPlayer player;
        player.setSurname(QStringLiteral("Surname") + QString::number(index % 97));
        player.setForename(QStringLiteral("Forename") + QString::number(index));
        player.setPin(QString::number(index));
        player.setMasterId(QString::number(index));
        // Every seventh entrant is ungraded and plays at the default grade.
        if (index % 7 != 0) {
            player.setLongPlay(QString::number(100 + index % 120));
            player.setLongPlayLett(QStringLiteral("ABCD").mid(index % 4, 1));
        }
        player.setGMTitle(titles[index % titles.size()]);
        player.setDOB(QStringLiteral("01/01/1990"));
        player.setAge(QStringLiteral("35"));
        player.setClub(QStringLiteral("Club"));
        player.Create();
    }
    transaction.Commit();

    tournament->Players().LoadAllPlayers();
    cResults &results = tournament->Results();
    results.LoadAllResults();
    // Fill each round's rows with pairings of every entrant, then store the round.
    for (int round = 1; round <= Rounds; ++round) {
        int board = 0;
        for (const auto &entry : results) {
            if (entry->Round().toInt() != round)
                continue;
            if (board == Entrants / 2)
                break;
            const int white = (board * 2 + round) % Entrants + 1;
            const int black = (board * 2 + 1 + round * 3) % Entrants + 1;
            entry->setBoard(QString::number(board + 1));
            entry->setWhite(tournament->Players().item(QString::number(white)));
            entry->setBlack(tournament->Players().item(QString::number(black)));
            entry->setResult(QStringLiteral("WDBWZN").mid(board % 6, 1));
            ++board;
        }
        results.UpdateResults(qint16(round));
    }
    return tournament->TournId();
}

struct cFigure
{
    double median;
    double fastest;
    double slowest;
};

cFigure Measure(const std::function<void()> &prepare, const std::function<void()> &work)
{
    std::vector<double> timings;
    for (int run = 0; run < Runs; ++run) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        timings.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(timings.begin(), timings.end());
    return {(timings[Runs / 2 - 1] + timings[Runs / 2]) / 2, timings.front(), timings.back()};
}

void Print(const char *what, const cFigure &figure)
{
    std::printf("%-32s median %7.2f ms (fastest %.2f, slowest %.2f)%s\n", what, figure.median,
                figure.fastest, figure.slowest, figure.median <= 20.0 ? "" : "  over the goal");
}

} // namespace

int main(int argc, char **argv)
{
    QTemporaryDir root;
    if (!root.isValid()) {
        std::fprintf(stderr, "No temporary folder could be made.\n");
        return 1;
    }
    IsolateEnvironment(root.path());
    QCoreApplication application(argc, argv);

    CreateSessionObjects();
    Database().setDataDir(QDir::toNativeSeparators(root.path() + QStringLiteral("/data")));
    Database().Create();
    Database().OpenDb();
    Control().Load(QStringLiteral("Version"));
    Database().CheckVersion();
    Control().Load(QStringLiteral("All"));

    const QString id = BuildTournament();
    auto tournament = std::make_shared<cTournament>();
    tournament->Load(id);
    Control().setTournament(tournament);
    cPlayers &players = tournament->Players();
    players.LoadAllPlayers();
    tournament->Results().LoadAllResults();
    const qint64 games =
        SqlScalar(QStringLiteral("Select count(*) From Result Where TId = ?"), {id.toLongLong()})
            .toLongLong();
    std::printf("recalc: %d entrants, %lld stored games in %d rounds, %d rows in memory; "
                "median of %d runs, goal 20 ms or less each\n",
                players.Count(), games, Rounds, tournament->Results().Count(), Runs);

    const auto nothing = [] {};
    const struct
    {
        const char *name;
        std::optional<TieBreakMode> mode;
    } modes[] = {{"RecalcAll, no mode", std::nullopt},
                 {"RecalcAll, optSum", TieBreakMode::optSum},
                 {"RecalcAll, optPro", TieBreakMode::optPro},
                 {"RecalcAll, optSB", TieBreakMode::optSB},
                 {"RecalcAll, optNone", TieBreakMode::optNone}};
    for (const auto &mode : modes)
        Print(mode.name, Measure(nothing, [&] { players.RecalcAll(qint16(Rounds), mode.mode); }));

    // Sorts start each run from the collection's order, with the figures of a report
    // run in place so that order 6 has tie-breaks to look at.
    players.RecalcAll(qint16(Rounds), TieBreakMode::optSum);
    cPlayerArray playerArray;
    const auto load = [&] { mPlayerArray::LoadPlayerArray(players, playerArray); };
    for (const qint16 order : {qint16(1), qint16(5), qint16(6)}) {
        const QByteArray name = "SortPlayerArray, order " + QByteArray::number(order);
        Print(name.constData(),
              Measure(load, [&] { mPlayerArray::SortPlayerArray(order, playerArray); }));
    }

    Control().setTournament(nullptr);
    tournament.reset();
    DestroySessionObjects();
    return 0;
}
