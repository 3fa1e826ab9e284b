// The nine conversions between processing times, texts and transport times.
#include "time/doors/conversion.h"

long kl_time_processing_to_processing(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                      const double *time_in, const long *proc_id_out, const long *time_ref_out,
                                      double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_PROCESSING, ierr);
    return convert_here<ProcessingSide, ProcessingSide>(call, time_id, {proc_id_in, time_ref_in}, time_in,
                                                        {proc_id_out, time_ref_out}, time_out); // the most used
}

long kl_time_processing_to_ascii(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                 const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                 char *ascii_out, long *ierr)
{
    Activation call(KL_FN_TIME_PROCESSING_TO_ASCII, ierr);
    return convert<ProcessingSide, TextSide>(call, time_id, {proc_id_in, time_ref_in}, time_in,
                                             {ascii_id_out, time_ref_out}, {ascii_out, 0}, kProcessingTextRange);
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
    return convert<TextSide, ProcessingSide>(call, time_id, {ascii_id_in, time_ref_in},
                                             {ascii_in, KL_TIME_ASCII_LENGTH, false}, {proc_id_out, time_ref_out},
                                             time_out);
}

long kl_time_text_to_processing(kl_time_id *time_id, const char *text, const long *time_ref_default,
                                const long *proc_id_out, const long *time_ref_out, double *time_out, long *ierr)
{
    Activation call(KL_FN_TIME_ASCII_TO_PROCESSING, ierr);
    return convert<TypedTextSide, ProcessingSide>(call, time_id, {kOwnLayout, time_ref_default},
                                                  {text, kWholeText, false}, {proc_id_out, time_ref_out}, time_out);
}

long kl_time_ascii_to_ascii(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in, const char *ascii_in,
                            const long *ascii_id_out, const long *time_ref_out, char *ascii_out, long ierr[2])
{
    Activation call(KL_FN_TIME_ASCII_TO_ASCII, ierr, 2);
    return convert<TextSide, TextSide>(call, time_id, {ascii_id_in, time_ref_in},
                                       {ascii_in, KL_TIME_ASCII_LENGTH, false}, {ascii_id_out, time_ref_out},
                                       {ascii_out, 0}, kAsciiTextRange);
}

long kl_time_ascii_to_transport(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                long transport_out[4], long *ierr)
{
    Activation call(KL_FN_TIME_ASCII_TO_TRANSPORT, ierr);
    return convert<TextSide, TransportSide>(call, time_id, {ascii_id_in, time_ref_in},
                                            {ascii_in, KL_TIME_ASCII_LENGTH, false}, {trans_id_out, time_ref_out},
                                            transport_out);
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
                                            {ascii_id_out, time_ref_out}, {ascii_out, 0}, kTransportTextRange);
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
    return convert<ProcessingSide, TextSide>(call, nullptr, {&processing, &ref}, days, {&format, &ref}, {text, 0},
                                             kProcessingTextRange)
           != KL_ERR;
}

bool text_as_text(long ref, const char *text, long format_in, long format_out, char *out)
{
    Activation call(KL_FN_TIME_ASCII_TO_ASCII, KL_NO_VECTOR, 2);
    return convert<TextSide, TextSide>(call, nullptr, {&format_in, &ref}, {text, KL_TIME_ASCII_LENGTH, false},
                                       {&format_out, &ref}, {out, 0}, kAsciiTextRange)
           != KL_ERR;
}
