// Every static of LibFunc: its result is that of the function it calls, bit for bit, and its failure carries its name,
// its function id and the condition.
#include "orbkit.hpp"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

using namespace ORBKIT;

namespace {

constexpr double kSecond = 1.0 / 86400.0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kDate = 9668.35; // 2026-06-21 08:24:00
constexpr double kLate = 40000.0; // beyond every range

// A time correlation whose four scales all differ, so that exchanged references show.
class LibFuncTest : public testing::Test {
protected:
    const ModelId model;
    const TimeId time{{9497.0 + 37 * kSecond, 9497.0, 9497.0 + 0.25 * kSecond, 9497.0 + 18 * kSecond}};
    const RunId run{SatId(200), time};
    const long utc = KL_TIME_UTC, gps = KL_TIME_GPS, processing = KL_PROC;
    long ierr[2] = {0, 0};
};

// ---- results ----

TEST_F(LibFuncTest, ArrayAndValueFormsOfRotationsGiveWhatTheFunctionsGive)
{
    const Vector angles = {10.0, -20.0, 130.0};
    Matrix matrix, expected_matrix;
    kl_euler_to_matrix(angles.data(), expected_matrix.data(), ierr);
    LibFunc::eulerToMatrix(angles.data(), matrix.data());
    EXPECT_EQ(matrix, expected_matrix);
    EXPECT_EQ(LibFunc::eulerToMatrix(angles), expected_matrix);

    Vector back, expected_back;
    kl_matrix_to_euler(matrix.data(), expected_back.data(), ierr);
    LibFunc::matrixToEuler(matrix.data(), back.data());
    EXPECT_EQ(back, expected_back);
    EXPECT_EQ(LibFunc::matrixToEuler(matrix), expected_back);

    const Quaternion q = {0.1, -0.5, 0.7, 0.5};
    Axes axes, expected_axes;
    kl_quaternions_to_vectors(q.data(), expected_axes.x.data(), expected_axes.y.data(), expected_axes.z.data(), ierr);
    LibFunc::quaternionsToVectors(q.data(), axes.x.data(), axes.y.data(), axes.z.data());
    EXPECT_EQ(axes.x, expected_axes.x);
    EXPECT_EQ(axes.y, expected_axes.y);
    EXPECT_EQ(axes.z, expected_axes.z);
    EXPECT_EQ(LibFunc::quaternionsToVectors(q).z, expected_axes.z);

    Quaternion q_back, expected_q;
    kl_vectors_to_quaternions(axes.x.data(), axes.y.data(), axes.z.data(), expected_q.data(), ierr);
    LibFunc::vectorsToQuaternions(axes.x.data(), axes.y.data(), axes.z.data(), q_back.data());
    EXPECT_EQ(q_back, expected_q);
    EXPECT_EQ(LibFunc::vectorsToQuaternions(axes), expected_q);

    const Axes unit = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const Vector between = LibFunc::getRotationAngles(unit, axes);
    Vector expected_between;
    kl_get_rotation_angles(unit.x.data(), unit.y.data(), unit.z.data(), axes.x.data(), axes.y.data(), axes.z.data(),
                           expected_between.data(), ierr);
    EXPECT_EQ(between, expected_between);
    Axes rotated;
    kl_get_rotated_vectors(unit.x.data(), unit.y.data(), unit.z.data(), between.data(), rotated.x.data(),
                           rotated.y.data(), rotated.z.data(), ierr);
    const Axes turned = LibFunc::getRotatedVectors(unit, between);
    EXPECT_EQ(turned.x, rotated.x);
    EXPECT_EQ(turned.y, rotated.y);
    EXPECT_EQ(turned.z, rotated.z);
}

TEST_F(LibFuncTest, OnPurposeInterpolationNegatesTheSecondQuaternionOfItsConfiguration)
{
    QuaternionsInterpolationCfg cfg = {KL_INTERPOL_SLERP, 1.0, {0, 0, 0, 1}, 3.0, {0, -0.6, 0, -0.8}, 3.0};
    const Quaternion q = LibFunc::quaternionsInterpol(cfg);
    EXPECT_EQ(cfg.q2[1], 0.6);
    EXPECT_EQ(cfg.q2[3], 0.8);
    EXPECT_NEAR(q[1], 0.6, 1e-15);
    double written[4];
    LibFunc::quaternionsInterpol(cfg, written);
    EXPECT_EQ(std::memcmp(written, q.data(), sizeof written), 0);
}

TEST_F(LibFuncTest, BodiesAndFramesByIdsAndByRun)
{
    double pos[3], vel[3], acc[3];
    const auto expect = [&](const BodyState &state) {
        EXPECT_EQ(std::memcmp(state.pos.data(), pos, sizeof pos), 0);
        EXPECT_EQ(std::memcmp(state.vel.data(), vel, sizeof vel), 0);
    };
    ASSERT_EQ(kl_sun(model.getId(), time.getId(), &utc, &kDate, pos, vel, ierr), KL_OK);
    expect(LibFunc::sun(model, time, KL_TIME_UTC, kDate));
    expect(LibFunc::sun(run, KL_TIME_UTC, kDate));
    ASSERT_EQ(kl_moon(model.getId(), time.getId(), &utc, &kDate, pos, vel, ierr), KL_OK);
    expect(LibFunc::moon(model, time, KL_TIME_UTC, kDate));
    expect(LibFunc::moon(run, KL_TIME_UTC, kDate));
    const long mars = KL_MARS;
    ASSERT_EQ(kl_planet(model.getId(), time.getId(), &mars, &utc, &kDate, pos, vel, ierr), KL_OK);
    expect(LibFunc::planet(model, time, KL_MARS, KL_TIME_UTC, kDate));
    expect(LibFunc::planet(run, KL_MARS, KL_TIME_UTC, kDate));

    State in;
    in.pos = {7.0e6, 1.0e5, -2.0e5};
    in.vel = {100.0, 7500.0, 300.0};
    in.acc = {-8.0, 0.1, 0.2};
    const long mode = KL_CALC_POS_VEL_ACC, from = KL_TOD, to = KL_EF;
    ASSERT_EQ(kl_change_cart_cs(model.getId(), time.getId(), &mode, &from, &to, &utc, &kDate, in.pos.data(),
                                in.vel.data(), in.acc.data(), pos, vel, acc, ierr),
              KL_OK);
    for (const State &out : {LibFunc::changeCartCs(model, time, mode, from, to, KL_TIME_UTC, kDate, in),
                             LibFunc::changeCartCs(run, mode, from, to, KL_TIME_UTC, kDate, in)}) {
        expect({out.pos, out.vel});
        EXPECT_EQ(std::memcmp(out.acc.data(), acc, sizeof acc), 0);
    }
    EXPECT_EQ(LibFunc::changeCartCs(run, KL_CALC_POS, from, to, KL_TIME_UTC, kDate, in).vel, Vector{});
}

TEST_F(LibFuncTest, GeoidPointsAndGridsAgree)
{
    const std::vector<double> latitudes = {-30.0, 0.0, 47.25}, longitudes = {10.0, 200.0};
    const std::vector<double> grid = LibFunc::geoidGrid(model, latitudes, longitudes, 36);
    ASSERT_EQ(grid.size(), 6u);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 2; ++column)
            EXPECT_EQ(grid[2 * row + column], LibFunc::geoid(model, latitudes[row], longitudes[column], 36));
    EXPECT_TRUE(LibFunc::geoidGrid(model, {}, longitudes).empty());

