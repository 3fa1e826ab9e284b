// What each id class makes and reads: models, time correlations, runs, satellites.
#include "objects/objects.h"

#include <optional>
#include <type_traits>
#include <utility>

using namespace ORBKIT;

namespace {

constexpr double kSecond = 1.0 / 86400.0;
const Codes kSun1 = {0, 1, 0, 0, 0, 0, 0, 0, 2};

TimeIdData leap_second_table()
{
    TimeIdData data;
    for (const double utc : {6207.0, 6208.0, 6210.0}) { // 2016-12-29, 12-30, 2017-01-01
        const double tai_utc = utc < 6210.0 ? 36.0 : 37.0;
        data.rows.push_back({utc + tai_utc * kSecond, utc - 0.4 * kSecond, utc, tai_utc, tai_utc + 0.4, 19.0});
    }
    return data;
}

TEST(Ids, AnswerWithWhatTheyWereMadeOf)
{
    ModelId sun_1(KL_MODEL_DEFAULT, {});
    const OpenRecord before(sun_1.getId());
    sun_1.init(KL_MODEL_USER, kSun1);
    EXPECT_FALSE(before.open());
    const ModelId empty_model;
    const TimeId readings({100.0 + 37 * kSecond, 100.0, 100.0 - 0.25 * kSecond, 100.0 + 18 * kSecond});
    const TimeId table(leap_second_table());
    const RunId without(SatId(200), table), with(SatId(200), table, sun_1), none;
    EXPECT_NEAR(readings.getData().rows[0].tai_ut1, 37.25, 1e-6); // s: readings near day 100 hold differences to 1e-9 s
#include "objects/id_values.inc"
}

TEST(Ids, AreAsTheyWereAfterARefusal)
{
    ModelId model(KL_MODEL_USER, kSun1);
    TimeId time({0.0, 0.0, 0.0, 0.0});
    RunId run(SatId(200), time);
    const void *const records[] = {model.getId()->record, time.getId()->record};
    const long number = run.getRunId();
    TimeIdData reversed = leap_second_table();
    std::swap(reversed.rows[0], reversed.rows[1]);
#include "objects/refused_ids.inc"
    EXPECT_EQ(model.getId()->record, records[0]);
    EXPECT_EQ(time.getId()->record, records[1]);
    EXPECT_EQ(instances(model.getId()), 1);
    EXPECT_EQ(run.getRunId(), number);
    EXPECT_EQ(model.getData().sun, 1);
}

TEST(RunId, KeepsItsIdsAliveAndClosesThemAfterItself)
{
    std::optional<TimeId> time(TimeId({0.0, 0.0, 0.0, 0.0}));
    std::optional<ModelId> model(ModelId(KL_MODEL_USER, kSun1));
    const OpenRecord time_record(time->getId()), model_record(model->getId());
    std::optional<RunId> run(RunId(SatId(200), *time, *model)), copy(run);
    const long number = run->getRunId();
    time.reset();
    model.reset();
    EXPECT_TRUE(time_record.open() && model_record.open());
    EXPECT_EQ(copy->getRunId(), number);
    run.reset();
    EXPECT_EQ(kl_run_init_status(&number) + copy->status(), 2);
    copy->eraseObject();
    EXPECT_EQ(kl_run_init_status(&number) + copy->status(), 0);
    EXPECT_FALSE(time_record.open() || model_record.open());
}

TEST(SatId, TakesTheLowestFreeNumberAndOnPurposeEveryObjectWithItFreesIt)
{
    static_assert(std::is_nothrow_move_constructible_v<SatId>);
    SatId first("examples/satellite.cfg"), second{std::string()};
    const SatId generic(200);
#include "objects/satellite_numbers.inc"
}

TEST(SatId, NumbersOfTheTenSlotsFreeTheirsOthersNothing)
{
    for (long &in_use : kl_default_sat_array)
        in_use = 1;
    for (const long number : {-10L, -1L, 10L, 200L, 1L << 32})
        SatId(number).getSatellite();
    for (long slot = 0; slot < 10; ++slot) {
        EXPECT_EQ(kl_default_sat_array[slot], 1);
        EXPECT_EQ(SatId(slot).getSatellite(), slot);
        EXPECT_EQ(kl_default_sat_array[slot], 0);
    }
}

TEST(SatId, SetsCatalogueDataAndThreeCharactersOfSp3)
{
    SatId generic(200);
    generic.setTleData(-5, "A NAME OF TWENTY-FIVE CHARS and more", "98067A");
    generic.setSP3Data("L999");
    const kl_tle_sat_data &row = TLE_SAT_DATA[60];
#include "objects/satellite_data.inc"
}

} // namespace
