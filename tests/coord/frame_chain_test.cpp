// The walk between frames: paths, warnings, refusals, there and back, edges by name, records, the simplified chain.
#include "coord/chain_state.h"
#include "support/tolerances.h"

#include <cstring>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <vector>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr kl_time_record kDate = {kUt1, kMjd2000, 9000.25};
constexpr long kFrames[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11}; // of the public ones all but KL_LIF
enum { kQmod = 12, kPtod = 13 };

std::vector<long> codes_of(const kl_error_record &error)
{
    return std::vector<long>(error.codes, error.codes + error.count);
}

// ---- paths and warnings ----

std::vector<long> path(long from, long to)
{
    std::int32_t list[32];
    std::int32_t n = 0;
    for (std::int32_t current = static_cast<std::int32_t>(from); current != to && n < 24;)
        KL_Compute_Transformations(&n, &current, to, list);
    return std::vector<long>(list, list + n);
}

struct Way {
    long from, to, order;
    std::vector<long> path, conditions;
};

TEST(FrameChain, WaysAndWarningsAreThoseOfTheTruthTable)
{
    const Way ways[] = {
        {3, 7, 0, {6, 7, 9, 12}, {8}},
        {3, 7, 2, {6, 7, 9, 12}, {8}},
        {7, 3, 2, {11, 10, 14, 15}, {}},
        {4, 5, 1, {7}, {8}},
        {5, 4, 1, {14}, {}},
        {kQmod, 5, 2, {7}, {8}},
        {kQmod, kPtod, 2, {7}, {8}},
        {4, kPtod, 0, {7}, {8}},
        {kPtod, kQmod, 0, {14}, {}},
        {kQmod, 4, 0, {}, {7}},
        {4, kQmod, 2, {}, {7}},
        {kPtod, 5, 2, {}, {6}},
        {5, kPtod, 1, {}, {6}},
        {kQmod, kQmod, 2, {}, {}},
        {kPtod, kPtod, 2, {}, {}},
        {kPtod, 7, 2, {9, 12}, {}},
        {1, 3, 0, {4}, {}},
        {1, 3, 1, {4}, {}},
        {1, 3, 2, {4}, {9}},
        {1, 7, 2, {4, 6, 7, 9, 12}, {8, 9}},
        {7, 2, 2, {11, 10, 14, 15, 16}, {9}},
        {3, 9, 2, {17, 19}, {}}, // neither end is 1 or 2
        {1, 1, 2, {}, {9}},      // the rule looks at the frames, not at the edges
        {10, 2, 2, {1, 3}, {9}},
        {10, 7, 1, {1, 4, 6, 7, 9, 12}, {8}},
        {9, 10, 2, {21}, {}},
        {10, 9, 2, {0}, {}},
        {11, 6, 2, {13, 9}, {}},
        {3, 8, 2, {6, 7, 9, 12, 22}, {8, 10}},
        {8, 6, 2, {23, 11}, {10}},
        {8, 8, 2, {}, {}},
    };
    ChainTimeId time_id;
    const auto known = [](long frame) { return frame == kQmod ? 4 : frame == kPtod ? 5 : frame; };
    for (const Way &way : ways) {
        SCOPED_TRACE(testing::Message() << way.from << " to " << way.to << ", order " << way.order);
        EXPECT_EQ(path(known(way.from), known(way.to)), way.path);
        ChainState state(way.from);
        kl_error_record error;
        const bool fails = !way.conditions.empty() && way.conditions.back() == 10;
        EXPECT_EQ(carry(&time_id.id, kDate, &state, way.to, way.order, &error), fails                    ? KL_ERR
                                                                                : way.conditions.empty() ? KL_OK
                                                                                                         : KL_WARN);
        EXPECT_EQ(codes_of(error), way.conditions);
        EXPECT_EQ(state.cs, fails ? way.from : way.to);
        if (way.path.empty() || fails) {
            EXPECT_TRUE(state.is(kStart)) << "copied or left alone";
        }
    }
}

