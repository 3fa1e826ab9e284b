// Texts of a time: twenty formats, mission limits, the 61st second, and the present time.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

namespace {

// One instant in every format, and the limits in every layout.
struct FormatCase {
    long format;
    const char *text, *beginning, *end, *end_of_9999;
};
constexpr FormatCase kFormats[] = {
    {11, "2024-02-29_12:34:56", "0000-00-00_00:00:00", "9999-99-99_99:99:99", "9999-12-31_23:59:59"},
    {12, "UTC=2024-02-29_12:34:56", "UTC=0000-00-00_00:00:00", "UTC=9999-99-99_99:99:99", "UTC=9999-12-31_23:59:59"},
    {13, "2024-02-29_12:34:56.789012", "0000-00-00_00:00:00.000000", "9999-99-99_99:99:99.999999",
     "9999-12-31_23:59:59.999999"},
    {14, "UTC=2024-02-29_12:34:56.789012", "UTC=0000-00-00_00:00:00.000000", "UTC=9999-99-99_99:99:99.999999",
     "UTC=9999-12-31_23:59:59.999999"},
    {21, "20240229_123456", "00000000_000000", "99999999_999999", "99991231_235959"},
    {22, "UTC=20240229_123456", "UTC=00000000_000000", "UTC=99999999_999999", "UTC=99991231_235959"},
    {23, "20240229_123456789012", "00000000_000000000000", "99999999_999999999999", "99991231_235959999999"},
    {24, "UTC=20240229_123456789012", "UTC=00000000_000000000000", "UTC=99999999_999999999999",
     "UTC=99991231_235959999999"},
    {31, "29-FEB-2024 12:34:56", "00-000-0000 00:00:00", "99-999-9999 99:99:99", "31-DEC-9999 23:59:59"},
    {32, "UTC=29-FEB-2024 12:34:56", "UTC=00-000-0000 00:00:00", "UTC=99-999-9999 99:99:99",
     "UTC=31-DEC-9999 23:59:59"},
    {33, "29-FEB-2024 12:34:56.789012", "00-000-0000 00:00:00.000000", "99-999-9999 99:99:99.999999",
     "31-DEC-9999 23:59:59.999999"},
    {34, "UTC=29-FEB-2024 12:34:56.789012", "UTC=00-000-0000 00:00:00.000000", "UTC=99-999-9999 99:99:99.999999",
     "UTC=31-DEC-9999 23:59:59.999999"},
    {41, "2024-02-29T12:34:56", "0000-00-00T00:00:00", "9999-99-99T99:99:99", "9999-12-31T23:59:59"},
    {42, "UTC=2024-02-29T12:34:56", "UTC=0000-00-00T00:00:00", "UTC=9999-99-99T99:99:99", "UTC=9999-12-31T23:59:59"},
    {43, "2024-02-29T12:34:56.789012", "0000-00-00T00:00:00.000000", "9999-99-99T99:99:99.999999",
     "9999-12-31T23:59:59.999999"},
    {44, "UTC=2024-02-29T12:34:56.789012", "UTC=0000-00-00T00:00:00.000000", "UTC=9999-99-99T99:99:99.999999",
     "UTC=9999-12-31T23:59:59.999999"},
    {51, "20240229T123456", "00000000T000000", "99999999T999999", "99991231T235959"},
    {52, "UTC=20240229T123456", "UTC=00000000T000000", "UTC=99999999T999999", "UTC=99991231T235959"},
    {53, "20240229T123456789012", "00000000T000000000000", "99999999T999999999999", "99991231T235959999999"},
    {54, "UTC=20240229T123456789012", "UTC=00000000T000000000000", "UTC=99999999T999999999999",
     "UTC=99991231T235959999999"},
};

bool has_microseconds(long format)
{
    return format % 10 >= 3;
}

Outcome from_text(kl_time_id *id, long format, long ref, const char *text, Kind to = kOfTransport,
                  long format_out = KL_TRANS_0, long ref_out = KL_TIME_UTC)
{
    return convert(id, kOfAscii, format, ref, Value(text), to, format_out, ref_out);
}

TEST(Texts, OneInstantInEveryFormat)
{
    for (const FormatCase &c : kFormats) {
        const Outcome written = convert(nullptr, kOfTransport, KL_TRANS_0, KL_TIME_UTC, {8825, 45296, 789012}, kOfAscii,
                                        c.format, KL_TIME_UTC);
        EXPECT_EQ(written.status, KL_OK) << c.format;
        EXPECT_STREQ(written.value.text, c.text);
        const Outcome read = from_text(nullptr, c.format, KL_TIME_UTC, c.text);
        EXPECT_EQ(read.status, KL_OK) << c.text;
        EXPECT_EQ(fields_of(read.value), has_microseconds(c.format) ? "8825 45296 789012 0" : "8825 45296 0 0");
    }
}

// Every day at a random microsecond, in one layout against the C library, and from each to each of the others.
TEST(Texts, EveryDayThroughEveryFormat)
{
    std::mt19937 random(20);
    std::uniform_int_distribution<long> seconds(0, 86399);
    std::uniform_int_distribution<long> microseconds(0, 999999);
    for (long day = -18262; day <= 36524; ++day) {
        const Value standard(day, seconds(random), microseconds(random));
        const std::time_t unix_time = (day + 10957) * 86400L + standard.fields[1]; // 10957 days from 1970 to 2000
        char expected[KL_TIME_ASCII_LENGTH];
        std::tm utc{};
        std::strftime(expected, sizeof expected, "%Y-%m-%dT%H:%M:%S", gmtime_r(&unix_time, &utc));
        long format_in = KL_ASCII_44;
        Value text =
            convert(nullptr, kOfTransport, KL_TRANS_0, KL_TIME_UTC, standard, kOfAscii, format_in, KL_TIME_UTC).value;
        ASSERT_EQ(std::string(text.text).substr(4, 19), expected);
        for (const FormatCase &c : kFormats) {
            if (!has_microseconds(c.format))
                continue;
            text = convert(nullptr, kOfAscii, format_in, KL_TIME_UTC, text, kOfAscii, c.format, KL_TIME_UTC).value;
            format_in = c.format;
        }
        const Outcome read = from_text(nullptr, format_in, KL_TIME_UTC, text.text);
        ASSERT_EQ(fields_of(read.value), fields_of(standard)) << expected;
    }
}

TEST(Texts, OnTheMicrosecondGridComeBackFromEveryKind)
{
    ExplicitId values;
    std::mt19937 random(1950);
    std::uniform_int_distribution<long> days(-18261, 36523);
    std::uniform_int_distribution<long> seconds(0, 86399);
    std::uniform_int_distribution<long> microseconds(0, 999999);
    for (int i = 0; i < 20000; ++i) {
        const Value standard(days(random), seconds(random), microseconds(random));
        const Value text =
            convert(nullptr, kOfTransport, KL_TRANS_0, KL_TIME_UTC, standard, kOfAscii, 13, KL_TIME_UTC).value;
        for (const long ref : {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}) {
            const Outcome there = from_text(&values.id, 13, KL_TIME_UTC, text.text, kOfProcessing, KL_PROC, ref);
            const Outcome back =
                convert(&values.id, kOfProcessing, KL_PROC, ref, there.value, kOfAscii, 13, KL_TIME_UTC);
            ASSERT_STREQ(back.value.text, text.text) << ref;
        }
    }
}

struct RoundingCase {
    const char *name;
    double time;
    long format;
    const char *text;
};
const RoundingCase kRoundings[] = {
    {"half a microsecond carries to the year", -0.4e-6 / kDay, 13, "2000-01-01_00:00:00.000000"},
    {"more does not", -0.6e-6 / kDay, 13, "1999-12-31_23:59:59.999999"},
    {"into the second", (59.0 + 0.9999996) / kDay, 43, "2000-01-01T00:01:00.000000"},
    {"cut without microseconds", -0.3 / kDay, 11, "1999-12-31_23:59:59"},
    {"cut without microseconds", (59.0 + 0.999999) / kDay, 31, "01-JAN-2000 00:00:59"},
    {"last second", 36524.0 - 1.0 / kDay, 51, "20991230T235959"},
};

TEST(Texts, MicrosecondsAreRoundedAndWithoutThemCut)
{
    for (const RoundingCase &c : kRoundings) {
        const Outcome out =
            convert(nullptr, kOfProcessing, KL_PROC, KL_TIME_UTC, Value(c.time), kOfAscii, c.format, KL_TIME_UTC);
        EXPECT_STREQ(out.value.text, c.text) << c.name;
    }
}

// ---- mission limits ----

TEST(MissionLimits, AreReadInEveryFormat)
{
    for (const FormatCase &c : kFormats) {
        for (const auto &[text, limit] :
             {std::pair(c.beginning, -18262.0), std::pair(c.end, 36524.0), std::pair(c.end_of_9999, 36524.0)}) {
            const Outcome out = from_text(nullptr, c.format, KL_TIME_UTC, text, kOfProcessing, KL_PROC);
            EXPECT_EQ(out.status, KL_OK) << text;
            EXPECT_EQ(out.value.time, limit) << text;
        }
    }
    EXPECT_EQ(from_text(nullptr, 13, KL_TIME_UTC, "9999-99-99_99:99:99.000000").status, KL_OK);
}

TEST(MissionLimits, StayWhatTheyAreFromTextToText)
{
    for (const FormatCase &from : kFormats) {
        for (const FormatCase &to : kFormats) {
            const auto written = [&](const char *text) {
                return std::string(from_text(nullptr, from.format, KL_TIME_UTC, text, kOfAscii, to.format).value.text);
            };
            EXPECT_EQ(written(from.beginning), to.beginning);
            EXPECT_EQ(written(from.end), to.end);
            EXPECT_EQ(written(from.end_of_9999), to.end_of_9999);
        }
    }
}

TEST(MissionLimits, AreWrittenForNumbersAtTheLimits)
{
    for (const FormatCase &c : kFormats) {
        const auto written = [&](Kind from, const Value &value) {
            return std::string(
                convert(nullptr, from, 0, KL_TIME_UTC, value, kOfAscii, c.format, KL_TIME_UTC).value.text);
        };
        EXPECT_EQ(written(kOfProcessing, Value(-18262.0)), c.beginning);
        EXPECT_EQ(written(kOfProcessing, Value(36524.0)), c.end);
        EXPECT_EQ(written(kOfTransport, {-18262, 0, 0}), c.beginning);
        EXPECT_EQ(written(kOfTransport, {36524, 0, 0}), c.end);
    }
}

TEST(MissionLimits, DatesAtThemStayDatesAndLimitsMoveWithTheScale)
{
    ExplicitId values;
    const auto written = [&](const char *text, long ref) {
        return std::string(from_text(&values.id, 11, KL_TIME_UTC, text, kOfAscii, 11, ref).value.text);
    };
    EXPECT_EQ(written("1950-01-01_00:00:00", KL_TIME_UTC), "1950-01-01_00:00:00");
    EXPECT_EQ(written("2099-12-31_00:00:00", KL_TIME_UTC), "2099-12-31_00:00:00");
    EXPECT_EQ(written("0000-00-00_00:00:00", KL_TIME_TAI), "1950-01-01_00:00:37");
    EXPECT_EQ(written("9999-99-99_99:99:99", KL_TIME_TAI), "2099-12-31_00:00:37");
}

// ---- the 61st second ----

struct LeapCase {
    const char *utc, *tai;
};
constexpr LeapCase kLeap[] = {
    {"UTC=2016-12-31T23:59:59.999999", "TAI=2017-01-01T00:00:35.999999"},
    {"UTC=2016-12-31T23:59:60.000000", "TAI=2017-01-01T00:00:36.000000"},
    {"UTC=2016-12-31T23:59:60.500000", "TAI=2017-01-01T00:00:36.500000"},
    {"UTC=2016-12-31T23:59:60.999999", "TAI=2017-01-01T00:00:36.999999"},
    {"UTC=2017-01-01T00:00:00.000000", "TAI=2017-01-01T00:00:37.000000"},
};

TEST(LeapSecondTexts, AreReadAndWrittenInsideAPositiveLeapSecond)
{
    LeapId table(1);
    for (const LeapCase &c : kLeap) {
        EXPECT_STREQ(from_text(&table.id, 44, KL_TIME_UTC, c.utc, kOfAscii, 44, KL_TIME_TAI).value.text, c.tai);
        EXPECT_STREQ(from_text(&table.id, 44, KL_TIME_TAI, c.tai, kOfAscii, 44, KL_TIME_UTC).value.text, c.utc);
        EXPECT_STREQ(from_text(&table.id, 44, KL_TIME_UTC, c.utc, kOfAscii, 44, KL_TIME_UTC).value.text, c.utc);
    }
}

// Every microsecond around the three boundaries, and steps between them: in order, and each back to its text.
TEST(LeapSecondTexts, EveryMicrosecondComesBack)
{
    LeapId table(1);
    long before = -1;
    for (long us = -2000000; us<3000000; us += us % 1000000> - 3000 && us % 1000000 < 3000 ? 1 : 97) {
        const long second = 86399 + (us + 1000000 >= 0 ? (us + 1000000) / 1000000 : -1); // 86400 from us = 0 on
        const long fraction = ((us % 1000000) + 1000000) % 1000000;
        const bool next_day = second > 86400;
        const Value utc(kLeapDay + (next_day ? 1 : 0), next_day ? second - 86401 : second, fraction);
        const Outcome text = convert(&table.id, kOfTransport, KL_TRANS_0, KL_TIME_UTC, utc, kOfAscii, 23, KL_TIME_UTC);
        const Outcome tai = from_text(&table.id, 23, KL_TIME_UTC, text.value.text, kOfTransport, 0, KL_TIME_TAI);
        ASSERT_EQ(tai.value.fields[0], 6210) << us;
        const long microseconds = tai.value.fields[1] * 1000000 + tai.value.fields[2];
        ASSERT_EQ(microseconds, 36000000 + us) << text.value.text;
        ASSERT_GT(microseconds, before) << text.value.text;
        before = microseconds;
        const Outcome back = convert(&table.id, kOfTransport, 0, KL_TIME_TAI, tai.value, kOfAscii, 23, KL_TIME_UTC);
        ASSERT_STREQ(back.value.text, text.value.text) << us;
    }
}

TEST(LeapSecondTexts, AProcessingTimeRoundedUpToItIsWrittenAsItsBeginning)
{
    LeapId table(1);
    const Value just_before(6210.0 - 0.4e-6 / kDay);
    EXPECT_STREQ(convert(&table.id, kOfProcessing, 0, KL_TIME_UTC, just_before, kOfAscii, 13, KL_TIME_UTC).value.text,
                 "2016-12-31_23:59:60.000000");
    LeapId negative(-1);
    EXPECT_STREQ(
        convert(&negative.id, kOfProcessing, 0, KL_TIME_UTC, just_before, kOfAscii, 13, KL_TIME_UTC).value.text,
        "2017-01-01_00:00:00.000000");
}

TEST(LeapSecondTexts, ProcessingTimesFoldItOntoTheSecondBefore)
{
    LeapId table(1);
    const double expected = 6209.0 + 86399.25 / kDay;
    EXPECT_EQ(from_text(&table.id, 13, KL_TIME_UTC, "2016-12-31_23:59:60.250000", kOfProcessing, 0).value.time,
              expected);
    EXPECT_EQ(from_text(&table.id, 13, KL_TIME_TAI, "2017-01-01_00:00:36.250000", kOfProcessing, 0).value.time,
              expected);
}

// ---- conditions ----

struct ConditionCase {
    const char *name;
    long format, ref;
    const char *text;
    long bit; // -1: accepted
};
constexpr ConditionCase kConditions[] = {
    {"no such format", 10, KL_TIME_UTC, "", KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR},
    {"no such format", 15, KL_TIME_UTC, "", KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR},
    {"no such format", 61, KL_TIME_UTC, "", KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR},
    {"no such format", -11, KL_TIME_UTC, "", KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR},
    {"scale", 11, -2, "", KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR},
    {"scale", 12, 4, "", KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR},
    {"empty", 11, KL_TIME_UTC, "", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"one short", 11, KL_TIME_UTC, "2024-02-29_12:34:5", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"without its prefix", 12, KL_TIME_UTC, "2024-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR},
    {"one long", 11, KL_TIME_UTC, "2024-02-29_12:34:56 ", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"with microseconds", 21, KL_TIME_UTC, "20240229_123456789012", KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR},
    {"no prefix", 12, KL_TIME_UTC, "TDB=2024-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR},
    {"small letters", 12, KL_TIME_UTC, "utc=2024-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR},
    {"another scale", 12, KL_TIME_UTC, "TAI=2024-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_PREFIX_REF_ERR},
    {"its own scale", 12, KL_TIME_UNDEF, "UTC=2016-12-31_12:34:56", -1},
    {"no scale", 11, KL_TIME_UNDEF, "2024-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_NO_REF_ERR},
    {"separator of another layout", 11, KL_TIME_UTC, "2024-02-29T12:34:56", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"point", 33, KL_TIME_UTC, "29-FEB-2024 12:34:56,789012", KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR},
    {"year", 11, KL_TIME_UTC, "1949-12-31_23:59:59", KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR},
    {"year", 51, KL_TIME_UTC, "21000101T000000", KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR},
    {"year of letters", 11, KL_TIME_UTC, "2o24-02-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR},
    {"month", 11, KL_TIME_UTC, "2024-00-29_12:34:56", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"month", 21, KL_TIME_UTC, "20241329_123456", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"month in small letters", 31, KL_TIME_UTC, "29-Feb-2024 12:34:56", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"month of a limit", 31, KL_TIME_UTC, "29-000-2024 12:34:56", KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR},
    {"day", 41, KL_TIME_UTC, "2024-02-00T12:34:56", KL_TIME_ASCII_TO_PROCESSING_DAY_ERR},
    {"day", 41, KL_TIME_UTC, "2024-02-32T12:34:56", KL_TIME_ASCII_TO_PROCESSING_DAY_ERR},
    {"day with a sign", 41, KL_TIME_UTC, "2024-02-+9T12:34:56", KL_TIME_ASCII_TO_PROCESSING_DAY_ERR},
    {"hour", 41, KL_TIME_UTC, "2024-02-29T24:00:00", KL_TIME_ASCII_TO_PROCESSING_HOUR_ERR},
    {"minute", 41, KL_TIME_UTC, "2024-02-29T12:60:56", KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR},
    {"minute of blanks", 41, KL_TIME_UTC, "2024-02-29T12:  :56", KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR},
    {"second", 41, KL_TIME_UTC, "2024-02-29T12:34:61", KL_TIME_ASCII_TO_PROCESSING_SECOND_ERR},
    {"microsecond", 53, KL_TIME_UTC, "20240229T12345678901x", KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR},
    {"31st", 11, KL_TIME_UTC, "2024-04-31_00:00:00", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_30_ERR},
    {"30th of February", 11, KL_TIME_UTC, "2024-02-30_00:00:00", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_29_ERR},
    {"29th of February", 11, KL_TIME_UTC, "2023-02-29_00:00:00", KL_TIME_ASCII_TO_PROCESSING_DAY_OF_28_ERR},
    {"61st second", 11, KL_TIME_UTC, "2016-12-31_23:59:60", -1},
    {"61st second of TAI", 11, KL_TIME_TAI, "2016-12-31_23:59:60", KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR},
    {"61st second of another day", 11, KL_TIME_UTC, "2016-12-30_23:59:60", KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR},
    {"61st second of another minute", 11, KL_TIME_UTC, "2016-12-31_23:58:60",
     KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR},
    {"limit with another hour", 11, KL_TIME_UTC, "0000-00-00_01:00:00", KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR},
    {"limit with other microseconds", 13, KL_TIME_UTC, "9999-12-31_23:59:59.500000",
     KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR},
};

// Reading has the same conditions whatever is written.
TEST(Texts, TableOfConditions)
{
    LeapId table(1);
    for (const ConditionCase &c : kConditions) {
        constexpr long kOutFormats[] = {KL_PROC, KL_ASCII_11, KL_TRANS_0};
        for (const Kind to : {kOfProcessing, kOfAscii, kOfTransport}) {
            const Outcome out = from_text(&table.id, c.format, c.ref, c.text, to, kOutFormats[to]);
            EXPECT_EQ(out.status, c.bit < 0 ? KL_OK : KL_ERR) << c.name << " " << c.text << " to " << kKindNames[to];
            EXPECT_EQ(out.ierr[0], c.bit < 0 ? 0 : error_bit(c.bit)) << c.name << " " << c.text;
            EXPECT_EQ(out.value.untouched(), c.bit >= 0) << c.name << " " << c.text;
        }
    }
}

TEST(Texts, A61stSecondNeedsAPositiveLeapSecond)
{
    LeapId negative(-1);
    ExplicitId values;
    for (kl_time_id *id : {&negative.id, &values.id, static_cast<kl_time_id *>(nullptr)})
        EXPECT_EQ(from_text(id, 11, KL_TIME_UTC, "2016-12-31_23:59:60").ierr[0],
                  error_bit(KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR));
}

// A text whose end lies before 1950 or after 2099 in its new scale: the two conditions of the second word.
TEST(Texts, OutsideTheYearsThatAreWritten)
{
    ExplicitId values;
    const Outcome before = from_text(&values.id, 11, KL_TIME_TAI, "1950-01-01_00:00:36", kOfAscii, 11);
    EXPECT_EQ(before.status, KL_ERR);
    EXPECT_EQ(before.ierr[0], 0);
    EXPECT_EQ(before.ierr[1], error_bit(KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR - 32));
    const Outcome after = from_text(&values.id, 11, KL_TIME_UTC, "2099-12-31_23:59:59", kOfAscii, 11, KL_TIME_TAI);
    EXPECT_EQ(after.ierr[1], error_bit(KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR - 32));
    EXPECT_TRUE(before.value.untouched() && after.value.untouched());
    EXPECT_EQ(convert(&values.id, kOfProcessing, 0, KL_TIME_TAI, Value(-18262.0), kOfAscii, 11, KL_TIME_UTC).ierr[0],
              error_bit(KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR));
    EXPECT_EQ(convert(&values.id, kOfTransport, 0, KL_TIME_UTC, {36524, 86399, 0}, kOfAscii, 11, KL_TIME_TAI).ierr[0],
              error_bit(KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR));
}

// ---- present time ----

TEST(PresentTime, IsTheClockInTheFormatAskedFor)
{
    for (const FormatCase &c : kFormats) {
        const double earliest = static_cast<double>(std::time(nullptr)) / kDay - 10957.0;
        char text[KL_TIME_ASCII_LENGTH];
        kl_error_record error;
        ASSERT_EQ(KL_Time_current_time(&c.format, text, &error), 0) << c.format;
        const double latest = static_cast<double>(std::time(nullptr)) / kDay - 10957.0;
        const double read = from_text(nullptr, c.format, KL_TIME_UTC, text, kOfProcessing, KL_PROC).value.time;
        EXPECT_GE(read, earliest - kMicrosecond) << text;
        EXPECT_LE(read, latest + kMicrosecond) << text;
    }
}

TEST(PresentTime, ReportsUnderTheRowsOfTheLeapSecondInformation)
{
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    kl_error_record error;
    const long bad = 17;
    for (const long *format : {&bad, static_cast<const long *>(nullptr)}) {
        EXPECT_EQ(KL_Time_current_time(format, text, &error), -1);
        EXPECT_EQ(message_of(error),
                  "ORBKIT_LIB >>> ERROR in kl_time_get_leap_second_info: Error in adding times in Processing format");
    }
    EXPECT_STREQ(text, "untouched");
}

TEST(PresentTime, LocksThatFail)
{
    SKIP_WITHOUT_FAULTS();
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    const long format = KL_ASCII_41;
    kl_error_record error;
    long status = 0;
    faults::Fail lock(faults::Site::kMutexLock);
    status = KL_Time_current_time(&format, text, &error);
    EXPECT_TRUE(lock.disarm());
    EXPECT_EQ(status, -1);
    EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in kl_time_get_leap_second_info: Error in converting from "
                                 "Processing to ASCII format");

    const std::string lines = captured_stdout([&] {
        faults::Fail unlock(faults::Site::kMutexUnlock);
        status = KL_Time_current_time(&format, text, &error);
        std::fflush(stdout);
    });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(error.count, 0);
    EXPECT_EQ(lines, "!!! Error closing the threads. All threads will be closed\n");
    EXPECT_STREQ(text, "untouched");
}

} // namespace
