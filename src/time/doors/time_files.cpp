// Time ids from files or from the correlation compiled in, and what an id holds at an instant.
#include "errors/siblings.h"
#include "time/deltas.h"
#include "time/files/disk.h"
#include "time/files/lines.h"
#include "time/files/table.h"
#include "time/pole.h"
#include "time/scales.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace {

using namespace time_files;

// Both functions have the same conditions.
constexpr long kMostFiles = 10000;

bool is_file_model(long model)
{
    return (model >= KL_TIME_MODEL_BULLETIN_B && model <= KL_TIME_MODEL_LEAP_SECONDS)
           || model == KL_TIME_MODEL_BULLETIN_A || model == KL_TIME_MODEL_BULLETIN_A_TABLE;
}

bool read_window(const long *mode, const double *start, const double *stop, Window *window)
{
    if (mode == nullptr || (*mode != KL_TIME_WINDOW_FILE && *mode != KL_TIME_WINDOW_TIME))
        return false;
    window->given = *mode == KL_TIME_WINDOW_TIME;
    if (!window->given)
        return true;
    if (start == nullptr || stop == nullptr || !inside_processing_range(*start) || !inside_processing_range(*stop)
        || *start > *stop)
        return false;
    window->start = *start;
    window->stop = *stop;
    return true;
}

// Rows of a format that only the data-handling library reads.
bool read_by_sibling(const char *name, Contents *contents, bool *memory)
{
    long n_rows = 0;
    double *rows = nullptr; // TAI, UTC, UT1, GPS of each, MJD2000
    if (KD_Read_time_correlation(name, &n_rows, &rows) != 0 || rows == nullptr)
        return false;
    bool increasing = true;
    for (long i = 0; i < n_rows && *memory && increasing; ++i) {
        const double tai = rows[4 * i], utc = rows[4 * i + 1], ut1 = rows[4 * i + 2];
        EarthRow row = {};
        row.utc = utc;
        row.ut1_utc = (ut1 - utc) * KL_SECONDS_PER_DAY;
        row.tai_utc = std::round((tai - utc) * KL_SECONDS_PER_DAY);
        row.quality = kFinal;
        increasing = inside_processing_range(utc) && std::fabs(row.ut1_utc) <= kLargestUt1Utc
                     && (contents->rows.empty() || utc > contents->rows.back().utc);
        *memory = contents->rows.add(row);
    }
    std::free(rows);
    if (!increasing || contents->rows.empty())
        return false;
    contents->span.known = true;
    contents->span.start = contents->rows[0].utc;
    contents->span.stop = contents->rows.back().utc;
    return true;
}

// One call of either function: its report and its conditions.
class FileCall {
public:
    FileCall(int function_id, kl_time_file_report *report, long *ierr) : call_(function_id, ierr), report_(report)
    {
        *report_ = {};
    }

    long fails(int code, const void *value = nullptr) { return call_.fails(code, value); }

    long build(const Request &request, long n_files, const char *const files[], kl_time_id *time_id)
    {
        const auto n = static_cast<std::size_t>(n_files);
        Table table;
        if (n == 0)
            return hand_over(build_built_in(request, &table), &table, time_id);
        const std::unique_ptr<Source[]> sources(new (std::nothrow) Source[n]);
        if (sources == nullptr)
            return fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR);
        for (std::size_t i = 0; i < n; ++i) {
            sources[i].file = static_cast<std::int32_t>(i);
            if (read(request, files != nullptr ? files[i] : nullptr, &sources[i]) == KL_ERR)
                return KL_ERR;
        }
        return hand_over(build_table(request, sources.get(), n, &table), &table, time_id);
    }

