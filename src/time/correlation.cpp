// Correlation of the time scales: differences at an instant, one instant between a scale and TAI, once-only warnings.
#include "errors/message_groups.h"
#include "time/scales.h"

#include <algorithm>
#include <cmath>

namespace {

enum { KL_DELTAS_REF = 0, KL_DELTAS_NOT_INITIALISED = 1, KL_DELTAS_OUT_OF_RANGE = 2, KL_DELTAS_UT1_FORMULA = 3 };
constexpr Message kDeltaRows[] = {
    /* KL_DELTAS_REF             */ error("Time reference ID is not correct"),
    /* KL_DELTAS_NOT_INITIALISED */ error("Time references not correctly initialised"),
    /* KL_DELTAS_OUT_OF_RANGE    */ warning("Reference time out of initialization range"),
    /* KL_DELTAS_UT1_FORMULA     */
    warning("Input UT1 for extrapolation UT1-UTC formula (expected UTC). Transforming to UTC with time correlations "
            "of last record"),
};
constexpr Message kToTaiRows[] = {
    /* KL_TO_TAI_NOT_INITIALISED */ error("Time reference not initialised"),
    /* KL_TO_TAI_OUT_OF_RANGE    */ warning("Time out of initialization range"),
    /* KL_TO_TAI_LEAP_SECOND     */ error("Error checking leap second"),
};
constexpr Message kFromTaiRows[] = {
    /* KL_TO_TAI_NOT_INITIALISED */ error("Time reference not initialised"),
    /* KL_TO_TAI_OUT_OF_RANGE    */ warning("Time out of initialization range"),
};
constexpr Message kGetTimeRows[] = {
    /* KL_GET_TIME_IN_REF_FAILED */ error("Error converting time."),
};

constexpr double kEdge = 1e-11; // days: slack of the limits of a row
constexpr long kLastSecond = 86399;

// Time models whose instants after the last row are not "outside".
constexpr long kModelNeverOutside = 8; // nor before the first row, for the look-up
constexpr long kModelOpenEnd = 10;

constexpr double kGpsAfterTable = 19.0; // s

// Calls `use` with the column of a public reference; the rows are in the order TAI, UT1, UTC.
template <typename Use>
inline auto with_column(long ref, const Use &use)
{
    switch (ref) {
    case KL_TIME_TAI:
        return use([](const kl_time_row &row) { return row.tai; });
    case KL_TIME_UTC:
        return use([](const kl_time_row &row) { return row.utc; });
    case KL_TIME_UT1:
        return use([](const kl_time_row &row) { return row.ut1; });
    default:
        return use([](const kl_time_row &row) { return row.tai - row.tai_gps / KL_SECONDS_PER_DAY; });
    }
}

double column_of(const kl_time_row &row, long ref)
{
    return with_column(ref, [&row](auto column) { return column(row); });
}

// The row with column(row) <= t < column(row + 1), of rows 0 to n_rows - 2; t lies below the last row. The search goes
// out from where an evenly spaced table would have the row.
template <typename Column>
long enclosing_row(const Correlation &id, double t, Column column)
{
    const kl_time_row *rows = id.rows;
    const long last = id.n_rows - 1;
    const double guess = (t - rows[0].tai) * id.rows_per_day;
    long low = guess > 0.0 ? std::min(static_cast<long>(guess), last - 1) : 0;
    long high = low + 1;
    // Invariant at the end: column(low) <= t < column(high), row 0 standing for all that lies before it.
    for (long step = 1; low > 0 && t < column(rows[low]); step *= 2) {
        high = low;
        low = std::max(low - step, 0L);
    }
    for (long step = 1; high < last && t >= column(rows[high]); step *= 2) {
        low = high;
        high = std::min(high + step, last);
    }
    while (high - low > 1) {
        const long middle = low + (high - low) / 2;
        (t < column(rows[middle]) ? high : low) = middle;
    }
    return low;
}

// The row of an instant inside the table: the one that KL_binary_search gives, or the next one once t has reached it.
template <typename Column>
long row_inside(const Correlation &id, long ref, double t, Column column)
{
    const kl_time_row *rows = id.rows;
    const long last = id.n_rows - 1;
    long row = enclosing_row(id, t, column);
    // Where the slack lets no other row match, or only one that t has passed, the search ends at this row.
    const bool next_matches = row + 1 < last && column(rows[row + 1]) - kEdge <= t;
    const bool two_before_match = row > 1 && t < column(rows[row]) + kEdge && t < column(rows[row - 1]) + kEdge;
    if (next_matches || two_before_match) {
        row = KL_binary_search(rows, 0, last - 1, ref, &t);
        if (row + 1 < last && t >= column(rows[row + 1]))
            ++row;
    }
    return row;
}

struct Deltas {
    double tai_utc, tai_ut1, tai_gps; // s
    LeapFlags leap;
    bool out_of_range, from_ut1; // to be reported: KL_DELTAS_OUT_OF_RANGE, KL_DELTAS_UT1_FORMULA
};

Deltas deltas_of(const kl_time_row &row)
{
    return {row.tai_utc, row.tai_ut1, row.tai_gps, {false, false}, false, false};
}

// The differences between row i and the next one, c0 and c1 in the column of the reference.
Deltas deltas_between(const Correlation &id, long ref, double t, long i, double c0, double c1)
{
    const kl_time_row &row = id.rows[i];
    const kl_time_row &next = id.rows[i + 1];
    Deltas deltas = deltas_of(row);
    deltas.tai_ut1 = next.tai_ut1 - (next.tai_ut1 - row.tai_ut1) * (c1 - t) / (c1 - c0);
    if (id.leap.sign == 0)
        return deltas;
    deltas.leap = leap_flags(id, ref, i, c0, c1, t);
    if (deltas.leap.in || deltas.leap.after)
        deltas.tai_utc = next.tai_utc;
    return deltas;
}

template <typename Column>
Deltas deltas_inside(const Correlation &id, long ref, double t, Column column)
{
    const long i = row_inside(id, ref, t, column);
    return deltas_between(id, ref, t, i, column(id.rows[i]), column(id.rows[i + 1]));
}

// After the table with the UT1-UTC formula; TAI-UT1 is left at 0 where nobody asks for it.
Deltas deltas_by_formula(const Correlation &id, long ref, double t, bool with_ut1)
{
    const kl_time_row &row = id.rows[id.n_rows - 1];
    double utc = t;
    switch (ref) {
    case KL_TIME_TAI:
        utc = t - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    case KL_TIME_UTC:
        break;
    // On purpose, for UT1 and GPS: the seconds of TAI-UT1 and TAI-GPS are added to the days as they are.
    case KL_TIME_UT1:
        utc = t + row.tai_ut1 - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    default:
        utc = t + row.tai_gps - row.tai_utc / KL_SECONDS_PER_DAY;
        break;
    }
    const double tai_ut1 = with_ut1 ? row.tai_utc - (id.a + id.b * (utc - id.c) - KL_Get_ut2_ut1(utc)) : 0.0;
    // On purpose: 19 s, whatever the table says.
    return {row.tai_utc, tai_ut1, kGpsAfterTable, {false, false}, false, ref == KL_TIME_UT1};
}

Deltas deltas_outside(const Correlation &id, long ref, double t, double first, double last, bool with_ut1)
{
    Deltas deltas;
    if (t < last) {
        deltas = deltas_of(id.rows[0]);
        deltas.leap = leap_flags(id, ref, 0, first, column_of(id.rows[id.n_rows > 1 ? 1 : 0], ref), t);
    } else {
        const long end = id.n_rows - 1;
        deltas = id.no_extrapolation != 0 ? deltas_of(id.rows[end]) : deltas_by_formula(id, ref, t, with_ut1);
        deltas.leap = leap_flags(id, ref, end, last, last, t);
    }
    deltas.out_of_range = id.model != kModelNeverOutside && !(first - kEdge <= t && t <= last + kEdge);
    return deltas;
}

template <typename Column>
Deltas deltas_at(const Correlation &id, long ref, double t, bool with_ut1, Column column)
{
    const double first = column(id.rows[0]);
    const double last = column(id.rows[id.n_rows - 1]);
    if (first - kEdge <= t && t < last && id.n_rows > 1)
        return deltas_inside(id, ref, t, column);
    return deltas_outside(id, ref, t, first, last, with_ut1);
}

// The same for a conversion, which guesses the row before it knows t; clear of the slack around it no other row can
// match.
template <typename Column>
Deltas quick_deltas(const Correlation &id, long ref, long row, double t, bool with_ut1, Column column)
{
    if (row >= 0) {
        const double c0 = column(id.rows[row]);
        const double c1 = column(id.rows[row + 1]);
        if (c0 + kEdge <= t && t < c1 - kEdge)
            return deltas_between(id, ref, t, row, c0, c1);
    }
    return deltas_at(id, ref, t, with_ut1, column);
}

// False where there is more to report than that the instant is outside the table, or lines to print of what it met.
bool quick_deltas(const Correlation &id, long ref, long row, const kl_std_record &record, double t, bool with_ut1,
                  Deltas *deltas)
{
    if (id.model == 0 || !inside_processing_range(static_cast<double>(record.days)))
        return false;
    *deltas = with_column(ref, [&](auto column) { return quick_deltas(id, ref, row, t, with_ut1, column); });
    return !(deltas->out_of_range || deltas->from_ut1) || !is_verbose();
}

// The differences at an instant of a scale; 0, 1 with a warning or -1, conditions in the record.
long look_up(const kl_time_id *time_id, long ref, double t, Deltas *deltas, kl_error_record *error)
{
    Activation call(KL_FN_TIME_REF_INIT_FILE_DELTAS, error);
    if (KL_Check_time_ref_2(ref) == 0)
        return call.fails(KL_DELTAS_REF);
    const Correlation *id = correlation_of(time_id);
    if (id == nullptr || id->model == 0)
        return call.fails(KL_DELTAS_NOT_INITIALISED);
    if (id->model == KL_TIME_MODEL_EXPLICIT) {
        *deltas = deltas_of(id->rows[0]);
        return call.status();
    }
    *deltas = with_column(ref, [&](auto column) { return deltas_at(*id, ref, t, true, column); });
    if (deltas->out_of_range)
        call.warns(KL_DELTAS_OUT_OF_RANGE);
    if (deltas->from_ut1)
        call.warns(KL_DELTAS_UT1_FORMULA);
    return call.status();
}

// The look-up for a standard record, with its conditions as those of a conversion to or from TAI; false ends the call.
// Of the look-up's warnings only the one for an instant outside the table is passed on.
bool look_up_record(const kl_time_id *time_id, long ref, const kl_std_record &instant, Deltas *deltas, Activation *call)
{
    const Correlation *id = correlation_of(time_id);
    if (id != nullptr && id->model == KL_TIME_MODEL_EXPLICIT && KL_Check_time_ref_2(ref) == 1) {
        *deltas = deltas_of(id->rows[0]);
        return true;
    }
    ErrorRecord conditions;
    const long status = look_up(time_id, ref, processing_of(instant), deltas, &conditions);
    if (status == KL_ERR)
        call->fails(KL_TO_TAI_NOT_INITIALISED);
    else if (status == KL_WARN && recorded(KL_FN_TIME_REF_INIT_FILE_DELTAS, KL_DELTAS_OUT_OF_RANGE, conditions))
        call->warns(KL_TO_TAI_OUT_OF_RANGE);
    return status != KL_ERR;
}

// TAI-UT1 in whole seconds and whole microseconds of 0 to 1000000.
struct Split {
    long seconds, microseconds;
};
Split split(double seconds)
{
    const long whole = floor_to_long(seconds);
    return {whole, floor_to_long(1e6 * (seconds - static_cast<double>(whole)) + 0.5)};
}

void normalise_microseconds(kl_std_record *record)
{
    constexpr long kSecond = 1000000;
    if (record->microseconds >= kSecond) {
        record->microseconds -= kSecond;
        ++record->seconds;
    } else if (record->microseconds < 0) {
        record->microseconds += kSecond;
        --record->seconds;
    }
}

// A UTC record, seconds not yet brought into the day, at a leap second of its id: true when it has been placed.
bool place_in_leap_second(const Correlation &id, const LeapFlags &leap, kl_std_record *utc)
{
    const long day_before = static_cast<long>(id.leap.utc) - 1;
    if (id.leap.sign > 0) {
        // The flag comes from days in a double, which may put the last microsecond on either side of the end of the
        // leap second. The whole seconds tell: after the instant, and still on the day before.
        kl_std_record plain = *utc;
        normalise_seconds(&plain);
        if (!leap.in && !(leap.after && plain.days == day_before))
            return false;
        utc->days = day_before;
        utc->seconds = kLastSecond + 1;
        return true;
    }
    if (id.leap.sign < 0) {
        // Rows that do not stand at midnight let the second that a negative leap second takes away come out once more.
        kl_std_record plain = *utc;
        normalise_seconds(&plain);
        if (plain.days != day_before || plain.seconds != kLastSecond)
            return false;
        utc->days = day_before + 1;
        utc->seconds = 0;
        return true;
    }
    return false;
}

// A record of a scale to TAI with the differences at it.
kl_std_record added(kl_std_record record, long ref, const Deltas &deltas)
{
    switch (ref) {
    case KL_TIME_UTC: {
        const double step = record.seconds > kLastSecond ? 1.0 : 0.0; // the 61st second still counts with the old value
        record.seconds += truncated_to_long(deltas.tai_utc - step);
        break;
    }
    case KL_TIME_UT1: {
        const Split ut1 = split(deltas.tai_ut1);
        record.seconds += ut1.seconds;
        record.microseconds += ut1.microseconds;
        break;
    }
    default:
        record.seconds += truncated_to_long(deltas.tai_gps);
        break;
    }
    normalise_microseconds(&record);
    normalise_seconds(&record);
    return record;
}

// A TAI record to a scale with the differences at it.
kl_std_record subtracted(kl_std_record record, const Correlation &id, long ref, const Deltas &deltas)
{
    switch (ref) {
    case KL_TIME_UTC:
        record.seconds -= truncated_to_long(deltas.tai_utc);
        break;
    case KL_TIME_UT1: {
        const Split ut1 = split(deltas.tai_ut1);
        record.seconds -= ut1.seconds;
        record.microseconds -= ut1.microseconds;
        break;
    }
    default:
        record.seconds -= truncated_to_long(deltas.tai_gps);
        break;
    }
    normalise_microseconds(&record);
    if (ref != KL_TIME_UTC || !place_in_leap_second(id, deltas.leap, &record))
        normalise_seconds(&record);
    return record;
}

} // namespace

