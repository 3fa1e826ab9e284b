/**
 * @file kl_lib.h
 * Base library of mission analysis for earth-observation satellites: time scales and formats, reference
 * frames, Sun, Moon and planets, Earth models and geoid, rotations, on-board time, satellite and run ids.
 *
 * Every public function takes its context as identifiers ("ids") that the caller initialises and closes,
 * and an error vector `ierr` as its last argument. It returns KL_OK, KL_WARN or KL_ERR; on KL_ERR the
 * outputs are not to be used. kl_get_code and kl_get_msg turn a vector into code numbers and texts.
 * Handles are zero-initialised by the caller before their first use: `kl_time_id time_id = {0};`.
 * NULL where a value is required is an input error like any other and never a crash.
 *
 * Units: metres, m/s and m/s2 for states; degrees for angles; days (MJD2000) for instants; seconds for
 * differences of time scales.
 */
#ifndef KL_LIB_H
#define KL_LIB_H

#include <stdint.h>

#if defined(__GNUC__)
#define KL_API __attribute__((visibility("default")))
#else
#define KL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- status, scales, formats, frames --------------------------------------------------------------- */

/** Status of a public function. */
enum {
    KL_OK = 0,   /**< nothing recorded */
    KL_WARN = 1, /**< at least one warning, no error */
    KL_ERR = -1  /**< an error: the outputs are not to be used */
};

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

/** Reference frames. */
enum {
    KL_BM2000 = 1, /**< barycentric, mean equator and equinox of J2000 */
    KL_HM2000 = 2, /**< heliocentric, mean equator and equinox of J2000 */
    KL_GM2000 = 3, /**< geocentric, mean equator and equinox of J2000 */
    KL_MOD = 4,    /**< geocentric, mean equator and equinox of date */
    KL_TOD = 5,    /**< geocentric, true equator and equinox of date */
    KL_PEF = 6,    /**< pseudo Earth-fixed: before polar motion */
    KL_EF = 7,     /**< Earth-fixed */
    KL_LIF = 8,    /**< launch inertial frame */
    KL_BM1950 = 9, /**< barycentric, mean equator and equinox of B1950 (FK4, without E-terms) */
    KL_GALACTIC = 10,
    KL_TEME = 11 /**< true equator, mean equinox of date */
};

/** Calculation modes of a state. */
enum { KL_CALC_POS = 1, KL_CALC_POS_VEL = 2, KL_CALC_POS_VEL_ACC = 3 };

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

/** Interpolation of quaternions. */
enum { KL_INTERPOL_SLERP = 0 };

/** Kinds of id. */
enum { KL_ID_RUN = 1, KL_ID_TIME = 2, KL_ID_MODEL = 3 };

/** CCSDS unsegmented time code. */
enum { KL_CUC_TIME_FIELD_ONLY = 0, KL_CUC_WITH_P_FIELD = 1 };
enum { KL_CUC_EPOCH_1958 = 0, KL_CUC_EPOCH_1980 = 1, KL_CUC_EPOCH_USER = 2 };

/** Sizes of callers' buffers. */
enum {
    KL_MSG_LENGTH = 512,       /**< characters of one message */
    KL_MAX_MSG = 256,          /**< slots of a message array: always all of them, since all are cleared */
    KL_MAX_CODES = 257,        /**< entries of a code array */
    KL_TIME_ASCII_LENGTH = 32, /**< characters of any text of a time, terminator included */
    KL_TRANSPORT_LENGTH = 4,   /**< longs of a transport time */
    KL_CUC_LENGTH = 19         /**< octets of the longest CUC with its P-field */
};

/**
 * Public function ids, for kl_get_code and kl_get_msg. The numbers are those of the family: functions that this header
 * does not declare are not in this library.
 */
enum {
    KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII = 0,
    KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT = 1,
    KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING = 2,
    KL_ID_FUNC_TIME_PROCESSING_TO_ASCII = 3,
    KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT = 4,
    KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING = 5,
    KL_ID_FUNC_TIME_ASCII_TO_ASCII = 6, /**< two words of error vector */
    KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT = 7,
    KL_ID_FUNC_TIME_ASCII_TO_PROCESSING = 8,
    KL_ID_FUNC_TIME_ADD = 9,
    KL_ID_FUNC_TIME_DIFF = 10,
    KL_ID_FUNC_TIME_OBT_TO_TIME = 11,
    KL_ID_FUNC_TIME_TIME_TO_OBT = 12,
    KL_ID_FUNC_TIME_REF_INIT_FILE = 13,
    KL_ID_FUNC_TIME_REF_INIT = 14,
    KL_ID_FUNC_TIME_ID_INIT = 15,
    KL_ID_FUNC_TIME_REF_CLOSE = 16, /**< kl_time_close */
    KL_ID_FUNC_CHANGE_CART_CS = 17,
    KL_ID_FUNC_GEOD_TO_CART = 18,
    KL_ID_FUNC_CART_TO_GEOD = 19,
    KL_ID_FUNC_KEPL_TO_CART = 20,
    KL_ID_FUNC_CART_TO_KEPL = 21,
    KL_ID_FUNC_SUN = 22,
    KL_ID_FUNC_MOON = 23,
    KL_ID_FUNC_PLANET = 24,
    KL_ID_FUNC_STAR_RADEC = 25,
    KL_ID_FUNC_GEOD_DISTANCE = 26,
    KL_ID_FUNC_TIME_GET_LEAP_SECOND_INFO = 27,
    KL_ID_FUNC_DEFAULT_SAT_INIT = 28,
    KL_ID_FUNC_RUN_INIT = 29,
    KL_ID_FUNC_GET_ROTATION_ANGLES = 30,
    KL_ID_FUNC_GET_ROTATED_VECTORS = 31,
    KL_ID_FUNC_POSITION_ON_ORBIT = 32,
    KL_ID_FUNC_QUATERNIONS_TO_VECTORS = 33,
    KL_ID_FUNC_VECTORS_TO_QUATERNIONS = 34,
    KL_ID_FUNC_STAR_CATALOG = 35,
    KL_ID_FUNC_CART_TO_RADEC = 36,
    KL_ID_FUNC_RADEC_TO_CART = 37,
    KL_ID_FUNC_ECLIPSE = 38,
    KL_ID_FUNC_COTICCHIA_SURACE = 39,
    /* 40 is unassigned */
    KL_ID_FUNC_MATRIX_TO_EULER = 41,
    KL_ID_FUNC_MODEL_INIT = 42,
    KL_ID_FUNC_MODEL_CLOSE = 43,
    KL_ID_FUNC_GEOID_CALC = 44,
    KL_ID_FUNC_QUATERNIONS_INTERPOL = 45,
    KL_ID_FUNC_TIME_CUC_TO_PROCESSING = 46,
    KL_ID_FUNC_TIME_PROCESSING_TO_CUC = 47
};

