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

/*
 * Texts of numpy, `from` characters of `size` octets (1 or 4) padded with zeros, to octets of a fixed width that ends with a
 * zero. One that is too long or has a zero inside becomes question marks, which no layout has. Returns 0, or the number of the
 * first text, from 1, that is not ASCII.
 */
KL_API long kitlib_texts(const void *in, long n, long from, long size, unsigned char *out, long width);
long kitlib_texts(const void *in, long n, long from, long size, unsigned char *out, long width)
{
    const long room = from < width - 1 ? from : width - 1;
    long i, k;
    for (i = 0; i < n; ++i) {
        unsigned char *const text = out + i * width;
        unsigned bits = 0, beyond = 0;
        memset(text, 0, (size_t)width);
        if (size == 4) {
            const uint32_t *const row = (const uint32_t *)in + i * from;
            for (k = 0; k < room; ++k) {
                bits |= row[k];
                text[k] = (unsigned char)row[k];
            }
            for (; k < from; ++k)
                beyond |= row[k];
        } else {
            const unsigned char *const row = (const unsigned char *)in + i * from;
            for (k = 0; k < room; ++k) {
                bits |= row[k];
                text[k] = row[k];
            }
            for (; k < from; ++k)
                beyond |= row[k];
        }
        if ((bits | beyond) > 127)
            return i + 1;
        for (k = (long)strlen((const char *)text); k < room; ++k)
            beyond |= text[k];
        if (beyond != 0)
            memset(text, '?', (size_t)width - 1);
    }
    return 0;
}

/* Length of the longest of n texts in octets of a fixed width, padded with zeros. */
KL_API long kitlib_longest(const unsigned char *in, long n, long width);
long kitlib_longest(const unsigned char *in, long n, long width)
{
    long i, longest = 0;
    for (i = 0; i < n; ++i)
        while (longest < width && in[i * width + longest] != 0)
            ++longest;
    return longest;
}

/* Octets of a fixed width to texts of numpy: `to` characters of four octets, padded with zeros. */
KL_API long kitlib_wide_texts(const unsigned char *in, long n, long width, uint32_t *out, long to);
long kitlib_wide_texts(const unsigned char *in, long n, long width, uint32_t *out, long to)
{
    long i, k;
    for (i = 0; i < n; ++i)
        for (k = 0; k < to; ++k)
            out[i * to + k] = in[i * width + k];
    return 0;
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
