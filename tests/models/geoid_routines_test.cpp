// The published routines below the geoid: Legendre functions, multiples of a longitude, the ellipsoid, the synthesis.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"

#include <cmath>
#include <cstdlib>
#include <tuple>
#include <vector>

namespace {

#include "models/synthesis_terms.inc"
#include "models/wgs84_places.inc"

constexpr double kUntouched = -12345.0;

std::vector<double> column(long m, double theta, long nmax, double *derivatives = nullptr)
{
    std::vector<double> p(static_cast<std::size_t>(nmax) + 1, kUntouched);
    EXPECT_EQ(KL_Legfdn(m, theta, p.data(), nmax, derivatives != nullptr, derivatives, nullptr), 0);
    return p;
}

// Addition theorem, at a point with itself. Recursion errors grow with the square of the degree near a pole.
TEST(Legfdn, SquaresOfADegreeSumTo2nPlus1)
{
    for (double theta : {0.0, 1e-9, 1e-4, 0.3, 1.0, M_PI / 2, 2.5, M_PI - 1e-6, M_PI}) {
        double sums[361] = {};
        for (long m = 0; m <= 360; ++m) {
            const std::vector<double> p = column(m, theta, 360);
            for (std::size_t n = 0; n <= 360; ++n)
                if (n < static_cast<std::size_t>(m))
                    ASSERT_EQ(p[n], kUntouched) << "written from the order on";
                else
                    sums[n] += p[n] * p[n];
        }
        for (int n = 0; n <= 360; ++n)
            EXPECT_NEAR(sums[n] / (2.0 * n + 1.0), 1.0, 1e-11) << "theta " << theta << " degree " << n;
    }
    EXPECT_EQ(column(5, 1.0, 4), std::vector<double>(5, kUntouched));
}

// Central differences of the functions; step and tolerance balance h^2 n^3 against rounding / h.
TEST(Legfdn, DerivativesMatchDifferences)
{
    constexpr double h = 1e-5;
    for (double theta : {0.01, 0.7, M_PI / 2, 3.0})
        for (long m : {0L, 1L, 2L, 17L, 60L}) {
            double dp[61];
            EXPECT_EQ(column(m, theta, 60, dp).back(), column(m, theta, 60).back());
            const std::vector<double> ahead = column(m, theta + h, 60), behind = column(m, theta - h, 60);
            for (std::size_t n = static_cast<std::size_t>(m); n <= 60; ++n)
                EXPECT_NEAR(dp[n], (ahead[n] - behind[n]) / (2.0 * h), 3e-4) << theta << ' ' << n << ' ' << m;
        }
}

TEST(Legfdn, DerivativesAreRefusedAtThePolesOnly)
{
    double p[3], dp[3] = {kUntouched, kUntouched, kUntouched};
    for (double pole : {0.0, -0.0, M_PI}) {
        kl_error_record record;
        KL_Reset_Err(&record);
        kl_verbose();
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(KL_Legfdn(1, pole, p, 2, 1, dp, &record), KL_ERR); }),
                  "ORBKIT_LIB >>> ERROR in KL_Legfdn: Legfdn does not compute derivatives at the poles\n");
        kl_silent();
        EXPECT_TRUE(record.count == 1 && record.codes[0] == KL_LEGFDN_POLE_ERR && dp[1] == kUntouched);
        // Without derivatives: zonal functions only, sqrt(2n+1) with the sign of the pole.
        EXPECT_NEAR(column(0, pole, 2)[1], pole < 1.0 ? std::sqrt(3.0) : -std::sqrt(3.0), 1e-15);
        EXPECT_NEAR(column(1, pole, 2)[1], 0.0, 1e-15);
    }
    column(1, 1e-12, 2, dp);
    EXPECT_NEAR(dp[1], std::sqrt(3.0), 1e-15);
    EXPECT_EQ(KL_Legfdn(-1, 1.0, p, 1, 0, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Legfdn(0, 1.0, nullptr, 1, 0, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Legfdn(0, 1.0, p, 1, 1, nullptr, nullptr), KL_ERR);
}

// d cos(m lambda) / d cos(lambda) is up to m^2: so much counts the rounding of cos lambda.
TEST(Dscml, SinesAndCosinesOfMultiples)
{
    for (double lambda : {0.0, 1e-9, 0.1, 1.0, M_PI / 2, M_PI, 4.0, 2.0 * M_PI}) {
        double s[362], c[362];
        s[0] = c[0] = s[361] = c[361] = kUntouched;
        KL_Dscml(360, s, c, lambda);
        for (int m = 1; m <= 360; ++m) {
            EXPECT_NEAR(s[m], std::sin(m * lambda), 1e-15 + 2.3e-16 * m * m) << m << ' ' << lambda;
            EXPECT_NEAR(c[m], std::cos(m * lambda), 1e-15 + 2.3e-16 * m * m) << m << ' ' << lambda;
        }
        for (double outside : {s[0], c[0], s[361], c[361]})
            EXPECT_EQ(outside, kUntouched);
    }
}

TEST(Radgra, FiguresOfWgs84)
{
    for (const auto &[lat, lon, height, radius, gravity, geocentric] : kPlaces) {
        double psi, g, r;
        KL_Radgra(&psi, &g, &r, lat, lon, height);
        EXPECT_NEAR(r, radius, 1e-4) << lat;
        EXPECT_NEAR(g, gravity, 1e-9) << lat;
        EXPECT_NEAR(psi * 180.0 / M_PI, geocentric, 1e-7) << lat;
    }
}

// P = 1 everywhere and lambda = 90 deg: sines are 1, 0, -1 and cosines 0, -1, 0 for m = 1, 2, 3.
TEST(Hundu, OneTermAtATime)
{
    const double sin_ml[] = {0, 1, 0, -1}, cos_ml[] = {1, 0, -1, 0}, p[10] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    constexpr double kGm = 3.9860044e14, kGravity = 9.8, kRadius = 2.0 * 6378137.0;
    for (const auto &[what, table, index, nmax, cm, potential] : kTerms) {
        double t[4][10] = {}, correction, undulation;
        t[table][index] = 1.0;
        KL_Hundu(nmax, p, t[kHC], t[kHS], sin_ml, cos_ml, t[kCC], t[kCS], &correction, &undulation, kGravity, kRadius);
        EXPECT_DOUBLE_EQ(correction, cm / 100.0) << what;
        EXPECT_DOUBLE_EQ(undulation, potential * kGm / (kGravity * kRadius) + cm / 100.0 - 0.53) << what;
    }
}

TEST(FreeDhc, FreesRowsAndTheirArray)
{
    constexpr std::size_t kRows = 100;
    const long before = faults::live_blocks();
    auto **rows = static_cast<double **>(std::malloc(kRows * sizeof(double *)));
    for (std::size_t row = 0; row < kRows; ++row)
        rows[row] = static_cast<double *>(std::calloc(8, sizeof(double)));
    KL_Free_dhc(rows, kRows);
    EXPECT_EQ(faults::live_blocks(), before); // a leak checker reports instead
    KL_Free_dhc(nullptr, 3);
}

} // namespace
