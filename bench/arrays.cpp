// Array forms beside a loop over their scalar calls and beside a rival, one and two threads. A line a row:
// label, octets an element, ns of the scalar call, of the array, of the array on two threads, of the rival (0: none).
//
//     arrays [N [NAME]]        all rows, or those whose form is named, over N elements (a million)
//     arrays count ROW N       the array call of a row alone, once, for counting its instructions; N below 0: the
//     inputs
//                              of -N elements, and no call
//     arrays copy              gigabytes a second that a copy reads and writes
#include "support/every_array.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <erfa.h>
#include <erfam.h>
#include <functional>
#include <string>
#include <thread>
#include <time.h>

namespace {

constexpr double kShortest = 0.05; // s, of a repetition
constexpr int kRepetitions = 7;
constexpr double kJd = 2451544.5;

using Rival = void (*)(const ArrayWorld &w, long i, double *out);

struct Row {
    const char *label;
    const char *form;
    std::vector<std::pair<const char *, long>> selectors;
    Instants instants;
    const char *rival_name;
    Rival rival;
};

const double *reals(const ArrayWorld &w, int k, long i)
{
    return w.element<double>(k, i);
}

// ---- rivals: ERFA, called in a loop as its users do ----

void gc2gd(const ArrayWorld &w, long i, double *out)
{
    double xyz[3];
    std::memcpy(xyz, reals(w, 0, i), sizeof xyz);
    eraGc2gd(ERFA_WGS84, xyz, out, out + 1, out + 2);
}
void gd2gc(const ArrayWorld &w, long i, double *out)
{
    const double *g = reals(w, 0, i);
    eraGd2gc(ERFA_WGS84, g[1] * ERFA_DD2R, g[0] * ERFA_DD2R, g[2], out);
}
void pv2s(const ArrayWorld &w, long i, double *out)
{
    double pv[2][3];
    std::memcpy(pv[0], reals(w, 0, i), sizeof pv[0]);
    std::memcpy(pv[1], reals(w, 1, i), sizeof pv[1]);
    eraPv2s(pv, out, out + 1, out + 2, out + 3, out + 4, out + 5);
}
void s2pv(const ArrayWorld &w, long i, double *out)
{
    const double *g = reals(w, 0, i);
    double pv[2][3];
    eraS2pv(g[0] * ERFA_DD2R, g[1] * ERFA_DD2R, g[2], g[3] * ERFA_DD2R, g[4] * ERFA_DD2R, g[5], pv);
    std::memcpy(out, pv, sizeof pv);
}
void utcut1(const ArrayWorld &w, long i, double *out)
{
    eraUtcut1(kJd, *reals(w, 0, i), -0.02, out, out + 1);
}
void moon98(const ArrayWorld &w, long i, double *out)
{
    double pv[2][3];
    eraMoon98(kJd, *reals(w, 0, i), pv);
    std::memcpy(out, pv, sizeof pv);
}
void plan94(const ArrayWorld &w, long i, double *out)
{
    double pv[2][3];
    eraPlan94(kJd, *reals(w, 0, i), 4, pv);
    std::memcpy(out, pv, sizeof pv);
}
void epv00(const ArrayWorld &w, long i, double *out)
{
    double heliocentric[2][3], barycentric[2][3];
    eraEpv00(kJd, *reals(w, 0, i), heliocentric, barycentric);
    std::memcpy(out, heliocentric, sizeof heliocentric);
}
void c2t06a(const ArrayWorld &w, long i, double *out)
{
    const double t = *reals(w, 0, i);
    double r[3][3], p[3];
    std::memcpy(p, reals(w, 1, i), sizeof p);
    eraC2t06a(kJd, t, kJd, t, 1e-6, 1e-6, r);
    eraRxp(r, p, out);
}
// Of date by the 1976, 1980 and 1994 theories, position alone.
void classical(const ArrayWorld &w, long i, double *out)
{
    const double t = *reals(w, 0, i);
    double r[3][3], p[3];
    std::memcpy(p, reals(w, 1, i), sizeof p);
    eraPnm80(kJd, t, r);
    eraRz(eraGst94(kJd, t), r);
    eraRxp(r, p, out);
}
void dtf2d(const ArrayWorld &w, long i, double *out)
{
    int y = 0, m = 0, d = 0, h = 0, minute = 0;
    double s = 0.0;
    std::sscanf(w.element<char>(0, i), "%d-%d-%d_%d:%d:%lf", &y, &m, &d, &h, &minute, &s);
    eraDtf2d("UTC", y, m, d, h, minute, s, out, out + 1);
}

const Row kRows[] = {
    {"UTC to UT1, ascending instants",
     "kl_time_processing_to_processing_n",
     {{"time_ref_in", 1}, {"time_ref_out", 2}},
     Instants::in_runs,
     "ERFA utcut1, UT1 given",
     utcut1},
    {"UTC to UT1, instants at random",
     "kl_time_processing_to_processing_n",
     {{"time_ref_in", 1}, {"time_ref_out", 2}},
     Instants::each_its_own,
     "ERFA utcut1, UT1 given",
     utcut1},
    {"text 13 to processing time",
     "kl_time_ascii_to_processing_n",
     {{"ascii_id_in", KL_ASCII_13}, {"time_ref_in", 1}, {"time_ref_out", 1}},
     Instants::each_its_own,
     "sscanf, ERFA dtf2d",
     dtf2d},
    {"processing time to text 13",
     "kl_time_processing_to_ascii_n",
     {{"ascii_id_out", KL_ASCII_13}, {"time_ref_in", 1}, {"time_ref_out", 1}},
     Instants::each_its_own,
     nullptr,
     nullptr},
    {"GM2000 to EF with rates, own instants",
     "kl_change_cart_cs_n",
     {{"cs_in", KL_GM2000}, {"cs_out", KL_EF}, {"calc_mode", 3}},
     Instants::each_its_own,
     "ERFA pnm80, gst94, position",
     classical},
    {"GM2000 to EF with rates, one instant",
     "kl_change_cart_cs_n",
     {{"cs_in", KL_GM2000}, {"cs_out", KL_EF}, {"calc_mode", 3}},
     Instants::one,
     nullptr,
     nullptr},
    {"TEME to EF with velocity, own instants",
     "kl_change_cart_cs_n",
     {{"cs_in", KL_TEME}, {"cs_out", KL_EF}, {"calc_mode", 2}},
     Instants::each_its_own,
     nullptr,
     nullptr},
    {"GCRS to ITRS with rates, own instants",
     "kl_iers_change_n",
     {{"cs_in", KL_GCRS}, {"cs_out", KL_ITRS}, {"calc_mode", 3}, {"corrections", 0}},
     Instants::each_its_own,
     "ERFA c2t06a, position",
     c2t06a},
    {"GCRS to ITRS with rates, one instant",
     "kl_iers_change_n",
     {{"cs_in", KL_GCRS}, {"cs_out", KL_ITRS}, {"calc_mode", 3}, {"corrections", 0}},
     Instants::one,
     nullptr,
     nullptr},
    {"Sun", "kl_sun_n", {}, Instants::each_its_own, "ERFA epv00, inertial", epv00},
    {"Moon", "kl_moon_n", {}, Instants::each_its_own, "ERFA moon98, inertial", moon98},
    {"Mars", "kl_planet_n", {{"planet_id", 4}}, Instants::each_its_own, "ERFA plan94, inertial", plan94},
    {"geoid of degree 360, scattered", "kl_geoid_calc_n", {{"max_degree", 360}}, Instants::one, nullptr, nullptr},
    {"Cartesian to geodetic with rates",
     "kl_cart_to_geod_n",
     {{"calc_mode", 2}},
     Instants::one,
     "ERFA gc2gd, no rates",
     gc2gd},
    {"Cartesian to geodetic", "kl_cart_to_geod_n", {{"calc_mode", 1}}, Instants::one, "ERFA gc2gd", gc2gd},
    {"geodetic to Cartesian with rates",
     "kl_geod_to_cart_n",
     {{"calc_mode", 2}},
     Instants::one,
     "ERFA gd2gc, no rates",
     gd2gc},
    {"Cartesian to right ascension, rates", "kl_cart_to_radec_n", {{"calc_mode", 2}}, Instants::one, "ERFA pv2s", pv2s},
    {"right ascension to Cartesian, rates", "kl_radec_to_cart_n", {{"calc_mode", 2}}, Instants::one, "ERFA s2pv", s2pv},
    {"Earth-fixed to topocentric, rates",
     "kl_ef_to_topocentric_n",
     {{"calc_mode", 2}},
     Instants::one,
     nullptr,
     nullptr},
    {"topocentric to Earth-fixed, rates",
     "kl_topocentric_to_ef_n",
     {{"calc_mode", 2}},
     Instants::one,
     nullptr,
     nullptr},
    {"Kepler to Cartesian, osculating", "kl_kepl_to_cart_n", {{"kind", 0}}, Instants::one, nullptr, nullptr},
    {"Cartesian to Kepler, osculating", "kl_cart_to_kepl_n", {{"kind", 0}}, Instants::one, nullptr, nullptr},
    {"local orbital frame", "kl_local_orbital_frame_n", {{"kind", 1}}, Instants::one, nullptr, nullptr},
    {"quaternions to vectors", "kl_quaternions_to_vectors_n", {}, Instants::one, nullptr, nullptr},
    {"vectors to quaternions", "kl_vectors_to_quaternions_n", {}, Instants::one, nullptr, nullptr},
    {"Euler angles to matrix", "kl_euler_to_matrix_n", {}, Instants::one, nullptr, nullptr},
    {"matrix to Euler angles", "kl_matrix_to_euler_n", {}, Instants::one, nullptr, nullptr},
    {"rotation angles", "kl_get_rotation_angles_n", {}, Instants::one, nullptr, nullptr},
    {"rotated vectors", "kl_get_rotated_vectors_n", {}, Instants::one, nullptr, nullptr},
    {"quaternion interpolation", "kl_quaternions_interpol_n", {{"mode", 0}}, Instants::one, nullptr, nullptr},
    {"eclipse, own instants",
     "kl_eclipse_n",
     {{"cs", KL_GM2000}, {"light_time", 0}},
     Instants::each_its_own,
     nullptr,
     nullptr},
    {"eclipse, one instant", "kl_eclipse_n", {{"cs", KL_GM2000}, {"light_time", 0}}, Instants::one, nullptr, nullptr},
    {"star places, one instant",
     "kl_star_radec_n",
     {{"cs_out", KL_TOD}, {"corrections", 7}},
     Instants::one,
     nullptr,
     nullptr},
};

// The elements of one form, and its calls over part of them.
struct Bench {
    const ArrayForm &form;
    ArrayWorld world;
    std::vector<Bytes> columns;
    long n;
    std::vector<long> status;
    double sink = 0.0;

