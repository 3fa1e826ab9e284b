// Runs: their life, what they pin, what prevents them, and the links that they hold.
#include "kit_data_handling.h"
#include "support/bare_id.h"
#include "support/conditions.h"
#include "support/fault_injection.h"

#include <set>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using faults::Fail;
using faults::Site;

constexpr long kSatId = 200;

// The layout of a run record, as the higher libraries know it.
struct RunLayout {
    kl_id_record head;
    long sat_id;
    kl_id_record *model, *time;
    kl_id_record *siblings[6]; // kinds 4, 7, 8, 9, 11, 12
};

class Runs : public testing::Test {
protected:
    ~Runs() override
    {
        for (long run = 0; run < 20; ++run)
            kl_run_close(&run);
        EXPECT_EQ(KL_Is_used(&time) + KL_Is_used(&model), 0);
    }

    long open(bool with_model = true)
    {
        long run = -7;
        EXPECT_EQ(kl_run_init(&kSatId, &time, with_model ? &model : nullptr, &run, nullptr), KL_OK);
        return run;
    }

    // A run that is opened or refused, then closed: its number is 0 or none, and it leaves the ids unused.
    void expect_run(const char *name, long bits, const long *sat_id, kl_time_id *run_time, kl_model_id *run_model)
    {
        long run = 5;
        expect_bits(name, bits, [&](long *e) { return kl_run_init(sat_id, run_time, run_model, &run, e); });
        EXPECT_EQ(run, bits == kNothing ? 0 : -1) << name;
        kl_run_close(&run);
        EXPECT_EQ(KL_Is_used(&time) + KL_Is_used(&model), 0) << name;
    }

    // Record of the oldest run, or of one of the next.
    RunLayout *layout(long skip = 0)
    {
        kd_list_node *node = kd_list_begin(static_cast<kd_list *>(time_record.record.users));
        while (skip-- > 0)
            node = kd_list_next(node);
        return *static_cast<RunLayout **>(kd_list_data(node));
    }

    BareId time_record{KL_ID_TIME}, model_record{KL_ID_MODEL};
    kl_time_id time = {&time_record.record};
    kl_model_id model = {&model_record.record};
};

long status(long run, long kind)
{
    return kl_run_id_status(&run, &kind);
}

TEST_F(Runs, GroupThreeIdsUnderTheLowestFreeOfTwentyNumbers)
{
    for (long n = 0; n < 20; ++n) {
        EXPECT_EQ(open(), n);
        EXPECT_EQ(layout(n)->head.mode, n) << "the run's own number";
    }
    long run = 5;
    LEAVES(error_bits(KL_RUN_INIT_NO_SLOT_ERR), kl_run_init(&kSatId, &time, nullptr, &run, e))
    EXPECT_EQ(run, -1);
    for (const long n : {19L, 3L}) {
        kl_run_close(&n);
        kl_run_close(&n); // nothing happens
    }
    EXPECT_EQ(open(), 3);
    EXPECT_EQ(open(), 19);

    const long third = 3;
    long sat_id = 0;
    kl_time_id time_out = {};
    kl_model_id model_out = {};
    const RunLayout *record = layout();
#include "sat/run_answers.inc"
}

TEST_F(Runs, KnowTheKindsOfTheirIds)
{
    const long full = open();
    const long plain = open(false);
    for (long kind = -1; kind <= 13; ++kind) {
        EXPECT_EQ(status(full, kind), 1 <= kind && kind <= 3 ? 1 : 0) << kind;
        EXPECT_EQ(status(plain, kind), 1 <= kind && kind <= 2 ? 1 : 0) << kind;
    }
    const long kind = KL_ID_TIME, none[] = {-1, 7, 20, LONG_MAX, LONG_MIN};
    for (const long *run : {&none[0], &none[1], &none[2], &none[3], &none[4], static_cast<const long *>(nullptr)}) {
        long sat_id = 55;
        kl_time_id time_out = {this};
        kl_model_id model_out = {this};
#include "sat/no_run.inc"
        kl_run_close(run);
    }
}

