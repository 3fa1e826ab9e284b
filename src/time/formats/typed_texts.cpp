#include "time/formats/typed_texts.h"

#include "time/calendar.h"
#include "time/formats/texts.h"
#include "time/leap_second.h"

#include <cstring>
#include <string_view>

namespace {

// The layouts: letters are the digits of a field, M those of a name, o of the day of the year; * is T, _ or a blank.
constexpr std::string_view kCalendar = "yyyy-mm-dd*hh:nn:ss";
constexpr std::string_view kOrdinal = "yyyy-ooo*hh:nn:ss";
constexpr std::string_view kNamed = "dd-MMM-yyyy*hh:nn:ss";
constexpr std::string_view kCompact = "yyyymmdd*hhnnss";

// What a text comes to, before its fields are read: KL_ASCII_13, by letter of its field.
constexpr std::string_view kPlan = "yyyy-mm-dd_hh:nn:ss.uuuuuu";
constexpr std::size_t kYear = 0, kMonth = 5, kDay = 8, kMicrosecond = 20;
constexpr std::size_t kDecimals = 6, kMostDecimals = 9;

struct Plain {
    char text[kPlan.size() + 1] = "0000-00-00_00:00:00.000000";
    char name[3], ordinal[3];
    bool round_up = false; // by the decimals behind the sixth

