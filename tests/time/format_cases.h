// The nine conversions behind one call, the time ids that the rows of all tables name, and rows of calls.
#ifndef KL_TESTS_TIME_FORMAT_CASES_H
#define KL_TESTS_TIME_FORMAT_CASES_H

#include "support/csv.h"
#include "time/time_table.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kUt1 = KL_TIME_UT1;
constexpr long kGps = KL_TIME_GPS;
constexpr long kScales[] = {kTai, kUtc, kUt1, kGps}, kWholeScales[] = {kTai, kUtc, kGps};

// A scale by its name, or any number in its place.
struct Scale {
    long ref;
    operator long() const { return ref; }
};
template <>
inline Scale cell_as(const std::string &cell)
{
    const char *const names[] = {"TAI", "UTC", "UT1", "GPS"};
    for (const long ref : kScales)
        if (cell == names[ref])
            return {ref};
    return {cell_as<long>(cell)};
}

constexpr long kLeapDay = 6209; // 2016-12-31, MJD2000

struct TaiUtcStep {
    double mjd, tai_utc;
};
// The first day of each value of TAI-UTC since 1972, as the IERS publishes them: MJD, day, month, year, seconds.
inline const std::vector<TaiUtcStep> kTaiUtcSteps = [] {
    std::vector<TaiUtcStep> steps;
    std::ifstream file("tests/data/Leap_Second.dat");
    for (std::string line; std::getline(file, line);) {
        TaiUtcStep step{};
        if (line[0] != '#' && std::sscanf(line.c_str(), "%lf %*d %*d %*d %lf", &step.mjd, &step.tai_utc) == 2)
            steps.push_back(step);
    }
    EXPECT_EQ(steps.size(), 28U);
    return steps;
}();

// Format; an instant in it; beginning and end of the mission, and the last second of 9999.
struct FormatCase {
    long format;
    std::string text, beginning, end, end_of_9999;
};
inline const std::vector<FormatCase> kFormats = [] {
    std::vector<FormatCase> formats;
    for (const auto &[format, text, beginning, end, last] :
         read_rows<long, std::string, std::string, std::string, std::string>("time_formats.csv"))
        formats.push_back({format, text, beginning, end, last});
    return formats;
}();

enum IdName { kNoId, kEmpty, kPositiveLeap, kNegativeLeap, kEven, kTenDays, kOpenEnd, kConstant };
template <>
inline IdName cell_as(const std::string &cell)
{
    return one_of<IdName>(
        cell, {"none", "empty", "positive leap", "negative leap", "even", "ten days", "open end", "constant"});
}

// Daily rows around 2017-01-01 with TAI-UTC 36 s before it and a second more, less or the same from then on; ten days
// and no more, and ten days that are never left; TAI-UTC 37 s, TAI-UT1 36.4 s and TAI-GPS 19 s at every instant.
struct NamedIds {
    OwnedTimeId empty;
    TableId positive{leap_table(k2017, 36.0, 1)}, negative{leap_table(k2017, 36.0, -1)},
        even{leap_table(k2017, 36.0, 0)};
    TableId of_ten_days{ten_days()}, open_end{ten_days(8, 0)};
    ReadingsId constant{37.0, 0.0, 0.6, 18.0};

    kl_time_id *operator[](IdName name)
    {
        kl_time_id *const ids[] = {nullptr, empty, positive, negative, even, of_ten_days, open_end, constant};
        return ids[name];
    }
};

// The address of a value, for as long as the call lasts that it stands in.
template <typename T>
const T *at(const T &value)
{
    return &value;
}

