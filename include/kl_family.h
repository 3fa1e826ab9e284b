/**
 * @file kl_family.h
 * What the higher libraries of the family call across the library boundary: the error frame, id records,
 * time, frame chain, bodies, kernels, satellite and run internals. Plain C, like kl_lib.h.
 *
 * Internal functions return 0 or -1 (a few the severity of the last recorded code) and keep their conditions in
 * the caller's kl_error_record, the last argument, which may be NULL. They clear it before they start.
 * The kernels, the frame chain and the getters of records take other arguments as they are: valid pointers.
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

/** References of a kl_time_record; its formats, of which KL_FORMAT_MJD2000 alone is produced. */
enum { KL_REF_TDB = 1, KL_REF_2 = 2 /**< free */, KL_REF_TAI = 3, KL_REF_UT1 = 4, KL_REF_UTC = 5, KL_REF_GPS = 6 };
enum {
    KL_FORMAT_JULIAN = 1, /**< Julian days */
    KL_FORMAT_1950 = 2,   /**< days since 1950-01-01 00:00 */
    KL_FORMAT_MJD2000 = 3 /**< days since 2000-01-01 00:00 */
};

/** An instant inside: KL_REF_*, KL_FORMAT_*. */
typedef struct kl_time_record {
    int32_t reference, format;
    double value;
} kl_time_record;

/** Standard transport record: integer MJD2000 day, second of the day, microsecond of the second. */
typedef struct kl_std_record {
    long days, seconds, microseconds;
} kl_std_record;

/** Calendar date: 1950 to 2099, seconds of the day; the reference is only copied, from and to a kl_time_record. */
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
/**
 * Records one code and prints its message in verbose mode. `value` as the code's argument kind. 0, or -1 with a line on
 * standard error when the id, the record (of another function) or the code does not fit, or the message cannot be
 * printed. An empty record is the function's from then on, also when the code is refused. The 257th code is dropped,
 * with a line the first time, and 0.
 */
KL_API long KL_Put_Err(long function_id, long code, const void *value, kl_error_record *record);
/** found = 1 when the record holds the code, else 0. 0, or -1 with a line where the id, the record or the code does not
 * fit. */
KL_API long KL_Check_Err(long function_id, long code, const kl_error_record *record, long *found);
/** Records the code for the context's function and rewrites its vector; returns the severity, 1 or -1. */
KL_API long KL_Store_function_error(kl_error_context *context, long code, const void *value);
/** 1 when the internal id is that of a public function. */
KL_API long KL_Check_if_public_function(long function_id);
/** Adds the bits of all recorded codes to the vector; clears none. 0, or -1 with a line when the record is of another
 * function or the function is not public. */
KL_API long KL_Err_Vector(long function_id, const kl_error_record *record, long *ierr);
/**
 * Rebuilds a record from the vector of a public function: codes in the order of bits, values 0, code -1 for a bit that
 * no code has. 0, or -1 with a line (on purpose it names KL_Err_Vector) when no function has the id.
 */
KL_API long KL_Vector_Err(long public_id, const long *ierr, kl_error_record *record);
/** Formats every recorded code. MESSAGES MUST HAVE ALL 256 SLOTS: every one of them is cleared. */
KL_API long KL_Err_Msg(const kl_error_record *record, long *n_msg, char messages[][512]);
/** Bit of a word. */
KL_API long KL_Check_Bit(long word, long bit);
/** Sets (value 1) or clears a bit; returns what it was. */
KL_API long KL_Write_Bit(long *word, long bit, long value);
/** found = 1 when kl_get_code of the vector contains the public code, else 0. Returns 0. */
KL_API long KL_Check_Error_Code(long public_id, long public_code, const long *ierr, long *found);
/** status = -1, 1 or 0 of a vector: errors before warnings. 0, or -1 when no function has the id. */
KL_API long KL_Check_Extended_Error_Code(long public_id, const long *ierr, long *status);
/** Writes the text and a newline to standard error. */
KL_API long KL_Print_Err_Msg(const char *text);

/* ---- conditions ------------------------------------------------------------------------------------- */

/* >>> conditions: Written by tools/api/generate.py from the table in api/. */
/** Conditions of KL_Earth. */
enum {
    KL_EARTH_REFERENCE = 0,
    KL_EARTH_FORMAT = 1,
    KL_EARTH_EVP = 2, /**< never recorded: the ephemeris cannot fail */
    KL_EARTH_LOCK = 3 /**< never recorded: no lock is taken */
};

/** Conditions of KL_Sun_PosVel. */
enum {
    KL_SUN_POSVEL_1 = 0, /**< never recorded */
    KL_SUN_POSVEL_2 = 1, /**< never recorded */
    KL_SUN_POSVEL_EARTH = 2,
    KL_SUN_POSVEL_FRAME = 3,
    KL_SUN_POSVEL_LOCK = 4 /**< never recorded: no lock is taken */
};

/** Conditions of KL_Moon_PosVel. */
enum {
    KL_MOON_POSVEL_REFERENCE = 0,
    KL_MOON_POSVEL_FORMAT = 1,
    KL_MOON_POSVEL_LOCK = 2 /**< never recorded: no lock is taken */
};

/** Conditions of KL_Planets. */
enum {
    KL_PLANETS_1 = 0, /**< never recorded */
    KL_PLANETS_2 = 1, /**< never recorded */
    KL_PLANETS_CODE = 2,
    KL_PLANETS_DEGRADED = 3,
    KL_PLANETS_CONVERGENCE = 4,
    KL_PLANETS_INTERNAL = 5,
    KL_PLANETS_LOCK = 6 /**< never recorded: no lock is taken */
};

/** Conditions of KL_Sun_PosVel_Sun_Travel_Time. */
enum { KL_LIGHT_SUN_SATELLITE = 0, KL_LIGHT_SUN_REFERENCE = 1, KL_LIGHT_SUN_SUN = 2 };

/** Conditions of KL_Sun_travel_time. */
enum {
    KL_TRAVEL_TIME_REF = 0,
    KL_TRAVEL_TIME_DATE = 1,
    KL_TRAVEL_TIME_ID = 2,
    KL_TRAVEL_TIME_SUN = 3,
    KL_TRAVEL_TIME_TDB = 4,
    KL_TRAVEL_TIME_CONVERSION = 5, /**< never recorded */
    KL_TRAVEL_TIME_FRAME = 6
};

/** Conditions of KL_Cuc_get_data_from_P_field, KL_Cuc_compute_P_field. */
enum { KL_CUC_P_FIELD_EPOCH = 0, KL_CUC_P_FIELD_NO_EPOCH = 0 };

/** Conditions of KL_Cuc_check_inputs. */
enum {
    KL_CUC_CHECK_TIME_ID = 0,
    KL_CUC_CHECK_TYPE = 1,
    KL_CUC_CHECK_OCTETS = 2,
    KL_CUC_CHECK_EPOCH_TYPE = 3,
    KL_CUC_CHECK_TIME_REF = 4
};

/** Conditions of KL_Get_CUC_processing_epoch. */
enum { KL_CUC_EPOCH_NOT_CONVERTED = 0 };

/** Conditions of KL_Car_Geo. */
enum {
    KL_CAR_GEO_COMPUTATION = 0 /**< two points of the ellipsoid are equally near: distance from the centre, m */
};

