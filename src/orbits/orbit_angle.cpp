#include "orbits/orbit_angle.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"
#include "orbits/plane.h"

#include <cmath>

namespace {

// Sine and cosine part of a direction in the plane, counted from the node.
double angle_in_plane(const OrbitPlane &plane, const double v[3])
{
    double ahead[3];
    cross(plane.pole, plane.node, ahead);
    return arc_tangent(dot3(v, ahead), dot3(v, plane.node));
}

} // namespace

bool orbit_plane(const double pos[3], const double vel[3], OrbitPlane *plane)
{
    double h[3];
    cross(pos, vel, h);
    const double across = std::sqrt(h[0] * h[0] + h[1] * h[1]);
    const double w = std::sqrt(dot3(h, h));
    if (!spans_plane(std::sqrt(dot3(pos, pos)), std::sqrt(dot3(vel, vel)), w))
        return false;
    plane->w = w;
    for (int i = 0; i < 3; ++i)
        plane->pole[i] = h[i] / w;
    plane->equatorial = !(across > 0.0);
    plane->node[0] = plane->equatorial ? 1.0 : -h[1] / across;
    plane->node[1] = plane->equatorial ? 0.0 : h[0] / across;
    plane->node[2] = 0.0;
    plane->node_angle = plane->equatorial ? 0.0 : arc_tangent(h[0], -h[1]);
    plane->inclination = arc_tangent(across, h[2]);
    return true;
}

OrbitAngle angle_on_orbit(const OrbitPlane &plane, const double pos[3], const double vel[3], const double acc[3])
{
    OrbitAngle out = {angle_in_plane(plane, pos), 0.0, 0.0, 0.0};
    const double r2 = dot3(pos, pos);
    out.rate = plane.w / r2;
    out.rate_of_rate = -2.0 * out.rate * dot3(pos, vel) / r2;
    if (acc == nullptr)
        return out;
    // r sin u = z / sin i; the pole's z is cos i, its other two parts make sin i
    const double sin2 = plane.pole[0] * plane.pole[0] + plane.pole[1] * plane.pole[1];
    if (!plane.equatorial && sin2 > 0.0)
        out.node_rate = pos[2] * dot3(acc, plane.pole) / (plane.w * sin2);
    double dh[3];
    cross(pos, acc, dh);
    // The change of the node's own rate, which takes the derivative of acc, is left out: up to 5e-9 rad/s2.
    out.rate_of_rate += dot3(dh, plane.pole) / r2;
    out.rate -= out.node_rate * plane.pole[2];
    return out;
}

SunFromOrbit sun_from_orbit(const OrbitPlane &plane, const double pos[3], const double sun[3])
{
    const double above = dot3(sun, plane.pole);
    double across[3];
    cross(plane.pole, sun, across);
    return {arc_tangent(above, std::sqrt(dot3(across, across))),
            angle_in_plane(plane, pos) - angle_in_plane(plane, sun)};
}
