// Id records: links, refusals, copies, locks, and what stays behind when memory or a lock fails.
#include "kit_data_handling.h"
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using faults::Fail;
using faults::Site;

constexpr char kClosingThreads[] = "!!! Error closing the threads. All threads will be closed\n";

struct Id {
    kl_id_record record = {};
    kl_id_record *handle = &record;

    explicit Id(long kind = KL_ID_TIME, long sat_id = 200) { EXPECT_EQ(KL_Id_init(&sat_id, kind, &record), 0); }
    ~Id()
    {
        while (record.instances > 0)
            KL_Delete_instance(&handle);
        KL_Id_close(&handle);
    }
    Id(const Id &) = delete;
    Id &operator=(const Id &) = delete;
};

std::vector<const kl_id_record *> entries(void *list)
{
    std::vector<const kl_id_record *> found;
    for (kd_list_node *node = kd_list_begin(static_cast<kd_list *>(list)); node != nullptr; node = kd_list_next(node))
        found.push_back(*static_cast<kl_id_record **>(kd_list_data(node)));
    return found;
}

using Entries = std::vector<const kl_id_record *>;

TEST(IdRecord, IsFilledByInit)
{
    kl_id_record record;
    std::memset(&record, 0x5a, sizeof record);
    record.init_status = 0;
    record.mode = 77;
    kl_id_record *handle = &record;
    EXPECT_EQ(KL_Id_init_status(&handle), 0);
    EXPECT_EQ(KL_Id_get_init_type(&handle), 0);
    const long sat_id = 301;
    EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_MODEL, &record), 0);
    EXPECT_EQ(KL_Id_init_status(&handle), 1);
    EXPECT_EQ(KL_Id_get_init_type(&handle), KL_ID_MODEL);
    EXPECT_EQ(KL_Id_get_sat_id(&handle), 301);
    EXPECT_EQ(KL_Id_get_mode(&handle), 77) << "a mode is its kind's to set";
    EXPECT_EQ(KL_Is_used(&handle), 0);
    EXPECT_EQ(record.instances, 0);
    ASSERT_NE(record.mutex, nullptr);
    EXPECT_EQ(KL_Id_close(&handle), 0);
    EXPECT_EQ(record.kind, 0);
    EXPECT_EQ(record.init_status, 0);
    EXPECT_EQ(record.mutex, nullptr);
    EXPECT_EQ(KL_Id_init_status(&handle), 0);
    EXPECT_EQ(KL_Id_get_init_type(&handle), 0);
    EXPECT_EQ(KL_Id_close(&handle), -1) << "closed twice";
}

TEST(IdRecord, NothingIsAnUninitialisedId)
{
    const long sat_id = 200;
    kl_id_record record = {};
    kl_id_record *empty = nullptr;
    void *const handles[] = {nullptr, &empty};
    for (void *handle : handles) {
        EXPECT_EQ(KL_Id_init_status(handle), 0);
        EXPECT_EQ(KL_Id_get_init_type(handle), 0);
        EXPECT_EQ(KL_Id_close(handle), -1);
        EXPECT_EQ(KL_Is_used(handle), 0);
        EXPECT_EQ(KL_Add_instance(handle), 0);
        EXPECT_EQ(KL_Delete_instance(handle), 0);
    }
    Id id;
    EXPECT_EQ(KL_Link_ids(nullptr, &id.record), 0);
    EXPECT_EQ(KL_Link_ids(&id.record, nullptr), 0);
    EXPECT_EQ(KL_Unlink_ids(nullptr, &id.record), 0);
    EXPECT_EQ(KL_Unlink_ids(&id.record, nullptr), 0);
    EXPECT_EQ(KL_Is_used(&id.handle), 0);
    EXPECT_EQ(KL_Get_used_id(nullptr, KL_ID_TIME), nullptr);
    EXPECT_EQ(KL_Copy_id(&empty, &id.handle), -1);
    EXPECT_EQ(KL_Copy_id(&id.handle, &empty), -1);
    EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_TIME, nullptr), -1);
    EXPECT_EQ(KL_Id_init(nullptr, KL_ID_TIME, &record), -1);
}

