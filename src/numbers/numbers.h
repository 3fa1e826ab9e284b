// The numerical floor: kernels that the exported families share. Flat and one-based callers differ only in how they
// index, so each operation is written once, over a view.
#ifndef KL_SRC_NUMBERS_NUMBERS_H
#define KL_SRC_NUMBERS_NUMBERS_H

#include "kl_family.h"
#include "numbers/constants.h"
#include "numbers/pack.h"

#include <cmath>

inline namespace KL_SET {

// The sum of squares where it is not above the limit, else the length.
inline double length_or_square(double sum_of_squares)
{
    return sum_of_squares > KL_NULL_LENGTH_SQUARED ? std::sqrt(sum_of_squares) : sum_of_squares;
}

// 1 / sqrt(square): by its series near 1, where a root and a division would make others wait.
template <class T>
T per_length(T square)
{
    constexpr double kNear = 0x1p-20; // the next term is below 2^-61
    const T e = square - 1.0;
    const auto near = fabs(e) <= kNear;
    const T series = 1.0 - e * (0.5 - e * 0.375);
    return all(near) ? series : select(near, series, 1.0 / sqrt(square));
}

// Is the root within 1e-6 of 1?
template <class T>
mask_of<T> is_unit(T square)
{
    constexpr double kUnit = 1e-6;
    // Nearer than that the square needs no root; not so for NaN.
    const auto near = fabs(square - 1.0) <= kUnit;
    return all(near) ? near : near | (fabs(sqrt(square) - 1.0) <= kUnit);
}

// Copies three numbers, which may overlap.
inline void copy_three(const double *from, double *to)
{
    const double x = from[0];
    const double y = from[1];
    const double z = from[2];
    to[0] = x;
    to[1] = y;
    to[2] = z;
}

// ---- the two angle reductions ----

// [0, 2 pi). NaN and infinities give NaN.
template <class T>
T reduced_to_2pi(T angle)
{
    const T turns = 2.0 * trunc(angle / KL_TWO_PI);
    T rest = select(angle > KL_TWO_PI, angle - turns * KL_PI, angle);
    rest = select(angle < 0.0, angle + (2.0 - turns) * KL_PI, rest);
    // Rounding may leave either end by a little.
    return select((rest < 0.0) | (rest >= KL_TWO_PI), 0.0, rest);
}

// [0, 360), in degrees throughout: whole turns are exact.
template <class T>
T reduced_to_360(T degrees)
{
    const T rest = degrees - 360.0 * floor(degrees / 360.0);
    return select((rest < 0.0) | (rest >= 360.0), 0.0, rest); // below 0: the smallest of all numbers
}

// ---- views ----

// Row-major elements from 0.
template <typename T>
struct FlatMatrix {
    T *elements;
    long columns;
    T &operator()(long i, long j) const { return elements[i * columns + j]; }
};

// Row pointers from 1, each row from 1; indexed from 0 here.
struct OneBasedMatrix {
    double *const *rows;
    double &operator()(long i, long j) const { return rows[i + 1][j + 1]; }
};

inline FlatMatrix<double> flat3(double *m)
{
    return {m, 3};
}

inline FlatMatrix<const double> flat3(const double *m)
{
    return {m, 3};
}

// ---- one matrix algebra over both ----

template <typename A, typename B, typename Out>
void multiply(const A &a, const B &b, const Out &out, long n, long m, long p)
{
    for (long i = 0; i < n; ++i)
        for (long j = 0; j < p; ++j) {
            double sum = 0.0;
            for (long k = 0; k < m; ++k)
                sum += a(i, k) * b(k, j);
            out(i, j) = sum;
        }
}

template <typename A>
void multiply_vector(const A &a, const double *v, double *out, long n, long m)
{
    for (long i = 0; i < n; ++i) {
        double sum = 0.0;
        for (long j = 0; j < m; ++j)
            sum += a(i, j) * v[j];
        out[i] = sum;
    }
}

template <typename A>
void multiply_row(const double *v, const A &a, double *out, long n, long m)
{
    for (long j = 0; j < m; ++j) {
        double sum = 0.0;
        for (long i = 0; i < n; ++i)
            sum += v[i] * a(i, j);
        out[j] = sum;
    }
}

template <typename A, typename B, typename Out, typename Operation>
void element_wise(const A &a, const B &b, const Out &out, long n, long m, Operation operation)
{
    for (long i = 0; i < n; ++i)
        for (long j = 0; j < m; ++j)
            out(i, j) = operation(a(i, j), b(i, j));
}

// Cofactors of the first row.
template <typename A>
double determinant3(const A &a)
{
    return a(0, 0) * (a(1, 1) * a(2, 2) - a(1, 2) * a(2, 1)) - a(0, 1) * (a(1, 0) * a(2, 2) - a(1, 2) * a(2, 0))
           + a(0, 2) * (a(1, 0) * a(2, 1) - a(1, 1) * a(2, 0));
}

// ---- vectors: any length, from 0 ----

inline double dot(const double *a, const double *b, long n)
{
    double sum = 0.0;
    for (long i = 0; i < n; ++i)
        sum += a[i] * b[i];
    return sum;
}

// Of three, without a leading zero to wait for.
template <class T>
T dot3(const T *a, const T *b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// out may be a or b.
template <class T>
void cross(const T *a, const T *b, T *out)
{
    const T x = a[1] * b[2] - a[2] * b[1];
    const T y = a[2] * b[0] - a[0] * b[2];
    const T z = a[0] * b[1] - a[1] * b[0];
    out[0] = x;
    out[1] = y;
    out[2] = z;
}

// Divides by the length unless the vector counts as null; returns what length_or_square says.
inline double normalise(double *a, long n)
{
    const double length = length_or_square(dot(a, a, n));
    if (length > KL_NULL_LENGTH_SQUARED)
        for (long i = 0; i < n; ++i)
            a[i] /= length;
    return length;
}

} // namespace KL_SET

#endif
