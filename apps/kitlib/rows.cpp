#include "rows.h"

#include "table.h"

#include "kl_lib.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace kitlib {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 22; // octets read at a time
constexpr double kLong = 1 << 23;                    // octets of a file for which progress is shown

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

// Where the quoted cell ends that begins at a quote; two quotes in it are one of its characters.
std::size_t closing_quote(std::string_view line, std::size_t opening)
{
    std::size_t at = line.find('"', opening + 1);
    while (at != std::string_view::npos && at + 1 < line.size() && line[at + 1] == '"')
        at = line.find('"', at + 2);
    return at;
}

// Cells of a line; one in quotes may hold commas, and comes without its quotes.
void split(std::string_view line, std::vector<std::string_view> &cells)
{
    cells.clear();
    for (std::size_t at = 0; at != std::string_view::npos;) {
        const bool quoted = at < line.size() && line[at] == '"';
        const std::size_t quote = quoted ? closing_quote(line, at) : std::string_view::npos;
        const std::size_t end = line.find(',', quote == std::string_view::npos ? at : quote);
        cells.push_back(quote == std::string_view::npos
                            ? trimmed(line.substr(at, end == std::string_view::npos ? end : end - at))
                            : line.substr(at + 1, quote - at - 1));
        at = end == std::string_view::npos ? end : end + 1;
    }
}

void append_number(std::string &out, double number)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, number).ptr;
    out.append(text, static_cast<std::size_t>(end - text));
}

void append(std::string &out, const Value &value, bool json)
{
    if (!value.text.empty())
        out += json ? json_text(value.text) : value.text;
    else if (json && !std::isfinite(value.number))
        out += "null";
    else
        append_number(out, value.number);
}

// Functions without a public id leave their vector at 0: their condition is the one whose text was recorded last.
const Condition *error_of(const Refusal &why)
{
    if (why.function == nullptr)
        return first_error(why.function_id, why.ierr);
    static thread_local char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    long n = 0;
    kl_get_last_msg(&n, messages);
    return n > 0 ? error_named(why.function, messages[n - 1]) : nullptr;
}

void append_json(std::string &out, const Question &question, const std::vector<Value> &answer)
{
    for (std::size_t i = 0; i < question.outputs.size(); ++i) {
        out += (i > 0 ? ", " : "") + json_text(question.outputs[i].name) + ": ";
        append(out, answer[i], true);
    }
}

struct Part {
    std::string_view lines; // whole ones
    std::string out;
    std::size_t refused = 0, warned = 0;
    Refusal warning; // the first one
};

void answer_lines(const Question &question, const std::vector<std::size_t> &columns, bool json, Part &part)
{
    std::vector<std::string_view> all, cells(columns.size());
    std::vector<Value> answer(question.outputs.size());
    part.out.clear();
    part.refused = part.warned = 0;
    for (std::size_t at = 0; at < part.lines.size();) {
        const std::size_t end = std::min(part.lines.find('\n', at), part.lines.size());
        const std::string_view line = trimmed(part.lines.substr(at, end - at));
        at = end + 1;
        if (line.empty())
            continue;
        split(line, all);
        Refusal why;
        for (std::size_t i = 0; i < columns.size() && why.cell < 0; ++i) {
            if (columns[i] >= all.size())
                why.cell = static_cast<int>(i);
            else
                cells[i] = all[columns[i]];
        }
        const bool good = why.cell < 0 && question.ask(cells, answer, why);
        part.refused += good ? 0 : 1;
        if (good && why.warned_by >= 0 && part.warned++ == 0)
            part.warning = why;
        if (json) {
            part.out += '{';
            if (good)
                append_json(part.out, question, answer);
            else
                part.out += "\"code\": " + json_text(code_of(question, why));
            part.out += "}\n";
            continue;
        }
        part.out += line;
        for (const Value &value : answer) {
            part.out += ',';
            if (good)
                append(part.out, value, false);
        }
        part.out += ',';
        if (!good)
            part.out += code_of(question, why);
        part.out += '\n';
    }
}

