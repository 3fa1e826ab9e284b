// The Earth's orientation for many instants: the same numbers as the calls for one. Instants are prepared one by one,
// equal neighbours once; matrices are computed in packs and turn the states of a block.
#include "arrays/array_call.h"
#include "kl/arrays.h"
#include "orientation/frames_of_date.h"
#include "orientation/orientation.h"
#include "orientation/requests.h"

#include <algorithm>

namespace {

struct Block {
    long n = 0; // different instants
    OrientationInstant instants[kBlock];
    double days[kBlock]; // of each on its scale, and the row before it
    const kl_time_row *row[kBlock];
    double m[kBlock][9], rate[kBlock][9], acceleration[kBlock][9];
    long place[kBlock]; // of the instant of each element among them; -1 leaves it to the scalar call, which refuses it
};

// Prepares the instants of a block, equal neighbours once: by the rows where they serve all of them, else by their
// values.
void prepare(const OrientationRequest &request, RowInstants *rows, const OrientationPath &path, const double *time,
             long count, int order, Block *block, LeftOver *left)
{
    const auto prepare_all = [&](bool to_the_end, const auto &prepares) {
        block->n = 0;
        for (long k = 0; k < count; ++k) {
            if (k > 0 && same_number(time[k], time[k - 1])) {
                block->place[k] = block->place[k - 1];
                continue;
            }
            const bool good = inside_processing_range(time[k]) && prepares(time[k], &block->instants[block->n]);
            if (!good && !to_the_end)
                return false;
            block->place[k] = good ? block->n++ : -1;
        }
        return true;
    };
    bool by_rows = prepare_all(false, [&](double days, OrientationInstant *out) {
        const bool good = rows->take_rows(days, out);
        block->days[block->n] = days;
        block->row[block->n] = rows->row();
        return good;
    });
    if (by_rows) {
        pad(block->days, block->n);
        std::fill(block->row + block->n, block->row + padded(block->n), block->row[block->n - 1]);
        times_between_rows_kernel()(block->days, block->row, block->n, request.scale, block->instants, &by_rows);
    }
    if (by_rows && status_of(path, rows->notes()) == KL_OK)
        return;
    if (!by_rows)
        prepare_all(true, [&](double days, OrientationInstant *out) {
            return orientation_instant(*request.correlation, request.scale, days, order, out);
        });
    for (long k = 0; k < count; ++k)
        if (block->place[k] < 0)
            left->add(k);
        else if (status_of(path, block->instants[block->place[k]].eop.notes) != KL_OK)
            left->warns(k);
}

} // namespace

long kl_earth_orientation_get_n(kl_time_id *time_id, const long *n, const long *corrections, const long *time_ref,
                                const double *time, kl_earth_orientation *out, long *status, long *ierr)
{
    ArrayCall array(KL_FN_EARTH_ORIENTATION_GET, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(out);
    if (request_of(time_id, corrections, time_ref).correlation == nullptr || time == nullptr || out == nullptr)
        return array.refuse(fail);
    return array.each(
        [&](long i, long *) { return earth_orientation_of_one(time_id, corrections, time_ref, time + i, out + i); },
        fail);
}

long kl_iers_matrix_n(kl_time_id *time_id, const long *n, const long *corrections, const long *cs_in,
                      const long *cs_out, const long *time_ref, const double *time, const long *calc_mode,
                      double r[][9], double dr[][9], double ddr[][9], long *status, long *ierr)
{
    ArrayCall array(KL_FN_IERS_MATRIX, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(r, dr, ddr);
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    if (request.correlation == nullptr || !is_frame(cs_in) || !is_frame(cs_out) || !is_mode(calc_mode)
        || time == nullptr || r == nullptr || dr == nullptr || ddr == nullptr)
        return array.refuse(fail);
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    const int order = order_of(*calc_mode);
    const auto one = [&](long i, long *) {
        return iers_matrix_of_one(time_id, corrections, cs_in, cs_out, time_ref, time + i, calc_mode, r[i], dr[i],
                                  ddr[i]);
    };
    Block block;
    RowInstants rows(*request.correlation, request.scale);
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        prepare(request, &rows, path, time + first, count, order, &block, &left);
        if (block.n == count) { // every element has its own
            orientation_matrices_kernel()(block.instants, count, path, order, r + first, dr + first, ddr + first);
            return true;
        }
        orientation_matrices_kernel()(block.instants, block.n, path, order, block.m, block.rate, block.acceleration);
        for (long k = 0; k < count; ++k) {
            const long p = block.place[k];
            if (p < 0)
                continue;
            std::copy_n(block.m[p], 9, r[first + k]);
            std::copy_n(block.rate[p], 9, dr[first + k]);
            std::copy_n(block.acceleration[p], 9, ddr[first + k]);
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
    const auto fail = fails_in(pos_out, vel_out, acc_out);
    const OrientationRequest request = request_of(time_id, corrections, time_ref);
    if (request.correlation == nullptr || !is_mode(calc_mode) || !is_frame(cs_in) || !is_frame(cs_out)
        || time == nullptr || pos == nullptr || (*calc_mode >= KL_CALC_POS_VEL && vel == nullptr)
        || (*calc_mode == KL_CALC_POS_VEL_ACC && acc == nullptr) || pos_out == nullptr || vel_out == nullptr
        || acc_out == nullptr)
        return array.refuse(fail);
    const OrientationPath path = path_of(*cs_in, *cs_out, request.corrections);
    const int order = order_of(*calc_mode);
    const auto at_or_null = [](const double(*states)[3], long i) { return states != nullptr ? states + i : nullptr; };
    const auto one = [&](long i, long *) {
        return iers_change_of_one(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, time + i, pos[i],
                                  element(vel, i), element(acc, i), pos_out[i], vel_out[i], acc_out[i]);
    };
    Block block;
    RowInstants rows(*request.correlation, request.scale);
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        prepare(request, &rows, path, time + first, count, order, &block, &left);
        if (block.n == count) { // every element has its own
            orientation_states_kernel()(block.instants, count, path, order, pos + first, at_or_null(vel, first),
                                        at_or_null(acc, first), pos_out + first, vel_out + first, acc_out + first);
            return true;
        }
        orientation_matrices_kernel()(block.instants, block.n, path, order, block.m, block.rate, block.acceleration);
        for (long k = 0; k < count;) {
            const long p = block.place[k];
            long end = k + 1;
            while (end < count && block.place[end] == p)
                ++end;
            const long i = first + k;
            if (p >= 0)
                turn_states_kernel()(block.m + p, block.rate + p, block.acceleration + p, end - k, order, pos + i,
                                     at_or_null(vel, i), at_or_null(acc, i), pos_out + i, vel_out + i, acc_out + i);
            k = end;
        }
        return true;
    });
}
