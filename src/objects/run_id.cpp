#include "orbkit/run_id.hpp"

#include "objects/throw_rule.h"

namespace ORBKIT {

// What the objects of one run share. The run is closed before its ids are let go, so that they can be closed.
struct RunId::Run {
    Run(const SatId &sat_id, const TimeId &time_id, const ModelId &model_id)
        : satellite(sat_id.getSatellite()), time(time_id), model(model_id)
    {
        long ierr[1] = {0};
        const long status = kl_run_init(&satellite, time.getId(), model.getId(), &number, ierr);
        check("RunId::init", status, KL_ID_FUNC_RUN_INIT, ierr);
    }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;
    ~Run() { kl_run_close(&number); }

    long number = -1;
    long satellite;
    TimeId time;
    ModelId model;
};

RunId::RunId() = default;

RunId::RunId(const SatId &satellite, const TimeId &time, const ModelId &model)
{
    init(satellite, time, model);
}

void RunId::init(const SatId &satellite, const TimeId &time, const ModelId &model)
{
    run_ = std::make_shared<const Run>(satellite, time, model);
}

long RunId::status() const
{
    const long run = getRunId();
    return kl_run_init_status(&run);
}

long RunId::idStatus(long kind) const
{
    const long run = getRunId();
    return kl_run_id_status(&run, &kind);
}

long RunId::getRunId() const
{
    return run_ ? run_->number : -1;
}

long RunId::getRunId(const char *operation, long public_id) const
{
    constexpr const char *kWords = "There is no run.";
    if (run_)
        return run_->number;
    if (public_id == kNoPublicId)
        throw_messages({kWords, operation});
    KitError error(LibError(operation, KL_ERR, public_id, nullptr));
    error.addMsg(kWords);
    throw error;
}

long RunId::getSatellite() const
{
    return run_ ? run_->satellite : -1;
}

TimeId RunId::getTimeId() const
{
    return run_ ? run_->time : TimeId();
}

ModelId RunId::getModelId() const
{
    return run_ ? run_->model : ModelId();
}

void RunId::eraseObject()
{
    run_.reset();
}

} // namespace ORBKIT
