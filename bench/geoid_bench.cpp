// Geoid undulation: single points by every way, grids, and GeographicLib with the same coefficients. GEOID_LISTINGS is
// a directory with the listings potential.txt and correction.txt.
#include "earth/geoid.h"

#include <GeographicLib/GravityModel.hpp>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr long kDegree = 360;

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
    walk.at.max_degree = state.range(0);
    double value;
    long ierr;
    for (auto _ : state) {
        kl_geoid_calc(&walk.next(), &value, &ierr);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(single)->Name("kl_geoid_calc")->ArgName("degree")->Arg(10)->Arg(36)->Arg(90)->Arg(180)->Arg(kDegree);

void rival(benchmark::State &state)
{
    static const GeographicLib::GravityModel model = make_rival();
    Walk walk;
    for (auto _ : state) {
        const kl_geoid_input &at = walk.next();
        benchmark::DoNotOptimize(model.GeoidHeight(at.latitude, at.longitude));
    }
}
BENCHMARK(rival)->Name("kl_geoid_calc/degree:360/rival GeographicLib GravityModel::GeoidHeight");

void by_way(benchmark::State &state)
{
    Walk walk;
    double value;
    for (auto _ : state) {
        if (geoid_undulation_by(state.range(0), &walk.next(), nullptr, &value) != 0) {
            state.SkipWithError("not on this machine");
            break;
        }
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(by_way)->Name("degree 360, published routines")->Arg(-1);
BENCHMARK(by_way)->Name("degree 360, kernel, baseline instructions")->Arg(0);
BENCHMARK(by_way)->Name("degree 360, kernel, AVX2")->Arg(1);
BENCHMARK(by_way)->Name("degree 360, kernel, AVX-512")->Arg(2);

void grid(benchmark::State &state)
{
    const long n_lat = 4, n_lon = state.range(0) / n_lat;
    std::vector<double> lon(static_cast<std::size_t>(n_lon)), out(lon.size() * 4);
    for (std::size_t i = 0; i < lon.size(); ++i)
        lon[i] = 360.0 * static_cast<double>(i) / static_cast<double>(n_lon);
    const double lat[4] = {-72.0, -5.0, 33.3, 60.0};
    long ierr;
    for (auto _ : state)
        kl_geoid_grid(nullptr, &kDegree, lat, &n_lat, lon.data(), &n_lon, out.data(), &ierr);
    state.SetItemsProcessed(state.iterations() * n_lat * n_lon);
}
BENCHMARK(grid)
    ->Name("kl_geoid_grid, a point of 4 parallels")
    ->ArgName("points")
    ->Arg(4)
    ->Arg(40)
    ->Arg(400)
    ->Arg(5760)
    ->Arg(40000);

} // namespace
