// The ephemerides in AU and AU/s: values, laws, and ERFA over 1950-2099.
#include "kl_family.h"

#include <cmath>
#include <erfa.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double kMjdZero = 2400000.5;
constexpr double kMjd1950 = 33282.0, kMjd2099 = 88069.0;
constexpr double kStep = 3.71;                               // days: no period of the bodies is a multiple
constexpr double kKilometres = 149597870.7;                  // in an AU
constexpr double kMetres = 149597870700.0;                   // in an AU
constexpr double kArcsecond = 4.848136811095359935899141e-6; // rad
constexpr double kSecondsPerDay = 86400.0;

// What two correct double-precision evaluations may differ by, since they reduce arguments of thousands of radians: AU
// and AU/s, for the planets parts of distance and speed.
constexpr double kMoonPosition = 5e-14, kMoonVelocity = 1e-19;
constexpr double kEarthPosition = 1e-12, kEarthVelocity = 2e-19;
constexpr double kPlanetPosition = 2e-12, kPlanetVelocity = 5e-12;
constexpr double kMatrix = 1e-14;

double length(const double v[3])
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

double distance(const double a[3], const double b[3])
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return length(d);
}

constexpr int kTheMoon = 9;

// A row: body 1 to 8 the planets, 9 the Moon, 10 and 11 the Earth (barycentric, heliocentric), 12 and 13 the same at
// the equinox of date; MJD; position and velocity.
struct Row {
    int body;
    double mjd;
    double pv[6];
};
constexpr Row kRows[] = {
#include "celestial/check_values.inc"
#include "celestial/reference_values.inc"
};

void evaluate(int body, double mjd, double pv[6])
{
    if (body <= KL_NEPTUNE) {
        long status = 7;
        KL_SlaPlanet(body, pv, &status, mjd);
        EXPECT_EQ(status, 0);
    } else if (body == kTheMoon) {
        KL_SlaDmoon(pv, mjd);
    } else {
        double v[2][3], p[2][3];
        KL_SlaEvp(v[0], p[0], v[1], p[1], mjd, body >= 12 ? 0.0 : 2000.0);
        const int centre = body % 2;
        for (int i = 0; i < 3; ++i) {
            pv[i] = p[centre][i];
            pv[i + 3] = v[centre][i];
        }
    }
}

TEST(Ephemeris, AgreesWithIndependentEvaluations)
{
    for (const Row &row : kRows) {
        double pv[6];
        evaluate(row.body, row.mjd, pv);
        double position = kEarthPosition, velocity = kEarthVelocity;
        if (row.body == kTheMoon) {
            position = kMoonPosition;
            velocity = kMoonVelocity;
        } else if (row.body <= KL_NEPTUNE) {
            position = kPlanetPosition * length(row.pv);
            velocity = kPlanetVelocity * length(row.pv + 3);
        }
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(pv[i], row.pv[i], i < 3 ? position : velocity)
                << "body " << row.body << " MJD " << row.mjd << " number " << i;
    }
}

TEST(Ephemeris, PlanetsFollowTheSameTheoryInErfa)
{
    constexpr double kPositionAu = 5e-12;
    constexpr double kVelocityAu = 6e-19; // AU/s: its Gaussian constant is per day
    for (double mjd = kMjd1950; mjd < kMjd2099; mjd += kStep)
        for (int planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet) {
            double pv[6], rival[2][3];
            evaluate(planet, mjd, pv);
            eraPlan94(kMjdZero, mjd, planet, rival);
            for (double &v : rival[1])
                v /= kSecondsPerDay;
            ASSERT_LT(distance(pv, rival[0]), kPositionAu) << planet << " at " << mjd;
            ASSERT_LT(distance(pv + 3, rival[1]), kVelocityAu) << planet << " at " << mjd;
        }
}

