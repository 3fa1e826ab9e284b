// Elementary functions of a number or a pack of numbers: the same bits on every machine, which those of the mathematics
// library are not, since it picks its instructions at run time.
//
// The errors told are the largest that sweeps against 113 bits found, in units of the last place of the result. Sines
// and cosines have a bound of their absolute error instead, 1.82e-16 up to 1e8 rad: near their zeros the last places
// are lost when whole turns are taken off (67 units at 16 turns, 1900 at 1e8 rad).
#ifndef KL_SRC_NUMBERS_ELEMENTARY_H
#define KL_SRC_NUMBERS_ELEMENTARY_H

#include "numbers/sin_cos.h"

#include <cstddef>

inline namespace KL_SET {

constexpr double KL_LARGEST_NUMBER = 0x1.fffffffffffffp+1023; // below infinity

// sin_cos for angles of any size.
template <class T, std::size_t N>
void sin_cos_any(const T (&angle)[N], T (&sine)[N], T (&cosine)[N])
{
    constexpr double kLargest = 1e8; // rad: sin_cos takes whole turns off up to here
    auto within = fabs(angle[0]) < kLargest;
    for (std::size_t i = 1; i < N; ++i)
        within = within & (fabs(angle[i]) < kLargest);
    sin_cos(angle, sine, cosine);
    if (all(within))
        return;
    for (std::size_t i = 0; i < N; ++i) {
        sine[i] = in_lanes(
            !within, sine[i], [](double a) { return ::sin(a); }, angle[i]);
        cosine[i] = in_lanes(
            !within, cosine[i], [](double a) { return ::cos(a); }, angle[i]);
    }
}

template <class T>
struct SineCosine {
    T s, c;
};

template <class T>
SineCosine<T> sine_cosine(T angle)
{
    const T a[1] = {angle};
    T s[1];
    T c[1];
    sin_cos_any(a, s, c);
    return {s[0], c[0]};
}

// ---- angles ----

// Angle of a tangent of -tan(pi/8) to tan(pi/8).
template <class T>
T arc_tangent_of_small(T t)
{
    const T q = t * t;
    const T q2 = q * q;
    const T q4 = q2 * q2;
    // Minimax in q, off by at most 2.4e-18.
    // clang-format off
    const T p = ((-0x1.555555555554ap-2 + q * 0x1.9999999996e68p-3)
         + q2 * (-0x1.24924923155b7p-3 + q * 0x1.c71c7103911c0p-4))
         + q4 * (((-0x1.745cfb24fc890p-4 + q * 0x1.3b11328722a46p-4)
         + q2 * (-0x1.10ec4955fb177p-4 + q * 0x1.df10b319243bdp-5))
         + q4 * ((-0x1.9cbf2d5a94bedp-5 + q * 0x1.376c6f915530fp-5)
         + q2 * -0x1.241cf5ba02d27p-6));
    // clang-format on
    return t + t * q * p;
}

constexpr double KL_SIXTEENTH_TANGENT = 0.41421356237309503; // of a turn
// Eighths of a turn in two parts. Whole multiples of both are exact but three, whose high part rounds.
constexpr double KL_EIGHTH = 0x1.921fb54442d18p-1;
constexpr double KL_EIGHTH_LOW = 0x1.1a62633145c07p-55;
constexpr double KL_THREE_EIGHTHS = 0x1.2d97c7f3321d2p+1;
constexpr double KL_THREE_EIGHTHS_LOW = 0x1.a79394c9e8a0ap-54;

// Sides of a right angle, neither huge nor tiny; the signs are those of y and x. Lanes without sides divide by zero,
// and are not used.
template <class T>
#if defined(__clang__)
__attribute__((no_sanitize("float-divide-by-zero")))
#endif
T arc_tangent_of_sides(T across, T along, T y, T x)
{
    const auto swapped = across > along;
    const T high = select(swapped, across, along);
    const T low = select(swapped, along, across);
    const auto folded = low > KL_SIXTEENTH_TANGENT * high;
    const T a = arc_tangent_of_small(T((low - select(folded, high, T(0.0))) / (high + select(folded, low, T(0.0)))));
    T eighths = select(folded, 1.0, T(0.0));
    eighths = select(swapped, 2.0 - eighths, eighths);
    const auto backward = copysign(T(1.0), x) < 0.0;
    eighths = select(backward, 4.0 - eighths, eighths);
    T rest = select(swapped, -a, a);
    rest = select(backward, -rest, rest);
    const auto three = eighths == 3.0;
    const T high_part = select(three, KL_THREE_EIGHTHS, eighths * KL_EIGHTH);
    const T low_part = select(three, KL_THREE_EIGHTHS_LOW, eighths * KL_EIGHTH_LOW);
    return copysign(high_part + (low_part + rest), y);
}

// For one number what depends on the sixteenth of a turn is looked up: a processor guesses branches on directions
// wrong.
struct SixteenthOfTurn {
    double high_part, low_part, sign, folded;
};
constexpr SixteenthOfTurn KL_SIXTEENTHS[8] = {
    // 4 backward + 2 swapped + folded
    {0.0, 0.0, 1.0, 0.0},
    {KL_EIGHTH, KL_EIGHTH_LOW, 1.0, 1.0},
    {2.0 * KL_EIGHTH, 2.0 * KL_EIGHTH_LOW, -1.0, 0.0},
    {KL_EIGHTH, KL_EIGHTH_LOW, -1.0, 1.0},
    {4.0 * KL_EIGHTH, 4.0 * KL_EIGHTH_LOW, -1.0, 0.0},
    {KL_THREE_EIGHTHS, KL_THREE_EIGHTHS_LOW, -1.0, 1.0},
    {2.0 * KL_EIGHTH, 2.0 * KL_EIGHTH_LOW, 1.0, 0.0},
    {KL_THREE_EIGHTHS, KL_THREE_EIGHTHS_LOW, 1.0, 1.0},
};

#if defined(__clang__)
__attribute__((no_sanitize("float-divide-by-zero")))
#endif
inline double
arc_tangent_of_sides(double across, double along, double y, double x)
{
    const double high = across > along ? across : along;
    const double low = across > along ? along : across;
    const bool folded = low > KL_SIXTEENTH_TANGENT * high;
    const SixteenthOfTurn &part = KL_SIXTEENTHS[4 * std::signbit(x) + 2 * (across > along) + folded];
    const double a = arc_tangent_of_small((low - part.folded * high) / (high + part.folded * low));
    return copysign(part.high_part + (part.low_part + part.sign * a), y);
}

// Sides of any size.
inline double arc_tangent_of_any(double y, double x)
{
    const double longer = greater(fabs(y), fabs(x));
    if (!(longer > 0.0 && longer <= KL_LARGEST_NUMBER) || !(y == y && x == x))
        return ::atan2(y, x); // exact multiples of an eighth of a turn, or NaN
    const double scale = longer < 1.0 ? 0x1p500 : 0x1p-500;
    return arc_tangent_of_sides(fabs(y) * scale, fabs(x) * scale, y, x);
}

// Angle of the direction (x, y), -pi to pi, within 2.2 units; zeros and infinities as std::atan2 has them.
template <class T>
T arc_tangent(T y, T x)
{
    const T across = fabs(y);
    const T along = fabs(x);
    const T longer = select(across > along, across, along);
    const auto common = (longer > 0x1p-500) & (longer < 0x1p500) & (across + along < 0x1p600);
    const T angle = arc_tangent_of_sides(across, along, y, x);
    return all(common) ? angle : in_lanes(!common, angle, arc_tangent_of_any, y, x);
}

// Of numbers from -1 to 1, within 2.5 units; NaN outside.
template <class T>
T arc_cosine(T x)
{
    return arc_tangent(sqrt((1.0 - x) * (1.0 + x)), x);
}

template <class T>
T arc_sine(T x)
{
    return arc_tangent(x, sqrt((1.0 - x) * (1.0 + x)));
}

// ---- sums and products with what rounding cuts off ----

template <class T>
struct Exact {
    T high, low;
};

template <class T>
Exact<T> exact_sum(T a, T b)
{
    const T sum = a + b;
    const T of_b = sum - a;
    return {sum, (a - (sum - of_b)) + (b - of_b)};
}

// Numbers below 2^990 whose product is neither huge nor tiny.
template <class T>
Exact<T> exact_product(T a, T b)
{
    constexpr double kSplit = 0x1p27 + 1.0;
    const T sa = kSplit * a;
    const T sb = kSplit * b;
    const T ah = sa - (sa - a);
    const T bh = sb - (sb - b);
    const T al = a - ah;
    const T bl = b - bh;
    const T product = a * b;
    return {product, ((ah * bh - product) + ah * bl + al * bh) + al * bl};
}

// ---- roots ----

// 2^k, k whole, -1022 to 1023.
template <class T>
T power_of_two(T k)
{
    return from_bits<T>(bits_of(T(k + (0x1p52 + 1023.0))) << 52);
}

// x = fraction 2^exponent, fraction from `first` to twice that. For finite numbers above zero.
template <class T>
struct Split {
    T fraction, exponent;
};
template <class T>
Split<T> split(T x, double first)
{
    constexpr double kSubnormal = 0x1p-1022;
    const auto tiny = x < kSubnormal;
    const bits_type<T> bits = bits_of(select(tiny, x * 0x1p54, x));
    const std::uint64_t start = bits_of(first);
    const bits_type<T> above = bits - start + bits_of(1.0);
    constexpr double kWhole = 0x1p52;
    const bits_type<T> fraction = (above & ((std::uint64_t{1} << 52) - 1)) + start;
    const T exponent = from_bits<T>((above >> 52) | bits_of(kWhole)) - (kWhole + 1023.0);
    return {from_bits<T>(fraction), select(tiny, exponent - 54.0, exponent)};
}

// Within 0.67 units.
template <class T>
T cube_root(T x)
{
    const T size = fabs(x);
    const auto ordinary = (size > 0.0) & (size <= KL_LARGEST_NUMBER);
    const Split<T> parts = split(select(ordinary, size, 1.0), 1.0);
    const T third = floor((parts.exponent + 0.5) / 3.0);
    const T left = parts.exponent - 3.0 * third;
    const T m = parts.fraction * select(left == 0.0, 1.0, select(left == 1.0, 2.0, T(4.0))); // 1 to 8
    // Minimax, off by at most 0.2 %.
    T root = 0x1.412ce60b8f95dp-1
             + m
                   * (0x1.cbf8f4a8b5e87p-2
                      + m * (-0x1.5723a4f3013d5p-4 + m * (0x1.3a09aed653bb9p-7 + m * -0x1.c514f3c2e8e8fp-12)));
    const T cube = root * root * root;
    root = root * ((cube + 2.0 * m) / (2.0 * cube + m)); // Halley: 2e-9
    // Of 26 bits, whose square is exact; then Newton's step.
    root = from_bits<T>((bits_of(root) + (std::uint64_t{1} << 26)) & ~((std::uint64_t{1} << 27) - 1));
    const T quotient = m / (root * root);
    root = root + root * ((quotient - root) / (2.0 * root + quotient));
    return select(ordinary, copysign(root * power_of_two(third), x), x + x);
}

// ---- logarithms and exponentials ----

constexpr double kLn2High = 0x1.62e42fee00000p-1;
constexpr double kLn2Low = 0x1.a39ef35793c76p-33;

// (2 artanh(s) / s - 2) / z of z = s^2, up to tan^2(pi/8); minimax, off by at most 2^-58 of 2.
template <class T>
T artanh_series(T z)
{
    return 0x1.5555555555593p-1
           + z
                 * (0x1.999999997fb30p-2
                    + z
                          * (0x1.2492494217ab9p-2
                             + z
                                   * (0x1.c71c51e7f74f6p-3
                                      + z
                                            * (0x1.7466462b72cb6p-3
                                               + z * (0x1.39a0f5325ec9fp-3 + z * 0x1.2f0d8c2de3f48p-3)))));
}

// Of high + low, finite and above zero, plus twos * ln 2; low below a unit of high.
template <class T>
T log_of(T high, T low, double twos)
{
    const Split<T> parts = split(high, 0x1.6a09e667f3bcdp-1); // sqrt(1/2)
    const T k = parts.exponent + twos;
    const T f = parts.fraction - 1.0;
    const T s = f / (2.0 + f);
    const T z = s * s;
    const T half_square = 0.5 * f * f;
    return k * kLn2High - ((half_square - (s * (half_square + z * artanh_series(z)) + (k * kLn2Low + low / high))) - f);
}

// Natural, within 0.8 units. Minus infinity of 0, NaN below.
template <class T>
T natural_log(T x)
{
    const auto ordinary = (x > 0.0) & (x <= KL_LARGEST_NUMBER);
    const T log = log_of(select(ordinary, x, 1.0), T(0.0), 0.0);
    return select(ordinary, log, select(x == 0.0, -HUGE_VAL, select(x < 0.0, T(NAN), x)));
}

// e^x = 2^k (high + low), for -750 to 750.
template <class T>
struct Power {
    T high, low, k;
};
template <class T>
Power<T> power_of_e(T x)
{
    constexpr double kPerLn2 = 0x1.71547652b82fep+0;
    const T k = (x * kPerLn2 + kRounder) - kRounder;
    const T whole = x - k * kLn2High;
    const T r = whole - k * kLn2Low;
    const T cut = (whole - r) - k * kLn2Low;
    // (e^r - 1 - r) / r^2, minimax, off by at most 2^-63 / r^2.
    // clang-format off
    const T q = r * r;
    const T p = (0x1.0000000000000p-1 + r * 0x1.555555555555cp-3)
         + q * ((0x1.555555555555ep-5 + r * 0x1.111111110eb20p-7)
         + q * ((0x1.6c16c16c134aep-10 + r * 0x1.a01a01b3f4c04p-13)
         + q * ((0x1.a01a01b4919a1p-16 + r * 0x1.71ddef01be213p-19)
         + q * ((0x1.27e4bebae8543p-22 + r * 0x1.af6dceceb5e96p-26)
         + q * 0x1.1f9e99682dbebp-29))));
    // clang-format on
    const T one_r = 1.0 + r;
    const T rest = ((1.0 - one_r) + r) + (q * p + (cut + cut * r));
    const T high = one_r + rest;
    return {high, (one_r - high) + rest, k};
}

// x 2^k in two steps, so that only the last one rounds; k -2040 to 2040.
template <class T>
T scaled(T x, T k)
{
    const T half = floor(0.5 * k);
    return (x * power_of_two(half)) * power_of_two(T(k - half));
}

// Within 0.8 units.
template <class T>
T hyperbolic_sine(T x)
{
    const T size = fabs(x);
    // (sinh x - x) / x^3 of z = x^2 up to 1; minimax, off by at most 2^-63.
    const T z = x * x;
    const T series = 0x1.5555555555556p-3
                     + z
                           * (0x1.11111111110a1p-7
                              + z
                                    * (0x1.a01a01a0291fcp-13
                                       + z
                                             * (0x1.71de3a45f71adp-19
                                                + z
                                                      * (0x1.ae6467669017ap-26
                                                         + z * (0x1.611a3a1e314fcp-33 + z * 0x1.b4cf794eff72ep-41)))));
    const Power<T> e = power_of_e(lesser(T(720.0), size));
    const T high = scaled(e.high, T(e.k - 1.0));
    const T low = scaled(e.low, T(e.k - 1.0));
    const T far = copysign(high + (low - 0.25 / high), x);
    return select(size < 1.0, x + x * z * series, far);
}

// Within 0.9 units.
template <class T>
T hyperbolic_cosine(T x)
{
    const Power<T> e = power_of_e(lesser(T(720.0), fabs(x)));
    const T high = scaled(e.high, T(e.k - 1.0));
    const T low = scaled(e.low, T(e.k - 1.0));
    return high + (low + 0.25 / high);
}

// Within 1.1 units.
template <class T>
T arc_hyperbolic_sine(T x)
{
    constexpr double kLarge = 0x1p28; // the square root is the number itself
    const T size = fabs(x);
    const auto large = size > kLarge;
    const T a = select(large, 1.0, size);
    const T square = a * a;
    const T rest = square / (1.0 + sqrt(1.0 + square));
    const Exact<T> excess = exact_sum(a, rest); // asinh a = log(1 + excess)
    const Exact<T> sum = exact_sum(T(1.0), excess.high);
    const T near = log_of(sum.high, sum.low + excess.low, 0.0);
    const auto finite = size <= KL_LARGEST_NUMBER;
    const T far = select(finite, log_of(select(large & finite, size, 1.0), T(0.0), 1.0), size);
    return copysign(select(large | !finite, far, near), x);
}

// Within 0.8 units; NaN outside of -1 to 1.
template <class T>
T arc_hyperbolic_tangent(T x)
{
    constexpr double kNear = 0.17; // the series goes to 0.1716
    const T size = fabs(x);
    const T z = size * size;
    const T near = size + size * (z * (0.5 * artanh_series(z)));
    // log((1 + x) / (1 - x)) / 2
    const auto inside = size < 1.0;
    const T a = select(inside, size, 0.0);
    const Exact<T> over = exact_sum(T(1.0), a);
    const Exact<T> under = exact_sum(T(1.0), T(-a));
    const T quotient = over.high / under.high;
    const Exact<T> back = exact_product(quotient, under.high);
    const T low = (((over.high - back.high) - back.low) + (over.low - quotient * under.low)) / under.high;
    const T far = 0.5 * log_of(quotient, low, 0.0);
    const T result = select(size < kNear, near, far);
    return copysign(select(inside, result, select(size == 1.0, HUGE_VAL, T(NAN))), x);
}

} // namespace KL_SET

#endif
