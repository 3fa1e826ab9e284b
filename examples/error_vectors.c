/* What a call refused, and why: numbers to decide by, texts to show. */
#include "kl_lib.h"

#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    static char messages[KL_MAX_MSG][KL_MSG_LENGTH];
    static long codes[KL_MAX_CODES];
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE, utc = KL_TIME_UTC, function = KL_ID_FUNC_SUN;
    const double too_late = 40000.0;
    double pos[3], vel[3];
    kl_time_id time_id = {NULL};
    long ierr[1], n = 0, i;

    if (kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    if (kl_sun(NULL, &time_id, &utc, &too_late, pos, vel, ierr) != KL_ERR)
        return EXIT_FAILURE;

    kl_get_code(&function, ierr, &n, codes); /* numbers: what a program decides by */
    for (i = 0; i < n; ++i)
        printf("condition %ld%s\n", codes[i], codes[i] == KL_SUN_DATE_ERR ? ", KL_SUN_DATE_ERR" : "");
    kl_get_msg(&function, ierr, &n, messages); /* texts of the vector alone */
    for (i = 0; i < n; ++i)
        puts(messages[i]);
    kl_get_last_msg(&n, messages); /* texts of this thread's last call, with its numbers, inner functions first */
    for (i = 0; i < n; ++i)
        puts(messages[i]);
    kl_time_close(&time_id, NULL);
    return EXIT_SUCCESS;
}
