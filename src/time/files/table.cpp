// Rows of files -> table of a time id.
#include "time/files/table.h"

#include "time/scales.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace time_files {

namespace {

constexpr double kGps = 19.0;     // s: TAI-GPS
constexpr double kLongGap = 31.0; // days: beyond it the list of leap seconds decides alone
constexpr double kOneSecond = 1.0 / KL_SECONDS_PER_DAY;

bool is_list(Format format)
{
    return format == Format::leap_seconds_list || format == Format::leap_second_dat;
}
bool is_bulletin_b(Format format)
{
    return format == Format::bulletin_b || format == Format::old_bulletin_b;
}

// Does a model use a row of this quality from a file of this format?
bool uses(long model, Format format, std::int32_t quality)
{
    switch (model) {
    case KL_TIME_MODEL_BULLETIN_B:
        return quality == kFinal;
    case KL_TIME_MODEL_FINALS_OBSERVED:
        return quality <= kRapid;
    case KL_TIME_MODEL_BULLETIN_A:
    case KL_TIME_MODEL_BULLETIN_A_TABLE:
        return !is_bulletin_b(format) || quality == kFinal;
    default:
        return true;
    }
}

// Final over rapid and preliminary over predicted.
int rank_of(std::int32_t quality)
{
    return quality == kFinal ? 0 : quality == kPredicted ? 2 : 1;
}

// ---- leap seconds ----

class LeapSeconds {
public:
    explicit LeapSeconds(const Contents &list) : steps_(&list.leap_steps), expiry_(list.leap_expiry) {}

    // On the first instant of a step the new value holds.
    double tai_utc(double utc) const { return (*steps_)[index(utc)].tai_utc; }
    // The steps of first < utc < last.
    const LeapStep *after(double utc) const
    {
        const LeapStep *step = std::upper_bound(steps_->begin(), steps_->end(), utc,
                                                [](double t, const LeapStep &s) { return t < s.utc; });
        return step != steps_->end() ? step : nullptr;
    }
    // Past its expiry a list says nothing about leap seconds.
    bool speaks_of(double utc) const { return expiry_ == 0.0 || utc < expiry_; }
    const Buffer<LeapStep> &steps() const { return *steps_; }

private:
    std::size_t index(double utc) const
    {
        const LeapStep *step = after(utc);
        const LeapStep *end = step != nullptr ? step : steps_->end();
        return end == steps_->begin() ? 0 : static_cast<std::size_t>(end - steps_->begin()) - 1;
    }

    const Buffer<LeapStep> *steps_;
    double expiry_;
};

// The first midnight of a quarter in first < t < last, where leap seconds happen; `last` when there is none.
double quarter_between(double first, double last)
{
    for (long day = floor_to_long(first) + 1; static_cast<double>(day) < last; ++day) {
        const CalendarDay date = calendar_of_day(day);
        if (date.day == 1 && date.month % 3 == 1)
            return static_cast<double>(day);
    }
    return last;
}

// ---- the builder ----

class Builder {
public:
    Builder(const Request &request, Source *sources, std::size_t n_sources, Table *table)
        : request_(request), sources_(sources), n_sources_(n_sources), table_(table), model_(request.model)
    {
    }

