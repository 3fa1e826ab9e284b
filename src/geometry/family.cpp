// The geometry that the higher libraries call: plain doubles, no error record.
#include "geometry/ellipses.h"
#include "geometry/ray_doors.h"
#include "kl_family.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

namespace {

constexpr long kBad = -1;

// The ellipsoid of the models and the ray; false when there is none.
bool set_up(const kl_model_id *model_id, const double *pos, const double *dir, Ellipsoid *ellipsoid, Ray *ray)
{
    if (pos == nullptr || dir == nullptr || !make_ray(pos, dir, ray))
        return false;
    *ellipsoid = ellipsoid_of(model_blocks(model_id).earth);
    return ellipsoid->a > 0.0; // a refused selection leaves it empty
}

} // namespace

long KL_Poly_real_roots(long order, const double *c, double *roots)
{
    return roots_found(order, c, roots);
}

long KL_Ray_ellipsoid(const kl_model_id *model_id, const double pos[3], const double dir[3], double margin, double t[2])
{
    return points_on_ellipsoid(model_id, pos, dir, margin, t);
}

long KL_Ray_height(const kl_model_id *model_id, const double pos[3], const double dir[3], double height, double t[2])
{
    Ellipsoid ellipsoid;
    Ray ray;
    if (t == nullptr || !(kLowestHeight <= height && height <= kHighestHeight)
        || !set_up(model_id, pos, dir, &ellipsoid, &ray))
        return kBad;
    return ray_meets_height(ellipsoid, ray, height, t);
}

long KL_Ray_tangent(const kl_model_id *model_id, const double pos[3], const double dir[3], double *t, double point[3],
                    kl_geodetic *geodetic)
{
    Ellipsoid ellipsoid;
    Ray ray;
    LowestPoint lowest;
    if (t == nullptr || point == nullptr || geodetic == nullptr || !set_up(model_id, pos, dir, &ellipsoid, &ray)
        || !lowest_point(ellipsoid, ray, &lowest))
        return kBad;
    *t = lowest.t;
    copy_three(lowest.point, point);
    const double across[2] = {lowest.north[0], lowest.east[0]};
    const double along[2] = {lowest.north[1], lowest.east[1]};
    const Pack<2> angles = arc_tangent(load<Pack<2>>(across), load<Pack<2>>(along));
    *geodetic = {};
    geodetic->latitude = angles[0] * KL_DEG_PER_RAD;
    geodetic->longitude = reduced_to_360(angles[1] * KL_DEG_PER_RAD) + 0.0;
    geodetic->height = lowest.height;
    return lowest.height < 0.0 ? 1 : 0;
}

long KL_Ellipse_nearest(double a, double b, double x, double y, double foot[2], double *distance)
{
    if (foot == nullptr || distance == nullptr || !nearest_on_ellipse(a, b, x, y, foot, distance))
        return kBad;
    return 0;
}

double KL_Ellipse_arc(double a, double b, double beta1, double beta2)
{
    return arc_of_ellipse(a, b, beta1, beta2);
}
