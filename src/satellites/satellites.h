// Satellite ids and their rows. The tables themselves are declared in kl_family.h.
#ifndef KL_SRC_SATELLITES_SATELLITES_H
#define KL_SRC_SATELLITES_SATELLITES_H

#include "kl_family.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

constexpr long KL_N_DEFAULT_SATELLITES = 10; // ids 0 to 9, rows 0 to 9
constexpr long KL_SAT_GENERIC = 200;
constexpr long KL_SAT_GEO_GENERIC = 300;
constexpr long KL_SAT_GEO_MISSION = 301;
constexpr long KL_FIRST_MEO_ID = 400;
constexpr long KL_MEO_PERIOD = 400; // medium Earth orbit: id modulo this ...
constexpr long KL_MEO_WIDTH = 100;  // ... is below this

// Rows of the tables.
constexpr long KL_ROW_FIRST_MISSION = 10;
constexpr long KL_ROW_GENERIC = 60;
constexpr long KL_ROW_GEO_GENERIC = 61;
constexpr long KL_ROW_GEO_MISSION = 62;
constexpr long KL_ROW_MEO = 63;
constexpr long KL_ROW_UNKNOWN = 64; // of TLE_SAT_DATA alone

// Names of the rows; those of the default satellites stand in kl_default_sat_names.
extern const char *const kSatelliteNames[KL_N_SAT_ROWS];
// Row of every id below medium Earth orbit, -1 where there is none; whether a default slot is in use is not its matter.
struct RowOfId {
    std::int8_t row[KL_SAT_GEO_MISSION + 1];
};
extern const RowOfId kRowOfId;

// For doors: KL_Check_sat_id of a caller's id, with its line. False for an id that is none.
bool checked_satellite(const long *sat_id);

inline bool is_default_satellite(long sat_id)
{
    return 0 <= sat_id && sat_id < KL_N_DEFAULT_SATELLITES;
}

// Slot flags are read and reserved by different threads, so they are atomic although they are plain numbers.
inline bool slot_in_use(long slot)
{
    return __atomic_load_n(&kl_default_sat_array[slot], __ATOMIC_ACQUIRE) != 0;
}

// So are the envelopes: the largest axis of all rows is looked for while another thread fills one.
inline double read_cell(const double &cell)
{
    double value = 0.0;
    __atomic_load(&cell, &value, __ATOMIC_RELAXED);
    return value;
}

inline void write_cell(double *cell, double value)
{
    __atomic_store(cell, &value, __ATOMIC_RELAXED);
}

// Copies a text into a field, padded with zeros; a text as long as the field has no terminator there.
template <std::size_t Width>
void put_text(char (&field)[Width], const char *text)
{
    const std::size_t length = strnlen(text, Width);
    std::memcpy(field, text, length);
    std::memset(field + length, 0, Width - length);
}

#endif
