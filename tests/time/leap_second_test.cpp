// Leap seconds: the quarter they fall on, the day and the second of the one an id knows, and what becomes of instants
// around it.
#include "time/time_table.h"

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr long k2017Day = 6210;
constexpr long kUnixDay = 10957; // days from 1970-01-01 to 2000-01-01

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kThinning = 11;
#else
constexpr long kThinning = 1;
#endif

// ---- start of the quarter ----

double quarter_of(double time, long ref = KL_TIME_UTC)
{
    double start = kNaN;
    EXPECT_EQ(KL_Leap_second_utc_time(&ref, &time, &start, nullptr), 0) << time;
    return start;
}

TEST(QuarterStart, IsThatOfEveryDayFrom1950To2099)
{
    for (long day = -18262; day < 36524; ++day) {
        const std::time_t seconds = (day + kUnixDay) * 86400;
        std::tm date{};
        gmtime_r(&seconds, &date); // the C library's calendar
        date.tm_mon -= date.tm_mon % 3;
        date.tm_mday = 1;
        const double want = static_cast<double>(timegm(&date) / 86400 - kUnixDay);
        ASSERT_EQ(quarter_of(static_cast<double>(day)), want) << day;
        ASSERT_EQ(quarter_of(static_cast<double>(day) + 0.999), want) << day;
    }
}

TEST(QuarterStart, NoiseUnderMidnightBelongsToTheNextDay)
{
    EXPECT_EQ(quarter_of(k2017 - 1e-12), k2017);
    EXPECT_EQ(quarter_of(k2017 - 1e-10), k2017 - 92.0);
}

TEST(QuarterStart, TellsWhatIsWrong)
{
    struct Case {
        const char *name;
        long ref;
        double time;
        int code;
    };
    constexpr Case kCases[] = {
        {"no reference", KL_TIME_UNDEF, 0.0, 0},
        {"reference", 4, 0.0, 0},
        {"too early", 1, -18262.5, 1},
        {"too late", 1, 36524.5, 1},
        {"no number", 1, kNaN, 1},
        {"both", 7, kNaN, 0},
    };
    for (const Case &c : kCases) {
        double start = 77.0;
        kl_error_record error;
        EXPECT_EQ(KL_Leap_second_utc_time(&c.ref, &c.time, &start, &error), -1) << c.name;
        EXPECT_EQ(error.count, 1) << c.name;
        EXPECT_EQ(error.codes[0], c.code) << c.name;
        EXPECT_EQ(start, 77.0) << c.name;
    }
    const long utc = KL_TIME_UTC;
    const double time = 0.0;
    double start = 0.0;
    EXPECT_EQ(KL_Leap_second_utc_time(nullptr, &time, &start, nullptr), -1);
    EXPECT_EQ(KL_Leap_second_utc_time(&utc, nullptr, &start, nullptr), -1);
    EXPECT_EQ(KL_Leap_second_utc_time(&utc, &time, nullptr, nullptr), -1);
}

// ---- the leap second of a table ----

kl_time_id_data leap_of(Table &table)
{
    OwnedTimeId id;
    EXPECT_EQ(table.set(&id.id), 0);
    kl_time_id_data data{};
    EXPECT_EQ(kl_time_get_id_data(&id.id, &data), 0);
    kl_time_free_id_data(&data);
    return data;
}

