#include "table.h"

#include <cstring>

namespace kitlib {

#define FUNCTION(name, subject, summary, declaration) {name, subject, summary, declaration},
#define CONDITION(...)
const Function kFunctions[] = {
#include "table.inc"
};
#undef FUNCTION
#undef CONDITION
#define FUNCTION(...)
#define CONDITION(function, public_id, code, bit, severity, constant, text, when)                                      \
    {function, public_id, code, bit, severity, constant, text, when},
const Condition kConditions[] = {
#include "table.inc"
};
#undef FUNCTION
#undef CONDITION

const std::size_t kNFunctions = sizeof kFunctions / sizeof *kFunctions;
const std::size_t kNConditions = sizeof kConditions / sizeof *kConditions;

bool is_set(const Condition &condition, const long ierr[2])
{
    constexpr long kBitsOfAWord = 32;
    return condition.bit >= 0 && (ierr[condition.bit / kBitsOfAWord] >> condition.bit % kBitsOfAWord & 1) != 0;
}

const Condition *first_error(long public_id, const char *function, const long ierr[2])
{
    for (const Condition &condition : kConditions)
        if ((function != nullptr ? std::strcmp(function, condition.function) == 0 : condition.public_id == public_id)
            && condition.severity < 0 && is_set(condition, ierr))
            return &condition;
    return nullptr;
}

} // namespace kitlib
