#include "time/staircase.h"

#include <algorithm>

namespace {

constexpr long kLastSecond = 86399;

// TAI-UT1 in whole seconds and whole microseconds of 0 to 1000000.
struct Split {
    long seconds, microseconds;
};
inline Split split(double seconds)
{
    const long whole = floor_to_long(seconds);
    return {whole, floor_to_long(1e6 * (seconds - static_cast<double>(whole)) + 0.5)};
}

// How far a scale is behind TAI there.
inline Split behind_tai(const Deltas &deltas, long ref)
{
    switch (ref) {
    case KL_TIME_TAI:
        return {0, 0};
    case KL_TIME_UTC:
        return {truncated_to_long(deltas.tai_utc), 0};
    case KL_TIME_UT1:
        return split(deltas.tai_ut1);
    default:
        return {truncated_to_long(deltas.tai_gps), 0};
    }
}

// A UTC record, seconds not yet brought into the day, at a leap second: true when it has been placed.
bool place_in_leap_second(const LeapSecond &second, const LeapFlags &leap, kl_std_record *utc)
{
    if (second.sign == 0)
        return false;
    const long day_before = static_cast<long>(second.utc) - 1;
    kl_std_record plain = *utc;
    normalise_seconds(&plain);
    if (second.sign > 0) {
        // The flag comes from days in a double, which may put the last microsecond on either side of the end of the
        // leap second. The whole seconds tell: after the instant, and still on the day before.
        if (!leap.in && !(leap.after && plain.days == day_before))
            return false;
        utc->days = day_before;
        utc->seconds = kLastSecond + 1;
        return true;
    }
    // Rows that do not stand at midnight let the second that a negative leap second takes away come out once more.
    if (plain.days != day_before || plain.seconds != kLastSecond)
        return false;
    utc->days = day_before + 1;
    utc->seconds = 0;
    return true;
}

// A record of a scale to TAI with the differences at it.
inline kl_std_record added(kl_std_record record, long ref, const Deltas &deltas)
{
    const Split behind = behind_tai(deltas, ref);
    const long step =
        ref == KL_TIME_UTC && record.seconds > kLastSecond ? 1 : 0; // the 61st second counts with the old value
    record.seconds += behind.seconds - step;
    record.microseconds += behind.microseconds;
    normalise_microseconds(&record);
    normalise_seconds(&record);
    return record;
}

// A TAI record to a scale with the differences at it.
inline kl_std_record subtracted(kl_std_record record, const LeapSecond &leap, long ref, const Deltas &deltas)
{
    const Split behind = behind_tai(deltas, ref);
    record.seconds -= behind.seconds;
    record.microseconds -= behind.microseconds;
    normalise_microseconds(&record);
    if (ref != KL_TIME_UTC || !place_in_leap_second(leap, deltas.leap, &record))
        normalise_seconds(&record);
    return record;
}

inline bool day_inside(const kl_std_record &record)
{
    return inside_processing_range(static_cast<double>(record.days));
}

inline unsigned to_tai(const Correlation &correlation, long ref, long *row, kl_std_record *record)
{
    const Deltas deltas = deltas_at(correlation, ref, processing_of(*record), ref == KL_TIME_UT1, row);
    const kl_std_record tai = added(*record, ref, deltas);
    // That a day ends with a leap second changes nothing in TAI: only the range of that check matters here, of the day
    // before seconds are carried into it. UT1 of the first instant of 1950 in TAI lies on the day before, and comes
    // back.
    if (!day_inside(*record) && !day_inside(tai))
        return findings_of(deltas) | KL_STEP_NO_LEAP_CHECK;
    *record = tai;
    return findings_of(deltas);
}

// The table is searched with the TAI time.
inline unsigned from_tai(const Correlation &correlation, long ref, long *row, double tai_days, kl_std_record *record)
{
    const Deltas deltas = deltas_at(correlation, KL_TIME_TAI, tai_days, ref == KL_TIME_UT1, row);
    *record = subtracted(*record, correlation.leap, ref, deltas);
    return findings_of(deltas);
}

// With one row of explicit values: what the two steps give, in one.
inline void shift(const kl_time_row &row, long from, long to, kl_std_record *record)
{
    const Deltas deltas = deltas_of(row);
    const Split in = behind_tai(deltas, from);
    const Split out = behind_tai(deltas, to);
    record->seconds += in.seconds - out.seconds;
    record->microseconds += in.microseconds - out.microseconds;
    normalise_microseconds(record);
    normalise_seconds(record);
}

} // namespace

