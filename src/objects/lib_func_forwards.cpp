// The members of LibFunc that only forward.
// Written by tools/api/generate.py from the table in api/.
#include "objects/forward.h"
#include "orbkit/lib_func.hpp"

// clang-format off
namespace ORBKIT {

BodyState LibFunc::sun(const ModelId &model_id, const TimeId &time_id, long time_ref, double time)
{
    return result_of<BodyState>("LibFunc::sun", KL_ID_FUNC_SUN, [&](BodyState &out, long *ierr) {
        return kl_sun(model_id.getId(), time_id.getId(), &time_ref, &time, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::sun(const RunId &run, long time_ref, double time)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>("LibFunc::sun", KL_ID_FUNC_SUN, [&](BodyState &out, long *ierr) {
        return kl_sun_run(&run_id, &time_ref, &time, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::moon(const ModelId &model_id, const TimeId &time_id, long time_ref, double time)
{
    return result_of<BodyState>("LibFunc::moon", KL_ID_FUNC_MOON, [&](BodyState &out, long *ierr) {
        return kl_moon(model_id.getId(), time_id.getId(), &time_ref, &time, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::moon(const RunId &run, long time_ref, double time)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>("LibFunc::moon", KL_ID_FUNC_MOON, [&](BodyState &out, long *ierr) {
        return kl_moon_run(&run_id, &time_ref, &time, out.pos.data(), out.vel.data(), ierr);
    });
}

BodyState LibFunc::planet(const ModelId &model_id, const TimeId &time_id, long planet_id, long time_ref, double time)
{
    return result_of<BodyState>("LibFunc::planet", KL_ID_FUNC_PLANET, [&](BodyState &out, long *ierr) {
        return kl_planet(model_id.getId(), time_id.getId(), &planet_id, &time_ref, &time, out.pos.data(),
                         out.vel.data(), ierr);
    });
}

BodyState LibFunc::planet(const RunId &run, long planet_id, long time_ref, double time)
{
    const long run_id = run.getRunId();
    return result_of<BodyState>("LibFunc::planet", KL_ID_FUNC_PLANET, [&](BodyState &out, long *ierr) {
        return kl_planet_run(&run_id, &planet_id, &time_ref, &time, out.pos.data(), out.vel.data(), ierr);
    });
}

double LibFunc::timeCucToProcessing(const TimeId &time_id, const kl_cuc_config &config, long time_ref,
                                    const CucTime &cuc)
{
    return result_of<double>("LibFunc::timeCucToProcessing", KL_ID_FUNC_TIME_CUC_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_cuc_to_processing(time_id.getId(), &config, &time_ref, cuc.data(), &out, ierr);
    });
}

CucTime LibFunc::timeProcessingToCuc(const TimeId &time_id, const kl_cuc_config &config, long time_ref, double time)
{
    return result_of<CucTime>("LibFunc::timeProcessingToCuc", KL_ID_FUNC_TIME_PROCESSING_TO_CUC, [&](CucTime &out, long *ierr) {
        return kl_time_processing_to_cuc(time_id.getId(), &config, &time_ref, &time, out.data(), ierr);
    });
}

double LibFunc::timeProcessingToProcessing(const TimeId &time_id, long time_ref_in, double time_in, long time_ref_out)
{
    return result_of<double>("LibFunc::timeProcessingToProcessing", KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_processing_to_processing(time_id.getId(), &kProcessing, &time_ref_in, &time_in, &kProcessing,
                                                &time_ref_out, &out, ierr);
    });
}

double LibFunc::timeProcessingToProcessing(const RunId &run, long time_ref_in, double time_in, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>("LibFunc::timeProcessingToProcessing", KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_processing_to_processing_run(&run_id, &kProcessing, &time_ref_in, &time_in, &kProcessing,
                                                    &time_ref_out, &out, ierr);
    });
}

TimeText LibFunc::timeAsciiToAscii(const TimeId &time_id, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                   long ascii_id_out, long time_ref_out)
{
    return result_of<TimeText>("LibFunc::timeAsciiToAscii", KL_ID_FUNC_TIME_ASCII_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_ascii_to_ascii(time_id.getId(), &ascii_id_in, &time_ref_in, ascii_in.c_str(), &ascii_id_out,
                                      &time_ref_out, out.text, ierr);
    });
}

TimeText LibFunc::timeAsciiToAscii(const RunId &run, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                   long ascii_id_out, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>("LibFunc::timeAsciiToAscii", KL_ID_FUNC_TIME_ASCII_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_ascii_to_ascii_run(&run_id, &ascii_id_in, &time_ref_in, ascii_in.c_str(), &ascii_id_out,
                                          &time_ref_out, out.text, ierr);
    });
}

double LibFunc::timeAsciiToProcessing(const TimeId &time_id, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                      long time_ref_out)
{
    return result_of<double>("LibFunc::timeAsciiToProcessing", KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_ascii_to_processing(time_id.getId(), &ascii_id_in, &time_ref_in, ascii_in.c_str(), &kProcessing,
                                           &time_ref_out, &out, ierr);
    });
}

double LibFunc::timeAsciiToProcessing(const RunId &run, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                      long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>("LibFunc::timeAsciiToProcessing", KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_ascii_to_processing_run(&run_id, &ascii_id_in, &time_ref_in, ascii_in.c_str(), &kProcessing,
                                               &time_ref_out, &out, ierr);
    });
}

TransportTime LibFunc::timeAsciiToTransport(const TimeId &time_id, long ascii_id_in, long time_ref_in,
                                            TextArgument ascii_in, long trans_id_out, long time_ref_out)
{
    return result_of<TransportTime>("LibFunc::timeAsciiToTransport", KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_ascii_to_transport(time_id.getId(), &ascii_id_in, &time_ref_in, ascii_in.c_str(), &trans_id_out,
                                          &time_ref_out, out.data(), ierr);
    });
}

TransportTime LibFunc::timeAsciiToTransport(const RunId &run, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                            long trans_id_out, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>("LibFunc::timeAsciiToTransport", KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_ascii_to_transport_run(&run_id, &ascii_id_in, &time_ref_in, ascii_in.c_str(), &trans_id_out,
                                              &time_ref_out, out.data(), ierr);
    });
}

TimeText LibFunc::timeProcessingToAscii(const TimeId &time_id, long time_ref_in, double time_in, long ascii_id_out,
                                        long time_ref_out)
{
    return result_of<TimeText>("LibFunc::timeProcessingToAscii", KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_processing_to_ascii(time_id.getId(), &kProcessing, &time_ref_in, &time_in, &ascii_id_out,
                                           &time_ref_out, out.text, ierr);
    });
}

TimeText LibFunc::timeProcessingToAscii(const RunId &run, long time_ref_in, double time_in, long ascii_id_out,
                                        long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>("LibFunc::timeProcessingToAscii", KL_ID_FUNC_TIME_PROCESSING_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_processing_to_ascii_run(&run_id, &kProcessing, &time_ref_in, &time_in, &ascii_id_out,
                                               &time_ref_out, out.text, ierr);
    });
}

