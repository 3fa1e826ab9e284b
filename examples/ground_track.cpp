// A day of a satellite's ground track as a picture: where it flies by day and by night, when a station sees it, and
// where it is night at the highest pass. Writes SVG, which every browser shows. In C++; ground_track.c is the same in
// C.
//
//     ground_track > ground_track.svg
#include "orbkit.hpp"

#include <cmath>
#include <cstdio>
#include <vector>

using ORBKIT::LibFunc;

namespace {

constexpr double kDay = 86400.0;
constexpr std::size_t kMinutes = 1440;

struct Instant {
    kl_geodetic below;       // the point on the ground
    kl_topocentric seen;     // from the station
    double sun_below;        // elevation of the Sun there, deg
    double sun_lat, sun_lon; // where the Sun stands overhead, deg
};

// Mean elements that drift as the Earth's oblateness makes them, KL_TOD.
kl_kepler drifted(kl_kepler x, double seconds)
{
    const double gm = 3.9860044e14, j2 = 0.001082626, radius = 6378136.0, degree = std::acos(-1.0) / 180.0;
    const double n = std::sqrt(gm / std::pow(x.semi_major_axis, 3)) / degree; // deg/s
    const double c = std::cos(x.inclination * degree);
    const double p = x.semi_major_axis * (1.0 - x.eccentricity * x.eccentricity);
    const double k = 1.5 * j2 * (radius / p) * (radius / p) * n;
    x.raan -= k * c * seconds;
    x.arg_perigee += 0.5 * k * (5.0 * c * c - 1.0) * seconds;
    x.mean_anomaly += (n + 0.5 * k * std::sqrt(1.0 - x.eccentricity * x.eccentricity) * (3.0 * c * c - 1.0)) * seconds;
    return x;
}

std::vector<Instant> a_day(const ORBKIT::TimeId &time_id, const kl_kepler &mean, const kl_geodetic &station,
                           double epoch)
{
    const ORBKIT::ModelId model;
    std::vector<Instant> out(kMinutes + 1);
    for (std::size_t i = 0; i <= kMinutes; ++i) {
        const double time = epoch + static_cast<double>(i) * 60.0 / kDay;
        const ORBKIT::BodyState inertial =
            LibFunc::keplToCart(model, KL_KEPLER_MEAN, drifted(mean, (time - epoch) * kDay));
        const ORBKIT::State fixed = LibFunc::changeCartCs(model, time_id, KL_CALC_POS, KL_TOD, KL_EF, KL_TIME_UTC, time,
                                                          {inertial.pos, {}, {}});
        const ORBKIT::BodyState sun = LibFunc::sun(model, time_id, KL_TIME_UTC, time);
        const kl_radec overhead = LibFunc::cartToRadec(model, KL_CALC_POS, sun); // Earth-fixed: ra is the longitude
        kl_geodetic ground = LibFunc::cartToGeod(model, KL_CALC_POS, {fixed.pos, {}});
        out[i].below = ground;
        out[i].seen = LibFunc::efToTopocentric(model, KL_CALC_POS, station, {fixed.pos, {}});
        ground.height = 0.0;
        out[i].sun_below = LibFunc::efToTopocentric(model, KL_CALC_POS, ground, sun).elevation;
        out[i].sun_lat = overhead.dec;
        out[i].sun_lon = overhead.ra;
    }
    return out;
}

// Picture coordinates: three to a degree.
double across(double lon)
{
    const double east = lon > 180.0 ? lon - 360.0 : lon;
    return 30.0 + 3.0 * (east + 180.0);
}

double down(double lat)
{
    return 40.0 + 3.0 * (90.0 - lat);
}

enum Kind { kByDay, kByNight, kSeen };

Kind kind_of(const Instant &x)
{
    return x.seen.elevation > 0.0 ? kSeen : x.sun_below > 0.0 ? kByDay : kByNight;
}

void draw_frame()
{
    std::printf("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1140 640\" font-family=\"sans-serif\" "
                "font-size=\"13\">\n"
                "<rect width=\"1140\" height=\"640\" fill=\"#ffffff\"/>\n"
                "<clipPath id=\"map\"><rect x=\"30\" y=\"40\" width=\"1080\" height=\"540\"/></clipPath>\n"
                "<rect x=\"30\" y=\"40\" width=\"1080\" height=\"540\" fill=\"#eef4fb\"/>\n");
    for (int lon = -150; lon <= 150; lon += 30)
        std::printf("<path d=\"M%.0f 40V580\" stroke=\"#c4d0dc\"/><text x=\"%.0f\" y=\"596\" "
                    "text-anchor=\"middle\">%d</text>\n",
                    across(lon), across(lon), lon);
    for (int lat = -60; lat <= 60; lat += 30)
        std::printf(
            "<path d=\"M30 %.0fH1110\" stroke=\"#c4d0dc\"/><text x=\"26\" y=\"%.0f\" text-anchor=\"end\">%d</text>\n",
            down(lat), down(lat) + 4.0, lat);
}

// The side of the Earth that the Sun does not light.
void draw_night(const Instant &x)
{
    const double degree = std::acos(-1.0) / 180.0;
    std::printf("<path d=\"M");
    for (int lon = -180; lon <= 180; lon += 3) {
        const double lat = std::atan(-std::cos((lon - x.sun_lon) * degree) / std::tan(x.sun_lat * degree)) / degree;
        std::printf("%.1f %.1fL", 30.0 + 3.0 * (lon + 180.0), down(lat));
    }
    const double dark_pole = x.sun_lat > 0.0 ? 580.0 : 40.0;
    std::printf("1110 %.0fL30 %.0fZ\" fill=\"#1d2b53\" fill-opacity=\"0.25\"/>\n", dark_pole, dark_pole);
}

// Pieces of one kind; what leaves the map on one side comes in on the other.
void draw_track(const std::vector<Instant> &x)
{
    constexpr const char *kStyle[] = {"#e0861a\" stroke-width=\"1.6", "#27407a\" stroke-width=\"1.6",
                                      "#c2185b\" stroke-width=\"4"};
    for (std::size_t i = 0; i < kMinutes; ++i) {
        const double x0 = across(x[i].below.longitude), y0 = down(x[i].below.latitude);
        const double x1 = across(x[i + 1].below.longitude), y1 = down(x[i + 1].below.latitude);
        const double over = x1 - x0 > 540.0 ? -1080.0 : x1 - x0 < -540.0 ? 1080.0 : 0.0;
        const Kind kind = kind_of(x[i]);
        if (i == 0 || kind != kind_of(x[i - 1]))
            std::printf("<path clip-path=\"url(#map)\" fill=\"none\" stroke=\"%s\" d=\"M%.1f %.1f", kStyle[kind], x0,
                        y0);
        std::printf("L%.1f %.1f", x1 + over, y1);
        if (over != 0.0)
            std::printf("M%.1f %.1fL%.1f %.1f", x0 - over, y0, x1, y1);
        if (i + 1 == kMinutes || kind_of(x[i + 1]) != kind)
            std::printf("\"/>\n");
    }
}

// The minute in which each pass begins.
void draw_rises(const std::vector<Instant> &x)
{
    for (std::size_t i = 1; i < kMinutes; ++i)
        if (x[i].seen.elevation > 0.0 && x[i - 1].seen.elevation <= 0.0)
            std::printf("<text x=\"%.1f\" y=\"%.1f\">%02d:%02d</text>\n", across(x[i].below.longitude) + 6.0,
                        down(x[i].below.latitude) + 4.0, static_cast<int>(i / 60), static_cast<int>(i % 60));
}

} // namespace

