// Leap seconds: the quarter they fall on, the day and the second of the one an id knows, and what becomes of instants
// around it.
#include "support/captured_stream.h"
#include "time/time_table.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr long k2017Day = 6210;
constexpr long kUnixDay = 10957; // days from 1970-01-01 to 2000-01-01

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kThinning = 11;
#else
constexpr long kThinning = 1;
#endif

enum GivenId { kNullId, kEmptyId, kReadings, kEvenTable, kLeap, kNegativeLeap };

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
    double want = kNaN;
    for (long day = -18262; day < 36524; ++day) {
        const std::time_t seconds = (day + kUnixDay) * 86400;
        std::tm date{};
        gmtime_r(&seconds, &date); // the C library's calendar
        if (date.tm_mon % 3 == 0 && date.tm_mday == 1)
            want = static_cast<double>(day);
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
    double start = 0.0;
    for (const auto &[name, ref, time, code, want] : kQuarters) {
        start = 77.0;
        kl_error_record error;
        expect_code(KL_Leap_second_utc_time(&ref, &time, &start, &error), error, code, name);
        EXPECT_EQ(start, want) << name;
    }
    const long utc = KL_TIME_UTC;
    EXPECT_EQ(KL_Leap_second_utc_time(nullptr, &k2017, &start, nullptr), -1);
    EXPECT_EQ(KL_Leap_second_utc_time(&utc, nullptr, &start, nullptr), -1);
    EXPECT_EQ(KL_Leap_second_utc_time(&utc, &k2017, nullptr, nullptr), -1);
}

TEST(QuarterStart, VerboseModePrintsTheConversionThatRefusesTheTimeFirst)
{
    const long utc = KL_TIME_UTC;
    const double late = 40000.0;
    double start = 0.0;
    kl_verbose();
    const std::string lines = captured_stderr([&] { KL_Leap_second_utc_time(&utc, &late, &start, nullptr); });
    kl_silent();
    EXPECT_EQ(lines, "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (40000)\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_processing_to_ascii: Number of days out of range\n"
                     "ORBKIT_LIB >>> ERROR in KL_Leap_second_utc_time: Internal Error # 1\n");
}

