// The sky above the Earth at an instant: time scales, the Sun, the Moon and the planets, a satellite and its next pass
// over a station, and a map of all that as a picture.
//
// kl_demo [UTC instant, yyyy-mm-ddThh:nn:ss with or without a fraction, or now] [picture.svg]
#include "demo_map.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace ORBKIT;
using namespace std::chrono_literals;

constexpr double kKm = 1e3, kAstronomicalUnit = 149597870700.0; // m
const GroundStation kKiruna(67.857, 20.964, 390.0);

std::string degrees(double value, const char *positive, const char *negative)
{
    char text[32];
    std::snprintf(text, sizeof text, "%6.2f %s", std::fabs(value), value < 0.0 ? negative : positive);
    return text;
}

std::string place(double latitude, double longitude)
{
    return degrees(latitude, "N", "S") + " " + degrees(longitude > 180.0 ? longitude - 360.0 : longitude, "E", "W");
}

double length(const Vector &v)
{
    return std::hypot(v[0], v[1], v[2]);
}

// With the decimals that the library reads: none or six.
Time read_instant(const char *given)
{
    std::string text = given;
    if (text == "now")
        return Time::now();
    const std::size_t point = text.find('.');
    if (point != std::string::npos && text.size() < point + 7)
        text.resize(point + 7, '0');
    return Time(text);
}

void show_scales(const Time &now)
{
    const TransportTime gps = now.transport(TransportFormat::format_42, Scale::GPS);
    std::printf("  TAI  %s    atomic time\n", now.text(TextFormat::iso, Scale::TAI).c_str());
    std::printf("  UT1  %s    the turn of the Earth\n", now.text(TextFormat::iso, Scale::UT1).c_str());
    std::printf("  GPS  %s    week %ld, second %ld.%06ld\n", now.text(TextFormat::iso, Scale::GPS).c_str(), gps[0],
                gps[1], gps[2]);
    std::printf("  day  %.9f of MJD2000, UTC\n", now.processing(Scale::UTC));
}

void show_body(const char *name, const StateVector &body)
{
    constexpr double kFar = 1e11; // m: beyond 1e12 nothing has geodetic coordinates, and the direction says as much
    const double distance = length(body.pos());
    const double nearer = std::min(1.0, kFar / distance);
    const Vector &p = body.pos();
    const kl_geodetic below =
        StateVector({p[0] * nearer, p[1] * nearer, p[2] * nearer}, {}, Frame::EF, body.time()).geodetic();
    std::printf("  %-8s %s  ", name, place(below.latitude, below.longitude).c_str());
    if (distance < 0.01 * kAstronomicalUnit)
        std::printf("%11.0f km\n", distance / kKm);
    else
        std::printf("%11.6f au\n", distance / kAstronomicalUnit);
}

void show_bodies(const Time &now)
{
    std::puts("\n  Overhead at                      distance");
    show_body("Sun", Sun::at(now));
    show_body("Moon", Moon::at(now));
    const std::pair<const char *, PlanetName> planets[] = {
        {"Mercury", PlanetName::mercury}, {"Venus", PlanetName::venus},   {"Mars", PlanetName::mars},
        {"Jupiter", PlanetName::jupiter}, {"Saturn", PlanetName::saturn}, {"Uranus", PlanetName::uranus},
        {"Neptune", PlanetName::neptune}};
    for (const auto &[name, planet] : planets)
        show_body(name, Planet(planet).at(now));
}

// Every minute of a day, each body in one call.
void show_day(const Day &day)
{
    std::puts("\n  The day that begins: the Sun and the Moon at 1441 instants, one call each");
    for (std::size_t i = 0; i < day.sun.size(); i += 360)
        std::printf("    +%2zu h   Sun %s   Moon %s, %.0f km high\n", i / 60,
                    place(day.sun[i].latitude, day.sun[i].longitude).c_str(),
                    place(day.moon[i].latitude, day.moon[i].longitude).c_str(), day.moon[i].height / kKm);
}

// Sun-synchronous, its node 22.5 degrees of right ascension short of midnight.
kl_kepler mean_elements(const Time &now)
{
    const StateVector sun = Sun::at(now).in(Frame::TOD);
    const double right_ascension = std::atan2(sun.pos()[1], sun.pos()[0]) * 57.29577951308232;
    return {7178137.0, 0.001, 98.6, std::fmod(right_ascension + 517.5, 360.0), 90.0, 280.0};
}

