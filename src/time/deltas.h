// The look-up: how far the scales are apart at an instant of one of them.
#ifndef KL_SRC_TIME_DELTAS_H
#define KL_SRC_TIME_DELTAS_H

#include "time/correlation.h"
#include "time/instants.h"
#include "time/leap_second.h"

struct Deltas {
    double tai_utc, tai_ut1, tai_gps; // s
    LeapFlags leap;
    bool outside; // of the table, by more than its slack
    bool by_ut1;  // the formula after the table was asked with UT1
};

// Calls `use` with the column of a public reference; the rows are in the order TAI, UT1, UTC.
template <typename Use>
inline auto with_column(long ref, const Use &use)
{
    switch (ref) {
    case KL_TIME_TAI:
        return use([](const kl_time_row &row) { return row.tai; });
    case KL_TIME_UTC:
        return use([](const kl_time_row &row) { return row.utc; });
    case KL_TIME_UT1:
        return use([](const kl_time_row &row) { return row.ut1; });
    default:
        return use([](const kl_time_row &row) { return row.tai - row.tai_gps / KL_SECONDS_PER_DAY; });
    }
}

inline Deltas deltas_of(const kl_time_row &row)
{
    return {row.tai_utc, row.tai_ut1, row.tai_gps, {false, false}, false, false};
}

// Where an instant about there may lie, if the rows are evenly apart; -1 outside the table.
inline long guessed_row(const Correlation &correlation, double about_days)
{
    const double row = (about_days - correlation.rows[0].tai) * correlation.rows_per_day;
    return row >= 0.0 && row < static_cast<double>(correlation.n_rows - 1) ? static_cast<long>(row) : -1;
}

// Searches the table, or takes what holds outside of it. A correlation of explicit values answers with its row. TAI-UT1
// is left at 0 by the formula where nobody asks for it.
Deltas searched_deltas(const Correlation &correlation, long ref, double t, bool with_ut1);

// The columns of a row and of the one after it.
inline RowValues<double> row_values(const Correlation &correlation, long ref, long i)
{
    const kl_time_row &row = correlation.rows[i];
    const kl_time_row &next = correlation.rows[i + 1];
    RowValues<double> out = {row.tai, next.tai, row.tai, next.tai, row.tai_ut1, next.tai_ut1, row.tai_utc, row.tai_gps};
    with_column(ref, [&](auto column) {
        out.from = column(row);
        out.from_end = column(next);
    });
    return out;
}

// The row with column(row) <= t < column(row + 1) in the column of a reference: -1 before the table, the last row from
// its own instant on.
long row_of(const Correlation &correlation, long ref, double t);

// The row of `first` to `last` with column(row) <= t < column(row + 1), within the slack; 0 when there is none.
long binary_search(const kl_time_row *table, long first, long last, long ref, double t);

#endif
