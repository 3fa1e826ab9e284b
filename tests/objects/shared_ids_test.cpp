// ModelId and TimeId: copies share and count, the last one closes. And their base, which only counts up.
#include "objects/open_record.h"
#include "orbkit.hpp"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>

using namespace ORBKIT;

namespace {

template <typename Id>
Id make();

template <>
ModelId make<ModelId>()
{
    return ModelId(KL_MODEL_DEFAULT, {});
}

template <>
TimeId make<TimeId>()
{
    return TimeId({0.0, 0.0, 0.0, 0.0});
}

template <typename Id>
struct Expected;

template <>
struct Expected<ModelId> {
    static constexpr long kind = KL_ID_MODEL;
    static constexpr long mode = 0;
    static constexpr const char *refusal = "ORBKIT_LIB >>> ERROR in kl_model_close: The Model Id is not initialized or "
                                           "it could be in use by another Id.\n";
    static constexpr const char *close_failure = "ModelId::ModelId";
    static long close(void *record)
    {
        kl_model_id id = {record};
        return kl_model_close(&id, nullptr);
    }
};

template <>
struct Expected<TimeId> {
    static constexpr long kind = KL_ID_TIME;
    static constexpr long mode = -1;
    static constexpr const char *refusal = "ORBKIT_LIB >>> ERROR in kl_time_ref_close: The Time Id is not initialized "
                                           "or it could be in use by another Id.\n";
    static constexpr const char *close_failure = "TimeId::eraseObject";
    static long close(void *record)
    {
        kl_time_id id = {record};
        return kl_time_close(&id, nullptr);
    }
};

template <typename Id>
class SharedId : public testing::Test {
};
using Ids = testing::Types<ModelId, TimeId>;
TYPED_TEST_SUITE(SharedId, Ids);

TYPED_TEST(SharedId, EmptyObjectHasNoIdAndNothingToClose)
{
    TypeParam empty;
    EXPECT_EQ(empty.status(), 0);
    EXPECT_EQ(empty.mode(), 0);
    EXPECT_EQ(empty.getId()->record, nullptr);
    EXPECT_NO_THROW(empty.eraseObject());
    TypeParam copy(empty);
    copy = empty;
    EXPECT_EQ(copy.status(), 0);
}

TYPED_TEST(SharedId, OneObjectIsOneInstanceOfItsKind)
{
    const TypeParam id = make<TypeParam>();
    EXPECT_EQ(id.status(), 1);
    EXPECT_EQ(KL_Id_get_init_type(id.getId()), Expected<TypeParam>::kind);
    EXPECT_EQ(id.mode(), Expected<TypeParam>::mode);
    EXPECT_EQ(instances(id.getId()), 1);
}

TYPED_TEST(SharedId, FirstObjectMayDieBeforeItsCopy)
{
    std::optional<TypeParam> first(make<TypeParam>());
    const OpenRecord record(first->getId());
    {
        const TypeParam copy(*first);
        EXPECT_EQ(instances(copy.getId()), 2);
        first.reset();
        EXPECT_TRUE(record.open());
        EXPECT_EQ(copy.status(), 1);
        EXPECT_EQ(instances(copy.getId()), 1);
    }
    EXPECT_FALSE(record.open()) << "the last copy closes";
}

TYPED_TEST(SharedId, AssignmentReleasesTheOldIdAndSharesTheNew)
{
    TypeParam target = make<TypeParam>();
    const OpenRecord old_record(target.getId());
    const TypeParam source = make<TypeParam>();
    target = source;
    EXPECT_FALSE(old_record.open());
    EXPECT_EQ(target.getId()->record, source.getId()->record);
    EXPECT_EQ(instances(source.getId()), 2);

    const TypeParam &itself = target;
    target = itself;
    EXPECT_EQ(instances(source.getId()), 2) << "self-assignment does nothing";
    target = source;
    EXPECT_EQ(instances(source.getId()), 2) << "the same id again";
    target = TypeParam();
    EXPECT_EQ(target.status(), 0);
    EXPECT_EQ(instances(source.getId()), 1);
}

TYPED_TEST(SharedId, MovingTakesTheIdAlong)
{
    static_assert(std::is_nothrow_move_constructible_v<TypeParam>);
    TypeParam first = make<TypeParam>();
    const OpenRecord record(first.getId());
    TypeParam second(std::move(first));
    EXPECT_EQ(first.status(), 0); // NOLINT(bugprone-use-after-move): a moved-from object is empty
    EXPECT_EQ(instances(second.getId()), 1);

    TypeParam third = make<TypeParam>();
    const OpenRecord third_record(third.getId());
    third = std::move(second);
    EXPECT_FALSE(third_record.open());
    EXPECT_EQ(instances(third.getId()), 1);
    TypeParam &itself = third;
    third = std::move(itself);
    EXPECT_EQ(third.status(), 1);
    third = TypeParam();
    EXPECT_FALSE(record.open());
}

TYPED_TEST(SharedId, ErasingTwiceGivesUpOneShare)
{
    TypeParam first = make<TypeParam>();
    const TypeParam copy(first);
    first.eraseObject();
    first.eraseObject();
    EXPECT_EQ(first.status(), 0);
    EXPECT_EQ(instances(copy.getId()), 1);
}

TYPED_TEST(SharedId, CannotBeClosedBesideTheObjects)
{
    const TypeParam id = make<TypeParam>();
    EXPECT_EQ(Expected<TypeParam>::close(id.getId()->record), KL_ERR);
    EXPECT_EQ(id.status(), 1);
}

TYPED_TEST(SharedId, IdOfARunOutlivesItsObjectsAndSaysSoInVerboseMode)
{
    for (const bool verbose : {false, true}) {
        std::optional<ModelId> model(make<ModelId>());
        std::optional<TimeId> time(make<TimeId>());
        const long satellite = 200;
        long run = -1;
        ASSERT_EQ(kl_run_init(&satellite, time->getId(), model->getId(), &run, nullptr), KL_OK);

        auto &subject = std::get<std::optional<TypeParam> &>(std::tie(model, time));
        void *const record = subject->getId()->record;
        EXPECT_EQ(captured_stderr([&] {
                      verbose ? kl_verbose() : kl_silent();
                      EXPECT_NO_THROW(subject->eraseObject());
                      kl_silent();
                  }),
                  verbose ? Expected<TypeParam>::refusal : "");
        EXPECT_EQ(KL_Id_init_status(&record), 1) << "left open";
        EXPECT_EQ(instances(&record), 0);
        kl_run_close(&run);
        EXPECT_EQ(Expected<TypeParam>::close(record), KL_OK);
    }
}

// With a lock that fails the id counts as unused and cannot be closed.
TYPED_TEST(SharedId, OnPurposeFailingCloseCarriesTheNameOfTheConstructorForModels)
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_ERRORCHECK);
    pthread_mutex_t stuck;
    pthread_mutex_init(&stuck, &attributes);
    pthread_mutex_lock(&stuck);

    TypeParam id = make<TypeParam>();
    void *handle = id.getId()->record;
    auto *record = static_cast<kl_id_record *>(handle);
    pthread_mutex_t *const own = std::exchange(record->mutex, &stuck);
    captured_stderr([&] {
        try {
            id.eraseObject();
            ADD_FAILURE() << "no exception";
        } catch (const KitError &error) {
            EXPECT_EQ(error.getMsg().front(), Expected<TypeParam>::close_failure);
            std::vector<long> codes;
            error.getCodes(codes);
            EXPECT_EQ(codes, std::vector<long>{0});
        }
        EXPECT_EQ(id.status(), 0);

        id.getId()->record = handle; // and the destructor keeps quiet
        {
            TypeParam dying(std::move(id));
        }
    });
    record->mutex = own;
    KL_Delete_instance(&handle);
    EXPECT_EQ(Expected<TypeParam>::close(handle), KL_OK);
    pthread_mutex_unlock(&stuck);
    pthread_mutex_destroy(&stuck);
    pthread_mutexattr_destroy(&attributes);
}

