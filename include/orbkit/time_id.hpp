/**
 * @file time_id.hpp
 */
#ifndef ORBKIT_TIME_ID_HPP
#define ORBKIT_TIME_ID_HPP

#include "time_correlation.hpp"

namespace ORBKIT {

/**
 * The name of TimeCorrelation beside the functions of C.
 *
 * @code{.cpp}
 * const ORBKIT::TimeId time_id = ORBKIT::TimeId::builtIn();
 * std::printf("%ld\n", time_id.status()); // -> 1
 * @endcode
 */
using TimeId = TimeCorrelation;

} // namespace ORBKIT

#endif
