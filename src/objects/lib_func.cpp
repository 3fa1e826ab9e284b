// The members of LibFunc that do more than forward.
#include "orbkit/lib_func.hpp"

#include "objects/forward.h"

namespace ORBKIT {

// ---- the library ----

void LibFunc::setVerbose()
{
    kl_verbose();
}

void LibFunc::setSilent()
{
    kl_silent();
}

bool LibFunc::checkLibraryVersion()
{
    return kl_check_library_version() == 0;
}

// ---- rotations, geoid ----

void LibFunc::quaternionsInterpol(QuaternionsInterpolationCfg &cfg, double q[4])
{
    require("LibFunc::quaternionsInterpol", KL_ID_FUNC_QUATERNIONS_INTERPOL, [&](long *ierr) {
        return kl_quaternions_interpol(&cfg.mode, &cfg.t1, cfg.q1, &cfg.t2, cfg.q2, &cfg.t, q, ierr);
    });
}

Quaternion LibFunc::quaternionsInterpol(QuaternionsInterpolationCfg &cfg)
{
    Quaternion q;
    quaternionsInterpol(cfg, q.data());
    return q;
}

double LibFunc::geoid(const ModelId &model, double latitude, double longitude, long max_degree)
{
    const kl_geoid_input input = {model.getId(), latitude, longitude, 0.0, max_degree};
    return result_of<double>("LibFunc::geoid", KL_ID_FUNC_GEOID_CALC,
                             [&](double &undulation, long *ierr) { return kl_geoid_calc(&input, &undulation, ierr); });
}

std::vector<double> LibFunc::geoidGrid(const ModelId &model, const std::vector<double> &latitudes,
                                       const std::vector<double> &longitudes, long max_degree)
{
    std::vector<double> undulations(latitudes.size() * longitudes.size());
    const long n_lat = static_cast<long>(latitudes.size());
    const long n_lon = static_cast<long>(longitudes.size());
    require("LibFunc::geoidGrid", KL_ID_FUNC_GEOID_CALC, [&](long *ierr) {
        return kl_geoid_grid(model.getId(), &max_degree, latitudes.data(), &n_lat, longitudes.data(), &n_lon,
                             undulations.data(), ierr);
    });
    return undulations;
}

// ---- time: on-board clocks ----

double LibFunc::obtToTime(const SatId &satellite, long time_ref, const void *parameters, const void *obt)
{
    const long sat_id = satellite.getSatellite();
    return result_of<double>("LibFunc::timeObtToTime", KL_ID_FUNC_TIME_OBT_TO_TIME, [&](double &out, long *ierr) {
        return kl_time_obt_to_time(&sat_id, &time_ref, parameters, obt, &out, ierr);
    });
}

double LibFunc::obtToTime(const RunId &run, long time_ref, const void *parameters, const void *obt)
{
    const long run_id = run.getRunId();
    return result_of<double>("LibFunc::timeObtToTime", KL_ID_FUNC_TIME_OBT_TO_TIME, [&](double &out, long *ierr) {
        return kl_time_obt_to_time_run(&run_id, &time_ref, parameters, obt, &out, ierr);
    });
}

void LibFunc::timeToObt(const SatId &satellite, long time_ref, const void *parameters, double t, void *obt)
{
    const long sat_id = satellite.getSatellite();
    require("LibFunc::timeTimeToObt", KL_ID_FUNC_TIME_TIME_TO_OBT,
            [&](long *ierr) { return kl_time_time_to_obt(&sat_id, &time_ref, parameters, &t, obt, ierr); });
}

void LibFunc::timeToObt(const RunId &run, long time_ref, const void *parameters, double t, void *obt)
{
    const long run_id = run.getRunId();
    require("LibFunc::timeTimeToObt", KL_ID_FUNC_TIME_TIME_TO_OBT,
            [&](long *ierr) { return kl_time_time_to_obt_run(&run_id, &time_ref, parameters, &t, obt, ierr); });
}

} // namespace ORBKIT
