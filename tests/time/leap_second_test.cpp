// Leap seconds: the quarter they fall on, the day and the second of the one an id knows, and what becomes of instants
// around it.
#include "time/time_table.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

constexpr long k2017Day = 6210;
constexpr long kUnixDay = 10957; // days from 1970-01-01 to 2000-01-01

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kThinning = 11;
#else
constexpr long kThinning = 1;
#endif

enum GivenId { kNullId, kEmptyId, kReadings, kEvenTable, kLeap, kNegativeLeap };

struct QuarterCase {
    const char *name;
    long ref;
    double time;
    int code;
    double start;
};
struct TableCase {
    const char *name;
    std::vector<kl_time_row> rows;
    long sign;
    double utc, tai_utc;
};
struct DayCase {
    const char *name;
    long ref, days, code, flag;
};
struct FlagCase {
    const char *name;
    double microseconds;
    bool in, after;
};
struct RowCase {
    const char *name;
    GivenId id;
    long ref, row;
    double first, last;
    long status, flags;
};
struct InfoCase {
    GivenId id;
    long format, ierr, sign;
    const char *before, *after;
};
#include "time/leap_second_cases.inc"

// One id of each kind, all but the first two with data of the end of 2016.
struct LeapSeconds : testing::Test {
    kl_time_id none{};
    ReadingsId readings{0.0, 0.0, 0.0, 0.0};
    TableId even{leap_table(k2017, 36.0, 0)}, leap{leap_table(k2017, 36.0, 1)}, negative{leap_table(k2017, 36.0, -1)};
    kl_time_id *const ids[6] = {nullptr, &none, readings, even, leap, negative};
};
using LeapSecondDay = LeapSeconds;
using LeapFlags = LeapSeconds;
using LeapSecondInfo = LeapSeconds;

// ---- the quarter, the leap second of a table and its day ----

TEST(QuarterStart, IsThatOfEveryDayFrom1950To2099OnPurpose)
{
    const long utc = KL_TIME_UTC;
    for (long day = -18262; day < 36524; ++day) {
        const std::time_t seconds = (day + kUnixDay) * 86400;
        std::tm date{};
        gmtime_r(&seconds, &date); // the C library's calendar
        date.tm_mon -= date.tm_mon % 3;
        date.tm_mday = 1;
        const double want = static_cast<double>(timegm(&date) / 86400 - kUnixDay);
        for (const double part : {0.0, 0.999}) {
            const double time = static_cast<double>(day) + part;
            double start = kNaN;
            ASSERT_EQ(KL_Leap_second_utc_time(&utc, &time, &start, nullptr), 0) << time;
            ASSERT_EQ(start, want) << time;
        }
    }
}

TEST(QuarterStart, TellsWhatIsWrong)
{
    for (const QuarterCase &c : kQuarters) {
        double start = 77.0;
        kl_error_record error;
        EXPECT_EQ(KL_Leap_second_utc_time(&c.ref, &c.time, &start, &error), c.code == kNone ? 0 : -1) << c.name;
        EXPECT_EQ(error.count, c.code == kNone ? 0 : 1) << c.name;
        EXPECT_TRUE(c.code == kNone || error.codes[0] == c.code) << c.name;
        EXPECT_EQ(start, c.start) << c.name;
        for (long missing = 0; missing < 3; ++missing) {
            const AllBut given{missing};
            EXPECT_EQ(KL_Leap_second_utc_time(given(0, &c.ref), given(1, &c.time), given(2, &start), nullptr), -1);
        }
    }
}

TEST(LeapSecond, IsTheLastChangeOfTaiUtcAtTheStartOfItsQuarter)
{
    for (const TableCase &c : kTables) {
        kl_time_id_data data{};
        EXPECT_EQ(kl_time_get_id_data(TableId(Table(c.rows)), &data), 0);
        kl_time_free_id_data(&data);
        EXPECT_EQ(data.leap_sign, c.sign) << c.name;
        EXPECT_EQ(data.leap_utc, c.utc) << c.name;
        EXPECT_NEAR(data.leap_tai, c.utc + c.tai_utc / kDay, 1.9e-12) << c.name;
    }
}

TEST_F(LeapSecondDay, IsTheDayThatEndsWithIt)
{
    long flag = -7;
    for (long day = k2017Day - 400; day < k2017Day + 400; ++day) {
        const kl_std_record record = {day, 0, 0};
        ASSERT_EQ(KL_Time_check_leap_second(leap, KL_TIME_UTC, &record, &flag, nullptr), 0);
        ASSERT_EQ(flag, day == k2017Day - 1 ? 1 : 0) << day;
    }
    for (const DayCase &c : kDays) {
        const kl_std_record record = {c.days, 0, 0};
        kl_error_record error;
        EXPECT_EQ(KL_Time_check_leap_second(leap, c.ref, &record, &flag, &error), c.code == kNone ? 0 : -1) << c.name;
        EXPECT_TRUE(c.code == kNone || error.codes[0] == c.code) << c.name;
        EXPECT_EQ(flag, c.flag) << c.name;
    }
    const kl_std_record last_day = {k2017Day - 1, 0, 0};
    EXPECT_EQ(KL_Time_check_leap_second(nullptr, KL_TIME_UTC, &last_day, &flag, nullptr), 0);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(KL_Time_check_leap_second(leap, KL_TIME_UTC, nullptr, &flag, nullptr), -1);
    EXPECT_EQ(KL_Time_check_leap_second(leap, KL_TIME_UTC, &last_day, nullptr, nullptr), 0);
}

