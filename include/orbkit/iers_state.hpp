/**
 * @file iers_state.hpp
 */
#ifndef ORBKIT_IERS_STATE_HPP
#define ORBKIT_IERS_STATE_HPP

#include "time.hpp"

#include <ostream>

namespace ORBKIT {

/**
 * A state in a frame of the IERS Conventions, for precise orbits. A type of its own: a state in GCRS cannot be handed
 * where GM2000 is meant.
 *
 * @code{.cpp}
 * using ORBKIT::IersFrame, ORBKIT::IersState;
 * const ORBKIT::Time time("2020-05-06T12:00:00");
 * const IersState itrs({-2700000.0, -4300000.0, 3850000.0}, {0.0, 0.0, 0.0}, IersFrame::ITRS, time);
 * const IersState gcrs = itrs.in(IersFrame::GCRS);
 * std::printf("%.1f m/s\n", std::hypot(gcrs.vel()[0], gcrs.vel()[1])); // -> 370.2 m/s
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

    /** The same state in another frame of the conventions. NaN goes through. */
    IersState in(IersFrame frame, EopCorrections corrections = EopCorrections::all) const
    {
        IersState out({}, {}, frame, time_);
        const long mode = KL_CALC_POS_VEL;
        const long what = number(corrections);
        const long from = number(frame_);
        const long to = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time_.taiDays();
        Vector acc;
        long ierr[1] = {0};
        throw_unless_ok("IersState::in",
                        kl_iers_change(time_.id(), &what, &mode, &from, &to, &ref, &days, pos_.data(), vel_.data(),
                                       nullptr, out.pos_.data(), out.vel_.data(), acc.data(), ierr),
                        "The state or its instant is out of range.");
        return out;
    }

    friend bool operator==(const IersState &a, const IersState &b)
    {
        return a.pos_ == b.pos_ && a.vel_ == b.vel_ && a.frame_ == b.frame_ && a.time_ == b.time_;
    }
    friend bool operator!=(const IersState &a, const IersState &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const IersState &s)
    {
        return out << s.time_ << ' ' << name(s.frame_) << " [" << s.pos_[0] << ' ' << s.pos_[1] << ' ' << s.pos_[2]
                   << "] m [" << s.vel_[0] << ' ' << s.vel_[1] << ' ' << s.vel_[2] << "] m/s";
    }

private:
    Vector pos_, vel_;
    IersFrame frame_;
    Time time_;
};

} // namespace ORBKIT

#endif
