// The law of array forms: one call for n instants is n scalar calls in order, bit for bit. Two ids of the same data go
// side by side, so that once-only warnings are spent alike.
#include "support/captured_stream.h"
#include "time/time_table.h"

#include <cstring>
#include <functional>
#include <random>
#include <string>

namespace {

constexpr long kLengths[] = {0, 1, 2, 7, 8, 63, 64, 65, 100, 127, 128, 129, 200};
constexpr long kProc = KL_PROC;
constexpr long kWidth = 34; // wider than any text

// ---- ids ----

Table daily(long model, long no_extrapolation, long combination)
{
    std::vector<kl_time_row> rows;
    for (int i = 0; i < 40; ++i)
        if (i < 15 || i > 18) // a gap between two bulletins
            rows.push_back(row_at(k2017 - 20.0 + i, i < 20 ? 36.0 : 37.0, 36.4 + 0.0013 * i));
    Table table(rows);
    table.data.model = model;
    table.data.no_extrapolation = no_extrapolation;
    table.data.combination = combination;
    table.data.second_bulletin_row = combination == 2 ? 15 : 0;
    table.data.a = -0.3;
    table.data.b = -0.0011;
    table.data.c = 6200.0;
    return table;
}

struct Pair {
    OwnedTimeId scalar, array;
};

using Fill = std::function<void(kl_time_id *)>;
const std::pair<const char *, Fill> kIds[] = {
    {"none", [](kl_time_id *) {}},
    {"explicit values",
     [](kl_time_id *id) {
         const double readings[4] = {1.0, 1.0 - 37.0 / kDay, 1.0 - 36.7 / kDay, 1.0 - 19.0 / kDay};
         ASSERT_EQ(kl_time_ref_init(readings, nullptr, nullptr, nullptr, id, nullptr), 0);
     }},
    {"daily rows", [](kl_time_id *id) { ASSERT_EQ(daily(1, 1, 0).set(id), 0); }},
    {"formula after the table", [](kl_time_id *id) { ASSERT_EQ(daily(1, 0, 0).set(id), 0); }},
    {"two bulletins", [](kl_time_id *id) { ASSERT_EQ(daily(10, 0, 2).set(id), 0); }},
    {"negative leap second", [](kl_time_id *id) { ASSERT_EQ(leap_table(k2017, 37.0, -1, 0.3).set(id), 0); }},
    {"readings days apart",
     [](kl_time_id *id) {
         ASSERT_EQ(Table({row_at(0.0, 200000.0, 31.0), row_at(9000.0, 200000.0, 31.5)}).set(id), 0);
     }},
};

// ---- instants ----

// Mostly inside the daily rows, in runs, and all that is odd at random places.
std::vector<double> instants(long n, unsigned seed)
{
    const double odd[] = {kNaN,
                          kInfinity,
                          -18262.0,
                          36524.0,
                          36524.5,
                          -20000.0,
                          k2017,
                          k2017 - 1e-12,
                          k2017 + 0.5 / kDay,
                          k2017 - 0.5 / kDay,
                          k2017 + 37.0 / kDay,
                          k2017 + 36.2 / kDay,
                          k2017 - 20.0,
                          k2017 - 20.0 - 2e-11,
                          k2017 + 19.0,
                          k2017 + 19.5,
                          k2017 + 400.0,
                          k2017 - 4.0,
                          k2017 - 3.5,
                          0.0,
                          -0.25,
                          5e-324,
                          k2017 - 10.0 + 1e-12,
                          k2017 - 10.0};
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> inside(k2017 - 19.0, k2017 + 18.0);
    std::vector<double> out(static_cast<std::size_t>(n));
    double run = inside(random);
    for (double &t : out) {
        const auto dice = random() % 16;
        if (seed % 3 == 0 || dice > 3)
            t = seed % 2 == 0 ? inside(random) : run += 0.01;
        else
            t = odd[random() % (sizeof odd / sizeof *odd)];
        if (run > k2017 + 18.0)
            run = k2017 - 19.0;
    }
    return out;
}

// ---- one comparison ----

// What the calls leave behind.
struct Outcome {
    long status = 7;
    std::vector<long> statuses;
    long ierr[2] = {0, 0};
    std::vector<unsigned char> outputs;
    std::string lines;
};

template <typename Call>
Outcome run(bool verbose, Call call)
{
    Outcome out;
    if (verbose)
        out.lines = verbose_text([&] { call(out); });
    else
        call(out);
    return out;
}

void expect_same(const Outcome &scalar, const Outcome &array, const std::string &name)
{
    EXPECT_EQ(scalar.status, array.status) << name;
    EXPECT_EQ(scalar.ierr[0], array.ierr[0]) << name;
    EXPECT_EQ(scalar.ierr[1], array.ierr[1]) << name;
    EXPECT_EQ(scalar.lines, array.lines) << name;
    EXPECT_EQ(scalar.statuses, array.statuses) << name;
    ASSERT_EQ(scalar.outputs.size(), array.outputs.size()) << name;
    for (std::size_t i = 0; i < scalar.outputs.size(); ++i)
        ASSERT_EQ(scalar.outputs[i], array.outputs[i]) << name << ", octet " << i;
}

// Runs one(i, input, output, ierr) over all elements as the array form has to. Elements are of fixed sizes; `failed`
// fills one that fails.
template <typename One, typename Failed>
Outcome by_loop(bool verbose, long n, std::vector<unsigned char> input, long in_size, long out_size, One one,
                Failed failed)
{
    return run(verbose, [&](Outcome &out) {
        out.outputs.assign(static_cast<std::size_t>(n * out_size), 0xA5);
        bool error = false;
        bool warning = false;
        for (long i = 0; i < n; ++i) {
            long ierr[2] = {0, 0};
            unsigned char *element = out.outputs.data() + i * out_size;
            const long status = one(input.data() + i * in_size, element, ierr);
            if (status == KL_ERR)
                failed(element);
            error |= status == KL_ERR;
            warning |= status == KL_WARN;
            out.statuses.push_back(status);
            out.ierr[0] |= ierr[0];
            out.ierr[1] |= ierr[1];
        }
        out.status = error ? KL_ERR : warning ? KL_WARN : KL_OK;
    });
}

template <typename All>
Outcome by_array(bool verbose, bool with_statuses, bool in_place, long n, std::vector<unsigned char> input,
                 long out_size, All all)
{
    Outcome out = run(verbose, [&](Outcome &result) {
        result.outputs.assign(static_cast<std::size_t>(n * out_size), 0xA5);
        if (in_place)
            result.outputs = input;
        result.statuses.assign(static_cast<std::size_t>(n), 9);
        result.status = all(in_place ? result.outputs.data() : input.data(), result.outputs.data(),
                            with_statuses ? result.statuses.data() : nullptr, result.ierr);
    });
    return out;
}

// ---- the nine conversions ----

// One form of an instant on either side: an octet string of a fixed size.
struct Form {
    enum Kind { processing, text, transport } kind;
    long format;
};
constexpr Form kForms[] = {{Form::processing, KL_PROC},   {Form::text, KL_ASCII_13},     {Form::text, KL_ASCII_34},
                           {Form::text, KL_ASCII_21},     {Form::transport, KL_TRANS_0}, {Form::transport, KL_TRANS_23},
                           {Form::transport, KL_TRANS_42}};

long size_of(const Form &form)
{
    return form.kind == Form::processing ? 8 : form.kind == Form::text ? kWidth : 4 * static_cast<long>(sizeof(long));
}

// The instants in a form; what has none stays as rubbish.
std::vector<unsigned char> written(const Form &form, long ref, const std::vector<double> &days, unsigned seed)
{
    const long size = size_of(form);
    std::vector<unsigned char> out(days.size() * static_cast<std::size_t>(size));
    std::mt19937_64 random(seed);
    for (std::size_t i = 0; i < days.size(); ++i) {
        unsigned char *element = out.data() + static_cast<long>(i) * size;
        if (form.kind == Form::processing) {
            std::memcpy(element, &days[i], 8);
            continue;
        }
        const long status = form.kind == Form::text
                                ? kl_time_processing_to_ascii(nullptr, &kProc, &ref, &days[i], &form.format, &ref,
                                                              reinterpret_cast<char *>(element), nullptr)
                                : kl_time_processing_to_transport(nullptr, &kProc, &ref, &days[i], &form.format, &ref,
                                                                  reinterpret_cast<long *>(element), nullptr);
        if (status == KL_ERR && form.kind == Form::text)
            std::strcpy(reinterpret_cast<char *>(element), random() % 2 != 0 ? "2017-01-01_00:00:61.000000" : "x");
        if (status == KL_ERR && form.kind == Form::transport)
            reinterpret_cast<long *>(element)[0] = 99999999999;
    }
    return out;
}

template <typename T>
T *as(unsigned char *p)
{
    return reinterpret_cast<T *>(p);
}
template <typename T>
const T *as(const unsigned char *p)
{
    return reinterpret_cast<const T *>(p);
}

long convert_one(kl_time_id *id, const Form &in, long from, const unsigned char *input, const Form &out, long to,
                 unsigned char *output, long *ierr)
{
    const long *fi = &in.format;
    const long *fo = &out.format;
    char text[KL_TIME_ASCII_LENGTH] = {};
    const auto kept = [&](long status) {
        if (status != KL_ERR) {
            std::memset(output, 0, kWidth);
            std::memcpy(output, text, sizeof text);
        }
        return status;
    };
    switch (3 * in.kind + out.kind) {
    case 0:
        return kl_time_processing_to_processing(id, fi, &from, as<double>(input), fo, &to, as<double>(output), ierr);
    case 1:
        return kept(kl_time_processing_to_ascii(id, fi, &from, as<double>(input), fo, &to, text, ierr));
    case 2:
        return kl_time_processing_to_transport(id, fi, &from, as<double>(input), fo, &to, as<long>(output), ierr);
    case 3:
        return kl_time_ascii_to_processing(id, fi, &from, as<char>(input), fo, &to, as<double>(output), ierr);
    case 4:
        return kept(kl_time_ascii_to_ascii(id, fi, &from, as<char>(input), fo, &to, text, ierr));
    case 5:
        return kl_time_ascii_to_transport(id, fi, &from, as<char>(input), fo, &to, as<long>(output), ierr);
    case 6:
        return kl_time_transport_to_processing(id, fi, &from, as<long>(input), fo, &to, as<double>(output), ierr);
    case 7:
        return kept(kl_time_transport_to_ascii(id, fi, &from, as<long>(input), fo, &to, text, ierr));
    default:
        return kl_time_transport_to_transport(id, fi, &from, as<long>(input), fo, &to, as<long>(output), ierr);
    }
}

long convert_all(kl_time_id *id, long n, const Form &in, long from, const unsigned char *input, const Form &out,
                 long to, unsigned char *output, long *status, long *ierr)
{
    const long *fi = &in.format;
    const long *fo = &out.format;
    const auto *fields = reinterpret_cast<const long(*)[4]>(input);
    auto *fields_out = reinterpret_cast<long(*)[4]>(output);
    switch (3 * in.kind + out.kind) {
    case 0:
        return kl_time_processing_to_processing_n(id, &n, fi, &from, as<double>(input), fo, &to, as<double>(output),
                                                  status, ierr);
    case 1:
        return kl_time_processing_to_ascii_n(id, &n, fi, &from, as<double>(input), fo, &to, &kWidth, as<char>(output),
                                             status, ierr);
    case 2:
        return kl_time_processing_to_transport_n(id, &n, fi, &from, as<double>(input), fo, &to, fields_out, status,
                                                 ierr);
    case 3:
        return kl_time_ascii_to_processing_n(id, &n, fi, &from, &kWidth, as<char>(input), fo, &to, as<double>(output),
                                             status, ierr);
    case 4:
        return kl_time_ascii_to_ascii_n(id, &n, fi, &from, &kWidth, as<char>(input), fo, &to, &kWidth, as<char>(output),
                                        status, ierr);
    case 5:
        return kl_time_ascii_to_transport_n(id, &n, fi, &from, &kWidth, as<char>(input), fo, &to, fields_out, status,
                                            ierr);
    case 6:
        return kl_time_transport_to_processing_n(id, &n, fi, &from, fields, fo, &to, as<double>(output), status, ierr);
    case 7:
        return kl_time_transport_to_ascii_n(id, &n, fi, &from, fields, fo, &to, &kWidth, as<char>(output), status,
                                            ierr);
    default:
        return kl_time_transport_to_transport_n(id, &n, fi, &from, fields, fo, &to, fields_out, status, ierr);
    }
}

// A failed element: NaN, zeros, an empty text.
void fail_form(const Form &form, unsigned char *element)
{
    if (form.kind == Form::processing)
        std::memcpy(element, &kNaN, 8);
    else
        std::memset(element, 0, static_cast<std::size_t>(size_of(form)));
}

TEST(TimeArrays, NineConversionsAreTheLoopOfTheirScalarCalls)
{
    unsigned seed = 0;
    for (const auto &[name, fill] : kIds)
        for (const Form &in : kForms)
            for (const Form &out : kForms)
                for (const long n : kLengths) {
                    ++seed;
                    const bool gps_in = in.format == KL_TRANS_42;
                    const bool gps_out = out.format == KL_TRANS_42;
                    const long from = gps_in ? long{KL_TIME_GPS} : static_cast<long>(seed / 3 % 4);
                    const long to = gps_out ? long{KL_TIME_GPS} : static_cast<long>(seed / 12 % 4);
                    if (std::strcmp(name, "none") == 0 && from != to && n > 1)
                        continue; // a refusal of the call, which prints its lines once
                    const bool verbose = seed % 5 == 0;
                    const bool in_place = seed % 7 == 0 && in.kind == out.kind;
                    Pair ids;
                    fill(&ids.scalar.id);
                    fill(&ids.array.id);
                    const auto input = written(in, from, instants(n, seed), seed);
                    const Outcome loop = by_loop(
                        verbose, n, input, size_of(in), size_of(out),
                        [&](const unsigned char *element, unsigned char *result, long *ierr) {
                            return convert_one(&ids.scalar.id, in, from, element, out, to, result, ierr);
                        },
                        [&](unsigned char *element) { fail_form(out, element); });
                    const Outcome array = by_array(
                        verbose, true, in_place, n, input, size_of(out),
                        [&](const unsigned char *elements, unsigned char *results, long *statuses, long *ierr) {
                            return convert_all(&ids.array.id, n, in, from, elements, out, to, results, statuses, ierr);
                        });
                    expect_same(loop, array,
                                std::string(name) + ", " + std::to_string(in.format) + " to "
                                    + std::to_string(out.format) + ", scales " + std::to_string(from) + " to "
                                    + std::to_string(to) + ", n " + std::to_string(n));
                    if (HasFailure())
                        return;
                }
}

TEST(TimeArrays, WithoutStatusesTheResultsAreTheSame)
{
    OwnedTimeId id;
    ASSERT_EQ(daily(1, 1, 0).set(&id.id), 0);
    const std::vector<double> days = instants(200, 3);
    std::vector<double> with(200), without(200);
    std::vector<long> statuses(200);
    const long n = 200, utc = KL_TIME_UTC, ut1 = KL_TIME_UT1;
    long ierr = 0;
    EXPECT_EQ(kl_time_processing_to_processing_n(&id.id, &n, &kProc, &utc, days.data(), &kProc, &ut1, with.data(),
                                                 statuses.data(), &ierr),
              KL_OK);
    EXPECT_EQ(kl_time_processing_to_processing_n(&id.id, &n, &kProc, &utc, days.data(), &kProc, &ut1, without.data(),
                                                 nullptr, nullptr),
              KL_OK);
    EXPECT_EQ(std::memcmp(with.data(), without.data(), n * sizeof(double)), 0);
}

// What refuses the call: every element fails, one bit stands alone, and the lines come once.
TEST(TimeArrays, WhatNoElementDecidesRefusesTheCall)
{
    const double times[3] = {1.0, 2.0, 3.0};
    double out[3] = {5.0, 5.0, 5.0};
    long status[3] = {9, 9, 9};
    long ierr = 0;
    const long n = 3, below = -1, none = 0, utc = KL_TIME_UTC, ut1 = KL_TIME_UT1, bad = 7;
    const auto call = [&](const long *count, const long *from, const long *to, const double *in, double *result) {
        return kl_time_processing_to_processing_n(nullptr, count, &kProc, from, in, &kProc, to, result, status, &ierr);
    };
    struct Row {
        const char *name;
        const long *from, *to;
        const double *in;
        double *result;
        long bit;
    };
    const Row rows[] = {
        {"scale of the input", &bad, &utc, times, out, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR},
        {"scale of the output", &utc, &bad, times, out, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR},
        {"no times", &utc, &utc, nullptr, out, KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR},
        {"no results", &utc, &utc, times, nullptr, kNone},
        {"no correlation", &utc, &ut1, times, out, KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR},
    };
    for (const Row &row : rows) {
        out[0] = out[1] = out[2] = 5.0;
        EXPECT_EQ(call(&n, row.from, row.to, row.in, row.result), KL_ERR) << row.name;
        EXPECT_EQ(ierr, error_or_none(row.bit)) << row.name;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(status[i], KL_ERR) << row.name;
            EXPECT_EQ(out[i] != out[i], row.result != nullptr) << row.name;
        }
    }
    out[0] = 5.0;
    EXPECT_EQ(call(&none, &bad, &bad, nullptr, nullptr), KL_OK);
    EXPECT_EQ(call(&below, &utc, &utc, times, out), KL_ERR);
    EXPECT_EQ(call(nullptr, &utc, &utc, times, out), KL_ERR);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(out[0], 5.0);
    EXPECT_EQ(verbose_text([&] { call(&n, &utc, &ut1, times, out); }),
              "ORBKIT_LIB >>> ERROR in KL_Time_ref_init_file_deltas: Time references not correctly initialised\n"
              "ORBKIT_LIB >>> ERROR in KL_Time_t2t_ref_to_tai: Time reference not initialised\n"
              "ORBKIT_LIB >>> ERROR in kl_time_processing_to_processing: Time reference not initialised\n");
}