private:
    long read(const Request &request, const char *name, Source *source)
    {
        const char *shown = name != nullptr ? name : "";
        FileBytes file;
        const DiskFault disk = read_file(name, &file);
        report_->file = source->file;
        if (disk != DiskFault::none)
            return disk == DiskFault::no_memory ? fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR)
                                                : fails(KL_TIME_REF_INIT_FILE_READ_ERR, shown);
        const Format format = recognised(file.head());
        bool memory = true;
        if (format == Format::unknown && (request.model == kAnyModel || request.model == KL_TIME_MODEL_ORBIT_FILE)
            && read_by_sibling(name, &source->contents, &memory)) {
            report_->file = 0;
            return KL_OK;
        }
        if (!memory)
            return fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR);
        if (!takes(request.model, format))
            return fails(KL_TIME_REF_INIT_FILE_FORMAT_ERR, shown);
        const Finding finding = file.tail != 0 ? read_sp3_ends(file.head(), file.end(), &source->contents)
                                               : read_contents(format, file.head(), &source->contents);
        source->contents.format = format;
        if (finding)
            return refuse(finding, shown);
        report_->file = 0;
        return KL_OK;
    }

    long refuse(const Finding &finding, const char *name)
    {
        report_->line = finding.line;
        report_->column = finding.column;
        std::memcpy(report_->field, finding.field, sizeof report_->field);
        switch (finding.fault) {
        case time_files::Fault::no_memory:
            return fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR);
        case time_files::Fault::unsupported:
            return fails(KL_TIME_REF_INIT_FILE_FORMAT_ERR, name);
        case time_files::Fault::not_increasing:
            return fails(KL_TIME_REF_INIT_FILE_ORDER_ERR, &finding.line);
        default:
            return fails(KL_TIME_REF_INIT_FILE_RECORD_ERR, &finding.line);
        }
    }

    long refuse(TableFault fault, const Place &place)
    {
        switch (fault) {
        case TableFault::no_formula:
            return fails(KL_TIME_REF_INIT_FILE_FORMULA_ERR);
        case TableFault::no_rows:
            return fails(KL_TIME_REF_INIT_FILE_NO_RECORD_ERR);
        case TableFault::no_leap_second:
            return fails(KL_TIME_REF_INIT_FILE_LEAP_SECOND_ERR);
        case TableFault::not_increasing:
            report_->file = place.file;
            report_->line = place.line;
            report_->column = 1;
            return fails(KL_TIME_REF_INIT_FILE_ORDER_ERR, &place.line);
        default:
            return fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR);
        }
    }

    long hand_over(TableFault fault, Table *built, kl_time_id *time_id)
    {
        const Table &table = *built;
        Correlation &own = built->correlation;
        if (fault != TableFault::none) {
            free_arrays(&own);
            return refuse(fault, table.place);
        }
        own.leap_expiry = table.leap_expiry;
        if (!publish(own, time_id)) {
            free_arrays(&own);
            return fails(KL_TIME_REF_INIT_FILE_MEMORY_ERR);
        }
        report_->n_rows = own.n_rows;
        report_->n_predicted = table.n_predicted;
        report_->n_skipped = table.n_skipped;
        report_->first = own.rows[0].utc;
        report_->last_final = table.last_final;
        report_->last = own.rows[own.n_rows - 1].utc;
        report_->leap_expiry = table.leap_expiry;
        if (table.uncovered)
            call_.warns(KL_TIME_REF_INIT_FILE_COVERAGE_WARN);
        if (table.disagreement) {
            report_->file = table.place.file;
            report_->line = table.place.line;
            report_->column = 1;
            call_.warns(KL_TIME_REF_INIT_FILE_TAI_UTC_WARN, &table.place.line);
        }
        if (table.no_ut1)
            call_.warns(KL_TIME_REF_INIT_FILE_NO_UT1_WARN);
        if (table.expired)
            call_.warns(KL_TIME_REF_INIT_FILE_LEAP_EXPIRED_WARN);
        return call_.status();
    }

    Activation call_;
    kl_time_file_report *report_;
};

// The correlation of an id and the differences at an instant; null where the door answers KL_ERR.
const Correlation *at_instant(kl_time_id *time_id, const long *time_ref, const double *time, kl_time_row_info *deltas)
{
    const Correlation *own = correlation_of(time_id);
    if (own == nullptr || time_ref == nullptr || !is_time_ref(*time_ref) || time == nullptr
        || !inside_processing_range(*time))
        return nullptr;
    const Deltas at = searched_deltas(*own, *time_ref, *time, true);
    deltas->tai_utc = at.tai_utc;
    deltas->tai_ut1 = at.tai_ut1;
    deltas->tai_gps = at.tai_gps;
    return own;
}

double time_of(const kl_time_row &row, long ref)
{
    return with_column(ref, [&row](auto column) { return column(row); });
}

double ut1_of(long ref, double time, const kl_time_row_info &deltas)
{
    const double behind_tai = ref == KL_TIME_UTC   ? deltas.tai_utc
                              : ref == KL_TIME_UT1 ? deltas.tai_ut1
                              : ref == KL_TIME_GPS ? deltas.tai_gps
                                                   : 0.0;
    return time + (behind_tai - deltas.tai_ut1) / KL_SECONDS_PER_DAY;
}

} // namespace

