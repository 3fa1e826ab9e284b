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
#include <thread>
#include <vector>

namespace {

using faults::Fail;
using faults::Site;
using Entries = std::vector<const kl_id_record *>;

constexpr char kClosingThreads[] = "!!! Error closing the threads. All threads will be closed\n";

struct Id {
    kl_id_record record = {};
    kl_id_record *handle = &record;

    explicit Id(long kind = KL_ID_TIME, long sat_id = 200) { EXPECT_EQ(KL_Id_init(&sat_id, kind, &record), 0); }
    ~Id()
    {
        record.instances = 0;
        KL_Id_close(&handle);
    }
    Id(const Id &) = delete;
    Id &operator=(const Id &) = delete;
};

Entries entries(void *list)
{
    Entries found;
    for (kd_list_node *node = kd_list_begin(static_cast<kd_list *>(list)); node != nullptr; node = kd_list_next(node))
        found.push_back(*static_cast<kl_id_record **>(kd_list_data(node)));
    return found;
}

// Standard error, then standard output of a call during which one site fails.
std::string said_while(Site site, int nth, const std::function<void()> &call)
{
    std::string err;
    const std::string out = captured_stdout([&] {
        err = captured_stderr([&] {
            Fail fail(site, nth);
            call();
            EXPECT_TRUE(fail.disarm());
        });
    });
    return err + out;
}

TEST(IdRecord, IsFilledByInitAndEmptiedByClose)
{
    kl_id_record record;
    std::memset(&record, 0x5a, sizeof record);
    kl_id_record *handle = &record;
    const long sat_id = 301;
    record.mode = 77;
    EXPECT_EQ(KL_Id_init_status(&handle), 0);
    EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_MODEL, &record), 0);
    EXPECT_EQ(KL_Id_init_status(&handle), 1);
    EXPECT_EQ(KL_Id_get_init_type(&handle), KL_ID_MODEL);
    EXPECT_EQ(KL_Id_get_sat_id(&handle), 301);
    EXPECT_EQ(KL_Id_get_mode(&handle), 77) << "a mode is its kind's to set";
    EXPECT_EQ(KL_Is_used(&handle), 0);
    EXPECT_EQ(KL_Id_close(&handle), 0);
    EXPECT_EQ(record.kind, 0);
    EXPECT_EQ(record.mutex, nullptr);
    EXPECT_EQ(KL_Id_init_status(&handle), 0);
    EXPECT_EQ(KL_Id_close(&handle), -1) << "closed twice";
}

TEST(IdRecord, NothingIsAnUninitialisedId)
{
    const long sat_id = 200;
    kl_id_record *empty = nullptr;
    for (void *handle : {static_cast<void *>(nullptr), static_cast<void *>(&empty)}) {
        EXPECT_EQ(KL_Id_init_status(handle) + KL_Id_get_init_type(handle) + KL_Is_used(handle), 0);
        EXPECT_EQ(KL_Add_instance(handle) + KL_Delete_instance(handle), 0);
        EXPECT_EQ(KL_Id_close(handle), -1);
    }
    Id id;
    EXPECT_EQ(KL_Link_ids(nullptr, &id.record) + KL_Link_ids(&id.record, nullptr), 0);
    EXPECT_EQ(KL_Unlink_ids(nullptr, &id.record) + KL_Unlink_ids(&id.record, nullptr), 0);
    EXPECT_EQ(KL_Is_used(&id.handle), 0);
    EXPECT_EQ(KL_Get_used_id(nullptr, KL_ID_TIME), nullptr);
    EXPECT_EQ(KL_Copy_id(&empty, &id.handle), -1);
    EXPECT_EQ(KL_Copy_id(&id.handle, &empty), -1);
    EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_TIME, nullptr), -1);
}

TEST(Links, AUsedIdIsFoundByKindInTheOrderOfLinking)
{
    Id model(KL_ID_MODEL), first, second, user(7);
    for (Id *used : {&model, &first, &second})
        ASSERT_EQ(KL_Link_ids(&used->record, &user.record), 0);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_TIME), &first.record);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_MODEL), &model.record);
    EXPECT_EQ(KL_Get_used_id(&user.record, KL_ID_RUN), nullptr);
}

