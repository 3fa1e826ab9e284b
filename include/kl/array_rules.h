/**
 * @file array_rules.h
 * What holds for every function whose name ends in `_n`: one call for n elements.
 *
 * `kl_f_n` takes the arguments of `kl_f` with n after the ids and `status` before `ierr`. What is one value in the
 * scalar function and differs from element to element is an array of n: `time[n]`, `pos[n][3]`, records, texts at a
 * fixed distance of `width` octets. References, frames, modes and the like are one value for the call; so are the
 * origin of topocentric coordinates, the configuration of a CUC and the parameters of an on-board clock.
 *
 * - n: 0 is KL_OK and touches nothing but `ierr`; below 0 or NULL is KL_ERR with a clear vector.
 * - status: [n] or NULL; KL_OK, KL_WARN or KL_ERR of each element, as the scalar call gives it.
 * - ierr: the union of the vectors of all elements, decoded with the id of the scalar function. What does not depend on
 *   an element (a selector, an id that is always needed, an array that is missing) refuses the call: its bit stands
 *   alone, its lines are printed once and every element counts as failed.
 * - A run that is not initialised fails every element and leaves `ierr` as it was, as the scalar twin does.
 * - Return: KL_ERR when an element failed, else KL_WARN when one warned, else KL_OK.
 * - An element that fails gets NaN in its doubles, 0 in its integers and an empty text; all others are computed.
 * - Every element has the bits that n scalar calls in order give it, on every machine: values, statuses, once-only
 *   warnings, and in verbose mode the lines.
 * - An output array may be an input array of the same shape (the same address); arrays overlap in no other way.
 * - Equal instants in a row share what depends on the instant alone.
 * - No thread is started, no lock taken and no memory allocated: callers may split an array between threads.
 */
#ifndef KL_ARRAY_RULES_H
#define KL_ARRAY_RULES_H

#include "kl/types.h"

#endif