TEST(FrameChain, MeanToTrueOfDateWarnsEveryTimeOnPurpose)
{
    for (int i = 0; i < 3; ++i) {
        ChainState state(4);
        kl_error_record error;
        EXPECT_EQ(carry(nullptr, kDate, &state, 5, i, &error), KL_WARN);
        EXPECT_EQ(codes_of(error), std::vector<long>{8});
    }
}

// ---- there and back ----

// Around the Earth a few roundings of 8000 km, 10 km/s and 10 m/s2. On a way past the Sun the position loses the last
// places of an astronomical unit, and the turning axes (7.3e-5 rad/s) hand that on to the rates.
constexpr double kNear[3] = {1e-8, 1e-11, 2e-14};
constexpr double kFar[3] = {3e-4, 1e-8, 2e-12};

TEST(FrameChain, EveryPairComesBackAtEveryOrder)
{
    const auto around_the_earth = [](long frame) { return (frame >= 3 && frame <= 7) || frame == 11; };
    ChainTimeId time_id;
    for (const double days : {-18262.0, 0.0, 9000.25, 36524.0})
        for (long from : kFrames)
            for (long to : kFrames)
                for (long order = 0; order <= 2; ++order) {
                    SCOPED_TRACE(testing::Message() << from << " to " << to << ", order " << order << ", " << days);
                    const kl_time_record date = {kUt1, kMjd2000, days};
                    ChainState state(from, order);
                    ASSERT_NE(carry(&time_id.id, date, &state, to, 2), KL_ERR); // a state keeps its order
                    const bool galactic = from != to && (from == KL_GALACTIC || to == KL_GALACTIC);
                    ASSERT_EQ(state.order, galactic ? 0 : order);
                    ASSERT_NE(carry(&time_id.id, date, &state, from, order), KL_ERR);
                    ASSERT_EQ(state.cs, from);
                    const double(&lost)[3] = around_the_earth(from) && around_the_earth(to) ? kNear : kFar;
                    for (int v = 0; v <= state.order; ++v)
                        ASSERT_LT(distance(state, v, kStart[v]), lost[v]) << v;
                    for (int v = state.order + 1; v <= 2 && from != to; ++v) {
                        ASSERT_TRUE(state.at(v, 0) == 0.0 && state.at(v, 1) == 0.0 && state.at(v, 2) == 0.0);
                    }
                }
}

// ---- dates ----

// One instant as every record the chain takes. A Julian day resolves 40 us, in which 8000 km turn by 2.3 cm; the
// conversions round to a microsecond.
TEST(FrameChain, TakesEveryFormatAndScaleOfADate)
{
    constexpr double ut1 = 9000.25;
    constexpr double tai = ut1 + kTaiMinusUt1 / kDay;
    double tdb = 0.0;
    ASSERT_EQ(KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb), 0);
    struct Case {
        const char *name;
        kl_time_record date;
        double metres;
    };
    const Case cases[] = {
        {"UT1, Julian day", {kUt1, kJulianDay, ut1 + 2451544.5}, 0.03},
        {"UT1, days since 1950", {kUt1, kDays1950, ut1 + 18262.0}, 1e-3},
        {"TAI", {kTai, kMjd2000, tai}, 1e-3},
        {"TAI, days since 1950", {kTai, kDays1950, tai + 18262.0}, 1e-3},
        {"UTC", {kUtc, kMjd2000, tai - 37.0 / kDay}, 1e-3},
        {"UTC, Julian day", {kUtc, kJulianDay, tai - 37.0 / kDay + 2451544.5}, 0.03},
        {"TDB", {kTdb, kMjd2000, tdb}, 1e-3},
    };
    ChainTimeId time_id;
    ChainState expected(KL_GM2000);
    ASSERT_NE(carry(&time_id.id, {kUt1, kMjd2000, ut1}, &expected, KL_EF), KL_ERR);
    for (const Case &c : cases) {
        ChainState state(KL_GM2000);
        EXPECT_NE(carry(&time_id.id, c.date, &state, KL_EF), KL_ERR) << c.name;
        EXPECT_LT(distance(state, 0, expected.store[0] + 1), c.metres) << c.name;
        ChainState barycentric(KL_GM2000);
        ChainState same(KL_GM2000);
        EXPECT_NE(carry(&time_id.id, c.date, &barycentric, KL_BM2000), KL_ERR) << c.name;
        EXPECT_NE(carry(&time_id.id, {kUt1, kMjd2000, ut1}, &same, KL_BM2000), KL_ERR);
        EXPECT_LT(distance(barycentric, 0, same.store[0] + 1), 30e3 * 100e-6)
            << c.name << ": 100 us of the Earth's way";
    }
}

