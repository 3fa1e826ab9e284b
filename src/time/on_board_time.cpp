// On-board clocks: the four mission formats, to processing time and back.
#include "errors/message_groups.h"
#include "time/scales.h"

#include <cmath>

namespace {

constexpr Message kToTimeRows[] = {
    /* KL_TIME_OBT_TO_TIME_SAT_ID_ERR     */ error("Satellite ID is not correct"),
    /* KL_TIME_OBT_TO_TIME_TIME_REF_ERR   */ error("Time reference ID is not correct"),
    /* KL_TIME_OBT_TO_TIME_TAG_ERR        */
    error("Satellite ID of the parameters or of the on-board time differs from the input satellite ID"),
    /* KL_TIME_OBT_TO_TIME_REF_TIME_ERR   */ error("Reference time is out of range"),
    /* KL_TIME_OBT_TO_TIME_NO_OBT_ERR     */ error("No on-board time for this satellite"),
    /* KL_TIME_OBT_TO_TIME_OBT_ERR        */ error("On-board time is out of range"), // never recorded
    /* KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR */ error("Clock step is zero"),
    /* KL_TIME_OBT_TO_TIME_TIME_ERR       */ error("Output time is out of range"),
};
constexpr Message kToObtRows[] = {
    /* KL_TIME_TIME_TO_OBT_SAT_ID_ERR     */ error("Satellite ID is not correct"),
    /* KL_TIME_TIME_TO_OBT_TIME_REF_ERR   */ error("Time reference ID is not correct"),
    /* KL_TIME_TIME_TO_OBT_TAG_ERR        */
    error("Satellite ID of the parameters or of the on-board time differs from the input satellite ID"),
    /* KL_TIME_TIME_TO_OBT_TIME_ERR       */ error("Input time is out of range"),
    /* KL_TIME_TIME_TO_OBT_REF_TIME_ERR   */ error("Reference time is out of range"),
    /* KL_TIME_TIME_TO_OBT_NO_OBT_ERR     */ error("No on-board time for this satellite"),
    /* KL_TIME_TIME_TO_OBT_OBT_ERR        */ error("On-board time is out of range"),
    /* KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR */ error("Clock step is zero"),
};
constexpr CodeMap kToTimeReference[] = {
    {KL_CHECK_IN_FORMAT, KL_TIME_OBT_TO_TIME_TIME_REF_ERR},
    {KL_CHECK_IN_REF, KL_TIME_OBT_TO_TIME_TIME_REF_ERR},
    {KL_CHECK_IN_DAYS, KL_TIME_OBT_TO_TIME_REF_TIME_ERR},
};
constexpr CodeMap kToObtInput[] = {
    {KL_CHECK_IN_FORMAT, KL_TIME_TIME_TO_OBT_TIME_REF_ERR},
    {KL_CHECK_IN_REF, KL_TIME_TIME_TO_OBT_TIME_REF_ERR},
    {KL_CHECK_IN_DAYS, KL_TIME_TIME_TO_OBT_TIME_ERR},
};

// Satellites with a format of their own.
constexpr long kTarvos = 21;
constexpr long kVardo = 51;
constexpr long kKelda = 61;
constexpr long kBrisa = 71;
constexpr long kNoSatellite = -1;

constexpr double kTurn = 4294967296.0;          // counts after which the Tarvos counter starts again
constexpr double kHalfTurn = 2147483648.0;      // 2^31
constexpr double kPerTurn = 1.0 / 4294967296.0; // 2^-32
constexpr double kPer65536 = 1.0 / 65536.0;     // 2^-16
constexpr double kPicosecondsPerDay = 8.64e16;
constexpr double kCountEnd = 18446744073709551616.0; // 2^64

bool has_format(long sat_id)
{
    return sat_id == kTarvos || sat_id == kKelda || sat_id == kBrisa || sat_id == kVardo;
}

// Every record of a clock begins with the id of its satellite.
bool is_tagged(const void *record, long sat_id)
{
    return record != nullptr && *static_cast<const long *>(record) == sat_id;
}

double gps_week_days(unsigned long week)
{
    return 7.0 * static_cast<double>(week) + static_cast<double>(KL_GPS_EPOCH_DAY);
}

// coarse + fine counts, brought to at most half a turn by whole turns: what taking one turn after the other away would
// leave, so that half a turn of either sign stays. The parts are kept apart as long as they can be: a sum would lose
// the last bits of `fine`.
double wrapped_difference(double coarse, double fine)
{
    const double carry = std::floor(fine);
    coarse = std::fmod(coarse + carry, kTurn); // exact, with the sign of the whole difference
    fine -= carry;
    if (coarse >= 0.0 && coarse - kHalfTurn + fine > 0.0)
        coarse -= kTurn;
    else if (coarse < 0.0 && coarse + kHalfTurn + fine < 0.0)
        coarse += kTurn;
    return coarse + fine;
}

struct Counts {
    double coarse, fine; // whole counts, and a fraction of one
};

// Whole and fractional part of the sum of whole counts and a fraction.
Counts carried(double coarse, double fine)
{
    const double carry = std::floor(fine);
    return {coarse + carry, fine - carry};
}

// ---- to time: MJD2000 days ----

double tarvos_to_time(const kl_obt_param_tarvos &ref, const kl_obt_tarvos &obt)
{
    const double coarse = static_cast<double>(obt.coarse) - static_cast<double>(ref.ref_coarse);
    const double fine = (static_cast<double>(obt.fine) - static_cast<double>(ref.ref_fine)) * kPerTurn;
    return wrapped_difference(coarse, fine) * static_cast<double>(ref.clock_step) / kPicosecondsPerDay + ref.ref_time;
}

double kelda_ref_time(const kl_obt_param_kelda &ref) // s
{
    return static_cast<double>(ref.ref_time) + ref.ref_time_fraction * kPer65536;
}

double kelda_ref_obt(const kl_obt_param_kelda &ref) // s
{
    return static_cast<double>(ref.ref_obt) + ref.ref_obt_fraction * kPer65536;
}

double kelda_to_time(const kl_obt_param_kelda &ref, const kl_obt_kelda &obt)
{
    return (kelda_ref_time(ref) + ((obt.obt - kelda_ref_obt(ref)) * ref.gain + ref.offset)) / KL_SECONDS_PER_DAY;
}

double brisa_seconds(const kl_obt_param_brisa &ref) // of the week
{
    return static_cast<double>(ref.seconds_of_week) + static_cast<double>(ref.fraction) * kPer65536
           - static_cast<double>(ref.offset);
}

double brisa_to_time(const kl_obt_param_brisa &ref, const kl_obt_brisa &obt)
{
    const double d = static_cast<double>(obt.coarse) - static_cast<double>(ref.ref_coarse)
                     + (static_cast<double>(obt.fine) - static_cast<double>(ref.ref_fine)) * kPer65536;
    return gps_week_days(ref.week) + (brisa_seconds(ref) + d) / KL_SECONDS_PER_DAY;
}

double vardo_to_time(const kl_obt_param_vardo &ref, const kl_obt_vardo &obt)
{
    return (static_cast<double>(obt.coarse) + static_cast<double>(obt.fine) * kPer65536
            - static_cast<double>(ref.offset))
               / KL_SECONDS_PER_DAY
           + static_cast<double>(KL_GPS_EPOCH_DAY);
}

// ---- from time ----

Counts time_to_tarvos(const kl_obt_param_tarvos &ref, double time)
{
    const double since = (time - ref.ref_time) * kPicosecondsPerDay / static_cast<double>(ref.clock_step);
    const double whole = std::floor(since);
    Counts counts = carried(whole, static_cast<double>(ref.ref_fine) * kPerTurn + (since - whole));
    counts.coarse = std::fmod(counts.coarse + static_cast<double>(ref.ref_coarse), kTurn);
    if (counts.coarse < 0.0)
        counts.coarse += kTurn;
    return counts;
}

double time_to_kelda(const kl_obt_param_kelda &ref, double time)
{
    if (ref.gain == 0.0)
        return NAN; // a clock that stands has no reading
    return kelda_ref_obt(ref) + (KL_SECONDS_PER_DAY * time - kelda_ref_time(ref) - ref.offset) / ref.gain;
}

// The two counters of seconds and 2^-16 s. Seconds are counted from a whole day, where days lose nothing.
Counts time_to_brisa(const kl_obt_param_brisa &ref, double time)
{
    const double since = (time - gps_week_days(ref.week)) * KL_SECONDS_PER_DAY - brisa_seconds(ref);
    const double whole = std::floor(since);
    const Counts counts = carried(whole, static_cast<double>(ref.ref_fine) * kPer65536 + (since - whole));
    return {counts.coarse + static_cast<double>(ref.ref_coarse), counts.fine};
}

Counts time_to_vardo(const kl_obt_param_vardo &ref, double time)
{
    const double seconds = (time - static_cast<double>(KL_GPS_EPOCH_DAY)) * KL_SECONDS_PER_DAY;
    const double whole = std::floor(seconds);
    return {whole + static_cast<double>(ref.offset), seconds - whole};
}

// Fine counts are cut, not rounded. False when the coarse count does not fit its field.
bool store(const Counts &counts, double fine_scale, kl_obt_tarvos *obt)
{
    if (!(counts.coarse >= 0.0 && counts.coarse < kCountEnd))
        return false;
    obt->coarse = static_cast<unsigned long>(counts.coarse);
    obt->fine = static_cast<unsigned long>(counts.fine * fine_scale);
    return true;
}

} // namespace

