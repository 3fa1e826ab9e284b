/**
 * @file sun.hpp
 */
#ifndef ORBKIT_SUN_HPP
#define ORBKIT_SUN_HPP

#include "state_vector.hpp"

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
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        const ModelId &model = models != nullptr ? *models : default_models();
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Sun::at", kl_sun(model.getId(), time.id(), &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_SUN, ierr);
        return {pos, vel, Frame::EF, time, model};
    }
};

} // namespace ORBKIT

#endif
