// The ephemerides in AU and AU/s: values, laws, and ERFA over 1950-2099.
#include "support/chain_state.h"

namespace {

constexpr double kMjdZero = 2400000.5;
constexpr double kMjd1950 = 33282.0, kMjd2099 = 88069.0;
constexpr double kMetres = 149597870700.0; // in an AU
constexpr int kTheMoon = 9;
#include "bodies/angle_letters.inc"
#include "bodies/reference_matrices.inc"

// Body 1 to 8 the planets, 9 the Moon, 10 and 11 the Earth (barycentric, heliocentric), 12 and 13 the same at the
// equinox of date; position and velocity.
constexpr struct {
    int body;
    double mjd, pv[6];
} kStates[] = {
#include "bodies/check_values.inc"
#include "bodies/reference_values.inc"
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
        std::copy_n(p[body % 2], 3, pv);
        std::copy_n(v[body % 2], 3, pv + 3);
    }
}

// Two correct double-precision evaluations may differ by so much, since they reduce arguments of thousands of radians:
// AU and AU/s, for the planets parts of distance and speed.
TEST(Ephemeris, AgreesWithIndependentEvaluations)
{
    for (const auto &row : kStates) {
        double pv[6];
        evaluate(row.body, row.mjd, pv);
        const bool planet = row.body <= KL_NEPTUNE, moon = row.body == kTheMoon;
        const double position = planet ? 6e-13 * length(row.pv) : moon ? 1e-14 : 1.5e-13;
        const double velocity = planet ? 6e-13 * length(row.pv + 3) : 2e-20;
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(pv[i], row.pv[i], i < 3 ? position : velocity) << row.body << " MJD " << row.mjd << " " << i;
    }
}

// The same theory of the planets, at every phase of their orbits.
TEST(Ephemeris, PlanetsAreErfasFor150Years)
{
    for (int planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet)
        for (double mjd = kMjd1950; mjd < kMjd2099; mjd += 5.31) {
            double pv[6], rival[2][3];
            evaluate(planet, mjd, pv);
            eraPlan94(kMjdZero, mjd, planet, rival);
            EXPECT_LT(distance(pv, rival[0]), 1e-12 * length(pv)) << planet << " MJD " << mjd;
            eraSxp(1.0 / kDay, rival[1], rival[1]);
            EXPECT_LT(distance(pv + 3, rival[1]) * kMetres, 9e-8) << planet << " MJD " << mjd;
        }
}

TEST(Ephemeris, StatesAreItsNumbersTimesTheRoundedAstronomicalUnitOnPurpose)
{
    const kl_time_record date = {kTdb, kMjd2000, 8766.5};
    ChainState states[4];
    KL_Planets(KL_MARS, &date, &states[0], nullptr);
    KL_Moon_PosVel(&date, &states[1], nullptr);
    KL_Earth(&date, &states[2], &states[3], nullptr);
    constexpr int kBodies[] = {KL_MARS, kTheMoon, 10, 11}, kFrames[] = {KL_HM2000, KL_MOD, KL_BM2000, KL_HM2000};
    for (int k = 0; k < 4; ++k) {
        double pv[6];
        evaluate(kBodies[k], 51544.0 + date.value, pv);
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(states[k][i / 3][i % 3], pv[i] * kMetresPerAu) << kBodies[k];
        EXPECT_TRUE(states[k].cs == kFrames[k] && states[k].order == 1) << kBodies[k];
        EXPECT_EQ(distance(states[k][2], kStart[2]), 0.0) << "the acceleration is left alone";
    }
}

TEST(Ephemeris, TheSunNeedsAndWritesNoAcceleration)
{
    const kl_time_record date = {kTdb, kMjd2000, 8766.5};
    ChainState sun, without;
    without.acc = nullptr;
    EXPECT_EQ(KL_Sun_PosVel(nullptr, nullptr, &date, &sun, nullptr), KL_OK);
    EXPECT_EQ(KL_Sun_PosVel(nullptr, nullptr, &date, &without, nullptr), KL_OK);
    EXPECT_EQ(distance(sun[2], kStart[2]), 0.0);
    EXPECT_TRUE(without.cs == KL_MOD && without.order == 1 && distance(sun[0], without[0]) == 0.0);
}

// Precession by the independent implementation of check_values.inc; any three turns by ERFA.
TEST(Rotation, PrecessionAndEulerAnglesHaveTheirReferenceValues)
{
    constexpr double kAngles[3] = {0.3, -1.2, 2.1}; // rad
    double got[3][3], want[3][3];
    KL_SlaPrec(1975.0, 2010.0, got);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(got[i / 3][i % 3], kPrecession[i], 1e-14) << i;
    for (const auto &[letters, turns] : kLetters) {
        eraIr(want);
        for (int n = 0; turns[n] != '\0'; ++n)
            (turns[n] == 'x' ? eraRx : turns[n] == 'y' ? eraRy : eraRz)(kAngles[n], want);
        KL_SlaDeuler(letters, kAngles[0], kAngles[1], kAngles[2], got);
        for (int i = 0; i < 9; ++i)
            EXPECT_NEAR(got[i / 3][i % 3], want[i / 3][i % 3], 1e-14) << turns << " " << i;
    }
}

} // namespace
