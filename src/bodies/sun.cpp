// The Sun seen from the Earth, and from a satellite with the light time taken off.
#include "bodies/bodies.h"
#include "bodies/sun_of_date.h"
#include "errors/activation.h"
#include "frames/doors.h"
#include "models/model_record.h"
#include "time/scales.h"

long KL_Sun_PosVel(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb, Cord *sun,
                   kl_error_record *error)
{
    Activation call(KL_FN_SUN_POSVEL, error);
    const EarthRoutine earth = model_blocks(model_id).sun.earth;
    OwnedState barycentric, heliocentric;
    if (earth == nullptr || earth(tdb, &barycentric, &heliocentric, nullptr) == KL_ERR)
        return call.fails(KL_SUN_POSVEL_EARTH);

    OwnedState geocentric;
    geocentric.cs = KL_GM2000;
    for (int i = 1; i <= 3; ++i) {
        geocentric.pos[i] = -heliocentric.pos[i];
        geocentric.vel[i] = -heliocentric.vel[i];
    }
    OwnedState of_date;
    if (!change_record(model_id, time_id, 1, tdb, &geocentric, KL_MOD, &of_date))
        return call.fails(KL_SUN_POSVEL_FRAME);
    sun->cs = of_date.cs;
    sun->order = of_date.order;
    copy_three(of_date.pos + 1, sun->pos + 1);
    copy_three(of_date.vel + 1, sun->vel + 1); // the acceleration is the caller's
    return call.status();
}

namespace {

long seen_sun(Activation &call, kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb,
              const Cord *satellite, Cord *sun, kl_time_record *emission)
{
    OwnedState observer;
    if (!change_record(model_id, time_id, 2, tdb, satellite, KL_MOD, &observer))
        return call.fails(KL_LIGHT_SUN_SATELLITE);
    if (tdb->reference != KL_REF_TDB)
        return call.fails(KL_LIGHT_SUN_REFERENCE);

    const SunRoutine routine = model_blocks(model_id).sun.sun;
    kl_time_record departure = *tdb;
    const auto sun_leaves = [&](double days) {
        departure.value = days;
        return routine != nullptr && routine(model_id, time_id, &departure, sun, nullptr) != KL_ERR;
    };
    if (!sun_leaves(tdb->value - KL_FIRST_LIGHT_TIME))
        return call.fails(KL_LIGHT_SUN_SUN);
    if (!sun_leaves(tdb->value - light_days(sun->pos + 1, observer.pos + 1)))
        return call.fails(KL_LIGHT_SUN_SUN);

    *emission = {KL_REF_TAI, KL_FORMAT_MJD2000, tai_of_tdb(departure.value)};
    return call.status();
}

} // namespace

bool sun_from_satellite(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &tdb, const Cord *satellite,
                        Cord *sun, kl_time_record *emission)
{
    Activation call(KL_FN_SUN_POSVEL_SUN_TRAVEL_TIME, KL_NO_RECORD);
    return seen_sun(call, model_id, time_id, &tdb, satellite, sun, emission) != KL_ERR;
}

long KL_Sun_PosVel_Sun_Travel_Time(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb,
                                   const Cord *satellite, Cord *sun, kl_time_record *emission, kl_error_record *error)
{
    Activation call(KL_FN_SUN_POSVEL_SUN_TRAVEL_TIME, error);
    return seen_sun(call, model_id, time_id, tdb, satellite, sun, emission);
}
