/**
 * @file formats.h
 * Texts and transport times, and the nine conversions between them and processing times.
 */
#ifndef KL_FORMATS_H
#define KL_FORMATS_H

#include "kl/time.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Transport formats: four longs, unused ones 0. */
enum {
    KL_TRANS_0 = 0,   /**< days, seconds of day, microseconds */
    KL_TRANS_11 = 11, /**< as 0 */
    KL_TRANS_21 = 21, /**< as 0 */
    KL_TRANS_22 = 22, /**< days, milliseconds of day, microseconds of the millisecond */
    KL_TRANS_23 = 23, /**< as 22, and a count of ticks of 2.0625 microseconds */
    KL_TRANS_31 = 31, /**< GPS week, seconds of week, fraction of second in 2^-16 s */
    KL_TRANS_41 = 41, /**< seconds since 1980-01-06 00:00:00, microseconds; KL_TIME_GPS only */
    KL_TRANS_42 = 42  /**< GPS week, seconds of week, microseconds; KL_TIME_GPS only */
};

/** Texts of a time: tens digit the layout; units digit 2 and 4 with a prefix "RRR=", 3 and 4 with microseconds. */
enum {
    KL_ASCII_11 = 11, /**< yyyy-mm-dd_hh:nn:ss */
    KL_ASCII_12 = 12,
    KL_ASCII_13 = 13, /**< yyyy-mm-dd_hh:nn:ss.uuuuuu */
    KL_ASCII_14 = 14,
    KL_ASCII_21 = 21, /**< yyyymmdd_hhnnss */
    KL_ASCII_22 = 22,
    KL_ASCII_23 = 23, /**< yyyymmdd_hhnnssuuuuuu */
    KL_ASCII_24 = 24,
    KL_ASCII_31 = 31, /**< dd-MMM-yyyy hh:nn:ss */
    KL_ASCII_32 = 32,
    KL_ASCII_33 = 33, /**< dd-MMM-yyyy hh:nn:ss.uuuuuu */
    KL_ASCII_34 = 34,
    KL_ASCII_41 = 41, /**< yyyy-mm-ddThh:nn:ss */
    KL_ASCII_42 = 42,
    KL_ASCII_43 = 43, /**< yyyy-mm-ddThh:nn:ss.uuuuuu */
    KL_ASCII_44 = 44,
    KL_ASCII_51 = 51, /**< yyyymmddThhnnss */
    KL_ASCII_52 = 52,
    KL_ASCII_53 = 53, /**< yyyymmddThhnnssuuuuuu */
    KL_ASCII_54 = 54
};

/*
 * The nine conversions kl_time_A_to_B read an instant in one format and scale and write it in another. They share
 * this:
 *
 * - An instant passes through whole microseconds, rounded to the nearest. A text comes back from a text unchanged,
 *   and so does a transport time; format 31 rounds to its steps of 15 microseconds, and format 23 is written without
 *   ticks, since its microseconds leave nothing to them.
 * - Equal scales need no time id and no correlation. With different ones an uninitialised id is an error, and an
 *   instant outside the correlation table a warning: the first row, the last row or a formula then serves.
 * - The once-only warnings 7 to 9 say that a computation has left the good region of a table after one that was
 *   inside it. The time id remembers this, once for all conversions. A time id of explicit values gives no such
 *   warning.
 * - The 61st second of a UTC day exists in a positive leap second that the time id knows and is refused elsewhere.
 *   Texts (23:59:60) and the transport formats 0, 11, 21, 22, 23 (86400 s of day) hold it. UTC processing times and
 *   format 31 cannot: they get the second before it. A time id knows the last leap second of its table only.
 * - Texts must fit their format to the character; month names are capitals. A prefix must be that of time_ref_in,
 *   unless this is KL_TIME_UNDEF, and is written for time_ref_out. Dates run from 1950-01-01 to the end of
 *   2099-12-31.
 * - Beginning- and end-of-mission texts stand for the limits of the processing range, in every layout:
 *   0000-00-00_00:00:00 for -18262.0, 9999-99-99_99:99:99 and 9999-12-31_23:59:59 for 36524.0. With a named month
 *   they are "00-000-0000 00:00:00", "99-999-9999 99:99:99" and "31-DEC-9999 23:59:59". Their microseconds are 000000
 *   in the first and 999999 in the others, where 000000 is read too. Between texts such a text stays what it is, and
 *   dates at the limits stay dates. A processing or transport time that is exactly a limit is written as
 *   0000-00-00_00:00:00 or 9999-99-99_99:99:99. A change of scale moves a limit like any instant; a date is written
 *   then.
 * - Transport formats 41 and 42 take KL_TIME_GPS only. Weeks and seconds before 1980 are negative.
 * - A GPS week counts all weeks since 1980-01-06. A RECEIVER'S WEEK OF 10 BITS IS TAKEN AS IT IS, a date before
 *   1999-08-22: add 1024 for each time it has started again (1999-08-22, 2019-04-07, 2038-11-21).
 * - Outputs have no range but for texts. A transport or processing time that a change of scale or the last day carries
 *   past a limit (day -18263, day 36525) is right, but no function takes it in again. PROCESSING TIMES END AT 36524.0,
 *   0h of 2099-12-31: that last day, which texts and transport times reach, comes out as 36524.0 to 36525.0, and no
 *   function takes more than 36524.0.
 * - A NULL format or scale is a wrong one, a NULL text too short, any other NULL input out of range in its first
 *   field; a NULL output gives KL_ERR and a clear vector.
 */

