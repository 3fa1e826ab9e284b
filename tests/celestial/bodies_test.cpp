// Sun, Moon and planets in the Earth-fixed frame: conditions, frames and units, laws, the whole way against ERFA.
#include "kl_family.h"
#include "models/model_record.h"

#include <algorithm>
#include <cmath>
#include <erfa.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSecondsPerDay = 86400.0;
constexpr double kSpeedOfLight = 299792458.0;
constexpr double kEarthRate = 7.292115e-5; // rad/s
constexpr double kMetresPerAu = 1.496e11;  // the library's
constexpr double kTrueAu = 149597870700.0; // m
constexpr double kArcsecond = 4.848136811095359935899141e-6;
constexpr double kJdOfDayZero = 2451544.5;
constexpr double kFirst = -18262.0, kLast = 36524.0;
constexpr double kNoon = 8766.5; // 2024-01-01 12:00
constexpr double kLeapSeconds = 37.0, kUt1MinusUtc = -0.02;

enum { kSun, kMoon, kPlanet };
constexpr const char *kNames[] = {"Sun", "Moon", "planet"};

double length(const double v[3])
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

double distance(const double a[3], const double b[3])
{
    const double d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return length(d);
}

// A state with vectors of its own, one-based.
struct State : Cord {
    double store[3][4] = {};
    explicit State(std::int32_t frame = 0)
    {
        cs = frame;
        order = 1;
        pos = store[0];
        vel = store[1];
        acc = store[2];
    }
    State(const State &) = delete;
    State &operator=(const State &) = delete;
    const double *position() const { return pos + 1; }
    const double *velocity() const { return vel + 1; }
};

kl_time_record tdb_record(double days)
{
    return {1, 3, days};
}

class Bodies : public testing::Test {
protected:
    kl_time_id time_id = {};
    kl_model_id model_id = {}; // uninitialised: the default models
    long ierr = 0;

    Bodies()
    {
        const double times[4] = {kNoon, kNoon - kLeapSeconds / kSecondsPerDay,
                                 kNoon - (kLeapSeconds - kUt1MinusUtc) / kSecondsPerDay, kNoon - 19.0 / kSecondsPerDay};
        EXPECT_EQ(kl_time_ref_init(times, nullptr, nullptr, nullptr, &time_id, &ierr), KL_OK);
    }
    ~Bodies() override
    {
        kl_time_close(&time_id, &ierr);
        if (kl_model_init_status(&model_id) != 0)
            kl_model_close(&model_id, &ierr);
    }

    // A model id of the caller's own; a selection that is refused leaves the blocks from there on without routines.
    long open_model(long kind = 0, long selection = 0)
    {
        long models[9] = {};
        models[kind] = selection;
        const long mode = KL_MODEL_USER;
        return kl_model_init(&mode, models, &model_id, &ierr);
    }

    long call(int body, kl_time_id *id, const long *planet, const long *ref, const double *time, double *pos,
              double *vel)
    {
        ierr = 77;
        switch (body) {
        case kSun:
            return kl_sun(&model_id, id, ref, time, pos, vel, &ierr);
        case kMoon:
            return kl_moon(&model_id, id, ref, time, pos, vel, &ierr);
        default:
            return kl_planet(&model_id, id, planet, ref, time, pos, vel, &ierr);
        }
    }

    // The usual call, which has to work.
    void state_of(int body, long planet, long ref, double time, double pos[3], double vel[3])
    {
        EXPECT_EQ(call(body, &time_id, &planet, &ref, &time, pos, vel), KL_OK) << kNames[body] << " at " << time;
        EXPECT_EQ(ierr, 0);
    }
};

// What a vector with one error looks like.
long error_bit(int bit)
{
    return bit < 0 ? 0 : static_cast<long>((1UL << 63) | (1UL << bit));
}

