// Matrices between the frames of the IERS Conventions (2010): EME2000, GCRS, CIRS, TIRS, ITRS.
#ifndef KL_SRC_ORIENTATION_FRAMES_OF_DATE_H
#define KL_SRC_ORIENTATION_FRAMES_OF_DATE_H

#include "numbers/elementary.h"
#include "orientation/celestial_pole.h"

inline namespace KL_SET {

// The frames in the order in which one leads to the next.
enum FrameRank { kRankEme2000 = 0, kRankGcrs = 1, kRankCirs = 2, kRankTirs = 3, kRankItrs = 4 };

// What turns the Earth at an instant. Radians and seconds.
template <class T>
struct EarthAngles {
    CelestialPole<T> cip; // offsets dX, dY added, s separated
    Jet<T> era;           // Earth rotation angle
    Jet<T> x_pole, y_pole;
    T s_prime;
};

// Frame bias of GCRS against the mean equator and equinox of J2000.0: GCRS -> EME2000, as R1(-deps) R2(dpsi sin eps0)
// R3(dalpha0) with dpsi = -0.041775", deps = -0.0068192", dalpha0 = -0.0146", eps0 = 84381.448".
// Source: IERS Conventions (2003), chapter 5; values made by tools/frame_bias.py in 40 digits.
constexpr double kFrameBias[3][3] = {
    {0.99999999999999425, -7.0782797441991966e-8, 8.0562171469761342e-8},
    {7.0782794778573372e-8, 0.99999999999999695, 3.3060414542221365e-8},
    {-8.0562173809869722e-8, -3.3060408839805525e-8, 0.99999999999999621},
};

// Axes of date from the pole alone, GCRS -> CIRS without its turn by s:
//   1 - a X^2, -a X Y, -X;  -a X Y, 1 - a Y^2, -Y;  X, Y, 1 - a (X^2 + Y^2),  a = 1/(1 + sqrt(1 - X^2 - Y^2)).
// Source: IERS Conventions (2010), equation 5.10.
template <int order, class T>
inline void pole_matrix(const Jet<T> &x, const Jet<T> &y, JetMatrix<T> &out)
{
    const T xx = x.value * x.value;
    const T xy = x.value * y.value;
    const T yy = y.value * y.value;
    const T root = sqrt(1.0 - (xx + yy));
    const T a = 1.0 / (1.0 + root);
    out.m[0][0] = 1.0 - a * xx;
    out.m[0][1] = out.m[1][0] = 0.0 - a * xy;
    out.m[0][2] = 0.0 - x.value;
    out.m[1][1] = 1.0 - a * yy;
    out.m[1][2] = 0.0 - y.value;
    out.m[2][0] = x.value;
    out.m[2][1] = y.value;
    out.m[2][2] = 1.0 - a * (xx + yy);
    if (order >= 1) {
        const T dxx = 2.0 * (x.value * x.rate);
        const T dyy = 2.0 * (y.value * y.rate);
        const T dxy = x.rate * y.value + x.value * y.rate;
        const T dq = dxx + dyy;
        const T half = 0.5 * (a * a) / root;
        const T da = half * dq;
        out.rate[0][0] = 0.0 - (da * xx + a * dxx);
        out.rate[0][1] = out.rate[1][0] = 0.0 - (da * xy + a * dxy);
        out.rate[0][2] = 0.0 - x.rate;
        out.rate[1][1] = 0.0 - (da * yy + a * dyy);
        out.rate[1][2] = 0.0 - y.rate;
        out.rate[2][0] = x.rate;
        out.rate[2][1] = y.rate;
        out.rate[2][2] = out.rate[0][0] + out.rate[1][1];
        if (order >= 2) {
            const T ddxx = 2.0 * (x.rate * x.rate + x.value * x.acceleration);
            const T ddyy = 2.0 * (y.rate * y.rate + y.value * y.acceleration);
            const T ddxy = x.acceleration * y.value + 2.0 * (x.rate * y.rate) + x.value * y.acceleration;
            const T dda = half * (ddxx + ddyy) + (da / a) * (2.0 * da) + 0.5 * (da * dq) / (root * root);
            out.acceleration[0][0] = 0.0 - (dda * xx + 2.0 * (da * dxx) + a * ddxx);
            out.acceleration[0][1] = out.acceleration[1][0] = 0.0 - (dda * xy + 2.0 * (da * dxy) + a * ddxy);
            out.acceleration[0][2] = 0.0 - x.acceleration;
            out.acceleration[1][1] = 0.0 - (dda * yy + 2.0 * (da * dyy) + a * ddyy);
            out.acceleration[1][2] = 0.0 - y.acceleration;
            out.acceleration[2][0] = x.acceleration;
            out.acceleration[2][1] = y.acceleration;
            out.acceleration[2][2] = out.acceleration[0][0] + out.acceleration[1][1];
        }
    }
}

template <class T>
inline void constant_matrix(bool bias, JetMatrix<T> &out)
{
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k) {
            out.m[i][k] = bias ? kFrameBias[k][i] : i == k ? 1.0 : 0.0; // EME2000 -> GCRS
            out.rate[i][k] = 0.0;
            out.acceleration[i][k] = 0.0;
        }
}

