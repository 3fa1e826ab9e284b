/**
 * @file eclipse.hpp
 */
#ifndef ORBKIT_ECLIPSE_HPP
#define ORBKIT_ECLIPSE_HPP

#include "state_vector.hpp"

namespace ORBKIT {

/**
 * How much of the Sun a satellite sees past the Earth.
 *
 * @code{.cpp}
 * using ORBKIT::Eclipse, ORBKIT::Frame;
 * const ORBKIT::Time noon("2026-06-21T12:00:00");
 * const Eclipse day = Eclipse::at(ORBKIT::Position({0.0, 7e6, 0.0}, Frame::EF, noon));
 * const Eclipse night = Eclipse::at(ORBKIT::Position({-7e6, 0.0, 0.0}, Frame::EF, noon));
 * std::printf("%.0f %.0f %d\n", day.fraction, night.fraction, night.state == Eclipse::Shadow::umbra); // -> 1 0 1
 * @endcode
 */
struct Eclipse {
    enum class Shadow : long { sunlight = KL_SUNLIGHT, penumbra = KL_PENUMBRA, umbra = KL_UMBRA, annular = KL_ANNULAR };
    Shadow state = Shadow::sunlight;
    double fraction = 1.0; /**< visible part of the Sun's disc */
    double depth = 0.0;    /**< -1 edge of the umbra, 0 the centre of the Sun on the limb, 1 edge of the penumbra */

    /**
     * At a position; the Sun is where its light shows it.
     *
     * @param margin  m by which the opaque atmosphere raises the ellipsoid
     */
    static Eclipse at(const Position &satellite, double margin = 0.0)
    {
        const long light_time = 1;
        const long cs = number(satellite.frame());
        const long ref = KL_TIME_TAI;
        const double days = satellite.time().taiDays();
        long state = 0;
        Eclipse out;
        long ierr[1] = {0};
        throw_unless_ok("Eclipse::at",
                        kl_eclipse(detail::handle(satellite.models()), satellite.time().id(), &light_time, &cs, &ref,
                                   &days, satellite.pos().data(), &margin, &state, &out.fraction, &out.depth, ierr),
                        KL_ID_FUNC_ECLIPSE, ierr);
        out.state = static_cast<Shadow>(state);
        return out;
    }
    static Eclipse at(const StateVector &satellite, double margin = 0.0) { return at(satellite.position(), margin); }

    friend bool operator==(const Eclipse &a, const Eclipse &b)
    {
        return a.state == b.state && a.fraction == b.fraction && a.depth == b.depth;
    }
    friend bool operator!=(const Eclipse &a, const Eclipse &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Eclipse &eclipse)
    {
        const char *const name = eclipse.state == Shadow::sunlight   ? "sunlight"
                                 : eclipse.state == Shadow::penumbra ? "penumbra"
                                 : eclipse.state == Shadow::umbra    ? "umbra"
                                                                     : "annular eclipse";
        return out << name << ", " << eclipse.fraction << " of the Sun";
    }
};

} // namespace ORBKIT

#endif
