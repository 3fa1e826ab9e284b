/**
 * @file lib_error.hpp
 */
#ifndef ORBKIT_LIB_ERROR_HPP
#define ORBKIT_LIB_ERROR_HPP

#include "../kl_lib.h"

#include <kit_common.hpp>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace ORBKIT {

using ::InternalError;
using ::KitClass;
using ::KitError;

/**
 * The failure of one call of this library, as a KitError carries it: the operation, and the error vector of the call,
 * of which it keeps a copy. A failure is thrown when the status is KL_ERR, and for KL_WARN when KitClass::throwWarn is
 * set; otherwise warnings are dropped. Functions without a public id have no words of their own: the classes then throw
 * some, and the operation stands behind them instead of before. A call that is refused with a clear vector (an array
 * that is missing) leaves the operation alone.
 *
 * @code{.cpp}
 * try {
 *     ORBKIT::ModelId(KL_MODEL_USER, {0, 0, 7, 0, 0, 0, 0, 0, 0});
 * } catch (const KitError &error) {
 *     for (const std::string &message : error.getMsg())
 *         std::printf("%s\n", message.c_str());
 *     // -> ModelId::init
 *     // -> ORBKIT_LIB >>> ERROR in kl_model_init: Wrong enumeration value for %s model
 *     std::vector<long> codes;
 *     error.getCodes(codes);
 *     std::printf("condition %ld\n", codes.at(0)); // -> condition 2
 * }
 * @endcode
 */
class KL_API LibError : public InternalError {
public:
    /**
     * @param name       operation, "Class::method"
     * @param status     returned by the call
     * @param public_id  KL_ID_FUNC_*, whose error vector it is
     * @param ierr       error vector of the call; NULL counts as a clear one
     */
    LibError(const std::string &name, long status, long public_id, const long *ierr);
    virtual ~LibError();
    /** A copy on the heap. */
    virtual LibError *clone() const;
    LibError(const LibError &) = default;
    LibError &operator=(const LibError &) = default;

    /** Appends the condition numbers of the call, see kl_get_code. */
    virtual void getCodes(std::vector<long> &codes) const;
    /**
     * Appends the operation, then the messages of the call, see kl_get_msg; with the values of their arguments, see
     * kl_get_last_msg, when the vector was that of the last failure of the thread that made this object.
     */
    virtual void getMsg(std::vector<std::string> &messages) const;

private:
    std::string name_;
    long public_id_;
    std::vector<std::pair<int, std::string>> with_values_; // code and text, of messages with an argument
    long words_[2];
};

/** In place of a public id: of functions that have none, and so neither codes nor messages. */
constexpr long kNoPublicId = -1;

/** Throws what a failed call of C left: a KitError from a LibError; without a public id one that says so much in words.
 */
[[noreturn]] KL_API void throw_lib_error(const char *operation, long status, long public_id, const long *ierr);

/** Throws words that no call of C stands behind: a KitError with these messages. */
[[noreturn]] KL_API void throw_messages(std::initializer_list<std::string> messages);

/** The rule of all classes: errors are thrown, warnings only where the family's switch says so. */
inline void throw_unless_ok(const char *operation, long status, long public_id, const long *ierr)
{
    if (status == KL_ERR || (status == KL_WARN && KitClass::throwWarn))
        throw_lib_error(operation, status, public_id, ierr);
}

/** The same rule after a function without a public id, whose errors get these words. */
inline void throw_unless_ok(const char *operation, long status, const char *words)
{
    if (status == KL_ERR)
        throw_messages({words, operation});
    throw_unless_ok(operation, status, kNoPublicId, nullptr);
}

} // namespace ORBKIT

#endif