TEST(LeapSecond, IsTheLastChangeOfTaiUtcAtTheStartOfItsQuarter)
{
    for (const auto &[name, rows, sign, utc, tai_utc] : kTables) {
        const TimeData data(TableId(Table{rows}));
        EXPECT_EQ(data.leap_sign, sign) << name;
        EXPECT_EQ(data.leap_utc, utc) << name;
        EXPECT_NEAR(data.leap_tai, utc + tai_utc / kDay, 1.9e-12) << name;
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
    for (const auto &[name, ref, days, code, want] : kDays) {
        const kl_std_record record = {days, 0, 0};
        kl_error_record error;
        expect_code(KL_Time_check_leap_second(leap, ref, &record, &flag, &error), error, code, name);
        EXPECT_EQ(flag, want) << name;
        EXPECT_EQ(KL_Time_check_leap_second(nullptr, ref, &record, nullptr, nullptr), code == kNone ? 0 : -1) << name;
    }
    EXPECT_EQ(KL_Time_check_leap_second(leap, KL_TIME_UTC, nullptr, &flag, nullptr), -1);
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
    for (const auto &[name, hours, ref, ahead, microseconds, in, after] : kFlags) {
        TableId id(leap_table(k2017, 36.0, 1, hours / 24.0));
        const Deltas deltas = deltas_at(id, ref, k2017 + microseconds / 8.64e10 + ahead / kDay);
        EXPECT_EQ(deltas.in_leap, in) << name << ", scale " << ref;
        EXPECT_EQ(deltas.after_leap, after) << name << ", scale " << ref;
        EXPECT_EQ(deltas.tai_utc, microseconds > -0.5 ? 37.0 : 36.0) << name << ", scale " << ref;
    }
}

TEST_F(LeapFlags, NeedALeapSecondAndARowThatHoldsIt)
{
    long in = -7, after = -7;
    for (const auto &[name, given, ref, row, first, last, status, flags] : kRows) {
        const double time = k2017 + (ref == KL_TIME_TAI ? 36.5 : 0.5) / kDay;
        EXPECT_EQ(KL_Check_if_time_is_post_leap_second(ids[given], ref, row, &in, &after, first, last, time), status)
            << name;
        EXPECT_TRUE(in == flags && after == flags) << name << " " << in << " " << after;
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

constexpr long kSecond = 1000000, kDayLong = 86400 * kSecond; // microseconds

// Every step of `microseconds` between two microseconds around 2017-01-01 0h, UTC to TAI and back, in order. A negative
// leap second has no second 86399.
void sweep(kl_time_id *id, int sign, long first, long last, long microseconds)
{
    double tai_before = -1e9;
    for (long i = kDayLong + first; i <= kDayLong + last; i += microseconds) {
        const long second = i / kSecond; // since 0h of the day before
        if (sign < 0 && second == 86399)
            continue;
        const double utc = processing(k2017Day - 1 + second / 86400, second % 86400, i % kSecond);
        const Converted tai = convert(id, KL_TIME_UTC, utc, KL_TIME_TAI);
        const Converted back = convert(id, KL_TIME_TAI, tai.time, KL_TIME_UTC);
        ASSERT_TRUE(tai.ierr == 0 && back.ierr == 0) << i;
        ASSERT_EQ(back.time, utc) << i << " microseconds after 0h of the day before";
        ASSERT_LT(tai_before, tai.time) << i;
        tai_before = tai.time;
    }
}

TEST(AroundALeapSecond, EveryInstantGoesToTaiAndBackInOrder)
{
    // KITLIB_FULL_SWEEPS=1: every millisecond of a day on both sides (minutes); else those of a minute, and a sample.
    const char *full = std::getenv("KITLIB_FULL_SWEEPS");
    for (const int sign : {1, -1})
        for (const double phase : {0.0, 0.5}) {
            TableId id(leap_table(k2017, sign > 0 ? 36.0 : 37.0, sign, phase));
            sweep(id, sign, -2 * kSecond, 2 * kSecond, phase == 0.0 ? kThinning : 7 * kThinning);
            if (full != nullptr && full[0] == '1') {
                sweep(id, sign, -kDayLong, kDayLong - 1000, 1000);
            } else {
                sweep(id, sign, -60 * kSecond, 60 * kSecond, 1000 * kThinning);
                sweep(id, sign, -kDayLong, kDayLong - 1000, 1009 * 1000 * kThinning);
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
                const kl_std_record want = {day + 1, static_cast<long>(step.tai_utc) - 1, us};
                ASSERT_EQ(std::memcmp(&tai, &want, sizeof want), 0) << step.mjd << " " << us;
                ASSERT_EQ(KL_Time_t2t_ref_from_tai(id, KL_TIME_UTC, &tai, &back, nullptr), 0);
                ASSERT_EQ(std::memcmp(&back, &utc, sizeof utc), 0) << step.mjd << " " << us;
                const double t = processing(tai.days, tai.seconds, us);
                const auto in = [&](long scale) { return convert(id, KL_TIME_TAI, t, scale).time; };
                ASSERT_EQ(in(KL_TIME_UTC), processing(day, 86399, us)) << step.mjd << " " << us;
                // UT1 and GPS run on through it.
                ASSERT_NEAR((t - in(KL_TIME_UT1)) * kDay, step.tai_utc - 0.7 - 0.001 * phase, 2e-6);
                ASSERT_NEAR((t - in(KL_TIME_GPS)) * kDay, 19.0, 1e-6);
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

// ---- the query ----

TEST_F(LeapSecondInfo, WritesBothInstantsOrTellsWhatIsMissingAndLeavesTheOnceOnlyWarningsAlone)
{
    constexpr long kOutsideOnce = 1L << 9, kFormat = KL_ASCII_11;
    EXPECT_NE(convert(leap, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
    long sign = 0;
    char before[KL_TIME_ASCII_LENGTH], after[KL_TIME_ASCII_LENGTH];
    for (const auto &[given, format, status, vector, want_sign, want_before, want_after] : kInfos) {
        long ierr = -1;
        EXPECT_EQ(kl_time_get_leap_second_info(ids[given], &format, &sign, before, after, &ierr), status) << given;
        EXPECT_EQ(ierr, vector) << given << " " << format;
        EXPECT_EQ(sign, want_sign) << given << " " << format;
        EXPECT_STREQ(before, want_before) << given;
        EXPECT_STREQ(after, want_after) << given;
    }
    expect_missing({0, kNone, kNone, kNone}, [&](AllBut given, long *ierr) {
        return kl_time_get_leap_second_info(leap, given(0, &kFormat), given(1, &sign), given(2, before),
                                            given(3, after), ierr);
    });
    EXPECT_EQ(convert(leap, KL_TIME_UTC, 7000.0, KL_TIME_TAI).ierr & kOutsideOnce, 0);
}

} // namespace
