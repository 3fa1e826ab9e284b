// The two sides of a conversion: how each form of an instant is checked, read and written, and which conditions of the
// nine conversions its faults are.
#ifndef KL_SRC_TIME_DOORS_CONVERSION_SIDES_H
#define KL_SRC_TIME_DOORS_CONVERSION_SIDES_H

#include "arrays/array_call.h"
#include "time/doors/checks.h"

#include <cstddef>
#include <cstring>

// The first conditions of all nine, here with the numbers of kl_time_processing_to_processing.
enum {
    kFormatIn = KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR,
    kRefIn = KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR,
    kFormatOut = KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR,
    kRefOut = KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR,
    kRange = KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR,
    kNotInitialised = KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR,
    kOutOfRange = KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN,
    kBulletinA = KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN, // the once-only warnings 1, 2, 3 from here on
    kToStandard = KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR,
};

// Condition of a check, by its number there, as the condition of a conversion.
using Conditions = const std::int8_t *;

struct ProcessingSide {
    static constexpr int kCheckIn = KL_FN_TIME_CHECK_PROCESSING_INPUTS;
    static constexpr int kCheckOut = KL_FN_TIME_CHECK_PROCESSING_OUTPUTS;
    static constexpr std::int8_t kIn[] = {kFormatIn, kRefIn, kRange};
    static constexpr std::int8_t kOut[] = {kFormatOut, kRefOut};
    using Given = const double *;
    using Written = double *;
    struct GivenColumn {
        const double *times;
        bool is_missing() const { return times == nullptr; }
        Given at(long i) const { return times + i; }
    };
    struct WrittenColumn {
        double *times;
        bool is_missing(long) const { return times == nullptr; }
        Written at(long i) const { return times + i; }
        void clear(long i) const { fill_failed(times, i); }
    };
    static constexpr Given kNoneGiven = nullptr;
    static bool is_missing(Written written) { return written == nullptr; }

    static Fault check_in(long format, long ref) { return check_processing_form(format, ref); }
    static Fault check_out(long format, long ref) { return check_processing_output(format, ref); }
    static bool holds_leap_second(long) { return false; }
    static Fault read(const Correlation *correlation, long, long ref, const double *days, Reading *out)
    {
        if (days == nullptr)
            return {KL_CHECK_IN_DAYS};
        if (const Fault fault = check_processing_days(*days))
            return fault;
        *out = {Origin::processing, MissionLimit::none, ref, midnight_carried(correlation, ref, moment_of(*days))};
        return {};
    }
    // A processing time is known before its record is.
    static double about(const double *days, const Reading &) { return *days; }
    static Fault write(long, long, const Reading &reading, double *out)
    {
        *out = days_of(reading.moment);
        return {};
    }
};

struct TextSide {
    static constexpr int kCheckIn = KL_FN_TIME_CHECK_ASCII_INPUTS;
    static constexpr int kCheckOut = KL_FN_TIME_CHECK_ASCII_OUTPUTS;
    static constexpr std::int8_t kIn[] = {
        kFormatIn,
        kRefIn,
        kRange,
        KL_TIME_ASCII_TO_ASCII_LAYOUT_ERR,
        KL_TIME_ASCII_TO_ASCII_TOO_SHORT_ERR,
        KL_TIME_ASCII_TO_ASCII_TOO_LONG_ERR,
        KL_TIME_ASCII_TO_ASCII_PREFIX_ERR,
        KL_TIME_ASCII_TO_ASCII_PREFIX_REF_ERR,
        KL_TIME_ASCII_TO_ASCII_NO_REF_ERR,
        KL_TIME_ASCII_TO_ASCII_MISSION_LIMIT_ERR,
        KL_TIME_ASCII_TO_ASCII_MONTH_ERR,
        KL_TIME_ASCII_TO_ASCII_DAY_ERR,
        KL_TIME_ASCII_TO_ASCII_HOUR_ERR,
        KL_TIME_ASCII_TO_ASCII_MINUTE_ERR,
        KL_TIME_ASCII_TO_ASCII_SECOND_ERR,
        KL_TIME_ASCII_TO_ASCII_MICROSECOND_ERR,
        KL_TIME_ASCII_TO_ASCII_DAY_OF_30_ERR,
        KL_TIME_ASCII_TO_ASCII_DAY_OF_29_ERR,
        KL_TIME_ASCII_TO_ASCII_DAY_OF_28_ERR,
        KL_TIME_ASCII_TO_ASCII_LEAP_SECOND_ERR,
    };
    static_assert(sizeof kIn == KL_ASCII_IN_N_CODES);
    static constexpr std::int8_t kOut[] = {kFormatOut, kRefOut};
    struct Given {
        const char *text;
        std::size_t room; // characters that may be looked at
        bool is_whole;    // all of them, whatever stands before them
    };
    struct Written {
        char *text;
        std::size_t width; // to be filled with zeros; 0: one zero behind the text
    };
    struct GivenColumn {
        const char *texts;
        long width;
        bool is_missing() const { return texts == nullptr || width < 1; }
        Given at(long i) const { return {texts + i * width, static_cast<std::size_t>(width), true}; }
    };
    struct WrittenColumn {
        char *texts;
        long width;
        bool is_missing(long format) const { return texts == nullptr || width < text_length(format); }
        Written at(long i) const { return {texts + i * width, static_cast<std::size_t>(width)}; }
        void clear(long i) const
        {
            if (texts != nullptr && width > 0)
                std::memset(texts + i * width, 0, static_cast<std::size_t>(width));
        }
    };
    static constexpr Given kNoneGiven = {nullptr, 0, false};
    static bool is_missing(const Written &written) { return written.text == nullptr; }

