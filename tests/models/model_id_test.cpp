// Model ids: selections, constants, blocks, states of the handle.
#include "models/model_record.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/owned_model.h"
#include "time/time_table.h"

#include <cmath>

namespace {

constexpr long kDefaultMode = KL_MODEL_DEFAULT;

TEST(ModelId, OffersOneModelOfEachKindTwoSunsAndThreeLights)
{
    for (int kind = 0; kind < 9; ++kind) {
        const long largest = kind == KL_MODEL_SUN ? 1 : kind == KL_MODEL_LIGHT_PROPAGATION ? 2 : 0;
        for (const long number : {-1L, 0L, 1L, 2L, 3L, LONG_MAX, LONG_MIN}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << ", number " << number);
            OwnedModel model;
            kl_model_data data;
            long ierr = 77;
            const bool offered = number >= 0 && number <= largest;
            const long bit = offered ? kNone : long{KL_MODEL_INIT_SELECTION_ERR};
            expect_outcome(model.select(kind, number, &ierr), ierr, bit, "init");
            ASSERT_EQ(kl_model_get_data(&model.id, &data), 0);
            for (int k = 0; offered && k < 9; ++k) {
                EXPECT_EQ((&data.earth)[k], k == kind ? number : 0);
                EXPECT_EQ(model.block<long>(k), k == kind ? number : 0);
            }
        }
    }
}

TEST(ModelId, ARefusalLeavesTheHandleInitialisedAndTheBlocksBeforeItFilledOnPurpose)
{
    for (int refused = 0; refused < 9; ++refused) {
        OwnedModel model;
        ASSERT_EQ(model.select(refused, 9), KL_ERR);
        EXPECT_EQ(kl_model_init_status(&model.id), 1);
        for (int kind = 0; kind < KL_MODEL_LIGHT_PROPAGATION; ++kind) { // which has a number alone
            const bool empty = (&model.block<long>(kind))[1] == 0;      // behind the number: a constant, a routine
            EXPECT_EQ(empty, kind >= refused) << kind;
        }
        long ierr = 0;
        const long again = kl_model_init(&kDefaultMode, nullptr, &model.id, &ierr);
        expect_outcome(again, ierr, KL_MODEL_INIT_INITIALISED_ERR, "it has to be closed first");
    }
}

TEST(ModelId, RefusalPrintsThePlaceholderAsItStandsOnPurpose)
{
    OwnedModel model;
    EXPECT_EQ(verbose_text([&] { EXPECT_EQ(model.select(KL_MODEL_MOON, 1), KL_ERR); }),
              "ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model\n");
}

// The numbers of WGS84 hold together among themselves.
TEST(ModelId, ConstantsAreThoseOfTheEarth)
{
    kl_model_data d;
    ASSERT_EQ(kl_model_get_data(nullptr, &d), 0);
#define X(constant, value) EXPECT_EQ(d.constant, value) << #constant;
#include "models/constants.inc"
#undef X
    EXPECT_NEAR(d.semi_minor_axis, d.semi_major_axis * (1.0 - d.flattening), 5e-5);
    EXPECT_NEAR(d.eccentricity, std::sqrt(d.flattening * (2.0 - d.flattening)), 5e-14);
    EXPECT_NEAR(1.0 / d.flattening, 298.257223563, 5e-13);
}

TEST(ModelId, DataLeaveAnUninitialisedHandleSoAndBlocksInitialiseIt)
{
    OwnedModel model;
    kl_model_data data;
    EXPECT_EQ(kl_model_get_data(&model.id, &data), 0);
    EXPECT_EQ(model.id.record, nullptr);
    EXPECT_EQ(kl_model_get_data(&model.id, nullptr), KL_ERR);
    const void *earth = KL_Model_get_data(&model.id, -1);
    ASSERT_NE(earth, nullptr);
    EXPECT_EQ(kl_model_init_status(&model.id), 1);
    EXPECT_EQ(KL_Model_get_data(&model.id, KL_MODEL_EARTH), earth);
    for (const long kind : {-2L, 9L, LONG_MAX})
        EXPECT_EQ(KL_Model_get_data(&model.id, kind), nullptr) << kind;
}

TEST(ModelId, BadCallsGetTheirConditionsAndEveryModeButOneIsTheDefault)
{
    const long unwanted[9] = {5, 5, 5, 5, 5, 5, 5, 5, 5};
    for (const long mode : {0L, -1L, 2L, LONG_MAX}) {
        OwnedModel by_default;
        EXPECT_EQ(kl_model_init(&mode, unwanted, &by_default.id, nullptr), KL_OK) << mode;
    }
    OwnedModel model, user;
    long ierr = 77;
    const auto close = [&](kl_model_id *id, long bit, const char *name) {
        expect_outcome(kl_model_close(id, &ierr), ierr, bit, name);
    };
    close(&model.id, KL_MODEL_CLOSE_ID_ERR, "empty");
    close(nullptr, KL_MODEL_CLOSE_ID_ERR, "no handle");
    ASSERT_EQ(model.select(0, 0) + user.select(0, 0) + KL_Link_ids(model.id.record, user.id.record), KL_OK);
    close(&model.id, KL_MODEL_CLOSE_ID_ERR, "in use");
    EXPECT_EQ(kl_model_init_status(&model.id), 1);
    ASSERT_EQ(KL_Unlink_ids(model.id.record, user.id.record), 0);
    close(&model.id, kNone, "no longer in use");
    EXPECT_EQ(model.id.record, nullptr);
}

} // namespace
