// The walk from one frame to another: path, dates, edges.
#include "bodies/earth.h"
#include "errors/activation.h"
#include "frames/chain.h"
#include "frames/doors.h"
#include "frames/instants.h"
#include "models/model_record.h"
#include "time/scales.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace {

// Steps by the codes of the family.
enum StepCode {
    kGalacticToBm1950,
    kGalacticToBm2000,
    kBm1950ToBm2000,
    kBm2000ToHm2000,
    kBm2000ToGm2000,
    kHm2000ToGm2000,
    kGm2000ToMod,
    kModToTod,
    kTodToTeme,
    kTodToPef,
    kPefToTod,
    kEfToPef,
    kPefToEf,
    kTemeToTod,
    kTodToMod,
    kModToGm2000,
    kGm2000ToHm2000,
    kGm2000ToBm2000,
    kHm2000ToBm2000,
    kBm2000ToBm1950,
    kBm2000ToGalactic,
    kBm1950ToGalactic,
    kEfToLif,
    kLifToEf,
};
static_assert(kLifToEf + 1 == kSteps);
static_assert(kStep[kGm2000ToMod].from == KL_GM2000 && kStep[kLifToEf].to == KL_EF);

// ---- dates ----

bool to_tai(kl_time_id *time_id, const kl_time_record &date, double *tai)
{
    const double days = mjd2000_of(date);
    if (!inside_chain_range(days)) // far outside the days do not fit an integer
        return false;
    if (date.reference == KL_REF_TAI) {
        *tai = days;
        return true;
    }
    if (date.reference == KL_REF_TDB)
        return KL_Time_p2p_ref_tdb_to_tai(&days, tai) == 0;
    const long ref = KL_Time_enum_to_Time_ref_enum(date.reference);
    kl_std_record in;
    kl_std_record out;
    if (ref < 0 || KL_Time_p2t_format_to_std(time_id, ref, &days, &in, nullptr) == KL_ERR
        || KL_Time_t2t_ref_to_tai(time_id, ref, &in, &out, nullptr) == KL_ERR)
        return false;
    KL_Time_t2p_format_from_std(&out, tai);
    return true;
}

bool to_ut1(kl_time_id *time_id, const kl_time_record &date, double *ut1)
{
    if (date.reference == KL_REF_UT1) {
        *ut1 = mjd2000_of(date);
        return true;
    }
    double tai = 0.0;
    kl_std_record in;
    kl_std_record out;
    if (!to_tai(time_id, date, &tai) || KL_Time_p2t_format_to_std(time_id, KL_TIME_TAI, &tai, &in, nullptr) == KL_ERR
        || KL_Time_t2t_ref_from_tai(time_id, KL_TIME_UT1, &in, &out, nullptr) == KL_ERR)
        return false;
    KL_Time_t2p_format_from_std(&out, ut1);
    return true;
}

bool to_tdb(kl_time_id *time_id, const kl_time_record &date, double *tdb)
{
    if (date.reference == KL_REF_TDB) {
        *tdb = mjd2000_of(date);
        return true;
    }
    double tai = 0.0;
    return to_tai(time_id, date, &tai) && KL_Time_p2p_ref_tai_to_tdb(&tai, tdb) == 0;
}

bool needs_time_id(const kl_time_record &date, bool ut1, bool tdb)
{
    return (ut1 && date.reference != KL_REF_UT1)
           || (tdb && date.reference != KL_REF_TAI && date.reference != KL_REF_TDB);
}

// ---- the walk ----

// What a walk through the models of an id needs, but the instant.
Sky<double> sky_of(const ModelBlocks &models, bool simplified)
{
    Sky<double> sky;
    sky.earth_model = &models.earth;
    sky.simplified = simplified;
    return sky;
}

// The rest of the sky, once its days are known; tdb_days for translations.
void complete(const Path &path, kl_time_id *time_id, double tdb_days, Sky<double> *sky)
{
    if (path.any(set_of(kPoleEdge)))
        sky->pole = pole_of(time_id, sky->days);
    if (path.any(set_of(kTranslationEdge)))
        sky->earth = earth_states(tdb_days);
    sky->complete(path);
}

