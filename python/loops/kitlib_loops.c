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

static long joined(long so_far, long next)
{
    return so_far == KL_ERR || next == KL_ERR ? KL_ERR : so_far == KL_WARN || next == KL_WARN ? KL_WARN : KL_OK;
}

/* Notes what one element gave; the return value is the one of the whole call so far. */
static long noted(long so_far, long one, long i, long *status, long *ierr, const long *word, int words)
{
    int k;
    if (status != NULL)
        status[i] = one;
    for (k = 0; ierr != NULL && k < words; ++k)
        ierr[k] |= word[k];
    return joined(so_far, one);
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

/* ---- Texts of numpy: `from` characters of 1 or 4 octets, padded with zeros; C takes octets at a fixed distance. ---- */

enum {
    kMostRows = 64, /* texts of a block: with more of them the processor waits for memory, with fewer for the calls */
    kCut = 64,      /* width of texts that are wider than that: no layout is */
    kRoom = kMostRows * kCut,
    kWidest = 32 /* characters of a text that C writes, and its zero */
};

/* Four-octet characters to octets; the bits that any of them has. Compilers make vectors of this loop and the next ones. */
static uint32_t narrowed(const uint32_t *restrict in, long n, unsigned char *restrict out)
{
    uint32_t bits = 0;
    long k;
    for (k = 0; k < n; ++k) {
        bits |= in[k];
        out[k] = (unsigned char)in[k];
    }
    return bits;
}

static void widened(const unsigned char *restrict in, long n, uint32_t *restrict out)
{
    long k;
    for (k = 0; k < n; ++k)
        out[k] = in[k];
}

static uint32_t bits_of_wide(const uint32_t *in, long n)
{
    uint32_t bits = 0;
    long k;
    for (k = 0; k < n; ++k)
        bits |= in[k];
    return bits;
}

static uint32_t bits_of_octets(const unsigned char *in, long n)
{
    unsigned char bits = 0;
    long k;
    for (k = 0; k < n; ++k)
        bits |= in[k];
    return bits;
}

/* Does a zero stand before other characters? */
static int is_broken(const unsigned char *text, long width)
{
    const void *zero = memchr(text, 0, (size_t)width);
    return zero != NULL && bits_of_octets((const unsigned char *)zero, width - ((const unsigned char *)zero - text)) != 0;
}

/* Texts wider than any layout: what is too long for one becomes question marks. */
static void cut(const void *in, long size, long from, long n, unsigned char *out)
{
    long i;
    for (i = 0; i < n; ++i, out += kCut) {
        uint32_t bits, beyond;
        if (size == 4) {
            const uint32_t *const row = (const uint32_t *)in + i * from;
            bits = narrowed(row, kCut - 1, out);
            beyond = bits_of_wide(row + kCut - 1, from - kCut + 1);
        } else {
            const unsigned char *const row = (const unsigned char *)in + i * from;
            memcpy(out, row, kCut - 1);
            bits = bits_of_octets(row, kCut - 1);
            beyond = bits_of_octets(row + kCut - 1, from - kCut + 1);
        }
        out[kCut - 1] = 0;
        if (bits > 127 || beyond != 0 || is_broken(out, kCut))
            memset(out, '?', kCut - 1);
    }
}

/*
 * The octets of n texts, and their width; `room` has space for kMostRows of them. A text that is not ASCII or has a zero inside becomes
 * question marks, which no layout has: all are looked at together, one by one only where a text is odd or not of full width.
 */
static const char *octets_of(const void *in, const long kind[2], long n, unsigned char *room, long *width)
{
    const long size = kind[0], from = kind[1];
    uint32_t bits = 0;
    long i;
    *width = from < kCut ? from : kCut;
    if (from >= kCut) {
        cut(in, size, from, n, room);
        return (const char *)room;
    }
    if (size == 4)
        bits = narrowed((const uint32_t *)in, n * from, room);
    if (bits <= 127 && memchr(size == 4 ? room : in, 0, (size_t)(n * from)) == NULL)
        return size == 4 ? (const char *)room : (const char *)in;
    if (size != 4)
        memcpy(room, in, (size_t)(n * from));
    for (i = 0; i < n; ++i) {
        unsigned char *const text = room + i * from;
        if ((bits > 127 && bits_of_wide((const uint32_t *)in + i * from, from) > 127) || is_broken(text, from))
            memset(text, '?', (size_t)from);
    }
    return (const char *)room;
}

KL_API long kitlib_kl_time_ascii_to_ascii_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long ascii_in_width[2], const void *ascii_in, const long *ascii_id_out, const long *time_ref_out, const long *ascii_out_width, uint32_t *ascii_out, long *status, long ierr[2]);
long kitlib_kl_time_ascii_to_ascii_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long ascii_in_width[2], const void *ascii_in, const long *ascii_id_out, const long *time_ref_out, const long *ascii_out_width, uint32_t *ascii_out, long *status, long ierr[2])
{
    unsigned char read[kRoom];
    const char *octets;
    long octets_width;
    unsigned char written[kMostRows * kWidest];
    long i, k, count, result;
    if (!begun(n, ierr, 2, &result))
        return result;
    if (*ascii_out_width > kWidest)
        return KL_ERR;
    for (i = 0; i < *n; i += kMostRows) {
        long word[2] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        octets = octets_of((const char *)ascii_in + i * ascii_in_width[0] * ascii_in_width[1], ascii_in_width, count, read, &octets_width);
        result = joined(result, kl_time_ascii_to_ascii_n(time_id, &count, ascii_id_in, time_ref_in, &octets_width, octets, ascii_id_out, time_ref_out, ascii_out_width, (char *)written, AT(status), word));
        for (k = 0; ierr != NULL && k < 2; ++k)
            ierr[k] |= word[k];
        widened(written, count * *ascii_out_width, ascii_out + i * *ascii_out_width);
    }
    return result;
}

