// Leap seconds: the quarter they fall on, the day and the second of the one an id knows, and what becomes of instants
// around it.
#include "time/format_cases.h"

#include <algorithm>
#include <ctime>

namespace {

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

constexpr long kSecond = 1000000; // microseconds

// The fields of so many microseconds after 0h of a day.
Value fields_at(long day, long microseconds)
{
    return Value(day, microseconds / kSecond, microseconds % kSecond);
}

double days_of(const Value &value)
{
    const kl_std_record record = {value.fields[0], value.fields[1], value.fields[2]};
    double time = 0.0;
    KL_Time_t2p_format_from_std(&record, &time);
    return time;
}

// One microsecond before and after 0h of TAI's next day, counted on with the old TAI-UTC: there and back as fields and
// as days, with rows at 0h and at noon. Days hold no 61st second: it folds onto the one before.
void expect_instant(kl_time_id *id, int sign, long day, long tai_utc, double tai_ut1, long us)
{
    const auto form = [](long ref) { return Form{kOfTransport, KL_TRANS_0, ref}; };
    const bool before = us < sign * kSecond;
    const Value tai = fields_at(day + 1, tai_utc * kSecond + us);
    const Value utc = before ? fields_at(day, 86400 * kSecond + us) : fields_at(day + 1, us - sign * kSecond);
    ASSERT_EQ(fields_of(convert(id, form(kUtc), utc, form(kTai)).value), fields_of(tai));
    ASSERT_EQ(fields_of(convert(id, form(kTai), tai, form(kUtc)).value), fields_of(utc));
    const bool folds = utc.fields[1] == 86400;
    const double t = days_of(tai), utc_days = days_of(folds ? fields_at(day, 86399 * kSecond + us) : utc);
    ASSERT_EQ(convert(id, kTai, t, kUtc).time, utc_days);
    ASSERT_EQ(convert(id, kUtc, utc_days, kTai).time,
              folds ? days_of(fields_at(day + 1, (tai_utc - 1) * kSecond + us)) : t);
    // UT1 and GPS run on through it.
    ASSERT_NEAR((t - convert(id, kTai, t, kUt1).time) * kDay, tai_ut1, 2e-6);
    ASSERT_NEAR((t - convert(id, kTai, t, kGps).time) * kDay, 19.0, 1e-6);
}

// Each of the 27 (and one more that never was) with its own TAI-UTC, and as if it took a second away: microsecond by
// microsecond at the ends of the seconds before, within and after it.
TEST(AroundALeapSecond, EveryScaleGoesToTaiAndBackAsCountedByHand)
{
    for (const TaiUtcStep &step : kTaiUtcSteps)
        for (const int sign : {1, -1})
            for (const double phase : {0.0, 0.5}) {
                const double leap_utc = step.mjd - 51544.0, before = step.tai_utc - 1.0;
                TableId id(leap_table(leap_utc, before, sign, phase));
                for (long second = -3; second < 3; ++second)
                    for (long us = 0; us < kSecond;
                         us = us < 5 || us >= 999990 ? us + 1 : std::min(us + 33333, 999990L)) {
                        SCOPED_TRACE(step.mjd * sign + static_cast<double>(second) + static_cast<double>(us) / 1e6);
                        expect_instant(id, sign, static_cast<long>(leap_utc) - 1, static_cast<long>(before),
                                       before + 0.3 - 0.001 * phase, second * kSecond + us);
                        if (testing::Test::HasFatalFailure())
                            return;
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
