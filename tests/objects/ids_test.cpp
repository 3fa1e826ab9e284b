// What each id class makes and reads: models, time correlations, runs, satellites.
#include "objects/open_record.h"
#include "orbkit.hpp"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <optional>
#include <type_traits>
#include <utility>

using namespace ORBKIT;

namespace {

// Messages and condition numbers of what an action throws.
struct Thrown {
    std::vector<std::string> messages;
    std::vector<long> codes;
};

template <typename Action>
std::optional<Thrown> thrown_by(Action action)
{
    try {
        action();
    } catch (const KitError &error) {
        Thrown thrown;
        error.getMsg(thrown.messages);
        error.getCodes(thrown.codes);
        return thrown;
    }
    return std::nullopt;
}

constexpr double kSecond = 1.0 / 86400.0;

// ---- ModelId ----

TEST(ModelId, UserModeTakesNineSelectionsAndNoOtherNumber)
{
    const ModelId model(KL_MODEL_USER, {0, 1, 0, 0, 0, 0, 0, 0, 2});
    EXPECT_EQ(model.getData().sun, 1);
    EXPECT_EQ(model.getData().light_propagation, 2);
    for (const std::size_t size : {0u, 8u, 10u}) {
        const auto thrown = thrown_by([&] { ModelId(KL_MODEL_USER, std::vector<long>(size, 0)); });
        ASSERT_TRUE(thrown) << size;
        EXPECT_EQ(thrown->messages, (std::vector<std::string>{"Models vector must be of size 9", "ModelId::init"}));
        EXPECT_TRUE(thrown->codes.empty());
    }
    EXPECT_EQ(ModelId(KL_MODEL_DEFAULT, {7, 7}).getData().sun, 0) << "not read in default mode";
}

TEST(ModelId, RefusedModelThrowsAndLeavesTheObjectAsItWas)
{
    ModelId model(KL_MODEL_USER, {0, 1, 0, 0, 0, 0, 0, 0, 0});
    void *const record = model.getId()->record;
    for (int kind = 0; kind < 9; ++kind) {
        std::vector<long> models(9, 0);
        models[static_cast<std::size_t>(kind)] = 3;
        const auto thrown = thrown_by([&] { model.init(KL_MODEL_USER, models); });
        ASSERT_TRUE(thrown) << kind;
        EXPECT_EQ(thrown->messages,
                  (std::vector<std::string>{
                      "ModelId::init", "ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model"}));
        EXPECT_EQ(thrown->codes, std::vector<long>{2});
        EXPECT_EQ(model.getId()->record, record);
        EXPECT_EQ(instances(model.getId()), 1);
    }
    EXPECT_EQ(model.getData().sun, 1);
}

TEST(ModelId, InitAgainClosesWhatItHeld)
{
    ModelId model(KL_MODEL_DEFAULT, {});
    const OpenRecord record(model.getId());
    model.init(KL_MODEL_USER, {0, 1, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_FALSE(record.open());
    EXPECT_EQ(model.getData().sun, 1);
}

TEST(ModelId, EmptyObjectReadsTheDefaultModelsAndStaysEmpty)
{
    const ModelId model;
    const kl_model_data data = model.getData();
    EXPECT_EQ(data.semi_major_axis, 6378137.0); // WGS84
    EXPECT_EQ(data.astronomical_unit, 149597870.0);
    EXPECT_EQ(model.status(), 0);
}

// ---- TimeId ----

TEST(TimeId, KeepsTheDifferencesOfItsReadings)
{
    const TimeId time({100.0 + 37 * kSecond, 100.0, 100.0 - 0.25 * kSecond, 100.0 + 18 * kSecond});
    const TimeIdData data = time.getData();
    EXPECT_EQ(data.model, -1);
    ASSERT_EQ(data.rows.size(), 1u);
    EXPECT_EQ(data.rows[0].tai_utc, 37.0);
    EXPECT_EQ(data.rows[0].tai_gps, 19.0);
    EXPECT_NEAR(data.rows[0].tai_ut1, 37.25, 1e-6); // s: two readings near day 100 hold their difference to 1e-9 s
    const auto again = TimeId(data).getData();
    EXPECT_EQ(again.rows[0].tai_utc, 37.0) << "what was read can be set";
}

TEST(TimeId, ReadingOutOfRangeIsThrownWithItsCondition)
{
    TimeId time({0.0, 0.0, 0.0, 0.0});
    void *const record = time.getId()->record;
    const char *const scales[] = {"TAI", "UTC", "UT1", "GPS"};
    for (std::size_t scale = 0; scale < 4; ++scale) {
        std::array<double, 4> readings{};
        readings[scale] = 36524.5;
        const auto thrown = thrown_by([&] { time.init(readings); });
        ASSERT_TRUE(thrown) << scales[scale];
        EXPECT_EQ(thrown->codes, std::vector<long>{static_cast<long>(scale)});
        EXPECT_EQ(thrown->messages.at(0), "TimeId::init");
        EXPECT_EQ(thrown->messages.at(1),
                  std::string("ORBKIT_LIB >>> ERROR in kl_time_ref_init: ") + scales[scale] + " time is out of range");
        EXPECT_EQ(time.getId()->record, record);
    }
}

TimeIdData leap_second_table()
{
    TimeIdData data;
    for (const double utc : {6207.0, 6208.0, 6210.0}) { // 2016-12-29, 12-30, 2017-01-01
        const double tai_utc = utc < 6210.0 ? 36.0 : 37.0;
        data.rows.push_back({utc + tai_utc * kSecond, utc - 0.4 * kSecond, utc, tai_utc, tai_utc + 0.4, 19.0});
    }
    return data;
}

TEST(TimeId, TableOfRowsKnowsItsLeapSecond)
{
    const TimeId time(leap_second_table());
    EXPECT_EQ(time.mode(), 1);
    EXPECT_EQ(time.getData().rows.size(), 3u);
    EXPECT_EQ(time.getData().leap_sign, 1);
    EXPECT_EQ(time.getData().leap_utc, 6210.0);
    const LeapSecondInfo leap = LibFunc::timeGetLeapSecondInfo(time, KL_ASCII_43);
    EXPECT_EQ(leap.sign, 1);
    EXPECT_EQ(leap.before.str(), "2016-12-31T23:59:59.000012");
    EXPECT_EQ(leap.after.str(), "2017-01-01T00:00:00.000000");
}

TEST(TimeId, RefusedTableThrowsAndLeavesTheObjectAsItWas)
{
    TimeId time({0.0, 0.0, 0.0, 0.0});
    TimeIdData reversed = leap_second_table();
    std::swap(reversed.rows[0], reversed.rows[1]);
    for (const TimeIdData &data : {TimeIdData(), reversed}) {
        const auto thrown = thrown_by([&] { time.init(data); });
        ASSERT_TRUE(thrown) << data.rows.size() << " rows";
        EXPECT_EQ(thrown->messages, std::vector<std::string>{"Time correlation data cannot be set."});
    }
    EXPECT_EQ(time.mode(), -1);
    EXPECT_EQ(thrown_by([] { TimeId().getData(); })->messages,
              std::vector<std::string>{"Time correlation data cannot be read."});
}

// ---- RunId ----

TEST(RunId, KeepsItsIdsAliveAndClosesThemAfterItself)
{
    std::optional<TimeId> time(TimeId({0.0, 0.0, 0.0, 0.0}));
    std::optional<ModelId> model(ModelId(KL_MODEL_USER, {0, 1, 0, 0, 0, 0, 0, 0, 0}));
    const OpenRecord time_record(time->getId());
    const OpenRecord model_record(model->getId());
    std::optional<RunId> run(RunId(SatId(200), *time, *model));
    time.reset();
    model.reset();
    EXPECT_TRUE(time_record.open());
    EXPECT_TRUE(model_record.open());
    EXPECT_EQ(run->getSatellite(), 200);
    EXPECT_EQ(run->getTimeId().status(), 1);
    EXPECT_EQ(run->getModelId().getData().sun, 1);

    std::optional<RunId> copy(run);
    const long number = run->getRunId();
    EXPECT_EQ(copy->getRunId(), number);
    run.reset();
    EXPECT_EQ(kl_run_init_status(&number), 1);
    EXPECT_EQ(copy->status(), 1);
    copy->eraseObject();
    EXPECT_EQ(copy->status(), 0);
    EXPECT_EQ(kl_run_init_status(&number), 0);
    EXPECT_FALSE(time_record.open());
    EXPECT_FALSE(model_record.open());
}

TEST(RunId, KnowsWhichIdsItHas)
{
    const TimeId time({0.0, 0.0, 0.0, 0.0});
    const RunId without(SatId(200), time);
    const RunId with(SatId(200), time, ModelId(KL_MODEL_DEFAULT, {}));
    for (const long kind : {KL_ID_RUN, KL_ID_TIME, KL_ID_MODEL}) {
        EXPECT_EQ(without.idStatus(kind), kind == KL_ID_MODEL ? 0 : 1) << kind;
        EXPECT_EQ(with.idStatus(kind), 1) << kind;
        EXPECT_EQ(RunId().idStatus(kind), 0) << kind;
    }
    EXPECT_EQ(without.getModelId().status(), 0);
    EXPECT_EQ(RunId().getRunId(), -1);
    EXPECT_EQ(RunId().getSatellite(), -1);
    EXPECT_EQ(RunId().getTimeId().status(), 0);
}

TEST(RunId, FailureIsThrownWithItsConditionAndLeavesTheObjectAsItWas)
{
    const TimeId time({0.0, 0.0, 0.0, 0.0});
    RunId run(SatId(200), time);
    const long number = run.getRunId();
    const auto bad_satellite = thrown_by([&] { run.init(SatId(13), time); });
    const auto no_time = thrown_by([&] { run.init(SatId(200), TimeId()); });
    EXPECT_EQ(bad_satellite->codes, std::vector<long>{KL_RUN_INIT_SAT_ID_ERR});
    EXPECT_EQ(bad_satellite->messages.at(0), "RunId::init");
    EXPECT_EQ(no_time->codes, std::vector<long>{KL_RUN_INIT_TIME_ID_ERR});
    EXPECT_EQ(run.getRunId(), number);

    std::vector<RunId> all(1, run);
    while (all.size() < 20)
        all.emplace_back(SatId(200), time);
    EXPECT_EQ(thrown_by([&] { RunId(SatId(200), time); })->codes, std::vector<long>{KL_RUN_INIT_NO_SLOT_ERR});
    all.clear();
    EXPECT_EQ(run.status(), 1);
}

// ---- SatId ----

constexpr const char *kSatelliteFile = "examples/satellite.cfg";

TEST(SatId, FileFillsTheLowestFreeDefaultSatellite)
{
    const SatId first(kSatelliteFile);
    const SatId second{std::string()};
    EXPECT_EQ(first.getSatellite(), 0);
    EXPECT_EQ(second.getSatellite(), 1);
    EXPECT_STREQ(kl_default_sat_names[0], "Example satellite");
    EXPECT_STREQ(kl_default_sat_names[1], "");
}

TEST(SatId, OnPurposeUnreadableFileKeepsItsSatellite)
{
    std::optional<Thrown> thrown;
    captured_stderr([&] { thrown = thrown_by([] { SatId("no such file"); }); });
    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->messages.at(0), "SatId::SatId");
    EXPECT_EQ(thrown->codes, std::vector<long>{KL_DEFAULT_SAT_INIT_FILE_ERR});
    EXPECT_EQ(kl_default_sat_array[0], 1);
    const long slot = 0;
    kl_default_sat_close(&slot);
}

TEST(SatId, OnPurposeEveryObjectWithADefaultNumberFreesIt)
{
    long slot = -1;
    ASSERT_EQ(kl_default_sat_init(&slot, "", nullptr), KL_OK);
    {
        const SatId bare(slot);
    }
    EXPECT_EQ(kl_default_sat_array[slot], 0) << "made from a bare number";

    const SatId owner{std::string()};
    slot = owner.getSatellite();
    {
        const SatId copy(owner);
    } // NOLINT(performance-unnecessary-copy-initialization): the copy is the subject
    EXPECT_EQ(kl_default_sat_array[slot], 0) << "a copy";
    EXPECT_EQ(owner.getSatellite(), slot);
}

TEST(SatId, OtherNumbersFreeNothing)
{
    for (long &in_use : kl_default_sat_array)
        in_use = 1;
    for (const long number : {-10L, -1L, 10L, 200L, 1L << 32})
        SatId(number).getSatellite();
    for (long &in_use : kl_default_sat_array)
        EXPECT_EQ(std::exchange(in_use, 0), 1);
}

TEST(SatId, AssignmentCopiesTheNumberOnlyAndMovingLeavesNone)
{
    SatId target{std::string()};
    const long slot = target.getSatellite();
    const SatId generic(200);
    target = generic;
    EXPECT_EQ(target.getSatellite(), 200);
    EXPECT_EQ(kl_default_sat_array[slot], 1) << "still taken";

    static_assert(std::is_nothrow_move_constructible_v<SatId>);
    {
        SatId source(slot);
        const SatId moved(std::move(source));
        EXPECT_EQ(moved.getSatellite(), slot);
        EXPECT_EQ(source.getSatellite(), -1); // NOLINT(bugprone-use-after-move): a moved-from object has no number
    }
    EXPECT_EQ(kl_default_sat_array[slot], 0);
}

TEST(SatId, SetsCatalogueDataAndThreeCharactersOfSp3)
{
    SatId generic(200);
    generic.setTleData(-5, "A NAME OF TWENTY-FIVE CHARS and more", "98067A");
    generic.setSP3Data("L999");
    const long id = 200;
    long number = 0;
    char name[26] = "", designator[10] = "", sp3[5] = "";
    KL_Get_tle_sat_data(&id, &number, name, designator);
    KL_Get_sp3_data(id, sp3);
    EXPECT_EQ(number, -5);
    EXPECT_EQ(std::string(name, 25), "A NAME OF TWENTY-FIVE CHA");
    EXPECT_STREQ(designator, "98067A");
    EXPECT_STREQ(sp3, "L99");
    generic.setTleData(0, "GENERIC", "00000   ");
    generic.setSP3Data("A00");
}

TEST(SatId, RefusedDataIsThrown)
{
    for (const long number : {-1L, 13L, 0L}) {
        EXPECT_EQ(thrown_by([&] { SatId(number).setTleData(1, "A", "B"); })->messages,
                  std::vector<std::string>{"TLE Satellite Data cannot be set."});
        EXPECT_EQ(thrown_by([&] { SatId(number).setSP3Data("L99"); })->messages,
                  std::vector<std::string>{"SP3 Id cannot be set."});
    }
}

} // namespace
