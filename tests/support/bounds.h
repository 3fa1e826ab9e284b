// Ranges of arguments: both ends belong to them, the next doubles do not, NaN does not.
#ifndef KL_TESTS_SUPPORT_BOUNDS_H
#define KL_TESTS_SUPPORT_BOUNDS_H

#include "kl_lib.h"

#include <gtest/gtest.h>

#include <cmath>

// `call` hands an argument to a function and returns its status.
template <class Call>
void expect_range(const char *name, double least, double most, Call call)
{
    EXPECT_NE(call(least), KL_ERR) << name;
    EXPECT_NE(call(most), KL_ERR) << name;
    EXPECT_EQ(call(std::nextafter(least, -INFINITY)), KL_ERR) << name;
    EXPECT_EQ(call(std::nextafter(most, INFINITY)), KL_ERR) << name;
    EXPECT_EQ(call(NAN), KL_ERR) << name;
}

#endif
