// The longest call of every function that takes a number, beside its median: no number makes a call more than ten times
// as long. Prints a line a function; ends with 1 when one is longer.
#include "kl_lib.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kAllowed = 10.0;
constexpr int kNumbers = 4000;
constexpr int kCalls = 16; // in one measurement
constexpr int kTries = 7;  // the shortest of them counts: the rest is the machine's

constexpr long kProc = KL_PROC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kUt1 = KL_TIME_UT1;

kl_time_id time_id = {nullptr};

bool open_time_id()
{
    static kl_time_row rows[2000];
    for (int i = 0; i < 2000; ++i) {
        const double utc = 5000.0 + i;
        const double tai_utc = utc < 6209.0 ? 36.0 : 37.0;
        const double tai = utc + tai_utc / 86400.0;
        rows[i] = {tai, tai - 36.4 / 86400.0, utc, tai_utc, 36.4, 19.0};
    }
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.n_rows = 2000;
    data.rows = rows;
    return kl_time_set_id_data(&time_id, &data) == 0;
}

struct Case {
    const char *name;
    double low, high; // ordinary numbers
    void (*call)(double);
};

double out[16];
long fields[4];
char text[KL_TIME_ASCII_LENGTH];
long ierr[2];
constexpr double kUnit[4] = {0.0, 0.0, 0.0, 1.0};
constexpr double kZero = 0.0;
constexpr double kOne = 1.0;
constexpr double kState[3] = {7.0e6, 1.0e3, 1.0e3};

const Case kCases[] = {
    {"kl_time_processing_to_processing", 5000, 7000,
     [](double x) { kl_time_processing_to_processing(&time_id, &kProc, &kUtc, &x, &kProc, &kUt1, out, ierr); }},
    {"kl_time_processing_to_ascii", 5000, 7000,
     [](double x) {
         const long form = KL_ASCII_14;
         kl_time_processing_to_ascii(&time_id, &kProc, &kTai, &x, &form, &kUtc, text, ierr);
     }},
    {"kl_time_processing_to_transport", 5000, 7000,
     [](double x) {
         const long form = KL_TRANS_23;
         kl_time_processing_to_transport(&time_id, &kProc, &kTai, &x, &form, &kUtc, fields, ierr);
     }},
    {"kl_time_add, duration", 0, 100, [](double x) { kl_time_add(&kProc, &kUtc, &kOne, &x, out, ierr); }},
    {"kl_time_diff", 5000, 7000, [](double x) { kl_time_diff(&kProc, &kUtc, &x, &kOne, out, ierr); }},
    {"kl_time_processing_to_cuc", 5000, 7000,
     [](double x) {
         const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 3};
         unsigned char octets[KL_CUC_LENGTH];
         kl_time_processing_to_cuc(&time_id, &config, &kTai, &x, octets, ierr);
     }},
    {"kl_time_processing_to_cuc, epoch", 0, 7000,
     [](double x) {
         const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, KL_TIME_TAI, x, 4, 3};
         const double time = 7000.5;
         unsigned char octets[KL_CUC_LENGTH];
         kl_time_processing_to_cuc(&time_id, &config, &kTai, &time, octets, ierr);
     }},
    {"kl_time_time_to_obt, time", 5000, 7000,
     [](double x) {
         const long sat = 21;
         const kl_obt_param_tarvos ref = {21, 6000.0, 5, 7, 3906250000UL};
         kl_obt_tarvos obt = {21, 0, 0};
         kl_time_time_to_obt(&sat, &kUtc, &ref, &x, &obt, ierr);
     }},
    {"kl_time_time_to_obt, reference time", 5000, 7000,
     [](double x) {
         const long sat = 21;
         const double time = 6000.0;
         const kl_obt_param_tarvos ref = {21, x, 5, 7, 3906250000UL};
         kl_obt_tarvos obt = {21, 0, 0};
         kl_time_time_to_obt(&sat, &kUtc, &ref, &time, &obt, ierr);
     }},
    {"kl_time_obt_to_time, gain", 0.9, 1.1,
     [](double x) {
         const long sat = 61;
         const kl_obt_param_kelda ref = {61, 1000000, 7, 1000, 9, x, 0.0};
         const kl_obt_kelda obt = {61, 1.0e6};
         kl_time_obt_to_time(&sat, &kUtc, &ref, &obt, out, ierr);
     }},
    {"kl_sun", 5000, 7000, [](double x) { kl_sun(nullptr, &time_id, &kTai, &x, out, out + 3, ierr); }},
    {"kl_moon", 5000, 7000, [](double x) { kl_moon(nullptr, &time_id, &kTai, &x, out, out + 3, ierr); }},
    {"kl_planet", 5000, 7000,
     [](double x) {
         const long mars = 4;
         kl_planet(nullptr, &time_id, &mars, &kTai, &x, out, out + 3, ierr);
     }},
    {"kl_change_cart_cs, position", -1e7, 1e7,
     [](double x) {
         const long mode = KL_CALC_POS_VEL_ACC;
         const long from = KL_GM2000;
         const long to = KL_EF;
         const double time = 6000.0;
         const double pos[3] = {x, 2.0 * x, -x};
         kl_change_cart_cs(nullptr, &time_id, &mode, &from, &to, &kTai, &time, pos, kState, kState, out, out + 3,
                           out + 6, ierr);
     }},
    {"kl_geoid_calc, longitude", 0, 360,
     [](double x) {
         const kl_geoid_input input = {nullptr, 30.0, x, 0.0, 36};
         kl_geoid_calc(&input, out, ierr);
     }},
    {"kl_geoid_calc, latitude", -90, 90,
     [](double x) {
         const kl_geoid_input input = {nullptr, x, 30.0, 0.0, 36};
         kl_geoid_calc(&input, out, ierr);
     }},
    {"kl_euler_to_matrix", -180, 180,
     [](double x) {
         const double angles[3] = {x, 0.5 * x, -x};
         kl_euler_to_matrix(angles, out, ierr);
     }},
    {"kl_matrix_to_euler", -1, 1,
     [](double x) {
         const double matrix[9] = {1.0, 0.0, 0.0, 0.0, x, 0.0, 0.0, 0.0, 1.0};
         kl_matrix_to_euler(matrix, out, ierr);
     }},
    {"kl_quaternions_interpol, time", -1, 2,
     [](double x) {
         const long mode = KL_INTERPOL_SLERP;
         double to[4] = {0.6, 0.0, 0.0, 0.8};
         kl_quaternions_interpol(&mode, &kZero, kUnit, &kOne, to, &x, out, ierr);
     }},
    {"kl_vectors_to_quaternions", -10, 10,
     [](double x) {
         const double a[3] = {x, 0.0, 0.0};
         const double b[3] = {0.0, x, 0.0};
         const double c[3] = {0.0, 0.0, x};
         kl_vectors_to_quaternions(a, b, c, out, ierr);
     }},
    {"kl_get_rotated_vectors", -180, 180,
     [](double x) {
         const double a[3] = {1.0, 0.0, 0.0};
         const double b[3] = {0.0, 1.0, 0.0};
         const double c[3] = {0.0, 0.0, 1.0};
         const double angles[3] = {x, x, x};
         kl_get_rotated_vectors(a, b, c, angles, out, out + 3, out + 6, ierr);
     }},
};

