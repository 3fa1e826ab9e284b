#include "geometry/rays.h"

#include "numbers/numbers.h"

#include <algorithm>
#include <limits>

bool make_ray(const double pos[3], const double dir[3], Ray *ray)
{
    double largest = 0.0;
    for (int i = 0; i < 3; ++i) {
        if (!std::isfinite(pos[i]) || !std::isfinite(dir[i]))
            return false;
        largest = std::max(largest, std::fabs(dir[i]));
    }
    if (largest == 0.0)
        return false;
    // By a power of two, so that no square leaves the range.
    int exponent = 0;
    if (largest > 0x1p400 || largest < 0x1p-400)
        std::frexp(largest, &exponent);
    for (int i = 0; i < 3; ++i) {
        ray->pos[i] = pos[i];
        ray->dir[i] = exponent == 0 ? dir[i] : std::ldexp(dir[i], -exponent);
    }
    const double length = std::sqrt(dot3(ray->dir, ray->dir));
    for (double &component : ray->dir)
        component /= length;
    return true;
}

namespace {

long hand_out(const MeetingPoints<double> &points, double t[2])
{
    t[0] = points.t[0];
    t[1] = points.t[1];
    return points.first + points.second;
}

} // namespace

long any_line_meets_axes(double a, double stretch, const double pos[3], const double dir[3], double t[2])
{
    if (!(a > 0.0 && a < HUGE_VAL))
        return -1;
    if (is_ordinary(pos, dir))
        return hand_out(points_of(chord_of(a, stretch, pos, dir), std::sqrt(dot3(dir, dir))), t);
    Ray ray;
    return make_ray(pos, dir, &ray) ? hand_out(points_of(chord_of(a, stretch, ray.pos, ray.dir), 1.0), t) : -1;
}

// Both sides at once.
long ray_meets_height(const Ellipsoid &ellipsoid, const Ray &ray, double height, double t[2])
{
    using Pair = Pack<2>; // the way down and the way up
    double start[2];
    if (hand_out(points_of(chord_at_height(ellipsoid, ray, height), 1.0), start) == 0) {
        LowestPoint lowest; // a grazing ray may reach it all the same
        if (!lowest_point(ellipsoid, ray, &lowest)) {
            t[0] = t[1] = kNoPoint;
            return 0;
        }
        start[0] = start[1] = lowest.t;
    } else if (std::isnan(start[1])) {
        start[1] = start[0];
    }
    const double sides[2] = {-1.0, 1.0};
    Pair at = load<Pair>(start);
    Mask<2> reached = {};
    for (int step = 0; step < kHeightSteps; ++step)
        reached = step_to_height(ellipsoid, ray, height, load<Pair>(sides), &at);
    store(at, start);
    if (!all(reached) || !std::isfinite(start[0]) || !std::isfinite(start[1])) {
        t[0] = t[1] = kNoPoint;
        return 0;
    }
    t[0] = start[0];
    t[1] = start[1];
    if (!(t[0] < t[1])) {
        t[1] = kNoPoint;
        return 1;
    }
    return 2;
}

bool lowest_point(const Ellipsoid &ellipsoid, const Ray &ray, LowestPoint *out)
{
    constexpr int kLimit = 40; // two are usual
    const Perpendicular<double> line = perpendicular_of(ray);
    if (!has_lowest_point(line))
        return false;
    double q = first_q(ellipsoid, line);
    for (int step = 1;; ++step) {
        const StepOfQ<double> by = step_of_q(ellipsoid, line, q);
        q += by.by;
        if (is_last(by) || step == kLimit) {
            lowest_after(ellipsoid, ray, line, by, q, out);
            return true;
        }
    }
}
