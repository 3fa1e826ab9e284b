// Model ids and their records.
#include "errors/activation.h"
#include "models/model_record.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

constexpr long kNoSatellite = -1;
constexpr int kKinds = 9;

// Where the block of each kind lies, and the largest selection that it takes. Each block begins with its value.
struct Kind {
    const char *name;
    std::size_t offset, size;
    unsigned long largest;
};

#define BLOCK(member) offsetof(ModelBlocks, member), sizeof(ModelBlocks::member)
constexpr Kind kKind[kKinds] = {
    {"Earth", BLOCK(earth), 0},
    {"Sun", BLOCK(sun), 1},
    {"Moon", BLOCK(moon), 0},
    {"Planet", BLOCK(planet), 0},
    {"Star", BLOCK(star), 0},
    {"Nutation", BLOCK(nutation), 0},
    {"Precession", BLOCK(precession), 0},
    {"Constants", BLOCK(constants), 0},
    {"Light propagation", BLOCK(light), 2},
};
#undef BLOCK

char *block_at(ModelBlocks *blocks, int kind)
{
    return reinterpret_cast<char *>(blocks) + kKind[kind].offset;
}

void fill_block(ModelBlocks *blocks, int kind, long value)
{
    char *block = block_at(blocks, kind);
    std::memcpy(block, reinterpret_cast<const char *>(&KL_DEFAULT_BLOCKS) + kKind[kind].offset, kKind[kind].size);
    std::memcpy(block, &value, sizeof value);
}

long init(Activation &call, const long *mode, const long models[9], kl_model_id *model_id)
{
    if (mode == nullptr || model_id == nullptr)
        return KL_ERR;
    if (model_record_of(model_id) != nullptr)
        return call.fails(KL_MODEL_INIT_INITIALISED_ERR);
    const bool user = *mode == KL_MODEL_USER;
    if (user && models == nullptr)
        return call.fails(KL_MODEL_INIT_SELECTION_ERR, kKind[KL_MODEL_EARTH].name);

    auto *record = static_cast<ModelIdRecord *>(std::calloc(1, sizeof(ModelIdRecord)));
    if (record == nullptr || KL_Id_init(&kNoSatellite, KL_ID_MODEL, record) < 0) {
        std::free(record);
        return call.fails(KL_MODEL_INIT_MEMORY_ERR);
    }
    model_id->record = record;
    if (user)
        std::memcpy(record->selections, models, sizeof record->selections);
    for (int kind = 0; kind < kKinds; ++kind) {
        const long value = record->selections[kind];
        // On purpose: a refusal leaves the handle initialised, with the blocks before this one filled.
        if (static_cast<unsigned long>(value) > kKind[kind].largest)
            return call.fails(KL_MODEL_INIT_SELECTION_ERR, kKind[kind].name);
        fill_block(&record->blocks, kind, value);
    }
    return call.status();
}

} // namespace

const ModelBlocks *const KL_ORDINARY_BLOCKS = &KL_DEFAULT_BLOCKS;

long kl_model_init(const long *mode, const long models[9], kl_model_id *model_id, long *ierr)
{
    Activation call(KL_FN_MODEL_INIT, ierr);
    return init(call, mode, models, model_id);
}

long kl_model_init_status(kl_model_id *model_id)
{
    return KL_Id_init_status(model_id);
}

long kl_model_get_data(kl_model_id *model_id, kl_model_data *data)
{
    if (data == nullptr)
        return KL_ERR;
    const ModelBlocks &m = model_blocks(model_id);
    const EarthModel &e = m.earth;
    *data = {e.value,
             m.sun.value,
             m.moon.value,
             m.planet.value,
             m.star.value,
             m.nutation.value,
             m.precession.value,
             m.constants.value,
             m.light.value,
             e.gravity_radius,
             e.gm,
             e.j2,
             e.j3,
             e.j4,
             e.semi_major_axis,
             e.semi_minor_axis,
             e.eccentricity,
             e.flattening,
             e.angle[0],
             e.angle[1],
             e.angle[2],
             e.angle_sim[0],
             e.angle_sim[1],
             e.angle_sim[2],
             m.constants.astronomical_unit};
    return KL_OK;
}

void *KL_Model_get_data(kl_model_id *model_id, long kind)
{
    if (model_id == nullptr)
        return nullptr;
    if (model_record_of(model_id) == nullptr) {
        const long mode = KL_MODEL_DEFAULT;
        Activation call(KL_FN_MODEL_INIT, KL_NO_VECTOR);
        if (init(call, &mode, nullptr, model_id) != KL_OK)
            return nullptr;
    }
    if (kind == -1)
        kind = KL_MODEL_EARTH;
    return kind >= 0 && kind < kKinds ? block_at(&model_record_of(model_id)->blocks, static_cast<int>(kind)) : nullptr;
}

long kl_model_close(kl_model_id *model_id, long *ierr)
{
    Activation call(KL_FN_MODEL_CLOSE, ierr);
    if (KL_Id_close(model_id) != 0)
        return call.fails(KL_MODEL_CLOSE_ID_ERR);
    std::free(model_id->record);
    model_id->record = nullptr;
    return call.status();
}
