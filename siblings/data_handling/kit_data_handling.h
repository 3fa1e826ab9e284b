/**
 * @file kit_data_handling.h
 * Stand-in for the data-handling library: the generic list, the satellite configuration file, and versions.
 */
#ifndef KIT_DATA_HANDLING_H
#define KIT_DATA_HANDLING_H

#include <stddef.h>

#if defined(__GNUC__)
#define KIT_API __attribute__((visibility("default")))
#else
#define KIT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- generic list ------------------------------------------------------------------------------------ */

/** A list of elements of one size, each kept as a copy of its bytes. Not locked: that is the caller's part. */
typedef struct kd_list kd_list;
/** One entry of a list; valid until it is removed. */
typedef struct kd_list_node kd_list_node;
/** Non-zero when the elements behind both pointers are equal. */
typedef long (*kd_list_equal)(const void *element, const void *key);

/** An empty list, or NULL when there is no memory. */
KIT_API kd_list *kd_list_create(size_t element_size);
/** Appends a copy of the element at `data`: 0, or -1 (no memory, no list, no data) with the list as it was. */
KIT_API long kd_list_push_back(kd_list *list, const void *data);
/** Removes the first entry for which equal(entry, key) is non-zero: 0, or -1 when there is none. Never allocates. */
KIT_API long kd_list_remove_data(kd_list *list, const void *key, kd_list_equal equal);
/** First entry, or NULL. */
KIT_API kd_list_node *kd_list_begin(const kd_list *list);
/** Entry after this one, or NULL. */
KIT_API kd_list_node *kd_list_next(const kd_list_node *node);
/** The element of an entry. */
KIT_API void *kd_list_data(kd_list_node *node);
/** Number of entries. */
KIT_API long kd_list_size(const kd_list *list);
/** Frees a list with all entries; NULL does nothing. */
KIT_API void kd_list_delete(kd_list *list);

/* ---- satellite configuration file -------------------------------------------------------------------- */

/** One set of limits: m, deg. */
typedef struct kd_sat_tolerance {
    double a_min, a_max, e_min, e_max, i_min, i_max;
} kd_sat_tolerance;

/** What a satellite configuration file says. Texts are padded with zeros; at full width they have no terminator. */
typedef struct kd_sat_init {
    char name[30];
    char sp3_id[4];
    long catalogue_number;
    char catalogue_name[25];
    char designator[9];
    kd_sat_tolerance tolerance_l, tolerance_t;
    double a_min, a_nom, a_max; /**< semi-major axis, m */
    double i_min, i_nom, i_max; /**< inclination, deg */
    double e_nom;
    double w_nom; /**< argument of perigee, deg */
} kd_sat_init;

/**
 * Reads a satellite configuration file: one satellite, a `key = value` a line.
 *
 * `#` at the start of a line or after a blank begins a comment; empty lines do not count. A text may stand between
 * double quotes, which keep its blanks and `#`. Numbers are decimal, with a point, in metres and degrees. Lines hold
 * at most 511 characters. Every key stands exactly once, in any order:
 *
 *   name (1 to 30 characters), sp3_id (1 to 4), catalogue_number (whole number), catalogue_name (1 to 25),
 *   designator (1 to 9), tolerance_l_a_min, _a_max, _e_min, _e_max, _i_min, _i_max, the same six with tolerance_t_,
 *   a_min, a_nom, a_max, i_min, i_nom, i_max, e_nom, w_nom
 *
 * @return 0, or -1 with `data` untouched and a line on standard error for everything that is wrong:
 *         "KD_Read_sat_init_file: <file>:<line>: <what>"
 */
KIT_API long KD_Read_sat_init_file(const char *file_name, kd_sat_init *data);

/* ---- time correlation of orbit files ---------------------------------------------------------------- */

/**
 * Reads the time correlation of a file whose format has no public standard.
 *
 * @param[out] n_rows  number of rows
 * @param[out] rows    n_rows times four: TAI, UTC, UT1, GPS of one instant, MJD2000, days; allocated by malloc for the
 *                     caller, increasing
 * @return 0, or -1 with nothing written: not a file that it knows. This stand-in knows none.
 */
KIT_API long KD_Read_time_correlation(const char *file_name, long *n_rows, double **rows);

/* ---- versions ---------------------------------------------------------------------------------------- */

/** Copies the version text ("KD_VERS_" and the number, terminated) and returns its argument. */
KIT_API char *KD_Get_lib_version(char *text);

/**
 * Appends the versions of lower libraries that this one works with to a list of 100-character elements, rows
 * "KD_KF_COMPAT_<version>" padded with zeros. Returns the row that ends the table, which is not in the list.
 */
KIT_API const char *KD_Get_compatibility_table(kd_list *list);

#ifdef __cplusplus
}
#endif

#endif
