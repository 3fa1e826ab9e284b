// Angle on the orbit, the Sun seen from it, and frames that go along.
#include "kl_family.h"
#include "kl_lib.h"
#include "support/conditions.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr long kTai = KL_TIME_TAI;
constexpr long kMode[3] = {KL_CALC_POS, KL_CALC_POS_VEL, KL_CALC_POS_VEL_ACC};
constexpr double kDeg = 0.017453292519943295;
constexpr double kGm = 3.9860044e14; // of the default model
constexpr double kDay = 86400.0;
constexpr double kAt = 6000.25; // MJD2000

class OrbitAngle : public testing::Test {
protected:
    void SetUp() override
    {
        const double times[4] = {kAt, kAt - 36.0 / kDay, kAt - 36.2 / kDay, kAt - 19.0 / kDay};
        const long orbit = 0;
        const double zero = 0.0;
        ASSERT_EQ(kl_time_ref_init(times, &orbit, &zero, &zero, &time_, nullptr), KL_OK);
    }
    void TearDown() override { kl_time_close(&time_, nullptr); }

    kl_orbit_angle angle(long mode, long cs, double at, const double *pos, const double *vel, const double *acc,
                         long expected = KL_OK)
    {
        kl_orbit_angle out = {};
        EXPECT_EQ(kl_position_on_orbit(nullptr, &time_, &mode, &cs, &kTai, &at, pos, vel, acc, &out, nullptr),
                  expected);
        return out;
    }

    kl_time_id time_ = {nullptr};
};

struct Motion {
    double pos[3], vel[3], acc[3];
};

// Some motion whose derivatives are known: an ellipse whose plane turns and tilts, in the frame it is given in.
Motion motion(double t)
{
    const double u = 1.0 + 1e-3 * t + 1e-8 * t * t, du = 1e-3 + 2e-8 * t, ddu = 2e-8;
    const double node = 0.5 + 2e-7 * t, dnode = 2e-7;
    const double ci = std::cos(1.2), si = std::sin(1.2);
    const double r = 7e6;
    const double x = std::cos(u), y = std::sin(u) * ci, z = std::sin(u) * si;
    const double dx = -std::sin(u) * du, dy = std::cos(u) * du * ci, dz = std::cos(u) * du * si;
    const double ddx = -std::cos(u) * du * du - std::sin(u) * ddu;
    const double ddy = (-std::sin(u) * du * du + std::cos(u) * ddu) * ci;
    const double ddz = (-std::sin(u) * du * du + std::cos(u) * ddu) * si;
    const double c = std::cos(node), s = std::sin(node), w = dnode;
    const double vx = dx - w * y, vy = dy + w * x; // along the turning axes
    const double ax = ddx - 2.0 * w * dy - w * w * x, ay = ddy + 2.0 * w * dx - w * w * y;
    return {{r * (c * x - s * y), r * (s * x + c * y), r * z},
            {r * (c * vx - s * vy), r * (s * vx + c * vy), r * dz},
            {r * (c * ax - s * ay), r * (s * ax + c * ay), r * ddz}};
}

} // namespace

TEST_F(OrbitAngle, OfKeplerianElements)
{
    const long osculating = KL_KEPLER_OSCULATING;
    for (const double perigee : {0.0, 90.0, 200.0, 359.0})
        for (const double inclination : {1e-3, 51.6, 90.0, 98.6, 179.99}) {
            const kl_kepler x = {7.2e6, 1e-9, inclination, 123.0, perigee, 40.0};
            double pos[3], vel[3];
            ASSERT_EQ(kl_kepl_to_cart(nullptr, &osculating, &x, pos, vel, nullptr), KL_OK);
            const kl_orbit_angle out = angle(KL_CALC_POS, KL_TOD, kAt, pos, vel, nullptr);
            EXPECT_LE(apart(out.angle, perigee + 40.0), 2e-7 + 1e-13 / std::sin(inclination * kDeg)); // e = 1e-9
            EXPECT_LE(apart(out.node, 123.0), 1e-13 / std::sin(inclination * kDeg));
            EXPECT_NEAR(out.inclination, inclination, 1e-13);
            EXPECT_EQ(out.rate, 0.0);
            const kl_orbit_angle rates = angle(KL_CALC_POS_VEL_ACC, KL_TOD, kAt, pos, vel, nullptr);
            EXPECT_NEAR(rates.rate, std::sqrt(kGm / std::pow(7.2e6, 3)) / kDeg, 1e-9);
            EXPECT_EQ(rates.node_rate, 0.0);
        }
}

