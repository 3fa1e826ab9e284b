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

// Public ids by kinds in and out.
constexpr long kPublicIds[3][3] = {
    {KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING, KL_ID_FUNC_TIME_PROCESSING_TO_ASCII,
     KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT},
    {KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, KL_ID_FUNC_TIME_ASCII_TO_ASCII, KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT},
    {KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING, KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII,
     KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT},
};

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

// Every condition has a text under the name of its function, as a warning where its name says so.
TEST(Conversions, EveryConditionHasAText)
{
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    constexpr int kCodes[3][3] = {{11, 13, 11}, {27, 29, 27}, {19, 21, 19}};
    for_all_nine([&](Kind from, Kind to, const std::string &name) {
        const long vector[2] = {(1L << (kCodes[from][to] < 27 ? kCodes[from][to] : 27)) - 1,
                                kCodes[from][to] == 29 ? 3 : 0};
        long n = 0;
        ASSERT_EQ(kl_get_msg(&kPublicIds[from][to], vector, &n, messages), 0) << name;
        ASSERT_EQ(n, kCodes[from][to]) << name;
        const std::string function = std::string("kl_time_") + kKindNames[from] + "_to_" + kKindNames[to] + ": ";
        for (long code = 0; code < n; ++code) {
            const bool is_warning = code >= KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN
                                    && code <= KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN;
            const std::string opening = std::string("ORBKIT_LIB >>> ") + (is_warning ? "WARNING in " : "ERROR in ");
            const std::string text = messages[code];
            EXPECT_EQ(text.substr(0, opening.size() + function.size()), opening + function) << code;
            EXPECT_GT(text.size(), opening.size() + function.size() + 10) << code;
        }
    });
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

TEST(ProcessingToProcessing, AnEmptyIdFailsOnTheFirstLegOrTheSecond)
{
    for (const auto &[from, to] : {std::pair(KL_TIME_UTC, KL_TIME_TAI), std::pair(KL_TIME_TAI, KL_TIME_UTC)}) {
        const Converted out = convert(nullptr, from, 0.0, to);
        EXPECT_EQ(out.status, KL_ERR);
        EXPECT_EQ(out.ierr, error_bit(KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR));
    }
}

// ---- warnings ----

constexpr double kInside = k2017 - 1.5;
constexpr double kAfter = k2017 + 30.0;

long warnings(std::initializer_list<long> bits)
{
    long word = bits.size() != 0 ? 1L << 30 : 0;
    for (const long bit : bits)
        word |= 1L << bit;
    return word;
}

constexpr long kOutside = KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN;
constexpr long kByFormula = KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN;
constexpr long kGap = KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_B_A_WARN;
constexpr long kValidity = KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN;

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
        EXPECT_EQ(call(kAfter), warnings({kOutside, kValidity})) << name;
        EXPECT_EQ(call(kAfter), warnings({kOutside})) << name;
        EXPECT_EQ(call(kInside), 0) << name;
        EXPECT_EQ(call(kAfter), warnings({kOutside, kValidity})) << name;
    });
}

TEST(Warnings, OfTheFormulaAndOfTheGapBetweenBulletins)
{
    Table bulletins = leap_table(k2017, 36.0, 1);
    bulletins.data.no_extrapolation = 0;
    bulletins.data.combination = 2;
    bulletins.data.second_bulletin_row = 2; // the gap lies between the rows of 2016-12-30 and 31
    OwnedTimeId joined;
    ASSERT_EQ(bulletins.set(&joined.id), 0);
    EXPECT_EQ(convert(&joined.id, KL_TIME_UTC, k2017 - 1.5, KL_TIME_TAI).ierr, warnings({kGap}));
    EXPECT_EQ(convert(&joined.id, KL_TIME_UTC, k2017 - 1.5, KL_TIME_TAI).ierr, 0);
    EXPECT_EQ(convert(&joined.id, KL_TIME_UTC, k2017, KL_TIME_TAI).ierr, 0);

    Table open_end = leap_table(k2017, 36.0, 1);
    open_end.data.no_extrapolation = 0;
    OwnedTimeId extrapolated;
    ASSERT_EQ(open_end.set(&extrapolated.id), 0);
    EXPECT_EQ(convert(&extrapolated.id, KL_TIME_UTC, kAfter, KL_TIME_TAI).ierr, warnings({kOutside, kByFormula}));
}

TEST(Warnings, OfEqualScalesAreTheOnceOnlyOnes)
{
    LeapId table(1);
    EXPECT_EQ(convert(&table.id, KL_TIME_UT1, kAfter, KL_TIME_UT1).ierr, warnings({kValidity}));
    EXPECT_EQ(convert(&table.id, KL_TIME_UT1, kAfter, KL_TIME_UT1).ierr, 0);
    ExplicitId values;
    EXPECT_EQ(convert(&values.id, KL_TIME_UT1, kAfter, KL_TIME_UT1).ierr, 0);
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
    EXPECT_EQ(ierr, warnings({kOutside}));
    const std::string line =
        "ORBKIT_LIB >>> WARNING in kl_time_processing_to_processing: Time out of initialization range\n";
    const std::size_t first = lines.find(line);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(lines.find(line, first + 1), std::string::npos);
}

} // namespace
