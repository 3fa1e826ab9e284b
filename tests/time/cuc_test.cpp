// The CCSDS unsegmented time code: P-field, epochs, rounding, and what is refused.
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Octets = std::vector<unsigned char>;

#include "time/cuc_cases.inc"

struct Cuc : testing::Test {
    ReadingsId time_id{37.0, 0.0, 0.25, 18.0};

    struct Outcome {
        long status, ierr;
        double time;
        Octets octets; // all KL_CUC_LENGTH, 0xAA where nothing was written
    };
    Outcome decode(const kl_cuc_config &config, const Octets &octets, long ref = kTai)
    {
        Outcome out{KL_OK, -1, 77.0, {}};
        out.status = kl_time_cuc_to_processing(time_id, &config, &ref, octets.data(), &out.time, &out.ierr);
        return out;
    }
    Outcome encode(const kl_cuc_config &config, double time, long ref = kTai)
    {
        Outcome out{KL_OK, -1, 77.0, Octets(KL_CUC_LENGTH, 0xaa)};
        out.status = kl_time_processing_to_cuc(time_id, &config, &ref, &time, out.octets.data(), &out.ierr);
        return out;
    }
};

// Seconds since the epoch 0.0 TAI, without a P-field.
kl_cuc_config plain(long n_coarse, long n_fine)
{
    return {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, kTai, 0.0, n_coarse, n_fine};
}

Octets with_room(Octets octets)
{
    octets.resize(KL_CUC_LENGTH, 0xaa);
    return octets;
}

// ---- P-field ----

TEST_F(Cuc, PFieldsAreThoseOfTheStandard)
{
    for (const auto &[epoch_type, n_coarse, n_fine, p_field] : kPFields) {
        const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, epoch_type, kTai, -15340.0, n_coarse, n_fine};
        const Octets octets = encode(config, -15339.999).octets; // 86.4 s
        EXPECT_TRUE(std::equal(p_field.begin(), p_field.end(), octets.begin())) << n_coarse << "+" << n_fine;
        // The octet counts and the epoch type of the configuration are not needed to read it.
        const kl_cuc_config other = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, kTai, -15340.0, 0, 99};
        EXPECT_NEAR(decode(other, octets).time, -15339.999, n_fine > 0 ? 3e-8 : 5e-6) << n_coarse << "+" << n_fine;
    }
}

TEST_F(Cuc, EveryPairOfPFieldOctetsIsReadAndWrittenBackOrRefused)
{
    const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, kTai, 100.0, 0, 0};
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            // A time field of ones: every octet that is counted shows in the sum.
            Octets octets = {static_cast<unsigned char>(first), static_cast<unsigned char>(second)};
            octets.resize(KL_CUC_LENGTH, 1);
            const Outcome out = decode(config, octets);
            const int identification = first / 16 % 8;
            if (identification != 1 && identification != 2) {
                ASSERT_EQ(out.ierr, error_bit(1)) << first;
                continue;
            }
            const bool extended = first >= 128;
            const int n_coarse = first / 4 % 4 + 1 + (extended ? second / 32 % 4 : 0);
            const int n_fine = first % 4 + (extended ? second / 4 % 8 : 0);
            double seconds = extended ? 0.0 : (second - 1) * std::pow(256.0, n_coarse - 1); // the field begins there
            for (int i = -n_fine; i < n_coarse; ++i)
                seconds += std::pow(256.0, i);
            const double want = (identification == 1 ? -15340.0 : 100.0) + seconds / kDay;
            ASSERT_NEAR(out.time, want, 4e-16 * std::fabs(want)) << first << " " << second;

            kl_cuc_config read{}, again{};
            unsigned char written[2] = {0, 0};
            long n_octets = 0;
            ASSERT_EQ(KL_Cuc_get_data_from_P_field(octets.data(), &read, nullptr), 0);
            ASSERT_EQ(KL_Cuc_compute_P_field(&read, written, &n_octets, nullptr), 0);
            ASSERT_EQ(n_octets, n_coarse > 4 || n_fine > 3 ? 2 : 1);
            ASSERT_EQ(KL_Cuc_get_data_from_P_field(written, &again, nullptr), 0);
            ASSERT_EQ(std::tuple(again.n_coarse, again.n_fine, again.epoch_type),
                      std::tuple(n_coarse, n_fine, identification == 1 ? KL_CUC_EPOCH_1958 : KL_CUC_EPOCH_USER));
        }
}

