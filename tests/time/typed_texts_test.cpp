// Texts as people write them: instants counted by an independent calendar, what is refused, every beginning of every
// layout, rubbish, and the array form.
#include "support/csv.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>
#include <random>

namespace {

struct Read {
    long status = 7, ierr = 7;
    double time = 7.0;

    Read(kl_time_id *id, const std::string &text, long default_ref, long out_ref)
    {
        const long processing = KL_PROC;
        status = kl_time_text_to_processing(id, text.c_str(), &default_ref, &processing, &out_ref, &time, &ierr);
    }
};

TEST(TypedTexts, ComeToTheMicrosecondsOfAnIndependentCalendar)
{
    NamedIds ids;
    for (const auto &[text, scale, id, day, microseconds] :
         read_rows<std::string, Scale, std::string, double, double>("typed_texts.csv")) {
        const Read got(ids[id == "leap" ? kPositiveLeap : kConstant], text, scale, kTai);
        EXPECT_EQ(std::tuple(got.status, got.ierr), std::tuple(KL_OK, 0)) << text;
        EXPECT_EQ(std::round((got.time - day) * 8.64e10), microseconds) << text;
    }
}

TEST(TypedTexts, OfTheTwentyFormatsAreThoseOfTheFormat)
{
    for (const FormatCase &c : kFormats) {
        for (const std::string &text : {c.text, c.beginning, c.end, c.end_of_9999}) {
            const Read got(nullptr, text, kUtc, kUtc);
            const Outcome by_format = convert(nullptr, {kOfAscii, c.format, kUtc}, text, plain(kOfProcessing, kUtc));
            EXPECT_EQ(std::tuple(got.status, got.ierr), std::tuple(KL_OK, 0)) << text;
            EXPECT_EQ(got.time, by_format.value.time) << text;
        }
    }
}

TEST(TypedTexts, NothingIsGuessed)
{
    NamedIds ids;
    for (const auto &[text, bits] : read_rows<std::string, Bits>("typed_refusals.csv")) {
        const Read got(ids[kPositiveLeap], text, kUtc, kTai);
        EXPECT_EQ(std::tuple(got.status, got.ierr, got.time), std::tuple(KL_ERR, bits.value, 7.0)) << text;
    }
}

// A beginning of a text is refused until its seconds are complete, and then has the decimals that are left.
TEST(TypedTexts, EveryBeginningOfEveryLayout)
{
    std::vector<std::string> texts = {"2024-060T12:34:56.789012345", "UTC=2024-060 12:34:56.789012345"};
    for (const FormatCase &c : kFormats)
        texts.emplace_back(c.text);
    for (const std::string &text : texts) {
        const std::size_t dot = text.find('.');
        const std::size_t seconds = dot != std::string::npos              ? dot
                                    : text.find(':') == std::string::npos ? text.find_first_of("T_", 4) + 7
                                                                          : text.size();
        for (std::size_t n = 0; n <= text.size(); ++n) {
            const Read got(nullptr, text.substr(0, n), kUtc, kUtc);
            const bool dotted = dot != std::string::npos && n > dot + 1;
            const bool whole = n == seconds || dotted || (dot == std::string::npos && n == text.size());
            EXPECT_EQ(got.status, whole ? KL_OK : KL_ERR) << text.substr(0, n);
            const double decimals = dotted ? std::stod("0" + text.substr(dot, n - dot)) : n == seconds ? 0.0 : 0.789012;
            if (whole) {
                EXPECT_NEAR(got.time, 8825.0 + (45296.0 + decimals) / kDay, 0.5 * kMicrosecond + kSpacing2099) << n;
            }
        }
    }
}

// One condition or an instant in range, whatever the octets are.
TEST(TypedTexts, RubbishIsRefusedOrAnInstant)
{
    constexpr char kSigns[] = "0123456789012345678901234567890123456789-::-T_ Z.=UTCGPSAI1JanFEB\t\n\xff";
    std::mt19937_64 random(14);
    for (int i = 0; i < 200000; ++i) {
        std::string text = kFormats[random() % std::size(kFormats)].text;
        for (auto changes = random() % 4; changes > 0; --changes)
            text[random() % text.size()] =
                random() % 8 == 0 ? static_cast<char>(random()) : kSigns[random() % (sizeof kSigns - 1)];
        if (random() % 4 == 0)
            text.erase(random() % text.size(), random() % 3);
        const Read got(nullptr, text, kUtc, kUtc);
        if (got.status == KL_OK)
            ASSERT_TRUE(got.ierr == 0 && got.time >= -18262.0 && got.time < 36525.0) << text;
        else
            ASSERT_TRUE((got.ierr & (got.ierr - 1) & LONG_MAX) == 0 && got.time == 7.0) << text;
    }
}

// Texts at a distance, some with a scale of their own, against the scalar calls in order.
TEST(TypedTexts, ArrayFormIsTheScalarCallsInOrder)
{
    constexpr long kWidth = 40, kProcessing = KL_PROC, kOuts[] = {kUtc, kTai},
                   kDefaults[] = {kUtc, kTai, KL_TIME_UNDEF, 9};
    const char *const texts[] = {"2016-12-31T23:59:60Z", "TAI=2017-001 00:00:00.5", " 02-jan-2017 00:00:00 ",
                                 "2017-01-02",           "20170103T000000",         "GPS=20170103_000000123456",
                                 "2018-01-01T00:00:00",  "UTC=2017-01-01T00:00:00"};
    std::mt19937_64 random(8);
    for (const long n : {1L, 64L, 200L}) {
        std::string column(static_cast<std::size_t>(n * kWidth), '\0');
        for (long i = 0; i < n; ++i) {
            const std::string text = texts[n == 64 ? 4 : i % 8]; // one length all of one scale
            column.replace(static_cast<std::size_t>(i * kWidth), kWidth, kWidth, random() % 2 != 0 ? ' ' : '\0');
            column.replace(static_cast<std::size_t>(i * kWidth), text.size(), text);
        }
        for (const IdName name : {kEmpty, kConstant, kPositiveLeap}) {
            for (const long default_ref : kDefaults) {
                for (const long out_ref : kOuts) {
                    NamedIds ids, beside;
                    std::vector<double> times(static_cast<std::size_t>(n));
                    std::vector<long> statuses(times.size());
                    long ierr = 0, expected_ierr = 0, worst = KL_OK;
                    const long status =
                        kl_time_text_to_processing_n(ids[name], &n, &kWidth, column.data(), &default_ref, &kProcessing,
                                                     &out_ref, times.data(), statuses.data(), &ierr);
                    for (std::size_t i = 0; i < times.size(); ++i) {
                        const std::string text = column.substr(i * kWidth, kWidth);
                        const Read one(beside[name], text, default_ref, out_ref);
                        expected_ierr |= one.ierr;
                        worst = worst == KL_ERR || one.status == KL_ERR ? long{KL_ERR} : std::max(worst, one.status);
                        ASSERT_EQ(statuses[i], one.status) << text << " " << name << default_ref << out_ref;
                        ASSERT_TRUE(one.status == KL_ERR ? std::isnan(times[i]) : times[i] == one.time) << text;
                    }
                    EXPECT_EQ(std::tuple(status, ierr), std::tuple(worst, expected_ierr)) << name << default_ref;
                }
            }
        }
    }
}

} // namespace
