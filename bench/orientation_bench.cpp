// The Earth after the IERS Conventions: matrices and states beside ERFA's, which gives the matrix without its rate and
// leaves UT1, the pole and the tides to the caller.
#include "kl_lib.h"

#include <benchmark/benchmark.h>
#include <erfa.h>

#include <cstdlib>
#include <vector>

namespace {

// Ten years of daily rows with a pole.
struct TimeId {
    kl_time_id id = {};
    explicit TimeId(bool with_pole = true)
    {
        constexpr long kRows = 3653;
        std::vector<kl_time_row> rows;
        std::vector<double> pole;
        for (long i = 0; i < kRows; ++i) {
            const double utc = 6000.0 + static_cast<double>(i);
            const double tai_ut1 = 37.0 + 0.3 * static_cast<double>(i) / kRows;
            rows.push_back({utc + 37.0 / 86400.0, utc + (37.0 - tai_ut1) / 86400.0, utc, 37.0, tai_ut1, 19.0});
            pole.insert(pole.end(), {0.1, 0.3 + 1e-5 * static_cast<double>(i), 2e-4, -1e-4});
        }
        kl_time_id_data data = {};
        data.model = 6;
        data.no_extrapolation = 1;
        data.n_rows = kRows;
        data.rows = rows.data();
        data.pole = with_pole ? reinterpret_cast<double(*)[4]>(pole.data()) : nullptr;
        if (kl_time_set_id_data(&id, &data) != 0)
            std::abort();
    }
    ~TimeId() { kl_time_close(&id, nullptr); }
};

class Epochs {
public:
    double next() { return days_ = days_ > 9600.0 ? days_ - 3590.0 : days_ + 0.7310585; }

private:
    double days_ = 6010.0;
};

constexpr double kPos[3] = {4.2e6, -3.7e6, 4.1e6};
constexpr double kVel[3] = {5.1e3, 5.3e3, -0.4e3};

void state_of_one(benchmark::State &state, long corrections)
{
    TimeId time_id;
    Epochs epochs;
    const long mode = KL_CALC_POS_VEL, from = KL_GCRS, to = KL_ITRS, utc = KL_TIME_UTC;
    double pos[3], vel[3], acc[3];
    for (auto _ : state) {
        const double time = epochs.next();
        if (kl_iers_change(&time_id.id, &corrections, &mode, &from, &to, &utc, &time, kPos, kVel, nullptr, pos, vel,
                           acc, nullptr)
            != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(vel);
    }
}

void matrix_of_one(benchmark::State &state)
{
    TimeId time_id;
    Epochs epochs;
    const long mode = KL_CALC_POS_VEL, from = KL_GCRS, to = KL_ITRS, utc = KL_TIME_UTC, none = 0;
    double r[9], dr[9], ddr[9];
    for (auto _ : state) {
        const double time = epochs.next();
        if (kl_iers_matrix(&time_id.id, &none, &from, &to, &utc, &time, &mode, r, dr, ddr, nullptr) != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(dr);
    }
}

constexpr long kMany = 4096;

// `days` from one instant to the next.
void states_of_many(benchmark::State &state, long corrections, double days, bool with_pole, long expected)
{
    TimeId time_id(with_pole);
    const long mode = KL_CALC_POS_VEL, from = KL_GCRS, to = KL_ITRS, utc = KL_TIME_UTC;
    static double time[kMany], pos[kMany][3], vel[kMany][3], acc[kMany][3], r[kMany][3], v[kMany][3];
    for (long i = 0; i < kMany; ++i) {
        time[i] = 6010.0 + days * static_cast<double>(i);
        for (int k = 0; k < 3; ++k) {
            r[i][k] = kPos[k];
            v[i][k] = kVel[k];
        }
    }
    for (auto _ : state)
        if (kl_iers_change_n(&time_id.id, &kMany, &corrections, &mode, &from, &to, &utc, time, r, v, nullptr, pos, vel,
                             acc, nullptr, nullptr)
            != expected)
            state.SkipWithError("another status");
    state.SetItemsProcessed(state.iterations() * kMany);
}

void matrices_of_many(benchmark::State &state)
{
    TimeId time_id;
    const long mode = KL_CALC_POS_VEL, from = KL_GCRS, to = KL_ITRS, utc = KL_TIME_UTC, none = 0;
    static double time[kMany], m[kMany][9], dm[kMany][9], ddm[kMany][9];
    for (long i = 0; i < kMany; ++i)
        time[i] = 6010.0 + 0.8 * static_cast<double>(i);
    for (auto _ : state)
        if (kl_iers_matrix_n(&time_id.id, &kMany, &none, &from, &to, &utc, time, &mode, m, dm, ddm, nullptr, nullptr)
            != KL_OK)
            state.SkipWithError("refused");
    state.SetItemsProcessed(state.iterations() * kMany);
}

void erfa_matrix(benchmark::State &state, void (*matrix)(double, double, double, double, double, double, double (*)[3]))
{
    Epochs epochs;
    double r[3][3];
    for (auto _ : state) {
        const double utc = epochs.next();
        matrix(2451544.5, utc + 69.184 / 86400.0, 2451544.5, utc, 5e-7, 1.5e-6, r);
        benchmark::DoNotOptimize(r);
    }
}

BENCHMARK(matrix_of_one)->Name("kl_iers_matrix GCRS to ITRS with rate");
BENCHMARK_CAPTURE(erfa_matrix, full, eraC2t06a)->Name("kl_iers_matrix GCRS to ITRS with rate/rival eraC2t06a");
BENCHMARK_CAPTURE(erfa_matrix, short_one, eraC2t00b)
    ->Name("kl_iers_matrix GCRS to ITRS with rate/rival eraC2t00b, to 1 mas");
BENCHMARK_CAPTURE(state_of_one, plain, 0)->Name("kl_iers_change GCRS to ITRS");
BENCHMARK_CAPTURE(state_of_one, all, KL_EOP_ALL)->Name("kl_iers_change GCRS to ITRS, all corrections");
BENCHMARK(matrices_of_many)->Name("kl_iers_matrix_n GCRS to ITRS with rate");
BENCHMARK_CAPTURE(states_of_many, plain, 0, 0.8, true, KL_OK)->Name("kl_iers_change_n GCRS to ITRS");
BENCHMARK_CAPTURE(states_of_many, all, KL_EOP_ALL, 0.8, true, KL_OK)
    ->Name("kl_iers_change_n GCRS to ITRS, all corrections");
BENCHMARK_CAPTURE(states_of_many, one, 0, 0.0, true, KL_OK)->Name("kl_iers_change_n GCRS to ITRS, one instant");
BENCHMARK_CAPTURE(states_of_many, poleless, 0, 0.8, false, KL_WARN)
    ->Name("kl_iers_change_n GCRS to ITRS, an id without a pole");

} // namespace
