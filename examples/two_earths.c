/* The same state turned to the Earth in the two ways that the library has, and how far they lie apart. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE, utc = KL_TIME_UTC;
    const long mode = KL_CALC_POS_VEL, gm2000 = KL_GM2000, ef = KL_EF;
    const long gcrs = KL_GCRS, itrs = KL_ITRS, corrections = KL_EOP_ALL;
    const double time = 9668.35; /* 2026-06-21T08:24:00 */
    const double pos[3] = {7000e3, 0.0, 100e3}, vel[3] = {0.0, 7546.0, 0.0}, acc[3] = {0.0, 0.0, 0.0};
    double family[3], family_vel[3], family_acc[3], precise[3], precise_vel[3];
    kl_time_id time_id = {NULL};

    if (kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL) == KL_ERR
        || kl_change_cart_cs(NULL, &time_id, &mode, &gm2000, &ef, &utc, &time, pos, vel, acc, family, family_vel,
                             family_acc, NULL)
               == KL_ERR
        || kl_iers_change(&time_id, &corrections, &mode, &gcrs, &itrs, &utc, &time, pos, vel, acc, precise, precise_vel,
                          family_acc, NULL)
               == KL_ERR)
        return EXIT_FAILURE;
    printf("GM2000 to EF, the family's chain   %.3f %.3f %.3f km\n", family[0] / 1e3, family[1] / 1e3, family[2] / 1e3);
    printf("GCRS to ITRS, IERS Conventions     %.3f %.3f %.3f km\n", precise[0] / 1e3, precise[1] / 1e3,
           precise[2] / 1e3);
    printf("apart                              %.1f m\n",
           hypot(hypot(family[0] - precise[0], family[1] - precise[1]), family[2] - precise[2]));
    kl_time_close(&time_id, NULL);
    return EXIT_SUCCESS;
}