/** Conditions of kl_time_processing_to_processing, from api/formats.toml. */
enum {
    KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR = 0,       /**< input format is not KL_PROC */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR = 2,      /**< output format is not KL_PROC */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR = 4,             /**< input outside its range, or NaN */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR = 10, /**< input not split into whole units */
    KL_TIME_PROCESSING_TO_PROCESSING_N_CODES = 11
};

/**
 * Carries a processing time to another scale.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  proc_id_in     KL_PROC
 * @param[in]  time_ref_in    scale of the input: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  time_in        MJD2000, days, -18262.0 to 36524.0
 * @param[in]  proc_id_out    KL_PROC
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] time_out       MJD2000, days; may lie outside the processing range by the difference of the scales
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_PROCESSING_TO_PROCESSING_*, see there; what all nine conversions share stands above.
 * Equal scales return the value rounded to the nearest microsecond and need no time id. A UTC result inside a
 * positive leap second is folded onto the second before it: 23:59:59 and the fraction. The result is not checked
 * against the range. Order of the checks: input format, scale and value, then output format and scale.
 */
KL_API long kl_time_processing_to_processing(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                             const double *time_in, const long *proc_id_out, const long *time_ref_out,
                                             double *time_out, long *ierr);

/** Conditions of kl_time_ascii_to_ascii, from api/formats.toml. */
enum {
    KL_TIME_ASCII_TO_ASCII_ASCII_ID_IN_ERR = 0,    /**< input format is none of KL_ASCII_* */
    KL_TIME_ASCII_TO_ASCII_TIME_REF_IN_ERR = 1,    /**< input scale outside -1 to 3 */
    KL_TIME_ASCII_TO_ASCII_ASCII_ID_OUT_ERR = 2,   /**< output format is none of KL_ASCII_* */
    KL_TIME_ASCII_TO_ASCII_TIME_REF_OUT_ERR = 3,   /**< output scale outside 0 to 3 */
    KL_TIME_ASCII_TO_ASCII_YEAR_ERR = 4,           /**< year is not 1950 to 2099 */
    KL_TIME_ASCII_TO_ASCII_TIME_ID_ERR = 5,        /**< scales differ, no initialised time id */
    KL_TIME_ASCII_TO_ASCII_OUT_OF_RANGE_WARN = 6,  /**< instant outside the table */
    KL_TIME_ASCII_TO_ASCII_BULLETIN_A_WARN = 7,    /**< left the table: by formula from here on */
    KL_TIME_ASCII_TO_ASCII_BULLETIN_B_A_WARN = 8,  /**< now in the gap between two bulletins */
    KL_TIME_ASCII_TO_ASCII_VALIDITY_WARN = 9,      /**< left the validity of the time id */
    KL_TIME_ASCII_TO_ASCII_LAYOUT_ERR = 10,        /**< separators of the format missing */
    KL_TIME_ASCII_TO_ASCII_TOO_SHORT_ERR = 11,     /**< shorter than its format, or NULL */
    KL_TIME_ASCII_TO_ASCII_TOO_LONG_ERR = 12,      /**< longer than its format */
    KL_TIME_ASCII_TO_ASCII_PREFIX_ERR = 13,        /**< prefix is no "TAI=" "UTC=" "UT1=" "GPS=" */
    KL_TIME_ASCII_TO_ASCII_PREFIX_REF_ERR = 14,    /**< prefix contradicts the input scale */
    KL_TIME_ASCII_TO_ASCII_NO_REF_ERR = 15,        /**< KL_TIME_UNDEF and no prefix */
    KL_TIME_ASCII_TO_ASCII_MISSION_LIMIT_ERR = 16, /**< year 0000 or 9999, but no limit */
    KL_TIME_ASCII_TO_ASCII_MONTH_ERR = 17,         /**< month is not 01 to 12, JAN to DEC */
    KL_TIME_ASCII_TO_ASCII_DAY_ERR = 18,           /**< day is not 01 to 31 */
    KL_TIME_ASCII_TO_ASCII_HOUR_ERR = 19,          /**< hour is not 00 to 23 */
    KL_TIME_ASCII_TO_ASCII_MINUTE_ERR = 20,        /**< minute is not 00 to 59 */
    KL_TIME_ASCII_TO_ASCII_SECOND_ERR = 21,        /**< second is not 00 to 60 */
    KL_TIME_ASCII_TO_ASCII_MICROSECOND_ERR = 22,   /**< microsecond is not a number */
    KL_TIME_ASCII_TO_ASCII_DAY_OF_30_ERR = 23,     /**< day 31 of a month of 30 */
    KL_TIME_ASCII_TO_ASCII_DAY_OF_29_ERR = 24,     /**< day 30 or 31 of a leap February */
    KL_TIME_ASCII_TO_ASCII_DAY_OF_28_ERR = 25,     /**< day 29 to 31 of another February */
    KL_TIME_ASCII_TO_ASCII_LEAP_SECOND_ERR = 26,   /**< second 60 without a leap second */
    KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR = 32,   /**< output before 1950 */
    KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR = 33,    /**< output after 2099 */
    KL_TIME_ASCII_TO_ASCII_N_CODES = 29
};

