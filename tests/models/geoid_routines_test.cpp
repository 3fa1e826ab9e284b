// The published routines below the geoid: Legendre functions, multiples of a longitude, the ellipsoid, the synthesis.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/tolerances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <malloc.h>
#include <vector>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kUntouched = -12345.0;
constexpr long kLegfdn = 71; // internal function id

std::vector<double> column(long m, double theta, long nmax)
{
    std::vector<double> p(static_cast<std::size_t>(nmax) + 1, kUntouched);
    EXPECT_EQ(KL_Legfdn(m, theta, p.data(), nmax, 0, nullptr, nullptr), 0);
    return p;
}

TEST(Legfdn, SquaresOfADegreeSumTo2nPlus1)
{
    // Addition theorem, at a point with itself. Recursion errors grow with the square of the degree near a pole.
    for (double theta : {0.0, 1e-9, 1e-4, 0.3, 1.0, kPi / 2, 2.5, kPi - 1e-6, kPi}) {
        std::vector<double> sums(361, 0.0);
        for (long m = 0; m <= 360; ++m) {
            const std::vector<double> p = column(m, theta, 360);
            for (std::size_t n = static_cast<std::size_t>(m); n <= 360; ++n)
                sums[n] += p[n] * p[n];
        }
        for (std::size_t n = 0; n <= 360; ++n) {
            const double expected = 2.0 * static_cast<double>(n) + 1.0;
            EXPECT_NEAR(sums[n], expected, 1e-11 * expected) << "theta " << theta << " degree " << n;
        }
    }
}

TEST(Legfdn, ClosedForms)
{
    // Fully normalised functions in closed form (Heiskanen and Moritz, Physical Geodesy, 1967, section 1-14).
    for (double theta : {0.2, 1.1, 2.9}) {
        const double t = std::cos(theta), u = std::sin(theta);
        const struct {
            long n, m;
            double expected;
        } kForms[] = {
            {0, 0, 1.0},
            {1, 0, std::sqrt(3.0) * t},
            {1, 1, std::sqrt(3.0) * u},
            {2, 0, std::sqrt(5.0) * (1.5 * t * t - 0.5)},
            {2, 1, std::sqrt(15.0) * t * u},
            {2, 2, std::sqrt(15.0) / 2.0 * u * u},
            {3, 0, std::sqrt(7.0) * (2.5 * t * t * t - 1.5 * t)},
            {3, 2, std::sqrt(105.0) / 2.0 * u * u * t},
            {3, 3, std::sqrt(70.0) / 4.0 * u * u * u},
        };
        for (const auto &form : kForms)
            EXPECT_NEAR(column(form.m, theta, 3)[static_cast<std::size_t>(form.n)], form.expected, 1e-15)
                << form.n << ' ' << form.m << ' ' << theta;
    }
}

TEST(Legfdn, WritesFromItsOrderOn)
{
    const std::vector<double> p = column(5, 1.0, 7);
    for (std::size_t n = 0; n < 5; ++n)
        EXPECT_EQ(p[n], kUntouched);
    for (std::size_t n = 5; n <= 7; ++n)
        EXPECT_NE(p[n], kUntouched);
    EXPECT_EQ(column(5, 1.0, 4), std::vector<double>(5, kUntouched));
}

TEST(Legfdn, DerivativesMatchDifferences)
{
    // Central differences of the functions; step and tolerance balance h^2 n^3 against rounding / h.
    constexpr double h = 1e-5;
    for (double theta : {0.01, 0.7, kPi / 2, 3.0})
        for (long m : {0L, 1L, 2L, 17L, 60L}) {
            std::vector<double> p(61), dp(61);
            ASSERT_EQ(KL_Legfdn(m, theta, p.data(), 60, 1, dp.data(), nullptr), 0);
            EXPECT_EQ(column(m, theta, 60).back(), p.back());
            const std::vector<double> ahead = column(m, theta + h, 60), behind = column(m, theta - h, 60);
            for (std::size_t n = static_cast<std::size_t>(m); n <= 60; ++n)
                EXPECT_NEAR(dp[n], (ahead[n] - behind[n]) / (2.0 * h), 3e-4) << theta << ' ' << n << ' ' << m;
        }
}

