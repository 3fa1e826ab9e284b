// Sun, Moon and planets: what the files of this folder share.
#ifndef KL_SRC_BODIES_BODIES_H
#define KL_SRC_BODIES_BODIES_H

#include "kl_family.h"
#include "numbers/numbers.h"

#include <cmath>
#include <cstdint>

constexpr double kArcsecond = 4.848136811095359935899141e-6;    // rad
constexpr double kSecondOfTime = 7.272205216643039903848712e-5; // rad
constexpr double kDaysPerCentury = 36525.0;
constexpr double kMjd1900 = 15019.5;      // 1900 January 0.5
constexpr double kMjd2000 = 51544.5;      // J2000.0
constexpr double kMjdOfDayZero = 51544.0; // MJD2000 counts from here

// On purpose: 14 millionths more than the IAU unit; every result of the family is scaled with it.
constexpr double KL_METRES_PER_AU = 1.496e11;

inline double julian_epoch(double mjd)
{
    return 2000.0 + (mjd - kMjd2000) / 365.25;
}

// Correction of the equinox from FK4 to FK5, rad, at a Julian epoch (W. Fricke).
double equinox_correction(double epoch);

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

// State of order 1 in metres, from AU.
inline void set_state(Cord *state, std::int32_t cs, const double pos_au[3], const double vel_au[3])
{
    state->cs = cs;
    state->order = 1;
    for (int i = 0; i < 3; ++i) {
        state->pos[i + 1] = pos_au[i] * KL_METRES_PER_AU;
        state->vel[i + 1] = vel_au[i] * KL_METRES_PER_AU;
    }
}

// Date of a TDB record.
inline double mjd_of(const kl_time_record &tdb)
{
    return kMjdOfDayZero + tdb.value;
}

// ---- conditions of the internal functions ----

#endif