/**
 * Writes the instant of a text in another format, another scale or both.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  ascii_id_in    format of the text, KL_ASCII_*
 * @param[in]  time_ref_in    scale of the text, KL_TIME_*; with a prefix also KL_TIME_UNDEF
 * @param[in]  ascii_in       text of exactly the length of its format, then a NUL
 * @param[in]  ascii_id_out   format of the output, KL_ASCII_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] ascii_out      [KL_TIME_ASCII_LENGTH] text and a NUL; may be the input text
 * @param[out] ierr           [2] error vector of two words, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_ASCII_TO_ASCII_*, see there; what all nine conversions share stands above.
 * The last two conditions are bits 0 and 1 of the second word, all others bits of the first.
 */
KL_API long kl_time_ascii_to_ascii(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                   const char *ascii_in, const long *ascii_id_out, const long *time_ref_out,
                                   char *ascii_out, long ierr[2]);

/** Conditions of kl_time_ascii_to_processing, from api/formats.toml. */
enum {
    KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR = 0,    /**< input format is none of KL_ASCII_* */
    KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR = 1,    /**< input scale outside -1 to 3 */
    KL_TIME_ASCII_TO_PROCESSING_PROC_ID_OUT_ERR = 2,    /**< output format is not KL_PROC */
    KL_TIME_ASCII_TO_PROCESSING_TIME_REF_OUT_ERR = 3,   /**< output scale outside 0 to 3 */
    KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR = 4,           /**< year is not 1950 to 2099 */
    KL_TIME_ASCII_TO_PROCESSING_TIME_ID_ERR = 5,        /**< scales differ, no initialised time id */
    KL_TIME_ASCII_TO_PROCESSING_OUT_OF_RANGE_WARN = 6,  /**< instant outside the table */
    KL_TIME_ASCII_TO_PROCESSING_BULLETIN_A_WARN = 7,    /**< left the table: by formula from here on */
    KL_TIME_ASCII_TO_PROCESSING_BULLETIN_B_A_WARN = 8,  /**< now in the gap between two bulletins */
    KL_TIME_ASCII_TO_PROCESSING_VALIDITY_WARN = 9,      /**< left the validity of the time id */
    KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR = 10,        /**< separators of the format missing */
    KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR = 11,     /**< shorter than its format, or NULL */
    KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR = 12,      /**< longer than its format */
    KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR = 13,        /**< prefix is no "TAI=" "UTC=" "UT1=" "GPS=" */
    KL_TIME_ASCII_TO_PROCESSING_PREFIX_REF_ERR = 14,    /**< prefix contradicts the input scale */
    KL_TIME_ASCII_TO_PROCESSING_NO_REF_ERR = 15,        /**< KL_TIME_UNDEF and no prefix */
    KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR = 16, /**< year 0000 or 9999, but no limit */
    KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR = 17,         /**< month is not 01 to 12, JAN to DEC */
    KL_TIME_ASCII_TO_PROCESSING_DAY_ERR = 18,           /**< day is not 01 to 31 */
    KL_TIME_ASCII_TO_PROCESSING_HOUR_ERR = 19,          /**< hour is not 00 to 23 */
    KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR = 20,        /**< minute is not 00 to 59 */
    KL_TIME_ASCII_TO_PROCESSING_SECOND_ERR = 21,        /**< second is not 00 to 60 */
    KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR = 22,   /**< microsecond is not a number */
    KL_TIME_ASCII_TO_PROCESSING_DAY_OF_30_ERR = 23,     /**< day 31 of a month of 30 */
    KL_TIME_ASCII_TO_PROCESSING_DAY_OF_29_ERR = 24,     /**< day 30 or 31 of a leap February */
    KL_TIME_ASCII_TO_PROCESSING_DAY_OF_28_ERR = 25,     /**< day 29 to 31 of another February */
    KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR = 26,   /**< second 60 without a leap second */
    KL_TIME_ASCII_TO_PROCESSING_N_CODES = 27
};

