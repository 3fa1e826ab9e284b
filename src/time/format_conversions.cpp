// The nine conversions between processing times, texts and transport times. Every one is a read side, the change of
// reference and a write side around the standard record.
#include "errors/message_groups.h"
#include "time/scales.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace {

// ---- conditions ----

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

using Two = std::array<Message, 2>;
constexpr Two kProcessingIn = {error("Input processing format ID is not correct"),
                               error("Input time reference ID is not correct")};
constexpr Two kAsciiIn = {error("Input ascii format ID is not correct"),
                          error("Input time reference ID is not correct")};
constexpr Two kTransportIn = {error("Input transport format ID is not correct"),
                              error("Input time reference ID is not correct")};
constexpr Two kProcessingOut = {error("Output processing format ID is not correct"),
                                error("Output time reference ID is not correct")};
constexpr Two kAsciiOut = {error("Output ascii format ID is not correct"),
                           error("Output time reference ID is not correct")};
constexpr Two kTransportOut = {error("Output transport format ID is not correct"),
                               error("Output time reference ID is not correct")};

using One = std::array<Message, 1>;
constexpr One kDays = {error("Number of days out of range")};
constexpr One kYear = {error("Year is not a number from 1950 to 2099")};
constexpr std::array<Message, 5> kCorrelation = {
    error("Time reference not initialised"),
    warning("Time out of initialization range"),
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"),
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A "
            "files intervals."),
    warning("Previous computation performed inside initialization validity, current computation performed outside "
            "initialization validity"),
};
constexpr One kStandard = {error("Error transforming to standard format")};
constexpr One kLeapSecond = {error("61st second outside a positive leap second")};
constexpr One kLayout = {error("Text does not have the separators of its format")};

constexpr std::array<Message, 16> kTextFields = {
    error("Text is too short for its format"),
    error("Text is too long for its format"),
    error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""),
    error("Prefix contradicts the input time reference"),
    error("Neither a prefix nor the caller gives a time reference"),
    error("Year 0000 or 9999, yet no beginning- or end-of-mission text"),
    error("Month is not one of 01 to 12 or JAN to DEC"),
    error("Day is not a number from 1 to 31"),
    error("Hour is not a number from 0 to 23"),
    error("Minute is not a number from 0 to 59"),
    error("Second is not a number from 0 to 59, or 60"),
    error("Microsecond is not a number"),
    error("That month has only 30 days"),
    error("That FEBRUARY has only 29 days"),
    error("That FEBRUARY has only 28 days"),
    error("Second 60 outside a positive leap second"),
};
constexpr std::array<Message, 8> kTransportFields = {
    error("Number of seconds out of range"),
    error("Number of milliseconds out of range"),
    error("Number of microseconds out of range"),
    error("Number of ticks out of range"),
    error("GPS week out of range"),
    error("Seconds of week out of range"),
    error("Fraction of second out of range"),
    error("Seconds since the GPS epoch out of range"),
};
constexpr std::array<Message, 0> kNoFields = {};
constexpr Two kTextRange = {error("Output time is before 1950"), error("Output time is after 2099")};
constexpr std::array<Message, 0> kNoRange = {};

template <std::size_t... N>
constexpr auto joined(const std::array<Message, N> &...parts)
{
    std::array<Message, (N + ...)> rows{};
    std::size_t n = 0;
    const auto append = [&](const auto &part) {
        for (std::size_t i = 0; i < part.size(); ++i)
            rows[n++] = part[i];
    };
    (append(parts), ...);
    return rows;
}

constexpr auto kProcessingToProcessing =
    joined(kProcessingIn, kProcessingOut, kDays, kCorrelation, kStandard, kNoFields, kNoRange);
constexpr auto kProcessingToAscii =
    joined(kProcessingIn, kAsciiOut, kDays, kCorrelation, kStandard, kNoFields, kTextRange);
constexpr auto kProcessingToTransport =
    joined(kProcessingIn, kTransportOut, kDays, kCorrelation, kStandard, kNoFields, kNoRange);
constexpr auto kAsciiToProcessing =
    joined(kAsciiIn, kProcessingOut, kYear, kCorrelation, kLayout, kTextFields, kNoRange);
