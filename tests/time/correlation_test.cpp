// The correlation look-up: rows, interpolation, both ends of the table, once-only warnings, one instant to TAI and
// back.
#include "support/captured_stream.h"
#include "time/time_table.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <future>
#include <random>

namespace {

constexpr long kScales[] = {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS};

// Bits of kl_time_processing_to_processing.
constexpr long kOutsideWarn = 6, kFormulaWarn = 7, kGapWarn = 8, kOutsideOnceWarn = 9;
constexpr long kFormula = 1L << kFormulaWarn, kGap = 1L << kGapWarn, kOutside = 1L << kOutsideOnceWarn;

enum GivenId { kNullId, kEmptyId, kTable, kOpenTable };
using Rows = std::vector<kl_time_row>;
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
    for (const auto &[time, first, last, scale, row] : kSearches)
        EXPECT_EQ(KL_binary_search(rows, first, last, scale, &time), row) << time << " of rows " << first << last;
    const double time = 7.5;
    EXPECT_EQ(KL_binary_search(nullptr, 0, 8, KL_TIME_TAI, &time), 0);
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

Table with_formula(const Rows &rows, long model, long no_extrapolation)
{
    Table table(rows);
    table.data = {model, 0, no_extrapolation, 0, -0.15, -0.0007, 6200.0, 0, 0.0, 0.0, 0, nullptr};
    return table;
}

template <std::size_t n>
void expect_deltas(const DeltaCase (&cases)[n])
{
    for (const auto &[name, rows, model, no_extrapolation, scale, time, codes, tai_utc, tai_ut1, tai_gps] : cases) {
        const Deltas deltas = deltas_at(TableId(with_formula(*rows, model, no_extrapolation)), scale, time);
        EXPECT_EQ(deltas.status, codes != 0 ? KL_WARN : KL_OK) << name << " " << model << " " << scale;
        EXPECT_EQ(deltas.codes(), codes) << name << " " << model << " " << scale;
        EXPECT_EQ(deltas.tai_utc, tai_utc) << name << " " << model << " " << scale;
        EXPECT_NEAR(deltas.tai_ut1, tai_ut1, 1e-11) << name << " " << model << " " << scale;
        EXPECT_EQ(deltas.tai_gps, tai_gps) << name << " " << model << " " << scale;
        EXPECT_EQ(deltas.in_leap + deltas.after_leap, 0) << name << " " << model << " " << scale;
    }
}

TEST(DeltaLookUp, ReadsUt1LinearlyAndTheStepsAsTheyStandWithASlackOfTenPicodaysAtTheEnds)
{
    expect_deltas(kInside);
    expect_deltas(kEnds);
}

TEST(DeltaLookUp, ExtrapolationAddsSecondsToDaysForUt1AndGpsOnPurpose)
{
    expect_deltas(kByFormula);
    TableId id(with_formula(kLate, 1, 0));
    for (const auto &[from, to, seconds] : kConvertedByFormula)
        EXPECT_NEAR((convert(id, from, 6300.0, to).time - 6300.0) * kDay, seconds, 2e-6) << from << to;
}

TEST(DeltaLookUp, TaiGpsIsNineteenSecondsByFormulaWhateverTheTableHoldsOnPurpose)
{
    expect_deltas(kOfGps);
}

// ---- once-only warnings ----

TEST(OnceOnlyWarnings, ComeWithTheFirstConversionThatLeavesTheGoodRegion)
{
    for (const auto &[name, model, combination, no_extrapolation, steps] : kOnce) {
        Table table(
            {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5), row_at(30.0, 32.0, 32.0)});
        table.data = {model, combination, no_extrapolation, 2, 0.0, 0.0, 0.0, 0, 0.0, 0.0, 0, nullptr};
        TableId id(table);
        for (const auto &[utc, warning] : steps) {
            const Converted out = convert(id, KL_TIME_UTC, utc, KL_TIME_UT1);
            EXPECT_NE(out.status, KL_ERR) << name << " " << utc;
            EXPECT_EQ(out.ierr & (kFormula | kGap | kOutside), warning) << name << " " << utc;
        }
    }
}

