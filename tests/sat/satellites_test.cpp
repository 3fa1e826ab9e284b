// Satellite ids, their rows and the data behind them.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/tolerances.h"

#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr long kInvalid = -1;

// Valid ids and the rows they map to; within a range every id has the next row, or all have one.
struct Range {
    long from, to, row;
    bool one_row;
};
constexpr Range kRanges[] = {
    // clang-format off
    {11, 12, 10, false},   {21, 21, 12, false},   {31, 33, 13, false},   {41, 41, 16, false},  {51, 51, 17, false},
    {61, 61, 18, false},   {71, 71, 19, false},   {81, 81, 20, false},   {91, 91, 21, false},  {101, 103, 22, false},
    {110, 113, 25, false}, {120, 120, 29, false}, {125, 154, 30, false}, {200, 200, 60, false}, {300, 301, 61, false},
    {400, 499, 63, true},  {800, 899, 63, true},  {1200, 1299, 63, true}, {400000, 400099, 63, true}};
// clang-format on

long expected_row(long id)
{
    for (const Range &range : kRanges)
        if (range.from <= id && id <= range.to)
            return range.one_row ? range.row : range.row + id - range.from;
    return kInvalid;
}

bool recorded_only(const kl_error_record &record, long code)
{
    return record.count == 1 && record.codes[0] == code;
}

std::string name_of(long id)
{
    char name[31] = {};
    KL_Get_mission_name(&id, name);
    return name;
}

// What the getters write: the whole width of a field, and nothing beyond.
struct Catalogue {
    long number = -7;
    char name[27], designator[11], sp3[6];

    explicit Catalogue(long id)
    {
        for (char *text : {name, designator, sp3})
            std::memset(text, '#', text == name ? 26 : text == designator ? 10 : 5);
        name[26] = designator[10] = sp3[5] = '\0';
        KL_Get_tle_sat_data(&id, &number, name, designator);
        KL_Get_sp3_data(id, sp3);
        EXPECT_EQ(std::string{name[25]} + designator[9] + sp3[4], "###");
        name[25] = designator[9] = sp3[4] = '\0';
    }
};

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

TEST(SatelliteRows, StartWithTheirValues)
{
    // Envelope a, i, e, w; then the limits of a, i and e, minimum and maximum, in both sets.
    // clang-format off
    double *const columns[] = {A_MIN, A_NOM, A_MAX, I_MIN, I_NOM, I_MAX, E_NOM, W_NOM,
                               KL_TOLERANCE_AMIN_L, KL_TOLERANCE_AMAX_L, KL_TOLERANCE_IMIN_L, KL_TOLERANCE_IMAX_L,
                               KL_TOLERANCE_EMIN_L, KL_TOLERANCE_EMAX_L, KL_TOLERANCE_AMIN_T, KL_TOLERANCE_AMAX_T,
                               KL_TOLERANCE_IMIN_T, KL_TOLERANCE_IMAX_T, KL_TOLERANCE_EMIN_T, KL_TOLERANCE_EMAX_T};
    struct Rows {
        long from, to, type;
        double values[20];
    };
    constexpr Rows kRows[] = {
        {0, 9, 0, {0, 0, 0, 0, 0, 0, 0, 0, 1e6, 1e7, 60, 120, 0, 0.5, 1e6, 1e7, 60, 120, 0, 0.5}},
        {10, 60, 0, {7118050, 7159492.7, 7194056, 98.4475, 98.549387, 98.6226, 0.001165, 90,
                     1e6, 1e7, 60, 120, 0, 0.5, 1e6, 1e7, 60, 120, 0, 0.5}},
        {61, 62, 1, {42164000, 42164100, 42165000, -0.1, 0, 0.1, 0, 0,
                     3e7, 5e7, -20, 20, 0, 0.9, 4.2e7, 4.3e7, -0.1, 0.1, 0, 0.1}},
        {63, 63, 0, {2e7, 2e7, 2e7, 55, 55, 55, 0.5, 90, 1e6, 4e7, 0, 180, 0, 1, 1e6, 3e7, 0, 180, 0, 1}}};
    // clang-format on
    for (const Rows &rows : kRows)
        for (long row = rows.from; row <= rows.to; ++row) {
            for (std::size_t i = 0; i < std::size(columns); ++i)
                EXPECT_EQ(columns[i][row], rows.values[i]) << "row " << row << ", value " << i;
            EXPECT_EQ(KL_SAT_TYPE[row], rows.type) << row;
            EXPECT_EQ(std::memcmp(KL_SP3_PARAMS[row], "A00", 4), 0) << row;
            EXPECT_EQ(std::memcmp(TLE_SAT_DATA[row].designator, "00000   ", 9), 0) << row;
        }
    static_assert(sizeof TLE_SAT_DATA == 65 * 48 && sizeof A_MIN == 64 * sizeof(double));
}

