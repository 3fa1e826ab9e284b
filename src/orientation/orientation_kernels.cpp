// The kernels of Earth orientation, compiled for each instruction set.
#include "numbers/transposed.h"
#include "orientation/eop_rows.h"
#include "orientation/frames_of_date.h"
#include "orientation/orientation.h"
#include "orientation/row_times.h"
#include "orientation/short_period_terms.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr double kEraAtEpoch = 0.7790572732640;                // turns at J2000.0
constexpr double kEraExcess = 0.00273781191135448;             // turns a day of UT1 above one
constexpr double kSPrimeRate = -47.0 * KL_RAD_PER_MICROARCSEC; // rad a century

// A number of each instant of a pack, in registers: what is written in narrow parts holds up a wide read.
template <class T, class Number>
T gathered(const OrientationInstant *in, Number number)
{
    if constexpr (lanes_of<T> == 1) {
        return number(in[0]);
    } else {
        T out{};
        for (int i = 0; i < lanes_of<T>; ++i)
            set_lane(out, i, number(in[i]));
        return out;
    }
}

// A motion of each instant: value, rate and acceleration are neighbours.
template <class T>
Jet<T> gathered_jet(const OrientationInstant *in, Motion EopValues::*motion)
{
    if constexpr (lanes_of<T> == 1) {
        const Motion &m = in->eop.*motion;
        return {m.value, m.rate, m.acceleration};
    } else {
        static_assert(sizeof(Motion) == 3 * sizeof(double));
        const double *from[lanes_of<T>];
        for (int i = 0; i < lanes_of<T>; ++i)
            from[i] = &(in[i].eop.*motion).value;
        T parts[3];
        ::gather(from, parts);
        return {parts[0], parts[1], parts[2]};
    }
}

// UT1, the pole and its offsets at the instants.
template <class T>
struct EopOf {
    Jet<T> tai_ut1, x, y, dx, dy;
    T ut1_day, ut1_fraction;
};

template <class T>
EopOf<T> given_eop(const OrientationInstant *in)
{
    return {gathered_jet<T>(in, &EopValues::tai_ut1),
            gathered_jet<T>(in, &EopValues::x),
            gathered_jet<T>(in, &EopValues::y),
            gathered_jet<T>(in, &EopValues::dx),
            gathered_jet<T>(in, &EopValues::dy),
            gathered<T>(in, [](const OrientationInstant &i) { return i.ut1_day; }),
            gathered<T>(in, [](const OrientationInstant &i) { return i.ut1_fraction; })};
}

// The pole and its offsets from the weights of their rows.
template <int order, class T>
void add_pole(const OrientationInstant *in, const Jet<T> (&w)[4], EopOf<T> *out)
{
    if constexpr (lanes_of<T> == 1) { // x, y, dX, dY side by side
        constexpr int width = kLanes < 4 ? kLanes : 4;
        Jet<T> *const to[4] = {&out->x, &out->y, &out->dx, &out->dy};
        for (int first = 0; first < 4; first += width) {
            Pack<width> pole[4];
            for (int k = 0; k < 4; ++k)
                pole[k] = load<Pack<width>>(in->poles[k] + first) * KL_RAD_PER_ARCSEC;
            const Jet<Pack<width>> sums = weighted<order>(w, pole);
            for (int i = 0; i < width; ++i)
                *to[first + i] = {sums.value[i], sums.rate[i], sums.acceleration[i]};
        }
    } else {
        T columns[4][4];
        for (int k = 0; k < 4; ++k) {
            const double *from[lanes_of<T>];
            for (int i = 0; i < lanes_of<T>; ++i)
                from[i] = in[i].poles[k];
            T pole[4];
            ::gather(from, pole);
            for (int j = 0; j < 4; ++j)
                columns[j][k] = pole[j] * KL_RAD_PER_ARCSEC;
        }
        out->x = weighted<order>(w, columns[0]);
        out->y = weighted<order>(w, columns[1]);
        out->dx = weighted<order>(w, columns[2]);
        out->dy = weighted<order>(w, columns[3]);
    }
}

