#include "orbkit/time_id.hpp"

#include "kl_family.h"
#include "objects/throw_rule.h"

#include <memory>
#include <utility>

namespace ORBKIT {

namespace {

struct FreeRows {
    void operator()(kl_time_id_data *data) const { kl_time_free_id_data(data); }
};

} // namespace

TimeIdData::TimeIdData(const kl_time_id_data &data)
    : model(data.model), combination(data.combination), no_extrapolation(data.no_extrapolation),
      second_bulletin_row(data.second_bulletin_row), a(data.a), b(data.b), c(data.c), leap_sign(data.leap_sign),
      leap_utc(data.leap_utc), leap_tai(data.leap_tai), rows(data.rows, data.rows + data.n_rows)
{
}

TimeId::TimeId() = default;

TimeId::TimeId(const std::array<double, 4> &tri_time)
{
    init(tri_time);
}

TimeId::TimeId(const TimeIdData &data)
{
    init(data);
}

TimeId::TimeId(const TimeId &other) = default;

TimeId::TimeId(TimeId &&other) noexcept = default;

TimeId &TimeId::operator=(const TimeId &other)
{
    if (this != &other) {
        eraseObject();
        KitId::operator=(other);
    }
    return *this;
}

TimeId &TimeId::operator=(TimeId &&other) noexcept
{
    TimeId taken(std::move(other));
    std::swap(handle_, taken.handle_); // what was held goes with `taken`
    return *this;
}

TimeId::~TimeId()
{
    try {
        eraseObject();
    } catch (...) { // the id stays open, without this object
        subtractInstance();
    }
}

void TimeId::init(const std::array<double, 4> &tri_time)
{
    TimeId fresh;
    long ierr[1] = {0};
    const long status =
        kl_time_ref_init(tri_time.data(), nullptr, nullptr, nullptr, fresh.getId(), ierr); // no orbit: not read
    fresh.addInstance();
    check("TimeId::init", status, KL_ID_FUNC_TIME_REF_INIT, ierr);
    *this = std::move(fresh);
}

void TimeId::init(const TimeIdData &data)
{
    std::vector<kl_time_row> rows = data.rows; // the C record does not promise that it only reads them
    const kl_time_id_data record = {data.model,
                                    data.combination,
                                    data.no_extrapolation,
                                    data.second_bulletin_row,
                                    data.a,
                                    data.b,
                                    data.c,
                                    data.leap_sign,
                                    data.leap_utc,
                                    data.leap_tai,
                                    static_cast<long>(rows.size()),
                                    rows.data()};
    TimeId fresh;
    const long status = kl_time_set_id_data(fresh.getId(), &record);
    fresh.addInstance();
    if (status != KL_OK)
        throw_messages({"Time correlation data cannot be set."});
    *this = std::move(fresh);
}

TimeIdData TimeId::getData() const
{
    kl_time_id_data data{};
    const std::unique_ptr<kl_time_id_data, FreeRows> rows(&data);
    if (kl_time_get_id_data(getId(), &data) != KL_OK)
        throw_messages({"Time correlation data cannot be read."});
    return TimeIdData(data);
}

long TimeId::status() const
{
    return kl_time_init_status(getId());
}

kl_time_id *TimeId::getId() const
{
    return &handle_.time;
}

void TimeId::eraseObject()
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
    check("TimeId::eraseObject", status, KL_ID_FUNC_TIME_REF_CLOSE, ierr);
}

} // namespace ORBKIT
