// Roots, lines of sight and eclipses for callers.
#include "bodies/bodies.h"
#include "errors/activation.h"
#include "frames/axes.h"
#include "geometry/eclipse.h"
#include "geometry/eclipse_doors.h"
#include "geometry/ray_doors.h"
#include "kl_family.h"
#include "models/model_record.h"
#include "numbers/bounds.h"
#include "time/doors/call_instant.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr InstantConditions kInstant = {KL_ECLIPSE_TIME_REF_ERR, KL_ECLIPSE_DATE_ERR};

bool is_finite3(const double *v)
{
    return v != nullptr && finite(v);
}

bool is_near_enough(const double pos[3])
{
    return dot3(pos, pos) <= kFarthestSatellite * kFarthestSatellite;
}

bool is_sun(const double sun[3])
{
    if (sun == nullptr)
        return false;
    const double square = dot3(sun, sun);
    return square >= kNearestSun * kNearestSun && (square < HUGE_VAL || finite(sun)); // a square may leave the range
}

void hand_out(const Shadow &shadow, long *state, double *fraction, double *depth)
{
    *state = static_cast<long>(shadow.state);
    *fraction = shadow.fraction;
    *depth = shadow.depth;
}

bool is_margin(double margin)
{
    return kLowestMargin <= margin && margin <= kHighestMargin;
}

void clear(long *ierr)
{
    if (ierr != nullptr)
        *ierr = 0;
}

bool is_eclipse_frame(long cs)
{
    return (cs >= KL_BM2000 && cs <= KL_EF) || cs == KL_BM1950 || cs == KL_TEME;
}

// Only these have another origin than the Earth's centre.
bool is_centred_elsewhere(long cs)
{
    return cs == KL_BM2000 || cs == KL_HM2000 || cs == KL_BM1950;
}

} // namespace

long kl_poly_real_roots(const long *order, const double *c, double *roots, long *n, long *ierr)
{
    clear(ierr);
    return roots_of_one(order, c, roots, n);
}

long kl_ray_ellipsoid(kl_model_id *model_id, const double pos[3], const double dir[3], const double *margin,
                      double t[2], long *n, long *ierr)
{
    clear(ierr);
    return ray_ellipsoid_of_one(model_id, pos, dir, margin, t, n);
}

long kl_ray_height(kl_model_id *model_id, const double pos[3], const double dir[3], const double *height, double t[2],
                   long *n, long *ierr)
{
    clear(ierr);
    return ray_height_of_one(model_id, pos, dir, height, t, n);
}

long kl_ray_tangent(kl_model_id *model_id, const double pos[3], const double dir[3], double *t, double point[3],
                    kl_geodetic *geodetic, long *meets_earth, long *ierr)
{
    clear(ierr);
    return ray_tangent_of_one(model_id, pos, dir, t, point, geodetic, meets_earth);
}

long KL_Eclipse(kl_model_id *model_id, const double pos[3], const double sun[3], const double *margin, long *state,
                double *fraction, double *depth, long *ierr)
{
    Activation call(KL_FN_ECLIPSE, ierr);
    const double raised = margin != nullptr ? *margin : 0.0;
    const EarthModel &earth = model_blocks(model_id).earth;
    if (pos == nullptr || !is_near_enough(pos))
        return call.fails(KL_ECLIPSE_POSITION_ERR);
    // With a margin out of range the ellipsoid itself: what is inside that is the first mistake.
    const Outlook outlook(earth, pos, is_margin(raised) ? raised : 0.0);
    if (outlook.is_inside())
        return call.fails(KL_ECLIPSE_POSITION_ERR);
    if (!is_sun(sun))
        return call.fails(KL_ECLIPSE_SUN_ERR);
    if (!is_margin(raised))
        return call.fails(KL_ECLIPSE_MARGIN_ERR);
    if (state == nullptr || fraction == nullptr || depth == nullptr)
        return KL_ERR;
    if (!(earth.semi_major_axis > 0.0))
        return KL_ERR; // its selection was refused
    hand_out(find_shadow(outlook, pos, sun), state, fraction, depth);
    return call.status();
}

