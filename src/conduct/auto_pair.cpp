#include "conduct/auto_pair.h"

#include "base/fatal_fault.h"
#include "conduct/player_array.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/tournament.h"

#include <cmath>

namespace mFIDEPairings {

void AutoPairRound(qint16 round)
{
    const std::shared_ptr<cTournament> tournament = Control().Tournament();
    if (!tournament)
        RaiseFatal(QStringLiteral("mFIDEPairings"), FaultNumber::UnknownKey,
                   QStringLiteral("No tournament is open."));
    cPlayers &players = tournament->Players();
    cPlayerArray playerArray;
    cIdMap idMap;
    mPlayerArray::LoadPlayerArray(players, playerArray);
    players.RecalcAll(qint16(round - 1));
    mPlayerArray::SortPlayerArray(5, playerArray);
    if (round == 1)
        AlternateColours(playerArray);
    mPlayerArray::IndexPlayerArray(players, playerArray, idMap);
    // Nothing pairs the halves yet, so the splits go no further than this.
    SplitScoreGroups(playerArray);
}

void AlternateColours(cPlayerArray &playerArray)
{
    for (size_t position = 0; position < playerArray.size(); position += 2)
        playerArray[position]->setColourPreference(-1);
    for (size_t position = 1; position < playerArray.size(); position += 2)
        playerArray[position]->setColourPreference(1);
}

std::vector<cScoreGroupSplit> SplitScoreGroups(const cPlayerArray &playerArray)
{
    std::vector<cScoreGroupSplit> splits;
    const qint32 upperBound = qint32(playerArray.size());
    const auto at = [&](qint32 position) { return playerArray[size_t(position - 1)]; };
    qint32 groupStart = 1;
    while (groupStart < upperBound) {
        // Scores compare as text. The stage goes on only while every remaining
        // entrant has the score of the first; otherwise it is over.
        const QString score = at(groupStart)->Score();
        for (qint32 position = groupStart; position <= upperBound; ++position)
            if (at(position)->Score() != score)
                return splits;
        cScoreGroupSplit split;
        split.groupStart = groupStart;
        split.groupEnd = upperBound;
        for (qint32 position = split.groupStart; position <= split.groupEnd; ++position) {
            if (at(position)->ColourPreference() == -1)
                ++split.minusOneCount;
            else
                ++split.otherCount;
        }
        const qint32 size = split.groupEnd - split.groupStart + 1;
        split.upperSize = qint32(std::floor(size / 2.0 + 0.5));
        split.lowerSize = size / 2;
        for (qint32 k = 0; k < split.lowerSize; ++k) {
            split.upperHalf.push_back(at(groupStart + k));
            split.lowerHalf.push_back(at(groupStart + split.lowerSize + k));
        }
        const bool odd = split.lowerSize < split.upperSize;
        splits.push_back(std::move(split));
        groupStart = odd ? upperBound - 1 : upperBound;
    }
    return splits;
}

} // namespace mFIDEPairings
