#include "frames/change.h"

#include "frames/chain_range.h"
#include "time/doors/checks.h"
#include "time/pole.h"

namespace {

// The moment of a date, its 86400 seconds settled.
bool moment_of_date(const Correlation *correlation, long ref, double days, Moment<double> *moment, DateFindings *found)
{
    *moment = moment_of(days);
    found->no_such_day = moment->seconds == 86400.0 && ref == KL_TIME_UTC && !inside_processing_range(moment->days);
    if (found->no_such_day)
        return false;
    *moment = midnight_carried(correlation, ref, *moment);
    return true;
}

bool tai_of(const Correlation *correlation, const kl_time_record &date, double *tai, DateFindings *found)
{
    if (!inside_chain_range(date.value)) // far outside the days do not fit an integer
        return false;
    if (date.reference == KL_REF_TAI) {
        *tai = date.value;
        return true;
    }
    if (date.reference == KL_REF_TDB) {
        *tai = tai_of_tdb(date.value);
        return true;
    }
    const long ref = KL_Time_enum_to_Time_ref_enum(date.reference);
    Moment<double> moment;
    if (ref < 0 || !moment_of_date(correlation, ref, date.value, &moment, found))
        return false;
    if (is_empty(correlation)) {
        found->to_tai = KL_STEP_NO_CORRELATION;
        return false;
    }
    const Step step = step_up(*correlation, ref, moment);
    found->to_tai = step.findings;
    *tai = days_of(step.moment);
    return (step.findings & KL_STEP_REFUSED) == 0;
}

// On the scale of the place of the Earth.
bool tdb_of(const Correlation *correlation, const kl_time_record &date, double *tdb, DateFindings *found)
{
    if (date.reference == KL_REF_TDB) {
        *tdb = date.value;
        return true;
    }
    double tai = 0.0;
    if (!tai_of(correlation, date, &tai, found))
        return false;
    *tdb = tdb_of_tai(tai);
    return true;
}

void record_step_of(int function_id, unsigned findings)
{
    if (findings == 0)
        return;
    Activation step(function_id, KL_NO_RECORD);
    record_step(step, findings);
}

bool needs_correlation(const kl_time_record &date, bool ut1, bool tdb)
{
    return (ut1 && date.reference != KL_REF_UT1)
           || (tdb && date.reference != KL_REF_TAI && date.reference != KL_REF_TDB);
}

// All that the steps of a way read at its instant; `days` as in Sky.
Sky<double> sky_of(const ChainSources &sources, bool simplified, const Path &path, double days, double tdb_days)
{
    Sky<double> sky;
    sky.earth_model = &sources.models->earth;
    sky.simplified = simplified;
    sky.days = days;
    if (path.any(set_of(kPoleEdge)))
        sky.pole = pole_of(sources.correlation, days);
    if (path.any(set_of(kTranslationEdge)))
        sky.earth = earth_on(path, tdb_days);
    sky.complete(path);
    return sky;
}

// Warnings look at the frames as the caller passed them.
unsigned warnings_of(const Path &path, long from, long to, long order)
{
    unsigned warnings = 0;
    // On purpose: this one comes with every MoD to ToD.
    if (path.any(StepSet{1} << step_between(KL_MOD, KL_TOD)) && !(from == KL_PTOD && to == KL_PTOD))
        warnings |= 1U << KL_CHAIN_PTOD_SKIPPED;
    if (path.n == 0 && from != to)
        warnings |= 1U << (frame_handled(from) == KL_TOD ? KL_CHAIN_PTOD : KL_CHAIN_QMOD);
    const auto centred_elsewhere = [](long cs) { return cs == KL_BM2000 || cs == KL_HM2000; };
    if (order == 2 && (centred_elsewhere(from) || centred_elsewhere(to)))
        warnings |= 1U << KL_CHAIN_ACCELERATION;
    return warnings;
}

} // namespace

PoleOf<double> pole_of(const Correlation *correlation, double ut1_days)
{
    if (correlation == nullptr)
        return {0.0, 0.0, 0.0, 0.0};
    return pole_at(*correlation, ut1_days);
}

