#include "objects/throw_rule.h"

#include "kl_family.h"

namespace ORBKIT {

namespace {

// Nothing but a way to a KitError: its messages are added to that.
class NoCall : public InternalError {
public:
    NoCall() : InternalError(std::string(), KL_ERR, kLibraryNumber, kNoPublicId, kLibraryNumber, nullptr) {}
    NoCall(const NoCall &) = default;
    virtual ~NoCall() = default;
    virtual NoCall *clone() const { return new NoCall(*this); }
    virtual void getCodes(std::vector<long> &) const {}
    virtual void getMsg(std::vector<std::string> &) const {}
};

} // namespace

void throw_messages(std::initializer_list<std::string> messages)
{
    KitError error{NoCall()};
    for (const std::string &message : messages)
        error.addMsg(message);
    throw error;
}

void throw_lib_error(const char *operation, long status, long public_id, const long *ierr)
{
    if (public_id == kNoPublicId)
        throw_messages({status == KL_ERR ? "An argument is out of range, or there is no result."
                                         : "There is a warning, which kl_verbose shows.",
                        operation});
    throw KitError(LibError(operation, status, public_id, ierr));
}

bool is_free(const void *handle)
{
    return KL_Id_init_status(handle) == 1 && KL_Is_used(handle) == 0;
}

std::mutex &release_mutex()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace ORBKIT
