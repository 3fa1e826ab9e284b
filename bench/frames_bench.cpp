// Frame changes through the public function, and the rival built from ERFA: the position alone, by the matrices of IAU
// 1976 precession, 1980 nutation and 1994 sidereal time.
#include "kl_lib.h"
#include "one_instant.h"

#include <benchmark/benchmark.h>
#include <erfa.h>

namespace {

constexpr double kPos[3] = {4.2e6, -3.7e6, 4.1e6};
constexpr double kVel[3] = {5.1e3, 5.3e3, -0.4e3};
constexpr double kAcc[3] = {-4.9, 4.3, -4.8};

void change(benchmark::State &state, long from, long to)
{
    TimeId time_id;
    kl_model_id model_id = {};
    Epochs epochs;
    const long mode = KL_CALC_POS_VEL_ACC;
    const long ref = KL_TIME_UTC;
    double pos[3], vel[3], acc[3];
    for (auto _ : state) {
        const double time = epochs.next();
        long ierr = 0;
        if (kl_change_cart_cs(&model_id, &time_id.id, &mode, &from, &to, &ref, &time, kPos, kVel, kAcc, pos, vel, acc,
                              &ierr)
            != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(pos);
        benchmark::DoNotOptimize(vel);
        benchmark::DoNotOptimize(acc);
    }
}

void rival(benchmark::State &state)
{
    Epochs epochs;
    for (auto _ : state) {
        // Constant offsets: the rival pays nothing for its time scales.
        const double utc = epochs.next();
        const double tt = utc + (kLeapSeconds + 32.184) / kSecondsPerDay;
        const double ut1 = utc + kUt1MinusUtc / kSecondsPerDay;
        double precession[3][3], nutation[3][3], turn[3][3], earth_rotation[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        double pos[3] = {kPos[0], kPos[1], kPos[2]};
        eraPmat76(kJdOfDayZero, tt, precession);
        eraNutm80(kJdOfDayZero, tt, nutation);
        eraRxr(nutation, precession, turn);
        eraRz(eraGst94(kJdOfDayZero, ut1), earth_rotation);
        eraRxr(earth_rotation, turn, turn);
        eraRxp(turn, pos, pos);
        benchmark::DoNotOptimize(pos);
    }
}

BENCHMARK_CAPTURE(change, GM2000_to_EF, KL_GM2000, KL_EF)->Name("kl_change_cart_cs GM2000 to EF");
BENCHMARK(rival)->Name("kl_change_cart_cs GM2000 to EF/rival eraPmat76 eraNutm80 eraGst94");
BENCHMARK_CAPTURE(change, EF_to_GM2000, KL_EF, KL_GM2000)->Name("kl_change_cart_cs EF to GM2000");
BENCHMARK_CAPTURE(change, TEME_to_EF, KL_TEME, KL_EF)->Name("kl_change_cart_cs TEME to EF");
BENCHMARK_CAPTURE(change, GM2000_to_BM1950, KL_GM2000, KL_BM1950)->Name("kl_change_cart_cs GM2000 to BM1950");

} // namespace
