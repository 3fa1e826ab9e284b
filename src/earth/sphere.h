// The sphere of directions: latitude and longitude, and the axes there. Declination and right ascension, elevation and
// azimuth are such too.
#ifndef KL_SRC_EARTH_SPHERE_H
#define KL_SRC_EARTH_SPHERE_H

#include "numbers/sin_cos.h"

inline namespace KL_SET {

// The axes at a point: north (-s cl, -s sl, c), east (-sl, cl, 0), up (c cl, c sl, s). From degrees by sines that are
// exact at whole quarters of a turn, a pole is a pole.
template <class T>
struct LocalAxes {
    T s, c;   // of the latitude
    T sl, cl; // of the longitude
};

template <class T>
LocalAxes<T> local_axes(T lat_deg, T lon_deg)
{
    const T degrees[2] = {lat_deg, lon_deg};
    T s[2], c[2];
    sin_cos_degrees(degrees, s, c);
    return {s[0], c[0], s[1], c[1]};
}

} // namespace KL_SET

#endif
