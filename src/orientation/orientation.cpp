// From the caller's instant to what the kernels take.
#include "orientation/orientation.h"
#include "orientation/celestial_pole.h"

bool orientation_instant(const Correlation &correlation, long scale, double time_days, int order,
                         OrientationInstant *out)
{
    const auto carried = [](long day, double fraction, long *whole) {
        const long carry = whole_days(fraction);
        *whole = day + carry;
        return fraction - static_cast<double>(carry);
    };
    const auto [tai, near] = tai_of(correlation, scale, time_days);
    eop_values(correlation, tai, near, order, &out->eop);
    out->tt_fraction = carried(tai.day, tai.fraction + kTtMinusTai / kSecondsPerDay, &out->tt_day);
    long ut1_day = whole_days(time_days);
    out->ut1_fraction = scale == KL_TIME_UT1
                            ? time_days - static_cast<double>(ut1_day)
                            : carried(tai.day, tai.fraction - out->eop.tai_ut1.value / kSecondsPerDay, &ut1_day);
    out->ut1_day = static_cast<double>(ut1_day);
    return inside_pole_table(out->tt_day);
}
