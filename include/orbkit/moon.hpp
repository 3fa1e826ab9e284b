/**
 * @file moon.hpp
 */
#ifndef ORBKIT_MOON_HPP
#define ORBKIT_MOON_HPP

#include "state_vector.hpp"

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
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        const ModelId &model = models != nullptr ? *models : default_models();
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Moon::at", kl_moon(model.getId(), time.id(), &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_MOON, ierr);
        return {pos, vel, Frame::EF, time, model};
    }
};

} // namespace ORBKIT

#endif
