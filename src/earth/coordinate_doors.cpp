// Geodetic, polar and topocentric coordinates, geodesics and grids: the public functions.
#include "arrays/array_call.h"
#include "earth/geodesic.h"
#include "earth/geodetic.h"
#include "earth/polar.h"
#include "earth/polar_kernels.h"
#include "earth/transverse_mercator.h"
#include "models/model_record.h"
#include "numbers/bounds.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFarthest = 1e12; // m: heights, ranges, and positions to be made geodetic

bool is_mode(const long *calc_mode)
{
    return calc_mode != nullptr && (*calc_mode == KL_CALC_POS || *calc_mode == KL_CALC_POS_VEL);
}

// A model whose Earth was refused has no ellipsoid.
bool ellipsoid_of_model(const kl_model_id *model_id, Ellipsoid *e)
{
    *e = ellipsoid_of(model_blocks(model_id).earth);
    return e->a > 0.0;
}

bool place_allowed(const Ellipsoid &e, const kl_geodetic &in)
{
    return within(in.latitude, -90.0, 90.0) && within(in.longitude, -360.0, 360.0)
           && within(in.height, -e.b, kFarthest);
}

// What the elements of one call or of many need first: a mode and an ellipsoid. False: refused.
bool is_ready(Activation &call, int mode_code, const long *calc_mode, const kl_model_id *model_id, Ellipsoid *e)
{
    if (!is_mode(calc_mode))
        call.fails(mode_code);
    return is_mode(calc_mode) && ellipsoid_of_model(model_id, e);
}

// Velocities of mode 1 are zero, where there is room for them.
void put_velocity(bool rates, const double from[3], double *to)
{
    constexpr double kZero[3] = {0.0, 0.0, 0.0};
    if (to != nullptr)
        copy_three(rates ? from : kZero, to);
}

// ---- geodetic ----

long geod_to_cart(Activation &call, const Ellipsoid &e, bool rates, const kl_geodetic *in, double *pos, double *vel)
{
    if (in == nullptr || !within(in->latitude, -90.0, 90.0))
        return call.fails(KL_GEOD_TO_CART_LATITUDE_ERR);
    if (!within(in->longitude, -360.0, 360.0))
        return call.fails(KL_GEOD_TO_CART_LONGITUDE_ERR);
    if (!within(in->height, -e.b, kFarthest))
        return call.fails(KL_GEOD_TO_CART_HEIGHT_ERR);
    double p[3], v[3];
    degrees_to_cartesian<double>(
        e, rates, {in->latitude, in->longitude, in->height, in->latitude_rate, in->longitude_rate, in->height_rate}, p,
        v);
    if (rates && !finite(v))
        return call.fails(KL_GEOD_TO_CART_RATES_ERR);
    if (pos == nullptr || (rates && vel == nullptr))
        return KL_ERR;
    copy_three(p, pos);
    put_velocity(rates, v, vel);
    return call.status();
}

long cart_to_geod(Activation &call, const Ellipsoid &e, bool rates, const double *pos, const double *vel,
                  kl_geodetic *out)
{
    if (!holds_vector(pos, kFarthest))
        return call.fails(KL_CART_TO_GEOD_POSITION_ERR);
    if (rates && !holds_vector(vel, KL_LARGEST_VELOCITY))
        return call.fails(KL_CART_TO_GEOD_VELOCITY_ERR);
    if (out == nullptr)
        return KL_ERR;
    GeodeticDegrees<double> x;
    const GeodeticFindings<double> found = cartesian_to_degrees(e, rates, pos, vel, &x);
    *out = {x.lat, x.lon, x.h, x.lat_rate, x.lon_rate, x.h_rate};
    if (found.two_feet) {
        const double p = distance_from_axis(pos[0], pos[1]);
        if (has_two_feet(e, p, std::fabs(pos[2])))
            Activation(KL_FN_CAR_GEO, KL_NO_RECORD).warns(KL_CAR_GEO_COMPUTATION, &p);
        call.warns(KL_CART_TO_GEOD_TWO_FEET_WARN);
    }
    if (found.no_longitude)
        call.warns(KL_CART_TO_GEOD_POLAR_AXIS_WARN);
    return call.status();
}

