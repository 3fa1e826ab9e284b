// Time ids: built from explicit values or from a table of rows, their data, and their release.
#include "errors/message_groups.h"
#include "time/scales.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <new>

namespace {

// The orbit arguments are not looked at: their conditions are never recorded.
constexpr Message kCheckRows[] = {
    error("TAI time is out of range"),          error("UTC time is out of range"),
    error("UT1 time is out of range"),          error("GPS time is out of range"),
    error("Absolute orbit number is negative"), error("Elapsed time since ANX is negative"),
    error("Orbit duration is negative"),        error("ANX time is bigger than orbit duration"),
};
constexpr Message kInitRows[] = {
    /* KL_TIME_REF_INIT_TAI_ERR            */ kCheckRows[0],
    /* KL_TIME_REF_INIT_UTC_ERR            */ kCheckRows[1],
    /* KL_TIME_REF_INIT_UT1_ERR            */ kCheckRows[2],
    /* KL_TIME_REF_INIT_GPS_ERR            */ kCheckRows[3],
    /* KL_TIME_REF_INIT_ORBIT_ERR          */ kCheckRows[4],
    /* KL_TIME_REF_INIT_ANX_TIME_ERR       */ kCheckRows[5],
    /* KL_TIME_REF_INIT_ORBIT_DURATION_ERR */ kCheckRows[6],
    /* KL_TIME_REF_INIT_ANX_DURATION_ERR   */ kCheckRows[7],
    /* KL_TIME_REF_INIT_MEMORY_ERR         */ error("Memory allocation error"),
    /* KL_TIME_REF_INIT_ID_ERR             */ error("Time reference ID is already initialized"),
};
constexpr Message kCloseRows[] = {
    /* KL_TIME_REF_CLOSE_ID_ERR */ error("The Time Id is not initialized or it could be in use by another Id."),
};
constexpr CodeMap kInitInput[] = {
    {0, KL_TIME_REF_INIT_TAI_ERR},
    {1, KL_TIME_REF_INIT_UTC_ERR},
    {2, KL_TIME_REF_INIT_UT1_ERR},
    {3, KL_TIME_REF_INIT_GPS_ERR},
};

constexpr long kNoSatellite = -1;
constexpr long kNoCombination = -1;
constexpr double kColumnSlack = 2e-6;                // s: two days rounded to doubles near 2099 use up half of it
constexpr double kLeapStep = 0.5;                    // s: TAI-UTC moves by whole seconds
constexpr double kOneSecond = 1.1574074074074073e-5; // days

// Bounds that keep sums of seconds and microseconds within a long: no two times in range lie further apart, and the
// UT1-UTC formula, which is also asked for days that had seconds added to them, stays below a sum that no clock needs.
constexpr double kLongestDelta = (KL_PROCESSING_LAST - KL_PROCESSING_FIRST) * KL_SECONDS_PER_DAY; // s
constexpr double kFormulaReach = 1e10;                                                            // days
constexpr double kLongestFormula = 1e12;                                                          // s

double gps_of(const kl_time_row &row)
{
    return row.tai - row.tai_gps / KL_SECONDS_PER_DAY;
}

void free_record(TimeIdRecord *record)
{
    if (record == nullptr)
        return;
    std::free(record->rows);
    std::free(record->row_notes);
    delete record;
}

// A zeroed record with room for its rows; null when there is no memory.
TimeIdRecord *new_record(long n_rows)
{
    TimeIdRecord *record = new (std::nothrow) TimeIdRecord{};
    if (record == nullptr)
        return nullptr;
    const std::size_t count = static_cast<std::size_t>(n_rows);
    record->n_rows = n_rows;
    record->rows = static_cast<kl_time_row *>(std::calloc(count, sizeof *record->rows));
    record->row_notes = static_cast<long(*)[2]>(std::calloc(count, sizeof *record->row_notes));
    // As if the computation before the first one had been inside: the first one outside warns.
    for (auto &set : record->previous_inside)
        for (auto &flag : set)
            flag.store(1, std::memory_order_relaxed);
    if (record->rows == nullptr || record->row_notes == nullptr) {
        free_record(record);
        return nullptr;
    }
    return record;
}

// Initialises the head and hands the record to the handle; false, with the record freed, when there is no memory.
bool publish(TimeIdRecord *record, kl_time_id *time_id)
{
    if (KL_Id_init(&kNoSatellite, KL_ID_TIME, record) < 0) {
        free_record(record);
        return false;
    }
    record->head.mode = record->model;
    time_id->record = record;
    return true;
}

// What is wrong with the data of a table; null when it can be used.
const char *fault_of_row(const kl_time_row &row, bool explicit_values)
{
    const double values[] = {row.tai, row.ut1, row.utc, row.tai_utc, row.tai_ut1, row.tai_gps};
    if (!std::all_of(std::begin(values), std::end(values), [](double value) { return std::isfinite(value); }))
        return "A value of a row is not finite";
    // Nothing reads the UTC time of explicit values, which is their TAI time less a rounded TAI-UTC.
    if (!inside_processing_range(row.tai) || !inside_processing_range(row.ut1)
        || (!explicit_values && !inside_processing_range(row.utc)))
        return "A time of a row is out of range";
    if (row.tai_utc != std::floor(row.tai_utc) || row.tai_gps != std::floor(row.tai_gps))
        return "TAI-UTC and TAI-GPS must be whole seconds";
    if (std::fabs(row.tai_utc) > kLongestDelta || std::fabs(row.tai_gps) > kLongestDelta)
        return "TAI-UTC or TAI-GPS is longer than the range of times";
    if (std::fabs((row.tai - row.utc) * KL_SECONDS_PER_DAY - row.tai_utc) > kColumnSlack
        || std::fabs((row.tai - row.ut1) * KL_SECONDS_PER_DAY - row.tai_ut1) > kColumnSlack)
        return "The times of a row do not agree with its differences";
    return nullptr;
}

bool follows(const kl_time_row &row, const kl_time_row &before)
{
    return row.tai > before.tai && row.ut1 > before.ut1 && row.utc > before.utc && gps_of(row) > gps_of(before);
}

const char *fault_of(const kl_time_id_data *data)
{
    if (data == nullptr || data->rows == nullptr || data->n_rows < 1)
        return "There must be at least one row";
    const bool explicit_values = data->model == KL_TIME_MODEL_EXPLICIT;
    if (data->model == 0)
        return "Time model 0 stands for no model";
    if (explicit_values && data->n_rows != 1)
        return "Explicit values have exactly one row";
    if (data->combination == KL_COMBINATION_TWO_BULLETINS
        && (data->second_bulletin_row < 1 || data->second_bulletin_row >= data->n_rows))
        return "The first row of the second bulletin must lie inside the table";
    if (!(std::fabs(data->a) + std::fabs(data->b) * (std::fabs(data->c) + kFormulaReach) <= kLongestFormula)) // or NaN
        return "A coefficient of the UT1-UTC formula is not finite or too large";
    for (long i = 0; i < data->n_rows; ++i) {
        if (const char *fault = fault_of_row(data->rows[i], explicit_values))
            return fault;
        if (i > 0 && !follows(data->rows[i], data->rows[i - 1]))
            return "The rows must be in increasing time order";
    }
    return nullptr;
}

// The last change of TAI-UTC in the rows; false when its quarter cannot be found.
bool find_leap_second(TimeIdRecord *record)
{
    for (long i = 1; i < record->n_rows; ++i) {
        const kl_time_row &row = record->rows[i];
        const double step = row.tai_utc - record->rows[i - 1].tai_utc;
        if (std::fabs(step) < kLeapStep)
            continue;
        const long utc = KL_TIME_UTC;
        record->leap_sign = step > 0.0 ? 1 : -1;
        if (KL_Leap_second_utc_time(&utc, &row.utc, &record->leap_utc, nullptr) == KL_ERR)
            return false;
        record->leap_tai =
            record->leap_utc + row.tai_utc / KL_SECONDS_PER_DAY - static_cast<double>(record->leap_sign) * kOneSecond;
    }
    return true;
}

// A record with the data of a caller, not yet in a handle; null when there is no memory or no quarter of a leap second.
TimeIdRecord *record_from(const kl_time_id_data &data)
{
    TimeIdRecord *record = new_record(data.n_rows);
    if (record == nullptr)
        return nullptr;
    record->model = data.model;
    record->combination = data.combination;
    record->no_extrapolation = data.no_extrapolation;
    record->second_bulletin_row = data.second_bulletin_row;
    record->a = data.a;
    record->b = data.b;
    record->c = data.c;
    std::copy(data.rows, data.rows + data.n_rows, record->rows);
    if (data.n_rows > 1)
        record->rows_per_day =
            static_cast<double>(data.n_rows - 1) / (data.rows[data.n_rows - 1].tai - data.rows[0].tai);
    if (!find_leap_second(record)) {
        free_record(record);
        return nullptr;
    }
    return record;
}

// Gives the record of a handle the data of another record, which is used up.
void replace_data(TimeIdRecord *record, TimeIdRecord *fresh)
{
    record->model = record->head.mode = fresh->model;
    record->combination = fresh->combination;
    record->no_extrapolation = fresh->no_extrapolation;
    record->second_bulletin_row = fresh->second_bulletin_row;
    record->a = fresh->a;
    record->b = fresh->b;
    record->c = fresh->c;
    record->leap_sign = fresh->leap_sign;
    record->leap_utc = fresh->leap_utc;
    record->leap_tai = fresh->leap_tai;
    record->rows_per_day = fresh->rows_per_day;
    record->n_rows = fresh->n_rows;
    std::swap(record->rows, fresh->rows);
    std::swap(record->row_notes, fresh->row_notes);
    for (auto &set : record->previous_inside)
        for (auto &flag : set)
            flag.store(1, std::memory_order_relaxed);
    free_record(fresh);
}

long refuse(const char *function, const char *fault)
{
    if (is_verbose())
        std::fprintf(stderr, "ORBKIT_LIB >>> ERROR in %s: %s\n", function, fault);
    return KL_ERR;
}

} // namespace

