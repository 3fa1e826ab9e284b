// A cubic through four rows of a correlation.
#ifndef KL_SRC_ORIENTATION_EOP_ROWS_H
#define KL_SRC_ORIENTATION_EOP_ROWS_H

#include "numbers/constants.h"
#include "orientation/jet.h"

inline namespace KL_SET {

// The weight of a row and its first and second derivatives by days; own, a, b, d: days from the instant to that row and
// to the three others.
template <int order, class T>
inline Jet<T> row_weight(const T &own, const T &a, const T &b, const T &d)
{
    const T scale = 1.0 / ((own - a) * (own - b) * (own - d));
    Jet<T> w{-scale * (a * b * d), own * 0.0, own * 0.0};
    if (order >= 1)
        w.rate = scale * (a * b + a * d + b * d);
    if (order >= 2)
        w.acceleration = -2.0 * scale * (a + b + d);
    return w;
}

// Of all four, from the days from the instant to each.
template <int order, class T>
void row_weights(const T (&ahead)[4], Jet<T> (&w)[4])
{
    if constexpr (lanes_of<T> == 1) { // rows side by side
        constexpr int width = kLanes < 4 ? kLanes : 4;
        for (int first = 0; first < 4; first += width) {
            const auto from = [&](int shift) {
                Pack<width> days{};
                for (int i = 0; i < width; ++i)
                    set_lane(days, i, ahead[(first + shift + i) % 4]);
                return days;
            };
            const Jet<Pack<width>> some = row_weight<order>(from(0), from(1), from(2), from(3));
            for (int i = 0; i < width; ++i)
                w[first + i] = {some.value[i], some.rate[i], some.acceleration[i]};
        }
    } else {
        for (int i = 0; i < 4; ++i)
            w[i] = row_weight<order>(ahead[i], ahead[(i + 1) % 4], ahead[(i + 2) % 4], ahead[(i + 3) % 4]);
    }
}

// The weighted sum of a column, or of several side by side, and its derivatives by seconds.
template <int order, int n, class Weight, class T>
inline Jet<T> weighted(const Jet<Weight> (&w)[n], const T (&column)[n])
{
    Jet<T> out{0.0, 0.0, 0.0};
    for (int i = 0; i < n; ++i) {
        out.value = out.value + w[i].value * column[i];
        if (order >= 1)
            out.rate = out.rate + w[i].rate * column[i];
        if (order >= 2)
            out.acceleration = out.acceleration + w[i].acceleration * column[i];
    }
    if (order >= 1)
        out.rate = out.rate / KL_SECONDS_PER_DAY;
    if (order >= 2)
        out.acceleration = out.acceleration / (KL_SECONDS_PER_DAY * KL_SECONDS_PER_DAY);
    return out;
}

} // namespace KL_SET

#endif
