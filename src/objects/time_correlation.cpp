#include "orbkit/time_correlation.hpp"

#include "kl_family.h"
#include "objects/throw_rule.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace ORBKIT {

namespace {

struct FreeRows {
    void operator()(kl_time_id_data *data) const { kl_time_free_id_data(data); }
};

template <typename T, std::size_t N>
void copy_rows(const T (*from)[N], std::size_t n, std::vector<std::array<T, N>> *into)
{
    if (from == nullptr)
        return;
    into->resize(n);
    for (std::size_t i = 0; i < n; ++i)
        std::copy(from[i], from[i] + N, (*into)[i].begin());
}

// Arrays as the C record has them; null for none.
template <typename T, std::size_t N>
T (*plain(std::vector<std::array<T, N>> *rows))
[N]
{
    return rows->empty() ? nullptr : reinterpret_cast<T(*)[N]>(rows->data());
}

struct FreeArray {
    void operator()(double *array) const
    {
        void *taken = array;
        kl_free_array(&taken);
    }
};

// The arguments that both builders from files share.
struct FileArguments {
    FileArguments(const std::vector<std::string> &files, const std::optional<TimeWindow> &window)
        : n_files(static_cast<long>(files.size())), mode(window ? KL_TIME_WINDOW_TIME : KL_TIME_WINDOW_FILE),
          limits(window.value_or(TimeWindow{}))
    {
        for (const std::string &file : files)
            names.push_back(file.c_str());
    }
    long n_files;
    std::vector<const char *> names;
    long mode;
    TimeWindow limits;
};

} // namespace

TimeIdData::TimeIdData(const kl_time_id_data &data)
    : model(data.model), combination(data.combination), no_extrapolation(data.no_extrapolation),
      second_bulletin_row(data.second_bulletin_row), a(data.a), b(data.b), c(data.c), leap_sign(data.leap_sign),
      leap_utc(data.leap_utc), leap_tai(data.leap_tai), rows(data.rows, data.rows + data.n_rows)
{
    const auto n = static_cast<std::size_t>(data.n_rows);
    copy_rows(data.pole, n, &pole);
    copy_rows(data.row_notes, n, &row_notes);
    std::copy(data.pole_x, data.pole_x + 5, pole_x.begin());
    std::copy(data.pole_y, data.pole_y + 5, pole_y.begin());
    std::copy(data.pole_reference_date, data.pole_reference_date + 2, pole_reference_date.begin());
    std::copy(data.pole_period, data.pole_period + 2, pole_period.begin());
}

TimeCorrelation::TimeCorrelation() = default;

TimeCorrelation::TimeCorrelation(const std::array<double, 4> &tri_time)
{
    init(tri_time);
}

TimeCorrelation::TimeCorrelation(const TimeIdData &data)
{
    init(data);
}

TimeCorrelation::TimeCorrelation(const TimeCorrelation &other) = default;

TimeCorrelation::TimeCorrelation(TimeCorrelation &&other) noexcept = default;

TimeCorrelation &TimeCorrelation::operator=(const TimeCorrelation &other)
{
    if (this != &other) {
        eraseObject();
        KitId::operator=(other);
    }
    return *this;
}

TimeCorrelation &TimeCorrelation::operator=(TimeCorrelation &&other) noexcept
{
    TimeCorrelation taken(std::move(other));
    std::swap(handle_, taken.handle_); // what was held goes with `taken`
    return *this;
}

TimeCorrelation::~TimeCorrelation()
{
    try {
        eraseObject();
    } catch (...) { // the id stays open, without this object
        subtractInstance();
    }
}

void TimeCorrelation::init(const std::array<double, 4> &tri_time)
{
    TimeCorrelation fresh;
    long ierr[1] = {0};
    const long status =
        kl_time_ref_init(tri_time.data(), nullptr, nullptr, nullptr, fresh.getId(), ierr); // no orbit: not read
    fresh.addInstance();
    check("TimeCorrelation::init", status, KL_ID_FUNC_TIME_REF_INIT, ierr);
    *this = std::move(fresh);
}

void TimeCorrelation::init(const TimeIdData &data)
{
    TimeIdData copy = data; // the C record does not promise that it only reads its arrays
    if ((!copy.pole.empty() && copy.pole.size() != copy.rows.size())
        || (!copy.row_notes.empty() && copy.row_notes.size() != copy.rows.size()))
        throw_messages({"Time correlation data cannot be set."});
    kl_time_id_data record{};
    record.model = copy.model;
    record.combination = copy.combination;
    record.no_extrapolation = copy.no_extrapolation;
    record.second_bulletin_row = copy.second_bulletin_row;
    record.a = copy.a;
    record.b = copy.b;
    record.c = copy.c;
    record.n_rows = static_cast<long>(copy.rows.size());
    record.rows = copy.rows.data();
    record.pole = plain(&copy.pole);
    record.row_notes = plain(&copy.row_notes);
    std::copy(copy.pole_x.begin(), copy.pole_x.end(), record.pole_x);
    std::copy(copy.pole_y.begin(), copy.pole_y.end(), record.pole_y);
    std::copy(copy.pole_reference_date.begin(), copy.pole_reference_date.end(), record.pole_reference_date);
    std::copy(copy.pole_period.begin(), copy.pole_period.end(), record.pole_period);
    TimeCorrelation fresh;
    const long status = kl_time_set_id_data(fresh.getId(), &record);
    fresh.addInstance();
    if (status != KL_OK)
        throw_messages({"Time correlation data cannot be set."});
    *this = std::move(fresh);
}