/** Conditions of KL_Change_CoordinateSystem, KL_Change_CoordinateSystem_Sim. */
enum {
    KL_CHAIN_DATE_RECORD = 0,
    KL_CHAIN_INITIAL = 1,
    KL_CHAIN_FINAL = 2,
    KL_CHAIN_EARTH = 3,
    KL_CHAIN_DATE_RANGE = 4,
    KL_CHAIN_TIME_ID = 5,
    KL_CHAIN_PTOD = 6,
    KL_CHAIN_QMOD = 7,
    KL_CHAIN_PTOD_SKIPPED = 8,
    KL_CHAIN_ACCELERATION = 9,
    KL_CHAIN_LIF = 10,
    KL_CHAIN_UT1 = 11
};

/** Conditions of KL_Geoid_undu. */
enum {
    KL_GEOID_UNDU_POLE_ERR = 0 /**< never recorded: derivatives are not asked for */
};

/** Conditions of KL_Legfdn. */
enum { KL_LEGFDN_POLE_ERR = 0 };

/** Conditions of KL_Check_sat_id. */
enum { KL_CHECK_SAT_ID = 0 };

/** Conditions of KL_Check_Geo_sat_id. */
enum {
    KL_CHECK_GEO_SAT_ID = 0 /**< never recorded */
};

/** Conditions of KL_Sat_id_to_array. */
enum { KL_SAT_TO_ARRAY_ID = 0, KL_SAT_TO_ARRAY_FREE_SLOT = 1 };

/** Conditions of KL_Get_min_period, KL_Get_max_period. */
enum { KL_PERIOD_SAT_ID = 0, KL_PERIOD_BELOW_EARTH_RADIUS = 1 };

/** Conditions of KL_Check_time_ref. */
enum { KL_CHECK_TIME_REF_NOT_CORRECT = 0 };

/** Conditions of KL_MJD_Calendar. */
enum { KL_MJD_CALENDAR_OUT_OF_LIMITS = 0 };

/** Conditions of KL_Calendar. */
enum {
    KL_CALENDAR_YEAR = 0,
    KL_CALENDAR_MONTH = 1,
    KL_CALENDAR_DAY = 2,
    KL_CALENDAR_SECONDS = 3,
    KL_CALENDAR_MICROSECONDS = 4,
    KL_CALENDAR_THIRTY_DAYS = 5,
    KL_CALENDAR_LEAP_FEBRUARY = 6,
    KL_CALENDAR_FEBRUARY = 7
};

/** Conditions of KL_Calendar_MJD. */
enum { KL_CALENDAR_MJD_NOT_A_DATE = 0 };

/** Conditions of KL_Time_check_processing_inputs. */
enum { KL_CHECK_IN_FORMAT = 0, KL_CHECK_IN_REF = 1, KL_CHECK_IN_DAYS = 2 };

/** Conditions of KL_Time_check_processing_outputs. */
enum { KL_CHECK_OUT_FORMAT = 0, KL_CHECK_OUT_REF = 1 };

/** Conditions of KL_Time_p2t_format_to_std. */
enum { KL_P2T_LEAP_SECOND = 0 };

/** Conditions of KL_Time_t2t_ref_to_tai, KL_Time_t2t_ref_from_tai. */
enum { KL_TO_TAI_NOT_INITIALISED = 0, KL_TO_TAI_OUT_OF_RANGE = 1, KL_TO_TAI_LEAP_SECOND = 2 };

/** Conditions of KL_Time_ref_init_file_deltas. */
enum { KL_DELTAS_REF = 0, KL_DELTAS_NOT_INITIALISED = 1, KL_DELTAS_OUT_OF_RANGE = 2, KL_DELTAS_UT1_FORMULA = 3 };

/** Conditions of KL_Get_time_in_ref. */
enum { KL_GET_TIME_IN_REF_FAILED = 0 };

/** Conditions of KL_Leap_second_utc_time. */
enum {
    KL_QUARTER_REF = 0,
    KL_QUARTER_WRITING = 1,
    KL_QUARTER_FIELDS = 2, /**< never recorded: the fields are not read back from a text */
    KL_QUARTER_READING = 3
};

/** Conditions of KL_Time_check_leap_second. */
enum { KL_LEAP_CHECK_REF = 0, KL_LEAP_CHECK_DATE = 1 };

/** Conditions of KL_Time_ref_init_check_inputs. */
enum {
    KL_TIME_REF_INIT_CHECK_TAI = 0,
    KL_TIME_REF_INIT_CHECK_UTC = 1,
    KL_TIME_REF_INIT_CHECK_UT1 = 2,
    KL_TIME_REF_INIT_CHECK_GPS = 3,
    KL_TIME_REF_INIT_CHECK_ORBIT = 4,          /**< never recorded */
    KL_TIME_REF_INIT_CHECK_ANX_TIME = 5,       /**< never recorded */
    KL_TIME_REF_INIT_CHECK_ORBIT_DURATION = 6, /**< never recorded */
    KL_TIME_REF_INIT_CHECK_ANX_DURATION = 7    /**< never recorded */
};
/* <<< */

/* ---- id records ---------------------------------------------------------------------------------------- */

/*
 * A record begins with a kl_id_record. Records without a mutex (runs, or none could be made) are used without locking.
 * A lock that fails prints a line with the number of its place on standard error and the function returns -1.
 * `handle` is a pointer to a handle; NULL counts as an uninitialised one.
 */

/**
 * Fills the head of a record: kind, satellite id, initialised, two empty lists, no instances, a mutex. `mode` is left.
 * 0; a positive number when no mutex could be made (a line is printed, the id works without); -1 with the record not
 * initialised and nothing to free when there is no memory for the lists.
 */
KL_API long KL_Id_init(const long *sat_id, long kind, void *record);
/** 1 when the handle holds an initialised record, else 0. */
KL_API long KL_Id_init_status(const void *handle);
/** Kind of an initialised id, else 0. */
KL_API long KL_Id_get_init_type(const void *handle);
/** Mode of an id; the handle must hold a record. */
KL_API long KL_Id_get_mode(const void *handle);
/** Satellite id of an id; the handle must hold a record. */
KL_API long KL_Id_get_sat_id(const void *handle);
/** 1 when the 64-bit values behind both pointers are equal: the equality function of id lists. */
KL_API long KL_Id_cmp(const void *a, const void *b);
/**
 * Closes an id: unregisters it from the ids it uses, deletes lists and mutex. The record itself is its kind's to free.
 * 0, or -1 when it is not initialised, is in use by another id or an instance (nothing changes, nothing is printed),
 * or a lock fails.
 */
KL_API long KL_Id_close(void *handle);
/** Records that `user` is built on `used`, both records. 0 (also for NULL), or -1. */
KL_API long KL_Link_ids(void *used, void *user);
/** The reverse of KL_Link_ids. */
KL_API long KL_Unlink_ids(void *used, void *user);
/** The first record of the kind that a record is built on, in the order of linking, or NULL. */
KL_API void *KL_Get_used_id(const void *record, long kind);
/** Number of ids and instances that use an id; 0 without a record or when the lock fails. */
KL_API long KL_Is_used(const void *handle);
/** One more object shares the id. Nothing without a record. */
KL_API long KL_Add_instance(void *handle);
/** One object less shares the id. */
KL_API long KL_Delete_instance(void *handle);
/**
 * Makes the head of the target's record a copy of the source's: same kind, status, satellite, mode, count of instances
 * and used ids, no users, a mutex of its own. The target's record must have been initialised or zeroed; what it was
 * linked to is let go. 0, or -1 (no record, no memory, no mutex, a lock): with a record and without what
 * failed, the target then has the head of the source but neither users nor used ids, and is to be closed.
 */
KL_API long KL_Copy_id(const void *source_handle, void *target_handle);
/** 1 when a CUC may have so many octets: coarse 1 to 7, fine 0 to 10. */
KL_API long KL_Check_cuc_octets(long coarse, long fine);

