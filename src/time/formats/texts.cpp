#include "time/formats/texts.h"

#include "time/calendar.h"
#include "time/leap_second.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

// ---- layouts ----

enum Field { kYear, kMonth, kDay, kHour, kMinute, kSecond, kMicrosecond, kFields };

struct Separator {
    int at;
    char sign;
};

// Where the fields and the separators of a text stand, behind its prefix. A text without microseconds ends with the
// seconds.
struct Layout {
    int length, length_with_microseconds;
    int at[kFields];
    bool named_month;
    Separator separators[6];
    int n_separators, n_separators_with_microseconds;
};

constexpr Field field_of(char sign)
{
    switch (sign) {
    case 'y':
        return kYear;
    case 'm':
    case 'M':
        return kMonth;
    case 'd':
        return kDay;
    case 'h':
        return kHour;
    case 'n':
        return kMinute;
    case 's':
        return kSecond;
    case 'u':
        return kMicrosecond;
    default:
        return kFields;
    }
}

constexpr Layout layout(const char *form)
{
    Layout out{};
    Field before = kFields;
    for (int i = 0; form[i] != '\0'; ++i) {
        const Field field = field_of(form[i]);
        if (field == kFields)
            out.separators[out.n_separators_with_microseconds++] = {i, form[i]};
        else if (field != before)
            out.at[field] = i;
        if (field == kSecond) {
            out.length = i + 1;
            out.n_separators = out.n_separators_with_microseconds;
        }
        if (form[i] == 'M')
            out.named_month = true;
        out.length_with_microseconds = i + 1;
        before = field;
    }
    return out;
}

constexpr Layout kLayouts[] = {
    layout("yyyy-mm-dd_hh:nn:ss.uuuuuu"), layout("yyyymmdd_hhnnssuuuuuu"), layout("dd-MMM-yyyy hh:nn:ss.uuuuuu"),
    layout("yyyy-mm-ddThh:nn:ss.uuuuuu"), layout("yyyymmddThhnnssuuuuuu"),
};

constexpr char kPrefixes[][5] = {"TAI=", "UTC=", "UT1=", "GPS="}; // by reference
constexpr int kPrefixLength = 4;

// A format id taken apart: tens digit the layout; units digit 2 and 4 with a prefix, 3 and 4 with microseconds.
struct Form {
    const Layout &layout;
    bool prefix, microseconds;

    explicit Form(long format)
        : layout(kLayouts[format / 10 - 1]), prefix(format % 2 == 0), microseconds(format % 10 >= 3)
    {
    }
    int length() const
    {
        return (prefix ? kPrefixLength : 0) + (microseconds ? layout.length_with_microseconds : layout.length);
    }
    int n_separators() const { return microseconds ? layout.n_separators_with_microseconds : layout.n_separators; }
};

// ---- reading ----

// The signs of a text, eight at a time: where a field stands each is '0' to '9', elsewhere its own. The last eight end
// with the text. Not of layouts with a named month.
struct Signs {
    static constexpr int kWords = 4;
    int n_words;
    int at[kWords];
    char sign[kWords][8]; // '0' for digits
    char room[kWords][8]; // 128 less the number of signs from there on that may stand here
};

constexpr Signs signs_of(const Layout &layout, bool microseconds)
{
    const int length = microseconds ? layout.length_with_microseconds : layout.length;
    Signs out{};
    for (int from = 0; from < length; from += 8) {
        const int at = from + 8 < length ? from : length - 8;
        for (int i = 0; i < 8; ++i) {
            out.sign[out.n_words][i] = '0';
            out.room[out.n_words][i] = 128 - 10;
            for (const Separator &separator : layout.separators)
                if (separator.at == at + i && separator.sign != '\0') {
                    out.sign[out.n_words][i] = separator.sign;
                    out.room[out.n_words][i] = 127;
                }
        }
        out.at[out.n_words++] = at;
    }
    return out;
}

constexpr Signs kSigns[][2] = {
    {signs_of(kLayouts[0], false), signs_of(kLayouts[0], true)},
    {signs_of(kLayouts[1], false), signs_of(kLayouts[1], true)},
    {},
    {signs_of(kLayouts[3], false), signs_of(kLayouts[3], true)},
    {signs_of(kLayouts[4], false), signs_of(kLayouts[4], true)},
};