TEST(IdRecord, ComparesAll64Bits)
{
    const long values[] = {0, 1, -1, 1L << 32, (1L << 32) + 1};
    for (const long &a : values)
        for (const long &b : values)
            EXPECT_EQ(KL_Id_cmp(&a, &b), &a == &b ? 1 : 0) << a << " " << b;
}

TEST(Closing, IsRefusedWhileTheIdIsInUse)
{
    Id used;
    {
        Id user;
        EXPECT_EQ(KL_Link_ids(&used.record, &user.record), 0);
        EXPECT_EQ(KL_Is_used(&used.handle), 1);
        std::string err;
        const std::string out =
            captured_stdout([&] { err = captured_stderr([&] { EXPECT_EQ(KL_Id_close(&used.handle), -1); }); });
        EXPECT_EQ(out + err, "") << "the kind's own close reports it";
        EXPECT_EQ(KL_Id_init_status(&used.handle), 1);
        EXPECT_EQ(entries(user.record.uses), Entries{&used.record});
    }
    EXPECT_EQ(KL_Is_used(&used.handle), 0) << "closing the user unregisters it";
    EXPECT_EQ(KL_Add_instance(&used.handle), 0);
    EXPECT_EQ(KL_Is_used(&used.handle), 1);
    EXPECT_EQ(KL_Id_close(&used.handle), -1);
    EXPECT_EQ(KL_Delete_instance(&used.handle), 0);
    EXPECT_EQ(KL_Id_close(&used.handle), 0);
}

TEST(Links, AUsedIdIsFoundByKindInTheOrderOfLinking)
{
    Id model(KL_ID_MODEL);
    Id first(KL_ID_TIME);
    Id second(KL_ID_TIME);
    Id user(7);
    for (Id *used : {&model, &first, &second})
        ASSERT_EQ(KL_Link_ids(&used->record, &user.record), 0);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_TIME), &first.record);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_MODEL), &model.record);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_RUN), nullptr);
    ASSERT_EQ(KL_Unlink_ids(&first.record, &user.record), 0);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_TIME), &second.record);
}

// Random links, unlinks, instances and closes over a few ids, against plain lists of pairs.
TEST(Links, StandOnBothSidesAfterAnyHistory)
{
    constexpr std::size_t kIds = 7;
    std::vector<std::unique_ptr<Id>> ids;
    for (std::size_t i = 0; i < kIds; ++i)
        ids.push_back(std::make_unique<Id>());
    struct Link {
        std::size_t used, user;
    };
    std::vector<Link> links; // in the order of linking
    std::vector<long> instances(kIds, 0);
    std::mt19937 random(20260101);
    const auto pick = [&](std::size_t n) { return random() % n; };
    long refused = 0;
    long closed = 0;
    for (int step = 0; step < 20000; ++step) {
        const std::size_t one = pick(kIds);
        std::size_t used = one;
        std::size_t user = (used + 1 + pick(kIds - 1)) % kIds;
        if (used > user) // an id is built on older ones: the links have no circle
            std::swap(used, user);
        const auto same = [&](const Link &link) { return link.used == used && link.user == user; };
        switch (pick(6)) {
        case 0:
            ASSERT_EQ(KL_Link_ids(&ids[used]->record, &ids[user]->record), 0);
            links.push_back({used, user});
            break;
        case 1: // of one of the links
            if (!links.empty()) {
                const Link &link = links[pick(links.size())];
                used = link.used;
                user = link.user;
            }
            [[fallthrough]];
        case 2: // of any two, most of them not linked
            ASSERT_EQ(KL_Unlink_ids(&ids[used]->record, &ids[user]->record), 0);
            if (const auto found = std::find_if(links.begin(), links.end(), same); found != links.end())
                links.erase(found);
            break;
        case 3:
            KL_Add_instance(&ids[one]->handle);
            ++instances[one];
            break;
        case 4:
            if (instances[one] > 0) {
                KL_Delete_instance(&ids[one]->handle);
                --instances[one];
            }
            break;
        default: {
            const auto n_users =
                std::count_if(links.begin(), links.end(), [&](const Link &l) { return l.used == one; });
            const bool free = n_users == 0 && instances[one] == 0;
            ASSERT_EQ(KL_Id_close(&ids[one]->handle), free ? 0 : -1) << step;
            ++(free ? closed : refused);
            if (free) {
                links.erase(std::remove_if(links.begin(), links.end(), [&](const Link &l) { return l.user == one; }),
                            links.end());
                const long sat_id = 200;
                ASSERT_EQ(KL_Id_init(&sat_id, KL_ID_TIME, &ids[one]->record), 0);
            }
        }
        }
        for (std::size_t i = 0; i < kIds; ++i) {
            Entries users, uses;
            for (const Link &link : links) {
                if (link.used == i)
                    users.push_back(&ids[link.user]->record);
                if (link.user == i)
                    uses.push_back(&ids[link.used]->record);
            }
            ASSERT_EQ(entries(ids[i]->record.users), users) << "step " << step << ", id " << i;
            ASSERT_EQ(entries(ids[i]->record.uses), uses) << "step " << step << ", id " << i;
            ASSERT_EQ(KL_Is_used(&ids[i]->handle), static_cast<long>(users.size()) + instances[i]);
        }
    }
    EXPECT_GT(refused, 100);
    EXPECT_GT(closed, 50);
    for (const Link &link : links)
        KL_Unlink_ids(&ids[link.used]->record, &ids[link.user]->record);
}

