// Geoid undulation: truth, agreement of the ways to compute it, conditions.
#include "kl_family.h"
#include "models/geoid_truth.inc"
#include "models/model_record.h"
#include "support/captured_stream.h"
#include "support/tolerances.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <pthread.h>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kUntouched = -12345.0;
constexpr double kZeroDegree = -0.53; // m
constexpr long kWays[] = {-1, 0, 1, 2};
constexpr const char *kWayNames[] = {"published routines", "baseline kernel", "AVX2 kernel", "AVX-512 kernel"};

long error_bit(long code)
{
    return LONG_MIN | 1L << code;
}

kl_geoid_input point(double lat, double lon, long degree = 360, kl_model_id *model_id = nullptr)
{
    return {model_id, lat, lon, kNaN /* must not be read */, degree};
}

double undulation(const kl_geoid_input &at)
{
    double value = kUntouched;
    long ierr = 0;
    EXPECT_EQ(kl_geoid_calc(&at, &value, &ierr), KL_OK);
    EXPECT_EQ(ierr, 0);
    return value;
}

bool machine_has(long way)
{
    const kl_geoid_input at = point(0.0, 0.0, 0);
    double value;
    return KL_Geoid_undu_by(way, &at, nullptr, &value) == 0;
}

// A model id of its own with a copy of the geoid tables, so that none of them is the built-in one.
class ForeignTables {
public:
    ForeignTables()
    {
        earth = static_cast<EarthModel *>(KL_Model_get_data(&model_id, KL_MODEL_EARTH));
        for (const double **table : {&earth->HC, &earth->HS, &earth->CC, &earth->CS}) {
            copies.emplace_back(*table, *table + earth->n_geoid_coefficients);
            *table = copies.back().data();
        }
    }
    ~ForeignTables()
    {
        long ierr;
        kl_model_close(&model_id, &ierr);
    }
    ForeignTables(const ForeignTables &) = delete;
    ForeignTables &operator=(const ForeignTables &) = delete;

    kl_model_id model_id = {nullptr};
    EarthModel *earth;
    std::vector<std::vector<double>> copies;
};

std::vector<kl_geoid_input> awkward_and_random_points()
{
    std::vector<kl_geoid_input> points;
    for (double lat : {-90.0, -89.99999, -1e-9, 0.0, 45.0, 89.9, 90.0})
        for (double lon : {0.0, 1e-7, 90.0, 180.0, 359.9999999, 360.0})
            points.push_back(point(lat, lon));
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> lat(-90.0, 90.0), lon(0.0, 360.0);
    for (long degree = 0; degree <= 360; degree += 3)
        points.push_back(point(lat(random), lon(random), degree));
    return points;
}

// ---- truth -----------------------------------------------------------------------------------------------------

TEST(Geoid, PublishedPoints)
{
    // The sample output of the published EGM96 undulation program, three decimals.
    constexpr struct {
        double lat, lon, undulation;
    } kPublished[] = {
        {38.6281550, 269.7791550, -31.629}, {-14.6212170, 305.0211140, -2.966}, {46.8743190, 102.4487290, -43.572},
        {-23.6174460, 133.8747120, 15.868}, {38.6254730, 359.9995000, 50.065},  {-0.4667440, 0.0023000, 17.330},
    };
    for (const auto &row : kPublished)
        EXPECT_NEAR(undulation(point(row.lat, row.lon)), row.undulation, kPublished3) << row.lat << ' ' << row.lon;
}

TEST(Geoid, ExtendedPrecisionValuesByEveryWay)
{
    for (long way : kWays) {
        if (!machine_has(way))
            continue;
        for (const GeoidTruth &row : kGeoidTruth) {
            SCOPED_TRACE(testing::Message()
                         << kWayNames[way + 1] << " lat " << row.lat << " lon " << row.lon << " degree " << row.degree);
            const kl_geoid_input at = point(row.lat, row.lon, row.degree);
            double correction = kUntouched, value = kUntouched;
            ASSERT_EQ(KL_Geoid_undu_by(way, &at, &correction, &value), 0);
            EXPECT_NEAR(value, row.undulation, kGeoidRounding);
            EXPECT_NEAR(correction, row.correction, kGeoidRounding);
        }
    }
}

