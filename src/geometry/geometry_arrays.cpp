// Array forms of roots, lines of sight and eclipses.
#include "arrays/array_call.h"
#include "geometry/eclipse_doors.h"
#include "geometry/ray_doors.h"
#include "geometry/ray_kernels.h"
#include "geometry/shadow_kernels.h"

namespace {

// Functions without conditions: n elements, by blocks where the kernels answer for them, the others alone.
template <class One, class Fail, class Block>
long each_without_conditions(const long *n, long *status, long *ierr, One one, Fail fail, Block block)
{
    if (ierr != nullptr)
        *ierr = 0;
    if (n == nullptr || *n < 0)
        return KL_ERR;
    long result = KL_OK;
    for (long first = 0; first < *n; first += kBlock) {
        const long count = *n - first < kBlock ? *n - first : kBlock;
        LeftOver left;
        const bool by_kernels = block(first, count, left);
        for (long k = 0; k < count; ++k) {
            const long own = by_kernels && !left.has(k) ? long{KL_OK} : one(first + k);
            if (own == KL_ERR) {
                fail(first + k);
                result = KL_ERR;
            }
            if (status != nullptr)
                status[first + k] = own;
        }
    }
    return result;
}

bool by_no_kernel(long, long, LeftOver &)
{
    return false;
}

RaysOfBlock rays_of_block(const kl_model_id *model_id, const double (*pos)[3], const double (*dir)[3],
                          const double *raised, long first, long count)
{
    const EarthModel &earth = model_blocks(model_id).earth;
    return {earth.semi_major_axis,
            earth.flattening,
            pos + first,
            dir + first,
            raised != nullptr ? raised + first : nullptr,
            count};
}

// Is there all that a kernel of rays reads and writes? A refused selection of models leaves no ellipsoid.
template <class... Arrays>
bool are_given(const kl_model_id *model_id, Arrays... arrays)
{
    return (... && (arrays != nullptr)) && model_blocks(model_id).earth.semi_major_axis > 0.0;
}

// The block of the two that meet something: kernel(rays, out, left).
template <class Kernel>
auto meetings_of_block(const kl_model_id *model_id, const double (*pos)[3], const double (*dir)[3],
                       const double *raised, double (*t)[2], long *n_points, Kernel kernel)
{
    const bool given = are_given(model_id, pos, dir, raised, t, n_points);
    return [=](long first, long count, LeftOver &left) {
        if (!given)
            return false;
        const RaysOfBlock rays = rays_of_block(model_id, pos, dir, raised, first, count);
        MeetingBlock block;
        kernel(&rays, &block, left.bits());
        for (long k = 0; k < count; ++k)
            if (!left.has(k)) {
                t[first + k][0] = block.t[0][k];
                t[first + k][1] = block.t[1][k];
                n_points[first + k] = static_cast<long>(block.n[k]);
            }
        return true;
    };
}

} // namespace

long kl_poly_real_roots_n(const long *n, const long *order, const double *c, double roots[][4], long *n_roots,
                          long *status, long *ierr)
{
    const bool known = order != nullptr && *order >= 1 && *order <= 4;
    const long stride = known ? *order + 1 : 0;
    return each_without_conditions(
        n, status, ierr,
        [&](long i) {
            return known ? roots_of_one(order, element(c, i * stride), element(roots, i), element(n_roots, i))
                         : long{KL_ERR};
        },
        fails_in(roots, n_roots), by_no_kernel);
}

long kl_ray_ellipsoid_n(kl_model_id *model_id, const long *n, const double pos[][3], const double dir[][3],
                        const double *margin, double t[][2], long *n_points, long *status, long *ierr)
{
    return each_without_conditions(
        n, status, ierr,
        [&](long i) {
            return ray_ellipsoid_of_one(model_id, element(pos, i), element(dir, i), element(margin, i), element(t, i),
                                        element(n_points, i));
        },
        fails_in(t, n_points),
        meetings_of_block(model_id, pos, dir, margin, t, n_points, meetings_with_ellipsoid_kernel()));
}

long kl_ray_height_n(kl_model_id *model_id, const long *n, const double pos[][3], const double dir[][3],
                     const double *height, double t[][2], long *n_points, long *status, long *ierr)
{
    return each_without_conditions(
        n, status, ierr,
        [&](long i) {
            return ray_height_of_one(model_id, element(pos, i), element(dir, i), element(height, i), element(t, i),
                                     element(n_points, i));
        },
        fails_in(t, n_points),
        meetings_of_block(model_id, pos, dir, height, t, n_points, meetings_with_height_kernel()));
}

long kl_ray_tangent_n(kl_model_id *model_id, const long *n, const double pos[][3], const double dir[][3], double *t,
                      double point[][3], kl_geodetic *geodetic, long *meets_earth, long *status, long *ierr)
{
    return each_without_conditions(
        n, status, ierr,
        [&](long i) {
            return ray_tangent_of_one(model_id, element(pos, i), element(dir, i), element(t, i), element(point, i),
                                      element(geodetic, i), element(meets_earth, i));
        },
        fails_in(t, point, geodetic, meets_earth),
        [&](long first, long count, LeftOver &left) {
            if (!are_given(model_id, pos, dir, t, point, geodetic, meets_earth))
                return false;
            const RaysOfBlock rays = rays_of_block(model_id, pos, dir, nullptr, first, count);
            LowestBlock block;
            lowest_points_kernel()(&rays, &block, left.bits());
            for (long k = 0; k < count; ++k)
                if (!left.has(k)) {
                    t[first + k] = block.t[k];
                    copy_three(block.point[k], point[first + k]);
                    geodetic[first + k] = {block.latitude[k], block.longitude[k], block.height[k], 0.0, 0.0, 0.0};
                    meets_earth[first + k] = block.height[k] < 0.0 ? 1 : 0;
                }
            return true;
        });
}

long kl_eclipse_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *light_time, const long *cs,
                  const long *time_ref, const double *time, const double pos[][3], const double *margin, long *state,
                  double *fraction, double *depth, long *status, long *ierr)
{
    ArrayCall array(KL_FN_ECLIPSE, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(state, fraction, depth);
    if (eclipse_refuses_all(array.call(), time_id, light_time, cs, time_ref, time, pos != nullptr ? pos[0] : nullptr,
                            state, fraction, depth))
        return array.refuse(fail);
    EclipseSky sky;
    EclipseScenes scenes(model_id, time_id, *light_time == 1, *cs, *time_ref);
    const auto one = [&](long i, long *word) {
        if (is_verbose())
            sky = EclipseSky(); // every element prints its lines
        return eclipse_of_one(model_id, time_id, light_time, cs, time_ref, time + i, pos[i], element(margin, i),
                              state + i, fraction + i, depth + i, &sky, word);
    };
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        ShadowBlock block;
        ShadowScene scene;
        if (eclipse_scene(model_id, time_id, *light_time, *cs, time + first, count, sky, &scene))
            shadows_kernel()(&scene, pos + first, element(margin, first), count, &block, left.bits());
        else if ((*light_time != 1 && same_instants(time + first, count)) || !scenes.fill(time + first, count, &left))
            return false;
        else
            shadows_at_instants_kernel()(&scenes.shared, pos + first, element(margin, first), &block, left.bits());
        for (long k = 0; k < count; ++k)
            if (!left.has(k)) {
                state[first + k] = static_cast<long>(block.state[k]);
                fraction[first + k] = block.fraction[k];
                depth[first + k] = block.depth[k];
            }
        return true;
    });
}
