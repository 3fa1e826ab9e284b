// Compares the library with independent public ones at random instants of 1950 to 2099 and writes the tables of
// docs/accuracy.md to standard output. tools/accuracy/run.sh builds and runs it.
#include "kl_lib.h"

#include <erfa.h>
#include <erfam.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr long kInstants = 100000;
constexpr double kEpoch2000 = 2451544.5; // Julian date of MJD2000 0
constexpr double kTtMinusTai = 32.184;   // s
constexpr double kTaiMinusUt1 = 37.0;    // s: the one row of the time id, so that both sides have the same UT1
constexpr double kArcsec = 206264.80624709636;
constexpr double kAu = 149597870700.0;  // m
constexpr double kLibraryAu = 1.496e11; // m: the library's factor
constexpr double kDay = 86400.0;

using Vector = std::array<double, 3>;

double length(const Vector &v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

Vector minus(const Vector &a, const Vector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector scaled(const Vector &a, double s)
{
    return {a[0] * s, a[1] * s, a[2] * s};
}

Vector turned(double (*r)[3], const Vector &v)
{
    Vector out{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            out[i] += r[i][j] * v[j];
    return out;
}

double angle_arcsec(const Vector &a, const Vector &b)
{
    const Vector c = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    return std::atan2(length(c), a[0] * b[0] + a[1] * b[1] + a[2] * b[2]) * kArcsec;
}

// Median, 99th percentile and maximum of a set of differences.
class Spread {
public:
    void add(double x) { values_.push_back(std::fabs(x)); }

    void print(const std::string &what, const char *unit, const char *cause)
    {
        std::sort(values_.begin(), values_.end());
        const auto at = [&](double share) {
            return values_[static_cast<std::size_t>(share * static_cast<double>(values_.size() - 1))];
        };
        std::printf("| %s | %s | %.3g | %.3g | %.3g | %s |\n", what.c_str(), unit, at(0.5), at(0.99), at(1.0), cause);
    }

private:
    std::vector<double> values_;
};

void heading(const char *title)
{
    std::printf("\n## %s\n\n| quantity | unit | median | 99 %% | maximum | cause of the difference "
                "|\n|---|---|---|---|---|---|\n",
                title);
}

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "accuracy: %s failed\n", what);
    std::exit(EXIT_FAILURE);
}

// The two parts of a Julian date in TT and UT1 of a TAI instant.
struct Dates {
    double tt, ut1; // days since kEpoch2000
};

Dates dates_of(double tai)
{
    return {tai + kTtMinusTai / kDay, tai - kTaiMinusUt1 / kDay};
}

class Library {
public:
    Library()
    {
        const double tri[4] = {0.0, -37.0 / kDay, -kTaiMinusUt1 / kDay, -19.0 / kDay};
        if (kl_time_ref_init(tri, nullptr, nullptr, nullptr, &time_, nullptr) != KL_OK)
            fail("kl_time_ref_init");
    }
    ~Library() { kl_time_close(&time_, nullptr); }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    // Body 0 the Sun, 10 the Moon, else a planet.
    Vector body(long body, double tai)
    {
        Vector pos{};
        double vel[3];
        const long ref = KL_TIME_TAI;
        const long status = body == 0    ? kl_sun(nullptr, &time_, &ref, &tai, pos.data(), vel, nullptr)
                            : body == 10 ? kl_moon(nullptr, &time_, &ref, &tai, pos.data(), vel, nullptr)
                                         : kl_planet(nullptr, &time_, &body, &ref, &tai, pos.data(), vel, nullptr);
        if (status == KL_ERR)
            fail("a body");
        return pos;
    }

    Vector frame(long from, long to, double tai, const Vector &pos)
    {
        const long mode = KL_CALC_POS;
        const long ref = KL_TIME_TAI;
        const double zero[3] = {0.0, 0.0, 0.0};
        Vector out{};
        double vel[3];
        double acc[3];
        if (kl_change_cart_cs(nullptr, &time_, &mode, &from, &to, &ref, &tai, pos.data(), zero, zero, out.data(), vel,
                              acc, nullptr)
            == KL_ERR)
            fail("kl_change_cart_cs");
        return out;
    }

private:
    kl_time_id time_ = {nullptr};
};

// ---- bodies -------------------------------------------------------------------------------------------------------

// The geocentric body in the celestial frame of ERFA, metres.
Vector erfa_body(long body, const Dates &date)
{
    double helio[2][3];
    double bary[2][3];
    eraEpv00(kEpoch2000, date.tt, helio, bary);
    const Vector earth = {helio[0][0], helio[0][1], helio[0][2]};
    if (body == 0)
        return scaled(earth, -kAu);
    double pv[2][3];
    if (body == 10)
        eraMoon98(kEpoch2000, date.tt, pv);
    else
        eraPlan94(kEpoch2000, date.tt, static_cast<int>(body), pv);
    const Vector p = {pv[0][0], pv[0][1], pv[0][2]};
    return scaled(body == 10 ? p : minus(p, earth), kAu);
}

void compare_bodies(Library &library, const std::vector<double> &instants)
{
    static const char *const kNames[] = {"Sun",     "Mercury", "Venus",  "Earth-Moon barycentre",
                                         "Mars",    "Jupiter", "Saturn", "Uranus",
                                         "Neptune", "",        "Moon"};
    heading("Bodies in the Earth-fixed frame, against ERFA (EPV00, MOON98, PLAN94; IAU 2006/2000A)");
    for (const long body : {0L, 10L, 1L, 2L, 3L, 4L, 5L, 6L, 7L, 8L}) {
        Spread direction;
        Spread distance;
        Spread without_unit;
        for (const double tai : instants) {
            const Dates date = dates_of(tai);
            double to_earth_fixed[3][3];
            eraC2t06a(kEpoch2000, date.tt, kEpoch2000, date.ut1, 0.0, 0.0, to_earth_fixed);
            const Vector reference = turned(to_earth_fixed, erfa_body(body, date));
            const Vector ours = library.body(body, tai);
            direction.add(angle_arcsec(ours, reference));
            distance.add((length(ours) - length(reference)) / 1000.0);
            without_unit.add((length(ours) * (kAu / kLibraryAu) - length(reference)) / 1000.0);
        }
        const std::string name = kNames[body];
        direction.print(name + ", direction", "arcsec",
                        body == 0                          ? "Stumpff's theory, nine-term nutation"
                        : body == 10                       ? "Meeus' truncation"
                        : body == KL_EARTH_MOON_BARYCENTRE ? "4700 km away: the kilometres of the Earth's place"
                                                           : "mean elements; Stumpff's Earth");
        distance.print(name + ", distance", "km", "the rounded astronomical unit, 1.42e-5, and the theory");
        without_unit.print(name + ", distance without the unit", "km", "the theory");
    }
}

// ---- frames -------------------------------------------------------------------------------------------------------

struct Chain {
    double precession[3][3], nutation[3][3], teme[3][3], rotation[3][3];
};

// The IAU 1976/1980/1982 chain of ERFA, zero pole.
Chain chain_1976(const Dates &date)
{
    Chain c;
    eraPmat76(kEpoch2000, date.tt, c.precession);
    eraNutm80(kEpoch2000, date.tt, c.nutation);
    eraIr(c.teme);
    eraRz(eraEqeq94(kEpoch2000, date.tt), c.teme);
    eraIr(c.rotation);
    eraRz(eraGst94(kEpoch2000, date.ut1), c.rotation);
    return c;
}

// The IAU 2006/2000A chain with the equinox, zero pole.
Chain chain_2006(const Dates &date)
{
    Chain c;
    double bias[3][3];
    double precession[3][3];
    double bias_precession[3][3];
    eraBp06(kEpoch2000, date.tt, bias, precession, bias_precession);
    eraCr(bias_precession, c.precession);
    eraNum06a(kEpoch2000, date.tt, c.nutation);
    eraIr(c.teme);
    eraRz(eraEe06a(kEpoch2000, date.tt), c.teme);
    eraIr(c.rotation);
    eraRz(eraGst06a(kEpoch2000, date.ut1, kEpoch2000, date.tt), c.rotation);
    return c;
}

// A vector of GM2000 in each frame of the Earth's chain.
std::array<Vector, 12> through_chain(Chain &c, const Vector &gm2000)
{
    std::array<Vector, 12> out{};
    out[KL_GM2000] = gm2000;
    out[KL_MOD] = turned(c.precession, gm2000);
    out[KL_TOD] = turned(c.nutation, out[KL_MOD]);
    out[KL_TEME] = turned(c.teme, out[KL_TOD]);
    out[KL_PEF] = turned(c.rotation, out[KL_TOD]);
    out[KL_EF] = out[KL_PEF];
    return out;
}

void compare_frames(Library &library, const std::vector<double> &instants, const char *title,
                    Chain (*chain)(const Dates &), const char *cause)
{
    struct Frame {
        long id;
        const char *name;
    };
    constexpr Frame kFrames[] = {{KL_GM2000, "GM2000"}, {KL_MOD, "MOD"}, {KL_TOD, "TOD"},
                                 {KL_TEME, "TEME"},     {KL_PEF, "PEF"}, {KL_EF, "EF"}};
    heading(title);
    std::mt19937_64 random(20000101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Spread spread[6][6];
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 7.0e6 / length(p));
        Chain c = chain(dates_of(tai));
        const std::array<Vector, 12> reference = through_chain(c, p);
        for (std::size_t i = 0; i < 6; ++i)
            for (std::size_t j = 0; j < 6; ++j)
                if (i != j) {
                    const auto from = static_cast<std::size_t>(kFrames[i].id);
                    const auto to = static_cast<std::size_t>(kFrames[j].id);
                    spread[i][j].add(length(
                        minus(library.frame(kFrames[i].id, kFrames[j].id, tai, reference[from]), reference[to])));
                }
    }
    for (std::size_t i = 0; i < 6; ++i)
        for (std::size_t j = 0; j < 6; ++j)
            if (i != j)
                spread[i][j].print(std::string(kFrames[i].name) + " to " + kFrames[j].name + ", 7000 km", "m", cause);
}

