// Satellite ids and their rows: checks, names, catalogue data, periods.
#include "satellites/satellites.h"

#include "errors/activation.h"
#include "numbers/numbers.h"

#include <cmath>
#include <iterator>

namespace {

bool is_meo(long sat_id)
{
    return sat_id >= KL_FIRST_MEO_ID && sat_id % KL_MEO_PERIOD < KL_MEO_WIDTH;
}

// Row of an id, -1 for an invalid one. A default satellite has its row also while its slot is free.
long row_of(const long *sat_id)
{
    if (sat_id == nullptr)
        return -1;
    if (0 <= *sat_id && *sat_id <= KL_SAT_GEO_MISSION)
        return kRowOfId.row[*sat_id];
    return is_meo(*sat_id) ? KL_ROW_MEO : -1;
}

// The same, and -1 for a free default slot.
long usable_row_of(const long *sat_id)
{
    const long row = row_of(sat_id);
    return is_default_satellite(row) && !slot_in_use(row) ? -1 : row;
}

long check_satellite(const long *sat_id, kl_error_record *error)
{
    Activation call(KL_FN_CHECK_SAT_ID, error);
    return usable_row_of(sat_id) < 0 ? call.fails(KL_CHECK_SAT_ID) : call.status();
}

// The row of a usable id, or -1 with the condition of KL_Sat_id_to_array.
long checked_row(const long *sat_id, kl_error_record *error)
{
    Activation call(KL_FN_SAT_ID_TO_ARRAY, error);
    const long row = row_of(sat_id);
    if (row < 0)
        return call.fails(KL_SAT_TO_ARRAY_ID);
    if (is_default_satellite(row) && !slot_in_use(row))
        return call.fails(KL_SAT_TO_ARRAY_FREE_SLOT);
    return row;
}

double period_of(double semi_major_axis)
{
    return KL_TWO_PI / std::sqrt(KL_EARTH_GM / (semi_major_axis * semi_major_axis * semi_major_axis));
}

double earth_radius()
{
    return KL_EARTH_GRAVITY_RADIUS;
}

double largest_axis()
{
    double largest = 0.0;
    for (const double &axis : A_MAX)
        largest = std::max(largest, read_cell(axis));
    return largest;
}

// `substitute` gives the axis that is taken for one below the Earth's radius.
long get_period(int function_id, const long *sat_id, const double (&axes)[KL_N_SAT_ROWS], double (*substitute)(),
                double *period, kl_error_record *error)
{
    Activation call(function_id, error);
    const long row = checked_row(sat_id, KL_NO_RECORD);
    if (row < 0)
        return call.fails(KL_PERIOD_SAT_ID);
    double axis = read_cell(axes[row]);
    if (axis < KL_EARTH_GRAVITY_RADIUS) {
        call.warns(KL_PERIOD_BELOW_EARTH_RADIUS);
        axis = substitute();
    }
    *period = period_of(axis);
    return call.status();
}

} // namespace

bool checked_satellite(const long *sat_id)
{
    return check_satellite(sat_id, KL_NO_RECORD) == 0;
}

long KL_Check_sat_id(const long *sat_id, kl_error_record *error)
{
    return check_satellite(sat_id, error);
}

long KL_Check_Geo_sat_id(const long *sat_id, kl_error_record *error)
{
    KL_Reset_Err(error);
    return sat_id != nullptr && (*sat_id == KL_SAT_GEO_GENERIC || *sat_id == KL_SAT_GEO_MISSION) ? 0 : -1;
}

long KL_Sat_id_to_array(const long *sat_id, long *index, kl_error_record *error)
{
    const long row = checked_row(sat_id, error);
    if (row < 0)
        return KL_ERR;
    *index = row;
    return 0;
}

long KL_Default_to_array(const long *sat_id)
{
    return sat_id != nullptr && is_default_satellite(*sat_id) ? *sat_id : -1;
}

long KL_Is_MEO_sat(const long *sat_id)
{
    return sat_id != nullptr && is_meo(*sat_id) ? 1 : 0;
}

long KL_Get_mission_name(const long *sat_id, char *text)
{
    const long row = row_of(sat_id);
    const char *name = row < 0                     ? "UNDEFINED"
                       : is_default_satellite(row) ? kl_default_sat_names[row]
                                                   : kSatelliteNames[row];
    const std::size_t length = strnlen(name, sizeof kl_default_sat_names[0]);
    std::memcpy(text, name, length);
    if (length < sizeof kl_default_sat_names[0])
        text[length] = '\0';
    return 0;
}

long KL_Get_min_period(const long *sat_id, double *period, kl_error_record *error)
{
    return get_period(KL_FN_GET_MIN_PERIOD, sat_id, A_MIN, earth_radius, period, error);
}

long KL_Get_max_period(const long *sat_id, double *period, kl_error_record *error)
{
    // On purpose: unlike the minimum, the substitute is the largest axis of all satellites, not the Earth's radius.
    return get_period(KL_FN_GET_MAX_PERIOD, sat_id, A_MAX, largest_axis, period, error);
}

long kl_set_tle_sat_data(const long *sat_id, const long *catalogue_number, const char *name, const char *designator)
{
    if (catalogue_number == nullptr || name == nullptr || designator == nullptr)
        return -1;
    const long row = checked_row(sat_id, KL_NO_RECORD);
    if (row < 0 || is_default_satellite(row))
        return -1;
    kl_tle_sat_data &data = TLE_SAT_DATA[row];
    data.catalogue_number = *catalogue_number;
    put_text(data.name, name);
    put_text(data.designator, designator);
    return 0;
}

long KL_Get_tle_sat_data(const long *sat_id, long *catalogue_number, char *name, char *designator)
{
    const long row = usable_row_of(sat_id);
    const kl_tle_sat_data &data = TLE_SAT_DATA[row < 0 ? KL_ROW_UNKNOWN : row];
    *catalogue_number = data.catalogue_number;
    std::memcpy(name, data.name, sizeof data.name);
    std::memcpy(designator, data.designator, sizeof data.designator);
    return 0;
}

long kl_set_sp3_sat_data(long sat_id, const char *identifier)
{
    if (identifier == nullptr)
        return -1;
    const long row = checked_row(&sat_id, KL_NO_RECORD);
    if (row < 0)
        return -1;
    put_text(KL_SP3_PARAMS[row], identifier);
    return 0;
}

long KL_Get_sp3_data(long sat_id, char *text)
{
    const long row = usable_row_of(&sat_id);
    // On purpose: an invalid id reads row 0, not the row of the unknown satellite.
    std::memcpy(text, KL_SP3_PARAMS[row < 0 ? 0 : row], sizeof KL_SP3_PARAMS[0]);
    return 0;
}
