// Initial rows of the satellite tables: lengths in m, angles in deg.
#include "satellites/satellites.h"

#include <array>
#include <iterator>

namespace {

struct Limits {
    double a_min, a_max, i_min, i_max, e_min, e_max;
};

struct Orbit {
    double a_min, a_nom, a_max, i_min, i_nom, i_max, e_nom, w_nom;
    Limits tolerance_l, tolerance_t;
};

struct SatelliteRow {
    long sat_id;
    const char *name;
    long type; // 1 geostationary
    kl_tle_sat_data catalogue;
    char sp3[4];
    Orbit orbit;
};

template <std::size_t Width>
constexpr void put(char (&field)[Width], const char *text)
{
    for (std::size_t i = 0; i < Width && text[i] != '\0'; ++i)
        field[i] = text[i];
}

constexpr kl_tle_sat_data catalogue(long number, const char *name, const char *designator = "00000   ")
{
    kl_tle_sat_data data = {number, {}, {}, {}};
    put(data.name, name);
    put(data.designator, designator);
    return data;
}

constexpr SatelliteRow satellite(long sat_id, const char *name, long type, const kl_tle_sat_data &data,
                                 const char *sp3_id, const Orbit &orbit)
{
    SatelliteRow row = {sat_id, name, type, data, {}, orbit};
    put(row.sp3, sp3_id);
    return row;
}

constexpr SatelliteRow mission(long sat_id, const char *name, long number, const char *catalogue_name,
                               const char *designator, const char *sp3_id, const Orbit &orbit)
{
    return satellite(sat_id, name, 0, catalogue(number, catalogue_name, designator), sp3_id, orbit);
}

constexpr SatelliteRow generic(long sat_id, const char *name, long type, const char *catalogue_name, const Orbit &orbit)
{
    return satellite(sat_id, name, type, catalogue(0, catalogue_name), "A00", orbit);
}

// clang-format off
constexpr Limits kLowOrbit = {1000000, 10000000, 60, 120, 0, 0.5};
constexpr Orbit kNoOrbit = {0, 0, 0, 0, 0, 0, 0, 0, kLowOrbit, kLowOrbit};
constexpr Orbit kLowGeneric = {
    7118050, 7159492.7, 7194056, 98.4475, 98.549387, 98.6226, 0.001165, 90,
    kLowOrbit, kLowOrbit};
constexpr Orbit kGeostationary = {
    42164000, 42164100, 42165000, -0.1, 0, 0.1, 0, 0,
    {30000000, 50000000, -20, 20, 0, 0.9}, {42000000, 43000000, -0.1, 0.1, 0, 0.1}};
constexpr Orbit kMediumOrbit = {
    20000000, 20000000, 20000000, 55, 55, 55, 0.5, 90,
    {1000000, 40000000, 0, 180, 0, 1.0}, {1000000, 30000000, 0, 180, 0, 1.0}};
// clang-format on

constexpr SatelliteRow kMissions[] = {
#include MISSION_ROWS
};
static_assert(std::size(kMissions) == KL_ROW_GENERIC - KL_ROW_FIRST_MISSION);

// Rows 60 to 63. The geostationary mission has a neutral name until its owner supplies one.
constexpr SatelliteRow kGenerics[] = {
    generic(KL_SAT_GENERIC, "Generic", 0, "GENERIC", kLowGeneric),
    generic(KL_SAT_GEO_GENERIC, "GenericGeo", 1, "GENERICGEO", kGeostationary),
    generic(KL_SAT_GEO_MISSION, "MISSION-301", 1, "MISSION-301", kGeostationary),
    generic(KL_FIRST_MEO_ID, "GenericMeo", 0, "GENERICMEO", kMediumOrbit),
};
static_assert(std::size(kGenerics) == KL_N_SAT_ROWS - KL_ROW_GENERIC);

constexpr std::array<SatelliteRow, KL_N_SAT_ROWS> all_rows()
{
    std::array<SatelliteRow, KL_N_SAT_ROWS> rows = {};
    std::size_t n = 0;
    while (n < KL_ROW_FIRST_MISSION) {
        rows[n] = generic(static_cast<long>(n), "", 0, "UNKNOWN", kNoOrbit);
        ++n;
    }
    for (const SatelliteRow &row : kMissions)
        rows[n++] = row;
    for (const SatelliteRow &row : kGenerics)
        rows[n++] = row;
    return rows;
}

constexpr std::array<SatelliteRow, KL_N_SAT_ROWS> kRows = all_rows();

// Rows stand in ascending order of id, except for the last, of medium Earth orbit, which has many ids.
constexpr RowOfId row_of_every_id()
{
    RowOfId table = {};
    for (std::int8_t &row : table.row)
        row = -1;
    for (int row = 0; row < KL_ROW_MEO; ++row)
        table.row[kRows[static_cast<std::size_t>(row)].sat_id] = static_cast<std::int8_t>(row);
    return table;
}

} // namespace

