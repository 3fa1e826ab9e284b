/**
 * @file kit_id.hpp
 */
#ifndef ORBKIT_KIT_ID_HPP
#define ORBKIT_KIT_ID_HPP

#include "../kl_lib.h"

namespace ORBKIT {

namespace detail {

struct Handles;

} // namespace detail

/**
 * Base of the id classes: one id handle. Objects that hold the same id count themselves in its record, and no one can
 * close the record while the count is not zero.
 *
 * The base only counts up: its destructor and its assignment do not give up a share. A copy of an id object into a
 * plain KitId therefore keeps the id open; subtractInstance is then the caller's to call.
 *
 * @code{.cpp}
 * const ORBKIT::ModelId model(KL_MODEL_DEFAULT, {});
 * ORBKIT::KitId share(model);
 * std::printf("initialised %ld, mode %ld\n", share.status(), share.mode()); // -> initialised 1, mode 0
 * share.subtractInstance();
 * std::printf("empty: initialised %ld\n", ORBKIT::KitId().status()); // -> empty: initialised 0
 * @endcode
 */
class KL_API KitId {
public:
    /** No id. */
    KitId();
    /** Shares the other's id and counts this object. */
    KitId(const KitId &other);
    /** Takes the other's id with its count; the other is left without. */
    KitId(KitId &&other) noexcept;
    /** Shares the other's id and counts this object. The id held until now is not given up. */
    KitId &operator=(const KitId &other);
    /** Leaves the record alone. */
    virtual ~KitId();

    /** 1 when the id is initialised, else 0. */
    long status() const;
    /** Mode with which the id was initialised; 0 without an id. */
    long mode() const;
    /** The handle, for the C functions; it stays the object's. */
    void *getId() const;
    /** Counts one more object that shares the id. */
    void addInstance();
    /** Counts one object less. */
    void subtractInstance();

protected:
    friend struct detail::Handles;

    union Handle { // one pointer, whatever its kind
        kl_time_id time;
        kl_model_id model;
    };

    /** Mutable since the C functions take handles by plain pointer; they leave that of an initialised id as it is. */
    mutable Handle handle_;
};

} // namespace ORBKIT

#endif
