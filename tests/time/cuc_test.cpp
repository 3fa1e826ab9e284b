// The CCSDS unsegmented time code: P-field, epochs, rounding, and what is refused.
#include "time/time_table.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace {

using Octets = std::vector<unsigned char>;

struct PFieldCase {
    long epoch_type, n_coarse, n_fine;
    Octets p_field;
};
struct EpochCase {
    const char *name;
    long epoch_type, epoch_ref;
    double epoch;
    long ref;
    Octets coarse;
    double time;
};
struct SecondsCase {
    const char *name;
    double days;
    long n_coarse, n_fine;
    Octets octets;
};
struct ConditionCase {
    const char *name;
    kl_cuc_config config;
    long ref;
    double time;
    long check, decode, encode;
};
#include "time/cuc_cases.inc"

struct Cuc : testing::Test {
    ReadingsId time_id{37.0, 0.0, 0.25, 18.0};

    struct Decoded {
        long status, ierr;
        double time;
    };
    Decoded decode(const kl_cuc_config &config, const Octets &octets, long ref = KL_TIME_TAI)
    {
        Decoded out{KL_OK, -1, 77.0};
        out.status = kl_time_cuc_to_processing(time_id, &config, &ref, octets.data(), &out.time, &out.ierr);
        return out;
    }

    struct Encoded {
        long status, ierr;
        Octets octets; // all KL_CUC_LENGTH, 0xAA where nothing was written
    };
    Encoded encode(const kl_cuc_config &config, double time, long ref = KL_TIME_TAI)
    {
        Encoded out{KL_OK, -1, Octets(KL_CUC_LENGTH, 0xaa)};
        out.status = kl_time_processing_to_cuc(time_id, &config, &ref, &time, out.octets.data(), &out.ierr);
        return out;
    }
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
    for (const PFieldCase &c : kPFields) {
        const std::string name = std::to_string(c.n_coarse) + "+" + std::to_string(c.n_fine);
        const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, c.epoch_type, KL_TIME_TAI, -15340.0, c.n_coarse, c.n_fine};
        const Encoded out = encode(config, -15339.999); // 86.4 s
        EXPECT_TRUE(std::equal(c.p_field.begin(), c.p_field.end(), out.octets.begin())) << name;
        const auto coarse_end = out.octets.begin() + static_cast<long>(c.p_field.size()) + c.n_coarse;
        EXPECT_EQ(coarse_end[-1], 86) << name;
        const auto rest = coarse_end + c.n_fine;
        EXPECT_EQ(std::count(rest, out.octets.end(), 0xaa), out.octets.end() - rest) << name << " writes beyond it";
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
        }
}

TEST_F(Cuc, PFieldAndCountsGoThereAndBack)
{
    unsigned char octets[2];
    long n_octets = 0;
    kl_cuc_config got{};
    for (long n_coarse = 1; n_coarse <= 7; ++n_coarse)
        for (long n_fine = 0; n_fine <= 10; ++n_fine)
            for (const long epoch_type : {KL_CUC_EPOCH_1958, KL_CUC_EPOCH_USER}) {
                const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, epoch_type, 0, 0.0, n_coarse, n_fine};
                ASSERT_EQ(KL_Cuc_compute_P_field(&config, octets, &n_octets, nullptr), 0);
                EXPECT_EQ(n_octets, n_coarse > 4 || n_fine > 3 ? 2 : 1);
                ASSERT_EQ(KL_Cuc_get_data_from_P_field(octets, &got, nullptr), 0);
                EXPECT_TRUE(got.n_coarse == n_coarse && got.n_fine == n_fine && got.epoch_type == epoch_type)
                    << n_coarse << "+" << n_fine;
            }
    const kl_cuc_config gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2};
    kl_error_record error;
    EXPECT_EQ(KL_Cuc_compute_P_field(&gps, octets, &n_octets, &error), -1);
    EXPECT_EQ(error.codes[0], 0);
    EXPECT_EQ(KL_Cuc_compute_P_field(nullptr, octets, &n_octets, nullptr), -1);
    EXPECT_EQ(KL_Cuc_get_data_from_P_field(octets, nullptr, nullptr), -1);
}

// ---- epochs ----

TEST_F(Cuc, EpochsAreConvertedToTheScaleOfTheTime)
{
    for (const EpochCase &c : kEpochs) {
        const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, c.epoch_type, c.epoch_ref, c.epoch, 4, 0};
        EXPECT_NEAR(decode(config, c.coarse, c.ref).time, c.time, 2e-12) << c.name;
        EXPECT_EQ(encode(config, c.time, c.ref).octets, with_room(c.coarse)) << c.name;
    }
    // The time that comes out is not range-checked.
    EXPECT_NEAR(decode(plain(7, 0), Octets(KL_CUC_LENGTH, 0xff)).time, 0x1p56 / kDay, 1.0);
}

TEST_F(Cuc, EpochsAreConvertedAsAnyTime)
{
    for (const double epoch : {-15340.0, -7300.0, -18262.0, 36524.0, 1234.0, 1234.5, 1234.0 - 1e-12})
        for (long from = 0; from < 4; ++from)
            for (long to = 0; to < 4; ++to) {
                const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, from, epoch, 4, 0};
                double got = kNaN;
                EXPECT_EQ(KL_Get_CUC_processing_epoch(time_id, &config, to, &got, nullptr), 0);
                EXPECT_EQ(got, from == to ? epoch : convert(time_id, from, epoch, to).time)
                    << epoch << " " << from << to;
            }
}