TEST(Geoid, HighOverNewGuineaLowSouthOfIndia)
{
    // Extremes of the published 15' grid: -106.99 m and 85.39 m.
    struct Grid {
        std::vector<double> lat, lon, values;
        Grid(double north, double west, double step, int n_lat, int n_lon)
        {
            for (int i = 0; i < n_lat; ++i)
                lat.push_back(north - step * i);
            for (int i = 0; i < n_lon; ++i)
                lon.push_back(west + step * i);
            const long degree = 360, rows = n_lat, columns = n_lon;
            values.resize(lat.size() * lon.size());
            long ierr;
            EXPECT_EQ(kl_geoid_grid(nullptr, &degree, lat.data(), &rows, lon.data(), &columns, values.data(), &ierr),
                      KL_OK);
        }
    };
    const Grid both(6.0, 70.0, 0.25, 65, 321);
    const auto [low, high] = std::minmax_element(both.values.begin(), both.values.end());
    const auto low_at = static_cast<std::size_t>(low - both.values.begin());
    const auto high_at = static_cast<std::size_t>(high - both.values.begin());
    EXPECT_NEAR(*low, -106.99, 0.005);
    EXPECT_EQ(both.lat[low_at / both.lon.size()], 4.75);
    EXPECT_EQ(both.lon[low_at % both.lon.size()], 78.75);
    EXPECT_NEAR(*high, 85.39, 0.005);
    EXPECT_EQ(both.lat[high_at / both.lon.size()], -8.25);
    EXPECT_EQ(both.lon[high_at % both.lon.size()], 147.25);

    const Grid world(90.0, 0.0, 1.0, 181, 360);
    const auto [lowest, highest] = std::minmax_element(world.values.begin(), world.values.end());
    EXPECT_GE(*lowest, *low);
    EXPECT_LE(*highest, *high);
}

TEST(Geoid, TablesHaveTheSumsOfThePublishedSets)
{
    // Sums over the published figures in decimal arithmetic, the normal field taken off; twelve digits.
    kl_model_id model_id = {nullptr};
    const auto *earth = static_cast<const EarthModel *>(KL_Model_get_data(&model_id, KL_MODEL_EARTH));
    ASSERT_EQ(earth->n_geoid_coefficients, 65341);
    const struct {
        const char *name;
        const double *table;
        double absolute, plain;
    } kSums[] = {
        {"HC", earth->HC, 4.22189474905e-05, 7.06193915260e-06},
        {"HS", earth->HS, 3.70724847933e-05, -2.55724469913e-06},
        {"CC", earth->CC, 9.97805334037e+02, 3.57779615280},
        {"CS", earth->CS, 9.82547685635e+02, 2.03073179255},
    };
    for (const auto &row : kSums) {
        long double absolute = 0.0L, plain = 0.0L;
        for (long i = 0; i < earth->n_geoid_coefficients; ++i) {
            absolute += std::fabs(row.table[i]);
            plain += row.table[i];
        }
        EXPECT_NEAR(static_cast<double>(absolute), row.absolute, 1e-11 * row.absolute) << row.name;
        EXPECT_NEAR(static_cast<double>(plain), row.plain, 1e-11 * row.absolute) << row.name;
    }
    // In triangular order: single published figures.
    EXPECT_EQ(earth->HC[0], 0.0);
    EXPECT_EQ(earth->HC[2 * 3 / 2], 1.40324752203035e-09);
    EXPECT_EQ(earth->HC[2 * 3 / 2 + 2], 2.43914352398e-6);
    EXPECT_EQ(earth->HC[4 * 5 / 2], -2.50429869721e-7);
    EXPECT_EQ(earth->HS[44 * 45 / 2 + 9], -6.42838063306e-9);
    EXPECT_EQ(earth->CC[0], -5.0274526997726285);
    EXPECT_EQ(earth->CS[360 * 361 / 2 + 360], 0.007252469661987566);
    long ierr;
    EXPECT_EQ(kl_model_close(&model_id, &ierr), KL_OK);
}