const MessageGroup messages_KL_Time_ref_init_file_deltas = group(kDeltaRows);
const MessageGroup messages_KL_Time_t2t_ref_to_tai = group(kToTaiRows);
const MessageGroup messages_KL_Time_t2t_ref_from_tai = group(kFromTaiRows);
const MessageGroup messages_KL_Get_time_in_ref = group(kGetTimeRows);

long KL_binary_search(const kl_time_row *table, long first, long last, long column, const double *time)
{
    if (table == nullptr || time == nullptr || last < 1 || KL_Check_time_ref_2(column) == 0)
        return 0;
    const double t = *time;
    long lo = first;
    long hi = last;
    while (hi >= 1 && lo <= hi) { // lo passes hi only when t is not within the searched rows
        const long mid = lo + (hi - lo) / 2;
        const double start = column_of(table[mid], column) - kEdge;
        if (start <= t && t < column_of(table[mid + 1], column) + kEdge)
            return mid;
        if (!(start > t))
            lo = mid + 1;
        else if (mid < hi)
            hi = mid;
        else
            break;
    }
    return 0;
}

long KL_Time_ref_init_file_deltas(kl_time_id *time_id, const double *time, const long *ref, double *tai_utc,
                                  double *tai_ut1, double *tai_gps, long *in_leap_second, long *after_leap_second,
                                  kl_error_record *error)
{
    if (in_leap_second != nullptr)
        *in_leap_second = 0;
    if (after_leap_second != nullptr)
        *after_leap_second = 0;
    Deltas deltas{};
    const long status =
        look_up(time_id, value_or(ref, KL_TIME_UNDEF), time != nullptr ? *time : std::nan(""), &deltas, error);
    if (status == KL_ERR)
        return status;
    if (tai_utc != nullptr)
        *tai_utc = deltas.tai_utc;
    if (tai_ut1 != nullptr)
        *tai_ut1 = deltas.tai_ut1;
    if (tai_gps != nullptr)
        *tai_gps = deltas.tai_gps;
    if (in_leap_second != nullptr)
        *in_leap_second = deltas.leap.in ? 1 : 0;
    if (after_leap_second != nullptr)
        *after_leap_second = deltas.leap.after ? 1 : 0;
    return status;
}

