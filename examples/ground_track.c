/* A day of a satellite's ground track as a picture: where it flies by day and by night, when a station sees it, and
 * where it is night at the highest pass. Writes SVG, which every browser shows. In C; ground_track.cpp is the same in
 * C++.
 *
 *     ground_track > ground_track.svg
 */
#include "kl_lib.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

#define DAY 86400.0
#define MINUTES 1440

typedef struct {
    kl_geodetic below;       /* the point on the ground */
    kl_topocentric seen;     /* from the station */
    double sun_below;        /* elevation of the Sun there, deg */
    double sun_lat, sun_lon; /* where the Sun stands overhead, deg */
} instant;

/* Mean elements that drift as the Earth's oblateness makes them, KL_TOD. */
static kl_kepler drifted(kl_kepler x, double seconds)
{
    const double gm = 3.9860044e14, j2 = 0.001082626, radius = 6378136.0, degree = acos(-1.0) / 180.0;
    const double n = sqrt(gm / pow(x.semi_major_axis, 3)) / degree; /* deg/s */
    const double c = cos(x.inclination * degree);
    const double p = x.semi_major_axis * (1.0 - x.eccentricity * x.eccentricity);
    const double k = 1.5 * j2 * (radius / p) * (radius / p) * n;
    x.raan -= k * c * seconds;
    x.arg_perigee += 0.5 * k * (5.0 * c * c - 1.0) * seconds;
    x.mean_anomaly += (n + 0.5 * k * sqrt(1.0 - x.eccentricity * x.eccentricity) * (3.0 * c * c - 1.0)) * seconds;
    return x;
}

static long look(kl_time_id *time_id, const kl_kepler *mean, const kl_geodetic *station, double epoch, double time,
                 instant *at)
{
    const long kind = KL_KEPLER_MEAN, pos_only = KL_CALC_POS, tod = KL_TOD, ef = KL_EF, utc = KL_TIME_UTC;
    const kl_kepler now = drifted(*mean, (time - epoch) * DAY);
    const double still[3] = {0.0, 0.0, 0.0};
    double pos[3], vel[3], fixed[3], other[3], sun[3];
    kl_radec overhead;
    kl_topocentric sun_seen;
    kl_geodetic ground;
    if (kl_kepl_to_cart(NULL, &kind, &now, pos, vel, NULL) == KL_ERR
        || kl_change_cart_cs(NULL, time_id, &pos_only, &tod, &ef, &utc, &time, pos, still, still, fixed, vel, other,
                             NULL)
               == KL_ERR
        || kl_cart_to_geod(NULL, &pos_only, fixed, NULL, &at->below, NULL) == KL_ERR
        || kl_ef_to_topocentric(NULL, &pos_only, station, fixed, NULL, &at->seen, NULL) == KL_ERR
        || kl_sun(NULL, time_id, &utc, &time, sun, other, NULL) == KL_ERR
        || kl_cart_to_radec(NULL, &pos_only, sun, NULL, &overhead, NULL) == KL_ERR)
        return KL_ERR;
    ground = at->below;
    ground.height = 0.0;
    if (kl_ef_to_topocentric(NULL, &pos_only, &ground, sun, NULL, &sun_seen, NULL) == KL_ERR)
        return KL_ERR;
    at->sun_below = sun_seen.elevation;
    at->sun_lat = overhead.dec;
    at->sun_lon = overhead.ra; /* of an Earth-fixed vector: the longitude */
    return KL_OK;
}

/* Picture coordinates: three to a degree. */
static double across(double lon)
{
    const double east = lon > 180.0 ? lon - 360.0 : lon;
    return 30.0 + 3.0 * (east + 180.0);
}

static double down(double lat)
{
    return 40.0 + 3.0 * (90.0 - lat);
}

/* By day, by night, and seen from the station. */
enum { BY_DAY, BY_NIGHT, SEEN };

static int kind_of(const instant *x)
{
    return x->seen.elevation > 0.0 ? SEEN : x->sun_below > 0.0 ? BY_DAY : BY_NIGHT;
}

static void draw_frame(void)
{
    int lat, lon;
    printf("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1140 640\" font-family=\"sans-serif\" "
           "font-size=\"13\">\n"
           "<rect width=\"1140\" height=\"640\" fill=\"#ffffff\"/>\n"
           "<clipPath id=\"map\"><rect x=\"30\" y=\"40\" width=\"1080\" height=\"540\"/></clipPath>\n"
           "<rect x=\"30\" y=\"40\" width=\"1080\" height=\"540\" fill=\"#eef4fb\"/>\n");
    for (lon = -150; lon <= 150; lon += 30)
        printf("<path d=\"M%.0f 40V580\" stroke=\"#c4d0dc\"/><text x=\"%.0f\" y=\"596\" "
               "text-anchor=\"middle\">%d</text>\n",
               across(lon), across(lon), lon);
    for (lat = -60; lat <= 60; lat += 30)
        printf(
            "<path d=\"M30 %.0fH1110\" stroke=\"#c4d0dc\"/><text x=\"26\" y=\"%.0f\" text-anchor=\"end\">%d</text>\n",
            down(lat), down(lat) + 4.0, lat);
}

