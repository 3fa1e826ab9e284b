// The public frame change.
#include "arrays/array_call.h"
#include "frames/chain_instants.h"
#include "frames/change.h"
#include "frames/frame_kernels.h"
#include "time/doors/call_instant.h"

namespace {

constexpr InstantConditions kInstant = {KL_CHANGE_CART_CS_TIME_REF_ERR, KL_CHANGE_CART_CS_DATE_ERR};

bool inside(const long *value, long first, long last)
{
    return value != nullptr && first <= *value && *value <= last;
}

// ---- the call for one element ----

long change_one(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs_in,
                const long *cs_out, const long *time_ref, const double *time, const double pos[3], const double vel[3],
                const double acc[3], double pos_out[3], double vel_out[3], double acc_out[3], long *ierr)
{
    Activation call(KL_FN_CHANGE_CART_CS, ierr);

    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (refuses_instant(call, kInstant, ref, time))
        return KL_ERR;
    if (!inside(calc_mode, KL_CALC_POS, KL_CALC_POS_VEL_ACC))
        return call.fails(KL_CHANGE_CART_CS_CALC_MODE_ERR);
    // The internal frames above KL_TEME are not offered here.
    if (!inside(cs_in, KL_BM2000, KL_TEME))
        return call.fails(KL_CHANGE_CART_CS_CS_IN_ERR);
    if (!inside(cs_out, KL_BM2000, KL_TEME))
        return call.fails(KL_CHANGE_CART_CS_CS_OUT_ERR);
    if (pos == nullptr || vel == nullptr || acc == nullptr || pos_out == nullptr || vel_out == nullptr
        || acc_out == nullptr)
        return KL_ERR;

    kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, 0.0};
    if (!on_scale(time_id, ref, KL_TIME_UT1, *time, &ut1.value))
        return call.fails(KL_CHANGE_CART_CS_TIME_ID_ERR);

    // On purpose: the whole state is carried, whatever the mode.
    State state = {2, {}, {}, {}};
    copy_three(pos, state.pos);
    copy_three(vel, state.vel);
    copy_three(acc, state.acc);
    if (!carried(chain_sources(model_id, time_id), ut1, *cs_in, *cs_out, &state))
        return call.fails(*cs_in == KL_LIF || *cs_out == KL_LIF ? KL_CHANGE_CART_CS_LIF_ERR
                                                                : KL_CHANGE_CART_CS_TRANSFORMATION_ERR);
    constexpr double kZero[3] = {0.0, 0.0, 0.0};
    copy_three(state.pos, pos_out);
    copy_three(*calc_mode >= KL_CALC_POS_VEL ? state.vel : kZero, vel_out);
    copy_three(*calc_mode == KL_CALC_POS_VEL_ACC ? state.acc : kZero, acc_out);

    long warned = 0;
    if (!frame_change_warning(time_id, ref, *time, &warned))
        return call.fails(KL_CHANGE_CART_CS_TAI_ERR);
    if (warned != 0)
        call.warns(static_cast<int>(KL_CHANGE_CART_CS_FORMULA_WARN + warned - 1));
    return call.status();
}

// ---- for many ----

// The way of an array call, and the last instant for which it was made ready.
struct Way {
    Path path;
    const ModelBlocks *models;
    bool made = false;
    double time = 0.0;
    ReadyStep<double> ready[kLongestPath];
    EarthStates<double> earth;

    void make(double instant, const Sky<double> &sky)
    {
        for (std::int32_t i = 0; i < path.n; ++i)
            make_ready(path.steps[i], sky, &ready[i]);
        earth = sky.earth;
        time = instant;
        made = true;
    }
};

// At the first instant of a block.
Sky<double> sky_at(const Way &way, bool with_pole, const InstantBlock &at)
{
    Sky<double> sky;
    sky.earth_model = &way.models->earth;
    sky.simplified = false;
    sky.days = at.ut1[0];
    sky.pole = {0.0, 0.0, 0.0, 0.0};
    if (with_pole)
        sky.pole = {at.pole[0][0], at.pole[1][0], at.pole[2][0], at.pole[3][0]};
    if (at.with_tdb_of_earth)
        sky.earth = earth_on(way.path, at.tdb_of_earth[0]);
    sky.complete(way.path);
    return sky;
}

// Lists the places that the kernels take and their instants.
void list_places(const double *time, long count, LeftOver *left, long *place, InstantBlock *block)
{
    long n = 0;
    for (long k = 0; k < count; ++k)
        if (inside_processing_range(time[k])) {
            place[n] = k;
            block->days[n++] = time[k];
        } else {
            left->add(k);
        }
    block->count = n;
}

