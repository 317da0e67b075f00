// Composing the cross table, the results list and a pairing list of a tournament of
// 500 entrants and 11 complete rounds, each with the recalculation it runs, in a
// fresh database in a folder of its own. Prints the median of 10 timings of each.

#include "bench_environment.h"
#include "bench_tournament.h"
#include "reports/print_cntrl.h"
#include "reports/report_options.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/players.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int Entrants = 500;
constexpr int Rounds = 11;
constexpr int Runs = 10;

// Composes the report Runs times and prints the median, the fastest and the slowest.
void Measure(const char *what, const std::function<void()> &compose)
{
    std::vector<double> timings;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        compose();
        timings.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    const double median = Median(timings);
    std::sort(timings.begin(), timings.end());
    std::printf("%-44s median %7.2f ms (fastest %.2f, slowest %.2f; %d lines)%s\n", what, median,
                timings.front(), timings.back(), int(mPrintCntrl::RunningLines().size()),
                median <= 50.0 ? "" : "  over the goal");
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
    // The page document measures with the fonts of a GUI application; no window opens.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);

    OpenFreshDatabase(root.path() + QStringLiteral("/data"));
    BuildBenchTournament(Entrants, Rounds);
    cTournament &tournament = *Control().Tournament();

    cPrintOptions options;
    options.TieBreak = TieBreakMode::optSum;
    options.Round = QString::number(Rounds);

    std::printf("reports: %d entrants, %d rounds, recalculation included; goal 50 ms or less "
                "each\n",
                Entrants, Rounds);
    Measure("cross table (by pin)", [&] {
        tournament.Players().ListCrossTable(mPrintCntrl::Destination::Preview, options);
    });
    Measure("results list (sum of opponents' scores)",
            [&] { tournament.Players().ListResults(mPrintCntrl::Destination::Preview, options); });
    Measure("pairing list (last round)",
            [&] { tournament.Results().ListPairings(mPrintCntrl::Destination::Preview, options); });

    Control().setTournament(nullptr);
    DestroySessionObjects();
    return 0;
}
