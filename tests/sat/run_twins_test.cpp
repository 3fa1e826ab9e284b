// The twins: with a run they do what the function does with the run's ids, without one nothing.
#include "kl_lib.h"
#include "support/captured_stream.h"

#include <climits>
#include <cstring>
#include <string>

namespace {

constexpr long kVardo = 51;
constexpr double kDay = 6210.25; // 2017-01-01 06:00
constexpr double kDaysPerSecond = 1.0 / 86400.0;

// Arguments of one call, right or wrong.
struct Input {
    double time = kDay;
    const char *text = "2017-01-01_06:00:00.500000";
    long transport[4] = {6210, 21600, 500000, 0};
    long time_ref = KL_TIME_UTC;
};

Input wrong()
{
    Input input;
    input.time = 1e6;
    input.text = "2017-13-01_06:00:00.500000";
    input.transport[0] = 1000000;
    input.time_ref = 9;
    return input;
}

// Everything a call can write, filled with a pattern first.
struct Outcome {
    long status, ierr[2], number, transport[4];
    double values[9];
    char text[2][KL_TIME_ASCII_LENGTH];
    kl_obt_vardo obt;

    Outcome()
    {
        std::memset(static_cast<void *>(this), 0x5a, sizeof *this);
        obt.sat_id = kVardo;
    }
    bool operator==(const Outcome &other) const { return std::memcmp(this, &other, sizeof *this) == 0; }
};

struct Ids {
    kl_time_id time = {};
    kl_model_id model = {};
    long sat_id = kVardo;
};

constexpr long kUtc = KL_TIME_UTC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kProc = KL_PROC;
constexpr long kAscii = KL_ASCII_13;
constexpr long kTrans = KL_TRANS_0;
constexpr long kMars = KL_MARS;
constexpr long kFull = KL_CALC_POS_VEL_ACC;
constexpr long kInertial = KL_GM2000;
constexpr long kFixed = KL_EF;
constexpr double kState[3][3] = {{7e6, 1e5, -2e5}, {100, 5000, 5500}, {-8, 0.1, 0.2}};
constexpr kl_obt_param_vardo kClock = {kVardo, 12};
constexpr kl_obt_vardo kObt = {kVardo, 500000000, 1234};

// A function with its context replaced by `...`, once with the ids and once with the run.
// clang-format off
#define TWIN(function, context, ...)                                          \
    {#function,                                                               \
     []([[maybe_unused]] Ids &ids, [[maybe_unused]] const Input &in, Outcome &out) -> long { \
         return function(context, __VA_ARGS__, out.ierr);                     \
     },                                                                       \
     [](const long *run, [[maybe_unused]] const Input &in, Outcome &out) -> long { \
         return function##_run(run, __VA_ARGS__, out.ierr);                   \
     }}
// clang-format on
#define MODEL_AND_TIME &ids.model, &ids.time

struct Twin {
    const char *name;
    long (*plain)(Ids &, const Input &, Outcome &);
    long (*twin)(const long *, const Input &, Outcome &);
};

const Twin kTwins[] = {
    TWIN(kl_sun, MODEL_AND_TIME, &in.time_ref, &in.time, out.values, out.values + 3),
    TWIN(kl_moon, MODEL_AND_TIME, &in.time_ref, &in.time, out.values, out.values + 3),
    TWIN(kl_planet, MODEL_AND_TIME, &kMars, &in.time_ref, &in.time, out.values, out.values + 3),
    TWIN(kl_change_cart_cs, MODEL_AND_TIME, &kFull, &kInertial, &kFixed, &in.time_ref, &in.time, kState[0], kState[1],
         kState[2], out.values, out.values + 3, out.values + 6),
    TWIN(kl_time_ascii_to_ascii, &ids.time, &kAscii, &kUtc, in.text, &kAscii, &kTai, out.text[0]),
    TWIN(kl_time_ascii_to_processing, &ids.time, &kAscii, &kUtc, in.text, &kProc, &kTai, out.values),
    TWIN(kl_time_ascii_to_transport, &ids.time, &kAscii, &kUtc, in.text, &kTrans, &kTai, out.transport),
    TWIN(kl_time_processing_to_ascii, &ids.time, &kProc, &kUtc, &in.time, &kAscii, &kTai, out.text[0]),
    TWIN(kl_time_processing_to_processing, &ids.time, &kProc, &kUtc, &in.time, &kProc, &kTai, out.values),
    TWIN(kl_time_processing_to_transport, &ids.time, &kProc, &kUtc, &in.time, &kTrans, &kTai, out.transport),
    TWIN(kl_time_transport_to_ascii, &ids.time, &kTrans, &kUtc, in.transport, &kAscii, &kTai, out.text[0]),
    TWIN(kl_time_transport_to_processing, &ids.time, &kTrans, &kUtc, in.transport, &kProc, &kTai, out.values),
    TWIN(kl_time_transport_to_transport, &ids.time, &kTrans, &kUtc, in.transport, &kTrans, &kTai, out.transport),
    TWIN(kl_time_get_leap_second_info, &ids.time, in.time_ref == kUtc ? &kAscii : &in.time_ref, &out.number,
         out.text[0], out.text[1]),
    TWIN(kl_time_obt_to_time, &ids.sat_id, &in.time_ref, &kClock, &kObt, out.values),
    TWIN(kl_time_time_to_obt, &ids.sat_id, &in.time_ref, &kClock, &in.time, &out.obt),
};
const std::size_t kFirstClockTwin = std::size(kTwins) - 2;

class RunTwins : public testing::Test {
protected:
    RunTwins()
    {
        const double tai = kDay + 37 * kDaysPerSecond;
        const double times[4] = {tai, kDay, kDay - 0.408 * kDaysPerSecond, tai - 19 * kDaysPerSecond};
        const long mode = KL_MODEL_DEFAULT;
        EXPECT_EQ(kl_time_ref_init(times, nullptr, nullptr, nullptr, &ids.time, nullptr), KL_OK);
        EXPECT_EQ(kl_model_init(&mode, nullptr, &ids.model, nullptr), KL_OK);
        EXPECT_EQ(kl_run_init(&ids.sat_id, &ids.time, &ids.model, &run, nullptr), KL_OK);
    }
    ~RunTwins() override
    {
        kl_run_close(&run);
        EXPECT_EQ(kl_model_close(&ids.model, nullptr), KL_OK);
        EXPECT_EQ(kl_time_close(&ids.time, nullptr), KL_OK);
    }

