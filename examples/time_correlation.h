/* Reads data/time_correlation.csv (TAI-UTC and UT1-UTC at 0h UTC) into a time id. */
#ifndef TIME_CORRELATION_H
#define TIME_CORRELATION_H

#include "kl_lib.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define TIME_CORRELATION_MODEL 1 /* a table; its own number, among those without a meaning of their own */
#define TIME_CORRELATION_TAI_GPS 19.0

/* Days from 2000-01-01 to a date of 1901 to 2099. */
static long time_correlation_days(long year, long month, long day)
{
    static const long before_month[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const long leap_days = (year - 1897) / 4 - 25; /* 29 February up to the end of the year before, since 2000 */
    const long in_leap_year = year % 4 == 0 && month > 2 ? 1 : 0;
    return 365 * (year - 2000) + leap_days + before_month[month - 1] + in_leap_year + day - 1;
}

static kl_time_row time_correlation_row(long utc_day, double tai_utc, double ut1_utc)
{
    kl_time_row row;
    row.utc = (double)utc_day;
    row.tai = row.utc + tai_utc / 86400.0;
    row.ut1 = row.utc + ut1_utc / 86400.0;
    row.tai_utc = tai_utc;
    row.tai_ut1 = tai_utc - ut1_utc;
    row.tai_gps = TIME_CORRELATION_TAI_GPS;
    return row;
}

/* Appends a row; 0, or -1 without memory. */
static int time_correlation_append(kl_time_id_data *data, long *room, kl_time_row row)
{
    if (data->n_rows == *room) {
        const long wanted = *room > 0 ? 2 * *room : 1024;
        kl_time_row *rows = (kl_time_row *)realloc(data->rows, (size_t)wanted * sizeof *rows);
        if (rows == NULL)
            return -1;
        data->rows = rows;
        *room = wanted;
    }
    data->rows[data->n_rows++] = row;
    return 0;
}

/*
 * Gives the time id the table of a file: lines "yyyy-mm-dd,TAI-UTC,UT1-UTC" (s), '#' starts a comment.
 * 0, or -1 with a line on standard error.
 */
static int load_time_correlation(const char *path, kl_time_id *time_id)
{
    kl_time_id_data data;
    long room = 0;
    long line_number = 0;
    int status = 0;
    char line[256];
    FILE *file = fopen(path, "r");
    if (file == NULL) {
        fprintf(stderr, "%s: cannot be read\n", path);
        return -1;
    }
    memset(&data, 0, sizeof data);
    data.model = TIME_CORRELATION_MODEL;
    data.no_extrapolation = 1; /* after the last row it holds, with a warning */
    while (status == 0 && fgets(line, (int)sizeof line, file) != NULL) {
        long year, month, day;
        double tai_utc, ut1_utc;
        ++line_number;
        if (line[0] == '#')
            continue;
        if (sscanf(line, "%4ld-%2ld-%2ld,%lf,%lf", &year, &month, &day, &tai_utc, &ut1_utc) != 5 || month < 1
            || month > 12) {
            fprintf(stderr, "%s:%ld: not \"yyyy-mm-dd,TAI-UTC,UT1-UTC\"\n", path, line_number);
            status = -1;
        } else {
            status = time_correlation_append(
                &data, &room, time_correlation_row(time_correlation_days(year, month, day), tai_utc, ut1_utc));
        }
    }
    fclose(file);
    if (status == 0 && kl_time_set_id_data(time_id, &data) != 0) {
        fprintf(stderr, "%s: not a usable table\n", path);
        status = -1;
    }
    free(data.rows);
    return status;
}

#endif
