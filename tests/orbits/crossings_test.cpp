// Zeros of functions of time.
#include "kl_lib.h"
#include "support/conditions.h"
#include "support/csv.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

struct Function {
    double (*f)(double);
    long calls = 0, instants = 0;
    double first = HUGE_VAL, last = -HUGE_VAL;
};

long values_of(void *context, const long *n, const double *times, double *values)
{
    auto *function = static_cast<Function *>(context);
    ++function->calls;
    function->instants += *n;
    for (long i = 0; i < *n; ++i) {
        values[i] = function->f(times[i]);
        function->first = std::min(function->first, times[i]);
        function->last = std::max(function->last, times[i]);
    }
    return KL_OK;
}

long failing(void *, const long *, const double *, double *)
{
    return KL_ERR;
}

struct Found {
    long status = KL_OK;
    std::vector<kl_crossing> all;
    Function used;
};

Found crossings(double (*f)(double), double start, double stop, double step, double tolerance = 1e-12, long max = 100)
{
    Found out;
    out.used.f = f;
    out.all.resize(static_cast<std::size_t>(max));
    long n = -1, ierr = -1;
    out.status =
        kl_find_crossings(values_of, &out.used, &start, &stop, &step, &tolerance, &max, &n, out.all.data(), &ierr);
    EXPECT_EQ(ierr, 0);
    out.all.resize(static_cast<std::size_t>(n));
    EXPECT_GE(out.used.first, start);
    EXPECT_LE(out.used.last, stop);
    return out;
}

} // namespace

TEST(Crossings, KnownZeros)
{
    struct Case {
        const char *name;
        double (*f)(double);
        double start, stop, step;
        std::vector<double> zeros;
    };
    const Case cases[] = {
        {"cosine",
         [](double t) { return std::cos(t); },
         0.0,
         20.0,
         0.7,
         {1.5707963267948966, 4.71238898038469, 7.853981633974483, 10.995574287564276, 14.137166941154069,
          17.278759594743864}},
        {"a pair within a step", [](double t) { return (t - 5.05) * (t - 5.07); }, 0.0, 10.0, 1.0, {5.05, 5.07}},
        {"a pair within the first step",
         [](double t) { return (t - 0.3) * (t - 0.5) - 1e-3; },
         0.0,
         10.0,
         1.0,
         {0.4 - std::sqrt(0.011), 0.4 + std::sqrt(0.011)}},
        {"a pair within the last step", [](double t) { return -(t - 9.3) * (t - 9.5); }, 0.0, 10.0, 1.0, {9.3, 9.5}},
        {"a grazing wave",
         [](double t) { return std::sin(t) - 0.9999; },
         0.0,
         6.0,
         0.5,
         {std::asin(0.9999), 3.141592653589793 - std::asin(0.9999)}},
        {"a narrow pair in a lopsided dip",
         [](double t) { return ((t - 4.5) * (t - 4.5) - 1e-6) * (1.0 + (t - 4.5) * (t - 4.2)); },
         0.0,
         10.0,
         1.0,
         {4.499, 4.501}},
        {"a narrow pair beside a sample",
         [](double t) { return ((t - 1.99) * (t - 1.99) - 1e-6) * (1.0 + 0.3 * (t - 1.99)); },
         0.0,
         10.0,
         1.0,
         {1.989, 1.991}},
        {"touching without crossing", [](double t) { return (t - 5.3) * (t - 5.3) + 1e-9; }, 0.0, 10.0, 1.0, {}},
        {"flat as a cube", [](double t) { return (t - 2.2) * (t - 2.2) * (t - 2.2); }, 0.0, 10.0, 1.0, {2.2}},
        {"steep", [](double t) { return std::atan(1e6 * (t - 3.3)); }, 0.0, 10.0, 1.0, {3.3}},
        {"on the grid", [](double t) { return t - 4.0; }, 0.0, 10.0, 1.0, {4.0}},
        {"one step", [](double t) { return t - 4.0; }, 0.0, 10.0, 100.0, {4.0}},
        {"at 36000 days",
         [](double t) { return std::sin((t - 36000.0) * 10.0 - 1.0); },
         36000.0,
         36000.3,
         0.01,
         {36000.1}},
    };
    for (const Case &c : cases) {
        const double tolerance = c.start > 1e3 ? 1e-11 : 1e-12;
        const Found found = crossings(c.f, c.start, c.stop, c.step, tolerance);
        EXPECT_EQ(found.status, KL_OK) << c.name;
        std::vector<double> zeros;
        long last = 0;
        for (const kl_crossing &x : found.all) {
            EXPECT_NE(x.direction, last) << c.name; // they alternate
            last = x.direction;
            EXPECT_EQ(x.value, c.f(x.time)) << c.name;
            if (x.cut)
                EXPECT_TRUE(x.value > 0.0 && x.time == (x.direction > 0 ? c.start : c.stop)) << c.name;
            else
                zeros.push_back(x.time);
        }
        ASSERT_EQ(zeros.size(), c.zeros.size()) << c.name;
        for (std::size_t i = 0; i < zeros.size(); ++i)
            EXPECT_NEAR(zeros[i], c.zeros[i], 2.0 * tolerance) << c.name;
    }
}

