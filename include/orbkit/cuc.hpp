/**
 * @file cuc.hpp
 */
#ifndef ORBKIT_CUC_HPP
#define ORBKIT_CUC_HPP

#include "time.hpp"

namespace ORBKIT {

/**
 * CCSDS unsegmented time codes of one layout. They go by way of TAI, so that leap seconds since their epoch count.
 *
 * @code{.cpp}
 * // Four octets of seconds since 1958 and three of their fraction.
 * const ORBKIT::Cuc codes({KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 3});
 * const ORBKIT::Time time("2026-06-21T08:24:00");
 * const ORBKIT::CucTime octets = codes.encode(time);
 * std::printf("%02x%02x%02x%02x %02x%02x%02x\n", octets[0], octets[1], octets[2], octets[3], octets[4], octets[5],
 *             octets[6]); // -> 80c9fe45 000001
 * std::printf("%d %s\n", codes.decode(octets) == time, codes.decode(octets).in(ORBKIT::Scale::UTC).text().c_str());
 * // -> 1 2026-06-21T08:24:00.000000
 * @endcode
 */
class Cuc {
public:
    explicit Cuc(const kl_cuc_config &config) : config_(config) {}

    const kl_cuc_config &config() const { return config_; }
    Time decode(const CucTime &octets, Borrowed<TimeCorrelation> correlation = {}) const
    {
        return Time::fromCuc(octets, config_, correlation);
    }
    CucTime encode(const Time &time) const { return time.cuc(config_); }

private:
    kl_cuc_config config_;
};

} // namespace ORBKIT

#endif
