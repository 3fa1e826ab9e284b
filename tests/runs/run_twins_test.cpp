// The twins: with a run they do what the function does with the run's ids, without one nothing.
#include "support/captured_stream.h"
#include "support/conditions.h"

#include <cstring>
#include <string>

namespace {

constexpr long kVardo = 51;
constexpr double kDay = 6210.25; // 2017-01-01 06:00
constexpr char kText[] = "2017-01-01_06:00:00.500000";
constexpr long kTransport[4] = {6210, 21600, 500000, 0};
constexpr double kSecond = 1.0 / 86400.0;

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
    long sat_id = kVardo, run = -1;
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
#define TWIN(function, context, ...)                                                             \
    {#function,                                                                                  \
     [](Ids &ids, Outcome &out) -> long { return function(context, __VA_ARGS__, out.ierr); },    \
     [](const long *run, Outcome &out) -> long { return function##_run(run, __VA_ARGS__, out.ierr); }}
// clang-format on
#define MODEL_AND_TIME &ids.model, &ids.time

struct Twin {
    const char *name;
    long (*plain)(Ids &, Outcome &);
    long (*twin)(const long *, Outcome &);
};

const Twin kTwins[] = {
#include "runs/run_twins.inc"
};
constexpr std::size_t kModelTwins = 4, kFirstClockTwin = std::size(kTwins) - 2;

class RunTwins : public testing::Test {
protected:
    RunTwins()
    {
        const long mode = KL_MODEL_USER, no_moon[9] = {0, 0, 1}; // refused: nothing from the Moon on
        EXPECT_EQ(kl_model_init(&mode, no_moon, &worlds[1].model, nullptr), KL_ERR);
        double tai_utc = 37 * kSecond;
        for (Ids &ids : worlds) {
            const double tai = kDay + tai_utc, times[4] = {tai, kDay, kDay - 0.408 * kSecond, tai - 19 * kSecond};
            tai_utc -= kSecond; // of the next one
            EXPECT_EQ(kl_time_ref_init(times, nullptr, nullptr, nullptr, &ids.time, nullptr), KL_OK);
            EXPECT_EQ(kl_run_init(&ids.sat_id, &ids.time, &ids.model, &ids.run, nullptr), KL_OK);
        }
    }
    ~RunTwins() override
    {
        for (Ids &ids : worlds) {
            kl_run_close(&ids.run);
            EXPECT_EQ(kl_time_close(&ids.time, nullptr), KL_OK);
        }
        EXPECT_EQ(kl_model_close(&worlds[1].model, nullptr), KL_OK);
    }

    Ids worlds[2]; // with the default models, with some
};

TEST_F(RunTwins, DoWhatTheirFunctionDoesWithTheIdsOfTheRun)
{
    for (const Twin &pair : kTwins)
        for (Ids &ids : worlds) {
            Outcome by_ids, by_run;
            by_ids.status = pair.plain(ids, by_ids);
            by_run.status = pair.twin(&ids.run, by_run);
            EXPECT_TRUE(by_ids == by_run) << pair.name;
            EXPECT_EQ(by_run.status == KL_ERR, &ids == &worlds[1] && &pair < kTwins + kModelTwins) << pair.name;
        }
}

TEST_F(RunTwins, TouchNothingWithoutTheirRunButOnPurposeThoseOfTheClocksPassOnThatThereIsNoSatellite)
{
    for (std::size_t i = 0; i < std::size(kTwins); ++i)
        for (const long none : {-1L, 20L, 3L, LONG_MAX}) {
            Outcome twin, untouched;
            const std::string said = verbose_text([&] { twin.status = kTwins[i].twin(&none, twin); });
            untouched.status = KL_ERR;
            if (i >= kFirstClockTwin)
                untouched.ierr[0] = error_bits(0);
            EXPECT_TRUE(twin == untouched) << kTwins[i].name;
            EXPECT_EQ(said.empty(), i < kFirstClockTwin) << kTwins[i].name;
        }
}

} // namespace