bool ut1_of(const Correlation *correlation, const kl_time_record &date, double *ut1, DateFindings *found)
{
    if (date.reference == KL_REF_UT1) {
        *ut1 = date.value;
        return true;
    }
    double tai = 0.0;
    Moment<double> moment;
    if (!tai_of(correlation, date, &tai, found) || !moment_of_date(correlation, KL_TIME_TAI, tai, &moment, found))
        return false;
    if (is_empty(correlation)) {
        found->from_tai = KL_STEP_NO_CORRELATION;
        return false;
    }
    const Step step = step_down(*correlation, KL_TIME_UT1, moment);
    found->from_tai = step.findings;
    *ut1 = days_of(step.moment);
    return (step.findings & KL_STEP_REFUSED) == 0;
}

bool lacks_routine(const ModelBlocks &models, bool simplified, const Path &path)
{
    return (models.precession.precession == nullptr && path.any(set_of(kPrecessionEdge)))
           || (models.nutation.nutation == nullptr && !simplified && path.any(kNutationSteps))
           || (simplified && path.any(set_of(kSiderealEdge)) && !has_linear_angle(models.earth));
}

bool cannot_walk(const ModelBlocks &models, const Path &path)
{
    return (models.sun.earth == nullptr && path.any(set_of(kTranslationEdge))) || path.any(set_of(kLaunchEdge));
}

ChainFindings change_frame(const ChainSources &sources, bool simplified, const kl_time_record &date, long from, long to,
                           long order, State *state)
{
    ChainFindings found;
    const Path path = path_between(frame_handled(from), frame_handled(to));
    found.warnings = warnings_of(path, from, to, order);
    const auto fails = [&found](int code) {
        found.error = code;
        return found;
    };
    if (path.any(set_of(kLaunchEdge)))
        return fails(KL_CHAIN_LIF);
    if (path.n == 0)
        return found;

    // UT1 for the rotations of the Earth, TDB for the place of the Earth; the other steps take the date as it is.
    const bool ut1 = path.any(kUt1Steps);
    const bool tdb = path.any(set_of(kTranslationEdge));
    double days = date.value;
    double tdb_days = 0.0;
    if (!inside_chain_range(days))
        return fails(KL_CHAIN_DATE_RANGE);
    if (needs_correlation(date, ut1, tdb) && sources.correlation == nullptr)
        return fails(KL_CHAIN_TIME_ID);
    if ((ut1 && !ut1_of(sources.correlation, date, &days, &found.to_ut1))
        || (tdb && !tdb_of(sources.correlation, date, &tdb_days, &found.to_tdb))
        || lacks_routine(*sources.models, simplified, path))
        return fails(KL_CHAIN_UT1);
    if (cannot_walk(*sources.models, path))
        return fails(KL_CHAIN_EARTH);
    walk(path, sky_of(sources, simplified, path, days, tdb_days), state);
    return found;
}

bool walk_steps(const ChainSources &sources, const Path &path, const kl_time_record &date, State *state,
                DateFindings *found)
{
    double tdb_days = 0.0;
    if (path.any(set_of(kTranslationEdge)) && !tdb_of(sources.correlation, date, &tdb_days, found))
        return false;
    if (lacks_routine(*sources.models, false, path) || cannot_walk(*sources.models, path))
        return false;
    walk(path, sky_of(sources, false, path, date.value, tdb_days), state);
    return true;
}

void record_date(const DateFindings &found)
{
    if (found.no_such_day) {
        Activation(KL_FN_TIME_CHECK_LEAP_SECOND, KL_NO_RECORD).fails(KL_LEAP_CHECK_DATE);
        Activation(KL_FN_TIME_P2T_FORMAT_TO_STD, KL_NO_RECORD).fails(KL_P2T_LEAP_SECOND);
    }
    record_step_of(KL_FN_TIME_T2T_REF_TO_TAI, found.to_tai);
    record_step_of(KL_FN_TIME_T2T_REF_FROM_TAI, found.from_tai);
}

long record_change(Activation &call, const ChainFindings &found)
{
    for (const int code : {KL_CHAIN_PTOD, KL_CHAIN_QMOD, KL_CHAIN_PTOD_SKIPPED, KL_CHAIN_ACCELERATION})
        if ((found.warnings >> code & 1U) != 0)
            call.warns(code);
    record_date(found.to_ut1);
    record_date(found.to_tdb);
    return found.failed() ? call.fails(found.error) : call.status();
}

bool carried(const ChainSources &sources, const kl_time_record &date, long from, long to, State *state)
{
    const ChainFindings found = change_frame(sources, false, date, from, to, state->order, state);
    Activation call(KL_FN_CHANGE_COORDINATE_SYSTEM, KL_NO_RECORD);
    return record_change(call, found) != KL_ERR;
}
