// The one way of an instant from one scale to another: up to TAI, down to the other scale, on the standard record.
// Plain values in and out; what is met on the way comes back as findings, and who calls makes conditions and lines of
// them.
#ifndef KL_SRC_TIME_STAIRCASE_H
#define KL_SRC_TIME_STAIRCASE_H

#include "time/deltas.h"
#include "time/time_record.h"

// What one step between a scale and TAI met, as bits.
enum StepFinding : unsigned {
    KL_STEP_NO_CORRELATION = 1, // refused
    KL_STEP_OUTSIDE = 2,        // ... by more than its slack
    KL_STEP_UT1_FORMULA = 4,    // UT1 went into the formula after the table
    KL_STEP_NO_LEAP_CHECK = 8   // refused: TAI of a day out of range lies on a day out of range
};
constexpr unsigned KL_STEP_REFUSED = KL_STEP_NO_CORRELATION | KL_STEP_NO_LEAP_CHECK;

struct Findings {
    unsigned to_tai = 0, from_tai = 0; // of the two steps
    long once_only = 0;                // the warning 1 to 3 that comes once, between them

    [[nodiscard]] bool none() const { return (to_tai | from_tai | static_cast<unsigned>(once_only)) == 0; }
    [[nodiscard]] bool refused() const { return ((to_tai | from_tai) & KL_STEP_REFUSED) != 0; }
};

inline bool is_empty(const Correlation *correlation)
{
    return correlation == nullptr || correlation->model == 0;
}

inline unsigned findings_of(const Deltas &deltas)
{
    return (deltas.outside ? KL_STEP_OUTSIDE : 0U) | (deltas.by_ut1 ? KL_STEP_UT1_FORMULA : 0U);
}

// ---- one step ----

// Where a step comes out and what it met. A refused one leaves the moment as it is.
struct Step {
    Moment<double> moment;
    unsigned findings;
};

// Steps from and to a scale other than TAI. The table is searched with the time on the side from which a step starts.
Step step_up(const Correlation &correlation, long ref, const Moment<double> &moment);
Step step_down(const Correlation &correlation, long ref, const Moment<double> &tai);

// ---- the once-only warnings ----

// The warning of a computation at a TAI instant: 1 to 3, or 0. Explicit values hold at every instant.
long once_only_warning(const Correlation &correlation, OnceOnlyFlags *flags, double tai_days);

// Was every computation so far in its good region?
inline bool all_inside(const OnceOnlyFlags &flags)
{
    bool inside = true;
    for (const auto &was_inside : flags.was_inside)
        inside = inside && was_inside.load(std::memory_order_relaxed) == 1;
    return inside;
}

inline bool is_quiet(const QuietSpan &span, double days)
{
    return days > span.first && days < span.last && !(days > span.gap_first && days < span.gap_last);
}

// The days in which no once-only warning can be due, or noted, as the flags stand now: outside of them the calls have
// to be taken in order. Explicit values never warn.
inline QuietSpan steady_span(const TimeIdRecord &id, int set)
{
    constexpr double kFarDays = 1e9;
    if (id.correlation.model == KL_TIME_MODEL_EXPLICIT)
        return {-kFarDays, kFarDays, 0.0, 0.0};
    return all_inside(id.once_only[set]) ? id.correlation.quiet : QuietSpan{0.0, 0.0, 0.0, 0.0};
}

// ---- the whole way ----

struct Change {
    Moment<double> moment;
    Findings findings;
};

// With one row of explicit values: what the two steps give, in one.
inline Moment<double> shifted(const kl_time_row &row, long from, long to, const Moment<double> &moment)
{
    const Shift<double> in = behind_tai(from, row.tai_utc, row.tai_ut1, row.tai_gps);
    const Shift<double> out = behind_tai(to, row.tai_utc, row.tai_ut1, row.tai_gps);
    return seconds_carried(plus(moment, {in.seconds - out.seconds, in.microseconds - out.microseconds}));
}

// By a table, step by step.
Change change_by_steps(const Correlation &correlation, OnceOnlyFlags *flags, long from, long to,
                       const Moment<double> &moment);

// A moment of one public reference in another. The once-only flags are spent as they are met. A correlation that is
// null or of no model refuses all but equal references. 86400 seconds of a UTC moment, and those that come out, are the
// 61st second of their day. `about_days`: the instant to a few seconds, known before the moment is.
[[gnu::always_inline]] inline Change change_scale(const Correlation *correlation, OnceOnlyFlags *flags, long from,
                                                  long to, double about_days, const Moment<double> &moment)
{
    if (is_empty(correlation)) { // TAI is copied without: it is one step or the other that refuses
        Findings found;
        if (from != to)
            (from != KL_TIME_TAI ? found.to_tai : found.from_tai) = KL_STEP_NO_CORRELATION;
        return {moment, found};
    }
    if (correlation->model == KL_TIME_MODEL_EXPLICIT)
        return {from != to ? shifted(correlation->rows[0], from, to, moment) : moment, Findings()};
    // Most instants stay inside the row that is guessed, where neither a warning nor the leap second can be met.
    const long row = guessed_row(*correlation, about_days);
    if (row >= 0 && is_quiet(correlation->quiet, about_days) && all_inside(*flags)
        && away_from_leap_second(*correlation, row)) {
        const InsideRow<double> inside = change_inside_row(row_values(*correlation, from, row), from, to, moment);
        if (inside.good)
            return {inside.moment, Findings()};
    }
    return change_by_steps(*correlation, flags, from, to, moment);
}

// ---- 86400 seconds ----

// A processing value that was rounded up to midnight: the next day, or the 61st second of a day with a leap second. On
// purpose of either sign, so that the day of a negative one keeps its 86400 seconds as well.
inline Moment<double> midnight_carried(const Correlation *correlation, long ref, const Moment<double> &moment)
{
    if (moment.seconds != 86400.0 || (ref == KL_TIME_UTC && leap_sign_of_day(correlation, moment.days) != 0))
        return moment;
    return {moment.days + 1.0, 0.0, moment.microseconds};
}

// What a changed moment says where it is to be written: the 61st second, where its form can hold it, else the last
// regular second of the day, or midnight where the 86400 seconds are a rounded processing value of the same scale.
inline Moment<double> settled(const Correlation *correlation, long ref, bool rounded_up, bool form_holds_61st,
                              const Moment<double> &moment)
{
    if (moment.seconds != 86400.0 || (form_holds_61st && ends_with_leap_second(correlation, ref, moment.days)))
        return moment;
    return {moment.days + (rounded_up ? 1.0 : 0.0), rounded_up ? 0.0 : 86399.0, moment.microseconds};
}

// kl_time_processing_to_processing of an instant in a steady span; false where it has something to say.
bool steadily_in_scale(TimeIdRecord *id, long from, long to, double days, double *out);

#endif
