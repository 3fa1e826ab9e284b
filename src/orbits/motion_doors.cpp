// Motions: the public functions.
#include "arrays/array_call.h"
#include "numbers/bounds.h"
#include "orbits/door_checks.h"
#include "orbits/motion.h"

namespace {

constexpr double kLongest = 1e10; // s: three centuries

long mean_motion(const Field &field, const kl_kepler *mean, const double *duration, kl_kepler *out)
{
    if (mean == nullptr || out == nullptr || !(field.gm > 0.0)
        || !within(mean->semi_major_axis, 0.0, KL_LARGEST_POSITION)
        || !mean_elements_allowed(field.oblateness, mean->semi_major_axis, mean->eccentricity)
        || !(mean->eccentricity >= 0.0) || !within(mean->inclination, 0.0, 180.0) || !holds_angle(mean->raan)
        || !holds_angle(mean->arg_perigee) || !holds_angle(mean->mean_anomaly) || !holds(duration, -kLongest, kLongest))
        return KL_ERR;
    *out = drifted(field.gm, field.oblateness, *mean, *duration);
    return KL_OK;
}

} // namespace

long kl_mean_motion(kl_model_id *model_id, const kl_kepler *mean, const double *duration, kl_kepler *out, long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    return mean_motion(field_of_model(model_id), mean, duration, out);
}

long kl_mean_motion_n(kl_model_id *model_id, const long *n, const kl_kepler *mean, const double *duration,
                      kl_kepler *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_INIT_ERR, n, status, ierr); // nothing is recorded
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    if (mean == nullptr || duration == nullptr || out == nullptr)
        return array.refuse(fail);
    const Field field = field_of_model(model_id);
    return array.each([&](long i, long *) { return mean_motion(field, mean + i, duration + i, out + i); }, fail);
}

long kl_interpolate_states(const long *n_states, const kl_state_at *states, const double *time, double pos[3],
                           double vel[3], double *error, long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    Interpolated out;
    if (n_states == nullptr || states == nullptr || time == nullptr || pos == nullptr || vel == nullptr
        || !interpolate(states, *n_states, *time, &out))
        return KL_ERR;
    for (int i = 0; i < 3; ++i) {
        pos[i] = out.pos[i];
        vel[i] = out.vel[i];
    }
    if (error != nullptr)
        *error = out.error;
    return KL_OK;
}
