// The Moon: geocentric state, J. Meeus, l'Astronomie, June 1984, p. 348.
#include "celestial/celestial.h"
#include "celestial/moon_tables.h"
#include "celestial/sin_cos.h"
#include "error/activation.h"
#include "error/message_groups.h"
#include "time/time.h"

#include <array>
#include <cstddef>

namespace {

// A complex number and its rate per century: a unit vector at an angle, sums of such angles by multiplication.
struct Turn {
    double re, im, re_rate, im_rate;
};

Turn operator*(const Turn &a, const Turn &b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re,
            a.re_rate * b.re + a.re * b.re_rate - (a.im_rate * b.im + a.im * b.im_rate),
            a.re_rate * b.im + a.re * b.im_rate + (a.im_rate * b.re + a.im * b.re_rate)};
}

Turn conjugate(const Turn &a)
{
    return {a.re, -a.im, a.re_rate, -a.im_rate};
}

// Multiples -kMost to kMost of an angle.
template <int kMost>
struct Multiples {
    Turn turn[2 * kMost + 1];

    explicit Multiples(const Turn &once)
    {
        turn[kMost] = {1.0, 0.0, 0.0, 0.0};
        for (int k = 1; k <= kMost; ++k) {
            turn[kMost + k] = turn[kMost + k - 1] * once;
            turn[kMost - k] = conjugate(turn[kMost + k]);
        }
    }
    const Turn &operator[](int multiple) const { return turn[kMost + multiple]; }
};

// The series use few of the possible pairs of multiples: of M and M', and of D and F. Each pair is multiplied once.
struct Pair {
    int a, b;
};

// The pairs of all three series in the order of their first appearance, as a compile-time list.
template <class Pick>
constexpr auto list_pairs(Pick pick)
{
    struct {
        Pair pairs[64] = {};
        int count = 0;
    } list;
    const auto add = [&](const LunarTerm &term) {
        const Pair pair = pick(term);
        for (int i = 0; i < list.count; ++i)
            if (list.pairs[i].a == pair.a && list.pairs[i].b == pair.b)
                return;
        list.pairs[list.count++] = pair;
    };
    for (const LunarTerm &term : kTl)
        add(term);
    for (const LunarTerm &term : kTb)
        add(term);
    for (const LunarTerm &term : kTp)
        add(term);
    return list;
}
constexpr Pair anomalies_of(const LunarTerm &term)
{
    return {term.m, term.mp};
}
constexpr Pair elongations_of(const LunarTerm &term)
{
    return {term.d, term.f};
}
constexpr auto kAnomalyPairs = list_pairs(anomalies_of);
constexpr auto kElongationPairs = list_pairs(elongations_of);

template <class List>
constexpr std::uint8_t place(const List &list, const Pair &pair)
{
    int i = 0;
    while (list.pairs[i].a != pair.a || list.pairs[i].b != pair.b)
        ++i;
    return static_cast<std::uint8_t>(i);
}

// A series with the places of its pairs.
struct PlacedTerm {
    double c;
    std::uint8_t anomalies, elongations;
};
template <std::size_t N>
constexpr std::array<PlacedTerm, N> placed(const LunarTerm (&terms)[N])
{
    std::array<PlacedTerm, N> result = {};
    for (std::size_t i = 0; i < N; ++i)
        result[i] = {terms[i].c, place(kAnomalyPairs, anomalies_of(terms[i])),
                     place(kElongationPairs, elongations_of(terms[i]))};
    return result;
}
constexpr auto kLongitudeTerms = placed(kTl);
constexpr auto kLatitudeTerms = placed(kTb);
constexpr auto kParallaxTerms = placed(kTp);

struct ValueAndRate {
    double value, rate; // degrees, degrees per century
};

// Sum of the sines, the small terms first.
template <std::size_t N>
ValueAndRate sum_of_sines(const std::array<PlacedTerm, N> &terms, const Turn *anomalies, const Turn *elongations)
{
    ValueAndRate sum = {0.0, 0.0};
    for (std::size_t i = N; i-- > 0;) {
        const Turn &a = anomalies[terms[i].anomalies];
        const Turn &b = elongations[terms[i].elongations];
        sum.value += terms[i].c * (a.re * b.im + a.im * b.re);
        sum.rate += terms[i].c * ((a.re_rate * b.im + a.im_rate * b.re) + (a.re * b.im_rate + a.im * b.re_rate));
    }
    return sum;
}

// Sum of the cosines.
template <std::size_t N>
ValueAndRate sum_of_cosines(const std::array<PlacedTerm, N> &terms, const Turn *anomalies, const Turn *elongations)
{
    ValueAndRate sum = {0.0, 0.0};
    for (std::size_t i = N; i-- > 0;) {
        const Turn &a = anomalies[terms[i].anomalies];
        const Turn &b = elongations[terms[i].elongations];
        sum.value += terms[i].c * (a.re * b.re - a.im * b.im);
        sum.rate += terms[i].c * ((a.re_rate * b.re - a.im_rate * b.im) + (a.re * b.re_rate - a.im * b.im_rate));
    }
    return sum;
}

