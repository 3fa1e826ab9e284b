// Kernel of the instants of a block: on the scales that the chain and the bodies take.
#ifndef KL_SRC_FRAMES_INSTANT_KERNELS_H
#define KL_SRC_FRAMES_INSTANT_KERNELS_H

#include "numbers/kernels.h"
#include "numbers/pack.h"
#include "time/pole.h"

#include <cstdint>

// Instants of the processing range, `count` of them and each array padded to whole packs.
struct InstantBlock {
    long ref;               // their scale
    bool with_tdb;          // for the places of bodies
    bool with_tdb_of_earth; // by way of UT1, for the place of the Earth
    bool with_pole;         // between rows
    long count;
    double days[kBlock];
    const double *row[kBlock]; // of each in the correlation: a kl_time_row, and the next one behind it
    const double *row_pole[kBlock];
    // What comes out: days, rad, rad/s.
    double ut1[kBlock], tdb[kBlock], tdb_of_earth[kBlock];
    double pole[4][kBlock]; // x, y and their rates
};

inline namespace KL_SET {

inline PoleOf<Lanes> pole_of_pack(const InstantBlock &at, bool has_pole, long i)
{
    if (!has_pole)
        return {0.0, 0.0, 0.0, 0.0};
    return {load<Lanes>(at.pole[0] + i), load<Lanes>(at.pole[1] + i), load<Lanes>(at.pole[2] + i),
            load<Lanes>(at.pole[3] + i)};
}

} // namespace KL_SET

// `left` gets a bit for each instant that leaves its row on some scale: nothing is said of these.
KL_KERNEL(scales_of_instants, (InstantBlock * block, std::uint64_t *left));

#endif
