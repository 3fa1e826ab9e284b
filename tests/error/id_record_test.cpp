// BareId records: links, refusals, copies, locks, and what stays behind when memory or a lock fails.
#include "kit_data_handling.h"
#include "support/bare_id.h"
#include "support/captured_stream.h"
#include "support/conditions.h"
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
#include "error/record_life.inc"
}

TEST(IdRecord, NothingIsAnUninitialisedId)
{
    const long sat_id = 200;
    kl_id_record *empty = nullptr;
    BareId id;
    for (void *handle : {static_cast<void *>(nullptr), static_cast<void *>(&empty)}) {
#include "error/no_id.inc"
    }
}

// Random links, unlinks, instances and closes over a few ids, against a plain list of pairs. An id is built on older
// ones, so the links have no circle.
TEST(Links, StandOnBothSidesAndForbidClosingAfterAnyHistory)
{
    using Link = std::pair<std::size_t, std::size_t>; // used, user
    constexpr std::size_t kIds = 7;
    std::vector<std::unique_ptr<BareId>> ids(kIds);
    for (std::unique_ptr<BareId> &id : ids)
        id = std::make_unique<BareId>();
    std::vector<Link> links; // in the order of linking
    std::vector<long> instances(kIds, 0);
    std::mt19937 random(20260101);
    const auto pick = [&](std::size_t n) { return random() % n; };
    long closed[2] = {0, 0}; // refused, done
    for (int step = 0; step < 20000; ++step) {
        const std::size_t one = pick(kIds), used = pick(kIds - 1), user = used + 1 + pick(kIds - 1 - used);
        const std::size_t what = pick(6);
        const Link link = what == 1 && !links.empty() ? links[pick(links.size())] : Link(used, user);
        if (what == 0) {
            ASSERT_EQ(KL_Link_ids(&ids[used]->record, &ids[user]->record), 0);
            links.push_back(link);
        } else if (what <= 2) { // of one of the links, of any two
            ASSERT_EQ(KL_Unlink_ids(&ids[link.first]->record, &ids[link.second]->record), 0);
            const auto found = std::find(links.begin(), links.end(), link);
            links.erase(found, found == links.end() ? found : found + 1);
        } else if (what == 3) {
            ASSERT_EQ(KL_Add_instance(&ids[one]->handle), 0);
            ++instances[one];
        } else if (what == 4 && instances[one] > 0) {
            KL_Delete_instance(&ids[one]->handle);
            --instances[one];
        } else {
            const auto used_one = [&](const Link &other) { return other.first == one; };
            const auto by_one = [&](const Link &other) { return other.second == one; };
            const bool free = instances[one] == 0 && std::none_of(links.begin(), links.end(), used_one);
            ASSERT_EQ(KL_Id_close(&ids[one]->handle), free ? 0 : -1) << step;
            ++closed[free];
            if (free) {
                links.erase(std::remove_if(links.begin(), links.end(), by_one), links.end());
                ids[one] = std::make_unique<BareId>();
            }
        }
        for (std::size_t i = 0; i < kIds; ++i) {
            Entries users, uses;
            for (const auto &[first, second] : links) {
                if (first == i)
                    users.push_back(&ids[second]->record);
                if (second == i)
                    uses.push_back(&ids[first]->record);
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

TEST(Copying, TakesHeadAndUsedIdsInOrderButNoUsersAndOnPurposeTheCountOfInstances)
{
    BareId time, second, model(KL_ID_MODEL), before, source(7, 301), user(8), target(9, 11);
    const Entries used = {&time.record, &model.record, &second.record};
    source.record.mode = 4;
    source.record.instances = 2;
    for (BareId *id : {&time, &model, &second})
        ASSERT_EQ(KL_Link_ids(&id->record, &source.record), 0);
    ASSERT_EQ(KL_Link_ids(&source.record, &user.record) + KL_Link_ids(&before.record, &target.record), 0);
    ASSERT_EQ(KL_Copy_id(&source.handle, &target.handle), 0);
    EXPECT_NE(target.record.mutex, source.record.mutex);
#include "error/copied_id.inc"
}

TEST(Locks, EveryPlaceThatFailsSaysItsNumberAndTheRestHolds)
{
    SKIP_WITHOUT_FAULTS();
    // `used` has one user and one instance unless it is the user that is closed or unlinked.
    using Call = long (*)(BareId & used, BareId & user);
    const Call close_user = [](BareId &, BareId &user) { return KL_Id_close(&user.handle); };
    const Call close_used = [](BareId &used, BareId &) { return KL_Id_close(&used.handle); };
    const Call unlink = [](BareId &used, BareId &user) { return KL_Unlink_ids(&used.record, &user.record); };
    const Call is_used = [](BareId &used, BareId &) { return KL_Is_used(&used.handle); };
    const Call add = [](BareId &used, BareId &) { return KL_Add_instance(&used.handle); };
    const Call subtract = [](BareId &used, BareId &) { return KL_Delete_instance(&used.handle); };
    const std::tuple<Site, int, Call, long, const char *, bool> cases[] = {
#include "error/failing_locks.inc"
    };
    for (const auto &[site, nth, call, result, said, linked] : cases) {
        SCOPED_TRACE(said + std::to_string(nth));
        BareId used, user;
        used.record.instances = 1;
        ASSERT_EQ(KL_Link_ids(&used.record, &user.record), 0);
        long got = 77;
        EXPECT_EQ(said_while(site, nth, [&, call = call] { got = call(used, user); }), said);
        EXPECT_EQ(got, result);
        EXPECT_EQ(entries(used.record.users).size(), linked ? 1U : 0U);
        // No lock was left held: once what is in the way is gone, everything can be closed.
        used.record.instances = 0;
        EXPECT_TRUE(user.record.init_status != 1 || KL_Id_close(&user.handle) == 0);
        EXPECT_EQ(KL_Id_close(&used.handle), 0);
        std::free(user.record.mutex); // of the close that could not unlock its own
    }
}

TEST(Locks, OnPurposeALinkWhoseLockFailsLeavesItsFirstEntry)
{
    SKIP_WITHOUT_FAULTS();
    BareId used, user, other;
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
    const long sat_id = 200;
    // The lists are the first two blocks, the mutex the third.
    for (const auto &[site, nth] : {std::pair(Site::kMutexInit, 0), std::pair(Site::kAllocation, 2)}) {
        kl_id_record record = {}, *handle = &record;
        long result = 0;
        EXPECT_EQ(said_while(site, nth, [&] { result = KL_Id_init(&sat_id, KL_ID_TIME, &record); }), line);
        EXPECT_EQ(result, static_cast<long>(line.size())) << "on purpose: the number of characters printed";
        ASSERT_EQ(record.mutex, nullptr);
        const std::string said = captured_stderr([&] {
            BareId user;
#include "error/without_mutex.inc"
        });
        EXPECT_EQ(said, "");
    }
}

// Fails a site of a call at one use after the other; returns their number. `check` follows a failure.
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
    BareId time, model(KL_ID_MODEL), source(7);
    const auto link = [&] { return KL_Link_ids(&time.record, &source.record); };
    const auto not_linked = [&] {
        EXPECT_TRUE(entries(time.record.users).empty() && entries(source.record.uses).empty());
    };
    EXPECT_EQ(fail_each(Site::kAllocation, link, not_linked), 2);
    ASSERT_EQ(KL_Link_ids(&model.record, &source.record), 0);
    const std::tuple<Site, int, std::string> cases[] = {
#include "error/failing_copies.inc"
    };
    for (const auto &[site, uses, line] : cases) {
        kl_id_record record = {}, *handle = &record;
        const auto copy = [&] { return KL_Copy_id(&source.handle, &handle); };
        const auto not_copied = [&] {
            EXPECT_EQ(KL_Id_init_status(&handle), 0);
            EXPECT_EQ(KL_Is_used(&time.handle) + KL_Is_used(&model.handle), 2);
        };
        int n = 0;
        const std::string said = captured_stderr([&, site = site] { n = fail_each(site, copy, not_copied); });
        EXPECT_EQ(n, uses);
        EXPECT_EQ(said.substr(0, line.size()), line);
        EXPECT_EQ(KL_Id_close(&handle), 0);
    }
    const long sat_id = 200;
    for (const int nth : {0, 1}) { // the lists
        kl_id_record record = {}, *handle = &record;
        const long blocks = faults::live_blocks();
        said_while(Site::kAllocation, nth, [&] { EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_TIME, &record), -1); });
        EXPECT_EQ(faults::live_blocks(), blocks);
        EXPECT_EQ(KL_Id_init_status(&handle), 0);
    }
}

TEST(Threads, ShareOneIdThroughItsLock)
{
    BareId shared;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&shared] {
            BareId user;
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
