// Throughput of two threads over that of one, for every public call that only computes; both threads use the same ids.
// Prints a line a function, the median of some runs, and one for arithmetic that shares nothing: what the machine
// gives. Wants a quiet machine of two cores.
#include "support/every_function.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>
#include <vector>

namespace {

constexpr int kRuns = 15;
constexpr auto kRun = std::chrono::milliseconds(40);
constexpr int kBatch = 64; // calls between two looks at the clock

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

// Calls a second of so many threads.
double throughput(const PublicCall &f, const World &shared, int n_threads)
{
    std::atomic<int> ready{0};
    std::atomic<long> calls{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < n_threads; ++i)
        threads.emplace_back([&] {
            World own = shared; // the ids are the same, the outputs its own
            f.call(own);
            ++ready;
            while (ready < n_threads) {
            }
            long done = 0;
            const auto end = std::chrono::steady_clock::now() + kRun;
            while (std::chrono::steady_clock::now() < end) {
                for (int k = 0; k < kBatch; ++k)
                    f.call(own);
                done += kBatch;
            }
            calls += done;
        });
    for (std::thread &thread : threads)
        thread.join();
    return static_cast<double>(calls) / std::chrono::duration<double>(kRun).count();
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
    std::vector<double> one;
    std::vector<double> two;
    std::vector<double> ratio;
    for (int run = 0; run < kRuns; ++run) { // in turn, so that both see the same machine
        one.push_back(throughput(f, shared, 1));
        two.push_back(throughput(f, shared, 2));
        ratio.push_back(two.back() / one.back());
    }
    std::printf("%-44s %14.0f %14.0f %8.2f\n", f.name, median(one), median(two), median(ratio));
    return median(ratio);
}

} // namespace

int main()
{
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
