/**
 * @file sun.hpp
 */
#ifndef ORBKIT_SUN_HPP
#define ORBKIT_SUN_HPP

#include "body.hpp"

namespace ORBKIT {

/**
 * The Sun, geometric, seen from the centre of the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::StateVector sun = ORBKIT::Sun::at(ORBKIT::Time("2026-06-21T12:00:00"));
 * std::printf("over %.2f deg north\n", sun.geodetic().latitude); // -> over 23.44 deg north
 * @endcode
 */
class Sun {
public:
    /** In Frame::EF, relative to its turning axes. */
    static StateVector at(const Time &time, Borrowed<ModelId> models = {})
    {
        return detail::Body::at("Sun::at", KL_ID_FUNC_SUN, kl_sun, time, models);
    }
};

} // namespace ORBKIT

#endif
