#include "conduct/dutch_pairing.h"

#include "conduct/cardinality_matching.h"
#include "conduct/weighted_matching.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mSwiss {

namespace {

constexpr int Absolute = 3;
constexpr int Strong = 2;
constexpr int Mild = 1;

// The highest weight the matching may be given: its duals reach four times an edge.
constexpr int WeightBits = 122;

} // namespace

// What the weights of one bracket depend on besides the two players.
struct cDutchPairing::cContext
{
    int bracketScore = 0;
    long long base = 2;
    std::vector<int> differences; // the score differences that occur, ascending
    std::vector<int> position;    // by player index: place among the floaters or residents
    std::vector<char> floater;    // by player index: came down from a higher bracket
    int floaters = 0;
    int residents = 0;
    int size = 0;

    long long Power(int difference) const
    {
        const auto rank = std::lower_bound(differences.begin(), differences.end(), difference) -
                          differences.begin();
        long long value = 1;
        for (auto i = 0; i < rank; ++i)
            value *= base;
        return value;
    }
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
    int lowest = -1;
    for (const int member : bracket.members)
        if (member != ByeVertex()) {
            const int score = players_[size_t(member)].score;
            lowest = lowest < 0 ? score : std::min(lowest, score);
        }
    context.bracketScore = lowest;
    for (const int member : bracket.members) {
        if (member == ByeVertex())
            continue;
        ++context.size;
        if (players_[size_t(member)].score > lowest) {
            context.floater[size_t(member)] = 1;
            context.position[size_t(member)] = context.floaters++;
        } else {
            context.position[size_t(member)] = context.residents++;
        }
    }
    // A player left unpaired counts as two half points above the score below the
    // bracket's; the differences are weighed by powers of a base larger than the
    // bracket, so that one larger difference outweighs any number of smaller ones.
    for (const int a : bracket.members) {
        if (a == ByeVertex())
            continue;
        context.differences.push_back(players_[size_t(a)].score - lowest + 2);
        for (const int b : bracket.members)
            if (b != ByeVertex())
                context.differences.push_back(
                    std::abs(players_[size_t(a)].score - players_[size_t(b)].score));
    }
    std::sort(context.differences.begin(), context.differences.end());
    context.differences.erase(std::unique(context.differences.begin(), context.differences.end()),
                              context.differences.end());
    context.base = context.size + 2;
    const double top = std::pow(double(context.base), double(context.differences.size()));
    if (top > 1e15)
        context.base = std::max<long long>(
            2, (long long)std::pow(1e15, 1.0 / double(context.differences.size())));
    return context;
}

tQuality cDutchPairing::EdgeQuality(const cContext &context, int a, int b) const
{
    tQuality q{};
    q[0] = 1;
    if (b == ByeVertex())
        std::swap(a, b);
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
    q[1] = context.Power(p.score - context.bracketScore + 2) +
           context.Power(r.score - context.bracketScore + 2) -
           context.Power(std::abs(p.score - r.score));

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
                                                             bool withLower) const
{
    std::vector<int> vertices = bracket.members;
    const size_t inBracket = vertices.size();
    if (withLower) {
        vertices.insert(vertices.end(), bracket.lower.begin(), bracket.lower.end());
        if (vertices.size() % 2 == 1)
            vertices.push_back(ByeVertex());
    }
    const cContext context = ContextOf(bracket);

    // Components from the highest priority down: with the players below, completing
    // the round comes first; then the criteria; then the natural order.
    const int components = QualityCriteria + 3;
    struct cCandidate
    {
        int u;
        int v;
        std::array<long long, QualityCriteria + 3> value;
    };
    std::vector<cCandidate> candidates;
    for (size_t i = 0; i < vertices.size(); ++i)
        for (size_t j = i + 1; j < vertices.size(); ++j) {
            if (!Compatible(vertices[i], vertices[j]))
                continue;
            cCandidate candidate{int(i), int(j), {}};
            candidate.value[0] = 1;
            if (i < inBracket && j < inBracket) {
                const tQuality q = EdgeQuality(context, vertices[i], vertices[j]);
                std::copy(q.begin(), q.end(), candidate.value.begin() + 1);
                const auto [floaters, natural] = TieBreak(context, vertices[i], vertices[j]);
                candidate.value[size_t(components - 2)] = floaters;
                candidate.value[size_t(components - 1)] = natural;
            }
            candidates.push_back(candidate);
        }
    if (!withLower)
        for (auto &candidate : candidates)
            candidate.value[0] = 0;

    // A criterion worth the same on every pair decides nothing: below the counts of
    // pairs, each criterion starts from its least value, so that it takes no more room
    // in the weight than its spread. Matchings compared on it have equally many pairs.
    for (int k = 2; k < components; ++k) {
        long long least = 0;
        bool first = true;
        for (const auto &candidate : candidates) {
            least =
                first ? candidate.value[size_t(k)] : std::min(least, candidate.value[size_t(k)]);
            first = false;
        }
        for (auto &candidate : candidates)
            candidate.value[size_t(k)] -= least;
    }

    // Each component's total over the matching stays below its radix, so that it can
    // never outweigh one unit of a component above it.
    const auto maxPairs = static_cast<long long>(vertices.size() / 2 + 1);
    std::vector<long double> radix(size_t(components), 1.0L);
    std::vector<mMatching::tWeight> scale(size_t(components), 1);
    std::vector<char> kept(size_t(components), 1);
    for (;;) {
        long double bits = 0;
        for (int k = 0; k < components; ++k) {
            long long highest = 0;
            for (const auto &candidate : candidates)
                highest = std::max(highest, candidate.value[size_t(k)]);
            radix[size_t(k)] = kept[size_t(k)] ? (long double)(highest)*maxPairs + 1 : 1;
            bits += std::log2(radix[size_t(k)]);
        }
        if (bits <= WeightBits)
            break;
        // Too wide for one weight: let go of the lowest priorities first.
        int drop = components - 1;
        while (drop > 1 && !kept[size_t(drop)])
            --drop;
        if (drop <= 1)
            break;
        kept[size_t(drop)] = 0;
    }
    mMatching::tWeight running = 1;
    for (int k = components - 1; k >= 0; --k) {
        scale[size_t(k)] = kept[size_t(k)] ? running : 0;
        running *= mMatching::tWeight(radix[size_t(k)]);
    }

    mMatching::cWeightedMatching matching(int(vertices.size()));
    for (const auto &candidate : candidates) {
        mMatching::tWeight weight = 0;
        for (int k = 0; k < components; ++k)
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

bool cDutchPairing::PairBracket(cBracket &bracket)
{
    bracket.pairs = MatchBracket(bracket, false);
    if (bracket.last)
        return bracket.pairs.size() * 2 == bracket.members.size();
    std::vector<int> rest = bracket.lower;
    std::vector<char> paired(players_.size() + 1, 0);
    for (const auto &[a, b] : bracket.pairs)
        paired[size_t(a)] = paired[size_t(b)] = 1;
    for (const int member : bracket.members)
        if (!paired[size_t(member)])
            rest.push_back(member);
    if (!Completable(rest))
        bracket.pairs = MatchBracket(bracket, true);
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

    std::vector<int> floaters;
    for (int start = 0; start < n;) {
        int end = start;
        while (end < n && players_[size_t(end)].score == players_[size_t(start)].score)
            ++end;
        cBracket bracket;
        bracket.members = floaters;
        for (int i = start; i < end; ++i)
            bracket.members.push_back(i);
        for (int i = end; i < n; ++i)
            bracket.lower.push_back(i);
        bracket.last = end == n;
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
