// Geodetic, polar and topocentric coordinates, geodesics and grids.
#include "kl_family.h"
#include "support/bounds.h"
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/csv.h"
#include "support/vectors.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

constexpr long kPos = KL_CALC_POS, kPosVel = KL_CALC_POS_VEL;
constexpr double kA = 6378137.0;
constexpr double kE = 42697.672707180; // m: radius of the disc around the centre
constexpr double kAngle = 6e-14;       // deg: a unit of the last place of 360

kl_geodetic to_geodetic(double x, double y, double z, long status = KL_OK)
{
    const double pos[3] = {x, y, z};
    kl_geodetic out = {};
    long ierr = 0;
    EXPECT_EQ(kl_cart_to_geod(nullptr, &kPos, pos, nullptr, &out, &ierr), status) << x << " " << y << " " << z;
    return out;
}

} // namespace

TEST(Geodetic, TrueValues)
{
    for (const auto &row : read_table("geodetic.csv", 18)) {
        const kl_geodetic in = {row[0], row[1], row[2], row[3], row[4], row[5]};
        double pos[3], vel[3];
        long ierr = 0;
        ASSERT_EQ(kl_geod_to_cart(nullptr, &kPosVel, &in, pos, vel, &ierr), KL_OK);
        const double r = length(&row[6]), speed = length(&row[9]);
        EXPECT_LE(distance(pos, &row[6]), 4e-9 + 5e-16 * r) << in.latitude << " " << in.height;
        EXPECT_LE(distance(vel, &row[9]), 1e-15 * (speed + 1e5)) << in.latitude << " " << in.height;

        const double pos_in[3] = {row[6], row[7], row[8]}, vel_in[3] = {row[9], row[10], row[11]};
        kl_geodetic out;
        ASSERT_EQ(kl_cart_to_geod(nullptr, &kPosVel, pos_in, vel_in, &out, &ierr), KL_OK);
        const double p = std::hypot(row[6], row[7]);
        EXPECT_LE(std::fabs(out.height - row[14]), 8e-9 + 3e-16 * r) << in.latitude << " " << in.height;
        EXPECT_LE(apart(out.latitude, row[12]) * 0.01745 * r, 8e-9 + 3e-16 * r) << in.latitude << " " << in.height;
        EXPECT_LE(apart(out.longitude, row[13]) * 0.01745 * p, 8e-9 + (r < 1e7 ? 5e-16 : 1.2e-15) * p) << in.longitude;
        EXPECT_LE(std::fabs(out.latitude_rate - row[15]) * 0.01745 * r, 4e-15 * (speed + 1.0)) << in.latitude;
        EXPECT_LE(std::fabs(out.longitude_rate - row[16]) * 0.01745 * p, 4e-15 * (speed + 1.0)) << in.latitude;
        EXPECT_LE(std::fabs(out.height_rate - row[17]), 2e-15 * (speed + 1.0)) << in.latitude;
    }
}

TEST(Geodetic, PublishedAndNearTheCentre)
{
    const Csv rows("tests/data/geodetic_published.csv");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto cell = [&](std::size_t column) { return rows.number(i, column); };
        const kl_geodetic out = to_geodetic(cell(0), cell(1), cell(2), cell(8) != 0.0 ? KL_WARN : KL_OK);
        EXPECT_NEAR(out.latitude, cell(3), cell(6)) << i;
        EXPECT_NEAR(out.longitude, cell(4), kAngle) << i;
        EXPECT_NEAR(out.height, cell(5), cell(7)) << i;
        EXPECT_FALSE(std::signbit(out.longitude) || (out.latitude == 0.0 && std::signbit(out.latitude)));
        EXPECT_LT(out.longitude, 360.0);
    }
    double pos[3];
    for (const double lat : {90.0, -90.0}) { // on the axis exactly
        const kl_geodetic pole = {lat, 33.0, 5.0, 0.0, 0.0, 0.0};
        ASSERT_EQ(kl_geod_to_cart(nullptr, &kPos, &pole, pos, nullptr, nullptr), KL_OK);
        EXPECT_EQ(pos[0], 0.0);
        EXPECT_EQ(pos[1], 0.0);
    }
}

