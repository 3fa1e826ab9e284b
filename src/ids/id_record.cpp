// Id records: their head, the links between them, and their locks.
//
// B is in the `users` of A exactly when A is in the `uses` of B. The mutex of a record guards its `users` and its
// `instances`; `uses` is written only while its owner is built or closed by one thread. With two locks, the user's
// comes first, then that of the id it uses.
#include "ids/id_record.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

kl_id_record *record_of(const void *handle)
{
    return handle != nullptr ? *static_cast<kl_id_record *const *>(handle) : nullptr;
}

// Each place where a lock can fail has its number.
enum Place {
    kInitMutex = 98,
    kCloseOwn = 231,
    kCloseUsed = 262,
    kLinkUsed = 473,
    kIsUsed = 566,
    kAddInstance = 621,
    kDeleteInstance = 674,
    kCopyMutex = 760,
    kUnlinkUser = 841,
    kUnlinkUsed = 851,
};

long refuse_lock(const char *function, Place place)
{
    std::fprintf(stderr, "ERROR in %s: Could not lock other threads (%i)\n", function, static_cast<int>(place));
    return -1;
}

long put_no_mutex(const char *function, Place place)
{
    return std::fprintf(stderr, "ERROR in %s: Could not create the mutex (%i)\n", function, static_cast<int>(place));
}

long fail_unlock()
{
    put_closing_threads();
    return -1;
}

void put_unlock_failure(const char *function)
{
    std::fprintf(stderr, "ERROR in %s: Error unlocking thread \n", function);
}

pthread_mutex_t *new_mutex()
{
    auto *mutex = static_cast<pthread_mutex_t *>(std::malloc(sizeof(pthread_mutex_t)));
    if (mutex != nullptr && pthread_mutex_init(mutex, nullptr) != 0) {
        std::free(mutex);
        return nullptr;
    }
    return mutex;
}

void delete_mutex(kl_id_record *record)
{
    if (record->mutex == nullptr)
        return;
    pthread_mutex_destroy(record->mutex);
    std::free(record->mutex);
    record->mutex = nullptr;
}

enum Detached { kDetached, kNotLocked, kNotUnlocked };

// Takes a record out of the `users` of every id it uses, and those out of its `uses`: where a lock fails, the links
// not yet undone still stand on both sides.
Detached detach_from_used(kl_id_record *record)
{
    const IdList uses(record->uses);
    while (uses.size() > 0) {
        kl_id_record *used = *uses.begin();
        if (!lock_id(used))
            return kNotLocked;
        IdList(used->users).remove(record);
        uses.remove(used);
        if (!unlock_id(used))
            return kNotUnlocked;
    }
    return kDetached;
}

void mark_closed(kl_id_record *record)
{
    record->kind = 0;
    record->init_status = 0;
    delete_id_lists(record);
}

long change_instances(const void *handle, long change, const char *function, Place place)
{
    kl_id_record *record = record_of(handle);
    if (record == nullptr)
        return 0;
    if (!lock_id(record))
        return refuse_lock(function, place);
    record->instances += change;
    if (!unlock_id(record)) {
        put_unlock_failure(function);
        return -1;
    }
    return 0;
}

} // namespace

bool create_id_lists(kl_id_record *record)
{
    record->uses = kd_list_create(sizeof(kl_id_record *));
    record->users = kd_list_create(sizeof(kl_id_record *));
    if (record->uses != nullptr && record->users != nullptr)
        return true;
    delete_id_lists(record);
    return false;
}

void delete_id_lists(kl_id_record *record)
{
    for (void **list : {&record->users, &record->uses}) {
        if (*list != nullptr)
            kd_list_delete(static_cast<kd_list *>(*list));
        *list = nullptr;
    }
}

bool lock_id(const kl_id_record *record)
{
    return record->mutex == nullptr || pthread_mutex_lock(record->mutex) == 0;
}

bool unlock_id(const kl_id_record *record)
{
    return record->mutex == nullptr || pthread_mutex_unlock(record->mutex) == 0;
}

void put_closing_threads()
{
    std::puts("!!! Error closing the threads. All threads will be closed");
}

long KL_Id_init(const long *sat_id, long kind, void *id_record)
{
    auto *record = static_cast<kl_id_record *>(id_record);
    if (record == nullptr || sat_id == nullptr)
        return -1;
    record->mutex = nullptr;
    record->instances = 0;
    if (!create_id_lists(record)) {
        mark_closed(record);
        return -1;
    }
    record->kind = static_cast<std::int32_t>(kind);
    record->init_status = 1;
    record->sat_id = *sat_id;
    record->mutex = new_mutex();
    // On purpose: the number of characters printed is returned; callers do not test it, the id works without a mutex.
    return record->mutex != nullptr ? 0 : put_no_mutex("KL_Id_init", kInitMutex);
}

long KL_Id_init_status(const void *handle)
{
    const kl_id_record *record = record_of(handle);
    return record != nullptr && record->init_status == 1 ? 1 : 0;
}

long KL_Id_get_init_type(const void *handle)
{
    return KL_Id_init_status(handle) == 1 ? record_of(handle)->kind : 0;
}

