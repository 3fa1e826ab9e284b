// Kepler's equation, elements and states, mean elements.
#include "kl_family.h"
#include "kl_lib.h"
#include "support/bounds.h"
#include "support/conditions.h"
#include "support/csv.h"
#include "support/oblate_earth.h"
#include "support/vectors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr long kOsculating = KL_KEPLER_OSCULATING;
constexpr long kMean = KL_KEPLER_MEAN;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kDeg = 0.017453292519943295;
constexpr double kGm = 3.9860044e14; // of the default model
constexpr double kJ2 = 0.001082626;
constexpr double kRadius = 6378136.0;

using State6 = OblateEarth::State;

kl_kepler elements_of(const State6 &x, long kind, long status = KL_OK)
{
    kl_kepler out = {};
    EXPECT_EQ(kl_cart_to_kepl(nullptr, &kind, x.data(), x.data() + 3, &out, nullptr), status);
    return out;
}

State6 state_of(const kl_kepler &x, long kind)
{
    State6 out{};
    EXPECT_EQ(kl_kepl_to_cart(nullptr, &kind, &x, out.data(), out.data() + 3, nullptr), KL_OK);
    return out;
}

} // namespace

// In units of the rounding that the anomaly, M and e sin E themselves carry.
TEST(KeplersEquation, TrueValues)
{
    for (const auto &row : read_table("anomalies.csv", 3)) {
        const double M = row[0], e = row[1], x = row[2];
        const bool closed = e < 1.0;
        const double got = closed ? KL_Kepler_ellipse(M, e) : KL_Kepler_hyperbola(M, e);
        const double es = e * (closed ? std::sin(x) : std::sinh(x));
        const double slope = closed ? (1.0 - e) + 2.0 * e * std::pow(std::sin(0.5 * x), 2)
                                    : (e - 1.0) + 2.0 * e * std::pow(std::sinh(0.5 * x), 2);
        const double unit = 0x1p-53 * ((std::fabs(M) + std::fabs(es)) / slope + std::fabs(x));
        EXPECT_LE(std::fabs(got - x), (closed ? 1.4 : 2.1) * unit) << M << " " << e;
        const double other = closed ? KL_Kepler_ellipse(-M, e) : KL_Kepler_hyperbola(-M, e);
        EXPECT_EQ(other, -got);
    }
    EXPECT_NEAR(KL_Kepler_ellipse(235.4 * kDeg, 0.4) / kDeg, 220.512074767522, 5e-13); // Vallado, example 2-1
    EXPECT_EQ(KL_Kepler_ellipse(0.0, 0.999), 0.0);
    EXPECT_EQ(KL_Kepler_hyperbola(0.0, 1.001), 0.0);
    EXPECT_NEAR(KL_Kepler_ellipse(1000.5, 0.1), 1000.5 + 0.1 * std::sin(KL_Kepler_ellipse(1000.5, 0.1)), 2e-13);
    for (const double bad : {kNaN, HUGE_VAL, -HUGE_VAL}) {
        EXPECT_TRUE(std::isnan(KL_Kepler_ellipse(bad, 0.1)));
        EXPECT_TRUE(std::isnan(KL_Kepler_hyperbola(bad, 2.0)));
        EXPECT_TRUE(std::isnan(KL_Kepler_ellipse(1.0, bad)));
        EXPECT_TRUE(std::isnan(KL_Kepler_hyperbola(1.0, bad)));
    }
    EXPECT_TRUE(std::isnan(KL_Kepler_ellipse(1.0, 1.0)));
    EXPECT_TRUE(std::isnan(KL_Kepler_ellipse(1.0, -0.1)));
    EXPECT_TRUE(std::isnan(KL_Kepler_hyperbola(1.0, 1.0)));
}

