// Sums and differences of processing times, and TDB.
#include "time/time_table.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSoon = 10.0;
constexpr long kUtc = KL_TIME_UTC;

TEST(TimeAdd, AddsDaysAndTellsWhatIsWrong)
{
    struct Case {
        const char *name;
        long proc_id, ref;
        double time, duration;
        long ierr;
        double sum; // NaN where nothing is written
    };
    constexpr Case kCases[] = {
        {"forward", 0, KL_TIME_TAI, 10.0, 0.25, 0, 10.25},
        {"backward, UT1", 0, KL_TIME_UT1, 10.0, -20.5, 0, -10.5},
        {"to the last day", 0, KL_TIME_GPS, 36523.0, 1.0, 0, 36524.0},
        {"over a leap second as over any day", 0, KL_TIME_UTC, 6209.0, 1.0, 0, 6210.0},
        {"format", 1, KL_TIME_UTC, 10.0, 1.0, error_bit(KL_TIME_ADD_PROC_ID_ERR), kNaN},
        {"reference above", 0, 4, 10.0, 1.0, error_bit(KL_TIME_ADD_TIME_REF_ERR), kNaN},
        {"no reference", 0, KL_TIME_UNDEF, 10.0, 1.0, error_bit(KL_TIME_ADD_TIME_REF_ERR), kNaN},
        {"before 1950", 0, KL_TIME_UTC, -18262.1, 1.0, error_bit(KL_TIME_ADD_TIME_ERR), kNaN},
        {"after 2099", 0, KL_TIME_UTC, 36524.0000001, -1.0, error_bit(KL_TIME_ADD_TIME_ERR), kNaN},
        {"no number", 0, KL_TIME_UTC, kNaN, 1.0, error_bit(KL_TIME_ADD_TIME_ERR), kNaN},
        {"the first error ends it", 7, 9, kNaN, 1.0, error_bit(KL_TIME_ADD_PROC_ID_ERR), kNaN},
    };
    for (const Case &c : kCases) {
        double sum = kNaN;
        long ierr = -1;
        EXPECT_EQ(kl_time_add(&c.proc_id, &c.ref, &c.time, &c.duration, &sum, &ierr), c.ierr == 0 ? KL_OK : KL_ERR)
            << c.name;
        EXPECT_EQ(ierr, c.ierr) << c.name;
        EXPECT_TRUE(sum == c.sum || (std::isnan(sum) && std::isnan(c.sum))) << c.name;
    }
}

TEST(TimeAdd, WritesASumThatLeavesTheRangeAllTheSame)
{
    for (const double duration : {1e-6, 1e300, -54786.5, kInfinity, -kInfinity}) {
        const double time = 36524.0;
        double sum = 0.0;
        long ierr = -1;
        EXPECT_EQ(kl_time_add(&kProcessing, &kUtc, &time, &duration, &sum, &ierr), KL_ERR);
        EXPECT_EQ(ierr, error_bit(KL_TIME_ADD_SUM_ERR));
        EXPECT_EQ(sum, time + duration);
    }
    double sum = 0.0;
    EXPECT_EQ(kl_time_add(&kProcessing, &kUtc, &kSoon, &kNaN, &sum, nullptr), KL_ERR);
    EXPECT_TRUE(std::isnan(sum));
}

TEST(TimeDiff, SubtractsDaysAndTellsWhatIsWrong)
{
    struct Case {
        const char *name;
        long proc_id, ref;
        double time1, time2;
        long ierr;
        double difference;
    };
    constexpr Case kCases[] = {
        {"forward", 0, KL_TIME_TAI, 10.25, 10.0, 0, 0.25},
        {"whole range", 0, KL_TIME_GPS, -18262.0, 36524.0, 0, -54786.0},
        {"format", 2, KL_TIME_UTC, 10.0, 1.0, error_bit(KL_TIME_DIFF_PROC_ID_ERR), kNaN},
        {"reference", 0, 4, 10.0, 1.0, error_bit(KL_TIME_DIFF_TIME_REF_ERR), kNaN},
        {"first time", 0, KL_TIME_UTC, 36525.0, 1.0, error_bit(KL_TIME_DIFF_TIME1_ERR), kNaN},
        {"second time", 0, KL_TIME_UTC, 1.0, -18263.0, error_bit(KL_TIME_DIFF_TIME2_ERR), kNaN},
        {"second time no number", 0, KL_TIME_UTC, 1.0, kNaN, error_bit(KL_TIME_DIFF_TIME2_ERR), kNaN},
        {"the first time comes first", 0, KL_TIME_UTC, kInfinity, kNaN, error_bit(KL_TIME_DIFF_TIME1_ERR), kNaN},
    };
    for (const Case &c : kCases) {
        double difference = kNaN;
        long ierr = -1;
        EXPECT_EQ(kl_time_diff(&c.proc_id, &c.ref, &c.time1, &c.time2, &difference, &ierr),
                  c.ierr == 0 ? KL_OK : KL_ERR)
            << c.name;
        EXPECT_EQ(ierr, c.ierr) << c.name;
        EXPECT_TRUE(difference == c.difference || (std::isnan(difference) && std::isnan(c.difference))) << c.name;
    }
}

