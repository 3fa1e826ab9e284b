// The one reader of lines, words and numbers under the readers of all formats.
#ifndef KL_SRC_TIME_FILES_LINES_H
#define KL_SRC_TIME_FILES_LINES_H

#include "time/files/contents.h"

#include <cstring>
#include <string_view>

namespace time_files {

struct Line {
    std::string_view text; // without the LF or CR LF that ends it
    long number = 0;       // from 1
    bool ended = false;    // by an LF: the last line of a cut file is not
};

class Lines {
public:
    explicit Lines(std::string_view bytes) : rest_(bytes) {}

    bool next(Line *line)
    {
        if (rest_.empty())
            return false;
        const void *lf = std::memchr(rest_.data(), '\n', rest_.size());
        line->ended = lf != nullptr;
        const std::size_t length =
            lf != nullptr ? static_cast<std::size_t>(static_cast<const char *>(lf) - rest_.data()) : rest_.size();
        line->text = rest_.substr(0, length);
        line->number = ++number_;
        rest_.remove_prefix(length + (lf != nullptr ? 1 : 0));
        if (line->ended && !line->text.empty() && line->text.back() == '\r')
            line->text.remove_suffix(1);
        return true;
    }

private:
    std::string_view rest_;
    long number_ = 0;
};

inline bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}
inline bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text);
inline bool all_blank(std::string_view text)
{
    std::size_t n = 0;
    while (n < text.size() && is_blank(text[n]))
        ++n;
    return n == text.size();
}

// A number: blanks around, sign, digits with at most one point; nothing else. Its first 15 digits count, further
// decimals are cut. The nearest double to what was read.
bool read_number(std::string_view text, double *value);
// Digits only, blanks around, no more than nine.
bool read_whole(std::string_view text, long *value);

// The words of a line between blanks, and where they begin.
struct Words {
    static constexpr int kMost = 20;
    int count = 0; // kMost: there may be more
    std::string_view word[kMost];
};
Words words_of(std::string_view text);

inline bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}
inline bool starts_with(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

// ---- what is wrong with a field ----

// `field` is a part of line.text, possibly empty.
Finding found(Fault fault, const Line &line, std::string_view field);
inline Finding malformed(const Line &line, std::string_view field)
{
    return found(Fault::malformed, line, field);
}
inline Finding no_memory()
{
    Finding finding;
    finding.fault = Fault::no_memory;
    return finding;
}

// Columns from 1, inclusive, as the formats are published; what lies behind the end of the line is cut off.
inline std::string_view columns(const Line &line, std::size_t first, std::size_t last)
{
    return first <= line.text.size() ? line.text.substr(first - 1, last - first + 1)
                                     : line.text.substr(line.text.size());
}

// A number not above a limit in size, from its columns or word; false with the finding.
bool number_in(const Line &line, std::string_view field, double limit, double *value, Finding *finding);
bool whole_in(const Line &line, std::string_view field, long least, long most, long *value, Finding *finding);
// An MJD inside the processing range, as MJD2000.
bool date_in(const Line &line, std::string_view field, double *utc, Finding *finding);

// Is the date printed beside an MJD that day? Only the month where no year or day is printed (0).
bool same_date(double utc, long year, long month, long day);

// Appends a row; it must lie after the one before it, counted or not.
class RowSink {
public:
    explicit RowSink(Contents *contents) : contents_(contents) {}
    // `field` holds the date. Rows before 1972 are skipped.
    Finding add(const EarthRow &row, const Line &line, std::string_view field);
    // A data line that is not used.
    Finding skip(double utc, const Line &line, std::string_view field);

private:
    Finding check(double utc, const Line &line, std::string_view field);

    Contents *contents_;
    double last_ = -1e9;
};

// The list of leap seconds goes up or down by one second at later and later midnights.
Finding add_leap_step(Contents *contents, const LeapStep &step, const Line &line, std::string_view date,
                      std::string_view value);

} // namespace time_files

#endif