// Whatever the point: the foot lies on the ellipsoid, the way back leads to the point, no other foot is nearer; the
// mirror image in the equator and a turn about the axis belong to the same height.
TEST(Geodetic, AwkwardPointsComeBack)
{
    constexpr double kAxis[] = {0.0, 1e-300,    1e-160, 1e-20, 1e-6,  1.0,   100.0, kE - 1e-6,
                                kE,  kE + 1e-6, 5e4,    1e6,   5.9e6, 6.1e6, 7e6,   1e11};
    constexpr double kEquator[] = {0.0, 1e-300, 1e-9, 1.0, 1e3, kE * 0.99, kE, 1e5, 5.9e6, 6.1e6, 4e7, 1e11};
    for (const double p : kAxis)
        for (const double q : kEquator) {
            if (std::hypot(p, q) > 1e12)
                continue;
            const double pos[3] = {p * 0.6, p * 0.8, q};
            const bool disc = q == 0.0 && std::hypot(pos[0], pos[1]) < kE;
            const kl_geodetic out = to_geodetic(pos[0], pos[1], q, disc ? KL_WARN : KL_OK);
            double back[3];
            kl_geodetic in = out;
            ASSERT_EQ(kl_geod_to_cart(nullptr, &kPos, &in, back, nullptr, nullptr), KL_OK) << p << " " << q;
            EXPECT_LE(distance(back, pos), 1e-8 + 1e-15 * (p + q)) << p << " " << q;
            in.height = 0.0;
            double foot[3];
            ASSERT_EQ(kl_geod_to_cart(nullptr, &kPos, &in, foot, nullptr, nullptr), KL_OK);
            for (const double other : {-90.0, -45.0, -10.0, 0.0, 0.05, 1.0, 10.0, 45.0, 80.0, 90.0}) {
                in.latitude = other;
                double there[3];
                ASSERT_EQ(kl_geod_to_cart(nullptr, &kPos, &in, there, nullptr, nullptr), KL_OK);
                EXPECT_LE(distance(pos, foot), distance(pos, there) + 1e-8 + 1e-15 * (p + q)) << p << " " << q;
            }
            const kl_geodetic mirrored = to_geodetic(pos[0], pos[1], -q, disc ? KL_WARN : KL_OK);
            EXPECT_EQ(mirrored.height, out.height);
            if (q > 0.0) {
                EXPECT_EQ(mirrored.latitude, -out.latitude);
            }
            const kl_geodetic turned = to_geodetic(-pos[0], -pos[1], q, disc ? KL_WARN : KL_OK);
            EXPECT_EQ(turned.height, out.height);
            if (p > 0.0) {
                EXPECT_NEAR(apart(turned.longitude, out.longitude), 180.0, kAngle);
            }
        }
}

TEST(Geodetic, RatesOnTheAxis)
{
    const double north[3] = {0.0, 0.0, 7e6}, south[3] = {0.0, 0.0, -7e6}, aside[3] = {3.0, 4.0, 1.0},
                 upward[3] = {0.0, 0.0, 2.0};
    kl_geodetic out;
    long ierr = 0;
    EXPECT_EQ(kl_cart_to_geod(nullptr, &kPosVel, north, aside, &out, &ierr), KL_WARN);
    EXPECT_EQ(ierr, warning_bits(KL_CART_TO_GEOD_POLAR_AXIS_WARN));
    EXPECT_EQ(out.longitude_rate, 0.0);
    EXPECT_EQ(out.height_rate, 1.0);
    EXPECT_LT(out.latitude_rate, 0.0); // the pole is being left
    const double from_north = out.latitude_rate;
    EXPECT_EQ(kl_cart_to_geod(nullptr, &kPosVel, south, aside, &out, &ierr), KL_WARN);
    EXPECT_EQ(out.latitude_rate, -from_north);
    EXPECT_EQ(kl_cart_to_geod(nullptr, &kPosVel, north, upward, &out, &ierr), KL_OK);
    EXPECT_EQ(out.latitude_rate, 0.0);
}

TEST(Geodetic, PositionsHaveNoRates)
{
    const double pos[3] = {7e6, 1e5, 2e6}, fast[3] = {1e160, 0.0, 0.0};
    kl_geodetic out;
    LEAVES(kNothing, kl_cart_to_geod(nullptr, &kPos, pos, fast, &out, e))
    EXPECT_EQ(out.latitude_rate, 0.0);
}

