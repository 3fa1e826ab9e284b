#include "time/clocks/mission_clocks.h"

#include "time/instants.h"

#include <cmath>

namespace {

constexpr double kTurn = 4294967296.0;          // counts after which the Tarvos counter starts again
constexpr double kHalfTurn = 2147483648.0;      // 2^31
constexpr double kPerTurn = 1.0 / 4294967296.0; // 2^-32
constexpr double kPer65536 = 1.0 / 65536.0;     // 2^-16
constexpr double kPicosecondsPerDay = 8.64e16;
constexpr double kCountEnd = 18446744073709551616.0; // 2^64

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

long reading_size(long sat_id)
{
    return static_cast<long>(sat_id == KL_SAT_KELDA ? sizeof(kl_obt_kelda) : sizeof(kl_obt_tarvos));
}

void clear_reading(long sat_id, void *obt)
{
    if (sat_id == KL_SAT_KELDA) {
        static_cast<kl_obt_kelda *>(obt)->obt = NAN;
    } else { // the counts of the other three
        static_cast<kl_obt_tarvos *>(obt)->coarse = 0;
        static_cast<kl_obt_tarvos *>(obt)->fine = 0;
    }
}

double clock_to_time(long sat_id, const void *parameters, const void *obt)
{
    switch (sat_id) {
    case KL_SAT_TARVOS:
        return tarvos_to_time(*static_cast<const kl_obt_param_tarvos *>(parameters),
                              *static_cast<const kl_obt_tarvos *>(obt));
    case KL_SAT_KELDA:
        return kelda_to_time(*static_cast<const kl_obt_param_kelda *>(parameters),
                             *static_cast<const kl_obt_kelda *>(obt));
    case KL_SAT_BRISA:
        return brisa_to_time(*static_cast<const kl_obt_param_brisa *>(parameters),
                             *static_cast<const kl_obt_brisa *>(obt));
    default:
        return vardo_to_time(*static_cast<const kl_obt_param_vardo *>(parameters),
                             *static_cast<const kl_obt_vardo *>(obt));
    }
}

bool time_to_clock(long sat_id, const void *parameters, double time, void *obt)
{
    switch (sat_id) {
    case KL_SAT_TARVOS:
        return store(time_to_tarvos(*static_cast<const kl_obt_param_tarvos *>(parameters), time), kTurn,
                     static_cast<kl_obt_tarvos *>(obt));
    case KL_SAT_KELDA: {
        const double seconds = time_to_kelda(*static_cast<const kl_obt_param_kelda *>(parameters), time);
        if (!std::isfinite(seconds))
            return false;
        static_cast<kl_obt_kelda *>(obt)->obt = seconds;
        return true;
    }
    case KL_SAT_BRISA:
        return store(time_to_brisa(*static_cast<const kl_obt_param_brisa *>(parameters), time), 65536.0,
                     static_cast<kl_obt_brisa *>(obt));
    default:
        return store(time_to_vardo(*static_cast<const kl_obt_param_vardo *>(parameters), time), 65536.0,
                     static_cast<kl_obt_vardo *>(obt));
    }
}