constexpr auto kAsciiToAscii = joined(kAsciiIn, kAsciiOut, kYear, kCorrelation, kLayout, kTextFields, kTextRange);
constexpr auto kAsciiToTransport = joined(kAsciiIn, kTransportOut, kYear, kCorrelation, kLayout, kTextFields, kNoRange);
constexpr auto kTransportToProcessing =
    joined(kTransportIn, kProcessingOut, kDays, kCorrelation, kLeapSecond, kTransportFields, kNoRange);
constexpr auto kTransportToAscii =
    joined(kTransportIn, kAsciiOut, kDays, kCorrelation, kLeapSecond, kTransportFields, kTextRange);
constexpr auto kTransportToTransport =
    joined(kTransportIn, kTransportOut, kDays, kCorrelation, kLeapSecond, kTransportFields, kNoRange);

template <std::size_t N>
constexpr MessageGroup group_of(const std::array<Message, N> &rows)
{
    static_assert(N <= 29, "two words at most");
    return {rows.data(), static_cast<std::int8_t>(N)};
}

// Conditions of the checks and steps -> of the conversions.
constexpr CodeMap kFromProcessing[] = {
    {KL_CHECK_IN_FORMAT, kFormatIn},
    {KL_CHECK_IN_REF, kRefIn},
    {KL_CHECK_IN_DAYS, kRange},
};
constexpr CodeMap kToStandardRecord[] = {{KL_P2T_LEAP_SECOND, kToStandard}};
constexpr CodeMap kFromAscii[] = {
    {KL_ASCII_IN_FORMAT, kFormatIn},
    {KL_ASCII_IN_REF, kRefIn},
    {KL_ASCII_IN_YEAR, kRange},
    {KL_ASCII_IN_LAYOUT, KL_TIME_ASCII_TO_ASCII_LAYOUT_ERR},
    {KL_ASCII_IN_TOO_SHORT, KL_TIME_ASCII_TO_ASCII_TOO_SHORT_ERR},
    {KL_ASCII_IN_TOO_LONG, KL_TIME_ASCII_TO_ASCII_TOO_LONG_ERR},
    {KL_ASCII_IN_PREFIX, KL_TIME_ASCII_TO_ASCII_PREFIX_ERR},
    {KL_ASCII_IN_PREFIX_REF, KL_TIME_ASCII_TO_ASCII_PREFIX_REF_ERR},
    {KL_ASCII_IN_NO_REF, KL_TIME_ASCII_TO_ASCII_NO_REF_ERR},
    {KL_ASCII_IN_MISSION_LIMIT, KL_TIME_ASCII_TO_ASCII_MISSION_LIMIT_ERR},
    {KL_ASCII_IN_MONTH, KL_TIME_ASCII_TO_ASCII_MONTH_ERR},
    {KL_ASCII_IN_DAY, KL_TIME_ASCII_TO_ASCII_DAY_ERR},
    {KL_ASCII_IN_HOUR, KL_TIME_ASCII_TO_ASCII_HOUR_ERR},
    {KL_ASCII_IN_MINUTE, KL_TIME_ASCII_TO_ASCII_MINUTE_ERR},
    {KL_ASCII_IN_SECOND, KL_TIME_ASCII_TO_ASCII_SECOND_ERR},
    {KL_ASCII_IN_MICROSECOND, KL_TIME_ASCII_TO_ASCII_MICROSECOND_ERR},
    {KL_ASCII_IN_DAY_OF_30, KL_TIME_ASCII_TO_ASCII_DAY_OF_30_ERR},
    {KL_ASCII_IN_DAY_OF_29, KL_TIME_ASCII_TO_ASCII_DAY_OF_29_ERR},
    {KL_ASCII_IN_DAY_OF_28, KL_TIME_ASCII_TO_ASCII_DAY_OF_28_ERR},
    {KL_ASCII_IN_LEAP_SECOND, KL_TIME_ASCII_TO_ASCII_LEAP_SECOND_ERR},
};
static_assert(std::size(kFromAscii) == KL_ASCII_IN_N_CODES);
constexpr CodeMap kFromTransport[] = {
    {KL_TRANS_IN_FORMAT, kFormatIn},
    {KL_TRANS_IN_REF, kRefIn},
    {KL_TRANS_IN_GPS_REF, kRefIn},
    {KL_TRANS_IN_DAYS, kRange},
    {KL_TRANS_IN_LEAP_SECOND, KL_TIME_TRANSPORT_TO_TRANSPORT_LEAP_SECOND_ERR},
    {KL_TRANS_IN_SECONDS, KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_ERR},
    {KL_TRANS_IN_MILLISECONDS, KL_TIME_TRANSPORT_TO_TRANSPORT_MILLISECONDS_ERR},
    {KL_TRANS_IN_MICROSECONDS, KL_TIME_TRANSPORT_TO_TRANSPORT_MICROSECONDS_ERR},
    {KL_TRANS_IN_TICKS, KL_TIME_TRANSPORT_TO_TRANSPORT_TICKS_ERR},
    {KL_TRANS_IN_WEEK, KL_TIME_TRANSPORT_TO_TRANSPORT_WEEK_ERR},
    {KL_TRANS_IN_SECONDS_OF_WEEK, KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_OF_WEEK_ERR},
    {KL_TRANS_IN_FRACTION, KL_TIME_TRANSPORT_TO_TRANSPORT_FRACTION_ERR},
    {KL_TRANS_IN_GPS_SECONDS, KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR},
};
static_assert(std::size(kFromTransport) == KL_TRANS_IN_N_CODES);
constexpr CodeMap kToProcessing[] = {{KL_CHECK_OUT_FORMAT, kFormatOut}, {KL_CHECK_OUT_REF, kRefOut}};
constexpr CodeMap kToAscii[] = {{KL_ASCII_OUT_FORMAT, kFormatOut}, {KL_ASCII_OUT_REF, kRefOut}};
constexpr CodeMap kToTransport[] = {
    {KL_TRANS_OUT_FORMAT, kFormatOut},
    {KL_TRANS_OUT_REF, kRefOut},
    {KL_TRANS_OUT_GPS_REF, kRefOut},
};
constexpr CodeMap kReferenceStep[] = {
    {KL_TO_TAI_NOT_INITIALISED, kNotInitialised},
    {KL_TO_TAI_OUT_OF_RANGE, kOutOfRange},
    {KL_TO_TAI_LEAP_SECOND, kNotInitialised},
};
constexpr CodeMap kReferenceStepBack[] = {
    {KL_TO_TAI_NOT_INITIALISED, kNotInitialised},
    {KL_TO_TAI_OUT_OF_RANGE, kOutOfRange},
};
// The range of a written text stands at the end of each list.
using TextRange = CodeMap[2];
constexpr int kSecondWord = 32 - 27; // codes 27 and 28 of text to text are bits 32 and 33
constexpr TextRange kAsciiToAsciiRange = {
    {KL_ASCII_WRITE_BEFORE_1950, KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR - kSecondWord},
    {KL_ASCII_WRITE_AFTER_2099, KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR - kSecondWord},
};
constexpr TextRange kProcessingToAsciiRange = {
    {KL_ASCII_WRITE_BEFORE_1950, KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR},
    {KL_ASCII_WRITE_AFTER_2099, KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR},
};
constexpr TextRange kTransportToAsciiRange = {
    {KL_ASCII_WRITE_BEFORE_1950, KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR},
    {KL_ASCII_WRITE_AFTER_2099, KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR},
};

