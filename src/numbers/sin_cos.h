// Sines and cosines of many angles at once, without branches: of doubles, where the loop runs in vector registers, or
// of packs. Same results for every compiler and width, since nothing is contracted.
#ifndef KL_SRC_NUMBERS_SIN_COS_H
#define KL_SRC_NUMBERS_SIN_COS_H

#include "numbers/constants.h"
#include "numbers/pack.h"

#include <cstddef>
#include <cstdint>

// Angle in degrees from 2^53 on, -180 to 180 and what rounding adds, exact for every finite angle. Infinite in, NaN
// out.
double reduced_huge_degrees(double angle);

inline namespace KL_SET {

// pi/2 in three parts: 27 bits, 27 bits and the rest. Multiples of the first two are exact below 2^26.
constexpr double kHalfPiA = 0x1.921fb54p+0;
constexpr double kHalfPiB = 0x1.10b461p-30;
constexpr double kHalfPiC = 0x1.a62633145c06ep-58;
constexpr double kTwoOverPi = 0.63661977236758134308;
// Adding this number rounds to an integer, which then stands in the last bits.
constexpr double kRounder = 0x1.8p52;

// Angle in -pi to pi, by whole turns.
template <class T>
T reduced(T angle)
{
    const T turns = (angle * (kTwoOverPi / 4.0) + kRounder) - kRounder;
    return ((angle - turns * (4.0 * kHalfPiA)) - turns * (4.0 * kHalfPiB)) - turns * (4.0 * kHalfPiC);
}

// Angle in degrees, -180 to 180 and what rounding adds; exact below 2^53.
template <class T>
T reduced_degrees(T angle)
{
    const T turns = (angle * (1.0 / 360.0) + kRounder) - kRounder;
    return angle - turns * 360.0;
}

// Sine and cosine of r, within -pi/4 to pi/4, and some quarters of a turn, which stand in the last bits of `shifted`.
template <class T>
[[gnu::always_inline]] inline void sin_cos_of_rest(T r, T shifted, T &sine, T &cosine)
{
    const T q = r * r;
    const T q2 = q * q;
    const T q4 = q2 * q2;
    // Minimax in q, off by at most 6e-18; in pairs, which need not wait for one another.
    // clang-format off
    const T s = r + r * q * ((-0x1.555555555554dp-3  + q * 0x1.111111110fb50p-7)
                          + q2 * (-0x1.a01a019c30b61p-13 + q * 0x1.71de356f7027dp-19)
                          + q4 * (-0x1.ae5e4c5563660p-26 + q * 0x1.5d8772f446721p-33));
    const T c = 1.0 + (q2 * ((0x1.5555555555553p-5 + q * -0x1.6c16c16c16134p-10)
                          + q2 * (0x1.a01a019e24ef5p-16 + q * -0x1.27e4f9040b499p-22)
                          + q4 * (0x1.1eea895cd35e5p-29 + q * -0x1.8ff9dc82e452ep-37)) - 0.5 * q);
    // clang-format on
    // Odd quarters exchange sine and cosine; the second bit turns the sign of the sine, and with the first one that of
    // the cosine.
    using Bits = bits_type<T>;
    const Bits quarter = bits_of(shifted);
    const Bits sine_bits = bits_of(s);
    const Bits cosine_bits = bits_of(c);
    const Bits exchange = (sine_bits ^ cosine_bits) & (Bits{} - (quarter & std::uint64_t{1}));
    sine = from_bits<T>(sine_bits ^ exchange ^ ((quarter & std::uint64_t{2}) << 62));
    cosine = from_bits<T>(cosine_bits ^ exchange ^ (((quarter + std::uint64_t{1}) & std::uint64_t{2}) << 62));
}

template <class T>
[[gnu::always_inline]] inline void sin_cos_in_place(T angle, T &sine, T &cosine)
{
    const T shifted = angle * kTwoOverPi + kRounder;
    const T quarters = shifted - kRounder;
    const T r = ((angle - quarters * kHalfPiA) - quarters * kHalfPiB) - quarters * kHalfPiC;
    sin_cos_of_rest(r, shifted, sine, cosine);
}

// Within 2e-16 of the true values for angles up to 1e8 rad. Not finite in, NaN out.
template <class T>
void sin_cos(T angle, T &sine, T &cosine)
{
    sin_cos_in_place(angle, sine, cosine);
}
template <class T, std::size_t N>
void sin_cos(const T (&angle)[N], T (&sine)[N], T (&cosine)[N])
{
    for (std::size_t i = 0; i < N; ++i)
        sin_cos(angle[i], sine[i], cosine[i]);
}
// Of doubles two at a time: half the instructions.
template <std::size_t N>
void sin_cos(const double (&angle)[N], double (&sine)[N], double (&cosine)[N])
{
    std::size_t i = 0;
#pragma GCC unroll 1
    for (; i + 1 < N; i += 2) {
        Pack<2> a, s, c;
        std::memcpy(&a, angle + i, sizeof a);
        sin_cos_in_place(a, s, c);
        std::memcpy(sine + i, &s, sizeof s);
        std::memcpy(cosine + i, &c, sizeof c);
    }
    if (i < N)
        sin_cos_in_place(angle[i], sine[i], cosine[i]);
}

// Of degrees: whole quarters of a turn are exact. For angles below 2^53.
template <class T, std::size_t N>
void sin_cos_degrees(const T (&angle)[N], T (&sine)[N], T (&cosine)[N])
{
    for (std::size_t i = 0; i < N; ++i) {
        const T shifted = angle[i] * (1.0 / 90.0) + kRounder;
        const T quarters = shifted - kRounder;
        sin_cos_of_rest((angle[i] - quarters * 90.0) * KL_RAD_PER_DEG, shifted, sine[i], cosine[i]);
    }
}

} // namespace KL_SET

#endif
