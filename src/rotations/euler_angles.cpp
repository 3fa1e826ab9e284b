// Rotation angles and matrices, and the angles between two sets of axes.
#include "arrays/array_call.h"
#include "errors/activation.h"
#include "numbers/bounds.h"
#include "rotations/euler.h"
#include "rotations/rotation_kernels.h"

#include <cmath>
#include <iterator>

namespace {

constexpr double kOrthogonal = 1e-6;
constexpr double kRotation = 1e-9;

// Degrees in (-180, 180].
double degrees_of(double y, double x)
{
    const double degrees = arc_tangent(y, x) * KL_DEG_PER_RAD;
    return degrees <= -180.0 ? degrees + 360.0 : degrees;
}

bool rows_are_orthonormal(const double m[9])
{
    for (int i = 0; i < 3; ++i) {
        if (!is_unit(dot3(m + 3 * i, m + 3 * i)))
            return false;
        const int j = (i + 1) % 3;
        if (!(std::fabs(dot3(m + 3 * i, m + 3 * j)) <= kOrthogonal))
            return false;
    }
    return true;
}

enum Found { kAngles, kAmbiguous, kNoRotation };

// In the lock, where the first and the third angle turn about the same axis: the third is 0. False when neither element
// tells the second.
bool angles_in_the_lock(const double m[9], double angles[3])
{
    if (std::fabs(m[3]) < kRotation && std::fabs(m[0]) < kRotation)
        return false;
    angles[0] = m[7] > 0.0 ? 90.0 : 270.0; // on purpose not reduced
    angles[1] = degrees_of(m[3] * m[7], m[0]);
    angles[2] = 0.0;
    return true;
}

// Angles of an orthonormal matrix.
Found angles_of(const double m[9], double angles[3])
{
    const auto M = [m](int i, int j) { return m[3 * i + j]; };
    const double c = std::sqrt(M(2, 0) * M(2, 0) + M(2, 2) * M(2, 2)); // |cos a0|
    if (c < kRotation)
        return angles_in_the_lock(m, angles) ? kAmbiguous : kNoRotation;
    if (std::fabs(M(0, 1)) < kRotation && std::fabs(M(1, 1)) < kRotation)
        return kNoRotation;
    if (KL_Check_rotation_matrix(m, M(2, 1), c, -M(2, 0) / c, M(2, 2) / c, M(0, 1) / c, M(1, 1) / c) == 0)
        return kNoRotation;
    angles[0] = degrees_of(M(2, 1), c);
    angles[1] = degrees_of(-M(2, 0), M(2, 2));
    angles[2] = degrees_of(M(0, 1), M(1, 1));
    return kAngles;
}

// Angles of a matrix that is known to be a rotation, with full digits up to the lock: what the second angle turns is
// taken off before the third is read, so that errors of one make up for those of the other.
void angles_of_rotation(const double m[9], double angles[3])
{
    const double c = std::sqrt(m[6] * m[6] + m[8] * m[8]); // |cos a0|
    if (c < kRotation) {
        angles_in_the_lock(m, angles);
        return;
    }
    const double s1 = -m[6] / c;
    const double c1 = m[8] / c;
    angles[0] = degrees_of(m[7], c);
    angles[1] = degrees_of(-m[6], m[8]);
    angles[2] = degrees_of(-(c1 * m[3] + s1 * m[5]), c1 * m[0] + s1 * m[2]);
}

// Unit axes, row by row; false when one is null or two are not orthogonal.
bool unit_axes(const double *x, const double *y, const double *z, double axes[9])
{
    if (x == nullptr || y == nullptr || z == nullptr)
        return false;
    const double *const given[3] = {x, y, z};
    for (int i = 0; i < 3; ++i) {
        KL_copy_v(given[i], 3, axes + 3 * i);
        normalise(axes + 3 * i, 3);
    }
    return rows_are_orthonormal(axes);
}

// Takes off what is left of non-orthogonality; the handedness stays.
void orthogonalise(double axes[9])
{
    double *x = axes;
    double *y = axes + 3;
    double *z = axes + 6;
    const double along = dot(x, y, 3);
    for (int i = 0; i < 3; ++i)
        y[i] -= along * x[i];
    normalise(y, 3);
    double normal[3];
    cross(x, y, normal);
    KL_mult_ev(3, normal, z, dot(normal, z, 3) < 0.0 ? -1.0 : 1.0);
}

} // namespace

