/**
 * @file position.hpp
 */
#ifndef ORBKIT_POSITION_HPP
#define ORBKIT_POSITION_HPP

#include "ground_station.hpp"
#include "time.hpp"

#include <optional>
#include <ostream>

namespace ORBKIT {

// With a sanitizer g++ 12 does not see that an instant which is not there is not read.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

/**
 * A position in a frame of the chain: numbers, frame, instant and models. A value; the models are borrowed.
 *
 * Without an instant it stays in its frame: another one is a KitError.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::Position, ORBKIT::Time;
 * const Position point({-2466543.0, 6437123.0, 1517234.0}, Frame::TEME, Time("2026-06-21T08:24:00"));
 * const kl_geodetic place = point.geodetic(); // by way of Frame::EF
 * std::printf("%.4f %.4f deg, %.1f km\n", place.latitude, place.longitude, place.height / 1e3);
 * // -> 12.4859 75.4140 deg, 681.4 km
 * std::printf("%.3f deg\n", point.in(Frame::GM2000).raDec().ra); // -> 110.596 deg
 * try {
 *     Position({7e6, 0.0, 0.0}, Frame::EF).in(Frame::TOD);
 * } catch (const KitError &error) {
 *     std::printf("%s\n", error.getMsg().front().c_str()); // -> A change of frame needs an instant.
 * }
 * @endcode
 */
class Position {
public:
    /** m. */
    Position(const Vector &pos, Frame frame, const std::optional<Time> &time = std::nullopt,
             Borrowed<ModelId> models = {})
        : pos_(pos), models_(models), frame_(frame), has_time_(time.has_value())
    {
        if (has_time_)
            time_ = *time;
    }

    /** From latitude, longitude (deg) and height (m) above the ellipsoid, in Frame::EF. */
    static Position fromGeodetic(const kl_geodetic &place, const std::optional<Time> &time = std::nullopt,
                                 Borrowed<ModelId> models = {})
    {
        Position out({}, Frame::EF, time, models);
        const long mode = KL_CALC_POS;
        long ierr[1] = {0};
        throw_unless_ok("Position::fromGeodetic",
                        kl_geod_to_cart(detail::handle(out.models()), &mode, &place, out.pos_.data(), nullptr, ierr),
                        KL_ID_FUNC_GEOD_TO_CART, ierr);
        return out;
    }

    /** From ra, dec (deg) and distance (m). */
    static Position fromRaDec(const kl_radec &direction, Frame frame, const std::optional<Time> &time = std::nullopt,
                              Borrowed<ModelId> models = {})
    {
        Position out({}, frame, time, models);
        const long mode = KL_CALC_POS;
        long ierr[1] = {0};
        throw_unless_ok(
            "Position::fromRaDec",
            kl_radec_to_cart(detail::handle(out.models()), &mode, &direction, out.pos_.data(), nullptr, ierr),
            KL_ID_FUNC_RADEC_TO_CART, ierr);
        return out;
    }

    const Vector &pos() const { return pos_; } /**< m */
    Frame frame() const { return frame_; }
    bool hasTime() const { return has_time_; }
    /** @throws KitError without one */
    const Time &time() const
    {
        if (!has_time_)
            throw_messages({"There is no instant.", "Position::time"});
        return time_;
    }
    const ModelId &models() const { return models_ != nullptr ? *models_ : default_models(); }

    /** The same point in another frame of the chain. NaN goes through. */
    Position in(Frame frame) const
    {
        Position out = *this;
        if (frame != frame_)
            out.change("Position::in", KL_CALC_POS, frame, nullptr, nullptr, nullptr, nullptr);
        return out;
    }

    /** Latitude, longitude (deg) and height (m) above the ellipsoid; by way of Frame::EF. */
    kl_geodetic geodetic() const
    {
        const Position fixed = in(Frame::EF);
        const long mode = KL_CALC_POS;
        kl_geodetic out{};
        long ierr[1] = {0};
        throw_unless_ok("Position::geodetic",
                        kl_cart_to_geod(detail::handle(models()), &mode, fixed.pos_.data(), nullptr, &out, ierr),
                        KL_ID_FUNC_CART_TO_GEOD, ierr);
        return out;
    }

    /** ra, dec (deg) and distance (m) in the frame of the position. */
    kl_radec raDec() const
    {
        const long mode = KL_CALC_POS;
        kl_radec out{};
        long ierr[1] = {0};
        throw_unless_ok("Position::raDec",
                        kl_cart_to_radec(detail::handle(models()), &mode, pos_.data(), nullptr, &out, ierr),
                        KL_ID_FUNC_CART_TO_RADEC, ierr);
        return out;
    }

    /** Azimuth, elevation and range seen from a station; rates as if the point stood still on the Earth. */
    kl_topocentric seenFrom(const GroundStation &station) const { return station.sees(in(Frame::EF).pos_, {}); }

    /** The same numbers; the models are not compared. */
    friend bool operator==(const Position &a, const Position &b)
    {
        return a.pos_ == b.pos_ && a.frame_ == b.frame_ && a.has_time_ == b.has_time_
               && (!a.has_time_ || a.time_ == b.time_);
    }
    friend bool operator!=(const Position &a, const Position &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Position &p)
    {
        if (p.has_time_)
            out << p.time_ << ' ';
        return out << name(p.frame_) << " [" << p.pos_[0] << ' ' << p.pos_[1] << ' ' << p.pos_[2] << "] m";
    }

private:
    friend class StateVector;

    // To another frame, with what goes along.
    void change(const char *operation, long mode, Frame to, const double *vel, const double *acc, double *vel_out,
                double *acc_out)
    {
        if (!has_time_)
            throw_messages({"A change of frame needs an instant.", operation});
        constexpr Vector kZero{};
        Vector pos_out{}, unused{};
        const long from = number(frame_);
        const long target = number(to);
        const long ref = KL_TIME_TAI;
        const double days = time_.taiDays();
        long ierr[1] = {0};
        throw_unless_ok(operation,
                        kl_change_cart_cs(detail::handle(models()), time_.id(), &mode, &from, &target, &ref, &days,
                                          pos_.data(), vel != nullptr ? vel : kZero.data(),
                                          acc != nullptr ? acc : kZero.data(), pos_out.data(),
                                          vel_out != nullptr ? vel_out : unused.data(),
                                          acc_out != nullptr ? acc_out : unused.data(), ierr),
                        KL_ID_FUNC_CHANGE_CART_CS, ierr);
        pos_ = pos_out;
        frame_ = to;
    }

    Vector pos_;
    Time time_; // where there is one
    const ModelId *models_;
    Frame frame_;
    bool has_time_;
};

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

} // namespace ORBKIT

#endif
