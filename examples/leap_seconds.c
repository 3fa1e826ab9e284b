/* A leap second: as a text it has a name of its own, as a number of days it has not. */
#include "kl_lib.h"

#include <stdio.h>
#include <stdlib.h>

int main(void)
{
    static const char *const instants[] = {"2016-12-31T23:59:59.500000", "2016-12-31T23:59:60.500000",
                                           "2017-01-01T00:00:00.500000"};
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE;
    const long ascii = KL_ASCII_43, days = KL_PROC, utc = KL_TIME_UTC, tai = KL_TIME_TAI, gps = KL_TIME_GPS;
    kl_time_id time_id = {NULL};
    char in_gps[KL_TIME_ASCII_LENGTH], from_tai[KL_TIME_ASCII_LENGTH];
    double utc_days, tai_days;
    int i;

    if (kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    puts("UTC                         GPS                         UTC again, by TAI days      days of UTC");
    for (i = 0; i < 3; ++i) {
        if (kl_time_ascii_to_ascii(&time_id, &ascii, &utc, instants[i], &ascii, &gps, in_gps, NULL) == KL_ERR
            || kl_time_ascii_to_processing(&time_id, &ascii, &utc, instants[i], &days, &tai, &tai_days, NULL) == KL_ERR
            || kl_time_processing_to_ascii(&time_id, &days, &tai, &tai_days, &ascii, &utc, from_tai, NULL) == KL_ERR
            || kl_time_ascii_to_processing(&time_id, &ascii, &utc, instants[i], &days, &utc, &utc_days, NULL) == KL_ERR)
            return EXIT_FAILURE;
        printf("%s  %s  %s  %.9f\n", instants[i], in_gps, from_tai, utc_days);
    }
    kl_time_close(&time_id, NULL);
    return EXIT_SUCCESS;
}
