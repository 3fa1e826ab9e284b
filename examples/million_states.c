/* A million states of a satellite, a tenth of a second apart: where over the Earth, and how high? In C, in blocks that
 * stay in the caches; million_states.cpp is the same in C++. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

enum { BLOCK = 10000, BLOCKS = 100 };

static double utc_days[BLOCK];
static kl_kepler elements[BLOCK];
static double pos[BLOCK][3], vel[BLOCK][3], acc[BLOCK][3];
static kl_geodetic place[BLOCK];
static long status[BLOCK];

/* An orbit whose node follows the Sun; one instant in the middle is spoilt. */
static void elements_of_block(long block)
{
    const double day = 86400.0, motion = 360.0 / 6038.0; /* deg/s */
    long i;
    for (i = 0; i < BLOCK; ++i) {
        const long number = block * BLOCK + i;
        const double seconds = 0.1 * (double)number;
        const kl_kepler now = {7167000.0, 0.001, 98.6, 120.0 + 0.9856 * seconds / day, 90.0, motion * seconds};
        elements[i] = now;
        utc_days[i] = number == 500000 ? nan("") : 9668.0 + seconds / day;
    }
}

int main(void)
{
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE; /* UT1, leap seconds, pole: those compiled in */
    const long n = BLOCK, kind = KL_KEPLER_OSCULATING, from = KL_TOD, to = KL_EF, utc = KL_TIME_UTC;
    const long position = KL_CALC_POS, both = KL_CALC_POS_VEL;
    kl_time_id time_id = {NULL};
    kl_model_id model_id = {NULL}; /* the default models */
    long block, i, refused = 0, polar = 0;
    double lowest = 1e9, highest = 0.0;

    if (kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    for (block = 0; block < BLOCKS; ++block) {
        elements_of_block(block);
        /* Each call takes what the one before left, in place where the shapes agree. A row that is refused becomes NaN,
         * and the next call refuses it again: the others go on. */
        kl_kepl_to_cart_n(&model_id, &n, &kind, elements, pos, vel, NULL, NULL);
        kl_change_cart_cs_n(&model_id, &time_id, &n, &both, &from, &to, &utc, utc_days, pos, vel, acc, pos, vel, acc,
                            NULL, NULL);
        kl_cart_to_geod_n(&model_id, &n, &position, pos, vel, place, status, NULL);
        for (i = 0; i < BLOCK; ++i) {
            if (status[i] == KL_ERR) {
                ++refused;
                continue;
            }
            polar += fabs(place[i].latitude) > 66.5 ? 1 : 0;
            lowest = fmin(lowest, place[i].height);
            highest = fmax(highest, place[i].height);
        }
    }
    kl_time_close(&time_id, NULL);
    printf("%d states, %ld refused\n", BLOCK * BLOCKS, refused);
    printf("heights %.3f to %.3f km\n", lowest / 1000.0, highest / 1000.0);
    printf("%.2f %% of them beyond the polar circles\n", 100.0 * (double)polar / (BLOCK * BLOCKS - (double)refused));
    return EXIT_SUCCESS;
}