TEST_F(Bodies, RefuseBadInputWithTheirConditions)
{
    const long tai = KL_TIME_TAI, utc = KL_TIME_UTC, ut1 = KL_TIME_UT1, gps = KL_TIME_GPS;
    const long undefined = KL_TIME_UNDEF, fourth = 4, mars = KL_MARS, zero = 0, nine = 9, minus = -1;
    const double noon = kNoon, early = std::nextafter(kFirst, -kInfinity), late = std::nextafter(kLast, kInfinity);
    kl_time_id empty = {};
    double pos[3], vel[3];
    struct Case {
        const char *name;
        kl_time_id *id;
        const long *planet, *ref;
        const double *time;
        double *pos, *vel;
        int bits[3]; // of Sun, Moon, planet; -1: fails with a clear vector; -2: works
    };
    const Case cases[] = {
        {"reference below", &time_id, &mars, &undefined, &noon, pos, vel, {0, 0, 0}},
        {"reference above", &time_id, &mars, &fourth, &noon, pos, vel, {0, 0, 0}},
        {"no reference", &time_id, &mars, nullptr, &noon, pos, vel, {0, 0, 0}},
        {"reference before date", &time_id, &mars, &fourth, &late, pos, vel, {0, 0, 0}},
        {"too early", &time_id, &mars, &utc, &early, pos, vel, {1, 1, 1}},
        {"too late", &time_id, &mars, &tai, &late, pos, vel, {1, 1, 1}},
        {"not a number", &time_id, &mars, &ut1, &kNan, pos, vel, {1, 1, 1}},
        {"infinite", &time_id, &mars, &gps, &kInfinity, pos, vel, {1, 1, 1}},
        {"no date", &time_id, &mars, &utc, nullptr, pos, vel, {1, 1, 1}},
        {"date before time id", &empty, &mars, &utc, &late, pos, vel, {1, 1, 1}},
        {"first day, TAI", &time_id, &mars, &tai, &kFirst, pos, vel, {-2, -2, -2}},
        {"last day, UT1", &time_id, &mars, &ut1, &kLast, pos, vel, {-2, -2, -2}},
        {"UTC without time id", &empty, &mars, &utc, &noon, pos, vel, {2, 2, 2}},
        {"UT1 without time id", &empty, &mars, &ut1, &noon, pos, vel, {2, 2, 2}},
        {"GPS without time id", &empty, &mars, &gps, &noon, pos, vel, {2, 2, 2}},
        {"NULL time id", nullptr, &mars, &utc, &noon, pos, vel, {2, 2, 2}},
        {"planet 0", &time_id, &zero, &utc, &noon, pos, vel, {-2, -2, 3}},
        {"planet 9", &time_id, &nine, &utc, &noon, pos, vel, {-2, -2, 3}},
        {"planet -1", &time_id, &minus, &utc, &noon, pos, vel, {-2, -2, 3}},
        {"no planet", &time_id, nullptr, &utc, &noon, pos, vel, {-2, -2, 3}},
        {"planet before UT1", &empty, &nine, &tai, &noon, pos, vel, {4, 5, 3}},
        {"no position", &time_id, &mars, &utc, &noon, nullptr, vel, {-1, -1, -1}},
        {"no velocity", &time_id, &mars, &utc, &noon, pos, nullptr, {-1, -1, -1}},
    };
    for (const Case &c : cases)
        for (int body : {kSun, kMoon, kPlanet}) {
            for (int i = 0; i < 3; ++i)
                pos[i] = vel[i] = -7.0;
            const long status = call(body, c.id, c.planet, c.ref, c.time, c.pos, c.vel);
            if (c.bits[body] == -2) {
                EXPECT_EQ(status, KL_OK) << c.name << ", " << kNames[body];
                EXPECT_EQ(ierr, 0) << c.name << ", " << kNames[body];
                continue;
            }
            EXPECT_EQ(status, KL_ERR) << c.name << ", " << kNames[body];
            EXPECT_EQ(ierr, error_bit(c.bits[body])) << c.name << ", " << kNames[body];
            EXPECT_TRUE(pos[0] == -7.0 && vel[2] == -7.0) << "outputs are left alone: " << c.name;
        }
    EXPECT_EQ(kl_sun(nullptr, &time_id, &utc, &noon, pos, vel, nullptr), KL_OK) << "no model id, no vector";
    EXPECT_EQ(kl_moon(nullptr, &time_id, &fourth, &noon, pos, vel, nullptr), KL_ERR);
}