/* ---- version ------------------------------------------------------------------------------------------- */

/** Copies "KL_VERS_4.27" into a buffer of at least 13 characters and returns it. */
KL_API char *KL_Get_lib_version(char *text);
/**
 * Appends the versions of lower libraries that this one works with to a list of 100-character elements (of the
 * data-handling library), rows "KL_KF_COMPAT_<version>" padded with zeros. Returns the row that ends the table, which
 * is not in the list.
 */
KL_API const char *KL_Get_compatibility_table(void *list);

/* ---- satellites ---------------------------------------------------------------------------------------- */

/*
 * Satellite tables, one row a satellite: rows 0 to 9 the default satellites (ids 0 to 9), 10 to 59 the fixed missions
 * in ascending order of id, 60 the generic satellite (200), 61 the generic geostationary one (300), 62 the
 * geostationary mission (301), 63 medium Earth orbit (ids from 400 on with id modulo 400 below 100). Process-wide;
 * neither reading nor writing a row takes a lock.
 */
enum { KL_N_SAT_ROWS = 64, KL_N_CATALOGUE_ROWS = 65 };

/** Catalogue data of a satellite. Texts are padded with zeros; at full width they have no terminator. */
typedef struct kl_tle_sat_data {
    int64_t catalogue_number;
    char name[25];
    char designator[9]; /**< international designator; "00000   " when unknown */
    char reserved[6];   /**< 0 */
} kl_tle_sat_data;

/*
 * The tables are the library's own, and it works with them whatever symbols of these names a program has besides. So
 * no program may take a copy of them when it starts, as direct addressing has it: what names them is compiled as
 * position-independent code, for a library or (the default of today's compilers) for a program, where the attribute
 * keeps g++ from direct addressing.
 */
#if defined(__GNUC__) && defined(__pie__)
#define KL_TABLE KL_API __attribute__((weak))
#else
#define KL_TABLE KL_API
#endif