template <int order, class T>
EopOf<T> eop_of_rows(const OrientationInstant *in, const T &day, const T &fraction)
{
    T ahead[4], tai_ut1[4];
    for (int k = 0; k < 4; ++k) {
        ahead[k] = (gathered<T>(in, [k](const OrientationInstant &i) { return i.rows[k].tai; }) - day) - fraction;
        tai_ut1[k] = gathered<T>(in, [k](const OrientationInstant &i) { return i.rows[k].tai_ut1; });
    }
    Jet<T> w[4];
    row_weights<order>(ahead, w);
    EopOf<T> out{};
    out.tai_ut1 = weighted<order>(w, tai_ut1);
    if (in->poles != nullptr)
        add_pole<order>(in, w, &out);
    const T behind = fraction - out.tai_ut1.value / KL_SECONDS_PER_DAY;
    const T carry = floor(behind);
    out.ut1_day = day + carry;
    out.ut1_fraction = behind - carry;
    return out;
}

// GMST + pi, the argument of the tides. Source: IERS Conventions (2010), chapters 5 and 8.
template <class T>
T gamma_of(const T &t, const T &ut1_fraction)
{
    const T seconds = 67310.54841 + t * (8640184.812866 + t * (0.093104 - t * 6.2e-6));
    const T turns = seconds * (1.0 / KL_SECONDS_PER_DAY) + ut1_fraction; // half a turn from 0h to noon, half from pi
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

// Inlined, with what uses its result: derivatives beyond the order are then not computed.
template <int order, class T>
[[gnu::always_inline]] inline Angles<T> angles_of(const OrientationInstant *in, int low, int high, long corrections)
{
    Angles<T> out{};
    EarthAngles<T> &e = out.turned;
    const double *from[lanes_of<T>];
    double tt_days[lanes_of<T>];
    for (int i = 0; i < lanes_of<T>; ++i) {
        from[i] = &in[i].times.tai_day;
        tt_days[i] = in[i].times.tt_day;
    }
    T times[4];
    ::gather(from, times);
    const auto &[tai_day, tai_fraction, tt_day, tt_fraction] = times;
    const T t = ((tt_day - 0.5) + tt_fraction) * (1.0 / KL_DAYS_PER_CENTURY);
    const EopOf<T> eop = in->rows != nullptr ? eop_of_rows<order, T>(in, tai_day, tai_fraction) : given_eop<T>(in);
    if (low <= kRankGcrs && high >= kRankCirs) {
        e.cip = celestial_pole<order>(tt_days, tt_fraction, t);
        add(e.cip.x, eop.dx);
        add(e.cip.y, eop.dy);
        separate_origin<order>(e.cip);
    }
    if (high < kRankTirs)
        return out;

    const T day = eop.ut1_day;
    T fraction = eop.ut1_fraction;
    Jet<T> tai_ut1 = eop.tai_ut1;
    e.x_pole = eop.x;
    e.y_pole = eop.y;
    if (corrections != 0) {
        const T centuries = ((day - 0.5) + fraction) * (1.0 / KL_DAYS_PER_CENTURY);
        const ShortPeriodSums<T> tides =
            short_period_terms<order>(kTideAmplitudes[corrections], gamma_of(centuries, fraction), centuries);
        add(e.x_pole, tides.x);
        add(e.y_pole, tides.y);
        tai_ut1.value = tai_ut1.value - tides.ut1.value;
        tai_ut1.rate = tai_ut1.rate - tides.ut1.rate;
        tai_ut1.acceleration = tai_ut1.acceleration - tides.ut1.acceleration;
        fraction = fraction + tides.ut1.value * (1.0 / KL_SECONDS_PER_DAY);
    }
    // Source: IERS Conventions (2010), equation 5.15.
    const T noon = fraction - 0.5;
    const T turns = kEraAtEpoch + kEraExcess * (day + noon) + noon;
    constexpr double kTurnRate = KL_TWO_PI * (1.0 + kEraExcess) / KL_SECONDS_PER_DAY;
    e.era.value = (turns - floor(turns)) * KL_TWO_PI;
    e.era.rate = kTurnRate * (1.0 - tai_ut1.rate);
    e.era.acceleration = -kTurnRate * tai_ut1.acceleration;
    e.s_prime = kSPrimeRate * t;
    out.tai_ut1 = tai_ut1.value;
    return out;
}

// Nine numbers each; no rates where the order has none.
template <class T>
struct Matrices {
    T m[9], rate[9], acceleration[9];
};

template <int order, class T>
void matrix_of(const OrientationInstant *in, const OrientationPath &path, T *m, T *rate, T *acceleration)
{
    const int low = path.from < path.to ? path.from : path.to;
    const int high = path.from < path.to ? path.to : path.from;
    frame_matrix<order>(path.from, path.to, angles_of<order, T>(in, low, high, path.corrections).turned, m, rate,
                        acceleration);
}

template <int order, class T>
void matrices(const OrientationInstant *in, const OrientationPath &path, double (*m)[9], double (*rate)[9],
              double (*acceleration)[9])
{
    if constexpr (lanes_of<T> == 1) {
        matrix_of<order>(in, path, *m, *rate, *acceleration);
    } else {
        Matrices<T> a;
        matrix_of<order>(in, path, a.m, a.rate, a.acceleration);
        store_elements(a.m, *m, 0, lanes_of<T>);
        if (order >= 1)
            store_elements(a.rate, *rate, 0, lanes_of<T>);
        if (order >= 2)
            store_elements(a.acceleration, *acceleration, 0, lanes_of<T>);
    }
    constexpr long kAll = 9 * lanes_of<T>;
    if (order < 1)
        std::fill_n(*rate, kAll, 0.0);
    if (order < 2)
        std::fill_n(*acceleration, kAll, 0.0);
}

template <int order>
void all_matrices(const OrientationInstant *in, long n, const OrientationPath &path, double (*m)[9], double (*rate)[9],
                  double (*acceleration)[9])
{
    long i = 0;
    for (; i + kLanes <= n; i += kLanes)
        matrices<order, Lanes>(in + i, path, m + i, rate + i, acceleration + i);
    for (; i < n; ++i)
        matrices<order, double>(in + i, path, m + i, rate + i, acceleration + i);
}

// ---- states ----

template <class T>
struct State {
    T pos[3], vel[3], acc[3];
};

// The states of as many neighbours as T has lanes.
template <class T>
void gather(const double (*from)[3], T (&to)[3])
{
    if constexpr (lanes_of<T> == 1)
        std::memcpy(to, *from, sizeof to);
    else
        load_threes(*from, to);
}

template <class T>
void scatter(const T (&from)[3], double (*to)[3])
{
    if constexpr (lanes_of<T> == 1)
        std::memcpy(*to, from, sizeof from);
    else
        store_threes(from, *to);
}

template <class T>
void through(const T (&m)[9], const T (&v)[3], T (&out)[3])
{
    for (int i = 0; i < 3; ++i)
        out[i] = m[3 * i] * v[0] + m[3 * i + 1] * v[1] + m[3 * i + 2] * v[2];
}

template <int order, class T>
State<T> turned(const Matrices<T> &a, const State<T> &in)
{
    State<T> out{};
    through(a.m, in.pos, out.pos);
    if (order >= 1) {
        T moved[3];
        through(a.m, in.vel, out.vel);
        through(a.rate, in.pos, moved);
        for (int j = 0; j < 3; ++j)
            out.vel[j] = out.vel[j] + moved[j];
    }
    if (order >= 2) {
        T twisted[3];
        T pulled[3];
        through(a.m, in.acc, out.acc);
        through(a.rate, in.vel, twisted);
        through(a.acceleration, in.pos, pulled);
        for (int j = 0; j < 3; ++j)
            out.acc[j] = out.acc[j] + 2.0 * twisted[j] + pulled[j];
    }
    return out;
}

// Where states come from and go to.
struct States {
    const double (*pos)[3];
    const double (*vel)[3];
    const double (*acc)[3];
    double (*pos_out)[3];
    double (*vel_out)[3];
    double (*acc_out)[3];
};

template <int order, class T>
void turn_at(const Matrices<T> &a, const States &s, long i)
{
    State<T> in{};
    gather(s.pos + i, in.pos);
    if (order >= 1)
        gather(s.vel + i, in.vel);
    if (order >= 2)
        gather(s.acc + i, in.acc);
    const State<T> out = turned<order>(a, in);
    scatter(out.pos, s.pos_out + i);
    scatter(out.vel, s.vel_out + i);
    scatter(out.acc, s.acc_out + i);
}

template <int order>
void all_states(const OrientationInstant *in, long n, const OrientationPath &path, const States &states)
{
    long i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        Matrices<Lanes> a;
        matrix_of<order>(in + i, path, a.m, a.rate, a.acceleration);
        turn_at<order>(a, states, i);
    }
    for (; i < n; ++i) {
        Matrices<double> a;
        matrix_of<order>(in + i, path, a.m, a.rate, a.acceleration);
        turn_at<order>(a, states, i);
    }
}

