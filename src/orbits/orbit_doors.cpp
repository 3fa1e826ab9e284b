// Elements, angles on the orbit, local frames and crossings: the public functions.
#include "arrays/array_call.h"
#include "ephemerides/ephemerides.h"
#include "frames/change.h"
#include "frames/doors.h"
#include "models/model_record.h"
#include "numbers/bounds.h"
#include "orbits/crossings.h"
#include "orbits/door_checks.h"
#include "orbits/kepler.h"
#include "orbits/local_frames.h"
#include "orbits/mean_elements.h"
#include "orbits/orbit_angle.h"
#include "orbits/orbit_kernels.h"
#include "time/doors/call_instant.h"

#include <cmath>

namespace {

// ---- elements ----

bool is_kind(const long *kind)
{
    return kind != nullptr && (*kind == KL_KEPLER_OSCULATING || *kind == KL_KEPLER_MEAN);
}

// What the elements of one call or of many need first. False: refused.
bool is_ready(Activation &call, int kind_code, const long *kind, const kl_model_id *model_id, Field *field)
{
    if (!is_kind(kind))
        call.fails(kind_code);
    *field = field_of_model(model_id);
    return is_kind(kind) && field->gm > 0.0;
}

bool is_conic(double a, double e)
{
    return std::fabs(a) <= KL_LARGEST_POSITION
           && ((a > 0.0 && e >= 0.0 && e < 1.0) || (a < 0.0 && e > 1.0 && std::isfinite(e)));
}

ElementAngles<double> angles_of(const Elements &x)
{
    double s[3], c[3];
    sin_cos({x.i, x.node, x.perigee}, s, c);
    return {s[0], c[0], s[1], c[1], s[2], c[2]};
}

ElementAngles<double> angles_of_degrees(const kl_kepler &x)
{
    double s[3], c[3];
    sin_cos_degrees({x.inclination, x.raan, x.arg_perigee}, s, c);
    return {s[0], c[0], s[1], c[1], s[2], c[2]};
}

long kepl_to_cart(Activation &call, const Field &field, bool mean, const kl_kepler *in, double *pos, double *vel)
{
    if (in == nullptr || !is_conic(in->semi_major_axis, in->eccentricity))
        return call.fails(KL_KEPL_TO_CART_ELEMENTS_ERR);
    if (!within(in->inclination, 0.0, 180.0))
        return call.fails(KL_KEPL_TO_CART_INCLINATION_ERR);
    const bool closed = in->semi_major_axis > 0.0;
    // The anomaly of a hyperbola has no bound but that of its state.
    if (!holds_angle(in->raan) || !holds_angle(in->arg_perigee)
        || !(closed ? holds_angle(in->mean_anomaly) : std::isfinite(in->mean_anomaly)))
        return call.fails(KL_KEPL_TO_CART_ANGLES_ERR);
    OrbitState<double> out;
    if (mean) {
        const Elements x = {in->semi_major_axis,
                            in->eccentricity,
                            in->inclination * KL_RAD_PER_DEG,
                            reduced_degrees(in->raan) * KL_RAD_PER_DEG,
                            reduced_degrees(in->arg_perigee) * KL_RAD_PER_DEG,
                            reduced_degrees(in->mean_anomaly) * KL_RAD_PER_DEG};
        Elements y;
        if (!closed || mean_to_osculating(field.oblateness, x, &y) != MeanStatus::found)
            return call.fails(KL_KEPL_TO_CART_MEAN_ERR);
        out = ellipse_to_state(field.gm, y.a, y.e, angles_of(y), y.mean_anomaly);
    } else if (closed) {
        out = ellipse_to_state(field.gm, in->semi_major_axis, in->eccentricity, angles_of_degrees(*in),
                               reduced_degrees(in->mean_anomaly) * KL_RAD_PER_DEG);
    } else {
        out = hyperbola_to_state(field.gm, in->semi_major_axis, in->eccentricity, angles_of_degrees(*in),
                                 in->mean_anomaly * KL_RAD_PER_DEG);
    }
    if (!finite(out.pos) || !finite(out.vel))
        return call.fails(std::fabs(in->mean_anomaly) > kLargestAngle ? KL_KEPL_TO_CART_ANGLES_ERR
                                                                      : KL_KEPL_TO_CART_ELEMENTS_ERR);
    if (pos == nullptr || vel == nullptr)
        return KL_ERR;
    copy_three(out.pos, pos);
    copy_three(out.vel, vel);
    return call.status();
}

double degrees_0_to_360(double angle)
{
    return reduced_to_360(angle * KL_DEG_PER_RAD) + 0.0;
}

long cart_to_kepl(Activation &call, const Field &field, bool mean, const double *pos, const double *vel, kl_kepler *out)
{
    if (!holds_vector(pos, KL_LARGEST_POSITION) || !holds_vector(vel, KL_LARGEST_VELOCITY)
        || (pos[0] == 0.0 && pos[1] == 0.0 && pos[2] == 0.0))
        return call.fails(KL_CART_TO_KEPL_STATE_ERR);
    Elements x;
    const Conic conic = state_to_elements(field.gm, pos, vel, &x);
    const bool wild =
        conic != Conic::neither
        && !(std::isfinite(x.a) && std::isfinite(x.e) && std::isfinite(x.perigee) && std::isfinite(x.mean_anomaly));
    if (conic == Conic::neither || wild) // wild: so near to a straight line that numbers overflow
        return call.fails(KL_CART_TO_KEPL_CONIC_ERR);
    if (mean) {
        Elements y;
        const MeanStatus status =
            conic == Conic::ellipse ? osculating_to_mean(field.oblateness, x, &y) : MeanStatus::not_elliptic;
        if (status == MeanStatus::not_elliptic)
            return call.fails(KL_CART_TO_KEPL_MEAN_ERR);
        if (status == MeanStatus::not_converged)
            return call.fails(KL_CART_TO_KEPL_CONVERGENCE_ERR);
        x = y;
    }
    if (out == nullptr)
        return KL_ERR;
    *out = {x.a,
            x.e,
            x.i * KL_DEG_PER_RAD,
            degrees_0_to_360(x.node),
            degrees_0_to_360(x.perigee),
            conic == Conic::ellipse ? degrees_0_to_360(x.mean_anomaly) : x.mean_anomaly * KL_DEG_PER_RAD + 0.0};
    return call.status();
}

// ---- the true equator of date ----

constexpr InstantConditions kInstant = {KL_POSITION_ON_ORBIT_TIME_REF_ERR, KL_POSITION_ON_ORBIT_DATE_ERR};

bool is_mode(const long *calc_mode)
{
    return calc_mode != nullptr && *calc_mode >= KL_CALC_POS && *calc_mode <= KL_CALC_POS_VEL_ACC;
}

// Frames of which the chain carries a velocity.
bool is_frame_of_states(const long *cs)
{
    return cs != nullptr && *cs >= KL_BM2000 && *cs <= KL_TEME && *cs != KL_GALACTIC;
}

struct TodState {
    double pos[3], vel[3], acc[3];
};

enum class TodStatus { done, no_time, no_transformation };

// `ut1_days` is set unless the time id has no way to UT1.
TodStatus to_true_of_date(kl_model_id *model_id, kl_time_id *time_id, long cs, long time_ref, double time,
                          const double pos[3], const double vel[3], const double acc[3], TodState *out,
                          double *ut1_days)
{
    constexpr double kZero[3] = {0.0, 0.0, 0.0};
    if (!on_scale(time_id, time_ref, KL_TIME_UT1, time, ut1_days))
        return TodStatus::no_time;
    State state = {2, {}, {}, {}};
    copy_three(pos, state.pos);
    copy_three(vel, state.vel);
    copy_three(acc != nullptr ? acc : kZero, state.acc);
    const kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, *ut1_days};
    if (cs != KL_TOD && !carried(chain_sources(model_id, time_id), ut1, cs, KL_TOD, &state))
        return TodStatus::no_transformation;
    copy_three(state.pos, out->pos);
    copy_three(state.vel, out->vel);
    copy_three(state.acc, out->acc);
    return TodStatus::done;
}

