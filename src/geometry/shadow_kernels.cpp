#include "geometry/shadow_kernels.h"

#include "geometry/eclipse.h"
#include "numbers/streams.h"

namespace KL_KERNELS {

// The steps of the scalar call and find_shadow() where nothing is in line.
void shadows(const ShadowScene *scene, const double (*pos)[3], const double *margin, long count, ShadowBlock *out,
             std::uint64_t *left)
{
    const Ellipsoid ellipsoid = ellipsoid_of_constants(scene->a, scene->f);
    for (long i = 0; i < count; i += kLanes) {
        Lanes p[3];
        Lanes raised[1] = {0.0};
        load_elements(pos[0], i, count, p);
        if (margin != nullptr)
            load_elements(margin, i, count, raised);
        const Lanes radius = ellipsoid.a + raised[0];
        Lanes at[3];
        Lanes to_sun[3];
        for (int j = 0; j < 3; ++j) {
            at[j] = scene->axes[j][0] * p[0] + scene->axes[j][1] * p[1] + scene->axes[j][2] * p[2];
            to_sun[j] = scene->sun[j] - at[j];
        }
        SightPlane<Lanes> plane = {{at[1] * to_sun[2] - at[2] * to_sun[1], at[2] * to_sun[0] - at[0] * to_sun[2],
                                    at[0] * to_sun[1] - at[1] * to_sun[0]},
                                   0.0,
                                   0.0};
        plane.product = plane.length = sqrt(dot3(plane.normal, plane.normal));
        const Stretched<Lanes> place = stretched(ellipsoid, at, radius);
        const auto good = (dot3(p, p) <= kFarthestSatellite * kFarthestSatellite) & (kLowestMargin <= raised[0])
                          & (raised[0] <= kHighestMargin) & (place.above >= 0.0) & (plane.length > 0.0);
        accepted(good, i, count, left);
        const ShadowOf<Lanes> shadow = shadow_of(limb_view(ellipsoid, at, place, to_sun, plane, radius, Lanes(1.0)));
        store(shadow.state, out->state + i);
        store(shadow.fraction, out->fraction + i);
        store(shadow.depth, out->depth + i);
    }
}

} // namespace KL_KERNELS
