// The Earth's orientation for many instants: the same numbers as the calls for one. Instants are prepared one by one,
// equal neighbours once; matrices are computed in packs and turn the states of a block.
#include "arrays/array_call.h"
#include "kl/arrays.h"
#include "orientation/frames_of_date.h"
#include "orientation/orientation.h"
#include "orientation/requests.h"

#include <cstring>

namespace {

struct Block {
    long n = 0; // different instants
    OrientationInstant instants[kBlock];
    double m[kBlock][9], rate[kBlock][9], acceleration[kBlock][9];
};

// The place of the instant of an element among those of the block; -1 leaves the element to the scalar call, which
// refuses it or warns.
long place_of(const OrientationRequest &request, const OrientationPath &path, const double *time, long k, long before,
              Block *block)
{
    if (k > 0 && std::memcmp(time + k, time + k - 1, sizeof *time) == 0)
        return before;
    OrientationInstant *instant = &block->instants[block->n];
    if (!prepared(request, time + k, instant) || status_of(path, instant->eop.notes) != KL_OK)
        return -1;
    return block->n++;
}

} // namespace

long kl_earth_orientation_get_n(kl_time_id *time_id, const long *n, const long *corrections, const long *time_ref,
                                const double *time, kl_earth_orientation *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_EARTH_ORIENTATION_GET, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = [&](long i) {
        if (out == nullptr)
            return;
        constexpr double nan = kNotANumber;
        out[i] = {nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, 0};
    };
    if (request_of(time_id, corrections, time_ref).correlation == nullptr || time == nullptr || out == nullptr)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *word) {
            return kl_earth_orientation_get(time_id, corrections, time_ref, time + i, out + i, word);
        },
        fail);
}

long kl_iers_matrix_n(kl_time_id *time_id, const long *n, const long *corrections, const long *cs_in,
                      const long *cs_out, const long *time_ref, const double *time, const long *calc_mode,
                      double r[][9], double dr[][9], double ddr[][9], long *status, long *ierr)
{
    ArrayCall array(KL_FN_IERS_MATRIX, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = [&](long i) {
        fill_nan(r, i);
        fill_nan(dr, i);
        fill_nan(ddr, i);
    };
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    if (request.correlation == nullptr || !is_frame(cs_in) || !is_frame(cs_out) || !is_mode(calc_mode)
        || time == nullptr || r == nullptr || dr == nullptr || ddr == nullptr)
        return array.refuse(fail);
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    const int order = static_cast<int>(*calc_mode - KL_CALC_POS);
    const auto one = [&](long i, long *word) {
        return kl_iers_matrix(time_id, corrections, cs_in, cs_out, time_ref, time + i, calc_mode, r[i], dr[i], ddr[i],
                              word);
    };
    Block block;
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        long place[kBlock];
        block.n = 0;
        for (long k = 0; k < count; ++k) {
            place[k] = place_of(request, path, time + first, k, k > 0 ? place[k - 1] : -1, &block);
            if (place[k] < 0)
                left.add(k);
        }
        orientation_matrices_kernel()(block.instants, block.n, path, order, block.m, block.rate, block.acceleration);
        for (long k = 0; k < count; ++k) {
            if (place[k] < 0)
                continue;
            const auto copy = [&](const double(&from)[9], bool wanted, double *to) {
                for (int i = 0; i < 9; ++i)
                    to[i] = wanted ? from[i] : 0.0;
            };
            copy(block.m[place[k]], true, r[first + k]);
            copy(block.rate[place[k]], order >= 1, dr[first + k]);
            copy(block.acceleration[place[k]], order >= 2, ddr[first + k]);
        }
        return true;
    });
}

long kl_iers_change_n(kl_time_id *time_id, const long *n, const long *corrections, const long *calc_mode,
                      const long *cs_in, const long *cs_out, const long *time_ref, const double *time,
                      const double pos[][3], const double vel[][3], const double acc[][3], double pos_out[][3],
                      double vel_out[][3], double acc_out[][3], long *status, long *ierr)
{
    ArrayCall array(KL_FN_IERS_CHANGE, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = [&](long i) {
        fill_nan(pos_out, i);
        fill_nan(vel_out, i);
        fill_nan(acc_out, i);
    };
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    if (request.correlation == nullptr || !is_mode(calc_mode) || !is_frame(cs_in) || !is_frame(cs_out)
        || time == nullptr || pos == nullptr || (*calc_mode >= KL_CALC_POS_VEL && vel == nullptr)
        || (*calc_mode == KL_CALC_POS_VEL_ACC && acc == nullptr) || pos_out == nullptr || vel_out == nullptr
        || acc_out == nullptr)
        return array.refuse(fail);
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    const int order = static_cast<int>(*calc_mode - KL_CALC_POS);
    const auto at = [](const double(*states)[3], long i) { return states != nullptr ? states[i] : nullptr; };
    const auto one = [&](long i, long *word) {
        return kl_iers_change(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, time + i, pos[i], at(vel, i),
                              at(acc, i), pos_out[i], vel_out[i], acc_out[i], word);
    };
    Block block;
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        long place[kBlock];
        block.n = 0;
        for (long k = 0; k < count; ++k) {
            place[k] = place_of(request, path, time + first, k, k > 0 ? place[k - 1] : -1, &block);
            if (place[k] < 0)
                left.add(k);
        }
        orientation_matrices_kernel()(block.instants, block.n, path, order, block.m, block.rate, block.acceleration);
        for (long k = 0; k < count; ++k) {
            if (place[k] < 0)
                continue;
            const long i = first + k;
            const long p = place[k];
            double state[3][1][3] = {};
            std::memcpy(state[0], pos[i], sizeof state[0]);
            if (order >= 1)
                std::memcpy(state[1], vel[i], sizeof state[1]);
            if (order >= 2)
                std::memcpy(state[2], acc[i], sizeof state[2]);
            turn_states_kernel()(block.m + p, block.rate + p, block.acceleration + p, 0, 1, order, state[0], state[1],
                                 state[2], state[0], state[1], state[2]);
            std::memcpy(pos_out[i], state[0], sizeof state[0]);
            std::memcpy(vel_out[i], state[1], sizeof state[1]);
            std::memcpy(acc_out[i], state[2], sizeof state[2]);
        }
        return true;
    });
}
