/**
 * @file time.h
 * Time ids, scales and the processing format.
 */
#ifndef KL_TIME_H
#define KL_TIME_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Time references. */
enum {
    KL_TIME_UNDEF = -1, /**< left open: only where a text carries its own reference */
    KL_TIME_TAI = 0,
    KL_TIME_UTC = 1,
    KL_TIME_UT1 = 2,
    KL_TIME_GPS = 3
};

/** Processing format: MJD2000, days since 2000-01-01 00:00:00 of the reference; -18262.0 to 36524.0. */
enum { KL_PROC = 0 };

/** One row of a time correlation: the same instant on three scales, and the differences. */
typedef struct kl_time_row {
    double tai, ut1, utc;             /**< MJD2000, days */
    double tai_utc, tai_ut1, tai_gps; /**< s */
} kl_time_row;

/** Data of a time id. */
typedef struct kl_time_id_data {
    long model;               /**< -1 explicit values (one row); any other non-zero number a table */
    long combination;         /**< 2: two bulletins joined, with a gap between them */
    long no_extrapolation;    /**< not 0: the last row holds after the table; 0: the formula below */
    long second_bulletin_row; /**< first row of the second bulletin, with combination 2 */
    double a, b, c;           /**< UT1-UTC = a + b (t - c) - (UT2-UT1) after the table; s, s/day, MJD2000 */
    long leap_sign;           /**< output: 0 none, +1, -1 */
    double leap_utc;          /**< output: first UTC instant after the leap second, MJD2000 */
    double leap_tai;          /**< output: TAI instant at which it begins, MJD2000 */
    long n_rows;
    kl_time_row *rows;
} kl_time_id_data;

/* ---- ids */

/** Conditions of kl_time_ref_init; bits 4 to 7 are never set, since the orbit arguments are not looked at. */
enum {
    KL_TIME_REF_INIT_TAI_ERR = 0, /**< TAI time is out of range */
    KL_TIME_REF_INIT_UTC_ERR = 1, /**< UTC time is out of range */
    KL_TIME_REF_INIT_UT1_ERR = 2, /**< UT1 time is out of range */
    KL_TIME_REF_INIT_GPS_ERR = 3, /**< GPS time is out of range */
    KL_TIME_REF_INIT_ORBIT_ERR = 4,
    KL_TIME_REF_INIT_ANX_TIME_ERR = 5,
    KL_TIME_REF_INIT_ORBIT_DURATION_ERR = 6,
    KL_TIME_REF_INIT_ANX_DURATION_ERR = 7,
    KL_TIME_REF_INIT_MEMORY_ERR = 8, /**< no memory */
    KL_TIME_REF_INIT_ID_ERR = 9      /**< the id is already initialised; it is not touched */
};

/**
 * Time id from the readings of one instant on four scales: constant differences between the scales at every instant.
 *
 * @param[in]  tri_time        [4] the same instant in TAI, UTC, UT1 and GPS, in this order; MJD2000, days, -18262.0 to
 *                             36524.0
 * @param[in]  orbit           accepted and ignored; may be NULL
 * @param[in]  anx_time        accepted and ignored; may be NULL
 * @param[in]  orbit_duration  accepted and ignored; may be NULL
 * @param[out] time_id         zero-initialised handle; initialised on success, left as it is otherwise
 * @param[out] ierr            [1] KL_TIME_REF_INIT_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when time_id is NULL
 *
 * An initialised id is refused before the readings are looked at; of these the first that is out of range is reported.
 * TAI-UTC and TAI-GPS are rounded to whole seconds, halves away from zero (37.4 s of readings is 37 s), as far as days
 * in a double can tell a half second; TAI-UT1 is kept as it is. The id knows no leap second, belongs to no satellite
 * (-1), has mode -1 and never warns.
 */
KL_API long kl_time_ref_init(const double tri_time[4], const long *orbit, const double *anx_time,
                             const double *orbit_duration, kl_time_id *time_id, long *ierr);

