// Precession and rotations for the family.
#include "ephemerides/equinox.h"

void KL_SlaDeuler(const char *order, double phi, double theta, double psi, double rmat[3][3])
{
    euler_rotation(order, phi, theta, psi, rmat);
}

void KL_SlaPrec(double ep0, double ep1, double rmatp[3][3])
{
    precession_between(ep0, ep1, rmatp);
}