TEST(Durations, MissingArgumentsAreTheConditionsOfTheirInputs)
{
    double out = kSoon;
    const long *none = nullptr;
    const double *never = nullptr;
    // clang-format off
    expect_refused({
        {KL_TIME_ADD_PROC_ID_ERR, [&](long *e) { return kl_time_add(none, &kUtc, &kSoon, &kSoon, &out, e); }},
        {KL_TIME_ADD_TIME_REF_ERR, [&](long *e) { return kl_time_add(&kProcessing, none, &kSoon, &kSoon, &out, e); }},
        {KL_TIME_ADD_TIME_ERR, [&](long *e) { return kl_time_add(&kProcessing, &kUtc, never, &kSoon, &out, e); }},
        {-1, [&](long *e) { return kl_time_add(&kProcessing, &kUtc, &kSoon, never, &out, e); }},
        {-1, [&](long *e) { return kl_time_add(&kProcessing, &kUtc, &kSoon, &kSoon, nullptr, e); }},
        {KL_TIME_DIFF_PROC_ID_ERR, [&](long *e) { return kl_time_diff(none, &kUtc, &kSoon, &kSoon, &out, e); }},
        {KL_TIME_DIFF_TIME1_ERR, [&](long *e) { return kl_time_diff(&kProcessing, &kUtc, never, &kSoon, &out, e); }},
        {KL_TIME_DIFF_TIME2_ERR, [&](long *e) { return kl_time_diff(&kProcessing, &kUtc, &kSoon, never, &out, e); }},
        {-1, [&](long *e) { return kl_time_diff(&kProcessing, &kUtc, &kSoon, &kSoon, nullptr, e); }},
    });
    // clang-format on
    EXPECT_EQ(out, kSoon) << "nothing is written";
}

// TDB - TAI, s, with mpmath: the anomaly in degrees taken as radians, and turned into radians.
TEST(Tdb, TheAnomalyInDegreesIsTakenAsRadians)
{
    struct Case {
        double tai, as_it_stands, in_radians;
    };
    constexpr Case kCases[] = {
        {0.0, 32.183800260380799222, 32.1839418305423},
        {-18262.0, 32.185351530674402944, 32.183970295424},
        {36524.0, 32.185657785180026074, 32.183884961552},
        {9000.25, 32.182384284353792278, 32.1827688294989},
    };
    for (const Case &c : kCases) {
        double tdb = 0.0;
        EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(&c.tai, &tdb), 0);
        const double spacing = std::nextafter(std::fabs(c.tai) + 1e-3, kInfinity) - (std::fabs(c.tai) + 1e-3);
        EXPECT_NEAR((tdb - c.tai) * kDay, c.as_it_stands, spacing * kDay + 1e-12) << c.tai;
        EXPECT_GT(std::fabs((tdb - c.tai) * kDay - c.in_radians), 1e-4) << c.tai;
    }
}

TEST(Tdb, ComesBackWithinHalfAMicrosecond)
{
    // The inverse evaluates the term at the TDB instant, 32 s on: 0.0017 s times 0.986 rad a day times 32 s.
    constexpr double kTermMoves = 0.0017 * 0.9856 * 32.2 / kDay / kDay; // days
    for (double tai = -18262.0; tai <= 36524.0; tai += 7.3) {
        double tdb = 0.0;
        double back = 0.0;
        KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb);
        KL_Time_p2p_ref_tdb_to_tai(&tdb, &back);
        EXPECT_NEAR(back, tai, 1.1 * kTermMoves + 1.5e-11) << tai;
    }
    double out = 0.0;
    EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(nullptr, &out), -1);
    EXPECT_EQ(KL_Time_p2p_ref_tdb_to_tai(&out, nullptr), -1);
}

} // namespace
