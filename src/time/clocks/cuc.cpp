#include "time/clocks/cuc.h"

#include "time/instants.h"

namespace {

// P-field, first octet: extension, three bits of time-code identification, coarse octets less one, fine octets.
constexpr unsigned kExtension = 0x80;
constexpr unsigned kIdentification1958 = 1;
constexpr unsigned kIdentificationUser = 2;
constexpr long kFirstCoarse = 4; // octets that the first octet can count
constexpr long kFirstFine = 3;

constexpr double kEpoch1958 = -15340.0; // 1958-01-01 TAI
constexpr double kEpoch1980 = KL_GPS_EPOCH_DAY;

constexpr long kHighFine = 5;                      // fine octets that go into one integer with the seconds of a day
constexpr double kCoarseEnd = 72057594037927936.0; // 2^56: seconds that seven octets cannot hold

long p_field_length(long n_coarse, long n_fine)
{
    return n_coarse > kFirstCoarse || n_fine > kFirstFine ? 2 : 1;
}

// 256^n.
constexpr double kPowers[] = {1.0, 0x1p8, 0x1p16, 0x1p24, 0x1p32, 0x1p40};

// To the nearest whole number, halves up. No sum with one half: it could round up what lies just below.
std::int64_t nearest(double x)
{
    const auto whole = static_cast<std::int64_t>(x);
    return whole + (x - static_cast<double>(whole) >= 0.5 ? 1 : 0);
}

// The last n octets of a number, the highest first; returns what follows them.
unsigned char *put_octets(std::int64_t number, long n, unsigned char *out)
{
    for (unsigned char *octet = out + n; octet != out; number >>= 8)
        *--octet = static_cast<unsigned char>(number);
    return out + n;
}

std::int64_t number_of(const unsigned char *octets, long n)
{
    std::int64_t number = 0;
    for (long i = 0; i < n; ++i)
        number = number << 8 | octets[i];
    return number;
}

} // namespace

long cuc_octets(const kl_cuc_config &config)
{
    const bool with_p_field = config.cuc_type == KL_CUC_WITH_P_FIELD;
    return (with_p_field ? p_field_length(config.n_coarse, config.n_fine) : 0) + config.n_coarse + config.n_fine;
}

long p_field_octets(unsigned char first)
{
    return (first & kExtension) != 0 ? 2 : 1;
}

bool read_p_field(const unsigned char *octets, kl_cuc_config *config)
{
    const unsigned long first = octets[0];
    const unsigned long second = (first & kExtension) != 0 ? octets[1] : 0;
    const unsigned long identification = first >> 4 & 7;
    const bool third_octet = (second & kExtension) != 0; // nothing tells what it would say
    if ((identification != kIdentification1958 && identification != kIdentificationUser) || third_octet)
        return false;
    config->epoch_type = identification == kIdentification1958 ? KL_CUC_EPOCH_1958 : KL_CUC_EPOCH_USER;
    config->n_coarse = static_cast<long>((first >> 2 & 3) + 1 + (second >> 5 & 3));
    config->n_fine = static_cast<long>((first & 3) + (second >> 2 & 7));
    return true;
}

long write_p_field(const kl_cuc_config &config, unsigned char octets[2])
{
    if (config.epoch_type != KL_CUC_EPOCH_1958 && config.epoch_type != KL_CUC_EPOCH_USER)
        return 0;
    const unsigned identification = config.epoch_type == KL_CUC_EPOCH_1958 ? kIdentification1958 : kIdentificationUser;
    const long coarse = config.n_coarse < kFirstCoarse ? config.n_coarse : kFirstCoarse;
    const long fine = config.n_fine < kFirstFine ? config.n_fine : kFirstFine;
    const long n = p_field_length(config.n_coarse, config.n_fine);
    octets[0] = static_cast<unsigned char>((n == 2 ? kExtension : 0) | identification << 4
                                           | static_cast<unsigned>(coarse - 1) << 2 | static_cast<unsigned>(fine));
    if (n == 2)
        octets[1] = static_cast<unsigned char>(static_cast<unsigned>(config.n_coarse - coarse) << 5
                                               | static_cast<unsigned>(config.n_fine - fine) << 2);
    return n;
}

double read_time_field(const unsigned char *field, long n_coarse, long n_fine)
{
    const long n_high = n_fine < kHighFine ? n_fine : kHighFine;
    const double coarse = static_cast<double>(number_of(field, n_coarse));
    const double high = static_cast<double>(number_of(field + n_coarse, n_high));
    const double low = static_cast<double>(number_of(field + n_coarse + n_high, n_fine - n_high));
    return coarse + (high + low / kPowers[n_fine - n_high]) / kPowers[n_high];
}

bool split_seconds(double days_since_epoch, long n_coarse, long n_fine, TimeField *field)
{
    // Days and the seconds of the day are taken apart: seconds since the epoch would lose the last bits.
    if (!(days_since_epoch < kCoarseEnd / KL_SECONDS_PER_DAY))
        return false;
    const auto days = static_cast<std::int64_t>(days_since_epoch);
    const double second_of_day = (days_since_epoch - static_cast<double>(days)) * KL_SECONDS_PER_DAY;

    // Scaling by powers of two, cutting and taking the rest are exact.
    const long n_high = n_fine < kHighFine ? n_fine : kHighFine;
    const long n_low = n_fine - n_high;
    const double scaled = second_of_day * kPowers[n_high];
    std::int64_t number = 0;
    std::int64_t low = 0;
    if (n_low == 0) {
        number = nearest(scaled);
    } else {
        number = static_cast<std::int64_t>(scaled);
        low = nearest((scaled - static_cast<double>(number)) * kPowers[n_low]);
        number += low >> (8 * n_low);
    }
    const std::int64_t second = number >> (8 * n_high);
    *field = {days * 86400 + second, number, low, n_coarse, n_high, n_low};
    return field->coarse >> (8 * n_coarse) == 0;
}

void write_time_field(const TimeField &field, unsigned char *octets)
{
    octets = put_octets(field.coarse, field.n_coarse, octets);
    octets = put_octets(field.high, field.n_high, octets);
    put_octets(field.low, field.n_low, octets);
}

CucEpoch epoch_of(const kl_cuc_config &config)
{
    if (config.epoch_type == KL_CUC_EPOCH_1980)
        return {kEpoch1980, KL_TIME_GPS};
    if (config.epoch_type == KL_CUC_EPOCH_USER)
        return {config.epoch, config.epoch_time_ref};
    return {kEpoch1958, KL_TIME_TAI};
}
