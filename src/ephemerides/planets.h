// The planets: heliocentric state, J. L. Simon et al., Astron. Astrophys. 282, 663 (1994).
#ifndef KL_SRC_EPHEMERIDES_PLANETS_H
#define KL_SRC_EPHEMERIDES_PLANETS_H

#include "ephemerides/ephemerides.h"
#include "ephemerides/planet_tables.h"
#include "numbers/elementary.h"

inline namespace KL_SET {
namespace planet_ephemeris {

// Degrees, arcsec and arcsec to rad.
template <class T>
T angle_at(const double c[3], T t)
{
    return (3600.0 * c[0] + (c[1] + c[2] * t) * t) * KL_RAD_PER_ARCSEC;
}

} // namespace planet_ephemeris

// Position and velocity, mean equator and equinox of J2000: AU, AU/s; t in millennia from J2000.0. `converged` tells
// whether Kepler's equation was solved.
template <class T>
void planet_vectors(const PlanetTable &planet, T t, T pv[6], mask_of<T> *converged)
{
    using namespace planet_ephemeris;
    // Mean elements, then the trigonometric terms of the axis and of the mean longitude.
    T a = planet.a[0] + (planet.a[1] + planet.a[2] * t) * t; // AU
    const T e = planet.e[0] + (planet.e[1] + planet.e[2] * t) * t;
    T longitude = angle_at(planet.dlm, t);
    const T perihelion = reduced(angle_at(planet.pi, t));
    const T mu = kDmu * t;
    constexpr int kAxis = 0, kLongitude = 9, kPerihelion = 19, kNode = 20, kHalfInclination = 21;
    T angle[22], s[22], c[22];
    for (int j = 0; j < 9; ++j)
        angle[kAxis + j] = planet.kp[j] * mu;
    for (int j = 0; j < 10; ++j)
        angle[kLongitude + j] = planet.kq[j] * mu;
    angle[kPerihelion] = perihelion;
    angle[kNode] = angle_at(planet.omega, t);
    angle[kHalfInclination] = angle_at(planet.dinc, t) / 2.0;
    sin_cos(angle, s, c);
    for (int j = 0; j < 9; ++j)
        a += (j < 8 ? T(1.0) : t) * (planet.ca[j] * c[kAxis + j] + planet.sa[j] * s[kAxis + j]) * 1e-7;
    for (int j = 0; j < 10; ++j)
        longitude +=
            (j < 8 ? T(1.0) : t) * (planet.cl[j] * c[kLongitude + j] + planet.sl[j] * s[kLongitude + j]) * 1e-7;
    longitude = reduced(longitude);

    // Kepler's equation by Newton steps.
    constexpr int kMostSteps = 10;
    constexpr double kConverged = 1e-12; // rad
    const T m = longitude - perihelion;
    T ea = m + e * sine_cosine(m).s;
    T step = 0.0;
    auto going_on = fabs(ea) >= 0.0; // a number
    for (int k = 0; k < kMostSteps && any(going_on); ++k) {
        const SineCosine<T> now = sine_cosine(ea);
        const T next = (m - ea + e * now.s) / (1.0 - e * now.c);
        step = select(going_on, next, step);
        ea = select(going_on, ea + next, ea);
        going_on = going_on & !(fabs(step) <= kConverged);
    }
    *converged = fabs(step) <= kConverged;

    // Radius (AU), true anomaly nu, argument u of the latitude, mean motion (rad/s).
    const SineCosine<T> eccentric = sine_cosine(ea);
    const T root = sqrt(1.0 - e * e);
    const T per_axis = 1.0 - e * eccentric.c;
    const T sin_nu = root * eccentric.s / per_axis, cos_nu = (eccentric.c - e) / per_axis;
    const T r = a * per_axis;
    const T n = kGks * sqrt((1.0 + 1.0 / planet.amas) / (a * a * a));
    const T sin_u = sin_nu * c[kPerihelion] + cos_nu * s[kPerihelion];
    const T cos_u = cos_nu * c[kPerihelion] - sin_nu * s[kPerihelion];

    // Position and velocity of the Kepler motion, ecliptic of J2000. The rates of the elements are neglected.
    const T q = s[kHalfInclination] * c[kNode];
    const T p = s[kHalfInclination] * s[kNode];
    const T ci = c[kHalfInclination];
    const T xms = 2.0 * (p * cos_u - q * sin_u);
    const T k = a / root;
    const T sigma = (e * s[kPerihelion] + sin_u) * k;
    const T gamma = (e * c[kPerihelion] + cos_u) * k;
    const T h = 2.0 * p * q;
    const T pos[3] = {r * (cos_u - xms * p), r * (sin_u + xms * q), -r * xms * ci};
    const T vel[3] = {n * ((2.0 * p * p - 1.0) * sigma + h * gamma), n * ((1.0 - 2.0 * q * q) * gamma - h * sigma),
                      n * 2.0 * ci * (p * sigma + q * gamma)};

    // Mean equator of J2000.
    pv[0] = pos[0];
    pv[1] = pos[1] * kCoseps - pos[2] * kSineps;
    pv[2] = pos[1] * kSineps + pos[2] * kCoseps;
    pv[3] = vel[0];
    pv[4] = vel[1] * kCoseps - vel[2] * kSineps;
    pv[5] = vel[1] * kSineps + vel[2] * kCoseps;
}

// Millennia of a date.
template <class T>
T planet_millennia(T mjd)
{
    return (mjd - kMjdOfJ2000) / 365250.0;
}

// In metres.
template <class T>
BodyState<T> planet_state(int planet, T tdb_days, mask_of<T> *converged)
{
    T pv[6];
    planet_vectors(kPlanets[planet - 1], planet_millennia(T(kMjdOfDayZero + tdb_days)), pv, converged);
    return in_metres(pv, pv + 3);
}

} // namespace KL_SET

#endif
