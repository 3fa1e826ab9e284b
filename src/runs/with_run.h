// What the run twins share: the ids of a run in place of the leading ids of a function.
#ifndef KL_SRC_RUNS_WITH_RUN_H
#define KL_SRC_RUNS_WITH_RUN_H

#include "arrays/failed_elements.h"
#include "kl_lib.h"
#include "runs/runs.h"

// Calls a function with the handles of a run; without the run nothing is touched.
template <typename Call>
long with_run(const long *run_id, Call call)
{
    const RunRecord *run = initialised_run(run_id);
    if (run == nullptr)
        return KL_ERR;
    kl_model_id model = {run->model};
    kl_time_id time = {run->time};
    return call(&model, &time);
}

// The same of array forms: without the run every element fails and the vector is left as it was, as by the scalar twin;
// a call without elements does not look at its ids.
template <typename Call, typename Fail>
long with_run_n(const long *run_id, const long *n, long *status, Call call, Fail fail)
{
    const RunRecord *run = initialised_run(run_id);
    if (run == nullptr && n != nullptr && *n > 0) {
        for (long i = 0; i < *n; ++i) {
            fail(i);
            if (status != nullptr)
                status[i] = KL_ERR;
        }
        return KL_ERR;
    }
    kl_model_id model = {run != nullptr ? run->model : nullptr};
    kl_time_id time = {run != nullptr ? run->time : nullptr};
    return call(&model, &time);
}

// On purpose: the twins of the on-board clocks do not refuse a run that is not initialised; they pass on its satellite,
// which is then none.
inline long satellite_of(const long *run_id)
{
    const RunRecord *run = initialised_run(run_id);
    return run != nullptr ? run->sat_id : -1;
}

#endif
