// Times, states and events as values: laws, and searches on a grid.
#include "objects/objects.h"
#include "support/fault_injection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <type_traits>

using namespace std::chrono_literals;
using ORBKIT::Frame;
using ORBKIT::Scale;
using ORBKIT::StateVector;
using ORBKIT::Time;

static_assert(!std::is_convertible_v<Frame, long> && !std::is_convertible_v<long, Frame>);
static_assert(!std::is_constructible_v<StateVector, ORBKIT::Vector, ORBKIT::Vector, ORBKIT::IersFrame, Time>);
static_assert(!std::is_constructible_v<Time, const char *, Scale, ORBKIT::TimeCorrelation>); // it would die first
static_assert(std::is_same_v<ORBKIT::TimeId, ORBKIT::TimeCorrelation>);
// In the place of an enumeration neither its number nor a value of another one.
template <class Function, class... Arguments>
using Invocable = std::is_invocable<Function, Arguments...>;
template <class Right, class Wrong, class Function, class... Before>
constexpr bool kOnly =
    std::conjunction_v<Invocable<Function, Before..., Right>, std::negation<Invocable<Function, Before..., long>>,
                       std::negation<Invocable<Function, Before..., int>>,
                       std::negation<Invocable<Function, Before..., Wrong>>>;
static_assert(kOnly<Scale, Frame, decltype(&Time::in), Time>);
static_assert(kOnly<Frame, ORBKIT::IersFrame, decltype(&StateVector::in), StateVector>);
static_assert(kOnly<Frame, Scale, decltype(&ORBKIT::Position::in), ORBKIT::Position>);
static_assert(kOnly<ORBKIT::Elements, ORBKIT::OrbitalFrame, decltype(&StateVector::kepler), StateVector>);
static_assert(kOnly<ORBKIT::OrbitalFrame, ORBKIT::Elements, decltype(&StateVector::localFrame), StateVector>);
static_assert(std::is_constructible_v<Time, std::string, Scale> && !std::is_constructible_v<Time, std::string, long>);
static_assert(!std::is_constructible_v<Time, std::string, Frame> && !std::is_constructible_v<ORBKIT::Planet, long>);
static_assert(!std::is_invocable_v<decltype(&ORBKIT::TimeCorrelation::getPole), ORBKIT::TimeCorrelation, long, double>);
static_assert(!std::is_constructible_v<ORBKIT::Planet, Frame> && !std::is_convertible_v<ORBKIT::Elements, long>);
// Copied, compared and printed, all of them.
template <class, class = void>
constexpr bool kValue = false;
template <class T>
constexpr bool kValue<T, std::void_t<decltype(std::declval<const T &>() == std::declval<const T &>()),
                                     decltype(std::declval<const T &>() != std::declval<const T &>()),
                                     decltype(std::declval<std::ostream &>() << std::declval<const T &>())>> =
    std::is_copy_constructible_v<T> &&std::is_copy_assignable_v<T>;
template <class... T>
constexpr bool kValues = (kValue<T> && ...);
static_assert(kValues<Time, ORBKIT::TimeText, ORBKIT::TimeCorrelation, ORBKIT::Cuc, ORBKIT::Position, StateVector,
                      ORBKIT::StateVectors, ORBKIT::IersState, ORBKIT::OnBoardTime<kl_obt_param_tarvos>,
                      ORBKIT::OnBoardTime<kl_obt_param_kelda>, ORBKIT::OnBoardTime<kl_obt_param_brisa>,
                      ORBKIT::OnBoardTime<kl_obt_param_vardo>>);
static_assert(kValues<ORBKIT::GroundStation, ORBKIT::Planet, ORBKIT::Star, ORBKIT::StarCatalog, ORBKIT::Eclipse,
                      ORBKIT::Ray, ORBKIT::Rotation, ORBKIT::MeanMotion, ORBKIT::Span, ORBKIT::events::Crossing,
                      ORBKIT::events::Interval, ORBKIT::events::Pass>);
static_assert(sizeof(Time) == 24 && std::is_trivially_copyable_v<Time>);

