#include "orbkit/lib_func.hpp"

#include "objects/throw_rule.h"

namespace ORBKIT {

namespace {

const long kProcessing = KL_PROC;

// Name in a failure, and the id that its error vector is decoded with.
struct Operation {
    const char *name;
    long public_id;
};

constexpr long kUnassigned = 40; // On purpose: this failure decodes to no codes and no messages.

constexpr Operation kEulerToMatrix = {"LibFunc::eulerToMatrix", kUnassigned};
constexpr Operation kMatrixToEuler = {"LibFunc::matrixToEuler", KL_ID_FUNC_MATRIX_TO_EULER};
constexpr Operation kGetRotationAngles = {"LibFunc::getRotationAngles", KL_ID_FUNC_GET_ROTATION_ANGLES};
constexpr Operation kGetRotatedVectors = {"LibFunc::getRotatedVectors", KL_ID_FUNC_GET_ROTATED_VECTORS};
constexpr Operation kQuaternionsToVectors = {"LibFunc::quaternionsToVectors", KL_ID_FUNC_QUATERNIONS_TO_VECTORS};
constexpr Operation kVectorsToQuaternions = {"LibFunc::vectorsToQuaternions", KL_ID_FUNC_VECTORS_TO_QUATERNIONS};
constexpr Operation kQuaternionsInterpol = {"LibFunc::quaternionsInterpol", KL_ID_FUNC_QUATERNIONS_INTERPOL};
constexpr Operation kSun = {"LibFunc::sun", KL_ID_FUNC_SUN};
constexpr Operation kMoon = {"LibFunc::moon", KL_ID_FUNC_MOON};
constexpr Operation kPlanet = {"LibFunc::planet", KL_ID_FUNC_PLANET};
constexpr Operation kChangeCartCs = {"LibFunc::changeCartCs", KL_ID_FUNC_CHANGE_CART_CS};
constexpr Operation kGeoid = {"LibFunc::geoid", KL_ID_FUNC_GEOID_CALC};
constexpr Operation kGeoidGrid = {"LibFunc::geoidGrid", KL_ID_FUNC_GEOID_CALC};
constexpr Operation kTimeProcessingToProcessing = {"LibFunc::timeProcessingToProcessing",
                                                   KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING};
constexpr Operation kTimeProcessingToAscii = {"LibFunc::timeProcessingToAscii", KL_ID_FUNC_TIME_PROCESSING_TO_ASCII};
constexpr Operation kTimeProcessingToTransport = {"LibFunc::timeProcessingToTransport",
                                                  KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT};
constexpr Operation kTimeAsciiToProcessing = {"LibFunc::timeAsciiToProcessing", KL_ID_FUNC_TIME_ASCII_TO_PROCESSING};
constexpr Operation kTimeAsciiToAscii = {"LibFunc::timeAsciiToAscii", KL_ID_FUNC_TIME_ASCII_TO_ASCII};
constexpr Operation kTimeAsciiToTransport = {"LibFunc::timeAsciiToTransport", KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT};
constexpr Operation kTimeTransportToProcessing = {"LibFunc::timeTransportToProcessing",
                                                  KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING};
constexpr Operation kTimeTransportToAscii = {"LibFunc::timeTransportToAscii", KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII};
constexpr Operation kTimeTransportToTransport = {"LibFunc::timeTransportToTransport",
                                                 KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT};
constexpr Operation kTimeAdd = {"LibFunc::timeAdd", KL_ID_FUNC_TIME_ADD};
constexpr Operation kTimeDiff = {"LibFunc::timeDiff", KL_ID_FUNC_TIME_DIFF};
constexpr Operation kTimeGetLeapSecondInfo = {"LibFunc::timeGetLeapSecondInfo", KL_ID_FUNC_TIME_GET_LEAP_SECOND_INFO};
constexpr Operation kTimeObtToTime = {"LibFunc::timeObtToTime", KL_ID_FUNC_TIME_OBT_TO_TIME};
constexpr Operation kTimeTimeToObt = {"LibFunc::timeTimeToObt", KL_ID_FUNC_TIME_TIME_TO_OBT};
constexpr Operation kTimeCucToProcessing = {"LibFunc::timeCucToProcessing", KL_ID_FUNC_TIME_CUC_TO_PROCESSING};
constexpr Operation kTimeProcessingToCuc = {"LibFunc::timeProcessingToCuc", KL_ID_FUNC_TIME_PROCESSING_TO_CUC};

// One call, one throw rule: `call` gets the place of its result and the error vector.
template <typename Result, typename Call>
Result result_of(const Operation &operation, Call call)
{
    Result out; // set by the call, which otherwise is thrown
    long ierr[2] = {0, 0};
    check(operation.name, call(out, ierr), operation.public_id, ierr);
    return out;
}

template <typename Call>
void require(const Operation &operation, Call call)
{
    long ierr[1] = {0};
    check(operation.name, call(ierr), operation.public_id, ierr);
}

} // namespace

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

// ---- rotations ----

void LibFunc::eulerToMatrix(const double angles[3], double matrix[9])
{
    require(kEulerToMatrix, [&](long *ierr) { return kl_euler_to_matrix(angles, matrix, ierr); });
}

Matrix LibFunc::eulerToMatrix(const Vector &angles)
{
    Matrix matrix;
    eulerToMatrix(angles.data(), matrix.data());
    return matrix;
}

void LibFunc::matrixToEuler(const double matrix[9], double angles[3])
{
    require(kMatrixToEuler, [&](long *ierr) { return kl_matrix_to_euler(matrix, angles, ierr); });
}

Vector LibFunc::matrixToEuler(const Matrix &matrix)
{
    Vector angles;
    matrixToEuler(matrix.data(), angles.data());
    return angles;
}

void LibFunc::getRotationAngles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                const double y2[3], const double z2[3], double angles[3])
{
    require(kGetRotationAngles,
            [&](long *ierr) { return kl_get_rotation_angles(x1, y1, z1, x2, y2, z2, angles, ierr); });
}

