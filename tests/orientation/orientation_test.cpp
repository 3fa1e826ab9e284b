// Earth orientation against the series, ERFA, published test cases and laws.
#include "support/csv.h"
#include "time/time_table.h"

#include <erfa.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

constexpr double kOrbit = 7.0e6;                         // m
constexpr double kMicroarcsecond = 4.84813681109536e-12; // rad
constexpr double kArcsecond = 4.84813681109535994e-6;    // rad
constexpr double kJ2000Midnight = 2451544.5;             // JD of MJD2000 0
constexpr double kTtMinusTai = 32.184;                   // s

// A time id of daily rows about an instant; UT1 and the pole are smooth, so that a cubic gives them to rounding.
class SmoothId : public OwnedTimeId {
public:
    SmoothId(double first, long n, double step = 1.0, bool with_pole = true) : origin(first)
    {
        for (long i = 0; i < n; ++i) {
            const double utc = first + step * static_cast<double>(i);
            const double ut1 = tai_ut1(utc + 37.0 / 86400.0);
            rows.push_back({utc + 37.0 / 86400.0, utc + (37.0 - ut1) / 86400.0, utc, 37.0, ut1, 19.0});
            poles.push_back({});
            pole(utc + 37.0 / 86400.0, poles.back().v);
            for (double &v : poles.back().v)
                v /= kArcsecond;
        }
        kl_time_id_data data = {};
        data.model = 6;
        data.no_extrapolation = 1;
        data.n_rows = n;
        data.rows = rows.data();
        data.pole = with_pole ? reinterpret_cast<double(*)[4]>(poles.data()) : nullptr;
        EXPECT_EQ(kl_time_set_id_data(&id, &data), 0);
    }

    double tai_ut1(double tai) const { return 36.9 + 1.2e-3 * (tai - origin) - 3e-6 * (tai - origin) * (tai - origin); }
    void pole(double tai, double out[4]) const
    {
        const double d = tai - origin;
        out[0] = 8e-7 + 7e-9 * d - 2e-11 * d * d;
        out[1] = 1.9e-6 - 6e-9 * d;
        out[2] = 1e-9 + 2e-11 * d;
        out[3] = -2e-9 + 1e-11 * d;
    }

    double origin;

private:
    struct Pole {
        double v[4];
    };
    std::vector<kl_time_row> rows;
    std::vector<Pole> poles;
};

struct Matrix {
    double m[9], rate[9], acceleration[9];
    long status;
};

Matrix matrix(kl_time_id *id, long from, long to, long ref, double time, long corrections = 0)
{
    Matrix out = {};
    const long mode = KL_CALC_POS_VEL_ACC;
    out.status =
        kl_iers_matrix(id, &corrections, &from, &to, &ref, &time, &mode, out.m, out.rate, out.acceleration, nullptr);
    return out;
}

kl_earth_orientation orientation(kl_time_id *id, double time, long corrections, long ref = KL_TIME_TAI)
{
    kl_earth_orientation out = {};
    EXPECT_NE(kl_earth_orientation_get(id, &corrections, &ref, &time, &out, nullptr), KL_ERR);
    return out;
}

// An id of one row: UT1 = UTC = TAI - 37 s, no pole.
struct ExplicitId : ReadingsId {
    ExplicitId() : ReadingsId(37.0, 0.0, 0.0, 18.0) {}
};

} // namespace

TEST(CelestialPole, TableGivesTheSeriesAtNodesAndBetweenFor150Years)
{
    ExplicitId id;
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> days(-18262.0, 36524.0);
    for (int i = 0; i < 1000; ++i) {
        double tai = days(random);
        if (i % 3 == 0)
            tai = std::floor(tai) + 1.0 - kTtMinusTai / 86400.0; // a node: 0h TT
        const kl_earth_orientation e = orientation(&id.id, tai, 0);
        double x = 0.0;
        double y = 0.0;
        const double tt = tai + kTtMinusTai / 86400.0;
        eraXy06(kJ2000Midnight, tt, &x, &y);
        ASSERT_NEAR(e.cip_x * kArcsecond, x, 2.0 * kMicroarcsecond) << tai;
        ASSERT_NEAR(e.cip_y * kArcsecond, y, 2.0 * kMicroarcsecond) << tai;
        ASSERT_NEAR(e.s * kArcsecond, eraS06(kJ2000Midnight, tt, x, y), 0.2 * kMicroarcsecond) << tai;
        ASSERT_NEAR(e.s_prime * kArcsecond, eraSp00(kJ2000Midnight, tt), 1e-15) << tai;
    }
}

