/**
 * @file rotations.h
 * Quaternions, axes, rotation angles.
 */
#ifndef KL_ROTATIONS_H
#define KL_ROTATIONS_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Interpolation of quaternions. */
enum { KL_INTERPOL_SLERP = 0 };

/*
 * Convention. A quaternion (q0, q1, q2, q3) has its vector part first and its scalar last. Its attitude matrix is
 *
 *     q0^2-q1^2-q2^2+q3^2   2(q0q1+q2q3)           2(q0q2-q1q3)
 *     2(q0q1-q2q3)          -q0^2+q1^2-q2^2+q3^2   2(q1q2+q0q3)
 *     2(q0q2+q1q3)          2(q1q2-q0q3)           -q0^2-q1^2+q2^2+q3^2
 *
 * and the axis vectors x, y, z are its columns. Worked: q = (0, 0, sin 45 deg, cos 45 deg) = (0, 0, 0.7071, 0.7071)
 * gives x = (0, -1, 0), y = (1, 0, 0), z = (0, 0, 1): a quarter turn about z as a change of axes.
 */

/** Conditions of kl_quaternions_to_vectors, from api/rotations.toml. */
enum {
    KL_QUATERNIONS_TO_VECTORS_MODULE_ERR = 0, /**< not of unit length; NaN, NULL */
    KL_QUATERNIONS_TO_VECTORS_N_CODES = 1
};

/**
 * Axis vectors of a quaternion.
 *
 * @param[in]  q        [4] unit quaternion within 1e-6, scalar last; used as given, not normalised
 * @param[out] x, y, z  [3] columns of the attitude matrix
 * @param[out] ierr     [1] KL_QUATERNIONS_TO_VECTORS_MODULE_ERR: not of unit length; NaN, NULL
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when an output is NULL
 */
KL_API long kl_quaternions_to_vectors(const double q[4], double x[3], double y[3], double z[3], long *ierr);

/** Conditions of kl_vectors_to_quaternions, from api/rotations.toml. */
enum {
    KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR = 0,     /**< a null vector, or a left-handed set; NULL */
    KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR = 1, /**< not orthogonal within 1e-6; NaN */
    KL_VECTORS_TO_QUATERNIONS_N_CODES = 2
};

/**
 * Quaternion of three axis vectors (trace, or Shepperd's method).
 *
 * @param[in]  x, y, z  [3] right-handed orthogonal set, lengths from 1e-10 (a null vector has less) to 1e154;
 *                      normalised on copies
 * @param[out] q        [4] unit quaternion, scalar last
 * @param[out] ierr     [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when q is NULL
 */
KL_API long kl_vectors_to_quaternions(const double x[3], const double y[3], const double z[3], double q[4], long *ierr);

/** Conditions of kl_quaternions_interpol, from api/rotations.toml. */
enum {
    KL_QUATERNIONS_INTERPOL_RANGE_WARN = 0,    /**< t outside [t1, t2]: extrapolated */
    KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR = 1, /**< mode inside the interval, or numbers that allow no algorithm */
    KL_QUATERNIONS_INTERPOL_N_CODES = 2
};

/**
 * Quaternion at a time between two (SLERP), or beyond them by the rotation between the two.
 *
 * @param[in]     mode  KL_INTERPOL_SLERP; not looked at when t lies outside [t1, t2]
 * @param[in]     t1    time of q1, any unit
 * @param[in]     q1    [4] unit quaternion
 * @param[in]     t2    time of q2
 * @param[in,out] q2    [4] unit quaternion; ON PURPOSE NEGATED IN PLACE when it interpolates from the other half
 * @param[in]     t     time wanted
 * @param[out]    q     [4] unit quaternion
 * @param[out]    ierr  [1] error vector
 *
 * Beyond the interval the rotation from q1 to q2 goes on AS IT STANDS, without choosing the shorter way: give q2 the
 * sign for which q1 . q2 >= 0 where the shorter one is wanted. q2 = -q1 is no motion.
 * @return KL_OK, KL_WARN or KL_ERR. NaN, infinities, null quaternions, lengths with a product above 1e125 and t1 = t2
 *         with another t are KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR, as a NULL mode is where it counts; KL_ERR with a
 *         clear vector when another argument is NULL
 */
KL_API long kl_quaternions_interpol(const long *mode, const double *t1, const double q1[4], const double *t2,
                                    double q2[4], const double *t, double q[4], long *ierr);