// ---- refusals ----

TEST(FrameChain, RefusesWithItsConditionsAndLeavesTheOutput)
{
    ChainTimeId known;
    ChainModelId no_sun(KL_MODEL_SUN), no_nutation(KL_MODEL_NUTATION), no_precession(KL_MODEL_PRECESSION);
    kl_time_id *const id = &known.id;
    struct Case {
        const char *name;
        kl_time_record date;
        long from, to;
        kl_time_id *time_id;
        kl_model_id *model_id;
        long condition; // -1: works
    };
    const double d = kDate.value;
    const Case cases[] = {
        {"reference 0", {0, kMjd2000, d}, 3, 7, id, nullptr, 0},
        {"reference GPS", {kGps, kMjd2000, d}, 3, 7, id, nullptr, 0},
        {"format 0", {kUt1, 0, d}, 3, 7, id, nullptr, 0},
        {"format 4", {kUt1, 4, d}, 3, 7, id, nullptr, 0},
        {"record before frames", {9, 9, d}, 0, 0, id, nullptr, 0},
        {"from 0", kDate, 0, 7, id, nullptr, 1},
        {"from 14", kDate, 14, 7, id, nullptr, 1},
        {"from before to", kDate, -1, 99, id, nullptr, 1},
        {"to 0", kDate, 3, 0, id, nullptr, 2},
        {"to 14", kDate, 3, 14, id, nullptr, 2},
        {"launch before the date", {kTai, kMjd2000, kNan}, 3, 8, nullptr, nullptr, 10},
        {"from launch", kDate, 8, 7, id, nullptr, 10},
        {"launch to itself", kDate, 8, 8, nullptr, nullptr, -1},
        {"not a number", {kUt1, kMjd2000, kNan}, 3, 7, id, nullptr, 4},
        {"infinite", {kTdb, kJulianDay, kInfinity}, 3, 1, id, nullptr, 4},
        {"two days early", {kUt1, kMjd2000, -18264.0}, 3, 7, id, nullptr, 4},
        {"two days late", {kUt1, kJulianDay, 2451544.5 + 36526.0}, 3, 7, id, nullptr, 4},
        {"a little early", {kUt1, kMjd2000, -18262.001}, 5, 6, id, nullptr, -1},
        {"no edge, no date", {kUt1, kMjd2000, kNan}, 5, 5, nullptr, nullptr, -1},
        {"TAI to UT1 without id", {kTai, kMjd2000, d}, 5, 6, nullptr, nullptr, 5},
        {"UT1 to TDB without id", kDate, 3, 1, nullptr, nullptr, 5},
        {"TDB to UT1 without id", {kTdb, kMjd2000, d}, 5, 6, nullptr, nullptr, 5},
        {"UT1 needs no id", kDate, 5, 6, nullptr, nullptr, -1},
        {"TAI to TDB needs no id", {kTai, kMjd2000, d}, 1, 3, nullptr, nullptr, -1},
        {"TDB needs no id", {kTdb, kMjd2000, d}, 3, 9, nullptr, nullptr, -1},
        {"reference 2 to UT1", {2, kMjd2000, d}, 5, 6, id, nullptr, 11},
        {"reference 2, precession alone", {2, kMjd2000, d}, 3, 4, nullptr, nullptr, -1},
        {"no ephemeris", kDate, 3, 1, id, &no_sun.id, 3},
        {"no nutation", kDate, 6, 5, id, &no_nutation.id, 11},
        {"no precession", kDate, 3, 4, id, &no_precession.id, 11},
        {"nutation is not asked", kDate, 3, 4, id, &no_precession.id, 11},
    };
    for (const Case &c : cases) {
        const ChainState in(c.from);
        ChainState out(77);
        kl_error_record error;
        const long status = KL_Change_CoordinateSystem(c.model_id, c.time_id, 1, &c.date, &in, c.to, &out, &error);
        if (c.condition < 0) {
            EXPECT_NE(status, KL_ERR) << c.name;
            continue;
        }
        EXPECT_EQ(status, KL_ERR) << c.name;
        ASSERT_GE(error.count, 1) << c.name;
        EXPECT_EQ(error.codes[error.count - 1], c.condition) << c.name;
        EXPECT_TRUE(out.cs == 77 && out.is(kStart)) << c.name;
        EXPECT_EQ(KL_Change_CoordinateSystem(c.model_id, c.time_id, 1, &c.date, &in, c.to, &out, nullptr), KL_ERR);
    }
    ChainState state(3);
    kl_error_record error;
    EXPECT_EQ(KL_Change_CoordinateSystem(nullptr, id, 2, nullptr, &state, 7, &state, &error), KL_ERR);
    EXPECT_EQ(codes_of(error), std::vector<long>{0});
    EXPECT_EQ(KL_Change_CoordinateSystem(nullptr, id, 2, &kDate, nullptr, 7, &state, &error), KL_ERR);
    EXPECT_EQ(codes_of(error), std::vector<long>{1});
    EXPECT_EQ(KL_Change_CoordinateSystem(nullptr, id, 2, &kDate, &state, 7, nullptr, &error), KL_ERR);
    EXPECT_EQ(codes_of(error), std::vector<long>{2});
}

