// The correlation look-up: rows, interpolation, both ends of the table, once-only warnings, one instant to TAI and
// back.
#include "time/time_table.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <thread>

namespace {

constexpr long kScales[] = {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS};

// Bits of kl_time_processing_to_processing.
constexpr long kTimeIdErr = 5, kOutsideWarn = 6, kFormulaWarn = 7, kGapWarn = 8, kOutsideOnceWarn = 9;
constexpr long kFormula = 1L << kFormulaWarn, kGap = 1L << kGapWarn, kOutside = 1L << kOutsideOnceWarn;

enum GivenId { kNullId, kEmptyId, kTableId };

struct SearchCase {
    double time;
    long first, last, scale, row;
};
struct ShareCase {
    double share; // of the way from row to row
    std::size_t row;
    double tai_ut1;
};
struct EndCase {
    const char *name;
    std::size_t n_rows;
    double utc;
    bool warned;
    double tai_gps;
};
struct ConditionCase {
    const char *name;
    GivenId id;
    long model, scale, days, look_up, to_tai, from_tai;
};
struct Step { // a conversion, and the once-only warning it gives
    double utc;
    long warning;
};
struct OnceCase {
    const char *name;
    long model, combination, no_extrapolation;
    std::vector<Step> steps;
};
struct InstantCase {
    const char *name;
    double tai_utc, tai_ut1, tai_gps;
    long scale;
    kl_std_record in, tai;
};
#include "time/correlation_cases.inc"

double column(const kl_time_row &row, long scale)
{
    const double columns[] = {row.tai, row.utc, row.ut1, row.tai - row.tai_gps / kDay};
    return columns[scale];
}

// Rows `step` days apart, or for step 0 from a quarter of an hour to a year. TAI-GPS is the number of the row, so that
// the look-up says which row it took.
Table numbered(int n, double first, double step)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> power(-2.0, 2.5);
    std::vector<kl_time_row> rows;
    double utc = first;
    for (int i = 0; i < n; ++i) {
        rows.push_back(row_at(utc, 32.0, 31.5 + 1e-4 * std::sin(0.1 * i), i));
        utc += step > 0.0 ? step : std::pow(10.0, power(random));
    }
    return Table(rows);
}

// ---- the look-up ----

TEST(BinarySearch, TakesTheFirstRowItTriesThatMatchesWithItsSlackElseRow0)
{
    const Table table = numbered(10, 0.0, 1.0);
    const kl_time_row *rows = table.rows.data();
    for (const SearchCase &c : kSearches)
        EXPECT_EQ(KL_binary_search(rows, c.first, c.last, c.scale, &c.time), c.row) << c.time << " " << c.first;
    EXPECT_EQ(KL_binary_search(nullptr, 0, 8, KL_TIME_TAI, &kSearches[0].time), 0);
    EXPECT_EQ(KL_binary_search(rows, 4, 8, KL_TIME_TAI, nullptr), 0);
}

TEST(DeltaLookUp, TakesTheRowOfTheSearchAndTheNextOneOnceReached)
{
    const Table tables[] = {numbered(20000, -9131.0, 1.0), numbered(1000, -9000.0, 0.0), numbered(2, 0.0, 1.0),
                            numbered(3, 0.0, 400.0), numbered(64, 100.0, 0.5)};
    for (const Table &table : tables) {
        TableId id(table);
        const std::size_t n = table.rows.size();
        for (const long scale : kScales)
            for (std::size_t i = 0; i < n; i += std::max<std::size_t>(1, n / 500)) {
                const auto start = [&](std::size_t row) { return column(table.rows[row], scale); };
                // Within the slack on both sides, just beyond it, and well inside.
                for (const double shift : {0.0, 2e-12, 8e-12, 2e-11, -2e-12, -5e-12, -9e-12, -1.2e-11, 0.003, -0.003}) {
                    const double t = start(i) + shift;
                    if (!(t >= start(0)) || !(t < start(n - 1)))
                        continue;
                    const long found = KL_binary_search(table.rows.data(), 0, static_cast<long>(n) - 2, scale, &t);
                    auto row = static_cast<std::size_t>(found);
                    ASSERT_TRUE(start(row) <= t + 1.1e-11 && t < start(row + 1) + 1.1e-11) << row << " " << t;
                    if (row + 1 < n - 1 && t >= start(row + 1))
                        ++row;
                    const Deltas deltas = deltas_at(id, scale, t);
                    ASSERT_EQ(deltas.status, KL_OK) << t;
                    ASSERT_EQ(deltas.tai_gps, static_cast<double>(row)) << n << " rows, scale " << scale << ", " << t;
                }
            }
    }
}

