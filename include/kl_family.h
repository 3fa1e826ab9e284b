/**
 * @file kl_family.h
 * What the higher libraries of the family call across the library boundary: the error frame, id records,
 * time, frame chain, bodies, kernels, satellite and run internals. Plain C, like kl_lib.h.
 *
 * Internal functions return 0 or -1 (a few the severity of the last recorded code) and keep their conditions in
 * the caller's kl_error_record, the last argument, which may be NULL. They clear it before they start.
 */
#ifndef KL_FAMILY_H
#define KL_FAMILY_H

#include "kl_lib.h"

#include <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- records ------------------------------------------------------------------------------------------- */

/** Conditions of one activation of a function. */
typedef struct kl_error_record {
    int32_t function_id; /**< -1 when reset */
    int32_t count;
    int32_t codes[256];
    int64_t values[256]; /**< argument of each: a long, the bits of a double, or a text pointer */
    int32_t overflow;    /**< 1 once the "too many" line was printed */
} kl_error_record;

/** What a public activation reports to. */
typedef struct kl_error_context {
    int32_t function_id;
    kl_error_record *record;
    long *ierr;
} kl_error_context;

/** Head of every id record. */
typedef struct kl_id_record {
    int32_t kind;        /**< KL_ID_TIME, KL_ID_MODEL, ...; 0 once closed */
    int32_t init_status; /**< 1 initialised, 0 closed */
    long sat_id;
    void *users; /**< list of the records built on this one */
    void *uses;  /**< list of the records this one is built on */
    long instances;
    pthread_mutex_t *mutex;
    long mode;
} kl_id_record;

/** An instant inside: reference 1 TDB, 3 TAI, 4 UT1, 5 UTC, 6 GPS; format 1 Julian day, 2 days since 1950, 3 MJD2000.
 */
typedef struct kl_time_record {
    int32_t reference, format;
    double value;
} kl_time_record;

/** Standard transport record: integer MJD2000 day, second of the day, microsecond of the second. */
typedef struct kl_std_record {
    long days, seconds, microseconds;
} kl_std_record;

/** Calendar date: seconds of the day. */
typedef struct kl_calendar_record {
    long reference, year, month, day, seconds, microseconds;
} kl_calendar_record;

typedef struct kl_complex {
    double re, im;
} kl_complex;

/** State with derivatives; one-based 3-vectors: m, m/s, m/s2. */
typedef struct Cord {
    int32_t cs;    /**< frame */
    int32_t order; /**< 0 position, 1 with velocity, 2 with acceleration */
    double *pos, *vel, *acc;
} Cord;

/** Rotation between two frames: one-based 3x3 matrices, per s and per s2. */
typedef struct kl_rotation_record {
    int32_t order, dimension;
    double **r, **dr, **ddr;
} kl_rotation_record;

/* ---- error frame --------------------------------------------------------------------------------------- */

/** Fills the context, resets the record and clears the first n_words words of ierr (none when ierr is NULL). */
KL_API void KL_Init_err_data(long function_id, kl_error_record *record, long *ierr, long n_words,
                             kl_error_context *context);
/** Empties a record; its arrays stay as they are. */
KL_API void KL_Reset_Err(kl_error_record *record);
/** Records one code; 0, or -1 when the id, the record or the code does not fit. `value` as the code's argument kind. */
KL_API long KL_Put_Err(long function_id, long code, const void *value, kl_error_record *record);
/** found = 1 when the record holds the code, else 0; -1 as KL_Put_Err. */
KL_API long KL_Check_Err(long function_id, long code, const kl_error_record *record, long *found);
/** Records the code for the context's function and rewrites its vector; returns the severity, 1 or -1. */
KL_API long KL_Store_function_error(kl_error_context *context, long code, const void *value);
/** 1 when the internal id is that of a public function. */
KL_API long KL_Check_if_public_function(long function_id);
/** Adds the bits of all recorded codes to the vector. */
KL_API long KL_Err_Vector(long function_id, const kl_error_record *record, long *ierr);
/** Rebuilds a record (codes only) from the vector of a public function. */
KL_API long KL_Vector_Err(long public_id, const long *ierr, kl_error_record *record);
/** Formats every recorded code. MESSAGES MUST HAVE ALL 256 SLOTS: every one of them is cleared. */
KL_API long KL_Err_Msg(const kl_error_record *record, long *n_msg, char messages[][512]);
/** Bit of a word. */
KL_API long KL_Check_Bit(long word, long bit);
/** Sets (value 1) or clears a bit; returns what it was. */
KL_API long KL_Write_Bit(long *word, long bit, long value);
/** found = 1 when kl_get_code of the vector contains the public code. */
KL_API long KL_Check_Error_Code(long public_id, long public_code, const long *ierr, long *found);
/** status = -1, 1 or 0 of a vector: errors before warnings. */
KL_API long KL_Check_Extended_Error_Code(long public_id, const long *ierr, long *status);
/** Writes the text and a newline to standard error. */
KL_API long KL_Print_Err_Msg(const char *text);

