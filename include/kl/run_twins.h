/**
 * @file run_twins.h
 * Functions that take a run in place of their leading ids.
 * Written by tools/api/generate.py from the table in api/.
 */
#ifndef KL_RUN_TWINS_H
#define KL_RUN_TWINS_H

#include "kl/bodies.h"
#include "kl/clocks.h"
#include "kl/formats.h"
#include "kl/frames.h"
#include "kl/orientation.h"
#include "kl/time.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Each is the function without _run, called with the ids of a run: same arguments, outputs, conditions, public function
 * id and status. Without such a run they return KL_ERR at once, with the error vector as it was and nothing printed;
 * only the two of the on-board clocks call on with satellite id -1, whose condition is then in the vector. A run
 * without a model id works with the default models.
 */

/** kl_sun with the model and time ids of a run. */
KL_API long kl_sun_run(const long *run_id, const long *time_ref, const double *time, double sun_pos[3],
                       double sun_vel[3], long *ierr);
/** kl_moon with the model and time ids of a run. */
KL_API long kl_moon_run(const long *run_id, const long *time_ref, const double *time, double moon_pos[3],
                        double moon_vel[3], long *ierr);
/** kl_planet with the model and time ids of a run. */
KL_API long kl_planet_run(const long *run_id, const long *planet_id, const long *time_ref, const double *time,
                          double planet_pos[3], double planet_vel[3], long *ierr);
/** kl_time_obt_to_time with the satellite id of a run. */
KL_API long kl_time_obt_to_time_run(const long *run_id, const long *time_ref, const void *parameters, const void *obt,
                                    double *time, long *ierr);
/** kl_time_time_to_obt with the satellite id of a run. */
KL_API long kl_time_time_to_obt_run(const long *run_id, const long *time_ref, const void *parameters,
                                    const double *time, void *obt, long *ierr);
/** kl_time_processing_to_processing with the time id of a run. */
KL_API long kl_time_processing_to_processing_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                                 const double *time_in, const long *proc_id_out,
                                                 const long *time_ref_out, double *time_out, long *ierr);
/** kl_time_ascii_to_ascii with the time id of a run. */
KL_API long kl_time_ascii_to_ascii_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                       const char *ascii_in, const long *ascii_id_out, const long *time_ref_out,
                                       char *ascii_out, long ierr[2]);
/** kl_time_ascii_to_processing with the time id of a run. */
KL_API long kl_time_ascii_to_processing_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                            const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                            double *time_out, long *ierr);
/** kl_time_ascii_to_transport with the time id of a run. */
KL_API long kl_time_ascii_to_transport_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                           const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                           long transport_out[4], long *ierr);
/** kl_time_processing_to_ascii with the time id of a run. */
KL_API long kl_time_processing_to_ascii_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                            const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                            char *ascii_out, long *ierr);
/** kl_time_processing_to_transport with the time id of a run. */
KL_API long kl_time_processing_to_transport_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                                const double *time_in, const long *trans_id_out,
                                                const long *time_ref_out, long transport_out[4], long *ierr);
/** kl_time_transport_to_ascii with the time id of a run. */
KL_API long kl_time_transport_to_ascii_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                           const long transport_in[4], const long *ascii_id_out,
                                           const long *time_ref_out, char *ascii_out, long *ierr);
/** kl_time_transport_to_processing with the time id of a run. */
KL_API long kl_time_transport_to_processing_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                                const long transport_in[4], const long *proc_id_out,
                                                const long *time_ref_out, double *time_out, long *ierr);
/** kl_time_transport_to_transport with the time id of a run. */
KL_API long kl_time_transport_to_transport_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                               const long transport_in[4], const long *trans_id_out,
                                               const long *time_ref_out, long transport_out[4], long *ierr);
/** kl_change_cart_cs with the model and time ids of a run. */
KL_API long kl_change_cart_cs_run(const long *run_id, const long *calc_mode, const long *cs_in, const long *cs_out,
                                  const long *time_ref, const double *time, const double pos[3], const double vel[3],
                                  const double acc[3], double pos_out[3], double vel_out[3], double acc_out[3],
                                  long *ierr);
/** kl_earth_orientation_get with the time id of a run. */
KL_API long kl_earth_orientation_get_run(const long *run_id, const long *corrections, const long *time_ref,
                                         const double *time, kl_earth_orientation *out, long *ierr);
/** kl_iers_matrix with the time id of a run. */
KL_API long kl_iers_matrix_run(const long *run_id, const long *corrections, const long *cs_in, const long *cs_out,
                               const long *time_ref, const double *time, const long *calc_mode, double r[9],
                               double dr[9], double ddr[9], long *ierr);
/** kl_iers_change with the time id of a run. */
KL_API long kl_iers_change_run(const long *run_id, const long *corrections, const long *calc_mode, const long *cs_in,
                               const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                               const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                               double acc_out[3], long *ierr);
/** kl_time_get_leap_second_info with the time id of a run. */
KL_API long kl_time_get_leap_second_info_run(const long *run_id, const long *ascii_id_out, long *leap_sign,
                                             char *utc_time_before, char *utc_time_after, long *ierr);

#ifdef __cplusplus
}
#endif

#endif
