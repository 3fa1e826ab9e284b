// Satellite ids, their rows and the data behind them.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/tolerances.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr long kInvalid = -1;

// Valid ids and the rows they map to: from, to, row of the first; every id between has the next row, or the same.
struct Range {
    long from, to, row;
    bool one_row;
};
constexpr Range kRanges[] = {
    {11, 12, 10, false},   {21, 21, 12, false},    {31, 33, 13, false},        {41, 41, 16, false},
    {51, 51, 17, false},   {61, 61, 18, false},    {71, 71, 19, false},        {81, 81, 20, false},
    {91, 91, 21, false},   {101, 103, 22, false},  {110, 113, 25, false},      {120, 120, 29, false},
    {125, 154, 30, false}, {200, 200, 60, false},  {300, 301, 61, false},      {400, 499, 63, true},
    {800, 899, 63, true},  {1200, 1299, 63, true}, {400000, 400099, 63, true},
};

long expected_row(long id)
{
    for (const Range &range : kRanges)
        if (range.from <= id && id <= range.to)
            return range.one_row ? range.row : range.row + id - range.from;
    return kInvalid;
}

bool recorded_only(const kl_error_record &record, long function_id, long code)
{
    return record.function_id == function_id && record.count == 1 && record.codes[0] == code;
}

std::string text_of(const kl_error_record &record)
{
    static char msg[KL_MAX_MSG][512];
    long n = 0;
    KL_Err_Msg(&record, &n, msg);
    return n == 1 ? msg[0] : "";
}

std::string name_of(long id)
{
    char name[31] = {};
    KL_Get_mission_name(&id, name);
    return name;
}

// What a getter wrote into a field: its whole width, and nothing beyond.
struct Catalogue {
    long number = -7;
    std::string name, designator;
};

Catalogue catalogue_of(long id)
{
    Catalogue data;
    char name[26];
    char designator[10];
    std::memset(name, '#', sizeof name);
    std::memset(designator, '#', sizeof designator);
    EXPECT_EQ(KL_Get_tle_sat_data(&id, &data.number, name, designator), 0);
    EXPECT_EQ(name[25], '#');
    EXPECT_EQ(designator[9], '#');
    data.name.assign(name, strnlen(name, 25));
    data.designator.assign(designator, strnlen(designator, 9));
    return data;
}

std::string sp3_of(long id)
{
    char text[5];
    std::memset(text, '#', sizeof text);
    EXPECT_EQ(KL_Get_sp3_data(id, text), 0);
    EXPECT_EQ(text[4], '#');
    return std::string(text, strnlen(text, 4));
}

TEST(SatelliteIds, EveryIdHasItsRowOrNone)
{
    long valid = 0;
    std::vector<long> ids;
    for (long id = -5; id <= 1300; ++id)
        ids.push_back(id);
    for (const long id : {399999L, 400000L, 400099L, 400100L, LONG_MAX, LONG_MIN, LONG_MIN + 400})
        ids.push_back(id);
    for (const long id : ids) {
        const long row = expected_row(id);
        const bool default_slot = 0 <= id && id <= 9; // free here
        const bool meo = row == 63;
        valid += row != kInvalid ? 1 : 0;
        kl_error_record check;
        kl_error_record mapping;
        long index = -9;
        EXPECT_EQ(KL_Check_sat_id(&id, &check), row != kInvalid ? 0 : -1) << id;
        EXPECT_EQ(KL_Sat_id_to_array(&id, &index, &mapping), row != kInvalid ? 0 : -1) << id;
        if (row != kInvalid) {
            EXPECT_EQ(check.count + mapping.count, 0) << id;
            EXPECT_EQ(index, row) << id;
        } else {
            EXPECT_TRUE(recorded_only(check, 10, 0)) << id;
            EXPECT_TRUE(recorded_only(mapping, 12, default_slot ? 1 : 0)) << id;
            EXPECT_EQ(index, -9) << id;
        }
        EXPECT_EQ(KL_Check_Geo_sat_id(&id, &check), id == 300 || id == 301 ? 0 : -1) << id;
        EXPECT_EQ(check.count, 0) << id;
        EXPECT_EQ(KL_Is_MEO_sat(&id), meo ? 1 : 0) << id;
        EXPECT_EQ(KL_Default_to_array(&id), default_slot ? id : -1) << id;
        EXPECT_EQ(name_of(id) == "UNDEFINED", row == kInvalid && !default_slot) << id;
        EXPECT_EQ(catalogue_of(id).name == "UNKNOWN", row == kInvalid) << id;
        EXPECT_EQ(KL_Check_sat_id(&id, nullptr), row != kInvalid ? 0 : -1) << id;
    }
    EXPECT_EQ(valid, 50 + 3 + 300 + 2);
}

