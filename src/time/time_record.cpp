// The record of a time id: its arrays, the checks of its rows, and its way into a handle.
#include "time/time_record.h"

#include "time/instants.h"
#include "time/leap_second.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>

namespace {

constexpr long kNoSatellite = -1;
constexpr double kColumnSlack = 2e-6; // s: two days rounded to doubles near 2099 use up half of it

// Bounds that keep sums of seconds and microseconds within a long: no two times in range lie further apart, and the
// UT1-UTC formula, which is also asked for days that had seconds added to them, stays below a sum that no clock needs.
constexpr double kLongestDelta = (KL_PROCESSING_LAST - KL_PROCESSING_FIRST) * KL_SECONDS_PER_DAY; // s
constexpr double kFormulaReach = 1e10;                                                            // days
constexpr double kLargestPole = 100.0;                                                            // arcsec
constexpr double kLongestFormula = 1e12;                                                          // s

double gps_of(const kl_time_row &row)
{
    return row.tai - row.tai_gps / KL_SECONDS_PER_DAY;
}

// What is wrong with a row; null when it can be used.
const char *fault_of_row(const kl_time_row &row, bool explicit_values)
{
    const double values[] = {row.tai, row.ut1, row.utc, row.tai_utc, row.tai_ut1, row.tai_gps};
    if (!std::all_of(std::begin(values), std::end(values), [](double value) { return std::isfinite(value); }))
        return "A value of a row is not finite";
    // Nothing reads the UTC time of explicit values, which is their TAI time less a rounded TAI-UTC.
    if (!inside_processing_range(row.tai) || !inside_processing_range(row.ut1)
        || (!explicit_values && !inside_processing_range(row.utc)))
        return "A time of a row is out of range";
    if (row.tai_utc != std::floor(row.tai_utc) || row.tai_gps != std::floor(row.tai_gps))
        return "TAI-UTC and TAI-GPS must be whole seconds";
    if (std::fabs(row.tai_utc) > kLongestDelta || std::fabs(row.tai_gps) > kLongestDelta)
        return "TAI-UTC or TAI-GPS is longer than the range of times";
    if (std::fabs((row.tai - row.utc) * KL_SECONDS_PER_DAY - row.tai_utc) > kColumnSlack
        || std::fabs((row.tai - row.ut1) * KL_SECONDS_PER_DAY - row.tai_ut1) > kColumnSlack)
        return "The times of a row do not agree with its differences";
    return nullptr;
}

bool within(const double *values, int n, double limit)
{
    return std::all_of(values, values + n, [limit](double value) { return std::fabs(value) <= limit; }); // not NaN
}

bool usable(const PoleFormula &formula)
{
    return within(formula.x, 5, kLargestPole) && within(formula.y, 5, kLargestPole)
           && within(formula.reference_date, 2, kFormulaReach) && within(formula.period, 2, kFormulaReach)
           && std::all_of(formula.period, formula.period + 2,
                          [](double days) { return days == 0.0 || std::fabs(days) >= 1.0; });
}

bool follows(const kl_time_row &row, const kl_time_row &before)
{
    return row.tai > before.tai && row.ut1 > before.ut1 && row.utc > before.utc && gps_of(row) > gps_of(before);
}

template <typename Row>
Row *array_of(long n)
{
    return static_cast<Row *>(std::calloc(static_cast<std::size_t>(n), sizeof(Row)));
}

// As if the computation before the first one had been inside: the first one outside warns.
void forget_computations(TimeIdRecord *record)
{
    for (OnceOnlyFlags &set : record->once_only)
        for (auto &flag : set.was_inside)
            flag.store(1, std::memory_order_relaxed);
}

} // namespace

const char *fault_of(const Correlation &given)
{
    if (given.rows == nullptr || given.n_rows < 1)
        return "There must be at least one row";
    const bool explicit_values = given.model == KL_TIME_MODEL_EXPLICIT;
    if (given.model == 0)
        return "Time model 0 stands for no model";
    if (explicit_values && given.n_rows != 1)
        return "Explicit values have exactly one row";
    if (given.combination == KL_COMBINATION_TWO_BULLETINS
        && (given.second_bulletin_row < 1 || given.second_bulletin_row >= given.n_rows))
        return "The first row of the second bulletin must lie inside the table";
    if (!(std::fabs(given.a) + std::fabs(given.b) * (std::fabs(given.c) + kFormulaReach) <= kLongestFormula)) // or NaN
        return "A coefficient of the UT1-UTC formula is not finite or too large";
    if (!usable(given.pole))
        return "The pole formula is not finite or too large";
    for (long i = 0; i < given.n_rows; ++i) {
        if (given.row_pole != nullptr && !within(given.row_pole[i], 4, kLargestPole))
            return "A pole of a row is not finite or too large";
        if (const char *fault = fault_of_row(given.rows[i], explicit_values))
            return fault;
        if (i > 0 && !follows(given.rows[i], given.rows[i - 1]))
            return "The rows must be in increasing time order";
    }
    return nullptr;
}