TEST(Geodetic, KernelWarnsWithTheDistance)
{
    const double inside[3] = {3.0, 4.0, 0.0};
    double lat = 0.0, lon = 0.0, h = 0.0;
    kl_error_record record;
    EXPECT_EQ(KL_Car_Geo(nullptr, inside, &lat, &lon, &h, &record), KL_WARN);
    EXPECT_EQ(record.count, 1);
    double metres = 0.0;
    std::memcpy(&metres, &record.values[0], sizeof metres);
    EXPECT_EQ(metres, 5.0);
    EXPECT_NEAR(lon, std::atan2(4.0, 3.0), 1e-15);
    EXPECT_EQ(KL_Car_Geo(nullptr, nullptr, &lat, &lon, &h, nullptr), KL_ERR);
    EXPECT_EQ(
        verbose_text([&] { to_geodetic(3.0, 4.0, 0.0, KL_WARN); }),
        "ORBKIT_LIB >>> WARNING in KL_Car_Geo: Internal computation warning # 1 (5.000000)\n"
        "ORBKIT_LIB >>> WARNING in kl_cart_to_geod: Two nearest points on the ellipsoid, the northern one is taken\n");
}

TEST(Coordinates, RangesEndWhereTheHeaderSays)
{
    constexpr double kTurn = 360.0, kRight = 90.0;
    double x[3], v[3], s = 0.0, a = 0.0, b = 0.0;
    const auto geodetic = [&](double lat, double lon, double h) {
        const kl_geodetic in = {lat, lon, h, 0.0, 0.0, 0.0};
        return kl_geod_to_cart(nullptr, &kPos, &in, x, v, nullptr);
    };
    expect_range("latitude", -kRight, kRight, [&](double lat) { return geodetic(lat, 0.0, 0.0); });
    expect_range("longitude", -kTurn, kTurn, [&](double lon) { return geodetic(0.0, lon, 0.0); });
    EXPECT_EQ(geodetic(0.0, 0.0, 1e12), KL_OK);
    EXPECT_EQ(geodetic(0.0, 0.0, std::nextafter(1e12, 2e12)), KL_ERR);
    const auto radec = [&](double ra, double dec, double distance) {
        const kl_radec in = {ra, dec, distance, 0.0, 0.0, 0.0};
        return kl_radec_to_cart(nullptr, &kPos, &in, x, v, nullptr);
    };
    expect_range("right ascension", -kTurn, kTurn, [&](double ra) { return radec(ra, 0.0, 1.0); });
    expect_range("declination", -kRight, kRight, [&](double dec) { return radec(0.0, dec, 1.0); });
    expect_range("distance", 0.0, std::numeric_limits<double>::max(), [&](double d) { return radec(0.0, 0.0, d); });
    const auto topocentric = [&](kl_geodetic at, double azimuth, double elevation, double range) {
        const kl_topocentric in = {azimuth, elevation, range, 0.0, 0.0, 0.0};
        return kl_topocentric_to_ef(nullptr, &kPos, &at, &in, x, v, nullptr);
    };
    expect_range("azimuth", -kTurn, kTurn, [&](double az) { return topocentric({}, az, 0.0, 1.0); });
    expect_range("elevation", -kRight, kRight, [&](double el) { return topocentric({}, 0.0, el, 1.0); });
    expect_range("range", 0.0, 1e12, [&](double r) { return topocentric({}, 0.0, 0.0, r); });
    expect_range("origin's latitude", -kRight, kRight, [&](double lat) {
        return topocentric({lat, 0.0, 0.0, 0.0, 0.0, 0.0}, 0.0, 0.0, 1.0);
    });
    expect_range("origin's longitude", -kTurn, kTurn, [&](double lon) {
        return topocentric({0.0, lon, 0.0, 0.0, 0.0, 0.0}, 0.0, 0.0, 1.0);
    });
    const auto from_to = [&](double lat1, double lon1, double lat2, double lon2) {
        return kl_geod_distance(nullptr, &lat1, &lon1, &lat2, &lon2, &s, &a, &b, nullptr);
    };
    expect_range("latitude 1", -kRight, kRight, [&](double lat) { return from_to(lat, 0.0, 1.0, 1.0); });
    expect_range("longitude 1", -kTurn, kTurn, [&](double lon) { return from_to(0.0, lon, 1.0, 1.0); });
    expect_range("latitude 2", -kRight, kRight, [&](double lat) { return from_to(1.0, 1.0, lat, 0.0); });
    expect_range("longitude 2", -kTurn, kTurn, [&](double lon) { return from_to(1.0, 1.0, 0.0, lon); });
    const auto along = [&](double lat, double lon, double azimuth, double distance) {
        return kl_geod_point(nullptr, &lat, &lon, &azimuth, &distance, &s, &a, &b, nullptr);
    };
    expect_range("start's latitude", -kRight, kRight, [&](double lat) { return along(lat, 0.0, 1.0, 1.0); });
    expect_range("start's longitude", -kTurn, kTurn, [&](double lon) { return along(0.0, lon, 1.0, 1.0); });
    expect_range("azimuth of a line", -kTurn, kTurn, [&](double az) { return along(0.0, 0.0, az, 1.0); });
    expect_range("length of a line", -1e9, 1e9, [&](double d) { return along(0.0, 0.0, 1.0, d); });
}

