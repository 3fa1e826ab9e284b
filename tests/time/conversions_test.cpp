// What the nine conversions share: conditions of their arguments, changes of scale, once-only warnings.
#include "kl_family.h"
#include "support/captured_stream.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr Kind kKinds[] = {kOfProcessing, kOfAscii, kOfTransport};
constexpr long kFormats[] = {KL_PROC, KL_ASCII_13, KL_TRANS_0};
constexpr long kScales[] = {KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1, KL_TIME_GPS};

// An instant in all kinds, written by the microsecond of a day.
Value instant(long day, long seconds, long microseconds)
{
    Value value(day, seconds, microseconds);
    value.time =
        static_cast<double>(day) + static_cast<double>(seconds) / 86400.0 + static_cast<double>(microseconds) / 8.64e10;
    long format = KL_TRANS_0;
    long text_format = KL_ASCII_13;
    long scale = KL_TIME_TAI;
    kl_time_transport_to_ascii(nullptr, &format, &scale, value.fields, &text_format, &scale, value.text, nullptr);
    return value;
}

// Calls `each` for every pair of kinds, with a name for messages.
template <typename Each>
void for_all_nine(Each each)
{
    for (const Kind from : kKinds)
        for (const Kind to : kKinds)
            each(from, to, std::string(kKindNames[from]) + " to " + kKindNames[to]);
}

// ---- arguments ----

struct ArgumentCase {
    const char *name;
    long format_in, ref_in, format_out, ref_out; // kGood: as it should be; kNull: NULL
    long bit;
};
constexpr long kGood = -1000;
constexpr long kNull = -2000;
// The same bits in all nine: the first conditions have the same numbers everywhere.
constexpr ArgumentCase kArguments[] = {
    {"input format", 99, kGood, kGood, kGood, KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR},
    {"input format NULL", kNull, kGood, kGood, kGood, KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR},
    {"input scale", kGood, 4, kGood, kGood, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR},
    {"input scale", kGood, -2, kGood, kGood, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR},
    {"input scale NULL", kGood, kNull, kGood, kGood, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR},
    {"output format", kGood, kGood, 99, kGood, KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR},
    {"output format NULL", kGood, kGood, kNull, kGood, KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR},
    {"output scale", kGood, kGood, kGood, 4, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR},
    {"output scale open", kGood, kGood, kGood, KL_TIME_UNDEF, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR},
    {"output scale NULL", kGood, kGood, kGood, kNull, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR},
    {"all wrong: the first ends the call", 99, 99, 99, 99, KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR},
    {"input before output", kGood, 99, 99, 99, KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR},
    {"no time id", kGood, KL_TIME_UTC, kGood, KL_TIME_TAI, KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR},
    {"no time id", kGood, KL_TIME_TAI, kGood, KL_TIME_UT1, KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR},
};

const long *pick(long given, const long *good)
{
    static long slots[4];
    static int next = 0;
    if (given == kGood || given == kNull)
        return given == kGood ? good : nullptr;
    long *slot = &slots[next++ % 4];
    *slot = given;
    return slot;
}

TEST(Conversions, TableOfArguments)
{
    const Value good = instant(0, 43200, 0);
    const long tai = KL_TIME_TAI;
    kl_time_id empty{};
    for_all_nine([&](Kind from, Kind to, const std::string &name) {
        for (const ArgumentCase &c : kArguments) {
            const Side in = {from, pick(c.format_in, &kFormats[from]), pick(c.ref_in, &tai), &good};
            const Side out = {to, pick(c.format_out, &kFormats[to]), pick(c.ref_out, &tai), nullptr};
            Value result;
            for (kl_time_id *id : {&empty, static_cast<kl_time_id *>(nullptr)}) {
                long ierr[2] = {7, 7};
                EXPECT_EQ(convert(id, in, out, &result, ierr), KL_ERR) << name << ", " << c.name;
                EXPECT_EQ(ierr[0], error_bit(c.bit)) << name << ", " << c.name;
                EXPECT_TRUE(result.untouched()) << name << ", " << c.name;
                EXPECT_EQ(convert(id, in, out, &result, nullptr), KL_ERR) << name << ", " << c.name;
            }
        }
    });
}

