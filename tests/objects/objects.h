// What the tests of the classes share: what is thrown, and records that are still open.
#ifndef KL_TESTS_OBJECTS_OBJECTS_H
#define KL_TESTS_OBJECTS_OBJECTS_H

#include "orbkit.hpp"
#include "support/bare_id.h"
#include "support/captured_stream.h"
#include "support/conditions.h"

#include <string>
#include <vector>

using Codes = std::vector<long>;
using Texts = std::vector<std::string>;

constexpr long kNoCode = -1, kNoFunction = -1;

struct Thrown {
    std::string text = "nothing\n"; // a line a message
    long code = kNoCode, function_id = kNoFunction, status = KL_OK;
};

template <typename Action>
Thrown thrown_by(const Action &action)
{
    try {
        action();
    } catch (const ORBKIT::KitError &error) {
        Codes codes;
        error.getCodes(codes);
        EXPECT_LE(codes.size(), 1U);
        const auto *lib_error = dynamic_cast<const ORBKIT::LibError *>(error.error());
        return {error.what() + std::string("\n"), codes.empty() ? kNoCode : codes[0],
                lib_error != nullptr ? lib_error->functionId() : kNoFunction, error.status()};
    }
    return {};
}

// Rows of failures: the lines that they open with, public id of the function, number of the condition, the call.
#define FAILS(opening, public_id, condition, ...)                                                                      \
    {                                                                                                                  \
        const Thrown thrown = thrown_by([&] { __VA_ARGS__; });                                                         \
        const std::string lines = std::string(opening) + "\n";                                                         \
        EXPECT_EQ(thrown.text.substr(0, lines.size()), lines) << #__VA_ARGS__;                                         \
        EXPECT_EQ(thrown.function_id, public_id) << #__VA_ARGS__;                                                      \
        EXPECT_EQ(thrown.code, condition) << #__VA_ARGS__;                                                             \
    }

// Tells from outside whether an id is still open, when the record may already be freed: an open record stays among the
// users of the id that it is linked to, and closing it takes it out.
class OpenRecord {
public:
    explicit OpenRecord(const void *handle) { KL_Link_ids(&watched_.record, *static_cast<void *const *>(handle)); }
    bool open() const { return KL_Is_used(&watched_.handle) == 1; }

private:
    BareId watched_;
};

// Objects that share the id of a handle.
inline long instances(const void *handle)
{
    return (*static_cast<kl_id_record *const *>(handle))->instances;
}

// What `call` throws must have these words.
template <class Call>
void throws(const char *words, Call call)
{
    try {
        call();
        ADD_FAILURE() << "not thrown: " << words;
    } catch (const ::KitError &error) {
        EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
    }
}

#endif
