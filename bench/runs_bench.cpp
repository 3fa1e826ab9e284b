// Runs: a twin beside its function, opening and closing, and the checks of a satellite id.
#include "kl_family.h"

#include <benchmark/benchmark.h>

namespace {

constexpr long kSatId = 51;
constexpr double kDay = 6210.25;
constexpr double kDaysPerSecond = 1.0 / 86400.0;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kProc = KL_PROC;

// A time id of explicit values, and a run on it.
struct Fixture {
    kl_time_id time = {};
    long run = -1;

    Fixture()
    {
        const double tai = kDay + 37 * kDaysPerSecond;
        const double times[4] = {tai, kDay, kDay - 0.408 * kDaysPerSecond, tai - 19 * kDaysPerSecond};
        kl_time_ref_init(times, nullptr, nullptr, nullptr, &time, nullptr);
        kl_run_init(&kSatId, &time, nullptr, &run, nullptr);
    }
    ~Fixture()
    {
        kl_run_close(&run);
        kl_time_close(&time, nullptr);
    }
    Fixture(const Fixture &) = delete;
    Fixture &operator=(const Fixture &) = delete;
};

void BM_Convert(benchmark::State &state)
{
    Fixture f;
    double out = 0;
    long ierr[1];
    for (auto _ : state) {
        kl_time_processing_to_processing(&f.time, &kProc, &kUtc, &kDay, &kProc, &kTai, &out, ierr);
        benchmark::DoNotOptimize(out);
    }
}

void BM_ConvertRun(benchmark::State &state)
{
    Fixture f;
    double out = 0;
    long ierr[1];
    for (auto _ : state) {
        kl_time_processing_to_processing_run(&f.run, &kProc, &kUtc, &kDay, &kProc, &kTai, &out, ierr);
        benchmark::DoNotOptimize(out);
    }
}

void BM_Moon(benchmark::State &state)
{
    Fixture f;
    kl_model_id model = {};
    double pos[3], vel[3];
    long ierr[1];
    for (auto _ : state) {
        kl_moon(&model, &f.time, &kUtc, &kDay, pos, vel, ierr);
        benchmark::DoNotOptimize(pos);
    }
}

void BM_MoonRun(benchmark::State &state)
{
    Fixture f;
    double pos[3], vel[3];
    long ierr[1];
    for (auto _ : state) {
        kl_moon_run(&f.run, &kUtc, &kDay, pos, vel, ierr);
        benchmark::DoNotOptimize(pos);
    }
}

void BM_RunInitClose(benchmark::State &state)
{
    Fixture f;
    long run = -1;
    long ierr[1];
    for (auto _ : state) {
        kl_run_init(&kSatId, &f.time, nullptr, &run, ierr);
        kl_run_close(&run);
    }
}

void BM_CheckSatId(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KL_Check_sat_id(&kSatId, nullptr));
}

} // namespace

BENCHMARK(BM_Convert)->Name("kl_time_processing_to_processing");
BENCHMARK(BM_ConvertRun)->Name("kl_time_processing_to_processing/rival kl_time_processing_to_processing_run");
BENCHMARK(BM_Moon)->Name("kl_moon");
BENCHMARK(BM_MoonRun)->Name("kl_moon/rival kl_moon_run");
BENCHMARK(BM_RunInitClose)->Name("kl_run_init, kl_run_close");
BENCHMARK(BM_CheckSatId)->Name("KL_Check_sat_id");
