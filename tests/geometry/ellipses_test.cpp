#include "kl_family.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(Ellipses, ArcsAreTheIntegral)
{
    constexpr double kRelative = 1.5e-15;
    for (const auto &row : read_table("arcs.csv", 5)) {
        // Both ends count from the same vertex: that is what rounding is relative to.
        const double size = row[0] * (std::fabs(row[2]) + std::fabs(row[3]));
        EXPECT_NEAR(KL_Ellipse_arc(row[0], row[1], row[2], row[3]), row[4], kRelative * size)
            << ::testing::PrintToString(row);
        EXPECT_EQ(KL_Ellipse_arc(row[0], row[1], row[3], row[2]), -KL_Ellipse_arc(row[0], row[1], row[2], row[3]));
    }
    EXPECT_NEAR(KL_Ellipse_arc(6378137.0, 6378137.0 * (1.0 - 0.0033528106647474805), 0.0, 1.5707963267948966),
                10001965.729312725, 4e-9); // the quadrant of WGS84
    EXPECT_EQ(KL_Ellipse_arc(3.0, 3.0, 0.0, 0.5), 1.5);
}

TEST(Ellipses, TheNearestPointIsTheNearest)
{
    constexpr double kRelative = 1e-15;
    for (const auto &row : read_table("feet.csv", 7)) {
        const double size = std::fmax(1.0, std::fmax(std::fabs(row[2]), std::fabs(row[3])));
        double foot[2];
        double distance = 0.0;
        ASSERT_EQ(KL_Ellipse_nearest(row[0], row[1], row[2], row[3], foot, &distance), 0);
        EXPECT_NEAR(foot[0], row[4], kRelative * size) << ::testing::PrintToString(row);
        EXPECT_NEAR(foot[1], row[5], kRelative * size) << ::testing::PrintToString(row);
        EXPECT_NEAR(distance, row[6], kRelative * size) << ::testing::PrintToString(row);
    }
}

// Ellipse 2, 1: centres of curvature of the flat sides reach to x = 1.5.
TEST(Ellipses, OfTwoNearestPointsTheUpperOneIsTaken)
{
    const struct {
        double x, y, foot_x, foot_y, distance;
    } cases[] = {
        {0, 0, 0, 1, -1},     {1, 0, 4.0 / 3.0, std::sqrt(5.0) / 3.0, -std::sqrt(2.0 / 3.0)},
        {1.5, 0, 2, 0, -0.5}, {-1, -0.0, -4.0 / 3.0, std::sqrt(5.0) / 3.0, -std::sqrt(2.0 / 3.0)},
        {0, 5, 0, 1, 4},      {0, -5, 0, -1, 4},
        {3, 0, 2, 0, 1},      {1.5, 1e-30, 2, 0, -0.5}, // where three feet meet
    };
    for (const auto &c : cases) {
        double foot[2];
        double distance = 0.0;
        ASSERT_EQ(KL_Ellipse_nearest(2, 1, c.x, c.y, foot, &distance), 0);
        EXPECT_NEAR(foot[0], c.foot_x, 1e-15) << c.x << ", " << c.y;
        EXPECT_NEAR(foot[1], c.foot_y, 1e-9) << c.x << ", " << c.y;
        EXPECT_NEAR(distance, c.distance, 1e-15) << c.x << ", " << c.y;
    }
}

TEST(Ellipses, AnySizeOfNumberWillDo)
{
    for (const double scale : {1e300, 1e-300, 1e-308}) {
        double foot[2], unit[2];
        double distance = 0.0, one = 0.0;
        ASSERT_EQ(KL_Ellipse_nearest(1.0, 0.125, 1.0, 0.5, unit, &one), 0);
        ASSERT_EQ(KL_Ellipse_nearest(scale, 0.125 * scale, scale, 0.5 * scale, foot, &distance), 0);
        EXPECT_NEAR(distance / scale, one, 1e-13);
        EXPECT_NEAR(foot[0] / scale, unit[0], 1e-13);
    }
    double line[2], far = 0.0;
    ASSERT_EQ(KL_Ellipse_nearest(44.0, 5e-312, -9e61, 0.0, line, &far), 0);
    EXPECT_EQ(line[0], -44.0);
    EXPECT_EQ(far, 9e61);
    EXPECT_NEAR(KL_Ellipse_arc(1.0, 1e-200, 0.0, 1.5707963267948966), 1.0, 1e-15);
}

TEST(Ellipses, RefuseWhatIsNone)
{
    double foot[2] = {7, 7};
    double distance = 7;
    const double good[4] = {2, 1, 0.5, 0.25};
    for (int i = 0; i < 4; ++i)
        for (const double bad : {kNan, kInf, -kInf}) {
            double v[4] = {good[0], good[1], good[2], good[3]};
            v[i] = bad;
            EXPECT_EQ(KL_Ellipse_nearest(v[0], v[1], v[2], v[3], foot, &distance), -1);
            EXPECT_TRUE(std::isnan(KL_Ellipse_arc(v[0], v[1], v[2], v[3])));
        }
    const double axes[][2] = {{1, 2}, {0, 0}, {-2, -3}, {1, 0}, {1, -1}};
    for (const auto &ab : axes) {
        EXPECT_EQ(KL_Ellipse_nearest(ab[0], ab[1], 1, 1, foot, &distance), -1);
        EXPECT_TRUE(std::isnan(KL_Ellipse_arc(ab[0], ab[1], 0, 1)));
    }
    EXPECT_EQ(KL_Ellipse_nearest(2, 1, 1, 1, nullptr, &distance), -1);
    EXPECT_EQ(KL_Ellipse_nearest(2, 1, 1, 1, foot, nullptr), -1);
    EXPECT_EQ(foot[0], 7);
}
