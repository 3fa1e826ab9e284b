#include "kl_lib.h"
#include "support/bounds.h"
#include "support/conditions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

constexpr double kDeg = 57.29577951308232;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr long kTai = KL_TIME_TAI, kUt1 = KL_TIME_UT1, kEvery = 7;
constexpr kl_star kGood = {101.287, -16.716, -546.0, -1223.1, 379.2, -5.5, 0.5, -1.46, 2491};

// TT - UT1 of 2012 August, leap seconds then.
struct OpenTime {
    kl_time_id id = {nullptr};
    OpenTime()
    {
        const double at = 4620.0;
        const double times[4] = {at, at - 35.0 / 86400.0, at - 34.6 / 86400.0, at - 19.0 / 86400.0};
        long ierr = 0;
        const long orbit = 0;
        const double zero = 0.0;
        EXPECT_EQ(kl_time_ref_init(times, &orbit, &zero, &zero, &id, &ierr), KL_OK);
    }
    ~OpenTime()
    {
        long ierr = 0;
        kl_time_close(&id, &ierr);
    }
};

double arcsec_between(const kl_radec &a, double ra, double dec)
{
    const double d = 1.0 / kDeg;
    const double x = (a.ra - ra) * std::cos(dec * d), y = a.dec - dec;
    return 3600.0 * std::hypot(x, y);
}

} // namespace

// The test star of an independent library: its published apparent place, from the true equinox (less the equation of
// the origins). Here nutation has nine terms and precession is that of 1976.
TEST(StarRadec, OfTheKnownStarIsWhereItIsPublished)
{
    const OpenTime time;
    const double tdb = 2456165.901182685 - 2451544.5, tai = tdb - 32.184 / 86400.0;
    const double mas = kDeg * 3.6e6;
    const kl_star star = {
        2.71 * kDeg, 0.174 * kDeg, 1e-5 * std::cos(0.174) * mas, 5e-6 * mas, 100.0, 55.0, 0.5, 0.0, 1};
    const long frame = KL_TOD;
    kl_time_id id = time.id;
    kl_radec place;
    long ierr = 0;
    ASSERT_EQ(kl_star_radec(nullptr, &id, &kEvery, &frame, &kTai, &tai, &star, nullptr, nullptr, &place, &ierr), KL_OK);
    EXPECT_LT(arcsec_between(place, 2.713022191681354 * kDeg, 0.1729371367219539 * kDeg), 0.02);
    EXPECT_EQ(place.distance, 1.0);
    EXPECT_EQ(place.ra_rate, 0.0);
}

// Every frame turns the same direction: back through the public frame change it is the one of KL_GM2000.
TEST(StarRadec, FramesAreThoseOfTheFrameChange)
{
    const OpenTime time;
    kl_time_id id = time.id;
    const long from = KL_GM2000, mode = KL_CALC_POS;
    const double at = 4600.25, zero[3] = {0, 0, 0};
    kl_radec j2000;
    ASSERT_EQ(kl_star_radec(nullptr, &id, &kEvery, &from, &kUt1, &at, &kGood, nullptr, nullptr, &j2000, nullptr),
              KL_OK);
    const double a = j2000.ra / kDeg, d = j2000.dec / kDeg;
    const double u[3] = {std::cos(d) * std::cos(a), std::cos(d) * std::sin(a), std::sin(d)};
    for (const long frame : {KL_MOD, KL_TOD, KL_PEF, KL_EF, KL_TEME}) {
        kl_radec place;
        double turned[3], v[3], w[3];
        ASSERT_EQ(kl_star_radec(nullptr, &id, &kEvery, &frame, &kUt1, &at, &kGood, nullptr, nullptr, &place, nullptr),
                  KL_OK);
        ASSERT_EQ(
            kl_change_cart_cs(nullptr, &id, &mode, &from, &frame, &kUt1, &at, u, zero, zero, turned, v, w, nullptr),
            KL_OK);
        const double ra = std::atan2(turned[1], turned[0]) * kDeg;
        EXPECT_LT(arcsec_between(place, ra < 0 ? ra + 360 : ra, std::asin(turned[2]) * kDeg), 1e-8) << frame;
    }
}

