// The Earth's orientation for callers. No function here has a public id: a vector is cleared and stays so.
#include "orientation/requests.h"

namespace {

void clear(long *ierr)
{
    if (ierr != nullptr)
        *ierr = 0;
}

// A vector as the first of an array of them.
const double (*one(const double *v))[3]
{
    return reinterpret_cast<const double(*)[3]>(v);
}
double (*one(double *v))[3]
{
    return reinterpret_cast<double(*)[3]>(v);
}

// A matrix as the first of an array of them.
double (*one_matrix(double *m))[9]
{
    return reinterpret_cast<double(*)[9]>(m);
}

} // namespace

long earth_orientation_of_one(kl_time_id *time_id, const long *corrections, const long *time_ref, const double *time,
                              kl_earth_orientation *out)
{
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    OrientationInstant instant;
    if (request.correlation == nullptr || out == nullptr || time == nullptr || !inside_processing_range(*time)
        || !orientation_instant(*request.correlation, request.scale, *time, 0, &instant))
        return KL_ERR;
    Orientation v;
    orientation_values_kernel()(&instant, 1, request.corrections, &v);
    constexpr double kArcsec = 1.0 / KL_RAD_PER_ARCSEC;
    const double degrees = v.era * KL_DEG_PER_RAD;
    *out = {v.x_pole * kArcsec,
            v.y_pole * kArcsec,
            instant.eop.tai_utc - v.tai_ut1,
            -v.tai_ut1,
            instant.eop.dx.value * kArcsec,
            instant.eop.dy.value * kArcsec,
            v.cip_x * kArcsec,
            v.cip_y * kArcsec,
            v.s * kArcsec,
            v.s_prime * kArcsec,
            degrees < 360.0 ? degrees : 0.0,
            instant.eop.notes};
    return instant.eop.notes != 0 ? long{KL_WARN} : long{KL_OK};
}

long iers_matrix_of_one(kl_time_id *time_id, const long *corrections, const long *cs_in, const long *cs_out,
                        const long *time_ref, const double *time, const long *calc_mode, double r[9], double dr[9],
                        double ddr[9])
{
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    OrientationInstant instant;
    if (request.correlation == nullptr || !is_frame(cs_in) || !is_frame(cs_out) || !is_mode(calc_mode) || r == nullptr
        || dr == nullptr || ddr == nullptr || !prepared(request, time, order_of(*calc_mode), &instant))
        return KL_ERR;
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    orientation_matrices_kernel()(&instant, 1, path, order_of(*calc_mode), one_matrix(r), one_matrix(dr),
                                  one_matrix(ddr));
    return status_of(path, instant.eop.notes);
}

long iers_change_of_one(kl_time_id *time_id, const long *corrections, const long *calc_mode, const long *cs_in,
                        const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                        const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                        double acc_out[3])
{
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    OrientationInstant instant;
    if (request.correlation == nullptr || !is_mode(calc_mode) || !is_frame(cs_in) || !is_frame(cs_out)
        || !prepared(request, time, order_of(*calc_mode), &instant) || pos == nullptr
        || (*calc_mode >= KL_CALC_POS_VEL && vel == nullptr) || (*calc_mode == KL_CALC_POS_VEL_ACC && acc == nullptr)
        || pos_out == nullptr || vel_out == nullptr || acc_out == nullptr)
        return KL_ERR;
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    const int order = order_of(*calc_mode);
    orientation_states_kernel()(&instant, 1, path, order, one(pos), one(vel), one(acc), one(pos_out), one(vel_out),
                                one(acc_out));
    return status_of(path, instant.eop.notes);
}

long kl_earth_orientation_get(kl_time_id *time_id, const long *corrections, const long *time_ref, const double *time,
                              kl_earth_orientation *out, long *ierr)
{
    clear(ierr);
    return earth_orientation_of_one(time_id, corrections, time_ref, time, out);
}

long kl_iers_matrix(kl_time_id *time_id, const long *corrections, const long *cs_in, const long *cs_out,
                    const long *time_ref, const double *time, const long *calc_mode, double r[9], double dr[9],
                    double ddr[9], long *ierr)
{
    clear(ierr);
    return iers_matrix_of_one(time_id, corrections, cs_in, cs_out, time_ref, time, calc_mode, r, dr, ddr);
}

long kl_iers_change(kl_time_id *time_id, const long *corrections, const long *calc_mode, const long *cs_in,
                    const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                    const double vel[3], const double acc[3], double pos_out[3], double vel_out[3], double acc_out[3],
                    long *ierr)
{
    clear(ierr);
    return iers_change_of_one(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, time, pos, vel, acc, pos_out,
                              vel_out, acc_out);
}
