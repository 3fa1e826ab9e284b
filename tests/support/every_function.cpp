#include "support/every_function.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>

namespace {

// Arguments by address.
constexpr long kProc = KL_PROC, kTai = KL_TIME_TAI, kUtc = KL_TIME_UTC, kAscii = KL_ASCII_11, kTrans = KL_TRANS_0;
constexpr long kSat = 51; // its clock is the one below
constexpr long kDegree = 36, kAll = KL_CALC_POS_VEL_ACC, kFrom = KL_GM2000, kTo = KL_EF, kPlanet = 4, kTwo = 2,
               kItrs = KL_ITRS, kCorrections = 7;
constexpr kl_star kStar = {101.287, -16.716, -546.0, -1223.1, 379.2, -5.5, 0.5, -1.46, 2491};
constexpr kl_star_window kWindow = {-2.0, 2.0, 70.0, 130.0, -30.0, 30.0, 95.0, 0.0, 25.0};
constexpr double kRootsOf[3] = {2.0, -3.0, 1.0}, kZero = 0.0, kOne = 1.0, kHalf = 0.5,
                 kMatrix[9] = {0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0}, kState[3] = {7.0e6, 1.0e3, -2.0e3},
                 kSpeed[3] = {-1.0e3, 7.0e3, 1.0e3}, kEasting = 5.0e5;
constexpr long kRates = KL_CALC_POS_VEL, kKind = KL_KEPLER_OSCULATING, kNorth = 1;
constexpr kl_geodetic kPlace = {48.0, 11.0, 600.0, 0.1, 0.2, 3.0};
constexpr kl_kepler kElements = {7.2e6, 1e-3, 98.6, 30.0, 90.0, 10.0};
constexpr kl_radec kDirection = {30.0, 40.0, 7.0e6, 0.1, 0.2, 3.0};
constexpr kl_topocentric kSeen = {30.0, 40.0, 7.0e5, 0.1, 0.2, 3.0};
constexpr double kX[3] = {1.0, 0.0, 0.0}, kY[3] = {0.0, 1.0, 0.0}, kZ[3] = {0.0, 0.0, 1.0},
                 kTurn[4] = {0.0, 0.0, 0.6, 0.8}, kNoTurn[4] = {0.0, 0.0, 0.0, 1.0}, kSides[2] = {10.0, 20.0};
constexpr long kFields[4] = {6000, 21600, 5, 0};
constexpr char kText[] = "2016-06-05_06:00:00";
constexpr unsigned char kOctets[6] = {0x1f, 0x2e, 0x3d, 0x4c, 0x5b, 0x6a};
constexpr kl_cuc_config kCuc = {0, 1, KL_TIME_TAI, 0.0, 4, 2};
constexpr kl_obt_param_vardo kClock = {kSat, 0};
constexpr kl_obt_vardo kCount = {kSat, 1000, 10};

constexpr double kTimes[4] = {6000.0, 6000.0 - 36.0 / 86400.0, 6000.0 - 36.2 / 86400.0, 6000.0 - 19.0 / 86400.0};
constexpr long kOrbit = 0, kModels[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0}, kModelMode = 0;

// For kl_find_crossings.
long rising(void *, const long *n, const double *times, double *values)
{
    for (long i = 0; i < *n; ++i)
        values[i] = times[i] - 0.3;
    return KL_OK;
}

long open_rows(kl_time_id *id)
{
    kl_time_row rows[4]; // from before World::at to after the leap second at the end of 2016
    for (int i = 0; i < 4; ++i) {
        const double utc = i == 0 ? 5990.0 : 6207.0 + i, tai_utc = i < 2 ? 36.0 : 37.0, tai = utc + tai_utc / 86400.0;
        rows[i] = {tai, tai - 36.4 / 86400.0, utc, tai_utc, 36.4, 19.0};
    }
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.n_rows = 4;
    data.rows = rows;
    return kl_time_set_id_data(id, &data);
}

// The first star that a search finds and its place; the arrays are freed.
template <typename Search>
long search_catalogue(World &w, Search search)
{
    kl_star *stars = nullptr;
    kl_radec *places = nullptr;
    const long status = search(&stars, &places);
    if (stars != nullptr)
        w.a[0] = stars->ra;
    if (places != nullptr)
        w.a[1] = places->ra;
    kl_free_array(reinterpret_cast<void **>(&stars));
    kl_free_array(reinterpret_cast<void **>(&places));
    return status;
}

constexpr PublicCall kCalls[] = {
#include "every_function.inc"
#include "every_function_by_hand.inc"
};

} // namespace

template <typename T>
static const T *of_kind(int kind, const T (&values)[BadArgument::kKinds])
{
    static const auto table = [&] {
        std::array<std::array<T, 16>, BadArgument::kKinds> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i].fill(values[i]);
        return all;
    }();
    return table[static_cast<std::size_t>(kind)].data();
}

const double *BadArgument::reals() const
{
    return of_kind<double>(kind, {0.0, NAN, HUGE_VAL, -HUGE_VAL, 1e300, -1e300, 4e-320});
}

const long *BadArgument::integers() const
{
    return of_kind<long>(kind, {-1, 0, 7, 99, LONG_MAX, LONG_MIN, -5});
}

bool World::open()
{
    return open_rows(&time) == 0 && kl_model_init(&kModelMode, kModels, &model, ierr) == 0
           && kl_run_init(&kSat, &time, &model, &run, ierr) == 0;
}

std::uint64_t *World::words_of(const std::string &cell, bool whole, Words *words)
{
    words->clear();
    std::istringstream cut(cell);
    for (std::string word; cut >> word;) {
        const double real = std::strtod(word.c_str(), nullptr);
        words->push_back(static_cast<std::uint64_t>(std::strtol(word.c_str(), nullptr, 10)));
        if (!whole && word.back() != 'l')
            std::memcpy(&words->back(), &real, sizeof real);
    }
    return words->data();
}

kl_model_id *World::refused(const std::string &cell)
{
    const long user = KL_MODEL_USER;
    long models[9] = {};
    models[std::stol(cell.substr(cell.find(' ')))] = 99;
    kl_model_init(&user, models, &refused_model, nullptr);
    return &refused_model;
}

void World::close()
{
    if (own_run >= 0)
        kl_run_close(&own_run);
    if (run >= 0)
        kl_run_close(&run);
    kl_default_sat_close(&own_sat);
    kl_time_free_id_data(&own_rows);
    for (kl_time_id *id : {&own_time, &time})
        if (id->record != nullptr)
            kl_time_close(id, ierr);
    for (kl_model_id *id : {&own_model, &model, &refused_model})
        if (id->record != nullptr)
            kl_model_close(id, ierr);
}

const PublicCall *every_call()
{
    return std::begin(kCalls);
}

const PublicCall *every_call_end()
{
    return std::end(kCalls);
}
