// The frames against what others compute: 50-digit arithmetic, ERFA's theories, published poles.
#include "coord/chain_state.h"
#include "support/tolerances.h"
#include "time/time.h"

#include <erfa.h>
#include <gtest/gtest.h>
#include <string>

namespace {

constexpr double kJdOfDayZero = 2451544.5;
constexpr double kArcsecond = 4.848136811095359935899141e-6; // rad
constexpr double kTtMinusUt1 = kTaiMinusUt1 + 32.184;        // s
constexpr double kRadius = 7e6;                              // m

// Where the chain takes a position.
struct Carried {
    double p[3];
    operator const double *() const { return p; }
};
Carried carried(long from, long to, const double (&position)[3], double ut1_days)
{
    static ChainTimeId time_id;
    ChainState state(from, 0, {{position[0], position[1], position[2]}, {}, {}});
    EXPECT_NE(carry(&time_id.id, {kUt1, kMjd2000, ut1_days}, &state, to, 0), KL_ERR);
    return {{state.at(0, 0), state.at(0, 1), state.at(0, 2)}};
}

double distance(const double a[3], const double b[3])
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

// How far two rotations part: the largest way of the images of the axes, rad.
template <typename Matrix>
double parting(long from, long to, const Matrix &rival, double ut1_days)
{
    double worst = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        double unit[3] = {};
        unit[axis] = 1.0;
        double image[3];
        eraRxp(const_cast<double(*)[3]>(rival), unit, image);
        worst = std::max(worst, distance(carried(from, to, unit, ut1_days), image));
    }
    return worst;
}

// ---- 50-digit arithmetic ----

struct ReferenceState {
    long from, to;
    double days, numbers[9];
};
constexpr ReferenceState kReference[] = {
#include "coord/reference_states.inc"
};

// Rates included: a wrong sign or a lost product in any of them shows at 1e-9 of the value. The sidereal angle is a
// thousand turns and more: the rate's last place (5.7e-14 deg/day) is 5e-11 rad after 36524 days.
TEST(FrameAccuracy, StatesAreThoseOfNumericDifferences)
{
    for (const ReferenceState &row : kReference) {
        const bool sidereal = row.to == KL_PEF || row.to == KL_EF || row.from == KL_EF;
        const double turn = sidereal ? 5e-11 : 4e-15; // rad
        ChainState state(row.from);
        ASSERT_NE(carry(nullptr, {kUt1, kMjd2000, row.days}, &state, row.to), KL_ERR);
        const double size[3] = {7.9e6, 7.9e6 * 7.3e-5 + 7.7e3, 7.9e6 * 5.4e-9 + 2.0 * 7.7e3 * 7.3e-5 + 7.8};
        for (int v = 0; v < 3; ++v)
            EXPECT_LT(distance(state, v, row.numbers + 3 * v), turn * size[v])
                << row.from << " to " << row.to << " at " << row.days << ", derivative " << v;
    }
}

struct ReferenceAngle {
    const char *name;
    double days, numbers[3];
};
constexpr ReferenceAngle kReferenceAngles[] = {
#include "coord/reference_angles.inc"
};

// The rates that are too small to show in a state: the square of the sidereal angle, the third order of precession.
// Rates of nutation leave out the squares of its arguments.
TEST(FrameAccuracy, AnglesAndTheirRatesAreThoseOfNumericDifferences)
{
    constexpr double kNoSquares[3] = {0.0, 2e-18, 6e-25}; // rad/s, rad/s2
    for (const ReferenceAngle &row : kReferenceAngles) {
        kl_precession p;
        kl_nutation n;
        kl_angle h;
        KL_Precession(row.days, &p);
        KL_Sim_Nut_Term(row.days, &n);
        ASSERT_EQ(KL_H_Angle(nullptr, row.days, &h), 0);
        const double sidereal[3] = {h.value * M_PI / 180.0, h.rate * M_PI / 180.0, h.rate_of_rate * M_PI / 180.0};
        const std::string name = row.name;
        const double *ours = name == "zeta"    ? p.zeta
                             : name == "z"     ? p.z
                             : name == "theta" ? p.theta
                             : name == "dpsi"  ? n.dpsi
                             : name == "deps"  ? n.deps
                                               : sidereal;
        const bool precession = name[0] == 'z' || name[0] == 't';
        const double rounding[3] = {name == "H" ? 5e-11 : 1e-16, precession ? 1e-26 : kNoSquares[1],
                                    precession ? 1e-38 : kNoSquares[2]};
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(ours[i], row.numbers[i], rounding[i]) << name << " at " << row.days << ", derivative " << i;
        EXPECT_TRUE(h.value >= 0.0 && h.value < 360.0);
    }
}

