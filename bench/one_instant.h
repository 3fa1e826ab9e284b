// A time correlation of one row, and epochs for calls that shall not find the same one twice.
#ifndef KL_BENCH_ONE_INSTANT_H
#define KL_BENCH_ONE_INSTANT_H

#include "kl_lib.h"

#include <cstdlib>

constexpr double kLeapSeconds = 37.0;
constexpr double kUt1MinusUtc = -0.02;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kJdOfDayZero = 2451544.5;

// A time id of one row, from TAI, UTC, UT1 and GPS of one instant.
struct TimeId {
    kl_time_id id = {};
    TimeId()
    {
        const double utc = 8000.0;
        const double times[4] = {utc + kLeapSeconds / kSecondsPerDay, utc, utc + kUt1MinusUtc / kSecondsPerDay,
                                 utc + (kLeapSeconds - 19.0) / kSecondsPerDay};
        if (kl_time_ref_init(times, nullptr, nullptr, nullptr, &id, nullptr) != KL_OK)
            std::abort();
    }
    ~TimeId() { kl_time_close(&id, nullptr); }
};

// A new epoch for each call: UTC, MJD2000.
class Epochs {
public:
    double next()
    {
        days_ += 0.7310585;
        if (days_ > 9000.0)
            days_ -= 9000.0;
        return days_;
    }

private:
    double days_ = 0.0;
};

#endif
