// Precession: J. H. Lieske, Astron. Astrophys. 73, 282 (1979), IAU 1976, angles in rounded degrees.
#ifndef KL_SRC_FRAMES_PRECESSION_H
#define KL_SRC_FRAMES_PRECESSION_H

#include "frames/frames.h"

inline namespace KL_SET {

// Angles with their first two derivatives: rad, rad/s, rad/s2.
template <class T>
struct PrecessionOf {
    T zeta[3], z[3], theta[3];
};

// c1 T + c2 T^2 + c3 T^3, degrees, T in Julian centuries.
template <class T>
void precession_angle(double c1, double c2, double c3, T t, T out[3])
{
    constexpr double kDegPerCentury = KL_RAD_PER_DEG / KL_SECONDS_PER_CENTURY;        // to rad/s
    constexpr double kDegPerCenturySquared = kDegPerCentury / KL_SECONDS_PER_CENTURY; // to rad/s2
    out[0] = (c1 + (c2 + c3 * t) * t) * t * KL_RAD_PER_DEG;
    out[1] = (c1 + (2.0 * c2 + 3.0 * c3 * t) * t) * kDegPerCentury;
    out[2] = (2.0 * c2 + 6.0 * c3 * t) * kDegPerCenturySquared;
}

template <class T>
PrecessionOf<T> precession_at(T days)
{
    const T t = (days - KL_J2000_DAYS) / KL_DAYS_PER_CENTURY;
    PrecessionOf<T> angles;
    precession_angle(0.6406161, 0.0000839, 0.0000050, t, angles.zeta);
    precession_angle(0.6406161, 0.0003041, 0.0000051, t, angles.z);
    precession_angle(0.5567530, -0.0001185, -0.0000116, t, angles.theta);
    return angles;
}

// P = Rz(-pi/2 - z) Rx(theta) Rz(pi/2 - zeta) = Rz(-z) Ry(theta) Rz(-zeta)
template <class T>
Turns<T> precession_turns(const PrecessionOf<T> &p)
{
    return turns_by<T>({{2, -p.zeta[0], -p.zeta[1], -p.zeta[2]},
                        {1, p.theta[0], p.theta[1], p.theta[2]},
                        {2, -p.z[0], -p.z[1], -p.z[2]}});
}

} // namespace KL_SET

#endif
