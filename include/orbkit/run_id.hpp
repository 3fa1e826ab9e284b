/**
 * @file run_id.hpp
 */
#ifndef ORBKIT_RUN_ID_HPP
#define ORBKIT_RUN_ID_HPP

#include "model_id.hpp"
#include "sat_id.hpp"
#include "time_id.hpp"

#include <memory>

namespace ORBKIT {

/**
 * A run id that closes itself: a satellite, a time id and a model id under one number. Copies share it; the last one
 * closes it. It holds a share of its time and model ids, so that they live as long as the run, and temporaries may be
 * passed for them. The satellite is only remembered by its number: a temporary SatId of a default satellite (0 to 9)
 * frees it at the end of the statement, and the run is left with a number that no longer answers. Keep such an object
 * for as long as the run.
 *
 * @code{.cpp}
 * const ORBKIT::TimeId time({0.0, 0.0, 0.0, 0.0});
 * ORBKIT::RunId run(ORBKIT::SatId(200), time);
 * std::printf("satellite %ld, run open %ld\n", run.getSatellite(), run.status()); // -> satellite 200, run open 1
 * const double z = ORBKIT::LibFunc::moon(run, KL_TIME_TAI, 0.0).pos[2];
 * std::printf("the Moon is %s of the equator\n", z < 0 ? "south" : "north"); // -> the Moon is south of the equator
 * run.eraseObject();
 * std::printf("run open %ld\n", run.status()); // -> run open 0
 * @endcode
 */
class KL_API RunId {
public:
    /** No run. */
    RunId();
    /** As init. */
    RunId(const SatId &satellite, const TimeId &time, const ModelId &model = ModelId());

    /**
     * Opens a new run and gives up the one held until now. An empty model id stands for the default models.
     *
     * @throws KitError when kl_run_init fails; the object then is as it was
     */
    void init(const SatId &satellite, const TimeId &time, const ModelId &model = ModelId());

    /** 1 when the run is open, else 0. */
    long status() const;
    /** 1 when the run is open and has an id of the kind KL_ID_RUN, KL_ID_TIME or KL_ID_MODEL, else 0. */
    long idStatus(long kind) const;
    /** Number of the run, for the C functions; -1 without a run. */
    long getRunId() const;
    /** The same. @throws KitError "There is no run." as a failure of the operation and the public id that need one */
    long getRunId(const char *operation, long public_id) const;
    /** Satellite number of the run; -1 without a run. */
    long getSatellite() const;
    /** Time id of the run, shared; empty without a run. */
    TimeId getTimeId() const;
    /** Model id of the run, shared; empty without a run or a model. */
    ModelId getModelId() const;
    /** Gives up this object's share and leaves it empty; closes the run when nobody else holds it. */
    void eraseObject();

private:
    struct Run;
    std::shared_ptr<const Run> run_;
};

} // namespace ORBKIT

#endif
