/**
 * @file borrowed.hpp
 * What values borrow of their surroundings, and the defaults.
 */
#ifndef ORBKIT_BORROWED_HPP
#define ORBKIT_BORROWED_HPP

#include "lib_error.hpp"
#include "model_id.hpp"
#include "time_correlation.hpp"

namespace ORBKIT {

namespace detail {

// As getId, in line: values ask for their handles at each call.
struct Handles {
    static kl_time_id *of(const TimeCorrelation &id) { return &static_cast<const KitId &>(id).handle_.time; }
    static kl_model_id *of(const ModelId &id) { return &static_cast<const KitId &>(id).handle_.model; }
};
template <class Id>
auto *handle(const Id &id)
{
    return Handles::of(id);
}

} // namespace detail

/** The correlation compiled into the library: one for the process, never closed. */
inline const TimeCorrelation &built_in_correlation()
{
    static const TimeCorrelation *const correlation = new TimeCorrelation(TimeCorrelation::builtIn());
    return *correlation;
}

/** The default models, for values that name none. */
inline const ModelId &default_models()
{
    static const ModelId *const models = new ModelId();
    return *models;
}

/**
 * A correlation or models that a value borrows: they must outlive it, so that a temporary does not compile. None means
 * the default. What is borrowed is the object at its address, as it is when the value is used: moved from it is empty,
 * initialised anew it is another one, and a copy of a record that holds both still borrows from the first record.
 *
 * @code{.cpp}
 * const ORBKIT::TimeCorrelation mine({37.0 / 86400.0, 0.0, 0.0, 18.0 / 86400.0});
 * const ORBKIT::Time time("2026-06-21T08:24:00", ORBKIT::Scale::UTC, mine);
 * std::printf("%d %d\n", &time.correlation() == &mine, ORBKIT::Borrowed<ORBKIT::ModelId>() == nullptr); // -> 1 1
 * @endcode
 */
template <class Id>
class Borrowed {
public:
    Borrowed() = default;
    Borrowed(const Id &id) : id_(&id) {}
    Borrowed(Id &&) = delete;
    Borrowed(const Id &&) = delete;

    /** Null for the default. */
    operator const Id *() const { return id_; }

private:
    const Id *id_ = nullptr;
};

} // namespace ORBKIT

#endif
