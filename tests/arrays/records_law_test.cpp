// Array forms of coordinates, orbits, eclipses and Earth orientation: the loop of the calls for one, bit for bit, with
// refused elements among the others.
#include "kl_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace {

struct Three {
    double v[3];
};

// Elements of all kinds, some of them refused.
struct Elements {
    explicit Elements(long n)
    {
        std::mt19937_64 random(static_cast<unsigned>(n) + 1U);
        std::normal_distribution<double> normal(0.0, 1.0);
        for (long i = 0; i < n; ++i) {
            const double size = i % 5 == 4 ? 3.0e6 : 9.0e6;
            pos.push_back({{size * normal(random), size * normal(random), size * normal(random)}});
            vel.push_back({{5e3 * normal(random), 5e3 * normal(random), 5e3 * normal(random)}});
            time.push_back(i % 3 == 2 ? time.back() : 9000.0 + 10.0 * normal(random));
            if (i % 11 == 7)
                pos.back().v[i % 3] = std::nan("");
            if (i % 13 == 5)
                time.back() = 1e6;
        }
    }
    std::vector<Three> pos, vel;
    std::vector<double> time;
};

struct Outcome {
    long status, ierr;
    std::vector<long> statuses;
    std::vector<unsigned char> bytes;
};

// `one` calls for element i into its record, `all` for all n.
template <class Record>
void expect_law(const char *name, long n, const std::function<long(long, Record *, long *)> &one,
                const std::function<long(Record *, long *, long *)> &all)
{
    SCOPED_TRACE(std::string(name) + ", " + std::to_string(n));
    std::vector<Record> expected(static_cast<std::size_t>(n) + 1U);
    std::vector<Record> found(static_cast<std::size_t>(n) + 1U);
    std::vector<long> statuses(static_cast<std::size_t>(n) + 1U, 77);
    long union_of_all = 0;
    long worst = KL_OK;
    std::vector<long> alone;
    for (long i = 0; i < n; ++i) {
        long word = 0;
        alone.push_back(one(i, &expected[static_cast<std::size_t>(i)], &word));
        union_of_all |= word;
        worst = alone.back() == KL_ERR || worst == KL_ERR ? long{KL_ERR} : std::max(worst, alone.back());
    }
    long ierr = -1;
    EXPECT_EQ(all(found.data(), statuses.data(), &ierr), worst);
    EXPECT_EQ(ierr, union_of_all);
    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
        EXPECT_EQ(statuses[i], alone[i]) << i;
        if (alone[i] != KL_ERR) {
            EXPECT_EQ(std::memcmp(&found[i], &expected[i], sizeof(Record)), 0) << i;
        } else {
            double first;
            std::memcpy(&first, &found[i], sizeof first);
            EXPECT_TRUE(std::isnan(first)) << i;
        }
    }
    EXPECT_EQ(statuses[static_cast<std::size_t>(n)], 77);
}

class Records : public ::testing::TestWithParam<long> {
protected:
    void SetUp() override
    {
        const long none = 0;
        const long one = 1;
        ASSERT_EQ(kl_time_id_init(&none, nullptr, &one, &none, nullptr, nullptr, nullptr, &time_id, nullptr), KL_OK);
    }
    void TearDown() override { kl_time_close(&time_id, nullptr); }

    kl_time_id time_id = {};
    kl_model_id model = {};
    const long mode = KL_CALC_POS_VEL;
    const long ref = KL_TIME_UTC;
};

using Positions = const double (*)[3];

} // namespace