TEST(LeapSecond, IsTheLastChangeOfTaiUtcAtTheStartOfItsQuarter)
{
    struct Case {
        const char *name;
        std::vector<kl_time_row> rows;
        long sign;
        double utc, tai;
    };
    const Case cases[] = {
        {"none", {row_at(6000, 36, 35.9), row_at(6300, 36, 36.1)}, 0, 0.0, 0.0},
        {"30 December and 1 January", {row_at(6208, 36, 36.4), row_at(6210, 37, 36.4)}, 1, 6210, 6210 + 36 / kDay},
        {"the later row in the middle of the quarter",
         {row_at(6150, 36, 36.4), row_at(6255, 37, 36.5)}, // 2017-02-15
         1,
         6210,
         6210 + 36 / kDay},
        {"two changes: only the later one is known",
         {row_at(5000, 35, 35.4), row_at(5660, 36, 36.1), row_at(6209, 36, 36.4), row_at(6210, 37, 36.4)},
         1,
         6210,
         6210 + 36 / kDay},
        {"up and down again",
         {row_at(5000, 36, 36.4), row_at(5660, 37, 36.4), row_at(6210, 36, 36.4)},
         -1,
         6210,
         6210 + 37 / kDay},
        {"negative", {row_at(6209, 37, 36.4), row_at(6210, 36, 36.4)}, -1, 6210, 6210 + 37 / kDay},
    };
    for (const Case &c : cases) {
        Table table(c.rows);
        const kl_time_id_data data = leap_of(table);
        EXPECT_EQ(data.leap_sign, c.sign) << c.name;
        EXPECT_EQ(data.leap_utc, c.utc) << c.name;
        EXPECT_NEAR(data.leap_tai, c.tai, 1.9e-12) << c.name;
    }
}

TEST(LeapSecondDay, IsTheDayThatEndsWithIt)
{
    OwnedTimeId id;
    Table table = leap_table(k2017, 36.0, 1);
    ASSERT_EQ(table.set(&id.id), 0);
    for (long day = k2017Day - 400; day < k2017Day + 400; ++day) {
        const kl_std_record record = {day, 0, 0};
        long flag = -7;
        ASSERT_EQ(KL_Time_check_leap_second(&id.id, KL_TIME_UTC, &record, &flag, nullptr), 0);
        ASSERT_EQ(flag, day == k2017Day - 1 ? 1 : 0) << day;
    }
    long flag = -7;
    const kl_std_record last_day = {k2017Day - 1, 0, 0};
    EXPECT_EQ(KL_Time_check_leap_second(nullptr, KL_TIME_UTC, &last_day, &flag, nullptr), 0);
    EXPECT_EQ(flag, 0);
    // The reference is not compared with UTC.
    EXPECT_EQ(KL_Time_check_leap_second(&id.id, KL_TIME_TAI, &last_day, &flag, nullptr), 0);
    EXPECT_EQ(flag, 1);

    struct Case {
        long ref, days;
        int code;
    };
    constexpr Case kCases[] = {{-1, 0, 0}, {4, 0, 0}, {1, -18263, 1}, {1, 36525, 1}, {4, 36525, 0}};
    for (const Case &c : kCases) {
        const kl_std_record record = {c.days, 0, 0};
        kl_error_record error;
        EXPECT_EQ(KL_Time_check_leap_second(&id.id, c.ref, &record, &flag, &error), -1);
        EXPECT_EQ(error.codes[0], c.code) << c.ref << " " << c.days;
        EXPECT_EQ(flag, 0);
    }
    EXPECT_EQ(KL_Time_check_leap_second(&id.id, KL_TIME_UTC, nullptr, &flag, nullptr), -1);
    EXPECT_EQ(KL_Time_check_leap_second(&id.id, KL_TIME_UTC, &last_day, nullptr, nullptr), 0);
}

TEST(LeapSecondDay, ANegativeLeapSecondKeeps86400SecondsAsWell)
{
    for (const int sign : {1, -1, 0}) {
        OwnedTimeId id;
        Table table = leap_table(k2017, 37.0, sign);
        ASSERT_EQ(table.set(&id.id), 0);
        const double under_midnight = k2017 - 1e-12; // rounds up to midnight
        kl_std_record record{};
        ASSERT_EQ(KL_Time_p2t_format_to_std(&id.id, KL_TIME_UTC, &under_midnight, &record, nullptr), 0);
        EXPECT_EQ(record.days, sign != 0 ? k2017Day - 1 : k2017Day) << sign;
        EXPECT_EQ(record.seconds, sign != 0 ? 86400 : 0) << sign;
        EXPECT_EQ(record.microseconds, 0) << sign;
    }
}

// ---- flags of the look-up ----

