// Codes of the satellites: the on-board clocks of the four missions, to processing time and back; the CCSDS unsegmented
// time code with its P-field, epochs, rounding, and what is refused.
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr long kTarvos = 21;
constexpr unsigned long kTick = 864000000; // 1e-8 day
constexpr double kFine = 0x1p-32;

// Runs every row of a clock both ways. What fails leaves its output as it is.
template <typename Parameters, std::size_t kParameters, typename Obt, std::size_t kObt>
void expect_both_ways(const std::string &wanted, double tolerance)
{
    for (const auto &[clock, name, sat_id, scale, parameters_cell, obt_cell, time, to_time, to_obt] :
         read_rows<std::string, std::string, long, Scale, std::string, std::string, double, std::string, std::string>(
             "on_board_times.csv")) {
        if (clock != wanted)
            continue;
        const auto parameters = record_as<Parameters, kParameters>(parameters_cell);
        const auto obt = record_as<Obt, kObt>(obt_cell);
        if (to_time != "not asked") {
            double got = 7777.0;
            expect_bits(name.c_str(), cell_as<Bits>(to_time), [&, sat = sat_id, ref = scale.ref](long *e) {
                return kl_time_obt_to_time(&sat, &ref, &parameters, &obt, &got, e);
            });
            EXPECT_NEAR(got, to_time.empty() ? time : 7777.0, tolerance) << name;
        }
        if (to_obt != "not asked") {
            auto got = obt;
            std::memset(&got, 0x77, sizeof got);
            got.sat_id = obt.sat_id;
            const auto want = to_obt.empty() ? obt : got;
            expect_bits(name.c_str(), cell_as<Bits>(to_obt), [&, sat = sat_id, ref = scale.ref, t = time](long *e) {
                return kl_time_time_to_obt(&sat, &ref, &parameters, &t, &got, e);
            });
            EXPECT_EQ(std::memcmp(&got, &want, sizeof got), 0) << name;
        }
    }
}

TEST(OnBoardTime, EveryClockRunsBothWaysOrTellsWhatIsWrong)
{
    expect_both_ways<kl_obt_param_tarvos, 5, kl_obt_tarvos, 3>("Tarvos", 1.2e-13); // spacing of doubles at 1000 days
    expect_both_ways<kl_obt_param_kelda, 7, kl_obt_kelda, 2>("Kelda", 1e-15);
    expect_both_ways<kl_obt_param_brisa, 7, kl_obt_brisa, 3>("Brisa", 1e-12);
    expect_both_ways<kl_obt_param_vardo, 2, kl_obt_vardo, 3>("Vardo", 1e-12);
}

TEST(OnBoardTime, TarvosAgreesWithTheCounterAsAWrappingInteger)
{
    // Coarse and fine together are a 64-bit counter of 2^-32 counts.
    std::mt19937_64 random(5);
    for (int i = 0; i < 100000; ++i) {
        const std::uint64_t now = random();
        const std::uint64_t reference = i % 2 == 0 ? random() : now - (random() >> (8 + i % 50));
        const kl_obt_param_tarvos ref = {kTarvos, 1000.0, reference >> 32, reference & 0xffffffff, kTick};
        const kl_obt_tarvos obt = {kTarvos, now >> 32, now & 0xffffffff};
        double time = kNaN;
        ASSERT_EQ(kl_time_obt_to_time(&kTarvos, &kTai, &ref, &obt, &time, nullptr), KL_OK);
        const auto difference = static_cast<double>(static_cast<std::int64_t>(now - reference));
        ASSERT_NEAR(time, 1000.0 + difference * kFine * 1e-8, 2.4e-13) << now << " " << reference;
    }
}

// ---- the unsegmented time code ----

using Octets = std::vector<unsigned char>;

Octets octets_of(const std::string &cell) // in hexadecimal
{
    Octets octets;
    for (const std::string &word : cell.empty() ? std::vector<std::string>() : parts_of(cell, ' '))
        octets.push_back(static_cast<unsigned char>(std::strtol(word.c_str(), nullptr, 16)));
    return octets;
}

struct Cuc : testing::Test {
    ReadingsId time_id{37.0, 0.0, 0.25, 18.0};