TEST_F(LeapSecondDay, ANegativeLeapSecondKeeps86400SecondsAsWellOnPurpose)
{
    const double under_midnight = k2017 - 1e-12; // rounds up to midnight
    for (const GivenId given : {kEvenTable, kLeap, kNegativeLeap}) {
        kl_std_record record{};
        ASSERT_EQ(KL_Time_p2t_format_to_std(ids[given], KL_TIME_UTC, &under_midnight, &record, nullptr), 0);
        EXPECT_EQ(record.days, given == kEvenTable ? k2017Day : k2017Day - 1) << given;
        EXPECT_EQ(record.seconds, given == kEvenTable ? 0 : 86400) << given;
        EXPECT_EQ(record.microseconds, 0) << given;
    }
}

// ---- flags of the look-up ----

TEST_F(LeapFlags, RunFromHalfAMicrosecondBeforeToAMicrosecondShortOfTheEnd)
{
    for (const double phase : {0.0, 0.5}) {
        const Table table = leap_table(k2017, 36.0, 1, phase);
        TableId id(table);
        const auto expect = [&](long ref, double time, bool in, bool after, double tai_utc, const char *name) {
            const Deltas deltas = deltas_at(id, ref, time);
            EXPECT_EQ(deltas.in_leap, in) << name << ", scale " << ref;
            EXPECT_EQ(deltas.after_leap, after) << name << ", scale " << ref;
            EXPECT_EQ(deltas.tai_utc, tai_utc) << name << ", scale " << ref;
        };
        for (const FlagCase &c : kFlags) {
            const double utc = k2017 + c.microseconds / 8.64e10;
            const double tai_utc = c.in || c.after ? 37.0 : 36.0;
            // With rows at midnight the TAI row changes at the end of the leap second, and the flags with it.
            const bool next_row = phase == 0.0 && c.microseconds >= 1e6;
            expect(KL_TIME_TAI, utc + 36.0 / kDay, c.in, c.after && !next_row, tai_utc, c.name);
            if (phase == 0.0 && c.microseconds < 0.0)
                continue; // UTC before midnight is in the row before, which does not hold the instant
            expect(KL_TIME_UTC, utc, c.in, c.after, tai_utc, c.name);
            if (phase == 0.0)
                continue;
            // UT1 and GPS come to UTC with the differences of the row before.
            const kl_time_row &row = table.rows[2];
            expect(KL_TIME_GPS, utc + (row.tai_utc - row.tai_gps) / kDay, c.in, c.after, tai_utc, c.name);
            expect(KL_TIME_UT1, utc + (row.tai_utc - row.tai_ut1) / kDay, c.in, c.after, tai_utc, c.name);
        }
    }
}

TEST_F(LeapFlags, NeedALeapSecondAndARowThatHoldsIt)
{
    long in = -7, after = -7;
    for (const RowCase &c : kRows) {
        const double time = k2017 + (c.ref == KL_TIME_TAI ? 36.5 : 0.5) / kDay;
        EXPECT_EQ(KL_Check_if_time_is_post_leap_second(ids[c.id], c.ref, c.row, &in, &after, c.first, c.last, time),
                  c.status)
            << c.name;
        EXPECT_EQ(in, c.flags) << c.name;
        EXPECT_EQ(after, c.flags) << c.name;
    }
    EXPECT_EQ(KL_Check_if_time_is_post_leap_second(leap, 0, 2, nullptr, &after, 0.0, 1.0, 0.5), -1);
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
            TableId id(leap_table(k2017, sign > 0 ? 36.0 : 37.0, sign, phase));
            sweep(id, k2017Day, sign, -2 * kSecond, 2 * kSecond, phase == 0.0 ? kThinning : 7 * kThinning);
            if (full != nullptr && full[0] == '1') {
                sweep(id, k2017Day, sign, -kDayLong, kDayLong - 1000, 1000);
            } else {
                sweep(id, k2017Day, sign, -60 * kSecond, 60 * kSecond, 1000 * kThinning);
                sweep(id, k2017Day, sign, -kDayLong, kDayLong - 1000, 1009 * 1000 * kThinning);
            }
        }
}