// Texts exactly as long as the distance between them have no zero, on either side.
TEST(TimeArrays, TextsAsWideAsTheirLayoutHaveNoZeroBetweenThem)
{
    const char texts[] = "2017-01-01_00:00:002017-01-02_12:30:59bad0-01-02_12:30:592017-01-03_12:30:59";
    const long n = 4, width = 19, utc = KL_TIME_UTC, in = KL_ASCII_11, out = KL_ASCII_41;
    char written_texts[4 * 19 + 1];
    written_texts[4 * 19] = 'E';
    long status[4] = {};
    long ierr[2] = {};
    EXPECT_EQ(kl_time_ascii_to_ascii_n(nullptr, &n, &in, &utc, &width, texts, &out, &utc, &width, written_texts, status,
                                       ierr),
              KL_ERR);
    EXPECT_EQ(std::string(written_texts, sizeof written_texts),
              std::string("2017-01-01T00:00:002017-01-02T12:30:59") + std::string(19, '\0') + "2017-01-03T12:30:59E");
    EXPECT_EQ(status[2], KL_ERR);
}

// ---- add, diff, clocks, codes ----

TEST(TimeArrays, SumsAndDifferencesAreTheLoopOfTheirScalarCalls)
{
    for (unsigned seed = 1; seed < 40; ++seed) {
        const long n = static_cast<long>(seed * 5), utc = KL_TIME_UTC;
        const auto days = instants(n, 2 * seed + 1);
        const auto others = instants(n, 2 * seed);
        for (const bool sum : {true, false}) {
            std::vector<double> loop(days.size()), array = days;
            std::vector<long> expected, statuses(days.size());
            long all = 0, ierr = 0;
            for (std::size_t i = 0; i < days.size(); ++i) {
                long word = 0;
                expected.push_back(
                    (sum ? kl_time_add : kl_time_diff)(&kProc, &utc, &days[i], &others[i], &loop[i], &word));
                if (expected.back() == KL_ERR)
                    loop[i] = kNaN;
                all |= word;
            }
            const long status = (sum ? kl_time_add_n : kl_time_diff_n)(&n, &kProc, &utc, array.data(), others.data(),
                                                                       array.data(), statuses.data(), &ierr);
            EXPECT_EQ(status, all != 0 ? KL_ERR : KL_OK);
            EXPECT_EQ(statuses, expected);
            EXPECT_EQ(ierr, all);
            EXPECT_EQ(std::memcmp(loop.data(), array.data(), days.size() * sizeof(double)), 0);
        }
    }
}

