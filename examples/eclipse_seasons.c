/*
 * Eclipse seasons of a year: a sun-synchronous orbit of 700 km whose ascending node is at 10:30 or at 18:00 local time,
 * and a geostationary satellite.
 *
 *     eclipse_seasons                  every fifth day, the longest eclipses and the seasons
 *     eclipse_seasons year.csv         every day, and minutes of eclipse to year.csv
 *     python3 examples/eclipse_seasons.py year.csv docs/pictures/eclipse_seasons.png
 */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#define RAD (3.14159265358979323846 / 180.0)
#define DAYS 365

static const double kYear = 9497.0;              /* 2026-01-01, MJD2000 */
static const double kGeostationary = 42164172.0; /* m */
static const double kOrbit = 7078137.0;          /* m */
static const double kInclination = 98.19;        /* deg */

enum { MORNING, DAWN, STATION, SATELLITES };
static const char *const kNames[SATELLITES] = {"node at 10:30", "node at 18:00", "geostationary"};

/* Where a satellite is at a time of a day: the sun-synchronous ones true of date, the other one fixed to the Earth. */
static void position(int satellite, double time, double pos[3])
{
    const double node = 280.46 + 0.9856474 * (time - 0.5) + (satellite == MORNING ? -22.5 : 90.0); /* of the mean Sun */
    const double turn = 2.0 * 180.0 / (sqrt(kOrbit * kOrbit * kOrbit / 3.986004418e14) * 3.14159265358979323846 * 2.0);
    const double angle = fmod((time - kYear) * 86400.0 * turn, 360.0) * RAD;
    const double across = cos(kInclination * RAD) * sin(angle);
    if (satellite == STATION) {
        pos[0] = kGeostationary * cos(19.2 * RAD);
        pos[1] = kGeostationary * sin(19.2 * RAD);
        pos[2] = 0.0;
        return;
    }
    pos[0] = kOrbit * (cos(node * RAD) * cos(angle) - sin(node * RAD) * across);
    pos[1] = kOrbit * (sin(node * RAD) * cos(angle) + cos(node * RAD) * across);
    pos[2] = kOrbit * sin(kInclination * RAD) * sin(angle);
}

/* Minutes of a span, s, in which the Sun is hidden wholly and in part; -1 on a failure. */
static int eclipse(kl_time_id *time_id, int satellite, double start, double seconds, double step, double *umbra,
                   double *penumbra)
{
    const long n = (long)(seconds / step), light_time = 1, tai = KL_TIME_TAI;
    const long frame = satellite == STATION ? KL_EF : KL_TOD;
    double *time = malloc((size_t)n * sizeof *time), *fraction = malloc((size_t)n * sizeof *fraction);
    double *depth = malloc((size_t)n * sizeof *depth);
    double(*pos)[3] = malloc((size_t)n * sizeof *pos);
    long *state = malloc((size_t)n * sizeof *state);
    long i, status = KL_ERR;
    *umbra = *penumbra = 0.0;
    if (time != NULL && fraction != NULL && depth != NULL && pos != NULL && state != NULL) {
        for (i = 0; i < n; ++i) {
            time[i] = start + step * (double)i / 86400.0;
            position(satellite, time[i], pos[i]);
        }
        status = kl_eclipse_n(NULL, time_id, &n, &light_time, &frame, &tai, time, (const double(*)[3])pos, NULL, state,
                              fraction, depth, NULL, NULL);
        for (i = 0; i < n && status != KL_ERR; ++i) {
            *umbra += state[i] == KL_UMBRA ? step / 60.0 : 0.0;
            *penumbra += state[i] == KL_PENUMBRA ? step / 60.0 : 0.0;
        }
    }
    free(time);
    free(fraction);
    free(depth);
    free(pos);
    free(state);
    return status == KL_ERR ? -1 : 0;
}

int main(int argc, char **argv)
{
    const double readings[4] = {9497.0, 9497.0 - 37.0 / 86400.0, 9497.0 - 37.0 / 86400.0, 9497.0 - 19.0 / 86400.0};
    const double period = 2.0 * 3.14159265358979323846 * sqrt(kOrbit * kOrbit * kOrbit / 3.986004418e14);
    const int every = argc > 1 ? 1 : 5;
    const double step = argc > 1 ? 10.0 : 30.0; /* s */
    FILE *file = argc > 1 ? fopen(argv[1], "w") : NULL;
    double longest[SATELLITES] = {0.0};
    int dark_days[SATELLITES] = {0}, when[SATELLITES] = {0}, day, s, looked_at = 0;
    kl_time_id time_id = {NULL};

    if ((argc > 1 && file == NULL) || kl_time_ref_init(readings, NULL, NULL, NULL, &time_id, NULL) != KL_OK)
        return 1;
    if (file != NULL)
        fprintf(file, "day of 2026,%s umbra,%s penumbra,%s umbra,%s penumbra,%s umbra,%s penumbra\n", kNames[0],
                kNames[0], kNames[1], kNames[1], kNames[2], kNames[2]);
    for (day = 0; day < DAYS; day += every, ++looked_at) {
        if (file != NULL)
            fprintf(file, "%d", day + 1);
        for (s = 0; s < SATELLITES; ++s) {
            double umbra, penumbra; /* minutes: of an orbit, of the day */
            if (eclipse(&time_id, s, kYear + day, s == STATION ? 86400.0 : period, step, &umbra, &penumbra) != 0)
                return 1;
            if (umbra + penumbra > longest[s]) {
                longest[s] = umbra + penumbra;
                when[s] = day + 1;
            }
            dark_days[s] += umbra + penumbra > 0.0;
            if (file != NULL)
                fprintf(file, ",%.3f,%.3f", umbra, penumbra);
        }
        if (file != NULL)
            fputc('\n', file);
    }
    for (s = 0; s < SATELLITES; ++s)
        printf("%-14s longest eclipse %4.1f min, about day %3d; eclipses on %2.0f %% of the days\n", kNames[s],
               longest[s], when[s], 100.0 * dark_days[s] / looked_at);
    kl_time_close(&time_id, NULL);
    return file != NULL && fclose(file) != 0;
}
