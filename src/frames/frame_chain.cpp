// The frame chain for the family: records in, the chain, records out.
#include "errors/activation.h"
#include "frames/change.h"
#include "frames/doors.h"
#include "time/scales.h"

#include <algorithm>
#include <cstdint>

namespace {

State state_of(const Cord &cord, long order)
{
    State state = {static_cast<int>(std::clamp(std::min(order, static_cast<long>(cord.order)), 0L, 2L)), {}, {}, {}};
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

// In MJD2000, whatever its format.
kl_time_record date_of(const kl_time_record &record)
{
    constexpr double kJulianZero = 2451544.5; // 2000-01-01 00:00, true Julian date
    constexpr double k1950Zero = 18262.0;
    return {record.reference, KL_FORMAT_MJD2000,
            record.format == KL_FORMAT_JULIAN ? record.value - kJulianZero
            : record.format == KL_FORMAT_1950 ? record.value - k1950Zero
                                              : record.value};
}

bool is_date(const kl_time_record *date)
{
    return date != nullptr && date->reference >= KL_REF_TDB && date->reference <= KL_REF_UTC
           && date->format >= KL_FORMAT_JULIAN && date->format <= KL_FORMAT_MJD2000;
}

// Frames of the chain; the simplified one has fewer.
bool offers(bool simplified, long cs)
{
    return cs >= KL_FIRST_FRAME && cs <= KL_LAST_FRAME
           && (!simplified || (cs >= KL_GM2000 && cs != KL_LIF && cs != KL_BM1950 && cs != KL_GALACTIC));
}

long change(int function_id, kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date,
            const Cord *in, long final_cs, Cord *out, kl_error_record *error, bool simplified)
{
    Activation call(function_id, error);
    if (!is_date(date))
        return call.fails(KL_CHAIN_DATE_RECORD);
    if (in == nullptr || !offers(simplified, in->cs))
        return call.fails(KL_CHAIN_INITIAL);
    if (out == nullptr || !offers(simplified, final_cs))
        return call.fails(KL_CHAIN_FINAL);
    State state = state_of(*in, order);
    const ChainFindings found =
        change_frame(chain_sources(model_id, time_id), simplified, date_of(*date), in->cs, final_cs, order, &state);
    const long status = record_change(call, found);
    if (found.failed())
        return status;
    if (frame_handled(in->cs) != frame_handled(final_cs)) {
        copy_out(state, final_cs, out);
    } else { // all three vectors, whatever the order
        KL_Copy_Cord(in, out);
        out->cs = static_cast<std::int32_t>(final_cs);
        out->order = state.order;
    }
    return status;
}

long walk_list(kl_model_id *model_id, kl_time_id *time_id, long count, const int32_t *list, const kl_time_record *date,
               const Cord *in, long final_cs, Cord *out, long order)
{
    Path path;
    if (count < 0 || count > kLongestPath)
        return KL_ERR;
    for (long i = 0; i < count; ++i) {
        if (list[i] < 0 || list[i] >= kSteps)
            return KL_ERR;
        path.add(list[i]);
    }
    State state = state_of(*in, order);
    DateFindings found;
    const bool walked = walk_steps(chain_sources(model_id, time_id), path, date_of(*date), &state, &found);
    record_date(found);
    if (!walked)
        return KL_ERR;
    copy_out(state, final_cs, out);
    return 0;
}

template <long From, long To>
long one_edge(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
              long order)
{
    static constexpr std::int32_t kList[1] = {step_between(From, To)};
    return walk_list(model_id, time_id, 1, kList, date, in, To, out, order);
}

} // namespace

bool change_record(kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date, const Cord *in,
                   long final_cs, Cord *out)
{
    return change(KL_FN_CHANGE_COORDINATE_SYSTEM, model_id, time_id, order, date, in, final_cs, out, KL_NO_RECORD,
                  false)
           != KL_ERR;
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
    const auto flatten = [](double *const *rows, double flat[9]) {
        for (int i = 0; i < 3; ++i)
            copy_three(rows[i + 1] + 1, flat + 3 * i);
    };
    flatten(rotation->r, record.r);
    if (rotation->order >= 1)
        flatten(rotation->dr, record.dr);
    if (rotation->order >= 2)
        flatten(rotation->ddr, record.ddr);
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
    DateFindings found;
    const bool converted = ut1_of(correlation_of(time_id), date_of(*date), &ut1, &found);
    record_date(found);
    if (!converted)
        return KL_ERR;
    *date = {KL_REF_UT1, KL_FORMAT_MJD2000, ut1};
    return 0;
}

long KL_Start_computations(kl_model_id *model_id, kl_time_id *time_id, long count, const int32_t *list,
                           const kl_time_record *date, const Cord *in, long final_cs, Cord *out, long order)
{
    return walk_list(model_id, time_id, count, list, date, in, final_cs, out, order);
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
    return one_edge<KL_EF, KL_PEF>(nullptr, time_id, date, in, out, order);
}

// The edges by their names.

long KL_GALACTIC_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge<KL_GALACTIC, KL_BM1950>(model_id, time_id, date, in, out, order);
}

