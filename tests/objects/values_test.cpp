// Times, states and events as values: laws, and searches on a grid.
#include "orbkit.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <type_traits>

using namespace std::chrono_literals;
using ORBKIT::Frame;
using ORBKIT::Scale;
using ORBKIT::StateVector;
using ORBKIT::Time;

static_assert(!std::is_convertible_v<Frame, long> && !std::is_convertible_v<long, Frame>);
static_assert(!std::is_constructible_v<StateVector, ORBKIT::Vector, ORBKIT::Vector, ORBKIT::IersFrame, Time>);
static_assert(sizeof(Time) == 16 && std::is_trivially_copyable_v<Time>);

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

TEST(TimeValue, ComesBackFromEveryScaleFormatAndClock)
{
    for (const char *text :
         {"1975-03-01T12:34:56.789012", "1999-12-31T23:59:59.999999", "2026-06-21T08:24:00.000001"}) {
        const Time time(text);
        for (const Scale scale : {Scale::TAI, Scale::UTC, Scale::UT1, Scale::GPS})
            EXPECT_EQ(Time::fromProcessing(time.processing(scale), scale), time) << text;
        EXPECT_EQ(Time::fromTransport(time.transport(ORBKIT::TransportFormat::format_22, Scale::GPS),
                                      ORBKIT::TransportFormat::format_22, Scale::GPS),
                  time);
        EXPECT_EQ(Time::from(time.systemClock()), time);
        for (const auto format :
             {ORBKIT::TextFormat::ascii_13, ORBKIT::TextFormat::ascii_24, ORBKIT::TextFormat::ascii_33,
              ORBKIT::TextFormat::ascii_44, ORBKIT::TextFormat::ascii_53})
            EXPECT_EQ(Time(time.text(format, Scale::TAI).c_str(), Scale::TAI), time) << time.text(format).c_str();
    }
    EXPECT_LT(std::abs((Time::now() - Time::from(std::chrono::system_clock::now())).count()), 1000000);
    EXPECT_THROW(Time("yesterday"), KitError);
    EXPECT_THROW(Time("2026-13-01T00:00:00"), KitError);
}

TEST(StateValue, ComesBackFromWhatItBecomes)
{
    const StateVector state = kOrbit(kEpoch + 3h);
    const auto near = [](const ORBKIT::Vector &a, const ORBKIT::Vector &b, double tolerance) {
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(a[i], b[i], tolerance);
    };
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
    EXPECT_THROW(StateVector({0, 0, 0}, {0, 0, 0}, Frame::TOD, kEpoch).kepler(), KitError);
}

// Against the sign of the elevation every ten seconds.
TEST(Events, PassesAreThoseOfAGrid)
{
    const ORBKIT::GroundStation station(67.857, 20.964, 390.0);
    const double lowest = 5.0;
    const auto elevation = [&](const Time &t) { return kOrbit(t).seenFrom(station).elevation; };
    const auto passes = ORBKIT::events::passes(kOrbit, station, {kEpoch, kEpoch + 24h}, lowest);
    std::size_t rises = 0;
    for (Time t = kEpoch; t < kEpoch + 24h; t += 10s)
        rises += elevation(t) < lowest && elevation(t + 10s) >= lowest ? 1 : 0;
    ASSERT_EQ(passes.size(), rises + (elevation(kEpoch) >= lowest ? 1 : 0));
    for (const auto &pass : passes) {
        EXPECT_TRUE(pass.visible.cut_start || std::fabs(elevation(pass.visible.start) - lowest) < 1e-6); // deg
        EXPECT_TRUE(pass.visible.cut_stop || std::fabs(elevation(pass.visible.stop) - lowest) < 1e-6);
        EXPECT_GE(pass.elevation, elevation(pass.culmination + 1s));
        EXPECT_GE(pass.elevation, elevation(pass.culmination - 1s));
    }
}

TEST(Events, EclipsesNodesAndSunriseMeetTheirDefinitions)
{
    const auto shadows = ORBKIT::events::eclipses(kOrbit, {kEpoch, kEpoch + 6h}, 0.0);
    ASSERT_FALSE(shadows.empty());
    for (const auto &shadow : shadows)
        EXPECT_TRUE(shadow.cut_stop || std::fabs(ORBKIT::Eclipse::at(kOrbit(shadow.stop)).depth) < 1e-5);
    const auto nodes = ORBKIT::events::nodeCrossings(kOrbit, {kEpoch, kEpoch + 6h});
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        EXPECT_NEAR(kOrbit(nodes[i].time).pos()[2], 0.0, 0.02); // m: 7.5 km/s in a microsecond
        EXPECT_TRUE(i == 0 || nodes[i].rising != nodes[i - 1].rising);
    }
    // The Sun does not set at Kiruna at the solstice, and does at the equator.
    EXPECT_TRUE(ORBKIT::events::sunUp({67.857, 20.964, 390.0}, {kEpoch, kEpoch + 24h}).at(0).cut_stop);
    const auto day = ORBKIT::events::sunUp({0.0, 0.0, 0.0}, {kEpoch, kEpoch + 24h});
    ASSERT_EQ(day.size(), 1U);
    EXPECT_NEAR(std::chrono::duration<double>(day[0].stop - day[0].start).count(), 43200.0 + 430.0, 30.0);
}

TEST(Events, CarryWhatTheFunctionThrowsAndRefuseEmptySpans)
{
    const auto fails = [](const Time &) -> double { throw std::runtime_error("no ephemeris"); };
    EXPECT_THROW(ORBKIT::events::when(fails, {kEpoch, kEpoch + 1h}), std::runtime_error);
    EXPECT_THROW(ORBKIT::events::when([](const Time &) { return 1.0; }, {kEpoch + 1h, kEpoch}), KitError);
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
}

} // namespace
