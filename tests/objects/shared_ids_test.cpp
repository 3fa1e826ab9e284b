// ModelId and TimeId: copies share and count, the last one closes. And their base, which only counts up.
#include "objects/objects.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <random>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>

using namespace ORBKIT;

namespace {

template <typename Id>
struct Expected;

template <>
struct Expected<ModelId> {
    static constexpr long kind = KL_ID_MODEL, mode = 0;
    static constexpr const char *refusal = "ORBKIT_LIB >>> ERROR in kl_model_close: The Model Id is not initialized or "
                                           "it could be in use by another Id.\n";
    static constexpr const char *close_failure = "ModelId::ModelId\n";
    static ModelId make() { return ModelId(KL_MODEL_DEFAULT, {}); }
    static long close(kl_model_id id) { return kl_model_close(&id, nullptr); }
};

template <>
struct Expected<TimeId> {
    static constexpr long kind = KL_ID_TIME, mode = -1;
    static constexpr const char *refusal = "ORBKIT_LIB >>> ERROR in kl_time_ref_close: The Time Id is not initialized "
                                           "or it could be in use by another Id.\n";
    static constexpr const char *close_failure = "TimeId::eraseObject\n";
    static TimeId make() { return TimeId({0.0, 0.0, 0.0, 0.0}); }
    static long close(kl_time_id id) { return kl_time_close(&id, nullptr); }
};

template <typename Id>
Id make()
{
    return Expected<Id>::make();
}

template <typename Id>
class SharedId : public testing::Test {
};
using Ids = testing::Types<ModelId, TimeId>;
TYPED_TEST_SUITE(SharedId, Ids);

TYPED_TEST(SharedId, OneObjectIsOneInstanceOfItsKindAndCannotBeClosedBesideIt)
{
    const TypeParam id = make<TypeParam>(), empty;
    EXPECT_EQ(KL_Id_get_init_type(id.getId()), Expected<TypeParam>::kind);
    EXPECT_EQ(id.mode(), Expected<TypeParam>::mode);
    EXPECT_EQ(Expected<TypeParam>::close({id.getId()->record}), KL_ERR);
    EXPECT_EQ(empty.mode(), 0);
    EXPECT_EQ(empty.getId()->record, nullptr);
    static_assert(std::is_nothrow_move_constructible_v<TypeParam>);
}

// Random copies, moves, assignments and releases over a few objects, against shared pointers.
TYPED_TEST(SharedId, CountsAndClosesLikeASharedPointerAfterAnyHistory)
{
    constexpr std::size_t kObjects = 4;
    std::vector<std::shared_ptr<OpenRecord>> pointers(kObjects), made;
    std::vector<TypeParam> objects(kObjects); // gone first: what is watched is closed before its watch
    std::mt19937 random(20260102);
    for (int step = 0; step < 3000; ++step) {
        const std::size_t from = random() % kObjects, to = random() % kObjects; // often the same
        switch (random() % 6) {
        case 0:
            objects[to] = make<TypeParam>();
            made.push_back(pointers[to] = std::make_shared<OpenRecord>(objects[to].getId()));
            break;
        case 1:
            objects[to] = objects[from];
            pointers[to] = pointers[from];
            break;
        case 2:
            objects[to] = std::move(objects[from]);
            pointers[to] = from == to ? pointers[to] : std::exchange(pointers[from], nullptr);
            break;
        case 3: { // both constructors, and a destructor
            TypeParam copy(objects[from]), moved(std::move(objects[from]));
            EXPECT_EQ(copy.status(), moved.status());
            EXPECT_EQ(objects[from].status(), 0); // NOLINT(bugprone-use-after-move): a moved-from object is empty
            objects[to] = copy;
            pointers[to] = from == to ? pointers[to] : std::exchange(pointers[from], nullptr);
            break;
        }
        default: // twice gives up one share
            objects[to].eraseObject();
            objects[to].eraseObject();
            pointers[to] = nullptr;
        }
        for (std::size_t i = 0; i < kObjects; ++i) {
            ASSERT_EQ(objects[i].status(), pointers[i] != nullptr ? 1 : 0) << step;
            // One pointer more for the list of all that were made.
            ASSERT_TRUE(!pointers[i] || instances(objects[i].getId()) == pointers[i].use_count() - 1) << step;
        }
        for (const std::shared_ptr<OpenRecord> &record : made)
            ASSERT_EQ(record->open(), record.use_count() > 1) << step;
        made.erase(std::remove_if(made.begin(), made.end(), [](const auto &record) { return record.use_count() == 1; }),
                   made.end());
    }
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
        EXPECT_EQ(Expected<TypeParam>::close({record}), KL_OK);
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
        const Thrown thrown = thrown_by([&] { id.eraseObject(); });
        EXPECT_EQ(thrown.text.find(Expected<TypeParam>::close_failure), 0U);
        EXPECT_EQ(thrown.code, 0);
        EXPECT_EQ(id.status(), 0);
        id.getId()->record = handle; // and the destructor keeps quiet
        TypeParam(std::move(id)).status();
    });
    record->mutex = own;
    KL_Delete_instance(&handle);
    EXPECT_EQ(Expected<TypeParam>::close({handle}), KL_OK);
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
    static_assert(std::has_virtual_destructor_v<KitId>);
    const ModelId one = make<ModelId>(), two = make<ModelId>();
    {
        KitId share(one);
        EXPECT_EQ(instances(one.getId()), 2);
        share = two;
        EXPECT_EQ(instances(one.getId()), 2);
        EXPECT_EQ(instances(two.getId()), 2);
        KitId taken(std::move(share));
        EXPECT_EQ(instances(two.getId()), 2);
        EXPECT_EQ(share.status(), 0); // NOLINT(bugprone-use-after-move): a moved-from object is empty
        taken.addInstance();
        EXPECT_EQ(instances(two.getId()), 3);
        taken.subtractInstance();
    }
    EXPECT_EQ(instances(two.getId()), 2);
    KitId(one).subtractInstance(); // the share of this object
    KL_Delete_instance(one.getId());
    KL_Delete_instance(two.getId());
    KitId empty;
    empty.addInstance();
    empty.subtractInstance();
    EXPECT_EQ(empty.status() + empty.mode(), 0);
}

} // namespace
