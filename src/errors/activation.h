// One activation of a function: its error record, the caller's vector and the status, in one object.
#ifndef KL_SRC_ERRORS_ACTIVATION_H
#define KL_SRC_ERRORS_ACTIVATION_H

#include "errors/function_ids.h"
#include "errors/last_call.h"
#include "errors/messages.h"
#include "kl_family.h"

// A record for the conditions of a callee. Three kilobytes: only its counters are set.
struct ErrorRecord : kl_error_record {
    ErrorRecord()
    {
        function_id = -1;
        count = 0;
        overflow = 0;
    }
};

// True when the callee recorded the code. A failing look-up only prints a line.
bool recorded(int callee_id, int code, const kl_error_record &callee);

// Is the library verbose? For the few lines that no error record carries.
bool is_verbose();

// Where nobody takes the conditions of an activation but the printer and the last call.
constexpr kl_error_record *KL_NO_RECORD = nullptr;
constexpr long *KL_NO_VECTOR = nullptr;

class Activation {
public:
    // Public function: clears the vector.
    Activation(int function_id, long *ierr, int n_words = 1)
    {
        start(function_id, &own_);
        last_call.over = true;
        context_.ierr = ierr;
        if (ierr != nullptr)
            for (int word = 0; word < n_words; ++word)
                ierr[word] = 0;
    }

    // Internal function: its conditions go to the caller's record, or nowhere.
    Activation(int function_id, kl_error_record *record)
    {
        start(function_id, record != nullptr ? record : &own_);
        context_.ierr = nullptr;
    }

    Activation(const Activation &) = delete;
    Activation &operator=(const Activation &) = delete;

    // Records an error of this function, which ends the call: `return call.fails(CODE);`
    long fails(int code, const void *value = nullptr)
    {
        record(code, value);
        return KL_ERR;
    }

    // Records a warning of this function; the call goes on.
    void warns(int code, const void *value = nullptr) { record(code, value); }

    // KL_OK, or the severity recorded last.
    [[nodiscard]] long status() const { return severity_; }

private:
    long record(int code, const void *value = nullptr)
    {
        const bool seen = context_.ierr != nullptr || context_.record != &own_ || is_verbose();
        if (seen)
            severity_ = KL_Store_function_error(&context_, code, value);
        else
            severity_ = keep(context_.function_id, code, value);
        return severity_;
    }

    // For a record that nobody reads: the code goes to the last call's alone.
    static long keep(int function_id, int code, const void *value)
    {
        const Message &message = function_messages(function_id).messages->rows[code];
        keep_code(function_id, code, message.argument, stored_value(message.argument, value));
        return message.severity;
    }

    void start(int function_id, kl_error_record *record)
    {
        context_.function_id = function_id;
        context_.record = record;
        record->function_id = -1;
        record->count = 0;
        record->overflow = 0;
    }

    kl_error_context context_;
    long severity_ = KL_OK;
    kl_error_record own_;
};

#endif
