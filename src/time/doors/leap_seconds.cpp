// Leap seconds: the query, and for the family the start of a quarter and the checks.
#include "time/calendar.h"
#include "time/doors/checks.h"

namespace {

// The present-time function records codes 0 to 2 of these rows as well.
constexpr double kBeforeTheLeap = 1.1573940116433837e-5; // days: 1/86401, 12 microseconds short of a second

} // namespace

long KL_Leap_second_utc_time(const long *ref, const double *time, double *quarter_begin, kl_error_record *error)
{
    Activation call(KL_FN_LEAP_SECOND_UTC_TIME, error);
    const long reference = value_or(ref, KL_TIME_UNDEF);
    if (KL_Check_time_ref_2(reference) == 0)
        return call.fails(KL_QUARTER_REF);
    if (time == nullptr || !inside_processing_range(*time)) {
        // The conversion to a text, which refuses the time, reports first.
        char text[KL_TIME_ASCII_LENGTH];
        processing_as_text(reference, time, KL_ASCII_11, text);
        return call.fails(KL_QUARTER_WRITING);
    }
    if (quarter_begin == nullptr)
        return call.fails(KL_QUARTER_READING);
    // What lies within half a microsecond of midnight belongs to the next day, as in a text.
    const Moment<double> instant = midnight_carried(nullptr, reference, moment_of(*time));
    *quarter_begin = static_cast<double>(quarter_start(static_cast<long>(instant.days)));
    return call.status();
}

long KL_Time_check_leap_second(kl_time_id *time_id, long ref, const kl_std_record *rec, long *leap_flag,
                               kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_LEAP_SECOND, error);
    if (leap_flag != nullptr)
        *leap_flag = 0;
    if (KL_Check_time_ref_2(ref) == 0)
        return call.fails(KL_LEAP_CHECK_REF);
    if (rec == nullptr || !inside_processing_range(static_cast<double>(rec->days))) {
        return call.fails(KL_LEAP_CHECK_DATE);
    }
    // On purpose: neither the reference nor the sign is looked at, so the day of a negative leap second keeps its 86400
    // seconds as well.
    if (leap_flag != nullptr)
        *leap_flag = leap_sign_of_day(correlation_of(time_id), static_cast<double>(rec->days));
    return call.status();
}

long KL_Check_if_time_is_post_leap_second(kl_time_id *time_id, long ref, long row, long *in_leap_second,
                                          long *after_leap_second, double first, double last, double time)
{
    if (in_leap_second == nullptr || after_leap_second == nullptr)
        return KL_ERR;
    *in_leap_second = 0;
    *after_leap_second = 0;
    const Correlation *id = correlation_of(time_id);
    if (id == nullptr || row < 0 || row >= id->n_rows)
        return KL_ERR;
    const LeapFlags flags = leap_flags(*id, ref, row, first, last, time);
    *in_leap_second = flags.in ? 1 : 0;
    *after_leap_second = flags.after ? 1 : 0;
    return KL_OK;
}

long kl_time_get_leap_second_info(kl_time_id *time_id, const long *ascii_id_out, long *leap_sign, char *utc_time_before,
                                  char *utc_time_after, long *ierr)
{
    Activation call(KL_FN_TIME_GET_LEAP_SECOND_INFO, ierr);
    if (leap_sign == nullptr || utc_time_before == nullptr || utc_time_after == nullptr)
        return KL_ERR;
    *leap_sign = 0;
    utc_time_before[0] = '\0';
    utc_time_after[0] = '\0';
    const long format = value_or(ascii_id_out, -1);
    if (const Fault fault = check_text_output(format, KL_TIME_UTC)) {
        print_fault(KL_FN_TIME_CHECK_ASCII_OUTPUTS, fault);
        return call.fails(KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR);
    }
    const Correlation *id = correlation_of(time_id);
    if (id == nullptr)
        call.warns(KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN);
    if (id == nullptr || id->leap.sign == 0)
        return call.status();

    *leap_sign = id->leap.sign;
    // No time id: an instant that is only written must not spend a once-only warning.
    const double after = id->leap.utc;
    const double before = after - kBeforeTheLeap;
    if (!processing_as_text(KL_TIME_UTC, &after, format, utc_time_after)
        || !processing_as_text(KL_TIME_UTC, &before, format, utc_time_before))
        return call.fails(KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR);
    return call.status();
}
