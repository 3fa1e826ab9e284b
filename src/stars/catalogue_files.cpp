#include "stars/catalogue_files.h"

#include "stars/bright_stars.h"
#include "stars/place.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace {

constexpr double kJ1991 = -3195.4375; // J1991.25, MJD2000

// The next line without its end; false after the last one.
bool take_line(std::string_view *rest, std::string_view *line)
{
    if (rest->empty())
        return false;
    const std::size_t end = rest->find('\n');
    *line = rest->substr(0, end);
    rest->remove_prefix(end == std::string_view::npos ? rest->size() : end + 1);
    if (!line->empty() && line->back() == '\r')
        line->remove_suffix(1);
    return true;
}

bool is_blank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// ---- numbers ----

// A sign that from_chars does not know; false when it is all there is, or not the only one.
bool drop_plus(std::string_view *text)
{
    if (text->front() != '+')
        return true;
    text->remove_prefix(1);
    return !text->empty() && text->front() != '+' && text->front() != '-';
}

// A whole text as a number, whatever the locale; blank is 0.
template <class Number>
bool read_number(std::string_view text, Number *value)
{
    text = trimmed(text);
    *value = 0;
    if (text.empty())
        return true;
    if (!drop_plus(&text))
        return false;
    const std::from_chars_result at = std::from_chars(text.data(), text.data() + text.size(), *value);
    return at.ec == std::errc() && at.ptr == text.data() + text.size() && std::isfinite(static_cast<double>(*value));
}

// Columns of a line, counted from 1; blank beyond its end.
std::string_view columns(std::string_view line, std::size_t first, std::size_t last)
{
    return line.size() < first ? std::string_view() : line.substr(first - 1, last - first + 1);
}

// A decimal number of few columns, in units of 10^-decimals; blank is 0. Digits beyond those decimals are a mistake.
bool read_fixed(std::string_view text, int decimals, long *value)
{
    text = trimmed(text);
    *value = 0;
    if (text.empty())
        return true;
    const bool minus = text.front() == '-';
    if (minus || text.front() == '+')
        text.remove_prefix(1);
    int after = -1; // digits behind the point
    bool any = false;
    for (const char c : text) {
        if (c == '.' && after < 0) {
            after = 0;
        } else if (is_digit(c) && after < decimals) {
            *value = 10 * *value + (c - '0');
            after += after >= 0 ? 1 : 0;
            any = true;
        } else {
            return false;
        }
    }
    for (int i = after < 0 ? 0 : after; i < decimals; ++i)
        *value *= 10;
    if (minus)
        *value = -*value;
    return any;
}

// ---- the Bright Star Catalogue ----

StarRecord read_bright_star(std::string_view line, kl_star *star)
{
    if (trimmed(line).empty() || trimmed(columns(line, 76, 83)).empty())
        return StarRecord::nothing;
    long number, h, m, s, deg, arcmin, arcsec, v, pm_ra, pm_dec, parallax, velocity;
    const std::string_view sign = columns(line, 84, 84);
    if (!read_fixed(columns(line, 1, 4), 0, &number) || !read_fixed(columns(line, 76, 77), 0, &h)
        || !read_fixed(columns(line, 78, 79), 0, &m) || !read_fixed(columns(line, 80, 83), 1, &s)
        || !(sign == "+" || sign == "-") || !read_fixed(columns(line, 85, 86), 0, &deg)
        || !read_fixed(columns(line, 87, 88), 0, &arcmin) || !read_fixed(columns(line, 89, 90), 0, &arcsec)
        || !read_fixed(columns(line, 103, 107), 2, &v) || !read_fixed(columns(line, 149, 154), 3, &pm_ra)
        || !read_fixed(columns(line, 155, 160), 3, &pm_dec) || !read_fixed(columns(line, 162, 166), 3, &parallax)
        || !read_fixed(columns(line, 167, 170), 0, &velocity))
        return StarRecord::malformed;
    if (h < 0 || h > 23 || m < 0 || m > 59 || s < 0 || s > 599 || deg < 0 || arcmin < 0 || arcmin > 59 || arcsec < 0
        || arcsec > 59)
        return StarRecord::malformed;
    const long ra = 36000 * h + 600 * m + s;
    const long dec = 3600 * deg + 60 * arcmin + arcsec;
    star->ra = static_cast<double>(ra) / 2400.0;
    star->dec = static_cast<double>(sign == "-" ? -dec : dec) / 3600.0;
    star->pm_ra = static_cast<double>(pm_ra);
    star->pm_dec = static_cast<double>(pm_dec);
    star->parallax = static_cast<double>(parallax);
    star->radial_velocity = static_cast<double>(velocity);
    star->epoch = kJ2000;
    star->magnitude = static_cast<double>(v) / 100.0;
    star->number = number;
    return StarRecord::star;
}

