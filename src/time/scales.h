// The time floor, as the floors above it see it.
#ifndef KL_SRC_TIME_SCALES_H
#define KL_SRC_TIME_SCALES_H

#include "errors/activation.h"
#include "time/calendar.h"
#include "time/doors/checks.h"
#include "time/instants.h"
#include "time/staircase.h"
#include "time/time_record.h"

#endif
