#include "kl_family.h"
#include "kl_lib.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kA = 6378137.0; // m
constexpr double kB = 6378137.0 * (1.0 - 0.0033528106647474805);

// What the coordinates of a point at this distance along the ray can say: m.
double spacing(const double *pos, double t)
{
    return 3e-16 * (std::fabs(pos[0]) + std::fabs(pos[1]) + std::fabs(pos[2]) + std::fabs(t));
}

// How steep a ray is at the two points where it meets a surface: what is lost across shows along it so much larger.
double steepness(double t0, double t1)
{
    constexpr double kDiameter = 1.3e7; // m
    return std::fmin(1.0, (t1 - t0) / kDiameter);
}

} // namespace

TEST(Rays, MeetTheEllipsoidWhereFiftyDigitsPutIt)
{
    for (const auto &row : read_table("rays.csv", 10)) {
        double t[2];
        ASSERT_EQ(KL_Ray_ellipsoid(nullptr, &row[0], &row[3], row[6], t), static_cast<long>(row[7]))
            << ::testing::PrintToString(row);
        for (std::size_t i = 0; i < 2; ++i) {
            if (i < static_cast<std::size_t>(row[7])) {
                EXPECT_NEAR(t[i], row[8 + i], 4 * spacing(&row[0], row[8 + i]) / steepness(row[8], row[9]))
                    << ::testing::PrintToString(row);
            } else {
                EXPECT_TRUE(std::isnan(t[i]));
            }
        }
    }
}

TEST(Rays, AreOfAnyLengthAndMayLookAway)
{
    const double pos[3] = {7e6, 1e5, 1.2e6};
    double t[2];
    for (const double length : {1.0, 1e-300, 1e300, 5e-324 / 0.05, -1.0}) {
        const double dir[3] = {-0.9 * length, 0.05 * length, -0.1 * length};
        ASSERT_EQ(KL_Ray_ellipsoid(nullptr, pos, dir, 0.0, t), 2) << length;
        const double tolerance = std::fabs(length) < 1e-300 ? 1e6 : 2e-9; // few bits are left of the smallest
        EXPECT_NEAR(length > 0.0 ? t[0] : -t[1], 728702.8429657603, tolerance) << length;
        EXPECT_NEAR(length > 0.0 ? t[1] : -t[0], 13418737.356979769, 2 * tolerance) << length;
    }
}

TEST(Rays, TouchInsideOnTheSurfaceAndAlongTheAxis)
{
    const double ahead[3] = {1, 0, 0}, up[3] = {0, 0, 1}, across[3] = {0, 1, 0};
    const double centre[3] = {0, 0, 0}, surface[3] = {kA, 0, 0}, pole[3] = {0, 0, 7e6};
    double t[2];
    ASSERT_EQ(KL_Ray_ellipsoid(nullptr, centre, ahead, 0.0, t), 2);
    EXPECT_EQ(t[0], -kA);
    EXPECT_EQ(t[1], kA);
    ASSERT_EQ(KL_Ray_ellipsoid(nullptr, surface, ahead, 0.0, t), 2);
    EXPECT_NEAR(t[1], 0.0, 2e-9);
    ASSERT_EQ(KL_Ray_ellipsoid(nullptr, pole, up, 0.0, t), 2);
    EXPECT_NEAR(t[1], kB - 7e6, 2e-9);
    ASSERT_EQ(KL_Ray_ellipsoid(nullptr, surface, across, 0.0, t), 1); // grazing
    EXPECT_EQ(t[0], 0.0);
    EXPECT_TRUE(std::isnan(t[1]));
    EXPECT_EQ(KL_Ray_ellipsoid(nullptr, surface, across, -1e-6, t), 0);
    EXPECT_EQ(KL_Ray_ellipsoid(nullptr, surface, across, 1e-6, t), 2);
}

TEST(Rays, ReachAHeightWhereFiftyDigitsPutIt)
{
    for (const auto &row : read_table("heights.csv", 10)) {
        double t[2];
        ASSERT_EQ(KL_Ray_height(nullptr, &row[0], &row[3], row[6], t), static_cast<long>(row[7]))
            << ::testing::PrintToString(row);
        for (std::size_t i = 0; i < static_cast<std::size_t>(row[7]); ++i) {
            EXPECT_NEAR(t[i], row[8 + i], (3e-9 + 2 * spacing(&row[0], row[8 + i])) / steepness(row[8], row[9]))
                << ::testing::PrintToString(row);
        }
    }
}