bool is_bright_star_line(std::string_view line)
{
    if (line.size() < 100 || line.size() > 250)
        return false;
    const auto digits = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i <= last; ++i)
            if (!is_digit(line[i - 1]) && line[i - 1] != ' ' && !(i == 82 && line[i - 1] == '.'))
                return false;
        return true;
    };
    const bool no_position = trimmed(columns(line, 76, 83)).empty();
    const char sign = line[83];
    return digits(1, 4) && digits(76, 83) && digits(85, 90)
           && (sign == '+' || sign == '-' || (sign == ' ' && no_position));
}

// ---- Hipparcos ----

constexpr std::size_t kHipparcosFields = 14;

// The first fields of a line between bars; how many there are, at most those.
std::size_t fields_of(std::string_view line, std::string_view (&fields)[kHipparcosFields])
{
    std::size_t n = 0;
    while (n < kHipparcosFields) {
        const std::size_t end = line.find('|');
        fields[n++] = line.substr(0, end);
        if (end == std::string_view::npos)
            break;
        line.remove_prefix(end + 1);
    }
    return n;
}

StarRecord read_hipparcos(std::string_view line, kl_star *star)
{
    if (trimmed(line).empty())
        return StarRecord::nothing;
    std::string_view field[kHipparcosFields];
    if (fields_of(line, field) < kHipparcosFields)
        return StarRecord::malformed;
    const std::string_view ra = trimmed(field[8]);
    const std::string_view dec = trimmed(field[9]);
    if (ra.empty() && dec.empty())
        return StarRecord::nothing;
    if (ra.empty() || dec.empty() || !read_number(field[1], &star->number) || !read_number(field[5], &star->magnitude)
        || !read_number(ra, &star->ra) || !read_number(dec, &star->dec) || !read_number(field[11], &star->parallax)
        || !read_number(field[12], &star->pm_ra) || !read_number(field[13], &star->pm_dec))
        return StarRecord::malformed;
    star->radial_velocity = 0.0;
    star->epoch = kJ1991;
    return StarRecord::star;
}

// ---- our own ----

constexpr std::string_view kOwnTitle = "KL_STARS 1";

StarRecord read_own(std::string_view line, kl_star *star)
{
    line = trimmed(line.substr(0, line.find('#')));
    if (line.empty())
        return StarRecord::nothing;
    double *const numbers[] = {&star->magnitude,       &star->ra,     &star->dec,
                               &star->pm_ra,           &star->pm_dec, &star->parallax,
                               &star->radial_velocity, &star->epoch};
    for (std::size_t i = 0; i <= std::size(numbers); ++i) {
        std::size_t end = 0;
        while (end < line.size() && !is_blank(line[end]))
            ++end;
        const std::string_view word = line.substr(0, end);
        if (word.empty() || !(i == 0 ? read_number(word, &star->number) : read_number(word, numbers[i - 1])))
            return StarRecord::malformed;
        line = trimmed(line.substr(end));
    }
    return line.empty() ? StarRecord::star : StarRecord::malformed;
}

} // namespace

CatalogueFormat format_of(std::string_view text)
{
    std::string_view line;
    if (!take_line(&text, &line))
        return CatalogueFormat::unknown;
    if (trimmed(line) == kOwnTitle)
        return CatalogueFormat::own;
    std::string_view field[kHipparcosFields];
    if (fields_of(line, field) == kHipparcosFields && trimmed(field[0]) == "H")
        return CatalogueFormat::hipparcos;
    return is_bright_star_line(line) ? CatalogueFormat::bright_stars : CatalogueFormat::unknown;
}

StarRecord CatalogueReader::next(kl_star *star)
{
    std::string_view line;
    if (!take_line(&rest_, &line))
        return StarRecord::end;
    ++line_;
    if (format_ == CatalogueFormat::own && line_ == 1)
        return StarRecord::nothing;
    const StarRecord record = format_ == CatalogueFormat::bright_stars ? read_bright_star(line, star)
                              : format_ == CatalogueFormat::hipparcos  ? read_hipparcos(line, star)
                                                                       : read_own(line, star);
    return record == StarRecord::star && !in_range(star_of(*star)) ? StarRecord::malformed : record;
}

long malformed_line(std::string_view text, CatalogueFormat format)
{
    if (format == CatalogueFormat::unknown)
        return 0;
    CatalogueReader reader(text, format);
    kl_star star;
    for (;;) {
        const StarRecord record = reader.next(&star);
        if (record == StarRecord::malformed)
            return reader.line();
        if (record == StarRecord::end)
            return 0;
    }
}