TEST(LeapFlags, RunFromHalfAMicrosecondBeforeToAMicrosecondShortOfTheEnd)
{
    struct Case {
        const char *name;
        double microseconds; // from the instant
        bool in, after;
    };
    constexpr Case kCases[] = {
        {"a minute before", -60e6, false, false},
        {"0.6 microseconds before", -0.6, false, false},
        {"0.4 microseconds before", -0.4, true, false},
        {"0.2 microseconds after", 0.2, true, true},
        {"in the middle", 5e5, true, true},
        {"two microseconds short of the end", 999998.0, true, true},
        {"half a microsecond short of it", 999999.5, false, true},
        {"a second after", 1e6, false, true},
        {"ten hours after", 36e9, false, true},
    };
    for (const double phase : {0.0, 0.5}) {
        OwnedTimeId id;
        Table table = leap_table(k2017, 36.0, 1, phase);
        ASSERT_EQ(table.set(&id.id), 0);
        const kl_time_id_data data = leap_of(table);
        for (const Case &c : kCases) {
            const double days = c.microseconds / 8.64e10;
            const Deltas tai = deltas_at(&id.id, KL_TIME_TAI, data.leap_tai + days);
            // With rows at midnight the TAI row changes at the end of the leap second, and the flags with it.
            const bool next_row = phase == 0.0 && c.microseconds >= 1e6;
            EXPECT_EQ(tai.in_leap, c.in) << c.name;
            EXPECT_EQ(tai.after_leap, c.after && !next_row) << c.name;
            EXPECT_EQ(tai.tai_utc, c.in || c.after ? 37.0 : 36.0) << c.name;
            if (phase == 0.0 && c.microseconds < 0.0)
                continue; // UTC before midnight is in the row before, which does not hold the instant
            const Deltas utc = deltas_at(&id.id, KL_TIME_UTC, data.leap_utc + days);
            EXPECT_EQ(utc.in_leap, c.in) << c.name << ", UTC";
            EXPECT_EQ(utc.after_leap, c.after) << c.name << ", UTC";
            EXPECT_EQ(utc.tai_utc, c.in || c.after ? 37.0 : 36.0) << c.name << ", UTC";
            // UT1 and GPS come to UTC with the differences of the row before.
            if (phase == 0.5) {
                const kl_time_row &row = table.rows[2];
                const double gps = data.leap_utc + days + (row.tai_utc - row.tai_gps) / kDay;
                const double ut1 = data.leap_utc + days + (row.tai_utc - row.tai_ut1) / kDay;
                EXPECT_EQ(deltas_at(&id.id, KL_TIME_GPS, gps).in_leap, c.in) << c.name << ", GPS";
                EXPECT_EQ(deltas_at(&id.id, KL_TIME_UT1, ut1).after_leap, c.after) << c.name << ", UT1";
            }
        }
    }
}

TEST(LeapFlags, NeedALeapSecondAndARowThatHoldsIt)
{
    OwnedTimeId with;
    Table table = leap_table(k2017, 36.0, 1);
    ASSERT_EQ(table.set(&with.id), 0);
    OwnedTimeId without;
    Table even = leap_table(k2017, 36.0, 0);
    ASSERT_EQ(even.set(&without.id), 0);
    const double tai = k2017 + 36.5 / kDay;
    const double wide[2] = {0.0, 10000.0};
    long in = -7;
    long after = -7;
    struct Case {
        const char *name;
        kl_time_id *id;
        long ref, row;
        double first, last;
        long status, flags;
    };
    const Case cases[] = {
        {"in TAI any interval that holds the instant", &with.id, KL_TIME_TAI, 2, wide[0], wide[1], 0, 1},
        {"in TAI an interval that does not", &with.id, KL_TIME_TAI, 2, tai, wide[1], 0, 0},
        {"in UTC only the row counts", &with.id, KL_TIME_UTC, 3, wide[0], wide[1], 0, 1},
        {"in UTC the row before", &with.id, KL_TIME_UTC, 2, wide[0], wide[1], 0, 0},
        {"in UTC the last row has no end", &with.id, KL_TIME_UTC, 6, wide[0], wide[1], 0, 0},
        {"no leap second", &without.id, KL_TIME_TAI, 2, wide[0], wide[1], 0, 0},
        {"row -1", &with.id, KL_TIME_UTC, -1, wide[0], wide[1], -1, 0},
        {"row 7", &with.id, KL_TIME_UTC, 7, wide[0], wide[1], -1, 0},
        {"no id", nullptr, KL_TIME_UTC, 0, wide[0], wide[1], -1, 0},
    };
    for (const Case &c : cases) {
        const double time = c.ref == KL_TIME_TAI ? tai : k2017 + 0.5 / kDay;
        EXPECT_EQ(KL_Check_if_time_is_post_leap_second(c.id, c.ref, c.row, &in, &after, c.first, c.last, time),
                  c.status)
            << c.name;
        EXPECT_EQ(in, c.flags) << c.name;
        EXPECT_EQ(after, c.flags) << c.name;
    }
    EXPECT_EQ(KL_Check_if_time_is_post_leap_second(&with.id, 0, 2, nullptr, &after, 0.0, 1.0, 0.5), -1);
}

