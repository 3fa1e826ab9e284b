// Lengths of vectors, differences of angles.
#ifndef KL_TESTS_SUPPORT_PLACES_H
#define KL_TESTS_SUPPORT_PLACES_H

#include <cmath>

inline double apart(double a_deg, double b_deg)
{
    return std::fabs(std::remainder(a_deg - b_deg, 360.0));
}

inline double length(const double *v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

inline double distance(const double *a, const double *b)
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return length(d);
}

#endif