    Bench(const ArrayForm &f, const ArrayWorld &w, long elements, Instants instants, bool ascending)
        : form(f), world(w), n(elements), status(static_cast<std::size_t>(elements))
    {
        Random random(1);
        columns = make_inputs(f, w, n, false, instants, random);
        for (std::size_t k = 0; k < f.columns.size(); ++k) {
            world.width[k] = width_of(w, f.columns[k]);
            world.at[k] = columns[k].data();
            auto *days = reinterpret_cast<double *>(columns[k].data());
            if (ascending && world.width[k] == 8 && f.columns[k].role == 'e')
                for (long i = 0; i < n; ++i)
                    days[i] = 6100.0 + 3000.0 * static_cast<double>(i) / static_cast<double>(n);
        }
    }
    ArrayWorld from(long first) const
    {
        ArrayWorld part = world;
        for (std::size_t k = 0; k < columns.size(); ++k)
            part.at[k] = world.at[k] + first * world.width[k];
        return part;
    }
    void all(long first, long count)
    {
        ArrayWorld part = from(first);
        long ierr[2];
        form.all(part, &count, status.data() + first, ierr);
    }
    void loop()
    {
        long ierr[2];
        for (long i = 0; i < n; ++i)
            status[static_cast<std::size_t>(i)] = form.one(world, i, ierr);
    }
};

double now(clockid_t clock)
{
    timespec t;
    clock_gettime(clock, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

// One thread: the time that it has had the processor for, which others do not lengthen. Several: of the clock.
double seconds_of(const std::function<void()> &work, bool alone)
{
    const clockid_t clock = alone ? CLOCK_THREAD_CPUTIME_ID : CLOCK_MONOTONIC;
    const double start = now(clock);
    work();
    return now(clock) - start;
}

// The shortest of some repetitions, each over `part` calls of it.
double shortest(const std::function<void()> &work, bool alone = true)
{
    double one = seconds_of(work, alone);
    const int calls = std::max(1, static_cast<int>(kShortest / std::max(one, 1e-9)));
    for (int r = 0; r < kRepetitions; ++r)
        one = std::min(one, seconds_of(
                                [&] {
                                    for (int i = 0; i < calls; ++i)
                                        work();
                                },
                                alone)
                                / calls);
    return one;
}

const ArrayForm *form_of(const char *name)
{
    for (const ArrayForm &f : every_array_form())
        if (std::strcmp(f.name, name) == 0)
            return &f;
    return nullptr;
}

void report(const Row &row, const ArrayWorld &opened, long n)
{
    const ArrayForm &f = *form_of(row.form);
    ArrayWorld w = opened;
    Random random(5);
    for (const auto &[name, value] : row.selectors)
        w.selectors[name] = value;
    Bench bench(f, w, n, row.instants, row.instants == Instants::in_runs);
    const long octets = [&] {
        long sum = 8; // the status
        for (std::size_t k = 0; k < f.columns.size(); ++k)
            sum += bench.world.width[k] * (f.columns[k].role == 'b' ? 2 : 1);
        return sum;
    }();
    const double per = 1e9 / static_cast<double>(n);
    const double array = shortest([&] { bench.all(0, n); }) * per;
    const double scalar = shortest([&] { bench.loop(); }) * per;
    const double two = shortest([&] {
                           std::thread other([&] { bench.all(0, n / 2); });
                           bench.all(n / 2, n - n / 2);
                           other.join();
                       })
                       * per;
    double rival = 0.0;
    if (row.rival != nullptr)
        rival = shortest([&] {
                    double out[9] = {};
                    for (long i = 0; i < n; ++i) {
                        row.rival(bench.world, i, out);
                        bench.sink += out[0];
                    }
                })
                * per;
    if (std::count(bench.status.begin(), bench.status.end(), long{KL_ERR}) == n)
        std::printf("# refused: ");
    std::printf("%s;%s;%ld;%.1f;%.1f;%.1f;%s;%.1f\n", row.label, row.form, octets, scalar, array, two,
                row.rival_name != nullptr ? row.rival_name : "", rival);
    std::fflush(stdout);
}

void choose_plainly(ArrayWorld *w)
{
    Random random(1);
    choose(random, w);
    for (const char *name : {"time_ref", "time_ref_in", "time_ref_out"})
        w->selectors[name] = KL_TIME_UTC;
}

} // namespace

int main(int argc, char **argv)
{
    kl_silent();
    ArrayWorld w;
    if (!w.open(Correlation::built_in))
        return 1;
    choose_plainly(&w);
    if (argc == 4 && std::strcmp(argv[1], "count") == 0) {
        const Row &row = kRows[std::atol(argv[2])];
        for (const auto &[name, value] : row.selectors)
            w.selectors[name] = value;
        const long n = std::atol(argv[3]);
        Bench bench(*form_of(row.form), w, std::abs(n), row.instants, row.instants == Instants::in_runs);
        if (n > 0)
            bench.all(0, n);
        std::puts(row.form);
    } else if (argc == 2 && std::strcmp(argv[1], "copy") == 0) {
        const std::size_t octets = 64 << 20;
        Bytes from(octets, 1), to(octets, 2);
        const double seconds = shortest([&] { std::memcpy(to.data(), from.data(), octets); });
        std::printf("%.2f\n", 2e-9 * static_cast<double>(octets) / seconds);
    } else {
        const long n = argc > 1 ? std::atol(argv[1]) : 1000000;
        for (const Row &row : kRows)
            if (argc < 3 || std::strcmp(argv[2], row.form) == 0)
                report(row, w, std::strcmp(row.form, "kl_geoid_calc_n") == 0 ? n / 500 + 64 : n);
    }
    w.close();
    return 0;
}
