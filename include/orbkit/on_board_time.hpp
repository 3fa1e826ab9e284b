/**
 * @file on_board_time.hpp
 */
#ifndef ORBKIT_ON_BOARD_TIME_HPP
#define ORBKIT_ON_BOARD_TIME_HPP

#include "time.hpp"

#include <ostream>
#include <tuple>

namespace ORBKIT {

namespace detail {

inline auto parts(const kl_obt_param_tarvos &p)
{
    return std::tie(p.sat_id, p.ref_time, p.ref_coarse, p.ref_fine, p.clock_step);
}
inline auto parts(const kl_obt_param_kelda &p)
{
    return std::tie(p.sat_id, p.ref_time, p.ref_time_fraction, p.ref_obt, p.ref_obt_fraction, p.gain, p.offset);
}
inline auto parts(const kl_obt_param_brisa &p)
{
    return std::tie(p.sat_id, p.offset, p.ref_coarse, p.ref_fine, p.week, p.seconds_of_week, p.fraction);
}
inline auto parts(const kl_obt_param_vardo &p)
{
    return std::tie(p.sat_id, p.offset);
}

} // namespace detail

/**
 * The clock of a satellite. The type of its parameters, kl_obt_param_*, chooses the format, and with it the record of a
 * count: kl_obt_param_tarvos for satellite 21, kl_obt_param_vardo for 51, kl_obt_param_kelda for 61, kl_obt_param_brisa
 * for 71; what is in them stands at kl_time_obt_to_time.
 *
 * @code{.cpp}
 * // Satellite 51 counts seconds since 1980-01-06, with an offset of none.
 * const ORBKIT::OnBoardTime clock(kl_obt_param_vardo{51, 0}, ORBKIT::Scale::GPS);
 * const ORBKIT::Time time = clock.time({51, 1400000000, 32768});
 * std::printf("%s\n", time.text().c_str()); // -> 2024-05-17T16:53:20.500000
 * std::printf("%lu %lu\n", clock.count(time).coarse, clock.count(time).fine); // -> 1400000000 32768
 * @endcode
 */
template <class Parameters>
class OnBoardTime {
public:
    using Count = OnBoardCount<Parameters>;

    /** @param scale  that of the parameters */
    OnBoardTime(const Parameters &parameters, Scale scale) : parameters_(parameters), scale_(scale) {}

    const Parameters &parameters() const { return parameters_; }
    Scale scale() const { return scale_; }
    /** The instant of a count, told in the scale of the clock. */
    Time time(const Count &count, Borrowed<TimeCorrelation> correlation = {}) const
    {
        return Time::fromOnBoard(count, parameters_, scale_, correlation);
    }
    Count count(const Time &time) const { return time.onBoard(parameters_, scale_); }

    friend bool operator==(const OnBoardTime &a, const OnBoardTime &b)
    {
        return detail::parts(a.parameters_) == detail::parts(b.parameters_) && a.scale_ == b.scale_;
    }
    friend bool operator!=(const OnBoardTime &a, const OnBoardTime &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const OnBoardTime &clock)
    {
        return out << "clock of satellite " << clock.parameters_.sat_id;
    }

private:
    Parameters parameters_;
    Scale scale_;
};

} // namespace ORBKIT

#endif
