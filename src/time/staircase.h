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

// One step, in place; a refused one leaves the record as it is. `row` guesses the row and becomes the one found.
unsigned step_to_tai(const Correlation *correlation, long ref, long *row, kl_std_record *record);
unsigned step_from_tai(const Correlation *correlation, long ref, long *row, kl_std_record *record);

// The once-only warning of a computation at a TAI instant: 1 to 3, or 0. Explicit values hold at every instant.
long once_only_warning(const Correlation &correlation, OnceOnlyFlags *flags, double tai_days);

// A record of one public reference to another, in place. The once-only flags are spent as they are met. A correlation
// that is null or of no model refuses all but equal references. 86400 seconds of a UTC record, and those that come out,
// are the 61st second of their day.
Findings change_scale(const Correlation *correlation, OnceOnlyFlags *flags, long from, long to, long *row,
                      kl_std_record *record);

// The guess for `row`, from the days of an instant; none for a correlation that is empty.
inline long guessed_row(const Correlation *correlation, double about_days)
{
    return correlation != nullptr && correlation->n_rows > 1 ? likely_row(*correlation, about_days) : -1;
}

// ---- 86400 seconds ----

// A processing value that was rounded up to midnight: the next day, or the 61st second of a day with a leap second. On
// purpose of either sign, so that the day of a negative one keeps its 86400 seconds as well.
inline void carry_midnight(const Correlation *correlation, long ref, kl_std_record *record)
{
    if (record->seconds != 86400 || (ref == KL_TIME_UTC && leap_sign_of_day(correlation, record->days) != 0))
        return;
    record->seconds = 0;
    ++record->days;
}

inline kl_std_record standard_in_scale(const Correlation *correlation, long ref, double days)
{
    kl_std_record record = standard_of(days);
    carry_midnight(correlation, ref, &record);
    return record;
}

// What a changed record says where it is to be written: the 61st second, where its form can hold it, else the last
// regular second of the day, or midnight where the 86400 seconds are a rounded processing value of the same scale.
inline void settle_61st_second(const Correlation *correlation, long ref, bool rounded_up, bool form_holds_it,
                               kl_std_record *record)
{
    if (record->seconds != 86400 || (form_holds_it && ends_with_leap_second(correlation, ref, record->days)))
        return;
    record->seconds = rounded_up ? 0 : 86399;
    record->days += rounded_up ? 1 : 0;
}

#endif