// ---- instants around a leap second ----

double processing(long days, long seconds, long microseconds)
{
    const kl_std_record record = {days, seconds, microseconds};
    double t = 0.0;
    KL_Time_t2p_format_from_std(&record, &t);
    return t;
}

// Every step of `microseconds` between two microseconds around leap_day 0h, UTC to TAI and back, in order. A negative
// leap second has no second 86399.
void sweep(kl_time_id *id, long leap_day, int sign, long first, long last, long microseconds)
{
    double tai_before = -1e9;
    for (long i = first; i <= last; i += microseconds) {
        const long second = i >= 0 ? i / 1000000 : -((-i + 999999) / 1000000);
        if (sign < 0 && second == -1)
            continue;
        const long day = second >= 0 ? leap_day : leap_day - 1;
        const double utc = processing(day, second >= 0 ? second : second + 86400, i - second * 1000000);
        const Converted tai = convert(id, KL_TIME_UTC, utc, KL_TIME_TAI);
        const Converted back = convert(id, KL_TIME_TAI, tai.time, KL_TIME_UTC);
        ASSERT_TRUE(tai.ierr == 0 && back.ierr == 0) << i;
        ASSERT_EQ(back.time, utc) << i << " microseconds from midnight";
        ASSERT_LT(tai_before, tai.time) << i;
        tai_before = tai.time;
    }
}

TEST(AroundALeapSecond, EveryInstantGoesToTaiAndBackInOrder)
{
    // KITLIB_FULL_SWEEPS=1: every millisecond of a day on both sides (minutes); else those of a minute, and a sample.
    const char *full = std::getenv("KITLIB_FULL_SWEEPS");
    constexpr long kSecond = 1000000;
    constexpr long kDayLong = 86400 * kSecond;
    for (const int sign : {1, -1})
        for (const double phase : {0.0, 0.5}) {
            OwnedTimeId id;
            Table table = leap_table(k2017, sign > 0 ? 36.0 : 37.0, sign, phase);
            ASSERT_EQ(table.set(&id.id), 0);
            sweep(&id.id, k2017Day, sign, -2 * kSecond, 2 * kSecond, phase == 0.0 ? kThinning : 7 * kThinning);
            if (full != nullptr && full[0] == '1') {
                sweep(&id.id, k2017Day, sign, -kDayLong, kDayLong - 1000, 1000);
            } else {
                sweep(&id.id, k2017Day, sign, -60 * kSecond, 60 * kSecond, 1000 * kThinning);
                sweep(&id.id, k2017Day, sign, -kDayLong, kDayLong - 1000, 1009 * 1000 * kThinning);
            }
        }
}

