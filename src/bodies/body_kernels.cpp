// Kernels of Sun, Moon and planets in the Earth-fixed frame.
#include "bodies/body_kernels.h"
#include "bodies/sun_of_date.h"
#include "ephemerides/moon.h"
#include "ephemerides/planets.h"
#include "numbers/transposed.h"

inline namespace KL_SET {

// body(sky, tdb) gives the state in the frame where the way begins.
template <class Body>
void to_earth_fixed(BodyBlock *block, long frame, Body body)
{
    const Path path = path_between(frame, KL_EF);
    const InstantBlock &at = *block->at;
    Sky<Lanes> sky;
    sky.earth_model = block->earth_model;
    sky.simplified = false;
    block->odd = false;
    for (long i = 0; i < at.count; i += kLanes) {
        const Lanes tdb = load<Lanes>(at.tdb + i);
        sky.days = load<Lanes>(at.ut1 + i);
        sky.pole = pole_of_pack(at, block->has_pole, i);
        if (path.any(set_of(kTranslationEdge)))
            sky.earth = earth_on(path, load<Lanes>(at.tdb_of_earth + i));
        sky.complete(path);
        StateOf<Lanes> state = body(sky, tdb);
        walk(path, sky, &state);
        store_elements(state.pos, block->pos[0], i, at.count);
        store_elements(state.vel, block->vel[0], i, at.count);
    }
}

} // namespace KL_SET

namespace KL_KERNELS {

void suns(BodyBlock *block)
{
    to_earth_fixed(block, KL_MOD, [](const Sky<Lanes> &, Lanes tdb) { return sun_of_date(tdb, 1); });
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