// The parabola through three samples lies beside the top of the wave; the top above zero is seen all the same.
TEST(Crossings, AGrazingPairIsSeenWhereverTheGridLies)
{
    for (int k = 0; k < 200; ++k) {
        const double start = -2.0 + 0.005 * k, before = std::asin(0.9999);
        const Found found = crossings([](double t) { return std::sin(t) - 0.9999; }, start, start + 6.0, 1.0);
        ASSERT_EQ(found.all.size(), 2U) << start;
        EXPECT_NEAR(found.all[0].time, before, 2e-12) << start;
        EXPECT_NEAR(found.all[1].time, 3.141592653589793 - before, 2e-12) << start;
    }
}

TEST(Crossings, FewValuesAreAskedFor)
{
    const Found found =
        crossings([](double t) { return std::sin(t) + 0.2 * std::cos(3.0 * t); }, 0.0, 300.0, 0.5, 1e-9, 200);
    EXPECT_EQ(found.status, KL_OK);
    ASSERT_GT(found.all.size(), 90u);
    const long grid = 601;
    const long each = (found.used.instants - grid) / static_cast<long>(found.all.size());
    EXPECT_LE(each, 9); // halving alone would need 29
    EXPECT_LE(found.used.calls, 11 + found.used.instants - grid);
}

TEST(Crossings, EndsRoomAndFailures)
{
    const auto wave = [](double t) { return std::cos(t); };
    Found found = crossings(wave, 0.0, 6.0, 0.5);
    ASSERT_EQ(found.all.size(), 4u); // above zero at both ends
    EXPECT_EQ(found.all[0].cut, 1);
    EXPECT_EQ(found.all[3].cut, 1);
    EXPECT_EQ(found.all[3].direction, -1);
    EXPECT_EQ(found.all[1].cut + found.all[2].cut, 0);
    found = crossings(wave, 0.0, 20.0, 0.5, 1e-9, 3);
    EXPECT_EQ(found.status, KL_WARN);
    EXPECT_EQ(found.all.size(), 3u);
    found = crossings([](double) { return -1.0; }, 0.0, 20.0, 0.5, 1e-9, 0);
    EXPECT_EQ(found.status, KL_OK);

    Function function = {wave};
    const double zero = 0.0, ten = 10.0, half = 0.5;
    const long max = 5;
    long n = 7;
    kl_crossing out[5];
    LEAVES(kRefused, kl_find_crossings(failing, nullptr, &zero, &ten, &half, &half, &max, &n, out, e))
    function.f = [](double t) { return t < 5.0 ? -1.0 : std::nan(""); };
    LEAVES(kRefused, kl_find_crossings(values_of, &function, &zero, &ten, &half, &half, &max, &n, out, e))
}

// What the example prints against a computation of its own (tools/passes_truth.py): to the millisecond that it prints.
TEST(Passes, OfTheExample)
{
    const auto events = read_table("passes.csv", 4);
    std::ifstream file("examples/passes.txt");
    std::size_t i = 0;
    for (std::string line; std::getline(file, line); i += 3) {
        ASSERT_LE(i + 3, events.size());
        int h[3], m[3];
        double s[3], azimuth[3], high;
        ASSERT_EQ(std::sscanf(line.c_str(),
                              "rise %d:%d:%lf %lf deg top %d:%d:%lf %lf deg %lf high set %d:%d:%lf %lf deg", h, m, s,
                              azimuth, h + 1, m + 1, s + 1, azimuth + 1, &high, h + 2, m + 2, s + 2, azimuth + 2),
                  13);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(3600.0 * h[k] + 60.0 * m[k] + s[k], events[i + k][1], 1e-3) << line;
            EXPECT_NEAR(azimuth[k], events[i + k][2], 0.051) << line;
        }
        EXPECT_NEAR(high, events[i + 1][3], 0.051) << line;
    }
    EXPECT_EQ(i, events.size());
}