// ---- right ascension and declination ----

// 1 where squares of the vector are ordinary numbers, else a power of two that makes them so.
double scale_of(const double v[3])
{
    const double most = std::max(std::fabs(v[0]), std::max(std::fabs(v[1]), std::fabs(v[2])));
    if (most < 1e-140)
        return most < 1e-300 ? 0x1p1000 : 0x1p800;
    return most > 1e140 ? 0x1p-800 : 1.0;
}

long cart_to_radec(Activation &call, bool rates, const double *pos, const double *vel, kl_radec *out)
{
    if (pos == nullptr || !finite(pos) || (pos[0] == 0.0 && pos[1] == 0.0 && pos[2] == 0.0))
        return call.fails(KL_CART_TO_RADEC_POSITION_ERR);
    if (rates && !holds_vector(vel, KL_LARGEST_VELOCITY))
        return call.fails(KL_CART_TO_RADEC_VELOCITY_ERR);
    if (out == nullptr)
        return KL_ERR;
    const double scale = scale_of(pos);
    const double r[3] = {pos[0] * scale, pos[1] * scale, pos[2] * scale};
    const PolarLengths<double> lengths = polar_lengths(r);
    const Polar<double> x = to_polar(r, lengths);
    if (!std::isfinite(x.distance / scale)) // the largest numbers of all
        return call.fails(KL_CART_TO_RADEC_POSITION_ERR);
    kl_radec found = {positive_degrees(x.lon), x.lat * KL_DEG_PER_RAD + 0.0, x.distance / scale, 0.0, 0.0, 0.0};
    bool undefined = false;
    if (rates) {
        const Polar<double> w = to_polar_rates(r, lengths, vel);
        found.ra_rate = w.lon * KL_DEG_PER_RAD * scale + 0.0;
        found.dec_rate = w.lat * KL_DEG_PER_RAD * scale + 0.0;
        found.distance_rate = w.distance + 0.0;
        undefined = lengths.q == 0.0 && (vel[0] != 0.0 || vel[1] != 0.0);
        if (!(std::isfinite(found.ra_rate) && std::isfinite(found.dec_rate))) {
            found.ra_rate = found.dec_rate = 0.0;
            undefined = true;
        }
    }
    *out = found;
    if (undefined)
        call.warns(KL_CART_TO_RADEC_POLAR_AXIS_WARN);
    return call.status();
}

long radec_to_cart(Activation &call, bool rates, const kl_radec *in, double *pos, double *vel)
{
    if (in == nullptr || !within(in->ra, -360.0, 360.0))
        return call.fails(KL_RADEC_TO_CART_RA_ERR);
    if (!within(in->dec, -90.0, 90.0))
        return call.fails(KL_RADEC_TO_CART_DEC_ERR);
    if (!(in->distance >= 0.0 && std::isfinite(in->distance)))
        return call.fails(KL_RADEC_TO_CART_DISTANCE_ERR);
    const LocalAxes<double> axes = local_axes(in->dec, in->ra);
    double p[3], v[3];
    from_polar(axes, in->distance, p);
    if (rates) {
        from_polar_rates(axes, in->distance, in->ra_rate * KL_RAD_PER_DEG, in->dec_rate * KL_RAD_PER_DEG,
                         in->distance_rate, v);
        if (!finite(v))
            return call.fails(KL_RADEC_TO_CART_RATES_ERR);
    }
    if (pos == nullptr || (rates && vel == nullptr))
        return KL_ERR;
    copy_three(p, pos);
    put_velocity(rates, v, vel);
    return call.status();
}

// ---- topocentric ----

