// Coordinates, elements, geodesics and grids, each beside GeographicLib, ERFA or PROJ where they have the like.
#include "kl_lib.h"

#include <benchmark/benchmark.h>

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <erfa.h>
#include <proj.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

constexpr long kPosVel = KL_CALC_POS_VEL;
constexpr long kOsculating = KL_KEPLER_OSCULATING;
constexpr long kMean = KL_KEPLER_MEAN;
constexpr int kErfaWgs84 = 1;
constexpr double kDegree = 0.017453292519943295;
constexpr kl_geodetic kStation = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};

// Random cases in a ring, so that no branch is learnt by heart.
template <class Case>
class Ring {
public:
    template <class Make>
    explicit Ring(Make make)
    {
        std::mt19937_64 random(7);
        for (int i = 0; i < 4096; ++i)
            cases_.push_back(
                make([&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }));
    }
    const Case &next()
    {
        at_ = (at_ + 1) % cases_.size();
        return cases_[at_];
    }

private:
    std::vector<Case> cases_;
    std::size_t at_ = 0;
};

struct State {
    double pos[3], vel[3];
};

// Of satellites from 300 to 40000 km.
Ring<State> states()
{
    return Ring<State>([](auto uniform) {
        const kl_kepler x = {uniform(6.7e6, 4.2e7), uniform(0.0, 0.02),  uniform(0.0, 180.0),
                             uniform(0.0, 360.0),   uniform(0.0, 360.0), uniform(0.0, 360.0)};
        State out;
        kl_kepl_to_cart(nullptr, &kOsculating, &x, out.pos, out.vel, nullptr);
        return out;
    });
}

Ring<kl_kepler> elements()
{
    return Ring<kl_kepler>([](auto uniform) {
        return kl_kepler{uniform(6.7e6, 4.2e7), uniform(0.0, 0.7),   uniform(0.0, 180.0),
                         uniform(0.0, 360.0),   uniform(0.0, 360.0), uniform(0.0, 360.0)};
    });
}

Ring<kl_kepler> low_orbits()
{
    return Ring<kl_kepler>([](auto uniform) {
        return kl_kepler{uniform(6.8e6, 8e6), uniform(0.0, 0.02),  uniform(0.0, 180.0),
                         uniform(0.0, 360.0), uniform(0.0, 360.0), uniform(0.0, 360.0)};
    });
}

Ring<kl_geodetic> places()
{
    return Ring<kl_geodetic>([](auto uniform) {
        return kl_geodetic{uniform(-90.0, 90.0), uniform(-180.0, 180.0), uniform(0.0, 4e7),
                           uniform(-0.1, 0.1),   uniform(-0.1, 0.1),     uniform(-1e3, 1e3)};
    });
}

struct Pair {
    double lat1, lon1, lat2, lon2;
};

Ring<Pair> pairs_of_points(double reach)
{
    return Ring<Pair>([reach](auto uniform) {
        const double lat = std::asin(uniform(-1.0, 1.0)) / kDegree, lon = uniform(-180.0, 180.0);
        if (reach >= 180.0)
            return Pair{lat, lon, std::asin(uniform(-1.0, 1.0)) / kDegree, uniform(-180.0, 180.0)};
        const double lat2 = std::fmax(-89.0, std::fmin(89.0, lat + uniform(-reach, reach)));
        return Pair{lat, lon, lat2,
                    lon * 0.9 + uniform(-reach, reach) / std::fmax(std::cos(lat2 * kDegree), 0.05) + 0.1 * lon};
    });
}

template <class Cases, class Call>
void each(benchmark::State &state, Cases cases, Call call)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(call(cases.next()));
}

// A call of the library must not fail.
template <class Cases, class Call>
void each_of_ours(benchmark::State &state, Cases cases, Call call)
{
    for (auto _ : state)
        if (call(cases.next()) == KL_ERR)
            state.SkipWithError("refused");
}

