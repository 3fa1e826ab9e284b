/*
 * Loops over functions of the library that have no array form of their own, with the parameters and the rules that it will
 * have: the union of the vectors, a status an element, NaN, 0 or an empty text for an element that failed.
 * Written by tools/api/generate.py from the table in api/ and the headers in include/kl.
 */
#include "kl_lib.h"

#include <math.h>
#include <stddef.h>
#include <string.h>

#define AT(array) ((array) != NULL ? (array) + i : NULL)
#define ROW(array) ((array) != NULL ? (array)[i] : NULL)
#define TEXT(array, width) ((array) != NULL ? (array) + i * *(width) : NULL)

static void fill(double *values, long n)
{
    long k;
    for (k = 0; values != NULL && k < n; ++k)
        values[k] = NAN;
}

static void blank(void *octets, const long *width)
{
    if (octets != NULL)
        memset(octets, 0, (size_t)*width);
}

/* Notes what one element gave; the return value is the one of the whole call so far. */
static long noted(long so_far, long one, long i, long *status, long *ierr, const long *word, int words)
{
    int k;
    if (status != NULL)
        status[i] = one;
    for (k = 0; ierr != NULL && k < words; ++k)
        ierr[k] |= word[k];
    return so_far == KL_ERR || one == KL_ERR ? KL_ERR : so_far == KL_WARN || one == KL_WARN ? KL_WARN : KL_OK;
}

/* Clears the vector; 0 when there is nothing to do, then *result is the status of the call. */
static int begun(const long *n, long *ierr, int words, long *result)
{
    int k;
    for (k = 0; ierr != NULL && k < words; ++k)
        ierr[k] = 0;
    *result = n == NULL || *n < 0 ? KL_ERR : KL_OK;
    return n != NULL && *n > 0;
}

KL_API long kitlib_kl_geod_to_cart_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *in, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_geod_to_cart_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *in, double pos[][3], double vel[][3], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_geod_to_cart(model_id, calc_mode, AT(in), ROW(pos), ROW(vel), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pos), 3);
            fill(ROW(vel), 3);
        }
    }
    return result;
}

KL_API long kitlib_kl_cart_to_geod_n(kl_model_id *model_id, const long *n, const long *calc_mode, const double pos[][3], const double vel[][3], kl_geodetic *out, long *status, long *ierr);
long kitlib_kl_cart_to_geod_n(kl_model_id *model_id, const long *n, const long *calc_mode, const double pos[][3], const double vel[][3], kl_geodetic *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_cart_to_geod(model_id, calc_mode, ROW(pos), ROW(vel), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].latitude = NAN;
            out[i].longitude = NAN;
            out[i].height = NAN;
            out[i].latitude_rate = NAN;
            out[i].longitude_rate = NAN;
            out[i].height_rate = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_kepl_to_cart_n(kl_model_id *model_id, const long *n, const long *kind, const kl_kepler *in, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_kepl_to_cart_n(kl_model_id *model_id, const long *n, const long *kind, const kl_kepler *in, double pos[][3], double vel[][3], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_kepl_to_cart(model_id, kind, AT(in), ROW(pos), ROW(vel), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pos), 3);
            fill(ROW(vel), 3);
        }
    }
    return result;
}

KL_API long kitlib_kl_cart_to_kepl_n(kl_model_id *model_id, const long *n, const long *kind, const double pos[][3], const double vel[][3], kl_kepler *out, long *status, long *ierr);
long kitlib_kl_cart_to_kepl_n(kl_model_id *model_id, const long *n, const long *kind, const double pos[][3], const double vel[][3], kl_kepler *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_cart_to_kepl(model_id, kind, ROW(pos), ROW(vel), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].semi_major_axis = NAN;
            out[i].eccentricity = NAN;
            out[i].inclination = NAN;
            out[i].raan = NAN;
            out[i].arg_perigee = NAN;
            out[i].mean_anomaly = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_geod_distance_n(kl_model_id *model_id, const long *n, const double *lat1, const double *lon1, const double *lat2, const double *lon2, double *distance, double *azimuth1, double *azimuth2, long *status, long *ierr);
long kitlib_kl_geod_distance_n(kl_model_id *model_id, const long *n, const double *lat1, const double *lon1, const double *lat2, const double *lon2, double *distance, double *azimuth1, double *azimuth2, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_geod_distance(model_id, AT(lat1), AT(lon1), AT(lat2), AT(lon2), AT(distance), AT(azimuth1), AT(azimuth2), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(AT(distance), 1);
            fill(AT(azimuth1), 1);
            fill(AT(azimuth2), 1);
        }
    }
    return result;
}

