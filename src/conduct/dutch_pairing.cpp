#include "conduct/dutch_pairing.h"

#include "conduct/cardinality_matching.h"
#include "conduct/weighted_matching.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

namespace mSwiss {

namespace {

constexpr int Absolute = 3;
constexpr int Strong = 2;
constexpr int Mild = 1;

// The highest weight the matching may be given: its duals reach four times an edge.
constexpr int WeightBits = 122;

// Weights for lists of score differences compared as the rules compare them: from the
// largest difference down, the list with fewer of the larger ones is better. capacity
// holds, for each difference that may occur, how many items of the list can have it at
// most; each difference weighs one more than all smaller ones together can, so that a
// sum of weights orders the lists exactly and takes no more room than the bracket needs.
struct cDifferenceScale
{
    std::vector<int> differences; // ascending
    std::vector<long long> weights;
    // Above the weight of any list the capacities allow, when exact.
    long long top = 1;
    bool exact = true;

    explicit cDifferenceScale(const std::map<int, int> &capacity = {})
    {
        // Beyond about fifty bits the scale would crowd out the criteria below it; so
        // wide a range (many scores in one bracket) is ordered only approximately.
        constexpr long long widest = 1LL << 50;
        std::vector<long long> counts;
        for (const auto &[difference, count] : capacity) {
            differences.push_back(difference);
            counts.push_back(count);
        }
        for (;;) {
            weights.clear();
            top = 1;
            for (const long long count : counts) {
                weights.push_back(top);
                top = top <= widest ? top + count * top : top;
            }
            if (top <= widest)
                break;
            exact = false;
            for (auto &count : counts)
                count = std::max(1LL, count / 2);
        }
    }

