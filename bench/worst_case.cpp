// The longest call of every function that takes a number or a text, over ordinary and awkward ones, beside the median
// of the ordinary: nothing that a caller can pass makes a call more than ten times as long. Prints a line a number;
// ends with 1 when a call is longer. Of the twins of runs two stand for all.
//
// Left out: how long the arrays of a caller are, and the rows of a table, which are work and not numbers.
#include "kl_lib.h"

#include <algorithm>
#include <cfloat>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kAllowed = 10.0;
constexpr int kNumbers = 1500;
constexpr int kCalls = 8;        // in one measurement
constexpr int kTries = 5;        // the shortest of them counts: the rest is the machine's
constexpr int kSecondLook = 200; // tries for a call that seems too long

constexpr long kProc = KL_PROC, kTai = KL_TIME_TAI, kUtc = KL_TIME_UTC, kUt1 = KL_TIME_UT1, kGps = KL_TIME_GPS;
constexpr long kText = KL_ASCII_14, kTransport = KL_TRANS_23, kWeeks = KL_TRANS_42, kGpsSeconds = KL_TRANS_41;
constexpr long kUndefined = KL_TIME_UNDEF, kSunId = KL_ID_FUNC_SUN;
constexpr long kFull = KL_CALC_POS_VEL_ACC, kInertial = KL_GM2000, kFixed = KL_EF, kMars = KL_MARS, kTwo = 2;
constexpr long kDegree = 36, kSlerp = KL_INTERPOL_SLERP;
constexpr long kSatellite = 51;
constexpr kl_obt_param_vardo kVardoClock = {51, 0};
constexpr kl_obt_vardo kVardoCount = {51, 1000, 10};
constexpr double kZero = 0.0, kHalf = 0.5, kOne = 1.0, kTime = 6000.0, kLater = 7000.5;
constexpr double kState[3] = {7.0e6, 1.0e3, 1.0e3};
constexpr double kX[3] = {1.0, 0.0, 0.0}, kY[3] = {0.0, 1.0, 0.0}, kZ[3] = {0.0, 0.0, 1.0};
constexpr double kNoTurn[4] = {0.0, 0.0, 0.0, 1.0};
constexpr double kPlaces[2] = {10.0, 20.0};

kl_time_id time_id = {nullptr};
kl_model_id model_id = {nullptr};
long run_id = -1;

// Where the calls write.
double out[32];
long fields[4], sign, ierr[2], codes[KL_MAX_CODES];
char text[2][KL_TIME_ASCII_LENGTH];
char messages[KL_MAX_MSG][KL_MSG_LENGTH];
unsigned char octets[KL_CUC_LENGTH];

// One number in all its forms, made before the clock runs.
struct Input {
    double x;
    long n;
    char text[48];
    double matrix[9]; // turned by x deg about the first axis and by 20 and 30 deg about the others
    double axes[3][3], quaternion[4];
    unsigned char octets[KL_CUC_LENGTH];

    Input(double real, long integer) : x(real), n(integer), quaternion{}, octets{}
    {
        if (kl_time_processing_to_ascii(nullptr, &kProc, &kTai, &x, &kText, &kTai, text, nullptr) != KL_OK)
            std::snprintf(text, sizeof text, "%.30e", x);
        const double angles[3] = {x, 20.0, 30.0};
        kl_euler_to_matrix(angles, matrix, nullptr);
        for (int i = 0; i < 9; ++i)
            axes[i % 3][i / 3] = matrix[i];
        kl_vectors_to_quaternions(axes[0], axes[1], axes[2], quaternion, nullptr);
        std::memcpy(octets, &n, sizeof n);
    }
    explicit Input(double real) : Input(real, std::fabs(real) < 1e18 ? std::lround(real) : 0) {}
    explicit Input(long integer) : Input(static_cast<double>(integer), integer) {}
};

enum Kind { kReal, kInteger };

struct Case {
    const char *name;
    Kind kind;
    double low, high; // ordinary numbers
    void (*call)(const Input &);
};

template <typename Parameters, typename Clock>
void to_clock(const Parameters &parameters, const double &time, Clock count)
{
    kl_time_time_to_obt(&parameters.sat_id, &kUtc, &parameters, &time, &count, ierr);
}

template <typename Parameters, typename Clock>
void from_clock(const Parameters &parameters, const Clock &count)
{
    kl_time_obt_to_time(&parameters.sat_id, &kUtc, &parameters, &count, out, ierr);
}

void explicit_id(double tai)
{
    kl_time_id id = {nullptr};
    const double tri_time[4] = {tai, tai, tai, tai};
    if (kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, &id, ierr) == KL_OK)
        kl_time_close(&id, ierr);
}

void table_id(double a)
{
    kl_time_id id = {nullptr};
    kl_time_row row = {kTime, kTime, kTime, 0.0, 0.0, 19.0};
    const kl_time_id_data data = {1, -1, 0, 0, a, 0.0, 0.0, 0, 0.0, 0.0, 1, &row, nullptr, nullptr, {}, {}, {}, {}};
    if (kl_time_set_id_data(&id, &data) == 0)
        kl_time_close(&id, ierr);
}

