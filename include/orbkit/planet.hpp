/**
 * @file planet.hpp
 */
#ifndef ORBKIT_PLANET_HPP
#define ORBKIT_PLANET_HPP

#include "state_vector.hpp"

namespace ORBKIT {

/**
 * A planet, geometric, seen from the centre of the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::Planet mars(ORBKIT::PlanetName::mars);
 * const kl_radec seen = mars.at(ORBKIT::Time("2026-06-21T12:00:00")).in(ORBKIT::Frame::TOD).raDec();
 * std::printf("%.1f %.1f deg\n", seen.ra, seen.dec); // -> 52.5 18.6 deg
 * @endcode
 */
class Planet {
public:
    explicit Planet(PlanetName name) : name_(name) {}

    PlanetName name() const { return name_; }
    /** In Frame::EF, relative to its turning axes. */
    StateVector at(const Time &time, Borrowed<ModelId> models = {}) const
    {
        const long planet = number(name_);
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        const ModelId &model = models != nullptr ? *models : default_models();
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Planet::at",
                        kl_planet(model.getId(), time.id(), &planet, &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_PLANET, ierr);
        return {pos, vel, Frame::EF, time, model};
    }

    friend bool operator==(const Planet &a, const Planet &b) { return a.name_ == b.name_; }
    friend bool operator!=(const Planet &a, const Planet &b) { return a.name_ != b.name_; }

private:
    PlanetName name_;
};

} // namespace ORBKIT

#endif