    const kl_geoid_input input = {nullptr, 47.25, 10.0, 0.0, 360};
    double undulation = 0.0;
    ASSERT_EQ(kl_geoid_calc(&input, &undulation, ierr), KL_OK);
    EXPECT_EQ(LibFunc::geoid(model, 47.25, 10.0), undulation) << "all degrees unless told otherwise";
}

// The same instant in each format; 9668 days are 1381 weeks and one day, GPS weeks begin 7300 days earlier.
TEST_F(LibFuncTest, NineTimeConversionsByTimeIdAndByRun)
{
    const char *const utc_text = "2026-06-21T08:24:00";
    const char *const gps_text = "21-JUN-2026 08:24:18.000000";
    const TransportTime utc_days = {9668, 30240, 0, 0};
    const TransportTime gps_milliseconds = {9668, 30258000, 0, 0};
    const double gps_time = kDate + 18 * kSecond;
    constexpr double kMicroday = 1e-10; // days: 8.6 microseconds, some roundings of a day count near 1e4

    const auto all = [&](const auto &id) {
        EXPECT_NEAR(LibFunc::timeProcessingToProcessing(id, KL_TIME_UTC, kDate, KL_TIME_GPS), gps_time, kMicroday);
        EXPECT_EQ(LibFunc::timeProcessingToAscii(id, KL_TIME_UTC, kDate, KL_ASCII_33, KL_TIME_GPS).str(), gps_text);
        EXPECT_EQ(LibFunc::timeProcessingToTransport(id, KL_TIME_UTC, kDate, KL_TRANS_22, KL_TIME_GPS),
                  gps_milliseconds);
        EXPECT_NEAR(LibFunc::timeAsciiToProcessing(id, KL_ASCII_41, KL_TIME_UTC, utc_text, KL_TIME_GPS), gps_time,
                    kMicroday);
        EXPECT_STREQ(
            LibFunc::timeAsciiToAscii(id, KL_ASCII_41, KL_TIME_UTC, utc_text, KL_ASCII_33, KL_TIME_GPS).c_str(),
            gps_text);
        EXPECT_EQ(LibFunc::timeAsciiToTransport(id, KL_ASCII_41, KL_TIME_UTC, utc_text, KL_TRANS_22, KL_TIME_GPS),
                  gps_milliseconds);
        EXPECT_NEAR(LibFunc::timeTransportToProcessing(id, KL_TRANS_0, KL_TIME_UTC, utc_days, KL_TIME_GPS), gps_time,
                    kMicroday);
        EXPECT_EQ(LibFunc::timeTransportToAscii(id, KL_TRANS_0, KL_TIME_UTC, utc_days, KL_ASCII_33, KL_TIME_GPS).str(),
                  gps_text);
        EXPECT_EQ(LibFunc::timeTransportToTransport(id, KL_TRANS_0, KL_TIME_UTC, utc_days, KL_TRANS_22, KL_TIME_GPS),
                  gps_milliseconds);
        EXPECT_EQ(LibFunc::timeGetLeapSecondInfo(id, KL_ASCII_41).sign, 0);
    };
    {
        SCOPED_TRACE("time id");
        all(time);
    }
    {
        SCOPED_TRACE("run");
        all(run);
    }
    const std::string text = utc_text;
    const TimeText own = LibFunc::timeProcessingToAscii(time, KL_TIME_UTC, kDate, KL_ASCII_41, KL_TIME_UTC);
    EXPECT_EQ(LibFunc::timeAsciiToTransport(time, KL_ASCII_41, KL_TIME_UTC, text, KL_TRANS_0, KL_TIME_UTC), utc_days);
    EXPECT_EQ(LibFunc::timeAsciiToTransport(time, KL_ASCII_41, KL_TIME_UTC, own, KL_TRANS_0, KL_TIME_UTC), utc_days);
}

