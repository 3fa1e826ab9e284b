// Runs: their life, what they pin, what prevents them, and the links that they hold.
#include "kit_data_handling.h"
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"

#include <climits>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using faults::Fail;
using faults::Site;

constexpr long kErrorBit = LONG_MIN;
constexpr long kSatId = 200;

// The layout of a run record, as the higher libraries know it.
struct RunLayout {
    kl_id_record head;
    long sat_id;
    kl_id_record *model, *time;
    kl_id_record *siblings[6]; // kinds 4, 7, 8, 9, 11, 12
};

// An id without a kind's own data: enough for a run to hold.
struct Id {
    kl_id_record record = {};
    kl_id_record *handle = &record;

    explicit Id(long kind)
    {
        const long sat_id = kSatId;
        EXPECT_EQ(KL_Id_init(&sat_id, kind, &record), 0);
    }
    ~Id() { EXPECT_EQ(KL_Id_close(&handle), 0) << "something still uses it"; }
    Id(const Id &) = delete;
    Id &operator=(const Id &) = delete;
};

struct Ids {
    Id time_record{KL_ID_TIME};
    Id model_record{KL_ID_MODEL};
    kl_time_id time = {&time_record.record};
    kl_model_id model = {&model_record.record};
};

class Runs : public testing::Test {
protected:
    ~Runs() override
    {
        for (long run = 0; run < 20; ++run)
            kl_run_close(&run);
    }

    long open(bool with_model = true)
    {
        long run = -7;
        long ierr[1];
        EXPECT_EQ(kl_run_init(&kSatId, &ids.time, with_model ? &ids.model : nullptr, &run, ierr), KL_OK);
        EXPECT_EQ(ierr[0], 0);
        return run;
    }

    // Record of the oldest run, or of one of the next.
    RunLayout *layout(int skip = 0)
    {
        kd_list_node *node = kd_list_begin(static_cast<kd_list *>(ids.time_record.record.users));
        while (skip-- > 0)
            node = kd_list_next(node);
        return *static_cast<RunLayout **>(kd_list_data(node));
    }

    Ids ids;
};

long status(long run, long kind)
{
    return kl_run_id_status(&run, &kind);
}

TEST_F(Runs, GroupThreeIdsUnderTheLowestFreeNumber)
{
    for (long n = 0; n < 5; ++n) {
        EXPECT_EQ(open(), n);
        EXPECT_EQ(layout(static_cast<int>(n))->head.mode, n) << "the run's own number";
    }
    const long third = 3;
    kl_run_close(&third);
    EXPECT_EQ(kl_run_init_status(&third), 0);
    EXPECT_EQ(open(), 3);
    long sat_id = 0;
    kl_time_id time = {};
    kl_model_id model = {};
    EXPECT_EQ(kl_run_get_ids(&third, &sat_id, &time, &model), 0);
    EXPECT_EQ(sat_id, kSatId);
    EXPECT_EQ(time.record, ids.time.record);
    EXPECT_EQ(model.record, ids.model.record);
    EXPECT_EQ(KL_Run_get_init_type(&third), KL_ID_RUN);
    const RunLayout *run = layout();
    EXPECT_EQ(run->head.kind, KL_ID_RUN);
    EXPECT_EQ(run->head.sat_id, kSatId);
    EXPECT_EQ(run->head.mutex, nullptr);
    EXPECT_EQ(run->head.instances, 0);
    EXPECT_EQ(run->sat_id, kSatId);
    EXPECT_EQ(KL_Get_used_id(run, KL_ID_TIME), ids.time.record);
    EXPECT_EQ(KL_Get_used_id(run, KL_ID_MODEL), ids.model.record);
}

TEST_F(Runs, ThereAreTwenty)
{
    for (long n = 0; n < 20; ++n)
        EXPECT_EQ(open(), n);
    long run = 5;
    long ierr[1] = {0};
    EXPECT_EQ(kl_run_init(&kSatId, &ids.time, nullptr, &run, ierr), KL_ERR);
    EXPECT_EQ(run, -1);
    EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_RUN_INIT_NO_SLOT_ERR);
    const long last = 19;
    kl_run_close(&last);
    EXPECT_EQ(open(), 19);
}