    TableFault build()
    {
        for (std::size_t i = 0; i < n_sources_; ++i)
            look_at(sources_[i]);
        if (list_ == nullptr) {
            if (!read_built_in_leap_seconds(&own_list_))
                return TableFault::no_memory;
            list_ = &own_list_;
        } else {
            table_->leap_expiry = list_->leap_expiry;
        }
        const LeapSeconds leaps(*list_);
        if (model_ == kAnyModel)
            model_ = n_with_rows_ == 0 && !span_.given && lists_ ? long{KL_TIME_MODEL_LEAP_SECONDS}
                                                                 : long{KL_TIME_MODEL_MERGED};
        if (formula_ == nullptr
            && (model_ == KL_TIME_MODEL_BULLETIN_A || (model_ == KL_TIME_MODEL_MERGED && !request_.no_extrapolation)))
            return TableFault::no_formula;
        TableFault fault = collect(leaps);
        if (fault == TableFault::none)
            fault = set_tai_utc(leaps);
        if (fault != TableFault::none)
            return fault;
        check_statements();
        cut_to_window();
        return rows_.empty() ? TableFault::no_rows : finish();
    }

private:
    void look_at(Source &source)
    {
        Contents &contents = source.contents;
        table_->n_skipped += contents.n_skipped;
        if (is_list(contents.format) && !contents.leap_steps.empty()) {
            list_ = &contents;
            list_file_ = source.file;
            lists_ = true;
        }
        if (contents.formula.ut1)
            formula_ = &contents.formula;
        if (!contents.rows.empty()) {
            ++n_with_rows_;
            bulletins_b_ |= is_bulletin_b(contents.format);
            bulletins_a_ |= contents.format == Format::bulletin_a;
            others_ |= !is_bulletin_b(contents.format) && contents.format != Format::bulletin_a;
        }
        span_.given |= contents.span.known;
    }

    // ---- the rows ----

    TableFault collect(const LeapSeconds &leaps)
    {
        if (span_.given)
            find_span(leaps);
        else if (model_ == KL_TIME_MODEL_ORBIT_FILE)
            return TableFault::no_rows;
        if (model_ == KL_TIME_MODEL_LEAP_SECONDS && !lists_) // cut before its first row: the own list is not meant
            return TableFault::no_rows;
        if (model_ == KL_TIME_MODEL_LEAP_SECONDS || (n_with_rows_ == 0 && span_.given)) {
            table_->no_ut1 = true;
            const bool good =
                span_.given && model_ != KL_TIME_MODEL_LEAP_SECONDS ? rows_of_span(leaps) : rows_of_list(leaps);
            return !good ? TableFault::no_memory : rows_.empty() ? TableFault::no_rows : TableFault::none;
        }
        double last_of_b = KL_PROCESSING_FIRST - 1.0; // rows of Bulletin A up to it are dropped
        for (std::size_t i = 0; i < n_sources_; ++i) {
            Contents &contents = sources_[i].contents;
            keep_used(&contents);
            for (EarthRow &row : contents.rows)
                row.file = sources_[i].file;
            if (is_bulletin_b(contents.format) && !contents.rows.empty())
                last_of_b = std::max(last_of_b, contents.rows.back().utc);
        }
        const bool formula_model = model_ == KL_TIME_MODEL_BULLETIN_A || model_ == KL_TIME_MODEL_BULLETIN_A_TABLE;
        return merge(formula_model ? last_of_b : KL_PROCESSING_FIRST - 1.0) ? TableFault::none : TableFault::no_memory;
    }

    void keep_used(Contents *contents)
    {
        std::size_t kept = 0;
        for (const EarthRow &row : contents->rows)
            if (uses(model_, contents->format, row.quality))
                contents->rows[kept++] = row;
        table_->n_skipped += static_cast<long>(contents->rows.size() - kept);
        contents->rows.shorten(kept);
    }

    bool merge(double last_of_b)
    {
        std::size_t total = 0;
        std::size_t only = 0;
        std::size_t n = 0;
        for (std::size_t i = 0; i < n_sources_; ++i)
            if (!sources_[i].contents.rows.empty()) {
                total += sources_[i].contents.rows.size();
                only = i;
                ++n;
            }
        if (n <= 1) { // as they are
            if (n == 1)
                std::swap(rows_, sources_[only].contents.rows);
            return true;
        }
        if (!rows_.reserve(total))
            return false;
        for (std::size_t i = 0; i < n_sources_; ++i)
            for (const EarthRow &row : sources_[i].contents.rows)
                if (sources_[i].contents.format == Format::bulletin_a && row.utc <= last_of_b)
                    ++table_->n_skipped;
                else if (!rows_.add(row))
                    return false;
        std::sort(rows_.begin(), rows_.end(), [](const EarthRow &a, const EarthRow &b) {
            if (a.utc != b.utc)
                return a.utc < b.utc;
            const int rank_a = rank_of(a.quality), rank_b = rank_of(b.quality);
            return rank_a != rank_b ? rank_a < rank_b : a.file > b.file;
        });
        const EarthRow *end = std::unique(rows_.begin(), rows_.end(),
                                          [](const EarthRow &a, const EarthRow &b) { return a.utc == b.utc; });
        const auto kept = static_cast<std::size_t>(end - rows_.begin());
        table_->n_skipped += static_cast<long>(rows_.size() - kept);
        rows_.shorten(kept);
        return true;
    }

