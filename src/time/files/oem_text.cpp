// CCSDS OEM as "KEY = value" lines, and the time that both writings of an OEM hold.
#include "time/files/oem.h"
#include "time/files/written_instants.h"
#include "time/scales.h"

namespace time_files {

namespace {

struct System {
    std::string_view name;
    Scale scale;
    double behind_tai; // s
};
// TDB differs from TT by less than 2 ms.
constexpr System kSystems[] = {
    {"UTC", Scale::utc, 0.0},    {"TAI", Scale::tai, 0.0},     {"GPS", Scale::tai, 19.0},
    {"TT", Scale::tai, -32.184}, {"TDB", Scale::tai, -32.184},
};

bool read_time(const Line &line, std::string_view value, double *days, Finding *finding)
{
    if (read_instant(value, days))
        return true;
    *finding = malformed(line, value);
    return false;
}

// A state: an epoch and 6 or 9 numbers.
Finding check_state(const Line &line)
{
    const Words words = words_of(line.text);
    double number = 0.0;
    if (words.count == 0)
        return {};
    Finding finding;
    if (!read_time(line, words.word[0], &number, &finding))
        return finding;
    return words.count == 7 || words.count == 10 ? Finding{} : malformed(line, line.text);
}

} // namespace

Finding OemSegments::system(const Line &line, std::string_view value)
{
    const System *known = nullptr;
    for (const System &system : kSystems)
        if (system.name == value)
            known = &system;
    if (known == nullptr)
        return found(Fault::unsupported, line, value);
    if (!first_system_.empty() && first_system_ != value) // segments of one file share a system
        return malformed(line, value);
    first_system_ = value;
    scale_ = known->scale;
    behind_tai_ = known->behind_tai;
    named_ = true;
    return {};
}

Finding OemSegments::take(const Line &line, std::string_view key, std::string_view value)
{
    Finding finding;
    if (key == "TIME_SYSTEM")
        finding = system(line, value);
    else if (key == "START_TIME" && read_time(line, value, &start_, &finding)) {
        started_ = true;
        start_line_ = line.number;
    } else if (key == "STOP_TIME" && read_time(line, value, &stop_, &finding)) {
        stopped_ = true;
        stop_line_ = line.number;
    }
    return finding;
}

Finding OemSegments::end(const Line &line)
{
    if (!open_ || !named_ || !started_ || !stopped_)
        return malformed(line, line.text);
    if (stop_ < start_)
        return found(Fault::not_increasing, line, line.text);
    open_ = false;
    const double start = start_ + behind_tai_ / KL_SECONDS_PER_DAY;
    const double stop = stop_ + behind_tai_ / KL_SECONDS_PER_DAY;
    if (!span_->known || start < span_->start) {
        span_->start = start;
        span_->start_line = start_line_;
    }
    if (!span_->known || stop > span_->stop) {
        span_->stop = stop;
        span_->stop_line = stop_line_;
    }
    span_->known = true;
    span_->scale = scale_;
    return {};
}

Finding read_oem_text(std::string_view bytes, Contents *contents)
{
    OemSegments segments(&contents->span);
    bool states = false;
    bool covariance = false;
    Lines lines(bytes);
    Line last;
    for (Line line; lines.next(&line); last = line) {
        const std::string_view text = trimmed(line.text);
        Finding finding;
        if (text.empty() || starts_with(text, "COMMENT"))
            continue;
        if (text == "META_START") {
            if (segments.open())
                return malformed(line, text);
            segments.begin();
            states = covariance = false;
        } else if (text == "META_STOP") {
            finding = segments.end(line);
            states = true;
        } else if (text == "COVARIANCE_START" || text == "COVARIANCE_STOP") {
            covariance = text == "COVARIANCE_START";
        } else if (states && !covariance) {
            finding = check_state(line);
        } else if (!covariance) {
            const std::size_t sign = text.find('=');
            if (sign == text.npos || !line.ended)
                return malformed(line, text);
            if (segments.open())
                finding = segments.take(line, trimmed(text.substr(0, sign)), trimmed(text.substr(sign + 1)));
        }
        if (finding)
            return finding;
    }
    return segments.open() || !contents->span.known ? malformed(last, last.text.substr(last.text.size())) : Finding{};
}

} // namespace time_files