TEST(Elements, TrueValuesBothWays)
{
    for (const auto &row : read_table("kepler.csv", 18)) {
        const kl_kepler in = {row[0], row[1], row[2], row[3], row[4], row[5]};
        const State6 x = state_of(in, kOsculating);
        const double r = length(&row[6]), v = length(&row[9]);
        // A rounding of the anomaly is worth most at the perigee of a long ellipse.
        const double steep = in.eccentricity < 1.0
                                 ? std::fabs(in.semi_major_axis) * (1.0 + std::fabs(in.mean_anomaly) / 57.0) / r
                                 : std::fabs(in.semi_major_axis) * 8.0 / r;
        EXPECT_LE(distance(x.data(), &row[6]), 2e-15 * r * (1.0 + steep / (1.0 - std::min(in.eccentricity, 0.9))))
            << in.eccentricity;
        EXPECT_LE(distance(x.data() + 3, &row[9]), 3e-15 * v * (1.0 + steep / (1.0 - std::min(in.eccentricity, 0.9))))
            << in.eccentricity;

        State6 given;
        std::copy(row.begin() + 6, row.begin() + 12, given.begin());
        const kl_kepler got = elements_of(given, kOsculating);
        const double e = in.eccentricity;
        const double ill = 60.0 * 1e-15 * std::max(1.0, steep);
        EXPECT_NEAR(got.semi_major_axis / row[12], 1.0,
                    1e-15 * (2.0 + 2.0 * std::fabs(row[12]) / r + 2.0 * v * v * std::fabs(row[12]) / kGm));
        EXPECT_NEAR(got.eccentricity, row[13], 4e-15 * (1.0 + steep) * std::max(1.0, e));
        EXPECT_LE(apart(got.inclination, row[14]),
                  6e-14 * r * v / std::sqrt(kGm * std::fabs(row[12] * (1.0 - row[13] * row[13]))) * 2.0);
        EXPECT_LE(apart(got.raan, row[15]), 2e-13 / std::sin(row[14] * kDeg));
        EXPECT_LE(apart(got.arg_perigee, row[16]), ill * (1.0 + 1.0 / std::min(e, 1.0)) / std::sin(row[14] * kDeg));
        if (e < 1.0)
            EXPECT_LE(apart(got.mean_anomaly, row[17]), ill * (1.0 + 1.0 / e));
        else
            EXPECT_NEAR(got.mean_anomaly, row[17], ill * (2.0 + std::fabs(row[17])));
    }
}

TEST(Elements, Published)
{
    // Vallado, example 2-5; a, e, M with this model's GM by quadruple precision.
    const State6 state = {6524834.0, 6862875.0, 6448296.0, 4901.327, 5533.756, -1976.341};
    const kl_kepler x = elements_of(state, kOsculating);
    EXPECT_NEAR(x.semi_major_axis, 36127338.485455722, 1e-7);
    EXPECT_NEAR(x.eccentricity, 0.832853402064525, 4e-15);
    EXPECT_NEAR(x.inclination, 87.8691261770264, 1e-12);
    EXPECT_NEAR(x.raan, 227.8982603572737, 1e-12);
    EXPECT_NEAR(x.arg_perigee, 53.3849309288643, 1e-12);
    EXPECT_NEAR(x.mean_anomaly, 7.6047414712404, 1e-12);
}

// There and back over conics of all shapes, circles, orbits in the equator, retrograde ones.
TEST(Elements, RoundTrips)
{
    std::mt19937 random(7);
    const auto uniform = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(random); };
    for (int k = 0; k < 20000; ++k) {
        kl_kepler x = {uniform(6.6e6, 5e7), uniform(0.0, 0.9),   uniform(0.0, 180.0),
                       uniform(0.0, 360.0), uniform(0.0, 360.0), uniform(0.0, 360.0)};
        if (k % 8 == 1)
            x.eccentricity = std::pow(10.0, uniform(-17.0, -1.0));
        if (k % 8 == 2)
            x.eccentricity = 0.0;
        if (k % 8 == 3)
            x.inclination = k % 16 == 3 ? 0.0 : 180.0;
        if (k % 8 == 4)
            x = {-uniform(1e6, 5e7),    1.0 + std::pow(10.0, uniform(-3.0, 1.0)), x.inclination, x.raan, x.arg_perigee,
                 uniform(-300.0, 300.0)};
        const bool closed = x.semi_major_axis > 0.0;
        const State6 there = state_of(x, kOsculating);
        const kl_kepler y = elements_of(there, kOsculating);
        ASSERT_TRUE(y.mean_anomaly == y.mean_anomaly && y.arg_perigee >= 0.0 && y.arg_perigee < 360.0);
        const State6 back = state_of(y, kOsculating);
        EXPECT_LE(distance(back.data(), there.data()), (closed ? 1.5e-14 : 5e-14) * length(there.data()))
            << k << " " << x.eccentricity;
        EXPECT_LE(distance(back.data() + 3, there.data() + 3), (closed ? 8e-15 : 3e-14) * length(there.data() + 3))
            << k;
        if (!closed || k % 4 != 0 || x.eccentricity > 0.75 || x.semi_major_axis * (1.0 - x.eccentricity) < 6.5e6)
            continue;
        const kl_kepler mean = elements_of(there, kMean);
        const State6 again = state_of(mean, kMean);
        EXPECT_LE(distance(again.data(), there.data()), 8e-15 * length(there.data()))
            << k << " " << x.eccentricity << " " << x.inclination;
        EXPECT_LE(distance(again.data() + 3, there.data() + 3), 8e-15 * length(there.data() + 3)) << k;
    }
    const kl_kepler circle = elements_of({7e6, 0.0, 0.0, 0.0, std::sqrt(kGm / 7e6), 0.0}, kOsculating);
    if (circle.eccentricity == 0.0) {
        EXPECT_EQ(circle.arg_perigee, 0.0);
        EXPECT_EQ(circle.mean_anomaly, 0.0);
    }
}

