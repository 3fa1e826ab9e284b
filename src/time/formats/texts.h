// Texts of a time: five layouts, each with or without a reference prefix and microseconds; to and from the standard
// record, no change of reference.
#ifndef KL_SRC_TIME_FORMATS_TEXTS_H
#define KL_SRC_TIME_FORMATS_TEXTS_H

#include "time/correlation.h"
#include "time/formats/reading.h"

#include <cstddef>

constexpr bool is_text_format(long format)
{
    return format >= 11 && format <= 54 && format % 10 >= 1 && format % 10 <= 4;
}

Fault check_text_input(long format, long ref);
Fault check_text_output(long format, long ref);

// Characters of a text of a format, no terminator.
int text_length(long format);

// Reads a text, of which at most `room` characters are looked at, up to its end unless the room is whole; its format
// and reference have passed the check. The reading has the reference of a prefix, or `ref` without one. The 61st second
// is read inside a positive leap second.
Fault read_text(const Correlation *correlation, long format, long ref, const char *text, std::size_t room,
                bool is_whole, Reading *out);
// Writes text_length characters. 86400 seconds are written as 23:59:60, a limit as its text.
Fault write_text(long format, long ref, const Reading &reading, char *text);

#endif
