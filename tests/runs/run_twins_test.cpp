// The twins, all that the table of functions has: with a run they do what the function does with the run's ids, without
// one nothing.
#include "support/captured_stream.h"
#include "support/conditions.h"
#include "support/every_function.h"

#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

// Each function with its twin.
std::vector<std::pair<const PublicCall *, const PublicCall *>> twins()
{
    std::vector<std::pair<const PublicCall *, const PublicCall *>> found;
    for (const PublicCall *f = every_call(); f != every_call_end(); ++f)
        for (const PublicCall *twin = every_call(); twin != every_call_end(); ++twin)
            if (twin->name == std::string(f->name) + "_run")
                found.emplace_back(f, twin);
    return found;
}

// Takes the model alone of a run, and the two runs have the same Earth.
bool of_models(const std::string &name)
{
    static const std::set<std::string> names = {
        "kl_geod_to_cart",  "kl_cart_to_geod",      "kl_kepl_to_cart",      "kl_cart_to_kepl",  "kl_cart_to_radec",
        "kl_radec_to_cart", "kl_ef_to_topocentric", "kl_topocentric_to_ef", "kl_geod_distance", "kl_mean_motion"};
    return names.count(name) != 0 || name.rfind("kl_ray_", 0) == 0;
}

bool of_clocks(const PublicCall *f)
{
    return std::strstr(f->name, "_obt") != nullptr;
}

class RunTwins : public testing::Test {
protected:
    // The second run has a model without Moon and planets and another time id.
    RunTwins()
    {
        EXPECT_TRUE(worlds[0].open());
        World &other = worlds[1];
        const long user = KL_MODEL_USER, no_moon[9] = {0, 0, 1}, sat_id = 51; // refused: nothing from the Moon on
        const double at = other.at, times[4] = {at, at - 30.0 / 86400.0, at - 31.0 / 86400.0, at - 19.0 / 86400.0};
        EXPECT_EQ(kl_model_init(&user, no_moon, &other.model, nullptr), KL_ERR);
        EXPECT_EQ(kl_time_ref_init(times, nullptr, nullptr, nullptr, &other.time, nullptr), KL_OK);
        EXPECT_EQ(kl_run_init(&sat_id, &other.time, &other.model, &other.run, nullptr), KL_OK);
    }
    ~RunTwins() override
    {
        for (World &world : worlds)
            world.close();
    }

    World worlds[2];
};

TEST_F(RunTwins, DoWhatTheirFunctionDoesWithTheIdsOfTheRun)
{
    EXPECT_GE(twins().size(), 16U);
    for (const auto &[f, twin] : twins()) {
        Outputs by_run[2];
        for (int i = 0; i < 2; ++i) {
            const Outputs by_ids = outputs_of(*f, worlds[i]);
            by_run[i] = outputs_of(*twin, worlds[i]);
            EXPECT_TRUE(by_ids == by_run[i]) << twin->name << ", run " << i;
        }
        EXPECT_EQ(by_run[0] == by_run[1], of_clocks(f) || of_models(f->name))
            << twin->name << ": another run, other results";
    }
}

TEST_F(RunTwins, TouchNothingWithoutTheirRunButOnPurposeThoseOfTheClocksPassOnThatThereIsNoSatellite)
{
    const long run = worlds[0].run;
    Outputs pattern;
    std::memset(static_cast<void *>(&pattern), 0x5a, sizeof pattern);
    for (const auto &[f, twin] : twins())
        for (const long none : {-1L, 20L, 5L, LONG_MAX}) {
            World &world = worlds[0];
            static_cast<Outputs &>(world) = pattern;
            world.run = none;
            const std::string said = verbose_text([&, call = twin->call] { world.status = call(world); });
            world.run = run;
            EXPECT_EQ(world.status, KL_ERR) << twin->name;
            EXPECT_EQ(said.empty(), !of_clocks(f)) << twin->name;
            if (of_clocks(f)) {
                EXPECT_EQ(world.ierr[0], error_bits(0)) << twin->name;
                continue;
            }
            world.status = pattern.status;
            EXPECT_TRUE(world == pattern) << twin->name;
        }
}

} // namespace