void run(long satellite)
{
    long id = -1;
    if (kl_run_init(&satellite, &time_id, &model_id, &id, ierr) == KL_OK)
        kl_run_close(&id);
}

void geoid(double latitude, double longitude, long degree)
{
    const kl_geoid_input input = {&model_id, latitude, longitude, 0.0, degree};
    kl_geoid_calc(&input, out, ierr);
}

// Arguments written where they are passed.
struct Vector {
    double v[9];
};
struct Fields {
    long f[4];
};
struct Layout {
    kl_cuc_config c[1];
    Layout(long epoch_type, double epoch, long coarse, long fine, long type = KL_CUC_TIME_FIELD_ONLY)
        : c{{type, epoch_type, KL_TIME_TAI, epoch, coarse, fine}}
    {
    }
};

unsigned long count(const Input &in)
{
    return static_cast<unsigned long>(in.n);
}

#define CALL(...) [](const Input &in) { __VA_ARGS__; }
const Case kCases[] = {
#include "worst_case.inc"
};
#undef CALL

bool open_ids()
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
    const long mode = KL_MODEL_DEFAULT;
    return kl_time_set_id_data(&time_id, &data) == 0 && kl_model_init(&mode, nullptr, &model_id, nullptr) == KL_OK
           && kl_run_init(&kSatellite, &time_id, &model_id, &run_id, nullptr) == KL_OK;
}

double nanoseconds(const Case &one, const Input &in, int tries)
{
    double shortest = std::numeric_limits<double>::infinity();
    for (int t = 0; t < tries; ++t) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kCalls; ++i)
            one.call(in);
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        shortest = std::min(shortest, spent.count() / kCalls);
    }
    return shortest;
}

void add_ordinary(const Case &one, std::vector<Input> *all)
{
    static std::mt19937_64 random(20260101);
    std::uniform_real_distribution<double> real(one.low, one.high);
    std::uniform_int_distribution<long> integer(static_cast<long>(one.low), static_cast<long>(one.high));
    for (int i = 0; i < kNumbers; ++i)
        all->push_back(one.kind == kReal ? Input(real(random)) : Input(integer(random)));
}

// Every third power of two of both signs, steps beside the ordinary limits and those of a time, and what is no number.
void add_awkward_reals(const Case &one, std::vector<Input> *all)
{
    for (const double x : {0.0, -0.0, std::nan(""), HUGE_VAL, -HUGE_VAL, DBL_MAX, -DBL_MAX})
        all->emplace_back(x);
    for (int e = -1074; e < 1024; e += 3)
        for (const double sign_of : {1.0, -1.0})
            all->emplace_back(sign_of * std::ldexp(1.2345678901234567, e));
    for (const double limit : {one.low, one.high, -18262.0, 36524.0}) {
        all->emplace_back(limit);
        for (int e = -60; e < 3; ++e)
            for (const double sign_of : {1.0, -1.0})
                all->emplace_back(limit + sign_of * std::ldexp(1.0, e));
    }
}

// Every power of two of both signs, each with its neighbours, and the ends.
void add_awkward_integers(std::vector<Input> *all)
{
    for (const long n : {0L, LONG_MAX, LONG_MIN, 86400L, 604800L, 1000000L, -1000000L})
        all->emplace_back(n);
    for (int e = 0; e < 63; ++e)
        for (const long step : {-1L, 0L, 1L})
            for (const long n : {1L << e, -(1L << e)})
                all->emplace_back(n + step);
}

// Prints the line of a case and says whether no call is too long.
bool holds(const Case &one)
{
    std::vector<Input> inputs;
    add_ordinary(one, &inputs);
    if (one.kind == kReal)
        add_awkward_reals(one, &inputs);
    else
        add_awkward_integers(&inputs);
    std::vector<double> spent;
    for (const Input &in : inputs)
        spent.push_back(nanoseconds(one, in, kTries));
    std::vector<double> usual(spent.begin(), spent.begin() + kNumbers);
    std::nth_element(usual.begin(), usual.begin() + kNumbers / 2, usual.end());
    const double median = usual[kNumbers / 2];
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (spent[i] > kAllowed * median)
            spent[i] = nanoseconds(one, inputs[i], kSecondLook);
    const auto longest = std::max_element(spent.begin(), spent.end());
    const Input &where = inputs[static_cast<std::size_t>(longest - spent.begin())];
    std::printf("%-52s %10.1f %10.1f %8.1f  ", one.name, median, *longest, *longest / median);
    if (one.kind == kReal)
        std::printf("%.17g\n", where.x);
    else
        std::printf("%ld\n", where.n);
    return *longest <= kAllowed * median;
}

} // namespace

int main()
{
    kl_silent();
    if (!open_ids())
        return 2;
    std::printf("%-52s %10s %10s %8s  at\n", "function, number", "median ns", "longest ns", "ratio");
    int too_long = 0;
    for (const Case &one : kCases)
        too_long += holds(one) ? 0 : 1;
    std::fprintf(stderr, "%zu numbers: %d with a call longer than %.0f times the median\n", std::size(kCases), too_long,
                 kAllowed);
    kl_run_close(&run_id);
    return kl_time_close(&time_id, ierr) != KL_OK || kl_model_close(&model_id, ierr) != KL_OK || too_long > 0 ? 1 : 0;
}
