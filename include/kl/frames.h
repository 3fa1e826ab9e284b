/**
 * @file frames.h
 * Reference frames and the change from one to another.
 */
#ifndef KL_FRAMES_H
#define KL_FRAMES_H

#include "kl/time.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Reference frames. */
enum {
    KL_BM2000 = 1, /**< barycentric, mean equator and equinox of J2000 */
    KL_HM2000 = 2, /**< heliocentric, mean equator and equinox of J2000 */
    KL_GM2000 = 3, /**< geocentric, mean equator and equinox of J2000 */
    KL_MOD = 4,    /**< geocentric, mean equator and equinox of date */
    KL_TOD = 5,    /**< geocentric, true equator and equinox of date */
    KL_PEF = 6,    /**< pseudo Earth-fixed: before polar motion; the same as KL_EF while the time id holds no pole */
    KL_EF = 7,     /**< Earth-fixed */
    KL_LIF = 8,    /**< launch inertial frame */
    KL_BM1950 = 9, /**< barycentric, mean equator and equinox of B1950 (FK4, without E-terms) */
    KL_GALACTIC = 10,
    KL_TEME = 11 /**< true equator, mean equinox of date */
};

/** Calculation modes of a state. */
enum { KL_CALC_POS = 1, KL_CALC_POS_VEL = 2, KL_CALC_POS_VEL_ACC = 3 };

/** Conditions of kl_change_cart_cs, from api/frames.toml. */
enum {
    /** time reference not 0 to 3, or NULL */
    KL_CHANGE_CART_CS_TIME_REF_ERR = 0,
    /** date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_CHANGE_CART_CS_DATE_ERR = 1,
    /** mode not 1 to 3, or NULL */
    KL_CHANGE_CART_CS_CALC_MODE_ERR = 2,
    /** frame not 1 to 11, or NULL */
    KL_CHANGE_CART_CS_CS_IN_ERR = 3,
    /** frame not 1 to 11, or NULL */
    KL_CHANGE_CART_CS_CS_OUT_ERR = 4,
    /** the time cannot be brought to UT1 */
    KL_CHANGE_CART_CS_TIME_ID_ERR = 5,
    /** once, when a call leaves the table for the UT1-UTC formula */
    KL_CHANGE_CART_CS_FORMULA_WARN = 6,
    /** once, when a call enters the gap between two bulletins */
    KL_CHANGE_CART_CS_GAP_WARN = 7,
    /** once, when a call leaves the validity of the table */
    KL_CHANGE_CART_CS_VALIDITY_WARN = 8,
    /** the time cannot be brought to TAI; the outputs are written by then */
    KL_CHANGE_CART_CS_TAI_ERR = 9,
    /** a model id without the routine, or no way to TDB */
    KL_CHANGE_CART_CS_TRANSFORMATION_ERR = 10,
    /** KL_LIF: no time id of this library holds its reference */
    KL_CHANGE_CART_CS_LIF_ERR = 11,
    KL_CHANGE_CART_CS_N_CODES = 12
};

/**
 * Carries a position, velocity and acceleration from one reference frame to another.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  time_id    initialised time correlation
 * @param[in]  calc_mode  KL_CALC_POS, KL_CALC_POS_VEL or KL_CALC_POS_VEL_ACC: outputs above the mode are zero
 * @param[in]  cs_in      frame of the input, KL_BM2000 to KL_TEME
 * @param[in]  cs_out     frame of the output
 * @param[in]  time_ref   scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time       MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos        [3] m
 * @param[in]  vel        [3] m/s; read in every mode
 * @param[in]  acc        [3] m/s2; read in every mode
 * @param[out] pos_out    [3] m; may be pos
 * @param[out] vel_out    [3] m/s, the derivative in the output frame; may be vel
 * @param[out] acc_out    [3] m/s2; may be acc. Between barycentric, heliocentric and geocentric frames the acceleration
 *                        of the origin is taken as zero
 * @param[out] ierr       [1] error vector, bits KL_CHANGE_CART_CS_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR the outputs are untouched, except with KL_CHANGE_CART_CS_TAI_ERR. NULL
 * for one of the six vectors is KL_ERR with no bit.
 *
 * An uninitialised time id is KL_CHANGE_CART_CS_TIME_ID_ERR, but for a time in UT1, which fails only on the way to TDB
 * (KL_CHANGE_CART_CS_TRANSFORMATION_ERR) or to TAI (KL_CHANGE_CART_CS_TAI_ERR); equal frames ask for the time id too.
 * The warnings of the chain behind (true of date, acceleration of the origin) have no bit and leave KL_OK: they are
 * lines of the verbose mode. KL_LIF to KL_LIF copies. An instant outside the table of the time id, whatever it warns of
 * itself, ALSO SPENDS THE ONCE-ONLY WARNINGS OF THE CONVERSIONS (bits 7 to 9 of kl/formats.h).
 *
 * KL_EF has the polar motion of the time id; those of kl_time_id_init and of files with UT1 hold one. WITH AN ID THAT
 * HOLDS NO POLE (explicit values, leap seconds alone) it equals KL_PEF, up to 15 m on the ground from the true axes.
 *
 * Galactic frames carry positions only: velocity and acceleration come out as zero. BM1950 is without E-terms.
 * Precession IAU 1976, nine terms of nutation, GMST 1982; UT1 serves for TT there. Either way between two frames, at
 * most of 130000 random instants of 1950-2099, at 7000 km and 8 km/s, zero pole and the UT1 of the time id, from the
 * full IAU 1976/1980/1982 theory and from IAU 2006/2000A (EF as PEF):
 *
 * |                | 1976/1980/1982: m, mm/s | 2006/2000A: m, mm/s |
 * |----------------|-------------------------|---------------------|
 * | GM2000 and MOD | 0.0062, 0.07            | 10.3, 12            |
 * | GM2000, TOD    | 3.7, 4.2                | 13.4, 15            |
 * | GM2000, TEME   | 1.44, 1.7               | 10.8, 12.3          |
 * | GM2000, PEF    | 1.44, 1.7               | 6.1, 7.0            |
 * | MOD, TOD       | 3.7, 4.2                | 3.8, 4.3            |
 * | MOD, TEME      | 1.44, 1.7               | 1.5, 1.7            |
 * | MOD, PEF       | 1.44, 1.7               | 9.1, 11             |
 * | TOD, TEME      | 3.3, 3.8                | 3.4, 4.0            |
 * | TOD, PEF       | 3.3, 3.8                | 12, 14              |
 * | TEME, PEF      | 0.009, 0.01             | 9.1, 11             |
 *
 * Between these and the frames elsewhere, from ERFA's EPV00 and star routines: HM2000 3230 km and 0.91 m/s, BM2000 and
 * BM1950 12600 km and 1.02 m/s, GALACTIC 12800 km; HM2000 and BM2000 or BM1950 10500 km and 0.2 m/s, HM2000 and
 * GALACTIC 10500 km. The unit of length, 1.496e11 m, makes 2129 km and 0.43 m/s of them. Directions: BM2000 and BM1950
 * 0.022", BM2000 and GALACTIC 0.52", BM1950 and GALACTIC 0.76" (a fixed matrix, while FK4 turns).
 */
KL_API long kl_change_cart_cs(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs_in,
                              const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                              const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                              double acc_out[3], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