TEST(SatelliteIds, HaveTheirMessages)
{
    struct Case {
        const char *name;
        long id;
        long (*call)(const long *, kl_error_record *);
        const char *text;
    };
    const auto to_array = [](const long *id, kl_error_record *record) {
        long index = 0;
        return KL_Sat_id_to_array(id, &index, record);
    };
    const auto min_period = [](const long *id, kl_error_record *record) {
        double period = 0;
        return KL_Get_min_period(id, &period, record);
    };
    const auto max_period = [](const long *id, kl_error_record *record) {
        double period = 0;
        return KL_Get_max_period(id, &period, record);
    };
    const Case cases[] = {
        {"check", 13, KL_Check_sat_id, "ORBKIT_LIB >>> ERROR in KL_Check_sat_id: Satellite ID is not correct"},
        {"row", 13, to_array, "ORBKIT_LIB >>> ERROR in KL_Sat_id_to_array: Satellite ID is not correct"},
        {"row of a free slot", 4, to_array,
         "ORBKIT_LIB >>> ERROR in KL_Sat_id_to_array: Default Satellite not correctly initialised"},
        {"shortest period", 900, min_period,
         "ORBKIT_LIB >>> ERROR in KL_Get_min_period: Error computing sat array index value corresponding to input "
         "sat_id"},
        {"longest period", 900, max_period,
         "ORBKIT_LIB >>> ERROR in KL_Get_max_period: Error computing sat array index value corresponding to input "
         "sat_id"},
    };
    for (const Case &c : cases) {
        kl_error_record record;
        EXPECT_EQ(c.call(&c.id, &record), -1) << c.name;
        EXPECT_EQ(text_of(record), c.text) << c.name;
        EXPECT_EQ(c.call(nullptr, &record), -1) << c.name;
    }
    // In verbose mode the mapping says first what is wrong with the id.
    double period = 0;
    const long free_slot = 4;
    kl_verbose();
    const std::string said = captured_stderr([&] { KL_Get_min_period(&free_slot, &period, nullptr); });
    const std::string refused = captured_stderr([&] { EXPECT_EQ(kl_set_sp3_sat_data(13, "x"), -1); });
    kl_silent();
    EXPECT_EQ(said, std::string(cases[2].text) + "\n" + cases[3].text + "\n");
    EXPECT_EQ(refused, std::string(cases[1].text) + "\n");
    // Kept in the table although no check records it.
    kl_error_record record;
    KL_Reset_Err(&record);
    ASSERT_EQ(KL_Put_Err(11, 0, nullptr, &record), 0);
    EXPECT_EQ(text_of(record), "ORBKIT_LIB >>> ERROR in KL_Check_sat_id: Satellite ID is not GEO");
}

struct RowValues {
    const char *name;
    long from, to; // rows
    double a[3], i[3], e, w;
    double l[6], t[6]; // limits: a, i, e, minimum and maximum of each
    long type;
};

constexpr RowValues kRows[] = {
    {"default slots", 0, 9, {0, 0, 0}, {0, 0, 0}, 0, 0, {1e6, 1e7, 60, 120, 0, 0.5}, {1e6, 1e7, 60, 120, 0, 0.5}, 0},
    {"missions and generic",
     10,
     60,
     {7118050, 7159492.7, 7194056},
     {98.4475, 98.549387, 98.6226},
     0.001165,
     90,
     {1e6, 1e7, 60, 120, 0, 0.5},
     {1e6, 1e7, 60, 120, 0, 0.5},
     0},
    {"geostationary",
     61,
     62,
     {42164000, 42164100, 42165000},
     {-0.1, 0, 0.1},
     0,
     0,
     {3e7, 5e7, -20, 20, 0, 0.9},
     {4.2e7, 4.3e7, -0.1, 0.1, 0, 0.1},
     1},
    {"medium Earth orbit",
     63,
     63,
     {2e7, 2e7, 2e7},
     {55, 55, 55},
     0.5,
     90,
     {1e6, 4e7, 0, 180, 0, 1},
     {1e6, 3e7, 0, 180, 0, 1},
     0},
};