static_assert(sizeof(kl_tle_sat_data) == 48);

// A column of the rows: the exported tables are plain arrays.
#define KL_FIELD(n, member) kRows[n].member
#define KL_4_LETTERS(n, member)                                                                                        \
    {                                                                                                                  \
        kRows[n].member[0], kRows[n].member[1], kRows[n].member[2], kRows[n].member[3]                                 \
    }
#define KL_4_ROWS(n, of, member) of(n, member), of(n + 1, member), of(n + 2, member), of(n + 3, member)
#define KL_16_ROWS(n, of, member)                                                                                      \
    KL_4_ROWS(n, of, member), KL_4_ROWS(n + 4, of, member), KL_4_ROWS(n + 8, of, member), KL_4_ROWS(n + 12, of, member)
#define KL_64_ROWS(of, member)                                                                                         \
    KL_16_ROWS(0, of, member), KL_16_ROWS(16, of, member), KL_16_ROWS(32, of, member), KL_16_ROWS(48, of, member)
#define KL_COLUMN(member)                                                                                              \
    {                                                                                                                  \
        KL_64_ROWS(KL_FIELD, member)                                                                                   \
    }

double A_MIN[] = KL_COLUMN(orbit.a_min);
double A_NOM[] = KL_COLUMN(orbit.a_nom);
double A_MAX[] = KL_COLUMN(orbit.a_max);
double I_MIN[] = KL_COLUMN(orbit.i_min);
double I_NOM[] = KL_COLUMN(orbit.i_nom);
double I_MAX[] = KL_COLUMN(orbit.i_max);
double E_NOM[] = KL_COLUMN(orbit.e_nom);
double W_NOM[] = KL_COLUMN(orbit.w_nom);
double KL_TOLERANCE_AMIN_L[] = KL_COLUMN(orbit.tolerance_l.a_min);
double KL_TOLERANCE_AMAX_L[] = KL_COLUMN(orbit.tolerance_l.a_max);
double KL_TOLERANCE_IMIN_L[] = KL_COLUMN(orbit.tolerance_l.i_min);
double KL_TOLERANCE_IMAX_L[] = KL_COLUMN(orbit.tolerance_l.i_max);
double KL_TOLERANCE_EMIN_L[] = KL_COLUMN(orbit.tolerance_l.e_min);
double KL_TOLERANCE_EMAX_L[] = KL_COLUMN(orbit.tolerance_l.e_max);
double KL_TOLERANCE_AMIN_T[] = KL_COLUMN(orbit.tolerance_t.a_min);
double KL_TOLERANCE_AMAX_T[] = KL_COLUMN(orbit.tolerance_t.a_max);
double KL_TOLERANCE_IMIN_T[] = KL_COLUMN(orbit.tolerance_t.i_min);
double KL_TOLERANCE_IMAX_T[] = KL_COLUMN(orbit.tolerance_t.i_max);
double KL_TOLERANCE_EMIN_T[] = KL_COLUMN(orbit.tolerance_t.e_min);
double KL_TOLERANCE_EMAX_T[] = KL_COLUMN(orbit.tolerance_t.e_max);
long KL_SAT_TYPE[] = KL_COLUMN(type);
char KL_SP3_PARAMS[][4] = {KL_64_ROWS(KL_4_LETTERS, sp3)};
kl_tle_sat_data TLE_SAT_DATA[] = {KL_64_ROWS(KL_FIELD, catalogue), catalogue(0, "UNKNOWN")};

const char *const kSatelliteNames[] = KL_COLUMN(name);
constexpr RowOfId kRowOfId = row_of_every_id();
