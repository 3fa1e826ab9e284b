// Time ids: explicit readings, tables, getters, what is refused, and the release.
#include "support/bare_id.h"
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "time/format_cases.h"

namespace {

#include "time/time_id_cases.inc"

// ---- explicit values ----

TEST(TimeRefInit, RoundsTheWholeSecondDifferences)
{
    for (const auto &[name, day, tai, utc, gps, tai_utc, tai_gps] :
         read_rows<std::string, double, double, double, double, double, double>("rounded_readings.csv")) {
        OwnedTimeId id;
        const double tri_time[4] = {day + tai / kDay, day + utc / kDay, day + 0.25 / kDay, day + gps / kDay};
        // The orbit arguments are accepted whatever they are.
        LEAVES(kNothing, kl_time_ref_init(tri_time, at(-5L), at(-1.0), at(-2.0), id, e))
        const kl_time_row row = TimeData(id).rows[0];
        EXPECT_EQ(std::tuple(row.tai_utc, row.tai_gps), std::tuple(tai_utc, tai_gps)) << name;
        EXPECT_NEAR(row.tai_ut1, tai - 0.25, 1e-7) << name; // not rounded
    }
}

TEST(TimeRefInit, TheFirstReadingOutOfRangeEndsTheCall)
{
    for (int i = 0; i < 4; ++i)
        for (const double bad : {-18262.0000001, 36524.5, kNaN}) {
            OwnedTimeId id;
            double tri_time[4] = {-18262.0, 36524.0, -18262.0, kNaN};
            tri_time[i] = bad;
            LEAVES(error_bits(i), kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, id, e))
        }
    ReadingsId good(37.0, 0.0, 0.0, 18.0);
    LEAVES(error_bits(9), kl_time_ref_init(nullptr, nullptr, nullptr, nullptr, good, e)) // before its readings
}

// ---- getters and release ----

TEST(TimeClose, IsRefusedForNoIdAndForAnIdInUse)
{
    NamedIds ids;
    LEAVES(error_bits(0), kl_time_close(ids[kEmpty], e))
    kl_time_id *const id = ids[kConstant];
    {
        BareId user(KL_ID_RUN);
        ASSERT_EQ(KL_Link_ids(id->record, user.handle), 0);
        LEAVES(error_bits(0), kl_time_close(id, e))
        EXPECT_EQ(ten_days().set(id), -1) << "data of an id in use are not replaced";
        EXPECT_EQ(kl_time_get_mode(id), -1);
    }
    LEAVES(0, kl_time_close(id, e))
    EXPECT_EQ(id->record, nullptr);
}

// ---- data ----

TEST(TimeIdData, ComesBackAsItWasSet)
{
    Table table = leap_table(k2017, 36.0, 1);
    table.rows[2].utc += 1.4e-6 / kDay; // two microseconds are allowed, for rounded days
    table.rows[4].ut1 -= 1.4e-6 / kDay;
    // The leap second of the data is an output: it is not read.
    table.data = {7, 2, 0, 4, 0.1, -0.002, 6205.0, -1, 12.0, 13.0, 0, nullptr, nullptr, nullptr, {}, {}, {}, {}};
    TableId id(table);
    TimeData got(id);
    EXPECT_EQ(std::tuple(got.model, got.combination, got.no_extrapolation, got.second_bulletin_row, got.leap_sign),
              std::tuple(7, 2, 0, 4, 1));
    ASSERT_EQ(std::tuple(got.a, got.b, got.c, got.leap_utc, got.n_rows), std::tuple(0.1, -0.002, 6205.0, k2017, 7));
    EXPECT_NEAR(got.leap_tai, k2017 + 36.0 / kDay, 1e-12);
    EXPECT_EQ(std::memcmp(got.rows, table.rows.data(), sizeof(kl_time_row) * 7), 0);

    EXPECT_EQ(kl_time_set_id_data(id, &got), 0) << "what was got can be set again";
    EXPECT_EQ(kl_time_free_id_data(&got), 0);
    EXPECT_EQ(std::tuple(got.rows, got.n_rows), std::tuple(nullptr, 0));
}

