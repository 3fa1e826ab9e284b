// Kernels of the staircase: blocks of instants that stay inside their rows.
#ifndef KL_SRC_TIME_STAIRCASE_KERNELS_H
#define KL_SRC_TIME_STAIRCASE_KERNELS_H

#include "numbers/kernels.h"

struct MomentBlock {
    double days[kBlock], seconds[kBlock], microseconds[kBlock];
};

// RowValues of each instant.
struct RowBlock {
    double from[kBlock], from_end[kBlock], tai[kBlock], tai_end[kBlock];
    double tai_ut1[kBlock], tai_ut1_end[kBlock], tai_utc[kBlock], tai_gps[kBlock];
};

// RowValues of one row.
struct RowOfBlock {
    double from, from_end, tai, tai_end, tai_ut1, tai_ut1_end, tai_utc, tai_gps;
};

KL_KERNEL(moments_of_times, (const double *days, MomentBlock *moments, long count));
KL_KERNEL(times_of_moments, (const MomentBlock *moments, double *days, long count));
// In place; good[i] is 1, or 0 where the instant leaves its row.
KL_KERNEL(change_moments, (const RowBlock *rows, long from, long to, MomentBlock *moments, double *good, long count));
// The same with one row for all.
KL_KERNEL(change_moments_in_row,
          (const RowOfBlock *row, long from, long to, MomentBlock *moments, double *good, long count));

#endif
