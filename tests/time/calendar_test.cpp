// Calendar, time references and the processing format.
#include "kl_family.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <string>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

enum { kMjd = 3, kUtcOfRecord = 5 }; // format and reference of a time record

kl_time_record mjd(double value)
{
    return {kUtcOfRecord, kMjd, value};
}

std::string write(const kl_calendar_record &date)
{
    return std::to_string(date.year) + "-" + std::to_string(date.month) + "-" + std::to_string(date.day) + " "
           + std::to_string(date.seconds) + " s " + std::to_string(date.microseconds) + " us";
}

struct DateCase {
    const char *name;
    double mjd;
    const char *date;
};
constexpr DateCase kDates[] = {
    {"epoch", 0.0, "2000-1-1 0 s 0 us"},
    {"noon before the epoch", -0.5, "1999-12-31 43200 s 0 us"},
    {"first", -18262.0, "1950-1-1 0 s 0 us"},
    {"last microseconds, rounded to the nearest", 36524.999999, "2099-12-31 86399 s 913600 us"},
    {"leap day", 59.25, "2000-2-29 21600 s 0 us"},
    {"day after a leap day", 60.0, "2000-3-1 0 s 0 us"},
    {"half a microsecond is rounded up", 1.0 / 86400 + 0.6e-6 / 86400, "2000-1-1 1 s 1 us"},
};

TEST(MjdCalendar, KnownDates)
{
    for (const DateCase &c : kDates) {
        const kl_time_record in = mjd(c.mjd);
        kl_calendar_record out{};
        EXPECT_EQ(KL_MJD_Calendar(&in, &out, nullptr), 0) << c.name;
        EXPECT_EQ(write(out), c.date) << c.name;
        EXPECT_EQ(out.reference, kUtcOfRecord) << c.name;
    }
}

TEST(MjdCalendar, RoundingUpToMidnightStaysOnTheSameDayWith86400Seconds)
{
    const kl_time_record in = mjd(1.0 - 1e-12);
    kl_calendar_record out{};
    EXPECT_EQ(KL_MJD_Calendar(&in, &out, nullptr), 0);
    EXPECT_EQ(write(out), "2000-1-1 86400 s 0 us");
}

TEST(MjdCalendar, RefusesWhatLiesOutsideItsLimits)
{
    for (const double value : {-18262.0000001, 36525.0, 1e300, kInf, -kInf, kNan}) {
        const kl_time_record in = mjd(value);
        kl_calendar_record out = {7, 7, 7, 7, 7, 7};
        kl_error_record error;
        EXPECT_EQ(KL_MJD_Calendar(&in, &out, &error), -1) << value;
        EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in KL_MJD_Calendar: Input Time is out of limits") << value;
        EXPECT_EQ(out.year, 7) << value;
    }
    EXPECT_EQ(KL_MJD_Calendar(nullptr, nullptr, nullptr), -1);
}

// Against the calendar of the C library, and back to the same number.
TEST(MjdCalendar, EveryDayOfTheRangeAndBack)
{
    for (long day = -18262; day < 36525; ++day) {
        const kl_time_record in = mjd(static_cast<double>(day) + 0.75);
        kl_calendar_record date{};
        ASSERT_EQ(KL_MJD_Calendar(&in, &date, nullptr), 0) << day;
        const std::time_t unix_time = (day + 10957) * 86400L + 64800; // 10957 days from 1970 to 2000
        std::tm utc{};
        gmtime_r(&unix_time, &utc);
        ASSERT_EQ(date.year, utc.tm_year + 1900) << day;
        ASSERT_EQ(date.month, utc.tm_mon + 1) << day;
        ASSERT_EQ(date.day, utc.tm_mday) << day;
        ASSERT_EQ(date.seconds, 64800) << day;
        kl_time_record out{};
        ASSERT_EQ(KL_Calendar_MJD(&date, &out, nullptr), 0) << day;
        ASSERT_EQ(out.value, in.value) << day;
        ASSERT_EQ(out.format, kMjd) << day;
        ASSERT_EQ(out.reference, kUtcOfRecord) << day;
    }
}

