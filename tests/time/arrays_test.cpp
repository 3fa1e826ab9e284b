// Array forms of times, beyond the law that holds for all of them: the clocks of other satellites, time codes with
// their P-field, texts as wide as their layout, and what is said of a refused call.
#include "support/captured_stream.h"
#include "time/time_table.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

namespace {

// Every instant of a correlation, and among them what is out of its rows or of every range.
std::vector<double> instants(long n, unsigned seed)
{
    const double odd[] = {kNaN, kInfinity, 36524.5, k2017 + 0.5 / kDay, k2017 + 400.0, k2017 - 3.5, 5e-324};
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> inside(k2017 - 19.0, k2017 + 18.0);
    std::vector<double> out(static_cast<std::size_t>(n));
    for (double &t : out)
        t = random() % 4 != 0 ? inside(random) : odd[random() % std::size(odd)];
    return out;
}

constexpr long kElements = 150;
const std::vector<double> kDays = instants(kElements, 4);

// One call for an element after the other, and one for all; what the calls have written.
template <typename T, typename One, typename All>
std::vector<T> by_both(std::vector<T> loop, std::vector<T> array, const One &one, const All &all)
{
    std::vector<long> expected, statuses(kDays.size());
    long bits = 0, ierr = 0, worst = KL_OK;
    for (std::size_t i = 0; i < kDays.size(); ++i) {
        long word = 0;
        expected.push_back(one(i, loop.data() + i * loop.size() / kDays.size(), &word));
        bits |= word;
        worst = worst == KL_ERR || expected.back() == KL_ERR ? long{KL_ERR} : std::max(worst, expected.back());
    }
    EXPECT_EQ(all(array.data(), statuses.data(), &ierr), worst);
    EXPECT_EQ(ierr, bits);
    EXPECT_EQ(statuses, expected);
    EXPECT_EQ(std::memcmp(loop.data(), array.data(), loop.size() * sizeof(T)), 0);
    return loop;
}

// Scalar calls leave the time of an element that fails as it is.
const std::vector<double> kFailed(kDays.size(), kNaN), kBefore(kDays.size(), 7.0);

TEST(TimeArrays, ClocksGoThereAndBackAsTheirScalarCalls)
{
    const kl_obt_param_tarvos tarvos = {21, 6000.0, 77, 5, 1000000};
    const kl_obt_param_kelda kelda = {61, 500000000, 7, 100, 9, 1.0000001, 0.25};
    const long gps = KL_TIME_GPS;
    for (const long satellite : {21L, 61L}) {
        const bool counts = satellite == 21;
        const void *parameters = counts ? static_cast<const void *>(&tarvos) : &kelda;
        const std::size_t size = counts ? sizeof(kl_obt_tarvos) : sizeof(kl_obt_kelda);
        std::vector<unsigned char> tagged(kDays.size() * size);
        for (std::size_t i = 0; i < kDays.size(); ++i) {
            const long tag = i % 17 == 16 ? 51 : satellite;
            std::memcpy(tagged.data() + i * size, &tag, sizeof tag);
        }
        const auto obt = by_both(
            tagged, tagged,
            [&](std::size_t i, unsigned char *element, long *ierr) {
                const long status = kl_time_time_to_obt(&satellite, &gps, parameters, &kDays[i], element, ierr);
                if (status == KL_ERR && !counts)
                    std::memcpy(element + sizeof(long), &kNaN, sizeof kNaN);
                return status;
            },
            [&](unsigned char *all, long *statuses, long *ierr) {
                return kl_time_time_to_obt_n(&satellite, &kElements, &gps, parameters, kDays.data(), all, statuses,
                                             ierr);
            });
        by_both(
            kFailed, kBefore,
            [&](std::size_t i, double *time, long *ierr) {
                return kl_time_obt_to_time(&satellite, &gps, parameters, obt.data() + i * size, time, ierr);
            },
            [&](double *times, long *statuses, long *ierr) {
                return kl_time_obt_to_time_n(&satellite, &kElements, &gps, parameters, obt.data(), times, statuses,
                                             ierr);
            });
    }
}

TEST(TimeArrays, UnsegmentedCodesGoThereAndBackAsTheirScalarCalls)
{
    const kl_cuc_config configs[] = {
        {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, 0, 0.0, 4, 3},
        {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_USER, KL_TIME_UTC, 6195.0, 5, 4},
    };
    const long width = 21, ut1 = KL_TIME_UT1;
    for (const kl_cuc_config &config : configs) {
        TableId scalar(leap_table(k2017, 36.0, 1)), array(leap_table(k2017, 36.0, 1));
        auto octets = by_both(
            std::vector<unsigned char>(kDays.size() * 21), std::vector<unsigned char>(kDays.size() * 21, 0xA5),
            [&](std::size_t i, unsigned char *element, long *ierr) {
                return kl_time_processing_to_cuc(scalar, &config, &ut1, &kDays[i], element, ierr);
            },
            [&](unsigned char *all, long *statuses, long *ierr) {
                return kl_time_processing_to_cuc_n(array, &kElements, &config, &ut1, kDays.data(), &width, all,
                                                   statuses, ierr);
            });
        octets[21 * 7] = 0xFF; // as a P-field: announces what the element has not
        by_both(
            kFailed, kBefore,
            [&](std::size_t i, double *time, long *ierr) {
                return kl_time_cuc_to_processing(scalar, &config, &ut1, octets.data() + i * 21, time, ierr);
            },
            [&](double *times, long *statuses, long *ierr) {
                return kl_time_cuc_to_processing_n(array, &kElements, &config, &ut1, &width, octets.data(), times,
                                                   statuses, ierr);
            });
    }
}

// What refuses the call is said once.
TEST(TimeArrays, LinesOfARefusedCallComeOnce)
{
    const long three = 3, proc = KL_PROC, utc = KL_TIME_UTC, ut1 = KL_TIME_UT1;
    double out[3];
    EXPECT_EQ(verbose_text([&] {
                  kl_time_processing_to_processing_n(nullptr, &three, &proc, &utc, kDays.data(), &proc, &ut1, out,
                                                     nullptr, nullptr);
              }),
              "ORBKIT_LIB >>> ERROR in KL_Time_ref_init_file_deltas: Time references not correctly initialised\n"
              "ORBKIT_LIB >>> ERROR in KL_Time_t2t_ref_to_tai: Time reference not initialised\n"
              "ORBKIT_LIB >>> ERROR in kl_time_processing_to_processing: Time reference not initialised\n");
}

// Texts exactly as long as the distance between them have no zero, on either side.
TEST(TimeArrays, TextsAsWideAsTheirLayoutHaveNoZeroBetweenThem)
{
    const char texts[] = "2017-01-01_00:00:002017-01-02_12:30:59bad0-01-02_12:30:592017-01-03_12:30:59";
    const long n = 4, width = 19, utc = KL_TIME_UTC, in = KL_ASCII_11, out = KL_ASCII_41;
    char written_texts[4 * 19 + 1];
    written_texts[4 * 19] = 'E';
    long status[4] = {};
    long ierr[2] = {};
    EXPECT_EQ(kl_time_ascii_to_ascii_n(nullptr, &n, &in, &utc, &width, texts, &out, &utc, &width, written_texts, status,
                                       ierr),
              KL_ERR);
    EXPECT_EQ(std::string(written_texts, sizeof written_texts),
              std::string("2017-01-01T00:00:002017-01-02T12:30:59") + std::string(19, '\0') + "2017-01-03T12:30:59E");
    EXPECT_EQ(status[2], KL_ERR);
}

} // namespace
