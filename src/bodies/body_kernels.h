// Kernels of Sun, Moon and planets in the Earth-fixed frame.
#ifndef KL_SRC_BODIES_BODY_KERNELS_H
#define KL_SRC_BODIES_BODY_KERNELS_H

#include "frames/instant_kernels.h"
#include "models/model_record.h"
#include "numbers/kernels.h"

// Instants and the states there.
struct BodyBlock {
    const EarthModel *earth_model;
    bool has_pole;
    long planet;
    const InstantBlock *at;
    double pos[kBlock][3], vel[kBlock][3];
    bool odd; // an element that has more to say: all have to be done one by one
};

KL_KERNEL(suns, (BodyBlock * block));
KL_KERNEL(moons, (BodyBlock * block));
KL_KERNEL(planets, (BodyBlock * block));

#endif