TEST_F(LibFuncTest, SumsAndDifferences)
{
    EXPECT_EQ(LibFunc::timeAdd(KL_TIME_TAI, 100.0, -0.5), 99.5);
    EXPECT_EQ(LibFunc::timeDiff(KL_TIME_TAI, 100.0, 99.25), 0.75);
}

TEST_F(LibFuncTest, OnBoardClocksByTypeOfTheirParameters)
{
    const SatId tarvos(21), vardo(51), kelda(61), brisa(71);
    constexpr double kTick = 1e-9; // days: a hundred microseconds, several counts of 2^-16 s

    // A count a second from 100 counts at day 10.
    const kl_obt_param_tarvos counter = {21, 10.0, 100, 0, 1000000000000UL};
    EXPECT_NEAR(LibFunc::timeObtToTime(tarvos, KL_TIME_UTC, counter, {21, 100 + 43200, 0}), 10.5, kTick);
    EXPECT_EQ(LibFunc::timeTimeToObt(tarvos, KL_TIME_UTC, counter, 10.5).coarse, 100UL + 43200UL);
    // 50 s of on-board time at 864000 s after 2000-01-01, the same rate.
    const kl_obt_param_kelda seconds = {61, 864000, 0, 50, 0, 1.0, 0.0};
    EXPECT_NEAR(LibFunc::timeObtToTime(kelda, KL_TIME_UTC, seconds, {61, 50.0 + 86400.0}), 11.0, kTick);
    EXPECT_NEAR(LibFunc::timeTimeToObt(kelda, KL_TIME_UTC, seconds, 11.0).obt, 50.0 + 86400.0, 1e-6);
    // Count 0 at the start of GPS week 1043, which is day 1.
    const kl_obt_param_brisa week = {71, 0, 0, 0, 1043, 0, 0};
    EXPECT_NEAR(LibFunc::timeObtToTime(brisa, KL_TIME_GPS, week, {71, 86400, 0}), 2.0, kTick);
    EXPECT_EQ(LibFunc::timeTimeToObt(brisa, KL_TIME_GPS, week, 2.0).coarse, 86400UL);
    // 7300 days after 1980-01-06.
    const kl_obt_param_vardo offset = {51, 0};
    EXPECT_EQ(LibFunc::timeObtToTime(vardo, KL_TIME_GPS, offset, {51, 630720000, 0}), 0.0);
    EXPECT_EQ(LibFunc::timeTimeToObt(vardo, KL_TIME_GPS, offset, 0.0).coarse, 630720000UL);
    EXPECT_EQ(LibFunc::timeTimeToObt(vardo, KL_TIME_GPS, offset, 0.0).sat_id, 51);

    const RunId vardo_run(vardo, time);
    EXPECT_EQ(LibFunc::timeObtToTime(vardo_run, KL_TIME_GPS, offset, {51, 630720000, 0}), 0.0);
    EXPECT_EQ(LibFunc::timeTimeToObt(vardo_run, KL_TIME_GPS, offset, 0.0).coarse, 630720000UL);
}

