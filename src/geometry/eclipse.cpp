#include "geometry/eclipse.h"

#include <algorithm>
#include <cmath>

Shadow find_shadow(const Outlook &outlook, const double pos[3], const double sun[3])
{
    // The way to a Sun so far that products leave the range is shortened by a power of two.
    constexpr double kFar = 0x1p160;
    const double size = std::max({std::fabs(sun[0]), std::fabs(sun[1]), std::fabs(sun[2])});
    double scale = 1.0;
    double to_sun[3] = {sun[0] - pos[0], sun[1] - pos[1], sun[2] - pos[2]};
    if (size > kFar) {
        scale = std::ldexp(1.0, 40 - std::ilogb(size));
        for (int i = 0; i < 3; ++i)
            to_sun[i] = scale * sun[i] - scale * pos[i];
    }
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
    return shadow_of(limb_view(outlook.ellipsoid, stretch_of(outlook.ellipsoid.f).twice, pos, outlook.at, to_sun, plane,
                               outlook.radius, scale));
}
