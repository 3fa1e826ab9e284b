// The nine conversions behind one call, and the time ids that the rows of their tables name.
#ifndef KL_TESTS_TIME_FORMAT_CASES_H
#define KL_TESTS_TIME_FORMAT_CASES_H

#include "time/time_table.h"

#include <cstddef>
#include <cstring>
#include <string>

constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kUt1 = KL_TIME_UT1;
constexpr long kGps = KL_TIME_GPS;
constexpr long kLeapDay = 6209; // 2016-12-31, MJD2000

enum IdName { kNoId, kEmpty, kPositiveLeap, kNegativeLeap, kConstant };

// Daily rows around 2017-01-01 with TAI-UTC 36 s before it and a second more or less from then on; and TAI-UTC 37 s,
// TAI-UT1 36.4 s and TAI-GPS 19 s at every instant.
struct NamedIds {
    OwnedTimeId empty, positive, negative, constant;

    NamedIds()
    {
        const double tai = 6300.0;
        const double readings[4] = {tai, tai - 37.0 / kDay, tai - 36.4 / kDay, tai - 19.0 / kDay};
        EXPECT_EQ(leap_table(k2017, 36.0, 1).set(&positive.id), 0);
        EXPECT_EQ(leap_table(k2017, 36.0, -1).set(&negative.id), 0);
        EXPECT_EQ(kl_time_ref_init(readings, nullptr, nullptr, nullptr, &constant.id, nullptr), KL_OK);
    }
    kl_time_id *operator[](IdName name)
    {
        kl_time_id *const ids[] = {nullptr, &empty.id, &positive.id, &negative.id, &constant.id};
        return ids[name];
    }
};

// That a record holds one error of a function, or nothing where the text is empty.
inline void expect_error(const kl_error_record &record, const std::string &function, const std::string &text)
{
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    long n = 0;
    KL_Err_Msg(&record, &n, messages);
    EXPECT_EQ(n, text.empty() ? 0 : 1);
    EXPECT_EQ(n == 1 ? messages[0] : "", text.empty() ? "" : "ORBKIT_LIB >>> ERROR in " + function + ": " + text);
}

// An instant in one of the three kinds; the other two members are not looked at.
struct Value {
    double time = 7.0;
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    long fields[KL_TRANSPORT_LENGTH] = {7, 7, 7, 7};
    bool given = true;

    Value() = default;
    Value(double days) : time(days) {}
    Value(const char *written) { std::memcpy(text, written, strnlen(written, sizeof text - 1) + 1); }
    Value(std::nullptr_t) : given(false) {} // a NULL argument
    Value(long a, long b, long c, long d = 0) : fields{a, b, c, d} {}
    bool untouched() const { return time == 7.0 && std::strcmp(text, "untouched") == 0 && fields[3] == 7; }
};

enum Kind { kOfProcessing, kOfAscii, kOfTransport, kOfEveryKind };
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

// Any of the nine.
inline Outcome convert(kl_time_id *id, const Form &in, const Value &value, const Form &out, bool output_given = true)
{
    Outcome got;
    const auto or_null = [](const long &number) { return number != kNull ? &number : nullptr; };
    const auto call = [&](auto function, const auto *input, auto *output) {
        got.status = function(id, or_null(in.format), or_null(in.ref), value.given ? input : nullptr,
                              or_null(out.format), or_null(out.ref), output_given ? output : nullptr, got.ierr);
    };
    const auto from = [&](const auto *input, auto to_processing, auto to_ascii, auto to_transport) {
        if (out.kind == kOfProcessing)
            call(to_processing, input, &got.value.time);
        else if (out.kind == kOfAscii)
            call(to_ascii, input, got.value.text);
        else
            call(to_transport, input, got.value.fields);
    };
    if (in.kind == kOfProcessing)
        from(&value.time, kl_time_processing_to_processing, kl_time_processing_to_ascii,
             kl_time_processing_to_transport);
    else if (in.kind == kOfAscii)
        from(value.text, kl_time_ascii_to_processing, kl_time_ascii_to_ascii, kl_time_ascii_to_transport);
    else
        from(value.fields, kl_time_transport_to_processing, kl_time_transport_to_ascii, kl_time_transport_to_transport);
    return got;
}

inline std::string fields_of(const Value &value)
{
    std::string out;
    for (const long field : value.fields)
        out += (out.empty() ? "" : " ") + std::to_string(field);
    return out;
}

#endif
