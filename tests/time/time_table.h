// Time ids of the tests: explicit readings, and tables built from the differences of the scales.
#ifndef KL_TESTS_TIME_TIME_TABLE_H
#define KL_TESTS_TIME_TIME_TABLE_H

#include "kl_family.h"
#include "support/conditions.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kDay = 86400.0; // s

constexpr long error_or_none(long bit)
{
    return bit == kNone ? kNothing : error_bits(bit);
}

// A public function that fails with one condition, or succeeds without any.
inline void expect_outcome(long status, const long &ierr, long bit, const char *name)
{
    EXPECT_EQ(status, bit == kNone ? KL_OK : KL_ERR) << name;
    EXPECT_EQ(ierr, error_or_none(bit)) << name;
}

// Hands every pointer on but that of one argument.
struct AllBut {
    long missing;
    template <typename T>
    T *operator()(long argument, T *pointer) const
    {
        return argument == missing ? nullptr : pointer;
    }
};

struct OwnedTimeId {
    kl_time_id id{};

    OwnedTimeId() = default;
    ~OwnedTimeId()
    {
        if (kl_time_init_status(&id) != 0) {
            EXPECT_EQ(kl_time_close(&id, nullptr), KL_OK) << "something still uses it";
        }
    }
    OwnedTimeId(const OwnedTimeId &) = delete;
    OwnedTimeId &operator=(const OwnedTimeId &) = delete;
    operator kl_time_id *() { return &id; }
};

// Explicit readings: seconds of 2000-01-01 in TAI, UTC, UT1 and GPS.
struct ReadingsId : OwnedTimeId {
    ReadingsId(double tai, double utc, double ut1, double gps)
    {
        const double tri_time[4] = {tai / kDay, utc / kDay, ut1 / kDay, gps / kDay};
        EXPECT_EQ(kl_time_ref_init(tri_time, nullptr, nullptr, nullptr, &id, nullptr), KL_OK);
    }
};

inline kl_time_row row_at(double utc, double tai_utc, double tai_ut1, double tai_gps = 19.0)
{
    const double tai = utc + tai_utc / kDay;
    return {tai, tai - tai_ut1 / kDay, utc, tai_utc, tai_ut1, tai_gps};
}

struct Table {
    std::vector<kl_time_row> rows;
    kl_time_id_data data{};

    explicit Table(std::vector<kl_time_row> given) : rows(std::move(given))
    {
        data.model = 1;
        data.no_extrapolation = 1;
    }
    long set(kl_time_id *id)
    {
        data.n_rows = static_cast<long>(rows.size());
        data.rows = rows.data();
        return kl_time_set_id_data(id, &data);
    }
};

struct TableId : OwnedTimeId {
    explicit TableId(Table table) { EXPECT_EQ(table.set(&id), 0); }
};

// Ten days without a leap second: UT1-UTC from 1 s down to 0.5 s.
inline Table ten_days(long model = 1, long no_extrapolation = 1)
{
    Table table({row_at(0.0, 32.0, 31.0), row_at(10.0, 32.0, 31.5)});
    table.data.model = model;
    table.data.no_extrapolation = no_extrapolation;
    return table;
}

// The data of an id, with what is needed to let go of them.
struct TimeData : kl_time_id_data {
    explicit TimeData(kl_time_id *id) : kl_time_id_data{} { EXPECT_EQ(kl_time_get_id_data(id, this), 0); }
    ~TimeData() { EXPECT_EQ(kl_time_free_id_data(this), 0); }
    TimeData(const TimeData &) = delete;
    TimeData &operator=(const TimeData &) = delete;
};

constexpr double k2017 = 6210.0; // 2017-01-01

// Six days of daily rows around a leap second; the first row stands `phase` days after 0h. UT1 runs on evenly.
inline Table leap_table(double leap_utc, double tai_utc_before, int sign, double phase = 0.0)
{
    std::vector<kl_time_row> rows;
    for (int i = -3; i <= 3; ++i) {
        const double utc = leap_utc + i + phase;
        rows.push_back(row_at(utc, tai_utc_before + (utc < leap_utc ? 0 : sign), tai_utc_before + 0.3 + 0.001 * i));
    }
    return Table(rows);
}

// Converts between scales and hands out the vector; the result is NaN after an error.
struct Converted {
    long status = KL_OK, ierr = -1;
    double time = kNaN;
};
inline Converted convert(kl_time_id *id, long from, double time, long to)
{
    constexpr long kDays = KL_PROC;
    Converted out;
    out.status = kl_time_processing_to_processing(id, &kDays, &from, &time, &kDays, &to, &out.time, &out.ierr);
    return out;
}

#endif
