/**
 * @file state_vector.hpp
 */
#ifndef ORBKIT_STATE_VECTOR_HPP
#define ORBKIT_STATE_VECTOR_HPP

#include "position.hpp"

#include <ostream>

namespace ORBKIT {

namespace detail {

struct Body;

// Rows times a vector, and the transpose.
inline Vector along_axes(const Matrix &m, const Vector &v)
{
    return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
            m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}
inline Vector from_axes(const Matrix &m, const Vector &v)
{
    return {m[0] * v[0] + m[3] * v[1] + m[6] * v[2], m[1] * v[0] + m[4] * v[1] + m[7] * v[2],
            m[2] * v[0] + m[5] * v[1] + m[8] * v[2]};
}

// Elements of an orbit have no meaning where the axes turn.
inline void need_inertial(Frame frame, const char *operation)
{
    if (frame == Frame::EF || frame == Frame::PEF)
        throw_messages({"Keplerian elements need a frame whose axes do not turn with the Earth.", operation});
}

} // namespace detail

/** The axes that go along with a satellite: rows in the frame of the state, and their derivatives, 1/s. */
struct OrbitalAxes {
    Matrix axes{}, rates{};

    friend bool operator==(const OrbitalAxes &a, const OrbitalAxes &b)
    {
        return a.axes == b.axes && a.rates == b.rates;
    }
    friend bool operator!=(const OrbitalAxes &a, const OrbitalAxes &b) { return !(a == b); }
};

/**
 * Position and velocity (and acceleration, where it is known) in a frame of the chain: numbers, frame, instant and
 * models. A value; the models are borrowed. Without an instant it stays in its frame.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::StateVector, ORBKIT::Time;
 * const Time time("2026-06-21T08:24:00");
 * const StateVector teme({-2466543.0, 6437123.0, 1517234.0}, {-1423.1, 1214.7, -7366.2}, Frame::TEME, time);
 * const kl_geodetic place = teme.geodetic();
 * std::printf("%.4f %.4f deg, %.1f km\n", place.latitude, place.longitude, place.height / 1e3);
 * // -> 12.4859 75.4140 deg, 681.4 km
 * const ORBKIT::GroundStation bangalore(13.03, 77.51, 840.0);
 * std::printf("elevation %.1f deg\n", teme.seenFrom(bangalore).elevation); // -> elevation 68.9 deg
 * const StateVector tod = teme.in(Frame::TOD);
 * std::printf("a %.1f km\n", tod.kepler(ORBKIT::Elements::mean).semi_major_axis / 1e3); // -> a 7215.0 km
 * std::printf("%.2f deg from the node\n", tod.orbitAngle().angle); // -> 167.50 deg from the node
 * const ORBKIT::OrbitalAxes axes = tod.localFrame(ORBKIT::OrbitalFrame::LVLH);
 * std::printf("down is %.3f %.3f %.3f\n", axes.axes[6], axes.axes[7], axes.axes[8]); // -> down is 0.349 -0.912 -0.215
 * const StateVector ahead = StateVector::fromLocalFrame(tod, ORBKIT::OrbitalFrame::LVLH, {100.0, 0.0, 0.0});
 * std::printf("%.1f m ahead\n", ahead.beside(tod, ORBKIT::OrbitalFrame::LVLH).pos[0]); // -> 100.0 m ahead
 * @endcode
 */
class StateVector {
public:
    /** m, m/s. */
    StateVector(const Vector &pos, const Vector &vel, Frame frame, const std::optional<Time> &time = std::nullopt,
                Borrowed<ModelId> models = {})
        : place_(pos, frame, time, models), vel_(vel)
    {
    }
    /** m, m/s, m/s2. */
    StateVector(const Vector &pos, const Vector &vel, const Vector &acc, Frame frame,
                const std::optional<Time> &time = std::nullopt, Borrowed<ModelId> models = {})
        : place_(pos, frame, time, models), vel_(vel), acc_(acc), has_acc_(true)
    {
    }

    /** From latitude, longitude (deg), height (m) and their rates, deg/s and m/s, in Frame::EF. */
    static StateVector fromGeodetic(const kl_geodetic &place, const std::optional<Time> &time = std::nullopt,
                                    Borrowed<ModelId> models = {})
    {
        const long mode = KL_CALC_POS_VEL;
        return made("StateVector::fromGeodetic", KL_ID_FUNC_GEOD_TO_CART, Frame::EF, time, models,
                    [&](kl_model_id *model, double *pos, double *vel, long *ierr) {
                        return kl_geod_to_cart(model, &mode, &place, pos, vel, ierr);
                    });
    }

