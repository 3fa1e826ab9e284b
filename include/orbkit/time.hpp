/**
 * @file time.hpp
 */
#ifndef ORBKIT_TIME_HPP
#define ORBKIT_TIME_HPP

#include "borrowed.hpp"
#include "enums.hpp"
#include "types.hpp"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>

namespace ORBKIT {

/**
 * An instant, to the microsecond, with the scale in which it is told and the correlation that leads from one scale to
 * another. A value without heap. The correlation is borrowed and must outlive the instant; without one the built-in is
 * meant.
 *
 * Instants compare and subtract across scales and leap seconds: they are kept in TAI, where seconds have no gaps. Two
 * that come from different correlations do neither: that is a KitError. TimeCorrelation::builtIn() makes another one at
 * each call: leave it out, or keep one for all instants. An instant outside 1950 to 2099 is a KitError too.
 *
 * Durations are those of std::chrono, whole microseconds: 1s, 90min, and std::chrono::duration_cast<Time::Duration>(d)
 * of a duration d that holds a double.
 *
 * @code{.cpp}
 * using namespace std::chrono_literals;
 * using ORBKIT::Scale, ORBKIT::Time, ORBKIT::TextFormat;
 * const Time last("2016-12-31T23:59:59");                                     // UTC where nothing else is said
 * const Time leap = last + 1s;
 * std::printf("%s, %s\n", leap.text().c_str(), (leap + 1s).text().c_str());
 * // -> 2016-12-31T23:59:60.000000, 2017-01-01T00:00:00.000000
 * const Time gps = leap.in(Scale::GPS);
 * std::printf("%s %d\n", gps.text(TextFormat::ascii_12).c_str(), gps == leap); // -> GPS=2017-01-01_00:00:17 1
 * const Time same = Time::fromProcessing(leap.processing(Scale::UT1), Scale::UT1);
 * std::printf("%d, %lld us\n", same == leap, static_cast<long long>((same - last).count())); // -> 1, 1000000 us
 * const auto clock = Time("2026-06-21T08:24:00.25").systemClock(); // a std::chrono time_point
 * std::printf("%.0f days\n", std::chrono::duration<double>(Time(clock) - last).count() / 86400.0); // -> 3458 days
 * const std::string_view line = "2026-172T08:24:00.25,67.857"; // texts of any kind, without a copy on the heap
 * std::printf("%s\n", Time(line.substr(0, line.find(','))).text().c_str()); // -> 2026-06-21T08:24:00.250000
 * const Time strict = Time::fromText("20161231_235960", TextFormat::ascii_21); // this layout and no other
 * std::printf("%d %.6f s\n", strict == leap, std::chrono::duration<double>(leap - last).count()); // -> 1 1.000000 s
 * const kl_time_row_info row = last.served(); // what the correlation gives there
 * std::printf("TAI-UTC %.0f s, pole %.3f arcsec\n", row.tai_utc, row.pole[1]); // -> TAI-UTC 36 s, pole 0.263 arcsec
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
    explicit Time(const TypedText &text, Scale scale = Scale::UTC, Borrowed<TimeCorrelation> correlation = {})
        : correlation_(correlation), scale_(scale)
    {
        const char *const typed = text.c_str();
        take_scale(typed);
        const long ref = number(scale_);
        const long processing = KL_PROC;
        const long tai = KL_TIME_TAI;
        double days;
        long ierr[1] = {0};
        throw_unless_ok("Time", kl_time_text_to_processing(id(), typed, &ref, &processing, &tai, &days, ierr),
                        KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, ierr);
        tai_ = nearest(days);
    }

    /**
     * From a text of one layout, to the character: what is not written so is refused.
     *
     * @param scale  of the layouts without a prefix, as TextFormat::iso; the others say it themselves
     */
    static Time fromText(const TypedText &text, TextFormat format, Scale scale = Scale::UTC,
                         Borrowed<TimeCorrelation> correlation = {})
    {
        Time time(scale, correlation);
        const long in = number(format);
        const bool prefix = in % 2 == 0;
        if (prefix)
            time.take_scale(text.c_str());
        const long ref = prefix ? long{KL_TIME_UNDEF} : number(scale);
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        long fields[4];
        long ierr[1] = {0};
        throw_unless_ok("Time::fromText",
                        kl_time_ascii_to_transport(time.id(), &in, &ref, text.c_str(), &transport, &tai, fields, ierr),
                        KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT, ierr);
        time.take(fields);
        return time;
    }