template <int order, class T>
Matrices<T> the_same(const double (&m)[9], const double *rate, const double *acceleration)
{
    Matrices<T> out{};
    for (int k = 0; k < 9; ++k) {
        out.m[k] = m[k];
        if (order >= 1)
            out.rate[k] = rate[k];
        if (order >= 2)
            out.acceleration[k] = acceleration[k];
    }
    return out;
}

template <int order>
void through_one(const double (&m)[9], const double *rate, const double *acceleration, long n, const States &states)
{
    long i = 0;
    if (n >= kLanes) {
        const Matrices<Lanes> a = the_same<order, Lanes>(m, rate, acceleration);
        for (; i + kLanes <= n; i += kLanes)
            turn_at<order>(a, states, i);
    }
    if (i < n) {
        const Matrices<double> a = the_same<order, double>(m, rate, acceleration);
        for (; i < n; ++i)
            turn_at<order>(a, states, i);
    }
}

} // namespace

namespace KL_KERNELS {

void times_between_rows(const double *days, const kl_time_row *const *row, long n, long scale,
                        OrientationInstant *instants, bool *all)
{
    *all = true;
    for (long i = 0; i < n; i += kLanes) {
        const double *here[kLanes];
        double tai_end[kLanes];
        double *to[kLanes];
        for (int k = 0; k < kLanes; ++k) {
            here[k] = &row[i + k]->tai;
            tai_end[k] = row[i + k][1].tai;
            to[k] = &instants[i + k].times.tai_day;
        }
        Lanes columns[4]; // TAI, UT1, UTC, TAI-UTC
        ::gather(here, columns);
        OrientationTimes<Lanes> at;
        *all &= !any(!times_between(load<Lanes>(days + i), scale, columns[3], columns[0], load<Lanes>(tai_end), &at));
        const Lanes times[4] = {at.tai_day, at.tai_fraction, at.tt_day, at.tt_fraction};
        ::scatter(times, to);
    }
}

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

void orientation_states(const OrientationInstant *instants, long n, const OrientationPath &path, int order,
                        const double (*pos)[3], const double (*vel)[3], const double (*acc)[3], double (*pos_out)[3],
                        double (*vel_out)[3], double (*acc_out)[3])
{
    const States states = {pos, vel, acc, pos_out, vel_out, acc_out};
    if (order == 0)
        all_states<0>(instants, n, path, states);
    else if (order == 1)
        all_states<1>(instants, n, path, states);
    else
        all_states<2>(instants, n, path, states);
}

void turn_states(const double (*m)[9], const double (*rate)[9], const double (*acceleration)[9], long n, int order,
                 const double (*pos)[3], const double (*vel)[3], const double (*acc)[3], double (*pos_out)[3],
                 double (*vel_out)[3], double (*acc_out)[3])
{
    const States states = {pos, vel, acc, pos_out, vel_out, acc_out};
    if (order == 0)
        through_one<0>(*m, nullptr, nullptr, n, states);
    else if (order == 1)
        through_one<1>(*m, *rate, nullptr, n, states);
    else
        through_one<2>(*m, *rate, *acceleration, n, states);
}

} // namespace KL_KERNELS
