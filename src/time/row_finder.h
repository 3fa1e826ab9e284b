// The rows of instants that come one after the other.
#ifndef KL_SRC_TIME_ROW_FINDER_H
#define KL_SRC_TIME_ROW_FINDER_H

#include "numbers/streams.h"
#include "time/staircase.h"

constexpr double kRowFarDays = 1e9;

// A row, and the next one, between which no instant lies.
inline constexpr kl_time_row kNoRow[2] = {{kRowFarDays, kRowFarDays, kRowFarDays, 0.0, 0.0, 0.0},
                                          {2.0 * kRowFarDays, 2.0 * kRowFarDays, 2.0 * kRowFarDays, 0.0, 0.0, 0.0}};

// Of one scale of a correlation. The row of the instant before is tried first, then the place where an evenly spaced
// table has it. Explicit values, and what stands for an empty correlation, hold at every instant.
class RowFinder {
public:
    RowFinder(const Correlation *correlation, long ref)
        : correlation_(correlation), ref_(ref), column_(ref == KL_TIME_TAI   ? &kl_time_row::tai
                                                        : ref == KL_TIME_UT1 ? &kl_time_row::ut1
                                                                             : &kl_time_row::utc),
          last_(!is_empty(correlation) && correlation->model != KL_TIME_MODEL_EXPLICIT ? correlation->n_rows - 1 : -1)
    {
        if (is_table())
            return;
        if (!is_empty(correlation))
            always_[0] = always_[1] = correlation->rows[0];
        always_[0].tai = always_[0].ut1 = always_[0].utc = -kRowFarDays;
        always_[1].tai = always_[1].ut1 = always_[1].utc = kRowFarDays;
        span_ = span(-kRowFarDays, kRowFarDays);
        row_ = always_;
    }
    RowFinder(const RowFinder &) = delete;
    RowFinder &operator=(const RowFinder &) = delete;

    // The row with column(row) <= days < column(row + 1), the next one behind it; kNoRow outside the table and where
    // the leap second may matter.
    const kl_time_row *at(double days)
    {
        if (holds(days) || !is_table() || lies_in(guessed_row(*correlation_, days), days))
            return row_;
        return searched(days);
    }

    [[nodiscard]] bool is_table() const { return last_ >= 0; }
    // Of the row of the last call: its number in a table, where it lies on the scale, and whether this instant lies in
    // it too.
    [[nodiscard]] const kl_time_row *row() const { return row_; }
    [[nodiscard]] long number() const { return number_; }
    // Without branches: of instants at random every other one would be guessed wrong.
    [[nodiscard]] bool holds(double days) const { return bits_of_lanes(Pack<2>(days) >= span_) == 1; }
    [[nodiscard]] double begin() const { return span_[0]; }
    [[nodiscard]] double end() const { return span_[1]; }

private:
    static Pack<2> span(double begin, double end) { return Pack<2>(Pack<2>::Vector{begin, end}); }

    [[nodiscard]] double start_of(const kl_time_row &row) const
    {
        return ref_ == KL_TIME_GPS ? row.tai - row.tai_gps / KL_SECONDS_PER_DAY : row.*column_;
    }

    // Takes the row of this number, if there is one, as that of the last call. Does the instant lie in it?
    bool lies_in(long i, double days)
    {
        if (i < 0 || i >= last_ || !away_from_leap_second(*correlation_, i))
            return false;
        row_ = correlation_->rows + i;
        number_ = i;
        span_ = span(start_of(row_[0]), start_of(row_[1]));
        return holds(days);
    }

    [[gnu::noinline]] const kl_time_row *searched(double days)
    {
        const long guess = guessed_row(*correlation_, days);
        if (guess >= 0 && lies_in(guess + 1, days)) // midnights: rounding, and scales apart from TAI
            return row_;
        if (lies_in(row_of(*correlation_, ref_, days), days))
            return row_;
        span_ = span(kNoRow[0].tai, kNoRow[1].tai);
        return row_ = kNoRow;
    }

    const Correlation *correlation_;
    long ref_;
    double kl_time_row::*column_;
    long last_; // row; -1: no table
    const kl_time_row *row_ = kNoRow;
    long number_ = -1;
    Pack<2> span_ = span(kNoRow[0].tai, kNoRow[1].tai); // of the row on the scale
    kl_time_row always_[2] = {};                        // where the correlation is no table
};

#endif
