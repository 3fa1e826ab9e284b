// Precession between two epochs, rotations from Euler angles, correction of the equinox.
#include "bodies/bodies.h"
#include "numbers/sin_cos.h"

namespace {

// First epoch of the correction: B1950.0 as a Julian epoch.
constexpr double kB1950 = 1949.9997904423;

// First of the two rows that a turn of the axes changes, in cyclic order; -1 for a letter that names no axis.
int first_row(char axis)
{
    switch (axis) {
    case 'X':
    case 'x':
    case '1':
        return 1;
    case 'Y':
    case 'y':
    case '2':
        return 2;
    case 'Z':
    case 'z':
    case '3':
        return 0;
    default:
        return -1;
    }
}

} // namespace

void KL_SlaDeuler(const char *order, double phi, double theta, double psi, double rmat[3][3])
{
    const double angles[3] = {phi, theta, psi};
    double s[3], c[3];
    sin_cos(angles, s, c);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            rmat[i][j] = i == j ? 1.0 : 0.0;
    for (int n = 0; n < 3 && order != nullptr; ++n) {
        const int i = first_row(order[n]);
        if (i < 0) // the end of the text names no axis either
            break;
        const int k = i == 2 ? 0 : i + 1;
        for (int j = 0; j < 3; ++j) {
            const double x = rmat[i][j];
            const double y = rmat[k][j];
            rmat[i][j] = c[n] * x + s[n] * y + 0.0; // no negative zeros
            rmat[k][j] = c[n] * y - s[n] * x + 0.0;
        }
    }
}

// J. H. Lieske, Astron. Astrophys. 73, 282 (1979).
void KL_SlaPrec(double ep0, double ep1, double rmatp[3][3])
{
    const double t0 = (ep0 - 2000.0) / 100.0; // centuries
    const double t = (ep1 - ep0) / 100.0;
    const double k = t * 0.484813681109535994e-5; // arcsec to rad
    const double w = 2306.2181 + (1.39656 - 0.000139 * t0) * t0;
    const double zeta = (w + ((0.30188 - 0.000344 * t0) + 0.017998 * t) * t) * k;
    const double z = (w + ((1.09468 + 0.000066 * t0) + 0.018203 * t) * t) * k;
    const double theta =
        ((2004.3109 + (-0.85330 - 0.000217 * t0) * t0) + ((-0.42665 - 0.000217 * t0) - 0.041833 * t) * t) * k;
    KL_SlaDeuler("ZYZ", -zeta, theta, -z, rmatp);
}

double equinox_correction(double epoch)
{
    return (0.035 + 0.00085 * (epoch - kB1950)) * kSecondOfTime;
}