long KL_Time_t2t_ref_to_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                            kl_error_record *error)
{
    Activation call(KL_FN_TIME_T2T_REF_TO_TAI, error);
    if (in == nullptr || out == nullptr)
        return KL_ERR;
    if (ref == KL_TIME_TAI) {
        *out = *in;
        return call.status();
    }
    Deltas deltas{};
    if (!look_up_record(time_id, ref, *in, &deltas, &call))
        return KL_ERR;
    // That a day ends with a leap second changes nothing in TAI: only the check's range matters here, of the day before
    // seconds are carried into it. UT1 of the first instant of 1950 in TAI lies on the day before, and comes back.
    const kl_std_record tai = added(*in, ref, deltas);
    if (long flag = 0; !inside_processing_range(static_cast<double>(in->days))
                       && !inside_processing_range(static_cast<double>(tai.days))
                       && KL_Time_check_leap_second(time_id, KL_TIME_TAI, &tai, &flag, nullptr) == KL_ERR)
        return call.fails(KL_TO_TAI_LEAP_SECOND);
    *out = tai;
    return call.status();
}

long likely_row(const Correlation &id, double about)
{
    const double row = (about - id.rows[0].tai) * id.rows_per_day;
    return row >= 0.0 && row < static_cast<double>(id.n_rows - 1) ? static_cast<long>(row) : -1;
}

