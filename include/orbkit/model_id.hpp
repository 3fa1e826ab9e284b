/**
 * @file model_id.hpp
 */
#ifndef ORBKIT_MODEL_ID_HPP
#define ORBKIT_MODEL_ID_HPP

#include "kit_id.hpp"

#include <vector>

namespace ORBKIT {

/**
 * A model id that closes itself. Copies share it; the last one closes it. Where a function takes a ModelId, an empty
 * one stands for the default models.
 *
 * A destructor never throws. An id that a run of the C functions still uses is left open, and nothing closes it later:
 * close the run first. A RunId does not get there: it holds a share of its own.
 * Different objects may be copied and destroyed by different threads, also when they share an id.
 *
 * @code{.cpp}
 * const ORBKIT::ModelId model(KL_MODEL_USER, {0, 1, 0, 0, 0, 0, 0, 0, 2});
 * std::printf("Sun %ld, semi-major axis %.0f m\n", model.getData().sun, model.getData().semi_major_axis);
 * // -> Sun 1, semi-major axis 6378137 m
 * try {
 *     ORBKIT::ModelId(KL_MODEL_USER, {0, 0, 0});
 * } catch (const KitError &error) {
 *     std::printf("%s\n", error.getMsg().front().c_str()); // -> Models vector must be of size 9
 * }
 * @endcode
 */
class KL_API ModelId : public KitId {
public:
    /** No id. */
    ModelId();
    /** As init. */
    ModelId(long mode, const std::vector<long> &models);
    ModelId(const ModelId &other);
    ModelId(ModelId &&other) noexcept;
    ModelId &operator=(const ModelId &other);
    ModelId &operator=(ModelId &&other) noexcept;
    ~ModelId() override;

    /**
     * Initialises a new id and gives up the one held until now.
     *
     * @param mode    KL_MODEL_DEFAULT, or KL_MODEL_USER to take the selections from `models`
     * @param models  the nine selections in the order KL_MODEL_EARTH to KL_MODEL_LIGHT_PROPAGATION; not read in default
     *                mode
     * @throws KitError for a vector of another size, or when kl_model_init fails; the object then is as it was
     */
    void init(long mode, const std::vector<long> &models);

    /** The 25 values of the model; those of the default models without an id. */
    kl_model_data getData() const;

    /** 1 when the id is initialised, else 0. */
    long status() const;

    /** The handle, for the C functions; it stays the object's. */
    kl_model_id *getId() const;

    /**
     * Gives up this object's share and leaves it empty; closes the id when no object holds it and no other id uses it.
     *
     * @throws KitError when the id is free and cannot be closed; the object then keeps it. The name in it is
     *                  "ModelId::ModelId"
     */
    void eraseObject();
};

} // namespace ORBKIT

#endif
