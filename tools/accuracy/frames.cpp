// All pairs of frames against ERFA: its chains of 1976/1980/1982 and of 2006/2000A, EPV00, its star routines.
#include "sky.h"

// The IAU 1976/1980/1982 chain of ERFA, zero pole.
Chain chain_1976(const Dates &date)
{
    Chain c;
    eraPmat76(kEpoch2000, date.tt, c.precession);
    eraNutm80(kEpoch2000, date.tt, c.nutation);
    eraIr(c.teme);
    eraRz(eraEqeq94(kEpoch2000, date.tt), c.teme);
    c.sidereal = eraGst94(kEpoch2000, date.ut1);
    eraIr(c.rotation);
    eraRz(c.sidereal, c.rotation);
    return c;
}

// The IAU 2006/2000A chain with the equinox, zero pole. One nutation series for all of it.
Chain chain_2006(const Dates &date)
{
    Chain c;
    double dpsi = 0.0;
    double deps = 0.0;
    double obliquity = 0.0;
    double bias[3][3];
    double precession[3][3];
    double all[3][3];
    eraPn06a(kEpoch2000, date.tt, &dpsi, &deps, &obliquity, bias, precession, c.precession, c.nutation, all);
    c.sidereal = eraGst06(kEpoch2000, date.ut1, kEpoch2000, date.tt, all);
    eraIr(c.teme);
    eraRz(c.sidereal - eraGmst06(kEpoch2000, date.ut1, kEpoch2000, date.tt), c.teme);
    eraIr(c.rotation);
    eraRz(c.sidereal, c.rotation);
    return c;
}

namespace {

// A vector of GM2000 in each frame of the Earth's chain.
std::array<Vector, 12> through_chain(const Chain &c, const Vector &gm2000)
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

void compare_chain(Library &library, const std::vector<double> &instants, const char *title, ChainOf chain,
                   const Causes &causes)
{
    heading(title);
    std::mt19937_64 random(20000101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Pair pairs[6][6];
    Spread velocity;
    for (const double tai : instants) {
        const auto random_vector = [&](double size) {
            const Vector v = {unit(random), unit(random), unit(random)};
            return scaled(v, size / length(v));
        };
        const Vector p = random_vector(7.0e6);
        const Motion satellite = {p, random_vector(8.0e3)};
        velocity.add(length(minus(library.frame(KL_GM2000, KL_EF, tai, satellite).vel,
                                  EarthFixed(chain, dates_of(tai))(satellite).vel)));
        const Chain c = chain(dates_of(tai));
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
                                         causes.of(a.id, b.id));
        }
    velocity.print("GM2000 to EF, velocity at 7000 km and 8 km/s", "m/s", causes.of(KL_GM2000, KL_PEF));
    std::printf(
        "\nEach row of a pair holds both its ways; they are alike within %.1g m. The pole being zero, PEF stands for "
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
    heading("B1950 and galactic directions, against ERFA's star routines (FK54Z, ICRS2G)");
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
    fk4.print("BM2000 and BM1950", "mas", "the two published matrices of FK4 drift apart from 1950 on");
    galactic.print("BM2000 and GALACTIC", "mas", "the two published matrices: one turn apart, the maximum");
    both.print("BM1950 and GALACTIC", "mas", "a fixed matrix, while FK4 turns by 0.5 arcsec a century from 1950 on");
}

// A point 7000 km from the Earth, carried between the frames about the Earth and those about Sun and barycentre, and
// between the latter.
void compare_outer_frames(Library &library, const std::vector<double> &instants)
{
    constexpr std::size_t kOuter = 4;
    constexpr std::size_t kAll = 7;
    constexpr Frame kRows[kOuter] = {
        {KL_HM2000, "HM2000"}, {KL_BM2000, "BM2000"}, {KL_BM1950, "BM1950"}, {KL_GALACTIC, "GALACTIC"}};
    std::mt19937_64 random(20000101);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Pair pairs[kOuter][kAll];
    for (const double tai : instants) {
        Vector p = {unit(random), unit(random), unit(random)};
        p = scaled(p, 7.0e6 / length(p));
        std::array<Vector, 12> reference = through_chain(chain_2006(dates_of(tai)), p);
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
        for (std::size_t i = 0; i < kOuter; ++i)
            for (std::size_t j = 0; j < kAll; ++j) {
                const Frame &other = j < 6 ? kEarthFrames[j] : kRows[0];
                if (other.id != kRows[i].id)
                    pairs[i][j].add(carried(library, tai, kRows[i].id, reference[static_cast<std::size_t>(kRows[i].id)],
                                            other.id, reference[static_cast<std::size_t>(other.id)]),
                                    1e-3);
            }
    }
    constexpr const char *kCauses[2][kOuter] = {
        {"the astronomical unit; Stumpff's Earth about the Sun", "the same; Stumpff's Sun, see below", "the same",
         "the same; the galactic matrices of the next table"},
        {"", "Stumpff's Sun about the barycentre: ellipses of four planets to first order", "the same",
         "the same; the galactic matrices of the next table"}};
    std::printf(
        "\n## Frames about the Sun and the barycentre, against ERFA (EPV00, star routines, IAU 2006/2000A)\n\n"
        "Both ways of every pair, a point 7000 km from the Earth, km. Each cell is median / 99 %% / maximum.\n\n"
        "| and | HM2000 | BM2000 | BM1950 | GALACTIC |\n|---|---|---|---|---|\n");
    for (std::size_t j = 0; j < kAll; ++j) {
        std::printf("| %s |", j < 6 ? kEarthFrames[j].name : kRows[0].name);
        for (std::size_t i = 0; i < kOuter; ++i)
            std::printf(" %s |", j == 6 && i == 0 ? "" : pairs[i][j].spread.cell().c_str());
        std::printf("\n");
        if (j == 5 || j == 6) {
            std::printf("| cause |");
            for (const char *cause : kCauses[j - 5])
                std::printf(" %s |", cause);
            std::printf("\n");
        }
    }
    std::printf("\nThe pairs of BM2000, BM1950 and GALACTIC among themselves are turns alone: the next table.\n");
}

} // namespace

void compare_frames(Library &library, const std::vector<double> &instants)
{
    compare_chain(library, instants, "Earth's frames, against ERFA's IAU 1976/1980/1982 routines", chain_1976,
                  {"nine nutation terms of 106", "precession angles in rounded degrees; UT1 in place of TT",
                   "equation of the equinoxes at UT1 and at TT; no cubic term of sidereal time", true});
    compare_chain(
        library, instants, "Earth's frames, against ERFA's IAU 2006/2000A routines", chain_2006,
        {"nine nutation terms of 1365", "the older precession rate, no frame bias", "the older sidereal time", false});
    compare_outer_frames(library, instants);
    compare_stars(library, instants);
}
