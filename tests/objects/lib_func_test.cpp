// Every static of LibFunc: its result is that of the function it calls, bit for bit, and its failure carries its name,
// its function id and the condition.
#include "objects/objects.h"

#include <cstring>
#include <limits>

using namespace ORBKIT;

namespace {

constexpr double kSecond = 1.0 / 86400.0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kDate = 9668.35; // 2026-06-21 08:24:00
constexpr double kLate = 40000.0; // beyond every range
constexpr long kBad = 9;          // neither scale nor format nor calculation mode
constexpr long UTC = KL_TIME_UTC, GPS = KL_TIME_GPS;

// A time correlation whose four scales all differ, so that exchanged references show.
class LibFuncTest : public testing::Test {
protected:
    const ModelId model;
    const TimeId time{{9497.0 + 37 * kSecond, 9497.0, 9497.0 + 0.25 * kSecond, 9497.0 + 18 * kSecond}};
    const RunId run{SatId(200), time};
    const Axes unit = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
};

#define SAME(value, ...)                                                                                               \
    {                                                                                                                  \
        double out[9] = {};                                                                                            \
        const auto got = value;                                                                                        \
        EXPECT_EQ(__VA_ARGS__, KL_OK);                                                                                 \
        EXPECT_EQ(std::memcmp(&got, out, sizeof got), 0) << #value;                                                    \
    }

TEST_F(LibFuncTest, ResultsAreThoseOfTheFunctionsOnPurposeWithTheSecondQuaternionNegated)
{
    const Vector angles = {10.0, -20.0, 130.0};
    const Matrix matrix = LibFunc::eulerToMatrix(angles);
    const Quaternion q = {0.1, -0.5, 0.7, 0.5};
    const Axes axes = LibFunc::quaternionsToVectors(q);
    const double *x = axes.x.data(), *y = axes.y.data(), *z = axes.z.data();
    const double *ex = unit.x.data(), *ey = unit.y.data(), *ez = unit.z.data();
    const State in = {{7.0e6, 1.0e5, -2.0e5}, {100.0, 7500.0, 300.0}, {-8.0, 0.1, 0.2}};
    const long utc = UTC, mars = KL_MARS, mode = KL_CALC_POS_VEL_ACC, from = KL_TOD, to_ef = KL_EF;
    const kl_geoid_input place = {nullptr, 47.25, 10.0, 0.0, 360};
    QuaternionsInterpolationCfg cfg = {KL_INTERPOL_SLERP, 1.0, {0, 0, 0, 1}, 3.0, {0, -0.6, 0, -0.8}, 2.5};
    double q2[4] = {0, -0.6, 0, -0.8};
    long ierr[1];
#include "objects/same_results.inc"
}

#define NEAR(expected, ...) EXPECT_NEAR(__VA_ARGS__, expected, 1e-10) << #__VA_ARGS__;

// 9668 days are 1381 weeks and one day, GPS weeks begin 7300 days earlier.
TEST_F(LibFuncTest, NineTimeConversionsAndTheirFailuresByTimeIdAndByRun)
{
    const char *const utc_text = "2026-06-21T08:24:00";
    const std::string gps_text = "21-JUN-2026 08:24:18.000000";
    const TransportTime utc_days = {9668, 30240, 0, 0};
    const TransportTime gps_milliseconds = {9668, 30258000, 0, 0};
    const double gps_time = kDate + 18 * kSecond;
    const auto all = [&](const auto &id) {
#include "objects/conversions.inc"
    };
    all(time);
    all(run);
}

TEST_F(LibFuncTest, OnBoardClocksByTypeOfTheirParametersAndCucOctets)
{
    const SatId tarvos(21), vardo(51), kelda(61), brisa(71);
    const RunId vardo_run(vardo, time);
    const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    const kl_obt_param_tarvos counter = {21, 10.0, 100, 0, 1000000000000UL};
    const kl_obt_param_kelda seconds = {61, 864000, 0, 50, 0, 1.0, 0.0};
    const kl_obt_param_brisa week = {71, 0, 0, 0, 1043, 0, 0};
    const kl_obt_param_vardo offset = {51, 0};
#include "objects/clocks.inc"
}

TEST_F(LibFuncTest, VerboseAndSilentAndVersions)
{
    const auto fail = [] { EXPECT_THROW(LibFunc::timeAdd(KL_TIME_TAI, kLate, 0.0), KitError); };
    LibFunc::setVerbose();
    EXPECT_NE(captured_stderr(fail).find("kl_time_add: Input processing time is out of range"), std::string::npos);
    LibFunc::setSilent();
    EXPECT_EQ(captured_stderr(fail), "");
    const std::string report = captured_stdout([] { EXPECT_TRUE(LibFunc::checkLibraryVersion()); });
    EXPECT_NE(report.find("orbkit_lib version = 4.27"), std::string::npos);
}

TEST_F(LibFuncTest, FailuresCarryNameIdAndCondition)
{
    constexpr long kNoRun = kNoCode; // a run that is none is refused without a condition
    const Axes crooked = {{1, 0, 0}, {1, 1, 0}, {0, 0, 1}};
    QuaternionsInterpolationCfg wrong_mode = {7, 0.0, {0, 0, 0, 1}, 1.0, {0, 0, 0, 1}, 0.5};
    const kl_cuc_config cuc = {9, 0, 0, 0.0, 4, 2};
    const kl_obt_param_vardo offset = {51, 0};
    const RunId none;
    const SatId vardo(51), generic(200);
    const ModelId &m = model;
    const TimeId &t = time;
#include "objects/failures.inc"
}

} // namespace
