#include "orbits/local_frames.h"

#include "numbers/numbers.h"
#include "orbits/local_axes.h"
#include "orbits/plane.h"

#include <cmath>

bool local_orbital_frame(long kind, const double pos[3], const double vel[3], const double acc[3], double r[9],
                         double dr[9])
{
    double h[3];
    cross(pos, vel, h);
    return spans_plane(std::sqrt(dot3(pos, pos)), std::sqrt(dot3(vel, vel)), std::sqrt(dot3(h, h)))
           && local_axes(kind, pos, vel, acc, r, dr) > 0.0;
}
