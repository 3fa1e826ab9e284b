// The packed correlation that tools/time_correlation_table.cpp writes and built_in.cpp reads.
//
// Numbers of 4 bytes, least byte first: the first MJD, the number of days, of final days and of days that are not
// predicted, the MJD of the expiry, the number of leap seconds, and of each its MJD and TAI-UTC. Then the five series
// UT1-TAI in 1e-7 s, x, y, dX, dY in 1e-6 arcsec, each:
//   its first kStart values (4 bytes, two's complement), one byte a block of kBlock second differences: their bits,
//   4 bytes: the size of the bits in bytes, and the bits, least first: the differences d in their order, as 2 d or,
//   below zero, -2 d - 1.
// kPadding zero bytes end it, so that a reader may load eight bytes anywhere.
#ifndef KL_SRC_TIME_FILES_BUILT_IN_LAYOUT_H
#define KL_SRC_TIME_FILES_BUILT_IN_LAYOUT_H

#include <cstddef>

namespace built_in {

constexpr std::size_t kSeries = 5;
constexpr std::size_t kStart = 2;
constexpr std::size_t kBlock = 16;
constexpr std::size_t kPadding = 8;
constexpr std::size_t kLargest = 130000; // bytes

} // namespace built_in

#endif
