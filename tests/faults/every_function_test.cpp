// Every public function, with each of its allocations and lock calls failing in turn.
#include "kl_family.h"
#include "support/csv.h"
#include "support/every_function.h"
#include "support/fault_injection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

const std::set<std::string> kTables = {"kl_default_sat_array", "kl_default_sat_names", "kl_months"};

constexpr const char *kSites[] = {"allocation", "mutex initialisation", "lock", "unlock"}; // as in faults::Site

// By site the number of uses, from the first, without which a function gives up, and what it leaves in its vector then;
// it does without the others. A function that is not here does without all of them.
struct Needs {
    std::pair<int, long> of[4];
    long kept; // blocks of what an unlocking that fails leaves closed but not freed
};
std::map<std::string, Needs> needs = {
#include "needs.inc"
};

// What the call leaves when nothing fails.
Outputs clean_outputs(const PublicCall &f)
{
    World world;
    EXPECT_TRUE(world.open());
    const Outputs outputs = outputs_of(f, world);
    world.close();
    return outputs;
}

// One call with the nth use of a site failing, then the call again; false when it does not use the site that often.
bool fails_and_recovers(const PublicCall &f, int site, int nth, const Outputs &clean)
{
    SCOPED_TRACE(std::string(f.name) + ", " + kSites[site] + " " + std::to_string(nth));
    const Needs &needed = needs[f.name];
    const auto [uses, bits] = needed.of[site];
    const long blocks = faults::live_blocks();
    World world;
    EXPECT_TRUE(world.open());
    faults::Fail fail(static_cast<faults::Site>(site), nth);
    outputs_of(f, world);
    const bool failed = fail.disarm();
    EXPECT_TRUE(nth < uses
                    ? failed && world.status == status_with(bits) && world.ierr[0] == (bits == kRefused ? 0 : bits)
                    : clean == world)
        << world.status << " " << world.ierr[0];
    EXPECT_TRUE(clean == outputs_of(f, world)) << "the second call: " << world.status << " " << world.ierr[0];
    world.close();
    const bool stays = failed && site == static_cast<int>(faults::Site::kMutexUnlock);
    EXPECT_EQ(faults::live_blocks() - blocks, stays ? needed.kept : 0) << "memory kept";
    EXPECT_EQ(std::count(kl_default_sat_array, std::end(kl_default_sat_array), 0), 10) << "satellites kept";
    return failed;
}

// How many longs the caller's arrays hold is the caller's word: a larger one cannot be found out.
bool says_more_than_there_is(const PublicCall &f, const BadArgument &bad)
{
    const std::string name = f.name;
    const bool count = (name == "kl_geoid_grid" && (bad.position == 3 || bad.position == 5))
                       || (name == "kl_time_ref_init_file" && bad.position == 1)
                       || ((name == "kl_time_id_init" || name == "kl_interpolate_states") && bad.position == 0);
    return count && bad.kind != 0 && *bad.integers() > 0;
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
    const auto is_array_form = [](const std::string &name) {
        return name.size() > 2 && name.substr(name.size() - 2) == "_n";
    };
    for (std::string name; std::getline(symbols, name);) // array forms have their own law
        if (name.rfind("kl_", 0) == 0 && kTables.count(name) == 0 && !is_array_form(name))
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
        const Outputs clean = clean_outputs(*f); // also fills what is allocated once
        EXPECT_TRUE(!f->has_vector || clean.status >= KL_OK) << f->name;
        for (int site = 0; site < 4; ++site)
            for (int nth = 0; fails_and_recovers(*f, site, nth, clean); ++nth)
                ++failures;
    }
    EXPECT_GT(failures, 50);
}

// One argument after the other missing, or no number, or far out of range.
TEST(EveryFunction, RefusesOrBearsAnyArgument)
{
    kl_silent();
    int calls = 0;
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f) {
        const Outputs clean = clean_outputs(*f);
        int n_arguments = 1;
        for (int at = 0; at < n_arguments; ++at)
            for (int kind = 0; kind < BadArgument::kKinds; ++kind) {
                SCOPED_TRACE(std::string(f->name) + ", argument " + std::to_string(at) + ", " + std::to_string(kind));
                const BadArgument bad = {at, kind};
                if (says_more_than_there_is(*f, bad))
                    continue;
                const long blocks = faults::live_blocks();
                World world;
                ASSERT_TRUE(world.open());
                world.bad = bad;
                const long status = outputs_of(*f, world).status;
                n_arguments = world.n_arguments;
                world.bad.position = -1;
                const bool vector_given = !(kind == 0 && at == n_arguments - 1);
                if (f->has_vector && vector_given) {
                    const long words = world.ierr[0] | world.ierr[1];
                    EXPECT_TRUE(status == KL_ERR || status == status_with(words)
                                || (!f->has_conditions && words == 0 && status == KL_WARN))
                        << status << " " << words;
                }
                if (f->has_vector && status == KL_ERR) {
                    EXPECT_TRUE(outputs_of(*f, world) == clean) << "the next call";
                }
                world.close();
                EXPECT_EQ(faults::live_blocks(), blocks) << "memory kept";
                ++calls;
            }
    }
    EXPECT_GT(calls, 2000);
}

