// The built-in catalogue: the Bright Star Catalogue, 5th revised edition (D. Hoffleit and W. H. Warren, 1991), to
// magnitude 6.5.
#ifndef KL_SRC_STARS_BRIGHT_STARS_H
#define KL_SRC_STARS_BRIGHT_STARS_H

#include "kl/stars.h"

#include <cstddef>
#include <cstdint>

// In the units in which the catalogue is printed, so that nothing is rounded.
struct BrightStar {
    std::int32_t ra;              // tenths of a second of time, J2000
    std::int32_t dec;             // arcsec
    std::int16_t number;          // HR
    std::int16_t magnitude;       // V, hundredths
    std::int16_t pm_ra, pm_dec;   // mas/yr; that in right ascension times cos(dec)
    std::int16_t parallax;        // mas
    std::int16_t radial_velocity; // km/s
};
static_assert(sizeof(BrightStar) == 20);

constexpr std::size_t kBrightStars = 8404;
extern const BrightStar kBrightStar[kBrightStars];

constexpr double kJ2000 = 0.5; // MJD2000

inline kl_star star_of(const BrightStar &star)
{
    return {star.ra / 2400.0,
            star.dec / 3600.0,
            double(star.pm_ra),
            double(star.pm_dec),
            double(star.parallax),
            double(star.radial_velocity),
            kJ2000,
            star.magnitude / 100.0,
            star.number};
}

#endif