/* Envelope: semi-major axis, m; inclination, deg; eccentricity; argument of perigee, deg. */
extern KL_TABLE double A_MIN[KL_N_SAT_ROWS], A_NOM[KL_N_SAT_ROWS], A_MAX[KL_N_SAT_ROWS];
extern KL_TABLE double I_MIN[KL_N_SAT_ROWS], I_NOM[KL_N_SAT_ROWS], I_MAX[KL_N_SAT_ROWS];
extern KL_TABLE double E_NOM[KL_N_SAT_ROWS], W_NOM[KL_N_SAT_ROWS];
/* Two sets of limits: semi-major axis, m; inclination, deg; eccentricity. */
extern KL_TABLE double KL_TOLERANCE_AMIN_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_AMAX_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_IMIN_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_IMAX_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_EMIN_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_EMAX_L[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_AMIN_T[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_AMAX_T[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_IMIN_T[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_IMAX_T[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_EMIN_T[KL_N_SAT_ROWS];
extern KL_TABLE double KL_TOLERANCE_EMAX_T[KL_N_SAT_ROWS];
extern KL_TABLE long KL_SAT_TYPE[KL_N_SAT_ROWS];                   /**< 1 geostationary (rows 61 and 62), else 0 */
extern KL_TABLE char KL_SP3_PARAMS[KL_N_SAT_ROWS][4];              /**< SP3 identifier */
extern KL_TABLE kl_tle_sat_data TLE_SAT_DATA[KL_N_CATALOGUE_ROWS]; /**< row 64 answers for invalid ids */
extern KL_TABLE char kl_default_sat_names[10][30];                 /**< names of the default satellites */
extern KL_TABLE long kl_default_sat_array[10];                     /**< 1: the slot is in use */

/** 0 when the satellite id is valid, which a default satellite is while its slot is in use; else -1 with
 * KL_CHECK_SAT_ID. */
KL_API long KL_Check_sat_id(const long *sat_id, kl_error_record *error);
/** 0 for the geostationary ids 300 and 301, else -1; records nothing. */
KL_API long KL_Check_Geo_sat_id(const long *sat_id, kl_error_record *error);
/** Row of a satellite: 0, or -1 with KL_SAT_TO_ARRAY_ID (invalid id) or _FREE_SLOT (default satellite that is not
 * initialised). */
KL_API long KL_Sat_id_to_array(const long *sat_id, long *index, kl_error_record *error);
/** The id itself for a default satellite (0 to 9), else -1; whether its slot is in use is not looked at. */
KL_API long KL_Default_to_array(const long *sat_id);
/** 1 for the ids of medium Earth orbit: from 400 on, id modulo 400 below 100. */
KL_API long KL_Is_MEO_sat(const long *sat_id);
/**
 * Name of a satellite, "UNDEFINED" for an invalid id; the name of a free default slot is empty. `text` has 30
 * characters; a name of all 30 has no terminator. Returns 0.
 */
KL_API long KL_Get_mission_name(const long *sat_id, char *text);
/**
 * Orbital period of the smallest semi-major axis of a satellite, s. 0; 1 with KL_PERIOD_BELOW_EARTH_RADIUS when the
 * axis is below the Earth's radius, which is taken instead; -1 with KL_PERIOD_SAT_ID for an invalid id.
 */
KL_API long KL_Get_min_period(const long *sat_id, double *period, kl_error_record *error);
/** The same of the largest axis, where the largest of all satellites is taken instead. */
KL_API long KL_Get_max_period(const long *sat_id, double *period, kl_error_record *error);
/**
 * Catalogue data of a satellite; of an invalid id those of the unknown satellite. Writes 25 and 9 characters, padded
 * with zeros: a text of full width has no terminator. Returns 0.
 */
KL_API long KL_Get_tle_sat_data(const long *sat_id, long *catalogue_number, char *name, char *designator);
/** SP3 identifier of a satellite: 4 characters, as above. An invalid id reads row 0. Returns 0. */
KL_API long KL_Get_sp3_data(long sat_id, char *text);

/* ---- runs ---------------------------------------------------------------------------------------------- */

/** Kind of a run (KL_ID_RUN) when it is initialised, else 0. */
KL_API long KL_Run_get_init_type(const long *run_id);
/** 1 when every id that an id of the list uses is in the list as well, else 0. `uses_list`: list of id records. */
KL_API long KL_Run_check_consistency(void *uses_list);
/**
 * Detaches the id of a kind from a run, for libraries that close an id which belongs to one. 1 when an id of that kind
 * was detached, else 0. Only kinds 2 (time), 3 (model) and 4 have an effect.
 */
KL_API long KL_Run_Generic_close(const long *run_id, long kind);

/* ---- time: references, calendar, standard record ------------------------------------------------------- */

/** Month names of texts, by number 1 to 12; entry 0 is empty. */
extern KL_TABLE const char kl_months[13][4];

/** Calendar date of an instant from 1950 to 2099, nearest microsecond; rounding up to midnight gives 86400 seconds of
 * the same day. KL_MJD_CALENDAR_OUT_OF_LIMITS outside. */
KL_API long KL_MJD_Calendar(const kl_time_record *in, kl_calendar_record *out, kl_error_record *error);
/** valid = 1 for a good date, else 0 and -1 with the first condition, KL_CALENDAR_*: the three last are those of a
 * month of 30, 29 or 28 days. The reference is not looked at. */
KL_API long KL_Calendar(const kl_calendar_record *in, int *valid, kl_error_record *error);
/** The instant of a good date, in MJD2000, or KL_CALENDAR_MJD_NOT_A_DATE. */
KL_API long KL_Calendar_MJD(const kl_calendar_record *in, kl_time_record *out, kl_error_record *error);
/** MJD2000 + 2451545.0: counted from midnight, half a day more than the astronomical Julian date. */
KL_API double KL_MJD_to_Julian(double mjd2000);
/** floor(x + 0.5). */
KL_API double KL_round(double x);
/** Reference of a time record of a public one, and back; -1 where there is none. */
KL_API long KL_Time_ref_enum_to_Time_enum(long ref);
/** From the numbering of kl_time_record to KL_TIME_*; -1 for TDB and anything else. */
KL_API long KL_Time_enum_to_Time_ref_enum(int ref);
/** 0 for KL_TIME_UNDEF to KL_TIME_GPS, else -1 with KL_CHECK_TIME_REF_NOT_CORRECT. */
KL_API long KL_Check_time_ref(const long *ref, kl_error_record *error);
/** 1 for KL_TIME_TAI to KL_TIME_GPS, else 0; records nothing. */
KL_API long KL_Check_time_ref_2(long ref);
/** Format, reference and range of a processing time, KL_CHECK_IN_*; the first that is wrong ends the check. */
KL_API long KL_Time_check_processing_inputs(long format, long ref, const double *time, kl_error_record *error);
/** Format and reference of a processing output, KL_CHECK_OUT_*. */
KL_API long KL_Time_check_processing_outputs(long format, long ref, kl_error_record *error);
/** Day, second and microsecond of a processing time, nearest microsecond; 86400 seconds in UTC at the end of a day with
 * the leap second of the id. KL_P2T_LEAP_SECOND when such a day is outside the processing range. */
KL_API long KL_Time_p2t_format_to_std(kl_time_id *time_id, long ref, const double *time, kl_std_record *out,
                                      kl_error_record *error);
/** The processing time of a standard record; always 0. */
KL_API long KL_Time_t2p_format_from_std(const kl_std_record *in, double *out);
/** The present UTC time as a text, 32 characters; conditions 0 to 2 of kl_time_get_leap_second_info in the record. */
KL_API long KL_Time_current_time(const long *ascii_format, char *out, kl_error_record *error);

/* ---- time: correlation, leap seconds ------------------------------------------------------------------- */

/** A processing time (MJD2000, days) from one KL_TIME_* reference to another; equal ones copy. -1 with
 * KL_GET_TIME_IN_REF_FAILED. */
KL_API long KL_Get_time_in_ref(kl_time_id *time_id, long ref_in, long ref_out, double *time_out, kl_error_record *error,
                               double time_in);
/** A standard record of a reference to TAI. KL_TO_TAI_NOT_INITIALISED, KL_TO_TAI_OUT_OF_RANGE (of the table; a
 * warning), KL_TO_TAI_LEAP_SECOND. */
KL_API long KL_Time_t2t_ref_to_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                                   kl_error_record *error);
/** A TAI record to a reference; UTC inside a positive leap second has 86400 seconds, and the second that a negative one
 * takes away comes out as the next. The first two conditions as above. */
KL_API long KL_Time_t2t_ref_from_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                                     kl_error_record *error);
/**
 * TAI-UTC, TAI-UT1 and TAI-GPS (s) at an instant (MJD2000 days of a KL_TIME_* reference), and whether it lies in or
 * after the leap second of the id. Conditions KL_DELTAS_*; the last two are warnings: outside the table, UT1 in the
 * formula.
 */
KL_API long KL_Time_ref_init_file_deltas(kl_time_id *time_id, const double *time, const long *ref, double *tai_utc,
                                         double *tai_ut1, double *tai_gps, long *in_leap_second,
                                         long *after_leap_second, kl_error_record *error);
/** Row of `first` to `last` with column(row) <= time < column(row + 1), within 1e-11 day; column 0 TAI, 1 UTC, 2 UT1,
 * 3 GPS. The table has a row after `last`; 0 when no row is found or last < 1. */
KL_API long KL_binary_search(const kl_time_row *table, long first, long last, long column, const double *time);
/** The two sets of once-only flags: what the conversions met before does not spend the warning of a frame change. */
enum { KL_FLAGS_CONVERSION = 0, KL_FLAGS_FRAME_CHANGE = 1 };
/** Once-only warning (1 formula, 2 gap, 3 outside; 0 none) of a computation at a TAI record; selector: the set of
 * flags. Always 0, or -1 for NULL or another selector; an id of explicit values, or none, never warns. */
KL_API long KL_Check_Time_warn_flags(kl_time_id *time_id, const kl_std_record *tai, const long *selector,
                                     long *warning);
/** TDB of TAI and TAI of TDB, MJD2000 days. On purpose the mean anomaly, in degrees, goes to the sines as radians. 0,
 * or -1 for NULL. */
KL_API long KL_Time_p2p_ref_tai_to_tdb(const double *tai, double *tdb);
KL_API long KL_Time_p2p_ref_tdb_to_tai(const double *tdb, double *tai);
/** First instant of the calendar quarter of a time (MJD2000, days). Conditions KL_QUARTER_*. */
KL_API long KL_Leap_second_utc_time(const long *ref, const double *time, double *quarter_start, kl_error_record *error);
/** leap_flag: sign of the leap second that ends the record's day, or 0. KL_LEAP_CHECK_REF, KL_LEAP_CHECK_DATE. */
KL_API long KL_Time_check_leap_second(kl_time_id *time_id, long ref, const kl_std_record *rec, long *leap_flag,
                                      kl_error_record *error);
/** Whether a time of row `row` (column values first, last) lies in or after the leap second of the id. 0, or -1 for an
 * uninitialised id or a row that it has not. */
KL_API long KL_Check_if_time_is_post_leap_second(kl_time_id *time_id, long ref, long row, long *in_leap_second,
                                                 long *after_leap_second, double first, double last, double time);
/** Readings in TAI, UTC, UT1 and GPS (MJD2000, days) inside the processing range: the first four of
 * KL_TIME_REF_INIT_CHECK_*. */
KL_API long KL_Time_ref_init_check_inputs(const double tri_time[4], kl_error_record *error);

/* ---- time: on-board clocks ----------------------------------------------------------------------------- */

/** Takes the octet counts and the epoch type from a P-field of one octet, or of two where the first one's bit 7 is set;
 * the other fields of data stay as they are. KL_CUC_P_FIELD_EPOCH: an identification other than 001 and 010, a third
 * octet announced. */
KL_API long KL_Cuc_get_data_from_P_field(const unsigned char *octets, kl_cuc_config *data, kl_error_record *error);
/** Writes the P-field of one or two octets. KL_CUC_P_FIELD_NO_EPOCH: an epoch type that no identification stands for.
 */
KL_API long KL_Cuc_compute_P_field(const kl_cuc_config *data, unsigned char *octets, long *n_octets,
                                   kl_error_record *error);
/** Time id, CUC type, octet counts (not looked at when they come from a P-field), epoch type, scale: KL_CUC_CHECK_*. */
KL_API long KL_Cuc_check_inputs(kl_time_id *time_id, const kl_cuc_config *config, long time_ref,
                                long octets_from_p_field, kl_error_record *error);
/** The epoch of a CUC in a scale, MJD2000. KL_CUC_EPOCH_NOT_CONVERTED: it is not finite, or cannot be converted. */
KL_API long KL_Get_CUC_processing_epoch(kl_time_id *time_id, const kl_cuc_config *config, long time_ref, double *epoch,
                                        kl_error_record *error);

/* ---- models -------------------------------------------------------------------------------------------- */

/** Block of a kind of model (-1 or 0 Earth, 1 to 8 the others); an uninitialised id is initialised and stays so. */
KL_API void *KL_Model_get_data(kl_model_id *model_id, long kind);

/* ---- geoid --------------------------------------------------------------------------------------------- */

/**
 * What kl_geoid_calc computes, without its checks: the correction from height anomaly to undulation and the undulation,
 * m; either output may be NULL (the correction alone costs a second pass). Latitude 91 is a marker: all Legendre
 * functions count as zero. 0, or -1 without a condition: no memory, no tables in the model, degree outside 0 to 360.
 */
KL_API long KL_Geoid_undu(const kl_geoid_input *inputs, double *height_anomaly_correction, double *undulation,
                          kl_error_record *error);

/** Geocentric latitude (rad), normal gravity on the ellipsoid (m/s2) and geocentric radius (m) of a geodetic point. */
KL_API void KL_Radgra(double *geocentric_latitude_rad, double *normal_gravity, double *radius, double lat_deg,
                      double lon_deg, double height);

/**
 * Fully normalised Legendre functions of order m in the colatitude theta (rad).
 *
 * @param[out] p            [nmax + 1] P(n,m) at index n for n = m to nmax; entries below m are not touched
 * @param[in]  derivatives  non-zero: fill dp too
 * @param[out] dp           [nmax + 1] dP/dtheta, as p; may be NULL without derivatives
 * @return 0; -1 with KL_LEGFDN_POLE_ERR for derivatives at a pole, without a condition for m < 0 or a missing array
 */
KL_API long KL_Legfdn(long m, double theta, double *p, long nmax, long derivatives, double *dp, kl_error_record *error);

/** sin(m lambda) and cos(m lambda) at index m, for m = 1 to nmax; [nmax + 1] each, index 0 is not touched. */
KL_API void KL_Dscml(long nmax, double sin_ml[], double cos_ml[], double lambda_rad);

/**
 * The synthesis: correction and undulation, m. P, HC, HS, CC, CS in triangular order, index n(n+1)/2 + m, for degrees 0
 * to max(nmax, 1); sin_ml, cos_ml as KL_Dscml gives them, to order max(nmax, 1).
 */
KL_API void KL_Hundu(long nmax, const double P[], const double HC[], const double HS[], const double sin_ml[],
                     const double cos_ml[], const double CC[], const double CS[], double *correction,
                     double *undulation, double normal_gravity, double radius);

/** Frees `count` rows, then the array of rows; NULL does nothing. */
KL_API void KL_Free_dhc(double **rows, long count);

/* ---- frame chain --------------------------------------------------------------------------------------- */

/** Frames inside: handled as KL_MOD and KL_TOD. kl_change_cart_cs does not take them. */
enum {
    KL_QMOD = 12, /**< quasi mean of date */
    KL_PTOD = 13  /**< pseudo true of date */
};

/** Nutation with its first two derivatives: rad, rad/s, rad/s2. */
typedef struct kl_nutation {
    double dpsi[3], deps[3];
    double obliquity; /**< mean obliquity used, rad */
} kl_nutation;

/** Precession angles with their first two derivatives: rad, rad/s, rad/s2. */
typedef struct kl_precession {
    double zeta[3], z[3], theta[3];
} kl_precession;

/** Nutation series of nine terms at days since 2000-01-01 00:00 (1990 to 2030 within 0.103 and 0.039 arcsec of IAU
 * 1980, longitude and obliquity). */
KL_API void KL_Sim_Nut_Term(double days, kl_nutation *nutation);
/** Precession of IAU 1976 from J2000 to the mean of date, days since 2000-01-01 00:00. */
KL_API void KL_Precession(double days, kl_precession *angles);

/** Angle with its first two derivatives: deg in [0, 360), deg/s, deg/s2. */
typedef struct kl_angle {
    double value, rate, rate_of_rate;
} kl_angle;

/** Apparent sidereal angle of a model id at days of UT1 since 2000-01-01 00:00. -1 when the id has no nutation. */
KL_API long KL_H_Angle(kl_model_id *model_id, double ut1_days, kl_angle *angle);
/** Linear sidereal angle of the second set of constants. -1 when the id has no Earth model. */
KL_API long KL_H_Angle_Sim(kl_model_id *model_id, double ut1_days, kl_angle *angle);
/* The rotations about z by these angles, true of date to pseudo Earth-fixed; record of order 2. */
KL_API long KL_Earth_Rotation(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation);
KL_API long KL_Earth_Rotation_Sim(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation);
/** Earth-fixed to launch inertial: by H(t) - ((H(t_ref) + reference angle, deg) reduced). */
KL_API long KL_Earth_Rotation_Delta(kl_model_id *model_id, double ut1_days, double reference_days,
                                    double reference_angle, kl_rotation_record *rotation);
/** Pseudo Earth-fixed to Earth-fixed. The pole is zero for an id that holds no pole coordinates. */
KL_API long KL_Polar_Motion_Rotation(kl_time_id *time_id, double ut1_days, kl_rotation_record *rotation);

/** Applies a rotation record to a state; the lower of the two orders holds from there on, vectors above it are 0. */
KL_API void KL_rva(const Cord *in, const kl_rotation_record *rotation, Cord *out);

/**
 * Carries a state between any two frames, 1 to 13 (KL_PTOD).
 *
 * @param[in]  model_id  models; an uninitialised id means the default ones
 * @param[in]  time_id   correlation; needed where the date has to change its scale
 * @param[in]  order     0 position, 1 with velocity, 2 with acceleration
 * @param[in]  date      TDB, TAI, UT1 or UTC; Julian day, days since 1950 or MJD2000
 * @param[in]  in        state in its initial frame; may be out
 * @param[in]  final_cs  frame wanted
 * @param[out] out       state there; untouched on failure
 * @return 0, 1 when something was warned of, or -1
 *
 * Conditions KL_CHAIN_*. Errors: _DATE_RECORD its reference or format, _INITIAL, _FINAL, _EARTH no state of the Earth,
 * _DATE_RANGE more than a day outside the processing range, _TIME_ID not initialised, _LIF on the way (no time id of
 * this library holds its reference), _UT1 date not converted, or no routine in the model id. Warnings: _PTOD and _QMOD
 * between KL_TOD and KL_PTOD, KL_MOD and KL_QMOD, whose state is copied; _PTOD_SKIPPED with every KL_MOD to KL_TOD;
 * _ACCELERATION order 2 and KL_BM2000 or KL_HM2000 at an end.
 */
KL_API long KL_Change_CoordinateSystem(kl_model_id *model_id, kl_time_id *time_id, long order,
                                       const kl_time_record *date, const Cord *in, long final_cs, Cord *out,
                                       kl_error_record *error);
/** The same among KL_GM2000 to KL_EF, KL_TEME, KL_QMOD and KL_PTOD, without nutation and with the linear sidereal
 * angle. KL_CHAIN_UT1 also when the id has no Earth model and the way needs that angle. */
KL_API long KL_Change_CoordinateSystem_Sim(kl_model_id *model_id, kl_time_id *time_id, long order,
                                           const kl_time_record *date, const Cord *in, long final_cs, Cord *out,
                                           kl_error_record *error);
/** Earth-fixed to the quasi Earth-fixed frame that the simplified chain reaches: takes polar motion off. */
KL_API long KL_EF_to_QEF(kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out, long order);

/** One step of a path: appends an edge code to the list and moves the current frame. */
KL_API void KL_Compute_Transformations(int32_t *count, int32_t *current, long final_cs, int32_t *list);
/** Brings the date of a path to UT1, MJD2000, where one of its edges needs that; 0, or -1 when it cannot (no time id, a
 * date more than a day outside the processing range, NaN), with the date as it was. */
KL_API long KL_Identify_nutation_or_rotation(kl_time_id *time_id, long count, const int32_t *list,
                                             kl_time_record *date);
/** Applies the edges of a path in order; in may be out. */
KL_API long KL_Start_computations(kl_model_id *model_id, kl_time_id *time_id, long count, const int32_t *list,
                                  const kl_time_record *date, const Cord *in, long final_cs, Cord *out, long order);

/*
 * The edges of the graph, in the order of their codes 0 to 23. Date: UT1 for 7 to 14, 22 and 23, TDB for the
 * translations 3, 4, 5 and 16 to 18 (other scales go through the time id). 0 or -1; in may be out.
 */
KL_API long KL_GALACTIC_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date,
                                  const Cord *in, Cord *out, long order);
KL_API long KL_GALACTIC_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date,
                                  const Cord *in, Cord *out, long order);
KL_API long KL_BM1950_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_BM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_BM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_HM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_GM2000_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                             Cord *out, long order);
KL_API long KL_MoD_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                          Cord *out, long order);
KL_API long KL_TOD_to_TEME(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order);
KL_API long KL_ToD_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                          Cord *out, long order);
KL_API long KL_PEF_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                          Cord *out, long order);
KL_API long KL_EF_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order);
KL_API long KL_PEF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order);
KL_API long KL_TEME_to_TOD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order);
KL_API long KL_ToD_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                          Cord *out, long order);
KL_API long KL_MoD_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                             Cord *out, long order);
KL_API long KL_GM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_GM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_HM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_BM2000_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                                Cord *out, long order);
KL_API long KL_BM2000_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date,
                                  const Cord *in, Cord *out, long order);
