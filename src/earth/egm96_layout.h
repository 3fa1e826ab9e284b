// Layout of the EGM96 tables in memory and in the file that tools/egm96_tables.cpp writes: four triangular tables,
// a gap up to a cache line, then the packed copy. Shared with that tool.
#ifndef KL_SRC_EARTH_EGM96_LAYOUT_H
#define KL_SRC_EARTH_EGM96_LAYOUT_H

#include <cstddef>

constexpr int kEgm96Degree = 360;
constexpr int kEgm96Count = (kEgm96Degree + 1) * (kEgm96Degree + 2) / 2; // entries of a triangular table
static_assert(kEgm96Count == 65341);

// Degree n, order m in a triangular table.
static constexpr std::size_t egm96_index(long n, long m)
{
    return static_cast<std::size_t>(n * (n + 1) / 2 + m);
}

// The packed copy: blocks of eight orders; in a block a row a degree, from the block's first order to 360; in a row
// eight values of HC, then of HS, CC and CS, each times the factor(n,m) of geoid_kernel.h. Orders above the degree
// hold zero.
constexpr int kEgm96Lanes = 8;
constexpr int kEgm96Blocks = kEgm96Degree / kEgm96Lanes + 1;
constexpr int kEgm96RowLength = 4 * kEgm96Lanes;

// Doubles in front of a block: the rows of the earlier ones, 361 - 8 i of block i.
static constexpr std::size_t egm96_block_start(long block)
{
    return static_cast<std::size_t>((block * (kEgm96Degree + 1) - block * (block - 1) / 2 * kEgm96Lanes)
                                    * kEgm96RowLength);
}
constexpr std::size_t kEgm96PackedCount = egm96_block_start(kEgm96Blocks);

constexpr std::size_t kEgm96TableSize = kEgm96Count * sizeof(double);
constexpr std::size_t kEgm96PackedOffset = (4 * kEgm96TableSize + 63) / 64 * 64;
constexpr std::size_t kEgm96PackedSize = kEgm96PackedCount * sizeof(double);
constexpr std::size_t kEgm96FileSize = kEgm96PackedOffset + kEgm96PackedSize;

#endif
