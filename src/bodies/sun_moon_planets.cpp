// Sun, Moon and planets in the Earth-fixed frame.
#include "arrays/array_call.h"
#include "bodies/bodies.h"
#include "bodies/body_kernels.h"
#include "errors/activation.h"
#include "frames/chain_instants.h"
#include "frames/change.h"
#include "frames/doors.h"
#include "models/model_record.h"
#include "time/doors/call_instant.h"

#include <limits>

namespace {

// The conditions by which the four functions name the steps of the same walk.
struct StepCodes {
    InstantConditions input;
    int time_id;
    int ut1;
    int frame;
};
// On purpose: with the Sun a failed conversion to UT1 is reported as the conversion to TDB.
constexpr StepCodes kSunSteps = {
    {KL_SUN_TIME_REF_ERR, KL_SUN_DATE_ERR},
    KL_SUN_TIME_ID_ERR,
    KL_SUN_TDB_ERR,
    KL_SUN_FRAME_ERR,
};
constexpr StepCodes kMoonSteps = {
    {KL_MOON_TIME_REF_ERR, KL_MOON_DATE_ERR},
    KL_MOON_TIME_ID_ERR,
    KL_MOON_PROC_TO_PROC_ERR,
    KL_MOON_FRAME_ERR,
};
constexpr StepCodes kPlanetSteps = {
    {KL_PLANET_TIME_REF_ERR, KL_PLANET_DATE_ERR},
    KL_PLANET_TIME_ID_ERR,
    KL_PLANET_PROC_TO_PROC_ERR,
    KL_PLANET_FRAME_ERR,
};
constexpr StepCodes kTravelTimeSteps = {
    {KL_TRAVEL_TIME_REF, KL_TRAVEL_TIME_DATE},
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
    return {value_or(time_ref, KL_TIME_UNDEF), time != nullptr ? *time : std::numeric_limits<double>::quiet_NaN()};
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
    if (refuses_instant(call, codes.input, time.ref, &time.days))
        return KL_ERR;

    double tai = time.days;
    bool no_time_id = false;
    if (time.ref != KL_TIME_TAI && !convert(time_id, time, KL_TIME_TAI, &tai, &no_time_id)) {
        if (no_time_id) // other failures have no condition
            call.fails(codes.time_id);
        return KL_ERR;
    }
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, tdb_of_tai(tai)};

    OwnedState state;
    Instant axes = time;
    if (!body(tdb, &state, &axes))
        return KL_ERR;

    kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, time.days};
    if (time.ref != KL_TIME_UT1 && !convert(time_id, axes, KL_TIME_UT1, &ut1.value))
        return call.fails(codes.ut1);
    OwnedState fixed;
    if (!change_record(model_id, time_id, 1, &ut1, &state, KL_EF, &fixed))
        return call.fails(codes.frame);
    for (int i = 0; i < 3; ++i) {
        pos_out[i] = fixed.pos[i + 1];
        vel_out[i] = fixed.vel[i + 1];
    }
    return call.status();
}

// ---- the calls for one instant ----

