// Throughput of two threads over that of one, for every public call that only computes; both threads use the same ids.
// Each thread keeps to a core of its own, and each core works alone and beside the other in turn, in short slices: the
// medians of many leave out those in which the host gave the core to somebody else. Prints a line a function, and one
// for arithmetic that shares nothing: what the machine gives. Wants a quiet machine of two cores.
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

constexpr int kRounds = 101;
constexpr auto kSlice = std::chrono::milliseconds(4);
constexpr int kBatch = 64; // calls between two looks at the clock

using Rates = std::array<double, 2>; // calls a second, by core

// They open, close, print or change tables of the process.
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

// Prints a line and returns two threads over one.
double measure(const PublicCall &f, const World &shared)
{
    std::vector<double> alone[2];
    std::vector<double> both[2];
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
    const double one = (median(alone[0]) + median(alone[1])) / 2.0;
    const double two = median(both[0]) + median(both[1]);
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
    std::vector<double> ratios;
    measure({"arithmetic alone", arithmetic, false}, shared);
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f)
        if (measured(f->name))
            ratios.push_back(measure(*f, shared));
    measure({"arithmetic alone", arithmetic, false}, shared);
    std::sort(ratios.begin(), ratios.end());
    std::printf("%zu calls: lowest %.2f, median %.2f\n", ratios.size(), ratios.front(), ratios[ratios.size() / 2]);
    shared.close();
    return 0;
}
