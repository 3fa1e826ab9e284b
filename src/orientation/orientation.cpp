// From the caller's instant to what the kernels take.
#include "orientation/orientation.h"
#include "orientation/celestial_pole.h"

namespace {

// A fraction of a day beside its whole number.
double carried(long day, double fraction, long *whole)
{
    const long carry = whole_days(fraction);
    *whole = day + carry;
    return fraction - static_cast<double>(carry);
}

void set_tt(const SplitDay &tai, OrientationInstant *out)
{
    out->tt_fraction = carried(tai.day, tai.fraction + kTtMinusTai / kSecondsPerDay, &out->tt_day);
}

} // namespace

bool orientation_instant(const Correlation &correlation, long scale, double time_days, int order,
                         OrientationInstant *out)
{
    const auto [tai, near] = tai_of(correlation, scale, time_days);
    eop_values(correlation, tai, near, order, &out->eop);
    out->rows = nullptr;
    set_tt(tai, out);
    long ut1_day = whole_days(time_days);
    out->ut1_fraction = scale == KL_TIME_UT1
                            ? time_days - static_cast<double>(ut1_day)
                            : carried(tai.day, tai.fraction - out->eop.tai_ut1.value / kSecondsPerDay, &ut1_day);
    out->ut1_day = static_cast<double>(ut1_day);
    return inside_pole_table(out->tt_day);
}

bool orientation_rows(const Correlation &correlation, long scale, double time_days, OrientationInstant *out)
{
    if (scale == KL_TIME_UT1)
        return false;
    const auto [tai, near] = tai_of(correlation, scale, time_days);
    const long first = first_row_of_cubic(correlation, tai, near);
    if (first < 0)
        return false;
    out->rows = correlation.rows + first;
    out->poles = correlation.row_pole + first;
    out->tai_day = static_cast<double>(tai.day);
    out->tai_fraction = tai.fraction;
    out->eop.notes = 0;
    set_tt(tai, out);
    return inside_pole_table(out->tt_day);
}
