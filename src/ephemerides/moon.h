// The Moon: geocentric state, J. Meeus, l'Astronomie, June 1984, p. 348.
#ifndef KL_SRC_EPHEMERIDES_MOON_H
#define KL_SRC_EPHEMERIDES_MOON_H

#include "ephemerides/ephemerides.h"
#include "ephemerides/moon_tables.h"
#include "numbers/sin_cos.h"

#include <cstddef>
#include <utility>

inline namespace KL_SET {
namespace moon_ephemeris {

// Two numbers that go through the same operations: the real and the imaginary part of a complex number, or a value and
// its partner. * works on each; product() is the complex one.
template <class T>
struct Two {
    T first, second;

    friend Two operator+(const Two &a, const Two &b) { return {a.first + b.first, a.second + b.second}; }
    friend Two operator*(const Two &a, const Two &b) { return {a.first * b.first, a.second * b.second}; }
    friend Two operator*(T a, const Two &b) { return {a * b.first, a * b.second}; }
    Two &operator+=(const Two &b) { return *this = *this + b; }
};
template <class T>
Two<T> two_of(T first, T second)
{
    return {first, second};
}
template <class T>
T first_of(const Two<T> &z)
{
    return z.first;
}
template <class T>
T second_of(const Two<T> &z)
{
    return z.second;
}

// Of doubles in one register.
template <>
struct Two<double> {
    Registers<2>::Doubles both;

    friend Two operator+(Two a, const Two &b)
    {
        a.both += b.both;
        return a;
    }
    friend Two operator*(Two a, const Two &b)
    {
        a.both *= b.both;
        return a;
    }
    friend Two operator*(double a, Two b)
    {
        b.both *= a;
        return b;
    }
    Two &operator+=(const Two &b) { return *this = *this + b; }
};
inline Two<double> two_of(double first, double second)
{
    Two<double> out;
    out.both = Registers<2>::Doubles{first, second};
    return out;
}
inline double first_of(const Two<double> &z)
{
    return z.both[0];
}
inline double second_of(const Two<double> &z)
{
    return z.both[1];
}

// A quarter of a turn.
template <class T>
Two<T> turned(const Two<T> &z)
{
    return two_of(T(-second_of(z)), first_of(z));
}

template <class T>
Two<T> product(const Two<T> &a, const Two<T> &b)
{
    return first_of(a) * b + second_of(a) * turned(b);
}

// Multiples -kMost to kMost of an angle: powers of its unit vector, with a factor if `once` has one.
template <class T, int kMost>
struct Multiples {
    Two<T> power[2 * kMost + 1];

    explicit Multiples(const Two<T> &once)
    {
        power[kMost] = two_of(T(1.0), T(0.0));
        for (int k = 1; k <= kMost; ++k) {
            const Two<T> z = product(power[kMost + k - 1], once);
            power[kMost + k] = z;
            power[kMost - k] = two_of(first_of(z), T(-second_of(z)));
        }
    }
    const Two<T> &operator[](int multiple) const { return power[kMost + multiple]; }
};

// The series use few of the possible pairs of multiples: of M and M' (the anomalies), and of D and F (the elongations).
// Each pair is multiplied once. Arguments are turned to the side of positive D, or positive F without D.
struct Pair {
    int a, b;
};
constexpr bool operator==(const Pair &x, const Pair &y)
{
    return x.a == y.a && x.b == y.b;
}

constexpr int side_of(const LunarTerm &term)
{
    return term.d < 0 || (term.d == 0 && term.f < 0) ? -1 : 1;
}
constexpr Pair anomalies_of(const LunarTerm &term)
{
    return {side_of(term) * term.m, side_of(term) * term.mp};
}
constexpr Pair elongations_of(const LunarTerm &term)
{
    return {side_of(term) * term.d, side_of(term) * term.f};
}

struct PairList {
    Pair pairs[48] = {};
    int count = 0;

    constexpr int place(const Pair &pair) const
    {
        int i = 0;
        while (i < count && !(pairs[i] == pair))
            ++i;
        return i;
    }
    template <std::size_t N, class Pick>
    constexpr void add(const LunarTerm (&terms)[N], Pick pick)
    {
        for (const LunarTerm &term : terms) {
            const int i = place(pick(term));
            pairs[i] = pick(term);
            count = i < count ? count : i + 1;
        }
    }
};

template <class Pick>
constexpr PairList pairs_of_all_series(Pick pick)
{
    PairList list;
    list.add(kTl, pick);
    list.add(kTb, pick);
    list.add(kTp, pick);
    return list;
}
constexpr PairList kAnomalies = pairs_of_all_series(anomalies_of);
constexpr PairList kElongations = pairs_of_all_series(elongations_of);

// A series in groups of the same elongations, small terms first in each.
template <std::size_t N>
struct Series {
    struct Term {
        double c;
        int anomalies;
    } terms[N];
    struct Group {
        int elongations, end;
    } groups[N];
    int n_groups;
};

template <std::size_t N>
constexpr Series<N> series_of(const LunarTerm (&rows)[N], bool of_sines)
{
    Series<N> series = {};
    int n = 0;
    for (int pair = 0; pair < kElongations.count; ++pair) {
        const int before = n;
        for (std::size_t i = N; i-- > 0;)
            if (elongations_of(rows[i]) == kElongations.pairs[pair]) {
                const double c = of_sines ? side_of(rows[i]) * rows[i].c : rows[i].c; // sin(-x) = -sin x
                series.terms[n++] = {c, kAnomalies.place(anomalies_of(rows[i]))};
            }
        if (n > before)
            series.groups[series.n_groups++] = {pair, n};
    }
    return series;
}
constexpr auto kLongitudeSeries = series_of(kTl, true);
constexpr auto kLatitudeSeries = series_of(kTb, true);
constexpr auto kParallaxSeries = series_of(kTp, false);

template <class T>
struct TwoAndRate {
    Two<T> value, rate;
};
template <class T>
struct ValueAndRate {
    T value, rate; // degrees, degrees per century
};

// The terms of a group, written out: their places are known when this is compiled.
template <const auto &series, std::size_t first, class T, std::size_t... i>
[[gnu::always_inline]] inline TwoAndRate<T> group_of(const TwoAndRate<T> *anomalies, std::index_sequence<i...>)
{
    const Two<T> zero = two_of(T(0.0), T(0.0));
    TwoAndRate<T> sum = {zero, zero};
    const auto add = [&](T c, const TwoAndRate<T> &z) {
        sum.value += c * z.value;
        sum.rate += c * z.rate;
    };
    (add(series.terms[first + i].c, anomalies[series.terms[first + i].anomalies]), ...);
    return sum;
}

template <const auto &series, std::size_t g, class T>
[[gnu::always_inline]] inline void add_group(const TwoAndRate<T> *anomalies, const TwoAndRate<T> *partners,
                                             TwoAndRate<T> *total)
{
    constexpr std::size_t first = g > 0 ? series.groups[g > 0 ? g - 1 : 0].end : 0;
    const auto sum = group_of<series, first>(anomalies, std::make_index_sequence<series.groups[g].end - first>());
    const TwoAndRate<T> &partner = partners[series.groups[g].elongations];
    total->value += sum.value * partner.value;
    total->rate += sum.rate * partner.value + sum.value * partner.rate;
}

template <const auto &series, class T, std::size_t... g>
ValueAndRate<T> sum_of_groups(const TwoAndRate<T> *anomalies, const TwoAndRate<T> *partners, std::index_sequence<g...>)
{
    const Two<T> zero = two_of(T(0.0), T(0.0));
    TwoAndRate<T> total = {zero, zero};
    (add_group<series, g>(anomalies, partners, &total), ...);
    return {first_of(total.value) + second_of(total.value), first_of(total.rate) + second_of(total.rate)};
}

// The elongations come as partners: (im, re) picks the sine of a product, re im' + im re', and (re, -im) the cosine.
template <const auto &series, class T>
ValueAndRate<T> sum(const TwoAndRate<T> *anomalies, const TwoAndRate<T> *partners)
{
    return sum_of_groups<series>(anomalies, partners, std::make_index_sequence<series.n_groups>());
}

} // namespace moon_ephemeris

// Geocentric position and velocity, mean equator and equinox of date (FK5): AU, AU/s.
template <class T>
void moon_vectors(T pv[6], T date)
{
    using namespace moon_ephemeris;
    const T t = (date - kMjd1900) / KL_DAYS_PER_CENTURY;

    // Fundamental arguments and their rates: rad, rad per century.
    T argument[6], rate[6];
    for (int k = 0; k < 6; ++k) {
        const double *c = kFund[k];
        argument[k] = KL_RAD_PER_DEG * reduced_degrees(c[0] + (c[1] + (c[2] + c[3] * t) * t) * t);
        rate[k] = KL_RAD_PER_DEG * (c[1] + (2.0 * c[2] + 3.0 * c[3] * t) * t);
    }

    // Additive terms of A, B, Omega and W = Omega + C; Omega itself stays as it is.
    const T slow[4] = {KL_RAD_PER_DEG * (kArgA[0] + kArgA[1] * t),
                       KL_RAD_PER_DEG * (kArgB[0] + (kArgB[1] + kArgB[2] * t) * t), argument[kNode],
                       argument[kNode] + KL_RAD_PER_DEG * (kArgC[0] + kArgC[1] * t)};
    const T slow_rate[4] = {KL_RAD_PER_DEG * kArgA[1], KL_RAD_PER_DEG * (kArgB[1] + 2.0 * kArgB[2] * t), rate[kNode],
                            rate[kNode] + KL_RAD_PER_DEG * kArgC[1]};
    T slow_sin[4], slow_cos[4];
    sin_cos(slow, slow_sin, slow_cos);
    for (int k = 0; k < 5; ++k) {
        const double *a = kAddit[k];
        argument[k] +=
            KL_RAD_PER_DEG * (a[0] * slow_sin[0] + a[1] * slow_sin[1] + a[2] * slow_sin[2] + a[3] * slow_sin[3]);
        rate[k] += KL_RAD_PER_DEG
                   * (a[0] * slow_rate[0] * slow_cos[0] + a[1] * slow_rate[1] * slow_cos[1]
                      + a[2] * slow_rate[2] * slow_cos[2] + a[3] * slow_rate[3] * slow_cos[3]);
    }

    // Multiples of M, M', D and F. The eccentricity factor goes with M: E^|m| of every term.
    T s[6], c[6];
    sin_cos(argument, s, c);
    const auto unit = [&](int k) { return two_of(c[k], s[k]); };
    const T e = 1.0 + (kEfac[0] + kEfac[1] * t) * t;
    const T e_rate = (kEfac[0] + 2.0 * kEfac[1] * t) / e; // of its logarithm
    const Multiples<T, 2> sun(e * unit(kSunAnomaly));
    const Multiples<T, 4> moon(unit(kMoonAnomaly));
    const Multiples<T, 4> elongation(unit(kElongation));
    const Multiples<T, 3> latitude(unit(kArgumentOfLatitude));
    TwoAndRate<T> anomalies[kAnomalies.count], for_sine[kElongations.count], for_cosine[kElongations.count];
    for (int i = 0; i < kAnomalies.count; ++i) {
        const Pair k = kAnomalies.pairs[i];
        const Two<T> z = product(sun[k.a], moon[k.b]);
        const T turning = double(k.a) * rate[kSunAnomaly] + double(k.b) * rate[kMoonAnomaly];
        anomalies[i] = {z, T(double(k.a < 0 ? -k.a : k.a) * e_rate) * z + turning * turned(z)};
    }
    for (int i = 0; i < kElongations.count; ++i) {
        const Pair k = kElongations.pairs[i];
        const Two<T> z = product(elongation[k.a], latitude[k.b]);
        const T turning = double(k.a) * rate[kElongation] + double(k.b) * rate[kArgumentOfLatitude];
        const Two<T> sine = two_of(second_of(z), first_of(z)), cosine = two_of(first_of(z), T(-second_of(z)));
        for_sine[i] = {sine, turning * cosine};
        for_cosine[i] = {cosine, T(-turning) * sine};
    }

    // Longitude, latitude, parallax: rad, rad/s.
    const ValueAndRate<T> tl = sum<kLongitudeSeries>(anomalies, for_sine);
    const ValueAndRate<T> tb = sum<kLatitudeSeries>(anomalies, for_sine);
    const ValueAndRate<T> tp = sum<kParallaxSeries>(anomalies, for_cosine);
    const T lon = argument[kMoonLongitude] + KL_RAD_PER_DEG * tl.value;
    const T lon_rate = (rate[kMoonLongitude] + KL_RAD_PER_DEG * tl.rate) / KL_SECONDS_PER_CENTURY;
    const T g = 1.0 - kLatfac[0] * slow_cos[2] - kLatfac[1] * slow_cos[3];
    const T g_rate = kLatfac[0] * slow_rate[2] * slow_sin[2] + kLatfac[1] * slow_rate[3] * slow_sin[3];
    const T lat = KL_RAD_PER_DEG * tb.value * g;
    const T lat_rate = KL_RAD_PER_DEG * (tb.rate * g + tb.value * g_rate) / KL_SECONDS_PER_CENTURY;
    const T parallax = KL_RAD_PER_DEG * tp.value;
    const T parallax_rate = KL_RAD_PER_DEG * tp.rate / KL_SECONDS_PER_CENTURY;

    // Mean obliquity, rad.
    const T t2000 = (date - kMjdOfJ2000) / KL_DAYS_PER_CENTURY;
    const T eps = KL_RAD_PER_ARCSEC * (kObliq[0] + (kObliq[1] + (kObliq[2] + kObliq[3] * t2000) * t2000) * t2000);

    enum { kLon, kLat, kParallax, kEps };
    const T last[4] = {lon, lat, parallax, eps};
    T ls[4], lc[4];
    sin_cos(last, ls, lc);

    // Ecliptic of date: AU, AU/s.
    const T r = kEradau / ls[kParallax];
    const T r_rate = -r * parallax_rate * lc[kParallax] / ls[kParallax];
    const T r_flat = r * lc[kLat];
    const T x = r_flat * lc[kLon];
    const T y = r_flat * ls[kLon];
    const T z = r * ls[kLat];
    const T w = r * lat_rate * ls[kLat] - lc[kLat] * r_rate;
    const T x_rate = -y * lon_rate - w * lc[kLon];
    const T y_rate = x * lon_rate - w * ls[kLon];
    const T z_rate = r * lat_rate * lc[kLat] + ls[kLat] * r_rate;

    // Mean equator of date with the FK5 equinox. The rates of q and of the obliquity are neglected.
    const T q = equinox_correction(2000.0 + 100.0 * t2000);
    const T sin_eps = ls[kEps], cos_eps = lc[kEps];
    pv[0] = x - q * cos_eps * y + q * sin_eps * z;
    pv[1] = q * x + y * cos_eps - z * sin_eps;
    pv[2] = y * sin_eps + z * cos_eps;
    pv[3] = x_rate - q * cos_eps * y_rate + q * sin_eps * z_rate;
    pv[4] = q * x_rate + y_rate * cos_eps - z_rate * sin_eps;
    pv[5] = y_rate * sin_eps + z_rate * cos_eps;
}

// In metres, mean of date.
template <class T>
BodyState<T> moon_state(T tdb_days)
{
    T pv[6];
    moon_vectors(pv, T(kMjdOfDayZero + tdb_days));
    return in_metres(pv, pv + 3);
}

} // namespace KL_SET

#endif
