// The picture of the demo: the geoid, night, and what stands above the Earth.
#ifndef KITLIB_DEMO_MAP_H
#define KITLIB_DEMO_MAP_H

#include "orbkit.hpp"

#include <vector>

// Geodetic places below the Sun and the Moon, every minute of the 24 hours from an instant, both ends included.
struct Day {
    explicit Day(const ORBKIT::Time &start);
    std::vector<kl_geodetic> sun, moon;
};

// False: the file cannot be written.
bool draw_map(const char *file, const ORBKIT::Time &now, const Day &day, const ORBKIT::MeanMotion &orbit,
              const ORBKIT::GroundStation &station);

#endif
