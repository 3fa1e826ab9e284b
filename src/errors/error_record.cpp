// The error record, its formatting, and the verbose switch.
#include "errors/activation.h"
#include "errors/last_call.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kMaxCodes = 256;

std::atomic<int> verbose{0};

void put(std::FILE *stream, const char *text)
{
    std::fwrite(text, 1, std::strlen(text), stream);
}

void put_machinery_failure()
{
    put(stdout, "!!! Error in a error handling function\n");
}

const char *opening(const Message &message)
{
    return message.severity > 0 ? "ORBKIT_LIB >>> WARNING in " : "ORBKIT_LIB >>> ERROR in ";
}

// A message in three pieces around its argument; no piece is copied until the text is written.
struct MessagePieces {
    const char *pieces[6]; // opening, name, ": ", text before, argument, text after
    std::size_t lengths[6];
    char number[352]; // "%f" of the largest double has 316 characters

    std::size_t length() const
    {
        std::size_t sum = 0;
        for (const std::size_t piece : lengths)
            sum += piece;
        return sum;
    }

    // Writes at most `room` characters and returns their number; no terminator.
    std::size_t write(char *out, std::size_t room) const
    {
        std::size_t n = 0;
        for (int i = 0; i < 6; ++i) {
            const std::size_t part = std::min(lengths[i], room - n);
            std::memcpy(out + n, pieces[i], part);
            n += part;
        }
        return n;
    }
};

// The placeholder of a text: where it starts and ends. Without an argument the whole text comes before it.
void find_placeholder(const Message &message, std::size_t *start, std::size_t *end)
{
    const std::size_t length = std::strlen(message.text);
    *start = *end = length;
    if (message.argument == kNoArgument)
        return;
    const char *percent = std::strchr(message.text, '%');
    if (percent == nullptr)
        return;
    *start = static_cast<std::size_t>(percent - message.text);
    *end = *start + std::strcspn(percent, "dfis") + 1;
}

void take_apart(const char *function_name, const Message &message, std::int64_t value, MessagePieces *out)
{
    std::size_t start = 0;
    std::size_t end = 0;
    find_placeholder(message, &start, &end);
    out->pieces[0] = opening(message);
    out->pieces[1] = message.name != nullptr ? message.name : function_name;
    out->pieces[2] = ": ";
    out->pieces[3] = message.text;
    out->pieces[4] = out->number;
    out->pieces[5] = message.text + end;
    out->number[0] = '\0';
    switch (message.argument) {
    case kLongArgument:
        std::snprintf(out->number, sizeof out->number, "%li", static_cast<long>(value));
        break;
    case kDoubleArgument: {
        double number = 0.0;
        std::memcpy(&number, &value, sizeof number);
        // As "%f", but with a point whatever the locale says.
        char *const last = out->number + sizeof out->number - 1;
        *std::to_chars(out->number, last, number, std::chars_format::fixed, 6).ptr = '\0';
        break;
    }
    case kTextArgument: {
        const char *text = nullptr;
        std::memcpy(&text, &value, sizeof text);
        if (text != nullptr)
            out->pieces[4] = text;
        break;
    }
    case kNoArgument:
        break;
    }
    for (int i = 0; i < 6; ++i)
        out->lengths[i] = std::strlen(out->pieces[i]);
    out->lengths[3] = start;
}

bool exists(long function_id)
{
    return function_id >= 0 && function_id < KL_N_FUNCTIONS;
}

int count_codes(const FunctionMessages &function)
{
    return function.messages != nullptr ? function.messages->n_codes : 0;
}

// The three refusals that recording and looking up share, each under the caller's name.
struct Refusals {
    const char *function, *record, *code;
};

constexpr Refusals kPutRefusals = {
    "ERROR in KL_Put_Err: function ID does not exist\n",
    "ERROR in KL_Put_Err: error structure and function ID do not match\n",
    "ERROR in KL_Put_Err: error code ID does not exist\n",
};
constexpr Refusals kCheckRefusals = {
    "ERROR in KL_Check_Err: function ID does not exist\n",
    "ERROR in KL_Check_Err: error structure and function ID do not match\n",
    "ERROR in KL_Check_Err: error code ID does not exist\n",
};

bool accepted(long function_id, long code, const kl_error_record &record, const Refusals &refusals)
{
    if (record.count > 0 && record.function_id != function_id) {
        put(stderr, refusals.record);
        return false;
    }
    if (!exists(function_id)) {
        put(stderr, refusals.function);
        return false;
    }
    if (code < 0 || code >= count_codes(function_messages(static_cast<int>(function_id)))) {
        put(stderr, refusals.code);
        return false;
    }
    return true;
}

} // namespace

bool is_verbose()
{
    return verbose.load(std::memory_order_relaxed) == 1;
}

std::int64_t stored_value(MessageArgument argument, const void *value)
{
    std::int64_t bits = 0;
    if (value == nullptr || argument == kNoArgument)
        return bits;
    if (argument == kTextArgument)
        std::memcpy(&bits, &value, sizeof value); // the pointer itself
    else
        std::memcpy(&bits, value, sizeof bits);
    return bits;
}

