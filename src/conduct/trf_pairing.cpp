#include "conduct/trf_pairing.h"

#include "conduct/dutch_pairing.h"

#include <algorithm>

namespace mSwiss {

namespace {

// Boards compared as sets: the same two players with the same colours, whatever
// their order on the list.
std::vector<cBoard> Sorted(std::vector<cBoard> boards)
{
    std::sort(boards.begin(), boards.end(), [](const cBoard &a, const cBoard &b) {
        return a.white != b.white ? a.white < b.white : a.black < b.black;
    });
    return boards;
}

} // namespace

cRoundPairing PairFileNextRound(const cTrfFile &file)
{
    const cSwissTournament &tournament = file.tournament;
    const int played = tournament.RoundsPlayed();
    for (const auto &entrant : tournament.entrants)
        if (played > 0 && size_t(played) <= entrant.games.size() &&
            entrant.games[size_t(played - 1)].result == ' ') {
            cRoundPairing refused;
            refused.message = "Round " + std::to_string(played) +
                              " is already paired: its results are not all in.";
            return refused;
        }
    if (tournament.rounds > 0 && played >= tournament.rounds) {
        cRoundPairing refused;
        refused.message = "All " + std::to_string(tournament.rounds) + " rounds are paired.";
        return refused;
    }
    return PairNextRound(tournament);
}

std::string PairingText(const cRoundPairing &pairing)
{
    std::string text = std::to_string(pairing.boards.size()) + "\n";
    for (const auto &board : pairing.boards)
        text += std::to_string(board.white) + " " + std::to_string(board.black) + "\n";
    return text;
}

cSwissTournament BeforeRound(const cSwissTournament &tournament, int round)
{
    cSwissTournament before = tournament;
    const size_t keep = size_t(round - 1);
    for (auto &entrant : before.entrants) {
        const cSwissGame game = keep < entrant.games.size() ? entrant.games[keep] : cSwissGame{};
        entrant.paired = game.opponent != 0 || game.result == 'U';
        entrant.games.resize(keep);
    }
    return before;
}

std::vector<cBoard> StoredBoards(const cSwissTournament &tournament, int round)
{
    std::vector<cBoard> boards;
    const size_t r = size_t(round - 1);
    for (const auto &entrant : tournament.entrants) {
        if (r >= entrant.games.size())
            continue;
        const cSwissGame &game = entrant.games[r];
        if (game.result == 'U')
            boards.push_back({entrant.number, 0});
        else if (game.opponent != 0 && game.colour == eColour::White)
            boards.push_back({entrant.number, game.opponent});
    }
    return boards;
}

std::vector<int> RoundsDifferingFromRules(const cSwissTournament &tournament)
{
    std::vector<int> differing;
    const int rounds = tournament.RoundsPlayed();
    for (int round = 1; round <= rounds; ++round) {
        const cRoundPairing pairing = PairNextRound(BeforeRound(tournament, round));
        if (!pairing.paired || Sorted(pairing.boards) != Sorted(StoredBoards(tournament, round)))
            differing.push_back(round);
    }
    return differing;
}

} // namespace mSwiss
