#include "orbkit/model_id.hpp"

#include "kl_family.h"
#include "objects/throw_rule.h"

#include <string>
#include <utility>

namespace ORBKIT {

ModelId::ModelId() = default;

ModelId::ModelId(long mode, const std::vector<long> &models)
{
    init(mode, models);
}

ModelId::ModelId(const ModelId &other) = default;

ModelId::ModelId(ModelId &&other) noexcept = default;

ModelId &ModelId::operator=(const ModelId &other)
{
    if (this != &other) {
        eraseObject();
        KitId::operator=(other);
    }
    return *this;
}

ModelId &ModelId::operator=(ModelId &&other) noexcept
{
    ModelId taken(std::move(other));
    std::swap(handle_, taken.handle_); // what was held goes with `taken`
    return *this;
}

ModelId::~ModelId()
{
    try {
        eraseObject();
    } catch (...) { // the id stays open, without this object
        subtractInstance();
    }
}

void ModelId::init(long mode, const std::vector<long> &models)
{
    constexpr std::size_t kKinds = KL_MODEL_LIGHT_PROPAGATION + 1;
    if (mode == KL_MODEL_USER && models.size() != kKinds)
        throw_messages({"Models vector must be of size " + std::to_string(kKinds), "ModelId::init"});
    ModelId fresh;
    long ierr[1] = {0};
    const long status = kl_model_init(&mode, mode == KL_MODEL_USER ? models.data() : nullptr, fresh.getId(), ierr);
    fresh.addInstance(); // a refused model leaves an initialised id: fresh closes it
    check("ModelId::init", status, KL_ID_FUNC_MODEL_INIT, ierr);
    *this = std::move(fresh);
}

kl_model_data ModelId::getData() const
{
    kl_model_id id = handle_.model; // the call initialises an empty handle for a moment
    kl_model_data data;
    if (kl_model_get_data(&id, &data) != KL_OK)
        throw_messages({"Model data cannot be read."});
    return data;
}

long ModelId::status() const
{
    return kl_model_init_status(getId());
}

kl_model_id *ModelId::getId() const
{
    return &handle_.model;
}

void ModelId::eraseObject()
{
    const std::lock_guard<std::mutex> lock(release_mutex());
    subtractInstance();
    kl_model_id id = handle_.model;
    handle_ = {};
    if (!is_free(&id))
        return;
    long ierr[1] = {0};
    const long status = kl_model_close(&id, ierr);
    if (KL_Id_init_status(&id) == 1) { // not closed: the share stays
        handle_.model = id;
        addInstance();
    }
    check("ModelId::ModelId", status, KL_ID_FUNC_MODEL_CLOSE, ierr); // On purpose: this name, not eraseObject.
}

} // namespace ORBKIT
