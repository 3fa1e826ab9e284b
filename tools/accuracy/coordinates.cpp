// Coordinates, geodesics and grids against GeographicLib, ERFA and PROJ; coordinates.py has the judge of 50 digits.
#include "kl_lib.h"
#include "table.h"

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicExact.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>
#include <erfa.h>
#include <proj.h>

namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr double kRadius = 6378137.0; // m
constexpr int kErfaWgs84 = 1;
constexpr long kPos = KL_CALC_POS;

// Of two angles, rad.
double apart(double a_deg, double b_deg)
{
    return std::fabs(std::remainder(a_deg - b_deg, 360.0)) * kDegree;
}

struct Pair {
    Spread place, height;

    // m; p from the axis, r from the centre
    void add(const kl_geodetic &ours, double p, double r, double lat, double lon, double h)
    {
        place.add(std::hypot(apart(ours.latitude, lat) * r, apart(ours.longitude, lon) * p));
        height.add(ours.height - h);
    }
    void print(const std::string &what, const std::string &cause)
    {
        std::printf("| %s: across | nm | %s | %s |\n", what.c_str(), place.cells(1e9).c_str(), cause.c_str());
        std::printf("| %s: height | nm | %s | %s |\n", what.c_str(), height.cells(1e9).c_str(), cause.c_str());
    }
};

void geodetic(const std::vector<Place> &places, std::mt19937_64 &random)
{
    struct Shell {
        const char *name;
        double low, high; // m
        const char *cause_erfa;
    };
    constexpr Shell kShells[] = {
        {"-10 to 10 km", -1e4, 1e4, "rounding"},
        {"400 to 2000 km", 4e5, 2e6, "ERFA's one step starts from the surface"},
        {"20000 to 36000 km", 2e7, 3.6e7, "ERFA's one step starts from the surface"},
        {"-6300 to -1000 km", -6.3e6, -1e6, "ERFA's one step does not lead there"},
    };
    PJ *const proj = proj_create(PJ_DEFAULT_CTX, "+proj=cart +ellps=WGS84");
    for (const Shell &shell : kShells) {
        Pair geographic, erfa, by_proj;
        for (const Place &place : places) {
            const kl_geodetic in = {
                place.lat, place.lon, std::uniform_real_distribution<double>(shell.low, shell.high)(random),
                0.0,       0.0,       0.0};
            double x[3], lat = 0.0, lon = 0.0, h = 0.0;
            kl_geodetic ours;
            if (kl_geod_to_cart(nullptr, &kPos, &in, x, nullptr, nullptr) == KL_ERR
                || kl_cart_to_geod(nullptr, &kPos, x, nullptr, &ours, nullptr) == KL_ERR)
                fail("kl_cart_to_geod");
            const double p = std::hypot(x[0], x[1]);
            const double r = std::hypot(p, x[2]);
            GeographicLib::Geocentric::WGS84().Reverse(x[0], x[1], x[2], lat, lon, h);
            geographic.add(ours, p, r, lat, lon, h);
            eraGc2gd(kErfaWgs84, x, &lon, &lat, &h);
            erfa.add(ours, p, r, lat / kDegree, lon / kDegree, h);
            const PJ_COORD found = proj_trans(proj, PJ_INV, proj_coord(x[0], x[1], x[2], 0.0));
            by_proj.add(ours, p, r, found.v[1] / kDegree, found.v[0] / kDegree, found.v[2]);
        }
        const std::string name = std::string("kl_cart_to_geod, ") + shell.name;
        geographic.print(name + ", GeographicLib", "rounding");
        erfa.print(name + ", ERFA", shell.cause_erfa);
        by_proj.print(name + ", PROJ", "PROJ's one step of Bowring's");
    }
    proj_destroy(proj);
}

