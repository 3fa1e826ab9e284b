// Rows of the message table. Each function keeps its rows beside its code, in code order; message_table.cpp lists
// the groups by function id.
#ifndef KL_SRC_ERRORS_MESSAGES_H
#define KL_SRC_ERRORS_MESSAGES_H

#include <cstddef>
#include <cstdint>

// Argument of a message; its text then holds one placeholder: %li or %ld, %f or %lf, %s.
enum MessageArgument : std::uint8_t { kNoArgument = 0, kLongArgument = 1, kDoubleArgument = 2, kTextArgument = 3 };

struct Message {
    std::int8_t severity; // 1 warning, -1 error
    MessageArgument argument;
    const char *text;           // what follows "ORBKIT_LIB >>> ERROR in <name>: "
    const char *name = nullptr; // only where the text names another function than its own
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
};

const FunctionMessages &function_messages(int function_id); // id 0 to 174

// One row of the public-code matrix, by public id 0 to 47.
struct PublicFunction {
    int public_id;
    int function_id;

    int n_words() const;
    int n_public_codes() const;       // codes that the function documents
    int code_to_bit(long code) const; // bit number, counted through the words; -1: never reported
    int bit_to_code(int bit) const;   // -1: no code has this bit
};

// Rows by internal and by public id; -1 as function_id where there is none.
PublicFunction public_by_function(long function_id);
PublicFunction public_by_id(long public_id);

#endif
