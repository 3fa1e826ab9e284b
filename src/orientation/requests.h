// What the calls of Earth orientation ask of their arguments, for one instant and for many.
#ifndef KL_SRC_ORIENTATION_REQUESTS_H
#define KL_SRC_ORIENTATION_REQUESTS_H

#include "kl/orientation.h"
#include "orientation/frames_of_date.h"
#include "orientation/orientation.h"
#include "orientation/row_instants.h"
#include "time/scales.h"
#include "time/time_record.h"

constexpr int kRankOfFrame[] = {-1,        kRankGcrs, kRankCirs,
                                kRankTirs, kRankItrs, kRankEme2000}; // by KL_GCRS to KL_EME2000

// What all three calls ask of their arguments; correlation null: refused.
struct OrientationRequest {
    const Correlation *correlation;
    long corrections, scale;
};

inline OrientationRequest request_of(const kl_time_id *time_id, const long *corrections, const long *time_ref)
{
    const bool good = corrections != nullptr && *corrections >= 0 && *corrections <= KL_EOP_ALL && time_ref != nullptr
                      && is_time_ref(*time_ref);
    if (!good)
        return {nullptr, 0, 0};
    return {correlation_of(time_id), *corrections, *time_ref};
}

// By the rows where they serve, else by the values.
inline bool prepared(const OrientationRequest &request, const double *time, int order, OrientationInstant *instant)
{
    return time != nullptr && inside_processing_range(*time)
           && (RowInstants(*request.correlation, request.scale).at(*time, instant)
               || orientation_instant(*request.correlation, request.scale, *time, order, instant));
}

inline bool is_frame(const long *cs)
{
    return cs != nullptr && *cs >= KL_GCRS && *cs <= KL_EME2000;
}

inline bool is_mode(const long *mode)
{
    return mode != nullptr && *mode >= KL_CALC_POS && *mode <= KL_CALC_POS_VEL_ACC;
}

// Derivatives that a mode has.
inline int order_of(long mode)
{
    return static_cast<int>(mode - KL_CALC_POS);
}

// Does the path ask the id for something that it does not hold there?
inline long status_of(const OrientationPath &path, long notes)
{
    const int low = path.from < path.to ? path.from : path.to;
    const int high = path.from < path.to ? path.to : path.from;
    const bool rotates = low != high && high >= kRankTirs;      // UT1, pole
    const bool offsets = low <= kRankGcrs && high >= kRankCirs; // dX, dY
    const long asked = (rotates ? kEopOutsideTable | kEopNoPole : 0) | (offsets ? kEopOutsideTable : 0);
    return (notes & asked) != 0 ? long{KL_WARN} : long{KL_OK};
}

// The calls for one instant.
long earth_orientation_of_one(kl_time_id *time_id, const long *corrections, const long *time_ref, const double *time,
                              kl_earth_orientation *out);
long iers_matrix_of_one(kl_time_id *time_id, const long *corrections, const long *cs_in, const long *cs_out,
                        const long *time_ref, const double *time, const long *calc_mode, double r[9], double dr[9],
                        double ddr[9]);
long iers_change_of_one(kl_time_id *time_id, const long *corrections, const long *calc_mode, const long *cs_in,
                        const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                        const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                        double acc_out[3]);

inline OrientationPath path_of(long cs_in, long cs_out, long corrections)
{
    return {kRankOfFrame[cs_in], kRankOfFrame[cs_out], corrections};
}

#endif
