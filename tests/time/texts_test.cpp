// Texts of a time in all formats, at the limits of the mission and around a leap second; the present time.
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>
#include <ctime>

namespace {

struct FormatCase {
    long format;
    const char *text, *beginning, *end, *end_of_9999;
};
constexpr FormatCase kFormats[] = {
#include "time/format_texts.inc"
};
constexpr Form kDays = {kOfProcessing, KL_PROC, kUtc};
constexpr Form kStandard = {kOfTransport, KL_TRANS_0, kUtc};

Form text_form(long format)
{
    return {kOfAscii, format, kUtc};
}

TEST(Texts, AnInstantAndTheMissionLimitsInEveryFormat)
{
    for (const FormatCase &c : kFormats) {
        const auto written = [&](const Form &from, const Value &value) {
            return std::string(convert(nullptr, from, value, text_form(c.format)).value.text);
        };
        const auto days = [&](const char *text) {
            return convert(nullptr, text_form(c.format), text, kDays).value.time;
        };
        EXPECT_EQ(written(kStandard, {8825, 45296, 789012}), c.text);
        EXPECT_NEAR(days(c.text), 8825.0 + (c.format % 10 >= 3 ? 45296.789012 : 45296.0) / kDay, kSpacing2099);
        EXPECT_EQ(written(kDays, -18262.0), c.beginning);
        EXPECT_EQ(written(kDays, 36524.0), c.end);
        EXPECT_EQ(written(kStandard, {-18262, 0, 0}), c.beginning);
        EXPECT_EQ(written(kStandard, {36524, 0, 0}), c.end);
        EXPECT_EQ(days(c.beginning), -18262.0);
        EXPECT_EQ(days(c.end), 36524.0);
        EXPECT_EQ(days(c.end_of_9999), 36524.0);
        for (const FormatCase &from : kFormats) {
            EXPECT_EQ(written(text_form(from.format), from.beginning), c.beginning);
            EXPECT_EQ(written(text_form(from.format), from.end), c.end);
            EXPECT_EQ(written(text_form(from.format), from.end_of_9999), c.end_of_9999);
        }
    }
}

// Every microsecond around the full seconds, and steps between them: UTC texts in order, and each back to its TAI.
TEST(Texts, ComeBackInOrderAroundALeapSecond)
{
    NamedIds ids;
    const Form tai = {kOfTransport, KL_TRANS_0, kTai};
    std::string before;
    for (long us = 34000000; us < 39000000;) {
        const Value given(6210, us / 1000000, us % 1000000);
        const Value text = convert(ids[kPositiveLeap], tai, given, text_form(23)).value;
        ASSERT_GT(text.text, before) << us;
        ASSERT_EQ(fields_of(convert(ids[kPositiveLeap], text_form(23), text, tai).value), fields_of(given))
            << text.text;
        before = text.text;
        us += std::fabs(std::remainder(static_cast<double>(us), 1e6)) < 3000.0 ? 1 : 97;
    }
}

// ---- present time ----

TEST(PresentTime, IsTheClockInTheFormatAskedFor)
{
    const auto now = [] { return static_cast<double>(std::time(nullptr)) / kDay - 10957.0; }; // from 1970 to 2000
    for (const FormatCase &c : kFormats) {
        const double earliest = now();
        char text[KL_TIME_ASCII_LENGTH];
        kl_error_record error;
        ASSERT_EQ(KL_Time_current_time(&c.format, text, &error), 0) << c.format;
        const double latest = now();
        const double read = convert(nullptr, text_form(c.format), text, kDays).value.time;
        EXPECT_GE(read, earliest - kMicrosecond) << text;
        EXPECT_LE(read, latest + kMicrosecond) << text;
    }
}

// That nothing is written; "" for a record without a message.
void expect_no_time(const long *format, const std::string &text)
{
    char out[KL_TIME_ASCII_LENGTH] = "untouched";
    kl_error_record error;
    EXPECT_EQ(KL_Time_current_time(format, out, &error), -1);
    EXPECT_STREQ(out, "untouched");
    expect_error(error, "kl_time_get_leap_second_info", text);
}

TEST(PresentTime, ReportsUnderTheRowsOfTheLeapSecondInformationOnPurpose)
{
    const long bad = 17;
    for (const long *format : {&bad, static_cast<const long *>(nullptr)})
        expect_no_time(format, "Error in adding times in Processing format");
}

TEST(PresentTime, LocksThatFail)
{
    SKIP_WITHOUT_FAULTS();
    const long format = KL_ASCII_41;
    {
        faults::Fail lock(faults::Site::kMutexLock);
        expect_no_time(&format, "Error in converting from Processing to ASCII format");
        EXPECT_TRUE(lock.disarm());
    }
    const std::string lines = captured_stdout([&] {
        faults::Fail unlock(faults::Site::kMutexUnlock);
        expect_no_time(&format, "");
        std::fflush(stdout);
    });
    EXPECT_EQ(lines, "!!! Error closing the threads. All threads will be closed\n");
}

} // namespace
