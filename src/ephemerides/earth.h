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

// Places in the arrays of angles: those that depend on the date alone, and those that need them.
enum EarthAngle {
    kShortAngle = 0,
    kLongAngle = kShortAngle + 15,
    kLunarAngle = kLongAngle + 4,
    kLatitudeArgument = kLunarAngle + 3,
    kAnomaly,
    kEarthAngles
};
enum LateEarthAngle { kTrueAnomaly, kLongitude, kMoonLongitude, kMoonLatitude, kLateEarthAngles };
enum GiantAngle {
    kPerihelionAngle = 0,
    kFromPerihelion = kPerihelionAngle + kGiants, // mean longitude from the perihelion
    kFromNode = kFromPerihelion + kGiants,        // mean longitude from the node
    kGiantAngles = kFromNode + kGiants
};
enum LateGiantAngle { kGiantLongitude = 0, kGiantLatitude = kGiants, kLateGiantAngles = 2 * kGiants };

// AU, AU/s.
template <class T>
struct Orbit {
    T pos[3], vel[3];
};

template <class T>
T at(const QuadraticElement &element, T t)
{
    return element.c1 + t * (element.c2 + t * element.c3);
}

// Around the Sun, ecliptic of date; t: Julian centuries from 1900.
template <class T>
Orbit<T> around_sun(T t)
{
    T fast[kGiantL];
    for (int k = 0; k < kGiantL; ++k)
        fast[k] = reduced(at(kDcfel[k], t));
    T angle[kEarthAngles], s[kEarthAngles], c[kEarthAngles];
    for (int k = 0; k < 15; ++k)
        angle[kShortAngle + k] = kDcargs[k].phase + t * kDcargs[k].rate;
    for (int k = 0; k < 4; ++k)
        angle[kLongAngle + k] = kCcsec[k].phase + t * kCcsec[k].rate;
    for (int k = 0; k < 3; ++k)
        angle[kLunarAngle + k] = kDcargm[k].phase + t * kDcargm[k].rate;
    angle[kLatitudeArgument] = fast[kF];
    angle[kAnomaly] = fast[kG];
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
    const T e = at(kCcsel[kE], t);
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

    T late[kLateEarthAngles], s2[kLateEarthAngles], c2[kLateEarthAngles];
    late[kTrueAnomaly] = fast[kG] + phi;
    late[kLongitude] = fast[kL] + phi + dlon;
    late[kMoonLongitude] = fast[kMoonL] + moon_lon;
    late[kMoonLatitude] = kCcim * s[kLatitudeArgument];
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
    return {
        {radius * cos_lon - moon_flat * cos_moon, radius * sin_lon - moon_flat * sin_moon, -sigma * s2[kMoonLatitude]},
        {radial * cos_lon - across * sin_lon + moon_across * sin_moon + moon_radial * cos_moon,
         radial * sin_lon + across * cos_lon - moon_across * cos_moon + moon_radial * sin_moon,
         -sigma * kCcfdi * c[kLatitudeArgument]}};
}

// The same around the barycentre of the solar system: from there to the Sun, which the giants move.
template <class T>
Orbit<T> around_barycentre(const Orbit<T> &heliocentric, T t)
{
    T longitude[kGiants], e[kGiants], inclination[kGiants];
    T angle[kGiantAngles], s[kGiantAngles], c[kGiantAngles];
    for (int k = 0; k < kGiants; ++k) {
        longitude[k] = reduced(at(kDcfel[kGiantL + k], t));
        e[k] = at(kCcsel[kGiantE + k], t);
        inclination[k] = at(kCcsel[kInclination + k], t);
        const T perihelion = at(kCcsel[kPerihelion + k], t);
        angle[kPerihelionAngle + k] = perihelion;
        angle[kFromPerihelion + k] = longitude[k] - perihelion;
        angle[kFromNode + k] = longitude[k] - at(kCcsel[kNode + k], t);
    }
    sin_cos(angle, s, c);
    T late[kLateGiantAngles], s2[kLateGiantAngles], c2[kLateGiantAngles];
    for (int k = 0; k < kGiants; ++k) {
        late[kGiantLongitude + k] = longitude[k] + 2.0 * e[k] * s[kFromPerihelion + k];
        late[kGiantLatitude + k] = inclination[k] * s[kFromNode + k];
    }
    sin_cos(late, s2, c2);

    Orbit<T> out;
    for (int i = 0; i < 3; ++i) {
        out.vel[i] = kDc1mme * heliocentric.vel[i];
        out.pos[i] = kDc1mme * heliocentric.pos[i];
    }
    for (int k = 0; k < kGiants; ++k) {
        const T sin_theta = s2[kGiantLongitude + k], cos_theta = c2[kGiantLongitude + k];
        out.vel[0] += kCcpamv[k] * (sin_theta + e[k] * s[kPerihelionAngle + k]);
        out.vel[1] -= kCcpamv[k] * (cos_theta + e[k] * c[kPerihelionAngle + k]);
        out.vel[2] -= kCcpamv[k] * inclination[k] * c[kFromNode + k];
        const T distance = kCcpam[k] * (1.0 - e[k] * c[kFromPerihelion + k]);
        const T flat = distance * c2[kGiantLatitude + k];
        out.pos[0] -= flat * cos_theta;
        out.pos[1] -= flat * sin_theta;
        out.pos[2] -= distance * s2[kGiantLatitude + k];
    }
    return out;
}

