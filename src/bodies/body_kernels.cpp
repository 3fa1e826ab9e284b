// Kernels of Sun, Moon and planets in the Earth-fixed frame.
#include "bodies/body_kernels.h"
#include "ephemerides/moon.h"
#include "ephemerides/planets.h"
#include "frames/chain.h"
#include "numbers/transposed.h"

inline namespace KL_SET {

StateOf<Lanes> state_of(const BodyState<Lanes> &body)
{
    StateOf<Lanes> state;
    state.order = 1;
    for (int i = 0; i < 3; ++i) {
        state.pos[i] = body.pos[i];
        state.vel[i] = body.vel[i];
        state.acc[i] = 0.0;
    }
    return state;
}

// From the centre of the Earth, mean of date: what the Earth's heliocentric state is, turned round.
StateOf<Lanes> sun_of_date(const Path &precession, Sky<Lanes> sky, Lanes tdb)
{
    StateOf<Lanes> state = state_of(heliocentric_earth(tdb));
    for (int i = 0; i < 3; ++i) {
        state.pos[i] = -state.pos[i];
        state.vel[i] = -state.vel[i];
    }
    sky.days = tdb;
    walk(precession, sky, &state);
    return state;
}

// body(sky, tdb) gives the state in the frame where the way begins.
template <class Body>
void to_earth_fixed(BodyBlock *block, long frame, Body body)
{
    const Path path = path_between(frame, KL_EF);
    Sky<Lanes> sky;
    sky.earth_model = block->earth_model;
    sky.simplified = false;
    sky.pole = {0.0, 0.0, 0.0, 0.0};
    block->odd = false;
    for (long i = 0; i < block->count; i += kLanes) {
        const Lanes tdb = load<Lanes>(block->tdb + i);
        sky.days = load<Lanes>(block->ut1 + i);
        if (block->has_pole)
            sky.pole = {load<Lanes>(block->pole[0] + i), load<Lanes>(block->pole[1] + i),
                        load<Lanes>(block->pole[2] + i), load<Lanes>(block->pole[3] + i)};
        if (path.any(set_of(kTranslationEdge)))
            sky.earth = earth_on(path, load<Lanes>(block->tdb_of_ut1 + i));
        sky.complete(path);
        StateOf<Lanes> state = body(sky, tdb);
        walk(path, sky, &state);
        store_elements(state.pos, block->pos[0], i, block->count);
        store_elements(state.vel, block->vel[0], i, block->count);
    }
}

} // namespace KL_SET

namespace KL_KERNELS {

void suns(BodyBlock *block)
{
    const Path precession = path_between(KL_GM2000, KL_MOD);
    to_earth_fixed(block, KL_MOD, [&](const Sky<Lanes> &sky, Lanes tdb) { return sun_of_date(precession, sky, tdb); });
}

void moons(BodyBlock *block)
{
    to_earth_fixed(block, KL_MOD, [](const Sky<Lanes> &, Lanes tdb) { return state_of(moon_state(tdb)); });
}

void planets(BodyBlock *block)
{
    bool odd = false;
    to_earth_fixed(block, KL_HM2000, [&](const Sky<Lanes> &, Lanes tdb) {
        mask_of<Lanes> converged;
        const BodyState<Lanes> state = planet_state(static_cast<int>(block->planet), tdb, &converged);
        odd |= !all(converged);
        return state_of(state);
    });
    block->odd = odd;
}

} // namespace KL_KERNELS
