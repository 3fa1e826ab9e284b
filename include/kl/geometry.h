/**
 * @file geometry.h
 * Lines of sight, real roots, and how much of the Sun the Earth hides.
 */
#ifndef KL_GEOMETRY_H
#define KL_GEOMETRY_H

#include "kl/coordinates.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Where a satellite stands in the shadow of the Earth. */
enum {
    KL_SUNLIGHT = 0,
    KL_PENUMBRA = 1, /**< part of the Sun is hidden */
    KL_UMBRA = 2,    /**< all of it */
    KL_ANNULAR = 3   /**< the Earth stands before the Sun and is smaller: beyond 1.38e9 m */
};

/**
 * Distinct real roots of a polynomial of order 1 to 4.
 *
 * @param[in]  order    1 to 4
 * @param[in]  c        [order + 1] c[0] + c[1] x + ... + c[order] x^order; leading zeros lower the order
 * @param[out] roots    [4] ascending; only as many are written as there are
 * @param[out] n_roots  [1] how many there are, 0 to 4
 * @param[out] ierr     [1] always 0: this function has no id
 * @return KL_OK, or KL_ERR for another order, a coefficient that is not finite, all but c[0] zero, or NULL
 * A multiple root is given once; from order 3 on roots so close that rounding the coefficients could make them one are
 * one (a double root needs a gap of some 1e-8 of itself to be two, a quadruple one 1e-4). Any size of coefficients; a
 * root outside the range of double comes out as 0 or infinite. Accuracy: 2.4 units at most of what rounding the
 * coefficients alone does to a root. No closed formulas above order 2, which lose half the digits beside multiple
 * roots: the roots of the derivative cut the line, each piece is searched.
 */
KL_API long kl_poly_real_roots(const long *order, const double *c, double roots[4], long *n_roots, long *ierr);

/**
 * Where a line of sight meets the ellipsoid.
 *
 * @param[in]  model_id  models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  pos       [3] m, in axes whose z is the Earth's: KL_EF, KL_PEF, KL_TOD, KL_TEME
 * @param[in]  dir       [3] direction, of any length but 0
 * @param[in]  margin    m, raises the ellipsoid: semi-axes a + margin and (a + margin) b/a
 * @param[out] t         [2] m along the unit direction, ascending, negative behind; NaN beyond the number of points
 * @param[out] n_points  [1] 0, 1 (a tangent, or so near one that rounding decides) or 2; from inside one is behind
 * @param[out] ierr      [1] always 0: this function has no id
 * @return KL_OK, or KL_ERR for input that is not finite, no direction, a + margin not positive, or NULL
 * Accuracy: the points lie within the spacing of the coordinates of the ellipsoid, 5e-7 m from 1e9 m away.
 */
KL_API long kl_ray_ellipsoid(kl_model_id *model_id, const double pos[3], const double dir[3], const double *margin,
                             double t[2], long *n_points, long *ierr);

/**
 * Where a line of sight has a geodetic height.
 *
 * @param[in]  model_id  models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  pos       [3] m, in axes whose z is the Earth's
 * @param[in]  dir       [3] direction, of any length but 0
 * @param[in]  height    m, -1e5 to 1e9
 * @param[out] t         [2] m along the unit direction, ascending, negative behind; NaN beyond the number of points
 * @param[out] n_points  [1] 0 to 2
 * @param[out] ierr      [1] always 0: this function has no id
 * @return KL_OK, or KL_ERR for input that is not finite or out of range, no direction, or NULL
 * A surface of constant height is no ellipsoid: kl_ray_ellipsoid with the height as its margin is up to 500 m off at
 * 150 km, an ellipsoid with both axes raised 0.21 m. Accuracy: 7e-9 m of height.
 */
KL_API long kl_ray_height(kl_model_id *model_id, const double pos[3], const double dir[3], const double *height,
                          double t[2], long *n_points, long *ierr);

