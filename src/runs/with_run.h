// What the run twins share: the ids of a run in place of the leading ids of a function.
#ifndef KL_SRC_RUNS_WITH_RUN_H
#define KL_SRC_RUNS_WITH_RUN_H

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

// On purpose: the twins of the on-board clocks do not refuse a run that is not initialised; they pass on its satellite,
// which is then none.
inline long satellite_of(const long *run_id)
{
    const RunRecord *run = initialised_run(run_id);
    return run != nullptr ? run->sat_id : -1;
}

#endif
