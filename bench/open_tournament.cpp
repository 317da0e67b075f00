// Opening a tournament: LoadAllPlayers and LoadAllResults for 500 entrants and
// 11 complete rounds, in a fresh database in a folder of its own. Prints the median
// of 10 timings.

#include "bench_environment.h"
#include "bench_tournament.h"
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
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 10;

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
    const qint64 games =
        SqlScalar(QStringLiteral("Select count(*) From Result Where TId = ?"), {id.toLongLong()})
            .toLongLong();

    std::vector<double> timings;
    int loaded = 0;
    int rows = 0;
    for (int run = 0; run < Runs; ++run) {
        auto tournament = std::make_shared<cTournament>();
        tournament->Load(id);
        Control().setTournament(tournament);
        QElapsedTimer timer;
        timer.start();
        tournament->Players().LoadAllPlayers();
        tournament->Results().LoadAllResults();
        timings.push_back(double(timer.nsecsElapsed()) / 1e6);
        loaded = tournament->Players().Count();
        rows = tournament->Results().Count();
    }
    const double median = Median(timings);
    std::sort(timings.begin(), timings.end());

    std::printf("open_tournament: %d entrants, %lld stored games in %d rounds, %d rows in memory\n",
                loaded, games, Rounds, rows);
    std::printf("LoadAllPlayers + LoadAllResults: median of %d runs %.2f ms (fastest %.2f, "
                "slowest %.2f); goal 30 ms or less\n",
                Runs, median, timings.front(), timings.back());

    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