    // A row without UT1: UT1 = UTC.
    bool add_plain(double utc, double tai_utc, std::int32_t quality, std::int32_t file, long line)
    {
        EarthRow row = {};
        row.utc = utc;
        row.tai_utc = tai_utc;
        row.quality = quality;
        row.file = file;
        row.line = line;
        return (!rows_.empty() && utc <= rows_.back().utc) || rows_.add(row);
    }

    // Just before a step: one second, or two where one is taken away and the TAI instants would coincide.
    static double before_step(const LeapStep &step, double tai_utc)
    {
        return step.utc - (step.tai_utc < tai_utc ? 2.0 : 1.0) * kOneSecond;
    }

    // Two rows an interval: its first midnight, and the last second before the next one.
    bool rows_of_list(const LeapSeconds &leaps)
    {
        const Buffer<LeapStep> &steps = leaps.steps();
        bool good = true;
        for (std::size_t i = 0; i < steps.size() && good; ++i) {
            const LeapStep &step = steps[i];
            good = add_plain(step.utc, step.tai_utc, kFinal, list_file_, step.line);
            if (good && i + 1 < steps.size())
                good =
                    add_plain(before_step(steps[i + 1], step.tai_utc), step.tai_utc, kInserted, list_file_, step.line);
        }
        return good;
    }

    // First and last instant of the orbit files, in UTC.
    void find_span(const LeapSeconds &leaps)
    {
        bool first = true;
        for (std::size_t i = 0; i < n_sources_; ++i) {
            const Span &span = sources_[i].contents.span;
            if (!span.known)
                continue;
            const double start = utc_of(span.start, span.scale, leaps), stop = utc_of(span.stop, span.scale, leaps);
            if (first || start < span_.start) {
                span_.start = start;
                start_place_ = {sources_[i].file, span.start_line};
            }
            if (first || stop > span_.stop) {
                span_.stop = stop;
                stop_place_ = {sources_[i].file, span.stop_line};
            }
            first = false;
        }
    }

    static double utc_of(double days, Scale scale, const LeapSeconds &leaps)
    {
        if (scale == Scale::utc)
            return days;
        const double guess = days - leaps.tai_utc(days) * kOneSecond; // within seconds of a step it may be one off
        return days - leaps.tai_utc(guess) * kOneSecond;
    }

    bool rows_of_span(const LeapSeconds &leaps)
    {
        bool good = add_plain(span_.start, leaps.tai_utc(span_.start), kFinal, start_place_.file, start_place_.line);
        for (const LeapStep &step : leaps.steps()) {
            if (!(step.utc > span_.start && step.utc < span_.stop) || !good)
                continue;
            const double before = leaps.tai_utc(before_step(step, step.tai_utc + 1.0));
            good = add_plain(before_step(step, before), before, kInserted, list_file_, step.line)
                   && add_plain(step.utc, step.tai_utc, kInserted, list_file_, step.line);
        }
        return good && add_plain(span_.stop, leaps.tai_utc(span_.stop), kFinal, stop_place_.file, stop_place_.line);
    }

    // ---- TAI-UTC ----

    void disagree(std::int32_t file, long line)
    {
        if (table_->disagreement)
            return;
        table_->disagreement = true;
        table_->place = {file, line};
    }

    // TAI-UTC of the row after `before`, whose own is known.
    static double next_tai_utc(const EarthRow &before, const EarthRow &row, double listed)
    {
        if (row.tai_utc != kUnstated)
            return row.tai_utc;
        if (row.utc - before.utc > kLongGap)
            return listed;
        return before.tai_utc + std::floor(0.5 + row.ut1_utc - before.ut1_utc); // UT1 itself does not jump
    }