    static Fault check_in(long format, long ref) { return check_text_input(format, ref); }
    static Fault check_out(long format, long ref) { return check_text_output(format, ref); }
    static bool holds_leap_second(long) { return true; }
    static Fault read(const Correlation *correlation, long format, long ref, const Given &given, Reading *out)
    {
        return read_text(correlation, format, ref, given.text, given.room, given.is_whole, out);
    }
    static double about(const Given &, const Reading &reading) { return ::about(reading.moment); }
    static Fault write(long format, long ref, const Reading &reading, const Written &written)
    {
        const Fault fault = write_text(format, ref, reading, written.text);
        const auto length = static_cast<std::size_t>(text_length(format));
        if (!fault)
            std::memset(written.text + length, 0, written.width == 0 ? 1 : written.width - length);
        return fault;
    }
};

// Texts of any layout: the text says its own, and may say its scale.
struct TypedTextSide : TextSide {
    static Fault check_in(long, long ref) { return check_text_input(KL_ASCII_11, ref); }
    static Fault read(const Correlation *correlation, long, long ref, const Given &given, Reading *out)
    {
        return read_typed_text(correlation, ref, given.text, given.room, out);
    }
};

struct TransportSide {
    static constexpr int kCheckIn = KL_FN_TIME_CHECK_TRANSPORT_INPUTS;
    static constexpr int kCheckOut = KL_FN_TIME_CHECK_TRANSPORT_OUTPUTS;
    static constexpr std::int8_t kIn[] = {
        kFormatIn,
        kRefIn,
        kRefIn,
        kRange,
        KL_TIME_TRANSPORT_TO_TRANSPORT_LEAP_SECOND_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_MILLISECONDS_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_MICROSECONDS_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_TICKS_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_WEEK_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_OF_WEEK_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_FRACTION_ERR,
        KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR,
    };
    static_assert(sizeof kIn == KL_TRANS_IN_N_CODES);
    static constexpr std::int8_t kOut[] = {kFormatOut, kRefOut, kRefOut};
    using Given = const long *;
    using Written = long *;
    struct GivenColumn {
        const long (*fields)[KL_TRANSPORT_LENGTH];
        bool is_missing() const { return fields == nullptr; }
        Given at(long i) const { return fields[i]; }
    };
    struct WrittenColumn {
        long (*fields)[KL_TRANSPORT_LENGTH];
        bool is_missing(long) const { return fields == nullptr; }
        Written at(long i) const { return fields[i]; }
        void clear(long i) const
        {
            for (int k = 0; fields != nullptr && k < KL_TRANSPORT_LENGTH; ++k)
                fields[i][k] = 0;
        }
    };
    static constexpr Given kNoneGiven = nullptr;
    static bool is_missing(Written written) { return written == nullptr; }

    static Fault check_in(long format, long ref) { return check_transport_input(format, ref); }
    static Fault check_out(long format, long ref) { return check_transport_output(format, ref); }
    static bool holds_leap_second(long format) { return transport_holds_leap_second(format); }
    static Fault read(const Correlation *correlation, long format, long ref, const long *fields, Reading *out)
    {
        return read_transport(correlation, format, ref, fields, out);
    }
    static double about(const long *, const Reading &reading) { return ::about(reading.moment); }
    static Fault write(long format, long, const Reading &reading, long *fields)
    {
        write_transport(format, reading.moment, fields);
        return {};
    }
};

#endif