// Rates against differences, in frames with and without a chain; the plane of the motion turns.
TEST_F(OrbitAngle, RatesAgainstDifferences)
{
    constexpr double h = 1.0; // s
    for (const long cs : {KL_TOD, KL_GM2000, KL_EF, KL_TEME}) {
        kl_orbit_angle x[3];
        for (int i = 0; i < 3; ++i) {
            const Motion m = motion((i - 1) * h);
            const double at = kAt + (i - 1) * h / kDay;
            const long tod = KL_TOD;
            double pos[3], vel[3], acc[3];
            ASSERT_EQ(kl_change_cart_cs(nullptr, &time_, &kMode[2], &tod, &cs, &kTai, &at, m.pos, m.vel, m.acc, pos,
                                        vel, acc, nullptr),
                      KL_OK);
            x[i] = angle(KL_CALC_POS_VEL_ACC, cs, at, pos, vel, acc);
        }
        EXPECT_NEAR(x[1].rate, std::remainder(x[2].angle - x[0].angle, 360.0) / (2.0 * h), 1e-9) << cs;
        EXPECT_NEAR(x[1].node_rate, std::remainder(x[2].node - x[0].node, 360.0) / (2.0 * h), 1e-9) << cs;
        EXPECT_NEAR(x[1].rate_of_rate, (x[2].rate - x[0].rate) / (2.0 * h), 1e-8)
            << cs; // the node's change is left out
    }
}

TEST_F(OrbitAngle, OneSatelliteInAllFrames)
{
    const Motion m = motion(0.0);
    const kl_orbit_angle tod = angle(KL_CALC_POS, KL_TOD, kAt, m.pos, m.vel, nullptr);
    for (long cs = KL_BM2000; cs <= KL_TEME; ++cs) {
        if (cs == KL_GALACTIC || cs == KL_LIF)
            continue;
        const long from = KL_TOD;
        double pos[3], vel[3], acc[3];
        ASSERT_EQ(kl_change_cart_cs(nullptr, &time_, &kMode[2], &from, &cs, &kTai, &kAt, m.pos, m.vel, m.acc, pos, vel,
                                    acc, nullptr),
                  KL_OK);
        const kl_orbit_angle x = angle(KL_CALC_POS_VEL, cs, kAt, pos, vel, nullptr);
        const double loss = cs == KL_BM2000 || cs == KL_HM2000 || cs == KL_BM1950 ? 1e-7 : 1e-9; // the way from the Sun
        EXPECT_LE(apart(x.angle, tod.angle), loss) << cs;
        EXPECT_LE(apart(x.node, tod.node), loss) << cs;
    }
}

TEST_F(OrbitAngle, OverTheEquatorCountsFromTheXAxisAndNoAccelerationIsZero)
{
    const double pos[3] = {7e6, 0.0, 0.0}, vel[3] = {0.0, 7e3, 0.0};
    const long tod = KL_TOD;
    kl_orbit_angle out;
    kl_time_id empty = {nullptr};
    LEAVES(warning_bits(KL_POSITION_ON_ORBIT_EQUATOR_WARN),
           kl_position_on_orbit(nullptr, &empty, kMode, &tod, &kTai, &kAt, pos, vel, nullptr, &out, e))
    EXPECT_EQ(out.node, 0.0);
    EXPECT_EQ(out.angle, 0.0);
    const Motion m = motion(0.0);
    const double nothing[3] = {0.0, 0.0, 0.0};
    const kl_orbit_angle without = angle(KL_CALC_POS_VEL_ACC, KL_EF, kAt, m.pos, m.vel, nullptr);
    const kl_orbit_angle zeros = angle(KL_CALC_POS_VEL_ACC, KL_EF, kAt, m.pos, m.vel, nothing);
    EXPECT_EQ(without.rate, zeros.rate);
    EXPECT_EQ(without.rate_of_rate, zeros.rate_of_rate);
}