TEST(Copying, TakesHeadAndUsedIdsButNoUsers)
{
    Id time(KL_ID_TIME);
    Id model(KL_ID_MODEL);
    Id source(7, 301);
    source.record.mode = 4;
    Id user(8);
    ASSERT_EQ(KL_Link_ids(&time.record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&model.record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&source.record, &user.record), 0);
    Id target(9, 11);
    Id before(KL_ID_TIME); // what the target used before
    ASSERT_EQ(KL_Link_ids(&before.record, &target.record), 0);
    ASSERT_EQ(KL_Copy_id(&source.handle, &target.handle), 0);
    EXPECT_EQ(KL_Id_get_init_type(&target.handle), 7);
    EXPECT_EQ(KL_Id_get_sat_id(&target.handle), 301);
    EXPECT_EQ(KL_Id_get_mode(&target.handle), 4);
    EXPECT_EQ(entries(target.record.uses), (Entries{&time.record, &model.record}));
    EXPECT_EQ(entries(target.record.users), Entries{});
    EXPECT_EQ(entries(time.record.users), (Entries{&source.record, &target.record}));
    EXPECT_EQ(KL_Is_used(&before.handle), 0);
    EXPECT_NE(target.record.mutex, source.record.mutex);
    EXPECT_EQ(KL_Copy_id(&source.handle, &source.handle), 0);
    EXPECT_EQ(entries(source.record.uses), (Entries{&time.record, &model.record}));
    kl_id_record fresh = {};
    kl_id_record *handle = &fresh;
    EXPECT_EQ(KL_Copy_id(&time.handle, &handle), 0) << "into a record that was never initialised";
    EXPECT_EQ(KL_Id_close(&handle), 0);
}

TEST(Copying, OnPurposeTheCountOfInstancesIsCopiedToo)
{
    Id source;
    KL_Add_instance(&source.handle);
    KL_Add_instance(&source.handle);
    Id target;
    ASSERT_EQ(KL_Copy_id(&source.handle, &target.handle), 0);
    EXPECT_EQ(target.record.instances, 2);
    EXPECT_EQ(KL_Id_close(&target.handle), -1);
}

