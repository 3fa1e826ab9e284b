// Model ids: selections, constants, blocks, states of the handle.
#include "models/model_record.h"
#include "support/fault_injection.h"
#include "time/time_table.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr long kDefaultMode = KL_MODEL_DEFAULT, kUserMode = KL_MODEL_USER;
constexpr const char *kNames[] = {"Earth",    "Sun",        "Moon",      "Planet",           "Star",
                                  "Nutation", "Precession", "Constants", "Light propagation"};

struct OwnedModelId {
    kl_model_id id{};

    OwnedModelId() = default;
    ~OwnedModelId()
    {
        if (kl_model_init_status(&id) == 1) {
            EXPECT_EQ(kl_model_close(&id, nullptr), KL_OK);
        }
    }
    OwnedModelId(const OwnedModelId &) = delete;
    OwnedModelId &operator=(const OwnedModelId &) = delete;
};

// A selection of zeros but for one kind.
long init_with(kl_model_id *id, int kind, long value, long *ierr)
{
    long models[9] = {};
    models[kind] = value;
    return kl_model_init(&kUserMode, models, id, ierr);
}

bool is_zero(const void *block, std::size_t size)
{
    const char *bytes = static_cast<const char *>(block);
    return std::all_of(bytes, bytes + size, [](char byte) { return byte == 0; });
}

TEST(ModelId, OffersOneModelOfEachKindTwoSunsAndThreeLights)
{
    for (int kind = 0; kind < 9; ++kind) {
        const long largest = kind == KL_MODEL_SUN ? 1 : kind == KL_MODEL_LIGHT_PROPAGATION ? 2 : 0;
        for (const long value : {-1L, 0L, 1L, 2L, 3L, LONG_MAX, LONG_MIN}) {
            SCOPED_TRACE(testing::Message() << kNames[kind] << " " << value);
            OwnedModelId model;
            long ierr = 77;
            const bool offered = value >= 0 && value <= largest;
            EXPECT_EQ(init_with(&model.id, kind, value, &ierr), offered ? KL_OK : KL_ERR);
            EXPECT_EQ(ierr, offered ? 0 : error_bit(KL_MODEL_INIT_SELECTION_ERR));
            ASSERT_EQ(kl_model_init_status(&model.id), 1);
            if (!offered)
                continue;
            kl_model_data data;
            ASSERT_EQ(kl_model_get_data(&model.id, &data), 0);
            for (int k = 0; k < 9; ++k) {
                EXPECT_EQ((&data.earth)[k], k == kind ? value : 0);
                EXPECT_EQ(*static_cast<long *>(KL_Model_get_data(&model.id, k)), k == kind ? value : 0);
            }
        }
    }
}

TEST(ModelId, ARefusalLeavesTheHandleInitialisedAndTheBlocksBeforeItFilledOnPurpose)
{
    for (int refused = 0; refused < 9; ++refused) {
        SCOPED_TRACE(kNames[refused]);
        OwnedModelId model;
        ASSERT_EQ(init_with(&model.id, refused, 9, nullptr), KL_ERR);
        EXPECT_EQ(kl_model_init_status(&model.id), 1);
        const ModelBlocks &b = static_cast<ModelIdRecord *>(model.id.record)->blocks;
        const bool empty[9] = {is_zero(&b.earth, sizeof b.earth),
                               is_zero(&b.sun, sizeof b.sun),
                               is_zero(&b.moon, sizeof b.moon),
                               is_zero(&b.planet, sizeof b.planet),
                               is_zero(&b.star, sizeof b.star),
                               is_zero(&b.nutation, sizeof b.nutation),
                               is_zero(&b.precession, sizeof b.precession),
                               is_zero(&b.constants, sizeof b.constants),
                               is_zero(&b.light, sizeof b.light)};
        for (int kind = 0; kind < 9; ++kind)
            EXPECT_EQ(empty[kind], kind >= refused || kind == KL_MODEL_STAR) << kNames[kind]; // no star routine here
        long ierr = 0;
        EXPECT_EQ(kl_model_init(&kDefaultMode, nullptr, &model.id, &ierr), KL_ERR) << "it has to be closed first";
        EXPECT_EQ(ierr, error_bit(KL_MODEL_INIT_INITIALISED_ERR));
    }
}

TEST(ModelId, RefusalPrintsThePlaceholderAsItStandsOnPurpose)
{
    OwnedModelId model;
    long ierr = 0, n = 0;
    static char texts[KL_MAX_MSG][KL_MSG_LENGTH];
    ASSERT_EQ(init_with(&model.id, KL_MODEL_MOON, 1, &ierr), KL_ERR);
    const long function = KL_ID_FUNC_MODEL_INIT;
    ASSERT_EQ(kl_get_msg(&function, &ierr, &n, texts), KL_OK);
    ASSERT_EQ(n, 1);
    EXPECT_STREQ(texts[0], "ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model");
}