// 0, or 1 to 3: the once-only warnings of the time id.
long time_warning(kl_time_id *time_id, long time_ref, double time)
{
    long warned = 0;
    return frame_change_warning(time_id, time_ref, time, &warned) ? warned : 0;
}

bool is_null(const double v[3])
{
    return v == nullptr || (v[0] == 0.0 && v[1] == 0.0 && v[2] == 0.0);
}

long position_on_orbit(Activation &call, kl_model_id *model_id, kl_time_id *time_id, long calc_mode, long cs,
                       long time_ref, double time, const double *pos, const double *vel, const double *acc,
                       kl_orbit_angle *out)
{
    const bool reads_acc = calc_mode != KL_CALC_POS && acc != nullptr;
    if (!holds_vector(pos, KL_LARGEST_POSITION) || !holds_vector(vel, KL_LARGEST_VELOCITY)
        || (reads_acc && !holds_vector(acc, KL_LARGEST_ACCELERATION)))
        return call.fails(KL_POSITION_ON_ORBIT_STATE_ERR);
    const bool accelerated = reads_acc && !is_null(acc);
    TodState tod = {};
    copy_three(pos, tod.pos);
    copy_three(vel, tod.vel);
    if (accelerated)
        copy_three(acc, tod.acc);
    if (cs != KL_TOD) {
        double ut1 = 0.0;
        const TodStatus status =
            to_true_of_date(model_id, time_id, cs, time_ref, time, pos, vel, accelerated ? acc : nullptr, &tod, &ut1);
        if (status == TodStatus::no_time)
            return call.fails(KL_POSITION_ON_ORBIT_TIME_ID_ERR);
        if (status == TodStatus::no_transformation)
            return call.fails(KL_POSITION_ON_ORBIT_TRANSFORMATION_ERR);
    }
    OrbitPlane plane;
    if (!orbit_plane(tod.pos, tod.vel, &plane))
        return call.fails(KL_POSITION_ON_ORBIT_PLANE_ERR);
    if (out == nullptr)
        return KL_ERR;
    const OrbitAngle x = angle_on_orbit(plane, tod.pos, tod.vel, accelerated ? tod.acc : nullptr);
    *out = {degrees_0_to_360(x.angle),          0.0, 0.0,
            degrees_0_to_360(plane.node_angle), 0.0, plane.inclination * KL_DEG_PER_RAD};
    if (calc_mode != KL_CALC_POS) {
        out->rate = x.rate * KL_DEG_PER_RAD;
        out->node_rate = x.node_rate * KL_DEG_PER_RAD + 0.0;
    }
    if (calc_mode == KL_CALC_POS_VEL_ACC)
        out->rate_of_rate = x.rate_of_rate * KL_DEG_PER_RAD + 0.0;
    if (plane.equatorial)
        call.warns(KL_POSITION_ON_ORBIT_EQUATOR_WARN);
    if (cs != KL_TOD) {
        const long warned = time_warning(time_id, time_ref, time);
        if (warned != 0)
            call.warns(static_cast<int>(KL_POSITION_ON_ORBIT_FORMULA_WARN + warned - 1));
    }
    return call.status();
}

