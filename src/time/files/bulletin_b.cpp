// Bulletin B, monthly, from No. 264 on: section 1 holds daily final values and their preliminary extension.
#include "time/files/lines.h"

namespace time_files {

namespace {

enum Word { kYear, kMonth, kDay, kMjd, kX, kY, kUt1, kDX, kDY, kXError, kYError, kUt1Error, kWords = 14 };
constexpr double kThousandth = 1000.0;    // mas and ms in one arcsec and s
constexpr double kLargestOffset = 1000.0; // mas
constexpr double kLargestError = 1e6;     // mas, ms
constexpr double kSentinel = 998.9;       // mas, ms: such an error stands for a prediction

Finding read_row(const Line &line, const Words &words, std::int32_t quality, RowSink *rows)
{
    if (words.count < kWords)
        return malformed(line, line.text.substr(line.text.size()));
    EarthRow row{};
    row.tai_utc = kUnstated;
    row.line = line.number;
    row.quality = quality;
    long year = 0, month = 0, day = 0;
    double x = 0.0, y = 0.0, ut1 = 0.0, dx = 0.0, dy = 0.0;
    Finding finding;
    const auto number = [&](int word, double limit, double *value) {
        return number_in(line, words.word[word], limit, value, &finding);
    };
    if (!whole_in(line, words.word[kYear], 1900, 2100, &year, &finding)
        || !whole_in(line, words.word[kMonth], 1, 12, &month, &finding)
        || !whole_in(line, words.word[kDay], 1, 31, &day, &finding)
        || !date_in(line, words.word[kMjd], &row.utc, &finding) || !number(kX, kThousandth * kLargestPole, &x)
        || !number(kY, kThousandth * kLargestPole, &y) || !number(kUt1, kThousandth * kLargestUt1Utc, &ut1)
        || !number(kDX, kLargestOffset, &dx) || !number(kDY, kLargestOffset, &dy))
        return finding;
    if (!same_date(row.utc, year, month, day))
        return malformed(line, words.word[kMjd]);
    for (const int word : {kXError, kYError, kUt1Error}) {
        double error = 0.0;
        if (!number(word, kLargestError, &error))
            return finding;
        if (error >= kSentinel)
            row.quality = kPredicted;
    }
    row.ut1_utc = ut1 / kThousandth;
    const double pole[4] = {x, y, dx, dy};
    for (int i = 0; i < 4; ++i)
        row.pole[i] = pole[i] / kThousandth;
    return rows->add(row, line, words.word[kMjd]);
}

// "TAI - UTC = 36 s. ... during period [57420-57448]"
bool read_statement(const Line &line, Statement *statement)
{
    const std::string_view text = line.text;
    const std::size_t sign = text.find('=');
    const std::size_t end = text.find('s', sign);
    const std::size_t open = text.find('[');
    const std::size_t dash = text.find('-', open);
    const std::size_t close = text.find(']', dash);
    if (sign == text.npos || end == text.npos || open == text.npos || dash == text.npos || close == text.npos)
        return false;
    double first = 0.0, last = 0.0;
    if (!read_number(text.substr(sign + 1, end - sign - 1), &statement->tai_utc)
        || !read_number(text.substr(open + 1, dash - open - 1), &first)
        || !read_number(text.substr(dash + 1, close - dash - 1), &last))
        return false;
    statement->first = first - kMjdOfDayZero;
    statement->last = last - kMjdOfDayZero;
    statement->line = line.number;
    return true;
}

} // namespace

Finding read_bulletin_b(std::string_view bytes, Contents *contents)
{
    enum class At { head, section_1, final_values, extension, rest } at = At::head;
    RowSink rows(contents);
    Lines lines(bytes);
    for (Line line; lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        if (at == At::head)
            at = contains(text, "DAILY FINAL VALUES") ? At::section_1 : at;
        else if (at == At::rest) {
            Statement statement{};
            if (starts_with(text, "TAI - UTC") && read_statement(line, &statement)
                && !contents->statements.add(statement))
                return no_memory();
        } else if (starts_with(text, "2 -"))
            at = At::rest;
        else if (starts_with(text, "Final values"))
            at = At::final_values;
        else if (starts_with(text, "Preliminary extension"))
            at = At::extension;
        else if (at != At::section_1 && !text.empty() && (is_digit(text.front()) || text.front() == '-')) {
            const std::int32_t quality = at == At::final_values ? kFinal : kPreliminary;
            if (const Finding finding = read_row(line, words_of(line.text), quality, &rows))
                return finding;
        }
    }
    return {};
}

} // namespace time_files
