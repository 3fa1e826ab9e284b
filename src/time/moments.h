// The arithmetic of instants, for one number or a pack of them: processing values and moments, and the whole steps
// between scales.
#ifndef KL_SRC_TIME_MOMENTS_H
#define KL_SRC_TIME_MOMENTS_H

#include "kl/time.h"
#include "numbers/pack.h"

inline namespace KL_SET {

// The standard record in doubles, which hold whole numbers of less than 2^53 exactly.
template <class T>
struct Moment {
    T days, seconds, microseconds;
};

// 1 where a condition holds, else 0: arithmetic in place of branches that nobody could predict.
inline double one_where(bool m)
{
    return m ? 1.0 : 0.0;
}
template <int N>
Pack<N> one_where(Mask<N> m)
{
    return select(m, Pack<N>(1.0), Pack<N>(0.0));
}

// Downwards to a whole number, of less than 2^63 in size.
inline double whole_below(double x)
{
    const auto cut = static_cast<std::int64_t>(x);
    return static_cast<double>(cut - (static_cast<double>(cut) > x ? 1 : 0));
}
template <int N>
Pack<N> whole_below(Pack<N> x)
{
    return floor(x);
}

// The same of what is not negative.
inline double whole_of(double x)
{
    return static_cast<double>(static_cast<std::int64_t>(x));
}
template <int N>
Pack<N> whole_of(Pack<N> x)
{
    return floor(x);
}

// The moment of a processing value, nearest microsecond. A value that is rounded up to midnight keeps its day with
// 86400 seconds: what these are depends on leap seconds.
template <class T>
Moment<T> moment_of(T t)
{
    const T days = whole_below(t);
    const T fraction = t - days;
    const T seconds = whole_of(86400.0 * fraction);
    const T microseconds = whole_of((fraction - seconds / 86400.0) * 8.64e10 + 0.5); // rounding is far below the half
    const auto full = microseconds == T(1e6);
    return {days, select(full, seconds + 1.0, seconds), select(full, T(0.0), microseconds)};
}

// The processing value of a moment. The parts of the day are added first: with one rounding of the large sum the
// microsecond comes back up to the end of 2099, with two it would not.
template <class T>
T days_of(const Moment<T> &moment)
{
    return moment.days + (moment.seconds / 86400.0 + moment.microseconds / 8.64e10);
}

// Seconds and microseconds of 0 to 1000000.
template <class T>
struct Shift {
    T seconds, microseconds;
};

template <class T>
Shift<T> shift_of(T seconds)
{
    const T whole = whole_below(seconds);
    return {whole, whole_of(1e6 * (seconds - whole) + 0.5)};
}

// Microseconds of -1000000 to 1999999 into 0 to 999999, by one second.
template <class T>
Moment<T> microseconds_carried(const Moment<T> &moment)
{
    const T over = one_where(moment.microseconds >= T(1e6)) - one_where(moment.microseconds < T(0.0));
    return {moment.days, moment.seconds + over, moment.microseconds - 1e6 * over};
}

// Seconds into 0 to 86399. Whole days at once: readings given by hand may lie days apart.
template <class T>
Moment<T> seconds_carried(const Moment<T> &moment)
{
    if (!any((moment.seconds < T(0.0)) | (moment.seconds >= T(86400.0))))
        return moment;
    const T days = whole_below(moment.seconds / 86400.0);
    return {moment.days + days, moment.seconds - 86400.0 * days, moment.microseconds};
}

template <class T>
Moment<T> plus(const Moment<T> &moment, const Shift<T> &shift)
{
    return microseconds_carried<T>(
        {moment.days, moment.seconds + shift.seconds, moment.microseconds + shift.microseconds});
}

template <class T>
Moment<T> minus(const Moment<T> &moment, const Shift<T> &shift)
{
    return microseconds_carried<T>(
        {moment.days, moment.seconds - shift.seconds, moment.microseconds - shift.microseconds});
}

// TAI-UT1 between two rows, c0 and c1 in the column of t.
template <class T>
T between_rows(T here, T next, T c0, T c1, T t)
{
    return next - (next - here) * (c1 - t) / (c1 - c0);
}

// How far a scale is behind TAI.
template <class T>
Shift<T> behind_tai(long ref, T tai_utc, T tai_ut1, T tai_gps)
{
    switch (ref) {
    case KL_TIME_TAI:
        return {T(0.0), T(0.0)};
    case KL_TIME_UTC:
        return {tai_utc, T(0.0)};
    case KL_TIME_UT1:
        return shift_of(tai_ut1);
    default:
        return {tai_gps, T(0.0)};
    }
}

// ---- the way of an instant that stays inside one row, away from leap seconds ----

constexpr double KL_ROW_EDGE = 1e-11; // days: slack of the limits of a row

// Where rows are further apart than the slack no other one is taken.
template <class T>
mask_of<T> inside_row(T t, T c0, T c1)
{
    return (c0 <= t) & (t < c1 - KL_ROW_EDGE);
}

template <class T>
struct RowValues {
    T from, from_end; // column of the scale that the instant comes from, of the row and of the next one
    T tai, tai_end;
    T tai_ut1, tai_ut1_end; // s
    T tai_utc, tai_gps;     // s
};

template <class T>
struct InsideRow {
    Moment<T> moment;
    mask_of<T> good; // is it inside, in both scales, and not in a 61st second?
};

template <class T>
[[gnu::always_inline]] inline InsideRow<T> change_inside_row(const RowValues<T> &row, long from, long to,
                                                             const Moment<T> &moment)
{
    const bool up = from != to && from != KL_TIME_TAI;
    const bool down = from != to && to != KL_TIME_TAI;
    InsideRow<T> out = {moment, moment.seconds < T(86400.0)};
    if (up) {
        const T t = days_of(moment);
        out.good = out.good & inside_row(t, row.from, row.from_end);
        const T tai_ut1 =
            from == KL_TIME_UT1 ? between_rows(row.tai_ut1, row.tai_ut1_end, row.from, row.from_end, t) : T(0.0);
        out.moment = seconds_carried(plus(moment, behind_tai(from, row.tai_utc, tai_ut1, row.tai_gps)));
    }
    const T tai = days_of(out.moment);
    out.good = out.good & inside_row(tai, row.tai, row.tai_end);
    if (down) {
        const T tai_ut1 =
            to == KL_TIME_UT1 ? between_rows(row.tai_ut1, row.tai_ut1_end, row.tai, row.tai_end, tai) : T(0.0);
        out.moment = seconds_carried(minus(out.moment, behind_tai(to, row.tai_utc, tai_ut1, row.tai_gps)));
    }
    return out;
}

} // namespace KL_SET

#endif
