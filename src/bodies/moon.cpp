// The Moon: geocentric state, J. Meeus, l'Astronomie, June 1984, p. 348.
#include "bodies/bodies.h"
#include "bodies/moon_tables.h"
#include "errors/activation.h"
#include "numbers/sin_cos.h"
#include "time/scales.h"

#include <cstddef>
#include <cstdlib>

namespace {

// A complex number in one register of two; * works on each part, product() is the complex one.
using Complex = double __attribute__((vector_size(16)));

Complex product(Complex a, Complex b)
{
    return a[0] * b + a[1] * Complex{-b[1], b[0]};
}

// Multiples -kMost to kMost of an angle: powers of its unit vector, with a factor if `once` has one.
template <int kMost>
struct Multiples {
    Complex power[2 * kMost + 1];

    explicit Multiples(Complex once)
    {
        power[kMost] = Complex{1.0, 0.0};
        for (int k = 1; k <= kMost; ++k) {
            const Complex z = product(power[kMost + k - 1], once);
            power[kMost + k] = z;
            power[kMost - k] = Complex{z[0], -z[1]};
        }
    }
    Complex operator[](int multiple) const { return power[kMost + multiple]; }
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
        Complex c; // the coefficient, twice
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
                series.terms[n++] = {Complex{c, c}, kAnomalies.place(anomalies_of(rows[i]))};
            }
        if (n > before)
            series.groups[series.n_groups++] = {pair, n};
    }
    return series;
}
constexpr auto kLongitudeSeries = series_of(kTl, true);
constexpr auto kLatitudeSeries = series_of(kTb, true);
constexpr auto kParallaxSeries = series_of(kTp, false);

struct ComplexAndRate {
    Complex value, rate;
};
struct ValueAndRate {
    double value, rate; // degrees, degrees per century
};

// The elongations come as partners: (im, re) picks the sine of a product, re im' + im re', and (re, -im) the cosine.
template <std::size_t N>
ValueAndRate sum(const Series<N> &series, const ComplexAndRate *anomalies, const ComplexAndRate *partners)
{
    Complex total = {0.0, 0.0}, total_rate = {0.0, 0.0};
    int i = 0;
    for (int g = 0; g < series.n_groups; ++g) {
        Complex value = {0.0, 0.0}, rate = {0.0, 0.0};
        do {
            const ComplexAndRate &z = anomalies[series.terms[i].anomalies];
            value += series.terms[i].c * z.value;
            rate += series.terms[i].c * z.rate;
        } while (++i < series.groups[g].end);
        const ComplexAndRate &partner = partners[series.groups[g].elongations];
        total += value * partner.value;
        total_rate += rate * partner.value + value * partner.rate;
    }
    return {total[0] + total[1], total_rate[0] + total_rate[1]};
}

} // namespace

