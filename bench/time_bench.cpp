// Time conversions through the public header, with the routines of the astronomical library that do the same.
#include "kl_lib.h"

#include <benchmark/benchmark.h>
#include <erfa.h>
#include <erfam.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

constexpr long kProcessing = KL_PROC;
constexpr double kModifiedJulianDate = 51544.0; // MJD of 2000-01-01

// Time ids of one row of explicit values, and of tables from 1975 to 2029 with rows evenly apart: 20 000 are a row a
// day.
class TimeId {
public:
    explicit TimeId(long n_rows)
    {
        std::vector<kl_time_row> rows(static_cast<std::size_t>(n_rows));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            kl_time_row &row = rows[i];
            row.tai_utc = 32.0;
            row.tai_gps = 19.0;
            row.tai_ut1 = 31.9 + 1e-5 * static_cast<double>(i % 1000);
            row.utc = -9131.0 + 19999.0 * static_cast<double>(i) / std::max(1.0, static_cast<double>(n_rows - 1));
            row.tai = row.utc + row.tai_utc / 86400.0;
            row.ut1 = row.tai - row.tai_ut1 / 86400.0;
        }
        kl_time_id_data data{};
        data.model = n_rows == 1 ? -1 : 1;
        data.no_extrapolation = 1;
        data.n_rows = n_rows;
        data.rows = rows.data();
        ok = kl_time_set_id_data(&id, &data) == 0;
    }
    ~TimeId()
    {
        long ierr[1];
        kl_time_close(&id, ierr);
    }

    kl_time_id id{};
    bool ok = false;
};

// Random instants of the years that the table covers.
constexpr std::size_t kInstants = 4096;
const std::vector<double> &instants()
{
    static const std::vector<double> all = [] {
        std::mt19937_64 random(20260101);
        std::uniform_real_distribution<double> days(-9000.0, 10800.0);
        std::vector<double> drawn(kInstants);
        for (double &t : drawn)
            t = days(random);
        return drawn;
    }();
    return all;
}

// Runs one conversion over all instants, one an iteration.
template <typename Convert>
void over_instants(benchmark::State &state, Convert convert)
{
    std::size_t i = 0;
    for (auto _ : state) {
        convert(i);
        i = (i + 1) % kInstants;
    }
}

// ---- between scales ----