long sun_at(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double sun_pos[3],
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

long moon_at(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double moon_pos[3],
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

long planet_at(kl_model_id *model_id, kl_time_id *time_id, const long *planet_id, const long *time_ref,
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

} // namespace

long kl_sun(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double sun_pos[3],
            double sun_vel[3], long *ierr)
{
    return sun_at(model_id, time_id, time_ref, time, sun_pos, sun_vel, ierr);
}

long kl_moon(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time, double moon_pos[3],
             double moon_vel[3], long *ierr)
{
    return moon_at(model_id, time_id, time_ref, time, moon_pos, moon_vel, ierr);
}

long kl_planet(kl_model_id *model_id, kl_time_id *time_id, const long *planet_id, const long *time_ref,
               const double *time, double planet_pos[3], double planet_vel[3], long *ierr)
{
    return planet_at(model_id, time_id, planet_id, time_ref, time, planet_pos, planet_vel, ierr);
}

// ---- for many ----

namespace {

using BodyKernel = void (*)(BodyBlock *);

// An array call of one of the three: the same but for the kernel and the scalar call.
struct BodyArray {
    kl_model_id *model_id;
    kl_time_id *time_id;
    const long *time_ref;
    const double *time;
    double (*pos)[3], (*vel)[3];
    BodyKernel kernel;
    long planet;
    long frame; // where the way to the Earth-fixed frame begins
};

// The instants of a block, equal ones in a row once. which[k]: the place of element k among them, -1 if it is left
// over.
void list_instants(const double *time, long count, LeftOver *left, long *which, InstantBlock *block)
{
    long n = 0;
    for (long k = 0; k < count; ++k) {
        which[k] = -1;
        if (!inside_processing_range(time[k])) {
            left->add(k);
            continue;
        }
        if (n == 0 || !same_number(time[k], block->days[n - 1]))
            block->days[n++] = time[k];
        which[k] = n - 1;
    }
    block->count = n;
}

// one(ref, time, pos, vel, word) is the scalar call; `known` tells that the models have the body.
template <class One>
long states_of(ArrayCall &array, const BodyArray &bodies, bool known, long *ierr, One one)
{
    const auto fail = fails_in(bodies.pos, bodies.vel);
    TimeIdRecord *id = time_record_of(bodies.time_id);
    const ModelBlocks &models = model_blocks(bodies.model_id);
    const Path path = path_between(bodies.frame, KL_EF);
    const bool can_walk = !lacks_routine(models, false, path) && !cannot_walk(models, path);
    const bool missing = bodies.time == nullptr || bodies.pos == nullptr || bodies.vel == nullptr;
    const bool selected = bodies.time_ref != nullptr && is_time_ref(*bodies.time_ref);
    if (missing || !selected || id == nullptr || !known || !can_walk) {
        // What a good element would meet; in TAI, which spends no once-only warning before the body is asked.
        const long tai = KL_TIME_TAI;
        const double instant = 0.0;
        double pos[3];
        double vel[3];
        one(selected && id != nullptr ? &tai : bodies.time_ref, bodies.time != nullptr ? &instant : nullptr,
            bodies.pos != nullptr ? pos : nullptr, bodies.vel != nullptr ? vel : nullptr, ierr);
        return array.refuse(fail);
    }

    ChainInstants instants(id, *bodies.time_ref, true, bodies.frame == KL_HM2000, true);
    BodyBlock block;
    block.earth_model = &models.earth;
    block.planet = bodies.planet;
    block.has_pole = instants.with_pole();
    block.at = instants.block();
    long which[kBlock];
    const auto scalar = [&](long i, long *word) {
        return one(bodies.time_ref, bodies.time + i, bodies.pos[i], bodies.vel[i], word);
    };
    return array.each(scalar, fail, [&](long first, long count, LeftOver &left) {
        list_instants(bodies.time + first, count, &left, which, instants.block());
        if (instants.block()->count == 0)
            return true;
        if (!instants.fill())
            return false;
        bodies.kernel(&block);
        for (long k = 0; k < count && !block.odd; ++k)
            if (which[k] >= 0) {
                copy_three(block.pos[which[k]], bodies.pos[first + k]);
                copy_three(block.vel[which[k]], bodies.vel[first + k]);
            }
        return !block.odd;
    });
}

} // namespace

long kl_sun_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *time_ref, const double *time,
              double sun_pos[][3], double sun_vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_SUN, n, status, ierr);
    if (array.nothing())
        return array.result();
    const ModelBlocks &models = model_blocks(model_id);
    const bool known =
        models.sun.sun != nullptr && models.sun.earth != nullptr && models.precession.precession != nullptr;
    const BodyArray bodies = {model_id, time_id, time_ref, time, sun_pos, sun_vel, suns_kernel(), 0, KL_MOD};
    return states_of(array, bodies, known, ierr,
                     [&](const long *ref, const double *at, double *pos, double *vel, long *word) {
                         return sun_at(model_id, time_id, ref, at, pos, vel, word);
                     });
}

long kl_moon_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *time_ref, const double *time,
               double moon_pos[][3], double moon_vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_MOON, n, status, ierr);
    if (array.nothing())
        return array.result();
    const bool known = model_blocks(model_id).moon.moon != nullptr;
    const BodyArray bodies = {model_id, time_id, time_ref, time, moon_pos, moon_vel, moons_kernel(), 0, KL_MOD};
    return states_of(array, bodies, known, ierr,
                     [&](const long *ref, const double *at, double *pos, double *vel, long *word) {
                         return moon_at(model_id, time_id, ref, at, pos, vel, word);
                     });
}

long kl_planet_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *planet_id, const long *time_ref,
                 const double *time, double planet_pos[][3], double planet_vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_PLANET, n, status, ierr);
    if (array.nothing())
        return array.result();
    const long planet = planet_id != nullptr ? *planet_id : 0;
    const bool known = model_blocks(model_id).planet.planets != nullptr && planet >= KL_MERCURY && planet <= KL_NEPTUNE;
    const BodyArray bodies = {model_id,   time_id,          time_ref, time,     planet_pos,
                              planet_vel, planets_kernel(), planet,   KL_HM2000};
    return states_of(array, bodies, known, ierr,
                     [&](const long *ref, const double *at, double *pos, double *vel, long *word) {
                         return planet_at(model_id, time_id, planet_id, ref, at, pos, vel, word);
                     });
}

long KL_Sun_travel_time(kl_model_id *model_id, kl_time_id *time_id, long time_ref, double time, const Cord *satellite,
                        double sun_pos[3], double sun_vel[3], kl_error_record *error)
{
    Activation call(KL_FN_SUN_TRAVEL_TIME, error);
    const auto body = [&](const kl_time_record &tdb, Cord *sun, Instant *axes) {
        kl_time_record emission;
        if (!sun_from_satellite(model_id, time_id, tdb, satellite, sun, &emission)) {
            call.fails(KL_TRAVEL_TIME_SUN);
            return false;
        }
        // On purpose: the Earth-fixed axes are those at the emission, yet a time given in UT1 is used as it is.
        *axes = {KL_TIME_TAI, emission.value};
        return true;
    };
    return walk_to_ef(call, kTravelTimeSteps, model_id, time_id, {time_ref, time}, sun_pos, sun_vel, body);
}
