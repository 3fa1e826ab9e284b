// Passes of a satellite over a station.
#ifndef KITLIB_PASSES_H
#define KITLIB_PASSES_H

#include "questions.h"

namespace kitlib {

struct PassRequest {
    std::string epoch, start;                 // start: the epoch where it is empty
    double hours = 24.0, elevation_deg = 0.0; // length of the search, and what a satellite must rise above
};

// Scale: of epoch, start and the answers. Values: latitude, longitude, height of the station, then mean elements a, e,
// inclination, raan, perigee, anomaly of the true equator of date. A pass a line. An exit status.
int show_passes(const Context &context, const std::vector<std::string> &values, long scale, const PassRequest &request,
                bool json);

} // namespace kitlib

#endif
