#pragma once

#include <cstddef>
#include <vector>

// Maximum-weight matching on a general graph (Edmonds' blossom algorithm with dual
// variables, O(n^3)). The pairing engine turns the order of its criteria into one
// weight per candidate pair, so that the heaviest matching is the pairing the rules
// prefer; weights are wide integers so that a dozen criteria fit side by side.
namespace mMatching {

using tWeight = __int128;

class cWeightedMatching
{
public:
    explicit cWeightedMatching(int vertices);

    // An edge between two vertices (0-based); only edges of positive weight exist.
    void AddEdge(int u, int v, tWeight weight);
    // The partner of each vertex in a matching of greatest total weight, -1 if alone.
    std::vector<int> Solve();

private:
    struct cEdge
    {
        int u = 0;
        int v = 0;
        tWeight w = 0;
    };

    cEdge &G(int u, int v) { return g_[size_t(u) * size_t(stride_) + size_t(v)]; }
    tWeight Delta(const cEdge &e) const;
    void UpdateSlack(int u, int x);
    void SetSlack(int x);
    void QueuePush(int x);
    void SetBlossom(int x, int b);
    int EvenPosition(int b, int xr);
    void SetMatch(int u, int v);
    void Augment(int u, int v);
    int LowestCommonAncestor(int u, int v);
    void AddBlossom(int u, int lca, int v);
    void ExpandBlossom(int b);
    bool OnFoundEdge(const cEdge &e);
    bool Stage();

    int n_;
    int nx_ = 0;
    int stride_;
    int visitStamp_ = 0;
    std::vector<cEdge> g_;
    std::vector<tWeight> label_;
    std::vector<int> match_, slack_, st_, pa_, side_, visit_;
    std::vector<std::vector<int>> flowerFrom_;
    std::vector<std::vector<int>> flower_;
    std::vector<int> queue_;
    size_t queueHead_ = 0;
};

} // namespace mMatching
