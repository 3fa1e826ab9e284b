// The CCSDS unsegmented time code: whole seconds and a binary fraction since an epoch, with or without its P-field.
#include "arrays/array_call.h"
#include "time/doors/checks.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// P-field, first octet: extension, three bits of time-code identification, coarse octets less one, fine octets.
constexpr unsigned kExtension = 0x80;
constexpr unsigned kIdentification1958 = 1;
constexpr unsigned kIdentificationUser = 2;
constexpr long kFirstCoarse = 4; // octets that the first octet can count
constexpr long kFirstFine = 3;

constexpr double kEpoch1958 = -15340.0; // 1958-01-01 TAI
constexpr double kEpoch1980 = -7300.0;  // 1980-01-06 GPS

constexpr long kHighFine = 5;                      // fine octets that go into one integer with the seconds of a day
constexpr double kCoarseEnd = 72057594037927936.0; // 2^56: seconds that seven octets cannot hold

long p_field_length(long n_coarse, long n_fine)
{
    return n_coarse > kFirstCoarse || n_fine > kFirstFine ? 2 : 1;
}

// Stands for no configuration: it is refused for its type.
constexpr kl_cuc_config kNoConfig = {-1, 0, 0, 0.0, 0, 0};

// 256^n.
constexpr double kPowers[] = {1.0, 0x1p8, 0x1p16, 0x1p24, 0x1p32, 0x1p40};

// To the nearest whole number, halves up. No sum with one half: it could round up what lies just below.
std::int64_t nearest(double x)
{
    const auto whole = static_cast<std::int64_t>(x);
    return whole + (x - static_cast<double>(whole) >= 0.5 ? 1 : 0);
}

// Seconds since an epoch as the numbers that the octets of a time field write: the coarse octets, the first fine
// octets and those after them.
struct TimeField {
    std::int64_t coarse, high, low;
    long n_coarse, n_high, n_low;
};

// False when the seconds do not fit the coarse octets. The fraction is rounded to the last fine octet, with the carry
// through to the coarse ones.
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

// Seconds since the epoch of a time field.
double read_time_field(const unsigned char *field, long n_coarse, long n_fine)
{
    const long n_high = n_fine < kHighFine ? n_fine : kHighFine;
    const double coarse = static_cast<double>(number_of(field, n_coarse));
    const double high = static_cast<double>(number_of(field + n_coarse, n_high));
    const double low = static_cast<double>(number_of(field + n_coarse + n_high, n_fine - n_high));
    return coarse + (high + low / kPowers[n_fine - n_high]) / kPowers[n_high];
}

// One code of which `room` octets may be looked at; the configuration has passed its check.
long decode(Activation &call, kl_time_id *time_id, kl_cuc_config own, long ref, const unsigned char *cuc, long room,
            double *time)
{
    const unsigned char *field = cuc;
    if (own.cuc_type == KL_CUC_WITH_P_FIELD) {
        const long length = (cuc[0] & kExtension) != 0 ? 2 : 1;
        if (length > room || KL_Cuc_get_data_from_P_field(cuc, &own, nullptr) == KL_ERR
            || length + own.n_coarse + own.n_fine > room)
            return call.fails(KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR);
        field += length;
    }
    double epoch = 0.0;
    if (KL_Get_CUC_processing_epoch(time_id, &own, ref, &epoch, nullptr) == KL_ERR)
        return call.fails(KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR);
    *time = epoch + read_time_field(field, own.n_coarse, own.n_fine) / KL_SECONDS_PER_DAY;
    return call.status();
}

// Its conditions after the check of the configuration.
long encode(Activation &call, kl_time_id *time_id, const kl_cuc_config &own, long ref, double instant,
            unsigned char *cuc)
{
    double epoch = 0.0;
    if (KL_Get_CUC_processing_epoch(time_id, &own, ref, &epoch, nullptr) == KL_ERR)
        return call.fails(KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR);
    if (!(instant >= epoch))
        return call.fails(KL_TIME_PROCESSING_TO_CUC_TIME_ERR);
    if (cuc == nullptr)
        return KL_ERR;
    unsigned char p_field[2];
    long n_p_field = 0;
    if (own.cuc_type == KL_CUC_WITH_P_FIELD && KL_Cuc_compute_P_field(&own, p_field, &n_p_field, nullptr) == KL_ERR)
        return call.fails(KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR);
    TimeField field{};
    if (!split_seconds(instant - epoch, own.n_coarse, own.n_fine, &field))
        return call.fails(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR);
    for (long i = 0; i < n_p_field; ++i)
        *cuc++ = p_field[i];
    cuc = put_octets(field.coarse, field.n_coarse, cuc);
    cuc = put_octets(field.high, field.n_high, cuc);
    put_octets(field.low, field.n_low, cuc);
    return call.status();
}

