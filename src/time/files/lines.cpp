// Lines, words and numbers of a file, and the findings about them.
#include "time/files/lines.h"

#include "time/scales.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace time_files {

namespace {

constexpr int kDigits = 15; // a double holds them all
constexpr double kPowerOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22}; // exact
constexpr int kMostDecimals = static_cast<int>(std::size(kPowerOfTen)) - 1;

} // namespace

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

namespace {

// A number between its sign and its end, of any length.
bool read_long_number(const char *at, const char *end, double *size)
{
    std::int64_t digits = 0;
    int n_digits = 0; // from the first that is not zero
    int decimals = 0;
    bool point = false;
    bool any = false;
    for (; at != end; ++at) {
        if (*at == '.' && !point) {
            point = true;
            continue;
        }
        if (!is_digit(*at))
            return false;
        any = true;
        if (n_digits == kDigits || decimals == kMostDecimals) {
            if (!point)
                return false;
            continue;
        }
        digits = 10 * digits + (*at - '0');
        n_digits += digits != 0 ? 1 : 0;
        decimals += point ? 1 : 0;
    }
    *size = static_cast<double>(digits) / kPowerOfTen[decimals];
    return any;
}

// The whole number of up to eight digits before `end`, all at once; false when one is none. Eight characters before
// `end` can be looked at.
bool read_digits_before(const char *end, std::ptrdiff_t n, std::int64_t *value)
{
    constexpr std::uint64_t kZeros = 0x3030303030303030, kHigh = 0xf0f0f0f0f0f0f0f0, kSix = 0x0606060606060606;
    std::uint64_t octets = 0; // the first character lowest
    std::memcpy(&octets, end - 8, 8);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    octets = __builtin_bswap64(octets);
#endif
    const std::uint64_t own = ~std::uint64_t{0} << (8 * (8 - n));
    octets = (octets & own) | (kZeros & ~own);
    if ((octets & kHigh) != kZeros || ((octets + kSix) & kHigh) != kZeros)
        return false;
    // Pairs of digits, then of these, then of those: 2561 = 10 * 2^8 + 1 and so on.
    octets = ((octets & 0x0f0f0f0f0f0f0f0f) * 2561) >> 8;
    octets = ((octets & 0x00ff00ff00ff00ff) * 6553601) >> 16;
    *value = static_cast<std::int64_t>(((octets & 0x0000ffff0000ffff) * 42949672960001) >> 32);
    return true;
}

constexpr std::int64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// Up to 15 digits: no count of them is needed. `text` is where the field begins.
bool read_short_number(const char *text, const char *at, const char *end, double *size)
{
    std::int64_t digits = 0;
    const char *start = at;
    for (; at != end && is_digit(*at); ++at)
        digits = 10 * digits + (*at - '0');
    const auto n_whole = at - start;
    const char *decimals = at;
    if (at != end && *at == '.') {
        decimals = ++at;
        std::int64_t parts = 0;
        if (end - at >= 2 && end - at <= 8 && end - text >= 8 && read_digits_before(end, end - at, &parts)) {
            digits = kTens[end - at] * digits + parts;
            at = end;
        }
        for (; at != end && is_digit(*at); ++at)
            digits = 10 * digits + (*at - '0');
    }
    if (at != end || n_whole + (at - decimals) == 0)
        return false;
    *size = static_cast<double>(digits) / kPowerOfTen[at - decimals];
    return true;
}

} // namespace

bool read_number(std::string_view text, double *value)
{
    const char *at = text.data();
    const char *end = at + text.size();
    while (at != end && *at <= ' ' && is_blank(*at))
        ++at;
    while (end != at && end[-1] <= ' ' && is_blank(end[-1]))
        --end;
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+'))
        ++at;
    double size = 0.0;
    if (!(end - at <= kDigits ? read_short_number(text.data(), at, end, &size) : read_long_number(at, end, &size)))
        return false;
    *value = negative ? -size : size;
    return true;
}

bool read_whole(std::string_view text, long *value)
{
    constexpr std::size_t kMostDigits = 9;
    text = trimmed(text);
    if (text.empty() || text.size() > kMostDigits || !std::all_of(text.begin(), text.end(), is_digit))
        return false;
    *value = 0;
    for (const char c : text)
        *value = 10 * *value + (c - '0');
    return true;
}

Words words_of(std::string_view text)
{
    Words words;
    std::size_t at = 0;
    while (words.count < Words::kMost) {
        while (at < text.size() && is_blank(text[at]))
            ++at;
        if (at == text.size())
            break;
        const std::size_t start = at;
        while (at < text.size() && !is_blank(text[at]))
            ++at;
        words.word[words.count++] = text.substr(start, at - start);
    }
    return words;
}

Finding found(Fault fault, const Line &line, std::string_view field)
{
    Finding finding;
    finding.fault = fault;
    finding.line = line.number;
    finding.column = 1 + static_cast<long>(field.data() - line.text.data());
    const std::size_t length = std::min(field.size(), kFieldLength - 1);
    // What is not printable would spoil a log.
    std::transform(field.begin(), field.begin() + length, finding.field,
                   [](char c) { return c >= ' ' && c <= '~' ? c : '?'; });
    return finding;
}

bool number_in(const Line &line, std::string_view field, double limit, double *value, Finding *finding)
{
    if (read_number(field, value) && std::fabs(*value) <= limit)
        return true;
    *finding = malformed(line, field);
    return false;
}

bool whole_in(const Line &line, std::string_view field, long least, long most, long *value, Finding *finding)
{
    if (read_whole(field, value) && *value >= least && *value <= most)
        return true;
    *finding = malformed(line, field);
    return false;
}

bool date_in(const Line &line, std::string_view field, double *utc, Finding *finding)
{
    double mjd = 0.0;
    if (read_number(field, &mjd) && inside_processing_range(mjd - kMjdOfDayZero)) {
        *utc = mjd - kMjdOfDayZero;
        return true;
    }
    *finding = malformed(line, field);
    return false;
}

bool same_date(double utc, long year, long month, long day)
{
    const CalendarDay date = calendar_of_day(floor_to_long(utc));
    return (year == 0 || date.year == year) && date.month == month && (day == 0 || date.day == day);
}

Finding RowSink::check(double utc, const Line &line, std::string_view field)
{
    if (!(utc > last_))
        return found(Fault::not_increasing, line, field);
    last_ = utc;
    return {};
}

Finding RowSink::add(const EarthRow &row, const Line &line, std::string_view field)
{
    if (row.utc < kFirstWholeTaiUtc)
        return skip(row.utc, line, field);
    if (const Finding finding = check(row.utc, line, field))
        return finding;
    return contents_->rows.add(row) ? Finding{} : no_memory();
}

Finding RowSink::skip(double utc, const Line &line, std::string_view field)
{
    ++contents_->n_skipped;
    return check(utc, line, field);
}

Finding add_leap_step(Contents *contents, const LeapStep &step, const Line &line, std::string_view date,
                      std::string_view value)
{
    if (step.utc != std::floor(step.utc))
        return malformed(line, date);
    if (!contents->leap_steps.empty()) {
        const LeapStep &before = contents->leap_steps.back();
        if (!(step.utc > before.utc))
            return found(Fault::not_increasing, line, date);
        if (std::fabs(step.tai_utc - before.tai_utc) != 1.0)
            return malformed(line, value);
    }
    return contents->leap_steps.add(step) ? Finding{} : no_memory();
}

} // namespace time_files
