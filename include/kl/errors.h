/**
 * @file errors.h
 * Error vectors, their codes and texts; versions.
 */
#ifndef KL_ERRORS_H
#define KL_ERRORS_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The error vector of a function is an array of long, one word except two for kl_time_ascii_to_ascii. Condition p of
 * the function is bit p % 32 of word p / 32; bit 30 marks a word that holds a warning, the sign bit one that holds an
 * error. Every call clears its words first, so that a vector may be used again. The first error ends a call.
 * ierr may be NULL in any function: the status alone is returned then.
 */

/** Prints no messages: the state at load. Returns 0. */
KL_API long kl_silent(void);

/** From now on every message is printed on standard error as it is recorded, those of internal functions too. Returns
 * 0. */
KL_API long kl_verbose(void);

/**
 * Condition numbers in an error vector.
 *
 * @param[in]  func_id  public function id, KL_ID_FUNC_*
 * @param[in]  ierr     [1, or 2 for kl_time_ascii_to_ascii] vector of that function
 * @param[out] n_codes  number of conditions found; left as it is on failure, so start from 0
 * @param[out] codes    [KL_MAX_CODES] their numbers, ascending: the KL_<FUNCTION>_*_ERR and _WARN constants of that
 *                      function, which are bit numbers; a bit that no condition owns is given all the same
 * @return 0, whether or not there are conditions; -1 when no function has the id (with a line on standard error) or an
 *         argument is NULL. What ended a call is its status, not this number: a vector of warnings has conditions too
 */
KL_API long kl_get_code(const long *func_id, const long *ierr, long *n_codes, long *codes);

/**
 * Message texts of an error vector. Arguments of messages are not kept in a vector: numbers read 0 here, texts are
 * empty. kl_get_last_msg has them.
 *
 * @param[in]  func_id  public function id, KL_ID_FUNC_*
 * @param[in]  ierr     vector of that function
 * @param[out] n_msg    number of messages; left as it is on failure
 * @param[out] msg      MUST HAVE ALL KL_MAX_MSG (256) SLOTS of 512 characters: every one of them is cleared
 * @return 0, or -1 with a line on standard error when no function has the id
 */
KL_API long kl_get_msg(const long *func_id, const long *ierr, long *n_msg, char msg[][512]);

/**
 * Message texts of the last call of this thread that recorded anything, with the values of their arguments: what
 * kl_verbose would have printed, first the messages of the internal functions, then those of the function called, each
 * in the order of recording. Calls without error or warning change nothing here, and neither does this one; before the
 * first failure of a thread there are no messages. It also answers for calls whose ierr was NULL.
 *
 * Of a call with more than 64 conditions the first 63 and the last are kept. Text arguments are kept as copies, 511
 * characters in all for one call; what does not fit is cut.
 *
 * @param[out] n_msg  number of messages, at most 64; left as it is on failure
 * @param[out] msg    [64] slots of 512 characters; only the first n_msg are written. KL_MAX_MSG slots always suffice
 * @return 0, or -1 when an argument is NULL
 */
KL_API long kl_get_last_msg(long *n_msg, char msg[][512]);

/**
 * Prints messages on standard error, a line each.
 *
 * @param[in] n_msg  number of messages, at most KL_MAX_MSG; below 1 prints nothing
 * @param[in] msg    the messages
 * @return 0, or -1 when there are too many or printing fails
 */
KL_API long kl_print_msg(const long *n_msg, char msg[][512]);

/**
 * Frees an array that the library allocated for the caller with malloc and sets the pointer to NULL; NULL does nothing.
 * Such arrays come from kl_star_catalog and kl_time_get_leap_seconds; those of kl_time_get_id_data are freed together,
 * with their number set to 0, by kl_time_free_id_data.
 */
KL_API void kl_free_array(void **array);

/**
 * Version of the library that runs, as KL_VERSION says it of the headers: "4.27.1". Libraries with the same first two
 * numbers fit together: kl_check_library_version compares these.
 *
 * @return a text that stays
 */
KL_API const char *kl_version(void);

/**
 * Prints the versions of the file-handling library, the data-handling library and this one on standard output, and a
 * line for each pair that does not fit together, with the versions that would.
 *
 * @return 0, or -1 when a pair does not fit (or there is no memory to find out)
 */
KL_API long kl_check_library_version(void);

#ifdef __cplusplus
}
#endif

#endif
