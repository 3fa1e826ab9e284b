// The nine conversions between processing times, texts and transport times: a side that reads, the change of scale and
// a side that writes, around the standard record.
#include "time/doors/conversion_sides.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace {

// ---- conditions ----

// The range of a written text stands at the end of each list of conditions: its first one there. Codes 27 and 28 of
// text to text are bits 32 and 33.
constexpr int kSecondWord = 32 - 27;
constexpr int kNoTextRange = 0;
constexpr int kProcessingTextRange = KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR;
constexpr int kAsciiTextRange = KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR - kSecondWord;
constexpr int kTransportTextRange = KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR;
static_assert(KL_ASCII_WRITE_BEFORE_1950 == 0 && KL_ASCII_WRITE_AFTER_2099 == 1);

// ---- the one conversion ----

constexpr long kNoId = -99; // stands for an id or a reference that is not given: no check accepts it

long value_of(const long *id)
{
    return id != nullptr ? *id : kNoId;
}

// A fault of a check: its line, then the condition of the conversion.
long refuse(Activation &call, int check, const Fault &fault, int condition)
{
    print_fault(check, fault);
    return call.fails(condition);
}

bool take_step(Activation &call, int function_id, unsigned findings)
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
bool take(Activation &call, const Findings &found)
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

template <typename In, typename Out>
long convert(Activation &call, const kl_time_id *time_id, const End &from, typename In::Given given, const End &to,
             typename Out::Written written, int text_range = kNoTextRange)
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
    if (written == nullptr)
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

} // namespace

long kl_time_processing_to_processing(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                      const double *time_in, const long *proc_id_out, const long *time_ref_out,
                                      double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_PROCESSING, ierr);
    return convert<ProcessingSide, ProcessingSide>(call, time_id, {proc_id_in, time_ref_in}, time_in,
                                                   {proc_id_out, time_ref_out}, time_out);
}

long kl_time_processing_to_ascii(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                 const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                 char *ascii_out, long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_ASCII, ierr);
    return convert<ProcessingSide, TextSide>(call, time_id, {proc_id_in, time_ref_in}, time_in,
                                             {ascii_id_out, time_ref_out}, ascii_out, kProcessingTextRange);
}

long kl_time_processing_to_transport(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                     const double *time_in, const long *trans_id_out, const long *time_ref_out,
                                     long transport_out[4], long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_TRANSPORT, ierr);
    return convert<ProcessingSide, TransportSide>(call, time_id, {proc_id_in, time_ref_in}, time_in,
                                                  {trans_id_out, time_ref_out}, transport_out);
}

long kl_time_ascii_to_processing(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                 const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                 double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_ASCII_TO_PROCESSING, ierr);
    return convert<TextSide, ProcessingSide>(call, time_id, {ascii_id_in, time_ref_in}, ascii_in,
                                             {proc_id_out, time_ref_out}, time_out);
}

long kl_time_ascii_to_ascii(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in, const char *ascii_in,
                            const long *ascii_id_out, const long *time_ref_out, char *ascii_out, long ierr[2])
{
    Activation call(KL_FN_TIME_ASCII_TO_ASCII, ierr, 2);
    return convert<TextSide, TextSide>(call, time_id, {ascii_id_in, time_ref_in}, ascii_in,
                                       {ascii_id_out, time_ref_out}, ascii_out, kAsciiTextRange);
}

long kl_time_ascii_to_transport(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                long transport_out[4], long *ierr)
{
    Activation call(KL_FN_TIME_ASCII_TO_TRANSPORT, ierr);
    return convert<TextSide, TransportSide>(call, time_id, {ascii_id_in, time_ref_in}, ascii_in,
                                            {trans_id_out, time_ref_out}, transport_out);
}

long kl_time_transport_to_processing(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                     const long transport_in[4], const long *proc_id_out, const long *time_ref_out,
                                     double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_TRANSPORT_TO_PROCESSING, ierr);
    return convert<TransportSide, ProcessingSide>(call, time_id, {trans_id_in, time_ref_in}, transport_in,
                                                  {proc_id_out, time_ref_out}, time_out);
}

long kl_time_transport_to_ascii(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                const long transport_in[4], const long *ascii_id_out, const long *time_ref_out,
                                char *ascii_out, long *ierr)
{
    Activation call(KL_FN_TIME_TRANSPORT_TO_ASCII, ierr);
    return convert<TransportSide, TextSide>(call, time_id, {trans_id_in, time_ref_in}, transport_in,
                                            {ascii_id_out, time_ref_out}, ascii_out, kTransportTextRange);
}

long kl_time_transport_to_transport(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                    const long transport_in[4], const long *trans_id_out, const long *time_ref_out,
                                    long transport_out[4], long *ierr)
{
    Activation call(KL_FN_TIME_TRANSPORT_TO_TRANSPORT, ierr);
    return convert<TransportSide, TransportSide>(call, time_id, {trans_id_in, time_ref_in}, transport_in,
                                                 {trans_id_out, time_ref_out}, transport_out);
}

// ---- for callers inside the library ----

InRef time_in_ref(const kl_time_id *time_id, long from, long to, double days, double *out)
{
    const long processing = KL_PROC;
    Activation call(KL_FN_TIME_PROCESSING_TO_PROCESSING, KL_NO_VECTOR);
    if (convert<ProcessingSide, ProcessingSide>(call, time_id, {&processing, &from}, &days, {&processing, &to}, out)
        != KL_ERR)
        return InRef::done;
    const bool passed = is_time_ref(from) && is_time_ref(to) && inside_processing_range(days);
    return passed ? InRef::not_initialised : InRef::refused;
}

bool processing_as_text(long ref, const double *days, long format, char *text)
{
    const long processing = KL_PROC;
    Activation call(KL_FN_TIME_PROCESSING_TO_ASCII, KL_NO_VECTOR);
    return convert<ProcessingSide, TextSide>(call, nullptr, {&processing, &ref}, days, {&format, &ref}, text,
                                             kProcessingTextRange)
           != KL_ERR;
}

bool text_as_text(long ref, const char *text, long format_in, long format_out, char *out)
{
    Activation call(KL_FN_TIME_ASCII_TO_ASCII, KL_NO_VECTOR, 2);
    return convert<TextSide, TextSide>(call, nullptr, {&format_in, &ref}, text, {&format_out, &ref}, out,
                                       kAsciiTextRange)
           != KL_ERR;
}
