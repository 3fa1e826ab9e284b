#include "orbits/crossings.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kAtOnce = 64; // instants of the grid that the function is asked for in one call

struct Sample {
    double t, f;
    bool above() const { return f > 0.0; }
};

// The instants of the grid in order, with the neighbours that are still needed. The last is the end of the span.
class Grid {
public:
    explicit Grid(const CrossingSearch &search) : search_(search)
    {
        constexpr double kWhole = 1.0 - 1e-12; // a whole number of steps stays one, whatever rounding made of it
        const double steps = std::ceil((search.stop - search.start) / search.step * kWhole);
        last_ = std::max(1.0, steps);
    }
    double last() const { return last_; }

    // Sample i, at most 3 before the highest one asked for so far; null when the function fails.
    const Sample *at(double i)
    {
        while (i >= first_ + count_)
            if (!fetch())
                return nullptr;
        return &samples_[static_cast<int>(i - first_)];
    }

private:
    bool fetch()
    {
        constexpr int kKept = 3;
        const int kept = std::min(count_, kKept);
        std::copy(samples_ + (count_ - kept), samples_ + count_, samples_);
        first_ += count_ - kept;
        count_ = kept;
        double times[kAtOnce], values[kAtOnce];
        long n = 0;
        for (; n < kAtOnce && first_ + count_ + static_cast<double>(n) <= last_; ++n) {
            const double i = first_ + count_ + static_cast<double>(n);
            times[n] = i < last_ ? search_.start + i * search_.step : search_.stop;
        }
        if (n == 0 || search_.f(search_.context, &n, times, values) == KL_ERR)
            return false;
        for (long k = 0; k < n; ++k) {
            if (!std::isfinite(values[k]))
                return false;
            samples_[count_++] = {times[k], values[k]};
        }
        return true;
    }

    const CrossingSearch &search_;
    double last_;
    double first_ = 0.0; // index of samples_[0]
    int count_ = 0;
    Sample samples_[kAtOnce + 3] = {};
};

class Finder {
public:
    Finder(const CrossingSearch &search, long room, kl_crossing *found) : search_(search), room_(room), found_(found) {}

    long run(long *n)
    {
        const long status = walk();
        *n = n_;
        return status;
    }

private:
    long walk()
    {
        Grid grid(search_);
        const Sample *first = grid.at(0.0);
        if (first == nullptr)
            return KL_ERR;
        if (first->above() && !put(*first, 1, 1))
            return KL_WARN;
        Sample left = *first;
        for (long k = 0; static_cast<double>(k) < grid.last(); ++k) {
            const double i = static_cast<double>(k);
            const Sample *next = grid.at(i + 1.0);
            if (next == nullptr)
                return KL_ERR;
            const Sample right = *next;
            long status = KL_OK;
            if (left.above() != right.above()) {
                status = refine(left, right);
            } else if (i > paired_) {
                const Sample *beyond = i + 2.0 <= grid.last() ? grid.at(i + 2.0) : nullptr;
                if (beyond == nullptr && i + 2.0 <= grid.last())
                    return KL_ERR;
                const Sample *before = i >= 1.0 && i - 1.0 > paired_ ? grid.at(i - 1.0) : nullptr;
                status = pair_around(i, before, left, right, beyond);
            }
            if (status != KL_OK)
                return status;
            left = right;
        }
        return left.above() && !put(left, -1, 1) ? KL_WARN : KL_OK;
    }

    bool put(const Sample &at, long direction, long cut)
    {
        if (n_ == room_)
            return false;
        found_[n_++] = {at.t, at.f, direction, cut};
        return true;
    }

    bool evaluate(double t, Sample *out)
    {
        const long one = 1;
        *out = {t, 0.0};
        return search_.f(search_.context, &one, &t, &out->f) != KL_ERR && std::isfinite(out->f);
    }

    // The pair of crossings about an extremum between two samples of one side, or just beyond one of them.
    long pair_around(double i, const Sample *before, const Sample &left, const Sample &right, const Sample *beyond)
    {
        Sample dip;
        const int other = other_side(before, left, right, beyond, &dip);
        if (other <= 0)
            return other < 0 ? KL_ERR : KL_OK;
        const bool earlier = dip.t < left.t;
        const bool later = right.t < dip.t;
        const Sample from = earlier ? *before : later ? right : left;
        const Sample to = earlier ? left : later ? *beyond : right;
        paired_ = earlier ? i - 1.0 : later ? i + 1.0 : i;
        const long status = refine(from, dip);
        return status == KL_OK ? refine(dip, to) : status;
    }