void processing_utc_to_ut1(benchmark::State &state)
{
    TimeId time(state.range(0));
    if (!time.ok)
        state.SkipWithError("no time id");
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_UT1;
    over_instants(state, [&](std::size_t i) {
        double out = 0.0;
        long ierr[1];
        benchmark::DoNotOptimize(kl_time_processing_to_processing(&time.id, &kProcessing, &from, &instants()[i],
                                                                  &kProcessing, &to, &out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(processing_utc_to_ut1)
    ->Name("kl_time_processing_to_processing UTC to UT1")
    ->ArgName("rows")
    ->Arg(1)
    ->Arg(20)
    ->Arg(2000)
    ->Arg(20000);

void rival_utc_to_ut1(benchmark::State &state)
{
    over_instants(state, [](std::size_t i) {
        double tai1 = 0.0;
        double tai2 = 0.0;
        double ut11 = 0.0;
        double ut12 = 0.0;
        benchmark::DoNotOptimize(eraUtctai(ERFA_DJM0, kModifiedJulianDate + instants()[i], &tai1, &tai2));
        benchmark::DoNotOptimize(eraTaiut1(tai1, tai2, -31.9, &ut11, &ut12));
        benchmark::DoNotOptimize(ut12);
    });
}
BENCHMARK(rival_utc_to_ut1)->Name("kl_time_processing_to_processing UTC to UT1/rows:1/rival eraUtctai, eraTaiut1");

// All instants in one call; the time shown is that of an element.
void array_utc_to_ut1(benchmark::State &state)
{
    TimeId time(20000);
    std::vector<double> days = instants();
    if (state.range(0) != 0)
        std::sort(days.begin(), days.end());
    std::vector<double> out(days.size());
    const long n = static_cast<long>(days.size());
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_UT1;
    long ierr[1];
    for (auto _ : state)
        benchmark::DoNotOptimize(kl_time_processing_to_processing_n(&time.id, &n, &kProcessing, &from, days.data(),
                                                                    &kProcessing, &to, out.data(), nullptr, ierr));
    state.counters["element"] = benchmark::Counter(static_cast<double>(n), benchmark::Counter::kIsIterationInvariantRate
                                                                               | benchmark::Counter::kInvert);
}
BENCHMARK(array_utc_to_ut1)
    ->Name("kl_time_processing_to_processing_n UTC to UT1")
    ->ArgName("ascending")
    ->Arg(0)
    ->Arg(1);

// ---- formats ----

struct Texts {
    char text[kInstants][KL_TIME_ASCII_LENGTH];
    long fields[kInstants][KL_TRANSPORT_LENGTH];
};

// All instants written in the formats first.
const Texts &written(long ascii, long transport)
{
    static Texts texts;
    const long utc = KL_TIME_UTC;
    long ierr[1];
    for (std::size_t i = 0; i < kInstants; ++i) {
        kl_time_processing_to_ascii(nullptr, &kProcessing, &utc, &instants()[i], &ascii, &utc, texts.text[i], ierr);
        kl_time_processing_to_transport(nullptr, &kProcessing, &utc, &instants()[i], &transport, &utc, texts.fields[i],
                                        ierr);
    }
    return texts;
}

void ascii_to_processing(benchmark::State &state)
{
    TimeId time(20000);
    const long format = state.range(0);
    const Texts &texts = written(format, KL_TRANS_0);
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_TAI;
    over_instants(state, [&](std::size_t i) {
        double out = 0.0;
        long ierr[1];
        benchmark::DoNotOptimize(
            kl_time_ascii_to_processing(&time.id, &format, &from, texts.text[i], &kProcessing, &to, &out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(ascii_to_processing)
    ->Name("kl_time_ascii_to_processing")
    ->ArgName("format")
    ->Arg(KL_ASCII_11)
    ->Arg(KL_ASCII_34)
    ->Arg(KL_ASCII_44);

// The rival reads no texts: it is given the fields.
void rival_fields_to_tai(benchmark::State &state)
{
    over_instants(state, [](std::size_t i) {
        const int day = static_cast<int>(i % 28);
        double utc1 = 0.0;
        double utc2 = 0.0;
        double tai1 = 0.0;
        double tai2 = 0.0;
        benchmark::DoNotOptimize(eraDtf2d("UTC", 1980 + day, 1 + day % 12, 1 + day, 12, 30, 15.25, &utc1, &utc2));
        benchmark::DoNotOptimize(eraUtctai(utc1, utc2, &tai1, &tai2));
        benchmark::DoNotOptimize(tai2);
    });
}
BENCHMARK(rival_fields_to_tai)->Name("kl_time_ascii_to_processing/format:11/rival eraDtf2d, eraUtctai (from fields)");

void processing_to_ascii(benchmark::State &state)
{
    TimeId time(20000);
    const long format = state.range(0);
    const long from = KL_TIME_TAI;
    const long to = KL_TIME_UTC;
    over_instants(state, [&](std::size_t i) {
        char out[KL_TIME_ASCII_LENGTH];
        long ierr[1];
        benchmark::DoNotOptimize(
            kl_time_processing_to_ascii(&time.id, &kProcessing, &from, &instants()[i], &format, &to, out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(processing_to_ascii)
    ->Name("kl_time_processing_to_ascii")
    ->ArgName("format")
    ->Arg(KL_ASCII_11)
    ->Arg(KL_ASCII_34)
    ->Arg(KL_ASCII_44);

// The rival stops at the fields, too.
void rival_tai_to_fields(benchmark::State &state)
{
    over_instants(state, [](std::size_t i) {
        double utc1 = 0.0;
        double utc2 = 0.0;
        int year = 0;
        int month = 0;
        int day = 0;
        int time[4];
        benchmark::DoNotOptimize(eraTaiutc(ERFA_DJM0, kModifiedJulianDate + instants()[i], &utc1, &utc2));
        benchmark::DoNotOptimize(eraD2dtf("UTC", 6, utc1, utc2, &year, &month, &day, time));
        benchmark::DoNotOptimize(time);
    });
}
BENCHMARK(rival_tai_to_fields)->Name("kl_time_processing_to_ascii/format:11/rival eraTaiutc, eraD2dtf (to fields)");

void ascii_to_ascii(benchmark::State &state)
{
    TimeId time(20000);
    const long format = KL_ASCII_44;
    const long format_out = KL_ASCII_13;
    const Texts &texts = written(format, KL_TRANS_0);
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_TAI;
    over_instants(state, [&](std::size_t i) {
        char out[KL_TIME_ASCII_LENGTH];
        long ierr[2];
        benchmark::DoNotOptimize(
            kl_time_ascii_to_ascii(&time.id, &format, &from, texts.text[i], &format_out, &to, out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(ascii_to_ascii)->Name("kl_time_ascii_to_ascii");

void processing_to_transport(benchmark::State &state)
{
    TimeId time(state.range(1));
    const long format = state.range(0);
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_GPS;
    over_instants(state, [&](std::size_t i) {
        long out[KL_TRANSPORT_LENGTH];
        long ierr[1];
        benchmark::DoNotOptimize(
            kl_time_processing_to_transport(&time.id, &kProcessing, &from, &instants()[i], &format, &to, out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(processing_to_transport)
    ->Name("kl_time_processing_to_transport")
    ->ArgNames({"format", "rows"})
    ->ArgsProduct({{KL_TRANS_0, KL_TRANS_23, KL_TRANS_31, KL_TRANS_42}, {1, 20000}});

void transport_to_processing(benchmark::State &state)
{
    TimeId time(state.range(1));
    const long format = state.range(0);
    const Texts &texts = written(KL_ASCII_11, format);
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_UT1;
    over_instants(state, [&](std::size_t i) {
        double out = 0.0;
        long ierr[1];
        benchmark::DoNotOptimize(
            kl_time_transport_to_processing(&time.id, &format, &from, texts.fields[i], &kProcessing, &to, &out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(transport_to_processing)
    ->Name("kl_time_transport_to_processing")
    ->ArgNames({"format", "rows"})
    ->ArgsProduct({{KL_TRANS_0, KL_TRANS_23, KL_TRANS_31}, {1, 20000}});

void transport_to_transport(benchmark::State &state)
{
    TimeId time(state.range(0));
    const long format = KL_TRANS_22;
    const long format_out = KL_TRANS_42;
    const Texts &texts = written(KL_ASCII_11, format);
    const long from = KL_TIME_UTC;
    const long to = KL_TIME_GPS;
    over_instants(state, [&](std::size_t i) {
        long out[KL_TRANSPORT_LENGTH];
        long ierr[1];
        benchmark::DoNotOptimize(
            kl_time_transport_to_transport(&time.id, &format, &from, texts.fields[i], &format_out, &to, out, ierr));
        benchmark::DoNotOptimize(out);
    });
}
BENCHMARK(transport_to_transport)->Name("kl_time_transport_to_transport")->ArgName("rows")->Arg(1)->Arg(20000);

} // namespace