Vector LibFunc::getRotationAngles(const Axes &from, const Axes &to)
{
    Vector angles;
    getRotationAngles(from.x.data(), from.y.data(), from.z.data(), to.x.data(), to.y.data(), to.z.data(),
                      angles.data());
    return angles;
}

void LibFunc::getRotatedVectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                double x2[3], double y2[3], double z2[3])
{
    require(kGetRotatedVectors,
            [&](long *ierr) { return kl_get_rotated_vectors(x1, y1, z1, angles, x2, y2, z2, ierr); });
}

Axes LibFunc::getRotatedVectors(const Axes &axes, const Vector &angles)
{
    Axes out;
    getRotatedVectors(axes.x.data(), axes.y.data(), axes.z.data(), angles.data(), out.x.data(), out.y.data(),
                      out.z.data());
    return out;
}

void LibFunc::quaternionsToVectors(const double q[4], double x[3], double y[3], double z[3])
{
    require(kQuaternionsToVectors, [&](long *ierr) { return kl_quaternions_to_vectors(q, x, y, z, ierr); });
}

Axes LibFunc::quaternionsToVectors(const Quaternion &q)
{
    Axes out;
    quaternionsToVectors(q.data(), out.x.data(), out.y.data(), out.z.data());
    return out;
}

void LibFunc::vectorsToQuaternions(const double x[3], const double y[3], const double z[3], double q[4])
{
    require(kVectorsToQuaternions, [&](long *ierr) { return kl_vectors_to_quaternions(x, y, z, q, ierr); });
}

Quaternion LibFunc::vectorsToQuaternions(const Axes &axes)
{
    Quaternion q;
    vectorsToQuaternions(axes.x.data(), axes.y.data(), axes.z.data(), q.data());
    return q;
}

void LibFunc::quaternionsInterpol(QuaternionsInterpolationCfg &cfg, double q[4])
{
    require(kQuaternionsInterpol, [&](long *ierr) {
        return kl_quaternions_interpol(&cfg.mode, &cfg.t1, cfg.q1, &cfg.t2, cfg.q2, &cfg.t, q, ierr);
    });
}

Quaternion LibFunc::quaternionsInterpol(QuaternionsInterpolationCfg &cfg)
{
    Quaternion q;
    quaternionsInterpol(cfg, q.data());
    return q;
}

// ---- Sun, Moon and planets, frames ----

