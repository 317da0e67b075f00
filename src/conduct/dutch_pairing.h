#pragma once

#include "conduct/swiss_tournament.h"

#include <array>
#include <utility>
#include <vector>

// The next round of a Swiss tournament by the Dutch system. Players are taken score
// bracket by score bracket from the top; each bracket is paired as a maximum-weight
// matching whose weights put the criteria in their order of priority. A bracket whose
// downfloaters would leave the round incomplete is paired again to complete it, and
// everybody below it makes one last bracket. Colours follow the allocation rules,
// boards the usual order with the bye last.
namespace mSwiss {

// The number of criteria weighed within a bracket, highest priority first: pairs made
// (C5), score differences (C6), the top scorers' colour difference and runs (C8, C9),
// colour preferences and strong colour preferences not granted (C10, C11), repeated
// down- and upfloats one and two rounds back (C12-C15) and the score differences of
// those repeated floats (C16-C19). C7 weighs the following bracket; it comes between
// C6 and C8 when a bracket is matched and is not part of this array.
constexpr int QualityCriteria = 14;
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
        // The residents of the next scoregroup when C7 applies: the bracket is neither
        // the penultimate pairing bracket nor the last one.
        std::vector<int> following;
        bool last = false;
        // Its downfloaters did not let the round be completed, so it was paired again to
        // complete it, and everybody below makes the collapsed last bracket (A.9).
        bool penultimate = false;
        std::vector<std::pair<int, int>> pairs;
    };
    const std::vector<cBracket> &Brackets() const { return brackets_; }

    int ByeVertex() const { return int(players_.size()); }
    int PlayerCount() const { return int(players_.size()); }
    int NumberAt(int index) const { return players_[size_t(index)].number; }
    // In half points.
    int ScoreAt(int index) const { return players_[size_t(index)].score; }
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
    // True when no other choice of downfloaters could make a better following bracket.
    bool FollowingAtBest(const cBracket &bracket, const std::vector<int> &downfloaters) const;
    // Bracket: its own members only. Lower: with everybody below, completing the round
    // first. Following: with the next scoregroup's residents, to weigh C7.
    enum class eReach { Bracket, Lower, Following };
    std::vector<std::pair<int, int>> MatchBracket(const cBracket &bracket, eReach reach) const;
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
