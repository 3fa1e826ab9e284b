/**
 * @file state_vector.hpp
 */
#ifndef ORBKIT_STATE_VECTOR_HPP
#define ORBKIT_STATE_VECTOR_HPP

#include "ground_station.hpp"
#include "model_id.hpp"
#include "time.hpp"

#include <ostream>

namespace ORBKIT {

/** The axes that go along with a satellite: rows in the frame of the state, and their derivatives, 1/s. */
struct OrbitalAxes {
    Matrix axes{}, rates{};
};

/**
 * Position and velocity (and acceleration, where it is known) at an instant in a frame of the chain. A value: numbers,
 * frame, instant. Positions alone are states at rest in their frame.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::StateVector, ORBKIT::Time;
 * const Time time("2026-06-21T08:24:00");
 * const StateVector teme({-2466543.0, 6437123.0, 1517234.0}, {-1423.1, 1214.7, -7366.2}, Frame::TEME, time);
 * const ORBKIT::StateVector fixed = teme.in(Frame::EF);
 * const kl_geodetic place = fixed.geodetic();
 * std::printf("%.4f %.4f deg, %.1f km\n", place.latitude, place.longitude, place.height / 1e3);
 * // -> 12.4859 75.4140 deg, 681.4 km
 * const ORBKIT::GroundStation bangalore(13.03, 77.51, 840.0);
 * std::printf("elevation %.1f deg\n", teme.seenFrom(bangalore).elevation); // -> elevation 68.9 deg
 * std::printf("a %.1f km\n", teme.in(Frame::TOD).kepler().semi_major_axis / 1e3); // -> a 7223.6 km
 * @endcode
 */
class StateVector {
public:
    StateVector(const Vector &pos, const Vector &vel, Frame frame, const Time &time)
        : pos_(pos), vel_(vel), frame_(frame), time_(time)
    {
    }
    StateVector(const Vector &pos, const Vector &vel, const Vector &acc, Frame frame, const Time &time)
        : pos_(pos), vel_(vel), acc_(acc), has_acc_(true), frame_(frame), time_(time)
    {
    }

    /** From geodetic coordinates, in Frame::EF. */
    static StateVector fromGeodetic(const kl_geodetic &place, const Time &time,
                                    const ModelId &models = default_models())
    {
        StateVector out({}, {}, Frame::EF, time);
        const long mode = KL_CALC_POS_VEL;
        long ierr[1] = {0};
        throw_unless_ok("StateVector::fromGeodetic",
                        kl_geod_to_cart(models.getId(), &mode, &place, out.pos_.data(), out.vel_.data(), ierr),
                        KL_ID_FUNC_GEOD_TO_CART, ierr);
        return out;
    }

    /** From Keplerian elements in an inertial frame; mean ones speak of the equator of Frame::TOD. */
    static StateVector fromKepler(const kl_kepler &elements, Elements kind, Frame frame, const Time &time,
                                  const ModelId &models = default_models())
    {
        StateVector out({}, {}, frame, time);
        const long of = number(kind);
        long ierr[1] = {0};
        throw_unless_ok("StateVector::fromKepler",
                        kl_kepl_to_cart(models.getId(), &of, &elements, out.pos_.data(), out.vel_.data(), ierr),
                        KL_ID_FUNC_KEPL_TO_CART, ierr);
        return out;
    }

    /** From right ascension, declination and distance. */
    static StateVector fromRaDec(const kl_radec &direction, Frame frame, const Time &time,
                                 const ModelId &models = default_models())
    {
        StateVector out({}, {}, frame, time);
        const long mode = KL_CALC_POS_VEL;
        long ierr[1] = {0};
        throw_unless_ok("StateVector::fromRaDec",
                        kl_radec_to_cart(models.getId(), &mode, &direction, out.pos_.data(), out.vel_.data(), ierr),
                        KL_ID_FUNC_RADEC_TO_CART, ierr);
        return out;
    }

    const Vector &pos() const { return pos_; } /**< m */
    const Vector &vel() const { return vel_; } /**< m/s */
    const Vector &acc() const { return acc_; } /**< m/s2; zero where it is not known */
    bool hasAcceleration() const { return has_acc_; }
    Frame frame() const { return frame_; }
    const Time &time() const { return time_; }

    /** The same state in another frame of the chain. */
    StateVector in(Frame frame, const ModelId &models = default_models()) const
    {
        if (frame == frame_)
            return *this;
        StateVector out = *this;
        out.frame_ = frame;
        const long mode = has_acc_ ? KL_CALC_POS_VEL_ACC : KL_CALC_POS_VEL;
        const long from = number(frame_);
        const long to = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time_.processing(Scale::TAI);
        long ierr[1] = {0};
        throw_unless_ok("StateVector::in",
                        kl_change_cart_cs(models.getId(), time_.id(), &mode, &from, &to, &ref, &days, pos_.data(),
                                          vel_.data(), acc_.data(), out.pos_.data(), out.vel_.data(), out.acc_.data(),
                                          ierr),
                        KL_ID_FUNC_CHANGE_CART_CS, ierr);
        return out;
    }

    /** Geodetic coordinates with rates; by way of Frame::EF. */
    kl_geodetic geodetic(const ModelId &models = default_models()) const
    {
        const StateVector fixed = in(Frame::EF, models);
        const long mode = KL_CALC_POS_VEL;
        kl_geodetic out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::geodetic",
                        kl_cart_to_geod(models.getId(), &mode, fixed.pos_.data(), fixed.vel_.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_GEOD, ierr);
        return out;
    }

