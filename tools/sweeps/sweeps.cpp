// Goes through the neighbourhood of every leap second since 1972, and of one that takes a second away: every
// millisecond of half a day on both sides, every microsecond of the two seconds on both sides, between every two scales
// there and back. Each instant becomes the microsecond that whole numbers give it (UT1: within one), comes back as the
// same, and the results are in order. Prints a line a leap second.
//
// sweeps [MS [US]]: only every MS-th of the milliseconds and every US-th of the microseconds (1, 1).
#include "kl_family.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <thread>
#include <vector>

namespace {

constexpr long kSecond = 1000000; // microseconds
constexpr long kDay = 86400 * kSecond;
constexpr long kProc = KL_PROC;
constexpr const char *kNames[] = {"TAI", "UTC", "UT1", "GPS"};
constexpr double kTaiUt1 = 0.3;         // on the day of the leap second, beyond TAI-UTC before it, s
constexpr double kLoss = 0.00123456789; // of UT1, s a day
constexpr long kFewTies = 10000000;     // at most one tie in so many instants

struct LeapSecond {
    double mjd, tai_utc; // the day it comes before, TAI-UTC from then on, s
    int sign = 1;
};

constexpr LeapSecond kLeapSeconds[] = {
#include "tai_utc.inc"
    {62502.0, 36.0, -1}, // there has been none yet
};
constexpr std::size_t kFirst = 1; // the values of 1972 follow none
constexpr int kPairs = 12;        // of scales, ordered

struct Work {
    LeapSecond leap;
    long from, to;
};

std::atomic<long> instants{0};
std::atomic<long> failures{0};
std::atomic<long> ties{0};

kl_time_row row_at(double utc, double tai_utc, double tai_ut1)
{
    const double tai = utc + tai_utc / 86400.0;
    return {tai, tai - tai_ut1 / 86400.0, utc, tai_utc, tai_ut1, 19.0};
}

// Daily rows; UT1 runs on evenly, losing about a millisecond a day: no round figure, so that UT1 is nowhere half
// way between two microseconds at a whole millisecond.
bool open_id(const LeapSecond &leap, kl_time_id *id)
{
    kl_time_row rows[7];
    const double before = leap.tai_utc - leap.sign;
    for (int i = -3; i <= 3; ++i)
        rows[i + 3] = row_at(leap.mjd - 51544.0 + i, i < 0 ? before : leap.tai_utc, before + kTaiUt1 + kLoss * i);
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.n_rows = 7;
    data.rows = rows;
    return kl_time_set_id_data(id, &data) == 0;
}

// Microseconds from 0h of the day before the leap second, within two days.
double days_of(long day, long microseconds)
{
    const bool next = microseconds >= kDay;
    return static_cast<double>(next ? day + 1 : day)
           + static_cast<double>(next ? microseconds - kDay : microseconds) / static_cast<double>(kDay);
}

long microseconds_of(long day, double time)
{
    return std::lrint((time - static_cast<double>(day)) * static_cast<double>(kDay));
}

// TAI in whole microseconds from 0h of the day before, for an instant of another scale counted alike. UT1 is left
// out.
long tai_of(const LeapSecond &leap, long scale, long us)
{
    const long after = static_cast<long>(leap.tai_utc) * kSecond;
    if (scale == KL_TIME_GPS)
        return us + 19 * kSecond;
    if (scale == KL_TIME_UTC)
        return us + (us < kDay ? after - leap.sign * kSecond : after);
    return us;
}

// The way back. What lies in the leap second itself has no day.
long from_tai(const LeapSecond &leap, long scale, long tai)
{
    const long after = static_cast<long>(leap.tai_utc) * kSecond;
    if (scale == KL_TIME_GPS)
        return tai - 19 * kSecond;
    if (scale == KL_TIME_UTC)
        return tai - (tai < kDay + after - (leap.sign > 0 ? kSecond : 0) ? after - leap.sign * kSecond : after);
    return tai;
}

// Is the result what whole numbers say? UT1 by its even loss, within a microsecond.
bool is_right(const Work &work, long us, long there)
{
    const LeapSecond &leap = work.leap;
    const auto tai_ut1 = [&leap](long tai) { // the rows hold their TAI; a second more or less is nothing here
        const double days = static_cast<double>(tai - kDay) / static_cast<double>(kDay) - leap.tai_utc / 86400.0;
        return std::lrint(1e6 * (leap.tai_utc - leap.sign + kTaiUt1 + kLoss * days));
    };
    if (work.from == KL_TIME_UT1) {
        const long tai = us + tai_ut1(us + static_cast<long>(leap.tai_utc) * kSecond);
        const long expected = from_tai(leap, work.to, tai);
        return std::labs(there - expected) <= 1 || std::labs(expected - kDay) <= 1;
    }
    const long tai = tai_of(leap, work.from, us);
    if (work.to == KL_TIME_UT1)
        return std::labs(there - (tai - tai_ut1(tai))) <= 1;
    return there == from_tai(leap, work.to, tai);
}

void report(const Work &work, double time, const char *what)
{
    if (++failures <= 20)
        std::printf("MJD %.0f, %s to %s, %.17g: %s\n", work.leap.mjd, kNames[work.from], kNames[work.to], time, what);
}

// UT1 is rounded to microseconds. Where TAI-UT1 is half way between two of them, to the last digits of a double,
// the way back may take the other one.
bool is_tie(const Work &work, kl_time_id *id, double time)
{
    if (work.from != KL_TIME_UT1 && work.to != KL_TIME_UT1)
        return false;
    double utc = 0.0;
    double ut1 = 0.0;
    double gps = 0.0;
    long in = 0;
    long after = 0;
    const long tai = KL_TIME_TAI;
    double tai_days = time;
    long ierr[1];
    kl_time_processing_to_processing(id, &kProc, &work.from, &time, &kProc, &tai, &tai_days, ierr);
    KL_Time_ref_init_file_deltas(id, &tai_days, &tai, &utc, &ut1, &gps, &in, &after, nullptr);
    const double microseconds = 1e6 * ut1;
    return std::fabs(microseconds - std::floor(microseconds) - 0.5) < 1e-6;
}

// Instants from 0h of the day before in the first scale, `first` to `last` microseconds in steps.
void sweep(const Work &work, kl_time_id *id, long first, long last, long step)
{
    const long day = static_cast<long>(work.leap.mjd) - 51544 - 1;
    double before = -1e9;
    long n = 0;
    for (long us = first; us < last; us += step) {
        const double time = days_of(day, us);
        double there = 0.0;
        double utc = 0.0;
        double back = 0.0;
        long ierr[1];
        // Days hold no 61st second: what lies in it comes back folded. And no second that was taken away.
        if (work.from == KL_TIME_UTC) {
            if (work.leap.sign < 0 && us >= kDay - kSecond && us < kDay)
                continue;
        } else if (work.leap.sign > 0 && std::labs(us - kDay) < 60 * kSecond) {
            const long tai = KL_TIME_TAI;
            double tai_days = 0.0;
            kl_time_processing_to_processing(id, &kProc, &work.from, &time, &kProc, &tai, &tai_days, ierr);
            utc = (tai_days - static_cast<double>(day + 1)) * 86400.0 - (work.leap.tai_utc - 1.0);
            if (utc > -1e-6 && utc < 1.0 + 1e-6 && work.to == KL_TIME_UTC)
                continue;
        }
        if (kl_time_processing_to_processing(id, &kProc, &work.from, &time, &kProc, &work.to, &there, ierr) != KL_OK
            || kl_time_processing_to_processing(id, &kProc, &work.to, &there, &kProc, &work.from, &back, ierr) != KL_OK)
            report(work, time, "refused");
        else if (!is_right(work, us, microseconds_of(day, there)))
            report(work, time, "another instant there");
        else if (microseconds_of(day, back) != us) {
            if (is_tie(work, id, time))
                ++ties;
            else
                report(work, time, "comes back as another instant");
        }
        if (!(there > before))
            report(work, time, "not after the one before");
        before = there;
        ++n;
    }
    instants += n;
}

void run(const Work &work, long milliseconds, long microseconds)
{
    kl_time_id id = {nullptr};
    if (!open_id(work.leap, &id)) {
        report(work, 0.0, "no time id");
        return;
    }
    sweep(work, &id, kDay / 2, kDay + kDay / 2, 1000 * milliseconds);
    // In TAI the leap second comes that many seconds later, in UT1 and GPS some seconds later.
    const long shift = work.from == KL_TIME_UTC   ? 0
                       : work.from == KL_TIME_TAI ? static_cast<long>(work.leap.tai_utc) - 1
                       : work.from == KL_TIME_GPS ? static_cast<long>(work.leap.tai_utc) - 20
                                                  : 0;
    sweep(work, &id, kDay + (shift - 2) * kSecond, kDay + (shift + 3) * kSecond, microseconds);
    if (kl_time_close(&id, nullptr) != KL_OK)
        report(work, 0.0, "the id does not close");
}

} // namespace

