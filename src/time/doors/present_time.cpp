// The present time as a UTC text.
#include "time/doors/checks.h"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <pthread.h>

namespace {

constexpr long kNoFormat = -99; // none given: refused

// Conditions of kl_time_get_leap_second_info, under which this function reports.
enum { kNoClock = 0, kNoConversion = 1, kNoLock = 2 };

pthread_mutex_t clock_mutex = PTHREAD_MUTEX_INITIALIZER; // guards gmtime and its static result

// The instant as a text of KL_ASCII_41. The caller holds the lock.
bool break_down(std::time_t now, char text[KL_TIME_ASCII_LENGTH])
{
    const std::tm *utc = std::gmtime(&now);
    return utc != nullptr && std::strftime(text, KL_TIME_ASCII_LENGTH, "%Y-%m-%dT%H:%M:%S", utc) != 0;
}

} // namespace

long KL_Time_current_time(const long *ascii_format, char *out, kl_error_record *error)
{
    // On purpose: the codes are recorded under the row of another function, whose texts are then shown.
    Activation call(KL_FN_TIME_GET_LEAP_SECOND_INFO, error);
    const std::time_t now = std::time(nullptr);
    if (now == static_cast<std::time_t>(-1))
        return call.fails(kNoClock);

    char text[KL_TIME_ASCII_LENGTH];
    if (pthread_mutex_lock(&clock_mutex) != 0)
        return call.fails(kNoLock);
    const bool broken_down = break_down(now, text);
    if (pthread_mutex_unlock(&clock_mutex) != 0) {
        std::puts("!!! Error closing the threads. All threads will be closed");
        return KL_ERR;
    }
    if (!broken_down)
        return call.fails(kNoClock);

    constexpr long own_format = KL_ASCII_41;
    const long format = value_or(ascii_format, kNoFormat);
    if (format != own_format && !text_as_text(KL_TIME_UTC, text, own_format, format, text))
        return call.fails(kNoConversion);
    if (out == nullptr)
        return KL_ERR;
    std::strcpy(out, text);
    return call.status();
}