static_assert(kAsciiToAscii.size() == KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR - kSecondWord + 1);
static_assert(kAsciiToProcessing.size() == KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR + 1);
static_assert(kAsciiToTransport.size() == KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR + 1);
static_assert(kProcessingToAscii.size() == KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR + 1);
static_assert(kProcessingToProcessing.size() == KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR + 1);
static_assert(kProcessingToTransport.size() == KL_TIME_PROCESSING_TO_TRANSPORT_STANDARD_FORMAT_ERR + 1);
static_assert(kTransportToAscii.size() == KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR + 1);
static_assert(kTransportToProcessing.size() == KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR + 1);
static_assert(kTransportToTransport.size() == KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR + 1);

// ---- the one conversion ----

constexpr long kNoId = -99; // stands for an id or a reference that is not given: no check accepts it

long value_of(const long *id)
{
    return id != nullptr ? *id : kNoId;
}

// One activation of a conversion. Every from_ and to_ is false once an error has ended the call.
class Conversion {
public:
    Conversion(int function_id, kl_time_id *time_id, long *ierr, int n_words = 1)
        : call_(function_id, ierr, n_words), time_id_(time_id)
    {
    }

    bool from_processing(const long *format, const long *ref, const double *time)
    {
        origin_ = Origin::processing;
        ref_ = value_of(ref);
        if (value_of(format) != KL_PROC || !is_time_ref(ref_) || time == nullptr || !inside_processing_range(*time)) {
            ErrorRecord found;
            KL_Time_check_processing_inputs(value_of(format), ref_, time, &found);
            return !call_.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, found, kFromProcessing);
        }
        given_ = *time;
        record_ = standard_of(*time);
        if (record_.seconds != 86400)
            return true;
        ErrorRecord found;
        return KL_Time_p2t_format_to_std(time_id_, ref_, time, &record_, &found) == KL_OK
               || !call_.stops(KL_FN_TIME_P2T_FORMAT_TO_STD, found, kToStandardRecord);
    }

    bool from_ascii(const long *format, const long *ref, const char *text)
    {
        ErrorRecord found;
        origin_ = Origin::text;
        return read_ascii(time_id_, value_of(format), value_of(ref), text, &ref_, &record_, &found, &text_limit_)
                   == KL_OK
               || !call_.stops(KL_FN_TIME_CHECK_ASCII_INPUTS, found, kFromAscii);
    }

    bool from_transport(const long *format, const long *ref, const long fields[4])
    {
        ErrorRecord found;
        origin_ = Origin::transport;
        ref_ = value_of(ref);
        return read_transport(time_id_, value_of(format), ref_, fields, &record_, &found) == KL_OK
               || !call_.stops(KL_FN_TIME_CHECK_TRANSPORT_INPUTS, found, kFromTransport);
    }

    bool to_processing(const long *format, const long *ref, double *time)
    {
        if (value_of(format) != KL_PROC || !is_time_ref(value_of(ref))) {
            ErrorRecord found;
            KL_Time_check_processing_outputs(value_of(format), value_of(ref), &found);
            return !call_.stops(KL_FN_TIME_CHECK_PROCESSING_OUTPUTS, found, kToProcessing);
        }
        if (time == nullptr || !change_reference(*ref, false))
            return false;
        *time = processing_of(record_);
        return true;
    }

    bool to_ascii(const long *format, const long *ref, char *text, const TextRange &range)
    {
        ErrorRecord found;
        if (check_ascii_outputs(value_of(format), value_of(ref), &found) != KL_OK)
            return !call_.stops(KL_FN_TIME_CHECK_ASCII_OUTPUTS, found, kToAscii);
        if (text == nullptr || !change_reference(*ref, true))
            return false;
        return write_ascii(*format, *ref, &record_, text, &found, limit_to_write()) == KL_OK
               || !call_.stops(KL_FN_TIME_T2A_FORMAT_FROM_STD, found, range);
    }

    bool to_transport(const long *format, const long *ref, long fields[4])
    {
        ErrorRecord found;
        if (check_transport_outputs(value_of(format), value_of(ref), &found) != KL_OK)
            return !call_.stops(KL_FN_TIME_CHECK_TRANSPORT_OUTPUTS, found, kToTransport);
        if (fields == nullptr || !change_reference(*ref, transport_holds_leap_second(*format)))
            return false;
        write_transport(*format, &record_, fields);
        return true;
    }

    [[nodiscard]] long status_of(bool done) const
    {
        if (!done)
            return KL_ERR;
        return call_.status();
    }