TEST(SatelliteRows, HaveTheirNames)
{
    struct Case {
        long id;
        const char *name, *catalogue_name;
    };
    const Case cases[] = {{0, "", "UNKNOWN"},
                          {11, "MISSION-011", "MISSION-011"},
                          {21, "Tarvos", "TARVOS"},
                          {51, "Vardo", "VARDO"},
                          {61, "Kelda", "KELDA"},
                          {71, "Brisa", "BRISA"},
                          {154, "MISSION-154", "MISSION-154"},
                          {200, "Generic", "GENERIC"},
                          {300, "GenericGeo", "GENERICGEO"},
                          {450, "GenericMeo", "GENERICMEO"},
                          {13, "UNDEFINED", "UNKNOWN"}};
    for (const Case &c : cases) {
        EXPECT_EQ(name_of(c.id), c.name) << c.id;
        EXPECT_STREQ(Catalogue(c.id).name, c.catalogue_name) << c.id;
        EXPECT_EQ(Catalogue(c.id).number, 0) << c.id;
    }
}

// Puts a row of the tables back when a test is over.
struct RowKept {
    explicit RowKept(long row) : row_(row), catalogue_(TLE_SAT_DATA[row]), axes_{A_MIN[row], A_MAX[row]}
    {
        std::memcpy(sp3_, KL_SP3_PARAMS[row], 4);
    }
    ~RowKept()
    {
        TLE_SAT_DATA[row_] = catalogue_;
        A_MIN[row_] = axes_[0];
        A_MAX[row_] = axes_[1];
        std::memcpy(KL_SP3_PARAMS[row_], sp3_, 4);
    }
    RowKept(const RowKept &) = delete;
    RowKept &operator=(const RowKept &) = delete;

private:
    long row_;
    kl_tle_sat_data catalogue_;
    double axes_[2];
    char sp3_[4];
};

