/**
 * @file stars.h
 * Stars: the place of one, and the stars of a catalogue in a window of the sky.
 */
#ifndef KL_STARS_H
#define KL_STARS_H

#include "kl/coordinates.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Corrections of a place; add what is wanted. */
enum {
    KL_STAR_PARALLAX = 1,   /**< the observer's place; up to 0.77 arcsec */
    KL_STAR_ABERRATION = 2, /**< the observer's velocity: the Earth's 20.8 arcsec, a low satellite's own 5.2 */
    KL_STAR_DEFLECTION = 4  /**< of light by the Sun: 1.75 arcsec at its limb, 0.004 at right angles */
};

/** A star as catalogues have it. */
typedef struct kl_star {
    double ra, dec;         /**< deg, mean equator and equinox of J2000 (ICRS within 0.023 arcsec) */
    double pm_ra, pm_dec;   /**< proper motion, mas/yr; that in right ascension times cos(dec) */
    double parallax;        /**< mas; negative ones count as 0 */
    double radial_velocity; /**< km/s, away */
    double epoch;           /**< of position and motion: MJD2000, TDB; J2000.0 is 0.5, J1991.25 is -3195.4375 */
    double magnitude;
    long number; /**< in the catalogue */
} kl_star;

/** Part of the sky and range of brightness: all of it must hold. */
typedef struct kl_star_window {
    double mag_min, mag_max;
    double ra_min, ra_max; /**< deg, -360 to 360; a minimum above the maximum goes over 0 */
    double dec_min, dec_max;
    double ra, dec, radius; /**< deg: a cone as well, when radius > 0 */
} kl_star_window;

/** Conditions of kl_star_radec, from api/stars.toml. */
enum {
    /** time reference not 0 to 3, or NULL */
    KL_STAR_RADEC_TIME_REF_ERR = 0,
    /** date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_STAR_RADEC_DATE_ERR = 1,
    /** not 0 to 7, or NULL */
    KL_STAR_RADEC_CORRECTIONS_ERR = 2,
    /** not one of the seven, or NULL */
    KL_STAR_RADEC_CS_OUT_ERR = 3,
    /** a number of the star out of its range or not finite, or NULL */
    KL_STAR_RADEC_STAR_ERR = 4,
    /** not finite, beyond 1e12 m or 3e7 m/s, or at the centre of the Sun */
    KL_STAR_RADEC_OBSERVER_ERR = 5,
    /** time id not initialised where it is needed */
    KL_STAR_RADEC_TIME_ID_ERR = 6,
    /** the frame chain failed, or the model id holds no routine (refused init) */
    KL_STAR_RADEC_TRANSFORMATION_ERR = 7,
    /** once */
    KL_STAR_RADEC_FORMULA_WARN = 8,
    /** once */
    KL_STAR_RADEC_GAP_WARN = 9,
    /** once */
    KL_STAR_RADEC_VALIDITY_WARN = 10,
    KL_STAR_RADEC_N_CODES = 11
};

/**
 * Place of a star in the sky of an observer.
 *
 * @param[in]  model_id      models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id       initialised time correlation; not needed for a time in TAI and the frames KL_BM2000,
 *                           KL_GM2000 and KL_MOD
 * @param[in]  corrections   sum of KL_STAR_PARALLAX, KL_STAR_ABERRATION and KL_STAR_DEFLECTION, 0 to 7
 * @param[in]  cs_out        axes of the place: KL_BM2000 (motion in space only, whatever the corrections), KL_GM2000,
 *                           KL_MOD, KL_TOD, KL_TEME, KL_PEF or KL_EF
 * @param[in]  time_ref      scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time          MJD2000, days, -18262.0 to 36524.0
 * @param[in]  star          ra -360 to 360, dec -90 to 90 deg; proper motions up to 1e6 mas/yr, parallax up to 1e4 mas,
 *                           velocity up to 3e5 km/s, epoch -91312.5 to 109573.5 (1750 to 2300); all finite
 * @param[in]  observer_pos  [3] m, KL_GM2000, up to 1e12 m; NULL: the centre of the Earth
 * @param[in]  observer_vel  [3] m/s, KL_GM2000, up to 3e7 m/s; NULL: that of the centre of the Earth
 * @param[out] place         a direction, deg: distance 1, rates 0
 * @param[out] ierr          [1] error vector, bits KL_STAR_RADEC_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR the place is untouched. NULL for it is KL_ERR with no bit.
 * Conditions are checked in the order of their codes. Every place has the motion in space and, but for KL_BM2000, the
 * light time across the Earth's orbit. Without a time id KL_MOD takes TAI for UT1, 2e-4 arcsec.
 * Accuracy: 1e-9 arcsec from an independent library (ERFA) with the same Earth; the Earth's velocity here adds 3e-4,
 * the frames of J2000 for ICRS 0.023, KL_TOD and what follows 0.1 arcsec today, 0.4 by 2099.
 * Sources: S. E. Urban and P. K. Seidelmann (eds), Explanatory Supplement to the Astronomical Almanac (2013), chapter
 * 7; S. A. Klioner, Astron. J. 125, 1580 (2003).
 */
