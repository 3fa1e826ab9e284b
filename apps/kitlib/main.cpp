// kitlib: questions to the library from the shell, for single values or the rows of a table.
#include "passes.h"
#include "reports.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace kitlib;

struct Options {
    std::vector<std::string> values, files;
    RowOptions rows;
    long scale = KL_TIME_UTC, to_scale = KL_TIME_UTC, format = KL_ASCII_43; // scale: of times that are given
    long from_frame = KL_EF, to_frame = KL_EF, star_frame = KL_TOD;
    long planet = 0, degree = 360;
    double margin = 0.0, star_epoch = 0.5; // m; days, J2000.0
    bool back = false, mean = false;
    PassRequest pass;
    std::string function, vector, wanted;
};

template <typename Map>
void choice(CLI::App &verb, const char *name, long &to, const Map &names, const char *meaning, const char *standard)
{
    verb.add_option(name, to, std::string(meaning) + ", " + standard + " where none is named")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case).description(""))
        ->type_name("NAME");
}

void frame_of_answer(CLI::App &verb, Options &options)
{
    choice(verb, "--frame", options.to_frame, kFrames, "frame of the answer, as kitlib frame names it", "EF");
}

void time_options(CLI::App &verb, Options &options)
{
    choice(verb, "--from", options.scale, kScales, "scale: TAI, UTC, UT1 or GPS", "UTC");
    choice(verb, "--to", options.to_scale, kScales, "scale of the answer", "UTC");
    choice(verb, "--format", options.format, kFormats, "iso, compact, named, underscore, digits or mjd2000", "iso");
}

void sky_options(CLI::App &verb, Options &options)
{
    verb.add_option("time", options.values, "TIME")->required()->expected(1);
    frame_of_answer(verb, options);
}

void planet_options(CLI::App &verb, Options &options)
{
    verb.add_option("planet", options.planet, "mercury to neptune, earth-moon")
        ->required()
        ->transform(CLI::CheckedTransformer(kPlanets, CLI::ignore_case).description(""));
    frame_of_answer(verb, options);
}

void frame_options(CLI::App &verb, Options &options)
{
    choice(verb, "--from", options.from_frame, kFrames,
           "frame: GM2000, MOD, TOD, TEME, PEF, EF, HM2000, BM2000, BM1950 or GALACTIC", "EF");
    choice(verb, "--to", options.to_frame, kFrames, "frame of the answer", "EF");
}

void geodetic_options(CLI::App &verb, Options &options)
{
    verb.add_flag("--back", options.back, "LATITUDE LONGITUDE HEIGHT to X Y Z");
}

void kepler_options(CLI::App &verb, Options &options)
{
    verb.add_flag("--back", options.back, "X Y Z VX VY VZ to elements");
    verb.add_flag("--mean", options.mean, "mean elements (less the short-period terms of J2); else osculating ones");
}

void pass_options(CLI::App &verb, Options &options)
{
    verb.add_option("values", options.values,
                    "LATITUDE LONGITUDE HEIGHT A E INCLINATION RAAN PERIGEE ANOMALY: the station, and elements of the "
                    "true equator of date, which J2 turns. Two-line elements belong to the orbit library")
        ->option_text("VALUES")
        ->required()
        ->expected(9);
    verb.add_option("--epoch", options.pass.epoch, "time of the elements")->required()->type_name("TIME");
    verb.add_option("--start", options.pass.start, "of the search, the epoch where none is named")->type_name("TIME");
    verb.add_option("--hours", options.pass.hours, "of the search, 24 where none are named");
    verb.add_option("--elevation", options.pass.elevation_deg, "deg, that a pass rises above, 0 where none is named");
}

void geoid_options(CLI::App &verb, Options &options)
{
    verb.add_option("--degree", options.degree, "of the expansion, 360 where none is named");
}

void eclipse_options(CLI::App &verb, Options &options)
{
    choice(verb, "--frame", options.from_frame, kFrames, "frame of the position, as kitlib frame names it", "EF");
    verb.add_option("--margin", options.margin, "m, raises the Earth for its atmosphere, 0 where none is named");
}

void star_options(CLI::App &verb, Options &options)
{
    choice(verb, "--frame", options.star_frame, kFrames, "frame of the place, as kitlib frame names it", "TOD");
    verb.add_option("--star-epoch", options.star_epoch,
                    "of place and motion, days of MJD2000: 0.5, J2000.0, where none is named; J1991.25 is -3195.4375");
}

void timeid_options(CLI::App &verb, Options &options)
{
    verb.add_option("files", options.files, "FILE...; none: the correlation compiled in");
}

void explain_options(CLI::App &verb, Options &options)
{
    verb.add_option("function", options.function, "its name, or name:code as tables have it")->required();
    verb.add_option("vector", options.vector, "a number; two with a comma between");
}

void functions_options(CLI::App &verb, Options &options)
{
    verb.add_option("which", options.wanted, "a name or a subject; none: all");
}

