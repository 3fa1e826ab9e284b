// Kernels of the frame change.
#ifndef KL_SRC_FRAMES_FRAME_KERNELS_H
#define KL_SRC_FRAMES_FRAME_KERNELS_H

#include "frames/chain.h"
#include "numbers/kernels.h"

#include <cstdint>

// Elements of the caller's arrays to change: their places, `count` of them.
struct StateArrays {
    const double (*pos)[3], (*vel)[3], (*acc)[3];
    double (*pos_out)[3], (*vel_out)[3], (*acc_out)[3];
    long calc_mode; // what the outputs do not carry is zero
    const long *place;
    long count;
};

// The instants of the elements, each array padded to whole packs.
struct FrameInstants {
    const EarthModel *earth_model;
    const std::int32_t *steps; // codes of the chain
    long n_steps;
    bool has_pole;
    double days[kBlock];    // UT1 where the way needs it
    double tdb[kBlock];     // where it has a translation
    double pole[4][kBlock]; // x, y and their rates, if there is one
};

// Each element at its own instant; without B1950.
KL_KERNEL(change_frames, (const FrameInstants *instants, const StateArrays *states));

// All of them at the instant for which the steps were made ready.
KL_KERNEL(change_frames_at_once,
          (const ReadyStep<double> *ready, long n_steps, const EarthStates<double> *earth, const StateArrays *states));

#endif
