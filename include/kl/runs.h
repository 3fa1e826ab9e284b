/**
 * @file runs.h
 * Runs: a satellite, a time id and a model id under one number, and the functions that take it.
 */
#ifndef KL_RUNS_H
#define KL_RUNS_H

#include "kl/bodies.h"
#include "kl/clocks.h"
#include "kl/formats.h"
#include "kl/frames.h"
#include "kl/models.h"
#include "kl/satellites.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A run groups a satellite id, a time id and perhaps a model id under one number, 0 to 19, for the functions that end
 * in _run. There are 20 runs a process. The ids of a run cannot be closed before the run. Different threads may open
 * and close different runs at once; nobody may close a run that another thread is using.
 */

/** Conditions of kl_run_init, from api/runs.toml. */
enum {
    KL_RUN_INIT_NO_SLOT_ERR = 0,     /**< all 20 runs are in use */
    KL_RUN_INIT_SAT_ID_ERR = 1,      /**< invalid satellite id, or a default satellite that is not initialised */
    KL_RUN_INIT_TIME_ID_ERR = 2,     /**< time id not initialised */
    KL_RUN_INIT_MEMORY_ERR = 3,      /**< no memory */
    KL_RUN_INIT_CONSISTENCY_ERR = 4, /**< never recorded */
    KL_RUN_INIT_LOCK_ERR = 5,        /**< the run table could not be locked */
    KL_RUN_INIT_UNLOCK_ERR = 6,      /**< the run table could not be unlocked */
    KL_RUN_INIT_N_CODES = 7
};

/**
 * Opens a run: the lowest number that is free.
 *
 * @param[in]  sat_id    a valid satellite id
 * @param[in]  time_id   initialised time id; it cannot be closed before the run
 * @param[in]  model_id  model id, the same; uninitialised or NULL: a run without one, which works with default models
 * @param[out] run_id    0 to 19, or -1 on an error
 * @param[out] ierr      [1] error vector, bits as below
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when run_id is NULL
 * Conditions (bit), all errors: KL_RUN_INIT_NO_SLOT_ERR 0, _SAT_ID_ERR 1, _TIME_ID_ERR 2, _MEMORY_ERR 3, _LOCK_ERR 5,
 * _UNLOCK_ERR 6. Checked in the order: lock, free number, memory, unlock, satellite id, time id, memory.
 */
KL_API long kl_run_init(const long *sat_id, kl_time_id *time_id, kl_model_id *model_id, long *run_id, long *ierr);

/**
 * Is there such a run?
 *
 * @param[in] run_id  any number
 * @return 1 when it is an initialised run, else 0
 */
KL_API long kl_run_init_status(const long *run_id);

/**
 * Does a run have an initialised id of a kind?
 *
 * @param[in] run_id  any number
 * @param[in] kind    KL_ID_RUN (the run itself), KL_ID_TIME, KL_ID_MODEL, or 4, the first kind that higher libraries
 *                    attach; any other kind is answered with 0
 * @return 1 or 0
 */
KL_API long kl_run_id_status(const long *run_id, const long *kind);

/**
 * The ids of a run, still owned by whoever initialised them.
 *
 * @param[in]  run_id    an initialised run
 * @param[out] sat_id    its satellite id
 * @param[out] time_id   its time id
 * @param[out] model_id  its model id; uninitialised when it has none
 * @return 0, or -1 with the outputs untouched when the run is not initialised or an argument is NULL
 */
KL_API long kl_run_get_ids(const long *run_id, long *sat_id, kl_time_id *time_id, kl_model_id *model_id);

/**
 * Closes a run and lets go of its ids, which stay open. Nothing when it is not initialised.
 *
 * @param[in] run_id  the run; ids that higher libraries attached to it are not looked for
 */
KL_API void kl_run_close(const long *run_id);

#ifdef __cplusplus
}
#endif

#endif
