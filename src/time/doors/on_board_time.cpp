// On-board clocks: the four mission formats, to processing time and back.
#include "arrays/array_call.h"
#include "satellites/satellites.h"
#include "time/clocks/mission_clocks.h"
#include "time/doors/checks.h"

namespace {

// Conditions of the processing check, by their numbers there.
constexpr int kToTimeInput[] = {KL_TIME_OBT_TO_TIME_TIME_REF_ERR, KL_TIME_OBT_TO_TIME_TIME_REF_ERR,
                                KL_TIME_OBT_TO_TIME_REF_TIME_ERR};
constexpr int kToObtInput[] = {KL_TIME_TIME_TO_OBT_TIME_REF_ERR, KL_TIME_TIME_TO_OBT_TIME_REF_ERR,
                               KL_TIME_TIME_TO_OBT_TIME_ERR};

constexpr long kNoSatellite = -1;

// Every record of a clock begins with the id of its satellite.
bool is_tagged(const void *record, long sat_id)
{
    return record != nullptr && *static_cast<const long *>(record) == sat_id;
}

// The processing check, with its line.
Fault checked(long ref, const double *time)
{
    const Fault fault = check_processing_input(KL_PROC, ref, time);
    if (fault)
        print_fault(KL_FN_TIME_CHECK_PROCESSING_INPUTS, fault);
    return fault;
}

// What does not depend on a reading: the satellite, its parameters, the scale. KL_OK, or KL_ERR with the condition
// recorded.
long check_to_time(Activation &call, long satellite, long ref, const void *parameters, bool obt_is_tagged)
{
    if (!checked_satellite(&satellite))
        return call.fails(KL_TIME_OBT_TO_TIME_SAT_ID_ERR);
    if (!is_tagged(parameters, satellite) || !obt_is_tagged)
        return call.fails(KL_TIME_OBT_TO_TIME_TAG_ERR);
    if (!has_clock(satellite))
        return call.fails(KL_TIME_OBT_TO_TIME_NO_OBT_ERR);
    // The Tarvos format alone has a reference time in days; the check of the others concerns the scale.
    const auto *tarvos = static_cast<const kl_obt_param_tarvos *>(parameters);
    const double ref_time = satellite == KL_SAT_TARVOS ? tarvos->ref_time : 0.0;
    if (const Fault fault = checked(ref, &ref_time))
        return call.fails(kToTimeInput[fault.code]);
    if (satellite == KL_SAT_TARVOS && tarvos->clock_step == 0)
        return call.fails(KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR);
    return KL_OK;
}

long to_time(Activation &call, long satellite, const void *parameters, const void *obt, double *time)
{
    const double result = clock_to_time(satellite, parameters, obt);
    if (!inside_processing_range(result))
        return call.fails(KL_TIME_OBT_TO_TIME_TIME_ERR);
    *time = result;
    return call.status();
}

long check_to_obt(Activation &call, long satellite, long ref, const void *parameters, const double *time,
                  bool obt_is_tagged)
{
    if (!checked_satellite(&satellite))
        return call.fails(KL_TIME_TIME_TO_OBT_SAT_ID_ERR);
    if (!is_tagged(parameters, satellite) || !obt_is_tagged)
        return call.fails(KL_TIME_TIME_TO_OBT_TAG_ERR);
    if (!has_clock(satellite))
        return call.fails(KL_TIME_TIME_TO_OBT_NO_OBT_ERR);
    if (const Fault fault = checked(ref, time))
        return call.fails(kToObtInput[fault.code]);
    const auto *tarvos = static_cast<const kl_obt_param_tarvos *>(parameters);
    if (satellite == KL_SAT_TARVOS && checked(ref, &tarvos->ref_time))
        return call.fails(KL_TIME_TIME_TO_OBT_REF_TIME_ERR);
    if (satellite == KL_SAT_TARVOS && tarvos->clock_step == 0)
        return call.fails(KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR);
    return KL_OK;
}

} // namespace

long kl_time_obt_to_time(const long *sat_id, const long *time_ref, const void *parameters, const void *obt,
                         double *time, long *ierr)
{
    Activation call(KL_FN_TIME_OBT_TO_TIME, ierr);
    const long satellite = value_or(sat_id, kNoSatellite);
    if (check_to_time(call, satellite, value_or(time_ref, KL_TIME_UNDEF), parameters, is_tagged(obt, satellite))
            == KL_ERR
        || time == nullptr)
        return KL_ERR;
    return to_time(call, satellite, parameters, obt, time);
}

long kl_time_obt_to_time_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters,
                           const void *obt, double *time, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_OBT_TO_TIME, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(time);
    const long satellite = value_or(sat_id, kNoSatellite);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    if (check_to_time(array.call(), satellite, ref, parameters, obt != nullptr) == KL_ERR || time == nullptr)
        return array.refuse(fail);
    const auto *readings = static_cast<const unsigned char *>(obt);
    const long size = reading_size(satellite);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_TIME_OBT_TO_TIME, word);
            const void *reading = readings + i * size;
            if (!is_tagged(reading, satellite))
                return call.fails(KL_TIME_OBT_TO_TIME_TAG_ERR);
            return to_time(call, satellite, parameters, reading, time + i);
        },
        fail);
}

long kl_time_time_to_obt(const long *sat_id, const long *time_ref, const void *parameters, const double *time,
                         void *obt, long *ierr)
{
    Activation call(KL_FN_TIME_TIME_TO_OBT, ierr);
    const long satellite = value_or(sat_id, kNoSatellite);
    if (check_to_obt(call, satellite, value_or(time_ref, KL_TIME_UNDEF), parameters, time, is_tagged(obt, satellite))
        == KL_ERR)
        return KL_ERR;
    if (!time_to_clock(satellite, parameters, *time, obt))
        return call.fails(KL_TIME_TIME_TO_OBT_OBT_ERR);
    return call.status();
}

long kl_time_time_to_obt_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters,
                           const double *time, void *obt, long *status, long *ierr)
{
    ArrayCall array(KL_FN_TIME_TIME_TO_OBT, n, status, ierr);
    if (array.nothing())
        return array.result();
    const long satellite = value_or(sat_id, kNoSatellite);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    auto *readings = static_cast<unsigned char *>(obt);
    const long size = has_clock(satellite) ? reading_size(satellite) : 0;
    const auto fail = [&](long i) {
        if (readings != nullptr && size != 0)
            clear_reading(satellite, readings + i * size);
    };
    constexpr double kAnyTime = 0.0;
    if (check_to_obt(array.call(), satellite, ref, parameters, time != nullptr ? &kAnyTime : nullptr, obt != nullptr)
        == KL_ERR)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            Activation call(KL_FN_TIME_TIME_TO_OBT, word);
            void *reading = readings + i * size;
            if (!is_tagged(reading, satellite))
                return call.fails(KL_TIME_TIME_TO_OBT_TAG_ERR);
            if (const Fault fault = checked(ref, time + i))
                return call.fails(kToObtInput[fault.code]);
            if (!time_to_clock(satellite, parameters, time[i], reading))
                return call.fails(KL_TIME_TIME_TO_OBT_OBT_ERR);
            return call.status();
        },
        fail);
}
