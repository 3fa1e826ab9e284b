// One star for callers: the scalar door and every element of the array door.
#ifndef KL_SRC_STARS_STAR_DOORS_H
#define KL_SRC_STARS_STAR_DOORS_H

#include "frames/axes.h"
#include "numbers/pack.h"
#include "stars/place.h"
#include "stars/star_kernels.h"
#include "time/doors/call_instant.h"

#include <limits>

// What all stars of one instant share, kept from one element to the next: the same instant, bit for bit, is not
// prepared again.
struct StarSky {
    double days = std::numeric_limits<double>::quiet_NaN();
    CallInstant instant = {};
    FrameAxes axes = {};
    Observer earth = {}; // its centre

    [[nodiscard]] bool holds(double other) const { return same_number(days, other); }
    // False without a time id, or with `transformation` true without chain or routines.
    bool prepare(kl_model_id *model_id, kl_time_id *time_id, long ref, double days, long cs, bool *transformation);
};

long star_radec_of_one(kl_model_id *model_id, kl_time_id *time_id, const long *corrections, const long *cs_out,
                       const long *time_ref, const double *time, const kl_star *star, const double observer_pos[3],
                       const double observer_vel[3], kl_radec *place, StarSky *sky, long *ierr);

// What the kernels take for the next elements, seen from the centre of the Earth; false at other instants than the last
// one, and with a warning due.
bool star_scene(const kl_time_id *time_id, long corrections, long cs, const double *time, long count,
                const StarSky &sky, StarScene *scene);

// For arrays: does what all elements share refuse the call? Then the condition is recorded.
bool star_radec_refuses_all(Activation &call, const kl_time_id *time_id, const long *corrections, const long *cs_out,
                            const long *time_ref, const double *time, const kl_star *star, const kl_radec *place);

#endif
