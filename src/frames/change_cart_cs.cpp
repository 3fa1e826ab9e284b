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
    TimeIdRecord *id;
    bool with_tdb;
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

Sky<double> sky_at(const Way &way, const ChainInstant &instant)
{
    Sky<double> sky;
    sky.earth_model = &way.models->earth;
    sky.simplified = false;
    sky.days = instant.ut1;
    if (way.path.any(set_of(kPoleEdge)))
        sky.pole = pole_of(&way.id->correlation, instant.ut1);
    if (way.with_tdb)
        sky.earth = earth_on(way.path, instant.tdb_of_ut1);
    sky.complete(way.path);
    return sky;
}

// Fills the place of each element that the kernels take and its instant. False when the block has to go one by one.
// `one_instant` tells whether all of them share the first one's.
bool fill_instants(const Way &way, long ref, const double *time, long first, long count, LeftOver *left, long *place,
                   long *n_places, FrameInstants *out, bool *one_instant)
{
    const QuietSpan conversions = steady_span(*way.id, KL_FLAGS_CONVERSION);
    const QuietSpan changes = steady_span(*way.id, KL_FLAGS_FRAME_CHANGE);
    long n = 0;
    ChainInstant instant = {};
    *one_instant = true;
    for (long k = 0; k < count; ++k) {
        const double t = time[first + k];
        if (!inside_processing_range(t)) {
            left->add(k);
            continue;
        }
        if (n == 0 || !same_number(t, time[place[n - 1]])) {
            if (!is_quiet(conversions, t) || !is_quiet(changes, t)
                || !chain_instant(way.id, ref, t, way.with_tdb, &instant))
                return false;
            *one_instant &= n == 0;
        }
        place[n] = first + k;
        out->days[n] = instant.ut1;
        out->tdb[n] = instant.tdb_of_ut1;
        ++n;
    }
    *n_places = n;
    return true;
}

void fill_poles(const Correlation &correlation, long n, FrameInstants *out)
{
    for (long k = 0; k < n; ++k) {
        const PoleOf<double> pole = pole_of(&correlation, out->days[k]);
        out->pole[0][k] = pole.x;
        out->pole[1][k] = pole.y;
        out->pole[2][k] = pole.x_rate;
        out->pole[3][k] = pole.y_rate;
    }
}

void pad_instants(long n, FrameInstants *out)
{
    pad(out->days, n);
    pad(out->tdb, n);
    for (double *values : out->pole)
        pad(values, n);
}

// The elements of a block by kernels; `shared`: the one instant of all of them, if there is one. False when they have
// to go one by one.
bool change_block(Way *way, const double *shared, FrameInstants *instants, const StateArrays &states)
{
    if (states.count == 0)
        return true;
    const bool by_b1950 = way->path.any(set_of(kB1950Edge));
    if (shared != nullptr && (states.count > 1 || by_b1950)) {
        if (!way->made || !same_number(*shared, way->time))
            way->make(*shared, sky_at(*way, {instants->days[0], instants->tdb[0]}));
        change_frames_at_once_kernel()(way->ready, way->path.n, &way->earth, &states);
        return true;
    }
    if (by_b1950)
        return false;
    if (instants->has_pole)
        fill_poles(way->id->correlation, states.count, instants);
    pad_instants(states.count, instants);
    change_frames_kernel()(instants, &states);
    return true;
}

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
    const auto fail = [&](long i) {
        fill_nan(pos_out, i);
        fill_nan(vel_out, i);
        fill_nan(acc_out, i);
    };

    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    const bool missing = time == nullptr || pos == nullptr || vel == nullptr || acc == nullptr || pos_out == nullptr
                         || vel_out == nullptr || acc_out == nullptr;
    const bool selected = is_time_ref(ref) && inside(calc_mode, KL_CALC_POS, KL_CALC_POS_VEL_ACC)
                          && inside(cs_in, KL_BM2000, KL_TEME) && inside(cs_out, KL_BM2000, KL_TEME);
    Way way;
    way.models = &model_blocks(model_id);
    way.id = time_record_of(time_id);
    if (selected)
        way.path = path_between(*cs_in, *cs_out);
    const bool without_way =
        selected && (lacks_routine(*way.models, false, way.path) || cannot_walk(*way.models, way.path));
    if (missing || !selected || way.id == nullptr || without_way) {
        // What a good element would meet; in UT1, which spends no once-only warning before the chain is asked.
        const long ut1 = KL_TIME_UT1;
        const double instant = 0.0;
        double unused[3][3] = {};
        const auto given = [&](const double(*states)[3]) { return states != nullptr ? unused[0] : nullptr; };
        const auto taken = [&](double(*states)[3], int k) { return states != nullptr ? unused[k] : nullptr; };
        change_one(model_id, time_id, calc_mode, cs_in, cs_out, without_way && way.id != nullptr ? &ut1 : time_ref,
                   time != nullptr ? &instant : nullptr, given(pos), given(vel), given(acc), taken(pos_out, 0),
                   taken(vel_out, 1), taken(acc_out, 2), ierr);
        return array.refuse(fail);
    }
    way.with_tdb = way.path.any(set_of(kTranslationEdge));

    long place[kBlock];
    FrameInstants instants;
    instants.earth_model = &way.models->earth;
    instants.steps = way.path.steps;
    instants.n_steps = way.path.n;
    instants.has_pole = way.path.any(set_of(kPoleEdge)) && has_pole(way.id->correlation);
    StateArrays states = {pos, vel, acc, pos_out, vel_out, acc_out, *calc_mode, place, 0};
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        bool one_instant = false;
        return fill_instants(way, ref, time, first, count, &left, place, &states.count, &instants, &one_instant)
               && change_block(&way, one_instant && states.count > 0 ? time + place[0] : nullptr, &instants, states);
    });
}