/* The side of the Earth that the Sun does not light. */
static void draw_night(const instant *x)
{
    const double degree = acos(-1.0) / 180.0;
    int lon;
    printf("<path d=\"M");
    for (lon = -180; lon <= 180; lon += 3) {
        const double lat = atan(-cos((lon - x->sun_lon) * degree) / tan(x->sun_lat * degree)) / degree;
        printf("%.1f %.1fL", 30.0 + 3.0 * (lon + 180.0), down(lat));
    }
    printf("1110 %.0fL30 %.0fZ\" fill=\"#1d2b53\" fill-opacity=\"0.25\"/>\n", x->sun_lat > 0.0 ? 580.0 : 40.0,
           x->sun_lat > 0.0 ? 580.0 : 40.0);
}

/* Pieces of one kind; what leaves the map on one side comes in on the other. */
static void draw_track(const instant *x)
{
    static const char *const style[] = {"#e0861a\" stroke-width=\"1.6", "#27407a\" stroke-width=\"1.6",
                                        "#c2185b\" stroke-width=\"4"};
    int i;
    for (i = 0; i < MINUTES; ++i) {
        const double x0 = across(x[i].below.longitude), y0 = down(x[i].below.latitude);
        const double x1 = across(x[i + 1].below.longitude), y1 = down(x[i + 1].below.latitude);
        const double over = x1 - x0 > 540.0 ? -1080.0 : x1 - x0 < -540.0 ? 1080.0 : 0.0;
        const int kind = kind_of(x + i);
        if (i == 0 || kind != kind_of(x + i - 1))
            printf("<path clip-path=\"url(#map)\" fill=\"none\" stroke=\"%s\" d=\"M%.1f %.1f", style[kind], x0, y0);
        printf("L%.1f %.1f", x1 + over, y1);
        if (over != 0.0)
            printf("M%.1f %.1fL%.1f %.1f", x0 - over, y0, x1, y1);
        if (i + 1 == MINUTES || kind_of(x + i + 1) != kind)
            printf("\"/>\n");
    }
}

/* The minute in which each pass begins. */
static void draw_rises(const instant *x)
{
    int i;
    for (i = 1; i < MINUTES; ++i)
        if (x[i].seen.elevation > 0.0 && x[i - 1].seen.elevation <= 0.0)
            printf("<text x=\"%.1f\" y=\"%.1f\">%02d:%02d</text>\n", across(x[i].below.longitude) + 6.0,
                   down(x[i].below.latitude) + 4.0, i / 60, i % 60);
}

int main(void)
{
    /* 2026-06-21: TAI-UTC is 37 s, GPS-UTC 18 s, UT1-UTC less than 0.1 s. */
    const double readings[4] = {9668.0 + 37 / DAY, 9668.0, 9668.0, 9668.0 + 18 / DAY};
    const kl_geodetic station = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};
    const kl_kepler mean = {7167000.0, 0.001, 98.6, 120.0, 90.0, 10.0};
    const double epoch = 9668.0;
    static instant x[MINUTES + 1];
    kl_time_id time_id = {NULL};
    int i, highest = 0;
    if (kl_time_ref_init(readings, NULL, NULL, NULL, &time_id, NULL) == KL_ERR)
        return EXIT_FAILURE;
    for (i = 0; i <= MINUTES; ++i)
        if (look(&time_id, &mean, &station, epoch, epoch + i * 60.0 / DAY, x + i) == KL_ERR)
            return EXIT_FAILURE;
    kl_time_close(&time_id, NULL);

    draw_frame();
    for (i = 1; i < MINUTES; ++i)
        if (x[i].seen.elevation > x[highest].seen.elevation)
            highest = i;
    draw_night(x + highest);
    draw_track(x);
    draw_rises(x);
    printf("<circle cx=\"%.1f\" cy=\"%.1f\" r=\"5\" fill=\"#000000\"/>\n", across(station.longitude),
           down(station.latitude));
    printf(
        "<text x=\"30\" y=\"26\" font-size=\"16\">Ground track of 2026-06-21: <tspan fill=\"#e0861a\">by day</tspan>, "
        "<tspan fill=\"#27407a\">by night</tspan>, <tspan fill=\"#c2185b\">seen from the station</tspan>, from (UTC); "
        "dark: "
        "night at %02d:%02d</text>\n</svg>\n",
        highest / 60, highest % 60);
    return EXIT_SUCCESS;
}
