#include "frames/axes.h"

#include "frames/change.h"

bool change_position(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &date, long from,
                     const double pos[3], long to, double out[3])
{
    State state = {0, {pos[0], pos[1], pos[2]}, {}, {}};
    if (!carried(chain_sources(model_id, time_id), date, from, to, &state))
        return false;
    copy_three(state.pos, out);
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