TEST(Elements, RangesEndWhereTheHeaderSays)
{
    const auto state_of = [](double kl_kepler::*element, double value) {
        kl_kepler in = {7e6, 0.1, 10.0, 20.0, 30.0, 40.0};
        in.*element = value;
        const long kind = KL_KEPLER_OSCULATING;
        double pos[3], vel[3];
        return kl_kepl_to_cart(nullptr, &kind, &in, pos, vel, nullptr);
    };
    const auto expect_element = [&](const char *name, double kl_kepler::*element, double least, double most) {
        expect_range(name, least, most, [&](double value) { return state_of(element, value); });
    };
    EXPECT_EQ(state_of(&kl_kepler::semi_major_axis, 1e13), KL_OK);
    EXPECT_EQ(state_of(&kl_kepler::semi_major_axis, std::nextafter(1e13, 2e13)), KL_ERR);
    expect_element("eccentricity", &kl_kepler::eccentricity, 0.0, std::nextafter(1.0, 0.0));
    expect_element("inclination", &kl_kepler::inclination, 0.0, 180.0);
    expect_element("node", &kl_kepler::raan, -1e8, 1e8);
    expect_element("perigee", &kl_kepler::arg_perigee, -1e8, 1e8);
    expect_element("mean anomaly", &kl_kepler::mean_anomaly, -1e8, 1e8);
    for (const double from_parabola : {-1.1e-9, -0.9e-9, 0.9e-9, 1.1e-9}) { // of r v^2/gm
        const double pos[3] = {7e6, 0.0, 0.0}, vel[3] = {0.0, std::sqrt((2.0 + from_parabola) * kGm / 7e6), 0.0};
        kl_kepler out;
        expect_bits("near a parabola",
                    std::fabs(from_parabola) < 1e-9 ? error_bits(KL_CART_TO_KEPL_CONIC_ERR) : kNothing,
                    [&](long *e) { return kl_cart_to_kepl(nullptr, &kOsculating, pos, vel, &out, e); });
    }
}

// Along one line position and velocity span no plane, whatever rounding leaves of it: every function says so.
TEST(Elements, StraightLines)
{
    std::mt19937 random(3);
    const auto uniform = [&](double a, double b) { return std::uniform_real_distribution<double>(a, b)(random); };
    const long qsw = KL_ORBITAL_QSW, tod = KL_TOD, tai = KL_TIME_TAI, mode = KL_CALC_POS;
    const double at = 6000.0;
    for (int k = 0; k < 2000; ++k) {
        const double size = std::pow(10.0, uniform(3.0, 12.0)), speed = std::pow(10.0, uniform(-3.0, 6.0)) / size;
        const double pos[3] = {uniform(-size, size), uniform(-size, size), uniform(-size, size)};
        const double vel[3] = {pos[0] * speed, pos[1] * speed, pos[2] * speed};
        kl_kepler out;
        LEAVES(error_bits(KL_CART_TO_KEPL_CONIC_ERR), kl_cart_to_kepl(nullptr, &kOsculating, pos, vel, &out, e))
        double r[18];
        LEAVES(kRefused, kl_local_orbital_frame(&qsw, pos, vel, nullptr, r, r + 9, e))
        kl_time_id none = {nullptr};
        kl_orbit_angle angle;
        LEAVES(error_bits(KL_POSITION_ON_ORBIT_PLANE_ERR),
               kl_position_on_orbit(nullptr, &none, &mode, &tod, &tai, &at, pos, vel, nullptr, &angle, e))
    }
}

