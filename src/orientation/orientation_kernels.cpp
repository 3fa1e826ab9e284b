// The kernels of Earth orientation, compiled for each instruction set.
#include "orientation/frames_of_date.h"
#include "orientation/orientation.h"
#include "orientation/short_period_terms.h"

namespace {

constexpr double kEraAtEpoch = 0.7790572732640;               // turns at J2000.0
constexpr double kEraExcess = 0.00273781191135448;            // turns a day of UT1 above one
constexpr double kSPrimeRate = -47.0 * kRadPerMicroarcsecond; // rad a century

template <class T>
T gathered(const OrientationInstant *in, double (*number)(const OrientationInstant &))
{
    double lanes[lanes_of<T>];
    for (int i = 0; i < lanes_of<T>; ++i)
        lanes[i] = number(in[i]);
    return load<T>(lanes);
}

template <class T>
Jet<T> gathered_jet(const OrientationInstant *in, Motion EopValues::*motion)
{
    double value[lanes_of<T>];
    double rate[lanes_of<T>];
    double acceleration[lanes_of<T>];
    for (int i = 0; i < lanes_of<T>; ++i) {
        value[i] = (in[i].eop.*motion).value;
        rate[i] = (in[i].eop.*motion).rate;
        acceleration[i] = (in[i].eop.*motion).acceleration;
    }
    return {load<T>(value), load<T>(rate), load<T>(acceleration)};
}

template <class T>
PoleNodes<T> gathered_nodes(const OrientationInstant *in)
{
    PoleNodes<double> each[lanes_of<T>];
    for (int i = 0; i < lanes_of<T>; ++i)
        each[i] = pole_nodes(in[i].tt_day);
    if constexpr (lanes_of<T> == 1) {
        return each[0];
    } else {
        PoleNodes<T> out;
        const auto join = [&](T &to, const auto &number) {
            double lanes[lanes_of<T>];
            for (int i = 0; i < lanes_of<T>; ++i)
                lanes[i] = number(each[i]);
            to = load<T>(lanes);
        };
        for (int j = 0; j < kPolePairs; ++j) {
            join(out.x_sum[j], [j](const auto &e) { return e.x_sum[j]; });
            join(out.x_difference[j], [j](const auto &e) { return e.x_difference[j]; });
            join(out.y_sum[j], [j](const auto &e) { return e.y_sum[j]; });
            join(out.y_difference[j], [j](const auto &e) { return e.y_difference[j]; });
        }
        for (int j = 0; j < kOriginPairs; ++j) {
            join(out.s_sum[j], [j](const auto &e) { return e.s_sum[j]; });
            join(out.s_difference[j], [j](const auto &e) { return e.s_difference[j]; });
        }
        return out;
    }
}

// GMST + pi, the argument of the tides. Source: IERS Conventions (2010), chapters 5 and 8.
template <class T>
T gamma_of(const T &t, const T &ut1_fraction)
{
    const T seconds = 67310.54841 + t * (8640184.812866 + t * (0.093104 - t * 6.2e-6));
    const T turns = seconds * (1.0 / kSecondsPerDay) + ut1_fraction; // half a turn from 0h to noon, half from pi
    return (turns - floor(turns)) * KL_TWO_PI;
}

template <class T>
void add(Jet<T> &to, const Jet<T> &what)
{
    to.value = to.value + what.value;
    to.rate = to.rate + what.rate;
    to.acceleration = to.acceleration + what.acceleration;
}

template <class T>
struct Angles {
    EarthAngles<T> turned;
    T tai_ut1;
};

template <int order, class T>
Angles<T> angles_of(const OrientationInstant *in, int from, int to, long corrections)
{
    Angles<T> out{};
    EarthAngles<T> &e = out.turned;
    const T tt_fraction = gathered<T>(in, [](const OrientationInstant &i) { return i.tt_fraction; });
    const T tt_day = gathered<T>(in, [](const OrientationInstant &i) { return static_cast<double>(i.tt_day); });
    const T t = ((tt_day - 0.5) + tt_fraction) * (1.0 / kDaysPerCentury);
    if (from <= kRankGcrs && to >= kRankCirs) {
        e.cip = celestial_pole<order>(gathered_nodes<T>(in), tt_fraction, t);
        add(e.cip.x, gathered_jet<T>(in, &EopValues::dx));
        add(e.cip.y, gathered_jet<T>(in, &EopValues::dy));
        separate_origin<order>(e.cip);
    }
    if (to < kRankTirs)
        return out;

    const T day = gathered<T>(in, [](const OrientationInstant &i) { return i.ut1_day; });
    T fraction = gathered<T>(in, [](const OrientationInstant &i) { return i.ut1_fraction; });
    Jet<T> tai_ut1 = gathered_jet<T>(in, &EopValues::tai_ut1);
    e.x_pole = gathered_jet<T>(in, &EopValues::x);
    e.y_pole = gathered_jet<T>(in, &EopValues::y);
    if (corrections != 0) {
        const T centuries = ((day - 0.5) + fraction) * (1.0 / kDaysPerCentury);
        const ShortPeriodSums<T> tides =
            short_period_terms(kTideAmplitudes[corrections], gamma_of(centuries, fraction), centuries);
        add(e.x_pole, tides.x);
        add(e.y_pole, tides.y);
        tai_ut1.value = tai_ut1.value - tides.ut1.value;
        tai_ut1.rate = tai_ut1.rate - tides.ut1.rate;
        fraction = fraction + tides.ut1.value * (1.0 / kSecondsPerDay);
    }
    // Source: IERS Conventions (2010), equation 5.15.
    const T noon = fraction - 0.5;
    const T turns = kEraAtEpoch + kEraExcess * (day + noon) + noon;
    constexpr double kTurnRate = KL_TWO_PI * (1.0 + kEraExcess) / kSecondsPerDay;
    e.era.value = (turns - floor(turns)) * KL_TWO_PI;
    e.era.rate = kTurnRate * (1.0 - tai_ut1.rate);
    e.era.acceleration = -kTurnRate * tai_ut1.acceleration;
    e.s_prime = kSPrimeRate * t;
    out.tai_ut1 = tai_ut1.value;
    return out;
}

template <class T>
void scatter(const T (&m)[3][3], double (*out)[9])
{
    for (int k = 0; k < 9; ++k) {
        double lanes[lanes_of<T>];
        store(m[k / 3][k % 3], lanes);
        for (int i = 0; i < lanes_of<T>; ++i)
            out[i][k] = lanes[i];
    }
}

template <int order, class T>
void matrices(const OrientationInstant *in, const OrientationPath &path, double (*m)[9], double (*rate)[9],
              double (*acceleration)[9])
{
    const int low = path.from < path.to ? path.from : path.to;
    const int high = path.from < path.to ? path.to : path.from;
    const JetMatrix<T> a =
        frame_matrix<order>(path.from, path.to, angles_of<order, T>(in, low, high, path.corrections).turned);
    scatter(a.m, m);
    if (order >= 1)
        scatter(a.rate, rate);
    if (order >= 2)
        scatter(a.acceleration, acceleration);
}

template <int order>
void all_matrices(const OrientationInstant *in, long n, const OrientationPath &path, double (*m)[9], double (*rate)[9],
                  double (*acceleration)[9])
{
    long i = 0;
    for (; i + kLanes <= n; i += kLanes)
        matrices<order, Lanes>(in + i, path, m + i, order >= 1 ? rate + i : nullptr,
                               order >= 2 ? acceleration + i : nullptr);
    for (; i < n; ++i)
        matrices<order, double>(in + i, path, m + i, order >= 1 ? rate + i : nullptr,
                                order >= 2 ? acceleration + i : nullptr);
}

inline void through(const double (&m)[9], const double (&v)[3], double (&out)[3])
{
    for (int i = 0; i < 3; ++i)
        out[i] = m[3 * i] * v[0] + m[3 * i + 1] * v[1] + m[3 * i + 2] * v[2];
}

} // namespace