// ---- IAU 1976, 1980, 1982 ----

// What differs is the rounding of the coefficients to seven decimals of a degree.
TEST(FrameAccuracy, PrecessionIsThatOf1976InRoundedDegrees)
{
    struct Case {
        double first, last, rad; // days since 2000-01-01 00:00
    };
    constexpr Case kCases[] = {{-3652.0, 3653.0, 1.6e-10}, {3653.0, 10958.0, 3.1e-10}, {-18262.0, -3652.0, 9.2e-10}};
    for (const Case &c : kCases)
        for (double d = c.first; d <= c.last; d += 365.25 / 4) {
            double rival[3][3];
            eraPmat76(kJdOfDayZero, d, rival);
            EXPECT_LT(parting(KL_GM2000, KL_MOD, rival, d), c.rad) << d;
        }
}

// Nine terms of 106: 1990 to 2030.
TEST(FrameAccuracy, NutationStaysNearTheFullSeriesOf1980)
{
    double squares[2] = {};
    int n = 0;
    for (double d = -3652.0; d < 10958.0; d += 0.7, ++n) {
        kl_nutation nutation;
        KL_Sim_Nut_Term(d, &nutation);
        double dpsi, deps;
        eraNut80(kJdOfDayZero, d, &dpsi, &deps);
        dpsi = (nutation.dpsi[0] - dpsi) / kArcsecond;
        deps = (nutation.deps[0] - deps) / kArcsecond;
        ASSERT_LT(std::fabs(dpsi), 0.103) << d;
        ASSERT_LT(std::fabs(deps), 0.039) << d;
        squares[0] += dpsi * dpsi;
        squares[1] += deps * deps;
    }
    EXPECT_LT(std::sqrt(squares[0] / n), 0.027);
    EXPECT_LT(std::sqrt(squares[1] / n), 0.012);
}

TEST(FrameAccuracy, TheMeanObliquityStandsStillOnPurpose)
{
    for (const double d : {-18262.0, 0.0, 36524.0}) {
        kl_nutation n;
        KL_Sim_Nut_Term(d, &n);
        EXPECT_DOUBLE_EQ(n.obliquity * 180.0 / M_PI, 23.439291) << d;
    }
}

// From TEME the Earth turns by the mean angle alone: this also settles on which side of true of date TEME lies, since
// with the other sign it would be off by twice the equation of the equinoxes, up to 1.6e-4 rad.
TEST(FrameAccuracy, TemeTurnsByTheMeanSiderealTimeOf1982)
{
    struct Case {
        double first, last, arcsec; // the cubic term is left out
    };
    constexpr Case kCases[] = {{-10957.0, 18262.0, 1.5e-5}, {-18262.0, -10957.0, 2.4e-5}, {18262.0, 36524.0, 1.1e-4}};
    for (const Case &c : kCases)
        for (double d = c.first; d <= c.last; d += 83.71) {
            double rival[3][3];
            eraIr(rival);
            eraRz(eraGmst82(kJdOfDayZero, d), rival);
            EXPECT_LT(parting(KL_TEME, KL_EF, rival, d), c.arcsec * kArcsecond) << d;
        }
}

// The whole way, zero pole, 1990 to 2030, with TT and the obliquity of date on the other side.
TEST(FrameAccuracy, InertialToEarthFixedStaysWithinMetresOfTheFullTheory)
{
    const double position[3] = {0.6 * kRadius, -0.48 * kRadius, 0.64 * kRadius};
    double squares = 0.0;
    int n = 0;
    for (double ut1 = -3652.0; ut1 < 10958.0; ut1 += 3.7, ++n) {
        const double tt = ut1 + kTtMinusUt1 / kDay;
        double rival[3][3], precession[3][3], nutation[3][3], expected[3];
        eraPmat76(kJdOfDayZero, tt, precession);
        eraNutm80(kJdOfDayZero, tt, nutation);
        eraRxr(nutation, precession, rival);
        eraRz(eraGst94(kJdOfDayZero, ut1), rival);
        eraRxp(rival, const_cast<double *>(position), expected);
        const double off = distance(carried(KL_GM2000, KL_EF, position, ut1), expected);
        ASSERT_LT(off, 1.45) << ut1;
        squares += off * off;
    }
    EXPECT_LT(std::sqrt(squares / n), 0.52);
}

