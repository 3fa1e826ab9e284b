// The frame chain inside: states, elementary turns and edges.
#ifndef KL_SRC_FRAMES_FRAMES_H
#define KL_SRC_FRAMES_FRAMES_H

#include "kl_family.h"
#include "models/model_record.h"
#include "numbers/numbers.h"
#include "numbers/sin_cos.h"
#include "time/correlation.h"

#include <cstddef>

enum { KL_FIRST_FRAME = KL_BM2000, KL_LAST_FRAME = KL_PTOD };

constexpr double KL_J2000_DAYS = 0.5;               // J2000.0 in days since 2000-01-01 00:00
constexpr double KL_MEAN_OBLIQUITY_DEG = 23.439291; // fixed, on purpose: the chain is tuned to it
constexpr double KL_MEAN_OBLIQUITY_SINE = 0x1.9752e4f0ba151p-2, KL_MEAN_OBLIQUITY_COSINE = 0x1.d5c0357d223dep-1;

// ---- records, the same for all instruction sets ----

// A rotation by an angle about one axis, with the angle's rates: every edge of the chain is a few of these. Acting on
// a state directly they cost a tenth of what 3x3 matrices with derivatives do.
template <class T>
struct Turn {
    int axis; // 0, 1, 2
    T c, s;
    T rate, rate_of_rate; // rad/s, rad/s2
};

// Up to three turns, in the order in which they act.
template <class T>
struct Turns {
    int n;
    Turn<T> turns[3];
};

// A state with its derivatives: m, m/s, m/s2. Vectors above the order are zero.
template <class T>
struct StateOf {
    int order;
    T pos[3], vel[3], acc[3];
};
using State = StateOf<double>;

inline namespace KL_SET {

template <class T>
Turn<T> inverse(const Turn<T> &t)
{
    return {t.axis, t.c, -t.s, -t.rate, -t.rate_of_rate};
}

// r' = R r, v' = R v + dR r, a' = R a + 2 dR v + ddR r, written with the rotated vectors: dR R^-1 = rate J and
// ddR R^-1 = rate_of_rate J - rate^2 across the axis, J turning (x, y) into (y, -x).
template <int axis, class R, class T>
[[gnu::always_inline]] inline void apply_about(const Turn<R> &t, StateOf<T> *state)
{
    constexpr int j = (axis + 1) % 3, k = (axis + 2) % 3;
    const auto across = [&](const T *v, T *x, T *y) {
        *x = t.c * v[j] + t.s * v[k];
        *y = t.c * v[k] - t.s * v[j];
    };
    T px;
    T py;
    across(state->pos, &px, &py);
    state->pos[j] = px;
    state->pos[k] = py;
    if (state->order == 0)
        return;
    T vx;
    T vy;
    across(state->vel, &vx, &vy);
    state->vel[j] = vx + t.rate * py;
    state->vel[k] = vy - t.rate * px;
    if (state->order == 1)
        return;
    T ax;
    T ay;
    across(state->acc, &ax, &ay);
    const R square = t.rate * t.rate;
    state->acc[j] = ax + 2.0 * t.rate * vy + t.rate_of_rate * py - square * px;
    state->acc[k] = ay - 2.0 * t.rate * vx - t.rate_of_rate * px - square * py;
}

// The axis known, components stay in registers.
template <class R, class T>
[[gnu::always_inline]] inline void apply(const Turn<R> &t, StateOf<T> *state)
{
    switch (t.axis) {
    case 0:
        return apply_about<0>(t, state);
    case 1:
        return apply_about<1>(t, state);
    default:
        return apply_about<2>(t, state);
    }
}

template <class R, class T>
void apply(const Turns<R> &turns, StateOf<T> *state)
{
    for (int i = 0; i < turns.n; ++i)
        apply(turns.turns[i], state);
}

template <class R, class T>
void apply_back(const Turns<R> &turns, StateOf<T> *state)
{
    for (int i = turns.n - 1; i >= 0; --i)
        apply(inverse(turns.turns[i]), state);
}

template <class T>
struct TurnBy {
    int axis;
    T angle, rate, rate_of_rate; // rad, rad/s, rad/s2
};

template <class T, std::size_t N>
Turns<T> turns_by(const TurnBy<T> (&given)[N])
{
    T angle[N], sine[N], cosine[N];
    for (std::size_t i = 0; i < N; ++i)
        angle[i] = given[i].angle;
    sin_cos(angle, sine, cosine);
    Turns<T> out;
    out.n = static_cast<int>(N);
    for (std::size_t i = 0; i < N; ++i)
        out.turns[i] = {given[i].axis, cosine[i], sine[i], given[i].rate, given[i].rate_of_rate};
    return out;
}

} // namespace KL_SET

#endif