TEST(DeltaLookUp, ReadsUt1LinearlyAndTheStepsAsTheyStand)
{
    const Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 33.0), row_at(12.0, 32.0, 32.0)});
    TableId id(table);
    for (const ShareCase &c : kShares)
        for (const long scale : kScales) {
            const double from = column(table.rows[c.row], scale), to = column(table.rows[c.row + 1], scale);
            const Deltas deltas = deltas_at(id, scale, from + c.share * (to - from));
            EXPECT_NEAR(deltas.tai_ut1, c.tai_ut1, 1e-11) << c.share << " scale " << scale;
            EXPECT_EQ(deltas.tai_utc, 32.0);
            EXPECT_EQ(deltas.tai_gps, 19.0);
        }
}

TEST(DeltaLookUp, TheEndsHaveASlackOfTenPicodays)
{
    for (const EndCase &c : kEnds)
        for (const long model : {1L, 10L, 8L}) {
            Table table({row_at(1.0, 32.0, 31.0, 17.0), row_at(2.0, 32.0, 31.5, 18.0), row_at(3.0, 32.0, 32.0, 19.0)});
            table.rows.resize(c.n_rows);
            table.data.model = model;
            const Deltas deltas = deltas_at(TableId(table), KL_TIME_UTC, c.utc);
            EXPECT_EQ(deltas.status, c.warned && model != 8 ? KL_WARN : KL_OK) << c.name << " model " << model;
            EXPECT_EQ(deltas.warned(2), c.warned && model != 8) << c.name << " model " << model;
            EXPECT_EQ(deltas.tai_gps, c.tai_gps) << c.name;
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
TEST(DeltaLookUp, ExtrapolationAddsSecondsToDaysForUt1AndGpsOnPurpose)
{
    constexpr double kTaiUt1[] = {37.2348106424138254, 37.2348111186267502, 37.2745327837601051, 37.2548140162044206};
    TableId id(extrapolating());
    for (const long scale : kScales) {
        const Deltas deltas = deltas_at(id, scale, 6300.0);
        EXPECT_NEAR(deltas.tai_ut1, kTaiUt1[scale], 1e-12) << scale; // at 6337 days for UT1, 6318 for GPS
        EXPECT_EQ(deltas.tai_utc, 37.0);
        EXPECT_TRUE(deltas.warned(2));
        EXPECT_EQ(deltas.warned(3), scale == KL_TIME_UT1) << scale;
    }
    // The warning of the formula is not passed on by the way to TAI, but the once-only one comes.
    EXPECT_EQ(convert(id, KL_TIME_UT1, 6300.0, KL_TIME_GPS).ierr, warning_bit(kOutsideWarn) | kFormula);
}

TEST(DeltaLookUp, TaiGpsIsNineteenSecondsAfterTheTableWhateverItHoldsOnPurpose)
{
    TableId id(extrapolating());
    EXPECT_EQ(deltas_at(id, KL_TIME_TAI, 6209.5).tai_gps, 18.0);
    for (const long scale : kScales)
        EXPECT_EQ(deltas_at(id, scale, 6300.0).tai_gps, 19.0);
    Table table = extrapolating();
    table.data.no_extrapolation = 1;
    const Deltas deltas = deltas_at(TableId(table), KL_TIME_TAI, 6300.0);
    EXPECT_EQ(deltas.tai_gps, 18.0);
    EXPECT_EQ(deltas.tai_ut1, 37.25);
}

TEST(DeltaLookUp, ExplicitValuesHoldAtEveryInstantWithoutAWarning)
{
    ReadingsId id(37.0, 0.0, 0.5, 18.0);
    for (const double t : {-18262.0, 0.0, 36524.0})
        for (const long scale : kScales) {
            const Deltas deltas = deltas_at(id, scale, t);
            EXPECT_EQ(deltas.status, KL_OK);
            EXPECT_EQ(deltas.tai_utc, 37.0);
            EXPECT_NEAR(deltas.tai_ut1, 36.5, 1e-12);
            EXPECT_EQ(deltas.tai_gps, 19.0);
            EXPECT_EQ(deltas.in_leap + deltas.after_leap, 0);
        }
    for (const double t : {-18000.0, 0.0, 36000.0})
        EXPECT_EQ(convert(id, KL_TIME_UTC, t, KL_TIME_UT1).ierr, 0);
}

// ---- once-only warnings ----

TEST(OnceOnlyWarnings, ComeWithTheFirstConversionThatLeavesTheGoodRegion)
{
    for (const OnceCase &c : kOnce) {
        Table table(
            {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5), row_at(30.0, 32.0, 32.0)});
        table.data.model = c.model;
        table.data.combination = c.combination;
        table.data.second_bulletin_row = 2;
        table.data.no_extrapolation = c.no_extrapolation;
        TableId id(table);
        for (const Step &step : c.steps) {
            const Converted out = convert(id, KL_TIME_UTC, step.utc, KL_TIME_UT1);
            EXPECT_NE(out.status, KL_ERR) << c.name;
            EXPECT_EQ(out.ierr & (kFormula | kGap | kOutside), step.warning)
                << c.name << ", step " << &step - &c.steps[0];
        }
    }
}

TEST(OnceOnlyWarnings, EqualScalesRunThemOnTheTimeAsItIs)
{
    TableId id(ten_days());
    EXPECT_EQ(convert(id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, warning_bit(kOutsideOnceWarn));
    EXPECT_EQ(convert(id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, 0);
}

TEST(OnceOnlyWarnings, TwoSetsOfFlagsDoNotSpendEachOthersWarning)
{
    TableId id(ten_days());
    const kl_std_record after = {20, 0, 0};
    const auto check = [&after](kl_time_id *time_id, long set, long want_status) {
        long warning = -1;
        EXPECT_EQ(KL_Check_Time_warn_flags(time_id, &after, &set, &warning), want_status) << set;
        return warning;
    };
    for (const long set : {0L, 1L}) {
        EXPECT_EQ(check(id, set, 0), 3) << set;
        EXPECT_EQ(check(id, set, 0), 0) << set;
    }
    EXPECT_EQ(check(id, -1, -1), 0);
    EXPECT_EQ(check(id, 2, -1), 0);
    EXPECT_EQ(check(nullptr, 0, 0), 0);
    long set = 0, warning = -1;
    for (long missing = 0; missing < 3; ++missing) {
        const AllBut given{missing};
        EXPECT_EQ(KL_Check_Time_warn_flags(id, given(0, &after), given(1, &set), given(2, &warning)), -1);
    }
}

TEST(OnceOnlyWarnings, ASharedIdConvertsRightInEveryThread)
{
    TableId id(ten_days());
    const auto work = [&id](double utc, double ut1_utc, long *wrong) {
        for (int i = 0; i < 2000; ++i)
            if (std::fabs((convert(id, KL_TIME_UTC, utc, KL_TIME_UT1).time - utc) * kDay - ut1_utc) > 1e-6)
                ++*wrong;
    };
    long wrong[2] = {0, 0};
    std::thread outside([&] { work(20.0, 0.5, &wrong[0]); });
    work(5.0, 0.75, &wrong[1]);
    outside.join();
    EXPECT_EQ(wrong[0] + wrong[1], 0);
}

// ---- one instant to TAI and back ----

void expect_record(const kl_std_record &got, const kl_std_record &want, const char *name)
{
    EXPECT_EQ(got.days, want.days) << name;
    EXPECT_EQ(got.seconds, want.seconds) << name;
    EXPECT_EQ(got.microseconds, want.microseconds) << name;
}

TEST(ToTai, AddsTheDifferenceAndCarries)
{
    for (const InstantCase &c : kInstants) {
        Table table({row_at(0.0, c.tai_utc, c.tai_ut1, c.tai_gps)});
        table.data.model = -1;
        TableId id(table);
        kl_std_record tai{}, back{};
        EXPECT_EQ(KL_Time_t2t_ref_to_tai(id, c.scale, &c.in, &tai, nullptr), KL_OK) << c.name;
        expect_record(tai, c.tai, c.name);
        EXPECT_EQ(KL_Time_t2t_ref_from_tai(id, c.scale, &c.tai, &back, nullptr), KL_OK) << c.name;
        expect_record(back, c.in, c.name);
    }
}

void expect_only_code(long status, const kl_error_record &error, long function, long code, long warning,
                      const char *name)
{
    EXPECT_EQ(status, code == kNone ? KL_OK : code == warning ? KL_WARN : KL_ERR) << name << ", function " << function;
    ASSERT_EQ(error.count, code == kNone ? 0 : 1) << name << ", function " << function;
    if (code != kNone) {
        EXPECT_EQ(error.function_id, function) << name;
        EXPECT_EQ(error.codes[0], code) << name << ", function " << function;
    }
}

TEST(ToTai, ConditionsAreThoseOfTheLookUp)
{
    for (const ConditionCase &c : kConditions) {
        Table table = ten_days();
        table.data.model = c.model;
        TableId with_table(table);
        kl_time_id none{};
        kl_time_id *id = c.id == kTableId ? &with_table.id : c.id == kEmptyId ? &none : nullptr;
        const kl_std_record in = {c.days, 0, 0};
        kl_std_record out{};
        const Deltas deltas = deltas_at(id, c.scale, static_cast<double>(c.days));
        expect_only_code(deltas.status, deltas.error, 38, c.look_up, 2, c.name);
        kl_error_record error;
        expect_only_code(KL_Time_t2t_ref_to_tai(id, c.scale, &in, &out, &error), error, 36, c.to_tai, 1, c.name);
        expect_only_code(KL_Time_t2t_ref_from_tai(id, c.scale, &in, &out, &error), error, 37, c.from_tai, 1, c.name);
    }
}

TEST(ToTai, MissingArgumentsAreNoCrash)
{
    TableId id(ten_days());
    const kl_std_record in = {0, 0, 0};
    const double t = 5.0;
    const long utc = KL_TIME_UTC;
    EXPECT_EQ(KL_Time_t2t_ref_to_tai(id, KL_TIME_UTC, nullptr, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Time_t2t_ref_from_tai(id, KL_TIME_UTC, &in, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Time_ref_init_file_deltas(id, &t, &utc, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(KL_Time_ref_init_file_deltas(id, &t, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), -1);
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
    TableId id(numbered(40, 8000.0, 1.0));
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i) {
        const long microsecond = static_cast<long>(random() % 3000000000000ULL); // 34 days and more
        const kl_std_record grid = {8001 + microsecond / 86400000000, microsecond / 1000000 % 86400,
                                    microsecond % 1000000};
        double t = 0.0;
        KL_Time_t2p_format_from_std(&grid, &t);
        for (const long scale : {KL_TIME_UTC, KL_TIME_GPS}) {
            const Converted out = convert(id, scale, t, KL_TIME_TAI);
            ASSERT_EQ(convert(id, KL_TIME_TAI, out.time, scale).time, t) << scale;
        }
        // The difference itself moves with the instant, by less than a microsecond here.
        const Converted out = convert(id, KL_TIME_UT1, t, KL_TIME_TAI);
        ASSERT_NEAR(convert(id, KL_TIME_TAI, out.time, KL_TIME_UT1).time, t, 1.1e-6 / kDay);
    }
}

TEST(GetTimeInRef, CopiesOrConverts)
{
    TableId id(ten_days());
    kl_error_record error;
    double out = 0.0;
    EXPECT_EQ(KL_Get_time_in_ref(nullptr, 9, 9, &out, &error, 0.123456789012345), 0); // equal: nothing is looked at
    EXPECT_EQ(out, 0.123456789012345);
    EXPECT_EQ(KL_Get_time_in_ref(id, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 50.0), 0); // a warning is no failure
    EXPECT_EQ(error.count, 0);
    EXPECT_NEAR((out - 50.0) * kDay, 32.0, 1e-6);
    EXPECT_EQ(KL_Get_time_in_ref(nullptr, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 5.0), -1);
    EXPECT_EQ(error.count, 1);
    EXPECT_EQ(error.codes[0], 0);
    EXPECT_EQ(KL_Get_time_in_ref(id, KL_TIME_UTC, KL_TIME_TAI, nullptr, &error, 5.0), -1);
}

} // namespace