    /** From the clock of the system, which counts UTC without leap seconds; to the nearest microsecond. */
    explicit Time(std::chrono::system_clock::time_point clock, Borrowed<TimeCorrelation> correlation = {})
    {
        const auto since = clock.time_since_epoch();
        Duration whole = std::chrono::duration_cast<Duration>(since);
        const auto rest = since - whole; // of the sign of the whole; std::chrono::round leaves the range at its ends
        if (2 * rest >= Duration(1))
            ++whole;
        else if (2 * rest < -Duration(1))
            --whole;
        const std::int64_t utc = whole.count() - kUnixEpoch;
        *this = fromTransport(fields_of(utc), TransportFormat::days_seconds, Scale::UTC, correlation);
    }

    /** The present. */
    static Time now(Borrowed<TimeCorrelation> correlation = {})
    {
        return Time(std::chrono::system_clock::now(), correlation);
    }

    /**
     * From a processing value, rounded to the microsecond.
     *
     * @param days  MJD2000, -18262.0 to 36524.0
     */
    static Time fromProcessing(double days, Scale scale, Borrowed<TimeCorrelation> correlation = {})
    {
        Time time(scale, correlation);
        const long processing = KL_PROC;
        const long ref = number(scale);
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        long fields[4];
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
                              Borrowed<TimeCorrelation> correlation = {})
    {
        Time time(scale, correlation);
        const long in = number(format);
        const long ref = number(scale);
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        long fields[4];
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::fromTransport",
            kl_time_transport_to_transport(time.id(), &in, &ref, record.data(), &transport, &tai, fields, ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, ierr);
        time.take(fields);
        return time;
    }

    /** From a CCSDS unsegmented code, by way of TAI, so that leap seconds since its epoch count. */
    static Time fromCuc(const CucTime &octets, const kl_cuc_config &config, Borrowed<TimeCorrelation> correlation = {})
    {
        return fromCuc(octets.data(), config, correlation);
    }
    static Time fromCuc(const unsigned char *octets, const kl_cuc_config &config,
                        Borrowed<TimeCorrelation> correlation = {})
    {
        Time time(Scale::TAI, correlation);
        const long tai = KL_TIME_TAI;
        double days;
        long ierr[1] = {0};
        throw_unless_ok("Time::fromCuc", kl_time_cuc_to_processing(time.id(), &config, &tai, octets, &days, ierr),
                        KL_ID_FUNC_TIME_CUC_TO_PROCESSING, ierr);
        return time += Duration(std::fabs(days) < 1e6 ? by_day_and_rest(days) : kLast - kFirst); // that is refused
    }

    /**
     * From the count of an on-board clock; the type of the parameters, kl_obt_param_*, chooses the format.
     *
     * @param scale  that of the parameters
     */
    template <class Parameters>
    static Time fromOnBoard(const OnBoardCount<Parameters> &count, const Parameters &parameters, Scale scale,
                            Borrowed<TimeCorrelation> correlation = {})
    {
        const long ref = number(scale);
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("Time::fromOnBoard",
                        kl_time_obt_to_time(&parameters.sat_id, &ref, &parameters, &count, &days, ierr),
                        KL_ID_FUNC_TIME_OBT_TO_TIME, ierr);
        return fromProcessing(days, scale, correlation);
    }

    /** From a count of microseconds of TAI since MJD2000 0.0. */
    static Time fromTaiMicroseconds(std::int64_t count, Scale scale = Scale::TAI,
                                    Borrowed<TimeCorrelation> correlation = {})
    {
        Time time(scale, correlation);
        return time += Duration(count);
    }

    /** Microseconds of TAI since MJD2000 0.0. */
    std::int64_t taiMicroseconds() const { return tai_; }
    /** Days of TAI since MJD2000 0.0. */
    double taiDays() const { return static_cast<double>(tai_) / static_cast<double>(kDay); }

    /** The scale in which it is told. */
    Scale scale() const { return scale_; }
    /** The same instant, told in another scale. */
    Time in(Scale scale) const
    {
        Time time = *this;
        time.scale_ = scale;
        return time;
    }

