#include "passes.h"

#include <cstdio>

namespace kitlib {

namespace {

constexpr double kDay = 86400.0;                // s
constexpr double kLongestSearch = 366.0 * 24.0; // h
const long kTai = KL_TIME_TAI;

const std::vector<Quantity> kPassInputs = {
    {"latitude", "deg"},    {"longitude", "deg"}, {"height", "m"},    {"a", "m"},        {"e", ""},
    {"inclination", "deg"}, {"raan", "deg"},      {"perigee", "deg"}, {"anomaly", "deg"}};

// A satellite on mean elements, by kl_mean_motion, seen from a station.
struct Sight {
    const Context &context;
    kl_geodetic station;
    kl_kepler mean; // at the epoch
    double epoch;   // TAI, days, as all times here
    double elevation_deg;
    bool of_rate = false; // searched: the elevation's rate, not the elevation
    Refusal why = {}, warning = {};

    Sight(const Context &c, const double in[9], double epoch_tai, double elevation)
        : context(c), station{in[0], in[1], in[2], 0.0, 0.0, 0.0}, mean{in[3], in[4], in[5], in[6], in[7], in[8]},
          epoch(epoch_tai), elevation_deg(elevation)
    {
    }

    bool look(double tai, kl_topocentric &seen)
    {
        const long elements = KL_KEPLER_MEAN, mode = KL_CALC_POS_VEL, tod = KL_TOD, fixed = KL_EF;
        const double seconds = (tai - epoch) * kDay;
        double pos[3], vel[3], acc[3] = {0.0, 0.0, 0.0};
        kl_kepler now;
        why = {};
        why.function_id = KL_ID_FUNC_KEPL_TO_CART;
        if (kl_mean_motion(&context.models, &mean, &seconds, &now, nullptr) == KL_ERR) {
            kl_kepl_to_cart(&context.models, &elements, &mean, pos, vel, why.ierr); // for the reason
            return false;
        }
        if (kl_kepl_to_cart(&context.models, &elements, &now, pos, vel, why.ierr) == KL_ERR)
            return false;
        why.function_id = KL_ID_FUNC_CHANGE_CART_CS;
        const long status = kl_change_cart_cs(&context.models, &context.time, &mode, &tod, &fixed, &kTai, &tai, pos,
                                              vel, acc, pos, vel, acc, why.ierr);
        if (status == KL_ERR)
            return false;
        if (status == KL_WARN) // some come once
            warning = {-1, -1, nullptr, {0, 0}, KL_ID_FUNC_CHANGE_CART_CS, {why.ierr[0], why.ierr[1]}};
        why.function = "kl_ef_to_topocentric";
        return kl_ef_to_topocentric(&context.models, &mode, &station, pos, vel, &seen, why.ierr) != KL_ERR;
    }

    static long values(void *self, const long *n, const double *times, double *out)
    {
        Sight &sight = *static_cast<Sight *>(self);
        for (long i = 0; i < *n; ++i) {
            kl_topocentric seen;
            if (!sight.look(times[i], seen))
                return KL_ERR;
            out[i] = sight.of_rate ? seen.elevation_rate : seen.elevation - sight.elevation_deg;
        }
        return KL_OK;
    }

    // Up to `found.size()` crossings.
    bool search(double start, double stop, std::vector<kl_crossing> &found)
    {
        const double step = 60.0 / kDay, tolerance = 1e-4 / kDay;
        const long room = static_cast<long>(found.size());
        long n = 0, ierr[1];
        if (kl_find_crossings(values, this, &start, &stop, &step, &tolerance, &room, &n, found.data(), ierr) == KL_ERR)
            return false;
        found.resize(static_cast<std::size_t>(n));
        return true;
    }

