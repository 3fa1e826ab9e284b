#include "geometry/eclipse.h"

#include "kl_lib.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSunRadius = 695700e3; // m: IAU 2015 resolution B3, nominal

double tangent(double angle)
{
    const SineCosine at = sine_cosine(angle);
    return at.s / at.c;
}

// Area of a disc beyond a chord, over the square of its radius; half_angle is seen from its centre.
double segment(double half_angle)
{
    const SineCosine at = sine_cosine(half_angle);
    return half_angle - at.s * at.c;
}

// The part of the Sun's disc that the Earth leaves. The limb is a circle of radius tan(psi) in the plane that touches
// the sphere of directions at the limb, where the Sun is; `over` is theta - psi.
double visible_part(double over, double psi, double sun)
{
    constexpr double kStraight = 1.55; // rad: from here on a limb with the radius 50
    const double R = psi > kStraight ? 50.0 : tangent(psi);
    const double c = over + R;
    const double x = (over * (over + 2.0 * R) + sun * sun) / (2.0 * c); // from the Sun to the common chord
    const double half_chord = std::sqrt(std::max(0.0, (sun - x) * (sun + x)));
    const double hidden =
        sun * sun * segment(arc_tangent(half_chord, x)) + R * R * segment(arc_tangent(half_chord, c - x));
    return std::clamp(1.0 - hidden / (KL_PI * sun * sun), 0.0, 1.0);
}

} // namespace

bool is_inside(const Ellipsoid &ellipsoid, const double pos[3], double margin)
{
    const double radius = ellipsoid.a + margin;
    const double p[3] = {pos[0], pos[1], pos[2] / ellipsoid.k};
    return !(dot3(p, p) - radius * radius >= 0.0);
}

Shadow find_shadow(const Ellipsoid &ellipsoid, const double pos[3], const double sun[3], double margin)
{
    const double radius = ellipsoid.a + margin;
    const double p[3] = {pos[0], pos[1], pos[2] / ellipsoid.k};
    const double pp = dot3(p, p);
    const double above = pp - radius * radius;

    // From the satellite: e1 to the centre of the Earth, s to the Sun, e2 across in their plane.
    const double r = std::sqrt(dot3(pos, pos));
    const double e1[3] = {-pos[0] / r, -pos[1] / r, -pos[2] / r};
    const bool far = std::fabs(sun[0]) > 1e100 || std::fabs(sun[1]) > 1e100 || std::fabs(sun[2]) > 1e100;
    const double scale = far ? 0x1p-700 : 1.0; // of the way to a Sun whose squares would leave the range
    double s[3] = {scale * sun[0] - scale * pos[0], scale * sun[1] - scale * pos[1], scale * sun[2] - scale * pos[2]};
    const double distance = std::sqrt(dot3(s, s));
    for (double &component : s)
        component /= distance;
    const double along = dot3(s, e1);
    double e2[3] = {s[0] - along * e1[0], s[1] - along * e1[1], s[2] - along * e1[2]};
    double across = std::sqrt(dot3(e2, e2));
    const double theta = arc_tangent(across, along);
    if (across == 0.0) { // in line: any direction across
        const double other[3] = {std::fabs(e1[0]) < 0.5 ? 1.0 : 0.0, std::fabs(e1[0]) < 0.5 ? 0.0 : 1.0, 0.0};
        cross(e1, other, e2);
        across = std::sqrt(dot3(e2, e2));
    }

    // The angle from e1 to the limb. With z stretched by a/b the Earth is a sphere and lines and tangents stay what
    // they are, so that the flattening is exact: tan(psi) is a root of q2 t^2 + 2 q1 t + q0, written without its
    // differences.
    const double B[3] = {e2[0] / across, e2[1] / across, e2[2] / across / ellipsoid.k};
    double normal[3];
    cross(p, B, normal);
    const double psi = arc_tangent(radius * pp / r, std::sqrt(above * dot3(normal, normal)) + radius * dot3(p, B));

    const double sun_radius = arc_sine(scale * kSunRadius / distance);
    const double over = theta - psi;
    const double depth = over / sun_radius;
    if (depth >= 1.0)
        return {KL_SUNLIGHT, 1.0, depth};
    if (depth <= -1.0 && psi >= sun_radius)
        return {KL_UMBRA, 0.0, depth};
    if (psi < sun_radius && theta <= sun_radius - psi)
        return {KL_ANNULAR, 1.0 - (psi / sun_radius) * (psi / sun_radius), depth};
    return {KL_PENUMBRA, visible_part(over, psi, sun_radius), depth};
}
