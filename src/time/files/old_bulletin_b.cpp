// Bulletin B, monthly, up to No. 263: section 2 holds smoothed daily values, section 1 tells which of them are final.
#include "time/files/lines.h"

#include <iterator>

namespace time_files {

namespace {

constexpr std::string_view kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                        "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
enum Word { kMonth, kDay, kMjd, kX, kY, kUt1, kWords = 10, kWordsOfSection1 = 8 };

// 1 to 12, or 0.
long month_named(std::string_view word)
{
    for (std::size_t i = 0; i < std::size(kMonths); ++i)
        if (word == kMonths[i])
            return static_cast<long>(i) + 1;
    return 0;
}

// Month name, day and MJD agree; the MJD tells the year.
bool read_date(const Line &line, const Words &words, double *utc, Finding *finding)
{
    long day = 0;
    if (words.count <= kMjd) {
        *finding = malformed(line, line.text.substr(line.text.size()));
        return false;
    }
    if (!whole_in(line, words.word[kDay], 1, 31, &day, finding) || !date_in(line, words.word[kMjd], utc, finding))
        return false;
    if (same_date(*utc, 0, month_named(words.word[kMonth]), day))
        return true;
    *finding = malformed(line, words.word[kMjd]);
    return false;
}

Finding read_row(const Line &line, const Words &words, double last_final, RowSink *rows)
{
    EarthRow row{};
    row.tai_utc = kUnstated;
    row.line = line.number;
    Finding finding;
    if (!read_date(line, words, &row.utc, &finding))
        return finding;
    if (words.count < kWords)
        return malformed(line, line.text.substr(line.text.size()));
    if (!number_in(line, words.word[kX], kLargestPole, &row.pole[0], &finding)
        || !number_in(line, words.word[kY], kLargestPole, &row.pole[1], &finding)
        || !number_in(line, words.word[kUt1], kLargestUt1Utc, &row.ut1_utc, &finding))
        return finding;
    row.quality = row.utc <= last_final ? kFinal : kPreliminary;
    return rows->add(row, line, words.word[kMjd]);
}

} // namespace

Finding read_old_bulletin_b(std::string_view bytes, Contents *contents)
{
    enum class At { head, final_values, extension, daily, end } at = At::head;
    RowSink rows(contents);
    Lines lines(bytes);
    double last_final = KL_PROCESSING_FIRST - 1.0;
    for (Line line; at != At::end && lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        const Words words = words_of(line.text);
        const bool row = words.count > 0 && month_named(words.word[kMonth]) != 0;
        if (at != At::daily && starts_with(text, "1 -"))
            at = At::final_values;
        else if (at == At::final_values && starts_with(text, "Preliminary extension"))
            at = At::extension;
        else if (at != At::daily && starts_with(text, "2 -"))
            at = At::daily;
        else if (at == At::daily && (starts_with(text, "3 -") || starts_with(text, "IERS, B")))
            at = At::end;
        else if (at == At::final_values && row) {
            Finding finding;
            if (!read_date(line, words, &last_final, &finding))
                return finding;
        } else if (at == At::daily && row) {
            if (const Finding finding = read_row(line, words, last_final, &rows))
                return finding;
        } else if (at == At::daily && !contents->rows.empty() && !text.empty())
            return malformed(line, text); // neither a row nor the end of the table
    }
    return {};
}

} // namespace time_files