// What was asked for, of what the state holds.
int order_of(const Cord &cord, long order)
{
    return static_cast<int>(std::clamp(std::min(order, static_cast<long>(cord.order)), 0L, 2L));
}

State state_of(const Cord &cord, long order)
{
    State state = {order_of(cord, order), {}, {}, {}};
    copy_three(cord.pos + 1, state.pos);
    if (state.order >= 1)
        copy_three(cord.vel + 1, state.vel);
    if (state.order >= 2)
        copy_three(cord.acc + 1, state.acc);
    return state;
}

void copy_out(const State &state, long final_cs, Cord *out)
{
    KL_Cord_Set(final_cs, state.order, state.pos, state.vel, state.acc, out);
}

long change(int function_id, kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date,
            const Cord *in, long final_cs, Cord *out, kl_error_record *error, bool simplified)
{
    Activation call(function_id, error);
    const auto offered = [simplified](long cs) {
        return cs >= KL_FIRST_FRAME && cs <= KL_LAST_FRAME
               && (!simplified || (cs >= KL_GM2000 && cs != KL_LIF && cs != KL_BM1950 && cs != KL_GALACTIC));
    };
    if (date == nullptr || date->reference < KL_REF_TDB || date->reference > KL_REF_UTC
        || date->format < KL_FORMAT_JULIAN || date->format > KL_FORMAT_MJD2000)
        return call.fails(KL_CHAIN_DATE_RECORD);
    if (in == nullptr || !offered(in->cs))
        return call.fails(KL_CHAIN_INITIAL);
    if (out == nullptr || !offered(final_cs))
        return call.fails(KL_CHAIN_FINAL);

    const auto known = [](long cs) { return cs == KL_QMOD ? long{KL_MOD} : cs == KL_PTOD ? long{KL_TOD} : cs; };
    const long initial = known(in->cs);
    const long last = known(final_cs);
    const Path path = path_between(initial, last);

    // Warnings look at the frames as the caller passed them. On purpose: the first one comes with every MoD to ToD.
    if (path.any(StepSet{1} << kModToTod) && !(in->cs == KL_PTOD && final_cs == KL_PTOD))
        call.warns(KL_CHAIN_PTOD_SKIPPED);
    if (path.n == 0 && in->cs != final_cs)
        call.warns(initial == KL_TOD ? KL_CHAIN_PTOD : KL_CHAIN_QMOD);
    const auto centred_elsewhere = [](long cs) { return cs == KL_BM2000 || cs == KL_HM2000; };
    if (order == 2 && (centred_elsewhere(initial) || centred_elsewhere(last)))
        call.warns(KL_CHAIN_ACCELERATION);
    if (path.any(set_of(kLaunchEdge)))
        return call.fails(KL_CHAIN_LIF);

    if (path.n == 0) {
        KL_Copy_Cord(in, out);
        out->cs = static_cast<std::int32_t>(final_cs);
        out->order = order_of(*in, order);
        return call.status();
    }

    // Dates: UT1 for the rotations of the Earth, TDB for the place of the Earth; the rest takes what there is.
    const bool ut1 = path.any(kUt1Steps);
    const bool tdb = path.any(set_of(kTranslationEdge));
    const ModelBlocks &models = model_blocks(model_id);
    Sky<double> sky = sky_of(models, simplified);
    sky.days = mjd2000_of(*date);
    double tdb_days = 0.0;
    if (!inside_chain_range(sky.days))
        return call.fails(KL_CHAIN_DATE_RANGE);
    if (needs_time_id(*date, ut1, tdb) && time_record_of(time_id) == nullptr)
        return call.fails(KL_CHAIN_TIME_ID);
    if ((ut1 && !to_ut1(time_id, *date, &sky.days)) || (tdb && !to_tdb(time_id, *date, &tdb_days))
        || lacks_routine(models, simplified, path))
        return call.fails(KL_CHAIN_UT1);
    if (cannot_walk(models, path))
        return call.fails(KL_CHAIN_EARTH);

    State state = state_of(*in, order);
    complete(path, time_id, tdb_days, &sky);
    walk(path, sky, &state);
    copy_out(state, final_cs, out);
    return call.status();
}

