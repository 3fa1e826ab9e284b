// The correlation look-up: rows, interpolation, both ends of the table, once-only warnings, one instant to TAI and
// back.
#include "time/time_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <thread>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr long kScales[] = {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS};

// Codes of the look-up, and of the conversions to and from TAI.
constexpr long kRefErr = 0, kNotInitialisedErr = 1, kOutsideWarn = 2, kFormulaWarn = 3;
constexpr long kToTai = 36, kFromTai = 37;

// kl_time_processing_to_processing
constexpr long kTimeIdErr = 5, kOutsideWarnBit = 6, kFormulaBit = 7, kGapBit = 8, kOutsideOnceBit = 9;

double column(const kl_time_row &row, long scale)
{
    switch (scale) {
    case KL_TIME_TAI:
        return row.tai;
    case KL_TIME_UTC:
        return row.utc;
    case KL_TIME_UT1:
        return row.ut1;
    default:
        return row.tai - row.tai_gps / kDay;
    }
}

// Rows whose TAI-GPS is the number of the row, so that the look-up says which row it took.
Table numbered(const std::vector<double> &utc)
{
    std::vector<kl_time_row> rows;
    for (std::size_t i = 0; i < utc.size(); ++i)
        rows.push_back(
            row_at(utc[i], 32.0, 31.5 + 1e-4 * std::sin(0.1 * static_cast<double>(i)), static_cast<double>(i)));
    return Table(rows);
}

std::vector<double> spaced(std::size_t n, double first, double step)
{
    std::vector<double> utc(n);
    for (std::size_t i = 0; i < n; ++i)
        utc[i] = first + step * static_cast<double>(i);
    return utc;
}

// From a quarter of an hour to a year apart, and never evenly.
std::vector<double> uneven(std::size_t n, double first)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> power(-2.0, 2.5);
    std::vector<double> utc(n, first);
    for (std::size_t i = 1; i < n; ++i)
        utc[i] = utc[i - 1] + std::pow(10.0, power(random));
    return utc;
}

// ---- search ----

TEST(BinarySearch, FindsARowThatHoldsTheTime)
{
    const Table table = numbered(uneven(300, -9000.0));
    const long last = static_cast<long>(table.rows.size()) - 2;
    std::mt19937 random(11);
    for (const long scale : kScales) {
        const double begin = column(table.rows.front(), scale);
        const double end = column(table.rows.back(), scale);
        std::uniform_real_distribution<double> times(begin, end);
        for (int i = 0; i < 2000; ++i) {
            const double t = times(random);
            const auto row = static_cast<std::size_t>(KL_binary_search(table.rows.data(), 0, last, scale, &t));
            EXPECT_LE(column(table.rows[row], scale), t + 1e-11);
            EXPECT_LT(t, column(table.rows[row + 1], scale) + 1e-11);
        }
    }
}

TEST(BinarySearch, TakesTheFirstRowItTriesThatMatchesWithItsSlack)
{
    // Rows 0 to 3 are searched: row 1 is tried first, then 0, or 2 and 3.
    const Table table = numbered(spaced(5, 0.0, 1.0));
    struct Case {
        double t;
        long row;
    };
    constexpr Case kCases[] = {
        {0.0, 0},           {1.0 - 1.1e-11, 0}, {1.0 - 9e-12, 1}, // row 1 already
        {1.0, 1},           {2.0 + 9e-12, 1},                     // row 1 still
        {2.0 + 1.1e-11, 2}, {3.0 - 9e-12, 2},   {3.0 + 9e-12, 2}, // row 2 still
        {3.0 + 1.1e-11, 3},
    };
    for (const Case &c : kCases)
        EXPECT_EQ(KL_binary_search(table.rows.data(), 0, 3, KL_TIME_UTC, &c.t), c.row) << c.t;
}