// Do digits and separators stand where they should? Eight characters are compared in one number: the sums stay below
// 256, so that none reaches its neighbour.
bool is_regular(const Form &form, const char *text)
{
    if (form.layout.named_month)
        return false;
    const Signs &signs = kSigns[&form.layout - kLayouts][form.microseconds ? 1 : 0];
    std::uint64_t others = 0;
    for (int w = 0; w < signs.n_words; ++w) {
        std::uint64_t characters, sign, room;
        std::memcpy(&characters, text + signs.at[w], 8);
        std::memcpy(&sign, signs.sign[w], 8);
        std::memcpy(&room, signs.room[w], 8);
        const std::uint64_t behind = characters ^ sign;
        others |= ((behind & 0x7f7f7f7f7f7f7f7f) + room) | behind;
    }
    return (others & 0x8080808080808080) == 0;
}

// Two digits.
long pair_at(const char *p)
{
    return 10 * p[0] + p[1] - 11 * '0';
}

// Digits at p, or -1 when there is another character.
template <int N>
long number(const char *p)
{
    unsigned value = 0;
    bool others = false;
    for (int i = 0; i < N; ++i) {
        const unsigned digit = static_cast<unsigned char>(p[i]) - unsigned{'0'};
        others |= digit > 9;
        value = 10 * value + digit;
    }
    return others ? -1 : static_cast<long>(value);
}

// A month name, or 0 and 99 as in the texts of the mission limits.
long named_month(const char *p)
{
    for (long month = 1; month <= 12; ++month)
        if (std::memcmp(p, kl_months[month], 3) == 0)
            return month;
    return std::memcmp(p, "000", 3) == 0 ? 0 : std::memcmp(p, "999", 3) == 0 ? 99 : -1;
}

struct FieldRange {
    Field field;
    long first, last;
    int fault;
};
constexpr FieldRange kRanges[] = {
    {kYear, 1950, 2099, KL_ASCII_IN_YEAR},
    {kMonth, 1, 12, KL_ASCII_IN_MONTH},
    {kDay, 1, 31, KL_ASCII_IN_DAY},
    {kHour, 0, 23, KL_ASCII_IN_HOUR},
    {kMinute, 0, 59, KL_ASCII_IN_MINUTE},
    {kSecond, 0, 60, KL_ASCII_IN_SECOND},
    {kMicrosecond, 0, 999999, KL_ASCII_IN_MICROSECOND},
};

struct LimitText {
    MissionLimit limit;
    long fields[kFields];
    Moment<double> moment;
};
constexpr Moment<double> kFirst = {KL_PROCESSING_FIRST, 0.0, 0.0};
constexpr Moment<double> kLast = {KL_PROCESSING_LAST, 0.0, 0.0};
constexpr LimitText kLimits[] = {
    {MissionLimit::beginning, {0, 0, 0, 0, 0, 0, 0}, kFirst},
    {MissionLimit::end, {9999, 99, 99, 99, 99, 99, 999999}, kLast},
    {MissionLimit::end_of_9999, {9999, 12, 31, 23, 59, 59, 999999}, kLast},
};

// The fields of a limit, all but the microseconds: these may be those of the table or zero.
const LimitText *limit_of(const long fields[kFields])
{
    for (const LimitText &limit : kLimits)
        if (std::memcmp(fields, limit.fields, sizeof(long) * kMicrosecond) == 0
            && (fields[kMicrosecond] == 0 || fields[kMicrosecond] == limit.fields[kMicrosecond]))
            return &limit;
    return nullptr;
}

// The reference of a text, of which `text` is at least as long as its prefix. -1, or the condition that it meets.
int read_prefix(const Form &form, long ref, const char *text, long *own_ref)
{
    *own_ref = ref;
    if (!form.prefix)
        return ref == KL_TIME_UNDEF ? KL_ASCII_IN_NO_REF : -1;
    *own_ref = KL_TIME_TAI;
    while (*own_ref <= KL_TIME_GPS && std::memcmp(text, kPrefixes[*own_ref], kPrefixLength) != 0)
        ++*own_ref;
    if (*own_ref > KL_TIME_GPS)
        return KL_ASCII_IN_PREFIX;
    return ref != KL_TIME_UNDEF && ref != *own_ref ? KL_ASCII_IN_PREFIX_REF : -1;
}

