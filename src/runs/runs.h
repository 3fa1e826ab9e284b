// The run table. Runs stand above everything they group; the twins of run_twins.cpp above everything they call.
#ifndef KL_SRC_RUNS_RUNS_H
#define KL_SRC_RUNS_RUNS_H

#include "kl_family.h"

#include <atomic>

constexpr long KL_N_RUNS = 20;

// Kinds of id that the higher libraries attach to a run, in the order of their slots.
constexpr long KL_RUN_SIBLING_KINDS[] = {4, 7, 8, 9, 11, 12};

struct RunRecord {
    kl_id_record head; // mode: the run's own number; no mutex, no instances
    long sat_id;
    kl_id_record *model; // null when the run has no model id
    kl_id_record *time;
    kl_id_record *siblings[6];
};

// Reservation of slots is locked; a run is published once its record is complete, and read without a lock.
extern std::atomic<RunRecord *> run_table[KL_N_RUNS];

// The run of a number, null unless it is initialised.
inline RunRecord *initialised_run(const long *run_id)
{
    if (run_id == nullptr || static_cast<unsigned long>(*run_id) >= KL_N_RUNS)
        return nullptr;
    RunRecord *run = run_table[*run_id].load(std::memory_order_acquire);
    return run != nullptr && run->head.init_status == 1 ? run : nullptr;
}

#endif
