// Array forms over columns: vectors, arrays and pointers, without a copy; what is thrown and what statuses tell.
#include "objects/objects.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

using ORBKIT::Arrays;
using ORBKIT::Column;
using ORBKIT::Vector;

namespace {

TEST(ArraysOverColumns, TakeVectorsArraysAndPointers)
{
    const ORBKIT::ModelId models;
    const ORBKIT::TimeId time_id = ORBKIT::TimeId::builtIn();
    const std::vector<double> times = {8000.0, 8001.5, 9000.25};
    std::vector<Vector> pos(3), vel(3);
    EXPECT_EQ(Arrays::sun(models, time_id, KL_TIME_UTC, times, pos, vel), KL_OK);
    double plain[3] = {times[0], times[1], times[2]};
    std::array<Vector, 3> there = {};
    const std::unique_ptr<Vector[]> heap(new Vector[3]);
    EXPECT_EQ(Arrays::sun(models, time_id, KL_TIME_UTC, Column<const double>(plain), there, {heap.get(), 3}), KL_OK);
    for (std::size_t i = 0; i < 3; ++i) {
        const ORBKIT::BodyState one = ORBKIT::LibFunc::sun(models, time_id, KL_TIME_UTC, times[i]);
        EXPECT_EQ(pos[i], one.pos);
        EXPECT_EQ(vel[i], one.vel);
        EXPECT_EQ(there[i], one.pos);
        EXPECT_EQ(heap[i], one.vel);
    }
}

TEST(ArraysOverColumns, TellFailuresByStatusesOrThrow)
{
    const ORBKIT::ModelId models;
    const std::vector<double> lat = {10.0, 95.0, -20.0}, lon = {20.0, 30.0, 40.0};
    std::vector<double> height(3);
    std::vector<long> status(3);
    EXPECT_EQ(Arrays::geoidCalc(models, lat, lon, 8, height, status), KL_ERR);
    EXPECT_EQ(status, (std::vector<long>{KL_OK, KL_ERR, KL_OK}));
    EXPECT_TRUE(std::isnan(height[1]) && std::isfinite(height[0]) && std::isfinite(height[2]));
    const std::vector<double> kept = height;
    height.assign(3, 0.0);
    EXPECT_THROW(Arrays::geoidCalc(models, lat, lon, 8, height), KitError);
    EXPECT_EQ(height[0], kept[0]);
    EXPECT_EQ(height[2], kept[2]);
}

TEST(ArraysOverColumns, RefuseColumnsOfDifferentLengths)
{
    const ORBKIT::ModelId models;
    const std::vector<double> lat = {10.0, 20.0}, lon = {20.0};
    std::vector<double> height(2);
    std::vector<long> status(1);
    EXPECT_THROW(Arrays::geoidCalc(models, lat, lon, 8, height), std::invalid_argument);
    EXPECT_THROW(Arrays::geoidCalc(models, lat, lat, 8, height, status), std::invalid_argument);
    EXPECT_EQ(Arrays::geoidCalc(models, {}, {}, 8, {}), KL_OK);
}

// Texts a width apart, and results on their inputs.
TEST(ArraysOverColumns, WriteTextsAndWorkInPlace)
{
    const ORBKIT::TimeId time_id = ORBKIT::TimeId::builtIn();
    std::vector<double> days = {0.5, 1.25};
    char texts[2 * 20];
    EXPECT_EQ(Arrays::timeProcessingToAscii(time_id, KL_TIME_UTC, days, KL_ASCII_41, KL_TIME_UTC, texts, 20), KL_OK);
    EXPECT_STREQ(texts, "2000-01-01T12:00:00");
    EXPECT_STREQ(texts + 20, "2000-01-02T06:00:00");
    EXPECT_EQ(Arrays::timeProcessingToProcessing(time_id, KL_TIME_UTC, days, KL_TIME_TAI, days), KL_OK);
    EXPECT_NEAR((days[1] - 1.25) * 86400.0, 32.0, 1e-6);
}

// Positions alone: what the mode does not need may be left out, also where C wants it.
TEST(ArraysOverColumns, NeedWhatTheModeNeeds)
{
    const ORBKIT::ModelId models;
    const ORBKIT::TimeId time_id = ORBKIT::TimeId::builtIn();
    const std::vector<double> times = {8000.0, 8000.0, 9e9};
    const std::vector<Vector> pos(3, {7e6, 1e6, 2e6}), none(3);
    std::vector<Vector> alone(3), whole(3), unused(3);
    std::vector<long> status(3);
    const auto change = [&](long mode, Column<const Vector> vel, Column<Vector> out, Column<Vector> vel_out) {
        return Arrays::changeCartCs(models, time_id, mode, KL_TOD, KL_EF, KL_TIME_TAI, times, pos, vel, {}, out,
                                    vel_out, {}, status);
    };
    EXPECT_EQ(change(KL_CALC_POS, {}, alone, {}), KL_ERR);
    EXPECT_EQ(status, (std::vector<long>{KL_OK, KL_OK, KL_ERR}));
    EXPECT_EQ(change(KL_CALC_POS_VEL, none, whole, unused), KL_ERR);
    EXPECT_EQ(alone[1], whole[1]);
    EXPECT_TRUE(std::isnan(alone[2][0]));
    change(KL_CALC_POS_VEL, {}, whole, unused); // here the velocity is missing
    EXPECT_EQ(status, (std::vector<long>{KL_ERR, KL_ERR, KL_ERR}));
}

// Words, and nothing on standard error, where a function has no public id or the run is none.
TEST(ArraysOverColumns, FailInWords)
{
    const ORBKIT::ModelId models;
    const std::vector<double> bad = {100.0}, zero = {0.0};
    std::vector<double> a(1), b(1), c(1);
    std::vector<Vector> pos(1), vel(1);
    EXPECT_EQ(captured_stderr([&] {
                  throws("Arrays::geodPoint", [&] { Arrays::geodPoint(models, bad, zero, zero, zero, a, b, c); });
                  throws("out of range", [&] { ORBKIT::LibFunc::geodPoint(models, 100.0, 0.0, 0.0, 0.0); });
                  throws("no run", [&] { Arrays::sun(ORBKIT::RunId(), KL_TIME_TAI, zero, pos, vel); });
                  throws("no run", [&] { ORBKIT::LibFunc::sun(ORBKIT::RunId(), KL_TIME_TAI, 0.0); });
              }),
              "");
}

} // namespace
