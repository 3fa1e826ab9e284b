// The axes of one frame in another, for directions that share an instant.
#ifndef KL_SRC_FRAMES_AXES_H
#define KL_SRC_FRAMES_AXES_H

#include "kl_family.h"
#include "numbers/numbers.h"

// Turns directions of one frame into those of another.
struct FrameAxes {
    double m[3][3];

    void turn(const double in[3], double out[3]) const
    {
        const double x = dot3(m[0], in);
        const double y = dot3(m[1], in);
        const double z = dot3(m[2], in);
        out[0] = x;
        out[1] = y;
        out[2] = z;
    }
};

constexpr FrameAxes kSameAxes = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};

// A position alone through the frame chain; false where the chain fails.
bool change_position(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &date, long from,
                     const double pos[3], long to, double out[3]);

// Between frames with the same origin.
bool axes_between(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &date, long from, long to,
                  FrameAxes *axes);

#endif
