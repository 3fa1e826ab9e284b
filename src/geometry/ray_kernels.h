// Many lines of sight: where they meet the ellipsoid or a height, and their lowest points.
#ifndef KL_SRC_GEOMETRY_RAY_KERNELS_H
#define KL_SRC_GEOMETRY_RAY_KERNELS_H

#include "numbers/kernels.h"

#include <cstdint>

// What they share, and the first of them; `count` is at most kBlock.
struct RaysOfBlock {
    double a, f; // of the ellipsoid: m
    const double (*pos)[3], (*dir)[3];
    const double *raised; // m: margin or height of each; not read for lowest points
    long count;
};

struct MeetingBlock {
    double t[2][kBlock], n[kBlock];
};

struct LowestBlock {
    double t[kBlock], point[kBlock][3];
    double latitude[kBlock], longitude[kBlock], height[kBlock]; // deg, m
};

// What is refused or not ordinary is noted in `left`, a bit an element.
KL_KERNEL(meetings_with_ellipsoid, (const RaysOfBlock *rays, MeetingBlock *out, std::uint64_t *left));
KL_KERNEL(meetings_with_height, (const RaysOfBlock *rays, MeetingBlock *out, std::uint64_t *left));
KL_KERNEL(lowest_points, (const RaysOfBlock *rays, LowestBlock *out, std::uint64_t *left));

#endif