bool quickly_to_tai(const Correlation &id, long ref, long row, kl_std_record *record, bool *out_of_range)
{
    Deltas deltas;
    if (ref == KL_TIME_TAI)
        return true;
    if (!quick_deltas(id, ref, row, *record, processing_of(*record), ref == KL_TIME_UT1, &deltas))
        return false;
    *out_of_range |= deltas.out_of_range;
    *record = added(*record, ref, deltas);
    return true;
}

long KL_Time_t2t_ref_from_tai(kl_time_id *time_id, long ref, const kl_std_record *in, kl_std_record *out,
                              kl_error_record *error)
{
    Activation call(KL_FN_TIME_T2T_REF_FROM_TAI, error);
    if (in == nullptr || out == nullptr)
        return KL_ERR;
    if (ref == KL_TIME_TAI) {
        *out = *in;
        return call.status();
    }
    // The table is searched with the TAI time.
    Deltas deltas{};
    const long own_ref = KL_Check_time_ref_2(ref) == 1 ? long{KL_TIME_TAI} : ref;
    if (!look_up_record(time_id, own_ref, *in, &deltas, &call))
        return KL_ERR;
    *out = subtracted(*in, *correlation_of(time_id), ref, deltas);
    return call.status();
}

bool quickly_from_tai(const Correlation &id, long ref, long row, double tai_days, kl_std_record *record,
                      bool *out_of_range)
{
    Deltas deltas;
    if (ref == KL_TIME_TAI)
        return true;
    if (!quick_deltas(id, KL_TIME_TAI, row, *record, tai_days, ref == KL_TIME_UT1, &deltas))
        return false;
    *out_of_range |= deltas.out_of_range;
    *record = subtracted(*record, id, ref, deltas);
    return true;
}