TEST(ShortPeriodTerms, ArePublishedOnes)
{
    ExplicitId id;
    const auto correction = [&](double mjd, long corrections) {
        const kl_earth_orientation with = orientation(&id.id, mjd - 51544.0, corrections, KL_TIME_UT1);
        const kl_earth_orientation without = orientation(&id.id, mjd - 51544.0, 0, KL_TIME_UT1);
        return std::vector<double>{(with.x_pole - without.x_pole) * 1e6, (with.y_pole - without.y_pole) * 1e6,
                                   (with.ut1_tai - without.ut1_tai) * 1e6};
    };
    for (const auto &[mjd, corrections, of, value, tolerance] :
         read_rows<double, long, long, double, double>("short_period_terms.csv"))
        EXPECT_NEAR(correction(mjd, corrections).at(static_cast<std::size_t>(of)), value, tolerance)
            << mjd << " " << of;
    const auto both = correction(47100.0, KL_EOP_ALL);
    const auto libration = correction(47100.0, KL_EOP_LIBRATION), ocean = correction(47100.0, KL_EOP_OCEAN_TIDES);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(both[i], ocean[i] + libration[i], 2e-4) << i;
}

TEST(IersFrames, AgreeWithErfaFromTheSamePole)
{
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> days(-18000.0, 36000.0);
    for (int i = 0; i < 60; ++i) {
        const double tai = days(random);
        SmoothId id(std::floor(tai) - 3.0, 8);
        const double tt = tai + kTtMinusTai / 86400.0;
        const double ut1 = tai - id.tai_ut1(tai) / 86400.0;
        double pole[4];
        id.pole(tai, pole);
        double x = 0.0;
        double y = 0.0;
        eraXy06(kJ2000Midnight, tt, &x, &y);
        x += pole[2];
        y += pole[3];
        double q[3][3];
        double w[3][3];
        double expected[3][3];
        eraC2ixys(x, y, eraS06(kJ2000Midnight, tt, x, y), q);
        eraPom00(pole[0], pole[1], eraSp00(kJ2000Midnight, tt), w);
        eraC2tcio(q, eraEra00(kJ2000Midnight, ut1), w, expected);
        const Matrix m = matrix(&id.id, KL_GCRS, KL_ITRS, KL_TIME_TAI, tai);
        ASSERT_EQ(m.status, KL_OK);
        for (int k = 0; k < 9; ++k)
            ASSERT_NEAR(m.m[k] * kOrbit, expected[k / 3][k % 3] * kOrbit, 3e-4) << tai << " element " << k;
    }
}

TEST(IersFrames, BiasIsThatOfIau2000)
{
    double rb[3][3];
    double rp[3][3];
    double rbp[3][3];
    eraBp00(2451545.0, 0.0, rb, rp, rbp);
    ExplicitId id;
    const Matrix m = matrix(&id.id, KL_GCRS, KL_EME2000, KL_TIME_TAI, 9000.0);
    EXPECT_EQ(m.status, KL_OK);
    for (int k = 0; k < 9; ++k)
        EXPECT_NEAR(m.m[k], rb[k / 3][k % 3], 2e-16) << k;
}

// Every pair: there and back the identity, orthonormal, the chain of neighbours, derivatives those of differences.
TEST(IersFrames, EveryPairIsARotationWithItsDerivatives)
{
    SmoothId id(9000.0, 30);
    const double tai = 9014.3;
    constexpr double kStep = 0x1p-10; // days: the neighbours are exact
    constexpr double kSeconds = 86400.0 * kStep;
    for (long from = KL_GCRS; from <= KL_EME2000; ++from)
        for (long to = KL_GCRS; to <= KL_EME2000; ++to) {
            const Matrix m = matrix(&id.id, from, to, KL_TIME_TAI, tai, KL_EOP_ALL);
            const Matrix back = matrix(&id.id, to, from, KL_TIME_TAI, tai, KL_EOP_ALL);
            // Differences of what turns with the Earth are off by 5e-11 of it, the others by rounding. The tides are
            // 5e-17 1/s2 in both.
            const auto turned = [](long frame) { return frame == KL_TIRS || frame == KL_ITRS; };
            const bool turns = turned(from) != turned(to);
            Matrix near[5]; // two steps before to two after
            for (int i = 0; i < 5; ++i)
                near[i] = matrix(&id.id, from, to, KL_TIME_TAI, tai + (i - 2) * kStep, KL_EOP_ALL);
            const Matrix first = matrix(&id.id, from, KL_CIRS, KL_TIME_TAI, tai, KL_EOP_ALL);
            const Matrix second = matrix(&id.id, KL_CIRS, to, KL_TIME_TAI, tai, KL_EOP_ALL);
            for (int i = 0; i < 3; ++i)
                for (int k = 0; k < 3; ++k) {
                    double product = 0.0;
                    double by_way = 0.0;
                    for (int j = 0; j < 3; ++j) {
                        product += m.m[3 * i + j] * m.m[3 * k + j];
                        by_way += second.m[3 * i + j] * first.m[3 * j + k];
                    }
                    const int e = 3 * i + k;
                    EXPECT_NEAR(product, i == k ? 1.0 : 0.0, 2e-15);
                    EXPECT_NEAR(by_way, m.m[e], 2e-15) << from << " to " << to;
                    EXPECT_EQ(back.m[3 * k + i], m.m[e]);
                    const auto difference = [&](double(Matrix::*of)[9]) {
                        const auto at = [&](int n) { return (near[n].*of)[e]; };
                        return (8.0 * (at(3) - at(1)) - (at(4) - at(0))) / (12.0 * kSeconds);
                    };
                    EXPECT_NEAR(difference(&Matrix::m), m.rate[e], turns ? 4e-15 : 1e-17) << from << " to " << to;
                    EXPECT_NEAR(difference(&Matrix::rate), m.acceleration[e], turns ? 4e-19 : 1e-22)
                        << from << " to " << to;
                }
        }
}

