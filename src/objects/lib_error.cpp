#include "orbkit/lib_error.hpp"

#include "errors/messages.h"

#include <memory>

namespace ORBKIT {

namespace {

constexpr long kLibrary = 2;
constexpr long kKind = 2;

} // namespace

LibError::LibError(const std::string &name, long status, long public_id, const long *ierr)
    : InternalError(name, status, kLibrary, public_id, kKind, ierr), words_{0, 0}
{
    // The caller's vector is gone when the exception is caught.
    const int n_words = ierr != nullptr ? public_by_id(public_id).n_words() : 0;
    for (int word = 0; word < n_words; ++word)
        words_[word] = ierr[word];
}

LibError::~LibError() = default;

LibError *LibError::clone() const
{
    return new LibError(*this);
}

void LibError::getCodes(std::vector<long> &codes) const
{
    const long id = functionId();
    long n = 0;
    long numbers[KL_MAX_CODES];
    kl_get_code(&id, words_, &n, numbers);
    codes.insert(codes.end(), numbers, numbers + n);
}

void LibError::getMsg(std::vector<std::string> &messages) const
{
    InternalError::getMsg(messages);
    const long id = functionId();
    long n = 0;
    const std::unique_ptr<char[][KL_MSG_LENGTH]> slots(new char[KL_MAX_MSG][KL_MSG_LENGTH]);
    kl_get_msg(&id, words_, &n, slots.get());
    messages.insert(messages.end(), &slots[0], &slots[0] + n);
}

} // namespace ORBKIT
