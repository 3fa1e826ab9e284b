// Sun, Moon and planets in the Earth-fixed frame: conditions, frames and units, laws, the whole way against ERFA.
#include "models/model_record.h"
#include "support/captured_stream.h"
#include "support/chain_state.h"
#include "support/csv.h"
#include "support/owned_model.h"

#include <string>

namespace {

constexpr double kSpeedOfLight = 299792458.0;
constexpr double kEarthRate = 7.292115e-5; // rad/s
constexpr double kNoon = 8766.5;           // 2024-01-01 12:00

enum { kSun, kMoon, kPlanet };
enum { kPlanetArgument, kRefArgument, kTimeArgument, kPositionArgument, kVelocityArgument, kVectorArgument };

struct Call {
    long body;
    kl_time_id *time_id;
    long planet = KL_MARS, ref = KL_TIME_UTC;
    double time = kNoon;
    kl_model_id *model_id = nullptr;
    double pos[3] = {-7.0, -7.0, -7.0}, vel[3] = {-7.0, -7.0, -7.0};
    long ierr = 77;

    long operator()(long missing = kNone)
    {
        const AllBut arg{missing};
        const long *const in_ref = arg(kRefArgument, &ref);
        const double *const in_time = arg(kTimeArgument, &time);
        double *const out_pos = arg(kPositionArgument, pos), *const out_vel = arg(kVelocityArgument, vel);
        long *const vector = arg(kVectorArgument, &ierr);
        return body == kSun    ? kl_sun(model_id, time_id, in_ref, in_time, out_pos, out_vel, vector)
               : body == kMoon ? kl_moon(model_id, time_id, in_ref, in_time, out_pos, out_vel, vector)
                               : kl_planet(model_id, time_id, arg(kPlanetArgument, &planet), in_ref, in_time, out_pos,
                                           out_vel, vector);
    }
};

// The usual call, which has to work.
Call body_at(long body, long planet, long ref, double time)
{
    static ChainTimeId time_id;
    Call call{body, time_id, planet, ref, time};
    expect_outcome(call(), call.ierr, kNone, "body");
    return call;
}

TEST(Bodies, RefuseBadInputAndTheSunNamesAnotherConversionOnPurpose)
{
    ChainTimeId known;
    kl_time_id empty{};
    const std::map<std::string, kl_time_id *> ids = {{"known", known}, {"empty", &empty}, {"none", nullptr}};
    constexpr long kNutationAlone = 100; // all others lose the kinds behind theirs too
    for (const auto &[name, id, planet, ref, time, missing, missing_model, of_sun, of_moon, of_planet] :
         read_rows<std::string, std::string, long, long, double, long, long, Bits, Bits, Bits>("body_refusals.csv"))
        for (long body : {kSun, kMoon, kPlanet}) {
            SCOPED_TRACE(testing::Message() << name << ", body " << body);
            OwnedModel model;
            if (missing_model == kNutationAlone)
                model.block<NutationModel>(KL_MODEL_NUTATION).nutation = nullptr;
            else if (missing_model != kNone)
                model.select(missing_model, 99);
            const long bits = body == kSun ? of_sun : body == kMoon ? of_moon : of_planet;
            Call call{body, ids.at(id), planet, ref, time, &model.id};
            EXPECT_EQ(call(missing), status_with(bits));
            EXPECT_EQ(call.ierr, missing == kVectorArgument ? 77 : bits == kRefused ? 0 : bits);
            EXPECT_EQ(call.pos[0] != -7.0 && call.vel[2] != -7.0, bits == kNothing);
        }
}

// Independent way: ERFA's theories and axes; lengths in its own AU. What differs is the truncation of the series (Sun
// 2.65", Moon 13.6", planets as seen from the Earth: the Sun's part alone, since theirs are the same) and nine terms of
// nutation for 106 (0.1"). The velocity is the rate of positions in UT1, where no rounding to the microsecond comes
// between, turning axes included, but for what the theory's leaves out.
TEST(Bodies, StayNearErfaInTheEarthFixedFrameOnEveryScaleAndVelocityIsTheRate)
{
    constexpr double kTrueAu = 149597870700.0; // m
    for (const auto &[name, body, planet, arcsec, km, metres_per_second] :
         read_rows<std::string, long, long, double, double, double>("body_bounds.csv")) {
        double worst[3] = {}; // arcsec, km, m/s
        long ref = KL_TIME_TAI;
        for (double ut1 = kFirst + 1.0; ut1 < kLast; ut1 += 23.37, ref = (ref + 1) % 4) {
            const double tt = ut1 + kTtMinusUt1 / kDay;
            double rival[2][3] = {}, earth[2][3] = {}, barycentric[2][3], seen[3], rate[3] = {};
            if (body != kMoon)
                eraEpv00(kJdOfDayZero, tt, earth, barycentric);
            if (body == kMoon)
                eraMoon98(kJdOfDayZero, tt, rival);
            else if (body == kPlanet)
                eraPlan94(kJdOfDayZero, tt, static_cast<int>(planet), rival);
            eraPmp(rival[0], earth[0], seen);
            erfa_earth_fixed(ut1, seen, seen);
            Call call = body_at(body, planet, ref, ut1 + (kBehindTai[KL_TIME_UT1] - kBehindTai[ref]) / kDay);
            worst[0] = std::max(worst[0], eraSepp(call.pos, seen) / kArcsecond);
            worst[1] = std::max(worst[1], std::fabs(length(call.pos) / kMetresPerAu - length(seen)) * kTrueAu / 1e3);
            // Central difference of fourth order.
            for (const auto &[offset, weight] : {std::pair(-600.0, 1.0), {-300.0, -8.0}, {300.0, 8.0}, {600.0, -1.0}}) {
                const Call near = body_at(body, planet, KL_TIME_UT1, ut1 + offset / kDay);
                for (int i = 0; i < 3; ++i)
                    rate[i] += weight * near.pos[i] / (12.0 * 300.0);
            }
            worst[2] = std::max(worst[2], distance(call.vel, rate));
        }
        EXPECT_LT(worst[0], arcsec) << name;
        EXPECT_LT(worst[1], km) << name;
        EXPECT_LT(worst[2], metres_per_second) << name;
    }
}

// A conversion outside the table warns of its validity once; a body outside, or a change of frame, has used that up.
TEST(Bodies, OutsideTheTableSpendTheOnceOnlyWarningsOfConversions)
{
    constexpr double kOutside = 20.0;
    constexpr long kOutOfRange = warning_bits(KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN);
    constexpr long kNothingBefore = -1, kFrameChange = 3;
    for (const long before : {kNothingBefore, long{kSun}, long{kMoon}, long{kPlanet}, kFrameChange}) {
        TableId time_id(ten_days());
        Call call{before, time_id, KL_MARS, KL_TIME_UTC, kOutside};
        if (before == kFrameChange) {
            const long mode = KL_CALC_POS, from = KL_GM2000, to = KL_EF;
            double acc[3];
            EXPECT_EQ(kl_change_cart_cs(nullptr, time_id, &mode, &from, &to, &call.ref, &call.time, kStart[0],
                                        kStart[1], kStart[2], call.pos, call.vel, acc, nullptr),
                      KL_WARN);
        } else if (before != kNothingBefore) {
            expect_outcome(call(), call.ierr, kNone, "a body outside");
        }
        const long validity = before == kNothingBefore ? 1L << KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN : 0;
        EXPECT_EQ(convert(time_id, KL_TIME_UTC, kOutside, KL_TIME_TAI).ierr, kOutOfRange | validity) << before;
    }
}

TEST(Bodies, PlanetTakesTheStatusOfItsRoutineEvenWithoutABitOnPurpose)
{
    const PlanetRoutine routine = [](long planet, const kl_time_record *, Cord *, kl_error_record *error) -> long {
        constexpr long kPlanetsFunction = 63, kConvergence = 4;
        if (planet == KL_MARS)
            KL_Put_Err(kPlanetsFunction, kConvergence, nullptr, error);
        return planet == KL_VENUS ? KL_ERR : KL_WARN;
    };
    const long rows[][3] = {
        {KL_MARS, KL_WARN, warning_bits(KL_PLANET_CONVERGENCE_WARN)}, {KL_JUPITER, KL_WARN, 0}, {KL_VENUS, KL_ERR, 0}};
    ChainTimeId time_id;
    OwnedModel model;
    model.block<PlanetModel>(KL_MODEL_PLANET).planets = routine;
    for (const auto &[planet, status, vector] : rows) {
        Call call{kPlanet, time_id, planet, KL_TIME_UTC, kNoon, &model.id};
        EXPECT_EQ(call(), status);
        EXPECT_EQ(call.ierr, vector);
    }
}

// ---- the internal routines ----

TEST(BodyRoutines, CheckTheirDateRecordsButPlanetsDoNotOnPurpose)
{
    for (const auto &[name, routine, cell, number, expected, code] :
         read_rows<std::string, std::string, std::string, long, long, long>("body_dates.csv")) {
        const auto date = record_as<kl_time_record, 3>(cell);
        ChainState state(0, 1, {}), other, satellite(number);
        kl_time_record emission;
        kl_error_record error;
        const long status =
            routine == "Earth" ? KL_Earth(&date, &state, &other, &error)
            : routine == "Sun" ? KL_Sun_PosVel(nullptr, nullptr, &date, &state, &error)
            : routine == "Sun of light"
                ? KL_Sun_PosVel_Sun_Travel_Time(nullptr, nullptr, &date, &satellite, &state, &emission, &error)
            : routine == "Moon" ? KL_Moon_PosVel(&date, &state, &error)
                                : KL_Planets(number, &date, &state, &error);
        EXPECT_EQ(status, expected) << name;
        EXPECT_EQ(error.count == 0 ? kNone : error.codes[0], code) << name;
        EXPECT_EQ(length(state[0]) > 0.0, expected >= 0) << name;
    }
}

TEST(BodyRoutines, DegradedAccuracyKeepsItsOpenParenthesisOnPurpose)
{
    ChainState state;
    const kl_time_record far = {kTdb, kMjd2000, 400000.0};
    const std::string text = verbose_text([&] { KL_Planets(KL_VENUS, &far, &state, nullptr); });
    EXPECT_TRUE(text.find('(') != std::string::npos && text.find(')') == std::string::npos) << text;
}

// ---- light time ----

constexpr double kSatellite[3][3] = {{7.0e6, 0.0, 0.0}, {0.0, 0.0, 7.5e3}, {}};

// The start is 0.5 s before the instant, so the one refinement keeps the distance of then: it is off by what the Earth
// moves outwards in 499 s, up to 0.84 ms of light time in spring and autumn. The Sun goes back by 499 s of its yearly
// motion, 20.5".
TEST(LightTime, IsRefinedOnceOnPurpose)
{
    ChainTimeId time_id;
    const ChainState satellite(KL_EF, 2, kSatellite);
    double largest = 0.0; // s
    for (double tdb = kNoon; tdb < kNoon + 365.0; tdb += 13.0) {
        const kl_time_record date = {kTdb, kMjd2000, tdb};
        ChainState sun, unmoved, observer(KL_EF, 2, kSatellite);
        kl_time_record emission;
        double received = 0.0;
        ASSERT_EQ(KL_Sun_PosVel_Sun_Travel_Time(nullptr, time_id, &date, &satellite, &sun, &emission, nullptr), KL_OK);
        ASSERT_EQ(KL_Sun_PosVel(nullptr, time_id, &date, &unmoved, nullptr), KL_OK);
        ASSERT_NE(carry(time_id, date, &observer, KL_MOD), KL_ERR);
        KL_Time_p2p_ref_tdb_to_tai(&tdb, &received);
        EXPECT_TRUE(sun.cs == KL_MOD && emission.reference == kTai && emission.format == kMjd2000);
        EXPECT_NEAR(eraSepp(sun.pos + 1, unmoved.pos + 1) / kArcsecond, 20.5, 0.4) << tdb;
        const double light_time = distance(sun[0], observer[0]) / kSpeedOfLight;
        largest = std::max(largest, std::fabs((received - emission.value) * kDay - light_time));
    }
    EXPECT_GT(largest, 0.7e-3);
    EXPECT_LT(largest, 0.9e-3);
}

// The Earth-fixed axes are those of the emission for every scale but UT1, which is used as given: 499 s of turning
// apart.
TEST(LightTime, UsesAUt1TimeAsItIsOnPurpose)
{
    ChainTimeId time_id;
    const ChainState satellite(KL_EF, 2, kSatellite);
    const double ut1 = kNoon - kBehindTai[KL_TIME_UT1] / kDay;
    double tai[3], given[3], vel[3];
    ASSERT_EQ(KL_Sun_travel_time(nullptr, time_id, KL_TIME_TAI, kNoon, &satellite, tai, vel, nullptr), KL_OK);
    ASSERT_EQ(KL_Sun_travel_time(nullptr, time_id, KL_TIME_UT1, ut1, &satellite, given, vel, nullptr), KL_OK);
    EXPECT_LT(eraSepp(given, body_at(kSun, 0, KL_TIME_UT1, ut1).pos) / kArcsecond, 21.0);
    const double turned = std::atan2(tai[1], tai[0]) - std::atan2(given[1], given[0]);
    EXPECT_NEAR(std::remainder(turned, 2.0 * M_PI), 499.0 * kEarthRate, 10.0 * kEarthRate);
}

TEST(LightTime, RefusesBadInputWithItsConditions)
{
    ChainTimeId known;
    kl_time_id empty{};
    for (const auto &[name, id, frame, ref, time, code] :
         read_rows<std::string, std::string, long, long, double, long>("light_time_refusals.csv")) {
        const ChainState satellite(frame, 2, frame == KL_EF ? kSatellite : kStart);
        kl_error_record record;
        double pos[3], vel[3];
        kl_time_id *const time_id = id == "known" ? &known.id : &empty;
        const long status = KL_Sun_travel_time(nullptr, time_id, ref, time, &satellite, pos, vel, &record);
        EXPECT_TRUE(status == KL_ERR && record.count == 1 && record.codes[0] == code) << name;
    }
}

} // namespace
