#include "conduct/cardinality_matching.h"
#include "conduct/weighted_matching.h"
#include "support/test_environment.h"

#include <QGuiApplication>
#include <QTest>

#include <random>

using namespace mMatching;

class TestMatching : public QObject
{
    Q_OBJECT

private slots:
    void emptyAndSingleVertexGraphsMatchNothing();
    void weightedPrefersTheHeavierPairs();
    void weightedFindsTheOddCycleSolution();
    void weightedAgreesWithExhaustiveSearchOnRandomGraphs();
    void weightedHandlesWideWeights();
    void cardinalityAgreesWithExhaustiveSearchOnRandomGraphs();
    void cardinalityTellsAPerfectMatchingFromNone();
};

namespace {

struct cGraph
{
    int n = 0;
    std::vector<long long> w; // 0 for no edge
    long long At(int u, int v) const { return w[size_t(u * n + v)]; }
};

// The best total over every matching, by trying each partner of the first free vertex.
long long BestTotal(const cGraph &g, std::vector<char> &used, int from)
{
    while (from < g.n && used[size_t(from)])
        ++from;
    if (from >= g.n)
        return 0;
    used[size_t(from)] = 1;
    long long best = BestTotal(g, used, from + 1);
    for (int v = from + 1; v < g.n; ++v)
        if (!used[size_t(v)] && g.At(from, v) > 0) {
            used[size_t(v)] = 1;
            best = std::max(best, g.At(from, v) + BestTotal(g, used, from + 1));
            used[size_t(v)] = 0;
        }
    used[size_t(from)] = 0;
    return best;
}

cGraph RandomGraph(std::mt19937 &random, int n, int density, int heaviest)
{
    cGraph g{n, std::vector<long long>(size_t(n * n), 0)};
    std::uniform_int_distribution<int> percent(0, 99);
    std::uniform_int_distribution<int> weight(1, heaviest);
    for (int u = 0; u < n; ++u)
        for (int v = u + 1; v < n; ++v)
            if (percent(random) < density)
                g.w[size_t(u * n + v)] = g.w[size_t(v * n + u)] = weight(random);
    return g;
}

long long TotalOf(const cGraph &g, const std::vector<int> &partner)
{
    long long total = 0;
    for (int u = 0; u < g.n; ++u) {
        const int v = partner[size_t(u)];
        if (v < 0)
            continue;
        if (partner[size_t(v)] != u || g.At(u, v) <= 0)
            return -1;
        if (v > u)
            total += g.At(u, v);
    }
    return total;
}

std::vector<int> SolveWeighted(const cGraph &g)
{
    cWeightedMatching matching(g.n);
    for (int u = 0; u < g.n; ++u)
        for (int v = u + 1; v < g.n; ++v)
            if (g.At(u, v) > 0)
                matching.AddEdge(u, v, g.At(u, v));
    return matching.Solve();
}

} // namespace

void TestMatching::emptyAndSingleVertexGraphsMatchNothing()
{
    QCOMPARE(cWeightedMatching(0).Solve().size(), size_t(0));
    QCOMPARE(cWeightedMatching(1).Solve(), std::vector<int>{-1});
    std::vector<char> none;
    QVERIFY(cCardinalityMatching(0, none).Perfect());
}

void TestMatching::weightedPrefersTheHeavierPairs()
{
    // A path 0-1-2-3: the middle edge alone weighs less than the two ends together.
    cWeightedMatching matching(4);
    matching.AddEdge(0, 1, 5);
    matching.AddEdge(1, 2, 9);
    matching.AddEdge(2, 3, 5);
    QCOMPARE(matching.Solve(), (std::vector<int>{1, 0, 3, 2}));

    cWeightedMatching heavierMiddle(4);
    heavierMiddle.AddEdge(0, 1, 3);
    heavierMiddle.AddEdge(1, 2, 9);
    heavierMiddle.AddEdge(2, 3, 3);
    QCOMPARE(heavierMiddle.Solve(), (std::vector<int>{-1, 2, 1, -1}));
}

