// Eclipses of many satellites, at one instant or each at its own.
#ifndef KL_SRC_GEOMETRY_SHADOW_KERNELS_H
#define KL_SRC_GEOMETRY_SHADOW_KERNELS_H

#include "frames/instant_kernels.h"
#include "models/model_record.h"
#include "numbers/kernels.h"

#include <cstdint>

// What the satellites of one instant share: m.
struct ShadowScene {
    double a, f;       // of the ellipsoid
    double axes[3][3]; // from the frame of the positions to axes whose z is the Earth's
    double sun[3];     // in the latter
};

// What those of many instants share.
struct ShadowScenes {
    const EarthModel *earth_model;
    long frame; // of the positions
    bool has_pole;
    const InstantBlock *at;
    const InstantBlock *by_light; // the same instants by way of TDB, for the Sun with its light time; else null
};

struct ShadowBlock {
    double state[kBlock], fraction[kBlock], depth[kBlock]; // of Shadow, eclipse.h
};

// Positions from the centre of the Earth; margins null: 0. What is refused or not ordinary is noted in `left`, a bit an
// element. `count` is at most kBlock.
KL_KERNEL(shadows, (const ShadowScene *scene, const double (*pos)[3], const double *margin, long count,
                    ShadowBlock *out, std::uint64_t *left));
KL_KERNEL(shadows_at_instants, (const ShadowScenes *scenes, const double (*pos)[3], const double *margin,
                                ShadowBlock *out, std::uint64_t *left));

#endif