    // Extremum of the parabola through three samples, when it lies between left and right and on the other side of
    // zero, or so near to it that the function may lie there.
    static bool dips(const Sample &a, const Sample &b, const Sample &c, const Sample &left, const Sample &right,
                     double *t)
    {
        constexpr double kNear = 0.05; // of what the samples span
        const double x1 = a.t - b.t;
        const double x3 = c.t - b.t;
        const double d1 = (a.f - b.f) / x1;
        const double d3 = (c.f - b.f) / x3;
        const double bend = (d3 - d1) / (x3 - x1);
        const double slope = d1 - bend * x1;
        const double x = -slope / (2.0 * bend);
        const double f = b.f + 0.5 * slope * x;
        const double span = std::max(a.f, std::max(b.f, c.f)) - std::min(a.f, std::min(b.f, c.f));
        *t = b.t + x;
        return *t > left.t && *t < right.t && ((f > 0.0) != left.above() || std::fabs(f) <= kNear * span);
    }

    // 1: *dip lies on the other side of zero than left and right. 0: none is seen. -1: failure. By parabolas through
    // the sample that is nearest to zero and its neighbours.
    int other_side(const Sample *before, const Sample &left, const Sample &right, const Sample *beyond, Sample *dip)
    {
        double t = 0.0;
        if (!(before != nullptr && dips(*before, left, right, left, right, &t))
            && !(beyond != nullptr && dips(left, right, *beyond, left, right, &t)))
            return 0;
        if (!evaluate(t, dip))
            return -1;
        const auto nearer = [](const Sample &x, const Sample &y) { return std::fabs(x.f) < std::fabs(y.f); };
        const auto beside = [&](const Sample *x) { return x != nullptr && x->above() == left.above(); };
        Sample a = left, b = *dip, c = right;
        if (beside(before) && nearer(left, *dip) && !nearer(right, left)) {
            a = *before, b = left, c = *dip;
        } else if (beside(beyond) && nearer(right, *dip)) {
            a = *dip, b = right, c = *beyond;
        }
        for (int i = 0; dip->above() == left.above(); ++i) {
            if (i == 16 || !dips(a, b, c, a, c, &t) || std::fabs(t - b.t) <= search_.tolerance)
                return 0;
            if (!evaluate(t, dip))
                return -1;
            const bool better = nearer(*dip, b);
            ((dip->t < b.t) == better ? c : a) = better ? b : *dip;
            if (better)
                b = *dip;
        }
        return 1;
    }

    // The zero between two samples: T. R. Chandrupatla, Adv. Eng. Softw. 28, 145 (1997): inverse quadratic steps where
    // they are safe, halves otherwise.
    long refine(const Sample &from, const Sample &to)
    {
        constexpr int kMostSteps = 200;
        const long direction = to.above() ? 1 : -1;
        const double width = std::max(search_.tolerance, 0x1p-50 * std::max(std::fabs(from.t), std::fabs(to.t)));
        Sample a = to, b = from, c = from;
        double part = 0.5;
        for (int i = 0;; ++i) {
            const Sample &best = std::fabs(a.f) < std::fabs(b.f) ? a : b;
            const double least = 0.5 * width / std::fabs(b.t - a.t);
            if (best.f == 0.0 || !(least < 0.5) || i == kMostSteps)
                return put(best, direction, 0) ? KL_OK : KL_WARN;
            Sample x;
            if (!evaluate(a.t + std::min(std::max(part, least), 1.0 - least) * (b.t - a.t), &x))
                return KL_ERR;
            if (x.above() == a.above()) {
                c = a;
            } else {
                c = b;
                b = a;
            }
            a = x;
            const double xi = (a.t - b.t) / (c.t - b.t);
            const double phi = (a.f - b.f) / (c.f - b.f);
            part = phi * phi < xi && (1.0 - phi) * (1.0 - phi) < 1.0 - xi
                       ? a.f / (b.f - a.f) * (c.f / (b.f - c.f))
                             + (c.t - a.t) / (b.t - a.t) * (a.f / (c.f - a.f)) * (b.f / (c.f - b.f))
                       : 0.5;
        }
    }

    const CrossingSearch &search_;
    long room_;
    kl_crossing *found_;
    long n_ = 0;
    double paired_ = -1.0; // the last step with a pair
};

} // namespace

long find_crossings(const CrossingSearch &search, long room, long *n, kl_crossing *found)
{
    return Finder(search, room, found).run(n);
}
