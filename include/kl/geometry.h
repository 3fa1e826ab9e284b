/**
 * @file geometry.h
 * Lines of sight, real roots, and how much of the Sun the Earth hides.
 */
#ifndef KL_GEOMETRY_H
#define KL_GEOMETRY_H

#include "kl/coordinates.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Where a satellite stands in the shadow of the Earth. */
enum {
    KL_SUNLIGHT = 0,
    KL_PENUMBRA = 1, /**< part of the Sun is hidden */
    KL_UMBRA = 2,    /**< all of it */
    KL_ANNULAR = 3   /**< the Earth stands before the Sun and is smaller: beyond 1.38e9 m */
};

#ifdef __cplusplus
}
#endif

#endif