void show_elements(const char *name, const kl_kepler &e)
{
    std::printf("  %-11s a %9.3f km   e %.6f   i %7.3f   node %7.3f   perigee %7.3f   anomaly %7.3f deg\n", name,
                e.semi_major_axis / kKm, e.eccentricity, e.inclination, e.raan, e.arg_perigee, e.mean_anomaly);
}

void show_satellite(const Time &now, const kl_kepler &mean, const MeanMotion &orbit)
{
    const StateVector satellite = orbit(now);
    const StateVector fixed = satellite.in(Frame::EF);
    const kl_geodetic below = fixed.geodetic();
    static const char *const kLight[] = {"in sunlight", "in the penumbra", "in the shadow of the Earth",
                                         "behind a ring of the Sun"};
    std::puts("\n  A satellite on a sun-synchronous orbit");
    show_elements("mean", mean);
    show_elements("osculating", satellite.kepler());
    std::printf("  Earth-fixed %.3f %.3f %.3f km, %.6f %.6f %.6f km/s\n", fixed.pos()[0] / kKm, fixed.pos()[1] / kKm,
                fixed.pos()[2] / kKm, fixed.vel()[0] / kKm, fixed.vel()[1] / kKm, fixed.vel()[2] / kKm);
    std::printf("  over %s, %.3f km above the ellipsoid, the geoid %.2f m; %s\n",
                place(below.latitude, below.longitude).c_str(), below.height / kKm,
                LibFunc::geoid(ModelId(), below.latitude, below.longitude),
                kLight[static_cast<long>(Eclipse::at(satellite).state)]);
}

void show_next_pass(const Time &now, const MeanMotion &orbit)
{
    const auto passes = events::passes(orbit, kKiruna, {now, now + 24h});
    for (const events::Pass &pass : passes) {
        if (pass.visible.cut_start || pass.visible.cut_stop)
            continue;
        const auto at = [&](const Time &time) {
            char text[64];
            std::snprintf(text, sizeof text, "%.23s  azimuth %6.2f deg", time.text().c_str(),
                          orbit(time).seenFrom(kKiruna).azimuth);
            return std::string(text);
        };
        std::printf("\n  Next pass over Kiruna,%s, of %zu in 24 hours\n",
                    place(kKiruna.geodetic().latitude, kKiruna.geodetic().longitude).c_str(), passes.size());
        std::printf("    rises       %s\n", at(pass.visible.start).c_str());
        std::printf("    culminates  %s, %.2f deg high\n", at(pass.culmination).c_str(), pass.elevation);
        std::printf("    sets        %s\n", at(pass.visible.stop).c_str());
        return;
    }
}

} // namespace

int main(int argc, char **argv)
try {
    if (argc > 3) {
        std::fprintf(stderr, "usage: %s [yyyy-mm-ddThh:nn:ss[.uuuuuu] [picture.svg]]\n", argv[0]);
        return EXIT_FAILURE;
    }
    const Time now = read_instant(argc > 1 ? argv[1] : "now");
    if (now < Time("1950-01-02T00:00:00") || now > Time("2099-12-29T00:00:00")) {
        std::fprintf(stderr, "%s: shown from 1950-01-02T00:00:00 to 2099-12-29T00:00:00\n", argv[1]);
        return EXIT_FAILURE;
    }
    const kl_kepler mean = mean_elements(now);
    const MeanMotion orbit(mean, now);
    const Day day(now);

    std::printf("The sky above the Earth at %s UTC\n\n", now.text().c_str());
    show_scales(now);
    show_bodies(now);
    show_day(day);
    show_satellite(now, mean, orbit);
    show_next_pass(now, orbit);
    if (argc == 3) {
        if (!draw_map(argv[2], now, day, orbit, kKiruna)) {
            std::fprintf(stderr, "%s: the picture cannot be written\n", argv[2]);
            return EXIT_FAILURE;
        }
        std::printf("\n  Picture: %s\n", argv[2]);
    }
    const auto rows = now.correlation().getData().rows;
    const double utc = now.processing(Scale::UTC);
    if (utc < rows.front().utc || utc + 1.0 > rows.back().utc)
        std::puts(
            "\n  Not all of it lies within the rows of the time correlation: beyond them the nearest row's TAI-UTC "
            "and\n  UT1-UTC were used.");

    const bool lost = std::ferror(stdout) != 0;
    if (std::fclose(stdout) != 0 || lost) {
        std::fprintf(stderr, "%s: the output cannot be written\n", argv[0]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    std::fprintf(stderr, "%s\nexpected: %s [UTC as yyyy-mm-ddThh:nn:ss or with .uuuuuu, 1950 to 2099]\n", error.what(),
                 argv[0]);
    return EXIT_FAILURE;
}
