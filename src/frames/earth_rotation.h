// Sidereal angle and polar motion.
#ifndef KL_SRC_FRAMES_EARTH_ROTATION_H
#define KL_SRC_FRAMES_EARTH_ROTATION_H

#include "frames/nutation.h"
#include "time/pole.h"

inline namespace KL_SET {

// An angle with its first two derivatives: deg, deg/s, deg/s2.
template <class T>
struct AngleOf {
    T value, rate, rate_of_rate;
};

// Daily turns above one a day: the whole turns are exact, and what is left keeps eight more bits.
template <class T>
T polynomial_degrees(double c0, double c1, double c2, T d)
{
    const T fraction = d - floor(d);
    return c0 + 360.0 * fraction + (c1 - 360.0) * d + c2 * d * d;
}

// Apparent sidereal angle: the mean one of 1982, S. Aoki et al., Astron. Astrophys. 105, 359 (1982), as the model
// record has it, and the equation of the equinoxes.
template <class T>
AngleOf<T> sidereal_angle(const EarthModel &earth, T ut1_days, const NutationOf<T> &nutation)
{
    constexpr double kDay = KL_SECONDS_PER_DAY;
    const double c1 = earth.angle[1];
    const double c2 = earth.angle[2];
    T q[3];
    equation_of_equinoxes(nutation, q);
    return {reduced_to_360(polynomial_degrees(earth.angle[0], c1, c2, ut1_days) + q[0] * KL_DEG_PER_RAD),
            (2.0 * c2 * ut1_days + c1) / kDay + q[1] * KL_DEG_PER_RAD,
            2.0 * c2 / (kDay * kDay) + q[2] * KL_DEG_PER_RAD};
}

template <class T>
AngleOf<T> linear_sidereal_angle(const EarthModel &earth, T ut1_days)
{
    const double c14 = earth.angle_sim[1];
    return {reduced_to_360(polynomial_degrees(earth.angle_sim[0], c14, 0.0, ut1_days)), c14 / KL_SECONDS_PER_DAY, 0.0};
}

// Has the model one? Refused selections leave zeros.
inline bool has_linear_angle(const EarthModel &earth)
{
    return earth.angle_sim[1] != 0.0;
}

template <class T>
Turns<T> z_turn(const AngleOf<T> &degrees)
{
    return turns_by<T>(
        {{2, degrees.value * KL_RAD_PER_DEG, degrees.rate * KL_RAD_PER_DEG, degrees.rate_of_rate * KL_RAD_PER_DEG}});
}

template <class T>
mask_of<T> has_no_pole(const PoleOf<T> &pole)
{
    return (pole.x == 0.0) & (pole.y == 0.0) & (pole.x_rate == 0.0) & (pole.y_rate == 0.0);
}

// W = Ry(-xp) Rx(-yp); the identity, without sines, where there is no pole.
template <class T>
Turns<T> polar_motion_turns(const PoleOf<T> &pole)
{
    if (all(has_no_pole(pole)))
        return {};
    return turns_by<T>({{0, -pole.y, -pole.y_rate, 0.0}, {1, -pole.x, -pole.x_rate, 0.0}});
}

} // namespace KL_SET

#endif
