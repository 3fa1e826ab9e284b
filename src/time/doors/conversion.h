// One conversion of one instant: a side that reads, the change of scale, a side that writes, and what is recorded of
// it.
#ifndef KL_SRC_TIME_DOORS_CONVERSION_H
#define KL_SRC_TIME_DOORS_CONVERSION_H

#include "time/doors/conversion_sides.h"

#include <cstdint>

// The range of a written text stands at the end of each list of conditions: its first one there. Codes 27 and 28 of
// text to text are bits 32 and 33.
constexpr int kSecondWord = 32 - 27;
constexpr int kNoTextRange = 0;
constexpr int kProcessingTextRange = KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR;
constexpr int kAsciiTextRange = KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR - kSecondWord;
constexpr int kTransportTextRange = KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR;
static_assert(KL_ASCII_WRITE_BEFORE_1950 == 0 && KL_ASCII_WRITE_AFTER_2099 == 1);

// ---- the one conversion ----

constexpr long kNoId = -99;                 // stands for an id or a reference that is not given: no check accepts it
constexpr const long *kOwnLayout = nullptr; // format of a text that says it itself
constexpr std::size_t kWholeText = PTRDIFF_MAX;

inline long value_of(const long *id)
{
    return id != nullptr ? *id : kNoId;
}

// A fault of a check: its line, then the condition of the conversion.
inline long refuse(Activation &call, int check, const Fault &fault, int condition)
{
    print_fault(check, fault);
    return call.fails(condition);
}

inline bool take_step(Activation &call, int function_id, unsigned findings)
{
    if (findings != 0 && is_verbose()) {
        Activation step(function_id, KL_NO_RECORD);
        record_step(step, findings);
    }
    if ((findings & KL_STEP_REFUSED) != 0) {
        call.fails(kNotInitialised);
        return false;
    }
    if ((findings & KL_STEP_OUTSIDE) != 0)
        call.warns(kOutOfRange);
    return true;
}

// The findings of a change of scale, in the order in which they were met; false when it was refused.
inline bool take(Activation &call, const Findings &found)
{
    if (found.none())
        return true;
    if (!take_step(call, KL_FN_TIME_T2T_REF_TO_TAI, found.to_tai))
        return false;
    if (found.once_only != 0)
        call.warns(static_cast<int>(kBulletinA + found.once_only - 1));
    return take_step(call, KL_FN_TIME_T2T_REF_FROM_TAI, found.from_tai);
}

// One end of a conversion as it was asked for.
struct End {
    long format, ref;
    End(const long *format_id, const long *time_ref) : format(value_of(format_id)), ref(value_of(time_ref)) {}
};

// convert, inside its caller.
template <typename In, typename Out>
[[gnu::always_inline]] inline long convert_here(Activation &call, const kl_time_id *time_id, const End &from,
                                                typename In::Given given, const End &to, typename Out::Written written,
                                                int text_range = kNoTextRange)
{
    TimeIdRecord *id = time_record_of(time_id);
    const Correlation *correlation = id != nullptr ? &id->correlation : nullptr;
    Reading reading;
    Fault fault = In::check_in(from.format, from.ref);
    if (!fault)
        fault = In::read(correlation, from.format, from.ref, given, &reading);
    if (fault)
        return refuse(call, In::kCheckIn, fault, In::kIn[fault.code]);
    fault = Out::check_out(to.format, to.ref);
    if (fault)
        return refuse(call, Out::kCheckOut, fault, Out::kOut[fault.code]);
    if (Out::is_missing(written))
        return KL_ERR;

    OnceOnlyFlags *flags = id != nullptr ? &id->once_only[KL_FLAGS_CONVERSION] : nullptr;
    const Change change =
        change_scale(correlation, flags, reading.ref, to.ref, In::about(given, reading), reading.moment);
    if (!take(call, change.findings))
        return KL_ERR;
    const bool rounded_up = reading.ref == to.ref && reading.origin == Origin::processing;
    reading.moment = settled(correlation, to.ref, rounded_up, Out::holds_leap_second(to.format), change.moment);
    fault = Out::write(to.format, to.ref, reading, written);
    if (fault)
        return refuse(call, KL_FN_TIME_T2A_FORMAT_FROM_STD, fault, text_range + fault.code);
    return call.status();
}

template <typename In, typename Out>
long convert(Activation &call, const kl_time_id *time_id, const End &from, typename In::Given given, const End &to,
             typename Out::Written written, int text_range = kNoTextRange)
{
    return convert_here<In, Out>(call, time_id, from, given, to, written, text_range);
}

#endif
