// Lengths of vectors, angles between directions.
#ifndef KL_TESTS_SUPPORT_VECTORS_H
#define KL_TESTS_SUPPORT_VECTORS_H

#include <cmath>

inline double length(const double *v)
{
    return std::hypot(v[0], v[1], v[2]);
}
inline double distance(const double *a, const double *b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}
inline double apart(double a, double b) // of two angles, deg
{
    return std::fabs(std::remainder(a - b, 360.0));
}

#endif
