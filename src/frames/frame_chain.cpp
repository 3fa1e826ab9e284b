// The walk from one frame to another: path, dates, edges.
#include "errors/activation.h"
#include "frames/frames.h"
#include "frames/star_frames.h"
#include "models/model_record.h"
#include "time/scales.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace {

enum EdgeCode {
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
    kEdges
};
constexpr int kLongestPath = 16; // the longest has seven edges

// What the edges of one call share: dates, models, and what was computed from them already.
class Journey {
public:
    Journey(kl_model_id *model_id, kl_time_id *time_handle, double date_days)
        : models(model_blocks(model_id)), time_id(time_handle), days(date_days)
    {
    }

    const ModelBlocks &models;
    kl_time_id *time_id;
    double days;             // UT1 where the path needs it, else as given: days since 2000-01-01 00:00
    double tdb = 0.0;        // MJD2000, for translations
    bool simplified = false; // without nutation, linear sidereal angle

    const kl_nutation &nutation()
    {
        if (!has_nutation_) {
            models.nutation.nutation(days, &nutation_);
            has_nutation_ = true;
        }
        return nutation_;
    }

    // Routines that a refused selection left out.
    bool lacks_precession() const { return models.precession.precession == nullptr; }
    bool lacks_nutation() const { return models.nutation.nutation == nullptr; }
    bool lacks_earth() const { return models.sun.earth == nullptr; }

private:
    kl_nutation nutation_ = {};
    bool has_nutation_ = false;
};

// ---- edges by turns ----

Turns precession(Journey &j)
{
    kl_precession angles;
    j.models.precession.precession(j.days, &angles);
    return precession_turns(angles);
}

Turns nutation(Journey &j)
{
    return j.simplified ? Turns{} : nutation_turns(j.nutation());
}

// x axis from the true to the mean equinox.
Turns teme(Journey &j)
{
    if (j.simplified)
        return {};
    double q[3];
    equation_of_equinoxes(j.nutation(), q);
    return turns_by({{2, q[0], q[1], q[2]}});
}

Turns earth_rotation(Journey &j)
{
    return z_turn(j.simplified ? linear_sidereal_angle(j.models.earth, j.days)
                               : sidereal_angle(j.models.earth, j.days, j.nutation()));
}

Turns polar_motion(Journey &j)
{
    return polar_motion_turns(j.time_id, j.days);
}

// ---- edges by matrices ----

MatrixRecord fixed_galactic(int code)
{
    return code == kGalacticToBm1950   ? kGalacticToB1950
           : code == kGalacticToBm2000 ? kGalacticToJ2000
           : code == kBm2000ToGalactic ? kJ2000ToGalactic
                                       : kB1950ToGalactic;
}

// ---- the table of edges ----

enum Kind { kTurns, kTurnsBack, kGalactic, kB1950, kTranslation, kLaunch };

struct Edge {
    std::int8_t from, to;
    Kind kind;
    Turns (*turns)(Journey &); // of the edge or, for kTurnsBack, of its reverse
};

constexpr Edge kEdge[] = {
    {10, 9, kGalactic, nullptr},
    {10, 1, kGalactic, nullptr},
    {9, 1, kB1950, nullptr},
    {1, 2, kTranslation, nullptr},
    {1, 3, kTranslation, nullptr},
    {2, 3, kTranslation, nullptr},
    {3, 4, kTurns, precession},
    {4, 5, kTurns, nutation},
    {5, 11, kTurns, teme},
    {5, 6, kTurns, earth_rotation},
    {6, 5, kTurnsBack, earth_rotation},
    {7, 6, kTurnsBack, polar_motion},
    {6, 7, kTurns, polar_motion},
    {11, 5, kTurnsBack, teme},
    {5, 4, kTurnsBack, nutation},
    {4, 3, kTurnsBack, precession},
    {3, 2, kTranslation, nullptr},
    {3, 1, kTranslation, nullptr},
    {2, 1, kTranslation, nullptr},
    {1, 9, kB1950, nullptr},
    {1, 10, kGalactic, nullptr},
    {9, 10, kGalactic, nullptr},
    {7, 8, kLaunch, nullptr},
    {8, 7, kLaunch, nullptr},
};
static_assert(std::size(kEdge) == kEdges);

// Sets of edges: a bit an edge.
using EdgeSet = std::uint32_t;

constexpr EdgeSet set_of(std::initializer_list<int> codes)
{
    EdgeSet set = 0;
    for (const int code : codes)
        set |= EdgeSet{1} << code;
    return set;
}

constexpr EdgeSet kPrecessionEdges = set_of({kGm2000ToMod, kModToGm2000});
constexpr EdgeSet kNutationEdges = set_of({kModToTod, kTodToMod, kTodToTeme, kTemeToTod, kTodToPef, kPefToTod});
constexpr EdgeSet kSiderealEdges = set_of({kTodToPef, kPefToTod});
constexpr EdgeSet kLaunchEdges = set_of({kEfToLif, kLifToEf});
constexpr EdgeSet kUt1Edges = kNutationEdges | set_of({kEfToPef, kPefToEf}) | kLaunchEdges;
constexpr EdgeSet kTranslations =
    set_of({kBm2000ToHm2000, kBm2000ToGm2000, kHm2000ToGm2000, kGm2000ToHm2000, kGm2000ToBm2000, kHm2000ToBm2000});

