// Places of stars beside ERFA's, from the catalogue to the apparent place; catalogues in a window.
#include "kl_lib.h"

#include <benchmark/benchmark.h>
#include <erfa.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr kl_star kSirius = {101.287155, -16.716116, -546.01, -1223.07, 379.21, -5.5, 0.5, -1.46, 2491};
constexpr double kRad = 0.017453292519943295;
constexpr double kMas = kRad / 3.6e6;

// A new instant for each call.
class Epochs {
public:
    double next() { return days_ = days_ > 9000.0 ? days_ - 9000.0 : days_ + 0.7310585; }

private:
    double days_ = 0.0;
};

struct TimeId {
    kl_time_id id = {};
    TimeId()
    {
        const double readings[4] = {8000.0, 8000.0 - 37.0 / 86400.0, 8000.0 - 37.0 / 86400.0, 8000.0 - 19.0 / 86400.0};
        if (kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr) != KL_OK)
            std::abort();
    }
    ~TimeId() { kl_time_close(&id, nullptr); }
};

void one_place(benchmark::State &state)
{
    TimeId time_id;
    Epochs epochs;
    const long every = 7, tod = KL_TOD, tai = KL_TIME_TAI;
    kl_radec place;
    for (auto _ : state) {
        const double time = epochs.next();
        if (kl_star_radec(nullptr, &time_id.id, &every, &tod, &tai, &time, &kSirius, nullptr, nullptr, &place, nullptr)
            != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(place);
    }
}

void erfa_place(benchmark::State &state)
{
    Epochs epochs;
    for (auto _ : state) {
        double ri, di, eo;
        eraAtci13(kSirius.ra * kRad, kSirius.dec * kRad, kSirius.pm_ra * kMas, kSirius.pm_dec * kMas,
                  kSirius.parallax * 1e-3, kSirius.radial_velocity, 2451544.5, epochs.next(), &ri, &di, &eo);
        benchmark::DoNotOptimize(ri + di + eo);
    }
}

constexpr long kMany = 4096;

void many_places(benchmark::State &state)
{
    TimeId time_id;
    const long every = 7, tod = KL_TOD, tai = KL_TIME_TAI;
    static kl_star stars[kMany];
    static kl_radec places[kMany];
    static double time[kMany];
    for (long i = 0; i < kMany; ++i) {
        stars[i] = kSirius;
        stars[i].ra = 360.0 * static_cast<double>(i) / kMany;
        time[i] = 9000.25;
    }
    for (auto _ : state)
        if (kl_star_radec_n(nullptr, &time_id.id, &kMany, &every, &tod, &tai, time, stars, nullptr, nullptr, places,
                            nullptr, nullptr)
            != KL_OK)
            state.SkipWithError("refused");
    state.SetItemsProcessed(state.iterations() * kMany);
}

void erfa_places(benchmark::State &state)
{
    eraASTROM context;
    double eo;
    eraApci13(2451544.5, 9000.25, &context, &eo);
    double ra = 0.0;
    for (auto _ : state) {
        double ri, di;
        ra = ra > 6.28 ? 0.0 : ra + 0.0015;
        eraAtciq(ra, kSirius.dec * kRad, kSirius.pm_ra * kMas, kSirius.pm_dec * kMas, kSirius.parallax * 1e-3,
                 kSirius.radial_velocity, &context, &ri, &di);
        benchmark::DoNotOptimize(ri + di);
    }
}

// A text of 20000 stars all over the sky, in a format of our own.
std::string star_file()
{
    std::string name = "stars_bench.txt";
    std::FILE *file = std::fopen(name.c_str(), "w");
    if (file == nullptr)
        std::abort();
    std::fputs("KL_STARS 1\n", file);
    for (int i = 0; i < 20000; ++i)
        std::fprintf(file, "%d %.2f %.6f %.6f %.2f %.2f %.2f %.1f 0.5\n", i, 2.0 + (i % 900) / 100.0,
                     (i * 7919 % 360000) / 1000.0, (i * 104729 % 179999) / 1000.0 - 90.0, i % 51 - 25.0, i % 37 - 18.0,
                     (i % 101) / 10.0, i % 61 - 30.0);
    std::fclose(file);
    return name;
}

void catalogue(benchmark::State &state, bool from_file, bool cone, long stars_in_it)
{
    TimeId time_id;
    const std::string name = from_file ? star_file() : "";
    const long every = 7, tod = KL_TOD, tai = KL_TIME_TAI;
    const double time = 9000.25;
    const kl_star_window window = {-30.0, 30.0, 0.0, 360.0, -90.0, 90.0, 83.8, -5.4, cone ? 10.0 : 0.0};
    for (auto _ : state) {
        long n = 0;
        kl_star *stars = nullptr;
        kl_radec *places = nullptr;
        if (kl_star_catalog(nullptr, &time_id.id, name.c_str(), &window, &every, &tod, &tai, &time, &n, &stars, &places,
                            nullptr)
            != KL_OK)
            state.SkipWithError("refused");
        void *taken[2] = {stars, places};
        kl_free_array(&taken[0]);
        kl_free_array(&taken[1]);
    }
    state.SetItemsProcessed(state.iterations() * stars_in_it);
    if (from_file)
        std::remove(name.c_str());
}

BENCHMARK(one_place)->Name("kl_star_radec to KL_TOD");
BENCHMARK(erfa_place)->Name("kl_star_radec to KL_TOD/rival eraAtci13");
BENCHMARK(many_places)->Name("kl_star_radec_n to KL_TOD, one instant");
BENCHMARK(erfa_places)->Name("kl_star_radec_n to KL_TOD, one instant/rival eraAtciq, prepared");
BENCHMARK_CAPTURE(catalogue, cone, false, true, 8404)->Name("kl_star_catalog built in, a star, cone of 10 deg");
BENCHMARK_CAPTURE(catalogue, all, false, false, 8404)->Name("kl_star_catalog built in, a star, whole sky");
BENCHMARK_CAPTURE(catalogue, file_cone, true, true, 20000)->Name("kl_star_catalog of a file, a star, cone of 10 deg");
BENCHMARK_CAPTURE(catalogue, file, true, false, 20000)->Name("kl_star_catalog of a file, a star, whole sky");

} // namespace
