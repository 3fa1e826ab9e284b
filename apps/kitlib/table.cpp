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

namespace {

const Condition *first_of(bool error, long public_id, const long ierr[2])
{
    for (const Condition &condition : kConditions)
        if (condition.public_id == public_id && (condition.severity < 0) == error && is_set(condition, ierr))
            return &condition;
    return nullptr;
}

bool ends_with(const char *message, const char *text)
{
    const std::size_t whole = std::strlen(message), tail = std::strlen(text);
    return whole >= tail && std::strcmp(message + whole - tail, text) == 0;
}

} // namespace

const Condition *first_error(long public_id, const long ierr[2])
{
    return first_of(true, public_id, ierr);
}

const Condition *first_warning(long public_id, const long ierr[2])
{
    return first_of(false, public_id, ierr);
}

const Condition *error_named(const char *function, const char *message)
{
    for (const Condition &condition : kConditions)
        if (std::strcmp(condition.function, function) == 0 && condition.severity < 0
            && ends_with(message, condition.text))
            return &condition;
    return nullptr;
}

} // namespace kitlib
