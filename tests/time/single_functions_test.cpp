// Calendar, time references, the standard record, sums and differences, TDB, and what single functions refuse.
#include "support/csv.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>

namespace {

enum { kMjd = 3, kUtcOfRecord = 5 }; // format and reference of a time record
constexpr double kJustBefore2017 = k2017 - 0.4e-6 / kDay;

std::string write(const kl_calendar_record &date)
{
    return std::to_string(date.year) + "-" + std::to_string(date.month) + "-" + std::to_string(date.day) + " "
           + std::to_string(date.seconds) + " s " + std::to_string(date.microseconds) + " us";
}

std::string date_of(double days)
{
    const kl_time_record in = {kUtcOfRecord, kMjd, days};
    kl_calendar_record out{};
    EXPECT_EQ(KL_MJD_Calendar(&in, &out, nullptr), 0);
    return write(out);
}

// The standard record of a processing time, as its fields.
std::string standard_of(kl_time_id *id, long ref, double time)
{
    kl_std_record out{};
    EXPECT_EQ(KL_Time_p2t_format_to_std(id, ref, &time, &out, nullptr), 0) << time;
    return fields_of({out.days, out.seconds, out.microseconds});
}

TEST(SingleFunctions, KnownValues)
{
    NamedIds ids;
    const kl_std_record outside = {20, 0, 0};
    kl_time_record mjd{};
    double start = 0.0;
    long flag = -7, after = -7, warning = -7;
    std::string months;
    for (long month = 1; month <= 12; ++month)
        months += kl_months[month] + std::string(" ");
#include "time/leap_second_rows.inc"
#include "time/single_values.inc"
#include "time/warning_flags.inc"
}

TEST(SingleFunctions, TableOfConditions)
{
    NamedIds ids;
    kl_time_id *const id = ids[kTenDays];
    const kl_cuc_config gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, kTai, 0.0, 4, 2};
    kl_calendar_record date = {7, 7, 7, 7, 7, 7};
    kl_time_record mjd = {0, 0, 7.0};
    kl_std_record standard{};
    int valid = 7;
    double time = 0.0, result = 7.0;
    long n = 0;
    unsigned char octets[KL_CUC_LENGTH] = {0};
#include "time/single_conditions.inc"
    EXPECT_EQ(std::tuple(valid, date.year, mjd.value), std::tuple(0, 7, 7.0));
#include "time/durations.inc"
#include "time/to_tai_conditions.inc"
}

TEST(MjdCalendar, RoundingUpToMidnightStaysOnTheSameDayWith86400SecondsOnPurpose)
{
    EXPECT_EQ(date_of(1.0 - 1e-12), "2000-1-1 86400 s 0 us");
}

TEST(JulianDay, StartsAtMidnightHalfADayAfterTheAstronomicalOneOnPurpose)
{
    EXPECT_EQ(KL_MJD_to_Julian(0.25), 2451545.25); // the astronomers' date of the noon that follows, and a quarter
}

TEST(References, UndefinedPassesTheCheckAndNotTheQuietOneOnPurpose)
{
    EXPECT_EQ(KL_Check_time_ref(at(long{KL_TIME_UNDEF}), nullptr), 0);
    EXPECT_EQ(KL_Check_time_ref_2(KL_TIME_UNDEF), 0);
}

TEST(LeapSecondDay, ANegativeLeapSecondKeeps86400SecondsAsWellOnPurpose)
{
    EXPECT_EQ(standard_of(NamedIds()[kNegativeLeap], kUtc, kJustBefore2017), "6209 86400 0 0");
}

// TDB - TAI, s, with mpmath; with the anomaly turned into radians it would differ by 0.14 ms and more.
TEST(Tdb, TheAnomalyInDegreesIsTakenAsRadiansOnPurpose)
{
    // The inverse evaluates the term at the TDB instant, 32 s on: 0.0017 s times 0.986 rad a day times 32 s.
    constexpr double kTermMoves = 0.0017 * 0.9856 * 32.2 / kDay / kDay; // days
    for (const auto &row : read_table("tdb.csv", 2)) {
        const double tai = row[0], difference = row[1];
        double tdb = 0.0, back = 0.0;
        EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb), 0);
        EXPECT_EQ(KL_Time_p2p_ref_tdb_to_tai(&tdb, &back), 0);
        const double spacing = std::nextafter(std::fabs(tai) + 1e-3, HUGE_VAL) - (std::fabs(tai) + 1e-3);
        EXPECT_NEAR((tdb - tai) * kDay, difference, spacing * kDay + 1e-12) << tai;
        EXPECT_NEAR(back, tai, 1.1 * kTermMoves + 2.0 * spacing) << tai;
    }
    const double far = 1e20; // where a term out of its range would show, and half a minute does not
    double tdb = 0.0;
    EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(&far, &tdb), 0);
    EXPECT_EQ(tdb, far);
}

} // namespace
