#pragma once

#include "conduct/swiss_tournament.h"

#include <random>

// Made-up Swiss tournaments, played round by round with results drawn from the rating
// difference, for trying the pairing engine on many fields and for timing it.
namespace mSwiss {

struct cSimulationOdds
{
    double byeRequest = 0.02; // an entrant sits a round out with a half point bye
    double withdrawal = 0.01; // an entrant leaves for good
    double forfeit = 0.02;    // a paired game is lost by default
};

class cSwissSimulation
{
public:
    // Entrants numbered by rating, highest first, as the initial ranking wants.
    cSwissSimulation(unsigned seed, int entrants, int rounds, cSimulationOdds odds = {});

    cSwissTournament &Tournament() { return tournament_; }
    // Decides who sits out the coming round.
    void PrepareRound();
    // Records the round: results drawn for each board, byes and absences for the rest.
    void RecordRound(const cRoundPairing &pairing);

private:
    cSwissTournament tournament_;
    std::mt19937 random_;
    cSimulationOdds odds_;
    std::vector<char> withdrawn_;
};

} // namespace mSwiss
