/**
 * @file bodies.h
 * Sun, Moon and planets in the Earth-fixed frame.
 */
#ifndef KL_BODIES_H
#define KL_BODIES_H

#include "kl/time.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Planets. */
enum {
    KL_MERCURY = 1,
    KL_VENUS = 2,
    KL_EARTH_MOON_BARYCENTRE = 3,
    KL_MARS = 4,
    KL_JUPITER = 5,
    KL_SATURN = 6,
    KL_URANUS = 7,
    KL_NEPTUNE = 8
};

/** Conditions of kl_sun, from api/bodies.toml. */
enum {
    KL_SUN_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_SUN_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_SUN_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_SUN_BODY_ERR = 3,         /**< the Sun could not be computed: the model id holds no routine (refused init) */
    KL_SUN_TDB_ERR = 4,          /**< no conversion to UT1; the text speaks of TDB */
    KL_SUN_PROC_TO_PROC_ERR = 5, /**< never recorded */
    KL_SUN_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_SUN_N_CODES = 7
};

/**
 * Position and velocity of the Sun, seen from the centre of the Earth.
 *
 * @param[in]  model_id  models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id   initialised time correlation
 * @param[in]  time_ref  scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[out] sun_pos   [3] m, Earth-fixed (KL_EF)
 * @param[out] sun_vel   [3] m/s, Earth-fixed, relative to the rotating axes
 * @param[out] ierr      [1] error vector, bits KL_SUN_*
 * @return KL_OK or KL_ERR; on KL_ERR sun_pos and sun_vel are untouched. NULL for one of them is KL_ERR with no bit.
 * An uninitialised time id is KL_SUN_TIME_ID_ERR, but KL_SUN_TDB_ERR for a time in TAI, which fails only on the way to
 * UT1. An instant outside the table of the time id gives a complete result and no condition, BUT IT SPENDS THE
 * ONCE-ONLY WARNINGS OF THE CONVERSIONS (bits 7 to 9 of kl/formats.h): the next conversion outside no longer gives
 * them. Geometric: no light time, no aberration. The astronomical unit is the rounded 1.496e11 m: lengths and
 * velocities are 1.4233e-5 of themselves too large (2129 km). The axes are KL_EF, with the pole that the time id holds.
 * Accuracy over 1950-2099, at most of an instant every 2.4 hours: 2.68" and 880 km from a full theory (ERFA's EPV00 on
 * IAU 2006/2000A axes), the unit of length apart; velocity 0.51 m/s before the axes turn, 143 m/s after, since a
 * direction turns with them.
 * Source: P. Stumpff, Astron. Astrophys. Suppl. Ser. 41, 1-8 (1980).
 */
KL_API long kl_sun(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time,
                   double sun_pos[3], double sun_vel[3], long *ierr);

/** Conditions of kl_moon, from api/bodies.toml. */
enum {
    KL_MOON_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_MOON_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_MOON_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_MOON_BODY_ERR = 3,         /**< the Moon could not be computed: the model id holds no routine (refused init) */
    KL_MOON_TDB_ERR = 4,          /**< never recorded */
    KL_MOON_PROC_TO_PROC_ERR = 5, /**< no conversion to UT1 */
    KL_MOON_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_MOON_N_CODES = 7
};

/**
 * Position and velocity of the Moon, seen from the centre of the Earth.
 *
 * @param[in]  model_id  models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id   initialised time correlation
 * @param[in]  time_ref  scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[out] moon_pos  [3] m, Earth-fixed (KL_EF)
 * @param[out] moon_vel  [3] m/s, Earth-fixed, relative to the rotating axes
 * @param[out] ierr      [1] error vector, bits KL_MOON_*
 * @return KL_OK or KL_ERR; on KL_ERR moon_pos and moon_vel are untouched. NULL for one of them is KL_ERR with no bit.
 * An uninitialised time id is KL_MOON_TIME_ID_ERR, but KL_MOON_PROC_TO_PROC_ERR for a time in TAI. Geometric: no light
 * time, no aberration. The astronomical unit is the rounded 1.496e11 m (5.5 km at the Moon). An instant outside the
 * table of the time id spends the once-only warnings of the conversions, as in kl_sun.
 * Accuracy over 1950-2099, at most of an instant every 4.8 hours: 20.8" and 45 km from a full theory (ELP 2000-82B on
 * IAU 2006/2000A axes), half the time within 3.2" and 7 km, the unit of length apart; velocity 0.33 m/s before the axes
 * turn, 3.3 m/s after.
 * Source: J. Meeus, l'Astronomie, June 1984, p. 348.
 */
