// The frames of the IERS Conventions against ERFA, and the conventional chain against them: its true error, decade by
// decade and, for the picture, year by year.
#include "sky.h"

namespace {

constexpr double kRadius = 7.0e6; // m
constexpr double kArcsecond = 1.0 / kArcsec;

Vector random_direction(std::mt19937_64 &random, double size)
{
    std::normal_distribution<double> normal;
    const Vector v = {normal(random), normal(random), normal(random)};
    return scaled(v, size / length(v));
}

Motion iers(kl_time_id *id, long from, long to, long ref, double time, const Motion &in)
{
    const long none = 0, mode = KL_CALC_POS_VEL;
    Motion out{};
    double acc[3];
    if (kl_iers_change(id, &none, &mode, &from, &to, &ref, &time, in.pos.data(), in.vel.data(), nullptr, out.pos.data(),
                       out.vel.data(), acc, nullptr)
        == KL_ERR)
        fail("kl_iers_change");
    return out;
}

kl_earth_orientation orientation(kl_time_id *id, long ref, double time)
{
    const long none = 0;
    kl_earth_orientation out = {};
    if (kl_earth_orientation_get(id, &none, &ref, &time, &out, nullptr) == KL_ERR)
        fail("kl_earth_orientation_get");
    return out;
}

// GCRS to ITRS by the series that are named, `seconds` after an instant of TAI.
using Series = void (*)(double tt, double *x, double *y, double *s);

void by_angles(double tt, double *x, double *y, double *s)
{
    eraXys06a(kEpoch2000, tt, x, y, s);
}

void by_series(double tt, double *x, double *y, double *)
{
    eraXy06(kEpoch2000, tt, x, y);
}

Vector erfa(Series series, const kl_earth_orientation &e, double tai, double seconds, const Vector &v)
{
    const double tt = tai + (kTtMinusTai + seconds) / kDay;
    double x, y, s, q[3][3], w[3][3], all[3][3];
    series(tt, &x, &y, &s);
    x += e.dx * kArcsecond;
    y += e.dy * kArcsecond;
    eraC2ixys(x, y, eraS06(kEpoch2000, tt, x, y), q);
    eraPom00(e.x_pole * kArcsecond, e.y_pole * kArcsecond, eraSp00(kEpoch2000, tt), w);
    const double day = std::floor(tai);
    eraC2tcio(q, eraEra00(kEpoch2000 + day, (tai - day) + (e.ut1_tai + seconds) / kDay), w, all);
    return turned(all, v);
}

// With UT1 and a pole that stand still.
void compare_with_erfa(kl_time_id *one_row, const std::vector<double> &instants)
{
    Spread series, angles, velocity, back;
    std::mt19937_64 random(5);
    for (const double tai : instants) {
        const kl_earth_orientation e = orientation(one_row, KL_TIME_TAI, tai);
        const Motion in = {random_direction(random, kRadius), random_direction(random, 8.0e3)};
        const Motion out = iers(one_row, KL_GCRS, KL_ITRS, KL_TIME_TAI, tai, in);
        series.add(1e3 * length(minus(out.pos, erfa(by_series, e, tai, 0.0, in.pos))));
        angles.add(1e3 * length(minus(out.pos, erfa(by_angles, e, tai, 0.0, in.pos))));
        constexpr double kStep = 20.0; // s
        Vector rate{};
        for (const int k : {-2, -1, 1, 2})
            rate = plus(rate, scaled(erfa(by_series, e, tai, k * kStep, plus(in.pos, scaled(in.vel, k * kStep))),
                                     (std::abs(k) == 1 ? 8.0 * k : -0.5 * k) / (12.0 * kStep)));
        velocity.add(1e6 * length(minus(out.vel, rate)));
        back.add(1e9 * length(minus(iers(one_row, KL_ITRS, KL_GCRS, KL_TIME_TAI, tai, out).pos, in.pos)));
    }
    series.print("GCRS to ITRS, 7000 km, against XY06 and S06", "mm",
                 "ten nodes a day apart; their counts of 0.1 uas; the date as one double, 0.04 mm");
    angles.print("GCRS to ITRS, 7000 km, against XYS06A", "mm",
                 "the same; ERFA's two ways to the pole differ by 3.9 uas");
    velocity.print("GCRS to ITRS, velocity at 7000 km and 8 km/s, against differences of XY06 and S06", "um/s",
                   "the same");
    back.print("GCRS to ITRS and back, 7000 km", "nm", "rounding");
}

// With the rows that are compiled into the library: what ERFA is given comes from them too.
void compare_with_pole(kl_time_id *built_in, long count)
{
    Spread apart;
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> days(-9860.0, 9700.0);
    for (long i = 0; i < count; ++i) {
        const double tai = days(random);
        const Motion in = {random_direction(random, kRadius), {}};
        apart.add(1e3
                  * length(minus(iers(built_in, KL_GCRS, KL_ITRS, KL_TIME_TAI, tai, in).pos,
                                 erfa(by_series, orientation(built_in, KL_TIME_TAI, tai), tai, 0.0, in.pos))));
    }
    apart.print("the same with the published UT1, pole and offsets of 1973 to 2026", "mm", "the same");
}

// ---- the chain ----

enum Column { kGm2000, kGm2000AsGcrs, kMod, kTod, kTeme, kColumns };

struct ChainErrors {
    Spread of[kColumns];