TEST(BinarySearch, GivesUpOutsideTheSearchedRows)
{
    const Table table = numbered(spaced(10, 0.0, 1.0));
    for (const double t : {-5.0, 50.0, kNaN, kInfinity, -kInfinity})
        for (const long scale : kScales) {
            EXPECT_EQ(KL_binary_search(table.rows.data(), 0, 8, scale, &t), 0) << t;
            EXPECT_EQ(KL_binary_search(table.rows.data(), 4, 8, scale, &t), 0) << t;
        }
    const double inside = 7.5;
    EXPECT_EQ(KL_binary_search(table.rows.data(), 0, 0, KL_TIME_TAI, &inside), 0);
    EXPECT_EQ(KL_binary_search(table.rows.data(), 0, 8, 4, &inside), 0);
    EXPECT_EQ(KL_binary_search(nullptr, 0, 8, KL_TIME_TAI, &inside), 0);
    EXPECT_EQ(KL_binary_search(table.rows.data(), 0, 8, KL_TIME_TAI, nullptr), 0);
    EXPECT_EQ(KL_binary_search(table.rows.data(), 4, 8, KL_TIME_UTC, &inside), 7);
}

TEST(DeltaLookUp, TakesTheRowOfTheSearchAndTheNextOneOnceReached)
{
    const std::vector<double> tables[] = {spaced(20000, -9131.0, 1.0), uneven(1000, -9000.0), spaced(2, 0.0, 1.0),
                                          spaced(3, 0.0, 400.0), spaced(64, 100.0, 0.5)};
    for (const auto &utc : tables) {
        Table table = numbered(utc);
        OwnedTimeId id;
        ASSERT_EQ(table.set(&id.id), 0);
        const long n = static_cast<long>(utc.size());
        const long stride = std::max(1L, n / 500);
        for (const long scale : kScales)
            for (long i = 0; i < n; i += stride) {
                const double start = column(table.rows[static_cast<std::size_t>(i)], scale);
                // Within the slack on both sides, just beyond it, and well inside.
                for (const double shift : {0.0, 2e-12, 8e-12, 2e-11, -2e-12, -5e-12, -9e-12, -1.2e-11, 0.003, -0.003}) {
                    const double t = start + shift;
                    if (!(t >= column(table.rows.front(), scale)) || !(t < column(table.rows.back(), scale)))
                        continue;
                    long row = KL_binary_search(table.rows.data(), 0, n - 2, scale, &t);
                    if (row + 1 < n - 1 && t >= column(table.rows[static_cast<std::size_t>(row) + 1], scale))
                        ++row;
                    const Deltas deltas = deltas_at(&id.id, scale, t);
                    ASSERT_EQ(deltas.status, KL_OK) << t;
                    ASSERT_EQ(deltas.tai_gps, static_cast<double>(row)) << n << " rows, scale " << scale << ", " << t;
                }
            }
    }
}

TEST(DeltaLookUp, ReadsUt1LinearlyAndTheStepsAsTheyStand)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 33.0), row_at(12.0, 32.0, 32.0)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    struct Case {
        double share; // of the way from row to row
        std::size_t row;
        double tai_ut1;
    };
    constexpr Case kCases[] = {{0.0, 0, 31.0}, {0.25, 0, 31.5}, {0.5, 0, 32.0}, {0.0, 1, 33.0}, {0.75, 1, 32.25}};
    for (const Case &c : kCases)
        for (const long scale : kScales) {
            const double from = column(table.rows[c.row], scale);
            const double to = column(table.rows[c.row + 1], scale);
            const Deltas deltas = deltas_at(&id.id, scale, from + c.share * (to - from));
            EXPECT_NEAR(deltas.tai_ut1, c.tai_ut1, 1e-11) << c.share << " scale " << scale;
            EXPECT_EQ(deltas.tai_utc, 32.0);
            EXPECT_EQ(deltas.tai_gps, 19.0);
        }
}

// ---- ends of the table ----

