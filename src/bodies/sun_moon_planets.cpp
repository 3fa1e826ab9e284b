// Sun, Moon and planets in the Earth-fixed frame.
#include "bodies/bodies.h"
#include "errors/activation.h"
#include "models/model_record.h"
#include "time/scales.h"

#include <iterator>
#include <limits>

namespace {

// The conditions by which the four functions name the steps of the same walk.
struct StepCodes {
    CodeMap input[2]; // the input check's
    int time_id;
    int ut1;
    int frame;
};
// On purpose: with the Sun a failed conversion to UT1 is reported as the conversion to TDB.
constexpr StepCodes kSunSteps = {
    {{KL_CHECK_IN_REF, KL_SUN_TIME_REF_ERR}, {KL_CHECK_IN_DAYS, KL_SUN_DATE_ERR}},
    KL_SUN_TIME_ID_ERR,
    KL_SUN_TDB_ERR,
    KL_SUN_FRAME_ERR,
};
constexpr StepCodes kMoonSteps = {
    {{KL_CHECK_IN_REF, KL_MOON_TIME_REF_ERR}, {KL_CHECK_IN_DAYS, KL_MOON_DATE_ERR}},
    KL_MOON_TIME_ID_ERR,
    KL_MOON_PROC_TO_PROC_ERR,
    KL_MOON_FRAME_ERR,
};
constexpr StepCodes kPlanetSteps = {
    {{KL_CHECK_IN_REF, KL_PLANET_TIME_REF_ERR}, {KL_CHECK_IN_DAYS, KL_PLANET_DATE_ERR}},
    KL_PLANET_TIME_ID_ERR,
    KL_PLANET_PROC_TO_PROC_ERR,
    KL_PLANET_FRAME_ERR,
};
constexpr StepCodes kTravelTimeSteps = {
    {{KL_CHECK_IN_REF, KL_TRAVEL_TIME_REF}, {KL_CHECK_IN_DAYS, KL_TRAVEL_TIME_DATE}},
    KL_TRAVEL_TIME_ID,
    KL_TRAVEL_TIME_TDB,
    KL_TRAVEL_TIME_FRAME,
};

// An instant on one of the public scales.
struct Instant {
    long ref;
    double days; // MJD2000
};

// A caller's pointers; what is missing becomes a value that the input check refuses.
Instant instant_of(const long *time_ref, const double *time)
{
    return {time_ref != nullptr ? *time_ref : long{KL_TIME_UNDEF},
            time != nullptr ? *time : std::numeric_limits<double>::quiet_NaN()};
}

// Another scale through the time id. `no_time_id` tells why it failed.
bool convert(kl_time_id *time_id, const Instant &in, long ref_out, double *out, bool *no_time_id = nullptr)
{
    const InRef result = time_in_ref(time_id, in.ref, ref_out, in.days, out);
    if (no_time_id != nullptr)
        *no_time_id = result == InRef::not_initialised;
    return result == InRef::done;
}

// Input check, time to TDB, the body's routine, time to UT1, state to the Earth-fixed frame. The model id may be
// uninitialised: what reads it then takes the default models.
//
// body(tdb, state, axes) evaluates the body and returns false to end the call; it may replace the instant `axes` whose
// Earth-fixed axes are meant.
template <class Body>
long walk_to_ef(Activation &call, const StepCodes &codes, kl_model_id *model_id, kl_time_id *time_id,
                const Instant &time, double pos_out[3], double vel_out[3], Body body)
{
    if (pos_out == nullptr || vel_out == nullptr)
        return KL_ERR;
    ErrorRecord check;
    if (KL_Time_check_processing_inputs(KL_PROC, time.ref, &time.days, &check) != KL_OK
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, codes.input))
        return KL_ERR;

    double tai = time.days;
    bool no_time_id = false;
    if (time.ref != KL_TIME_TAI && !convert(time_id, time, KL_TIME_TAI, &tai, &no_time_id)) {
        if (no_time_id) // other failures have no condition
            call.fails(codes.time_id);
        return KL_ERR;
    }
    kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, 0.0};
    KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb.value);

    OwnedState state;
    Instant axes = time;
    if (!body(tdb, &state, &axes))
        return KL_ERR;

    kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, time.days};
    if (time.ref != KL_TIME_UT1 && !convert(time_id, axes, KL_TIME_UT1, &ut1.value))
        return call.fails(codes.ut1);
    OwnedState fixed;
    if (KL_Change_CoordinateSystem(model_id, time_id, 1, &ut1, &state, KL_EF, &fixed, nullptr) == KL_ERR)
        return call.fails(codes.frame);
    for (int i = 0; i < 3; ++i) {
        pos_out[i] = fixed.pos[i + 1];
        vel_out[i] = fixed.vel[i + 1];
    }
    return call.status();
}

} // namespace

