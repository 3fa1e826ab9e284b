/**
 * @file lib_func.hpp
 */
#ifndef ORBKIT_LIB_FUNC_HPP
#define ORBKIT_LIB_FUNC_HPP

#include "model_id.hpp"
#include "quaternions_interpolation_cfg.hpp"
#include "run_id.hpp"
#include "sat_id.hpp"
#include "time_id.hpp"
#include "types.hpp"

#include <vector>

namespace ORBKIT {

/**
 * The functions of kl_lib.h without status values and error vectors. Each makes the call of its name, where units,
 * frames, ranges and conditions are described, and throws a KitError by the rule of LibError. The processing format
 * goes without saying: instants are MJD2000, days. Where a function takes a model and a time id, another form takes
 * the run that holds them.
 *
 * @code{.cpp}
 * using ORBKIT::LibFunc;
 * const ORBKIT::TimeId time({0.0, 0.0, 0.0, 0.0});
 * const double noon =
 *     LibFunc::timeAsciiToProcessing(time, KL_ASCII_41, KL_TIME_UTC, "2000-01-01T12:00:00", KL_TIME_UTC);
 * const ORBKIT::Vector sun = LibFunc::sun(ORBKIT::ModelId(), time, KL_TIME_UTC, noon).pos;
 * std::printf("the Sun at %.1f: %.1f million km\n", noon, std::hypot(sun[0], sun[1], sun[2]) / 1e9);
 * // -> the Sun at 0.5: 147.1 million km
 * try {
 *     LibFunc::sun(ORBKIT::ModelId(), time, KL_TIME_UTC, 40000.0);
 * } catch (const KitError &error) {
 *     std::printf("%s\n", error.getMsg().at(1).c_str());
 *     // -> ORBKIT_LIB >>> ERROR in kl_sun: Input date is out of range
 * }
 * @endcode
 */
class KL_API LibFunc {
public:
    // ---- the library ----

    /** From now on messages are printed on standard error as they are recorded. */
    static void setVerbose();
    /** The state at load: nothing is printed. */
    static void setSilent();
    /** Prints the versions of the libraries; true when they fit together. */
    static bool checkLibraryVersion();

    // ---- rotations: angles in degrees. The forms with arrays write into the caller's. ----

