// Time ids: built from explicit values or from a table of rows, their data, and their release.
#include "time/scales.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The first of TAI, UTC, UT1 and GPS that is out of range, as the condition of the check; or -1.
int fault_of(const double tri_time[4])
{
    constexpr int kFaults[] = {KL_TIME_REF_INIT_CHECK_TAI, KL_TIME_REF_INIT_CHECK_UTC, KL_TIME_REF_INIT_CHECK_UT1,
                               KL_TIME_REF_INIT_CHECK_GPS};
    for (int i = 0; i < 4; ++i)
        if (tri_time == nullptr || !inside_processing_range(tri_time[i]))
            return kFaults[i];
    return -1;
}

// The same as conditions of kl_time_ref_init.
constexpr int kInitInput[] = {KL_TIME_REF_INIT_TAI_ERR, KL_TIME_REF_INIT_UTC_ERR, KL_TIME_REF_INIT_UT1_ERR,
                              KL_TIME_REF_INIT_GPS_ERR};
static_assert(KL_TIME_REF_INIT_CHECK_TAI == 0 && KL_TIME_REF_INIT_CHECK_GPS == 3);

constexpr long kNoCombination = -1;

// A copy of what is given, completed, to the handle; null, or what hinders it.
const char *hand_over(const Correlation &given, kl_time_id *time_id)
{
    Correlation own;
    if (!copy_arrays(given, &own))
        return "Memory allocation error";
    const bool completed = complete(&own);
    if (completed && publish(own, time_id))
        return nullptr;
    free_arrays(&own);
    return completed ? "Memory allocation error" : "Could not compute leap second";
}

// Rows that nobody noted anything about have zeros.
bool has_notes(const Correlation &own)
{
    return std::any_of(own.row_notes, own.row_notes + own.n_rows,
                       [](const long(&note)[2]) { return note[0] != 0 || note[1] != 0; });
}

void copy_formula(const double x[5], const double y[5], const double reference_date[2], const double period[2],
                  double x_out[5], double y_out[5], double reference_date_out[2], double period_out[2])
{
    std::copy(x, x + 5, x_out);
    std::copy(y, y + 5, y_out);
    std::copy(reference_date, reference_date + 2, reference_date_out);
    std::copy(period, period + 2, period_out);
}

long refuse(const char *function, const char *fault)
{
    if (is_verbose())
        std::fprintf(stderr, "ORBKIT_LIB >>> ERROR in %s: %s\n", function, fault);
    return KL_ERR;
}

} // namespace

long KL_Time_ref_init_check_inputs(const double tri_time[4], kl_error_record *error)
{
    Activation call(KL_FN_TIME_REF_INIT_CHECK_INPUTS, error);
    const int fault = fault_of(tri_time);
    if (fault >= 0)
        return call.fails(fault);
    return call.status();
}

long kl_time_ref_init(const double tri_time[4], const long * /*orbit*/, const double * /*anx_time*/,
                      const double * /*orbit_duration*/, kl_time_id *time_id, long *ierr)
{
    Activation call(KL_FN_TIME_REF_INIT, ierr);
    if (time_id == nullptr)
        return KL_ERR;
    if (time_record_of(time_id) != nullptr)
        return call.fails(KL_TIME_REF_INIT_ID_ERR);
    const int fault = fault_of(tri_time);
    if (fault >= 0) {
        Activation(KL_FN_TIME_REF_INIT_CHECK_INPUTS, KL_NO_RECORD).fails(fault);
        return call.fails(kInitInput[fault]);
    }

    const double tai = tri_time[0];
    kl_time_row row = {}; // its UTC time stays unset: nothing reads it
    row.tai = tai;
    row.ut1 = tri_time[2];
    row.tai_utc = std::round(KL_SECONDS_PER_DAY * (tai - tri_time[1])); // half seconds away from zero
    row.tai_ut1 = KL_SECONDS_PER_DAY * (tai - tri_time[2]);
    row.tai_gps = std::round(KL_SECONDS_PER_DAY * (tai - tri_time[3]));
    Correlation given = {};
    given.model = KL_TIME_MODEL_EXPLICIT;
    given.combination = kNoCombination;
    given.no_extrapolation = 1;
    given.n_rows = 1;
    given.rows = &row;
    if (hand_over(given, time_id) != nullptr)
        return call.fails(KL_TIME_REF_INIT_MEMORY_ERR);
    return call.status();
}