// The names of a function's parameters, as its header has them.
std::vector<std::string> parameters_of(const std::string &function)
{
    static const std::string headers = [] {
        std::ostringstream all;
        for (const auto &header : std::filesystem::directory_iterator("include/kl"))
            all << std::ifstream(header.path()).rdbuf();
        return all.str();
    }();
    const std::string opening = "KL_API long " + function + "(";
    const std::size_t at = headers.find(opening) + opening.size();
    std::vector<std::string> names;
    for (std::string parameter : parts_of(headers.substr(at, headers.find(");", at) - at), ',')) {
        parameter.resize(std::min(parameter.size(), parameter.find('[')));
        names.push_back(parameter.substr(parameter.find_last_of(" *") + 1));
    }
    return names;
}

// Valid calls of which some arguments are others: what is refused, which writes nothing, and at the edges what is not.
TEST(EveryFunction, RefusesWhatItsTableSays)
{
    kl_silent();
    std::map<std::string, const PublicCall *> calls;
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f)
        calls[f->name] = f;
    for (const auto &[function, changes, bits] : read_rows<std::string, std::string, Bits>("refusals.csv")) {
        SCOPED_TRACE(function + ": " + changes);
        const std::vector<std::string> names = parameters_of(function);
        World world;
        ASSERT_TRUE(world.open());
        world.given.resize(names.size());
        for (const std::string &change : parts_of(changes, ';')) {
            const std::string name = change.substr(0, change.find('=')), value = change.substr(name.size() + 1);
            const auto at = std::find(names.begin(), names.end(), name);
            ASSERT_NE(at, names.end()) << name;
            world.given[static_cast<std::size_t>(at - names.begin())] =
                value.rfind("KL_", 0) == 0 ? std::to_string(constant_named(value)) : value;
        }
        outputs_of(*calls.at(function), world);
        EXPECT_EQ(std::tuple(world.status, world.ierr[0]),
                  std::tuple(status_with(bits), bits == kRefused ? 0 : bits.value));
        Outputs untouched;
        untouched.status = world.status;
        untouched.ierr[0] = world.ierr[0];
        EXPECT_EQ(untouched == world, world.status == KL_ERR);
        world.close();
    }
}

// The functions of the family that look at what they are given; the kernels and the frame chain do not.
TEST(EveryFunction, OfTheFamilyThatChecksItsArgumentsBearsNone)
{
#define BEARS_NOTHING(function)                                                                                        \
    SCOPED_TRACE(#function);                                                                                           \
    call_without_arguments(function);
#include "support/family_without_arguments.inc"
#undef BEARS_NOTHING
    EXPECT_EQ(clean_outputs(*every_call()).status, 0); // and the next call is as ever
}

// Four threads with the same ids in all functions at once, their runs opened and closed among these, while a fifth
// tries to close the ids.
TEST(EveryFunction, GivesEveryThreadOfSharedIdsTheSame)
{
    const std::set<std::string> changes_tables = {"kl_default_sat_init", "kl_default_sat_close", "kl_set_tle_sat_data",
                                                  "kl_set_sp3_sat_data", "kl_check_library_version"};
    kl_silent();
    World shared;
    ASSERT_TRUE(shared.open());
    std::vector<Outputs> alone[4]; // each at an instant of its own
    const auto check_all = [&](int t) {
        World own = shared;
        own.at += t;
        std::size_t n = 0;
        for (const PublicCall *f = every_call(); f != every_call_end(); ++f, ++n) {
            if (changes_tables.count(f->name) != 0)
                continue;
            outputs_of(*f, own);
            if (alone[t].size() <= n)
                alone[t].resize(n + 1, own);
            const char *const expected = reinterpret_cast<const char *>(&alone[t][n]);
            const char *const found = reinterpret_cast<const char *>(static_cast<Outputs *>(&own));
            EXPECT_TRUE(alone[t][n] == own)
                << f->name << ": " << own.status << " for " << alone[t][n].status << ", " << own.ierr[0] << " for "
                << alone[t][n].ierr[0] << ", octet "
                << std::mismatch(expected, expected + sizeof(Outputs), found).first - expected;
        }
        own.run = -1; // these belong to all
        own.time.record = own.model.record = nullptr;
        own.close();
    };
    for (int t = 0; t < 4; ++t)
        check_all(t);
    std::atomic<int> at_work{4};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            const long blocks = faults::live_blocks();
            for (int round = 0; round < 200; ++round)
                check_all(t);
            EXPECT_EQ(faults::live_blocks(), blocks);
            --at_work;
        });
    while (at_work > 0) {
        kl_time_id time = shared.time;
        kl_model_id model = shared.model;
        LEAVES(error_bits(KL_TIME_REF_CLOSE_ID_ERR), kl_time_close(&time, e)) // the run holds it
        LEAVES(error_bits(KL_MODEL_CLOSE_ID_ERR), kl_model_close(&model, e))
    }
    for (std::thread &thread : threads)
        thread.join();
    shared.close();
    EXPECT_TRUE(shared.time.record == nullptr && shared.model.record == nullptr) << "still linked";
}
