// Fully normalised Legendre functions of one order, and sines and cosines of the multiples of a longitude.
#include "earth/legendre.h"

#include "errors/activation.h"
#include "kl_family.h"

#include <cfloat>
#include <cmath>

namespace {

// Below this P(m,m) counts as zero: it is worth nothing in any sum, and subnormal numbers are slow.
constexpr double kNegligibleSectoral = 1e-280;

double sectoral(long m, double sin_theta)
{
    double p = m == 0 ? 1.0 : std::sqrt(3.0) * sin_theta;
    for (long k = 2; k <= m; ++k) {
        p *= sin_theta * std::sqrt(static_cast<double>(2 * k + 1) / static_cast<double>(2 * k));
        if (std::fabs(p) < kNegligibleSectoral)
            return 0.0;
    }
    return p;
}

} // namespace

// Forward in degree from the sectoral value: Holmes and Featherstone, J. Geodesy 76, 279-299 (2002), section 2.
void legendre_functions(long m, const SineCosine<double> &theta, double *p, long nmax)
{
    const double dm = static_cast<double>(m);
    for (long n = m; n <= nmax; ++n) {
        if (n == m) {
            p[n] = sectoral(m, theta.s);
            continue;
        }
        const double dn = static_cast<double>(n);
        const double apart = (dn - dm) * (dn + dm);
        const double a = std::sqrt((2.0 * dn - 1.0) * (2.0 * dn + 1.0) / apart);
        p[n] = a * theta.c * p[n - 1];
        if (n > m + 1)
            p[n] -=
                std::sqrt((2.0 * dn + 1.0) * (dn + dm - 1.0) * (dn - dm - 1.0) / (apart * (2.0 * dn - 3.0))) * p[n - 2];
    }
}

long KL_Legfdn(long m, double theta, double *p, long nmax, long derivatives, double *dp, kl_error_record *record)
{
    Activation call(KL_FN_LEGFDN, record);
    if (m < 0 || p == nullptr || (derivatives != 0 && dp == nullptr))
        return KL_ERR;
    const SineCosine<double> of = sine_cosine(theta);
    // Half a turn is not a double: its sine is 1.2e-16.
    if (derivatives != 0 && std::fabs(of.s) < DBL_EPSILON)
        return call.fails(KL_LEGFDN_POLE_ERR);
    legendre_functions(m, of, p, nmax);
    const double dm = static_cast<double>(m);
    for (long n = m; derivatives != 0 && n <= nmax; ++n) {
        const double dn = static_cast<double>(n);
        const double previous =
            n == m ? 0.0 : std::sqrt((2.0 * dn + 1.0) * (dn * dn - dm * dm) / (2.0 * dn - 1.0)) * p[n - 1];
        dp[n] = (dn * of.c * p[n] - previous) / of.s;
    }
    return KL_OK;
}

void KL_Dscml(long nmax, double sin_ml[], double cos_ml[], double lambda)
{
    if (sin_ml == nullptr || cos_ml == nullptr)
        return;
    // Chebyshev recurrences, from order 0, which is not written.
    double s1 = 0.0, c1 = 1.0;
    auto [s, c] = sine_cosine(lambda);
    const double two_cos = 2.0 * c;
    for (long m = 1; m <= nmax; ++m) {
        sin_ml[m] = s;
        cos_ml[m] = c;
        const double s_next = two_cos * s - s1, c_next = two_cos * c - c1;
        s1 = s;
        c1 = c;
        s = s_next;
        c = c_next;
    }
}
