// Sun, Moon and planets through the public functions, each with its rival built from ERFA: the same position carried to
// the Earth-fixed axes by IAU 1976 precession, 1980 nutation and 1994 sidereal time.
#include "kl_lib.h"
#include "one_instant.h"

#include <benchmark/benchmark.h>
#include <erfa.h>

namespace {

// One call a new epoch, position and velocity kept.
template <class Call>
void run(benchmark::State &state, Call call)
{
    TimeId time_id;
    kl_model_id model_id = {};
    Epochs epochs;
    const long ref = KL_TIME_UTC;
    double pos[3], vel[3];
    for (auto _ : state) {
        const double time = epochs.next();
        if (call(&model_id, &time_id.id, &ref, &time, pos, vel) != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(pos);
        benchmark::DoNotOptimize(vel);
    }
}

void sun(benchmark::State &state)
{
    run(state, [](kl_model_id *model, kl_time_id *id, const long *ref, const double *time, double *pos, double *vel) {
        long ierr;
        return kl_sun(model, id, ref, time, pos, vel, &ierr);
    });
}

void moon(benchmark::State &state)
{
    run(state, [](kl_model_id *model, kl_time_id *id, const long *ref, const double *time, double *pos, double *vel) {
        long ierr;
        return kl_moon(model, id, ref, time, pos, vel, &ierr);
    });
}

// The planets in turn.
void planet(benchmark::State &state)
{
    long code = 0;
    run(state, [&](kl_model_id *model, kl_time_id *id, const long *ref, const double *time, double *pos, double *vel) {
        long ierr;
        code = code % KL_NEPTUNE + 1;
        return kl_planet(model, id, &code, ref, time, pos, vel, &ierr);
    });
}

// The rival's dates, and its way from J2000 axes to Earth-fixed ones.
struct Dates {
    double tt, ut1; // days since kJdOfDayZero
};

// Constant offsets: the rival pays nothing for its time scales.
Dates dates_of(double utc)
{
    return {utc + (kLeapSeconds + 32.184) / kSecondsPerDay, utc + kUt1MinusUtc / kSecondsPerDay};
}

void to_earth_fixed(const Dates &dates, double position[3])
{
    double precession[3][3], nutation[3][3], turn[3][3], earth_rotation[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    eraPmat76(kJdOfDayZero, dates.tt, precession);
    eraNutm80(kJdOfDayZero, dates.tt, nutation);
    eraRxr(nutation, precession, turn);
    eraRz(eraGst94(kJdOfDayZero, dates.ut1), earth_rotation);
    eraRxr(earth_rotation, turn, turn);
    eraRxp(turn, position, position);
}

void rival_sun(benchmark::State &state)
{
    Epochs epochs;
    for (auto _ : state) {
        const Dates dates = dates_of(epochs.next());
        double heliocentric[2][3], barycentric[2][3];
        eraEpv00(kJdOfDayZero, dates.tt, heliocentric, barycentric);
        double sun[3] = {-heliocentric[0][0], -heliocentric[0][1], -heliocentric[0][2]};
        to_earth_fixed(dates, sun);
        benchmark::DoNotOptimize(sun);
    }
}

void rival_moon(benchmark::State &state)
{
    Epochs epochs;
    for (auto _ : state) {
        const Dates dates = dates_of(epochs.next());
        double moon[2][3];
        eraMoon98(kJdOfDayZero, dates.tt, moon);
        to_earth_fixed(dates, moon[0]);
        benchmark::DoNotOptimize(moon);
    }
}

void rival_planet(benchmark::State &state)
{
    Epochs epochs;
    int code = 0;
    for (auto _ : state) {
        const Dates dates = dates_of(epochs.next());
        code = code % 8 + 1;
        double heliocentric[2][3], barycentric[2][3], planet[2][3], seen[3];
        eraPlan94(kJdOfDayZero, dates.tt, code, planet);
        eraEpv00(kJdOfDayZero, dates.tt, heliocentric, barycentric);
        eraPmp(planet[0], heliocentric[0], seen);
        to_earth_fixed(dates, seen);
        benchmark::DoNotOptimize(seen);
    }
}

BENCHMARK(sun)->Name("kl_sun");
BENCHMARK(rival_sun)->Name("kl_sun/rival eraEpv00");
BENCHMARK(moon)->Name("kl_moon");
BENCHMARK(rival_moon)->Name("kl_moon/rival eraMoon98");
BENCHMARK(planet)->Name("kl_planet");
BENCHMARK(rival_planet)->Name("kl_planet/rival eraPlan94");

} // namespace
