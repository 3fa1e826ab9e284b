#include "kl_family.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kArcsecond = 4.848136811095360e-6; // rad
constexpr double kAu = 149597870700.0;              // m

struct Eye {
    double barycentric[3] = {kAu, 0, 0};
    double velocity[3] = {0, 3e4, 0};
    double heliocentric[3] = {kAu, 0, 0};
};

long place(const kl_star &star, const Eye &eye, long corrections, double out[3], double tdb = 0.5)
{
    return KL_Star_place(&star, eye.barycentric, eye.velocity, eye.heliocentric, tdb, corrections, out);
}

double angle_between(const double *a, const double *b)
{
    double sum = 0.0;
    for (int i = 0; i < 3; ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return 2.0 * std::asin(0.5 * std::sqrt(sum));
}

} // namespace

// Positions are handed over in degrees: that alone is worth 1e-10 arcsec.
TEST(StarPlace, IsThatOfAnIndependentLibrary)
{
    constexpr double kAllowed = 5e-10 * kArcsecond;
    for (const auto &row : read_table("star_places.csv", 21)) {
        const kl_star star = {row[0], row[1], row[2], row[3], row[4], row[5], row[6], 0.0, 1};
        double u[3];
        ASSERT_EQ(KL_Star_place(&star, &row[9], &row[12], &row[15], row[7], static_cast<long>(row[8]), u), KL_OK)
            << ::testing::PrintToString(row);
        EXPECT_LT(angle_between(u, &row[18]), kAllowed) << ::testing::PrintToString(row);
    }
}

TEST(StarPlace, AtThePolesIsThePole)
{
    for (const double dec : {90.0, -90.0}) {
        const kl_star star = {123.0, dec, 0, 0, 0, 0, 0.5, 0, 1};
        double u[3];
        ASSERT_EQ(place(star, Eye(), 0, u), KL_OK);
        EXPECT_EQ(u[0], 0.0);
        EXPECT_EQ(u[1], 0.0);
        EXPECT_EQ(u[2], dec / 90.0);
    }
}

// 4 G M/(c^2 R): the one size that the table of places, which keeps off the limb, does not show.
TEST(StarPlace, LightIsBentByTheSunsLimb)
{
    const kl_star limb = {180.0, std::atan2(695700e3, kAu) / 0.017453292519943295, 0, 0, 0, 0, 0.5, 0, 1};
    double without[3], with[3];
    place(limb, Eye(), 0, without);
    place(limb, Eye(), KL_STAR_DEFLECTION, with);
    EXPECT_NEAR(angle_between(without, with) / kArcsecond, 1.7512, 1e-4);
    EXPECT_GT(with[2], without[2]); // outwards
}

TEST(StarPlace, ANegativeParallaxCountsAsNone)
{
    kl_star star = {10, 20, 300, -400, -50, 100, 0.5, 0, 1};
    kl_star none = star;
    none.parallax = 0.0;
    double a[3], b[3];
    ASSERT_EQ(place(star, Eye(), 7, a, 9000.0), KL_OK);
    ASSERT_EQ(place(none, Eye(), 7, b, 9000.0), KL_OK);
    EXPECT_EQ(angle_between(a, b), 0.0);
}

TEST(StarPlace, RefusesWhatCannotBe)
{
    const kl_star good = {10, 20, 300, -400, 50, 100, 0.5, 0, 1};
    double u[3] = {7, 7, 7};
    const auto refused = [&](double kl_star::*field, double value) {
        kl_star star = good;
        star.*field = value;
        EXPECT_EQ(place(star, Eye(), 7, u), KL_ERR) << value;
    };
    const struct {
        double kl_star::*field;
        double low, high;
    } ranges[] = {{&kl_star::ra, -360, 360},
                  {&kl_star::dec, -90, 90},
                  {&kl_star::pm_ra, -1e6, 1e6},
                  {&kl_star::pm_dec, -1e6, 1e6},
                  {&kl_star::parallax, -1e4, 1e4},
                  {&kl_star::radial_velocity, -3e5, 3e5},
                  {&kl_star::epoch, -91312.5, 109573.5}};
    for (const auto &range : ranges) {
        for (const double bad : {kNan, kInf, -kInf, range.low * 1.0001, range.high * 1.0001})
            refused(range.field, bad);
        for (const double edge : {range.low, range.high}) {
            kl_star star = good;
            star.*range.field = edge;
            double v[3];
            EXPECT_EQ(place(star, Eye(), 7, v), KL_OK) << edge;
        }
    }
    refused(&kl_star::magnitude, kNan);
    for (const long bad : {-1L, 8L, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()})
        EXPECT_EQ(place(good, Eye(), bad, u), KL_ERR);
    for (int i = 0; i < 9; ++i)
        for (const double bad : {kNan, kInf}) {
            Eye eye;
            (i < 3 ? eye.barycentric : i < 6 ? eye.velocity : eye.heliocentric)[i % 3] = bad;
            EXPECT_EQ(place(good, eye, 7, u), KL_ERR) << i;
        }
    Eye fast;
    fast.velocity[1] = 299792458.0;
    EXPECT_EQ(place(good, fast, 7, u), KL_ERR);
    Eye inside;
    inside.heliocentric[0] = 0.0;
    EXPECT_EQ(place(good, inside, 7, u), KL_ERR);
    const Eye eye;
    EXPECT_EQ(place(good, eye, 7, u, kNan), KL_ERR);
    EXPECT_EQ(KL_Star_place(nullptr, eye.barycentric, eye.velocity, eye.heliocentric, 0.5, 0, u), KL_ERR);
    EXPECT_EQ(KL_Star_place(&good, nullptr, eye.velocity, eye.heliocentric, 0.5, 0, u), KL_ERR);
    EXPECT_EQ(KL_Star_place(&good, eye.barycentric, eye.velocity, eye.heliocentric, 0.5, 0, nullptr), KL_ERR);
    EXPECT_EQ(u[0], 7);
}
