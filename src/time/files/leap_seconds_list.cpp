// leap-seconds.list of the IERS and of NTP: rows "NTP seconds, TAI-UTC", an expiry, and a hash over them.
#include "numbers/constants.h"
#include "time/files/lines.h"
#include "time/files/sha1.h"

#include <cmath>

namespace time_files {

namespace {

constexpr double kNtpEpochMjd = 15020.0; // 1900-01-01

double day_of_ntp(double seconds)
{
    return kNtpEpochMjd + seconds / KL_SECONDS_PER_DAY - kMjdOfDayZero;
}

bool read_ntp(const Line &line, std::string_view field, double *utc, Finding *finding)
{
    double seconds = 0.0;
    if (read_number(field, &seconds) && seconds == std::floor(seconds) && day_of_ntp(seconds) >= KL_PROCESSING_FIRST
        && day_of_ntp(seconds) <= KL_PROCESSING_LAST) {
        *utc = day_of_ntp(seconds);
        return true;
    }
    *finding = malformed(line, field);
    return false;
}

// Five hexadecimal words, which may lack leading zeros.
bool read_hash(std::string_view text, Sha1::Digest *digest)
{
    const Words words = words_of(text);
    if (words.count != 5)
        return false;
    for (int i = 0; i < 5; ++i) {
        if (words.word[i].size() > 8)
            return false;
        std::uint32_t value = 0;
        for (const char c : words.word[i]) {
            const int digit = is_digit(c)            ? c - '0'
                              : c >= 'a' && c <= 'f' ? c - 'a' + 10
                              : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                     : -1;
            if (digit < 0)
                return false;
            value = 16 * value + static_cast<std::uint32_t>(digit);
        }
        (*digest)[static_cast<std::size_t>(i)] = value;
    }
    return true;
}

} // namespace

Finding read_leap_seconds_list(std::string_view bytes, Contents *contents)
{
    Sha1 hash; // of the digits of #$, #@ and the rows, without blanks
    Finding finding;
    Lines lines(bytes);
    for (Line line; lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        const std::string_view kind = text.substr(0, 2);
        if (kind == "#$" || kind == "#@") {
            const std::string_view field = trimmed(text.substr(2));
            double utc = 0.0;
            if (!read_ntp(line, field, &utc, &finding))
                return finding;
            hash.add(field);
            if (kind == "#@")
                contents->leap_expiry = utc;
        } else if (kind == "#h") {
            Sha1::Digest stated{};
            if (!read_hash(text.substr(2), &stated) || stated != hash.digest())
                return malformed(line, text);
        } else if (!text.empty() && text.front() != '#') {
            const Words words = words_of(text.substr(0, text.find('#')));
            LeapStep step = {0.0, 0.0, line.number};
            long seconds = 0;
            if (words.count != 2)
                return malformed(line, text);
            if (!read_ntp(line, words.word[0], &step.utc, &finding)
                || !whole_in(line, words.word[1], 0, 999, &seconds, &finding))
                return finding;
            step.tai_utc = static_cast<double>(seconds);
            hash.add(words.word[0]);
            hash.add(words.word[1]);
            finding = add_leap_step(contents, step, line, words.word[0], words.word[1]);
            if (finding)
                return finding;
        }
    }
    return {};
}

} // namespace time_files
