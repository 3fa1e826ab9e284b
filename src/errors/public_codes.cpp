// Error vectors: codes to bits and back, and the public calls that decode a vector.
#include "errors/activation.h"
#include "errors/last_call.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kWordBits = 32;
constexpr int kCodeBits = 30; // bits 0 to 29 of a word carry codes
constexpr int kWarningBit = 30;
constexpr int kErrorBit = 63;
constexpr int kMaxCodes = 256;

int n_codes(int function_id)
{
    const MessageGroup *messages = function_messages(function_id).messages;
    return messages != nullptr ? messages->n_codes : 0;
}

void put(const char *text)
{
    std::fwrite(text, 1, std::strlen(text), stderr);
}

// Bits 0 to 29 of every word, as the numbers that callers see.
template <typename Visitor>
bool each_set_bit(const PublicFunction &row, const long *ierr, Visitor visit)
{
    for (int word = 0; word < row.n_words(); ++word)
        for (int bit = 0; bit < kCodeBits; ++bit)
            if (KL_Check_Bit(ierr[word], bit) != 0 && !visit(kWordBits * word + bit))
                return false;
    return true;
}

} // namespace

int PublicFunction::code_to_bit(long code) const
{
    if (code < 0 || code >= n_codes(function_id))
        return -1;
    const int bit = function_messages(function_id).messages->rows[code].bit;
    return bit == kBitIsCode ? static_cast<int>(code) : bit;
}

int PublicFunction::bit_to_code(int bit) const
{
    for (int code = 0; code < n_codes(function_id); ++code)
        if (code_to_bit(code) == bit)
            return code;
    return -1;
}

PublicFunction public_by_function(long function_id)
{
    if (function_id < 0 || function_id >= KL_N_FUNCTIONS)
        return {-1, -1};
    const int row = function_messages(static_cast<int>(function_id)).public_id;
    return {row, row >= 0 ? public_row(row).function_id : -1};
}

PublicFunction public_by_id(long public_id)
{
    // The unassigned row carries function 0 and is never reached.
    if (public_id < 0 || public_id >= KL_N_PUBLIC_IDS || public_id == KL_UNASSIGNED_PUBLIC_ID)
        return {-1, -1};
    return {static_cast<int>(public_id), public_row(static_cast<int>(public_id)).function_id};
}

long KL_Check_if_public_function(long function_id)
{
    return public_by_function(function_id).function_id >= 0 ? 1 : 0;
}

long KL_Check_Bit(long word, long bit)
{
    return (word >> (bit & 63)) & 1;
}

long KL_Write_Bit(long *word, long bit, long value)
{
    if (word == nullptr)
        return 0;
    const long before = KL_Check_Bit(*word, bit);
    const unsigned long mask = 1UL << (bit & 63);
    const unsigned long bits = static_cast<unsigned long>(*word);
    *word = static_cast<long>(value == 1 ? bits | mask : bits & ~mask);
    return before;
}

long KL_Err_Vector(long function_id, const kl_error_record *record, long *ierr)
{
    if (record == nullptr || record->function_id != function_id) {
        put("ERROR in KL_Err_Vector: err structure does not corrspond with function id\n");
        return -1;
    }
    const PublicFunction row = public_by_function(function_id);
    if (row.function_id < 0) {
        put("ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n");
        return -1;
    }
    if (ierr == nullptr)
        return 0;
    for (std::int32_t i = 0; i < record->count; ++i) {
        const int bit = row.code_to_bit(record->codes[i]);
        if (bit < 0)
            continue;
        long *word = &ierr[bit / kWordBits];
        const Message &message = function_messages(row.function_id).messages->rows[record->codes[i]];
        KL_Write_Bit(word, message.severity > 0 ? kWarningBit : kErrorBit, 1);
        KL_Write_Bit(word, bit % kWordBits, 1);
    }
    return 0;
}

