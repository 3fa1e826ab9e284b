// The nine conversions: known values, conditions, changes of scale, warnings, and every day there and back.
#include "support/captured_stream.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <random>

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

// ---- conditions ----

constexpr Form kEvery = {kOfProcessing, kNull, kNull};
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

TEST(Conversions, TableOfConditions)
{
    NamedIds ids;
    for (const ConditionCase &c : kConditions) {
        for (const Kind kind : kKinds) {
            const bool every = c.to.format == kNull;
            if (!every && c.to.kind != kind)
                continue;
            SCOPED_TRACE(std::string(c.name) + " " + c.given.text + " to kind " + std::to_string(kind));
            const Outcome out = convert(ids[c.id], c.from, c.given, every ? plain(kind, kTai) : c.to);
            EXPECT_EQ(out.status, KL_ERR);
            EXPECT_EQ(out.ierr[c.bit / 32], error_bit(c.bit % 32));
            EXPECT_TRUE(c.bit < 32 || out.ierr[0] == 0);
            EXPECT_TRUE(out.value.untouched());
        }
    }
}

constexpr long kGood = -1000; // in place of a format or a scale: a good one
struct ArgumentCase {
    const char *name;
    long format_in, ref_in, format_out, ref_out;
    long bit;
};
// The same bits in all nine: the first conditions have the same numbers everywhere.
constexpr ArgumentCase kArguments[] = {
#include "time/conversion_arguments.inc"
};

TEST(Conversions, TableOfArguments)
{
    const auto form = [](const Form &good, long format, long ref) {
        return Form{good.kind, format == kGood ? good.format : format, ref == kGood ? good.ref : ref};
    };
    const Value noon = instant(0, kMicrosecondsOfDay / 2);
    kl_time_id empty{};
    for (int i = 0; i < 9; ++i) {
        const Form in = plain(kKinds[i / 3], kTai);
        const Form out = plain(kKinds[i % 3], kTai);
        for (const ArgumentCase &c : kArguments) {
            for (kl_time_id *id : {&empty, static_cast<kl_time_id *>(nullptr)}) {
                const Outcome got =
                    convert(id, form(in, c.format_in, c.ref_in), noon, form(out, c.format_out, c.ref_out));
                EXPECT_EQ(got.status, KL_ERR) << i << ", " << c.name;
                EXPECT_EQ(got.ierr[0], error_bit(c.bit)) << i << ", " << c.name;
                EXPECT_TRUE(got.value.untouched()) << i << ", " << c.name;
            }
        }
        const Outcome no_input = convert(nullptr, in, nullptr, out);
        const long bit = in.kind == kOfAscii ? long{KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR}
                                             : long{KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR};
        EXPECT_EQ(no_input.ierr[0], error_bit(bit)) << i;
        const Outcome no_output = convert(nullptr, in, &noon, out, false);
        EXPECT_EQ(no_output.status, KL_ERR) << i;
        EXPECT_EQ(no_output.ierr[0], 0) << i;
    }
}

TEST(Conversions, VerboseModePrintsTheCheckAndThenTheConversion)
{
    kl_verbose();
    const std::string lines = captured_stderr([] {
        convert(nullptr, plain(kOfProcessing, kTai), -20000.5, plain(kOfProcessing, kTai));
        convert(nullptr, plain(kOfAscii, kTai), "2024", plain(kOfProcessing, kTai));
    });
    kl_silent();
    EXPECT_EQ(lines, "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (-20000)\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_processing_to_processing: Number of days out of range\n"
                     "ORBKIT_LIB >>> ERROR in KL_Time_check_ascii_inputs: Text is too short for its format\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_ascii_to_processing: Text is too short for its format\n");
}

// ---- warnings ----

constexpr long kOutside = KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN;
constexpr long kOutsideAndLeft = warning_bit(kOutside) | warning_bit(KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN);

