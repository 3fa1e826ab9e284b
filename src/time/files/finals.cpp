// finals.all, .data, .daily and finals2000A.*: the rapid service's daily series, fixed columns.
#include "time/files/lines.h"

#include <cmath>

namespace time_files {

namespace {

constexpr double kFirstDayOf2000 = 0.0;
constexpr double kLargestOffset = 1000.0; // mas

// The series of 1980 has dPsi, dEps in the columns of dX, dY: tens of milliarcseconds, which dX, dY are far below now.
constexpr double kSmallOffset = 0.005; // arcsec
constexpr double kLastYear = 365.0;    // days

struct Columns {
    std::size_t first, last;
};
constexpr Columns kYear = {1, 2}, kMonth = {3, 4}, kDay = {5, 6}, kMjd = {8, 15};
constexpr Columns kX = {19, 27}, kY = {38, 46}, kUt1 = {59, 68}, kDX = {98, 106}, kDY = {117, 125};
constexpr Columns kFinalX = {135, 144}, kFinalY = {145, 154}, kFinalUt1 = {155, 165};
constexpr std::size_t kPoleFlag = 17, kUt1Flag = 58, kOffsetFlag = 96;
constexpr std::size_t kOffsetsEnd = 134; // with the error of dY

std::string_view part(const Line &line, Columns c)
{
    return columns(line, c.first, c.last);
}

char flag_at(const Line &line, std::size_t column)
{
    return column <= line.text.size() ? line.text[column - 1] : ' ';
}

bool is_flag(char c)
{
    return c == 'I' || c == 'P';
}

// Number in columns that the line must hold to their end.
bool read(const Line &line, Columns c, double limit, double *value, Finding *finding)
{
    if (line.text.size() >= c.last)
        return number_in(line, part(line, c), limit, value, finding);
    *finding = malformed(line, part(line, c));
    return false;
}

bool read_date(const Line &line, double *utc, Finding *finding)
{
    long year = 0, month = 0, day = 0;
    if (line.text.size() < kMjd.last) {
        *finding = malformed(line, part(line, kMjd));
        return false;
    }
    if (!date_in(line, part(line, kMjd), utc, finding) || !whole_in(line, part(line, kYear), 0, 99, &year, finding)
        || !whole_in(line, part(line, kMonth), 1, 12, &month, finding)
        || !whole_in(line, part(line, kDay), 1, 31, &day, finding))
        return false;
    year += *utc < kFirstDayOf2000 ? 1900 : 2000;
    if (same_date(*utc, year, month, day))
        return true;
    *finding = malformed(line, columns(line, kYear.first, kDay.last));
    return false;
}

// The values of Bulletin B, where all three are given; a line that ends among them is cut.
bool read_final_values(const Line &line, EarthRow *row, Finding *finding)
{
    const std::string_view x = part(line, kFinalX), y = part(line, kFinalY), ut1 = part(line, kFinalUt1);
    const bool blank[] = {all_blank(x), all_blank(y), all_blank(ut1)};
    if (blank[0] && blank[1] && blank[2])
        return true;
    if (line.text.size() < kFinalUt1.last) {
        *finding = malformed(line, columns(line, kFinalX.first, kFinalUt1.last));
        return false;
    }
    if (blank[0] || blank[1] || blank[2])
        return true;
    row->quality = kFinal;
    return number_in(line, x, kLargestPole, &row->pole[0], finding)
           && number_in(line, y, kLargestPole, &row->pole[1], finding)
           && number_in(line, ut1, kLargestUt1Utc, &row->ut1_utc, finding);
}

bool read_row(const Line &line, EarthRow *row, Finding *finding)
{
    row->quality = flag_at(line, kUt1Flag) == 'I' ? kRapid : kPredicted;
    if (!read(line, kUt1, kLargestUt1Utc, &row->ut1_utc, finding))
        return false;
    if (!read(line, kX, kLargestPole, &row->pole[0], finding) || !read(line, kY, kLargestPole, &row->pole[1], finding))
        return false;
    if (is_flag(flag_at(line, kOffsetFlag))) {
        double dx = 0.0, dy = 0.0;
        if (!read(line, kDX, kLargestOffset, &dx, finding) || !read(line, kDY, kLargestOffset, &dy, finding))
            return false;
        row->pole[2] = dx / 1000.0; // mas to arcsec
        row->pole[3] = dy / 1000.0;
    }
    return read_final_values(line, row, finding);
}

// A last line that is not ended may stop before the columns of Bulletin B, but not inside its offsets, and not before
// them where the line before has any.
bool cut_inside_offsets(const Line &line, bool had_offsets)
{
    const std::size_t length = line.text.size();
    return is_flag(flag_at(line, kOffsetFlag)) ? length < kOffsetsEnd : had_offsets && length < kOffsetFlag;
}

void drop_offsets_of_1980(Contents *contents)
{
    bool of_1980 = false;
    if (!contents->rows.empty())
        for (const EarthRow &row : contents->rows)
            if (row.utc > contents->rows.back().utc - kLastYear)
                of_1980 |= std::fabs(row.pole[2]) > kSmallOffset || std::fabs(row.pole[3]) > kSmallOffset;
    if (of_1980)
        for (EarthRow &row : contents->rows)
            row.pole[2] = row.pole[3] = 0.0;
}

} // namespace

Finding read_finals(std::string_view bytes, Contents *contents)
{
    constexpr std::size_t kLineLength = 188;
    if (!contents->rows.reserve(bytes.size() / kLineLength + 64))
        return no_memory();
    RowSink rows(contents);
    Lines lines(bytes);
    bool had_offsets = false;
    for (Line line; lines.next(&line);) {
        if (all_blank(line.text))
            continue;
        Finding finding;
        EarthRow row{};
        row.tai_utc = kUnstated;
        row.line = line.number;
        if (!read_date(line, &row.utc, &finding))
            return finding;
        const char flag = flag_at(line, kUt1Flag);
        if (!is_flag(flag) && flag != ' ')
            return malformed(line, columns(line, kUt1Flag, kUt1Flag));
        // A reserved day has no flag and no numbers; with a pole it has lost its UT1.
        const bool reserved = flag == ' ';
        if (reserved && (is_flag(flag_at(line, kPoleFlag)) || !all_blank(part(line, kUt1))))
            return malformed(line, columns(line, kUt1Flag, kUt1.last));
        if (!reserved && !read_row(line, &row, &finding))
            return finding;
        const bool has_offsets = is_flag(flag_at(line, kOffsetFlag));
        if (!reserved && !line.ended && cut_inside_offsets(line, had_offsets))
            return malformed(line, line.text.substr(line.text.size()));
        had_offsets = has_offsets;
        finding = reserved ? rows.skip(row.utc, line, part(line, kMjd)) : rows.add(row, line, part(line, kMjd));
        if (finding)
            return finding;
    }
    drop_offsets_of_1980(contents);
    return {};
}

} // namespace time_files
