// Texts of a time: five layouts, each with or without a reference prefix and microseconds; to and from the standard
// record, no change of reference.
#ifndef KL_SRC_TIME_FORMATS_TEXTS_H
#define KL_SRC_TIME_FORMATS_TEXTS_H

#include "time/correlation.h"
#include "time/formats/reading.h"

#include <cstddef>

// Conditions of KL_Time_check_ascii_inputs: what reading may meet.
enum {
    KL_ASCII_IN_FORMAT = 0,
    KL_ASCII_IN_REF = 1,
    KL_ASCII_IN_YEAR = 2,
    KL_ASCII_IN_LAYOUT = 3,
    KL_ASCII_IN_TOO_SHORT = 4,
    KL_ASCII_IN_TOO_LONG = 5,
    KL_ASCII_IN_PREFIX = 6,
    KL_ASCII_IN_PREFIX_REF = 7,
    KL_ASCII_IN_NO_REF = 8,
    KL_ASCII_IN_MISSION_LIMIT = 9,
    KL_ASCII_IN_MONTH = 10,
    KL_ASCII_IN_DAY = 11,
    KL_ASCII_IN_HOUR = 12,
    KL_ASCII_IN_MINUTE = 13,
    KL_ASCII_IN_SECOND = 14,
    KL_ASCII_IN_MICROSECOND = 15,
    KL_ASCII_IN_DAY_OF_30 = 16,
    KL_ASCII_IN_DAY_OF_29 = 17,
    KL_ASCII_IN_DAY_OF_28 = 18,
    KL_ASCII_IN_LEAP_SECOND = 19,
    KL_ASCII_IN_N_CODES = 20
};
enum { KL_ASCII_OUT_FORMAT = 0, KL_ASCII_OUT_REF = 1 };                 // KL_Time_check_ascii_outputs
enum { KL_ASCII_WRITE_BEFORE_1950 = 0, KL_ASCII_WRITE_AFTER_2099 = 1 }; // KL_Time_t2a_format_from_std

constexpr bool is_text_format(long format)
{
    return format >= 11 && format <= 54 && format % 10 >= 1 && format % 10 <= 4;
}

Fault check_text_input(long format, long ref);
Fault check_text_output(long format, long ref);

// Characters of a text of a format, no terminator.
int text_length(long format);

// Reads a text, of which at most `room` characters are looked at; its format and reference have passed the check. The
// reading has the reference of a prefix, or `ref` without one. The 61st second is read inside a positive leap second.
Fault read_text(const Correlation *correlation, long format, long ref, const char *text, std::size_t room,
                Reading *out);
// Writes text_length characters. 86400 seconds are written as 23:59:60, a limit as its text.
Fault write_text(long format, long ref, const Reading &reading, char *text);

#endif
