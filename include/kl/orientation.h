/**
 * @file orientation.h
 * The Earth's orientation after the IERS Conventions (2010): GCRS, CIRS, TIRS, ITRS and EME2000.
 */
#ifndef KL_ORIENTATION_H
#define KL_ORIENTATION_H

#include "kl/frames.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Two ways lead from the sky to the Earth. kl_change_cart_cs goes by the family's conventional models (IAU 1976
 * precession, nine terms of nutation, GMST 1982), so that all its libraries agree with each other; it lies 1 to 6 m
 * from the true Earth at 7000 km. The functions here agree with the products of the IERS, with orbits in ITRF and GCRF,
 * to 0.3 mm and 0.3 um/s, when the time id holds the pole. Use the first beside the other libraries of the family,
 * these where states come from or go to precise orbits; never mix KL_GM2000 with KL_GCRS or KL_EF with KL_ITRS.
 *
 * Common to all three functions: a time id must be initialised, also where the frames need nothing of it. UT1, the pole
 * and its offsets dX, dY are a cubic through the four rows about the instant (straight lines for two or three rows, for
 * rows more than ten days apart and for ids of leap seconds; constant for one row), not the straight line of the
 * conversions: that alone is up to 0.06 ms, 29 mm at the equator. Before and after the rows UT1 and the pole are those
 * of the edge row, or of the bulletin's formulas where the id extrapolates, dX and dY are zero, and the call warns; so
 * it does for an id without a pole, when the frames need it. There is no public function id: the error vector is
 * cleared and gets no bit, kl_earth_orientation.notes says why a call warned.
 *
 * Sources: IERS Conventions (2010), IERS Technical Note 36, chapters 5 and 8; frame bias of IAU 2000.
 */

/** Frames. */
enum {
    KL_GCRS = 1,   /**< geocentric celestial reference system */
    KL_CIRS = 2,   /**< celestial intermediate: pole of date, origin CIO */
    KL_TIRS = 3,   /**< terrestrial intermediate: turned by the Earth rotation angle */
    KL_ITRS = 4,   /**< international terrestrial reference system: with polar motion */
    KL_EME2000 = 5 /**< mean equator and equinox of J2000.0: GCRS without the frame bias of 23 mas */
};

/** Corrections of UT1 and the pole within a day; a sum. */
enum {
    KL_EOP_OCEAN_TIDES = 1, /**< 71 terms of pole and UT1, up to 0.5 mas and 0.06 ms */
    KL_EOP_LIBRATION = 2,   /**< 10 terms of the pole, 11 of UT1, up to 0.03 mas and 0.003 ms */
    KL_EOP_ALL = 3          /**< both; 0: the values of the id as they stand */
};

/** Notes of kl_earth_orientation; a sum. */
enum {
    KL_EOP_OUTSIDE_TABLE = 1, /**< the id has no row there: its edge row or a formula */
    KL_EOP_NO_POLE = 2,       /**< the id holds no pole: zero */
    KL_EOP_BY_FORMULA = 4     /**< UT1 or the pole by the bulletin's formula */
};

/** The Earth's orientation at an instant. */
typedef struct kl_earth_orientation {
    double x_pole, y_pole; /**< arcsec, with corrections */
    double ut1_utc,
        ut1_tai;   /**< s, with corrections; inside a leap second UTC still counts with the TAI-UTC before it */
    double dx, dy; /**< arcsec: offsets of the pole that the id holds */
    double cip_x, cip_y, s; /**< arcsec: celestial intermediate pole and origin, with dx, dy */
    double s_prime;         /**< arcsec: terrestrial intermediate origin */
    double era;             /**< deg, 0 to 360: Earth rotation angle */
    long notes;             /**< sum of KL_EOP_OUTSIDE_TABLE, KL_EOP_NO_POLE, KL_EOP_BY_FORMULA */
} kl_earth_orientation;

/**
 * What the id and the theory say of the Earth's orientation.
 *
 * @param[in]  time_id      initialised time id
 * @param[in]  corrections  0 to 3: sum of KL_EOP_OCEAN_TIDES and KL_EOP_LIBRATION
 * @param[in]  time_ref     scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS. UT1 is read as that of
 *                          the id without corrections
 * @param[in]  time         MJD2000, days, -18262.0 to 36524.0
 * @param[out] out          the values; untouched on KL_ERR
 * @param[out] ierr         [1] cleared
 * @return KL_OK; KL_WARN when out->notes is not 0; KL_ERR for an uninitialised id, corrections, reference or date out
 * of range, NULL
 */
KL_API long kl_earth_orientation_get(kl_time_id *time_id, const long *corrections, const long *time_ref,
                                     const double *time, kl_earth_orientation *out, long *ierr);

/**
 * Matrix from one frame to another with its derivatives: r_out = R r_in.
 *
 * @param[in]  time_id      initialised time id
 * @param[in]  corrections  0 to 3: sum of KL_EOP_OCEAN_TIDES and KL_EOP_LIBRATION
 * @param[in]  cs_in        KL_GCRS to KL_EME2000
 * @param[in]  cs_out       KL_GCRS to KL_EME2000
 * @param[in]  time_ref     scale of time, as above
 * @param[in]  time         MJD2000, days, -18262.0 to 36524.0
 * @param[in]  calc_mode    KL_CALC_POS, KL_CALC_POS_VEL or KL_CALC_POS_VEL_ACC
 * @param[out] r            [9] rows of the matrix
 * @param[out] dr           [9] its derivative, 1/s; zero in mode 1
 * @param[out] ddr          [9] its second derivative, 1/s2, with that of the corrections; zero in modes 1 and 2
 * @param[out] ierr         [1] cleared
 * @return KL_OK; KL_WARN outside the rows of the id or without a pole, when the frames need them; KL_ERR, with the
 *         outputs untouched, as above and for frames and modes out of range
 */
KL_API long kl_iers_matrix(kl_time_id *time_id, const long *corrections, const long *cs_in, const long *cs_out,
                           const long *time_ref, const double *time, const long *calc_mode, double r[9], double dr[9],
                           double ddr[9], long *ierr);

/**
 * Carries a state from one frame to another.
 *
 * @param[in]  time_id      initialised time id
 * @param[in]  corrections  0 to 3: sum of KL_EOP_OCEAN_TIDES and KL_EOP_LIBRATION
 * @param[in]  calc_mode    KL_CALC_POS, KL_CALC_POS_VEL or KL_CALC_POS_VEL_ACC; outputs above it are zero
 * @param[in]  cs_in        KL_GCRS to KL_EME2000
 * @param[in]  cs_out       KL_GCRS to KL_EME2000
 * @param[in]  time_ref     scale of time, as above
 * @param[in]  time         MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos          [3] m
 * @param[in]  vel          [3] m/s; not read, and may be NULL, in mode 1
 * @param[in]  acc          [3] m/s2; not read, and may be NULL, in modes 1 and 2
 * @param[out] pos_out      [3] m; may be pos
 * @param[out] vel_out      [3] m/s, the derivative in the output frame; may be vel
 * @param[out] acc_out      [3] m/s2; may be acc
 * @param[out] ierr         [1] cleared
 * @return as kl_iers_matrix. NaN in a state goes through it
 *
 * 0.3 mm and 0.3 um/s at 7000 km from the full series, 1950 to 2099.
 */
KL_API long kl_iers_change(kl_time_id *time_id, const long *corrections, const long *calc_mode, const long *cs_in,
                           const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                           const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                           double acc_out[3], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