/* ---- id records ---------------------------------------------------------------------------------------- */

/* ---- version ------------------------------------------------------------------------------------------- */

/* ---- satellites ---------------------------------------------------------------------------------------- */

/* ---- runs ---------------------------------------------------------------------------------------------- */

/* ---- time: references, calendar, standard record ------------------------------------------------------- */

KL_API long KL_MJD_Calendar(const kl_time_record *in, kl_calendar_record *out, kl_error_record *error);
KL_API long KL_Calendar(const kl_calendar_record *in, int *valid, kl_error_record *error);
KL_API long KL_Calendar_MJD(const kl_calendar_record *in, kl_time_record *out, kl_error_record *error);
KL_API double KL_MJD_to_Julian(double mjd2000);
KL_API double KL_round(double x);
KL_API long KL_Time_ref_enum_to_Time_enum(long ref);
KL_API long KL_Time_enum_to_Time_ref_enum(int ref);
KL_API long KL_Check_time_ref(const long *ref, kl_error_record *error);
KL_API long KL_Check_time_ref_2(long ref);
KL_API long KL_Time_check_processing_inputs(long format, long ref, const double *time, kl_error_record *error);
KL_API long KL_Time_check_processing_outputs(long format, long ref, kl_error_record *error);
KL_API long KL_Time_p2t_format_to_std(kl_time_id *time_id, long ref, const double *time, kl_std_record *out,
                                      kl_error_record *error);
KL_API long KL_Time_t2p_format_from_std(const kl_std_record *in, double *out);
KL_API long KL_Time_current_time(const long *ascii_format, char *out, kl_error_record *error);

/* ---- time: correlation, leap seconds ------------------------------------------------------------------- */

KL_API long KL_Get_time_in_ref(kl_time_id *time_id, long ref_in, long ref_out, double *time_out, kl_error_record *error,
                               double time_in);
KL_API long KL_Time_t2t_ref_to_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                                   kl_error_record *error);
KL_API long KL_Time_t2t_ref_from_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                                     kl_error_record *error);
KL_API long KL_Time_ref_init_file_deltas(kl_time_id *time_id, const double *time, const long *ref, double *tai_utc,
                                         double *tai_ut1, double *tai_gps, long *in_leap_second,
                                         long *after_leap_second, kl_error_record *error);
/** Row of the table around a time; column 0 TAI, 1 UTC, 2 UT1, 3 GPS. */
KL_API long KL_binary_search(const kl_time_row *table, long first, long last, long column, const double *time);
KL_API long KL_Check_Time_warn_flags(kl_time_id *time_id, const kl_std_record *tai, const long *selector,
                                     long *warning);
KL_API long KL_Time_p2p_ref_tai_to_tdb(const double *tai, double *tdb);
KL_API long KL_Time_p2p_ref_tdb_to_tai(const double *tdb, double *tai);
KL_API long KL_Leap_second_utc_time(const long *ref, const double *time, double *quarter_start, kl_error_record *error);
KL_API long KL_Time_check_leap_second(kl_time_id *time_id, long ref, const kl_std_record *rec, long *leap_flag,
                                      kl_error_record *error);
KL_API long KL_Check_if_time_is_post_leap_second(kl_time_id *time_id, long ref, long row, long *in_leap_second,
                                                 long *after_leap_second, double first, double last, double time);
KL_API long KL_Time_ref_init_check_inputs(const double tri_time[4], kl_error_record *error);

/* ---- time: on-board clocks ----------------------------------------------------------------------------- */

/* ---- models -------------------------------------------------------------------------------------------- */

/** Block of a kind of model (-1 or 0 Earth, 1 to 8 the others); an uninitialised id is initialised and stays so. */
KL_API void *KL_Model_get_data(kl_model_id *model_id, long kind);

/* ---- geoid --------------------------------------------------------------------------------------------- */

/* ---- frame chain --------------------------------------------------------------------------------------- */

/** Carries a state between any two frames; order 0 to 2. 0, 1 when something was warned of, or -1. */
KL_API long KL_Change_CoordinateSystem(kl_model_id *model_id, kl_time_id *time_id, long order,
                                       const kl_time_record *date, const Cord *in, long final_cs, Cord *out,
                                       kl_error_record *error);

/* ---- bodies -------------------------------------------------------------------------------------------- */

/* ---- mathematics --------------------------------------------------------------------------------------- */

/* ---- rotations and quaternions ------------------------------------------------------------------------- */

#ifdef __cplusplus
}
#endif

#endif
