#include "kl_lib.h"
#include "support/csv.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

constexpr long kTai = KL_TIME_TAI;
constexpr kl_star_window kAll = {-2.0, 99.0, 0.0, 360.0, -90.0, 90.0, 0.0, 0.0, 0.0};

struct Found {
    long status = 7;
    std::vector<kl_star> stars;
    std::vector<kl_radec> places;
};

Found search(const char *file, const kl_star_window &window, long cs = KL_BM2000, long corrections = 0,
             double time = 0.5)
{
    Found found;
    long n = -7;
    kl_star *stars = nullptr;
    kl_radec *places = nullptr;
    found.status =
        kl_star_catalog(nullptr, nullptr, file, &window, &corrections, &cs, &kTai, &time, &n, &stars, &places, nullptr);
    if (found.status != KL_ERR) {
        EXPECT_EQ(stars == nullptr, n == 0);
        found.stars.assign(stars, stars + n);
        found.places.assign(places, places + n);
    }
    kl_free_array(reinterpret_cast<void **>(&stars));
    kl_free_array(reinterpret_cast<void **>(&places));
    return found;
}

// Lines of the Bright Star Catalogue: Sirius, Polaris, a nova without position.
// clang-format off
const std::string kSirius =
    "2491  9Alp CMaBD-16 1591  48915151881 257I   5423           064044.6-163444064508.9-164258227.22"
    "-08.88-1.46   0.00 -0.05 -0.03   A1Vm               -0.553-1.205 +.375-008SBO    13 10.3  11.2AB"
    "   4*";
const std::string kPolaris =
    " 424  1Alp UMiBD+88    8   8890   308 907    1477  Alp UMi  012233.7+884626023148.7+891551123.28"
    " 26.46 2.02  +0.60 +0.38 +0.31   F7:Ib-II          v+0.038-0.015 +.007-017SBO    17  6.8  18.4AB"
    "   5*";
const std::string kNova =
    "1057 NOVA 1901                                     GK Per                                       "
    "                                                                      +029SBO                   "
    "    *";
// clang-format on

} // namespace

TEST(BuiltInCatalogue, HoldsTheBrightStars)
{
    const Found all = search(nullptr, kAll);
    ASSERT_EQ(all.status, KL_OK);
    ASSERT_EQ(all.stars.size(), 8404U);
    double faintest = -9.0;
    for (const kl_star &star : all.stars)
        faintest = std::fmax(faintest, star.magnitude);
    EXPECT_EQ(faintest, 6.5);
    kl_star_window brightest = kAll;
    brightest.mag_max = 0.1;
    const Found few = search("", brightest);
    std::vector<std::vector<double>> found;
    for (const kl_star &star : few.stars)
        found.push_back({static_cast<double>(star.number), star.magnitude});
    EXPECT_EQ(found, read_table("bright_stars.csv", 2));
}

