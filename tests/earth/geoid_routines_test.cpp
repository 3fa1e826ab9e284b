// The published routines below the geoid, as far as its values do not show them: derivatives, poles, heights, memory.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/csv.h"
#include "support/fault_injection.h"

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

constexpr double kUntouched = -12345.0;

// The functions of order m from degree m to 60 are written, none below.
std::vector<double> column(long m, double theta, double *derivatives = nullptr)
{
    std::vector<double> p(61, kUntouched);
    EXPECT_EQ(KL_Legfdn(m, theta, p.data(), 60, derivatives != nullptr, derivatives, nullptr), 0);
    for (long n = 0; n < m; ++n)
        EXPECT_EQ(p[static_cast<std::size_t>(n)], kUntouched);
    return p;
}

// Central differences of the functions; step and tolerance balance h^2 n^3 against rounding / h.
TEST(Legfdn, DerivativesMatchDifferences)
{
    constexpr double h = 1e-5;
    for (double theta : {0.01, 0.7, M_PI / 2, 3.0})
        for (long m : {0L, 1L, 2L, 17L, 60L}) {
            double dp[61];
            EXPECT_EQ(column(m, theta, dp), column(m, theta));
            const std::vector<double> ahead = column(m, theta + h), behind = column(m, theta - h);
            for (std::size_t n = static_cast<std::size_t>(m); n <= 60; ++n)
                EXPECT_NEAR(dp[n], (ahead[n] - behind[n]) / (2.0 * h), 3e-4) << theta << ' ' << n << ' ' << m;
        }
}

TEST(Legfdn, DerivativesAreRefusedAtThePolesOnly)
{
    double p[3], dp[61] = {kUntouched, kUntouched};
    for (double pole : {0.0, -0.0, M_PI}) {
        kl_error_record record;
        KL_Reset_Err(&record);
        EXPECT_EQ(verbose_text([&] { EXPECT_EQ(KL_Legfdn(1, pole, p, 2, 1, dp, &record), KL_ERR); }),
                  "ORBKIT_LIB >>> ERROR in KL_Legfdn: Legfdn does not compute derivatives at the poles\n");
        EXPECT_TRUE(record.count == 1 && record.codes[0] == KL_LEGFDN_POLE_ERR && dp[1] == kUntouched);
        // Without derivatives: zonal functions only, sqrt(2n+1) with the sign of the pole.
        EXPECT_NEAR(column(0, pole)[1], pole < 1.0 ? std::sqrt(3.0) : -std::sqrt(3.0), 1e-15);
        EXPECT_NEAR(column(1, pole)[1], 0.0, 1e-15);
    }
    column(1, 1e-12, dp);
    EXPECT_NEAR(dp[1], std::sqrt(3.0), 1e-15);
    EXPECT_EQ(KL_Legfdn(-1, 1.0, p, 1, 0, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(KL_Legfdn(0, 1.0, p, 1, 1, nullptr, nullptr), KL_ERR) << "nowhere to put the derivatives";
}

TEST(Radgra, FiguresOfWgs84)
{
    const Csv rows("tests/data/normal_gravity.csv");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        double psi, g, r;
        KL_Radgra(&psi, &g, &r, rows.number(i, 0), rows.number(i, 1), rows.number(i, 2));
        EXPECT_NEAR(r, rows.number(i, 3), 1e-4) << i;
        EXPECT_NEAR(g, rows.number(i, 4), 1e-9) << i;
        EXPECT_NEAR(psi * 180.0 / M_PI, rows.number(i, 5), 1e-7) << i;
    }
}

TEST(FreeDhc, FreesRowsAndTheirArray)
{
    const long before = faults::live_blocks();
    auto **rows = static_cast<double **>(std::malloc(2 * sizeof(double *)));
    for (int row = 0; row < 2; ++row)
        rows[row] = static_cast<double *>(std::calloc(8, sizeof(double)));
    KL_Free_dhc(rows, 2);
    EXPECT_EQ(faults::live_blocks(), before); // a leak checker reports instead
}

} // namespace
