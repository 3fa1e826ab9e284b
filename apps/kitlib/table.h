// The functions of the library and their conditions.
#ifndef KITLIB_TABLE_H
#define KITLIB_TABLE_H

#include <cstddef>

namespace kitlib {

struct Function {
    const char *name, *subject, *summary, *declaration;
};
struct Condition {
    const char *function;
    long public_id, code, bit, severity; // below 0: an error
    const char *constant, *text, *when;
};

extern const Function kFunctions[];
extern const std::size_t kNFunctions;
extern const Condition kConditions[];
extern const std::size_t kNConditions;

bool is_set(const Condition &condition, const long ierr[2]);
// Null: none.
const Condition *first_error(long public_id, const long ierr[2]);
const Condition *first_warning(long public_id, const long ierr[2]);
const Condition *error_named(const char *function, const char *message); // that a message ends with

const char *remedy(const Condition &condition); // "" where there is nothing to add to what is said when it is recorded

} // namespace kitlib

#endif
