// SP3, versions a to d: for a time id its first and last epoch and its time system. Fields are words, since real files
// are off by a column here and there; line 2 is not read.
#include "time/files/lines.h"
#include "time/scales.h"

namespace time_files {

namespace {

constexpr double kGps = 19.0; // s: TAI less the scale
constexpr double kBeidou = 19.0 + 14.0;

struct System {
    std::string_view name;
    Scale scale;
    double behind_tai; // s
};
// Version a writes ccc: GPS.
constexpr System kSystems[] = {
    {"GPS", Scale::tai, kGps},    {"ccc", Scale::tai, kGps}, {"GAL", Scale::tai, kGps},
    {"QZS", Scale::tai, kGps},    {"IRN", Scale::tai, kGps}, {"TAI", Scale::tai, 0.0},
    {"BDT", Scale::tai, kBeidou}, {"UTC", Scale::utc, 0.0},  {"GLO", Scale::utc, 0.0},
};

// yyyy mm dd hh mm ss.ssssssss, each up to one unit too large or a day of zero: normalised.
bool read_epoch(const Line &line, std::string_view fields, double *days, Finding *finding)
{
    const Words words = words_of(fields);
    if (words.count < 6) {
        *finding = malformed(line, fields);
        return false;
    }
    long year = 0, month = 0, day = 0, hour = 0, minute = 0;
    double second = 0.0;
    if (!whole_in(line, words.word[0], 1950, 2099, &year, finding)
        || !whole_in(line, words.word[1], 1, 12, &month, finding)
        || !whole_in(line, words.word[2], 0, 31, &day, finding) || !whole_in(line, words.word[3], 0, 24, &hour, finding)
        || !whole_in(line, words.word[4], 0, 60, &minute, finding)
        || !number_in(line, words.word[5], 60.0, &second, finding))
        return false;
    if (second < 0.0 || day > days_in_month(year, month)) {
        *finding = malformed(line, second < 0.0 ? words.word[5] : words.word[2]);
        return false;
    }
    *days = static_cast<double>(day_of_calendar(year, month, 1) + day - 1)
            + (static_cast<double>(3600 * hour + 60 * minute) + second) / KL_SECONDS_PER_DAY;
    return true;
}

Finding cut(const Line &line)
{
    return malformed(line, line.text.substr(line.text.size()));
}

class Sp3 {
public:
    explicit Sp3(Span *span) : span_(span) {}

    // The first bytes of a file, up to all of them.
    Finding head(std::string_view bytes)
    {
        Lines lines(bytes);
        for (Line line; lines.next(&line);) {
            Finding finding;
            if (line.number == 1) {
                if (!line.ended)
                    return cut(line);
                if (!read_epoch(line, line.text.substr(std::min<std::size_t>(3, line.text.size())), &span_->start,
                                &finding))
                    return finding;
                span_->start_line = span_->stop_line = 1;
                span_->stop = span_->start;
            } else if (starts_with(line.text, "%c") && system_ == nullptr) {
                finding = time_system(line);
            } else {
                finding = epoch(line);
            }
            if (finding)
                return finding;
            last_ = line;
        }
        return {};
    }

    // The last bytes of a long file, from the start of a line; their line numbers are not known.
    Finding tail(std::string_view bytes)
    {
        Lines lines(bytes);
        for (Line line; lines.next(&line);) {
            line.number = 0;
            Finding finding = epoch(line);
            finding.column = 0;
            if (finding)
                return finding;
        }
        return {};
    }

    Finding finish()
    {
        if (system_ == nullptr)
            return cut(last_);
        span_->known = true;
        span_->scale = system_->scale;
        span_->start += system_->behind_tai / KL_SECONDS_PER_DAY;
        span_->stop += system_->behind_tai / KL_SECONDS_PER_DAY;
        return {};
    }

private:
    Finding time_system(const Line &line)
    {
        if (!line.ended)
            return cut(line);
        const Words words = words_of(line.text);
        const std::string_view name = words.count > 3 ? words.word[3] : line.text;
        for (const System &system : kSystems)
            if (system.name == name)
                system_ = &system;
        return system_ != nullptr ? Finding{} : found(Fault::unsupported, line, name);
    }

    Finding epoch(const Line &line)
    {
        if (line.text.empty() || line.text.front() != '*')
            return {};
        Finding finding;
        double days = 0.0;
        if (!line.ended)
            return cut(line);
        if (!read_epoch(line, line.text.substr(1), &days, &finding))
            return finding;
        if (days < span_->stop)
            return found(Fault::not_increasing, line, line.text);
        span_->stop = days;
        span_->stop_line = line.number;
        return {};
    }

    Span *span_;
    const System *system_ = nullptr;
    Line last_;
};

} // namespace

Finding read_sp3_ends(std::string_view head, std::string_view tail, Contents *contents)
{
    Sp3 file(&contents->span);
    if (const Finding finding = file.head(head))
        return finding;
    if (const Finding finding = file.tail(tail))
        return finding;
    return file.finish();
}

Finding read_sp3(std::string_view bytes, Contents *contents)
{
    return read_sp3_ends(bytes, {}, contents);
}

} // namespace time_files