TEST(IersFrames, StationStaysInItrsAndTurnsInGcrs)
{
    SmoothId id(9000.0, 10);
    const long corrections = KL_EOP_ALL;
    const long mode = KL_CALC_POS_VEL_ACC;
    const long from = KL_ITRS;
    const long to = KL_GCRS;
    const long ref = KL_TIME_UTC;
    const double time = 9004.25;
    double pos[3] = {4197554.927, 815922.022, 4717322.217};
    double vel[3] = {};
    double acc[3] = {};
    const double station[3] = {pos[0], pos[1], pos[2]};
    ASSERT_EQ(
        kl_iers_change(&id.id, &corrections, &mode, &from, &to, &ref, &time, pos, vel, acc, pos, vel, acc, nullptr),
        KL_OK);
    const double across = std::hypot(station[0], station[1]);
    EXPECT_NEAR(std::hypot(vel[0], vel[1], vel[2]), 7.2921150e-5 * across, 0.02); // m/s; the pole is 0.1 deg from z
    EXPECT_NEAR(std::hypot(acc[0], acc[1], acc[2]), 7.2921150e-5 * 7.2921150e-5 * across, 2e-6);
    ASSERT_EQ(
        kl_iers_change(&id.id, &corrections, &mode, &to, &from, &ref, &time, pos, vel, acc, pos, vel, acc, nullptr),
        KL_OK);
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(pos[i], station[i], 5e-9);
        EXPECT_NEAR(vel[i], 0.0, 1e-12);
        EXPECT_NEAR(acc[i], 0.0, 1e-15);
    }
}

// The interpolation of the rows: as many of them as there are, and straight lines over wide gaps.
TEST(EarthOrientation, FollowsTheRowsOfTheId)
{
    for (const auto &[name, n, step, at, tolerance, notes] :
         read_rows<std::string, long, double, double, double, long>("orientation_rows.csv")) {
        SCOPED_TRACE(name);
        SmoothId id(0.0, n, step);
        const double tai = at + 37.0 / 86400.0;
        const kl_earth_orientation e = orientation(&id.id, tai, 0);
        EXPECT_NEAR(-e.ut1_tai, id.tai_ut1(tai), tolerance);
        EXPECT_EQ(e.notes, notes);
        double pole[4];
        id.pole(tai, pole);
        EXPECT_NEAR(e.x_pole * kArcsecond, pole[0], tolerance < 1e-9 ? 1e-19 : 2e-8);
        EXPECT_NEAR(e.dy * kArcsecond, notes == 0 ? pole[3] : 0.0, tolerance < 1e-9 ? 1e-19 : 1e-12);
    }
}

// Months and years after its last row: the formulas that the bulletin prints, computed from its text in Python.
TEST(EarthOrientation, GoesOnByTheFormulasOfTheBulletin)
{
    const char *const file = "tests/data/bulletina-xix-001.txt";
    const long one = 1, formulas = 0, whole = KL_TIME_WINDOW_FILE;
    kl_time_id id = {};
    ASSERT_NE(kl_time_id_init(&one, &file, &formulas, &whole, nullptr, nullptr, nullptr, &id, nullptr), KL_ERR);
    struct Case {
        double mjd, x, y, ut1_utc; // UTC; arcsec, s
    };
    constexpr Case kCases[] = {{54200.25, 0.051505887710558, 0.532813400069741, 0.122773397970331},
                               {55000.0, 0.052610667660808, 0.668931773706794, -0.220518061059755}};
    for (const Case &c : kCases) {
        const double utc = c.mjd - 51544.0;
        const kl_earth_orientation e = orientation(&id, utc, 0, KL_TIME_UTC);
        EXPECT_EQ(e.notes, KL_EOP_OUTSIDE_TABLE | KL_EOP_BY_FORMULA);
        EXPECT_NEAR(e.x_pole, c.x, 2e-6); // the formula of the pole counts in TAI: half a minute
        EXPECT_NEAR(e.y_pole, c.y, 2e-6);
        EXPECT_NEAR(e.ut1_utc, c.ut1_utc, 1e-6);
        // Rates are those of the values.
        constexpr double kStep = 0.25; // days
        const auto at = [&](double days) { return matrix(&id, KL_TIRS, KL_ITRS, KL_TIME_UTC, utc + days); };
        const Matrix before = at(-kStep), now = at(0.0), after = at(kStep);
        for (int i = 0; i < 9; ++i) {
            EXPECT_NEAR(now.rate[i], (after.m[i] - before.m[i]) / (2.0 * kStep * 86400.0), 1e-18) << i;
            EXPECT_NEAR(now.acceleration[i], (after.rate[i] - before.rate[i]) / (2.0 * kStep * 86400.0), 1e-24) << i;
        }
    }
    kl_time_close(&id, nullptr);
}

