// From the caller's instant to what the kernels take.
#include "orientation/orientation.h"
#include "orientation/celestial_pole.h"

#include <cmath>

bool orientation_instant(const Correlation &correlation, long scale, double time_days, OrientationInstant *out)
{
    const auto carried = [](long day, double fraction, long *whole) {
        const double carry = std::floor(fraction);
        *whole = day + static_cast<long>(carry);
        return fraction - carry;
    };
    const SplitDay tai = tai_of(correlation, scale, time_days);
    out->eop = eop_values(correlation, tai);
    out->tt_fraction = carried(tai.day, tai.fraction + kTtMinusTai / kSecondsPerDay, &out->tt_day);
    long ut1_day = 0;
    out->ut1_fraction =
        scale == KL_TIME_UT1
            ? carried(static_cast<long>(std::floor(time_days)), time_days - std::floor(time_days), &ut1_day)
            : carried(tai.day, tai.fraction - out->eop.tai_ut1.value / kSecondsPerDay, &ut1_day);
    out->ut1_day = static_cast<double>(ut1_day);
    return inside_pole_table(out->tt_day);
}