// The full theory in ERFA is good to a few km; what remains is the truncation of Stumpff's series. The bounds are the
// largest differences over the range, 10887 and 1956 km, 0.61 and 0.51 m/s, 2.65", rounded up.
TEST(Ephemeris, EarthStaysNearAFullTheory)
{
    for (double mjd = kMjd1950; mjd < kMjd2099; mjd += kStep) {
        double barycentric[6], heliocentric[6], h[2][3], b[2][3];
        evaluate(10, mjd, barycentric);
        evaluate(11, mjd, heliocentric);
        eraEpv00(kMjdZero, mjd, h, b);
        for (int i = 0; i < 3; ++i) {
            h[1][i] /= kSecondsPerDay;
            b[1][i] /= kSecondsPerDay;
        }
        ASSERT_LT(distance(barycentric, b[0]) * kKilometres, 11000.0) << mjd;
        ASSERT_LT(distance(heliocentric, h[0]) * kKilometres, 2000.0) << mjd;
        ASSERT_LT(distance(barycentric + 3, b[1]) * kMetres, 0.62) << mjd;
        ASSERT_LT(distance(heliocentric + 3, h[1]) * kMetres, 0.52) << mjd;
        ASSERT_LT(eraSepp(heliocentric, h[0]) / kArcsecond, 2.7) << mjd;
    }
}

// ERFA carries the longer series of Meeus (1998). Precessed to J2000 they differ by what the short series leaves out:
// 13.6", 45.3 km and 0.28 m/s at most.
TEST(Ephemeris, MoonStaysNearTheLongerSeries)
{
    for (double mjd = kMjd1950; mjd < kMjd2099; mjd += kStep / 3.0) {
        double pv[6], precession[3][3], position[3], velocity[3], rival[2][3];
        evaluate(9, mjd, pv);
        eraPmat76(kMjdZero, mjd, precession);
        eraTrxp(precession, pv, position);
        eraTrxp(precession, pv + 3, velocity);
        eraMoon98(kMjdZero, mjd, rival);
        for (double &v : rival[1])
            v /= kSecondsPerDay;
        ASSERT_LT(eraSepp(position, rival[0]) / kArcsecond, 14.0) << mjd;
        ASSERT_LT(std::fabs(length(position) - length(rival[0])) * kKilometres, 47.0) << mjd;
        ASSERT_LT(distance(velocity, rival[1]) * kMetres, 0.30) << mjd;
    }
}

// Central difference of fourth order.
void derivative(int body, double mjd, double step_days, double rate[3])
{
    double pv[4][6];
    const double offsets[4] = {-2.0, -1.0, 1.0, 2.0};
    for (int k = 0; k < 4; ++k)
        evaluate(body, mjd + offsets[k] * step_days, pv[k]);
    for (int i = 0; i < 3; ++i)
        rate[i] = (8.0 * (pv[2][i] - pv[1][i]) - (pv[3][i] - pv[0][i])) / (12.0 * step_days * kSecondsPerDay);
}

// The planets' velocity is that of the ellipse of the moment, the Earth's leaves out small terms, and the Moon's the
// motion of the obliquity (7e-14 rad/s at 4e8 m). The last column is what these omissions amount to.
TEST(Ephemeris, VelocityIsTheRateOfThePosition)
{
    struct Case {
        const char *name;
        int body;
        double step_days, metres_per_second;
    };
    constexpr Case kCases[] = {
        {"Mercury", 1, 0.02, 1.1},
        {"Venus", 2, 0.1, 1.9},
        {"Earth-Moon barycentre", 3, 0.1, 1.9},
        {"Mars", 4, 0.1, 4.0},
        {"Jupiter", 5, 0.5, 18.0},
        {"Saturn", 6, 0.5, 40.0},
        {"Uranus", 7, 0.5, 29.0},
        {"Neptune", 8, 0.5, 24.0},
        {"Moon", 9, 0.01, 3.5e-5},
        {"Earth, barycentric", 10, 0.05, 0.28},
        {"Earth, heliocentric", 11, 0.05, 0.22},
    };
    for (const Case &c : kCases)
        for (double mjd = kMjd1950; mjd < kMjd2099; mjd += 5.0 * kStep) {
            double pv[6], rate[3];
            evaluate(c.body, mjd, pv);
            derivative(c.body, mjd, c.step_days, rate);
            ASSERT_LT(distance(rate, pv + 3) * kMetres, c.metres_per_second) << c.name << " at " << mjd;
        }
}

