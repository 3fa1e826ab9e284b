/* A day of passes of a satellite over a station: when it rises, culminates and sets, to a millisecond. In C; passes.cpp
 * is the same in C++. */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#define DAY 86400.0

/* What the search hands on to the function of time. */
typedef struct {
    kl_time_id time_id;
    kl_geodetic station;
    kl_kepler mean; /* KL_TOD, at the epoch */
    double epoch;   /* UTC, MJD2000 */
    int rate;       /* the elevation's rate is asked for, not the elevation */
} sky;

/* The satellite seen from the station: mean elements that drift as the Earth's oblateness makes them. */
static long look(sky *s, double time, kl_topocentric *seen)
{
    const long mean = KL_KEPLER_MEAN, both = KL_CALC_POS_VEL, tod = KL_TOD, ef = KL_EF, utc = KL_TIME_UTC;
    const double gm = 3.9860044e14, j2 = 0.001082626, radius = 6378136.0, degree = acos(-1.0) / 180.0;
    const double seconds = (time - s->epoch) * DAY;
    const double still[3] = {0.0, 0.0, 0.0};
    const double n = sqrt(gm / pow(s->mean.semi_major_axis, 3)) / degree; /* deg/s */
    const double c = cos(s->mean.inclination * degree);
    const double p = s->mean.semi_major_axis * (1.0 - s->mean.eccentricity * s->mean.eccentricity);
    const double k = 1.5 * j2 * (radius / p) * (radius / p) * n;
    double pos[3], vel[3], pos_ef[3], vel_ef[3], acc_ef[3];
    kl_kepler now = s->mean;
    now.raan -= k * c * seconds;
    now.arg_perigee += 0.5 * k * (5.0 * c * c - 1.0) * seconds;
    now.mean_anomaly +=
        (n + 0.5 * k * sqrt(1.0 - s->mean.eccentricity * s->mean.eccentricity) * (3.0 * c * c - 1.0)) * seconds;
    if (kl_kepl_to_cart(NULL, &mean, &now, pos, vel, NULL) == KL_ERR
        || kl_change_cart_cs(NULL, &s->time_id, &both, &tod, &ef, &utc, &time, pos, vel, still, pos_ef, vel_ef, acc_ef,
                             NULL)
               == KL_ERR)
        return KL_ERR;
    return kl_ef_to_topocentric(NULL, &both, &s->station, pos_ef, vel_ef, seen, NULL);
}

static long elevation(void *context, const long *n, const double *times, double *values)
{
    sky *s = context;
    long i;
    for (i = 0; i < *n; ++i) {
        kl_topocentric seen;
        if (look(s, times[i], &seen) == KL_ERR)
            return KL_ERR;
        values[i] = s->rate ? seen.elevation_rate : seen.elevation;
    }
    return KL_OK;
}

static void print_event(sky *s, const char *what, double time, const char *end)
{
    const double in_day = (time - s->epoch) * DAY;
    const long ms = lround(in_day * 1000.0);
    kl_topocentric seen;
    if (look(s, time, &seen) == KL_ERR)
        exit(EXIT_FAILURE);
    printf("%s %02ld:%02ld:%02ld.%03ld %5.1f deg%s", what, ms / 3600000, ms / 60000 % 60, ms / 1000 % 60, ms % 1000,
           seen.azimuth, end);
}

int main(void)
{
    /* 2026-06-21: TAI-UTC is 37 s, GPS-UTC 18 s, UT1-UTC less than 0.1 s. */
    const double readings[4] = {9668.0 + 37 / DAY, 9668.0, 9668.0, 9668.0 + 18 / DAY};
    const double stop = 9669.0, step = 60.0 / DAY, tolerance = 1e-4 / DAY;
    const long room = 40;
    kl_crossing events[40];
    long n = 0, i;
    sky s = {{NULL},
             {48.0, 11.0, 600.0, 0.0, 0.0, 0.0},          /* station */
             {7167000.0, 0.001, 98.6, 120.0, 90.0, 10.0}, /* satellite */
             9668.0,
             0};
    if (kl_time_ref_init(readings, NULL, NULL, NULL, &s.time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    if (kl_find_crossings(elevation, &s, &s.epoch, &stop, &step, &tolerance, &room, &n, events, NULL) != KL_OK)
        return EXIT_FAILURE;
    for (i = 0; i + 1 < n; i += 2) { /* a rise, or the start of the day, and the set that belongs to it */
        const double from = events[i].time, to = events[i + 1].time;
        kl_crossing tops[2]; /* the rate of the elevation is above 0 at the rise, and falls through it at the top */
        const long two = 2;
        long n_tops = 0;
        kl_topocentric seen;
        s.rate = 1;
        if (kl_find_crossings(elevation, &s, &from, &to, &step, &tolerance, &two, &n_tops, tops, NULL) == KL_ERR
            || n_tops == 0 || look(&s, tops[n_tops - 1].time, &seen) == KL_ERR)
            return EXIT_FAILURE;
        s.rate = 0;
        print_event(&s, "rise", from, "  ");
        print_event(&s, "top", tops[n_tops - 1].time, "");
        printf(" %4.1f high  ", seen.elevation);
        print_event(&s, "set", to, "\n");
    }
    kl_time_close(&s.time_id, NULL);
    return EXIT_SUCCESS;
}