/**
 * Reads a text.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  ascii_id_in    format of the text, KL_ASCII_*
 * @param[in]  time_ref_in    scale of the text, KL_TIME_*; with a prefix also KL_TIME_UNDEF
 * @param[in]  ascii_in       text of exactly the length of its format, then a NUL
 * @param[in]  proc_id_out    KL_PROC
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] time_out       MJD2000, days; may lie outside the processing range by the difference of the scales
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_ASCII_TO_PROCESSING_*, see there; what all nine conversions share stands above.
 */
KL_API long kl_time_ascii_to_processing(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                        const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                        double *time_out, long *ierr);

/**
 * Reads a text as people write it: its layout, and if it says so its scale, are seen from the text itself.
 *
 * @param[in]  time_id           time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  text              text of any layout below, then a NUL
 * @param[in]  time_ref_default  scale of a text that does not say its own, KL_TIME_*; KL_TIME_UNDEF: such a text is
 *                               refused
 * @param[in]  proc_id_out       KL_PROC
 * @param[in]  time_ref_out      scale of the output, 0 to 3
 * @param[out] time_out          MJD2000, days; may lie outside the processing range by the difference of the scales
 * @param[out] ierr              [1] error vector, to be decoded with KL_ID_FUNC_TIME_ASCII_TO_PROCESSING
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_ASCII_TO_PROCESSING_*, all but the first.
 *
 *     text   = blanks [ scale "=" ] date gap clock [ "Z" ] blanks
 *     scale  = "TAI" | "UTC" | "UT1" | "GPS"
 *     gap    = "T" | "_" | one blank
 *     date   = yyyy-mm-dd | yyyy-ddd | dd-MMM-yyyy        ddd: day of the year, 001 to 366
 *     clock  = hh:nn:ss [ "." one to nine digits ]        MMM: JAN to DEC, capital or small letters
 *     or, without signs between the fields:
 *     date   = yyyymmdd
 *     clock  = hhnnss [ six digits ]
 *     blanks = any number of blanks, tabs, carriage returns and line feeds
 *
 * These are all layouts of KL_ASCII_*, with the beginning- and end-of-mission texts, and the CCSDS codes A and B.
 * Fields have all their digits; nothing else is guessed: a date alone, a clock without seconds, 1/2/2020, 01-02-2020, a
 * comma, +01:00 and two-digit years are refused, and month and day are never exchanged. Z is UTC. A scale or a Z wins
 * over time_ref_default; both together must agree (PREFIX_REF_ERR). Decimals are rounded to the microsecond, halves up,
 * and carried: UTC 23:59:59.9999995 is the next midnight, or 23:59:60 where the day ends with a leap second. What
 * follows the clock is TOO_LONG_ERR, a dot without digits MICROSECOND_ERR, a wrong day of the year DAY_ERR; 2100, which
 * a rounding may reach, is YEAR_ERR.
 *
 * @code{.c}
 * const long scale = KL_TIME_UTC, processing = KL_PROC;
 * double days;
 * long ierr[1];
 * kl_time_text_to_processing(NULL, "2026-172T08:24:00Z", &scale, &processing, &scale, &days, ierr);   // 9668.35
 * kl_time_text_to_processing(NULL, " 21-jun-2026 20:24:00.0\n", &scale, &processing, &scale, &days, ierr); // 9668.85
 * @endcode
 */