KL_API long kitlib_kl_geod_point_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, const double *azimuth, const double *distance, double *lat2, double *lon2, double *azimuth2, long *status, long *ierr);
long kitlib_kl_geod_point_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, const double *azimuth, const double *distance, double *lat2, double *lon2, double *azimuth2, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_geod_point(model_id, AT(lat), AT(lon), AT(azimuth), AT(distance), AT(lat2), AT(lon2), AT(azimuth2), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(AT(lat2), 1);
            fill(AT(lon2), 1);
            fill(AT(azimuth2), 1);
        }
    }
    return result;
}

KL_API long kitlib_kl_position_on_orbit_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *calc_mode, const long *cs, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], const double acc[][3], kl_orbit_angle *out, long *status, long *ierr);
long kitlib_kl_position_on_orbit_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *calc_mode, const long *cs, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], const double acc[][3], kl_orbit_angle *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_position_on_orbit(model_id, time_id, calc_mode, cs, time_ref, AT(time), ROW(pos), ROW(vel), ROW(acc), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].angle = NAN;
            out[i].rate = NAN;
            out[i].rate_of_rate = NAN;
            out[i].node = NAN;
            out[i].node_rate = NAN;
            out[i].inclination = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_orbit_sun_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *cs, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], kl_orbit_sun_angles *out, long *status, long *ierr);
long kitlib_kl_orbit_sun_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *cs, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], kl_orbit_sun_angles *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_orbit_sun(model_id, time_id, cs, time_ref, AT(time), ROW(pos), ROW(vel), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].beta = NAN;
            out[i].node_true_solar_time = NAN;
            out[i].node_mean_solar_time = NAN;
            out[i].sun_to_satellite = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_cart_to_radec_n(kl_model_id *model_id, const long *n, const long *calc_mode, const double pos[][3], const double vel[][3], kl_radec *out, long *status, long *ierr);
long kitlib_kl_cart_to_radec_n(kl_model_id *model_id, const long *n, const long *calc_mode, const double pos[][3], const double vel[][3], kl_radec *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_cart_to_radec(model_id, calc_mode, ROW(pos), ROW(vel), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].ra = NAN;
            out[i].dec = NAN;
            out[i].distance = NAN;
            out[i].ra_rate = NAN;
            out[i].dec_rate = NAN;
            out[i].distance_rate = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_radec_to_cart_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_radec *in, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_radec_to_cart_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_radec *in, double pos[][3], double vel[][3], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_radec_to_cart(model_id, calc_mode, AT(in), ROW(pos), ROW(vel), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pos), 3);
            fill(ROW(vel), 3);
        }
    }
    return result;
}

KL_API long kitlib_kl_ef_to_topocentric_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const double pos[][3], const double vel[][3], kl_topocentric *out, long *status, long *ierr);
long kitlib_kl_ef_to_topocentric_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const double pos[][3], const double vel[][3], kl_topocentric *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_ef_to_topocentric(model_id, calc_mode, origin, ROW(pos), ROW(vel), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].azimuth = NAN;
            out[i].elevation = NAN;
            out[i].range = NAN;
            out[i].azimuth_rate = NAN;
            out[i].elevation_rate = NAN;
            out[i].range_rate = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_topocentric_to_ef_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const kl_topocentric *in, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_topocentric_to_ef_n(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const kl_topocentric *in, double pos[][3], double vel[][3], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_topocentric_to_ef(model_id, calc_mode, origin, AT(in), ROW(pos), ROW(vel), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pos), 3);
            fill(ROW(vel), 3);
        }
    }
    return result;
}

