// What array forms leave of an element that fails: NaN, 0, empty texts. Arrays may be missing.
#ifndef KL_SRC_ARRAYS_FAILED_ELEMENTS_H
#define KL_SRC_ARRAYS_FAILED_ELEMENTS_H

#include "kl_lib.h"

#include <cstring>
#include <limits>

inline void fill_failed(double *out, long i)
{
    if (out != nullptr)
        out[i] = std::numeric_limits<double>::quiet_NaN();
}

inline void fill_failed(long *out, long i)
{
    if (out != nullptr)
        out[i] = 0;
}

template <class Word, std::size_t M>
void fill_failed(Word (*out)[M], long i)
{
    for (std::size_t k = 0; out != nullptr && k < M; ++k)
        fill_failed(out[i], static_cast<long>(k));
}

// Records of doubles throughout.
template <class Record>
void fill_failed(Record *out, long i)
{
    constexpr std::size_t kFields = sizeof(Record) / sizeof(double);
    static_assert(kFields * sizeof(double) == sizeof(Record));
    double fields[kFields];
    for (std::size_t k = 0; k < kFields; ++k)
        fill_failed(fields, static_cast<long>(k));
    if (out != nullptr)
        std::memcpy(out + i, fields, sizeof fields);
}

inline void fill_failed(kl_earth_orientation *out, long i)
{
    if (out == nullptr)
        return;
    fill_failed<kl_earth_orientation>(out, i);
    out[i].notes = 0;
}

struct TextColumn {
    char *texts;
    const long *width;
};
inline void fill_failed(const TextColumn &column, long i)
{
    if (column.texts != nullptr && column.width != nullptr && *column.width > 0)
        std::memset(column.texts + i * *column.width, 0, static_cast<std::size_t>(*column.width));
}

// A function of i that fills element i of each of these arrays.
template <class... Columns>
auto fails_in(Columns... columns)
{
    return [=](long i) { (fill_failed(columns, i), ...); };
}

#endif
