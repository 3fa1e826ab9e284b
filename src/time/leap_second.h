// The one leap second that a correlation knows: its day, and where an instant lies with respect to it.
#ifndef KL_SRC_TIME_LEAP_SECOND_H
#define KL_SRC_TIME_LEAP_SECOND_H

#include "time/correlation.h"

// Does the UTC day end with it? Its sign, or 0.
inline long leap_sign_of_day(const Correlation *correlation, double days)
{
    if (correlation == nullptr)
        return 0;
    const LeapSecond &leap = correlation->leap;
    return leap.sign != 0 && days == static_cast<double>(static_cast<long>(leap.utc - 1.0)) ? leap.sign : 0;
}

// Does the day end with a positive one? Only UTC has any.
inline bool ends_with_leap_second(const Correlation *correlation, long ref, double day)
{
    return ref == KL_TIME_UTC && leap_sign_of_day(correlation, day) > 0;
}

struct LeapFlags {
    bool in, after;
};

// Does the row from `first` to `last`, in the column of the reference, hold it?
inline bool reaches_leap_second(const Correlation &correlation, long ref, long row, double first, double last)
{
    const LeapSecond &leap = correlation.leap;
    if (leap.sign == 0)
        return false;
    if (ref == KL_TIME_TAI)
        return first <= leap.tai && leap.tai <= last;
    const kl_time_row *here = correlation.rows + row;
    const kl_time_row *next = row + 1 < correlation.n_rows ? here + 1 : here;
    return here->utc <= leap.utc && leap.utc < next->utc;
}
// `first` and `last`: column of the reference in the row and in the one after it.
LeapFlags leap_flags(const Correlation &correlation, long ref, long row, double first, double last, double time);

// The last step of TAI-UTC in the rows. On purpose: leap seconds happen at the start of a quarter, whatever day of the
// quarter the row stands on. False when that lies outside the processing range.
bool find_leap_second(const Correlation &correlation, LeapSecond *leap);
// The rows that reach it and their neighbours: nothing of it can be met in the others.
void find_rows_of_leap_second(Correlation *correlation);
inline bool away_from_leap_second(const Correlation &correlation, long row)
{
    return row < correlation.leap_first || row > correlation.leap_last;
}

#endif
