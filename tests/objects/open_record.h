// Tells from outside whether an id is still open, when the record may already be freed: an open record stays among the
// users of the id that it is linked to, and closing it takes it out.
#ifndef KL_TESTS_OBJECTS_OPEN_RECORD_H
#define KL_TESTS_OBJECTS_OPEN_RECORD_H

#include "kl_family.h"

class OpenRecord {
public:
    explicit OpenRecord(const void *handle)
    {
        const long mode = KL_MODEL_DEFAULT;
        kl_model_init(&mode, nullptr, &watched_, nullptr);
        KL_Link_ids(watched_.record, *static_cast<void *const *>(handle));
    }
    ~OpenRecord() { kl_model_close(&watched_, nullptr); }
    OpenRecord(const OpenRecord &) = delete;
    OpenRecord &operator=(const OpenRecord &) = delete;

    bool open() const { return KL_Is_used(&watched_) == 1; }

private:
    kl_model_id watched_ = {nullptr};
};

// Objects that share the id of a handle.
inline long instances(const void *handle)
{
    return (*static_cast<kl_id_record *const *>(handle))->instances;
}

#endif
