// Kernel of the instants of a block: on the scales that the chain and the bodies take.
#ifndef KL_SRC_FRAMES_INSTANT_KERNELS_H
#define KL_SRC_FRAMES_INSTANT_KERNELS_H

#include "numbers/kernels.h"
#include "numbers/pack.h"
#include "time/pole.h"

#include <cstdint>

// `count` instants of the processing range; each array is padded to whole packs.
struct InstantBlock {
    long ref;               // their scale
    bool with_tdb;          // for the places of bodies
    bool with_tdb_of_earth; // by way of UT1, for the place of the Earth
    bool pole_between_rows; // the pole too, on the line between the poles of two rows
    long count;
    double days[kBlock];
    const double *row[kBlock];      // the row of each in the correlation, a kl_time_row; the next one lies behind it
    const double *row_pole[kBlock]; // the pole of that row, likewise
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

// `left` gets a bit for each instant that leaves its row on some scale: what is written for it means nothing.
KL_KERNEL(scales_of_instants, (InstantBlock * block, std::uint64_t *left));

#endif
