// The frames of the stars: B1950 (FK4 without E-terms) and galactic.
#ifndef KL_SRC_FRAMES_STAR_FRAMES_H
#define KL_SRC_FRAMES_STAR_FRAMES_H

#include "frames/frames.h"

// Records of matrices; galactic ones have order 0.
struct MatrixRecord {
    int order;
    double r[9], dr[9], ddr[9];
};

void apply(const MatrixRecord &record, State *state);

MatrixRecord b1950_to_j2000(double days);
MatrixRecord j2000_to_b1950(double days); // the exact inverse

extern const MatrixRecord kB1950ToGalactic, kGalacticToB1950, kJ2000ToGalactic, kGalacticToJ2000;

#endif
