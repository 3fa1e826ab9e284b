// Fundamental arguments of the IERS nutation: l, l', F, D, Om, the mean longitudes of Mercury to Neptune, and the
// general precession in longitude.
// Source: IERS Conventions (2010), equations 5.43 and 5.44.
#ifndef KL_SRC_ORIENTATION_FUNDAMENTAL_ARGUMENTS_H
#define KL_SRC_ORIENTATION_FUNDAMENTAL_ARGUMENTS_H

#include "numbers/constants.h"
#include "numbers/sin_cos.h"

inline namespace KL_SET {

// Degrees at J2000.0, then arcseconds by powers of t (Julian centuries from J2000.0).
struct LunisolarArgument {
    double degrees, c1, c2, c3, c4;
};
constexpr LunisolarArgument kLunisolar[5] = {
    {134.96340251, 1717915923.2178, 31.8792, 0.051635, -0.00024470}, // l, mean anomaly of the Moon
    {357.52910918, 129596581.0481, -0.5532, 0.000136, -0.00001149},  // l', of the Sun
    {93.27209062, 1739527262.8478, -12.7512, -0.001037, 0.00000417}, // F = L - Om
    {297.85019547, 1602961601.2090, -6.3706, 0.006593, -0.00003169}, // D, elongation of the Moon from the Sun
    {125.04455501, -6962890.5431, 7.4722, 0.007702, -0.00005939},    // Om, ascending node of the Moon
};

// Radians, radians a century.
constexpr double kPlanetLongitude[8][2] = {
    {4.402608842, 2608.7903141574}, {3.176146697, 1021.3285546211}, {1.753470314, 628.3075849991},
    {6.203480913, 334.0612426700},  {0.599546497, 52.9690962641},   {0.874016757, 21.3299104960},
    {5.481293872, 7.4781598567},    {5.311886287, 3.8133035638},
};

// Radians, -pi to pi.
template <class T>
inline T lunisolar_argument(const LunisolarArgument &a, const T &t)
{
    return reduced((a.degrees * 3600.0 + t * (a.c1 + t * (a.c2 + t * (a.c3 + t * a.c4)))) * KL_RAD_PER_ARCSEC);
}

inline void fundamental_arguments(double t, double (&out)[14])
{
    for (int i = 0; i < 5; ++i)
        out[i] = lunisolar_argument(kLunisolar[i], t);
    for (int i = 0; i < 8; ++i)
        out[5 + i] = reduced(kPlanetLongitude[i][0] + kPlanetLongitude[i][1] * t);
    out[13] = (0.02438175 + 0.00000538691 * t) * t;
}

} // namespace KL_SET

#endif
