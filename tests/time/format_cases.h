// The nine conversions behind one call, and time ids around the leap second of 2016-12-31.
#ifndef KL_TESTS_TIME_FORMAT_CASES_H
#define KL_TESTS_TIME_FORMAT_CASES_H

#include "time/time_table.h"

#include <cstring>
#include <string>

constexpr long kLeapDay = 6209; // 2016-12-31, MJD2000

// Daily rows around 2017-01-01 with TAI-UTC 36 s before it, and 36 s plus the sign from then on.
struct LeapId : OwnedTimeId {
    explicit LeapId(int sign) { EXPECT_EQ(leap_table(k2017, 36.0, sign).set(&id), 0); }
};

// TAI-UTC 37 s, TAI-UT1 36.4 s, TAI-GPS 19 s at every instant.
struct ExplicitId : OwnedTimeId {
    ExplicitId()
    {
        const double tai = 6300.0;
        const double readings[4] = {tai, tai - 37.0 / kDay, tai - 36.4 / kDay, tai - 19.0 / kDay};
        EXPECT_EQ(kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr), KL_OK);
    }
};

// The only message of a record.
inline std::string message_of(const kl_error_record &record)
{
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    long n = 0;
    KL_Err_Msg(&record, &n, messages);
    return n == 1 ? messages[0] : std::to_string(n) + " messages";
}

enum Kind { kOfProcessing, kOfAscii, kOfTransport };
constexpr const char *kKindNames[] = {"processing", "ascii", "transport"};

// An instant in one of the three kinds; the other two members are not looked at.
struct Value {
    double time = 7.0;
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    long fields[KL_TRANSPORT_LENGTH] = {7, 7, 7, 7};

    Value() = default;
    explicit Value(double days) : time(days) {}
    explicit Value(const char *written) { std::memcpy(text, written, strnlen(written, sizeof text - 1) + 1); }
    Value(long a, long b, long c, long d = 0) : fields{a, b, c, d} {}
    bool untouched() const { return time == 7.0 && std::strcmp(text, "untouched") == 0 && fields[3] == 7; }
};

// A kind with its format and scale; what is not set stands for NULL.
struct Side {
    Kind kind;
    const long *format, *ref;
    const Value *value;
};

// Any of the nine. A NULL value of a side is a NULL input or output.
inline long convert(kl_time_id *id, const Side &in, const Side &out, Value *result, long *ierr)
{
    const double *time = in.value != nullptr ? &in.value->time : nullptr;
    const char *text = in.value != nullptr ? in.value->text : nullptr;
    const long *fields = in.value != nullptr ? in.value->fields : nullptr;
    double *time_out = result != nullptr ? &result->time : nullptr;
    char *text_out = result != nullptr ? result->text : nullptr;
    long *fields_out = result != nullptr ? result->fields : nullptr;
    switch (3 * in.kind + out.kind) {
    case 3 * kOfProcessing + kOfProcessing:
        return kl_time_processing_to_processing(id, in.format, in.ref, time, out.format, out.ref, time_out, ierr);
    case 3 * kOfProcessing + kOfAscii:
        return kl_time_processing_to_ascii(id, in.format, in.ref, time, out.format, out.ref, text_out, ierr);
    case 3 * kOfProcessing + kOfTransport:
        return kl_time_processing_to_transport(id, in.format, in.ref, time, out.format, out.ref, fields_out, ierr);
    case 3 * kOfAscii + kOfProcessing:
        return kl_time_ascii_to_processing(id, in.format, in.ref, text, out.format, out.ref, time_out, ierr);
    case 3 * kOfAscii + kOfAscii:
        return kl_time_ascii_to_ascii(id, in.format, in.ref, text, out.format, out.ref, text_out, ierr);
    case 3 * kOfAscii + kOfTransport:
        return kl_time_ascii_to_transport(id, in.format, in.ref, text, out.format, out.ref, fields_out, ierr);
    case 3 * kOfTransport + kOfProcessing:
        return kl_time_transport_to_processing(id, in.format, in.ref, fields, out.format, out.ref, time_out, ierr);
    case 3 * kOfTransport + kOfAscii:
        return kl_time_transport_to_ascii(id, in.format, in.ref, fields, out.format, out.ref, text_out, ierr);
    default:
        return kl_time_transport_to_transport(id, in.format, in.ref, fields, out.format, out.ref, fields_out, ierr);
    }
}

// The same with everything given. The vector has the first word only, but for conditions of the second.
struct Outcome {
    long status = 7;
    long ierr[2] = {7, 7};
    Value value;
};
inline Outcome convert(kl_time_id *id, Kind from, long format_in, long ref_in, const Value &in, Kind to,
                       long format_out, long ref_out)
{
    Outcome out;
    out.status =
        convert(id, {from, &format_in, &ref_in, &in}, {to, &format_out, &ref_out, nullptr}, &out.value, out.ierr);
    return out;
}

inline std::string fields_of(const Value &value)
{
    std::string out;
    for (const long field : value.fields)
        out += (out.empty() ? "" : " ") + std::to_string(field);
    return out;
}

#endif
