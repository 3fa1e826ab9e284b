// Earth orientation after the IERS Conventions (2010): what the doors prepare and the kernels compute.
#ifndef KL_SRC_ORIENTATION_ORIENTATION_H
#define KL_SRC_ORIENTATION_ORIENTATION_H

#include "numbers/kernels.h"
#include "orientation/earth_orientation_values.h"

// An instant in TAI and TT: whole days (MJD2000) apart from their fractions.
template <class T>
struct OrientationTimes {
    T tai_day, tai_fraction, tt_day, tt_fraction;
};

// An instant as the kernels take it: what the correlation says of it, nothing of precession and nutation yet.
struct OrientationInstant {
    OrientationTimes<double> times;
    // Where a cubic serves, its four rows and what stands of the pole beside them, or null where nothing does: UT1 and
    // the values follow in the kernel.
    const kl_time_row *rows;
    const double (*poles)[4];
    EopValues eop;                // without rows; the notes always
    double ut1_day, ut1_fraction; // MJD2000
};

// What is known of the Earth at an instant: radians, seconds.
struct Orientation {
    double x_pole, y_pole, tai_ut1; // with the corrections that were asked for
    double cip_x, cip_y, s, s_prime, era;
};

// One path between two frames for one call. Ranks: FrameRank of frames_of_date.h.
struct OrientationPath {
    int from, to;
    long corrections;
};

// With `order` derivatives of what the correlation says. False where TT leaves the table of the pole.
bool orientation_instant(const Correlation &correlation, long scale, double time_days, int order,
                         OrientationInstant *out);

// Times of instants between rows, n of them, padded to whole packs: row[i] is the row before days[i] on its scale.
// False in `all` where one leaves its row in TAI, or TT the table of the pole.
KL_KERNEL(times_between_rows, (const double *days, const kl_time_row *const *row, long n, long scale,
                               OrientationInstant *instants, bool *all));

// Instants of a call are all with rows or all without.
// Matrices with `order` derivatives: m[i], rate[i], acceleration[i] of instant i, rows of three; derivatives beyond are
// zero.
KL_KERNEL(orientation_matrices, (const OrientationInstant *instants, long n, const OrientationPath &path, int order,
                                 double (*m)[9], double (*rate)[9], double (*acceleration)[9]));

KL_KERNEL(orientation_values, (const OrientationInstant *instants, long n, long corrections, Orientation *values));

// States through the matrices of one instant: r' = M r, v' = M v + M' r, a' = M a + 2 M' v + M'' r. What `order` does
// not reach is not read and comes out as zero. Outputs may be the inputs.
KL_KERNEL(turn_states, (const double (*m)[9], const double (*rate)[9], const double (*acceleration)[9], long n,
                        int order, const double (*pos)[3], const double (*vel)[3], const double (*acc)[3],
                        double (*pos_out)[3], double (*vel_out)[3], double (*acc_out)[3]));

// The same for state i at instant i.
KL_KERNEL(orientation_states, (const OrientationInstant *instants, long n, const OrientationPath &path, int order,
                               const double (*pos)[3], const double (*vel)[3], const double (*acc)[3],
                               double (*pos_out)[3], double (*vel_out)[3], double (*acc_out)[3]));

#endif