KL_API long kl_time_text_to_processing(kl_time_id *time_id, const char *text, const long *time_ref_default,
                                       const long *proc_id_out, const long *time_ref_out, double *time_out, long *ierr);

/** Conditions of kl_time_ascii_to_transport, from api/formats.toml. */
enum {
    KL_TIME_ASCII_TO_TRANSPORT_ASCII_ID_IN_ERR = 0,    /**< input format is none of KL_ASCII_* */
    KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_IN_ERR = 1,    /**< input scale outside -1 to 3 */
    KL_TIME_ASCII_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2,   /**< output format is none of KL_TRANS_* */
    KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_OUT_ERR = 3,   /**< output scale outside 0 to 3, or not GPS */
    KL_TIME_ASCII_TO_TRANSPORT_YEAR_ERR = 4,           /**< year is not 1950 to 2099 */
    KL_TIME_ASCII_TO_TRANSPORT_TIME_ID_ERR = 5,        /**< scales differ, no initialised time id */
    KL_TIME_ASCII_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6,  /**< instant outside the table */
    KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_A_WARN = 7,    /**< left the table: by formula from here on */
    KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_B_A_WARN = 8,  /**< now in the gap between two bulletins */
    KL_TIME_ASCII_TO_TRANSPORT_VALIDITY_WARN = 9,      /**< left the validity of the time id */
    KL_TIME_ASCII_TO_TRANSPORT_LAYOUT_ERR = 10,        /**< separators of the format missing */
    KL_TIME_ASCII_TO_TRANSPORT_TOO_SHORT_ERR = 11,     /**< shorter than its format, or NULL */
    KL_TIME_ASCII_TO_TRANSPORT_TOO_LONG_ERR = 12,      /**< longer than its format */
    KL_TIME_ASCII_TO_TRANSPORT_PREFIX_ERR = 13,        /**< prefix is no "TAI=" "UTC=" "UT1=" "GPS=" */
    KL_TIME_ASCII_TO_TRANSPORT_PREFIX_REF_ERR = 14,    /**< prefix contradicts the input scale */
    KL_TIME_ASCII_TO_TRANSPORT_NO_REF_ERR = 15,        /**< KL_TIME_UNDEF and no prefix */
    KL_TIME_ASCII_TO_TRANSPORT_MISSION_LIMIT_ERR = 16, /**< year 0000 or 9999, but no limit */
    KL_TIME_ASCII_TO_TRANSPORT_MONTH_ERR = 17,         /**< month is not 01 to 12, JAN to DEC */
    KL_TIME_ASCII_TO_TRANSPORT_DAY_ERR = 18,           /**< day is not 01 to 31 */
    KL_TIME_ASCII_TO_TRANSPORT_HOUR_ERR = 19,          /**< hour is not 00 to 23 */
    KL_TIME_ASCII_TO_TRANSPORT_MINUTE_ERR = 20,        /**< minute is not 00 to 59 */
    KL_TIME_ASCII_TO_TRANSPORT_SECOND_ERR = 21,        /**< second is not 00 to 60 */
    KL_TIME_ASCII_TO_TRANSPORT_MICROSECOND_ERR = 22,   /**< microsecond is not a number */
    KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_30_ERR = 23,     /**< day 31 of a month of 30 */
    KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_29_ERR = 24,     /**< day 30 or 31 of a leap February */
    KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_28_ERR = 25,     /**< day 29 to 31 of another February */
    KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR = 26,   /**< second 60 without a leap second */
    KL_TIME_ASCII_TO_TRANSPORT_N_CODES = 27
};

