// Earth, Moon and planets by their series: what the files of this folder share.
#ifndef KL_SRC_EPHEMERIDES_EPHEMERIDES_H
#define KL_SRC_EPHEMERIDES_EPHEMERIDES_H

#include "kl_family.h"
#include "numbers/numbers.h"

#include <cmath>
#include <cstdint>

constexpr double kSecondOfTime = 7.272205216643039903848712e-5; // rad
constexpr double kMjd1900 = 15019.5;                            // 1900 January 0.5
constexpr double kMjdOfJ2000 = 51544.5;
constexpr double kMjdOfDayZero = 51544.0; // MJD2000 counts from here

// On purpose: 14 millionths more than the IAU unit; every result of the family is scaled with it.
constexpr double KL_METRES_PER_AU = 1.496e11;

// m, m/s
template <class T>
struct BodyState {
    T pos[3], vel[3];
};

inline namespace KL_SET {

template <class T>
T julian_epoch(T mjd)
{
    return 2000.0 + (mjd - kMjdOfJ2000) / KL_DAYS_PER_YEAR;
}

// Correction of the equinox from FK4 to FK5, rad, at a Julian epoch: W. Fricke, Astron. Astrophys. 107, L13
// (1982).
template <class T>
T equinox_correction(T epoch)
{
    constexpr double kB1950 = 1949.9997904423; // B1950.0 as a Julian epoch
    return (0.035 + 0.00085 * (epoch - kB1950)) * kSecondOfTime;
}

// A state in metres, from AU.
template <class T>
BodyState<T> in_metres(const T pos_au[3], const T vel_au[3])
{
    BodyState<T> state;
    for (int i = 0; i < 3; ++i) {
        state.pos[i] = pos_au[i] * KL_METRES_PER_AU;
        state.vel[i] = vel_au[i] * KL_METRES_PER_AU;
    }
    return state;
}

} // namespace KL_SET

// A state with its own vectors.
struct OwnedState : Cord {
    OwnedState()
    {
        cs = 0;
        order = 1;
        pos = vectors_[0];
        vel = vectors_[1];
        acc = vectors_[2];
    }
    OwnedState(const OwnedState &) = delete;
    OwnedState &operator=(const OwnedState &) = delete;

private:
    double vectors_[3][4] = {}; // one-based
};

// The record of a state; its acceleration stays.
inline void set_state(Cord *record, std::int32_t cs, const BodyState<double> &state)
{
    record->cs = cs;
    record->order = 1;
    copy_three(state.pos, record->pos + 1);
    copy_three(state.vel, record->vel + 1);
}

// Date of a TDB record.
inline double mjd_of(const kl_time_record &tdb)
{
    return kMjdOfDayZero + tdb.value;
}

#endif