TEST(Polar, TrueValues)
{
    for (const auto &row : read_table("radec.csv", 12)) {
        kl_radec out;
        long ierr = 0;
        ASSERT_EQ(kl_cart_to_radec(nullptr, &kPosVel, &row[0], &row[3], &out, &ierr), KL_OK);
        EXPECT_LE(apart(out.ra, row[6]), kAngle);
        EXPECT_NEAR(out.dec, row[7], 2e-14);
        EXPECT_NEAR(out.distance, row[8], 4e-16 * row[8]);
        const double whirl = 57.3 * length(&row[3]) / row[8];
        EXPECT_NEAR(out.ra_rate, row[9], 2e-15 * whirl * row[8] / std::hypot(row[0], row[1]));
        EXPECT_NEAR(out.dec_rate, row[10], 2e-15 * whirl);
        EXPECT_NEAR(out.distance_rate, row[11], 2e-15 * length(&row[3]));
        double pos[3], vel[3];
        ASSERT_EQ(kl_radec_to_cart(nullptr, &kPosVel, &out, pos, vel, &ierr), KL_OK);
        EXPECT_LE(distance(pos, &row[0]), 1e-15 * row[8]);
        EXPECT_LE(distance(vel, &row[3]), 4e-15 * length(&row[3]) * row[8] / std::hypot(row[0], row[1]));
    }
}

TEST(Polar, SizesAndAxes)
{
    kl_radec out;
    for (const double size : {5e-324, 1e-310, 1e-200, 1e200, 1.2e308}) {
        const double pos[3] = {size, size, 0.0};
        ASSERT_EQ(kl_cart_to_radec(nullptr, &kPos, pos, nullptr, &out, nullptr), KL_OK) << size;
        EXPECT_NEAR(out.ra, 45.0, 1e-14) << size;
        EXPECT_EQ(out.dec, 0.0) << size;
        EXPECT_NEAR(out.distance, std::sqrt(2.0) * size, 5e-16 * size + 5e-324) << size;
    }
    const double up[3] = {0.0, 0.0, 5.0};
    const double down[3] = {-0.0, 0.0, -5.0};
    const double aside[3] = {1.0, 0.0, 2.0};
    double p[3], v[3];
    LEAVES(warning_bits(KL_CART_TO_RADEC_POLAR_AXIS_WARN), kl_cart_to_radec(nullptr, &kPosVel, up, aside, &out, e))
    EXPECT_EQ(out.ra, 0.0);
    EXPECT_EQ(out.dec, 90.0);
    EXPECT_EQ(out.distance_rate, 2.0);
    EXPECT_EQ(out.dec_rate, 0.0);
    LEAVES(kNothing, kl_cart_to_radec(nullptr, &kPosVel, down, up, &out, e))
    EXPECT_EQ(out.ra, 0.0); // -0.0 across the axis is no half turn
    EXPECT_EQ(out.dec, -90.0);
    const kl_radec still = {0.0, 0.0, 1.0, NAN, 0.0, 0.0};
    LEAVES(kNothing, kl_radec_to_cart(nullptr, &kPos, &still, p, v, e))
    EXPECT_EQ(v[0], 0.0);
}

