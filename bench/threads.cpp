// Throughput of two threads over that of one, for every public call that only computes; both threads use the same ids.
// Each thread keeps to a core of its own, and each core works alone and beside the other in turn, in short slices: the
// medians of many leave out those in which the host gave the core to somebody else. Prints a line a function, and one
// for arithmetic that shares nothing: what the machine gives. Last come ids that are opened and closed, which wait for
// one another. Wants a quiet machine of two cores.
#include "support/every_function.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <sched.h>
#include <thread>
#include <vector>

namespace {

constexpr double kWanted = 1.9;
constexpr int kRounds = 101;
constexpr int kLooks = 5; // a call that seems below kWanted is looked at again, and all its slices count
constexpr auto kSlice = std::chrono::milliseconds(4);
constexpr int kBatch = 64; // calls between two looks at the clock

using Rates = std::array<double, 2>; // calls a second, by core

// They open, close, print or change tables of the process; a pair of them stands below.
constexpr const char *kNotMeasured[] = {"kl_silent",
                                        "kl_verbose",
                                        "kl_print_msg",
                                        "kl_free_array",
                                        "kl_time_ref_init",
                                        "kl_time_set_id_data",
                                        "kl_time_close",
                                        "kl_time_get_id_data",
                                        "kl_time_free_id_data",
                                        "kl_model_init",
                                        "kl_model_close",
                                        "kl_default_sat_init",
                                        "kl_default_sat_close",
                                        "kl_set_tle_sat_data",
                                        "kl_set_sp3_sat_data",
                                        "kl_run_init",
                                        "kl_run_close",
                                        "kl_check_library_version"};

bool measured(const char *name)
{
    return std::none_of(std::begin(kNotMeasured), std::end(kNotMeasured),
                        [name](const char *other) { return std::strcmp(name, other) == 0; });
}

bool keep_to(int core)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(core, &set);
    return sched_setaffinity(0, sizeof set, &set) == 0;
}

// What each core does in a slice; a core that is not at work is left as it was.
void work(const PublicCall &f, const World &shared, const std::vector<int> &cores, Rates &rates)
{
    std::atomic<std::size_t> ready{0};
    const auto one = [&](int core) {
        keep_to(core);
        World own = shared; // the ids are the same, the outputs its own
        f.call(own);
        ++ready;
        while (ready < cores.size()) {
        }
        long done = 0;
        const auto start = std::chrono::steady_clock::now();
        auto now = start;
        for (; now < start + kSlice; now = std::chrono::steady_clock::now()) {
            for (int k = 0; k < kBatch; ++k)
                f.call(own);
            done += kBatch;
        }
        rates[static_cast<std::size_t>(core)] =
            static_cast<double>(done) / std::chrono::duration<double>(now - start).count();
    };
    std::vector<std::thread> threads;
    for (const int core : cores)
        threads.emplace_back(one, core);
    for (std::thread &thread : threads)
        thread.join();
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// A logistic map in the thread's own memory.
long arithmetic(World &own)
{
    double x = 0.25 + own.a[0] * 1e-3;
    for (int i = 0; i < 64; ++i)
        x = 3.75 * x * (1.0 - x);
    own.a[0] = x;
    return KL_OK;
}

long time_id_opened_and_closed(World &own)
{
    const double readings[4] = {9497.0 + 37.0 / 86400.0, 9497.0, 9497.0, 9497.0 + 18.0 / 86400.0};
    kl_time_id id = {nullptr};
    const long status = kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, own.ierr);
    return status == KL_OK ? kl_time_close(&id, own.ierr) : status;
}

// On the shared ids: each goes into the lists of both.
long run_opened_and_closed(World &own)
{
    const long sat = 51;
    long run = -1;
    const long status = kl_run_init(&sat, &own.time, &own.model, &run, own.ierr);
    kl_run_close(&run);
    return status;
}

// Prints a line and returns two threads over one.
double measure(const PublicCall &f, const World &shared)
{
    std::vector<double> alone[2];
    std::vector<double> both[2];
    double one = 0.0;
    double two = 0.0;
    for (int look = 0; look < kLooks && (look == 0 || two < kWanted * one); ++look) {
        for (int round = 0; round < kRounds; ++round) {
            Rates rates = {};
            work(f, shared, {0}, rates);
            work(f, shared, {1}, rates);
            for (std::size_t core = 0; core < 2; ++core)
                alone[core].push_back(rates[core]);
            work(f, shared, {0, 1}, rates);
            for (std::size_t core = 0; core < 2; ++core)
                both[core].push_back(rates[core]);
        }
        one = (median(alone[0]) + median(alone[1])) / 2.0;
        two = median(both[0]) + median(both[1]);
    }
    std::printf("%-44s %14.0f %14.0f %8.2f\n", f.name, one, two, two / one);
    return two / one;
}

} // namespace

int main()
{
    if (std::thread::hardware_concurrency() < 2 || !keep_to(1) || !keep_to(0)) {
        std::fputs("Two cores are wanted, 0 and 1.\n", stderr);
        return 1;
    }
    World shared;
    if (!shared.open())
        return 1;
    kl_silent();
    std::printf("%-44s %14s %14s %8s\n", "function", "calls/s, one", "calls/s, two", "ratio");
    const PublicCall alone = {"arithmetic alone", arithmetic, false};
    std::vector<double> ratios;
    measure(alone, shared);
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f)
        if (measured(f->name))
            ratios.push_back(measure(*f, shared));
    measure(alone, shared);
    measure({"a time id opened and closed", time_id_opened_and_closed, false}, shared);
    measure({"a run opened and closed, shared ids", run_opened_and_closed, false}, shared);
    std::sort(ratios.begin(), ratios.end());
    const auto below = std::lower_bound(ratios.begin(), ratios.end(), kWanted) - ratios.begin();
    std::printf("%zu calls: lowest %.2f, median %.2f, %ld below %.1f\n", ratios.size(), ratios.front(),
                ratios[ratios.size() / 2], static_cast<long>(below), kWanted);
    shared.close();
    return 0;
}