TEST_F(LibFuncTest, CucOctetsThereAndBack)
{
    // Four octets of seconds and two of fractions since 1980-01-06: 7300.5 days are 0x25991E40 + 43200 s.
    const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    const CucTime cuc = LibFunc::timeProcessingToCuc(time, config, KL_TIME_GPS, 0.5);
    const unsigned long seconds = (0UL + cuc[0]) << 24 | (0UL + cuc[1]) << 16 | (0UL + cuc[2]) << 8 | cuc[3];
    EXPECT_EQ(seconds, 630720000UL + 43200UL);
    EXPECT_EQ(cuc[4] + cuc[5], 0);
    EXPECT_EQ(LibFunc::timeCucToProcessing(time, config, KL_TIME_GPS, cuc), 0.5);
}

TEST_F(LibFuncTest, VerboseAndSilent)
{
    const auto fail = [] { EXPECT_THROW(LibFunc::timeAdd(KL_TIME_TAI, kLate, 0.0), KitError); };
    LibFunc::setVerbose();
    EXPECT_NE(captured_stderr(fail).find("kl_time_add: Input processing time is out of range"), std::string::npos);
    LibFunc::setSilent();
    EXPECT_EQ(captured_stderr(fail), "");
}

TEST_F(LibFuncTest, VersionsFitTogether)
{
    EXPECT_NE(captured_stdout([] { EXPECT_TRUE(LibFunc::checkLibraryVersion()); }).find("orbkit_lib version = 4.27"),
              std::string::npos);
}

// ---- failures ----

constexpr long UTC = KL_TIME_UTC, GPS = KL_TIME_GPS;
constexpr long kNoRun = -1; // a run that is none is refused without a condition
constexpr long kBad = 9;    // neither scale nor format nor calculation mode

