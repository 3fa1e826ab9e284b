/* UTC of an on-board time in CCSDS unsegmented code, and back. The code counts seconds without leap seconds: it is
 * decoded to TAI (GPS serves as well) and converted from there. Decoded to UTC at once, it would be late by the leap
 * seconds since the epoch. */
#include "kl_lib.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const long processing = KL_PROC, ascii = KL_ASCII_43, tai = KL_TIME_TAI, utc = KL_TIME_UTC;
static kl_time_id time_id;

static void require(long status, const char *what)
{
    if (status != KL_ERR)
        return;
    fprintf(stderr, "%s: failed\n", what);
    exit(EXIT_FAILURE);
}

static void print_time(const char *what, double days, long time_ref, long scale)
{
    char text[KL_TIME_ASCII_LENGTH];
    require(kl_time_processing_to_ascii(&time_id, &processing, &time_ref, &days, &ascii, &scale, text, NULL), "text");
    printf("%-20s %s\n", what, text);
}

int main(void)
{
    /* P-field: seconds since 1958-01-01 TAI, four octets and two of the fraction. */
    static const unsigned char packet[] = {0x1e, 0x6e, 0xfa, 0xa5, 0x25, 0x40, 0x00};
    const kl_cuc_config config = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 2};
    unsigned char again[KL_CUC_LENGTH];
    const long no_files = 0, all_rows = KL_TIME_WINDOW_FILE;
    double tai_days, utc_days, late_days;

    /* The correlation compiled into the library: no file. */
    require(kl_time_id_init(&no_files, NULL, NULL, &all_rows, NULL, NULL, NULL, &time_id, NULL), "time correlation");
    require(kl_time_cuc_to_processing(&time_id, &config, &tai, packet, &tai_days, NULL), "decoding");
    require(
        kl_time_processing_to_processing(&time_id, &processing, &tai, &tai_days, &processing, &utc, &utc_days, NULL),
        "TAI to UTC");
    print_time("decoded to TAI", tai_days, tai, tai);
    print_time("then to UTC", utc_days, utc, utc);

    require(kl_time_cuc_to_processing(&time_id, &config, &utc, packet, &late_days, NULL), "decoding");
    print_time("decoded to UTC", late_days, utc, utc);
    printf("%-20s %.0f s\n", "which is late by", (late_days - utc_days) * 86400.0);

    /* The way back is the same: UTC to TAI, then encode. */
    require(
        kl_time_processing_to_processing(&time_id, &processing, &utc, &utc_days, &processing, &tai, &tai_days, NULL),
        "UTC to TAI");
    require(kl_time_processing_to_cuc(&time_id, &config, &tai, &tai_days, again, NULL), "encoding");
    printf("%-20s %s\n", "encoded again",
           memcmp(packet, again, sizeof packet) == 0 ? "the same octets" : "other octets");
    kl_time_close(&time_id, NULL);
    return EXIT_SUCCESS;
}