TEST(SatelliteRows, StartWithTheirValues)
{
    long rows = 0;
    for (const RowValues &values : kRows)
        for (long r = values.from; r <= values.to; ++r, ++rows) {
            SCOPED_TRACE(std::string(values.name) + ", row " + std::to_string(r));
            const double found[] = {A_MIN[r], A_NOM[r], A_MAX[r], I_MIN[r], I_NOM[r], I_MAX[r], E_NOM[r], W_NOM[r]};
            const double wanted[] = {values.a[0], values.a[1], values.a[2], values.i[0],
                                     values.i[1], values.i[2], values.e,    values.w};
            for (int k = 0; k < 8; ++k)
                EXPECT_EQ(found[k], wanted[k]) << "value " << k;
            const double limits_l[] = {KL_TOLERANCE_AMIN_L[r], KL_TOLERANCE_AMAX_L[r], KL_TOLERANCE_IMIN_L[r],
                                       KL_TOLERANCE_IMAX_L[r], KL_TOLERANCE_EMIN_L[r], KL_TOLERANCE_EMAX_L[r]};
            const double limits_t[] = {KL_TOLERANCE_AMIN_T[r], KL_TOLERANCE_AMAX_T[r], KL_TOLERANCE_IMIN_T[r],
                                       KL_TOLERANCE_IMAX_T[r], KL_TOLERANCE_EMIN_T[r], KL_TOLERANCE_EMAX_T[r]};
            for (int k = 0; k < 6; ++k) {
                EXPECT_EQ(limits_l[k], values.l[k]) << "limit " << k;
                EXPECT_EQ(limits_t[k], values.t[k]) << "limit " << k;
            }
            EXPECT_EQ(KL_SAT_TYPE[r], values.type);
            EXPECT_EQ(std::memcmp(KL_SP3_PARAMS[r], "A00", 4), 0);
            EXPECT_EQ(TLE_SAT_DATA[r].catalogue_number, 0);
            EXPECT_EQ(std::memcmp(TLE_SAT_DATA[r].designator, "00000   ", 9), 0);
        }
    EXPECT_EQ(rows, 64);
    static_assert(sizeof TLE_SAT_DATA == 65 * 48);
}