bool find_columns(const Question &question, const RowOptions &options, const std::vector<std::string_view> &header,
                  std::vector<std::size_t> &columns)
{
    std::vector<std::string> wanted = options.columns;
    if (wanted.empty()) {
        const std::size_t needed = question.inputs.size() - question.optional;
        for (std::size_t i = 0; i < question.inputs.size(); ++i) {
            const std::string &name = question.inputs[i].name;
            if (i < needed || std::find(header.begin(), header.end(), name) != header.end())
                wanted.push_back(name);
        }
    }
    if (wanted.size() != question.inputs.size() && wanted.size() != question.inputs.size() - question.optional) {
        std::fprintf(stderr, "kitlib: %zu columns, expected %zu:", wanted.size(), question.inputs.size());
        for (const Quantity &input : question.inputs)
            std::fprintf(stderr, " %s", input.name.c_str());
        std::fputc('\n', stderr);
        return false;
    }
    for (const std::string &name : wanted) {
        const auto found = std::find(header.begin(), header.end(), name);
        std::size_t number = static_cast<std::size_t>(found - header.begin());
        if (found == header.end()) {
            std::size_t counted = 0;
            const auto end = std::from_chars(name.data(), name.data() + name.size(), counted);
            if (end.ec != std::errc() || end.ptr != name.data() + name.size() || counted < 1
                || counted > header.size()) {
                std::fprintf(stderr, "kitlib: the header has no column %s\n", name.c_str());
                return false;
            }
            number = counted - 1;
        }
        columns.push_back(number);
    }
    return true;
}

bool write_out(const std::string &text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
}

int output_lost()
{
    std::fputs("kitlib: the output cannot be written\n", stderr);
    return kWrongUsage;
}

// A table on its way: what is asked of it, its columns once the header is read, and what became of its rows.
struct Rows {
    Rows(const Question &q, bool as_json)
        : question(q), json(as_json), parts(std::max(1U, std::thread::hardware_concurrency()))
    {
    }
    const Question &question;
    bool json;
    std::vector<Part> parts; // a thread each
    std::vector<std::size_t> columns;
    std::size_t refused = 0, warned = 0;
    Refusal warning; // the first one
};

// Takes the header off the lines and writes it. False: it lacks a column, or nothing can be written.
bool take_header(Rows &rows, const RowOptions &options, std::string_view &lines)
{
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    std::string_view header = trimmed(lines.substr(0, end));
    if (header.substr(0, 3) == "\xEF\xBB\xBF")
        header.remove_prefix(3);
    lines.remove_prefix(std::min(end + 1, lines.size()));
    std::vector<std::string_view> names;
    split(header, names);
    if (!find_columns(rows.question, options, names, rows.columns))
        return false;
    std::string line(header);
    for (const Quantity &output : rows.question.outputs)
        line += "," + output.name;
    return rows.json || write_out(line + ",code\n") || output_lost() == kDone;
}

// Whole lines, shared between the threads; the answers in their order. False: they cannot be written.
bool answer_block(Rows &rows, std::string_view lines)
{
    std::vector<std::thread> threads;
    std::size_t left = rows.parts.size();
    for (Part &part : rows.parts) {
        const std::size_t end = lines.find('\n', lines.size() / left--);
        part.lines = lines.substr(0, left == 0 || end == std::string_view::npos ? lines.size() : end + 1);
        lines.remove_prefix(part.lines.size());
        threads.emplace_back([&] { answer_lines(rows.question, rows.columns, rows.json, part); });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (const Part &part : rows.parts) {
        rows.refused += part.refused;
        if (rows.warned == 0)
            rows.warning = part.warning;
        rows.warned += part.warned;
        if (!write_out(part.out))
            return false;
    }
    return true;
}

void show_progress(double done, double whole)
{
    constexpr int kWidth = 40;
    const int full = static_cast<int>(kWidth * std::min(done / whole, 1.0));
    std::fprintf(stderr, "\r[%-*.*s] %3.0f %%", kWidth, full, "########################################",
                 100.0 * std::min(done / whole, 1.0));
}

} // namespace

bool read_number(std::string_view text, double &number)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() && end.ptr == text.data() + text.size();
}

std::string shortest(double number)
{
    std::string text;
    append_number(text, number);
    return text;
}