// ---- the ways agree --------------------------------------------------------------------------------------------

TEST(Geoid, EveryKernelGivesTheSameBits)
{
    for (const kl_geoid_input &at : awkward_and_random_points()) {
        double expected, correction;
        ASSERT_EQ(KL_Geoid_undu_by(0, &at, &correction, &expected), 0);
        EXPECT_EQ(undulation(at), expected) << at.latitude << ' ' << at.longitude << " the one chosen at load";
        for (long way : {1L, 2L}) {
            double value, its_correction;
            if (KL_Geoid_undu_by(way, &at, &its_correction, &value) != 0)
                continue; // not on this machine
            EXPECT_EQ(value, expected) << kWayNames[way + 1] << ' ' << at.latitude << ' ' << at.longitude;
            EXPECT_EQ(its_correction, correction) << kWayNames[way + 1];
        }
    }
}

TEST(Geoid, ForeignTablesGoByThePublishedRoutinesWithTheSameNumbers)
{
    ForeignTables foreign;
    for (kl_geoid_input at : awkward_and_random_points()) {
        const double expected = undulation(at);
        at.model_id = &foreign.model_id;
        EXPECT_NEAR(undulation(at), expected, kGeoidRounding)
            << at.latitude << ' ' << at.longitude << ' ' << at.max_degree;
    }
    // They are read: a centimetre more in CC(0,0) is a centimetre more of geoid.
    kl_geoid_input at = point(12.0, 34.0, 20);
    const double before = undulation(at);
    foreign.copies[2][0] += 1.0;
    at.model_id = &foreign.model_id;
    EXPECT_NEAR(undulation(at), before + 0.01, kGeoidRounding);
}

TEST(Geoid, GridEqualsSingleCalls)
{
    ForeignTables foreign;
    const std::vector<double> lat = {90.0, 41.5, 41.5, -0.0, -89.9999, -90.0};
    const std::vector<double> lon = {0.0, 360.0, 12.25, 1e-6, 359.5, 180.0, 12.25};
    const long n_lat = static_cast<long>(lat.size()), n_lon = static_cast<long>(lon.size());
    for (kl_model_id *model_id : {static_cast<kl_model_id *>(nullptr), &foreign.model_id})
        for (long degree : {0L, 1L, 2L, 7L, 8L, 97L, 360L}) {
            std::vector<double> grid(lat.size() * lon.size(), kUntouched);
            long ierr = -7;
            ASSERT_EQ(kl_geoid_grid(model_id, &degree, lat.data(), &n_lat, lon.data(), &n_lon, grid.data(), &ierr),
                      KL_OK);
            EXPECT_EQ(ierr, 0);
            for (std::size_t i = 0; i < grid.size(); ++i)
                EXPECT_EQ(grid[i], undulation(point(lat[i / lon.size()], lon[i % lon.size()], degree, model_id)))
                    << "degree " << degree << " node " << i;
        }
}

TEST(Geoid, Longitude360IsAcceptedThoughTheTextExcludesItAndIsThatOf0) // on purpose
{
    for (double lat : {-90.0, -33.0, 0.0, 71.2, 90.0})
        EXPECT_EQ(undulation(point(lat, 360.0)), undulation(point(lat, 0.0))) << lat;
}