TEST_F(Runs, AreRefusedForABadId)
{
    const long invalid = 13, free_slot = 4;
    kl_time_id no_time = {};
    kl_model_id no_model = {};
    kl_id_record closed_record = {};
    kl_time_id closed = {&closed_record};
    const std::tuple<const char *, const long *, kl_time_id *, kl_model_id *, long> cases[] = {
#include "sat/run_refusals.inc"
    };
    for (const auto &[name, sat_id, run_time, run_model, bits] : cases)
        expect_run(name, bits, sat_id, run_time, run_model);
    expect_bits("no number", kRefused, [&](long *e) { return kl_run_init(&kSatId, &time, &model, nullptr, e); });
}

TEST_F(Runs, AreConsistentWhenWhatTheirIdsUseIsInTheListTooAndOnPurposeOpenedInAnyCase)
{
    BareId lower(5);
    ASSERT_EQ(KL_Link_ids(&lower.record, model.record), 0);
    const long first = open();
    EXPECT_EQ(first, 0);
    RunLayout *run = layout();
    EXPECT_EQ(KL_Run_check_consistency(run->head.uses), 0);
    ASSERT_EQ(KL_Link_ids(&lower.record, run), 0);
    EXPECT_EQ(KL_Run_check_consistency(run->head.uses), 1);
    EXPECT_EQ(KL_Run_check_consistency(nullptr), 1) << "nothing uses nothing";
    KL_Unlink_ids(&lower.record, model.record);
    kl_run_close(&first);
}

TEST_F(Runs, LetGoOfAnIdWhenItsLibraryClosesIt)
{
    const long run = open();
    RunLayout *record = layout();
#include "sat/generic_close.inc"
}

TEST_F(Runs, OnPurposeOnlyTheFirstKindOfTheHigherLibrariesIsDetached)
{
    const long kinds[] = {4, 7, 8, 9, 11, 12};
    for (std::size_t slot = 0; slot < std::size(kinds); ++slot) {
        BareId id(kinds[slot]);
        const long run = open();
        RunLayout *record = layout();
        EXPECT_EQ(record->siblings[slot], nullptr);
        record->siblings[slot] = &id.record;
        ASSERT_EQ(KL_Link_ids(&id.record, record), 0);
        const bool known = kinds[slot] == 4;
        EXPECT_EQ(status(run, kinds[slot]), known ? 1 : 0);
        EXPECT_EQ(KL_Run_Generic_close(&run, kinds[slot]), known ? 1 : 0);
        EXPECT_EQ(record->siblings[slot], known ? nullptr : &id.record);
        EXPECT_EQ(KL_Is_used(&id.handle), known ? 0 : 1);
        kl_run_close(&run); // lets go of everything in its list
    }
}

TEST_F(Runs, LeaveNothingBehindWhenMemoryOrALockFails)
{
    SKIP_WITHOUT_FAULTS();
    const std::tuple<Site, int, int, long> cases[] = {
#include "sat/run_failures.inc"
    };
    for (const auto &[site, from, to, bits] : cases)
        for (int nth = from; nth <= to; ++nth) {
            const long blocks = faults::live_blocks();
            Fail fail(site, nth);
            expect_run("failure", bits, &kSatId, &time, &model);
            EXPECT_TRUE(fail.disarm()) << nth;
            EXPECT_EQ(faults::live_blocks(), blocks) << nth;
        }
    EXPECT_EQ(open(), 0) << "no failure kept its number";
}

TEST_F(Runs, AreOpenedAndClosedByThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([this] {
            for (int round = 0; round < 300; ++round) {
                std::set<long> mine;
                while (mine.size() < 4) {
                    const long run = open();
                    EXPECT_EQ(kl_run_init_status(&run), 1);
                    EXPECT_TRUE(mine.insert(run).second);
                }
                for (const long run : mine)
                    kl_run_close(&run);
            }
        });
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace
