// Records and procedures of the time floor.
#ifndef KL_SRC_TIME_SCALES_H
#define KL_SRC_TIME_SCALES_H

#include "errors/activation.h"
#include "kl_family.h"
#include "time/correlation.h"
#include "time/time_record.h"

#include <cstdint>

constexpr double KL_SECONDS_PER_DAY = 86400.0;
constexpr double KL_MICROSECONDS_PER_DAY = 8.64e10;
constexpr double KL_PROCESSING_FIRST = -18262.0; // 1950-01-01 00:00:00
constexpr double KL_PROCESSING_LAST = 36524.0;   // 2099-12-31 00:00:00
constexpr double KL_CALENDAR_END = 36525.0;      // 2100-01-01 00:00:00, excluded
constexpr long KL_GPS_EPOCH_DAY = -7300;         // 1980-01-06

// References and formats of a kl_time_record.
enum { KL_REF_TDB = 1, KL_REF_2 = 2, KL_REF_TAI = 3, KL_REF_UT1 = 4, KL_REF_UTC = 5, KL_REF_GPS = 6 };
enum { KL_FORMAT_JULIAN = 1, KL_FORMAT_1950 = 2, KL_FORMAT_MJD2000 = 3 };

// The one check of a processing value: NaN is outside.
inline bool inside_processing_range(double days)
{
    return days >= KL_PROCESSING_FIRST && days <= KL_PROCESSING_LAST;
}

// An argument that may be NULL.
inline long value_or(const long *argument, long otherwise)
{
    return argument != nullptr ? *argument : otherwise;
}

// ---- whole numbers ----

// Towards zero and downwards; saturated to the range of long, NaN gives 0.
inline long truncated_to_long(double x)
{
    constexpr double kEnd = 9223372036854775808.0; // 2^63
    if (x >= -kEnd && x < kEnd)
        return static_cast<long>(x);
    return x >= kEnd ? INT64_MAX : x < -kEnd ? INT64_MIN : 0;
}

inline long floor_to_long(double x)
{
    const long whole = truncated_to_long(x);
    return static_cast<double>(whole) > x && whole > INT64_MIN ? whole - 1 : whole;
}

constexpr long floor_div(long a, long b) // b > 0
{
    return a / b - (a % b < 0 ? 1 : 0);
}

// ---- conditions of the internal checks ----
enum { KL_CHECK_IN_FORMAT = 0, KL_CHECK_IN_REF = 1, KL_CHECK_IN_DAYS = 2 }; // KL_Time_check_processing_inputs
enum { KL_CHECK_OUT_FORMAT = 0, KL_CHECK_OUT_REF = 1 };                     // KL_Time_check_processing_outputs
enum { KL_P2T_LEAP_SECOND = 0 };                                            // KL_Time_p2t_format_to_std
enum { KL_TO_TAI_NOT_INITIALISED = 0, KL_TO_TAI_OUT_OF_RANGE = 1, KL_TO_TAI_LEAP_SECOND = 2 }; // and from TAI, 0 and 1
enum { KL_GET_TIME_IN_REF_FAILED = 0 };

// Is it one of the four public references?
inline bool is_time_ref(long ref)
{
    return ref >= KL_TIME_TAI && ref <= KL_TIME_GPS;
}

// The standard record of a processing value, nearest microsecond. A value that is rounded up to midnight keeps its day
// with 86400 seconds: what these are depends on leap seconds.
inline kl_std_record standard_of(double t)
{
    kl_std_record out;
    out.days = static_cast<long>(t);
    out.days -= static_cast<double>(out.days) > t ? 1 : 0;
    const double fraction = t - static_cast<double>(out.days); // 0 to 1: cutting is rounding down
    out.seconds = static_cast<long>(KL_SECONDS_PER_DAY * fraction);
    out.microseconds = static_cast<long>(
        (fraction - static_cast<double>(out.seconds) / KL_SECONDS_PER_DAY) * KL_MICROSECONDS_PER_DAY + 0.5);
    if (out.microseconds == 1000000) {
        out.microseconds = 0;
        ++out.seconds;
    }
    return out;
}

