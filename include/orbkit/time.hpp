/**
 * @file time.hpp
 */
#ifndef ORBKIT_TIME_HPP
#define ORBKIT_TIME_HPP

#include "enums.hpp"
#include "lib_error.hpp"
#include "model_id.hpp"
#include "time_id.hpp"
#include "types.hpp"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <string>

namespace ORBKIT {

/** The correlation of the time scales: another name of TimeId. */
using TimeCorrelation = TimeId;

/** The correlation compiled into the library: one for the process, never closed. */
inline const TimeCorrelation &built_in_correlation()
{
    static const TimeCorrelation *const correlation = new TimeCorrelation(TimeCorrelation::builtIn());
    return *correlation;
}

/** The default models, for calls that name none. */
inline const ModelId &default_models()
{
    static const ModelId models;
    return models;
}

/** Throws what a call of C reports: the rule of all classes. */
inline void throw_unless_ok(const char *operation, long status, long public_id, const long *ierr)
{
    if (status == KL_ERR || (status == KL_WARN && KitClass::throwWarn))
        throw KitError(LibError(operation, status, public_id, ierr));
}

/**
 * An instant, to the microsecond, with the correlation that leads from one scale to another. It is a value: 16 octets,
 * no heap. The correlation is borrowed and must outlive the instant; without one the built-in is meant.
 *
 * Instants compare and subtract across scales and leap seconds: they are kept in TAI, where seconds have no gaps.
 *
 * @code{.cpp}
 * using namespace std::chrono_literals;
 * using ORBKIT::Scale, ORBKIT::Time;
 * const Time last("2016-12-31T23:59:59");                                     // UTC where nothing else is said
 * const Time leap = last + 1s;
 * std::printf("%s, %s\n", leap.text().c_str(), (leap + 1s).text().c_str());
 * // -> 2016-12-31T23:59:60.000000, 2017-01-01T00:00:00.000000
 * std::printf("%s\n", leap.text(ORBKIT::TextFormat::ascii_11, Scale::GPS).c_str()); // -> 2017-01-01_00:00:17
 * const Time same = Time::fromProcessing(leap.processing(Scale::TAI), Scale::TAI);
 * std::printf("%d %lld us\n", same == leap, static_cast<long long>((same - last).count())); // -> 1 1000000 us
 * @endcode
 */
class Time {
public:
    using Duration = std::chrono::microseconds;

    /** MJD2000 0.0 in TAI. */
    Time() = default;

    /**
     * From a text as people write it: 2026-06-21T08:24:00Z, 2026-172 08:24:00.5, "GPS=21-Jun-2026 08:24:18"; the
     * grammar stands at kl_time_text_to_processing.
     *
     * @param text         of any of the library's layouts; a date alone is none
     * @param scale        where the text does not say it itself
     * @param correlation  borrowed
     * @throws KitError when it is no such text
     */
    explicit Time(const std::string &text, Scale scale = Scale::UTC,
                  const TimeCorrelation &correlation = built_in_correlation())
        : correlation_(&correlation)
    {
        const long ref = number(scale);
        const long processing = KL_PROC;
        const long tai = KL_TIME_TAI;
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("Time", kl_time_text_to_processing(id(), text.c_str(), &ref, &processing, &tai, &days, ierr),
                        KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, ierr);
        const double day = std::floor(days);
        tai_ = static_cast<std::int64_t>(day) * kDay + std::llround((days - day) * 8.64e10);
    }

    /**
     * From a processing value, rounded to the microsecond.
     *
     * @param days  MJD2000, -18262.0 to 36524.0
     */
    static Time fromProcessing(double days, Scale scale, const TimeCorrelation &correlation = built_in_correlation())
    {
        Time time(correlation);
        const long processing = KL_PROC;
        const long ref = number(scale);
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        long fields[4] = {};
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::fromProcessing",
            kl_time_processing_to_transport(time.id(), &processing, &ref, &days, &transport, &tai, fields, ierr),
            KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT, ierr);
        time.take(fields);
        return time;
    }

    /** From a transport record. */
    static Time fromTransport(const TransportTime &record, TransportFormat format, Scale scale,
                              const TimeCorrelation &correlation = built_in_correlation())
    {
        Time time(correlation);
        const long in = number(format);
        const long ref = number(scale);
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        long fields[4] = {};
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::fromTransport",
            kl_time_transport_to_transport(time.id(), &in, &ref, record.data(), &transport, &tai, fields, ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, ierr);
        time.take(fields);
        return time;
    }

    /** From the clock of the system, which counts UTC without leap seconds. */
    static Time from(std::chrono::system_clock::time_point clock,
                     const TimeCorrelation &correlation = built_in_correlation())
    {
        const auto since_1970 = std::chrono::duration_cast<Duration>(clock.time_since_epoch()).count();
        const std::int64_t utc = since_1970 - kUnixEpoch;
        const std::int64_t day = utc >= 0 ? utc / kDay : -((-utc + kDay - 1) / kDay);
        const std::int64_t rest = utc - day * kDay;
        return fromTransport(
            {static_cast<long>(day), static_cast<long>(rest / 1000000), static_cast<long>(rest % 1000000), 0},
            TransportFormat::days_seconds, Scale::UTC, correlation);
    }