/**
 * Reads a text into a transport time.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  ascii_id_in    format of the text, KL_ASCII_*
 * @param[in]  time_ref_in    scale of the text, KL_TIME_*; with a prefix also KL_TIME_UNDEF
 * @param[in]  ascii_in       text of exactly the length of its format, then a NUL
 * @param[in]  trans_id_out   format of the output, KL_TRANS_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] transport_out  [4] fields as the format has them, then zeros
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_ASCII_TO_TRANSPORT_*, see there; what all nine conversions share stands above.
 */
KL_API long kl_time_ascii_to_transport(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                       const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                       long transport_out[4], long *ierr);

/** Conditions of kl_time_processing_to_ascii, from api/formats.toml. */
enum {
    KL_TIME_PROCESSING_TO_ASCII_PROC_ID_IN_ERR = 0,       /**< input format is not KL_PROC */
    KL_TIME_PROCESSING_TO_ASCII_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_ASCII_ASCII_ID_OUT_ERR = 2,     /**< output format is none of KL_ASCII_* */
    KL_TIME_PROCESSING_TO_ASCII_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_ASCII_DAYS_ERR = 4,             /**< input outside its range, or NaN */
    KL_TIME_PROCESSING_TO_ASCII_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_PROCESSING_TO_ASCII_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_PROCESSING_TO_ASCII_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_PROCESSING_TO_ASCII_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_PROCESSING_TO_ASCII_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_PROCESSING_TO_ASCII_STANDARD_FORMAT_ERR = 10, /**< input not split into whole units */
    KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR = 11,     /**< output before 1950 */
    KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR = 12,      /**< output after 2099 */
    KL_TIME_PROCESSING_TO_ASCII_N_CODES = 13
};

/**
 * Writes a processing time as a text.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  proc_id_in     KL_PROC
 * @param[in]  time_ref_in    scale of the input: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  time_in        MJD2000, days, -18262.0 to 36524.0
 * @param[in]  ascii_id_out   format of the output, KL_ASCII_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] ascii_out      [KL_TIME_ASCII_LENGTH] text and a NUL
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_PROCESSING_TO_ASCII_*, see there; what all nine conversions share stands above.
 * The text is that of the nearest microsecond, whose rounding carries through to the year. A format without
 * microseconds cuts them off, so that 23:59:59.9 keeps its day.
 */
KL_API long kl_time_processing_to_ascii(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                        const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                        char *ascii_out, long *ierr);

/** Conditions of kl_time_processing_to_transport, from api/formats.toml. */
enum {
    KL_TIME_PROCESSING_TO_TRANSPORT_PROC_ID_IN_ERR = 0,       /**< input format is not KL_PROC */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2,     /**< output format is none of KL_TRANS_* */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3, or not GPS */
    KL_TIME_PROCESSING_TO_TRANSPORT_DAYS_ERR = 4,             /**< input outside its range, or NaN */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_PROCESSING_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_PROCESSING_TO_TRANSPORT_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_PROCESSING_TO_TRANSPORT_STANDARD_FORMAT_ERR = 10, /**< input not split into whole units */
    KL_TIME_PROCESSING_TO_TRANSPORT_N_CODES = 11
};

/**
 * Writes a processing time as a transport time.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  proc_id_in     KL_PROC
 * @param[in]  time_ref_in    scale of the input: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  time_in        MJD2000, days, -18262.0 to 36524.0
 * @param[in]  trans_id_out   format of the output, KL_TRANS_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] transport_out  [4] fields as the format has them, then zeros
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_PROCESSING_TO_TRANSPORT_*, see there; what all nine conversions share stands above.
 */
