// What the members of LibFunc share: one call, one throw rule.
#ifndef KL_SRC_OBJECTS_FORWARD_H
#define KL_SRC_OBJECTS_FORWARD_H

#include "objects/throw_rule.h"

namespace ORBKIT {

constexpr long kProcessing = KL_PROC;
constexpr long kUnassigned = 40; // On purpose: this failure decodes to no codes and no messages.

// `call` gets the place of its result and the error vector; `name` and `public_id` are for its failure.
template <typename Result, typename Call>
Result result_of(const char *name, long public_id, Call call)
{
    Result out{};
    long ierr[2] = {0, 0};
    check(name, call(out, ierr), public_id, ierr);
    return out;
}

template <typename Call>
void require(const char *name, long public_id, Call call)
{
    long ierr[2] = {0, 0};
    check(name, call(ierr), public_id, ierr);
}

} // namespace ORBKIT

#endif
