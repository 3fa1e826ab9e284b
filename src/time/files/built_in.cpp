// The correlation compiled into the library: data/time_correlation.csv, packed when the library is built.
#include "time/files/built_in_layout.h"
#include "time/files/table.h"

#include <algorithm>
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
    contents->leap_expiry = reader->number() - kMjd2000;
    const std::int32_t leaps = reader->number();
    for (std::int32_t i = 0; i < leaps; ++i) {
        const double utc = reader->number() - kMjd2000;
        const double tai_utc = reader->number();
        if (!contents->leap_steps.add({utc, tai_utc, 0}))
            return false;
    }
    return true;
}

} // namespace

bool read_built_in_leap_seconds(Contents *contents)
{
    Reader reader;
    Head head;
    return read_head(&reader, &head, contents);
}

bool read_built_in(Contents *contents)
{
    Reader reader;
    Head head;
    if (!read_head(&reader, &head, contents))
        return false;
    const auto n = static_cast<std::size_t>(head.days);
    Buffer<EarthRow> &rows = contents->rows;
    if (!rows.reserve(n))
        return false;
    rows.lengthen(n);
    std::size_t leap = 0;
    const Buffer<LeapStep> &leaps = contents->leap_steps;
    reader.series(n, [&](std::size_t i, std::int64_t ut1_tai) {
        EarthRow &row = rows[i];
        const auto day = static_cast<std::int32_t>(i);
        row.utc = head.first + day - kMjd2000;
        while (leap + 1 < leaps.size() && leaps[leap + 1].utc <= row.utc)
            ++leap;
        row.tai_utc = leaps[leap].tai_utc;
        row.ut1_utc =
            static_cast<double>(ut1_tai + static_cast<std::int64_t>(kUt1Unit) * static_cast<long>(row.tai_utc))
            / kUt1Unit;
        row.quality = day < head.final_days ? kFinal : day < head.observed_days ? kRapid : kPredicted;
        row.file = kBuiltInFile;
        row.line = 0;
    });
    for (int k = 0; k < 2; ++k)
        reader.series(
            n, [&](std::size_t i, std::int64_t value) { rows[i].pole[k] = static_cast<double>(value) / kPoleUnit; });
    for (int k = 2; k < 4; ++k) // printed in milliarcseconds, which is how a file would be read
        reader.series(n, [&](std::size_t i, std::int64_t value) {
            rows[i].pole[k] = static_cast<double>(value) / kThousand / kThousand;
        });
    return true;
}

} // namespace time_files
