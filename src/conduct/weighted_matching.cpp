#include "conduct/weighted_matching.h"

#include <algorithm>

// Vertices are numbered from 1 inside; numbers above n_ are blossoms. side_ is -1 for
// a vertex outside the forest, 0 for an even (outer) one and 1 for an odd one.
namespace mMatching {

cWeightedMatching::cWeightedMatching(int vertices) : n_(vertices), stride_(2 * vertices + 1)
{
    g_.resize(size_t(stride_) * size_t(stride_));
    for (int u = 1; u <= n_; ++u)
        for (int v = 1; v <= n_; ++v)
            G(u, v) = {u, v, 0};
    label_.assign(size_t(stride_), 0);
    match_.assign(size_t(stride_), 0);
    slack_.assign(size_t(stride_), 0);
    st_.assign(size_t(stride_), 0);
    pa_.assign(size_t(stride_), 0);
    side_.assign(size_t(stride_), -1);
    visit_.assign(size_t(stride_), 0);
    flowerFrom_.assign(size_t(stride_), std::vector<int>(size_t(n_ + 1), 0));
    flower_.assign(size_t(stride_), {});
}

void cWeightedMatching::AddEdge(int u, int v, tWeight weight)
{
    if (u == v || weight <= 0)
        return;
    G(u + 1, v + 1).w = weight;
    G(v + 1, u + 1).w = weight;
}

tWeight cWeightedMatching::Delta(const cEdge &e) const
{
    return label_[size_t(e.u)] + label_[size_t(e.v)] -
           g_[size_t(e.u) * size_t(stride_) + size_t(e.v)].w * 2;
}

void cWeightedMatching::UpdateSlack(int u, int x)
{
    if (!slack_[size_t(x)] || Delta(G(u, x)) < Delta(G(slack_[size_t(x)], x)))
        slack_[size_t(x)] = u;
}

void cWeightedMatching::SetSlack(int x)
{
    slack_[size_t(x)] = 0;
    for (int u = 1; u <= n_; ++u)
        if (G(u, x).w > 0 && st_[size_t(u)] != x && side_[size_t(st_[size_t(u)])] == 0)
            UpdateSlack(u, x);
}

void cWeightedMatching::QueuePush(int x)
{
    if (x <= n_) {
        queue_.push_back(x);
        return;
    }
    for (const int y : flower_[size_t(x)])
        QueuePush(y);
}

void cWeightedMatching::SetBlossom(int x, int b)
{
    st_[size_t(x)] = b;
    if (x > n_)
        for (const int y : flower_[size_t(x)])
            SetBlossom(y, b);
}

int cWeightedMatching::EvenPosition(int b, int xr)
{
    auto &flower = flower_[size_t(b)];
    const int position = int(std::find(flower.begin(), flower.end(), xr) - flower.begin());
    if (position % 2 == 1) {
        std::reverse(flower.begin() + 1, flower.end());
        return int(flower.size()) - position;
    }
    return position;
}

void cWeightedMatching::SetMatch(int u, int v)
{
    match_[size_t(u)] = G(u, v).v;
    if (u <= n_)
        return;
    const cEdge e = G(u, v);
    const int xr = flowerFrom_[size_t(u)][size_t(e.u)];
    const int position = EvenPosition(u, xr);
    auto &flower = flower_[size_t(u)];
    for (int i = 0; i < position; ++i)
        SetMatch(flower[size_t(i)], flower[size_t(i ^ 1)]);
    SetMatch(xr, v);
    std::rotate(flower.begin(), flower.begin() + position, flower.end());
}

void cWeightedMatching::Augment(int u, int v)
{
    for (;;) {
        const int xnv = st_[size_t(match_[size_t(u)])];
        SetMatch(u, v);
        if (!xnv)
            return;
        SetMatch(xnv, st_[size_t(pa_[size_t(xnv)])]);
        u = st_[size_t(pa_[size_t(xnv)])];
        v = xnv;
    }
}

int cWeightedMatching::LowestCommonAncestor(int u, int v)
{
    for (++visitStamp_; u || v; std::swap(u, v)) {
        if (u == 0)
            continue;
        if (visit_[size_t(u)] == visitStamp_)
            return u;
        visit_[size_t(u)] = visitStamp_;
        u = st_[size_t(match_[size_t(u)])];
        if (u)
            u = st_[size_t(pa_[size_t(u)])];
    }
    return 0;
}

void cWeightedMatching::AddBlossom(int u, int lca, int v)
{
    int b = n_ + 1;
    while (b <= nx_ && st_[size_t(b)])
        ++b;
    if (b > nx_)
        ++nx_;
    label_[size_t(b)] = 0;
    side_[size_t(b)] = 0;
    match_[size_t(b)] = match_[size_t(lca)];
    auto &flower = flower_[size_t(b)];
    flower.clear();
    flower.push_back(lca);
    for (int x = u, y; x != lca; x = st_[size_t(pa_[size_t(y)])]) {
        flower.push_back(x);
        flower.push_back(y = st_[size_t(match_[size_t(x)])]);
        QueuePush(y);
    }
    std::reverse(flower.begin() + 1, flower.end());
    for (int x = v, y; x != lca; x = st_[size_t(pa_[size_t(y)])]) {
        flower.push_back(x);
        flower.push_back(y = st_[size_t(match_[size_t(x)])]);
        QueuePush(y);
    }
    SetBlossom(b, b);
    for (int x = 1; x <= nx_; ++x) {
        G(b, x).w = 0;
        G(x, b).w = 0;
    }
    std::fill(flowerFrom_[size_t(b)].begin(), flowerFrom_[size_t(b)].end(), 0);
    for (const int xs : flower) {
        for (int x = 1; x <= nx_; ++x)
            if (G(b, x).w == 0 || Delta(G(xs, x)) < Delta(G(b, x))) {
                G(b, x) = G(xs, x);
                G(x, b) = G(x, xs);
            }
        for (int x = 1; x <= n_; ++x)
            if (flowerFrom_[size_t(xs)][size_t(x)])
                flowerFrom_[size_t(b)][size_t(x)] = xs;
    }
    SetSlack(b);
}

void cWeightedMatching::ExpandBlossom(int b)
{
    for (const int x : flower_[size_t(b)])
        SetBlossom(x, x);
    const int xr = flowerFrom_[size_t(b)][size_t(G(b, pa_[size_t(b)]).u)];
    const int position = EvenPosition(b, xr);
    const auto &flower = flower_[size_t(b)];
    for (int i = 0; i < position; i += 2) {
        const int xs = flower[size_t(i)];
        const int xns = flower[size_t(i + 1)];
        pa_[size_t(xs)] = G(xns, xs).u;
        side_[size_t(xs)] = 1;
        side_[size_t(xns)] = 0;
        slack_[size_t(xs)] = 0;
        SetSlack(xns);
        QueuePush(xns);
    }
    side_[size_t(xr)] = 1;
    pa_[size_t(xr)] = pa_[size_t(b)];
    for (size_t i = size_t(position) + 1; i < flower.size(); ++i) {
        side_[size_t(flower[i])] = -1;
        SetSlack(flower[i]);
    }
    st_[size_t(b)] = 0;
}

bool cWeightedMatching::OnFoundEdge(const cEdge &e)
{
    const int u = st_[size_t(e.u)];
    const int v = st_[size_t(e.v)];
    if (side_[size_t(v)] == -1) {
        pa_[size_t(v)] = e.u;
        side_[size_t(v)] = 1;
        const int nu = st_[size_t(match_[size_t(v)])];
        slack_[size_t(v)] = 0;
        slack_[size_t(nu)] = 0;
        side_[size_t(nu)] = 0;
        QueuePush(nu);
    } else if (side_[size_t(v)] == 0) {
        const int lca = LowestCommonAncestor(u, v);
        if (!lca) {
            Augment(u, v);
            Augment(v, u);
            return true;
        }
        AddBlossom(u, lca, v);
    }
    return false;
}

// One search for an augmenting path, changing the duals as it goes; false when no
// path would add weight.
bool cWeightedMatching::Stage()
{
    std::fill(side_.begin(), side_.begin() + nx_ + 1, -1);
    std::fill(slack_.begin(), slack_.begin() + nx_ + 1, 0);
    queue_.clear();
    queueHead_ = 0;
    for (int x = 1; x <= nx_; ++x)
        if (st_[size_t(x)] == x && !match_[size_t(x)]) {
            pa_[size_t(x)] = 0;
            side_[size_t(x)] = 0;
            QueuePush(x);
        }
    if (queue_.empty())
        return false;
    for (;;) {
        while (queueHead_ < queue_.size()) {
            const int u = queue_[queueHead_++];
            if (side_[size_t(st_[size_t(u)])] == 1)
                continue;
            for (int v = 1; v <= n_; ++v) {
                const cEdge &e = G(u, v);
                if (e.w > 0 && st_[size_t(u)] != st_[size_t(v)]) {
                    if (Delta(e) == 0) {
                        if (OnFoundEdge(e))
                            return true;
                    } else {
                        UpdateSlack(u, st_[size_t(v)]);
                    }
                }
            }
        }
        bool any = false;
        tWeight d = 0;
        const auto consider = [&](tWeight value) {
            if (!any || value < d)
                d = value;
            any = true;
        };
        for (int b = n_ + 1; b <= nx_; ++b)
            if (st_[size_t(b)] == b && side_[size_t(b)] == 1)
                consider(label_[size_t(b)] / 2);
        for (int x = 1; x <= nx_; ++x)
            if (st_[size_t(x)] == x && slack_[size_t(x)]) {
                if (side_[size_t(x)] == -1)
                    consider(Delta(G(slack_[size_t(x)], x)));
                else if (side_[size_t(x)] == 0)
                    consider(Delta(G(slack_[size_t(x)], x)) / 2);
            }
        for (int u = 1; u <= n_; ++u) {
            const int side = side_[size_t(st_[size_t(u)])];
            if (side == 0) {
                if (!any || label_[size_t(u)] <= d)
                    return false;
                label_[size_t(u)] -= d;
            } else if (side == 1) {
                label_[size_t(u)] += d;
            }
        }
        for (int b = n_ + 1; b <= nx_; ++b)
            if (st_[size_t(b)] == b) {
                if (side_[size_t(b)] == 0)
                    label_[size_t(b)] += d * 2;
                else if (side_[size_t(b)] == 1)
                    label_[size_t(b)] -= d * 2;
            }
        queue_.clear();
        queueHead_ = 0;
        for (int x = 1; x <= nx_; ++x)
            if (st_[size_t(x)] == x && slack_[size_t(x)] && st_[size_t(slack_[size_t(x)])] != x &&
                Delta(G(slack_[size_t(x)], x)) == 0)
                if (OnFoundEdge(G(slack_[size_t(x)], x)))
                    return true;
        for (int b = n_ + 1; b <= nx_; ++b)
            if (st_[size_t(b)] == b && side_[size_t(b)] == 1 && label_[size_t(b)] == 0)
                ExpandBlossom(b);
    }
}

std::vector<int> cWeightedMatching::Solve()
{
    nx_ = n_;
    tWeight heaviest = 0;
    for (int u = 1; u <= n_; ++u) {
        st_[size_t(u)] = u;
        flower_[size_t(u)].clear();
        match_[size_t(u)] = 0;
        for (int v = 1; v <= n_; ++v) {
            flowerFrom_[size_t(u)][size_t(v)] = u == v ? u : 0;
            heaviest = std::max(heaviest, G(u, v).w);
        }
    }
    for (int u = 1; u <= n_; ++u)
        label_[size_t(u)] = heaviest;
    while (Stage()) {
    }
    std::vector<int> partner(size_t(n_), -1);
    for (int u = 1; u <= n_; ++u)
        if (match_[size_t(u)])
            partner[size_t(u - 1)] = match_[size_t(u)] - 1;
    return partner;
}

} // namespace mMatching
