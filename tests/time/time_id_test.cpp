// Time ids: explicit readings, tables, getters, what is refused, and the release.
#include "../../examples/time_correlation.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "time/time_table.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Init {
    long status, ierr;
};
Init init(const double *tri_time, kl_time_id *id)
{
    Init out{KL_OK, -1};
    out.status = kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, id, &out.ierr);
    return out;
}

kl_time_row only_row_of(kl_time_id *id)
{
    kl_time_id_data data{};
    EXPECT_EQ(kl_time_get_id_data(id, &data), 0);
    EXPECT_EQ(data.n_rows, 1);
    const kl_time_row row = data.rows[0];
    kl_time_free_id_data(&data);
    return row;
}

std::string first_message(long function_id, const long *ierr)
{
    static char msg[KL_MAX_MSG][512];
    long n = 0;
    kl_get_msg(&function_id, ierr, &n, msg);
    return n > 0 ? msg[0] : "";
}

// ---- explicit values ----

TEST(TimeRefInit, RoundsTheWholeSecondDifferences)
{
    struct Case {
        const char *name;
        double tai, utc, gps; // seconds of `day`
        double tai_utc, tai_gps;
        double day;
    };
    constexpr Case kCases[] = {
        {"down", 37.4, 0.0, 18.4, 37.0, 19.0, 0.0},
        {"half a second goes away from zero", 37.5, 0.0, 0.0, 38.0, 38.0, 0.0},
        {"so does a negative one", -0.5, 0.0, 0.0, -1.0, -1.0, 0.0},
        {"negative and down", -37.4, 0.0, 0.0, -37.0, -37.0, 0.0},
        {"readings a day apart", 86400.0, 0.0, 86381.0, 86400.0, 19.0, 0.0},
        {"far from the epoch days hold 37.49999997 s", 37.5, 0.0, 0.0, 37.0, 37.0, 8000.0},
    };
    for (const Case &c : kCases) {
        OwnedTimeId id;
        const double tri_time[4] = {c.day + c.tai / kDay, c.day + c.utc / kDay, c.day + 0.25 / kDay,
                                    c.day + c.gps / kDay};
        EXPECT_EQ(init(tri_time, &id.id).status, KL_OK) << c.name;
        const kl_time_row row = only_row_of(&id.id);
        EXPECT_EQ(row.tai_utc, c.tai_utc) << c.name;
        EXPECT_EQ(row.tai_gps, c.tai_gps) << c.name;
        EXPECT_NEAR(row.tai_ut1, c.tai - 0.25, 1e-7) << c.name; // not rounded
    }
}

TEST(TimeRefInit, EachReadingIsChecked)
{
    constexpr double kBad[] = {-18262.0000001, 36524.5, kNaN, kInfinity, -kInfinity};
    for (int i = 0; i < 4; ++i)
        for (const double bad : kBad) {
            kl_time_id id{};
            double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
            tri_time[i] = bad;
            const Init result = init(tri_time, &id);
            EXPECT_EQ(result.status, KL_ERR) << i << " " << bad;
            EXPECT_EQ(result.ierr, error_bit(i)) << i << " " << bad;
            EXPECT_EQ(id.record, nullptr);
        }
    for (const double limit : {-18262.0, 36524.0}) {
        OwnedTimeId id;
        const double tri_time[4] = {limit, limit, limit, limit};
        EXPECT_EQ(init(tri_time, &id.id).status, KL_OK) << limit;
    }
}

TEST(TimeRefInit, TheFirstBadReadingEndsTheCall)
{
    kl_time_id id{};
    const double tri_time[4] = {0.0, kNaN, kNaN, kNaN};
    EXPECT_EQ(init(tri_time, &id).ierr, error_bit(KL_TIME_REF_INIT_UTC_ERR));
    EXPECT_EQ(init(nullptr, &id).ierr, error_bit(KL_TIME_REF_INIT_TAI_ERR));
    long ierr = -1;
    const double good[4] = {0.0, 0.0, 0.0, 0.0};
    EXPECT_EQ(kl_time_ref_init(good, nullptr, nullptr, nullptr, nullptr, &ierr), KL_ERR);
    EXPECT_EQ(ierr, 0);
}

TEST(TimeRefInit, OrbitArgumentsAreAcceptedWhateverTheyAre)
{
    OwnedTimeId id;
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    const long orbit = -5;
    const double anx_time = -1.0;
    const double duration = -2.0; // shorter than the time since the node, too
    long ierr = -1;
    EXPECT_EQ(kl_time_ref_init(tri_time, &orbit, &anx_time, &duration, &id.id, &ierr), KL_OK);
    EXPECT_EQ(ierr, 0);
}