    Ids ids;
    long run = -1;
};

TEST_F(RunTwins, DoWhatTheirFunctionDoesWithTheIdsOfTheRun)
{
    for (const Twin &pair : kTwins)
        for (const bool right : {true, false}) {
            const Input input = right ? Input() : wrong();
            Outcome plain;
            Outcome twin;
            plain.status = pair.plain(ids, input, plain);
            twin.status = pair.twin(&run, input, twin);
            EXPECT_TRUE(plain == twin) << pair.name;
            EXPECT_EQ(twin.status == KL_ERR, !right) << pair.name;
            EXPECT_EQ(twin.ierr[0] < 0, !right) << pair.name;
        }
}

TEST_F(RunTwins, TouchNothingWithoutTheirRun)
{
    const long closed = 3;
    kl_verbose();
    for (std::size_t i = 0; i < std::size(kTwins); ++i)
        for (const long *number : {&closed, static_cast<const long *>(nullptr)}) {
            Outcome twin;
            Outcome untouched;
            std::string out;
            const std::string err = captured_stderr(
                [&] { out = captured_stdout([&] { twin.status = kTwins[i].twin(number, Input(), twin); }); });
            untouched.status = KL_ERR;
            EXPECT_EQ(out, "") << kTwins[i].name;
            EXPECT_EQ(twin.status, KL_ERR) << kTwins[i].name;
            if (i < kFirstClockTwin) {
                EXPECT_TRUE(twin == untouched) << kTwins[i].name;
                EXPECT_EQ(err, "") << kTwins[i].name;
            }
        }
    kl_silent();
}

TEST_F(RunTwins, OnPurposeThoseOfTheClocksPassOnThatThereIsNoSatellite)
{
    const long kErrorAndCode0 = LONG_MIN | 1L;
    for (std::size_t i = kFirstClockTwin; i < std::size(kTwins); ++i)
        for (const long number : {-1L, 20L, 3L, LONG_MAX}) {
            Outcome twin;
            EXPECT_EQ(kTwins[i].twin(&number, Input(), twin), KL_ERR) << kTwins[i].name << " " << number;
            EXPECT_EQ(twin.ierr[0], kErrorAndCode0) << kTwins[i].name << " " << number;
        }
}

TEST_F(RunTwins, KeepTheIdsOfTheirRunFromBeingClosed)
{
    long ierr[1] = {0};
    EXPECT_EQ(kl_time_close(&ids.time, ierr), KL_ERR);
    EXPECT_EQ(ierr[0], LONG_MIN | 1L);
    EXPECT_EQ(kl_time_init_status(&ids.time), 1);
    EXPECT_EQ(kl_model_close(&ids.model, ierr), KL_ERR);
    EXPECT_EQ(ierr[0], LONG_MIN | 1L);
    EXPECT_EQ(kl_model_init_status(&ids.model), 1);
}

TEST_F(RunTwins, TakeTheModelsOfTheRunOrTheDefaultOnes)
{
    kl_model_id no_moon = {};
    const long mode = KL_MODEL_USER;
    const long models[9] = {0, 0, 1, 0, 0, 0, 0, 0, 0}; // the Moon is refused: none of what follows is there
    ASSERT_EQ(kl_model_init(&mode, models, &no_moon, nullptr), KL_ERR);
    long without_moon = -1;
    long without_model = -1;
    ASSERT_EQ(kl_run_init(&ids.sat_id, &ids.time, &no_moon, &without_moon, nullptr), KL_OK);
    ASSERT_EQ(kl_run_init(&ids.sat_id, &ids.time, nullptr, &without_model, nullptr), KL_OK);
    Outcome moon, refused, standard;
    const Input input;
    EXPECT_NE(kTwins[1].twin(&run, input, moon), KL_ERR);
    EXPECT_EQ(kTwins[1].twin(&without_moon, input, refused), KL_ERR);
    EXPECT_NE(kTwins[1].twin(&without_model, input, standard), KL_ERR);
    EXPECT_TRUE(moon == standard);
    kl_run_close(&without_moon);
    kl_run_close(&without_model);
    EXPECT_EQ(kl_model_close(&no_moon, nullptr), KL_OK);
}

} // namespace
