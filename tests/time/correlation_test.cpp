// The correlation look-up: rows, interpolation, both ends of the table, once-only warnings, one instant to TAI and
// back; leap seconds and what becomes of instants around them.
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace {

// Vectors of kl_time_processing_to_processing.
constexpr long kOut = warning_bits(6), kFormula = warning_bits(7), kGap = warning_bits(8), kLeft = warning_bits(9);

using Rows = std::vector<kl_time_row>;
#include "time/correlation_cases.inc"

// Rows `step` days apart, or for step 0 from a quarter of an hour to a year. TAI-GPS is the number of the row, so that
// the look-up says which row it took.
Table numbered(int n, double first, double step)
{
    Rows rows;
    for (int i = 0; i < n; ++i) {
        rows.push_back(row_at(first, 32.0, 31.5 + 1e-4 * std::sin(0.1 * i), i));
        first += step > 0.0 ? step : std::pow(10.0, std::fmod(0.7 * i, 4.5) - 2.0);
    }
    return Table(rows);
}

// ---- the look-up ----

TEST(BinarySearch, TakesTheFirstRowItTriesThatMatchesWithItsSlackElseRow0)
{
    const Table table = numbered(10, 0.0, 1.0);
    for (const auto &[time, first, last, scale, row] : read_rows<double, long, long, Scale, long>("row_searches.csv"))
        EXPECT_EQ(KL_binary_search(table.rows.data(), first, last, scale, &time), row) << time << " to row " << last;
    EXPECT_EQ(KL_binary_search(table.rows.data(), 4, 8, kTai, nullptr), 0);
}

TEST(DeltaLookUp, TakesTheRowOfTheInstantOrTheNextTenPicodaysBeforeIt)
{
    constexpr double kShifts[] = {0.0, 2e-12, 8e-12, 2e-11, -2e-12, -5e-12, -9e-12, -1.2e-11, 0.003, -0.003}; // days
    for (const Table &table : {numbered(20000, -9131.0, 1.0), numbered(1000, -9000.0, 0.0), numbered(2, 0.0, 1.0),
                               numbered(3, 0.0, 400.0), numbered(64, 100.0, 0.5)}) {
        TableId id(table);
        for (const long scale : kScales) {
            std::vector<double> starts;
            for (const kl_time_row &row : table.rows) {
                const double columns[] = {row.tai, row.utc, row.ut1, row.tai - row.tai_gps / kDay};
                starts.push_back(columns[scale]);
            }
            for (std::size_t i = 0; i < starts.size(); i += std::max<std::size_t>(1, starts.size() / 500))
                for (const double shift : kShifts) {
                    const double t = starts[i] + shift;
                    if (t < starts.front() || t >= starts.back())
                        continue;
                    const auto next = std::upper_bound(starts.begin(), starts.end(), t);
                    const auto row = static_cast<double>(next - starts.begin() - 1);
                    const Deltas deltas(id, scale, t);
                    ASSERT_EQ(deltas.status, KL_OK) << t;
                    ASSERT_TRUE(deltas.tai_gps == row || (deltas.tai_gps == row + 1 && *next - t < 1.1e-11))
                        << starts.size() << " rows, scale " << scale << ", " << t << ": " << deltas.tai_gps;
                }
        }
    }
}

// Rows and the first fields of the data, with a formula of UT1.
Table table_of(const Rows &rows, long model, long no_extrapolation, long combination = 0)
{
    Table table(rows);
    table.data = {model, combination, no_extrapolation, 2,       -0.15,   -0.0007, 6200.0, 0,  0.0,
                  0.0,   0,           nullptr,          nullptr, nullptr, {},      {},     {}, {}};
    return table;
}

void expect_deltas(const std::string &wanted)
{
    for (const auto &[group, name, rows, model, no_extrapolation, scale, time, codes, tai_utc, tai_ut1, tai_gps] :
         read_rows<std::string, std::string, std::string, long, long, Scale, double, long, double, double, double>(
             "time_differences.csv")) {
        if (group != wanted)
            continue;
        SCOPED_TRACE(name + ", model " + std::to_string(model) + ", scale " + std::to_string(scale));
        const Deltas deltas(TableId(table_of(kRowsOf.at(rows), model, no_extrapolation)), scale, time);
        EXPECT_EQ(std::tuple(deltas.status, deltas.codes), std::tuple(codes != 0 ? KL_WARN : KL_OK, codes));
        EXPECT_EQ(deltas.tai_utc, tai_utc);
        EXPECT_NEAR(deltas.tai_ut1, tai_ut1, 1e-11);
        EXPECT_EQ(deltas.tai_gps, tai_gps);
        EXPECT_EQ(deltas.in_leap + deltas.after_leap, 0);
    }
}

TEST(DeltaLookUp, ReadsUt1LinearlyAndTheStepsAsTheyStandWithASlackOfTenPicodaysAtTheEnds)
{
    expect_deltas("in the table");
}

TEST(DeltaLookUp, ExtrapolationAddsSecondsToDaysForUt1AndGpsOnPurpose)
{
    expect_deltas("by formula");
    TableId id(table_of(kRowsOf.at("late"), 1, 0));
    for (const auto &[from, to, seconds] : kConvertedByFormula)
        EXPECT_NEAR((convert(id, from, 6300.0, to).time - 6300.0) * kDay, seconds, 2e-6) << from << to;
}

TEST(DeltaLookUp, TaiGpsIsNineteenSecondsByFormulaWhateverTheTableHoldsOnPurpose)
{
    expect_deltas("GPS");
}

// ---- once-only warnings ----

TEST(OnceOnlyWarnings, ComeWithTheFirstConversionThatLeavesTheGoodRegion)
{
    for (const auto &[name, model, combination, no_extrapolation, from, to, steps] : kOnce) {
        TableId id(table_of(kFourRows, model, no_extrapolation, combination));
        for (const auto &[time, vector] : steps)
            EXPECT_EQ(convert(id, from, time, to).ierr, vector) << name << " " << time;
        // New data are in the good region again.
        ASSERT_EQ(table_of(kFourRows, model, no_extrapolation, combination).set(id), 0);
        EXPECT_EQ(convert(id, from, steps[0].first, to).ierr, steps[0].second) << name << ", new data";
    }
}

TEST(OnceOnlyWarnings, ASharedIdConvertsRightInEveryThread)
{
    NamedIds ids;
    const auto look = [&ids](double utc, double ut1_utc) {
        for (int i = 0; i < 2000; ++i)
            EXPECT_NEAR((convert(ids[kTenDays], kUtc, utc, kUt1).time - utc) * kDay, ut1_utc, 1e-6);
    };
    std::thread outside(look, 20.0, 0.5);
    look(5.0, 0.75);
    outside.join();
}

// ---- one instant to TAI and back ----

TEST(ToTai, AddsTheDifferenceAndCarries)
{
    for (const auto &[name, tai_utc, tai_ut1, tai_gps, scale, instant, instant_of_tai] :
         read_rows<std::string, double, double, double, Scale, std::string, std::string>("time_to_tai.csv"))
        for (const long model : {-1, 8}) { // explicit values, and a table
            TableId id(table_of({row_at(0.0, tai_utc, tai_ut1, tai_gps)}, model, 1));
            const Form in = plain(kOfTransport, scale), in_tai = plain(kOfTransport, kTai);
            const Value given = value_as(kOfTransport, instant), tai = value_as(kOfTransport, instant_of_tai);
            EXPECT_EQ(fields_of(convert(id, in, given, in_tai).value), fields_of(tai)) << name;
            EXPECT_EQ(fields_of(convert(id, in_tai, tai, in).value), fields_of(given)) << name;
        }
}

// ---- leap seconds: the quarter, the one of a table, its day ----

TEST(QuarterStart, IsThatOfAnyDayOfTheQuarterOnPurpose)
{
    for (const auto &row : read_table("quarters.csv", 2)) {
        double start = kNaN;
        EXPECT_EQ(KL_Leap_second_utc_time(&kUtc, &row[0], &start, nullptr), 0) << row[0];
        EXPECT_EQ(start, row[1]) << row[0];
    }
}

TEST(LeapSecond, IsTheLastChangeOfTaiUtcAtTheStartOfItsQuarter)
{
    for (const auto &[name, cells, sign, utc, tai_utc] :
         read_rows<std::string, std::string, long, double, double>("leap_tables.csv")) {
        Rows rows;
        for (const std::string &cell : parts_of(cells, ';')) {
            const auto row = cells_as<double>(cell);
            rows.push_back(row_at(row.at(0), row.at(1), row.at(2)));
        }
        const TimeData data(TableId(Table{rows}));
        EXPECT_EQ(std::tuple(data.leap_sign, data.leap_utc), std::tuple(sign, utc)) << name;
        EXPECT_NEAR(data.leap_tai, utc + tai_utc / kDay, 1.9e-12) << name;
    }
}

TEST(LeapFlags, RunFromHalfAMicrosecondBeforeToAMicrosecondShortOfTheEnd)
{
    for (const auto &[name, hours, ref, ahead, microseconds, in, after] :
         read_rows<std::string, double, Scale, double, double, long, long>("leap_flags.csv")) {
        TableId id(leap_table(k2017, 36.0, 1, hours / 24.0));
        const Deltas deltas(id, ref, k2017 + microseconds / 8.64e10 + ahead / kDay);
        EXPECT_EQ(std::tuple(deltas.in_leap, deltas.after_leap), std::tuple(in, after)) << name << ", scale " << ref;
        EXPECT_EQ(deltas.tai_utc, microseconds > -0.5 ? 37.0 : 36.0) << name << ", scale " << ref;
    }
}

// Microseconds before and after 0h of TAI's next day, counted on with the old TAI-UTC, for each of the 27 (and one more
// that never was), and as if it took a second away; with rows at 0h and at noon.
TEST(AroundALeapSecond, EveryScaleGoesToTaiAndBackAsCountedByHand)
{
    const Form in_tai = plain(kOfTransport, kTai), in_utc = plain(kOfTransport, kUtc);
    std::vector<long> offsets; // one by one at the ends of seconds
    for (long second = -3; second < 3; ++second)
        for (long us = -10; us < kSecond - 10; us += us < 10 ? 1 : 33331)
            offsets.push_back(second * kSecond + us);
    for (const TaiUtcStep &step : kTaiUtcSteps)
        for (const auto &[sign, phase] :
             {std::pair(1, 0.0), std::pair(1, 0.5), std::pair(-1, 0.0), std::pair(-1, 0.5)}) {
            const long day = static_cast<long>(step.mjd) - 51545, before = static_cast<long>(step.tai_utc) - 1;
            TableId id(leap_table(step.mjd - 51544.0, step.tai_utc - 1.0, sign, phase));
            for (const long us : offsets) {
                const Value tai = instant(day + 1, before * kSecond + us);
                const Value utc =
                    us < sign * kSecond ? instant(day, 86400 * kSecond + us) : instant(day + 1, us - sign * kSecond);
                ASSERT_EQ(fields_of(convert(id, in_utc, utc, in_tai).value), fields_of(tai)) << step.mjd;
                ASSERT_EQ(fields_of(convert(id, in_tai, tai, in_utc).value), fields_of(utc)) << step.mjd;
                // Days hold no 61st second: it folds onto the one before. UT1 and GPS run on through it.
                const bool folds = utc.fields[1] == 86400;
                const double utc_days = folds ? instant(day, 86399 * kSecond + us).time : utc.time;
                const double again = folds ? instant(day + 1, (before - 1) * kSecond + us).time : tai.time;
                const double t = tai.time;
                ASSERT_NEAR(convert(id, kTai, t, kUtc).time, utc_days, kSpacing2099) << step.mjd << " " << us;
                ASSERT_NEAR(convert(id, kUtc, utc_days, kTai).time, again, kSpacing2099) << step.mjd << " " << us;
                ASSERT_NEAR((t - convert(id, kTai, t, kUt1).time) * kDay, step.tai_utc - 0.7 - 0.001 * phase, 2e-6);
                ASSERT_NEAR((t - convert(id, kTai, t, kGps).time) * kDay, 19.0, 1e-6);
            }
        }
}

TEST(LeapSecondInfo, WritesBothInstantsOrTellsWhatIsMissingAndLeavesTheOnceOnlyWarningsAlone)
{
    NamedIds ids;
    EXPECT_EQ(convert(ids[kPositiveLeap], kUtc, 7000.0, kTai).ierr, kOut | kLeft);
    for (const auto &[given, format, vector, sign, before, after] :
         read_rows<IdName, long, Bits, long, std::string, std::string>("leap_second_infos.csv")) {
        long ierr = -1, got_sign = 7;
        char texts[2][KL_TIME_ASCII_LENGTH] = {"untouched", "untouched"};
        EXPECT_EQ(kl_time_get_leap_second_info(ids[given], &format, &got_sign, texts[0], texts[1], &ierr),
                  status_with(vector));
        EXPECT_EQ(std::tuple(ierr, got_sign, std::string(texts[0]), std::string(texts[1])),
                  std::tuple(vector.value, sign, before, after))
            << given << " " << format;
    }
    EXPECT_EQ(convert(ids[kPositiveLeap], kUtc, 7000.0, kTai).ierr, kOut);
}

} // namespace