    long long Weight(int difference) const
    {
        const auto at = std::lower_bound(differences.begin(), differences.end(), difference);
        return at != differences.end() && *at == difference
                   ? weights[size_t(at - differences.begin())]
                   : 0;
    }
};

} // namespace

// What the weights of one bracket depend on besides the two players.
struct cDutchPairing::cContext
{
    int bracketScore = 0;
    std::vector<int> position; // by player index: place among the floaters or residents
    std::vector<char> floater; // by player index: came down from a higher bracket
    int floaters = 0;
    int residents = 0;
    int size = 0;
    // C6, then C16-C19 (down, up, down two rounds back, up two rounds back).
    cDifferenceScale differences;
    std::array<cDifferenceScale, 4> floatDifferences;
    // C7: the bracket the downfloaters make with the next scoregroup's residents.
    int followingScore = 0;
    cDifferenceScale followingDifferences;
};

cDutchPairing::cDutchPairing(const cSwissTournament &tournament) : tournament_(tournament)
{
    Prepare(tournament);
}

void cDutchPairing::Prepare(const cSwissTournament &tournament)
{
    round_ = tournament.RoundsPlayed() + 1;
    lastRound_ = tournament.rounds > 0 && round_ >= tournament.rounds;

    // Scores before each round, to tell floats from level pairings in the records.
    const size_t count = tournament.entrants.size();
    std::vector<std::vector<int>> before(count);
    for (size_t e = 0; e < count; ++e) {
        int running = 0;
        for (const auto &game : tournament.entrants[e].games) {
            before[e].push_back(running);
            running += game.HalfPoints();
        }
    }
    const auto scoreBefore = [&](int number, size_t round) {
        const size_t e = size_t(number - 1);
        return e < count && round < before[e].size() ? before[e][round] : 0;
    };

    for (size_t e = 0; e < count; ++e) {
        const cSwissEntrant &entrant = tournament.entrants[e];
        if (!entrant.paired)
            continue;
        cState state;
        state.number = entrant.number;
        state.score = entrant.HalfPoints();
        const size_t played = entrant.games.size();
        for (size_t r = 0; r < played; ++r) {
            const cSwissGame &game = entrant.games[r];
            if (game.BarsBye())
                state.byeBarred = true;
            if (game.Played()) {
                state.colours.push_back(game.colour);
                state.colourDifference += game.colour == eColour::White ? 1 : -1;
                state.opponents.push_back(game.opponent);
            }
            const size_t back = played - 1 - r;
            if (back < 2) {
                const int own = before[e][r];
                if (!game.Played())
                    state.downfloated[back] = true;
                else if (scoreBefore(game.opponent, r) < own)
                    state.downfloated[back] = true;
                else if (scoreBefore(game.opponent, r) > own)
                    state.upfloated[back] = true;
            }
        }
        if (!state.colours.empty()) {
            const eColour last = state.colours.back();
            const bool twice =
                state.colours.size() >= 2 && state.colours[state.colours.size() - 2] == last;
            const int difference = state.colourDifference;
            if (difference > 1 || difference < -1 || twice) {
                state.strength = Absolute;
                state.preference = difference > 1    ? eColour::Black
                                   : difference < -1 ? eColour::White
                                                     : Opposite(last);
            } else if (difference != 0) {
                state.strength = Strong;
                state.preference = difference > 0 ? eColour::Black : eColour::White;
            } else {
                state.strength = Mild;
                state.preference = Opposite(last);
            }
        }
        state.topScorer = lastRound_ && state.score > round_ - 1;
        players_.push_back(state);
    }
    std::stable_sort(players_.begin(), players_.end(), [](const cState &a, const cState &b) {
        return a.score != b.score ? a.score > b.score : a.number < b.number;
    });

    const size_t n = players_.size();
    std::vector<int> indexOf(count + 1, -1);
    for (size_t i = 0; i < n; ++i)
        indexOf[size_t(players_[i].number)] = int(i);
    met_.assign(n * n, 0);
    for (size_t i = 0; i < n; ++i)
        for (const int opponent : players_[i].opponents)
            if (opponent > 0 && size_t(opponent) <= count && indexOf[size_t(opponent)] >= 0)
                met_[i * n + size_t(indexOf[size_t(opponent)])] = 1;
}

bool cDutchPairing::Met(int a, int b) const
{
    const size_t n = players_.size();
    return met_[size_t(a) * n + size_t(b)] || met_[size_t(b) * n + size_t(a)];
}

bool cDutchPairing::Compatible(int a, int b) const
{
    if (a == b)
        return false;
    if (b == ByeVertex())
        std::swap(a, b);
    if (a == ByeVertex())
        return !players_[size_t(b)].byeBarred;
    if (Met(a, b))
        return false;
    const cState &p = players_[size_t(a)];
    const cState &q = players_[size_t(b)];
    if (p.strength == Absolute && q.strength == Absolute && p.preference == q.preference)
        return lastRound_ && (p.topScorer || q.topScorer);
    return true;
}

bool cDutchPairing::Completable(const std::vector<int> &players) const
{
    std::vector<int> vertices = players;
    if (vertices.size() % 2 == 1)
        vertices.push_back(ByeVertex());
    const size_t m = vertices.size();
    std::vector<char> allowed(m * m, 0);
    for (size_t i = 0; i < m; ++i)
        for (size_t j = i + 1; j < m; ++j)
            if (Compatible(vertices[i], vertices[j]))
                allowed[i * m + j] = allowed[j * m + i] = 1;
    return mMatching::cCardinalityMatching(int(m), allowed).Perfect();
}

std::pair<int, int> cDutchPairing::Colours(int a, int b) const
{
    const cState &p = players_[size_t(a)];
    const cState &q = players_[size_t(b)];
    const auto give = [&](eColour colourOfA) {
        return colourOfA == eColour::White ? std::pair{a, b} : std::pair{b, a};
    };
    // Both preferences granted, or the only one there is.
    if (p.preference != q.preference) {
        if (p.preference != eColour::None)
            return give(p.preference);
        if (q.preference != eColour::None)
            return give(Opposite(q.preference));
    }
    if (p.preference != eColour::None) {
        // The stronger preference; of two absolute ones the wider difference.
        if (p.strength != q.strength)
            return give(p.strength > q.strength ? p.preference : Opposite(q.preference));
        if (p.strength == Absolute) {
            const int pd = std::abs(p.colourDifference);
            const int qd = std::abs(q.colourDifference);
            if (pd != qd)
                return give(pd > qd ? p.preference : Opposite(q.preference));
        }
        // Alternate from the latest round in which they had different colours.
        for (auto i = p.colours.rbegin(), j = q.colours.rbegin();
             i != p.colours.rend() && j != q.colours.rend(); ++i, ++j)
            if (*i != *j)
                return give(Opposite(*i));
        // The higher ranked player's preference.
        return give(a < b ? p.preference : Opposite(q.preference));
    }
    // No preference on either side: the initial colour by the higher ranked player's
    // pairing number.
    const int higher = std::min(a, b);
    const eColour initial =
        tournament_.firstColour == eColour::Black ? eColour::Black : eColour::White;
    const eColour colourOfHigher =
        players_[size_t(higher)].number % 2 == 1 ? initial : Opposite(initial);
    return give(higher == a ? colourOfHigher : Opposite(colourOfHigher));
}

cDutchPairing::cContext cDutchPairing::ContextOf(const cBracket &bracket) const
{
    cContext context;
    const size_t n = players_.size();
    context.position.assign(n + 1, 0);
    context.floater.assign(n + 1, 0);
    std::vector<int> members;
    for (const int member : bracket.members)
        if (member != ByeVertex())
            members.push_back(member);
    if (members.empty())
        return context;
    const auto score = [&](int player) { return players_[size_t(player)].score; };
    std::map<int, int> scores; // how many members have each score
    for (const int member : members)
        ++scores[score(member)];
    const int lowest = scores.begin()->first;
    context.bracketScore = lowest;
    for (const int member : members) {
        ++context.size;
        if (score(member) > lowest) {
            context.floater[size_t(member)] = 1;
            context.position[size_t(member)] = context.floaters++;
        } else {
            context.position[size_t(member)] = context.residents++;
        }
    }

    // A downfloater's difference is taken to a score one point (two half points) below
    // the lowest of its bracket (A.8). Each player counts once for each difference it
    // may be part of: no list holds more items of a difference than that.
    const auto differencesOf = [](int own, int below, const std::map<int, int> &field) {
        std::set<int> differences{own - below + 2};
        for (const auto &[other, count] : field)
            if (other != own || count > 1)
                differences.insert(std::abs(own - other));
        return differences;
    };
    std::map<int, int> capacity;
    for (const int member : members)
        for (const int difference : differencesOf(score(member), lowest, scores))
            ++capacity[difference];
    context.differences = cDifferenceScale(capacity);

    // Repeated downfloats are those left to float; repeated upfloats are the lower
    // players of pairs with different scores.
    for (size_t back = 0; back < 2; ++back) {
        std::map<int, int> down;
        std::map<int, int> up;
        for (const int member : members) {
            const cState &state = players_[size_t(member)];
            if (state.downfloated[back])
                ++down[state.score - lowest + 2];
            if (state.upfloated[back])
                for (const auto &[other, count] : scores)
                    if (other > state.score)
                        ++up[other - state.score];
        }
        context.floatDifferences[2 * back] = cDifferenceScale(down);
        context.floatDifferences[2 * back + 1] = cDifferenceScale(up);
    }

    if (!bracket.following.empty()) {
        context.followingScore = score(bracket.following.front());
        std::map<int, int> field = scores;
        field[context.followingScore] += int(bracket.following.size());
        std::map<int, int> following;
        for (const int player : members)
            for (const int difference : differencesOf(score(player), context.followingScore, field))
                ++following[difference];
        for (const int difference :
             differencesOf(context.followingScore, context.followingScore, field))
            following[difference] += int(bracket.following.size());
        context.followingDifferences = cDifferenceScale(following);
    }
    return context;
}

tQuality cDutchPairing::EdgeQuality(const cContext &context, int a, int b) const
{
    tQuality q{};
    q[0] = 1;
    if (b == ByeVertex())
        std::swap(a, b);
    // Indices: C5, C6, C8-C19. Every criterion is a gain, larger being better.
    if (a == ByeVertex()) {
        // The bye's receiver keeps its score difference and floats down.
        q[2] = 2;
        q[3] = 2;
        q[4] = 1;
        q[5] = 1;
        q[7] = 1;
        q[9] = 1;
        return q;
    }
    const cState &p = players_[size_t(a)];
    const cState &r = players_[size_t(b)];
    const int below = context.bracketScore - 2;
    const int apart = std::abs(p.score - r.score);
    q[1] = context.differences.Weight(p.score - below) +
           context.differences.Weight(r.score - below) - context.differences.Weight(apart);

    const auto [white, black] = Colours(a, b);
    int wide = 0;
    int runs = 0;
    if (lastRound_ && (p.topScorer || r.topScorer)) {
        for (const int player : {white, black}) {
            const cState &s = players_[size_t(player)];
            const eColour colour = player == white ? eColour::White : eColour::Black;
            const int difference = s.colourDifference + (colour == eColour::White ? 1 : -1);
            if (std::abs(difference) > 2)
                ++wide;
            const size_t k = s.colours.size();
            if (k >= 2 && s.colours[k - 1] == colour && s.colours[k - 2] == colour)
                ++runs;
        }
    }
    q[2] = 2 - wide;
    q[3] = 2 - runs;
    const bool clash = p.preference != eColour::None && p.preference == r.preference;
    q[4] = clash ? 0 : 1;
    q[5] = clash && std::min(p.strength, r.strength) >= Strong ? 0 : 1;
    q[6] = int(p.downfloated[0]) + int(r.downfloated[0]);
    const cState *lowerOne = p.score < r.score ? &p : r.score < p.score ? &r : nullptr;
    q[7] = lowerOne && lowerOne->upfloated[0] ? 0 : 1;
    q[8] = int(p.downfloated[1]) + int(r.downfloated[1]);
    q[9] = lowerOne && lowerOne->upfloated[1] ? 0 : 1;
    for (size_t back = 0; back < 2; ++back) {
        const cDifferenceScale &down = context.floatDifferences[2 * back];
        q[10 + 2 * back] = (p.downfloated[back] ? down.Weight(p.score - below) : 0) +
                           (r.downfloated[back] ? down.Weight(r.score - below) : 0);
        q[11 + 2 * back] = lowerOne && lowerOne->upfloated[back]
                               ? -context.floatDifferences[2 * back + 1].Weight(apart)
                               : 0;
    }
    return q;
}

// Among pairings equal under every criterion, the one nearest to the bracket's natural
// order: first the floaters against the residents from the top, then the upper half of
// the remaining residents against the lower half, the higher ranked keeping their natural
// opponents before the lower ranked, and the bye to the lowest ranked.
std::pair<long long, long long> cDutchPairing::TieBreak(const cContext &context, int a, int b) const
{
    if (a > b)
        std::swap(a, b);
    const long long size = context.size;
    if (b == ByeVertex())
        return {0, size - (context.residents - 1 - context.position[size_t(a)])};
    const bool fa = context.floater[size_t(a)];
    const bool fb = context.floater[size_t(b)];
    if (fa && fb)
        return {0, 0};
    if (fa || fb) {
        const int f = context.position[size_t(fa ? a : b)];
        const int r = context.position[size_t(fa ? b : a)];
        return {size - std::abs(r - f), 0};
    }
    const int half = std::max(0, (context.residents - context.floaters) / 2);
    const int upper = context.position[size_t(a)];
    const long long offset = std::abs(context.position[size_t(b)] - upper - half);
    return {0, std::max(0LL, size * size - (size - upper) * offset)};
}

tQuality cDutchPairing::Quality(const cBracket &bracket,
                                const std::vector<std::pair<int, int>> &pairs) const
{
    const cContext context = ContextOf(bracket);
    tQuality total{};
    for (const auto &[a, b] : pairs) {
        const tQuality q = EdgeQuality(context, a, b);
        for (int k = 0; k < QualityCriteria; ++k)
            total[size_t(k)] += q[size_t(k)];
    }
    return total;
}

std::vector<std::pair<int, int>> cDutchPairing::MatchBracket(const cBracket &bracket,
                                                             eReach reach) const
{
    std::vector<int> vertices = bracket.members;
    const size_t inBracket = vertices.size();
    if (reach == eReach::Lower) {
        vertices.insert(vertices.end(), bracket.lower.begin(), bracket.lower.end());
        if (vertices.size() % 2 == 1)
            vertices.push_back(ByeVertex());
    } else if (reach == eReach::Following) {
        vertices.insert(vertices.end(), bracket.following.begin(), bracket.following.end());
    }
    const cContext context = ContextOf(bracket);

    // Components from the highest priority down: with the players below, completing
    // the round; C5 and C6; C7's pairs and score differences in the following bracket;
    // C8-C19; then the natural order.
    constexpr int Completion = 0;
    constexpr int FollowingPairs = 3;
    constexpr int FollowingDifferences = 4;
    constexpr int Components = QualityCriteria + 5;
    const auto componentOf = [](int criterion) {
        return criterion < 2 ? criterion + 1 : criterion + 3;
    };
    struct cCandidate
    {
        int u;
        int v;
        std::array<long long, Components> value;
    };
    // In the following bracket a player left alone floats on with its difference to one
    // point below that bracket's score.
    const auto alone = [&](int player) {
        return context.followingDifferences.Weight(players_[size_t(player)].score -
                                                   context.followingScore + 2);
    };
    std::vector<cCandidate> candidates;
    for (size_t i = 0; i < vertices.size(); ++i)
        for (size_t j = i + 1; j < vertices.size(); ++j) {
            const int a = vertices[i];
            const int b = vertices[j];
            if (!Compatible(a, b))
                continue;
            cCandidate candidate{int(i), int(j), {}};
            candidate.value[Completion] = reach == eReach::Lower ? 1 : 0;
            if (i < inBracket && j < inBracket) {
                const tQuality q = EdgeQuality(context, a, b);
                for (int k = 0; k < QualityCriteria; ++k)
                    candidate.value[size_t(componentOf(k))] = q[size_t(k)];
                const auto [floaters, natural] = TieBreak(context, a, b);
                candidate.value[Components - 2] = floaters;
                candidate.value[Components - 1] = natural;
                // Paired here, neither is left to the following bracket.
                if (reach == eReach::Following)
                    candidate.value[FollowingDifferences] = alone(a) + alone(b);
            } else if (reach == eReach::Following) {
                candidate.value[FollowingPairs] = 1;
                candidate.value[FollowingDifferences] =
                    alone(a) + alone(b) -
                    context.followingDifferences.Weight(
                        std::abs(players_[size_t(a)].score - players_[size_t(b)].score));
            }
            candidates.push_back(candidate);
        }

    // A criterion worth the same on every pair decides nothing: apart from the counts
    // of pairs, each criterion starts from its least value, so that it takes no more
    // room in the weight than its spread. Matchings compared on it have equally many
    // pairs, or the least value is nought.
    std::array<long long, Components> highest{};
    for (int k = 0; k < Components; ++k) {
        if (k == Completion || k == componentOf(0) || k == FollowingPairs) {
            for (const auto &candidate : candidates)
                highest[size_t(k)] = std::max(highest[size_t(k)], candidate.value[size_t(k)]);
            continue;
        }
        long long least = 0;
        bool first = true;
        for (const auto &candidate : candidates) {
            least =
                first ? candidate.value[size_t(k)] : std::min(least, candidate.value[size_t(k)]);
            first = false;
        }
        for (auto &candidate : candidates) {
            candidate.value[size_t(k)] -= least;
            highest[size_t(k)] = std::max(highest[size_t(k)], candidate.value[size_t(k)]);
        }
    }

    // The spread of a component's total over the matchings compared on it: no more than
    // half the sum of each vertex's best value, and for lists of score differences less
    // than their scale's top.
    std::array<long double, Components> spread{};
    {
        std::vector<long long> best(vertices.size());
        for (int k = 0; k < Components; ++k) {
            std::fill(best.begin(), best.end(), 0);
            for (const auto &candidate : candidates) {
                const long long value = candidate.value[size_t(k)];
                best[size_t(candidate.u)] = std::max(best[size_t(candidate.u)], value);
                best[size_t(candidate.v)] = std::max(best[size_t(candidate.v)], value);
            }
            long double sum = 0;
            for (const long long value : best)
                sum += (long double)value;
            spread[size_t(k)] = std::floor(sum / 2);
        }
        const auto cap = [&](int k, const cDifferenceScale &scale) {
            if (scale.exact)
                spread[size_t(k)] = std::min(spread[size_t(k)], (long double)(scale.top - 1));
        };
        cap(componentOf(1), context.differences);
        cap(FollowingDifferences, context.followingDifferences);
        for (int f = 0; f < 4; ++f)
            cap(componentOf(10 + f), context.floatDifferences[size_t(f)]);
    }

    // A criterion that only repeats one above it, to a positive factor, decides nothing
    // (in a bracket of one score the repeated floats' differences are all alike).
    std::array<char, Components> kept{};
    kept.fill(1);
    for (int k = 2; k < Components; ++k) {
        if (highest[size_t(k)] == 0) {
            kept[size_t(k)] = 0;
            continue;
        }
        for (int j = 1; j < k && kept[size_t(k)]; ++j) {
            if (highest[size_t(j)] == 0)
                continue;
            long long vj = 0;
            long long vk = 0;
            for (const auto &candidate : candidates)
                if (candidate.value[size_t(j)] != 0) {
                    vj = candidate.value[size_t(j)];
                    vk = candidate.value[size_t(k)];
                    break;
                }
            bool proportional = true;
            for (const auto &candidate : candidates)
                if (__int128(candidate.value[size_t(k)]) * vj !=
                    __int128(candidate.value[size_t(j)]) * vk) {
                    proportional = false;
                    break;
                }
            if (proportional)
                kept[size_t(k)] = 0;
        }
    }

    // Each component's spread stays below its radix, so that it can never outweigh one
    // unit of a component above it; two bits are kept for single pairs worth more than
    // the spread.
    std::array<long double, Components> radix{};
    for (;;) {
        long double bits = 0;
        for (int k = 0; k < Components; ++k) {
            radix[size_t(k)] = kept[size_t(k)] ? spread[size_t(k)] + 1 : 1;
            bits += std::log2(radix[size_t(k)]);
        }
        if (bits <= WeightBits - 2)
            break;
        // Too wide for one weight: let go of the lowest priorities first.
        int drop = Components - 1;
        while (drop > 1 && !kept[size_t(drop)])
            --drop;
        if (drop <= 1)
            break;
        kept[size_t(drop)] = 0;
    }
    std::array<mMatching::tWeight, Components> scale{};
    mMatching::tWeight running = 1;
    for (int k = Components - 1; k >= 0; --k) {
        scale[size_t(k)] = kept[size_t(k)] ? running : 0;
        running *= mMatching::tWeight(radix[size_t(k)]);
    }

    mMatching::cWeightedMatching matching(int(vertices.size()));
    for (const auto &candidate : candidates) {
        mMatching::tWeight weight = 0;
        for (int k = 0; k < Components; ++k)
            weight += scale[size_t(k)] * candidate.value[size_t(k)];
        // Every compatible pair stays an edge, even one worth nothing to the criteria.
        matching.AddEdge(candidate.u, candidate.v, weight * 2 + 1);
    }
    const std::vector<int> partner = matching.Solve();
    std::vector<std::pair<int, int>> pairs;
    for (size_t i = 0; i < inBracket; ++i) {
        const int j = partner[i];
        if (j > int(i) && size_t(j) < inBracket)
            pairs.emplace_back(vertices[i], vertices[size_t(j)]);
    }
    return pairs;
}

bool cDutchPairing::FollowingAtBest(const cBracket &bracket,
                                    const std::vector<int> &downfloaters) const
{
    // With as many pairs as possible the downfloaters cannot meet each other (else they
    // would be paired here), so in the following bracket each of them costs at least
    // the difference from the bracket's lowest score to the next one, with the residents
    // paired among themselves at no difference but the one left over. Downfloaters of
    // that lowest score who can all be paired with residents, the rest of whom can be
    // paired up to that one, leave C7 nothing better to find.
    int lowest = players_[size_t(downfloaters.front())].score;
    for (const int member : bracket.members)
        if (member != ByeVertex())
            lowest = std::min(lowest, players_[size_t(member)].score);
    for (const int player : downfloaters)
        if (players_[size_t(player)].score != lowest)
            return false;
    std::vector<int> vertices = downfloaters;
    vertices.insert(vertices.end(), bracket.following.begin(), bracket.following.end());
    // The odd one over pairs with a stand-in that only residents may meet.
    const size_t count = vertices.size();
    const size_t m = count + count % 2;
    std::vector<char> allowed(m * m, 0);
    for (size_t i = 0; i < count; ++i)
        for (size_t j = std::max(i + 1, downfloaters.size()); j < m; ++j)
            if (j < count ? Compatible(vertices[i], vertices[j]) : i >= downfloaters.size())
                allowed[i * m + j] = allowed[j * m + i] = 1;
    return mMatching::cCardinalityMatching(int(m), allowed).Perfect();
}

bool cDutchPairing::PairBracket(cBracket &bracket)
{
    bracket.pairs = MatchBracket(bracket, eReach::Bracket);
    std::vector<char> paired(players_.size() + 1, 0);
    const auto unpaired = [&] {
        std::fill(paired.begin(), paired.end(), 0);
        for (const auto &[a, b] : bracket.pairs)
            paired[size_t(a)] = paired[size_t(b)] = 1;
        std::vector<int> left;
        for (const int member : bracket.members)
            if (!paired[size_t(member)])
                left.push_back(member);
        return left;
    };
    std::vector<int> downfloaters = unpaired();
    // C7 has something to choose only when somebody floats down and the bracket's own
    // best does not already give the following bracket all it can have.
    if (!bracket.following.empty() && !downfloaters.empty() &&
        !FollowingAtBest(bracket, downfloaters)) {
        bracket.pairs = MatchBracket(bracket, eReach::Following);
        downfloaters = unpaired();
    }
    if (bracket.last)
        return downfloaters.empty();
    std::vector<int> rest = bracket.lower;
    rest.insert(rest.end(), downfloaters.begin(), downfloaters.end());
    if (!Completable(rest)) {
        // The penultimate pairing bracket: paired again to complete the round, without C7.
        bracket.penultimate = true;
        bracket.following.clear();
        bracket.pairs = MatchBracket(bracket, eReach::Lower);
    }
    return true;
}

cRoundPairing cDutchPairing::Pair()
{
    cRoundPairing result;
    brackets_.clear();
    const int n = int(players_.size());
    if (n == 0) {
        result.message = "There is nobody to pair in round " + std::to_string(round_) + ".";
        return result;
    }
    std::vector<int> everyone(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        everyone[size_t(i)] = i;
    if (!Completable(everyone)) {
        result.message = "Round " + std::to_string(round_) +
                         " cannot be paired: no pairing keeps every player from meeting an "
                         "opponent again, from an impossible colour and from a second bye.";
        return result;
    }

    const auto scoregroupEnd = [&](int start) {
        int end = start;
        while (end < n && players_[size_t(end)].score == players_[size_t(start)].score)
            ++end;
        return end;
    };
    std::vector<int> floaters;
    bool collapsed = false;
    for (int start = 0; start < n;) {
        // After the penultimate pairing bracket everybody left makes the last bracket.
        const int end = collapsed ? n : scoregroupEnd(start);
        cBracket bracket;
        bracket.members = floaters;
        for (int i = start; i < end; ++i)
            bracket.members.push_back(i);
        for (int i = end; i < n; ++i)
            bracket.lower.push_back(i);
        bracket.last = end == n;
        for (int i = end; i < scoregroupEnd(end); ++i)
            bracket.following.push_back(i);
        if (bracket.last && bracket.members.size() % 2 == 1)
            bracket.members.push_back(ByeVertex());
        if (!PairBracket(bracket)) {
            result.message = "Round " + std::to_string(round_) +
                             " cannot be paired: the lowest score bracket is left unpaired.";
            return result;
        }
        std::vector<char> paired(size_t(n) + 1, 0);
        for (const auto &[a, b] : bracket.pairs)
            paired[size_t(a)] = paired[size_t(b)] = 1;
        floaters.clear();
        for (const int member : bracket.members)
            if (!paired[size_t(member)])
                floaters.push_back(member);
        collapsed = bracket.penultimate;
        brackets_.push_back(bracket);
        start = end;
    }

    struct cPlaced
    {
        int top;
        int sum;
        int higher;
        cBoard board;
    };
    std::vector<cPlaced> placed;
    cBoard bye;
    for (const auto &bracket : brackets_)
        for (auto [a, b] : bracket.pairs) {
            if (a == ByeVertex())
                std::swap(a, b);
            if (b == ByeVertex()) {
                bye = {players_[size_t(a)].number, 0};
                continue;
            }
            const auto [white, black] = Colours(a, b);
            const int sa = players_[size_t(a)].score;
            const int sb = players_[size_t(b)].score;
            placed.push_back({std::max(sa, sb),
                              sa + sb,
                              std::min(a, b),
                              {players_[size_t(white)].number, players_[size_t(black)].number}});
        }
    std::sort(placed.begin(), placed.end(), [](const cPlaced &x, const cPlaced &y) {
        if (x.top != y.top)
            return x.top > y.top;
        if (x.sum != y.sum)
            return x.sum > y.sum;
        return x.higher < y.higher;
    });
    for (const auto &entry : placed)
        result.boards.push_back(entry.board);
    if (bye.white)
        result.boards.push_back(bye);
    result.paired = true;
    return result;
}

cRoundPairing PairNextRound(const cSwissTournament &tournament)
{
    return cDutchPairing(tournament).Pair();
}

} // namespace mSwiss