TEST(TimeRefInit, ASecondInitLeavesTheFirstIdAlone)
{
    OwnedTimeId id;
    const double first[4] = {37.0 / kDay, 0.0, 0.0, 18.0 / kDay};
    const double second[4] = {kNaN, 0.0, 0.0, 0.0}; // told off for the id before its readings
    ASSERT_EQ(init(first, &id.id).status, KL_OK);
    void *const record = id.id.record;
    EXPECT_EQ(init(second, &id.id).ierr, error_bit(KL_TIME_REF_INIT_ID_ERR));
    EXPECT_EQ(id.id.record, record);
    EXPECT_EQ(only_row_of(&id.id).tai_utc, 37.0);
}

TEST(TimeRefInit, NoMemoryAtAnyStepLeavesNothingBehind)
{
    SKIP_WITHOUT_FAULTS();
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    for (int nth = 0;; ++nth) {
        kl_time_id id{};
        const long before = faults::live_blocks();
        faults::Fail fail(faults::Site::kAllocation, nth);
        const Init result = init(tri_time, &id);
        const bool failed = fail.disarm();
        if (kl_time_init_status(&id) != 0) { // also after a mutex that could not be made: the id works without
            EXPECT_EQ(kl_time_close(&id, nullptr), KL_OK);
        } else {
            EXPECT_EQ(result.ierr, error_bit(KL_TIME_REF_INIT_MEMORY_ERR)) << nth;
        }
        EXPECT_EQ(faults::live_blocks(), before) << nth;
        if (!failed)
            break;
    }
}

TEST(TimeRefInit, EqualReadingsGiveEveryScaleTheSameTime)
{
    OwnedTimeId id;
    const double tri_time[4] = {100.0, 100.0, 100.0, 100.0};
    ASSERT_EQ(init(tri_time, &id.id).status, KL_OK);
    constexpr double kTimes[] = {-18261.5, 0.0, 8765.25, 36523.75};
    for (long from = 0; from < 4; ++from)
        for (long to = 0; to < 4; ++to)
            for (const double time : kTimes) {
                const Converted out = convert(&id.id, from, time, to);
                EXPECT_EQ(out.status, KL_OK);
                EXPECT_EQ(out.time, time) << from << to; // on the microsecond grid
            }
}

// ---- getters ----

TEST(TimeId, GettersTellExplicitValuesFromNoId)
{
    kl_time_id none{};
    for (kl_time_id *id : {static_cast<kl_time_id *>(nullptr), &none}) {
        EXPECT_EQ(kl_time_init_status(id), 0);
        EXPECT_EQ(kl_time_get_mode(id), 0);
        EXPECT_EQ(kl_time_get_sat_id(id), 0);
    }
    OwnedTimeId id;
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    init(tri_time, &id.id);
    EXPECT_EQ(kl_time_init_status(&id.id), 1);
    EXPECT_EQ(kl_time_get_mode(&id.id), -1);
    EXPECT_EQ(kl_time_get_sat_id(&id.id), -1);
    EXPECT_EQ(KL_Id_get_init_type(&id.id), KL_ID_TIME);
    Table table = leap_table(k2017, 36.0, 1);
    table.data.model = 8;
    EXPECT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(kl_time_get_mode(&id.id), 8);
}

// ---- release ----

TEST(TimeClose, IsRefusedForNoIdAndForAnIdInUse)
{
    long ierr = -1;
    kl_time_id none{};
    EXPECT_EQ(kl_time_close(&none, &ierr), KL_ERR);
    EXPECT_EQ(ierr, error_bit(KL_TIME_REF_CLOSE_ID_ERR));
    EXPECT_EQ(first_message(KL_ID_FUNC_TIME_REF_CLOSE, &ierr),
              "ORBKIT_LIB >>> ERROR in kl_time_ref_close: The Time Id is not initialized or it could be in use by "
              "another Id.");
    EXPECT_EQ(kl_time_close(nullptr, &ierr), KL_ERR);

    OwnedTimeId id;
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    init(tri_time, &id.id);
    kl_id_record user{};
    kl_id_record *user_handle = &user;
    const long sat_id = 200;
    KL_Id_init(&sat_id, KL_ID_RUN, &user);
    ASSERT_EQ(KL_Link_ids(id.id.record, &user), 0);
    EXPECT_EQ(kl_time_close(&id.id, &ierr), KL_ERR);
    EXPECT_EQ(ierr, error_bit(KL_TIME_REF_CLOSE_ID_ERR));
    EXPECT_EQ(kl_time_init_status(&id.id), 1);
    Table table = leap_table(k2017, 36.0, 1);
    EXPECT_EQ(table.set(&id.id), -1) << "data of an id in use are not replaced";
    EXPECT_EQ(kl_time_get_mode(&id.id), -1);
    ASSERT_EQ(KL_Id_close(&user_handle), 0);
    EXPECT_EQ(kl_time_close(&id.id, &ierr), KL_OK);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(id.id.record, nullptr);
}

