// Transport formats.
#include "kl_family.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr long kFormats[] = {KL_TRANS_0,  KL_TRANS_11, KL_TRANS_21, KL_TRANS_22,
                             KL_TRANS_23, KL_TRANS_31, KL_TRANS_41, KL_TRANS_42};

long scale_of(long format)
{
    return format >= KL_TRANS_41 ? KL_TIME_GPS : KL_TIME_UTC;
}

struct FieldsCase {
    const char *name;
    long format;
    Value fields, standard; // standard: format 0
};
// Weeks as published for the roll-overs of the GPS week count: 1024 on 1999-08-22, 2048 on 2019-04-07.
const FieldsCase kKnown[] = {
    {"copied", KL_TRANS_0, {-5, 86399, 999999}, {-5, 86399, 999999}},
    {"copied", KL_TRANS_11, {0, 1, 2}, {0, 1, 2}},
    {"copied", KL_TRANS_21, {36524, 86399, 0}, {36524, 86399, 0}},
    {"milliseconds", KL_TRANS_22, {100, 86399999, 999}, {100, 86399, 999999}},
    {"milliseconds", KL_TRANS_22, {-1, 1002, 3}, {-1, 1, 2003}},
    {"week 1024", KL_TRANS_31, {1024, 0, 0}, {-132, 0, 0}},
    {"week 2048", KL_TRANS_42, {2048, 0, 0}, {7036, 0, 0}},
    {"end of week 1042", KL_TRANS_42, {1042, 604799, 5}, {0, 86399, 5}},
    {"half a second", KL_TRANS_31, {1042, 518400, 32768}, {0, 0, 500000}},
    {"first day", KL_TRANS_42, {-1566, 0, 0}, {-18262, 0, 0}},
    {"last day", KL_TRANS_42, {6260, 431999, 999999}, {36524, 86399, 999999}},
    {"GPS epoch", KL_TRANS_41, {0, 0, 0}, {-7300, 0, 0}},
    {"2000", KL_TRANS_41, {630720000, 1, 0}, {0, 0, 1}},
    {"before the GPS epoch", KL_TRANS_41, {-1, 999999, 0}, {-7301, 86399, 999999}},
};

TEST(Transport, KnownRecordsBothWays)
{
    for (const FieldsCase &c : kKnown) {
        const long ref = scale_of(c.format);
        const Outcome read = convert(nullptr, kOfTransport, c.format, ref, c.fields, kOfTransport, KL_TRANS_0, ref);
        EXPECT_EQ(read.status, KL_OK) << c.name << " " << c.format;
        EXPECT_EQ(fields_of(read.value), fields_of(c.standard)) << c.name << " " << c.format;
        const Outcome written =
            convert(nullptr, kOfTransport, KL_TRANS_0, ref, c.standard, kOfTransport, c.format, ref);
        EXPECT_EQ(written.status, KL_OK) << c.name << " " << c.format;
        EXPECT_EQ(fields_of(written.value), fields_of(c.fields)) << c.name << " " << c.format;
    }
}

struct TickCase {
    const char *name;
    Value fields, standard;
};
// 2.0625 us a tick: 1 is 2.0625, 8 are 16.5, 485 are 1000.3125.
const TickCase kTicks[] = {
    {"none", {1, 2, 3, 0}, {1, 0, 2003}},
    {"rounded down", {1, 0, 0, 1}, {1, 0, 2}},
    {"half rounded up", {1, 0, 0, 8}, {1, 0, 17}},
    {"into the millisecond", {1, 0, 999, 485}, {1, 0, 1999}},
    {"into the second", {1, 999, 999, 1}, {1, 1, 1}},
    {"into the day", {1, 86399999, 999, 1}, {2, 0, 1}},
    {"a full counter", {1, 0, 0, 4294967295}, {1, 8858, 370046}},
};

TEST(Transport, TicksAreRoundedAndCarried)
{
    for (const TickCase &c : kTicks) {
        const Outcome read =
            convert(nullptr, kOfTransport, KL_TRANS_23, KL_TIME_TAI, c.fields, kOfTransport, KL_TRANS_0, KL_TIME_TAI);
        EXPECT_EQ(read.status, KL_OK) << c.name;
        EXPECT_EQ(fields_of(read.value), fields_of(c.standard)) << c.name;
    }
}