struct CheckCase {
    kl_calendar_record date;
    int code; // -1: a good date
    const char *text;
};
constexpr CheckCase kChecks[] = {
    {{5, 2000, 2, 29, 0, 0}, -1, ""},
    {{5, 2096, 2, 29, 86399, 999999}, -1, ""},
    {{5, 1949, 13, 32, -1, -1}, 0, "Input YEAR is out of limits (1950-2099)"},
    {{5, 2100, 1, 1, 0, 0}, 0, "Input YEAR is out of limits (1950-2099)"},
    {{5, 2000, 0, 1, 0, 0}, 1, "Input MONTH is out of limits (1-12)"},
    {{5, 2000, 13, 1, 0, 0}, 1, "Input MONTH is out of limits (1-12)"},
    {{5, 2000, 1, 0, 0, 0}, 2, "Input DAY is out of limits (1-31)"},
    {{5, 2000, 4, 32, 0, 0}, 2, "Input DAY is out of limits (1-31)"},
    {{5, 2000, 1, 1, -1, 0}, 3, "Input SECONDS is out of limits (0-86399)"},
    {{5, 2000, 1, 1, 86400, 0}, 3, "Input SECONDS is out of limits (0-86399)"},
    {{5, 2000, 1, 1, 0, -1}, 4, "Input MICROSECONDS is out of limits (0-999999)"},
    {{5, 2000, 1, 1, 0, 1000000}, 4, "Input MICROSECONDS is out of limits (0-999999)"},
    {{5, 2000, 4, 31, 0, 0}, 5, "That month has only 30 days"},
    {{5, 2000, 2, 30, 0, 0}, 6, "That month has only 29 days"},
    {{5, 2001, 2, 29, 0, 0}, 7, "That FEBRUARY has only 28 days"},
};

TEST(Calendar, TableOfConditions)
{
    for (const CheckCase &c : kChecks) {
        int valid = 7;
        kl_error_record error;
        EXPECT_EQ(KL_Calendar(&c.date, &valid, &error), c.code < 0 ? 0 : -1) << write(c.date);
        EXPECT_EQ(valid, c.code < 0 ? 1 : 0) << write(c.date);
        kl_time_record out = {0, 0, 7.0};
        kl_error_record caller_error;
        EXPECT_EQ(KL_Calendar_MJD(&c.date, &out, &caller_error), c.code < 0 ? 0 : -1) << write(c.date);
        if (c.code < 0)
            continue;
        ASSERT_EQ(error.count, 1) << write(c.date);
        EXPECT_EQ(error.codes[0], c.code) << write(c.date);
        EXPECT_EQ(message_of(error), std::string("ORBKIT_LIB >>> ERROR in KL_Calendar: ") + c.text);
        EXPECT_EQ(message_of(caller_error),
                  "ORBKIT_LIB >>> ERROR in KL_Calendar_MJD: Gregorian Calendar date not valid");
        EXPECT_EQ(out.value, 7.0) << write(c.date);
    }
    EXPECT_EQ(KL_Calendar(nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(KL_Calendar_MJD(nullptr, nullptr, nullptr), -1);
}

TEST(JulianDay, StartsAtMidnightHalfADayAfterTheAstronomicalOne)
{
    EXPECT_EQ(KL_MJD_to_Julian(0.0), 2451545.0); // the astronomers' date of the noon that follows
    EXPECT_EQ(KL_MJD_to_Julian(-18262.25), 2433282.75);
}

TEST(Rounding, HalvesGoUp)
{
    EXPECT_EQ(KL_round(2.5), 3.0);
    EXPECT_EQ(KL_round(-2.5), -2.0);
    EXPECT_EQ(KL_round(-2.6), -3.0);
}

TEST(References, BetweenTheTwoNumberings)
{
    constexpr long kPublicToRecord[][2] = {{-2, -1}, {-1, -1}, {0, 3}, {1, 5}, {2, 4}, {3, 6}, {4, -1}};
    for (const auto &row : kPublicToRecord)
        EXPECT_EQ(KL_Time_ref_enum_to_Time_enum(row[0]), row[1]) << row[0];
    constexpr int kRecordToPublic[][2] = {{0, -1}, {1, -1}, {2, -1}, {3, 0}, {4, 2}, {5, 1}, {6, 3}, {7, -1}};
    for (const auto &row : kRecordToPublic)
        EXPECT_EQ(KL_Time_enum_to_Time_ref_enum(row[0]), row[1]) << row[0];
}

TEST(References, UndefinedPassesTheCheckAndNotTheQuietOne)
{
    for (long ref = -3; ref <= 6; ++ref) {
        kl_error_record error;
        EXPECT_EQ(KL_Check_time_ref(&ref, &error), ref >= -1 && ref <= 3 ? 0 : -1) << ref;
        EXPECT_EQ(error.count, ref >= -1 && ref <= 3 ? 0 : 1) << ref;
        EXPECT_EQ(KL_Check_time_ref_2(ref), ref >= 0 && ref <= 3 ? 1 : 0) << ref;
    }
    kl_error_record error;
    EXPECT_EQ(KL_Check_time_ref(nullptr, &error), -1);
    EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in KL_Check_time_ref: Time reference ID is not correct");
}

// ---- processing format ----

struct ProcessingCase {
    long format, ref;
    double time;
    const char *text; // "" when accepted
};
constexpr ProcessingCase kProcessingInputs[] = {
    {0, 0, -18262.0, ""},
    {0, 3, 36524.0, ""},
    {1, 9, kNan, "Input processing format ID is not correct (1)"},
    {-1, 0, 0.0, "Input processing format ID is not correct (-1)"},
    {0, -1, 0.0, "Input time reference ID is not correct (-1)"},
    {0, 4, 0.0, "Input time reference ID is not correct (4)"},
    {0, 1, 36524.0000001, "Number of days out of range (36524)"},
    {0, 1, -18262.9, "Number of days out of range (-18262)"},
    {0, 1, kNan, "Number of days out of range (0)"},
    {0, 1, kInf, "Number of days out of range (9223372036854775807)"},
    {0, 1, -1e300, "Number of days out of range (-9223372036854775808)"},
};

TEST(ProcessingFormat, TableOfConditions)
{
    for (const ProcessingCase &c : kProcessingInputs) {
        kl_error_record error;
        const bool good = c.text[0] == '\0';
        EXPECT_EQ(KL_Time_check_processing_inputs(c.format, c.ref, &c.time, &error), good ? 0 : -1) << c.text;
        const std::string text = "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: ";
        EXPECT_EQ(message_of(error), good ? "0 messages" : text + c.text);
    }
    kl_error_record error;
    EXPECT_EQ(KL_Time_check_processing_inputs(0, 0, nullptr, &error), -1);
    EXPECT_EQ(KL_Time_check_processing_outputs(0, 3, &error), 0);
    EXPECT_EQ(KL_Time_check_processing_outputs(2, 4, &error), -1);
    EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_outputs: Output processing format "
                                 "ID is not correct (2)");
    EXPECT_EQ(KL_Time_check_processing_outputs(0, 4, &error), -1);
    EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_outputs: Output time reference ID "
                                 "is not correct (4)");
}