TEST(Topocentric, TrueValuesAndTheWayBack)
{
    for (const auto &row : read_table("topocentric.csv", 15)) {
        const kl_geodetic origin = {row[0], row[1], row[2], 0.0, 0.0, 0.0};
        kl_topocentric out;
        long ierr = -1;
        ASSERT_EQ(kl_ef_to_topocentric(nullptr, &kPosVel, &origin, &row[3], &row[6], &out, &ierr), KL_OK);
        EXPECT_EQ(ierr, 0);
        const double flat = row[11] * std::cos(row[10] * 0.017453292519943295);
        EXPECT_LE(apart(out.azimuth, row[9]) * 0.01745 * flat, 8e-9);
        EXPECT_LE(std::fabs(out.elevation - row[10]) * 0.01745 * row[11], 8e-9);
        EXPECT_NEAR(out.range, row[11], 8e-9);
        EXPECT_NEAR(out.azimuth_rate * flat, row[12] * flat, 1e-9);
        EXPECT_NEAR(out.elevation_rate * row[11], row[13] * row[11], 1e-9);
        EXPECT_NEAR(out.range_rate, row[14], 1e-11);
        double pos[3], vel[3];
        ASSERT_EQ(kl_topocentric_to_ef(nullptr, &kPosVel, &origin, &out, pos, vel, &ierr), KL_OK);
        EXPECT_LE(distance(pos, &row[3]), 2e-8);
        EXPECT_LE(distance(vel, &row[6]), 3e-11);
    }
}

TEST(Topocentric, ZenithAndPoles)
{
    const kl_geodetic equator = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    const double zenith[3] = {7e6, 0.0, 0.0}, nadir[3] = {1e3, 0.0, 0.0}, there[3] = {kA, 0.0, 0.0},
                 vel[3] = {2.0, 3.0, 4.0};
    kl_topocentric out;
    double p[3], v[3];
    const auto look = [&](const double *pos, const kl_geodetic &origin) {
        long ierr = -1;
        const long status = kl_ef_to_topocentric(nullptr, &kPosVel, &origin, pos, vel, &out, &ierr);
        EXPECT_EQ(ierr, 0);
        return status;
    };
    EXPECT_EQ(look(zenith, equator), KL_WARN);
    EXPECT_EQ(out.elevation, 90.0);
    EXPECT_EQ(out.azimuth, 0.0);
    EXPECT_EQ(out.range_rate, 2.0);
    EXPECT_EQ(out.elevation_rate, 0.0);
    EXPECT_EQ(look(nadir, equator), KL_WARN);
    EXPECT_EQ(out.elevation, -90.0);
    EXPECT_EQ(out.range_rate, -2.0);
    EXPECT_EQ(look(there, equator), KL_WARN);
    EXPECT_EQ(out.elevation, 90.0);
    EXPECT_EQ(out.range + out.range_rate + out.azimuth, 0.0);

    // At the north pole with longitude 30, the place 30 E lies to the south, 210 E to the north.
    const kl_geodetic pole = {90.0, 30.0, 0.0, 0.0, 0.0, 0.0};
    const double at_30[3] = {1e5 * std::sqrt(0.75), 5e4, 6.3e6};
    EXPECT_EQ(look(at_30, pole), KL_OK);
    EXPECT_NEAR(out.azimuth, 180.0, 1e-12);

    kl_topocentric in = {-360.0, 90.0, 1e5, 0.0, 0.0, 0.0};
    long ierr = -1;
    EXPECT_EQ(kl_topocentric_to_ef(nullptr, &kPos, &equator, &in, p, v, &ierr), KL_WARN);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(p[0], kA + 1e5);
    EXPECT_EQ(v[0], 0.0);
}

namespace {

struct Path {
    double s, azimuth1, azimuth2;
};

Path path(double lat1, double lon1, double lat2, double lon2)
{
    Path x = {};
    long ierr = 0;
    EXPECT_EQ(kl_geod_distance(nullptr, &lat1, &lon1, &lat2, &lon2, &x.s, &x.azimuth1, &x.azimuth2, &ierr), KL_OK)
        << lat1 << " " << lon1 << " " << lat2 << " " << lon2;
    return x;
}

constexpr double kGeodesic = 1.5e-8; // m

} // namespace

