// The correlation compiled into the library: data/time_correlation.csv, packed when the library is built.
#include "time/files/built_in_layout.h"
#include "time/files/table.h"
#include "time/time_record.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

// clang-format off
__asm__(".pushsection .rodata.time_correlation, \"a\", %progbits\n"
        ".globl kl_packed_time_correlation\n"
        ".hidden kl_packed_time_correlation\n"
        ".type kl_packed_time_correlation, %object\n"
        "kl_packed_time_correlation:\n"
        ".incbin \"" KL_TIME_CORRELATION_FILE "\"\n"
        ".size kl_packed_time_correlation, . - kl_packed_time_correlation\n"
        ".popsection\n");
// clang-format on
extern "C" const unsigned char kl_packed_time_correlation[];

namespace time_files {

namespace {

constexpr double kUt1Unit = 1e7;  // of a second
constexpr double kPoleUnit = 1e6; // of an arcsecond
constexpr double kThousand = 1000.0;

class Reader {
public:
    std::int32_t number()
    {
        std::uint32_t value = 0;
        for (int i = 3; i >= 0; --i)
            value = value << 8 | at_[i];
        at_ += 4;
        return static_cast<std::int32_t>(value);
    }

    // Calls put(i, value) for each value of the next series of n.
    template <typename Put>
    void series(std::size_t n, const Put &put)
    {
        std::int64_t value[built_in::kStart];
        for (std::int64_t &start : value)
            start = number();
        const unsigned char *widths = at_;
        at_ += (n - built_in::kStart + built_in::kBlock - 1) / built_in::kBlock;
        const auto size = static_cast<std::size_t>(number());
        const unsigned char *bits = at_;
        at_ += size;
        std::int64_t last = value[1], slope = value[1] - value[0];
        put(std::size_t{0}, value[0]);
        put(std::size_t{1}, value[1]);
        std::size_t bit = 0;
        for (std::size_t first = built_in::kStart; first < n; first += built_in::kBlock) {
            const unsigned width = *widths++;
            const std::uint64_t mask = (std::uint64_t{1} << width) - 1;
            const std::size_t end = std::min(first + built_in::kBlock, n);
            for (std::size_t i = first; i < end; ++i, bit += width) {
                const std::uint64_t folded = (eight_bytes(bits + bit / 8) >> bit % 8) & mask;
                slope += static_cast<std::int64_t>(folded >> 1) ^ -static_cast<std::int64_t>(folded & 1);
                last += slope;
                put(i, last);
            }
        }
    }

private:
    static std::uint64_t eight_bytes(const unsigned char *from)
    {
        std::uint64_t value = 0;
        std::memcpy(&value, from, sizeof value);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
        value = __builtin_bswap64(value);
#endif
        return value;
    }

    const unsigned char *at_ = kl_packed_time_correlation;
};

struct Head {
    std::int32_t first, days, final_days, observed_days;
};

bool read_head(Reader *reader, Head *head, Contents *contents)
{
    head->first = reader->number();
    head->days = reader->number();
    head->final_days = reader->number();
    head->observed_days = reader->number();
    contents->leap_expiry = reader->number() - kMjdOfDayZero;
    const std::int32_t leaps = reader->number();
    for (std::int32_t i = 0; i < leaps; ++i) {
        const double utc = reader->number() - kMjdOfDayZero;
        const double tai_utc = reader->number();
        if (!contents->leap_steps.add({utc, tai_utc, 0}))
            return false;
    }
    return true;
}

// Days counted from the first.
struct Days {
    std::size_t first, count;
};

// From the last at or before the start of the window to the first at or after its stop.
Days days_of(const Window &window, const Head &head)
{
    const double first = head.first - kMjdOfDayZero, last = first + head.days - 1;
    if (!window.given)
        return {0, static_cast<std::size_t>(head.days)};
    if (window.start > last || window.stop < first)
        return {0, 0};
    const double from = std::fmax(std::floor(window.start), first), to = std::fmin(std::ceil(window.stop), last);
    return {static_cast<std::size_t>(from - first), static_cast<std::size_t>(to - from) + 1};
}

void read_rows(const Head &head, const Days &taken, const Buffer<LeapStep> &leaps, Reader *reader,
               const Correlation &out)
{
    const auto n = static_cast<std::size_t>(head.days);
    std::size_t leap = 0;
    reader->series(n, [&](std::size_t i, std::int64_t ut1_tai) {
        const auto day = static_cast<std::int32_t>(i);
        const double utc = head.first + day - kMjdOfDayZero;
        while (leap + 1 < leaps.size() && leaps[leap + 1].utc <= utc)
            ++leap;
        const std::size_t row = i - taken.first;
        if (row >= taken.count) // also before the first
            return;
        const double tai_utc = leaps[leap].tai_utc;
        const auto whole = static_cast<std::int64_t>(kUt1Unit) * static_cast<std::int64_t>(tai_utc);
        put_row(utc, tai_utc, static_cast<double>(ut1_tai + whole) / kUt1Unit, &out.rows[row]);
        const long quality = day < head.final_days ? kFinal : day < head.observed_days ? kRapid : kPredicted;
        out.row_notes[row][0] = kBuiltInFile * kNoteUnit + quality;
        out.row_notes[row][1] = 0;
    });
    for (int k = 0; k < 4; ++k)
        reader->series(n, [&](std::size_t i, std::int64_t value) {
            // dX, dY are printed in milliarcseconds, which is how a file would be read.
            const std::size_t row = i - taken.first;
            if (row < taken.count)
                out.row_pole[row][k] =
                    k < 2 ? static_cast<double>(value) / kPoleUnit : static_cast<double>(value) / kThousand / kThousand;
        });
}

} // namespace

bool read_built_in_leap_seconds(Contents *contents)
{
    Reader reader;
    Head head;
    return read_head(&reader, &head, contents);
}

TableFault build_built_in(const Request &request, Table *table)
{
    Reader reader;
    Head head;
    Contents list;
    if (!request.no_extrapolation)
        return TableFault::no_formula;
    if (!read_head(&reader, &head, &list))
        return TableFault::no_memory;
    const Days taken = days_of(request.window, head);
    table->n_skipped = head.days - static_cast<long>(taken.count);
    if (taken.count == 0)
        return TableFault::no_rows;
    Correlation &out = table->correlation;
    out.model = KL_TIME_MODEL_MERGED;
    out.no_extrapolation = 1;
    if (!allocate_rows(taken.count, &out))
        return TableFault::no_memory;
    read_rows(head, taken, list.leap_steps, &reader, out);
    const long first = head.first + static_cast<long>(taken.first), end = first + out.n_rows; // MJD
    const auto up_to = [&](long days) { return std::clamp(head.first + days, first, end); };
    table->n_predicted = end - up_to(head.observed_days);
    table->last_final =
        up_to(head.final_days) > first ? static_cast<double>(up_to(head.final_days)) - 1.0 - kMjdOfDayZero : 0.0;
    table->leap_expiry = list.leap_expiry;
    const Window &window = request.window;
    table->uncovered = window.given && (window.start < out.rows[0].utc || window.stop > out.rows[out.n_rows - 1].utc);
    table->expired = window.given && list.leap_expiry < window.stop;
    return complete(&out) ? TableFault::none : TableFault::no_leap_second;
}

} // namespace time_files