namespace KL_KERNELS {

void orientation_matrices(const OrientationInstant *instants, long n, const OrientationPath &path, int order,
                          double (*m)[9], double (*rate)[9], double (*acceleration)[9])
{
    if (order == 0)
        all_matrices<0>(instants, n, path, m, rate, acceleration);
    else if (order == 1)
        all_matrices<1>(instants, n, path, m, rate, acceleration);
    else
        all_matrices<2>(instants, n, path, m, rate, acceleration);
}

void orientation_values(const OrientationInstant *instants, long n, long corrections, Orientation *values)
{
    for (long i = 0; i < n; ++i) {
        const Angles<double> a = angles_of<0, double>(instants + i, kRankGcrs, kRankItrs, corrections);
        const EarthAngles<double> &e = a.turned;
        values[i] = {e.x_pole.value, e.y_pole.value, a.tai_ut1, e.cip.x.value,
                     e.cip.y.value,  e.cip.s.value,  e.s_prime, e.era.value};
    }
}

void turn_states(const double (*m)[9], const double (*rate)[9], const double (*acceleration)[9], long stride, long n,
                 int order, const double (*pos)[3], const double (*vel)[3], const double (*acc)[3],
                 double (*pos_out)[3], double (*vel_out)[3], double (*acc_out)[3])
{
    for (long i = 0; i < n; ++i) {
        const long k = i * stride;
        double r[3];
        double v[3] = {};
        double a[3] = {};
        through(m[k], pos[i], r);
        if (order >= 1) {
            double moved[3];
            through(m[k], vel[i], v);
            through(rate[k], pos[i], moved);
            for (int j = 0; j < 3; ++j)
                v[j] += moved[j];
        }
        if (order >= 2) {
            double turned[3];
            double pulled[3];
            through(m[k], acc[i], a);
            through(rate[k], vel[i], turned);
            through(acceleration[k], pos[i], pulled);
            for (int j = 0; j < 3; ++j)
                a[j] = a[j] + 2.0 * turned[j] + pulled[j];
        }
        for (int j = 0; j < 3; ++j) {
            pos_out[i][j] = r[j];
            vel_out[i][j] = v[j];
            acc_out[i][j] = a[j];
        }
    }
}

} // namespace KL_KERNELS
