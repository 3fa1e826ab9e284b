// A cubic through four rows of a correlation, for one instant or a pack of them.
#ifndef KL_SRC_ORIENTATION_EOP_ROWS_H
#define KL_SRC_ORIENTATION_EOP_ROWS_H

#include "orientation/jet.h"
#include "orientation/units.h"

inline namespace KL_SET {

// Weights of the rows and their first and second derivatives by days.
template <class T>
struct RowWeights {
    T value[4], rate[4], acceleration[4];
};

// Of the days from the instant to each row.
template <int order, class T>
RowWeights<T> row_weights(const T (&ahead)[4])
{
    RowWeights<T> w;
    for (int i = 0; i < 4; ++i) {
        const T own = ahead[i], a = ahead[(i + 1) % 4], b = ahead[(i + 2) % 4], d = ahead[(i + 3) % 4];
        const T scale = 1.0 / ((own - a) * (own - b) * (own - d));
        w.value[i] = -scale * (a * b * d);
        if (order >= 1)
            w.rate[i] = scale * (a * b + a * d + b * d);
        if (order >= 2)
            w.acceleration[i] = -2.0 * scale * (a + b + d);
    }
    return w;
}

// The weighted sum of a column and its derivatives by seconds.
template <int order, class T>
Jet<T> weighted(const RowWeights<T> &w, const T (&column)[4])
{
    Jet<T> out{0.0, 0.0, 0.0};
    for (int i = 0; i < 4; ++i) {
        out.value = out.value + w.value[i] * column[i];
        if (order >= 1)
            out.rate = out.rate + w.rate[i] * column[i];
        if (order >= 2)
            out.acceleration = out.acceleration + w.acceleration[i] * column[i];
    }
    if (order >= 1)
        out.rate = out.rate / kSecondsPerDay;
    if (order >= 2)
        out.acceleration = out.acceleration / (kSecondsPerDay * kSecondsPerDay);
    return out;
}

} // namespace KL_SET

#endif