private:
    enum class Origin { processing, text, transport };

    bool change_reference(long ref_out, bool holds_leap_second)
    {
        TimeIdRecord *id = time_record_of(time_id_);
        const bool changes = ref_out != ref_;
        if (id != nullptr && id->correlation.model == KL_TIME_MODEL_EXPLICIT) {
            if (changes)
                shift_by_explicit_values(id->correlation.rows[0], ref_, ref_out, &record_);
        } else if (id != nullptr) {
            if (!by_table(id, ref_out))
                return false;
        } else if (changes) {
            // TAI is copied without an id: it is one step or the other that refuses.
            if (!step(KL_Time_t2t_ref_to_tai, KL_FN_TIME_T2T_REF_TO_TAI, ref_, kReferenceStep)
                || !step(KL_Time_t2t_ref_from_tai, KL_FN_TIME_T2T_REF_FROM_TAI, ref_out, kReferenceStepBack))
                return false;
        }
        if (record_.seconds == 86400)
            place_leap_second(ref_out, changes, holds_leap_second);
        return true;
    }

    // By way of TAI, with all that a table warns of. The once-only warnings look at the TAI record, or at the record as
    // it is when the scale does not change.
    bool by_table(TimeIdRecord *id, long ref_out)
    {
        const bool changes = ref_out != ref_;
        bool out_of_range = false;
        const long row = likely_row(id->correlation, about());
        if (changes && !quickly_to_tai(id->correlation, ref_, row, &record_, &out_of_range)
            && !step(KL_Time_t2t_ref_to_tai, KL_FN_TIME_T2T_REF_TO_TAI, ref_, kReferenceStep))
            return false;
        const double tai_days = processing_of(record_);
        const long warning = once_only_warning(id, KL_FLAGS_CONVERSION, tai_days);
        if (warning != 0)
            call_.warns(static_cast<int>(kBulletinA + warning - 1));
        if (changes && !quickly_from_tai(id->correlation, ref_out, row, tai_days, &record_, &out_of_range)
            && !step(KL_Time_t2t_ref_from_tai, KL_FN_TIME_T2T_REF_FROM_TAI, ref_out, kReferenceStepBack))
            return false;
        if (out_of_range)
            call_.warns(kOutOfRange);
        return true;
    }

    // Days, to the second; a processing time is known before its record.
    [[nodiscard]] double about() const
    {
        if (origin_ == Origin::processing)
            return given_;
        return static_cast<double>(record_.days) + static_cast<double>(record_.seconds) * (1.0 / KL_SECONDS_PER_DAY);
    }

    using ReferenceStep = long (*)(kl_time_id *, long, const kl_std_record *, kl_std_record *, kl_error_record *);

    // One step with all that it has to report.
    template <std::size_t N>
    bool step(ReferenceStep convert, int function_id, long ref, const CodeMap (&map)[N])
    {
        ErrorRecord found;
        convert(time_id_, ref, &record_, &record_, &found);
        return found.count == 0 || !call_.stops(function_id, found, map);
    }

    // What becomes of 86400 seconds: the 61st second of a day, or midnight to which a processing time was rounded up.
    void place_leap_second(long ref, bool changed, bool holds_leap_second)
    {
        if (holds_leap_second && ends_with_leap_second(time_id_, ref, record_.days))
            return;
        if (!changed && origin_ == Origin::processing) {
            record_.seconds = 0;
            ++record_.days;
        } else {
            record_.seconds = 86399; // folded onto the last regular second
        }
    }

    // A text that is a limit stays one, and one that is not becomes none; a number at a limit is written as its text.
    [[nodiscard]] MissionLimit limit_to_write() const
    {
        const bool midnight = record_.seconds == 0 && record_.microseconds == 0;
        const bool first = midnight && record_.days == static_cast<long>(KL_PROCESSING_FIRST);
        const bool last = midnight && record_.days == static_cast<long>(KL_PROCESSING_LAST);
        if (!first && !last)
            return MissionLimit::none;
        if (origin_ == Origin::text)
            return text_limit_;
        return first ? MissionLimit::beginning : MissionLimit::end;
    }

    Activation call_;
    kl_time_id *time_id_;
    Origin origin_ = Origin::processing;
    long ref_ = KL_TIME_UNDEF;
    MissionLimit text_limit_ = MissionLimit::none;
    double given_ = 0.0; // the processing time
    kl_std_record record_ = {0, 0, 0};
};

} // namespace

