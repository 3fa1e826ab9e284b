#include "geometry/eclipse.h"

#include <algorithm>
#include <cmath>

Shadow find_shadow(const Ellipsoid &ellipsoid, const double pos[3], const double sun[3], double margin)
{
    // The way to a Sun so far that products leave the range is shortened by a power of two.
    constexpr double kFar = 0x1p160;
    const double size = std::max({std::fabs(sun[0]), std::fabs(sun[1]), std::fabs(sun[2])});
    const double scale = size > kFar ? std::ldexp(1.0, 40 - std::ilogb(size)) : 1.0;
    const double to_sun[3] = {scale * sun[0] - scale * pos[0], scale * sun[1] - scale * pos[1],
                              scale * sun[2] - scale * pos[2]};
    SightPlane<double> plane;
    cross(pos, to_sun, plane.normal);
    plane.product = plane.length = std::sqrt(dot3(plane.normal, plane.normal));
    if (plane.length == 0.0) { // in line: any plane
        const bool steep = 4.0 * pos[0] * pos[0] < dot3(pos, pos);
        const double other[3] = {steep ? 1.0 : 0.0, steep ? 0.0 : 1.0, 0.0};
        cross(pos, other, plane.normal);
        cross(pos, plane.normal, plane.normal);
        plane.length = std::sqrt(dot3(plane.normal, plane.normal));
    }
    return shadow_of(limb_view(ellipsoid, pos, to_sun, plane, ellipsoid.a + margin, scale));
}
