#include "orbits/orbit_kernels.h"

#include "kl_lib.h"
#include "numbers/numbers.h"
#include "numbers/streams.h"
#include "orbits/kepler.h"
#include "orbits/local_axes.h"

namespace KL_KERNELS {

namespace {

// Well inside the bounds of the scalar calls.
constexpr double kOrdinaryPosition = 1e12;
constexpr double kOrdinarySpeed = 1e8;
constexpr double kOrdinaryAngle = 9e7; // deg
constexpr double kShortest = 1e-3;     // m, m/s
constexpr double kPlane = 1e-3;        // sine of the angle between position and velocity

template <class T>
T degrees_0_to_360(T angle)
{
    return reduced_to_360(angle * KL_DEG_PER_RAD) + 0.0;
}

} // namespace

void states_of_ellipses(double mu, const double (*in)[6], double (*pos)[3], double (*vel)[3], long count,
                        std::uint64_t *left)
{
    for (long i = 0; i < count; i += kLanes) {
        Lanes x[6];
        load_elements(in[0], i, count, x);
        auto good = (x[0] > kShortest) & (x[0] < kOrdinaryPosition) & (x[1] >= 0.0) & (x[1] < 0.999999) & (x[2] >= 0.0)
                    & (x[2] <= 180.0) & (fabs(x[3]) < kOrdinaryAngle) & (fabs(x[4]) < kOrdinaryAngle)
                    & (fabs(x[5]) < kOrdinaryAngle);
        const Lanes angles[3] = {x[2], x[3], x[4]};
        Lanes s[3], c[3];
        sin_cos_degrees(angles, s, c);
        const OrbitState<Lanes> out = ellipse_to_state(mu, x[0], x[1], {s[0], c[0], s[1], c[1], s[2], c[2]},
                                                       reduced_degrees(x[5]) * KL_RAD_PER_DEG);
        good &= all_below(out.pos, kOrdinaryPosition * 10.0) & all_below(out.vel, 1e100);
        const std::uint64_t bits = accepted(good, i, count, left);
        store_accepted(out.pos, bits, pos[0], i);
        store_accepted(out.vel, bits, vel[0], i);
    }
}

// For orbits that are closed, have a node and are no circles.
void ellipses_of_states(double mu, const double (*pos)[3], const double (*vel)[3], double (*out)[6], long count,
                        std::uint64_t *left)
{
    for (long k = 0; k < count; k += kLanes) {
        Lanes p[3], v[3];
        load_elements(pos[0], k, count, p);
        load_elements(vel[0], k, count, v);
        const StateSize<Lanes> size = size_of_state(mu, p, v);
        const PlaceInConic<Lanes> x = place_in_conic(mu, p, v, size);
        const Lanes e2 = x.C * x.C + x.D * x.D;
        const Lanes e = sqrt(e2);
        const EllipseAnomalies<Lanes> anomaly = ellipse_anomalies(x, e2);
        const auto good = all_below(p, kOrdinaryPosition) & all_below(v, kOrdinarySpeed) & (size.r > kShortest)
                          & (size.to_parabola > 1e-6) & (size.w > kPlane * (size.r * sqrt(size.speed2)))
                          & (size.across > 1e-12 * size.w) & (e > 1e-100) & (e < 0.999999) & (x.flat > 1e-6);
        const Lanes columns[6] = {x.a,
                                  e,
                                  x.i * KL_DEG_PER_RAD,
                                  degrees_0_to_360(x.node),
                                  degrees_0_to_360(x.u - anomaly.nu),
                                  degrees_0_to_360(anomaly.M)};
        store_accepted(columns, accepted(good, k, count, left), out[0], k);
    }
}

void local_frames(long kind, double mu, const double (*pos)[3], const double (*vel)[3], const double (*acc)[3],
                  double (*r)[9], double (*dr)[9], long count, std::uint64_t *left)
{
    for (long k = 0; k < count; k += kLanes) {
        Lanes p[3], v[3], f[3];
        load_elements(pos[0], k, count, p);
        load_elements(vel[0], k, count, v);
        const Lanes p2 = dot3(p, p);
        if (acc != nullptr) {
            load_elements(acc[0], k, count, f);
        } else {
            const Lanes pull = mu / (p2 * sqrt(p2));
            for (int i = 0; i < 3; ++i)
                f[i] = -pull * p[i];
        }
        Lanes h[3];
        cross(p, v, h);
        const Lanes length = sqrt(p2);
        const Lanes speed = sqrt(dot3(v, v));
        const auto good = all_below(p, kOrdinaryPosition) & all_below(v, kOrdinarySpeed) & all_below(f, kOrdinarySpeed)
                          & (length > kShortest) & (speed > kShortest) & (sqrt(dot3(h, h)) > kPlane * (length * speed));
        Lanes axes[9], turning[9];
        local_axes(kind, p, v, f, axes, turning);
        const std::uint64_t bits = accepted(good, k, count, left);
        store_accepted(axes, bits, r[0], k);
        store_accepted(turning, bits, dr[0], k);
    }
}

} // namespace KL_KERNELS
