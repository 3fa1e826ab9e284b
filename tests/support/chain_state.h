// States for the frame chain, a time id whose four scales are 37, 37.3 and 19 s apart, and ERFA's way to the Earth.
#ifndef KL_TESTS_SUPPORT_CHAIN_STATE_H
#define KL_TESTS_SUPPORT_CHAIN_STATE_H

#include "kl_family.h"
#include "support/vectors.h"
#include "time/time_table.h"

#include <algorithm>
#include <erfa.h>

enum { kTdb = 1, kTai = 3, kUt1 = 4, kUtc = 5, kGps = 6 }; // references of a date record
enum { kJulianDay = 1, kDays1950 = 2, kMjd2000 = 3 };      // its formats
constexpr double kStart[3][3] = {{7e6, -1.2e6, 3.4e6}, {1250, 7100, -2500}, {-4.5, 0.75, -6.25}}; // m, m/s, m/s2
constexpr double kBehindTai[4] = {0.0, 37.0, 37.3, 19.0};        // s: TAI, UTC, UT1, GPS
constexpr double kTtMinusUt1 = kBehindTai[KL_TIME_UT1] + 32.184; // s
constexpr double kFirst = -18262.0, kLast = 36524.0;             // MJD2000
constexpr double kJdOfDayZero = 2451544.5;
constexpr double kArcsecond = 4.848136811095359935899141e-6; // rad
constexpr double kMetresPerAu = 1.496e11;                    // the library's; the true one is 14 millionths shorter

constexpr long kFrames[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11}; // of the public ones all but KL_LIF

struct ChainState : Cord {
    double store[3][4] = {};

    explicit ChainState(long frame = 0, long at_order = 2, const double (&vectors)[3][3] = kStart)
    {
        pos = store[0];
        vel = store[1];
        acc = store[2];
        KL_Cord_Set(frame, at_order, vectors[0], vectors[1], vectors[2], this);
    }
    ChainState(const ChainState &) = delete;
    ChainState &operator=(const ChainState &) = delete;

    const double *operator[](long derivative) const { return store[derivative] + 1; }
    bool is(const double (&vectors)[3][3]) const
    {
        return std::equal(vectors[0], vectors[0] + 3, (*this)[0]) && std::equal(vectors[1], vectors[1] + 3, (*this)[1])
               && std::equal(vectors[2], vectors[2] + 3, (*this)[2]);
    }
};

struct ChainTimeId : ReadingsId {
    ChainTimeId() : ReadingsId(0.0, -kBehindTai[KL_TIME_UTC], -kBehindTai[KL_TIME_UT1], -kBehindTai[KL_TIME_GPS]) {}
};

// In place, with the default models.
inline long carry(kl_time_id *time_id, const kl_time_record &date, ChainState *state, long to, long order = 2,
                  kl_error_record *error = nullptr)
{
    return KL_Change_CoordinateSystem(nullptr, time_id, order, &date, state, to, state, error);
}

// A rotation record with matrices of its own, one-based.
struct Rotation : kl_rotation_record {
    Rotation() : kl_rotation_record{0, 3, KL_double_matrix(3, 3), KL_double_matrix(3, 3), KL_double_matrix(3, 3)} {}
    ~Rotation()
    {
        for (double **matrix : {r, dr, ddr})
            KL_free_double_matrix(matrix);
    }
    Rotation(const Rotation &) = delete;
    Rotation &operator=(const Rotation &) = delete;
};

// From J2000 to the Earth: precession 1976, nutation 1980, sidereal time 1994, no pole.
inline void erfa_earth_fixed(double ut1_days, const double inertial[3], double fixed[3])
{
    const double tt = ut1_days + kTtMinusUt1 / kDay;
    double precession[3][3], nutation[3][3], turned[3][3];
    eraPmat76(kJdOfDayZero, tt, precession);
    eraNutm80(kJdOfDayZero, tt, nutation);
    eraRxr(nutation, precession, turned);
    eraRz(eraGst94(kJdOfDayZero, ut1_days), turned);
    eraRxp(turned, const_cast<double *>(inertial), fixed);
}

#endif
