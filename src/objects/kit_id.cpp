#include "orbkit/kit_id.hpp"

#include "kl_family.h"

namespace ORBKIT {

KitId::KitId() : handle_{} {}

KitId::KitId(const KitId &other) : handle_(other.handle_)
{
    addInstance();
}

KitId::KitId(KitId &&other) noexcept : handle_(other.handle_)
{
    other.handle_ = {};
}

// On purpose: the id held until now is not given up here; the derived classes do so first.
KitId &KitId::operator=(const KitId &other)
{
    handle_ = other.handle_;
    addInstance();
    return *this;
}

KitId::~KitId() = default;

long KitId::status() const
{
    return KL_Id_init_status(&handle_);
}

long KitId::mode() const
{
    return status() == 1 ? KL_Id_get_mode(&handle_) : 0;
}

void *KitId::getId() const
{
    return &handle_;
}

void KitId::addInstance()
{
    KL_Add_instance(&handle_);
}

void KitId::subtractInstance()
{
    KL_Delete_instance(&handle_);
}

} // namespace ORBKIT
