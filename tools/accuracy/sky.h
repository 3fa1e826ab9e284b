// What the comparisons of bodies and frames share: vectors, dates, the library's calls, ERFA's chain of frames.
#ifndef KL_TOOLS_ACCURACY_SKY_H
#define KL_TOOLS_ACCURACY_SKY_H

#include "kl_lib.h"
#include "table.h"

#include <erfa.h>

#include <array>

constexpr double kEpoch2000 = 2451544.5; // Julian date of MJD2000 0
constexpr double kTtMinusTai = 32.184;   // s
constexpr double kTaiMinusUt1 = 37.0;    // s: the one row of the time id, so that both sides have the same UT1
constexpr double kArcsec = 206264.80624709636;
constexpr double kAu = 149597870700.0;  // m
constexpr double kLibraryAu = 1.496e11; // m: the library's factor
constexpr double kDay = 86400.0;

using Vector = std::array<double, 3>;

struct Motion {
    Vector pos, vel; // m, m/s
};

inline double length(const Vector &v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

inline Vector minus(const Vector &a, const Vector &b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline Vector plus(const Vector &a, const Vector &b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

inline Vector scaled(const Vector &a, double s)
{
    return {a[0] * s, a[1] * s, a[2] * s};
}

inline Vector turned(const double (*r)[3], const Vector &v)
{
    Vector out{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            out[i] += r[i][j] * v[j];
    return out;
}

inline double angle_arcsec(const Vector &a, const Vector &b)
{
    const Vector c = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    return std::atan2(length(c), a[0] * b[0] + a[1] * b[1] + a[2] * b[2]) * kArcsec;
}

// TT and UT1 of a TAI instant, days since kEpoch2000.
struct Dates {
    double tt, ut1;
};

inline Dates dates_of(double tai)
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

    // Body 0 the Sun, 10 the Moon, else a planet; Earth-fixed.
    Motion body(long body, double tai)
    {
        Motion out{};
        const long ref = KL_TIME_TAI;
        double *const pos = out.pos.data();
        double *const vel = out.vel.data();
        const long status = body == 0    ? kl_sun(nullptr, &time_, &ref, &tai, pos, vel, nullptr)
                            : body == 10 ? kl_moon(nullptr, &time_, &ref, &tai, pos, vel, nullptr)
                                         : kl_planet(nullptr, &time_, &body, &ref, &tai, pos, vel, nullptr);
        if (status == KL_ERR)
            fail("a body");
        return out;
    }

    Motion frame(long from, long to, double tai, const Motion &in)
    {
        const long mode = KL_CALC_POS_VEL;
        const long ref = KL_TIME_TAI;
        const double zero[3] = {0.0, 0.0, 0.0};
        Motion out{};
        double acc[3];
        if (kl_change_cart_cs(nullptr, &time_, &mode, &from, &to, &ref, &tai, in.pos.data(), in.vel.data(), zero,
                              out.pos.data(), out.vel.data(), acc, nullptr)
            == KL_ERR)
            fail("kl_change_cart_cs");
        return out;
    }

    Vector frame(long from, long to, double tai, const Vector &pos)
    {
        return frame(from, to, tai, Motion{pos, {}}).pos;
    }

private:
    kl_time_id time_ = {nullptr};
};

// Matrices of ERFA's chain, zero pole. `rotation` is Rz(sidereal), from TOD.
struct Chain {
    double precession[3][3], nutation[3][3], teme[3][3], rotation[3][3];
    double sidereal; // rad
};

using ChainOf = Chain (*)(const Dates &);

Chain chain_1976(const Dates &date);
Chain chain_2006(const Dates &date);

// GM2000 to the Earth-fixed frame with the rates of its matrices, by differences over an hour and more.
class EarthFixed {
public:
    EarthFixed(ChainOf chain, const Dates &date)
    {
        constexpr double kStep = 0.05; // days: beside it the date's own grain is nothing, and all is straight within it
        const Chain before = chain({date.tt - kStep, date.ut1 - kStep});
        const Chain here = chain(date);
        const Chain after = chain({date.tt + kStep, date.ut1 + kStep});
        constexpr double kSeconds = 2.0 * kStep * kDay;
        rate_ = eraAnpm(after.sidereal - before.sidereal) / kSeconds;
        double earlier[3][3];
        double later[3][3];
        multiply(before.nutation, before.precession, earlier);
        multiply(here.nutation, here.precession, celestial_);
        multiply(after.nutation, after.precession, later);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) {
                celestial_rate_[i][j] = (later[i][j] - earlier[i][j]) / kSeconds;
                rotation_[i][j] = here.rotation[i][j];
            }
    }

    Motion operator()(const Motion &in) const
    {
        const Motion of_date = {turned(celestial_, in.pos),
                                plus(turned(celestial_, in.vel), turned(celestial_rate_, in.pos))};
        Motion out = {turned(rotation_, of_date.pos), turned(rotation_, of_date.vel)};
        out.vel[0] += rate_ * out.pos[1];
        out.vel[1] -= rate_ * out.pos[0];
        return out;
    }

private:
    double celestial_[3][3], celestial_rate_[3][3], rotation_[3][3], rate_;

    static void multiply(const double (*a)[3], const double (*b)[3], double (*out)[3])
    {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
    }
};

// The sections of the page.
void compare_bodies(Library &library, const std::vector<double> &instants);
void compare_frames(Library &library, const std::vector<double> &instants);
void compare_pole(long count);
void compare_iers(Library &library, const std::vector<double> &instants, const char *years); // a file of years
void compare_geometry(const std::vector<double> &instants);
void compare_stars(const std::vector<double> &instants);
void compare_scales(const std::vector<double> &instants);

#endif
