// The frame chain inside: states, elementary turns and edges.
#ifndef KL_SRC_FRAMES_FRAMES_H
#define KL_SRC_FRAMES_FRAMES_H

#include "kl_family.h"
#include "numbers/numbers.h"
#include "numbers/sin_cos.h"

#include <cstddef>

enum { KL_FIRST_FRAME = KL_BM2000, KL_LAST_FRAME = KL_PTOD };

constexpr double KL_SECONDS_PER_CENTURY = 36525.0 * 86400.0;
constexpr double KL_J2000_DAYS = 0.5;               // J2000.0 in days since 2000-01-01 00:00
constexpr double KL_MEAN_OBLIQUITY_DEG = 23.439291; // fixed, on purpose: the chain is tuned to it

// A state with its derivatives: m, m/s, m/s2. Vectors above the order are zero.
struct State {
    int order;
    double pos[3], vel[3], acc[3];
};

// A rotation by an angle about one axis, with the angle's rates: every edge of the chain is a few of these. Acting on
// a state directly they cost a tenth of what 3x3 matrices with derivatives do.
struct Turn {
    int axis; // 0, 1, 2
    double c, s;
    double rate, rate_of_rate; // rad/s, rad/s2
};

inline Turn inverse(const Turn &t)
{
    return {t.axis, t.c, -t.s, -t.rate, -t.rate_of_rate};
}

// r' = R r, v' = R v + dR r, a' = R a + 2 dR v + ddR r, written with the rotated vectors: dR R^-1 = rate J and
// ddR R^-1 = rate_of_rate J - rate^2 across the axis, J turning (x, y) into (y, -x).
inline void apply(const Turn &t, State *state)
{
    const int j = t.axis == 2 ? 0 : t.axis + 1;
    const int k = j == 2 ? 0 : j + 1;
    const auto across = [&](double *v, double *x, double *y) {
        *x = t.c * v[j] + t.s * v[k];
        *y = t.c * v[k] - t.s * v[j];
    };
    double px = 0.0;
    double py = 0.0;
    across(state->pos, &px, &py);
    state->pos[j] = px;
    state->pos[k] = py;
    if (state->order == 0)
        return;
    double vx = 0.0;
    double vy = 0.0;
    across(state->vel, &vx, &vy);
    state->vel[j] = vx + t.rate * py;
    state->vel[k] = vy - t.rate * px;
    if (state->order == 1)
        return;
    double ax = 0.0;
    double ay = 0.0;
    across(state->acc, &ax, &ay);
    const double square = t.rate * t.rate;
    state->acc[j] = ax + 2.0 * t.rate * vy + t.rate_of_rate * py - square * px;
    state->acc[k] = ay - 2.0 * t.rate * vx - t.rate_of_rate * px - square * py;
}

// Up to three turns, in the order in which they act.
struct Turns {
    int n;
    Turn turns[3];
};

struct TurnBy {
    int axis;
    double angle, rate, rate_of_rate; // rad, rad/s, rad/s2
};

template <std::size_t N>
Turns turns_by(const TurnBy (&given)[N])
{
    double angle[N], sine[N], cosine[N];
    for (std::size_t i = 0; i < N; ++i)
        angle[i] = given[i].angle;
    sin_cos(angle, sine, cosine);
    Turns out;
    out.n = static_cast<int>(N);
    for (std::size_t i = 0; i < N; ++i)
        out.turns[i] = {given[i].axis, cosine[i], sine[i], given[i].rate, given[i].rate_of_rate};
    return out;
}

Turns precession_turns(const kl_precession &angles);
Turns nutation_turns(const kl_nutation &nutation);
Turns z_turn(const kl_angle &degrees);
Turns polar_motion_turns(const kl_time_id *time_id, double ut1_days);

// Apparent sidereal angle from constants of the model and a nutation; equation of the equinoxes with its rates, rad.
struct EarthModel;
kl_angle sidereal_angle(const EarthModel &earth, double ut1_days, const kl_nutation &nutation);
bool has_linear_angle(const EarthModel &earth); // false when the selection was refused
kl_angle linear_sidereal_angle(const EarthModel &earth, double ut1_days);
void equation_of_equinoxes(const kl_nutation &nutation, double q[3]);

// Days since 2000-01-01 00:00 of a record, whatever its format.
double mjd2000_of(const kl_time_record &date);

// The record of turns: they act on the three axes.
void fill_record(const Turns &turns, kl_rotation_record *rotation);

#endif