// Carries the blocks of an array call; false where the elements have to go one by one.
struct Changes {
    Way &way;
    ChainInstants instants;
    const TimeIdRecord &id;

    bool at_one_instant(double instant, const StateArrays &states)
    {
        if (!all_are_quiet(id, &instant, 1))
            return false;
        if (!way.made || !same_number(instant, way.time)) {
            InstantBlock &at = *instants.block();
            at.count = 1;
            at.days[0] = instant;
            if (!instants.fill())
                return false;
            way.make(instant, sky_at(way, instants.with_pole(), at));
        }
        change_frames_at_once_kernel()(way.ready, way.path.n, &way.earth, &states);
        return true;
    }

    bool at_own_instants(const double *time, long count, LeftOver *left, StateArrays states)
    {
        if (way.path.any(set_of(kB1950Edge))) // its matrices are those of one instant
            return false;
        InstantBlock &at = *instants.block();
        long place[kBlock];
        list_places(time, count, left, place, &at);
        if (at.count == 0)
            return true;
        if (!all_are_quiet(id, at.days, at.count) || !instants.fill())
            return false;
        states.count = at.count;
        states.place = at.count < count ? place : nullptr;
        const FrameWays ways = {&way.models->earth, way.path.steps, way.path.n, instants.with_pole(), &at};
        change_frames_kernel()(&ways, &states);
        return true;
    }
};

} // namespace

long kl_change_cart_cs(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs_in,
                       const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                       const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                       double acc_out[3], long *ierr)
{
    return change_one(model_id, time_id, calc_mode, cs_in, cs_out, time_ref, time, pos, vel, acc, pos_out, vel_out,
                      acc_out, ierr);
}

long kl_change_cart_cs_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *calc_mode,
                         const long *cs_in, const long *cs_out, const long *time_ref, const double *time,
                         const double pos[][3], const double vel[][3], const double acc[][3], double pos_out[][3],
                         double vel_out[][3], double acc_out[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_CHANGE_CART_CS, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) {
        return change_one(model_id, time_id, calc_mode, cs_in, cs_out, time_ref, time + i, pos[i], vel[i], acc[i],
                          pos_out[i], vel_out[i], acc_out[i], word);
    };
    const auto fail = fails_in(pos_out, vel_out, acc_out);

    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const bool missing = time == nullptr || pos == nullptr || vel == nullptr || acc == nullptr || pos_out == nullptr
                         || vel_out == nullptr || acc_out == nullptr;
    const bool selected = is_time_ref(ref) && inside(calc_mode, KL_CALC_POS, KL_CALC_POS_VEL_ACC)
                          && inside(cs_in, KL_BM2000, KL_TEME) && inside(cs_out, KL_BM2000, KL_TEME);
    Way way;
    way.models = &model_blocks(model_id);
    TimeIdRecord *id = time_record_of(time_id);
    if (selected)
        way.path = path_between(*cs_in, *cs_out);
    const bool without_way =
        selected && (lacks_routine(*way.models, false, way.path) || cannot_walk(*way.models, way.path));
    if (missing || !selected || id == nullptr || without_way) {
        // What a good element would meet; in UT1, which spends no once-only warning before the chain is asked.
        const long ut1 = KL_TIME_UT1;
        const double instant = 0.0;
        double unused[3][3] = {};
        const auto given = [&](const double(*states)[3]) { return states != nullptr ? unused[0] : nullptr; };
        const auto taken = [&](double(*states)[3], int k) { return states != nullptr ? unused[k] : nullptr; };
        change_one(model_id, time_id, calc_mode, cs_in, cs_out, without_way && id != nullptr ? &ut1 : time_ref,
                   time != nullptr ? &instant : nullptr, given(pos), given(vel), given(acc), taken(pos_out, 0),
                   taken(vel_out, 1), taken(acc_out, 2), ierr);
        return array.refuse(fail);
    }
    const bool with_earth = way.path.any(set_of(kTranslationEdge)), with_pole = way.path.any(set_of(kPoleEdge));
    Changes changes = {way, {id, ref, false, with_earth, with_pole}, *id};
    return array.each(one, fail, [&](long i, long count, LeftOver &left) {
        const StateArrays states = {pos + i,     vel + i,    acc + i, pos_out + i, vel_out + i,
                                    acc_out + i, *calc_mode, nullptr, count};
        return count > 1 && inside_processing_range(time[i]) && same_instants(time + i, count)
                   ? changes.at_one_instant(time[i], states)
                   : changes.at_own_instants(time + i, count, &left, states);
    });
}
