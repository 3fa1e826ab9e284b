// The checks of processing times, texts and transport times for the family, and the standard record.
#include "errors/message_groups.h"
#include "time/doors/checks.h"

#include <iterator>

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
constexpr Message kTextInputRows[] = {
    /* KL_ASCII_IN_FORMAT        */ error("Input ascii format ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_IN_REF           */ error("Input time reference ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_IN_YEAR          */ error("Year is not a number from 1950 to 2099"),
    /* KL_ASCII_IN_LAYOUT        */ error("Text does not have the separators of its format"),
    /* KL_ASCII_IN_TOO_SHORT     */ error("Text is too short for its format"),
    /* KL_ASCII_IN_TOO_LONG      */ error("Text is too long for its format"),
    /* KL_ASCII_IN_PREFIX        */ error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""),
    /* KL_ASCII_IN_PREFIX_REF    */ error("Prefix contradicts the input time reference"),
    /* KL_ASCII_IN_NO_REF        */ error("Neither a prefix nor the caller gives a time reference"),
    /* KL_ASCII_IN_MISSION_LIMIT */ error("Year 0000 or 9999, yet no beginning- or end-of-mission text"),
    /* KL_ASCII_IN_MONTH         */ error("Month is not one of 01 to 12 or JAN to DEC"),
    /* KL_ASCII_IN_DAY           */ error("Day is not a number from 1 to 31"),
    /* KL_ASCII_IN_HOUR          */ error("Hour is not a number from 0 to 23"),
    /* KL_ASCII_IN_MINUTE        */ error("Minute is not a number from 0 to 59"),
    /* KL_ASCII_IN_SECOND        */ error("Second is not a number from 0 to 59, or 60"),
    /* KL_ASCII_IN_MICROSECOND   */ error("Microsecond is not a number"),
    /* KL_ASCII_IN_DAY_OF_30     */ error("That month has only 30 days"),
    /* KL_ASCII_IN_DAY_OF_29     */ error("That FEBRUARY has only 29 days"),
    /* KL_ASCII_IN_DAY_OF_28     */ error("That FEBRUARY has only 28 days"),
    /* KL_ASCII_IN_LEAP_SECOND   */ error("Second 60 outside a positive leap second"),
};
static_assert(std::size(kTextInputRows) == KL_ASCII_IN_N_CODES);
constexpr Message kTextOutputRows[] = {
    /* KL_ASCII_OUT_FORMAT */ error("Output ascii format ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_OUT_REF    */ error("Output time reference ID is not correct (%li)", kLongArgument),
};
constexpr Message kTextWriteRows[] = {
    /* KL_ASCII_WRITE_BEFORE_1950 */ error("Time is before 1950"),
    /* KL_ASCII_WRITE_AFTER_2099  */ error("Time is after 2099"),
};
constexpr Message kTransportInputRows[] = {
    /* KL_TRANS_IN_FORMAT          */ error("Input transport format ID is not correct (%li)", kLongArgument),
    /* KL_TRANS_IN_REF             */ error("Input time reference ID is not correct (%li)", kLongArgument),
    /* KL_TRANS_IN_GPS_REF         */ error("Input transport format needs GPS time (%li)", kLongArgument),
    /* KL_TRANS_IN_DAYS            */ error("Number of days out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_LEAP_SECOND     */ error("61st second outside a positive leap second (day %li)", kLongArgument),
    /* KL_TRANS_IN_SECONDS         */ error("Number of seconds out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_MILLISECONDS    */ error("Number of milliseconds out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_MICROSECONDS    */ error("Number of microseconds out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_TICKS           */ error("Number of ticks out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_WEEK            */ error("GPS week out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_SECONDS_OF_WEEK */ error("Seconds of week out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_FRACTION        */ error("Fraction of second out of range (%li)", kLongArgument),
    /* KL_TRANS_IN_GPS_SECONDS     */ error("Seconds since the GPS epoch out of range (%li)", kLongArgument),
};
static_assert(std::size(kTransportInputRows) == KL_TRANS_IN_N_CODES);
constexpr Message kTransportOutputRows[] = {
    /* KL_TRANS_OUT_FORMAT  */ error("Output transport format ID is not correct (%li)", kLongArgument),
    /* KL_TRANS_OUT_REF     */ error("Output time reference ID is not correct (%li)", kLongArgument),
    /* KL_TRANS_OUT_GPS_REF */ error("Output transport format needs GPS time (%li)", kLongArgument),
};

// The one condition that a check met, if any.
long status_of(Activation &call, const Fault &fault)
{
    return fault ? call.fails(fault.code, &fault.shown) : call.status();
}

} // namespace

const MessageGroup messages_KL_Time_check_processing_inputs = group(kInputRows);
const MessageGroup messages_KL_Time_check_processing_outputs = group(kOutputRows);
const MessageGroup messages_KL_Time_p2t_format_to_std = group(kToStandardRows);
const MessageGroup messages_KL_Time_check_ascii_inputs = group(kTextInputRows);
const MessageGroup messages_KL_Time_check_ascii_outputs = group(kTextOutputRows);
const MessageGroup messages_KL_Time_t2a_format_from_std = group(kTextWriteRows);
const MessageGroup messages_KL_Time_check_transport_inputs = group(kTransportInputRows);
const MessageGroup messages_KL_Time_check_transport_outputs = group(kTransportOutputRows);

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
    *out = standard_of(*time);
    if (out->seconds == 86400 && ref == KL_TIME_UTC
        && KL_Time_check_leap_second(time_id, ref, out, nullptr, nullptr) != 0)
        return call.fails(KL_P2T_LEAP_SECOND);
    carry_midnight(correlation_of(time_id), ref, out);
    return call.status();
}

long KL_Time_t2p_format_from_std(const kl_std_record *in, double *out)
{
    if (in != nullptr && out != nullptr)
        *out = processing_of(*in);
    return 0;
}
