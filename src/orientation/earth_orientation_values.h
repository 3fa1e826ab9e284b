// UT1, the pole and its offsets at an instant, from the rows of a correlation: a cubic through the four nearest rows.
#ifndef KL_SRC_ORIENTATION_EARTH_ORIENTATION_VALUES_H
#define KL_SRC_ORIENTATION_EARTH_ORIENTATION_VALUES_H

#include "time/correlation.h"

#include <algorithm>

// An instant of a scale as day number (MJD2000) and fraction, so that its digits are those of the caller's double.
struct SplitDay {
    long day;
    double fraction; // may lie a little outside 0 to 1
};

// A quantity and its derivatives by seconds.
struct Motion {
    double value, rate, acceleration;
};

constexpr double kTaiMinusGps = 19.0; // s, as GPS is defined

enum EopNotes { kEopOutsideTable = 1, kEopNoPole = 2, kEopByFormula = 4 };

struct EopValues {
    long notes;          // sum of EopNotes
    double tai_utc;      // s; inside a leap second the value before it
    Motion tai_ut1;      // s
    Motion x, y, dx, dy; // rad
};

// An instant of TAI and a row of the correlation nearby.
struct TaiInstant {
    SplitDay tai;
    long near;
};

// At an instant of TAI with `order` derivatives; the search of the row starts at `near`.
void eop_values(const Correlation &correlation, const SplitDay &tai, long near, int order, EopValues *out);

// Does a cubic serve every instant between the rows, the pole included? Where it does not, eop_values chooses.
bool cubic_serves(const Correlation &correlation);

// The first of the four rows of the instants between a row and the next one.
inline long first_of_four(const Correlation &correlation, long row)
{
    return std::clamp(row - 1, 0L, correlation.n_rows - 4);
}

// The same instant in TAI; `scale` one of KL_TIME_TAI to KL_TIME_GPS. UT1 is that of the rows, without corrections.
TaiInstant tai_of(const Correlation &correlation, long scale, double time_days);

// The floor of a number of days, which a long holds.
inline long whole_days(double days)
{
    const long toward_zero = static_cast<long>(days);
    return toward_zero - (days < static_cast<double>(toward_zero) ? 1 : 0);
}

#endif