// Random links, unlinks, instances and closes over a few ids, against a plain list of pairs. An id is built on older
// ones, so the links have no circle.
TEST(Links, StandOnBothSidesAndForbidClosingAfterAnyHistory)
{
    struct Link {
        std::size_t used, user;
    };
    constexpr std::size_t kIds = 7;
    std::vector<std::unique_ptr<Id>> ids;
    for (std::size_t i = 0; i < kIds; ++i)
        ids.push_back(std::make_unique<Id>());
    std::vector<Link> links; // in the order of linking
    std::vector<long> instances(kIds, 0);
    std::mt19937 random(20260101);
    const auto pick = [&](std::size_t n) { return random() % n; };
    long closed[2] = {0, 0}; // refused, done
    for (int step = 0; step < 20000; ++step) {
        const std::size_t one = pick(kIds);
        Link link = {std::min(one, pick(kIds - 1)), 0};
        link.user = link.used + 1 + pick(kIds - 1 - link.used);
        switch (pick(6)) {
        case 0:
            ASSERT_EQ(KL_Link_ids(&ids[link.used]->record, &ids[link.user]->record), 0);
            links.push_back(link);
            break;
        case 1: // of one of the links
            link = links.empty() ? link : links[pick(links.size())];
            [[fallthrough]];
        case 2: { // of any two
            ASSERT_EQ(KL_Unlink_ids(&ids[link.used]->record, &ids[link.user]->record), 0);
            const auto found = std::find_if(links.begin(), links.end(), [&](const Link &other) {
                return other.used == link.used && other.user == link.user;
            });
            links.erase(found, found == links.end() ? found : found + 1);
            break;
        }
        case 3:
            ASSERT_EQ(KL_Add_instance(&ids[one]->handle), 0);
            ++instances[one];
            break;
        case 4:
            if (instances[one] > 0)
                KL_Delete_instance(&ids[one]->handle), --instances[one];
            break;
        default: {
            const bool free = instances[one] == 0 && std::none_of(links.begin(), links.end(), [&](const Link &other) {
                                  return other.used == one;
                              });
            ASSERT_EQ(KL_Id_close(&ids[one]->handle), free ? 0 : -1) << step;
            ++closed[free ? 1 : 0];
            if (free) {
                const auto gone = [&](const Link &other) { return other.user == one; };
                links.erase(std::remove_if(links.begin(), links.end(), gone), links.end());
                ids[one] = std::make_unique<Id>();
            }
        }
        }
        for (std::size_t i = 0; i < kIds; ++i) {
            Entries users, uses;
            for (const Link &other : links) {
                if (other.used == i)
                    users.push_back(&ids[other.user]->record);
                if (other.user == i)
                    uses.push_back(&ids[other.used]->record);
            }
            ASSERT_EQ(entries(ids[i]->record.users), users) << "step " << step << ", id " << i;
            ASSERT_EQ(entries(ids[i]->record.uses), uses) << "step " << step << ", id " << i;
            ASSERT_EQ(KL_Is_used(&ids[i]->handle), static_cast<long>(users.size()) + instances[i]);
        }
    }
    EXPECT_GT(std::min(closed[0], closed[1]), 50);
    while (!ids.empty()) // users first
        ids.pop_back();
}

TEST(Copying, TakesHeadAndUsedIdsButNoUsersAndOnPurposeTheCountOfInstances)
{
    Id time, model(KL_ID_MODEL), before, source(7, 301), user(8), target(9, 11);
    source.record.mode = 4;
    source.record.instances = 2;
    ASSERT_EQ(KL_Link_ids(&time.record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&model.record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&source.record, &user.record), 0);
    ASSERT_EQ(KL_Link_ids(&before.record, &target.record), 0);
    ASSERT_EQ(KL_Copy_id(&source.handle, &target.handle), 0);
    EXPECT_EQ(KL_Id_get_init_type(&target.handle), 7);
    EXPECT_EQ(KL_Id_get_sat_id(&target.handle), 301);
    EXPECT_EQ(KL_Id_get_mode(&target.handle), 4);
    EXPECT_EQ(target.record.instances, 2);
    EXPECT_EQ(entries(target.record.uses), (Entries{&time.record, &model.record}));
    EXPECT_EQ(entries(target.record.users), Entries{});
    EXPECT_EQ(entries(time.record.users), (Entries{&source.record, &target.record}));
    EXPECT_EQ(KL_Is_used(&before.handle), 0) << "what the target used before is let go";
    EXPECT_NE(target.record.mutex, source.record.mutex);
    EXPECT_EQ(KL_Copy_id(&source.handle, &source.handle), 0);
    EXPECT_EQ(entries(source.record.uses), (Entries{&time.record, &model.record}));
}

