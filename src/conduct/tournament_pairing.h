#pragma once

#include "conduct/swiss_tournament.h"

#include <QString>

#include <memory>
#include <utility>
#include <vector>

class cPlayer;
class cResults;
class cTournament;

// The pairing engine on the open tournament: the entrants and their games as the
// engine wants them, and the round it gives written into the entry grid's rows.
namespace mTournamentPairing {

// Every kind of tournament the system knows is a Swiss one (an empty type is the
// standard kind); an unknown letter is not paired automatically.
bool IsSwissType(const QString &type);

// True when every row of the round that has a player has a result, and there is one.
bool RoundComplete(const cResults &results, qint16 round);
// True when no row of the round has a player.
bool RoundEmpty(const cResults &results, qint16 round);
// The round can be paired automatically: a Swiss kind, the round empty, and the round
// before it complete (round 1 needs nothing before it).
bool CanPairRound(cTournament &tournament, qint16 round);

// The tournament as it stands before the round: pairing numbers in pin order (pins are
// allocated by grade; entrants without a pin follow in the order of entry), the games
// of the earlier rounds, and the withdrawn left out of the round. byNumber gets the
// entrant of each pairing number, number 1 first.
mSwiss::cSwissTournament SwissTournamentBefore(cTournament &tournament, qint16 round,
                                               std::vector<std::shared_ptr<cPlayer>> &byNumber);

struct cPairedRound
{
    bool paired = false;
    QString message;
    // White and black in board order; a black of none is the bye.
    std::vector<std::pair<std::shared_ptr<cPlayer>, std::shared_ptr<cPlayer>>> boards;
};

// The round by the Dutch system, nothing written.
cPairedRound PairRound(cTournament &tournament, qint16 round);

// Puts the boards into the round's rows from the first board on, the bye as a row of
// one player with a win, and gives the round a fresh set of blank rows after them.
// Nothing is stored.
void FillRound(cResults &results, qint16 round, const cPairedRound &pairing, qint16 firstBoard);

} // namespace mTournamentPairing
