/**
 * @file events.hpp
 * Passes, eclipses, rise and set of the Sun, node crossings: instants at which a function of time crosses zero, found
 * by kl_find_crossings to a microsecond. Nothing is missed that lasts longer than the step; what goes on at an end of
 * the span is cut there and says so. Instants are told in the scale of the span's start.
 *
 * An orbit is any function from an instant to a StateVector: MeanMotion and InterpolatedOrbit are two. What such a
 * function throws comes out as a KitError.
 */
#ifndef ORBKIT_EVENTS_HPP
#define ORBKIT_EVENTS_HPP

#include "eclipse.hpp"
#include "interpolated_orbit.hpp"
#include "mean_motion.hpp"
#include "sun.hpp"

#include <algorithm>
#include <chrono>
#include <exception>
#include <functional>
#include <ostream>
#include <utility>
#include <vector>

namespace ORBKIT {

/** A motion: the state at an instant. */
using Orbit = std::function<StateVector(const Time &)>;

/** From an instant to a later one. */
struct Span {
    Time start, stop;

    Time::Duration duration() const { return stop - start; }
    friend bool operator==(const Span &a, const Span &b) { return a.start == b.start && a.stop == b.stop; }
    friend bool operator!=(const Span &a, const Span &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Span &span)
    {
        return out << span.start << " to " << span.stop;
    }
};

/**
 * What happens and when.
 *
 * @code{.cpp}
 * using namespace std::chrono_literals;
 * namespace events = ORBKIT::events;
 * const ORBKIT::Time start("2026-06-21T00:00:00");
 * const ORBKIT::Span day = {start, start + 24h};
 * const ORBKIT::MeanMotion orbit({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, start);
 * const ORBKIT::GroundStation kiruna(67.857, 20.964, 390.0), rome(41.9, 12.5, 50.0);
 *
 * const auto passes = events::passes(orbit, kiruna, day, 5.0); // above 5 deg
 * std::printf("%zu passes, the first to %.0f deg\n", passes.size(), passes.at(0).elevation);
 * // -> 11 passes, the first to 7 deg
 * const auto dark = events::eclipses(orbit, day, events::Edge::umbra);
 * std::printf("%zu eclipses\n", dark.size()); // -> 14 eclipses
 * const auto nodes = events::node_crossings(orbit, day);
 * std::printf("%zu nodes, the first %s\n", nodes.size(), nodes.at(0).rising ? "northward" : "southward");
 * // -> 29 nodes, the first southward
 * for (const events::Crossing &sun : events::sun_rise_set(rome, day))
 *     std::printf("%s %s\n", sun.rising ? "rise" : "set", sun.time.text(ORBKIT::TextFormat::ascii_41).c_str());
 * // -> rise 2026-06-21T03:34:53
 * // -> set 2026-06-21T18:48:46
 * const auto high = events::when([&](const ORBKIT::Time &t) { return orbit(t).geodetic().height - 810e3; }, day);
 * std::printf("%zu times through 810 km\n", high.size()); // -> 58 times through 810 km
 * @endcode
 */
namespace events {

/** An instant at which a function crosses zero. */
struct Crossing {
    Time time;
    bool rising = false; /**< the function is above zero afterwards */
    bool cut = false;    /**< no crossing: the span ends here, above zero */

    friend bool operator==(const Crossing &a, const Crossing &b)
    {
        return a.time == b.time && a.rising == b.rising && a.cut == b.cut;
    }
    friend bool operator!=(const Crossing &a, const Crossing &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Crossing &c)
    {
        return out << c.time << (c.rising ? " up" : " down") << (c.cut ? ", cut" : "");
    }
};

/** While something lasts: from start to stop; cut where the span ends first. */
struct Interval {
    Time start, stop;
    bool cut_start = false, cut_stop = false;