const MessageGroup messages_KL_Time_ref_init_check_inputs = group(kCheckRows);
const MessageGroup messages_kl_time_ref_init = group(kInitRows);
const MessageGroup messages_kl_time_ref_close = group(kCloseRows);

long KL_Time_ref_init_check_inputs(const double tri_time[4], kl_error_record *error)
{
    Activation call(KL_FN_TIME_REF_INIT_CHECK_INPUTS, error);
    for (int i = 0; i < 4; ++i) // TAI, UTC, UT1, GPS: codes 0 to 3
        if (tri_time == nullptr || !inside_processing_range(tri_time[i]))
            return call.fails(i);
    return call.status();
}

long kl_time_ref_init(const double tri_time[4], const long * /*orbit*/, const double * /*anx_time*/,
                      const double * /*orbit_duration*/, kl_time_id *time_id, long *ierr)
{
    Activation call(KL_FN_TIME_REF_INIT, ierr);
    if (time_id == nullptr)
        return KL_ERR;
    if (kl_time_init_status(time_id) != 0)
        return call.fails(KL_TIME_REF_INIT_ID_ERR);
    ErrorRecord check;
    if (KL_Time_ref_init_check_inputs(tri_time, &check) == KL_ERR
        && call.stops(KL_FN_TIME_REF_INIT_CHECK_INPUTS, check, kInitInput))
        return KL_ERR;

    TimeIdRecord *record = new_record(1);
    if (record == nullptr) {
        return call.fails(KL_TIME_REF_INIT_MEMORY_ERR);
    }
    const double tai = tri_time[0];
    kl_time_row &row = record->rows[0]; // its UTC time stays unset: nothing reads it
    row.tai = tai;
    row.ut1 = tri_time[2];
    row.tai_utc = std::round(KL_SECONDS_PER_DAY * (tai - tri_time[1])); // half seconds away from zero
    row.tai_ut1 = KL_SECONDS_PER_DAY * (tai - tri_time[2]);
    row.tai_gps = std::round(KL_SECONDS_PER_DAY * (tai - tri_time[3]));
    record->model = KL_TIME_MODEL_EXPLICIT;
    record->combination = kNoCombination;
    record->no_extrapolation = 1;
    if (!publish(record, time_id))
        return call.fails(KL_TIME_REF_INIT_MEMORY_ERR);
    return call.status();
}