// a <- a EME2000 -> GCRS: the bias stands first, behind everything that turns.
template <int order, class T>
inline void after_bias(JetMatrix<T> &a)
{
    const auto by = [](T(&m)[3][3]) {
        for (auto &row : m) {
            const T r[3] = {row[0], row[1], row[2]};
            for (int k = 0; k < 3; ++k)
                row[k] = r[0] * kFrameBias[k][0] + r[1] * kFrameBias[k][1] + r[2] * kFrameBias[k][2];
        }
    };
    by(a.m);
    if (order >= 1)
        by(a.rate);
    if (order >= 2)
        by(a.acceleration);
}

// Sine and cosine of an angle of less than a thousandth of a radian: a pole.
template <class T>
inline void sin_cos_small(const T &angle, T &sine, T &cosine)
{
    const T q = angle * angle;
    sine = angle - angle * (q * (1.0 / 6.0 - q * (1.0 / 120.0)));
    cosine = 1.0 - q * (0.5 - q * (1.0 / 24.0 - q * (1.0 / 720.0)));
}

// Matrices are filled where they stand: a copy of one costs more than the turn by a pole.
//
// From the frame of rank `from` to that of a higher rank `to`. The turns about the pole of date (-s, era, s') are one.
template <int order, class T>
[[gnu::always_inline]] inline void upward_matrix(int from, int to, const EarthAngles<T> &e, JetMatrix<T> &a)
{
    const bool through_pole = from <= kRankGcrs && to >= kRankCirs;
    const bool through_rotation = from <= kRankCirs && to >= kRankTirs;
    const bool through_wobble = from <= kRankTirs && to == kRankItrs;
    const bool biased = from == kRankEme2000;
    if (!through_pole && !through_rotation && !through_wobble)
        return constant_matrix(biased && to != from, a);

    if (through_pole)
        pole_matrix<order>(e.cip.x, e.cip.y, a);
    else
        constant_matrix(false, a);
    Jet<T> turned{e.s_prime * 0.0, e.s_prime * 0.0, e.s_prime * 0.0};
    if (through_rotation)
        turned = e.era;
    if (through_pole) {
        turned.value = turned.value - e.cip.s.value;
        turned.rate = turned.rate - e.cip.s.rate;
        turned.acceleration = turned.acceleration - e.cip.s.acceleration;
    }
    if (through_wobble)
        turned.value = turned.value + e.s_prime;
    T sine;
    T cosine;
    sin_cos(turned.value, sine, cosine);
    turn<order>(2, sine, cosine, turned.rate, turned.acceleration, a);
    if (through_wobble) {
        sin_cos_small(e.x_pole.value, sine, cosine);
        turn<order>(1, 0.0 - sine, cosine, 0.0 - e.x_pole.rate, 0.0 - e.x_pole.acceleration, a);
        sin_cos_small(e.y_pole.value, sine, cosine);
        turn<order>(0, 0.0 - sine, cosine, 0.0 - e.y_pole.rate, 0.0 - e.y_pole.acceleration, a);
    }
    if (biased)
        after_bias<order>(a);
}

// Its nine numbers, row by row, or column by column: the way back.
template <class T>
inline void write_matrix(const T (&m)[3][3], bool back, T *out)
{
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k)
            out[3 * i + k] = back ? m[k][i] : m[i][k];
}

// With `order` derivatives, of nine numbers each; those beyond are not written.
template <int order, class T>
[[gnu::always_inline]] inline void frame_matrix(int from, int to, const EarthAngles<T> &e, T *m, T *rate,
                                                T *acceleration)
{
    const bool back = from > to;
    JetMatrix<T> a;
    upward_matrix<order>(back ? to : from, back ? from : to, e, a);
    write_matrix(a.m, back, m);
    if (order >= 1)
        write_matrix(a.rate, back, rate);
    if (order >= 2)
        write_matrix(a.acceleration, back, acceleration);
}

} // namespace KL_SET

#endif