struct StandardCase {
    const char *name;
    int leap_sign; // of the time id, at the end of 2016-12-31
    long ref;
    double time;
    kl_std_record record;
};
constexpr double kJustBefore2017 = 6210.0 - 0.4e-6 / 86400;
constexpr StandardCase kStandards[] = {
    {"before 2000", 0, KL_TIME_TAI, -0.25, {-1, 64800, 0}},
    {"nearest microsecond", 0, KL_TIME_TAI, 10.0 + 2.4 * kMicrosecond, {10, 0, 2}},
    {"a second from its microseconds", 0, KL_TIME_TAI, 5.0 + 1.9999997 / 86400, {5, 2, 0}},
    {"up to midnight", 0, KL_TIME_UTC, kJustBefore2017, {6210, 0, 0}},
    {"up to midnight, tiny and negative", 0, KL_TIME_UTC, -1e-20, {0, 0, 0}},
    {"up to a positive leap second", 1, KL_TIME_UTC, kJustBefore2017, {6209, 86400, 0}},
    {"on purpose up to a negative one, too", -1, KL_TIME_UTC, kJustBefore2017, {6209, 86400, 0}},
    {"not in another reference", 1, KL_TIME_TAI, kJustBefore2017, {6210, 0, 0}},
    {"not on another day", 1, KL_TIME_UTC, kJustBefore2017 - 1.0, {6209, 0, 0}},
};

TEST(ProcessingFormat, ToTheStandardRecordAndBack)
{
    for (const StandardCase &c : kStandards) {
        LeapId table(c.leap_sign);
        kl_std_record out{};
        EXPECT_EQ(KL_Time_p2t_format_to_std(&table.id, c.ref, &c.time, &out, nullptr), 0) << c.name;
        EXPECT_EQ(out.days, c.record.days) << c.name;
        EXPECT_EQ(out.seconds, c.record.seconds) << c.name;
        EXPECT_EQ(out.microseconds, c.record.microseconds) << c.name;
        double back = 0.0;
        EXPECT_EQ(KL_Time_t2p_format_from_std(&out, &back), 0) << c.name;
        EXPECT_NEAR(back, c.time, 0.5 * kMicrosecond + kSpacing2099) << c.name;
    }
}

TEST(ProcessingFormat, AFailingLeapSecondCheckIsReported)
{
    const double beyond = -19000.0 - 3e-12; // rounded up to the end of a day that the check refuses
    kl_std_record out{};
    kl_error_record error;
    EXPECT_EQ(KL_Time_p2t_format_to_std(nullptr, KL_TIME_UTC, &beyond, &out, &error), -1);
    EXPECT_EQ(message_of(error), "ORBKIT_LIB >>> ERROR in KL_Time_p2t_format_to_std: Error checking leap second");
    for (const double wild : {kNan, kInf, -kInf, 1e300, -1e17})
        EXPECT_EQ(KL_Time_p2t_format_to_std(nullptr, KL_TIME_UTC, &wild, &out, &error), 0) << wild;
    EXPECT_EQ(KL_Time_p2t_format_to_std(nullptr, KL_TIME_UTC, nullptr, &out, &error), -1);
}

} // namespace