// The Sun by its own function and the frame change; the times by the Sun at the node's meridian.
TEST_F(OrbitAngle, SunSeenFromTheOrbit)
{
    const long gm2000 = KL_GM2000, tod = KL_TOD, ef = KL_EF;
    const double zero[3] = {0.0, 0.0, 0.0};
    for (double at = kAt; at < kAt + 366.0; at += 33.3) {
        const Motion m = motion(at);
        kl_orbit_sun_angles out;
        long ierr = -1;
        ASSERT_EQ(kl_orbit_sun(nullptr, &time_, &gm2000, &kTai, &at, m.pos, m.vel, &out, &ierr), KL_OK);
        EXPECT_EQ(ierr, 0);
        double sun_ef[3], sun_vel[3], sun[3], p[3], v[3], a[3], x[3];
        ASSERT_NE(kl_sun(nullptr, &time_, &kTai, &at, sun_ef, sun_vel, nullptr), KL_ERR);
        ASSERT_NE(
            kl_change_cart_cs(nullptr, &time_, kMode, &ef, &tod, &kTai, &at, sun_ef, zero, zero, sun, v, a, nullptr),
            KL_ERR);
        ASSERT_NE(kl_change_cart_cs(nullptr, &time_, &kMode[1], &gm2000, &tod, &kTai, &at, m.pos, m.vel, zero, p, v, a,
                                    nullptr),
                  KL_ERR);
        double h[3], hxs[3];
        KL_mult3_vv(p, v, h);
        KL_norm(h, 3);
        const double size = std::sqrt(sun[0] * sun[0] + sun[1] * sun[1] + sun[2] * sun[2]);
        const double above = (sun[0] * h[0] + sun[1] * h[1] + sun[2] * h[2]) / size;
        EXPECT_NEAR(out.beta, std::asin(above) / kDeg, 1e-10);
        for (int i = 0; i < 3; ++i)
            x[i] = sun[i] - above * size * h[i]; // projected
        KL_mult3_vv(x, p, hxs);
        const double turn =
            std::atan2(hxs[0] * h[0] + hxs[1] * h[1] + hxs[2] * h[2], x[0] * p[0] + x[1] * p[1] + x[2] * p[2]);
        EXPECT_LE(apart(out.sun_to_satellite, turn / kDeg), 1e-9);
        // True time: the node's longitude against that of the Sun.
        const double node = std::atan2(h[0], -h[1]) / kDeg;
        EXPECT_NEAR(
            std::remainder(out.node_true_solar_time - 12.0 - (node - std::atan2(sun[1], sun[0]) / kDeg) / 15.0, 24.0),
            0.0, 1e-10);
        // The equation of time: true less mean, within a quarter of an hour and a bit.
        const double difference = std::remainder(out.node_true_solar_time - out.node_mean_solar_time, 24.0) * 60.0;
        const double days = std::fmod(at - kAt, 365.25) + 156.0; // 2016-06-05
        const double B = 2.0 * 3.14159265358979 * (days - 81.0) / 365.0;
        EXPECT_NEAR(difference, 9.87 * std::sin(2.0 * B) - 7.53 * std::cos(B) - 1.5 * std::sin(B), 0.9)
            << at; // textbook, 1 minute
    }
    const double pos[3] = {7e6, 0.0, 0.0}, vel[3] = {0.0, 7e3, 0.0};
    kl_orbit_sun_angles out;
    long ierr = -1;
    EXPECT_EQ(kl_orbit_sun(nullptr, &time_, &tod, &kTai, &kAt, pos, vel, &out, &ierr), KL_WARN); // equatorial
    EXPECT_EQ(ierr, 0);
}

// Rows are right-handed and orthonormal, point where their names say, and turn as differences do.
TEST(LocalFrames, AxesAndTheirTurning)
{
    constexpr double h = 1.0;
    for (long kind = KL_ORBITAL_QSW; kind <= KL_ORBITAL_VNC; ++kind) {
        const Motion before = motion(50.0 - h), here = motion(50.0), after = motion(50.0 + h);
        double r[9], dr[9], a[9], b[9], other[9];
        ASSERT_EQ(kl_local_orbital_frame(&kind, here.pos, here.vel, here.acc, r, dr, nullptr), KL_OK);
        ASSERT_EQ(kl_local_orbital_frame(&kind, before.pos, before.vel, before.acc, a, other, nullptr), KL_OK);
        ASSERT_EQ(kl_local_orbital_frame(&kind, after.pos, after.vel, after.acc, b, other, nullptr), KL_OK);
        for (int i = 0; i < 9; ++i) {
            EXPECT_NEAR(dr[i], (b[i] - a[i]) / (2.0 * h), 1e-9) << kind << " " << i;
            const int row = i / 3, column = i % 3;
            double product = 0.0;
            for (int k = 0; k < 3; ++k)
                product += r[3 * row + k] * r[3 * column + k];
            EXPECT_NEAR(product, row == column ? 1.0 : 0.0, 4e-16 * 2);
        }
        double third[3];
        KL_mult3_vv(r, r + 3, third);
        EXPECT_NEAR(third[0] * r[6] + third[1] * r[7] + third[2] * r[8], 1.0, 1e-15) << kind;
    }
    // On a circle over the equator, at x: what each row is.
    const double pos[3] = {7e6, 0.0, 0.0}, vel[3] = {0.0, 7.5e3, 0.0};
    constexpr double kRows[5][9] = {
        {1, 0, 0, 0, 1, 0, 0, 0, 1},   // radial, along, normal
        {0, 1, 0, 0, 0, -1, -1, 0, 0}, // along, minus normal, down
        {0, 1, 0, -1, 0, 0, 0, 0, 1},  // along, inward, normal
        {1, 0, 0, 0, 1, 0, 0, 0, 1},   // outward, along, normal
        {0, 1, 0, 0, 0, 1, 1, 0, 0},   // along, normal, outward
    };
    for (long kind = 0; kind < 5; ++kind) {
        double r[9], dr[9];
        ASSERT_EQ(KL_Local_orbital_frame(kind, pos, vel, nullptr, r, dr), KL_OK);
        for (int i = 0; i < 9; ++i)
            EXPECT_EQ(r[i], kRows[kind][i]) << kind << " " << i;
    }
    double r[9], dr[9];
    ASSERT_EQ(KL_Local_orbital_frame(KL_ORBITAL_TNW, pos, vel, nullptr, r, dr), KL_OK);
    EXPECT_NEAR(dr[0], -kGm / (7e6 * 7e6) / 7.5e3, 1e-18); // the velocity turns by gravity
    const double rest[3] = {0.0, 0.0, 0.0};
    ASSERT_EQ(KL_Local_orbital_frame(KL_ORBITAL_TNW, pos, vel, rest, r, dr), KL_OK);
    EXPECT_EQ(dr[0], 0.0);
}