TEST(StarCatalogue, ReadsTheThreeFormats)
{
    const Scratch bright(kSirius + "\n" + kNova + "\r\n\n" + kPolaris);
    const Found two = search(bright.name.c_str(), kAll);
    ASSERT_EQ(two.stars.size(), 2U);
    const kl_star &sirius = two.stars[0];
    EXPECT_EQ(sirius.number, 2491);
    EXPECT_DOUBLE_EQ(sirius.ra, 15.0 * (6 + 45 / 60.0 + 8.9 / 3600.0));
    EXPECT_DOUBLE_EQ(sirius.dec, -(16 + 42 / 60.0 + 58 / 3600.0));
    EXPECT_EQ(sirius.magnitude, -1.46);
    EXPECT_EQ(sirius.pm_ra, -553);
    EXPECT_EQ(sirius.pm_dec, -1205);
    EXPECT_EQ(sirius.parallax, 375);
    EXPECT_EQ(sirius.radial_velocity, -8);
    EXPECT_EQ(sirius.epoch, 0.5);
    EXPECT_EQ(two.stars[1].number, 424);

    // The first entries of the main catalogue, the second without a position.
    const Scratch hipparcos(
        "H|           1| |00 00 00.22|+01 05 20.4| 9.10| |H|000.00091185|+01.08901332| |   3.54|   -5.20|   -1.88|\n"
        "H|           2| |00 00 00.91|-19 29 55.8| 9.27| |G|            |            | |       |        |        |\n");
    const Found one = search(hipparcos.name.c_str(), kAll);
    ASSERT_EQ(one.stars.size(), 1U);
    EXPECT_EQ(one.stars[0].number, 1);
    EXPECT_EQ(one.stars[0].ra, 0.00091185);
    EXPECT_EQ(one.stars[0].dec, 1.08901332);
    EXPECT_EQ(one.stars[0].parallax, 3.54);
    EXPECT_EQ(one.stars[0].pm_ra, -5.20);
    EXPECT_EQ(one.stars[0].pm_dec, -1.88);
    EXPECT_EQ(one.stars[0].epoch, -3195.4375);

    const Scratch own("KL_STARS 1\n# a comment\n\n 7 1.5 10 -20 300 -400 +50 6e1 0.5 # Alpha\n8\t2 350 0 0 0 -1 0 0.5");
    const Found pair = search(own.name.c_str(), kAll);
    ASSERT_EQ(pair.stars.size(), 2U);
    EXPECT_EQ(pair.stars[0].number, 7);
    EXPECT_EQ(pair.stars[0].pm_dec, -400);
    EXPECT_EQ(pair.stars[0].parallax, 50);
    EXPECT_EQ(pair.stars[0].radial_velocity, 60);
    EXPECT_EQ(pair.stars[1].parallax, -1);

    // The example holds twenty stars of the built-in catalogue.
    const Found example = search("examples/stars.txt", kAll), built_in = search(nullptr, kAll);
    ASSERT_EQ(example.stars.size(), 20U);
    for (const kl_star &star : example.stars)
        for (const kl_star &same : built_in.stars)
            if (same.number == star.number) {
                EXPECT_NEAR(star.ra, same.ra, 1e-7) << star.number;
                EXPECT_NEAR(star.dec, same.dec, 1e-7) << star.number;
                EXPECT_EQ(star.parallax, same.parallax) << star.number;
                EXPECT_EQ(star.magnitude, same.magnitude) << star.number;
            }
}

TEST(StarCatalogue, TellsWhatIsWrongWithAFile)
{
    const auto with = [](std::size_t column, const std::string &text) {
        std::string line = kSirius;
        return kSirius + "\n" + line.replace(column - 1, text.size(), text) + "\n";
    };
    const long none = 0, frame = KL_BM2000;
    const double time = 0.5;
    for (const auto &[name, kind, column, cell, bits] :
         read_rows<std::string, std::string, long, std::string, Bits>("star_file_refusals.csv")) {
        std::string text = cell;
        if (kind == "bars")
            std::replace(text.begin(), text.end(), '!', '|');
        else if (kind == "own")
            text = "KL_STARS 1\n" + cell + "\n";
        else if (kind != "text")
            text = kind == "zeros"
                       ? std::string(static_cast<std::size_t>(column), '\0')
                       : with(static_cast<std::size_t>(column), cell).substr(kind == "alone" ? kSirius.size() + 1 : 0);
        const Scratch file(text);
        long n = 7;
        kl_star *stars = nullptr;
        kl_radec *places = nullptr;
        expect_bits(name.c_str(), bits, [&](long *e) {
            return kl_star_catalog(nullptr, nullptr, file.name.c_str(), &kAll, &none, &frame, &kTai, &time, &n, &stars,
                                   &places, e);
        });
        EXPECT_EQ(n, 7) << name;
        EXPECT_EQ(stars, nullptr) << name;
    }
    long n = 7;
    kl_star *stars = nullptr;
    const std::string pipe = testing::TempDir() + "kl_stars_pipe_" + std::to_string(getpid()); // without a writer
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string &missing :
         {std::string("/nowhere/at/all"), std::string("/"), std::string("/dev/zero"), pipe})
        expect_bits(missing.c_str(), error_bits(KL_STAR_CATALOG_FILE_ERR), [&](long *e) {
            return kl_star_catalog(nullptr, nullptr, missing.c_str(), &kAll, &none, &frame, &kTai, &time, &n, &stars,
                                   nullptr, e);
        });
    std::remove(pipe.c_str());
}

