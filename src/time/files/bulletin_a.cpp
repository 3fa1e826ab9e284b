// Bulletin A, the weekly text: rapid-service values, predictions for a year, and the formulas that go on after them.
// Every edition shifts its columns a little, so fields are words.
#include "time/files/lines.h"

#include <cmath>

namespace time_files {

namespace {

constexpr int kRapidWords = 10;      // yy mm dd MJD x err y err UT1-UTC err
constexpr int kPredictedWords = 7;   // yyyy mm dd MJD x y UT1-UTC
constexpr std::size_t kDecimals = 5; // of a predicted UT1-UTC: fewer are a cut number
constexpr double kLargestCoefficient = 100.0;

// A walk along the characters of a formula; blanks do not count.
class Walk {
public:
    explicit Walk(std::string_view text) : rest_(text) {}

    // Goes past a fixed text.
    bool past(std::string_view fixed)
    {
        for (const char c : fixed) {
            skip_blanks();
            if (rest_.empty() || rest_.front() != c)
                return false;
            rest_.remove_prefix(1);
        }
        return true;
    }

    // An unsigned number.
    bool number(double *value)
    {
        skip_blanks();
        std::size_t length = 0;
        while (length < rest_.size() && (is_digit(rest_[length]) || rest_[length] == '.'))
            ++length;
        const std::string_view digits = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return read_number(digits, value) && *value < 1e6;
    }

    // A number with its sign, which may stand apart; `needs_sign` after the first of a sum.
    bool term(bool needs_sign, double *value)
    {
        skip_blanks();
        const bool minus = !rest_.empty() && rest_.front() == '-';
        const bool plus = !rest_.empty() && rest_.front() == '+';
        if (minus || plus)
            rest_.remove_prefix(1);
        else if (needs_sign)
            return false;
        if (!number(value))
            return false;
        *value = minus ? -*value : *value;
        return *value <= kLargestCoefficient && *value >= -kLargestCoefficient;
    }

    bool ends()
    {
        skip_blanks();
        return rest_.empty();
    }
    std::string_view rest() const { return rest_; }

private:
    void skip_blanks()
    {
        while (!rest_.empty() && is_blank(rest_.front()))
            rest_.remove_prefix(1);
    }
    std::string_view rest_;
};

// x =  0.0969 + 0.1110 cos A - 0.0103 sin A - 0.0435 cos C - 0.0171 sin C
bool read_pole_formula(Walk walk, double coefficients[5], std::string_view *refused)
{
    constexpr std::string_view kFunctions[] = {"", "cosA", "sinA", "cosC", "sinC"};
    bool good = true;
    for (int i = 0; i < 5 && good; ++i)
        good = walk.term(i > 0, &coefficients[i]) && walk.past(kFunctions[i]);
    *refused = walk.rest();
    return good && walk.ends();
}

// UT1-UTC = -0.0052 - 0.00104 (MJD - 56548) - (UT2-UT1)
bool read_ut1_formula(Walk walk, Formula *formula, std::string_view *refused)
{
    double day = 0.0;
    const bool good = walk.term(false, &formula->a) && walk.term(true, &formula->b) && walk.past("(MJD-")
                      && walk.number(&day) && walk.past(")-(UT2-UT1)");
    *refused = walk.rest();
    formula->c = day - kMjdOfDayZero;
    return good && walk.ends();
}

// where A = 2*pi*(MJD-56540)/365.25 and C = 2*pi*(MJD-56540)/435.
bool read_where(Walk walk, Formula *formula, std::string_view *refused)
{
    bool good = walk.past("whereA=");
    for (int i = 0; i < 2 && good; ++i) {
        double day = 0.0;
        good = walk.past("2*pi*(MJD-") && walk.number(&day) && walk.past(")/") && walk.number(&formula->pole_period[i])
               && formula->pole_period[i] >= 1.0 && (i > 0 || walk.past("andC="));
        formula->pole_reference_date[i] = day - kMjdOfDayZero;
    }
    *refused = walk.rest();
    return good && walk.ends();
}

class BulletinA {
public:
    explicit BulletinA(Contents *contents) : contents_(contents), rows_(contents) {}

    Finding read(std::string_view bytes)
    {
        Lines lines(bytes);
        for (Line line; lines.next(&line);)
            if (const Finding finding = take(line))
                return finding;
        return finish();
    }

private:
    enum class At { head, rapid_head, rapid, between, predictions, predicted, rest };

    Finding take(const Line &line)
    {
        const std::string_view text = trimmed(line.text);
        switch (at_) {
        case At::head:
            if (starts_with(text, "IERS Rapid Service"))
                at_ = At::rapid_head;
            return head_statement(line, text);
        case At::rapid_head:
        case At::rapid:
            return rapid(line, text);
        case At::between:
            if (starts_with(text, "PREDICTIONS:"))
                at_ = At::predictions;
            return {};
        case At::predictions:
        case At::predicted:
            return prediction(line, text);
        default:
            return {};
        }
    }

