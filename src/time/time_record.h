// The record behind a time id: the head of every id, the flags of the once-only warnings, and a correlation.
#ifndef KL_SRC_TIME_TIME_RECORD_H
#define KL_SRC_TIME_TIME_RECORD_H

#include "kl_family.h"
#include "time/correlation.h"

#include <atomic>
#include <cstdint>

// Was the previous computation in the good region of each once-only warning? F1, F2, F3; relaxed.
struct OnceOnlyFlags {
    std::atomic<std::int32_t> was_inside[3];
};

struct TimeIdRecord {
    kl_id_record head;
    OnceOnlyFlags once_only[2]; // by KL_FLAGS_*
    Correlation correlation;    // its arrays are the record's, made by calloc or malloc
};

// The record of an initialised id, else null.
inline TimeIdRecord *time_record_of(const kl_time_id *time_id)
{
    if (time_id == nullptr || time_id->record == nullptr)
        return nullptr;
    TimeIdRecord *record = static_cast<TimeIdRecord *>(time_id->record);
    return record->head.init_status == 1 ? record : nullptr;
}

// Its correlation, or null.
inline const Correlation *correlation_of(const kl_time_id *time_id)
{
    const TimeIdRecord *record = time_record_of(time_id);
    return record != nullptr ? &record->correlation : nullptr;
}

// ---- from rows to an id: fault_of, complete, publish ----

// What is wrong with a correlation that somebody gives; null when it can be used.
const char *fault_of(const Correlation &given);
// Fills what follows from the rows: the leap second and the rows a day. False when its quarter cannot be found.
bool complete(Correlation *correlation);
// The same with arrays of its own, notes in any case; false, with nothing left over, when there is no memory.
bool copy_arrays(const Correlation &given, Correlation *own);
void free_arrays(Correlation *correlation);
// Gives a correlation with its arrays to a handle: to the record that it holds, or to a new one. The once-only flags
// start at 1. False, with the arrays still the caller's, when there is no memory.
bool publish(const Correlation &own, kl_time_id *time_id);
void free_time_record(TimeIdRecord *record);

#endif