int main()
{
    // 2026-06-21: TAI-UTC is 37 s, GPS-UTC 18 s, UT1-UTC less than 0.1 s.
    const ORBKIT::TimeId time_id({9668.0 + 37 / kDay, 9668.0, 9668.0, 9668.0 + 18 / kDay});
    const kl_geodetic station = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};
    const std::vector<Instant> x = a_day(time_id, {7167000.0, 0.001, 98.6, 120.0, 90.0, 10.0}, station, 9668.0);
    std::size_t highest = 0;
    for (std::size_t i = 1; i < kMinutes; ++i)
        if (x[i].seen.elevation > x[highest].seen.elevation)
            highest = i;

    draw_frame();
    draw_night(x[highest]);
    draw_track(x);
    draw_rises(x);
    std::printf("<circle cx=\"%.1f\" cy=\"%.1f\" r=\"5\" fill=\"#000000\"/>\n", across(station.longitude),
                down(station.latitude));
    std::printf(
        "<text x=\"30\" y=\"26\" font-size=\"16\">Ground track of 2026-06-21: <tspan fill=\"#e0861a\">by day</tspan>, "
        "<tspan fill=\"#27407a\">by night</tspan>, <tspan fill=\"#c2185b\">seen from the station</tspan>, from (UTC); "
        "dark: night at %02d:%02d</text>\n</svg>\n",
        static_cast<int>(highest / 60), static_cast<int>(highest % 60));
    return 0;
}