TEST(Geoid, ModelIdDoesNotMatter)
{
    const double expected = undulation(point(-12.0, 130.0));
    kl_model_id model_id = {nullptr};
    EXPECT_EQ(undulation(point(-12.0, 130.0, 360, &model_id)), expected) << "uninitialised";
    EXPECT_EQ(model_id.record, nullptr) << "stays uninitialised";
    const long user = KL_MODEL_USER, models[9] = {0, 1, 0, 0, 0, 0, 0, 0, 2};
    long ierr;
    ASSERT_EQ(kl_model_init(&user, models, &model_id, &ierr), KL_OK);
    EXPECT_EQ(undulation(point(-12.0, 130.0, 360, &model_id)), expected) << "another Sun and light";
    EXPECT_EQ(kl_model_close(&model_id, &ierr), KL_OK);
}

TEST(Geoid, Latitude91IsAMarkerThatSkipsTheLegendreFunctions) // on purpose
{
    const kl_geoid_input at = point(91.0, 10.0);
    double correction, value;
    kl_error_record record;
    ASSERT_EQ(KL_Geoid_undu(&at, &correction, &value, &record), 0);
    EXPECT_EQ(record.count, 0);
    EXPECT_DOUBLE_EQ(correction, -0.050274526997726285); // CC(0,0) as published
    EXPECT_DOUBLE_EQ(value, -0.050274526997726285 + kZeroDegree);
}

TEST(Geoid, SmallStackIsEnough)
{
    // Half a megabyte of scratch would not fit.
    const auto on_small_stack = [](void *result) -> void * {
        const kl_geoid_input at = point(10.0, 20.0);
        for (long way : {-1L, 0L})
            KL_Geoid_undu_by(way, &at, nullptr, static_cast<double *>(result) + way + 1);
        return nullptr;
    };
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 160 * 1024), 0);
    double result[2] = {kUntouched, kUntouched};
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, on_small_stack, result), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(result[1], undulation(point(10.0, 20.0)));
    EXPECT_NEAR(result[0], result[1], kGeoidRounding);
}

