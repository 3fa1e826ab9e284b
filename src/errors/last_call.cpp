#include "errors/last_call.h"

#include <algorithm>
#include <cstring>

__thread LastCall last_call;

namespace {

// Puts a text argument by and gives its place.
std::int64_t keep_text(LastCall *last, std::int64_t pointer)
{
    const char *text = nullptr;
    std::memcpy(&text, &pointer, sizeof text);
    const std::size_t place = last->text_room_used;
    const std::size_t room = sizeof last->texts - place; // 1 at least
    const std::size_t length = text != nullptr ? strnlen(text, room - 1) : 0;
    std::memcpy(last->texts + place, text != nullptr ? text : "", length);
    last->texts[place + length] = '\0';
    last->text_room_used = std::min(place + length + 1, sizeof last->texts - 1);
    return static_cast<std::int64_t>(place);
}

std::int64_t value_of(const LastCall::Entry &entry)
{
    const Message &message = function_messages(entry.function_id).messages->rows[entry.code];
    return message.argument == kTextArgument ? stored_value(kTextArgument, last_call.texts + entry.value) : entry.value;
}

} // namespace

void keep_code(int function_id, int code, MessageArgument argument, std::int64_t value)
{
    LastCall &last = last_call;
    if (last.over) {
        last.over = false;
        last.count = 0;
        last.text_room_used = 0;
    }
    LastCall::Entry &entry = last.entries[std::min(last.count, LastCall::kMost - 1)];
    last.count = std::min(last.count + 1, LastCall::kMost);
    entry.function_id = static_cast<std::int16_t>(function_id);
    entry.code = static_cast<std::int16_t>(code);
    entry.value = argument == kTextArgument ? keep_text(&last, value) : value;
}

bool last_call_gave(const PublicFunction &function, const long *ierr)
{
    kl_error_record record;
    record.function_id = function.function_id;
    record.count = 0;
    for (int i = 0; i < last_call.count; ++i)
        if (last_call.entries[i].function_id == function.function_id)
            record.codes[record.count++] = last_call.entries[i].code;
    long words[2] = {0, 0};
    return record.count > 0 && KL_Err_Vector(function.function_id, &record, words) == 0
           && std::equal(words, words + function.n_words(), ierr);
}

std::int64_t value_in_last_call(int function_id, int code)
{
    for (int i = 0; i < last_call.count; ++i)
        if (last_call.entries[i].function_id == function_id && last_call.entries[i].code == code)
            return value_of(last_call.entries[i]);
    return 0;
}

long kl_get_last_msg(long *n_msg, char msg[][512])
{
    if (n_msg == nullptr || msg == nullptr)
        return -1;
    long n = 0;
    for (const bool of_public : {false, true})
        for (int i = 0; i < last_call.count; ++i) {
            const LastCall::Entry &entry = last_call.entries[i];
            if ((public_by_function(entry.function_id).function_id >= 0) != of_public)
                continue;
            char text[KL_MSG_LENGTH];
            write_message(entry.function_id, entry.code, value_of(entry), text);
            std::memcpy(msg[n++], text, std::strlen(text) + 1);
        }
    *n_msg = n;
    return 0;
}