    struct Outcome {
        long status = KL_OK, ierr = -1;
        double time = 77.0;
        Octets octets = Octets(KL_CUC_LENGTH, 0xaa);
    };
    Outcome decode(const kl_cuc_config &config, const Octets &octets, long ref = kTai)
    {
        Outcome out;
        out.status = kl_time_cuc_to_processing(time_id, &config, &ref, octets.data(), &out.time, &out.ierr);
        return out;
    }
    Outcome encode(const kl_cuc_config &config, double time, long ref = kTai)
    {
        Outcome out;
        out.status = kl_time_processing_to_cuc(time_id, &config, &ref, &time, out.octets.data(), &out.ierr);
        return out;
    }
};

// Seconds since the epoch 0.0 TAI, without a P-field.
kl_cuc_config counting(long n_coarse, long n_fine)
{
    return {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, kTai, 0.0, n_coarse, n_fine};
}

Octets with_room(Octets octets)
{
    octets.resize(KL_CUC_LENGTH, 0xaa);
    return octets;
}

TEST_F(Cuc, PFieldsAreThoseOfTheStandard)
{
    for (const auto &[epoch_type, n_coarse, n_fine, cell] :
         read_rows<long, long, long, std::string>("cuc_p_fields.csv")) {
        const Octets p_field = octets_of(cell);
        const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, epoch_type, kTai, -15340.0, n_coarse, n_fine};
        const Octets octets = encode(config, -15339.999).octets; // 86.4 s
        EXPECT_TRUE(std::equal(p_field.begin(), p_field.end(), octets.begin())) << n_coarse << "+" << n_fine;
        kl_cuc_config read{};
        EXPECT_EQ(KL_Cuc_get_data_from_P_field(octets.data(), &read, nullptr), KL_OK);
        EXPECT_EQ(std::tuple(read.epoch_type, read.n_coarse, read.n_fine), std::tuple(epoch_type, n_coarse, n_fine));
    }
}

TEST_F(Cuc, EveryPairOfPFieldOctetsIsReadAndWrittenBackOrRefused)
{
    // The octet counts and the epoch type of the configuration are not needed to read them.
    const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, kTai, 100.0, 0, 99};
    for (int pair = 0; pair < 65536 && !HasFailure(); ++pair) {
        const int first = pair / 256;
        const int second = pair % 256;
        // A time field of ones: every octet that is counted shows in the sum.
        Octets octets = {static_cast<unsigned char>(first), static_cast<unsigned char>(second)};
        octets.resize(KL_CUC_LENGTH, 1);
        const Outcome out = decode(config, octets);
        const int identification = first / 16 % 8;
        const bool extended = first >= 128;
        const bool third_announced = extended && second >= 128;
        if ((identification != 1 && identification != 2) || third_announced) {
            EXPECT_EQ(out.ierr, error_bits(1)) << first << " " << second;
            continue;
        }
        const int n_coarse = first / 4 % 4 + 1 + (extended ? second / 32 % 4 : 0);
        const int n_fine = first % 4 + (extended ? second / 4 % 8 : 0);
        double seconds = extended ? 0.0 : (second - 1) * std::pow(256.0, n_coarse - 1); // the field begins there
        for (int i = -n_fine; i < n_coarse; ++i)
            seconds += std::pow(256.0, i);
        const double want = (identification == 1 ? -15340.0 : 100.0) + seconds / kDay;
        EXPECT_NEAR(out.time, want, 4e-16 * std::fabs(want)) << first << " " << second;

        const kl_cuc_config as_read = {KL_CUC_WITH_P_FIELD,
                                       identification == 1 ? KL_CUC_EPOCH_1958 : KL_CUC_EPOCH_USER,
                                       kTai,
                                       100.0,
                                       n_coarse,
                                       n_fine};
        const Octets written = encode(as_read, want).octets;
        EXPECT_EQ(decode(config, written).time, out.time) << first << " " << second;
    }
}