    Time::Duration duration() const { return stop - start; }
    friend bool operator==(const Interval &a, const Interval &b)
    {
        return a.start == b.start && a.stop == b.stop && a.cut_start == b.cut_start && a.cut_stop == b.cut_stop;
    }
    friend bool operator!=(const Interval &a, const Interval &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Interval &interval)
    {
        return out << interval.start << (interval.cut_start ? " (cut) to " : " to ") << interval.stop
                   << (interval.cut_stop ? " (cut)" : "");
    }
};

/** A pass over a station. */
struct Pass {
    Interval visible;
    Time culmination;
    double elevation = 0.0; /**< deg, at the culmination */

    friend bool operator==(const Pass &a, const Pass &b)
    {
        return a.visible == b.visible && a.culmination == b.culmination && a.elevation == b.elevation;
    }
    friend bool operator!=(const Pass &a, const Pass &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Pass &pass)
    {
        return out << pass.visible << ", " << pass.elevation << " deg high";
    }
};

/** How deep an eclipse is, in radii of the Sun: its first touch, its centre on the limb, the last light. */
enum class Edge : long { penumbra = 1, centre = 0, umbra = -1 };

namespace detail {

// What a function of the caller throws, as a KitError.
template <class Call>
auto in_words(Call call)
{
    try {
        return call();
    } catch (const KitError &) {
        throw;
    } catch (const std::exception &error) {
        throw_messages({"The function of time failed.", "events", error.what()});
    } catch (...) {
        throw_messages({"The function of time failed.", "events"});
    }
}

} // namespace detail

/**
 * When a smooth function crosses zero; rises and falls alternate, ends of the span that are above zero are cut.
 *
 * @param function  of the instant
 * @param span      where to look
 * @param step      nothing that lasts longer is missed
 * @throws KitError for an empty span, a step of nothing, instants of different correlations; where the function is no
 *                  number; for what the function throws, with its words
 */
template <class Function>
std::vector<Crossing> when(Function function, const Span &span, Time::Duration step = std::chrono::minutes(1))
{
    struct Context {
        Function *function;
        const Time *start;
        std::exception_ptr thrown;
        static Time after(const Time &start, double days)
        {
            return start + Time::Duration(static_cast<std::int64_t>(std::llround(days * 8.64e10)));
        }
    } context = {&function, &span.start, nullptr};
    const auto values = [](void *data, const long *n, const double *days, double *out) -> long {
        Context &c = *static_cast<Context *>(data);
        try {
            for (long i = 0; i < *n; ++i)
                out[i] = (*c.function)(Context::after(*c.start, days[i]));
            return KL_OK;
        } catch (...) { // C stands between: carried past it
            c.thrown = std::current_exception();
            return KL_ERR;
        }
    };
    constexpr double kDay = 8.64e10; // microseconds
    if (!(span.start < span.stop))
        throw_messages({"The span is empty: it must stop after it starts.", "events::when"});
    if (step <= Time::Duration::zero())
        throw_messages({"The step must be longer than nothing.", "events::when"});
    const double start = 0.0;
    const double stop = static_cast<double>((span.stop - span.start).count()) / kDay;
    const double step_days = static_cast<double>(step.count()) / kDay;
    const double tolerance = 0.25 / kDay;
    std::vector<kl_crossing> found(64);
    long n = 0;
    for (;;) {
        const long room = static_cast<long>(found.size());
        const long status = kl_find_crossings(values, &context, &start, &stop, &step_days, &tolerance, &room, &n,
                                              found.data(), nullptr);
        if (context.thrown != nullptr)
            detail::in_words([&] { std::rethrow_exception(context.thrown); });
        if (status == KL_ERR)
            throw_messages({"The function of time is no number, or the span has too many steps.", "events::when"});
        if (status == KL_OK)
            break;
        found.resize(4 * found.size()); // more than there was room for
    }
    std::vector<Crossing> out;
    out.reserve(static_cast<std::size_t>(n));
    for (long i = 0; i < n; ++i) {
        const kl_crossing &c = found[static_cast<std::size_t>(i)];
        out.push_back({Context::after(span.start, c.time), c.direction > 0, c.cut != 0});
    }
    return out;
}

/** While a function is above zero. */
template <class Function>
std::vector<Interval> while_above(Function function, const Span &span, Time::Duration step = std::chrono::minutes(1))
{
    std::vector<Interval> out;
    Interval open;
    for (const Crossing &c : when(std::move(function), span, step)) {
        if (c.rising)
            open = {c.time, c.time, c.cut, false};
        else
            out.push_back({open.start, c.time, open.cut_start, c.cut});
    }
    return out;
}

namespace detail {

// Its instant, where it has one, is of the same correlation.
template <class Motion>
StateVector state_at(const Motion &orbit, const Time &time)
{
    StateVector state = orbit(time);
    if (state.hasTime())
        Time::together(state.time(), time);
    return state;
}

} // namespace detail

/** Passes of a satellite over a station above an elevation, deg; no refraction. */
template <class Motion>
std::vector<Pass> passes(const Motion &orbit, const GroundStation &station, const Span &span, double elevation = 0.0,
                         Time::Duration step = std::chrono::minutes(1))
{
    const auto seen = [&](const Time &time) {
        return detail::in_words([&] { return detail::state_at(orbit, time).seenFrom(station); });
    };
    std::vector<Pass> out;
    for (const Interval &visible :
         while_above([&](const Time &t) { return seen(t).elevation - elevation; }, span, step)) {
        Pass pass = {visible, visible.start, seen(visible.start).elevation};
        const auto higher = [&](const Time &time) {
            const double here = seen(time).elevation;
            if (here > pass.elevation) {
                pass.culmination = time;
                pass.elevation = here;
            }
        };
        if (visible.start < visible.stop) // the elevation may have several tops
            for (const Crossing &c : when([&](const Time &t) { return -seen(t).elevation_rate; },
                                          {visible.start, visible.stop}, std::min(step, visible.duration())))
                if (c.rising && !c.cut)
                    higher(c.time);
        higher(visible.stop);
        out.push_back(pass);
    }
    return out;
}

/** While the Earth covers the Sun: any part of it, its centre, or all of it. */
template <class Motion>
std::vector<Interval> eclipses(const Motion &orbit, const Span &span, Edge edge = Edge::penumbra,
                               Time::Duration step = std::chrono::minutes(1))
{
    const double depth = static_cast<double>(number(edge));
    return while_above([&](const Time &t) { return depth - Eclipse::at(detail::state_at(orbit, t)).depth; }, span,
                       step);
}

/** From the rise of the Sun at a station to its set: its centre at -0.8333 deg, no refraction. */
inline std::vector<Interval> daylight(const GroundStation &station, const Span &span,
                                      Time::Duration step = std::chrono::minutes(20))
{
    return while_above([&](const Time &t) { return Sun::at(t).seenFrom(station).elevation + 0.8333; }, span, step);
}

/** Rise and set of the Sun alone, as daylight has them; where it does neither daylight tells day from night. */
inline std::vector<Crossing> sun_rise_set(const GroundStation &station, const Span &span,
                                          Time::Duration step = std::chrono::minutes(20))
{
    std::vector<Crossing> out;
    for (const Interval &day : daylight(station, span, step)) {
        if (!day.cut_start)
            out.push_back({day.start, true, false});
        if (!day.cut_stop)
            out.push_back({day.stop, false, false});
    }
    return out;
}

/** Crossings of the true equator of date, in both directions; rising ones go north. */
template <class Motion>
std::vector<Crossing> node_crossings(const Motion &orbit, const Span &span,
                                     Time::Duration step = std::chrono::minutes(1))
{
    std::vector<Crossing> out;
    for (const Crossing &c :
         when([&](const Time &t) { return detail::state_at(orbit, t).position().in(Frame::TOD).pos()[2]; }, span, step))
        if (!c.cut)
            out.push_back(c);
    return out;
}

} // namespace events
} // namespace ORBKIT

#endif