/** Conditions of kl_time_close. */
enum {
    KL_TIME_REF_CLOSE_ID_ERR = 0 /**< the id is not initialised, or another id or an object uses it */
};

/**
 * Closes a time id, frees its record and resets the handle.
 *
 * @param[in,out] time_id  handle; left as it is when the close is refused
 * @param[out]    ierr     [1] KL_TIME_REF_CLOSE_*; decode it with KL_ID_FUNC_TIME_REF_CLOSE
 * @return KL_OK or KL_ERR
 *
 * The close is refused while a run, another id or an object uses the id, whatever other threads do with these; an id
 * that nothing uses must not be closed while another thread is calling with it. When the lock of the id cannot be
 * released (a line on standard output says so) the id is closed, but this is KL_TIME_REF_CLOSE_ID_ERR and its memory is
 * not freed.
 * Its messages are those of kl_time_ref_close, which is the name that the message table has for it.
 */
KL_API long kl_time_close(kl_time_id *time_id, long *ierr);

/** 1 when the time id is initialised, else 0 (also for NULL). */
KL_API long kl_time_init_status(kl_time_id *time_id);

/** Time model of the id: -1 explicit values, another number a table; 0 when it is not initialised. */
KL_API long kl_time_get_mode(kl_time_id *time_id);

/** Satellite that the id was made for, -1 for none; 0 when it is not initialised. */
KL_API long kl_time_get_sat_id(kl_time_id *time_id);

/**
 * Copies the data of a time id, leap second included.
 *
 * @param[in]  time_id  initialised time id
 * @param[out] data     filled; its rows are allocated for the caller: release them with kl_time_free_id_data. Left as
 *                      it is on failure
 * @return 0, or -1; in verbose mode with a line on standard error that says why
 *
 * What it returns can be set again: the UTC time of explicit values is made from TAI and TAI-UTC.
 */
KL_API long kl_time_get_id_data(kl_time_id *time_id, kl_time_id_data *data);

/**
 * Gives a time id a correlation table.
 *
 * @param[in,out] time_id  handle; an uninitialised one is initialised (satellite id -1), the data of an initialised one
 *                         that nothing else uses is replaced. No other thread may be using the id
 * @param[in]     data     the table. model: not 0; -1 with exactly one row means explicit values, constant at every
 *                         instant; 8 never gives the out-of-range warning of a conversion; 8 and 10 do not give its
 *                         validity warning after the last row. combination: 2 when the table joins two bulletins and
 *                         second_bulletin_row is then the first row of the second. no_extrapolation: 0 to compute
 *                         UT1-UTC after the table with a, b and c, otherwise the last row holds there; |a| + |b| (|c| +
 *                         1e10) at most 1e12. rows: at least one, finite, -18262.0 to 36524.0, increasing on all
 *                         scales, TAI-UTC and TAI-GPS whole seconds no longer than that range, times that agree with
 *                         the differences to 2e-6 s. leap_sign, leap_utc and leap_tai are not read
 * @return 0, or -1 with nothing changed; in verbose mode with a line on standard error that says what is wrong
 *
 * Between rows TAI-UT1 is interpolated linearly, TAI-UTC and TAI-GPS are those of the row before. The id knows one leap
 * second: the last change of TAI-UTC, which is taken to happen at the start of the calendar quarter of the later row,
 * so rows may lie on any day; an earlier leap second takes effect at its row, which should stand at 0h of that day.
 * The first conversion outside the table warns once, as if the one before had been inside. After a table with
 * extrapolation the first one warns that it is by formula, and the next one, except with 8 and 10, that the validity
 * has been left.
 * After the table with extrapolation TAI-GPS is 19 s whatever the table holds, and the UT1-UTC formula takes a UT1 or
 * GPS time to UTC with TAI-UT1 and TAI-GPS added as if they were days.
 */
KL_API long kl_time_set_id_data(kl_time_id *time_id, const kl_time_id_data *data);

