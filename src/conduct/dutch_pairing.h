#pragma once

#include "conduct/swiss_tournament.h"

#include <array>
#include <utility>
#include <vector>

// The next round of a Swiss tournament by the Dutch system. Players are taken score
// bracket by score bracket from the top; each bracket is paired as a maximum-weight
// matching whose weights put the criteria in their order of priority, after making
// sure that what it leaves behind can still be paired completely. Colours follow the
// allocation rules, boards the usual order with the bye last.
namespace mSwiss {

// The number of criteria weighed in a bracket, highest priority first: pairs made,
// score differences, the top scorers' colour difference and runs, colour preferences
// and strong colour preferences not granted, repeated down- and upfloats one and two
// rounds back.
constexpr int QualityCriteria = 10;
using tQuality = std::array<long long, QualityCriteria>;

class cDutchPairing
{
public:
    explicit cDutchPairing(const cSwissTournament &tournament);

    cRoundPairing Pair();

    // A score bracket as it was paired, kept so that the choice can be checked.
    // Players are indices into the pairing order; ByeVertex() stands for the bye.
    struct cBracket
    {
        std::vector<int> members;
        std::vector<int> lower;
        bool last = false;
        std::vector<std::pair<int, int>> pairs;
    };
    const std::vector<cBracket> &Brackets() const { return brackets_; }

    int ByeVertex() const { return int(players_.size()); }
    int PlayerCount() const { return int(players_.size()); }
    int NumberAt(int index) const { return players_[size_t(index)].number; }
    // The absolute criteria: not met before, no shared absolute colour preference
    // (top scorers of the last round excepted), the bye only once.
    bool Compatible(int a, int b) const;
    // True when the players (with the bye if their count is odd) can all be paired.
    bool Completable(const std::vector<int> &players) const;
    // The criteria totals of a bracket's pairs; a larger array is a better pairing.
    tQuality Quality(const cBracket &bracket, const std::vector<std::pair<int, int>> &pairs) const;

private:
    struct cState
    {
        int number = 0;
        int score = 0;
        int colourDifference = 0;
        std::vector<eColour> colours; // of the games played, oldest first
        eColour preference = eColour::None;
        int strength = 0; // 0 none, 1 mild, 2 strong, 3 absolute
        bool byeBarred = false;
        bool topScorer = false;
        std::array<bool, 2> downfloated{}; // one and two rounds back
        std::array<bool, 2> upfloated{};
        std::vector<int> opponents; // pairing numbers of those played
    };
    struct cContext;

    void Prepare(const cSwissTournament &tournament);
    cContext ContextOf(const cBracket &bracket) const;
    std::array<long long, QualityCriteria> EdgeQuality(const cContext &context, int a, int b) const;
    std::pair<long long, long long> TieBreak(const cContext &context, int a, int b) const;
    bool PairBracket(cBracket &bracket);
    std::vector<std::pair<int, int>> MatchBracket(const cBracket &bracket, bool withLower) const;
    // White first.
    std::pair<int, int> Colours(int a, int b) const;
    bool Met(int a, int b) const;

    const cSwissTournament &tournament_;
    int round_ = 0;
    bool lastRound_ = false;
    std::vector<cState> players_;
    std::vector<char> met_;
    std::vector<cBracket> brackets_;
};

// Pairs the round after the last one in the records.
cRoundPairing PairNextRound(const cSwissTournament &tournament);

} // namespace mSwiss
