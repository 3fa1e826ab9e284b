// What a call leaves in its vector of errors, and the status that goes with it.
#ifndef KL_TESTS_SUPPORT_CONDITIONS_H
#define KL_TESTS_SUPPORT_CONDITIONS_H

#include "kl_lib.h"

#include <gtest/gtest.h>

#include <climits>

constexpr long kErrorBit = LONG_MIN; // the sign bit
constexpr long kWarningBit = 1L << 30;

constexpr long error_bits(long code)
{
    return kErrorBit | 1L << code;
}

constexpr long warning_bits(long code)
{
    return kWarningBit | 1L << code;
}

constexpr long kNone = -1; // the condition of a row that has none: the vector stays clear

constexpr long kNothing = 0; // the call succeeds
constexpr long kRefused = 1; // it fails with a clear vector: something that has no condition is missing

constexpr long status_with(long bits)
{
    return bits == kNothing ? KL_OK : bits < 0 || bits == kRefused ? KL_ERR : KL_WARN;
}

// Makes the call with a vector and looks at both.
template <typename Call>
void expect_bits(const char *name, long bits, const Call &call)
{
    long ierr = -7;
    EXPECT_EQ(call(&ierr), status_with(bits)) << name;
    EXPECT_EQ(ierr, bits == kRefused ? 0 : bits) << name;
}

// Rows of a table of calls, included in the body of a test: what the call returns, or what it leaves in its vector.
#define GIVES(expected, ...) EXPECT_EQ(__VA_ARGS__, expected) << #__VA_ARGS__;
#define LEAVES(bits, ...) expect_bits(#__VA_ARGS__, bits, [&](long *e) { return __VA_ARGS__; });

#endif
