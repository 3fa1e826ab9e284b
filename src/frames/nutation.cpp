// Nutation: the nine largest terms of the series, with their derivatives.
#include "frames/frames.h"
#include "numbers/elementary.h"

#include <cstdint>

namespace {

constexpr double kSecondsPerDay = 86400.0;

// Fundamental arguments, rad: c0 + c1 t + c2 t^2, t days from J2000.0.
struct Argument {
    double c0, c1, c2;
};
enum { kF, kD, kOmega, kLp, kL, kArguments };
constexpr Argument kArgument[kArguments] = {
    {1.627901934, 0.2308957196, -4.817699e-14},    {5.198469514, 0.2127687104, -2.504244e-14},
    {2.182438624, -0.0009242175478, 2.709206e-14}, {6.240035939, 0.01720197005, -2.096864e-15},
    {2.355548394, 0.2280271437, 1.13783e-13},
};

// Sine of dpsi and cosine of deps, rad; multiples of the arguments.
struct Term {
    double dpsi, deps;
    std::int8_t F, D, Omega, lp, l;
};
enum { kO, k2F2D2O, k2F2O, k2O, kLpTerm, kLTerm, kLp2F2D2O, k2FO, kL2F2O, kTerms };
constexpr Term kTerm[kTerms] = {
    {-8.338601e-5, 4.461498e-5, 0, 0, 1, 0, 0},  {-6.393238e-6, 2.780891e-6, 2, -2, 2, 0, 0},
    {-1.102466e-6, 4.73663e-7, 2, 0, 2, 0, 0},   {9.996858e-7, -4.339082e-7, 0, 0, 2, 0, 0},
    {6.913443e-7, 2.617994e-8, 0, 0, 0, 1, 0},   {3.451873e-7, -3.393696e-9, 0, 0, 0, 0, 1},
    {-2.506487e-7, 1.085983e-7, 2, -2, 2, 1, 0}, {-1.871381e-7, 9.696274e-8, 2, 0, 1, 0, 0},
    {-1.459289e-7, 6.254096e-8, 2, 0, 2, 0, 1},
};

// Rate of the phase of a term, rad/s. The quadratic part of the arguments is left out: it changes the rates of dpsi and
// deps by less than 3e-18 rad/s.
constexpr double rate_of(const Term &term)
{
    return (term.F * kArgument[kF].c1 + term.D * kArgument[kD].c1 + term.Omega * kArgument[kOmega].c1
            + term.lp * kArgument[kLp].c1 + term.l * kArgument[kL].c1)
           / kSecondsPerDay;
}

struct Rates { // dpsi w, dpsi w^2, deps w, deps w^2 of each term
    double dpsi1[kTerms], dpsi2[kTerms], deps1[kTerms], deps2[kTerms];
};

constexpr Rates rates_of_terms()
{
    Rates rates{};
    for (int i = 0; i < kTerms; ++i) {
        const double w = rate_of(kTerm[i]);
        rates.dpsi1[i] = kTerm[i].dpsi * w;
        rates.dpsi2[i] = kTerm[i].dpsi * w * w;
        rates.deps1[i] = kTerm[i].deps * w;
        rates.deps2[i] = kTerm[i].deps * w * w;
    }
    return rates;
}
constexpr Rates kRates = rates_of_terms();

struct Phase { // of a term: cosine and sine
    double c, s;
};

Phase operator*(const Phase &a, const Phase &b)
{
    return {a.c * b.c - a.s * b.s, a.s * b.c + a.c * b.s};
}

Phase conjugate(const Phase &a)
{
    return {a.c, -a.s};
}

} // namespace

void KL_Sim_Nut_Term(double days, kl_nutation *nutation)
{
    const double t = days - KL_J2000_DAYS;
    double angle[kArguments], sine[kArguments], cosine[kArguments];
    for (int i = 0; i < kArguments; ++i)
        angle[i] = kArgument[i].c0 + (kArgument[i].c1 + kArgument[i].c2 * t) * t;
    sin_cos(angle, sine, cosine); // takes whole turns off
    const auto argument = [&](int i) { return Phase{cosine[i], sine[i]}; };
    // The arguments of the terms by addition of angles.
    const Phase f2 = argument(kF) * argument(kF);
    const Phase d2 = argument(kD) * argument(kD);
    Phase phase[kTerms];
    phase[kO] = argument(kOmega);
    phase[k2O] = phase[kO] * phase[kO];
    phase[k2FO] = f2 * phase[kO];
    phase[k2F2O] = f2 * phase[k2O];
    phase[k2F2D2O] = phase[k2F2O] * conjugate(d2);
    phase[kLpTerm] = argument(kLp);
    phase[kLTerm] = argument(kL);
    phase[kLp2F2D2O] = argument(kLp) * phase[k2F2D2O];
    phase[kL2F2O] = argument(kL) * phase[k2F2O];

    *nutation = {};
    nutation->obliquity = KL_MEAN_OBLIQUITY_DEG * KL_RAD_PER_DEG;
    for (int i = 0; i < kTerms; ++i) {
        const Term &term = kTerm[i];
        nutation->dpsi[0] += term.dpsi * phase[i].s;
        nutation->dpsi[1] += kRates.dpsi1[i] * phase[i].c;
        nutation->dpsi[2] -= kRates.dpsi2[i] * phase[i].s;
        nutation->deps[0] += term.deps * phase[i].c;
        nutation->deps[1] -= kRates.deps1[i] * phase[i].s;
        nutation->deps[2] -= kRates.deps2[i] * phase[i].c;
    }
}

// N = Rx(-(eps0 + deps)) Rz(-dpsi) Rx(eps0), the mean obliquity fixed in both factors
Turns nutation_turns(const kl_nutation &n)
{
    return turns_by({{0, n.obliquity, 0.0, 0.0},
                     {2, -n.dpsi[0], -n.dpsi[1], -n.dpsi[2]},
                     {0, -(n.obliquity + n.deps[0]), -n.deps[1], -n.deps[2]}});
}

// Without the complementary terms, by the cosine of the mean obliquity.
void equation_of_equinoxes(const kl_nutation &n, double q[3])
{
    const double c = sine_cosine(n.obliquity).c;
    for (int i = 0; i < 3; ++i)
        q[i] = n.dpsi[i] * c;
}
