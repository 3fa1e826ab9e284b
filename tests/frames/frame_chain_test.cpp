// The walk between frames: paths, warnings, refusals, there and back, edges by name, records, the simplified chain.
#include "support/chain_state.h"
#include "support/csv.h"
#include "support/owned_model.h"

#include <cstring>

namespace {

constexpr kl_time_record kDate = {kUt1, kMjd2000, 9000.25};
#include "frames/edges.inc"

using Codes = std::vector<long>;

Codes codes_of(const kl_error_record &error)
{
    return Codes(error.codes, error.codes + error.count);
}

Codes path(long from, long to)
{
    std::int32_t list[32];
    std::int32_t n = 0;
    for (std::int32_t current = static_cast<std::int32_t>(from); current != to && n < 24;)
        KL_Compute_Transformations(&n, &current, to, list);
    return Codes(list, list + n);
}

// Every mean to true of date warns.
TEST(FrameChain, WaysAreThoseOfTheTruthTableAndMeanToTrueWarnsEveryTimeOnPurpose)
{
    ChainTimeId time_id;
    const auto known = [](long frame) { return frame >= 12 ? frame - 8 : frame; }; // two are inside alone
    for (const auto &[from, to, order, edge_cell, condition_cell] :
         read_rows<long, long, long, std::string, std::string>("frame_ways.csv")) {
        const Codes edges = cells_as<long>(edge_cell), conditions = cells_as<long>(condition_cell);
        SCOPED_TRACE(testing::Message() << from << " to " << to << ", order " << order);
        EXPECT_EQ(path(known(from), known(to)), edges);
        ChainState state(from);
        kl_error_record error;
        const bool fails = !conditions.empty() && conditions.back() == 10;
        const long expected = fails ? KL_ERR : conditions.empty() ? KL_OK : KL_WARN;
        EXPECT_EQ(carry(time_id, kDate, &state, to, order, &error), expected);
        EXPECT_EQ(codes_of(error), conditions);
        EXPECT_EQ(state.cs, fails ? from : to);
        EXPECT_EQ(state.is(kStart), edges.empty() || fails) << "copied or left alone";
    }
}

// Around the Earth a few roundings of 8000 km, 10 km/s and 10 m/s2. On a way past the Sun the position loses the last
// places of an astronomical unit, and the turning axes (7.3e-5 rad/s) hand that on to the rates.
constexpr double kNear[3] = {1e-8, 1e-11, 2e-14};
constexpr double kFar[3] = {3e-4, 1e-8, 2e-12};

TEST(FrameChain, EveryPairComesBackAtEveryOrder)
{
    const auto around_the_earth = [](long frame) { return (frame >= 3 && frame <= 7) || frame == 11; };
    constexpr double kNothing[3] = {};
    ChainTimeId time_id;
    for (const double days : {kFirst, 0.0, 9000.25, kLast})
        for (long from : kFrames)
            for (long to : kFrames)
                for (long order = 0; order <= 2; ++order) {
                    SCOPED_TRACE(testing::Message() << from << " to " << to << ", order " << order << ", " << days);
                    const kl_time_record date = {kUt1, kMjd2000, days};
                    ChainState state(from, order);
                    ASSERT_NE(carry(time_id, date, &state, to, 2), KL_ERR); // a state keeps its order
                    const bool galactic = from != to && (from == KL_GALACTIC || to == KL_GALACTIC);
                    ASSERT_EQ(state.order, galactic ? 0 : order);
                    ASSERT_NE(carry(time_id, date, &state, from, order), KL_ERR);
                    ASSERT_EQ(state.cs, from);
                    const double(&lost)[3] = around_the_earth(from) && around_the_earth(to) ? kNear : kFar;
                    for (int v = 0; v <= 2 && from != to; ++v)
                        ASSERT_LE(distance(state[v], v <= state.order ? kStart[v] : kNothing),
                                  v <= state.order ? lost[v] : 0.0);
                }
}

// One instant as every record the chain takes. A Julian day resolves 40 us, in which 8000 km turn by 2.3 cm; the
// conversions round to a microsecond, and past the Sun the Earth's way of 100 us is allowed.
TEST(FrameChain, TakesEveryFormatAndScaleOfADate)
{
    constexpr double kTaiDays = kDate.value + kBehindTai[KL_TIME_UT1] / kDay;
    constexpr double kUtcDays = kTaiDays - kBehindTai[KL_TIME_UTC] / kDay;
    double tdb = 0.0;
    ASSERT_EQ(KL_Time_p2p_ref_tai_to_tdb(&kTaiDays, &tdb), 0);
    const std::pair<int, double> days[] = {{kUt1, kDate.value}, {kTai, kTaiDays}, {kUtc, kUtcDays}, {kTdb, tdb}};
    const std::pair<int, double> zeros[] = {{kMjd2000, 0.0}, {kDays1950, 18262.0}, {kJulianDay, kJdOfDayZero}};
    ChainTimeId time_id;
    for (const auto &[scale, value] : days)
        for (const auto &[format, zero] : zeros)
            for (long to : {KL_EF, KL_BM2000}) {
                ChainState expected(KL_GM2000), state(KL_GM2000);
                ASSERT_NE(carry(time_id, kDate, &expected, to), KL_ERR);
                EXPECT_NE(carry(time_id, {scale, format, value + zero}, &state, to), KL_ERR);
                const double turned = format == kJulianDay ? 0.03 : 1e-3;
                EXPECT_LT(distance(state[0], expected[0]), to == KL_EF ? turned : 30e3 * 100e-6) << scale << format;
            }
}

TEST(FrameChain, RefusesWithItsConditionsAndLeavesTheOutput)
{
    ChainTimeId id;
    for (const auto &[name, date_cell, from, to, has_id, missing_model, missing, condition] :
         read_rows<std::string, std::string, long, long, long, long, long, long>("chain_refusals.csv")) {
        const auto date = record_as<kl_time_record, 3>(date_cell);
        OwnedModel model;
        if (missing_model != kNone)
            model.select(missing_model, 99);
        ChainState in(from), out(77);
        Cord *const from_state = &in, *const to_state = &out;
        const AllBut arg{missing};
        kl_error_record error;
        const long status = KL_Change_CoordinateSystem(&model.id, has_id == 1 ? &id.id : nullptr, 1, arg(0, &date),
                                                       arg(1, from_state), to, arg(2, to_state), &error);
        EXPECT_EQ(status == KL_ERR, condition != kNone) << name;
        EXPECT_TRUE(condition == kNone || codes_of(error).back() == condition) << name;
        EXPECT_EQ(out.cs == 77 && out.is(kStart), condition != kNone) << name;
    }
}

TEST(FrameChain, EdgesByNameAreItsSteps)
{
    ChainTimeId time_id;
    OwnedModel nothing;
    Rotation rotation;
    ASSERT_EQ(nothing.select(KL_MODEL_EARTH, 99), KL_ERR);
    EXPECT_EQ(KL_Earth_Rotation(&nothing.id, 0.0, &rotation), KL_ERR);
    EXPECT_EQ(KL_Earth_Rotation_Delta(&nothing.id, 0.0, 0.0, 0.0, &rotation), KL_ERR);
    long code = 0;
    for (const auto &[from, to, routine, without_models] : kEdges) {
        EXPECT_EQ(path(from, to), Codes{code++});
        for (long order = 0; order <= 2; ++order) {
            SCOPED_TRACE(testing::Message() << from << " to " << to << ", order " << order);
            ChainState in(from), out(77), chained(from);
            const bool launch = from == KL_LIF || to == KL_LIF; // no id here holds one
            EXPECT_EQ(routine(nullptr, time_id, &kDate, &in, &out, order), launch ? KL_ERR : KL_OK);
            EXPECT_EQ(carry(time_id, kDate, &chained, to, order) == KL_ERR, launch);
            EXPECT_EQ(std::memcmp(out.store, chained.store, sizeof out.store), 0);
            EXPECT_TRUE(launch ? out.cs == 77 : out.cs == to && out.order == chained.order);
            EXPECT_EQ(routine(&nothing.id, time_id, &kDate, &in, &in, order), without_models);
        }
    }
    ChainState state(3);
    for (std::int32_t wrong : {-1, 24})
        EXPECT_EQ(KL_Start_computations(nullptr, time_id, 1, &wrong, &kDate, &state, 4, &state, 2), KL_ERR);
    EXPECT_EQ(KL_Start_computations(nullptr, time_id, 99, nullptr, &kDate, &state, 4, &state, 2), KL_ERR);
}

TEST(FrameChain, DatesFarOutsideAreRefusedAndStayAsTheyAre)
{
    ChainTimeId time_id;
    constexpr std::int32_t kTodToPef[] = {9};
    for (const int scale : {kTai, kUtc, kTdb})
        for (const double days : {-1e300, 1e18, kNaN}) {
            kl_time_record date = {scale, kMjd2000, days};
            EXPECT_EQ(KL_Identify_nutation_or_rotation(time_id, 1, kTodToPef, &date), KL_ERR) << scale << " " << days;
            EXPECT_EQ(date.reference, scale);
        }
    kl_time_record date = {kTai, kMjd2000, kDate.value + kBehindTai[KL_TIME_UT1] / kDay};
    EXPECT_EQ(KL_Identify_nutation_or_rotation(time_id, 1, kTodToPef, &date), 0);
    EXPECT_NEAR(date.value, kDate.value, 1e-11);
}

// ---- rotation records ----

TEST(RotationRecords, CarryAsTheEdgesDoAndTheLowerOrderWins)
{
    Rotation earth;
    ASSERT_EQ(KL_Earth_Rotation(nullptr, kDate.value, &earth), 0);
    EXPECT_TRUE(earth.order == 2 && earth.dimension == 3);
    for (int n = 0; n <= 2; ++n)
        for (int m = 0; m <= 2; ++m) {
            ChainState edge(KL_TOD, n), state(KL_TOD, n);
            earth.order = m;
            KL_rva(&state, &earth, &state);
            ASSERT_NE(carry(nullptr, kDate, &edge, KL_PEF, m), KL_ERR);
            EXPECT_EQ(state.order, std::min(n, m));
            for (int v = 0; v <= 2; ++v)
                EXPECT_LT(distance(state[v], edge[v]), kNear[v]) << "state " << n << ", record " << m;
        }
}

// The axes of launch lie the angle east of the Earth's at the reference instant, and turn back as the Earth turns on.
TEST(RotationRecords, OfLaunchTurnBackByTheAngleSinceTheReference)
{
    constexpr double kReference = 9000.25, kEast = 30.0; // days, deg
    Rotation delta;
    kl_angle then, now;
    ASSERT_EQ(KL_H_Angle(nullptr, kReference, &then), 0);
    for (const double t : {kReference, kReference + 1.5}) {
        ASSERT_EQ(KL_Earth_Rotation_Delta(nullptr, t, kReference, kEast, &delta), 0);
        ASSERT_EQ(KL_H_Angle(nullptr, t, &now), 0);
        const double off = std::atan2(delta.r[1][2], delta.r[1][1]) - (now.value - then.value - kEast) * M_PI / 180.0;
        EXPECT_NEAR(std::remainder(off, 2.0 * M_PI), 0.0, 1e-13) << t;
        EXPECT_NEAR(std::hypot(delta.dr[1][1], delta.dr[1][2]), now.rate * M_PI / 180.0, 1e-19) << t;
    }
}

// ---- the simplified chain ----

long carry_simply(ChainState *state, long to, double days, kl_error_record *error = nullptr,
                  kl_model_id *model_id = nullptr)
{
    const kl_time_record date = {kUt1, kMjd2000, days};
    return KL_Change_CoordinateSystem_Sim(model_id, nullptr, 2, &date, state, to, state, error);
}

TEST(SimplifiedChain, TurnsByTheLinearAngleAlone)
{
    // Days; 99.96779469 + 360.9856473 days, in decimals.
    constexpr double kAngles[][2] = {
        {-18000.5, 177.82357104}, {0.0, 99.96779469}, {9000.25, 61.039906515}, {36523.75, 9.503368065}};
    constexpr double kOff = 1.1e-9, kRadius = 7e6; // deg: the rate as a double, 36524 days long; m
    constexpr double kResting[3][3] = {{kRadius, 0.0, 0.0}, {}, {}};
    constexpr double w = 360.9856473 / kDay * M_PI / 180.0, ww = w * w; // rad/s
    for (const auto &[days, degrees] : kAngles) {
        const double x = kRadius * std::cos(degrees * M_PI / 180.0), y = -kRadius * std::sin(degrees * M_PI / 180.0);
        const double expected[3][3] = {{x, y, 0.0}, {w * y, -w * x, 0.0}, {-ww * x, -ww * y, 0.0}};
        Rotation record;
        ASSERT_EQ(KL_Earth_Rotation_Sim(nullptr, days, &record), 0);
        for (const auto &[from, to] : {std::pair(4, 6), {5, 7}, {11, 6}, {12, 7}, {13, 6}, {0, 0}}) {
            ChainState turned(from, 2, kResting);
            if (from == 0) // without the chain
                KL_rva(&turned, &record, &turned);
            else
                ASSERT_NE(carry_simply(&turned, to, days), KL_ERR);
            for (int v = 0; v < 3; ++v)
                EXPECT_LT(distance(turned[v], expected[v]), kOff * M_PI / 180.0 * kRadius * std::pow(w, v)) << v;
        }
    }
}

TEST(SimplifiedChain, FailsWithoutAnEarthModel)
{
    OwnedModel refused;
    ASSERT_EQ(refused.select(KL_MODEL_EARTH, 99), KL_ERR);
    kl_angle angle;
    Rotation record;
    EXPECT_EQ(KL_H_Angle_Sim(&refused.id, kDate.value, &angle), KL_ERR);
    EXPECT_EQ(KL_Earth_Rotation_Sim(&refused.id, kDate.value, &record), KL_ERR);
    kl_error_record error;
    ChainState state(KL_TOD);
    EXPECT_EQ(carry_simply(&state, KL_PEF, kDate.value, &error, &refused.id), KL_ERR);
    EXPECT_EQ(codes_of(error), Codes{11});
    EXPECT_TRUE(state.is(kStart));
    EXPECT_NE(carry_simply(&state, KL_MOD, kDate.value, &error, &refused.id), KL_ERR) << "nothing turns there";
}

TEST(SimplifiedChain, HasPrecessionButNoNutationAndNoSun)
{
    ChainState mean(KL_GM2000), simple(KL_GM2000), back(KL_EF);
    ASSERT_EQ(carry(nullptr, kDate, &mean, KL_MOD), KL_OK);
    ASSERT_NE(carry_simply(&simple, KL_TOD, kDate.value), KL_ERR);
    EXPECT_EQ(std::memcmp(simple.store, mean.store, sizeof simple.store), 0);
    ASSERT_EQ(carry_simply(&back, KL_GM2000, kDate.value), KL_OK);
    ASSERT_NE(carry_simply(&back, KL_EF, kDate.value), KL_ERR);
    for (int v = 0; v < 3; ++v)
        EXPECT_LT(distance(back[v], kStart[v]), kNear[v]);
    for (long frame : {1L, 2L, 8L, 9L, 10L}) {
        kl_error_record error;
        ChainState outside(frame);
        EXPECT_EQ(carry_simply(&outside, KL_EF, kDate.value, &error), KL_ERR);
        EXPECT_EQ(codes_of(error), Codes{1}) << frame;
        EXPECT_EQ(carry_simply(&back, frame, kDate.value, &error), KL_ERR);
        EXPECT_EQ(codes_of(error), Codes{2}) << frame;
    }
}

} // namespace