void polar(const std::vector<Place> &places, std::mt19937_64 &random)
{
    Spread direction, rates, look, range;
    std::normal_distribution<double> normal(0.0, 1.0);
    PJ *const proj = proj_create(PJ_DEFAULT_CTX, "+proj=topocentric +ellps=WGS84 +lon_0=11 +lat_0=48 +h_0=600");
    const kl_geodetic station = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};
    const long both = KL_CALC_POS_VEL;
    for (const Place &place : places) {
        const kl_geodetic at = {place.lat, place.lon, 8e5, 0.0, 0.0, 0.0};
        double pv[2][3], theirs[6];
        kl_geod_to_cart(nullptr, &kPos, &at, pv[0], nullptr, nullptr);
        for (double &v : pv[1])
            v = 5e3 * normal(random);
        kl_radec ours;
        if (kl_cart_to_radec(nullptr, &both, pv[0], pv[1], &ours, nullptr) == KL_ERR)
            fail("kl_cart_to_radec");
        eraPv2s(pv, theirs, theirs + 1, theirs + 2, theirs + 3, theirs + 4, theirs + 5);
        const double c = std::cos(theirs[1]);
        direction.add(std::hypot(apart(ours.ra, theirs[0] / kDegree) * c, apart(ours.dec, theirs[1] / kDegree)));
        rates.add(std::hypot((ours.ra_rate * kDegree - theirs[3]) * c, ours.dec_rate * kDegree - theirs[4]) * theirs[2]
                  / std::hypot(pv[1][0], pv[1][1], pv[1][2]));
        kl_topocentric seen;
        if (kl_ef_to_topocentric(nullptr, &kPos, &station, pv[0], nullptr, &seen, nullptr) == KL_ERR)
            fail("kl_ef_to_topocentric");
        const PJ_COORD enu = proj_trans(proj, PJ_FWD, proj_coord(pv[0][0], pv[0][1], pv[0][2], 0.0));
        const double flat = std::hypot(enu.v[0], enu.v[1]);
        look.add(std::hypot(apart(seen.azimuth, std::atan2(enu.v[0], enu.v[1]) / kDegree) * flat,
                            apart(seen.elevation, std::atan2(enu.v[2], flat) / kDegree) * std::hypot(flat, enu.v[2])));
        range.add(seen.range - std::hypot(flat, enu.v[2]));
    }
    proj_destroy(proj);
    std::printf("| kl_cart_to_radec: direction, ERFA | 1e-16 rad | %s | rounding of degrees |\n",
                direction.cells(1e16).c_str());
    std::printf("| kl_cart_to_radec: rates, ERFA | 1e-16 of the speed | %s | rounding |\n", rates.cells(1e16).c_str());
    std::printf("| kl_ef_to_topocentric: across, PROJ | nm | %s | rounding |\n", look.cells(1e9).c_str());
    std::printf("| kl_ef_to_topocentric: range, PROJ | nm | %s | rounding |\n", range.cells(1e9).c_str());
}