TEST_F(Runs, PinTheirIdsUntilTheyAreClosed)
{
    const long both = open();
    const long time_only = open(false);
    EXPECT_EQ(KL_Id_close(&ids.time), -1);
    EXPECT_EQ(KL_Id_close(&ids.model), -1);
    kl_run_close(&both);
    EXPECT_EQ(KL_Is_used(&ids.model), 0);
    EXPECT_EQ(KL_Is_used(&ids.time), 1);
    EXPECT_EQ(KL_Id_close(&ids.time), -1);
    kl_run_close(&time_only);
    kl_run_close(&time_only); // nothing happens
    EXPECT_EQ(KL_Is_used(&ids.time), 0);
}

TEST_F(Runs, KnowTheKindsOfTheirIds)
{
    const long full = open();
    const long plain = open(false);
    struct Case {
        long run, kind, status;
    };
    const Case cases[] = {{full, KL_ID_RUN, 1},
                          {full, KL_ID_TIME, 1},
                          {full, KL_ID_MODEL, 1},
                          {full, 4, 0},
                          {full, 0, 0},
                          {full, 5, 0},
                          {full, -1, 0},
                          {plain, KL_ID_TIME, 1},
                          {plain, KL_ID_MODEL, 0},
                          {7, KL_ID_RUN, 0},
                          {7, KL_ID_TIME, 0},
                          {20, KL_ID_RUN, 0},
                          {-1, KL_ID_RUN, 0},
                          {LONG_MIN, KL_ID_RUN, 0}};
    for (const Case &c : cases)
        EXPECT_EQ(status(c.run, c.kind), c.status) << c.run << " " << c.kind;
    for (const long run : {-1L, 7L, 20L, LONG_MAX, LONG_MIN}) {
        EXPECT_EQ(kl_run_init_status(&run), 0) << run;
        EXPECT_EQ(KL_Run_get_init_type(&run), 0) << run;
        long sat_id = 55;
        kl_time_id time = {&ids};
        kl_model_id model = {&ids};
        EXPECT_EQ(kl_run_get_ids(&run, &sat_id, &time, &model), -1) << run;
        EXPECT_EQ(sat_id, 55);
        EXPECT_EQ(time.record, &ids);
        EXPECT_EQ(model.record, &ids);
        kl_run_close(&run);
    }
}

TEST_F(Runs, AreRefusedForABadId)
{
    const long invalid = 13;
    const long free_slot = 4;
    kl_time_id no_time = {};
    kl_model_id no_model = {};
    Id closed_record(KL_ID_TIME);
    kl_id_record closed = {};
    kl_time_id closed_time = {&closed};
    struct Case {
        const char *name;
        const long *sat_id;
        kl_time_id *time;
        kl_model_id *model;
        long bits;
    };
    const Case cases[] = {
        {"invalid satellite", &invalid, &ids.time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_SAT_ID_ERR},
        {"free default satellite", &free_slot, &ids.time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_SAT_ID_ERR},
        {"no satellite", nullptr, &ids.time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_SAT_ID_ERR},
        {"satellite before time", &invalid, &no_time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_SAT_ID_ERR},
        {"empty time id", &kSatId, &no_time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_TIME_ID_ERR},
        {"closed time id", &kSatId, &closed_time, &ids.model, kErrorBit | 1L << KL_RUN_INIT_TIME_ID_ERR},
        {"no time id", &kSatId, nullptr, &ids.model, kErrorBit | 1L << KL_RUN_INIT_TIME_ID_ERR},
        {"empty model id", &kSatId, &ids.time, &no_model, 0},
        {"no model id", &kSatId, &ids.time, nullptr, 0},
    };
    for (const Case &c : cases) {
        long run = 5;
        long ierr[1] = {77};
        EXPECT_EQ(kl_run_init(c.sat_id, c.time, c.model, &run, ierr), c.bits != 0 ? KL_ERR : KL_OK) << c.name;
        EXPECT_EQ(ierr[0], c.bits) << c.name;
        EXPECT_EQ(run, c.bits != 0 ? -1 : 0) << c.name;
        const long first = 0;
        kl_run_close(&first);
        EXPECT_EQ(KL_Is_used(&ids.time) + KL_Is_used(&ids.model), 0) << c.name;
    }
    long ierr[1] = {77};
    EXPECT_EQ(kl_run_init(&kSatId, &ids.time, &ids.model, nullptr, ierr), KL_ERR);
    EXPECT_EQ(ierr[0], 0);
    long run = 5;
    EXPECT_EQ(kl_run_init(&invalid, &ids.time, nullptr, &run, nullptr), KL_ERR);
    EXPECT_EQ(run, -1);
    EXPECT_EQ(kl_run_init_status(nullptr), 0);
    EXPECT_EQ(kl_run_id_status(nullptr, nullptr), 0);
    EXPECT_EQ(KL_Run_get_init_type(nullptr), 0);
    EXPECT_EQ(kl_run_get_ids(nullptr, &run, nullptr, nullptr), -1);
    kl_run_close(nullptr);
    kl_verbose();
    const std::string said = captured_stderr([&] { kl_run_init(&invalid, &ids.time, nullptr, &run, nullptr); });
    kl_silent();
    EXPECT_EQ(said, "ORBKIT_LIB >>> ERROR in KL_Check_sat_id: Satellite ID is not correct\n"
                    "ORBKIT_LIB >>> ERROR in kl_run_init: Satellite ID is not correct\n");
}