const MessageGroup messages_kl_time_ascii_to_ascii = group_of(kAsciiToAscii);
const MessageGroup messages_kl_time_ascii_to_processing = group_of(kAsciiToProcessing);
const MessageGroup messages_kl_time_ascii_to_transport = group_of(kAsciiToTransport);
const MessageGroup messages_kl_time_processing_to_ascii = group_of(kProcessingToAscii);
const MessageGroup messages_kl_time_processing_to_processing = group_of(kProcessingToProcessing);
const MessageGroup messages_kl_time_processing_to_transport = group_of(kProcessingToTransport);
const MessageGroup messages_kl_time_transport_to_ascii = group_of(kTransportToAscii);
const MessageGroup messages_kl_time_transport_to_processing = group_of(kTransportToProcessing);
const MessageGroup messages_kl_time_transport_to_transport = group_of(kTransportToTransport);

long kl_time_processing_to_processing(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                      const double *time_in, const long *proc_id_out, const long *time_ref_out,
                                      double *time_out, long *ierr)
{
    Conversion call(KL_FN_TIME_PROCESSING_TO_PROCESSING, time_id, ierr);
    return call.status_of(call.from_processing(proc_id_in, time_ref_in, time_in)
                          && call.to_processing(proc_id_out, time_ref_out, time_out));
}

