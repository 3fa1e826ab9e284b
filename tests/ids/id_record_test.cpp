// Id records: links, refusals, copies, locks, and what stays behind when memory or a lock fails.
#include "errors/said.h"
#include "kit_data_handling.h"
#include "support/bare_id.h"
#include "support/fault_injection.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <thread>
#include <vector>

namespace {

using faults::Fail;
using faults::Site;
using Entries = std::vector<const kl_id_record *>;

constexpr char kClosingThreads[] = "on standard output: !!! Error closing the threads. All threads will be closed\n";
constexpr long kSatId = 200;

Entries entries(void *list)
{
    Entries found;
    for (kd_list_node *node = kd_list_begin(static_cast<kd_list *>(list)); node != nullptr; node = kd_list_next(node))
        found.push_back(*static_cast<kl_id_record **>(kd_list_data(node)));
    return found;
}

// What a call prints during which one site fails.
template <typename Call>
std::string said_while(Site site, int nth, Call call)
{
    return said([&] {
        Fail fail(site, nth);
        call();
        EXPECT_TRUE(fail.disarm());
    });
}

// Status, kind, satellite, mode; how often it is used.
using State = std::array<long, 5>;

State state_of(kl_id_record **handle)
{
    return {KL_Id_init_status(handle), KL_Id_get_init_type(handle), KL_Id_get_sat_id(handle), KL_Id_get_mode(handle),
            KL_Is_used(handle)};
}

TEST(IdRecord, IsFilledByInitAndEmptiedByClose)
{
    kl_id_record record;
    std::memset(&record, 0x5a, sizeof record);
    kl_id_record *handle = &record;
    const long sat_id = 301;
    record.mode = 77; // its kind's to set
    EXPECT_EQ(KL_Id_init_status(&handle), 0);
    EXPECT_EQ(KL_Id_init(&sat_id, KL_ID_MODEL, &record), 0);
    EXPECT_EQ(state_of(&handle), (State{1, KL_ID_MODEL, 301, 77, 0}));
    EXPECT_EQ(KL_Add_instance(&handle), 0);
    EXPECT_EQ(state_of(&handle), (State{1, KL_ID_MODEL, 301, 77, 1}));
    EXPECT_EQ(KL_Id_close(&handle), -1);
    EXPECT_EQ(KL_Delete_instance(&handle), 0);
    EXPECT_EQ(KL_Id_close(&handle), 0);
    EXPECT_TRUE(record.kind == 0 && record.mutex == nullptr && KL_Id_init_status(&handle) == 0);
    EXPECT_EQ(KL_Id_close(&handle), -1) << "closed twice";
}

TEST(IdRecord, IsUninitialisedWhereThereIsNone)
{
    kl_id_record *none = nullptr;
    BareId other;
    for (const long nothing :
         {KL_Id_init_status(&none), KL_Id_get_init_type(&none), KL_Is_used(&none), KL_Add_instance(&none),
          KL_Delete_instance(&none), KL_Link_ids(none, &other.record), KL_Link_ids(&other.record, none),
          KL_Unlink_ids(none, &other.record), KL_Unlink_ids(&other.record, none)})
        EXPECT_EQ(nothing, 0);
    EXPECT_EQ(KL_Get_used_id(none, KL_ID_TIME), nullptr);
    for (const long refused : {KL_Id_close(&none), KL_Copy_id(&none, &other.handle), KL_Copy_id(&other.handle, &none),
                               KL_Id_init(&kSatId, KL_ID_TIME, none)})
        EXPECT_EQ(refused, -1);
}

// Random links, unlinks and closes over a few ids, against a plain list of pairs. An id is built on earlier ones, so
// the links have no circle.
TEST(Links, StandOnBothSidesAndForbidClosingAfterAnyHistory)
{
    BareId ids[6];
    std::map<const kl_id_record *, Entries> users, uses;
    const auto drop = [](Entries &list, const kl_id_record *record) {
        const auto found = std::find(list.begin(), list.end(), record);
        list.erase(found, found == list.end() ? found : found + 1);
    };
    std::mt19937 random(20260101);
    long closed = 0;
    for (int step = 0; step < 10000; ++step) {
        const std::size_t first = random() % 5;
        kl_id_record *const used = &ids[first].record;
        kl_id_record *user = &ids[first + 1 + random() % (5 - first)].record;
        switch (random() % 4) {
        case 0:
            ASSERT_EQ(KL_Link_ids(used, user), 0);
            users[used].push_back(user);
            uses[user].push_back(used);
            break;
        case 1: // linked or not
            ASSERT_EQ(KL_Unlink_ids(used, user), 0);
            drop(users[used], user);
            drop(uses[user], used);
            break;
        default:
            ASSERT_EQ(KL_Id_close(&user), users[user].empty() ? 0 : -1) << step;
            if (!users[user].empty())
                break;
            for (const kl_id_record *record : std::exchange(uses[user], {}))
                drop(users[record], user);
            ASSERT_EQ(KL_Id_init(&kSatId, KL_ID_TIME, user), 0);
            ++closed;
        }
        for (const BareId &id : ids) {
            ASSERT_EQ(entries(id.record.users), users[&id.record]) << step;
            ASSERT_EQ(entries(id.record.uses), uses[&id.record]) << step;
        }
    }
    EXPECT_GT(closed, 500);
}

TEST(Links, OfAnIdWithItselfTakeItsLockOnce)
{
    BareId id;
    EXPECT_EQ(KL_Link_ids(&id.record, &id.record), 0);
    EXPECT_EQ(KL_Is_used(&id.handle), 1);
    EXPECT_EQ(KL_Unlink_ids(&id.record, &id.record), 0);
    EXPECT_EQ(KL_Is_used(&id.handle), 0);
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
    EXPECT_EQ(state_of(&target.handle), (State{1, 7, 301, 4, 2})) << "on purpose its instances";
    EXPECT_EQ(entries(target.record.uses), used);
    EXPECT_EQ(entries(target.record.users), Entries{});
    EXPECT_EQ(entries(time.record.users), (Entries{&source.record, &target.record}));
    EXPECT_EQ(KL_Is_used(&before.handle), 0) << "what the target used before is let go";
    EXPECT_EQ(KL_Copy_id(&source.handle, &source.handle), 0);
    EXPECT_EQ(entries(source.record.uses), used);
    // By kind, the first linked first.
    EXPECT_EQ(KL_Get_used_id(&source.record, KL_ID_TIME), &time.record);
    EXPECT_EQ(KL_Get_used_id(&source.record, KL_ID_MODEL), &model.record);
    EXPECT_EQ(KL_Get_used_id(&source.record, KL_ID_RUN), nullptr);
}

TEST(Locks, EveryPlaceThatFailsSaysItsNumberAndTheRestHolds)
{
    SKIP_WITHOUT_FAULTS();
    // `used` has one user and one instance unless it is the user that is closed or unlinked.
    using Call = long (*)(BareId & used, BareId & user);
    const Call close_user = [](BareId &, BareId &user) { return KL_Id_close(&user.handle); };
    const Call close_used = [](BareId &used, BareId &) { return KL_Id_close(&used.handle); };
    const Call link = [](BareId &used, BareId &user) { return KL_Link_ids(&used.record, &user.record); };
    const Call unlink = [](BareId &used, BareId &user) { return KL_Unlink_ids(&used.record, &user.record); };
    const Call is_used = [](BareId &used, BareId &) { return KL_Is_used(&used.handle); };
    const Call add = [](BareId &used, BareId &) { return KL_Add_instance(&used.handle); };
    const Call subtract = [](BareId &used, BareId &) { return KL_Delete_instance(&used.handle); };
    const std::tuple<Site, int, Call, long, const char *, std::size_t> cases[] = {
#include "ids/failing_locks.inc"
    };
    for (const auto &[site, nth, call, result, line, links] : cases) {
        SCOPED_TRACE(line + std::to_string(nth));
        BareId used, user;
        used.record.instances = 1;
        ASSERT_EQ(KL_Link_ids(&used.record, &user.record), 0);
        EXPECT_EQ(said_while(site, nth, [&, call = call, result = result] { EXPECT_EQ(call(used, user), result); }),
                  line);
        EXPECT_EQ(entries(used.record.users).size(), links);
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
    BareId used, user;
    EXPECT_EQ(said_while(Site::kMutexLock, 0, [&] { EXPECT_EQ(KL_Link_ids(&used.record, &user.record), -1); }),
              "ERROR in KL_Link_ids: Could not lock other threads (473)\n");
    EXPECT_EQ(entries(user.record.uses), Entries{&used.record});
    EXPECT_EQ(entries(used.record.users), Entries{});
    EXPECT_EQ(KL_Id_close(&user.handle), 0);
}

TEST(Failures, OnPurposeAnIdWithoutMutexWorksAndItsInitReturnsTheCharactersPrinted)
{
    SKIP_WITHOUT_FAULTS();
    const std::string line = "ERROR in KL_Id_init: Could not create the mutex (98)\n";
    // The lists are the first two blocks, the mutex the third.
    for (const auto &[site, nth] : {std::pair(Site::kMutexInit, 0), std::pair(Site::kAllocation, 2)}) {
        kl_id_record record = {}, *handle = &record;
        long result = 0;
        EXPECT_EQ(said_while(site, nth, [&] { result = KL_Id_init(&kSatId, KL_ID_TIME, &record); }), line);
        EXPECT_EQ(result, static_cast<long>(line.size()));
        ASSERT_EQ(record.mutex, nullptr);
        BareId user;
        EXPECT_EQ(KL_Link_ids(&record, &user.record) + KL_Add_instance(&handle), 0);
        EXPECT_EQ(KL_Is_used(&handle), 2);
        EXPECT_EQ(KL_Delete_instance(&handle) + KL_Unlink_ids(&record, &user.record) + KL_Id_close(&handle), 0);
    }
}

TEST(Failures, LeaveNothingHalfBuilt)
{
    SKIP_WITHOUT_FAULTS();
    BareId time, model(KL_ID_MODEL), source(7), user;
    ASSERT_EQ(KL_Link_ids(&time.record, &source.record) + KL_Link_ids(&model.record, &source.record), 0);
    kl_id_record record = {}, *handle = &record;
    const auto init = [&] { return KL_Id_init(&kSatId, KL_ID_TIME, &record); };
    const auto link = [&] { return KL_Link_ids(&time.record, &user.record); };
    const auto copy = [&] {
        const long status = KL_Copy_id(&source.handle, &handle);
        if (status != 0) { // the head is that of the source all the same, and the copy can be closed
            EXPECT_EQ(KL_Id_get_init_type(&handle), 7);
            EXPECT_EQ(entries(record.uses), Entries{});
            EXPECT_EQ(KL_Id_close(&handle), 0);
        }
        return status;
    };
    const std::tuple<Site, int, std::function<long()>, std::string> cases[] = {
#include "ids/failing_builds.inc"
    };
    for (const auto &[site, uses, call, line] : cases)
        for (int nth = 0; nth < uses; ++nth) {
            SCOPED_TRACE(line + std::to_string(nth));
            const std::string said = said_while(site, nth, [&, call = call] {
                const long blocks = faults::live_blocks();
                EXPECT_EQ(call(), -1);
                EXPECT_EQ(faults::live_blocks(), blocks);
            });
            EXPECT_EQ(said, nth == 0 ? line : said);
            EXPECT_EQ(KL_Id_init_status(&handle), 0);
            EXPECT_EQ(KL_Is_used(&time.handle) + KL_Is_used(&model.handle), 2) << "by the source";
            EXPECT_EQ(entries(user.record.uses), Entries{});
        }
    EXPECT_EQ(copy(), 0);
    EXPECT_EQ(KL_Id_close(&handle), 0);
}

TEST(Threads, ShareOneIdThroughItsLock)
{
    BareId shared;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&shared] {
            for (int i = 0; i < 500; ++i) {
                BareId user; // its close undoes the second link
                EXPECT_EQ(KL_Link_ids(&shared.record, &user.record) + KL_Link_ids(&shared.record, &user.record), 0);
                KL_Add_instance(&shared.handle);
                EXPECT_GE(KL_Is_used(&shared.handle), 3);
                EXPECT_EQ(KL_Unlink_ids(&shared.record, &user.record), 0);
                KL_Delete_instance(&shared.handle);
            }
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
}

} // namespace
