// The frames against what others compute: 50-digit arithmetic, ERFA's theories, published poles.
#include "support/chain_state.h"
#include "support/csv.h"
#include "time/scales.h"

#include <array>
#include <map>
#include <string>

namespace {

constexpr double kRadius = 7e6;                                        // m
constexpr double kPoleDay = 9000.0, kPolePeriods[2] = {365.25, 435.0}; // days

// Where the chain takes a position.
using Carried = std::array<double, 3>;
Carried carried(long from, long to, const double position[3], double ut1_days)
{
    static ChainTimeId time_id;
    ChainState state(from, 0, {{position[0], position[1], position[2]}, {}, {}});
    EXPECT_NE(carry(time_id, {kUt1, kMjd2000, ut1_days}, &state, to, 0), KL_ERR);
    return {state[0][0], state[0][1], state[0][2]};
}

constexpr double kAxes[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

// ---- 50-digit arithmetic ----

constexpr struct {
    long from, to;
    double days, numbers[9];
} kReferenceStates[] = {
#include "frames/reference_states.inc"
};

// Rates included: a wrong sign or a lost product in any of them shows at 1e-9 of the value. The sidereal angle is a
// thousand turns and more: the rate's last place (5.7e-14 deg/day) is 5e-11 rad after 36524 days.
TEST(FrameAccuracy, StatesAreThoseOfNumericDifferences)
{
    constexpr double kSize[3] = {7.9e6, 7.9e6 * 7.3e-5 + 7.7e3, 7.9e6 * 5.4e-9 + 2.0 * 7.7e3 * 7.3e-5 + 7.8};
    for (const auto &row : kReferenceStates) {
        const bool sidereal = row.to == KL_PEF || row.to == KL_EF || row.from == KL_EF;
        ChainState state(row.from);
        ASSERT_NE(carry(nullptr, {kUt1, kMjd2000, row.days}, &state, row.to), KL_ERR);
        for (int v = 0; v < 3; ++v)
            EXPECT_LT(distance(state[v], row.numbers + 3 * v), (sidereal ? 5e-11 : 4e-15) * kSize[v])
                << row.from << " to " << row.to << " at " << row.days << ", derivative " << v;
    }
}

const struct {
    std::string name;
    double days, numbers[3];
} kReferenceAngles[] = {
#include "frames/reference_angles.inc"
};

// The rates that are too small to show in a state: the square of the sidereal angle, the third order of precession.
// Rates of nutation leave out the squares of its arguments.
TEST(FrameAccuracy, AnglesAreThoseOfNumericDifferencesAndTheMeanObliquityStandsStillOnPurpose)
{
    for (const auto &row : kReferenceAngles) {
        kl_precession p;
        kl_nutation n;
        kl_angle h;
        KL_Precession(row.days, &p);
        KL_Sim_Nut_Term(row.days, &n);
        ASSERT_EQ(KL_H_Angle(nullptr, row.days, &h), 0);
        EXPECT_TRUE(h.value >= 0.0 && h.value < 360.0);
        EXPECT_DOUBLE_EQ(n.obliquity * 180.0 / M_PI, 23.439291);
        const double sidereal[3] = {h.value * M_PI / 180.0, h.rate * M_PI / 180.0, h.rate_of_rate * M_PI / 180.0};
        const std::map<std::string, const double *> ours = {{"zeta", p.zeta}, {"z", p.z},       {"theta", p.theta},
                                                            {"dpsi", n.dpsi}, {"deps", n.deps}, {"H", sidereal}};
        const bool precession = row.name[0] == 'z' || row.name[0] == 't';
        const double rounding[3] = {row.name == "H" ? 5e-11 : 1e-16, precession ? 1e-26 : 2e-18,
                                    precession ? 1e-38 : 6e-25};
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(ours.at(row.name)[i], row.numbers[i], rounding[i]) << row.name << " " << row.days << " " << i;
    }
}

// ---- IAU 1976, 1980, 1982 ----

// Precession differs by the rounding of its coefficients to seven decimals of a degree, the mean sidereal time by the
// cubic term that is left out. From TEME the Earth turns by the mean angle alone: this also settles on which side of
// true of date TEME lies, since with the other sign it would be off by twice the equation of the equinoxes, up to
// 1.6e-4 rad. The whole way, zero pole, 1990 to 2030, has TT, the 106 terms of nutation for nine and the obliquity of
// date on the other side.
TEST(FrameAccuracy, PrecessionAndSiderealTimeAreThoseOfErfaAndTheWholeWayIsWithinMetres)
{
    const double position[3] = {0.6 * kRadius, -0.48 * kRadius, 0.64 * kRadius};
    double squares = 0.0;
    int n = 0;
    for (double days = kFirst; days <= kLast; days += 7.7) {
        const double off = std::fabs(days - 3653.0); // from 2010
        double precession[3][3], sidereal[3][3], expected[3];
        eraPmat76(kJdOfDayZero, days, precession);
        eraIr(sidereal);
        eraRz(eraGmst82(kJdOfDayZero, days), sidereal);
        for (const auto &axis : kAxes) {
            eraRxp(precession, const_cast<double *>(axis), expected);
            const double rad = off < 7305.0 ? 3.1e-10 : 9.2e-10;
            ASSERT_LT(distance(carried(KL_GM2000, KL_MOD, axis, days).data(), expected), rad) << days;
            eraRxp(sidereal, const_cast<double *>(axis), expected);
            const double arcsec = off < 14610.0 ? 1.5e-5 : 1.1e-4;
            ASSERT_LT(distance(carried(KL_TEME, KL_EF, axis, days).data(), expected), arcsec * kArcsecond) << days;
        }
        if (off < 7305.0) {
            erfa_earth_fixed(days, position, expected);
            const double metres = distance(carried(KL_GM2000, KL_EF, position, days).data(), expected);
            ASSERT_LT(metres, 1.45) << days;
            squares += metres * metres;
            ++n;
        }
    }
    EXPECT_LT(std::sqrt(squares / n), 0.52);
}

// A pole as a bulletin's formula gives it: constant, two cosines and sines. Axes turn by W = Ry(-x) Rx(-y).
TEST(FrameAccuracy, PolarMotionHasTheSignsOfErfaAndMovesEvenThroughZero)
{
    const double resting[3][3] = {{kRadius, -kRadius, kRadius}, {}, {}};
    for (const auto &[name, x_cell, y_cell, date_cell, pole_cell] :
         read_rows<std::string, std::string, std::string, std::string, std::string>("pole_formulas.csv")) {
        SCOPED_TRACE(name);
        const auto x = cells_as<double>(x_cell), y = cells_as<double>(y_cell), dates = cells_as<double>(date_cell),
                   arcsec = cells_as<double>(pole_cell);
        ChainTimeId owned;
        PoleFormula &formula = static_cast<TimeIdRecord *>(owned.id.record)->correlation.pole;
        std::copy(x.begin(), x.end(), formula.x);
        std::copy(y.begin(), y.end(), formula.y);
        std::copy_n(kPolePeriods, 2, formula.period);
        std::copy(dates.begin(), dates.end(), formula.reference_date);
        double position[3] = {kRadius, -kRadius, kRadius}, rival[3][3], expected[3], rate[3];
        ChainState yesterday(KL_PEF, 0, resting), now(KL_PEF, 2, resting), tomorrow(KL_PEF, 0, resting);
        carry(owned, {kUt1, kMjd2000, kPoleDay - 1.0}, &yesterday, KL_EF);
        carry(owned, {kUt1, kMjd2000, kPoleDay}, &now, KL_EF);
        carry(owned, {kUt1, kMjd2000, kPoleDay + 1.0}, &tomorrow, KL_EF);
        // ERFA turns about y first: so the other way back.
        eraPom00(-arcsec.at(0) * kArcsecond, -arcsec.at(1) * kArcsecond, 0.0, rival);
        eraTrxp(rival, position, expected);
        EXPECT_LT(distance(now[0], expected), 1e-8);
        for (int i = 0; i < 3; ++i)
            rate[i] = (tomorrow[0][i] - yesterday[0][i]) / (2.0 * kDay);
        EXPECT_LE(distance(now[1], rate), 1e-4 * length(rate));
        Rotation rotation;
        ASSERT_EQ(KL_Polar_Motion_Rotation(owned, kPoleDay, &rotation), 0);
        ChainState turned(KL_PEF, 2, resting);
        KL_rva(&turned, &rotation, &turned);
        for (int v = 0; v < 3; ++v)
            EXPECT_LT(distance(turned[v], now[v]), 1e-8 * std::pow(1e-6, v));
        carry(owned, {kUt1, kMjd2000, kPoleDay}, &now, KL_PEF);
        EXPECT_LT(distance(now[0], position), 1e-8);
    }
}

// The Earth's centre seen from the Sun and the barycentre; the bounds are those of the Earth's theory.
// The published pole and UT1 of the correlation compiled in, against ERFA's chains with the same: positions at 7000 km,
// and how far they are off when the rows have no pole.
TEST(FrameAccuracy, ATableOfPolesTakesThePositionsToThoseOfErfaWithTheSamePole)
{
    constexpr double kJulianOf2000 = 2400000.5 + 51544.0;
    const long no_files = 0, all = KL_TIME_WINDOW_FILE, utc = KL_TIME_UTC, mode = KL_CALC_POS, to = KL_EF;
    OwnedTimeId with, without;
    ASSERT_EQ(kl_time_id_init(&no_files, nullptr, nullptr, &all, nullptr, nullptr, nullptr, with, nullptr), KL_OK);
    TimeData data(with);
    kl_time_id_data bare = data;
    bare.pole = nullptr;
    ASSERT_EQ(kl_time_set_id_data(without, &bare), KL_OK);
    double worst[2][2] = {}; // m: from TEME, GM2000; with a pole, without
    for (double days = -9860.0; days < 10090.0; days += 97.37) {
        kl_time_row_info row;
        ASSERT_EQ(kl_time_get_row(with, &utc, &days, &row), KL_OK);
        const double tt = days + (row.tai_utc + 32.184) / 86400.0;
        const double ut1 = days + (row.tai_utc - row.tai_ut1) / 86400.0;
        double pole[3][3], bpn[3][3], turn[3][3];
        eraPom00(row.pole[0] * kArcsecond, row.pole[1] * kArcsecond, 0.0, pole);
        eraPnm80(kJulianOf2000, tt, bpn);
        for (const long from : {KL_TEME, KL_GM2000}) {
            eraIr(turn);
            eraRz(from == KL_TEME ? eraGmst82(kJulianOf2000, ut1) : eraGst94(kJulianOf2000, ut1), turn);
            if (from == KL_GM2000)
                eraRxr(turn, bpn, turn);
            eraRxr(pole, turn, turn);
            for (const auto &axis : kAxes) {
                const double position[3] = {kRadius * axis[0], kRadius * axis[1], kRadius * axis[2]}, none[3] = {};
                double rival[3];
                eraRxp(turn, const_cast<double *>(position), rival);
                for (int i = 0; i < 2; ++i) {
                    double pos[3], vel[3], acc[3];
                    ASSERT_EQ(kl_change_cart_cs(nullptr, i == 0 ? with : without, &mode, &from, &to, &utc, &days,
                                                position, none, none, pos, vel, acc, nullptr),
                              KL_OK);
                    double &far = worst[from == KL_TEME ? 0 : 1][i];
                    far = std::max(far, distance(pos, rival));
                }
            }
        }
    }
    EXPECT_LT(worst[0][0], 1e-3) << "UT1 goes in whole microseconds";
    EXPECT_GT(worst[0][1], 10.0);
    EXPECT_LT(worst[1][0], 2.0) << "nine terms of nutation";
    EXPECT_GT(worst[1][1], 10.0);
}

TEST(FrameAccuracy, TheOriginsLieWhereTheFullTheoryOfTheEarthHasThem)
{
    ChainTimeId time_id;
    for (double ut1 = -18261.0; ut1 < kLast; ut1 += 97.3) {
        double rival[3][2][3] = {}; // by the frame
        eraEpv00(kJdOfDayZero, ut1 + kTtMinusUt1 / kDay, rival[KL_HM2000], rival[KL_BM2000]);
        for (long frame : {KL_BM2000, KL_HM2000}) {
            ChainState earth(KL_GM2000, 1, {});
            ASSERT_NE(carry(time_id, {kUt1, kMjd2000, ut1}, &earth, frame, 1), KL_ERR);
            eraS2xpv(kMetresPerAu, kMetresPerAu / kDay, rival[frame], rival[frame]);
            ASSERT_LT(distance(earth[0], rival[frame][0]), frame == KL_BM2000 ? 11e6 : 2e6) << ut1;
            ASSERT_LT(distance(earth[1], rival[frame][1]), frame == KL_BM2000 ? 0.62 : 0.52) << ut1;
        }
    }
}

// ---- stars ----

// A star without proper motion in FK5, carried to B1950 and freed of its E-terms (as ERFA has them, J. Lieske 1979).
// ERFA's matrix is that of Yallop, whose spin about x differs by 13.4 mas a century.
TEST(FrameAccuracy, B1950IsTheFk4OfTheStarCatalogues)
{
    constexpr double kE[3] = {-1.62557e-6, -0.31919e-6, -0.13843e-6}; // at 1950
    constexpr double kERate[3] = {1.245e-3, -1.580e-3, -0.659e-3};    // arcsec a tropical century
    constexpr double kDaysAndMas[][2] = {{kFirst, 1.5}, {-5844.0, 3.3}, {0.5, 5.5}, {7305.0, 8.2}};
    for (const auto &[days, mas] : kDaysAndMas)
        for (const auto &axis : kAxes) {
            double with_terms[3], e[3], free[3], ra, dec, r1950, d1950, dr, dd;
            const double epoch = eraEpb(kJdOfDayZero, days);
            eraC2s(const_cast<double *>(axis), &ra, &dec);
            eraFk54z(ra, dec, epoch, &r1950, &d1950, &dr, &dd);
            eraS2c(r1950, d1950, with_terms);
            for (int i = 0; i < 3; ++i)
                e[i] = kE[i] + kERate[i] * kArcsecond * (epoch - 1950.0) / 100.0;
            const double along = eraPdp(e, with_terms);
            for (int i = 0; i < 3; ++i)
                free[i] = with_terms[i] - e[i] + along * with_terms[i];
            EXPECT_LT(eraSepp(carried(KL_BM2000, KL_BM1950, axis, days).data(), free) / kArcsecond * 1e3, mas) << days;
        }
}

// A. Blaauw et al., Mon. Not. R. Astron. Soc. 121, 123 (1960): the pole at 12h 49m, +27.4 deg (B1950), and the
// longitude of the north celestial pole 123 deg. Exact by definition; the matrix has ten good decimals.
TEST(FrameAccuracy, GalacticPoleIsThatOfTheDefinition)
{
    double pole[3];
    eraS2c(192.25 * M_PI / 180.0, 27.4 * M_PI / 180.0, pole);
    const Carried image = carried(KL_BM1950, KL_GALACTIC, pole, 0.5);
    EXPECT_LT(std::hypot(image[0], image[1]), 1e-10);
    const Carried celestial = carried(KL_BM1950, KL_GALACTIC, kAxes[2], 0.5);
    EXPECT_NEAR(std::atan2(celestial[1], celestial[0]) * 180.0 / M_PI, 123.0, 1e-8);
}

// The axes of Hipparcos, from ICRS: 25 mas from J2000. The equinox of the FK4 stays as it was, without the correction
// of 0.525" that the FK5 brought (W. Fricke, Astron. Astrophys. 107, L13, 1982).
TEST(FrameAccuracy, GalacticAxesOfJ2000AreThoseOfHipparcosAtTheOldEquinox)
{
    for (const auto &axis : kAxes) {
        double galactic[3], ra, dec, l, b;
        eraC2s(const_cast<double *>(axis), &ra, &dec);
        eraIcrs2g(ra + 0.525 * kArcsecond, dec, &l, &b);
        eraS2c(l, b, galactic);
        EXPECT_LT(eraSepp(carried(KL_BM2000, KL_GALACTIC, axis, 0.0).data(), galactic) / kArcsecond, 0.04);
    }
}

TEST(FrameAccuracy, OutOfGalacticHasTenDecimalsOnPurpose)
{
    for (long to : {KL_BM2000, KL_BM1950})
        for (const auto &axis : kAxes) {
            for (double x : carried(KL_GALACTIC, to, axis, 0.0))
                EXPECT_NEAR(x * 1e10, std::round(x * 1e10), 2e-6) << to;
            const double in = carried(to, KL_GALACTIC, axis, 0.0)[0] * 1e10;
            EXPECT_GT(std::fabs(in - std::round(in)), 1e-4) << "fifteen decimals the other way";
        }
}

} // namespace
