#include "kl_family.h"
#include "support/conditions.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kAu = 149597870700.0; // m
constexpr double kPi = 3.14159265358979323846;
constexpr double kA = 6378137.0; // m

struct Seen {
    long status = 7, state = 7;
    double fraction = 7, depth = 7;
};

Seen seen(const double *pos, const double *sun, double margin = 0.0)
{
    Seen s;
    s.status = KL_Eclipse(nullptr, pos, sun, &margin, &s.state, &s.fraction, &s.depth, nullptr);
    return s;
}

} // namespace

// Against rings of rays that are exact.
TEST(Eclipse, TheVisiblePartIsThatOfExactRays)
{
    constexpr double kAllowed = 6e-5; // half of it the rings of the reference
    constexpr double kFar = 2e8;      // m: from here the Earth's disc begins to show its flattening
    for (const auto &row : read_table("shadows.csv", 8)) {
        const Seen s = seen(&row[0], &row[3], row[6]);
        ASSERT_EQ(s.status, KL_OK);
        EXPECT_EQ(s.state, KL_PENUMBRA) << ::testing::PrintToString(row);
        const double r = std::sqrt(row[0] * row[0] + row[1] * row[1] + row[2] * row[2]);
        EXPECT_NEAR(s.fraction, row[7], r < kFar ? kAllowed : 3e-4) << ::testing::PrintToString(row);
    }
}

// On an orbit in steps of a second: nothing jumps, the visible part goes up and down with the depth.
TEST(Eclipse, IsContinuousOverAnOrbitAtBothSolstices)
{
    for (const double season : {-23.44, 23.44})
        for (const double inclination : {0.0, 51.6, 98.2}) {
            const double d = season * kPi / 180, i = inclination * kPi / 180;
            const double sun[3] = {kAu * std::cos(d), 0.0, kAu * std::sin(d)};
            const double r = 7.0e6, n = std::sqrt(3.986004418e14 / (r * r * r));
            Seen before;
            long states = 0;
            for (int t = 0; t < 5900; ++t) {
                const double u = n * t, x = std::cos(u), y = std::sin(u);
                const double pos[3] = {r * x, r * y * std::cos(i), r * y * std::sin(i)};
                const Seen s = seen(pos, sun);
                ASSERT_EQ(s.status, KL_OK);
                states |= 1L << s.state;
                if (t > 0) {
                    ASSERT_LT(std::fabs(s.depth - before.depth), 0.3) << t;
                    ASSERT_LT(std::fabs(s.fraction - before.fraction), 0.25) << t;
                    if (s.state == KL_PENUMBRA && before.state == KL_PENUMBRA) {
                        ASSERT_EQ(s.fraction < before.fraction, s.depth < before.depth) << t;
                    }
                }
                ASSERT_EQ(s.state == KL_SUNLIGHT, s.depth >= 1.0);
                ASSERT_EQ(s.state == KL_UMBRA, s.depth <= -1.0);
                before = s;
            }
            EXPECT_EQ(states & ~(1L << KL_SUNLIGHT | 1L << KL_PENUMBRA | 1L << KL_UMBRA), 0);
        }
}

// Geostationary, Sun at 1 AU in the plane of the equator: minutes of umbra, and with penumbra.
TEST(Eclipse, GeostationaryAtTheEquinox)
{
    const double sun[3] = {kAu, 0, 0};
    const double r = 42164172.0, day = 86400.0;   // s: a turn as the Sun sees it
    const auto half_minutes = [&](double depth) { // from the middle to where the depth is reached
        double low = 0.0, high = 0.5;             // rad
        for (int k = 0; k < 60; ++k) {
            const double m = 0.5 * (low + high);
            const double pos[3] = {-r * std::cos(m), r * std::sin(m), 0.0};
            (seen(pos, sun).depth < depth ? low : high) = m;
        }
        return low / (2 * kPi) * day / 60;
    };
    EXPECT_NEAR(2 * half_minutes(-1.0), 67.5, 0.05);
    EXPECT_NEAR(2 * half_minutes(1.0), 71.8, 0.05);
}