// From the ecliptic of a date to the mean equator, and the FK5 equinox, of the Julian epoch deqx, or of the date for 0.
template <class T>
class ToEquator {
public:
    ToEquator(T date, T t, double deqx) : precesses_(deqx > 0.0)
    {
        const T epoch = julian_epoch(date);
        q_ = equinox_correction(epoch);
        sin_cos(at(kDceps, t), sin_eps_, cos_eps_);
        if (precesses_)
            precession_between(epoch, T(deqx), precession_);
    }

    void turn(T v[3]) const
    {
        const T y = v[1] * cos_eps_ - v[2] * sin_eps_;
        const T z = v[1] * sin_eps_ + v[2] * cos_eps_;
        const T of_date[3] = {v[0] - q_ * y, y + q_ * v[0], z}; // q to first order
        for (int i = 0; i < 3; ++i)
            v[i] = precesses_ ? dot3(precession_[i], of_date) : of_date[i];
    }
    void turn(Orbit<T> *orbit) const
    {
        turn(orbit->pos);
        turn(orbit->vel);
    }

private:
    bool precesses_;
    T q_, sin_eps_, cos_eps_, precession_[3][3];
};

template <class T>
T centuries_of(T date)
{
    return (date - kMjd1900) / KL_DAYS_PER_CENTURY;
}

constexpr double kJ2000Equinox = 2000.0;

} // namespace earth_ephemeris

// Barycentric and heliocentric velocity and position, AU and AU/s, equator and equinox of the Julian epoch deqx, or of
// the date for 0.
template <class T>
void earth_vectors(T dvb[3], T dpb[3], T dvh[3], T dph[3], T date, double deqx)
{
    using namespace earth_ephemeris;
    const T t = centuries_of(date);
    Orbit<T> heliocentric = around_sun(t);
    Orbit<T> barycentric = around_barycentre(heliocentric, t);
    const ToEquator<T> to_equator(date, t, deqx);
    to_equator.turn(&heliocentric);
    to_equator.turn(&barycentric);
    for (int i = 0; i < 3; ++i) {
        dvb[i] = barycentric.vel[i];
        dpb[i] = barycentric.pos[i];
        dvh[i] = heliocentric.vel[i];
        dph[i] = heliocentric.pos[i];
    }
}

template <class T>
EarthStates<T> earth_states(T tdb_days)
{
    T vb[3], pb[3], vh[3], ph[3];
    earth_vectors(vb, pb, vh, ph, T(kMjdOfDayZero + tdb_days), earth_ephemeris::kJ2000Equinox);
    return {in_metres(pb, vb), in_metres(ph, vh)};
}

// The same without the barycentre, which costs as much again.
template <class T>
BodyState<T> heliocentric_earth(T tdb_days)
{
    using namespace earth_ephemeris;
    const T date = kMjdOfDayZero + tdb_days;
    const T t = centuries_of(date);
    Orbit<T> heliocentric = around_sun(t);
    ToEquator<T>(date, t, kJ2000Equinox).turn(&heliocentric);
    return in_metres(heliocentric.pos, heliocentric.vel);
}

} // namespace KL_SET

#endif