    /** MJD2000, days. */
    double processing(Scale scale) const
    {
        if (scale == Scale::TAI)
            return taiDays();
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long processing = KL_PROC;
        const long ref = number(scale);
        const TransportTime record = fields_of(tai_);
        double days = 0.0;
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::processing",
            kl_time_transport_to_processing(id(), &transport, &tai, record.data(), &processing, &ref, &days, ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING, ierr);
        return days;
    }
    double processing() const { return processing(scale_); }

    /** A text; it lives on the stack. */
    TimeText text(TextFormat format, Scale scale) const
    {
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long out = number(format);
        const long ref = number(scale);
        const TransportTime record = fields_of(tai_);
        TimeText text{};
        long ierr[1] = {0};
        throw_unless_ok("Time::text",
                        kl_time_transport_to_ascii(id(), &transport, &tai, record.data(), &out, &ref, text.text, ierr),
                        KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII, ierr);
        return text;
    }
    TimeText text(TextFormat format = TextFormat::iso) const { return text(format, scale_); }

    /** A transport record; formats 41 and 42 take Scale::GPS only. */
    TransportTime transport(TransportFormat format, Scale scale) const
    {
        const long transport = KL_TRANS_0;
        const long tai = KL_TIME_TAI;
        const long out = number(format);
        const long ref = number(scale);
        const TransportTime record = fields_of(tai_);
        TransportTime made{};
        long ierr[1] = {0};
        throw_unless_ok(
            "Time::transport",
            kl_time_transport_to_transport(id(), &transport, &tai, record.data(), &out, &ref, made.data(), ierr),
            KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT, ierr);
        return made;
    }
    TransportTime transport(TransportFormat format) const { return transport(format, scale_); }

    /** A CCSDS unsegmented code. */
    CucTime cuc(const kl_cuc_config &config) const
    {
        const long tai = KL_TIME_TAI;
        const double days = taiDays();
        CucTime octets{};
        long ierr[1] = {0};
        throw_unless_ok("Time::cuc", kl_time_processing_to_cuc(id(), &config, &tai, &days, octets.data(), ierr),
                        KL_ID_FUNC_TIME_PROCESSING_TO_CUC, ierr);
        return octets;
    }

    /** The count of an on-board clock. @param scale  that of the parameters */
    template <class Parameters>
    OnBoardCount<Parameters> onBoard(const Parameters &parameters, Scale scale) const
    {
        const long ref = number(scale);
        const double days = processing(scale);
        OnBoardCount<Parameters> out{};
        out.sat_id = parameters.sat_id;
        long ierr[1] = {0};
        throw_unless_ok("Time::onBoard", kl_time_time_to_obt(&parameters.sat_id, &ref, &parameters, &days, &out, ierr),
                        KL_ID_FUNC_TIME_TIME_TO_OBT, ierr);
        return out;
    }

    /** As the clock of the system counts; a leap second is the second after it there. */
    std::chrono::system_clock::time_point systemClock() const
    {
        const TransportTime utc = transport(TransportFormat::days_seconds, Scale::UTC);
        return std::chrono::system_clock::time_point(
            std::chrono::duration_cast<std::chrono::system_clock::duration>(Duration(count_of(utc) + kUnixEpoch)));
    }

    const TimeCorrelation &correlation() const
    {
        return correlation_ != nullptr ? *correlation_ : built_in_correlation();
    }
    /**
     * Which row of the correlation serves it, and what that gives: tai_utc, tai_ut1, tai_gps (s), pole (x, y, dX, dY,
     * arcsec), row, quality, and the file and line that it came from.
     */
    kl_time_row_info served() const { return correlation().getRow(Scale::TAI, taiDays()); }

    /** For the calls of C. */
    kl_time_id *id() const { return detail::handle(correlation()); }