// A pole as a bulletin's formula gives it: constant, two cosines and sines. At the instant the first angle is a quarter
// turn and the second a half, so x is 0.12 - 0.08 - 0.03 and y is 0.35 + 0.06 - 0.02 arcsec.
TEST(FrameAccuracy, PolarMotionHasTheSignsOfErfa)
{
    ChainTimeId owned;
    auto *record = static_cast<TimeIdRecord *>(owned.id.record);
    const double x[5] = {0.12, 0.05, -0.08, 0.03, 0.01}, y[5] = {0.35, 0.02, 0.06, 0.02, -0.04};
    std::copy(x, x + 5, record->pole_x);
    std::copy(y, y + 5, record->pole_y);
    record->pole_period[0] = 365.25;
    record->pole_period[1] = 435.0;
    record->pole_reference_date[0] = 9000.0 - 365.25 / 4.0;
    record->pole_reference_date[1] = 9000.0 - 435.0 / 2.0;
    constexpr double kHalfDay = 0.5;
    const auto at = [&](double days, ChainState *state) {
        EXPECT_NE(carry(&owned.id, {kUt1, kMjd2000, days}, state, KL_EF), KL_ERR);
    };
    double rival[3][3], expected[3], position[3] = {kRadius, -kRadius, kRadius}, rate[3];
    const double resting[3][3] = {{kRadius, -kRadius, kRadius}, {}, {}};
    ChainState now(KL_PEF, 2, resting), before(KL_PEF, 0, resting), after(KL_PEF, 0, resting);
    at(9000.0, &now);
    at(9000.0 - kHalfDay, &before);
    at(9000.0 + kHalfDay, &after);
    eraPom00(0.01 * kArcsecond, 0.39 * kArcsecond, 0.0, rival);
    eraRxp(rival, position, expected);
    EXPECT_LT(distance(now, 0, expected), 2e-6) << "ERFA turns about y first: apart by the product of the angles";
    eraIr(rival);
    eraRx(-0.39 * kArcsecond, rival);
    eraRy(-0.01 * kArcsecond, rival);
    eraRxp(rival, position, expected);
    EXPECT_LT(distance(now, 0, expected), 1e-8);
    for (int i = 0; i < 3; ++i)
        rate[i] = (after.at(0, i) - before.at(0, i)) / (2.0 * kHalfDay * kDay);
    EXPECT_LT(distance(now, 1, rate), 1e-4 * eraPm(rate));
    ASSERT_NE(carry(&owned.id, {kUt1, kMjd2000, 9000.0}, &now, KL_PEF), KL_ERR);
    EXPECT_LT(distance(now, 0, position), 1e-8);
}

// ---- Sun and barycentre ----

// The origin of the Earth's centre seen from the Sun and the barycentre; the bounds are those of the Earth's theory.
TEST(FrameAccuracy, TheOriginsLieWhereTheFullTheoryOfTheEarthHasThem)
{
    constexpr double kAu = 1.496e11; // m: the library's; the true one is 14 parts in a million shorter
    ChainTimeId time_id;
    for (double ut1 = -18261.0; ut1 < 36524.0; ut1 += 97.3) {
        double heliocentric[2][3], barycentric[2][3];
        eraEpv00(kJdOfDayZero, ut1 + kTtMinusUt1 / kDay, heliocentric, barycentric);
        struct Origin {
            long frame;
            double (*rival)[3];
            double metres, metres_per_second;
        };
        for (const auto &[frame, rival, metres, metres_per_second] :
             {Origin{KL_BM2000, barycentric, 11e6, 0.62}, Origin{KL_HM2000, heliocentric, 2e6, 0.52}}) {
            ChainState earth(KL_GM2000, 1, {});
            ASSERT_NE(carry(&time_id.id, {kUt1, kMjd2000, ut1}, &earth, frame, 1), KL_ERR);
            double expected[2][3];
            for (int i = 0; i < 3; ++i) {
                expected[0][i] = rival[0][i] * kAu;
                expected[1][i] = rival[1][i] * kAu / kDay;
            }
            ASSERT_LT(distance(earth, 0, expected[0]), metres) << frame << " at " << ut1;
            ASSERT_LT(distance(earth, 1, expected[1]), metres_per_second) << frame << " at " << ut1;
        }
    }
}

// ---- stars ----