// What all positions of one instant share; false: the condition of the failure.
bool EclipseSky::prepare(kl_model_id *model_id, kl_time_id *time_id, long ref, double at, long cs, bool light_time,
                         int *condition)
{
    *condition = KL_ECLIPSE_TIME_ID_ERR;
    if (!instant_of_call(time_id, ref, at, false, &instant))
        return false;
    *condition = KL_ECLIPSE_TRANSFORMATION_ERR;
    const long from = is_centred_elsewhere(cs) ? long{KL_GM2000} : cs;
    if (!axes_between(model_id, time_id, instant.date, from, KL_TOD, &to_true_of_date))
        return false;
    if (light_time)
        return true; // its Sun depends on the satellite
    const SunRoutine routine = model_blocks(model_id).sun.sun;
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, instant.tdb};
    OwnedState mean;
    return routine != nullptr && routine(model_id, time_id, &tdb, &mean, nullptr) != KL_ERR
           && change_position(model_id, time_id, instant.date, KL_MOD, mean.pos + 1, KL_TOD, sun);
}

namespace {

// The Sun as the satellite sees it: where it was when its light left.
bool sun_with_light_time(kl_model_id *model_id, kl_time_id *time_id, const EclipseSky &sky, const double pos[3],
                         double sun[3])
{
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, sky.instant.tdb};
    kl_time_record emission;
    OwnedState satellite, mean;
    satellite.cs = KL_TOD;
    satellite.order = 0;
    copy_three(pos, satellite.pos + 1);
    return model_blocks(model_id).sun.sun != nullptr
           && sun_from_satellite(model_id, time_id, tdb, &satellite, &mean, &emission)
           && change_position(model_id, time_id, sky.instant.date, KL_MOD, mean.pos + 1, KL_TOD, sun);
}

constexpr int kNoCondition = -1;

// The satellite true of date, or the condition why not.
int satellite_of_date(kl_model_id *model_id, kl_time_id *time_id, const EclipseSky &sky, long cs, const double pos[3],
                      double satellite[3])
{
    double geocentric[3];
    copy_three(pos, geocentric);
    if (is_centred_elsewhere(cs)) {
        if (!change_position(model_id, time_id, sky.instant.date, cs, pos, KL_GM2000, geocentric))
            return KL_ECLIPSE_TRANSFORMATION_ERR;
        if (!is_near_enough(geocentric))
            return KL_ECLIPSE_POSITION_ERR;
    }
    sky.to_true_of_date.turn(geocentric, satellite);
    return kNoCondition;
}

} // namespace

long eclipse_of_one(kl_model_id *model_id, kl_time_id *time_id, const long *light_time, const long *cs,
                    const long *time_ref, const double *time, const double pos[3], const double *margin, long *state,
                    double *fraction, double *depth, EclipseSky *sky, long *ierr)
{
    Activation call(KL_FN_ECLIPSE, ierr);
    if (cs == nullptr || !is_eclipse_frame(*cs))
        return call.fails(KL_ECLIPSE_CS_ERR);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const double days = time != nullptr ? *time : kNan;
    if (refuses_instant(call, kInstant, ref, &days))
        return KL_ERR;
    if (!is_finite3(pos) || !(is_centred_elsewhere(*cs) || is_near_enough(pos)))
        return call.fails(KL_ECLIPSE_POSITION_ERR);
    const double raised = margin != nullptr ? *margin : 0.0;
    if (!is_margin(raised))
        return call.fails(KL_ECLIPSE_MARGIN_ERR);
    if (light_time == nullptr || state == nullptr || fraction == nullptr || depth == nullptr)
        return KL_ERR;

    const bool lights = *light_time == 1;
    int condition = kNoCondition;
    if (!sky->holds(days)) {
        sky->days = kNan;
        if (!sky->prepare(model_id, time_id, ref, days, *cs, lights, &condition))
            return call.fails(condition);
        sky->days = days;
    }
    double satellite[3];
    condition = satellite_of_date(model_id, time_id, *sky, *cs, pos, satellite);
    if (condition != kNoCondition)
        return call.fails(condition);
    double sun[3];
    copy_three(sky->sun, sun);
    const EarthModel &earth = model_blocks(model_id).earth;
    if (!(earth.semi_major_axis > 0.0) || (lights && !sun_with_light_time(model_id, time_id, *sky, satellite, sun)))
        return call.fails(KL_ECLIPSE_TRANSFORMATION_ERR);
    const Outlook outlook(earth, satellite, raised);
    if (outlook.is_inside())
        return call.fails(KL_ECLIPSE_POSITION_ERR);
    hand_out(find_shadow(outlook, satellite, sun), state, fraction, depth);
    const long warned = warning_of_call(time_id, sky->instant);
    if (warned != 0)
        call.warns(static_cast<int>(KL_ECLIPSE_FORMULA_WARN + warned - 1));
    return call.status();
}

