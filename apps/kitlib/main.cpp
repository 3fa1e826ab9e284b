// kitlib: questions to the library from the shell, for single values or the rows of a table.
#include "passes.h"
#include "table.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

using namespace kitlib;

struct Options {
    std::vector<std::string> values, files;
    RowOptions rows;
    long from_scale = KL_TIME_UTC, to_scale = KL_TIME_UTC, format = KL_ASCII_43;
    long from_frame = KL_EF, to_frame = KL_EF, planet = 0, degree = 360;
    long star_frame = KL_TOD;
    double margin = 0.0, star_epoch = 0.5; // m; days, J2000.0
    bool back = false, mean = false;
    PassRequest pass;
    std::string function, vector, wanted;
};

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

int refused(const Refusal &why)
{
    const Condition *condition = why.cell < 0 ? first_error(why.function_id, why.function, why.ierr) : nullptr;
    std::fprintf(stderr, "kitlib: %s\n", condition != nullptr ? condition->text : "the time cannot be read");
    return kRefused;
}

int show_sky(const Context &context, const Options &options)
{
    Refusal why;
    double tai;
    if (!tai_of(context, options.from_scale, options.values[0], tai, why))
        return refused(why);
    const char *gap = options.rows.json ? "{" : "";
    for (const auto &[name, scale] : kScales) {
        std::string text;
        if (!text_of(context, tai, scale, text, why))
            return refused(why);
        if (options.rows.json)
            std::printf("%s\"%s\": \"%s\"", gap, name.c_str(), text.c_str());
        else
            std::printf("%-10s %s\n", name.c_str(), text.c_str());
        gap = ", ";
    }
    std::vector<std::pair<std::string, Question>> bodies;
    const long tai_scale = KL_TIME_TAI;
    bodies.emplace_back("sun", body_question(context, Body::kSun, 0, tai_scale, options.to_frame));
    bodies.emplace_back("moon", body_question(context, Body::kMoon, 0, tai_scale, options.to_frame));
    for (long planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet)
        for (const auto &[name, id] : kPlanets)
            if (id == planet)
                bodies.emplace_back(name, body_question(context, Body::kPlanet, planet, tai_scale, options.to_frame));
    if (!options.rows.json)
        std::printf("%-10s %22s %22s %22s   m\n", "", "x", "y", "z");
    const std::string instant = shortest(tai);
    for (const auto &[name, question] : bodies) {
        std::vector<Value> state(question.outputs.size());
        if (!question.ask({instant}, state, why))
            return refused(why);
        if (options.rows.json)
            std::printf(", \"%s\": [%s, %s, %s]", name.c_str(), shortest(state[0].number).c_str(),
                        shortest(state[1].number).c_str(), shortest(state[2].number).c_str());
        else
            std::printf("%-10s %22.3f %22.3f %22.3f\n", name.c_str(), state[0].number, state[1].number,
                        state[2].number);
    }
    std::fputs(options.rows.json ? "}\n" : "", stdout);
    return kDone;
}

// UTC of days, as a text.
std::string day_text(const Context &context, double utc)
{
    const long processing = KL_PROC, scale = KL_TIME_UTC, format = KL_ASCII_41;
    char text[KL_TIME_ASCII_LENGTH] = "?";
    long ierr[1];
    kl_time_processing_to_ascii(&context.time, &processing, &scale, &utc, &format, &scale, text, ierr);
    return text;
}