long octets_of(const kl_cuc_config &config)
{
    const bool with_p_field = config.cuc_type == KL_CUC_WITH_P_FIELD;
    return (with_p_field ? p_field_length(config.n_coarse, config.n_fine) : 0) + config.n_coarse + config.n_fine;
}

} // namespace

long KL_Cuc_get_data_from_P_field(const unsigned char *octets, kl_cuc_config *data, kl_error_record *error)
{
    Activation call(KL_FN_CUC_GET_DATA_FROM_P_FIELD, error);
    if (octets == nullptr || data == nullptr)
        return KL_ERR;
    const unsigned long first = octets[0];
    const unsigned long second = (first & kExtension) != 0 ? octets[1] : 0;
    const unsigned long identification = first >> 4 & 7;
    const bool third_octet = (second & kExtension) != 0; // nothing tells what it would say
    if ((identification != kIdentification1958 && identification != kIdentificationUser) || third_octet)
        return call.fails(KL_CUC_P_FIELD_EPOCH);
    data->epoch_type = identification == kIdentification1958 ? KL_CUC_EPOCH_1958 : KL_CUC_EPOCH_USER;
    data->n_coarse = static_cast<long>((first >> 2 & 3) + 1 + (second >> 5 & 3));
    data->n_fine = static_cast<long>((first & 3) + (second >> 2 & 7));
    return call.status();
}

long KL_Cuc_compute_P_field(const kl_cuc_config *data, unsigned char *octets, long *n_octets, kl_error_record *error)
{
    Activation call(KL_FN_CUC_COMPUTE_P_FIELD, error);
    if (data == nullptr || octets == nullptr || n_octets == nullptr
        || KL_Check_cuc_octets(data->n_coarse, data->n_fine) == 0)
        return KL_ERR;
    if (data->epoch_type != KL_CUC_EPOCH_1958 && data->epoch_type != KL_CUC_EPOCH_USER)
        return call.fails(KL_CUC_P_FIELD_NO_EPOCH);
    const unsigned identification = data->epoch_type == KL_CUC_EPOCH_1958 ? kIdentification1958 : kIdentificationUser;
    const long coarse = data->n_coarse < kFirstCoarse ? data->n_coarse : kFirstCoarse;
    const long fine = data->n_fine < kFirstFine ? data->n_fine : kFirstFine;
    *n_octets = p_field_length(data->n_coarse, data->n_fine);
    octets[0] = static_cast<unsigned char>((*n_octets == 2 ? kExtension : 0) | identification << 4
                                           | static_cast<unsigned>(coarse - 1) << 2 | static_cast<unsigned>(fine));
    if (*n_octets == 2)
        octets[1] = static_cast<unsigned char>(static_cast<unsigned>(data->n_coarse - coarse) << 5
                                               | static_cast<unsigned>(data->n_fine - fine) << 2);
    return call.status();
}

long KL_Cuc_check_inputs(kl_time_id *time_id, const kl_cuc_config *config, long time_ref, long octets_from_p_field,
                         kl_error_record *error)
{
    Activation call(KL_FN_CUC_CHECK_INPUTS, error);
    if (time_record_of(time_id) == nullptr)
        return call.fails(KL_CUC_CHECK_TIME_ID);
    if (config == nullptr || (config->cuc_type != KL_CUC_TIME_FIELD_ONLY && config->cuc_type != KL_CUC_WITH_P_FIELD)) {
        return call.fails(KL_CUC_CHECK_TYPE);
    }
    if (octets_from_p_field == 0 && KL_Check_cuc_octets(config->n_coarse, config->n_fine) == 0)
        return call.fails(KL_CUC_CHECK_OCTETS);
    if (config->epoch_type < KL_CUC_EPOCH_1958 || config->epoch_type > KL_CUC_EPOCH_USER)
        return call.fails(KL_CUC_CHECK_EPOCH_TYPE);
    if (KL_Check_time_ref_2(time_ref) == 0)
        return call.fails(KL_CUC_CHECK_TIME_REF);
    return call.status();
}