void compare_stars(Library &library, const std::vector<double> &instants)
{
    heading("B1950 and galactic directions, against ERFA's star routines");
    std::mt19937_64 random(19500101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Spread fk4;
    Spread galactic;
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 1.0 / length(p));
        double ra = 0.0;
        double dec = 0.0;
        eraC2s(p.data(), &ra, &dec);
        ra = eraAnp(ra);
        // FK4 at the Besselian epoch of the instant, E-terms taken off on the FK4 side.
        const double epoch = eraEpb(kEpoch2000, tai + kTtMinusTai / kDay);
        double ra4 = 0.0;
        double dec4 = 0.0;
        double dr = 0.0;
        double dd = 0.0;
        eraFk54z(ra, dec, epoch, &ra4, &dec4, &dr, &dd);
        Vector star{};
        eraS2c(ra4, dec4, star.data());
        const Vector e_terms = {-1.62557e-6, -0.31919e-6, -0.13843e-6}; // rad, B1950 (Standish 1982)
        const double along = star[0] * e_terms[0] + star[1] * e_terms[1] + star[2] * e_terms[2];
        for (std::size_t i = 0; i < 3; ++i)
            star[i] -= e_terms[i] - along * star[i];
        star = scaled(star, 1.0 / length(star));
        fk4.add(1000.0 * angle_arcsec(library.frame(KL_BM2000, KL_BM1950, tai, p), star));

        double l = 0.0;
        double b = 0.0;
        eraIcrs2g(ra, dec, &l, &b);
        Vector g{};
        eraS2c(l, b, g.data());
        galactic.add(1000.0 * angle_arcsec(library.frame(KL_BM2000, KL_GALACTIC, tai, p), g));
    }
    fk4.print("BM2000 to BM1950", "mas", "spin of the FK4 frame: 13.4 mas a century between the published matrices");
    galactic.print("BM2000 to GALACTIC", "mas", "the two published matrices: 2.1e-6 rad apart");
}