TEST(DeltaLookUp, TheEndsHaveASlackOfTenPicodays)
{
    Table table({row_at(1.0, 32.0, 31.0, 17.0), row_at(2.0, 32.0, 31.5, 18.0), row_at(3.0, 32.0, 32.0, 19.0)});
    struct Case {
        const char *name;
        double utc;
        bool warned;
        double tai_gps;
    };
    constexpr Case kCases[] = {
        {"first row", 1.0, false, 17.0},
        {"within the slack before", 1.0 - 1e-11, false, 17.0},
        {"just before that", 1.0 - 2e-11, true, 17.0},
        {"long before", -18000.0, true, 17.0},
        {"last moment inside", 3.0 - 1e-9, false, 18.0},
        {"last row counts as after the table", 3.0, false, 19.0},
        {"within the slack after", 3.0 + 9e-12, false, 19.0},
        {"just after that", 3.0 + 2e-11, true, 19.0},
        {"long after", 36000.0, true, 19.0},
    };
    OwnedTimeId id;
    for (const long model : {1L, 10L, 8L}) {
        table.data.model = model;
        ASSERT_EQ(table.set(&id.id), 0);
        for (const Case &c : kCases) {
            const Deltas deltas = deltas_at(&id.id, KL_TIME_UTC, c.utc);
            EXPECT_EQ(deltas.status, c.warned && model != 8 ? KL_WARN : KL_OK) << c.name << " model " << model;
            EXPECT_EQ(deltas.warned(kOutsideWarn), c.warned && model != 8) << c.name << " model " << model;
            EXPECT_EQ(deltas.tai_gps, c.tai_gps) << c.name;
        }
    }
}