// ---- rounding ----

TEST_F(Cuc, TheLastOctetIsRoundedWithTheCarryAndSecondsThatDoNotFitAreRefused)
{
    for (const SecondsCase &c : kSeconds) {
        const Encoded out = encode(plain(c.n_coarse, c.n_fine), c.days);
        EXPECT_EQ(out.octets, with_room(c.octets)) << c.name;
        EXPECT_EQ(out.ierr, c.octets.empty() ? error_bit(0) : 0) << c.name;
    }
}

TEST_F(Cuc, OctetsGoToTimeAndBackWhereADoubleHoldsThem)
{
    // Days hold 53 bits; two roundings and the product with 86400 leave 49 for the seconds.
    std::mt19937_64 random(23);
    for (long n_coarse = 1; n_coarse <= 6; ++n_coarse)
        for (long n_fine = 0; n_coarse + n_fine <= 6; ++n_fine)
            for (int i = 0; i < 3000; ++i) {
                Octets octets;
                for (long k = 0; k < n_coarse + n_fine; ++k) {
                    const std::uint64_t any = i % 3 == 0 ? random() % 2 * 255 : random();
                    octets.push_back(static_cast<unsigned char>(i == 0 ? 0xff : any));
                }
                const kl_cuc_config config = plain(n_coarse, n_fine);
                ASSERT_EQ(encode(config, decode(config, octets).time).octets, with_room(octets))
                    << n_coarse << "+" << n_fine;
            }
}

TEST_F(Cuc, RealEpochsGoToTimeAndBackWithTwoFineOctets)
{
    // 2^-16 s is 15 microseconds; days of 2099 hold 0.6. No P-field says 1980.
    constexpr kl_cuc_config kConfigs[] = {{KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, 0, 0.0, 4, 2},
                                          {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 2},
                                          {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 4, 2}};
    std::mt19937_64 random(29);
    for (const kl_cuc_config &config : kConfigs)
        for (int i = 0; i < 20000; ++i) {
            Octets octets(config.cuc_type == KL_CUC_WITH_P_FIELD ? 7 : 6);
            std::generate(octets.begin(), octets.end(), [&] { return static_cast<unsigned char>(random()); });
            octets[0] = config.cuc_type == KL_CUC_WITH_P_FIELD ? 0x1e : octets[0];
            const double time = decode(config, octets, KL_TIME_UTC).time;
            ASSERT_EQ(encode(config, time, KL_TIME_UTC).octets, with_room(octets));
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

TEST_F(Cuc, TellsWhatIsWrong)
{
    for (const ConditionCase &c : kConditions) {
        kl_error_record error;
        EXPECT_EQ(KL_Cuc_check_inputs(time_id, &c.config, c.ref, 0, &error), c.check == kNone ? 0 : -1) << c.name;
        EXPECT_EQ(error.count, c.check == kNone ? 0 : 1) << c.name;
        EXPECT_TRUE(c.check == kNone || error.codes[0] == c.check) << c.name;
        const Decoded in = decode(c.config, Octets(KL_CUC_LENGTH, 0), c.ref);
        EXPECT_EQ(in.ierr, error_or_none(c.decode)) << c.name;
        EXPECT_EQ(in.status, c.decode == kNone ? KL_OK : KL_ERR) << c.name;
        EXPECT_EQ(in.time == 77.0, c.decode != kNone) << c.name;
        const Encoded out = encode(c.config, c.time, c.ref);
        EXPECT_EQ(out.ierr, error_or_none(c.encode)) << c.name;
        EXPECT_EQ(out.status, c.encode == kNone ? KL_OK : KL_ERR) << c.name;
        EXPECT_EQ(out.octets == with_room({}), c.encode != kNone) << c.name;
    }
}

TEST_F(Cuc, MissingArgumentsAreTheConditionsOfTheirInputs)
{
    // Without the id, the configuration, the scale, the input, the output.
    constexpr long kDecode[] = {0, 0, 0, kNone, kNone}, kEncode[] = {0, 0, 0, 2, kNone};
    const kl_cuc_config config = plain(4, 2);
    const long tai = KL_TIME_TAI;
    unsigned char octets[KL_CUC_LENGTH] = {0};
    double time = 1.0;
    kl_time_id none{}, *id = time_id;
    long ierr = 77;
    for (long missing = 0; missing < 5; ++missing) {
        const AllBut given{missing};
        EXPECT_EQ(kl_time_cuc_to_processing(given(0, id), given(1, &config), given(2, &tai), given(3, octets),
                                            given(4, &time), &ierr),
                  KL_ERR);
        EXPECT_EQ(ierr, error_or_none(kDecode[missing])) << missing;
        EXPECT_EQ(kl_time_processing_to_cuc(given(0, id), given(1, &config), given(2, &tai), given(3, &time),
                                            given(4, octets), &ierr),
                  KL_ERR);
        EXPECT_EQ(ierr, error_or_none(kEncode[missing])) << missing;
    }
    EXPECT_EQ(kl_time_cuc_to_processing(&none, &config, &tai, octets, &time, &ierr), KL_ERR);
    EXPECT_EQ(ierr, error_bit(0));
    EXPECT_EQ(kl_time_processing_to_cuc(&none, &config, &tai, &time, octets, &ierr), KL_ERR);
    EXPECT_EQ(ierr, error_bit(0));
    kl_error_record error;
    EXPECT_EQ(KL_Cuc_check_inputs(&none, &config, tai, 0, &error), -1);
    EXPECT_EQ(error.codes[0], 0);
}

} // namespace
