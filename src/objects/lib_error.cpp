#include "orbkit/lib_error.hpp"

#include "errors/last_call.h"
#include "objects/throw_rule.h"

namespace ORBKIT {

namespace {

using Texts = std::vector<std::pair<int, std::string>>;

// Messages with an argument, when the vector is that of the thread's last failure.
Texts with_values(const PublicFunction &function, const long *words)
{
    Texts texts;
    if (function.function_id < 0 || !last_call_gave(function, words))
        return texts;
    const MessageGroup &messages = *function_messages(function.function_id).messages;
    for (int code = 0; code < messages.n_codes; ++code) {
        const int bit = function.code_to_bit(code);
        if (messages.rows[code].argument == kNoArgument || bit < 0 || KL_Check_Bit(words[bit / 32], bit % 32) == 0)
            continue;
        char text[KL_MSG_LENGTH];
        write_message(function.function_id, code, value_in_last_call(function.function_id, code), text);
        texts.emplace_back(code, text);
    }
    return texts;
}

} // namespace

LibError::LibError(const std::string &name, long status, long public_id, const long *ierr)
    : InternalError(name, status, kLibraryNumber, public_id, kLibraryNumber, ierr), name_(name),
      public_id_(public_id), words_{0, 0}
{
    // The caller's vector is gone when the exception is caught.
    const PublicFunction function = public_by_id(public_id);
    const int n_words = ierr != nullptr && function.function_id >= 0 ? function.n_words() : 0;
    for (int word = 0; word < n_words; ++word)
        words_[word] = ierr[word];
    with_values_ = with_values(function, words_);
}

LibError::~LibError() = default;

LibError *LibError::clone() const
{
    return new LibError(*this);
}

void LibError::getCodes(std::vector<long> &codes) const
{
    long n = 0;
    long numbers[KL_MAX_CODES];
    kl_get_code(&public_id_, words_, &n, numbers);
    codes.insert(codes.end(), numbers, numbers + n);
}

void LibError::getMsg(std::vector<std::string> &messages) const
{
    messages.push_back(name_);
    kl_error_record record;
    if (!record_of_messages(public_id_, words_, &record))
        return;
    for (std::int32_t i = 0; i < record.count; ++i) {
        char text[KL_MSG_LENGTH];
        write_message(record.function_id, record.codes[i], 0, text);
        messages.emplace_back(text);
        for (const auto &[code, with_value] : with_values_)
            if (code == record.codes[i])
                messages.back() = with_value;
    }
}

} // namespace ORBKIT
