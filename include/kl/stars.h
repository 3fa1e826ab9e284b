/**
 * @file stars.h
 * Stars: the place of one, and the stars of a catalogue in a window of the sky.
 */
#ifndef KL_STARS_H
#define KL_STARS_H

#include "kl/types.h"

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

#ifdef __cplusplus
}
#endif

#endif
