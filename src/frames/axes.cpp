#include "frames/axes.h"

namespace {

// A position with room for the rest.
struct Position {
    double vectors[3][4] = {}; // one-based
    Cord cord = {0, 0, vectors[0], vectors[1], vectors[2]};
};

} // namespace

bool change_position(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &date, long from,
                     const double pos[3], long to, double out[3])
{
    Position in;
    Position changed;
    in.cord.cs = static_cast<std::int32_t>(from);
    copy_three(pos, in.cord.pos + 1);
    if (KL_Change_CoordinateSystem(model_id, time_id, 0, &date, &in.cord, to, &changed.cord, nullptr) == KL_ERR)
        return false;
    copy_three(changed.cord.pos + 1, out);
    return true;
}

bool axes_between(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &date, long from, long to,
                  FrameAxes *axes)
{
    *axes = kSameAxes;
    if (from == to)
        return true;
    for (int j = 0; j < 3; ++j) {
        double column[3];
        if (!change_position(model_id, time_id, date, from, kSameAxes.m[j], to, column))
            return false;
        for (int i = 0; i < 3; ++i)
            axes->m[i][j] = column[i];
    }
    return true;
}
