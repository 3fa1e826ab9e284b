// Which format a file has, by its first bytes; and its reading.
#include "time/files/lines.h"

namespace time_files {

namespace {

bool is_sp3(std::string_view head)
{
    return head.size() > 2 && head[0] == '#' && head[1] >= 'a' && head[1] <= 'd' && (head[2] == 'P' || head[2] == 'V');
}

std::string_view first_word(std::string_view head)
{
    while (!head.empty() && (is_blank(head.front()) || head.front() == '\n'))
        head.remove_prefix(1);
    return head.substr(0, head.find_first_of(" \t\r\n=\0"));
}

// A line "#$" or "#@" with digits, or a row "10 digits, TAI-UTC".
bool is_leap_seconds_list(std::string_view head)
{
    constexpr std::size_t kNtpDigits = 10;
    Lines lines(head);
    for (Line line; lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        long whole = 0;
        if (starts_with(text, "#$") || starts_with(text, "#@")) {
            const std::string_view rest = trimmed(text.substr(2));
            if (!rest.empty() && is_digit(rest.front()))
                return true;
        }
        const Words words = words_of(text.substr(0, text.find('#')));
        if (words.count == 2 && words.word[0].size() == kNtpDigits && read_whole(words.word[0].substr(0, 5), &whole)
            && read_whole(words.word[0].substr(5), &whole) && read_whole(words.word[1], &whole))
            return true;
    }
    return false;
}

bool is_finals(std::string_view head)
{
    constexpr std::size_t kMjd = 7, kMjdLength = 8, kPoleFlag = 16, kUt1Flag = 57;
    Lines lines(head);
    Line line;
    double mjd = 0.0;
    if (!lines.next(&line) || line.text.size() <= kMjd + kMjdLength
        || !read_number(line.text.substr(kMjd, kMjdLength), &mjd) || line.text[kMjd + kMjdLength - 3] != '.')
        return false;
    const auto flag = [&](std::size_t at) {
        return at >= line.text.size() || line.text[at] == 'I' || line.text[at] == 'P' || line.text[at] == ' ';
    };
    return flag(kPoleFlag) || flag(kUt1Flag);
}

} // namespace

Format recognised(std::string_view bytes)
{
    const std::string_view head = bytes.substr(0, kRecognisedBytes);
    const std::string_view word = first_word(head);
    if (is_sp3(head))
        return Format::sp3;
    if (word == "CCSDS_OEM_VERS")
        return Format::oem_text;
    if ((starts_with(word, "<?xml") || starts_with(word, "<oem")) && contains(head, "CCSDS_OEM_VERS"))
        return Format::oem_xml;
    if (starts_with(head, "KL_TIME_CORRELATION"))
        return Format::own_table;
    if (is_leap_seconds_list(head))
        return Format::leap_seconds_list;
    if (starts_with(word, "#") && contains(head, "Value of TAI-UTC"))
        return Format::leap_second_dat;
    if (contains(head, "I E R S   B U L L E T I N - A"))
        return Format::bulletin_a;
    if (contains(head, "BULLETIN B"))
        return contains(head, "DAILY FINAL VALUES") ? Format::bulletin_b : Format::old_bulletin_b;
    if (contains(head, "C04"))
        return Format::c04;
    return is_finals(head) ? Format::finals : Format::unknown;
}

namespace {

// NUL bytes that end a file are ignored; one elsewhere is refused.
Finding take_off_nul_bytes(std::string_view *bytes)
{
    const std::size_t nul = bytes->find('\0');
    if (nul == bytes->npos)
        return {};
    const std::size_t after = bytes->find_first_not_of('\0', nul);
    if (after == bytes->npos) {
        *bytes = bytes->substr(0, nul);
        return {};
    }
    Lines lines(*bytes);
    Line line;
    while (lines.next(&line))
        if (const std::size_t at = line.text.find('\0'); at != line.text.npos)
            return malformed(line, line.text.substr(at, 1));
    return {};
}

} // namespace

Finding read_contents(Format format, std::string_view bytes, Contents *contents)
{
    contents->format = format;
    if (const Finding finding = take_off_nul_bytes(&bytes))
        return finding;
    switch (format) {
    case Format::sp3:
        return read_sp3(bytes, contents);
    case Format::oem_text:
        return read_oem_text(bytes, contents);
    case Format::oem_xml:
        return read_oem_xml(bytes, contents);
    case Format::own_table:
        return read_own_table(bytes, contents);
    case Format::leap_seconds_list:
        return read_leap_seconds_list(bytes, contents);
    case Format::leap_second_dat:
        return read_leap_second_dat(bytes, contents);
    case Format::bulletin_a:
        return read_bulletin_a(bytes, contents);
    case Format::bulletin_b:
        return read_bulletin_b(bytes, contents);
    case Format::old_bulletin_b:
        return read_old_bulletin_b(bytes, contents);
    case Format::c04:
        return read_c04(bytes, contents);
    case Format::finals:
        return read_finals(bytes, contents);
    default:
        return {};
    }
}

} // namespace time_files
