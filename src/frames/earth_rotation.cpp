// Sidereal angle and polar motion.
#include "frames/earth_rotation.h"
#include "frames/doors.h"
#include "frames/precession.h"
#include "models/model_record.h"
#include "numbers/elementary.h"
#include "time/pole.h"
#include "time/scales.h"

namespace {

kl_angle record_of(const AngleOf<double> &angle)
{
    return {angle.value, angle.rate, angle.rate_of_rate};
}

AngleOf<double> angle_of(const kl_angle &record)
{
    return {record.value, record.rate, record.rate_of_rate};
}

} // namespace

PoleOf<double> pole_of(const Correlation &correlation, double ut1_days)
{
    const Pole pole = pole_at(correlation, ut1_days);
    return {pole.x, pole.y, pole.x_rate, pole.y_rate};
}

PoleOf<double> pole_of(const kl_time_id *time_id, double ut1_days)
{
    const Correlation *correlation = correlation_of(time_id);
    return correlation != nullptr ? pole_of(*correlation, ut1_days) : PoleOf<double>{0.0, 0.0, 0.0, 0.0};
}

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
    const ModelBlocks &models = model_blocks(model_id);
    if (models.nutation.nutation == nullptr || angle == nullptr)
        return KL_ERR;
    *angle = record_of(sidereal_angle(models.earth, ut1_days, nutation_at(ut1_days)));
    return 0;
}

long KL_H_Angle_Sim(kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    if (angle == nullptr || !has_linear_angle(model_blocks(model_id).earth))
        return KL_ERR;
    *angle = record_of(linear_sidereal_angle(model_blocks(model_id).earth, ut1_days));
    return 0;
}

long KL_Earth_Rotation(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (KL_H_Angle(model_id, ut1_days, &angle) != 0)
        return KL_ERR;
    fill_record(z_turn(angle_of(angle)), rotation);
    return 0;
}

long KL_Earth_Rotation_Sim(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (KL_H_Angle_Sim(model_id, ut1_days, &angle) != 0)
        return KL_ERR;
    fill_record(z_turn(angle_of(angle)), rotation);
    return 0;
}

long KL_Earth_Rotation_Delta(kl_model_id *model_id, double ut1_days, double reference_days, double reference_angle,
                             kl_rotation_record *rotation)
{
    kl_angle now;
    kl_angle then;
    if (KL_H_Angle(model_id, ut1_days, &now) != 0 || KL_H_Angle(model_id, reference_days, &then) != 0)
        return KL_ERR;
    now.value -= reduced_to_360(then.value + reference_angle);
    fill_record(z_turn(angle_of(now)), rotation);
    return 0;
}

long KL_Polar_Motion_Rotation(kl_time_id *time_id, double ut1_days, kl_rotation_record *rotation)
{
    fill_record(polar_motion_turns(pole_of(time_id, ut1_days)), rotation);
    return 0;
}
