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
        const Moment<double> instant = seconds_carried(moment_of(row.utc));
        leap->sign = step > 0.0 ? 1 : -1;
        leap->utc = static_cast<double>(quarter_start(static_cast<long>(instant.days)));
        leap->tai = leap->utc + row.tai_utc / KL_SECONDS_PER_DAY - static_cast<double>(leap->sign) * kOneSecond;
    }
    return true;
}

void find_rows_of_leap_second(Correlation *correlation)
{
    correlation->leap_first = correlation->n_rows;
    correlation->leap_last = -1;
    for (long row = 0; row + 1 < correlation->n_rows; ++row) {
        const kl_time_row *rows = correlation->rows + row;
        if (reaches_leap_second(*correlation, KL_TIME_UTC, row, rows[0].utc, rows[1].utc)
            || reaches_leap_second(*correlation, KL_TIME_TAI, row, rows[0].tai, rows[1].tai)) {
            correlation->leap_first = row - 1 < correlation->leap_first ? row - 1 : correlation->leap_first;
            correlation->leap_last = row + 1;
        }
    }
}

LeapFlags leap_flags(const Correlation &correlation, long ref, long row, double first, double last, double time)
{
    if (!reaches_leap_second(correlation, ref, row, first, last))
        return {false, false};
    const LeapSecond &leap = correlation.leap;
    const kl_time_row &here = correlation.rows[row];
    double since = time - (ref == KL_TIME_TAI ? leap.tai : leap.utc); // days since the leap-second instant
    if (ref == KL_TIME_UT1)
        since = time + (here.tai_ut1 - here.tai_utc) / KL_SECONDS_PER_DAY - leap.utc;
    else if (ref == KL_TIME_GPS)
        since = time + (here.tai_gps - here.tai_utc) / KL_SECONDS_PER_DAY - leap.utc;
    if (!(KL_MICROSECONDS_PER_DAY * since >= -kHalfMicrosecond))
        return {false, false};
    return {since < kLeapSpan, since >= 0.0};
}
