// B1950 and galactic frames.
#include "frames/star_frames.h"

namespace {

// FK4 to FK5: E. M. Standish, Astron. Astrophys. 115, 20 (1982). The 6x6 matrix of position and proper motion turns
// the frame and carries a star along from 1950 to 2000; a state at a date needs its left half alone. The upper block is
// the frame's orientation at J2000.0, the lower one its slow turn in arc seconds a century.
constexpr double kOrientation[9] = {
    0.999925678219,   -0.0111820580744,   -0.00485794368023,  //
    0.0111820581287,  0.999937478465,     -2.71507426487e-05, //
    0.00485794355531, -2.71730844707e-05, 0.999988199754,
};
constexpr double kSpin[9] = {
    // arcsec a Julian century
    -0.000526639003437, -0.2371432946,     0.437335303038,   //
    0.237157969014,     -0.00265181082752, 0.00488930752983, //
    -0.437369076416,    -0.00115125257438, 0.00212517180083,
};

} // namespace

// Equatorial to galactic: pole and node of 1958, A. Blaauw et al., Mon. Not. R. Astron. Soc. 121, 123 (1960), in B1950
// and carried to J2000.0; and back with the transpose in ten decimals. On purpose: the way back is not the transpose of
// the way out, from which it differs by up to 5e-11. There and back is the identity to rounding; the lengths of one way
// alone are true to 1e-10.
const MatrixRecord kB1950ToGalactic = {0,
                                       {-0.0669887394213205, -0.872755765846805, -0.483538914588326, //
                                        0.492728466051805, -0.450346957970732, 0.744584633307144,    //
                                        -0.867600811102905, -0.188374601712868, 0.460199784781133},
                                       {},
                                       {}};
const MatrixRecord kGalacticToB1950 = {0,
                                       {-0.0669887394, 0.4927284661, -0.8676008112, //
                                        -0.8727557659, -0.450346958, -0.1883746017, //
                                        -0.4835389146, 0.7445846333, 0.4601997848},
                                       {},
                                       {}};
const MatrixRecord kJ2000ToGalactic = {0,
                                       {-0.0548777621356429, -0.873436959075531, -0.483835002565929, //
                                        0.494108321449081, -0.444830860997199, 0.746982243295672,    //
                                        -0.867666639917718, -0.198074187137543, 0.455983791895115},
                                       {},
                                       {}};
const MatrixRecord kGalacticToJ2000 = {0,
                                       {-0.0548777621, 0.4941083214, -0.8676666398, //
                                        -0.8734369591, -0.444830861, -0.1980741871, //
                                        -0.4838350026, 0.7469822433, 0.4559837919},
                                       {},
                                       {}};

MatrixRecord b1950_to_j2000(double days)
{
    const double T = (days - KL_J2000_DAYS) / KL_DAYS_PER_CENTURY;
    MatrixRecord m = {2, {}, {}, {}};
    for (int i = 0; i < 9; ++i) {
        const double per_century = kSpin[i] * KL_RAD_PER_ARCSEC;
        m.r[i] = kOrientation[i] + T * per_century;
        m.dr[i] = per_century / KL_SECONDS_PER_CENTURY;
    }
    return m;
}

// S = R^-1, dS = -S dR S, ddS = 2 S dR S dR S
MatrixRecord j2000_to_b1950(double days)
{
    const MatrixRecord forward = b1950_to_j2000(days);
    MatrixRecord m = {2, {}, {}, {}};
    double turn_rate[9]; // S dR
    KL_inverse3(forward.r, m.r);
    KL_mult_mm(m.r, forward.dr, turn_rate);
    KL_mult_mm(turn_rate, m.r, m.dr);
    KL_mult_mm(turn_rate, m.dr, m.ddr);
    KL_mult_em(m.dr, m.dr, -1.0);
    KL_mult_em(m.ddr, m.ddr, 2.0);
    return m;
}