// A place on the Earth and the axes there.
struct Station {
    LocalAxes<double> axes;
    double pos[3];
};

bool station_at(const Ellipsoid &e, const kl_geodetic *origin, Station *out)
{
    if (origin == nullptr || !place_allowed(e, *origin))
        return false;
    out->axes = local_axes(origin->latitude, origin->longitude);
    geodetic_to_cartesian(e, out->axes, origin->height, out->pos);
    return true;
}

struct StationConditions {
    int mode, origin;
};
constexpr StationConditions kToStation = {KL_EF_TO_TOPOCENTRIC_CALC_MODE_ERR, KL_EF_TO_TOPOCENTRIC_ORIGIN_ERR};
constexpr StationConditions kFromStation = {KL_TOPOCENTRIC_TO_EF_CALC_MODE_ERR, KL_TOPOCENTRIC_TO_EF_ORIGIN_ERR};

// The same with a station.
bool is_ready(Activation &call, const StationConditions &conditions, const long *calc_mode, const kl_model_id *model_id,
              const kl_geodetic *origin, Station *out)
{
    Ellipsoid e;
    if (!is_ready(call, conditions.mode, calc_mode, model_id, &e))
        return false;
    const bool there = station_at(e, origin, out);
    if (!there)
        call.fails(conditions.origin);
    return there;
}

long ef_to_topocentric(Activation &call, const Station &station, bool rates, const double *pos, const double *vel,
                       kl_topocentric *out)
{
    if (!holds_vector(pos, KL_LARGEST_POSITION) || (rates && !holds_vector(vel, KL_LARGEST_VELOCITY)))
        return call.fails(KL_EF_TO_TOPOCENTRIC_STATE_ERR);
    if (out == nullptr)
        return KL_ERR;
    const NorthEastUp<double> d =
        to_local(station.axes, pos[0] - station.pos[0], pos[1] - station.pos[1], pos[2] - station.pos[2]);
    const double r[3] = {d.n, d.e, d.u};
    const PolarLengths<double> lengths = polar_lengths(r);
    if (lengths.d == 0.0) {
        *out = {0.0, 90.0, 0.0, 0.0, 0.0, 0.0};
        call.warns(KL_EF_TO_TOPOCENTRIC_ZENITH_WARN);
        return call.status();
    }
    const Polar<double> x = to_polar(r, lengths);
    *out = {positive_degrees(x.lon), x.lat * KL_DEG_PER_RAD + 0.0, x.distance, 0.0, 0.0, 0.0};
    if (rates) {
        const NorthEastUp<double> v = to_local(station.axes, vel[0], vel[1], vel[2]);
        const double w[3] = {v.n, v.e, v.u};
        const Polar<double> rate = to_polar_rates(r, lengths, w);
        out->azimuth_rate = rate.lon * KL_DEG_PER_RAD + 0.0;
        out->elevation_rate = rate.lat * KL_DEG_PER_RAD + 0.0;
        out->range_rate = rate.distance + 0.0;
    }
    if (lengths.q == 0.0)
        call.warns(KL_EF_TO_TOPOCENTRIC_ZENITH_WARN);
    return call.status();
}

long topocentric_to_ef(Activation &call, const Station &station, bool rates, const kl_topocentric *in, double *pos,
                       double *vel)
{
    if (in == nullptr || !within(in->azimuth, -360.0, 360.0) || !within(in->elevation, -90.0, 90.0)
        || !within(in->range, 0.0, kFarthest))
        return call.fails(KL_TOPOCENTRIC_TO_EF_COORDINATES_ERR);
    const LocalAxes<double> direction = local_axes(in->elevation, in->azimuth);
    double d[3], p[3], w[3], v[3];
    from_polar(direction, in->range, d);
    from_local(station.axes, {d[0], d[1], d[2]}, p);
    if (rates) {
        from_polar_rates(direction, in->range, in->azimuth_rate * KL_RAD_PER_DEG, in->elevation_rate * KL_RAD_PER_DEG,
                         in->range_rate, w);
        from_local(station.axes, {w[0], w[1], w[2]}, v);
        if (!finite(v))
            return call.fails(KL_TOPOCENTRIC_TO_EF_COORDINATES_ERR);
    }
    if (pos == nullptr || (rates && vel == nullptr))
        return KL_ERR;
    for (int i = 0; i < 3; ++i)
        pos[i] = station.pos[i] + p[i];
    put_velocity(rates, v, vel);
    if (direction.c == 0.0)
        call.warns(KL_TOPOCENTRIC_TO_EF_ZENITH_WARN);
    return call.status();
}