namespace {

// Are the scales less than an hour apart, and the rows further apart than the slack around them?
bool is_ordinary(const Correlation &correlation)
{
    constexpr double kHour = 3600.0; // s
    constexpr double kApart = 1e-9;  // days
    bool ordinary = correlation.n_rows > 1;
    for (long i = 0; i < correlation.n_rows && ordinary; ++i) {
        const kl_time_row &row = correlation.rows[i];
        ordinary = std::fabs(row.tai_utc) < kHour && std::fabs(row.tai_ut1) < kHour && std::fabs(row.tai_gps) < kHour;
        if (i > 0) {
            const kl_time_row &before = correlation.rows[i - 1];
            ordinary = ordinary && row.tai - before.tai > kApart && row.utc - before.utc > kApart
                       && row.ut1 - before.ut1 > kApart && gps_of(row) - gps_of(before) > kApart;
        }
    }
    return ordinary;
}

QuietSpan quiet_span(const Correlation &correlation)
{
    constexpr double kClear = 1.0; // days
    if (!is_ordinary(correlation))
        return {0.0, 0.0, 0.0, 0.0};
    QuietSpan span = {correlation.rows[0].tai + kClear, correlation.rows[correlation.n_rows - 1].tai - kClear, 0.0,
                      0.0};
    if (correlation.combination == KL_COMBINATION_TWO_BULLETINS) {
        const kl_time_row *second = correlation.rows + correlation.second_bulletin_row;
        span.gap_first = second[-1].tai - kClear;
        span.gap_last = second->tai + kClear;
    }
    return span;
}

} // namespace

bool complete(Correlation *correlation)
{
    const kl_time_row *rows = correlation->rows;
    const long n = correlation->n_rows;
    correlation->rows_per_day = n > 1 ? static_cast<double>(n - 1) / (rows[n - 1].tai - rows[0].tai) : 0.0;
    correlation->widest_gap = 0.0;
    for (long i = 1; i < n; ++i)
        correlation->widest_gap = std::max(correlation->widest_gap, rows[i].tai - rows[i - 1].tai);
    if (!find_leap_second(*correlation, &correlation->leap))
        return false;
    find_rows_of_leap_second(correlation);
    correlation->quiet = quiet_span(*correlation);
    return true;
}

bool copy_arrays(const Correlation &given, Correlation *own)
{
    const long n = given.n_rows;
    Correlation copy = given;
    copy.rows = array_of<kl_time_row>(n);
    copy.row_notes = array_of<long[2]>(n);
    copy.row_pole = given.row_pole != nullptr ? array_of<double[4]>(n) : nullptr;
    if (copy.rows == nullptr || copy.row_notes == nullptr || (given.row_pole != nullptr && copy.row_pole == nullptr)) {
        free_arrays(&copy);
        return false;
    }
    const auto count = static_cast<std::size_t>(n);
    std::copy(given.rows, given.rows + n, copy.rows);
    if (given.row_notes != nullptr)
        std::memcpy(copy.row_notes, given.row_notes, count * sizeof *copy.row_notes);
    if (given.row_pole != nullptr)
        std::memcpy(copy.row_pole, given.row_pole, count * sizeof *copy.row_pole);
    *own = copy;
    return true;
}

void free_arrays(Correlation *correlation)
{
    std::free(correlation->rows);
    std::free(correlation->row_notes);
    std::free(correlation->row_pole);
    correlation->rows = nullptr;
    correlation->row_notes = nullptr;
    correlation->row_pole = nullptr;
    correlation->n_rows = 0;
}

bool publish(const Correlation &own, kl_time_id *time_id)
{
    TimeIdRecord *record = time_record_of(time_id);
    if (record != nullptr) {
        free_arrays(&record->correlation);
    } else {
        record = new (std::nothrow) TimeIdRecord{};
        if (record == nullptr || KL_Id_init(&kNoSatellite, KL_ID_TIME, record) < 0) {
            delete record;
            return false;
        }
        time_id->record = record;
    }
    record->correlation = own;
    record->head.mode = own.model;
    forget_computations(record);
    return true;
}

void free_time_record(TimeIdRecord *record)
{
    free_arrays(&record->correlation);
    delete record;
}
