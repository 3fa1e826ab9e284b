// The nine conversions behind one call, and the time ids that the rows of their tables name.
#ifndef KL_TESTS_TIME_FORMAT_CASES_H
#define KL_TESTS_TIME_FORMAT_CASES_H

#include "time/time_table.h"

#include <cstring>
#include <string>

constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kUt1 = KL_TIME_UT1;
constexpr long kGps = KL_TIME_GPS;
constexpr long kLeapDay = 6209; // 2016-12-31, MJD2000

// Daily rows around 2017-01-01 with TAI-UTC 36 s before it, and 36 s plus the sign from then on.
struct LeapId : OwnedTimeId {
    explicit LeapId(int sign) { EXPECT_EQ(leap_table(k2017, 36.0, sign).set(&id), 0); }
};

// TAI-UTC 37 s, TAI-UT1 36.4 s, TAI-GPS 19 s at every instant.
struct ConstantId : OwnedTimeId {
    ConstantId()
    {
        const double tai = 6300.0;
        const double readings[4] = {tai, tai - 37.0 / kDay, tai - 36.4 / kDay, tai - 19.0 / kDay};
        EXPECT_EQ(kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr), KL_OK);
    }
};

enum IdName { kNoId, kPositiveLeap, kNegativeLeap, kConstant };
struct NamedIds {
    LeapId positive{1}, negative{-1};
    ConstantId constant;
    kl_time_id *operator[](IdName name)
    {
        kl_time_id *const ids[] = {nullptr, &positive.id, &negative.id, &constant.id};
        return ids[name];
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

// An instant in one of the three kinds; the other two members are not looked at.
struct Value {
    double time = 7.0;
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    long fields[KL_TRANSPORT_LENGTH] = {7, 7, 7, 7};

    Value() = default;
    Value(double days) : time(days) {}
    Value(const char *written) { std::memcpy(text, written, strnlen(written, sizeof text - 1) + 1); }
    Value(long a, long b, long c, long d = 0) : fields{a, b, c, d} {}
    bool untouched() const { return time == 7.0 && std::strcmp(text, "untouched") == 0 && fields[3] == 7; }
};

enum Kind { kOfProcessing, kOfAscii, kOfTransport };
constexpr Kind kKinds[] = {kOfProcessing, kOfAscii, kOfTransport};

constexpr long kNull = -2000; // in place of a format or a scale: a NULL pointer
struct Form {
    Kind kind;
    long format, ref;
};

// The vector has the first word only, but from text to text.
struct Outcome {
    long status = 7;
    long ierr[2] = {7, 7};
    Value value;
};

// Any of the nine. A null value and an output that is not wanted are NULL arguments.
inline Outcome convert(kl_time_id *id, const Form &in, const Value *value, const Form &out, bool wanted = true)
{
    Outcome got;
    const auto or_null = [](const long &number) { return number != kNull ? &number : nullptr; };
    const auto call = [&](auto function, const auto *input, auto *output) {
        got.status = function(id, or_null(in.format), or_null(in.ref), value != nullptr ? input : nullptr,
                              or_null(out.format), or_null(out.ref), wanted ? output : nullptr, got.ierr);
    };
    const auto from = [&](const auto *input, auto to_processing, auto to_ascii, auto to_transport) {
        if (out.kind == kOfProcessing)
            call(to_processing, input, &got.value.time);
        else if (out.kind == kOfAscii)
            call(to_ascii, input, got.value.text);
        else
            call(to_transport, input, got.value.fields);
    };
    const Value &given = value != nullptr ? *value : got.value;
    if (in.kind == kOfProcessing)
        from(&given.time, kl_time_processing_to_processing, kl_time_processing_to_ascii,
             kl_time_processing_to_transport);
    else if (in.kind == kOfAscii)
        from(given.text, kl_time_ascii_to_processing, kl_time_ascii_to_ascii, kl_time_ascii_to_transport);
    else
        from(given.fields, kl_time_transport_to_processing, kl_time_transport_to_ascii, kl_time_transport_to_transport);
    return got;
}
inline Outcome convert(kl_time_id *id, const Form &in, const Value &value, const Form &out)
{
    return convert(id, in, &value, out);
}

inline std::string fields_of(const Value &value)
{
    std::string out;
    for (const long field : value.fields)
        out += (out.empty() ? "" : " ") + std::to_string(field);
    return out;
}

#endif
