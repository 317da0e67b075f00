#pragma once

#include "session/players.h"

#include <QtGlobal>

#include <vector>

// The first stage of a score-group pairing: it orders the field, gives round 1 its
// alternating colours and splits each score group into an upper and a lower half.
// It stops there: it forms no pairs, writes no game and tells the person nothing,
// and no window offers it.
namespace mFIDEPairings {

// One score group as the stage splits it. Positions count from 1 in the sorted
// array; with an odd group the last entrant is in neither half.
struct cScoreGroupSplit
{
    qint32 groupStart = 0;
    qint32 groupEnd = 0;
    qint32 upperSize = 0;
    qint32 lowerSize = 0;
    qint32 minusOneCount = 0;
    qint32 otherCount = 0;
    cPlayerArray upperHalf;
    cPlayerArray lowerHalf;
};

// Recalculates up to the round before, sorts by score, grade, letter and title,
// alternates colours in round 1 and splits the score groups; the splits are not
// used further.
void AutoPairRound(qint16 round);
// The first of the array -1, the second +1, and so on; kept in memory only.
void AlternateColours(cPlayerArray &playerArray);
// The walk over the sorted array that AutoPairRound makes. It ends at once when the
// remaining entrants do not all share the score of the first of them.
std::vector<cScoreGroupSplit> SplitScoreGroups(const cPlayerArray &playerArray);

} // namespace mFIDEPairings