long once_only_warning(TimeIdRecord *record, long set, double tai_days)
{
    const Correlation *id = &record->correlation;
    auto &was_inside = record->previous_inside[set];
    // Notes whether this computation is in the good region of a flag; true when the one before was and this is not.
    const auto leaves = [&](int flag, bool inside) {
        const bool before = was_inside[flag].load(std::memory_order_relaxed) == 1;
        if (before != inside) // written only when it changes: a shared id then stays in every core's cache
            was_inside[flag].store(inside ? 1 : 0, std::memory_order_relaxed);
        return before && !inside;
    };
    const double t = tai_days;
    const double first = id->rows[0].tai;
    const double last = id->rows[id->n_rows - 1].tai;

    long warning = 0;
    if (id->no_extrapolation == 0 && leaves(0, !(t > last)))
        warning = 1;
    if (id->combination == KL_COMBINATION_TWO_BULLETINS) {
        const long second = id->second_bulletin_row;
        if (leaves(1, !(id->rows[second - 1].tai < t && t < id->rows[second].tai)))
            warning = 2;
    }
    if (warning != 0)
        return warning;
    const bool open_end = id->model == kModelNeverOutside || id->model == kModelOpenEnd;
    return leaves(2, (first <= t && t <= last) || (t > last && open_end)) ? 3 : 0;
}

long KL_Check_Time_warn_flags(kl_time_id *time_id, const kl_std_record *tai, const long *selector, long *warning)
{
    if (warning != nullptr)
        *warning = 0;
    TimeIdRecord *id = time_record_of(time_id);
    if (tai == nullptr || selector == nullptr || warning == nullptr || *selector < KL_FLAGS_CONVERSION
        || *selector > KL_FLAGS_FRAME_CHANGE)
        return KL_ERR;
    if (id == nullptr || id->correlation.model == KL_TIME_MODEL_EXPLICIT) // explicit values hold at every instant
        return KL_OK;

    *warning = once_only_warning(id, *selector, processing_of(*tai));
    return KL_OK;
}

long KL_Get_time_in_ref(kl_time_id *time_id, long ref_in, long ref_out, double *time_out, kl_error_record *error,
                        double time_in)
{
    Activation call(KL_FN_GET_TIME_IN_REF, error);
    if (time_out == nullptr)
        return KL_ERR;
    if (ref_in == ref_out) {
        *time_out = time_in;
        return call.status();
    }
    const long processing = KL_PROC;
    if (kl_time_processing_to_processing(time_id, &processing, &ref_in, &time_in, &processing, &ref_out, time_out,
                                         nullptr)
        == KL_ERR)
        return call.fails(KL_GET_TIME_IN_REF_FAILED);
    return call.status();
}
