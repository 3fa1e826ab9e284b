// Transport formats: records of whole numbers, to the standard record and back, no change of reference.
#ifndef KL_SRC_TIME_FORMATS_TRANSPORT_TIMES_H
#define KL_SRC_TIME_FORMATS_TRANSPORT_TIMES_H

#include "time/correlation.h"
#include "time/formats/reading.h"

Fault check_transport_input(long format, long ref);
Fault check_transport_output(long format, long ref);

// Reads the fields that a format has; format and reference have passed the check.
Fault read_transport(const Correlation *correlation, long format, long ref, const long fields[4], Reading *out);
// Writes all four fields.
void write_transport(long format, const Moment<double> &moment, long fields[4]);

// Can the format tell the 61st second of a day from the second after it?
constexpr bool transport_holds_leap_second(long format)
{
    return format < KL_TRANS_31; // a second of the week, or since the epoch, has only one name
}

#endif
