// Runs: their life, what they pin, what prevents them, and the links that they hold.
#include "kit_data_handling.h"
#include "runs/runs.h"
#include "support/bare_id.h"
#include "support/conditions.h"

#include <cstddef>
#include <tuple>

namespace {

constexpr long kSatId = 200;

// The higher libraries know the layout.
static_assert(offsetof(RunRecord, model) == sizeof(kl_id_record) + sizeof(long)
              && sizeof(RunRecord) == offsetof(RunRecord, model) + 8 * sizeof(void *));

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
        kl_run_init(&kSatId, &time, with_model ? &model : nullptr, &run, nullptr);
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

    // Record of the oldest run.
    RunRecord *oldest()
    {
        return *static_cast<RunRecord **>(
            kd_list_data(kd_list_begin(static_cast<kd_list *>(time_record.record.users))));
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
    for (long n = 0; n < 20; ++n)
        EXPECT_EQ(open(), n);
    long run = 5;
    LEAVES(error_bits(KL_RUN_INIT_NO_SLOT_ERR), kl_run_init(&kSatId, &time, nullptr, &run, e))
    EXPECT_EQ(run, -1);
    for (const long n : {19L, 0L, 1L, 2L}) {
        kl_run_close(&n);
        kl_run_close(&n); // nothing happens
    }
    const RunRecord *record = oldest(); // of run 3
    for (const long n : {0L, 1L, 2L, 19L})
        EXPECT_EQ(open(), n);

    const long third = 3;
    long sat_id = 0;
    kl_time_id time_out = {};
    kl_model_id model_out = {};
    EXPECT_EQ(kl_run_get_ids(&third, &sat_id, &time_out, &model_out), 0);
    EXPECT_TRUE(sat_id == kSatId && time_out.record == time.record && model_out.record == model.record);
    EXPECT_EQ(KL_Run_get_init_type(&third), KL_ID_RUN);
    EXPECT_TRUE(record->head.sat_id == kSatId && record->head.mode == third) << "the mode is its own number";
    EXPECT_TRUE(record->head.mutex == nullptr && record->head.instances == 0);
    EXPECT_EQ(KL_Get_used_id(record, KL_ID_TIME), time.record);
    EXPECT_EQ(KL_Get_used_id(record, KL_ID_MODEL), model.record);
    LEAVES(kRefused, kl_run_init(&kSatId, &time, &model, nullptr, e))
}

TEST_F(Runs, KnowTheKindsOfTheirIds)
{
    const long full = open(), plain = open(false);
    for (long kind = -1; kind <= 13; ++kind) {
        EXPECT_EQ(status(full, kind), 1 <= kind && kind <= 3 ? 1 : 0) << kind;
        EXPECT_EQ(status(plain, kind), 1 <= kind && kind <= 2 ? 1 : 0) << kind;
    }
    const long kind = KL_ID_TIME;
    for (const long none : {-1L, 7L, 20L, LONG_MAX, LONG_MIN}) {
        long sat_id = 55;
        kl_time_id time_out = {this};
        kl_model_id model_out = {this};
        EXPECT_EQ(kl_run_get_ids(&none, &sat_id, &time_out, &model_out), -1);
        EXPECT_TRUE(sat_id == 55 && time_out.record == this && model_out.record == this) << "untouched";
        EXPECT_EQ(kl_run_init_status(&none) + KL_Run_get_init_type(&none) + kl_run_id_status(&none, &kind), 0);
        EXPECT_EQ(KL_Run_Generic_close(&none, kind), 0);
        kl_run_close(&none);
    }
    EXPECT_EQ(kl_run_id_status(&full, nullptr), 0);
    EXPECT_EQ(kl_run_get_ids(&full, nullptr, &time, &model), -1);
}

TEST_F(Runs, AreRefusedForAClosedIdAndDoWithoutAModel)
{
    kl_model_id no_model = {};
    kl_id_record closed_record = {};
    kl_time_id closed = {&closed_record};
    expect_run("closed time id", error_bits(KL_RUN_INIT_TIME_ID_ERR), &kSatId, &closed, &model);
    for (kl_model_id *none : {&no_model, static_cast<kl_model_id *>(nullptr)})
        expect_run("no model id", kNothing, &kSatId, &time, none);
}

TEST_F(Runs, AreConsistentWhenWhatTheirIdsUseIsInTheListTooAndOnPurposeOpenedInAnyCase)
{
    BareId lower(5);
    ASSERT_EQ(KL_Link_ids(&lower.record, model.record), 0);
    const long first = open();
    RunRecord *run = oldest();
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
    RunRecord *record = oldest();
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_MODEL), 1);
    EXPECT_EQ(status(run, KL_ID_MODEL) + KL_Is_used(&model), 0);
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_MODEL), 0) << "twice";
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_RUN), 0) << "the run itself is not in its list";
    EXPECT_EQ(KL_Run_Generic_close(&run, KL_ID_TIME), 1);
    EXPECT_TRUE(record->time == nullptr && KL_Get_used_id(record, KL_ID_TIME) == nullptr);
    EXPECT_EQ(kl_run_init_status(&run), 1);
}

TEST_F(Runs, OnPurposeOnlyTheFirstKindOfTheHigherLibrariesIsDetached)
{
    const long kinds[] = {4, 7, 8, 9, 11, 12};
    for (std::size_t slot = 0; slot < std::size(kinds); ++slot) {
        BareId id(kinds[slot]);
        const long run = open(), known = kinds[slot] == 4 ? 1 : 0;
        RunRecord *record = oldest();
        EXPECT_EQ(record->siblings[slot], nullptr);
        record->siblings[slot] = &id.record;
        ASSERT_EQ(KL_Link_ids(&id.record, record), 0);
        EXPECT_EQ(status(run, kinds[slot]), known);
        EXPECT_EQ(KL_Run_Generic_close(&run, kinds[slot]), known);
        EXPECT_EQ(record->siblings[slot] == nullptr, known == 1);
        EXPECT_EQ(KL_Is_used(&id.handle), 1 - known);
        kl_run_close(&run); // lets go of everything in its list
    }
}

} // namespace