TEST(OnceOnlyWarnings, EqualScalesRunThemOnTheTimeAsItIsAndTheFormulasOwnIsNotPassedOn)
{
    TableId id(ten_days());
    EXPECT_EQ(convert(id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, warning_bit(kOutsideOnceWarn));
    EXPECT_EQ(convert(id, KL_TIME_UT1, 20.0, KL_TIME_UT1).ierr, 0);
    Table table = ten_days();
    table.data.no_extrapolation = 0;
    EXPECT_EQ(convert(TableId(table), KL_TIME_UT1, 20.0, KL_TIME_GPS).ierr, warning_bit(kOutsideWarn) | kFormula);
}

TEST(OnceOnlyWarnings, TwoSetsOfFlagsDoNotSpendEachOthersWarning)
{
    TableId id(ten_days());
    const kl_std_record after = {20, 0, 0};
    // Set, status and warning.
    constexpr long kCalls[][3] = {{0, 0, 3}, {0, 0, 0}, {1, 0, 3}, {1, 0, 0}, {-1, -1, 0}, {2, -1, 0}};
    long warning = -1;
    for (const auto &[set, status, want] : kCalls) {
        EXPECT_EQ(KL_Check_Time_warn_flags(id, &after, &set, &warning), status) << set;
        EXPECT_EQ(warning, want) << set;
    }
    EXPECT_EQ(KL_Check_Time_warn_flags(nullptr, &after, &kCalls[0][0], &warning), 0);
    EXPECT_EQ(KL_Check_Time_warn_flags(id, nullptr, &kCalls[0][0], &warning), -1);
    EXPECT_EQ(KL_Check_Time_warn_flags(id, &after, nullptr, &warning), -1);
    EXPECT_EQ(KL_Check_Time_warn_flags(id, &after, &kCalls[0][0], nullptr), -1);
}

TEST(OnceOnlyWarnings, ASharedIdConvertsRightInEveryThread)
{
    TableId id(ten_days());
    const auto wrong = [&id](double utc, double ut1_utc) {
        long n = 0;
        for (int i = 0; i < 2000; ++i)
            n += std::fabs((convert(id, KL_TIME_UTC, utc, KL_TIME_UT1).time - utc) * kDay - ut1_utc) < 1e-6 ? 0 : 1;
        return n;
    };
    std::future<long> outside = std::async(std::launch::async, wrong, 20.0, 0.5);
    EXPECT_EQ(wrong(5.0, 0.75) + outside.get(), 0);
}

// ---- one instant to TAI and back ----

TEST(ToTai, AddsTheDifferenceAndCarries)
{
    for (const auto &[name, tai_utc, tai_ut1, tai_gps, scale, in, tai] : kInstants) {
        Table table({row_at(0.0, tai_utc, tai_ut1, tai_gps)});
        table.data.model = -1;
        TableId id(table);
        kl_std_record forth{}, back{};
        EXPECT_EQ(KL_Time_t2t_ref_to_tai(id, scale, &in, &forth, nullptr), KL_OK) << name;
        EXPECT_EQ(std::memcmp(&forth, &tai, sizeof tai), 0) << name << ": " << forth.days << " " << forth.seconds;
        EXPECT_EQ(KL_Time_t2t_ref_from_tai(id, scale, &tai, &back, nullptr), KL_OK) << name;
        EXPECT_EQ(std::memcmp(&back, &in, sizeof in), 0) << name << ": " << back.days << " " << back.seconds;
    }
}

TEST(ToTai, ConditionsAreThoseOfTheLookUp)
{
    Table open_ended = ten_days();
    open_ended.data.model = 8;
    TableId table(ten_days()), open_table(open_ended);
    kl_time_id none{}, *const ids[] = {nullptr, &none, table, open_table};
    for (const auto &[name, given, scale, days, look_up, to_tai, from_tai] : kConditions) {
        const kl_std_record in = {days, 0, 0};
        kl_std_record out{};
        kl_error_record error;
        const Deltas deltas = deltas_at(ids[given], scale, static_cast<double>(days));
        expect_code(deltas.status, deltas.error, look_up, name, 2);
        expect_code(KL_Time_t2t_ref_to_tai(ids[given], scale, &in, &out, &error), error, to_tai, name, 1);
        EXPECT_TRUE(to_tai == kNone || error.function_id == 36) << name;
        expect_code(KL_Time_t2t_ref_from_tai(ids[given], scale, &in, &out, &error), error, from_tai, name, 1);
        EXPECT_TRUE(from_tai == kNone || error.function_id == 37) << name;
        EXPECT_EQ(KL_Time_t2t_ref_to_tai(ids[given], scale, nullptr, nullptr, nullptr), KL_ERR);
        EXPECT_EQ(KL_Time_t2t_ref_from_tai(ids[given], scale, &in, nullptr, nullptr), KL_ERR);
        EXPECT_EQ(KL_Time_ref_init_file_deltas(ids[given], nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                               nullptr, nullptr),
                  KL_ERR);
    }
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
    const long status = KL_Get_time_in_ref(id, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 50.0);
    expect_code(status, error, kNone, "a warning is no failure");
    EXPECT_NEAR((out - 50.0) * kDay, 32.0, 1e-6);
    expect_code(KL_Get_time_in_ref(nullptr, KL_TIME_UTC, KL_TIME_TAI, &out, &error, 5.0), error, 0, "no id");
    EXPECT_EQ(KL_Get_time_in_ref(id, KL_TIME_UTC, KL_TIME_TAI, nullptr, &error, 5.0), -1);
}

} // namespace

TEST(Conversion, VerboseModePrintsThatUt1GoesIntoTheFormulaAlsoUnderAModelThatIsNeverOutside)
{
    Table open_ended = ten_days();
    open_ended.data.model = 8;
    open_ended.data.no_extrapolation = 0;
    TableId id(open_ended);
    convert(id, KL_TIME_UTC, 50.0, KL_TIME_TAI); // spends the once-only warning
    kl_verbose();
    const std::string lines = captured_stderr([&] { convert(id, KL_TIME_UT1, 50.0, KL_TIME_TAI); });
    kl_silent();
    EXPECT_EQ(lines,
              "ORBKIT_LIB >>> WARNING in KL_Time_ref_init_file_deltas: Input UT1 for extrapolation UT1-UTC formula "
              "(expected UTC). Transforming to UTC with time correlations of last record\n");
}