TEST(AroundALeapSecond, TheSixtyFirstSecondGoesToTaiAndBackInTheStandardRecord)
{
    // Each of the 27 (and one more that never was) with its own TAI-UTC, microsecond by microsecond at the ends.
    for (const TaiUtcStep &leap : kTaiUtcSteps)
        for (const double phase : {0.0, 0.5}) {
            const double leap_utc = leap.mjd - 51544.0;
            const long day = static_cast<long>(leap_utc) - 1;
            OwnedTimeId id;
            Table table = leap_table(leap_utc, leap.tai_utc - 1, 1, phase);
            ASSERT_EQ(table.set(&id.id), 0);
            for (long us = 0; us < 1000000; us = us == 2                       ? 3333
                                                 : us > 2 && us < 996669       ? us + 3333
                                                 : us >= 996669 && us < 999997 ? 999997
                                                                               : us + 1) {
                const kl_std_record utc = {day, 86400, us};
                kl_std_record tai{};
                kl_std_record back{};
                ASSERT_EQ(KL_Time_t2t_ref_to_tai(&id.id, KL_TIME_UTC, &utc, &tai, nullptr), 0);
                ASSERT_EQ(tai.days, day + 1);
                ASSERT_EQ(tai.seconds, static_cast<long>(leap.tai_utc) - 1) << us;
                ASSERT_EQ(tai.microseconds, us);
                ASSERT_EQ(KL_Time_t2t_ref_from_tai(&id.id, KL_TIME_UTC, &tai, &back, nullptr), 0);
                ASSERT_EQ(back.days, utc.days) << leap.mjd << " " << us;
                ASSERT_EQ(back.seconds, utc.seconds) << leap.mjd << " " << us;
                ASSERT_EQ(back.microseconds, utc.microseconds) << leap.mjd << " " << us;
            }
        }
}

TEST(AroundALeapSecond, TheProcessingFormatFoldsTheSixtyFirstSecondOntoTheOneBefore)
{
    for (const double phase : {0.0, 0.5}) {
        OwnedTimeId id;
        Table table = leap_table(k2017, 36.0, 1, phase);
        ASSERT_EQ(table.set(&id.id), 0);
        for (long us = 0; us < 1000000; us += 37 * kThinning) {
            const double tai = processing(k2017Day, 36, us);
            ASSERT_EQ(convert(&id.id, KL_TIME_TAI, tai, KL_TIME_UTC).time, processing(k2017Day - 1, 86399, us)) << us;
        }
    }
}

TEST(AroundALeapSecond, TheSecondThatANegativeOneTakesAwayComesOutAsTheNext)
{
    for (const double phase : {0.0, 0.5}) {
        OwnedTimeId id;
        Table table = leap_table(k2017, 37.0, -1, phase);
        ASSERT_EQ(table.set(&id.id), 0);
        const double gone = processing(k2017Day - 1, 86399, 250000);
        const double tai = convert(&id.id, KL_TIME_UTC, gone, KL_TIME_TAI).time;
        EXPECT_EQ(tai, processing(k2017Day, 36, 250000));
        EXPECT_EQ(convert(&id.id, KL_TIME_TAI, tai, KL_TIME_UTC).time, processing(k2017Day, 0, 250000));
    }
}

TEST(AroundALeapSecond, Ut1AndGpsRunOnThroughIt)
{
    OwnedTimeId id;
    Table table = leap_table(k2017, 36.0, 1);
    ASSERT_EQ(table.set(&id.id), 0);
    double before[2] = {-1e9, -1e9};
    for (long ms = 30000; ms < 45000; ++ms) {
        const double tai = processing(k2017Day, ms / 1000, ms % 1000 * 1000);
        const double ut1 = convert(&id.id, KL_TIME_TAI, tai, KL_TIME_UT1).time;
        const double gps = convert(&id.id, KL_TIME_TAI, tai, KL_TIME_GPS).time;
        ASSERT_NEAR((tai - ut1) * kDay, 36.3, 2e-6);
        ASSERT_NEAR((tai - gps) * kDay, 19.0, 1e-6);
        ASSERT_TRUE(ut1 > before[0] && gps > before[1]);
        before[0] = ut1;
        before[1] = gps;
    }
}

// ---- the query ----

struct Info {
    long status, ierr, sign;
    std::string before, after;
};
Info info(kl_time_id *id, long format)
{
    char before[KL_TIME_ASCII_LENGTH] = "untouched";
    char after[KL_TIME_ASCII_LENGTH] = "untouched";
    Info out{KL_OK, -1, -7, "", ""};
    out.status = kl_time_get_leap_second_info(id, &format, &out.sign, before, after, &out.ierr);
    out.before = before;
    out.after = after;
    return out;
}