KL_API long kl_star_radec(kl_model_id *model_id, kl_time_id *time_id, const long *corrections, const long *cs_out,
                          const long *time_ref, const double *time, const kl_star *star, const double observer_pos[3],
                          const double observer_vel[3], kl_radec *place, long *ierr);

/** Conditions of kl_star_catalog, from api/stars.toml. */
enum {
    /** time reference not 0 to 3, or NULL */
    KL_STAR_CATALOG_TIME_REF_ERR = 0,
    /** date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_STAR_CATALOG_DATE_ERR = 1,
    /** not 0 to 7, or NULL */
    KL_STAR_CATALOG_CORRECTIONS_ERR = 2,
    /** not one of the seven, or NULL */
    KL_STAR_CATALOG_CS_OUT_ERR = 3,
    /** no plain file, not readable, above 1 GiB, changed meanwhile */
    KL_STAR_CATALOG_FILE_ERR = 4,
    /** a line that is no record of its format, or a star out of range */
    KL_STAR_CATALOG_RECORD_ERR = 5,
    /** time id not initialised where it is needed */
    KL_STAR_CATALOG_TIME_ID_ERR = 6,
    /** the frame chain failed, or the model id holds no routine (refused init) */
    KL_STAR_CATALOG_TRANSFORMATION_ERR = 7,
    /** once */
    KL_STAR_CATALOG_FORMULA_WARN = 8,
    /** once */
    KL_STAR_CATALOG_GAP_WARN = 9,
    /** once */
    KL_STAR_CATALOG_VALIDITY_WARN = 10,
    /** its first line is of none of the three formats */
    KL_STAR_CATALOG_FORMAT_ERR = 11,
    /** a number out of its range, a minimum above its maximum, or NULL */
    KL_STAR_CATALOG_WINDOW_ERR = 12,
    /** no memory */
    KL_STAR_CATALOG_MEMORY_ERR = 13,
    KL_STAR_CATALOG_N_CODES = 14
};

/**
 * Stars of a catalogue whose places lie in a window of the sky.
 *
 * @param[in]  model_id     models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id      as in kl_star_radec
 * @param[in]  file         catalogue; NULL or empty: the built-in one
 * @param[in]  window       magnitudes any finite, ra and ra_min, ra_max -360 to 360, dec -90 to 90, radius 0 to 180
 *                          deg; edges belong to it. ra_max - ra_min of 360 is the whole circle. A radius of 0: the box
 *                          alone, and ra and dec of the cone are not looked at
 * @param[in]  corrections  as in kl_star_radec; the observer is the centre of the Earth
 * @param[in]  cs_out       as in kl_star_radec: the window is in these axes
 * @param[in]  time_ref     scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time         MJD2000, days, -18262.0 to 36524.0
 * @param[out] n_stars      [1] how many were found
 * @param[out] stars        [1] array in the order of the catalogue, for the caller to free with kl_free_array
 * @param[out] places       [1] their places, likewise; NULL: not wanted
 * @param[out] ierr         [1] error vector, bits KL_STAR_CATALOG_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR the outputs are untouched. NULL for n_stars or stars is KL_ERR with no
 * bit.
 * Nothing found is KL_OK: 0 stars, both pointers NULL. Conditions are checked in the order of their codes: the lines of
 * a file before the ids and the window.
 * Built in are the 8404 stars to V 6.5 of the Bright Star Catalogue, 5th revised edition (D. Hoffleit and W. H. Warren,
 * 1991): positions good to 1.5 arcsec. Files, told apart by their first line: that catalogue (fixed columns of its file
 * CDS V/50), the main catalogue of Hipparcos (CDS I/239, hip_main.dat), and our own: a first line "KL_STARS 1", then
 * lines of nine numbers between blanks, number, magnitude, ra, dec, pm_ra, pm_dec, parallax, radial_velocity and epoch
 * as in kl_star, with comments from # on (examples/stars.txt). Entries without a position are left out, blank fields
 * are 0.
 */
KL_API long kl_star_catalog(kl_model_id *model_id, kl_time_id *time_id, const char *file, const kl_star_window *window,
                            const long *corrections, const long *cs_out, const long *time_ref, const double *time,
                            long *n_stars, kl_star **stars, kl_radec **places, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