BodyState LibFunc::sun(const ModelId &model, const TimeId &time, long time_ref, double t)
{
    return result_of<BodyState>(kSun, [&](BodyState &out, long *ierr) {
        return kl_sun(model.getId(), time.getId(), &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::sun(const RunId &run, long time_ref, double t)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>(kSun, [&](BodyState &out, long *ierr) {
        return kl_sun_run(&run_id, &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::moon(const ModelId &model, const TimeId &time, long time_ref, double t)
{
    return result_of<BodyState>(kMoon, [&](BodyState &out, long *ierr) {
        return kl_moon(model.getId(), time.getId(), &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::moon(const RunId &run, long time_ref, double t)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>(kMoon, [&](BodyState &out, long *ierr) {
        return kl_moon_run(&run_id, &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::planet(const ModelId &model, const TimeId &time, long planet_id, long time_ref, double t)
{
    return result_of<BodyState>(kPlanet, [&](BodyState &out, long *ierr) {
        return kl_planet(model.getId(), time.getId(), &planet_id, &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::planet(const RunId &run, long planet_id, long time_ref, double t)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>(kPlanet, [&](BodyState &out, long *ierr) {
        return kl_planet_run(&run_id, &planet_id, &time_ref, &t, out.pos.data(), out.vel.data(), ierr);
    });
}

State LibFunc::changeCartCs(const ModelId &model, const TimeId &time, long calc_mode, long cs_in, long cs_out,
                            long time_ref, double t, const State &in)
{
    return result_of<State>(kChangeCartCs, [&](State &out, long *ierr) {
        return kl_change_cart_cs(model.getId(), time.getId(), &calc_mode, &cs_in, &cs_out, &time_ref, &t, in.pos.data(),
                                 in.vel.data(), in.acc.data(), out.pos.data(), out.vel.data(), out.acc.data(), ierr);
    });
}

State LibFunc::changeCartCs(const RunId &run, long calc_mode, long cs_in, long cs_out, long time_ref, double t,
                            const State &in)
{
    const long run_id = run.getRunId();
    return result_of<State>(kChangeCartCs, [&](State &out, long *ierr) {
        return kl_change_cart_cs_run(&run_id, &calc_mode, &cs_in, &cs_out, &time_ref, &t, in.pos.data(), in.vel.data(),
                                     in.acc.data(), out.pos.data(), out.vel.data(), out.acc.data(), ierr);
    });
}

// ---- geoid ----

double LibFunc::geoid(const ModelId &model, double latitude, double longitude, long max_degree)
{
    const kl_geoid_input input = {model.getId(), latitude, longitude, 0.0, max_degree};
    return result_of<double>(kGeoid,
                             [&](double &undulation, long *ierr) { return kl_geoid_calc(&input, &undulation, ierr); });
}

std::vector<double> LibFunc::geoidGrid(const ModelId &model, const std::vector<double> &latitudes,
                                       const std::vector<double> &longitudes, long max_degree)
{
    std::vector<double> undulations(latitudes.size() * longitudes.size());
    const long n_lat = static_cast<long>(latitudes.size());
    const long n_lon = static_cast<long>(longitudes.size());
    require(kGeoidGrid, [&](long *ierr) {
        return kl_geoid_grid(model.getId(), &max_degree, latitudes.data(), &n_lat, longitudes.data(), &n_lon,
                             undulations.data(), ierr);
    });
    return undulations;
}

// ---- time: formats and scales ----

double LibFunc::timeProcessingToProcessing(const TimeId &time, long ref_in, double t, long ref_out)
{
    return result_of<double>(kTimeProcessingToProcessing, [&](double &out, long *ierr) {
        return kl_time_processing_to_processing(time.getId(), &kProcessing, &ref_in, &t, &kProcessing, &ref_out, &out,
                                                ierr);
    });
}

double LibFunc::timeProcessingToProcessing(const RunId &run, long ref_in, double t, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>(kTimeProcessingToProcessing, [&](double &out, long *ierr) {
        return kl_time_processing_to_processing_run(&run_id, &kProcessing, &ref_in, &t, &kProcessing, &ref_out, &out,
                                                    ierr);
    });
}

TimeText LibFunc::timeProcessingToAscii(const TimeId &time, long ref_in, double t, long ascii_out, long ref_out)
{
    return result_of<TimeText>(kTimeProcessingToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_processing_to_ascii(time.getId(), &kProcessing, &ref_in, &t, &ascii_out, &ref_out, out.text,
                                           ierr);
    });
}

TimeText LibFunc::timeProcessingToAscii(const RunId &run, long ref_in, double t, long ascii_out, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>(kTimeProcessingToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_processing_to_ascii_run(&run_id, &kProcessing, &ref_in, &t, &ascii_out, &ref_out, out.text,
                                               ierr);
    });
}

TransportTime LibFunc::timeProcessingToTransport(const TimeId &time, long ref_in, double t, long trans_out,
                                                 long ref_out)
{
    return result_of<TransportTime>(kTimeProcessingToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_processing_to_transport(time.getId(), &kProcessing, &ref_in, &t, &trans_out, &ref_out,
                                               out.data(), ierr);
    });
}

TransportTime LibFunc::timeProcessingToTransport(const RunId &run, long ref_in, double t, long trans_out, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>(kTimeProcessingToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_processing_to_transport_run(&run_id, &kProcessing, &ref_in, &t, &trans_out, &ref_out, out.data(),
                                                   ierr);
    });
}

double LibFunc::timeAsciiToProcessing(const TimeId &time, long ascii_in, long ref_in, TextArgument text, long ref_out)
{
    return result_of<double>(kTimeAsciiToProcessing, [&](double &out, long *ierr) {
        return kl_time_ascii_to_processing(time.getId(), &ascii_in, &ref_in, text.c_str(), &kProcessing, &ref_out, &out,
                                           ierr);
    });
}

double LibFunc::timeAsciiToProcessing(const RunId &run, long ascii_in, long ref_in, TextArgument text, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>(kTimeAsciiToProcessing, [&](double &out, long *ierr) {
        return kl_time_ascii_to_processing_run(&run_id, &ascii_in, &ref_in, text.c_str(), &kProcessing, &ref_out, &out,
                                               ierr);
    });
}

TimeText LibFunc::timeAsciiToAscii(const TimeId &time, long ascii_in, long ref_in, TextArgument text, long ascii_out,
                                   long ref_out)
{
    return result_of<TimeText>(kTimeAsciiToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_ascii_to_ascii(time.getId(), &ascii_in, &ref_in, text.c_str(), &ascii_out, &ref_out, out.text,
                                      ierr);
    });
}

TimeText LibFunc::timeAsciiToAscii(const RunId &run, long ascii_in, long ref_in, TextArgument text, long ascii_out,
                                   long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>(kTimeAsciiToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_ascii_to_ascii_run(&run_id, &ascii_in, &ref_in, text.c_str(), &ascii_out, &ref_out, out.text,
                                          ierr);
    });
}

TransportTime LibFunc::timeAsciiToTransport(const TimeId &time, long ascii_in, long ref_in, TextArgument text,
                                            long trans_out, long ref_out)
{
    return result_of<TransportTime>(kTimeAsciiToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_ascii_to_transport(time.getId(), &ascii_in, &ref_in, text.c_str(), &trans_out, &ref_out,
                                          out.data(), ierr);
    });
}

TransportTime LibFunc::timeAsciiToTransport(const RunId &run, long ascii_in, long ref_in, TextArgument text,
                                            long trans_out, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>(kTimeAsciiToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_ascii_to_transport_run(&run_id, &ascii_in, &ref_in, text.c_str(), &trans_out, &ref_out,
                                              out.data(), ierr);
    });
}

double LibFunc::timeTransportToProcessing(const TimeId &time, long trans_in, long ref_in, const TransportTime &t,
                                          long ref_out)
{
    return result_of<double>(kTimeTransportToProcessing, [&](double &out, long *ierr) {
        return kl_time_transport_to_processing(time.getId(), &trans_in, &ref_in, t.data(), &kProcessing, &ref_out, &out,
                                               ierr);
    });
}

double LibFunc::timeTransportToProcessing(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                          long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>(kTimeTransportToProcessing, [&](double &out, long *ierr) {
        return kl_time_transport_to_processing_run(&run_id, &trans_in, &ref_in, t.data(), &kProcessing, &ref_out, &out,
                                                   ierr);
    });
}

TimeText LibFunc::timeTransportToAscii(const TimeId &time, long trans_in, long ref_in, const TransportTime &t,
                                       long ascii_out, long ref_out)
{
    return result_of<TimeText>(kTimeTransportToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_transport_to_ascii(time.getId(), &trans_in, &ref_in, t.data(), &ascii_out, &ref_out, out.text,
                                          ierr);
    });
}

TimeText LibFunc::timeTransportToAscii(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                       long ascii_out, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>(kTimeTransportToAscii, [&](TimeText &out, long *ierr) {
        return kl_time_transport_to_ascii_run(&run_id, &trans_in, &ref_in, t.data(), &ascii_out, &ref_out, out.text,
                                              ierr);
    });
}

TransportTime LibFunc::timeTransportToTransport(const TimeId &time, long trans_in, long ref_in, const TransportTime &t,
                                                long trans_out, long ref_out)
{
    return result_of<TransportTime>(kTimeTransportToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_transport_to_transport(time.getId(), &trans_in, &ref_in, t.data(), &trans_out, &ref_out,
                                              out.data(), ierr);
    });
}

TransportTime LibFunc::timeTransportToTransport(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                                long trans_out, long ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>(kTimeTransportToTransport, [&](TransportTime &out, long *ierr) {
        return kl_time_transport_to_transport_run(&run_id, &trans_in, &ref_in, t.data(), &trans_out, &ref_out,
                                                  out.data(), ierr);
    });
}

// ---- time: sums, leap second ----

double LibFunc::timeAdd(long time_ref, double t, double duration)
{
    return result_of<double>(kTimeAdd, [&](double &out, long *ierr) {
        return kl_time_add(&kProcessing, &time_ref, &t, &duration, &out, ierr);
    });
}

double LibFunc::timeDiff(long time_ref, double t1, double t2)
{
    return result_of<double>(kTimeDiff, [&](double &out, long *ierr) {
        return kl_time_diff(&kProcessing, &time_ref, &t1, &t2, &out, ierr);
    });
}

LeapSecondInfo LibFunc::timeGetLeapSecondInfo(const TimeId &time, long ascii_out)
{
    return result_of<LeapSecondInfo>(kTimeGetLeapSecondInfo, [&](LeapSecondInfo &out, long *ierr) {
        return kl_time_get_leap_second_info(time.getId(), &ascii_out, &out.sign, out.before.text, out.after.text, ierr);
    });
}

LeapSecondInfo LibFunc::timeGetLeapSecondInfo(const RunId &run, long ascii_out)
{
    const long run_id = run.getRunId();
    return result_of<LeapSecondInfo>(kTimeGetLeapSecondInfo, [&](LeapSecondInfo &out, long *ierr) {
        return kl_time_get_leap_second_info_run(&run_id, &ascii_out, &out.sign, out.before.text, out.after.text, ierr);
    });
}

// ---- time: on-board clocks ----

double LibFunc::obtToTime(const SatId &satellite, long time_ref, const void *parameters, const void *obt)
{
    const long sat_id = satellite.getSatellite();
    return result_of<double>(kTimeObtToTime, [&](double &out, long *ierr) {
        return kl_time_obt_to_time(&sat_id, &time_ref, parameters, obt, &out, ierr);
    });
}

double LibFunc::obtToTime(const RunId &run, long time_ref, const void *parameters, const void *obt)
{
    const long run_id = run.getRunId();
    return result_of<double>(kTimeObtToTime, [&](double &out, long *ierr) {
        return kl_time_obt_to_time_run(&run_id, &time_ref, parameters, obt, &out, ierr);
    });
}

void LibFunc::timeToObt(const SatId &satellite, long time_ref, const void *parameters, double t, void *obt)
{
    const long sat_id = satellite.getSatellite();
    require(kTimeTimeToObt,
            [&](long *ierr) { return kl_time_time_to_obt(&sat_id, &time_ref, parameters, &t, obt, ierr); });
}

void LibFunc::timeToObt(const RunId &run, long time_ref, const void *parameters, double t, void *obt)
{
    const long run_id = run.getRunId();
    require(kTimeTimeToObt,
            [&](long *ierr) { return kl_time_time_to_obt_run(&run_id, &time_ref, parameters, &t, obt, ierr); });
}

double LibFunc::timeCucToProcessing(const TimeId &time, const kl_cuc_config &config, long time_ref, const CucTime &cuc)
{
    return result_of<double>(kTimeCucToProcessing, [&](double &out, long *ierr) {
        return kl_time_cuc_to_processing(time.getId(), &config, &time_ref, cuc.data(), &out, ierr);
    });
}

CucTime LibFunc::timeProcessingToCuc(const TimeId &time, const kl_cuc_config &config, long time_ref, double t)
{
    CucTime cuc{};
    require(kTimeProcessingToCuc, [&](long *ierr) {
        return kl_time_processing_to_cuc(time.getId(), &config, &time_ref, &t, cuc.data(), ierr);
    });
    return cuc;
}

} // namespace ORBKIT