    void mark_unreadable(std::size_t at) { text[at] = '?'; }
    void put_two(std::size_t at, long value)
    {
        text[at] = static_cast<char>('0' + value / 10);
        text[at + 1] = static_cast<char>('0' + value % 10);
    }
};

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool are_digits(std::string_view text)
{
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string_view without_blanks(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes a prefix and a Z off a text. -1, or the condition.
int take_scale(std::string_view *text, long *ref)
{
    constexpr std::string_view kNames[] = {"TAI", "UTC", "UT1", "GPS"};
    const bool prefix = text->size() > 3 && (*text)[3] == '=';
    if (prefix) {
        *ref = KL_TIME_TAI;
        while (*ref <= KL_TIME_GPS && text->substr(0, 3) != kNames[*ref])
            ++*ref;
        if (*ref > KL_TIME_GPS)
            return KL_ASCII_IN_PREFIX;
        text->remove_prefix(4);
    }
    if (!text->empty() && text->back() == 'Z') {
        if (prefix && *ref != KL_TIME_UTC)
            return KL_ASCII_IN_PREFIX_REF;
        *ref = KL_TIME_UTC;
        text->remove_suffix(1);
    }
    return -1;
}

// The only layout that a text can have.
std::string_view layout_of(std::string_view text)
{
    const std::size_t dash = text.find('-');
    if (dash == 2)
        return kNamed;
    if (dash != 4)
        return kCompact;
    return text.size() >= kOrdinal.size() && are_digits(text.substr(5, 3)) ? kOrdinal : kCalendar;
}

// Takes the fields of a layout to their places. False where a separator is missing.
bool place(std::string_view layout, std::string_view text, Plain *out)
{
    char letter = '\0';
    std::size_t digit = 0; // of its field
    for (std::size_t i = 0; i < layout.size(); ++i) {
        digit = layout[i] == letter ? digit + 1 : 0;
        letter = layout[i];
        switch (letter) {
        case '-':
        case ':':
            if (text[i] != letter)
                return false;
            break;
        case '*':
            if (text[i] != 'T' && text[i] != '_' && text[i] != ' ')
                return false;
            break;
        case 'M':
            out->name[digit] = text[i];
            break;
        case 'o':
            out->ordinal[digit] = text[i];
            break;
        default:
            out->text[kPlan.find(letter) + digit] = text[i];
        }
    }
    return true;
}

// What stands behind the seconds. -1, or the condition.
int take_decimals(bool dotted, std::string_view rest, Plain *out)
{
    if (rest.empty())
        return -1;
    if (dotted ? rest[0] != '.' : !is_digit(rest[0]))
        return KL_ASCII_IN_TOO_LONG;
    if (dotted)
        rest.remove_prefix(1);
    if (rest.empty() || !is_digit(rest[0]))
        return KL_ASCII_IN_MICROSECOND;
    if (rest.size() > (dotted ? kMostDecimals : kDecimals))
        return KL_ASCII_IN_TOO_LONG;
    if (!dotted && rest.size() < kDecimals)
        return KL_ASCII_IN_TOO_SHORT;
    if (!are_digits(rest))
        return KL_ASCII_IN_MICROSECOND;
    std::memcpy(out->text + kMicrosecond, rest.data(), rest.size() < kDecimals ? rest.size() : kDecimals);
    out->round_up = rest.size() > kDecimals && rest[kDecimals] >= '5';
    return -1;
}

// A name in any case, or 000 and 999 as in the texts of the mission limits.
void put_named_month(Plain *out)
{
    const std::string_view name(out->name, sizeof out->name);
    if (name == "000" || name == "999") {
        std::memcpy(out->text + kMonth, out->name, 2);
        return;
    }
    char capitals[sizeof out->name];
    for (std::size_t i = 0; i < sizeof capitals; ++i)
        capitals[i] = name[i] >= 'a' && name[i] <= 'z' ? static_cast<char>(name[i] - 'a' + 'A') : name[i];
    out->mark_unreadable(kMonth);
    for (long month = 1; month <= 12; ++month)
        if (std::memcmp(capitals, kl_months[month], sizeof capitals) == 0)
            out->put_two(kMonth, month);
}

void put_day_of_year(Plain *out)
{
    long year = 0, ordinal = 0;
    for (std::size_t i = 0; i < 4; ++i)
        year = 10 * year + (out->text[kYear + i] - '0');
    for (const char c : out->ordinal)
        ordinal = 10 * ordinal + (c - '0');
    out->put_two(kMonth, 1);
    out->mark_unreadable(kDay);
    if (year < 1950 || year > 2099 || ordinal < 1 || ordinal > (year % 4 == 0 ? 366 : 365))
        return; // the year is refused before the day is
    const CalendarDay date = calendar_of_day(day_of_calendar(year, 1, 1) + ordinal - 1);
    out->put_two(kMonth, date.month);
    out->put_two(kDay, date.day);
}

// The next microsecond, with a leap second where the day ends with one.
Moment<double> one_later(const Correlation *correlation, long ref, const Moment<double> &moment)
{
    if (moment.microseconds < 999999.0)
        return {moment.days, moment.seconds, moment.microseconds + 1.0};
    const double seconds = moment.seconds + 1.0;
    const double length = ends_with_leap_second(correlation, ref, moment.days) ? 86401.0 : 86400.0;
    return seconds < length ? Moment<double>{moment.days, seconds, 0.0} : Moment<double>{moment.days + 1.0, 0.0, 0.0};
}

int read(const Correlation *correlation, long ref, std::string_view text, Reading *out)
{
    int fault = take_scale(&text, &ref);
    if (fault >= 0)
        return fault;
    const std::string_view layout = layout_of(text);
    if (text.size() < layout.size())
        return KL_ASCII_IN_TOO_SHORT;
    Plain plain;
    if (!place(layout, text, &plain))
        return KL_ASCII_IN_LAYOUT;
    fault = take_decimals(layout != kCompact, text.substr(layout.size()), &plain);
    if (fault >= 0)
        return fault;
    if (layout == kNamed)
        put_named_month(&plain);
    if (layout == kOrdinal)
        put_day_of_year(&plain);

    const Fault found = read_text(correlation, KL_ASCII_13, ref, plain.text, sizeof plain.text, true, out);
    if (found || !plain.round_up)
        return found.code;
    if (out->limit != MissionLimit::none)
        return KL_ASCII_IN_MISSION_LIMIT;
    out->moment = one_later(correlation, out->ref, out->moment);
    return out->moment.days < KL_CALENDAR_END ? -1 : int{KL_ASCII_IN_YEAR};
}

} // namespace

Fault read_typed_text(const Correlation *correlation, long ref, const char *text, std::size_t room, Reading *out)
{
    out->origin = Origin::text;
    if (text == nullptr)
        return {KL_ASCII_IN_TOO_SHORT};
    return {read(correlation, ref, without_blanks({text, strnlen(text, room)}), out)};
}
