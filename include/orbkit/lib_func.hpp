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

    // ---- functions of the same name: an id or a run, then the arguments in their order, without the processing
    // format. Of the rotations, the forms with arrays write into the caller's. ----

    // clang-format off
    /* >>> members that only forward: Written by tools/api/generate.py from the table in api/. */
    /** Position and velocity of the Sun, seen from the centre of the Earth. */
    static BodyState sun(const ModelId &model_id, const TimeId &time_id, long time_ref, double time);
    static BodyState sun(const RunId &run, long time_ref, double time);
    /** Position and velocity of the Moon, seen from the centre of the Earth. */
    static BodyState moon(const ModelId &model_id, const TimeId &time_id, long time_ref, double time);
    static BodyState moon(const RunId &run, long time_ref, double time);
    /** Position and velocity of a planet, seen from the centre of the Earth. */
    static BodyState planet(const ModelId &model_id, const TimeId &time_id, long planet_id, long time_ref, double time);
    static BodyState planet(const RunId &run, long planet_id, long time_ref, double time);
    /** Processing time of a CCSDS unsegmented time code. */
    static double timeCucToProcessing(const TimeId &time_id, const kl_cuc_config &config, long time_ref,
                                      const CucTime &cuc);
    /** CCSDS unsegmented time code of a processing time. */
    static CucTime timeProcessingToCuc(const TimeId &time_id, const kl_cuc_config &config, long time_ref, double time);
    /** Geodetic to Earth-fixed Cartesian coordinates. */
    static BodyState geodToCart(const ModelId &model_id, long calc_mode, const kl_geodetic &in);
    static BodyState geodToCart(const RunId &run, long calc_mode, const kl_geodetic &in);
    /** Earth-fixed Cartesian to geodetic coordinates. */
    static kl_geodetic cartToGeod(const ModelId &model_id, long calc_mode, const BodyState &in);
    static kl_geodetic cartToGeod(const RunId &run, long calc_mode, const BodyState &in);
    /** Keplerian elements to position and velocity. */
    static BodyState keplToCart(const ModelId &model_id, long kind, const kl_kepler &in);
    static BodyState keplToCart(const RunId &run, long kind, const kl_kepler &in);
    /** Position and velocity to Keplerian elements. */
    static kl_kepler cartToKepl(const ModelId &model_id, long kind, const BodyState &in);
    static kl_kepler cartToKepl(const RunId &run, long kind, const BodyState &in);
    /** Length and azimuths of the shortest path between two points of the ellipsoid. */
    static Geodesic geodDistance(const ModelId &model_id, double lat1, double lon1, double lat2, double lon2);
    static Geodesic geodDistance(const RunId &run, double lat1, double lon1, double lat2, double lon2);
    /** The point at a distance along the geodesic that starts with an azimuth. */
    static GeodesicEnd geodPoint(const ModelId &model_id, double lat, double lon, double azimuth, double distance);
    /** Angle of a satellite on its orbit, from the ascending node in the direction of motion. */
    static kl_orbit_angle positionOnOrbit(const ModelId &model_id, const TimeId &time_id, long calc_mode, long cs,
                                          long time_ref, double time, const State &in);
    static kl_orbit_angle positionOnOrbit(const RunId &run, long calc_mode, long cs, long time_ref, double time,
                                          const State &in);
    /** Beta angle, local solar times of the ascending node, angle from the Sun to the satellite. */
    static kl_orbit_sun_angles orbitSun(const ModelId &model_id, const TimeId &time_id, long cs, long time_ref,
                                        double time, const BodyState &in);
    /** Position and velocity to right ascension and declination. */
    static kl_radec cartToRadec(const ModelId &model_id, long calc_mode, const BodyState &in);
    static kl_radec cartToRadec(const RunId &run, long calc_mode, const BodyState &in);
    /** Right ascension and declination to position and velocity. */
    static BodyState radecToCart(const ModelId &model_id, long calc_mode, const kl_radec &in);
    static BodyState radecToCart(const RunId &run, long calc_mode, const kl_radec &in);
    /** Earth-fixed position and velocity to azimuth, elevation and range from a place on the Earth. */
    static kl_topocentric efToTopocentric(const ModelId &model_id, long calc_mode, const kl_geodetic &origin,
                                          const BodyState &in);
    static kl_topocentric efToTopocentric(const RunId &run, long calc_mode, const kl_geodetic &origin,
                                          const BodyState &in);
    /** Azimuth, elevation and range from a place on the Earth to Earth-fixed position and velocity. */
    static BodyState topocentricToEf(const ModelId &model_id, long calc_mode, const kl_geodetic &origin,
                                     const kl_topocentric &in);
    static BodyState topocentricToEf(const RunId &run, long calc_mode, const kl_geodetic &origin,
                                     const kl_topocentric &in);
    /** Geodetic latitude and longitude of universal transverse Mercator coordinates. */
    static GridPlace utmToGeod(const ModelId &model_id, long zone, long north, double easting, double northing);
    /** Axes of a frame that goes along with a satellite. */
    static LocalFrame localOrbitalFrame(long kind, const State &in);
    /** Mean Keplerian elements after a time, by the secular rates of J2. */
    static kl_kepler meanMotion(const ModelId &model_id, const kl_kepler &mean, double duration);
    static kl_kepler meanMotion(const RunId &run, const kl_kepler &mean, double duration);
    /** Carries a processing time to another scale. */
    static double timeProcessingToProcessing(const TimeId &time_id, long time_ref_in, double time_in,
                                             long time_ref_out);
    static double timeProcessingToProcessing(const RunId &run, long time_ref_in, double time_in, long time_ref_out);
    /** Writes the instant of a text in another format, another scale or both. */
    static TimeText timeAsciiToAscii(const TimeId &time_id, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                     long ascii_id_out, long time_ref_out);
    static TimeText timeAsciiToAscii(const RunId &run, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                     long ascii_id_out, long time_ref_out);
    /** Reads a text. */
    static double timeAsciiToProcessing(const TimeId &time_id, long ascii_id_in, long time_ref_in,
                                        TextArgument ascii_in, long time_ref_out);
    static double timeAsciiToProcessing(const RunId &run, long ascii_id_in, long time_ref_in, TextArgument ascii_in,
                                        long time_ref_out);
    /** Reads a text as people write it. */
    static double timeTextToProcessing(const TimeId &time_id, TextArgument text, long time_ref_default,
                                       long time_ref_out);
    static double timeTextToProcessing(const RunId &run, TextArgument text, long time_ref_default, long time_ref_out);
    /** Reads a text into a transport time. */
    static TransportTime timeAsciiToTransport(const TimeId &time_id, long ascii_id_in, long time_ref_in,
                                              TextArgument ascii_in, long trans_id_out, long time_ref_out);
    static TransportTime timeAsciiToTransport(const RunId &run, long ascii_id_in, long time_ref_in,
                                              TextArgument ascii_in, long trans_id_out, long time_ref_out);
    /** Writes a processing time as a text. */
    static TimeText timeProcessingToAscii(const TimeId &time_id, long time_ref_in, double time_in, long ascii_id_out,
                                          long time_ref_out);
    static TimeText timeProcessingToAscii(const RunId &run, long time_ref_in, double time_in, long ascii_id_out,
                                          long time_ref_out);
    /** Writes a processing time as a transport time. */
    static TransportTime timeProcessingToTransport(const TimeId &time_id, long time_ref_in, double time_in,
                                                   long trans_id_out, long time_ref_out);
    static TransportTime timeProcessingToTransport(const RunId &run, long time_ref_in, double time_in,
                                                   long trans_id_out, long time_ref_out);
    /** Writes a transport time as a text. */
    static TimeText timeTransportToAscii(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                         const TransportTime &transport_in, long ascii_id_out, long time_ref_out);
    static TimeText timeTransportToAscii(const RunId &run, long trans_id_in, long time_ref_in,
                                         const TransportTime &transport_in, long ascii_id_out, long time_ref_out);
    /** Reads a transport time. */
    static double timeTransportToProcessing(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                            const TransportTime &transport_in, long time_ref_out);
    static double timeTransportToProcessing(const RunId &run, long trans_id_in, long time_ref_in,
                                            const TransportTime &transport_in, long time_ref_out);
    /** Writes the instant of a transport time in another format, another scale or both. */
    static TransportTime timeTransportToTransport(const TimeId &time_id, long trans_id_in, long time_ref_in,
                                                  const TransportTime &transport_in, long trans_id_out,
                                                  long time_ref_out);
    static TransportTime timeTransportToTransport(const RunId &run, long trans_id_in, long time_ref_in,
                                                  const TransportTime &transport_in, long trans_id_out,
                                                  long time_ref_out);
    /** Carries a position, velocity and acceleration from one reference frame to another. */
    static State changeCartCs(const ModelId &model_id, const TimeId &time_id, long calc_mode, long cs_in, long cs_out,
                              long time_ref, double time, const State &in);
    static State changeCartCs(const RunId &run, long calc_mode, long cs_in, long cs_out, long time_ref, double time,
                              const State &in);
    /** Where a line of sight meets the ellipsoid. */
    static RayPoints rayEllipsoid(const ModelId &model_id, const Vector &pos, const Vector &dir, double margin);
    static RayPoints rayEllipsoid(const RunId &run, const Vector &pos, const Vector &dir, double margin);
    /** Where a line of sight has a geodetic height. */
    static RayPoints rayHeight(const ModelId &model_id, const Vector &pos, const Vector &dir, double height);
    static RayPoints rayHeight(const RunId &run, const Vector &pos, const Vector &dir, double height);
    /** The point of a line of sight where the geodetic height is smallest. */
    static TangentPoint rayTangent(const ModelId &model_id, const Vector &pos, const Vector &dir);
    static TangentPoint rayTangent(const RunId &run, const Vector &pos, const Vector &dir);
    /** How much of the Sun the Earth hides from a satellite. */
    static EclipseState eclipse(const ModelId &model_id, const TimeId &time_id, long light_time, long cs, long time_ref,
                                double time, const Vector &pos, double margin);
    static EclipseState eclipse(const RunId &run, long light_time, long cs, long time_ref, double time,
                                const Vector &pos, double margin);
    /** What a time id and the theory say of the Earth's orientation. */
    static kl_earth_orientation earthOrientationGet(const TimeId &time_id, long corrections, long time_ref,
                                                    double time);
    static kl_earth_orientation earthOrientationGet(const RunId &run, long corrections, long time_ref, double time);
    /** Matrix from one frame of the IERS Conventions to another, with its derivatives. */
    static MatrixState iersMatrix(const TimeId &time_id, long corrections, long cs_in, long cs_out, long time_ref,
                                  double time, long calc_mode);
    static MatrixState iersMatrix(const RunId &run, long corrections, long cs_in, long cs_out, long time_ref,
                                  double time, long calc_mode);
    /** Carries a state from one frame of the IERS Conventions to another. */
    static State iersChange(const TimeId &time_id, long corrections, long calc_mode, long cs_in, long cs_out,
                            long time_ref, double time, const State &in);
    static State iersChange(const RunId &run, long corrections, long calc_mode, long cs_in, long cs_out, long time_ref,
                            double time, const State &in);
    /** Axis vectors of a quaternion. */
    static Axes quaternionsToVectors(const Quaternion &q);
    static void quaternionsToVectors(const double q[4], double x[3], double y[3], double z[3]);
    /** Quaternion of three axis vectors (trace, or Shepperd's method). */
    static Quaternion vectorsToQuaternions(const Axes &axes);
    static void vectorsToQuaternions(const double x[3], const double y[3], const double z[3], double q[4]);
    /** Matrix of three rotation angles a0, a1, a2 (about x, y and z). */
    static Matrix eulerToMatrix(const Vector &angles);
    static void eulerToMatrix(const double angles[3], double matrix[9]);
    /** Rotation angles of a matrix, the inverse of kl_euler_to_matrix. */
    static Vector matrixToEuler(const Matrix &matrix);
    static void matrixToEuler(const double matrix[9], double angles[3]);
    /** Angles of the rotation from one set of axes to another: with M = kl_euler_to_matrix(angles), M has the axes of set 2 as its rows, in components along set 1 (v2 = M v1). */
    static Vector getRotationAngles(const Axes &from, const Axes &to);
    static void getRotationAngles(const double x1[3], const double y1[3], const double z1[3], const double x2[3],
                                  const double y2[3], const double z2[3], double angles[3]);
    /** Axes turned by three angles, the inverse of kl_get_rotation_angles. */
    static Axes getRotatedVectors(const Axes &axes, const Vector &angles);
    static void getRotatedVectors(const double x1[3], const double y1[3], const double z1[3], const double angles[3],
                                  double x2[3], double y2[3], double z2[3]);
    /** Place of a star in the sky of an observer. */
    static kl_radec starRadec(const ModelId &model_id, const TimeId &time_id, long corrections, long cs_out,
                              long time_ref, double time, const kl_star &star, const Vector &observer_pos,
                              const Vector &observer_vel);
    static kl_radec starRadec(const RunId &run, long corrections, long cs_out, long time_ref, double time,
                              const kl_star &star, const Vector &observer_pos, const Vector &observer_vel);
    /** Processing time plus a duration, both in days of the same scale: no leap second comes in. */
    static double timeAdd(long time_ref, double time, double duration);
    /** Difference of two processing times of the same scale, in days of that scale: no leap second comes in. */
    static double timeDiff(long time_ref, double time1, double time2);
    /** The one leap second that a time id knows: the last change of TAI-UTC in its table. */
    static LeapSecondInfo timeGetLeapSecondInfo(const TimeId &time_id, long ascii_id_out);
    static LeapSecondInfo timeGetLeapSecondInfo(const RunId &run, long ascii_id_out);
    /* <<< */
    // clang-format on

    // ---- quaternions, geoid ----

    /** The second quaternion of the configuration may be negated. */
    static Quaternion quaternionsInterpol(QuaternionsInterpolationCfg &cfg);
    static void quaternionsInterpol(QuaternionsInterpolationCfg &cfg, double q[4]);
    /** Undulation, m, at a geodetic latitude and longitude, deg. */
    static double geoid(const ModelId &model, double latitude, double longitude, long max_degree = 360);
    /** Undulations, m, row by row: one row a latitude. */
    static std::vector<double> geoidGrid(const ModelId &model, const std::vector<double> &latitudes,
                                         const std::vector<double> &longitudes, long max_degree = 360);

    // ---- time: on-board clocks. The type of the parameters, kl_obt_param_*, chooses the format; they and the on-board
    // time carry the number of the satellite, which a time that is returned receives. `Satellite` is a SatId, or a
    // RunId for the satellite of the run. ----

    template <typename Satellite, typename Parameters>
    static double timeObtToTime(const Satellite &satellite, long time_ref, const Parameters &parameters,
                                const OnBoardCount<Parameters> &obt)
    {
        return obtToTime(satellite, time_ref, &parameters, &obt);
    }
    template <typename Satellite, typename Parameters>
    static OnBoardCount<Parameters> timeTimeToObt(const Satellite &satellite, long time_ref,
                                                  const Parameters &parameters, double t)
    {
        OnBoardCount<Parameters> obt{};
        obt.sat_id = satellite.getSatellite();
        timeToObt(satellite, time_ref, &parameters, t, &obt);
        return obt;
    }

private:
    static double obtToTime(const SatId &satellite, long time_ref, const void *parameters, const void *obt);
    static double obtToTime(const RunId &run, long time_ref, const void *parameters, const void *obt);
    static void timeToObt(const SatId &satellite, long time_ref, const void *parameters, double t, void *obt);
    static void timeToObt(const RunId &run, long time_ref, const void *parameters, double t, void *obt);
};

} // namespace ORBKIT

#endif