long kl_time_close(kl_time_id *time_id, long *ierr)
{
    Activation call(KL_FN_TIME_REF_CLOSE, ierr);
    if (KL_Id_close(time_id) != 0)
        return call.fails(KL_TIME_REF_CLOSE_ID_ERR);
    free_record(static_cast<TimeIdRecord *>(time_id->record));
    time_id->record = nullptr;
    return call.status();
}

long kl_time_init_status(kl_time_id *time_id)
{
    return KL_Id_init_status(time_id);
}

long kl_time_get_mode(kl_time_id *time_id)
{
    return time_record_of(time_id) != nullptr ? KL_Id_get_mode(time_id) : 0;
}

long kl_time_get_sat_id(kl_time_id *time_id)
{
    return time_record_of(time_id) != nullptr ? KL_Id_get_sat_id(time_id) : 0;
}

long kl_time_get_id_data(kl_time_id *time_id, kl_time_id_data *data)
{
    const TimeIdRecord *record = time_record_of(time_id);
    if (record == nullptr)
        return refuse("kl_time_get_id_data", "The Time Id is not initialized");
    if (data == nullptr)
        return refuse("kl_time_get_id_data", "There is no record to fill");
    auto *rows = static_cast<kl_time_row *>(std::calloc(static_cast<std::size_t>(record->n_rows), sizeof(kl_time_row)));
    if (rows == nullptr)
        return refuse("kl_time_get_id_data", "Memory allocation error");
    std::copy(record->rows, record->rows + record->n_rows, rows);
    if (record->model == KL_TIME_MODEL_EXPLICIT)
        rows[0].utc = rows[0].tai - rows[0].tai_utc / KL_SECONDS_PER_DAY;
    *data = {record->model,
             record->combination,
             record->no_extrapolation,
             record->second_bulletin_row,
             record->a,
             record->b,
             record->c,
             record->leap_sign,
             record->leap_utc,
             record->leap_tai,
             record->n_rows,
             rows};
    return KL_OK;
}

long kl_time_set_id_data(kl_time_id *time_id, const kl_time_id_data *data)
{
    constexpr const char *kName = "kl_time_set_id_data";
    if (time_id == nullptr)
        return refuse(kName, "There is no Time Id");
    if (const char *fault = fault_of(data))
        return refuse(kName, fault);
    TimeIdRecord *record = time_record_of(time_id);
    if (record != nullptr && KL_Is_used(time_id) != 0)
        return refuse(kName, "The Time Id is in use by another Id");
    TimeIdRecord *fresh = record_from(*data);
    if (fresh == nullptr)
        return refuse(kName, "Memory allocation error, or could not compute leap second");
    if (record != nullptr)
        replace_data(record, fresh);
    else if (!publish(fresh, time_id))
        return refuse(kName, "Memory allocation error");
    return KL_OK;
}

long kl_time_free_id_data(kl_time_id_data *data)
{
    if (data == nullptr)
        return KL_ERR;
    std::free(data->rows);
    data->rows = nullptr;
    data->n_rows = 0;
    return KL_OK;
}