TEST_F(Bodies, SunReportsTheConversionToUt1AsTheOneToTdbOnPurpose)
{
    kl_time_id empty = {};
    const long tai = KL_TIME_TAI, mars = KL_MARS;
    const double noon = kNoon;
    double pos[3], vel[3];
    const int bits[] = {KL_SUN_TDB_ERR, KL_MOON_PROC_TO_PROC_ERR, KL_PLANET_PROC_TO_PROC_ERR};
    for (int body : {kSun, kMoon, kPlanet}) {
        EXPECT_EQ(call(body, &empty, &mars, &tai, &noon, pos, vel), KL_ERR);
        EXPECT_EQ(ierr, error_bit(bits[body])) << kNames[body];
    }
}

TEST_F(Bodies, FailWithoutTheRoutinesOfARefusedModel)
{
    struct Case {
        const char *name;
        long kind; // the first block without routines
        int bits[3];
    };
    constexpr Case kCases[] = {
        {"from the Sun on", KL_MODEL_SUN, {KL_SUN_BODY_ERR, KL_MOON_BODY_ERR, -1}},
        {"from the Moon on", KL_MODEL_MOON, {KL_SUN_BODY_ERR, KL_MOON_BODY_ERR, -1}},
        {"from nutation on", KL_MODEL_NUTATION, {KL_SUN_BODY_ERR, KL_MOON_FRAME_ERR, KL_PLANET_FRAME_ERR}},
    };
    const long utc = KL_TIME_UTC, mars = KL_MARS;
    const double noon = kNoon;
    double pos[3], vel[3];
    for (const Case &c : kCases) {
        ASSERT_EQ(open_model(c.kind, 5), KL_ERR) << "refused, yet initialised";
        for (int body : {kSun, kMoon, kPlanet}) {
            EXPECT_EQ(call(body, &time_id, &mars, &utc, &noon, pos, vel), KL_ERR) << c.name << ", " << kNames[body];
            EXPECT_EQ(ierr, error_bit(c.bits[body])) << c.name << ", " << kNames[body];
        }
        ASSERT_EQ(kl_model_close(&model_id, &ierr), KL_OK);
    }
    ASSERT_EQ(open_model(), KL_OK);
    static_cast<NutationModel *>(KL_Model_get_data(&model_id, KL_MODEL_NUTATION))->nutation = nullptr;
    EXPECT_EQ(call(kSun, &time_id, &mars, &utc, &noon, pos, vel), KL_ERR);
    EXPECT_EQ(ierr, error_bit(KL_SUN_FRAME_ERR));
}

TEST_F(Bodies, UninitialisedModelGivesTheDefaultOneAndStaysUninitialised)
{
    double pos[3][3], vel[3];
    for (int body : {kSun, kMoon, kPlanet})
        state_of(body, KL_SATURN, KL_TIME_UTC, kNoon, pos[body], vel);
    EXPECT_EQ(model_id.record, nullptr);
    ASSERT_EQ(open_model(), KL_OK);
    for (int body : {kSun, kMoon, kPlanet}) {
        double own[3];
        state_of(body, KL_SATURN, KL_TIME_UTC, kNoon, own, vel);
        EXPECT_EQ(distance(own, pos[body]), 0.0) << kNames[body];
    }
}

// The same instant on the four scales. Conversions round to the microsecond, in which the axes turn by 7.3e-11 rad.
TEST_F(Bodies, AreTheSameOnEveryScale)
{
    constexpr double kTurn = 1.1e-6 * kEarthRate; // rad
    const double times[4] = {kNoon, kNoon - kLeapSeconds / kSecondsPerDay,
                             kNoon - (kLeapSeconds - kUt1MinusUtc) / kSecondsPerDay, kNoon - 19.0 / kSecondsPerDay};
    for (int body : {kSun, kMoon, kPlanet}) {
        double tai[2][3], other[2][3];
        state_of(body, KL_JUPITER, KL_TIME_TAI, times[0], tai[0], tai[1]);
        for (long ref : {KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS}) {
            state_of(body, KL_JUPITER, ref, times[ref], other[0], other[1]);
            EXPECT_LT(distance(tai[0], other[0]), kTurn * length(tai[0])) << kNames[body] << " " << ref;
            EXPECT_LT(distance(tai[1], other[1]), kTurn * length(tai[1])) << kNames[body] << " " << ref;
        }
    }
}