TEST(Legfdn, DerivativesAreRefusedAtThePolesOnly)
{
    double p[3], dp[3] = {kUntouched, kUntouched, kUntouched};
    for (double pole : {0.0, -0.0, kPi}) {
        kl_error_record record;
        KL_Reset_Err(&record);
        long found = 0, status = 0;
        kl_verbose();
        EXPECT_EQ(captured_stderr([&] { status = KL_Legfdn(1, pole, p, 2, 1, dp, &record); }),
                  "ORBKIT_LIB >>> ERROR in KL_Legfdn: Legfdn does not compute derivatives at the poles\n");
        kl_silent();
        EXPECT_EQ(status, KL_ERR);
        EXPECT_EQ(KL_Check_Err(kLegfdn, KL_LEGFDN_POLE_ERR, &record, &found), 0);
        EXPECT_EQ(found, 1);
        EXPECT_EQ(dp[1], kUntouched);
        // Without derivatives: zonal functions only, sqrt(2n+1) with the sign of the pole.
        EXPECT_NEAR(column(0, pole, 2)[1], pole < 1.0 ? std::sqrt(3.0) : -std::sqrt(3.0), 1e-15);
        EXPECT_NEAR(column(1, pole, 2)[1], 0.0, 1e-15);
    }
    EXPECT_EQ(KL_Legfdn(1, 1e-12, p, 2, 1, dp, nullptr), 0);
    EXPECT_NEAR(dp[1], std::sqrt(3.0), 1e-15);
}

