#include "earth/polar_kernels.h"

#include "earth/geodetic.h"
#include "earth/polar.h"
#include "numbers/bounds.h"
#include "numbers/streams.h"

namespace KL_KERNELS {

namespace {

// Well inside the bounds of the scalar calls.
constexpr double kOrdinaryLength = 1e11;
constexpr double kOrdinarySpeed = 1e8;
constexpr double kOrdinaryRate = 1e30;
constexpr double kTiny = 1e-100;

void load_vectors(const double (*from)[3], long first, long count, Lanes (&out)[3])
{
    if (from != nullptr)
        load_elements(from[0], first, count, out);
    else
        for (Lanes &x : out)
            x = Lanes(0.0);
}

mask_of<Lanes> are_angles(const Lanes (&x)[6], double first, double second)
{
    return (fabs(x[0]) <= first) & (fabs(x[1]) <= second);
}

void store_state(const Lanes (&p)[3], const Lanes (&v)[3], mask_of<Lanes> good, bool rates, double (*pos)[3],
                 double (*vel)[3], long first, long count, std::uint64_t *left)
{
    const Lanes none[3] = {Lanes(0.0), Lanes(0.0), Lanes(0.0)};
    if (rates)
        good &= all_below(v, kOrdinaryRate);
    const std::uint64_t bits = accepted(good, first, count, left);
    store_accepted(p, bits, pos[0], first);
    if (vel != nullptr)
        store_accepted(rates ? v : none, bits, vel[0], first);
}

// Azimuth or right ascension, elevation or declination, length and their rates.
void polar_columns(bool rates, const Lanes (&r)[3], const Lanes (&w)[3], const PolarLengths<Lanes> &lengths,
                   Lanes (&out)[6])
{
    const Polar<Lanes> x = to_polar(r, lengths);
    out[0] = positive_degrees(x.lon);
    out[1] = x.lat * KL_DEG_PER_RAD + 0.0;
    out[2] = x.distance;
    out[3] = out[4] = out[5] = Lanes(0.0);
    if (rates) {
        const Polar<Lanes> rate = to_polar_rates(r, lengths, w);
        out[3] = rate.lon * KL_DEG_PER_RAD + 0.0;
        out[4] = rate.lat * KL_DEG_PER_RAD + 0.0;
        out[5] = rate.distance + 0.0;
    }
}

} // namespace

void radec_of_states(bool rates, const double (*pos)[3], const double (*vel)[3], double (*out)[6], long count,
                     std::uint64_t *left)
{
    for (long i = 0; i < count; i += kLanes) {
        Lanes r[3], w[3], x[6];
        load_vectors(pos, i, count, r);
        load_vectors(rates ? vel : nullptr, i, count, w);
        const PolarLengths<Lanes> lengths = polar_lengths(r);
        polar_columns(rates, r, w, lengths, x);
        const auto good =
            all_below(r, 1e100) & all_below(w, kOrdinarySpeed) & (lengths.q > kTiny) & all_below(x, 1e100);
        store_accepted(x, accepted(good, i, count, left), out[0], i);
    }
}

void states_of_radec(bool rates, const double (*in)[6], double (*pos)[3], double (*vel)[3], long count,
                     std::uint64_t *left)
{
    for (long i = 0; i < count; i += kLanes) {
        Lanes x[6], p[3], v[3] = {};
        load_elements(in[0], i, count, x);
        const LocalAxes<Lanes> axes = local_axes(x[1], x[0]);
        from_polar(axes, x[2], p);
        if (rates)
            from_polar_rates(axes, x[2], x[3] * KL_RAD_PER_DEG, x[4] * KL_RAD_PER_DEG, x[5], v);
        const auto good = are_angles(x, 360.0, 90.0) & (x[2] >= 0.0) & (x[2] < 1e100);
        store_state(p, v, good, rates, pos, vel, i, count, left);
    }
}

void topocentric_of_states(const StationConstants *station, bool rates, const double (*pos)[3], const double (*vel)[3],
                           double (*out)[6], long count, std::uint64_t *left)
{
    const LocalAxes<Lanes> axes = {station->s, station->c, station->sl, station->cl};
    for (long i = 0; i < count; i += kLanes) {
        Lanes p[3], v[3], x[6];
        load_vectors(pos, i, count, p);
        load_vectors(rates ? vel : nullptr, i, count, v);
        const NorthEastUp<Lanes> d =
            to_local(axes, p[0] - station->pos[0], p[1] - station->pos[1], p[2] - station->pos[2]);
        const NorthEastUp<Lanes> turning = to_local(axes, v[0], v[1], v[2]);
        const Lanes r[3] = {d.n, d.e, d.u};
        const Lanes w[3] = {turning.n, turning.e, turning.u};
        const PolarLengths<Lanes> lengths = polar_lengths(r);
        polar_columns(rates, r, w, lengths, x);
        const auto good = all_below(p, kOrdinaryLength) & all_below(v, kOrdinarySpeed) & (lengths.q > 0.0);
        store_accepted(x, accepted(good, i, count, left), out[0], i);
    }
}

void states_of_topocentric(const StationConstants *station, bool rates, const double (*in)[6], double (*pos)[3],
                           double (*vel)[3], long count, std::uint64_t *left)
{
    const LocalAxes<Lanes> axes = {station->s, station->c, station->sl, station->cl};
    for (long i = 0; i < count; i += kLanes) {
        Lanes x[6], d[3], p[3], w[3], v[3] = {};
        load_elements(in[0], i, count, x);
        const LocalAxes<Lanes> direction = local_axes(x[1], x[0]);
        from_polar(direction, x[2], d);
        from_local(axes, {d[0], d[1], d[2]}, p);
        if (rates) {
            from_polar_rates(direction, x[2], x[3] * KL_RAD_PER_DEG, x[4] * KL_RAD_PER_DEG, x[5], w);
            from_local(axes, {w[0], w[1], w[2]}, v);
        }
        for (int j = 0; j < 3; ++j)
            p[j] = station->pos[j] + p[j];
        const auto good = are_angles(x, 360.0, 90.0) & (x[2] >= 0.0) & (x[2] < kOrdinaryLength) & (direction.c != 0.0);
        store_state(p, v, good, rates, pos, vel, i, count, left);
    }
}

void states_of_geodetic(const EllipsoidConstants *ellipsoid, bool rates, const double (*in)[6], double (*pos)[3],
                        double (*vel)[3], long count, std::uint64_t *left)
{
    const Ellipsoid e = ellipsoid_of_constants(ellipsoid->a, ellipsoid->f);
    for (long i = 0; i < count; i += kLanes) {
        Lanes x[6], p[3], v[3] = {};
        load_elements(in[0], i, count, x);
        degrees_to_cartesian(e, rates, {x[0], x[1], x[2], x[3], x[4], x[5]}, p, v);
        const auto good = are_angles(x, 90.0, 360.0) & (x[2] >= -e.b) & (x[2] < kOrdinaryLength);
        store_state(p, v, good, rates, pos, vel, i, count, left);
    }
}

void geodetic_of_states(const EllipsoidConstants *ellipsoid, bool rates, const double (*pos)[3], const double (*vel)[3],
                        double (*out)[6], long count, std::uint64_t *left)
{
    const Ellipsoid e = ellipsoid_of_constants(ellipsoid->a, ellipsoid->f);
    for (long i = 0; i < count; i += kLanes) {
        Lanes r[3], v[3];
        load_vectors(pos, i, count, r);
        load_vectors(rates ? vel : nullptr, i, count, v);
        GeodeticDegrees<Lanes> x;
        cartesian_to_degrees(e, rates, r, v, &x);
        const Lanes axis2 = r[0] * r[0] + r[1] * r[1];
        // Around the centre lie the centres of curvature, where the latitude has no rate.
        const auto good = all_below(r, kOrdinaryLength) & all_below(v, kOrdinarySpeed) & (r[2] != 0.0) & (axis2 > 1.0)
                          & (axis2 + r[2] * r[2] > 1e10);
        const Lanes columns[6] = {x.lat, x.lon, x.h, x.lat_rate, x.lon_rate, x.h_rate};
        store_accepted(columns, accepted(good, i, count, left), out[0], i);
    }
}

} // namespace KL_KERNELS
