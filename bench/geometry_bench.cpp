// Roots, lines of sight and eclipses, each by the kernel that other libraries of the family call and by its public
// door; beside them the eigenvalues of the companion matrix, as most libraries take roots.
#include "kl_family.h"
#include "kl_lib.h"

#include <benchmark/benchmark.h>
#include <unsupported/Eigen/Polynomials>

#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

constexpr std::size_t kMany = 4096; // inputs in turn, so that no branch is learnt by heart

class Turns {
public:
    std::size_t next() { return i_ = (i_ + 1) % kMany; }

private:
    std::size_t i_ = 0;
};

// Polynomials of random roots of size 1e-3 to 1e3: of order 4 with none, two and four real ones in turn.
std::vector<double> polynomials(int order)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> size(-3.0, 3.0);
    std::vector<double> out;
    for (std::size_t i = 0; i < kMany; ++i) {
        const auto root = [&] { return std::pow(10.0, size(random)) * (random() % 2 == 0 ? 1.0 : -1.0); };
        double c[5] = {1.0, 0.0, 0.0, 0.0, 0.0};
        for (int n = 0; n < order;) {
            const bool pair = n + 2 <= order && static_cast<int>(i % 3) * 2 > n;
            const double a = root();
            const double b = root();
            const double factor[3] = {pair ? a * a + b * b : -a, pair ? -2.0 * a : 1.0, pair ? 1.0 : 0.0};
            n += pair ? 2 : 1;
            double product[5] = {};
            for (int k = 0; k <= 4; ++k)
                for (int j = 0; j < 3 && k + j <= 4; ++j)
                    product[k + j] += c[k] * factor[j];
            for (int k = 0; k <= 4; ++k)
                c[k] = product[k];
        }
        out.insert(out.end(), c, c + order + 1);
    }
    return out;
}

template <class Call>
void each_polynomial(benchmark::State &state, long order, Call call)
{
    const std::vector<double> c = polynomials(static_cast<int>(order));
    Turns turns;
    double found[4];
    for (auto _ : state) {
        if (call(&c[turns.next() * static_cast<std::size_t>(order + 1)], found) == KL_ERR)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(found);
    }
}

void roots_by_kernel(benchmark::State &state, long order)
{
    each_polynomial(state, order, [&](const double *c, double *found) { return KL_Poly_real_roots(order, c, found); });
}

void roots(benchmark::State &state, long order)
{
    long n = 0;
    each_polynomial(state, order,
                    [&](const double *c, double *found) { return kl_poly_real_roots(&order, c, found, &n, nullptr); });
}

template <int order>
void roots_by_eigenvalues(benchmark::State &state)
{
    const std::vector<double> c = polynomials(order);
    Turns turns;
    Eigen::PolynomialSolver<double, order> solver;
    std::vector<double> found;
    for (auto _ : state) {
        const Eigen::Map<const Eigen::Matrix<double, order + 1, 1>> one(&c[turns.next() * (order + 1)]);
        solver.compute(one);
        found.clear();
        solver.realRoots(found);
        benchmark::DoNotOptimize(found.data());
    }
}

// Satellites of 500 to 1500 km that look past the limb, down or up, from where the Sun may be hidden or not.
struct Sight {
    double pos[3], dir[3];
};

std::vector<Sight> sights(double lowest, double highest) // m: height of the line of sight
{
    std::mt19937_64 random(5);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> height(lowest, highest);
    std::uniform_real_distribution<double> orbit(6.9e6, 7.9e6);
    std::vector<Sight> out(kMany);
    for (Sight &s : out) {
        double length = 0.0;
        for (double &x : s.pos) {
            x = normal(random);
            length += x * x;
        }
        const double r = orbit(random);
        for (double &x : s.pos)
            x *= r / std::sqrt(length);
        const double across[3] = {-s.pos[1], s.pos[0], 0.0};
        const double sine = (6.37e6 + height(random)) / r;
        const double cosine = std::sqrt(1.0 - sine * sine);
        const double side = std::hypot(s.pos[0], s.pos[1]);
        for (int i = 0; i < 3; ++i)
            s.dir[i] = -cosine * s.pos[i] / r + sine * across[i] / side;
    }
    return out;
}

template <class Call>
void each_sight(benchmark::State &state, const std::vector<Sight> &all, Call call)
{
    Turns turns;
    for (auto _ : state)
        if (call(all[turns.next()]) == KL_ERR)
            state.SkipWithError("refused");
}

void ray_ellipsoid_by_kernel(benchmark::State &state)
{
    double t[2];
    each_sight(state, sights(-5e5, 1e5), [&](const Sight &s) {
        const long n = KL_Ray_ellipsoid(nullptr, s.pos, s.dir, 0.0, t);
        benchmark::DoNotOptimize(t);
        return n;
    });
}

void ray_ellipsoid(benchmark::State &state)
{
    const double margin = 0.0;
    double t[2];
    long n = 0;
    each_sight(state, sights(-5e5, 1e5), [&](const Sight &s) {
        const long status = kl_ray_ellipsoid(nullptr, s.pos, s.dir, &margin, t, &n, nullptr);
        benchmark::DoNotOptimize(t);
        return status;
    });
}

void ray_height_by_kernel(benchmark::State &state)
{
    double t[2];
    each_sight(state, sights(-5e5, 1e5), [&](const Sight &s) {
        const long n = KL_Ray_height(nullptr, s.pos, s.dir, 1e5, t);
        benchmark::DoNotOptimize(t);
        return n;
    });
}

