// Tolerances of the tests: unit and reason of each.
#ifndef KL_TESTS_SUPPORT_TOLERANCES_H
#define KL_TESTS_SUPPORT_TOLERANCES_H

constexpr double kMicrosecond = 1.0 / 8.64e10; // days
constexpr double kSpacing2099 = 7.3e-12;       // days: doubles lie no closer near 36524
constexpr double kRounding = 4e-16;            // relative: two roundings of a double
constexpr double kGeoidRounding = 1e-11;       // m: ten times the worst that doubles lose in 65341 terms

#endif
