// Rows of the message table and of the public-code matrix; both stand in message_table.cpp, written from the table of
// functions.
#ifndef KL_SRC_ERRORS_MESSAGES_H
#define KL_SRC_ERRORS_MESSAGES_H

#include "errors/conditions.h"

#include <cstddef>
#include <cstdint>

// Argument of a message; its text then holds one placeholder: %li or %ld, %f or %lf, %s.
enum MessageArgument : std::uint8_t { kNoArgument = 0, kLongArgument = 1, kDoubleArgument = 2, kTextArgument = 3 };

constexpr std::int8_t kBitIsCode = -2; // as nearly everywhere

struct Message {
    std::int8_t severity; // 1 warning, -1 error
    MessageArgument argument;
    const char *text;           // what follows "ORBKIT_LIB >>> ERROR in <name>: "
    const char *name = nullptr; // only where the text names another function than its own
    std::int8_t bit = kBitIsCode;

    constexpr Message at_bit(int where) const
    {
        return {severity, argument, text, name, static_cast<std::int8_t>(where)};
    }
};

constexpr Message error(const char *text, MessageArgument argument = kNoArgument, const char *name = nullptr)
{
    return {-1, argument, text, name};
}

constexpr Message warning(const char *text, MessageArgument argument = kNoArgument, const char *name = nullptr)
{
    return {1, argument, text, name};
}

struct MessageGroup {
    const Message *rows;
    std::int8_t n_codes;
};

template <std::size_t N>
constexpr MessageGroup group(const Message (&rows)[N])
{
    static_assert(N <= 127, "the count of codes is a signed byte");
    return {rows, static_cast<std::int8_t>(N)};
}

// One row of the message table: a function, by its id. `messages` is null for a function without codes.
struct FunctionMessages {
    const char *name;
    const MessageGroup *messages;
    std::int8_t public_id; // -1: none
};

const FunctionMessages &function_messages(int function_id); // id 0 to 174

// One row of the public-code matrix, by public id; the unassigned one has function 0 and no words.
enum { KL_N_PUBLIC_IDS = 48, KL_UNASSIGNED_PUBLIC_ID = 40 };
struct PublicRow {
    std::int16_t function_id;
    std::int8_t n_words;
    std::int8_t n_public_codes; // that the function documents: on purpose not always as many as it has texts
};
const PublicRow &public_row(int public_id);

// A function that callers know by a public id.
struct PublicFunction {
    int public_id;
    int function_id;

    int n_words() const { return public_row(public_id).n_words; }
    int n_public_codes() const { return public_row(public_id).n_public_codes; }
    int code_to_bit(long code) const; // bit number, counted through the words; -1: never reported
    int bit_to_code(int bit) const;   // -1: no code has this bit
};

// Rows by internal and by public id; -1 as function_id where there is none.
PublicFunction public_by_function(long function_id);
PublicFunction public_by_id(long public_id);

#endif