void geodetic(benchmark::State &state, long mode)
{
    kl_geodetic out;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status = kl_cart_to_geod(nullptr, &mode, x.pos, x.vel, &out, &ierr);
        benchmark::DoNotOptimize(out);
        return status;
    });
}
BENCHMARK_CAPTURE(geodetic, position, long{KL_CALC_POS})->Name("kl_cart_to_geod");
BENCHMARK_CAPTURE(geodetic, state, kPosVel)->Name("kl_cart_to_geod with rates");

void rival_geocentric(benchmark::State &state)
{
    const GeographicLib::Geocentric &earth = GeographicLib::Geocentric::WGS84();
    each(state, states(), [&](const State &x) {
        double lat, lon, h;
        earth.Reverse(x.pos[0], x.pos[1], x.pos[2], lat, lon, h);
        return lat + lon + h;
    });
}
BENCHMARK(rival_geocentric)->Name("kl_cart_to_geod/rival GeographicLib");

void rival_gc2gd(benchmark::State &state)
{
    each(state, states(), [&](const State &x) {
        double xyz[3] = {x.pos[0], x.pos[1], x.pos[2]}, lat, lon, h;
        eraGc2gd(kErfaWgs84, xyz, &lon, &lat, &h);
        return lat + lon + h;
    });
}
BENCHMARK(rival_gc2gd)->Name("kl_cart_to_geod/rival ERFA, radians");

void from_geodetic(benchmark::State &state)
{
    double pos[3], vel[3];
    long ierr;
    each_of_ours(state, places(), [&](const kl_geodetic &x) {
        const long status = kl_geod_to_cart(nullptr, &kPosVel, &x, pos, vel, &ierr);
        benchmark::DoNotOptimize(vel);
        return status;
    });
}
BENCHMARK(from_geodetic)->Name("kl_geod_to_cart with rates");

void rival_forward(benchmark::State &state)
{
    const GeographicLib::Geocentric &earth = GeographicLib::Geocentric::WGS84();
    each(state, places(), [&](const kl_geodetic &x) {
        double a, b, c;
        earth.Forward(x.latitude, x.longitude, x.height, a, b, c);
        return a + b + c;
    });
}
BENCHMARK(rival_forward)->Name("kl_geod_to_cart with rates/rival GeographicLib, no rates");

template <const long &Kind>
void to_cartesian(benchmark::State &state)
{
    double pos[3], vel[3];
    long ierr;
    each_of_ours(state, Kind == kMean ? low_orbits() : elements(), [&](const kl_kepler &x) {
        const long status = kl_kepl_to_cart(nullptr, &Kind, &x, pos, vel, &ierr);
        benchmark::DoNotOptimize(vel);
        return status;
    });
}
BENCHMARK(to_cartesian<kOsculating>)->Name("kl_kepl_to_cart, osculating");
BENCHMARK(to_cartesian<kMean>)->Name("kl_kepl_to_cart, mean");

template <const long &Kind>
void to_elements(benchmark::State &state)
{
    kl_kepler out;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status = kl_cart_to_kepl(nullptr, &Kind, x.pos, x.vel, &out, &ierr);
        benchmark::DoNotOptimize(out);
        return status;
    });
}
BENCHMARK(to_elements<kOsculating>)->Name("kl_cart_to_kepl, osculating");
BENCHMARK(to_elements<kMean>)->Name("kl_cart_to_kepl, mean");

void radec(benchmark::State &state)
{
    kl_radec out;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status = kl_cart_to_radec(nullptr, &kPosVel, x.pos, x.vel, &out, &ierr);
        benchmark::DoNotOptimize(out);
        return status;
    });
}
BENCHMARK(radec)->Name("kl_cart_to_radec with rates");

void rival_pv2s(benchmark::State &state)
{
    each(state, states(), [&](const State &x) {
        double pv[2][3], out[6];
        for (int i = 0; i < 3; ++i)
            pv[0][i] = x.pos[i], pv[1][i] = x.vel[i];
        eraPv2s(pv, out, out + 1, out + 2, out + 3, out + 4, out + 5);
        return out[0] + out[4] + out[5];
    });
}
BENCHMARK(rival_pv2s)->Name("kl_cart_to_radec with rates/rival ERFA, radians");