std::string json_text(std::string_view text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            out += escaped;
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string code_of(const Question &question, const Refusal &why)
{
    if (why.cell >= 0)
        return "input:" + question.inputs[static_cast<std::size_t>(why.cell)].name;
    const Condition *condition = error_of(why);
    return condition != nullptr ? std::string(condition->function) + ":" + std::to_string(condition->code) : "refused";
}

std::string words_of(const Question &question, const Refusal &why)
{
    if (why.cell >= 0)
        return question.inputs[static_cast<std::size_t>(why.cell)].name + " cannot be read";
    const Condition *condition = error_of(why);
    return condition != nullptr ? std::string(condition->constant) + ": " + condition->text : "refused";
}

int refuse(const Question &question, const Refusal &why)
{
    std::fprintf(stderr, "kitlib: %s (%s)\n", words_of(question, why).c_str(), code_of(question, why).c_str());
    return kRefused;
}

void warn(const Refusal &why)
{
    if (const Condition *condition = first_warning(why.warned_by, why.warnings))
        std::fprintf(stderr, "kitlib: warning: %s (%s:%ld)\n", condition->text, condition->function, condition->code);
}

int ask_once(const Question &question, const std::vector<std::string> &values, bool json)
{
    std::vector<std::string_view> cells(values.begin(), values.end());
    std::vector<Value> answer(question.outputs.size());
    Refusal why;
    if (!question.ask(cells, answer, why)) {
        if (json)
            std::printf("{\"code\": %s}\n", json_text(code_of(question, why)).c_str());
        return refuse(question, why);
    }
    warn(why);
    std::string out;
    if (json) {
        out = "{";
        append_json(out, question, answer);
        out += "}\n";
    } else if (answer.size() == 1) {
        append(out, answer[0], false);
        out += '\n';
    } else {
        for (std::size_t i = 0; i < answer.size(); ++i) {
            std::string name = question.outputs[i].name;
            name.resize(std::max<std::size_t>(name.size() + 1, 10), ' ');
            out += name;
            append(out, answer[i], false);
            out += question.outputs[i].unit.empty() ? "\n" : " " + question.outputs[i].unit + "\n";
        }
    }
    return write_out(out) && std::fflush(stdout) == 0 ? kDone : output_lost();
}

int ask_rows(const Question &question, const RowOptions &options)
{
    struct stat file = {};
    const double whole =
        fstat(STDIN_FILENO, &file) == 0 && S_ISREG(file.st_mode) ? static_cast<double>(file.st_size) : 0.0;
    const bool progress = whole > kLong && isatty(STDERR_FILENO) != 0;
    Rows rows(question, options.json);
    std::string text;
    double done = 0.0;
    for (bool more = true; more;) {
        const std::size_t kept = text.size();
        text.resize(kept + kBlock);
        const std::size_t n = std::fread(text.data() + kept, 1, kBlock, stdin);
        text.resize(kept + n);
        more = n == kBlock;
        if (!more && std::ferror(stdin) != 0) {
            std::fputs("kitlib: the input cannot be read\n", stderr);
            return kWrongUsage;
        }
        const std::size_t whole_lines = more ? text.rfind('\n') + 1 : text.size();
        std::string_view lines(text.data(), whole_lines);
        if (!lines.empty() && rows.columns.empty() && !take_header(rows, options, lines))
            return kWrongUsage;
        if (!answer_block(rows, lines))
            return output_lost();
        text.erase(0, whole_lines);
        done += static_cast<double>(n);
        if (progress)
            show_progress(done, whole);
    }
    if (progress)
        std::fputc('\n', stderr);
    if (std::fflush(stdout) != 0)
        return output_lost();
    if (rows.columns.empty()) {
        std::fputs("kitlib: no values and nothing on standard input\n", stderr);
        return kWrongUsage;
    }
    warn(rows.warning);
    if (rows.warned > 1)
        std::fprintf(stderr, "kitlib: %zu rows with warnings\n", rows.warned);
    if (rows.refused > 0)
        std::fprintf(stderr, "kitlib: %zu rows refused\n", rows.refused);
    return rows.refused > 0 ? kRefused : kDone;
}

} // namespace kitlib
