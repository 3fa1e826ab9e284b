/*
 * The geoid of the whole world: prints where it is lowest and highest, and writes the grid for a map.
 *
 *     geoid_map                        on a grid of one degree
 *     geoid_map world.txt 0.25         finer, and written to world.txt
 *     gnuplot -e "grid='world.txt'; picture='geoid.png'" examples/geoid_map.gp
 */
#include "kl_lib.h"

#include <stdio.h>
#include <stdlib.h>

/* Rows of the file: the longitudes first, then each latitude with its undulations ("matrix nonuniform" of gnuplot). */
static int write_grid(const char *name, const double *lat, long n_lat, const double *lon, long n_lon, const double *n)
{
    long row, column;
    FILE *file = fopen(name, "w");
    if (file == NULL)
        return 0;
    fprintf(file, "%ld", n_lon);
    for (column = 0; column < n_lon; ++column)
        fprintf(file, " %g", lon[column]);
    for (row = 0; row < n_lat; ++row) {
        fprintf(file, "\n%g", lat[row]);
        for (column = 0; column < n_lon; ++column)
            fprintf(file, " %.2f", n[row * n_lon + column]);
    }
    fputc('\n', file);
    return fclose(file) == 0;
}

int main(int argc, char **argv)
{
    const double step = argc > 2 ? atof(argv[2]) : 1.0;
    const long max_degree = 360;
    long n_lat, n_lon, i, lowest = 0, highest = 0, ierr, n_msg = 0;
    double *lat, *lon, *undulation;
    int written = 1;

    if (!(step >= 0.01 && step <= 90.0)) {
        fputs("usage: geoid_map [file [step in degrees, 0.01 to 90]]\n", stderr);
        return 2;
    }
    n_lat = (long)(180.0 / step) + 1;
    n_lon = (long)(360.0 / step) + 1;
    lat = malloc((size_t)n_lat * sizeof *lat);
    lon = malloc((size_t)n_lon * sizeof *lon);
    undulation = malloc((size_t)(n_lat * n_lon) * sizeof *undulation);
    if (lat == NULL || lon == NULL || undulation == NULL)
        return 1;
    for (i = 0; i < n_lat; ++i)
        lat[i] = 90.0 - step * (double)i;
    for (i = 0; i < n_lon; ++i)
        lon[i] = step * (double)i;

    if (kl_geoid_grid(NULL, &max_degree, lat, &n_lat, lon, &n_lon, undulation, &ierr) != KL_OK) {
        static char msg[KL_MAX_MSG][KL_MSG_LENGTH];
        const long id = KL_ID_FUNC_GEOID_CALC;
        kl_get_msg(&id, &ierr, &n_msg, msg);
        kl_print_msg(&n_msg, msg);
        return 1;
    }

    for (i = 1; i < n_lat * n_lon; ++i) {
        if (undulation[i] < undulation[lowest])
            lowest = i;
        if (undulation[i] > undulation[highest])
            highest = i;
    }
    printf("lowest  %8.2f m at latitude %6.2f, longitude %6.2f\n", undulation[lowest], lat[lowest / n_lon],
           lon[lowest % n_lon]);
    printf("highest %8.2f m at latitude %6.2f, longitude %6.2f\n", undulation[highest], lat[highest / n_lon],
           lon[highest % n_lon]);
    if (argc > 1)
        written = write_grid(argv[1], lat, n_lat, lon, n_lon, undulation);
    free(lat);
    free(lon);
    free(undulation);
    return written ? 0 : 1;
}
