// Runs: a satellite id, a time id and perhaps a model id under one small number.
#include "runs/runs.h"
#include "errors/activation.h"
#include "ids/id_record.h"
#include "satellites/satellites.h"

#include <cstdlib>
#include <iterator>

namespace {

// Guards the reservation of slots, nothing else.
pthread_mutex_t table_mutex = PTHREAD_MUTEX_INITIALIZER;

// Holds the lock of an id while its `users` change: runs that share an id may be opened and closed by different
// threads. A lock that fails is passed over.
class UsersLock {
public:
    explicit UsersLock(const kl_id_record *record) : record_(record), locked_(lock_id(record)) {}
    ~UsersLock()
    {
        if (locked_)
            static_cast<void>(unlock_id(record_));
    }
    UsersLock(const UsersLock &) = delete;
    UsersLock &operator=(const UsersLock &) = delete;

private:
    const kl_id_record *record_;
    bool locked_;
};

kl_id_record *record_of(void *handle_record)
{
    return static_cast<kl_id_record *>(handle_record);
}

// On failure one side may stand alone; the run is released then.
bool link(kl_id_record *used, kl_id_record *run)
{
    if (!IdList(run->uses).append(used))
        return false;
    const UsersLock lock(used);
    return IdList(used->users).append(run);
}

void forget_run(kl_id_record *used, const kl_id_record *run)
{
    const UsersLock lock(used);
    IdList(used->users).remove(run);
}

// Undoes everything that a run holds. Nobody can find it any more.
void release(RunRecord *run)
{
    for (kl_id_record *used : IdList(run->head.uses))
        forget_run(used, &run->head);
    delete_id_lists(&run->head);
    std::free(run);
}

// Stands in a slot while its run is being filled: not initialised, and never freed.
const RunRecord reserved{};

long lowest_free_slot()
{
    long slot = 0;
    while (slot < KL_N_RUNS && run_table[slot].load(std::memory_order_acquire) != nullptr)
        ++slot;
    return slot;
}

// Reserves the lowest free slot and gives an empty record for it: kReserved, or the condition that prevents it.
enum { kReserved = -1 };

int reserve(long *slot, RunRecord **run)
{
    if (pthread_mutex_lock(&table_mutex) != 0)
        return KL_RUN_INIT_LOCK_ERR;
    int condition = kReserved;
    *run = nullptr;
    *slot = lowest_free_slot();
    if (*slot == KL_N_RUNS)
        condition = KL_RUN_INIT_NO_SLOT_ERR;
    else if ((*run = static_cast<RunRecord *>(std::calloc(1, sizeof(RunRecord)))) == nullptr)
        condition = KL_RUN_INIT_MEMORY_ERR;
    else
        run_table[*slot].store(const_cast<RunRecord *>(&reserved), std::memory_order_release);
    if (pthread_mutex_unlock(&table_mutex) != 0 && condition == kReserved) {
        std::free(*run);
        run_table[*slot].store(nullptr, std::memory_order_release);
        condition = KL_RUN_INIT_UNLOCK_ERR;
    }
    return condition;
}

// Checks the ids and fills the record of a reserved slot: kReserved, or the condition that prevents it.
int fill(RunRecord *run, long slot, const long *sat_id, kl_time_id *time_id, kl_model_id *model_id)
{
    if (!checked_satellite(sat_id))
        return KL_RUN_INIT_SAT_ID_ERR;
    if (KL_Id_init_status(time_id) == 0)
        return KL_RUN_INIT_TIME_ID_ERR;
    run->time = record_of(time_id->record);
    run->model = KL_Id_init_status(model_id) == 1 ? record_of(model_id->record) : nullptr;
    if (!create_id_lists(&run->head) || !link(run->time, &run->head)
        || (run->model != nullptr && !link(run->model, &run->head)))
        return KL_RUN_INIT_MEMORY_ERR;
    run->head.kind = KL_ID_RUN;
    run->head.sat_id = *sat_id;
    run->head.mode = slot;
    run->sat_id = *sat_id;
    // On purpose: the check answers 0 or 1 and never below, so it stops no run.
    if (KL_Run_check_consistency(run->head.uses) < 0)
        return KL_RUN_INIT_CONSISTENCY_ERR;
    run->head.init_status = 1;
    return kReserved;
}

// Slot of a run for a kind of id, null where there is none.
kl_id_record **slot_of_kind(RunRecord *run, long kind)
{
    if (kind == KL_ID_TIME)
        return &run->time;
    if (kind == KL_ID_MODEL)
        return &run->model;
    for (std::size_t i = 0; i < std::size(KL_RUN_SIBLING_KINDS); ++i)
        if (KL_RUN_SIBLING_KINDS[i] == kind)
            return &run->siblings[i];
    return nullptr;
}

} // namespace