// A call that leaves one code in its error record, or none, and its message ("" is not looked at).
template <typename Call>
void expect_record(const char *name, long code, const std::string &text, const Call &call)
{
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    long n = 0;
    kl_error_record record;
    EXPECT_EQ(call(&record), code == kNone ? KL_OK : text.rfind("WARNING", 0) == 0 ? KL_WARN : KL_ERR) << name;
    KL_Err_Msg(&record, &n, messages);
    EXPECT_EQ(n, code == kNone ? 0 : 1) << name;
    EXPECT_EQ((record.function_id == -1), code == kNone) << name;
    EXPECT_TRUE(code == kNone || record.codes[0] == code) << name << " gives code " << record.codes[0];
    EXPECT_TRUE(text.empty() || "ORBKIT_LIB >>> " + text == messages[0]) << name << " says " << messages[0];
}
#define RECORDS(code, text, ...)                                                                                       \
    expect_record(#__VA_ARGS__, code, text, [&](kl_error_record *e) { return __VA_ARGS__; });

// An instant in one of the three kinds; the other two members are not looked at.
struct Value {
    double time = 7.0;
    char text[KL_TIME_ASCII_LENGTH] = "untouched";
    long fields[KL_TRANSPORT_LENGTH] = {7, 7, 7, 7};

    Value() = default;
    Value(double days) : time(days) {}
    Value(const char *written) : Value(std::string(written)) {}
    Value(const std::string &written) { text[written.copy(text, sizeof text - 1)] = 0; }
    Value(long a, long b, long c, long d = 0) : fields{a, b, c, d} {}
    bool untouched() const { return time == 7.0 && std::strcmp(text, "untouched") == 0 && fields[3] == 7; }
};

constexpr long kSecond = 1000000, kMicrosecondsOfDay = 86400 * kSecond; // us

// An instant in all plain forms, its text by the C library. Microseconds may lie on a neighbouring day.
inline Value instant(long day, long microseconds)
{
    const long days = microseconds < 0 ? day - 1 : day;
    const long left = microseconds - (days - day) * kMicrosecondsOfDay;
    Value value(days, left / kSecond, left % kSecond);
    value.time = static_cast<double>(days) + static_cast<double>(left) / 8.64e10;
    const std::time_t unix_time = (days + 10957) * 86400 + value.fields[1]; // 10957 days from 1970 to 2000
    std::tm utc{};
    const std::size_t n = std::strftime(value.text, sizeof value.text, "%Y-%m-%d_%H:%M:%S", gmtime_r(&unix_time, &utc));
    std::snprintf(value.text + n, sizeof value.text - n, ".%06d", static_cast<int>(value.fields[2]));
    return value;
}

enum Kind { kOfProcessing, kOfAscii, kOfTransport, kOfEveryKind };
constexpr Kind kKinds[] = {kOfProcessing, kOfAscii, kOfTransport};

struct Form {
    Kind kind;
    long format, ref;
};

constexpr long kGood = -1000; // in place of a format or a scale: a good one

// Kind, format, scale.
template <>
inline Form cell_as(const std::string &cell)
{
    const std::vector<std::string> words = parts_of(cell, ' ');
    return {one_of<Kind>(words.at(0), {"days", "text", "fields", "every"}),
            words.at(1) == "good" ? kGood : cell_as<long>(words.at(1)),
            words.at(2) == "good" ? kGood : cell_as<Scale>(words.at(2)).ref};
}

// An instant as a form has it; noon is the same in every kind.
inline Value value_as(Kind kind, const std::string &cell)
{
    if (cell == "noon")
        return instant(0, kMicrosecondsOfDay / 2);
    if (kind == kOfProcessing)
        return cell_as<double>(cell);
    if (kind == kOfAscii)
        return cell;
    std::vector<long> fields = cells_as<long>(cell);
    const bool four = fields.size() == 4;
    fields.resize(4);
    return {fields[0], fields[1], fields[2], four ? fields[3] : 0};
}

// One form of each kind.
inline Form plain(Kind kind, long ref)
{
    constexpr long kPlainFormats[] = {KL_PROC, KL_ASCII_13, KL_TRANS_0};
    return {kind, kPlainFormats[kind], ref};
}

// The vector has the first word only, but from text to text.
struct Outcome {
    long status = 7;
    long ierr[2] = {7, 7};
    Value value;
};

// Any of the nine.
inline Outcome convert(kl_time_id *id, const Form &in, const Value &value, const Form &out)
{
    Outcome got;
    const auto from = [&](const auto *input, auto to_processing, auto to_ascii, auto to_transport) {
        const auto call = [&](auto function, auto *output) {
            got.status = function(id, &in.format, &in.ref, input, &out.format, &out.ref, output, got.ierr);
        };
        if (out.kind == kOfProcessing)
            call(to_processing, &got.value.time);
        else if (out.kind == kOfAscii)
            call(to_ascii, got.value.text);
        else
            call(to_transport, got.value.fields);
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

// The look-up of the differences, and its codes, a bit each.
struct Deltas {
    long status = 7, codes = 0;
    double tai_utc = 7.0, tai_ut1 = 7.0, tai_gps = 7.0;
    long in_leap = 7, after_leap = 7;

    Deltas(kl_time_id *id, long ref, double time)
    {
        kl_error_record error;
        status =
            KL_Time_ref_init_file_deltas(id, &time, &ref, &tai_utc, &tai_ut1, &tai_gps, &in_leap, &after_leap, &error);
        for (int i = 0; i < error.count; ++i)
            codes |= 1L << error.codes[i];
    }
};

inline std::string fields_of(const Value &value)
{
    std::string out;
    for (const long field : value.fields)
        out += (out.empty() ? "" : " ") + std::to_string(field);
    return out;
}

#endif