TEST(LeapSecondInfo, WritesBothInstantsInEveryLayout)
{
    struct Case {
        long format;
        const char *before, *after;
    };
    constexpr Case kCases[] = {
        {KL_ASCII_11, "2016-12-31_23:59:59", "2017-01-01_00:00:00"},
        {KL_ASCII_13, "2016-12-31_23:59:59.000012", "2017-01-01_00:00:00.000000"},
        {KL_ASCII_24, "UTC=20161231_235959000012", "UTC=20170101_000000000000"},
        {KL_ASCII_32, "UTC=31-DEC-2016 23:59:59", "UTC=01-JAN-2017 00:00:00"},
        {KL_ASCII_43, "2016-12-31T23:59:59.000012", "2017-01-01T00:00:00.000000"},
        {KL_ASCII_51, "20161231T235959", "20170101T000000"},
    };
    for (const int sign : {1, -1}) {
        OwnedTimeId id;
        Table table = leap_table(k2017, 36.0, sign);
        ASSERT_EQ(table.set(&id.id), 0);
        for (const Case &c : kCases) {
            const Info got = info(&id.id, c.format);
            EXPECT_EQ(got.status, KL_OK);
            EXPECT_EQ(got.ierr, 0);
            EXPECT_EQ(got.sign, sign);
            EXPECT_EQ(got.before, c.before); // for a negative leap second too
            EXPECT_EQ(got.after, c.after);
        }
    }
}

TEST(LeapSecondInfo, TellsWhatIsMissingWithSignZeroAndEmptyTexts)
{
    OwnedTimeId with;
    Table table = leap_table(k2017, 36.0, 1);
    ASSERT_EQ(table.set(&with.id), 0);
    OwnedTimeId without;
    Table even = leap_table(k2017, 36.0, 0);
    ASSERT_EQ(even.set(&without.id), 0);
    OwnedTimeId explicit_values;
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, &explicit_values.id, nullptr);
    kl_time_id none{};
    constexpr long kFormatErr = error_bit(KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR);
    constexpr long kNoId = warning_bit(KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN);
    struct Case {
        const char *name;
        kl_time_id *id;
        long format, status, ierr;
    };
    const Case cases[] = {
        {"format 0", &with.id, 0, KL_ERR, kFormatErr},
        {"format 15", &with.id, 15, KL_ERR, kFormatErr},
        {"format 55", &with.id, 55, KL_ERR, kFormatErr},
        {"format -11", &with.id, -11, KL_ERR, kFormatErr},
        {"no id", &none, 11, KL_WARN, kNoId},
        {"NULL id", nullptr, 11, KL_WARN, kNoId},
        {"format and id", nullptr, 0, KL_ERR, kFormatErr},
        {"no leap second", &without.id, 11, KL_OK, 0},
        {"explicit values", &explicit_values.id, 11, KL_OK, 0},
    };
    for (const Case &c : cases) {
        const Info got = info(c.id, c.format);
        EXPECT_EQ(got.status, c.status) << c.name;
        EXPECT_EQ(got.ierr, c.ierr) << c.name;
        EXPECT_EQ(got.sign, 0) << c.name;
        EXPECT_EQ(got.before, "") << c.name;
        EXPECT_EQ(got.after, "") << c.name;
    }
    const long format = 11;
    long sign = -7;
    char text[KL_TIME_ASCII_LENGTH] = "";
    kl_time_id *id = &with.id;
    // clang-format off
    expect_refused({
        {0, [&](long *e) { return kl_time_get_leap_second_info(id, nullptr, &sign, text, text, e); }},
        {-1, [&](long *e) { return kl_time_get_leap_second_info(id, &format, nullptr, text, text, e); }},
        {-1, [&](long *e) { return kl_time_get_leap_second_info(id, &format, &sign, nullptr, text, e); }},
        {-1, [&](long *e) { return kl_time_get_leap_second_info(id, &format, &sign, text, nullptr, e); }},
    });
    // clang-format on
}

TEST(LeapSecondInfo, LeavesTheOnceOnlyWarningsAlone)
{
    OwnedTimeId id;
    Table table = leap_table(k2017, 36.0, 1);
    ASSERT_EQ(table.set(&id.id), 0);
    constexpr long kOutsideOnce = 1L << 9;
    EXPECT_NE(convert(&id.id, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
    EXPECT_EQ(info(&id.id, KL_ASCII_11).sign, 1);
    EXPECT_EQ(convert(&id.id, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
}

} // namespace