// ---- data ----

TEST(TimeIdData, ComesBackAsItWasSet)
{
    OwnedTimeId id;
    Table table = leap_table(k2017, 36.0, 1);
    table.data.model = 7;
    table.data.combination = 2;
    table.data.second_bulletin_row = 4;
    table.data.no_extrapolation = 0;
    table.data.a = 0.1;
    table.data.b = -0.002;
    table.data.c = 6205.0;
    table.data.leap_sign = -1; // not read
    table.data.leap_utc = 12.0;
    ASSERT_EQ(table.set(&id.id), 0);
    EXPECT_EQ(kl_time_get_sat_id(&id.id), -1);

    kl_time_id_data got{};
    ASSERT_EQ(kl_time_get_id_data(&id.id, &got), 0);
    EXPECT_EQ(got.model, 7);
    EXPECT_EQ(got.combination, 2);
    EXPECT_EQ(got.second_bulletin_row, 4);
    EXPECT_EQ(got.no_extrapolation, 0);
    EXPECT_EQ(got.a, 0.1);
    EXPECT_EQ(got.b, -0.002);
    EXPECT_EQ(got.c, 6205.0);
    EXPECT_EQ(got.leap_sign, 1);
    EXPECT_EQ(got.leap_utc, k2017);
    EXPECT_NEAR(got.leap_tai, k2017 + 36.0 / kDay, 1e-12);
    ASSERT_EQ(got.n_rows, 7);
    EXPECT_EQ(std::memcmp(got.rows, table.rows.data(), sizeof(kl_time_row) * 7), 0);
    EXPECT_NE(got.rows, table.rows.data());

    EXPECT_EQ(kl_time_set_id_data(&id.id, &got), 0) << "what was got can be set again";
    EXPECT_EQ(kl_time_free_id_data(&got), 0);
    EXPECT_EQ(got.rows, nullptr);
    EXPECT_EQ(got.n_rows, 0);
    EXPECT_EQ(kl_time_free_id_data(&got), 0);
    EXPECT_EQ(kl_time_free_id_data(nullptr), -1);
}

TEST(TimeIdData, ExplicitValuesCanBeSetAgain)
{
    constexpr double kReadings[][4] = {
        {6210.0 + 37.4 / kDay, 6210.0, 6210.0 + 0.59 / kDay, 6210.0 + 18.0 / kDay},
        {-18262.0 + 0.6 / kDay, -18262.0, -18262.0, -18262.0}, // UTC from TAI - TAI-UTC lies before 1950
    };
    for (const auto &tri_time : kReadings) {
        OwnedTimeId id;
        ASSERT_EQ(init(tri_time, &id.id).status, KL_OK);
        kl_time_id_data data{};
        ASSERT_EQ(kl_time_get_id_data(&id.id, &data), 0);
        EXPECT_EQ(data.model, -1);
        EXPECT_EQ(data.combination, -1);
        EXPECT_EQ(data.no_extrapolation, 1);
        EXPECT_EQ(data.leap_sign, 0);
        EXPECT_EQ(data.rows[0].utc, data.rows[0].tai - data.rows[0].tai_utc / kDay);
        OwnedTimeId copy;
        EXPECT_EQ(kl_time_set_id_data(&copy.id, &data), 0);
        kl_time_free_id_data(&data);
        EXPECT_EQ(convert(&copy.id, KL_TIME_UTC, 5000.0, KL_TIME_UT1).time,
                  convert(&id.id, KL_TIME_UTC, 5000.0, KL_TIME_UT1).time);
    }
}

