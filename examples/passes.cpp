// A day of passes of a satellite over a station: when it rises, culminates and sets, to a millisecond. In C++; passes.c
// is the same in C.
#include "orbkit.hpp"

#include <cmath>
#include <cstdio>
#include <vector>

using ORBKIT::LibFunc;

namespace {

constexpr double kDay = 86400.0;

struct Sky {
    ORBKIT::ModelId model;
    const ORBKIT::TimeId &time_id;
    kl_geodetic station;
    kl_kepler mean; // KL_TOD, at the epoch
    double epoch;   // UTC, MJD2000

    // The satellite seen from the station: mean elements that drift as the Earth's oblateness makes them.
    kl_topocentric look(double time) const
    {
        const double gm = 3.9860044e14, j2 = 0.001082626, radius = 6378136.0, degree = std::acos(-1.0) / 180.0;
        const double seconds = (time - epoch) * kDay;
        const double n = std::sqrt(gm / std::pow(mean.semi_major_axis, 3)) / degree; // deg/s
        const double c = std::cos(mean.inclination * degree);
        const double p = mean.semi_major_axis * (1.0 - mean.eccentricity * mean.eccentricity);
        const double k = 1.5 * j2 * (radius / p) * (radius / p) * n;
        kl_kepler now = mean;
        now.raan -= k * c * seconds;
        now.arg_perigee += 0.5 * k * (5.0 * c * c - 1.0) * seconds;
        now.mean_anomaly +=
            (n + 0.5 * k * std::sqrt(1.0 - mean.eccentricity * mean.eccentricity) * (3.0 * c * c - 1.0)) * seconds;
        const ORBKIT::BodyState inertial = LibFunc::keplToCart(model, KL_KEPLER_MEAN, now);
        const ORBKIT::State fixed = LibFunc::changeCartCs(model, time_id, KL_CALC_POS_VEL, KL_TOD, KL_EF, KL_TIME_UTC,
                                                          time, {inertial.pos, inertial.vel, {}});
        return LibFunc::efToTopocentric(model, KL_CALC_POS_VEL, station, {fixed.pos, fixed.vel});
    }

    void print(const char *what, double time, const char *end) const
    {
        const long ms = std::lround((time - epoch) * kDay * 1000.0);
        std::printf("%s %02ld:%02ld:%02ld.%03ld %5.1f deg%s", what, ms / 3600000, ms / 60000 % 60, ms / 1000 % 60,
                    ms % 1000, look(time).azimuth, end);
    }
};

// Crossings of a function of a Sky and a time.
template <double kl_topocentric::*Member>
std::vector<kl_crossing> crossings(Sky &sky, double start, double stop)
{
    const kl_crossing_function f = [](void *context, const long *n, const double *times, double *values) {
        try {
            for (long i = 0; i < *n; ++i)
                values[i] = static_cast<Sky *>(context)->look(times[i]).*Member;
            return long{KL_OK};
        } catch (const KitError &) {
            return long{KL_ERR};
        }
    };
    const double step = 60.0 / kDay, tolerance = 1e-4 / kDay;
    const long room = 40;
    long n = 0;
    std::vector<kl_crossing> found(room);
    if (kl_find_crossings(f, &sky, &start, &stop, &step, &tolerance, &room, &n, found.data(), nullptr) != KL_OK)
        n = 0;
    found.resize(static_cast<std::size_t>(n));
    return found;
}

} // namespace

int main()
{
    // 2026-06-21: TAI-UTC is 37 s, GPS-UTC 18 s, UT1-UTC less than 0.1 s.
    const ORBKIT::TimeId time_id({9668.0 + 37 / kDay, 9668.0, 9668.0, 9668.0 + 18 / kDay});
    Sky sky = {{}, time_id, {48.0, 11.0, 600.0, 0.0, 0.0, 0.0}, {7167000.0, 0.001, 98.6, 120.0, 90.0, 10.0}, 9668.0};
    const std::vector<kl_crossing> events = crossings<&kl_topocentric::elevation>(sky, sky.epoch, 9669.0);
    for (std::size_t i = 0; i + 1 < events.size(); i += 2) {
        // The rate of the elevation is above 0 at the rise, and falls through it at the top.
        const double top =
            crossings<&kl_topocentric::elevation_rate>(sky, events[i].time, events[i + 1].time).back().time;
        sky.print("rise", events[i].time, "  ");
        sky.print("top", top, "");
        std::printf(" %4.1f high  ", sky.look(top).elevation);
        sky.print("set", events[i + 1].time, "\n");
    }
    return 0;
}
