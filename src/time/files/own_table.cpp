// The library's own table: "KL_TIME_CORRELATION 1", then rows "yyyy-mm-ddThh:mm:ss[.ffffff] TAI-UTC UT1-UTC [x y]"
// (UTC; s, s, arcsec), increasing; # begins a comment; optional "FORMULA a b c" (s, s a day, MJD2000).
#include "time/files/lines.h"
#include "time/files/written_instants.h"

#include <cmath>

namespace time_files {

namespace {

constexpr double kLargestTaiUtc = 1000.0; // s
constexpr double kLargestCoefficient = 1e6;

std::size_t decimals_of(std::string_view number)
{
    const std::size_t point = number.find('.');
    return point == number.npos ? 0 : number.size() - point - 1;
}

Finding read_formula(const Line &line, const Words &words, Formula *formula)
{
    Finding finding;
    if (words.count != 4 || !line.ended)
        return malformed(line, line.text);
    if (number_in(line, words.word[1], kLargestCoefficient, &formula->a, &finding)
        && number_in(line, words.word[2], kLargestCoefficient, &formula->b, &finding)
        && number_in(line, words.word[3], kLargestCoefficient, &formula->c, &finding))
        formula->ut1 = true;
    return finding;
}

Finding read_row(const Line &line, const Words &words, RowSink *rows)
{
    EarthRow row{};
    row.line = line.number;
    row.quality = kFinal;
    Finding finding;
    if (words.count != 3 && words.count != 5)
        return malformed(line, line.text);
    if (!read_instant(words.word[0], &row.utc) || row.utc > KL_PROCESSING_LAST)
        return malformed(line, words.word[0]);
    if (!number_in(line, words.word[1], kLargestTaiUtc, &row.tai_utc, &finding)
        || !number_in(line, words.word[2], kLargestUt1Utc, &row.ut1_utc, &finding))
        return finding;
    if (row.tai_utc != std::floor(row.tai_utc))
        return malformed(line, words.word[1]);
    if (words.count == 5
        && (!number_in(line, words.word[3], kLargestPole, &row.pole[0], &finding)
            || !number_in(line, words.word[4], kLargestPole, &row.pole[1], &finding)))
        return finding;
    return rows->add(row, line, words.word[0]);
}

} // namespace

Finding read_own_table(std::string_view bytes, Contents *contents)
{
    RowSink rows(contents);
    Lines lines(bytes);
    int n_words = 0;          // of the row before
    std::size_t decimals = 0; // of its last number
    for (Line line; lines.next(&line);) {
        if (line.number == 1) { // recognised by it
            const Words head = words_of(line.text);
            if (head.count != 2 || head.word[1] != "1")
                return malformed(line, line.text);
            continue;
        }
        const Words words = words_of(line.text.substr(0, line.text.find('#')));
        if (words.count == 0)
            continue;
        Finding finding;
        if (words.word[0] == "FORMULA") {
            finding = read_formula(line, words, &contents->formula);
        } else {
            // A last line without its end may be cut: it has to be as long as the row before.
            const std::string_view last = words.word[words.count - 1];
            if (!line.ended && (words.count != n_words || decimals_of(last) < decimals))
                return malformed(line, last);
            n_words = words.count;
            decimals = decimals_of(last);
            finding = read_row(line, words, &rows);
        }
        if (finding)
            return finding;
    }
    return {};
}

} // namespace time_files
