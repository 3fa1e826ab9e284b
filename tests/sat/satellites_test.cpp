// Satellite ids, their rows and the data behind them.
#include "sat/satellite_tables.h"
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/tolerances.h"

#include <climits>
#include <tuple>
#include <vector>

namespace {

constexpr long kInvalid = -1;

long expected_row(long id)
{
    constexpr std::tuple<long, long, long, bool> kRanges[] = {
#include "sat/satellite_ids.inc"
    };
    for (const auto &[from, to, row, one_row] : kRanges)
        if (from <= id && id <= to)
            return one_row ? row : row + id - from;
    return kInvalid;
}

bool recorded_only(const kl_error_record &record, long code)
{
    return record.count == 1 && record.codes[0] == code;
}

TEST(SatelliteIds, EveryIdHasItsRowOrNone)
{
    std::vector<long> ids = {399999, 400000, 400099, 400100, LONG_MAX, LONG_MIN, LONG_MIN + 400};
    for (long id = -5; id <= 1300; ++id)
        ids.push_back(id);
    for (const long id : ids) {
        SCOPED_TRACE(id);
        const long row = expected_row(id);
        const long status = row != kInvalid ? 0 : -1;
        const bool default_slot = 0 <= id && id <= 9; // free here
        kl_error_record check, mapping;
        long index = kInvalid;
        EXPECT_EQ(KL_Check_sat_id(&id, &check), status);
        EXPECT_EQ(KL_Sat_id_to_array(&id, &index, &mapping), status);
        EXPECT_EQ(index, row);
        EXPECT_EQ(recorded_only(check, 0), row == kInvalid);
        EXPECT_EQ(recorded_only(mapping, default_slot ? 1 : 0), row == kInvalid);
        EXPECT_EQ(KL_Check_Geo_sat_id(&id, &check), id == 300 || id == 301 ? 0 : -1);
        EXPECT_EQ(check.count, 0);
        EXPECT_EQ(KL_Is_MEO_sat(&id), row == 63 ? 1 : 0);
        EXPECT_EQ(KL_Default_to_array(&id), default_slot ? id : -1);
        EXPECT_EQ(name_of(id) == "UNDEFINED", row == kInvalid && !default_slot);
        EXPECT_EQ(std::string(Catalogue(id).name) == "UNKNOWN", row == kInvalid);
    }
    EXPECT_EQ(KL_Check_sat_id(nullptr, nullptr), -1);
}

TEST(SatelliteRows, StartWithTheirValuesAndNames)
{
    struct Rows {
        long from, to, type;
        double values[std::size(kColumns)];
    };
    constexpr Rows kRows[] = {
#include "sat/satellite_rows.inc"
    };
    for (const auto &[from, to, type, values] : kRows)
        for (long row = from; row <= to; ++row) {
            for (std::size_t i = 0; i < std::size(kColumns); ++i)
                EXPECT_EQ(kColumns[i][row], values[i]) << "row " << row << ", value " << i;
            EXPECT_EQ(KL_SAT_TYPE[row], type) << row;
            EXPECT_EQ(std::memcmp(KL_SP3_PARAMS[row], "A00", 4), 0) << row;
            EXPECT_EQ(std::memcmp(TLE_SAT_DATA[row].designator, "00000   ", 9), 0) << row;
        }
    static_assert(sizeof TLE_SAT_DATA == 65 * 48 && sizeof A_MIN == 64 * sizeof(double));
    constexpr std::tuple<long, const char *, const char *> kNames[] = {
#include "sat/satellite_names.inc"
    };
    for (const auto &[id, name, catalogue_name] : kNames) {
        EXPECT_EQ(name_of(id), name) << id;
        EXPECT_STREQ(Catalogue(id).name, catalogue_name) << id;
        EXPECT_EQ(Catalogue(id).number, 0) << id;
    }
}

TEST(CatalogueData, ComeBackAtFullWidthWithoutATerminator)
{
    const TablesKept kept;
    const long id = 103, number = LONG_MAX;
    const kl_tle_sat_data &row = TLE_SAT_DATA[24];
#include "sat/full_width.inc"
}

TEST(CatalogueData, AreSetForValidIdsOnly)
{
    const TablesKept kept;
    const long number = 5, id = 899;
    for (const long bad : {0L, 9L, -1L, 10L, 13L, 155L, 199L, 302L, 399L, 500L, 900L, LONG_MIN}) {
#include "sat/bad_satellites.inc"
    }
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", "y"), 0);
    EXPECT_STREQ(Catalogue(400).name, "x") << "all of medium Earth orbit share a row";
}

TEST(CatalogueData, OnPurposeAnInvalidIdReadsTheSp3IdentifierOfRow0)
{
    const TablesKept kept;
    std::memcpy(KL_SP3_PARAMS[0], "R0\0", 4);
    for (const long id : {13L, -1L, 900L, 3L})
        EXPECT_STREQ(Catalogue(id).sp3, "R0") << id;
}

// Both periods of a satellite, the same status and at most one code.
void expect_periods(long id, long status, long code, double shortest, double longest)
{
    for (const auto &[get, wanted] :
         {std::pair(&KL_Get_min_period, shortest), std::pair(&KL_Get_max_period, longest)}) {
        double period = wanted * 2;
        kl_error_record record;
        EXPECT_EQ(get(&id, &period, &record), status) << id;
        EXPECT_EQ(recorded_only(record, code), status != KL_OK) << id;
        EXPECT_NEAR(period, status == KL_ERR ? wanted * 2 : wanted, wanted * kRounding * 2) << id;
    }
}

TEST(Periods, FollowTheSemiMajorAxis)
{
    constexpr std::tuple<long, double, double> kPeriods[] = {
#include "sat/periods.inc"
    };
    for (const auto &[id, shortest, longest] : kPeriods)
        expect_periods(id, KL_OK, 0, shortest, longest);
    kl_verbose();
    const std::string said = captured_stderr([] { expect_periods(500, KL_ERR, 0, 6000, 6000); });
    kl_silent();
    EXPECT_EQ(said.find("ORBKIT_LIB >>> ERROR in KL_Sat_id_to_array: "), 0U) << "the mapping says first what is wrong";
}

TEST(Periods, OnPurposeTheLongestFallsBackToTheLargestAxisOfAllSatellites)
{
    constexpr double kEarthRadiusPeriod = 5069.342618127838804;  // s, of 6378136 m
    constexpr double kLargestAxisPeriod = 86166.636064414562141; // s, of 42165000 m
    const TablesKept kept;
    for (const double axis : {0.0, 6378135.9, -1e7}) {
        A_MIN[12] = A_MAX[12] = axis;
        expect_periods(21, KL_WARN, 1, kEarthRadiusPeriod, kLargestAxisPeriod);
    }
    A_MIN[12] = A_MAX[12] = 6378136.0;
    expect_periods(21, KL_OK, 0, kEarthRadiusPeriod, kEarthRadiusPeriod);
}

} // namespace