TEST(Eclipse, KnownPlaces)
{
    const double sun[3] = {kAu, 0, 0};
    const double b = kA * (1.0 - 0.0033528106647474805);
    const struct {
        const char *name;
        double pos[3];
        long state;
    } cases[] = {
        {"towards the Sun", {7e6, 0, 0}, KL_SUNLIGHT},
        {"behind the centre", {-7e6, 0, 0}, KL_UMBRA},
        {"above the pole, the Sun on the horizon", {0, 0, 7e6}, KL_SUNLIGHT},
        {"10 m above the ground at night", {-kA - 10, 0, 0}, KL_UMBRA},
        {"10 m above the ground at noon", {kA + 10, 0, 0}, KL_SUNLIGHT},
        {"10 m above the pole, half a Sun", {0, 0, b + 10}, KL_PENUMBRA},
        {"beyond the umbra", {-1.5e9, 0, 0}, KL_ANNULAR},
        {"before its end", {-1.3e9, 0, 0}, KL_UMBRA},
        {"on the ellipsoid", {kA, 0, 0}, KL_SUNLIGHT},
    };
    for (const auto &c : cases) {
        const Seen s = seen(c.pos, sun);
        EXPECT_EQ(s.status, KL_OK) << c.name;
        EXPECT_EQ(s.state, c.state) << c.name;
        EXPECT_GE(s.fraction, 0.0) << c.name;
        EXPECT_LE(s.fraction, 1.0) << c.name;
    }
    // An annular one: what is left of the disc around the Earth's.
    const double far[3] = {-1e10, 0, 0};
    const double earth = std::asin(kA / 1e10), star = std::asin(695700e3 / (kAu + 1e10));
    EXPECT_NEAR(seen(far, sun).fraction, 1.0 - earth * earth / (star * star), 5e-3);
}

// Beyond the umbra the Earth stands before the Sun, also where rounding alone decides on which side of the line.
TEST(Eclipse, IsAnnularAlmostInLine)
{
    const double r = 5e9;
    for (int k = 0; k < 200; ++k) {
        const double a = 0.1 + 0.031 * k, z = std::sin(0.7 * k), w = std::sqrt(1.0 - z * z);
        const double d[3] = {w * std::cos(a), w * std::sin(a), z};
        const double pos[3] = {-r * d[0], -r * d[1], -r * d[2]}, sun[3] = {kAu * d[0], kAu * d[1], kAu * d[2]};
        const double star = std::asin(695700e3 / (kAu + r));
        const Seen s = seen(pos, sun);
        EXPECT_EQ(s.state, KL_ANNULAR) << k;
        EXPECT_NEAR(s.depth, -kA / r / star, 0.0034 * kA / r / star) << k; // the flattening
        EXPECT_NEAR(s.fraction, 1.0 - s.depth * s.depth, 1e-9) << k;
    }
}

TEST(Eclipse, Conditions)
{
    const double pos[3] = {7e6, 0, 0}, sun[3] = {kAu, 0, 0}, inside[3] = {6.3e6, 0, 0}, far[3] = {1.01e10, 0, 0};
    const double near_sun[3] = {0.99e11, 0, 0}, low = -10001, high = 200001, margin = 0, raised = 1e5, not_one = kNan;
    const double above[3] = {kA + 5e4, 0, 0};
    long state = 7;
    double f = 7, d = 7;
    LEAVES(kNothing, KL_Eclipse(nullptr, pos, sun, nullptr, &state, &f, &d, e));
    LEAVES(kNothing, KL_Eclipse(nullptr, above, sun, &margin, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, above, sun, &raised, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, nullptr, near_sun, &low, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, far, near_sun, &low, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, inside, near_sun, nullptr, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_SUN_ERR), KL_Eclipse(nullptr, pos, near_sun, &low, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_SUN_ERR), KL_Eclipse(nullptr, pos, nullptr, nullptr, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_MARGIN_ERR), KL_Eclipse(nullptr, pos, sun, &low, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_MARGIN_ERR), KL_Eclipse(nullptr, pos, sun, &high, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_MARGIN_ERR), KL_Eclipse(nullptr, pos, sun, &not_one, &state, &f, &d, e));
    LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, inside, sun, &not_one, &state, &f, &d, e));
    LEAVES(kRefused, KL_Eclipse(nullptr, pos, sun, nullptr, nullptr, &f, &d, e));
    const double star[3] = {-1e308, 1e308, 1e300}; // a point, behind the Earth
    LEAVES(kNothing, KL_Eclipse(nullptr, pos, star, nullptr, &state, &f, &d, e));
    EXPECT_TRUE(state == KL_UMBRA && std::isfinite(d));
    state = 7;
    for (int i = 0; i < 3; ++i)
        for (const double bad : {kNan, kInf, -kInf}) {
            double p[3] = {7e6, 1, 1}, s[3] = {kAu, 1, 1};
            p[i] = bad;
            s[i] = bad;
            LEAVES(error_bits(KL_ECLIPSE_POSITION_ERR), KL_Eclipse(nullptr, p, sun, nullptr, &state, &f, &d, e));
            LEAVES(error_bits(KL_ECLIPSE_SUN_ERR), KL_Eclipse(nullptr, pos, s, nullptr, &state, &f, &d, e));
        }
}

// ---- with the Sun of the library ----

namespace {

struct OpenTime {
    kl_time_id id = {nullptr};
    OpenTime()
    {
        const double times[4] = {9000.0, 9000.0 - 37.0 / 86400.0, 9000.0 - 37.0 / 86400.0, 9000.0 - 19.0 / 86400.0};
        const long orbit = 0;
        const double zero = 0.0;
        EXPECT_EQ(kl_time_ref_init(times, &orbit, &zero, &zero, &id, nullptr), KL_OK);
    }
    ~OpenTime() { kl_time_close(&id, nullptr); }
};

} // namespace

