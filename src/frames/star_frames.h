// The frames of the stars: B1950 (FK4 without E-terms) and galactic.
#ifndef KL_SRC_FRAMES_STAR_FRAMES_H
#define KL_SRC_FRAMES_STAR_FRAMES_H

#include "frames/frames.h"

// Records of matrices; galactic ones have order 0.
struct MatrixRecord {
    int order;
    double r[9], dr[9], ddr[9];
};

MatrixRecord b1950_to_j2000(double days);
MatrixRecord j2000_to_b1950(double days); // the exact inverse

extern const MatrixRecord kB1950ToGalactic, kGalacticToB1950, kJ2000ToGalactic, kGalacticToJ2000;

inline namespace KL_SET {

template <class T>
void multiply_vector3(const double m[9], const T v[3], T out[3])
{
    for (int i = 0; i < 3; ++i) {
        T sum = 0.0;
        for (int k = 0; k < 3; ++k)
            sum += m[3 * i + k] * v[k];
        out[i] = sum;
    }
}

template <class T>
void apply(const MatrixRecord &record, StateOf<T> *state)
{
    const int order = record.order < state->order ? record.order : state->order;
    const StateOf<T> in = *state;
    T part[3];
    multiply_vector3(record.r, in.pos, state->pos);
    for (int i = 0; i < 3; ++i)
        state->vel[i] = state->acc[i] = 0.0;
    if (order >= 1) {
        multiply_vector3(record.r, in.vel, state->vel);
        multiply_vector3(record.dr, in.pos, part);
        for (int i = 0; i < 3; ++i)
            state->vel[i] += part[i];
    }
    if (order >= 2) {
        multiply_vector3(record.r, in.acc, state->acc);
        multiply_vector3(record.dr, in.vel, part);
        for (int i = 0; i < 3; ++i)
            state->acc[i] += 2.0 * part[i];
        multiply_vector3(record.ddr, in.pos, part);
        for (int i = 0; i < 3; ++i)
            state->acc[i] += part[i];
    }
    state->order = order;
}

} // namespace KL_SET

#endif
