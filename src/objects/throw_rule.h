// How a status becomes an exception, and what the id classes share.
#ifndef KL_SRC_OBJECTS_THROW_RULE_H
#define KL_SRC_OBJECTS_THROW_RULE_H

#include "orbkit/lib_error.hpp"

#include <mutex>

namespace ORBKIT {

[[noreturn]] void throw_lib_error(const char *operation, long status, long public_id, const long *ierr);

// Every wrapper asks this after its call: errors are thrown, warnings only when the family's switch says so.
inline void check(const char *operation, long status, long public_id, const long *ierr)
{
    if (status == KL_ERR || (status == KL_WARN && KitClass::throwWarn))
        throw_lib_error(operation, status, public_id, ierr);
}

// What an id is to an object that has given up its share.
enum class Share {
    kFree,  // nobody's: to be closed
    kInUse, // of another id alone
    kHeld   // of another object, or not initialised
};
Share share_of(const void *handle);

// Giving up a share and closing what nobody holds is one step: two objects must not both see themselves last.
std::mutex &release_mutex();

} // namespace ORBKIT

#endif
