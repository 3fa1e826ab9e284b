/**
 * @file arrays.h
 * Functions for many elements at once: the rules are those of kl/array_rules.h.
 * Written by tools/api/generate.py from the table in api/.
 */
#ifndef KL_ARRAYS_H
#define KL_ARRAYS_H

#include "kl/types.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