// Independent way: ERFA's theories, precession 1976, nutation 1980, sidereal time 1994; lengths in its own AU. What
// differs is the truncation of the series (Sun 2.65", Moon 13.6", planets as seen from the Earth: the Sun's part alone,
// since theirs are the same) and nine terms of nutation for 106 (0.1").
TEST_F(Bodies, StayNearErfaInTheEarthFixedFrame)
{
    struct Case {
        const char *name;
        int body, planet;
        double arcsec, km;
    };
    constexpr Case kCases[] = {
        {"Sun", kSun, 0, 2.7, 900.0},         {"Moon", kMoon, 0, 13.8, 46.0},
        {"Mercury", kPlanet, 1, 4.4, 1900.0}, {"Venus", kPlanet, 2, 8.6, 1900.0},
        {"Mars", kPlanet, 4, 5.3, 1900.0},    {"Jupiter", kPlanet, 5, 0.65, 1900.0},
        {"Saturn", kPlanet, 6, 0.3, 1900.0},  {"Uranus", kPlanet, 7, 0.18, 1900.0},
        {"Neptune", kPlanet, 8, 0.1, 1900.0},
    };
    for (const Case &c : kCases)
        for (double ut1 = kFirst + 1.0; ut1 < kLast; ut1 += 23.37) {
            const double tt = ut1 + (kLeapSeconds - kUt1MinusUtc + 32.184) / kSecondsPerDay;
            double pos[3], vel[3], rival[2][3], h[2][3], b[2][3];
            state_of(c.body, c.planet, KL_TIME_UT1, ut1, pos, vel);
            eraEpv00(kJdOfDayZero, tt, h, b);
            if (c.body == kMoon)
                eraMoon98(kJdOfDayZero, tt, rival);
            else if (c.body == kPlanet)
                eraPlan94(kJdOfDayZero, tt, c.planet, rival);
            else
                eraZpv(rival);
            double seen[3], precession[3][3], nutation[3][3], turned[3][3];
            for (int i = 0; i < 3; ++i)
                seen[i] = rival[0][i] - (c.body == kMoon ? 0.0 : h[0][i]);
            eraPmat76(kJdOfDayZero, tt, precession);
            eraNutm80(kJdOfDayZero, tt, nutation);
            eraRxr(nutation, precession, turned);
            eraRz(eraGst94(kJdOfDayZero, ut1), turned);
            eraRxp(turned, seen, seen);
            ASSERT_LT(eraSepp(pos, seen) / kArcsecond, c.arcsec) << c.name << " at " << ut1;
            ASSERT_LT(std::fabs(length(pos) / kMetresPerAu - length(seen)) * kTrueAu / 1e3, c.km)
                << c.name << " at " << ut1;
        }
}

// Turning axes included. UT1 in, so that no rounding to the microsecond comes between; a double near 9000 days is good
// to 0.08 us, in which the axes turn by 6e-12 rad.
TEST_F(Bodies, VelocityIsTheRateOfTheEarthFixedPosition)
{
    struct Case {
        const char *name;
        int body;
        long planet;
        double metres_per_second; // what the theory's velocity leaves out, and the rounding of the time
    };
    constexpr Case kCases[] = {
        {"Sun", kSun, 0, 0.4},
        {"Moon", kMoon, 0, 1e-3},
        {"Venus", kPlanet, KL_VENUS, 2.2},
        {"Mars", kPlanet, KL_MARS, 5.0},
    };
    constexpr double kStep = 300.0; // s
    for (const Case &c : kCases)
        for (double ut1 = -9000.0; ut1 < 9000.0; ut1 += 311.7) {
            double pos[4][3], vel[3], rate[3];
            const double offsets[4] = {-2.0, -1.0, 1.0, 2.0};
            for (int k = 0; k < 4; ++k)
                state_of(c.body, c.planet, KL_TIME_UT1, ut1 + offsets[k] * kStep / kSecondsPerDay, pos[k], vel);
            for (int i = 0; i < 3; ++i)
                rate[i] = (8.0 * (pos[2][i] - pos[1][i]) - (pos[3][i] - pos[0][i])) / (12.0 * kStep);
            state_of(c.body, c.planet, KL_TIME_UT1, ut1, pos[0], vel);
            ASSERT_LT(distance(rate, vel), c.metres_per_second) << c.name << " at " << ut1;
        }
}