    /**
     * From Keplerian elements in an inertial frame; mean ones speak of the equator of Frame::TOD.
     *
     * @param elements  semi_major_axis (m), eccentricity, inclination, raan, arg_perigee, mean_anomaly (deg)
     * @throws KitError for Frame::EF and PEF too, whose axes turn with the Earth
     */
    static StateVector fromKepler(const kl_kepler &elements, Elements kind, Frame frame,
                                  const std::optional<Time> &time = std::nullopt, Borrowed<ModelId> models = {})
    {
        detail::need_inertial(frame, "StateVector::fromKepler");
        const long of = number(kind);
        return made("StateVector::fromKepler", KL_ID_FUNC_KEPL_TO_CART, frame, time, models,
                    [&](kl_model_id *model, double *pos, double *vel, long *ierr) {
                        return kl_kepl_to_cart(model, &of, &elements, pos, vel, ierr);
                    });
    }

    /** From ra, dec (deg), distance (m) and their rates. */
    static StateVector fromRaDec(const kl_radec &direction, Frame frame, const std::optional<Time> &time = std::nullopt,
                                 Borrowed<ModelId> models = {})
    {
        const long mode = KL_CALC_POS_VEL;
        return made("StateVector::fromRaDec", KL_ID_FUNC_RADEC_TO_CART, frame, time, models,
                    [&](kl_model_id *model, double *pos, double *vel, long *ierr) {
                        return kl_radec_to_cart(model, &mode, &direction, pos, vel, ierr);
                    });
    }

    /** From azimuth, elevation, range and their rates seen from a station, in Frame::EF. */
    static StateVector fromStation(const GroundStation &station, const kl_topocentric &seen,
                                   const std::optional<Time> &time = std::nullopt, Borrowed<ModelId> models = {})
    {
        StateVector out({}, {}, Frame::EF, time, models);
        const long mode = KL_CALC_POS_VEL;
        long ierr[1] = {0};
        throw_unless_ok("StateVector::fromStation",
                        kl_topocentric_to_ef(detail::handle(station.models()), &mode, &station.geodetic(), &seen,
                                             out.place_.pos_.data(), out.vel_.data(), ierr),
                        "The station or the direction is out of range.");
        return out;
    }

    /**
     * On a circle through angle, node and inclination, in Frame::TOD; the rates are not looked at.
     *
     * @param radius  m
     */
    static StateVector fromOrbitAngle(const kl_orbit_angle &angle, double radius,
                                      const std::optional<Time> &time = std::nullopt, Borrowed<ModelId> models = {})
    {
        kl_kepler circle{};
        circle.semi_major_axis = radius;
        circle.inclination = angle.inclination;
        circle.raan = angle.node;
        circle.mean_anomaly = angle.angle;
        return fromKepler(circle, Elements::osculating, Frame::TOD, time, models);
    }

    /**
     * From where it is beside another satellite: the frame and the instant are that one's.
     *
     * @param satellite  to which the axes belong
     * @param pos, vel   along the axes and relative to them as they turn, m, m/s
     */
    static StateVector fromLocalFrame(const StateVector &satellite, OrbitalFrame kind, const Vector &pos,
                                      const Vector &vel = {})
    {
        const OrbitalAxes a = satellite.localFrame(kind);
        StateVector out = satellite;
        out.acc_ = {};
        out.has_acc_ = false;
        const Vector offset = detail::from_axes(a.axes, pos);
        const Vector turned = detail::along_axes(a.rates, offset);
        const Vector moves = detail::from_axes(a.axes, {vel[0] - turned[0], vel[1] - turned[1], vel[2] - turned[2]});
        for (std::size_t i = 0; i < 3; ++i) {
            out.place_.pos_[i] += offset[i];
            out.vel_[i] += moves[i];
        }
        return out;
    }

    const Vector &pos() const { return place_.pos(); } /**< m */
    const Vector &vel() const { return vel_; }         /**< m/s */
    const Vector &acc() const { return acc_; }         /**< m/s2; zero where it is not known */
    bool hasAcceleration() const { return has_acc_; }
    Frame frame() const { return place_.frame(); }
    bool hasTime() const { return place_.hasTime(); }
    /** @throws KitError without one */
    const Time &time() const { return place_.time(); }
    const ModelId &models() const { return place_.models(); }
    const Position &position() const { return place_; }

    /** The same state in another frame of the chain. NaN goes through. */
    StateVector in(Frame frame) const
    {
        StateVector out = *this;
        if (frame != this->frame())
            out.place_.change("StateVector::in", has_acc_ ? KL_CALC_POS_VEL_ACC : KL_CALC_POS_VEL, frame, vel_.data(),
                              acc_.data(), out.vel_.data(), out.acc_.data());
        return out;
    }

    /** Latitude, longitude (deg), height (m) above the ellipsoid, and latitude_rate and so on; by way of Frame::EF. */
    kl_geodetic geodetic() const
    {
        const StateVector fixed = in(Frame::EF);
        const long mode = KL_CALC_POS_VEL;
        kl_geodetic out{};
        long ierr[1] = {0};
        throw_unless_ok(
            "StateVector::geodetic",
            kl_cart_to_geod(detail::handle(models()), &mode, fixed.pos().data(), fixed.vel_.data(), &out, ierr),
            KL_ID_FUNC_CART_TO_GEOD, ierr);
        return out;
    }