// A star without proper motion in FK5, carried to B1950 and freed of its E-terms (as ERFA has them, J. Lieske 1979).
// ERFA's matrix is that of Yallop, whose spin about x differs by 13.4 mas a century.
TEST(FrameAccuracy, B1950IsTheFk4OfTheStarCatalogues)
{
    struct Case {
        double days, mas;
    };
    constexpr Case kCases[] = {{-18262.0, 1.5}, {-5844.0, 3.3}, {0.5, 5.5}, {7305.0, 8.2}};
    for (const Case &c : kCases)
        for (double ra = 0.1; ra < 6.2; ra += 0.61)
            for (double dec = -1.5; dec < 1.6; dec += 0.3) {
                double fk5[3], with_terms[3], r1950, d1950, dr, dd;
                eraS2c(ra, dec, fk5);
                const double epoch = eraEpb(kJdOfDayZero, c.days);
                eraFk54z(ra, dec, epoch, &r1950, &d1950, &dr, &dd);
                eraS2c(r1950, d1950, with_terms);
                constexpr double kE[3] = {-1.62557e-6, -0.31919e-6, -0.13843e-6}; // at 1950
                constexpr double kERate[3] = {1.245e-3, -1.580e-3, -0.659e-3};    // arcsec a tropical century
                double e[3], free[3];
                for (int i = 0; i < 3; ++i)
                    e[i] = kE[i] + kERate[i] * kArcsecond * (epoch - 1950.0) / 100.0;
                const double along = eraPdp(e, with_terms);
                for (int i = 0; i < 3; ++i)
                    free[i] = with_terms[i] - e[i] + along * with_terms[i];
                const double unit[3] = {fk5[0], fk5[1], fk5[2]};
                const Carried fk4 = carried(KL_BM2000, KL_BM1950, unit, c.days);
                EXPECT_LT(eraSepp(const_cast<double *>(fk4.p), free) / kArcsecond * 1e3, c.mas)
                    << c.days << ": " << ra << " " << dec;
            }
}

// A. Blaauw et al., Mon. Not. R. Astron. Soc. 121, 123 (1960): the pole at 12h 49m, +27.4 deg (B1950), and the
// longitude of the north celestial pole 123 deg. Exact by definition; the matrix has ten good decimals.
TEST(FrameAccuracy, GalacticPoleIsThatOfTheDefinition)
{
    double pole[3];
    eraS2c(192.25 * M_PI / 180.0, 27.4 * M_PI / 180.0, pole);
    const double given[3] = {pole[0], pole[1], pole[2]};
    const double north[3] = {0.0, 0.0, 1.0};
    const Carried image = carried(KL_BM1950, KL_GALACTIC, given, 0.5);
    EXPECT_LT(std::hypot(image.p[0], image.p[1]), 1e-10);
    const Carried celestial = carried(KL_BM1950, KL_GALACTIC, north, 0.5);
    EXPECT_NEAR(std::atan2(celestial.p[1], celestial.p[0]) * 180.0 / M_PI, 123.0, 1e-8);
}

// The axes of Hipparcos, from ICRS: 25 mas from J2000. The equinox of the FK4 stays as it was, without the correction
// of 0.525" that the FK5 brought (W. Fricke, Astron. Astrophys. 107, L13, 1982).
TEST(FrameAccuracy, GalacticAxesOfJ2000AreThoseOfHipparcosAtTheOldEquinox)
{
    constexpr double kEquinox = 0.525 * kArcsecond;
    for (double ra = 0.1; ra < 6.2; ra += 0.61)
        for (double dec = -1.5; dec < 1.6; dec += 0.3) {
            double equatorial[3], galactic[3], l, b;
            eraS2c(ra, dec, equatorial);
            eraIcrs2g(ra + kEquinox, dec, &l, &b);
            eraS2c(l, b, galactic);
            const Carried ours = carried(KL_BM2000, KL_GALACTIC, {equatorial[0], equatorial[1], equatorial[2]}, 0.0);
            EXPECT_LT(eraSepp(const_cast<double *>(ours.p), galactic) / kArcsecond, 0.04) << ra << " " << dec;
        }
}

TEST(FrameAccuracy, OutOfGalacticHasTenDecimalsOnPurpose)
{
    for (long to : {KL_BM2000, KL_BM1950})
        for (int axis = 0; axis < 3; ++axis) {
            double unit[3] = {};
            unit[axis] = 1.0;
            const Carried out = carried(KL_GALACTIC, to, unit, 0.0);
            for (double x : out.p)
                EXPECT_NEAR(x * 1e10, std::round(x * 1e10), 2e-6) << to << " " << axis;
            const Carried in = carried(to, KL_GALACTIC, unit, 0.0);
            EXPECT_GT(std::fabs(in.p[0] * 1e10 - std::round(in.p[0] * 1e10)), 1e-4) << "fifteen decimals the other way";
        }
}

} // namespace