TEST(DeltaLookUp, OneRowOfATableIsNeverInside)
{
    Table table({row_at(1.0, 32.0, 31.0)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    for (const double utc : {0.5, 1.0, 1.5}) {
        const Deltas deltas = deltas_at(&id.id, KL_TIME_UTC, utc);
        EXPECT_EQ(deltas.warned(kOutsideWarn), utc != 1.0) << utc;
        EXPECT_EQ(deltas.tai_ut1, 31.0);
    }
}

Table extrapolating()
{
    Table table({row_at(6209.0, 37.0, 37.2, 18.0), row_at(6210.0, 37.0, 37.25, 18.0)});
    table.data.no_extrapolation = 0;
    table.data.a = -0.15;
    table.data.b = -0.0007;
    table.data.c = 6200.0;
    return table;
}

// UT1-UTC formula at 6300.0 of each scale, computed with mpmath to 30 digits.
TEST(DeltaLookUp, ExtrapolationAddsSecondsToDaysForUt1AndGps)
{
    constexpr double kTaiUt1[] = {37.2348106424138254, 37.2348111186267502, 37.2745327837601051, 37.2548140162044206};
    Table table = extrapolating();
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    for (const long scale : kScales) {
        const Deltas deltas = deltas_at(&id.id, scale, 6300.0);
        EXPECT_NEAR(deltas.tai_ut1, kTaiUt1[scale], 1e-12) << scale; // at 6337 days for UT1, 6318 for GPS
        EXPECT_EQ(deltas.tai_utc, 37.0);
        EXPECT_TRUE(deltas.warned(kOutsideWarn));
        EXPECT_EQ(deltas.warned(kFormulaWarn), scale == KL_TIME_UT1) << scale;
    }
}

TEST(DeltaLookUp, TaiGpsIsNineteenSecondsAfterTheTableWhateverItHolds)
{
    Table table = extrapolating();
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(deltas_at(&id.id, KL_TIME_TAI, 6209.5).tai_gps, 18.0);
    for (const long scale : kScales)
        EXPECT_EQ(deltas_at(&id.id, scale, 6300.0).tai_gps, 19.0);
    table.data.no_extrapolation = 1;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(deltas_at(&id.id, KL_TIME_TAI, 6300.0).tai_gps, 18.0);
    EXPECT_EQ(deltas_at(&id.id, KL_TIME_TAI, 6300.0).tai_ut1, 37.25);
}

TEST(DeltaLookUp, ExplicitValuesHoldAtEveryInstantWithoutAWarning)
{
    OwnedTimeId id;
    const double tri_time[4] = {37.0 / kDay, 0.0, 0.5 / kDay, 18.0 / kDay};
    ASSERT_EQ(kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, &id.id, nullptr), KL_OK);
    for (const double t : {-18262.0, 0.0, 36524.0})
        for (const long scale : kScales) {
            const Deltas deltas = deltas_at(&id.id, scale, t);
            EXPECT_EQ(deltas.status, KL_OK);
            EXPECT_EQ(deltas.tai_utc, 37.0);
            EXPECT_NEAR(deltas.tai_ut1, 36.5, 1e-12);
            EXPECT_EQ(deltas.tai_gps, 19.0);
            EXPECT_EQ(deltas.in_leap + deltas.after_leap, 0);
        }
    for (int i = 0; i < 3; ++i)
        for (const double t : {-18000.0, 0.0, 36000.0})
            EXPECT_EQ(convert(&id.id, KL_TIME_UTC, t, KL_TIME_UT1).ierr, 0);
}

TEST(DeltaLookUp, WhatIsMissingIsRefused)
{
    kl_time_id none{};
    Table table = extrapolating();
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    const auto first_code = [](const Deltas &deltas) { return deltas.error.count == 1 ? deltas.error.codes[0] : -1; };
    for (const long scale : {-1L, 4L}) {
        EXPECT_EQ(deltas_at(&id.id, scale, 0.0).status, KL_ERR);
        EXPECT_EQ(first_code(deltas_at(&none, scale, 0.0)), kRefErr);
    }
    EXPECT_EQ(deltas_at(&none, KL_TIME_UTC, 0.0).status, KL_ERR);
    EXPECT_EQ(first_code(deltas_at(&none, KL_TIME_UTC, 0.0)), kNotInitialisedErr);
    EXPECT_EQ(first_code(deltas_at(nullptr, KL_TIME_UTC, 0.0)), kNotInitialisedErr);
    const long utc = KL_TIME_UTC;
    const double t = 6209.5;
    EXPECT_EQ(KL_Time_ref_init_file_deltas(&id.id, &t, &utc, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(KL_Time_ref_init_file_deltas(&id.id, &t, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              KL_ERR);
    for (const double odd : {kNaN, kInfinity, -kInfinity}) // an answer, and a warning
        EXPECT_TRUE(deltas_at(&id.id, KL_TIME_UTC, odd).warned(kOutsideWarn));
}

// ---- once-only warnings ----

// One conversion after the other; the warnings of each.
struct Step {
    double utc;
    long warning; // bits of the once-only warnings
};
void expect_steps(Table &table, const std::vector<Step> &steps, const char *name)
{
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    int i = 0;
    for (const Step &step : steps) {
        constexpr long kOnceOnly = 1L << kFormulaBit | 1L << kGapBit | 1L << kOutsideOnceBit;
        const Converted out = convert(&id.id, KL_TIME_UTC, step.utc, KL_TIME_UT1);
        EXPECT_NE(out.status, KL_ERR);
        EXPECT_EQ(out.ierr & kOnceOnly, step.warning) << name << ", step " << i;
        ++i;
    }
}

constexpr long kWarns7 = 1L << kFormulaBit;
constexpr long kWarns8 = 1L << kGapBit;
constexpr long kWarns9 = 1L << kOutsideOnceBit;

TEST(OnceOnlyWarnings, TheFirstConversionAfterTheEndWarnsAndTheNextDoesNot)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    expect_steps(table, {{20.0, kWarns9}, {21.0, 0}, {5.0, 0}, {20.0, kWarns9}, {20.0, 0}}, "after the end");
    expect_steps(table, {{-5.0, kWarns9}, {20.0, 0}, {10.0, 0}, {-5.0, kWarns9}}, "before the first row");
    for (const long model : {8L, 10L}) {
        table.data.model = model;
        expect_steps(table, {{20.0, 0}, {20.0, 0}, {-5.0, kWarns9}, {20.0, 0}, {-5.0, kWarns9}}, "an open end");
    }
}

TEST(OnceOnlyWarnings, ExtrapolationWarnsOfTheFormulaFirst)
{
    Table table = extrapolating();
    expect_steps(table, {{6300.0, kWarns7}, {6300.0, kWarns9}, {6300.0, 0}, {6209.5, 0}, {6300.0, kWarns7}}, "formula");
}

TEST(OnceOnlyWarnings, TheGapBetweenTwoBulletinsWarns)
{
    Table table(
        {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5), row_at(30.0, 32.0, 32.0)});
    table.data.combination = 2;
    table.data.second_bulletin_row = 2;
    expect_steps(table, {{5.0, 0}, {15.0, kWarns8}, {16.0, 0}, {25.0, 0}, {15.0, kWarns8}, {10.0, 0}, {15.0, kWarns8}},
                 "gap");
    table.data.combination = 1;
    expect_steps(table, {{5.0, 0}, {15.0, 0}}, "no combination");
}

TEST(OnceOnlyWarnings, EqualScalesRunThemOnTheTimeAsItIs)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(convert(&id.id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, warning_bit(kOutsideOnceBit));
    EXPECT_EQ(convert(&id.id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, 0);
    kl_time_id none{};
    EXPECT_EQ(convert(&none, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, 0);
}

TEST(OnceOnlyWarnings, TwoSetsOfFlagsDoNotSpendEachOthersWarning)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    const kl_std_record after = {20, 0, 0};
    for (const long set : {0L, 1L}) {
        long warning = -1;
        EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, &after, &set, &warning), 0);
        EXPECT_EQ(warning, 3) << set;
        EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, &after, &set, &warning), 0);
        EXPECT_EQ(warning, 0) << set;
    }
    for (const long set : {-1L, 2L}) {
        long warning = -1;
        EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, &after, &set, &warning), -1);
        EXPECT_EQ(warning, 0);
    }
    long warning = -1;
    const long set = 0;
    EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, nullptr, &set, &warning), -1);
    EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, &after, nullptr, &warning), -1);
    EXPECT_EQ(KL_Check_Time_warn_flags(&id.id, &after, &set, nullptr), -1);
    EXPECT_EQ(KL_Check_Time_warn_flags(nullptr, &after, &set, &warning), 0);
}

