// The Earth for the family.
#include "ephemerides/earth.h"
#include "errors/activation.h"
#include "time/scales.h"

#include <iterator>

void KL_SlaEvp(double dvb[3], double dpb[3], double dvh[3], double dph[3], double date, double deqx)
{
    earth_vectors(dvb, dpb, dvh, dph, date, deqx);
}

long KL_Earth(const kl_time_record *tdb, Cord *barycentric, Cord *heliocentric, kl_error_record *error)
{
    Activation call(KL_FN_EARTH, error);
    if (tdb->reference != KL_REF_TDB)
        return call.fails(KL_EARTH_REFERENCE);
    if (tdb->format != KL_FORMAT_MJD2000)
        return call.fails(KL_EARTH_FORMAT);
    const EarthStates<double> states = earth_states(tdb->value);
    set_state(barycentric, KL_BM2000, states.barycentric);
    set_state(heliocentric, KL_HM2000, states.heliocentric);
    return call.status();
}
