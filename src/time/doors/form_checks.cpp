// The checks of processing times, texts and transport times for the family, and the standard record.
#include "time/doors/checks.h"

#include <iterator>

namespace {

// The one condition that a check met, if any.
long status_of(Activation &call, const Fault &fault)
{
    return fault ? call.fails(fault.code, &fault.shown) : call.status();
}

} // namespace

long KL_Time_check_processing_inputs(long format, long ref, const double *time, kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_PROCESSING_INPUTS, error);
    return status_of(call, check_processing_input(format, ref, time));
}

long KL_Time_check_processing_outputs(long format, long ref, kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_PROCESSING_OUTPUTS, error);
    return status_of(call, check_processing_output(format, ref));
}

long KL_Time_p2t_format_to_std(kl_time_id *time_id, long ref, const double *time, kl_std_record *out,
                               kl_error_record *error)
{
    Activation call(KL_FN_TIME_P2T_FORMAT_TO_STD, error);
    if (time == nullptr || out == nullptr)
        return KL_ERR;
    // Far outside the calendar there are no seconds to speak of: a value without a meaning, as long as it is one.
    constexpr double kLargest = 1e15; // days
    if (!(*time >= -kLargest && *time <= kLargest)) {
        *out = {truncated_to_long(*time), 0, 0};
        return call.status();
    }
    const Moment<double> moment = moment_of(*time);
    *out = record_of(moment);
    if (out->seconds == 86400 && ref == KL_TIME_UTC && !inside_processing_range(moment.days)) {
        Activation(KL_FN_TIME_CHECK_LEAP_SECOND, KL_NO_RECORD).fails(KL_LEAP_CHECK_DATE);
        return call.fails(KL_P2T_LEAP_SECOND);
    }
    *out = record_of(midnight_carried(correlation_of(time_id), ref, moment));
    return call.status();
}

long KL_Time_t2p_format_from_std(const kl_std_record *in, double *out)
{
    if (in != nullptr && out != nullptr)
        *out = days_of(moment_of(*in));
    return 0;
}