namespace {

const Time kEpoch("2026-06-21T00:00:00");
const ORBKIT::MeanMotion kOrbit({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, kEpoch);

// IERS Bulletin C 52: the second after 2016-12-31T23:59:59 UTC is 23:59:60.
TEST(TimeValue, CountsThroughALeapSecond)
{
    const Time before("2016-12-31T23:59:59.500000");
    const char *const expected[] = {"2016-12-31T23:59:59.500000", "2016-12-31T23:59:60.500000",
                                    "2017-01-01T00:00:00.500000"};
    Time time = before;
    for (const char *text : expected) {
        EXPECT_STREQ(time.text().c_str(), text);
        EXPECT_EQ(Time(text), time);
        time += 1s;
    }
    EXPECT_EQ(Time("2017-01-01T00:00:00") - Time("2016-12-31T23:59:59"), 2s);
    EXPECT_LT(Time("2016-12-31T23:59:60"), Time("2017-01-01T00:00:00"));
}

const kl_cuc_config kCuc = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 3};
const kl_obt_param_vardo kClock = {51, 0};

TEST(TimeValue, ComesBackFromEveryScaleFormatAndClock)
{
    for (const char *text : {"1975-03-01T12:34:56.789012", "1999-12-31T23:59:59.999999", "2016-12-31T23:59:60.500001",
                             "2026-06-21T08:24:00.000001"}) {
        const Time time(text);
        const bool leaps = std::string(text).find(":60") != std::string::npos;
        EXPECT_EQ(Time::fromCuc(time.cuc(kCuc), kCuc), time) << text;
        EXPECT_TRUE(leaps || Time(time.systemClock()) == time) << text; // that second has no name there
        for (const Scale scale : {Scale::TAI, Scale::UTC, Scale::UT1, Scale::GPS}) {
            EXPECT_TRUE((leaps && scale == Scale::UTC) || Time::fromProcessing(time.processing(scale), scale) == time)
                << text;
            std::stringstream printed;
            printed << time.in(scale);
            EXPECT_EQ(Time(printed.str()), time) << printed.str();
            EXPECT_EQ(Time(printed.str()).scale(), scale);
            EXPECT_EQ(Time::fromTransport(time.transport(ORBKIT::TransportFormat::format_22, scale),
                                          ORBKIT::TransportFormat::format_22, scale),
                      time);
        }
        for (const auto format :
             {ORBKIT::TextFormat::ascii_13, ORBKIT::TextFormat::ascii_24, ORBKIT::TextFormat::ascii_33,
              ORBKIT::TextFormat::ascii_44, ORBKIT::TextFormat::ascii_53})
            EXPECT_EQ(Time(time.text(format, Scale::TAI).c_str(), Scale::TAI), time) << time.text(format).c_str();
    }
    const Time later("2024-05-17T16:53:20.5", Scale::GPS);
    EXPECT_EQ(Time::fromOnBoard(later.onBoard(kClock, Scale::GPS), kClock, Scale::GPS), later);
    EXPECT_LT(std::abs((Time::now() - Time(std::chrono::system_clock::now())).count()), 1000000);
}

TEST(TimeValue, TakesWhatPeopleType)
{
    const Time time("2026-06-21T08:24:00.250000");
    for (const char *text : {"2026-06-21 08:24:00.25", " 2026-06-21T08:24:00.25Z ", "2026-06-21_08:24:00.2500000",
                             "21-Jun-2026 08:24:00.25", "20260621_082400250000", "2026-172T08:24:00.25",
                             "GPS=2026-06-21T08:24:18.25", "2026-06-21T08:24:00.2499995Z\n"})
        EXPECT_EQ(Time(text), time) << text;
    for (const char *text :
         {"", "yesterday", "2026-13-01T00:00:00", "2026-06-21", "2026-06-21T08:24:00.", "Z", "2026-06-21T08:24:00.25x",
          "2026-06-21T08:24:00.2500000x", "XYZ=2026-06-21T08:24:00", "2026-06-31T00:00:00", "2026-06-21T08:24:60"})
        EXPECT_THROW(Time{text}, KitError) << text;
    const std::string_view line = "2026-06-21T08:24:00.25,7.1";
    EXPECT_EQ(Time(line.substr(0, line.find(','))), time);
    EXPECT_EQ(Time(time.text()), time);
    EXPECT_THROW(Time(std::string("2026-06-21T08:24:00\0.5", 22)), KitError);
    EXPECT_THROW(Time(std::string_view("2026-06-21T08:24:00\0.5", 22)), KitError);
    EXPECT_THROW(Time(std::string_view("2026-06-21T08:24:00" + std::string(90, ' '))), KitError);
    EXPECT_THROW(Time(static_cast<const char *>(nullptr)), KitError);
    throws("between 1950 and 2099", [] { return Time() + std::chrono::hours(24 * 366 * 1000); });
    throws("between 1950 and 2099", [] { return Time() - Time::Duration::max(); });
    throws("between 1950 and 2099", [] { return Time() - Time::Duration::min(); }); // whose negative there is not
}

TEST(TimeValue, TakesALayoutToTheCharacter)
{
    using ORBKIT::TextFormat;
    const Time leap("2016-12-31T23:59:60.000001");
    EXPECT_EQ(Time::fromText("2016-12-31T23:59:60.000001", TextFormat::iso), leap);
    EXPECT_EQ(Time::fromText("GPS=20170101_000017000001", TextFormat::ascii_24), leap);
    EXPECT_EQ(Time::fromText("GPS=20170101_000017000001", TextFormat::ascii_24).scale(), Scale::GPS);
    EXPECT_EQ(Time::fromText("2017-01-01T00:00:36.000001", TextFormat::iso, Scale::TAI), leap);
    for (const char *text : {"2016-12-31T23:59:60", "2016-12-31 23:59:60.000001", " 2016-12-31T23:59:60.000001",
                             "UTC=2016-12-31T23:59:60.000001", "2016-12-31T23:59:60.000001Z", ""})
        EXPECT_THROW(Time::fromText(text, TextFormat::iso), KitError) << text;
}

// Counts of a fixed generator over the whole range; beyond 2^14 days a rounded product of days would be one off.
TEST(TimeValue, EveryMicrosecondComesBackFromItsText)
{
    std::uint64_t random = 7;
    for (int i = 0; i < 20000; ++i) {
        random = random * 6364136223846793005U + 1442695040888963407U;
        const auto count = static_cast<std::int64_t>(random >> 12) % (54780 * std::int64_t{86400000000});
        const Time time = Time::fromTaiMicroseconds(count - 18260 * std::int64_t{86400000000});
        for (const Scale scale : {Scale::TAI, Scale::UTC, Scale::UT1, Scale::GPS})
            ASSERT_EQ(Time(time.text(ORBKIT::TextFormat::ascii_44, scale)), time) << time;
    }
    using Clock = std::chrono::system_clock;
    const auto early = Clock::time_point(std::chrono::nanoseconds(-1501)); // to the nearest, before 1970 too
    EXPECT_EQ(Time(early), Time("1970-01-01T00:00:00") - 2us);
    EXPECT_EQ(Time(Clock::time_point(std::chrono::nanoseconds(1499))), Time("1970-01-01T00:00:00") + 1us);
    EXPECT_THROW(Time{Clock::time_point::min()}, KitError);
    EXPECT_THROW(Time{Clock::time_point::max()}, KitError);
}

// CCSDS 301.0-B: the P-field has a second octet beyond 4 coarse or 3 fine ones. Octets on the heap: none but a code's
// own are read, and none behind them written.
TEST(CucValue, CodesAreAsLongAsTheirLayouts)
{
    const Time time("2026-06-21T08:24:00.250000");
    for (const long type : {KL_CUC_TIME_FIELD_ONLY, KL_CUC_WITH_P_FIELD})
        for (long coarse = 4; coarse <= 7; ++coarse)
            for (long fine = 1; fine <= 10; ++fine) {
                const ORBKIT::Cuc codes({type, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, coarse, fine});
                const ORBKIT::CucTime octets = codes.encode(time);
                const auto end = octets.begin() + static_cast<std::ptrdiff_t>(codes.length());
                EXPECT_EQ(std::count(end, octets.end(), 0), octets.end() - end);
                const std::vector<unsigned char> own(octets.begin(), end);
                EXPECT_LE(std::abs((codes.decode(own.data()) - time).count()), fine > 2 ? 0 : 2000) << codes; // us
                EXPECT_EQ(codes.decode(own.data()), codes.decode(octets));
            }
    EXPECT_EQ(ORBKIT::Cuc({KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 4, 3}).length(), 8U);
    EXPECT_EQ(ORBKIT::Cuc({KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, 0, 0.0, 4, 4}).length(), 10U);
}

// Memory fails at the first asking: nobody asks.
TEST(Values, TakeNoMemory)
{
    SKIP_WITHOUT_FAULTS();
    const std::string line = "2026-06-21T08:24:00.250000,UTC";
    const ORBKIT::GroundStation station(48.0, 11.0, 600.0);
    const ORBKIT::Star star{kl_star{}};
    faults::Fail fail(faults::Site::kAllocation);
    const Time time(std::string_view(line).substr(0, 26));
    const Time typed("2026-06-21T08:24:00.250000Z");
    const ORBKIT::TimeText text = time.text();
    const StateVector state = kOrbit(time);
    const ORBKIT::CucTime octets = ORBKIT::Cuc(kCuc).encode(time);
    const double sum = state.in(Frame::EF).pos()[0] + state.geodetic().height + state.kepler().eccentricity
                       + state.raDec().ra + state.seenFrom(station).range + state.orbitAngle().angle
                       + state.localFrame(ORBKIT::OrbitalFrame::QSW).axes[0] + ORBKIT::Sun::at(time).pos()[0]
                       + ORBKIT::Eclipse::at(state).depth + star.place(time, Frame::TOD, {}, state).ra
                       + ORBKIT::Ray(state.position(), {0.0, 0.0, 1.0}).ellipsoid().t[0];
    EXPECT_FALSE(fail.disarm());
    EXPECT_TRUE(time == typed && octets[0] != 0 && text == typed.text() && sum != 0.0);
}

TEST(Values, DoNotMixCorrelationsAndNeedAnInstantForAnotherFrame)
{
    const ORBKIT::TimeCorrelation mine({37.0 / 86400.0, 0.0, 0.0, 18.0 / 86400.0});
    const ORBKIT::TimeCorrelation shared = mine;
    const Time here("2026-06-21T08:24:00");
    const Time there("2026-06-21T08:24:00", Scale::UTC, mine);
    EXPECT_EQ(there, Time("2026-06-21T08:24:00", Scale::UTC, shared)); // one id
    throws("different time correlations", [&] { return here - there; });
    throws("different time correlations", [&] { return here == there; });
    throws("different time correlations", [&] { ORBKIT::events::node_crossings(kOrbit, {here, there + 1h}); });
    throws("different time correlations", [&] { kOrbit(there); });
    ORBKIT::StateVectors states(Frame::TOD);
    states.add({7e6, 0, 0}, {0, 7e3, 0}, here);
    throws("different time correlations", [&] { states.add({7e6, 0, 0}, {0, 7e3, 0}, there); });
    throws("in one frame", [&] { states.add(StateVector({7e6, 0, 0}, {0, 7e3, 0}, Frame::EF, here)); });
    const StateVector nowhen({7e6, 0, 0}, {0, 7e3, 0}, Frame::EF);
    EXPECT_EQ(nowhen.in(Frame::EF), nowhen);
    throws("needs an instant", [&] { nowhen.in(Frame::TOD); });
    throws("needs an instant", [&] { nowhen.position().in(Frame::TOD); });
    throws("no instant", [&] { ORBKIT::Eclipse::at(nowhen); });
    const auto foreign = [&](const Time &t) {
        return StateVector({7e6, 0, 0}, {0, 7e3, 0}, Frame::TOD, there + (t - here));
    };
    const ORBKIT::GroundStation pole(90.0, 0.0, 0.0);
    throws("different time correlations", [&] { ORBKIT::events::passes(foreign, pole, {here, here + 1h}); });
    throws("different time correlations", [&] { ORBKIT::events::eclipses(foreign, {here, here + 1h}); });
    throws("different time correlations", [&] { ORBKIT::events::node_crossings(foreign, {here, here + 1h}); });
    const ORBKIT::Star star{kl_star{}};
    const auto all = ORBKIT::StarCorrections::all;
    throws("at another instant", [&] { star.place(here, Frame::GM2000, all, kOrbit(here + 1s)); });
    throws("different time correlations", [&] { star.place(here, Frame::GM2000, all, foreign(here)); });
}

void near(const ORBKIT::Vector &a, const ORBKIT::Vector &b, double tolerance)
{
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(a[i], b[i], tolerance);
}

TEST(StateValue, ComesBackFromWhatItBecomes)
{
    const StateVector state = kOrbit(kEpoch + 3h);
    for (const Frame frame : {Frame::GM2000, Frame::MOD, Frame::PEF, Frame::EF, Frame::TEME}) {
        near(state.in(frame).in(Frame::TOD).pos(), state.pos(), 1e-8);
        near(state.in(frame).in(Frame::TOD).vel(), state.vel(), 1e-11);
    }
    const StateVector fixed = state.in(Frame::EF);
    near(StateVector::fromGeodetic(fixed.geodetic(), state.time()).pos(), fixed.pos(), 1e-8);
    near(StateVector::fromKepler(state.kepler(), ORBKIT::Elements::osculating, Frame::TOD, state.time()).pos(),
         state.pos(), 1e-6);
    near(StateVector::fromRaDec(state.raDec(), Frame::TOD, state.time()).vel(), state.vel(), 1e-10);
    const ORBKIT::IersState itrf(fixed.pos(), fixed.vel(), ORBKIT::IersFrame::ITRS, state.time());
    near(itrf.in(ORBKIT::IersFrame::GCRS).in(ORBKIT::IersFrame::ITRS).pos(), fixed.pos(), 1e-8);
    for (const Frame frame : {Frame::EF, Frame::PEF}) {
        throws("do not turn", [&] { state.in(frame).kepler(); });
        throws("do not turn",
               [&] { StateVector::fromKepler(state.kepler(), ORBKIT::Elements::osculating, frame, state.time()); });
    }
    EXPECT_THROW(StateVector({0, 0, 0}, {0, 0, 0}, Frame::TOD, kEpoch).kepler(), KitError);
    const ORBKIT::GroundStation station(48.0, 11.0, 600.0);
    near(StateVector::fromStation(station, state.seenFrom(station), state.time()).vel(), fixed.vel(), 1e-8);
    const double radius = state.raDec().distance;
    near(StateVector::fromOrbitAngle(state.orbitAngle(), radius, state.time()).pos(), state.pos(), 1e-6);
    // Hill's circle about it: what stands still along its axes moves with them.
    const auto kind = ORBKIT::OrbitalFrame::LVLH;
    const ORBKIT::Vector offset = {120.0, -35.0, 7.5}, drift = {0.25, 1.5, -0.125};
    const StateVector other = StateVector::fromLocalFrame(state, kind, offset, drift);
    near(other.beside(state, kind).pos, offset, 1e-8);
    near(other.beside(state, kind).vel, drift, 1e-11);
    const StateVector still = StateVector::fromLocalFrame(state, kind, offset);
    const StateVector later = kOrbit(state.time() + 1s);
    const StateVector moved = StateVector::fromLocalFrame(later, kind, offset);
    for (std::size_t i = 0; i < 3; ++i) // the axes turn as two bodies do, J2 adds a thousandth of 0.13 m/s
        EXPECT_NEAR(moved.pos()[i] - still.pos()[i] - (later.pos()[i] - state.pos()[i]),
                    0.5 * (still.vel()[i] + moved.vel()[i] - state.vel()[i] - later.vel()[i]), 1.3e-4);
    throws("in one frame", [&] { fixed.beside(state, kind); });
    throws("at one instant", [&] { later.beside(state, kind); });
    // A position alone is where the state is.
    const ORBKIT::Position place = state.position();
    near(place.in(Frame::EF).pos(), fixed.pos(), 1e-8);
    near(ORBKIT::Position::fromGeodetic(place.geodetic(), state.time()).pos(), fixed.pos(), 1e-8);
    near(ORBKIT::Position::fromRaDec(place.raDec(), Frame::TOD).pos(), state.pos(), 1e-8);
    EXPECT_EQ(place.seenFrom(station).elevation, state.seenFrom(station).elevation);
}

// IERS Bulletins C: 11 s from 1972-07-01 on, 37 s since 2017; UT1 of that day by finals2000A.
TEST(Values, BuiltInLeapSecondsAndRows)
{
    const ORBKIT::TimeCorrelation published = ORBKIT::TimeCorrelation::builtIn();
    const auto steps = published.getLeapSeconds();
    ASSERT_EQ(steps.size(), 27U);
    EXPECT_EQ(std::tuple(steps.front().utc, steps.front().tai_utc), std::tuple(-10045.0, 11.0));
    EXPECT_EQ(std::tuple(steps.back().utc, steps.back().tai_utc), std::tuple(6210.0, 37.0));
    const kl_time_row_info row = published.getRow(Scale::UTC, 6210.0);
    EXPECT_EQ(row.tai_utc, 37.0);
    EXPECT_NEAR(row.tai_utc - row.tai_ut1, 0.5913, 5e-5);
}

// One call for all has the bits of a call for each.
// Outside the rows of a correlation, and straight above a station. Nothing may leak (seen by the sanitizer): the stars
// are there when the warning is.
TEST(Values, ThrowWarningsWhereTheSwitchSaysSo)
{
    const ORBKIT::TimeCorrelation old = ORBKIT::TimeCorrelation::builtIn(ORBKIT::TimeWindow{6000.0, 6400.0});
    const Time time("2026-06-21T00:00:00", Scale::TAI, old);
    const ORBKIT::IersState state({7e6, 0, 0}, {0, 7e3, 0}, ORBKIT::IersFrame::GCRS, time);
    const ORBKIT::GroundStation station(0.0, 0.0, 0.0);
    kl_topocentric zenith{};
    zenith.elevation = 90.0;
    zenith.range = 1e6;
    for (const bool warn : {true, false}) { // the warning of the stars comes once
        const auto tries = [&](const char *words, auto call) {
            warn ? throws(words, call) : static_cast<void>(call());
        };
        KitClass::throwWarn = warn;
        tries("StarCatalog::window", [&] { return ORBKIT::StarCatalog().brighterThan(3.0, time, Frame::TOD); });
        tries("IersState::in", [&] { return state.in(ORBKIT::IersFrame::ITRS); });
        tries("GroundStation::sees", [&] { return station.sees({8e6, 0, 0}, {0, 7e3, 0}); });
        tries("StateVector::fromStation", [&] { return StateVector::fromStation(station, zenith); });
        KitClass::throwWarn = false;
    }
}

TEST(StateVectors, AreTheirStates)
{
    ORBKIT::StateVectors states(Frame::TOD);
    for (Time t = kEpoch; t < kEpoch + 3h; t += 73s)
        states.add(kOrbit(t));
    const ORBKIT::GroundStation station(48.0, 11.0, 600.0);
    const auto same = [](const auto &a, const auto &b) { return std::memcmp(&a, &b, sizeof a) == 0; };
    const auto fixed = states.in(Frame::EF);
    const auto geodetic = states.geodetic();
    const auto mean = states.kepler(ORBKIT::Elements::mean);
    const auto directions = states.raDec();
    const auto seen = states.seenFrom(station);
    const auto angles = states.orbitAngle();
    const auto axes = states.localFrame(ORBKIT::OrbitalFrame::TNW);
    const auto &times = states.times();
    const auto by_mean = ORBKIT::StateVectors::fromKepler(mean, ORBKIT::Elements::mean, Frame::TOD, times);
    const auto by_place = ORBKIT::StateVectors::fromGeodetic(geodetic, times);
    const auto by_direction = ORBKIT::StateVectors::fromRaDec(directions, Frame::TOD, times);
    for (std::size_t i = 0; i < states.size(); ++i) {
        const StateVector one = states[i];
        EXPECT_EQ(fixed[i], one.in(Frame::EF));
        EXPECT_TRUE(same(geodetic[i], one.geodetic()) && same(mean[i], one.kepler(ORBKIT::Elements::mean))) << i;
        EXPECT_EQ(axes[i], one.localFrame(ORBKIT::OrbitalFrame::TNW));
        EXPECT_EQ(by_mean[i], StateVector::fromKepler(mean[i], ORBKIT::Elements::mean, Frame::TOD, one.time()));
        EXPECT_EQ(by_place[i], StateVector::fromGeodetic(geodetic[i], one.time()));
        EXPECT_EQ(by_direction[i], StateVector::fromRaDec(directions[i], Frame::TOD, one.time()));
        EXPECT_TRUE(same(directions[i], one.raDec()) && same(seen[i], one.seenFrom(station))
                    && same(angles[i], one.orbitAngle()))
            << i;
    }
    EXPECT_TRUE(ORBKIT::StateVectors(Frame::TOD).in(Frame::EF).geodetic().empty());
    states.add({0, 0, 0}, {0, 0, 0}, kEpoch + 4h);
    throws("State 148 of 149", [&] { states.kepler(); });
    throws("State 148 of 149", [&] { states.localFrame(ORBKIT::OrbitalFrame::TNW); });
    throws("an instant for each", [&] { ORBKIT::StateVectors::fromGeodetic(geodetic, states.times()); });
    EXPECT_TRUE(ORBKIT::StateVectors::fromGeodetic({}, {}).empty());
    ORBKIT::StateVectors far(Frame::EF);
    far.add({1e300, 0, 0}, {0, 0, 0}, kEpoch);
    throws("a position is out of range", [&] { far.seenFrom(station); });
}

TEST(Orbits, InterpolatedStatesAreTheMotionAndEndWhereTheyEnd)
{
    const auto truth = [](const Time &t) {
        const double anomaly = 0.06 * 1e-6 * static_cast<double>((t - kEpoch).count()); // 0.06 deg/s
        const double a = std::cbrt(3.9860044e14 / std::pow(0.06 / 57.29577951308232, 2));
        return StateVector::fromKepler({a, 0.01, 98.6, 250.0, 90.0, anomaly}, ORBKIT::Elements::osculating, Frame::TOD,
                                       t);
    };
    ORBKIT::StateVectors states(Frame::TOD);
    for (int i = 0; i < 30; ++i)
        states.add(truth(kEpoch + std::chrono::minutes(i)));
    const ORBKIT::InterpolatedOrbit orbit(states);
    for (Time t = orbit.first(); t <= orbit.last(); t += 7123456us)
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(orbit(t).pos()[i], truth(t).pos()[i], 1e-7 + orbit.error(t)); // m
    throws("no states around", [&] { orbit(kEpoch + 30min); });
    throws("needs two states", [] { ORBKIT::InterpolatedOrbit(ORBKIT::StateVectors(Frame::TOD)); });
    states.add(truth(kEpoch));
    throws("order of time", [&] { ORBKIT::InterpolatedOrbit{states}; });
    throws("not those of an ellipse", [] { ORBKIT::MeanMotion({7e6, 0.9, 10, 0, 0, 0}, kEpoch); });
}

TEST(RayValue, MeetsWhatItMeets)
{
    const ORBKIT::Position camera({7078137.0, 0.0, 0.0}, Frame::EF);
    const ORBKIT::Ray down = ORBKIT::Ray::between(camera, ORBKIT::Position({0.0, 1e6, 5e5}, Frame::EF));
    EXPECT_NEAR(down.point(down.ellipsoid().t[0]).geodetic().height, 0.0, 1e-8);
    EXPECT_NEAR(down.point(down.atHeight(1e5).t[0]).geodetic().height, 1e5, 1e-8);
    EXPECT_EQ(ORBKIT::Ray(camera, {1.0, 0.0, 0.0}).ellipsoid().t[1] < 0.0, true); // behind
    throws("z axis", [] { ORBKIT::Ray(ORBKIT::Position({7e6, 0, 0}, Frame::GM2000), {1, 0, 0}); });
    const double tiny = 5e-324; // the smallest number: neither its length nor what is divided by it is one
    for (const ORBKIT::Vector &direction : {ORBKIT::Vector{tiny, tiny, 0.0}, ORBKIT::Vector{1.7e308, 1.7e308, 0.0}})
        near(ORBKIT::Ray(camera, direction).point(1e3 * std::sqrt(2.0)).pos(),
             {camera.pos()[0] + 1e3, camera.pos()[1] + 1e3, camera.pos()[2]}, 1e-8);
    throws("needs a direction", [&] { ORBKIT::Ray(camera, {0, 0, 0}); });
    throws("no lowest point", [&] { ORBKIT::Ray(camera, {-1, 0, 0}).tangent(); });
}

// To a microsecond: below zero one before, above it one after.
template <class Function>
bool rises(Function f, const Time &t)
{
    return f(t - 1us) <= 0.0 && f(t + 1us) >= 0.0;
}
template <class Function>
bool falls(Function f, const Time &t)
{
    return rises([&](const Time &at) { return -f(at); }, t);
}

// Against the sign of the elevation every ten seconds.
TEST(Events, PassesAreThoseOfAGrid)
{
    const ORBKIT::GroundStation station(67.857, 20.964, 390.0);
    const double lowest = 5.0;
    const auto elevation = [&](const Time &t) { return kOrbit(t).seenFrom(station).elevation; };
    const auto passes = ORBKIT::events::passes(kOrbit, station, {kEpoch, kEpoch + 24h}, lowest);
    std::size_t begun = 0;
    for (Time t = kEpoch; t < kEpoch + 24h; t += 10s)
        begun += elevation(t) < lowest && elevation(t + 10s) >= lowest ? 1 : 0;
    ASSERT_EQ(passes.size(), begun + (elevation(kEpoch) >= lowest ? 1 : 0));
    for (const auto &pass : passes) {
        const auto above = [&](const Time &t) { return elevation(t) - lowest; };
        EXPECT_TRUE(pass.visible.cut_start || rises(above, pass.visible.start));
        EXPECT_TRUE(pass.visible.cut_stop || falls(above, pass.visible.stop));
        EXPECT_GE(pass.elevation, elevation(pass.culmination + 1s));
        EXPECT_GE(pass.elevation, elevation(pass.culmination - 1s));
    }
}

TEST(Events, EclipsesNodesAndSunriseMeetTheirDefinitions)
{
    using ORBKIT::events::Edge;
    const auto seen = [](Edge edge) { return ORBKIT::events::eclipses(kOrbit, {kEpoch, kEpoch + 6h}, edge); };
    const auto outer = seen(Edge::penumbra), centre = seen(Edge::centre), inner = seen(Edge::umbra);
    ASSERT_TRUE(!outer.empty() && outer.size() == centre.size() && centre.size() == inner.size());
    for (std::size_t i = 0; i < outer.size(); ++i) {
        EXPECT_TRUE(outer[i].cut_stop || (outer[i].stop > centre[i].stop && centre[i].stop > inner[i].stop));
        for (const auto &[shadow, edge] : {std::pair(outer[i], 1.0), {centre[i], 0.0}, {inner[i], -1.0}}) {
            const auto dark = [limit = edge](const Time &t) { return limit - ORBKIT::Eclipse::at(kOrbit(t)).depth; };
            EXPECT_TRUE(shadow.cut_start || rises(dark, shadow.start));
            EXPECT_TRUE(shadow.cut_stop || falls(dark, shadow.stop));
        }
    }
    const auto nodes = ORBKIT::events::node_crossings(kOrbit, {kEpoch, kEpoch + 6h});
    ASSERT_GE(nodes.size(), 7U);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_TRUE(
            rises([&](const Time &t) { return kOrbit(t).pos()[2] * (nodes[i].rising ? 1.0 : -1.0); }, nodes[i].time));
        EXPECT_EQ(nodes[i].rising, kOrbit(nodes[i].time).vel()[2] > 0.0);
        EXPECT_TRUE(i == 0 || nodes[i].rising != nodes[i - 1].rising);
    }
    // The Sun does not set at Kiruna at the solstice, and stays up some 12 h 7 min at the equator.
    EXPECT_TRUE(ORBKIT::events::sun_rise_set({67.857, 20.964, 390.0}, {kEpoch, kEpoch + 24h}).empty());
    const auto polar_day = ORBKIT::events::daylight({67.857, 20.964, 390.0}, {kEpoch, kEpoch + 24h});
    EXPECT_TRUE(polar_day.size() == 1 && polar_day[0].cut_start && polar_day[0].cut_stop);
    EXPECT_TRUE(ORBKIT::events::daylight({-80.0, 0.0, 0.0}, {kEpoch, kEpoch + 24h}).empty());
    const auto day = ORBKIT::events::sun_rise_set({0.0, 0.0, 0.0}, {kEpoch, kEpoch + 24h});
    ASSERT_TRUE(day.size() == 2 && day[0].rising && !day[1].rising);
    EXPECT_NEAR(std::chrono::duration<double>(day[1].time - day[0].time).count(), 43200.0 + 430.0, 30.0);
    const auto sun = [](const Time &t) { return ORBKIT::Sun::at(t).seenFrom({0.0, 0.0, 0.0}).elevation + 0.8333; };
    EXPECT_TRUE(rises(sun, day[0].time) && falls(sun, day[1].time));
}

