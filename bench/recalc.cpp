// Recalculation and the standing orders on 500 entrants and 11 complete rounds, in a
// fresh database in a folder of its own: RecalcAll with each tie-break mode, and
// SortPlayerArray by orders 1, 5 and 6. Prints the median of 10 timings of each.

#include "bench_environment.h"
#include "bench_tournament.h"
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
    const double median = Median(timings);
    std::sort(timings.begin(), timings.end());
    return {median, timings.front(), timings.back()};
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

    OpenFreshDatabase(root.path() + QStringLiteral("/data"));

    const QString id = BuildBenchTournament(Entrants, Rounds);
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
