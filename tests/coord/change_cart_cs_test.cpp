// The public frame change: conditions, modes, time scales, once-only warnings, no memory asked for.
#include "coord/chain_state.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/tolerances.h"

#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <vector>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kFirst = -18262.0, kLast = 36524.0;
constexpr double kUt1Day = 9000.25;
constexpr long kFull = KL_CALC_POS_VEL_ACC;

struct Call {
    kl_model_id *model_id = nullptr;
    kl_time_id *time_id = nullptr;
    long mode = kFull, from = KL_GM2000, to = KL_EF, ref = KL_TIME_UT1;
    double time = kUt1Day;
    double out[3][3] = {{7, 7, 7}, {7, 7, 7}, {7, 7, 7}};
    long ierr = 99;

    long operator()()
    {
        return kl_change_cart_cs(model_id, time_id, &mode, &from, &to, &ref, &time, kStart[0], kStart[1], kStart[2],
                                 out[0], out[1], out[2], &ierr);
    }
    bool untouched() const
    {
        return std::all_of(out[0], out[0] + 9, [](double x) { return x == 7.0; });
    }
};

// ---- conditions ----

TEST(ChangeCartCs, RefusesBadInputWithItsConditions)
{
    struct Case {
        const char *name;
        long mode, from, to, ref;
        double time;
        bool has_id;
        long bit; // -1: works
    };
    const double early = std::nextafter(kFirst, -kInfinity), late = std::nextafter(kLast, kInfinity);
    constexpr long kTaiRef = KL_TIME_TAI, kUt1Ref = KL_TIME_UT1;
    const Case cases[] = {
        {"reference undefined", kFull, 3, 7, KL_TIME_UNDEF, kUt1Day, true, 0},
        {"reference 4", kFull, 3, 7, 4, kUt1Day, true, 0},
        {"reference before everything", 0, 0, 0, 4, kNan, false, 0},
        {"too early", kFull, 3, 7, kTaiRef, early, true, 1},
        {"too late", kFull, 3, 7, kUt1Ref, late, true, 1},
        {"not a number", kFull, 3, 7, kTaiRef, kNan, true, 1},
        {"infinite", kFull, 3, 7, kTaiRef, kInfinity, true, 1},
        {"infinite past", kFull, 3, 7, KL_TIME_GPS, -kInfinity, true, 1},
        {"date before mode", 0, 0, 0, kTaiRef, late, false, 1},
        {"mode 0", 0, 3, 7, kTaiRef, kUt1Day, true, 2},
        {"mode 4", 4, 3, 7, kTaiRef, kUt1Day, true, 2},
        {"mode before frames", -1, 0, 12, kTaiRef, kUt1Day, false, 2},
        {"from 0", kFull, 0, 7, kTaiRef, kUt1Day, true, 3},
        {"from the inner mean of date", kFull, 12, 7, kTaiRef, kUt1Day, true, 3},
        {"from the inner true of date", kFull, 13, 7, kTaiRef, kUt1Day, true, 3},
        {"from before to", kFull, -5, 99, kTaiRef, kUt1Day, false, 3},
        {"to 0", kFull, 3, 0, kTaiRef, kUt1Day, true, 4},
        {"to the inner mean of date", kFull, 3, 12, kTaiRef, kUt1Day, true, 4},
        {"to before the time id", kFull, 3, 13, kTaiRef, kUt1Day, false, 4},
        {"no id, TAI", kFull, 3, 7, kTaiRef, kUt1Day, false, 5},
        {"no id, UTC, no edge", kFull, 3, 3, KL_TIME_UTC, kUt1Day, false, 5},
        {"no id, UT1: fails on the way to TAI", kFull, 3, 7, kUt1Ref, kUt1Day, false, 9},
        {"no id, UT1, past the Sun", kFull, 3, 2, kUt1Ref, kUt1Day, false, 10},
        {"launch", kFull, 3, 8, kTaiRef, kUt1Day, true, 11},
        {"from launch, no id", kFull, 8, 3, kUt1Ref, kUt1Day, false, 11},
        {"launch to itself", kFull, 8, 8, kTaiRef, kUt1Day, true, -1},
        {"first instant, TAI", kFull, 3, 7, kTaiRef, kFirst, true, -1},
        {"first instant, past the Sun", kFull, 7, 2, kTaiRef, kFirst, true, -1},
        {"last instant, UT1", kFull, 9, 7, kUt1Ref, kLast, true, -1},
    };
    ChainTimeId known;
    kl_time_id empty{};
    for (const Case &c : cases)
        for (kl_time_id *missing : {&empty, static_cast<kl_time_id *>(nullptr)}) {
            Call call;
            call.time_id = c.has_id ? &known.id : missing;
            call.mode = c.mode;
            call.from = c.from;
            call.to = c.to;
            call.ref = c.ref;
            call.time = c.time;
            EXPECT_EQ(call(), c.bit < 0 ? KL_OK : KL_ERR) << c.name;
            EXPECT_EQ(call.ierr, c.bit < 0 ? 0 : error_bit(c.bit)) << c.name;
            EXPECT_EQ(call.untouched(), c.bit >= 0 && c.bit != KL_CHANGE_CART_CS_TAI_ERR) << c.name;
        }
}

