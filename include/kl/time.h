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
    double (*pole)[4];    /**< beside the rows, NULL without: x, y, dX, dY of the pole (IAU 2000), arcsec */
    long (*row_notes)[2]; /**< beside the rows, NULL without: 16 x index of the file + quality, number of the line */
    /** The pole after the table: constant, cos A, sin A, cos C, sin C, arcsec; all zero: the last row holds. Without
     *  `pole` the formula serves every instant. */
    double pole_x[5], pole_y[5];
    double pole_reference_date[2]; /**< of A and C, MJD2000 */
    double pole_period[2];         /**< of A and C, days; 0, or at least 1 */
} kl_time_id_data;

/** Time models: what kl_time_ref_init_file makes of files. */
enum {
    KL_TIME_MODEL_EXPLICIT = -1,           /**< the readings of one instant */
    KL_TIME_MODEL_BULLETIN_B = 1,          /**< final values of IERS Bulletin B */
    KL_TIME_MODEL_BULLETIN_B_EXTENDED = 2, /**< with the preliminary extension */
    KL_TIME_MODEL_FINALS_OBSERVED = 3,     /**< finals*, what has been observed */
    KL_TIME_MODEL_FINALS = 4,              /**< finals*, with predictions */
    KL_TIME_MODEL_C04 = 5,                 /**< IERS EOP C04 */
    KL_TIME_MODEL_TABLE = 6,               /**< this library's own text format */
    KL_TIME_MODEL_ORBIT_FILE = 7,          /**< leap seconds in the span of SP3 or OEM files */
    KL_TIME_MODEL_LEAP_SECONDS = 8,        /**< a list of leap seconds */
    KL_TIME_MODEL_MERGED = 9,              /**< several kinds together; also the correlation compiled in */
    KL_TIME_MODEL_BULLETIN_A = 10,         /**< IERS Bulletin A, by its formula after its table */
    KL_TIME_MODEL_BULLETIN_A_TABLE = 11    /**< IERS Bulletin A, its last row after its table */
};

/** Which rows of the files are taken. */
enum {
    KL_TIME_WINDOW_FILE = 0, /**< all */
    KL_TIME_WINDOW_TIME = 1  /**< those around a time window */
};

/** Quality of a row. */
enum {
    KL_TIME_QUALITY_FINAL = 0,
    KL_TIME_QUALITY_OBSERVED = 1, /**< rapid service */
    KL_TIME_QUALITY_PRELIMINARY = 2,
    KL_TIME_QUALITY_PREDICTED = 3,
    KL_TIME_QUALITY_INSERTED = 4 /**< put in by the library at a leap second */
};

/** What the builders of time ids from files found; what does not apply is 0. */
typedef struct kl_time_file_report {
    long file;          /**< where something was refused, or TAI-UTC is not that of the rows: index in the list */
    long line, column;  /**< from 1; line 0: nowhere */
    char field[64];     /**< the refused characters, ? for what cannot be printed */
    long n_rows;        /**< of the time id */
    long n_predicted;   /**< of these */
    long n_skipped;     /**< lines of data that were read and not used: reserved days, before 1972, outside the window,
                         *   replaced by a row of another file */
    double first;       /**< first row, UTC, MJD2000 */
    double last_final;  /**< last row with final values, UTC, MJD2000 */
    double last;        /**< last row, UTC, MJD2000 */
    double leap_expiry; /**< UTC, MJD2000, until which the list of leap seconds that was read is good */
} kl_time_file_report;

/** What served an instant; kl_time_get_row. */
typedef struct kl_time_row_info {
    long row;     /**< last row not after the instant; -1 before the table, n_rows after it */
    long file;    /**< index in the list of files, -1: the correlation compiled in */
    long line;    /**< of that file; 0: none, or not known: the end of an SP3 above 128 KiB */
    long quality; /**< KL_TIME_QUALITY_FINAL to KL_TIME_QUALITY_INSERTED; of the first or last row outside the table */
    long by_formula;                  /**< 1: UT1-UTC comes from the formula: from the last row on */
    double tai_utc, tai_ut1, tai_gps; /**< s */
    double pole[4];                   /**< x, y, dX, dY, arcsec */
} kl_time_row_info;

/* ---- ids */