int answer(const Question &question, const Options &options)
{
    if (!options.values.empty()) {
        const std::size_t n = options.values.size();
        if (n == question.inputs.size() || n == question.inputs.size() - question.optional)
            return ask_once(question, options.values, options.rows.json);
        std::fprintf(stderr, "kitlib: %zu values, expected %zu:", n, question.inputs.size());
        for (const Quantity &input : question.inputs)
            std::fprintf(stderr, " %s", input.name.c_str());
        std::fputc('\n', stderr);
        return kWrongUsage;
    }
    if (isatty(STDIN_FILENO) != 0) {
        std::fputs("kitlib: give values, or a CSV table with a header on standard input\n", stderr);
        return kWrongUsage;
    }
    return ask_rows(question, options.rows);
}

int answer_frame(const Context &context, const Options &options)
{
    const std::size_t n = options.values.empty() ? options.rows.columns.size() : options.values.size();
    const bool velocity = n == 7;
    return answer(frame_question(context, options.scale, options.from_frame, options.to_frame, velocity), options);
}

int explain(const Options &options)
{
    const std::size_t colon = options.vector.empty() ? options.function.find(':') : std::string::npos;
    const std::string vector = colon == std::string::npos ? options.vector : options.function.substr(colon);
    if (vector.empty()) {
        std::fputs("kitlib: which error vector?\n", stderr);
        return kWrongUsage;
    }
    return show_vector(options.function.substr(0, colon), vector, options.rows.json);
}

// What a verb takes.
enum Takes : unsigned {
    kAlone = 0,  // none of these
    kAsks = 1,   // correlation and models
    kValues = 2, // values, or the columns of a table
    kFiles = 4,  // --files
    kScale = 8,  // --scale
};
constexpr unsigned kTable = kAsks | kValues, kTimed = kAsks | kFiles, kInstant = kTable | kTimed | kScale;

struct Verb {
    const char *name, *what, *values, *examples;
    unsigned takes;
    void (*options)(CLI::App &, Options &); // its own; may be null
    int (*run)(const Context &, const Options &);
};

const Verb kVerbs[] = {
    {"time", "An instant on another scale or in another format", "TIME",
     "kitlib time 2016-12-31T23:59:60 --to GPS\n  kitlib time --columns utc --to TAI <table.csv", kTable | kTimed,
     time_options,
     [](const Context &c, const Options &o) { return answer(time_question(c, o.scale, o.to_scale, o.format), o); }},
    {"sky", "Time scales, Sun, Moon and planets at an instant", "", "kitlib sky 2026-06-21T08:24:00", kTimed | kScale,
     sky_options,
     [](const Context &c, const Options &o) { return show_sky(c, o.values[0], o.scale, o.to_frame, o.rows.json); }},
    {"sun", "The Sun from the centre of the Earth", "TIME", "kitlib sun 2026-06-21T08:24:00", kInstant, frame_of_answer,
     [](const Context &c, const Options &o) {
         return answer(body_question(c, Body::kSun, 0, o.scale, o.to_frame), o);
     }},
    {"moon", "The Moon from the centre of the Earth", "TIME", "kitlib moon 2026-06-21T08:24:00 --frame GM2000",
     kInstant, frame_of_answer,
     [](const Context &c, const Options &o) {
         return answer(body_question(c, Body::kMoon, 0, o.scale, o.to_frame), o);
     }},
    {"planet", "A planet from the centre of the Earth", "TIME", "kitlib planet mars 2026-06-21T08:24:00", kInstant,
     planet_options,
     [](const Context &c, const Options &o) {
         return answer(body_question(c, Body::kPlanet, o.planet, o.scale, o.to_frame), o);
     }},
    {"frame", "A position, or position and velocity, in another frame", "TIME X Y Z [VX VY VZ]",
     "kitlib frame --from EF --to GM2000 2026-06-21T08:24:00 7000e3 0 -100e3\n"
     "  kitlib frame --from GM2000 --to EF --columns utc,x,y,z,vx,vy,vz <states.csv",
     kInstant, frame_options, answer_frame},
    {"geoid", "Height of the EGM96 geoid above the ellipsoid", "LATITUDE LONGITUDE", "kitlib geoid 47.5 19.05", kTable,
     geoid_options, [](const Context &c, const Options &o) { return answer(geoid_question(c, o.degree), o); }},
    {"geodetic", "Earth-fixed position to latitude, longitude and height, or back", "X Y Z",
     "kitlib geodetic 4078e3 931e3 4801e3\n  kitlib geodetic --back 47.5 19.05 150", kTable, geodetic_options,
     [](const Context &c, const Options &o) { return answer(geodetic_question(c, o.back), o); }},
    {"kepler", "Keplerian elements to position and velocity, or back", "A E INCLINATION RAAN PERIGEE ANOMALY",
     "kitlib kepler 7159e3 0.001 98.5 10 90 30 --mean", kTable, kepler_options,
     [](const Context &c, const Options &o) {
         return answer(kepler_question(c, o.mean ? KL_KEPLER_MEAN : KL_KEPLER_OSCULATING, o.back), o);
     }},
    {"topocentric", "Azimuth, elevation and range of an Earth-fixed position from a place",
     "LATITUDE LONGITUDE HEIGHT X Y Z", "kitlib topocentric 47.5 19.05 150 4500e3 1000e3 5500e3", kTable, nullptr,
     [](const Context &c, const Options &o) { return answer(topocentric_question(c), o); }},
    {"pass", "Passes of a satellite on mean Keplerian elements over a station", "",
     "kitlib pass 67.86 20.96 390 7178137 0.001 98.6 250 90 0 --epoch 2026-06-21T00:00:00", kTimed | kScale,
     pass_options,
     [](const Context &c, const Options &o) { return show_passes(c, o.values, o.scale, o.pass, o.rows.json); }},
    {"eclipse", "How much of the Sun the Earth hides from a place in space", "TIME X Y Z",
     "kitlib eclipse 2026-06-21T08:24:00 -4078e3 -5700e3 -2800e3 --frame EF\n"
     "  kitlib eclipse --columns utc,x,y,z --frame GM2000 <states.csv",
     kInstant, eclipse_options,
     [](const Context &c, const Options &o) {
         return answer(eclipse_question(c, o.scale, o.from_frame, o.margin), o);
     }},
    {"star", "Apparent place of a star from the centre of the Earth",
     "TIME RA DEC [PM_RA PM_DEC PARALLAX RADIAL_VELOCITY]: J2000; mas/yr (in right ascension times cos DEC), mas, km/s",
     "kitlib star 2026-06-21T08:24:00 101.28715533 -16.71611586 -546.01 -1223.07 379.21 -5.5", kInstant, star_options,
     [](const Context &c, const Options &o) {
         return answer(star_question(c, o.scale, o.star_frame, o.star_epoch), o);
     }},
    {"distance", "Shortest way between two places on the ellipsoid", "LATITUDE1 LONGITUDE1 LATITUDE2 LONGITUDE2",
     "kitlib distance 47.5 19.05 -22.9 -43.2", kTable, nullptr,
     [](const Context &c, const Options &o) { return answer(distance_question(c), o); }},
    {"timeid", "What files of Earth orientation hold, to which date, leap seconds", "",
     "kitlib timeid finals2000A.all leap-seconds.list", kAsks, timeid_options,
     [](const Context &c, const Options &o) { return show_time_files(c, o.rows.json); }},
    {"explain", "What an error vector says", "", "kitlib explain kl_sun 2\n  kitlib explain kl_sun:1", kAlone,
     explain_options, [](const Context &, const Options &o) { return explain(o); }},
    {"functions", "Functions of the library", "", "kitlib functions kl_sun", kAlone, functions_options,
     [](const Context &, const Options &o) { return show_functions(o.wanted, o.rows.json); }},
};

