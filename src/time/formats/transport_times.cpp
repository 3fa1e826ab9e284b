#include "time/formats/transport_times.h"

#include "time/leap_second.h"

namespace {

// ---- fields ----

constexpr long kDaySeconds = 86400;
constexpr long kWeekSeconds = 7 * kDaySeconds;
constexpr long kFirstDay = static_cast<long>(KL_PROCESSING_FIRST);
constexpr long kLastDay = static_cast<long>(KL_PROCESSING_LAST);
constexpr long kLastTick = 4294967295; // a counter of 32 bits

enum class Unit { none, day, second, millisecond, microsecond, tick, week, second_of_week, fraction, gps_second };

struct Field {
    Unit unit = Unit::none;
    long first = 0, last = 0;
    int fault = 0;
};

// Seconds and milliseconds reach into the 61st second; whether there is one is asked afterwards.
constexpr Field kDays = {Unit::day, kFirstDay, kLastDay, KL_TRANS_IN_DAYS};
constexpr Field kSeconds = {Unit::second, 0, kDaySeconds, KL_TRANS_IN_SECONDS};
constexpr Field kMilliseconds = {Unit::millisecond, 0, 1000 * kDaySeconds + 999, KL_TRANS_IN_MILLISECONDS};
constexpr Field kMicroseconds = {Unit::microsecond, 0, 999999, KL_TRANS_IN_MICROSECONDS};
constexpr Field kMicrosecondsOfMillisecond = {Unit::microsecond, 0, 999, KL_TRANS_IN_MICROSECONDS};
constexpr Field kTicks = {Unit::tick, 0, kLastTick, KL_TRANS_IN_TICKS}; // 2.0625 microseconds each
constexpr Field kWeek = {Unit::week, floor_div(kFirstDay - KL_GPS_EPOCH_DAY, 7),
                         floor_div(kLastDay - KL_GPS_EPOCH_DAY, 7), KL_TRANS_IN_WEEK};
constexpr Field kSecondsOfWeek = {Unit::second_of_week, 0, kWeekSeconds - 1, KL_TRANS_IN_SECONDS_OF_WEEK};
constexpr Field kFraction = {Unit::fraction, 0, 65535, KL_TRANS_IN_FRACTION}; // 2^-16 s
constexpr Field kGpsSeconds = {Unit::gps_second, (kFirstDay - KL_GPS_EPOCH_DAY) * kDaySeconds,
                               (kLastDay + 1 - KL_GPS_EPOCH_DAY) * kDaySeconds - 1, KL_TRANS_IN_GPS_SECONDS};

struct Format {
    long id;
    bool gps_only;
    Field fields[KL_TRANSPORT_LENGTH];
};
constexpr Format kFormats[] = {
    {KL_TRANS_0, false, {kDays, kSeconds, kMicroseconds, {}}},
    {KL_TRANS_11, false, {kDays, kSeconds, kMicroseconds, {}}},
    {KL_TRANS_21, false, {kDays, kSeconds, kMicroseconds, {}}},
    {KL_TRANS_22, false, {kDays, kMilliseconds, kMicrosecondsOfMillisecond, {}}},
    {KL_TRANS_23, false, {kDays, kMilliseconds, kMicrosecondsOfMillisecond, kTicks}},
    {KL_TRANS_31, false, {kWeek, kSecondsOfWeek, kFraction, {}}},
    {KL_TRANS_41, true, {kGpsSeconds, kMicroseconds, {}, {}}},
    {KL_TRANS_42, true, {kWeek, kSecondsOfWeek, kMicroseconds, {}}},
};

const Format *format_of(long id)
{
    for (const Format &format : kFormats)
        if (format.id == id)
            return &format;
    return nullptr;
}

// Adds one field, inside its range, to the record.
void add(Unit unit, long value, kl_std_record *out)
{
    switch (unit) {
    case Unit::none:
        break;
    case Unit::day:
        out->days += value;
        break;
    case Unit::week:
        out->days += 7 * value + KL_GPS_EPOCH_DAY;
        break;
    case Unit::gps_second:
        out->days += KL_GPS_EPOCH_DAY;
        [[fallthrough]];
    case Unit::second_of_week:
        out->days += floor_div(value, kDaySeconds);
        out->seconds += value - kDaySeconds * floor_div(value, kDaySeconds);
        break;
    case Unit::second:
        out->seconds += value;
        break;
    case Unit::millisecond:
        out->seconds += value / 1000;
        out->microseconds += value % 1000 * 1000;
        break;
    case Unit::microsecond:
        out->microseconds += value;
        break;
    case Unit::tick:
        out->microseconds += (33 * value + 8) / 16; // nearest
        break;
    case Unit::fraction:
        out->microseconds += (1000000 * value + 32768) / 65536; // nearest
        break;
    }
}

// Carries microseconds and, over a day of its own length, seconds; less than a day of them.
void carry(const Correlation *correlation, long ref, kl_std_record *record)
{
    record->seconds += record->microseconds / 1000000;
    record->microseconds %= 1000000;
    if (record->seconds < kDaySeconds)
        return;
    const long length =
        kDaySeconds + (ends_with_leap_second(correlation, ref, static_cast<double>(record->days)) ? 1 : 0);
    if (record->seconds < length)
        return;
    record->seconds -= length;
    ++record->days;
}

struct FormCodes {
    int format, ref, gps_ref;
};
Fault check_form(const FormCodes &codes, long id, long ref)
{
    const Format *format = format_of(id);
    if (format == nullptr)
        return {codes.format, id};
    if (!is_time_ref(ref))
        return {codes.ref, ref};
    if (format->gps_only && ref != KL_TIME_GPS)
        return {codes.gps_ref, ref};
    return {};
}

} // namespace

