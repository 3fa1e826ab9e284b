// What the last call of this thread recorded, with its values; the texts are made when they are asked for.
#ifndef KL_SRC_ERRORS_LAST_CALL_H
#define KL_SRC_ERRORS_LAST_CALL_H

#include "errors/messages.h"
#include "kl_family.h"

#include <cstddef>
#include <cstdint>

// Of a fixed size and without constructor, so that the record of a thread costs nothing until something fails.
struct LastCall {
    static constexpr int kMost = 64; // of more, the first ones and the last
    struct Entry {
        std::int16_t function_id, code;
        std::int64_t value; // as in an error record, but that a text argument is its place in `texts`
    };

    bool over; // the next code that is recorded begins another call
    int count;
    std::size_t text_room_used;
    Entry entries[kMost];
    char texts[KL_MSG_LENGTH]; // text arguments, cut where it is full: the caller's pointers do not live on
};

extern __thread LastCall last_call;

// Records one code, with its value as an error record keeps it.
void keep_code(int function_id, int code, MessageArgument argument, std::int64_t value);

// Does the vector hold what the last call of this thread recorded for the function?
bool last_call_gave(const PublicFunction &function, const long *ierr);

// Value of a code that the function recorded in the last call, as an error record keeps it; 0 without one.
std::int64_t value_in_last_call(int function_id, int code);

// The value of an error record for a code: the number behind the pointer, or the pointer to a text.
std::int64_t stored_value(MessageArgument argument, const void *value);

// The text of a code with its value, terminated; empty for a code that the function does not have.
void write_message(int function_id, int code, std::int64_t value, char (&text)[KL_MSG_LENGTH]);

// As KL_Vector_Err, with the line of kl_get_msg when it fails.
bool record_of_messages(long public_id, const long *ierr, kl_error_record *record);

#endif
