// Kernels of the frame change.
#ifndef KL_SRC_FRAMES_FRAME_KERNELS_H
#define KL_SRC_FRAMES_FRAME_KERNELS_H

#include "frames/chain.h"
#include "frames/instant_kernels.h"
#include "numbers/kernels.h"

#include <cstdint>

// Elements of the caller's arrays to change, `count` of them: those at the places, which rise, or the first ones.
struct StateArrays {
    const double (*pos)[3], (*vel)[3], (*acc)[3];
    double (*pos_out)[3], (*vel_out)[3], (*acc_out)[3];
    long calc_mode;    // what the outputs do not carry is zero
    const long *place; // or null
    long count;
};

// The way of the elements, each at its own instant.
struct FrameWays {
    const EarthModel *earth_model;
    const std::int32_t *steps; // codes of the chain
    long n_steps;
    bool has_pole;
    const InstantBlock *at; // UT1, and TDB of the Earth where the way has a translation
};

// Each element at its own instant; without B1950.
KL_KERNEL(change_frames, (const FrameWays *ways, const StateArrays *states));

// All of them at the instant for which the steps were made ready.
KL_KERNEL(change_frames_at_once,
          (const ReadyStep<double> *ready, long n_steps, const EarthStates<double> *earth, const StateArrays *states));

#endif
