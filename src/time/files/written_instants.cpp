// Calendar and ordinal instants.
#include "time/files/written_instants.h"

#include "time/files/lines.h"
#include "time/scales.h"

namespace time_files {

namespace {

// Exactly `n` digits at the front, which are taken off.
bool take_digits(std::string_view *text, std::size_t n, long *value)
{
    const std::string_view digits = text->substr(0, n);
    if (digits.size() != n || !is_digit(digits.front()) || !read_whole(digits, value) || digits.back() == ' ')
        return false;
    text->remove_prefix(n);
    return true;
}

bool take(std::string_view *text, char c)
{
    if (text->empty() || text->front() != c)
        return false;
    text->remove_prefix(1);
    return true;
}

bool take_date(std::string_view *text, long *day_number)
{
    long year = 0, month = 0, day = 0;
    if (!take_digits(text, 4, &year) || !take(text, '-') || year < 1950 || year > 2099)
        return false;
    if (text->size() > 2 && is_digit((*text)[2])) { // the day of the year
        if (!take_digits(text, 3, &day) || day < 1 || day > 365 + (year % 4 == 0 ? 1 : 0))
            return false;
        *day_number = day_of_calendar(year, 1, 1) + day - 1;
        return true;
    }
    if (!take_digits(text, 2, &month) || !take(text, '-') || !take_digits(text, 2, &day) || month < 1 || month > 12
        || day < 1 || day > days_in_month(year, month))
        return false;
    *day_number = day_of_calendar(year, month, day);
    return true;
}

} // namespace

bool read_instant(std::string_view text, double *days)
{
    text = trimmed(text);
    long day = 0, hour = 0, minute = 0;
    double second = 0.0;
    if (!take_date(&text, &day) || !take(&text, 'T') || !take_digits(&text, 2, &hour) || !take(&text, ':')
        || !take_digits(&text, 2, &minute) || !take(&text, ':'))
        return false;
    if (!text.empty() && text.back() == 'Z')
        text.remove_suffix(1);
    const bool whole = text.size() == 2;
    if (text.size() < 2 || !is_digit(text[0]) || !is_digit(text[1]) || !(whole || text[2] == '.')
        || !read_number(text, &second) || is_blank(text.back()) || hour > 23 || minute > 59 || second >= 61.0)
        return false;
    *days = static_cast<double>(day) + (static_cast<double>(3600 * hour + 60 * minute) + second) / KL_SECONDS_PER_DAY;
    return true;
}

} // namespace time_files