TEST(TimeIdData, ExplicitValuesCanBeSetAgain)
{
    ReadingsId id(-18262.0 * kDay + 0.6, -18262.0 * kDay, -18262.0 * kDay, -18262.0 * kDay);
    OwnedTimeId copy;
    const TimeData data(id);
    EXPECT_EQ(std::tuple(data.model, data.combination, data.no_extrapolation, data.leap_sign),
              std::tuple(-1, -1, 1, 0));
    EXPECT_EQ(data.rows[0].utc, data.rows[0].tai - 1.0 / kDay); // before 1950
    EXPECT_EQ(kl_time_set_id_data(copy, &data), 0);
    EXPECT_EQ(convert(copy, kUtc, 5000.0, kUt1).time, convert(id, kUtc, 5000.0, kUt1).time);
}

TEST(TimeIdData, WhatCannotBeATableIsRefusedAndChangesNothing)
{
    ReadingsId id(0.0, 0.0, 0.0, 0.0);
    kl_time_id none{};
    for (const auto &[name, spoil, part] : kBadTables) {
        Table table = leap_table(k2017, 36.0, 1);
        spoil(table);
        EXPECT_EQ(captured_stderr([&] { EXPECT_EQ(table.set(&none), -1); }), "") << name;
        const std::string line = verbose_text([&] { EXPECT_EQ(table.set(id), -1); });
        EXPECT_EQ(line.rfind("ORBKIT_LIB >>> ERROR in kl_time_set_id_data: ", 0), 0u) << name;
        EXPECT_NE(line.find(part), std::string::npos) << name << ": " << line;
        EXPECT_EQ(std::tuple(none.record, kl_time_get_mode(id)), std::tuple(nullptr, -1)) << name;
    }
}

TEST(TimeIdData, ATableTakesThePlaceOfTheOneBeforeUnlessThereIsNoMemory)
{
    NamedIds ids;
    kl_time_id *const id = ids[kPositiveLeap];
    Table other = ten_days();
    for (int nth = 0; nth < 2 && faults::available(); ++nth) { // the rows, their notes
        faults::Fail fail(faults::Site::kAllocation, nth);
        const long status = other.set(id);
        ASSERT_TRUE(fail.disarm());
        EXPECT_EQ(std::tuple(status, TimeData(id).n_rows), std::tuple(-1, 7)) << nth;
    }
    ASSERT_EQ(other.set(id), 0);
    EXPECT_NEAR((convert(id, kUtc, 5.0, kUt1).time - 5.0) * kDay, 32.0 - 31.25, 1e-6);
    EXPECT_EQ(std::tuple(TimeData(id).leap_sign, TimeData(id).n_rows), std::tuple(0, 2));
}

// ---- the published table ----

TEST(PublishedTimes, GiveTaiUtcOfEveryLeapSecondAndUt1OfDaysBetweenTheRows)
{
    constexpr double kReadLinearly = 1.5e-3; // s: what the head of the table says
    OwnedTimeId id;
    LEAVES(kNothing,
           kl_time_id_init(at(0L), nullptr, at(1L), at(long{KL_TIME_WINDOW_FILE}), nullptr, nullptr, nullptr, id, e))
    // How far a scale is ahead of UTC there, s.
    const auto ahead = [&id](long scale, double utc) { return (convert(id, kUtc, utc, scale).time - utc) * kDay; };
    for (const TaiUtcStep &step : kTaiUtcSteps) {
        const double utc = step.mjd - 51544.0;
        EXPECT_NEAR(ahead(kTai, utc), step.tai_utc, 1e-6);
        EXPECT_NEAR(ahead(kTai, utc + 0.001), step.tai_utc, 1e-6);
        EXPECT_NEAR(ahead(kTai, utc - 0.001), std::max(step.tai_utc - 1.0, 10.0), 1e-6);
    }
    for (const auto &row : read_table("ut1_days.csv", 2))
        EXPECT_NEAR(ahead(kUt1, row[0] - 51544.0), row[1], kReadLinearly) << row[0];
    EXPECT_NEAR(ahead(kGps, 7000.0), 18.0, 1e-6);
    EXPECT_EQ(TimeData(id).leap_utc, k2017);
}

} // namespace