    /** @throws KitError beyond 1950 to 2099 */
    Time &operator+=(Duration duration)
    {
        const std::int64_t count = duration.count();
        if (count > kLast - kFirst || count < kFirst - kLast || tai_ + count > kLast || tai_ + count < kFirst)
            throw_messages({"An instant must lie between 1950 and 2099.", "Time"});
        tai_ += count;
        return *this;
    }
    Time &operator-=(Duration duration)
    {
        return *this += duration == Duration::min() ? Duration::max() : -duration; // both are refused
    }
    friend Time operator+(Time time, Duration duration) { return time += duration; }
    friend Time operator+(Duration duration, Time time) { return time += duration; }
    friend Time operator-(Time time, Duration duration) { return time -= duration; }
    friend Duration operator-(const Time &a, const Time &b) { return Duration(together(a, b).tai_ - b.tai_); }
    friend bool operator==(const Time &a, const Time &b) { return together(a, b).tai_ == b.tai_; }
    friend bool operator!=(const Time &a, const Time &b) { return together(a, b).tai_ != b.tai_; }
    friend bool operator<(const Time &a, const Time &b) { return together(a, b).tai_ < b.tai_; }
    friend bool operator<=(const Time &a, const Time &b) { return together(a, b).tai_ <= b.tai_; }
    friend bool operator>(const Time &a, const Time &b) { return together(a, b).tai_ > b.tai_; }
    friend bool operator>=(const Time &a, const Time &b) { return together(a, b).tai_ >= b.tai_; }
    /** With its scale, as it can be read again: UTC=2026-06-21T08:24:00.000000 */
    friend std::ostream &operator<<(std::ostream &out, const Time &time)
    {
        return out << time.text(TextFormat::ascii_44).text;
    }

    /** The first of two instants. @throws KitError when they come from different correlations */
    static const Time &together(const Time &a, const Time &b)
    {
        if (a.correlation_ != b.correlation_ && a.id()->record != b.id()->record)
            throw_messages({"Instants of different time correlations cannot be mixed.", "Time"});
        return a;
    }

private:
    static constexpr std::int64_t kDay = 86400 * std::int64_t{1000000};
    static constexpr std::int64_t kUnixEpoch = 10957 * kDay; // days from 1970-01-01 to 2000-01-01
    static constexpr std::int64_t kFirst = -18263 * kDay, kLast = 36526 * kDay;

    Time(Scale scale, Borrowed<TimeCorrelation> correlation) : correlation_(correlation), scale_(scale) {}

    // The scale that a text says itself: TAI= and the like in front, or a Z behind. Where it is none the text is
    // refused.
    void take_scale(const char *text)
    {
        while (*text != '\0' && *text <= ' ')
            ++text;
        if (text[0] != '\0' && text[1] != '\0' && text[2] != '\0' && text[3] == '=') {
            scale_ = text[0] == 'T'   ? Scale::TAI
                     : text[0] == 'G' ? Scale::GPS
                     : text[2] == 'C' ? Scale::UTC
                                      : Scale::UT1;
        } else if (scale_ != Scale::UTC) {
            char last = '\0';
            for (; *text != '\0'; ++text)
                last = *text > ' ' ? *text : last;
            scale_ = last == 'Z' ? Scale::UTC : scale_;
        }
    }

    // Microseconds of a count of them. Up to 2^14 days a rounded product is off by less than half of one.
    static std::int64_t nearest(double days)
    {
        return std::fabs(days) < 0x1p14 ? whole(days * static_cast<double>(kDay)) : by_day_and_rest(days);
    }
    static std::int64_t by_day_and_rest(double days)
    {
        const std::int64_t day = static_cast<std::int64_t>(days);
        return day * kDay + whole((days - static_cast<double>(day)) * static_cast<double>(kDay));
    }
    // To the nearest, below 2^51: where doubles lie one apart, their bits count.
    static std::int64_t whole(double count)
    {
        const double one_apart = 0x1.8p52;
        const double sum = count + one_apart;
        std::int64_t a = 0;
        std::int64_t b = 0;
        std::memcpy(&a, &sum, sizeof a);
        std::memcpy(&b, &one_apart, sizeof b);
        return a - b;
    }

    static std::int64_t day_of(std::int64_t count) { return count / kDay - (count % kDay < 0 ? 1 : 0); }
    static TransportTime fields_of(std::int64_t count)
    {
        const std::int64_t day = day_of(count);
        const std::int64_t rest = count - day * kDay;
        return {static_cast<long>(day), static_cast<long>(rest / 1000000), static_cast<long>(rest % 1000000), 0};
    }
    template <class Fields>
    static std::int64_t count_of(const Fields &record)
    {
        return record[0] * kDay + record[1] * std::int64_t{1000000} + record[2];
    }
    void take(const long (&record)[4]) { tai_ = count_of(record); }

    std::int64_t tai_ = 0; // microseconds since MJD2000 0.0
    const TimeCorrelation *correlation_ = nullptr;
    Scale scale_ = Scale::TAI;
};

} // namespace ORBKIT

#endif
