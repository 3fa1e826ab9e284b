// Geoid undulation: truth, agreement of the ways to compute it, conditions.
#include "earth/geoid.h"
#include "models/model_record.h"
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/csv.h"
#include "support/owned_model.h"
#include "support/tolerances.h"
#include "time/time_table.h"

#include <array>
#include <cmath>
#include <iterator>
#include <pthread.h>
#include <string>

namespace {

constexpr double kUntouched = -12345.0;

kl_geoid_input point(double lat, double lon, long degree = 360, kl_model_id *model_id = nullptr)
{
    return {model_id, lat, lon, kNaN /* must not be read */, degree};
}

double undulation(const kl_geoid_input &at)
{
    double value = kUntouched;
    long ierr = 77;
    expect_outcome(kl_geoid_calc(&at, &value, &ierr), ierr, kNone, "undulation");
    return value;
}

long grid_of(const std::vector<double> &lat, const std::vector<double> &lon, long degree, double *grid, long *ierr,
             kl_model_id *model_id = nullptr)
{
    const long n_lat = static_cast<long>(lat.size()), n_lon = static_cast<long>(lon.size());
    return kl_geoid_grid(model_id, &degree, lat.data(), &n_lat, lon.data(), &n_lon, grid, ierr);
}

// A model id with a copy of the geoid tables, so that none of them is the built-in one.
struct ForeignTables : OwnedModel {
    EarthModel &earth = block<EarthModel>(KL_MODEL_EARTH);
    std::vector<std::vector<double>> copies;