TEST_F(Bodies, PlanetThreeIsTheBarycentreOfEarthAndMoon)
{
    // 4670 km from the Earth's centre, on the side of the Moon; both theories of the Earth are good to 2000 km.
    double barycentre[3], moon[3], vel[3];
    for (double utc = 0.0; utc < 9000.0; utc += 97.3) {
        state_of(kPlanet, KL_EARTH_MOON_BARYCENTRE, KL_TIME_UTC, utc, barycentre, vel);
        state_of(kMoon, 0, KL_TIME_UTC, utc, moon, vel);
        for (double &x : moon)
            x /= 1.0 + 81.30;
        EXPECT_LT(distance(barycentre, moon), 7e6) << utc;
    }
}

// ---- warnings and failures of a planet routine -------------------------------------------------------------------

long warning_without_condition(long, const kl_time_record *, Cord *, kl_error_record *)
{
    return KL_WARN;
}
long not_converged(long, const kl_time_record *, Cord *, kl_error_record *error)
{
    constexpr long kPlanetsFunction = 63, kConvergence = 4;
    KL_Put_Err(kPlanetsFunction, kConvergence, nullptr, error);
    return KL_WARN;
}
long failure_without_condition(long, const kl_time_record *, Cord *, kl_error_record *)
{
    return KL_ERR;
}

TEST_F(Bodies, PlanetTakesTheStatusOfItsRoutineEvenWithoutABitOnPurpose)
{
    struct Case {
        const char *name;
        PlanetRoutine routine;
        long status, vector;
    };
    const Case cases[] = {
        {"warning without a condition", warning_without_condition, KL_WARN, 0},
        {"no convergence", not_converged, KL_WARN, 1L << 30 | 1L << KL_PLANET_CONVERGENCE_WARN},
        {"failure without a condition", failure_without_condition, KL_ERR, 0},
    };
    ASSERT_EQ(open_model(), KL_OK);
    for (const Case &c : cases) {
        static_cast<PlanetModel *>(KL_Model_get_data(&model_id, KL_MODEL_PLANET))->planets = c.routine;
        const long utc = KL_TIME_UTC, mars = KL_MARS;
        const double noon = kNoon;
        double pos[3], vel[3];
        EXPECT_EQ(call(kPlanet, &time_id, &mars, &utc, &noon, pos, vel), c.status) << c.name;
        EXPECT_EQ(ierr, c.vector) << c.name;
    }
}

// ---- the internal routines ----------------------------------------------------------------------------------------