// ---- path ----

// From a frame towards another: the edge to take.
int next_edge(int current, long final_cs)
{
    const auto is = [final_cs](std::initializer_list<long> frames) {
        return std::find(frames.begin(), frames.end(), final_cs) != frames.end();
    };
    switch (current) {
    case KL_BM2000:
        return is({KL_HM2000})     ? kBm2000ToHm2000
               : is({KL_GALACTIC}) ? kBm2000ToGalactic
               : is({KL_BM1950})   ? kBm2000ToBm1950
                                   : kBm2000ToGm2000;
    case KL_HM2000:
        return is({KL_BM1950, KL_GALACTIC, KL_BM2000}) ? kHm2000ToBm2000 : kHm2000ToGm2000;
    case KL_GM2000:
        return is({KL_HM2000})                           ? kGm2000ToHm2000
               : is({KL_BM1950, KL_GALACTIC, KL_BM2000}) ? kGm2000ToBm2000
                                                         : kGm2000ToMod;
    case KL_MOD:
        return is({KL_TOD, KL_PEF, KL_EF, KL_LIF, KL_TEME}) ? kModToTod : kModToGm2000;
    case KL_TOD:
        return is({KL_TEME}) ? kTodToTeme : is({KL_PEF, KL_EF, KL_LIF}) ? kTodToPef : kTodToMod;
    case KL_PEF:
        return is({KL_EF, KL_LIF}) ? kPefToEf : kPefToTod;
    case KL_EF:
        return is({KL_LIF}) ? kEfToLif : kEfToPef;
    case KL_LIF:
        return kLifToEf;
    case KL_BM1950:
        return is({KL_GALACTIC}) ? kBm1950ToGalactic : kBm1950ToBm2000;
    case KL_GALACTIC: // the shortest way: through B1950 only when it is the goal
        return is({KL_BM1950}) ? kGalacticToBm1950 : kGalacticToBm2000;
    default: // KL_TEME
        return kTemeToTod;
    }
}

struct Path {
    std::int32_t n = 0;
    EdgeSet set = 0;
    std::int32_t edges[kLongestPath];

    bool any(EdgeSet of) const { return (set & of) != 0; }
};

Path path_between(long initial, long final_cs)
{
    Path path;
    std::int32_t current = static_cast<std::int32_t>(initial);
    while (current != final_cs) {
        KL_Compute_Transformations(&path.n, &current, final_cs, path.edges);
        path.set |= EdgeSet{1} << path.edges[path.n - 1];
    }
    return path;
}

// ---- dates ----

// Past the processing range by more than a day: UT1 of its first instants lies a little outside.
bool inside_chain_range(double days)
{
    return days >= KL_PROCESSING_FIRST - 1.0 && days <= KL_PROCESSING_LAST + 1.0;
}

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

// A Cord on the stack.
struct LocalCord {
    double vectors[3][4];
    Cord cord = {0, 1, vectors[0], vectors[1], vectors[2]};
};

// Adds `sign` times a state without acceleration; velocities move when the walk carries them.
void shift(State *state, const Cord &by, double sign)
{
    for (int i = 0; i < 3; ++i)
        state->pos[i] += sign * by.pos[i + 1];
    if (state->order >= 1)
        for (int i = 0; i < 3; ++i)
            state->vel[i] += sign * by.vel[i + 1];
}

// GM = BM - E_b, GM = HM - E_h, HM = BM - (E_b - E_h), and the reverse edges add.
bool translate(const Journey &j, int code, State *state)
{
    const kl_time_record tdb = {KL_REF_TDB, KL_FORMAT_MJD2000, j.tdb};
    LocalCord barycentric;
    LocalCord heliocentric;
    if (j.lacks_earth() || j.models.sun.earth(&tdb, &barycentric.cord, &heliocentric.cord, nullptr) != 0)
        return false;
    const Edge &edge = kEdge[code];
    if (edge.from == KL_BM2000)
        shift(state, barycentric.cord, -1.0);
    if (edge.from == KL_HM2000)
        shift(state, heliocentric.cord, -1.0);
    if (edge.to == KL_BM2000)
        shift(state, barycentric.cord, 1.0);
    if (edge.to == KL_HM2000)
        shift(state, heliocentric.cord, 1.0);
    return true;
}

