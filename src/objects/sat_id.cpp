#include "orbkit/sat_id.hpp"

#include "objects/throw_rule.h"

namespace ORBKIT {

namespace {

constexpr unsigned long kLastDefaultSatellite = 9;
constexpr std::size_t kSp3Characters = 3;
constexpr long kNone = -1;

} // namespace

SatId::SatId(long satellite) : satellite_(satellite) {}

SatId::SatId(const std::string &file) : satellite_(kNone)
{
    long ierr[1] = {0};
    const long status = kl_default_sat_init(&satellite_, file.c_str(), ierr);
    check("SatId::SatId", status, KL_ID_FUNC_DEFAULT_SAT_INIT, ierr);
}

SatId::SatId(const SatId &other) = default;

SatId::SatId(SatId &&other) noexcept : satellite_(other.satellite_)
{
    other.satellite_ = kNone;
}

SatId &SatId::operator=(const SatId &other) = default;

SatId &SatId::operator=(SatId &&other) noexcept
{
    if (this != &other) {
        const SatId held(satellite_ != other.satellite_ ? satellite_ : kNone); // freed at the end
        satellite_ = other.satellite_;
        other.satellite_ = kNone;
    }
    return *this;
}

// On purpose: every object with such a number frees the satellite, whoever took it and whoever else holds the number.
SatId::~SatId()
{
    if (static_cast<unsigned long>(satellite_) <= kLastDefaultSatellite)
        kl_default_sat_close(&satellite_);
}

long SatId::getSatellite() const
{
    return satellite_;
}

void SatId::setTleData(long catalogue_number, const std::string &name, const std::string &designator)
{
    if (kl_set_tle_sat_data(&satellite_, &catalogue_number, name.c_str(), designator.c_str()) != KL_OK)
        throw_messages({"TLE Satellite Data cannot be set."});
}

void SatId::setSP3Data(const std::string &identifier)
{
    if (kl_set_sp3_sat_data(satellite_, identifier.substr(0, kSp3Characters).c_str()) != KL_OK)
        throw_messages({"SP3 Id cannot be set."});
}

} // namespace ORBKIT
