// The nine conversions: known values, conditions, changes of scale, warnings, and every day there and back.
#include "support/captured_stream.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <random>
#include <utility>

namespace {

constexpr long kScales[] = {kTai, kUtc, kUt1, kGps};
constexpr long kMicrosecondsOfDay = 86400000000;

// One form of each kind.
Form plain(Kind kind, long ref)
{
    constexpr long kFormats[] = {KL_PROC, KL_ASCII_13, KL_TRANS_0};
    return {kind, kFormats[kind], ref};
}

// An instant in all plain forms, its text by the C library. Microseconds may lie on a neighbouring day.
Value instant(long day, long microseconds)
{
    const long days = microseconds < 0 ? day - 1 : day;
    const long left = microseconds - (days - day) * kMicrosecondsOfDay;
    Value value(days, left / 1000000, left % 1000000);
    value.time = static_cast<double>(days) + static_cast<double>(left) / 8.64e10;
    const std::time_t unix_time = (days + 10957) * 86400 + value.fields[1]; // 10957 days from 1970 to 2000
    std::tm utc{};
    const std::size_t n = std::strftime(value.text, sizeof value.text, "%Y-%m-%d_%H:%M:%S", gmtime_r(&unix_time, &utc));
    std::snprintf(value.text + n, sizeof value.text - n, ".%06d", static_cast<int>(value.fields[2]));
    return value;
}

void expect_equal(Kind kind, const Value &got, const Value &expected)
{
    const double two_roundings = kRounding * std::max(1.0, std::fabs(expected.time));
    if (kind == kOfProcessing)
        EXPECT_NEAR(got.time, expected.time, std::min(kSpacing2099, two_roundings));
    else if (kind == kOfAscii)
        EXPECT_STREQ(got.text, expected.text);
    else
        EXPECT_EQ(fields_of(got), fields_of(expected));
}

enum Ways { kOneWay, kBothWays };
struct ValueCase {
    const char *name;
    IdName id;
    Form from;
    Value given;
    Form to;
    Value expected;
    Ways ways;
};
const ValueCase kValues[] = {
#include "time/conversion_values.inc"
};

TEST(Conversions, KnownValues)
{
    NamedIds ids;
    for (const ValueCase &c : kValues) {
        SCOPED_TRACE(std::string(c.name) + ", format " + std::to_string(c.from.format));
        const Outcome there = convert(ids[c.id], c.from, c.given, c.to);
        EXPECT_EQ(there.status, KL_OK);
        EXPECT_EQ(there.ierr[0], 0);
        expect_equal(c.to.kind, there.value, c.expected);
        if (c.ways == kBothWays)
            expect_equal(c.from.kind, convert(ids[c.id], c.to, c.expected, c.from).value, c.given);
    }
}

constexpr long kGood = -1000; // in place of a format or a scale: a good one
constexpr Form kEvery = {kOfEveryKind, kGood, kGood};
const Value kNoon = instant(0, kMicrosecondsOfDay / 2);
const Value kNothing = [] {
    Value value;
    value.given = false;
    return value;
}();
enum { kNoOutput = -1 }; // in place of a bit: NULL for the output, of which the vector tells nothing
struct ConditionCase {
    const char *name;
    IdName id;
    Form from;
    Value given;
    Form to;
    long bit;
};
const ConditionCase kConditions[] = {
#include "time/conversion_conditions.inc"
};

// The form for one kind, and whether it means that kind.
std::pair<Form, bool> of_kind(const Form &form, Kind kind)
{
    const Form good = plain(kind, kTai);
    return {{kind, form.format == kGood ? good.format : form.format, form.ref == kGood ? good.ref : form.ref},
            form.kind == kOfEveryKind || form.kind == kind};
}

TEST(Conversions, TableOfConditions)
{
    NamedIds ids;
    for (const ConditionCase &c : kConditions) {
        for (int i = 0; i < 9; ++i) {
            const auto [in, in_meant] = of_kind(c.from, kKinds[i / 3]);
            const auto [out, out_meant] = of_kind(c.to, kKinds[i % 3]);
            if (!in_meant || !out_meant)
                continue;
            SCOPED_TRACE(std::string(c.name) + ", " + c.given.text + ", conversion " + std::to_string(i));
            const Outcome got = convert(ids[c.id], in, c.given, out, c.bit != kNoOutput);
            EXPECT_EQ(got.status, KL_ERR);
            EXPECT_EQ(got.ierr[0], c.bit >= 0 && c.bit < 32 ? error_bit(c.bit) : 0);
            EXPECT_TRUE(c.bit < 32 || got.ierr[1] == error_bit(c.bit - 32));
            EXPECT_TRUE(got.value.untouched());
        }
    }
}

// ---- warnings ----

constexpr long kOutside = KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN;
constexpr long kOutsideAndLeft = warning_bit(kOutside) | warning_bit(KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN);

// One call after the other in one time id: the condition that the call before was inside is shared by all nine.
TEST(Conversions, WarnOnceOfALeftTableAllNineTogether)
{
    for (int i = 0; i < 9; ++i) {
        NamedIds ids;
        const auto call = [&](long day) {
            const Outcome out = convert(ids[kPositiveLeap], plain(kKinds[i / 3], kUtc),
                                        instant(day, kMicrosecondsOfDay / 2), plain(kKinds[i % 3], kTai));
            EXPECT_FALSE(out.value.untouched()) << i;
            EXPECT_EQ(out.status, out.ierr[0] == 0 ? KL_OK : KL_WARN) << i;
            return out.ierr[0];
        };
        EXPECT_EQ(call(6240), kOutsideAndLeft) << i;
        EXPECT_EQ(call(6240), warning_bit(kOutside)) << i;
        EXPECT_EQ(call(6208), 0) << i;
        EXPECT_EQ(call(6240), kOutsideAndLeft) << i;
    }
}

TEST(Conversions, VerboseModePrintsTheCheckThenTheConversionAndAWarningOfEachLeg)
{
    NamedIds ids;
    const Form days = plain(kOfProcessing, kUtc);
    const Value after(6240.0);
    convert(ids[kPositiveLeap], days, after, plain(kOfProcessing, kTai)); // spends the once-only warning
    Outcome warned;
    kl_verbose();
    const std::string lines = captured_stderr([&] {
        convert(nullptr, days, -20000.5, days);
        convert(nullptr, plain(kOfAscii, kUtc), "2024", days);
        warned = convert(ids[kPositiveLeap], days, after, plain(kOfProcessing, kUt1));
    });
    kl_silent();
    EXPECT_EQ(warned.ierr[0], warning_bit(kOutside));
    const std::string warning = "ORBKIT_LIB >>> WARNING in ";
    const std::string look_up = warning + "KL_Time_ref_init_file_deltas: Reference time out of initialization range\n";
    const std::string outside = ": Time out of initialization range\n";
    const std::string of_conversion = warning + "kl_time_processing_to_processing" + outside;
    EXPECT_EQ(lines, "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (-20000)\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_processing_to_processing: Number of days out of range\n"
                     "ORBKIT_LIB >>> ERROR in KL_Time_check_ascii_inputs: Text is too short for its format\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_ascii_to_processing: Text is too short for its format\n"
                         + look_up + warning + "KL_Time_t2t_ref_to_tai" + outside + of_conversion //
                         + look_up + warning + "KL_Time_t2t_ref_from_tai" + outside + of_conversion);
}

// ---- there and back ----

// All nine agree with whole microseconds added by hand: TAI-UTC 37 s, TAI-UT1 36.4 s, TAI-GPS 19 s.
TEST(Conversions, BetweenAllScalesWithConstantDifferences)
{
    NamedIds ids;
    constexpr long kBehindTai[] = {0, 37000000, 36400000, 19000000};
    for (const long day : {-18261L, -7301L, -1L, 0L, 6210L, 36523L}) {
        for (int i = 0; i < 9 * 16; ++i) {
            const Form in = plain(kKinds[i % 3], kScales[i / 9 % 4]);
            const Form out = plain(kKinds[i / 3 % 3], kScales[i / 36]);
            SCOPED_TRACE("kind " + std::to_string(in.kind) + " to " + std::to_string(out.kind) + ", scale "
                         + std::to_string(in.ref) + " to " + std::to_string(out.ref));
            const Outcome got = convert(ids[kConstant], in, instant(day, 21500001), out);
            EXPECT_EQ(got.status, KL_OK);
            expect_equal(out.kind, got.value, instant(day, 21500001 + kBehindTai[in.ref] - kBehindTai[out.ref]));
        }
    }
}

// Texts of the C library, at a random microsecond of every day that lies in the range of all scales.
TEST(Conversions, EveryDayComesBackFromEveryForm)
{
    constexpr Form kForms[] = {
        {kOfProcessing, 0, kTai}, {kOfProcessing, 0, kUtc}, {kOfProcessing, 0, kUt1}, {kOfProcessing, 0, kGps},
        {kOfAscii, 14, kTai},     {kOfAscii, 23, kUtc},     {kOfAscii, 24, kUt1},     {kOfAscii, 33, kGps},
        {kOfAscii, 34, kTai},     {kOfAscii, 43, kUtc},     {kOfAscii, 44, kUt1},     {kOfAscii, 53, kGps},
        {kOfAscii, 54, kTai},     {kOfTransport, 11, kUtc}, {kOfTransport, 21, kUt1}, {kOfTransport, 22, kGps},
        {kOfTransport, 23, kTai}, {kOfTransport, 41, kGps}, {kOfTransport, 42, kGps},
    };
    const Form text = plain(kOfAscii, kUtc);
    const Form steps = {kOfTransport, KL_TRANS_31, kGps}; // of 2^-16 s
    NamedIds ids;
    std::mt19937_64 random(31);
    std::uniform_int_distribution<long> microseconds(0, kMicrosecondsOfDay - 1);
    for (long day = -18261; day <= 36523 && !HasFailure(); ++day) {
        const Value value = instant(day, microseconds(random));
        const auto change = [&](const Form &from, const Value &given, const Form &to) {
            return convert(ids[kConstant], from, given, to).value;
        };
        expect_equal(kOfTransport, change(text, value, plain(kOfTransport, kUtc)), value);
        for (const Form &form : kForms)
            EXPECT_STREQ(change(form, change(text, value, form), text).text, value.text) << form.format;
        const Value there = change(text, value, steps);
        const Value back = change(steps, there, text);
        expect_equal(kOfTransport, change(text, back, steps), there);
        EXPECT_NEAR(change(text, back, plain(kOfProcessing, kUtc)).time, value.time, 8.5 * kMicrosecond);
    }
}

} // namespace
