// The rows of instants that come one after the other.
#ifndef KL_SRC_TIME_ROW_FINDER_H
#define KL_SRC_TIME_ROW_FINDER_H

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
        : correlation_(correlation), ref_(ref),
          is_table_(!is_empty(correlation) && correlation->model != KL_TIME_MODEL_EXPLICIT)
    {
        if (is_table_)
            return;
        if (!is_empty(correlation))
            always_[0] = always_[1] = correlation->rows[0];
        begin_ = always_[0].tai = always_[0].ut1 = always_[0].utc = -kRowFarDays;
        end_ = always_[1].tai = always_[1].ut1 = always_[1].utc = kRowFarDays;
        row_ = always_;
    }
    RowFinder(const RowFinder &) = delete;
    RowFinder &operator=(const RowFinder &) = delete;

    // The row with column(row) <= days < column(row + 1), the next one behind it; kNoRow outside the table and where
    // the leap second may matter.
    const kl_time_row *at(double days) { return holds(days) ? row_ : searched(days); }

    [[nodiscard]] bool is_table() const { return is_table_; }
    // Of the row of the last call: where it lies on the scale, and whether this instant lies in it too.
    [[nodiscard]] const kl_time_row *row() const { return row_; }
    [[nodiscard]] bool holds(double days) const { return days >= begin_ && days < end_; }
    [[nodiscard]] double begin() const { return begin_; }
    [[nodiscard]] double end() const { return end_; }

private:
    [[gnu::noinline]] const kl_time_row *searched(double days)
    {
        if (!is_table_)
            return row_;
        const long row = with_column(ref_, [&](auto column) {
            const kl_time_row *rows = correlation_->rows;
            const long last = correlation_->n_rows - 1;
            const auto lies_in = [&](long i) {
                if (i < 0 || i >= last)
                    return false;
                begin_ = column(rows[i]);
                end_ = column(rows[i + 1]);
                return holds(days);
            };
            const long guess = guessed_row(*correlation_, days);
            if (lies_in(guess))
                return guess;
            if (guess >= 0 && days >= end_ && lies_in(guess + 1)) // midnights: rounding, and scales apart from TAI
                return guess + 1;
            const long found = row_of(*correlation_, ref_, days);
            return lies_in(found) ? found : -1;
        });
        if (row >= 0 && away_from_leap_second(*correlation_, row))
            return row_ = correlation_->rows + row;
        begin_ = kNoRow[0].tai;
        end_ = kNoRow[1].tai;
        return row_ = kNoRow;
    }

    const Correlation *correlation_;
    long ref_;
    bool is_table_;
    const kl_time_row *row_ = kNoRow; // of the last call
    double begin_ = kNoRow[0].tai, end_ = kNoRow[1].tai;
    kl_time_row always_[2] = {}; // where the correlation is no table
};

#endif