KL_API long kl_moon(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time,
                    double moon_pos[3], double moon_vel[3], long *ierr);

/** Conditions of kl_planet, from api/bodies.toml. */
enum {
    KL_PLANET_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_PLANET_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_PLANET_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_PLANET_CODE_ERR = 3,         /**< planet not 1 to 8, or NULL */
    KL_PLANET_TDB_ERR = 4,          /**< never recorded */
    KL_PLANET_PROC_TO_PROC_ERR = 5, /**< no conversion to UT1 */
    KL_PLANET_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_PLANET_CONVERGENCE_WARN = 7, /**< Kepler's equation not solved; not within the range of dates */
    KL_PLANET_N_CODES = 8
};

/**
 * Position and velocity of a planet, seen from the centre of the Earth.
 *
 * @param[in]  model_id   models to use; NULL or uninitialised: the default models, for this call only
 * @param[in]  time_id    initialised time correlation
 * @param[in]  planet_id  KL_MERCURY to KL_NEPTUNE; KL_EARTH_MOON_BARYCENTRE is that point, not the Moon
 * @param[in]  time_ref   scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time       MJD2000, days, -18262.0 to 36524.0
 * @param[out] planet_pos [3] m, Earth-fixed (KL_EF)
 * @param[out] planet_vel [3] m/s, Earth-fixed, relative to the rotating axes
 * @param[out] ierr       [1] error vector, bits KL_PLANET_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR planet_pos and planet_vel are untouched. NULL for one of them, and a
 * model id without a routine for the planets (refused init), is KL_ERR with no bit. KL_WARN, which no date of the
 * range gives, may come with no bit. An uninitialised time id is KL_PLANET_TIME_ID_ERR, but KL_PLANET_PROC_TO_PROC_ERR
 * for a time in TAI. Geometric: no light time, no aberration. The astronomical unit is the rounded 1.496e11 m,
 * 1.4233e-5 too large. An instant outside the table of the time id spends the once-only warnings of the conversions, as
 * in kl_sun.
 * Accuracy: the theory's own claim for 1800-2050, heliocentric longitude, Mercury to Neptune: 4", 5", 6", 17", 71",
 * 81", 86", 11". Seen from the Earth over 1950-2099, at most of 100000 random instants, from a full theory (VSOP87
 * on IAU 2006/2000A axes), the unit of length apart; of this the Earth makes up to 8.5" (Venus) and 1950 km:
 *
 * |            | direction    | distance  | velocity before the axes turn, and after |
 * |------------|--------------|-----------|------------------------------------------|
 * | Mercury    | 5.1"         | 1550 km   | 1.7 m/s, 195 m/s                         |
 * | Venus      | 14"          | 3600 km   | 2.0 m/s, 300 m/s                         |
 * | barycentre | 4670 km away | 6300 km   | 2.2 m/s, 412 m/s                         |
 * | Mars       | 62.1"        | 19000 km  | 4.7 m/s, 1800 m/s                        |
 * | Jupiter    | 54.1"        | 90000 km  | 15.7 m/s, 12.7 km/s                      |
 * | Saturn     | 89.5"        | 192000 km | 36.8 m/s, 39.2 km/s                      |
 * | Uranus     | 91"          | 548000 km | 28 m/s, 84.8 km/s                        |
 * | Neptune    | 10.6"        | 205000 km | 21.8 m/s, 18.7 km/s                      |
 *
 * Source: J. L. Simon, P. Bretagnon, J. Chapront, M. Chapront-Touze, G. Francou, J. Laskar, Astron. Astrophys. 282, 663
 * (1994); the Earth as in kl_sun.
 */
KL_API long kl_planet(kl_model_id *model_id, kl_time_id *time_id, const long *planet_id, const long *time_ref,
                      const double *time, double planet_pos[3], double planet_vel[3], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