TransportTime LibFunc::timeProcessingToTransport(const TimeId &time_id, long time_ref_in, double time_in,
                                                 long trans_id_out, long time_ref_out)
{
    return result_of<TransportTime>("LibFunc::timeProcessingToTransport", KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_processing_to_transport(time_id.getId(), &kProcessing, &time_ref_in, &time_in, &trans_id_out,
                                               &time_ref_out, out.data(), ierr);
    });
}

TransportTime LibFunc::timeProcessingToTransport(const RunId &run, long time_ref_in, double time_in, long trans_id_out,
                                                 long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>("LibFunc::timeProcessingToTransport", KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_processing_to_transport_run(&run_id, &kProcessing, &time_ref_in, &time_in, &trans_id_out,
                                                   &time_ref_out, out.data(), ierr);
    });
}

TimeText LibFunc::timeTransportToAscii(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                       const TransportTime &transport_in, long ascii_id_out, long time_ref_out)
{
    return result_of<TimeText>("LibFunc::timeTransportToAscii", KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_transport_to_ascii(time_id.getId(), &trans_id_in, &time_ref_in, transport_in.data(),
                                          &ascii_id_out, &time_ref_out, out.text, ierr);
    });
}

TimeText LibFunc::timeTransportToAscii(const RunId &run, long trans_id_in, long time_ref_in,
                                       const TransportTime &transport_in, long ascii_id_out, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TimeText>("LibFunc::timeTransportToAscii", KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII, [&](TimeText &out, long *ierr) {
        return kl_time_transport_to_ascii_run(&run_id, &trans_id_in, &time_ref_in, transport_in.data(), &ascii_id_out,
                                              &time_ref_out, out.text, ierr);
    });
}