TEST(SatelliteRows, HaveTheirNames)
{
    struct Case {
        long id;
        const char *name, *catalogue_name;
    };
    const Case cases[] = {
        {0, "", "UNKNOWN"},
        {9, "", "UNKNOWN"},
        {11, "MISSION-011", "MISSION-011"},
        {21, "Tarvos", "TARVOS"},
        {51, "Vardo", "VARDO"},
        {61, "Kelda", "KELDA"},
        {71, "Brisa", "BRISA"},
        {154, "MISSION-154", "MISSION-154"},
        {200, "Generic", "GENERIC"},
        {300, "GenericGeo", "GENERICGEO"},
        {301, "MISSION-301", "MISSION-301"},
        {450, "GenericMeo", "GENERICMEO"},
        {13, "UNDEFINED", "UNKNOWN"},
        {-1, "UNDEFINED", "UNKNOWN"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(name_of(c.id), c.name) << c.id;
        EXPECT_EQ(catalogue_of(c.id).name, c.catalogue_name) << c.id;
        EXPECT_EQ(catalogue_of(c.id).designator, "00000   ") << c.id;
        EXPECT_EQ(catalogue_of(c.id).number, 0) << c.id;
    }
}

// Puts a row of the tables back when a test is over.
struct RowKept {
    explicit RowKept(long row) : row_(row), catalogue_(TLE_SAT_DATA[row]), a_min_(A_MIN[row]), a_max_(A_MAX[row])
    {
        std::memcpy(sp3_, KL_SP3_PARAMS[row], 4);
    }
    ~RowKept()
    {
        TLE_SAT_DATA[row_] = catalogue_;
        A_MIN[row_] = a_min_;
        A_MAX[row_] = a_max_;
        std::memcpy(KL_SP3_PARAMS[row_], sp3_, 4);
    }
    RowKept(const RowKept &) = delete;
    RowKept &operator=(const RowKept &) = delete;

private:
    long row_;
    kl_tle_sat_data catalogue_;
    double a_min_, a_max_;
    char sp3_[4];
};

TEST(CatalogueData, ComeBackAtFullWidthWithoutATerminator)
{
    const RowKept kept(24);
    const long id = 103;
    const long number = LONG_MAX;
    const std::string name = "exactly 25 characters, so";
    const std::string designator = "98067ABCD";
    ASSERT_EQ(name.size(), 25U);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, (name + " too long").c_str(), (designator + "EF").c_str()), 0);
    EXPECT_EQ(catalogue_of(id).name, name);
    EXPECT_EQ(catalogue_of(id).designator, designator);
    EXPECT_EQ(catalogue_of(id).number, LONG_MAX);
    EXPECT_EQ(catalogue_of(102).name, "MISSION-102") << "the row before";
    EXPECT_EQ(catalogue_of(110).name, "MISSION-110") << "the row after";
    const char zeros[6] = {};
    EXPECT_EQ(std::memcmp(TLE_SAT_DATA[24].reserved, zeros, 6), 0);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "short", ""), 0);
    EXPECT_EQ(std::memcmp(TLE_SAT_DATA[24].name, "short\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 25), 0);
    EXPECT_EQ(catalogue_of(id).designator, "");

    EXPECT_EQ(kl_set_sp3_sat_data(id, "L123456"), 0);
    EXPECT_EQ(sp3_of(id), "L123");
    EXPECT_EQ(sp3_of(102), "A00");
    EXPECT_EQ(sp3_of(110), "A00");
    EXPECT_EQ(kl_set_sp3_sat_data(id, "G"), 0);
    EXPECT_EQ(sp3_of(id), "G");
}

TEST(CatalogueData, AreSetForValidIdsOnly)
{
    const RowKept meo(63);
    const long number = 5;
    for (const long id : {0L, 9L, -1L, 10L, 13L, 155L, 199L, 302L, 399L, 500L, 900L, LONG_MIN}) {
        EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", "y"), -1) << id;
        EXPECT_EQ(kl_set_sp3_sat_data(id, "x"), -1) << id;
    }
    EXPECT_EQ(catalogue_of(900).name, "UNKNOWN");
    const long id = 899;
    EXPECT_EQ(kl_set_tle_sat_data(nullptr, &number, "x", "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, nullptr, "x", "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, nullptr, "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", nullptr), -1);
    EXPECT_EQ(kl_set_sp3_sat_data(id, nullptr), -1);
    EXPECT_EQ(catalogue_of(id).name, "GENERICMEO");
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", "y"), 0);
    EXPECT_EQ(catalogue_of(400).name, "x") << "all of medium Earth orbit share a row";
}

TEST(CatalogueData, OnPurposeAnInvalidIdReadsTheSp3IdentifierOfRow0)
{
    const RowKept kept(0);
    std::memcpy(KL_SP3_PARAMS[0], "R0\0", 4);
    for (const long id : {13L, -1L, 900L, 3L})
        EXPECT_EQ(sp3_of(id), "R0") << id;
    EXPECT_EQ(sp3_of(200), "A00");
}

// Periods computed apart, to 20 digits, from GM = 3.9860044e14 m3/s2.
TEST(Periods, FollowTheSemiMajorAxis)
{
    struct Case {
        long id;
        double shortest, longest; // s
    };
    const Case cases[] = {
        {200, 5976.5771900753108991, 6072.5584356817824996},
        {300, 86163.570745127019697, 86166.636064414562141},
        {21, 5976.5771900753108991, 6072.5584356817824996},
        {899, 28148.54654982108648, 28148.54654982108648},
    };
    for (const Case &c : cases) {
        double period = 0;
        kl_error_record record;
        EXPECT_EQ(KL_Get_min_period(&c.id, &period, &record), KL_OK) << c.id;
        EXPECT_NEAR(period, c.shortest, c.shortest * kRounding * 2) << c.id;
        EXPECT_EQ(KL_Get_max_period(&c.id, &period, &record), KL_OK) << c.id;
        EXPECT_NEAR(period, c.longest, c.longest * kRounding * 2) << c.id;
    }
    const long invalid = 500;
    double period = 7;
    EXPECT_EQ(KL_Get_min_period(&invalid, &period, nullptr), KL_ERR);
    EXPECT_EQ(KL_Get_max_period(&invalid, &period, nullptr), KL_ERR);
    EXPECT_EQ(period, 7);
}

TEST(Periods, OnPurposeTheLongestFallsBackToTheLargestAxisOfAllSatellites)
{
    constexpr double kEarthRadiusPeriod = 5069.342618127838804;  // s, of 6378136 m
    constexpr double kLargestAxisPeriod = 86166.636064414562141; // s, of 42165000 m
    const RowKept kept(12);
    const long id = 21;
    for (const double axis : {0.0, 6378135.9, -1e7}) {
        A_MIN[12] = A_MAX[12] = axis;
        kl_error_record record;
        double period = 0;
        EXPECT_EQ(KL_Get_min_period(&id, &period, &record), KL_WARN);
        EXPECT_NEAR(period, kEarthRadiusPeriod, kEarthRadiusPeriod * kRounding * 2);
        EXPECT_EQ(text_of(record), "ORBKIT_LIB >>> WARNING in KL_Get_min_period: Minimum semi-major axis smaller than "
                                   "Earth radius. ");
        EXPECT_EQ(KL_Get_max_period(&id, &period, &record), KL_WARN);
        EXPECT_NEAR(period, kLargestAxisPeriod, kLargestAxisPeriod * kRounding * 2);
        EXPECT_EQ(text_of(record), "ORBKIT_LIB >>> WARNING in KL_Get_max_period: Maximum semi-major axis smaller than "
                                   "Earth radius. ");
    }
    A_MIN[12] = A_MAX[12] = 6378136.0;
    double period = 0;
    EXPECT_EQ(KL_Get_min_period(&id, &period, nullptr), KL_OK);
    EXPECT_EQ(KL_Get_max_period(&id, &period, nullptr), KL_OK);
    EXPECT_NEAR(period, kEarthRadiusPeriod, kEarthRadiusPeriod * kRounding * 2);
}

} // namespace