KL_API long kl_time_processing_to_transport(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                            const double *time_in, const long *trans_id_out, const long *time_ref_out,
                                            long transport_out[4], long *ierr);

/** Conditions of kl_time_transport_to_ascii, from api/formats.toml. */
enum {
    KL_TIME_TRANSPORT_TO_ASCII_TRANS_ID_IN_ERR = 0,      /**< input format is none of KL_TRANS_* */
    KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3, or not GPS */
    KL_TIME_TRANSPORT_TO_ASCII_ASCII_ID_OUT_ERR = 2,     /**< output format is none of KL_ASCII_* */
    KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3 */
    KL_TIME_TRANSPORT_TO_ASCII_DAYS_ERR = 4,             /**< day outside -18262 to 36524 */
    KL_TIME_TRANSPORT_TO_ASCII_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_TRANSPORT_TO_ASCII_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_TRANSPORT_TO_ASCII_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_TRANSPORT_TO_ASCII_LEAP_SECOND_ERR = 10,     /**< 61st second without a leap second */
    KL_TIME_TRANSPORT_TO_ASCII_SECONDS_ERR = 11,         /**< seconds of day not 0 to 86399 */
    KL_TIME_TRANSPORT_TO_ASCII_MILLISECONDS_ERR = 12,    /**< milliseconds of day not 0 to 86399999 */
    KL_TIME_TRANSPORT_TO_ASCII_MICROSECONDS_ERR = 13,    /**< not 0 to 999999, or 0 to 999 */
    KL_TIME_TRANSPORT_TO_ASCII_TICKS_ERR = 14,           /**< not 0 to 4294967295, or beyond 2099 */
    KL_TIME_TRANSPORT_TO_ASCII_WEEK_ERR = 15,            /**< GPS week outside -1566 to 6260 */
    KL_TIME_TRANSPORT_TO_ASCII_SECONDS_OF_WEEK_ERR = 16, /**< not 0 to 604799 */
    KL_TIME_TRANSPORT_TO_ASCII_FRACTION_ERR = 17,        /**< not 0 to 65535 */
    KL_TIME_TRANSPORT_TO_ASCII_GPS_SECONDS_ERR = 18,     /**< outside 1950 to 2099 */
    KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR = 19,     /**< output before 1950 */
    KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR = 20,      /**< output after 2099 */
    KL_TIME_TRANSPORT_TO_ASCII_N_CODES = 21
};

/**
 * Writes a transport time as a text.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  trans_id_in    format of the record, KL_TRANS_*
 * @param[in]  time_ref_in    scale of the record: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  transport_in   [4] fields as the format has them; those that it has not are not read
 * @param[in]  ascii_id_out   format of the output, KL_ASCII_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] ascii_out      [KL_TIME_ASCII_LENGTH] text and a NUL
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_TRANSPORT_TO_ASCII_*, see there; what all nine conversions share stands above.
 */
KL_API long kl_time_transport_to_ascii(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                       const long transport_in[4], const long *ascii_id_out, const long *time_ref_out,
                                       char *ascii_out, long *ierr);

/** Conditions of kl_time_transport_to_processing, from api/formats.toml. */
enum {
    KL_TIME_TRANSPORT_TO_PROCESSING_TRANS_ID_IN_ERR = 0,      /**< input format is none of KL_TRANS_* */
    KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3, or not GPS */
    KL_TIME_TRANSPORT_TO_PROCESSING_PROC_ID_OUT_ERR = 2,      /**< output format is not KL_PROC */
    KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3 */
    KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR = 4,             /**< day outside -18262 to 36524 */
    KL_TIME_TRANSPORT_TO_PROCESSING_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_TRANSPORT_TO_PROCESSING_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_TRANSPORT_TO_PROCESSING_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR = 10,     /**< 61st second without a leap second */
    KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_ERR = 11,         /**< seconds of day not 0 to 86399 */
    KL_TIME_TRANSPORT_TO_PROCESSING_MILLISECONDS_ERR = 12,    /**< milliseconds of day not 0 to 86399999 */
    KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR = 13,    /**< not 0 to 999999, or 0 to 999 */
    KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR = 14,           /**< not 0 to 4294967295, or beyond 2099 */
    KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR = 15,            /**< GPS week outside -1566 to 6260 */
    KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_OF_WEEK_ERR = 16, /**< not 0 to 604799 */
    KL_TIME_TRANSPORT_TO_PROCESSING_FRACTION_ERR = 17,        /**< not 0 to 65535 */
    KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR = 18,     /**< outside 1950 to 2099 */
    KL_TIME_TRANSPORT_TO_PROCESSING_N_CODES = 19
};