long KL_GALACTIC_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge<KL_GALACTIC, KL_BM2000>(model_id, time_id, date, in, out, order);
}

long KL_BM1950_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_BM1950, KL_BM2000>(model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_BM2000, KL_HM2000>(model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_BM2000, KL_GM2000>(model_id, time_id, date, in, out, order);
}

long KL_HM2000_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_HM2000, KL_GM2000>(model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                      long order)
{
    return one_edge<KL_GM2000, KL_MOD>(model_id, time_id, date, in, out, order);
}

long KL_MoD_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge<KL_MOD, KL_TOD>(model_id, time_id, date, in, out, order);
}

long KL_TOD_to_TEME(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                    long order)
{
    return one_edge<KL_TOD, KL_TEME>(model_id, time_id, date, in, out, order);
}

long KL_ToD_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge<KL_TOD, KL_PEF>(model_id, time_id, date, in, out, order);
}

long KL_PEF_to_ToD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge<KL_PEF, KL_TOD>(model_id, time_id, date, in, out, order);
}

long KL_EF_to_PEF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge<KL_EF, KL_PEF>(model_id, time_id, date, in, out, order);
}

long KL_PEF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge<KL_PEF, KL_EF>(model_id, time_id, date, in, out, order);
}

long KL_TEME_to_TOD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                    long order)
{
    return one_edge<KL_TEME, KL_TOD>(model_id, time_id, date, in, out, order);
}

long KL_ToD_to_MoD(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                   long order)
{
    return one_edge<KL_TOD, KL_MOD>(model_id, time_id, date, in, out, order);
}

long KL_MoD_to_GM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                      long order)
{
    return one_edge<KL_MOD, KL_GM2000>(model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_HM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_GM2000, KL_HM2000>(model_id, time_id, date, in, out, order);
}

long KL_GM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_GM2000, KL_BM2000>(model_id, time_id, date, in, out, order);
}

long KL_HM2000_to_BM2000(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_HM2000, KL_BM2000>(model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_BM1950(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                         Cord *out, long order)
{
    return one_edge<KL_BM2000, KL_BM1950>(model_id, time_id, date, in, out, order);
}

long KL_BM2000_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge<KL_BM2000, KL_GALACTIC>(model_id, time_id, date, in, out, order);
}

long KL_BM1950_to_GALACTIC(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
                           Cord *out, long order)
{
    return one_edge<KL_BM1950, KL_GALACTIC>(model_id, time_id, date, in, out, order);
}

long KL_EF_to_LIF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge<KL_EF, KL_LIF>(model_id, time_id, date, in, out, order);
}

long KL_LIF_to_EF(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in, Cord *out,
                  long order)
{
    return one_edge<KL_LIF, KL_EF>(model_id, time_id, date, in, out, order);
}
