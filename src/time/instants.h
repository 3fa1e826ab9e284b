// Instants as numbers and as records of day, second and microsecond: constants, ranges, and the arithmetic between.
#ifndef KL_SRC_TIME_INSTANTS_H
#define KL_SRC_TIME_INSTANTS_H

#include "kl_family.h"

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

// Is it one of the four public references?
inline bool is_time_ref(long ref)
{
    return ref >= KL_TIME_TAI && ref <= KL_TIME_GPS;
}

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

// ---- the standard record ----

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

// Days, to the second and without a division.
inline double about(const kl_std_record &record)
{
    return static_cast<double>(record.days) + static_cast<double>(record.seconds) * (1.0 / KL_SECONDS_PER_DAY);
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

// Microseconds of -1000000 to 1999999 into 0 to 999999, by one second.
inline void normalise_microseconds(kl_std_record *record)
{
    constexpr long kSecond = 1000000;
    if (record->microseconds >= kSecond) {
        record->microseconds -= kSecond;
        ++record->seconds;
    } else if (record->microseconds < 0) {
        record->microseconds += kSecond;
        --record->seconds;
    }
}

// ---- TAI and TDB, MJD2000 days ----

double tdb_of_tai(double tai_days);
double tai_of_tdb(double tdb_days);

#endif
