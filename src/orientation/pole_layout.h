// The table of the celestial pole: nodes at 0h TT, a day apart. Written by tools/pole_table.cpp when the library is
// built.
#ifndef KL_SRC_ORIENTATION_POLE_LAYOUT_H
#define KL_SRC_ORIENTATION_POLE_LAYOUT_H

constexpr long kPoleFirstDay = -18274; // 1949-12-20
constexpr long kPoleLastDay = 36536;   // 2100-01-12
constexpr long kPoleNodes = kPoleLastDay - kPoleFirstDay + 1;
constexpr double kPoleUnit = 0.1; // microarcseconds a count, of X, Y and s + XY/2

// The file: X and Y of each node side by side as 32-bit counts, s + XY/2 as 16-bit counts, each without its polynomial.
constexpr long kPoleXyOffset = 0;
constexpr long kPoleSOffset = 8 * kPoleNodes;
constexpr long kPoleFileSize = 10 * kPoleNodes;

// Polynomials in t, Julian centuries of TT from J2000.0; microarcseconds.
// Source: IERS Conventions (2010), tables 5.2a, 5.2b, 5.2d.
constexpr double kPoleXPolynomial[6] = {-16617.0, 2004191898.0, -429782.9, -198618.34, 7.578, 5.9285};
constexpr double kPoleYPolynomial[6] = {-6951.0, -25896.0, -22407274.7, 1900.59, 1112.526, 0.1358};
constexpr double kPoleSPolynomial[6] = {94.0, 3808.65, -122.68, -72574.11, 27.98, 15.62};

#endif
