#pragma once

#include <cstddef>
#include <vector>

// Maximum-cardinality matching on a general graph given as a symmetric matrix of
// allowed pairs (Edmonds' blossom shrinking with a breadth-first search). The pairing
// engine asks it whether the players still to be paired can all be paired at all,
// which decides whether a score bracket's choice leaves the round completable.
namespace mMatching {

class cCardinalityMatching
{
public:
    // allowed[u * vertices + v] is nonzero when u and v may be paired.
    cCardinalityMatching(int vertices, const std::vector<char> &allowed);

    // The partner of each vertex in a largest matching, -1 if alone.
    std::vector<int> Solve();
    // True when every vertex can be matched.
    bool Perfect();

private:
    bool Allowed(int u, int v) const { return allowed_[size_t(u) * size_t(n_) + size_t(v)] != 0; }
    int LowestCommonAncestor(int a, int b);
    void MarkPath(int v, int b, int child);
    bool AugmentFrom(int root);

    int n_;
    const std::vector<char> &allowed_;
    std::vector<int> match_, parent_, base_, queue_;
    std::vector<char> used_, blossom_;
};

} // namespace mMatching