Fault check_transport_input(long id, long ref)
{
    return check_form({KL_TRANS_IN_FORMAT, KL_TRANS_IN_REF, KL_TRANS_IN_GPS_REF}, id, ref);
}

Fault check_transport_output(long id, long ref)
{
    return check_form({KL_TRANS_OUT_FORMAT, KL_TRANS_OUT_REF, KL_TRANS_OUT_GPS_REF}, id, ref);
}

Fault read_transport(const Correlation *correlation, long id, long ref, const long fields[4], Reading *out)
{
    const Format *format = format_of(id);
    out->origin = Origin::transport;
    out->ref = ref;
    if (fields == nullptr)
        return {format->fields[0].fault};
    kl_std_record record = {0, 0, 0};
    for (int i = 0; i < KL_TRANSPORT_LENGTH; ++i) {
        const Field &field = format->fields[i];
        if (field.unit == Unit::none)
            break;
        if (fields[i] < field.first || fields[i] > field.last)
            return {field.fault, fields[i]};
        add(field.unit, fields[i], &record);
        if (record.seconds == kDaySeconds && !ends_with_leap_second(correlation, ref, static_cast<double>(record.days)))
            return {KL_TRANS_IN_LEAP_SECOND, fields[0]};
    }
    carry(correlation, ref, &record);
    if (record.days > kLastDay) { // seconds of the last week, or ticks
        if (id == KL_TRANS_23)
            return {KL_TRANS_IN_TICKS, fields[3]};
        return {KL_TRANS_IN_DAYS, record.days};
    }
    out->moment = moment_of(record);
    return {};
}

void write_transport(long id, const Moment<double> &moment, long fields[4])
{
    const auto [days, seconds, microseconds] = record_of(moment);
    const long gps_days = days - KL_GPS_EPOCH_DAY;
    const long week = floor_div(gps_days, 7);
    const long seconds_of_week = kDaySeconds * (gps_days - 7 * week) + seconds;
    const auto put = [fields](long a, long b, long c) {
        fields[0] = a;
        fields[1] = b;
        fields[2] = c;
        fields[3] = 0; // the microseconds leave nothing to ticks
    };
    switch (id) {
    case KL_TRANS_22:
    case KL_TRANS_23:
        put(days, 1000 * seconds + microseconds / 1000, microseconds % 1000);
        break;
    case KL_TRANS_31: {
        const long fraction = (65536 * microseconds + 500000) / 1000000; // nearest
        const long carried = seconds_of_week + fraction / 65536;
        put(week + carried / kWeekSeconds, carried % kWeekSeconds, fraction % 65536);
        break;
    }
    case KL_TRANS_41:
        put(kDaySeconds * gps_days + seconds, microseconds, 0);
        break;
    case KL_TRANS_42:
        put(week, seconds_of_week, microseconds);
        break;
    default:
        put(days, seconds, microseconds);
        break;
    }
}
