/**
 * @file events.hpp
 * Passes, eclipses, rise and set of the Sun, node crossings: instants at which a function of time crosses zero, found
 * by kl_find_crossings.
 */
#ifndef ORBKIT_EVENTS_HPP
#define ORBKIT_EVENTS_HPP

#include "sky.hpp"

#include <chrono>
#include <exception>
#include <functional>
#include <utility>
#include <vector>

namespace ORBKIT {

/** A motion: the state at an instant. */
using Orbit = std::function<StateVector(const Time &)>;

/** From an instant to a later one. */
struct Span {
    Time start, stop;
};

/**
 * Motion on mean Kepler elements in Frame::TOD, whose node, perigee and anomaly turn by the secular rates of J2.
 *
 * @code{.cpp}
 * const ORBKIT::Time epoch("2026-06-21T00:00:00");
 * const ORBKIT::MeanMotion orbit({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, epoch);
 * const kl_kepler later = orbit(epoch + std::chrono::hours(24)).kepler(ORBKIT::Elements::mean);
 * std::printf("node moved %.2f deg in a day\n", later.raan - 250.0); // -> node moved 0.99 deg in a day
 * @endcode
 */
class MeanMotion {
public:
    MeanMotion(const kl_kepler &mean_elements, const Time &epoch, const ModelId &models = default_models())
        : elements_(mean_elements), epoch_(epoch), models_(&models)
    {
        constexpr double kDegree = 0.017453292519943295;
        const kl_model_data model = models.getData();
        const double a = elements_.semi_major_axis;
        const double e2 = 1.0 - elements_.eccentricity * elements_.eccentricity;
        const double n = std::sqrt(model.gm / a) / a;
        const double ratio = model.gravity_radius / (a * e2);
        const double cosine = std::cos(elements_.inclination * kDegree);
        const double factor = 0.75 * n * model.j2 * ratio * ratio;
        // Source: D. Brouwer, Astron. J. 64, 378 (1959), secular terms of first order.
        node_rate_ = -2.0 * factor * cosine / kDegree;
        perigee_rate_ = factor * (5.0 * cosine * cosine - 1.0) / kDegree;
        anomaly_rate_ = (n + factor * std::sqrt(e2) * (3.0 * cosine * cosine - 1.0)) / kDegree;
    }

    StateVector operator()(const Time &time) const
    {
        const double seconds = static_cast<double>((time - epoch_).count()) * 1e-6;
        kl_kepler at = elements_;
        at.raan = reduced(at.raan + node_rate_ * seconds);
        at.arg_perigee = reduced(at.arg_perigee + perigee_rate_ * seconds);
        at.mean_anomaly = reduced(at.mean_anomaly + anomaly_rate_ * seconds);
        return StateVector::fromKepler(at, Elements::mean, Frame::TOD, time, *models_);
    }

private:
    static double reduced(double degrees) { return degrees - 360.0 * std::floor(degrees / 360.0); }

