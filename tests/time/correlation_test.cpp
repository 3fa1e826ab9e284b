// The correlation look-up: rows, interpolation, both ends of the table, once-only warnings, one instant to TAI and
// back.
#include "time/format_cases.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <future>
#include <random>

namespace {

// Vectors of kl_time_processing_to_processing.
constexpr long kOut = warning_bit(6), kFormula = warning_bit(7), kGap = warning_bit(8), kLeft = warning_bit(9);

using Rows = std::vector<kl_time_row>;
#include "time/correlation_cases.inc"

// Rows `step` days apart, or for step 0 from a quarter of an hour to a year. TAI-GPS is the number of the row, so that
// the look-up says which row it took.
Table numbered(int n, double first, double step)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> power(-2.0, 2.5);
    Rows rows;
    for (int i = 0; i < n; ++i) {
        rows.push_back(row_at(first, 32.0, 31.5 + 1e-4 * std::sin(0.1 * i), i));
        first += step > 0.0 ? step : std::pow(10.0, power(random));
    }
    return Table(rows);
}

// ---- the look-up ----

TEST(BinarySearch, TakesTheFirstRowItTriesThatMatchesWithItsSlackElseRow0)
{
    const Table table = numbered(10, 0.0, 1.0);
    const kl_time_row *rows = table.rows.data();
    const auto search = [rows](double time, long first, long last, long scale) {
        return KL_binary_search(rows, first, last, scale, &time);
    };
#include "time/searches.inc"
}

TEST(DeltaLookUp, TakesTheRowOfTheInstantOrTheNextTenPicodaysBeforeIt)
{
    constexpr double kShifts[] = {0.0, 2e-12, 8e-12, 2e-11, -2e-12, -5e-12, -9e-12, -1.2e-11, 0.003, -0.003}; // days
    for (const Table &table : {numbered(20000, -9131.0, 1.0), numbered(1000, -9000.0, 0.0), numbered(2, 0.0, 1.0),
                               numbered(3, 0.0, 400.0), numbered(64, 100.0, 0.5)}) {
        TableId id(table);
        for (const long scale : kScales) {
            std::vector<double> starts;
            for (const kl_time_row &row : table.rows)
                starts.push_back(std::array{row.tai, row.utc, row.ut1, row.tai - row.tai_gps / kDay}[scale]);
            for (std::size_t i = 0; i < starts.size(); i += std::max<std::size_t>(1, starts.size() / 500))
                for (const double shift : kShifts) {
                    const double t = starts[i] + shift;
                    if (t < starts.front() || t >= starts.back())
                        continue;
                    const auto next = std::upper_bound(starts.begin(), starts.end(), t);
                    const auto row = static_cast<double>(next - starts.begin() - 1);
                    const Deltas deltas = deltas_at(id, scale, t);
                    ASSERT_EQ(deltas.status, KL_OK) << t;
                    ASSERT_TRUE(deltas.tai_gps == row || (deltas.tai_gps == row + 1 && *next - t < 1.1e-11))
                        << starts.size() << " rows, scale " << scale << ", " << t << ": " << deltas.tai_gps;
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
        SCOPED_TRACE(std::string(name) + ", model " + std::to_string(model) + ", scale " + std::to_string(scale));
        const Deltas deltas = deltas_at(TableId(with_formula(*rows, model, no_extrapolation)), scale, time);
        EXPECT_EQ(deltas.status, codes != 0 ? KL_WARN : KL_OK);
        EXPECT_EQ(deltas.codes, codes);
        EXPECT_EQ(deltas.tai_utc, tai_utc);
        EXPECT_NEAR(deltas.tai_ut1, tai_ut1, 1e-11);
        EXPECT_EQ(deltas.tai_gps, tai_gps);
        EXPECT_EQ(deltas.in_leap + deltas.after_leap, 0);
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
    for (const auto &[name, model, combination, no_extrapolation, from, to, steps] : kOnce) {
        Table table(
            {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5), row_at(30.0, 32.0, 32.0)});
        table.data = {model, combination, no_extrapolation, 2, 0.0, 0.0, 0.0, 0, 0.0, 0.0, 0, nullptr};
        TableId id(table);
        for (const auto &[time, vector] : steps)
            EXPECT_EQ(convert(id, from, time, to).ierr, vector) << name << " " << time;
    }
}

TEST(OnceOnlyWarnings, TwoSetsOfFlagsDoNotSpendEachOthersWarning)
{
    NamedIds ids;
    const kl_std_record after = {20, 0, 0};
    // Set, status and warning.
    constexpr long kCalls[][3] = {{0, 0, 3}, {0, 0, 0}, {1, 0, 3}, {1, 0, 0}, {-1, -1, 0}, {2, -1, 0}};
    for (const auto &[set, status, expected] : kCalls) {
        long warning = -1;
        EXPECT_EQ(KL_Check_Time_warn_flags(ids[kTenDays], &after, &set, &warning), status) << set;
        EXPECT_EQ(warning, expected) << set;
    }
}

TEST(OnceOnlyWarnings, ASharedIdConvertsRightInEveryThread)
{
    NamedIds ids;
    const auto wrong = [&ids](double utc, double ut1_utc) {
        long n = 0;
        for (int i = 0; i < 2000; ++i)
            n += std::fabs((convert(ids[kTenDays], kUtc, utc, kUt1).time - utc) * kDay - ut1_utc) < 1e-6 ? 0 : 1;
        return n;
    };
    std::future<long> outside = std::async(std::launch::async, wrong, 20.0, 0.5);
    EXPECT_EQ(wrong(5.0, 0.75) + outside.get(), 0);
}

// ---- one instant to TAI and back ----

TEST(ToTai, AddsTheDifferenceAndCarries)
{
    const auto form = [](long ref) { return Form{kOfTransport, KL_TRANS_0, ref}; };
    for (const auto &[name, tai_utc, tai_ut1, tai_gps, scale, given, tai] : kInstants) {
        Table table({row_at(0.0, tai_utc, tai_ut1, tai_gps)});
        table.data.model = -1;
        TableId id(table);
        EXPECT_EQ(fields_of(convert(id, form(scale), given, form(kTai)).value), fields_of(tai)) << name;
        EXPECT_EQ(fields_of(convert(id, form(kTai), tai, form(scale)).value), fields_of(given)) << name;
    }
}

TEST(ToTai, ConditionsAreThoseOfTheLookUp)
{
    NamedIds ids;
    kl_std_record out{};
    double days = 0.0;
#include "time/to_tai_conditions.inc"
}

} // namespace
