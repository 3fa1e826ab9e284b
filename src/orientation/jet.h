// A quantity with its derivatives in time, and 3x3 matrices of them: what rotating frames are made of.
#ifndef KL_SRC_ORIENTATION_JET_H
#define KL_SRC_ORIENTATION_JET_H

#include "numbers/pack.h"

inline namespace KL_SET {

// Value, first and second derivative. Units: the quantity's, a second, a second squared. A kernel that needs fewer says
// so by its order, and the others are not computed.
template <class T>
struct Jet {
    T value, rate, acceleration;
};

template <class T>
struct JetMatrix {
    T m[3][3], rate[3][3], acceleration[3][3]; // rows
};

// Turns the axes about one of them, in front of what is there: m <- R_axis(angle) m. With sine and cosine of the angle
// and the angle's derivatives; `order` derivatives.
template <int order, class T>
inline void turn(int axis, const T &sine, const T &cosine, const T &rate, const T &acceleration, JetMatrix<T> &a)
{
    const int i = (axis + 1) % 3; // R3 mixes the first and the second row, R1 the second and the third
    const int j = (axis + 2) % 3;
    for (int k = 0; k < 3; ++k) {
        const T u = a.m[i][k];
        const T v = a.m[j][k];
        const T p = cosine * u + sine * v;
        const T q = cosine * v - sine * u;
        a.m[i][k] = p;
        a.m[j][k] = q;
        if (order >= 1) {
            const T du = a.rate[i][k];
            const T dv = a.rate[j][k];
            const T turned_u = cosine * du + sine * dv;
            const T turned_v = cosine * dv - sine * du;
            if (order >= 2) {
                const T ddu = a.acceleration[i][k];
                const T ddv = a.acceleration[j][k];
                const T square = rate * rate;
                a.acceleration[i][k] =
                    cosine * ddu + sine * ddv + 2.0 * (rate * turned_v) + acceleration * q - square * p;
                a.acceleration[j][k] =
                    cosine * ddv - sine * ddu - 2.0 * (rate * turned_u) - acceleration * p - square * q;
            }
            a.rate[i][k] = turned_u + rate * q;
            a.rate[j][k] = turned_v - rate * p;
        }
    }
}

} // namespace KL_SET

#endif
