// The frame chain: frames, the edges between them, and the walk along edges on plain values.
//
// A new frame is a row of kEdge and its kind, with what turns_of() or make_ready() makes of it; ways and sets of edges
// follow from the table.
#ifndef KL_SRC_FRAMES_CHAIN_H
#define KL_SRC_FRAMES_CHAIN_H

#include "ephemerides/earth.h"
#include "frames/earth_rotation.h"
#include "frames/precession.h"
#include "frames/star_frames.h"

#include <cstdint>

enum EdgeKind {
    kGalacticEdge,
    kB1950Edge,
    kTranslationEdge,
    kPrecessionEdge,
    kNutationEdge,
    kTemeEdge,
    kSiderealEdge,
    kPoleEdge,
    kLaunchEdge,
    kEdgeKinds
};

struct ChainStep {
    std::int8_t from, to;
    EdgeKind kind;
    bool back;
};

// A step made ready: it acts on any state at its instants.
template <class T, class Still = bool>
struct ReadyStep {
    const ChainStep *step;
    Turns<T> turns;
    Still still;               // without a pole: not even the sign of a zero changes
    const MatrixRecord *fixed; // galactic
    MatrixRecord own;          // B1950, of one instant
};

inline namespace KL_SET {

// A step made ready at the instants of T.
template <class T>
using ReadyFor = ReadyStep<T, mask_of<T>>;

// An edge stands once. The codes are those by which the family lists a way there and back.
struct Edge {
    std::int8_t from, to;
    EdgeKind kind;
    std::int8_t code, code_back;
};
constexpr Edge kEdge[] = {
    {KL_GALACTIC, KL_BM1950, kGalacticEdge, 0, 21},
    {KL_GALACTIC, KL_BM2000, kGalacticEdge, 1, 20},
    {KL_BM1950, KL_BM2000, kB1950Edge, 2, 19},
    {KL_BM2000, KL_HM2000, kTranslationEdge, 3, 18},
    {KL_BM2000, KL_GM2000, kTranslationEdge, 4, 17},
    {KL_HM2000, KL_GM2000, kTranslationEdge, 5, 16},
    {KL_GM2000, KL_MOD, kPrecessionEdge, 6, 15},
    {KL_MOD, KL_TOD, kNutationEdge, 7, 14},
    {KL_TOD, KL_TEME, kTemeEdge, 8, 13},
    {KL_TOD, KL_PEF, kSiderealEdge, 9, 10},
    {KL_PEF, KL_EF, kPoleEdge, 12, 11},
    {KL_EF, KL_LIF, kLaunchEdge, 22, 23},
};
constexpr int kEdges = sizeof kEdge / sizeof kEdge[0];
constexpr int kSteps = 2 * kEdges;   // an edge in one direction
constexpr int kFrames = KL_TEME + 1; // numbered from 1
constexpr int kLongestPath = 16;     // the longest way has seven steps

// ---- what follows from the table ----

struct StepsByCode {
    ChainStep step[kSteps];
    std::uint32_t of_kind[kEdgeKinds]; // a bit a step
};
constexpr StepsByCode steps_by_code()
{
    StepsByCode steps{};
    for (const Edge &edge : kEdge) {
        steps.step[edge.code] = {edge.from, edge.to, edge.kind, false};
        steps.step[edge.code_back] = {edge.to, edge.from, edge.kind, true};
        steps.of_kind[edge.kind] |= std::uint32_t{1} << edge.code | std::uint32_t{1} << edge.code_back;
    }
    return steps;
}
constexpr StepsByCode kStepsByCode = steps_by_code();
constexpr const ChainStep *kStep = kStepsByCode.step;

constexpr int step_between(long from, long to)
{
    int code = 0;
    while (kStep[code].from != from || kStep[code].to != to)
        ++code;
    return code;
}

using StepSet = std::uint32_t;
constexpr StepSet set_of(EdgeKind kind)
{
    return kStepsByCode.of_kind[kind];
}
constexpr StepSet steps_about_barycentre()
{
    StepSet steps = 0;
    for (int code = 0; code < kSteps; ++code)
        if (kStep[code].kind == kTranslationEdge && (kStep[code].from == KL_BM2000 || kStep[code].to == KL_BM2000))
            steps |= StepSet{1} << code;
    return steps;
}
constexpr StepSet kNutationSteps = set_of(kNutationEdge) | set_of(kTemeEdge) | set_of(kSiderealEdge);
constexpr StepSet kUt1Steps = kNutationSteps | set_of(kPoleEdge) | set_of(kLaunchEdge);

// First step of the shortest way from a frame to another: the code.
struct Ways {
    std::int8_t first[kFrames][kFrames];
};
constexpr Ways shortest_ways()
{
    constexpr int kFar = 100;
    int steps[kFrames][kFrames] = {};
    for (int a = 0; a < kFrames; ++a)
        for (int b = 0; b < kFrames; ++b)
            steps[a][b] = a == b ? 0 : kFar;
    for (int round = 0; round < kFrames; ++round)
        for (const Edge &edge : kEdge)
            for (int goal = 1; goal < kFrames; ++goal) {
                const int from = steps[edge.from][goal];
                const int to = steps[edge.to][goal];
                steps[edge.from][goal] = to + 1 < from ? to + 1 : from;
                steps[edge.to][goal] = from + 1 < to ? from + 1 : to;
            }
    Ways ways{};
    for (int at = 1; at < kFrames; ++at)
        for (int goal = 1; goal < kFrames; ++goal)
            for (int code = kSteps; code-- > 0;)
                if (kStep[code].from == at && steps[kStep[code].to][goal] + 1 == steps[at][goal])
                    ways.first[at][goal] = static_cast<std::int8_t>(code);
    // Where there is nowhere to go: towards the geocentre, and away from it.
    for (int at = 1; at < kFrames; ++at)
        ways.first[at][at] = at == KL_GM2000 ? ways.first[KL_GM2000][KL_MOD] : ways.first[at][KL_GM2000];
    return ways;
}
constexpr Ways kWays = shortest_ways();

struct Path {
    std::int32_t n = 0;
    StepSet set = 0;
    std::int32_t steps[kLongestPath] = {};

    void add(std::int32_t code)
    {
        steps[n++] = code;
        set |= StepSet{1} << code;
    }
    bool any(StepSet of) const { return (set & of) != 0; }
};

inline Path path_between(long initial, long final_cs)
{
    Path path;
    for (long at = initial; at != final_cs; at = kStep[path.steps[path.n - 1]].to)
        path.add(kWays.first[at][final_cs]);
    return path;
}

// ---- the walk ----

// All that the steps of a way read, at one instant or at a pack of instants.
template <class T>
struct Sky {
    const EarthModel *earth_model;
    bool simplified;      // without nutation, linear sidereal angle
    T days;               // UT1 where the way needs it, else as given: since 2000-01-01 00:00
    PoleOf<T> pole;       // where the way has a polar motion
    EarthStates<T> earth; // where it has a translation
    NutationOf<T> nutation;

    void complete(const Path &path)
    {
        if (path.any(kNutationSteps) && !simplified)
            nutation = nutation_at(days);
    }
};

// The Earth where the translations of a way need it; the barycentre is left out where none of them sees it.
template <class T>
EarthStates<T> earth_on(const Path &path, T tdb_days)
{
    if (path.any(steps_about_barycentre()))
        return earth_states(tdb_days);
    return {{}, heliocentric_earth(tdb_days)};
}

inline const MatrixRecord *galactic_matrix(const ChainStep &step)
{
    return step.from == KL_BM1950 ? &kB1950ToGalactic
           : step.to == KL_BM1950 ? &kGalacticToB1950
           : step.back            ? &kJ2000ToGalactic
                                  : &kGalacticToJ2000;
}

// x axis from the true to the mean equinox.
template <class T>
Turns<T> teme_turns(const NutationOf<T> &nutation)
{
    T q[3];
    equation_of_equinoxes(nutation, q);
    return turns_by<T>({{2, q[0], q[1], q[2]}});
}

template <class T>
Turns<T> turns_of(EdgeKind kind, const Sky<T> &sky)
{
    switch (kind) {
    case kPrecessionEdge:
        return precession_turns(precession_at(sky.days));
    case kNutationEdge:
        return sky.simplified ? Turns<T>{} : nutation_turns(sky.nutation);
    case kTemeEdge:
        return sky.simplified ? Turns<T>{} : teme_turns(sky.nutation);
    case kSiderealEdge:
        return z_turn(sky.simplified ? linear_sidereal_angle(*sky.earth_model, sky.days)
                                     : sidereal_angle(*sky.earth_model, sky.days, sky.nutation));
    case kPoleEdge:
        return polar_motion_turns(sky.pole);
    default:
        return {};
    }
}

template <class T>
void make_ready(int code, const Sky<T> &sky, ReadyFor<T> *ready)
{
    const ChainStep &step = kStep[code];
    ready->step = &step;
    ready->turns.n = 0;
    if (step.kind == kPoleEdge)
        ready->still = has_no_pole(sky.pole);
    if (step.kind == kGalacticEdge)
        ready->fixed = galactic_matrix(step);
    else if (step.kind != kB1950Edge)
        ready->turns = turns_of(step.kind, sky);
    else if constexpr (lanes_of<T> == 1) { // instants one by one
        ready->own = step.back ? j2000_to_b1950(sky.days) : b1950_to_j2000(sky.days);
        ready->fixed = &ready->own;
    }
}

// Adds `sign` times a state without acceleration; velocities move when the walk carries them.
template <class T, class R>
void shift(StateOf<T> *state, const BodyState<R> &by, double sign)
{
    for (int i = 0; i < 3; ++i)
        state->pos[i] += sign * by.pos[i];
    if (state->order >= 1)
        for (int i = 0; i < 3; ++i)
            state->vel[i] += sign * by.vel[i];
}

// GM = BM - E_b, GM = HM - E_h, HM = BM - (E_b - E_h), and the reverse steps add.
template <class R, class T>
void translate(const ChainStep &step, const EarthStates<R> &earth, StateOf<T> *state)
{
    if (step.from == KL_BM2000)
        shift(state, earth.barycentric, -1.0);
    if (step.from == KL_HM2000)
        shift(state, earth.heliocentric, -1.0);
    if (step.to == KL_BM2000)
        shift(state, earth.barycentric, 1.0);
    if (step.to == KL_HM2000)
        shift(state, earth.heliocentric, 1.0);
}

// Back to the state before, in the lanes of the mask.
template <class M, class T>
void keep(M lanes, const StateOf<T> &before, StateOf<T> *state)
{
    for (int i = 0; i < 3; ++i) {
        state->pos[i] = select(lanes, before.pos[i], state->pos[i]);
        state->vel[i] = select(lanes, before.vel[i], state->vel[i]);
        state->acc[i] = select(lanes, before.acc[i], state->acc[i]);
    }
}

template <class R, class M, class T>
void walk(const ReadyStep<R, M> &ready, const EarthStates<R> &earth, StateOf<T> *state)
{
    switch (ready.step->kind) {
    case kGalacticEdge:
    case kB1950Edge:
        apply(*ready.fixed, state);
        break;
    case kTranslationEdge:
        translate(*ready.step, earth, state);
        break;
    default: {
        const StateOf<T> before = *state;
        if (ready.step->back)
            apply_back(ready.turns, state);
        else
            apply(ready.turns, state);
        if constexpr (lanes_of < R >> 1) // one instant without a pole has no turns
            if (ready.step->kind == kPoleEdge && ready.turns.n != 0 && any(ready.still))
                keep(ready.still, before, state);
    }
    }
}

// The way of a state at the instants of the sky.
template <class T>
void walk(const Path &path, const Sky<T> &sky, StateOf<T> *state)
{
    ReadyFor<T> ready;
    for (std::int32_t i = 0; i < path.n; ++i) {
        make_ready(path.steps[i], sky, &ready);
        walk(ready, sky.earth, state);
    }
}

} // namespace KL_SET

#endif