// Every day of the range at a random microsecond; format 31 in its own steps.
TEST(Transport, ThereAndBackOverTheWholeRange)
{
    std::mt19937 random(31);
    std::uniform_int_distribution<long> seconds(0, 86399);
    std::uniform_int_distribution<long> microseconds(0, 999999);
    for (long day = -18262; day <= 36524; ++day) {
        const Value standard(day, seconds(random), microseconds(random));
        for (const long format : kFormats) {
            const long ref = scale_of(format);
            const Outcome there = convert(nullptr, kOfTransport, KL_TRANS_0, ref, standard, kOfTransport, format, ref);
            const Outcome back =
                convert(nullptr, kOfTransport, format, ref, there.value, kOfTransport, KL_TRANS_0, ref);
            ASSERT_EQ(back.status, KL_OK) << day << " format " << format;
            const auto total = [](const Value &v) {
                return (v.fields[0] * 86400 + v.fields[1]) * 1000000 + v.fields[2];
            };
            ASSERT_NEAR(static_cast<double>(total(back.value) - total(standard)), 0.0, format == KL_TRANS_31 ? 8 : 0)
                << day << " format " << format;
            if (format != KL_TRANS_31)
                continue;
            const Outcome again =
                convert(nullptr, kOfTransport, KL_TRANS_0, ref, back.value, kOfTransport, format, ref);
            ASSERT_EQ(fields_of(again.value), fields_of(there.value)) << day;
        }
    }
}

TEST(Transport, AFractionThatRoundsUpCarriesIntoTheWeek)
{
    const Value last_moment(0, 86399, 999999); // Saturday
    const Outcome out =
        convert(nullptr, kOfTransport, KL_TRANS_0, KL_TIME_GPS, last_moment, kOfTransport, KL_TRANS_31, KL_TIME_GPS);
    EXPECT_EQ(fields_of(out.value), "1043 0 0 0");
}

// ---- leap seconds ----

struct LeapCase {
    const char *name;
    long format;
    Value fields, tai; // TAI in format 0
};
// 2016-12-31 is a Saturday: its 61st second is the first of no GPS week.
const LeapCase kLeap[] = {
    {"59", KL_TRANS_0, {kLeapDay, 86399, 1}, {6210, 35, 1}},
    {"60", KL_TRANS_0, {kLeapDay, 86400, 0}, {6210, 36, 0}},
    {"60 and a fraction", KL_TRANS_21, {kLeapDay, 86400, 999999}, {6210, 36, 999999}},
    {"00", KL_TRANS_0, {kLeapDay + 1, 0, 0}, {6210, 37, 0}},
    {"60 in milliseconds", KL_TRANS_22, {kLeapDay, 86400999, 999}, {6210, 36, 999999}},
    {"60 with ticks", KL_TRANS_23, {kLeapDay, 86400000, 0, 0}, {6210, 36, 0}},
};

TEST(TransportLeapSecond, IsReadAndWritten)
{
    LeapId table(1);
    for (const LeapCase &c : kLeap) {
        const Outcome tai =
            convert(&table.id, kOfTransport, c.format, KL_TIME_UTC, c.fields, kOfTransport, KL_TRANS_0, KL_TIME_TAI);
        EXPECT_EQ(tai.status, KL_OK) << c.name;
        EXPECT_EQ(fields_of(tai.value), fields_of(c.tai)) << c.name;
        const Outcome utc =
            convert(&table.id, kOfTransport, KL_TRANS_0, KL_TIME_TAI, c.tai, kOfTransport, c.format, KL_TIME_UTC);
        EXPECT_EQ(utc.status, KL_OK) << c.name;
        EXPECT_EQ(fields_of(utc.value), fields_of(c.fields)) << c.name;
    }
}

TEST(TransportLeapSecond, TicksCarryIntoItAndOutOfIt)
{
    LeapId table(1);
    const auto read = [&](const Value &fields) {
        return fields_of(
            convert(&table.id, kOfTransport, KL_TRANS_23, KL_TIME_UTC, fields, kOfTransport, KL_TRANS_0, KL_TIME_UTC)
                .value);
    };
    EXPECT_EQ(read({kLeapDay, 86399999, 999, 1}), "6209 86400 1 0");
    EXPECT_EQ(read({kLeapDay, 86400999, 999, 1}), "6210 0 1 0");
}

TEST(TransportLeapSecond, SecondsOfAWeekFoldItOntoTheSecondBefore)
{
    LeapId table(1);
    const Outcome out = convert(&table.id, kOfTransport, KL_TRANS_0, KL_TIME_UTC, {kLeapDay, 86400, 500000},
                                kOfTransport, KL_TRANS_31, KL_TIME_UTC);
    EXPECT_EQ(fields_of(out.value), "1929 604799 32768 0");
}

// ---- conditions ----

