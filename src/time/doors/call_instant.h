// What the doors of other floors ask of time: the check of an instant, the instant on the scales that a place in the
// sky needs, and the warnings that come with it. With all that the functions of the family say on the way.
#ifndef KL_SRC_TIME_DOORS_CALL_INSTANT_H
#define KL_SRC_TIME_DOORS_CALL_INSTANT_H

#include "time/scales.h"

// The check of a processing time, as KL_Time_check_processing_inputs.
inline Fault checked_instant(long ref, const double *days)
{
    const Fault fault = check_processing_input(KL_PROC, ref, days);
    if (fault)
        Activation(KL_FN_TIME_CHECK_PROCESSING_INPUTS, KL_NO_RECORD).fails(fault.code, &fault.shown);
    return fault;
}

// The conditions by which a function names what is wrong with its instant.
struct InstantConditions {
    int reference, date;
};

// True when the instant of a call ends it, with its condition recorded.
inline bool refuses_instant(Activation &call, const InstantConditions &own, long ref, const double *days)
{
    const Fault fault = checked_instant(ref, days);
    if (fault)
        call.fails(fault.code == KL_CHECK_IN_REF ? own.reference : own.date);
    return static_cast<bool>(fault);
}

// A time on another scale, as KL_Get_time_in_ref; equal scales copy. False where the time id does not tell.
inline bool on_scale(const kl_time_id *time_id, long from, long to, double days, double *out)
{
    if (from == to) {
        *out = days;
        return true;
    }
    if (time_in_ref(time_id, from, to, days, out) == InRef::done)
        return true;
    Activation(KL_FN_GET_TIME_IN_REF, KL_NO_RECORD).fails(KL_GET_TIME_IN_REF_FAILED);
    return false;
}

// Neither a change of scale nor a frame change has anything to say, or to note, at the instant.
inline bool all_is_quiet(const TimeIdRecord &id, double days)
{
    return id.correlation.model == KL_TIME_MODEL_EXPLICIT
           || (is_quiet(id.correlation.quiet, days) && all_inside(id.once_only[KL_FLAGS_CONVERSION])
               && all_inside(id.once_only[KL_FLAGS_FRAME_CHANGE]));
}

inline long warning_at_tai(TimeIdRecord *id, double tai_days)
{
    if (id == nullptr)
        return 0;
    const Moment<double> tai = midnight_carried(&id->correlation, KL_TIME_TAI, moment_of(tai_days));
    return once_only_warning(id->correlation, &id->once_only[KL_FLAGS_FRAME_CHANGE], days_of(tai));
}

// The once-only warning of a frame change at an instant that was converted before: 1 to 3, or 0. False where the time
// id does not tell its TAI.
inline bool frame_change_warning(const kl_time_id *time_id, long ref, double days, long *warning)
{
    TimeIdRecord *id = time_record_of(time_id);
    *warning = 0;
    if (id != nullptr && all_is_quiet(*id, days)) {
        last_call.over |= ref != KL_TIME_TAI; // as a conversion leaves it: what is recorded next is another call's
        return true;
    }
    double tai = 0.0;
    if (!on_scale(time_id, ref, KL_TIME_TAI, days, &tai))
        return false;
    *warning = warning_at_tai(id, tai);
    return true;
}

struct CallInstant {
    double tai, tdb;     // MJD2000, days
    kl_time_record date; // for the frame chain: UT1, or TAI where there is no time id
};

// False without a time id that can tell. With `tai_is_enough` an instant of TAI needs none.
inline bool instant_of_call(const kl_time_id *time_id, long ref, double days, bool tai_is_enough, CallInstant *out)
{
    if (!on_scale(time_id, ref, KL_TIME_TAI, days, &out->tai))
        return false;
    out->tdb = tdb_of_tai(out->tai);
    if (tai_is_enough && ref == KL_TIME_TAI && time_record_of(time_id) == nullptr) {
        out->date = {KL_REF_TAI, KL_FORMAT_MJD2000, out->tai};
        return true;
    }
    out->date = {KL_REF_UT1, KL_FORMAT_MJD2000, 0.0};
    return on_scale(time_id, ref, KL_TIME_UT1, days, &out->date.value);
}

// The once-only warning of a frame change at the instant, 1 to 3, or 0.
inline long warning_of_call(const kl_time_id *time_id, const CallInstant &instant)
{
    return warning_at_tai(time_record_of(time_id), instant.tai);
}

#endif