long KL_Check_rotation_matrix(const double matrix[9], double s0, double c0, double s1, double c1, double s2, double c2)
{
    double rebuilt[9];
    fill_matrix<double>({s0, c0}, {s1, c1}, {s2, c2}, rebuilt);
    for (int i = 0; i < 9; ++i)
        if (!(std::fabs(rebuilt[i] - matrix[i]) <= kRotation))
            return 0;
    return 1;
}

namespace {

// False: sets of different hands, which are no rotation apart.
bool rotation_between(const double axes1[9], const double axes2[9], double matrix[9])
{
    double from[9];
    double to[9];
    KL_copy_m(axes1, from);
    KL_copy_m(axes2, to);
    orthogonalise(from);
    orthogonalise(to);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            matrix[3 * i + j] = dot(to + 3 * i, from + 3 * j, 3);
    return KL_det(matrix) > 0.0;
}

// ---- the calls for one element ----

long euler_to_matrix(const double angles[3], double matrix[9], long *ierr)
{
    Activation call(KL_FN_EULER_TO_MATRIX, ierr);
    if (angles == nullptr || matrix == nullptr)
        return KL_ERR;
    const double copy[3] = {angles[0], angles[1], angles[2]}; // matrix may overlap angles
    matrix_of(copy, matrix);
    return call.status();
}

long matrix_to_euler(const double matrix[9], double angles[3], long *ierr)
{
    Activation call(KL_FN_MATRIX_TO_EULER, ierr);
    if (matrix == nullptr || !rows_are_orthonormal(matrix))
        return call.fails(KL_MATRIX_TO_EULER_ORTHONORMAL_ERR);
    if (angles == nullptr)
        return KL_ERR;
    double found[3];
    switch (angles_of(matrix, found)) {
    case kNoRotation:
        return call.fails(KL_MATRIX_TO_EULER_ROTATION_ERR);
    case kAmbiguous:
        call.warns(KL_MATRIX_TO_EULER_AMBIGUITY_WARN);
        break;
    case kAngles:
        break;
    }
    KL_copy_v(found, 3, angles);
    return call.status();
}

long get_rotation_angles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                         const double y2[3], const double z2[3], double angles[3], long *ierr)
{
    Activation call(KL_FN_GET_ROTATION_ANGLES, ierr);
    double axes1[9];
    double axes2[9];
    if (!(unit_axes(x1, y1, z1, axes1) && unit_axes(x2, y2, z2, axes2)))
        return call.fails(KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR);
    if (angles == nullptr)
        return KL_ERR;
    double matrix[9];
    double found[3];
    if (!rotation_between(axes1, axes2, matrix))
        return call.fails(KL_GET_ROTATION_ANGLES_ROTATION_ERR);
    angles_of_rotation(matrix, found);
    KL_copy_v(found, 3, angles);
    return call.status();
}

long get_rotated_vectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                         double x2[3], double y2[3], double z2[3], long *ierr)
{
    Activation call(KL_FN_GET_ROTATED_VECTORS, ierr);
    double axes[9];
    if (!unit_axes(x1, y1, z1, axes))
        return call.fails(KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR);
    if (angles == nullptr || !finite(angles))
        return call.fails(KL_GET_ROTATED_VECTORS_ROTATION_ERR);
    if (x2 == nullptr || y2 == nullptr || z2 == nullptr)
        return KL_ERR;
    double matrix[9];
    double out[9];
    matrix_of(angles, matrix);
    KL_mult_mm(matrix, axes, out);
    KL_copy_v(out, 3, x2);
    KL_copy_v(out + 3, 3, y2);
    KL_copy_v(out + 6, 3, z2);
    return call.status();
}

} // namespace

