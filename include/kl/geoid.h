/**
 * @file geoid.h
 * Height of the geoid above the ellipsoid.
 */
#ifndef KL_GEOID_H
#define KL_GEOID_H

#include "kl/models.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Input of kl_geoid_calc. */
typedef struct kl_geoid_input {
    kl_model_id *model_id;
    double latitude;  /**< geodetic, deg, -90 to 90 */
    double longitude; /**< deg, 0 to 360 */
    double height;    /**< not read */
    long max_degree;  /**< 0 to 360 */
} kl_geoid_input;

/** Conditions of kl_geoid_calc, from api/geoid.toml. */
enum {
    KL_GEOID_CALC_DEGREE_ERR = 0,      /**< maximum degree outside 0 to 360 */
    KL_GEOID_CALC_LATITUDE_ERR = 1,    /**< latitude outside -90 to 90, or NaN */
    KL_GEOID_CALC_LONGITUDE_ERR = 2,   /**< longitude outside 0 to 360, or NaN */
    KL_GEOID_CALC_COMPUTATION_ERR = 3, /**< the model has no geoid (its Earth was refused), or no memory */
    KL_GEOID_CALC_N_CODES = 4
};

/**
 * Geoid undulation: height of the geoid above the WGS84 ellipsoid, from the EGM96 expansion.
 *
 * @param[in]  inputs      model id (NULL or uninitialised: the default model, for this call), geodetic latitude -90 to
 *                         90 deg, longitude 0 to 360 deg (360 is accepted and gives the value of 0), a height that is
 *                         not read, maximum degree 0 to 360 of the expansion
 * @param[out] undulation  m; not touched on an error
 * @param[out] ierr        [1] error vector, bits as below
 * @return KL_OK, or KL_ERR; KL_ERR with a clear vector when inputs or undulation is NULL
 * Conditions (bit): KL_GEOID_CALC_DEGREE_ERR 0, _LATITUDE_ERR 1, _LONGITUDE_ERR 2, _COMPUTATION_ERR 3; all errors. The
 * degree is checked first, then the latitude.
 * The correction from height anomaly to undulation and the term of degree zero, -0.53 m, are in the value. Degrees 0
 * and 1 leave these two alone. Rounding: below 1e-12 m at the 140 points and degrees of the reference; the model itself
 * is good to half a metre or a metre.
 * The same bits on every machine, C library and set of instructions; nothing is kept between calls, and
 * any number of threads may call. For many points on few parallels kl_geoid_grid is dozens of times faster.
 * Source: Lemoine et al., NASA/TP-1998-206861 (1998); Rapp, J. Geodesy 71, 282-289 (1997); the published EGM96
 * undulation program (F477).
 */
KL_API long kl_geoid_calc(const kl_geoid_input *inputs, double *undulation, long *ierr);

/**
 * Geoid undulations of a grid: as kl_geoid_calc, with the same bits in every node, the Legendre functions computed once
 * a parallel.
 *
 * @param[in]  model_id    as in kl_geoid_calc
 * @param[in]  max_degree  0 to 360
 * @param[in]  lat         [n_lat] geodetic latitudes, deg, -90 to 90, in any order
 * @param[in]  n_lat       number of parallels; 0 does nothing
 * @param[in]  lon         [n_lon] longitudes, deg, 0 to 360, in any order
 * @param[in]  n_lon       number of meridians; 0 does nothing
 * @param[out] undulation  [n_lat * n_lon] m, row by row of latitude; not touched when a check fails
 * @param[out] ierr        [1] error vector of kl_geoid_calc: decode it with KL_ID_FUNC_GEOID_CALC
 * @return KL_OK, or KL_ERR; KL_ERR with a clear vector when undulation is NULL
 * Conditions: those of kl_geoid_calc, in its order; all latitudes are checked before the longitudes. A NULL array, a
 * NULL count or a negative one is the condition of that coordinate, a NULL degree that of the degree.
 */
KL_API long kl_geoid_grid(kl_model_id *model_id, const long *max_degree, const double *lat, const long *n_lat,
                          const double *lon, const long *n_lon, double *undulation, long *ierr);

/**
 * kl_geoid_calc for n scattered points, by the rules of kl/array_rules.h. Neighbours on one parallel share what depends
 * on the latitude.
 *
 * @param[in]  model_id    as in kl_geoid_calc
 * @param[in]  n           number of points
 * @param[in]  latitude    [n] geodetic, deg, -90 to 90
 * @param[in]  longitude   [n] deg, 0 to 360
 * @param[in]  max_degree  0 to 360, one for all
 * @param[out] undulation  [n] m; NaN where the point is refused
 * @param[out] status      [n] of each point, or NULL
 * @param[out] ierr        the vectors of all points, joined
 * @return KL_OK or KL_ERR
 */
KL_API long kl_geoid_calc_n(kl_model_id *model_id, const long *n, const double *latitude, const double *longitude,
                            const long *max_degree, double *undulation, long *status, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
