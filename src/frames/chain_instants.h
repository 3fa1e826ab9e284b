// The instants of a block of an array call, on the scales that the chain and the bodies take.
#ifndef KL_SRC_FRAMES_CHAIN_INSTANTS_H
#define KL_SRC_FRAMES_CHAIN_INSTANTS_H

#include "frames/earth_rotation.h"
#include "time/staircase.h"

// Past the processing range by more than a day: UT1 of its first instants lies a little outside.
inline bool inside_chain_range(double days)
{
    return days >= KL_PROCESSING_FIRST - 1.0 && days <= KL_PROCESSING_LAST + 1.0;
}

struct ChainInstant {
    double ut1;        // days
    double tdb_of_ut1; // by way of UT1, for the place of the Earth
};

// UT1 of an instant in a range that the scalar way has checked. False where the way has more to say, or fails.
inline bool chain_instant(TimeIdRecord *id, long ref, double days, bool with_tdb, ChainInstant *out)
{
    if (!steadily_in_scale(id, ref, KL_TIME_UT1, days, &out->ut1) || !inside_chain_range(out->ut1))
        return false;
    if (with_tdb) {
        const Correlation &correlation = id->correlation;
        const Moment<double> ut1 = midnight_carried(&correlation, KL_TIME_UT1, moment_of(out->ut1));
        const Step step = step_up(correlation, KL_TIME_UT1, ut1);
        if (step.findings != 0)
            return false;
        out->tdb_of_ut1 = tdb_of_tai(days_of(step.moment));
    }
    return true;
}

inline bool has_pole(const Correlation &correlation)
{
    for (int i = 0; i < 5; ++i)
        if (correlation.pole.x[i] != 0.0 || correlation.pole.y[i] != 0.0)
            return true;
    return correlation.row_pole != nullptr;
}

#endif