unsigned step_to_tai(const Correlation *correlation, long ref, long *row, kl_std_record *record)
{
    if (ref == KL_TIME_TAI)
        return 0;
    return is_empty(correlation) ? KL_STEP_NO_CORRELATION : to_tai(*correlation, ref, row, record);
}

unsigned step_from_tai(const Correlation *correlation, long ref, long *row, kl_std_record *record)
{
    if (ref == KL_TIME_TAI)
        return 0;
    return is_empty(correlation) ? KL_STEP_NO_CORRELATION
                                 : from_tai(*correlation, ref, row, processing_of(*record), record);
}

long once_only_warning(const Correlation &correlation, OnceOnlyFlags *flags, double tai_days)
{
    if (correlation.model == KL_TIME_MODEL_EXPLICIT || correlation.model == 0)
        return 0;
    // Notes whether this computation is in the good region of a flag; true when the one before was and this is not.
    const auto leaves = [flags](int flag, bool inside) {
        auto &was_inside = flags->was_inside[flag];
        const bool before = was_inside.load(std::memory_order_relaxed) == 1;
        if (before != inside) // written only when it changes: a shared id then stays in every core's cache
            was_inside.store(inside ? 1 : 0, std::memory_order_relaxed);
        return before && !inside;
    };
    const double t = tai_days;
    const double first = correlation.rows[0].tai;
    const double last = correlation.rows[correlation.n_rows - 1].tai;

    long warning = 0;
    if (correlation.no_extrapolation == 0 && leaves(0, !(t > last)))
        warning = 1;
    if (correlation.combination == KL_COMBINATION_TWO_BULLETINS) {
        const kl_time_row *second = correlation.rows + correlation.second_bulletin_row;
        if (leaves(1, !(second[-1].tai < t && t < second->tai)))
            warning = 2;
    }
    if (warning != 0)
        return warning;
    // A list of leap seconds is good without being left; a formula is told of by the first flag.
    const bool open_end =
        correlation.model == KL_TIME_MODEL_LEAP_SECONDS || correlation.model == KL_TIME_MODEL_BULLETIN_A;
    return leaves(2, (first <= t && t <= last) || (t > last && open_end)) ? 3 : 0;
}

Findings change_scale(const Correlation *correlation, OnceOnlyFlags *flags, long from, long to, long *row,
                      kl_std_record *record)
{
    Findings found;
    if (is_empty(correlation)) { // TAI is copied without: it is one step or the other that refuses
        if (from != to)
            (from != KL_TIME_TAI ? found.to_tai : found.from_tai) = KL_STEP_NO_CORRELATION;
        return found;
    }
    if (correlation->model == KL_TIME_MODEL_EXPLICIT) {
        if (from != to)
            shift(correlation->rows[0], from, to, record);
        return found;
    }
    // The once-only warnings look at the TAI record, or at the record as it is when the scale does not change.
    const bool up = from != to && from != KL_TIME_TAI;
    const bool down = from != to && to != KL_TIME_TAI;
    if (up)
        found.to_tai = to_tai(*correlation, from, row, record);
    if ((found.to_tai & KL_STEP_REFUSED) != 0)
        return found;
    const double tai_days = processing_of(*record);
    found.once_only = once_only_warning(*correlation, flags, tai_days);
    if (down)
        found.from_tai = from_tai(*correlation, to, row, tai_days, record);
    return found;
}