// The processing value of a standard record. The parts of the day are added first: with one rounding of the large sum
// the microsecond comes back up to the end of 2099, with two it would not.
inline double processing_of(const kl_std_record &record)
{
    return static_cast<double>(record.days)
           + (static_cast<double>(record.seconds) / KL_SECONDS_PER_DAY
              + static_cast<double>(record.microseconds) / KL_MICROSECONDS_PER_DAY);
}

// Seconds of the day into 0 to 86399. Floor division: readings given by hand may lie days apart.
inline void normalise_seconds(kl_std_record *record)
{
    constexpr long day = 86400;
    if (record->seconds >= 0 && record->seconds < day)
        return;
    long days = record->seconds / day;
    if (record->seconds % day < 0)
        --days;
    record->days += days;
    record->seconds -= days * day;
}

// ---- leap seconds ----

// Does the UTC day end with the leap second that the id knows? Its sign, or 0.
inline long leap_sign_of_day(const Correlation *id, long days)
{
    return id != nullptr && id->leap.sign != 0 && days == static_cast<long>(id->leap.utc - 1.0) ? id->leap.sign : 0;
}

// Where an instant lies with respect to the leap second of the id.
struct LeapFlags {
    bool in, after;
};
// `first` and `last`: column of the reference in the row and in the one after it.
LeapFlags leap_flags(const Correlation &id, long ref, long row, double first, double last, double time);

// ---- one instant between a scale and TAI ----

// How far a scale is behind TAI: whole seconds, and microseconds of 0 to 1000000.
struct BehindTai {
    long seconds, microseconds;
};
inline BehindTai behind_tai(const kl_time_row &row, long ref)
{
    switch (ref) {
    case KL_TIME_TAI:
        return {0, 0};
    case KL_TIME_UTC:
        return {static_cast<long>(row.tai_utc), 0};
    case KL_TIME_UT1: {
        const long whole = floor_to_long(row.tai_ut1);
        return {whole, static_cast<long>(1e6 * (row.tai_ut1 - static_cast<double>(whole)) + 0.5)};
    }
    default:
        return {static_cast<long>(row.tai_gps), 0};
    }
}

// From one scale to another with the row of explicit values: what the two steps by way of TAI give, in one.
inline void shift_by_explicit_values(const kl_time_row &row, long from, long to, kl_std_record *record)
{
    const BehindTai in = behind_tai(row, from);
    const BehindTai out = behind_tai(row, to);
    record->seconds += in.seconds - out.seconds;
    record->microseconds += in.microseconds - out.microseconds;
    if (record->microseconds >= 1000000) {
        record->microseconds -= 1000000;
        ++record->seconds;
    } else if (record->microseconds < 0) {
        record->microseconds += 1000000;
        --record->seconds;
    }
    normalise_seconds(record);
}

// As KL_Time_t2t_ref_to_tai and _from_tai, in place and without error records: out_of_range becomes true where they
// warn of it. False, with the record as it is, where they have more to report or to print; then they have to be asked.
// `row` is that of likely_row, where the instant may lie: with a wrong one the result is the same and takes longer.
bool quickly_to_tai(const Correlation &id, long ref, long row, kl_std_record *record, bool *out_of_range);
bool quickly_from_tai(const Correlation &id, long ref, long row, double tai_days, kl_std_record *record,
                      bool *out_of_range);
long likely_row(const Correlation &id, double about); // -1 outside the table

// KL_Check_Time_warn_flags of a table: 0, or the warning 1 to 3.
long once_only_warning(TimeIdRecord *id, long set, double tai_days);

// ---- calendar, 1950 to 2099: every fourth year is a leap year ----

struct CalendarDay {
    long year, month, day;
};

CalendarDay calendar_of_day(long mjd2000);
long day_of_calendar(long year, long month, long day);

