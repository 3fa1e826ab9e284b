// A million states of a satellite, a tenth of a second apart: where over the Earth, and how high? In C++, over vectors
// of one's own, in blocks that stay in the caches; million_states.c is the same in C.
#include "orbkit.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

using ORBKIT::Arrays;

namespace {

constexpr long kBlock = 10000;
constexpr long kBlocks = 100;

struct Block {
    std::vector<double> time = std::vector<double>(kBlock);
    std::vector<kl_kepler> elements = std::vector<kl_kepler>(kBlock);
    std::vector<ORBKIT::Vector> pos = std::vector<ORBKIT::Vector>(kBlock), vel = pos, acc = pos;
    std::vector<kl_geodetic> place = std::vector<kl_geodetic>(kBlock);
    std::vector<long> status = std::vector<long>(kBlock);

    // An orbit whose node follows the Sun; one instant in the middle is spoilt.
    void begin(long block)
    {
        constexpr double kDay = 86400.0, kMotion = 360.0 / 6038.0; // deg/s
        for (long i = 0; i < kBlock; ++i) {
            const long number = block * kBlock + i;
            const double seconds = 0.1 * static_cast<double>(number);
            const auto k = static_cast<std::size_t>(i);
            elements[k] = {7167000.0, 0.001, 98.6, 120.0 + 0.9856 * seconds / kDay, 90.0, kMotion * seconds};
            time[k] = number == 500000 ? std::nan("") : 9668.0 + seconds / kDay;
        }
    }
};

} // namespace

int main()
{
    const ORBKIT::TimeId time_id = ORBKIT::TimeId::builtIn();
    const ORBKIT::ModelId models;
    Block b;
    long refused = 0, polar = 0;
    double lowest = 1e9, highest = 0.0;
    for (long block = 0; block < kBlocks; ++block) {
        b.begin(block);
        // Each call takes what the one before left, in place where the shapes agree. A row that is refused becomes NaN,
        // and the next call refuses it again: the others go on.
        Arrays::keplToCart(models, KL_KEPLER_OSCULATING, b.elements, b.pos, b.vel, b.status);
        Arrays::changeCartCs(models, time_id, KL_CALC_POS_VEL, KL_TOD, KL_EF, KL_TIME_UTC, b.time, b.pos, b.vel, b.acc,
                             b.pos, b.vel, b.acc, b.status);
        Arrays::cartToGeod(models, KL_CALC_POS, b.pos, b.vel, b.place, b.status);
        for (std::size_t i = 0; i < b.place.size(); ++i) {
            if (b.status[i] == KL_ERR) {
                ++refused;
                continue;
            }
            polar += std::fabs(b.place[i].latitude) > 66.5 ? 1 : 0;
            lowest = std::min(lowest, b.place[i].height);
            highest = std::max(highest, b.place[i].height);
        }
    }
    std::printf("%ld states, %ld refused\n", kBlock * kBlocks, refused);
    std::printf("heights %.3f to %.3f km\n", lowest / 1000.0, highest / 1000.0);
    std::printf("%.2f %% of them beyond the polar circles\n",
                100.0 * static_cast<double>(polar) / static_cast<double>(kBlock * kBlocks - refused));
}
