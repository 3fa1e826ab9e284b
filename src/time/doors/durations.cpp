// Sums and differences of processing times; the scale is only checked.
#include "time/doors/checks.h"

namespace {

// The conditions of the check, by their numbers there.
constexpr int kAddInput[] = {KL_TIME_ADD_PROC_ID_ERR, KL_TIME_ADD_TIME_REF_ERR, KL_TIME_ADD_TIME_ERR};
constexpr int kDiffInput[] = {KL_TIME_DIFF_PROC_ID_ERR, KL_TIME_DIFF_TIME_REF_ERR, KL_TIME_DIFF_TIME1_ERR};

// The processing check on arguments that may be NULL, with its line.
Fault checked(const long *proc_id, const long *time_ref, const double *time)
{
    const Fault fault = check_processing_input(value_or(proc_id, -1), value_or(time_ref, KL_TIME_UNDEF), time);
    if (fault)
        print_fault(KL_FN_TIME_CHECK_PROCESSING_INPUTS, fault);
    return fault;
}

} // namespace

long kl_time_add(const long *proc_id, const long *time_ref, const double *time, const double *duration,
                 double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_ADD, ierr);
    if (const Fault fault = checked(proc_id, time_ref, time))
        return call.fails(kAddInput[fault.code]);
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
    if (const Fault fault = checked(proc_id, time_ref, time1))
        return call.fails(kDiffInput[fault.code]);
    if (checked(proc_id, time_ref, time2))
        return call.fails(KL_TIME_DIFF_TIME2_ERR);
    if (duration == nullptr)
        return KL_ERR;
    *duration = *time1 - *time2;
    return call.status();
}