const MessageGroup messages_kl_time_obt_to_time = group(kToTimeRows);
const MessageGroup messages_kl_time_time_to_obt = group(kToObtRows);

long kl_time_obt_to_time(const long *sat_id, const long *time_ref, const void *parameters, const void *obt,
                         double *time, long *ierr)
{
    Activation call(KL_FN_TIME_OBT_TO_TIME, ierr);
    const long satellite = value_or(sat_id, kNoSatellite);
    if (KL_Check_sat_id(&satellite, nullptr) != KL_OK)
        return call.fails(KL_TIME_OBT_TO_TIME_SAT_ID_ERR);
    if (!is_tagged(parameters, satellite) || !is_tagged(obt, satellite))
        return call.fails(KL_TIME_OBT_TO_TIME_TAG_ERR);
    if (!has_format(satellite))
        return call.fails(KL_TIME_OBT_TO_TIME_NO_OBT_ERR);
    // The Tarvos format alone has a reference time in days; the check of the others concerns the scale.
    const auto *tarvos = static_cast<const kl_obt_param_tarvos *>(parameters);
    const double ref_time = satellite == kTarvos ? tarvos->ref_time : 0.0;
    ErrorRecord check;
    if (KL_Time_check_processing_inputs(KL_PROC, value_or(time_ref, KL_TIME_UNDEF), &ref_time, &check) != KL_OK
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, kToTimeReference))
        return KL_ERR;
    if (satellite == kTarvos && tarvos->clock_step == 0)
        return call.fails(KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR);
    if (time == nullptr)
        return KL_ERR;

    double result = 0.0;
    switch (satellite) {
    case kTarvos:
        result = tarvos_to_time(*tarvos, *static_cast<const kl_obt_tarvos *>(obt));
        break;
    case kKelda:
        result = kelda_to_time(*static_cast<const kl_obt_param_kelda *>(parameters),
                               *static_cast<const kl_obt_kelda *>(obt));
        break;
    case kBrisa:
        result = brisa_to_time(*static_cast<const kl_obt_param_brisa *>(parameters),
                               *static_cast<const kl_obt_brisa *>(obt));
        break;
    default:
        result = vardo_to_time(*static_cast<const kl_obt_param_vardo *>(parameters),
                               *static_cast<const kl_obt_vardo *>(obt));
        break;
    }
    if (!inside_processing_range(result))
        return call.fails(KL_TIME_OBT_TO_TIME_TIME_ERR);
    *time = result;
    return call.status();
}