    // The highest instant between a rise and its set: where the rate falls through zero, or an end of the span.
    bool culmination(double rise, double set, double &top)
    {
        std::vector<kl_crossing> falls(8);
        of_rate = true;
        const bool good = search(rise, set, falls);
        of_rate = false;
        double highest = -90.0;
        std::vector<double> candidates = {rise, set};
        for (const kl_crossing &c : falls)
            candidates.push_back(c.time);
        for (const double candidate : candidates) {
            kl_topocentric seen;
            if (!good || !look(candidate, seen))
                return false;
            if (seen.elevation > highest) {
                highest = seen.elevation;
                top = candidate;
            }
        }
        return true;
    }
};

// A pass; "<" and ">" mark one that had begun at the start of the search, or goes on at its end.
bool print_pass(Sight &sight, const kl_crossing ends[2], long scale, bool json)
{
    double times[3] = {ends[0].time, 0.0, ends[1].time};
    kl_topocentric seen[3];
    std::string texts[3];
    if (!sight.culmination(times[0], times[2], times[1]))
        return false;
    for (int i = 0; i < 3; ++i) {
        if (!sight.look(times[i], seen[i]) || !text_of(sight.context, times[i], scale, texts[i], sight.why))
            return false;
        texts[i].resize(texts[i].size() - 3); // milliseconds
    }
    if (json)
        std::printf("{\"rise\": \"%s\", \"rise_azimuth\": %s, \"rise_cut\": %s, \"top\": \"%s\", \"top_azimuth\": %s, "
                    "\"top_elevation\": %s, \"set\": \"%s\", \"set_azimuth\": %s, \"set_cut\": %s}\n",
                    texts[0].c_str(), shortest(seen[0].azimuth).c_str(), ends[0].cut != 0 ? "true" : "false",
                    texts[1].c_str(), shortest(seen[1].azimuth).c_str(), shortest(seen[1].elevation).c_str(),
                    texts[2].c_str(), shortest(seen[2].azimuth).c_str(), ends[1].cut != 0 ? "true" : "false");
    else
        std::printf("%s%s %7.2f  %s %7.2f %6.2f  %s %7.2f%s\n", ends[0].cut != 0 ? "<" : " ", texts[0].c_str(),
                    seen[0].azimuth, texts[1].c_str(), seen[1].azimuth, seen[1].elevation, texts[2].c_str(),
                    seen[2].azimuth, ends[1].cut != 0 ? ">" : "");
    return true;
}

} // namespace

int show_passes(const Context &context, const std::vector<std::string> &values, long scale, const PassRequest &request,
                bool json)
{
    Refusal why;
    double in[9], epoch, start;
    for (std::size_t i = 0; i < kPassInputs.size(); ++i) {
        if (!read_number(values[i], in[i])) {
            std::fprintf(stderr, "kitlib: %s cannot be read\n", kPassInputs[i].name.c_str());
            return kRefused;
        }
    }
    if (!tai_of(context, scale, request.epoch, epoch, why)
        || !tai_of(context, scale, request.start.empty() ? request.epoch : request.start, start, why))
        return refuse({}, why);
    if (!(in[3] > 0.0) || !(in[4] >= 0.0 && in[4] < 1.0)) {
        std::fputs("kitlib: an ellipse has a > 0 and e from 0 to less than 1\n", stderr);
        return kRefused;
    }
    if (!(request.hours > 0.0 && request.hours <= kLongestSearch)
        || !(request.elevation_deg >= -90.0 && request.elevation_deg < 90.0)) {
        std::fputs("kitlib: --hours goes to 8784, --elevation from -90 to less than 90\n", stderr);
        return kRefused;
    }

    Sight sight(context, in, epoch, request.elevation_deg);
    std::vector<kl_crossing> ends(static_cast<std::size_t>(request.hours * 60.0) + 2); // steps of a minute
    if (!sight.search(start, start + request.hours / 24.0, ends))
        return refuse({}, sight.why);
    if (!json && !ends.empty())
        std::printf(" %-23s %7s  %-23s %7s %6s  %-23s %7s\n", "rise", "azimuth", "top", "azimuth", "height", "set",
                    "azimuth");
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2)
        if (!print_pass(sight, &ends[i], scale, json))
            return refuse({}, sight.why);
    warn(sight.warning);
    if (ends.empty() && !json)
        std::printf("no pass above %s deg in %s hours\n", shortest(request.elevation_deg).c_str(),
                    shortest(request.hours).c_str());
    return kDone;
}

} // namespace kitlib