TEST(Geoid, ThreadsDoNotMeet)
{
    const std::vector<kl_geoid_input> points = awkward_and_random_points();
    std::vector<double> expected, found[2];
    for (const kl_geoid_input &at : points)
        expected.push_back(undulation(at));
    std::thread threads[2];
    for (int t = 0; t < 2; ++t)
        threads[t] = std::thread([&points, &mine = found[t]] {
            for (const kl_geoid_input &at : points) {
                double value = kUntouched;
                long ierr;
                kl_geoid_calc(&at, &value, &ierr);
                mine.push_back(value);
            }
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(found[0], expected);
    EXPECT_EQ(found[1], expected);
}

// ---- conditions ------------------------------------------------------------------------------------------------

struct BadPoint {
    const char *what;
    kl_geoid_input at;
    long code;
    std::string line; // in verbose mode
};

std::vector<BadPoint> bad_points()
{
    const double above = std::nextafter(90.0, 91.0), below_zero = -std::numeric_limits<double>::denorm_min();
    const std::string opening = "ORBKIT_LIB >>> ERROR in kl_geoid_calc: ";
    const auto degree = [&](const char *n) { return opening + "Wrong number of harmonics: " + n + "\n"; };
    const auto lat = [&](const char *x) { return opening + "Latitude (" + x + ") outside interval [-90.,90.]\n"; };
    const auto lon = [&](const char *x) { return opening + "Longitude (" + x + ") outside interval [0.,360.)\n"; };
    return {
        {"degree -1", point(0, 0, -1), KL_GEOID_CALC_DEGREE_ERR, degree("-1")},
        {"degree 361", point(0, 0, 361), KL_GEOID_CALC_DEGREE_ERR, degree("361")},
        {"largest degree", point(0, 0, LONG_MAX), KL_GEOID_CALC_DEGREE_ERR, degree("9223372036854775807")},
        {"smallest degree", point(0, 0, LONG_MIN), KL_GEOID_CALC_DEGREE_ERR, degree("-9223372036854775808")},
        {"latitude just above", point(above, 0), KL_GEOID_CALC_LATITUDE_ERR, lat("90.000000")},
        {"latitude just below", point(-above, 0), KL_GEOID_CALC_LATITUDE_ERR, lat("-90.000000")},
        {"marker latitude", point(91.0, 0), KL_GEOID_CALC_LATITUDE_ERR, lat("91.000000")},
        {"latitude NaN", point(kNaN, 0), KL_GEOID_CALC_LATITUDE_ERR, lat("nan")},
        {"latitude infinite", point(-kInfinity, 0), KL_GEOID_CALC_LATITUDE_ERR, lat("-inf")},
        {"longitude just below", point(0, below_zero), KL_GEOID_CALC_LONGITUDE_ERR, lon("-0.000000")},
        {"longitude above", point(0, 360.25), KL_GEOID_CALC_LONGITUDE_ERR, lon("360.250000")},
        {"longitude NaN", point(0, kNaN), KL_GEOID_CALC_LONGITUDE_ERR, lon("nan")},
        {"longitude infinite", point(0, kInfinity), KL_GEOID_CALC_LONGITUDE_ERR, lon("inf")},
        {"all three: the degree first", point(99, -1, 400), KL_GEOID_CALC_DEGREE_ERR, degree("400")},
        {"both angles: the latitude first", point(99, -1), KL_GEOID_CALC_LATITUDE_ERR, lat("99.000000")},
    };
}

TEST(GeoidConditions, BadPointsOneByOneAndInAGrid)
{
    for (const BadPoint &bad : bad_points()) {
        SCOPED_TRACE(bad.what);
        double value = kUntouched;
        long ierr = 0, status = 0;
        kl_verbose();
        EXPECT_EQ(captured_stderr([&] { status = kl_geoid_calc(&bad.at, &value, &ierr); }), bad.line);
        EXPECT_EQ(status, KL_ERR);
        EXPECT_EQ(ierr, error_bit(bad.code));
        EXPECT_EQ(value, kUntouched);

        // Third of three nodes of a grid: nothing is written.
        const double lat[] = {1.0, 2.0, bad.at.latitude}, lon[] = {3.0, 4.0, bad.at.longitude};
        const long three = 3;
        std::vector<double> grid(9, kUntouched);
        EXPECT_EQ(captured_stderr([&] {
                      status = kl_geoid_grid(nullptr, &bad.at.max_degree, lat, &three, lon, &three, grid.data(), &ierr);
                  }),
                  bad.line);
        kl_silent();
        EXPECT_EQ(status, KL_ERR);
        EXPECT_EQ(ierr, error_bit(bad.code));
        EXPECT_EQ(grid, std::vector<double>(9, kUntouched));
    }
}

TEST(GeoidConditions, DecodedUnderThePublicId)
{
    const kl_geoid_input at = point(0, 0, 361);
    double value;
    long ierr, n = 0;
    ASSERT_EQ(kl_geoid_calc(&at, &value, &ierr), KL_ERR);
    static char msg[KL_MAX_MSG][512];
    const long id = KL_ID_FUNC_GEOID_CALC;
    ASSERT_EQ(kl_get_msg(&id, &ierr, &n, msg), 0);
    ASSERT_EQ(n, 1);
    EXPECT_STREQ(msg[0], "ORBKIT_LIB >>> ERROR in kl_geoid_calc: Wrong number of harmonics: 0");
}

TEST(GeoidConditions, LimitsAreAccepted)
{
    for (const kl_geoid_input &at : {point(90, 0), point(-90, 360), point(0, 360, 0), point(-0.0, -0.0, 1)})
        EXPECT_TRUE(std::isfinite(undulation(at))) << at.latitude << ' ' << at.longitude;
}

TEST(GeoidConditions, MissingArguments)
{
    const kl_geoid_input at = point(0, 0);
    double value = 0, lat = 0, lon = 0;
    long ierr = -7;
    EXPECT_EQ(kl_geoid_calc(nullptr, &value, &ierr), KL_ERR);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(kl_geoid_calc(&at, nullptr, &ierr), KL_ERR);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(kl_geoid_calc(&at, &value, nullptr), KL_OK);
    EXPECT_EQ(KL_Geoid_undu(nullptr, &value, &value, nullptr), KL_ERR);

    const long degree = 4, one = 1, none = 0, negative = -1;
    const struct {
        const char *what;
        const long *degree, *n_lat, *n_lon;
        const double *lat, *lon;
        double *out;
        long status, vector;
    } kGrids[] = {
        {"degree", nullptr, &one, &one, &lat, &lon, &value, KL_ERR, error_bit(KL_GEOID_CALC_DEGREE_ERR)},
        {"number of parallels", &degree, nullptr, &one, &lat, &lon, &value, KL_ERR,
         error_bit(KL_GEOID_CALC_LATITUDE_ERR)},
        {"parallels", &degree, &one, &one, nullptr, &lon, &value, KL_ERR, error_bit(KL_GEOID_CALC_LATITUDE_ERR)},
        {"negative parallels", &degree, &negative, &one, &lat, &lon, &value, KL_ERR,
         error_bit(KL_GEOID_CALC_LATITUDE_ERR)},
        {"number of meridians", &degree, &one, nullptr, &lat, &lon, &value, KL_ERR,
         error_bit(KL_GEOID_CALC_LONGITUDE_ERR)},
        {"meridians", &degree, &one, &one, &lat, nullptr, &value, KL_ERR, error_bit(KL_GEOID_CALC_LONGITUDE_ERR)},
        {"negative meridians", &degree, &one, &negative, &lat, &lon, &value, KL_ERR,
         error_bit(KL_GEOID_CALC_LONGITUDE_ERR)},
        {"result", &degree, &one, &one, &lat, &lon, nullptr, KL_ERR, 0},
        {"nothing to do", &degree, &none, &none, nullptr, nullptr, nullptr, KL_OK, 0},
    };
    for (const auto &row : kGrids) {
        ierr = -7;
        EXPECT_EQ(kl_geoid_grid(nullptr, row.degree, row.lat, row.n_lat, row.lon, row.n_lon, row.out, &ierr),
                  row.status)
            << row.what;
        EXPECT_EQ(ierr, row.vector) << row.what;
    }
}

TEST(GeoidConditions, ModelWithoutGeoid)
{
    const auto expect_refused = [](kl_model_id *model_id, long degree, const char *what) {
        const kl_geoid_input at = point(1.0, 2.0, degree, model_id);
        const long one = 1;
        double value = kUntouched;
        long ierr = 0;
        EXPECT_EQ(kl_geoid_calc(&at, &value, &ierr), KL_ERR) << what;
        EXPECT_EQ(ierr, error_bit(KL_GEOID_CALC_COMPUTATION_ERR)) << what;
        EXPECT_EQ(kl_geoid_grid(model_id, &degree, &at.latitude, &one, &at.longitude, &one, &value, &ierr), KL_ERR);
        EXPECT_EQ(ierr, error_bit(KL_GEOID_CALC_COMPUTATION_ERR)) << what;
        EXPECT_EQ(value, kUntouched) << what;
    };
    kl_model_id model_id = {nullptr};
    const long user = KL_MODEL_USER, models[9] = {1};
    long ierr;
    ASSERT_EQ(kl_model_init(&user, models, &model_id, &ierr), KL_ERR);
    expect_refused(&model_id, 2, "refused Earth");
    kl_model_close(&model_id, &ierr);

    ForeignTables foreign;
    foreign.earth->n_geoid_coefficients = 65340;
    expect_refused(&foreign.model_id, 360, "too few coefficients");
    EXPECT_TRUE(std::isfinite(undulation(point(1.0, 2.0, 359, &foreign.model_id))));
    foreign.earth->CS = nullptr;
    expect_refused(&foreign.model_id, 2, "a table missing");
}

} // namespace
