// Precession between two epochs, rotations from Euler angles, correction of the equinox.
#include "celestial/celestial.h"
#include "math/sin_cos.h"

namespace {

// First epoch of the correction: B1950.0 as a Julian epoch.
constexpr double kB1950 = 1949.9997904423;

struct Matrix {
    double m[3][3];
};

// Rotation of the axes about one of them, from sine and cosine of the angle; false for a letter that names none.
bool axis_rotation(char axis, double s, double c, Matrix *rotation)
{
    switch (axis) {
    case 'X':
    case 'x':
    case '1':
        *rotation = {{{1.0, 0.0, 0.0}, {0.0, c, s}, {0.0, -s, c}}};
        return true;
    case 'Y':
    case 'y':
    case '2':
        *rotation = {{{c, 0.0, -s}, {0.0, 1.0, 0.0}, {s, 0.0, c}}};
        return true;
    case 'Z':
    case 'z':
    case '3':
        *rotation = {{{c, s, 0.0}, {-s, c, 0.0}, {0.0, 0.0, 1.0}}};
        return true;
    default:
        return false;
    }
}

} // namespace

void KL_SlaDeuler(const char *order, double phi, double theta, double psi, double rmat[3][3])
{
    const double angles[3] = {phi, theta, psi};
    double s[3], c[3];
    sin_cos(angles, s, c);
    Matrix result = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
    for (int n = 0; n < 3 && order != nullptr; ++n) {
        Matrix axis;
        if (!axis_rotation(order[n], s[n], c[n], &axis)) // the end of the text names no axis either
            break;
        Matrix product;
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) {
                double sum = 0.0;
                for (int k = 0; k < 3; ++k)
                    sum += axis.m[i][k] * result.m[k][j];
                product.m[i][j] = sum;
            }
        result = product;
    }
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            rmat[i][j] = result.m[i][j];
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
