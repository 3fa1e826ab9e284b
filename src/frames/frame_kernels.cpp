// Kernels of the frame change.
#include "frames/frame_kernels.h"
#include "numbers/transposed.h"

inline namespace KL_SET {

StateOf<Lanes> load_state(const StateArrays &arrays, long first)
{
    StateOf<Lanes> state;
    state.order = 2;
    load_places(arrays.pos, arrays.place, first, arrays.count, state.pos);
    load_places(arrays.vel, arrays.place, first, arrays.count, state.vel);
    load_places(arrays.acc, arrays.place, first, arrays.count, state.acc);
    return state;
}

// Calls store(vectors, array) for each of the three; what the mode does not carry is zero.
template <class Store>
[[gnu::always_inline]] inline void store_as_asked(const StateOf<Lanes> &state, const StateArrays &arrays, Store store)
{
    const Lanes zero[3] = {0.0, 0.0, 0.0};
    store(state.pos, arrays.pos_out);
    if (arrays.calc_mode >= KL_CALC_POS_VEL)
        store(state.vel, arrays.vel_out);
    else
        store(zero, arrays.vel_out);
    if (arrays.calc_mode == KL_CALC_POS_VEL_ACC)
        store(state.acc, arrays.acc_out);
    else
        store(zero, arrays.acc_out);
}

void store_state(const StateOf<Lanes> &state, const StateArrays &arrays, long first)
{
    store_as_asked(state, arrays,
                   [&](const Lanes(&v)[3], double(*to)[3]) { store_places(v, to, arrays.place, first, arrays.count); });
}

// ---- ways of turns alone, which most are: no states leave the registers ----

bool only_turns(const ReadyStep<double> *ready, long n_steps)
{
    constexpr unsigned kOthers = 1U << kGalacticEdge | 1U << kB1950Edge | 1U << kTranslationEdge;
    for (long k = 0; k < n_steps; ++k)
        if ((kOthers >> ready[k].step->kind & 1U) != 0)
            return false;
    return true;
}

Turn<Lanes> in_all_lanes(const Turn<double> &t)
{
    return {t.axis, t.c, t.s, t.rate, t.rate_of_rate};
}

[[gnu::always_inline]] inline void apply(const Turn<Lanes> *turns, long n, StateOf<Lanes> *state)
{
    for (long k = 0; k < n; ++k)
        apply(turns[k], state);
}

void turn_all(const ReadyStep<double> *ready, long n_steps, const StateArrays &states)
{
    Turn<Lanes> turns[3 * kLongestPath];
    long n = 0;
    for (long k = 0; k < n_steps; ++k) {
        const Turns<double> &step = ready[k].turns;
        for (int i = 0; i < step.n; ++i)
            turns[n++] = in_all_lanes(ready[k].step->back ? inverse(step.turns[step.n - 1 - i]) : step.turns[i]);
    }
    long i = 0;
    if (states.count > 0 && states.place[states.count - 1] - states.place[0] == states.count - 1)
        for (; i + kLanes <= states.count; i += kLanes) { // without gaps
            const long first = states.place[0] + i;
            StateOf<Lanes> state;
            state.order = 2;
            load_threes(states.pos[first], state.pos);
            load_threes(states.vel[first], state.vel);
            load_threes(states.acc[first], state.acc);
            apply(turns, n, &state);
            store_as_asked(state, states, [&](const Lanes(&v)[3], double(*to)[3]) { store_threes(v, to[first]); });
        }
    for (; i < states.count; i += kLanes) {
        StateOf<Lanes> state = load_state(states, i);
        apply(turns, n, &state);
        store_state(state, states, i);
    }
}

} // namespace KL_SET

namespace KL_KERNELS {

void change_frames(const FrameInstants *instants, const StateArrays *states)
{
    Path path;
    for (long i = 0; i < instants->n_steps; ++i)
        path.add(instants->steps[i]);
    Sky<Lanes> sky;
    sky.earth_model = instants->earth_model;
    sky.simplified = false;
    sky.pole = {0.0, 0.0, 0.0, 0.0};
    for (long i = 0; i < states->count; i += kLanes) {
        sky.days = load<Lanes>(instants->days + i);
        if (instants->has_pole)
            sky.pole = {load<Lanes>(instants->pole[0] + i), load<Lanes>(instants->pole[1] + i),
                        load<Lanes>(instants->pole[2] + i), load<Lanes>(instants->pole[3] + i)};
        if (path.any(set_of(kTranslationEdge)))
            sky.earth = earth_on(path, load<Lanes>(instants->tdb + i));
        sky.complete(path);
        StateOf<Lanes> state = load_state(*states, i);
        walk(path, sky, &state);
        store_state(state, *states, i);
    }
}

void change_frames_at_once(const ReadyStep<double> *ready, long n_steps, const EarthStates<double> *earth,
                           const StateArrays *states)
{
    if (only_turns(ready, n_steps)) {
        turn_all(ready, n_steps, *states);
        return;
    }
    for (long i = 0; i < states->count; i += kLanes) {
        StateOf<Lanes> state = load_state(*states, i);
        for (long k = 0; k < n_steps; ++k)
            walk(ready[k], *earth, &state);
        store_state(state, *states, i);
    }
}

} // namespace KL_KERNELS