void from_radec(benchmark::State &state)
{
    double pos[3], vel[3];
    long ierr;
    each_of_ours(state, places(), [&](const kl_geodetic &x) {
        const kl_radec in = {x.longitude, x.latitude, 7e6 + x.height, x.longitude_rate, x.latitude_rate, x.height_rate};
        const long status = kl_radec_to_cart(nullptr, &kPosVel, &in, pos, vel, &ierr);
        benchmark::DoNotOptimize(vel);
        return status;
    });
}
BENCHMARK(from_radec)->Name("kl_radec_to_cart with rates");

void rival_s2pv(benchmark::State &state)
{
    each(state, places(), [&](const kl_geodetic &x) {
        double pv[2][3];
        eraS2pv(x.longitude * kDegree, x.latitude * kDegree, 7e6 + x.height, x.longitude_rate * kDegree,
                x.latitude_rate * kDegree, x.height_rate, pv);
        return pv[0][0] + pv[1][2];
    });
}
BENCHMARK(rival_s2pv)->Name("kl_radec_to_cart with rates/rival ERFA, radians");

void topocentric(benchmark::State &state)
{
    kl_topocentric out;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status = kl_ef_to_topocentric(nullptr, &kPosVel, &kStation, x.pos, x.vel, &out, &ierr);
        benchmark::DoNotOptimize(out);
        return status;
    });
}
BENCHMARK(topocentric)->Name("kl_ef_to_topocentric with rates");

void rival_topocentric(benchmark::State &state)
{
    PJ *const p = proj_create(PJ_DEFAULT_CTX, "+proj=topocentric +ellps=WGS84 +lon_0=11 +lat_0=48 +h_0=600");
    each(state, states(), [&](const State &x) {
        const PJ_COORD enu = proj_trans(p, PJ_FWD, proj_coord(x.pos[0], x.pos[1], x.pos[2], 0.0));
        return std::atan2(enu.v[0], enu.v[1]) + std::atan2(enu.v[2], std::hypot(enu.v[0], enu.v[1]));
    });
    proj_destroy(p);
}
BENCHMARK(rival_topocentric)->Name("kl_ef_to_topocentric with rates/rival PROJ, no rates");

void from_topocentric(benchmark::State &state)
{
    double pos[3], vel[3];
    long ierr;
    each_of_ours(state, places(), [&](const kl_geodetic &x) {
        const kl_topocentric in = {x.longitude,      x.latitude,      1e5 + x.height,
                                   x.longitude_rate, x.latitude_rate, x.height_rate};
        const long status = kl_topocentric_to_ef(nullptr, &kPosVel, &kStation, &in, pos, vel, &ierr);
        benchmark::DoNotOptimize(vel);
        return status;
    });
}
BENCHMARK(from_topocentric)->Name("kl_topocentric_to_ef with rates");

void geodesic(benchmark::State &state, double reach)
{
    double s, azimuth1, azimuth2;
    long ierr;
    each_of_ours(state, pairs_of_points(reach), [&](const Pair &x) {
        const long status =
            kl_geod_distance(nullptr, &x.lat1, &x.lon1, &x.lat2, &x.lon2, &s, &azimuth1, &azimuth2, &ierr);
        benchmark::DoNotOptimize(s);
        return status;
    });
}

void rival_geodesic(benchmark::State &state, double reach)
{
    const GeographicLib::Geodesic &earth = GeographicLib::Geodesic::WGS84();
    each(state, pairs_of_points(reach), [&](const Pair &x) {
        double s, azimuth1, azimuth2;
        earth.Inverse(x.lat1, x.lon1, x.lat2, x.lon2, s, azimuth1, azimuth2);
        return s + azimuth1 + azimuth2;
    });
}