std::atomic<RunRecord *> run_table[KL_N_RUNS];

long kl_run_init(const long *sat_id, kl_time_id *time_id, kl_model_id *model_id, long *run_id, long *ierr)
{
    Activation call(KL_FN_RUN_INIT, ierr);
    if (run_id == nullptr)
        return KL_ERR;
    *run_id = -1;
    long slot = 0;
    RunRecord *run = nullptr;
    int condition = reserve(&slot, &run);
    if (condition == kReserved) {
        condition = fill(run, slot, sat_id, time_id, model_id);
        if (condition != kReserved)
            release(run);
        // Other threads find the run once it is complete, or never.
        run_table[slot].store(condition == kReserved ? run : nullptr, std::memory_order_release);
    }
    if (condition != kReserved)
        return call.fails(condition);
    *run_id = slot;
    return call.status();
}

long kl_run_init_status(const long *run_id)
{
    return initialised_run(run_id) != nullptr ? 1 : 0;
}

namespace {

long status_of_kind(RunRecord *run, long kind)
{
    if (kind == KL_ID_RUN)
        return 1;
    // On purpose: of the kinds that the higher libraries attach only the first is known here.
    if (kind < KL_ID_RUN || kind > KL_RUN_SIBLING_KINDS[0])
        return 0;
    return KL_Id_init_status(slot_of_kind(run, kind));
}

} // namespace

long kl_run_id_status(const long *run_id, const long *kind)
{
    RunRecord *run = initialised_run(run_id);
    return run != nullptr && kind != nullptr ? status_of_kind(run, *kind) : 0;
}

long kl_run_get_ids(const long *run_id, long *sat_id, kl_time_id *time_id, kl_model_id *model_id)
{
    const RunRecord *run = initialised_run(run_id);
    if (run == nullptr || sat_id == nullptr || time_id == nullptr || model_id == nullptr)
        return -1;
    *sat_id = run->sat_id;
    time_id->record = run->time;
    model_id->record = run->model;
    return 0;
}

void kl_run_close(const long *run_id)
{
    RunRecord *run = initialised_run(run_id);
    if (run == nullptr)
        return;
    run_table[*run_id].store(nullptr, std::memory_order_release);
    release(run);
}

long KL_Run_get_init_type(const long *run_id)
{
    const RunRecord *run = initialised_run(run_id);
    return run != nullptr ? run->head.kind : 0;
}

long KL_Run_check_consistency(void *uses_list)
{
    const IdList uses(uses_list);
    for (const kl_id_record *used : uses)
        for (const kl_id_record *below : IdList(used->uses))
            if (!uses.contains(below))
                return 0;
    return 1;
}

long KL_Run_Generic_close(const long *run_id, long kind)
{
    RunRecord *run = initialised_run(run_id);
    // On purpose: the status knows the kinds 1 to 4, so the slots of the kinds from 7 on are never cleared.
    if (run == nullptr || status_of_kind(run, kind) == 0)
        return 0;
    if (kl_id_record **slot = slot_of_kind(run, kind))
        *slot = nullptr;
    kl_id_record *used = record_of(KL_Get_used_id(&run->head, kind));
    if (used == nullptr)
        return 0;
    forget_run(used, &run->head);
    IdList(run->head.uses).remove(used);
    return 1;
}
