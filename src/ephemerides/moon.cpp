// The Moon for the family.
#include "ephemerides/moon.h"
#include "errors/activation.h"
#include "time/scales.h"

#include <iterator>

void KL_SlaDmoon(double pv[6], double date)
{
    moon_vectors(pv, date);
}

long KL_Moon_PosVel(const kl_time_record *tdb, Cord *moon, kl_error_record *error)
{
    Activation call(KL_FN_MOON_POSVEL, error);
    if (tdb->reference != KL_REF_TDB)
        return call.fails(KL_MOON_POSVEL_REFERENCE);
    if (tdb->format != KL_FORMAT_MJD2000)
        return call.fails(KL_MOON_POSVEL_FORMAT);
    set_state(moon, KL_MOD, moon_state(tdb->value));
    return call.status();
}