TEST(EarthOrientation, SaysWhatTheIdLacks)
{
    ExplicitId id;
    EXPECT_EQ(orientation(&id.id, 0.0, 0).notes, KL_EOP_NO_POLE);
    EXPECT_EQ(orientation(&id.id, 0.0, 0).x_pole, 0.0);
    for (long from = KL_GCRS; from <= KL_EME2000; ++from)
        for (long to = KL_GCRS; to <= KL_EME2000; ++to) {
            const bool turns = from != to && ((from == KL_TIRS || from == KL_ITRS) || (to == KL_TIRS || to == KL_ITRS));
            EXPECT_EQ(matrix(&id.id, from, to, KL_TIME_UTC, 0.0).status, turns ? KL_WARN : KL_OK) << from << ' ' << to;
        }
}

TEST(EarthOrientation, SameInstantOnEveryScale)
{
    SmoothId id(9000.0, 10);
    const double tai = 9004.5 + 37.0 / 86400.0;
    const Matrix by_tai = matrix(&id.id, KL_GCRS, KL_ITRS, KL_TIME_TAI, tai);
    const double by[4] = {tai, 9004.5, tai - id.tai_ut1(tai) / 86400.0, tai - 19.0 / 86400.0};
    for (long ref = KL_TIME_TAI; ref <= KL_TIME_GPS; ++ref)
        for (int k = 0; k < 9; ++k) // half a spacing of the instant: 0.08 us, 6e-12 rad
            EXPECT_NEAR(matrix(&id.id, KL_GCRS, KL_ITRS, ref, by[ref]).m[k], by_tai.m[k], 1.4e-11) << ref;
}

TEST(EarthOrientation, HoldsAtItsFirstAndLastRowOnEveryScale)
{
    for (const double origin : {-9860.0, 0.0, 9000.0, 10000.0})
        for (const long n : {1L, 2L, 3L, 4L, 95L}) {
            SmoothId id(origin, n);
            for (const double utc : {origin, origin + static_cast<double>(n - 1)}) {
                const double tai = utc + 37.0 / 86400.0;
                const double by[4] = {tai, utc, utc + (37.0 - id.tai_ut1(tai)) / 86400.0, utc + 18.0 / 86400.0};
                for (long ref = KL_TIME_TAI; ref <= KL_TIME_GPS; ++ref) {
                    const kl_earth_orientation e = orientation(&id.id, by[ref], 0, ref);
                    double pole[4];
                    id.pole(tai, pole);
                    EXPECT_EQ(e.notes, 0) << origin << ' ' << n << ' ' << utc << ' ' << ref;
                    EXPECT_NEAR(e.dx * kArcsecond, pole[2], 1e-18) << origin << ' ' << n << ' ' << utc << ' ' << ref;
                }
            }
        }
}

TEST(EarthOrientation, ReadsOnlyWhatTheModeHas)
{
    SmoothId id(9000.0, 10);
    const long corrections = 0;
    const long mode = KL_CALC_POS;
    const long from = KL_GCRS;
    const long to = KL_ITRS;
    const long ref = KL_TIME_UTC;
    const double time = 9004.0;
    const double pos[3] = {7e6, 0.0, 0.0};
    double out[3][3] = {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
    EXPECT_EQ(kl_iers_change(&id.id, &corrections, &mode, &from, &to, &ref, &time, pos, nullptr, nullptr, out[0],
                             out[1], out[2], nullptr),
              KL_OK);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(out[1][i], 0.0);
        EXPECT_EQ(out[2][i], 0.0);
    }
    const long velocity = KL_CALC_POS_VEL;
    EXPECT_EQ(kl_iers_change(&id.id, &corrections, &velocity, &from, &to, &ref, &time, pos, nullptr, nullptr, out[0],
                             out[1], out[2], nullptr),
              KL_ERR);
}
