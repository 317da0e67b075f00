#include "conduct/swiss_simulation.h"

#include <algorithm>
#include <cmath>

namespace mSwiss {

cSwissSimulation::cSwissSimulation(unsigned seed, int entrants, int rounds, cSimulationOdds odds)
    : random_(seed), odds_(odds)
{
    tournament_.rounds = rounds;
    tournament_.firstColour = random_() % 2 ? eColour::White : eColour::Black;
    std::normal_distribution<double> rating(1800.0, 250.0);
    std::vector<int> ratings;
    for (int i = 0; i < entrants; ++i)
        ratings.push_back(std::clamp(int(rating(random_)), 1000, 2800));
    std::sort(ratings.rbegin(), ratings.rend());
    for (int i = 0; i < entrants; ++i) {
        cSwissEntrant entrant;
        entrant.number = i + 1;
        entrant.rating = ratings[size_t(i)];
        entrant.name = "Player " + std::to_string(i + 1);
        tournament_.entrants.push_back(entrant);
    }
    withdrawn_.assign(size_t(entrants), 0);
}

void cSwissSimulation::PrepareRound()
{
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    for (size_t i = 0; i < tournament_.entrants.size(); ++i) {
        if (!withdrawn_[i] && chance(random_) < odds_.withdrawal)
            withdrawn_[i] = 1;
        tournament_.entrants[i].paired = !withdrawn_[i] && chance(random_) >= odds_.byeRequest;
    }
}

void cSwissSimulation::RecordRound(const cRoundPairing &pairing)
{
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    const size_t round = size_t(tournament_.RoundsPlayed());
    auto &entrants = tournament_.entrants;
    for (auto &entrant : entrants)
        entrant.games.resize(round + 1);
    for (const cBoard &board : pairing.boards) {
        cSwissEntrant &white = entrants[size_t(board.white - 1)];
        if (board.black == 0) {
            white.games[round] = {0, eColour::None, 'U'};
            continue;
        }
        cSwissEntrant &black = entrants[size_t(board.black - 1)];
        char whiteResult = '=';
        char blackResult = '=';
        if (chance(random_) < odds_.forfeit) {
            const bool whiteWins = chance(random_) < 0.5;
            whiteResult = whiteWins ? '+' : '-';
            blackResult = whiteWins ? '-' : '+';
        } else {
            const double expected =
                1.0 / (1.0 + std::pow(10.0, (black.rating - white.rating) / 400.0));
            const double draw = 0.3 * (1.0 - std::abs(expected - 0.5) * 2.0) + 0.05;
            const double roll = chance(random_);
            if (roll < expected - draw / 2) {
                whiteResult = '1';
                blackResult = '0';
            } else if (roll > expected + draw / 2) {
                whiteResult = '0';
                blackResult = '1';
            }
        }
        white.games[round] = {board.black, eColour::White, whiteResult};
        black.games[round] = {board.white, eColour::Black, blackResult};
    }
    std::vector<char> seated(entrants.size(), 0);
    for (const cBoard &board : pairing.boards) {
        seated[size_t(board.white - 1)] = 1;
        if (board.black)
            seated[size_t(board.black - 1)] = 1;
    }
    for (size_t i = 0; i < entrants.size(); ++i)
        if (!seated[i])
            entrants[i].games[round] = {0, eColour::None, withdrawn_[i] ? '-' : 'H'};
}

} // namespace mSwiss