bool eclipse_scene(const kl_model_id *model_id, const kl_time_id *time_id, long light_time, long cs, const double *time,
                   long count, const EclipseSky &sky, ShadowScene *scene)
{
    const EarthModel &earth = model_blocks(model_id).earth;
    if (light_time == 1 || is_centred_elsewhere(cs) || !(earth.semi_major_axis > 0.0)
        || !all_is_quiet(*time_record_of(time_id), time[0]))
        return false;
    for (long k = 0; k < count; ++k)
        if (!sky.holds(time[k]))
            return false;
    scene->a = earth.semi_major_axis;
    scene->f = earth.flattening;
    for (int i = 0; i < 3; ++i) {
        copy_three(sky.to_true_of_date.m[i], scene->axes[i]);
        scene->sun[i] = sky.sun[i];
    }
    return true;
}

EclipseScenes::EclipseScenes(const kl_model_id *model_id, kl_time_id *time_id, bool light_time, long cs, long ref)
    : shared{}, id_(*time_record_of(time_id)), at_(time_record_of(time_id), ref, true, false, cs == KL_EF),
      by_light_(time_record_of(time_id), KL_TIME_TAI, false, false, false)
{
    const ModelBlocks &models = model_blocks(model_id);
    usable_ = !is_centred_elsewhere(cs) && models.earth.semi_major_axis > 0.0 && models.sun.sun != nullptr
              && models.sun.earth != nullptr && models.precession.precession != nullptr
              && models.nutation.nutation != nullptr;
    shared.earth_model = &models.earth;
    shared.frame = cs;
    shared.has_pole = at_.with_pole();
    shared.at = at_.block();
    shared.by_light = light_time ? by_light_.block() : nullptr;
}

// Elements out of range take the instant of another one, and are left over.
bool EclipseScenes::fill(const double *time, long count, LeftOver *left)
{
    double *days = at_.block()->days;
    long first = 0;
    while (first < count && !inside_processing_range(time[first]))
        ++first;
    if (!usable_ || first == count)
        return false;
    for (long k = 0; k < count; ++k) {
        const bool inside = inside_processing_range(time[k]);
        days[k] = inside ? time[k] : time[first];
        if (!inside)
            left->add(k);
    }
    at_.block()->count = count;
    if (!all_are_quiet(id_, days, count) || !at_.fill())
        return false;
    if (shared.by_light == nullptr)
        return true;
    InstantBlock &light = *by_light_.block();
    light.count = count;
    for (long k = 0; k < count; ++k)
        light.days[k] = tai_of_tdb(at_.block()->tdb[k]);
    return by_light_.fill();
}

bool eclipse_refuses_all(Activation &call, const kl_time_id *time_id, const long *light_time, const long *cs,
                         const long *time_ref, const double *time, const double *pos, const long *state,
                         const double *fraction, const double *depth)
{
    constexpr double kAnyDate = 0.0;
    if (cs == nullptr || !is_eclipse_frame(*cs))
        call.fails(KL_ECLIPSE_CS_ERR);
    else if (refuses_instant(call, kInstant, value_or(time_ref, KL_TIME_UNDEF), time != nullptr ? &kAnyDate : &kNan))
        return true;
    else if (pos == nullptr)
        call.fails(KL_ECLIPSE_POSITION_ERR);
    else if (light_time != nullptr && state != nullptr && fraction != nullptr && depth != nullptr) {
        if (time_record_of(time_id) != nullptr)
            return false;
        call.fails(KL_ECLIPSE_TIME_ID_ERR);
    }
    return true;
}

long kl_eclipse(kl_model_id *model_id, kl_time_id *time_id, const long *light_time, const long *cs,
                const long *time_ref, const double *time, const double pos[3], const double *margin, long *state,
                double *fraction, double *depth, long *ierr)
{
    EclipseSky sky;
    return eclipse_of_one(model_id, time_id, light_time, cs, time_ref, time, pos, margin, state, fraction, depth, &sky,
                          ierr);
}