KL_API long KL_BM1950_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date,
                                  const Cord *in, Cord *out, long order);
KL_API long KL_EF_to_LIF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order);
KL_API long KL_LIF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order);
/* ---- bodies -------------------------------------------------------------------------------------------- */

/*
 * States are written into the vectors that the caller's Cord points to (elements 1 to 3); frame and order (1) are set,
 * the acceleration is never touched. Date records are KL_REF_TDB in KL_FORMAT_MJD2000.
 */

/** Barycentric (KL_BM2000) and heliocentric (KL_HM2000) state of the Earth: m, m/s. P. Stumpff (1980).
 * KL_EARTH_REFERENCE and KL_EARTH_FORMAT for other records. */
KL_API long KL_Earth(const kl_time_record *tdb, Cord *barycentric, Cord *heliocentric, kl_error_record *error);
/** Geocentric Sun, mean of date (KL_MOD): m, m/s; the Earth turned round, without light time. The acceleration is
 * not touched and may be NULL. KL_SUN_POSVEL_EARTH, KL_SUN_POSVEL_FRAME: no state of the Earth, no
 * change of frame. */
KL_API long KL_Sun_PosVel(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb, Cord *sun,
                          kl_error_record *error);
/** Geocentric Moon, mean of date (KL_MOD): m, m/s. J. Meeus (1984). KL_MOON_POSVEL_REFERENCE and
 * KL_MOON_POSVEL_FORMAT for other records. */