TEST(Locks, ARecordWithoutAMutexWorksWithoutLocking)
{
    Id model(KL_ID_MODEL);
    pthread_mutex_t *mutex = model.record.mutex;
    model.record.mutex = nullptr; // as a run has none
    Id user;
    const std::string said = captured_stderr([&] {
        EXPECT_EQ(KL_Link_ids(&model.record, &user.record), 0);
        EXPECT_EQ(KL_Add_instance(&model.handle), 0);
        EXPECT_EQ(KL_Is_used(&model.handle), 2);
        EXPECT_EQ(KL_Delete_instance(&model.handle), 0);
        EXPECT_EQ(KL_Unlink_ids(&model.record, &user.record), 0);
        EXPECT_EQ(KL_Id_close(&model.handle), 0);
    });
    EXPECT_EQ(said, "");
    pthread_mutex_destroy(mutex);
    std::free(mutex);
}

TEST(Locks, EveryPlaceThatFailsSaysItsNumberAndTheRestHolds)
{
    SKIP_WITHOUT_FAULTS();
    // Each case works on `user`, built on `used`.
    struct Case {
        const char *name;
        Site site;
        int nth;
        std::function<long(Id &used, Id &user)> call;
        long result;
        const char *err;
        const char *out;
        bool still_linked;
    };
    const auto close_user = [](Id &, Id &user) { return KL_Id_close(&user.handle); };
    const auto close_used = [](Id &used, Id &) { return KL_Id_close(&used.handle); };
    const auto unlink = [](Id &used, Id &user) { return KL_Unlink_ids(&used.record, &user.record); };
    const auto is_used = [](Id &used, Id &) { return KL_Is_used(&used.handle); };
    const auto add = [](Id &used, Id &) { return KL_Add_instance(&used.handle); };
    const auto subtract = [](Id &used, Id &) {
        used.record.instances = 1;
        return KL_Delete_instance(&used.handle);
    };
    const Case cases[] = {
        {"close, own lock", Site::kMutexLock, 0, close_user, -1,
         "ERROR in KL_Id_close: Could not lock other threads (231)\n", "", true},
        {"close, lock of a used id", Site::kMutexLock, 1, close_user, -1,
         "ERROR in KL_Id_close: Could not lock other threads (262)\n", "", true},
        {"close in use, unlock", Site::kMutexUnlock, 0, close_used, -1, "", kClosingThreads, true},
        {"close, unlock of a used id", Site::kMutexUnlock, 0, close_user, -1, "", kClosingThreads, false},
        {"close, own unlock", Site::kMutexUnlock, 1, close_user, -1, "", kClosingThreads, false},
        {"unlink, lock of the user", Site::kMutexLock, 0, unlink, -1,
         "ERROR in KL_Unlink_ids: Could not lock other threads (841)\n", "", true},
        {"unlink, lock of the used id", Site::kMutexLock, 1, unlink, -1,
         "ERROR in KL_Unlink_ids: Could not lock other threads (851)\n", "", true},
        {"unlink, unlock of the used id", Site::kMutexUnlock, 0, unlink, -1, "", kClosingThreads, false},
        {"unlink, unlock of the user", Site::kMutexUnlock, 1, unlink, -1, "", kClosingThreads, false},
        {"is used, lock", Site::kMutexLock, 0, is_used, 0, "ERROR in KL_Is_used: Could not lock other threads (566)\n",
         "", true},
        {"is used, unlock", Site::kMutexUnlock, 0, is_used, 1, "ERROR in KL_Is_used: Error unlocking thread \n", "",
         true},
        {"add, lock", Site::kMutexLock, 0, add, -1, "ERROR in KL_Add_instance: Could not lock other threads (621)\n",
         "", true},
        {"add, unlock", Site::kMutexUnlock, 0, add, -1, "ERROR in KL_Add_instance: Error unlocking thread \n", "",
         true},
        {"subtract, lock", Site::kMutexLock, 0, subtract, -1,
         "ERROR in KL_Delete_instance: Could not lock other threads (674)\n", "", true},
        {"subtract, unlock", Site::kMutexUnlock, 0, subtract, -1,
         "ERROR in KL_Delete_instance: Error unlocking thread \n", "", true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        Id used;
        Id user;
        ASSERT_EQ(KL_Link_ids(&used.record, &user.record), 0);
        bool failed = false;
        std::string err;
        const std::string out = captured_stdout([&] {
            err = captured_stderr([&] {
                Fail fail(c.site, c.nth);
                const long result = c.call(used, user);
                failed = fail.disarm();
                EXPECT_EQ(result, c.result);
            });
        });
        EXPECT_TRUE(failed);
        EXPECT_EQ(err, c.err);
        EXPECT_EQ(out, c.out);
        EXPECT_EQ(entries(used.record.users).size(), c.still_linked ? 1U : 0U);
        used.record.instances = 0;
        // No lock was left held: everything can be closed, once what is in the way is gone.
        if (user.record.init_status == 1) {
            EXPECT_EQ(KL_Id_close(&user.handle), 0);
        }
        EXPECT_EQ(KL_Id_close(&used.handle), 0);
        if (user.record.mutex != nullptr) { // the close that could not unlock its own mutex
            pthread_mutex_destroy(user.record.mutex);
            std::free(user.record.mutex);
        }
    }
}

TEST(Locks, OnPurposeALinkWhoseLockFailsLeavesItsFirstEntry)
{
    SKIP_WITHOUT_FAULTS();
    Id used;
    Id user;
    const std::string err = captured_stderr([&] {
        Fail fail(Site::kMutexLock);
        EXPECT_EQ(KL_Link_ids(&used.record, &user.record), -1);
        fail.disarm();
    });
    EXPECT_EQ(err, "ERROR in KL_Link_ids: Could not lock other threads (473)\n");
    EXPECT_EQ(entries(user.record.uses), Entries{&used.record});
    EXPECT_EQ(entries(used.record.users), Entries{});
    EXPECT_EQ(KL_Id_close(&user.handle), 0);
    const std::string out = captured_stdout([&] {
        Id other;
        Fail fail(Site::kMutexUnlock);
        EXPECT_EQ(KL_Link_ids(&used.record, &other.record), -1);
        fail.disarm();
        EXPECT_EQ(entries(used.record.users), Entries{&other.record});
    });
    EXPECT_EQ(out, kClosingThreads);
}

TEST(Locks, AnIdWhoseMutexCannotBeMadeIsInitialisedWithoutOne)
{
    SKIP_WITHOUT_FAULTS();
    const std::string line = "ERROR in KL_Id_init: Could not create the mutex (98)\n";
    // The lists are the first two blocks, the mutex the third.
    for (const auto &place : {std::pair(Site::kMutexInit, 0), std::pair(Site::kAllocation, 2)}) {
        kl_id_record record = {};
        kl_id_record *handle = &record;
        const long sat_id = 200;
        long result = 0;
        const std::string err = captured_stderr([&] {
            Fail fail(place.first, place.second);
            result = KL_Id_init(&sat_id, KL_ID_TIME, &record);
            fail.disarm();
        });
        EXPECT_EQ(err, line);
        EXPECT_EQ(result, static_cast<long>(line.size())) << "on purpose: the number of characters printed";
        EXPECT_EQ(KL_Id_init_status(&handle), 1);
        EXPECT_EQ(record.mutex, nullptr);
        EXPECT_EQ(KL_Id_close(&handle), 0);
    }
}

TEST(Memory, AFailedAllocationLeavesNothingHalfBuilt)
{
    SKIP_WITHOUT_FAULTS();
    const long sat_id = 200;
    const long blocks = faults::live_blocks();
    for (int nth = 0; nth < 2; ++nth) {
        kl_id_record record = {};
        kl_id_record *handle = &record;
        Fail fail(Site::kAllocation, nth);
        const long result = KL_Id_init(&sat_id, KL_ID_TIME, &record);
        EXPECT_TRUE(fail.disarm());
        EXPECT_EQ(result, -1);
        EXPECT_EQ(KL_Id_init_status(&handle), 0);
        EXPECT_EQ(record.users, nullptr);
        EXPECT_EQ(record.uses, nullptr);
        EXPECT_EQ(faults::live_blocks(), blocks) << nth;
    }
    Id used;
    Id user;
    for (int nth = 0; nth < 2; ++nth) {
        const long before = faults::live_blocks();
        Fail fail(Site::kAllocation, nth);
        const long result = KL_Link_ids(&used.record, &user.record);
        EXPECT_TRUE(fail.disarm());
        EXPECT_EQ(result, -1);
        EXPECT_EQ(kd_list_size(static_cast<kd_list *>(used.record.users)), 0) << nth;
        EXPECT_EQ(kd_list_size(static_cast<kd_list *>(user.record.uses)), 0) << nth;
        EXPECT_EQ(faults::live_blocks(), before) << nth;
    }
}

TEST(Memory, AFailedCopyLeavesTheTargetUninitialised)
{
    SKIP_WITHOUT_FAULTS();
    Id time;
    Id model(KL_ID_MODEL);
    Id source(7);
    ASSERT_EQ(KL_Link_ids(&time.record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&model.record, &source.record), 0);
    for (const Site site : {Site::kAllocation, Site::kMutexInit, Site::kMutexLock}) {
        int n_failures = 0;
        for (int nth = 0;; ++nth) {
            kl_id_record record = {};
            kl_id_record *target = &record;
            const long before = faults::live_blocks();
            long result = 0;
            bool failed = false;
            long after = 0;
            testing::internal::CaptureStderr();
            {
                const long own = faults::live_blocks();
                Fail fail(site, nth);
                result = KL_Copy_id(&source.handle, &target);
                failed = fail.disarm();
                after = before + faults::live_blocks() - own;
            }
            const std::string err = testing::internal::GetCapturedStderr();
            if (!failed) {
                EXPECT_EQ(result, 0);
                EXPECT_EQ(KL_Id_close(&target), 0);
                break;
            }
            ++n_failures;
            EXPECT_EQ(result, -1);
            EXPECT_EQ(after, before) << nth;
            EXPECT_EQ(KL_Id_init_status(&target), 0);
            EXPECT_EQ(KL_Is_used(&time.handle), 1) << nth;
            EXPECT_EQ(KL_Is_used(&model.handle), 1) << nth;
            if (site == Site::kMutexInit || (site == Site::kAllocation && nth == 0)) {
                EXPECT_EQ(err, "ERROR in KL_Copy_id: Could not create the mutex (760)\n");
            }
        }
        // Memory: mutex, two lists, two entries a link. Locks: one a link.
        EXPECT_EQ(n_failures, site == Site::kAllocation ? 7 : site == Site::kMutexInit ? 1 : 2);
    }
}

TEST(Threads, ShareOneIdThroughItsLock)
{
    Id shared;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&shared] {
            Id user;
            for (int i = 0; i < 500; ++i) {
                EXPECT_EQ(KL_Link_ids(&shared.record, &user.record), 0);
                KL_Add_instance(&shared.handle);
                EXPECT_GE(KL_Is_used(&shared.handle), 2);
                EXPECT_EQ(KL_Id_close(&shared.handle), -1);
                KL_Delete_instance(&shared.handle);
                EXPECT_EQ(KL_Unlink_ids(&shared.record, &user.record), 0);
            }
            EXPECT_EQ(KL_Link_ids(&shared.record, &user.record), 0); // undone by the close of the user
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(KL_Is_used(&shared.handle), 0);
}

TEST(CucOctets, CoarseOneToSevenAndFineNoneToTen)
{
    long accepted = 0;
    for (long coarse = -3; coarse <= 20; ++coarse)
        for (long fine = -3; fine <= 20; ++fine)
            accepted += KL_Check_cuc_octets(coarse, fine);
    EXPECT_EQ(accepted, 7 * 11);
    EXPECT_EQ(KL_Check_cuc_octets(7, 10), 1);
    EXPECT_EQ(KL_Check_cuc_octets(1, 0), 1);
    EXPECT_EQ(KL_Check_cuc_octets(0, 5), 0);
    EXPECT_EQ(KL_Check_cuc_octets(4, 11), 0);
}

} // namespace
