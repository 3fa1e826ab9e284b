// The Earth: barycentric and heliocentric state, P. Stumpff, Astron. Astrophys. Suppl. Ser. 41, 1-8 (1980).
#ifndef KL_SRC_EPHEMERIDES_EARTH_H
#define KL_SRC_EPHEMERIDES_EARTH_H

#include "ephemerides/earth_tables.h"
#include "ephemerides/equinox.h"

#include <cstddef>

// States in metres, J2000.
template <class T>
struct EarthStates {
    BodyState<T> barycentric, heliocentric;
};

inline namespace KL_SET {
namespace earth_ephemeris {

// The four planets that move the Sun: Jupiter, Saturn, Uranus, Neptune.
constexpr int kGiants = 4;

// Rows of the fast and of the slow elements.
enum FastElement { kL, kG, kMoonL, kF, kGiantL };
enum SlowElement {
    kE,
    kPerihelion,
    kNode = kPerihelion + kGiants,
    kGiantE = kNode + kGiants,
    kInclination = kGiantE + kGiants
};

// Places in the array of all angles that depend on the date alone.
enum EarthAngle {
    kShortAngle = 0,
    kLongAngle = kShortAngle + 15,
    kLunarAngle = kLongAngle + 4,
    kPerihelionAngle = kLunarAngle + 3,
    kFromPerihelion = kPerihelionAngle + kGiants, // mean longitude from the perihelion
    kFromNode = kFromPerihelion + kGiants,        // mean longitude from the node
    kLatitudeArgument = kFromNode + kGiants,
    kAnomaly,
    kObliquity,
    kNAngles
};

// The angles that need the first ones.
enum LateEarthAngle {
    kTrueAnomaly,
    kLongitude,
    kMoonLongitude,
    kMoonLatitude,
    kGiantLongitude,
    kGiantLatitude = kGiantLongitude + 4,
    kNLate = kGiantLatitude + 4
};

template <class T>
T at(const QuadraticElement &element, T t)
{
    return element.c1 + t * (element.c2 + t * element.c3);
}

// Ecliptic of date to mean equator of date, then to the FK5 equinox (to first order, q small).
template <class T>
void to_equator(T v[3], T sin_eps, T cos_eps, T q)
{
    const T y = v[1] * cos_eps - v[2] * sin_eps;
    const T z = v[1] * sin_eps + v[2] * cos_eps;
    const T x = v[0];
    v[0] = x - q * y;
    v[1] = y + q * x;
    v[2] = z;
}

template <class T>
void turn(const T matrix[3][3], T v[3])
{
    const T x = v[0], y = v[1], z = v[2];
    for (int i = 0; i < 3; ++i)
        v[i] = matrix[i][0] * x + matrix[i][1] * y + matrix[i][2] * z;
}

} // namespace earth_ephemeris

// Barycentric and heliocentric velocity and position, AU and AU/s, equator and equinox of the Julian epoch deqx, or of
// the date for 0.
template <class T>
void earth_vectors(T dvb[3], T dpb[3], T dvh[3], T dph[3], T date, double deqx)
{
    using namespace earth_ephemeris;
    const T t = (date - kMjd1900) / kDaysPerCentury;

    T fast[sizeof kDcfel / sizeof kDcfel[0]];
    for (std::size_t k = 0; k < sizeof kDcfel / sizeof kDcfel[0]; ++k)
        fast[k] = reduced(at(kDcfel[k], t));
    T slow[sizeof kCcsel / sizeof kCcsel[0]];
    for (std::size_t k = 0; k < sizeof kCcsel / sizeof kCcsel[0]; ++k)
        slow[k] = at(kCcsel[k], t);

    T angle[kNAngles], s[kNAngles], c[kNAngles];
    for (int k = 0; k < 15; ++k)
        angle[kShortAngle + k] = kDcargs[k].phase + t * kDcargs[k].rate;
    for (int k = 0; k < 4; ++k)
        angle[kLongAngle + k] = kCcsec[k].phase + t * kCcsec[k].rate;
    for (int k = 0; k < 3; ++k)
        angle[kLunarAngle + k] = kDcargm[k].phase + t * kDcargm[k].rate;
    for (int k = 0; k < kGiants; ++k) {
        angle[kPerihelionAngle + k] = slow[kPerihelion + k];
        angle[kFromPerihelion + k] = fast[kGiantL + k] - slow[kPerihelion + k];
        angle[kFromNode + k] = fast[kGiantL + k] - slow[kNode + k];
    }
    angle[kLatitudeArgument] = fast[kF];
    angle[kAnomaly] = fast[kG];
    angle[kObliquity] = at(kDceps, t);
    sin_cos(angle, s, c);

    // Perturbations of the longitude (rad, rad/s) and of the radius (factor, 1/s).
    T dlon = kCcsec[0].amplitude * s[kLongAngle] + kCcsec[1].amplitude * s[kLongAngle + 1]
             + (kCcsec[2].amplitude + t * kCcsec3) * s[kLongAngle + 2] + kCcsec[3].amplitude * s[kLongAngle + 3];
    T drad = 0.0, dlon_rate = 0.0, drad_rate = 0.0;
    for (int k = 0; k < 15; ++k) {
        const ShortPeriodAmplitude &a = kCcamps[k];
        const T sine = s[kShortAngle + k], cosine = c[kShortAngle + k];
        dlon += a.cos_longitude * cosine + a.sin_longitude * sine;
        drad += a.cos_radius * cosine + a.sin_radius * sine;
        dlon_rate += (a.sin_longitude * cosine - a.cos_longitude * sine) * a.rate;
        drad_rate += (a.sin_radius * cosine - a.cos_radius * sine) * a.rate;
    }

    // Equation of the centre, from the multiples of the mean anomaly.
    const T e = slow[kE];
    const T sin_g = s[kAnomaly];
    const T sin_2g = 2.0 * sin_g * c[kAnomaly];
    const T sin_3g = sin_g * (3.0 - 4.0 * sin_g * sin_g);
    const T phi = 2.0 * e * ((1.0 - e * e / 8.0) * sin_g + 5.0 * e * sin_2g / 8.0 + 13.0 * e * e * sin_3g / 24.0);

    // Motion of the Moon.
    T moon_lon = 0.0, moon_lon_rate = 0.0, parallax = 0.0, parallax_rate = 0.0;
    for (int k = 0; k < 3; ++k) {
        const LunarAmplitude &a = kCcampm[k];
        moon_lon += a.longitude * s[kLunarAngle + k];
        moon_lon_rate += a.longitude_rate * c[kLunarAngle + k];
        parallax += a.parallax * c[kLunarAngle + k];
        parallax_rate -= a.parallax_rate * s[kLunarAngle + k];
    }

    T late[kNLate], s2[kNLate], c2[kNLate];
    late[kTrueAnomaly] = fast[kG] + phi;
    late[kLongitude] = fast[kL] + phi + dlon;
    late[kMoonLongitude] = fast[kMoonL] + moon_lon;
    late[kMoonLatitude] = kCcim * s[kLatitudeArgument];
    for (int k = 0; k < kGiants; ++k) {
        late[kGiantLongitude + k] = fast[kGiantL + k] + 2.0 * slow[kGiantE + k] * s[kFromPerihelion + k];
        late[kGiantLatitude + k] = slow[kInclination + k] * s[kFromNode + k];
    }
    sin_cos(late, s2, c2);

    // Elliptic motion, then the perturbed motion of the barycentre of Earth and Moon.
    const T sin_f = s2[kTrueAnomaly], cos_f = c2[kTrueAnomaly];
    const T p = 1.0 - e * e;
    const T chi = p / (1.0 + e * cos_f);
    const T phi_rate = 2.0 * e * kCcsgd * ((1.0 + 1.5 * e * e) * cos_f + e * (1.25 - 0.5 * sin_f * sin_f));
    const T chi_rate = kCcsgd * e * sin_f / sqrt(p);
    const T rho = 1.0 + drad;
    const T radial = rho * (chi_rate + chi * drad_rate);
    const T across = rho * chi * (kDcsld + phi_rate + dlon_rate);
    const T sin_lon = s2[kLongitude], cos_lon = c2[kLongitude];

    // From the barycentre to the Earth.
    const T sin_moon = s2[kMoonLongitude], cos_moon = c2[kMoonLongitude];
    const T sigma = kCckm / (1.0 + parallax);
    const T moon_across = sigma * (kCcmld + moon_lon_rate);
    const T moon_radial = sigma * parallax_rate;
    const T radius = chi * rho;
    const T moon_flat = sigma * c2[kMoonLatitude];
    T vh[3] = {radial * cos_lon - across * sin_lon + moon_across * sin_moon + moon_radial * cos_moon,
               radial * sin_lon + across * cos_lon - moon_across * cos_moon + moon_radial * sin_moon,
               -sigma * kCcfdi * c[kLatitudeArgument]};
    T ph[3] = {radius * cos_lon - moon_flat * cos_moon, radius * sin_lon - moon_flat * sin_moon,
               -sigma * s2[kMoonLatitude]};

    // From the Sun to the barycentre of the solar system.
    T vb[3], pb[3];
    for (int i = 0; i < 3; ++i) {
        vb[i] = kDc1mme * vh[i];
        pb[i] = kDc1mme * ph[i];
    }
    for (int k = 0; k < kGiants; ++k) {
        const T ek = slow[kGiantE + k];
        const T sin_theta = s2[kGiantLongitude + k], cos_theta = c2[kGiantLongitude + k];
        vb[0] += kCcpamv[k] * (sin_theta + ek * s[kPerihelionAngle + k]);
        vb[1] -= kCcpamv[k] * (cos_theta + ek * c[kPerihelionAngle + k]);
        vb[2] -= kCcpamv[k] * slow[kInclination + k] * c[kFromNode + k];
        const T distance = kCcpam[k] * (1.0 - ek * c[kFromPerihelion + k]);
        const T flat = distance * c2[kGiantLatitude + k];
        pb[0] -= flat * cos_theta;
        pb[1] -= flat * sin_theta;
        pb[2] -= distance * s2[kGiantLatitude + k];
    }

    // Ecliptic of date to the mean equator of date, then from the date to the wanted equinox.
    const T epoch = julian_epoch(date);
    const T q = equinox_correction(epoch);
    T precession[3][3];
    if (deqx > 0.0)
        precession_between(epoch, T(deqx), precession);
    T *const from[] = {vb, pb, vh, ph};
    T *const to[] = {dvb, dpb, dvh, dph};
    for (int n = 0; n < 4; ++n) {
        to_equator(from[n], s[kObliquity], c[kObliquity], q);
        if (deqx > 0.0)
            turn(precession, from[n]);
        for (int i = 0; i < 3; ++i)
            to[n][i] = from[n][i];
    }
}

template <class T>
EarthStates<T> earth_states(T tdb_days)
{
    constexpr double kEquinox = 2000.0;
    T vb[3], pb[3], vh[3], ph[3];
    earth_vectors(vb, pb, vh, ph, T(kMjdOfDayZero + tdb_days), kEquinox);
    return {in_metres(pb, vb), in_metres(ph, vh)};
}

} // namespace KL_SET

#endif
