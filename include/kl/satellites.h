/**
 * @file satellites.h
 * Satellite ids and what is known of a satellite.
 */
#ifndef KL_SATELLITES_H
#define KL_SATELLITES_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Satellite ids: 0 to 9 default satellites, filled at run time; 11, 12, 21, 31, 32, 33, 41, 51, 61, 71, 81, 91, 101 to
 * 103, 110 to 113, 120 and 125 to 154 the fixed missions; 200 a generic low orbit; 300 a generic geostationary one, 301
 * a geostationary mission; from 400 on every id whose remainder modulo 400 is below 100 the generic medium Earth orbit.
 * Every other id is invalid. The tables behind them are process-wide: only the reservation of a default satellite is
 * locked, so nobody may use a satellite while another thread fills or closes it.
 */

/** Conditions of kl_default_sat_init, from api/satellites.toml. */
enum {
    KL_DEFAULT_SAT_INIT_NO_SLOT_ERR = 0, /**< all ten default satellites are in use */
    KL_DEFAULT_SAT_INIT_FILE_ERR = 1,    /**< the file is missing or wrong; its reader says where on standard error */
    KL_DEFAULT_SAT_INIT_LOCK_ERR = 2,    /**< the table could not be locked */
    KL_DEFAULT_SAT_INIT_UNLOCK_ERR = 3,  /**< never recorded */
    KL_DEFAULT_SAT_INIT_N_CODES = 4
};

/**
 * Takes the lowest free default satellite and fills it from a satellite configuration file.
 *
 * @param[out] sat_id     0 to 9, also when the file then fails: that slot is in use, its data are what they were, and
 *                        kl_default_sat_close frees it; left as it is when no slot was taken
 * @param[in]  file_name  path; "" takes the slot with an empty name, SP3 identifier and envelope (all zero)
 * @param[out] ierr       [1] error vector, decoded with KL_ID_FUNC_DEFAULT_SAT_INIT; bits as below
 * @return KL_OK, or KL_ERR; KL_ERR with a clear vector when sat_id is NULL, or when the table could not be unlocked (a
 *         line on standard output says so)
 * Conditions (bit), all errors: KL_DEFAULT_SAT_INIT_NO_SLOT_ERR 0, _FILE_ERR 1 (also a NULL name, which takes no
 * slot), _LOCK_ERR 2.
 * The file: `key = value` lines with `#` comments, one satellite a file, every key once; lengths in m, angles in deg.
 * examples/satellite.cfg lists and explains the keys. Nothing of a file with a mistake is taken over.
 */
KL_API long kl_default_sat_init(long *sat_id, const char *file_name, long *ierr);

/**
 * Frees a default satellite: clears its name, SP3 identifier, envelope and catalogue data; its limits stay.
 *
 * @param[in] sat_id  0 to 9, in use or not
 * @return the id, or -1 when it is not 0 to 9 or NULL
 * Takes no lock.
 */
KL_API long kl_default_sat_close(const long *sat_id);

/**
 * Replaces the catalogue data of a satellite that is not a default one.
 *
 * @param[in] sat_id            a valid id from 11 on
 * @param[in] catalogue_number  number of the two-line elements
 * @param[in] name              catalogue name; at most 25 characters are taken
 * @param[in] designator        international designator; at most 9 characters are taken
 * @return 0, or -1 with nothing changed: an invalid id, a default satellite, or NULL
 * All ids of medium Earth orbit share one row.
 */
KL_API long kl_set_tle_sat_data(const long *sat_id, const long *catalogue_number, const char *name,
                                const char *designator);

/**
 * Replaces the SP3 identifier of a satellite.
 *
 * @param[in] sat_id      a valid id, a default satellite in use included
 * @param[in] identifier  at most 4 characters are taken
 * @return 0, or -1 with nothing changed: an invalid id, a free default satellite, or NULL
 */
KL_API long kl_set_sp3_sat_data(long sat_id, const char *identifier);

#ifdef __cplusplus
}
#endif

#endif
