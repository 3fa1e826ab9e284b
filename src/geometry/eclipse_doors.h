// One eclipse for callers: the scalar door and every element of the array door.
#ifndef KL_SRC_GEOMETRY_ECLIPSE_DOORS_H
#define KL_SRC_GEOMETRY_ECLIPSE_DOORS_H

#include "arrays/array_call.h"
#include "frames/axes.h"
#include "frames/chain_instants.h"
#include "geometry/shadow_kernels.h"
#include "numbers/pack.h"
#include "time/doors/call_instant.h"

#include <limits>

// Kept from one element to the next: the same instant, bit for bit, is not prepared again.
struct EclipseSky {
    double days = std::numeric_limits<double>::quiet_NaN();
    CallInstant instant = {};
    FrameAxes to_true_of_date = {};
    double sun[3] = {}; // true of date, m; without light time

    [[nodiscard]] bool holds(double other) const { return same_number(days, other); }
    bool prepare(kl_model_id *model_id, kl_time_id *time_id, long ref, double days, long cs, bool light_time,
                 int *condition);
};

long eclipse_of_one(kl_model_id *model_id, kl_time_id *time_id, const long *light_time, const long *cs,
                    const long *time_ref, const double *time, const double pos[3], const double *margin, long *state,
                    double *fraction, double *depth, EclipseSky *sky, long *ierr);

// What the kernels take for the next elements; false where they differ in more than their positions: at other instants
// than the last one, with light time, from frames with another origin, or with a warning due.
bool eclipse_scene(const kl_model_id *model_id, const kl_time_id *time_id, long light_time, long cs, const double *time,
                   long count, const EclipseSky &sky, ShadowScene *scene);

// What the kernels take for elements at instants of their own, or with light time.
struct EclipseScenes {
    ShadowScenes shared;

    EclipseScenes(const kl_model_id *model_id, kl_time_id *time_id, bool light_time, long cs, long ref);
    // False where the elements have to be taken in order, by scalar calls.
    bool fill(const double *time, long count, LeftOver *left);

private:
    bool usable_;
    const TimeIdRecord &id_;
    ChainInstants at_, by_light_;
};

// For arrays: does what all elements share refuse the call? Then the condition is recorded.
bool eclipse_refuses_all(Activation &call, const kl_time_id *time_id, const long *light_time, const long *cs,
                         const long *time_ref, const double *time, const double *pos, const long *state,
                         const double *fraction, const double *depth);

#endif