TEST(StarRadec, RangesEndWhereTheHeaderSays)
{
    const auto status_of = [](const kl_star &star, const double *pos, const double *vel) {
        const long frame = KL_GM2000;
        const double at = 9000.0;
        kl_radec place;
        return kl_star_radec(nullptr, nullptr, &kEvery, &frame, &kTai, &at, &star, pos, vel, &place, nullptr);
    };
    const struct {
        const char *name;
        double kl_star::*number;
        double least, most;
    } cases[] = {
        {"right ascension", &kl_star::ra, -360.0, 360.0}, {"declination", &kl_star::dec, -90.0, 90.0},
        {"motion eastwards", &kl_star::pm_ra, -1e6, 1e6}, {"motion northwards", &kl_star::pm_dec, -1e6, 1e6},
        {"parallax", &kl_star::parallax, -1e4, 1e4},      {"velocity", &kl_star::radial_velocity, -3e5, 3e5},
        {"epoch", &kl_star::epoch, -91312.5, 109573.5},
    };
    for (const auto &c : cases)
        expect_range(c.name, c.least, c.most, [&](double value) {
            kl_star star = kGood;
            star.*c.number = value;
            return status_of(star, nullptr, nullptr);
        });
    expect_range("observer's place", -1e12, 1e12, [&](double x) {
        const double pos[3] = {x, 0.0, 0.0};
        return status_of(kGood, pos, nullptr);
    });
    expect_range("observer's velocity", -3e7, 3e7, [&](double y) {
        const double vel[3] = {0.0, y, 0.0};
        return status_of(kGood, nullptr, vel);
    });
}

TEST(StarRadec, TheObserverCounts)
{
    const long frame = KL_GM2000;
    const double at = 9000.0, pos[3] = {7e6, 0, 0}, vel[3] = {0, 0, 7600.0};
    kl_radec centre, satellite;
    ASSERT_EQ(kl_star_radec(nullptr, nullptr, &kEvery, &frame, &kTai, &at, &kGood, nullptr, nullptr, &centre, nullptr),
              KL_OK);
    ASSERT_EQ(kl_star_radec(nullptr, nullptr, &kEvery, &frame, &kTai, &at, &kGood, pos, vel, &satellite, nullptr),
              KL_OK);
    // Its own aberration: v/c times the sine of the angle to the motion.
    EXPECT_NEAR(3600.0 * (satellite.dec - centre.dec),
                7600.0 / 299792458.0 * kDeg * 3600.0 * std::cos(centre.dec / kDeg), 1e-3);
    // At the barycentre of J2000 there is motion in space alone, whatever is asked for.
    const long barycentric = KL_BM2000;
    const double j2000 = 0.5;
    kl_radec catalogue;
    ASSERT_EQ(
        kl_star_radec(nullptr, nullptr, &kEvery, &barycentric, &kTai, &j2000, &kGood, pos, vel, &catalogue, nullptr),
        KL_OK);
    EXPECT_NEAR(catalogue.ra, kGood.ra, 1e-9); // TAI for TDB: 32 s of motion
    EXPECT_NEAR(catalogue.dec, kGood.dec, 1e-9);
}

// Many stars of one instant go through packs: the same bits, and refusals where the scalar call has them.
TEST(StarRadec, ManyAtOneInstantAreAsOneByOne)
{
    const OpenTime time;
    kl_time_id id = time.id;
    const long n = 200;
    std::vector<double> at(n, 4600.25);
    std::vector<kl_star> stars(n, kGood);
    std::vector<kl_radec> places(n);
    std::vector<long> status(n);
    for (std::size_t i = 0; i < stars.size(); ++i) {
        const double x = static_cast<double>(i);
        stars[i] = {3.7 * x - 350.0, 90.0 * std::sin(x), 100.0 * x, -3.0 * x, x - 50.0, x, 0.5 - 10.0 * x, 1.0, 1};
    }
    stars[130].dec = 90.1;
    stars[131].epoch = kNan;
    stars[132].dec = 90.0;
    at[190] = 4601.0;
    for (long corrections = 0; corrections <= kEvery; ++corrections)
        for (const long frame : {KL_BM2000, KL_MOD, KL_TOD, KL_EF}) {
            kl_star_radec_n(nullptr, &id, &n, &corrections, &frame, &kUt1, at.data(), stars.data(), nullptr, nullptr,
                            places.data(), status.data(), nullptr);
            for (std::size_t i = 0; i < stars.size(); ++i) {
                kl_radec place = {kNan, kNan, kNan, kNan, kNan, kNan};
                EXPECT_EQ(kl_star_radec(nullptr, &id, &corrections, &frame, &kUt1, &at[i], &stars[i], nullptr, nullptr,
                                        &place, nullptr),
                          status[i])
                    << i;
                EXPECT_EQ(std::memcmp(&places[i], &place, sizeof place), 0) << i;
            }
        }
}
