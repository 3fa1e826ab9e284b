#include "time/staircase.h"

namespace {

Shift<double> behind_by(const Deltas &deltas, long ref)
{
    return behind_tai(ref, deltas.tai_utc, deltas.tai_ut1, deltas.tai_gps);
}

bool day_inside(const Moment<double> &moment)
{
    return inside_processing_range(moment.days);
}

// A UTC moment, seconds not yet brought into the day, at a leap second.
Moment<double> placed_at_leap_second(const LeapSecond &second, const LeapFlags &leap, const Moment<double> &utc)
{
    const Moment<double> plain = seconds_carried(utc);
    const double day_before = static_cast<double>(static_cast<long>(second.utc) - 1);
    // The flag comes from days in a double, which may put the last microsecond on either side of the end of the leap
    // second. The whole seconds tell: after the instant, and still on the day before.
    if (second.sign > 0 && (leap.in || (leap.after && plain.days == day_before)))
        return {day_before, 86400.0, utc.microseconds};
    // Rows that do not stand at midnight let the second that a negative leap second takes away come out once more.
    if (second.sign < 0 && plain.days == day_before && plain.seconds == 86399.0)
        return {day_before + 1.0, 0.0, utc.microseconds};
    return plain;
}

} // namespace

Step step_up(const Correlation &correlation, long ref, const Moment<double> &moment)
{
    const Deltas deltas = searched_deltas(correlation, ref, days_of(moment), ref == KL_TIME_UT1);
    Moment<double> start = moment;
    if (ref == KL_TIME_UTC && moment.seconds > 86399.0) // the 61st second still counts with the old value
        start.seconds -= 1.0;
    const Moment<double> tai = seconds_carried(plus(start, behind_by(deltas, ref)));
    // That a day ends with a leap second changes nothing in TAI: only the range of that check matters here, of the day
    // before seconds are carried into it. UT1 of the first instant of 1950 in TAI lies on the day before, and comes
    // back.
    if (!day_inside(moment) && !day_inside(tai))
        return {moment, findings_of(deltas) | KL_STEP_NO_LEAP_CHECK};
    return {tai, findings_of(deltas)};
}

Step step_down(const Correlation &correlation, long ref, const Moment<double> &tai)
{
    const Deltas deltas = searched_deltas(correlation, KL_TIME_TAI, days_of(tai), ref == KL_TIME_UT1);
    const Moment<double> moment = minus(tai, behind_by(deltas, ref));
    return {ref == KL_TIME_UTC ? placed_at_leap_second(correlation.leap, deltas.leap, moment) : seconds_carried(moment),
            findings_of(deltas)};
}

Change change_by_steps(const Correlation &correlation, OnceOnlyFlags *flags, long from, long to,
                       const Moment<double> &moment)
{
    Findings found;
    const bool changes = from != to;
    Step step = {moment, 0};
    if (changes && from != KL_TIME_TAI) {
        step = step_up(correlation, from, step.moment);
        found.to_tai = step.findings;
        if ((found.to_tai & KL_STEP_REFUSED) != 0)
            return {moment, found};
    }
    // These warnings look at the TAI moment, or at the moment as it is when the scale does not change.
    found.once_only = once_only_warning(correlation, flags, days_of(step.moment));
    if (changes && to != KL_TIME_TAI) {
        step = step_down(correlation, to, step.moment);
        found.from_tai = step.findings;
    }
    return {step.moment, found};
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

bool steadily_in_scale(TimeIdRecord *id, long from, long to, double days, double *out)
{
    if (from == to) {
        *out = days;
        return true;
    }
    const Correlation *correlation = &id->correlation;
    const Moment<double> moment = midnight_carried(correlation, from, moment_of(days));
    const Change change = change_scale(correlation, &id->once_only[KL_FLAGS_CONVERSION], from, to, days, moment);
    if (!change.findings.none())
        return false;
    *out = days_of(settled(correlation, to, false, false, change.moment));
    return true;
}
