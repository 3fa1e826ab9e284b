/**
 * @file clocks.hpp
 */
#ifndef ORBKIT_CLOCKS_HPP
#define ORBKIT_CLOCKS_HPP

#include "time.hpp"

namespace ORBKIT {

/**
 * CCSDS unsegmented time codes of one layout.
 *
 * Codes are decoded by way of TAI, so that leap seconds since their epoch count.
 *
 * @code{.cpp}
 * const ORBKIT::Cuc codes({KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 3});
 * const ORBKIT::Time time("2026-06-21T08:24:00");
 * std::printf("%d\n", codes.decode(codes.encode(time)) == time); // -> 1
 * @endcode
 */
class Cuc {
public:
    explicit Cuc(const kl_cuc_config &config) : config_(config) {}

    Time decode(const CucTime &octets, const TimeCorrelation &correlation = built_in_correlation()) const
    {
        const long tai = KL_TIME_TAI;
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("Cuc::decode",
                        kl_time_cuc_to_processing(correlation.getId(), &config_, &tai, octets.data(), &days, ierr),
                        KL_ID_FUNC_TIME_CUC_TO_PROCESSING, ierr);
        return Time::fromProcessing(days, Scale::TAI, correlation);
    }

    CucTime encode(const Time &time) const
    {
        const long tai = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        CucTime octets{};
        long ierr[1] = {0};
        throw_unless_ok("Cuc::encode", kl_time_processing_to_cuc(time.id(), &config_, &tai, &days, octets.data(), ierr),
                        KL_ID_FUNC_TIME_PROCESSING_TO_CUC, ierr);
        return octets;
    }

private:
    kl_cuc_config config_;
};

/**
 * The clock of a satellite with its parameter record: Parameters and Count are the records of kl_time_obt_to_time.
 *
 * @code{.cpp}
 * // Satellite 51 counts seconds since 1980-01-06, with an offset.
 * const ORBKIT::OnBoardClock<kl_obt_param_vardo, kl_obt_vardo> clock(51, {51, 0}, ORBKIT::Scale::GPS);
 * const kl_obt_vardo count = {51, 1400000000, 32768};
 * std::printf("%s\n", clock.time(count).text(ORBKIT::TextFormat::iso, ORBKIT::Scale::GPS).c_str());
 * // -> 2024-05-17T16:53:20.500000
 * @endcode
 */
template <class Parameters, class Count>
class OnBoardClock {
public:
    /** @param scale  that of the parameters */
    OnBoardClock(long satellite, const Parameters &parameters, Scale scale)
        : satellite_(satellite), parameters_(parameters), scale_(scale)
    {
    }

    Time time(const Count &count, const TimeCorrelation &correlation = built_in_correlation()) const
    {
        const long ref = number(scale_);
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("OnBoardClock::time", kl_time_obt_to_time(&satellite_, &ref, &parameters_, &count, &days, ierr),
                        KL_ID_FUNC_TIME_OBT_TO_TIME, ierr);
        return Time::fromProcessing(days, scale_, correlation);
    }

    Count count(const Time &time) const
    {
        const long ref = number(scale_);
        const double days = time.processing(scale_);
        Count out{};
        out.sat_id = satellite_;
        long ierr[1] = {0};
        throw_unless_ok("OnBoardClock::count", kl_time_time_to_obt(&satellite_, &ref, &parameters_, &days, &out, ierr),
                        KL_ID_FUNC_TIME_TIME_TO_OBT, ierr);
        return out;
    }

private:
    long satellite_;
    Parameters parameters_;
    Scale scale_;
};

} // namespace ORBKIT

#endif