void KL_SlaDmoon(double pv[6], double date)
{
    constexpr double kSecondsPerCentury = 3155760000.0;
    const double t = (date - kMjd1900) / kDaysPerCentury;

    // Fundamental arguments and their rates: rad, rad per century.
    double argument[6], rate[6];
    for (int k = 0; k < 6; ++k) {
        const double *c = kFund[k];
        argument[k] = KL_RAD_PER_DEG * reduced_degrees(c[0] + (c[1] + (c[2] + c[3] * t) * t) * t);
        rate[k] = KL_RAD_PER_DEG * (c[1] + (2.0 * c[2] + 3.0 * c[3] * t) * t);
    }

    // Additive terms of A, B, Omega and W = Omega + C; Omega itself stays as it is.
    const double slow[4] = {KL_RAD_PER_DEG * (kArgA[0] + kArgA[1] * t),
                            KL_RAD_PER_DEG * (kArgB[0] + (kArgB[1] + kArgB[2] * t) * t), argument[kNode],
                            argument[kNode] + KL_RAD_PER_DEG * (kArgC[0] + kArgC[1] * t)};
    const double slow_rate[4] = {KL_RAD_PER_DEG * kArgA[1], KL_RAD_PER_DEG * (kArgB[1] + 2.0 * kArgB[2] * t),
                                 rate[kNode], rate[kNode] + KL_RAD_PER_DEG * kArgC[1]};
    double slow_sin[4], slow_cos[4];
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
    double s[6], c[6];
    sin_cos(argument, s, c);
    const auto unit = [&](int k) { return Complex{c[k], s[k]}; };
    const double e = 1.0 + (kEfac[0] + kEfac[1] * t) * t;
    const double e_rate = (kEfac[0] + 2.0 * kEfac[1] * t) / e; // of its logarithm
    const Multiples<2> sun(e * unit(kSunAnomaly));
    const Multiples<4> moon(unit(kMoonAnomaly));
    const Multiples<4> elongation(unit(kElongation));
    const Multiples<3> latitude(unit(kArgumentOfLatitude));
    ComplexAndRate anomalies[kAnomalies.count], for_sine[kElongations.count], for_cosine[kElongations.count];
    for (int i = 0; i < kAnomalies.count; ++i) {
        const Pair k = kAnomalies.pairs[i];
        const Complex z = product(sun[k.a], moon[k.b]);
        const double turning = k.a * rate[kSunAnomaly] + k.b * rate[kMoonAnomaly];
        anomalies[i] = {z, (std::abs(k.a) * e_rate) * z + turning * Complex{-z[1], z[0]}};
    }
    for (int i = 0; i < kElongations.count; ++i) {
        const Pair k = kElongations.pairs[i];
        const Complex z = product(elongation[k.a], latitude[k.b]);
        const double turning = k.a * rate[kElongation] + k.b * rate[kArgumentOfLatitude];
        const Complex sine = {z[1], z[0]}, cosine = {z[0], -z[1]};
        for_sine[i] = {sine, turning * cosine};
        for_cosine[i] = {cosine, -turning * sine};
    }

    // Longitude, latitude, parallax: rad, rad/s.
    const ValueAndRate tl = sum(kLongitudeSeries, anomalies, for_sine);
    const ValueAndRate tb = sum(kLatitudeSeries, anomalies, for_sine);
    const ValueAndRate tp = sum(kParallaxSeries, anomalies, for_cosine);
    const double lon = argument[kMoonLongitude] + KL_RAD_PER_DEG * tl.value;
    const double lon_rate = (rate[kMoonLongitude] + KL_RAD_PER_DEG * tl.rate) / kSecondsPerCentury;
    const double g = 1.0 - kLatfac[0] * slow_cos[2] - kLatfac[1] * slow_cos[3];
    const double g_rate = kLatfac[0] * slow_rate[2] * slow_sin[2] + kLatfac[1] * slow_rate[3] * slow_sin[3];
    const double lat = KL_RAD_PER_DEG * tb.value * g;
    const double lat_rate = KL_RAD_PER_DEG * (tb.rate * g + tb.value * g_rate) / kSecondsPerCentury;
    const double parallax = KL_RAD_PER_DEG * tp.value;
    const double parallax_rate = KL_RAD_PER_DEG * tp.rate / kSecondsPerCentury;

    // Mean obliquity, rad.
    const double t2000 = (date - kMjd2000) / kDaysPerCentury;
    const double eps = kArcsecond * (kObliq[0] + (kObliq[1] + (kObliq[2] + kObliq[3] * t2000) * t2000) * t2000);

    enum { kLon, kLat, kParallax, kEps };
    const double last[4] = {lon, lat, parallax, eps};
    double ls[4], lc[4];
    sin_cos(last, ls, lc);

    // Ecliptic of date: AU, AU/s.
    const double r = kEradau / ls[kParallax];
    const double r_rate = -r * parallax_rate * lc[kParallax] / ls[kParallax];
    const double r_flat = r * lc[kLat];
    const double x = r_flat * lc[kLon];
    const double y = r_flat * ls[kLon];
    const double z = r * ls[kLat];
    const double w = r * lat_rate * ls[kLat] - lc[kLat] * r_rate;
    const double x_rate = -y * lon_rate - w * lc[kLon];
    const double y_rate = x * lon_rate - w * ls[kLon];
    const double z_rate = r * lat_rate * lc[kLat] + ls[kLat] * r_rate;

    // Mean equator of date with the FK5 equinox. The rates of q and of the obliquity are neglected.
    const double q = equinox_correction(2000.0 + 100.0 * t2000);
    const double sin_eps = ls[kEps], cos_eps = lc[kEps];
    pv[0] = x - q * cos_eps * y + q * sin_eps * z;
    pv[1] = q * x + y * cos_eps - z * sin_eps;
    pv[2] = y * sin_eps + z * cos_eps;
    pv[3] = x_rate - q * cos_eps * y_rate + q * sin_eps * z_rate;
    pv[4] = q * x_rate + y_rate * cos_eps - z_rate * sin_eps;
    pv[5] = y_rate * sin_eps + z_rate * cos_eps;
}

long KL_Moon_PosVel(const kl_time_record *tdb, Cord *moon, kl_error_record *error)
{
    Activation call(KL_FN_MOON_POSVEL, error);
    if (tdb->reference != KL_REF_TDB)
        return call.fails(KL_MOON_POSVEL_REFERENCE);
    if (tdb->format != KL_FORMAT_MJD2000)
        return call.fails(KL_MOON_POSVEL_FORMAT);
    double pv[6];
    KL_SlaDmoon(pv, mjd_of(*tdb));
    set_state(moon, KL_MOD, pv, pv + 3);
    return call.status();
}