TEST_P(Records, AreTheLoopOfTheirScalarCalls)
{
    const long n = GetParam();
    const Elements e(n);
    const auto *pos = reinterpret_cast<Positions>(e.pos.data());
    const auto *vel = reinterpret_cast<Positions>(e.vel.data());
    const long osculating = KL_KEPLER_OSCULATING;
    const long tod = KL_TOD;
    const kl_geodetic origin = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};

    expect_law<kl_geodetic>(
        "kl_cart_to_geod", n,
        [&](long i, kl_geodetic *out, long *w) { return kl_cart_to_geod(&model, &mode, pos[i], vel[i], out, w); },
        [&](kl_geodetic *out, long *s, long *w) { return kl_cart_to_geod_n(&model, &n, &mode, pos, vel, out, s, w); });
    expect_law<kl_kepler>(
        "kl_cart_to_kepl", n,
        [&](long i, kl_kepler *out, long *w) { return kl_cart_to_kepl(&model, &osculating, pos[i], vel[i], out, w); },
        [&](kl_kepler *out, long *s, long *w) {
            return kl_cart_to_kepl_n(&model, &n, &osculating, pos, vel, out, s, w);
        });
    expect_law<kl_radec>(
        "kl_cart_to_radec", n,
        [&](long i, kl_radec *out, long *w) { return kl_cart_to_radec(&model, &mode, pos[i], vel[i], out, w); },
        [&](kl_radec *out, long *s, long *w) { return kl_cart_to_radec_n(&model, &n, &mode, pos, vel, out, s, w); });
    expect_law<kl_topocentric>(
        "kl_ef_to_topocentric", n,
        [&](long i, kl_topocentric *out, long *w) {
            return kl_ef_to_topocentric(&model, &mode, &origin, pos[i], vel[i], out, w);
        },
        [&](kl_topocentric *out, long *s, long *w) {
            return kl_ef_to_topocentric_n(&model, &n, &mode, &origin, pos, vel, out, s, w);
        });
    expect_law<kl_orbit_angle>(
        "kl_position_on_orbit", n,
        [&](long i, kl_orbit_angle *out, long *w) {
            return kl_position_on_orbit(&model, &time_id, &mode, &tod, &ref, &e.time[static_cast<std::size_t>(i)],
                                        pos[i], vel[i], nullptr, out, w);
        },
        [&](kl_orbit_angle *out, long *s, long *w) {
            return kl_position_on_orbit_n(&model, &time_id, &n, &mode, &tod, &ref, e.time.data(), pos, vel, nullptr,
                                          out, s, w);
        });
}

TEST_P(Records, OfEarthOrientationAreTheLoopOfTheirScalarCalls)
{
    const long n = GetParam();
    const Elements e(n);
    const auto *pos = reinterpret_cast<Positions>(e.pos.data());
    const auto *vel = reinterpret_cast<Positions>(e.vel.data());
    struct States {
        double pos[3], vel[3], acc[3];
    };
    struct Matrices {
        double m[3][9];
    };
    for (const long corrections : {0L, 3L})
        for (const auto &[from, to] : {std::pair<long, long>(KL_GCRS, KL_ITRS), {KL_TIRS, KL_EME2000}}) {
            const long in = from;
            const long out_frame = to;
            const long all_three = KL_CALC_POS_VEL_ACC;
            expect_law<States>(
                "kl_iers_change", n,
                [&](long i, States *out, long *w) {
                    return kl_iers_change(&time_id, &corrections, &all_three, &in, &out_frame, &ref,
                                          &e.time[static_cast<std::size_t>(i)], pos[i], vel[i], vel[i], out->pos,
                                          out->vel, out->acc, w);
                },
                [&](States *out, long *s, long *w) {
                    std::vector<Three> a(e.pos), b(e.pos), c(e.pos);
                    const auto at = [](std::vector<Three> &x) { return reinterpret_cast<double(*)[3]>(x.data()); };
                    const long status = kl_iers_change_n(&time_id, &n, &corrections, &all_three, &in, &out_frame, &ref,
                                                         e.time.data(), pos, vel, vel, at(a), at(b), at(c), s, w);
                    for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i)
                        for (int k = 0; k < 3; ++k) {
                            out[i].pos[k] = a[i].v[k];
                            out[i].vel[k] = b[i].v[k];
                            out[i].acc[k] = c[i].v[k];
                        }
                    return status;
                });
        }
    const long corrections = 3;
    expect_law<kl_earth_orientation>(
        "kl_earth_orientation_get", n,
        [&](long i, kl_earth_orientation *out, long *w) {
            return kl_earth_orientation_get(&time_id, &corrections, &ref, &e.time[static_cast<std::size_t>(i)], out, w);
        },
        [&](kl_earth_orientation *out, long *s, long *w) {
            return kl_earth_orientation_get_n(&time_id, &n, &corrections, &ref, e.time.data(), out, s, w);
        });
}

INSTANTIATE_TEST_SUITE_P(Counts, Records, ::testing::Values(0L, 1L, 3L, 31L, 32L, 33L, 63L, 64L, 65L, 100L, 129L));
