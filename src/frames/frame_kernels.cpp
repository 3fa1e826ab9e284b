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

void store_state(StateOf<Lanes> &state, const StateArrays &arrays, long first)
{
    for (int i = 0; i < 3; ++i) {
        if (arrays.calc_mode < KL_CALC_POS_VEL)
            state.vel[i] = 0.0;
        if (arrays.calc_mode != KL_CALC_POS_VEL_ACC)
            state.acc[i] = 0.0;
    }
    store_places(state.pos, arrays.pos_out, arrays.place, first, arrays.count);
    store_places(state.vel, arrays.vel_out, arrays.place, first, arrays.count);
    store_places(state.acc, arrays.acc_out, arrays.place, first, arrays.count);
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
            sky.earth = earth_states(load<Lanes>(instants->tdb + i));
        sky.complete(path);
        StateOf<Lanes> state = load_state(*states, i);
        walk(path, sky, &state);
        store_state(state, *states, i);
    }
}

void change_frames_at_once(const ReadyStep<double> *ready, long n_steps, const EarthStates<double> *earth,
                           const StateArrays *states)
{
    for (long i = 0; i < states->count; i += kLanes) {
        StateOf<Lanes> state = load_state(*states, i);
        for (long k = 0; k < n_steps; ++k)
            walk(ready[k], *earth, &state);
        store_state(state, *states, i);
    }
}

} // namespace KL_KERNELS
