// From the caller's instant to what the kernels take.
#include "orientation/orientation.h"
#include "orientation/celestial_pole.h"

namespace {

// A fraction of a day beside its whole number.
double carried(long day, double fraction, double *whole)
{
    const long carry = whole_days(fraction);
    *whole = static_cast<double>(day + carry);
    return fraction - static_cast<double>(carry);
}

} // namespace

bool orientation_instant(const Correlation &correlation, long scale, double time_days, int order,
                         OrientationInstant *out)
{
    const auto [tai, near] = tai_of(correlation, scale, time_days);
    eop_values(correlation, tai, near, order, &out->eop);
    out->rows = nullptr;
    out->times.tai_day = static_cast<double>(tai.day);
    out->times.tai_fraction = tai.fraction;
    out->times.tt_fraction = carried(tai.day, tai.fraction + KL_TT_MINUS_TAI / KL_SECONDS_PER_DAY, &out->times.tt_day);
    if (scale == KL_TIME_UT1) {
        out->ut1_day = static_cast<double>(whole_days(time_days));
        out->ut1_fraction = time_days - out->ut1_day;
    } else {
        out->ut1_fraction = carried(tai.day, tai.fraction - out->eop.tai_ut1.value / KL_SECONDS_PER_DAY, &out->ut1_day);
    }
    return inside_pole_table(out->times.tt_day);
}
