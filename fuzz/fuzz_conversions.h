// The nine conversions between processing times, texts and transport times, by a time id or by a run.
#ifndef KL_FUZZ_FUZZ_CONVERSIONS_H
#define KL_FUZZ_FUZZ_CONVERSIONS_H

#include "fuzz_input.h"

template <typename Id, typename From, typename To>
using Conversion = long (*)(Id *, const long *, const long *, const From *, const long *, const long *, To *, long *);

template <typename Id>
struct Conversions {
    Conversion<Id, double, double> processing_to_processing;
    Conversion<Id, double, char> processing_to_ascii;
    Conversion<Id, double, long> processing_to_transport;
    Conversion<Id, char, double> ascii_to_processing;
    Conversion<Id, char, char> ascii_to_ascii;
    Conversion<Id, char, long> ascii_to_transport;
    Conversion<Id, long, double> transport_to_processing;
    Conversion<Id, long, char> transport_to_ascii;
    Conversion<Id, long, long> transport_to_transport;
};

// Formats of each kind.
inline long processing_format(FuzzInput &in)
{
    return in.byte() % 8 == 0 ? in.number() : KL_PROC;
}
inline long ascii_format(FuzzInput &in)
{
    return in.byte() % 8 == 0 ? in.number() : 10 * (1 + in.byte() % 5) + 1 + in.byte() % 4;
}
inline long transport_format(FuzzInput &in)
{
    constexpr long kTransports[] = {0, 11, 21, 22, 23, 31, 41, 42};
    return in.byte() % 8 == 0 ? in.number() : kTransports[in.byte() % 8];
}

// Arbitrary values, or those of an instant with one place changed.
inline std::string any_ascii(FuzzInput &in, long format, long ref)
{
    if (in.byte() % 2 == 0)
        return in.text(64);
    const long proc = KL_PROC;
    const double days = in.real();
    char text[KL_TIME_ASCII_LENGTH] = "";
    kl_time_processing_to_ascii(nullptr, &proc, &ref, &days, &format, &ref, text, nullptr);
    if (in.byte() % 2 == 0)
        text[in.byte() % (KL_TIME_ASCII_LENGTH - 1)] =
            static_cast<char>(in.byte() % 2 == 0 ? '0' + in.byte() % 10 : in.byte());
    return text;
}
inline std::array<long, KL_TRANSPORT_LENGTH> any_transport(FuzzInput &in, long format, long ref)
{
    std::array<long, KL_TRANSPORT_LENGTH> fields{};
    const long proc = KL_PROC;
    const double days = in.real();
    if (in.byte() % 2 == 0)
        kl_time_processing_to_transport(nullptr, &proc, &ref, &days, &format, &ref, fields.data(), nullptr);
    for (long &field : fields)
        if (in.byte() % 4 == 0)
            field = in.byte() % 2 == 0 ? in.number() : in.bits<std::uint32_t>() >> in.byte() % 16;
    return fields;
}

template <typename Id, typename From, typename To>
void call(FuzzInput &in, Conversion<Id, From, To> function, Id *id, long format_in, long ref_in, const From *value,
          long format_out, To *out)
{
    const long ref_out = in.below(4);
    long ierr[2] = {0, 0};
    const long status = function(in.maybe(id), in.maybe(&format_in), in.maybe(&ref_in), in.maybe(value),
                                 in.maybe(&format_out), in.maybe(&ref_out), in.maybe(out), in.maybe(&ierr[0]));
    expect_status(status, &ierr[0]);
    expect_status(status, &ierr[1]);
}

template <typename Id>
void convert(FuzzInput &in, const Conversions<Id> &functions, Id *id)
{
    char text[KL_TIME_ASCII_LENGTH];
    double days = 0.0;
    long fields[KL_TRANSPORT_LENGTH];
    const std::uint8_t to = in.byte() % 3;
    const long format_out = to == 0 ? processing_format(in) : to == 1 ? ascii_format(in) : transport_format(in);
    const long ref = in.below(4);
    const std::uint8_t from = in.byte() % 3;
    if (from == 0) {
        const long format = processing_format(in);
        const double value = in.real();
        if (to == 0)
            call(in, functions.processing_to_processing, id, format, ref, &value, format_out, &days);
        else if (to == 1)
            call(in, functions.processing_to_ascii, id, format, ref, &value, format_out, &text[0]);
        else
            call(in, functions.processing_to_transport, id, format, ref, &value, format_out, &fields[0]);
    } else if (from == 1) {
        const long format = ascii_format(in);
        const std::string value = any_ascii(in, format, ref);
        if (to == 0)
            call(in, functions.ascii_to_processing, id, format, ref, value.c_str(), format_out, &days);
        else if (to == 1)
            call(in, functions.ascii_to_ascii, id, format, ref, value.c_str(), format_out, &text[0]);
        else
            call(in, functions.ascii_to_transport, id, format, ref, value.c_str(), format_out, &fields[0]);
    } else {
        const long format = transport_format(in);
        const std::array<long, KL_TRANSPORT_LENGTH> value = any_transport(in, format, ref);
        if (to == 0)
            call(in, functions.transport_to_processing, id, format, ref, value.data(), format_out, &days);
        else if (to == 1)
            call(in, functions.transport_to_ascii, id, format, ref, value.data(), format_out, &text[0]);
        else
            call(in, functions.transport_to_transport, id, format, ref, value.data(), format_out, &fields[0]);
    }
}

#endif