void geodesics(const std::vector<Place> &places, std::mt19937_64 &random)
{
    struct Kind {
        const char *name;
        double spread; // deg, about the first point, or the antipode if negative; 0: anywhere
        const char *cause_of_azimuths;
    };
    constexpr Kind kKinds[] = {{"anywhere", 0.0, "rounding; some pairs lie near the antipode"},
                               {"within 1 deg", 1.0, "rounding"},
                               {"within 1 deg of the antipode", -1.0, "where paths meet an azimuth turns fast"}};
    const auto &series = GeographicLib::Geodesic::WGS84();
    const auto &exact = GeographicLib::GeodesicExact::WGS84();
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Spread end;
    for (const Kind &kind : kKinds) {
        Spread by_series, by_exact, azimuth;
        for (std::size_t i = 0; i + 1 < places.size(); ++i) {
            const Place from = places[i];
            Place to = places[i + 1];
            if (kind.spread != 0.0) {
                const double size = std::fabs(kind.spread);
                to = {(kind.spread < 0.0 ? -from.lat : from.lat) + size * unit(random),
                      from.lon + (kind.spread < 0.0 ? 180.0 : 0.0) + size * unit(random)};
                to.lat = std::fmax(-90.0, std::fmin(90.0, to.lat));
                to.lon -= to.lon > 360.0 ? 360.0 : 0.0;
            }
            double s = 0.0, a = 0.0, b = 0.0, s1, a1, b1, s2;
            if (kl_geod_distance(nullptr, &from.lat, &from.lon, &to.lat, &to.lon, &s, &a, &b, nullptr) == KL_ERR)
                fail("kl_geod_distance");
            series.Inverse(from.lat, from.lon, to.lat, to.lon, s1, a1, b1);
            exact.Inverse(from.lat, from.lon, to.lat, to.lon, s2);
            by_series.add(s - s1);
            by_exact.add(s - s2);
            azimuth.add(std::fmax(apart(a, a1), apart(b, b1)) * std::fmin(s, kRadius));
            if (kind.spread != 0.0)
                continue;
            double lat, lon, bearing, lat1, lon1;
            if (kl_geod_point(nullptr, &from.lat, &from.lon, &a, &s, &lat, &lon, &bearing, nullptr) == KL_ERR)
                fail("kl_geod_point");
            series.Direct(from.lat, from.lon, a, s, lat1, lon1);
            end.add(std::hypot(apart(lat, lat1), apart(lon, lon1) * std::cos(lat1 * kDegree)) * kRadius);
        }
        const auto row = [&](const char *what, Spread &spread, const char *cause) {
            std::printf("| kl_geod_distance, %s: %s | nm | %s | %s |\n", kind.name, what, spread.cells(1e9).c_str(),
                        cause);
        };
        row("length, GeographicLib", by_series, "rounding");
        row("length, GeographicLib's elliptic integrals", by_exact, "rounding there and here");
        row("azimuths across the other end, GeographicLib", azimuth, kind.cause_of_azimuths);
    }
    std::printf("| kl_geod_point, GeographicLib | nm | %s | rounding |\n", end.cells(1e9).c_str());
}

void grids(const std::vector<Place> &places, std::mt19937_64 &random)
{
    const auto &exact = GeographicLib::TransverseMercatorExact::UTM();
    PJ *const proj = proj_create(PJ_DEFAULT_CTX, "+proj=utm +zone=32 +ellps=WGS84");
    std::uniform_real_distribution<double> across(-6.0, 6.0);
    Spread by_exact, by_proj;
    for (const Place &place : places) {
        const double lat = place.lat * 84.0 / 90.0;
        const double lon = 9.0 + across(random);
        long zone = 32, north = 0;
        double easting = 0.0, northing = 0.0, x, y;
        if (KL_Coticchia_Surace(nullptr, &lat, &lon, &zone, &north, &easting, &northing, nullptr) == KL_ERR)
            fail("KL_Coticchia_Surace");
        northing -= north == 1 ? 0.0 : 1e7;
        exact.Forward(9.0, lat, lon, x, y);
        by_exact.add(std::hypot(easting - 5e5 - x, northing - y));
        const PJ_COORD found = proj_trans(proj, PJ_FWD, proj_coord(lon * kDegree, lat * kDegree, 0.0, 0.0));
        by_proj.add(std::hypot(easting - found.v[0], northing - found.v[1]));
    }
    proj_destroy(proj);
    std::printf("| KL_Coticchia_Surace, GeographicLib's elliptic integrals | nm | %s | rounding |\n",
                by_exact.cells(1e9).c_str());
    std::printf("| KL_Coticchia_Surace, PROJ | nm | %s | rounding |\n", by_proj.cells(1e9).c_str());
}

} // namespace

void compare_coordinates(long count)
{
    const std::vector<Place> places = random_places(static_cast<std::size_t>(count), 1859);
    std::mt19937_64 random(42);
    heading(
        ("Coordinates at " + std::to_string(count) + " random points, against GeographicLib, ERFA and PROJ").c_str());
    geodetic(places, random);
    polar(places, random);
    geodesics(places, random);
    grids(places, random);
}