TEST(ChangeCartCs, MissingArgumentsNeverCrash)
{
    constexpr long kBits[] = {2, 3, 4, 0, 1, -1, -1, -1, -1, -1, -1}; // from the mode on; -1: a clear vector
    ChainTimeId id;
    for (int missing = 0; missing < static_cast<int>(std::size(kBits)); ++missing) {
        Call c;
        const auto or_null = [missing](int i, auto *argument) { return i == missing ? nullptr : argument; };
        EXPECT_EQ(kl_change_cart_cs(nullptr, &id.id, or_null(0, &c.mode), or_null(1, &c.from), or_null(2, &c.to),
                                    or_null(3, &c.ref), or_null(4, &c.time), or_null(5, kStart[0]),
                                    or_null(6, kStart[1]), or_null(7, kStart[2]), or_null(8, c.out[0]),
                                    or_null(9, c.out[1]), or_null(10, c.out[2]), &c.ierr),
                  KL_ERR)
            << missing;
        EXPECT_EQ(c.ierr, kBits[missing] < 0 ? 0 : error_bit(kBits[missing])) << missing;
        EXPECT_TRUE(c.untouched()) << missing;
    }
    Call c;
    EXPECT_EQ(kl_change_cart_cs(nullptr, &id.id, &c.mode, &c.from, &c.to, &c.ref, &c.time, kStart[0], kStart[1],
                                kStart[2], c.out[0], c.out[1], c.out[2], nullptr),
              KL_OK);
    EXPECT_FALSE(c.untouched());
}

TEST(ChangeCartCs, ARefusedModelIsATransformationThatFails)
{
    ChainTimeId id;
    for (long kind : {KL_MODEL_EARTH, KL_MODEL_NUTATION, KL_MODEL_PRECESSION}) {
        ChainModelId model(kind);
        Call call;
        call.time_id = &id.id;
        call.model_id = &model.id;
        EXPECT_EQ(call(), KL_ERR) << kind;
        EXPECT_EQ(call.ierr, error_bit(KL_CHANGE_CART_CS_TRANSFORMATION_ERR)) << kind;
    }
}

// ---- results ----

TEST(ChangeCartCs, IsTheChainInEveryPairOfFrames)
{
    ChainTimeId id;
    for (long from : {1, 2, 3, 4, 5, 6, 7, 9, 10, 11})
        for (long to : {1, 2, 3, 4, 5, 6, 7, 9, 10, 11}) {
            Call call;
            call.time_id = &id.id;
            call.from = from;
            call.to = to;
            EXPECT_EQ(call(), KL_OK);
            EXPECT_EQ(call.ierr, 0);
            ChainState state(from);
            ASSERT_NE(carry(&id.id, {kUt1, kMjd2000, kUt1Day}, &state, to), KL_ERR);
            EXPECT_TRUE(state.is(call.out)) << from << " to " << to;
            double own[3][3]; // inputs may be outputs
            std::copy(kStart[0], kStart[0] + 9, own[0]);
            EXPECT_EQ(kl_change_cart_cs(nullptr, &id.id, &kFull, &from, &to, &call.ref, &call.time, own[0], own[1],
                                        own[2], own[0], own[1], own[2], nullptr),
                      KL_OK);
            EXPECT_TRUE(state.is(own)) << from << " to " << to;
        }
}

TEST(ChangeCartCs, OutputsAboveTheModeAreZeroAndTheRestIsTheSame)
{
    ChainTimeId id;
    Call full;
    full.time_id = &id.id;
    ASSERT_EQ(full(), KL_OK);
    for (long mode : {KL_CALC_POS, KL_CALC_POS_VEL}) {
        Call call;
        call.time_id = &id.id;
        call.mode = mode;
        ASSERT_EQ(call(), KL_OK);
        for (int v = 0; v < 3; ++v)
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(call.out[v][i], v < mode ? full.out[v][i] : 0.0) << mode;
    }
}

