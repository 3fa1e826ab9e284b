// Diurnal and semidiurnal terms of pole and UT1: ocean tides and the libration of the Earth's axis.
#ifndef KL_SRC_ORIENTATION_SHORT_PERIOD_TERMS_H
#define KL_SRC_ORIENTATION_SHORT_PERIOD_TERMS_H

#include "numbers/constants.h"
#include "orientation/fundamental_arguments.h"
#include "orientation/jet.h"
#include "orientation/short_period_table.h"

#include <cstddef>
#include <type_traits>
#include <utility>

inline namespace KL_SET {

constexpr int kTideLanes = 4; // partial sums: the compiler keeps them in registers side by side
constexpr int kTideRows = (kShortPeriodTerms + kTideLanes - 1) / kTideLanes * kTideLanes;

// Amplitudes of sine and cosine for one choice of corrections: x, y (rad), UT1 (s), and their rates. A second
// derivative is minus the square of the frequency (1/s2) times the term.
struct TideAmplitudes {
    double of[6][2][kTideRows];
    double minus_square[kTideRows];
};

// GMST + pi turns by this many radians a second, the others by their first coefficient.
constexpr double kGmstRate = (8640184.812866 + 3155760000.0) / 36525.0 / 86400.0 * KL_TWO_PI / 86400.0;

constexpr double lunisolar_rate(int i)
{
    return kLunisolar[i].c1 * KL_RAD_PER_ARCSEC / (KL_DAYS_PER_CENTURY * KL_SECONDS_PER_DAY);
}

constexpr TideAmplitudes tide_amplitudes(bool ocean, bool libration)
{
    TideAmplitudes out{};
    for (int i = 0; i < kShortPeriodTerms; ++i) {
        const ShortPeriodTerm &term = kShortPeriodTerm[i];
        const auto &first = kFirstMultiples[term.first];
        const auto &second = kSecondMultiples[term.second];
        const double frequency = first[0] * kGmstRate + first[1] * lunisolar_rate(0) + first[2] * lunisolar_rate(1)
                                 + second[0] * lunisolar_rate(2) + second[1] * lunisolar_rate(3)
                                 + second[2] * lunisolar_rate(4);
        for (int q = 0; q < 3; ++q) {
            double amplitude[2] = {};
            for (int k = 0; k < 2; ++k)
                amplitude[k] = ((ocean ? term.ocean[2 * q + k] : 0.0) + (libration ? term.libration[2 * q + k] : 0.0))
                               * (q < 2 ? KL_RAD_PER_MICROARCSEC : 1e-6);
            out.of[q][0][i] = amplitude[0];
            out.of[q][1][i] = amplitude[1];
            out.of[q + 3][0][i] = -frequency * amplitude[1];
            out.of[q + 3][1][i] = frequency * amplitude[0];
        }
        out.minus_square[i] = -frequency * frequency;
    }
    return out;
}
// By the sum of KL_EOP_OCEAN_TIDES and KL_EOP_LIBRATION.
inline constexpr TideAmplitudes kTideAmplitudes[4] = {tide_amplitudes(false, false), tide_amplitudes(true, false),
                                                      tide_amplitudes(false, true), tide_amplitudes(true, true)};

template <class T>
struct ShortPeriodSums {
    Jet<T> x, y; // rad
    Jet<T> ut1;  // s
};

template <class T>
struct UnitVector { // cosine and sine of an angle: a complex number of length one
    T c, s;
};
template <class T>
inline UnitVector<T> product(const UnitVector<T> &a, const UnitVector<T> &b)
{
    return {a.c * b.c - a.s * b.s, a.s * b.c + a.c * b.s};
}

// The multiple of an angle, known when the library is compiled, from its unit vector and that of its double.
template <int multiple, class T>
inline UnitVector<T> times(const UnitVector<T> &one, const UnitVector<T> &two)
{
    if constexpr (multiple < 0) {
        const UnitVector<T> back = times<-multiple>(one, two);
        return {back.c, 0.0 - back.s};
    } else {
        static_assert(1 <= multiple && multiple <= 3);
        if constexpr (multiple == 1)
            return one;
        else if constexpr (multiple == 2)
            return two;
        else
            return product(one, two);
    }
}

// The sum of multiples of three angles.
template <int a, int b, int c, class T>
inline UnitVector<T> sum_of_multiples(const UnitVector<T> *one, const UnitVector<T> *two)
{
    if constexpr (c != 0 && (a != 0 || b != 0))
        return product(sum_of_multiples<a, b, 0>(one, two), times<c>(one[2], two[2]));
    else if constexpr (c != 0)
        return times<c>(one[2], two[2]);
    else if constexpr (b != 0 && a != 0)
        return product(times<a>(one[0], two[0]), times<b>(one[1], two[1]));
    else if constexpr (b != 0)
        return times<b>(one[1], two[1]);
    else if constexpr (a != 0)
        return times<a>(one[0], two[0]);
    else
        return {one[0].c * 0.0 + 1.0, one[0].c * 0.0};
}

template <class T, std::size_t... i>
inline void first_arguments(const UnitVector<T> *one, const UnitVector<T> *two, UnitVector<T> *out,
                            std::index_sequence<i...>)
{
    ((out[i] = sum_of_multiples<kFirstMultiples[i][0], kFirstMultiples[i][1], kFirstMultiples[i][2]>(one, two)), ...);
}
template <class T, std::size_t... i>
inline void second_arguments(const UnitVector<T> *one, const UnitVector<T> *two, UnitVector<T> *out,
                             std::index_sequence<i...>)
{
    ((out[i] = sum_of_multiples<kSecondMultiples[i][0], kSecondMultiples[i][1], kSecondMultiples[i][2]>(one, two)),
     ...);
}

// Sums over the rows of amplitude times sine and cosine: x, y, UT1, their rates, their second derivatives, as far as
// `order` goes. Each in four partial sums: those of one instant lie side by side in registers.
template <int order, class T>
inline void weighted_sums(const TideAmplitudes &amplitudes, const T (&sine)[kTideRows], const T (&cosine)[kTideRows],
                          T (&out)[3 * (order + 1)])
{
    // One instant: as many rows at once as a register holds. A pack of instants: row by row.
    constexpr bool pack = lanes_of < T >> 1;
    constexpr int width = pack ? 1 : kLanes < kTideLanes ? kLanes : kTideLanes;
    constexpr int sides = kTideLanes / width;
    using Side = std::conditional_t<pack, T, Pack<width>>;
    const auto row_of = [](const auto *from) { // a number for all lanes of a pack, or neighbours
        if constexpr (pack)
            return *from;
        else
            return load<Side>(from);
    };
    constexpr int n = 3 * (order + 1);
    constexpr int values_and_rates = order >= 1 ? 6 : 3;
    Side sum[n][sides] = {};
    for (int i = 0; i < kTideRows; i += kTideLanes)
        for (int side = 0; side < sides; ++side) {
            const int row = i + side * width;
            const Side s = row_of(sine + row);
            const Side c = row_of(cosine + row);
            for (int q = 0; q < values_and_rates; ++q) {
                const Side term = row_of(amplitudes.of[q][0] + row) * s + row_of(amplitudes.of[q][1] + row) * c;
                sum[q][side] = sum[q][side] + term;
                if constexpr (order >= 2)
                    if (q < 3)
                        sum[6 + q][side] = sum[6 + q][side] + row_of(amplitudes.minus_square + row) * term;
            }
        }
    for (int q = 0; q < n; ++q) {
        if constexpr (pack) {
            out[q] = (sum[q][0] + sum[q][1]) + (sum[q][2] + sum[q][3]);
        } else {
            double lane[kTideLanes];
            for (int side = 0; side < sides; ++side)
                store(sum[q][side], lane + side * width);
            out[q] = (lane[0] + lane[1]) + (lane[2] + lane[3]);
        }
    }
}

template <class T, std::size_t... i>
[[gnu::always_inline]] inline void all_arguments(const UnitVector<T> *first, const UnitVector<T> *second,
                                                 T (&sine)[kTideRows], T (&cosine)[kTideRows],
                                                 std::index_sequence<i...>)
{
    const auto set = [&](std::size_t row, const UnitVector<T> &v) {
        sine[row] = v.s;
        cosine[row] = v.c;
    };
    (set(i, product(first[kShortPeriodTerm[i].first], second[kShortPeriodTerm[i].second])), ...);
    for (int row = kShortPeriodTerms; row < kTideRows; ++row) // their amplitudes are zero
        set(static_cast<std::size_t>(row), first[0]);
}

// Sine and cosine of every argument; gamma in radians, t in centuries of UT1 from J2000.0.
template <class T>
inline void short_period_arguments(const T &gamma, const T &t, T (&sine)[kTideRows], T (&cosine)[kTideRows])
{
    UnitVector<T> one[6];
    UnitVector<T> two[6];
    for (int k = 0; k < 6; ++k) {
        sin_cos(k == 0 ? gamma : lunisolar_argument(kLunisolar[k == 0 ? 0 : k - 1], t), one[k].s, one[k].c);
        two[k] = product(one[k], one[k]);
    }
    UnitVector<T> first[kFirstArguments];
    UnitVector<T> second[kSecondArguments];
    first_arguments(one, two, first, std::make_index_sequence<kFirstArguments>{});
    second_arguments(one + 3, two + 3, second, std::make_index_sequence<kSecondArguments>{});
    all_arguments(first, second, sine, cosine, std::make_index_sequence<kShortPeriodTerms>{});
}

// Sums for one choice of corrections with `order` derivatives.
template <int order, class T>
inline ShortPeriodSums<T> short_period_terms(const TideAmplitudes &amplitudes, const T &gamma, const T &t)
{
    T sine[kTideRows];
    T cosine[kTideRows];
    short_period_arguments(gamma, t, sine, cosine);
    T sums[3 * (order + 1)];
    weighted_sums<order>(amplitudes, sine, cosine, sums);
    const auto jet = [&](int q) {
        Jet<T> out{sums[q], gamma * 0.0, gamma * 0.0};
        if constexpr (order >= 1)
            out.rate = sums[3 + q];
        if constexpr (order >= 2)
            out.acceleration = sums[6 + q];
        return out;
    };
    return {jet(0), jet(1), jet(2)};
}

} // namespace KL_SET

#endif