    /** The present. */
    static Time now(const TimeCorrelation &correlation = built_in_correlation())
    {
        return from(std::chrono::system_clock::now(), correlation);
    }

    /** From a count of microseconds of TAI since MJD2000 0.0. */
    static Time fromTaiMicroseconds(std::int64_t count, const TimeCorrelation &correlation = built_in_correlation())
    {
        Time time(correlation);
        time.tai_ = count;
        return time;
    }

    /** Microseconds of TAI since MJD2000 0.0. */
    std::int64_t taiMicroseconds() const { return tai_; }

    /** MJD2000, days. */
    double processing(Scale scale) const
    {
        if (scale == Scale::TAI)
            return tai_days();
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long processing = KL_PROC;
        const long ref = number(scale);
        const TransportTime record = fields();
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::processing",
            kl_time_transport_to_processing(id(), &transport, &tai, record.data(), &processing, &ref, &days, ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING, ierr);
        return days;
    }

    /** A text; it lives on the stack. */
    TimeText text(TextFormat format = TextFormat::iso, Scale scale = Scale::UTC) const
    {
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long out = number(format);
        const long ref = number(scale);
        const TransportTime record = fields();
        TimeText text{};
        long ierr[1] = {0};
        throw_unless_ok("Time::text",
                        kl_time_transport_to_ascii(id(), &transport, &tai, record.data(), &out, &ref, text.text, ierr),
                        KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII, ierr);
        return text;
    }

    /** A transport record. */
    TransportTime transport(TransportFormat format, Scale scale) const
    {
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long out = number(format);
        const long ref = number(scale);
        const TransportTime record = fields();
        TransportTime made{};
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::transport",
            kl_time_transport_to_transport(id(), &transport, &tai, record.data(), &out, &ref, made.data(), ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, ierr);
        return made;
    }

    /** As the clock of the system counts; a leap second is the second after it there. */
    std::chrono::system_clock::time_point systemClock() const
    {
        const TransportTime utc = transport(TransportFormat::days_seconds, Scale::UTC);
        const std::int64_t count = (utc[0] * 86400 + utc[1]) * std::int64_t{1000000} + utc[2] + kUnixEpoch;
        return std::chrono::system_clock::time_point(
            std::chrono::duration_cast<std::chrono::system_clock::duration>(Duration(count)));
    }

    const TimeCorrelation &correlation() const
    {
        return correlation_ != nullptr ? *correlation_ : built_in_correlation();
    }
    /** For the calls of C. */
    kl_time_id *id() const { return correlation().getId(); }

    Time &operator+=(Duration duration)
    {
        tai_ += duration.count();
        return *this;
    }
    Time &operator-=(Duration duration) { return *this += -duration; }
    friend Time operator+(Time time, Duration duration) { return time += duration; }
    friend Time operator-(Time time, Duration duration) { return time -= duration; }
    friend Duration operator-(const Time &a, const Time &b) { return Duration(a.tai_ - b.tai_); }
    friend bool operator==(const Time &a, const Time &b) { return a.tai_ == b.tai_; }
    friend bool operator!=(const Time &a, const Time &b) { return a.tai_ != b.tai_; }
    friend bool operator<(const Time &a, const Time &b) { return a.tai_ < b.tai_; }
    friend bool operator<=(const Time &a, const Time &b) { return a.tai_ <= b.tai_; }
    friend bool operator>(const Time &a, const Time &b) { return a.tai_ > b.tai_; }
    friend bool operator>=(const Time &a, const Time &b) { return a.tai_ >= b.tai_; }
    friend std::ostream &operator<<(std::ostream &out, const Time &time) { return out << time.text().text; }

private:
    static constexpr std::int64_t kDay = 86400 * std::int64_t{1000000};
    static constexpr std::int64_t kUnixEpoch = 10957 * kDay; // days from 1970-01-01 to 2000-01-01

    explicit Time(const TimeCorrelation &correlation) : correlation_(&correlation) {}

    double tai_days() const
    {
        const TransportTime record = fields();
        return static_cast<double>(record[0])
               + (static_cast<double>(record[1]) / 86400.0 + static_cast<double>(record[2]) / 8.64e10);
    }

    TransportTime fields() const
    {
        std::int64_t day = tai_ / kDay;
        if (tai_ % kDay < 0)
            --day;
        const std::int64_t rest = tai_ - day * kDay;
        return {static_cast<long>(day), static_cast<long>(rest / 1000000), static_cast<long>(rest % 1000000), 0};
    }
    void take(const long (&record)[4]) { tai_ = (record[0] * 86400 + record[1]) * std::int64_t{1000000} + record[2]; }

    std::int64_t tai_ = 0; // microseconds since MJD2000 0.0
    const TimeCorrelation *correlation_ = nullptr;
};

} // namespace ORBKIT

#endif
