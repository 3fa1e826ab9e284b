// Precession between two epochs, rotations from Euler angles.
#ifndef KL_SRC_EPHEMERIDES_EQUINOX_H
#define KL_SRC_EPHEMERIDES_EQUINOX_H

#include "ephemerides/ephemerides.h"
#include "numbers/sin_cos.h"

inline namespace KL_SET {

// First of the two rows that a turn of the axes changes, in cyclic order; -1 for a letter that names no axis.
constexpr int first_row(char axis)
{
    switch (axis) {
    case 'X':
    case 'x':
    case '1':
        return 1;
    case 'Y':
    case 'y':
    case '2':
        return 2;
    case 'Z':
    case 'z':
    case '3':
        return 0;
    default:
        return -1;
    }
}

// Rotation by up to three angles about the axes that the text names.
template <class T>
void euler_rotation(const char *order, T phi, T theta, T psi, T rmat[3][3])
{
    const T angles[3] = {phi, theta, psi};
    T s[3], c[3];
    sin_cos(angles, s, c);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            rmat[i][j] = i == j ? 1.0 : 0.0;
    for (int n = 0; n < 3 && order != nullptr; ++n) {
        const int i = first_row(order[n]);
        if (i < 0) // the end of the text names no axis either
            break;
        const int k = i == 2 ? 0 : i + 1;
        for (int j = 0; j < 3; ++j) {
            const T x = rmat[i][j];
            const T y = rmat[k][j];
            rmat[i][j] = c[n] * x + s[n] * y + 0.0; // no negative zeros
            rmat[k][j] = c[n] * y - s[n] * x + 0.0;
        }
    }
}

// From one Julian epoch to another: J. H. Lieske, Astron. Astrophys. 73, 282 (1979).
template <class T>
void precession_between(T ep0, T ep1, T rmatp[3][3])
{
    const T t0 = (ep0 - 2000.0) / 100.0; // centuries
    const T t = (ep1 - ep0) / 100.0;
    const T k = t * 0.484813681109535994e-5; // arcsec to rad
    const T w = 2306.2181 + (1.39656 - 0.000139 * t0) * t0;
    const T zeta = (w + ((0.30188 - 0.000344 * t0) + 0.017998 * t) * t) * k;
    const T z = (w + ((1.09468 + 0.000066 * t0) + 0.018203 * t) * t) * k;
    const T theta =
        ((2004.3109 + (-0.85330 - 0.000217 * t0) * t0) + ((-0.42665 - 0.000217 * t0) - 0.041833 * t) * t) * k;
    euler_rotation<T>("ZYZ", -zeta, theta, -z, rmatp);
}

} // namespace KL_SET

#endif
