// Geoid undulation to degree 360: single points by every way, grids, threads, and GeographicLib with the same
// coefficients. GEOID_LISTINGS is a directory with the listings potential.txt and correction.txt.
#include "kl_family.h"

#include <GeographicLib/GravityModel.hpp>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr long kDegree = 360;
using Clock = std::chrono::steady_clock;

// A new point for each call.
struct Walk {
    kl_geoid_input at = {nullptr, -87.0, 0.0, 0.0, kDegree};
    const kl_geoid_input &next()
    {
        at.latitude += 1.2345678;
        if (at.latitude > 88.0)
            at.latitude -= 175.0;
        at.longitude += 77.654321;
        if (at.longitude > 360.0)
            at.longitude -= 360.0;
        return at;
    }
};

// GeographicLib's two files of a gravity model, from our listings.
void append(std::string &bytes, const void *data, std::size_t size)
{
    bytes.append(static_cast<const char *>(data), size);
}

void append_set(std::string &bytes, const std::string &listing)
{
    std::vector<double> c[kDegree + 1], s[kDegree + 1]; // by order, then degree
    for (long m = 0; m <= kDegree; ++m) {
        c[m].assign(static_cast<std::size_t>(kDegree - m + 1), 0.0);
        s[m] = c[m];
    }
    std::ifstream file(listing);
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        long n, m;
        double cosine, sine;
        if (fields >> n >> m >> cosine >> sine) {
            c[m][static_cast<std::size_t>(n - m)] = cosine;
            s[m][static_cast<std::size_t>(n - m)] = sine;
        }
    }
    const std::int32_t degrees[2] = {kDegree, kDegree};
    append(bytes, degrees, sizeof degrees);
    for (long m = 0; m <= kDegree; ++m)
        append(bytes, c[m].data(), c[m].size() * sizeof(double));
    for (long m = 1; m <= kDegree; ++m)
        append(bytes, s[m].data(), s[m].size() * sizeof(double));
}

GeographicLib::GravityModel make_rival()
{
    const std::string directory = GEOID_LISTINGS;
    std::ofstream(directory + "/egm96_bench.egm")
        << "EGMF-1\nName egm96_bench\nModelRadius 6378137\nModelMass 3986004.418e8\nAngularVelocity 7292115e-11\n"
           "ReferenceRadius 6378137\nReferenceMass 3986004.418e8\nFlattening 1/298.257223563\nHeightOffset -0.53\n"
           "CorrectionMultiplier 0.01\nNormalization full\nID EGM96BEN\n";
    std::string bytes = "EGM96BEN";
    append_set(bytes, directory + "/potential.txt");
    append_set(bytes, directory + "/correction.txt");
    std::ofstream(directory + "/egm96_bench.egm.cof", std::ios::binary) << bytes;
    return GeographicLib::GravityModel("egm96_bench", directory);
}

void single(benchmark::State &state)
{
    Walk walk;
    double value;
    long ierr;
    for (auto _ : state) {
        kl_geoid_calc(&walk.next(), &value, &ierr);
        benchmark::DoNotOptimize(value);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(single)->Name("kl_geoid_calc")->Unit(benchmark::kMicrosecond);

void by_way(benchmark::State &state)
{
    Walk walk;
    double value;
    for (auto _ : state) {
        if (KL_Geoid_undu_by(state.range(0), &walk.next(), nullptr, &value) != 0) {
            state.SkipWithError("not on this machine");
            break;
        }
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(by_way)->Name("published routines")->Unit(benchmark::kMicrosecond)->Arg(-1);
BENCHMARK(by_way)->Name("kernel, baseline instructions")->Unit(benchmark::kMicrosecond)->Arg(0);
BENCHMARK(by_way)->Name("kernel, AVX2")->Unit(benchmark::kMicrosecond)->Arg(1);
BENCHMARK(by_way)->Name("kernel, AVX-512")->Unit(benchmark::kMicrosecond)->Arg(2);

void grid(benchmark::State &state)
{
    const long n_lat = 4, n_lon = state.range(0);
    std::vector<double> lon(static_cast<std::size_t>(n_lon)), out(lon.size() * 4);
    for (std::size_t i = 0; i < lon.size(); ++i)
        lon[i] = 360.0 * static_cast<double>(i) / static_cast<double>(n_lon);
    const double lat[4] = {-72.0, -5.0, 33.3, 60.0};
    long ierr;
    const auto start = Clock::now();
    for (auto _ : state)
        kl_geoid_grid(nullptr, &kDegree, lat, &n_lat, lon.data(), &n_lon, out.data(), &ierr);
    const std::chrono::duration<double, std::micro> time = Clock::now() - start;
    state.counters["us_a_point"] = time.count() / static_cast<double>(state.iterations() * n_lat * n_lon);
}
BENCHMARK(grid)->Name("kl_geoid_grid, 4 parallels of")->Unit(benchmark::kMicrosecond)->Arg(100)->Arg(1440)->Arg(10000);

// Calls a second of one thread and of two, in turn.
double calls_a_second(int n_threads)
{
    constexpr int kCalls = 2000;
    std::vector<std::thread> threads;
    const auto start = Clock::now();
    for (int t = 0; t < n_threads; ++t)
        threads.emplace_back([] {
            Walk walk;
            double value;
            long ierr;
            for (int i = 0; i < kCalls; ++i)
                kl_geoid_calc(&walk.next(), &value, &ierr);
        });
    for (std::thread &thread : threads)
        thread.join();
    return n_threads * kCalls / std::chrono::duration<double>(Clock::now() - start).count();
}

void threads(benchmark::State &state)
{
    std::vector<double> ratios;
    for (auto _ : state)
        ratios.push_back(calls_a_second(2) / calls_a_second(1));
    std::sort(ratios.begin(), ratios.end());
    state.counters["two_over_one"] = ratios[ratios.size() / 2];
}
BENCHMARK(threads)->Name("two threads over one, median")->Unit(benchmark::kMillisecond)->Iterations(11);

// Both in turn on the same points: their times, and how far they are apart.
void beside_rival(benchmark::State &state)
{
    const GeographicLib::GravityModel rival = make_rival();
    Walk walk;
    double value, worst = 0.0;
    long ierr;
    Clock::duration ours{}, its{};
    for (auto _ : state) {
        const kl_geoid_input &at = walk.next();
        const auto start = Clock::now();
        kl_geoid_calc(&at, &value, &ierr);
        const auto middle = Clock::now();
        const double height = rival.GeoidHeight(at.latitude, at.longitude);
        its += Clock::now() - middle;
        ours += middle - start;
        worst = std::fmax(worst, std::fabs(height - value));
    }
    const double calls = static_cast<double>(state.iterations());
    state.counters["us_ours"] = std::chrono::duration<double, std::micro>(ours).count() / calls;
    state.counters["us_rival"] = std::chrono::duration<double, std::micro>(its).count() / calls;
    state.counters["times_faster"] = static_cast<double>(its.count()) / static_cast<double>(ours.count());
    state.counters["um_apart"] = worst * 1e6; // another GM and the radii of the zonal terms
}
BENCHMARK(beside_rival)->Name("beside GeographicLib GravityModel::GeoidHeight")->Unit(benchmark::kMicrosecond);

} // namespace
