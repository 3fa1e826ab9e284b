/*
 * What a star tracker sees: the stars of a cone from the built-in catalogue, where they are and where they appear to an
 * instrument that flies round the Earth, at 7.6 km/s, round the Sun.
 *
 *     star_tracker                     how many stars and how far they are shifted
 *     star_tracker sky.csv             and each of them to sky.csv
 *     star_tracker sky.csv FILE        from a catalogue of one's own (examples/stars.txt shows how it looks)
 *     python3 examples/star_tracker.py sky.csv docs/pictures/star_tracker.png
 */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>

#define RAD (3.14159265358979323846 / 180.0)

static double arcsec_between(const kl_radec *a, const kl_radec *b)
{
    return 3600.0 * hypot((b->ra - a->ra) * cos(a->dec * RAD), b->dec - a->dec);
}

int main(int argc, char **argv)
{
    const kl_star_window orion = {-2.0, 5.5, 0.0, 360.0, -90.0, 90.0, 84.0, 0.0, 12.0};
    const double time = 9596.5;                      /* TAI, MJD2000: 2026-04-10 12:00 */
    const double pos[3] = {0.0, -6.8e6, 1.9e6};      /* m */
    const double vel[3] = {0.0, 2.05e3, 7.32e3};     /* m/s: towards the north */
    const long tai = KL_TIME_TAI, frame = KL_GM2000; /* these need no time id */
    const long motion = 0, all = KL_STAR_PARALLAX | KL_STAR_ABERRATION | KL_STAR_DEFLECTION;
    FILE *file = argc > 1 ? fopen(argv[1], "w") : NULL;
    kl_star *stars = NULL;
    kl_radec *places = NULL;
    double annual = 0.0, own = 0.0;
    long n = 0, i;

    if ((argc > 1 && file == NULL)
        || kl_star_catalog(NULL, NULL, argc > 2 ? argv[2] : NULL, &orion, &motion, &frame, &tai, &time, &n, &stars,
                           &places, NULL)
               == KL_ERR)
        return 1;
    if (file != NULL)
        fprintf(file, "number,magnitude,ra,dec,ra from the Earth,dec from the Earth,ra seen,dec seen\n");
    for (i = 0; i < n; ++i) {
        kl_radec from_earth, seen;
        if (kl_star_radec(NULL, NULL, &all, &frame, &tai, &time, &stars[i], NULL, NULL, &from_earth, NULL) == KL_ERR
            || kl_star_radec(NULL, NULL, &all, &frame, &tai, &time, &stars[i], pos, vel, &seen, NULL) == KL_ERR)
            return 1;
        annual += arcsec_between(&places[i], &from_earth) / (double)n;
        own += arcsec_between(&from_earth, &seen) / (double)n;
        if (file != NULL)
            fprintf(file, "%ld,%.2f,%.7f,%.7f,%.7f,%.7f,%.7f,%.7f\n", stars[i].number, stars[i].magnitude, places[i].ra,
                    places[i].dec, from_earth.ra, from_earth.dec, seen.ra, seen.dec);
    }
    printf("%ld stars to magnitude 5.5 within 12 deg of the equator in Orion\n", n);
    printf("shifted by %.1f arcsec on the way round the Sun, by %.1f on the way round the Earth\n", annual, own);
    kl_free_array((void **)&stars);
    kl_free_array((void **)&places);
    return file != NULL && fclose(file) != 0;
}
