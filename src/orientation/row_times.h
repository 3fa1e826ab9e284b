// The times of instants between two rows of a correlation.
#ifndef KL_SRC_ORIENTATION_ROW_TIMES_H
#define KL_SRC_ORIENTATION_ROW_TIMES_H

#include "numbers/constants.h"
#include "orientation/celestial_pole.h"
#include "orientation/orientation.h"

inline namespace KL_SET {

template <class T>
T floor_of_days(const T &days)
{
    if constexpr (lanes_of<T> == 1)
        return static_cast<double>(
            whole_days(days)); // the C library's floor is a call where SSE4 is not taken for granted
    else
        return floor(days);
}

// Of instants of a scale other than UT1; TAI-UTC (s) and TAI of the row before each, TAI of the next one. GPS is the
// usual distance from TAI. False where TAI leaves the rows, to which rounding may bring it, or TT the table of the
// pole.
template <class T>
mask_of<T> times_between(const T &days, long scale, const T &tai_utc, const T &tai_begin, const T &tai_end,
                         OrientationTimes<T> *out)
{
    const T to_tai = scale == KL_TIME_UTC ? tai_utc : T(scale == KL_TIME_GPS ? kTaiMinusGps : 0.0);
    out->tai_day = floor_of_days(days);
    out->tai_fraction = (days - out->tai_day) + to_tai / KL_SECONDS_PER_DAY;
    const T tai = out->tai_day + out->tai_fraction;
    const T tt = out->tai_fraction + KL_TT_MINUS_TAI / KL_SECONDS_PER_DAY;
    const T carry = floor_of_days(tt);
    out->tt_day = out->tai_day + carry;
    out->tt_fraction = tt - carry;
    return (tai >= tai_begin) & (tai < tai_end) & inside_pole_table(out->tt_day);
}

} // namespace KL_SET

#endif
