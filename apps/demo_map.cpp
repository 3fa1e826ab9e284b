#include "demo_map.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

using namespace ORBKIT;

namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr double kScale = 3.0; // points a degree
constexpr std::size_t kMinutes = 1441;

double map_x(double longitude)
{
    return kScale * (longitude > 180.0 ? longitude - 180.0 : longitude + 180.0);
}

double map_y(double latitude)
{
    return kScale * (90.0 - latitude);
}

// A line over the map, interrupted where it goes around the edge.
void draw_line(std::FILE *out, const char *style, const std::vector<kl_geodetic> &places)
{
    std::fprintf(out, "<path fill=\"none\" %s d=\"", style);
    double before = -1e9;
    for (const kl_geodetic &place : places) {
        const double x = map_x(place.longitude);
        std::fprintf(out, "%c%.1f %.1f", std::fabs(x - before) > 180.0 * kScale ? 'M' : 'L', x, map_y(place.latitude));
        before = x;
    }
    std::fputs("\"/>\n", out);
}

void draw_point(std::FILE *out, const kl_geodetic &place, double radius, const char *colour, const char *name)
{
    const double x = map_x(place.longitude), y = map_y(place.latitude);
    const bool right = x > 300.0 * kScale;
    std::fprintf(out,
                 "<circle cx=\"%.1f\" cy=\"%.1f\" r=\"%.1f\" fill=\"%s\" stroke=\"#222\"/>"
                 "<text x=\"%.1f\" y=\"%.1f\"%s>%s</text>\n",
                 x, y, radius, colour, right ? x - radius - 5.0 : x + radius + 5.0, y + 4.0,
                 right ? " text-anchor=\"end\"" : "", name);
}

// Undulation in cells of two degrees, neighbours of a colour joined.
void draw_geoid(std::FILE *out)
{
    constexpr int kStep = 2, kRows = 180 / kStep, kColumns = 360 / kStep, kColours = 12;
    constexpr double kLowest = -107.0, kHighest = 86.0; // m
    static const char *const kPalette[kColours] = {"#2b3f7e", "#35589b", "#4474b4", "#5f92c6", "#83b0d6", "#abcde4",
                                                   "#cfe2ea", "#e8e6d6", "#ecd2a4", "#e3b376", "#d08d55", "#b5643f"};
    std::vector<double> lat(kRows), lon(kColumns);
    for (int i = 0; i < kRows; ++i)
        lat[static_cast<std::size_t>(i)] = 90.0 - kStep * (i + 0.5);
    for (int j = 0; j < kColumns; ++j)
        lon[static_cast<std::size_t>(j)] = std::fmod(180.0 + kStep * (j + 0.5), 360.0);
    const std::vector<double> heights = LibFunc::geoidGrid(ModelId(), lat, lon);
    const auto colour = [&](int i, int j) {
        const double height = heights[static_cast<std::size_t>(i * kColumns + j)];
        return std::clamp(static_cast<int>(kColours * (height - kLowest) / (kHighest - kLowest)), 0, kColours - 1);
    };
    for (int c = 0; c < kColours; ++c) {
        std::fprintf(out, "<path fill=\"%s\" d=\"", kPalette[c]);
        for (int i = 0; i < kRows; ++i) {
            for (int j = 0; j < kColumns;) {
                int end = j;
                while (end < kColumns && colour(i, end) == c)
                    ++end;
                if (end > j)
                    std::fprintf(out, "M%g %gh%gv%gh%gz", kScale * kStep * j, kScale * kStep * i,
                                 kScale * kStep * (end - j), kScale * kStep, -kScale * kStep * (end - j));
                j = std::max(end, j + 1);
            }
        }
        std::fputs("\"/>\n", out);
    }
}

// Where the Sun's centre is below the horizon of a sphere.
void draw_night(std::FILE *out, const kl_geodetic &sun)
{
    std::fputs("<path fill=\"#101030\" fill-opacity=\"0.45\" d=\"", out);
    const double tangent = std::tan(sun.latitude * kDegree);
    for (int longitude = -180; longitude <= 180; longitude += 2) {
        const double latitude = std::atan2(-std::cos((longitude - sun.longitude) * kDegree), tangent) / kDegree;
        const double edge = latitude > 90.0 ? latitude - 180.0 : latitude < -90.0 ? latitude + 180.0 : latitude;
        std::fprintf(out, "%c%.1f %.1f", longitude == -180 ? 'M' : 'L', kScale * (longitude + 180.0), map_y(edge));
    }
    const double dark = map_y(tangent > 0.0 ? -90.0 : 90.0);
    std::fprintf(out, "L%g %gL0 %gz\"/>\n", 360.0 * kScale, dark, dark);
}