TEST(CatalogueData, ComeBackAtFullWidthWithoutATerminator)
{
    const RowKept kept(24);
    const long id = 103;
    const long number = LONG_MAX;
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "exactly 25 characters, so too long", "98067ABCDEF"), 0);
    EXPECT_EQ(kl_set_sp3_sat_data(id, "L123456"), 0);
    EXPECT_STREQ(Catalogue(id).name, "exactly 25 characters, so");
    EXPECT_STREQ(Catalogue(id).designator, "98067ABCD");
    EXPECT_STREQ(Catalogue(id).sp3, "L123");
    EXPECT_EQ(Catalogue(id).number, LONG_MAX);
    EXPECT_EQ(std::memcmp(TLE_SAT_DATA[24].reserved, "\0\0\0\0\0", 6), 0);
    EXPECT_STREQ(Catalogue(102).sp3, "A00") << "the row before";
    EXPECT_STREQ(Catalogue(110).sp3, "A00") << "the row after";
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "short", ""), 0);
    EXPECT_EQ(kl_set_sp3_sat_data(id, "G"), 0);
    EXPECT_EQ(std::memcmp(TLE_SAT_DATA[24].name, "short\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 25), 0);
    EXPECT_STREQ(Catalogue(id).designator, "");
    EXPECT_STREQ(Catalogue(id).sp3, "G");
}

TEST(CatalogueData, AreSetForValidIdsOnly)
{
    const RowKept meo(63);
    const long number = 5;
    const long id = 899;
    for (const long bad : {0L, 9L, -1L, 10L, 13L, 155L, 199L, 302L, 399L, 500L, 900L, LONG_MIN}) {
        EXPECT_EQ(kl_set_tle_sat_data(&bad, &number, "x", "y"), -1) << bad;
        EXPECT_EQ(kl_set_sp3_sat_data(bad, "x"), -1) << bad;
    }
    EXPECT_EQ(kl_set_tle_sat_data(nullptr, &number, "x", "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, nullptr, "x", "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, nullptr, "y"), -1);
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", nullptr), -1);
    EXPECT_EQ(kl_set_sp3_sat_data(id, nullptr), -1);
    EXPECT_STREQ(Catalogue(id).name, "GENERICMEO");
    EXPECT_STREQ(Catalogue(900).name, "UNKNOWN");
    EXPECT_EQ(kl_set_tle_sat_data(&id, &number, "x", "y"), 0);
    EXPECT_STREQ(Catalogue(400).name, "x") << "all of medium Earth orbit share a row";
}

TEST(CatalogueData, OnPurposeAnInvalidIdReadsTheSp3IdentifierOfRow0)
{
    const RowKept kept(0);
    std::memcpy(KL_SP3_PARAMS[0], "R0\0", 4);
    for (const long id : {13L, -1L, 900L, 3L})
        EXPECT_STREQ(Catalogue(id).sp3, "R0") << id;
}

// Periods computed apart, to 20 digits, from GM = 3.9860044e14 m3/s2.
TEST(Periods, FollowTheSemiMajorAxis)
{
    struct Case {
        long id;
        double shortest, longest; // s
    };
    const Case cases[] = {{200, 5976.5771900753108991, 6072.5584356817824996},
                          {300, 86163.570745127019697, 86166.636064414562141},
                          {899, 28148.54654982108648, 28148.54654982108648}};
    double period = 0;
    for (const Case &c : cases) {
        EXPECT_EQ(KL_Get_min_period(&c.id, &period, nullptr), KL_OK) << c.id;
        EXPECT_NEAR(period, c.shortest, c.shortest * kRounding * 2) << c.id;
        EXPECT_EQ(KL_Get_max_period(&c.id, &period, nullptr), KL_OK) << c.id;
        EXPECT_NEAR(period, c.longest, c.longest * kRounding * 2) << c.id;
    }
    const long invalid = 500;
    const double before = period;
    kl_error_record record;
    kl_verbose();
    const std::string said = captured_stderr([&] { EXPECT_EQ(KL_Get_min_period(&invalid, &period, &record), KL_ERR); });
    kl_silent();
    EXPECT_EQ(said.find("ORBKIT_LIB >>> ERROR in KL_Sat_id_to_array: "), 0U) << "the mapping says first what is wrong";
    EXPECT_TRUE(recorded_only(record, 0));
    EXPECT_EQ(KL_Get_max_period(&invalid, &period, &record), KL_ERR);
    EXPECT_TRUE(recorded_only(record, 0));
    EXPECT_EQ(period, before);
}

TEST(Periods, OnPurposeTheLongestFallsBackToTheLargestAxisOfAllSatellites)
{
    constexpr double kEarthRadiusPeriod = 5069.342618127838804;  // s, of 6378136 m
    constexpr double kLargestAxisPeriod = 86166.636064414562141; // s, of 42165000 m
    const RowKept kept(12);
    const long id = 21;
    double period = 0;
    for (const double axis : {0.0, 6378135.9, -1e7}) {
        A_MIN[12] = A_MAX[12] = axis;
        kl_error_record record;
        EXPECT_EQ(KL_Get_min_period(&id, &period, &record), KL_WARN);
        EXPECT_NEAR(period, kEarthRadiusPeriod, kEarthRadiusPeriod * kRounding * 2);
        EXPECT_TRUE(recorded_only(record, 1));
        EXPECT_EQ(KL_Get_max_period(&id, &period, &record), KL_WARN);
        EXPECT_NEAR(period, kLargestAxisPeriod, kLargestAxisPeriod * kRounding * 2);
        EXPECT_TRUE(recorded_only(record, 1));
    }
    A_MIN[12] = 6378136.0;
    EXPECT_EQ(KL_Get_min_period(&id, &period, nullptr), KL_OK);
}

} // namespace