/* ---- handles and records --------------------------------------------------------------------------- */

/** Handle of a time id; zero-initialise it. */
typedef struct kl_time_id {
    void *record;
} kl_time_id;

/** Handle of a model id; zero-initialise it. */
typedef struct kl_model_id {
    void *record;
} kl_model_id;

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

/** Input of kl_geoid_calc. */
typedef struct kl_geoid_input {
    kl_model_id *model_id;
    double latitude;  /**< geodetic, deg, -90 to 90 */
    double longitude; /**< deg, 0 to 360 */
    double height;    /**< not read */
    long max_degree;  /**< 0 to 360 */
} kl_geoid_input;

/** On-board time of the Tarvos, Brisa and Vardo formats. */
typedef struct kl_obt_tarvos {
    long sat_id;
    unsigned long coarse;
    unsigned long fine;
} kl_obt_tarvos;
typedef kl_obt_tarvos kl_obt_brisa;
typedef kl_obt_tarvos kl_obt_vardo;

/** On-board time of the Kelda format. */
typedef struct kl_obt_kelda {
    long sat_id;
    double obt; /**< s */
} kl_obt_kelda;

/** Clock correlation of the Tarvos format. */
typedef struct kl_obt_param_tarvos {
    long sat_id;
    double ref_time;          /**< MJD2000, days */
    unsigned long ref_coarse; /**< counts */
    unsigned long ref_fine;   /**< 2^-32 count */
    unsigned long clock_step; /**< picoseconds a count */
} kl_obt_param_tarvos;

/** Clock correlation of the Kelda format. */
typedef struct kl_obt_param_kelda {
    long sat_id;
    unsigned long ref_time;     /**< s since 2000-01-01 */
    uint32_t ref_time_fraction; /**< 2^-16 s */
    unsigned long ref_obt;      /**< s */
    uint32_t ref_obt_fraction;  /**< 2^-16 s */
    double gain;
    double offset; /**< s */
} kl_obt_param_kelda;

/** Clock correlation of the Brisa format. */
typedef struct kl_obt_param_brisa {
    long sat_id;
    long offset; /**< s, subtracted */
    unsigned long ref_coarse;
    unsigned long ref_fine;        /**< 2^-16 */
    unsigned long week;            /**< GPS week */
    unsigned long seconds_of_week; /**< s */
    unsigned long fraction;        /**< 2^-16 s */
} kl_obt_param_brisa;

/** Clock correlation of the Vardo format. */
typedef struct kl_obt_param_vardo {
    long sat_id;
    long offset; /**< s */
} kl_obt_param_vardo;

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

/** Layout of a CUC. */
typedef struct kl_cuc_config {
    long cuc_type;       /**< KL_CUC_TIME_FIELD_ONLY or KL_CUC_WITH_P_FIELD */
    long epoch_type;     /**< KL_CUC_EPOCH_1958, _1980 or _USER */
    long epoch_time_ref; /**< scale of epoch, with KL_CUC_EPOCH_USER */
    double epoch;        /**< MJD2000, days, with KL_CUC_EPOCH_USER */
    long n_coarse;       /**< 1 to 7 octets */
    long n_fine;         /**< 0 to 10 octets */
} kl_cuc_config;

/* ---- errors ---------------------------------------------------------------------------------------- */

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
 * @param[out] codes    [KL_MAX_CODES] their numbers, ascending (bit numbers: the KL_*_ERR and KL_*_WARN constants)
 * @return 0, or -1 with a line on standard error when no function has the id
 */
KL_API long kl_get_code(const long *func_id, const long *ierr, long *n_codes, long *codes);

/**
 * Message texts of an error vector. Arguments of messages are not kept in a vector: numbers read 0 here.
 *
 * @param[in]  func_id  public function id, KL_ID_FUNC_*
 * @param[in]  ierr     vector of that function
 * @param[out] n_msg    number of messages; left as it is on failure
 * @param[out] msg      MUST HAVE ALL KL_MAX_MSG (256) SLOTS of 512 characters: every one of them is cleared
 * @return 0, or -1 with a line on standard error when no function has the id
 */
KL_API long kl_get_msg(const long *func_id, const long *ierr, long *n_msg, char msg[][512]);

/**
 * Prints messages on standard error, a line each.
 *
 * @param[in] n_msg  number of messages, at most KL_MAX_MSG; below 1 prints nothing
 * @param[in] msg    the messages
 * @return 0, or -1 when there are too many or printing fails
 */
KL_API long kl_print_msg(const long *n_msg, char msg[][512]);

/** Frees an array that the library allocated for the caller and sets the pointer to NULL; NULL does nothing. */
KL_API void kl_free_array(void **array);

/**
 * Prints the versions of the file-handling library, the data-handling library and this one on standard output, and a
 * line for each pair that does not fit together, with the versions that would.
 *
 * @return 0, or -1 when a pair does not fit (or there is no memory to find out)
 */
KL_API long kl_check_library_version(void);

/* ---- time: ids ------------------------------------------------------------------------------------- */

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

/* ---- time: processing format ----------------------------------------------------------------------- */

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

/* ---- time: the nine conversions between processing times, texts and transport times -------------------- */

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
 * - A NULL format or scale is a wrong one, a NULL text too short, any other NULL input out of range in its first
 *   field; a NULL output gives KL_ERR and a clear vector.
 */