void rival_proj_geod(benchmark::State &state, double reach)
{
    PJ *const p = proj_create(PJ_DEFAULT_CTX, "+proj=longlat +ellps=WGS84");
    each(state, pairs_of_points(reach), [&](const Pair &x) {
        const PJ_COORD found = proj_geod(p, proj_coord(x.lon1 * kDegree, x.lat1 * kDegree, 0.0, 0.0),
                                         proj_coord(x.lon2 * kDegree, x.lat2 * kDegree, 0.0, 0.0));
        return found.v[0] + found.v[1] + found.v[2];
    });
    proj_destroy(p);
}
BENCHMARK_CAPTURE(geodesic, world, 180.0)->Name("kl_geod_distance, random points");
BENCHMARK_CAPTURE(rival_geodesic, world, 180.0)->Name("kl_geod_distance, random points/rival GeographicLib");
BENCHMARK_CAPTURE(rival_proj_geod, world, 180.0)->Name("kl_geod_distance, random points/rival PROJ");
BENCHMARK_CAPTURE(geodesic, region, 4.5)->Name("kl_geod_distance, within 1000 km");
BENCHMARK_CAPTURE(rival_geodesic, region, 4.5)->Name("kl_geod_distance, within 1000 km/rival GeographicLib");
BENCHMARK_CAPTURE(rival_proj_geod, region, 4.5)->Name("kl_geod_distance, within 1000 km/rival PROJ");

void geodesic_end(benchmark::State &state)
{
    double lat, lon, azimuth;
    long ierr;
    each_of_ours(state, pairs_of_points(180.0), [&](const Pair &x) {
        const double distance = 1e5 * (x.lat2 + 90.0);
        const long status = kl_geod_point(nullptr, &x.lat1, &x.lon1, &x.lon2, &distance, &lat, &lon, &azimuth, &ierr);
        benchmark::DoNotOptimize(lat);
        return status;
    });
}
BENCHMARK(geodesic_end)->Name("kl_geod_point");

void rival_direct(benchmark::State &state)
{
    const GeographicLib::Geodesic &earth = GeographicLib::Geodesic::WGS84();
    each(state, pairs_of_points(180.0), [&](const Pair &x) {
        double lat, lon, azimuth;
        earth.Direct(x.lat1, x.lon1, x.lon2, 1e5 * (x.lat2 + 90.0), lat, lon, azimuth);
        return lat + lon + azimuth;
    });
}
BENCHMARK(rival_direct)->Name("kl_geod_point/rival GeographicLib");

void grid(benchmark::State &state)
{
    double easting, northing;
    long ierr, north;
    each_of_ours(state, places(), [&](const kl_geodetic &x) {
        long zone = 0;
        const double lat = x.latitude * 0.9;
        const long status = KL_Coticchia_Surace(nullptr, &lat, &x.longitude, &zone, &north, &easting, &northing, &ierr);
        benchmark::DoNotOptimize(easting);
        return status;
    });
}
BENCHMARK(grid)->Name("KL_Coticchia_Surace");

void rival_utm(benchmark::State &state)
{
    each(state, places(), [&](const kl_geodetic &x) {
        int zone;
        bool north;
        double easting, northing;
        GeographicLib::UTMUPS::Forward(x.latitude * 0.9, x.longitude, zone, north, easting, northing,
                                       GeographicLib::UTMUPS::UTM);
        return easting + northing;
    });
}
BENCHMARK(rival_utm)->Name("KL_Coticchia_Surace/rival GeographicLib");

void angle_on_orbit(benchmark::State &state)
{
    kl_orbit_angle out;
    kl_time_id none = {nullptr};
    const long tod = KL_TOD, tai = KL_TIME_TAI;
    const double time = 9000.0;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status =
            kl_position_on_orbit(nullptr, &none, &kPosVel, &tod, &tai, &time, x.pos, x.vel, nullptr, &out, &ierr);
        benchmark::DoNotOptimize(out);
        return status;
    });
}
BENCHMARK(angle_on_orbit)->Name("kl_position_on_orbit from KL_TOD");

void local_frame(benchmark::State &state)
{
    double r[9], dr[9];
    const long lvlh = KL_ORBITAL_LVLH;
    long ierr;
    each_of_ours(state, states(), [&](const State &x) {
        const long status = kl_local_orbital_frame(&lvlh, x.pos, x.vel, nullptr, r, dr, &ierr);
        benchmark::DoNotOptimize(dr);
        return status;
    });
}
BENCHMARK(local_frame)->Name("kl_local_orbital_frame");

} // namespace
