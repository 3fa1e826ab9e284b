// Sums and differences of processing times; the scale is only checked.
#include "arrays/array_call.h"
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

// The same for an array: the argument that is missing counts as NaN.
Fault checked_form(const long *proc_id, const long *time_ref, const double *times)
{
    Fault fault = check_processing_form(value_or(proc_id, -1), value_or(time_ref, KL_TIME_UNDEF));
    if (!fault && times == nullptr)
        fault = {KL_CHECK_IN_DAYS};
    if (fault)
        print_fault(KL_FN_TIME_CHECK_PROCESSING_INPUTS, fault);
    return fault;
}

long add(Activation &call, const long *proc_id, const long *time_ref, const double *time, const double *duration,
         double *time_out)
{
    if (const Fault fault = checked(proc_id, time_ref, time))
        return call.fails(kAddInput[fault.code]);
    if (duration == nullptr || time_out == nullptr)
        return KL_ERR;
    *time_out = *time + *duration;
    if (!inside_processing_range(*time_out))
        return call.fails(KL_TIME_ADD_SUM_ERR);
    return call.status();
}

long subtract(Activation &call, const long *proc_id, const long *time_ref, const double *time1, const double *time2,
              double *duration)
{
    if (const Fault fault = checked(proc_id, time_ref, time1))
        return call.fails(kDiffInput[fault.code]);
    if (checked(proc_id, time_ref, time2))
        return call.fails(KL_TIME_DIFF_TIME2_ERR);
    if (duration == nullptr)
        return KL_ERR;
    *duration = *time1 - *time2;
    return call.status();
}

} // namespace

long kl_time_add(const long *proc_id, const long *time_ref, const double *time, const double *duration,
                 double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_ADD, ierr);
    return add(call, proc_id, time_ref, time, duration, time_out);
}

long kl_time_add_n(const long *n, const long *proc_id, const long *time_ref, const double *time, const double *duration,
                   double *time_out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_ADD, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(time_out);
    if (const Fault fault = checked_form(proc_id, time_ref, time)) {
        array.call().fails(kAddInput[fault.code]);
        return array.refuse(fail);
    }
    if (duration == nullptr || time_out == nullptr)
        return array.refuse(fail);
    const auto one = [&](long i, long *word) {
        Activation call(KL_FN_TIME_ADD, word);
        return add(call, proc_id, time_ref, time + i, duration + i, time_out + i);
    };
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        for (long k = 0; k < count; ++k) {
            const double sum = time[first + k] + duration[first + k];
            if (inside_processing_range(time[first + k]) && inside_processing_range(sum))
                time_out[first + k] = sum;
            else
                left.add(k);
        }
        return true;
    });
}

long kl_time_diff(const long *proc_id, const long *time_ref, const double *time1, const double *time2, double *duration,
                  long *ierr)
{
    Activation call(KL_FN_TIME_DIFF, ierr);
    return subtract(call, proc_id, time_ref, time1, time2, duration);
}

long kl_time_diff_n(const long *n, const long *proc_id, const long *time_ref, const double *time1, const double *time2,
                    double *duration, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_DIFF, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(duration);
    if (const Fault fault = checked_form(proc_id, time_ref, time1)) {
        array.call().fails(kDiffInput[fault.code]);
        return array.refuse(fail);
    }
    if (checked_form(proc_id, time_ref, time2)) {
        array.call().fails(KL_TIME_DIFF_TIME2_ERR);
        return array.refuse(fail);
    }
    if (duration == nullptr)
        return array.refuse(fail);
    const auto one = [&](long i, long *word) {
        Activation call(KL_FN_TIME_DIFF, word);
        return subtract(call, proc_id, time_ref, time1 + i, time2 + i, duration + i);
    };
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        for (long k = 0; k < count; ++k) {
            if (inside_processing_range(time1[first + k]) && inside_processing_range(time2[first + k]))
                duration[first + k] = time1[first + k] - time2[first + k];
            else
                left.add(k);
        }
        return true;
    });
}