// The fields of a regular text, without its prefix.
void read_regular(const Form &form, const char *text, long fields[kFields])
{
    const Layout &layout = form.layout;
    fields[kYear] = 100 * pair_at(text + layout.at[kYear]) + pair_at(text + layout.at[kYear] + 2);
    for (int field = kMonth; field <= kSecond; ++field)
        fields[field] = pair_at(text + layout.at[field]);
    const char *p = text + layout.at[kMicrosecond];
    fields[kMicrosecond] = form.microseconds ? 10000 * pair_at(p) + 100 * pair_at(p + 2) + pair_at(p + 4) : 0;
}

// Separators and fields of another text of the right length. -1, or the condition that it meets.
int read_irregular(const Form &form, const char *text, long fields[kFields])
{
    const Layout &layout = form.layout;
    for (int i = 0; i < form.n_separators(); ++i)
        if (text[layout.separators[i].at] != layout.separators[i].sign)
            return KL_ASCII_IN_LAYOUT;
    fields[kYear] = number<4>(text + layout.at[kYear]);
    fields[kMonth] = layout.named_month ? named_month(text + layout.at[kMonth]) : number<2>(text + layout.at[kMonth]);
    for (int field = kDay; field <= kSecond; ++field)
        fields[field] = number<2>(text + layout.at[field]);
    fields[kMicrosecond] = form.microseconds ? number<6>(text + layout.at[kMicrosecond]) : 0;
    return -1;
}

// A date of the fields. -1, or the condition that they meet.
int date_of(const Correlation *correlation, long ref, const long fields[kFields], Moment<double> *out)
{
    for (const FieldRange &range : kRanges)
        if (fields[range.field] < range.first || fields[range.field] > range.last)
            return range.fault;
    const long days = days_in_month(fields[kYear], fields[kMonth]);
    if (fields[kDay] > days)
        return days == 30 ? KL_ASCII_IN_DAY_OF_30 : days == 29 ? KL_ASCII_IN_DAY_OF_29 : KL_ASCII_IN_DAY_OF_28;

    out->days = static_cast<double>(day_of_calendar(fields[kYear], fields[kMonth], fields[kDay]));
    out->seconds = static_cast<double>(3600 * fields[kHour] + 60 * fields[kMinute] + fields[kSecond]);
    out->microseconds = static_cast<double>(fields[kMicrosecond]);
    if (fields[kSecond] == 60 && !(out->seconds == 86400.0 && ends_with_leap_second(correlation, ref, out->days)))
        return KL_ASCII_IN_LEAP_SECOND;
    return -1;
}

// -1 for a text of the right length, which ends at a zero or where there is no more room; or the condition.
int check_length(const char *text, std::size_t room, std::size_t length)
{
    const void *end = text != nullptr ? std::memchr(text, '\0', std::min(room, length + 1)) : nullptr;
    if (text == nullptr || (end == nullptr ? room < length : end != text + length))
        return KL_ASCII_IN_TOO_SHORT;
    return end == nullptr && room > length ? int{KL_ASCII_IN_TOO_LONG} : -1;
}

// The reading of a text of which `room` characters may be looked at: up to its end or, where the room is whole, all.
// -1, or the condition.
int read_characters(const Correlation *correlation, const Form &form, long ref, const char *text, std::size_t room,
                    bool is_whole, Reading *out)
{
    const std::size_t length = static_cast<std::size_t>(form.length());
    // Without a prefix no zero can hide in a regular text.
    const bool regular = is_whole && text != nullptr && !form.prefix && room >= length
                         && (room == length || text[length] == '\0') && is_regular(form, text);
    int fault = regular ? -1 : check_length(text, room, length);
    if (fault < 0)
        fault = read_prefix(form, ref, text, &out->ref);
    if (fault >= 0)
        return fault;
    const char *signs = form.prefix ? text + kPrefixLength : text;
    long fields[kFields];
    if (regular || is_regular(form, signs))
        read_regular(form, signs, fields);
    else if (fault = read_irregular(form, signs, fields); fault >= 0)
        return fault;

    out->limit = MissionLimit::none;
    if (fields[kYear] != 0 && fields[kYear] != 9999)
        return date_of(correlation, out->ref, fields, &out->moment);
    const LimitText *found = limit_of(fields);
    if (found == nullptr)
        return KL_ASCII_IN_MISSION_LIMIT;
    out->limit = found->limit;
    out->moment = found->moment;
    return -1;
}

// ---- writing ----

