// Units of Earth orientation.
#ifndef KL_SRC_ORIENTATION_UNITS_H
#define KL_SRC_ORIENTATION_UNITS_H

#include "numbers/numbers.h"

constexpr double kSecondsPerDay = KL_SECONDS_PER_DAY;
constexpr double kDaysPerCentury = KL_DAYS_PER_CENTURY;
constexpr double kRadPerArcsecond = KL_RAD_PER_ARCSEC;
constexpr double kRadPerMicroarcsecond = kRadPerArcsecond * 1e-6;
constexpr double kTtMinusTai = KL_TT_MINUS_TAI; // s

#endif