TEST(Legfdn, WrongArguments)
{
    double p[2];
    EXPECT_EQ(KL_Legfdn(-1, 1.0, p, 1, 0, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Legfdn(0, 1.0, nullptr, 1, 0, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Legfdn(0, 1.0, p, 1, 1, nullptr, nullptr), KL_ERR);
}

TEST(Dscml, SinesAndCosinesOfMultiples)
{
    for (double lambda : {0.0, 1e-9, 0.1, 1.0, kPi / 2, kPi, 4.0, 2.0 * kPi}) {
        double s[362], c[362];
        s[0] = c[0] = s[361] = c[361] = kUntouched;
        KL_Dscml(360, s, c, lambda);
        for (int m = 1; m <= 360; ++m) {
            // d cos(m lambda) / d cos(lambda) is up to m^2: so much counts the rounding of cos lambda.
            const double tolerance = 1e-15 + 2.3e-16 * m * m;
            EXPECT_NEAR(s[m], std::sin(m * lambda), tolerance) << m << ' ' << lambda;
            EXPECT_NEAR(c[m], std::cos(m * lambda), tolerance) << m << ' ' << lambda;
        }
        for (double outside : {s[0], c[0], s[361], c[361]})
            EXPECT_EQ(outside, kUntouched);
    }
}

TEST(Radgra, FiguresOfWgs84)
{
    // NIMA TR8350.2 (2000): semi-axes and normal gravity at equator and pole.
    constexpr struct {
        const char *what;
        double lat, lon, height, radius, gravity, geocentric_deg;
    } kPlaces[] = {
        {"equator", 0.0, 0.0, 0.0, 6378137.0, 9.7803253359, 0.0},
        {"equator, other side", 0.0, 180.0, 0.0, 6378137.0, 9.7803253359, 0.0},
        {"equator, a kilometre up: the gravity stays on the ellipsoid", 0.0, 77.0, 1000.0, 6379137.0, 9.7803253359,
         0.0},
        {"north pole", 90.0, 0.0, 0.0, 6356752.3142, 9.8321849378, 90.0},
        {"south pole, up", -90.0, 210.0, 500.0, 6357252.3142, 9.8321849378, -90.0},
        // tan(geocentric) = (b/a)^2 tan(geodetic); radius from the ellipse; gravity of the 45th parallel
        {"halfway", 45.0, 30.0, 0.0, 6367489.5439, 9.8061977695, 44.80757678},
    };
    for (const auto &place : kPlaces) {
        double psi, gravity, radius;
        KL_Radgra(&psi, &gravity, &radius, place.lat, place.lon, place.height);
        EXPECT_NEAR(radius, place.radius, 1e-4) << place.what;
        EXPECT_NEAR(gravity, place.gravity, 1e-9) << place.what;
        EXPECT_NEAR(psi * 180.0 / kPi, place.geocentric_deg, 1e-7) << place.what;
    }
}

TEST(Hundu, OneTermAtATime)
{
    // P = 1 everywhere and lambda = 90 deg: sines are 1, 0, -1 and cosines 0, -1, 0 for m = 1, 2, 3.
    const double sin_ml[] = {0, 1, 0, -1}, cos_ml[] = {1, 0, -1, 0};
    const std::vector<double> p(10, 1.0);
    constexpr double kGm = 3.9860044e14, kA = 6378137.0, kGravity = 9.8, kRadius = 2.0 * kA;
    const struct {
        const char *what;
        char table; // C and S of potential (H, h) and correction (C, c)
        std::size_t index;
        long nmax;
        double correction, potential; // expected: cm, and in units of GM / (gravity radius)
    } kTerms[] = {
        {"HC(2,0)", 'H', 3, 3, 0, 0.25},
        {"HC(2,0) above the degree", 'H', 3, 1, 0, 0},
        {"HC(2,2)", 'H', 5, 2, 0, -0.25},
        {"HS(3,3)", 'h', 9, 3, 0, -0.125},
        {"HS(3,3) above the degree", 'h', 9, 2, 0, 0},
        {"HC(1,0) is not used", 'H', 1, 3, 0, 0},
        {"CC(0,0), degree 0", 'C', 0, 0, 1, 0},
        {"CC(1,0), degree 0", 'C', 1, 0, 1, 0},
        {"CC(1,1)", 'C', 2, 3, 0, 0},
        {"CS(1,1), degree 0", 'c', 2, 0, 1, 0},
        {"CC(2,2)", 'C', 5, 3, -1, 0},
        {"CS(3,1)", 'c', 7, 3, 1, 0},
        {"CS(3,1) above the degree", 'c', 7, 2, 0, 0},
    };
    for (const auto &term : kTerms) {
        std::vector<double> hc(10, 0.0), hs(10, 0.0), cc(10, 0.0), cs(10, 0.0);
        (term.table == 'H' ? hc : term.table == 'h' ? hs : term.table == 'C' ? cc : cs)[term.index] = 1.0;
        double correction = kUntouched, undulation = kUntouched;
        KL_Hundu(term.nmax, p.data(), hc.data(), hs.data(), sin_ml, cos_ml, cc.data(), cs.data(), &correction,
                 &undulation, kGravity, kRadius);
        EXPECT_DOUBLE_EQ(correction, term.correction / 100.0) << term.what;
        EXPECT_DOUBLE_EQ(undulation, term.potential * kGm / (kGravity * kRadius) + term.correction / 100.0 - 0.53)
            << term.what;
    }
}

TEST(FreeDhc, FreesRowsAndTheirArray)
{
    constexpr std::size_t kRows = 100, kRow = 1000;
    const auto in_use = [] { return mallinfo2().uordblks; };
    const std::size_t before = in_use();
    auto **rows = static_cast<double **>(std::malloc(kRows * sizeof(double *)));
    for (std::size_t row = 0; row < kRows; ++row)
        rows[row] = static_cast<double *>(std::calloc(kRow, sizeof(double)));
    KL_Free_dhc(rows, kRows);
    EXPECT_LT(in_use(), before + kRow * sizeof(double)); // under a leak checker the count stands still and it reports
    KL_Free_dhc(nullptr, 3);
}

} // namespace