TEST(OnceOnlyWarnings, ASharedIdConvertsRightInEveryThread)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    const auto work = [&id](double utc, double ut1_utc, long *wrong) {
        for (int i = 0; i < 2000; ++i)
            if (std::fabs((convert(&id.id, KL_TIME_UTC, utc, KL_TIME_UT1).time - utc) * kDay - ut1_utc) > 1e-6)
                ++*wrong;
    };
    long wrong[2] = {0, 0};
    std::thread outside([&] { work(20.0, 0.5, &wrong[0]); });
    work(5.0, 0.75, &wrong[1]);
    outside.join();
    EXPECT_EQ(wrong[0] + wrong[1], 0);
}

// ---- one instant to TAI and back ----

struct Std {
    long status;
    kl_std_record out;
    kl_error_record error;
};
Std to_tai(kl_time_id *id, long scale, kl_std_record in)
{
    Std result{};
    result.status = KL_Time_t2t_ref_to_tai(id, scale, &in, &result.out, &result.error);
    return result;
}
Std from_tai(kl_time_id *id, long scale, kl_std_record in)
{
    Std result{};
    result.status = KL_Time_t2t_ref_from_tai(id, scale, &in, &result.out, &result.error);
    return result;
}

void expect_record(const kl_std_record &got, const kl_std_record &want, const char *name)
{
    EXPECT_EQ(got.days, want.days) << name;
    EXPECT_EQ(got.seconds, want.seconds) << name;
    EXPECT_EQ(got.microseconds, want.microseconds) << name;
}