long one_edge(int code, kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
              Cord *out, long order)
{
    const std::int32_t list[1] = {code};
    return KL_Start_computations(model_id, time_id, 1, list, date, in, kStep[code].to, out, order);
}

} // namespace

// True when the models lack a routine that the path calls.
bool lacks_routine(const ModelBlocks &models, bool simplified, const Path &path)
{
    return (models.precession.precession == nullptr && path.any(set_of(kPrecessionEdge)))
           || (models.nutation.nutation == nullptr && !simplified && path.any(kNutationSteps))
           || (simplified && path.any(set_of(kSiderealEdge)) && !has_linear_angle(models.earth));
}

// No routine for the place of the Earth, or a launch frame, whose date and angle no id holds.
bool cannot_walk(const ModelBlocks &models, const Path &path)
{
    return (models.sun.earth == nullptr && path.any(set_of(kTranslationEdge))) || path.any(set_of(kLaunchEdge));
}

double mjd2000_of(const kl_time_record &date)
{
    constexpr double kJulianZero = 2451544.5; // 2000-01-01 00:00, true Julian date
    constexpr double k1950Zero = 18262.0;
    return date.format == KL_FORMAT_JULIAN ? date.value - kJulianZero
           : date.format == KL_FORMAT_1950 ? date.value - k1950Zero
                                           : date.value;
}

void fill_record(const Turns<double> &turns, kl_rotation_record *rotation)
{
    rotation->order = 2;
    rotation->dimension = 3;
    for (int axis = 0; axis < 3; ++axis) {
        State column = {2, {}, {}, {}};
        column.pos[axis] = 1.0;
        apply(turns, &column);
        for (int i = 0; i < 3; ++i) {
            rotation->r[i + 1][axis + 1] = column.pos[i];
            rotation->dr[i + 1][axis + 1] = column.vel[i];
            rotation->ddr[i + 1][axis + 1] = column.acc[i];
        }
    }
}

void KL_rva(const Cord *in, const kl_rotation_record *rotation, Cord *out)
{
    MatrixRecord record = {rotation->order, {}, {}, {}};
    KL_dm_to_flat(rotation->r, record.r);
    if (rotation->order >= 1)
        KL_dm_to_flat(rotation->dr, record.dr);
    if (rotation->order >= 2)
        KL_dm_to_flat(rotation->ddr, record.ddr);
    State state = state_of(*in, in->order);
    apply(record, &state);
    copy_out(state, in->cs, out);
}

void KL_Compute_Transformations(int32_t *count, int32_t *current, long final_cs, int32_t *list)
{
    // A goal that is no frame counts as the geocentre; from a place that is none the way goes on at ToD.
    const bool known = *current >= KL_FIRST_FRAME && *current < kFrames;
    const bool goal = final_cs >= KL_FIRST_FRAME && final_cs < kFrames;
    const int code = kWays.first[known ? *current : std::int32_t{KL_TEME}][goal ? final_cs : long{KL_GM2000}];
    list[(*count)++] = code;
    *current = kStep[code].to;
}

long KL_Identify_nutation_or_rotation(kl_time_id *time_id, long count, const int32_t *list, kl_time_record *date)
{
    const auto needs_ut1 = [](std::int32_t code) { return code >= 0 && code < kSteps && (kUt1Steps >> code & 1) != 0; };
    if (!std::any_of(list, list + count, needs_ut1))
        return 0;
    double ut1 = 0.0;
    if (!to_ut1(time_id, *date, &ut1))
        return KL_ERR;
    *date = {KL_REF_UT1, KL_FORMAT_MJD2000, ut1};
    return 0;
}

