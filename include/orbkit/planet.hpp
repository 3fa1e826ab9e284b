/**
 * @file planet.hpp
 */
#ifndef ORBKIT_PLANET_HPP
#define ORBKIT_PLANET_HPP

#include "body.hpp"

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
        const auto call = [planet = number(name_)](kl_model_id *model, kl_time_id *id, auto... rest) {
            return kl_planet(model, id, &planet, rest...);
        };
        return detail::Body::at("Planet::at", KL_ID_FUNC_PLANET, call, time, models);
    }

    friend bool operator==(const Planet &a, const Planet &b) { return a.name_ == b.name_; }
    friend bool operator!=(const Planet &a, const Planet &b) { return a.name_ != b.name_; }
    friend std::ostream &operator<<(std::ostream &out, const Planet &planet)
    {
        constexpr const char *kNames[] = {"Mercury", "Venus",  "Earth-Moon barycentre", "Mars", "Jupiter", "Saturn",
                                          "Uranus",  "Neptune"};
        const long i = number(planet.name_) - KL_MERCURY;
        return out << (i >= 0 && i < 8 ? kNames[i] : "no planet");
    }

private:
    PlanetName name_;
};

} // namespace ORBKIT

#endif