TEST(Planet, StatusTellsTheMillenniumAndKepler)
{
    struct Case {
        const char *name;
        long planet;
        double mjd;
        long status;
    };
    constexpr double kMillennium = 365250.0;
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const Case cases[] = {
        {"J2000.0", 5, 51544.5, 0},
        {"a millennium later", 5, 51544.5 + kMillennium, 0},
        {"a day beyond", 5, 51545.5 + kMillennium, 1},
        {"a millennium earlier", 8, 51544.5 - kMillennium, 0},
        {"a day before that", 8, 51543.5 - kMillennium, 1},
        {"an orbit close to a parabola", 7, -120674537.5, 2},
        {"no date", 1, kNan, 2},
        {"planet 0", 0, 51544.5, -1},
        {"planet 9", 9, 51544.5, -1},
    };
    for (const Case &c : cases) {
        double pv[6] = {1.0, 1.0, 1.0, 1.0, 1.0, 1.0};
        long status = 99;
        KL_SlaPlanet(c.planet, pv, &status, c.mjd);
        EXPECT_EQ(status, c.status) << c.name;
        if (c.status == -1) {
            EXPECT_TRUE(length(pv) == 0.0 && length(pv + 3) == 0.0) << c.name;
        }
        if (c.status == 1) {
            EXPECT_NEAR(length(pv), c.planet == 5 ? 5.2 : 30.1, 0.5) << c.name;
        }
    }
}

void expect_matrix(const char *name, const double got[3][3], const double want[3][3])
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            EXPECT_NEAR(got[i][j], want[i][j], kMatrix) << name << " " << i << j;
}

constexpr double kIdentity[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

TEST(Rotation, PrecessionHasItsReferenceValueAndInverse)
{
    constexpr double kFrom1975To2010[3][3] = {
        {9.9996359134258517e-01, -7.8261521555535053e-03, -3.4010780169693821e-03},
        {7.8261521528303728e-03, 9.9996937511372430e-01, -1.3309719969770645e-05},
        {3.4010780232355286e-03, -1.3308118663713008e-05, 9.9999421622886087e-01},
    };
    double there[3][3], back[3][3], both[3][3];
    KL_SlaPrec(1975.0, 2010.0, there);
    expect_matrix("1975 to 2010", there, kFrom1975To2010);
    for (double epoch = 1950.0; epoch <= 2100.0; epoch += 12.5) {
        KL_SlaPrec(epoch, 2000.0, there);
        KL_SlaPrec(2000.0, epoch, back);
        eraRxr(back, there, both);
        expect_matrix("there and back", both, kIdentity);
    }
}

TEST(Rotation, EulerAnglesFollowTheLetters)
{
    constexpr double a = 0.3, b = -1.2, c = 2.1; // rad
    constexpr double kZxz[3][3] = {
        {-5.7473385015884293e-01, 1.4962805586829697e-01, -8.0454486908976452e-01},
        {-7.7059444601904081e-01, -4.2986019631113936e-01, 4.7053630188536594e-01},
        {-2.7543638330148074e-01, 8.9041094811576882e-01, 3.6235775447667362e-01},
    };
    double got[3][3];
    KL_SlaDeuler("ZXZ", a, b, c, got);
    expect_matrix("ZXZ", got, kZxz);

    struct Case {
        const char *letters;
        const char *turns; // what it amounts to, for ERFA
    };
    constexpr Case kCases[] = {
        {"zyx", "zyx"}, {"123", "xyz"}, {"XY", "xy"}, {"yXz2", "yxz"}, {"z?x", "z"}, {"4", ""}, {"", ""}, {nullptr, ""},
    };
    for (const Case &k : kCases) {
        const double angles[3] = {a, b, c};
        double want[3][3];
        eraIr(want);
        for (int n = 0; k.turns[n] != '\0'; ++n)
            (k.turns[n] == 'x' ? eraRx : k.turns[n] == 'y' ? eraRy : eraRz)(angles[n], want);
        KL_SlaDeuler(k.letters, a, b, c, got);
        expect_matrix(k.letters != nullptr ? k.letters : "NULL", got, want);
    }
}

} // namespace
