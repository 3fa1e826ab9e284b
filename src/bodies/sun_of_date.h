// The Sun at an instant or a pack of instants, for kernels and for what they share with the scalar routines.
#ifndef KL_SRC_BODIES_SUN_OF_DATE_H
#define KL_SRC_BODIES_SUN_OF_DATE_H

#include "frames/chain.h"

// On purpose: 0.499 s, a thousandth of the light time over one AU. Only a start; what it misses stays in the result,
// since there is one refinement and no more.
constexpr double KL_FIRST_LIGHT_TIME = 5.775518304412127e-6; // days

inline namespace KL_SET {

template <class T>
StateOf<T> state_of(const BodyState<T> &body)
{
    StateOf<T> state;
    state.order = 1;
    for (int i = 0; i < 3; ++i) {
        state.pos[i] = body.pos[i];
        state.vel[i] = body.vel[i];
        state.acc[i] = 0.0;
    }
    return state;
}

// From the centre of the Earth, mean of date, up to the order: what the Earth's heliocentric state is, turned round.
template <class T>
StateOf<T> sun_of_date(T tdb, int order)
{
    StateOf<T> state = state_of(heliocentric_earth(tdb));
    state.order = order;
    for (int i = 0; i < 3; ++i) {
        state.pos[i] = -state.pos[i];
        state.vel[i] = -state.vel[i];
    }
    apply(precession_turns(precession_at(tdb)), &state); // KL_GM2000 to KL_MOD
    return state;
}

// Days that light takes from the Sun to an observer, both m.
template <class T>
T light_days(const T *sun, const T *observer)
{
    T away[3];
    for (int i = 0; i < 3; ++i)
        away[i] = sun[i] - observer[i];
    return sqrt(dot3(away, away)) / KL_SPEED_OF_LIGHT / KL_SECONDS_PER_DAY;
}

} // namespace KL_SET

#endif