inline long days_in_month(long year, long month)
{
    if (month == 2)
        return year % 4 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

// ---- texts and transport formats: to and from the standard record, no change of reference ----

// read_ascii
enum {
    KL_ASCII_IN_FORMAT = 0,
    KL_ASCII_IN_REF = 1,
    KL_ASCII_IN_YEAR = 2,
    KL_ASCII_IN_LAYOUT = 3,
    KL_ASCII_IN_TOO_SHORT = 4,
    KL_ASCII_IN_TOO_LONG = 5,
    KL_ASCII_IN_PREFIX = 6,
    KL_ASCII_IN_PREFIX_REF = 7,
    KL_ASCII_IN_NO_REF = 8,
    KL_ASCII_IN_MISSION_LIMIT = 9,
    KL_ASCII_IN_MONTH = 10,
    KL_ASCII_IN_DAY = 11,
    KL_ASCII_IN_HOUR = 12,
    KL_ASCII_IN_MINUTE = 13,
    KL_ASCII_IN_SECOND = 14,
    KL_ASCII_IN_MICROSECOND = 15,
    KL_ASCII_IN_DAY_OF_30 = 16,
    KL_ASCII_IN_DAY_OF_29 = 17,
    KL_ASCII_IN_DAY_OF_28 = 18,
    KL_ASCII_IN_LEAP_SECOND = 19,
    KL_ASCII_IN_N_CODES = 20
};
enum { KL_ASCII_OUT_FORMAT = 0, KL_ASCII_OUT_REF = 1 };                           // KL_Time_check_ascii_outputs
enum { KL_ASCII_WRITE_BEFORE_1950 = 0, KL_ASCII_WRITE_AFTER_2099 = 1 };           // write_ascii
enum { KL_TRANS_OUT_FORMAT = 0, KL_TRANS_OUT_REF = 1, KL_TRANS_OUT_GPS_REF = 2 }; // KL_Time_check_transport_outputs

// read_transport
enum {
    KL_TRANS_IN_FORMAT = 0,
    KL_TRANS_IN_REF = 1,
    KL_TRANS_IN_GPS_REF = 2,
    KL_TRANS_IN_DAYS = 3,
    KL_TRANS_IN_LEAP_SECOND = 4,
    KL_TRANS_IN_SECONDS = 5,
    KL_TRANS_IN_MILLISECONDS = 6,
    KL_TRANS_IN_MICROSECONDS = 7,
    KL_TRANS_IN_TICKS = 8,
    KL_TRANS_IN_WEEK = 9,
    KL_TRANS_IN_SECONDS_OF_WEEK = 10,
    KL_TRANS_IN_FRACTION = 11,
    KL_TRANS_IN_GPS_SECONDS = 12,
    KL_TRANS_IN_N_CODES = 13
};

// Beginning- and end-of-mission texts: three writings of the two limits of the processing range.
enum class MissionLimit {
    none,
    beginning,  // 0000-00-00_00:00:00
    end,        // 9999-99-99_99:99:99
    end_of_9999 // 9999-12-31_23:59:59
};

bool is_ascii_format(long format);

// Reads a text; own_ref receives the reference of a prefix, or `ref` without one. The 61st second is read inside a
// positive leap second of the id. 0, or -1 with one condition in the record.
long read_ascii(kl_time_id *time_id, long format, long ref, const char *text, long *own_ref, kl_std_record *out,
                kl_error_record *error, MissionLimit *limit = nullptr);
// Writes at most KL_TIME_ASCII_LENGTH characters, terminator included; a valid format and reference. 86400 seconds are
// written as 23:59:60, a limit as its text whatever the record holds.
long write_ascii(long format, long ref, const kl_std_record *in, char *text, kl_error_record *error,
                 MissionLimit limit = MissionLimit::none);
long check_ascii_outputs(long format, long ref, kl_error_record *error);

// Reads the four fields of a transport time; 0, or -1 with one condition in the record.
long read_transport(kl_time_id *time_id, long format, long ref, const long fields[4], kl_std_record *out,
                    kl_error_record *error);
// Writes all four fields; a valid format.
void write_transport(long format, const kl_std_record *in, long fields[4]);
// Can the format tell the 61st second of a day from the second after it?
bool transport_holds_leap_second(long format);
long check_transport_outputs(long format, long ref, kl_error_record *error);

// Does the day end with a positive leap second of the id? Only UTC has any.
inline bool ends_with_leap_second(const kl_time_id *time_id, long ref, long day)
{
    return ref == KL_TIME_UTC && leap_sign_of_day(correlation_of(time_id), day) > 0;
}

#endif