TEST(TimeArrays, ClocksGoThereAndBackAsTheirScalarCalls)
{
    const kl_obt_param_tarvos tarvos = {21, 6000.0, 77, 5, 1000000};
    const kl_obt_param_kelda kelda = {61, 500000000, 7, 100, 9, 1.0000001, 0.25};
    const long gps = KL_TIME_GPS;
    const auto days = instants(150, 4);
    const long n = 150;
    for (const long satellite : {21L, 61L}) {
        const bool counts = satellite == 21;
        const void *parameters = counts ? static_cast<const void *>(&tarvos) : &kelda;
        const std::size_t size = counts ? sizeof(kl_obt_tarvos) : sizeof(kl_obt_kelda);
        std::vector<unsigned char> loop(days.size() * size), array;
        std::vector<long> expected, statuses(days.size());
        std::vector<double> back(days.size()), back_by_array(days.size());
        for (std::size_t i = 0; i < days.size(); ++i) {
            const long tag = i % 17 == 16 ? 51 : satellite;
            std::memcpy(loop.data() + i * size, &tag, sizeof tag);
        }
        array = loop;
        long all = 0, ierr = 0;
        for (std::size_t i = 0; i < days.size(); ++i) {
            long word = 0;
            expected.push_back(
                kl_time_time_to_obt(&satellite, &gps, parameters, &days[i], loop.data() + i * size, &word));
            all |= word;
            if (expected.back() == KL_ERR && !counts)
                std::memcpy(loop.data() + i * size + sizeof(long), &kNaN, sizeof kNaN);
        }
        EXPECT_EQ(
            kl_time_time_to_obt_n(&satellite, &n, &gps, parameters, days.data(), array.data(), statuses.data(), &ierr),
            KL_ERR);
        EXPECT_EQ(ierr, all);
        EXPECT_EQ(statuses, expected);
        EXPECT_EQ(loop, array);

        expected.clear();
        all = 0;
        for (std::size_t i = 0; i < days.size(); ++i) {
            long word = 0;
            back[i] = kNaN;
            expected.push_back(
                kl_time_obt_to_time(&satellite, &gps, parameters, loop.data() + i * size, &back[i], &word));
            all |= word;
        }
        EXPECT_EQ(kl_time_obt_to_time_n(&satellite, &n, &gps, parameters, array.data(), back_by_array.data(),
                                        statuses.data(), &ierr),
                  KL_ERR);
        EXPECT_EQ(ierr, all);
        EXPECT_EQ(statuses, expected);
        EXPECT_EQ(std::memcmp(back.data(), back_by_array.data(), days.size() * sizeof(double)), 0);
    }
}