// ---- the Sun seen from the orbit ----

// Direction of the Sun, m, true equator of date.
bool sun_true_of_date(kl_model_id *model_id, kl_time_id *time_id, long time_ref, double time, double ut1_days,
                      double sun[3])
{
    const SunRoutine routine = model_blocks(model_id).sun.sun;
    double tai = 0.0;
    if (routine == nullptr || !on_scale(time_id, time_ref, KL_TIME_TAI, time, &tai))
        return false;
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, tdb_of_tai(tai)};
    OwnedState state;
    const kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, ut1_days};
    if (routine(model_id, time_id, &tdb, &state, nullptr) == KL_ERR
        || !change_record(model_id, time_id, 1, &ut1, &state, KL_TOD, &state))
        return false;
    copy_three(state.pos + 1, sun);
    return true;
}

// Hours, 0 to 24.
double hours_of_day(double hours)
{
    const double reduced = hours - 24.0 * std::floor(hours / 24.0);
    return (reduced >= 24.0 ? 0.0 : reduced) + 0.0;
}

long orbit_sun(kl_model_id *model_id, kl_time_id *time_id, long cs, long time_ref, double time, const double *pos,
               const double *vel, kl_orbit_sun_angles *out)
{
    TodState tod;
    OrbitPlane plane;
    double ut1_days = 0.0;
    double sun[3];
    if (!holds_vector(pos, KL_LARGEST_POSITION) || !holds_vector(vel, KL_LARGEST_VELOCITY)
        || to_true_of_date(model_id, time_id, cs, time_ref, time, pos, vel, nullptr, &tod, &ut1_days) != TodStatus::done
        || !orbit_plane(tod.pos, tod.vel, &plane) || !sun_true_of_date(model_id, time_id, time_ref, time, ut1_days, sun)
        || out == nullptr)
        return KL_ERR;
    // The node turns with the Earth once a sidereal day, its mean solar time is UT1 plus its longitude.
    State node = {1, {}, {}, {}};
    copy_three(plane.node, node.pos);
    const kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, ut1_days};
    if (!carried(chain_sources(model_id, time_id), ut1, KL_TOD, KL_PEF, &node))
        return KL_ERR;
    constexpr double kHoursPerDegree = 1.0 / 15.0;
    const double longitude = arc_tangent(node.pos[1], node.pos[0]) * KL_DEG_PER_RAD;
    const double sun_ra = arc_tangent(sun[1], sun[0]);
    const SunFromOrbit x = sun_from_orbit(plane, tod.pos, sun);
    *out = {x.beta * KL_DEG_PER_RAD,
            hours_of_day(12.0 + (plane.node_angle - sun_ra) * KL_DEG_PER_RAD * kHoursPerDegree),
            hours_of_day((ut1_days - std::floor(ut1_days)) * 24.0 + longitude * kHoursPerDegree),
            degrees_0_to_360(x.ahead)};
    return plane.equatorial ? KL_WARN : KL_OK; // the once-only warnings of the time id are left to others
}

} // namespace

