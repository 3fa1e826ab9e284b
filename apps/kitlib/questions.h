// What the library is asked, for one set of values.
#ifndef KITLIB_QUESTIONS_H
#define KITLIB_QUESTIONS_H

#include "rows.h"

#include "kl_lib.h"

#include <map>

namespace kitlib {

extern const std::map<std::string, long> kScales, kFrames, kPlanets, kFormats; // names on the command line

constexpr long kDays = -1; // a format of kFormats: MJD2000, a number

// The correlation of the time scales and the models that all questions share.
class Context {
public:
    Context() = default;
    Context(const Context &) = delete;
    Context &operator=(const Context &) = delete;
    ~Context();
    // Files of Earth orientation, or none for the correlation compiled in. False, after a message: refused.
    bool open(const std::vector<std::string> &files);
    mutable kl_time_id time = {nullptr};
    mutable kl_model_id models = {nullptr};
    kl_time_file_report report = {};
};

Question time_question(const Context &context, long from, long to, long format);
enum class Body { kSun, kMoon, kPlanet };
Question body_question(const Context &context, Body body, long planet, long scale, long frame);
Question frame_question(const Context &context, long scale, long from, long to, bool with_velocity);
Question geodetic_question(const Context &context, bool to_cartesian);
Question kepler_question(const Context &context, long kind, bool to_elements);
Question topocentric_question(const Context &context);
Question distance_question(const Context &context);
// A position's share of sunlight; the Sun as its light shows it. State, visible part of the disc, depth as kl_eclipse
// has it.
Question eclipse_question(const Context &context, long scale, long frame, double margin_m);
// Apparent place from the centre of the Earth; motions in mas/yr, parallax in mas, radial velocity in km/s.
Question star_question(const Context &context, long scale, long frame, double epoch_tdb_days);
Question geoid_question(const Context &context, long degree);

// TAI of a text or of days, which may be a leap second.
bool tai_of(const Context &context, long scale, std::string_view cell, double &tai, Refusal &why);
bool text_of(const Context &context, double tai, long scale, std::string &text, Refusal &why);

} // namespace kitlib

#endif