void TestMatching::weightedFindsTheOddCycleSolution()
{
    // A triangle with a tail: the blossom must be shrunk and expanded again.
    cWeightedMatching matching(6);
    matching.AddEdge(0, 1, 6);
    matching.AddEdge(1, 2, 6);
    matching.AddEdge(0, 2, 6);
    matching.AddEdge(2, 3, 5);
    matching.AddEdge(3, 4, 6);
    matching.AddEdge(4, 5, 5);
    matching.AddEdge(0, 5, 4);
    const auto partner = matching.Solve();
    cGraph g{6, std::vector<long long>(36, 0)};
    for (auto [u, v, w] :
         {std::tuple{0, 1, 6}, {1, 2, 6}, {0, 2, 6}, {2, 3, 5}, {3, 4, 6}, {4, 5, 5}, {0, 5, 4}})
        g.w[size_t(u * 6 + v)] = g.w[size_t(v * 6 + u)] = w;
    std::vector<char> used(6, 0);
    QCOMPARE(TotalOf(g, partner), BestTotal(g, used, 0));
}

void TestMatching::weightedAgreesWithExhaustiveSearchOnRandomGraphs()
{
    std::mt19937 random(20261123);
    for (int trial = 0; trial < 600; ++trial) {
        const int n = 2 + trial % 11;
        const cGraph g = RandomGraph(random, n, 20 + trial % 80, trial % 3 == 0 ? 3 : 50);
        std::vector<char> used(size_t(n), 0);
        const long long best = BestTotal(g, used, 0);
        const long long found = TotalOf(g, SolveWeighted(g));
        if (found != best)
            QFAIL(qPrintable(
                QStringLiteral("trial %1: %2 instead of %3").arg(trial).arg(found).arg(best)));
    }
}

void TestMatching::weightedHandlesWideWeights()
{
    // Weights far beyond 64 bits keep their order.
    const tWeight big = tWeight(1) << 100;
    cWeightedMatching matching(4);
    matching.AddEdge(0, 1, big);
    matching.AddEdge(1, 2, big + big / 2);
    matching.AddEdge(2, 3, big);
    matching.AddEdge(0, 3, 1);
    QCOMPARE(matching.Solve(), (std::vector<int>{1, 0, 3, 2}));
}

void TestMatching::cardinalityAgreesWithExhaustiveSearchOnRandomGraphs()
{
    std::mt19937 random(7);
    for (int trial = 0; trial < 600; ++trial) {
        const int n = 2 + trial % 12;
        const cGraph g = RandomGraph(random, n, 10 + trial % 60, 1);
        std::vector<char> used(size_t(n), 0);
        const long long best = BestTotal(g, used, 0);
        std::vector<char> allowed(size_t(n * n), 0);
        for (int i = 0; i < n * n; ++i)
            allowed[size_t(i)] = g.w[size_t(i)] > 0;
        const auto partner = cCardinalityMatching(n, allowed).Solve();
        QCOMPARE(TotalOf(g, partner), best);
    }
}

void TestMatching::cardinalityTellsAPerfectMatchingFromNone()
{
    // Two triangles joined by one edge have a perfect matching; without it, none.
    std::vector<char> allowed(36, 0);
    const auto join = [&](int u, int v) {
        allowed[size_t(u * 6 + v)] = allowed[size_t(v * 6 + u)] = 1;
    };
    join(0, 1);
    join(1, 2);
    join(0, 2);
    join(3, 4);
    join(4, 5);
    join(3, 5);
    QVERIFY(!cCardinalityMatching(6, allowed).Perfect());
    join(2, 3);
    QVERIFY(cCardinalityMatching(6, allowed).Perfect());
}

VELMORA_TEST_MAIN(TestMatching)
#include "test_matching.moc"