TEST(Geodesic, TrueValues)
{
    for (const auto &row : read_table("geodesics.csv", 7)) {
        const Path x = path(row[0], row[1], row[2], row[3]);
        EXPECT_NEAR(x.s, row[4], kGeodesic) << row[0] << " " << row[2];
        // An azimuth is as good as the place that it leads to.
        const double across = std::min(x.s, 6.4e6) * 0.01745;
        const double turning = x.s > 1.9e7 ? across * 1e-12 : 0.0; // near the antipode it turns fast
        EXPECT_LE(apart(x.azimuth1, row[5]) * across, kGeodesic + turning) << row[0] << " " << row[2];
        EXPECT_LE(apart(x.azimuth2, row[6]) * across, kGeodesic + turning) << row[0] << " " << row[2];
    }
}

TEST(Geodesic, PublishedAndNearTheAntipode)
{
    const Csv rows("tests/data/geodesics_published.csv");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto cell = [&](std::size_t column) { return rows.number(i, column); };
        const Path x = path(cell(0), cell(1), cell(2), cell(3));
        EXPECT_NEAR(x.s, cell(4), cell(7)) << i;
        if (cell(5) >= 0.0) {
            EXPECT_LE(apart(x.azimuth1, cell(5)), cell(8)) << i;
            EXPECT_LE(apart(x.azimuth2, cell(6)), cell(8)) << i;
        }
    }
}

// There and back, mirrored and turned; no detour is shorter; the direct problem meets the second point.
TEST(Geodesic, Laws)
{
    std::mt19937 random(42);
    const auto uniform = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(random); };
    for (int i = 0; i < 4000; ++i) {
        double lat1 = uniform(-90.0, 90.0), lon1 = uniform(-180.0, 180.0), lat2 = uniform(-90.0, 90.0),
               lon2 = uniform(-180.0, 180.0);
        const double near = std::pow(10.0, uniform(-9.0, 0.5));
        if (i % 4 == 1) { // near the antipode
            lat2 = -lat1 + uniform(-near, near) * 0.1;
            lon2 = lon1 + 180.0 + uniform(-near, near);
        } else if (i % 4 == 2) { // near
            lat2 = lat1 + uniform(-near, near);
            lon2 = lon1 + uniform(-near, near);
        } else if (i % 8 == 3) { // on and beside the equator
            lat1 = i % 16 == 3 ? 0.0 : uniform(-near, near) * 1e-3;
            lat2 = i % 32 == 3 ? 0.0 : -lat1;
        }
        lat2 = std::min(90.0, std::max(-90.0, lat2));
        const Path x = path(lat1, lon1, lat2, lon2);
        ASSERT_GE(x.s, 0.0);
        ASSERT_LE(x.s, 20003931.4586254471 + kGeodesic);
        const Path back = path(lat2, lon2, lat1, lon1);
        EXPECT_NEAR(back.s, x.s, 4e-9) << lat1 << " " << lon1 << " " << lat2 << " " << lon2;
        EXPECT_NEAR(path(-lat1, lon1, -lat2, lon2).s, x.s, 4e-9);
        EXPECT_NEAR(path(lat1, -lon1, lat2, -lon2).s, x.s, 4e-9);
        double lat3 = 0.0, lon3 = 0.0, azimuth3 = 0.0;
        long ierr = 0;
        ASSERT_EQ(kl_geod_point(nullptr, &lat1, &lon1, &x.azimuth1, &x.s, &lat3, &lon3, &azimuth3, &ierr), KL_OK);
        // Where paths from all sides meet, a rounding of the azimuth is some 20 nm aside.
        EXPECT_LE(path(lat2, lon2, lat3, lon3).s, 3e-8) << lat1 << " " << lon1 << " " << lat2 << " " << lon2;
        if (x.s > 1e3) {
            EXPECT_LE(apart(azimuth3, x.azimuth2) * std::cos(lat2 * 0.01745), 1e-7) << lat1 << " " << lat2;
        }
        const double lat4 = uniform(-90.0, 90.0), lon4 = uniform(-180.0, 180.0);
        EXPECT_LE(x.s, path(lat1, lon1, lat4, lon4).s + path(lat4, lon4, lat2, lon2).s + kGeodesic);
    }
}

