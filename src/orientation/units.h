// Units of Earth orientation.
#ifndef KL_SRC_ORIENTATION_UNITS_H
#define KL_SRC_ORIENTATION_UNITS_H

#include "numbers/numbers.h"

constexpr double kSecondsPerDay = 86400.0;
constexpr double kDaysPerCentury = 36525.0;
constexpr double kRadPerArcsecond = KL_RAD_PER_DEG / 3600.0;
constexpr double kRadPerMicroarcsecond = kRadPerArcsecond * 1e-6;
constexpr double kTtMinusTai = 32.184; // s

#endif