    static Matrix eulerToMatrix(const Vector &angles);
    static void eulerToMatrix(const double angles[3], double matrix[9]);
    static Vector matrixToEuler(const Matrix &matrix);
    static void matrixToEuler(const double matrix[9], double angles[3]);
    /** Angles that turn the first axes into the second. */
    static Vector getRotationAngles(const Axes &from, const Axes &to);
    static void getRotationAngles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                  const double y2[3], const double z2[3], double angles[3]);
    static Axes getRotatedVectors(const Axes &axes, const Vector &angles);
    static void getRotatedVectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                  double x2[3], double y2[3], double z2[3]);
    static Axes quaternionsToVectors(const Quaternion &q);
    static void quaternionsToVectors(const double q[4], double x[3], double y[3], double z[3]);
    static Quaternion vectorsToQuaternions(const Axes &axes);
    static void vectorsToQuaternions(const double x[3], const double y[3], const double z[3], double q[4]);
    /** The second quaternion of the configuration may be negated. */
    static Quaternion quaternionsInterpol(QuaternionsInterpolationCfg &cfg);
    static void quaternionsInterpol(QuaternionsInterpolationCfg &cfg, double q[4]);

    // ---- Sun, Moon and planets, frames ----

    static BodyState sun(const ModelId &model, const TimeId &time, long time_ref, double t);
    static BodyState sun(const RunId &run, long time_ref, double t);
    static BodyState moon(const ModelId &model, const TimeId &time, long time_ref, double t);
    static BodyState moon(const RunId &run, long time_ref, double t);
    static BodyState planet(const ModelId &model, const TimeId &time, long planet_id, long time_ref, double t);
    static BodyState planet(const RunId &run, long planet_id, long time_ref, double t);
    static State changeCartCs(const ModelId &model, const TimeId &time, long calc_mode, long cs_in, long cs_out,
                              long time_ref, double t, const State &in);
    static State changeCartCs(const RunId &run, long calc_mode, long cs_in, long cs_out, long time_ref, double t,
                              const State &in);

    // ---- geoid ----

    /** Undulation, m, at a geodetic latitude and longitude, deg. */
    static double geoid(const ModelId &model, double latitude, double longitude, long max_degree = 360);
    /** Undulations, m, row by row: one row a latitude. */
    static std::vector<double> geoidGrid(const ModelId &model, const std::vector<double> &latitudes,
                                         const std::vector<double> &longitudes, long max_degree = 360);

    // ---- time: formats and scales. A transport or text format goes before the scale that it is read or written in
    // ----

    static double timeProcessingToProcessing(const TimeId &time, long ref_in, double t, long ref_out);
    static double timeProcessingToProcessing(const RunId &run, long ref_in, double t, long ref_out);
    static TimeText timeProcessingToAscii(const TimeId &time, long ref_in, double t, long ascii_out, long ref_out);
    static TimeText timeProcessingToAscii(const RunId &run, long ref_in, double t, long ascii_out, long ref_out);
    static TransportTime timeProcessingToTransport(const TimeId &time, long ref_in, double t, long trans_out,
                                                   long ref_out);
    static TransportTime timeProcessingToTransport(const RunId &run, long ref_in, double t, long trans_out,
                                                   long ref_out);
    static double timeAsciiToProcessing(const TimeId &time, long ascii_in, long ref_in, TextArgument text,
                                        long ref_out);
    static double timeAsciiToProcessing(const RunId &run, long ascii_in, long ref_in, TextArgument text, long ref_out);
    static TimeText timeAsciiToAscii(const TimeId &time, long ascii_in, long ref_in, TextArgument text, long ascii_out,
                                     long ref_out);
    static TimeText timeAsciiToAscii(const RunId &run, long ascii_in, long ref_in, TextArgument text, long ascii_out,
                                     long ref_out);
    static TransportTime timeAsciiToTransport(const TimeId &time, long ascii_in, long ref_in, TextArgument text,
                                              long trans_out, long ref_out);
    static TransportTime timeAsciiToTransport(const RunId &run, long ascii_in, long ref_in, TextArgument text,
                                              long trans_out, long ref_out);
    static double timeTransportToProcessing(const TimeId &time, long trans_in, long ref_in, const TransportTime &t,
                                            long ref_out);
    static double timeTransportToProcessing(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                            long ref_out);
    static TimeText timeTransportToAscii(const TimeId &time, long trans_in, long ref_in, const TransportTime &t,
                                         long ascii_out, long ref_out);
    static TimeText timeTransportToAscii(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                         long ascii_out, long ref_out);
    static TransportTime timeTransportToTransport(const TimeId &time, long trans_in, long ref_in,
                                                  const TransportTime &t, long trans_out, long ref_out);
    static TransportTime timeTransportToTransport(const RunId &run, long trans_in, long ref_in, const TransportTime &t,
                                                  long trans_out, long ref_out);

    // ---- time: sums, leap second ----

    /** t + duration, days. */
    static double timeAdd(long time_ref, double t, double duration);
    /** t1 - t2, days. */
    static double timeDiff(long time_ref, double t1, double t2);
    static LeapSecondInfo timeGetLeapSecondInfo(const TimeId &time, long ascii_out);
    static LeapSecondInfo timeGetLeapSecondInfo(const RunId &run, long ascii_out);

    // ---- time: on-board clocks. The type of the parameters, kl_obt_param_*, chooses the format; they and the on-board
    // time carry the number of the satellite, which a time that is returned receives. `Satellite` is a SatId, or a
    // RunId for the satellite of the run. ----

    template <typename Satellite, typename Parameters>
    static double timeObtToTime(const Satellite &satellite, long time_ref, const Parameters &parameters,
                                const OnBoardTime<Parameters> &obt)
    {
        return obtToTime(satellite, time_ref, &parameters, &obt);
    }
    template <typename Satellite, typename Parameters>
    static OnBoardTime<Parameters> timeTimeToObt(const Satellite &satellite, long time_ref,
                                                 const Parameters &parameters, double t)
    {
        OnBoardTime<Parameters> obt{};
        obt.sat_id = satellite.getSatellite();
        timeToObt(satellite, time_ref, &parameters, t, &obt);
        return obt;
    }

    // ---- time: CCSDS unsegmented time code ----

    static double timeCucToProcessing(const TimeId &time, const kl_cuc_config &config, long time_ref,
                                      const CucTime &cuc);
    static CucTime timeProcessingToCuc(const TimeId &time, const kl_cuc_config &config, long time_ref, double t);

private:
    static double obtToTime(const SatId &satellite, long time_ref, const void *parameters, const void *obt);
    static double obtToTime(const RunId &run, long time_ref, const void *parameters, const void *obt);
    static void timeToObt(const SatId &satellite, long time_ref, const void *parameters, double t, void *obt);
    static void timeToObt(const RunId &run, long time_ref, const void *parameters, double t, void *obt);
};

} // namespace ORBKIT

#endif
