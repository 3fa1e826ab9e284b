// Texts of a time in all formats, at the limits of the mission and around a leap second; the present time.
#include "support/captured_stream.h"
#include "support/fault_injection.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>
#include <ctime>

namespace {

// Format; an instant in it; beginning and end of the mission, and the last second of 9999.
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

// ---- present time ----

TEST(PresentTime, IsTheClockInTheFormatAskedFor)
{
    const auto now = [] { return static_cast<double>(std::time(nullptr)) / kDay - 10957.0; }; // from 1970 to 2000
    for (const FormatCase &c : kFormats) {
        const double earliest = now();
        char text[KL_TIME_ASCII_LENGTH];
        ASSERT_EQ(KL_Time_current_time(&c.format, text, nullptr), 0) << c.format;
        const double read = convert(nullptr, text_form(c.format), text, kDays).value.time;
        EXPECT_TRUE(read >= earliest - kMicrosecond && read <= now() + kMicrosecond) << text;
    }
}

TEST(PresentTime, ReportsUnderTheRowsOfTheLeapSecondInformationOnPurpose)
{
    const long bad = 17, format = KL_ASCII_41;
    char out[KL_TIME_ASCII_LENGTH] = "untouched";
    kl_error_record error;
    constexpr char kNoFormat[] = "ERROR in kl_time_get_leap_second_info: Error in adding times in Processing format";
    constexpr char kNoLock[] =
        "ERROR in kl_time_get_leap_second_info: Error in converting from Processing to ASCII format";
    RECORDS(1, kNoFormat, KL_Time_current_time(&bad, out, e))
    RECORDS(1, kNoFormat, KL_Time_current_time(nullptr, out, e))
    EXPECT_STREQ(out, "untouched");
    SKIP_WITHOUT_FAULTS();
    {
        faults::Fail lock(faults::Site::kMutexLock);
        RECORDS(2, kNoLock, KL_Time_current_time(&format, out, e))
        EXPECT_TRUE(lock.disarm());
    }
    const std::string lines = captured_stdout([&] {
        faults::Fail unlock(faults::Site::kMutexUnlock);
        EXPECT_EQ(KL_Time_current_time(&format, out, &error), KL_ERR);
        std::fflush(stdout);
    });
    EXPECT_EQ(lines, "!!! Error closing the threads. All threads will be closed\n");
    EXPECT_EQ(error.count, 0);
    EXPECT_STREQ(out, "untouched");
}

} // namespace
