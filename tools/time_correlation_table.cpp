// Packs data/time_correlation.csv into the correlation that is compiled into the library.
//
//   time_correlation_table FILE.csv FILE.bin
//
// src/time/files/built_in_layout.h describes the result. Whole numbers only: the same bytes each run.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "time/files/built_in_layout.h"

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::int64_t kSecond = 10000000; // of UT1, in its unit

struct Day {
    long mjd, quality;
    std::int64_t value[built_in::kSeries];
};
struct Leap {
    long mjd, tai_utc;
};
struct Correlation {
    std::vector<Day> days;
    std::vector<Leap> leaps;
    long expires = 0;
};

[[noreturn]] void refuse(const std::string &line)
{
    throw std::runtime_error("not a row of the correlation: " + line);
}

Correlation read(const char *path)
{
    Correlation all;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        Leap leap{};
        Day day{};
        long long value[built_in::kSeries] = {};
        if (line.empty() || line[0] == '#')
            continue;
        if (std::sscanf(line.c_str(), "leap,%ld,%ld", &leap.mjd, &leap.tai_utc) == 2) {
            all.leaps.push_back(leap);
        } else if (std::sscanf(line.c_str(), "%ld,%ld,%lld,%lld,%lld,%lld,%lld", &day.mjd, &day.quality, &value[0],
                               &value[1], &value[2], &value[3], &value[4])
                   == 7) {
            std::copy(std::begin(value), std::end(value), std::begin(day.value));
            if (!all.days.empty() && (day.mjd != all.days.back().mjd + 1 || day.quality < all.days.back().quality))
                refuse(line);
            all.days.push_back(day);
        } else if (std::sscanf(line.c_str(), "expires,%ld", &all.expires) != 1) {
            refuse(line);
        }
    }
    if (all.days.size() <= built_in::kStart || all.leaps.empty())
        refuse("the end");
    return all;
}

void put(std::int64_t value, Bytes *bytes)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes->push_back(static_cast<unsigned char>(value >> shift));
}

class Bits {
public:
    void add(std::uint64_t value, unsigned width)
    {
        for (unsigned i = 0; i < width; ++i, ++count_) {
            if (count_ % 8 == 0)
                bytes_.push_back(0);
            bytes_.back() = static_cast<unsigned char>(bytes_.back() | (value >> i & 1) << count_ % 8);
        }
    }
    const Bytes &bytes() const { return bytes_; }

private:
    Bytes bytes_;
    std::size_t count_ = 0;
};

void put_series(const std::vector<std::int64_t> &series, Bytes *bytes)
{
    Bits bits;
    Bytes widths;
    std::vector<std::uint64_t> folded;
    for (std::size_t i = built_in::kStart; i < series.size(); ++i) {
        const std::int64_t d = series[i] - 2 * series[i - 1] + series[i - 2];
        folded.push_back(static_cast<std::uint64_t>(d >= 0 ? 2 * d : -2 * d - 1));
    }
    for (std::size_t first = 0; first < folded.size(); first += built_in::kBlock) {
        const std::size_t end = std::min(first + built_in::kBlock, folded.size());
        unsigned width = 0;
        for (std::size_t i = first; i < end; ++i)
            while (folded[i] >> width != 0)
                ++width;
        if (width > 32) // the reader takes a difference out of eight bytes
            throw std::runtime_error("a second difference is too large");
        widths.push_back(static_cast<unsigned char>(width));
        for (std::size_t i = first; i < end; ++i)
            bits.add(folded[i], width);
    }
    for (std::size_t i = 0; i < built_in::kStart; ++i)
        put(series[i], bytes);
    bytes->insert(bytes->end(), widths.begin(), widths.end());
    put(static_cast<std::int64_t>(bits.bytes().size()), bytes);
    bytes->insert(bytes->end(), bits.bytes().begin(), bits.bytes().end());
}

long days_up_to(const Correlation &all, long quality)
{
    long count = 0;
    for (const Day &day : all.days)
        count += day.quality <= quality ? 1 : 0;
    return count;
}

Bytes packed(const Correlation &all)
{
    constexpr long kFinal = 0, kObserved = 1;
    Bytes bytes;
    for (const long number : {all.days[0].mjd, static_cast<long>(all.days.size()), days_up_to(all, kFinal),
                              days_up_to(all, kObserved), all.expires, static_cast<long>(all.leaps.size())})
        put(number, &bytes);
    for (const Leap &leap : all.leaps) {
        put(leap.mjd, &bytes);
        put(leap.tai_utc, &bytes);
    }
    for (std::size_t k = 0; k < built_in::kSeries; ++k) {
        std::vector<std::int64_t> series;
        std::size_t leap = 0;
        for (const Day &day : all.days) {
            while (leap + 1 < all.leaps.size() && all.leaps[leap + 1].mjd <= day.mjd)
                ++leap;
            series.push_back(day.value[k] - (k == 0 ? kSecond * all.leaps[leap].tai_utc : 0)); // UT1-TAI is smooth
        }
        put_series(series, &bytes);
    }
    bytes.insert(bytes.end(), built_in::kPadding, 0);
    return bytes;
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc != 3)
        throw std::runtime_error("usage: time_correlation_table FILE.csv FILE.bin");
    const Bytes bytes = packed(read(argv[1]));
    if (bytes.size() > built_in::kLargest)
        throw std::runtime_error("the packed correlation has " + std::to_string(bytes.size()) + " bytes");
    std::ofstream file(argv[2], std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return file.flush() ? 0 : 1;
} catch (const std::exception &problem) {
    std::cerr << problem.what() << '\n';
    return 1;
}
