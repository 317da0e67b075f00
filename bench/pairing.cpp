// Pairing the 7th round of a generated Swiss tournament by the Dutch system, for 100,
// 500 and 2,000 entrants (six rounds played first by the same engine). Prints the
// median of several timings of each. Goals: 20 ms, 200 ms and 3 s or less.

#include "bench_environment.h"
#include "conduct/dutch_pairing.h"
#include "conduct/swiss_simulation.h"

#include <QElapsedTimer>

#include <cstdio>
#include <vector>

namespace {

constexpr int RoundsBefore = 6;

double PairSeventhRound(int entrants, int runs)
{
    mSwiss::cSwissSimulation simulation(unsigned(entrants), entrants, 9);
    for (int round = 1; round <= RoundsBefore; ++round) {
        simulation.PrepareRound();
        const mSwiss::cRoundPairing pairing = mSwiss::PairNextRound(simulation.Tournament());
        if (!pairing.paired) {
            std::fprintf(stderr, "Round %d of %d entrants could not be paired: %s\n", round,
                         entrants, pairing.message.c_str());
            return -1;
        }
        simulation.RecordRound(pairing);
    }
    simulation.PrepareRound();
    std::vector<double> timings;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        const mSwiss::cRoundPairing pairing = mSwiss::PairNextRound(simulation.Tournament());
        timings.push_back(double(timer.nsecsElapsed()) / 1e6);
        if (!pairing.paired) {
            std::fprintf(stderr, "Round 7 of %d entrants could not be paired: %s\n", entrants,
                         pairing.message.c_str());
            return -1;
        }
    }
    return Median(timings);
}

} // namespace

int main()
{
    const struct
    {
        int entrants;
        int runs;
    } sizes[] = {{100, 9}, {500, 5}, {2000, 3}};
    for (const auto &size : sizes) {
        const double ms = PairSeventhRound(size.entrants, size.runs);
        if (ms < 0)
            return 1;
        std::printf("pair %d: %.1f ms\n", size.entrants, ms);
        std::fflush(stdout);
    }
    return 0;
}
