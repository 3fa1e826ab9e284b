// Nutation: the nine largest terms of the IAU 1980 series (P. K. Seidelmann, Celest. Mech. 27, 79 (1982)), with their
// derivatives.
#ifndef KL_SRC_FRAMES_NUTATION_H
#define KL_SRC_FRAMES_NUTATION_H

#include "frames/frames.h"
#include "numbers/elementary.h"

#include <cstdint>

inline namespace KL_SET {
namespace nutation_series {

// Fundamental arguments, rad: c0 + c1 t + c2 t^2, t days from J2000.0.
struct NutationArgument {
    double c0, c1, c2;
};
enum NutationArguments { kF, kD, kOmega, kLp, kL, kArguments };
constexpr NutationArgument kArgument[kArguments] = {
    {1.627901934, 0.2308957196, -4.817699e-14},    {5.198469514, 0.2127687104, -2.504244e-14},
    {2.182438624, -0.0009242175478, 2.709206e-14}, {6.240035939, 0.01720197005, -2.096864e-15},
    {2.355548394, 0.2280271437, 1.13783e-13},
};

// Sine of dpsi and cosine of deps, rad; multiples of the arguments.
struct NutationTerm {
    double dpsi, deps;
    std::int8_t F, D, Omega, lp, l;
};
enum NutationTerms { kO, k2F2D2O, k2F2O, k2O, kLpTerm, kLTerm, kLp2F2D2O, k2FO, kL2F2O, kTerms };
constexpr NutationTerm kTerm[kTerms] = {
    {-8.338601e-5, 4.461498e-5, 0, 0, 1, 0, 0},  {-6.393238e-6, 2.780891e-6, 2, -2, 2, 0, 0},
    {-1.102466e-6, 4.73663e-7, 2, 0, 2, 0, 0},   {9.996858e-7, -4.339082e-7, 0, 0, 2, 0, 0},
    {6.913443e-7, 2.617994e-8, 0, 0, 0, 1, 0},   {3.451873e-7, -3.393696e-9, 0, 0, 0, 0, 1},
    {-2.506487e-7, 1.085983e-7, 2, -2, 2, 1, 0}, {-1.871381e-7, 9.696274e-8, 2, 0, 1, 0, 0},
    {-1.459289e-7, 6.254096e-8, 2, 0, 2, 0, 1},
};

// Rate of the phase of a term, rad/s. The quadratic part of the arguments is left out: it changes the rates of dpsi and
// deps by less than 3e-18 rad/s.
constexpr double rate_of(const NutationTerm &term)
{
    return (term.F * kArgument[kF].c1 + term.D * kArgument[kD].c1 + term.Omega * kArgument[kOmega].c1
            + term.lp * kArgument[kLp].c1 + term.l * kArgument[kL].c1)
           / KL_SECONDS_PER_DAY;
}

struct NutationRates { // dpsi w, dpsi w^2, deps w, deps w^2 of each term
    double dpsi1[kTerms], dpsi2[kTerms], deps1[kTerms], deps2[kTerms];
};

constexpr NutationRates rates_of_terms()
{
    NutationRates rates{};
    for (int i = 0; i < kTerms; ++i) {
        const double w = rate_of(kTerm[i]);
        rates.dpsi1[i] = kTerm[i].dpsi * w;
        rates.dpsi2[i] = kTerm[i].dpsi * w * w;
        rates.deps1[i] = kTerm[i].deps * w;
        rates.deps2[i] = kTerm[i].deps * w * w;
    }
    return rates;
}
constexpr NutationRates kRates = rates_of_terms();

template <class T>
struct Phase { // of a term: cosine and sine
    T c, s;
};

template <class T>
Phase<T> operator*(const Phase<T> &a, const Phase<T> &b)
{
    return {a.c * b.c - a.s * b.s, a.s * b.c + a.c * b.s};
}

template <class T>
Phase<T> conjugate(const Phase<T> &a)
{
    return {a.c, -a.s};
}

} // namespace nutation_series

// rad, rad/s, rad/s2
template <class T>
struct NutationOf {
    T dpsi[3], deps[3];
    T obliquity;
};

template <class T>
NutationOf<T> nutation_at(T days)
{
    using namespace nutation_series;
    const T t = days - KL_J2000_DAYS;
    T angle[kArguments], sine[kArguments], cosine[kArguments];
    for (int i = 0; i < kArguments; ++i)
        angle[i] = kArgument[i].c0 + (kArgument[i].c1 + kArgument[i].c2 * t) * t;
    sin_cos(angle, sine, cosine); // takes whole turns off
    const auto argument = [&](int i) { return Phase<T>{cosine[i], sine[i]}; };
    // The arguments of the terms by addition of angles.
    const Phase<T> f2 = argument(kF) * argument(kF);
    const Phase<T> d2 = argument(kD) * argument(kD);
    Phase<T> phase[kTerms];
    phase[kO] = argument(kOmega);
    phase[k2O] = phase[kO] * phase[kO];
    phase[k2FO] = f2 * phase[kO];
    phase[k2F2O] = f2 * phase[k2O];
    phase[k2F2D2O] = phase[k2F2O] * conjugate(d2);
    phase[kLpTerm] = argument(kLp);
    phase[kLTerm] = argument(kL);
    phase[kLp2F2D2O] = argument(kLp) * phase[k2F2D2O];
    phase[kL2F2O] = argument(kL) * phase[k2F2O];

    NutationOf<T> nutation;
    for (int k = 0; k < 3; ++k)
        nutation.dpsi[k] = nutation.deps[k] = 0.0;
    nutation.obliquity = KL_MEAN_OBLIQUITY_DEG * KL_RAD_PER_DEG;
    for (int i = 0; i < kTerms; ++i) {
        const NutationTerm &term = kTerm[i];
        nutation.dpsi[0] += term.dpsi * phase[i].s;
        nutation.dpsi[1] += kRates.dpsi1[i] * phase[i].c;
        nutation.dpsi[2] -= kRates.dpsi2[i] * phase[i].s;
        nutation.deps[0] += term.deps * phase[i].c;
        nutation.deps[1] -= kRates.deps1[i] * phase[i].s;
        nutation.deps[2] -= kRates.deps2[i] * phase[i].c;
    }
    return nutation;
}

// N = Rx(-(eps0 + deps)) Rz(-dpsi) Rx(eps0), the mean obliquity fixed in both factors
template <class T>
Turns<T> nutation_turns(const NutationOf<T> &n)
{
    const Turns<T> by =
        turns_by<T>({{2, -n.dpsi[0], -n.dpsi[1], -n.dpsi[2]}, {0, -(n.obliquity + n.deps[0]), -n.deps[1], -n.deps[2]}});
    return {3, {{0, KL_MEAN_OBLIQUITY_COSINE, KL_MEAN_OBLIQUITY_SINE, 0.0, 0.0}, by.turns[0], by.turns[1]}};
}

// Without the complementary terms, by the cosine of the mean obliquity.
template <class T>
void equation_of_equinoxes(const NutationOf<T> &n, T q[3])
{
    for (int i = 0; i < 3; ++i)
        q[i] = n.dpsi[i] * KL_MEAN_OBLIQUITY_COSINE;
}

} // namespace KL_SET

#endif