long kl_time_ref_init_file(const long *model, const long *n_files, const char *const files[], const long *window,
                           const double *start, const double *stop, kl_time_file_report *report, kl_time_id *time_id,
                           long *ierr)
{
    kl_time_file_report own_report;
    FileCall call(KL_FN_TIME_REF_INIT_FILE, report != nullptr ? report : &own_report, ierr);
    Request request;
    if (time_id == nullptr)
        return KL_ERR;
    if (time_record_of(time_id) != nullptr)
        return call.fails(KL_TIME_REF_INIT_FILE_ID_ERR);
    if (model == nullptr || !is_file_model(*model))
        return call.fails(KL_TIME_REF_INIT_FILE_MODEL_ERR);
    if (n_files == nullptr || *n_files < 1 || *n_files > kMostFiles)
        return call.fails(KL_TIME_REF_INIT_FILE_COUNT_ERR);
    if (!read_window(window, start, stop, &request.window))
        return call.fails(KL_TIME_REF_INIT_FILE_WINDOW_ERR);
    request.model = *model;
    return call.build(request, *n_files, files, time_id);
}

long kl_time_id_init(const long *n_files, const char *const files[], const long *no_extrapolation, const long *window,
                     const double *start, const double *stop, kl_time_file_report *report, kl_time_id *time_id,
                     long *ierr)
{
    kl_time_file_report own_report;
    FileCall call(KL_FN_TIME_ID_INIT, report != nullptr ? report : &own_report, ierr);
    Request request;
    if (time_id == nullptr)
        return KL_ERR;
    if (time_record_of(time_id) != nullptr)
        return call.fails(KL_TIME_REF_INIT_FILE_ID_ERR);
    if (n_files == nullptr || *n_files < 0 || *n_files > kMostFiles)
        return call.fails(KL_TIME_REF_INIT_FILE_COUNT_ERR);
    if (!read_window(window, start, stop, &request.window))
        return call.fails(KL_TIME_REF_INIT_FILE_WINDOW_ERR);
    request.no_extrapolation = value_or(no_extrapolation, 1) != 0;
    return call.build(request, *n_files, files, time_id);
}

long kl_time_get_pole(kl_time_id *time_id, const long *time_ref, const double *time, double pole[4])
{
    kl_time_row_info deltas = {};
    const Correlation *own = at_instant(time_id, time_ref, time, &deltas);
    if (own == nullptr || pole == nullptr)
        return KL_ERR;
    pole_in_arcsec(*own, ut1_of(*time_ref, *time, deltas), pole);
    return KL_OK;
}

long kl_time_get_row(kl_time_id *time_id, const long *time_ref, const double *time, kl_time_row_info *info)
{
    constexpr long kFileUnit = 16; // of a note
    kl_time_row_info found = {};
    const Correlation *own = at_instant(time_id, time_ref, time, &found);
    if (own == nullptr || info == nullptr)
        return KL_ERR;
    const long last = own->n_rows - 1;
    const bool constant = own->model == KL_TIME_MODEL_EXPLICIT;
    const long row = constant ? 0 : row_of(*own, *time_ref, *time);
    const bool after = !constant && row == last && *time > time_of(own->rows[last], *time_ref);
    const long *note = own->row_notes[std::max(row, 0L)];
    found.row = after ? own->n_rows : row;
    found.file = floor_div(note[0], kFileUnit);
    found.quality = note[0] - found.file * kFileUnit;
    found.line = note[1];
    found.by_formula = !constant && row == last && own->no_extrapolation == 0 ? 1 : 0; // from the last row on
    pole_in_arcsec(*own, ut1_of(*time_ref, *time, found), found.pole);
    *info = found;
    return KL_OK;
}

long kl_time_get_leap_seconds(kl_time_id *time_id, long *n, double **utc, double **tai_utc, double *expiry)
{
    const Correlation *own = correlation_of(time_id);
    if (own == nullptr || n == nullptr || utc == nullptr || tai_utc == nullptr || expiry == nullptr)
        return KL_ERR;
    const auto steps = [own](const auto &visit) {
        for (long i = 1; i < own->n_rows; ++i)
            if (own->rows[i].tai_utc != own->rows[i - 1].tai_utc)
                visit(own->rows[i]);
    };
    std::size_t count = 0;
    steps([&](const kl_time_row &) { ++count; });
    double *instants = nullptr;
    double *values = nullptr;
    if (count > 0) {
        instants = static_cast<double *>(std::calloc(count, sizeof(double)));
        values = static_cast<double *>(std::calloc(count, sizeof(double)));
        if (instants == nullptr || values == nullptr) {
            std::free(instants);
            std::free(values);
            return KL_ERR;
        }
        std::size_t at = 0;
        steps([&](const kl_time_row &row) {
            instants[at] = row.utc;
            values[at++] = row.tai_utc;
        });
    }
    *n = static_cast<long>(count);
    *utc = instants;
    *tai_utc = values;
    *expiry = own->leap_expiry;
    return KL_OK;
}