// ---- edges and records ----

TEST(FrameChain, EdgesByNameAreItsSteps)
{
    using EdgeRoutine = long (*)(kl_model_id *, kl_time_id *, const kl_time_record *, const Cord *, Cord *, long);
    struct Edge {
        long from, to;
        EdgeRoutine routine;
    };
    constexpr Edge kEdges[] = {
        {10, 9, KL_GALACTIC_to_BM1950}, {10, 1, KL_GALACTIC_to_BM2000}, {9, 1, KL_BM1950_to_BM2000},
        {1, 2, KL_BM2000_to_HM2000},    {1, 3, KL_BM2000_to_GM2000},    {2, 3, KL_HM2000_to_GM2000},
        {3, 4, KL_GM2000_to_MoD},       {4, 5, KL_MoD_to_ToD},          {5, 11, KL_TOD_to_TEME},
        {5, 6, KL_ToD_to_PEF},          {6, 5, KL_PEF_to_ToD},          {7, 6, KL_EF_to_PEF},
        {6, 7, KL_PEF_to_EF},           {11, 5, KL_TEME_to_TOD},        {5, 4, KL_ToD_to_MoD},
        {4, 3, KL_MoD_to_GM2000},       {3, 2, KL_GM2000_to_HM2000},    {3, 1, KL_GM2000_to_BM2000},
        {2, 1, KL_HM2000_to_BM2000},    {1, 9, KL_BM2000_to_BM1950},    {1, 10, KL_BM2000_to_GALACTIC},
        {9, 10, KL_BM1950_to_GALACTIC}, {7, 8, KL_EF_to_LIF},           {8, 7, KL_LIF_to_EF},
    };
    ChainTimeId time_id;
    for (std::size_t code = 0; code < std::size(kEdges); ++code) {
        const Edge &edge = kEdges[code];
        EXPECT_EQ(path(edge.from, edge.to), std::vector<long>{static_cast<long>(code)});
        for (long order = 0; order <= 2; ++order) {
            const ChainState in(edge.from);
            ChainState out(77);
            ChainState chained(edge.from);
            const long status = edge.routine(nullptr, &time_id.id, &kDate, &in, &out, order);
            if (code >= 22) { // no id here holds a launch
                EXPECT_EQ(status, KL_ERR);
                EXPECT_TRUE(out.cs == 77 && out.is(kStart));
                continue;
            }
            EXPECT_EQ(status, 0) << code;
            ASSERT_NE(carry(&time_id.id, kDate, &chained, edge.to, order), KL_ERR);
            EXPECT_TRUE(out.cs == edge.to && out.order == chained.order) << code;
            EXPECT_EQ(std::memcmp(out.store, chained.store, sizeof out.store), 0) << code << ", order " << order;
        }
    }
    ChainModelId nothing(KL_MODEL_EARTH);
    for (const Edge &edge : {kEdges[3], kEdges[6], kEdges[7]}) {
        ChainState state(edge.from);
        EXPECT_EQ(edge.routine(&nothing.id, &time_id.id, &kDate, &state, &state, 2), KL_ERR) << edge.to;
    }
    ChainState state(3);
    for (std::int32_t code : {-1, 24})
        EXPECT_EQ(KL_Start_computations(nullptr, &time_id.id, 1, &code, &kDate, &state, 4, &state, 2), KL_ERR);
    EXPECT_EQ(KL_Start_computations(nullptr, &time_id.id, 99, nullptr, &kDate, &state, 4, &state, 2), KL_ERR);
}

