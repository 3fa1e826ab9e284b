// Time references: the checks of their numbers, and the map to the numbering of time records and back.
#include "errors/activation.h"
#include "time/instants.h"

#include <cmath>
#include <iterator>

namespace {

constexpr long kRecordReference[] = {KL_REF_TAI, KL_REF_UTC, KL_REF_UT1, KL_REF_GPS};     // by public reference
constexpr long kPublicReference[] = {KL_TIME_TAI, KL_TIME_UT1, KL_TIME_UTC, KL_TIME_GPS}; // from KL_REF_TAI on

} // namespace

long KL_Time_ref_enum_to_Time_enum(long ref)
{
    return is_time_ref(ref) ? kRecordReference[ref] : -1;
}

long KL_Time_enum_to_Time_ref_enum(int ref)
{
    return ref >= KL_REF_TAI && ref <= KL_REF_GPS ? kPublicReference[ref - KL_REF_TAI] : -1;
}

long KL_Check_time_ref(const long *ref, kl_error_record *error)
{
    Activation call(KL_FN_CHECK_TIME_REF, error);
    if (ref == nullptr || *ref < KL_TIME_UNDEF || *ref > KL_TIME_GPS)
        return call.fails(KL_CHECK_TIME_REF_NOT_CORRECT);
    return call.status();
}

// On purpose: KL_TIME_UNDEF is refused here and accepted above.
long KL_Check_time_ref_2(long ref)
{
    return is_time_ref(ref) ? 1 : 0;
}

double KL_round(double x)
{
    return std::floor(x + 0.5);
}