    // Fills TAI-UTC: anchored at the first row by the list, stepped where UT1-UTC jumps. Rows are put in at the
    // midnights of leap seconds where none stands.
    TableFault set_tai_utc(const LeapSeconds &leaps)
    {
        Buffer<EarthRow> inserted;
        const LeapStep *next = leaps.steps().begin(); // the first step after the row
        double listed = next->tai_utc;
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            EarthRow &row = rows_[i];
            for (; next != leaps.steps().end() && next->utc <= row.utc; ++next)
                listed = next->tai_utc;
            if (i == 0 && row.tai_utc == kUnstated)
                row.tai_utc = listed;
            if (i > 0) {
                const EarthRow &before = rows_[i - 1];
                row.tai_utc = next_tai_utc(before, row, listed);
                if (row.tai_utc != before.tai_utc && !table_->no_ut1 && !insert_between(before, row, leaps, &inserted))
                    return TableFault::no_memory;
            }
            if (row.tai_utc != listed && !table_->no_ut1 && leaps.speaks_of(row.utc))
                disagree(row.file, row.line);
        }
        if (inserted.empty())
            return TableFault::none;
        const std::size_t n = rows_.size();
        if (!rows_.reserve(n + inserted.size()))
            return TableFault::no_memory;
        for (const EarthRow &row : inserted)
            if (!rows_.add(row))
                return TableFault::no_memory;
        std::inplace_merge(rows_.begin(), rows_.begin() + n, rows_.end(),
                           [](const EarthRow &a, const EarthRow &b) { return a.utc < b.utc; });
        return TableFault::none;
    }

    static bool insert_between(const EarthRow &before, const EarthRow &after, const LeapSeconds &leaps,
                               Buffer<EarthRow> *inserted)
    {
        const LeapStep *step = leaps.after(before.utc);
        if (step == nullptr || step->utc > after.utc) { // the rows know more than the list
            const double midnight = quarter_between(before.utc, after.utc);
            return midnight >= after.utc || inserted->add(at_midnight(before, after, midnight, after.tai_utc));
        }
        for (; step != leaps.steps().end() && step->utc < after.utc; ++step) {
            const bool alone = step + 1 == leaps.steps().end() || (step + 1)->utc > after.utc;
            const double tai_utc = alone ? after.tai_utc : step->tai_utc;
            if (!inserted->add(at_midnight(before, after, step->utc, tai_utc)))
                return false;
        }
        return true;
    }

    // UT1 and pole between two rows, TAI-UTC new.
    static EarthRow at_midnight(const EarthRow &before, const EarthRow &after, double midnight, double tai_utc)
    {
        const double part = (midnight - before.utc) / (after.utc - before.utc);
        const double tai_ut1_before = before.tai_utc - before.ut1_utc;
        const double tai_ut1_after = after.tai_utc - after.ut1_utc;
        EarthRow row = after;
        row.utc = midnight;
        row.tai_utc = tai_utc;
        row.ut1_utc = tai_utc - (tai_ut1_before + part * (tai_ut1_after - tai_ut1_before));
        for (int i = 0; i < 4; ++i)
            row.pole[i] = before.pole[i] + part * (after.pole[i] - before.pole[i]);
        row.quality = kInserted;
        return row;
    }

    // The last row at or before an instant; null before the first.
    const EarthRow *row_at(double utc) const
    {
        const EarthRow *next = std::upper_bound(rows_.begin(), rows_.end(), utc,
                                                [](double t, const EarthRow &row) { return t < row.utc; });
        return next != rows_.begin() ? next - 1 : nullptr;
    }

    void check_statements()
    {
        if (table_->no_ut1)
            return;
        for (std::size_t i = 0; i < n_sources_; ++i)
            for (const Statement &statement : sources_[i].contents.statements)
                for (const double utc : {statement.first, statement.last})
                    if (const EarthRow *row = row_at(utc); row != nullptr && row->tai_utc != statement.tai_utc)
                        disagree(sources_[i].file, statement.line);
    }

    // ---- window and result ----