long KL_Vector_Err(long public_id, const long *ierr, kl_error_record *record)
{
    if (record == nullptr)
        return -1;
    KL_Reset_Err(record);
    const PublicFunction row = public_by_id(public_id);
    if (row.function_id < 0 || ierr == nullptr) {
        // On purpose: the line names KL_Err_Vector.
        put("ERROR in KL_Err_Vector: function id does not have and equivalent KIT function\n");
        return -1;
    }
    record->function_id = row.function_id;
    const bool complete = each_set_bit(row, ierr, [&](int bit) {
        if (record->count >= kMaxCodes)
            return false;
        record->codes[record->count] = row.bit_to_code(bit);
        record->values[record->count] = 0;
        ++record->count;
        return true;
    });
    if (!complete)
        put("ERROR in KL_Vector_Err: Maximun error codes for err structure reached.\n");
    return complete ? 0 : -1;
}

namespace {

long codes_of_vector(const long *func_id, const long *ierr, long *n_codes, long *codes)
{
    const PublicFunction row = public_by_id(func_id != nullptr ? *func_id : -1);
    if (row.function_id < 0) {
        put("ERROR in kl_get_code: function id does not have an equivalent KIT function\n");
        return -1;
    }
    if (ierr == nullptr || n_codes == nullptr || codes == nullptr)
        return -1;
    long n = 0;
    const bool complete = each_set_bit(row, ierr, [&](int bit) {
        if (n > kMaxCodes) // one entry more than messages, on purpose
            return false;
        codes[n++] = bit;
        return true;
    });
    if (!complete) {
        put("ERROR in kl_get_code: Maximun error codes for err vec structure reached.\n");
        return -1;
    }
    *n_codes = n;
    return 0;
}

} // namespace

long kl_get_code(const long *func_id, const long *ierr, long *n_codes, long *codes)
{
    return codes_of_vector(func_id, ierr, n_codes, codes);
}

bool record_of_messages(long public_id, const long *ierr, kl_error_record *record)
{
    const bool made = KL_Vector_Err(public_id, ierr, record) == 0;
    if (!made)
        put("ERROR in kl_get_msg: Could not create and err structure\n");
    return made;
}

long kl_get_msg(const long *func_id, const long *ierr, long *n_msg, char msg[][512])
{
    ErrorRecord record;
    if (!record_of_messages(func_id != nullptr ? *func_id : -1, ierr, &record))
        return -1;
    if (KL_Err_Msg(&record, n_msg, msg) != 0) {
        put("ERROR in kl_get_msg: Unable to create msg vector from err structure\n");
        return -1;
    }
    return 0;
}

long kl_print_msg(const long *n_msg, char msg[][512])
{
    if (n_msg == nullptr)
        return -1;
    if (*n_msg > KL_MAX_MSG) {
        put("ERROR in kl_print_msg: number of messages higher than allowed\n");
        return -1;
    }
    if (*n_msg >= 1 && msg == nullptr)
        return -1;
    for (long i = 0; i < *n_msg; ++i) {
        if (std::fprintf(stderr, "%.*s\n", static_cast<int>(KL_MSG_LENGTH), msg[i]) < 0) {
            put("ERROR in kl_print_msg: error printing message\n");
            return -1;
        }
    }
    return 0;
}

long KL_Check_Error_Code(long public_id, long public_code, const long *ierr, long *found)
{
    if (found == nullptr)
        return 0;
    *found = 0;
    long n = 0;
    long codes[KL_MAX_CODES];
    codes_of_vector(&public_id, ierr, &n, codes);
    for (long i = 0; i < n; ++i)
        if (codes[i] == public_code)
            *found = 1;
    return 0;
}

long KL_Check_Extended_Error_Code(long public_id, const long *ierr, long *status)
{
    ErrorRecord record;
    if (KL_Vector_Err(public_id, ierr, &record) != 0) {
        put("ERROR in KL_Check_Extended_Error_Code: Could not create and err structure\n");
        return -1;
    }
    if (status == nullptr)
        return -1;
    *status = KL_OK;
    for (std::int32_t i = 0; i < record.count; ++i) {
        const std::int32_t code = record.codes[i];
        if (code < 0 || code >= n_codes(record.function_id))
            continue; // a bit that no code owns
        if (function_messages(record.function_id).messages->rows[code].severity < 0)
            *status = KL_ERR;
        else if (*status == KL_OK)
            *status = KL_WARN;
    }
    return 0;
}
