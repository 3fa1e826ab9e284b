// Goes through the neighbourhood of every leap second since 1972, and of one that takes a second away: every
// millisecond of the day before and of the day after, every microsecond of the two seconds on both sides, between every
// two scales there and back. Each instant comes back as the same microsecond, and the results are in order.
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

struct LeapSecond {
    double mjd, tai_utc; // the day it comes before, TAI-UTC from then on, s
    int sign = 1;
};

constexpr LeapSecond kLeapSeconds[] = {
#include "../../tests/time/tai_utc.inc"
    {62502.0, 36.0, -1}, // there has been none yet
};
constexpr std::size_t kFirst = 1; // the values of 1972 follow none

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

// Daily rows; UT1 runs on evenly, losing about a millisecond a day: no round figure, so that UT1 is nowhere half way
// between two microseconds at a whole millisecond.
bool open_id(const LeapSecond &leap, kl_time_id *id)
{
    kl_time_row rows[7];
    const double before = leap.tai_utc - leap.sign;
    for (int i = -3; i <= 3; ++i)
        rows[i + 3] = row_at(leap.mjd - 51544.0 + i, i < 0 ? before : leap.tai_utc, before + 0.3 + 0.00123456789 * i);
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.n_rows = 7;
    data.rows = rows;
    return kl_time_set_id_data(id, &data) == 0;
}

double days_of(long day, long microseconds)
{
    return static_cast<double>(day) + static_cast<double>(microseconds) / static_cast<double>(kDay);
}

void report(const Work &work, double time, const char *what)
{
    if (++failures <= 20)
        std::printf("MJD %.0f, %s to %s, %.17g: %s\n", work.leap.mjd, kNames[work.from], kNames[work.to], time, what);
}

// UT1 is rounded to microseconds. Where TAI-UT1 is half way between two of them, to the last digits of a double, the
// way back may take the other one.
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
        const double time = days_of(day + us / kDay, us % kDay);
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
        else if (std::llround((back - static_cast<double>(day)) * static_cast<double>(kDay)) != us) {
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
    sweep(work, &id, 0, 2 * kDay, 1000 * milliseconds);
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
    const auto worker = [&] {
        for (std::size_t i = next++; i < all.size(); i = next++)
            run(all[i], milliseconds, microseconds);
    };
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
        threads.emplace_back(worker);
    for (std::thread &thread : threads)
        thread.join();
    std::printf(
        "%zu leap seconds, 12 ordered pairs of scales: %ld instants there and back, %ld failures, %ld ties of UT1\n",
        std::size(kLeapSeconds) - kFirst, instants.load(), failures.load(), ties.load());
    return failures == 0 ? 0 : 1;
}
