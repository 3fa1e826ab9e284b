/**
 * @file cuc.hpp
 */
#ifndef ORBKIT_CUC_HPP
#define ORBKIT_CUC_HPP

#include "time.hpp"

#include <cstddef>
#include <ostream>

namespace ORBKIT {

/**
 * CCSDS unsegmented time codes of one layout. They go by way of TAI, so that leap seconds since their epoch count.
 *
 * The layout, kl_cuc_config, in this order: cuc_type (KL_CUC_TIME_FIELD_ONLY, KL_CUC_WITH_P_FIELD), epoch_type
 * (KL_CUC_EPOCH_1958, KL_CUC_EPOCH_1980, KL_CUC_EPOCH_USER), scale and MJD2000 of an epoch of one's own, n_coarse,
 * n_fine. A wrong one is refused where it is used.
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
 * std::vector<unsigned char> stream; // codes one after the other
 * for (int i = 0; i < 3; ++i) {
 *     const ORBKIT::CucTime next = codes.encode(time + std::chrono::seconds(i));
 *     stream.insert(stream.end(), next.data(), next.data() + codes.length());
 * }
 * for (std::size_t at = 0; at < stream.size(); at += codes.length())
 *     std::printf("%s\n", codes.decode(&stream[at]).text(ORBKIT::TextFormat::ascii_21).c_str());
 * // -> 20260621_082437
 * // -> 20260621_082438
 * // -> 20260621_082439
 * @endcode
 */
class Cuc {
public:
    explicit Cuc(const kl_cuc_config &config) : config_(config) {}

    const kl_cuc_config &config() const { return config_; }
    /** Octets of a code, its P-field with them: 1 octet, 2 beyond 4 coarse or 3 fine ones. */
    std::size_t length() const
    {
        const bool two = config_.n_coarse > 4 || config_.n_fine > 3;
        const long p_field = config_.cuc_type == KL_CUC_WITH_P_FIELD ? (two ? 2 : 1) : 0;
        return static_cast<std::size_t>(p_field + config_.n_coarse + config_.n_fine);
    }
    /** The first length() octets are read; the instant is told in TAI. @throws KitError when they are no such code */
    Time decode(const CucTime &octets, Borrowed<TimeCorrelation> correlation = {}) const
    {
        return Time::fromCuc(octets, config_, correlation);
    }
    Time decode(const unsigned char *octets, Borrowed<TimeCorrelation> correlation = {}) const
    {
        return Time::fromCuc(octets, config_, correlation);
    }
    /** In the first length() octets; the others are 0. */
    CucTime encode(const Time &time) const { return time.cuc(config_); }

    friend bool operator==(const Cuc &a, const Cuc &b)
    {
        const kl_cuc_config &x = a.config_;
        const kl_cuc_config &y = b.config_;
        const bool same_epoch =
            x.epoch_type != KL_CUC_EPOCH_USER || (x.epoch_time_ref == y.epoch_time_ref && x.epoch == y.epoch);
        return x.cuc_type == y.cuc_type && x.epoch_type == y.epoch_type && same_epoch && x.n_coarse == y.n_coarse
               && x.n_fine == y.n_fine;
    }
    friend bool operator!=(const Cuc &a, const Cuc &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Cuc &cuc)
    {
        return out << "CUC of " << cuc.config_.n_coarse << " and " << cuc.config_.n_fine << " octets";
    }

private:
    kl_cuc_config config_;
};

} // namespace ORBKIT

#endif