bool walk(Journey &j, int code, State *state)
{
    const Edge &edge = kEdge[code];
    switch (edge.kind) {
    case kTurns: {
        const Turns t = edge.turns(j);
        for (int i = 0; i < t.n; ++i)
            apply(t.turns[i], state);
        return true;
    }
    case kTurnsBack: {
        const Turns t = edge.turns(j);
        for (int i = t.n - 1; i >= 0; --i)
            apply(inverse(t.turns[i]), state);
        return true;
    }
    case kGalactic:
        apply(fixed_galactic(code), state);
        return true;
    case kB1950:
        apply(code == kBm1950ToBm2000 ? b1950_to_j2000(j.days) : j2000_to_b1950(j.days), state);
        return true;
    case kTranslation:
        return translate(j, code, state);
    case kLaunch: // no id holds the reference date and angle
        return false;
    }
    return false;
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

// True when the models lack a routine that the path calls.
bool lacks_routine(const Journey &j, const Path &path)
{
    return (j.lacks_precession() && path.any(kPrecessionEdges))
           || (j.lacks_nutation() && !j.simplified && path.any(kNutationEdges))
           || (j.simplified && path.any(kSiderealEdges) && !has_linear_angle(j.models.earth));
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
    if (path.any(set_of({kModToTod})) && !(in->cs == KL_PTOD && final_cs == KL_PTOD))
        call.warns(KL_CHAIN_PTOD_SKIPPED);
    if (path.n == 0 && in->cs != final_cs)
        call.warns(initial == KL_TOD ? KL_CHAIN_PTOD : KL_CHAIN_QMOD);
    const auto centred_elsewhere = [](long cs) { return cs == KL_BM2000 || cs == KL_HM2000; };
    if (order == 2 && (centred_elsewhere(initial) || centred_elsewhere(last)))
        call.warns(KL_CHAIN_ACCELERATION);
    if (path.any(kLaunchEdges))
        return call.fails(KL_CHAIN_LIF);

    if (path.n == 0) {
        KL_Copy_Cord(in, out);
        out->cs = static_cast<std::int32_t>(final_cs);
        out->order = order_of(*in, order);
        return call.status();
    }

    // Dates: UT1 for the rotations of the Earth, TDB for the place of the Earth; the rest takes what there is.
    const bool ut1 = path.any(kUt1Edges);
    const bool tdb = path.any(kTranslations);
    Journey journey(model_id, time_id, mjd2000_of(*date));
    journey.simplified = simplified;
    if (!inside_chain_range(journey.days))
        return call.fails(KL_CHAIN_DATE_RANGE);
    if (needs_time_id(*date, ut1, tdb) && time_record_of(time_id) == nullptr)
        return call.fails(KL_CHAIN_TIME_ID);
    if ((ut1 && !to_ut1(time_id, *date, &journey.days)) || (tdb && !to_tdb(time_id, *date, &journey.tdb))
        || lacks_routine(journey, path))
        return call.fails(KL_CHAIN_UT1);

    State state = state_of(*in, order);
    for (std::int32_t i = 0; i < path.n; ++i)
        if (!walk(journey, path.edges[i], &state))
            return call.fails(KL_CHAIN_EARTH);
    copy_out(state, final_cs, out);
    return call.status();
}

long one_edge(int code, kl_model_id *model_id, kl_time_id *time_id, const kl_time_record *date, const Cord *in,
              Cord *out, long order)
{
    const std::int32_t list[1] = {code};
    return KL_Start_computations(model_id, time_id, 1, list, date, in, kEdge[code].to, out, order);
}

} // namespace

double mjd2000_of(const kl_time_record &date)
{
    constexpr double kJulianZero = 2451544.5; // 2000-01-01 00:00, true Julian date
    constexpr double k1950Zero = 18262.0;
    return date.format == KL_FORMAT_JULIAN ? date.value - kJulianZero
           : date.format == KL_FORMAT_1950 ? date.value - k1950Zero
                                           : date.value;
}

void fill_record(const Turns &turns, kl_rotation_record *rotation)
{
    rotation->order = 2;
    rotation->dimension = 3;
    for (int axis = 0; axis < 3; ++axis) {
        State column = {2, {}, {}, {}};
        column.pos[axis] = 1.0;
        for (int i = 0; i < turns.n; ++i)
            apply(turns.turns[i], &column);
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
    const int code = next_edge(*current, final_cs);
    list[(*count)++] = code;
    *current = kEdge[code].to;
}

long KL_Identify_nutation_or_rotation(kl_time_id *time_id, long count, const int32_t *list, kl_time_record *date)
{
    const auto needs_ut1 = [](std::int32_t code) { return code >= 0 && code < kEdges && (kUt1Edges >> code & 1) != 0; };
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
    for (path.n = 0; path.n < count; ++path.n) {
        if (list[path.n] < 0 || list[path.n] >= kEdges)
            return KL_ERR;
        path.edges[path.n] = list[path.n];
        path.set |= EdgeSet{1} << list[path.n];
    }
    Journey journey(model_id, time_id, mjd2000_of(*date));
    if (path.any(kTranslations) && !to_tdb(time_id, *date, &journey.tdb))
        return KL_ERR;
    if (lacks_routine(journey, path))
        return KL_ERR;
    State state = state_of(*in, order);
    for (std::int32_t i = 0; i < path.n; ++i)
        if (!walk(journey, path.edges[i], &state))
            return KL_ERR;
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