/**
 * Reads a transport time.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  trans_id_in    format of the record, KL_TRANS_*
 * @param[in]  time_ref_in    scale of the record: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  transport_in   [4] fields as the format has them; those that it has not are not read
 * @param[in]  proc_id_out    KL_PROC
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] time_out       MJD2000, days; may lie outside the processing range by the difference of the scales
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_TRANSPORT_TO_PROCESSING_*, see there; what all nine conversions share stands above.
 * Accuracy: a processing time holds a microsecond over the whole range, near 2099 just so (steps of 0.63
 * microseconds).
 */
KL_API long kl_time_transport_to_processing(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                            const long transport_in[4], const long *proc_id_out,
                                            const long *time_ref_out, double *time_out, long *ierr);

/** Conditions of kl_time_transport_to_transport, from api/formats.toml. */
enum {
    KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_IN_ERR = 0,      /**< input format is none of KL_TRANS_* */
    KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_IN_ERR = 1,      /**< input scale outside 0 to 3, or not GPS */
    KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2,     /**< output format is none of KL_TRANS_* */
    KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_OUT_ERR = 3,     /**< output scale outside 0 to 3, or not GPS */
    KL_TIME_TRANSPORT_TO_TRANSPORT_DAYS_ERR = 4,             /**< day outside -18262 to 36524 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_ID_ERR = 5,          /**< scales differ, no initialised time id */
    KL_TIME_TRANSPORT_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6,    /**< instant outside the table */
    KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_A_WARN = 7,      /**< left the table: by formula from here on */
    KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_B_A_WARN = 8,    /**< now in the gap between two bulletins */
    KL_TIME_TRANSPORT_TO_TRANSPORT_VALIDITY_WARN = 9,        /**< left the validity of the time id */
    KL_TIME_TRANSPORT_TO_TRANSPORT_LEAP_SECOND_ERR = 10,     /**< 61st second without a leap second */
    KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_ERR = 11,         /**< seconds of day not 0 to 86399 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_MILLISECONDS_ERR = 12,    /**< milliseconds of day not 0 to 86399999 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_MICROSECONDS_ERR = 13,    /**< not 0 to 999999, or 0 to 999 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_TICKS_ERR = 14,           /**< not 0 to 4294967295, or beyond 2099 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_WEEK_ERR = 15,            /**< GPS week outside -1566 to 6260 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_OF_WEEK_ERR = 16, /**< not 0 to 604799 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_FRACTION_ERR = 17,        /**< not 0 to 65535 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR = 18,     /**< outside 1950 to 2099 */
    KL_TIME_TRANSPORT_TO_TRANSPORT_N_CODES = 19
};

/**
 * Writes the instant of a transport time in another format, another scale or both.
 *
 * @param[in]  time_id        time correlation; needed when the scales differ, and for a 61st second
 * @param[in]  trans_id_in    format of the record, KL_TRANS_*
 * @param[in]  time_ref_in    scale of the record: KL_TIME_TAI, _UTC, _UT1 or _GPS
 * @param[in]  transport_in   [4] fields as the format has them; those that it has not are not read
 * @param[in]  trans_id_out   format of the output, KL_TRANS_*
 * @param[in]  time_ref_out   scale of the output, 0 to 3
 * @param[out] transport_out  [4] fields as the format has them, then zeros; may be the input record
 * @param[out] ierr           [1] error vector, bits as in the enumeration above
 * @return KL_OK, KL_WARN, or KL_ERR with the output untouched
 * Conditions: KL_TIME_TRANSPORT_TO_TRANSPORT_*, see there; what all nine conversions share stands above.
 */
KL_API long kl_time_transport_to_transport(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                           const long transport_in[4], const long *trans_id_out,
                                           const long *time_ref_out, long transport_out[4], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
