// Leap_Second.dat of the IERS: rows "MJD day month year TAI-UTC", the expiry in a comment.
#include "time/files/lines.h"
#include "time/scales.h"

#include <iterator>

namespace time_files {

namespace {

constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};

// "#  File expires on 28 June 2027"
Finding read_expiry(const Line &line, std::string_view text, double *expiry)
{
    const Words words = words_of(text.substr(text.find("expires on") + 10));
    long day = 0, year = 0;
    if (words.count < 3 || !read_whole(words.word[0], &day) || !read_whole(words.word[2], &year))
        return malformed(line, text);
    for (std::size_t i = 0; i < std::size(kMonths); ++i) {
        const long month = static_cast<long>(i) + 1;
        if (words.word[1] == kMonths[i] && year >= 1950 && year <= 2099 && day >= 1
            && day <= days_in_month(year, month)) {
            *expiry = static_cast<double>(day_of_calendar(year, month, day));
            return {};
        }
    }
    return malformed(line, text);
}

} // namespace

Finding read_leap_second_dat(std::string_view bytes, Contents *contents)
{
    Lines lines(bytes);
    for (Line line; lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        Finding finding;
        if (text.empty())
            continue;
        if (text.front() == '#') {
            if (contains(text, "expires on"))
                finding = read_expiry(line, text, &contents->leap_expiry);
            if (finding)
                return finding;
            continue;
        }
        const Words words = words_of(text);
        LeapStep step = {0.0, 0.0, line.number};
        long day = 0, month = 0, year = 0, seconds = 0;
        if (words.count != 5)
            return malformed(line, text);
        if (!date_in(line, words.word[0], &step.utc, &finding) || !whole_in(line, words.word[1], 1, 31, &day, &finding)
            || !whole_in(line, words.word[2], 1, 12, &month, &finding)
            || !whole_in(line, words.word[3], 1900, 2100, &year, &finding)
            || !whole_in(line, words.word[4], 0, 999, &seconds, &finding))
            return finding;
        if (!same_date(step.utc, year, month, day))
            return malformed(line, words.word[0]);
        step.tai_utc = static_cast<double>(seconds);
        finding = add_leap_step(contents, step, line, words.word[0], words.word[4]);
        if (finding)
            return finding;
    }
    return {};
}

} // namespace time_files