long KL_Id_get_mode(const void *handle)
{
    return record_of(handle)->mode;
}

long KL_Id_get_sat_id(const void *handle)
{
    return record_of(handle)->sat_id;
}

long KL_Id_cmp(const void *a, const void *b)
{
    return std::memcmp(a, b, sizeof(kl_id_record *)) == 0 ? 1 : 0;
}

long KL_Id_close(void *handle)
{
    if (KL_Id_init_status(handle) == 0)
        return -1;
    kl_id_record *record = record_of(handle);
    if (!lock_id(record))
        return refuse_lock("KL_Id_close", kCloseOwn);
    if (IdList(record->users).size() > 0 || record->instances != 0)
        return unlock_id(record) ? -1 : fail_unlock();
    switch (detach_from_used(record)) {
    case kNotLocked:
        static_cast<void>(unlock_id(record));
        return refuse_lock("KL_Id_close", kCloseUsed);
    case kNotUnlocked:
        static_cast<void>(unlock_id(record));
        return fail_unlock();
    case kDetached:
        break;
    }
    mark_closed(record);
    if (!unlock_id(record))
        return fail_unlock();
    delete_mutex(record);
    return 0;
}

long KL_Link_ids(void *used_record, void *user_record)
{
    auto *used = static_cast<kl_id_record *>(used_record);
    auto *user = static_cast<kl_id_record *>(user_record);
    if (used == nullptr || user == nullptr)
        return 0;
    if (!IdList(user->uses).append(used))
        return -1;
    // On purpose: the entry just made stays when the lock fails; closing the user removes it.
    if (!lock_id(used))
        return refuse_lock("KL_Link_ids", kLinkUsed);
    const bool linked = IdList(used->users).append(user);
    if (!linked)
        IdList(user->uses).remove(used);
    if (!unlock_id(used))
        return fail_unlock();
    return linked ? 0 : -1;
}

long KL_Unlink_ids(void *used_record, void *user_record)
{
    auto *used = static_cast<kl_id_record *>(used_record);
    auto *user = static_cast<kl_id_record *>(user_record);
    if (used == nullptr || user == nullptr)
        return 0;
    if (!lock_id(user))
        return refuse_lock("KL_Unlink_ids", kUnlinkUser);
    const bool two_locks = used != user;
    if (two_locks && !lock_id(used)) {
        static_cast<void>(unlock_id(user));
        return refuse_lock("KL_Unlink_ids", kUnlinkUsed);
    }
    IdList(used->users).remove(user);
    if (two_locks && !unlock_id(used)) {
        static_cast<void>(unlock_id(user));
        return fail_unlock();
    }
    IdList(user->uses).remove(used);
    return unlock_id(user) ? 0 : fail_unlock();
}

void *KL_Get_used_id(const void *id_record, long kind)
{
    if (id_record == nullptr)
        return nullptr;
    for (kl_id_record *used : IdList(static_cast<const kl_id_record *>(id_record)->uses))
        if (used->kind == kind)
            return used;
    return nullptr;
}

long KL_Is_used(const void *handle)
{
    const kl_id_record *record = record_of(handle);
    if (record == nullptr)
        return 0;
    if (!lock_id(record)) {
        refuse_lock("KL_Is_used", kIsUsed);
        return 0;
    }
    const long count = IdList(record->users).size() + record->instances;
    if (!unlock_id(record))
        put_unlock_failure("KL_Is_used");
    return count;
}

long KL_Add_instance(void *handle)
{
    return change_instances(handle, 1, "KL_Add_instance", kAddInstance);
}

long KL_Delete_instance(void *handle)
{
    return change_instances(handle, -1, "KL_Delete_instance", kDeleteInstance);
}

long KL_Copy_id(const void *source_handle, void *target_handle)
{
    const kl_id_record *source = record_of(source_handle);
    kl_id_record *target = record_of(target_handle);
    if (source == nullptr || target == nullptr)
        return -1;
    if (source == target)
        return 0;
    static_cast<void>(detach_from_used(target)); // a failing lock leaves a stale user, no more
    delete_id_lists(target);
    delete_mutex(target);
    // The head that has been copied stays, without lists: an id that can be closed.
    const auto give_up = [target] {
        static_cast<void>(detach_from_used(target));
        delete_id_lists(target);
        return -1L;
    };

    target->kind = source->kind;
    target->init_status = source->init_status;
    target->sat_id = source->sat_id;
    // On purpose: the count of instances is copied too, although no object holds the copy yet.
    target->instances = source->instances;
    target->mode = source->mode;
    target->mutex = new_mutex();
    if (target->mutex == nullptr) {
        put_no_mutex("KL_Copy_id", kCopyMutex);
        return give_up();
    }
    if (!create_id_lists(target))
        return give_up();
    for (kl_id_record *used : IdList(source->uses))
        if (KL_Link_ids(used, target) != 0)
            return give_up();
    return 0;
}

long KL_Check_cuc_octets(long coarse, long fine)
{
    return 1 <= coarse && coarse <= 7 && 0 <= fine && fine <= 10 ? 1 : 0;
}