long KL_CS_Rotation(const double axes1[9], const double axes2[9], double matrix[9])
{
    return rotation_between(axes1, axes2, matrix) ? 0 : KL_ERR;
}

long kl_euler_to_matrix(const double angles[3], double matrix[9], long *ierr)
{
    return euler_to_matrix(angles, matrix, ierr);
}

long kl_matrix_to_euler(const double matrix[9], double angles[3], long *ierr)
{
    return matrix_to_euler(matrix, angles, ierr);
}

long kl_get_rotation_angles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                            const double y2[3], const double z2[3], double angles[3], long *ierr)
{
    return get_rotation_angles(x1, y1, z1, x2, y2, z2, angles, ierr);
}

long kl_get_rotated_vectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                            double x2[3], double y2[3], double z2[3], long *ierr)
{
    return get_rotated_vectors(x1, y1, z1, angles, x2, y2, z2, ierr);
}

// ---- for many ----

long kl_euler_to_matrix_n(const long *n, const double angles[][3], double matrix[][9], long *status, long *ierr)
{
    ArrayCall array(KL_FN_EULER_TO_MATRIX, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) { return euler_to_matrix(angles[i], matrix[i], word); };
    const auto fail = fails_in(matrix);
    if (angles == nullptr || matrix == nullptr)
        return array.refuse(fail);
    return array.each(one, fail, [&](long first, long count, LeftOver &) {
        if (&angles[0][0] == &matrix[0][0]) // each matrix lies on the angles of others
            return false;
        euler_matrices_kernel()(angles[first], matrix[first], count);
        return true;
    });
}

long kl_matrix_to_euler_n(const long *n, const double matrix[][9], double angles[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_MATRIX_TO_EULER, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) { return matrix_to_euler(matrix[i], angles[i], word); };
    const auto fail = fails_in(angles);
    if (matrix == nullptr)
        array.call().fails(KL_MATRIX_TO_EULER_ORTHONORMAL_ERR);
    if (matrix == nullptr || angles == nullptr)
        return array.refuse(fail);
    return array.each(one, fail);
}

long kl_get_rotation_angles_n(const long *n, const double x1[][3], const double y1[][3], const double z1[][3],
                              const double x2[][3], const double y2[][3], const double z2[][3], double angles[][3],
                              long *status, long *ierr)
{
    ArrayCall array(KL_FN_GET_ROTATION_ANGLES, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) {
        return get_rotation_angles(x1[i], y1[i], z1[i], x2[i], y2[i], z2[i], angles[i], word);
    };
    const auto fail = fails_in(angles);
    const bool null =
        x1 == nullptr || y1 == nullptr || z1 == nullptr || x2 == nullptr || y2 == nullptr || z2 == nullptr;
    if (null)
        array.call().fails(KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR);
    if (null || angles == nullptr)
        return array.refuse(fail);
    return array.each(one, fail);
}

long kl_get_rotated_vectors_n(const long *n, const double x1[][3], const double y1[][3], const double z1[][3],
                              const double angles[][3], double x2[][3], double y2[][3], double z2[][3], long *status,
                              long *ierr)
{
    ArrayCall array(KL_FN_GET_ROTATED_VECTORS, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) {
        return get_rotated_vectors(x1[i], y1[i], z1[i], angles[i], x2[i], y2[i], z2[i], word);
    };
    const auto fail = fails_in(x2, y2, z2);
    const bool null = x1 == nullptr || y1 == nullptr || z1 == nullptr;
    if (null)
        array.call().fails(KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR);
    else if (angles == nullptr)
        array.call().fails(KL_GET_ROTATED_VECTORS_ROTATION_ERR);
    if (null || angles == nullptr || x2 == nullptr || y2 == nullptr || z2 == nullptr)
        return array.refuse(fail);
    return array.each(one, fail);
}