    kl_kepler elements_;
    Time epoch_;
    const ModelId *models_;
    double node_rate_ = 0.0, perigee_rate_ = 0.0, anomaly_rate_ = 0.0; // deg/s
};

namespace events {

/** An instant at which a function crosses zero. */
struct Crossing {
    Time time;
    bool rising = false; /**< the function is above zero afterwards */
    bool cut = false;    /**< no crossing: the span ends here, above zero */
};

/** While something lasts: from start to stop; cut where the span ends first. */
struct Interval {
    Time start, stop;
    bool cut_start = false, cut_stop = false;
};

/** A pass over a station. */
struct Pass {
    Interval visible;
    Time culmination;
    double elevation = 0.0; /**< deg, at the culmination */
};

/**
 * When a smooth function crosses zero.
 *
 * @param function  of the instant
 * @param span      where to look
 * @param step      nothing that lasts longer is missed
 * @throws KitError for an empty span; whatever the function throws
 */
template <class Function>
std::vector<Crossing> when(Function function, const Span &span, Time::Duration step = std::chrono::minutes(1))
{
    struct Context {
        Function *function;
        const Time *start;
        std::exception_ptr thrown;
    } context = {&function, &span.start, nullptr};
    const auto values = [](void *data, const long *n, const double *days, double *out) -> long {
        Context &c = *static_cast<Context *>(data);
        try {
            for (long i = 0; i < *n; ++i)
                out[i] = (*c.function)(*c.start
                                       + Time::Duration(static_cast<std::int64_t>(std::llround(days[i] * 8.64e10))));
            return KL_OK;
        } catch (...) { // C stands between: carried past it
            c.thrown = std::current_exception();
            return KL_ERR;
        }
    };
    constexpr double kDay = 8.64e10; // microseconds
    const double start = 0.0;
    const double stop = static_cast<double>((span.stop - span.start).count()) / kDay;
    const double step_days = static_cast<double>(step.count()) / kDay;
    const double tolerance = 0.25 / kDay;
    std::vector<kl_crossing> found(64);
    long n = 0;
    for (;;) {
        const long room = static_cast<long>(found.size());
        long ierr[1] = {0};
        const long status =
            kl_find_crossings(values, &context, &start, &stop, &step_days, &tolerance, &room, &n, found.data(), ierr);
        if (context.thrown != nullptr)
            std::rethrow_exception(context.thrown);
        if (status == KL_ERR)
            throw_unless_ok("events::when", KL_ERR, KL_ID_FUNC_POSITION_ON_ORBIT, ierr);
        if (status == KL_OK)
            break;
        found.resize(4 * found.size()); // more than there was room for
    }
    std::vector<Crossing> out;
    for (long i = 0; i < n; ++i) {
        const kl_crossing &c = found[static_cast<std::size_t>(i)];
        out.push_back({span.start + Time::Duration(static_cast<std::int64_t>(std::llround(c.time * kDay))),
                       c.direction > 0, c.cut != 0});
    }
    return out;
}

/** While a function is above zero. */
template <class Function>
std::vector<Interval> whileAbove(Function function, const Span &span, Time::Duration step = std::chrono::minutes(1))
{
    std::vector<Interval> out;
    Interval open;
    for (const Crossing &c : when(std::move(function), span, step)) {
        const bool begins = c.cut ? c.time == span.start : c.rising;
        if (begins)
            open = {c.time, c.time, c.cut, false};
        else
            out.push_back({open.start, c.time, open.cut_start, c.cut});
    }
    return out;
}

/**
 * Passes of a satellite over a station above an elevation.
 *
 * @code{.cpp}
 * const ORBKIT::Time start("2026-06-21T00:00:00");
 * const ORBKIT::MeanMotion satellite({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, start);
 * const auto passes = ORBKIT::events::passes(satellite, {67.857, 20.964, 390.0}, {start, start +
 * std::chrono::hours(24)}, 5.0); std::printf("%zu passes, the first to %.0f deg\n", passes.size(),
 * passes.at(0).elevation);
 * // -> 11 passes, the first to 7 deg
 * @endcode
 */
template <class Motion>
std::vector<Pass> passes(const Motion &orbit, const GroundStation &station, const Span &span, double elevation = 0.0,
                         Time::Duration step = std::chrono::minutes(1))
{
    const auto seen = [&](const Time &time) { return orbit(time).seenFrom(station); };
    std::vector<Pass> out;
    for (const Interval &visible :
         whileAbove([&](const Time &t) { return seen(t).elevation - elevation; }, span, step)) {
        Pass pass = {visible, visible.start, 0.0};
        for (const Crossing &c :
             when([&](const Time &t) { return -seen(t).elevation_rate; }, {visible.start, visible.stop},
                  std::max<Time::Duration>((visible.stop - visible.start) / 8, std::chrono::seconds(1))))
            if (c.rising && !c.cut)
                pass.culmination = c.time;
        if (pass.culmination == visible.start && seen(visible.stop).elevation > seen(visible.start).elevation)
            pass.culmination = visible.stop;
        pass.elevation = seen(pass.culmination).elevation;
        out.push_back(pass);
    }
    return out;
}

/** While the Sun is covered: below the depth 1 (any part), 0 (its centre) or -1 (all of it). */
template <class Motion>
std::vector<Interval> eclipses(const Motion &orbit, const Span &span, double depth = 1.0,
                               Time::Duration step = std::chrono::minutes(1))
{
    return whileAbove([&](const Time &t) { return depth - Eclipse::at(orbit(t)).depth; }, span, step);
}

/** While the Sun's centre stands above -0.8333 deg at a station; no refraction. */
inline std::vector<Interval> sunUp(const GroundStation &station, const Span &span)
{
    return whileAbove([&](const Time &t) { return Sun::at(t).seenFrom(station).elevation + 0.8333; }, span,
                      std::chrono::minutes(20));
}

/** Crossings of the true equator of date; rising ones go north. */
template <class Motion>
std::vector<Crossing> nodeCrossings(const Motion &orbit, const Span &span,
                                    Time::Duration step = std::chrono::minutes(1))
{
    std::vector<Crossing> out;
    for (const Crossing &c : when([&](const Time &t) { return orbit(t).in(Frame::TOD).pos()[2]; }, span, step))
        if (!c.cut)
            out.push_back(c);
    return out;
}

} // namespace events
} // namespace ORBKIT

#endif
