// Numbers that every folder uses.
#ifndef KL_SRC_NUMBERS_CONSTANTS_H
#define KL_SRC_NUMBERS_CONSTANTS_H

constexpr double KL_PI = 3.14159265358979323846;
constexpr double KL_TWO_PI = 6.283185307179586476925287;
constexpr double KL_RAD_PER_DEG = 0.017453292519943295;
constexpr double KL_DEG_PER_RAD = 57.29577951308232;
constexpr double KL_RAD_PER_ARCSEC = KL_RAD_PER_DEG / 3600.0;
constexpr double KL_RAD_PER_MICROARCSEC = KL_RAD_PER_ARCSEC * 1e-6;
constexpr double KL_RAD_PER_MAS = KL_RAD_PER_DEG / 3.6e6;

constexpr double KL_SECONDS_PER_DAY = 86400.0;
constexpr double KL_DAYS_PER_YEAR = 365.25;     // Julian
constexpr double KL_DAYS_PER_CENTURY = 36525.0; // Julian
constexpr double KL_SECONDS_PER_CENTURY = KL_DAYS_PER_CENTURY * KL_SECONDS_PER_DAY;
constexpr double KL_TT_MINUS_TAI = 32.184;                    // s, IAU 1991 resolution A4
constexpr double KL_SPEED_OF_LIGHT = 299792458.0;             // m/s, the definition of the metre
constexpr double KL_EARTH_GM = 3.9860044e14;                  // m3/s2, WGS84 in eight digits
constexpr double KL_EARTH_GRAVITY_RADIUS = 6378136.0;         // m, of the gravity terms
constexpr double KL_EARTH_EQUATOR = 6378137.0;                // m, semi-major axis of WGS84
constexpr double KL_EARTH_FLATTENING = 0.0033528106647474805; // of WGS84

// A vector shorter than this, squared, counts as null.
constexpr double KL_NULL_LENGTH_SQUARED = 1e-20;

#endif