TEST_F(Cuc, EpochsAreConvertedToTheScaleOfTheTime)
{
    for (const auto &[name, cell, ref, octet_cell, time] :
         read_rows<std::string, std::string, Scale, std::string, double>("cuc_epochs.csv")) {
        const auto config = record_as<kl_cuc_config, 6>(cell);
        const Octets octets = octets_of(octet_cell);
        EXPECT_NEAR(decode(config, octets, ref).time, time, 2e-12) << name;
        EXPECT_EQ(encode(config, time, ref).octets, with_room(octets)) << name;
    }
    // The time that comes out is not range-checked.
    EXPECT_NEAR(decode(counting(7, 0), Octets(KL_CUC_LENGTH, 0xff)).time, 0x1p56 / kDay, 1.0);
}

// Midnight of GPS in the leap second of 1981, which lies in the gap between two bulletins.
TEST_F(Cuc, EpochsCountForTheOnceOnlyWarningsAsConversionsDo)
{
    constexpr double kLeap = -6758.0, kOutside = -6000.0;
    Table table({row_at(-6800.0, 19.0, 19.5), row_at(-6762.0, 19.0, 19.5), row_at(-6750.0, 20.0, 19.5)});
    table.data.combination = 2;
    table.data.second_bulletin_row = 2;
    TableId by_epoch(table), by_conversion(table);
    const kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_USER, kGps, kLeap, 4, 2};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(convert(by_epoch, kUtc, kOutside, kTai).ierr, convert(by_conversion, kUtc, kOutside, kTai).ierr) << i;
        double epoch = 0.0;
        EXPECT_EQ(KL_Get_CUC_processing_epoch(by_epoch, &config, kUtc, &epoch, nullptr), KL_OK);
        EXPECT_EQ(epoch, convert(by_conversion, kGps, kLeap, kUtc).time);
    }
}

TEST_F(Cuc, TheLastOctetIsRoundedWithTheCarryAndSecondsThatDoNotFitAreRefused)
{
    for (const auto &[name, days, n_coarse, n_fine, cell] :
         read_rows<std::string, double, long, long, std::string>("cuc_seconds.csv")) {
        const Octets octets = octets_of(cell);
        const Outcome out = encode(counting(n_coarse, n_fine), days);
        EXPECT_EQ(out.octets, with_room(octets)) << name;
        EXPECT_EQ(out.ierr, octets.empty() ? error_bits(0) : 0) << name;
    }
}

TEST_F(Cuc, OctetsGoToTimeAndBackWhereADoubleHoldsThem)
{
    // Days hold 53 bits; two roundings and the product with 86400 leave 49 for the seconds.
    std::mt19937_64 random(23);
    for (int i = 0; i < 100000; ++i) {
        const auto n_octets = static_cast<long>(random() % 6 + 1);
        const auto n_coarse = std::min(n_octets, static_cast<long>(random() % 6 + 1));
        Octets octets;
        for (long k = 0; k < n_octets; ++k)
            octets.push_back(static_cast<unsigned char>(i % 5 == 0 ? random() % 2 * 255 : random()));
        const kl_cuc_config config = counting(n_coarse, n_octets - n_coarse);
        ASSERT_EQ(encode(config, decode(config, octets).time).octets, with_room(octets))
            << n_coarse << " of " << n_octets;
    }
}

TEST_F(Cuc, TellsWhatIsWrong)
{
    for (const auto &[name, cell, ref, time, check, to_time, to_octets] :
         read_rows<std::string, std::string, long, double, long, Bits, Bits>("cuc_refusals.csv")) {
        const auto config = record_as<kl_cuc_config, 6>(cell);
        expect_record(name.c_str(), check, "", [&, scale = ref](kl_error_record *e) {
            return KL_Cuc_check_inputs(time_id, &config, scale, 0, e);
        });
        const Outcome in = decode(config, Octets(KL_CUC_LENGTH, 0), ref);
        EXPECT_EQ(std::tuple(in.status, in.ierr), std::tuple(status_with(to_time), to_time.value)) << name;
        EXPECT_EQ(in.time == 77.0, to_time != kNothing) << name;
        const Outcome out = encode(config, time, ref);
        EXPECT_EQ(std::tuple(out.status, out.ierr), std::tuple(status_with(to_octets), to_octets.value)) << name;
        EXPECT_EQ(out.octets == with_room({}), to_octets != kNothing) << name;
    }
}

} // namespace
