// Precession: J. H. Lieske, Astron. Astrophys. 73, 282 (1979), IAU 1976, angles in rounded degrees.
#include "frames/frames.h"

namespace {

constexpr double kDegPerCentury = KL_RAD_PER_DEG / KL_SECONDS_PER_CENTURY;        // to rad/s
constexpr double kDegPerCenturySquared = kDegPerCentury / KL_SECONDS_PER_CENTURY; // to rad/s2

// c1 T + c2 T^2 + c3 T^3, degrees, T in Julian centuries.
struct Polynomial {
    double c1, c2, c3;

    void evaluate(double T, double out[3]) const
    {
        out[0] = (c1 + (c2 + c3 * T) * T) * T * KL_RAD_PER_DEG;
        out[1] = (c1 + (2.0 * c2 + 3.0 * c3 * T) * T) * kDegPerCentury;
        out[2] = (2.0 * c2 + 6.0 * c3 * T) * kDegPerCenturySquared;
    }
};

constexpr Polynomial kZeta = {0.6406161, 0.0000839, 0.0000050};
constexpr Polynomial kZ = {0.6406161, 0.0003041, 0.0000051};
constexpr Polynomial kTheta = {0.5567530, -0.0001185, -0.0000116};

} // namespace

void KL_Precession(double days, kl_precession *angles)
{
    const double T = (days - KL_J2000_DAYS) / 36525.0;
    kZeta.evaluate(T, angles->zeta);
    kZ.evaluate(T, angles->z);
    kTheta.evaluate(T, angles->theta);
}

// P = Rz(-pi/2 - z) Rx(theta) Rz(pi/2 - zeta) = Rz(-z) Ry(theta) Rz(-zeta)
Turns precession_turns(const kl_precession &p)
{
    return turns_by({{2, -p.zeta[0], -p.zeta[1], -p.zeta[2]},
                     {1, p.theta[0], p.theta[1], p.theta[2]},
                     {2, -p.z[0], -p.z[1], -p.z[2]}});
}
