// The twins of public functions that take a run in place of their leading ids.
// Written by tools/api/generate.py from the table in api/.
#include "runs/with_run.h"

// clang-format off

long kl_sun_run(const long *run_id, const long *time_ref, const double *time, double sun_pos[3], double sun_vel[3],
                long *ierr)
{
    return with_run(run_id, [=](kl_model_id *model_id, kl_time_id *time_id) {
        return kl_sun(model_id, time_id, time_ref, time, sun_pos, sun_vel, ierr);
    });
}

long kl_moon_run(const long *run_id, const long *time_ref, const double *time, double moon_pos[3], double moon_vel[3],
                 long *ierr)
{
    return with_run(run_id, [=](kl_model_id *model_id, kl_time_id *time_id) {
        return kl_moon(model_id, time_id, time_ref, time, moon_pos, moon_vel, ierr);
    });
}

long kl_planet_run(const long *run_id, const long *planet_id, const long *time_ref, const double *time,
                   double planet_pos[3], double planet_vel[3], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *model_id, kl_time_id *time_id) {
        return kl_planet(model_id, time_id, planet_id, time_ref, time, planet_pos, planet_vel, ierr);
    });
}

long kl_time_obt_to_time_run(const long *run_id, const long *time_ref, const void *parameters, const void *obt,
                             double *time, long *ierr)
{
    const long sat_id = satellite_of(run_id);
    return kl_time_obt_to_time(&sat_id, time_ref, parameters, obt, time, ierr);
}

long kl_time_time_to_obt_run(const long *run_id, const long *time_ref, const void *parameters, const double *time,
                             void *obt, long *ierr)
{
    const long sat_id = satellite_of(run_id);
    return kl_time_time_to_obt(&sat_id, time_ref, parameters, time, obt, ierr);
}

long kl_time_processing_to_processing_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                          const double *time_in, const long *proc_id_out, const long *time_ref_out,
                                          double *time_out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_processing_to_processing(time_id, proc_id_in, time_ref_in, time_in, proc_id_out, time_ref_out,
                                                time_out, ierr);
    });
}

long kl_time_ascii_to_ascii_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                const char *ascii_in, const long *ascii_id_out, const long *time_ref_out,
                                char *ascii_out, long ierr[2])
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_ascii_to_ascii(time_id, ascii_id_in, time_ref_in, ascii_in, ascii_id_out, time_ref_out,
                                      ascii_out, ierr);
    });
}

long kl_time_ascii_to_processing_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                     const char *ascii_in, const long *proc_id_out, const long *time_ref_out,
                                     double *time_out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_ascii_to_processing(time_id, ascii_id_in, time_ref_in, ascii_in, proc_id_out, time_ref_out,
                                           time_out, ierr);
    });
}

long kl_time_ascii_to_transport_run(const long *run_id, const long *ascii_id_in, const long *time_ref_in,
                                    const char *ascii_in, const long *trans_id_out, const long *time_ref_out,
                                    long transport_out[4], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_ascii_to_transport(time_id, ascii_id_in, time_ref_in, ascii_in, trans_id_out, time_ref_out,
                                          transport_out, ierr);
    });
}

long kl_time_processing_to_ascii_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                     const double *time_in, const long *ascii_id_out, const long *time_ref_out,
                                     char *ascii_out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_processing_to_ascii(time_id, proc_id_in, time_ref_in, time_in, ascii_id_out, time_ref_out,
                                           ascii_out, ierr);
    });
}

long kl_time_processing_to_transport_run(const long *run_id, const long *proc_id_in, const long *time_ref_in,
                                         const double *time_in, const long *trans_id_out, const long *time_ref_out,
                                         long transport_out[4], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_processing_to_transport(time_id, proc_id_in, time_ref_in, time_in, trans_id_out, time_ref_out,
                                               transport_out, ierr);
    });
}

long kl_time_transport_to_ascii_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                    const long transport_in[4], const long *ascii_id_out, const long *time_ref_out,
                                    char *ascii_out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_transport_to_ascii(time_id, trans_id_in, time_ref_in, transport_in, ascii_id_out, time_ref_out,
                                          ascii_out, ierr);
    });
}

long kl_time_transport_to_processing_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                         const long transport_in[4], const long *proc_id_out, const long *time_ref_out,
                                         double *time_out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_transport_to_processing(time_id, trans_id_in, time_ref_in, transport_in, proc_id_out,
                                               time_ref_out, time_out, ierr);
    });
}

long kl_time_transport_to_transport_run(const long *run_id, const long *trans_id_in, const long *time_ref_in,
                                        const long transport_in[4], const long *trans_id_out, const long *time_ref_out,
                                        long transport_out[4], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_transport_to_transport(time_id, trans_id_in, time_ref_in, transport_in, trans_id_out,
                                              time_ref_out, transport_out, ierr);
    });
}

long kl_change_cart_cs_run(const long *run_id, const long *calc_mode, const long *cs_in, const long *cs_out,
                           const long *time_ref, const double *time, const double pos[3], const double vel[3],
                           const double acc[3], double pos_out[3], double vel_out[3], double acc_out[3], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *model_id, kl_time_id *time_id) {
        return kl_change_cart_cs(model_id, time_id, calc_mode, cs_in, cs_out, time_ref, time, pos, vel, acc, pos_out,
                                 vel_out, acc_out, ierr);
    });
}

long kl_earth_orientation_get_run(const long *run_id, const long *corrections, const long *time_ref, const double *time,
                                  kl_earth_orientation *out, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_earth_orientation_get(time_id, corrections, time_ref, time, out, ierr);
    });
}

long kl_iers_matrix_run(const long *run_id, const long *corrections, const long *cs_in, const long *cs_out,
                        const long *time_ref, const double *time, const long *calc_mode, double r[9], double dr[9],
                        double ddr[9], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_iers_matrix(time_id, corrections, cs_in, cs_out, time_ref, time, calc_mode, r, dr, ddr, ierr);
    });
}

long kl_iers_change_run(const long *run_id, const long *corrections, const long *calc_mode, const long *cs_in,
                        const long *cs_out, const long *time_ref, const double *time, const double pos[3],
                        const double vel[3], const double acc[3], double pos_out[3], double vel_out[3],
                        double acc_out[3], long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_iers_change(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, time, pos, vel, acc, pos_out,
                              vel_out, acc_out, ierr);
    });
}

long kl_time_get_leap_second_info_run(const long *run_id, const long *ascii_id_out, long *leap_sign,
                                      char *utc_time_before, char *utc_time_after, long *ierr)
{
    return with_run(run_id, [=](kl_model_id *, kl_time_id *time_id) {
        return kl_time_get_leap_second_info(time_id, ascii_id_out, leap_sign, utc_time_before, utc_time_after, ierr);
    });
}