// Two things wrong at a time: the lower code is told, a line of the file even before what is known without it.
TEST(StarCatalogue, ConditionsGoByTheirCodes)
{
    const Scratch good("KL_STARS 1\n1 5 10 0 0 0 0 0 0.5\n"), bad("KL_STARS 1\n1 5 10 0 0 0 0 0 0.5\n2 5 10\n");
    const Scratch unknown("Lorem ipsum\n");
    const std::map<std::string, const char *> files = {{"good", good.name.c_str()},
                                                       {"bad", bad.name.c_str()},
                                                       {"unknown", unknown.name.c_str()},
                                                       {"missing", "/nowhere/at/all"}};
    kl_model_id model = {nullptr};
    const long user = KL_MODEL_USER, models[9] = {0, 9, 0, 0, 0, 0, 0, 0, 0}; // refused: no routines
    kl_model_init(&user, models, &model, nullptr);
    kl_star_window none = kAll;
    none.radius = -1.0;
    for (const auto &[corrections, frame, ref, time, file, has_model, has_window, bits] :
         read_rows<long, long, long, double, std::string, long, long, Bits>("star_conditions.csv"))
        expect_bits("two conditions", bits, [&](long *e) {
            long n = 7;
            kl_star *stars = nullptr;
            return kl_star_catalog(has_model != 0 ? nullptr : &model, nullptr, files.at(file),
                                   has_window != 0 ? &kAll : &none, &corrections, &frame, &ref, &time, &n, &stars,
                                   nullptr, e);
        });
    kl_model_close(&model, nullptr);
}

// Counted by hand over the whole catalogue, place by place.
TEST(StarCatalogue, AWindowHoldsWhatLiesInIt)
{
    const Found all = search(nullptr, kAll, KL_GM2000, 7, 9000.0);
    for (const auto &row : read_table("star_windows.csv", 7)) {
        const kl_star_window w = {-2.0, 6.0, row[0], row[1], row[2], row[3], row[4], row[5], row[6]};
        const Found found = search(nullptr, w, KL_GM2000, 7, 9000.0);
        ASSERT_EQ(found.status, KL_OK);
        const double d = 0.017453292519943295;
        std::size_t expected = 0;
        for (std::size_t i = 0; i < all.stars.size(); ++i) {
            const double ra = all.places[i].ra, dec = all.places[i].dec;
            const double low = w.ra_min < 0 ? w.ra_min + 360 : w.ra_min;
            const bool in_ra = w.ra_max - w.ra_min >= 360
                               || (low > w.ra_max ? ra >= low || ra <= w.ra_max : ra >= low && ra <= w.ra_max);
            const double cosine = std::sin(dec * d) * std::sin(w.dec * d)
                                  + std::cos(dec * d) * std::cos(w.dec * d) * std::cos((ra - w.ra) * d);
            const bool in_cone = w.radius == 0.0 || std::acos(cosine) <= w.radius * d;
            const bool inside =
                all.stars[i].magnitude <= 6.0 && in_ra && dec >= w.dec_min && dec <= w.dec_max && in_cone;
            if (inside) {
                ASSERT_LT(expected, found.stars.size());
                EXPECT_EQ(found.stars[expected].number, all.stars[i].number);
                ++expected;
            }
        }
        EXPECT_EQ(found.stars.size(), expected);
        EXPECT_GT(expected, 0U);
    }
    const Found none = search(nullptr, {-9.0, -8.0, 0.0, 360.0, -90.0, 90.0, 0.0, 0.0, 0.0});
    EXPECT_EQ(none.status, KL_OK);
    EXPECT_TRUE(none.stars.empty());
}