KL_API long KL_Moon_PosVel(const kl_time_record *tdb, Cord *moon, kl_error_record *error);
/**
 * Heliocentric planet (KL_HM2000): m, m/s. J. L. Simon et al. (1994). The record's codes are not checked.
 * Returns 1 with a complete state when it warns: KL_PLANETS_DEGRADED date beyond 1000 Julian years from J2000.0,
 * KL_PLANETS_CONVERGENCE. Error: KL_PLANETS_CODE planet not 1 to 8.
 */
KL_API long KL_Planets(long planet, const kl_time_record *tdb, Cord *state, kl_error_record *error);
/**
 * Sun as seen from a satellite (any frame), with the light time taken off in one refinement: state in KL_MOD and the
 * TAI instant (MJD2000) at which the light left. The satellite's three vectors must exist. KL_LIGHT_SUN_SATELLITE
 * its state, KL_LIGHT_SUN_REFERENCE the record is not TDB, KL_LIGHT_SUN_SUN.
 */
KL_API long KL_Sun_PosVel_Sun_Travel_Time(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *tdb,
                                          const Cord *satellite, Cord *sun, kl_time_record *emission,
                                          kl_error_record *error);
/**
 * The same for a time of any scale (KL_TIME_TAI to KL_TIME_GPS, MJD2000), in KL_EF: m, m/s. The axes are those of the
 * instant at which the light left; with KL_TIME_UT1 those of the given time. KL_TRAVEL_TIME_*: the bits of kl_sun.
 */
KL_API long KL_Sun_travel_time(kl_model_id *model_id, kl_time_id *time_id, long time_ref, double time,
                               const Cord *satellite, double sun_pos[3], double sun_vel[3], kl_error_record *error);

/*
 * Domain of the three theories: measured for 1950 to 2099 (MJD 33282 to 88069), where the figures of kl_sun, kl_moon
 * and kl_planet hold. They look at no date: polynomials in time carry on outside, with errors that grow, and beyond
 * some 100 000 years (1e8 days) the numbers have no meaning (no ellipses, sines of angles above 1e8 rad, NaN).
 */

/** Earth: velocities (AU/s) and positions (AU), barycentric and heliocentric; date MJD TDB; mean equator and equinox
 * of the Julian epoch deqx, of the date when deqx <= 0. */
KL_API void KL_SlaEvp(double dvb[3], double dpb[3], double dvh[3], double dph[3], double date, double deqx);
/** Geocentric Moon, mean equator and equinox of date: AU, AU/s; date MJD TDB. */
KL_API void KL_SlaDmoon(double pv[6], double date);
/** Heliocentric planet (KL_MERCURY to KL_NEPTUNE), J2000: AU, AU/s; date MJD TDB. jstat: 0, 1 beyond 1000 years from
 * J2000.0, 2 Kepler's equation not solved, -1 no such planet (pv zero). */
KL_API void KL_SlaPlanet(long np, double pv[6], long *jstat, double date);
/** Precession matrix from Julian epoch ep0 to ep1, J. H. Lieske (1979). */
KL_API void KL_SlaPrec(double ep0, double ep1, double rmatp[3][3]);
/** Up to three turns of the axes (rad) about those that `order` names: x, y, z in either case, or 1, 2, 3. Any other
 * letter ends it. */
KL_API void KL_SlaDeuler(const char *order, double phi, double theta, double psi, double rmat[3][3]);

/* ---- mathematics --------------------------------------------------------------------------------------- */

/*
 * Flat vectors and matrices: element 0 first, matrices row by row, 3x3 unless sizes are given. Outputs of element-wise
 * operations and of the 3x3 and 3-vector products may be one of the inputs.
 */

