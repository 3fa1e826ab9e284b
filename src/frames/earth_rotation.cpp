// Sidereal angle and polar motion.
#include "frames/frames.h"
#include "models/model_record.h"
#include "numbers/elementary.h"
#include "time/pole.h"
#include "time/scales.h"

namespace {

// Daily turns above one a day: the whole turns are exact, and what is left keeps eight more bits.
double polynomial_degrees(double c0, double c1, double c2, double d)
{
    const double fraction = d - std::floor(d);
    return c0 + 360.0 * fraction + (c1 - 360.0) * d + c2 * d * d;
}

NutationRoutine nutation_routine(const kl_model_id *model_id)
{
    return model_blocks(model_id).nutation.nutation;
}

} // namespace

kl_angle sidereal_angle(const EarthModel &earth, double ut1_days, const kl_nutation &nutation)
{
    const double c1 = earth.angle[1];
    const double c2 = earth.angle[2];
    double q[3];
    equation_of_equinoxes(nutation, q);
    return {reduced_to_360(polynomial_degrees(earth.angle[0], c1, c2, ut1_days) + q[0] * KL_DEG_PER_RAD),
            (2.0 * c2 * ut1_days + c1) / KL_SECONDS_PER_DAY + q[1] * KL_DEG_PER_RAD,
            2.0 * c2 / (KL_SECONDS_PER_DAY * KL_SECONDS_PER_DAY) + q[2] * KL_DEG_PER_RAD};
}

bool has_linear_angle(const EarthModel &earth)
{
    return earth.angle_sim[1] != 0.0;
}

kl_angle linear_sidereal_angle(const EarthModel &earth, double ut1_days)
{
    const double c14 = earth.angle_sim[1];
    return {reduced_to_360(polynomial_degrees(earth.angle_sim[0], c14, 0.0, ut1_days)), c14 / KL_SECONDS_PER_DAY, 0.0};
}

Turns z_turn(const kl_angle &degrees)
{
    return turns_by(
        {{2, degrees.value * KL_RAD_PER_DEG, degrees.rate * KL_RAD_PER_DEG, degrees.rate_of_rate * KL_RAD_PER_DEG}});
}

// W = Ry(-xp) Rx(-yp)
Turns polar_motion_turns(const kl_time_id *time_id, double ut1_days)
{
    const Correlation *correlation = correlation_of(time_id);
    if (correlation == nullptr)
        return {};
    const Pole pole = pole_at(*correlation, ut1_days);
    if (pole.x == 0.0 && pole.y == 0.0 && pole.x_rate == 0.0 && pole.y_rate == 0.0)
        return {}; // the identity, without sines
    return turns_by({{0, -pole.y, -pole.y_rate, 0.0}, {1, -pole.x, -pole.x_rate, 0.0}});
}

long KL_H_Angle(kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    const NutationRoutine nutation_at = nutation_routine(model_id);
    if (nutation_at == nullptr || angle == nullptr)
        return KL_ERR;
    kl_nutation nutation;
    nutation_at(ut1_days, &nutation);
    *angle = sidereal_angle(model_blocks(model_id).earth, ut1_days, nutation);
    return 0;
}

long KL_H_Angle_Sim(kl_model_id *model_id, double ut1_days, kl_angle *angle)
{
    if (angle == nullptr || !has_linear_angle(model_blocks(model_id).earth))
        return KL_ERR;
    *angle = linear_sidereal_angle(model_blocks(model_id).earth, ut1_days);
    return 0;
}

long KL_Earth_Rotation(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (KL_H_Angle(model_id, ut1_days, &angle) != 0)
        return KL_ERR;
    fill_record(z_turn(angle), rotation);
    return 0;
}

long KL_Earth_Rotation_Sim(kl_model_id *model_id, double ut1_days, kl_rotation_record *rotation)
{
    kl_angle angle;
    if (KL_H_Angle_Sim(model_id, ut1_days, &angle) != 0)
        return KL_ERR;
    fill_record(z_turn(angle), rotation);
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
    fill_record(z_turn(now), rotation);
    return 0;
}

long KL_Polar_Motion_Rotation(kl_time_id *time_id, double ut1_days, kl_rotation_record *rotation)
{
    fill_record(polar_motion_turns(time_id, ut1_days), rotation);
    return 0;
}