// Right ascensions through 0 h, and what lies on an edge: all of it belongs to the window.
TEST(StarCatalogue, EdgesBelongToTheWindow)
{
    const Scratch grid("KL_STARS 1\n1 1.0 359.9 0 0 0 0 0 0.5\n2 2.0 0 0 0 0 0 0 0.5\n3 3.0 0.1 0 0 0 0 0 0.5\n"
                       "4 4.0 180 0 0 0 0 0 0.5\n5 5.0 10 90 0 0 0 0 0.5\n6 6.0 10 -90 0 0 0 0 0.5\n");
    const struct {
        const char *name;
        kl_star_window window;
        std::vector<long> numbers;
    } cases[] = {
        {"magnitudes", {2, 4, 0, 360, -90, 90, 0, 0, 0}, {2, 3, 4}},
        {"one magnitude", {3, 3, 0, 360, -90, 90, 0, 0, 0}, {3}},
        {"through 0 h", {0, 9, 359, 1, -1, 1, 0, 0, 0}, {1, 2, 3}},
        {"0 h alone", {0, 9, 0, 0, -1, 1, 0, 0, 0}, {2}},
        {"0 h as 360", {0, 9, 360, 360, -1, 1, 0, 0, 0}, {2}},
        {"the north pole", {0, 9, 0, 360, 90, 90, 0, 0, 0}, {5}},
        {"the south pole", {0, 9, 0, 360, -90, -90, 0, 0, 0}, {6}},
        {"half the sky", {0, 9, 0, 360, -90, 90, 0, 0, 90}, {1, 2, 3, 5, 6}},
        {"all but a point", {0, 9, 0, 360, -90, 90, 180, 0, 179.99}, {1, 3, 4, 5, 6}},
        {"all", {0, 9, 0, 360, -90, 90, 180, 0, 180}, {1, 2, 3, 4, 5, 6}},
        {"a point", {0, 9, 0, 360, -90, 90, 180, 0, 1e-300}, {4}},
    };
    for (const auto &c : cases) {
        std::vector<long> numbers;
        for (const kl_star &star : search(grid.name.c_str(), c.window).stars)
            numbers.push_back(star.number);
        EXPECT_EQ(numbers, c.numbers) << c.name;
    }
}

// A fast star is found where it is, not where the catalogue has it.
TEST(StarCatalogue, AConeFollowsTheMotion)
{
    const Scratch own("KL_STARS 1\n1 5 10 0 1e6 0 0 0 0.5\n");
    const double years = 90.0;
    const double moved =
        10.0 + std::atan(years * 1e6 * 4.84813681109536e-9) * 57.29577951308232; // along a straight line
    const kl_star_window there = {0, 9, 0, 360, -90, 90, moved, 0, 0.5}, was = {0, 9, 0, 360, -90, 90, 10, 0, 0.5};
    EXPECT_EQ(search(own.name.c_str(), there, KL_GM2000, 0, 0.5 + 365.25 * years).stars.size(), 1U);
    EXPECT_EQ(search(own.name.c_str(), was, KL_GM2000, 0, 0.5 + 365.25 * years).stars.size(), 0U);
}

TEST(StarCatalogue, PlacesAreThoseOfTheSingleStar)
{
    const long corrections = 7, frame = KL_MOD;
    const double time = 9000.25;
    const Found all = search(nullptr, kAll, frame, corrections, time);
    for (std::size_t i = 0; i < all.stars.size(); i += 97) {
        kl_radec place;
        ASSERT_EQ(kl_star_radec(nullptr, nullptr, &corrections, &frame, &kTai, &time, &all.stars[i], nullptr, nullptr,
                                &place, nullptr),
                  KL_OK);
        EXPECT_EQ(place.ra, all.places[i].ra);
        EXPECT_EQ(place.dec, all.places[i].dec);
        EXPECT_EQ(place.distance, 1.0);
        // A narrow cone about the place, where aberration has moved the star, holds it.
        const kl_star_window cone = {-2.0, 99.0, 0.0, 360.0, -90.0, 90.0, place.ra, place.dec, 1e-6};
        EXPECT_EQ(search(nullptr, cone, frame, corrections, time).stars.size(), 1U) << all.stars[i].number;
    }
}
