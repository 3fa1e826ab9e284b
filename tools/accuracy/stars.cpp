// Places of stars against ERFA's: the kernel with the same observer, then everything from the date on.
#include "kl_family.h"
#include "sky.h"

namespace {

constexpr double kLight = 299792458.0; // m/s
constexpr double kRad = 1.0 / 57.29577951308232;
constexpr double kMas = kRad / 3.6e6;

kl_star random_star(std::mt19937_64 &random)
{
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    return {180.0 + 180.0 * unit(random),
            std::asin(unit(random)) / kRad,
            1000.0 * unit(random),
            1000.0 * unit(random),
            100.0 + 100.0 * unit(random),
            100.0 * unit(random),
            0.5,
            0.0,
            1};
}

Vector direction(double ra, double dec)
{
    return {std::cos(dec) * std::cos(ra), std::cos(dec) * std::sin(ra), std::sin(dec)};
}

Vector direction(const kl_radec &place)
{
    return direction(place.ra * kRad, place.dec * kRad);
}

// The kernel and ERFA's pmpx, ldsun and ab from one Earth, EPV00's.
double kernel_error(const kl_star &star, double tdb)
{
    double heliocentric[2][3], barycentric[2][3], pos[3], vel[3], sun[3], place[3];
    eraEpv00(kEpoch2000, tdb, heliocentric, barycentric);
    for (int i = 0; i < 3; ++i) {
        pos[i] = barycentric[0][i] * kAu;
        vel[i] = barycentric[1][i] * kAu / kDay;
        sun[i] = heliocentric[0][i] * kAu;
    }
    if (KL_Star_place(&star, pos, vel, sun, tdb, 7, place) != KL_OK)
        fail("KL_Star_place");
    double u[3], v[3], e[3], lit[3], seen[3];
    eraPmpx(star.ra * kRad, star.dec * kRad, star.pm_ra * kMas / std::cos(star.dec * kRad), star.pm_dec * kMas,
            star.parallax / 1e3, star.radial_velocity, (tdb - star.epoch) / 365.25, barycentric[0], u);
    double r = 0.0;
    eraPn(heliocentric[0], &r, e);
    eraLdsun(u, e, r, lit);
    for (int i = 0; i < 3; ++i)
        v[i] = vel[i] / kLight;
    eraAb(lit, v, r, std::sqrt(1.0 - v[0] * v[0] - v[1] * v[1] - v[2] * v[2]), seen);
    return angle_arcsec({place[0], place[1], place[2]}, {seen[0], seen[1], seen[2]});
}

} // namespace

void compare_stars(const std::vector<double> &instants)
{
    std::mt19937_64 random(4);
    Spread kernel, j2000, of_date;
    const double readings[4] = {0.0, -37.0 / kDay, -kTaiMinusUt1 / kDay, -19.0 / kDay};
    kl_time_id id = {};
    if (kl_time_ref_init(readings, nullptr, nullptr, nullptr, &id, nullptr) != KL_OK)
        fail("kl_time_ref_init");
    for (std::size_t i = 0; i < instants.size(); i += 10) {
        const double tai = instants[i], tt = dates_of(tai).tt;
        const kl_star star = random_star(random);
        kernel.add(1e9 * kernel_error(star, tt));

        const long every = 7, gm2000 = KL_GM2000, tod = KL_TOD, ref = KL_TIME_TAI;
        kl_radec place, apparent;
        if (kl_star_radec(nullptr, &id, &every, &gm2000, &ref, &tai, &star, nullptr, nullptr, &place, nullptr) != KL_OK
            || kl_star_radec(nullptr, &id, &every, &tod, &ref, &tai, &star, nullptr, nullptr, &apparent, nullptr)
                   != KL_OK)
            fail("kl_star_radec");
        // ERFA's apparent place, and its axes turned back to the GCRS.
        double ri, di, eo, c2i[3][3], x, y, s;
        eraAtci13(star.ra * kRad, star.dec * kRad, star.pm_ra * kMas / std::cos(star.dec * kRad), star.pm_dec * kMas,
                  star.parallax / 1e3, star.radial_velocity, kEpoch2000, tt, &ri, &di, &eo);
        of_date.add(angle_arcsec(direction(apparent), direction(ri - eo, di)));
        eraXys06a(kEpoch2000, tt, &x, &y, &s);
        eraC2ixys(x, y, s, c2i);
        eraTr(c2i, c2i);
        const Vector gcrs = turned(c2i, direction(ri, di));
        j2000.add(angle_arcsec(direction(place), gcrs));
    }
    heading("Places of stars with all corrections, against ERFA");
    kernel.print("KL_Star_place, with the Earth of EPV00 on both sides", "nanoarcsec",
                 "directions of degrees as doubles; radians of the catalogue: rounding");
    j2000.print("kl_star_radec to KL_GM2000, the axes of the catalogue, against ATCI13 turned back", "arcsec",
                "the velocity of Stumpff's Earth, 0.42 m/s");
    of_date.print("kl_star_radec to KL_TOD, ICRS catalogue, against ATCI13 from the true equinox", "arcsec",
                  "nine nutation terms of 1365; precession of 1976; no frame bias");
    kl_time_close(&id, nullptr);
}