long kl_kepl_to_cart(kl_model_id *model_id, const long *kind, const kl_kepler *in, double pos[3], double vel[3],
                     long *ierr)
{
    Activation call(KL_FN_KEPL_TO_CART, ierr);
    Field field;
    if (!is_ready(call, KL_KEPL_TO_CART_KIND_ERR, kind, model_id, &field))
        return KL_ERR;
    return kepl_to_cart(call, field, *kind == KL_KEPLER_MEAN, in, pos, vel);
}

long kl_cart_to_kepl(kl_model_id *model_id, const long *kind, const double pos[3], const double vel[3], kl_kepler *out,
                     long *ierr)
{
    Activation call(KL_FN_CART_TO_KEPL, ierr);
    Field field;
    if (!is_ready(call, KL_CART_TO_KEPL_KIND_ERR, kind, model_id, &field))
        return KL_ERR;
    return cart_to_kepl(call, field, *kind == KL_KEPLER_MEAN, pos, vel, out);
}

long kl_position_on_orbit(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs,
                          const long *time_ref, const double *time, const double pos[3], const double vel[3],
                          const double acc[3], kl_orbit_angle *out, long *ierr)
{
    Activation call(KL_FN_POSITION_ON_ORBIT, ierr);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (refuses_instant(call, kInstant, ref, time))
        return KL_ERR;
    if (!is_mode(calc_mode))
        return call.fails(KL_POSITION_ON_ORBIT_CALC_MODE_ERR);
    if (!is_frame_of_states(cs))
        return call.fails(KL_POSITION_ON_ORBIT_CS_ERR);
    return position_on_orbit(call, model_id, time_id, *calc_mode, *cs, ref, *time, pos, vel, acc, out);
}

long kl_orbit_sun(kl_model_id *model_id, kl_time_id *time_id, const long *cs, const long *time_ref, const double *time,
                  const double pos[3], const double vel[3], kl_orbit_sun_angles *out, long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (checked_instant(ref, time) || !is_frame_of_states(cs))
        return KL_ERR;
    return orbit_sun(model_id, time_id, *cs, ref, *time, pos, vel, out);
}