// ---- geodesics and grids ----

double azimuth_degrees(const Heading &x)
{
    return positive_degrees(arc_tangent(x.s, x.c));
}

long geod_distance(Activation &call, const GeodesicSeries &g, const double *lat1, const double *lon1,
                   const double *lat2, const double *lon2, double *distance, double *azimuth1, double *azimuth2)
{
    if (!holds(lat1, -90.0, 90.0))
        return call.fails(KL_GEOD_DISTANCE_LATITUDE1_ERR);
    if (!holds(lon1, -360.0, 360.0))
        return call.fails(KL_GEOD_DISTANCE_LONGITUDE1_ERR);
    if (!holds(lat2, -90.0, 90.0))
        return call.fails(KL_GEOD_DISTANCE_LATITUDE2_ERR);
    if (!holds(lon2, -360.0, 360.0))
        return call.fails(KL_GEOD_DISTANCE_LONGITUDE2_ERR);
    if (distance == nullptr)
        return KL_ERR;
    const GeodesicLine line = geodesic_between(g, *lat1, *lon1, *lat2, *lon2);
    if (!line.converged)
        return call.fails(KL_GEOD_DISTANCE_CONVERGENCE_ERR);
    *distance = line.distance;
    if (azimuth1 != nullptr)
        *azimuth1 = azimuth_degrees(line.azimuth1);
    if (azimuth2 != nullptr)
        *azimuth2 = azimuth_degrees(line.azimuth2);
    return call.status();
}

long geod_point(const GeodesicSeries &g, const double *lat, const double *lon, const double *azimuth,
                const double *distance, double *lat2, double *lon2, double *azimuth2)
{
    constexpr double kLongest = 1e9; // m: some 25 turns around the Earth
    if (!holds(lat, -90.0, 90.0) || !holds(lon, -360.0, 360.0) || !holds(azimuth, -360.0, 360.0)
        || !holds(distance, -kLongest, kLongest) || lat2 == nullptr || lon2 == nullptr)
        return KL_ERR;
    const GeodesicEnd end = geodesic_from(g, *lat, *lon, *azimuth, *distance);
    *lat2 = end.lat + 0.0;
    *lon2 = reduced_to_360(end.lon) + 0.0;
    if (azimuth2 != nullptr)
        *azimuth2 = azimuth_degrees(end.azimuth);
    return KL_OK;
}

long geod_to_utm(Activation &call, const GridSeries &g, const double *lat, const double *lon, long *zone, long *north,
                 double *easting, double *northing)
{
    if (!holds(lat, -kGridLatitude, kGridLatitude) || !holds(lon, -360.0, 360.0) || zone == nullptr || *zone < 0
        || *zone > 60 || north == nullptr || easting == nullptr || northing == nullptr)
        return call.fails(KL_COTICCHIA_SURACE_COMPUTATION_ERR);
    const long chosen = *zone != 0 ? *zone : zone_of(*lon);
    const double across = from_meridian(*lon, chosen);
    if (!within(across, -kGridWidth, kGridWidth))
        return call.fails(KL_COTICCHIA_SURACE_COMPUTATION_ERR);
    const bool northern = *lat >= 0.0;
    const GridPoint point = geodetic_to_grid(g, *lat, across, northern);
    *zone = chosen;
    *north = northern ? 1 : 0;
    *easting = point.easting;
    *northing = point.northing;
    return call.status();
}

