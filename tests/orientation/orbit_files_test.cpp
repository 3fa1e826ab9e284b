// Precise orbits as they are published, SP3 in ITRF and OEM in EME2000, to GCRS and back, and beside ERFA with the same
// UT1 and pole.
#include "kl_lib.h"
#include "support/vectors.h"

#include <erfa.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace {

struct FileState {
    long frame, scale;
    double time; // MJD2000
    double pos[3], vel[3];
};

double days_of(int year, int month, int day, double seconds)
{
    std::tm date = {};
    date.tm_year = year - 1900;
    date.tm_mon = month - 1;
    date.tm_mday = day;
    return static_cast<double>(timegm(&date)) / 86400.0 - 10957.0 + seconds / 86400.0;
}

// Positions, km; a satellite without one stands at the centre of the Earth. GPS time, as all three files say.
void read_sp3(const std::string &name, std::vector<FileState> *states)
{
    std::ifstream file("tests/data/" + name);
    double time = 0.0;
    for (std::string line; std::getline(file, line);) {
        int year = 0, month = 0, day = 0, hour = 0, minute = 0;
        double second = 0.0;
        FileState s = {KL_ITRS, KL_TIME_GPS, 0.0, {}, {}};
        if (std::sscanf(line.c_str(), "*%d%d%d%d%d%lf", &year, &month, &day, &hour, &minute, &second) == 6)
            time = days_of(year, month, day, 3600.0 * hour + 60.0 * minute + second);
        else if (std::sscanf(line.c_str(), "P%*3c%lf%lf%lf", &s.pos[0], &s.pos[1], &s.pos[2]) == 3 && s.pos[0] != 0.0) {
            s.time = time;
            states->push_back(s);
        }
    }
}

// Positions and velocities, km and km/s, UTC.
void read_oem(const std::string &name, std::vector<FileState> *states)
{
    std::ifstream file("tests/data/" + name);
    for (std::string line; std::getline(file, line);) {
        int year = 0, month = 0, day = 0, hour = 0, minute = 0;
        double second = 0.0;
        FileState s = {KL_EME2000, KL_TIME_UTC, 0.0, {}, {}};
        if (std::sscanf(line.c_str(), "%d-%d-%dT%d:%d:%lf %lf %lf %lf %lf %lf %lf", &year, &month, &day, &hour, &minute,
                        &second, &s.pos[0], &s.pos[1], &s.pos[2], &s.vel[0], &s.vel[1], &s.vel[2])
            != 12)
            continue;
        s.time = days_of(year, month, day, 3600.0 * hour + 60.0 * minute + second);
        states->push_back(s);
    }
}

// GCRS to the frame of a state at `seconds` from its instant, with UT1 and the pole of then.
void erfa_matrix(const FileState &s, const kl_earth_orientation &e, double seconds, double out[3][3])
{
    constexpr double kMidnight = 2451544.5;
    constexpr double kArcsec = 4.84813681109535994e-6;
    if (s.frame == KL_EME2000) {
        double rp[3][3], rbp[3][3];
        eraBp00(2451545.0, 0.0, out, rp, rbp);
        return;
    }
    const double tai_minus_scale = s.scale == KL_TIME_GPS ? 19.0 : e.ut1_utc - e.ut1_tai;
    const double tai = tai_minus_scale + seconds;
    const double tt = (tai + 32.184) / 86400.0;
    double x, y, q[3][3], w[3][3];
    eraXy06(kMidnight + std::floor(s.time), s.time - std::floor(s.time) + tt, &x, &y);
    x += e.dx * kArcsec;
    y += e.dy * kArcsec;
    eraC2ixys(x, y, eraS06(kMidnight + s.time, tt, x, y), q);
    eraPom00(e.x_pole * kArcsec, e.y_pole * kArcsec, eraSp00(kMidnight + s.time, tt), w);
    const double era =
        eraEra00(kMidnight + std::floor(s.time), s.time - std::floor(s.time) + (tai + e.ut1_tai) / 86400.0);
    eraC2tcio(q, era, w, out);
}

} // namespace

TEST(OrbitFiles, StatesToGcrsAndBackAndBesideErfa)
{
    std::vector<FileState> states;
    for (const char *name : {"example-a-1.sp3", "example-c-1.sp3", "example-d-1.sp3"})
        read_sp3(name, &states);
    const std::size_t positions = states.size();
    read_oem("OEMExample1.txt", &states);
    ASSERT_GT(positions, 50U);
    ASSERT_GT(states.size(), positions + 5U);

    kl_time_id id = {};
    const long none = 0, bulletins = 1, zero = 0, velocity = KL_CALC_POS_VEL, gcrs = KL_GCRS, itrs = KL_ITRS;
    const double first = -9000.0, last = 9000.0;
    kl_time_file_report report;
    ASSERT_NE(kl_time_id_init(&none, nullptr, &bulletins, &bulletins, &first, &last, &report, &id, nullptr), KL_ERR);
    for (const FileState &s : states) {
        SCOPED_TRACE(s.time);
        double pos[3], vel[3], acc[3], there[3], v[3], back[3], v_back[3];
        for (int i = 0; i < 3; ++i) {
            pos[i] = 1e3 * s.pos[i];
            vel[i] = 1e3 * s.vel[i];
        }
        ASSERT_EQ(kl_iers_change(&id, &zero, &velocity, &s.frame, &gcrs, &s.scale, &s.time, pos, vel, nullptr, there, v,
                                 acc, nullptr),
                  KL_OK);
        ASSERT_EQ(kl_iers_change(&id, &zero, &velocity, &gcrs, &s.frame, &s.scale, &s.time, there, v, nullptr, back,
                                 v_back, acc, nullptr),
                  KL_OK);
        const double radii = length(pos) / 7.0e6;
        EXPECT_LT(distance(back, pos), 1e-8 * radii);
        EXPECT_LT(distance(v_back, vel), 1e-11 * radii);

        kl_earth_orientation e;
        ASSERT_EQ(kl_earth_orientation_get(&id, &zero, &s.scale, &s.time, &e, nullptr), KL_OK);
        double m[3][3], expected[3];
        erfa_matrix(s, e, 0.0, m);
        eraTrxp(m, pos, expected);
        EXPECT_LT(distance(there, expected), 3e-4 * radii); // m

        // A velocity by differences in four places.
        constexpr double kStep = 60.0; // s
        double derivative[3] = {};
        for (const int k : {-2, -1, 1, 2}) {
            double moved[3], turned[3];
            for (int i = 0; i < 3; ++i)
                moved[i] = pos[i] + k * kStep * vel[i];
            const double then = s.time + k * kStep / 86400.0;
            ASSERT_EQ(kl_earth_orientation_get(&id, &zero, &s.scale, &then, &e, nullptr), KL_OK);
            erfa_matrix(s, e, k * kStep, m);
            eraTrxp(m, moved, turned);
            for (int i = 0; i < 3; ++i)
                derivative[i] += (std::abs(k) == 1 ? 8.0 * k : -0.5 * k) / (12.0 * kStep) * turned[i];
        }
        EXPECT_LT(distance(v, derivative), 3e-7 * radii); // m/s

        // On to the Earth, where an orbit in inertial axes is wanted there.
        ASSERT_EQ(kl_iers_change(&id, &zero, &velocity, &s.frame, &itrs, &s.scale, &s.time, pos, vel, nullptr, there, v,
                                 acc, nullptr),
                  KL_OK);
        EXPECT_NEAR(length(there), 7.0e6 * radii, 1e-8 * radii);
    }
    kl_time_close(&id, nullptr);
}
