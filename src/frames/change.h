// A state from one frame to another at one instant: plain values in, what was met on the way out.
#ifndef KL_SRC_FRAMES_CHANGE_H
#define KL_SRC_FRAMES_CHANGE_H

#include "errors/activation.h"
#include "frames/chain.h"
#include "models/model_record.h"
#include "time/staircase.h"

// What the chain reads of the ids of a call.
struct ChainSources {
    const ModelBlocks *models;
    const Correlation *correlation; // null: no time id
};
inline ChainSources chain_sources(const kl_model_id *model_id, const kl_time_id *time_id)
{
    return {&model_blocks(model_id), correlation_of(time_id)};
}

// What the way of a date to another scale met: the 86400th second of a day out of range, and the steps.
struct DateFindings {
    bool no_such_day = false;
    unsigned to_tai = 0, from_tai = 0;
};

constexpr int KL_CHAIN_FINE = -1;
struct ChainFindings {
    unsigned warnings = 0; // bits KL_CHAIN_*
    DateFindings to_ut1, to_tdb;
    int error = KL_CHAIN_FINE; // KL_CHAIN_*

    [[nodiscard]] bool failed() const { return error != KL_CHAIN_FINE; }
};

// A date, in MJD2000 as all of them here, on the scale that the rotations of the Earth take. False where there is no
// way.
bool ut1_of(const Correlation *correlation, const kl_time_record &date, double *ut1, DateFindings *found);

// The pole that a correlation holds; none without one.
PoleOf<double> pole_of(const Correlation *correlation, double ut1_days);

// The frames that are handled as one: KL_QMOD is KL_MOD, KL_PTOD is KL_TOD.
constexpr long frame_handled(long cs)
{
    return cs == KL_QMOD ? long{KL_MOD} : cs == KL_PTOD ? long{KL_TOD} : cs;
}

// Carries a state between frames 1 to 13. `order` is what was asked for; the state has its own. Untouched where the
// change fails.
ChainFindings change_frame(const ChainSources &sources, bool simplified, const kl_time_record &date, long from, long to,
                           long order, State *state);

// The walk along a list of steps as it is; false where the models or the date do not serve it.
bool walk_steps(const ChainSources &sources, const Path &path, const kl_time_record &date, State *state,
                DateFindings *found);

// The findings as conditions of the change, after the lines of the steps of its dates: its status.
long record_change(Activation &call, const ChainFindings &found);
void record_date(const DateFindings &found);

// For doors: the change of a state with all that KL_Change_CoordinateSystem says of it. False where it fails.
bool carried(const ChainSources &sources, const kl_time_record &date, long from, long to, State *state);

// True when the models lack a routine that the way calls.
bool lacks_routine(const ModelBlocks &models, bool simplified, const Path &path);
// No routine for the place of the Earth, or a launch frame, whose date and angle no id holds.
bool cannot_walk(const ModelBlocks &models, const Path &path);

#endif