long utm_to_geod(const GridSeries &g, const long *zone, const long *north, const double *easting,
                 const double *northing, double *lat, double *lon)
{
    constexpr double kSlack = 1e-9; // deg: what the limits themselves may come back with
    if (zone == nullptr || *zone < 1 || *zone > 60 || north == nullptr || (*north != 0 && *north != 1)
        || !holds(easting, -1e6, 2e6) || !holds(northing, -1e6, 1.1e7) || lat == nullptr || lon == nullptr)
        return KL_ERR;
    const GridPlace place = grid_to_geodetic(g, {*easting, *northing}, *north == 1);
    if (!within(place.lat, -kGridLatitude - kSlack, kGridLatitude + kSlack)
        || !within(place.from_meridian, -kGridWidth - kSlack, kGridWidth + kSlack))
        return KL_ERR;
    *lat = place.lat + 0.0;
    *lon = reduced_to_360(place.from_meridian + 6.0 * static_cast<double>(*zone) - 183.0) + 0.0;
    return KL_OK;
}

} // namespace

long KL_Car_Geo(const kl_model_id *model_id, const double pos[3], double *lat, double *lon, double *h,
                kl_error_record *record)
{
    Activation call(KL_FN_CAR_GEO, record);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e) || !holds_vector(pos, kFarthest) || lat == nullptr || lon == nullptr
        || h == nullptr)
        return KL_ERR;
    const GeodeticPoint<double> at = cartesian_to_geodetic(e, pos);
    *lat = at.lat;
    *lon = at.lon;
    *h = at.h;
    if (has_two_feet(e, at.p, std::fabs(pos[2])))
        call.warns(KL_CAR_GEO_COMPUTATION, &at.p);
    return call.status();
}

long kl_geod_to_cart(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *in, double pos[3], double vel[3],
                     long *ierr)
{
    Activation call(KL_FN_GEOD_TO_CART, ierr);
    Ellipsoid e;
    if (!is_ready(call, KL_GEOD_TO_CART_CALC_MODE_ERR, calc_mode, model_id, &e))
        return KL_ERR;
    return geod_to_cart(call, e, *calc_mode == KL_CALC_POS_VEL, in, pos, vel);
}

long kl_cart_to_geod(kl_model_id *model_id, const long *calc_mode, const double pos[3], const double vel[3],
                     kl_geodetic *out, long *ierr)
{
    Activation call(KL_FN_CART_TO_GEOD, ierr);
    Ellipsoid e;
    if (!is_ready(call, KL_CART_TO_GEOD_CALC_MODE_ERR, calc_mode, model_id, &e))
        return KL_ERR;
    return cart_to_geod(call, e, *calc_mode == KL_CALC_POS_VEL, pos, vel, out);
}

long kl_cart_to_radec(kl_model_id *, const long *calc_mode, const double pos[3], const double vel[3], kl_radec *out,
                      long *ierr)
{
    Activation call(KL_FN_CART_TO_RADEC, ierr);
    if (!is_mode(calc_mode))
        return call.fails(KL_CART_TO_RADEC_CALC_MODE_ERR);
    return cart_to_radec(call, *calc_mode == KL_CALC_POS_VEL, pos, vel, out);
}

long kl_radec_to_cart(kl_model_id *, const long *calc_mode, const kl_radec *in, double pos[3], double vel[3],
                      long *ierr)
{
    Activation call(KL_FN_RADEC_TO_CART, ierr);
    if (!is_mode(calc_mode))
        return call.fails(KL_RADEC_TO_CART_CALC_MODE_ERR);
    return radec_to_cart(call, *calc_mode == KL_CALC_POS_VEL, in, pos, vel);
}

