#include "orbits/motion.h"

#include "numbers/bounds.h"
#include "numbers/constants.h"
#include "numbers/numbers.h"
#include "numbers/sin_cos.h"

#include <algorithm>
#include <cmath>

// Secular terms of first order. Source: D. Brouwer, Astron. J. 64, 378 (1959).
kl_kepler drifted(double gm, const Oblateness &field, const kl_kepler &mean, double duration)
{
    const double a = mean.semi_major_axis;
    const double e2 = mean.eccentricity * mean.eccentricity;
    double sine[1], cosine[1];
    sin_cos_degrees({mean.inclination}, sine, cosine);
    const double theta2 = cosine[0] * cosine[0];
    const double n = std::sqrt(gm / a) / a * KL_DEG_PER_RAD; // deg/s
    const double ratio = field.radius / (a * (1.0 - e2));
    const double factor = 0.75 * n * field.j2 * ratio * ratio;
    kl_kepler out = mean;
    out.raan = reduced_to_360(mean.raan - 2.0 * factor * cosine[0] * duration);
    out.arg_perigee = reduced_to_360(mean.arg_perigee + factor * (5.0 * theta2 - 1.0) * duration);
    out.mean_anomaly =
        reduced_to_360(mean.mean_anomaly + (n + factor * std::sqrt(1.0 - e2) * (3.0 * theta2 - 1.0)) * duration);
    return out;
}

namespace {

constexpr long kNodes = 6;

bool usable(const kl_state_at &state)
{
    return std::isfinite(state.time) && holds_vector(state.pos, KL_LARGEST_POSITION)
           && holds_vector(state.vel, KL_LARGEST_VELOCITY);
}

// The nodes around an instant, the nearest first: what the last one adds is the error that is told.
long nearest_nodes(const kl_state_at *states, long n, double time, const kl_state_at *(&nodes)[kNodes])
{
    const long count = std::min(n, kNodes);
    const long after =
        std::upper_bound(states, states + n, time, [](double t, const kl_state_at &s) { return t < s.time; }) - states;
    const long first = std::clamp(after - count / 2, 0L, n - count);
    const long last = first + count - 1;
    for (long i = first; i <= last; ++i)
        if (!usable(states[i]) || (i > first && !(states[i - 1].time < states[i].time)))
            return 0;
    if (!(states[first].time <= time && time <= states[last].time))
        return 0;
    long left = std::min(after - 1, last);
    long right = left + 1;
    for (long i = 0; i < count; ++i) {
        const bool earlier = right > last || (left >= first && time - states[left].time <= states[right].time - time);
        nodes[i] = states + (earlier ? left-- : right++);
    }
    return count;
}

} // namespace

// Newton's form with every node twice.
bool interpolate(const kl_state_at *states, long n, double time, Interpolated *out)
{
    const kl_state_at *nodes[kNodes] = {};
    const long count = n >= 2 ? nearest_nodes(states, n, time, nodes) : 0;
    if (count == 0)
        return false;
    const long m = 2 * count;
    double z[2 * kNodes]; // s, from the instant
    for (long k = 0; k < m; ++k)
        z[k] = nodes[k / 2]->time - time;
    double square = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        double d[2 * kNodes]; // divided differences; after pass j d[k] is that of z[k - j] to z[k]
        for (long k = 0; k < m; ++k)
            d[k] = nodes[k / 2]->pos[axis];
        for (long j = 1; j < m; ++j)
            for (long k = m - 1; k >= j; --k)
                d[k] = j == 1 && k % 2 == 1 ? nodes[k / 2]->vel[axis] : (d[k] - d[k - 1]) / (z[k] - z[k - j]);
        double pos = d[m - 1], vel = 0.0, last = d[m - 1];
        for (long k = m - 2; k >= 0; --k) {
            vel = pos - vel * z[k];
            pos = d[k] - pos * z[k];
            last = (k == m - 2 ? d[k] : 0.0) - last * z[k];
        }
        out->pos[axis] = pos;
        out->vel[axis] = vel;
        square += last * last;
    }
    out->error = std::sqrt(square);
    // Instants at the ends of the range of numbers, or nearly equal, leave no polynomial.
    double sum = out->error;
    for (int axis = 0; axis < 3; ++axis)
        sum += std::fabs(out->pos[axis]) + std::fabs(out->vel[axis]);
    return std::isfinite(sum);
}
