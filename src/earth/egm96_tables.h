// The EGM96 coefficients, built into the library.
//
// In triangular order, index n(n+1)/2 + m: HC, HS the fully normalised potential coefficients (dimensionless; Lemoine
// et al., NASA/TP-1998-206861) less the even zonal terms of the WGS84 normal field, CC, CS the correction from height
// anomaly to geoid undulation (cm; Rapp, J. Geodesy 71, 282-289, 1997). egm96_packed holds the same numbers, scaled and
// ordered for the kernels of geoid_kernel.h.
#ifndef KL_SRC_EARTH_EGM96_TABLES_H
#define KL_SRC_EARTH_EGM96_TABLES_H

#include "earth/egm96_layout.h"

extern "C" {
#pragma GCC visibility push(hidden)
extern const double HC_EGM96[kEgm96Count];
extern const double HS_EGM96[kEgm96Count];
extern const double CC_EGM96[kEgm96Count];
extern const double CS_EGM96[kEgm96Count];
extern const double egm96_packed[kEgm96PackedCount];
#pragma GCC visibility pop
}

#endif
