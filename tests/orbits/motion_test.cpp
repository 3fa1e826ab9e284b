// Motions: drifting mean elements against a numerical integration, interpolation against the motion itself.
#include "kl_lib.h"

#include "support/oblate_earth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

double turn(double degrees)
{
    return std::remainder(degrees, 360.0);
}

// What the theory leaves out is of second order in J2: a few thousandths of its rates, which are 6 deg a day at the
// most.
TEST(MeanMotion, DriftsAsTheIntegratedFieldDoes)
{
    kl_model_data model;
    kl_model_id models = {nullptr}; // the default ones
    long ierr[1];
    ASSERT_EQ(kl_model_get_data(&models, &model), KL_OK);
    const long mean = KL_KEPLER_MEAN;
    for (const double inclination : {28.5, 63.4, 98.6, 144.0}) {
        const kl_kepler start = {7178137.0, 0.02, inclination, 250.0, 90.0, 10.0};
        OblateEarth::State x;
        ASSERT_EQ(kl_kepl_to_cart(&models, &mean, &start, x.data(), x.data() + 3, ierr), KL_OK);
        const double day = 86400.0;
        const OblateEarth earth = {model.gm, model.j2, model.gravity_radius};
        for (double t = 0.0; t < day; t += 10.0)
            x = earth.step(x, 10.0);
        kl_kepler there, expected;
        ASSERT_EQ(kl_cart_to_kepl(&models, &mean, x.data(), x.data() + 3, &there, ierr), KL_OK);
        ASSERT_EQ(kl_mean_motion(&models, &start, &day, &expected, ierr), KL_OK);
        EXPECT_NEAR(turn(there.raan - expected.raan), 0.0, 0.02) << inclination;
        EXPECT_NEAR(turn(there.arg_perigee - expected.arg_perigee), 0.0, 0.05) << inclination;
        EXPECT_NEAR(turn(there.arg_perigee + there.mean_anomaly - expected.arg_perigee - expected.mean_anomaly), 0.0,
                    0.05)
            << inclination;
    }
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A circle of 7078 km: the exact motion is a pair of sines.
class Circle {
public:
    explicit Circle(double step) : step_(step)
    {
        for (int i = 0; i < 20; ++i)
            states.push_back(at(step * i));
    }
    static kl_state_at at(double t)
    {
        const double r = 7078137.0, n = std::sqrt(3.986004418e14 / (r * r * r));
        return {t,
                {r * std::cos(n * t), r * std::sin(n * t), 1e5},
                {-r * n * std::sin(n * t), r * n * std::cos(n * t), 0.0}};
    }
    // Largest error of the position between two of the states; the error that is told must not be below it.
    double worst(int from, int to) const
    {
        double most = 0.0;
        const long n = static_cast<long>(states.size());
        for (double t = step_ * from; t <= step_ * to; t += step_ / 16) {
            double pos[3], vel[3], told;
            EXPECT_EQ(kl_interpolate_states(&n, states.data(), &t, pos, vel, &told, nullptr), KL_OK);
            const kl_state_at truth = at(t);
            const double error = std::hypot(pos[0] - truth.pos[0], pos[1] - truth.pos[1], pos[2] - truth.pos[2]);
            EXPECT_LE(error, told + kRounding) << t;
            EXPECT_LE(std::hypot(vel[0] - truth.vel[0], vel[1] - truth.vel[1]), 20.0 * (told + kRounding) / step_);
            most = std::max(most, error);
        }
        return most;
    }
    static constexpr double kRounding = 2e-8; // m

    std::vector<kl_state_at> states;

private:
    double step_;
};

TEST(InterpolatedStates, AreAsNearAsTheHeaderSays)
{
    EXPECT_LE(Circle(60.0).worst(0, 19), Circle::kRounding);
    EXPECT_LE(Circle(300.0).worst(3, 16), 0.25e-6);
    EXPECT_LE(Circle(300.0).worst(0, 19), 10e-6);
    const Circle few(60.0); // two states: a cubic
    const long two = 2;
    const double t = 30.0;
    double pos[3], vel[3], told;
    ASSERT_EQ(kl_interpolate_states(&two, few.states.data(), &t, pos, vel, &told, nullptr), KL_OK);
    EXPECT_NEAR(pos[1], Circle::at(t).pos[1], told);
    // At a state: that state.
    const long all = 20;
    for (const kl_state_at &s : few.states) {
        ASSERT_EQ(kl_interpolate_states(&all, few.states.data(), &s.time, pos, vel, nullptr, nullptr), KL_OK);
        EXPECT_TRUE(std::equal(pos, pos + 3, s.pos) && std::equal(vel, vel + 3, s.vel)) << s.time;
    }
}

TEST(InterpolatedStates, AreRefusedWhereNoneIs)
{
    const Circle good(60.0);
    const auto status = [](const std::vector<kl_state_at> &states, double t) {
        const long n = static_cast<long>(states.size());
        double pos[3], vel[3];
        return kl_interpolate_states(&n, states.data(), &t, pos, vel, nullptr, nullptr);
    };
    for (const double t : {-1e-9, 1140.0 + 1e-9, kNan, 1e300})
        EXPECT_EQ(status(good.states, t), KL_ERR) << t;
    EXPECT_EQ(status({good.states[0]}, 0.0), KL_ERR);
    EXPECT_EQ(status({}, 0.0), KL_ERR);
    std::vector<kl_state_at> spoilt = good.states;
    spoilt[3].time = spoilt[2].time;
    EXPECT_EQ(status(spoilt, 150.0), KL_ERR);
    spoilt = {good.states[0], good.states[1]};
    for (const double end : {5e-324, 1e-310, 1.7e308}) { // no polynomial in numbers
        spoilt[0].time = end > 1.0 ? -end : 0.0;
        spoilt[1].time = end;
        EXPECT_EQ(status(spoilt, 0.0), KL_ERR) << end;
    }
    spoilt = good.states;
    spoilt[3].vel[1] = kNan;
    EXPECT_EQ(status(spoilt, 150.0), KL_ERR);
    EXPECT_EQ(status(spoilt, 900.0), KL_OK); // not among the six
    EXPECT_EQ(kl_interpolate_states(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), KL_ERR);
}

} // namespace