// 00 to 99.
struct Pairs {
    char digits[200];
};
constexpr Pairs kPairs = [] {
    Pairs pairs{};
    for (int i = 0; i < 100; ++i) {
        pairs.digits[2 * i] = static_cast<char>('0' + i / 10);
        pairs.digits[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// N digits, two at a time, of a value that fits them.
template <int N>
void put(char *p, long value)
{
    static_assert(N % 2 == 0 && N <= 8);
    auto rest = static_cast<unsigned>(value);
    for (int i = N - 2; i >= 0; i -= 2) {
        std::memcpy(p + i, kPairs.digits + 2 * (i > 0 ? rest % 100 : rest), 2);
        rest /= 100;
    }
}

void put_month(const Layout &layout, char *p, long month)
{
    if (!layout.named_month)
        put<2>(p, month);
    else if (month >= 1 && month <= 12)
        std::memcpy(p, kl_months[month], 3);
    else
        std::memset(p, month == 0 ? '0' : '9', 3); // of the mission limits
}

void write_fields(const Form &form, long ref, const long fields[kFields], char *text)
{
    const Layout &layout = form.layout;
    if (form.prefix) {
        std::memcpy(text, kPrefixes[ref], kPrefixLength);
        text += kPrefixLength;
    }
    for (int i = 0; i < form.n_separators(); ++i)
        text[layout.separators[i].at] = layout.separators[i].sign;
    put<4>(text + layout.at[kYear], fields[kYear]);
    put_month(layout, text + layout.at[kMonth], fields[kMonth]);
    for (int field = kDay; field <= kSecond; ++field)
        put<2>(text + layout.at[field], fields[field]);
    if (form.microseconds)
        put<6>(text + layout.at[kMicrosecond], fields[kMicrosecond]);
}

// A text that is a limit stays one, and one that is not becomes none; a number at a limit is written as its text.
MissionLimit limit_to_write(const Reading &reading)
{
    const Moment<double> &moment = reading.moment;
    const bool midnight = moment.seconds == 0.0 && moment.microseconds == 0.0;
    const bool first = midnight && moment.days == KL_PROCESSING_FIRST;
    const bool last = midnight && moment.days == KL_PROCESSING_LAST;
    if (!first && !last)
        return MissionLimit::none;
    if (reading.origin == Origin::text)
        return reading.limit;
    return first ? MissionLimit::beginning : MissionLimit::end;
}

} // namespace

const char kl_months[13][4] = {"", "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

Fault check_text_input(long format, long ref)
{
    if (!is_text_format(format))
        return {KL_ASCII_IN_FORMAT, format};
    if (ref < KL_TIME_UNDEF || ref > KL_TIME_GPS)
        return {KL_ASCII_IN_REF, ref};
    return {};
}

Fault check_text_output(long format, long ref)
{
    if (!is_text_format(format))
        return {KL_ASCII_OUT_FORMAT, format};
    if (!is_time_ref(ref))
        return {KL_ASCII_OUT_REF, ref};
    return {};
}

int text_length(long format)
{
    return Form(format).length();
}

Fault read_text(const Correlation *correlation, long format, long ref, const char *text, std::size_t room,
                bool is_whole, Reading *out)
{
    out->origin = Origin::text;
    return {read_characters(correlation, Form(format), ref, text, room, is_whole, out)};
}

Fault write_text(long format, long ref, const Reading &reading, char *text)
{
    const Form form(format);
    const MissionLimit limit = limit_to_write(reading);
    for (const LimitText &row : kLimits) {
        if (row.limit == limit) {
            write_fields(form, ref, row.fields, text);
            return {};
        }
    }
    const kl_std_record in = record_of(reading.moment);
    if (in.days < static_cast<long>(KL_PROCESSING_FIRST))
        return {KL_ASCII_WRITE_BEFORE_1950};
    if (in.days >= static_cast<long>(KL_CALENDAR_END))
        return {KL_ASCII_WRITE_AFTER_2099};
    const CalendarDay date = calendar_of_day(in.days);
    const bool leap_second = in.seconds == 86400; // 23:59:60
    const long seconds = leap_second ? 86399 : in.seconds;
    const long fields[kFields] = {date.year,      date.month,        date.day,
                                  seconds / 3600, seconds / 60 % 60, seconds % 60 + (leap_second ? 1 : 0),
                                  in.microseconds};
    write_fields(form, ref, fields, text);
    return {};
}
