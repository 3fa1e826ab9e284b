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

long scale_named(const std::string &name)
{
    const char *const names[] = {"TAI", "UTC", "UT1", "GPS"};
    for (const long ref : kScales)
        if (name == names[ref])
            return ref;
    return KL_TIME_UNDEF;
}

std::string unescaped(std::string text)
{
    const std::pair<const char *, const char *> signs[] = {{"\\t", "\t"}, {"\\r", "\r"}, {"\\n", "\n"}};
    for (const auto &[written, meant] : signs)
        for (std::size_t at; (at = text.find(written)) != std::string::npos;)
            text.replace(at, 2, meant);
    return text;
}

TEST(TypedTexts, ComeToTheMicrosecondsOfAnIndependentCalendar)
{
    NamedIds ids;
    const Csv rows("tests/data/typed_texts.csv", '|');
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string text = unescaped(rows.text(i, 0));
        const Read got(ids[rows.text(i, 2) == "leap" ? kPositiveLeap : kConstant], text, scale_named(rows.text(i, 1)),
                       kTai);
        EXPECT_EQ(std::tuple(got.status, got.ierr), std::tuple(KL_OK, 0)) << text;
        EXPECT_EQ(std::round((got.time - rows.number(i, 3)) * 8.64e10), rows.number(i, 4)) << text;
    }
}

TEST(TypedTexts, OfTheTwentyFormatsAreThoseOfTheFormat)
{
    for (const FormatCase &c : kFormats) {
        for (const char *text : {c.text, c.beginning, c.end, c.end_of_9999}) {
            const Read got(nullptr, text, kUtc, kUtc);
            const Outcome by_format = convert(nullptr, {kOfAscii, c.format, kUtc}, text, plain(kOfProcessing, kUtc));
            EXPECT_EQ(std::tuple(got.status, got.ierr), std::tuple(KL_OK, 0)) << text;
            EXPECT_EQ(got.time, by_format.value.time) << text;
        }
    }
}

constexpr struct {
    const char *text;
    long code;
} kRefused[] = {
    {"", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {" \r\n", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"2020-01-02", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"2020-01-02T03:04", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"2020-1-2T03:04:05", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"20200102T030405123", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"20200102T030405.123456", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"20200102T0304051234567", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05+01:00", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05,5", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05 Z", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05ZZ", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05.1234567890", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"2020-01-02T03:04:05.", KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR},
    {"2020-01-02T03:04:05.5x", KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR},
    {"2020-01-02t03:04:05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"2020-01-02  03:04:05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"2020-01-02T03-04-05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"01-02-2020 03:04:05.0", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"2020/01/02 03:04:05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"2020-JAN-02 03:04:05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"UTC= 2020-01-02 03:04:05", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"EST=2020-01-02T03:04:05", KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR},
    {"utc=2020-01-02T03:04:05", KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR},
    {"TAI=2020-01-02T03:04:05Z", KL_TIME_ASCII_TO_PROCESSING_PREFIX_REF_ERR},
    {"9999-12-31T23:59:58", KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR},
    {"9999-99-99T99:99:99.9999999", KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR},
    {"9999-365T23:59:59", KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR},
    {"1949-365T00:00:00", KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR},
    {"2099-12-31T23:59:59.9999995", KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR},
    {"2020-13-02T03:04:05", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"02-JNA-2020 03:04:05", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"2020-000T03:04:05", KL_TIME_ASCII_TO_PROCESSING_DAY_ERR},
    {"2021-366T03:04:05", KL_TIME_ASCII_TO_PROCESSING_DAY_ERR},
    {"2020-02-30T03:04:05", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_29_ERR},
    {"2021-02-29T03:04:05", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_28_ERR},
    {"31-apr-2021 03:04:05", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_30_ERR},
    {"2020-01-02T24:00:00", KL_TIME_ASCII_TO_PROCESSING_HOUR_ERR},
    {"2020-01-02T03:60:05", KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR},
    {"2020-01-02T03:04:61", KL_TIME_ASCII_TO_PROCESSING_SECOND_ERR},
    {"2020-06-30T23:59:60Z", KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR},
};

TEST(TypedTexts, NothingIsGuessed)
{
    NamedIds ids;
    for (const auto &c : kRefused) {
        const Read got(ids[kPositiveLeap], c.text, kUtc, kTai);
        EXPECT_EQ(got.status, KL_ERR) << c.text;
        EXPECT_EQ(got.ierr, error_bits(c.code)) << c.text << std::hex << got.ierr;
        EXPECT_EQ(got.time, 7.0) << c.text;
    }
    EXPECT_EQ(Read(nullptr, kFormats[0].text, KL_TIME_UNDEF, kUtc).ierr,
              error_bits(KL_TIME_ASCII_TO_PROCESSING_NO_REF_ERR));
    EXPECT_EQ(Read(nullptr, kFormats[0].text, 4, kUtc).ierr, error_bits(KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR));
    EXPECT_EQ(Read(nullptr, kFormats[0].text, kUtc, -1).ierr, error_bits(KL_TIME_ASCII_TO_PROCESSING_TIME_REF_OUT_ERR));
    EXPECT_EQ(Read(nullptr, kFormats[0].text, kUtc, kTai).ierr, error_bits(KL_TIME_ASCII_TO_PROCESSING_TIME_ID_ERR));
    const long utc = kUtc, processing = KL_PROC;
    double out = 7.0;
    expect_missing({KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR, KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR,
                    KL_TIME_ASCII_TO_PROCESSING_PROC_ID_OUT_ERR, KL_TIME_ASCII_TO_PROCESSING_TIME_REF_OUT_ERR, kNone},
                   [&](const AllBut &but, long *ierr) {
                       return kl_time_text_to_processing(nullptr, but(0, kFormats[0].text), but(1, &utc),
                                                         but(2, &processing), but(3, &utc), but(4, &out), ierr);
                   });
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