    bool open_end() const { return model_ == KL_TIME_MODEL_LEAP_SECONDS || !last_row_holds(); }
    bool last_row_holds() const
    {
        return model_ != KL_TIME_MODEL_BULLETIN_A && !(model_ == KL_TIME_MODEL_MERGED && !request_.no_extrapolation);
    }

    // The rows from the last at or before the start to the first at or after the stop.
    void keep_between(const Window &window)
    {
        if (rows_.empty())
            return;
        const auto earlier = [](const EarthRow &row, double t) { return row.utc < t; };
        const auto later = [](double t, const EarthRow &row) { return t < row.utc; };
        const EarthRow *first = std::upper_bound(rows_.begin(), rows_.end(), window.start, later);
        const EarthRow *end = std::lower_bound(rows_.begin(), rows_.end(), window.stop, earlier);
        const bool outside =
            (first == rows_.end() && rows_.back().utc < window.start && !open_end()) || window.stop < rows_[0].utc;
        first -= first != rows_.begin() ? 1 : 0;
        // A list of leap seconds is good without a row after the window.
        end += end != rows_.end() && (model_ != KL_TIME_MODEL_LEAP_SECONDS || end->utc == window.stop) ? 1 : 0;
        const std::size_t n = outside || end <= first ? 0 : static_cast<std::size_t>(end - first);
        table_->n_skipped += static_cast<long>(rows_.size() - n);
        std::copy(first, first + n, rows_.begin());
        rows_.shorten(n);
    }

    void cut_to_window()
    {
        if (model_ == KL_TIME_MODEL_ORBIT_FILE && !table_->no_ut1)
            keep_between(span_);
        const Window &window = request_.window;
        if (!window.given || rows_.empty())
            return;
        table_->uncovered = window.start < rows_[0].utc || (window.stop > rows_.back().utc && !open_end());
        table_->expired = table_->leap_expiry != 0.0 && table_->leap_expiry < window.stop;
        keep_between(window);
    }

    // One bulletin B before one bulletin A, with all rows of the first before those of the second.
    long second_bulletin_row() const
    {
        if (!bulletins_a_ || !bulletins_b_ || others_)
            return 0;
        const auto of_a = [this](const EarthRow &row) { // files are numbered in the order of the sources
            return sources_[row.file].contents.format == Format::bulletin_a;
        };
        const EarthRow *first = std::find_if(rows_.begin(), rows_.end(), of_a);
        const bool joined = first != rows_.begin() && first != rows_.end() && std::all_of(first, rows_.end(), of_a);
        return joined ? static_cast<long>(first - rows_.begin()) : 0;
    }

    long combination(long second_row) const
    {
        switch (model_) {
        case KL_TIME_MODEL_BULLETIN_A:
        case KL_TIME_MODEL_BULLETIN_A_TABLE:
            return second_row > 0 ? KL_COMBINATION_TWO_BULLETINS : 1;
        case KL_TIME_MODEL_MERGED:
            return second_row > 0 ? KL_COMBINATION_TWO_BULLETINS : n_with_rows_ > 1 ? 1 : 0;
        case KL_TIME_MODEL_BULLETIN_B:
        case KL_TIME_MODEL_BULLETIN_B_EXTENDED:
        case KL_TIME_MODEL_C04:
            return n_with_rows_ > 1 ? 1 : 0;
        default:
            return 0;
        }
    }

    TableFault finish()
    {
        Correlation &out = table_->correlation;
        const std::size_t n = rows_.size();
        out.model = model_;
        out.second_bulletin_row = second_bulletin_row();
        out.combination = combination(out.second_bulletin_row);
        out.no_extrapolation = last_row_holds() ? 1 : 0;
        if (formula_ != nullptr)
            take_formula(*formula_, &out);
        if (!allocate_rows(n, &out))
            return TableFault::no_memory;
        for (std::size_t i = 0; i < n; ++i) {
            const EarthRow &row = rows_[i];
            put_row(row.utc, row.tai_utc, row.ut1_utc, &out.rows[i]);
            out.row_notes[i][0] = long{row.file} * kNoteUnit + row.quality;
            out.row_notes[i][1] = row.line;
            std::copy(row.pole, row.pole + 4, out.row_pole[i]);
            table_->n_predicted += row.quality == kPredicted ? 1 : 0;
            if (row.quality == kFinal)
                table_->last_final = row.utc;
            if (i > 0 && !(out.rows[i].ut1 > out.rows[i - 1].ut1 && out.rows[i].tai > out.rows[i - 1].tai)) {
                table_->place = {row.file, row.line};
                return TableFault::not_increasing;
            }
        }
        if (!usable(out))
            return TableFault::no_rows;
        return complete(&out) ? TableFault::none : TableFault::no_leap_second;
    }