int main(int argc, char **argv)
{
    const long milliseconds = argc > 1 ? std::max(1L, std::atol(argv[1])) : 1;
    const long microseconds = argc > 2 ? std::max(1L, std::atol(argv[2])) : 1;
    std::vector<Work> all;
    for (std::size_t i = kFirst; i < std::size(kLeapSeconds); ++i)
        for (long from = KL_TIME_TAI; from <= KL_TIME_GPS; ++from)
            for (long to = KL_TIME_TAI; to <= KL_TIME_GPS; ++to)
                if (from != to)
                    all.push_back({kLeapSeconds[i], from, to});
    std::atomic<std::size_t> next{0};
    std::atomic<int> pairs[std::size(kLeapSeconds)] = {};
    const auto worker = [&] {
        for (std::size_t i = next++; i < all.size(); i = next++) {
            run(all[i], milliseconds, microseconds);
            if (++pairs[kFirst + i / kPairs] == kPairs) {
                std::printf("MJD %.0f: all pairs; %ld failures so far\n", all[i].leap.mjd, failures.load());
                std::fflush(stdout);
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
        threads.emplace_back(worker);
    for (std::thread &thread : threads)
        thread.join();
    std::printf(
        "%zu leap seconds, %d ordered pairs of scales: %ld instants there and back, %ld failures, %ld ties of UT1\n",
        std::size(kLeapSeconds) - kFirst, kPairs, instants.load(), failures.load(), ties.load());
    return failures == 0 && ties <= 1 + instants / kFewTies ? 0 : 1;
}