long kl_sun(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double sun_pos[3],
            double sun_vel[3], long *ierr)
{
    Activation call(KL_FN_SUN, ierr);
    const SunRoutine routine = model_blocks(model_id).sun.sun;
    const auto body = [&](const kl_time_record &tdb, Cord *sun, Instant *) {
        const bool failed = routine == nullptr || routine(model_id, time_id, &tdb, sun, nullptr) == KL_ERR;
        if (failed)
            call.fails(KL_SUN_BODY_ERR);
        return !failed;
    };
    return walk_to_ef(call, kSunSteps, model_id, time_id, instant_of(time_ref, time), sun_pos, sun_vel, body);
}

long kl_moon(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double moon_pos[3],
             double moon_vel[3], long *ierr)
{
    Activation call(KL_FN_MOON, ierr);
    const MoonRoutine routine = model_blocks(model_id).moon.moon;
    const auto body = [&](const kl_time_record &tdb, Cord *moon, Instant *) {
        const bool failed = routine == nullptr || routine(&tdb, moon, nullptr) == KL_ERR;
        if (failed)
            call.fails(KL_MOON_BODY_ERR);
        return !failed;
    };
    return walk_to_ef(call, kMoonSteps, model_id, time_id, instant_of(time_ref, time), moon_pos, moon_vel, body);
}

long kl_planet(kl_model_id *model_id, kl_time_id *time_id, const long *planet_id, const long *time_ref,
               const double *time, double planet_pos[3], double planet_vel[3], long *ierr)
{
    Activation call(KL_FN_PLANET, ierr);
    const PlanetRoutine routine = model_blocks(model_id).planet.planets;
    const long planet = planet_id != nullptr ? *planet_id : 0;
    bool warned = false;
    const auto body = [&](const kl_time_record &tdb, Cord *state, Instant *) {
        ErrorRecord callee;
        const long status = routine != nullptr ? routine(planet, &tdb, state, &callee) : long{KL_ERR};
        if (status == KL_ERR) {
            if (recorded(KL_FN_PLANETS, KL_PLANETS_CODE, callee)) // other failures have no condition
                call.fails(KL_PLANET_CODE_ERR);
            return false;
        }
        warned = status == KL_WARN;
        state->cs = KL_HM2000;
        if (warned && recorded(KL_FN_PLANETS, KL_PLANETS_CONVERGENCE, callee))
            call.warns(KL_PLANET_CONVERGENCE_WARN);
        return true;
    };
    const long status =
        walk_to_ef(call, kPlanetSteps, model_id, time_id, instant_of(time_ref, time), planet_pos, planet_vel, body);
    // On purpose: a warning of the planet's routine is the status of the call even when it has no bit in the vector.
    return warned && status == KL_OK ? long{KL_WARN} : status;
}

long KL_Sun_travel_time(kl_model_id *model_id, kl_time_id *time_id, long time_ref, double time, const Cord *satellite,
                        double sun_pos[3], double sun_vel[3], kl_error_record *error)
{
    Activation call(KL_FN_SUN_TRAVEL_TIME, error);
    const auto body = [&](const kl_time_record &tdb, Cord *sun, Instant *axes) {
        kl_time_record emission;
        if (KL_Sun_PosVel_Sun_Travel_Time(model_id, time_id, &tdb, satellite, sun, &emission, nullptr) == KL_ERR) {
            call.fails(KL_TRAVEL_TIME_SUN);
            return false;
        }
        // On purpose: the Earth-fixed axes are those at the emission, yet a time given in UT1 is used as it is.
        *axes = {KL_TIME_TAI, emission.value};
        return true;
    };
    return walk_to_ef(call, kTravelTimeSteps, model_id, time_id, {time_ref, time}, sun_pos, sun_vel, body);
}
