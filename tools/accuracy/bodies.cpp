// Sun, Moon and planets against ERFA and against the full theories VSOP87 and ELP 2000-82B of libnova.
#include "kl_family.h"
#include "sky.h"

#include <libnova/libnova.h>

namespace {

constexpr long kSun = 0;
constexpr long kMoon = 10;
constexpr const char *kNames[] = {"Sun",    "Mercury", "Venus",  "Earth-Moon barycentre", "Mars", "Jupiter",
                                  "Saturn", "Uranus",  "Neptune"};

// ---- the other side: J2000 or ICRS axes, 0.02 arcsec apart
// -----------------------------------------------------------

// The Earth about the Sun.
Motion epv00(double tt)
{
    double helio[2][3];
    double bary[2][3];
    eraEpv00(kEpoch2000, tt, helio, bary);
    return {scaled({helio[0][0], helio[0][1], helio[0][2]}, kAu),
            scaled({helio[1][0], helio[1][1], helio[1][2]}, kAu / kDay)};
}

Motion moon98(double tt)
{
    double pv[2][3];
    eraMoon98(kEpoch2000, tt, pv);
    return {scaled({pv[0][0], pv[0][1], pv[0][2]}, kAu), scaled({pv[1][0], pv[1][1], pv[1][2]}, kAu / kDay)};
}

Motion plan94(long planet, double tt)
{
    double pv[2][3];
    eraPlan94(kEpoch2000, tt, static_cast<int>(planet), pv);
    return {scaled({pv[0][0], pv[0][1], pv[0][2]}, kAu), scaled({pv[1][0], pv[1][1], pv[1][2]}, kAu / kDay)};
}

Vector from_ecliptic(const Vector &v)
{
    static const double kObliquity = 84381.448 / kArcsec;
    const double c = std::cos(kObliquity);
    const double s = std::sin(kObliquity);
    return {v[0], c * v[1] - s * v[2], s * v[1] + c * v[2]};
}

// Position and velocity of a theory of positions, from two places four minutes apart.
template <class Place>
Motion moving(Place place, double tt)
{
    const double early = kEpoch2000 + tt - 120.0 / kDay;
    const double late = kEpoch2000 + tt + 120.0 / kDay;
    const Vector a = place(early);
    const Vector b = place(late);
    return {scaled(plus(a, b), 0.5), scaled(minus(b, a), 1.0 / ((late - early) * kDay))};
}

Motion elp2000(double tt)
{
    const auto place = [](double date) {
        constexpr double kLeastTerm = 1e-9; // rad: the terms left out make 0.03 km
        ln_rect_posn p;
        ln_get_lunar_geo_posn(date, &p, kLeastTerm);
        return from_ecliptic({p.X * 1000.0, p.Y * 1000.0, p.Z * 1000.0});
    };
    return moving(place, tt);
}

// A planet about the Sun; the Earth-Moon barycentre is the Earth and its share of the Moon.
Motion vsop87(long planet, double tt, const Motion &earth, const Motion &moon)
{
    constexpr double kMoonsShare = 1.0 / (1.0 + 81.30056);
    if (planet == KL_EARTH_MOON_BARYCENTRE)
        return {plus(earth.pos, scaled(moon.pos, kMoonsShare)), plus(earth.vel, scaled(moon.vel, kMoonsShare))};
    constexpr void (*kTheories[])(double, ln_helio_posn *) = {
        nullptr,
        ln_get_mercury_helio_coords,
        ln_get_venus_helio_coords,
        nullptr,
        ln_get_mars_helio_coords,
        ln_get_jupiter_helio_coords,
        ln_get_saturn_helio_coords,
        ln_get_uranus_helio_coords,
        ln_get_neptune_helio_coords,
    };
    const auto theory = kTheories[planet];
    const auto place = [theory](double date) {
        ln_helio_posn p;
        theory(date, &p);
        Vector ecliptic{};
        eraS2p(p.L * 3600.0 / kArcsec, p.B * 3600.0 / kArcsec, p.R * kAu, ecliptic.data());
        return from_ecliptic(ecliptic);
    };
    return moving(place, tt);
}

// ---- the library's theories alone
// ------------------------------------------------------------------------------------

Vector in_metres(const double au[3])
{
    return {au[0] * kAu, au[1] * kAu, au[2] * kAu};
}

Vector own_earth(double mjd)
{
    double bary[3];
    double helio[3];
    double bary_rate[3];
    double helio_rate[3];
    KL_SlaEvp(bary_rate, bary, helio_rate, helio, mjd, 2000.0);
    return in_metres(helio);
}

// From the mean axes of date.
Vector own_moon(double mjd, double tt)
{
    double pv[6];
    KL_SlaDmoon(pv, mjd);
    double of_date[3][3];
    eraPmat76(kEpoch2000, tt, of_date);
    Vector out{};
    eraTrxp(of_date, in_metres(pv).data(), out.data());
    return out;
}

Vector own_planet(long planet, double mjd)
{
    double pv[6];
    long status = 0;
    KL_SlaPlanet(planet, pv, &status, mjd);
    return in_metres(pv);
}

// ---- rows
// ------------------------------------------------------------------------------------------------------------

struct Theory {
    Spread direction, distance; // arcsec, km

