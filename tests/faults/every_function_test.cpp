// Every public function, with each of its allocations and lock calls failing in turn.
#include "kl_family.h"
#include "support/every_function.h"
#include "support/fault_injection.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

using faults::Fail;
using faults::Site;

namespace {

struct NamedSite {
    Site site;
    const char *name;
};

constexpr NamedSite kSites[] = {{Site::kAllocation, "allocation"},
                                {Site::kMutexInit, "mutex initialisation"},
                                {Site::kMutexLock, "lock"},
                                {Site::kMutexUnlock, "unlock"}};

const std::set<std::string> kTables = {"kl_default_sat_array", "kl_default_sat_names", "kl_months"};

// What the call returns when nothing fails.
long clean_status(const PublicCall &f)
{
    World world;
    EXPECT_TRUE(world.open());
    const long status = f.call(world);
    world.close();
    return status;
}

// One call with the nth use of a site failing; false when it does not use the site that often.
bool fails_and_recovers(const PublicCall &f, const NamedSite &where, int nth, long clean)
{
    SCOPED_TRACE(std::string(f.name) + ", " + where.name + " " + std::to_string(nth));
    const long blocks = faults::live_blocks();
    World world;
    EXPECT_TRUE(world.open());
    Fail fail(where.site, nth);
    const long status = f.call(world);
    const bool failed = fail.disarm();
    if (failed && status != clean) {
        EXPECT_EQ(status, KL_ERR);
    }
    // An unlocking that fails is a line on standard output; the function is done by then, and what it closes stays.
    if (where.site == Site::kMutexUnlock) {
        world.close();
        return failed;
    }
    if (failed && status != clean) {
        EXPECT_TRUE(!f.has_vector || world.ierr[0] != 0) << "a failure without a code";
        EXPECT_EQ(f.call(world), clean) << "the second call";
    }
    world.close();
    EXPECT_EQ(faults::live_blocks(), blocks) << "memory kept";
    return failed;
}

// How many longs the caller's arrays hold is the caller's word: a larger one cannot be found out.
bool says_more_than_there_is(const PublicCall &f, const World &world)
{
    return std::string(f.name) == "kl_geoid_grid" && (world.bad.position == 3 || world.bad.position == 5)
           && world.bad.kind != 0 && *world.bad.integers() > 0;
}

template <typename Result, typename... Parameters>
void call_without_arguments(Result (*function)(Parameters...))
{
    static_cast<void>(function(Parameters{}...));
}

} // namespace

TEST(EveryFunction, IsInTheTableOfCalls)
{
    std::set<std::string> missing;
    std::ifstream symbols("src/exported_symbols.txt");
    for (std::string name; std::getline(symbols, name);)
        if (name.rfind("kl_", 0) == 0 && kTables.count(name) == 0)
            missing.insert(name);
    EXPECT_GE(missing.size(), 70U);
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f)
        EXPECT_EQ(missing.erase(f->name), 1U) << f->name;
    EXPECT_EQ(missing, std::set<std::string>());
}

TEST(EveryFunction, SurvivesEachFailureOfMemoryAndLocks)
{
    SKIP_WITHOUT_FAULTS();
    kl_silent();
    int failures = 0;
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f) {
        const long clean = clean_status(*f); // also fills what is allocated once
        EXPECT_TRUE(!f->has_vector || clean >= KL_OK) << f->name;
        for (const NamedSite &where : kSites)
            for (int nth = 0; fails_and_recovers(*f, where, nth, clean); ++nth)
                ++failures;
    }
    EXPECT_GT(failures, 50);
    RecordProperty("failures", failures);
}

// One argument after the other missing, or no number, or far out of range.
TEST(EveryFunction, RefusesOrBearsAnyArgument)
{
    kl_silent();
    int calls = 0;
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f) {
        const long clean = clean_status(*f);
        int n_arguments = 1;
        for (int at = 0; at < n_arguments; ++at)
            for (int kind = 0; kind < BadArgument::kKinds; ++kind) {
                SCOPED_TRACE(std::string(f->name) + ", argument " + std::to_string(at) + ", " + std::to_string(kind));
                const long blocks = faults::live_blocks();
                World world;
                ASSERT_TRUE(world.open());
                world.bad.position = at;
                world.bad.kind = kind;
                if (says_more_than_there_is(*f, world)) {
                    world.close();
                    continue;
                }
                const long status = f->call(world);
                n_arguments = world.n_arguments;
                world.bad.position = -1;
                const bool vector_given = !(kind == 0 && at == n_arguments - 1);
                if (f->has_vector && vector_given) {
                    const bool error = world.ierr[0] < 0 || world.ierr[1] < 0;
                    const bool any = world.ierr[0] != 0 || world.ierr[1] != 0;
                    EXPECT_TRUE(!error || status == KL_ERR);
                    EXPECT_TRUE(error || status == KL_ERR || status == (any ? KL_WARN : KL_OK)) << status;
                }
                if (f->has_vector && status == KL_ERR) {
                    EXPECT_EQ(f->call(world), clean) << "the next call";
                }
                world.close();
                EXPECT_EQ(faults::live_blocks(), blocks) << "memory kept";
                ++calls;
            }
    }
    EXPECT_GT(calls, 2000);
}

// The functions of the family that look at what they are given; the kernels and the frame chain do not.
TEST(EveryFunction, OfTheFamilyThatChecksItsArgumentsBearsNone)
{
#define BEARS_NOTHING(function)                                                                                        \
    SCOPED_TRACE(#function);                                                                                           \
    call_without_arguments(function);
#include "family_without_arguments.inc"
#undef BEARS_NOTHING
    EXPECT_EQ(KL_Id_init_status(nullptr), 0); // and nothing is open after all that
    EXPECT_EQ(clean_status(*every_call()), 0);
}

// Four threads with the same ids in all functions at once; what they open themselves is their own.
TEST(EveryFunction, GivesEveryThreadOfSharedIdsTheSame)
{
    const std::set<std::string> changes_tables = {"kl_default_sat_init", "kl_default_sat_close", "kl_set_tle_sat_data",
                                                  "kl_set_sp3_sat_data", "kl_check_library_version"};
    kl_silent();
    World shared;
    ASSERT_TRUE(shared.open());
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int round = 0; round < 30; ++round) {
                World own = shared;
                for (const PublicCall *f = every_call(); f != every_call_end(); ++f) {
                    if (changes_tables.count(f->name) != 0)
                        continue;
                    const long status = f->call(own);
                    EXPECT_TRUE(!f->has_vector || status == KL_OK || status == KL_WARN) << f->name << " " << status;
                }
                EXPECT_EQ(std::string(own.text[0]), "2016-06-05_05:59:24"); // 36 s behind TAI
                own.run = -1;                                               // these belong to all
                own.time = {nullptr};
                own.model = {nullptr};
                own.close();
            }
        });
    for (std::thread &thread : threads)
        thread.join();
    shared.close();
}
