#include "time/leap_second.h"

#include "time/calendar.h"
#include "time/instants.h"

#include <cmath>

namespace {

constexpr double kLeapSpan = 1.1574062499999999e-5;  // days: one second less one microsecond
constexpr double kOneSecond = 1.1574074074074073e-5; // days
constexpr double kHalfMicrosecond = 0.5;             // microseconds
constexpr double kLeapStep = 0.5;                    // s: TAI-UTC moves by whole seconds

} // namespace

bool find_leap_second(const Correlation &correlation, LeapSecond *leap)
{
    *leap = {0, 0.0, 0.0};
    for (long i = 1; i < correlation.n_rows; ++i) {
        const kl_time_row &row = correlation.rows[i];
        const double step = row.tai_utc - correlation.rows[i - 1].tai_utc;
        if (std::fabs(step) < kLeapStep)
            continue;
        if (!inside_processing_range(row.utc))
            return false;
        // The standard record carries what lies within half a microsecond of midnight into the next day.
        kl_std_record instant = standard_of(row.utc);
        normalise_seconds(&instant);
        leap->sign = step > 0.0 ? 1 : -1;
        leap->utc = static_cast<double>(quarter_start(instant.days));
        leap->tai = leap->utc + row.tai_utc / KL_SECONDS_PER_DAY - static_cast<double>(leap->sign) * kOneSecond;
    }
    return true;
}

LeapFlags leap_flags(const Correlation &correlation, long ref, long row, double first, double last, double time)
{
    const LeapSecond &leap = correlation.leap;
    if (leap.sign == 0)
        return {false, false};
    double since = 0.0; // days since the leap-second instant
    if (ref == KL_TIME_TAI) {
        if (!(first <= leap.tai && leap.tai <= last))
            return {false, false};
        since = time - leap.tai;
    } else {
        const kl_time_row &here = correlation.rows[row];
        const kl_time_row &next = row + 1 < correlation.n_rows ? correlation.rows[row + 1] : here;
        if (!(here.utc <= leap.utc && leap.utc < next.utc))
            return {false, false};
        double utc = time;
        if (ref == KL_TIME_UT1)
            utc += (here.tai_ut1 - here.tai_utc) / KL_SECONDS_PER_DAY;
        else if (ref == KL_TIME_GPS)
            utc += (here.tai_gps - here.tai_utc) / KL_SECONDS_PER_DAY;
        since = utc - leap.utc;
    }
    if (!(KL_MICROSECONDS_PER_DAY * since >= -kHalfMicrosecond))
        return {false, false};
    return {since < kLeapSpan, since >= 0.0};
}