    // TAI-UTC = 35.000 000 seconds, or TAI-UTC(BIPM) = ...: of the day of the bulletin, whatever date stands over it.
    Finding head_statement(const Line &line, std::string_view text)
    {
        Walk walk(text);
        double seconds = 0.0;
        if (head_.line == 0 && (Walk(text).past("TAI-UTC=") ? walk.past("TAI-UTC=") : walk.past("TAI-UTC(BIPM)="))
            && walk.number(&seconds)) {
            head_.tai_utc = seconds;
            head_.line = line.number;
        }
        return {};
    }

    // The values follow the heads of the columns without a gap: as many lines as begin with a digit.
    Finding rapid(const Line &line, std::string_view text)
    {
        const bool row = !text.empty() && is_digit(text.front());
        if (!row) {
            if (at_ == At::rapid)
                at_ = At::between;
            return {};
        }
        at_ = At::rapid;
        const Words words = words_of(line.text);
        if (words.count < kRapidWords)
            return malformed(line, line.text.substr(line.text.size()));
        return add(line, words, words.word[4], words.word[6], words.word[8], kRapid);
    }

    Finding prediction(const Line &line, std::string_view text)
    {
        std::string_view refused = text;
        bool good = true;
        Formula &formula = contents_->formula;
        Walk x(text), y(text), ut1(text), statement(text);
        if (!text.empty() && is_digit(text.front())) {
            at_ = At::predicted;
            return predicted_row(line, words_of(line.text));
        }
        if (at_ == At::predicted) {
            at_ = At::rest;
            return {};
        }
        if (x.past("x=")) {
            good = read_pole_formula(x, formula.pole_x, &refused);
            seen_ |= 1;
        } else if (y.past("y=")) {
            good = read_pole_formula(y, formula.pole_y, &refused);
            seen_ |= 2;
        } else if (ut1.past("UT1-UTC=")) {
            good = read_ut1_formula(ut1, &formula, &refused);
            formula.ut1 = good;
        } else if (starts_with(text, "where")) {
            good = line.ended && read_where(Walk(text), &formula, &refused);
            seen_ |= 4;
        } else if (double day = 0.0, seconds = 0.0; statement.past("TAI-UTC(MJD") && statement.number(&day)
                                                    && statement.past(")=") && statement.number(&seconds)) {
            if (!contents_->statements.add({day - kMjdOfDayZero, day - kMjdOfDayZero, seconds, line.number}))
                return no_memory();
        }
        return good ? Finding{} : malformed(line, refused);
    }

    Finding predicted_row(const Line &line, const Words &words)
    {
        if (words.count < kPredictedWords)
            return malformed(line, line.text.substr(line.text.size()));
        const std::string_view ut1 = words.word[6];
        if (ut1.size() < kDecimals + 1 || ut1.find('.') == ut1.npos || ut1.size() - ut1.find('.') - 1 < kDecimals)
            return malformed(line, ut1);
        return add(line, words, words.word[4], words.word[5], ut1, kPredicted);
    }

    Finding add(const Line &line, const Words &words, std::string_view x, std::string_view y, std::string_view ut1,
                std::int32_t quality)
    {
        EarthRow row{};
        row.tai_utc = kUnstated;
        row.line = line.number;
        row.quality = quality;
        long year = 0, month = 0, day = 0;
        Finding finding;
        if (!whole_in(line, words.word[0], 0, 2100, &year, &finding)
            || !whole_in(line, words.word[1], 1, 12, &month, &finding)
            || !whole_in(line, words.word[2], 1, 31, &day, &finding)
            || !date_in(line, words.word[3], &row.utc, &finding)
            || !number_in(line, x, kLargestPole, &row.pole[0], &finding)
            || !number_in(line, y, kLargestPole, &row.pole[1], &finding)
            || !number_in(line, ut1, kLargestUt1Utc, &row.ut1_utc, &finding))
            return finding;
        if (year < 100) // two digits
            year += row.utc < 0.0 ? 1900 : 2000;
        if (!same_date(row.utc, year, month, day))
            return malformed(line, words.word[3]);
        if (quality == kRapid)
            head_.first = head_.last = row.utc;
        return rows_.add(row, line, words.word[3]);
    }

    // A pole formula is whole or none; what the head says holds for the last rapid row.
    Finding finish()
    {
        Formula &formula = contents_->formula;
        if (seen_ != 7)
            for (int i = 0; i < 5; ++i)
                formula.pole_x[i] = formula.pole_y[i] = 0.0;
        if (head_.line != 0 && head_.last != 0.0 && !contents_->statements.add(head_))
            return no_memory();
        return {};
    }

    Contents *contents_;
    RowSink rows_;
    At at_ = At::head;
    unsigned seen_ = 0; // x, y and the line of their dates
    Statement head_ = {0.0, 0.0, 0.0, 0};
};

} // namespace

Finding read_bulletin_a(std::string_view bytes, Contents *contents)
{
    return BulletinA(contents).read(bytes);
}

} // namespace time_files