long kl_time_processing_to_ascii(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                 const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                 char *ascii_out, long *ierr)
{
    Conversion call(KL_FN_TIME_PROCESSING_TO_ASCII, time_id, ierr);
    return call.status_of(call.from_processing(proc_id_in, time_ref_in, time_in)
                          && call.to_ascii(ascii_id_out, time_ref_out, ascii_out, kProcessingToAsciiRange));
}

long kl_time_processing_to_transport(kl_time_id *time_id, const long *proc_id_in, const long *time_ref_in,
                                     const double *time_in, const long *trans_id_out, const long *time_ref_out,
                                     long transport_out[4], long *ierr)
{
    Conversion call(KL_FN_TIME_PROCESSING_TO_TRANSPORT, time_id, ierr);
    return call.status_of(call.from_processing(proc_id_in, time_ref_in, time_in)
                          && call.to_transport(trans_id_out, time_ref_out, transport_out));
}

long kl_time_ascii_to_processing(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                 const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                 double *time_out, long *ierr)
{
    Conversion call(KL_FN_TIME_ASCII_TO_PROCESSING, time_id, ierr);
    return call.status_of(call.from_ascii(ascii_id_in, time_ref_in, ascii_in)
                          && call.to_processing(proc_id_out, time_ref_out, time_out));
}

long kl_time_ascii_to_ascii(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in, const char *ascii_in,
                            const long *ascii_id_out, const long *time_ref_out, char *ascii_out, long ierr[2])
{
    Conversion call(KL_FN_TIME_ASCII_TO_ASCII, time_id, ierr, 2);
    return call.status_of(call.from_ascii(ascii_id_in, time_ref_in, ascii_in)
                          && call.to_ascii(ascii_id_out, time_ref_out, ascii_out, kAsciiToAsciiRange));
}

long kl_time_ascii_to_transport(kl_time_id *time_id, const long *ascii_id_in, const long *time_ref_in,
                                const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                long transport_out[4], long *ierr)
{
    Conversion call(KL_FN_TIME_ASCII_TO_TRANSPORT, time_id, ierr);
    return call.status_of(call.from_ascii(ascii_id_in, time_ref_in, ascii_in)
                          && call.to_transport(trans_id_out, time_ref_out, transport_out));
}

long kl_time_transport_to_processing(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                     const long transport_in[4], const long *proc_id_out, const long *time_ref_out,
                                     double *time_out, long *ierr)
{
    Conversion call(KL_FN_TIME_TRANSPORT_TO_PROCESSING, time_id, ierr);
    return call.status_of(call.from_transport(trans_id_in, time_ref_in, transport_in)
                          && call.to_processing(proc_id_out, time_ref_out, time_out));
}

long kl_time_transport_to_ascii(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                const long transport_in[4], const long *ascii_id_out, const long *time_ref_out,
                                char *ascii_out, long *ierr)
{
    Conversion call(KL_FN_TIME_TRANSPORT_TO_ASCII, time_id, ierr);
    return call.status_of(call.from_transport(trans_id_in, time_ref_in, transport_in)
                          && call.to_ascii(ascii_id_out, time_ref_out, ascii_out, kTransportToAsciiRange));
}

long kl_time_transport_to_transport(kl_time_id *time_id, const long *trans_id_in, const long *time_ref_in,
                                    const long transport_in[4], const long *trans_id_out, const long *time_ref_out,
                                    long transport_out[4], long *ierr)
{
    Conversion call(KL_FN_TIME_TRANSPORT_TO_TRANSPORT, time_id, ierr);
    return call.status_of(call.from_transport(trans_id_in, time_ref_in, transport_in)
                          && call.to_transport(trans_id_out, time_ref_out, transport_out));
}