long kl_time_time_to_obt(const long *sat_id, const long *time_ref, const void *parameters, const double *time,
                         void *obt, long *ierr)
{
    Activation call(KL_FN_TIME_TIME_TO_OBT, ierr);
    const long satellite = value_or(sat_id, kNoSatellite);
    if (KL_Check_sat_id(&satellite, nullptr) != KL_OK)
        return call.fails(KL_TIME_TIME_TO_OBT_SAT_ID_ERR);
    if (!is_tagged(parameters, satellite) || !is_tagged(obt, satellite))
        return call.fails(KL_TIME_TIME_TO_OBT_TAG_ERR);
    if (!has_format(satellite))
        return call.fails(KL_TIME_TIME_TO_OBT_NO_OBT_ERR);
    const long ref = value_or(time_ref, KL_TIME_UNDEF);
    ErrorRecord check;
    if (KL_Time_check_processing_inputs(KL_PROC, ref, time, &check) != KL_OK
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, kToObtInput))
        return KL_ERR;
    const auto *tarvos = static_cast<const kl_obt_param_tarvos *>(parameters);
    if (satellite == kTarvos && KL_Time_check_processing_inputs(KL_PROC, ref, &tarvos->ref_time, nullptr) != KL_OK)
        return call.fails(KL_TIME_TIME_TO_OBT_REF_TIME_ERR);
    if (satellite == kTarvos && tarvos->clock_step == 0)
        return call.fails(KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR);

    bool fits = false;
    switch (satellite) {
    case kTarvos:
        fits = store(time_to_tarvos(*tarvos, *time), kTurn, static_cast<kl_obt_tarvos *>(obt));
        break;
    case kKelda: {
        const double seconds = time_to_kelda(*static_cast<const kl_obt_param_kelda *>(parameters), *time);
        fits = std::isfinite(seconds);
        if (fits)
            static_cast<kl_obt_kelda *>(obt)->obt = seconds;
        break;
    }
    case kBrisa:
        fits = store(time_to_brisa(*static_cast<const kl_obt_param_brisa *>(parameters), *time), 65536.0,
                     static_cast<kl_obt_brisa *>(obt));
        break;
    default:
        fits = store(time_to_vardo(*static_cast<const kl_obt_param_vardo *>(parameters), *time), 65536.0,
                     static_cast<kl_obt_vardo *>(obt));
        break;
    }
    if (!fits)
        return call.fails(KL_TIME_TIME_TO_OBT_OBT_ERR);
    return call.status();
}
