// On-board clocks of the four missions, to processing time and back.
#include "time/format_cases.h"

#include <random>

namespace {

constexpr long kTarvos = 21, kVardo = 51, kKelda = 61, kBrisa = 71;
constexpr unsigned long kHalfTurn = 1UL << 31;       // of the Tarvos counter, and half a count of its fine part
constexpr unsigned long kSecondStep = 1000000000000; // picoseconds
constexpr unsigned long kDayStep = 86400 * kSecondStep;
constexpr unsigned long kTick = 864000000; // 1e-8 day
constexpr double kFine = 0x1p-32;
constexpr long kNotAsked = -2; // this way is not tried

template <typename Parameters, typename Obt>
using ClockCase = std::tuple<const char *, long, long, Parameters, Obt, double, long, long>;
using TarvosCase = ClockCase<kl_obt_param_tarvos, kl_obt_tarvos>;
using KeldaCase = ClockCase<kl_obt_param_kelda, kl_obt_kelda>;
using BrisaCase = ClockCase<kl_obt_param_brisa, kl_obt_brisa>;
using VardoCase = ClockCase<kl_obt_param_vardo, kl_obt_vardo>;
#include "time/on_board_time_cases.inc"

// Runs every row both ways. What fails leaves its output as it is.
template <typename Case, std::size_t kRows>
void expect_both_ways(const Case (&cases)[kRows], double tolerance)
{
    for (const auto &[name, sat_id, ref, parameters, obt, time, code_to_time, code_to_obt] : cases) {
        long ierr = -1;
        if (code_to_time != kNotAsked) {
            double got = 7777.0;
            const long status = kl_time_obt_to_time(&sat_id, &ref, &parameters, &obt, &got, &ierr);
            expect_outcome(status, ierr, code_to_time, name);
            EXPECT_NEAR(got, code_to_time == kNone ? time : 7777.0, tolerance) << name;
        }
        if (code_to_obt != kNotAsked) {
            auto got = obt;
            std::memset(&got, 0x77, sizeof got);
            got.sat_id = obt.sat_id;
            const auto want = code_to_obt == kNone ? obt : got;
            const long status = kl_time_time_to_obt(&sat_id, &ref, &parameters, &time, &got, &ierr);
            expect_outcome(status, ierr, code_to_obt, name);
            EXPECT_EQ(std::memcmp(&got, &want, sizeof got), 0) << name;
        }
    }
}

TEST(OnBoardTime, EveryClockRunsBothWaysOrTellsWhatIsWrong)
{
    expect_both_ways(kTarvosCases, 1.2e-13); // spacing of doubles at 1000 days
    expect_both_ways(kKeldaCases, 1e-15);
    expect_both_ways(kBrisaCases, 1e-15);
    expect_both_ways(kVardoCases, 1e-12);
}

TEST(OnBoardTime, TarvosAgreesWithTheCounterAsAWrappingInteger)
{
    // Coarse and fine together are a 64-bit counter of 2^-32 counts.
    std::mt19937_64 random(5);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t now = random();
        const std::uint64_t reference = i % 2 == 0 ? random() : now - (random() >> (8 + i % 50));
        const kl_obt_param_tarvos ref = {kTarvos, 1000.0, reference >> 32, reference & 0xffffffff, kTick};
        const kl_obt_tarvos obt = {kTarvos, now >> 32, now & 0xffffffff};
        double time = kNaN;
        ASSERT_EQ(kl_time_obt_to_time(&kTarvos, &kTai, &ref, &obt, &time, nullptr), KL_OK);
        const auto difference = static_cast<std::int64_t>(now - reference);
        const double want = 1000.0 + static_cast<double>(difference) * kFine * 1e-8;
        ASSERT_NEAR(time, want, 2.4e-13) << now << " " << reference;
    }
}

TEST(OnBoardTime, BrisaComesBackWithinOneCount)
{
    // Fine counts are cut: one less than before at most, as far as days hold the instant.
    std::mt19937_64 random(17);
    const auto below = [&random](std::uint64_t end) { return random() % end; };
    for (int i = 0; i < 20000; ++i) {
        const kl_obt_param_brisa ref = {
            kBrisa,      static_cast<long>(below(100)), below(1000000), below(65536), 1042 + below(1000), below(604800),
            below(65536)};
        const kl_obt_brisa obt = {kBrisa, ref.ref_coarse + below(100000000), below(65536)};
        kl_obt_brisa back = {kBrisa, 0, 0};
        double time = kNaN;
        ASSERT_EQ(kl_time_obt_to_time(&kBrisa, &kTai, &ref, &obt, &time, nullptr), KL_OK);
        ASSERT_EQ(kl_time_time_to_obt(&kBrisa, &kTai, &ref, &time, &back, nullptr), KL_OK);
        const unsigned long lost = (obt.coarse << 16 | obt.fine) - (back.coarse << 16 | back.fine);
        ASSERT_LE(lost, 1u) << i;
    }
}

} // namespace
