/* A program with symbols of its own that are named like tables of the library: results do not change, and what is the
 * program's stays as it is. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <string.h>

double A_MIN[64] = {1.0, 2.0};
double A_MAX = 3.0;
double I_NOM = 4.0;
char TLE_SAT_DATA[8] = "mine";
char KL_SP3_PARAMS[4] = "own";
long kl_default_sat_array[10] = {7, 7};

KL_API long KL_Get_min_period(const long *sat_id, double *period, void *error);
KL_API long KL_Get_max_period(const long *sat_id, double *period, void *error);

int main(void)
{
    const double pi = 3.14159265358979323846, gm = 3.9860044e14; /* m3/s2 */
    const long generic = 200, number = 99999;
    double shortest = 0.0, longest = 0.0;
    long id = -1, ierr[1], failures = 0;
    failures += KL_Get_min_period(&generic, &shortest, NULL) != 0;
    failures += KL_Get_max_period(&generic, &longest, NULL) != 0;
    failures += !(fabs(shortest - 2.0 * pi * sqrt(pow(7118050.0, 3.0) / gm)) < 1e-9);
    failures += !(fabs(longest - 2.0 * pi * sqrt(pow(7194056.0, 3.0) / gm)) < 1e-9);
    failures += kl_default_sat_init(&id, "examples/satellite.cfg", ierr) != KL_OK || id != 0;
    failures += kl_set_tle_sat_data(&generic, &number, "ANOTHER", "00000B") != KL_OK;
    failures += kl_set_sp3_sat_data(generic, "L99") != KL_OK;
    failures += A_MIN[0] != 1.0 || A_MIN[1] != 2.0 || A_MAX != 3.0 || I_NOM != 4.0;
    failures += strcmp(TLE_SAT_DATA, "mine") != 0 || memcmp(KL_SP3_PARAMS, "own", 4) != 0;
    failures += kl_default_sat_array[0] != 7 || kl_default_sat_array[1] != 7;
    printf("%ld failures; periods %.6f s and %.6f s\n", failures, shortest, longest);
    return failures == 0 ? 0 : 1;
}