TEST(AroundALeapSecond, TheSixtyFirstSecondGoesToTaiAndBackAndFoldsOntoTheOneBeforeInDays)
{
    // Each of the 27 (and one more that never was) with its own TAI-UTC, microsecond by microsecond at the ends.
    for (const TaiUtcStep &step : kTaiUtcSteps)
        for (const double phase : {0.0, 0.5}) {
            const double leap_utc = step.mjd - 51544.0;
            const long day = static_cast<long>(leap_utc) - 1;
            TableId id(leap_table(leap_utc, step.tai_utc - 1, 1, phase));
            for (long us = 0; us < 1000000; us = us < 2 || us >= 999990 ? us + 1 : std::min(us + 3333, 999990L)) {
                const kl_std_record utc = {day, 86400, us};
                kl_std_record tai{}, back{};
                ASSERT_EQ(KL_Time_t2t_ref_to_tai(id, KL_TIME_UTC, &utc, &tai, nullptr), 0);
                ASSERT_EQ(tai.days, day + 1);
                ASSERT_EQ(tai.seconds, static_cast<long>(step.tai_utc) - 1) << us;
                ASSERT_EQ(tai.microseconds, us);
                ASSERT_EQ(KL_Time_t2t_ref_from_tai(id, KL_TIME_UTC, &tai, &back, nullptr), 0);
                ASSERT_EQ(back.days, utc.days) << step.mjd << " " << us;
                ASSERT_EQ(back.seconds, utc.seconds) << step.mjd << " " << us;
                ASSERT_EQ(back.microseconds, utc.microseconds) << step.mjd << " " << us;
                ASSERT_EQ(convert(id, KL_TIME_TAI, processing(tai.days, tai.seconds, us), KL_TIME_UTC).time,
                          processing(day, 86399, us))
                    << step.mjd << " " << us;
            }
        }
}

TEST(AroundALeapSecond, TheSecondThatANegativeOneTakesAwayComesOutAsTheNext)
{
    for (const double phase : {0.0, 0.5}) {
        TableId id(leap_table(k2017, 37.0, -1, phase));
        const double tai = convert(id, KL_TIME_UTC, processing(k2017Day - 1, 86399, 250000), KL_TIME_TAI).time;
        EXPECT_EQ(tai, processing(k2017Day, 36, 250000));
        EXPECT_EQ(convert(id, KL_TIME_TAI, tai, KL_TIME_UTC).time, processing(k2017Day, 0, 250000));
    }
}

TEST(AroundALeapSecond, Ut1AndGpsRunOnThroughIt)
{
    TableId id(leap_table(k2017, 36.0, 1));
    double before[2] = {-1e9, -1e9};
    for (long ms = 30000; ms < 45000; ++ms) {
        const double tai = processing(k2017Day, ms / 1000, ms % 1000 * 1000);
        const double ut1 = convert(id, KL_TIME_TAI, tai, KL_TIME_UT1).time;
        const double gps = convert(id, KL_TIME_TAI, tai, KL_TIME_GPS).time;
        ASSERT_NEAR((tai - ut1) * kDay, 36.3, 2e-6);
        ASSERT_NEAR((tai - gps) * kDay, 19.0, 1e-6);
        ASSERT_TRUE(ut1 > before[0] && gps > before[1]);
        before[0] = ut1;
        before[1] = gps;
    }
}

// ---- the query ----

TEST_F(LeapSecondInfo, WritesBothInstantsOrTellsWhatIsMissing)
{
    for (const InfoCase &c : kInfos) {
        char before[KL_TIME_ASCII_LENGTH] = "untouched", after[KL_TIME_ASCII_LENGTH] = "untouched";
        long sign = -7, ierr = -1;
        EXPECT_EQ(kl_time_get_leap_second_info(ids[c.id], &c.format, &sign, before, after, &ierr), c.ierr == 0 ? KL_OK
                                                                                                   : c.ierr < 0
                                                                                                       ? KL_ERR
                                                                                                       : KL_WARN)
            << c.id << " " << c.format;
        EXPECT_EQ(ierr, c.ierr) << c.id << " " << c.format;
        EXPECT_EQ(sign, c.sign) << c.id << " " << c.format;
        EXPECT_STREQ(before, c.before);
        EXPECT_STREQ(after, c.after);
    }
    constexpr long kMissing[] = {0, kNone, kNone, kNone}; // without the format, the sign, either text
    for (long missing = 0; missing < 4; ++missing) {
        const AllBut given{missing};
        const long format = KL_ASCII_11;
        long sign = 0, ierr = -1;
        char text[KL_TIME_ASCII_LENGTH] = "";
        EXPECT_EQ(kl_time_get_leap_second_info(leap, given(0, &format), given(1, &sign), given(2, text), given(3, text),
                                               &ierr),
                  KL_ERR);
        EXPECT_EQ(ierr, error_or_none(kMissing[missing])) << missing;
    }
}

TEST_F(LeapSecondInfo, LeavesTheOnceOnlyWarningsAlone)
{
    constexpr long kOutsideOnce = 1L << 9, kFormat = KL_ASCII_11;
    EXPECT_NE(convert(leap, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
    long sign = 0;
    char text[KL_TIME_ASCII_LENGTH];
    EXPECT_EQ(kl_time_get_leap_second_info(leap, &kFormat, &sign, text, text, nullptr), KL_OK);
    EXPECT_EQ(convert(leap, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
}

} // namespace