TEST(TimeIdData, ATableTakesThePlaceOfTheOneBefore)
{
    OwnedTimeId id;
    Table with_leap = leap_table(k2017, 36.0, 1);
    Table without({row_at(0.0, 32.0, 31.6), row_at(10.0, 32.0, 31.7)});
    ASSERT_EQ(with_leap.set(&id.id), 0);
    void *const record = id.id.record;
    ASSERT_EQ(without.set(&id.id), 0);
    EXPECT_EQ(id.id.record, record);
    const Converted out = convert(&id.id, KL_TIME_UTC, 5.0, KL_TIME_UT1);
    EXPECT_EQ(out.status, KL_OK);
    EXPECT_NEAR((out.time - 5.0) * kDay, 32.0 - 31.65, 1e-6);
    kl_time_id_data data{};
    ASSERT_EQ(kl_time_get_id_data(&id.id, &data), 0);
    EXPECT_EQ(data.leap_sign, 0);
    EXPECT_EQ(data.n_rows, 2);
    kl_time_free_id_data(&data);
}

TEST(TimeIdData, WhatCannotBeATableIsRefusedAndChangesNothing)
{
    struct Case {
        const char *name;
        std::function<void(Table &)> spoil;
        const char *line; // part of the verbose line
    };
    using T = Table;
    // clang-format off
    const Case cases[] = {
        {"model 0", [](T &t) { t.data.model = 0; }, "model 0"},
        {"explicit values with rows", [](T &t) { t.data.model = -1; }, "exactly one row"},
        {"no rows", [](T &t) { t.rows.clear(); }, "at least one row"},
        {"not finite", [](T &t) { t.rows[3].tai_ut1 = kNaN; }, "not finite"},
        {"infinite", [](T &t) { t.rows[3].tai = kInfinity; }, "not finite"},
        {"a not finite", [](T &t) { t.data.a = kNaN; }, "UT1-UTC formula"},
        {"b not finite", [](T &t) { t.data.b = kInfinity; }, "UT1-UTC formula"},
        {"c not finite", [](T &t) { t.data.c = kNaN; }, "UT1-UTC formula"},
        {"too early", [](T &t) { t.rows[0] = row_at(-18262.001, 36.0, 36.3); }, "out of range"},
        {"too late", [](T &t) { t.rows.back() = row_at(36524.0, 37.0, 36.3); }, "out of range"},
        {"TAI-UTC with a fraction", [](T &t) { t.rows[2] = row_at(k2017 - 1, 36.5, 36.3); }, "whole seconds"},
        {"TAI-GPS with a fraction", [](T &t) { t.rows[2].tai_gps = 19.25; }, "whole seconds"},
        {"UTC off by 3 microseconds", [](T &t) { t.rows[2].utc += 3e-6 / kDay; }, "agree"},
        {"UT1 off by 3 microseconds", [](T &t) { t.rows[2].ut1 -= 3e-6 / kDay; }, "agree"},
        {"the same row twice", [](T &t) { t.rows[2] = t.rows[1]; }, "increasing"},
        {"rows the wrong way round", [](T &t) { std::swap(t.rows[2], t.rows[1]); }, "increasing"},
        {"GPS time that goes back", [](T &t) { t.rows[1] = row_at(t.rows[0].utc + 1 / kDay, 36.0, 36.3, 28.0); }, "increasing"},
        {"second bulletin at row 0", [](T &t) { t.data.combination = 2; }, "second bulletin"},
        {"second bulletin after the end", [](T &t) { t.data.combination = 2; t.data.second_bulletin_row = 7; }, "second bulletin"},
    };
    // clang-format on
    OwnedTimeId id;
    const double tri_time[4] = {0.0, 0.0, 0.0, 0.0};
    init(tri_time, &id.id);
    for (const Case &c : cases) {
        Table table = leap_table(k2017, 36.0, 1);
        c.spoil(table);
        kl_time_id fresh{};
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(table.set(&fresh), -1) << c.name; }), "") << c.name;
        EXPECT_EQ(fresh.record, nullptr) << c.name;
        kl_verbose();
        const std::string line = captured_stderr([&] { EXPECT_EQ(table.set(&id.id), -1) << c.name; });
        kl_silent();
        EXPECT_EQ(line.find("ORBKIT_LIB >>> ERROR in kl_time_set_id_data: "), 0u) << c.name;
        EXPECT_NE(line.find(c.line), std::string::npos) << c.name << ": " << line;
        EXPECT_EQ(kl_time_get_mode(&id.id), -1) << c.name;
    }
    Table good = leap_table(k2017, 36.0, 1);
    EXPECT_EQ(good.set(nullptr), -1);
    EXPECT_EQ(kl_time_set_id_data(&id.id, nullptr), -1);
    kl_time_id none{};
    kl_time_id_data data{};
    EXPECT_EQ(kl_time_get_id_data(&none, &data), -1);
    EXPECT_EQ(kl_time_get_id_data(nullptr, &data), -1);
    EXPECT_EQ(kl_time_get_id_data(&id.id, nullptr), -1);
}