/** Frees the rows that kl_time_get_id_data allocated: rows NULL, n_rows 0. 0, or -1 for NULL. */
KL_API long kl_time_free_id_data(kl_time_id_data *data);

/* ---- processing format */

/** Conditions of kl_time_add. */
enum {
    KL_TIME_ADD_PROC_ID_ERR = 0,  /**< processing format id is not KL_PROC */
    KL_TIME_ADD_TIME_REF_ERR = 1, /**< time reference outside 0 to 3 */
    KL_TIME_ADD_TIME_ERR = 2,     /**< time outside -18262.0 to 36524.0, or NaN */
    KL_TIME_ADD_SUM_ERR = 3       /**< sum outside that range, or NaN; it is written all the same */
};

/**
 * Processing time plus a duration, both in days of the same scale: no leap second comes in.
 *
 * @param[in]  proc_id   KL_PROC
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS; only checked
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[in]  duration  days, of either sign
 * @param[out] time_out  MJD2000, days; also written with KL_TIME_ADD_SUM_ERR
 * @param[out] ierr      [1] KL_TIME_ADD_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when duration or time_out is NULL
 */
KL_API long kl_time_add(const long *proc_id, const long *time_ref, const double *time, const double *duration,
                        double *time_out, long *ierr);

/** Conditions of kl_time_diff. */
enum {
    KL_TIME_DIFF_PROC_ID_ERR = 0,  /**< processing format id is not KL_PROC */
    KL_TIME_DIFF_TIME_REF_ERR = 1, /**< time reference outside 0 to 3 */
    KL_TIME_DIFF_TIME1_ERR = 2,    /**< first time outside -18262.0 to 36524.0, or NaN */
    KL_TIME_DIFF_TIME2_ERR = 3     /**< second time outside that range, or NaN */
};

/**
 * Difference of two processing times of the same scale, in days of that scale: no leap second comes in.
 *
 * @param[in]  proc_id   KL_PROC
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS; only checked
 * @param[in]  time1     MJD2000, days, -18262.0 to 36524.0; checked wholly before time2
 * @param[in]  time2     MJD2000, days, -18262.0 to 36524.0
 * @param[out] duration  time1 - time2, days
 * @param[out] ierr      [1] KL_TIME_DIFF_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when duration is NULL
 */
KL_API long kl_time_diff(const long *proc_id, const long *time_ref, const double *time1, const double *time2,
                         double *duration, long *ierr);

/** Conditions of kl_time_get_leap_second_info. */
enum {
    KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR = 0,  /**< not an ASCII format */
    KL_TIME_GET_LEAP_SECOND_INFO_ADD_ERR = 1,     /**< never recorded */
    KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR = 2, /**< an instant could not be written: it lies before 1950 */
    KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN = 3 /**< the time id is not initialised: sign 0, empty texts */
};

/**
 * The one leap second that a time id knows: the last change of TAI-UTC in its table.
 *
 * @param[in]  time_id          time id
 * @param[in]  ascii_id_out     KL_ASCII_11 to KL_ASCII_54
 * @param[out] leap_sign        0 none, 1 a positive, -1 a negative leap second
 * @param[out] utc_time_before  [KL_TIME_ASCII_LENGTH] UTC 1/86401 day before utc_time_after: 23:59:59.000012 where the
 *                              format has microseconds, also for a negative leap second; empty without a leap second
 * @param[out] utc_time_after   [KL_TIME_ASCII_LENGTH] first UTC instant after it, 00:00:00 of the first day of a
 *                              quarter; empty without a leap second
 * @param[out] ierr             [1] KL_TIME_GET_LEAP_SECOND_INFO_*
 * @return KL_OK, KL_WARN or KL_ERR; KL_ERR with a clear vector when an output is NULL. The sign is 0 and the texts are
 *         empty after a wrong format (0) and after the warning (3); the format is checked first
 */
KL_API long kl_time_get_leap_second_info(kl_time_id *time_id, const long *ascii_id_out, long *leap_sign,
                                         char *utc_time_before, char *utc_time_after, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
