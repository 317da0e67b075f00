#pragma once

#include "conduct/swiss_tournament.h"
#include "conduct/trf_file.h"

#include <string>
#include <vector>

// The pairing engine on a tournament report file: the next round for an arbiter, and
// the check of a finished tournament's rounds against what the rules give.
namespace mSwiss {

// Pairs the round after the records; refuses when the last round holds a game without
// a result, since that round is already paired.
cRoundPairing PairFileNextRound(const cTrfFile &file);

// The number of boards on the first line, then "white black" a line (0 for the bye).
std::string PairingText(const cRoundPairing &pairing);

// The tournament as it stood before a round (1-based), with those who took part in
// that round marked to be paired.
cSwissTournament BeforeRound(const cSwissTournament &tournament, int round);

// The boards a round of the records holds, in the engine's board order.
std::vector<cBoard> StoredBoards(const cSwissTournament &tournament, int round);

// The rounds (1-based) whose stored boards differ from the pairing the rules give.
std::vector<int> RoundsDifferingFromRules(const cSwissTournament &tournament);

} // namespace mSwiss
