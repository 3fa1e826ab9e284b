// Compares the library with independent public ones at random instants of 1950 to 2099 and writes the tables of
// docs/accuracy.md to standard output, the last one with its first row only: fidelity.py adds the others.
// tools/accuracy/run.sh builds and runs both.
#include "kl_lib.h"
#include "table.h"

#include <erfa.h>
#include <erfam.h>

#include <array>

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
    struct Spreads {
        Spread direction, distance, without_unit;
    };
    std::array<Spreads, 11> spreads;
    constexpr long kBodies[] = {0, 10, 1, 2, 3, 4, 5, 6, 7, 8};
    for (const double tai : instants) {
        const Dates date = dates_of(tai);
        double to_earth_fixed[3][3];
        eraC2t06a(kEpoch2000, date.tt, kEpoch2000, date.ut1, 0.0, 0.0, to_earth_fixed);
        for (const long body : kBodies) {
            const Vector reference = turned(to_earth_fixed, erfa_body(body, date));
            const Vector ours = library.body(body, tai);
            Spreads &spread = spreads[static_cast<std::size_t>(body)];
            spread.direction.add(angle_arcsec(ours, reference));
            spread.distance.add((length(ours) - length(reference)) / 1000.0);
            spread.without_unit.add((length(ours) * (kAu / kLibraryAu) - length(reference)) / 1000.0);
        }
    }
    for (const long body : kBodies) {
        const std::string name = kNames[body];
        Spreads &spread = spreads[static_cast<std::size_t>(body)];
        spread.direction.print(name + ", direction", "arcsec",
                               body == 0                          ? "Stumpff's theory, nine-term nutation"
                               : body == 10                       ? "Meeus' truncation"
                               : body == KL_EARTH_MOON_BARYCENTRE ? "4700 km away: the kilometres of the Earth's place"
                                                                  : "mean elements; Stumpff's Earth");
        spread.distance.print(name + ", distance", "km", "the rounded astronomical unit, 1.42e-5, and the theory");
        spread.without_unit.print(name + ", distance without the unit", "km", "the theory");
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

struct Frame {
    long id;
    const char *name;
};
constexpr Frame kEarthFrames[] = {{KL_GM2000, "GM2000"}, {KL_MOD, "MOD"}, {KL_TOD, "TOD"},
                                  {KL_TEME, "TEME"},     {KL_PEF, "PEF"}, {KL_EF, "EF"}};

// How far the library carries a state from its reference in one frame to its reference in another, and back.
struct ThereAndBack {
    double there, back;
};

ThereAndBack carried(Library &library, double tai, long a, const Vector &in_a, long b, const Vector &in_b)
{
    return {length(minus(library.frame(a, b, tai, in_a), in_b)), length(minus(library.frame(b, a, tai, in_b), in_a))};
}

// Both ways between two frames.
struct Pair {
    Spread spread;
    double unlike = 0.0; // the two ways, at most

    void add(const ThereAndBack &apart, double scale = 1.0)
    {
        spread.add(apart.there * scale);
        spread.add(apart.back * scale);
        unlike = std::fmax(unlike, std::fabs(apart.there - apart.back));
    }
};

// Causes of the differences by the steps that lie between two frames; the nutation may hide the others.
struct Causes {
    std::string nutation, precession, sidereal;
    bool nutation_hides;

    std::string of(long a, long b) const
    {
        const bool crosses_nutation = !(a == KL_GM2000 && b == KL_MOD) && a != KL_TEME;
        std::string out = crosses_nutation ? nutation : "";
        const auto also = [&](bool there, const std::string &cause) {
            if (there && !(crosses_nutation && nutation_hides))
                out += (out.empty() ? "" : "; ") + cause;
        };
        also(a == KL_GM2000, precession);
        also(b == KL_PEF, sidereal);
        return out;
    }
};

void compare_frames(Library &library, const std::vector<double> &instants, const char *title,
                    Chain (*chain)(const Dates &), const Causes &causes)
{
    heading(title);
    std::mt19937_64 random(20000101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Pair pairs[6][6];
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 7.0e6 / length(p));
        Chain c = chain(dates_of(tai));
        const std::array<Vector, 12> reference = through_chain(c, p);
        for (std::size_t i = 0; i < 6; ++i)
            for (std::size_t j = i + 1; j < 6; ++j) {
                const long a = kEarthFrames[i].id;
                const long b = kEarthFrames[j].id;
                pairs[i][j].add(carried(library, tai, a, reference[static_cast<std::size_t>(a)], b,
                                        reference[static_cast<std::size_t>(b)]));
            }
    }
    constexpr std::size_t kPef = 4;
    constexpr std::size_t kEf = 5;
    double unlike = 0.0;
    double ef_unlike = pairs[kPef][kEf].spread.largest();
    for (std::size_t i = 0; i < kPef; ++i)
        ef_unlike = std::fmax(ef_unlike, pairs[i][kEf].spread.apart(pairs[i][kPef].spread));
    for (std::size_t i = 0; i < 6; ++i)
        for (std::size_t j = i + 1; j < 6; ++j) {
            const Frame &a = kEarthFrames[i];
            const Frame &b = kEarthFrames[j];
            unlike = std::fmax(unlike, pairs[i][j].unlike);
            if (j != kEf)
                pairs[i][j].spread.print(std::string(a.name) + " and " + b.name + ", 7000 km", "m",
                                         causes.of(a.id, b.id).c_str());
        }
    std::printf(
        "\nEach row holds both ways of its pair; they are alike within %.1g m. The pole being zero, PEF stands for "
        "EF\nin every row: EF was measured too, and is like it within %.1g m.\n",
        unlike, ef_unlike);
}

