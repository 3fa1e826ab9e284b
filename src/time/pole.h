// The pole of the Earth that a correlation holds.
#ifndef KL_SRC_TIME_POLE_H
#define KL_SRC_TIME_POLE_H

#include "numbers/constants.h"
#include "time/correlation.h"

// rad, rad/s
template <class T>
struct PoleOf {
    T x, y, x_rate, y_rate;
};
using Pole = PoleOf<double>;

inline namespace KL_SET {

// A coordinate and its rate: arcsec and arcsec/day.
template <class T>
struct PoleCoordinate {
    T value, rate;
};

// `part` of the way from one row to the next, which are `days` apart.
template <class T>
PoleCoordinate<T> pole_on_the_line(T first, T second, T part, T days)
{
    const T step = second - first;
    return {first + part * step, step / days};
}

template <class T>
PoleOf<T> pole_in_radians(const PoleCoordinate<T> &x, const PoleCoordinate<T> &y)
{
    return {x.value * KL_RAD_PER_ARCSEC, y.value * KL_RAD_PER_ARCSEC, x.rate * KL_RAD_PER_ARCSEC / KL_SECONDS_PER_DAY,
            y.rate * KL_RAD_PER_ARCSEC / KL_SECONDS_PER_DAY};
}

} // namespace KL_SET

// Inside the table on the straight line between two rows; after it by the formula of the bulletin, if there is one,
// else that of the last row; before it that of the first. Rows without a pole: the formula at every instant.
Pole pole_at(const Correlation &correlation, double ut1_days);

// The same as published: x, y, dX, dY, arcsec. dX, dY of the first or last row outside the table.
void pole_in_arcsec(const Correlation &correlation, double ut1_days, double pole[4]);

#endif
