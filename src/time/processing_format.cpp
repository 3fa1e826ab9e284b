// The processing format: its checks, and its way to the standard record and back.
#include "errors/message_groups.h"
#include "time/scales.h"

namespace {

constexpr Message kInputRows[] = {
    /* KL_CHECK_IN_FORMAT */ error("Input processing format ID is not correct (%li)", kLongArgument),
    /* KL_CHECK_IN_REF    */ error("Input time reference ID is not correct (%li)", kLongArgument),
    /* KL_CHECK_IN_DAYS   */ error("Number of days out of range (%li)", kLongArgument),
};
constexpr Message kOutputRows[] = {
    /* KL_CHECK_OUT_FORMAT */ error("Output processing format ID is not correct (%li)", kLongArgument),
    /* KL_CHECK_OUT_REF    */ error("Output time reference ID is not correct (%li)", kLongArgument),
};
constexpr Message kToStandardRows[] = {
    /* KL_P2T_LEAP_SECOND */ error("Error checking leap second"),
};

} // namespace

const MessageGroup messages_KL_Time_check_processing_inputs = group(kInputRows);
const MessageGroup messages_KL_Time_check_processing_outputs = group(kOutputRows);
const MessageGroup messages_KL_Time_p2t_format_to_std = group(kToStandardRows);

long KL_Time_check_processing_inputs(long format, long ref, const double *time, kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_PROCESSING_INPUTS, error);
    if (format != KL_PROC)
        return call.fails(KL_CHECK_IN_FORMAT, &format);
    if (!is_time_ref(ref))
        return call.fails(KL_CHECK_IN_REF, &ref);
    if (time == nullptr || !inside_processing_range(*time)) {
        const long shown = time != nullptr ? truncated_to_long(*time) : 0;
        return call.fails(KL_CHECK_IN_DAYS, &shown);
    }
    return call.status();
}

long KL_Time_check_processing_outputs(long format, long ref, kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_PROCESSING_OUTPUTS, error);
    if (format != KL_PROC)
        return call.fails(KL_CHECK_OUT_FORMAT, &format);
    if (!is_time_ref(ref))
        return call.fails(KL_CHECK_OUT_REF, &ref);
    return call.status();
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
    *out = standard_of(*time);
    if (out->seconds != 86400)
        return call.status();

    // Rounded up to midnight: the next day, or the 61st second of a day with a leap second.
    long leap_flag = 0;
    if (ref == KL_TIME_UTC && KL_Time_check_leap_second(time_id, ref, out, &leap_flag, nullptr) != 0)
        return call.fails(KL_P2T_LEAP_SECOND);
    if (leap_flag == 0) {
        out->seconds = 0;
        ++out->days;
    }
    return call.status();
}

long KL_Time_t2p_format_from_std(const kl_std_record *in, double *out)
{
    if (in != nullptr && out != nullptr)
        *out = processing_of(*in);
    return 0;
}