constexpr Message kMoonPosVelMessages[] = {
    /* KL_MOON_POSVEL_REFERENCE */ error("Internal computation error # 1"),
    /* KL_MOON_POSVEL_FORMAT    */ error("Internal computation error # 2"),
    /* KL_MOON_POSVEL_LOCK      */ error("Could not lock other threads"), // never recorded: no lock is taken
};
static_assert(std::size(kMoonPosVelMessages) == KL_MOON_POSVEL_N_CODES);

} // namespace

extern const MessageGroup messages_KL_Moon_PosVel = group(kMoonPosVelMessages);

void KL_SlaDmoon(double pv[6], double date)
{
    constexpr double kSecondsPerCentury = 3155760000.0;
    const double t = (date - kMjd1900) / kDaysPerCentury;

    // Fundamental arguments and their rates: rad, rad per century.
    double argument[6], rate[6];
    for (int k = 0; k < 6; ++k) {
        const double *c = kFund[k];
        argument[k] = kDegree * reduced_degrees(c[0] + (c[1] + (c[2] + c[3] * t) * t) * t);
        rate[k] = kDegree * (c[1] + (2.0 * c[2] + 3.0 * c[3] * t) * t);
    }

    // Additive terms of A, B, Omega and W = Omega + C; Omega itself stays as it is.
    const double slow[4] = {kDegree * (kArgA[0] + kArgA[1] * t), kDegree * (kArgB[0] + (kArgB[1] + kArgB[2] * t) * t),
                            argument[kNode], argument[kNode] + kDegree * (kArgC[0] + kArgC[1] * t)};
    const double slow_rate[4] = {kDegree * kArgA[1], kDegree * (kArgB[1] + 2.0 * kArgB[2] * t), rate[kNode],
                                 rate[kNode] + kDegree * kArgC[1]};
    double slow_sin[4], slow_cos[4];
    sin_cos(slow, slow_sin, slow_cos);
    for (int k = 0; k < 5; ++k) {
        const double *a = kAddit[k];
        argument[k] += kDegree * (a[0] * slow_sin[0] + a[1] * slow_sin[1] + a[2] * slow_sin[2] + a[3] * slow_sin[3]);
        rate[k] += kDegree
                   * (a[0] * slow_rate[0] * slow_cos[0] + a[1] * slow_rate[1] * slow_cos[1]
                      + a[2] * slow_rate[2] * slow_cos[2] + a[3] * slow_rate[3] * slow_cos[3]);
    }

    // Multiples of M, M', D and F. The eccentricity factor goes with M: E^|m| of every term.
    double s[6], c[6];
    sin_cos(argument, s, c);
    const auto unit = [&](int k) { return Turn{c[k], s[k], -s[k] * rate[k], c[k] * rate[k]}; };
    const Turn eccentricity = {1.0 + (kEfac[0] + kEfac[1] * t) * t, 0.0, kEfac[0] + 2.0 * kEfac[1] * t, 0.0};
    const Multiples<2> sun(eccentricity * unit(kSunAnomaly));
    const Multiples<4> moon(unit(kMoonAnomaly));
    const Multiples<4> elongation(unit(kElongation));
    const Multiples<3> latitude(unit(kArgumentOfLatitude));
    Turn anomalies[kAnomalyPairs.count], elongations[kElongationPairs.count];
    for (int i = 0; i < kAnomalyPairs.count; ++i)
        anomalies[i] = sun[kAnomalyPairs.pairs[i].a] * moon[kAnomalyPairs.pairs[i].b];
    for (int i = 0; i < kElongationPairs.count; ++i)
        elongations[i] = elongation[kElongationPairs.pairs[i].a] * latitude[kElongationPairs.pairs[i].b];

    // Longitude, latitude, parallax: rad, rad/s.
    const ValueAndRate tl = sum_of_sines(kLongitudeTerms, anomalies, elongations);
    const ValueAndRate tb = sum_of_sines(kLatitudeTerms, anomalies, elongations);
    const ValueAndRate tp = sum_of_cosines(kParallaxTerms, anomalies, elongations);
    const double lon = argument[kMoonLongitude] + kDegree * tl.value;
    const double lon_rate = (rate[kMoonLongitude] + kDegree * tl.rate) / kSecondsPerCentury;
    const double g = 1.0 - kLatfac[0] * slow_cos[2] - kLatfac[1] * slow_cos[3];
    const double g_rate = kLatfac[0] * slow_rate[2] * slow_sin[2] + kLatfac[1] * slow_rate[3] * slow_sin[3];
    const double lat = kDegree * tb.value * g;
    const double lat_rate = kDegree * (tb.rate * g + tb.value * g_rate) / kSecondsPerCentury;
    const double parallax = kDegree * tp.value;
    const double parallax_rate = kDegree * tp.rate / kSecondsPerCentury;

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
    if (tdb->reference != KL_REF_TDB && call.stops(KL_MOON_POSVEL_REFERENCE))
        return KL_ERR;
    if (tdb->format != KL_FORMAT_MJD2000 && call.stops(KL_MOON_POSVEL_FORMAT))
        return KL_ERR;
    double pv[6];
    KL_SlaDmoon(pv, mjd_of(*tdb));
    set_state(moon, KL_MOD, pv, pv + 3);
    return call.status();
}
