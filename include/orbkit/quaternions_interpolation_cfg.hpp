/**
 * @file quaternions_interpolation_cfg.hpp
 */
#ifndef ORBKIT_QUATERNIONS_INTERPOLATION_CFG_HPP
#define ORBKIT_QUATERNIONS_INTERPOLATION_CFG_HPP

#include "../kl_lib.h"

namespace ORBKIT {

/**
 * What LibFunc::quaternionsInterpol works on: a quaternion at t1, one at t2, and the instant to interpolate to. Any
 * unit of time will do. Outside t1 to t2 it extrapolates, which is a warning.
 *
 * @code{.cpp}
 * // No rotation at 10 s, a quarter turn about z at 20 s: an eighth of a turn at 15 s.
 * const double s = std::sqrt(0.5);
 * ORBKIT::QuaternionsInterpolationCfg cfg = {KL_INTERPOL_SLERP, 10.0, {0, 0, 0, 1}, 20.0, {0, 0, s, s}, 15.0};
 * const ORBKIT::Quaternion q = ORBKIT::LibFunc::quaternionsInterpol(cfg);
 * std::printf("%.1f deg about z\n", 2.0 * std::atan2(q[2], q[3]) * 180.0 / std::acos(-1.0)); // -> 45.0 deg about z
 * @endcode
 */
struct QuaternionsInterpolationCfg {
    long mode; /**< KL_INTERPOL_SLERP */
    double t1;
    double q1[4];
    double t2;
    double q2[4]; /**< negated in place by the interpolation when its dot product with q1 is negative */
    double t;
};

} // namespace ORBKIT

#endif
