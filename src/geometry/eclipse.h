// How much of the Sun the Earth hides from a satellite: one, or a pack of them.
#ifndef KL_SRC_GEOMETRY_ECLIPSE_H
#define KL_SRC_GEOMETRY_ECLIPSE_H

#include "earth/ellipsoid.h"
#include "kl/geometry.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

inline namespace KL_SET {

constexpr double kFarthestSatellite = 1e10; // m from the centre of the Earth
constexpr double kNearestSun = 1e11;        // m
constexpr double kLowestMargin = -1e4;      // m
constexpr double kHighestMargin = 2e5;
constexpr double kSunRadius = 695700e3; // m: IAU 2015 resolution B3, nominal

template <class T>
struct ShadowOf {
    T state;    // KL_SUNLIGHT, ...
    T fraction; // visible part of the Sun's disc
    T depth;    // from the Sun's centre to the limb of the Earth, in radii of the Sun; negative behind the limb
};
using Shadow = ShadowOf<double>;

// Space stretched by 1/k along z, where the ellipsoid is a sphere: the square of the distance from its centre, less
// that of the radius.
template <class T>
struct Stretched {
    T square, above;
};
template <class T>
Stretched<T> stretched(const Ellipsoid &ellipsoid, const T *pos, const T &radius)
{
    const T z = pos[2] / ellipsoid.k;
    const T square = pos[0] * pos[0] + pos[1] * pos[1] + z * z;
    return {square, square - radius * radius};
}

// The Earth's limb and the Sun from the satellite, in the plane of the three.
template <class T>
struct LimbView {
    T over;          // rad from the limb to the Sun's centre
    T sun;           // rad, radius of the Sun
    T across, along; // sides of psi, the angle from the Earth's centre to the limb
};

// The plane of satellite, Sun and centre: what stands at right angles to pos and to_sun.
template <class T>
struct SightPlane {
    T normal[3], length;
    T product; // length of the vector product of both: that of the normal, but for satellites in line with the two
};

// `to_sun` is the way from the satellite, m, times `scale`; per_k2 that of stretch_of().
//
// With z stretched the Earth is a sphere and lines and tangents stay what they are, so that the flattening is exact:
// tan(psi) is a root of q2 t^2 + 2 q1 t + q0, written without its differences, and so is theta - psi, with theta the
// angle from the centre to the Sun.
template <class T>
LimbView<T> limb_view(const Ellipsoid &ellipsoid, double per_k2, const T *pos, const Stretched<T> &at, const T *to_sun,
                      const SightPlane<T> &plane, const T &radius, const T &scale)
{
    const T *normal = plane.normal;
    const double stretch = ellipsoid.e2 * per_k2; // 1/k^2 - 1
    const T flat = normal[0] * normal[0] + normal[1] * normal[1];
    const T upright = normal[2] * normal[2];
    const T tilt = normal[0] * pos[1] - normal[1] * pos[0]; // z of what stands at right angles to pos in the plane
    LimbView<T> out;
    out.across = radius * at.square * plane.length;
    out.along = sqrt(at.above * (flat * per_k2 + upright)) * dot3(pos, pos) + radius * (stretch * pos[2]) * tilt;
    const T toward = 0.0 - dot3(to_sun, pos);
    out.over = arc_tangent(T(plane.product * out.along - toward * out.across),
                           T(toward * out.along + plane.product * out.across));
    // The arc sine; what follows is below 4e-19 of it, since the Sun is not nearer than 9e10 m.
    const T x = scale * kSunRadius / sqrt(dot3(to_sun, to_sun));
    const T xx = x * x;
    out.sun = x + x * (xx * (1.0 / 6.0 + xx * (3.0 / 40.0 + xx * (15.0 / 336.0))));
    return out;
}

// Of two directions with a side in common; for one number both in a pack.
template <class T>
void arc_tangents(const T &across, const T &along, const T &other_along, T &angle, T &other_angle)
{
    if constexpr (lanes_of<T> == 1) {
        const double both[2] = {along, other_along};
        const Pack<2> angles = arc_tangent(Pack<2>(across), load<Pack<2>>(both));
        angle = angles[0];
        other_angle = angles[1];
    } else {
        angle = arc_tangent(across, along);
        other_angle = arc_tangent(across, other_along);
    }
}

// The part of the Sun's disc that the Earth leaves. The limb is a circle of radius tan(psi) in the plane that touches
// the sphere of directions at the limb, where the Sun is.
template <class T>
T visible_part(const LimbView<T> &v)
{
    constexpr double kStraight = 0.020799325362006970; // cotangent of 1.55: from here on a limb with the radius 50
    const auto bent = v.along > kStraight * v.across;
    const T R = select(bent, v.across / select(bent, v.along, T(1.0)), T(50.0));
    const T c = v.over + R;
    const T ss = v.sun * v.sun;
    const T x = (v.over * (v.over + 2.0 * R) + ss) / (2.0 * c); // from the Sun to the common chord
    const T half_chord = sqrt(greater(T(0.0), T((v.sun - x) * (v.sun + x))));
    // Each disc beyond the chord: its sector without the triangle.
    const T y = c - x;
    T of_sun;
    T of_earth;
    arc_tangents(half_chord, x, y, of_sun, of_earth);
    const T hidden = (ss * of_sun - half_chord * x) + (R * R * of_earth - half_chord * y);
    return greater(T(0.0), lesser(T(1.0), T(1.0 - hidden / (KL_PI * ss))));
}

template <class T>
ShadowOf<T> shadow_of(const LimbView<T> &v)
{
    const T depth = v.over / v.sun;
    const auto lit = depth >= 1.0;
    const auto dark = depth <= -1.0;
    ShadowOf<T> out = {select(lit, T(double{KL_SUNLIGHT}), T(double{KL_UMBRA})), select(lit, T(1.0), T(0.0)), depth};
    if (all(lit | dark))
        return out;
    const auto partial = !(lit | dark);
    out.state = select(partial, T(double{KL_PENUMBRA}), out.state);
    out.fraction = select(partial, visible_part(v), out.fraction);
    // The Earth within the Sun's disc: beyond 1.3e9 m.
    constexpr double kSmall = 0.01; // rad, above the radius of the Sun
    const auto small = partial & (v.across < kSmall * v.along);
    if (any(small)) {
        const T psi = arc_tangent(v.across, v.along);
        const T share = psi / v.sun;
        const auto annular = small & (psi < v.sun) & (v.over + 2.0 * psi <= v.sun);
        out.state = select(annular, T(double{KL_ANNULAR}), out.state);
        out.fraction = select(annular, T(1.0 - share * share), out.fraction);
    }
    return out;
}

} // namespace KL_SET

// Positions from the centre of the Earth, m, in axes whose z is the Earth's; `margin` raises the ellipsoid. The bounds
// above are the caller's to check.
struct Outlook {
    Ellipsoid ellipsoid;
    double radius; // m
    Stretched<double> at;

    Outlook(const EarthModel &earth, const double pos[3], double margin)
        : ellipsoid(ellipsoid_of(earth)), radius(ellipsoid.a + margin), at(stretched(ellipsoid, pos, radius))
    {
    }
    [[nodiscard]] bool is_inside() const { return !(at.above >= 0.0); }
};

// Of a position that is not inside.
Shadow find_shadow(const Outlook &outlook, const double pos[3], const double sun[3]);

#endif
