// The elementary functions over arrays, one function a set of instructions.
#ifndef TESTS_NUMBERS_ELEMENTARY_LANES_H
#define TESTS_NUMBERS_ELEMENTARY_LANES_H

#include "numbers/kernels.h"

// name, function of the library, the same in long double, least and largest argument, bound in units of the last place
#define ELEMENTARY_OF_ONE(X)                                                                                           \
    X(sine, sine_cosine(x).s, std::sin(x), -1e4, 1e4, 2.5)                                                             \
    X(cosine, sine_cosine(x).c, std::cos(x), -1e4, 1e4, 2.5)                                                           \
    X(arc_sine, arc_sine(x), std::asin(x), -1.0, 1.0, 2.5)                                                             \
    X(arc_cosine, arc_cosine(x), std::acos(x), -1.0, 1.0, 2.5)                                                         \
    X(cube_root, cube_root(x), std::cbrt(x), -1e300, 1e300, 0.67)                                                      \
    X(natural_log, natural_log(x), std::log(x), 5e-324, 1.79e308, 0.9)                                                 \
    X(hyperbolic_sine, hyperbolic_sine(x), std::sinh(x), -711.0, 711.0, 0.9)                                           \
    X(hyperbolic_cosine, hyperbolic_cosine(x), std::cosh(x), -711.0, 711.0, 0.9)                                       \
    X(arc_hyperbolic_sine, arc_hyperbolic_sine(x), std::asinh(x), -1e300, 1e300, 1.1)                                  \
    X(arc_hyperbolic_tangent, arc_hyperbolic_tangent(x), std::atanh(x), -1.0, 1.0, 0.9)

#define ELEMENTARY_OF_TWO(X) X(arc_tangent, arc_tangent(x, y), std::atan2(x, y), -10.0, 10.0, 2.2)

#define EXACT_OF_TWO(X)                                                                                                \
    X(floor, floor(x))                                                                                                 \
    X(trunc, trunc(x))                                                                                                 \
    X(sqrt, sqrt(fabs(x)))                                                                                             \
    X(copysign, copysign(x, y))                                                                                        \
    X(lesser, lesser(x, y))                                                                                            \
    X(greater, greater(x, y))                                                                                          \
    X(quotient, x / y)                                                                                                 \
    X(unordered, select(!((x < y) | (x >= y)), x, y))                                                                  \
    X(to_2pi, reduced_to_2pi(x))                                                                                       \
    X(to_360, reduced_to_360(x))

enum Elementary {
#define X(name, ...) k_##name,
    ELEMENTARY_OF_ONE(X) ELEMENTARY_OF_TWO(X) EXACT_OF_TWO(X)
#undef X
        kElementary
};

// n a multiple of kMostLanes
KL_KERNEL(elementary_lanes, (int function, const double *x, const double *y, double *out, long n));

#endif
