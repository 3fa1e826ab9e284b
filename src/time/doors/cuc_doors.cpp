// The CCSDS unsegmented time code: whole seconds and a binary fraction since an epoch, with or without its P-field.
#include "arrays/array_call.h"
#include "time/clocks/cuc.h"
#include "time/doors/checks.h"

#include <cmath>
#include <cstring>

namespace {

// Stands for no configuration: it is refused for its type.
constexpr kl_cuc_config kNoConfig = {-1, 0, 0, 0.0, 0, 0};

// The first condition that a configuration meets, or -1.
int fault_of(const kl_time_id *time_id, const kl_cuc_config *config, long time_ref, bool octets_from_p_field)
{
    if (time_record_of(time_id) == nullptr)
        return KL_CUC_CHECK_TIME_ID;
    if (config == nullptr || (config->cuc_type != KL_CUC_TIME_FIELD_ONLY && config->cuc_type != KL_CUC_WITH_P_FIELD))
        return KL_CUC_CHECK_TYPE;
    if (!octets_from_p_field && KL_Check_cuc_octets(config->n_coarse, config->n_fine) == 0)
        return KL_CUC_CHECK_OCTETS;
    if (config->epoch_type < KL_CUC_EPOCH_1958 || config->epoch_type > KL_CUC_EPOCH_USER)
        return KL_CUC_CHECK_EPOCH_TYPE;
    if (KL_Check_time_ref_2(time_ref) == 0)
        return KL_CUC_CHECK_TIME_REF;
    return -1;
}

bool epoch_on_scale(kl_time_id *time_id, const kl_cuc_config &config, long time_ref, double *days)
{
    const CucEpoch own = epoch_of(config);
    *days = own.days;
    return std::isfinite(own.days)
           && (own.ref == time_ref || time_in_ref(time_id, own.ref, time_ref, own.days, days) == InRef::done);
}

// The steps as the calls for codes ask for them: true with the condition of the step.
bool refuses_config(const kl_time_id *time_id, const kl_cuc_config &config, long time_ref, bool octets_from_p_field)
{
    const int fault = fault_of(time_id, &config, time_ref, octets_from_p_field);
    if (fault >= 0)
        Activation(KL_FN_CUC_CHECK_INPUTS, KL_NO_RECORD).fails(fault);
    return fault >= 0;
}

bool lacks_epoch(kl_time_id *time_id, const kl_cuc_config &config, long time_ref, double *days)
{
    const bool found = epoch_on_scale(time_id, config, time_ref, days);
    if (!found)
        Activation(KL_FN_GET_CUC_PROCESSING_EPOCH, KL_NO_RECORD).fails(KL_CUC_EPOCH_NOT_CONVERTED);
    return !found;
}

bool refuses_p_field(const unsigned char *octets, kl_cuc_config *config)
{
    const bool read = read_p_field(octets, config);
    if (!read)
        Activation(KL_FN_CUC_GET_DATA_FROM_P_FIELD, KL_NO_RECORD).fails(KL_CUC_P_FIELD_EPOCH);
    return !read;
}

// Octets of the P-field that is written, 0 for an epoch that none names.
long p_field_of(const kl_cuc_config &config, unsigned char octets[2])
{
    const long n = write_p_field(config, octets);
    if (n == 0)
        Activation(KL_FN_CUC_COMPUTE_P_FIELD, KL_NO_RECORD).fails(KL_CUC_P_FIELD_NO_EPOCH);
    return n;
}

// One code of which `room` octets may be looked at; the configuration has passed its check.
long decode(Activation &call, kl_time_id *time_id, kl_cuc_config own, long ref, const unsigned char *cuc, long room,
            double *time)
{
    const unsigned char *field = cuc;
    if (own.cuc_type == KL_CUC_WITH_P_FIELD) {
        const long length = p_field_octets(cuc[0]);
        if (length > room || refuses_p_field(cuc, &own) || length + own.n_coarse + own.n_fine > room)
            return call.fails(KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR);
        field += length;
    }
    double epoch = 0.0;
    if (lacks_epoch(time_id, own, ref, &epoch))
        return call.fails(KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR);
    *time = epoch + read_time_field(field, own.n_coarse, own.n_fine) / KL_SECONDS_PER_DAY;
    return call.status();
}

// Its conditions after the check of the configuration.
long encode(Activation &call, kl_time_id *time_id, const kl_cuc_config &own, long ref, double instant,
            unsigned char *cuc)
{
    double epoch = 0.0;
    if (lacks_epoch(time_id, own, ref, &epoch))
        return call.fails(KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR);
    if (!(instant >= epoch))
        return call.fails(KL_TIME_PROCESSING_TO_CUC_TIME_ERR);
    if (cuc == nullptr)
        return KL_ERR;
    unsigned char p_field[2];
    const bool with_p_field = own.cuc_type == KL_CUC_WITH_P_FIELD;
    const long n_p_field = with_p_field ? p_field_of(own, p_field) : 0;
    if (with_p_field && n_p_field == 0)
        return call.fails(KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR);
    TimeField field{};
    if (!split_seconds(instant - epoch, own.n_coarse, own.n_fine, &field))
        return call.fails(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR);
    for (long i = 0; i < n_p_field; ++i)
        *cuc++ = p_field[i];
    write_time_field(field, cuc);
    return call.status();
}

} // namespace