struct Failure {
    const char *operation;
    long public_id;
    long condition; // number of the function's own list
    std::function<void()> call;
};

TEST_F(LibFuncTest, FailuresCarryNameIdAndCondition)
{
    const Axes crooked = {{1, 0, 0}, {1, 1, 0}, {0, 0, 1}};
    const Axes unit = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    QuaternionsInterpolationCfg wrong_mode = {7, 0.0, {0, 0, 0, 1}, 1.0, {0, 0, 0, 1}, 0.5};
    const kl_cuc_config cuc = {9, 0, 0, 0.0, 4, 2};
    const kl_obt_param_vardo offset = {51, 0};
    const TransportTime days{};
    const ModelId &m = model;
    const TimeId &t = time;
    const RunId none;
    const SatId vardo(51), generic(200);
    const Failure failures[] = {
        {"matrixToEuler", 41, 2,
         [] {
             LibFunc::matrixToEuler(Matrix{2, 0, 0, 0, 1, 0, 0, 0, 1});
         }},
        {"getRotationAngles", 30, 0, [&] { LibFunc::getRotationAngles(unit, crooked); }},
        {"getRotatedVectors", 31, 0, [&] { LibFunc::getRotatedVectors(crooked, Vector{}); }},
        {"quaternionsToVectors", 33, 0,
         [] {
             LibFunc::quaternionsToVectors(Quaternion{0, 0, 0, 2});
         }},
        {"vectorsToQuaternions", 34, 1, [&] { LibFunc::vectorsToQuaternions(crooked); }},
        {"quaternionsInterpol", 45, 1, [&] { LibFunc::quaternionsInterpol(wrong_mode); }},
        {"sun", 22, KL_SUN_DATE_ERR, [&] { LibFunc::sun(m, t, UTC, kLate); }},
        {"sun", 22, kNoRun, [&] { LibFunc::sun(none, UTC, 0.0); }},
        {"moon", 23, KL_MOON_DATE_ERR, [&] { LibFunc::moon(m, t, UTC, kLate); }},
        {"moon", 23, kNoRun, [&] { LibFunc::moon(none, UTC, 0.0); }},
        {"planet", 24, KL_PLANET_CODE_ERR, [&] { LibFunc::planet(m, t, 9, UTC, 0.0); }},
        {"planet", 24, kNoRun, [&] { LibFunc::planet(none, KL_MARS, UTC, 0.0); }},
        {"changeCartCs", 17, 2, [&] { LibFunc::changeCartCs(m, t, kBad, KL_EF, KL_EF, UTC, 0.0, State()); }},
        {"changeCartCs", 17, kNoRun, [&] { LibFunc::changeCartCs(none, 1, KL_EF, KL_EF, UTC, 0.0, State()); }},
        {"geoid", 44, KL_GEOID_CALC_LATITUDE_ERR, [&] { LibFunc::geoid(m, kNaN, 0.0); }},
        {"geoidGrid", 44, KL_GEOID_CALC_LONGITUDE_ERR, [&] { LibFunc::geoidGrid(m, {0.0}, {361.0}); }},
        {"timeProcessingToProcessing", 5, 4, [&] { LibFunc::timeProcessingToProcessing(t, UTC, kLate, UTC); }},
        {"timeProcessingToProcessing", 5, 3, [&] { LibFunc::timeProcessingToProcessing(run, UTC, 0.0, kBad); }},
        {"timeProcessingToProcessing", 5, kNoRun, [&] { LibFunc::timeProcessingToProcessing(none, UTC, 0.0, UTC); }},
        {"timeProcessingToAscii", 3, 2, [&] { LibFunc::timeProcessingToAscii(t, UTC, 0.0, kBad, UTC); }},
        {"timeProcessingToAscii", 3, kNoRun, [&] { LibFunc::timeProcessingToAscii(none, UTC, 0.0, 11, UTC); }},
        {"timeProcessingToTransport", 4, 2, [&] { LibFunc::timeProcessingToTransport(t, UTC, 0.0, kBad, UTC); }},
        {"timeProcessingToTransport", 4, kNoRun, [&] { LibFunc::timeProcessingToTransport(none, UTC, 0.0, 0, UTC); }},
        {"timeAsciiToProcessing", 8, 0, [&] { LibFunc::timeAsciiToProcessing(t, kBad, UTC, "", UTC); }},
        {"timeAsciiToProcessing", 8, kNoRun, [&] { LibFunc::timeAsciiToProcessing(none, 11, UTC, "", UTC); }},
        {"timeAsciiToAscii", 6, 0, [&] { LibFunc::timeAsciiToAscii(t, kBad, UTC, "", 11, UTC); }},
        {"timeAsciiToAscii", 6, kNoRun, [&] { LibFunc::timeAsciiToAscii(none, 11, UTC, "", 11, UTC); }},
        {"timeAsciiToTransport", 7, 0, [&] { LibFunc::timeAsciiToTransport(t, kBad, UTC, "", 0, UTC); }},
        {"timeAsciiToTransport", 7, kNoRun, [&] { LibFunc::timeAsciiToTransport(none, 11, UTC, "", 0, UTC); }},
        {"timeTransportToProcessing", 2, 0, [&] { LibFunc::timeTransportToProcessing(t, kBad, UTC, days, UTC); }},
        {"timeTransportToProcessing", 2, kNoRun, [&] { LibFunc::timeTransportToProcessing(none, 0, UTC, days, UTC); }},
        {"timeTransportToAscii", 0, 0, [&] { LibFunc::timeTransportToAscii(t, kBad, UTC, days, 11, UTC); }},
        {"timeTransportToAscii", 0, kNoRun, [&] { LibFunc::timeTransportToAscii(none, 0, UTC, days, 11, UTC); }},
        {"timeTransportToTransport", 1, 0, [&] { LibFunc::timeTransportToTransport(t, kBad, UTC, days, 0, UTC); }},
        {"timeTransportToTransport", 1, kNoRun, [&] { LibFunc::timeTransportToTransport(none, 0, UTC, days, 0, UTC); }},
        {"timeAdd", 9, 2, [] { LibFunc::timeAdd(UTC, kLate, 0.0); }},
        {"timeDiff", 10, 3, [] { LibFunc::timeDiff(UTC, 0.0, kLate); }},
        {"timeGetLeapSecondInfo", 27, 0, [&] { LibFunc::timeGetLeapSecondInfo(t, kBad); }},
        {"timeGetLeapSecondInfo", 27, kNoRun, [&] { LibFunc::timeGetLeapSecondInfo(none, 11); }},
        {"timeObtToTime", 11, 4,
         [&] {
             LibFunc::timeObtToTime(generic, GPS, kl_obt_param_vardo{200, 0}, {200, 0, 0});
         }},
        {"timeObtToTime", 11, 0,
         [&] {
             LibFunc::timeObtToTime(none, GPS, offset, {51, 0, 0});
         }},
        {"timeTimeToObt", 12, 3, [&] { LibFunc::timeTimeToObt(vardo, GPS, offset, kLate); }},
        {"timeTimeToObt", 12, 0, [&] { LibFunc::timeTimeToObt(none, GPS, offset, 0.0); }},
        {"timeCucToProcessing", 46, 0, [&] { LibFunc::timeCucToProcessing(t, cuc, GPS, CucTime{}); }},
        {"timeProcessingToCuc", 47, 0, [&] { LibFunc::timeProcessingToCuc(t, cuc, GPS, 0.0); }},
    };
    for (const Failure &failure : failures) {
        SCOPED_TRACE(failure.operation);
        try {
            failure.call();
            ADD_FAILURE() << "no exception";
        } catch (const KitError &error) {
            EXPECT_EQ(error.getMsg().front(), std::string("LibFunc::") + failure.operation);
            EXPECT_EQ(error.error()->functionId(), failure.public_id);
            std::vector<long> codes;
            error.getCodes(codes);
            EXPECT_EQ(codes, failure.condition == kNoRun ? std::vector<long>{} : std::vector<long>{failure.condition});
        }
    }
}

} // namespace