void ray_height(benchmark::State &state)
{
    const double height = 1e5;
    double t[2];
    long n = 0;
    each_sight(state, sights(-5e5, 1e5), [&](const Sight &s) {
        const long status = kl_ray_height(nullptr, s.pos, s.dir, &height, t, &n, nullptr);
        benchmark::DoNotOptimize(t);
        return status;
    });
}

void ray_tangent_by_kernel(benchmark::State &state)
{
    double t = 0.0, point[3];
    kl_geodetic geodetic;
    each_sight(state, sights(0.0, 3e5), [&](const Sight &s) {
        const long meets = KL_Ray_tangent(nullptr, s.pos, s.dir, &t, point, &geodetic);
        benchmark::DoNotOptimize(geodetic);
        return meets;
    });
}

void ray_tangent(benchmark::State &state)
{
    double t = 0.0, point[3];
    kl_geodetic geodetic;
    long meets = 0;
    each_sight(state, sights(0.0, 3e5), [&](const Sight &s) {
        const long status = kl_ray_tangent(nullptr, s.pos, s.dir, &t, point, &geodetic, &meets, nullptr);
        benchmark::DoNotOptimize(geodetic);
        return status;
    });
}

// The Sun low over the limb: half of the satellites in the penumbra.
void eclipse(benchmark::State &state)
{
    const std::vector<Sight> all = sights(-4e4, 4e4);
    Turns turns;
    constexpr double kAu = 149597870700.0;
    long where = 0;
    double fraction = 0.0;
    double depth = 0.0;
    for (auto _ : state) {
        const Sight &s = all[turns.next()];
        const double sun[3] = {kAu * s.dir[0], kAu * s.dir[1], kAu * s.dir[2]};
        if (KL_Eclipse(nullptr, s.pos, sun, nullptr, &where, &fraction, &depth, nullptr) != KL_OK)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(depth);
    }
}

void eclipse_at_date(benchmark::State &state, long light_time, bool own_instants)
{
    const std::vector<Sight> all = sights(-4e4, 4e4);
    std::vector<double> time(kMany);
    std::vector<double> pos, fraction(kMany), depth(kMany);
    std::vector<long> where(kMany);
    for (std::size_t i = 0; i < kMany; ++i) {
        time[i] = own_instants ? 9000.0 + 0.0007 * static_cast<double>(i) : 9000.0;
        pos.insert(pos.end(), all[i].pos, all[i].pos + 3);
    }
    kl_time_id id = {};
    const double readings[4] = {9000.0, 9000.0 - 37.0 / 86400.0, 9000.0 - 37.0 / 86400.0, 9000.0 - 19.0 / 86400.0};
    if (kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr) != KL_OK)
        std::abort();
    const long n = kMany, tod = KL_TOD, tai = KL_TIME_TAI;
    for (auto _ : state)
        if (kl_eclipse_n(nullptr, &id, &n, &light_time, &tod, &tai, time.data(),
                         reinterpret_cast<const double(*)[3]>(pos.data()), nullptr, where.data(), fraction.data(),
                         depth.data(), nullptr, nullptr)
            != KL_OK)
            state.SkipWithError("refused");
    state.SetItemsProcessed(state.iterations() * n);
    kl_time_close(&id, nullptr);
}

BENCHMARK_CAPTURE(roots_by_kernel, two, 2)->Name("KL_Poly_real_roots, order 2 (kernel)");
BENCHMARK_CAPTURE(roots, two, 2)->Name("kl_poly_real_roots, order 2 (door)");
BENCHMARK(roots_by_eigenvalues<2>)->Name("kl_poly_real_roots, order 2 (door)/rival Eigen PolynomialSolver");
BENCHMARK_CAPTURE(roots_by_kernel, three, 3)->Name("KL_Poly_real_roots, order 3 (kernel)");
BENCHMARK_CAPTURE(roots, three, 3)->Name("kl_poly_real_roots, order 3 (door)");
BENCHMARK(roots_by_eigenvalues<3>)->Name("kl_poly_real_roots, order 3 (door)/rival Eigen PolynomialSolver");
BENCHMARK_CAPTURE(roots_by_kernel, four, 4)->Name("KL_Poly_real_roots, order 4 (kernel)");
BENCHMARK_CAPTURE(roots, four, 4)->Name("kl_poly_real_roots, order 4 (door)");
BENCHMARK(roots_by_eigenvalues<4>)->Name("kl_poly_real_roots, order 4 (door)/rival Eigen PolynomialSolver");
BENCHMARK(ray_ellipsoid_by_kernel)->Name("KL_Ray_ellipsoid (kernel)");
BENCHMARK(ray_ellipsoid)->Name("kl_ray_ellipsoid (door)");
BENCHMARK(ray_height_by_kernel)->Name("KL_Ray_height (kernel)");
BENCHMARK(ray_height)->Name("kl_ray_height (door)");
BENCHMARK(ray_tangent_by_kernel)->Name("KL_Ray_tangent (kernel)");
BENCHMARK(ray_tangent)->Name("kl_ray_tangent (door)");
BENCHMARK(eclipse)->Name("KL_Eclipse");
BENCHMARK_CAPTURE(eclipse_at_date, own, 0, true)->Name("kl_eclipse_n, own instants");
BENCHMARK_CAPTURE(eclipse_at_date, light, 1, true)->Name("kl_eclipse_n, own instants and light time");
BENCHMARK_CAPTURE(eclipse_at_date, one, 0, false)->Name("kl_eclipse_n, one instant");

} // namespace
