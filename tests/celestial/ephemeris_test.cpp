// The ephemerides in AU and AU/s: values, laws, and ERFA over 1950-2099.
#include "coord/chain_state.h"

namespace {

constexpr double kMjdZero = 2400000.5;
constexpr double kMjd1950 = 33282.0, kMjd2099 = 88069.0;
constexpr double kMetres = 149597870700.0; // in an AU
constexpr int kTheMoon = 9;
#include "celestial/angle_letters.inc"
#include "celestial/ephemeris_bounds.inc"

// Body 1 to 8 the planets, 9 the Moon, 10 and 11 the Earth (barycentric, heliocentric), 12 and 13 the same at the
// equinox of date; position and velocity.
constexpr struct {
    int body;
    double mjd, pv[6];
} kStates[] = {
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
        std::copy_n(p[body % 2], 3, pv);
        std::copy_n(v[body % 2], 3, pv + 3);
    }
}

// ERFA's, in the same axes.
void rival_of(int body, double mjd, double pv[6])
{
    double both[2][2][3], precession[3][3];
    if (body <= KL_NEPTUNE)
        eraPlan94(kMjdZero, mjd, body, both[0]);
    else if (body == kTheMoon)
        eraMoon98(kMjdZero, mjd, both[0]);
    else
        eraEpv00(kMjdZero, mjd, both[1], both[0]);
    eraPmat76(kMjdZero, mjd, precession);
    for (int v = 0; v < 2; ++v) {
        double *rival = both[body == 11][v];
        eraSxp(v == 0 ? 1.0 : 1.0 / kDay, rival, rival);
        if (body == kTheMoon)
            eraRxp(precession, rival, rival);
        std::copy_n(rival, 3, pv + 3 * v);
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
        const double position = planet ? 2e-12 * length(row.pv) : moon ? 5e-14 : 1e-12;
        const double velocity = planet ? 5e-12 * length(row.pv + 3) : moon ? 1e-19 : 2e-19;
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(pv[i], row.pv[i], i < 3 ? position : velocity) << row.body << " MJD " << row.mjd << " " << i;
    }
}

// The planets are the same theory. The Earth's there is good to a few km: what remains is the truncation of Stumpff's
// series; of the Moon it has the longer series of Meeus (1998). Velocities: the planets' is that of the ellipse of the
// moment, the Earth's leaves out small terms, and the Moon's the motion of the obliquity (7e-14 rad/s at 4e8 m).
TEST(Ephemeris, StaysNearErfaAndItsVelocityIsTheRateOfThePosition)
{
    for (const auto &[name, body, arcsec, km, metres_per_second, step_days, off_rate] : kBounds) {
        double worst[4] = {}; // arcsec, km, m/s, m/s
        for (double mjd = kMjd1950; mjd < kMjd2099; mjd += 5.31) {
            double pv[6], rival[6], rate[3];
            evaluate(body, mjd, pv);
            rival_of(body, mjd, rival);
            rate_of([body = body](double at, double *out) { evaluate(body, at, out); }, mjd, step_days, rate);
            worst[0] = std::max(worst[0], eraSepp(pv, rival) / kArcsecond);
            worst[1] = std::max(worst[1], std::fabs(length(pv) - length(rival)) * kMetres / 1e3);
            worst[2] = std::max(worst[2], distance(pv + 3, rival + 3) * kMetres);
            worst[3] = std::max(worst[3], distance(pv + 3, rate) * kMetres);
        }
        EXPECT_LT(worst[0], arcsec) << name;
        EXPECT_LT(worst[1], km) << name;
        EXPECT_LT(worst[2], metres_per_second) << name;
        EXPECT_LT(worst[3], off_rate) << name;
    }
}

TEST(Ephemeris, StatesAreItsNumbersTimesTheRoundedAstronomicalUnitOnPurpose)
{
    const kl_time_record date = {kTdb, kMjd2000, 8766.5};
    ChainState states[4];
    ASSERT_EQ(KL_Planets(KL_MARS, &date, &states[0], nullptr), KL_OK);
    ASSERT_EQ(KL_Moon_PosVel(&date, &states[1], nullptr), KL_OK);
    ASSERT_EQ(KL_Earth(&date, &states[2], &states[3], nullptr), KL_OK);
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

void expect_matrix(const char *what, const double got[3][3], const double want[3][3])
{
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(got[i / 3][i % 3], want[i / 3][i % 3], 1e-14) << what << " " << i;
}

TEST(Rotation, PrecessionAndEulerAnglesHaveTheirReferenceValues)
{
    double got[3][3], back[3][3], identity[3][3];
#define X(call, ...)                                                                                                   \
    {                                                                                                                  \
        const double want[3][3] = {__VA_ARGS__};                                                                       \
        call;                                                                                                          \
        expect_matrix(#call, got, want);                                                                               \
    }
#include "celestial/reference_matrices.inc"
#undef X
    eraIr(identity);
    for (double epoch = 1950.0; epoch <= 2100.0; epoch += 12.5) {
        KL_SlaPrec(epoch, 2000.0, got);
        KL_SlaPrec(2000.0, epoch, back);
        eraRxr(back, got, got);
        expect_matrix("there and back", got, identity);
    }
}

TEST(Rotation, EulerAnglesFollowTheLetters)
{
    constexpr double kAngles[3] = {0.3, -1.2, 2.1}; // rad
    for (const auto &[letters, turns] : kLetters) {
        double got[3][3], want[3][3];
        eraIr(want);
        for (int n = 0; turns[n] != '\0'; ++n)
            (turns[n] == 'x' ? eraRx : turns[n] == 'y' ? eraRy : eraRz)(kAngles[n], want);
        KL_SlaDeuler(letters, kAngles[0], kAngles[1], kAngles[2], got);
        expect_matrix(turns, got, want);
    }
}

} // namespace
