// The matrix of three rotation angles, about x, y and z, as a formula over numbers or packs.
#ifndef KL_SRC_ROTATIONS_EULER_H
#define KL_SRC_ROTATIONS_EULER_H

#include "numbers/elementary.h"
#include "numbers/numbers.h"

inline namespace KL_SET {

template <class T>
void fill_matrix(const SineCosine<T> &a0, const SineCosine<T> &a1, const SineCosine<T> &a2, T m[9])
{
    m[0] = a1.c * a2.c + a0.s * a1.s * a2.s;
    m[1] = a0.c * a2.s;
    m[2] = a1.s * a2.c - a0.s * a1.c * a2.s;
    m[3] = -a1.c * a2.s + a0.s * a1.s * a2.c;
    m[4] = a0.c * a2.c;
    m[5] = -a1.s * a2.s - a0.s * a1.c * a2.c;
    m[6] = -a0.c * a1.s;
    m[7] = a0.s;
    m[8] = a0.c * a1.c;
}

// Degrees of any size. Rows of unit length to the last bit.
template <class T>
void matrix_of(const T angles[3], T m[9])
{
    T angle[4] = {}; // two pairs: the fourth fills a register
    T s[4];
    T c[4];
    for (int i = 0; i < 3; ++i) {
        const auto ordinary = fabs(angles[i]) < 0x1p53;
        angle[i] = angles[i];
        if (!all(ordinary))
            angle[i] = in_lanes(!ordinary, angle[i], reduced_huge_degrees, angles[i]);
    }
    sin_cos_degrees(angle, s, c);
    T rows[9]; // stays in registers
    fill_matrix<T>({s[0], c[0]}, {s[1], c[1]}, {s[2], c[2]}, rows);
    for (int row = 0; row < 3; ++row) {
        const T scale = per_length(dot3(rows + 3 * row, rows + 3 * row));
        for (int i = 3 * row; i < 3 * row + 3; ++i)
            m[i] = rows[i] * scale;
    }
}

} // namespace KL_SET

#endif