long KL_Cuc_get_data_from_P_field(const unsigned char *octets, kl_cuc_config *data, kl_error_record *error)
{
    Activation call(KL_FN_CUC_GET_DATA_FROM_P_FIELD, error);
    if (octets == nullptr || data == nullptr)
        return KL_ERR;
    if (!read_p_field(octets, data))
        return call.fails(KL_CUC_P_FIELD_EPOCH);
    return call.status();
}

long KL_Cuc_compute_P_field(const kl_cuc_config *data, unsigned char *octets, long *n_octets, kl_error_record *error)
{
    Activation call(KL_FN_CUC_COMPUTE_P_FIELD, error);
    if (data == nullptr || octets == nullptr || n_octets == nullptr
        || KL_Check_cuc_octets(data->n_coarse, data->n_fine) == 0)
        return KL_ERR;
    const long n = write_p_field(*data, octets);
    if (n == 0)
        return call.fails(KL_CUC_P_FIELD_NO_EPOCH);
    *n_octets = n;
    return call.status();
}

long KL_Cuc_check_inputs(kl_time_id *time_id, const kl_cuc_config *config, long time_ref, long octets_from_p_field,
                         kl_error_record *error)
{
    Activation call(KL_FN_CUC_CHECK_INPUTS, error);
    const int fault = fault_of(time_id, config, time_ref, octets_from_p_field != 0);
    if (fault >= 0)
        return call.fails(fault);
    return call.status();
}

long KL_Get_CUC_processing_epoch(kl_time_id *time_id, const kl_cuc_config *config, long time_ref, double *epoch,
                                 kl_error_record *error)
{
    Activation call(KL_FN_GET_CUC_PROCESSING_EPOCH, error);
    if (config == nullptr || epoch == nullptr)
        return KL_ERR;
    double days = 0.0;
    if (!epoch_on_scale(time_id, *config, time_ref, &days))
        return call.fails(KL_CUC_EPOCH_NOT_CONVERTED);
    *epoch = days;
    return call.status();
}

long kl_time_cuc_to_processing(kl_time_id *time_id, const kl_cuc_config *config, const long *time_ref,
                               const unsigned char *cuc, double *time, long *ierr)
{
    Activation call(KL_FN_TIME_CUC_TO_PROCESSING, ierr);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    if (refuses_config(time_id, own, ref, own.cuc_type == KL_CUC_WITH_P_FIELD))
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
    const auto fail = fails_in(time);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const kl_cuc_config &own = config != nullptr ? *config : kNoConfig;
    const bool with_p_field = own.cuc_type == KL_CUC_WITH_P_FIELD;
    const long room = value_or(width, 0);
    if (refuses_config(time_id, own, ref, with_p_field)) {
        array.call().fails(KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR);
        return array.refuse(fail);
    }
    if (cuc == nullptr || time == nullptr || room < (with_p_field ? 1 : cuc_octets(own)))
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
    if (refuses_config(time_id, own, ref, false))
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
    if (refuses_config(time_id, own, ref, false)) {
        array.call().fails(KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR);
        return array.refuse(fail);
    }
    if (time == nullptr) {
        array.call().fails(KL_TIME_PROCESSING_TO_CUC_TIME_ERR);
        return array.refuse(fail);
    }
    const long length = cuc_octets(own);
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
