// The plane of a state.
#ifndef KL_SRC_ORBITS_PLANE_H
#define KL_SRC_ORBITS_PLANE_H

// Do a position and a velocity, of these lengths and this angular momentum, span a plane? Vectors along one line leave
// up to 2^-52 of the product of their lengths by rounding: a plane made of that would be noise.
inline bool spans_plane(double r, double v, double angular_momentum)
{
    return angular_momentum > 0x1p-51 * (r * v);
}

#endif