KL_API long kitlib_KL_Coticchia_Surace_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, long *zone, long *north, double *easting, double *northing, long *status, long *ierr);
long kitlib_KL_Coticchia_Surace_n(kl_model_id *model_id, const long *n, const double *lat, const double *lon, long *zone, long *north, double *easting, double *northing, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = KL_Coticchia_Surace(model_id, AT(lat), AT(lon), AT(zone), AT(north), AT(easting), AT(northing), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            zone[i] = 0;
            north[i] = 0;
            fill(AT(easting), 1);
            fill(AT(northing), 1);
        }
    }
    return result;
}

KL_API long kitlib_kl_utm_to_geod_n(kl_model_id *model_id, const long *n, const long *zone, const long *north, const double *easting, const double *northing, double *lat, double *lon, long *status, long *ierr);
long kitlib_kl_utm_to_geod_n(kl_model_id *model_id, const long *n, const long *zone, const long *north, const double *easting, const double *northing, double *lat, double *lon, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_utm_to_geod(model_id, AT(zone), AT(north), AT(easting), AT(northing), AT(lat), AT(lon), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(AT(lat), 1);
            fill(AT(lon), 1);
        }
    }
    return result;
}

KL_API long kitlib_kl_local_orbital_frame_n(const long *n, const long *kind, const double pos[][3], const double vel[][3], const double acc[][3], double r[][9], double dr[][9], long *status, long *ierr);
long kitlib_kl_local_orbital_frame_n(const long *n, const long *kind, const double pos[][3], const double vel[][3], const double acc[][3], double r[][9], double dr[][9], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_local_orbital_frame(kind, ROW(pos), ROW(vel), ROW(acc), ROW(r), ROW(dr), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(r), 9);
            fill(ROW(dr), 9);
        }
    }
    return result;
}

KL_API long kitlib_kl_earth_orientation_get_n(kl_time_id *time_id, const long *n, const long *corrections, const long *time_ref, const double *time, kl_earth_orientation *out, long *status, long *ierr);
long kitlib_kl_earth_orientation_get_n(kl_time_id *time_id, const long *n, const long *corrections, const long *time_ref, const double *time, kl_earth_orientation *out, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_earth_orientation_get(time_id, corrections, time_ref, AT(time), AT(out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(out + i, 0, sizeof out[i]);
            out[i].x_pole = NAN;
            out[i].y_pole = NAN;
            out[i].ut1_utc = NAN;
            out[i].ut1_tai = NAN;
            out[i].dx = NAN;
            out[i].dy = NAN;
            out[i].cip_x = NAN;
            out[i].cip_y = NAN;
            out[i].s = NAN;
            out[i].s_prime = NAN;
            out[i].era = NAN;
        }
    }
    return result;
}

KL_API long kitlib_kl_iers_matrix_n(kl_time_id *time_id, const long *n, const long *corrections, const long *cs_in, const long *cs_out, const long *time_ref, const double *time, const long *calc_mode, double r[][9], double dr[][9], double ddr[][9], long *status, long *ierr);
long kitlib_kl_iers_matrix_n(kl_time_id *time_id, const long *n, const long *corrections, const long *cs_in, const long *cs_out, const long *time_ref, const double *time, const long *calc_mode, double r[][9], double dr[][9], double ddr[][9], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_iers_matrix(time_id, corrections, cs_in, cs_out, time_ref, AT(time), calc_mode, ROW(r), ROW(dr), ROW(ddr), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(r), 9);
            fill(ROW(dr), 9);
            fill(ROW(ddr), 9);
        }
    }
    return result;
}

KL_API long kitlib_kl_iers_change_n(kl_time_id *time_id, const long *n, const long *corrections, const long *calc_mode, const long *cs_in, const long *cs_out, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], const double acc[][3], double pos_out[][3], double vel_out[][3], double acc_out[][3], long *status, long *ierr);
long kitlib_kl_iers_change_n(kl_time_id *time_id, const long *n, const long *corrections, const long *calc_mode, const long *cs_in, const long *cs_out, const long *time_ref, const double *time, const double pos[][3], const double vel[][3], const double acc[][3], double pos_out[][3], double vel_out[][3], double acc_out[][3], long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_iers_change(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, AT(time), ROW(pos), ROW(vel), ROW(acc), ROW(pos_out), ROW(vel_out), ROW(acc_out), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pos_out), 3);
            fill(ROW(vel_out), 3);
            fill(ROW(acc_out), 3);
        }
    }
    return result;
}

