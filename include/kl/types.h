/**
 * @file types.h
 * What all subjects share: status, ids of functions, sizes, handles.
 */
#ifndef KL_TYPES_H
#define KL_TYPES_H

#include <stdint.h>

#if defined(KL_API) /* a build that wants another meaning defines it */
#elif defined(__GNUC__)
#define KL_API __attribute__((visibility("default")))
#else
#define KL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Status of a public function. */
enum {
    KL_OK = 0,   /**< nothing recorded */
    KL_WARN = 1, /**< at least one warning, no error */
    KL_ERR = -1  /**< an error: the outputs are not to be used */
};

/** Kinds of id. */
enum { KL_ID_RUN = 1, KL_ID_TIME = 2, KL_ID_MODEL = 3 };

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
 * Public function ids, for kl_get_code and kl_get_msg. The numbers are those of the family.
 */
/* >>> public function ids: Written by tools/api/generate.py from the table in api/. */
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
    KL_ID_FUNC_MATRIX_TO_EULER = 41,
    KL_ID_FUNC_MODEL_INIT = 42,
    KL_ID_FUNC_MODEL_CLOSE = 43,
    KL_ID_FUNC_GEOID_CALC = 44,
    KL_ID_FUNC_QUATERNIONS_INTERPOL = 45,
    KL_ID_FUNC_TIME_CUC_TO_PROCESSING = 46,
    KL_ID_FUNC_TIME_PROCESSING_TO_CUC = 47
};
/* <<< */

/** Handle of a time id; zero-initialise it. */
typedef struct kl_time_id {
    void *record;
} kl_time_id;

/** Handle of a model id; zero-initialise it. */
typedef struct kl_model_id {
    void *record;
} kl_model_id;

#ifdef __cplusplus
}
#endif

#endif
