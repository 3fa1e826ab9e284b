// Arbitrary arguments from the bytes that the fuzzer offers.
#ifndef KL_FUZZ_FUZZ_INPUT_H
#define KL_FUZZ_FUZZ_INPUT_H

#include "kl_lib.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

class FuzzInput {
public:
    FuzzInput(const std::uint8_t *data, std::size_t size) : data_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    std::uint8_t byte()
    {
        if (left_ == 0)
            return 0;
        --left_;
        return *data_++;
    }

    template <typename T>
    T bits()
    {
        T value{};
        const std::size_t n = std::min(left_, sizeof value);
        std::memcpy(&value, data_, n);
        data_ += n;
        left_ -= n;
        return value;
    }

    // A number near those that mean something, or any number at all.
    long number()
    {
        const std::uint8_t choice = byte();
        return choice < 250 ? static_cast<long>(choice) - 8 : bits<long>();
    }

    // Ordinary days, limits, and any bits: NaN and infinities among them.
    double real()
    {
        switch (byte() % 4) {
        case 0:
            return bits<double>();
        case 1:
            return static_cast<double>(bits<std::int16_t>()) + bits<std::uint16_t>() / 65536.0;
        case 2:
            return static_cast<double>(bits<std::int8_t>()) / 16.0;
        default: {
            constexpr double kSpecial[] = {0.0,   -18262.0, 36524.0, 36525.0, 6209.0, 90.0,
                                           -90.0, 360.0,    1.0,     -1.0,    0.5,    7.0e6};
            return kSpecial[byte() % std::size(kSpecial)];
        }
        }
    }

    template <std::size_t N>
    std::array<double, N> reals()
    {
        std::array<double, N> out;
        for (double &x : out)
            x = real();
        return out;
    }

    // A text of up to `longest` characters with a terminator.
    std::string text(std::size_t longest)
    {
        const std::size_t n = std::min<std::size_t>({byte(), longest, left_});
        std::string out(reinterpret_cast<const char *>(data_), n);
        data_ += n;
        left_ -= n;
        return out;
    }

    // The pointer, or NULL once in sixteen.
    template <typename T>
    T *maybe(T *pointer)
    {
        return byte() % 16 == 15 ? nullptr : pointer;
    }

private:
    const std::uint8_t *data_;
    std::size_t left_;
};

// Ids for a target: uninitialised, of explicit values, or of a table with a leap second.
class FuzzIds {
public:
    explicit FuzzIds(FuzzInput &in)
    {
        switch (in.byte() % 4) {
        case 0:
            break;
        case 1: {
            const double readings[4] = {in.real(), in.real(), in.real(), in.real()};
            kl_time_ref_init(readings, nullptr, nullptr, nullptr, &time, nullptr);
            break;
        }
        default: {
            std::array<kl_time_row, 4> rows;
            const double sign = in.byte() % 2 == 0 ? 1.0 : -1.0;
            for (std::size_t i = 0; i < rows.size(); ++i) {
                const double tai_utc = i < 2 ? 36.0 : 36.0 + sign;
                const double utc = 6208.0 + static_cast<double>(i) - 1.0;
                const double tai = utc + tai_utc / 86400.0;
                const double tai_ut1 = tai_utc + 0.4 + 0.001 * static_cast<double>(i);
                rows[i] = {tai, tai - tai_ut1 / 86400.0, utc, tai_utc, tai_ut1, 19.0};
            }
            kl_time_id_data data = {};
            data.model = 1 + in.byte() % 12;
            data.combination = in.byte() % 2 == 0 ? -1 : 2;
            data.second_bulletin_row = 2;
            data.no_extrapolation = in.byte() % 2;
            data.c = 6210.0;
            data.n_rows = static_cast<long>(rows.size());
            data.rows = rows.data();
            kl_time_set_id_data(&time, &data);
            break;
        }
        }
        if (in.byte() % 2 == 1) {
            const long mode = in.number();
            long models[9];
            for (long &m : models)
                m = in.byte() % 8 == 0 ? in.number() : 0;
            kl_model_init(&mode, models, &model, nullptr);
        }
    }

    ~FuzzIds()
    {
        kl_time_close(&time, nullptr);
        kl_model_close(&model, nullptr);
    }

    FuzzIds(const FuzzIds &) = delete;
    FuzzIds &operator=(const FuzzIds &) = delete;

    kl_time_id time = {nullptr};
    kl_model_id model = {nullptr};
};

// A status must be one of three, and agree with the word of the vector.
inline void expect_status(long status, const long *ierr)
{
    if (status != KL_OK && status != KL_WARN && status != KL_ERR)
        __builtin_trap();
    if (ierr != nullptr && ierr[0] < 0 && status != KL_ERR)
        __builtin_trap();
}

// As wide as any record of an on-board clock: every satellite reads its own part of it.
union ClockRecord {
    long sat_id;
    std::uint8_t bytes[64];
};

inline ClockRecord clock_record(FuzzInput &in)
{
    ClockRecord record;
    for (std::uint8_t &b : record.bytes)
        b = in.byte() % 2 == 0 ? 0 : in.byte();
    return record;
}

#endif
