#include "reports.h"

#include "table.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kitlib {

namespace {

// Name and question of each body, for instants in TAI.
std::vector<std::pair<std::string, Question>> body_questions(const Context &context, long frame)
{
    const long scale = KL_TIME_TAI;
    std::vector<std::pair<std::string, Question>> bodies = {
        {"sun", body_question(context, Body::kSun, 0, scale, frame)},
        {"moon", body_question(context, Body::kMoon, 0, scale, frame)}};
    for (long planet = KL_MERCURY; planet <= KL_NEPTUNE; ++planet)
        for (const auto &[name, id] : kPlanets)
            if (id == planet)
                bodies.emplace_back(name, body_question(context, Body::kPlanet, planet, scale, frame));
    return bodies;
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

// The words of "2", "2,1" or, behind its colon, a code. False: no such text.
bool read_words(const char *text, long words[2])
{
    for (int i = 0; i < 2; ++i) {
        char *end = nullptr;
        words[i] = std::strtol(text, &end, 0);
        if (end == text || (*end != '\0' && *end != ','))
            return false;
        if (*end == '\0')
            return true;
        text = end + 1;
    }
    return false;
}

std::string described(const Condition &condition, bool json)
{
    const char *severity = condition.severity < 0 ? "error" : "warning";
    const std::string code = std::to_string(condition.code), help = remedy(condition);
    if (json)
        return std::string("{\"constant\": ") + json_text(condition.constant) + ", \"severity\": \"" + severity
               + "\", \"code\": " + code + ", \"text\": " + json_text(condition.text)
               + ", \"when\": " + json_text(condition.when) + ", \"remedy\": " + json_text(help) + "}";
    std::string out = std::string(condition.constant) + ", " + severity + " " + code + "\n  " + condition.text + "\n";
    if (*condition.when != '\0')
        out += std::string("  When: ") + condition.when + "\n";
    if (!help.empty())
        out += "  Remedy: " + help + "\n";
    return out;
}

std::string described(const Function &f, bool json, bool whole)
{
    constexpr std::size_t kWidth = 42;
    if (json)
        return std::string("{\"name\": ") + json_text(f.name) + ", \"subject\": " + json_text(f.subject)
               + ", \"summary\": " + json_text(f.summary) + ", \"declaration\": " + json_text(f.declaration) + "}";
    if (!whole) {
        std::string line = f.name;
        line.resize(std::max(kWidth, line.size() + 1), ' ');
        return line + f.subject + "\n";
    }
    std::string out = std::string(f.summary) + ".\n\n  " + f.declaration + "\n";
    for (std::size_t i = 0; i < kNConditions; ++i)
        if (std::strcmp(f.name, kConditions[i].function) == 0)
            out += "\n  " + std::string(kConditions[i].constant) + " " + std::to_string(kConditions[i].code) + ": "
                   + kConditions[i].text;
    return out + "\n";
}

} // namespace

int show_sky(const Context &context, const std::string &time, long scale, long frame, bool json)
{
    Refusal why;
    double tai;
    if (!tai_of(context, scale, time, tai, why))
        return refuse({}, why);
    std::string out;
    for (const auto &[name, id] : kScales) {
        std::string text;
        if (!text_of(context, tai, id, text, why))
            return refuse({}, why);
        out += json ? json_text(name) + ": " + json_text(text) + ", "
                    : name + std::string(11 - name.size(), ' ') + text + "\n";
    }
    char line[128];
    if (!json) {
        std::snprintf(line, sizeof line, "%-10s %22s %22s %22s   m\n", "", "x", "y", "z");
        out += line;
    }
    const char *gap = "";
    for (const auto &[name, question] : body_questions(context, frame)) {
        std::vector<Value> state(question.outputs.size());
        if (!question.ask({shortest(tai)}, state, why))
            return refuse({}, why);
        if (json) {
            out += gap + json_text(name) + ": [" + shortest(state[0].number) + ", " + shortest(state[1].number) + ", "
                   + shortest(state[2].number) + "]";
            gap = ", ";
        } else {
            std::snprintf(line, sizeof line, "%-10s %22.3f %22.3f %22.3f\n", name.c_str(), state[0].number,
                          state[1].number, state[2].number);
            out += line;
        }
    }
    warn(why);
    std::printf(json ? "{%s}\n" : "%s", out.c_str());
    return kDone;
}

int show_time_files(const Context &context, bool json)
{
    long n = 0;
    double *since = nullptr, *tai_utc = nullptr, expiry = 0.0;
    if (kl_time_get_leap_seconds(&context.time, &n, &since, &tai_utc, &expiry) == KL_ERR)
        return kRefused;
    const kl_time_file_report &report = context.report;
    const double known = expiry != 0.0 ? expiry : report.leap_expiry;
    const std::pair<const char *, std::string> lines[] = {
        {"rows", std::to_string(report.n_rows)},
        {"of these predicted", std::to_string(report.n_predicted)},
        {"first row", day_text(context, report.first)},
        {"last final row", report.last_final != 0.0 ? day_text(context, report.last_final) : "none"},
        {"last row", day_text(context, report.last)},
        {"last leap second",
         n > 0 ? "before " + day_text(context, since[n - 1]) + ", TAI-UTC " + shortest(tai_utc[n - 1]) + " s since"
               : "none in these rows"},
        {"next leap second",
         known != 0.0 ? "none announced until " + day_text(context, known) : "no list of leap seconds was read"}};
    const char *gap = "{";
    for (const auto &[name, value] : lines) {
        if (json)
            std::printf("%s\"%s\": %s", gap, name, json_text(value).c_str());
        else
            std::printf("%-22s %s\n", name, value.c_str());
        gap = ", ";
    }
    std::fputs(json ? "}\n" : "", stdout);
    void *arrays[2] = {since, tai_utc};
    kl_free_array(&arrays[0]);
    kl_free_array(&arrays[1]);
    return kDone;
}

int show_vector(const std::string &function, const std::string &vector, bool json)
{
    long words[2] = {0, 0};
    const bool code = vector[0] == ':';
    if (!read_words(vector.c_str() + (code ? 1 : 0), words)) {
        std::fprintf(stderr, "kitlib: %s is no error vector\n", vector.c_str());
        return kWrongUsage;
    }
    bool known = false;
    std::string out;
    for (std::size_t i = 0; i < kNConditions; ++i) {
        const Condition &condition = kConditions[i];
        if (function != condition.function)
            continue;
        known = true;
        if (code ? condition.code == words[0] : is_set(condition, words))
            out += (json && !out.empty() ? ", " : "") + described(condition, json);
    }
    if (!known) {
        std::fprintf(stderr, "kitlib: %s has no conditions; see kitlib functions\n", function.c_str());
        return kWrongUsage;
    }
    if (json)
        std::printf("[%s]\n", out.c_str());
    else
        std::fputs(out.empty() ? "nothing recorded\n" : out.c_str(), stdout);
    return kDone;
}

int show_functions(const std::string &wanted, bool json)
{
    std::string out;
    for (std::size_t i = 0; i < kNFunctions; ++i) {
        const Function &f = kFunctions[i];
        if (wanted.empty() || wanted == f.name || wanted == f.subject)
            out += (json && !out.empty() ? ",\n " : "") + described(f, json, wanted == f.name);
    }
    if (out.empty()) {
        std::fprintf(stderr, "kitlib: no function and no subject %s\n", wanted.c_str());
        return kWrongUsage;
    }
    std::printf(json ? "[%s]\n" : "%s", out.c_str());
    return kDone;
}

} // namespace kitlib
