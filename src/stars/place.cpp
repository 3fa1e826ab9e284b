#include "stars/place.h"

#include "kl_family.h"
#include "numbers/numbers.h"
#include "numbers/sin_cos.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLight = KL_SPEED_OF_LIGHT;
constexpr double kDaysPerYear = 365.25;                 // Julian
constexpr double kSunPotential = 1.97412574336e-8;      // 2 G M / (c^2 AU)
constexpr double kVelocityToMotion = 0.210949526569698; // km/s times rad of parallax, per Julian year
constexpr double kRadPerMas = KL_RAD_PER_DEG / 3.6e6;

bool inside(double value, double low, double high)
{
    return low <= value && value <= high;
}

} // namespace

bool star_in_range(const kl_star &star)
{
    constexpr double kFastest = 1e6; // mas/yr
    constexpr double kNearest = 1e4; // mas
    constexpr double kSpeed = 3e5;   // km/s
    constexpr double kYear1750 = -91312.5;
    constexpr double kYear2300 = 109573.5;
    return inside(star.ra, -360.0, 360.0) && inside(star.dec, -90.0, 90.0) && inside(star.pm_ra, -kFastest, kFastest)
           && inside(star.pm_dec, -kFastest, kFastest) && inside(star.parallax, -kNearest, kNearest)
           && inside(star.radial_velocity, -kSpeed, kSpeed) && inside(star.epoch, kYear1750, kYear2300)
           && std::isfinite(star.magnitude);
}

bool prepare_sight(const Observer &observer, double tdb, long corrections, Sight *sight)
{
    *sight = {};
    sight->tdb = tdb;
    sight->parallax = (corrections & KL_STAR_PARALLAX) != 0;
    sight->aberration = (corrections & KL_STAR_ABERRATION) != 0;
    sight->deflection = (corrections & KL_STAR_DEFLECTION) != 0;
    sight->light_time = true;
    for (int i = 0; i < 3; ++i) {
        sight->barycentric[i] = observer.barycentric[i] / KL_TRUE_AU;
        sight->velocity[i] = observer.velocity[i] / kLight;
    }
    const double v2 = dot3(sight->velocity, sight->velocity);
    const double r = std::sqrt(dot3(observer.heliocentric, observer.heliocentric)) / KL_TRUE_AU;
    if (!std::isfinite(dot3(sight->barycentric, sight->barycentric)) || !(v2 < 1.0) || !(r > 0.0) || !std::isfinite(r)
        || !std::isfinite(tdb))
        return false;
    sight->slowness = std::sqrt(1.0 - v2);
    for (int i = 0; i < 3; ++i)
        sight->from_sun[i] = observer.heliocentric[i] / (r * KL_TRUE_AU);
    sight->potential = kSunPotential / r;
    sight->nearest_to_line = 1e-6 / std::max(r * r, 1.0);
    return true;
}

Sight space_motion_only(double tdb)
{
    Sight sight = {};
    sight.tdb = tdb;
    return sight;
}

void place_of(const Sight &sight, const kl_star &star, double place[3])
{
    double s[2], c[2];
    sin_cos_degrees({star.ra, star.dec}, s, c);
    const double p[3] = {c[1] * c[0], c[1] * s[0], s[1]};
    const double east[3] = {-s[0], c[0], 0.0};
    const double north[3] = {-s[1] * c[0], -s[1] * s[0], c[1]};

    // Motion in space. The date counts from where the light passes the barycentre.
    constexpr double kAuInYears = KL_TRUE_AU / (kLight * KL_SECONDS_PER_DAY * kDaysPerYear);
    const double parallax = std::max(star.parallax, 0.0) * kRadPerMas;
    const double roemer = sight.light_time ? dot3(p, sight.barycentric) * kAuInYears : 0.0;
    const double years = (sight.tdb - star.epoch) / kDaysPerYear + roemer;
    const double along = kVelocityToMotion * star.radial_velocity * parallax;
    const double mu_e = star.pm_ra * kRadPerMas;
    const double mu_n = star.pm_dec * kRadPerMas;
    const double shift = sight.parallax ? parallax : 0.0;
    double u[3];
    for (int i = 0; i < 3; ++i)
        u[i] = p[i] + years * (mu_e * east[i] + mu_n * north[i] + along * p[i]) - shift * sight.barycentric[i];
    const double length = std::sqrt(dot3(u, u));
    for (double &component : u)
        component /= length;

    // Deflection by the Sun: Urban and Seidelmann (eds), Explanatory Supplement to the Astronomical Almanac
    // (2013), 7.63.
    if (sight.deflection) {
        const double *e = sight.from_sun;
        const double toward = dot3(u, e);
        const double uu = dot3(u, u);
        const double size = sight.potential / std::max(uu + toward, sight.nearest_to_line);
        double across[3], by[3];
        cross(e, u, across);
        cross(u, across, by);
        for (int i = 0; i < 3; ++i)
            u[i] += size * by[i];
    }

    // Aberration, with the Sun's potential at the observer: S. A. Klioner, Astron. J. 125, 1580 (2003).
    if (sight.aberration) {
        const double *v = sight.velocity;
        const double uv = dot3(u, v);
        const double w1 = 1.0 + uv / (1.0 + sight.slowness);
        for (int i = 0; i < 3; ++i)
            u[i] = sight.slowness * u[i] + w1 * v[i] + sight.potential * (v[i] - uv * u[i]);
    }
    const double norm = std::sqrt(dot3(u, u));
    for (int i = 0; i < 3; ++i)
        place[i] = u[i] / norm;
}

long KL_Star_place(const kl_star *star, const double observer_barycentric[3], const double observer_velocity[3],
                   const double observer_heliocentric[3], double tdb, long corrections, double place[3])
{
    if (star == nullptr || observer_barycentric == nullptr || observer_velocity == nullptr
        || observer_heliocentric == nullptr || place == nullptr || !star_in_range(*star) || corrections < 0
        || corrections > kEveryCorrection)
        return KL_ERR;
    Observer observer;
    copy_three(observer_barycentric, observer.barycentric);
    copy_three(observer_velocity, observer.velocity);
    copy_three(observer_heliocentric, observer.heliocentric);
    Sight sight;
    if (!prepare_sight(observer, tdb, corrections, &sight))
        return KL_ERR;
    place_of(sight, *star, place);
    return KL_OK;
}