TEST(Geodesic, TheDirectProblem)
{
    const double lat = 10.0, lon = 20.0;
    double s = 0.0, a = 0.0, b = 0.0;
    const double north = 0.0, quarter = 10001965.729312725, round = 4.0 * 10001965.729312725, equator = 0.0;
    // A quarter of the meridian (published), and round the Earth over the poles.
    ASSERT_EQ(kl_geod_point(nullptr, &equator, &lon, &north, &quarter, &s, &a, &b, nullptr), KL_OK);
    EXPECT_NEAR(s, 90.0, 1e-13);
    ASSERT_EQ(kl_geod_point(nullptr, &lat, &lon, &north, &round, &s, &a, &b, nullptr), KL_OK);
    EXPECT_NEAR(s, lat, 4e-13);
    EXPECT_NEAR(a, lon, 4e-13);
    const double east = 90.0, back = -kA * 0.017453292519943295;
    for (const double dust : {0.0, 1e-300, -5e-324}) {
        ASSERT_EQ(kl_geod_point(nullptr, &dust, &lon, &east, &back, &s, &a, &b, nullptr), KL_OK);
        EXPECT_NEAR(a, lon - 1.0, 1e-13) << dust;
        EXPECT_EQ(s, 0.0) << dust;
    }
}

TEST(Grid, TrueValuesAndTheWayBack)
{
    for (const auto &row : read_table("grid.csv", 6)) {
        long zone = static_cast<long>(row[2]), north = -1, ierr = 0;
        double e = 0.0, n = 0.0, lat = 0.0, lon = 0.0;
        ASSERT_EQ(KL_Coticchia_Surace(nullptr, &row[0], &row[1], &zone, &north, &e, &n, &ierr), KL_OK);
        EXPECT_EQ(north, static_cast<long>(row[3]));
        EXPECT_NEAR(e, row[4], 5e-9) << row[0];
        EXPECT_NEAR(n, row[5], 5e-9) << row[0];
        ASSERT_EQ(kl_utm_to_geod(nullptr, &zone, &north, &row[4], &row[5], &lat, &lon, &ierr), KL_OK);
        EXPECT_LE(std::fabs(lat - row[0]) * 111e3, 5e-9) << row[0];
        EXPECT_LE(apart(lon, row[1]) * 111e3 * std::cos(row[0] * 0.01745), 5e-9) << row[0];
    }
}