/**
 * The point of a line of sight where the geodetic height is smallest.
 *
 * @param[in]  model_id     models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  pos          [3] m, in axes whose z is the Earth's
 * @param[in]  dir          [3] direction, of any length but 0
 * @param[out] t            [1] m along the unit direction, negative behind
 * @param[out] point        [3] m, in the axes of pos
 * @param[out] geodetic     its coordinates, deg and m; longitudes from the x axis of pos; rates 0
 * @param[out] meets_earth  [1] 1 when the height is negative, so that the line meets the Earth, else 0
 * @param[out] ierr         [1] always 0: this function has no id
 * @return KL_OK, or KL_ERR for input that is not finite, no direction, NULL, and for lines that come within 1e5 m of
 *         the centre of the Earth, where there is no single lowest point
 * Accuracy: height 5e-9 m, place along the line 2e-8 m.
 */
KL_API long kl_ray_tangent(kl_model_id *model_id, const double pos[3], const double dir[3], double *t, double point[3],
                           kl_geodetic *geodetic, long *meets_earth, long *ierr);

/** Conditions of kl_eclipse, from api/geometry.toml. */
enum {
    /** not finite, inside the ellipsoid with margin, beyond 1e10 m, or NULL */
    KL_ECLIPSE_POSITION_ERR = 0,
    /** KL_Eclipse: not finite, nearer than 1e11 m, or NULL */
    KL_ECLIPSE_SUN_ERR = 1,
    /** outside -1e4 to 2e5 m */
    KL_ECLIPSE_MARGIN_ERR = 2,
    /** time reference not 0 to 3, or NULL */
    KL_ECLIPSE_TIME_REF_ERR = 3,
    /** date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_ECLIPSE_DATE_ERR = 4,
    /** not one of the nine, or NULL */
    KL_ECLIPSE_CS_ERR = 5,
    /** time id not initialised */
    KL_ECLIPSE_TIME_ID_ERR = 6,
    /** the Sun or the frame chain failed, or the model id holds no routine (refused init) */
    KL_ECLIPSE_TRANSFORMATION_ERR = 7,
    /** once */
    KL_ECLIPSE_FORMULA_WARN = 8,
    /** once */
    KL_ECLIPSE_GAP_WARN = 9,
    /** once */
    KL_ECLIPSE_VALIDITY_WARN = 10,
    KL_ECLIPSE_N_CODES = 11
};

/**
 * How much of the Sun the Earth hides from a satellite.
 *
 * @param[in]  model_id    models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id     initialised time correlation
 * @param[in]  light_time  1: the Sun as its light shows it, 20.5 arcsec from where it is (0.1 s of penumbra); any other
 *                         value: where it is
 * @param[in]  cs          frame of the position: KL_BM2000 to KL_EF, KL_BM1950 or KL_TEME
 * @param[in]  time_ref    scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time        MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos         [3] m, outside the ellipsoid and within 1e10 m of the centre of the Earth
 * @param[in]  margin      m, raises the ellipsoid for the opaque atmosphere, -1e4 to 2e5; NULL: 0
 * @param[out] state       [1] KL_SUNLIGHT, KL_PENUMBRA, KL_UMBRA or KL_ANNULAR
 * @param[out] fraction    [1] visible part of the Sun's disc, 0 to 1
 * @param[out] depth       [1] angle from the Sun's centre to the limb of the Earth, in radii of the Sun, negative when
 *                         the centre is covered: smooth in time, through 1 at the edge of the sunlight, 0, and -1 at
 *                         that of the umbra, for finding entry and exit
 * @param[out] ierr        [1] error vector, bits KL_ECLIPSE_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR the outputs are untouched. NULL for light_time or an output is KL_ERR
 * with no bit. Checked in the order of the arguments: cs, time_ref, time, pos, margin; then what needs the ids, a
 * position inside the ellipsoid among it, and one too far in frames centred elsewhere. The limb is that of the
 * flattened Earth, exactly; a spherical one is wrong by up to 0.9 of the disc. Accuracy: fraction 3e-5 of the disc up
 * to the geostationary orbit, 2e-4 at the distance of the Moon, 3e-3 beyond 1e9 m, where the Earth's disc is visibly an
 * ellipse. No refraction, no limb darkening, no Moon. Radius of the Sun 695700 km (IAU 2015 resolution B3).
 */
KL_API long kl_eclipse(kl_model_id *model_id, kl_time_id *time_id, const long *light_time, const long *cs,
                       const long *time_ref, const double *time, const double pos[3], const double *margin, long *state,
                       double *fraction, double *depth, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