TEST(BodyRoutines, CheckTheirDateRecordsAndCodes)
{
    enum Routine { kEarth, kSunPosVel, kMoonPosVel, kPlanets };
    struct Case {
        const char *name;
        Routine routine;
        kl_time_record date;
        long planet, status, code; // code -1: none
    };
    constexpr double kMillennium = 365250.5; // days, from 2000-01-01 00:00
    const Case cases[] = {
        {"Earth", kEarth, {1, 3, 0.0}, 0, 0, -1},
        {"Earth, UT1", kEarth, {4, 3, 0.0}, 0, -1, 0},
        {"Earth, Julian day", kEarth, {1, 1, 2451544.5}, 0, -1, 1},
        {"Earth, both", kEarth, {3, 2, 0.0}, 0, -1, 0},
        {"Sun, TAI", kSunPosVel, {3, 3, 0.0}, 0, -1, 2},
        {"Moon", kMoonPosVel, {1, 3, 0.0}, 0, 0, -1},
        {"Moon, UTC", kMoonPosVel, {5, 3, 0.0}, 0, -1, 0},
        {"Moon, since 1950", kMoonPosVel, {1, 2, 0.0}, 0, -1, 1},
        {"planet", kPlanets, {1, 3, 0.0}, 8, 0, -1},
        {"planet 0", kPlanets, {1, 3, 0.0}, 0, -1, 2},
        {"planet 9", kPlanets, {1, 3, 0.0}, 9, -1, 2},
        {"in the millennium", kPlanets, {1, 3, kMillennium}, 1, 0, -1},
        {"beyond the millennium", kPlanets, {1, 3, kMillennium + 1.0}, 1, 1, 3},
        {"before the millennium", kPlanets, {1, 3, 0.5 - 365251.0}, 1, 1, 3},
        {"no convergence", kPlanets, {1, 3, -120674537.5 - 51544.0}, 7, 1, 4},
    };
    for (const Case &c : cases) {
        State state, other;
        kl_error_record record;
        const long status = c.routine == kEarth        ? KL_Earth(&c.date, &state, &other, &record)
                            : c.routine == kSunPosVel  ? KL_Sun_PosVel(nullptr, nullptr, &c.date, &state, &record)
                            : c.routine == kMoonPosVel ? KL_Moon_PosVel(&c.date, &state, &record)
                                                       : KL_Planets(c.planet, &c.date, &state, &record);
        EXPECT_EQ(status, c.status) << c.name;
        EXPECT_EQ(record.count, c.code < 0 ? 0 : 1) << c.name;
        if (c.code >= 0) {
            EXPECT_EQ(record.codes[0], c.code) << c.name;
        }
        EXPECT_EQ(length(state.position()) > 0.0, c.status >= 0) << c.name;
    }
}

TEST(BodyRoutines, DegradedAccuracyKeepsItsOpenParenthesisOnPurpose)
{
    State state;
    kl_error_record record;
    const kl_time_record far = tdb_record(400000.0);
    ASSERT_EQ(KL_Planets(KL_VENUS, &far, &state, &record), KL_WARN);
    static char messages[KL_MAX_MSG][512];
    long n = 0;
    KL_Err_Msg(&record, &n, messages);
    ASSERT_EQ(n, 1);
    const std::string text = messages[0];
    EXPECT_NE(text.find('('), std::string::npos);
    EXPECT_EQ(text.find(')'), std::string::npos);
}

TEST(BodyRoutines, PlanetsDoNotCheckTheDateRecordOnPurpose)
{
    State tdb, odd;
    const kl_time_record good = tdb_record(kNoon), strange = {77, -1, kNoon};
    ASSERT_EQ(KL_Planets(KL_MARS, &good, &tdb, nullptr), KL_OK);
    ASSERT_EQ(KL_Planets(KL_MARS, &strange, &odd, nullptr), KL_OK);
    EXPECT_EQ(distance(tdb.position(), odd.position()), 0.0);
}

// 1.496e11 m to the AU, for velocities too; frame, order, and an acceleration left alone.
TEST(BodyRoutines, ScaleWithTheRoundedAstronomicalUnitOnPurpose)
{
    const kl_time_record date = tdb_record(kNoon);
    State earth[2], moon, mars;
    earth[0].acc[1] = moon.acc[1] = mars.acc[1] = 5.0;
    ASSERT_EQ(KL_Earth(&date, &earth[0], &earth[1], nullptr), KL_OK);
    ASSERT_EQ(KL_Moon_PosVel(&date, &moon, nullptr), KL_OK);
    ASSERT_EQ(KL_Planets(KL_MARS, &date, &mars, nullptr), KL_OK);

    const double mjd = 51544.0 + kNoon;
    double vb[3], pb[3], vh[3], ph[3], moon_au[6], mars_au[6];
    long status;
    KL_SlaEvp(vb, pb, vh, ph, mjd, 2000.0);
    KL_SlaDmoon(moon_au, mjd);
    KL_SlaPlanet(KL_MARS, mars_au, &status, mjd);
    const auto expect = [](const State &state, int frame, const double *pos, const double *vel) {
        EXPECT_EQ(state.cs, frame);
        EXPECT_EQ(state.order, 1) << frame;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(state.position()[i], pos[i] * kMetresPerAu) << frame;
            EXPECT_EQ(state.velocity()[i], vel[i] * kMetresPerAu) << frame;
        }
    };
    expect(earth[0], KL_BM2000, pb, vb);
    expect(earth[1], KL_HM2000, ph, vh);
    expect(moon, KL_MOD, moon_au, moon_au + 3);
    expect(mars, KL_HM2000, mars_au, mars_au + 3);
    EXPECT_TRUE(earth[0].acc[1] == 5.0 && moon.acc[1] == 5.0 && mars.acc[1] == 5.0);
}

