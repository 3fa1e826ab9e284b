// The nine conversions: known values, conditions, changes of scale, warnings, every day there and back; texts of all
// formats and of the present time.
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <random>

namespace {

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

TEST(Conversions, KnownValues)
{
    NamedIds ids;
    for (const auto &[name, id, from, given_cell, to, expected_cell, ways] :
         read_rows<std::string, IdName, Form, std::string, Form, std::string, std::string>("time_conversions.csv")) {
        SCOPED_TRACE(name + ", format " + std::to_string(from.format));
        const Value given = value_as(from.kind, given_cell), expected = value_as(to.kind, expected_cell);
        const Outcome there = convert(ids[id], from, given, to);
        EXPECT_EQ(std::tuple(there.status, there.ierr[0]), std::tuple(KL_OK, 0));
        expect_equal(to.kind, there.value, expected);
        if (ways == "both")
            expect_equal(from.kind, convert(ids[id], to, expected, from).value, given);
    }
}

// The form itself, or that kind of it.
Form of_kind(const Form &form, Kind kind)
{
    const Form good = plain(form.kind == kOfEveryKind ? kind : form.kind, kTai);
    return {good.kind, form.format == kGood ? good.format : form.format, form.ref == kGood ? good.ref : form.ref};
}

TEST(Conversions, TableOfConditions)
{
    NamedIds ids;
    for (const auto &[name, id, from, cell, to, bit] :
         read_rows<std::string, IdName, Form, std::string, Form, long>("time_refusals.csv")) {
        const Value given = value_as(from.kind, cell);
        for (int i = 0; i < 9; ++i) {
            const Form in = of_kind(from, kKinds[i / 3]), out = of_kind(to, kKinds[i % 3]);
            if (in.kind != kKinds[i / 3] || out.kind != kKinds[i % 3])
                continue;
            SCOPED_TRACE(name + ", " + cell + ", conversion " + std::to_string(i));
            const Outcome got = convert(ids[id], in, given, out);
            EXPECT_EQ(got.status, KL_ERR);
            EXPECT_EQ(got.ierr[0], bit < 32 ? error_bits(bit) : 0);
            EXPECT_TRUE(bit < 32 || got.ierr[1] == error_bits(bit - 32));
            EXPECT_TRUE(got.value.untouched());
        }
    }
}

// ---- warnings ----

// One call after the other in one time id: the condition that the call before was inside is shared by all nine.
TEST(Conversions, WarnOnceOfALeftTableAllNineTogether)
{
    NamedIds ids;
    const auto expect_vector = [&ids](int i, long day, long vector) {
        const Outcome out = convert(ids[kPositiveLeap], plain(kKinds[i / 3], kUtc),
                                    instant(day, kMicrosecondsOfDay / 2), plain(kKinds[i % 3], kTai));
        EXPECT_FALSE(out.value.untouched()) << i;
        EXPECT_EQ(std::tuple(out.status, out.ierr[0]), std::tuple(status_with(vector), vector)) << i << " " << day;
    };
    for (int i = 0; i < 9; ++i) {
        expect_vector(i, 6208, 0);
        expect_vector(i, 6240, warning_bits(6) | warning_bits(9));
        expect_vector(8 - i, 6240, warning_bits(6));
    }
}

TEST(VerboseMode, PrintsEveryConditionOnTheWayToTheCaller)
{
    NamedIds ids;
    const Form days = plain(kOfProcessing, kUtc);
    const double late = 40000.0;
    double start = 0.0;
    for (const IdName left : {kPositiveLeap, kOpenEnd})
        convert(ids[left], kUtc, 6240.0, kTai); // spends the once-only warning
    kl_verbose();
#define SAYS(lines, ...) EXPECT_EQ(captured_stderr([&] { __VA_ARGS__; }), lines) << #__VA_ARGS__;
#include "time/verbose_lines.inc"
    kl_silent();
}

// ---- there and back ----

// At a random microsecond of every day that lies in the range of all scales, on even days soon after midnight: one pair
// of kinds and scales against whole microseconds added by hand, and the text of the C library from every form.
TEST(Conversions, EveryDayBetweenAllScalesAndBackFromEveryForm)
{
    constexpr long kBehindTai[] = {0, 37000000, 36400000, 19000000}; // us
    // Every scale in days, every format in one; those of seconds alone in scales whole seconds from UTC.
    std::vector<Form> forms;
    for (const long ref : kScales)
        forms.push_back({kOfProcessing, KL_PROC, ref});
    for (const FormatCase &c : kFormats)
        forms.push_back(
            {kOfAscii, c.format, c.format % 10 <= 2 ? kWholeScales[forms.size() % 3] : kScales[forms.size() % 4]});
    for (const long format : {KL_TRANS_11, KL_TRANS_21, KL_TRANS_22, KL_TRANS_23})
        forms.push_back({kOfTransport, format, kScales[forms.size() % 4]});
    for (const long format : {KL_TRANS_31, KL_TRANS_41, KL_TRANS_42})
        forms.push_back({kOfTransport, format, kGps});
    NamedIds ids;
    const auto change = [&](const Form &from, const Value &given, const Form &to) {
        return convert(ids[kConstant], from, given, to).value;
    };
    std::mt19937_64 random(31);
    std::uniform_int_distribution<long> microseconds(0, kMicrosecondsOfDay - 1);
    for (long day = -18261; day <= 36523 && !HasFailure(); ++day) {
        const long tai = microseconds(random) % (day % 2 == 0 ? 60000000 : kMicrosecondsOfDay);
        const unsigned long pair = random() % (9 * 16);
        const Form in = plain(kKinds[pair % 3], kScales[pair / 9 % 4]);
        const Form out = plain(kKinds[pair / 3 % 3], kScales[pair / 36]);
        SCOPED_TRACE("day " + std::to_string(day) + " pair " + std::to_string(pair));
        const auto by_hand = [&](long ref) { return instant(day, tai - kBehindTai[ref]); };
        expect_equal(out.kind, change(in, by_hand(in.ref), out), by_hand(out.ref));

        const Form text = plain(kOfAscii, kUtc);
        const Value value = by_hand(kUtc), second = instant(day, tai - tai % kSecond - kBehindTai[kUtc]);
        for (const Form &form : forms) {
            const bool coarse = form.kind == kOfAscii ? form.format % 10 <= 2 : form.format == 31;
            const Value &given = coarse ? second : value;
            EXPECT_STREQ(change(form, change(text, given, form), text).text, given.text) << form.format;
        }
    }
}

// ---- texts ----

// In UTC without an id: as a text of the format, and a text of it in days.
std::string written(const Form &from, const Value &value, long format)
{
    return convert(nullptr, from, value, {kOfAscii, format, kUtc}).value.text;
}
double days_of(long format, const std::string &text)
{
    return convert(nullptr, {kOfAscii, format, kUtc}, text, plain(kOfProcessing, kUtc)).value.time;
}

TEST(Texts, AnInstantAndTheMissionLimitsInEveryFormat)
{
    const Form days = plain(kOfProcessing, kUtc), standard = plain(kOfTransport, kUtc);
    for (const FormatCase &c : kFormats) {
        EXPECT_EQ(written(standard, {8825, 45296, 789012}, c.format), c.text);
        EXPECT_NEAR(days_of(c.format, c.text), 8825.0 + (c.format % 10 >= 3 ? 45296.789012 : 45296.0) / kDay,
                    kSpacing2099);
        EXPECT_EQ(written(days, -18262.0, c.format), c.beginning);
        EXPECT_EQ(written(standard, {36524, 0, 0}, c.format), c.end);
        EXPECT_EQ(days_of(c.format, c.beginning), -18262.0);
        EXPECT_EQ(days_of(c.format, c.end), 36524.0);
        EXPECT_EQ(days_of(c.format, c.end_of_9999), 36524.0);
        const FormatCase &from = kFormats[0];
        EXPECT_EQ(written({kOfAscii, from.format, kUtc}, from.beginning, c.format), c.beginning);
        EXPECT_EQ(written({kOfAscii, from.format, kUtc}, from.end, c.format), c.end);
        EXPECT_EQ(written({kOfAscii, from.format, kUtc}, from.end_of_9999, c.format), c.end_of_9999);
    }
}

// ---- present time ----

TEST(PresentTime, IsTheClockInTheFormatAskedFor)
{
    const auto now = [] { return static_cast<double>(std::time(nullptr)) / kDay - 10957.0; }; // from 1970 to 2000
    for (const FormatCase &c : kFormats) {
        const double earliest = now();
        char text[KL_TIME_ASCII_LENGTH];
        ASSERT_EQ(KL_Time_current_time(&c.format, text, nullptr), 0) << c.format;
        const double read = days_of(c.format, text);
        EXPECT_TRUE(read >= earliest - kMicrosecond && read <= now() + kMicrosecond) << text;
    }
}

TEST(PresentTime, ReportsUnderTheRowsOfTheLeapSecondInformationOnPurpose)
{
    const long format = KL_ASCII_41;
    char out[KL_TIME_ASCII_LENGTH] = "untouched";
    RECORDS(1, "ERROR in kl_time_get_leap_second_info: Error in adding times in Processing format",
            KL_Time_current_time(at(17L), out, e))
    SKIP_WITHOUT_FAULTS();
    {
        faults::Fail lock(faults::Site::kMutexLock);
        RECORDS(2, "ERROR in kl_time_get_leap_second_info: Error in converting from Processing to ASCII format",
                KL_Time_current_time(&format, out, e))
    }
    EXPECT_EQ(captured_stdout([&] {
                  faults::Fail unlock(faults::Site::kMutexUnlock);
                  EXPECT_EQ(KL_Time_current_time(&format, out, nullptr), KL_ERR);
                  std::fflush(stdout);
              }),
              "!!! Error closing the threads. All threads will be closed\n");
    EXPECT_STREQ(out, "untouched");
}

} // namespace
