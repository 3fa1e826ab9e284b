// Texts of a time: five layouts, each with or without a reference prefix and microseconds.
#include "errors/message_groups.h"
#include "time/scales.h"

#include <cstddef>
#include <cstring>
#include <iterator>

namespace {

constexpr Message kInputRows[] = {
    /* KL_ASCII_IN_FORMAT        */ error("Input ascii format ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_IN_REF           */ error("Input time reference ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_IN_YEAR          */ error("Year is not a number from 1950 to 2099"),
    /* KL_ASCII_IN_LAYOUT        */ error("Text does not have the separators of its format"),
    /* KL_ASCII_IN_TOO_SHORT     */ error("Text is too short for its format"),
    /* KL_ASCII_IN_TOO_LONG      */ error("Text is too long for its format"),
    /* KL_ASCII_IN_PREFIX        */ error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""),
    /* KL_ASCII_IN_PREFIX_REF    */ error("Prefix contradicts the input time reference"),
    /* KL_ASCII_IN_NO_REF        */ error("Neither a prefix nor the caller gives a time reference"),
    /* KL_ASCII_IN_MISSION_LIMIT */ error("Year 0000 or 9999, yet no beginning- or end-of-mission text"),
    /* KL_ASCII_IN_MONTH         */ error("Month is not one of 01 to 12 or JAN to DEC"),
    /* KL_ASCII_IN_DAY           */ error("Day is not a number from 1 to 31"),
    /* KL_ASCII_IN_HOUR          */ error("Hour is not a number from 0 to 23"),
    /* KL_ASCII_IN_MINUTE        */ error("Minute is not a number from 0 to 59"),
    /* KL_ASCII_IN_SECOND        */ error("Second is not a number from 0 to 59, or 60"),
    /* KL_ASCII_IN_MICROSECOND   */ error("Microsecond is not a number"),
    /* KL_ASCII_IN_DAY_OF_30     */ error("That month has only 30 days"),
    /* KL_ASCII_IN_DAY_OF_29     */ error("That FEBRUARY has only 29 days"),
    /* KL_ASCII_IN_DAY_OF_28     */ error("That FEBRUARY has only 28 days"),
    /* KL_ASCII_IN_LEAP_SECOND   */ error("Second 60 outside a positive leap second"),
};
static_assert(std::size(kInputRows) == KL_ASCII_IN_N_CODES);
constexpr Message kOutputRows[] = {
    /* KL_ASCII_OUT_FORMAT */ error("Output ascii format ID is not correct (%li)", kLongArgument),
    /* KL_ASCII_OUT_REF    */ error("Output time reference ID is not correct (%li)", kLongArgument),
};
constexpr Message kWriteRows[] = {
    /* KL_ASCII_WRITE_BEFORE_1950 */ error("Time is before 1950"),
    /* KL_ASCII_WRITE_AFTER_2099  */ error("Time is after 2099"),
};

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

// Digits at p, or -1 when there is another character.
template <int N>
long number(const char *p)
{
    long value = 0;
    bool digits = true;
    for (int i = 0; i < N; ++i) {
        const int digit = p[i] - '0';
        digits = digits && digit >= 0 && digit <= 9;
        value = 10 * value + digit;
    }
    return digits ? value : -1;
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
    kl_std_record record;
};
constexpr kl_std_record kFirst = {static_cast<long>(KL_PROCESSING_FIRST), 0, 0};
constexpr kl_std_record kLast = {static_cast<long>(KL_PROCESSING_LAST), 0, 0};
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

// Separators and fields of a text of the right length, without its prefix. -1, or the condition that it meets.
int read_fields(const Form &form, const char *text, long fields[kFields])
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
int date_of(kl_time_id *time_id, long ref, const long fields[kFields], kl_std_record *out)
{
    for (const FieldRange &range : kRanges)
        if (fields[range.field] < range.first || fields[range.field] > range.last)
            return range.fault;
    const long days = days_in_month(fields[kYear], fields[kMonth]);
    if (fields[kDay] > days)
        return days == 30 ? KL_ASCII_IN_DAY_OF_30 : days == 29 ? KL_ASCII_IN_DAY_OF_29 : KL_ASCII_IN_DAY_OF_28;

    out->days = day_of_calendar(fields[kYear], fields[kMonth], fields[kDay]);
    out->seconds = 3600 * fields[kHour] + 60 * fields[kMinute] + fields[kSecond];
    out->microseconds = fields[kMicrosecond];
    if (fields[kSecond] == 60 && !(out->seconds == 86400 && ends_with_leap_second(time_id, ref, out->days)))
        return KL_ASCII_IN_LEAP_SECOND;
    return -1;
}

int read_text(kl_time_id *time_id, const Form &form, long ref, const char *text, long *own_ref, kl_std_record *out,
              MissionLimit *limit)
{
    const std::size_t length = static_cast<std::size_t>(form.length());
    const void *end = text != nullptr ? std::memchr(text, '\0', length + 1) : nullptr;
    if (text == nullptr || (end != nullptr && end != text + length))
        return KL_ASCII_IN_TOO_SHORT;
    if (end == nullptr)
        return KL_ASCII_IN_TOO_LONG;

    int fault = read_prefix(form, ref, text, own_ref);
    long fields[kFields] = {};
    if (fault < 0)
        fault = read_fields(form, form.prefix ? text + kPrefixLength : text, fields);
    if (fault >= 0)
        return fault;

    *limit = MissionLimit::none;
    if (fields[kYear] != 0 && fields[kYear] != 9999)
        return date_of(time_id, *own_ref, fields, out);
    const LimitText *found = limit_of(fields);
    if (found == nullptr)
        return KL_ASCII_IN_MISSION_LIMIT;
    *limit = found->limit;
    *out = found->record;
    return -1;
}

// ---- writing ----

// N digits of a value that fits them.
template <int N>
void put(char *p, long value)
{
    for (int i = N - 1; i >= 0; --i) {
        p[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

void put_month(const Layout &layout, char *p, long month)
{
    if (!layout.named_month)
        put<2>(p, month);
    else if (month >= 1 && month <= 12)
        std::memcpy(p, kl_months[month], 3);
    else
        put<3>(p, month == 0 ? 0 : 999);
}

void write_fields(long format, long ref, const long fields[kFields], char *text)
{
    const Form form(format);
    const Layout &layout = form.layout;
    text[form.length()] = '\0';
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

} // namespace

const MessageGroup messages_KL_Time_check_ascii_inputs = group(kInputRows);
const MessageGroup messages_KL_Time_check_ascii_outputs = group(kOutputRows);
const MessageGroup messages_KL_Time_t2a_format_from_std = group(kWriteRows);

const char kl_months[13][4] = {"", "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

bool is_ascii_format(long format)
{
    return format >= 11 && format <= 54 && format % 10 >= 1 && format % 10 <= 4;
}

long read_ascii(kl_time_id *time_id, long format, long ref, const char *text, long *own_ref, kl_std_record *out,
                kl_error_record *error, MissionLimit *limit)
{
    Activation call(KL_FN_TIME_CHECK_ASCII_INPUTS, error);
    if (!is_ascii_format(format))
        return call.fails(KL_ASCII_IN_FORMAT, &format);
    if (ref < KL_TIME_UNDEF || ref > KL_TIME_GPS)
        return call.fails(KL_ASCII_IN_REF, &ref);
    MissionLimit found = MissionLimit::none;
    const int fault = read_text(time_id, Form(format), ref, text, own_ref, out, &found);
    if (fault >= 0)
        return call.fails(fault);
    if (limit != nullptr)
        *limit = found;
    return call.status();
}

long check_ascii_outputs(long format, long ref, kl_error_record *error)
{
    Activation call(KL_FN_TIME_CHECK_ASCII_OUTPUTS, error);
    if (!is_ascii_format(format))
        return call.fails(KL_ASCII_OUT_FORMAT, &format);
    if (!is_time_ref(ref))
        return call.fails(KL_ASCII_OUT_REF, &ref);
    return call.status();
}

long write_ascii(long format, long ref, const kl_std_record *in, char *text, kl_error_record *error, MissionLimit limit)
{
    Activation call(KL_FN_TIME_T2A_FORMAT_FROM_STD, error);
    for (const LimitText &row : kLimits) {
        if (row.limit == limit) {
            write_fields(format, ref, row.fields, text);
            return call.status();
        }
    }
    if (in->days < static_cast<long>(KL_PROCESSING_FIRST))
        return call.fails(KL_ASCII_WRITE_BEFORE_1950);
    if (in->days >= static_cast<long>(KL_CALENDAR_END))
        return call.fails(KL_ASCII_WRITE_AFTER_2099);
    const CalendarDay date = calendar_of_day(in->days);
    const bool leap_second = in->seconds == 86400; // 23:59:60
    const long seconds = leap_second ? 86399 : in->seconds;
    const long fields[kFields] = {date.year,       date.month,        date.day,
                                  seconds / 3600,  seconds / 60 % 60, seconds % 60 + (leap_second ? 1 : 0),
                                  in->microseconds};
    write_fields(format, ref, fields, text);
    return call.status();
}
