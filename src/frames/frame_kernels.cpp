// Kernels of the frame change.
#include "frames/frame_kernels.h"
#include "numbers/transposed.h"

inline namespace KL_SET {

void load_vectors(const StateArrays &arrays, const double (*from)[3], long first, Lanes (&out)[3])
{
    if (arrays.place == nullptr)
        load_elements(from[0], first, arrays.count, out);
    else
        load_places(from, arrays.place, first, arrays.count, out);
}

StateOf<Lanes> load_state(const StateArrays &arrays, long first)
{
    StateOf<Lanes> state;
    state.order = 2;
    load_vectors(arrays, arrays.pos, first, state.pos);
    load_vectors(arrays, arrays.vel, first, state.vel);
    load_vectors(arrays, arrays.acc, first, state.acc);
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
    store_as_asked(state, arrays, [&](const Lanes(&v)[3], double(*to)[3]) {
        if (arrays.place == nullptr)
            store_elements(v, to[0], first, arrays.count);
        else
            store_places(v, to, arrays.place, first, arrays.count);
    });
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

template <int axis, int N>
[[gnu::always_inline]] inline void turn_about(const Turn<Lanes> &t, StateOf<Lanes> (&packs)[N])
{
    for (auto &pack : packs)
        apply_about<axis>(t, &pack);
}

// Neighbours: N packs side by side, since each turn has to wait for the one before.
template <int N>
void turn_packs(const Turn<Lanes> *turns, long n, const StateArrays &states, long first)
{
    StateOf<Lanes> packs[N];
    for (int p = 0; p < N; ++p) {
        packs[p].order = 2;
        load_threes(states.pos[first + p * kLanes], packs[p].pos);
        load_threes(states.vel[first + p * kLanes], packs[p].vel);
        load_threes(states.acc[first + p * kLanes], packs[p].acc);
    }
    for (const Turn<Lanes> *t = turns; t != turns + n; ++t)
        if (t->axis == 0)
            turn_about<0>(*t, packs);
        else if (t->axis == 1)
            turn_about<1>(*t, packs);
        else
            turn_about<2>(*t, packs);
    for (int p = 0; p < N; ++p)
        store_as_asked(packs[p], states,
                       [&](const Lanes(&v)[3], double(*to)[3]) { store_threes(v, to[first + p * kLanes]); });
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
    for (; i + 2 * kLanes <= states.count; i += 2 * kLanes)
        turn_packs<2>(turns, n, states, i);
    for (; i + kLanes <= states.count; i += kLanes)
        turn_packs<1>(turns, n, states, i);
    for (; i < states.count; i += kLanes) {
        StateOf<Lanes> state = load_state(states, i);
        for (long k = 0; k < n; ++k)
            apply(turns[k], &state);
        store_state(state, states, i);
    }
}

} // namespace KL_SET

namespace KL_KERNELS {

void change_frames(const FrameWays *ways, const StateArrays *states)
{
    Path path;
    for (long i = 0; i < ways->n_steps; ++i)
        path.add(ways->steps[i]);
    const InstantBlock &at = *ways->at;
    Sky<Lanes> sky;
    sky.earth_model = ways->earth_model;
    sky.simplified = false;
    for (long i = 0; i < states->count; i += kLanes) {
        sky.days = load<Lanes>(at.ut1 + i);
        sky.pole = pole_of_pack(at, ways->has_pole, i);
        if (path.any(set_of(kTranslationEdge)))
            sky.earth = earth_on(path, load<Lanes>(at.tdb_of_earth + i));
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