    // The rows are right by their making, but for those at the very ends of the range, and the formula.
    static bool usable(const Correlation &out)
    {
        Correlation end = out;
        end.combination = 0;
        end.n_rows = 1;
        end.row_pole = nullptr;
        if (fault_of(end) != nullptr)
            return false;
        end.rows += out.n_rows - 1;
        return fault_of(end) == nullptr;
    }

    static void take_formula(const Formula &formula, Correlation *out)
    {
        out->a = formula.a;
        out->b = formula.b;
        out->c = formula.c;
        std::copy(formula.pole_x, formula.pole_x + 5, out->pole.x);
        std::copy(formula.pole_y, formula.pole_y + 5, out->pole.y);
        std::copy(formula.pole_reference_date, formula.pole_reference_date + 2, out->pole.reference_date);
        std::copy(formula.pole_period, formula.pole_period + 2, out->pole.period);
    }

    const Request &request_;
    Source *sources_;
    std::size_t n_sources_;
    Table *table_;
    long model_;

    Contents own_list_;
    const Contents *list_ = nullptr;
    std::int32_t list_file_ = kBuiltInFile;
    bool lists_ = false; // the caller gave one
    const Formula *formula_ = nullptr;
    std::size_t n_with_rows_ = 0;
    bool bulletins_a_ = false, bulletins_b_ = false, others_ = false;
    Window span_;
    Place start_place_, stop_place_;
    Buffer<EarthRow> rows_;
};

} // namespace

bool takes(long model, Format format)
{
    if (is_list(format))
        return true;
    switch (model) {
    case KL_TIME_MODEL_BULLETIN_B:
    case KL_TIME_MODEL_BULLETIN_B_EXTENDED:
        return is_bulletin_b(format);
    case KL_TIME_MODEL_FINALS_OBSERVED:
    case KL_TIME_MODEL_FINALS:
        return format == Format::finals;
    case KL_TIME_MODEL_C04:
        return format == Format::c04;
    case KL_TIME_MODEL_TABLE:
        return format == Format::own_table;
    case KL_TIME_MODEL_LEAP_SECONDS:
        return false;
    case KL_TIME_MODEL_BULLETIN_A:
    case KL_TIME_MODEL_BULLETIN_A_TABLE:
        return is_bulletin_b(format) || format == Format::bulletin_a;
    default: // orbit files, to which any other may be added, and all together
        return format != Format::unknown;
    }
}

bool allocate_rows(std::size_t n, Correlation *correlation)
{
    correlation->n_rows = static_cast<long>(n);
    correlation->rows = static_cast<kl_time_row *>(std::malloc(n * sizeof *correlation->rows));
    correlation->row_notes = static_cast<long(*)[2]>(std::malloc(n * sizeof *correlation->row_notes));
    correlation->row_pole = static_cast<double(*)[4]>(std::malloc(n * sizeof *correlation->row_pole));
    return correlation->rows != nullptr && correlation->row_notes != nullptr && correlation->row_pole != nullptr;
}

void put_row(double utc, double tai_utc, double ut1_utc, kl_time_row *row)
{
    row->utc = utc;
    row->tai = utc + tai_utc / KL_SECONDS_PER_DAY;
    row->ut1 = utc + ut1_utc / KL_SECONDS_PER_DAY;
    row->tai_utc = tai_utc;
    row->tai_ut1 = tai_utc - ut1_utc;
    row->tai_gps = kGps;
}

TableFault build_table(const Request &request, Source *sources, std::size_t n_sources, Table *table)
{
    return Builder(request, sources, n_sources, table).build();
}

} // namespace time_files