KL_API long kitlib_kl_time_get_pole_n(kl_time_id *time_id, const long *n, const long *time_ref, const double *time, double pole[][4], long *status);
long kitlib_kl_time_get_pole_n(kl_time_id *time_id, const long *n, const long *time_ref, const double *time, double pole[][4], long *status)
{
    long i, result;
    if (!begun(n, NULL, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        one = kl_time_get_pole(time_id, time_ref, AT(time), ROW(pole));
        result = noted(result, one, i, status, NULL, word, 1);
        if (one == KL_ERR) {
            fill(ROW(pole), 4);
        }
    }
    return result;
}

KL_API long kitlib_kl_time_get_leap_second_info_n(kl_time_id *time_id, const long *n, const long *ascii_id_out, long *leap_sign, const long *utc_time_before_width, char *utc_time_before, const long *utc_time_after_width, char *utc_time_after, long *status, long *ierr);
long kitlib_kl_time_get_leap_second_info_n(kl_time_id *time_id, const long *n, const long *ascii_id_out, long *leap_sign, const long *utc_time_before_width, char *utc_time_before, const long *utc_time_after_width, char *utc_time_after, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        long one;
        blank(TEXT(utc_time_before, utc_time_before_width), utc_time_before_width);
        blank(TEXT(utc_time_after, utc_time_after_width), utc_time_after_width);
        one = kl_time_get_leap_second_info(time_id, ascii_id_out, AT(leap_sign), TEXT(utc_time_before, utc_time_before_width), TEXT(utc_time_after, utc_time_after_width), word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            leap_sign[i] = 0;
            blank(TEXT(utc_time_before, utc_time_before_width), utc_time_before_width);
            blank(TEXT(utc_time_after, utc_time_after_width), utc_time_after_width);
        }
    }
    return result;
}

/* Geoid at scattered points: the record of the scalar call taken apart. */
KL_API long kitlib_kl_geoid_calc_n(kl_model_id *model_id, const long *n, const double *latitude, const double *longitude,
                                   const long *max_degree, double *undulation, long *status, long *ierr);
long kitlib_kl_geoid_calc_n(kl_model_id *model_id, const long *n, const double *latitude, const double *longitude,
                            const long *max_degree, double *undulation, long *status, long *ierr)
{
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        kl_geoid_input input = {model_id, latitude[i], longitude[i], 0.0, *max_degree};
        long word[1] = {0};
        const long one = kl_geoid_calc(&input, undulation + i, word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR)
            undulation[i] = NAN;
    }
    return result;
}

/* On-board times lie at the size of the satellite's record; a failed one keeps its satellite. */
static size_t clock_size(const long *sat_id)
{
    return *sat_id == 61 ? sizeof(kl_obt_kelda) : sizeof(kl_obt_tarvos);
}

KL_API long kitlib_kl_time_obt_to_time_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters,
                                         const void *obt, double *time, long *status, long *ierr);
long kitlib_kl_time_obt_to_time_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters, const void *obt,
                                  double *time, long *status, long *ierr)
{
    const size_t size = clock_size(sat_id);
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        long word[1] = {0};
        const long one = kl_time_obt_to_time(sat_id, time_ref, parameters, (const char *)obt + (size_t)i * size, time + i, word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR)
            time[i] = NAN;
    }
    return result;
}

KL_API long kitlib_kl_time_time_to_obt_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters,
                                         const double *time, void *obt, long *status, long *ierr);
long kitlib_kl_time_time_to_obt_n(const long *sat_id, const long *n, const long *time_ref, const void *parameters, const double *time,
                                  void *obt, long *status, long *ierr)
{
    const size_t size = clock_size(sat_id);
    long i, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        char *here = (char *)obt + (size_t)i * size;
        long word[1] = {0};
        const long one = kl_time_time_to_obt(sat_id, time_ref, parameters, time + i, here, word);
        result = noted(result, one, i, status, ierr, word, 1);
        if (one == KL_ERR) {
            memset(here + sizeof(long), 0, size - sizeof(long));
            if (*sat_id == 61)
                ((kl_obt_kelda *)(void *)here)->obt = NAN;
        }
    }
    return result;
}