TEST(ToTai, AddsTheDifferenceAndCarries)
{
    struct Case {
        const char *name;
        double tai_utc, tai_ut1, tai_gps;
        long scale;
        kl_std_record in, tai;
    };
    constexpr Case kCases[] = {
        {"UTC", 37, 36.5, 19, KL_TIME_UTC, {10, 100, 5}, {10, 137, 5}},
        {"UTC into the next day", 37, 36.5, 19, KL_TIME_UTC, {10, 86390, 999999}, {11, 27, 999999}},
        {"GPS", 37, 36.5, 19, KL_TIME_GPS, {10, 86381, 0}, {11, 0, 0}},
        {"UT1", 37, 36.7500011, 19, KL_TIME_UT1, {10, 0, 250000}, {10, 37, 1}},
        {"UT1 that borrows a second less", 37, -0.25, 19, KL_TIME_UT1, {10, 0, 0}, {9, 86399, 750000}},
        {"UT1 whose fraction rounds up to a second", 37, 36.9999997, 19, KL_TIME_UT1, {10, 0, 0}, {10, 37, 0}},
        {"readings days apart", 259200 + 37, 0, 19, KL_TIME_UTC, {10, 86390, 0}, {14, 27, 0}},
        {"readings days apart, the other way", -259200 - 37, 0, 19, KL_TIME_UTC, {10, 10, 0}, {6, 86373, 0}},
        {"TAI stays as it is", 37, 36.5, 19, KL_TIME_TAI, {10, 86400, 999999}, {10, 86400, 999999}},
    };
    for (const Case &c : kCases) {
        OwnedTimeId id;
        Table table({row_at(0.0, c.tai_utc, c.tai_ut1, c.tai_gps)});
        table.data.model = -1;
        ASSERT_EQ(table.set(&id.id), 0);
        const Std forth = to_tai(&id.id, c.scale, c.in);
        EXPECT_EQ(forth.status, KL_OK) << c.name;
        expect_record(forth.out, c.tai, c.name);
        const Std back = from_tai(&id.id, c.scale, c.tai);
        EXPECT_EQ(back.status, KL_OK) << c.name;
        expect_record(back.out, c.in, c.name);
    }
}