TEST_F(Runs, HaveTheirMessages)
{
    const long public_id = KL_ID_FUNC_RUN_INIT;
    const long ierr[1] = {kErrorBit | 0x7f};
    static char msg[KL_MAX_MSG][512];
    long n = 0;
    ASSERT_EQ(kl_get_msg(&public_id, ierr, &n, msg), 0);
    const char *const texts[] = {
        "Maximum number of initializations reached.",
        "Satellite ID is not correct",
        "Time ID is not initialized",
        "Memory allocation error",
        "Inconsistency between Ids within the run_id",
        "Could not lock other execution threads",
        "Could not unlock other execution threads",
    };
    ASSERT_EQ(n, 7);
    for (long i = 0; i < n; ++i)
        EXPECT_EQ(std::string(msg[i]), std::string("ORBKIT_LIB >>> ERROR in kl_run_init: ") + texts[i]);
}

TEST_F(Runs, AreConsistentWhenWhatTheirIdsUseIsInTheListToo)
{
    Id lower(5);
    Id upper(6);
    ASSERT_EQ(KL_Link_ids(&lower.record, &upper.record), 0);
    kd_list *list = kd_list_create(sizeof(void *));
    EXPECT_EQ(KL_Run_check_consistency(list), 1) << "nothing uses nothing";
    EXPECT_EQ(KL_Run_check_consistency(nullptr), 1);
    kl_id_record *entry = &upper.record;
    kd_list_push_back(list, &entry);
    EXPECT_EQ(KL_Run_check_consistency(list), 0);
    entry = &lower.record;
    kd_list_push_back(list, &entry);
    EXPECT_EQ(KL_Run_check_consistency(list), 1);
    kd_list_delete(list);
    KL_Unlink_ids(&lower.record, &upper.record);
}

TEST_F(Runs, OnPurposeAnInconsistentRunIsOpenedAllTheSame)
{
    Id lower(5);
    ASSERT_EQ(KL_Link_ids(&lower.record, ids.model.record), 0);
    EXPECT_EQ(open(), 0);
    KL_Unlink_ids(&lower.record, ids.model.record);
}

TEST_F(Runs, LetGoOfAnIdWhenItsLibraryClosesIt)
{
    const long run = open();
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_MODEL), 1);
    EXPECT_EQ(status(run, KL_ID_MODEL), 0);
    EXPECT_EQ(KL_Is_used(&ids.model), 0);
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_MODEL), 0) << "twice";
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_RUN), 0) << "the run itself is not in its list";
    EXPECT_EQ(kl_run_init_status(&run), 1);
    for (const long other : {-1L, 20L, 5L})
        EXPECT_EQ(KL_Run_Generic_close(&other, KL_ID_TIME), 0);
    EXPECT_EQ(KL_Run_Generic_close(nullptr, KL_ID_TIME), 0);
    RunLayout *record = layout();
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_TIME), 1);
    EXPECT_EQ(record->time, nullptr);
    EXPECT_EQ(KL_Is_used(&ids.time), 0);
    EXPECT_EQ(KL_Get_used_id(record, KL_ID_TIME), nullptr);
}

