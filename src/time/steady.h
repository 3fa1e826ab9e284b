// Instants in a row: the scales of an instant for the kernels, where the way is the ordinary one.
#ifndef KL_SRC_TIME_STEADY_H
#define KL_SRC_TIME_STEADY_H

#include "time/staircase.h"

// Whether a once-only warning may be due, or noted, at an instant: then the scalar way has to be gone. Explicit values
// never warn. Of a table, instants a day clear of its ends and of a gap, with all that came before inside too, cannot.
class SteadyInstants {
public:
    SteadyInstants(const TimeIdRecord &id, int set);

    // At any scale, as the flags stand now.
    bool covers(double days) const
    {
        return explicit_ || (settled_ && days > first_ && days < last_ && !(days > gap_first_ && days < gap_last_));
    }

private:
    bool explicit_, settled_;
    double first_ = 0.0, last_ = 0.0;
    double gap_first_ = 0.0, gap_last_ = 0.0;
};

// kl_time_processing_to_processing of a covered instant; false where it has something to say.
bool steadily_in_scale(TimeIdRecord *id, long from, long to, double days, double *out);

#endif
