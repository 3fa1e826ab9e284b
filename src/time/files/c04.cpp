// EOP C04, the long-term series of the Earth orientation centre: versions 05, 08, 14 and 20, fixed columns.
#include "time/files/lines.h"

#include <cmath>

namespace time_files {

namespace {

struct Columns {
    std::size_t first, last;
};
struct Layout {
    Columns date[4]; // year, month, day, hour (none: 0)
    Columns mjd, x, y, ut1, dx, dy, errors[3];
};
// format(4(i4),f10.2,2(f12.6),f12.7,2(f12.6),2(f12.6),f12.7,2(f12.6),f12.7,...)
constexpr Layout kVersion20 = {
    {{1, 4}, {5, 8}, {9, 12}, {13, 16}}, {17, 26}, {27, 38}, {39, 50}, {51, 62}, {63, 74}, {75, 86},
    {{123, 134}, {135, 146}, {147, 158}}};
// FORMAT(3(I4),I7,2(F11.6),2(F12.7),2(F11.6),2(F11.6),2(F11.7),2(F12.6))
constexpr Layout kVersion14 = {
    {{1, 4}, {5, 8}, {9, 12}, {0, 0}}, {13, 19}, {20, 30}, {31, 41}, {42, 53}, {66, 76}, {77, 87},
    {{88, 98}, {99, 109}, {110, 120}}};
constexpr std::size_t kLongestOf14 = 175;

constexpr double kLargestOffset = 1.0;    // arcsec
constexpr double kLargestError = 10000.0; //
constexpr double kSentinel = 0.9999;      // arcsec or s: such an error stands for a prediction

std::string_view part(const Line &line, Columns c)
{
    return columns(line, c.first, c.last);
}

bool read_date(const Line &line, const Layout &layout, double *utc, Finding *finding)
{
    long year = 0, month = 0, day = 0, hour = 0;
    if (!date_in(line, part(line, layout.mjd), utc, finding)
        || !whole_in(line, part(line, layout.date[0]), 1900, 2100, &year, finding)
        || !whole_in(line, part(line, layout.date[1]), 1, 12, &month, finding)
        || !whole_in(line, part(line, layout.date[2]), 1, 31, &day, finding)
        || (layout.date[3].last != 0 && !whole_in(line, part(line, layout.date[3]), 0, 23, &hour, finding)))
        return false;
    constexpr double kHalfHour = 0.5 / 24.0;
    const double since_midnight = *utc - std::floor(*utc);
    if (same_date(*utc, year, month, day) && std::fabs(since_midnight - static_cast<double>(hour) / 24.0) < kHalfHour)
        return true;
    *finding = malformed(line, columns(line, layout.date[0].first, layout.mjd.last));
    return false;
}

bool read_values(const Line &line, const Layout &layout, bool offsets, EarthRow *row, Finding *finding)
{
    if (!number_in(line, part(line, layout.x), kLargestPole, &row->pole[0], finding)
        || !number_in(line, part(line, layout.y), kLargestPole, &row->pole[1], finding)
        || !number_in(line, part(line, layout.ut1), kLargestUt1Utc, &row->ut1_utc, finding)
        || !number_in(line, part(line, layout.dx), kLargestOffset, &row->pole[2], finding)
        || !number_in(line, part(line, layout.dy), kLargestOffset, &row->pole[3], finding))
        return false;
    if (!offsets)
        row->pole[2] = row->pole[3] = 0.0;
    for (const Columns &column : layout.errors) {
        double error = 0.0;
        if (!number_in(line, part(line, column), kLargestError, &error, finding))
            return false;
        if (error >= kSentinel)
            row->quality = kPredicted;
    }
    return true;
}

// The line that says which columns follow, else null; the longest line of the older versions tells as well.
const Layout *layout_named_in(std::string_view text)
{
    if (contains(text, "4(i4)") || contains(text, "4(I4)"))
        return &kVersion20;
    return contains(text, "3(i4)") || contains(text, "3(I4)") ? &kVersion14 : nullptr;
}

} // namespace

Finding read_c04(std::string_view bytes, Contents *contents)
{
    RowSink rows(contents);
    Lines lines(bytes);
    const Layout *layout = nullptr;
    bool offsets = true; // dX, dY, not the dPsi, dEps of the 1980 series
    bool in_head = true;
    for (Line line; lines.next(&line);) {
        const std::string_view text = trimmed(line.text);
        const bool comment = !text.empty() && text.front() == '#';
        if (in_head) {
            if (layout == nullptr)
                layout = layout_named_in(text);
            offsets = offsets && !contains(text, "dPsi") && !contains(text, "dpsi");
            // The head ends before the first line that begins with a year.
            long year = 0;
            if (comment || !read_whole(columns(line, 1, 4), &year) || year < 1900)
                continue;
            in_head = false;
            if (layout == nullptr)
                layout = line.text.size() > kLongestOf14 ? &kVersion20 : &kVersion14;
        }
        if (text.empty())
            break;
        if (comment)
            continue;
        // Every column up to the last error that is read, to its end: what is cut is not taken for less.
        if (line.text.size() < layout->errors[2].last)
            return malformed(line, line.text.substr(line.text.size()));
        EarthRow row{};
        row.tai_utc = kUnstated;
        row.line = line.number;
        row.quality = kFinal;
        Finding finding;
        if (!read_date(line, *layout, &row.utc, &finding) || !read_values(line, *layout, offsets, &row, &finding))
            return finding;
        finding = rows.add(row, line, part(line, layout->mjd));
        if (finding)
            return finding;
    }
    return {};
}

} // namespace time_files