TEST(Grid, ZonesAndRefusals)
{
    struct Case {
        double lat, lon;
        long zone_in, zone; // 0: refused
    };
    constexpr double below_180 = 179.99999999999997, below_6 = 5.999999999999999;
    constexpr Case kCases[] = {
        {33.3, 44.4, 0, 38},   {0.0, 180.0, 0, 1},    {0.0, -180.0, 0, 1},     {0.0, 179.999, 0, 60},
        {-5.0, 360.0, 0, 31},  {-5.0, -360.0, 0, 31}, {84.0, 3.0, 31, 31},     {-84.0, 9.0, 31, 31},
        {0.0, -3.0, 31, 31},   {0.0, 9.0001, 31, 0},  {84.0001, 3.0, 31, 0},   {NAN, 3.0, 31, 0},
        {5.0, 360.1, 0, 0},    {5.0, 3.0, 61, 0},     {5.0, 3.0, -1, 0},       {5.0, 179.0, 1, 1},
        {5.0, -357.0, 31, 31}, {5.0, NAN, 31, 0},     {0.0, below_180, 0, 60}, {0.0, below_6, 0, 31},
    };
    for (const Case &c : kCases) {
        long zone = c.zone_in, north = 7, ierr = 0;
        double easting = 0.0, northing = 0.0;
        const long status = KL_Coticchia_Surace(nullptr, &c.lat, &c.lon, &zone, &north, &easting, &northing, &ierr);
        EXPECT_EQ(status, c.zone == 0 ? KL_ERR : KL_OK) << c.lat << " " << c.lon;
        EXPECT_EQ(ierr, c.zone == 0 ? error_bits(KL_COTICCHIA_SURACE_COMPUTATION_ERR) : 0);
        if (c.zone == 0)
            continue;
        EXPECT_EQ(zone, c.zone) << c.lon;
        double lat = 0.0, lon = 0.0;
        ASSERT_EQ(kl_utm_to_geod(nullptr, &zone, &north, &easting, &northing, &lat, &lon, &ierr), KL_OK) << c.lon;
        EXPECT_NEAR(lat, c.lat, 1e-13);
        EXPECT_LE(apart(lon, c.lon), 1e-12);
    }
    // All of them in one call.
    constexpr long n = std::size(kCases);
    double lats[n], lons[n], eastings[n], northings[n];
    long zones[n], norths[n], statuses[n], word = 0;
    for (long i = 0; i < n; ++i)
        lats[i] = kCases[i].lat, lons[i] = kCases[i].lon, zones[i] = kCases[i].zone_in;
    EXPECT_EQ(KL_Coticchia_Surace_n(nullptr, &n, lats, lons, zones, norths, eastings, northings, statuses, &word),
              KL_ERR);
    EXPECT_EQ(word, error_bits(KL_COTICCHIA_SURACE_COMPUTATION_ERR));
    for (long i = 0; i < n; ++i) {
        const Case &c = kCases[i];
        EXPECT_EQ(statuses[i], c.zone == 0 ? KL_ERR : KL_OK) << i;
        EXPECT_EQ(zones[i], c.zone) << i;
        long zone = c.zone_in, north = 0;
        double easting = NAN, northing = NAN;
        KL_Coticchia_Surace(nullptr, &c.lat, &c.lon, &zone, &north, &easting, &northing, nullptr);
        EXPECT_EQ(norths[i], north) << i;
        EXPECT_EQ(std::memcmp(&eastings[i], &easting, sizeof easting), 0) << i;
        EXPECT_EQ(std::memcmp(&northings[i], &northing, sizeof northing), 0) << i;
    }
    const double lat = 33.3, lon = 44.4;
    long zone = 0, north = 0;
    double easting = 0.0, northing = 0.0;
    ASSERT_EQ(KL_Coticchia_Surace(nullptr, &lat, &lon, &zone, &north, &easting, &northing, nullptr), KL_OK);
    EXPECT_NEAR(easting, 444140.5449, 5e-5);
    EXPECT_NEAR(northing, 3684706.3555, 5e-5);
    const long one = 1, half = 2, sixty_one = 61;
    const double far = 1.5e6, none = NAN;
    double x = 0.0, y = 0.0;
    LEAVES(kRefused, kl_utm_to_geod(nullptr, &sixty_one, &one, &easting, &northing, &x, &y, e))
    LEAVES(kRefused, kl_utm_to_geod(nullptr, &one, &half, &easting, &northing, &x, &y, e))
    LEAVES(kRefused, kl_utm_to_geod(nullptr, &one, &one, &far, &northing, &x, &y, e))
    LEAVES(kRefused, kl_utm_to_geod(nullptr, &one, &one, &easting, &none, &x, &y, e))
}

// A model id whose Earth was refused has no ellipsoid: nothing is computed, nothing crashes.
TEST(Coordinates, RefusedEarth)
{
    kl_model_id model = {nullptr};
    const long user = KL_MODEL_USER, models[9] = {99, 0, 0, 0, 0, 0, 0, 0, 0};
    long ierr = 0;
    ASSERT_EQ(kl_model_init(&user, models, &model, &ierr), KL_ERR);
    const double pos[3] = {7e6, 0.0, 0.0}, vel[3] = {0.0, 7e3, 1e3};
    const long osculating = KL_KEPLER_OSCULATING;
    kl_geodetic out;
    kl_kepler elements;
    LEAVES(kRefused, kl_cart_to_geod(&model, &kPos, pos, vel, &out, e))
    LEAVES(kRefused, kl_cart_to_kepl(&model, &osculating, pos, vel, &elements, e))
    kl_model_close(&model, &ierr);
}

TEST(Coordinates, WordsOfFunctionsWithoutBits)
{
    const long five = 5;
    kl_topocentric out;
    const std::string said =
        verbose_text([&] { kl_ef_to_topocentric(nullptr, &five, nullptr, nullptr, nullptr, &out, nullptr); });
    EXPECT_EQ(said, "ORBKIT_LIB >>> ERROR in kl_ef_to_topocentric: Calculation mode ID is not correct\n");
}