// ---- epochs ----

TEST_F(Cuc, EpochsAreConvertedToTheScaleOfTheTime)
{
    for (const auto &[name, config, ref, octets, time] : kEpochs) {
        EXPECT_NEAR(decode(config, octets, ref).time, time, 2e-12) << name;
        EXPECT_EQ(encode(config, time, ref).octets, with_room(octets)) << name;
    }
    // The time that comes out is not range-checked.
    EXPECT_NEAR(decode(plain(7, 0), Octets(KL_CUC_LENGTH, 0xff)).time, 0x1p56 / kDay, 1.0);
}

// ---- rounding ----

TEST_F(Cuc, TheLastOctetIsRoundedWithTheCarryAndSecondsThatDoNotFitAreRefused)
{
    for (const auto &[name, days, n_coarse, n_fine, octets] : kSeconds) {
        const Outcome out = encode(plain(n_coarse, n_fine), days);
        EXPECT_EQ(out.octets, with_room(octets)) << name;
        EXPECT_EQ(out.ierr, octets.empty() ? error_bit(0) : 0) << name;
    }
}

TEST_F(Cuc, OctetsGoToTimeAndBackWhereADoubleHoldsThem)
{
    // From real epochs 2^-16 s is 15 microseconds, and days of 2099 hold 0.6.
    std::vector<kl_cuc_config> configs = {{KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, 0, 0.0, 4, 2},
                                          {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2},
                                          {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 4, 2}};
    // From 0.0 days hold 53 bits; two roundings and the product with 86400 leave 49 for the seconds.
    for (long n_coarse = 1; n_coarse <= 6; ++n_coarse)
        for (long n_fine = 0; n_coarse + n_fine <= 6; ++n_fine)
            configs.push_back(plain(n_coarse, n_fine));
    std::mt19937_64 random(23);
    for (const kl_cuc_config &config : configs)
        for (int i = 0; i < 6000; ++i) {
            const long ref = config.epoch_type == KL_CUC_EPOCH_USER ? kTai : kUtc;
            Octets octets(config.cuc_type == KL_CUC_WITH_P_FIELD ? 1 : 0, 0x1e);
            for (long k = 0; k < config.n_coarse + config.n_fine; ++k) {
                const std::uint64_t any = i % 3 == 0 ? random() % 2 * 255 : random();
                octets.insert(octets.end(), static_cast<unsigned char>(i == 0 ? 0xff : any));
            }
            octets.resize(KL_CUC_LENGTH, 0xaa);
            ASSERT_EQ(encode(config, decode(config, octets, ref).time, ref).octets, octets)
                << config.n_coarse << "+" << config.n_fine;
        }
}

// ---- conditions ----

TEST_F(Cuc, TellsWhatIsWrong)
{
    for (const auto &[name, config, ref, time, check, to_time, to_octets] : kConditions) {
        kl_error_record error;
        EXPECT_EQ(KL_Cuc_check_inputs(time_id, &config, ref, 0, &error), check == kNone ? KL_OK : KL_ERR) << name;
        EXPECT_TRUE(check == kNone || error.codes[0] == check) << name;
        const Outcome in = decode(config, Octets(KL_CUC_LENGTH, 0), ref);
        expect_outcome(in.status, in.ierr, to_time, name);
        EXPECT_EQ(in.time == 77.0, to_time != kNone) << name;
        const Outcome out = encode(config, time, ref);
        expect_outcome(out.status, out.ierr, to_octets, name);
        EXPECT_EQ(out.octets == with_room({}), to_octets != kNone) << name;
    }
    const kl_cuc_config config = plain(4, 2), gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    unsigned char p_field[2] = {0x7f, 0};
    long n = 0;
    RECORDS(0, "ERROR in KL_Cuc_check_inputs: Time id not initialized",
            KL_Cuc_check_inputs(nullptr, &config, kTai, 0, e))
    RECORDS(0, "ERROR in KL_Cuc_compute_P_field: Input epoch not valid", KL_Cuc_compute_P_field(&gps, p_field, &n, e))
}

} // namespace