KL_API long kitlib_kl_time_ascii_to_processing_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long width[2], const void *ascii_in, const long *proc_id_out, const long *time_ref_out, double *time_out, long *status, long *ierr);
long kitlib_kl_time_ascii_to_processing_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long width[2], const void *ascii_in, const long *proc_id_out, const long *time_ref_out, double *time_out, long *status, long *ierr)
{
    unsigned char read[kRoom];
    const char *octets;
    long octets_width;
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        octets = octets_of((const char *)ascii_in + i * width[0] * width[1], width, count, read, &octets_width);
        result = joined(result, kl_time_ascii_to_processing_n(time_id, &count, ascii_id_in, time_ref_in, &octets_width, octets, proc_id_out, time_ref_out, AT(time_out), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_time_text_to_processing_texts(kl_time_id *time_id, const long *n, const long width[2], const void *text, const long *time_ref_default, const long *proc_id_out, const long *time_ref_out, double *time_out, long *status, long *ierr);
long kitlib_kl_time_text_to_processing_texts(kl_time_id *time_id, const long *n, const long width[2], const void *text, const long *time_ref_default, const long *proc_id_out, const long *time_ref_out, double *time_out, long *status, long *ierr)
{
    unsigned char read[kRoom];
    const char *octets;
    long octets_width;
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        octets = octets_of((const char *)text + i * width[0] * width[1], width, count, read, &octets_width);
        result = joined(result, kl_time_text_to_processing_n(time_id, &count, &octets_width, octets, time_ref_default, proc_id_out, time_ref_out, AT(time_out), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_time_ascii_to_transport_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long width[2], const void *ascii_in, const long *trans_id_out, const long *time_ref_out, long transport_out[][4], long *status, long *ierr);
long kitlib_kl_time_ascii_to_transport_texts(kl_time_id *time_id, const long *n, const long *ascii_id_in, const long *time_ref_in, const long width[2], const void *ascii_in, const long *trans_id_out, const long *time_ref_out, long transport_out[][4], long *status, long *ierr)
{
    unsigned char read[kRoom];
    const char *octets;
    long octets_width;
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        octets = octets_of((const char *)ascii_in + i * width[0] * width[1], width, count, read, &octets_width);
        result = joined(result, kl_time_ascii_to_transport_n(time_id, &count, ascii_id_in, time_ref_in, &octets_width, octets, trans_id_out, time_ref_out, AT(transport_out), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_time_processing_to_ascii_texts(kl_time_id *time_id, const long *n, const long *proc_id_in, const long *time_ref_in, const double *time_in, const long *ascii_id_out, const long *time_ref_out, const long *width, uint32_t *ascii_out, long *status, long *ierr);
long kitlib_kl_time_processing_to_ascii_texts(kl_time_id *time_id, const long *n, const long *proc_id_in, const long *time_ref_in, const double *time_in, const long *ascii_id_out, const long *time_ref_out, const long *width, uint32_t *ascii_out, long *status, long *ierr)
{
    unsigned char written[kMostRows * kWidest];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    if (*width > kWidest)
        return KL_ERR;
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        result = joined(result, kl_time_processing_to_ascii_n(time_id, &count, proc_id_in, time_ref_in, AT(time_in), ascii_id_out, time_ref_out, width, (char *)written, AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
        widened(written, count * *width, ascii_out + i * *width);
    }
    return result;
}

KL_API long kitlib_kl_time_transport_to_ascii_texts(kl_time_id *time_id, const long *n, const long *trans_id_in, const long *time_ref_in, const long transport_in[][4], const long *ascii_id_out, const long *time_ref_out, const long *width, uint32_t *ascii_out, long *status, long *ierr);
long kitlib_kl_time_transport_to_ascii_texts(kl_time_id *time_id, const long *n, const long *trans_id_in, const long *time_ref_in, const long transport_in[][4], const long *ascii_id_out, const long *time_ref_out, const long *width, uint32_t *ascii_out, long *status, long *ierr)
{
    unsigned char written[kMostRows * kWidest];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    if (*width > kWidest)
        return KL_ERR;
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        result = joined(result, kl_time_transport_to_ascii_n(time_id, &count, trans_id_in, time_ref_in, AT(transport_in), ascii_id_out, time_ref_out, width, (char *)written, AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
        widened(written, count * *width, ascii_out + i * *width);
    }
    return result;
}

KL_API long kitlib_kl_geod_to_cart_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const double *latitude, const double *longitude, const double *height, const double *latitude_rate, const double *longitude_rate, const double *height_rate, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_geod_to_cart_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const double *latitude, const double *longitude, const double *height, const double *latitude_rate, const double *longitude_rate, const double *height_rate, double pos[][3], double vel[][3], long *status, long *ierr)
{
    kl_geodetic block[kMostRows];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    memset(block, 0, sizeof block);
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        for (k = 0; latitude != NULL && k < count; ++k)
            block[k].latitude = latitude[i + k];
        for (k = 0; longitude != NULL && k < count; ++k)
            block[k].longitude = longitude[i + k];
        for (k = 0; height != NULL && k < count; ++k)
            block[k].height = height[i + k];
        for (k = 0; latitude_rate != NULL && k < count; ++k)
            block[k].latitude_rate = latitude_rate[i + k];
        for (k = 0; longitude_rate != NULL && k < count; ++k)
            block[k].longitude_rate = longitude_rate[i + k];
        for (k = 0; height_rate != NULL && k < count; ++k)
            block[k].height_rate = height_rate[i + k];
        result = joined(result, kl_geod_to_cart_n(model_id, &count, calc_mode, block, AT(pos), AT(vel), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_kepl_to_cart_columns(kl_model_id *model_id, const long *n, const long *kind, const double *semi_major_axis, const double *eccentricity, const double *inclination, const double *raan, const double *arg_perigee, const double *mean_anomaly, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_kepl_to_cart_columns(kl_model_id *model_id, const long *n, const long *kind, const double *semi_major_axis, const double *eccentricity, const double *inclination, const double *raan, const double *arg_perigee, const double *mean_anomaly, double pos[][3], double vel[][3], long *status, long *ierr)
{
    kl_kepler block[kMostRows];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    memset(block, 0, sizeof block);
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        for (k = 0; semi_major_axis != NULL && k < count; ++k)
            block[k].semi_major_axis = semi_major_axis[i + k];
        for (k = 0; eccentricity != NULL && k < count; ++k)
            block[k].eccentricity = eccentricity[i + k];
        for (k = 0; inclination != NULL && k < count; ++k)
            block[k].inclination = inclination[i + k];
        for (k = 0; raan != NULL && k < count; ++k)
            block[k].raan = raan[i + k];
        for (k = 0; arg_perigee != NULL && k < count; ++k)
            block[k].arg_perigee = arg_perigee[i + k];
        for (k = 0; mean_anomaly != NULL && k < count; ++k)
            block[k].mean_anomaly = mean_anomaly[i + k];
        result = joined(result, kl_kepl_to_cart_n(model_id, &count, kind, block, AT(pos), AT(vel), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_radec_to_cart_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const double *ra, const double *dec, const double *distance, const double *ra_rate, const double *dec_rate, const double *distance_rate, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_radec_to_cart_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const double *ra, const double *dec, const double *distance, const double *ra_rate, const double *dec_rate, const double *distance_rate, double pos[][3], double vel[][3], long *status, long *ierr)
{
    kl_radec block[kMostRows];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    memset(block, 0, sizeof block);
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        for (k = 0; ra != NULL && k < count; ++k)
            block[k].ra = ra[i + k];
        for (k = 0; dec != NULL && k < count; ++k)
            block[k].dec = dec[i + k];
        for (k = 0; distance != NULL && k < count; ++k)
            block[k].distance = distance[i + k];
        for (k = 0; ra_rate != NULL && k < count; ++k)
            block[k].ra_rate = ra_rate[i + k];
        for (k = 0; dec_rate != NULL && k < count; ++k)
            block[k].dec_rate = dec_rate[i + k];
        for (k = 0; distance_rate != NULL && k < count; ++k)
            block[k].distance_rate = distance_rate[i + k];
        result = joined(result, kl_radec_to_cart_n(model_id, &count, calc_mode, block, AT(pos), AT(vel), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

KL_API long kitlib_kl_topocentric_to_ef_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const double *azimuth, const double *elevation, const double *range, const double *azimuth_rate, const double *elevation_rate, const double *range_rate, double pos[][3], double vel[][3], long *status, long *ierr);
long kitlib_kl_topocentric_to_ef_columns(kl_model_id *model_id, const long *n, const long *calc_mode, const kl_geodetic *origin, const double *azimuth, const double *elevation, const double *range, const double *azimuth_rate, const double *elevation_rate, const double *range_rate, double pos[][3], double vel[][3], long *status, long *ierr)
{
    kl_topocentric block[kMostRows];
    long i, k, count, result;
    if (!begun(n, ierr, 1, &result))
        return result;
    memset(block, 0, sizeof block);
    for (i = 0; i < *n; i += kMostRows) {
        long word[1] = {0};
        count = *n - i < kMostRows ? *n - i : kMostRows;
        for (k = 0; azimuth != NULL && k < count; ++k)
            block[k].azimuth = azimuth[i + k];
        for (k = 0; elevation != NULL && k < count; ++k)
            block[k].elevation = elevation[i + k];
        for (k = 0; range != NULL && k < count; ++k)
            block[k].range = range[i + k];
        for (k = 0; azimuth_rate != NULL && k < count; ++k)
            block[k].azimuth_rate = azimuth_rate[i + k];
        for (k = 0; elevation_rate != NULL && k < count; ++k)
            block[k].elevation_rate = elevation_rate[i + k];
        for (k = 0; range_rate != NULL && k < count; ++k)
            block[k].range_rate = range_rate[i + k];
        result = joined(result, kl_topocentric_to_ef_n(model_id, &count, calc_mode, origin, block, AT(pos), AT(vel), AT(status), word));
        for (k = 0; ierr != NULL && k < 1; ++k)
            ierr[k] |= word[k];
    }
    return result;
}

/* Columns of numbers to records of them. */
KL_API long kitlib_packed(const double *const *columns, const long *n_columns, const long *n, double *out);
long kitlib_packed(const double *const *columns, const long *n_columns, const long *n, double *out)
{
    const long width = *n_columns;
    long first, i, k;
    for (first = 0; first < *n; first += kMostRows) {
        double *const block = out + first * width;
        const long count = *n - first < kMostRows ? *n - first : kMostRows;
        for (k = 0; k < width; ++k)
            for (i = 0; i < count; ++i)
                block[i * width + k] = columns[k] != NULL ? columns[k][first + i] : 0.0;
    }
    return KL_OK;
}

/* States between states in memory; one that there is not is NaN. */
KL_API long kitlib_kl_interpolate_states_n(const long *n_states, const kl_state_at *states, const long *n, const double *time, double pos[][3],
                                           double vel[][3], double *error, long *status);
long kitlib_kl_interpolate_states_n(const long *n_states, const kl_state_at *states, const long *n, const double *time, double pos[][3],
                                    double vel[][3], double *error, long *status)
{
    long i, result;
    if (!begun(n, NULL, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        const long one = kl_interpolate_states(n_states, states, time + i, pos[i], vel[i], error + i, NULL);
        result = noted(result, one, i, status, NULL, NULL, 0);
        if (one == KL_ERR) {
            fill(pos[i], 3);
            fill(vel[i], 3);
            error[i] = NAN;
        }
    }
    return result;
}

/* Rows of a correlation that serve instants; all zero where there is none. */
KL_API long kitlib_kl_time_get_row_n(kl_time_id *time_id, const long *n, const long *time_ref, const double *time, kl_time_row_info *out,
                                     long *status);
long kitlib_kl_time_get_row_n(kl_time_id *time_id, const long *n, const long *time_ref, const double *time, kl_time_row_info *out,
                              long *status)
{
    long i, result;
    if (!begun(n, NULL, 1, &result))
        return result;
    for (i = 0; i < *n; ++i) {
        const long one = kl_time_get_row(time_id, time_ref, time + i, out + i);
        result = noted(result, one, i, status, NULL, NULL, 0);
        if (one == KL_ERR)
            memset(out + i, 0, sizeof out[i]);
    }
    return result;
}
