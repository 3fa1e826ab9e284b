// The public frame change.
#include "errors/activation.h"
#include "frames/frames.h"
#include "time/scales.h"

#include <iterator>

namespace {

constexpr CodeMap kInput[] = {
    {KL_CHECK_IN_REF, KL_CHANGE_CART_CS_TIME_REF_ERR},
    {KL_CHECK_IN_DAYS, KL_CHANGE_CART_CS_DATE_ERR},
};

bool inside(const long *value, long first, long last)
{
    return value != nullptr && first <= *value && *value <= last;
}

} // namespace

long kl_change_cart_cs(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs_in,
                       const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                       const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                       double acc_out[3], long *ierr)
{
    Activation call(KL_FN_CHANGE_CART_CS, ierr);

    ErrorRecord check;
    const long ref = time_ref != nullptr ? *time_ref : long{KL_TIME_UNDEF};
    if (KL_Time_check_processing_inputs(KL_PROC, ref, time, &check) != 0
        && call.stops(KL_FN_TIME_CHECK_PROCESSING_INPUTS, check, kInput))
        return KL_ERR;
    if (!inside(calc_mode, KL_CALC_POS, KL_CALC_POS_VEL_ACC))
        return call.fails(KL_CHANGE_CART_CS_CALC_MODE_ERR);
    // The internal frames above KL_TEME are not offered here.
    if (!inside(cs_in, KL_BM2000, KL_TEME))
        return call.fails(KL_CHANGE_CART_CS_CS_IN_ERR);
    if (!inside(cs_out, KL_BM2000, KL_TEME))
        return call.fails(KL_CHANGE_CART_CS_CS_OUT_ERR);
    if (pos == nullptr || vel == nullptr || acc == nullptr || pos_out == nullptr || vel_out == nullptr
        || acc_out == nullptr)
        return KL_ERR;

    kl_time_record ut1 = {KL_REF_UT1, KL_FORMAT_MJD2000, 0.0};
    if (KL_Get_time_in_ref(time_id, ref, KL_TIME_UT1, &ut1.value, nullptr, *time) == KL_ERR)
        return call.fails(KL_CHANGE_CART_CS_TIME_ID_ERR);

    // On purpose: the whole state is carried, whatever the mode.
    double vectors[3][4];
    Cord state = {0, 0, vectors[0], vectors[1], vectors[2]};
    KL_Cord_Set(*cs_in, 2, pos, vel, acc, &state);
    ErrorRecord chain;
    if (KL_Change_CoordinateSystem(model_id, time_id, 2, &ut1, &state, *cs_out, &state, &chain) == KL_ERR) {
        const bool launch = recorded(KL_FN_CHANGE_COORDINATE_SYSTEM, KL_CHAIN_LIF, chain);
        return call.fails(launch ? KL_CHANGE_CART_CS_LIF_ERR : KL_CHANGE_CART_CS_TRANSFORMATION_ERR);
    }
    constexpr double kZero[3] = {0.0, 0.0, 0.0};
    copy_three(state.pos + 1, pos_out);
    copy_three(*calc_mode >= KL_CALC_POS_VEL ? state.vel + 1 : kZero, vel_out);
    copy_three(*calc_mode == KL_CALC_POS_VEL_ACC ? state.acc + 1 : kZero, acc_out);

    double tai = 0.0;
    if (KL_Get_time_in_ref(time_id, ref, KL_TIME_TAI, &tai, nullptr, *time) == KL_ERR)
        return call.fails(KL_CHANGE_CART_CS_TAI_ERR);
    kl_std_record instant;
    KL_Time_p2t_format_to_std(time_id, KL_TIME_TAI, &tai, &instant, nullptr);
    const long flags = KL_FLAGS_FRAME_CHANGE;
    long warned = 0;
    KL_Check_Time_warn_flags(time_id, &instant, &flags, &warned);
    if (warned != 0)
        call.warns(static_cast<int>(KL_CHANGE_CART_CS_FORMULA_WARN + warned - 1));
    return call.status();
}
