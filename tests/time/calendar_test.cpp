// Calendar, time references and the processing format.
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>
#include <ctime>

namespace {

enum { kMjd = 3, kUtcOfRecord = 5 }; // format and reference of a time record

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
#include "time/calendar_dates.inc"
};

std::string date_of(double days)
{
    const kl_time_record in = {kUtcOfRecord, kMjd, days};
    kl_calendar_record out{};
    EXPECT_EQ(KL_MJD_Calendar(&in, &out, nullptr), 0);
    return write(out);
}

TEST(MjdCalendar, KnownDates)
{
    for (const DateCase &c : kDates)
        EXPECT_EQ(date_of(c.mjd), c.date) << c.name;
}

TEST(MjdCalendar, RoundingUpToMidnightStaysOnTheSameDayWith86400SecondsOnPurpose)
{
    EXPECT_EQ(date_of(1.0 - 1e-12), "2000-1-1 86400 s 0 us");
}

// Against the calendar of the C library, at a time that doubles and microseconds hold, and back to the same number.
TEST(MjdCalendar, EveryDayOfTheRangeAndBack)
{
    for (long day = -18262; day < 36525; ++day) {
        const kl_time_record in = {kUtcOfRecord, kMjd, static_cast<double>(day) + 0.75 + 1.0 / 8192.0};
        kl_calendar_record date{};
        KL_MJD_Calendar(&in, &date, nullptr);
        const std::time_t unix_time = (day + 10957) * 86400L; // 10957 days from 1970 to 2000
        std::tm utc{};
        gmtime_r(&unix_time, &utc);
        const kl_calendar_record expected = {kUtcOfRecord, utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, 64810,
                                             546875};
        ASSERT_EQ(write(date), write(expected)) << day;
        kl_time_record out{};
        KL_Calendar_MJD(&date, &out, nullptr);
        ASSERT_EQ(out.value, in.value) << day;
        ASSERT_EQ(out.format, kMjd) << day;
        ASSERT_EQ(out.reference, kUtcOfRecord) << day;
    }
}

// ---- conditions ----

long to_calendar(double days, kl_error_record *error)
{
    const kl_time_record in = {kUtcOfRecord, kMjd, days};
    kl_calendar_record out = {7, 7, 7, 7, 7, 7};
    const long status = KL_MJD_Calendar(&in, &out, error);
    EXPECT_EQ(out.year == 7, status != 0);
    return status;
}

long to_mjd(const kl_calendar_record &date, kl_error_record *error)
{
    kl_time_record out = {0, 0, 7.0};
    const long status = KL_Calendar_MJD(&date, &out, error);
    EXPECT_EQ(out.value == 7.0, status != 0);
    return status;
}

long check_date(const kl_calendar_record &date, kl_error_record *error)
{
    int valid = 7;
    const long status = KL_Calendar(&date, &valid, error);
    EXPECT_EQ(valid, status == 0 ? 1 : 0);
    EXPECT_EQ(to_mjd(date, nullptr), status);
    return status;
}

long check_processing(long format, long ref, double days, kl_error_record *error)
{
    return KL_Time_check_processing_inputs(format, ref, &days, error);
}

long to_standard(double utc, kl_error_record *error)
{
    kl_std_record out{};
    return KL_Time_p2t_format_to_std(nullptr, kUtc, &utc, &out, error);
}

struct ConditionCase {
    const char *function;
    int code;
    const char *text;
    long (*call)(kl_error_record *error);
};
constexpr ConditionCase kConditions[] = {
#include "time/single_conditions.inc"
};

TEST(SingleFunctions, TableOfConditions)
{
    for (const ConditionCase &c : kConditions) {
        SCOPED_TRACE(&c - kConditions);
        kl_error_record error;
        EXPECT_EQ(c.call(&error), c.code < 0 ? 0 : -1);
        expect_error(error, c.function, c.text);
        EXPECT_TRUE(c.code < 0 || error.codes[0] == c.code);
    }
}

TEST(JulianDay, StartsAtMidnightHalfADayAfterTheAstronomicalOneOnPurpose)
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

struct ReferenceCase {
    long ref;
    int record_reference;
    bool checked, quietly_checked;
};
constexpr ReferenceCase kReferences[] = {
#include "time/reference_numbers.inc"
};

TEST(References, UndefinedPassesTheCheckAndNotTheQuietOneOnPurpose)
{
    for (const ReferenceCase &c : kReferences) {
        EXPECT_EQ(KL_Time_ref_enum_to_Time_enum(c.ref), c.record_reference) << c.ref;
        EXPECT_EQ(KL_Time_enum_to_Time_ref_enum(c.record_reference), c.record_reference >= 0 ? c.ref : -1);
        EXPECT_EQ(KL_Check_time_ref(&c.ref, nullptr), c.checked ? 0 : -1) << c.ref;
        EXPECT_EQ(KL_Check_time_ref_2(c.ref), c.quietly_checked ? 1 : 0) << c.ref;
    }
    for (const int no_scale : {-1, 0, 2, 7})
        EXPECT_EQ(KL_Time_enum_to_Time_ref_enum(no_scale), -1) << no_scale;
}

struct StandardCase {
    const char *name;
    IdName id;
    long ref;
    double time;
    Value record; // in its fields
};
constexpr double kJustBefore2017 = 6210.0 - 0.4e-6 / 86400;
const StandardCase kStandards[] = {
#include "time/standard_records.inc"
};

TEST(ProcessingFormat, ToTheStandardRecordAndBack)
{
    NamedIds ids;
    for (const StandardCase &c : kStandards) {
        kl_std_record out{};
        EXPECT_EQ(KL_Time_p2t_format_to_std(ids[c.id], c.ref, &c.time, &out, nullptr), 0) << c.name;
        EXPECT_EQ(fields_of({out.days, out.seconds, out.microseconds}), fields_of(c.record)) << c.name;
        double back = 0.0;
        EXPECT_EQ(KL_Time_t2p_format_from_std(&out, &back), 0) << c.name;
        EXPECT_NEAR(back, c.time, 0.5 * kMicrosecond + kSpacing2099) << c.name;
    }
}

} // namespace