long kl_ef_to_topocentric(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *origin, const double pos[3],
                          const double vel[3], kl_topocentric *out, long *ierr)
{
    Activation call(KL_FN_EF_TO_TOPOCENTRIC, ierr);
    Station station;
    if (!is_ready(call, kToStation, calc_mode, model_id, origin, &station))
        return KL_ERR;
    return ef_to_topocentric(call, station, *calc_mode == KL_CALC_POS_VEL, pos, vel, out);
}

long kl_topocentric_to_ef(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *origin,
                          const kl_topocentric *in, double pos[3], double vel[3], long *ierr)
{
    Activation call(KL_FN_TOPOCENTRIC_TO_EF, ierr);
    Station station;
    if (!is_ready(call, kFromStation, calc_mode, model_id, origin, &station))
        return KL_ERR;
    return topocentric_to_ef(call, station, *calc_mode == KL_CALC_POS_VEL, in, pos, vel);
}

long kl_geod_distance(kl_model_id *model_id, const double *lat1, const double *lon1, const double *lat2,
                      const double *lon2, double *distance, double *azimuth1, double *azimuth2, long *ierr)
{
    Activation call(KL_FN_GEOD_DISTANCE, ierr);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return KL_ERR;
    return geod_distance(call, geodesic_series(e), lat1, lon1, lat2, lon2, distance, azimuth1, azimuth2);
}

long kl_geod_point(kl_model_id *model_id, const double *lat, const double *lon, const double *azimuth,
                   const double *distance, double *lat2, double *lon2, double *azimuth2, long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return KL_ERR;
    return geod_point(geodesic_series(e), lat, lon, azimuth, distance, lat2, lon2, azimuth2);
}

long KL_Coticchia_Surace(kl_model_id *model_id, const double *lat, const double *lon, long *zone, long *north,
                         double *easting, double *northing, long *ierr)
{
    Activation call(KL_FN_COTICCHIA_SURACE, ierr);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return call.fails(KL_COTICCHIA_SURACE_COMPUTATION_ERR);
    return geod_to_utm(call, grid_series(e), lat, lon, zone, north, easting, northing);
}

long kl_utm_to_geod(kl_model_id *model_id, const long *zone, const long *north, const double *easting,
                    const double *northing, double *lat, double *lon, long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return KL_ERR;
    return utm_to_geod(grid_series(e), zone, north, easting, northing, lat, lon);
}

// ---- arrays ----

namespace {

// A record of six as the kernels have it.
template <class Record>
const double (*six(const Record *records, long i))[6]
{
    static_assert(sizeof(Record) == 6 * sizeof(double));
    return reinterpret_cast<const double(*)[6]>(records + i);
}
template <class Record>
double (*six(Record *records, long i))[6]
{
    static_assert(sizeof(Record) == 6 * sizeof(double));
    return reinterpret_cast<double(*)[6]>(records + i);
}

// Element i of velocities that may be missing.
template <class T>
T (*from(T (*velocities)[3], long i))
[3]
{
    return velocities != nullptr ? velocities + i : nullptr;
}

StationConstants constants_of(const Station &x)
{
    return {x.axes.s, x.axes.c, x.axes.sl, x.axes.cl, {x.pos[0], x.pos[1], x.pos[2]}};
}

} // namespace

long kl_geod_to_cart_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *in,
                       double pos[][3], double vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_GEOD_TO_CART, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(pos, vel);
    Ellipsoid e;
    if (!is_ready(array.call(), KL_GEOD_TO_CART_CALC_MODE_ERR, calc_mode, model_id, &e))
        return array.refuse(fail);
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(in, KL_GEOD_TO_CART_LATITUDE_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_GEOD_TO_CART, word);
            return geod_to_cart(call, e, rates, element(in, i), element(pos, i), element(vel, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (pos == nullptr || (rates && vel == nullptr))
                return false;
            const EllipsoidConstants ellipsoid = {e.a, e.f};
            states_of_geodetic_kernel()(&ellipsoid, rates, six(in, first), pos + first, from(vel, first), count,
                                        left.bits());
            return true;
        });
}

