// Leap seconds: the quarter they fall on, the day and the second of the one an id knows, and what becomes of instants
// around it.
#include "time/format_cases.h"

#include <algorithm>
#include <ctime>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kThinning = 11;
#else
constexpr long kThinning = 1;
#endif

#include "time/leap_second_cases.inc"

// ---- the quarter, the leap second of a table and its day ----

TEST(QuarterStart, IsThatOfEveryDayFrom1950To2099OnPurpose)
{
    double expected = kNaN;
    for (long day = -18262; day < 36524; ++day) {
        const std::time_t seconds = (day + 10957) * 86400; // 10957 days from 1970 to 2000
        std::tm date{};
        gmtime_r(&seconds, &date); // the C library's calendar
        if (date.tm_mon % 3 == 0 && date.tm_mday == 1)
            expected = static_cast<double>(day);
        for (const double part : {0.0, 0.999}) {
            const double time = static_cast<double>(day) + part;
            double start = kNaN;
            ASSERT_EQ(KL_Leap_second_utc_time(&kUtc, &time, &start, nullptr), 0) << time;
            ASSERT_EQ(start, expected) << time;
        }
    }
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

TEST(LeapSecond, QuarterDayAndFlagsOfOneInstant)
{
    NamedIds ids;
    double start = 0.0;
    long flag = -7, after = -7;
#include "time/leap_second_rows.inc"
    for (long day = kLeapDay - 400; day < kLeapDay + 400; ++day) {
        const kl_std_record record = {day, 0, 0};
        ASSERT_EQ(KL_Time_check_leap_second(ids[kPositiveLeap], kUtc, &record, &flag, nullptr), 0);
        ASSERT_EQ(flag, day == kLeapDay ? 1 : 0) << day;
    }
}

TEST(LeapFlags, RunFromHalfAMicrosecondBeforeToAMicrosecondShortOfTheEnd)
{
    for (const auto &[name, hours, ref, ahead, microseconds, in, after] : kFlags) {
        TableId id(leap_table(k2017, 36.0, 1, hours / 24.0));
        const Deltas deltas = deltas_at(id, ref, k2017 + microseconds / 8.64e10 + ahead / kDay);
        EXPECT_EQ(deltas.in_leap, in) << name << ", scale " << ref;
        EXPECT_EQ(deltas.after_leap, after) << name << ", scale " << ref;
        EXPECT_EQ(deltas.tai_utc, microseconds > -0.5 ? 37.0 : 36.0) << name << ", scale " << ref;
    }
}

// ---- instants around a leap second ----

constexpr long kSecond = 1000000, kDayLong = 86400 * kSecond; // microseconds

double processing(const kl_std_record &record)
{
    double time = 0.0;
    KL_Time_t2p_format_from_std(&record, &time);
    return time;
}

// Every step of `microseconds` between two microseconds around 2017-01-01 0h, UTC to TAI and back, in order. A negative
// leap second has no second 86399.
void sweep(kl_time_id *id, int sign, long first, long last, long microseconds)
{
    double tai_before = -1e9;
    for (long i = kDayLong + first; i <= kDayLong + last; i += microseconds) {
        const long second = i / kSecond; // since 0h of the day before
        if (sign < 0 && second == 86399)
            continue;
        const double utc = processing({kLeapDay + second / 86400, second % 86400, i % kSecond});
        const Converted tai = convert(id, kUtc, utc, kTai);
        const Converted back = convert(id, kTai, tai.time, kUtc);
        ASSERT_TRUE(tai.ierr == 0 && back.ierr == 0) << i;
        ASSERT_EQ(back.time, utc) << i << " microseconds after 0h of the day before";
        ASSERT_LT(tai_before, tai.time) << i;
        tai_before = tai.time;
    }
}

TEST(AroundALeapSecond, EveryInstantGoesToTaiAndBackInOrder)
{
    for (const int sign : {1, -1})
        for (const double phase : {0.0, 0.5}) {
            TableId id(leap_table(k2017, sign > 0 ? 36.0 : 37.0, sign, phase));
            sweep(id, sign, -2 * kSecond, 2 * kSecond, phase == 0.0 ? kThinning : 7 * kThinning);
            sweep(id, sign, -60 * kSecond, 60 * kSecond, 1000 * kThinning);
            sweep(id, sign, -kDayLong, kDayLong - 1000, 1009 * 1000 * kThinning);
        }
}

TEST(AroundALeapSecond, TheSixtyFirstSecondGoesToTaiAndBackAndFoldsOntoTheOneBeforeInDays)
{
    // Each of the 27 (and one more that never was) with its own TAI-UTC, microsecond by microsecond at the ends.
    const auto transport = [](long ref) { return Form{kOfTransport, KL_TRANS_0, ref}; };
    for (const TaiUtcStep &step : kTaiUtcSteps)
        for (const double phase : {0.0, 0.5}) {
            const double leap_utc = step.mjd - 51544.0;
            const long day = static_cast<long>(leap_utc) - 1, seconds = static_cast<long>(step.tai_utc) - 1;
            TableId id(leap_table(leap_utc, step.tai_utc - 1, 1, phase));
            for (long us = 0; us < 1000000; us = us < 2 || us >= 999990 ? us + 1 : std::min(us + 3333, 999990L)) {
                SCOPED_TRACE(step.mjd + static_cast<double>(us) / 1e6);
                const Value utc(day, 86400, us), tai(day + 1, seconds, us);
                ASSERT_EQ(fields_of(convert(id, transport(kUtc), utc, transport(kTai)).value), fields_of(tai));
                ASSERT_EQ(fields_of(convert(id, transport(kTai), tai, transport(kUtc)).value), fields_of(utc));
                const double t = processing({day + 1, seconds, us});
                ASSERT_EQ(convert(id, kTai, t, kUtc).time, processing({day, 86399, us}));
                // UT1 and GPS run on through it.
                ASSERT_NEAR((t - convert(id, kTai, t, kUt1).time) * kDay, step.tai_utc - 0.7 - 0.001 * phase, 2e-6);
                ASSERT_NEAR((t - convert(id, kTai, t, kGps).time) * kDay, 19.0, 1e-6);
            }
        }
}

// ---- the query ----

TEST(LeapSecondInfo, WritesBothInstantsOrTellsWhatIsMissingAndLeavesTheOnceOnlyWarningsAlone)
{
    NamedIds ids;
    const auto vector_outside = [&ids] { return convert(ids[kPositiveLeap], kUtc, 7000.0, kTai).ierr; };
    EXPECT_EQ(vector_outside(), warning_bit(6) | warning_bit(9));
    for (const auto &[given, format, vector, sign, before, after] : kInfos) {
        long ierr = -1, got_sign = 7;
        char texts[2][KL_TIME_ASCII_LENGTH] = {"untouched", "untouched"};
        EXPECT_EQ(kl_time_get_leap_second_info(ids[given], &format, &got_sign, texts[0], texts[1], &ierr),
                  status_with(vector));
        EXPECT_EQ(std::tuple(ierr, got_sign), std::tuple(vector, sign)) << given << " " << format;
        EXPECT_STREQ(texts[0], before) << given << " " << format;
        EXPECT_STREQ(texts[1], after) << given << " " << format;
    }
    EXPECT_EQ(vector_outside(), warning_bit(6));
}

} // namespace