KL_API void KL_add_vv(const double *a, long n, const double *b, double *out); /**< out = a + b */
KL_API void KL_sub_vv(const double *a, long n, const double *b, double *out); /**< out = a - b */
KL_API void KL_mult_ev(long n, const double *a, double *out, double s);       /**< out = s a */
KL_API double KL_mult_vv(const double *a, long n, const double *b);           /**< dot product */
KL_API void KL_mult3_vv(const double *a, const double *b, double *out);       /**< cross product */
KL_API void KL_copy_v(const double *a, long n, double *out);
/** Length; on purpose the sum of squares itself where that is not above 1e-20, so that a null vector shows. */
KL_API double KL_modulus(const double *a, long n);
/** Normalises in place and returns what KL_modulus says; a vector that counts as null is left as it is. */
KL_API double KL_norm(double *a, long n);
/** Time derivative of the unit vector of a: (da - (u.da) u) / |a|, |a| the true length; NaN for a null vector. */
KL_API void KL_Unit_Vector_Deriv(const double *a, const double *da, double *out);
KL_API void KL_add_mm(const double *a, const double *b, double *out);
KL_API void KL_sub_mm(const double *a, const double *b, double *out);
KL_API void KL_mult_mm(const double *a, const double *b, double *out);
/** n x m by m x p; out is neither of them. */
KL_API void KL_mult_mm2(const double *a, long n, long m, const double *b, long p, double *out);
KL_API void KL_mult_mv(const double *a, const double *v, double *out);
KL_API void KL_mult_mv2(const double *a, long n, long m, const double *v, double *out);
KL_API void KL_mult_vm(const double *v, const double *a, double *out); /**< row vector times matrix */
KL_API void KL_mult_em(const double *a, double *out, double s);
KL_API void KL_copy_m(const double *a, double *out);
KL_API void KL_transpose(const double *a, double *out);
KL_API void KL_transpose2(const double *a, long n, long m, double *out); /**< out, m x n, is not a */
KL_API double KL_det(const double *a);
KL_API void KL_identity(long n, long m, double *out);
/**
 * Inverse by Gauss-Jordan elimination with the largest pivot of each column, the first on ties.
 *
 * @param[in,out] a         [n x m] square in use; destroyed
 * @param[in,out] identity  [n x m] the identity; destroyed
 * @param[out]    out       [n x m] the inverse
 * @return 0, or -1 at an exact zero pivot and for n > m; 0 at once for sizes below 1
 */
KL_API long KL_inverse_gauss_jordan_reduction(double *a, double *identity, long n, long m, double *out);
KL_API long KL_inverse(const double *a, long n, long m, double *out); /**< on copies; -1 also for n != m, no memory */
KL_API long KL_inverse3(const double *a, double *out);
/** out = M^-1 v, dout = -M^-1 (dM out), ddout = M^-1 (-ddM out - 2 dM dout); all NaN where M has no inverse. */
KL_API void KL_Vector_derivs(const double *m, const double *dm, const double *ddm, const double *v, double *out,
                             double *dout, double *ddout);
KL_API long KL_Check_orthonormal(const double *a); /**< 1 when the rows are orthonormal within 1e-6 */

/* One-based vectors and matrices; a matrix has its rows in one block. Allocators give zeros, or NULL. */

KL_API double *KL_dvector(long lo, long hi);
KL_API double *KL_double_vector(long n);
KL_API void KL_free_dvector(double *v, long lo);
KL_API void KL_free_double_vector(double *v);
KL_API int32_t *KL_ivector(long lo, long hi);
KL_API void KL_free_ivector(int32_t *v, long lo);
KL_API double **KL_dmatrix(long rlo, long rhi, long clo, long chi);
KL_API double **KL_double_matrix(long n, long m);
KL_API void KL_free_dmatrix(double **m, long rlo, long clo);
KL_API void KL_free_double_matrix(double **m);
KL_API void KL_dvadd(const double *a, long n, const double *b, double *out);
KL_API void KL_dvsub(const double *a, long n, const double *b, double *out);
KL_API void KL_dvsmy(const double *a, long n, double *out, double s);
KL_API void KL_dvcopy(const double *a, long n, double *out);
KL_API double KL_dvdot(const double *a, long n, const double *b);
KL_API double KL_dvmag(const double *a, long n); /**< as KL_modulus */
KL_API double KL_dvnorm(double *a, long n);      /**< as KL_norm */
KL_API void KL_threedim_dvmult(const double *a, const double *b, double *out);
KL_API void KL_dmmult(double *const *a, long n, long m, double *const *b, long p, double **out);
KL_API void KL_dmvmult(double *const *a, long n, long m, const double *v, double *out);
KL_API void KL_dvmmult(const double *v, long n, double *const *a, long m, double *out);
KL_API void KL_dmadd(double *const *a, long n, long m, double *const *b, double **out);
KL_API void KL_dmsub(double *const *a, long n, long m, double *const *b, double **out);
KL_API void KL_dmsmy(double *const *a, long n, long m, double **out, double s);
KL_API void KL_dmtranspose(double *const *a, long n, long m, double **out); /**< out, m x n, is not a */
KL_API void KL_dmcopy(double *const *a, long n, long m, double **out);
KL_API double KL_dm_det(double *const *a); /**< 3x3 */
/**
 * LU decomposition in place: Crout's method with implicit pivoting. A zero pivot becomes 1e-20, so that singular
 * matrices are not reported.
 *
 * @param[in,out] a       [1..n][1..n]
 * @param[out]    index   [1..n] the row swapped in at each step
 * @param[out]    parity  1 or -1 after an even or odd number of swaps
 * @return 0, or -1 without memory
 */
KL_API long KL_ludcmp(double **a, long n, int32_t *index, double *parity);
KL_API void KL_lubksb(double *const *a, long n, const int32_t *index, double *b); /**< b becomes the solution */
KL_API long KL_dsolve(double *const *a, long n, const double *b, double *x);      /**< on copies; -1 without memory */
KL_API long KL_dminv(double *const *a, long n, double **out);                     /**< on a copy; -1 without memory */
KL_API double KL_detm(double *const *a, long n);                                  /**< on a copy; 0 without memory */

KL_API void KL_Cord_Set(long cs, long order, const double pos[3], const double vel[3], const double acc[3], Cord *cord);
KL_API void KL_Cord_Reset(Cord *cord); /**< zeroes frame, order and the three vectors */
KL_API void KL_Copy_Cord(const Cord *from, Cord *to);
KL_API void KL_Mult_Cord(const Cord *from, Cord *to, double s);

/** A vector with its derivatives: one-based 3-vectors. */
typedef struct kl_vec_der {
    long word;
    double *value, *first, *second;
} kl_vec_der;
/** 0, or -1 when any of the three could not be had: release with KL_Free_vec_der all the same. */
KL_API long KL_Alloc_vec_der(kl_vec_der *block);
KL_API void KL_Free_vec_der(kl_vec_der *block);

KL_API kl_complex KL_Complex(double re, double im);
KL_API kl_complex KL_Cadd(kl_complex a, kl_complex b);
KL_API kl_complex KL_Csub(kl_complex a, kl_complex b);
KL_API kl_complex KL_Cmul(kl_complex a, kl_complex b);
KL_API kl_complex KL_Cdiv(kl_complex a, kl_complex b);
KL_API kl_complex KL_Conjg(kl_complex a);
KL_API double KL_Cabs(kl_complex a);
KL_API kl_complex KL_Csqrt(kl_complex a); /**< principal root */
KL_API kl_complex KL_RCmul(double s, kl_complex a);

/*
 * Frame rotations: one-based 3x3, radians. About x the rows are (1, 0, 0), (0, C, S), (0, -S, C). KL_D* is the first
 * derivative in time for an angle with a rate, KL_2D* the second.
 */
KL_API void KL_Rotx(double angle, double **m);
KL_API void KL_Roty(double angle, double **m);
KL_API void KL_Rotz(double angle, double **m);
KL_API void KL_Drotx(double angle, double rate, double **m);
KL_API void KL_Droty(double angle, double rate, double **m);
KL_API void KL_Drotz(double angle, double rate, double **m);
KL_API void KL_2Drotx(double angle, double rate, double rate_of_rate, double **m);
KL_API void KL_2Droty(double angle, double rate, double rate_of_rate, double **m);
KL_API void KL_2Drotz(double angle, double rate, double rate_of_rate, double **m);

