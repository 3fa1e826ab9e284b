// What the classes cost over the functions that they wrap: each pair does the same work.
#include "orbkit.hpp"

#include <benchmark/benchmark.h>

using namespace ORBKIT;

namespace {

const Quaternion kAttitude = {0.1, -0.5, 0.7, 0.5};

void quaternions_to_vectors_c(benchmark::State &state)
{
    Quaternion q = kAttitude;
    Axes axes;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(q);
        if (kl_quaternions_to_vectors(q.data(), axes.x.data(), axes.y.data(), axes.z.data(), ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(axes);
    }
}
BENCHMARK(quaternions_to_vectors_c)->Name("kl_quaternions_to_vectors");

void quaternions_to_vectors_wrapped(benchmark::State &state)
{
    Quaternion q = kAttitude;
    for (auto _ : state) {
        benchmark::DoNotOptimize(q);
        Axes axes = LibFunc::quaternionsToVectors(q);
        benchmark::DoNotOptimize(axes);
    }
}
BENCHMARK(quaternions_to_vectors_wrapped)->Name("kl_quaternions_to_vectors/rival LibFunc::quaternionsToVectors");

void add_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC;
    double time = 100.0, duration = 0.5, sum = 0.0;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_add(&processing, &utc, &time, &duration, &sum, ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(add_c)->Name("kl_time_add");

void add_wrapped(benchmark::State &state)
{
    double time = 100.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        double sum = LibFunc::timeAdd(KL_TIME_UTC, time, 0.5);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(add_wrapped)->Name("kl_time_add/rival LibFunc::timeAdd");

const TimeId &correlation()
{
    static const TimeId time({37.0 / 86400.0, 0.0, 0.0, 18.0 / 86400.0});
    return time;
}

void utc_to_gps_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC, gps = KL_TIME_GPS;
    double time = 9668.35, out = 0.0;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_processing_to_processing(correlation().getId(), &processing, &utc, &time, &processing, &gps, &out,
                                             ierr)
            == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(utc_to_gps_c)->Name("kl_time_processing_to_processing");

void utc_to_gps_wrapped(benchmark::State &state)
{
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        double out = LibFunc::timeProcessingToProcessing(correlation(), KL_TIME_UTC, time, KL_TIME_GPS);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(utc_to_gps_wrapped)->Name("kl_time_processing_to_processing/rival LibFunc::timeProcessingToProcessing");

void text_c(benchmark::State &state)
{
    const long processing = KL_PROC, utc = KL_TIME_UTC, format = KL_ASCII_43;
    double time = 9668.35;
    TimeText text;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_time_processing_to_ascii(correlation().getId(), &processing, &utc, &time, &format, &utc, text.text, ierr)
            == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(text_c)->Name("kl_time_processing_to_ascii");

void text_wrapped(benchmark::State &state)
{
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        TimeText text = LibFunc::timeProcessingToAscii(correlation(), KL_TIME_UTC, time, KL_ASCII_43, KL_TIME_UTC);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(text_wrapped)->Name("kl_time_processing_to_ascii/rival LibFunc::timeProcessingToAscii");

void sun_c(benchmark::State &state)
{
    const ModelId model;
    const long utc = KL_TIME_UTC;
    double time = 9668.35;
    BodyState sun;
    long ierr[1];
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        if (kl_sun(model.getId(), correlation().getId(), &utc, &time, sun.pos.data(), sun.vel.data(), ierr) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sun);
    }
}
BENCHMARK(sun_c)->Name("kl_sun");

void sun_wrapped(benchmark::State &state)
{
    const ModelId model;
    double time = 9668.35;
    for (auto _ : state) {
        benchmark::DoNotOptimize(time);
        BodyState sun = LibFunc::sun(model, correlation(), KL_TIME_UTC, time);
        benchmark::DoNotOptimize(sun);
    }
}
BENCHMARK(sun_wrapped)->Name("kl_sun/rival LibFunc::sun");

// For the record: sharing an id, and the dear way out.
void model_copy_and_drop(benchmark::State &state)
{
    const ModelId model(KL_MODEL_DEFAULT, {});
    for (auto _ : state) {
        ModelId copy(model);
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(model_copy_and_drop)->Name("ModelId copied and dropped");

void failure_thrown_and_caught(benchmark::State &state)
{
    for (auto _ : state) {
        try {
            LibFunc::timeAdd(KL_TIME_UTC, 40000.0, 0.0);
        } catch (const KitError &error) {
            benchmark::DoNotOptimize(error.what());
        }
    }
}
BENCHMARK(failure_thrown_and_caught)->Name("LibFunc::timeAdd, failure thrown and caught");

} // namespace