// Where the satellite stands above the horizon of a station.
std::vector<kl_geodetic> horizon(const GroundStation &station, double height)
{
    constexpr double kMeanRadius = 6371008.8; // m
    const double distance = kMeanRadius * std::acos(kMeanRadius / (kMeanRadius + height));
    const kl_geodetic &centre = station.geodetic();
    std::vector<kl_geodetic> circle;
    for (int azimuth = 0; azimuth <= 360; azimuth += 5) {
        const GeodesicEnd end = LibFunc::geodPoint(ModelId(), centre.latitude, centre.longitude, azimuth, distance);
        circle.push_back({end.latitude, end.longitude, 0.0, 0.0, 0.0, 0.0});
    }
    return circle;
}

} // namespace

Day::Day(const Time &start) : sun(kMinutes), moon(kMinutes)
{
    const long n = kMinutes, tai = KL_TIME_TAI, mode = KL_CALC_POS;
    std::vector<double> times(kMinutes);
    std::vector<Vector> pos(kMinutes), vel(kMinutes);
    for (std::size_t i = 0; i < kMinutes; ++i)
        times[i] = start.processing(Scale::TAI) + static_cast<double>(i) / 1440.0;
    const auto xyz = reinterpret_cast<double(*)[3]>(pos.data());
    const auto speed = reinterpret_cast<double(*)[3]>(vel.data());
    if (kl_sun_n(nullptr, start.id(), &n, &tai, times.data(), xyz, speed, nullptr, nullptr) == KL_ERR
        || kl_cart_to_geod_n(nullptr, &n, &mode, xyz, nullptr, sun.data(), nullptr, nullptr) == KL_ERR
        || kl_moon_n(nullptr, start.id(), &n, &tai, times.data(), xyz, speed, nullptr, nullptr) == KL_ERR
        || kl_cart_to_geod_n(nullptr, &n, &mode, xyz, nullptr, moon.data(), nullptr, nullptr) == KL_ERR)
        throw std::runtime_error("a day of the Sun and the Moon cannot be had");
}

bool draw_map(const char *file, const Time &now, const Day &day, const MeanMotion &orbit, const GroundStation &station)
{
    std::FILE *out = std::fopen(file, "w");
    if (out == nullptr)
        return false;
    std::vector<kl_geodetic> track;
    for (int i = 0; i <= 400; ++i) // three revolutions and a half
        track.push_back(orbit(now + i * std::chrono::seconds(60)).geodetic());

    std::fprintf(out,
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %g %g\" font-family=\"sans-serif\" "
                 "font-size=\"14\">\n<title>The sky above the Earth at %s UTC</title>\n",
                 360.0 * kScale, 180.0 * kScale + 28.0, now.text().c_str());
    std::fprintf(out, "<clipPath id=\"map\"><rect width=\"%g\" height=\"%g\"/></clipPath><g clip-path=\"url(#map)\">\n",
                 360.0 * kScale, 180.0 * kScale);
    draw_geoid(out);
    draw_night(out, day.sun.front());
    for (int degree = 30; degree < 360; degree += 30)
        std::fprintf(out, "<path stroke=\"#fff\" stroke-opacity=\"0.25\" d=\"M%g 0V%g\"/>\n", kScale * degree,
                     180.0 * kScale);
    for (int degree = 30; degree < 180; degree += 30)
        std::fprintf(out, "<path stroke=\"#fff\" stroke-opacity=\"0.25\" d=\"M0 %gH%g\"/>\n", kScale * degree,
                     360.0 * kScale);
    draw_line(out, "stroke=\"#ffd84a\" stroke-width=\"2\" stroke-dasharray=\"2 4\"", day.sun);
    draw_line(out, "stroke=\"#f4f4f4\" stroke-width=\"2\" stroke-dasharray=\"2 4\"", day.moon);
    draw_line(out, "stroke=\"#7c1fa0\" stroke-width=\"2\"", track);
    draw_line(out, "stroke=\"#2c9c3f\" stroke-width=\"2\"", horizon(station, track.front().height));
    std::fputs("<g fill=\"#fff\" stroke=\"#222\" stroke-width=\"3\" paint-order=\"stroke\">\n", out);
    draw_point(out, station.geodetic(), 4.0, "#2c9c3f", "Kiruna");
    draw_point(out, day.sun.front(), 10.0, "#ffd84a", "Sun");
    draw_point(out, day.moon.front(), 8.0, "#e8e8e8", "Moon");
    draw_point(out, track.front(), 6.0, "#c86be8", "satellite");
    std::fprintf(
        out,
        "</g></g>\n<text x=\"4\" y=\"%g\" fill=\"#777\">%.19s UTC: a day of the Sun and the Moon, 400 minutes of "
        "a satellite, where Kiruna sees it, night; the geoid from -107 m (blue) to 86 m</text>\n</svg>\n",
        180.0 * kScale + 19.0, now.text().c_str());
    const bool lost = std::ferror(out) != 0;
    return std::fclose(out) == 0 && !lost;
}