/** Conditions of kl_time_ref_init, from api/time.toml. */
enum {
    KL_TIME_REF_INIT_TAI_ERR = 0,            /**< TAI time is out of range */
    KL_TIME_REF_INIT_UTC_ERR = 1,            /**< UTC time is out of range */
    KL_TIME_REF_INIT_UT1_ERR = 2,            /**< UT1 time is out of range */
    KL_TIME_REF_INIT_GPS_ERR = 3,            /**< GPS time is out of range */
    KL_TIME_REF_INIT_ORBIT_ERR = 4,          /**< never recorded */
    KL_TIME_REF_INIT_ANX_TIME_ERR = 5,       /**< never recorded */
    KL_TIME_REF_INIT_ORBIT_DURATION_ERR = 6, /**< never recorded */
    KL_TIME_REF_INIT_ANX_DURATION_ERR = 7,   /**< never recorded */
    KL_TIME_REF_INIT_MEMORY_ERR = 8,         /**< no memory */
    KL_TIME_REF_INIT_ID_ERR = 9,             /**< the id is already initialised; it is not touched */
    KL_TIME_REF_INIT_N_CODES = 10
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

/** Conditions of kl_time_ref_init_file, from api/time.toml; and with the same numbers those of kl_time_id_init. */
enum {
    /** the id is already initialised; it is not touched */
    KL_TIME_REF_INIT_FILE_ID_ERR = 0,
    /** not 1 to 8, 10, 11; never in kl_time_id_init */
    KL_TIME_REF_INIT_FILE_MODEL_ERR = 1,
    /** number of files below 1 or above 10000 */
    KL_TIME_REF_INIT_FILE_COUNT_ERR = 2,
    /** unknown mode, start after stop, outside -18262.0 to 36524.0, NaN */
    KL_TIME_REF_INIT_FILE_WINDOW_ERR = 3,
    /** no regular file, not readable, empty, above 64 MiB, changed meanwhile */
    KL_TIME_REF_INIT_FILE_READ_ERR = 4,
    /** not a known format or not the model's, or a time system not known */
    KL_TIME_REF_INIT_FILE_FORMAT_ERR = 5,
    /** a field missing, cut, no number, out of range; a date not of its MJD */
    KL_TIME_REF_INIT_FILE_RECORD_ERR = 6,
    /** dates of a file not in increasing order */
    KL_TIME_REF_INIT_FILE_ORDER_ERR = 7,
    /** no prediction formula: model 10, or no_extrapolation 0 */
    KL_TIME_REF_INIT_FILE_FORMULA_ERR = 8,
    /** no row inside the window, or no row at all */
    KL_TIME_REF_INIT_FILE_NO_RECORD_ERR = 9,
    /** no memory */
    KL_TIME_REF_INIT_FILE_MEMORY_ERR = 10,
    /** the quarter of a leap second cannot be found */
    KL_TIME_REF_INIT_FILE_LEAP_SECOND_ERR = 11,
    /** part of the window lies outside the rows */
    KL_TIME_REF_INIT_FILE_COVERAGE_WARN = 12,
    /** a text or a list of leap seconds contradicts the rows, which win */
    KL_TIME_REF_INIT_FILE_TAI_UTC_WARN = 13,
    /** no UT1 in the files: UT1 = UTC, pole zero */
    KL_TIME_REF_INIT_FILE_NO_UT1_WARN = 14,
    /** the list of leap seconds ends before the window does */
    KL_TIME_REF_INIT_FILE_LEAP_EXPIRED_WARN = 15,
    KL_TIME_REF_INIT_FILE_N_CODES = 16
};

/**
 * Time id from files as their services publish them: UT1, leap seconds and the pole of the Earth.
 *
 * @param[in]  model    what is wanted of which files, KL_TIME_MODEL_*: 1 to 8, 10 or 11, see below
 * @param[in]  n_files  1 to 10000
 * @param[in]  files    their names. Formats are recognised by content
 * @param[in]  window   KL_TIME_WINDOW_FILE: all rows; KL_TIME_WINDOW_TIME: from the last row at or before start to the
 *                      first at or after stop, so that the window can be interpolated
 * @param[in]  start    UTC, MJD2000, days, -18262.0 to 36524.0; NULL or not read with KL_TIME_WINDOW_FILE
 * @param[in]  stop     the same, not before start
 * @param[out] report   what was found, or where it was refused; may be NULL
 * @param[out] time_id  zero-initialised handle; initialised on success (KL_OK and KL_WARN), left as it is otherwise
 * @param[out] ierr     [1] KL_TIME_REF_INIT_FILE_*
 * @return KL_OK, KL_WARN or KL_ERR; KL_ERR with a clear vector when time_id is NULL
 *
 * Models and their files:
 * - 1 KL_TIME_MODEL_BULLETIN_B: IERS Bulletin B, one or several months, of either form (old up to No. 263); its final
 *   rows
 * - 2 KL_TIME_MODEL_BULLETIN_B_EXTENDED: the same with the preliminary extension
 * - 3 KL_TIME_MODEL_FINALS_OBSERVED: finals.all, .data, .daily or finals2000A.* of the IERS rapid service, the
 *   observed rows
 * - 4 KL_TIME_MODEL_FINALS: the same with the predictions
 * - 5 KL_TIME_MODEL_C04: IERS EOP C04 (05, 08, 14, 20), one or several years
 * - 6 KL_TIME_MODEL_TABLE: the own format below
 * - 7 KL_TIME_MODEL_ORBIT_FILE: SP3 (a to d) or CCSDS OEM (text or XML), leap seconds in the span of the files and
 *   UT1 = UTC (KL_TIME_REF_INIT_FILE_NO_UT1_WARN); files of the other models beside them bring UT1
 * - 8 KL_TIME_MODEL_LEAP_SECONDS: leap-seconds.list or Leap_Second.dat alone, UT1 = UTC (the same warning)
 * - 10 KL_TIME_MODEL_BULLETIN_A: IERS Bulletin A, alone or after Bulletin B; after the table its formula
 * - 11 KL_TIME_MODEL_BULLETIN_A_TABLE: the same; after the table its last row
 *
 * A list of leap seconds may stand beside the files of every model and replaces the one compiled in. Who has several
 * kinds, or does not want to say which, calls kl_time_id_init.
 *
 * @code{.c}
 * kl_time_id time_id = {NULL};
 * kl_time_file_report report;
 * const char *const files[] = {"finals2000A.all"};
 * const long model = KL_TIME_MODEL_FINALS, n_files = 1, window = KL_TIME_WINDOW_FILE;
 * long ierr[1], n_msg;
 * static char msg[KL_MAX_MSG][KL_MSG_LENGTH];
 * if (kl_time_ref_init_file(&model, &n_files, files, &window, NULL, NULL, &report, &time_id, ierr) == KL_ERR) {
 *     kl_get_last_msg(&n_msg, msg); // why; the report: where, line 0 for an argument or a file as a whole
 *     printf("%s\n%s, line %ld: '%s'\n", msg[0], files[report.file], report.line, report.field);
 * }
 * // ... kl_time_close(&time_id, ierr) when it is no longer needed
 * @endcode
 *
 * The arguments are checked first, then the files in their order, each to its end, then the table; one error ends the
 * call. Messages of a decoded vector have no name and line; they are in the report, and on standard error in verbose
 * mode.
 *
 * TAI-UTC comes from the rows: anchored at the first one by the list of leap seconds and stepped where UT1-UTC jumps,
 * so a new leap second needs no new list. A row is put in at the midnight of a leap second where none stands. Rows
 * before 1972 are skipped. Several files are merged: final over rapid and preliminary over predicted, then the later
 * file of the list; of Bulletin A only the rows after the last of Bulletin B. The id knows one leap second, the last of
 * its rows: instants inside an older 61st second come out as the first second of the next day. A window that ends
 * before the next leap second makes the wanted one the last.
 *
 * Between rows UT1 and pole are interpolated linearly: with daily values UT1 is good to 0.06 ms (3 cm at the equator),
 * the pole to 0.2 mas. After the last row that row holds, with a warning of the conversion that leaves it; model 8 does
 * not warn. The formula of model 10 does not meet the end of its table, as the bulletin says: off by 0.015 to 0.06 s
 * there (up to 26 m at the equator), 0.02 s after 400 days and 0.12 s after 1000 in one compared with the truth; with
 * model 11 there is no step. The pole enters the frames: KL_PEF to KL_EF.
 *
 * The own format is a text for any other source:
 *
 *     KL_TIME_CORRELATION 1
 *     # UTC               TAI-UTC  UT1-UTC   [x y of the pole]
 *     2026-01-01T00:00:00 37 0.0712345 0.1023 0.3511
 *
 * s and arcsec, increasing, seconds with or without decimals; optionally one line "FORMULA a b c" (s, s/day, MJD2000)
 * for kl_time_id_init. A last line without its end must be as long as the one before it.
 */
KL_API long kl_time_ref_init_file(const long *model, const long *n_files, const char *const files[], const long *window,
                                  const double *start, const double *stop, kl_time_file_report *report,
                                  kl_time_id *time_id, long *ierr);

/**
 * Time id from files of any kind together, or without a file from the correlation compiled into the library.
 *
 * @param[in]  n_files           0 to 10000; 0: the correlation compiled in, daily from 1972 to the end of the
 *                               predictions that the library was made with
 * @param[in]  files             their names, of any format of kl_time_ref_init_file; not read with n_files 0
 * @param[in]  no_extrapolation  not 0, or NULL: after the last row that row holds; 0: the formula of a Bulletin A or of
 *                               an own table among the files (KL_TIME_REF_INIT_FILE_FORMULA_ERR where there is none,
 *                               as in the correlation compiled in)
 * @param[in]  window            as kl_time_ref_init_file
 * @param[in]  start             as kl_time_ref_init_file
 * @param[in]  stop              as kl_time_ref_init_file
 * @param[out] report            as kl_time_ref_init_file; of the correlation compiled in last_final, last and
 *                               leap_expiry say how far it holds
 * @param[out] time_id           as kl_time_ref_init_file
 * @param[out] ierr              [1] KL_TIME_REF_INIT_FILE_*, decoded with KL_ID_FUNC_TIME_ID_INIT
 * @return as kl_time_ref_init_file
 *
 * The model becomes KL_TIME_MODEL_MERGED, or KL_TIME_MODEL_LEAP_SECONDS when only lists of leap seconds were given.
 */
KL_API long kl_time_id_init(const long *n_files, const char *const files[], const long *no_extrapolation,
                            const long *window, const double *start, const double *stop, kl_time_file_report *report,
                            kl_time_id *time_id, long *ierr);

/**
 * The pole of the Earth that a time id holds.
 *
 * @param[in]  time_id   initialised time id
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[out] pole      [4] x, y, dX, dY (IAU 2000), arcsec; zero where the id has none
 * @return KL_OK, or KL_ERR with nothing written: an id that is not initialised, a wrong scale, an instant out of range
 *
 * Between rows linear in UT1; before the first row its values, after the last one the formula of a bulletin for x and
 * y, else the last row. It gives no warning and spends none.
 */
KL_API long kl_time_get_pole(kl_time_id *time_id, const long *time_ref, const double *time, double pole[4]);

/**
 * Which row serves an instant, and what it gives.
 *
 * @param[in]  time_id   initialised time id
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[out] info      filled
 * @return as kl_time_get_pole. It gives no warning and spends none
 */
KL_API long kl_time_get_row(kl_time_id *time_id, const long *time_ref, const double *time, kl_time_row_info *info);

/**
 * All steps of TAI-UTC in the table of a time id.
 *
 * @param[in]  time_id  initialised time id
 * @param[out] n        number of steps
 * @param[out] utc      [n] UTC, MJD2000: the first row after each step; NULL without a step. Free it with kl_free_array
 * @param[out] tai_utc  [n] TAI-UTC from then on, s; likewise
 * @param[out] expiry   UTC, MJD2000, until which the list of leap seconds that was read is good; 0 when none was
 * @return KL_OK, or KL_ERR with nothing written: an id that is not initialised, an output that is NULL, no memory
 */
KL_API long kl_time_get_leap_seconds(kl_time_id *time_id, long *n, double **utc, double **tai_utc, double *expiry);

/** Conditions of kl_time_close, from api/time.toml. */
enum {
    KL_TIME_REF_CLOSE_ID_ERR = 0, /**< the id is not initialised, or another id or an object uses it */
    KL_TIME_REF_CLOSE_N_CODES = 1
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
 * @param[out] data     filled; its rows, notes and pole are allocated for the caller: release them with
 *                      kl_time_free_id_data. Left as it is on failure
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
 *                         the differences to 2e-6 s. pole, row_notes: as long as rows, or NULL; a pole below 100
 *                         arcsec, periods of 0 or from 1 day on. leap_sign, leap_utc and leap_tai are not read
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

/** Frees what kl_time_get_id_data allocated: rows, pole and row_notes NULL, n_rows 0. 0, or -1 for NULL. */
KL_API long kl_time_free_id_data(kl_time_id_data *data);

/* ---- processing format */

/** Conditions of kl_time_add, from api/time.toml. */
enum {
    KL_TIME_ADD_PROC_ID_ERR = 0,  /**< processing format id is not KL_PROC */
    KL_TIME_ADD_TIME_REF_ERR = 1, /**< time reference outside 0 to 3 */
    KL_TIME_ADD_TIME_ERR = 2,     /**< time outside -18262.0 to 36524.0, or NaN */
    KL_TIME_ADD_SUM_ERR = 3,      /**< sum outside that range, or NaN; it is written all the same */
    KL_TIME_ADD_N_CODES = 4
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

/** Conditions of kl_time_diff, from api/time.toml. */
enum {
    KL_TIME_DIFF_PROC_ID_ERR = 0,  /**< processing format id is not KL_PROC */
    KL_TIME_DIFF_TIME_REF_ERR = 1, /**< time reference outside 0 to 3 */
    KL_TIME_DIFF_TIME1_ERR = 2,    /**< first time outside -18262.0 to 36524.0, or NaN */
    KL_TIME_DIFF_TIME2_ERR = 3,    /**< second time outside that range, or NaN */
    KL_TIME_DIFF_N_CODES = 4
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

/** Conditions of kl_time_get_leap_second_info, from api/time.toml. */
enum {
    KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR = 0,   /**< not an ASCII format */
    KL_TIME_GET_LEAP_SECOND_INFO_ADD_ERR = 1,      /**< never recorded */
    KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR = 2,  /**< an instant could not be written: it lies before 1950 */
    KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN = 3, /**< the time id is not initialised: sign 0, empty texts */
    KL_TIME_GET_LEAP_SECOND_INFO_N_CODES = 4
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