struct Rotation : kl_rotation_record {
    double store[3][4][4] = {};
    double *rows[3][4] = {};

    Rotation() : kl_rotation_record{}
    {
        for (int m = 0; m < 3; ++m)
            for (int i = 0; i < 4; ++i)
                rows[m][i] = store[m][i];
        r = rows[0];
        dr = rows[1];
        ddr = rows[2];
    }
    Rotation(const Rotation &) = delete;
    Rotation &operator=(const Rotation &) = delete;
};

TEST(FrameChain, RecordsCarryAsTheEdgesDoAndTheLowerOrderWins)
{
    Rotation earth;
    ASSERT_EQ(KL_Earth_Rotation(nullptr, kDate.value, &earth), 0);
    EXPECT_TRUE(earth.order == 2 && earth.dimension == 3);
    for (int n = 0; n <= 2; ++n)
        for (int m = 0; m <= 2; ++m) {
            SCOPED_TRACE(testing::Message() << "state " << n << ", record " << m);
            ChainState edge(KL_TOD, n);
            ChainState state(KL_TOD, n);
            earth.order = m;
            KL_rva(&state, &earth, &state);
            ASSERT_NE(carry(nullptr, kDate, &edge, KL_PEF, m), KL_ERR);
            EXPECT_EQ(state.order, std::min(n, m));
            EXPECT_LT(distance(state, 0, edge.store[0] + 1), 1e-8);
            EXPECT_LT(distance(state, 1, edge.store[1] + 1), 1e-11);
            EXPECT_LT(distance(state, 2, edge.store[2] + 1), 1e-14);
        }
    ChainModelId nothing(KL_MODEL_EARTH);
    EXPECT_EQ(KL_Earth_Rotation(&nothing.id, kDate.value, &earth), KL_ERR);
}

// The axes of launch lie the angle east of the Earth's at the reference instant, and turn back as the Earth turns on.
TEST(FrameChain, LaunchAxesTurnBackByTheAngleSinceTheReference)
{
    constexpr double kAngle = 30.0 * M_PI / 180.0;
    const auto angle_of = [](const Rotation &z) { return std::atan2(z.r[1][2], z.r[1][1]); };
    Rotation delta, then, now;
    for (const double t : {9000.25, 9001.75}) {
        ASSERT_EQ(KL_Earth_Rotation_Delta(nullptr, t, 9000.25, 30.0, &delta), 0);
        ASSERT_EQ(KL_Earth_Rotation(nullptr, t, &now), 0);
        ASSERT_EQ(KL_Earth_Rotation(nullptr, 9000.25, &then), 0);
        const double off = angle_of(delta) - (angle_of(now) - angle_of(then) - kAngle);
        EXPECT_NEAR(std::remainder(off, 2.0 * M_PI), 0.0, 1e-13) << t;
        EXPECT_NEAR(std::hypot(delta.dr[1][1], delta.dr[1][2]), std::hypot(now.dr[1][1], now.dr[1][2]), 1e-19) << t;
    }
    ChainModelId nothing(KL_MODEL_EARTH);
    EXPECT_EQ(KL_Earth_Rotation_Delta(&nothing.id, 9001.75, 9000.25, 30.0, &delta), KL_ERR);
}