long kl_cart_to_geod_n(kl_model_id *model_id, const long *n, const long *calc_mode, const double pos[][3],
                       const double vel[][3], kl_geodetic *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_CART_TO_GEOD, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    Ellipsoid e;
    if (!is_ready(array.call(), KL_CART_TO_GEOD_CALC_MODE_ERR, calc_mode, model_id, &e))
        return array.refuse(fail);
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(pos, KL_CART_TO_GEOD_POSITION_ERR) || (rates && array.lacks(vel, KL_CART_TO_GEOD_VELOCITY_ERR)))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_CART_TO_GEOD, word);
            return cart_to_geod(call, e, rates, element(pos, i), element(vel, i), element(out, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (out == nullptr)
                return false;
            const EllipsoidConstants ellipsoid = {e.a, e.f};
            geodetic_of_states_kernel()(&ellipsoid, rates, pos + first, from(vel, first), six(out, first), count,
                                        left.bits());
            return true;
        });
}

long kl_cart_to_radec_n(kl_model_id *, const long *n, const long *calc_mode, const double pos[][3],
                        const double vel[][3], kl_radec *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_CART_TO_RADEC, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    if (!is_mode(calc_mode)) {
        array.call().fails(KL_CART_TO_RADEC_CALC_MODE_ERR);
        return array.refuse(fail);
    }
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(pos, KL_CART_TO_RADEC_POSITION_ERR) || (rates && array.lacks(vel, KL_CART_TO_RADEC_VELOCITY_ERR)))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_CART_TO_RADEC, word);
            return cart_to_radec(call, rates, element(pos, i), element(vel, i), element(out, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (out == nullptr)
                return false;
            radec_of_states_kernel()(rates, pos + first, from(vel, first), six(out, first), count, left.bits());
            return true;
        });
}

long kl_radec_to_cart_n(kl_model_id *, const long *n, const long *calc_mode, const kl_radec *in, double pos[][3],
                        double vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_RADEC_TO_CART, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(pos, vel);
    if (!is_mode(calc_mode)) {
        array.call().fails(KL_RADEC_TO_CART_CALC_MODE_ERR);
        return array.refuse(fail);
    }
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(in, KL_RADEC_TO_CART_RA_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_RADEC_TO_CART, word);
            return radec_to_cart(call, rates, element(in, i), element(pos, i), element(vel, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (pos == nullptr || (rates && vel == nullptr))
                return false;
            states_of_radec_kernel()(rates, six(in, first), pos + first, from(vel, first), count, left.bits());
            return true;
        });
}

long kl_ef_to_topocentric_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin,
                            const double pos[][3], const double vel[][3], kl_topocentric *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_EF_TO_TOPOCENTRIC, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    Station station;
    if (!is_ready(array.call(), kToStation, calc_mode, model_id, origin, &station))
        return array.refuse(fail);
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(pos, KL_EF_TO_TOPOCENTRIC_STATE_ERR) || (rates && array.lacks(vel, KL_EF_TO_TOPOCENTRIC_STATE_ERR)))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_EF_TO_TOPOCENTRIC, word);
            return ef_to_topocentric(call, station, rates, element(pos, i), element(vel, i), element(out, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (out == nullptr)
                return false;
            const StationConstants there = constants_of(station);
            topocentric_of_states_kernel()(&there, rates, pos + first, from(vel, first), six(out, first), count,
                                           left.bits());
            return true;
        });
}

