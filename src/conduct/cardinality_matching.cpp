#include "conduct/cardinality_matching.h"

#include <algorithm>

namespace mMatching {

cCardinalityMatching::cCardinalityMatching(int vertices, const std::vector<char> &allowed)
    : n_(vertices), allowed_(allowed)
{}

int cCardinalityMatching::LowestCommonAncestor(int a, int b)
{
    std::vector<char> seen(size_t(n_), 0);
    for (;;) {
        a = base_[size_t(a)];
        seen[size_t(a)] = 1;
        if (match_[size_t(a)] == -1)
            break;
        a = parent_[size_t(match_[size_t(a)])];
    }
    for (;;) {
        b = base_[size_t(b)];
        if (seen[size_t(b)])
            return b;
        b = parent_[size_t(match_[size_t(b)])];
    }
}

void cCardinalityMatching::MarkPath(int v, int b, int child)
{
    while (base_[size_t(v)] != b) {
        blossom_[size_t(base_[size_t(v)])] = 1;
        blossom_[size_t(base_[size_t(match_[size_t(v)])])] = 1;
        parent_[size_t(v)] = child;
        child = match_[size_t(v)];
        v = parent_[size_t(match_[size_t(v)])];
    }
}

bool cCardinalityMatching::AugmentFrom(int root)
{
    std::fill(used_.begin(), used_.end(), 0);
    std::fill(parent_.begin(), parent_.end(), -1);
    for (int i = 0; i < n_; ++i)
        base_[size_t(i)] = i;
    used_[size_t(root)] = 1;
    queue_.clear();
    queue_.push_back(root);
    for (size_t head = 0; head < queue_.size(); ++head) {
        const int v = queue_[head];
        for (int to = 0; to < n_; ++to) {
            if (!Allowed(v, to) || base_[size_t(v)] == base_[size_t(to)] || match_[size_t(v)] == to)
                continue;
            if (to == root ||
                (match_[size_t(to)] != -1 && parent_[size_t(match_[size_t(to)])] != -1)) {
                const int current = LowestCommonAncestor(v, to);
                std::fill(blossom_.begin(), blossom_.end(), 0);
                MarkPath(v, current, to);
                MarkPath(to, current, v);
                for (int i = 0; i < n_; ++i)
                    if (blossom_[size_t(base_[size_t(i)])]) {
                        base_[size_t(i)] = current;
                        if (!used_[size_t(i)]) {
                            used_[size_t(i)] = 1;
                            queue_.push_back(i);
                        }
                    }
            } else if (parent_[size_t(to)] == -1) {
                parent_[size_t(to)] = v;
                if (match_[size_t(to)] == -1) {
                    // Flip the path back to the root.
                    for (int w = to; w != -1;) {
                        const int pv = parent_[size_t(w)];
                        const int next = match_[size_t(pv)];
                        match_[size_t(w)] = pv;
                        match_[size_t(pv)] = w;
                        w = next;
                    }
                    return true;
                }
                used_[size_t(match_[size_t(to)])] = 1;
                queue_.push_back(match_[size_t(to)]);
            }
        }
    }
    return false;
}

std::vector<int> cCardinalityMatching::Solve()
{
    match_.assign(size_t(n_), -1);
    parent_.assign(size_t(n_), -1);
    base_.assign(size_t(n_), 0);
    used_.assign(size_t(n_), 0);
    blossom_.assign(size_t(n_), 0);
    // A greedy start leaves few vertices for the searches.
    for (int u = 0; u < n_; ++u)
        for (int v = u + 1; v < n_ && match_[size_t(u)] == -1; ++v)
            if (match_[size_t(v)] == -1 && Allowed(u, v)) {
                match_[size_t(u)] = v;
                match_[size_t(v)] = u;
            }
    for (int u = 0; u < n_; ++u)
        if (match_[size_t(u)] == -1)
            AugmentFrom(u);
    return match_;
}

bool cCardinalityMatching::Perfect()
{
    const std::vector<int> partner = Solve();
    return std::none_of(partner.begin(), partner.end(), [](int p) { return p == -1; });
}

} // namespace mMatching
