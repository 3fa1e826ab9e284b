// On-board clocks: the four mission formats, to processing time and back, in the scale of their parameters.
#ifndef KL_SRC_TIME_CLOCKS_MISSION_CLOCKS_H
#define KL_SRC_TIME_CLOCKS_MISSION_CLOCKS_H

#include "kl_lib.h"

// Satellites with a format of their own.
constexpr long KL_SAT_TARVOS = 21;
constexpr long KL_SAT_VARDO = 51;
constexpr long KL_SAT_KELDA = 61;
constexpr long KL_SAT_BRISA = 71;

constexpr bool has_clock(long sat_id)
{
    return sat_id == KL_SAT_TARVOS || sat_id == KL_SAT_KELDA || sat_id == KL_SAT_BRISA || sat_id == KL_SAT_VARDO;
}

// Octets of a reading of one of the four, and a reading without a meaning, which keeps its satellite.
long reading_size(long sat_id);
void clear_reading(long sat_id, void *obt);

// MJD2000 days of a reading, which may lie outside the processing range. Parameters and reading are records of the
// satellite, one of the four.
double clock_to_time(long sat_id, const void *parameters, const void *obt);
// The reading of a time inside the range, into a record that has its satellite already; false, with nothing written,
// when it has no place in its fields.
bool time_to_clock(long sat_id, const void *parameters, double time, void *obt);

#endif
