// The search of the table, and what holds outside of it.
#include "time/deltas.h"

#include <algorithm>

namespace {

constexpr double kGpsAfterTable = 19.0; // s

double column_of(const kl_time_row &row, long ref)
{
    return with_column(ref, [&row](auto column) { return column(row); });
}

// The row with column(row) <= t < column(row + 1), of rows 0 to n_rows - 2; t lies below the last row. The search goes
// out from where an evenly spaced table would have the row.
template <typename Column>
long enclosing_row(const Correlation &correlation, double t, Column column)
{
    const kl_time_row *rows = correlation.rows;
    const long last = correlation.n_rows - 1;
    const double guess = (t - rows[0].tai) * correlation.rows_per_day;
    long low = guess > 0.0 ? std::min(static_cast<long>(guess), last - 1) : 0;
    long high = low + 1;
    // Invariant at the end: column(low) <= t < column(high), row 0 standing for all that lies before it.
    for (long step = 1; low > 0 && t < column(rows[low]); step *= 2) {
        high = low;
        low = std::max(low - step, 0L);
    }
    for (long step = 1; high < last && t >= column(rows[high]); step *= 2) {
        low = high;
        high = std::min(high + step, last);
    }
    while (high - low > 1) {
        const long middle = low + (high - low) / 2;
        (t < column(rows[middle]) ? high : low) = middle;
    }
    return low;
}

// The row of an instant inside the table: the one that KL_binary_search gives, or the next one once t has reached it.
template <typename Column>
long row_inside(const Correlation &correlation, long ref, double t, Column column)
{
    const kl_time_row *rows = correlation.rows;
    const long last = correlation.n_rows - 1;
    long row = enclosing_row(correlation, t, column);
    // Where the slack lets no other row match, or only one that t has passed, the search ends at this row.
    const bool next_matches = row + 1 < last && column(rows[row + 1]) - KL_ROW_EDGE <= t;
    const bool two_before_match =
        row > 1 && t < column(rows[row]) + KL_ROW_EDGE && t < column(rows[row - 1]) + KL_ROW_EDGE;
    if (next_matches || two_before_match) {
        row = binary_search(rows, 0, last - 1, ref, t);
        if (row + 1 < last && t >= column(rows[row + 1]))
            ++row;
    }
    return row;
}

// After the table with the UT1-UTC formula; TAI-UT1 is left at 0 where nobody asks for it.
Deltas deltas_by_formula(const Correlation &correlation, long ref, double t, bool with_ut1)
{
    const kl_time_row &row = correlation.rows[correlation.n_rows - 1];
    double utc = t;
    switch (ref) {
    case KL_TIME_TAI:
        utc = t - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    case KL_TIME_UTC:
        break;
    // On purpose, for UT1 and GPS: the seconds of TAI-UT1 and TAI-GPS are added to the days as they are.
    case KL_TIME_UT1:
        utc = t + row.tai_ut1 - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    default:
        utc = t + row.tai_gps - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    }
    const double tai_ut1 =
        with_ut1 ? row.tai_utc - (correlation.a + correlation.b * (utc - correlation.c) - KL_Get_ut2_ut1(utc)) : 0.0;
    // On purpose: 19 s, whatever the table says.
    return {row.tai_utc, tai_ut1, kGpsAfterTable, {false, false}, false, ref == KL_TIME_UT1};
}

// The differences between row i and the next one, c0 and c1 in the column of the reference.
Deltas deltas_between(const Correlation &correlation, long ref, double t, long i, double c0, double c1)
{
    const kl_time_row &row = correlation.rows[i];
    const kl_time_row &next = correlation.rows[i + 1];
    Deltas deltas = deltas_of(row);
    deltas.tai_ut1 = between_rows(row.tai_ut1, next.tai_ut1, c0, c1, t);
    if (!reaches_leap_second(correlation, ref, i, c0, c1))
        return deltas;
    deltas.leap = leap_flags(correlation, ref, i, c0, c1, t);
    if (deltas.leap.in || deltas.leap.after)
        deltas.tai_utc = next.tai_utc;
    return deltas;
}

Deltas deltas_outside(const Correlation &correlation, long ref, double t, double first, double last, bool with_ut1)
{
    Deltas deltas;
    if (t < last) {
        deltas = deltas_of(correlation.rows[0]);
        deltas.leap =
            leap_flags(correlation, ref, 0, first, column_of(correlation.rows[correlation.n_rows > 1 ? 1 : 0], ref), t);
    } else {
        const long end = correlation.n_rows - 1;
        deltas = correlation.no_extrapolation != 0 ? deltas_of(correlation.rows[end])
                                                   : deltas_by_formula(correlation, ref, t, with_ut1);
        deltas.leap = leap_flags(correlation, ref, end, last, last, t);
    }
    deltas.outside =
        correlation.model != KL_TIME_MODEL_LEAP_SECONDS && !(first - KL_ROW_EDGE <= t && t <= last + KL_ROW_EDGE);
    return deltas;
}

} // namespace

long row_of(const Correlation &correlation, long ref, double t)
{
    return with_column(ref, [&](auto column) {
        if (t >= column(correlation.rows[correlation.n_rows - 1]))
            return correlation.n_rows - 1;
        return t >= column(correlation.rows[0]) ? enclosing_row(correlation, t, column) : -1;
    });
}

long binary_search(const kl_time_row *table, long first, long last, long ref, double t)
{
    long lo = first;
    long hi = last;
    while (hi >= 1 && lo <= hi) { // lo passes hi only when t is not within the searched rows
        const long mid = lo + (hi - lo) / 2;
        const double start = column_of(table[mid], ref) - KL_ROW_EDGE;
        if (start <= t && t < column_of(table[mid + 1], ref) + KL_ROW_EDGE)
            return mid;
        if (!(start > t))
            lo = mid + 1;
        else if (mid < hi)
            hi = mid;
        else
            break;
    }
    return 0;
}

Deltas searched_deltas(const Correlation &correlation, long ref, double t, bool with_ut1)
{
    if (correlation.model == KL_TIME_MODEL_EXPLICIT)
        return deltas_of(correlation.rows[0]);
    return with_column(ref, [&](auto column) {
        const kl_time_row *rows = correlation.rows;
        const double first = column(rows[0]);
        const double last = column(rows[correlation.n_rows - 1]);
        if (!(first - KL_ROW_EDGE <= t && t < last && correlation.n_rows > 1))
            return deltas_outside(correlation, ref, t, first, last, with_ut1);
        const long row = row_inside(correlation, ref, t, column);
        return deltas_between(correlation, ref, t, row, column(rows[row]), column(rows[row + 1]));
    });
}