// So little above the lowest point that the ellipsoid of the start may be missed; in a pack beside others that meet it.
TEST(Rays, ReachAHeightThatTheyGrazeSideBySideToTheBit)
{
    std::vector<std::array<double, 3>> pos, dir;
    std::vector<double> height;
    for (const auto &row : read_table("tangents.csv", 8))
        for (const double above : {1e-3, 0.05, 0.15, 1.0}) {
            pos.push_back({row[0], row[1], row[2]});
            dir.push_back({row[3], row[4], row[5]});
            height.push_back(std::fmax(-9e4, row[7] + above));
        }
    const long n = static_cast<long>(height.size());
    std::vector<std::array<double, 2>> t(height.size());
    std::vector<long> found(height.size());
    using Vectors = const double(*)[3];
    ASSERT_EQ(kl_ray_height_n(nullptr, &n, reinterpret_cast<Vectors>(pos.data()), reinterpret_cast<Vectors>(dir.data()),
                              height.data(), reinterpret_cast<double(*)[2]>(t.data()), found.data(), nullptr, nullptr),
              KL_OK);
    for (std::size_t i = 0; i < height.size(); ++i) {
        double alone[2];
        EXPECT_EQ(found[i], 2) << i;
        ASSERT_EQ(KL_Ray_height(nullptr, pos[i].data(), dir[i].data(), height[i], alone), found[i]);
        for (std::size_t k = 0; k < static_cast<std::size_t>(found[i]); ++k)
            EXPECT_EQ(alone[k], t[i][k]) << i;
    }
}

TEST(Rays, TheTangentPointIsTheLowest)
{
    for (const auto &row : read_table("tangents.csv", 8)) {
        double t = 0.0;
        double point[3];
        kl_geodetic geodetic;
        ASSERT_EQ(KL_Ray_tangent(nullptr, &row[0], &row[3], &t, point, &geodetic), row[7] < 0.0 ? 1 : 0);
        EXPECT_NEAR(geodetic.height, row[7], 2e-9 + 3 * spacing(&row[0], row[6])) << ::testing::PrintToString(row);
        EXPECT_NEAR(t, row[6], 1e-6) << ::testing::PrintToString(row);
        EXPECT_EQ(geodetic.latitude_rate, 0.0);
    }
    const double pos[3] = {7e6, 1e5, 1.2e6}, dir[3] = {-0.38, 0.9, 0.1};
    double t = 0.0;
    double point[3];
    kl_geodetic geodetic;
    ASSERT_EQ(KL_Ray_tangent(nullptr, pos, dir, &t, point, &geodetic), 0);
    EXPECT_NEAR(t, 2493853.468592831, 1e-8);
    EXPECT_NEAR(geodetic.height, 273147.2357072773, 3e-9);
}

TEST(Rays, TangentAbovePoles)
{
    for (const double z : {7e6, -7e6}) {
        const double pos[3] = {-3e6, 1e-9, z}, dir[3] = {1, 0, 0};
        double t = 0.0;
        double point[3];
        kl_geodetic geodetic;
        ASSERT_EQ(KL_Ray_tangent(nullptr, pos, dir, &t, point, &geodetic), 0);
        EXPECT_NEAR(t, 3e6, 1e-6);
        EXPECT_NEAR(geodetic.height, 7e6 - kB, 2e-9);
        EXPECT_NEAR(geodetic.latitude, std::copysign(90.0, z), 1e-9);
    }
}

TEST(Rays, RefuseWhatIsNoLine)
{
    const double pos[3] = {7e6, 0, 0}, dir[3] = {0, 1, 0}, none[3] = {0, 0, 0}, down[3] = {-1, 0, 0};
    double t[2] = {7, 7};
    double point[3];
    kl_geodetic geodetic;
    const auto all = [&](const double *p, const double *d) {
        EXPECT_EQ(KL_Ray_ellipsoid(nullptr, p, d, 0.0, t), -1);
        EXPECT_EQ(KL_Ray_height(nullptr, p, d, 1e6, t), -1);
        EXPECT_EQ(KL_Ray_tangent(nullptr, p, d, t, point, &geodetic), -1);
    };
    all(pos, none);
    all(nullptr, dir);
    all(pos, nullptr);
    for (const double bad : {kNan, kInf, -kInf})
        for (int i = 0; i < 3; ++i) {
            double v[3] = {7e6, 1, 1};
            v[i] = bad;
            all(v, dir);
            all(pos, v);
        }
    for (const double bad : {kNan, kInf, -kInf, -7e6})
        EXPECT_EQ(KL_Ray_ellipsoid(nullptr, pos, dir, bad, t), -1) << bad;
    for (const double bad : {kNan, kInf, -1.0001e5, 1.0001e9})
        EXPECT_EQ(KL_Ray_height(nullptr, pos, dir, bad, t), -1) << bad;
    EXPECT_EQ(KL_Ray_tangent(nullptr, pos, down, t, point, &geodetic), -1); // through the core
    EXPECT_EQ(KL_Ray_ellipsoid(nullptr, pos, dir, 0.0, nullptr), -1);
    EXPECT_EQ(KL_Ray_height(nullptr, pos, dir, 0.0, nullptr), -1);
    EXPECT_EQ(KL_Ray_tangent(nullptr, pos, dir, t, nullptr, &geodetic), -1);
    EXPECT_EQ(KL_Ray_tangent(nullptr, pos, dir, t, point, nullptr), -1);
    EXPECT_EQ(t[0], 7);
}
