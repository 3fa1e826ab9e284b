#include "geometry/shadow_kernels.h"

#include "bodies/sun_of_date.h"
#include "geometry/eclipse.h"
#include "numbers/streams.h"

inline namespace KL_SET {
namespace {

// A pack of satellites: as the caller gives them, and true of date.
struct Satellites {
    Lanes given[3], margin;
    Lanes at[3];
};

// T: a number for axes of all, a pack for axes of each.
template <class T>
Satellites satellites_of_date(const T (&axes)[3][3], const double (*pos)[3], const double *margin, long i, long count)
{
    Satellites out;
    load_elements(pos[0], i, count, out.given);
    Lanes raised[1] = {0.0};
    if (margin != nullptr)
        load_elements(margin, i, count, raised);
    out.margin = raised[0];
    const Lanes *p = out.given;
    for (int j = 0; j < 3; ++j)
        out.at[j] = axes[j][0] * p[0] + axes[j][1] * p[1] + axes[j][2] * p[2];
    return out;
}

// The steps of the scalar call and find_shadow() where nothing is in line.
void store_shadows(const Ellipsoid &ellipsoid, double per_k2, const Satellites &satellites, const Lanes (&sun)[3],
                   long i, long count, ShadowBlock *out, std::uint64_t *left)
{
    const Lanes *at = satellites.at;
    const Lanes radius = ellipsoid.a + satellites.margin;
    const Lanes to_sun[3] = {sun[0] - at[0], sun[1] - at[1], sun[2] - at[2]};
    SightPlane<Lanes> plane;
    cross(at, to_sun, plane.normal);
    plane.product = plane.length = sqrt(dot3(plane.normal, plane.normal));
    const Stretched<Lanes> place = stretched(ellipsoid, at, radius);
    const auto good = (dot3(satellites.given, satellites.given) <= kFarthestSatellite * kFarthestSatellite)
                      & (kLowestMargin <= satellites.margin) & (satellites.margin <= kHighestMargin)
                      & (place.above >= 0.0) & (plane.length > 0.0);
    accepted(good, i, count, left);
    const ShadowOf<Lanes> shadow =
        shadow_of(limb_view(ellipsoid, per_k2, at, place, to_sun, plane, radius, Lanes(1.0)));
    store(shadow.state, out->state + i);
    store(shadow.fraction, out->fraction + i);
    store(shadow.depth, out->depth + i);
}

// axes_between() at the instants of the sky.
void axes_of_date(const Path &path, const Sky<Lanes> &sky, Lanes (&axes)[3][3])
{
    StateOf<Lanes> column[3];
    for (int j = 0; j < 3; ++j) {
        column[j] = {};
        column[j].pos[j] = 1.0;
    }
    ReadyFor<Lanes> ready;
    for (std::int32_t k = 0; k < path.n; ++k) {
        make_ready(path.steps[k], sky, &ready);
        for (auto &one : column)
            walk(ready, sky.earth, &one);
    }
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            axes[i][j] = column[j].pos[i];
}

// TDB at which the light that satellites see left the Sun: their way to the mean equator of date goes by TDB.
Lanes departure_of_light(const InstantBlock &by_light, const Lanes (&at)[3], Lanes tdb, long i)
{
    StateOf<Lanes> observer = {};
    for (int j = 0; j < 3; ++j)
        observer.pos[j] = at[j];
    apply_back(nutation_turns(nutation_at(load<Lanes>(by_light.ut1 + i))), &observer);
    const StateOf<Lanes> near = sun_of_date(Lanes(tdb - KL_FIRST_LIGHT_TIME), 0);
    return tdb - light_days(near.pos, observer.pos);
}

} // namespace
} // namespace KL_SET

namespace KL_KERNELS {

void shadows(const ShadowScene *scene, const double (*pos)[3], const double *margin, long count, ShadowBlock *out,
             std::uint64_t *left)
{
    const Ellipsoid ellipsoid = ellipsoid_of_constants(scene->a, scene->f);
    const double per_k2 = stretch_of(scene->f).twice;
    const Lanes sun[3] = {scene->sun[0], scene->sun[1], scene->sun[2]};
    for (long i = 0; i < count; i += kLanes)
        store_shadows(ellipsoid, per_k2, satellites_of_date(scene->axes, pos, margin, i, count), sun, i, count, out,
                      left);
}

void shadows_at_instants(const ShadowScenes *scenes, const double (*pos)[3], const double *margin, ShadowBlock *out,
                         std::uint64_t *left)
{
    const Ellipsoid ellipsoid = ellipsoid_of(*scenes->earth_model);
    const double per_k2 = stretch_of(ellipsoid.f).twice;
    const InstantBlock &at = *scenes->at;
    const Path path = path_between(scenes->frame, KL_TOD);
    for (long i = 0; i < at.count; i += kLanes) {
        Sky<Lanes> sky;
        sky.earth_model = scenes->earth_model;
        sky.simplified = false;
        sky.days = load<Lanes>(at.ut1 + i);
        sky.pole = pole_of_pack(at, scenes->has_pole, i);
        sky.nutation = nutation_at(sky.days);
        Lanes axes[3][3];
        axes_of_date(path, sky, axes);
        const Satellites satellites = satellites_of_date(axes, pos, margin, i, at.count);
        Lanes tdb = load<Lanes>(at.tdb + i);
        if (scenes->by_light != nullptr)
            tdb = departure_of_light(*scenes->by_light, satellites.at, tdb, i);
        StateOf<Lanes> sun = sun_of_date(tdb, 0);
        apply(nutation_turns(sky.nutation), &sun);
        store_shadows(ellipsoid, per_k2, satellites, sun.pos, i, at.count, out, left);
    }
}

} // namespace KL_KERNELS