TEST(ToTai, ConditionsAreThoseOfTheLookUp)
{
    kl_time_id none{};
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    struct Case {
        const char *name;
        kl_time_id *id;
        long scale, days;
        int to, from; // the one code, -1 for none
    };
    const Case cases[] = {
        {"no id", &none, KL_TIME_UTC, 5, 0, 0},     {"NULL id", nullptr, KL_TIME_GPS, 5, 0, 0},
        {"no such scale", &id.id, 4, 5, 0, 0},      {"inside", &id.id, KL_TIME_UTC, 5, -1, -1},
        {"outside", &id.id, KL_TIME_UT1, 15, 1, 1}, {"TAI needs no id", &none, KL_TIME_TAI, 5, -1, -1},
    };
    for (const Case &c : cases) {
        const auto only_code = [&](const Std &result, long function) {
            EXPECT_EQ(result.status, result.error.count == 0      ? KL_OK
                                     : result.error.codes[0] == 1 ? KL_WARN
                                                                  : KL_ERR)
                << c.name;
            EXPECT_TRUE(result.error.count == 0 || result.error.function_id == function) << c.name;
            return result.error.count == 0 ? -1 : result.error.codes[0];
        };
        EXPECT_EQ(only_code(to_tai(c.id, c.scale, {c.days, 0, 0}), kToTai), c.to) << c.name;
        EXPECT_EQ(only_code(from_tai(c.id, c.scale, {c.days, 0, 0}), kFromTai), c.from) << c.name;
    }
    // A day beyond the range shows in the leap-second check, on the way to TAI alone.
    table.data.model = 8;
    ASSERT_EQ(table.set(&id.id), 0);
    for (const long days : {-18263L, 36525L}) {
        const Std forth = to_tai(&id.id, KL_TIME_UTC, {days, 0, 0});
        EXPECT_EQ(forth.status, KL_ERR);
        EXPECT_EQ(forth.error.codes[0], 2);
        EXPECT_EQ(from_tai(&id.id, KL_TIME_UTC, {days, 0, 0}).status, KL_OK);
    }
    const kl_std_record in = {0, 0, 0};
    EXPECT_EQ(KL_Time_t2t_ref_to_tai(&id.id, KL_TIME_UTC, nullptr, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Time_t2t_ref_from_tai(&id.id, KL_TIME_UTC, &in, nullptr, nullptr), KL_ERR);
}

TEST(ToTai, TheFormulasOwnWarningIsNotPassedOn)
{
    Table table = extrapolating();
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(to_tai(&id.id, KL_TIME_UT1, {6300, 0, 0}).error.count, 1);
    EXPECT_EQ(convert(&id.id, KL_TIME_UT1, 6300.0, KL_TIME_GPS).ierr, warning_bit(kOutsideWarnBit) | 1L << kFormulaBit);
}

TEST(Conversion, WithoutAnIdFailsOnTheLegThatNeedsIt)
{
    kl_time_id none{};
    for (const long from : kScales)
        for (const long to : kScales)
            EXPECT_EQ(convert(&none, from, 0.0, to).ierr, from == to ? 0 : error_bit(kTimeIdErr)) << from << to;
}

TEST(Conversion, OneMicrosecondGridGoesThereAndBackBetweenAllScales)
{
    Table table = numbered(spaced(40, 8000.0, 1.0));
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i) {
        const long microsecond = static_cast<long>(random() % 3000000000000ULL); // 34 days and more
        const kl_std_record grid = {8001 + microsecond / 86400000000, microsecond / 1000000 % 86400,
                                    microsecond % 1000000};
        double t = 0.0;
        KL_Time_t2p_format_from_std(&grid, &t);
        for (const long scale : {KL_TIME_UTC, KL_TIME_GPS}) {
            const Converted out = convert(&id.id, scale, t, KL_TIME_TAI);
            ASSERT_EQ(convert(&id.id, KL_TIME_TAI, out.time, scale).time, t) << scale;
        }
        // The difference itself moves with the instant, by less than a microsecond here.
        const Converted out = convert(&id.id, KL_TIME_UT1, t, KL_TIME_TAI);
        ASSERT_NEAR(convert(&id.id, KL_TIME_TAI, out.time, KL_TIME_UT1).time, t, 1.1e-6 / kDay);
    }
}

// ---- the short form ----

TEST(GetTimeInRef, CopiesOrConverts)
{
    OwnedTimeId id;
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    ASSERT_EQ(table.set(&id.id), 0);
    kl_error_record error;
    double out = 0.0;
    EXPECT_EQ(KL_Get_time_in_ref(nullptr, 9, 9, &out, &error, 0.123456789012345), 0); // equal: nothing is looked at
    EXPECT_EQ(out, 0.123456789012345);
    EXPECT_EQ(KL_Get_time_in_ref(&id.id, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 5.0), 0);
    EXPECT_NEAR((out - 5.0) * kDay, 32.0, 1e-6);
    EXPECT_EQ(KL_Get_time_in_ref(&id.id, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 50.0), 0); // a warning is no failure
    EXPECT_EQ(error.count, 0);
    EXPECT_EQ(KL_Get_time_in_ref(nullptr, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 5.0), -1);
    EXPECT_EQ(error.count, 1);
    EXPECT_EQ(error.codes[0], 0);
    EXPECT_EQ(KL_Get_time_in_ref(&id.id, KL_TIME_UTC, KL_TIME_TAI, nullptr, &error, 5.0), -1);
}

} // namespace
