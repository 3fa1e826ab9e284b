// On-board clocks and the unsegmented time code, both ways, through the public header.
#include "kl_lib.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr std::size_t kInstants = 4096;
constexpr long kGps = KL_TIME_GPS;

const std::vector<double> &instants()
{
    static const std::vector<double> all = [] {
        std::mt19937_64 random(20260101);
        std::uniform_real_distribution<double> days(1.0, 20000.0);
        std::vector<double> drawn(kInstants);
        for (double &t : drawn)
            t = days(random);
        return drawn;
    }();
    return all;
}

struct ExplicitValues {
    ExplicitValues()
    {
        const double readings[4] = {37.0 / 86400.0, 0.0, 0.25 / 86400.0, 18.0 / 86400.0};
        kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr);
    }
    ~ExplicitValues() { kl_time_close(&id, nullptr); }
    kl_time_id id{};
};

// Argument 0: one conversion to a reading an iteration. Argument 1: one conversion back.
template <typename Reading, typename Write, typename Read>
void both_ways(benchmark::State &state, Reading blank, Write write, Read read)
{
    std::vector<Reading> readings(kInstants, blank);
    for (std::size_t i = 0; i < kInstants; ++i)
        if (write(instants()[i], &readings[i]) != KL_OK)
            state.SkipWithError("no reading");
    std::size_t i = 0;
    double time = 0.0;
    for (auto _ : state) {
        if (state.range(0) == 0) {
            write(instants()[i], &readings[i]);
            benchmark::DoNotOptimize(readings[i]);
        } else {
            read(readings[i], &time);
            benchmark::DoNotOptimize(time);
        }
        i = (i + 1) % kInstants;
    }
}

template <typename Reading, typename Parameters>
void clock_both_ways(benchmark::State &state, long sat_id, const Parameters &parameters)
{
    long ierr[1];
    Reading blank{};
    blank.sat_id = sat_id;
    both_ways(
        state, blank,
        [&](double time, Reading *obt) { return kl_time_time_to_obt(&sat_id, &kGps, &parameters, &time, obt, ierr); },
        [&](const Reading &obt, double *time) {
            return kl_time_obt_to_time(&sat_id, &kGps, &parameters, &obt, time, ierr);
        });
}

void tarvos(benchmark::State &state)
{
    clock_both_ways<kl_obt_tarvos>(state, 21, kl_obt_param_tarvos{21, 100.0, 1000, 77, 1000000000000});
}
void vardo(benchmark::State &state)
{
    clock_both_ways<kl_obt_vardo>(state, 51, kl_obt_param_vardo{51, 18});
}
void kelda(benchmark::State &state)
{
    clock_both_ways<kl_obt_kelda>(state, 61, kl_obt_param_kelda{61, 100, 5, 10, 6, 1.000001, 0.5});
}
void brisa(benchmark::State &state)
{
    clock_both_ways<kl_obt_brisa>(state, 71, kl_obt_param_brisa{71, 18, 1000, 77, 1042, 500000, 3});
}
BENCHMARK(tarvos)->Name("kl_time_time_to_obt, tarvos")->Arg(0);
BENCHMARK(tarvos)->Name("kl_time_obt_to_time, tarvos")->Arg(1);
BENCHMARK(vardo)->Name("kl_time_time_to_obt, vardo")->Arg(0);
BENCHMARK(vardo)->Name("kl_time_obt_to_time, vardo")->Arg(1);
BENCHMARK(kelda)->Name("kl_time_time_to_obt, kelda")->Arg(0);
BENCHMARK(kelda)->Name("kl_time_obt_to_time, kelda")->Arg(1);
BENCHMARK(brisa)->Name("kl_time_time_to_obt, brisa")->Arg(0);
BENCHMARK(brisa)->Name("kl_time_obt_to_time, brisa")->Arg(1);

struct Octets {
    unsigned char octets[KL_CUC_LENGTH];
};

// The second argument is the scale: UTC needs the epoch converted, GPS (1980) and TAI (1958) do not.
void cuc(benchmark::State &state, const kl_cuc_config &config, long scale)
{
    ExplicitValues time_id;
    long ierr[1];
    both_ways(
        state, Octets{},
        [&](double time, Octets *cuc) {
            return kl_time_processing_to_cuc(&time_id.id, &config, &scale, &time, cuc->octets, ierr);
        },
        [&](const Octets &cuc, double *time) {
            return kl_time_cuc_to_processing(&time_id.id, &config, &scale, cuc.octets, time, ierr);
        });
}

constexpr kl_cuc_config kField = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
constexpr kl_cuc_config kWithPField = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 4, 3};
constexpr kl_cuc_config kLongest = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 7, 10};
BENCHMARK_CAPTURE(cuc, field_4_2_gps, kField, KL_TIME_GPS)
    ->Name("kl_time_processing_to_cuc, 4 and 2 octets, GPS")
    ->Arg(0);
BENCHMARK_CAPTURE(cuc, field_4_2_gps, kField, KL_TIME_GPS)
    ->Name("kl_time_cuc_to_processing, 4 and 2 octets, GPS")
    ->Arg(1);
BENCHMARK_CAPTURE(cuc, field_4_2_utc, kField, KL_TIME_UTC)
    ->Name("kl_time_processing_to_cuc, 4 and 2 octets, UTC")
    ->Arg(0);
BENCHMARK_CAPTURE(cuc, field_4_2_utc, kField, KL_TIME_UTC)
    ->Name("kl_time_cuc_to_processing, 4 and 2 octets, UTC")
    ->Arg(1);
BENCHMARK_CAPTURE(cuc, p_field_4_3_utc, kWithPField, KL_TIME_UTC)
    ->Name("kl_time_processing_to_cuc, P field, 4 and 3 octets, UTC")
    ->Arg(0);
BENCHMARK_CAPTURE(cuc, p_field_4_3_utc, kWithPField, KL_TIME_UTC)
    ->Name("kl_time_cuc_to_processing, P field, 4 and 3 octets, UTC")
    ->Arg(1);
BENCHMARK_CAPTURE(cuc, p_field_7_10_utc, kLongest, KL_TIME_UTC)
    ->Name("kl_time_processing_to_cuc, P field, 7 and 10 octets, UTC")
    ->Arg(0);
BENCHMARK_CAPTURE(cuc, p_field_7_10_utc, kLongest, KL_TIME_UTC)
    ->Name("kl_time_cuc_to_processing, P field, 7 and 10 octets, UTC")
    ->Arg(1);

} // namespace