    /**
     * Keplerian elements of the state as it stands: Frame::TOD for mean ones. semi_major_axis (m), eccentricity,
     * inclination, raan, arg_perigee, mean_anomaly (deg).
     *
     * @throws KitError for Frame::EF and PEF too, whose axes turn with the Earth: in(Frame::TOD).kepler()
     */
    kl_kepler kepler(Elements kind = Elements::osculating) const
    {
        detail::need_inertial(frame(), "StateVector::kepler");
        const long of = number(kind);
        kl_kepler out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::kepler",
                        kl_cart_to_kepl(detail::handle(models()), &of, pos().data(), vel_.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_KEPL, ierr);
        return out;
    }

    /** ra, dec (deg), distance (m), and ra_rate and so on, in the frame of the state. */
    kl_radec raDec() const
    {
        const long mode = KL_CALC_POS_VEL;
        kl_radec out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::raDec",
                        kl_cart_to_radec(detail::handle(models()), &mode, pos().data(), vel_.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_RADEC, ierr);
        return out;
    }

    /** Azimuth, elevation (deg) and range (m) seen from a station, and azimuth_rate and so on; no refraction. */
    kl_topocentric seenFrom(const GroundStation &station) const
    {
        const StateVector fixed = in(Frame::EF);
        return station.sees(fixed.pos(), fixed.vel_);
    }

    /** Angle on the orbit from the ascending node, its rate, node and inclination, of the true equator of date, deg. */
    kl_orbit_angle orbitAngle() const
    {
        const long mode = KL_CALC_POS_VEL;
        const long cs = number(frame());
        const long ref = KL_TIME_TAI;
        const double days = time().taiDays();
        kl_orbit_angle out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::orbitAngle",
                        kl_position_on_orbit(detail::handle(models()), time().id(), &mode, &cs, &ref, &days,
                                             pos().data(), vel_.data(), has_acc_ ? acc_.data() : nullptr, &out, ierr),
                        KL_ID_FUNC_POSITION_ON_ORBIT, ierr);
        return out;
    }

    /**
     * Axes that go along with the satellite, in the frame of the state. In one whose axes turn with the Earth they are
     * those of the path over the ground, not of the orbit.
     */
    OrbitalAxes localFrame(OrbitalFrame kind) const
    {
        const long of = number(kind);
        OrbitalAxes out;
        if (kl_local_orbital_frame(&of, pos().data(), vel_.data(), has_acc_ ? acc_.data() : nullptr, out.axes.data(),
                                   out.rates.data(), nullptr)
            == KL_ERR)
            throw_messages({"A state without angular momentum has no frame.", "StateVector::localFrame"});
        return out;
    }

    /**
     * Where it is beside another satellite, along that one's axes and relative to them as they turn: m, m/s.
     *
     * @throws KitError when the two are in different frames or at different instants
     */
    State beside(const StateVector &satellite, OrbitalFrame kind) const
    {
        if (frame() != satellite.frame())
            throw_messages({"The two states must be in one frame.", "StateVector::beside"});
        if (hasTime() && satellite.hasTime() && time() != satellite.time())
            throw_messages({"The two states must be at one instant.", "StateVector::beside"});
        const OrbitalAxes a = satellite.localFrame(kind);
        Vector p, v;
        for (std::size_t i = 0; i < 3; ++i) {
            p[i] = pos()[i] - satellite.pos()[i];
            v[i] = vel()[i] - satellite.vel()[i];
        }
        const Vector moves = detail::along_axes(a.axes, v);
        const Vector turned = detail::along_axes(a.rates, p);
        return {detail::along_axes(a.axes, p), {moves[0] + turned[0], moves[1] + turned[1], moves[2] + turned[2]}, {}};
    }

    /** The same numbers; the models are not compared. */
    friend bool operator==(const StateVector &a, const StateVector &b)
    {
        return a.place_ == b.place_ && a.vel_ == b.vel_ && a.acc_ == b.acc_ && a.has_acc_ == b.has_acc_;
    }
    friend bool operator!=(const StateVector &a, const StateVector &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const StateVector &s)
    {
        return out << s.place_ << " [" << s.vel_[0] << ' ' << s.vel_[1] << ' ' << s.vel_[2] << "] m/s";
    }

private:
    friend struct detail::Body;

    // What a call of C makes of it: position, velocity and error vector are the call's to fill.
    template <class Call>
    static StateVector made(const char *operation, long public_id, Frame frame, const std::optional<Time> &time,
                            Borrowed<ModelId> models, Call call)
    {
        StateVector out({}, {}, frame, time, models);
        long ierr[1] = {0};
        throw_unless_ok(operation, call(detail::handle(out.models()), out.place_.pos_.data(), out.vel_.data(), ierr),
                        public_id, ierr);
        return out;
    }

    Position place_;
    Vector vel_, acc_{};
    bool has_acc_ = false;
};

} // namespace ORBKIT

#endif