long kl_topocentric_to_ef_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin,
                            const kl_topocentric *in, double pos[][3], double vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_TOPOCENTRIC_TO_EF, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(pos, vel);
    Station station;
    if (!is_ready(array.call(), kFromStation, calc_mode, model_id, origin, &station))
        return array.refuse(fail);
    const bool rates = *calc_mode == KL_CALC_POS_VEL;
    if (array.lacks(in, KL_TOPOCENTRIC_TO_EF_COORDINATES_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_TOPOCENTRIC_TO_EF, word);
            return topocentric_to_ef(call, station, rates, element(in, i), element(pos, i), element(vel, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (pos == nullptr || (rates && vel == nullptr))
                return false;
            const StationConstants there = constants_of(station);
            states_of_topocentric_kernel()(&there, rates, six(in, first), pos + first, from(vel, first), count,
                                           left.bits());
            return true;
        });
}

long kl_geod_distance_n(kl_model_id *model_id, const long *n, const double *lat1, const double *lon1,
                        const double *lat2, const double *lon2, double *distance, double *azimuth1, double *azimuth2,
                        long *status, long *ierr)
{
    ArrayCall array(KL_FN_GEOD_DISTANCE, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(distance, azimuth1, azimuth2);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return array.refuse(fail);
    if (array.lacks(lat1, KL_GEOD_DISTANCE_LATITUDE1_ERR) || array.lacks(lon1, KL_GEOD_DISTANCE_LONGITUDE1_ERR)
        || array.lacks(lat2, KL_GEOD_DISTANCE_LATITUDE2_ERR) || array.lacks(lon2, KL_GEOD_DISTANCE_LONGITUDE2_ERR))
        return array.refuse(fail);
    const GeodesicSeries g = geodesic_series(e);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_GEOD_DISTANCE, word);
            return geod_distance(call, g, element(lat1, i), element(lon1, i), element(lat2, i), element(lon2, i),
                                 element(distance, i), element(azimuth1, i), element(azimuth2, i));
        },
        fail);
}

long kl_geod_point_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, const double *azimuth,
                     const double *distance, double *lat2, double *lon2, double *azimuth2, long *status, long *ierr)
{
    ArrayCall array(KL_FN_INIT_ERR, n, status, ierr); // nothing is recorded
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(lat2, lon2, azimuth2);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return array.refuse(fail);
    const GeodesicSeries g = geodesic_series(e);
    return array.each(
        [&](long i, long *) {
            return geod_point(g, element(lat, i), element(lon, i), element(azimuth, i), element(distance, i),
                              element(lat2, i), element(lon2, i), element(azimuth2, i));
        },
        fail);
}

long KL_Coticchia_Surace_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, long *zone,
                           long *north, double *easting, double *northing, long *status, long *ierr)
{
    ArrayCall array(KL_FN_COTICCHIA_SURACE, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(zone, north, easting, northing);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e)) {
        array.call().fails(KL_COTICCHIA_SURACE_COMPUTATION_ERR);
        return array.refuse(fail);
    }
    constexpr int kMissing = KL_COTICCHIA_SURACE_COMPUTATION_ERR;
    if (array.lacks(lat, kMissing) || array.lacks(lon, kMissing) || array.lacks(zone, kMissing)
        || array.lacks(north, kMissing) || array.lacks(easting, kMissing) || array.lacks(northing, kMissing))
        return array.refuse(fail);
    const GridSeries g = grid_series(e);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_COTICCHIA_SURACE, word);
            return geod_to_utm(call, g, element(lat, i), element(lon, i), element(zone, i), element(north, i),
                               element(easting, i), element(northing, i));
        },
        fail);
}

long kl_utm_to_geod_n(kl_model_id *model_id, const long *n, const long *zone, const long *north, const double *easting,
                      const double *northing, double *lat, double *lon, long *status, long *ierr)
{
    ArrayCall array(KL_FN_INIT_ERR, n, status, ierr); // nothing is recorded
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(lat, lon);
    Ellipsoid e;
    if (!ellipsoid_of_model(model_id, &e))
        return array.refuse(fail);
    const GridSeries g = grid_series(e);
    return array.each(
        [&](long i, long *) {
            return utm_to_geod(g, element(zone, i), element(north, i), element(easting, i), element(northing, i),
                               element(lat, i), element(lon, i));
        },
        fail);
}