// Attaches an id of a higher library to the run's slot.
void attach(RunLayout *run, std::size_t slot, Id &id)
{
    run->siblings[slot] = &id.record;
    ASSERT_EQ(KL_Link_ids(&id.record, run), 0);
}

TEST_F(Runs, OnPurposeOnlyTheFirstKindOfTheHigherLibrariesIsDetached)
{
    const long kinds[] = {4, 7, 8, 9, 11, 12};
    for (std::size_t slot = 0; slot < 6; ++slot) {
        Id id(kinds[slot]);
        const long run = open();
        RunLayout *record = layout();
        for (const kl_id_record *sibling : record->siblings)
            EXPECT_EQ(sibling, nullptr);
        attach(record, slot, id);
        const bool known = kinds[slot] == 4;
        EXPECT_EQ(status(run, kinds[slot]), known ? 1 : 0);
        EXPECT_EQ(KL_Run_Generic_close(&run, kinds[slot]), known ? 1 : 0);
        EXPECT_EQ(record->siblings[slot], known ? nullptr : &id.record);
        EXPECT_EQ(KL_Is_used(&id.handle), known ? 0 : 1);
        kl_run_close(&run);
        EXPECT_EQ(KL_Is_used(&id.handle), 0) << "a run lets go of everything in its list";
    }
}

TEST_F(Runs, LeaveNothingBehindWhenMemoryFails)
{
    SKIP_WITHOUT_FAULTS();
    const long blocks = faults::live_blocks();
    int n_failures = 0;
    for (int nth = 0;; ++nth) {
        long run = 5;
        long ierr[1];
        Fail fail(Site::kAllocation, nth);
        const long result = kl_run_init(&kSatId, &ids.time, &ids.model, &run, ierr);
        if (!fail.disarm()) {
            EXPECT_EQ(run, 0) << "no failure kept the slot";
            break;
        }
        ++n_failures;
        EXPECT_EQ(result, KL_ERR);
        EXPECT_EQ(run, -1);
        EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_RUN_INIT_MEMORY_ERR);
        EXPECT_EQ(KL_Is_used(&ids.time) + KL_Is_used(&ids.model), 0);
        EXPECT_EQ(faults::live_blocks(), blocks) << nth;
    }
    EXPECT_EQ(n_failures, 7) << "the record, two lists, two entries for each id";
}

TEST_F(Runs, LocksThatFail)
{
    SKIP_WITHOUT_FAULTS();
    struct Case {
        const char *name;
        Site site;
        int nth;
        long bits;
    };
    const Case cases[] = {
        {"lock of the table", Site::kMutexLock, 0, kErrorBit | 1L << KL_RUN_INIT_LOCK_ERR},
        {"unlock of the table", Site::kMutexUnlock, 0, kErrorBit | 1L << KL_RUN_INIT_UNLOCK_ERR},
        {"lock of the time id: passed over", Site::kMutexLock, 1, 0},
        {"unlock of the model id: passed over", Site::kMutexUnlock, 2, 0},
    };
    for (const Case &c : cases) {
        long run = 5;
        long ierr[1];
        Fail fail(c.site, c.nth);
        const long result = kl_run_init(&kSatId, &ids.time, &ids.model, &run, ierr);
        EXPECT_TRUE(fail.disarm()) << c.name;
        EXPECT_EQ(result, c.bits != 0 ? KL_ERR : KL_OK) << c.name;
        EXPECT_EQ(run, c.bits != 0 ? -1 : 0) << c.name;
        EXPECT_EQ(ierr[0], c.bits) << c.name;
        kl_run_close(&run);
        EXPECT_EQ(KL_Is_used(&ids.time) + KL_Is_used(&ids.model), 0) << c.name;
    }
}

TEST_F(Runs, AreOpenedAndClosedByThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([this] {
            for (int round = 0; round < 300; ++round) {
                long mine[4];
                for (long &run : mine) {
                    run = open();
                    EXPECT_EQ(kl_run_init_status(&run), 1);
                }
                EXPECT_EQ(std::set<long>(mine, mine + 4).size(), 4U);
                EXPECT_GE(KL_Is_used(&ids.time), 4);
                for (const long run : mine) {
                    kl_run_close(&run);
                }
            }
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(KL_Is_used(&ids.time) + KL_Is_used(&ids.model), 0);
}

} // namespace