// A direction of GM2000 in B1950: FK4 at the Besselian epoch of the instant, E-terms taken off on the FK4 side.
Vector in_b1950(double tai, const Vector &direction)
{
    double ra = 0.0;
    double dec = 0.0;
    eraC2s(const_cast<double *>(direction.data()), &ra, &dec);
    double ra4 = 0.0;
    double dec4 = 0.0;
    double dr = 0.0;
    double dd = 0.0;
    eraFk54z(eraAnp(ra), dec, eraEpb(kEpoch2000, tai + kTtMinusTai / kDay), &ra4, &dec4, &dr, &dd);
    Vector star{};
    eraS2c(ra4, dec4, star.data());
    const Vector e_terms = {-1.62557e-6, -0.31919e-6, -0.13843e-6}; // rad, B1950 (Standish 1982)
    const double along = star[0] * e_terms[0] + star[1] * e_terms[1] + star[2] * e_terms[2];
    for (std::size_t i = 0; i < 3; ++i)
        star[i] -= e_terms[i] - along * star[i];
    return scaled(star, 1.0 / length(star));
}

Vector in_galactic(const Vector &direction)
{
    double ra = 0.0;
    double dec = 0.0;
    eraC2s(const_cast<double *>(direction.data()), &ra, &dec);
    double l = 0.0;
    double b = 0.0;
    eraIcrs2g(eraAnp(ra), dec, &l, &b);
    Vector galactic{};
    eraS2c(l, b, galactic.data());
    return galactic;
}

void compare_stars(Library &library, const std::vector<double> &instants)
{
    heading("B1950 and galactic directions, against ERFA's star routines");
    std::mt19937_64 random(19500101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Spread fk4;
    Spread galactic;
    Spread both;
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 1.0 / length(p));
        const Vector star = in_b1950(tai, p);
        const Vector g = in_galactic(p);
        fk4.add(1000.0 * angle_arcsec(library.frame(KL_BM2000, KL_BM1950, tai, p), star));
        fk4.add(1000.0 * angle_arcsec(library.frame(KL_BM1950, KL_BM2000, tai, star), p));
        galactic.add(1000.0 * angle_arcsec(library.frame(KL_BM2000, KL_GALACTIC, tai, p), g));
        galactic.add(1000.0 * angle_arcsec(library.frame(KL_GALACTIC, KL_BM2000, tai, g), p));
        both.add(1000.0 * angle_arcsec(library.frame(KL_BM1950, KL_GALACTIC, tai, star), g));
        both.add(1000.0 * angle_arcsec(library.frame(KL_GALACTIC, KL_BM1950, tai, g), star));
    }
    fk4.print("BM2000 and BM1950", "mas", "spin of the FK4 frame: 13.4 mas a century between the published matrices");
    galactic.print("BM2000 and GALACTIC", "mas", "the two published matrices: 2.1e-6 rad apart");
    both.print("BM1950 and GALACTIC", "mas", "a fixed matrix, while FK4 turns by 0.5 arcsec a century from 1950 on");
}

