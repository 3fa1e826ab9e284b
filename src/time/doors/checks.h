// Conditions of the time routines that other floors map to their own, and the way of an instant for callers inside the
// library: as the public functions give it, with the lines that they print, without an error vector.
#ifndef KL_SRC_TIME_DOORS_CHECKS_H
#define KL_SRC_TIME_DOORS_CHECKS_H

#include "errors/activation.h"
#include "time/formats/processing_times.h"
#include "time/formats/texts.h"
#include "time/formats/transport_times.h"
#include "time/formats/typed_texts.h"
#include "time/staircase.h"

// In verbose mode the line of a check that met a fault.
inline void print_fault(int check, const Fault &fault)
{
    if (is_verbose())
        Activation(check, KL_NO_RECORD).fails(fault.code, &fault.shown);
}

// The findings of a step as conditions of its function, after the lines of what it asks; KL_ERR when it was refused.
long record_step(Activation &step, unsigned findings);

// kl_time_processing_to_processing between two references; refused also where the time is out of range.
enum class InRef { done, not_initialised, refused };
InRef time_in_ref(const kl_time_id *time_id, long from, long to, double days, double *out);

// kl_time_processing_to_ascii and kl_time_ascii_to_ascii in one reference, for a caller without a time id.
bool processing_as_text(long ref, const double *days, long format, char *text);
bool text_as_text(long ref, const char *text, long format_in, long format_out, char *out);

#endif
