#include "orbits/local_frames.h"

#include "kl_lib.h"
#include "numbers/numbers.h"
#include "orbits/plane.h"

#include <cmath>

namespace {

// A direction with its derivative.
struct Turning {
    double u[3], du[3];
};

// Of a and its derivative; false for no direction.
bool direction(const double a[3], const double da[3], Turning *out)
{
    const double length = std::sqrt(dot3(a, a));
    if (!(length > 0.0))
        return false;
    for (int i = 0; i < 3; ++i)
        out->u[i] = a[i] / length;
    const double along = dot3(out->u, da);
    for (int i = 0; i < 3; ++i)
        out->du[i] = (da[i] - along * out->u[i]) / length;
    return true;
}

Turning cross_of(const Turning &a, const Turning &b)
{
    Turning out;
    cross(a.u, b.u, out.u);
    double first[3], second[3];
    cross(a.du, b.u, first);
    cross(a.u, b.du, second);
    for (int i = 0; i < 3; ++i)
        out.du[i] = first[i] + second[i];
    return out;
}

Turning opposite(const Turning &a)
{
    Turning out;
    for (int i = 0; i < 3; ++i) {
        out.u[i] = 0.0 - a.u[i];
        out.du[i] = 0.0 - a.du[i];
    }
    return out;
}

} // namespace

bool local_orbital_frame(long kind, const double pos[3], const double vel[3], const double acc[3], double r[9],
                         double dr[9])
{
    double h[3], dh[3];
    cross(pos, vel, h);
    cross(pos, acc, dh);
    Turning q, w, t;
    if (!spans_plane(std::sqrt(dot3(pos, pos)), std::sqrt(dot3(vel, vel)), std::sqrt(dot3(h, h))))
        return false;
    if (!direction(h, dh, &w) || !direction(pos, vel, &q) || !direction(vel, acc, &t))
        return false;
    const Turning s = cross_of(w, q);
    const Turning n = cross_of(w, t); // inward
    Turning axes[3];
    switch (kind) {
    case KL_ORBITAL_QSW:
        axes[0] = q, axes[1] = s, axes[2] = w;
        break;
    case KL_ORBITAL_LVLH:
        axes[0] = s, axes[1] = opposite(w), axes[2] = opposite(q);
        break;
    case KL_ORBITAL_TNW:
        axes[0] = t, axes[1] = n, axes[2] = w;
        break;
    case KL_ORBITAL_NTW:
        axes[0] = opposite(n), axes[1] = t, axes[2] = w;
        break;
    default:
        axes[0] = t, axes[1] = w, axes[2] = cross_of(t, w);
    }
    for (int row = 0; row < 3; ++row)
        for (int i = 0; i < 3; ++i) {
            r[3 * row + i] = axes[row].u[i];
            dr[3 * row + i] = axes[row].du[i];
        }
    return true;
}
