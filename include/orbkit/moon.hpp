/**
 * @file moon.hpp
 */
#ifndef ORBKIT_MOON_HPP
#define ORBKIT_MOON_HPP

#include "body.hpp"

namespace ORBKIT {

/**
 * The Moon, geometric, seen from the centre of the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::StateVector moon = ORBKIT::Moon::at(ORBKIT::Time("2026-06-21T12:00:00"));
 * std::printf("%.0f thousand km away\n", moon.raDec().distance / 1e6); // -> 386 thousand km away
 * @endcode
 */
class Moon {
public:
    /** In Frame::EF, relative to its turning axes. */
    static StateVector at(const Time &time, Borrowed<ModelId> models = {})
    {
        return detail::Body::at("Moon::at", KL_ID_FUNC_MOON, kl_moon, time, models);
    }
};

} // namespace ORBKIT

#endif