/** Conditions of kl_time_processing_to_processing. */
enum {
    KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR = 0,      /**< input format is not KL_PROC */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR = 1,     /**< input scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR = 2,     /**< output format is not KL_PROC */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR = 3,    /**< output scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR = 4,            /**< input outside its range, or NaN */
    KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR = 5,         /**< scales differ, no initialised time id */
    KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN = 6,   /**< instant outside the table */
    KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN = 7,     /**< left the table: by formula from here on */
    KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_B_A_WARN = 8,   /**< now in the gap between two bulletins */
    KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN = 9,       /**< left the validity of the time id */
    KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR = 10 /**< input not split into whole units */
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

/** Conditions of kl_time_ascii_to_ascii. */
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
    KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR = 33     /**< output after 2099 */
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

/** Conditions of kl_time_ascii_to_processing. */
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
    KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR = 26    /**< second 60 without a leap second */
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

/** Conditions of kl_time_ascii_to_transport. */
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
    KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR = 26    /**< second 60 without a leap second */
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

/** Conditions of kl_time_processing_to_ascii. */
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
    KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR = 12       /**< output after 2099 */
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

/** Conditions of kl_time_processing_to_transport. */
enum {
    KL_TIME_PROCESSING_TO_TRANSPORT_PROC_ID_IN_ERR = 0,      /**< input format is not KL_PROC */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_IN_ERR = 1,     /**< input scale outside 0 to 3 */
    KL_TIME_PROCESSING_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2,    /**< output format is none of KL_TRANS_* */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_OUT_ERR = 3,    /**< output scale outside 0 to 3, or not GPS */
    KL_TIME_PROCESSING_TO_TRANSPORT_DAYS_ERR = 4,            /**< input outside its range, or NaN */
    KL_TIME_PROCESSING_TO_TRANSPORT_TIME_ID_ERR = 5,         /**< scales differ, no initialised time id */
    KL_TIME_PROCESSING_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6,   /**< instant outside the table */
    KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_A_WARN = 7,     /**< left the table: by formula from here on */
    KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_B_A_WARN = 8,   /**< now in the gap between two bulletins */
    KL_TIME_PROCESSING_TO_TRANSPORT_VALIDITY_WARN = 9,       /**< left the validity of the time id */
    KL_TIME_PROCESSING_TO_TRANSPORT_STANDARD_FORMAT_ERR = 10 /**< input not split into whole units */
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

/** Conditions of kl_time_transport_to_ascii. */
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
    KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR = 20       /**< output after 2099 */
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

/** Conditions of kl_time_transport_to_processing. */
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
    KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR = 18      /**< outside 1950 to 2099 */
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

/** Conditions of kl_time_transport_to_transport. */
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
    KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR = 18      /**< outside 1950 to 2099 */
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

/* ---- time: on-board clocks --------------------------------------------------------------------------- */

/** Conditions of kl_time_obt_to_time. */
enum {
    KL_TIME_OBT_TO_TIME_SAT_ID_ERR = 0,     /**< no such satellite */
    KL_TIME_OBT_TO_TIME_TIME_REF_ERR = 1,   /**< time reference outside 0 to 3 */
    KL_TIME_OBT_TO_TIME_TAG_ERR = 2,        /**< parameters or on-board time of another satellite, or NULL */
    KL_TIME_OBT_TO_TIME_REF_TIME_ERR = 3,   /**< reference time outside -18262.0 to 36524.0 */
    KL_TIME_OBT_TO_TIME_NO_OBT_ERR = 4,     /**< a satellite without an on-board-time format */
    KL_TIME_OBT_TO_TIME_OBT_ERR = 5,        /**< never recorded */
    KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR = 6, /**< clock step 0 */
    KL_TIME_OBT_TO_TIME_TIME_ERR = 7        /**< result outside -18262.0 to 36524.0 */
};

/**
 * Processing time of a reading of an on-board clock.
 *
 * | satellite | parameters            | obt             | clock                                                      |
 * |-----------|-----------------------|-----------------|------------------------------------------------------------|
 * | 21        | kl_obt_param_tarvos   | kl_obt_tarvos   | counts of a step in picoseconds, fine 2^-32 count, wraps    |
 * | 51        | kl_obt_param_vardo    | kl_obt_vardo    | seconds since 1980-01-06 plus the offset, fine 2^-16 s      |
 * | 61        | kl_obt_param_kelda    | kl_obt_kelda    | seconds with gain and offset                               |
 * | 71        | kl_obt_param_brisa    | kl_obt_brisa    | seconds from a GPS week and its second, fine 2^-16 s        |
 *
 * @param[in]  sat_id      21, 51, 61 or 71
 * @param[in]  time_ref    KL_TIME_TAI to KL_TIME_GPS: the scale that the parameters speak of; no conversion is made
 * @param[in]  parameters  record of the satellite's format; its sat_id must be the satellite's
 * @param[in]  obt         record of the satellite's format; its sat_id must be the satellite's
 * @param[out] time        MJD2000, days
 * @param[out] ierr        [1] KL_TIME_OBT_TO_TIME_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when time is NULL
 * Checked in the order: satellite id, ids of the records, a format for the satellite, time reference, reference time,
 * clock step, result.
 *
 * The Tarvos counter starts again after 2^32 counts: a difference of more than half a turn from the reference counts
 * the other way round.
 */
KL_API long kl_time_obt_to_time(const long *sat_id, const long *time_ref, const void *parameters, const void *obt,
                                double *time, long *ierr);

/** Conditions of kl_time_time_to_obt. */
enum {
    KL_TIME_TIME_TO_OBT_SAT_ID_ERR = 0,    /**< no such satellite */
    KL_TIME_TIME_TO_OBT_TIME_REF_ERR = 1,  /**< time reference outside 0 to 3 */
    KL_TIME_TIME_TO_OBT_TAG_ERR = 2,       /**< parameters or on-board time of another satellite, or NULL */
    KL_TIME_TIME_TO_OBT_TIME_ERR = 3,      /**< time outside -18262.0 to 36524.0 */
    KL_TIME_TIME_TO_OBT_REF_TIME_ERR = 4,  /**< reference time outside that range */
    KL_TIME_TIME_TO_OBT_NO_OBT_ERR = 5,    /**< a satellite without an on-board-time format */
    KL_TIME_TIME_TO_OBT_OBT_ERR = 6,       /**< a count below 0 or beyond 64 bits, or not finite (a gain of 0) */
    KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR = 7 /**< clock step 0 */
};

/**
 * Reading of an on-board clock at a processing time: the inverse of kl_time_obt_to_time, with its records.
 *
 * @param[in]     sat_id      21, 51, 61 or 71
 * @param[in]     time_ref    KL_TIME_TAI to KL_TIME_GPS: the scale that the parameters speak of; no conversion is made
 * @param[in]     parameters  record of the satellite's format; its sat_id must be the satellite's
 * @param[in]     time        MJD2000, days, -18262.0 to 36524.0
 * @param[in,out] obt         record of the satellite's format. THE CALLER SETS ITS sat_id to the satellite's before the
 *                            call (the records have different sizes); the counts are filled
 * @param[out]    ierr        [1] KL_TIME_TIME_TO_OBT_*
 * @return KL_OK or KL_ERR, then with the counts as they were
 * Checked in the order: satellite id, ids of the records, a format for the satellite, time reference, time, reference
 * time, clock step, result.
 *
 * Fine counts are cut, not rounded. Tarvos counts come out from 0 up to 2^32.
 */
KL_API long kl_time_time_to_obt(const long *sat_id, const long *time_ref, const void *parameters, const double *time,
                                void *obt, long *ierr);

/** Conditions of kl_time_cuc_to_processing. */
enum {
    KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR = 0,  /**< time id, CUC type, octet counts, epoch type or time reference */
    KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR = 1, /**< time-code identification other than 001 and 010 */
    KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR = 2    /**< the epoch cannot be converted to the time reference */
};

/**
 * Processing time of a CCSDS unsegmented time code.
 *
 * @param[in]  time_id   initialised time id
 * @param[in]  config    layout. With KL_CUC_WITH_P_FIELD the octet counts and the epoch type come from the P-field; the
 *                       epoch type given here must be a valid one all the same, and serves for nothing
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS: scale of the result
 * @param[in]  cuc       P-field (one octet, or two where bit 7 of the first is set), if any, and time field, highest
 *                       octet first: at most KL_CUC_LENGTH octets; all that it announces must be there
 * @param[out] time      MJD2000, days; its range is not checked
 * @param[out] ierr      [1] KL_TIME_CUC_TO_PROCESSING_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when cuc or time is NULL
 *
 * Epochs: KL_CUC_EPOCH_1958 is 1958-01-01 TAI, KL_CUC_EPOCH_1980 is 1980-01-06 GPS, KL_CUC_EPOCH_USER the one of the
 * configuration. It is converted to the scale of the result, to the microsecond, and the seconds are added there.
 * Converting it is a conversion like any other for the once-only warnings of the time id, and gives none itself.
 * Source: CCSDS 301.0-B, section on the unsegmented time code.
 */
KL_API long kl_time_cuc_to_processing(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                                      const unsigned char *cuc, double *time, long *ierr);

/** Conditions of kl_time_processing_to_cuc. */
enum {
    KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR = 0, /**< as above; also seconds that do not fit the coarse octets */
    KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR = 1,  /**< the epoch cannot be converted to the time reference */
    KL_TIME_PROCESSING_TO_CUC_TIME_ERR = 2,   /**< time before the epoch, or NaN */
    KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR = 3 /**< no P-field says KL_CUC_EPOCH_1980 */
};

/**
 * CCSDS unsegmented time code of a processing time.
 *
 * @param[in]  time_id   initialised time id
 * @param[in]  config    layout, octet counts and epoch
 * @param[in]  time_ref  KL_TIME_TAI to KL_TIME_GPS: scale of the time
 * @param[in]  time      MJD2000, days, not before the epoch
 * @param[out] cuc       P-field, if any, and time field; KL_CUC_LENGTH octets hold every layout
 * @param[out] ierr      [1] KL_TIME_PROCESSING_TO_CUC_*
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when cuc is NULL
 *
 * The seconds are rounded to the last fine octet, halves up, with the carry into the coarse octets; seconds that then
 * do not fit are an error and never a smaller number. Epochs and source as above.
 */
KL_API long kl_time_processing_to_cuc(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                                      const double *time, unsigned char *cuc, long *ierr);

/* ---- Earth models ------------------------------------------------------------------------------------ */

/** Conditions of kl_model_init. */
enum {
    KL_MODEL_INIT_INITIALISED_ERR = 0, /**< the handle is already initialised */
    KL_MODEL_INIT_MEMORY_ERR = 1,
    KL_MODEL_INIT_SELECTION_ERR = 2, /**< a selection that is not offered, or none given; its text shows a bare "%s" */
    KL_MODEL_INIT_N_CODES
};

/**
 * Selects the models of the Earth and the sky. The record does not change afterwards and may be read by any thread.
 *
 * @param[in]     mode      KL_MODEL_DEFAULT (all selections 0; so does any number but 1) or KL_MODEL_USER
 * @param[in]     models    [9] selections in the order of KL_MODEL_EARTH ... with KL_MODEL_USER: 0, and for the Sun 0
 * or 1, for light propagation 0, 1 or 2; not read (may be NULL) in the default mode
 * (the Sun of 1 is the Sun of 0; the light propagation is recorded for other libraries of the family and changes
 * nothing in this one)
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

/** Conditions of kl_model_close. */
enum {
    KL_MODEL_CLOSE_ERR = 0, /**< not initialised, or in use by another id or object */
    KL_MODEL_CLOSE_N_CODES
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

/* ---- geoid ------------------------------------------------------------------------------------------- */

/** Conditions of kl_geoid_calc and kl_geoid_grid. */
enum {
    KL_GEOID_CALC_DEGREE_ERR = 0,     /**< maximum degree outside 0 to 360 */
    KL_GEOID_CALC_LATITUDE_ERR = 1,   /**< latitude outside -90 to 90, or NaN */
    KL_GEOID_CALC_LONGITUDE_ERR = 2,  /**< longitude outside 0 to 360, or NaN */
    KL_GEOID_CALC_COMPUTATION_ERR = 3 /**< the model has no geoid (its Earth was refused), or no memory */
};

/**
 * Geoid undulation: height of the geoid above the WGS84 ellipsoid, from the EGM96 expansion.
 *
 * @param[in]  inputs      model id (NULL or uninitialised: the default model, for this call), geodetic latitude -90 to
 *                         90 deg, longitude 0 to 360 deg (360 is accepted and gives the value of 0), a height that is
 *                         not read, maximum degree 0 to 360 of the expansion
 * @param[out] undulation  m; not touched on an error
 * @param[out] ierr        [1] error vector, bits as below
 * @return KL_OK, or KL_ERR; KL_ERR with a clear vector when inputs or undulation is NULL
 * Conditions (bit): KL_GEOID_CALC_DEGREE_ERR 0, _LATITUDE_ERR 1, _LONGITUDE_ERR 2, _COMPUTATION_ERR 3; all errors. The
 * degree is checked first, then the latitude.
 * The correction from height anomaly to undulation and the term of degree zero, -0.53 m, are in the value. Degrees 0
 * and 1 leave these two alone. Rounding: below 1e-12 m at the 140 points and degrees of the reference; the model itself
 * is good to half a metre or a metre.
 * The same bits on every machine of one C library, whatever its vector instructions; nothing is kept between calls, and
 * any number of threads may call. For many points on few parallels kl_geoid_grid is dozens of times faster.
 * Source: Lemoine et al., NASA/TP-1998-206861 (1998); Rapp, J. Geodesy 71, 282-289 (1997); the published EGM96
 * undulation program (F477).
 */
KL_API long kl_geoid_calc(const kl_geoid_input *inputs, double *undulation, long *ierr);

/**
 * Geoid undulations of a grid: as kl_geoid_calc, with the same bits in every node, the Legendre functions computed once
 * a parallel.
 *
 * @param[in]  model_id    as in kl_geoid_calc
 * @param[in]  max_degree  0 to 360
 * @param[in]  lat         [n_lat] geodetic latitudes, deg, -90 to 90, in any order
 * @param[in]  n_lat       number of parallels; 0 does nothing
 * @param[in]  lon         [n_lon] longitudes, deg, 0 to 360, in any order
 * @param[in]  n_lon       number of meridians; 0 does nothing
 * @param[out] undulation  [n_lat * n_lon] m, row by row of latitude; not touched when a check fails
 * @param[out] ierr        [1] error vector of kl_geoid_calc: decode it with KL_ID_FUNC_GEOID_CALC
 * @return KL_OK, or KL_ERR; KL_ERR with a clear vector when undulation is NULL
 * Conditions: those of kl_geoid_calc, in its order; all latitudes are checked before the longitudes. A NULL array, a
 * NULL count or a negative one is the condition of that coordinate, a NULL degree that of the degree.
 */
KL_API long kl_geoid_grid(kl_model_id *model_id, const long *max_degree, const double *lat, const long *n_lat,
                          const double *lon, const long *n_lon, double *undulation, long *ierr);

/* ---- frames ------------------------------------------------------------------------------------------ */

/** Conditions of kl_change_cart_cs. */
enum {
    KL_CHANGE_CART_CS_TIME_REF_ERR = 0,  /**< time reference not 0 to 3, or NULL */
    KL_CHANGE_CART_CS_DATE_ERR = 1,      /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_CHANGE_CART_CS_CALC_MODE_ERR = 2, /**< mode not 1 to 3, or NULL */
    KL_CHANGE_CART_CS_CS_IN_ERR = 3,     /**< frame not 1 to 11, or NULL */
    KL_CHANGE_CART_CS_CS_OUT_ERR = 4,    /**< frame not 1 to 11, or NULL */
    KL_CHANGE_CART_CS_TIME_ID_ERR = 5,   /**< the time cannot be brought to UT1 */
    KL_CHANGE_CART_CS_FORMULA_WARN = 6,  /**< once, when a call leaves the table for the UT1-UTC formula */
    KL_CHANGE_CART_CS_GAP_WARN = 7,      /**< once, when a call enters the gap between two bulletins */
    KL_CHANGE_CART_CS_VALIDITY_WARN = 8, /**< once, when a call leaves the validity of the table */
    KL_CHANGE_CART_CS_TAI_ERR = 9,       /**< the time cannot be brought to TAI; the outputs are written by then */
    KL_CHANGE_CART_CS_TRANSFORMATION_ERR = 10, /**< a model id without the routine (refused init), or no way to TDB */
    KL_CHANGE_CART_CS_LIF_ERR = 11,            /**< KL_LIF: no time id of this library holds its reference */
    KL_CHANGE_CART_CS_N_CODES
};

/**
 * Carries a position, velocity and acceleration from one reference frame to another.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  time_id    initialised time correlation
 * @param[in]  calc_mode  KL_CALC_POS, KL_CALC_POS_VEL or KL_CALC_POS_VEL_ACC: outputs above the mode are zero
 * @param[in]  cs_in      frame of the input, KL_BM2000 to KL_TEME
 * @param[in]  cs_out     frame of the output
 * @param[in]  time_ref   scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time       MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos        [3] m
 * @param[in]  vel        [3] m/s; read in every mode
 * @param[in]  acc        [3] m/s2; read in every mode
 * @param[out] pos_out    [3] m; may be pos
 * @param[out] vel_out    [3] m/s, the derivative in the output frame; may be vel
 * @param[out] acc_out    [3] m/s2; may be acc. Between barycentric, heliocentric and geocentric frames the acceleration
 *                        of the origin is taken as zero
 * @param[out] ierr       [1] error vector, bits KL_CHANGE_CART_CS_*
 * @return KL_OK, KL_WARN or KL_ERR; on KL_ERR the outputs are untouched, except with KL_CHANGE_CART_CS_TAI_ERR. NULL
 * for one of the six vectors is KL_ERR with no bit.
 *
 * An uninitialised time id is KL_CHANGE_CART_CS_TIME_ID_ERR, but for a time in UT1, which fails only on the way to TDB
 * (KL_CHANGE_CART_CS_TRANSFORMATION_ERR) or to TAI (KL_CHANGE_CART_CS_TAI_ERR); equal frames ask for the time id too.
 * The warnings of the chain behind (true of date, acceleration of the origin) have no bit and leave KL_OK: they are
 * lines of the verbose mode. KL_LIF to KL_LIF copies.
 *
 * Galactic frames carry positions only: velocity and acceleration come out as zero. BM1950 is without E-terms.
 * Precession IAU 1976, nine terms of nutation, GMST 1982; UT1 serves for TT there. GM2000 to EF at 7000 km, 1990 to
 * 2030: 0.5 m rms and 1.4 m at most from the full IAU 1976/1980/1982 theory.
 */
KL_API long kl_change_cart_cs(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs_in,
                              const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                              const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                              double acc_out[3], long *ierr);

/* ---- Sun, Moon and planets --------------------------------------------------------------------------- */

/** Conditions of kl_sun. */
enum {
    KL_SUN_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_SUN_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_SUN_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_SUN_BODY_ERR = 3,         /**< the Sun could not be computed: the model id holds no routine (refused init) */
    KL_SUN_TDB_ERR = 4,          /**< no conversion to UT1; the text speaks of TDB */
    KL_SUN_PROC_TO_PROC_ERR = 5, /**< never set */
    KL_SUN_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_SUN_N_CODES
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
 * UT1. An instant outside the table of the time id gives a complete result and no condition. Geometric: no light time,
 * no aberration. The astronomical unit is the rounded 1.496e11 m: lengths and velocities are 1.4233e-5 of themselves
 * too large (2129 km).
 * Accuracy over 1950-2099, at most: 2.67" and 878 km from a full theory (ERFA's EPV00 on IAU 2006/2000A axes), the unit
 * of length apart; velocity 0.51 m/s before the axes turn, 142 m/s after, since a direction turns with them.
 * Source: P. Stumpff, Astron. Astrophys. Suppl. Ser. 41, 1-8 (1980).
 */
KL_API long kl_sun(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time,
                   double sun_pos[3], double sun_vel[3], long *ierr);

/** Conditions of kl_moon. */
enum {
    KL_MOON_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_MOON_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_MOON_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_MOON_BODY_ERR = 3,         /**< the Moon could not be computed: the model id holds no routine (refused init) */
    KL_MOON_TDB_ERR = 4,          /**< never set */
    KL_MOON_PROC_TO_PROC_ERR = 5, /**< no conversion to UT1 */
    KL_MOON_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_MOON_N_CODES
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
 * time, no aberration. The astronomical unit is the rounded 1.496e11 m (5.5 km at the Moon).
 * Accuracy over 1950-2099, at most: 20.7" and 45 km from a full theory (ELP 2000-82B on IAU 2006/2000A axes), half the
 * time within 3.2" and 7 km, the unit of length apart; velocity 0.32 m/s before the axes turn, 3.3 m/s after.
 * Source: J. Meeus, l'Astronomie, June 1984, p. 348.
 */
KL_API long kl_moon(kl_model_id *model_id, kl_time_id *time_id, const long *time_ref, const double *time,
                    double moon_pos[3], double moon_vel[3], long *ierr);

/** Conditions of kl_planet. */
enum {
    KL_PLANET_TIME_REF_ERR = 0,     /**< time reference not 0 to 3, or NULL */
    KL_PLANET_DATE_ERR = 1,         /**< date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_PLANET_TIME_ID_ERR = 2,      /**< time not in TAI and the time id not initialised */
    KL_PLANET_CODE_ERR = 3,         /**< planet not 1 to 8, or NULL */
    KL_PLANET_TDB_ERR = 4,          /**< never set */
    KL_PLANET_PROC_TO_PROC_ERR = 5, /**< no conversion to UT1 */
    KL_PLANET_FRAME_ERR = 6,        /**< no change to the Earth-fixed frame */
    KL_PLANET_CONVERGENCE_WARN = 7, /**< Kepler's equation not solved; not within the range of dates */
    KL_PLANET_N_CODES
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
 * 1.4233e-5 too large.
 * Accuracy: the theory's own claim for 1800-2050, heliocentric longitude, Mercury to Neptune: 4", 5", 6", 17", 71",
 * 81", 86", 11". Seen from the Earth over 1950-2099, at most, from a full theory (VSOP87): 5.0", 13.9", 6300 km (the
 * barycentre), 62", 54", 89", 91", 10.5". Of this the Earth makes up to 8.4" (Venus) and 1930 km.
 * Source: J. L. Simon, P. Bretagnon, J. Chapront, M. Chapront-Touze, G. Francou, J. Laskar, Astron. Astrophys. 282, 663
 * (1994); the Earth as in kl_sun.
 */
KL_API long kl_planet(kl_model_id *model_id, kl_time_id *time_id, const long *planet_id, const long *time_ref,
                      const double *time, double planet_pos[3], double planet_vel[3], long *ierr);

/* ---- rotations and quaternions ----------------------------------------------------------------------- */

/*
 * Convention. A quaternion (q0, q1, q2, q3) has its vector part first and its scalar last. Its attitude matrix is
 *
 *     q0^2-q1^2-q2^2+q3^2   2(q0q1+q2q3)           2(q0q2-q1q3)
 *     2(q0q1-q2q3)          -q0^2+q1^2-q2^2+q3^2   2(q1q2+q0q3)
 *     2(q0q2+q1q3)          2(q1q2-q0q3)           -q0^2-q1^2+q2^2+q3^2
 *
 * and the axis vectors x, y, z are its columns. Worked: q = (0, 0, sin 45 deg, cos 45 deg) = (0, 0, 0.7071, 0.7071)
 * gives x = (0, -1, 0), y = (1, 0, 0), z = (0, 0, 1): a quarter turn about z as a change of axes.
 */

/** Conditions of kl_quaternions_to_vectors. */
enum { KL_QUATERNIONS_TO_VECTORS_MODULE_ERR = 0, KL_QUATERNIONS_TO_VECTORS_N_CODES };

/**
 * Axis vectors of a quaternion.
 *
 * @param[in]  q        [4] unit quaternion within 1e-6, scalar last; used as given, not normalised
 * @param[out] x, y, z  [3] columns of the attitude matrix
 * @param[out] ierr     [1] KL_QUATERNIONS_TO_VECTORS_MODULE_ERR: not of unit length; NaN, NULL
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when an output is NULL
 */
KL_API long kl_quaternions_to_vectors(const double q[4], double x[3], double y[3], double z[3], long *ierr);

/** Conditions of kl_vectors_to_quaternions. */
enum {
    KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR = 0,     /**< a null vector, or a left-handed set; NULL */
    KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR = 1, /**< not orthogonal within 1e-6; NaN */
    KL_VECTORS_TO_QUATERNIONS_N_CODES
};

/**
 * Quaternion of three axis vectors (trace, or Shepperd's method).
 *
 * @param[in]  x, y, z  [3] right-handed orthogonal set, any lengths above 1e-10 (a null vector has less); normalised on
 *                      copies
 * @param[out] q        [4] unit quaternion, scalar last
 * @param[out] ierr     [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when q is NULL
 */
KL_API long kl_vectors_to_quaternions(const double x[3], const double y[3], const double z[3], double q[4], long *ierr);

/** Conditions of kl_quaternions_interpol. */
enum {
    KL_QUATERNIONS_INTERPOL_RANGE_WARN = 0,    /**< t outside [t1, t2]: extrapolated */
    KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR = 1, /**< mode inside the interval, or numbers that allow no algorithm */
    KL_QUATERNIONS_INTERPOL_N_CODES
};

/**
 * Quaternion at a time between two (SLERP), or beyond them by the rotation between the two.
 *
 * @param[in]     mode  KL_INTERPOL_SLERP; not looked at when t lies outside [t1, t2]
 * @param[in]     t1    time of q1, any unit
 * @param[in]     q1    [4] unit quaternion
 * @param[in]     t2    time of q2
 * @param[in,out] q2    [4] unit quaternion; ON PURPOSE NEGATED IN PLACE when it interpolates from the other half
 * @param[in]     t     time wanted
 * @param[out]    q     [4] unit quaternion
 * @param[out]    ierr  [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR. NaN, infinities, null quaternions, lengths with a product above 1e125 and t1 = t2
 *         with another t are KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR, as a NULL mode is where it counts; KL_ERR with a
 *         clear vector when another argument is NULL
 */
KL_API long kl_quaternions_interpol(const long *mode, const double *t1, const double q1[4], const double *t2,
                                    double q2[4], const double *t, double q[4], long *ierr);

/**
 * Matrix of three rotation angles a0, a1, a2 (about x, y and z).
 *
 * @param[in]  angles  [3] deg; angles that are not finite give a matrix of NaN
 * @param[out] matrix  [9] row by row, with s and c the sines and cosines:
 *                     c1c2+s0s1s2, c0s2, s1c2-s0c1s2 / -c1s2+s0s1c2, c0c2, -s1s2-s0c1c2 / -c0s1, s0, c0c1.
 *                     In frame rotations that is Rz(a2) Rx(-a0) Ry(-a1). Angles (0, 0, 90) give
 *                     0 1 0 / -1 0 0 / 0 0 1: the components of a fixed vector in axes turned by 90 deg about z
 * @param[out] ierr    [1] cleared; there are no conditions and the function has no public id
 * @return KL_OK (KL_ERR for NULL)
 */
KL_API long kl_euler_to_matrix(const double angles[3], double matrix[9], long *ierr);

/** Conditions of kl_matrix_to_euler. */
enum {
    KL_MATRIX_TO_EULER_ROTATION_ERR = 0,    /**< not a rotation within 1e-9 */
    KL_MATRIX_TO_EULER_AMBIGUITY_WARN = 1,  /**< a0 is +-90 deg: only a sum of the others is known, a2 = 0 */
    KL_MATRIX_TO_EULER_ORTHONORMAL_ERR = 2, /**< rows not orthonormal within 1e-6; NaN, NULL */
    KL_MATRIX_TO_EULER_N_CODES
};

/**
 * Rotation angles of a matrix, the inverse of kl_euler_to_matrix.
 *
 * @param[in]  matrix  [9] row by row
 * @param[out] angles  [3] deg in (-180, 180]; on purpose 270 for a0 = -90 deg in the ambiguous case
 * @param[out] ierr    [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR; KL_ERR with a clear vector when angles is NULL
 */
KL_API long kl_matrix_to_euler(const double matrix[9], double angles[3], long *ierr);

/** Conditions of kl_get_rotation_angles. */
enum {
    KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR = 0, /**< a set is not orthogonal within 1e-6, or has a null vector */
    KL_GET_ROTATION_ANGLES_ROTATION_ERR = 1,   /**< the sets are of different hands */
    KL_GET_ROTATION_ANGLES_N_CODES
};

/**
 * Angles of the rotation from one set of axes to another: with M = kl_euler_to_matrix(angles), M has the axes of set 2
 * as its rows, in components along set 1 (v2 = M v1).
 *
 * @param[in]  x1, y1, z1  [3] first set, orthogonal; any lengths
 * @param[in]  x2, y2, z2  [3] second set
 * @param[out] angles      [3] deg, as kl_matrix_to_euler gives them; at a0 = +-90 deg a2 is 0, without a warning
 * @param[out] ierr        [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when angles is NULL
 */
KL_API long kl_get_rotation_angles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                   const double y2[3], const double z2[3], double angles[3], long *ierr);

/** Conditions of kl_get_rotated_vectors. */
enum {
    KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR = 0, /**< the set is not orthogonal within 1e-6, or has a null vector */
    KL_GET_ROTATED_VECTORS_ROTATION_ERR = 1,   /**< angles that are not finite */
    KL_GET_ROTATED_VECTORS_N_CODES
};

/**
 * Axes turned by three angles, the inverse of kl_get_rotation_angles.
 *
 * @param[in]  x1, y1, z1  [3] orthogonal set, any lengths
 * @param[in]  angles      [3] deg
 * @param[out] x2, y2, z2  [3] unit axes of the turned set; may be those of the first
 * @param[out] ierr        [1] error vector
 * @return KL_OK or KL_ERR; KL_ERR with a clear vector when an output is NULL
 */
KL_API long kl_get_rotated_vectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                   double x2[3], double y2[3], double z2[3], long *ierr);

/* ---- satellites -------------------------------------------------------------------------------------- */

/*
 * Satellite ids: 0 to 9 default satellites, filled at run time; 11, 12, 21, 31, 32, 33, 41, 51, 61, 71, 81, 91, 101 to
 * 103, 110 to 113, 120 and 125 to 154 the fixed missions; 200 a generic low orbit; 300 a generic geostationary one, 301
 * a geostationary mission; from 400 on every id whose remainder modulo 400 is below 100 the generic medium Earth orbit.
 * Every other id is invalid. The tables behind them are process-wide: only the reservation of a default satellite is
 * locked, so nobody may use a satellite while another thread fills or closes it.
 */

/** Conditions of kl_default_sat_init. */
enum {
    KL_DEFAULT_SAT_INIT_NO_SLOT_ERR = 0, /**< all ten default satellites are in use */
    KL_DEFAULT_SAT_INIT_FILE_ERR = 1,    /**< the file is missing or wrong; its reader says where on standard error */
    KL_DEFAULT_SAT_INIT_LOCK_ERR = 2,    /**< the table could not be locked */
    KL_DEFAULT_SAT_INIT_UNLOCK_ERR = 3   /**< never recorded */
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

/* ---- runs -------------------------------------------------------------------------------------------- */

/*
 * A run groups a satellite id, a time id and perhaps a model id under one number, 0 to 19, for the functions that end
 * in _run. There are 20 runs a process. The ids of a run cannot be closed before the run. Different threads may open
 * and close different runs at once; nobody may close a run that another thread is using.
 */

/** Conditions of kl_run_init. */
enum {
    KL_RUN_INIT_NO_SLOT_ERR = 0,     /**< all 20 runs are in use */
    KL_RUN_INIT_SAT_ID_ERR = 1,      /**< invalid satellite id, or a default satellite that is not initialised */
    KL_RUN_INIT_TIME_ID_ERR = 2,     /**< time id not initialised */
    KL_RUN_INIT_MEMORY_ERR = 3,      /**< no memory */
    KL_RUN_INIT_CONSISTENCY_ERR = 4, /**< never recorded */
    KL_RUN_INIT_LOCK_ERR = 5,        /**< the run table could not be locked */
    KL_RUN_INIT_UNLOCK_ERR = 6       /**< the run table could not be unlocked */
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

/* ---- run twins: a run id in place of the leading ids --------------------------------------------------- */

/*
 * Each is the function without _run, called with the ids of a run: same arguments, outputs, conditions, public function
 * id and status. Without such a run they return KL_ERR at once, with the error vector as it was and nothing printed;
 * only the two of the on-board clocks call on with satellite id -1, whose condition is then in the vector. A run
 * without a model id works with the default models.
 */

/** kl_sun with the model and time ids of a run. */
KL_API long kl_sun_run(const long *run_id, const long *time_ref, const double *time, double sun_pos[3],
                       double sun_vel[3], long *ierr);
/** kl_moon with the model and time ids of a run. */
KL_API long kl_moon_run(const long *run_id, const long *time_ref, const double *time, double moon_pos[3],
                        double moon_vel[3], long *ierr);
/** kl_planet with the model and time ids of a run. */
KL_API long kl_planet_run(const long *run_id, const long *planet_id, const long *time_ref, const double *time,
                          double planet_pos[3], double planet_vel[3], long *ierr);
/** kl_change_cart_cs with the model and time ids of a run. */
KL_API long kl_change_cart_cs_run(const long *run_id, const long *calc_mode, const long *cs_in, const long *cs_out,
                                  const long *time_ref, const double *time, const double pos[3], const double vel[3],
                                  const double acc[3], double pos_out[3], double vel_out[3], double acc_out[3],
                                  long *ierr);
/** kl_time_get_leap_second_info with the time id of a run. */
KL_API long kl_time_get_leap_second_info_run(const long *run_id, const long *ascii_id_out, long *leap_sign,
                                             char *utc_time_before, char *utc_time_after, long *ierr);
/** kl_time_obt_to_time with the satellite id of a run. */
KL_API long kl_time_obt_to_time_run(const long *run_id, const long *time_ref, const void *parameters, const void *obt,
                                    double *time, long *ierr);
/** kl_time_time_to_obt with the satellite id of a run. */
KL_API long kl_time_time_to_obt_run(const long *run_id, const long *time_ref, const void *parameters,
                                    const double *time, void *obt, long *ierr);
/** kl_time_ascii_to_ascii with the time id of a run. */
KL_API long kl_time_ascii_to_ascii_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                       const char *ascii_in, const long *ascii_id_out, const long *time_ref_out,
                                       char *ascii_out, long ierr[2]);
/** kl_time_ascii_to_processing with the time id of a run. */
KL_API long kl_time_ascii_to_processing_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                            const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                            double *time_out, long *ierr);
/** kl_time_ascii_to_transport with the time id of a run. */
KL_API long kl_time_ascii_to_transport_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                           const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                           long transport_out[4], long *ierr);
/** kl_time_processing_to_ascii with the time id of a run. */
KL_API long kl_time_processing_to_ascii_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                            const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                            char *ascii_out, long *ierr);
/** kl_time_processing_to_processing with the time id of a run. */
KL_API long kl_time_processing_to_processing_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                                 const double *time_in, const long *proc_id_out,
                                                 const long *time_ref_out, double *time_out, long *ierr);
/** kl_time_processing_to_transport with the time id of a run. */
KL_API long kl_time_processing_to_transport_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                                const double *time_in, const long *trans_id_out,
                                                const long *time_ref_out, long transport_out[4], long *ierr);
/** kl_time_transport_to_ascii with the time id of a run. */
KL_API long kl_time_transport_to_ascii_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                           const long transport_in[4], const long *ascii_id_out,
                                           const long *time_ref_out, char *ascii_out, long *ierr);
/** kl_time_transport_to_processing with the time id of a run. */
KL_API long kl_time_transport_to_processing_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                                const long transport_in[4], const long *proc_id_out,
                                                const long *time_ref_out, double *time_out, long *ierr);
/** kl_time_transport_to_transport with the time id of a run. */
KL_API long kl_time_transport_to_transport_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                               const long transport_in[4], const long *trans_id_out,
                                               const long *time_ref_out, long transport_out[4], long *ierr);

#ifdef __cplusplus
}
#endif

#endif
