// Records and procedures of the time floor.
#ifndef KL_SRC_TIME_TIME_H
#define KL_SRC_TIME_TIME_H

#include "error/activation.h"
#include "kl_family.h"

#include <atomic>
#include <cstdint>

constexpr double KL_SECONDS_PER_DAY = 86400.0;
constexpr double KL_MICROSECONDS_PER_DAY = 8.64e10;
constexpr double KL_PROCESSING_FIRST = -18262.0; // 1950-01-01 00:00:00
constexpr double KL_PROCESSING_LAST = 36524.0;   // 2099-12-31 00:00:00
constexpr double KL_CALENDAR_END = 36525.0;      // 2100-01-01 00:00:00, excluded
constexpr long KL_GPS_EPOCH_DAY = -7300;         // 1980-01-06

// References and formats of a kl_time_record.
enum { KL_REF_TDB = 1, KL_REF_2 = 2, KL_REF_TAI = 3, KL_REF_UT1 = 4, KL_REF_UTC = 5, KL_REF_GPS = 6 };
enum { KL_FORMAT_JULIAN = 1, KL_FORMAT_1950 = 2, KL_FORMAT_MJD2000 = 3 };

// The one check of a processing value: NaN is outside.
inline bool inside_processing_range(double days)
{
    return days >= KL_PROCESSING_FIRST && days <= KL_PROCESSING_LAST;
}

// ---- conditions of the internal checks ----
enum { KL_CHECK_IN_FORMAT = 0, KL_CHECK_IN_REF = 1, KL_CHECK_IN_DAYS = 2 }; // KL_Time_check_processing_inputs
enum { KL_CHECK_OUT_FORMAT = 0, KL_CHECK_OUT_REF = 1 };                     // KL_Time_check_processing_outputs
enum { KL_P2T_LEAP_SECOND = 0 };                                            // KL_Time_p2t_format_to_std
enum { KL_TO_TAI_NOT_INITIALISED = 0, KL_TO_TAI_OUT_OF_RANGE = 1, KL_TO_TAI_LEAP_SECOND = 2 }; // and from TAI, 0 and 1
enum { KL_GET_TIME_IN_REF_FAILED = 0 };

// ---- the record of a time id ----
constexpr long KL_TIME_MODEL_EXPLICIT = -1; // one row of explicit values
constexpr long KL_COMBINATION_TWO_BULLETINS = 2;

// The once-only warnings keep two sets of "previous computation" flags: the conversions use one, frame changes the
// other, so that a conversion inside a frame change does not spend the warning that the frame change has to give.
enum { KL_FLAGS_CONVERSION = 0, KL_FLAGS_FRAME_CHANGE = 1 };

struct TimeIdRecord {
    kl_id_record head;
    long model;
    std::atomic<std::int32_t> previous_inside[2][3]; // F1, F2, F3 of each set; relaxed
    long combination;
    long no_extrapolation;
    // Fields of the builders from files, zero in an id of explicit values.
    long second_bulletin_row;
    double a, b, c;                // UT1-UTC after the table
    double pole_x[5], pole_y[5];   // bulletin's pole formula
    double pole_reference_date[2]; // MJD2000
    double pole_period[2];         // days
    long leap_sign;
    double leap_utc, leap_tai; // MJD2000
    long n_rows;
    kl_time_row *rows;
    long (*row_notes)[2]; // beside the rows, for the builders from files
};

// The record of an initialised id, else null.
inline TimeIdRecord *time_record_of(const kl_time_id *time_id)
{
    if (time_id == nullptr || time_id->record == nullptr)
        return nullptr;
    TimeIdRecord *record = static_cast<TimeIdRecord *>(time_id->record);
    return record->head.init_status == 1 ? record : nullptr;
}

// Largest day count within which a kl_std_record is used; sums of seconds carry with floor division.
void normalise_seconds(kl_std_record *record);

// ---- texts and transport formats: to and from the standard record, no change of reference ----

// Reads a text of a valid ASCII format; own_ref receives the reference of a prefix, or `ref` without one.
// 0, or -1 with one of the conditions of KL_Time_check_ascii_inputs in the record.
long read_ascii(kl_time_id *time_id, long format, long ref, const char *text, long *own_ref, kl_std_record *out,
                kl_error_record *error);
// Writes at most KL_TIME_ASCII_LENGTH characters, terminator included.
long write_ascii(long format, long ref, const kl_std_record *in, char *text, kl_error_record *error);
bool is_ascii_format(long format);

#endif
