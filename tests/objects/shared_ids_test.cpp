// ModelId and TimeId: copies share and count, the last one closes. And their base, which only counts up.
#include "objects/objects.h"
#include "support/fault_injection.h"

#include <atomic>
#include <memory>
#include <optional>
#include <random>
#include <thread>
#include <type_traits>
#include <utility>

using namespace ORBKIT;

namespace {

template <typename Id>
struct Expected;

template <>
struct Expected<ModelId> {
    static constexpr auto close = kl_model_close;
    static constexpr long close_id = KL_ID_FUNC_MODEL_CLOSE;
    static constexpr const char *close_failure = "ModelId::ModelId";
    static ModelId make() { return ModelId(KL_MODEL_DEFAULT, {}); }
};

template <>
struct Expected<TimeId> {
    static constexpr auto close = kl_time_close;
    static constexpr long close_id = KL_ID_FUNC_TIME_REF_CLOSE;
    static constexpr const char *close_failure = "TimeCorrelation::eraseObject";
    static TimeId make() { return TimeId({0.0, 0.0, 0.0, 0.0}); }
};

template <typename Id>
class SharedId : public testing::Test, protected Expected<Id> {
};
using Ids = testing::Types<ModelId, TimeId>;
TYPED_TEST_SUITE(SharedId, Ids);

// Random copies, moves, assignments and releases over a few objects, against shared pointers.
TYPED_TEST(SharedId, CountsAndClosesLikeASharedPointerAfterAnyHistory)
{
    static_assert(std::is_nothrow_move_constructible_v<TypeParam>);
    constexpr std::size_t kObjects = 4;
    std::vector<std::shared_ptr<OpenRecord>> pointers(kObjects);
    std::vector<TypeParam> objects(kObjects); // gone first: what is watched is closed before its watch
    const auto forget = [](OpenRecord *record) {
        EXPECT_FALSE(record->open());
        delete record;
    };
    std::mt19937 random(20260102);
    for (int step = 0; step < 3000; ++step) {
        const std::size_t from = random() % kObjects, to = random() % kObjects; // often the same
        switch (random() % 6) {
        case 0:
            objects[to] = TestFixture::make();
            pointers[to] = std::shared_ptr<OpenRecord>(new OpenRecord(objects[to].getId()), forget);
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
            ASSERT_TRUE(!pointers[i] || pointers[i]->open()) << step;
            ASSERT_TRUE(!pointers[i] || instances(objects[i].getId()) == pointers[i].use_count()) << step;
        }
    }
}

TYPED_TEST(SharedId, IdOfAnotherOutlivesItsObjectsUnclosed)
{
    for (const bool verbose : {false, true}) {
        TypeParam id = TestFixture::make();
        auto handle = *id.getId();
        {
            BareId user;
            KL_Link_ids(handle.record, &user.record);
            const auto erase = [&] { EXPECT_NO_THROW(id.eraseObject()); };
            const std::string said = verbose ? verbose_text(erase) : captured_stderr(erase);
            EXPECT_EQ(said, "") << "nobody tries to close it";
            EXPECT_EQ(KL_Id_init_status(&handle), 1) << "left open";
            EXPECT_EQ(instances(&handle), 0);
        }
        EXPECT_EQ(TestFixture::close(&handle, nullptr), KL_OK);
    }
}

TYPED_TEST(SharedId, OnPurposeFailingCloseCarriesTheNameOfTheConstructorForModels)
{
    SKIP_WITHOUT_FAULTS();
    for (const bool by_destructor : {false, true}) {
        std::optional<TypeParam> id(TestFixture::make());
        auto handle = *id->getId();
        captured_stderr([&] {
            // Giving up the share takes the lock of all releases and that of the id twice, then the close takes it.
            const faults::Fail fail(faults::Site::kMutexLock, 3);
            if (by_destructor)
                EXPECT_NO_THROW(id.reset());
            else
                FAILS(TestFixture::close_failure, TestFixture::close_id, 0, id->eraseObject())
        });
        EXPECT_EQ(KL_Id_init_status(&handle), 1);
        if (by_destructor) {
            EXPECT_EQ(TestFixture::close(&handle, nullptr), KL_OK);
            continue;
        }
        EXPECT_EQ(id->status(), 1) << "the object keeps it";
        EXPECT_EQ(instances(&handle), 1);
        const OpenRecord record(&handle);
        id->eraseObject();
        EXPECT_EQ(id->status(), 0);
        EXPECT_FALSE(record.open());
    }
}

// Two objects that die at once must not both see themselves last, nor neither of them.
TYPED_TEST(SharedId, ThreadsMayDropTheLastSharesAtOnce)
{
    for (int round = 0; round < 300; ++round) {
        TypeParam id = TestFixture::make();
        const OpenRecord record(id.getId());
        std::atomic<int> ready{0};
        auto drop = [&](TypeParam own) {
            const TypeParam copy(own);
            ++ready;
            while (ready < 2)
                std::this_thread::yield();
            own.eraseObject();
        };
        std::thread one(drop, id);
        std::thread two(drop, std::move(id));
        one.join();
        two.join();
        ASSERT_FALSE(record.open());
    }
}

TEST(KitId, OnPurposeAssignmentAndDestructorKeepTheOldShare)
{
    static_assert(std::has_virtual_destructor_v<KitId>);
    const ModelId one(KL_MODEL_DEFAULT, {}), two(KL_MODEL_DEFAULT, {});
    {
        KitId share(one);
        EXPECT_EQ(instances(one.getId()), 2);
        share = two;
        KitId taken(std::move(share));
        EXPECT_EQ(share.status(), 0); // NOLINT(bugprone-use-after-move): a moved-from object is empty
        EXPECT_EQ(instances(one.getId()), 2);
        EXPECT_EQ(instances(two.getId()), 2);
        taken.addInstance();
        EXPECT_EQ(instances(two.getId()), 3);
        taken.subtractInstance();
    }
    EXPECT_EQ(instances(two.getId()), 2);
    KL_Delete_instance(one.getId());
    KL_Delete_instance(two.getId());
    EXPECT_EQ(KitId().status() + KitId().mode(), 0);
}

} // namespace