int show_time_files(const Context &context, const Options &options)
{
    long n = 0;
    double *since = nullptr, *tai_utc = nullptr, expiry = 0.0;
    if (kl_time_get_leap_seconds(&context.time, &n, &since, &tai_utc, &expiry) == KL_ERR)
        return kRefused;
    const kl_time_file_report &report = context.report;
    const bool json = options.rows.json;
    const auto line = [&](const char *name, const std::string &value, bool last = false) {
        if (json)
            std::printf("\"%s\": %s%s", name, json_text(value).c_str(), last ? "}\n" : ", ");
        else
            std::printf("%-22s %s\n", name, value.c_str());
    };
    std::fputs(json ? "{" : "", stdout);
    line("rows", std::to_string(report.n_rows));
    line("of these predicted", std::to_string(report.n_predicted));
    line("first row", day_text(context, report.first));
    line("last final row", report.last_final != 0.0 ? day_text(context, report.last_final) : "none");
    line("last row", day_text(context, report.last));
    line("last leap second",
         n > 0 ? "before " + day_text(context, since[n - 1]) + ", TAI-UTC " + shortest(tai_utc[n - 1]) + " s since"
               : "none in these rows");
    const double known = expiry != 0.0 ? expiry : report.leap_expiry;
    line("next leap second",
         known != 0.0 ? "none announced until " + day_text(context, known) : "no list of leap seconds was read", true);
    void *arrays[2] = {since, tai_utc};
    kl_free_array(&arrays[0]);
    kl_free_array(&arrays[1]);
    return kDone;
}

int show_vector(const Options &options)
{
    long words[2] = {0, 0};
    std::string text = options.vector;
    const bool code = text[0] == ':';
    for (int i = 0; i < 2 && !text.empty(); ++i) {
        char *end = nullptr;
        words[i] = std::strtol(text.c_str() + (code ? 1 : 0), &end, 0);
        if (end == text.c_str() || (*end != '\0' && *end != ','))
            return std::fprintf(stderr, "kitlib: %s is no error vector\n", options.vector.c_str()), kWrongUsage;
        text = *end == ',' ? end + 1 : "";
    }
    bool known = false;
    int found = 0;
    std::string out;
    for (std::size_t i = 0; i < kNConditions; ++i) {
        const Condition &condition = kConditions[i];
        if (options.function != condition.function)
            continue;
        known = true;
        if (code ? condition.code != words[0] : !is_set(condition, words))
            continue;
        const char *severity = condition.severity < 0 ? "error" : "warning";
        if (options.rows.json)
            out += (found > 0 ? ", " : "") + std::string("{\"constant\": ") + json_text(condition.constant)
                   + ", \"severity\": \"" + severity + "\", \"code\": " + std::to_string(condition.code)
                   + ", \"text\": " + json_text(condition.text) + ", \"when\": " + json_text(condition.when) + "}";
        else
            out += std::string(condition.constant) + ", " + severity + " " + std::to_string(condition.code) + "\n  "
                   + condition.text + "\n"
                   + (*condition.when != '\0' ? "  When: " + std::string(condition.when) + "\n" : "");
        ++found;
    }
    if (!known) {
        std::fprintf(stderr, "kitlib: %s has no conditions; see kitlib functions\n", options.function.c_str());
        return kWrongUsage;
    }
    std::printf(options.rows.json ? "[%s]\n" : "%s", out.c_str());
    if (found == 0 && !options.rows.json)
        std::puts("nothing recorded");
    return kDone;
}

int show_functions(const Options &options)
{
    int found = 0;
    std::string out;
    for (std::size_t i = 0; i < kNFunctions; ++i) {
        const Function &f = kFunctions[i];
        const bool exact = options.wanted == f.name;
        if (!options.wanted.empty() && !exact && options.wanted != f.subject)
            continue;
        if (options.rows.json)
            out += (found > 0 ? ",\n " : "") + std::string("{\"name\": ") + json_text(f.name)
                   + ", \"subject\": " + json_text(f.subject) + ", \"summary\": " + json_text(f.summary)
                   + ", \"declaration\": " + json_text(f.declaration) + "}";
        else if (exact)
            out += std::string(f.summary) + ".\n\n  " + f.declaration + "\n";
        else
            out += std::string(f.name) + std::string(42 - std::min<std::size_t>(41, std::strlen(f.name)), ' ')
                   + f.subject + "\n";
        for (std::size_t c = 0; exact && !options.rows.json && c < kNConditions; ++c)
            if (options.wanted == kConditions[c].function)
                out += "\n  " + std::string(kConditions[c].constant) + " " + std::to_string(kConditions[c].code) + ": "
                       + kConditions[c].text;
        out += exact && !options.rows.json ? "\n" : "";
        ++found;
    }
    if (found == 0) {
        std::fprintf(stderr, "kitlib: no function and no subject %s\n", options.wanted.c_str());
        return kWrongUsage;
    }
    std::printf(options.rows.json ? "[%s]\n" : "%s", out.c_str());
    return kDone;
}