double KL_Kepler_ellipse(double mean_anomaly, double eccentricity)
{
    constexpr double kLargest = 1e8; // rad
    if (!(within(mean_anomaly, -kLargest, kLargest) && eccentricity >= 0.0 && eccentricity < 1.0))
        return std::nan("");
    const double inside = reduced(mean_anomaly); // whole turns are taken off and put back
    return kepler_ellipse(inside, eccentricity).E + (mean_anomaly - inside);
}

double KL_Kepler_hyperbola(double mean_anomaly, double eccentricity)
{
    if (!(std::isfinite(mean_anomaly) && eccentricity > 1.0 && std::isfinite(eccentricity)))
        return std::nan("");
    return kepler_hyperbola(mean_anomaly, eccentricity);
}

long KL_Local_orbital_frame(long kind, const double pos[3], const double vel[3], const double acc[3], double r[9],
                            double dr[9])
{
    if (kind < KL_ORBITAL_QSW || kind > KL_ORBITAL_VNC || !holds_vector(pos, KL_LARGEST_POSITION)
        || !holds_vector(vel, KL_LARGEST_VELOCITY) || (acc != nullptr && !holds_vector(acc, KL_LARGEST_ACCELERATION))
        || r == nullptr || dr == nullptr)
        return KL_ERR;
    double two_bodies[3];
    if (acc == nullptr) {
        const double r2 = dot3(pos, pos);
        const double pull = model_blocks(nullptr).earth.gm / (r2 * std::sqrt(r2));
        for (int i = 0; i < 3; ++i)
            two_bodies[i] = -pull * pos[i];
        acc = two_bodies;
    }
    double axes[9], turning[9];
    if (!local_orbital_frame(kind, pos, vel, acc, axes, turning))
        return KL_ERR;
    for (int i = 0; i < 9; ++i)
        if (!std::isfinite(axes[i]) || !std::isfinite(turning[i]))
            return KL_ERR;
    for (int i = 0; i < 9; ++i) {
        r[i] = axes[i];
        dr[i] = turning[i];
    }
    return KL_OK;
}

long kl_local_orbital_frame(const long *kind, const double pos[3], const double vel[3], const double acc[3],
                            double r[9], double dr[9], long *ierr)
{
    if (ierr != nullptr)
        ierr[0] = 0;
    return kind != nullptr ? KL_Local_orbital_frame(*kind, pos, vel, acc, r, dr) : long{KL_ERR};
}

long kl_find_crossings(kl_crossing_function f, void *context, const double *start, const double *stop,
                       const double *step, const double *tolerance, const long *max, long *n, kl_crossing *found,
                       long *ierr)
{
    constexpr double kLatest = 1e12; // days
    constexpr double kMostSteps = 1e9;
    if (ierr != nullptr)
        ierr[0] = 0;
    if (f == nullptr || !holds(start, -kLatest, kLatest) || !holds(stop, -kLatest, kLatest) || !(*start < *stop)
        || step == nullptr || !(*step > 0.0) || !((*stop - *start) / *step <= kMostSteps) || tolerance == nullptr
        || !(*tolerance > 0.0) || max == nullptr || *max < 0 || n == nullptr || (found == nullptr && *max > 0))
        return KL_ERR;
    long count = 0;
    const long status = find_crossings({f, context, *start, *stop, *step, *tolerance}, *max, &count, found);
    *n = status == KL_ERR ? 0 : count;
    return status;
}

// ---- arrays ----

