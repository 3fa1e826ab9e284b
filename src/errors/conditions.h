// Conditions of the functions that nobody outside the library sees.
// Written by tools/api/generate.py from the table in api/.
#ifndef KL_SRC_ERRORS_CONDITIONS_H
#define KL_SRC_ERRORS_CONDITIONS_H

/** Conditions of KL_Car_Geo. */
enum {
    KL_CAR_GEO_COMPUTATION = 0, /**< never recorded */
    KL_CAR_GEO_N_CODES = 1
};

/** Conditions of KL_Load_sp3_orbit_file_list. */
enum {
    KL_LOAD_SP3_FILE = 0,   /**< never recorded */
    KL_LOAD_SP3_N_CODES = 1
};

/** Conditions of KL_Time_check_ascii_inputs. */
enum {
    KL_ASCII_IN_FORMAT = 0,
    KL_ASCII_IN_REF = 1,
    KL_ASCII_IN_YEAR = 2,
    KL_ASCII_IN_LAYOUT = 3,
    KL_ASCII_IN_TOO_SHORT = 4,
    KL_ASCII_IN_TOO_LONG = 5,
    KL_ASCII_IN_PREFIX = 6,
    KL_ASCII_IN_PREFIX_REF = 7,
    KL_ASCII_IN_NO_REF = 8,
    KL_ASCII_IN_MISSION_LIMIT = 9,
    KL_ASCII_IN_MONTH = 10,
    KL_ASCII_IN_DAY = 11,
    KL_ASCII_IN_HOUR = 12,
    KL_ASCII_IN_MINUTE = 13,
    KL_ASCII_IN_SECOND = 14,
    KL_ASCII_IN_MICROSECOND = 15,
    KL_ASCII_IN_DAY_OF_30 = 16,
    KL_ASCII_IN_DAY_OF_29 = 17,
    KL_ASCII_IN_DAY_OF_28 = 18,
    KL_ASCII_IN_LEAP_SECOND = 19,
    KL_ASCII_IN_N_CODES = 20
};

/** Conditions of KL_Time_check_ascii_outputs. */
enum {
    KL_ASCII_OUT_FORMAT = 0,
    KL_ASCII_OUT_REF = 1,
    KL_ASCII_OUT_N_CODES = 2
};

/** Conditions of KL_Time_check_transport_inputs. */
enum {
    KL_TRANS_IN_FORMAT = 0,
    KL_TRANS_IN_REF = 1,
    KL_TRANS_IN_GPS_REF = 2,
    KL_TRANS_IN_DAYS = 3,
    KL_TRANS_IN_LEAP_SECOND = 4,
    KL_TRANS_IN_SECONDS = 5,
    KL_TRANS_IN_MILLISECONDS = 6,
    KL_TRANS_IN_MICROSECONDS = 7,
    KL_TRANS_IN_TICKS = 8,
    KL_TRANS_IN_WEEK = 9,
    KL_TRANS_IN_SECONDS_OF_WEEK = 10,
    KL_TRANS_IN_FRACTION = 11,
    KL_TRANS_IN_GPS_SECONDS = 12,
    KL_TRANS_IN_N_CODES = 13
};

/** Conditions of KL_Time_check_transport_outputs. */
enum {
    KL_TRANS_OUT_FORMAT = 0,
    KL_TRANS_OUT_REF = 1,
    KL_TRANS_OUT_GPS_REF = 2,
    KL_TRANS_OUT_N_CODES = 3
};

/** Conditions of KL_Time_t2a_format_from_std. */
enum {
    KL_ASCII_WRITE_BEFORE_1950 = 0,
    KL_ASCII_WRITE_AFTER_2099 = 1,
    KL_ASCII_WRITE_N_CODES = 2
};

/** Conditions of KL_Dhcsin. */
enum {
    KL_DHCSIN_FILE = 0,   /**< never recorded */
    KL_DHCSIN_N_CODES = 1
};

/** Conditions of KL_Dhccorr. */
enum {
    KL_DHCCORR_MEMORY = 0, /**< never recorded */
    KL_DHCCORR_FILE = 1,   /**< never recorded */
    KL_DHCCORR_N_CODES = 2
};

/** Conditions of kl_time_current_time. */
enum {
    KL_CURRENT_TIME_CLOCK = 0,      /**< never recorded */
    KL_CURRENT_TIME_CONVERSION = 1, /**< never recorded */
    KL_CURRENT_TIME_LOCK = 2,       /**< never recorded */
    KL_CURRENT_TIME_UNLOCK = 3,     /**< never recorded */
    KL_CURRENT_TIME_N_CODES = 4
};

/** Conditions of KL_Coticchia_Surace. */
enum {
    KL_COTICCHIA_SURACE_COMPUTATION_ERR = 0, /**< never recorded */
    KL_COTICCHIA_SURACE_N_CODES = 1
};

#endif
