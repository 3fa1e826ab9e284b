// The correlation of the time scales that a time id holds, as one value: what the conversions, the frame chain and the
// polar motion read, and nothing of handles. It is copied by assignment; its arrays belong to whoever made them.
#ifndef KL_SRC_TIME_CORRELATION_H
#define KL_SRC_TIME_CORRELATION_H

#include "kl_lib.h"

constexpr long KL_COMBINATION_TWO_BULLETINS = 2;

// A bulletin's prediction of the pole, arc seconds: constant, cosine and sine of the first period, then of the second.
// Zero coefficients: no prediction.
struct PoleFormula {
    double x[5], y[5];
    double reference_date[2]; // MJD2000
    double period[2];         // days
};

// The one leap second that a correlation knows: the last step of TAI-UTC in its rows.
struct LeapSecond {
    long sign;  // 1, -1 or 0: none
    double utc; // MJD2000: the first instant after it
    double tai; // MJD2000: where it begins
};

// The days, on any scale, in which no once-only warning can be met once all computations before were inside: a day
// clear of the ends of the table and of the gap between two bulletins. Empty where the scales or rows are not as clocks
// are.
struct QuietSpan {
    double first, last, gap_first, gap_last;
};

struct Correlation {
    long model; // 0: none
    long combination;
    long no_extrapolation;
    long second_bulletin_row; // first row of the second bulletin
    double a, b, c;           // UT1-UTC after the table: a + b (t - c) - (UT2-UT1), seconds of UTC days
    PoleFormula pole;
    LeapSecond leap;
    double leap_expiry; // UTC, MJD2000: until then leap seconds are announced; 0: not known

    long n_rows;
    kl_time_row *rows;
    // Beside the rows, or null:
    long (*row_notes)[2];  // 16 x index of the file + quality, and the number of the line
    double (*row_pole)[4]; // x, y, dX, dY of the pole, arcsec as published
    // What follows from the rows, by complete():
    QuietSpan quiet;
    long leap_first, leap_last; // rows in which the leap second may matter
    double widest_gap;          // days from one row to the next
    double rows_per_day;        // of an evenly spaced table; where the search of an uneven one starts
};

#endif
