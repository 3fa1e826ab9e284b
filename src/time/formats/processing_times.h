// The processing format: days since 2000-01-01 in a double.
#ifndef KL_SRC_TIME_FORMATS_PROCESSING_TIMES_H
#define KL_SRC_TIME_FORMATS_PROCESSING_TIMES_H

#include "time/formats/reading.h"
#include "time/staircase.h"

inline Fault check_processing_form(long format, long ref)
{
    if (format != KL_PROC)
        return {KL_CHECK_IN_FORMAT, format};
    if (!is_time_ref(ref))
        return {KL_CHECK_IN_REF, ref};
    return {};
}

inline Fault check_processing_days(double days)
{
    if (!inside_processing_range(days))
        return {KL_CHECK_IN_DAYS, truncated_to_long(days)};
    return {};
}

inline Fault check_processing_input(long format, long ref, const double *time)
{
    if (const Fault fault = check_processing_form(format, ref))
        return fault;
    return time != nullptr ? check_processing_days(*time) : Fault(KL_CHECK_IN_DAYS, 0);
}

inline Fault check_processing_output(long format, long ref)
{
    if (format != KL_PROC)
        return {KL_CHECK_OUT_FORMAT, format};
    if (!is_time_ref(ref))
        return {KL_CHECK_OUT_REF, ref};
    return {};
}

#endif