/**
 * Matrix of three rotation angles a0, a1, a2 (about x, y and z).
 *
 * @param[in]  angles  [3] deg; angles that are not finite give a matrix of NaN
 * @param[out] matrix  [9] row by row, with s and c the sines and cosines:
 *                     c1c2+s0s1s2, c0s2, s1c2-s0c1s2 / -c1s2+s0s1c2, c0c2, -s1s2-s0c1c2 / -c0s1, s0, c0c1.
 *                     In frame rotations that is Rz(a2) Rx(-a0) Ry(-a1). Angles (0, 0, 90) give
 *                     0 1 0 / -1 0 0 / 0 0 1: the components of a fixed vector in axes turned by 90 deg about z
 * @param[out] ierr    [1] cleared; there are no conditions and the function has no public id
 * @return KL_OK (KL_ERR for NULL)
 */
KL_API long kl_euler_to_matrix(const double angles[3], double matrix[9], long *ierr);

/** Conditions of kl_matrix_to_euler, from api/rotations.toml. */
enum {
    KL_MATRIX_TO_EULER_ROTATION_ERR = 0,    /**< not a rotation within 1e-9 */
    KL_MATRIX_TO_EULER_AMBIGUITY_WARN = 1,  /**< a0 is +-90 deg (cosine below 1e-9): a2 = 0 */
    KL_MATRIX_TO_EULER_ORTHONORMAL_ERR = 2, /**< rows not orthonormal within 1e-6; NaN, NULL */
    KL_MATRIX_TO_EULER_N_CODES = 3
};

/**
 * Rotation angles of a matrix, the inverse of kl_euler_to_matrix.
 *
 * At a0 = +-90 deg only a sum or difference of the other angles is known: a2 is 0, with the warning. There the third
 * column is not read, and THE HAND IS NOT TESTED: a reflection passes with the warning, and the angles are those of
 * the rotation with the same first two columns. Where the cosine of a0 is below about 1e-6, rounding of the elements
 * exceeds the 1e-9 and good matrices may be KL_MATRIX_TO_EULER_ROTATION_ERR; kl_get_rotation_angles has no such gap.
 *
 * @param[in]  matrix  [9] row by row
 * @param[out] angles  [3] deg in (-180, 180]; on purpose 270 for a0 = -90 deg in the ambiguous case
 * @param[out] ierr    [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR; KL_ERR with a clear vector when angles is NULL
 */
KL_API long kl_matrix_to_euler(const double matrix[9], double angles[3], long *ierr);

/** Conditions of kl_get_rotation_angles, from api/rotations.toml. */
enum {
    KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR = 0, /**< a set is not orthogonal within 1e-6, or has a null vector */
    KL_GET_ROTATION_ANGLES_ROTATION_ERR = 1,   /**< the sets are of different hands */
    KL_GET_ROTATION_ANGLES_N_CODES = 2
};

/**
 * Angles of the rotation from one set of axes to another: with M = kl_euler_to_matrix(angles), M has the axes of set 2
 * as its rows, in components along set 1 (v2 = M v1).
 *
 * @param[in]  x1, y1, z1  [3] first set, orthogonal; lengths from 1e-10 to 1e154
 * @param[in]  x2, y2, z2  [3] second set
 * @param[out] angles      [3] deg, as kl_matrix_to_euler gives them, with full digits up to the lock; where the cosine
 *                         of a0 is below 1e-9, a2 is 0, without a warning
 * @param[out] ierr        [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when angles is NULL
 */
KL_API long kl_get_rotation_angles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                   const double y2[3], const double z2[3], double angles[3], long *ierr);

/** Conditions of kl_get_rotated_vectors, from api/rotations.toml. */
enum {
    KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR = 0, /**< the set is not orthogonal within 1e-6, or has a null vector */
    KL_GET_ROTATED_VECTORS_ROTATION_ERR = 1,   /**< angles that are not finite */
    KL_GET_ROTATED_VECTORS_N_CODES = 2
};

/**
 * Axes turned by three angles, the inverse of kl_get_rotation_angles.
 *
 * @param[in]  x1, y1, z1  [3] orthogonal set, lengths from 1e-10 to 1e154
 * @param[in]  angles      [3] deg
 * @param[out] x2, y2, z2  [3] unit axes of the turned set; may be those of the first
 * @param[out] ierr        [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when an output is NULL
 */
KL_API long kl_get_rotated_vectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                   double x2[3], double y2[3], double z2[3], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