    ForeignTables()
    {
        for (const double **table : {&earth.HC, &earth.HS, &earth.CC, &earth.CS}) {
            copies.emplace_back(*table, *table + earth.n_geoid_coefficients);
            *table = copies.back().data();
        }
    }
};

const Csv &truth()
{
    static const Csv rows("tests/data/geoid.csv");
    return rows;
}

// Another place for every degree.
kl_geoid_input place_of(long degree)
{
    const std::size_t row = static_cast<std::size_t>(degree) % truth().size();
    return point(truth().number(row, 0), truth().number(row, 1), degree);
}

// ---- truth ----

TEST(Geoid, PublishedPoints)
{
    const Csv rows("tests/data/geoid_published.csv");
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_NEAR(undulation(point(rows.number(i, 0), rows.number(i, 1))), rows.number(i, 2), rows.number(i, 3)) << i;
}

TEST(Geoid, ExtendedPrecisionValuesByEveryWay)
{
    for (std::size_t row = 0; row < truth().size(); ++row)
        for (long way = -1; way <= 2; ++way) {
            const auto cell = [&](std::size_t column) { return truth().number(row, column); };
            const kl_geoid_input at = point(cell(0), cell(1), static_cast<long>(cell(2)));
            SCOPED_TRACE(testing::Message() << "way " << way << ", row " << row);
            double correction = kUntouched, value = kUntouched;
            if (geoid_undulation_by(way, &at, &correction, &value) != 0 && way > 0)
                continue; // not on this machine
            EXPECT_NEAR(value, cell(3), kGeoidRounding);
            EXPECT_NEAR(correction, cell(4), kGeoidRounding);
        }
}

// ---- the ways agree ----

TEST(Geoid, EveryKernelGivesTheSameBitsAndForeignTablesTheSameNumbersByThePublishedRoutines)
{
    ForeignTables foreign;
    for (long degree = 0; degree <= 360; ++degree) {
        kl_geoid_input at = place_of(degree);
        SCOPED_TRACE(testing::Message() << at.latitude << ' ' << at.longitude << " degree " << at.max_degree);
        double expected, correction, value, its_correction;
        ASSERT_EQ(geoid_undulation_by(0, &at, &correction, &expected), 0);
        EXPECT_EQ(undulation(at), expected) << "the one chosen at load";
        for (long way : {1L, 2L})
            if (geoid_undulation_by(way, &at, &its_correction, &value) == 0) {
                EXPECT_TRUE(value == expected && its_correction == correction) << "way " << way;
            }
        at.model_id = &foreign.id;
        EXPECT_NEAR(undulation(at), expected, kGeoidRounding) << "foreign tables";
    }
    // They are read: a centimetre more in CC(0,0) is a centimetre more of geoid.
    const double before = undulation(point(12.0, 34.0, 20, &foreign.id));
    foreign.copies[2][0] += 1.0;
    EXPECT_NEAR(undulation(point(12.0, 34.0, 20, &foreign.id)), before + 0.01, kGeoidRounding);
}

TEST(Geoid, GridEqualsSingleCalls)
{
    ForeignTables foreign;
    const std::vector<double> lat = {90.0, 41.5, 41.5, -0.0, -89.9999, -90.0};
    const std::vector<double> lon = {0.0, 360.0, 12.25, 1e-6, 359.5, 180.0, 12.25};
    for (kl_model_id *model_id : {static_cast<kl_model_id *>(nullptr), &foreign.id})
        for (long degree : {0L, 1L, 2L, 7L, 8L, 97L, 360L}) {
            std::vector<double> grid(lat.size() * lon.size(), kUntouched);
            long ierr = -7;
            expect_outcome(grid_of(lat, lon, degree, grid.data(), &ierr, model_id), ierr, kNone, "grid");
            for (std::size_t i = 0; i < grid.size(); ++i)
                EXPECT_EQ(grid[i], undulation(point(lat[i / lon.size()], lon[i % lon.size()], degree, model_id)))
                    << "degree " << degree << " node " << i;
        }
    EXPECT_EQ(grid_of({}, {}, 4, nullptr, nullptr), KL_OK);
}

TEST(Geoid, Longitude360IsAcceptedThoughTheTextExcludesItOnPurpose)
{
    for (double lat : {-90.0, -33.0, 0.0, 71.2, 90.0})
        EXPECT_EQ(undulation(point(lat, 360.0)), undulation(point(lat, 0.0))) << lat;
}

TEST(Geoid, Latitude91IsAMarkerThatSkipsTheLegendreFunctionsOnPurpose)
{
    constexpr double kCorrection = -0.050274526997726285, kZeroDegree = -0.53; // m: CC(0,0) as published
    const kl_geoid_input at = point(91.0, 10.0);
    double correction, value;
    ASSERT_EQ(KL_Geoid_undu(&at, &correction, &value, nullptr), 0);
    EXPECT_DOUBLE_EQ(correction, kCorrection);
    EXPECT_DOUBLE_EQ(value, kCorrection + kZeroDegree);
}

// Half a megabyte of scratch would not fit.
TEST(Geoid, ThreadsWithSmallStacksDoNotMeet)
{
    using Found = std::array<double, 2 * 361>; // by the published routines, by a kernel
    const auto work = [](void *found) -> void * {
        for (long n = 0; n < 2 * 361; ++n) {
            const kl_geoid_input at = place_of(n / 2);
            geoid_undulation_by(n % 2 - 1, &at, nullptr, static_cast<double *>(found) + n);
        }
        return nullptr;
    };
    Found expected, here, there;
    pthread_attr_t small;
    pthread_t thread;
    work(expected.data());
    ASSERT_EQ(pthread_attr_init(&small) + pthread_attr_setstacksize(&small, 160 * 1024), 0);
    ASSERT_EQ(pthread_create(&thread, &small, work, there.data()), 0);
    work(here.data());
    ASSERT_EQ(pthread_join(thread, nullptr) + pthread_attr_destroy(&small), 0);
    EXPECT_TRUE(here == expected && there == expected);
}

// ---- conditions ----

TEST(GeoidConditions, BadPointsOneByOneAndInAGrid)
{
    for (const auto &[lat, lon, degree, bits, text] :
         read_rows<double, double, long, Bits, std::string>("geoid_refusals.csv"))
        for (bool alone : {true, false}) { // or the last of three by three nodes
            const kl_geoid_input at = point(lat, lon, degree);
            const std::vector<double> parallels = {1.0, 2.0, lat}, meridians = {3.0, 4.0, lon};
            double grid[9] = {kUntouched};
            long ierr = 0, status = 0;
            const std::string line = verbose_text([&, degrees = degree] {
                status = alone ? kl_geoid_calc(&at, grid, &ierr) : grid_of(parallels, meridians, degrees, grid, &ierr);
            });
            EXPECT_EQ(line, "ORBKIT_LIB >>> ERROR in kl_geoid_calc: " + text + "\n");
            EXPECT_EQ(std::tuple(status, ierr), std::tuple(KL_ERR, bits.value)) << text;
            EXPECT_EQ(grid[0], kUntouched);
        }
}

TEST(GeoidConditions, ModelWithoutGeoid)
{
    OwnedModel refused;
    ASSERT_EQ(refused.select(KL_MODEL_EARTH, 1), KL_ERR);
    ForeignTables too_short, without_table;
    too_short.earth.n_geoid_coefficients = 65340; // the last of degree 360 is missing
    without_table.earth.CS = nullptr;
    EXPECT_TRUE(std::isfinite(undulation(point(1.0, 2.0, 359, &too_short.id))));
    for (kl_model_id *model_id : {&refused.id, &too_short.id, &without_table.id}) {
        const kl_geoid_input at = point(1.0, 2.0, 360, model_id);
        double value = kUntouched;
        long ierr = 0;
        expect_outcome(kl_geoid_calc(&at, &value, &ierr), ierr, KL_GEOID_CALC_COMPUTATION_ERR, "point");
        expect_outcome(grid_of({1.0}, {2.0}, 360, &value, &ierr, model_id), ierr, KL_GEOID_CALC_COMPUTATION_ERR,
                       "grid");
        EXPECT_EQ(value, kUntouched);
    }
}

} // namespace