long kl_kepl_to_cart_n(kl_model_id *model_id, const long *n, const long *kind, const kl_kepler *in, double pos[][3],
                       double vel[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_KEPL_TO_CART, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(pos, vel);
    Field field;
    if (!is_ready(array.call(), KL_KEPL_TO_CART_KIND_ERR, kind, model_id, &field))
        return array.refuse(fail);
    const bool mean = *kind == KL_KEPLER_MEAN;
    if (array.lacks(in, KL_KEPL_TO_CART_ELEMENTS_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_KEPL_TO_CART, word);
            return kepl_to_cart(call, field, mean, element(in, i), element(pos, i), element(vel, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (mean || pos == nullptr || vel == nullptr)
                return false;
            states_of_ellipses_kernel()(field.gm, reinterpret_cast<const double(*)[6]>(in + first), pos + first,
                                        vel + first, count, left.bits());
            return true;
        });
}

long kl_cart_to_kepl_n(kl_model_id *model_id, const long *n, const long *kind, const double pos[][3],
                       const double vel[][3], kl_kepler *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_CART_TO_KEPL, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    Field field;
    if (!is_ready(array.call(), KL_CART_TO_KEPL_KIND_ERR, kind, model_id, &field))
        return array.refuse(fail);
    const bool mean = *kind == KL_KEPLER_MEAN;
    if (array.lacks(pos, KL_CART_TO_KEPL_STATE_ERR) || array.lacks(vel, KL_CART_TO_KEPL_STATE_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_CART_TO_KEPL, word);
            return cart_to_kepl(call, field, mean, element(pos, i), element(vel, i), element(out, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (mean || out == nullptr)
                return false;
            ellipses_of_states_kernel()(field.gm, pos + first, vel + first, reinterpret_cast<double(*)[6]>(out + first),
                                        count, left.bits());
            return true;
        });
}

long kl_position_on_orbit_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *calc_mode,
                            const long *cs, const long *time_ref, const double *time, const double pos[][3],
                            const double vel[][3], const double acc[][3], kl_orbit_angle *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_POSITION_ON_ORBIT, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    constexpr double kInRange = 0.0;
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (refuses_instant(array.call(), kInstant, ref, time != nullptr ? &kInRange : nullptr))
        return array.refuse(fail);
    if (!is_mode(calc_mode)) {
        array.call().fails(KL_POSITION_ON_ORBIT_CALC_MODE_ERR);
        return array.refuse(fail);
    }
    if (!is_frame_of_states(cs)) {
        array.call().fails(KL_POSITION_ON_ORBIT_CS_ERR);
        return array.refuse(fail);
    }
    if (array.lacks(pos, KL_POSITION_ON_ORBIT_STATE_ERR) || array.lacks(vel, KL_POSITION_ON_ORBIT_STATE_ERR))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_POSITION_ON_ORBIT, word);
            const double *at = element(time, i);
            if (refuses_instant(call, kInstant, ref, at))
                return long{KL_ERR};
            return position_on_orbit(call, model_id, time_id, *calc_mode, *cs, ref, *at, element(pos, i),
                                     element(vel, i), element(acc, i), element(out, i));
        },
        fail);
}

long kl_local_orbital_frame_n(const long *n, const long *kind, const double pos[][3], const double vel[][3],
                              const double acc[][3], double r[][9], double dr[][9], long *status, long *ierr)
{
    ArrayCall array(KL_FN_INIT_ERR, n, status, ierr); // nothing is recorded
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(r, dr);
    if (kind == nullptr)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *) {
            return KL_Local_orbital_frame(*kind, element(pos, i), element(vel, i), element(acc, i), element(r, i),
                                          element(dr, i));
        },
        fail,
        [&](long first, long count, LeftOver &left) {
            if (*kind < KL_ORBITAL_QSW || *kind > KL_ORBITAL_VNC || pos == nullptr || vel == nullptr || r == nullptr
                || dr == nullptr)
                return false;
            local_frames_kernel()(*kind, model_blocks(nullptr).earth.gm, pos + first, vel + first,
                                  acc != nullptr ? acc + first : nullptr, r + first, dr + first, count, left.bits());
            return true;
        });
}

long kl_orbit_sun_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *cs, const long *time_ref,
                    const double *time, const double pos[][3], const double vel[][3], kl_orbit_sun_angles *out,
                    long *status, long *ierr)
{
    ArrayCall array(KL_FN_INIT_ERR, n, status, ierr); // nothing is recorded
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    constexpr double kInRange = 0.0;
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (checked_instant(ref, time != nullptr ? &kInRange : nullptr) || !is_frame_of_states(cs) || pos == nullptr
        || vel == nullptr || out == nullptr)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *) {
            if (checked_instant(ref, time + i))
                return long{KL_ERR};
            return orbit_sun(model_id, time_id, *cs, ref, time[i], pos[i], vel[i], out + i);
        },
        fail);
}