    void add(const Vector &ours, const Vector &theirs)
    {
        direction.add(angle_arcsec(ours, theirs));
        distance.add((length(ours) - length(theirs)) / 1000.0);
    }
};

// What kl_sun, kl_moon or kl_planet returned against a geocentric motion.
struct EarthFixedBody {
    Theory theory; // the unit of length apart
    Spread returned, velocity, velocity_at_rest;

    void add(Library &library, double tai, const EarthFixed &to_earth_fixed, const Motion &ours, const Motion &theirs)
    {
        constexpr double kUnit = kAu / kLibraryAu;
        const Motion reference = to_earth_fixed(theirs);
        returned.add((length(ours.pos) - length(reference.pos)) / 1000.0);
        theory.add(scaled(ours.pos, kUnit), reference.pos);
        velocity.add(length(minus(scaled(ours.vel, kUnit), reference.vel)));
        const Motion at_rest = library.frame(KL_EF, KL_GM2000, tai, ours);
        velocity_at_rest.add(length(minus(scaled(at_rest.vel, kUnit), theirs.vel)));
    }

    void print(const std::string &name, const char *cause)
    {
        std::printf("| %s | %s | %s | %s | %s | %s | %s |\n", name.c_str(), theory.direction.cell().c_str(),
                    returned.cell().c_str(), theory.distance.cell().c_str(), velocity.cell().c_str(),
                    velocity_at_rest.cell().c_str(), cause);
    }
};

constexpr const char *kNearPlanet = "the planet's theory; Stumpff's Earth adds as much";
constexpr const char *kFarPlanet = "the planet's theory";
constexpr const char *kEarthFixedCauses[] = {
    "Stumpff's theory", kNearPlanet, kNearPlanet, "4700 km away: the kilometres by which both places about the Sun err",
    kFarPlanet,         kFarPlanet,  kFarPlanet,  kFarPlanet,
    kFarPlanet,
};

// Largest differences from DE200 over 1800 to 2100: longitude, latitude, distance; ERFA's note on the same theory.
constexpr const char *kPublished[] = {
    "",
    "7 arcsec, 1 arcsec, 500 km",
    "7 arcsec, 1 arcsec, 1100 km",
    "9 arcsec, 1 arcsec, 1300 km",
    "26 arcsec, 1 arcsec, 9000 km",
    "78 arcsec, 6 arcsec, 82 000 km",
    "87 arcsec, 14 arcsec, 263 000 km",
    "86 arcsec, 7 arcsec, 661 000 km",
    "11 arcsec, 2 arcsec, 248 000 km",
};

} // namespace