// One call after the other in one time id: the condition that the call before was inside is shared by all nine.
TEST(Conversions, WarnOnceOfALeftTableAllNineTogether)
{
    for (int i = 0; i < 9; ++i) {
        LeapId table(1);
        const auto call = [&](long day) {
            const Outcome out = convert(&table.id, plain(kKinds[i / 3], kUtc), instant(day, kMicrosecondsOfDay / 2),
                                        plain(kKinds[i % 3], kTai));
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

TEST(Conversions, WarningsOnBothLegsAreTwoLinesAndOneBit)
{
    LeapId table(1);
    const Value after(6240.0);
    const Form utc = plain(kOfProcessing, kUtc);
    convert(&table.id, utc, after, plain(kOfProcessing, kTai)); // spends the once-only one
    kl_verbose();
    Outcome out;
    const std::string lines =
        captured_stderr([&] { out = convert(&table.id, utc, after, plain(kOfProcessing, kUt1)); });
    kl_silent();
    EXPECT_EQ(out.ierr[0], warning_bit(kOutside));
    const std::string line =
        "ORBKIT_LIB >>> WARNING in kl_time_processing_to_processing: Time out of initialization range\n";
    const std::size_t first = lines.find(line);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(lines.find(line, first + 1), std::string::npos);
}

// ---- there and back ----

// All nine agree with whole microseconds added by hand: TAI-UTC 37 s, TAI-UT1 36.4 s, TAI-GPS 19 s.
TEST(Conversions, BetweenAllScalesWithConstantDifferences)
{
    ConstantId constant;
    constexpr long kBehindTai[] = {0, 37000000, 36400000, 19000000};
    for (const long day : {-18261L, -7301L, -1L, 0L, 6210L, 36523L}) {
        for (int i = 0; i < 9 * 16; ++i) {
            const Form in = plain(kKinds[i % 3], kScales[i / 9 % 4]);
            const Form out = plain(kKinds[i / 3 % 3], kScales[i / 36]);
            SCOPED_TRACE("kind " + std::to_string(in.kind) + " to " + std::to_string(out.kind) + ", scale "
                         + std::to_string(in.ref) + " to " + std::to_string(out.ref));
            const Outcome got = convert(&constant.id, in, instant(day, 21500001), out);
            EXPECT_EQ(got.status, KL_OK);
            expect_equal(out.kind, got.value, instant(day, 21500001 + kBehindTai[in.ref] - kBehindTai[out.ref]));
        }
    }
}

// Every day of the range at a random microsecond.
template <typename Each>
void for_every_day(Each each)
{
    std::mt19937_64 random(31);
    std::uniform_int_distribution<long> microseconds(0, kMicrosecondsOfDay - 1);
    for (long day = -18262; day <= 36524 && !testing::Test::HasFailure(); ++day)
        each(instant(day, microseconds(random)));
}

TEST(Conversions, EveryDayThroughEveryTextWithMicroseconds)
{
    for_every_day([](const Value &value) {
        Form form = {kOfAscii, 13, kUtc};
        Value text = value;
        for (const long next : {14, 23, 24, 33, 34, 43, 44, 53, 54, 13}) {
            const Form before = form;
            form.format = next;
            text = convert(nullptr, before, text, form).value;
        }
        EXPECT_STREQ(text.text, value.text);
        expect_equal(kOfTransport, convert(nullptr, form, text, plain(kOfTransport, kUtc)).value, value);
    });
}

// Format 31 in its own steps of 2^-16 s.
TEST(Conversions, EveryDayThroughEveryTransportFormat)
{
    for_every_day([](const Value &value) {
        const Form standard = plain(kOfTransport, kGps);
        for (const long format : {11, 21, 22, 23, 31, 41, 42}) {
            const Form form = {kOfTransport, format, kGps};
            const Value there = convert(nullptr, standard, value, form).value;
            Value back = convert(nullptr, form, there, standard).value;
            if (format == 31) {
                expect_equal(kOfTransport, convert(nullptr, standard, back, form).value, there);
                const long moved = (back.fields[0] - value.fields[0]) * kMicrosecondsOfDay
                                   + (back.fields[1] - value.fields[1]) * 1000000 + back.fields[2] - value.fields[2];
                EXPECT_LE(std::labs(moved), 8);
            } else {
                expect_equal(kOfTransport, back, value);
            }
        }
    });
}

TEST(Conversions, EveryDayThroughDaysOfEveryScale)
{
    ConstantId constant;
    for_every_day([&](const Value &value) {
        if (value.fields[0] == -18262 || value.fields[0] >= 36524)
            return; // not in every scale
        for (const long ref : kScales) {
            const Form days = plain(kOfProcessing, ref);
            const Value there = convert(&constant.id, plain(kOfAscii, kUtc), value, days).value;
            EXPECT_STREQ(convert(&constant.id, days, there, plain(kOfAscii, kUtc)).value.text, value.text);
        }
    });
}

} // namespace
