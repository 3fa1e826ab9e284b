// Kernels of Sun, Moon and planets in the Earth-fixed frame.
#ifndef KL_SRC_BODIES_BODY_KERNELS_H
#define KL_SRC_BODIES_BODY_KERNELS_H

#include "models/model_record.h"
#include "numbers/kernels.h"

// Instants, `count` of them and each array padded to whole packs, and the states there.
struct BodyBlock {
    const EarthModel *earth_model;
    bool has_pole;
    long planet;
    long count;
    double tdb[kBlock], ut1[kBlock];
    double tdb_of_ut1[kBlock]; // by way of UT1, for the place of the Earth: planets
    double pole[4][kBlock];    // x, y and their rates, if there is one
    double pos[kBlock][3], vel[kBlock][3];
    bool odd; // an element that has more to say: all have to be done one by one
};

KL_KERNEL(suns, (BodyBlock * block));
KL_KERNEL(moons, (BodyBlock * block));
KL_KERNEL(planets, (BodyBlock * block));

#endif
