// The CCSDS unsegmented time code: P-field, epochs, rounding, and what is refused.
#include "time/time_table.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
using Octets = std::vector<unsigned char>;

class Cuc : public testing::Test {
protected:
    void SetUp() override
    {
        const double tri_time[4] = {37.0 / kDay, 0.0, 0.25 / kDay, 18.0 / kDay};
        ASSERT_EQ(kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, &time_id.id, nullptr), KL_OK);
    }

    struct Decoded {
        long status, ierr;
        double time;
    };
    Decoded decode(const kl_cuc_config &config, const Octets &octets, long ref = KL_TIME_TAI)
    {
        Decoded out{KL_OK, -1, 77.0};
        out.status = kl_time_cuc_to_processing(&time_id.id, &config, &ref, octets.data(), &out.time, &out.ierr);
        return out;
    }

    struct Encoded {
        long status, ierr;
        Octets octets; // all KL_CUC_LENGTH, 0xAA where nothing was written
    };
    Encoded encode(const kl_cuc_config &config, double time, long ref = KL_TIME_TAI)
    {
        Encoded out{KL_OK, -1, Octets(KL_CUC_LENGTH, 0xaa)};
        out.status = kl_time_processing_to_cuc(&time_id.id, &config, &ref, &time, out.octets.data(), &out.ierr);
        return out;
    }

    OwnedTimeId time_id;
};

// Seconds since the epoch 0.0 TAI, without a P-field.
kl_cuc_config plain(long n_coarse, long n_fine)
{
    return {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, KL_TIME_TAI, 0.0, n_coarse, n_fine};
}

Octets with_room(Octets octets)
{
    octets.resize(KL_CUC_LENGTH, 0xaa);
    return octets;
}

// ---- P-field ----

TEST_F(Cuc, PFieldsAreThoseOfTheStandard)
{
    struct Case {
        long epoch_type, n_coarse, n_fine;
        Octets p_field;
    };
    const Case cases[] = {
        {KL_CUC_EPOCH_1958, 4, 0, {0x1c}},        {KL_CUC_EPOCH_1958, 4, 2, {0x1e}},
        {KL_CUC_EPOCH_USER, 4, 2, {0x2e}},        {KL_CUC_EPOCH_USER, 4, 3, {0x2f}},
        {KL_CUC_EPOCH_USER, 1, 0, {0x20}},        {KL_CUC_EPOCH_1958, 5, 3, {0x9f, 0x20}},
        {KL_CUC_EPOCH_1958, 4, 4, {0x9f, 0x04}},  {KL_CUC_EPOCH_USER, 2, 5, {0xa7, 0x08}},
        {KL_CUC_EPOCH_USER, 5, 0, {0xac, 0x20}},  {KL_CUC_EPOCH_1958, 1, 10, {0x93, 0x1c}},
        {KL_CUC_EPOCH_1958, 7, 10, {0x9f, 0x7c}},
    };
    for (const Case &c : cases) {
        const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, c.epoch_type, KL_TIME_TAI, -15340.0, c.n_coarse, c.n_fine};
        const std::string name = std::to_string(c.n_coarse) + "+" + std::to_string(c.n_fine);
        const Encoded out = encode(config, -15339.999); // 86.4 s
        EXPECT_EQ(out.status, KL_OK) << name;
        EXPECT_TRUE(std::equal(c.p_field.begin(), c.p_field.end(), out.octets.begin())) << name;
        const std::size_t length = c.p_field.size() + static_cast<std::size_t>(c.n_coarse + c.n_fine);
        EXPECT_EQ(out.octets[c.p_field.size() + static_cast<std::size_t>(c.n_coarse) - 1], 86) << name;
        for (std::size_t i = length; i < out.octets.size(); ++i)
            EXPECT_EQ(out.octets[i], 0xaa) << name << " writes beyond its length";
        // The octet counts and the epoch type of the configuration are not needed to read it.
        const kl_cuc_config other = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, KL_TIME_TAI, -15340.0, 0, 99};
        EXPECT_NEAR(decode(other, out.octets).time, -15339.999, c.n_fine > 0 ? 3e-8 : 5e-6) << name;
    }
}