void add_verb(CLI::App &app, const Verb &verb, Options &options)
{
    CLI::App &made = *app.add_subcommand(verb.name, verb.what);
    made.footer(std::string("Example:\n  ") + verb.examples);
    made.add_flag("--json", options.rows.json, "answers as JSON, a row an object");
    if (verb.options != nullptr)
        verb.options(made, options);
    if ((verb.takes & kScale) != 0)
        choice(made, "--scale", options.scale, kScales, "scale of the times that are given", "UTC");
    if ((verb.takes & kFiles) != 0)
        made.add_option("--files", options.files,
                        "bulletins and lists of leap seconds; none: the correlation compiled in")
            ->type_name("FILE");
    if ((verb.takes & kValues) != 0) {
        made.add_option("values", options.values, verb.values)->option_text("VALUES");
        made.add_option("--columns", options.rows.columns,
                        "columns of the table that hold the values: names or numbers")
            ->delimiter(',')
            ->type_name("NAME,...");
        made.positionals_at_end(false);
    }
}

int run(const Verb &verb, const Options &options)
{
    Context context;
    if ((verb.takes & kAsks) != 0 && !context.open(options.files))
        return kRefused;
    return verb.run(context, options);
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app(
        "Time scales, frames, Sun, Moon, planets and stars, coordinates, orbits and the geoid: questions to "
        "libKitLib.\n"
        "Values as arguments, or a CSV table with a header on standard input. Metres, seconds, degrees; a time is\n"
        "yyyy-mm-ddThh:nn:ss with up to nine decimals, or days of MJD2000.");
    app.name("kitlib");
    app.set_version_flag("--version", std::string("kitlib ") + kl_version());
    app.require_subcommand(1);
    app.footer("kitlib VERB --help shows an example. Two-line elements belong to the orbit library.\n"
               "Ends with 0; 1 for wrong usage; 2 when something was refused.");
    Options options;
    for (const Verb &verb : kVerbs)
        add_verb(app, verb, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    int status = kWrongUsage;
    for (const Verb &verb : kVerbs)
        if (app.got_subcommand(verb.name))
            status = run(verb, options);
    if (status != kWrongUsage && (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)) {
        std::fputs("kitlib: the output cannot be written\n", stderr);
        return kWrongUsage;
    }
    return status;
}