// A point 7000 km from the Earth, carried between the frames about the Earth and those about Sun and barycentre.
void compare_outer_frames(Library &library, const std::vector<double> &instants)
{
    heading("Frames about the Sun and the barycentre, against ERFA (EPV00, star routines, IAU 2006/2000A)");
    constexpr Frame kOuter[] = {
        {KL_HM2000, "HM2000"}, {KL_BM2000, "BM2000"}, {KL_BM1950, "BM1950"}, {KL_GALACTIC, "GALACTIC"}};
    std::mt19937_64 random(20000101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Pair with_earth[4];
    Pair with_sun;
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 7.0e6 / length(p));
        Chain c = chain_2006(dates_of(tai));
        std::array<Vector, 12> reference = through_chain(c, p);
        double helio[2][3];
        double bary[2][3];
        eraEpv00(kEpoch2000, dates_of(tai).tt, helio, bary);
        for (std::size_t i = 0; i < 3; ++i) {
            reference[KL_BM2000][i] = p[i] + kAu * bary[0][i];
            reference[KL_HM2000][i] = p[i] + kAu * helio[0][i];
        }
        const double far = length(reference[KL_BM2000]);
        reference[KL_BM1950] = scaled(in_b1950(tai, scaled(reference[KL_BM2000], 1.0 / far)), far);
        reference[KL_GALACTIC] = scaled(in_galactic(reference[KL_BM2000]), far);
        const auto apart = [&](const Frame &a, const Frame &b) {
            return carried(library, tai, a.id, reference[static_cast<std::size_t>(a.id)], b.id,
                           reference[static_cast<std::size_t>(b.id)]);
        };
        for (std::size_t i = 0; i < 4; ++i) {
            for (const Frame &frame : kEarthFrames)
                with_earth[i].add(apart(kOuter[i], frame), 1e-3);
            if (kOuter[i].id != KL_HM2000)
                with_sun.add(apart(kOuter[i], kOuter[0]), 1e-3);
        }
    }
    for (std::size_t i = 0; i < 4; ++i)
        with_earth[i].spread.print(std::string(kOuter[i].name) + " and each of the six frames of the Earth", "km",
                                   kOuter[i].id == KL_GALACTIC ? "the same; the two galactic matrices, 2.1e-6 rad apart"
                                   : kOuter[i].id == KL_HM2000
                                       ? "the rounded astronomical unit, 1.42e-5, and the theory of the Earth"
                                       : "the same; Stumpff's Sun about the barycentre");
    with_sun.spread.print("HM2000 and each of BM2000, BM1950, GALACTIC", "km",
                          "Stumpff's Sun about the barycentre; the galactic matrices");
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

int main(int argc, char **argv)
{
    if (argc != 2)
        fail("the directory with the listings of the geoid: its argument");
    std::mt19937_64 random(19691231);
    std::uniform_real_distribution<double> days(-18261.0, 36523.0);
    std::vector<double> instants(kInstants);
    for (double &t : instants)
        t = days(random);

    std::printf("# Accuracy\n\nWritten by `tools/accuracy/run.sh`: %ld random instants of 1950 to 2099 in each row. "
                "The first tables "
                "are the error of the\nmodel: the library against independent ones. The last, \"Fidelity to our own "
                "formulas\", "
                "is what rounding adds to it.\n\nTT and UT1 are the same on both sides; polar motion is zero.\n",
                kInstants);
    Library library;
    compare_bodies(library, instants);
    compare_frames(library, instants, "Earth's frames, against ERFA's IAU 1976/1980/1982 routines", chain_1976,
                   {"nine nutation terms of 106", "UT1 in place of TT; precession angles in rounded degrees",
                    "equation of the equinoxes at UT1 and at TT; UT1 on the microsecond grid", true});
    compare_frames(
        library, instants, "Earth's frames, against ERFA's IAU 2006/2000A routines", chain_2006,
        {"nine nutation terms of 1365", "the older precession rate, no frame bias", "the older sidereal time", false});
    compare_outer_frames(library, instants);
    compare_stars(library, instants);
    compare_geoid(argv[1]);
    compare_scales();
    std::printf("\n## Fidelity to our own formulas\n\n"
                "The same formulas once more in 33 digits (geoid) and 40 (all else), by other routes: every sine of "
                "its own argument,\n"
                "rates by differences, Legendre functions downward in order. Constants are taken as their decimals in "
                "frames, geoid and\n"
                "time scales. 1000 random instants; 250 for the planets and for each public call of a body, 500 for "
                "each way of the chain;\n"
                "4000 rotations. u = 2^-53 of the value: of a vector's length, of the largest number of the sample.\n\n"
                "| quantity | unit | median | 99 %% | maximum | median, u | 99 %%, u | maximum, u | what makes it |\n"
                "|---|---|---|---|---|---|---|---|---|\n");
    geoid_fidelity(argv[1]);
    return EXIT_SUCCESS;
}
