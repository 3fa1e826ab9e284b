#include "geometry/ray_kernels.h"

#include "geometry/rays.h"
#include "numbers/streams.h"

inline namespace KL_SET {
namespace {

// Lines as callers give them.
struct Lines {
    Lanes pos[3], dir[3];
};

Lines lines_of(const RaysOfBlock &rays, long i)
{
    Lines out;
    load_elements(rays.pos[0], i, rays.count, out.pos);
    load_elements(rays.dir[0], i, rays.count, out.dir);
    return out;
}

Lanes raised_of(const RaysOfBlock &rays, long i)
{
    Lanes out[1];
    load_elements(rays.raised, i, rays.count, out);
    return out[0];
}

// make_ray() of ordinary lines.
RayOf<Lanes> unit_rays(const Lines &lines)
{
    const Lanes length = sqrt(dot3(lines.dir, lines.dir));
    RayOf<Lanes> out;
    for (int j = 0; j < 3; ++j) {
        out.pos[j] = lines.pos[j];
        out.dir[j] = lines.dir[j] / length;
    }
    return out;
}

// lowest_point(); `found` loses the lines that take more than a few steps.
LowestPointOf<Lanes> lowest_of_pack(const Ellipsoid &ellipsoid, const RayOf<Lanes> &ray,
                                    const Perpendicular<Lanes> &line, Mask<kLanes> *found)
{
    constexpr int kLimit = 6; // two are usual
    Lanes q = first_q(ellipsoid, line);
    StepOfQ<Lanes> last = step_of_q(ellipsoid, line, q);
    q += last.by;
    Mask<kLanes> moving = *found & !is_last(last);
    for (int step = 1; step < kLimit && any(moving); ++step) {
        const StepOfQ<Lanes> next = step_of_q(ellipsoid, line, q);
        const auto take = [&moving](Lanes *old, Lanes other) { *old = select(moving, other, *old); };
        for (int j = 0; j < 3; ++j)
            take(&last.V[j], next.V[j]);
        take(&last.length, next.length);
        take(&last.s, next.s);
        take(&last.per_root, next.per_root);
        take(&last.missing, next.missing);
        take(&last.by, next.by);
        take(&q, Lanes(q + next.by));
        moving &= !is_last(next);
    }
    *found &= !moving;
    LowestPointOf<Lanes> out;
    lowest_after(ellipsoid, ray, line, last, q, &out);
    return out;
}

void store_meetings(const Lanes (&t)[2], Mask<kLanes> first, Mask<kLanes> second, long i, MeetingBlock *out)
{
    const Lanes none = 0.0;
    store(t[0], out->t[0] + i);
    store(t[1], out->t[1] + i);
    store(select(first, 1.0, none) + select(second, 1.0, none), out->n + i);
}

// ray_meets_height(), both sides one after the other.
void meetings_of_pack(const Ellipsoid &ellipsoid, const RayOf<Lanes> &ray, const Lanes &height, long i,
                      Mask<kLanes> *good, MeetingBlock *out)
{
    const MeetingPoints<Lanes> start = points_of(chord_at_height(ellipsoid, ray, height), Lanes(1.0));
    Lanes t[2] = {start.t[0], select(start.second, start.t[1], start.t[0])};
    Mask<kLanes> begun = start.first;
    if (any(*good & !begun)) { // grazing lines may reach it all the same
        const Perpendicular<Lanes> line = perpendicular_of(ray);
        const auto has = *good & !begun & has_lowest_point(line);
        auto found = has;
        const Lanes lowest = lowest_of_pack(ellipsoid, ray, line, &found).t;
        *good &= (!has) | found;
        for (Lanes &side : t)
            side = select(begun, side, select(found, lowest, Lanes(0.0)));
        begun |= found;
    }
    auto reached = begun;
    for (int side = 0; side < 2; ++side) {
        Mask<kLanes> last = begun;
        for (int step = 0; step < kHeightSteps; ++step)
            last = step_to_height(ellipsoid, ray, height, Lanes(side == 0 ? -1.0 : 1.0), &t[side]);
        reached &= last & (fabs(t[side]) < HUGE_VAL);
    }
    const auto two = reached & (t[0] < t[1]);
    t[0] = select(reached, t[0], Lanes(kNoPoint));
    t[1] = select(two, t[1], Lanes(kNoPoint));
    store_meetings(t, reached, two, i, out);
}

} // namespace
} // namespace KL_SET

namespace KL_KERNELS {

void meetings_with_ellipsoid(const RaysOfBlock *rays, MeetingBlock *out, std::uint64_t *left)
{
    const double stretch = stretch_of(rays->f).once;
    for (long i = 0; i < rays->count; i += kLanes) {
        const Lines lines = lines_of(*rays, i);
        const Lanes a = rays->a + raised_of(*rays, i);
        accepted(is_ordinary(lines.pos, lines.dir) & (a > 0.0) & (a < HUGE_VAL), i, rays->count, left);
        const MeetingPoints<Lanes> points =
            points_of(chord_of(a, stretch, lines.pos, lines.dir), Lanes(sqrt(dot3(lines.dir, lines.dir))));
        store_meetings(points.t, points.first, points.second, i, out);
    }
}

void meetings_with_height(const RaysOfBlock *rays, MeetingBlock *out, std::uint64_t *left)
{
    const Ellipsoid ellipsoid = ellipsoid_of_constants(rays->a, rays->f);
    for (long i = 0; i < rays->count; i += kLanes) {
        const Lines lines = lines_of(*rays, i);
        const Lanes height = raised_of(*rays, i);
        auto good = is_ordinary(lines.pos, lines.dir) & (height >= kLowestHeight) & (height <= kHighestHeight);
        meetings_of_pack(ellipsoid, unit_rays(lines), height, i, &good, out);
        accepted(good, i, rays->count, left);
    }
}

void lowest_points(const RaysOfBlock *rays, LowestBlock *out, std::uint64_t *left)
{
    const Ellipsoid ellipsoid = ellipsoid_of_constants(rays->a, rays->f);
    for (long i = 0; i < rays->count; i += kLanes) {
        const Lines lines = lines_of(*rays, i);
        const RayOf<Lanes> ray = unit_rays(lines);
        const Perpendicular<Lanes> line = perpendicular_of(ray);
        auto good = is_ordinary(lines.pos, lines.dir) & has_lowest_point(line);
        const LowestPointOf<Lanes> lowest = lowest_of_pack(ellipsoid, ray, line, &good);
        accepted(good, i, rays->count, left);
        store(lowest.t, out->t + i);
        store_elements(lowest.point, out->point[0], i, rays->count);
        store(arc_tangent(lowest.north[0], lowest.north[1]) * KL_DEG_PER_RAD, out->latitude + i);
        store(reduced_to_360(Lanes(arc_tangent(lowest.east[0], lowest.east[1]) * KL_DEG_PER_RAD)) + 0.0,
              out->longitude + i);
        store(lowest.height, out->height + i);
    }
}

} // namespace KL_KERNELS
