/* Two threads share a time id and an array: each changes the frame of its half, and the bits are those of one call. */
#include "kl_lib.h"

#include <math.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define STATES 20000

static kl_time_id time_id;
static double times[STATES], pos[STATES][3], vel[STATES][3], acc[STATES][3];

typedef struct {
    long first, n;
    double (*pos)[3], (*vel)[3], (*acc)[3];
    long status;
} part;

static void *change(void *argument)
{
    const long mode = KL_CALC_POS_VEL, from = KL_TEME, to = KL_EF, utc = KL_TIME_UTC;
    part *p = argument;
    p->status = kl_change_cart_cs_n(NULL, &time_id, &p->n, &mode, &from, &to, &utc, times + p->first, pos + p->first,
                                    vel + p->first, acc + p->first, p->pos + p->first, p->vel + p->first,
                                    p->acc + p->first, NULL, NULL);
    return NULL;
}

int main(void)
{
    static double by_one[3][STATES][3], by_two[3][STATES][3];
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE;
    part whole = {0, STATES, by_one[0], by_one[1], by_one[2], KL_ERR};
    part halves[2] = {{0, STATES / 2, by_two[0], by_two[1], by_two[2], KL_ERR},
                      {STATES / 2, STATES / 2, by_two[0], by_two[1], by_two[2], KL_ERR}};
    pthread_t threads[2];
    int i;

    if (kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    for (i = 0; i < STATES; ++i) {
        const double angle = 1e-3 * i;
        times[i] = 9668.0 + i / (double)STATES;
        pos[i][0] = 7e6 * cos(angle), pos[i][1] = 7e6 * sin(angle);
        vel[i][0] = -7.5e3 * sin(angle), vel[i][1] = 7.5e3 * cos(angle);
    }
    change(&whole);
    for (i = 0; i < 2; ++i)
        if (pthread_create(&threads[i], NULL, change, &halves[i]) != 0)
            return EXIT_FAILURE;
    for (i = 0; i < 2; ++i)
        pthread_join(threads[i], NULL);
    printf("%d states, status %ld, %ld and %ld: %s\n", STATES, whole.status, halves[0].status, halves[1].status,
           memcmp(by_one, by_two, sizeof by_one) == 0 ? "the same bits" : "other bits");
    kl_time_close(&time_id, NULL); /* nobody uses it any more */
    return EXIT_SUCCESS;
}
