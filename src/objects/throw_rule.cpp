#include "objects/throw_rule.h"

#include "ids/id_record.h"

namespace ORBKIT {

void throw_lib_error(const char *operation, long status, long public_id, const long *ierr)
{
    throw KitError(LibError(operation, status, public_id, ierr));
}

Share share_of(const void *handle)
{
    if (KL_Id_init_status(handle) == 0)
        return Share::kHeld;
    if (KL_Is_used(handle) == 0)
        return Share::kFree;
    const kl_id_record *record = *static_cast<kl_id_record *const *>(handle);
    const bool locked = record->mutex != nullptr && lock_id(record);
    const long instances = record->instances;
    if (locked && !unlock_id(record))
        put_closing_threads();
    return instances == 0 ? Share::kInUse : Share::kHeld;
}

std::mutex &release_mutex()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace ORBKIT