struct ConditionCase {
    const char *name;
    long format, ref;
    Value fields;
    long bit;
};
const ConditionCase kConditions[] = {
    {"no such format", 1, KL_TIME_TAI, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TRANS_ID_IN_ERR},
    {"no such format", 43, KL_TIME_TAI, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TRANS_ID_IN_ERR},
    {"no scale", KL_TRANS_0, KL_TIME_UNDEF, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR},
    {"no scale", KL_TRANS_0, 4, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR},
    {"41 is GPS time", KL_TRANS_41, KL_TIME_TAI, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR},
    {"42 is GPS time", KL_TRANS_42, KL_TIME_UTC, {0, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR},
    {"day", KL_TRANS_0, KL_TIME_TAI, {-18263, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR},
    {"day", KL_TRANS_22, KL_TIME_TAI, {36525, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR},
    {"day of the last week", KL_TRANS_31, KL_TIME_TAI, {6260, 432000, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR},
    {"seconds", KL_TRANS_0, KL_TIME_TAI, {0, -1, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_ERR},
    {"seconds", KL_TRANS_0, KL_TIME_UTC, {kLeapDay, 86401, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_ERR},
    {"61st second in TAI",
     KL_TRANS_0,
     KL_TIME_TAI,
     {kLeapDay, 86400, 0},
     KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR},
    {"61st second of another day",
     KL_TRANS_11,
     KL_TIME_UTC,
     {0, 86400, 0},
     KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR},
    {"61st second in milliseconds",
     KL_TRANS_23,
     KL_TIME_UTC,
     {0, 86400000, 0},
     KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR},
    {"milliseconds", KL_TRANS_22, KL_TIME_TAI, {0, -1, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_MILLISECONDS_ERR},
    {"milliseconds", KL_TRANS_23, KL_TIME_TAI, {0, 86401000, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_MILLISECONDS_ERR},
    {"microseconds", KL_TRANS_0, KL_TIME_TAI, {0, 0, 1000000}, KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR},
    {"microseconds", KL_TRANS_41, KL_TIME_GPS, {0, -1, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR},
    {"microseconds of one", KL_TRANS_22, KL_TIME_TAI, {0, 0, 1000}, KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR},
    {"ticks", KL_TRANS_23, KL_TIME_TAI, {0, 0, 0, -1}, KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR},
    {"ticks", KL_TRANS_23, KL_TIME_TAI, {0, 0, 0, 4294967296}, KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR},
    {"ticks beyond the end",
     KL_TRANS_23,
     KL_TIME_TAI,
     {36524, 86399999, 999, 1},
     KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR},
    {"week", KL_TRANS_42, KL_TIME_GPS, {-1567, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR},
    {"week", KL_TRANS_31, KL_TIME_TAI, {6261, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR},
    {"seconds of week", KL_TRANS_31, KL_TIME_TAI, {0, 604800, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_OF_WEEK_ERR},
    {"seconds of week", KL_TRANS_42, KL_TIME_GPS, {0, -1, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_OF_WEEK_ERR},
    {"fraction", KL_TRANS_31, KL_TIME_TAI, {0, 0, 65536}, KL_TIME_TRANSPORT_TO_PROCESSING_FRACTION_ERR},
    {"fraction", KL_TRANS_31, KL_TIME_TAI, {0, 0, -1}, KL_TIME_TRANSPORT_TO_PROCESSING_FRACTION_ERR},
    {"GPS seconds", KL_TRANS_41, KL_TIME_GPS, {-947116801, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR},
    {"GPS seconds", KL_TRANS_41, KL_TIME_GPS, {3786480000, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR},
    {"extreme", KL_TRANS_41, KL_TIME_GPS, {LONG_MIN, 0, 0}, KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR},
    {"extreme", KL_TRANS_42, KL_TIME_GPS, {LONG_MAX, LONG_MAX, LONG_MAX}, KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR},
};

// Reading has the same conditions whatever is written.
TEST(Transport, TableOfConditions)
{
    LeapId table(1);
    for (const ConditionCase &c : kConditions) {
        constexpr long kOutFormats[] = {KL_PROC, KL_ASCII_11, KL_TRANS_0};
        for (const Kind to : {kOfProcessing, kOfAscii, kOfTransport}) {
            const Outcome out =
                convert(&table.id, kOfTransport, c.format, c.ref, c.fields, to, kOutFormats[to], KL_TIME_TAI);
            EXPECT_EQ(out.status, KL_ERR) << c.name << " to " << kKindNames[to];
            EXPECT_EQ(out.ierr[0], error_bit(c.bit)) << c.name << " to " << kKindNames[to];
            EXPECT_TRUE(out.value.untouched()) << c.name;
        }
    }
}

TEST(Transport, FieldsThatAFormatHasNotAreNotRead)
{
    const Value fields(5, 6, 7, LONG_MIN);
    EXPECT_EQ(
        convert(nullptr, kOfTransport, KL_TRANS_0, KL_TIME_TAI, fields, kOfProcessing, KL_PROC, KL_TIME_TAI).status,
        KL_OK);
}

} // namespace