TimeCorrelation TimeCorrelation::builtIn(const std::optional<TimeWindow> &window, kl_time_file_report *report)
{
    return fromFiles(std::vector<std::string>{}, window, report);
}

TimeCorrelation TimeCorrelation::fromFiles(const std::vector<std::string> &files,
                                           const std::optional<TimeWindow> &window, kl_time_file_report *report,
                                           bool by_formula_after)
{
    const FileArguments in(files, window);
    const long no_extrapolation = by_formula_after ? 0 : 1;
    TimeCorrelation fresh;
    long ierr[1] = {0};
    const long status = kl_time_id_init(&in.n_files, in.names.data(), &no_extrapolation, &in.mode, &in.limits.start,
                                        &in.limits.stop, report, fresh.getId(), ierr);
    fresh.addInstance();
    check("TimeCorrelation::fromFiles", status, KL_ID_FUNC_TIME_ID_INIT, ierr);
    return fresh;
}

TimeCorrelation TimeCorrelation::fromFiles(TimeModel model, const std::vector<std::string> &files,
                                           const std::optional<TimeWindow> &window, kl_time_file_report *report)
{
    const FileArguments in(files, window);
    const long of = number(model);
    TimeCorrelation fresh;
    long ierr[1] = {0};
    const long status = kl_time_ref_init_file(&of, &in.n_files, in.names.data(), &in.mode, &in.limits.start,
                                              &in.limits.stop, report, fresh.getId(), ierr);
    fresh.addInstance();
    check("TimeCorrelation::fromFiles", status, KL_ID_FUNC_TIME_REF_INIT_FILE, ierr);
    return fresh;
}

std::array<double, 4> TimeCorrelation::getPole(Scale scale, double days) const
{
    const long ref = number(scale);
    std::array<double, 4> pole{};
    if (kl_time_get_pole(getId(), &ref, &days, pole.data()) != KL_OK)
        throw_messages({"Pole cannot be read."});
    return pole;
}

kl_time_row_info TimeCorrelation::getRow(Scale scale, double days) const
{
    const long ref = number(scale);
    kl_time_row_info info{};
    if (kl_time_get_row(getId(), &ref, &days, &info) != KL_OK)
        throw_messages({"Row of the time correlation cannot be read."});
    return info;
}

std::vector<LeapSecondStep> TimeCorrelation::getLeapSeconds(double *expiry) const
{
    long n = 0;
    double *utc = nullptr;
    double *tai_utc = nullptr;
    double until = 0.0;
    if (kl_time_get_leap_seconds(getId(), &n, &utc, &tai_utc, &until) != KL_OK)
        throw_messages({"Leap seconds cannot be read."});
    const std::unique_ptr<double, FreeArray> utc_owner(utc), tai_utc_owner(tai_utc);
    std::vector<LeapSecondStep> steps;
    for (long i = 0; i < n; ++i)
        steps.push_back({utc[i], tai_utc[i]});
    if (expiry != nullptr)
        *expiry = until;
    return steps;
}

TimeIdData TimeCorrelation::getData() const
{
    kl_time_id_data data{};
    const std::unique_ptr<kl_time_id_data, FreeRows> rows(&data);
    if (kl_time_get_id_data(getId(), &data) != KL_OK)
        throw_messages({"Time correlation data cannot be read."});
    return TimeIdData(data);
}

TimeWindow TimeCorrelation::getValidity() const
{
    const TimeIdData data = getData();
    return {data.rows.front().utc, data.rows.back().utc};
}

long TimeCorrelation::status() const
{
    return kl_time_init_status(getId());
}

kl_time_id *TimeCorrelation::getId() const
{
    return &handle_.time;
}

void TimeCorrelation::eraseObject()
{
    const std::lock_guard<std::mutex> lock(release_mutex());
    subtractInstance();
    kl_time_id id = handle_.time;
    handle_ = {};
    if (!is_free(&id))
        return;
    long ierr[1] = {0};
    const long status = kl_time_close(&id, ierr);
    if (KL_Id_init_status(&id) == 1) { // not closed: the share stays
        handle_.time = id;
        addInstance();
    }
    check("TimeCorrelation::eraseObject", status, KL_ID_FUNC_TIME_REF_CLOSE, ierr);
}

} // namespace ORBKIT