double LibFunc::timeTransportToProcessing(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                          const TransportTime &transport_in, long time_ref_out)
{
    return result_of<double>("LibFunc::timeTransportToProcessing", KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_transport_to_processing(time_id.getId(), &trans_id_in, &time_ref_in, transport_in.data(),
                                               &kProcessing, &time_ref_out, &out, ierr);
    });
}

double LibFunc::timeTransportToProcessing(const RunId &run, long trans_id_in, long time_ref_in,
                                          const TransportTime &transport_in, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<double>("LibFunc::timeTransportToProcessing", KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING, [&](double &out, long *ierr) {
        return kl_time_transport_to_processing_run(&run_id, &trans_id_in, &time_ref_in, transport_in.data(),
                                                   &kProcessing, &time_ref_out, &out, ierr);
    });
}

TransportTime LibFunc::timeTransportToTransport(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                                const TransportTime &transport_in, long trans_id_out, long time_ref_out)
{
    return result_of<TransportTime>("LibFunc::timeTransportToTransport", KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_transport_to_transport(time_id.getId(), &trans_id_in, &time_ref_in, transport_in.data(),
                                              &trans_id_out, &time_ref_out, out.data(), ierr);
    });
}

TransportTime LibFunc::timeTransportToTransport(const RunId &run, long trans_id_in, long time_ref_in,
                                                const TransportTime &transport_in, long trans_id_out, long time_ref_out)
{
    const long run_id = run.getRunId();
    return result_of<TransportTime>("LibFunc::timeTransportToTransport", KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, [&](TransportTime &out, long *ierr) {
        return kl_time_transport_to_transport_run(&run_id, &trans_id_in, &time_ref_in, transport_in.data(),
                                                  &trans_id_out, &time_ref_out, out.data(), ierr);
    });
}

State LibFunc::changeCartCs(const ModelId &model_id, const TimeId &time_id, long calc_mode, long cs_in, long cs_out,
                            long time_ref, double time, const State &in)
{
    return result_of<State>("LibFunc::changeCartCs", KL_ID_FUNC_CHANGE_CART_CS, [&](State &out, long *ierr) {
        return kl_change_cart_cs(model_id.getId(), time_id.getId(), &calc_mode, &cs_in, &cs_out, &time_ref, &time,
                                 in.pos.data(), in.vel.data(), in.acc.data(), out.pos.data(), out.vel.data(),
                                 out.acc.data(), ierr);
    });
}

State LibFunc::changeCartCs(const RunId &run, long calc_mode, long cs_in, long cs_out, long time_ref, double time,
                            const State &in)
{
    const long run_id = run.getRunId();
    return result_of<State>("LibFunc::changeCartCs", KL_ID_FUNC_CHANGE_CART_CS, [&](State &out, long *ierr) {
        return kl_change_cart_cs_run(&run_id, &calc_mode, &cs_in, &cs_out, &time_ref, &time, in.pos.data(),
                                     in.vel.data(), in.acc.data(), out.pos.data(), out.vel.data(), out.acc.data(),
                                     ierr);
    });
}

kl_earth_orientation LibFunc::earthOrientationGet(const TimeId &time_id, long corrections, long time_ref, double time)
{
    return result_of<kl_earth_orientation>("LibFunc::earthOrientationGet", kUnassigned, [&](kl_earth_orientation &out, long *ierr) {
        return kl_earth_orientation_get(time_id.getId(), &corrections, &time_ref, &time, &out, ierr);
    });
}

kl_earth_orientation LibFunc::earthOrientationGet(const RunId &run, long corrections, long time_ref, double time)
{
    const long run_id = run.getRunId();
    return result_of<kl_earth_orientation>("LibFunc::earthOrientationGet", kUnassigned, [&](kl_earth_orientation &out, long *ierr) {
        return kl_earth_orientation_get_run(&run_id, &corrections, &time_ref, &time, &out, ierr);
    });
}