long KL_Start_computations(kl_model_id *model_id, kl_time_id *time_id, long count, const int32_t *list,
                           const kl_time_record *date, const Cord *in, long final_cs, Cord *out, long order)
{
    Path path;
    if (count < 0 || count > kLongestPath)
        return KL_ERR;
    for (long i = 0; i < count; ++i) {
        if (list[i] < 0 || list[i] >= kSteps)
            return KL_ERR;
        path.add(list[i]);
    }
    const ModelBlocks &models = model_blocks(model_id);
    Sky<double> sky = sky_of(models, false);
    sky.days = mjd2000_of(*date);
    double tdb_days = 0.0;
    if (path.any(set_of(kTranslationEdge)) && !to_tdb(time_id, *date, &tdb_days))
        return KL_ERR;
    if (lacks_routine(models, false, path) || cannot_walk(models, path))
        return KL_ERR;
    State state = state_of(*in, order);
    complete(path, time_id, tdb_days, &sky);
    walk(path, sky, &state);
    copy_out(state, final_cs, out);
    return 0;
}

long KL_Change_CoordinateSystem(kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date,
                                const Cord *in, long final_cs, Cord *out, kl_error_record *error)
{
    return change(KL_FN_CHANGE_COORDINATE_SYSTEM, model_id, time_id, order, date, in, final_cs, out, error, false);
}

long KL_Change_CoordinateSystem_Sim(kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date,
                                    const Cord *in, long final_cs, Cord *out, kl_error_record *error)
{
    return change(KL_FN_CHANGE_COORDINATE_SYSTEM_SIM, model_id, time_id, order, date, in, final_cs, out, error, true);
}

long KL_EF_to_QEF(kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out, long order)
{
    return one_edge(kEfToPef, nullptr, time_id, date, in, out, order);
}

// The edges by their names.

long KL_GALACTIC_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge(kGalacticToBm1950, model_id, time_id, date, in, out, order);
}

long KL_GALACTIC_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge(kGalacticToBm2000, model_id, time_id, date, in, out, order);
}

long KL_BM1950_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kBm1950ToBm2000, model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kBm2000ToHm2000, model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kBm2000ToGm2000, model_id, time_id, date, in, out, order);
}

long KL_HM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kHm2000ToGm2000, model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                      long order)
{
    return one_edge(kGm2000ToMod, model_id, time_id, date, in, out, order);
}

long KL_MoD_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge(kModToTod, model_id, time_id, date, in, out, order);
}

long KL_TOD_to_TEME(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                    long order)
{
    return one_edge(kTodToTeme, model_id, time_id, date, in, out, order);
}

long KL_ToD_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge(kTodToPef, model_id, time_id, date, in, out, order);
}

long KL_PEF_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge(kPefToTod, model_id, time_id, date, in, out, order);
}

long KL_EF_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge(kEfToPef, model_id, time_id, date, in, out, order);
}

long KL_PEF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge(kPefToEf, model_id, time_id, date, in, out, order);
}

long KL_TEME_to_TOD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                    long order)
{
    return one_edge(kTemeToTod, model_id, time_id, date, in, out, order);
}

long KL_ToD_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge(kTodToMod, model_id, time_id, date, in, out, order);
}

long KL_MoD_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                      long order)
{
    return one_edge(kModToGm2000, model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kGm2000ToHm2000, model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kGm2000ToBm2000, model_id, time_id, date, in, out, order);
}

long KL_HM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kHm2000ToBm2000, model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge(kBm2000ToBm1950, model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge(kBm2000ToGalactic, model_id, time_id, date, in, out, order);
}

long KL_BM1950_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge(kBm1950ToGalactic, model_id, time_id, date, in, out, order);
}

long KL_EF_to_LIF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge(kEfToLif, model_id, time_id, date, in, out, order);
}

long KL_LIF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge(kLifToEf, model_id, time_id, date, in, out, order);
}
