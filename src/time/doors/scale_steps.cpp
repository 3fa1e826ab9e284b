// The steps between scales and TAI for the family: look-up of the differences, row search, once-only warnings, TDB.
#include "time/doors/checks.h"

#include <cmath>

namespace {

// The look-up's own conditions.
long record_look_up(Activation &look_up, bool ref_is_good, unsigned findings)
{
    if (!ref_is_good)
        return look_up.fails(KL_DELTAS_REF);
    if ((findings & KL_STEP_NO_CORRELATION) != 0)
        return look_up.fails(KL_DELTAS_NOT_INITIALISED);
    if ((findings & KL_STEP_OUTSIDE) != 0)
        look_up.warns(KL_DELTAS_OUT_OF_RANGE);
    if ((findings & KL_STEP_UT1_FORMULA) != 0)
        look_up.warns(KL_DELTAS_UT1_FORMULA);
    return look_up.status();
}

void print_look_up(bool ref_is_good, unsigned findings)
{
    if (!is_verbose())
        return;
    Activation look_up(KL_FN_TIME_REF_INIT_FILE_DELTAS, KL_NO_RECORD);
    record_look_up(look_up, ref_is_good, findings);
}

void print_leap_second_check()
{
    if (is_verbose())
        Activation(KL_FN_TIME_CHECK_LEAP_SECOND, KL_NO_RECORD).fails(KL_LEAP_CHECK_DATE);
}

// A record of a scale to TAI, or a TAI record to a scale.
enum class Way { up, down };

long one_step(Activation &call, Way way, const kl_time_id *time_id, long ref, const kl_std_record *in,
              kl_std_record *out)
{
    if (in == nullptr || out == nullptr)
        return KL_ERR;
    if (!is_time_ref(ref)) {
        print_look_up(false, 0);
        return call.fails(KL_TO_TAI_NOT_INITIALISED);
    }
    const Correlation *correlation = correlation_of(time_id);
    if (ref == KL_TIME_TAI) {
        *out = *in;
        return call.status();
    }
    if (is_empty(correlation))
        return record_step(call, KL_STEP_NO_CORRELATION);
    const Moment<double> moment = moment_of(*in);
    const Step step = (way == Way::up ? step_up : step_down)(*correlation, ref, moment);
    if (step.findings != 0 && record_step(call, step.findings) == KL_ERR)
        return KL_ERR;
    *out = record_of(step.moment);
    return call.status();
}

} // namespace

long record_step(Activation &step, unsigned findings)
{
    print_look_up(true, findings);
    if ((findings & KL_STEP_NO_CORRELATION) != 0)
        return step.fails(KL_TO_TAI_NOT_INITIALISED);
    // Of the look-up's warnings only the one for an instant outside the table is passed on.
    if ((findings & KL_STEP_OUTSIDE) != 0)
        step.warns(KL_TO_TAI_OUT_OF_RANGE);
    if ((findings & KL_STEP_NO_LEAP_CHECK) != 0) {
        print_leap_second_check();
        return step.fails(KL_TO_TAI_LEAP_SECOND);
    }
    return step.status();
}

long KL_Time_t2t_ref_to_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                            kl_error_record *error)
{
    Activation call(KL_FN_TIME_T2T_REF_TO_TAI, error);
    return one_step(call, Way::up, time_id, ref, in, out);
}

long KL_Time_t2t_ref_from_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                              kl_error_record *error)
{
    Activation call(KL_FN_TIME_T2T_REF_FROM_TAI, error);
    return one_step(call, Way::down, time_id, ref, in, out);
}

long KL_Time_ref_init_file_deltas(kl_time_id *time_id, const double *time, const long *ref, double *tai_utc,
                                  double *tai_ut1, double *tai_gps, long *in_leap_second, long *after_leap_second,
                                  kl_error_record *error)
{
    Activation call(KL_FN_TIME_REF_INIT_FILE_DELTAS, error);
    if (in_leap_second != nullptr)
        *in_leap_second = 0;
    if (after_leap_second != nullptr)
        *after_leap_second = 0;
    const long reference = value_or(ref, KL_TIME_UNDEF);
    const Correlation *correlation = correlation_of(time_id);
    if (!is_time_ref(reference) || is_empty(correlation))
        return record_look_up(call, is_time_ref(reference), KL_STEP_NO_CORRELATION);
    const Deltas deltas = searched_deltas(*correlation, reference, time != nullptr ? *time : std::nan(""), true);
    if (tai_utc != nullptr)
        *tai_utc = deltas.tai_utc;
    if (tai_ut1 != nullptr)
        *tai_ut1 = deltas.tai_ut1;
    if (tai_gps != nullptr)
        *tai_gps = deltas.tai_gps;
    if (in_leap_second != nullptr)
        *in_leap_second = deltas.leap.in ? 1 : 0;
    if (after_leap_second != nullptr)
        *after_leap_second = deltas.leap.after ? 1 : 0;
    return record_look_up(call, true, findings_of(deltas));
}

long KL_binary_search(const kl_time_row *table, long first, long last, long column, const double *time)
{
    if (table == nullptr || time == nullptr || last < 1 || !is_time_ref(column))
        return 0;
    return binary_search(table, first, last, column, *time);
}

long KL_Check_Time_warn_flags(kl_time_id *time_id, const kl_std_record *tai, const long *selector, long *warning)
{
    if (warning != nullptr)
        *warning = 0;
    TimeIdRecord *id = time_record_of(time_id);
    if (tai == nullptr || selector == nullptr || warning == nullptr || *selector < KL_FLAGS_CONVERSION
        || *selector > KL_FLAGS_FRAME_CHANGE)
        return KL_ERR;
    if (id != nullptr)
        *warning = once_only_warning(id->correlation, &id->once_only[*selector], days_of(moment_of(*tai)));
    return KL_OK;
}

long KL_Get_time_in_ref(kl_time_id *time_id, long ref_in, long ref_out, double *time_out, kl_error_record *error,
                        double time_in)
{
    Activation call(KL_FN_GET_TIME_IN_REF, error);
    if (time_out == nullptr)
        return KL_ERR;
    if (ref_in == ref_out) {
        *time_out = time_in;
        return call.status();
    }
    if (time_in_ref(time_id, ref_in, ref_out, time_in, time_out) != InRef::done)
        return call.fails(KL_GET_TIME_IN_REF_FAILED);
    return call.status();
}

long KL_Time_p2p_ref_tai_to_tdb(const double *tai, double *tdb)
{
    if (tai == nullptr || tdb == nullptr)
        return KL_ERR;
    *tdb = tdb_of_tai(*tai);
    return KL_OK;
}

long KL_Time_p2p_ref_tdb_to_tai(const double *tdb, double *tai)
{
    if (tdb == nullptr || tai == nullptr)
        return KL_ERR;
    *tai = tai_of_tdb(*tdb);
    return KL_OK;
}