TEST(TimeIdData, TwoMicrosecondsOfRoundedDaysAreAllowed)
{
    Table table({row_at(36400.0, 37.0, 36.5), row_at(36500.0, 37.0, 36.6)});
    table.rows[0].utc += 1e-6 / kDay;
    table.rows[1].ut1 -= 1e-6 / kDay;
    OwnedTimeId id;
    EXPECT_EQ(table.set(&id.id), 0);
}

TEST(TimeIdData, NoMemoryChangesNothing)
{
    SKIP_WITHOUT_FAULTS();
    Table with_leap = leap_table(k2017, 36.0, 1);
    Table without({row_at(0.0, 32.0, 31.6), row_at(10.0, 32.0, 31.7)});
    for (int nth = 0; nth < 3; ++nth) {
        OwnedTimeId id;
        ASSERT_EQ(with_leap.set(&id.id), 0);
        const long before = faults::live_blocks();
        faults::Fail fail(faults::Site::kAllocation, nth);
        const long status = without.set(&id.id);
        ASSERT_TRUE(fail.disarm());
        EXPECT_EQ(status, -1);
        EXPECT_EQ(faults::live_blocks(), before);
        EXPECT_EQ(deltas_at(&id.id, KL_TIME_UTC, k2017).tai_utc, 37.0);

        kl_time_id_data data{};
        faults::Fail again(faults::Site::kAllocation);
        const long got = kl_time_get_id_data(&id.id, &data);
        again.disarm();
        EXPECT_EQ(got, -1);
        EXPECT_EQ(data.rows, nullptr);
    }
}

// ---- the published table ----

struct PublishedTimes : testing::Test {
    OwnedTimeId time;
    void SetUp() override { ASSERT_EQ(load_time_correlation("data/time_correlation.csv", &time.id), 0); }
};

TEST_F(PublishedTimes, GiveTaiUtcOfEveryLeapSecond)
{
    for (const TaiUtcStep &step : kTaiUtcSteps) {
        const double utc = step.mjd - 51544.0;
        constexpr double kTick = 1.0 / 1024.0; // days
        EXPECT_NEAR((convert(&time.id, KL_TIME_UTC, utc, KL_TIME_TAI).time - utc) * kDay, step.tai_utc, 1e-6);
        EXPECT_NEAR((convert(&time.id, KL_TIME_UTC, utc + kTick, KL_TIME_TAI).time - utc - kTick) * kDay, step.tai_utc,
                    1e-6);
        if (step.tai_utc > 10.0) {
            EXPECT_NEAR((convert(&time.id, KL_TIME_UTC, utc - kTick, KL_TIME_TAI).time - utc + kTick) * kDay,
                        step.tai_utc - 1.0, 1e-6);
        }
    }
    EXPECT_NEAR((convert(&time.id, KL_TIME_UTC, 7000.0, KL_TIME_GPS).time - 7000.0) * kDay, 18.0, 1e-6);
}

TEST_F(PublishedTimes, GiveUt1OfDaysBetweenTheRows)
{
    // IERS 14 C04, days that the table leaves out.
    struct Day {
        double mjd, ut1_utc;
    };
    constexpr Day kDays[] = {{41319, -0.0509077}, {47894, 0.3244848}, {50628, -0.4712449}, {52323, -0.1501068},
                             {55198, 0.1134203},  {57206, 0.3220722}, {59578, -0.1101029}};
    constexpr double kReadLinearly = 1.5e-3; // s: what the head of the table says
    for (const Day &day : kDays) {
        const double utc = day.mjd - 51544.0;
        EXPECT_NEAR((convert(&time.id, KL_TIME_UTC, utc, KL_TIME_UT1).time - utc) * kDay, day.ut1_utc, kReadLinearly)
            << day.mjd;
    }
}

TEST_F(PublishedTimes, KnowTheLastLeapSecond)
{
    const long format = KL_ASCII_11;
    long sign = 0;
    char before[KL_TIME_ASCII_LENGTH];
    char after[KL_TIME_ASCII_LENGTH];
    EXPECT_EQ(kl_time_get_leap_second_info(&time.id, &format, &sign, before, after, nullptr), KL_OK);
    EXPECT_EQ(sign, 1);
    EXPECT_STREQ(after, "2017-01-01_00:00:00");
}

} // namespace