double nanoseconds(const Case &one, double x)
{
    double shortest = std::numeric_limits<double>::infinity();
    for (int t = 0; t < kTries; ++t) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kCalls; ++i)
            one.call(x);
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        shortest = std::min(shortest, spent.count() / kCalls);
    }
    return shortest;
}

// Every power of two of both signs, and what is no number.
std::vector<double> awkward()
{
    std::vector<double> all = {0.0, -0.0, NAN, HUGE_VAL, -HUGE_VAL};
    for (int e = -1074; e < 1024; e += 3)
        for (const double sign : {1.0, -1.0})
            all.push_back(sign * std::ldexp(1.2345678901234567, e));
    return all;
}

} // namespace

int main()
{
    kl_silent();
    if (!open_time_id())
        return 2;
    std::mt19937_64 random(20260101);
    bool slow = false;
    std::printf("%-40s %10s %10s %8s  at\n", "function, number", "median ns", "longest ns", "ratio");
    for (const Case &one : kCases) {
        std::uniform_real_distribution<double> ordinary(one.low, one.high);
        std::vector<double> spent(kNumbers);
        for (double &ns : spent)
            ns = nanoseconds(one, ordinary(random));
        std::nth_element(spent.begin(), spent.begin() + kNumbers / 2, spent.end());
        const double median = spent[kNumbers / 2];
        double longest = 0.0;
        double where = 0.0;
        for (const double x : awkward()) {
            const double ns = nanoseconds(one, x);
            if (ns > longest) {
                longest = ns;
                where = x;
            }
        }
        std::printf("%-40s %10.1f %10.1f %8.1f  %g\n", one.name, median, longest, longest / median, where);
        slow |= longest > kAllowed * median;
    }
    return kl_time_close(&time_id, ierr) != KL_OK || slow ? 1 : 0;
}