TEST(BodyRoutines, SunIsTheEarthTurnedRound)
{
    const kl_time_record date = tdb_record(kNoon);
    State barycentric, heliocentric, turned(KL_GM2000), of_date, sun;
    ASSERT_EQ(KL_Earth(&date, &barycentric, &heliocentric, nullptr), KL_OK);
    for (int i = 1; i <= 3; ++i) {
        turned.pos[i] = -heliocentric.pos[i];
        turned.vel[i] = -heliocentric.vel[i];
    }
    ASSERT_NE(KL_Change_CoordinateSystem(nullptr, nullptr, 1, &date, &turned, KL_MOD, &of_date, nullptr), KL_ERR);
    ASSERT_EQ(KL_Sun_PosVel(nullptr, nullptr, &date, &sun, nullptr), KL_OK);
    EXPECT_EQ(sun.cs, KL_MOD);
    EXPECT_EQ(distance(sun.position(), of_date.position()), 0.0);
    EXPECT_EQ(distance(sun.velocity(), of_date.velocity()), 0.0);
}

// ---- light time ---------------------------------------------------------------------------------------------------

class LightTime : public Bodies {
protected:
    State satellite{KL_EF};
    LightTime()
    {
        satellite.pos[1] = 7.0e6;
        satellite.vel[3] = 7.5e3;
    }

    // The light time to the satellite with n evaluations of the distance: days.
    double light_time(double tdb, int n)
    {
        const kl_time_record now = tdb_record(tdb);
        State observer, sun;
        EXPECT_NE(KL_Change_CoordinateSystem(&model_id, &time_id, 2, &now, &satellite, KL_MOD, &observer, nullptr), -1);
        double days = 0.0;
        while (n-- > 0) {
            const kl_time_record then = tdb_record(tdb - days);
            EXPECT_EQ(KL_Sun_PosVel(&model_id, &time_id, &then, &sun, nullptr), KL_OK);
            days = distance(sun.position(), observer.position()) / kSpeedOfLight / kSecondsPerDay;
        }
        return days;
    }
};

// The start is 0.5 s before the instant, so the one refinement keeps the distance of then: it is off by what the Earth
// moves outwards in 499 s, up to 0.84 ms of light time in spring and autumn. The Sun goes back by 499 s of its yearly
// motion, 20.5".
TEST_F(LightTime, IsRefinedOnceOnPurpose)
{
    double largest = 0.0; // s
    for (double tdb = kNoon; tdb < kNoon + 365.0; tdb += 13.0) {
        const kl_time_record date = tdb_record(tdb);
        State sun[2], unmoved;
        kl_time_record emission[2];
        for (int k = 0; k < 2; ++k)
            ASSERT_EQ(
                KL_Sun_PosVel_Sun_Travel_Time(&model_id, &time_id, &date, &satellite, &sun[k], &emission[k], nullptr),
                KL_OK);
        EXPECT_EQ(distance(sun[0].position(), sun[1].position()), 0.0) << "the same twice";
        EXPECT_EQ(sun[0].cs, KL_MOD);
        EXPECT_TRUE(emission[0].reference == 3 && emission[0].format == 3) << "TAI, MJD2000";

        const double converged = tdb - light_time(tdb, 8);
        double tai = 0.0;
        KL_Time_p2p_ref_tdb_to_tai(&converged, &tai);
        largest = std::max(largest, std::fabs(tai - emission[0].value) * kSecondsPerDay);

        ASSERT_EQ(KL_Sun_PosVel(&model_id, &time_id, &date, &unmoved, nullptr), KL_OK);
        EXPECT_NEAR(eraSepp(sun[0].pos + 1, unmoved.pos + 1) / kArcsecond, 20.5, 0.4) << tdb;
    }
    EXPECT_GT(largest, 0.7e-3);
    EXPECT_LT(largest, 0.9e-3);
}