    // A position of GCRS, 7000 km from the Earth, in the frames of the chain by the modern models; the chain begins
    // with what it calls GM2000 and, for that, with the Earth-fixed position.
    void add(Library &library, kl_time_id *one_row, double tai, const Vector &gcrs)
    {
        const Motion state = {gcrs, {}};
        const Vector eme2000 = iers(one_row, KL_GCRS, KL_EME2000, KL_TIME_TAI, tai, state).pos;
        const Vector itrs = iers(one_row, KL_GCRS, KL_ITRS, KL_TIME_TAI, tai, state).pos;
        const Chain c = chain_2006(dates_of(tai));
        const Vector mod = turned(c.precession, gcrs);
        const Vector tod = turned(c.nutation, mod);
        const Vector gm2000 = library.frame(KL_EF, KL_GM2000, tai, itrs);
        of[kGm2000].add(length(minus(gm2000, eme2000)));
        of[kGm2000AsGcrs].add(length(minus(gm2000, gcrs)));
        of[kMod].add(length(minus(library.frame(KL_GM2000, KL_MOD, tai, eme2000), mod)));
        of[kTod].add(length(minus(library.frame(KL_GM2000, KL_TOD, tai, eme2000), tod)));
        of[kTeme].add(length(minus(library.frame(KL_EF, KL_TEME, tai, itrs), turned(c.teme, tod))));
    }
};

double day_of_year(int year)
{
    return 365.25 * (year - 2000);
}

void compare_decades(Library &library, kl_time_id *one_row, long count)
{
    std::printf(
        "\n## The conventional chain against the frames of the IERS Conventions: its true error, 7000 km\n\n"
        "Two ways lead from the sky to the Earth. The chain of `kl_change_cart_cs` has the family's conventional "
        "models, "
        "so that all its\nlibraries agree with each other: use it beside them. The functions `kl_iers_*` agree with "
        "the "
        "products of the IERS, with orbits\nin ITRF and GCRF, to 0.04 mm: use them where states come from or go to "
        "precise orbits. Never mix GM2000 with GCRS or EF with\nITRS: this table says what that costs.\n\n"
        "UT1 is the same on both sides and the pole zero, so that the models alone differ; dX and dY, at most 17 mm, "
        "are "
        "not in it.\nEF and PEF are compared with ITRS, GM2000 with EME2000, MOD, TOD and TEME with those of ERFA's "
        "IAU "
        "2006/2000A. Each cell is\nmedian / maximum of %ld instants, m. Causes: precession of 1976, 0.3 arcsec a "
        "century "
        "too fast; nine terms of nutation; sidereal\ntime of 1982; the frame bias, 0.8 m, where GM2000 is taken for "
        "GCRS. "
        "The picture has the largest of each year.\n\n"
        "![Error of the chain by years](pictures/chain_error.png)\n\n"
        "| years | EF and GM2000 | EF to GM2000 taken for GCRS | EME2000 to MOD | EME2000 to TOD | EF to TEME "
        "|\n|---|---|---|---|---|---|\n",
        count);
    std::mt19937_64 random(8);
    for (int decade = 1950; decade < 2100; decade += 10) {
        std::uniform_real_distribution<double> days(std::fmax(day_of_year(decade), -18261.0), day_of_year(decade + 10));
        ChainErrors errors;
        for (long i = 0; i < count; ++i)
            errors.add(library, one_row, std::fmin(days(random), 36523.0), random_direction(random, kRadius));
        std::printf("| %d to %d", decade, decade + 9);
        for (Spread &s : errors.of)
            std::printf(" | %.2f / %.2f", s.median(), s.largest());
        std::printf(" |\n");
    }
}

void write_years(Library &library, kl_time_id *one_row, const char *path)
{
    std::FILE *file = std::fopen(path, "w");
    if (file == nullptr)
        fail(path);
    std::fprintf(file, "year,GM2000 beside EME2000,GM2000 taken for GCRS,MOD,TOD,TEME\n");
    std::mt19937_64 random(9);
    for (int year = 1950; year < 2100; ++year) {
        ChainErrors errors;
        for (int i = 0; i < 400; ++i) {
            const double tai = day_of_year(year) + 0.91 * i;
            errors.add(library, one_row, std::fmin(std::fmax(tai, -18261.0), 36523.0),
                       random_direction(random, kRadius));
        }
        std::fprintf(file, "%d", year);
        for (Spread &s : errors.of)
            std::fprintf(file, ",%.4f", s.largest());
        std::fprintf(file, "\n");
    }
    std::fclose(file);
}

} // namespace

void compare_iers(Library &library, const std::vector<double> &instants, const char *years)
{
    const double readings[4] = {0.0, -37.0 / kDay, -kTaiMinusUt1 / kDay, -19.0 / kDay};
    kl_time_id one_row = {}, built_in = {};
    const long no_files = 0, all = KL_TIME_WINDOW_FILE;
    if (kl_time_ref_init(readings, nullptr, nullptr, nullptr, &one_row, nullptr) != KL_OK
        || kl_time_id_init(&no_files, nullptr, nullptr, &all, nullptr, nullptr, nullptr, &built_in, nullptr) == KL_ERR)
        fail("a time id");
    const std::vector<double> fewer(instants.begin(), instants.begin() + static_cast<long>(instants.size() / 5));
    std::printf("\n## Frames of the IERS Conventions, %zu instants, against ERFA with the same UT1 and pole\n\n"
                "| quantity | unit | median | 99 %% | maximum | cause of the difference |\n|---|---|---|---|---|---|\n",
                fewer.size());
    compare_with_erfa(&one_row, fewer);
    compare_with_pole(&built_in, static_cast<long>(fewer.size()));
    compare_decades(library, &one_row, static_cast<long>(instants.size() / 50));
    write_years(library, &one_row, years);
    kl_time_close(&one_row, nullptr);
    kl_time_close(&built_in, nullptr);
}
