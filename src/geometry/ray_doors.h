// One root search or line of sight for callers: the scalar doors and every element of the array doors.
#ifndef KL_SRC_GEOMETRY_RAY_DOORS_H
#define KL_SRC_GEOMETRY_RAY_DOORS_H

#include "geometry/rays.h"
#include "geometry/roots.h"
#include "kl_family.h"

// The short ones in full: a call of its own would cost a fifth of them.

// Their number, or -1.
inline long roots_found(long order, const double *c, double *roots)
{
    return c != nullptr && roots != nullptr ? real_roots(order, c, roots) : -1;
}

inline long points_on_ellipsoid(const kl_model_id *model_id, const double *pos, const double *dir, double margin,
                                double *t)
{
    if (t == nullptr || pos == nullptr || dir == nullptr)
        return -1;
    const EarthModel &earth = model_blocks(model_id).earth;
    if (!(earth.semi_major_axis > 0.0))
        return -1;
    return line_meets_axes(earth.semi_major_axis + margin, stretch_of(earth.flattening).once, pos, dir, t);
}

// A number of roots or points, or -1.
inline long store_number(long found, long *n)
{
    if (found < 0)
        return KL_ERR;
    *n = found;
    return KL_OK;
}

inline long roots_of_one(const long *order, const double *c, double *roots, long *n)
{
    return order != nullptr && n != nullptr ? store_number(roots_found(*order, c, roots), n) : long{KL_ERR};
}

inline long ray_ellipsoid_of_one(const kl_model_id *model_id, const double *pos, const double *dir,
                                 const double *margin, double *t, long *n)
{
    return n != nullptr && margin != nullptr ? store_number(points_on_ellipsoid(model_id, pos, dir, *margin, t), n)
                                             : long{KL_ERR};
}

inline long ray_height_of_one(const kl_model_id *model_id, const double *pos, const double *dir, const double *height,
                              double *t, long *n)
{
    return n != nullptr && height != nullptr ? store_number(KL_Ray_height(model_id, pos, dir, *height, t), n)
                                             : long{KL_ERR};
}

inline long ray_tangent_of_one(const kl_model_id *model_id, const double *pos, const double *dir, double *t,
                               double *point, kl_geodetic *geodetic, long *meets_earth)
{
    return meets_earth != nullptr ? store_number(KL_Ray_tangent(model_id, pos, dir, t, point, geodetic), meets_earth)
                                  : long{KL_ERR};
}

#endif