// Two objects that die at once must not both see themselves last, nor neither of them.
TYPED_TEST(SharedId, ThreadsMayDropTheLastSharesAtOnce)
{
    for (int round = 0; round < 300; ++round) {
        TypeParam id = make<TypeParam>();
        const OpenRecord record(id.getId());
        std::atomic<int> ready{0};
        auto drop = [&](TypeParam own) {
            TypeParam copy(own);
            ++ready;
            while (ready < 2)
                std::this_thread::yield();
            own.eraseObject();
            copy.eraseObject();
        };
        std::thread one(drop, id);
        std::thread two(drop, std::move(id));
        one.join();
        two.join();
        ASSERT_FALSE(record.open());
    }
}

// ---- the base ----

TEST(KitId, OnPurposeAssignmentAndDestructorKeepTheOldShare)
{
    const ModelId one = make<ModelId>();
    const ModelId two = make<ModelId>();
    {
        KitId share(one);
        EXPECT_EQ(instances(one.getId()), 2);
        share = two;
        EXPECT_EQ(instances(one.getId()), 2);
        EXPECT_EQ(instances(two.getId()), 2);
        const KitId taken(std::move(share));
        EXPECT_EQ(instances(two.getId()), 2);
        EXPECT_EQ(share.status(), 0); // NOLINT(bugprone-use-after-move): a moved-from object is empty
    }
    EXPECT_EQ(instances(two.getId()), 2);
    KL_Delete_instance(one.getId());
    KL_Delete_instance(two.getId());
}

TEST(KitId, CountsWhatItIsTold)
{
    static_assert(std::has_virtual_destructor_v<KitId>);
    ModelId id = make<ModelId>();
    KitId &base = id;
    base.addInstance();
    EXPECT_EQ(instances(base.getId()), 2);
    base.subtractInstance();
    EXPECT_EQ(instances(base.getId()), 1);
    KitId empty;
    empty.addInstance();
    empty.subtractInstance();
    EXPECT_EQ(empty.status() + empty.mode(), 0);
}

} // namespace