// So its warnings come with positions too. They have no public text and show on standard error alone.
TEST(ChangeCartCs, CarriesTheWholeStateInEveryModeOnPurpose)
{
    ChainTimeId id;
    Call call;
    call.time_id = &id.id;
    call.mode = KL_CALC_POS;
    call.from = KL_BM2000;
    kl_verbose();
    const std::string text = captured_stderr([&] { EXPECT_EQ(call(), KL_OK); });
    kl_silent();
    EXPECT_EQ(text, "ORBKIT_LIB >>> WARNING in KL_Change_CoordinateSystem: Transformation ToD<->PToD skipped\n"
                    "ORBKIT_LIB >>> WARNING in KL_Change_CoordinateSystem: Zero acceleration between baricentric, "
                    "heliocentric and geocentric systems considered\n");
}

// A whole microsecond of UT1 comes through every scale unharmed; else half of one turns 8000 km by 0.3 mm.
TEST(ChangeCartCs, TheSameInstantOnEveryScaleGivesTheSameState)
{
    ChainTimeId id;
    Call ut1;
    ut1.time_id = &id.id;
    ASSERT_EQ(ut1(), KL_OK);
    const double behind_tai[4] = {0.0, 37.0, kTaiMinusUt1, 19.0};
    for (long ref : {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_GPS}) {
        Call call;
        call.time_id = &id.id;
        call.ref = ref;
        call.time = kUt1Day + (kTaiMinusUt1 - behind_tai[ref]) / kDay;
        ASSERT_EQ(call(), KL_OK);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(call.out[0][i], ut1.out[0][i], 1e-8) << ref;
    }
}

TEST(ChangeCartCs, AskNoMemoryEvenForADefaultModel)
{
    SKIP_WITHOUT_FAULTS();
    ChainTimeId id;
    Call call;
    call.time_id = &id.id;
    call.ref = KL_TIME_UTC;
    for (long to : {KL_EF, KL_HM2000, KL_BM1950, KL_GALACTIC, KL_LIF}) {
        call.to = to;
        faults::Fail memory(faults::Site::kAllocation);
        call();
        EXPECT_FALSE(memory.disarm()) << to;
    }
}

// ---- warnings of the correlation ----

struct Step {
    double tai;
    long bit; // of the warning, or -1
};

void expect_steps(Table &table, const std::vector<Step> &steps, const char *name)
{
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0) << name;
    for (const Step &step : steps) {
        Call call;
        call.time_id = &id.id;
        call.ref = KL_TIME_TAI;
        call.time = step.tai;
        EXPECT_EQ(call(), step.bit < 0 ? KL_OK : KL_WARN) << name << " at " << step.tai;
        EXPECT_EQ(call.ierr, step.bit < 0 ? 0 : warning_bit(step.bit)) << name << " at " << step.tai;
        EXPECT_FALSE(call.untouched());
    }
}

TEST(ChangeCartCs, WarnsOnceOnLeavingTheTable)
{
    const std::vector<kl_time_row> rows = {row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5), row_at(20.0, 32.0, 31.5),
                                           row_at(30.0, 32.0, 32.0)};
    Table held(rows);
    expect_steps(held, {{5.0, -1}, {40.0, 8}, {41.0, -1}, {25.0, -1}, {-1.0, 8}}, "validity");
    Table formula(rows);
    formula.data.no_extrapolation = 0;
    expect_steps(formula, {{40.0, 6}, {40.0, 8}, {40.0, -1}, {5.0, -1}, {40.0, 6}}, "formula");
    Table gap(rows);
    gap.data.combination = 2;
    gap.data.second_bulletin_row = 2;
    expect_steps(gap, {{5.0, -1}, {15.0, 7}, {16.0, -1}, {25.0, -1}, {15.0, 7}}, "gap");
}

TEST(ChangeCartCs, ConversionsDoNotSpendItsWarnings)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    OwnedTimeId id;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(convert(&id.id, KL_TIME_TAI, 20.0, KL_TIME_UT1).status, KL_WARN);
    EXPECT_EQ(convert(&id.id, KL_TIME_TAI, 20.0, KL_TIME_UT1).ierr & 1L << 9, 0) << "spent for conversions";
    Call call;
    call.time_id = &id.id;
    call.ref = KL_TIME_TAI;
    call.time = 20.0;
    EXPECT_EQ(call(), KL_WARN);
    EXPECT_EQ(call.ierr, warning_bit(KL_CHANGE_CART_CS_VALIDITY_WARN));
}

} // namespace