TEST(TimeArrays, UnsegmentedCodesGoThereAndBackAsTheirScalarCalls)
{
    const kl_cuc_config configs[] = {
        {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, 0, 0.0, 4, 3},
        {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_USER, KL_TIME_UTC, 6195.0, 5, 4},
    };
    const auto days = instants(150, 5);
    const long n = 150, width = 21, ut1 = KL_TIME_UT1;
    for (const kl_cuc_config &config : configs) {
        Pair ids;
        ASSERT_EQ(daily(1, 0, 0).set(&ids.scalar.id), 0);
        ASSERT_EQ(daily(1, 0, 0).set(&ids.array.id), 0);
        std::vector<unsigned char> loop(days.size() * 21), array(days.size() * 21, 0xA5);
        std::vector<long> expected, statuses(days.size());
        std::vector<double> back(days.size()), back_by_array(days.size());
        long all = 0, ierr = 0;
        for (std::size_t i = 0; i < days.size(); ++i) {
            long word = 0;
            expected.push_back(
                kl_time_processing_to_cuc(&ids.scalar.id, &config, &ut1, &days[i], loop.data() + i * 21, &word));
            all |= word;
        }
        kl_time_processing_to_cuc_n(&ids.array.id, &n, &config, &ut1, days.data(), &width, array.data(),
                                    statuses.data(), &ierr);
        EXPECT_EQ(ierr, all);
        EXPECT_EQ(statuses, expected);
        EXPECT_EQ(loop, array);

        loop[21 * 7] = array[21 * 7] = 0xFF; // a P-field that announces what the element has not
        expected.clear();
        all = 0;
        for (std::size_t i = 0; i < days.size(); ++i) {
            long word = 0;
            back[i] = kNaN;
            expected.push_back(
                kl_time_cuc_to_processing(&ids.scalar.id, &config, &ut1, loop.data() + i * 21, &back[i], &word));
            all |= word;
        }
        kl_time_cuc_to_processing_n(&ids.array.id, &n, &config, &ut1, &width, array.data(), back_by_array.data(),
                                    statuses.data(), &ierr);
        EXPECT_EQ(ierr, all);
        EXPECT_EQ(statuses, expected);
        EXPECT_EQ(std::memcmp(back.data(), back_by_array.data(), days.size() * sizeof(double)), 0);
    }
}

} // namespace
