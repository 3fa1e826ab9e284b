// How a status becomes an exception, and what the id classes share.
#ifndef KL_SRC_OBJECTS_THROW_RULE_H
#define KL_SRC_OBJECTS_THROW_RULE_H

#include "orbkit/lib_error.hpp"

#include <mutex>

namespace ORBKIT {

// The constant that the common library gets for this one, in two places.
constexpr long kLibraryNumber = 2;

// Every wrapper asks this after its call: errors are thrown, warnings only when the family's switch says so.
inline void check(const char *operation, long status, long public_id, const long *ierr)
{
    throw_unless_ok(operation, status, public_id, ierr);
}

// Is the id initialised, and neither counted by an object nor used by another id? Then it is to be closed.
bool is_free(const void *handle);

// Giving up a share and closing what nobody holds is one step: two objects must not both see themselves last.
std::mutex &release_mutex();

} // namespace ORBKIT

#endif