long kl_time_close(kl_time_id *time_id, long *ierr)
{
    Activation call(KL_FN_TIME_REF_CLOSE, ierr);
    if (KL_Id_close(time_id) != 0)
        return call.fails(KL_TIME_REF_CLOSE_ID_ERR);
    free_time_record(static_cast<TimeIdRecord *>(time_id->record));
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
    const Correlation *own = correlation_of(time_id);
    if (own == nullptr)
        return refuse("kl_time_get_id_data", "The Time Id is not initialized");
    if (data == nullptr)
        return refuse("kl_time_get_id_data", "There is no record to fill");
    const auto n = static_cast<std::size_t>(own->n_rows);
    auto *rows = static_cast<kl_time_row *>(std::calloc(n, sizeof(kl_time_row)));
    const bool noted = has_notes(*own);
    auto *notes = noted ? static_cast<long(*)[2]>(std::calloc(n, sizeof(long[2]))) : nullptr;
    auto *pole = own->row_pole != nullptr ? static_cast<double(*)[4]>(std::calloc(n, sizeof(double[4]))) : nullptr;
    if (rows == nullptr || (noted && notes == nullptr) || (own->row_pole != nullptr && pole == nullptr)) {
        std::free(rows);
        std::free(notes);
        std::free(pole);
        return refuse("kl_time_get_id_data", "Memory allocation error");
    }
    std::copy(own->rows, own->rows + own->n_rows, rows);
    if (notes != nullptr)
        std::memcpy(notes, own->row_notes, n * sizeof *notes);
    if (pole != nullptr)
        std::memcpy(pole, own->row_pole, n * sizeof *pole);
    if (own->model == KL_TIME_MODEL_EXPLICIT)
        rows[0].utc = rows[0].tai - rows[0].tai_utc / KL_SECONDS_PER_DAY;
    *data = {};
    data->model = own->model;
    data->combination = own->combination;
    data->no_extrapolation = own->no_extrapolation;
    data->second_bulletin_row = own->second_bulletin_row;
    data->a = own->a;
    data->b = own->b;
    data->c = own->c;
    data->leap_sign = own->leap.sign;
    data->leap_utc = own->leap.utc;
    data->leap_tai = own->leap.tai;
    data->n_rows = own->n_rows;
    data->rows = rows;
    data->pole = pole;
    data->row_notes = notes;
    copy_formula(own->pole.x, own->pole.y, own->pole.reference_date, own->pole.period, data->pole_x, data->pole_y,
                 data->pole_reference_date, data->pole_period);
    return KL_OK;
}

long kl_time_set_id_data(kl_time_id *time_id, const kl_time_id_data *data)
{
    constexpr const char *kName = "kl_time_set_id_data";
    if (time_id == nullptr)
        return refuse(kName, "There is no Time Id");
    Correlation given = {};
    if (data != nullptr) {
        given.model = data->model;
        given.combination = data->combination;
        given.no_extrapolation = data->no_extrapolation;
        given.second_bulletin_row = data->second_bulletin_row;
        given.a = data->a;
        given.b = data->b;
        given.c = data->c;
        given.n_rows = data->n_rows;
        given.rows = data->rows;
        given.row_notes = data->row_notes;
        given.row_pole = data->pole;
        copy_formula(data->pole_x, data->pole_y, data->pole_reference_date, data->pole_period, given.pole.x,
                     given.pole.y, given.pole.reference_date, given.pole.period);
    }
    if (const char *fault = fault_of(given))
        return refuse(kName, fault);
    if (time_record_of(time_id) != nullptr && KL_Is_used(time_id) != 0)
        return refuse(kName, "The Time Id is in use by another Id");
    if (const char *fault = hand_over(given, time_id))
        return refuse(kName, fault);
    return KL_OK;
}

long kl_time_free_id_data(kl_time_id_data *data)
{
    if (data == nullptr)
        return KL_ERR;
    std::free(data->rows);
    std::free(data->pole);
    std::free(data->row_notes);
    data->rows = nullptr;
    data->pole = nullptr;
    data->row_notes = nullptr;
    data->n_rows = 0;
    return KL_OK;
}
