/**
 * @file sky.hpp
 */
#ifndef ORBKIT_SKY_HPP
#define ORBKIT_SKY_HPP

#include "state_vector.hpp"

namespace ORBKIT {

/**
 * The Sun, the Moon and the planets, geometric, seen from the centre of the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::Time noon("2026-06-21T12:00:00");
 * const kl_geodetic below = ORBKIT::Sun::at(noon).geodetic();
 * std::printf("Sun over %.2f deg north\n", below.latitude); // -> Sun over 23.44 deg north
 * const double moon = std::hypot(ORBKIT::Moon::at(noon).pos()[0], ORBKIT::Moon::at(noon).pos()[1],
 *                                ORBKIT::Moon::at(noon).pos()[2]);
 * std::printf("Moon %.0f thousand km away\n", moon / 1e6); // -> Moon 386 thousand km away
 * @endcode
 */
class Sun {
public:
    /** In Frame::EF. */
    static StateVector at(const Time &time, const ModelId &models = default_models())
    {
        const long ref = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Sun::at", kl_sun(models.getId(), time.id(), &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_SUN, ierr);
        return {pos, vel, Frame::EF, time};
    }
};

/** See Sun. */
class Moon {
public:
    /** In Frame::EF. */
    static StateVector at(const Time &time, const ModelId &models = default_models())
    {
        const long ref = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Moon::at", kl_moon(models.getId(), time.id(), &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_MOON, ierr);
        return {pos, vel, Frame::EF, time};
    }
};

/** See Sun. */
class Planet {
public:
    explicit Planet(PlanetName name) : name_(name) {}

    /** In Frame::EF. */
    StateVector at(const Time &time, const ModelId &models = default_models()) const
    {
        const long planet = number(name_);
        const long ref = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        Vector pos{};
        Vector vel{};
        long ierr[1] = {0};
        throw_unless_ok("Planet::at",
                        kl_planet(models.getId(), time.id(), &planet, &ref, &days, pos.data(), vel.data(), ierr),
                        KL_ID_FUNC_PLANET, ierr);
        return {pos, vel, Frame::EF, time};
    }

private:
    PlanetName name_;
};

/** How much of the Sun a satellite sees. */
struct Eclipse {
    enum class Shadow : long { sunlight = KL_SUNLIGHT, penumbra = KL_PENUMBRA, umbra = KL_UMBRA, annular = KL_ANNULAR };
    Shadow state = Shadow::sunlight;
    double fraction = 1.0; /**< visible part of the Sun's disc */
    double depth = 0.0;    /**< -1 edge of the umbra, 0 the centre of the Sun on the limb, 1 edge of the penumbra */

    /**
     * At a state; its light time is taken for that of the Sun.
     *
     * @param margin  m by which the opaque atmosphere raises the ellipsoid
     */
    static Eclipse at(const StateVector &satellite, double margin = 0.0, const ModelId &models = default_models())
    {
        const long light_time = 1;
        const long cs = number(satellite.frame());
        const long ref = KL_TIME_TAI;
        const double days = satellite.time().processing(Scale::TAI);
        long state = 0;
        Eclipse out;
        long ierr[1] = {0};
        throw_unless_ok("Eclipse::at",
                        kl_eclipse(models.getId(), satellite.time().id(), &light_time, &cs, &ref, &days,
                                   satellite.pos().data(), &margin, &state, &out.fraction, &out.depth, ierr),
                        KL_ID_FUNC_ECLIPSE, ierr);
        out.state = static_cast<Shadow>(state);
        return out;
    }
};

} // namespace ORBKIT

#endif