TEST(Locks, EveryPlaceThatFailsSaysItsNumberAndTheRestHolds)
{
    SKIP_WITHOUT_FAULTS();
    // `used` has one user and one instance unless it is the user that is closed or unlinked.
    using Call = long (*)(Id & used, Id & user);
    const Call close_user = [](Id &, Id &user) { return KL_Id_close(&user.handle); };
    const Call close_used = [](Id &used, Id &) { return KL_Id_close(&used.handle); };
    const Call unlink = [](Id &used, Id &user) { return KL_Unlink_ids(&used.record, &user.record); };
    const Call is_used = [](Id &used, Id &) { return KL_Is_used(&used.handle); };
    const Call add = [](Id &used, Id &) { return KL_Add_instance(&used.handle); };
    const Call subtract = [](Id &used, Id &) { return KL_Delete_instance(&used.handle); };
    struct Case {
        Site site;
        int nth;
        Call call;
        long result;
        std::string said;
        bool still_linked;
    };
    const auto lock = [](const char *function, int place) {
        return std::string("ERROR in ") + function + ": Could not lock other threads (" + std::to_string(place) + ")\n";
    };
    const auto unlock = [](const char *function) {
        return std::string("ERROR in ") + function + ": Error unlocking thread \n";
    };
    const Case cases[] = {
        {Site::kMutexLock, 0, close_user, -1, lock("KL_Id_close", 231), true},
        {Site::kMutexLock, 1, close_user, -1, lock("KL_Id_close", 262), true},
        {Site::kMutexUnlock, 0, close_used, -1, kClosingThreads, true},
        {Site::kMutexUnlock, 0, close_user, -1, kClosingThreads, false},
        {Site::kMutexUnlock, 1, close_user, -1, kClosingThreads, false},
        {Site::kMutexLock, 0, unlink, -1, lock("KL_Unlink_ids", 841), true},
        {Site::kMutexLock, 1, unlink, -1, lock("KL_Unlink_ids", 851), true},
        {Site::kMutexUnlock, 0, unlink, -1, kClosingThreads, false},
        {Site::kMutexUnlock, 1, unlink, -1, kClosingThreads, false},
        {Site::kMutexLock, 0, is_used, 0, lock("KL_Is_used", 566), true},
        {Site::kMutexUnlock, 0, is_used, 2, unlock("KL_Is_used"), true},
        {Site::kMutexLock, 0, add, -1, lock("KL_Add_instance", 621), true},
        {Site::kMutexUnlock, 0, add, -1, unlock("KL_Add_instance"), true},
        {Site::kMutexLock, 0, subtract, -1, lock("KL_Delete_instance", 674), true},
        {Site::kMutexUnlock, 0, subtract, -1, unlock("KL_Delete_instance"), true},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(i);
        const Case &c = cases[i];
        Id used, user;
        used.record.instances = 1;
        ASSERT_EQ(KL_Link_ids(&used.record, &user.record), 0);
        EXPECT_EQ(said_while(c.site, c.nth, [&] { EXPECT_EQ(c.call(used, user), c.result); }), c.said);
        EXPECT_EQ(entries(used.record.users).size(), c.still_linked ? 1U : 0U);
        // No lock was left held: once what is in the way is gone, everything can be closed.
        used.record.instances = 0;
        if (user.record.init_status == 1) {
            EXPECT_EQ(KL_Id_close(&user.handle), 0);
        }
        EXPECT_EQ(KL_Id_close(&used.handle), 0);
        std::free(user.record.mutex); // of the close that could not unlock its own
    }
}

TEST(Locks, OnPurposeALinkWhoseLockFailsLeavesItsFirstEntry)
{
    SKIP_WITHOUT_FAULTS();
    Id used, user, other;
    EXPECT_EQ(said_while(Site::kMutexLock, 0, [&] { EXPECT_EQ(KL_Link_ids(&used.record, &user.record), -1); }),
              "ERROR in KL_Link_ids: Could not lock other threads (473)\n");
    EXPECT_EQ(entries(user.record.uses), Entries{&used.record});
    EXPECT_EQ(entries(used.record.users), Entries{});
    EXPECT_EQ(KL_Id_close(&user.handle), 0);
    EXPECT_EQ(said_while(Site::kMutexUnlock, 0, [&] { EXPECT_EQ(KL_Link_ids(&used.record, &other.record), -1); }),
              kClosingThreads);
    EXPECT_EQ(KL_Id_close(&other.handle), 0);
}

