// The planets for the family.
#include "ephemerides/planets.h"
#include "errors/activation.h"
#include "time/scales.h"

namespace {

// Status of KL_SlaPlanet.
enum { kNoSuchPlanet = -1, kGood = 0, kBeyondMillennium = 1, kNotConverged = 2 };

// AU, AU/s.
long planet_at(long planet, double pv[6], double mjd_tdb)
{
    if (planet < KL_MERCURY || planet > KL_NEPTUNE) {
        for (int i = 0; i < 6; ++i)
            pv[i] = 0.0;
        return kNoSuchPlanet;
    }
    const double t = planet_millennia(mjd_tdb);
    bool converged = false;
    planet_vectors(kPlanets[planet - 1], t, pv, &converged);
    return !converged ? kNotConverged : std::fabs(t) <= 1.0 ? kGood : kBeyondMillennium;
}

} // namespace

void KL_SlaPlanet(long np, double pv[6], long *jstat, double date)
{
    *jstat = planet_at(np, pv, date);
}

// On purpose: reference and format of the record are not checked here, unlike Earth and Moon; the value alone counts.
long KL_Planets(long planet, const kl_time_record *tdb, Cord *state, kl_error_record *error)
{
    Activation call(KL_FN_PLANETS, error);
    if (planet < KL_MERCURY || planet > KL_NEPTUNE)
        return call.fails(KL_PLANETS_CODE);
    double pv[6];
    const long status = planet_at(planet, pv, mjd_of(*tdb));
    if (status < 0)
        return call.fails(KL_PLANETS_INTERNAL);
    if (status == kBeyondMillennium)
        call.warns(KL_PLANETS_DEGRADED);
    if (status == kNotConverged)
        call.warns(KL_PLANETS_CONVERGENCE);
    set_state(state, KL_HM2000, in_metres(pv, pv + 3));
    return call.status();
}