void compare_bodies(Library &library, const std::vector<double> &instants)
{
    std::array<EarthFixedBody, 9> bodies;
    EarthFixedBody moon_elp;
    EarthFixedBody moon_meeus;
    std::array<EarthFixedBody, 9> same_theory;
    std::array<Theory, 9> alone;
    Theory moon_alone;
    for (const double tai : instants) {
        const Dates date = dates_of(tai);
        const double mjd = 51544.0 + date.tt;
        const EarthFixed to_earth_fixed(chain_2006, date);
        const Motion earth = epv00(date.tt);
        const Motion moon = elp2000(date.tt);
        const auto from_earth = [&earth](const Motion &m) {
            return Motion{minus(m.pos, earth.pos), minus(m.vel, earth.vel)};
        };
        bodies[0].add(library, tai, to_earth_fixed, library.body(kSun, tai),
                      {scaled(earth.pos, -1.0), scaled(earth.vel, -1.0)});
        const Motion our_moon = library.body(kMoon, tai);
        moon_elp.add(library, tai, to_earth_fixed, our_moon, moon);
        moon_meeus.add(library, tai, to_earth_fixed, our_moon, moon98(date.tt));
        alone[0].add(own_earth(mjd), earth.pos);
        moon_alone.add(own_moon(mjd, date.tt), moon.pos);
        for (long planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet) {
            const auto i = static_cast<std::size_t>(planet);
            const Motion ours = library.body(planet, tai);
            const Motion full = vsop87(planet, date.tt, earth, moon);
            bodies[i].add(library, tai, to_earth_fixed, ours, from_earth(full));
            same_theory[i].add(library, tai, to_earth_fixed, ours, from_earth(plan94(planet, date.tt)));
            alone[i].add(own_planet(planet, mjd), full.pos);
        }
    }

    std::printf(
        "\n## Sun, Moon and planets in the Earth-fixed frame, against full theories\n\n"
        "The Sun, and the Earth that sees the planets, by ERFA's EPV00; the Moon by libnova's ELP 2000-82B and once "
        "more by ERFA's\nMOON98; the planets by libnova's VSOP87; the axes by ERFA's IAU 2006/2000A. Each cell is "
        "median / "
        "99 %% / maximum. The library's\nastronomical unit of 1.496e11 m is %.5g too large: that is in the second "
        "column of "
        "figures and taken out of the others. The axes\nturn an error of direction or distance into one of velocity: "
        "the "
        "last but one column; the last is without that.\n\n"
        "| body | direction, arcsec | distance as returned, km | distance, km | velocity, m/s | velocity before the "
        "axes turn, m/s | cause |\n|---|---|---|---|---|---|---|\n",
        kLibraryAu / kAu - 1.0);
    bodies[0].print("Sun", kEarthFixedCauses[0]);
    moon_elp.print("Moon, ELP 2000-82B", "Meeus' truncated series of 1984");
    moon_meeus.print("Moon, MOON98",
                     "the same, and MOON98's own error: by its note 18.3 arcsec and 31.7 km at most, 2.9 arcsec and "
                     "6.1 km rms");
    for (std::size_t i = 1; i < bodies.size(); ++i)
        bodies[i].print(kNames[i], kEarthFixedCauses[i]);

    std::printf("\n## The theories alone: the Earth and the planets about the Sun, the Moon about the Earth, J2000\n\n"
                "Without axes and metres, against the same references. Published are the largest differences of the "
                "planets' theory from DE200 over\n1800 to 2100 in longitude, latitude and distance, as the notes to "
                "ERFA's PLAN94 have them. Each cell is median / 99 %% / maximum.\n\n"
                "| body | direction, arcsec | distance, km | published for the theory |\n|---|---|---|---|\n");
    const auto print_alone = [](const char *name, Theory &theory, const char *published) {
        std::printf("| %s | %s | %s | %s |\n", name, theory.direction.cell().c_str(), theory.distance.cell().c_str(),
                    published);
    };
    print_alone("Earth", alone[0], "");
    print_alone("Moon", moon_alone, "");
    for (std::size_t i = 1; i < alone.size(); ++i)
        print_alone(kNames[i], alone[i], kPublished[i]);

    std::printf("\n## Planets in the Earth-fixed frame, against ERFA's PLAN94 and EPV00\n\n"
                "PLAN94 is the very theory that the library has: these rows show the Earth, the axes and the unit, not "
                "the error of the planet's\nplace, which stands above. Each cell is median / 99 %% / maximum.\n\n"
                "| body | direction, arcsec | distance as returned, km | distance, the unit apart, km | cause "
                "|\n|---|---|---|---|---|\n");
    for (std::size_t i = 1; i < same_theory.size(); ++i)
        std::printf("| %s | %s | %s | %s | %s |\n", kNames[i], same_theory[i].theory.direction.cell().c_str(),
                    same_theory[i].returned.cell().c_str(), same_theory[i].theory.distance.cell().c_str(),
                    i == KL_EARTH_MOON_BARYCENTRE ? "4700 km away: the kilometres of Stumpff's Earth"
                    : i < KL_JUPITER              ? "Stumpff's Earth; the unit"
                                     : "Stumpff's Earth; nine nutation terms and the older precession; the unit");
}