TEST(Locks, AnIdWhoseMutexCannotBeMadeWorksWithoutLocking)
{
    SKIP_WITHOUT_FAULTS();
    const std::string line = "ERROR in KL_Id_init: Could not create the mutex (98)\n";
    // The lists are the first two blocks, the mutex the third.
    for (const auto &place : {std::pair(Site::kMutexInit, 0), std::pair(Site::kAllocation, 2)}) {
        kl_id_record record = {};
        kl_id_record *handle = &record;
        const long sat_id = 200;
        long result = 0;
        EXPECT_EQ(said_while(place.first, place.second, [&] { result = KL_Id_init(&sat_id, KL_ID_TIME, &record); }),
                  line);
        EXPECT_EQ(result, static_cast<long>(line.size())) << "on purpose: the number of characters printed";
        ASSERT_EQ(record.mutex, nullptr);
        const std::string said = captured_stderr([&] {
            Id user;
            EXPECT_EQ(KL_Link_ids(&record, &user.record), 0);
            EXPECT_EQ(KL_Add_instance(&handle), 0);
            EXPECT_EQ(KL_Is_used(&handle), 2);
            EXPECT_EQ(KL_Delete_instance(&handle), 0);
            EXPECT_EQ(KL_Unlink_ids(&record, &user.record), 0);
        });
        EXPECT_EQ(said, "");
        EXPECT_EQ(KL_Id_close(&handle), 0);
    }
}

// Fails the allocations, or the locks, of a call one after the other; returns their number. `check` follows a failure.
template <typename Call, typename Check>
int fail_each(Site site, Call call, Check check)
{
    for (int nth = 0;; ++nth) {
        const long blocks = faults::live_blocks();
        Fail fail(site, nth);
        const long result = call();
        if (!fail.disarm())
            return nth;
        EXPECT_EQ(faults::live_blocks(), blocks) << nth;
        EXPECT_EQ(result, -1) << nth;
        check();
    }
}

TEST(Failures, LeaveNothingHalfBuilt)
{
    SKIP_WITHOUT_FAULTS();
    Id time, model(KL_ID_MODEL), source(7);
    const auto link = [&] { return KL_Link_ids(&time.record, &source.record); };
    EXPECT_EQ(fail_each(Site::kAllocation, link,
                        [&] { EXPECT_EQ(entries(time.record.users).size() + entries(source.record.uses).size(), 0U); }),
              2);
    ASSERT_EQ(KL_Link_ids(&model.record, &source.record), 0);
    for (const Site site : {Site::kAllocation, Site::kMutexInit, Site::kMutexLock}) {
        kl_id_record record = {};
        kl_id_record *copy = &record;
        int n = 0;
        const std::string said = captured_stderr([&] {
            n = fail_each(
                site, [&] { return KL_Copy_id(&source.handle, &copy); },
                [&] {
                    EXPECT_EQ(KL_Id_init_status(&copy), 0);
                    EXPECT_EQ(KL_Is_used(&time.handle) + KL_Is_used(&model.handle), 2);
                });
        });
        // Memory: mutex, two lists, two entries a link. Locks: one a link.
        EXPECT_EQ(n, site == Site::kAllocation ? 7 : site == Site::kMutexInit ? 1 : 2);
        EXPECT_EQ(said.find("ERROR in KL_Copy_id: Could not create the mutex (760)\n"),
                  site == Site::kMutexLock ? std::string::npos : 0);
        EXPECT_EQ(KL_Id_close(&copy), 0);
    }
    const long sat_id = 200;
    for (const int nth : {0, 1}) { // the lists
        kl_id_record record = {};
        kl_id_record *handle = &record;
        const long blocks = faults::live_blocks();
        Fail fail(Site::kAllocation, nth);
        const long result = KL_Id_init(&sat_id, KL_ID_TIME, &record);
        fail.disarm();
        EXPECT_EQ(faults::live_blocks(), blocks);
        EXPECT_EQ(result, -1);
        EXPECT_EQ(KL_Id_init_status(&handle), 0);
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
    EXPECT_EQ(KL_Check_cuc_octets(7, 10) + KL_Check_cuc_octets(1, 0), 2);
    EXPECT_EQ(KL_Check_cuc_octets(0, 5) + KL_Check_cuc_octets(4, 11), 0);
}

} // namespace
