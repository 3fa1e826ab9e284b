// The planets: heliocentric state, J. L. Simon et al., Astron. Astrophys. 282, 663 (1994).
#include "bodies/bodies.h"
#include "bodies/planet_tables.h"
#include "errors/activation.h"
#include "numbers/elementary.h"
#include "time/scales.h"

namespace {

// Status of KL_SlaPlanet.
enum { kNoSuchPlanet = -1, kGood = 0, kBeyondMillennium = 1, kNotConverged = 2 };

// Degrees, arcsec and arcsec to rad.
double angle_at(const double c[3], double t)
{
    return (3600.0 * c[0] + (c[1] + c[2] * t) * t) * kArcsecond;
}

} // namespace

void KL_SlaPlanet(long np, double pv[6], long *jstat, double date)
{
    if (np < KL_MERCURY || np > KL_NEPTUNE) {
        *jstat = kNoSuchPlanet;
        for (int i = 0; i < 6; ++i)
            pv[i] = 0.0;
        return;
    }
    const PlanetTable &planet = kPlanets[np - 1];
    const double t = (date - kMjd2000) / 365250.0; // millennia
    *jstat = std::fabs(t) <= 1.0 ? kGood : kBeyondMillennium;

    // Mean elements, then the trigonometric terms of the axis and of the mean longitude.
    double a = planet.a[0] + (planet.a[1] + planet.a[2] * t) * t; // AU
    const double e = planet.e[0] + (planet.e[1] + planet.e[2] * t) * t;
    double longitude = angle_at(planet.dlm, t);
    const double perihelion = reduced(angle_at(planet.pi, t));
    const double mu = kDmu * t;
    constexpr int kAxis = 0, kLongitude = 9, kPerihelion = 19, kNode = 20, kHalfInclination = 21;
    double angle[22], s[22], c[22];
    for (int j = 0; j < 9; ++j)
        angle[kAxis + j] = planet.kp[j] * mu;
    for (int j = 0; j < 10; ++j)
        angle[kLongitude + j] = planet.kq[j] * mu;
    angle[kPerihelion] = perihelion;
    angle[kNode] = angle_at(planet.omega, t);
    angle[kHalfInclination] = angle_at(planet.dinc, t) / 2.0;
    sin_cos(angle, s, c);
    for (int j = 0; j < 9; ++j)
        a += (j < 8 ? 1.0 : t) * (planet.ca[j] * c[kAxis + j] + planet.sa[j] * s[kAxis + j]) * 1e-7;
    for (int j = 0; j < 10; ++j)
        longitude += (j < 8 ? 1.0 : t) * (planet.cl[j] * c[kLongitude + j] + planet.sl[j] * s[kLongitude + j]) * 1e-7;
    longitude = reduced(longitude);

    // Kepler's equation by Newton steps.
    constexpr int kMostSteps = 10;
    constexpr double kConverged = 1e-12; // rad
    const double m = longitude - perihelion;
    double ea = m + e * sine_cosine(m).s;
    double step = 0.0;
    for (int k = 0; k < kMostSteps; ++k) {
        const SineCosine now = sine_cosine(ea);
        step = (m - ea + e * now.s) / (1.0 - e * now.c);
        ea += step;
        if (std::fabs(step) <= kConverged)
            break;
    }
    if (!(std::fabs(step) <= kConverged))
        *jstat = kNotConverged;

    // Radius (AU), true anomaly nu, argument u of the latitude, mean motion (rad/s).
    const SineCosine eccentric = sine_cosine(ea);
    const double root = std::sqrt(1.0 - e * e);
    const double per_axis = 1.0 - e * eccentric.c;
    const double sin_nu = root * eccentric.s / per_axis, cos_nu = (eccentric.c - e) / per_axis;
    const double r = a * per_axis;
    const double n = kGks * std::sqrt((1.0 + 1.0 / planet.amas) / (a * a * a));
    const double sin_u = sin_nu * c[kPerihelion] + cos_nu * s[kPerihelion];
    const double cos_u = cos_nu * c[kPerihelion] - sin_nu * s[kPerihelion];

    // Position and velocity of the Kepler motion, ecliptic of J2000. The rates of the elements are neglected.
    const double q = s[kHalfInclination] * c[kNode];
    const double p = s[kHalfInclination] * s[kNode];
    const double ci = c[kHalfInclination];
    const double xms = 2.0 * (p * cos_u - q * sin_u);
    const double k = a / root;
    const double sigma = (e * s[kPerihelion] + sin_u) * k;
    const double gamma = (e * c[kPerihelion] + cos_u) * k;
    const double h = 2.0 * p * q;
    const double pos[3] = {r * (cos_u - xms * p), r * (sin_u + xms * q), -r * xms * ci};
    const double vel[3] = {n * ((2.0 * p * p - 1.0) * sigma + h * gamma), n * ((1.0 - 2.0 * q * q) * gamma - h * sigma),
                           n * 2.0 * ci * (p * sigma + q * gamma)};

    // Mean equator of J2000.
    pv[0] = pos[0];
    pv[1] = pos[1] * kCoseps - pos[2] * kSineps;
    pv[2] = pos[1] * kSineps + pos[2] * kCoseps;
    pv[3] = vel[0];
    pv[4] = vel[1] * kCoseps - vel[2] * kSineps;
    pv[5] = vel[1] * kSineps + vel[2] * kCoseps;
}

// On purpose: reference and format of the record are not checked here, unlike Earth and Moon; the value alone counts.
long KL_Planets(long planet, const kl_time_record *tdb, Cord *state, kl_error_record *error)
{
    Activation call(KL_FN_PLANETS, error);
    if (planet < KL_MERCURY || planet > KL_NEPTUNE)
        return call.fails(KL_PLANETS_CODE);
    double pv[6];
    long status;
    KL_SlaPlanet(planet, pv, &status, mjd_of(*tdb));
    if (status < 0)
        return call.fails(KL_PLANETS_INTERNAL);
    if (status == kBeyondMillennium)
        call.warns(KL_PLANETS_DEGRADED);
    if (status == kNotConverged)
        call.warns(KL_PLANETS_CONVERGENCE);
    set_state(state, KL_HM2000, pv, pv + 3);
    return call.status();
}
