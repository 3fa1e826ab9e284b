// Runs under threads: what one thread opens and closes while another looks.
#include "support/bare_id.h"
#include "support/conditions.h"

#include <atomic>
#include <thread>

namespace {

// A run that is refused was in nobody's sight: its record is freed at once.
TEST(RunThreads, ARefusedRunIsNeverSeen)
{
    BareId time_record(KL_ID_TIME);
    std::atomic<bool> done{false};
    std::thread asking([&] {
        const long run = 0, tai = KL_TIME_TAI;
        const double at = 0.0;
        double pos[3], vel[3];
        while (!done) {
            EXPECT_EQ(kl_run_init_status(&run), 0);
            EXPECT_EQ(kl_sun_run(&run, &tai, &at, pos, vel, nullptr), KL_ERR);
        }
    });
    kl_time_id time = {&time_record.record};
    const long free_slot = 4;
    for (int round = 0; round < 20000; ++round) {
        long run = 5;
        EXPECT_EQ(kl_run_init(&free_slot, &time, nullptr, &run, nullptr), KL_ERR);
        EXPECT_EQ(run, -1);
    }
    done = true;
    asking.join();
}

// The list of an id's users is kept whole by the lock of the id, when runs come and when they go.
TEST(RunThreads, SharedIdsKeepTheirUsersStraight)
{
    BareId time_record(KL_ID_TIME), model_record(KL_ID_MODEL);
    const auto open_and_close = [&](bool by_library) {
        const long sat_id = 200;
        kl_time_id time = {&time_record.record};
        kl_model_id model = {&model_record.record};
        for (int round = 0; round < 20000; ++round) {
            long run = -1;
            EXPECT_EQ(kl_run_init(&sat_id, &time, &model, &run, nullptr), KL_OK);
            if (by_library) { // the other way to let go of an id
                EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_MODEL), 1);
            }
            kl_run_close(&run);
        }
    };
    std::thread other(open_and_close, true);
    open_and_close(false);
    other.join();
    EXPECT_EQ(KL_Is_used(&time_record.handle), 0);
    EXPECT_EQ(KL_Is_used(&model_record.handle), 0);
}

} // namespace