KL_API double KL_to_rad(double degrees);
KL_API double KL_to_deg(double radians);
KL_API double KL_degsin(double degrees);
KL_API double KL_degcos(double degrees);
KL_API double KL_degasin(double x); /**< deg; beyond [-1, 1] a line on standard error and the clamped result */
KL_API double KL_degacos(double x); /**< deg; likewise */
KL_API double KL_degatan2(double y, double x);
KL_API double KL_degtan2(double a, double b); /**< on purpose tan(a / b), not an arc tangent */
KL_API double KL_to_2pi(double angle);        /**< [0, 2 pi) */
KL_API double KL_to_pi(double angle);         /**< [-pi, pi) */
KL_API double KL_to_180(double degrees);      /**< [-180, 180) */
KL_API double KL_to_360(double degrees);      /**< [0, 360) */
KL_API double KL_Get_Bessel(double t);        /**< Besselian year of an MJD2000 date */
KL_API double KL_Get_ut2_ut1(double t);       /**< UT2 - UT1, s, of an MJD2000 date */

/* ---- rotations and quaternions ------------------------------------------------------------------------- */

/* Quaternions have their scalar last. Outputs may be inputs. */

KL_API void KL_Quaternion_product(const double p[4], const double r[4], double out[4]); /**< Hamilton's */
KL_API void KL_Quaternion_conjugate(const double q[4], double out[4]);
KL_API void KL_Quaternion_inverse(const double q[4], double out[4]); /**< of a unit quaternion: the conjugate */
KL_API double KL_Quaternion_norm(double q[4]);                       /**< in place, as KL_norm */
/** Angle in radians, 0 to 2 pi: of a quaternion of unit length (its square within 1e-3) with all digits, of another one
 * twice the arc cosine of the scalar; without a rotation the axis is null. */
KL_API void KL_Quaternion_to_axis_angle(const double q[4], double axis[3], double *angle);
KL_API void KL_Angle_axis_to_quaternion(const double axis[3], double out[4], double angle);
/** q1 turned on towards q2 by a multiple of the rotation between them, which is not made the shorter one. */
KL_API void KL_Quaternion_extrapol(const double q1[4], const double q2[4], double out[4], double factor);
/** Spherical linear interpolation; q2 is negated in place where it lies on the other half. */
KL_API void KL_Slerp_algo(const double q1[4], double q2[4], double out[4], double u);
/** 1 when the matrix is the one that sines and cosines of three angles make, within 1e-9. */
KL_API long KL_Check_rotation_matrix(const double matrix[9], double s0, double c0, double s1, double c1, double s2,
                                     double c2);
/** Matrix from axes 1 to axes 2 (unit vectors, row by row): v2 = M v1. -1 when they are of different hands. */
KL_API long KL_CS_Rotation(const double axes1[9], const double axes2[9], double matrix[9]);

/* ---- geometry ------------------------------------------------------------------------------------------ */

/*
 * Positions in Earth-fixed axes, or any whose z is the Earth's; m. Directions need not be of length 1; a result `t` is
 * in metres along the unit direction, negative behind the position. -1 for input that is not finite, a direction
 * without length, and what else a function names; nothing is written then.
 */

/**
 * Distinct real roots of c[0] + c[1] x + ... + c[order] x^order, ascending: their number. `roots` has room for `order`
 * of them. Leading zeros lower the order, a multiple root is given once; from order 3 on roots so close that rounding
 * the coefficients could make them one are one. -1 for an order outside 1 to 4, or when all but c[0] are zero.
 */
KL_API long KL_Poly_real_roots(long order, const double *c, double *roots);
/**
 * Where a line meets the ellipsoid with semi-axes a + margin and (a + margin) b/a: the number of points, 0 to 2; `t`
 * ascending, NaN beyond the number. -1 also when a + margin is not positive.
 */
KL_API long KL_Ray_ellipsoid(const kl_model_id *model_id, const double pos[3], const double dir[3], double margin,
                             double t[2]);
/** Where a line has a geodetic height, -1e5 to 1e9 m: the number of points, 0 to 2; `t` as above. */
KL_API long KL_Ray_height(const kl_model_id *model_id, const double pos[3], const double dir[3], double height,
                          double t[2]);
/**
 * The point of a line where the geodetic height is smallest (rates 0). 1 when it lies below the ellipsoid, so that the
 * line meets the Earth, else 0; -1 also for lines that come within 1e5 m of the centre.
 */
KL_API long KL_Ray_tangent(const kl_model_id *model_id, const double pos[3], const double dir[3], double *t,
                           double point[3], kl_geodetic *geodetic);
/**
 * Nearest point of the ellipse with semi-axes a >= b > 0, along x and y, and the distance, negative inside. On the
 * segment between the centres of curvature, where two points are equally near, the one with y > 0. 0.
 */
KL_API long KL_Ellipse_nearest(double a, double b, double x, double y, double foot[2], double *distance);
/**
 * Length of the ellipse from one eccentric angle to another, rad; negative when beta2 < beta1. NaN for axes that are
 * not a >= b > 0, or what is not finite.
 */
KL_API double KL_Ellipse_arc(double a, double b, double beta1, double beta2);

/**
 * What kl_eclipse does, for a satellite and a Sun that are known: from the centre of the Earth, m, in axes whose z is
 * the Earth's (kl_sun gives KL_EF). margin: as there, NULL is 0. Reports as kl_eclipse, bits KL_ECLIPSE_POSITION_ERR,
 * KL_ECLIPSE_SUN_ERR and KL_ECLIPSE_MARGIN_ERR alone. KL_OK, or KL_ERR with the outputs untouched.
 */
KL_API long KL_Eclipse(kl_model_id *model_id, const double pos[3], const double sun[3], const double *margin,
                       long *state, double *fraction, double *depth, long *ierr);

/* ---- stars --------------------------------------------------------------------------------------------- */

/**
 * Place of a star: unit vector, mean equator of J2000, for an observer (m, m/s; mean equator of J2000; position from
 * the barycentre and from the Sun, velocity from the barycentre) at a date (TDB, MJD2000). `corrections`: sum of
 * KL_STAR_PARALLAX, KL_STAR_ABERRATION, KL_STAR_DEFLECTION. 0, or -1 for other corrections, star data out of range, an
 * observer that is not finite, at the centre of the Sun or not slower than light. The star routine of the model record.
 */
KL_API long KL_Star_place(const kl_star *star, const double observer_barycentric[3], const double observer_velocity[3],
                          const double observer_heliocentric[3], double tdb, long corrections, double place[3]);

/* ---- coordinates and orbits ------------------------------------------------------------------------------ */

/**
 * Kernel of kl_cart_to_geod: geodetic latitude and longitude (-pi to pi) in radians, height in metres, of an
 * Earth-fixed position in metres. Warns, with the distance from the centre in metres, where two points of the ellipsoid
 * are equally near (the northern one is taken); -1 for a position that kl_cart_to_geod refuses.
 */
KL_API long KL_Car_Geo(const kl_model_id *model_id, const double pos[3], double *lat, double *lon, double *h,
                       kl_error_record *record);
/**
 * Eccentric anomaly E of E - e sin E = M, radians, in the turn of M: |M| up to 1e8, 0 <= e < 1; NaN otherwise.
 */
KL_API double KL_Kepler_ellipse(double mean_anomaly, double eccentricity);
/** Hyperbolic anomaly H of e sinh H - H = M, radians: any finite M, e > 1; NaN otherwise. */
KL_API double KL_Kepler_hyperbola(double mean_anomaly, double eccentricity);
/**
 * Frame that goes along with a satellite: kl_local_orbital_frame without its vector; 0, or -1 for what that refuses.
 */
KL_API long KL_Local_orbital_frame(long kind, const double pos[3], const double vel[3], const double acc[3],
                                   double r[9], double dr[9]);

#ifdef __cplusplus
}
#endif

#endif
