// What the tests of the classes share: what is thrown, and records that are still open.
#ifndef KL_TESTS_OBJECTS_OBJECTS_H
#define KL_TESTS_OBJECTS_OBJECTS_H

#include "kl_family.h"
#include "orbkit.hpp"
#include "support/captured_stream.h"
#include "support/conditions.h"

#include <string>
#include <vector>

using Codes = std::vector<long>;
using Texts = std::vector<std::string>;

constexpr long kNoCode = -1;

struct Thrown {
    std::string text = "nothing"; // a line a message
    long code = kNoCode, function_id = -1, status = KL_OK;
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
        return {error.what(), codes.empty() ? kNoCode : codes[0], lib_error ? lib_error->functionId() : -1,
                error.status()};
    }
    return {};
}

// Rows of failures: messages, number of the condition, the call.
#define THROWS(messages, condition, ...)                                                                               \
    {                                                                                                                  \
        const Thrown thrown = thrown_by([&] { (void)(__VA_ARGS__); });                                                 \
        EXPECT_EQ(thrown.text, messages) << #__VA_ARGS__;                                                              \
        EXPECT_EQ(thrown.code, condition) << #__VA_ARGS__;                                                             \
    }

// The same by its operation, its public id and its condition.
#define FAILS(operation, public_id, condition, ...)                                                                    \
    {                                                                                                                  \
        const Thrown thrown = thrown_by([&] { __VA_ARGS__; });                                                         \
        EXPECT_EQ(thrown.text.substr(0, thrown.text.find('\n')), operation) << #__VA_ARGS__;                           \
        EXPECT_EQ(thrown.function_id, public_id) << #__VA_ARGS__;                                                      \
        EXPECT_EQ(thrown.code, condition) << #__VA_ARGS__;                                                             \
    }

// Tells from outside whether an id is still open, when the record may already be freed: an open record stays among the
// users of the id that it is linked to, and closing it takes it out.
class OpenRecord {
public:
    explicit OpenRecord(const void *handle)
    {
        const long mode = KL_MODEL_DEFAULT;
        kl_model_init(&mode, nullptr, &watched_, nullptr);
        KL_Link_ids(watched_.record, *static_cast<void *const *>(handle));
    }
    ~OpenRecord() { kl_model_close(&watched_, nullptr); }
    OpenRecord(const OpenRecord &) = delete;
    OpenRecord &operator=(const OpenRecord &) = delete;

    bool open() const { return KL_Is_used(&watched_) == 1; }

private:
    kl_model_id watched_ = {nullptr};
};

// Objects that share the id of a handle.
inline long instances(const void *handle)
{
    return (*static_cast<kl_id_record *const *>(handle))->instances;
}

#endif
