// Sidereal angle and polar motion.
#include "frames/earth_rotation.h"
#include "frames/change.h"
#include "frames/doors.h"
#include "frames/precession.h"
#include "models/model_record.h"
#include "numbers/elementary.h"
#include "time/time_record.h"

namespace {

kl_angle record_of(const AngleOf<double> &angle)
{
    return {angle.value, angle.rate, angle.rate_of_rate};
}

AngleOf<double> angle_of(const kl_angle &record)
{
    return {record.value, record.rate, record.rate_of_rate};
}

// False where the models have no such angle.
bool apparent_angle(const kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    const ModelBlocks &models = model_blocks(model_id);
    if (models.nutation.nutation == nullptr || angle == nullptr)
        return false;
    *angle = record_of(sidereal_angle(models.earth, ut1_days, nutation_at(ut1_days)));
    return true;
}

bool linear_angle(const kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    const EarthModel &earth = model_blocks(model_id).earth;
    if (angle == nullptr || !has_linear_angle(earth))
        return false;
    *angle = record_of(linear_sidereal_angle(earth, ut1_days));
    return true;
}

} // namespace

void KL_Precession(double days, kl_precession *angles)
{
    const PrecessionOf<double> at = precession_at(days);
    copy_three(at.zeta, angles->zeta);
    copy_three(at.z, angles->z);
    copy_three(at.theta, angles->theta);
}

void KL_Sim_Nut_Term(double days, kl_nutation *nutation)
{
    const NutationOf<double> at = nutation_at(days);
    copy_three(at.dpsi, nutation->dpsi);
    copy_three(at.deps, nutation->deps);
    nutation->obliquity = at.obliquity;
}

long KL_H_Angle(kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    return apparent_angle(model_id, ut1_days, angle) ? 0 : long{KL_ERR};
}

long KL_H_Angle_Sim(kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    return linear_angle(model_id, ut1_days, angle) ? 0 : long{KL_ERR};
}

long KL_Earth_Rotation(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (!apparent_angle(model_id, ut1_days, &angle))
        return KL_ERR;
    fill_record(z_turn(angle_of(angle)), rotation);
    return 0;
}

long KL_Earth_Rotation_Sim(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (!linear_angle(model_id, ut1_days, &angle))
        return KL_ERR;
    fill_record(z_turn(angle_of(angle)), rotation);
    return 0;
}

long KL_Earth_Rotation_Delta(kl_model_id *model_id, double ut1_days, double reference_days, double reference_angle,
                             kl_rotation_record *rotation)
{
    kl_angle now;
    kl_angle then;
    if (!apparent_angle(model_id, ut1_days, &now) || !apparent_angle(model_id, reference_days, &then))
        return KL_ERR;
    now.value -= reduced_to_360(then.value + reference_angle);
    fill_record(z_turn(angle_of(now)), rotation);
    return 0;
}

long KL_Polar_Motion_Rotation(kl_time_id *time_id, double ut1_days, kl_rotation_record *rotation)
{
    fill_record(polar_motion_turns(pole_of(correlation_of(time_id), ut1_days)), rotation);
    return 0;
}
