// Sums and differences of processing times; the scale is only checked.
#include "errors/message_groups.h"
#include "time/scales.h"

namespace {

constexpr Message kAddRows[] = {
    /* KL_TIME_ADD_PROC_ID_ERR  */ error("Processing format ID is not correct"),
    /* KL_TIME_ADD_TIME_REF_ERR */ error("Time reference ID is not correct"),
    /* KL_TIME_ADD_TIME_ERR     */ error("Input processing time is out of range"),
    /* KL_TIME_ADD_SUM_ERR      */ error("Output processing time is out of range"),
};
constexpr Message kDiffRows[] = {
    /* KL_TIME_DIFF_PROC_ID_ERR  */ error("Processing format ID is not correct"),
    /* KL_TIME_DIFF_TIME_REF_ERR */ error("Time reference ID is not correct"),
    /* KL_TIME_DIFF_TIME1_ERR    */ error("Input processing time #1 is out of range"),
    /* KL_TIME_DIFF_TIME2_ERR    */ error("Input processing time #2 is out of range"),
};
constexpr CodeMap kAddInput[] = {
    {KL_CHECK_IN_FORMAT, KL_TIME_ADD_PROC_ID_ERR},
    {KL_CHECK_IN_REF, KL_TIME_ADD_TIME_REF_ERR},
    {KL_CHECK_IN_DAYS, KL_TIME_ADD_TIME_ERR},
};
constexpr CodeMap kDiffInput[] = {
    {KL_CHECK_IN_FORMAT, KL_TIME_DIFF_PROC_ID_ERR},
    {KL_CHECK_IN_REF, KL_TIME_DIFF_TIME_REF_ERR},
    {KL_CHECK_IN_DAYS, KL_TIME_DIFF_TIME1_ERR},
};

// The processing check on arguments that may be NULL.
bool input_passes(const long *proc_id, const long *time_ref, const double *time, ErrorRecord *check)
{
    return KL_Time_check_processing_inputs(value_or(proc_id, -1), value_or(time_ref, KL_TIME_UNDEF), time, check)
           == KL_OK;
}

} // namespace

const MessageGroup messages_kl_time_add = group(kAddRows);
const MessageGroup messages_kl_time_diff = group(kDiffRows);

long kl_time_add(const long *proc_id, const long *time_ref, const double *time, const double *duration,
                 double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_ADD, ierr);
    ErrorRecord check;
    if (!input_passes(proc_id, time_ref, time, &check)
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, kAddInput))
        return KL_ERR;
    if (duration == nullptr || time_out == nullptr)
        return KL_ERR;
    *time_out = *time + *duration;
    if (!inside_processing_range(*time_out))
        return call.fails(KL_TIME_ADD_SUM_ERR);
    return call.status();
}

long kl_time_diff(const long *proc_id, const long *time_ref, const double *time1, const double *time2, double *duration,
                  long *ierr)
{
    Activation call(KL_FN_TIME_DIFF, ierr);
    ErrorRecord check;
    if (!input_passes(proc_id, time_ref, time1, &check)
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, kDiffInput))
        return KL_ERR;
    if (!input_passes(proc_id, time_ref, time2, &check))
        return call.fails(KL_TIME_DIFF_TIME2_ERR);
    if (duration == nullptr)
        return KL_ERR;
    *duration = *time1 - *time2;
    return call.status();
}