// ---- time scales --------------------------------------------------------------------------------------------------

void compare_scales()
{
    heading("Time scales, against ERFA (every leap second of ERFA's table that a row pair can hold)");
    Spread utc_tai;
    Spread utc_ut1;
    std::mt19937_64 random(19720101);
    for (int year = 1972; year <= 2026; ++year)
        for (const int month : {1, 7}) {
            double mjd0 = 0.0;
            double mjd = 0.0;
            double before = 0.0;
            double after = 0.0;
            eraCal2jd(year, month, 1, &mjd0, &mjd);
            eraDat(year, month, 1, 0.0, &after);
            if (year == 1972 && month == 1)
                continue;
            eraDat(month == 1 ? year - 1 : year, month == 1 ? 12 : 6, month == 1 ? 31 : 30, 0.0, &before);
            const double day = mjd - 51544.0;
            kl_time_row rows[4];
            for (int i = 0; i < 4; ++i) {
                const double utc = day + (i < 2 ? i - 2 : i - 1) * 1.0 + (i >= 2 ? -1.0 : 0.0);
                const double tai_utc = i < 2 ? before : after;
                const double tai = utc + tai_utc / kDay;
                rows[i] = {tai, tai - 0.3 / kDay - before / kDay, utc, tai_utc, before + 0.3, 19.0};
            }
            kl_time_id_data data = {};
            data.model = 1;
            data.combination = -1;
            data.no_extrapolation = 1;
            data.n_rows = 4;
            data.rows = rows;
            kl_time_id id = {nullptr};
            if (kl_time_set_id_data(&id, &data) != 0)
                fail("kl_time_set_id_data");
            std::uniform_real_distribution<double> instant(day - 1.9, day + 0.9);
            for (int i = 0; i < 1000; ++i) {
                const double utc = std::floor(instant(random) * 8.64e10) / 8.64e10;
                const long format = KL_PROC;
                const long from = KL_TIME_UTC;
                const long tai = KL_TIME_TAI;
                const long ut1 = KL_TIME_UT1;
                double ours = 0.0;
                double theirs[2];
                if (kl_time_processing_to_processing(&id, &format, &from, &utc, &format, &tai, &ours, nullptr)
                    == KL_ERR)
                    fail("UTC to TAI");
                // ERFA's UTC day is stretched on the day of a leap second: give it the calendar.
                const double whole = std::floor(utc);
                const double seconds = (utc - whole) * kDay;
                int y = 0;
                int m = 0;
                int d = 0;
                double fraction = 0.0;
                eraJd2cal(kEpoch2000, whole, &y, &m, &d, &fraction);
                double u1 = 0.0;
                double u2 = 0.0;
                eraDtf2d("UTC", y, m, d, static_cast<int>(seconds / 3600.0),
                         static_cast<int>(std::fmod(seconds, 3600.0) / 60.0), std::fmod(seconds, 60.0), &u1, &u2);
                eraUtctai(u1, u2, &theirs[0], &theirs[1]);
                utc_tai.add((ours - ((theirs[0] - kEpoch2000) + theirs[1])) * kDay * 1e6);
                if (kl_time_processing_to_processing(&id, &format, &from, &utc, &format, &ut1, &ours, nullptr)
                    == KL_ERR)
                    fail("UTC to UT1");
                double a = 0.0;
                double b = 0.0;
                eraTaiut1(theirs[0], theirs[1], -(before + 0.3), &a, &b);
                utc_ut1.add((ours - ((a - kEpoch2000) + b)) * kDay * 1e6);
            }
            kl_time_close(&id, nullptr);
        }
    utc_tai.print("UTC to TAI around 109 half-year ends", "us", "rounding to the microsecond grid");
    utc_ut1.print("UTC to UT1", "us", "rounding to the microsecond grid");
}

} // namespace

int main()
{
    std::mt19937_64 random(19691231);
    std::uniform_real_distribution<double> days(-18261.0, 36523.0);
    std::vector<double> instants(kInstants);
    for (double &t : instants)
        t = days(random);

    std::printf("# Accuracy\n\nWritten by `tools/accuracy/run.sh`: %ld random instants of 1950 to 2099 in each row.\n"
                "TT and UT1 are the same on both sides; polar motion is zero.\n",
                kInstants);
    Library library;
    compare_bodies(library, instants);
    compare_frames(library, instants, "Earth's frames, against ERFA's IAU 1976/1980/1982 routines", chain_1976,
                   "nine nutation terms of 106; UT1 in place of TT; rounded precession");
    compare_frames(library, instants, "Earth's frames, against ERFA's IAU 2006/2000A routines", chain_2006,
                   "the older theory: precession rate, frame bias, nutation");
    compare_stars(library, instants);
    compare_scales();
    return EXIT_SUCCESS;
}