TEST(Conversions, NullInputsAndOutputs)
{
    const Value good = instant(0, 43200, 0);
    const long tai = KL_TIME_TAI;
    for_all_nine([&](Kind from, Kind to, const std::string &name) {
        const Side out = {to, &kFormats[to], &tai, nullptr};
        Value result;
        long ierr[2] = {7, 7};
        EXPECT_EQ(convert(nullptr, {from, &kFormats[from], &tai, nullptr}, out, &result, ierr), KL_ERR) << name;
        const long bit = from == kOfAscii ? long{KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR}
                                          : long{KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR};
        EXPECT_EQ(ierr[0], error_bit(bit)) << name;
        EXPECT_EQ(convert(nullptr, {from, &kFormats[from], &tai, &good}, out, nullptr, ierr), KL_ERR) << name;
        EXPECT_EQ(ierr[0], 0) << name;
    });
}

TEST(Conversions, OutputFormatsOfGpsTimeNeedIt)
{
    ExplicitId values;
    const Value good = instant(0, 43200, 0);
    for (const Kind from : kKinds) {
        for (const long format : {KL_TRANS_41, KL_TRANS_42}) {
            const auto to = [&](long ref) {
                return convert(&values.id, from, kFormats[from], KL_TIME_TAI, good, kOfTransport, format, ref);
            };
            EXPECT_EQ(to(KL_TIME_UTC).ierr[0], error_bit(KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_OUT_ERR));
            EXPECT_EQ(to(KL_TIME_GPS).status, KL_OK);
        }
    }
}

TEST(Conversions, ProcessingTimesOutOfRange)
{
    const double inf = std::numeric_limits<double>::infinity();
    for (const Kind to : kKinds) {
        for (const double time : {-18262.0000001, 36524.0000001, inf, -inf, std::nan(""), 1e300}) {
            const Outcome out =
                convert(nullptr, kOfProcessing, KL_PROC, KL_TIME_TAI, Value(time), to, kFormats[to], KL_TIME_TAI);
            EXPECT_EQ(out.status, KL_ERR) << time;
            EXPECT_EQ(out.ierr[0], error_bit(KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR)) << time;
            EXPECT_TRUE(out.value.untouched()) << time;
        }
    }
}

TEST(Conversions, VerboseModePrintsTheCheckAndThenTheConversion)
{
    kl_verbose();
    const std::string lines = captured_stderr([] {
        convert(nullptr, kOfProcessing, KL_PROC, KL_TIME_TAI, Value(-20000.5), kOfProcessing, KL_PROC, KL_TIME_TAI);
        convert(nullptr, kOfAscii, KL_ASCII_11, KL_TIME_TAI, Value("2024"), kOfProcessing, KL_PROC, KL_TIME_TAI);
    });
    kl_silent();
    EXPECT_EQ(lines, "ORBKIT_LIB >>> ERROR in KL_Time_check_processing_inputs: Number of days out of range (-20000)\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_processing_to_processing: Number of days out of range\n"
                     "ORBKIT_LIB >>> ERROR in KL_Time_check_ascii_inputs: Text is too short for its format\n"
                     "ORBKIT_LIB >>> ERROR in kl_time_ascii_to_processing: Text is too short for its format\n");
}

// ---- scales ----

