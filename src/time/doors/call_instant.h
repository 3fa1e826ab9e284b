// The instant of a call on the scales that a place in the sky needs, and the warnings that come with it.
#ifndef KL_SRC_TIME_DOORS_CALL_INSTANT_H
#define KL_SRC_TIME_DOORS_CALL_INSTANT_H

#include "time/scales.h"

struct CallInstant {
    double tai, tdb;     // MJD2000, days
    kl_time_record date; // for the frame chain: UT1, or TAI where there is no time id
};

// False without a time id that can tell. With `tai_is_enough` an instant of TAI needs none.
inline bool instant_of_call(kl_time_id *time_id, long ref, double days, bool tai_is_enough, CallInstant *out)
{
    double ut1 = 0.0;
    if (KL_Get_time_in_ref(time_id, ref, KL_TIME_TAI, &out->tai, nullptr, days) == KL_ERR)
        return false;
    KL_Time_p2p_ref_tai_to_tdb(&out->tai, &out->tdb);
    if (tai_is_enough && ref == KL_TIME_TAI && KL_Id_init_status(time_id) == 0) {
        out->date = {KL_REF_TAI, KL_FORMAT_MJD2000, out->tai};
        return true;
    }
    if (KL_Get_time_in_ref(time_id, ref, KL_TIME_UT1, &ut1, nullptr, days) == KL_ERR)
        return false;
    out->date = {KL_REF_UT1, KL_FORMAT_MJD2000, ut1};
    return true;
}

// The once-only warning of a frame change at the instant, 1 to 3, or 0.
inline long warning_of_call(kl_time_id *time_id, const CallInstant &instant)
{
    kl_std_record tai;
    KL_Time_p2t_format_to_std(time_id, KL_TIME_TAI, &instant.tai, &tai, nullptr);
    const long flags = KL_FLAGS_FRAME_CHANGE;
    long warned = 0;
    KL_Check_Time_warn_flags(time_id, &tai, &flags, &warned);
    return warned;
}

#endif