MatrixState LibFunc::iersMatrix(const TimeId &time_id, long corrections, long cs_in, long cs_out, long time_ref,
                                double time, long calc_mode)
{
    return result_of<MatrixState>("LibFunc::iersMatrix", kUnassigned, [&](MatrixState &out, long *ierr) {
        return kl_iers_matrix(time_id.getId(), &corrections, &cs_in, &cs_out, &time_ref, &time, &calc_mode,
                              out.matrix.data(), out.rate.data(), out.acceleration.data(), ierr);
    });
}

MatrixState LibFunc::iersMatrix(const RunId &run, long corrections, long cs_in, long cs_out, long time_ref, double time,
                                long calc_mode)
{
    const long run_id = run.getRunId();
    return result_of<MatrixState>("LibFunc::iersMatrix", kUnassigned, [&](MatrixState &out, long *ierr) {
        return kl_iers_matrix_run(&run_id, &corrections, &cs_in, &cs_out, &time_ref, &time, &calc_mode,
                                  out.matrix.data(), out.rate.data(), out.acceleration.data(), ierr);
    });
}

State LibFunc::iersChange(const TimeId &time_id, long corrections, long calc_mode, long cs_in, long cs_out,
                          long time_ref, double time, const State &in)
{
    return result_of<State>("LibFunc::iersChange", kUnassigned, [&](State &out, long *ierr) {
        return kl_iers_change(time_id.getId(), &corrections, &calc_mode, &cs_in, &cs_out, &time_ref, &time,
                              in.pos.data(), in.vel.data(), in.acc.data(), out.pos.data(), out.vel.data(),
                              out.acc.data(), ierr);
    });
}

State LibFunc::iersChange(const RunId &run, long corrections, long calc_mode, long cs_in, long cs_out, long time_ref,
                          double time, const State &in)
{
    const long run_id = run.getRunId();
    return result_of<State>("LibFunc::iersChange", kUnassigned, [&](State &out, long *ierr) {
        return kl_iers_change_run(&run_id, &corrections, &calc_mode, &cs_in, &cs_out, &time_ref, &time, in.pos.data(),
                                  in.vel.data(), in.acc.data(), out.pos.data(), out.vel.data(), out.acc.data(), ierr);
    });
}

Axes LibFunc::quaternionsToVectors(const Quaternion &q)
{
    return result_of<Axes>("LibFunc::quaternionsToVectors", KL_ID_FUNC_QUATERNIONS_TO_VECTORS, [&](Axes &out, long *ierr) {
        return kl_quaternions_to_vectors(q.data(), out.x.data(), out.y.data(), out.z.data(), ierr);
    });
}

void LibFunc::quaternionsToVectors(const double q[4], double x[3], double y[3], double z[3])
{
    require("LibFunc::quaternionsToVectors", KL_ID_FUNC_QUATERNIONS_TO_VECTORS, [&](long *ierr) { return kl_quaternions_to_vectors(q, x, y, z, ierr); });
}

Quaternion LibFunc::vectorsToQuaternions(const Axes &axes)
{
    return result_of<Quaternion>("LibFunc::vectorsToQuaternions", KL_ID_FUNC_VECTORS_TO_QUATERNIONS, [&](Quaternion &out, long *ierr) {
        return kl_vectors_to_quaternions(axes.x.data(), axes.y.data(), axes.z.data(), out.data(), ierr);
    });
}

void LibFunc::vectorsToQuaternions(const double x[3], const double y[3], const double z[3], double q[4])
{
    require("LibFunc::vectorsToQuaternions", KL_ID_FUNC_VECTORS_TO_QUATERNIONS, [&](long *ierr) { return kl_vectors_to_quaternions(x, y, z, q, ierr); });
}

Matrix LibFunc::eulerToMatrix(const Vector &angles)
{
    return result_of<Matrix>("LibFunc::eulerToMatrix", kUnassigned, [&](Matrix &out, long *ierr) {
        return kl_euler_to_matrix(angles.data(), out.data(), ierr);
    });
}

