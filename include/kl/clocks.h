/**
 * @file clocks.h
 * On-board clocks and the CCSDS unsegmented time code.
 */
#ifndef KL_CLOCKS_H
#define KL_CLOCKS_H

#include "kl/time.h"

#ifdef __cplusplus
extern "C" {
#endif

/** CCSDS unsegmented time code. */
enum { KL_CUC_TIME_FIELD_ONLY = 0, KL_CUC_WITH_P_FIELD = 1 };
enum { KL_CUC_EPOCH_1958 = 0, KL_CUC_EPOCH_1980 = 1, KL_CUC_EPOCH_USER = 2 };

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
    unsigned long week;            /**< GPS week since 1980-01-06, all of it: see KL_TRANS_31 about weeks of 10 bits */
    unsigned long seconds_of_week; /**< s */
    unsigned long fraction;        /**< 2^-16 s */
} kl_obt_param_brisa;

/** Clock correlation of the Vardo format. */
typedef struct kl_obt_param_vardo {
    long sat_id;
    long offset; /**< s */
} kl_obt_param_vardo;

/** Layout of a CUC. */
typedef struct kl_cuc_config {
    long cuc_type;       /**< KL_CUC_TIME_FIELD_ONLY or KL_CUC_WITH_P_FIELD */
    long epoch_type;     /**< KL_CUC_EPOCH_1958, _1980 or _USER */
    long epoch_time_ref; /**< scale of epoch, with KL_CUC_EPOCH_USER */
    double epoch;        /**< MJD2000, days, with KL_CUC_EPOCH_USER */
    long n_coarse;       /**< 1 to 7 octets */
    long n_fine;         /**< 0 to 10 octets */
} kl_cuc_config;

/** Conditions of kl_time_obt_to_time, from api/clocks.toml. */
enum {
    KL_TIME_OBT_TO_TIME_SAT_ID_ERR = 0,     /**< no such satellite */
    KL_TIME_OBT_TO_TIME_TIME_REF_ERR = 1,   /**< time reference outside 0 to 3 */
    KL_TIME_OBT_TO_TIME_TAG_ERR = 2,        /**< parameters or on-board time of another satellite, or NULL */
    KL_TIME_OBT_TO_TIME_REF_TIME_ERR = 3,   /**< reference time outside -18262.0 to 36524.0 */
    KL_TIME_OBT_TO_TIME_NO_OBT_ERR = 4,     /**< a satellite without an on-board-time format */
    KL_TIME_OBT_TO_TIME_OBT_ERR = 5,        /**< never recorded */
    KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR = 6, /**< clock step 0 */
    KL_TIME_OBT_TO_TIME_TIME_ERR = 7,       /**< result outside -18262.0 to 36524.0 */
    KL_TIME_OBT_TO_TIME_N_CODES = 8
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

/** Conditions of kl_time_time_to_obt, from api/clocks.toml. */
enum {
    KL_TIME_TIME_TO_OBT_SAT_ID_ERR = 0,     /**< no such satellite */
    KL_TIME_TIME_TO_OBT_TIME_REF_ERR = 1,   /**< time reference outside 0 to 3 */
    KL_TIME_TIME_TO_OBT_TAG_ERR = 2,        /**< parameters or on-board time of another satellite, or NULL */
    KL_TIME_TIME_TO_OBT_TIME_ERR = 3,       /**< time outside -18262.0 to 36524.0 */
    KL_TIME_TIME_TO_OBT_REF_TIME_ERR = 4,   /**< reference time outside that range */
    KL_TIME_TIME_TO_OBT_NO_OBT_ERR = 5,     /**< a satellite without an on-board-time format */
    KL_TIME_TIME_TO_OBT_OBT_ERR = 6,        /**< a count below 0 or beyond 64 bits, or not finite (a gain of 0) */
    KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR = 7, /**< clock step 0 */
    KL_TIME_TIME_TO_OBT_N_CODES = 8
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

/** Conditions of kl_time_cuc_to_processing, from api/clocks.toml. */
enum {
    KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR = 0,  /**< time id, CUC type, octet counts, epoch type or time reference */
    KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR = 1, /**< identification other than 001 and 010; a third octet announced */
    KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR = 2,   /**< the epoch is not finite, or cannot be converted */
    KL_TIME_CUC_TO_PROCESSING_N_CODES = 3
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
 *
 * DECODE TO TAI OR GPS, and convert from there: the seconds of the code know no leap seconds. Decoded to KL_TIME_UTC
 * (or KL_TIME_UT1) with a table that knows several, the time IS LATE BY THE LEAP SECONDS SINCE THE EPOCH: 27 s from
 * 2017 on for KL_CUC_EPOCH_1958, 18 s for KL_CUC_EPOCH_1980. examples/cuc_to_utc.c does it right.
 *
 * Source: CCSDS 301.0-B, section on the unsegmented time code.
 */
KL_API long kl_time_cuc_to_processing(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                                      const unsigned char *cuc, double *time, long *ierr);

/** Conditions of kl_time_processing_to_cuc, from api/clocks.toml. */
enum {
    KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR = 0,  /**< as above; also seconds that do not fit the coarse octets */
    KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR = 1,   /**< the epoch is not finite, or cannot be converted */
    KL_TIME_PROCESSING_TO_CUC_TIME_ERR = 2,    /**< time before the epoch, or NaN */
    KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR = 3, /**< no P-field says KL_CUC_EPOCH_1980 */
    KL_TIME_PROCESSING_TO_CUC_N_CODES = 4
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
 * do not fit are an error and never a smaller number. Epochs and source as above. CONVERT UTC TO TAI OR GPS FIRST, for
 * the reason given there: from KL_TIME_UTC the code lacks the leap seconds since the epoch.
 */
KL_API long kl_time_processing_to_cuc(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                                      const double *time, unsigned char *cuc, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
