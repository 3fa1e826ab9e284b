// Ranges of arguments: NaN is outside of all of them.
#ifndef KL_SRC_NUMBERS_BOUNDS_H
#define KL_SRC_NUMBERS_BOUNDS_H

#include <cmath>

// The largest that are taken where nothing else is said.
constexpr double KL_LARGEST_POSITION = 1e13;    // m
constexpr double KL_LARGEST_VELOCITY = 1e9;     // m/s
constexpr double KL_LARGEST_ACCELERATION = 1e9; // m/s2

inline bool within(double x, double least, double most)
{
    return least <= x && x <= most;
}

// Neither infinite nor NaN?
inline bool finite(const double v[3])
{
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

// A pointer to a number in a range?
inline bool holds(const double *x, double least, double most)
{
    return x != nullptr && within(*x, least, most);
}

// A pointer to a vector no longer than a bound (up to 1e150)?
inline bool holds_vector(const double v[3], double most)
{
    return v != nullptr && v[0] * v[0] + v[1] * v[1] + v[2] * v[2] <= most * most;
}

#endif