void LibFunc::eulerToMatrix(const double angles[3], double matrix[9])
{
    require("LibFunc::eulerToMatrix", kUnassigned, [&](long *ierr) { return kl_euler_to_matrix(angles, matrix, ierr); });
}

Vector LibFunc::matrixToEuler(const Matrix &matrix)
{
    return result_of<Vector>("LibFunc::matrixToEuler", KL_ID_FUNC_MATRIX_TO_EULER, [&](Vector &out, long *ierr) {
        return kl_matrix_to_euler(matrix.data(), out.data(), ierr);
    });
}

void LibFunc::matrixToEuler(const double matrix[9], double angles[3])
{
    require("LibFunc::matrixToEuler", KL_ID_FUNC_MATRIX_TO_EULER, [&](long *ierr) { return kl_matrix_to_euler(matrix, angles, ierr); });
}

Vector LibFunc::getRotationAngles(const Axes &from, const Axes &to)
{
    return result_of<Vector>("LibFunc::getRotationAngles", KL_ID_FUNC_GET_ROTATION_ANGLES, [&](Vector &out, long *ierr) {
        return kl_get_rotation_angles(from.x.data(), from.y.data(), from.z.data(), to.x.data(), to.y.data(),
                                      to.z.data(), out.data(), ierr);
    });
}

void LibFunc::getRotationAngles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                const double y2[3], const double z2[3], double angles[3])
{
    require("LibFunc::getRotationAngles", KL_ID_FUNC_GET_ROTATION_ANGLES, [&](long *ierr) { return kl_get_rotation_angles(x1, y1, z1, x2, y2, z2, angles, ierr); });
}

Axes LibFunc::getRotatedVectors(const Axes &axes, const Vector &angles)
{
    return result_of<Axes>("LibFunc::getRotatedVectors", KL_ID_FUNC_GET_ROTATED_VECTORS, [&](Axes &out, long *ierr) {
        return kl_get_rotated_vectors(axes.x.data(), axes.y.data(), axes.z.data(), angles.data(), out.x.data(),
                                      out.y.data(), out.z.data(), ierr);
    });
}

void LibFunc::getRotatedVectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                double x2[3], double y2[3], double z2[3])
{
    require("LibFunc::getRotatedVectors", KL_ID_FUNC_GET_ROTATED_VECTORS, [&](long *ierr) { return kl_get_rotated_vectors(x1, y1, z1, angles, x2, y2, z2, ierr); });
}

double LibFunc::timeAdd(long time_ref, double time, double duration)
{
    return result_of<double>("LibFunc::timeAdd", KL_ID_FUNC_TIME_ADD, [&](double &out, long *ierr) {
        return kl_time_add(&kProcessing, &time_ref, &time, &duration, &out, ierr);
    });
}

double LibFunc::timeDiff(long time_ref, double time1, double time2)
{
    return result_of<double>("LibFunc::timeDiff", KL_ID_FUNC_TIME_DIFF, [&](double &out, long *ierr) {
        return kl_time_diff(&kProcessing, &time_ref, &time1, &time2, &out, ierr);
    });
}

LeapSecondInfo LibFunc::timeGetLeapSecondInfo(const TimeId &time_id, long ascii_id_out)
{
    return result_of<LeapSecondInfo>("LibFunc::timeGetLeapSecondInfo", KL_ID_FUNC_TIME_GET_LEAP_SECOND_INFO, [&](LeapSecondInfo &out, long *ierr) {
        return kl_time_get_leap_second_info(time_id.getId(), &ascii_id_out, &out.sign, out.before.text, out.after.text,
                                            ierr);
    });
}

LeapSecondInfo LibFunc::timeGetLeapSecondInfo(const RunId &run, long ascii_id_out)
{
    const long run_id = run.getRunId();
    return result_of<LeapSecondInfo>("LibFunc::timeGetLeapSecondInfo", KL_ID_FUNC_TIME_GET_LEAP_SECOND_INFO, [&](LeapSecondInfo &out, long *ierr) {
        return kl_time_get_leap_second_info_run(&run_id, &ascii_id_out, &out.sign, out.before.text, out.after.text,
                                                ierr);
    });
}

} // namespace ORBKIT