// The numbers of WGS84 and GMST 1982 hold together among themselves.
TEST(ModelId, ConstantsAreThoseOfTheEarth)
{
    kl_model_data d;
    ASSERT_EQ(kl_model_get_data(nullptr, &d), 0);
    const double numbers[] = {d.gravity_radius,   d.gm,      d.j2,      d.j3,          d.j4,          d.semi_major_axis,
                              d.angle_0,          d.angle_1, d.angle_2, d.angle_sim_0, d.angle_sim_1, d.angle_sim_2,
                              d.astronomical_unit};
    const double expected[] = {6378136.0,   3.9860044e14, 0.001082626,      -2.536e-06, -1.623e-06,
                               6378137.0,   99.96779469,  360.985647366286, 2.9079e-13, 99.96779469,
                               360.9856473, 2.9079e-13,   149597870.0};
    EXPECT_TRUE(std::equal(std::begin(numbers), std::end(numbers), expected));
    EXPECT_NEAR(d.semi_minor_axis, d.semi_major_axis * (1.0 - d.flattening), 5e-5);
    EXPECT_NEAR(d.eccentricity, std::sqrt(d.flattening * (2.0 - d.flattening)), 5e-14);
    EXPECT_NEAR(1.0 / d.flattening, 298.257223563, 5e-13);
    OwnedModelId model;
    const EarthModel &earth = *static_cast<EarthModel *>(KL_Model_get_data(&model.id, KL_MODEL_EARTH));
    EXPECT_EQ(earth.n_geoid_coefficients, 65341); // degrees 0 to 360
    EXPECT_EQ(earth.reserved, 0);
    for (const double *table : {earth.HC, earth.HS, earth.CC, earth.CS})
        EXPECT_NE(table, nullptr);
}

TEST(ModelId, DataOfAnUninitialisedHandleLeaveItSo)
{
    kl_model_id id{};
    kl_model_data data;
    EXPECT_EQ(kl_model_get_data(&id, &data), 0);
    EXPECT_EQ(data.astronomical_unit, 149597870.0);
    EXPECT_EQ(id.record, nullptr);
    EXPECT_EQ(kl_model_get_data(&id, nullptr), KL_ERR);
}

TEST(ModelId, BlocksOfAnUninitialisedHandleInitialiseIt)
{
    OwnedModelId model;
    const void *earth = KL_Model_get_data(&model.id, -1);
    ASSERT_NE(earth, nullptr);
    EXPECT_EQ(kl_model_init_status(&model.id), 1);
    EXPECT_EQ(KL_Model_get_data(&model.id, KL_MODEL_EARTH), earth);
    for (const long kind : {-2L, 9L, LONG_MAX})
        EXPECT_EQ(KL_Model_get_data(&model.id, kind), nullptr) << kind;
    EXPECT_EQ(KL_Model_get_data(nullptr, 0), nullptr);
}

TEST(ModelId, EveryModeButOneIsTheDefault)
{
    const long unwanted[9] = {5, 5, 5, 5, 5, 5, 5, 5, 5};
    for (const long mode : {0L, -1L, 2L, LONG_MAX}) {
        OwnedModelId model;
        EXPECT_EQ(kl_model_init(&mode, unwanted, &model.id, nullptr), KL_OK) << mode;
    }
}

TEST(ModelId, BadCallsGetTheirConditions)
{
    struct Case {
        const char *name;
        const long *mode;
        bool has_handle;
        long bit; // -1: a clear vector
    };
    constexpr Case kCases[] = {
        {"no mode", nullptr, true, -1},
        {"no handle", &kDefaultMode, false, -1},
        {"no selection", &kUserMode, true, KL_MODEL_INIT_SELECTION_ERR},
    };
    for (const Case &c : kCases) {
        OwnedModelId model;
        long ierr = 77;
        EXPECT_EQ(kl_model_init(c.mode, nullptr, c.has_handle ? &model.id : nullptr, &ierr), KL_ERR) << c.name;
        EXPECT_EQ(ierr, c.bit < 0 ? 0 : error_bit(c.bit)) << c.name;
        EXPECT_EQ(model.id.record, nullptr) << c.name;
    }
    EXPECT_EQ(kl_model_init_status(nullptr), 0);
    long ierr = 77;
    kl_model_id empty{};
    for (kl_model_id *id : {&empty, static_cast<kl_model_id *>(nullptr)}) {
        EXPECT_EQ(kl_model_close(id, &ierr), KL_ERR);
        EXPECT_EQ(ierr, error_bit(KL_MODEL_CLOSE_ERR));
    }
}

TEST(ModelId, AnIdInUseCannotBeClosed)
{
    OwnedModelId model, user;
    long ierr = 0;
    ASSERT_EQ(kl_model_init(&kDefaultMode, nullptr, &model.id, nullptr), KL_OK);
    ASSERT_EQ(kl_model_init(&kDefaultMode, nullptr, &user.id, nullptr), KL_OK);
    ASSERT_EQ(KL_Link_ids(model.id.record, user.id.record), 0);
    EXPECT_EQ(kl_model_close(&model.id, &ierr), KL_ERR);
    EXPECT_EQ(ierr, error_bit(KL_MODEL_CLOSE_ERR));
    EXPECT_EQ(kl_model_init_status(&model.id), 1);
    ASSERT_EQ(KL_Unlink_ids(model.id.record, user.id.record), 0);
    EXPECT_EQ(kl_model_close(&model.id, &ierr), KL_OK);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(model.id.record, nullptr);
}

// The record and its two lists.
TEST(ModelId, NoMemoryLeavesTheHandleAloneAndNothingBehind)
{
    SKIP_WITHOUT_FAULTS();
    const long before = faults::live_blocks();
    for (int nth = 0; nth < 3; ++nth) {
        OwnedModelId model;
        long ierr = 0;
        faults::Fail memory(faults::Site::kAllocation, nth);
        const long status = kl_model_init(&kDefaultMode, nullptr, &model.id, &ierr);
        ASSERT_TRUE(memory.disarm()) << nth;
        EXPECT_EQ(status, KL_ERR) << nth;
        EXPECT_EQ(ierr, error_bit(KL_MODEL_INIT_MEMORY_ERR)) << nth;
        EXPECT_EQ(model.id.record, nullptr) << nth;
    }
    EXPECT_EQ(faults::live_blocks(), before);
}

} // namespace
