// The ephemerides in AU and AU/s: values, laws, and ERFA over 1950-2099.
#include "support/chain_state.h"
#include "support/csv.h"

namespace {

constexpr double kMjdZero = 2400000.5;
constexpr double kMjd1950 = 33282.0, kMjd2099 = 88069.0;
constexpr double kMetres = 149597870700.0; // in an AU
constexpr int kTheMoon = 9;
constexpr const char *kLetters[][2] = { // of three turns, and what they amount to
    {"zyx", "zyx"}, {"ZXZ", "zxz"}, {"123", "xyz"}, {"XY", "xy"}, {"yXz2", "yxz"},
    {"z?x", "z"},   {"4", ""},      {"", ""},       {nullptr, ""}};

// Bodies as in tests/data/ephemeris.csv.
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
    for (const Csv &rows : {Csv("tests/data/ephemeris.csv"), Csv("tests/data/ephemeris_check.csv")})
        for (std::size_t row = 0; row < rows.size(); ++row) {
            double numbers[8], pv[6];
            for (std::size_t i = 0; i < 8; ++i)
                numbers[i] = rows.number(row, i);
            const auto &[number, mjd, x, y, z, vx, vy, vz] = numbers;
            const int body = static_cast<int>(number);
            evaluate(body, mjd, pv);
            const bool planet = body <= KL_NEPTUNE, moon = body == kTheMoon;
            const double position = planet ? 6e-13 * std::hypot(x, y, z) : moon ? 1e-14 : 1.5e-13;
            const double velocity = planet ? 6e-13 * std::hypot(vx, vy, vz) : 2e-20;
            for (int i = 0; i < 6; ++i)
                EXPECT_NEAR(pv[i], numbers[i + 2], i < 3 ? position : velocity) << body << " MJD " << mjd << " " << i;
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

// Precession by the implementation of ephemeris_check.csv; any three turns by ERFA.
TEST(Rotation, PrecessionAndEulerAnglesHaveTheirReferenceValues)
{
    constexpr double kAngles[3] = {0.3, -1.2, 2.1}; // rad
    const Csv precession("tests/data/precession.csv");
    double got[3][3], want[3][3];
    KL_SlaPrec(precession.number(0, 0), precession.number(0, 1), got);
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(got[i / 3][i % 3], precession.number(0, 2 + i), 1e-14) << i;
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