// Numbers of every size: a refusal or finite numbers, and never a crash.
TEST(Elements, WildNumbers)
{
    std::mt19937_64 random(11);
    const auto wild = [&] {
        const double size = std::pow(10.0, std::uniform_real_distribution<double>(-320.0, 308.0)(random));
        const double mild = std::pow(10.0, std::uniform_real_distribution<double>(-3.0, 12.0)(random));
        const double one = random() % 3 ? mild : size;
        return random() % 16 == 0 ? 0.0 : random() % 2 ? one : -one;
    };
    const auto all_finite = [](const double *x, int n) {
        return std::all_of(x, x + n, [](double y) { return std::isfinite(y); });
    };
    for (int k = 0; k < 200000; ++k) {
        const long kind = k % 2;
        const State6 x = {wild(), wild(), wild(), wild(), wild(), wild()};
        kl_kepler out = {};
        if (kl_cart_to_kepl(nullptr, &kind, x.data(), x.data() + 3, &out, nullptr) != KL_ERR) {
            ASSERT_TRUE(all_finite(&out.semi_major_axis, 6)) << k;
        }
        const kl_kepler in = {
            wild(), random() % 2 ? std::fabs(wild()) : std::fabs(wild()) * 1e-12, std::fabs(wild()), wild(), wild(),
            wild()};
        State6 y = {};
        if (kl_kepl_to_cart(nullptr, &kind, &in, y.data(), y.data() + 3, nullptr) != KL_ERR) {
            ASSERT_TRUE(all_finite(y.data(), 6)) << k;
        }
        kl_geodetic geodetic = {};
        const long mode = KL_CALC_POS_VEL;
        if (kl_cart_to_geod(nullptr, &mode, x.data(), x.data() + 3, &geodetic, nullptr) != KL_ERR) {
            ASSERT_TRUE(all_finite(&geodetic.latitude, 6)) << k;
        }
        kl_radec radec = {};
        if (kl_cart_to_radec(nullptr, &mode, x.data(), x.data() + 3, &radec, nullptr) != KL_ERR) {
            ASSERT_TRUE(all_finite(&radec.ra, 6)) << k;
        }
        double r[18];
        const long axes = k % 5;
        if (kl_local_orbital_frame(&axes, x.data(), x.data() + 3, nullptr, r, r + 9, nullptr) != KL_ERR) {
            ASSERT_TRUE(all_finite(r, 18)) << k;
        }
    }
}

TEST(MeanElements, PublishedFigures)
{
    for (const auto &[mean, cell] : read_rows<std::string, std::string>("mean_elements.csv")) {
        const kl_kepler x = elements_of(state_of(record_as<kl_kepler, 6>(mean), kMean), kOsculating);
        const kl_kepler osculating = record_as<kl_kepler, 6>(cell);
        EXPECT_NEAR(x.semi_major_axis, osculating.semi_major_axis, 2e-8);
        EXPECT_NEAR(x.eccentricity, osculating.eccentricity, 4e-15);
        EXPECT_NEAR(x.inclination, osculating.inclination, 1e-13);
        EXPECT_NEAR(x.raan, osculating.raan, 1e-13);
        EXPECT_NEAR(x.arg_perigee, osculating.arg_perigee, 2e-10);
        EXPECT_NEAR(x.mean_anomaly, osculating.mean_anomaly, 2e-10);
    }
}

// Along an orbit about an oblate Earth osculating elements swing, mean ones hardly: what is left is of second order.
TEST(MeanElements, SwingOnAnOblateEarth)
{
    const OblateEarth earth = {kGm, kJ2, kRadius};
    for (const auto &[name, cell, step_s, swings, rests] :
         read_rows<std::string, std::string, double, std::string, std::string>("mean_element_swings.csv")) {
        const kl_kepler osculating = record_as<kl_kepler, 6>(cell);
        State6 x = state_of(osculating, kOsculating);
        const double period = 2.0 * 3.14159265358979 * std::sqrt(std::pow(osculating.semi_major_axis, 3) / kGm);
        double low[2][3], high[2][3];
        std::fill(&low[0][0], &low[0][0] + 6, HUGE_VAL);
        std::fill(&high[0][0], &high[0][0] + 6, -HUGE_VAL);
        double t = 0.0;
        for (int k = 0; t < 2.0 * period; ++k, t += step_s) {
            if (k % 20 == 0)
                for (const long kind : {kOsculating, kMean}) {
                    const kl_kepler y = elements_of(x, kind);
                    const double values[3] = {y.semi_major_axis, y.eccentricity, y.inclination};
                    for (int i = 0; i < 3; ++i) {
                        low[kind][i] = std::min(low[kind][i], values[i]);
                        high[kind][i] = std::max(high[kind][i], values[i]);
                    }
                }
            x = earth.step(x, step_s);
        }
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_GE(high[kOsculating][i] - low[kOsculating][i], cells_as<double>(swings).at(i)) << name << " " << i;
            EXPECT_LE(high[kMean][i] - low[kMean][i], cells_as<double>(rests).at(i)) << name << " " << i;
        }
    }
}
