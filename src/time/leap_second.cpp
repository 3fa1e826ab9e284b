// Leap seconds: the start of a quarter, the day and the second of the one leap second an id knows, and the query.
#include "errors/message_groups.h"
#include "time/scales.h"

namespace {

enum {
    KL_QUARTER_REF = 0,
    KL_QUARTER_WRITING = 1,
    KL_QUARTER_FIELDS = 2,
    KL_QUARTER_READING = 3,
};
constexpr Message kQuarterRows[] = {
    /* KL_QUARTER_REF     */ error("Time reference ID is not correct"),
    /* KL_QUARTER_WRITING */ error("Internal Error # 1"),
    /* KL_QUARTER_FIELDS  */ error("Internal Error # 2"), // never recorded: the fields are not read back from a text
    /* KL_QUARTER_READING */ error("Internal Error # 3"),
};

enum { KL_LEAP_CHECK_REF = 0, KL_LEAP_CHECK_DATE = 1 };
constexpr Message kCheckRows[] = {
    /* KL_LEAP_CHECK_REF  */ error("Time reference ID is not correct"),
    /* KL_LEAP_CHECK_DATE */ error("Input date is out of range"),
};

// The present-time function records codes 0 to 2 of these rows as well.
constexpr Message kInfoRows[] = {
    /* KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR  */ error("Output ascii format ID is not correct"),
    /* KL_TIME_GET_LEAP_SECOND_INFO_ADD_ERR     */ error("Error in adding times in Processing format"),
    /* KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR */ error("Error in converting from Processing to ASCII format"),
    /* KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN*/ warning("Time Reference not initialised"),
};

constexpr double kLeapSpan = 1.1574062499999999e-5;      // days: one second less one microsecond
constexpr double kBeforeTheLeap = 1.1573940116433837e-5; // days: 1/86401, 12 microseconds short of a second
constexpr double kHalfMicrosecond = 0.5;                 // microseconds

// Writes a time in its own reference: no time id comes in.
bool write_time(long ref, const double *time, long format, char *text)
{
    const long processing = KL_PROC;
    return kl_time_processing_to_ascii(nullptr, &processing, &ref, time, &format, &ref, text, nullptr) != KL_ERR;
}

bool write_utc(double utc, long format, char *text)
{
    return write_time(KL_TIME_UTC, &utc, format, text);
}

} // namespace

const MessageGroup messages_KL_Leap_second_utc_time = group(kQuarterRows);
const MessageGroup messages_KL_Time_check_leap_second = group(kCheckRows);
const MessageGroup messages_kl_time_get_leap_second_info = group(kInfoRows);

long KL_Leap_second_utc_time(const long *ref, const double *time, double *quarter_start, kl_error_record *error)
{
    Activation call(KL_FN_LEAP_SECOND_UTC_TIME, error);
    const long reference = value_or(ref, KL_TIME_UNDEF);
    if (KL_Check_time_ref_2(reference) == 0)
        return call.fails(KL_QUARTER_REF);
    if (time == nullptr || !inside_processing_range(*time)) {
        // The conversion that refuses the time reports first.
        char text[KL_TIME_ASCII_LENGTH];
        if (!write_time(reference, time, KL_ASCII_11, text))
            return call.fails(KL_QUARTER_WRITING);
    }
    // The standard record carries what lies within half a microsecond of midnight into the next day, as a text would.
    kl_std_record instant{};
    if (KL_Time_p2t_format_to_std(nullptr, reference, time, &instant, nullptr) == KL_ERR)
        return call.fails(KL_QUARTER_WRITING);
    // On purpose: leap seconds happen at the end of a quarter, whatever day of the quarter the time falls on.
    CalendarDay date = calendar_of_day(instant.days);
    date.month = (date.month - 1) / 3 * 3 + 1;
    date.day = 1;
    if (quarter_start == nullptr) {
        return call.fails(KL_QUARTER_READING);
    }
    *quarter_start = static_cast<double>(day_of_calendar(date.year, date.month, date.day));
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
        *leap_flag = leap_sign_of_day(correlation_of(time_id), rec->days);
    return call.status();
}

LeapFlags leap_flags(const Correlation &id, long ref, long row, double first, double last, double time)
{
    if (id.leap.sign == 0)
        return {false, false};
    double since = 0.0; // days since the leap-second instant
    if (ref == KL_TIME_TAI) {
        if (!(first <= id.leap.tai && id.leap.tai <= last))
            return {false, false};
        since = time - id.leap.tai;
    } else {
        const kl_time_row &here = id.rows[row];
        const kl_time_row &next = row + 1 < id.n_rows ? id.rows[row + 1] : here;
        if (!(here.utc <= id.leap.utc && id.leap.utc < next.utc))
            return {false, false};
        double utc = time;
        if (ref == KL_TIME_UT1)
            utc += (here.tai_ut1 - here.tai_utc) / KL_SECONDS_PER_DAY;
        else if (ref == KL_TIME_GPS)
            utc += (here.tai_gps - here.tai_utc) / KL_SECONDS_PER_DAY;
        since = utc - id.leap.utc;
    }
    if (!(KL_MICROSECONDS_PER_DAY * since >= -kHalfMicrosecond))
        return {false, false};
    return {since < kLeapSpan, since >= 0.0};
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
    if (check_ascii_outputs(format, KL_TIME_UTC, nullptr) == KL_ERR)
        return call.fails(KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR);
    const Correlation *id = correlation_of(time_id);
    if (id == nullptr)
        call.warns(KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN);
    if (id == nullptr || id->leap.sign == 0)
        return call.status();

    *leap_sign = id->leap.sign;
    // No time id: an instant that is only written must not spend a once-only warning.
    if (!write_utc(id->leap.utc, format, utc_time_after)
        || !write_utc(id->leap.utc - kBeforeTheLeap, format, utc_time_before))
        return call.fails(KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR);
    return call.status();
}
