// Axes along a satellite's way and their derivatives. T is a number or a pack of numbers.
#ifndef KL_SRC_ORBITS_LOCAL_AXES_H
#define KL_SRC_ORBITS_LOCAL_AXES_H

#include "kl_lib.h"
#include "numbers/numbers.h"
#include "numbers/pack.h"

inline namespace KL_SET {

// A direction with its derivative.
template <class T>
struct Turning {
    T u[3], du[3];
};

// Of a and its derivative; `length` 0 is no direction.
template <class T>
Turning<T> turning_of(const T *a, const T *da, T *length)
{
    Turning<T> out;
    *length = sqrt(dot3(a, a));
    for (int i = 0; i < 3; ++i)
        out.u[i] = a[i] / *length;
    const T along = dot3<T>(out.u, da);
    for (int i = 0; i < 3; ++i)
        out.du[i] = (da[i] - along * out.u[i]) / *length;
    return out;
}

template <class T>
Turning<T> cross(const Turning<T> &a, const Turning<T> &b)
{
    Turning<T> out;
    cross(a.u, b.u, out.u);
    T first[3], second[3];
    cross(a.du, b.u, first);
    cross(a.u, b.du, second);
    for (int i = 0; i < 3; ++i)
        out.du[i] = first[i] + second[i];
    return out;
}

template <class T>
Turning<T> opposite(const Turning<T> &a)
{
    Turning<T> out;
    for (int i = 0; i < 3; ++i) {
        out.u[i] = 0.0 - a.u[i];
        out.du[i] = 0.0 - a.du[i];
    }
    return out;
}

// Rows of r: the axes in the frame of the state; dr: their derivatives, 1/s. `kind` as KL_ORBITAL_QSW and the others.
// The shortest of the three lengths that were divided by comes back: 0 (or not a number) where there is no frame.
template <class T>
T local_axes(long kind, const T *pos, const T *vel, const T *acc, T *r, T *dr)
{
    T h[3], dh[3];
    cross(pos, vel, h);
    cross(pos, acc, dh);
    T lengths[3];
    const Turning<T> w = turning_of(h, dh, lengths);
    const Turning<T> q = turning_of(pos, vel, lengths + 1);
    const Turning<T> t = turning_of(vel, acc, lengths + 2);
    Turning<T> axes[3];
    switch (kind) {
    case KL_ORBITAL_QSW:
        axes[0] = q, axes[1] = cross(w, q), axes[2] = w;
        break;
    case KL_ORBITAL_LVLH:
        axes[0] = cross(w, q), axes[1] = opposite(w), axes[2] = opposite(q);
        break;
    case KL_ORBITAL_TNW: // n = w x t: inward
        axes[0] = t, axes[1] = cross(w, t), axes[2] = w;
        break;
    case KL_ORBITAL_NTW:
        axes[0] = opposite(cross(w, t)), axes[1] = t, axes[2] = w;
        break;
    default:
        axes[0] = t, axes[1] = w, axes[2] = cross(t, w);
    }
    for (int row = 0; row < 3; ++row)
        for (int i = 0; i < 3; ++i) {
            r[3 * row + i] = axes[row].u[i];
            dr[3 * row + i] = axes[row].du[i];
        }
    return lesser(lengths[0], lesser(lengths[1], lengths[2]));
}

} // namespace KL_SET

#endif