template <typename Map>
CLI::Option *choice(CLI::App *verb, const char *name, long &to, const Map &names, const char *meaning,
                    const char *standard)
{
    return verb->add_option(name, to, std::string(meaning) + ", " + standard + " where none is named")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case).description(""))
        ->type_name("NAME");
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app(
        "Time scales, frames, Sun, Moon, planets and stars, coordinates, orbits and the geoid: questions to "
        "libKitLib.\n"
        "Values as arguments, or a CSV table with a header on standard input. Metres, seconds, degrees; a time is\n"
        "yyyy-mm-ddThh:nn:ss with up to six decimals, or days of MJD2000.");
    app.name("kitlib");
    app.set_version_flag("--version", std::string("kitlib ") + kl_version());
    app.require_subcommand(1);
    app.footer("kitlib VERB --help shows an example. Two-line elements belong to the orbit library.\n"
               "Ends with 0; 1 for wrong usage; 2 when something was refused.");
    Options options;
    const auto verb = [&](const char *name, const char *what, const char *example) {
        CLI::App *made = app.add_subcommand(name, what);
        made->footer(std::string("Example:\n  ") + example);
        made->add_flag("--json", options.rows.json, "answers as JSON, a row an object");
        return made;
    };
    const auto timed = [&](CLI::App *made) {
        made->add_option("--files", options.files,
                         "bulletins and lists of leap seconds; none: the correlation compiled in")
            ->type_name("FILE");
        return made;
    };
    const auto rows = [&](CLI::App *made, const char *values) {
        made->add_option("values", options.values, values)->option_text("VALUES");
        made->add_option("--columns", options.rows.columns,
                         "columns of the table that hold the values: names or numbers")
            ->delimiter(',')
            ->type_name("NAME,...");
        made->positionals_at_end(false);
        return made;
    };

    CLI::App *time =
        timed(rows(verb("time", "An instant on another scale or in another format",
                        "kitlib time 2016-12-31T23:59:60 --to GPS\n  kitlib time --columns utc --to TAI <table.csv"),
                   "TIME"));
    choice(time, "--from", options.from_scale, kScales, "scale: TAI, UTC, UT1 or GPS", "UTC");
    choice(time, "--to", options.to_scale, kScales, "scale of the answer", "UTC");
    choice(time, "--format", options.format, kFormats, "iso, compact, named, underscore, digits or mjd2000", "iso");

    CLI::App *sky =
        timed(verb("sky", "Time scales, Sun, Moon and planets at an instant", "kitlib sky 2026-06-21T08:24:00"));
    sky->add_option("time", options.values, "TIME")->required()->expected(1);
    CLI::App *sun =
        timed(rows(verb("sun", "The Sun from the centre of the Earth", "kitlib sun 2026-06-21T08:24:00"), "TIME"));
    CLI::App *moon = timed(
        rows(verb("moon", "The Moon from the centre of the Earth", "kitlib moon 2026-06-21T08:24:00 --frame GM2000"),
             "TIME"));
    CLI::App *planet =
        timed(verb("planet", "A planet from the centre of the Earth", "kitlib planet mars 2026-06-21T08:24:00"));
    planet->add_option("planet", options.planet, "mercury to neptune, earth-moon")
        ->required()
        ->transform(CLI::CheckedTransformer(kPlanets, CLI::ignore_case).description(""));
    rows(planet, "TIME");
    for (CLI::App *body : {sky, sun, moon, planet}) {
        choice(body, "--scale", options.from_scale, kScales, "scale of the time", "UTC");
        choice(body, "--frame", options.to_frame, kFrames, "frame of the answer, as kitlib frame names it", "EF");
    }

    CLI::App *frame = timed(rows(verb("frame", "A position, or position and velocity, in another frame",
                                      "kitlib frame --from EF --to GM2000 2026-06-21T08:24:00 7000e3 0 -100e3\n"
                                      "  kitlib frame --from GM2000 --to EF --columns utc,x,y,z,vx,vy,vz <states.csv"),
                                 "TIME X Y Z [VX VY VZ]"));
    choice(frame, "--from", options.from_frame, kFrames,
           "frame: GM2000, MOD, TOD, TEME, PEF, EF, HM2000, BM2000, BM1950 or GALACTIC", "EF");
    choice(frame, "--to", options.to_frame, kFrames, "frame of the answer", "EF");
    choice(frame, "--scale", options.from_scale, kScales, "scale of the time", "UTC");

    CLI::App *geoid = rows(verb("geoid", "Height of the EGM96 geoid above the ellipsoid", "kitlib geoid 47.5 19.05"),
                           "LATITUDE LONGITUDE");
    geoid->add_option("--degree", options.degree, "of the expansion, 360 where none is named");

    CLI::App *geodetic = rows(verb("geodetic", "Earth-fixed position to latitude, longitude and height, or back",
                                   "kitlib geodetic 4078e3 931e3 4801e3\n  kitlib geodetic --back 47.5 19.05 150"),
                              "X Y Z");
    geodetic->add_flag("--back", options.back, "LATITUDE LONGITUDE HEIGHT to X Y Z");
    CLI::App *kepler = rows(verb("kepler", "Keplerian elements to position and velocity, or back",
                                 "kitlib kepler 7159e3 0.001 98.5 10 90 30 --mean"),
                            "A E INCLINATION RAAN PERIGEE ANOMALY");
    kepler->add_flag("--back", options.back, "X Y Z VX VY VZ to elements");
    kepler->add_flag("--mean", options.mean, "mean elements (less the short-period terms of J2); else osculating ones");
    CLI::App *topocentric =
        rows(verb("topocentric", "Azimuth, elevation and range of an Earth-fixed position from a place",
                  "kitlib topocentric 47.5 19.05 150 4500e3 1000e3 5500e3"),
             "LATITUDE LONGITUDE HEIGHT X Y Z");
    CLI::App *pass = timed(verb("pass", "Passes of a satellite on mean Keplerian elements over a station",
                                "kitlib pass 67.86 20.96 390 7178137 0.001 98.6 250 90 0 --epoch 2026-06-21T00:00:00"));
    pass->add_option("values", options.values,
                     "LATITUDE LONGITUDE HEIGHT A E INCLINATION RAAN PERIGEE ANOMALY: the station, and elements of the "
                     "true equator of date, which J2 turns. Two-line elements belong to the orbit library")
        ->option_text("VALUES")
        ->required()
        ->expected(9);
    pass->add_option("--epoch", options.pass.epoch, "time of the elements")->required()->type_name("TIME");
    pass->add_option("--start", options.pass.start, "of the search, the epoch where none is named")->type_name("TIME");
    pass->add_option("--hours", options.pass.hours, "of the search, 24 where none are named");
    pass->add_option("--elevation", options.pass.elevation_deg, "deg, that a pass rises above, 0 where none is named");
    choice(pass, "--scale", options.pass.scale, kScales, "scale of the times", "UTC");
    CLI::App *eclipse = timed(rows(verb("eclipse", "How much of the Sun the Earth hides from a place in space",
                                        "kitlib eclipse 2026-06-21T08:24:00 -4078e3 -5700e3 -2800e3 --frame EF\n"
                                        "  kitlib eclipse --columns utc,x,y,z --frame GM2000 <states.csv"),
                                   "TIME X Y Z"));
    choice(eclipse, "--frame", options.from_frame, kFrames, "frame of the position, as kitlib frame names it", "EF");
    eclipse->add_option("--margin", options.margin, "m, raises the Earth for its atmosphere, 0 where none is named");
    CLI::App *star =
        timed(rows(verb("star", "Apparent place of a star from the centre of the Earth",
                        "kitlib star 2026-06-21T08:24:00 101.28715533 -16.71611586 -546.01 -1223.07 379.21 -5.5"),
                   "TIME RA DEC [PM_RA PM_DEC PARALLAX RADIAL_VELOCITY]: J2000; mas/yr (in right ascension times "
                   "cos DEC), mas, km/s"));
    choice(star, "--frame", options.star_frame, kFrames, "frame of the place, as kitlib frame names it", "TOD");
    star->add_option("--star-epoch", options.star_epoch,
                     "of place and motion, days of MJD2000: 0.5, J2000.0, where none is named; J1991.25 is -3195.4375");
    for (CLI::App *made : {eclipse, star})
        choice(made, "--scale", options.from_scale, kScales, "scale of the time", "UTC");
    CLI::App *distance = rows(
        verb("distance", "Shortest way between two places on the ellipsoid", "kitlib distance 47.5 19.05 -22.9 -43.2"),
        "LATITUDE1 LONGITUDE1 LATITUDE2 LONGITUDE2");

    CLI::App *timeid = verb("timeid", "What files of Earth orientation hold, to which date, leap seconds",
                            "kitlib timeid finals2000A.all leap-seconds.list");
    timeid->add_option("files", options.files, "FILE...; none: the correlation compiled in");

    CLI::App *explain =
        verb("explain", "What an error vector says", "kitlib explain kl_sun 2\n  kitlib explain kl_sun:1");
    explain->add_option("function", options.function, "its name, or name:code as tables have it")->required();
    explain->add_option("vector", options.vector, "a number; two with a comma between");

    CLI::App *functions = verb("functions", "Functions of the library", "kitlib functions kl_sun");
    functions->add_option("which", options.wanted, "a name or a subject; none: all");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? kDone : kWrongUsage;
    }

    int status = kDone;
    if (*explain) {
        const std::size_t colon = options.function.find(':');
        if (colon != std::string::npos && options.vector.empty()) {
            options.vector = options.function.substr(colon);
            options.function.resize(colon);
        }
        if (options.vector.empty())
            return std::fputs("kitlib: which error vector?\n", stderr), kWrongUsage;
        status = show_vector(options);
    } else if (*functions) {
        status = show_functions(options);
    } else {
        Context context;
        if (!context.open(options.files))
            return kRefused;
        const bool velocity = options.values.empty() ? options.rows.columns.size() == 7 : options.values.size() == 7;
        status =
            *time     ? answer(time_question(context, options.from_scale, options.to_scale, options.format), options)
            : *sky    ? show_sky(context, options)
            : *sun    ? answer(body_question(context, Body::kSun, 0, options.from_scale, options.to_frame), options)
            : *moon   ? answer(body_question(context, Body::kMoon, 0, options.from_scale, options.to_frame), options)
            : *planet ? answer(
                  body_question(context, Body::kPlanet, options.planet, options.from_scale, options.to_frame), options)
            : *frame ? answer(
                  frame_question(context, options.from_scale, options.from_frame, options.to_frame, velocity), options)
            : *geoid    ? answer(geoid_question(context, options.degree), options)
            : *geodetic ? answer(geodetic_question(context, options.back), options)
            : *kepler   ? answer(
                    kepler_question(context, options.mean ? KL_KEPLER_MEAN : KL_KEPLER_OSCULATING, options.back), options)
            : *topocentric ? answer(topocentric_question(context), options)
            : *pass        ? show_passes(context, options.values, options.pass, options.rows.json)
            : *eclipse
                ? answer(eclipse_question(context, options.from_scale, options.from_frame, options.margin), options)
            : *star
                ? answer(star_question(context, options.from_scale, options.star_frame, options.star_epoch), options)
            : *distance ? answer(distance_question(context), options)
                        : show_time_files(context, options);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::fputs("kitlib: the output cannot be written\n", stderr);
        return kWrongUsage;
    }
    return status;
}
