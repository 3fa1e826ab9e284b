// Instants as numbers and as records of day, second and microsecond: constants, ranges, and the arithmetic between.
#ifndef KL_SRC_TIME_INSTANTS_H
#define KL_SRC_TIME_INSTANTS_H

#include "kl_family.h"
#include "numbers/constants.h"
#include "time/moments.h"

#include <cstdint>

constexpr double KL_MICROSECONDS_PER_DAY = 8.64e10;
constexpr double KL_PROCESSING_FIRST = -18262.0; // 1950-01-01 00:00:00
constexpr double KL_PROCESSING_LAST = 36524.0;   // 2099-12-31 00:00:00
constexpr double KL_CALENDAR_END = 36525.0;      // 2100-01-01 00:00:00, excluded
constexpr long KL_GPS_EPOCH_DAY = -7300;         // 1980-01-06

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

inline Moment<double> moment_of(const kl_std_record &record)
{
    return {static_cast<double>(record.days), static_cast<double>(record.seconds),
            static_cast<double>(record.microseconds)};
}

inline kl_std_record record_of(const Moment<double> &moment)
{
    return {truncated_to_long(moment.days), truncated_to_long(moment.seconds), truncated_to_long(moment.microseconds)};
}

// Days, to the second and without a division.
inline double about(const Moment<double> &moment)
{
    return moment.days + moment.seconds * (1.0 / KL_SECONDS_PER_DAY);
}

// ---- TAI and TDB, MJD2000 days ----

double tdb_of_tai(double tai_days);
double tai_of_tdb(double tdb_days);

#endif
