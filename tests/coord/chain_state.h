// States for the frame chain, and a time id whose four scales are 37, 37.3 and 19 s apart.
#ifndef KL_TESTS_COORD_CHAIN_STATE_H
#define KL_TESTS_COORD_CHAIN_STATE_H

#include "kl_family.h"
#include "time/time_table.h"

#include <algorithm>
#include <cmath>

enum { kTdb = 1, kTai = 3, kUt1 = 4, kUtc = 5, kGps = 6 }; // references of a date record
enum { kJulianDay = 1, kDays1950 = 2, kMjd2000 = 3 };      // its formats
constexpr double kStart[3][3] = {{7e6, -1.2e6, 3.4e6}, {1250, 7100, -2500}, {-4.5, 0.75, -6.25}}; // m, m/s, m/s2
constexpr double kTaiMinusUt1 = 37.3;

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

    double at(int vector, int axis) const { return store[vector][axis + 1]; }
    bool is(const double (&vectors)[3][3]) const
    {
        for (int v = 0; v < 3; ++v)
            if (!std::equal(vectors[v], vectors[v] + 3, store[v] + 1))
                return false;
        return true;
    }
};

inline double distance(const ChainState &state, int vector, const double other[3])
{
    return std::hypot(state.at(vector, 0) - other[0], state.at(vector, 1) - other[1], state.at(vector, 2) - other[2]);
}

struct ChainTimeId : OwnedTimeId {
    ChainTimeId()
    {
        const double noon = 9000.5;
        const double times[4] = {noon, noon - 37.0 / kDay, noon - kTaiMinusUt1 / kDay, noon - 19.0 / kDay};
        EXPECT_EQ(kl_time_ref_init(times, nullptr, nullptr, nullptr, &id, nullptr), KL_OK);
    }
};

// A model id; a refused selection leaves the blocks from that kind on without routines.
struct ChainModelId {
    kl_model_id id{};

    explicit ChainModelId(long refused_kind = -1)
    {
        long models[9] = {};
        if (refused_kind >= 0)
            models[refused_kind] = 99;
        const long mode = KL_MODEL_USER;
        EXPECT_EQ(kl_model_init(&mode, models, &id, nullptr), refused_kind >= 0 ? KL_ERR : KL_OK);
    }
    ~ChainModelId() { EXPECT_EQ(kl_model_close(&id, nullptr), KL_OK); }
    ChainModelId(const ChainModelId &) = delete;
    ChainModelId &operator=(const ChainModelId &) = delete;
};

// In place, with the default models.
inline long carry(kl_time_id *time_id, const kl_time_record &date, ChainState *state, long to, long order = 2,
                  kl_error_record *error = nullptr)
{
    return KL_Change_CoordinateSystem(nullptr, time_id, order, &date, state, to, state, error);
}

#endif
