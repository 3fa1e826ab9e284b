/* Where is the Sun overhead at the June solstice of 2026, and how high is the geoid there? In C; same_task.cpp is the
 * same in C++. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

static char messages[KL_MAX_MSG][KL_MSG_LENGTH];

/* Ends the program with the messages of a failed call. */
static void require(long status, long function_id, const long *ierr)
{
    long n = 0;
    if (status != KL_ERR)
        return;
    kl_get_msg(&function_id, ierr, &n, messages);
    kl_print_msg(&n, messages);
    exit(EXIT_FAILURE);
}

int main(void)
{
    const double degrees = 180.0 / acos(-1.0);
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE; /* UT1, leap seconds, pole: those compiled in */
    const char *solstice = "2026-06-21T08:24:00";
    const long ascii = KL_ASCII_41, processing = KL_PROC, utc = KL_TIME_UTC;
    const long sun_id = KL_ID_FUNC_SUN;
    kl_time_id time_id = {NULL};
    kl_model_id model_id = {NULL}; /* the default models */
    kl_geoid_input input = {NULL, 0.0, 0.0, 0.0, 360};
    double time, sun_pos[3], sun_vel[3], undulation;
    double too_late = 40000.0;
    long ierr[1], n = 0;

    require(kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, ierr),
            KL_ID_FUNC_TIME_ID_INIT, ierr);
    require(kl_time_ascii_to_processing(&time_id, &ascii, &utc, solstice, &processing, &utc, &time, ierr),
            KL_ID_FUNC_TIME_ASCII_TO_PROCESSING, ierr);
    require(kl_sun(&model_id, &time_id, &utc, &time, sun_pos, sun_vel, ierr), sun_id, ierr);
    input.model_id = &model_id;
    input.latitude = degrees * atan2(sun_pos[2], hypot(sun_pos[0], sun_pos[1]));
    input.longitude = fmod(degrees * atan2(sun_pos[1], sun_pos[0]) + 360.0, 360.0);
    require(kl_geoid_calc(&input, &undulation, ierr), KL_ID_FUNC_GEOID_CALC, ierr);
    printf("%s UTC is day %.2f\n", solstice, time);
    printf("Sun overhead at %.2f deg north, %.2f deg east\n", input.latitude, input.longitude);
    printf("Geoid there: %.2f m\n", undulation);

    if (kl_sun(&model_id, &time_id, &utc, &too_late, sun_pos, sun_vel, ierr) == KL_ERR
        && kl_get_msg(&sun_id, ierr, &n, messages) == 0 && n > 0)
        printf("Day %.0f: %s\n", too_late, messages[0]);

    kl_time_close(&time_id, ierr);
    return EXIT_SUCCESS;
}