TEST(Events, CutWhatTheSpanCutsAndTellWhatIsWrong)
{
    const auto always = ORBKIT::events::while_above([](const Time &) { return 1.0; }, {kEpoch, kEpoch + 1h});
    ASSERT_EQ(always.size(), 1U);
    EXPECT_TRUE(always[0].cut_start && always[0].cut_stop && always[0].duration() == 1h);
    // Two seconds: nothing of that length is missed by steps of one.
    const auto bump = [](const Time &t) {
        const double s = std::chrono::duration<double>(t - kEpoch).count() - 1800.3;
        return 1.0 - s * s;
    };
    const auto found = ORBKIT::events::while_above(bump, {kEpoch, kEpoch + 1h}, 1s);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_LE(std::abs((found[0].start - (kEpoch + 1799300ms)).count()), 1); // us
    EXPECT_LE(std::abs((found[0].stop - (kEpoch + 1801300ms)).count()), 1);

    const auto fails = [](const Time &) -> double { throw std::runtime_error("no ephemeris"); };
    throws("no ephemeris", [&] { ORBKIT::events::when(fails, {kEpoch, kEpoch + 1h}); });
    throws("failed", [&] { ORBKIT::events::when([](const Time &) -> double { throw 3; }, {kEpoch, kEpoch + 1h}); });
    int calls = 0, last = 0; // wherever it fails: in a search, or at one of its results
    const auto fails_once = [&](const Time &t) {
        if (++calls == last)
            throw std::runtime_error("no ephemeris");
        return kOrbit(t);
    };
    const auto one_pass = [&] {
        calls = 0;
        ORBKIT::events::passes(fails_once, {67.857, 20.964, 390.0}, {kEpoch + 8h, kEpoch + 9h});
    };
    one_pass();
    const int all = calls;
    ASSERT_GT(all, 60);
    for (last = 1; last <= all; ++last)
        throws("no ephemeris", one_pass);
    const auto far = [](const Time &t) { return (t + std::chrono::hours(24 * 365 * 100)).processing(); };
    throws("between 1950", [&] { ORBKIT::events::when(far, {kEpoch, kEpoch + 1h}); }); // its own KitError
    throws("no number", [&] { ORBKIT::events::when([](const Time &) { return NAN; }, {kEpoch, kEpoch + 1h}); });
    throws("span is empty", [&] { ORBKIT::events::when(bump, {kEpoch + 1h, kEpoch}); });
    throws("span is empty", [&] { ORBKIT::events::when(bump, {kEpoch, kEpoch}); });
    throws("step", [&] { ORBKIT::events::when(bump, {kEpoch, kEpoch + 1h}, 0s); });
}

TEST(RotationValue, ComposesInTheOrderOfItsNames)
{
    const auto a_to_b = ORBKIT::Rotation::fromAngles({10.0, 20.0, 30.0});
    const auto b_to_c = ORBKIT::Rotation::fromAngles({-40.0, 5.0, 70.0});
    const ORBKIT::Vector v = {1.0, -2.0, 3.0};
    const ORBKIT::Vector by_steps = b_to_c(a_to_b(v));
    const ORBKIT::Vector at_once = a_to_b.then(b_to_c)(v);
    const ORBKIT::Vector back = a_to_b.inverse()(a_to_b(v));
    const ORBKIT::Rotation by_quaternion = ORBKIT::Rotation::fromQuaternion(a_to_b.quaternion());
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(by_steps[i], at_once[i], 2e-15);
        EXPECT_NEAR(back[i], v[i], 2e-15);
        EXPECT_NEAR(by_quaternion(v)[i], a_to_b(v)[i], 5e-15);
    }
    for (const ORBKIT::Vector &angles : {ORBKIT::Vector{NAN, 0, 0}, {0, NAN, 0}, {0, 0, INFINITY}})
        throws("must be numbers", [&] { ORBKIT::Rotation::fromAngles(angles); });
}

} // namespace