// The same satellite in every frame, and beside kl_sun with KL_Eclipse.
TEST(EclipseAtADate, IsTheSameFromEveryFrame)
{
    OpenTime time;
    const long tai = KL_TIME_TAI, from = KL_EF, mode = KL_CALC_POS, no = 0, yes = 1;
    const double at = 9000.25, zero[3] = {0, 0, 0};
    double sun[3], v[3], w[3];
    ASSERT_EQ(kl_sun(nullptr, &time.id, &tai, &at, sun, v, nullptr), KL_OK);
    // In the penumbra at 800 km, found by turning away from the Sun.
    double pos[3];
    Seen s;
    for (double angle = 1.5; angle < 2.3; angle += 1e-4) {
        const double size = std::sqrt(sun[0] * sun[0] + sun[1] * sun[1] + sun[2] * sun[2]);
        const double across = std::hypot(sun[0], sun[1]);
        const double r = 7.178e6;
        for (int i = 0; i < 3; ++i) {
            const double side[3] = {-sun[1] / across, sun[0] / across, 0.0};
            pos[i] = r * (std::cos(angle) * sun[i] / size + std::sin(angle) * side[i]);
        }
        s = seen(pos, sun);
        if (s.depth < 0.0)
            break;
    }
    ASSERT_EQ(s.state, KL_PENUMBRA);
    for (const long frame : {KL_BM2000, KL_HM2000, KL_GM2000, KL_MOD, KL_TOD, KL_PEF, KL_EF, KL_BM1950, KL_TEME}) {
        double there[3];
        long state = 7;
        double fraction = 7, depth = 7;
        ASSERT_EQ(kl_change_cart_cs(nullptr, &time.id, &mode, &from, &frame, &tai, &at, pos, zero, zero, there, v, w,
                                    nullptr),
                  KL_OK);
        ASSERT_EQ(
            kl_eclipse(nullptr, &time.id, &no, &frame, &tai, &at, there, nullptr, &state, &fraction, &depth, nullptr),
            KL_OK)
            << frame;
        EXPECT_EQ(state, s.state) << frame;
        EXPECT_NEAR(depth, s.depth, 1e-6) << frame;
        EXPECT_NEAR(fraction, s.fraction, 1e-6) << frame;
        // Light takes 499 s, in which the Sun moves 20.5 arcsec: at most 1/47 of its radius.
        double delayed = 7;
        ASSERT_EQ(kl_eclipse(nullptr, &time.id, &yes, &frame, &tai, &at, there, nullptr, &state, &fraction, &delayed,
                             nullptr),
                  KL_OK)
            << frame;
        EXPECT_GT(std::fabs(delayed - depth), 1e-3) << frame;
        EXPECT_LT(std::fabs(delayed - depth), 1.0 / 46.0) << frame;
    }
}

// Many satellites of one instant go through packs: the same bits, and refusals where the scalar call has them.
TEST(EclipseAtADate, ManyAtOneInstantAreAsOneByOne)
{
    OpenTime time;
    const long tai = KL_TIME_TAI, no = 0, n = 300;
    std::vector<double> at(n, 9000.25), margin(n), fraction(n), depth(n);
    std::vector<std::array<double, 3>> pos(n);
    std::vector<long> state(n), status(n);
    for (std::size_t i = 0; i < at.size(); ++i) {
        const double u = 0.37 * static_cast<double>(i), r = i % 7 == 0 ? 6.36e6 : 6.5e6 + 1e5 * static_cast<double>(i);
        pos[i] = {r * std::cos(u), r * std::sin(u) * 0.8, r * std::sin(u) * 0.6};
        margin[i] = i % 11 == 0 ? 3e5 : 1e4 * static_cast<double>(i % 5);
    }
    pos[200][1] = kNan;
    pos[201][2] = 1.1e10;
    at[290] = 9000.5;
    for (const long cs : {KL_GM2000, KL_TOD, KL_EF, KL_HM2000}) {
        kl_eclipse_n(nullptr, &time.id, &n, &no, &cs, &tai, at.data(), reinterpret_cast<const double(*)[3]>(pos.data()),
                     margin.data(), state.data(), fraction.data(), depth.data(), status.data(), nullptr);
        for (std::size_t i = 0; i < at.size(); ++i) {
            long where = 0;
            double f = kNan, d = kNan;
            EXPECT_EQ(kl_eclipse(nullptr, &time.id, &no, &cs, &tai, &at[i], pos[i].data(), &margin[i], &where, &f, &d,
                                 nullptr),
                      status[i])
                << i;
            EXPECT_EQ(state[i], where) << i;
            EXPECT_TRUE(std::memcmp(&fraction[i], &f, sizeof f) == 0 && std::memcmp(&depth[i], &d, sizeof d) == 0) << i;
        }
    }
}