// All nine agree with whole microseconds added by hand: TAI-UTC 37 s, TAI-UT1 36.4 s, TAI-GPS 19 s.
TEST(Conversions, BetweenAllScalesWithConstantDifferences)
{
    ExplicitId values;
    constexpr long kBehindTai[] = {0, 37000000, 36400000, 19000000};
    for (const long day : {-18261L, -7301L, -1L, 0L, 6210L, 36523L}) {
        for (const long from_scale : kScales) {
            for (const long to_scale : kScales) {
                const Value in = instant(day, 21, 500001);
                const long microseconds = 21500001 + kBehindTai[from_scale] - kBehindTai[to_scale];
                const Value expected = microseconds >= 0 ? instant(day, microseconds / 1000000, microseconds % 1000000)
                                                         : instant(day - 1, 86399 - (-microseconds - 1) / 1000000,
                                                                   999999 - (-microseconds - 1) % 1000000);
                for_all_nine([&](Kind from, Kind to, const std::string &name) {
                    const Outcome out =
                        convert(&values.id, from, kFormats[from], from_scale, in, to, kFormats[to], to_scale);
                    EXPECT_EQ(out.status, KL_OK) << name;
                    if (to == kOfProcessing)
                        EXPECT_NEAR(out.value.time, expected.time, kSpacing2099) << name << day;
                    else if (to == kOfAscii)
                        EXPECT_STREQ(out.value.text, expected.text) << name << from_scale << to_scale;
                    else
                        EXPECT_EQ(fields_of(out.value), fields_of(expected)) << name << from_scale << to_scale;
                });
            }
        }
    }
}

TEST(ProcessingToProcessing, EqualScalesRoundToTheMicrosecondAndNeedNoId)
{
    for (const long scale : kScales) {
        const double day = 1.0 + 1234.4 * kMicrosecond;
        const Converted out = convert(nullptr, scale, day, scale);
        EXPECT_EQ(out.status, KL_OK);
        EXPECT_NEAR(out.time, 1.0 + 1234.0 * kMicrosecond, kRounding);
        for (const double limit : {-18262.0, 36524.0})
            EXPECT_EQ(convert(nullptr, scale, limit, scale).time, limit);
    }
}

TEST(ProcessingToProcessing, TheResultIsNotCheckedAgainstTheRange)
{
    ExplicitId values;
    const Converted out = convert(&values.id, KL_TIME_TAI, -18262.0, KL_TIME_UTC);
    EXPECT_EQ(out.status, KL_OK);
    EXPECT_NEAR(out.time, -18262.0 - 37.0 / kDay, kSpacing2099);
}

// ---- warnings ----

constexpr double kInside = k2017 - 1.5;
constexpr double kAfter = k2017 + 30.0;

constexpr long kOutside = KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN;
constexpr long kOutsideAndLeft = warning_bit(kOutside) | warning_bit(KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN);

// One call after the other in one time id: the condition that the call before was inside is shared by all nine.
TEST(Warnings, AreGivenOnceByAllNineTogether)
{
    for_all_nine([](Kind from, Kind to, const std::string &name) {
        LeapId table(1);
        const auto call = [&](double day) {
            const Value in = instant(static_cast<long>(day), 43200, 0);
            const Outcome out =
                convert(&table.id, from, kFormats[from], KL_TIME_UTC, in, to, kFormats[to], KL_TIME_TAI);
            EXPECT_FALSE(out.value.untouched()) << name;
            EXPECT_EQ(out.status, out.ierr[0] == 0 ? KL_OK : KL_WARN) << name;
            return out.ierr[0];
        };
        EXPECT_EQ(call(kAfter), kOutsideAndLeft) << name;
        EXPECT_EQ(call(kAfter), warning_bit(kOutside)) << name;
        EXPECT_EQ(call(kInside), 0) << name;
        EXPECT_EQ(call(kAfter), kOutsideAndLeft) << name;
    });
}

TEST(Warnings, OnBothLegsAreTwoLinesAndOneBit)
{
    LeapId table(1);
    convert(&table.id, KL_TIME_UTC, kAfter, KL_TIME_TAI); // spends the once-only one
    kl_verbose();
    long ierr = 0;
    const std::string lines =
        captured_stderr([&] { ierr = convert(&table.id, KL_TIME_UTC, kAfter, KL_TIME_UT1).ierr; });
    kl_silent();
    EXPECT_EQ(ierr, warning_bit(kOutside));
    const std::string line =
        "ORBKIT_LIB >>> WARNING in kl_time_processing_to_processing: Time out of initialization range\n";
    const std::size_t first = lines.find(line);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(lines.find(line, first + 1), std::string::npos);
}

} // namespace