TEST_F(Cuc, EveryPairOfPFieldOctetsIsReadOrRefused)
{
    const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, KL_TIME_TAI, 100.0, 0, 0};
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            // A time field of ones: every octet that is counted shows in the sum.
            Octets octets(KL_CUC_LENGTH, 1);
            octets[0] = static_cast<unsigned char>(first);
            octets[1] = static_cast<unsigned char>(second);
            const Decoded out = decode(config, octets);
            const int identification = first / 16 % 8;
            if (identification != 1 && identification != 2) {
                ASSERT_EQ(out.ierr, error_bit(KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR)) << first;
                ASSERT_EQ(out.time, 77.0);
                continue;
            }
            const bool extended = first >= 128;
            const int n_coarse = first / 4 % 4 + 1 + (extended ? second / 32 % 4 : 0);
            const int n_fine = first % 4 + (extended ? second / 4 % 8 : 0);
            double seconds = extended ? 0.0 : (second - 1) * std::pow(256.0, n_coarse - 1); // the field begins there
            for (int i = -n_fine; i < n_coarse; ++i)
                seconds += std::pow(256.0, i);
            const double want = (identification == 1 ? -15340.0 : 100.0) + seconds / kDay;
            ASSERT_EQ(out.status, KL_OK);
            ASSERT_NEAR(out.time, want, 4e-16 * std::fabs(want)) << first << " " << second;
        }
}

TEST_F(Cuc, PFieldAndCountsGoThereAndBack)
{
    for (long n_coarse = 1; n_coarse <= 7; ++n_coarse)
        for (long n_fine = 0; n_fine <= 10; ++n_fine)
            for (const long epoch_type : {KL_CUC_EPOCH_1958, KL_CUC_EPOCH_USER}) {
                const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, epoch_type, 0, 0.0, n_coarse, n_fine};
                unsigned char octets[2];
                long n_octets = 0;
                ASSERT_EQ(KL_Cuc_compute_P_field(&config, octets, &n_octets, nullptr), 0);
                EXPECT_EQ(n_octets, n_coarse > 4 || n_fine > 3 ? 2 : 1);
                kl_cuc_config got{};
                ASSERT_EQ(KL_Cuc_get_data_from_P_field(octets, &got, nullptr), 0);
                EXPECT_EQ(got.n_coarse, n_coarse);
                EXPECT_EQ(got.n_fine, n_fine);
                EXPECT_EQ(got.epoch_type, epoch_type);
            }
    const kl_cuc_config gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    unsigned char octets[2];
    long n_octets = 0;
    kl_error_record error;
    EXPECT_EQ(KL_Cuc_compute_P_field(&gps, octets, &n_octets, &error), -1);
    EXPECT_EQ(error.codes[0], 0);
    EXPECT_EQ(KL_Cuc_compute_P_field(nullptr, octets, &n_octets, nullptr), -1);
    EXPECT_EQ(KL_Cuc_get_data_from_P_field(octets, nullptr, nullptr), -1);
}

// ---- epochs ----

TEST_F(Cuc, EpochsAreConvertedToTheScaleOfTheTime)
{
    struct Case {
        const char *name;
        long epoch_type, epoch_ref;
        double epoch;
        long ref;
        Octets coarse;
        double time;
    };
    const Case cases[] = {
        {"1958 TAI to 2000-01-01 TAI", KL_CUC_EPOCH_1958, 0, 0.0, KL_TIME_TAI, {0x4e, 0xff, 0xa2, 0x00}, 0.0},
        {"37 s earlier in UTC", KL_CUC_EPOCH_1958, 0, 0.0, KL_TIME_UTC, {0x4e, 0xff, 0xa2, 0x25}, 0.0},
        {"19 s earlier in GPS", KL_CUC_EPOCH_1958, 0, 0.0, KL_TIME_GPS, {0x4e, 0xff, 0xa2, 0x13}, 0.0},
        {"1980 GPS to 2000-01-01 GPS", KL_CUC_EPOCH_1980, 0, 0.0, KL_TIME_GPS, {0x25, 0x98, 0x06, 0x00}, 0.0},
        {"18 s later in UTC", KL_CUC_EPOCH_1980, 0, 0.0, KL_TIME_UTC, {0x25, 0x98, 0x06, 0x12}, 0.0},
        {"the caller's, same scale",
         KL_CUC_EPOCH_USER,
         KL_TIME_UT1,
         5000.125,
         KL_TIME_UT1,
         {0, 1, 0x51, 0x80},
         5001.125},
        {"the caller's, another scale",
         KL_CUC_EPOCH_USER,
         KL_TIME_UTC,
         5000.0,
         KL_TIME_TAI,
         {0, 0, 0, 0x25},
         5000.0 + 74.0 / kDay},
    };
    for (const Case &c : cases) {
        const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, c.epoch_type, c.epoch_ref, c.epoch, 4, 0};
        EXPECT_NEAR(decode(config, c.coarse, c.ref).time, c.time, 2e-12) << c.name;
        const Encoded out = encode(config, c.time, c.ref);
        EXPECT_EQ(out.status, KL_OK) << c.name;
        EXPECT_EQ(out.octets, with_room(c.coarse)) << c.name;
    }
}