bool recorded(int callee_id, int code, const kl_error_record &callee)
{
    long found = 0;
    if (KL_Check_Err(callee_id, code, &callee, &found) != 0)
        put_machinery_failure();
    return found == 1;
}

long kl_silent(void)
{
    verbose.store(0, std::memory_order_relaxed);
    return 0;
}

long kl_verbose(void)
{
    verbose.store(1, std::memory_order_relaxed);
    return 0;
}

void kl_free_array(void **array)
{
    if (array == nullptr)
        return;
    std::free(*array);
    *array = nullptr;
}

long KL_Print_Err_Msg(const char *text)
{
    std::fprintf(stderr, "%s\n", text != nullptr ? text : "");
    return 0;
}

void KL_Reset_Err(kl_error_record *record)
{
    if (record == nullptr)
        return;
    record->function_id = -1;
    record->count = 0;
    record->overflow = 0;
}

void KL_Init_err_data(long function_id, kl_error_record *record, long *ierr, long n_words, kl_error_context *context)
{
    if (context != nullptr) {
        context->function_id = static_cast<std::int32_t>(function_id);
        context->record = record;
        context->ierr = ierr;
    }
    last_call.over = true;
    KL_Reset_Err(record);
    if (ierr != nullptr)
        for (long word = 0; word < n_words; ++word)
            ierr[word] = 0;
}

long KL_Put_Err(long function_id, long code, const void *value, kl_error_record *record)
{
    if (record == nullptr)
        return -1;
    if (record->count == 0 && exists(function_id)) // an empty record is taken even when the code is then refused
        record->function_id = static_cast<std::int32_t>(function_id);
    if (!accepted(function_id, code, *record, kPutRefusals))
        return -1;
    if (record->count == kMaxCodes) {
        if (record->overflow == 0)
            put(stderr, "ERROR in KL_Put_Err: too many errors/warnings returned\n");
        record->overflow = 1;
        return 0;
    }
    const FunctionMessages &function = function_messages(static_cast<int>(function_id));
    const Message &message = function.messages->rows[code];
    record->codes[record->count] = static_cast<std::int32_t>(code);
    record->values[record->count] = stored_value(message.argument, value);
    ++record->count;
    keep_code(static_cast<int>(function_id), static_cast<int>(code), message.argument,
              record->values[record->count - 1]);
    if (!is_verbose())
        return 0;

    MessagePieces pieces;
    take_apart(function.name, message, record->values[record->count - 1], &pieces);
    const std::size_t length = pieces.length();
    char *line = static_cast<char *>(std::malloc(length + 1));
    if (line == nullptr) {
        put(stderr, "ERROR in KL_Put_Err: error message can not be sent to STDERR\n");
        return -1;
    }
    pieces.write(line, length);
    line[length] = '\n';
    std::fwrite(line, 1, length + 1, stderr);
    std::free(line);
    return 0;
}

long KL_Check_Err(long function_id, long code, const kl_error_record *record, long *found)
{
    if (found != nullptr)
        *found = 0;
    if (record == nullptr || found == nullptr || !accepted(function_id, code, *record, kCheckRefusals))
        return -1;
    for (std::int32_t i = 0; i < record->count; ++i)
        if (record->codes[i] == code)
            *found = 1;
    return 0;
}

long KL_Store_function_error(kl_error_context *context, long code, const void *value)
{
    if (context == nullptr)
        return -1;
    if (KL_Put_Err(context->function_id, code, value, context->record) != 0)
        put_machinery_failure();
    if (KL_Check_if_public_function(context->function_id) == 1 && context->ierr != nullptr
        && KL_Err_Vector(context->function_id, context->record, context->ierr) != 0)
        put_machinery_failure();
    if (!exists(context->function_id))
        return -1;
    const FunctionMessages &function = function_messages(context->function_id);
    return code >= 0 && code < count_codes(function) ? function.messages->rows[code].severity : -1;
}

void write_message(int function_id, int code, std::int64_t value, char (&text)[KL_MSG_LENGTH])
{
    text[0] = '\0';
    if (!exists(function_id))
        return;
    const FunctionMessages &function = function_messages(function_id);
    if (code < 0 || code >= count_codes(function))
        return; // a bit that no code owns
    const Message &message = function.messages->rows[code];
    MessagePieces pieces;
    take_apart(function.name, message, value, &pieces);
    if (message.argument == kTextArgument) {
        // The text argument gives way, "%s" counted as part of the message.
        const std::size_t own = pieces.length() - pieces.lengths[4] + 2;
        pieces.lengths[4] = std::min(pieces.lengths[4], own < 511 ? 511 - own : 0);
    }
    text[pieces.write(text, KL_MSG_LENGTH - 1)] = '\0';
}

long KL_Err_Msg(const kl_error_record *record, long *n_msg, char messages[][512])
{
    if (record == nullptr || n_msg == nullptr || messages == nullptr)
        return -1;
    std::memset(messages, 0, static_cast<std::size_t>(KL_MAX_MSG) * KL_MSG_LENGTH);
    for (std::int32_t i = 0; i < record->count; ++i)
        write_message(record->function_id, record->codes[i], record->values[i], messages[i]);
    *n_msg = record->count;
    return 0;
}
