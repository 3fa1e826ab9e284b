/**
 * @file models.h
 * Model ids: which Earth, which theories of the sky.
 */
#ifndef KL_MODELS_H
#define KL_MODELS_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Modes of kl_model_init. */
enum { KL_MODEL_DEFAULT = 0, KL_MODEL_USER = 1 };

/** Kinds of model: indices of the selection array of kl_model_init. */
enum {
    KL_MODEL_EARTH = 0,
    KL_MODEL_SUN = 1,
    KL_MODEL_MOON = 2,
    KL_MODEL_PLANET = 3,
    KL_MODEL_STAR = 4,
    KL_MODEL_NUTATION = 5,
    KL_MODEL_PRECESSION = 6,
    KL_MODEL_CONSTANTS = 7,
    KL_MODEL_LIGHT_PROPAGATION = 8
};

/** Selections and constants of a model id. */
typedef struct kl_model_data {
    long earth, sun, moon, planet, star, nutation, precession, constants, light_propagation;
    double gravity_radius; /**< m */
    double gm;             /**< m3/s2 */
    double j2, j3, j4;
    double semi_major_axis, semi_minor_axis; /**< m */
    double eccentricity, flattening;
    double angle_0, angle_1, angle_2;             /**< sidereal angle: deg, deg/day, deg/day2 */
    double angle_sim_0, angle_sim_1, angle_sim_2; /**< the second set, rounded */
    double astronomical_unit;                     /**< km; the ephemerides have a rounded one of their own */
} kl_model_data;

/** Conditions of kl_model_init, from api/models.toml. */
enum {
    KL_MODEL_INIT_INITIALISED_ERR = 0, /**< the handle is already initialised */
    KL_MODEL_INIT_MEMORY_ERR = 1,
    KL_MODEL_INIT_SELECTION_ERR = 2, /**< a selection not offered, or none given; the text shows a bare "%s" */
    KL_MODEL_INIT_N_CODES = 3
};

/**
 * Selects the models of the Earth and the sky. The record does not change afterwards and may be read by any thread.
 *
 * @param[in]     mode      KL_MODEL_DEFAULT (all selections 0; so does any number but 1) or KL_MODEL_USER
 * @param[in]     models    [9] selections in the order of KL_MODEL_EARTH ... with KL_MODEL_USER: 0, and for the Sun 0
 *                          or 1, for light propagation 0, 1 or 2; not read (may be NULL) in the default mode. The Sun
 *                          of 1 is the Sun of 0; the light propagation is recorded for other libraries of the family
 *                          and changes nothing in this one
 * @param[in,out] model_id  handle, not initialised
 * @param[out]    ierr      [1] error vector
 * @return KL_OK or KL_ERR. After a refused selection (bit 2) the handle is initialised all the same, with the blocks
 *         before the refused one filled and the others zero: close it. NULL for models with KL_MODEL_USER is bit 2 too,
 *         but leaves the handle as it was; NULL for mode or model_id is KL_ERR with no bit.
 */
KL_API long kl_model_init(const long *mode, const long models[9], kl_model_id *model_id, long *ierr);

/** 1 when the model id is initialised, else 0 (also for NULL). */
KL_API long kl_model_init_status(kl_model_id *model_id);

/**
 * Selections and constants of a model id; those of the default models for an uninitialised one, which stays so.
 *
 * @param[in]  model_id  handle, or NULL
 * @param[out] data      25 numbers, units in kl_model_data
 * @return 0, or -1 when data is NULL
 */
KL_API long kl_model_get_data(kl_model_id *model_id, kl_model_data *data);

/** Conditions of kl_model_close, from api/models.toml. */
enum {
    KL_MODEL_CLOSE_ID_ERR = 0, /**< not initialised, or in use by another id or object */
    KL_MODEL_CLOSE_N_CODES = 1
};

/**
 * Frees a model id and resets its handle.
 *
 * @param[in,out] model_id  handle
 * @param[out]    ierr      [1] error vector
 * @return KL_OK, or KL_ERR with nothing changed, except after a lock that cannot be released: see kl_time_close, also
 *         for what threads may do
 */
KL_API long kl_model_close(kl_model_id *model_id, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
