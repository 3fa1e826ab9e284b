// Satellite ids, their rows and the data behind them.
#include "satellites/satellite_tables.h"
#include "support/conditions.h"
#include "support/csv.h"
#include "support/tolerances.h"

#include <cmath>
#include <cstring>
#include <map>

namespace {

class CatalogueData : public KeptTables {};
class Periods : public KeptTables {};

bool recorded_only(const kl_error_record &record, long code)
{
    return record.count == 1 && record.codes[0] == code;
}

long whole(const Csv &rows, std::size_t row, std::size_t column)
{
    return static_cast<long>(rows.number(row, column));
}

TEST(SatelliteIds, EveryIdHasItsRowOrNone)
{
    const Csv ranges("tests/data/satellite_ids.csv");
    std::map<long, long> rows = {{399999, -1}, {400100, -1}, {LONG_MAX, -1}, {LONG_MIN, -1}, {LONG_MIN + 400, -1}};
    for (long id = -5; id <= 1300; ++id)
        rows[id] = -1;
    for (std::size_t i = 0; i < ranges.size(); ++i)
        for (long from = whole(ranges, i, 0), id = from; id <= whole(ranges, i, 1); ++id)
            rows[id] = whole(ranges, i, 2) + (whole(ranges, i, 3) == 1 ? 0 : id - from);
    for (const auto &[id, row] : rows) {
        SCOPED_TRACE(id);
        const long status = row != -1 ? 0 : -1;
        const bool default_slot = 0 <= id && id <= 9; // free here
        kl_error_record check, mapping;
        long index = -1;
        EXPECT_EQ(KL_Check_sat_id(&id, &check), status);
        EXPECT_EQ(KL_Sat_id_to_array(&id, &index, &mapping), status);
        EXPECT_EQ(index, row);
        EXPECT_EQ(recorded_only(check, 0), row == -1);
        EXPECT_EQ(recorded_only(mapping, default_slot ? 1 : 0), row == -1);
        EXPECT_EQ(KL_Check_Geo_sat_id(&id, &check), id == 300 || id == 301 ? 0 : -1);
        EXPECT_EQ(check.count, 0);
        EXPECT_EQ(KL_Is_MEO_sat(&id), row == 63 ? 1 : 0);
        EXPECT_EQ(KL_Default_to_array(&id), default_slot ? id : -1);
        EXPECT_EQ(name_of(id) == "UNDEFINED", row == -1 && !default_slot);
        EXPECT_EQ(std::string(Catalogue(id).name) == "UNKNOWN", row == -1);
    }
    EXPECT_EQ(KL_Check_sat_id(nullptr, nullptr), -1);
}

TEST(SatelliteRows, StartWithTheirValuesAndNames)
{
    const Csv rows("tests/data/satellite_rows.csv");
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (long row = whole(rows, i, 0); row <= whole(rows, i, 1); ++row) {
            for (std::size_t column = 0; column < std::size(kColumns); ++column)
                EXPECT_EQ(kColumns[column][row], rows.number(i, 3 + column)) << "row " << row << ", value " << column;
            EXPECT_EQ(KL_SAT_TYPE[row], whole(rows, i, 2)) << row;
            EXPECT_EQ(std::memcmp(KL_SP3_PARAMS[row], "A00", 4), 0) << row;
            EXPECT_EQ(std::memcmp(TLE_SAT_DATA[row].designator, "00000   ", 9), 0) << row;
        }
    static_assert(sizeof TLE_SAT_DATA == 65 * 48 && sizeof A_MIN == 64 * sizeof(double));
    const Csv names("tests/data/satellite_names.csv");
    for (std::size_t i = 0; i < names.size(); ++i) {
        const long id = whole(names, i, 0);
        EXPECT_EQ(name_of(id), names.text(i, 1));
        EXPECT_EQ(Catalogue(id).name, names.text(i, 2));
        EXPECT_EQ(Catalogue(id).number, 0) << id;
    }
}

TEST_F(CatalogueData, ComeBackAtFullWidthWithoutATerminatorAndAreSetForValidIdsOnly)
{
    const long id = 103, number = LONG_MAX, meo = 899;
    const kl_tle_sat_data &row = TLE_SAT_DATA[24];
#include "satellites/full_width.inc"
    for (const long bad : {0L, 9L, -1L, 10L, 13L, 155L, 199L, 302L, 399L, 500L, 900L, LONG_MIN}) {
#include "satellites/bad_satellites.inc"
    }
    EXPECT_EQ(kl_set_tle_sat_data(&meo, &number, "x", "y"), 0);
    EXPECT_STREQ(Catalogue(400).name, "x") << "all of medium Earth orbit share a row";
}

TEST_F(CatalogueData, OnPurposeAnInvalidIdReadsTheSp3IdentifierOfRow0)
{
    std::memcpy(KL_SP3_PARAMS[0], "R0\0", 4);
    for (const long id : {13L, -1L, 900L, 3L})
        EXPECT_STREQ(Catalogue(id).sp3, "R0") << id;
}

TEST_F(Periods, FollowTheAxisAndOnPurposeTheLongestFallsBackToTheLargestAxisOfAllSatellites)
{
    const Csv periods("tests/data/satellite_periods.csv");
    const long slot = 0;
    long opened = -1;
    EXPECT_EQ(kl_default_sat_init(&opened, "", nullptr), slot);
    for (std::size_t i = 0; i < periods.size(); ++i) {
        const long id = whole(periods, i, 0), status = whole(periods, i, 2);
        const double shortest = periods.number(i, 3), longest = periods.number(i, 4);
        SCOPED_TRACE(id);
        A_MIN[slot] = A_MAX[slot] = periods.number(i, 1);
        double min_period = -7.0, max_period = -7.0;
        kl_error_record min_record, max_record;
        EXPECT_EQ(KL_Get_min_period(&id, &min_period, &min_record), status);
        EXPECT_EQ(KL_Get_max_period(&id, &max_period, &max_record), status);
        for (const kl_error_record &record : {min_record, max_record})
            EXPECT_EQ(recorded_only(record, status == KL_WARN ? 1 : 0), status != KL_OK);
        EXPECT_NEAR(min_period, shortest, std::abs(shortest) * kRounding * 2);
        EXPECT_NEAR(max_period, longest, std::abs(longest) * kRounding * 2);
    }
}

} // namespace
