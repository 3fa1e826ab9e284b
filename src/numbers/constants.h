// Numbers that every folder uses.
#ifndef KL_SRC_NUMBERS_CONSTANTS_H
#define KL_SRC_NUMBERS_CONSTANTS_H

constexpr double KL_PI = 3.14159265358979323846;
constexpr double KL_TWO_PI = 6.283185307179586476925287;
constexpr double KL_RAD_PER_DEG = 0.017453292519943295;
constexpr double KL_DEG_PER_RAD = 57.29577951308232;

// A vector shorter than this, squared, counts as null.
constexpr double KL_NULL_LENGTH_SQUARED = 1e-20;

#endif
