// The place of a star: space motion, parallax, deflection and aberration.
#ifndef KL_SRC_STARS_PLACE_H
#define KL_SRC_STARS_PLACE_H

#include "kl/stars.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

constexpr long kEveryCorrection = KL_STAR_PARALLAX | KL_STAR_ABERRATION | KL_STAR_DEFLECTION;
constexpr double KL_TRUE_AU = 149597870700.0; // m, IAU 2012 resolution B2

struct Observer {
    double barycentric[3];  // m, mean equator of J2000
    double velocity[3];     // m/s, from the barycentre
    double heliocentric[3]; // m
};

// What all stars share at one instant.
struct Sight {
    double tdb; // MJD2000
    bool parallax, aberration, deflection;
    bool light_time;        // dates count from the barycentre
    double barycentric[3];  // AU
    double velocity[3];     // of light
    double slowness;        // sqrt(1 - v^2)
    double from_sun[3];     // unit vector
    double potential;       // 2 G M / (c^2 r) of the Sun at the observer
    double nearest_to_line; // bound of the deflection beside the Sun
};

// False when the observer is not finite, not slower than light, or at the centre of the Sun.
bool prepare_sight(const Observer &observer, double tdb, long corrections, Sight *sight);
// Only the motion in space, seen from the barycentre.
Sight space_motion_only(double tdb);

inline namespace KL_SET {

// What a place needs of a star, in the units of kl_star: one, or a pack of them.
template <class T>
struct StarOf {
    T ra, dec, pm_ra, pm_dec, parallax, radial_velocity, epoch, magnitude;
};

inline StarOf<double> star_of(const kl_star &star)
{
    return {star.ra,    star.dec,      star.pm_ra, star.pm_dec, star.parallax, star.radial_velocity,
            star.epoch, star.magnitude};
}

// Is a star one that a place can be computed for?
template <class T>
mask_of<T> in_range(const StarOf<T> &star)
{
    constexpr double kFastest = 1e6; // mas/yr
    constexpr double kNearest = 1e4; // mas
    constexpr double kSpeed = 3e5;   // km/s
    constexpr double kYear1750 = -91312.5;
    constexpr double kYear2300 = 109573.5;
    return (fabs(star.ra) <= 360.0) & (fabs(star.dec) <= 90.0) & (fabs(star.pm_ra) <= kFastest)
           & (fabs(star.pm_dec) <= kFastest) & (fabs(star.parallax) <= kNearest)
           & (fabs(star.radial_velocity) <= kSpeed) & (kYear1750 <= star.epoch) & (star.epoch <= kYear2300)
           & (fabs(star.magnitude) <= KL_LARGEST_NUMBER);
}

template <class T>
T dot_with(const double *a, const T *b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Motion in space. The date counts from where the light passes the barycentre. Not of unit length.
template <class T>
void moved(const Sight &sight, const StarOf<T> &star, T (&u)[3])
{
    constexpr double kVelocityToMotion = 0.210949526569698; // km/s times rad of parallax, per Julian year
    constexpr double kAuInYears = KL_TRUE_AU / (KL_SPEED_OF_LIGHT * KL_SECONDS_PER_DAY * KL_DAYS_PER_YEAR);
    const T angles[2] = {star.ra, star.dec};
    T s[2], c[2];
    sin_cos_degrees(angles, s, c);
    const T p[3] = {c[1] * c[0], c[1] * s[0], s[1]};
    const T east[3] = {-s[0], c[0], T(0.0)};
    const T north[3] = {-s[1] * c[0], -s[1] * s[0], c[1]};
    const T parallax = greater(star.parallax, T(0.0)) * KL_RAD_PER_MAS;
    const T roemer = sight.light_time ? dot_with(sight.barycentric, p) * kAuInYears : T(0.0);
    const T years = (sight.tdb - star.epoch) / KL_DAYS_PER_YEAR + roemer;
    const T along = kVelocityToMotion * star.radial_velocity * parallax;
    const T mu_e = star.pm_ra * KL_RAD_PER_MAS;
    const T mu_n = star.pm_dec * KL_RAD_PER_MAS;
    const T shift = sight.parallax ? parallax : T(0.0);
    for (int i = 0; i < 3; ++i)
        u[i] = p[i] + years * (mu_e * east[i] + mu_n * north[i] + along * p[i]) - shift * sight.barycentric[i];
}

// Unit vector, mean equator of J2000.
template <class T>
void place_of(const Sight &sight, const StarOf<T> &star, T (&place)[3])
{
    T u[3];
    moved(sight, star, u);
    const T length = sqrt(dot3(u, u));
    for (T &component : u)
        component = component / length;

    // Deflection by the Sun: Urban and Seidelmann (eds), Explanatory Supplement to the Astronomical Almanac
    // (2013), 7.63.
    if (sight.deflection) {
        const double *e = sight.from_sun;
        const T toward = dot_with(e, u);
        const T uu = dot3(u, u);
        const T size = sight.potential / greater(T(uu + toward), T(sight.nearest_to_line));
        const T across[3] = {e[1] * u[2] - e[2] * u[1], e[2] * u[0] - e[0] * u[2], e[0] * u[1] - e[1] * u[0]};
        const T by[3] = {u[1] * across[2] - u[2] * across[1], u[2] * across[0] - u[0] * across[2],
                         u[0] * across[1] - u[1] * across[0]};
        for (int i = 0; i < 3; ++i)
            u[i] = u[i] + size * by[i];
    }

    // Aberration, with the Sun's potential at the observer: S. A. Klioner, Astron. J. 125, 1580 (2003).
    if (sight.aberration) {
        const double *v = sight.velocity;
        const T uv = dot_with(v, u);
        const T w1 = 1.0 + uv / (1.0 + sight.slowness);
        for (int i = 0; i < 3; ++i)
            u[i] = sight.slowness * u[i] + w1 * v[i] + sight.potential * (v[i] - uv * u[i]);
    }
    const T norm = sqrt(dot3(u, u));
    for (int i = 0; i < 3; ++i)
        place[i] = u[i] / norm;
}

// Right ascension and declination of a direction, deg.
template <class T>
void radec_of_direction(const T (&place)[3], T &ra, T &dec)
{
    const T x = place[0];
    const T y = place[1];
    const auto upright = (x == 0.0) & (y == 0.0);
    ra = select(upright, T(0.0), reduced_to_360(T(arc_tangent(y, x) * KL_DEG_PER_RAD)) + 0.0);
    dec = arc_tangent(place[2], T(sqrt(x * x + y * y))) * KL_DEG_PER_RAD + 0.0;
}

} // namespace KL_SET

#endif