// The Earth-fixed axes are those of the emission for every scale but UT1, which is used as given: 499 s of turning
// apart.
TEST_F(LightTime, UsesAUt1TimeAsItIsOnPurpose)
{
    const double ut1 = kNoon - (kLeapSeconds - kUt1MinusUtc) / kSecondsPerDay;
    double tai[2][3], given[2][3], plain[2][3];
    ASSERT_EQ(KL_Sun_travel_time(&model_id, &time_id, KL_TIME_TAI, kNoon, &satellite, tai[0], tai[1], nullptr), KL_OK);
    ASSERT_EQ(KL_Sun_travel_time(&model_id, &time_id, KL_TIME_UT1, ut1, &satellite, given[0], given[1], nullptr),
              KL_OK);
    state_of(kSun, 0, KL_TIME_UT1, ut1, plain[0], plain[1]);
    EXPECT_LT(eraSepp(given[0], plain[0]) / kArcsecond, 21.0);
    const double turned = std::atan2(tai[0][1], tai[0][0]) - std::atan2(given[0][1], given[0][0]);
    EXPECT_NEAR(std::remainder(turned, 2.0 * std::acos(-1.0)), 499.0 * kEarthRate, 10.0 * kEarthRate);
}

TEST_F(LightTime, RefusesBadInputWithItsConditions)
{
    kl_time_id empty = {};
    State nowhere(99);
    struct Case {
        const char *name;
        kl_time_id *id;
        const Cord *satellite;
        long ref;
        double time;
        int code;
    };
    const Case cases[] = {
        {"reference", &time_id, &satellite, 4, kNoon, 0},
        {"date", &time_id, &satellite, KL_TIME_UTC, kLast + 1.0, 1},
        {"no date", &time_id, &satellite, KL_TIME_UTC, kNan, 1},
        {"UTC without time id", &empty, &satellite, KL_TIME_UTC, kNoon, 2},
        {"frame of the satellite", &time_id, &nowhere, KL_TIME_UTC, kNoon, 3},
        {"satellite without time id", &empty, &satellite, KL_TIME_TAI, kNoon, 3},
    };
    for (const Case &c : cases) {
        double pos[3], vel[3];
        kl_error_record record;
        EXPECT_EQ(KL_Sun_travel_time(&model_id, c.id, c.ref, c.time, c.satellite, pos, vel, &record), -1) << c.name;
        ASSERT_EQ(record.count, 1) << c.name;
        EXPECT_EQ(record.codes[0], c.code) << c.name;
    }
    // A satellite that needs no time id gets as far as UT1; the Sun's habit holds here too.
    State of_date(KL_MOD);
    double pos[3], vel[3];
    kl_error_record record;
    EXPECT_EQ(KL_Sun_travel_time(&model_id, &empty, KL_TIME_TAI, kNoon, &of_date, pos, vel, &record), -1);
    EXPECT_EQ(record.codes[0], 4);

    State sun;
    kl_time_record emission;
    kl_time_record tai = {3, 3, kNoon};
    EXPECT_EQ(KL_Sun_PosVel_Sun_Travel_Time(&model_id, &time_id, &tai, &satellite, &sun, &emission, &record), -1);
    EXPECT_EQ(record.codes[0], 1) << "not TDB";
    EXPECT_EQ(KL_Sun_PosVel_Sun_Travel_Time(&model_id, &time_id, &tai, &nowhere, &sun, &emission, &record), -1);
    EXPECT_EQ(record.codes[0], 0) << "the satellite first";
    ASSERT_EQ(open_model(KL_MODEL_SUN, 5), KL_ERR);
    const kl_time_record tdb = tdb_record(kNoon);
    EXPECT_EQ(KL_Sun_PosVel_Sun_Travel_Time(&model_id, &time_id, &tdb, &of_date, &sun, &emission, &record), -1);
    EXPECT_EQ(record.codes[0], 2) << "no routine for the Sun";
}

} // namespace