TEST(FrameChain, ThePoleOfExplicitValuesIsZero)
{
    ChainTimeId time_id;
    Rotation pole;
    ASSERT_EQ(KL_Polar_Motion_Rotation(&time_id.id, kDate.value, &pole), 0);
    ChainState turned(KL_PEF), quasi(KL_EF);
    KL_rva(&turned, &pole, &turned);
    ASSERT_EQ(KL_EF_to_QEF(&time_id.id, &kDate, &quasi, &quasi, 2), 0);
    EXPECT_TRUE(turned.is(kStart) && quasi.is(kStart));
}

// ---- the simplified chain ----

long carry_simply(ChainState *state, long to, double days, kl_error_record *error = nullptr)
{
    const kl_time_record date = {kUt1, kMjd2000, days};
    return KL_Change_CoordinateSystem_Sim(nullptr, nullptr, 2, &date, state, to, state, error);
}

TEST(SimplifiedChain, TurnsByTheLinearAngleAlone)
{
    struct Case {
        double days, degrees; // 99.96779469 + 360.9856473 days, in decimals
    };
    constexpr Case kCases[] = {
        {-18000.5, 177.82357104}, {0.0, 99.96779469}, {9000.25, 61.039906515}, {36523.75, 9.503368065}};
    constexpr double kRate = 360.9856473 / 86400.0; // deg/s
    constexpr double kDegrees = 1.1e-9;             // the rate as a double, 36524 days long
    constexpr double kTurn = kDegrees * M_PI / 180.0;
    constexpr double kRadius = 7e6;
    for (const Case &c : kCases) {
        kl_angle angle;
        ASSERT_EQ(KL_H_Angle_Sim(nullptr, c.days, &angle), 0);
        EXPECT_NEAR(angle.value, c.degrees, kDegrees);
        EXPECT_NEAR(angle.rate, kRate, 1e-18);
        EXPECT_EQ(angle.rate_of_rate, 0.0);
        Rotation record;
        ASSERT_EQ(KL_Earth_Rotation_Sim(nullptr, c.days, &record), 0);
        ChainState turned(KL_TOD, 2, {{kRadius, 0.0, 0.0}, {}, {}});
        KL_rva(&turned, &record, &turned);
        for (long from : {4L, 5L, 11L, 12L, 13L})
            for (long to : {6L, 7L}) {
                ChainState state(from, 2, {{kRadius, 0.0, 0.0}, {}, {}});
                ASSERT_NE(carry_simply(&state, to, c.days), KL_ERR);
                const double w = kRate * M_PI / 180.0;
                const double x = std::cos(c.degrees * M_PI / 180.0);
                const double y = -std::sin(c.degrees * M_PI / 180.0);
                const double expected[3][3] = {{kRadius * x, kRadius * y, 0.0},
                                               {kRadius * w * y, -kRadius * w * x, 0.0},
                                               {-kRadius * w * w * x, -kRadius * w * w * y, 0.0}};
                for (int v = 0; v < 3; ++v) {
                    EXPECT_LT(distance(state, v, expected[v]), kTurn * kRadius * std::pow(w, v)) << from << " " << v;
                    EXPECT_LT(distance(turned, v, expected[v]), kTurn * kRadius * std::pow(w, v)) << v;
                }
            }
    }
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
        EXPECT_LT(distance(back, v, kStart[v]), kNear[v]);
    for (long frame : {1L, 2L, 8L, 9L, 10L}) {
        kl_error_record error;
        ChainState from(frame), to(KL_EF);
        EXPECT_EQ(carry_simply(&from, KL_EF, kDate.value, &error), KL_ERR);
        EXPECT_EQ(codes_of(error), std::vector<long>{1}) << frame;
        EXPECT_EQ(carry_simply(&to, frame, kDate.value, &error), KL_ERR);
        EXPECT_EQ(codes_of(error), std::vector<long>{2}) << frame;
    }
}

} // namespace