TEST_F(Cuc, EpochsAreConvertedAsAnyTime)
{
    constexpr double kEpochs[] = {-15340.0, -7300.0, -18262.0, 36524.0, 1234.0, 1234.5, 1234.0 - 1e-12};
    for (const double epoch : kEpochs)
        for (long from = 0; from < 4; ++from)
            for (long to = 0; to < 4; ++to) {
                if (from == to)
                    continue;
                const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, from, epoch, 4, 0};
                double got = kNaN;
                EXPECT_EQ(KL_Get_CUC_processing_epoch(&time_id.id, &config, to, &got, nullptr), 0);
                EXPECT_EQ(got, convert(&time_id.id, from, epoch, to).time) << epoch << " " << from << to;
            }
}

// ---- rounding ----

TEST_F(Cuc, TheLastFineOctetIsRoundedWithTheCarryIntoTheCoarseOnes)
{
    struct Case {
        const char *name;
        double days; // a sum of few powers of two: the seconds are exact
        long n_coarse, n_fine;
        Octets octets;
    };
    const Case cases[] = {
        {"zero", 0.0, 2, 3, {0, 0, 0, 0, 0}},
        {"337.5 s, half up", 1.0 / 256, 2, 0, {0x01, 0x52}},
        {"84.375 s", 1.0 / 1024, 1, 1, {84, 0x60}},
        {"675/1024 s, 168.75 up", 1.0 / 131072, 1, 1, {0, 169}},
        {"675/8192 s, 21.09 down", 1.0 / 1048576, 1, 1, {0, 21}},
        {"the same exactly", 1.0 / 1048576, 1, 2, {0, 0x15, 0x18}},
        {"carry through the seconds", 1.0 - 1.0 / 1048576, 3, 0, {0x01, 0x51, 0x80}},
        {"none with an octet", 1.0 - 1.0 / 1048576, 3, 1, {0x01, 0x51, 0x7f, 235}},
        {"carry through five fine octets", (256.0 - 0x1p-44) / 86400.0, 2, 5, {1, 0, 0, 0, 0, 0, 0}},
        {"zeros after what a double holds", 1.0 / 1024, 1, 10, {84, 0x60, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"bits beyond the sixth octet", 0x1p-70, 1, 10, {0, 0, 0, 0, 0, 0, 0, 0x05, 0x46, 0, 0}},
        {"seven coarse octets", 36524.0, 7, 0, {0, 0, 0, 0xbc, 0x17, 0xc2, 0x00}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(encode(plain(c.n_coarse, c.n_fine), c.days).octets, with_room(c.octets)) << c.name;
}

TEST_F(Cuc, OctetsGoToTimeAndBackWhereADoubleHoldsThem)
{
    // Days hold 53 bits; two roundings and the product with 86400 leave 49 for the seconds.
    std::mt19937_64 random(23);
    for (long n_coarse = 1; n_coarse <= 6; ++n_coarse)
        for (long n_fine = 0; n_coarse + n_fine <= 6; ++n_fine)
            for (int i = 0; i < 3000; ++i) {
                Octets octets(KL_CUC_LENGTH, 0xaa);
                for (long k = 0; k < n_coarse + n_fine; ++k)
                    octets[static_cast<std::size_t>(k)] = static_cast<unsigned char>(i == 0       ? 0xff
                                                                                     : i % 3 == 0 ? random() % 2 * 255
                                                                                                  : random());
                const kl_cuc_config config = plain(n_coarse, n_fine);
                const Decoded time = decode(config, octets);
                ASSERT_EQ(time.status, KL_OK);
                ASSERT_EQ(encode(config, time.time).octets, octets) << n_coarse << "+" << n_fine;
            }
}

TEST_F(Cuc, RealEpochsGoToTimeAndBackWithTwoFineOctets)
{
    // 2^-16 s is 15 microseconds; days of 2099 hold 0.6.
    std::mt19937_64 random(29);
    for (const long epoch_type : {KL_CUC_EPOCH_1958, KL_CUC_EPOCH_1980})
        for (const long type : {KL_CUC_TIME_FIELD_ONLY, KL_CUC_WITH_P_FIELD}) {
            if (type == KL_CUC_WITH_P_FIELD && epoch_type == KL_CUC_EPOCH_1980)
                continue; // no P-field says so
            const kl_cuc_config config = {type, epoch_type, 0, 0.0, 4, 2};
            for (int i = 0; i < 20000; ++i) {
                Octets octets(KL_CUC_LENGTH, 0xaa);
                std::size_t n = 0;
                if (type == KL_CUC_WITH_P_FIELD)
                    octets[n++] = 0x1e;
                for (int k = 0; k < 6; ++k)
                    octets[n++] = static_cast<unsigned char>(random());
                ASSERT_EQ(encode(config, decode(config, octets, KL_TIME_UTC).time, KL_TIME_UTC).octets, octets);
            }
        }
}

TEST_F(Cuc, TheNearestCodeIsTaken)
{
    std::mt19937_64 random(31);
    std::uniform_real_distribution<double> times(0.0, 0.003); // 259 s
    for (long n_fine = 0; n_fine <= 4; ++n_fine)
        for (int i = 0; i < 5000; ++i) {
            const kl_cuc_config config = plain(2, n_fine);
            const double time = times(random);
            const double unit = std::pow(256.0, static_cast<double>(-n_fine)) / kDay;
            ASSERT_LE(std::fabs(decode(config, encode(config, time).octets).time - time), 0.5 * unit * (1.0 + 1e-6));
        }
}

// ---- conditions ----

TEST_F(Cuc, SecondsThatDoNotFitAreNeverCutDown)
{
    struct Case {
        const char *name;
        double days;
        long n_coarse, n_fine;
        bool fits;
    };
    constexpr Case kCases[] = {
        {"255.43 s", 3100.0 / 1048576, 1, 0, true},
        {"255.596 s round up to 256", 3102.0 / 1048576, 1, 0, false},
        {"255.596 s with a fine octet", 3102.0 / 1048576, 1, 1, true},
        {"a day in two octets", 1.0, 2, 0, false},
        {"a day in three", 1.0, 3, 0, true},
        {"far beyond the processing range", 8e11, 7, 0, true},
        {"more than seven octets hold", 833999930994.6, 7, 0, false},
        {"1e300 days", 1e300, 7, 10, false},
        {"infinity", kInfinity, 7, 0, false},
    };
    for (const Case &c : kCases) {
        const Encoded out = encode(plain(c.n_coarse, c.n_fine), c.days);
        EXPECT_EQ(out.ierr, c.fits ? 0 : error_bit(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR)) << c.name;
        if (!c.fits) {
            EXPECT_EQ(out.octets, Octets(KL_CUC_LENGTH, 0xaa)) << c.name;
        }
    }
}

TEST_F(Cuc, TellsWhatIsWrong)
{
    constexpr long kNone = -1;
    struct Case {
        const char *name;
        std::function<void(kl_cuc_config &)> spoil;
        long ref;
        double time;
        long check, decode, encode; // conditions; kNone for none
    };
    using C = kl_cuc_config;
    // clang-format off
    const Case cases[] = {
        {"nothing", [](C &) {}, 0, 1.0, kNone, kNone, kNone},
        {"type 2", [](C &c) { c.cuc_type = 2; }, 0, 1.0, 1, 0, 0},
        {"type -1", [](C &c) { c.cuc_type = -1; }, 0, 1.0, 1, 0, 0},
        {"no coarse octet", [](C &c) { c.n_coarse = 0; }, 0, 1.0, 2, 0, 0},
        {"eight coarse octets", [](C &c) { c.n_coarse = 8; }, 0, 1.0, 2, 0, 0},
        {"-1 fine octets", [](C &c) { c.n_fine = -1; }, 0, 1.0, 2, 0, 0},
        {"eleven fine octets", [](C &c) { c.n_fine = 11; }, 0, 1.0, 2, 0, 0},
        {"epoch type 3", [](C &c) { c.epoch_type = 3; }, 0, 1.0, 3, 0, 0},
        {"epoch type -1", [](C &c) { c.epoch_type = -1; }, 0, 1.0, 3, 0, 0},
        {"scale 4", [](C &) {}, 4, 1.0, 4, 0, 0},
        {"no scale", [](C &) {}, -1, 1.0, 4, 0, 0},
        {"octets before the rest", [](C &c) { c.n_fine = 11; c.epoch_type = 3; }, 9, 1.0, 2, 0, 0},
        {"epoch out of range", [](C &c) { c.epoch = 40000.0; }, 1, 1.0, kNone, 2, 1},
        {"epoch no number", [](C &c) { c.epoch = kNaN; }, 1, 1.0, kNone, 2, 1},
        {"scale of the epoch", [](C &c) { c.epoch_time_ref = 5; }, 0, 1.0, kNone, 2, 1},
        {"before the epoch", [](C &) {}, 0, -1e-9, kNone, kNone, 2},
        {"minus infinity", [](C &) {}, 0, -kInfinity, kNone, kNone, 2},
        {"no number", [](C &) {}, 0, kNaN, kNone, kNone, 2},
    };
    // clang-format on
    for (const Case &c : cases) {
        kl_cuc_config config = plain(4, 2);
        c.spoil(config);
        kl_error_record error;
        KL_Reset_Err(&error);
        EXPECT_EQ(KL_Cuc_check_inputs(&time_id.id, &config, c.ref, 0, &error), c.check == kNone ? 0 : -1) << c.name;
        EXPECT_EQ(error.count, c.check == kNone ? 0 : 1) << c.name;
        EXPECT_TRUE(c.check == kNone || error.codes[0] == c.check) << c.name;
        const Decoded in = decode(config, Octets(KL_CUC_LENGTH, 0), c.ref);
        EXPECT_EQ(in.ierr, c.decode == kNone ? 0 : error_bit(c.decode)) << c.name;
        EXPECT_EQ(in.status, c.decode == kNone ? KL_OK : KL_ERR) << c.name;
        const Encoded out = encode(config, c.time, c.ref);
        EXPECT_EQ(out.ierr, c.encode == kNone ? 0 : error_bit(c.encode)) << c.name;
        EXPECT_EQ(out.status, c.encode == kNone ? KL_OK : KL_ERR) << c.name;
    }
    const kl_cuc_config gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    EXPECT_EQ(encode(gps, 1.0).ierr, error_bit(KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR));
    EXPECT_EQ(encode(gps, -8000.0).ierr, error_bit(KL_TIME_PROCESSING_TO_CUC_TIME_ERR)) << "the time comes first";
    const kl_cuc_config counts_from_p_field = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 0, 99};
    EXPECT_EQ(encode(counts_from_p_field, 1.0).ierr, error_bit(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR));
}

TEST_F(Cuc, MissingArgumentsAreTheConditionsOfTheirInputs)
{
    const kl_cuc_config config = plain(4, 2);
    const long tai = KL_TIME_TAI;
    unsigned char octets[KL_CUC_LENGTH] = {0};
    double time = 1.0;
    kl_time_id none{};
    kl_time_id *id = &time_id.id;
    // clang-format off
    expect_refused({
        {0, [&](long *e) { return kl_time_cuc_to_processing(&none, &config, &tai, octets, &time, e); }},
        {0, [&](long *e) { return kl_time_cuc_to_processing(nullptr, &config, &tai, octets, &time, e); }},
        {0, [&](long *e) { return kl_time_cuc_to_processing(id, nullptr, &tai, octets, &time, e); }},
        {0, [&](long *e) { return kl_time_cuc_to_processing(id, &config, nullptr, octets, &time, e); }},
        {-1, [&](long *e) { return kl_time_cuc_to_processing(id, &config, &tai, nullptr, &time, e); }},
        {-1, [&](long *e) { return kl_time_cuc_to_processing(id, &config, &tai, octets, nullptr, e); }},
        {0, [&](long *e) { return kl_time_processing_to_cuc(&none, &config, &tai, &time, octets, e); }},
        {0, [&](long *e) { return kl_time_processing_to_cuc(nullptr, &config, &tai, &time, octets, e); }},
        {0, [&](long *e) { return kl_time_processing_to_cuc(id, nullptr, &tai, &time, octets, e); }},
        {0, [&](long *e) { return kl_time_processing_to_cuc(id, &config, nullptr, &time, octets, e); }},
        {2, [&](long *e) { return kl_time_processing_to_cuc(id, &config, &tai, nullptr, octets, e); }},
        {-1, [&](long *e) { return kl_time_processing_to_cuc(id, &config, &tai, &time, nullptr, e); }},
    });
    // clang-format on
}

TEST_F(Cuc, TheDecodedTimeIsNotRangeChecked)
{
    EXPECT_EQ(decode(plain(7, 0), Octets(KL_CUC_LENGTH, 0xff)).status, KL_OK);
    EXPECT_NEAR(decode(plain(7, 0), Octets(KL_CUC_LENGTH, 0xff)).time, 0x1p56 / kDay, 1.0);
}

} // namespace
