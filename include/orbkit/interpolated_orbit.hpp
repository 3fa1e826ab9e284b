/**
 * @file interpolated_orbit.hpp
 */
#ifndef ORBKIT_INTERPOLATED_ORBIT_HPP
#define ORBKIT_INTERPOLATED_ORBIT_HPP

#include "state_vectors.hpp"

#include <vector>

namespace ORBKIT {

/**
 * States in memory, and Hermite's polynomial of degree 11 through the six nearest between them: see
 * kl_interpolate_states. Of a low orbit within 1e-7 m for states a minute apart and 1e-6 m for five minutes, 1e-5 m in
 * the first and last step; error() tells a bound where the motion is smooth and the velocities are those of the
 * positions. (Those of MeanMotion are it to a centimetre a second.) Nothing is extrapolated: an instant outside is a
 * KitError.
 *
 * @code{.cpp}
 * const ORBKIT::Time first("2026-06-21T00:00:00");
 * const double rate = 0.06; // deg/s
 * const double a = std::cbrt(3.9860044e14 / std::pow(rate / 57.29577951308232, 2));
 * const auto truth = [&](const ORBKIT::Time &time) { // Kepler's motion
 *     const double anomaly = rate * 1e-6 * static_cast<double>((time - first).count());
 *     const kl_kepler elements = {a, 0.001, 98.6, 250.0, 90.0, anomaly};
 *     return ORBKIT::StateVector::fromKepler(elements, ORBKIT::Elements::osculating, ORBKIT::Frame::TOD, time);
 * };
 * ORBKIT::StateVectors states(ORBKIT::Frame::TOD);
 * for (int i = 0; i < 30; ++i)
 *     states.add(truth(first + std::chrono::minutes(5 * i)));
 * const ORBKIT::InterpolatedOrbit orbit(states);
 * const ORBKIT::Time between = first + std::chrono::seconds(3450);
 * const double off = std::fabs(orbit(between).pos()[0] - truth(between).pos()[0]); // m
 * std::printf("%d %d\n", off < 1e-6, orbit.error(between) < 1e-3); // -> 1 1
 * @endcode
 */
class InterpolatedOrbit {
public:
    /** States in the order of time, two or more. @throws KitError where they are not */
    explicit InterpolatedOrbit(const StateVectors &states) : frame_(states.frame()), models_(&states.models())
    {
        if (states.size() < 2)
            throw_messages({"Interpolation needs two states.", "InterpolatedOrbit"});
        first_ = states.times().front();
        last_ = states.times().back();
        states_.reserve(states.size());
        for (std::size_t i = 0; i < states.size(); ++i) {
            if (i > 0 && !(states.times()[i - 1] < states.times()[i]))
                throw_messages({"The states must be in the order of time.", "InterpolatedOrbit"});
            const Vector &p = states.pos()[i];
            const Vector &v = states.vel()[i];
            states_.push_back({seconds(states.times()[i]), {p[0], p[1], p[2]}, {v[0], v[1], v[2]}});
        }
    }

    const Time &first() const { return first_; }
    const Time &last() const { return last_; }

    StateVector operator()(const Time &time) const
    {
        Vector pos{}, vel{};
        at(time, &pos, &vel);
        return StateVector(pos, vel, frame_, time, *models_);
    }
    /** How far the same polynomial with one state fewer is, m. */
    double error(const Time &time) const
    {
        Vector pos{}, vel{};
        return at(time, &pos, &vel);
    }

private:
    double seconds(const Time &time) const { return static_cast<double>((time - first_).count()) * 1e-6; }

    double at(const Time &time, Vector *pos, Vector *vel) const
    {
        const long n = static_cast<long>(states_.size());
        const double t = seconds(time);
        double error = 0.0;
        if (kl_interpolate_states(&n, states_.data(), &t, pos->data(), vel->data(), &error, nullptr) == KL_ERR)
            throw_messages({"There are no states around the instant, or they are no numbers.", "InterpolatedOrbit"});
        return error;
    }

    Frame frame_;
    const ModelId *models_;
    Time first_, last_;
    std::vector<kl_state_at> states_;
};

} // namespace ORBKIT

#endif