    /** Keplerian elements of the state as it stands: its frame must be inertial, Frame::TOD for mean ones. */
    kl_kepler kepler(Elements kind = Elements::osculating, const ModelId &models = default_models()) const
    {
        const long of = number(kind);
        kl_kepler out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::kepler",
                        kl_cart_to_kepl(models.getId(), &of, pos_.data(), vel_.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_KEPL, ierr);
        return out;
    }

    /** Right ascension, declination, distance and their rates, in the frame of the state. */
    kl_radec raDec(const ModelId &models = default_models()) const
    {
        const long mode = KL_CALC_POS_VEL;
        kl_radec out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::raDec",
                        kl_cart_to_radec(models.getId(), &mode, pos_.data(), vel_.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_RADEC, ierr);
        return out;
    }

    /** Azimuth, elevation and range seen from a station. */
    kl_topocentric seenFrom(const GroundStation &station, const ModelId &models = default_models()) const
    {
        const StateVector fixed = in(Frame::EF, models);
        return station.sees(fixed.pos_, fixed.vel_, models);
    }

    /** Angle on the orbit from the ascending node, with node and inclination of date. */
    kl_orbit_angle orbitAngle(const ModelId &models = default_models()) const
    {
        const long mode = KL_CALC_POS_VEL;
        const long cs = number(frame_);
        const long ref = KL_TIME_TAI;
        const double days = time_.processing(Scale::TAI);
        kl_orbit_angle out{};
        long ierr[1] = {0};
        throw_unless_ok("StateVector::orbitAngle",
                        kl_position_on_orbit(models.getId(), time_.id(), &mode, &cs, &ref, &days, pos_.data(),
                                             vel_.data(), has_acc_ ? acc_.data() : nullptr, &out, ierr),
                        KL_ID_FUNC_POSITION_ON_ORBIT, ierr);
        return out;
    }

    /** Axes that go along with the satellite, in the (inertial) frame of the state. */
    OrbitalAxes localFrame(OrbitalFrame kind) const
    {
        const long of = number(kind);
        OrbitalAxes out;
        long ierr[1] = {0};
        throw_unless_ok("StateVector::localFrame",
                        kl_local_orbital_frame(&of, pos_.data(), vel_.data(), has_acc_ ? acc_.data() : nullptr,
                                               out.axes.data(), out.rates.data(), ierr),
                        KL_ID_FUNC_POSITION_ON_ORBIT, ierr);
        return out;
    }

    friend bool operator==(const StateVector &a, const StateVector &b)
    {
        return a.pos_ == b.pos_ && a.vel_ == b.vel_ && a.acc_ == b.acc_ && a.frame_ == b.frame_ && a.time_ == b.time_;
    }
    friend bool operator!=(const StateVector &a, const StateVector &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const StateVector &s)
    {
        return out << s.time_ << " [" << s.pos_[0] << ' ' << s.pos_[1] << ' ' << s.pos_[2] << "] m [" << s.vel_[0]
                   << ' ' << s.vel_[1] << ' ' << s.vel_[2] << "] m/s";
    }

private:
    Vector pos_, vel_, acc_{};
    bool has_acc_ = false;
    Frame frame_;
    Time time_;
};

/**
 * A state in a frame of the IERS Conventions, for precise orbits. A type of its own: a state in GCRS cannot be handed
 * where GM2000 is meant.
 *
 * @code{.cpp}
 * using ORBKIT::IersFrame, ORBKIT::IersState, ORBKIT::Time;
 * const IersState itrf({-2700000.0, -4300000.0, 3850000.0}, {0.0, 0.0, 0.0}, IersFrame::ITRS,
 * Time("2020-05-06T12:00:00")); const IersState gcrs = itrf.in(IersFrame::GCRS); std::printf("%.1f m/s\n",
 * std::hypot(gcrs.vel()[0], gcrs.vel()[1])); // -> 370.2 m/s
 * @endcode
 */
class IersState {
public:
    IersState(const Vector &pos, const Vector &vel, IersFrame frame, const Time &time)
        : pos_(pos), vel_(vel), frame_(frame), time_(time)
    {
    }

    const Vector &pos() const { return pos_; } /**< m */
    const Vector &vel() const { return vel_; } /**< m/s */
    IersFrame frame() const { return frame_; }
    const Time &time() const { return time_; }

    /** The same state in another frame of the conventions. */
    IersState in(IersFrame frame, EopCorrections corrections = EopCorrections::all) const
    {
        IersState out = *this;
        out.frame_ = frame;
        const long mode = KL_CALC_POS_VEL;
        const long what = number(corrections);
        const long from = number(frame_);
        const long to = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time_.processing(Scale::TAI);
        Vector acc{};
        long ierr[1] = {0};
        throw_unless_ok("IersState::in",
                        kl_iers_change(time_.id(), &what, &mode, &from, &to, &ref, &days, pos_.data(), vel_.data(),
                                       nullptr, out.pos_.data(), out.vel_.data(), acc.data(), ierr),
                        KL_ID_FUNC_CHANGE_CART_CS, ierr);
        return out;
    }

private:
    Vector pos_, vel_;
    IersFrame frame_;
    Time time_;
};

} // namespace ORBKIT

#endif