long KL_Get_CUC_processing_epoch(kl_time_id *time_id, const kl_cuc_config *config, long time_ref, double *epoch,
                                 kl_error_record *error)
{
    Activation call(KL_FN_GET_CUC_PROCESSING_EPOCH, error);
    if (config == nullptr || epoch == nullptr)
        return KL_ERR;
    double own_epoch = kEpoch1958;
    long own_ref = KL_TIME_TAI;
    if (config->epoch_type == KL_CUC_EPOCH_1980) {
        own_epoch = kEpoch1980;
        own_ref = KL_TIME_GPS;
    } else if (config->epoch_type == KL_CUC_EPOCH_USER) {
        own_epoch = config->epoch;
        own_ref = config->epoch_time_ref;
    }
    if (!std::isfinite(own_epoch))
        return call.fails(KL_CUC_EPOCH_NOT_CONVERTED);
    if (own_ref == time_ref) {
        *epoch = own_epoch;
        return call.status();
    }
    if (time_in_ref(time_id, own_ref, time_ref, own_epoch, epoch) != InRef::done)
        return call.fails(KL_CUC_EPOCH_NOT_CONVERTED);
    return call.status();
}

long kl_time_cuc_to_processing(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                               const unsigned char *cuc, double *time, long *ierr)
{
    Activation call(KL_FN_TIME_CUC_TO_PROCESSING, ierr);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    if (KL_Cuc_check_inputs(time_id, &own, ref, own.cuc_type == KL_CUC_WITH_P_FIELD ? 1 : 0, nullptr) == KL_ERR)
        return call.fails(KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR);
    if (cuc == nullptr || time == nullptr)
        return KL_ERR;
    return decode(call, time_id, own, ref, cuc, KL_CUC_LENGTH, time);
}

long kl_time_cuc_to_processing_n(kl_time_id *time_id, const long *n, const kl_cuc_config *config, const long *time_ref,
                                 const long *width, const unsigned char *cuc, double *time, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_CUC_TO_PROCESSING, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = [&](long i) { fill_nan(time, i); };
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    const bool with_p_field = own.cuc_type == KL_CUC_WITH_P_FIELD;
    const long room = value_or(width, 0);
    if (KL_Cuc_check_inputs(time_id, &own, ref, with_p_field ? 1 : 0, nullptr) == KL_ERR) {
        array.call().fails(KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR);
        return array.refuse(fail);
    }
    if (cuc == nullptr || time == nullptr || room < (with_p_field ? 1 : octets_of(own)))
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_TIME_CUC_TO_PROCESSING, word);
            return decode(call, time_id, own, ref, cuc + i * room, room, time + i);
        },
        fail);
}

long kl_time_processing_to_cuc(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                               const double *time, unsigned char *cuc, long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_CUC, ierr);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    if (KL_Cuc_check_inputs(time_id, &own, ref, 0, nullptr) == KL_ERR)
        return call.fails(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR);
    return encode(call, time_id, own, ref, time != nullptr ? *time : std::nan(""), cuc);
}

long kl_time_processing_to_cuc_n(kl_time_id *time_id, const long *n, const kl_cuc_config *config, const long *time_ref,
                                 const double *time, const long *width, unsigned char *cuc, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_PROCESSING_TO_CUC, n, status, ierr);
    if (array.nothing())
        return array.result();
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    const long room = value_or(width, 0);
    const auto fail = [&](long i) {
        if (cuc != nullptr && room > 0)
            std::memset(cuc + i * room, 0, static_cast<std::size_t>(room));
    };
    if (KL_Cuc_check_inputs(time_id, &own, ref, 0, nullptr) == KL_ERR) {
        array.call().fails(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR);
        return array.refuse(fail);
    }
    if (time == nullptr) {
        array.call().fails(KL_TIME_PROCESSING_TO_CUC_TIME_ERR);
        return array.refuse(fail);
    }
    const long length = octets_of(own);
    if (cuc == nullptr || room < length)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_TIME_PROCESSING_TO_CUC, word);
            const long result = encode(call, time_id, own, ref, time[i], cuc + i * room);
            if (result != KL_ERR)
                std::memset(cuc + i * room + length, 0, static_cast<std::size_t>(room - length));
            return result;
        },
        fail);
}
