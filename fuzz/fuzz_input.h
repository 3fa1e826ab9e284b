// Arbitrary arguments from the bytes that the fuzzer offers.
#ifndef KL_FUZZ_FUZZ_INPUT_H
#define KL_FUZZ_FUZZ_INPUT_H

#include "kl_lib.h"

#include <algorithm>
#include <array>
#include <cmath>
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

    // Mostly a number below n, now and then another.
    long below(int n) { return byte() % 8 == 0 ? number() : byte() % n; }

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

// A status must be one of three, and agree with the word of the vector.
inline void expect_status(long status, const long *ierr)
{
    if (status != KL_OK && status != KL_WARN && status != KL_ERR)
        __builtin_trap();
    if (ierr[0] < 0 && status != KL_ERR)
        __builtin_trap();
}

// A call that succeeds gives finite numbers.
template <std::size_t N>
void expect_finite(long status, const double (&values)[N])
{
    if (status == KL_ERR)
        return;
    for (const double x : values)
        if (!std::isfinite(x))
            __builtin_trap();
}

// A table for a time id: rows that agree with themselves, on days and with differences of any kind, some of them with
// one number that is not theirs.
struct FuzzTable {
    explicit FuzzTable(FuzzInput &in)
    {
        double utc = in.byte() % 2 == 0 ? 6207.0 : in.real();
        double tai_utc = static_cast<double>(in.below(60));
        for (kl_time_row &row : rows) {
            const double tai = utc + tai_utc / 86400.0;
            const double tai_ut1 = tai_utc + (in.byte() % 8 == 0 ? in.real() : in.byte() / 256.0 - 0.5);
            const double tai_gps = in.byte() % 8 == 0 ? in.real() : 19.0;
            row = {tai, tai - tai_ut1 / 86400.0, utc, tai_utc, tai_ut1, tai_gps};
            double *const fields[] = {&row.tai, &row.ut1, &row.utc, &row.tai_utc, &row.tai_ut1, &row.tai_gps};
            if (in.byte() % 16 == 0)
                *fields[in.byte() % 6] = in.real();
            utc += in.byte() % 2 == 0 ? 1.0 : in.real();
            constexpr double kSteps[] = {0.0, 0.0, 1.0, -1.0, 2.0, -30.0, 0.5, 1e9};
            tai_utc += kSteps[in.byte() % 8];
        }
        data.model = in.number();
        data.combination = in.byte() % 2 == 0 ? 2 : in.number();
        data.no_extrapolation = in.byte() % 2 == 0 ? 0 : in.number();
        data.second_bulletin_row = in.below(9);
        data.a = in.real();
        data.b = in.real();
        data.c = in.real();
        data.n_rows = std::min(in.number(), static_cast<long>(rows.size()));
        data.rows = in.maybe(rows.data());
    }

    std::array<kl_time_row, 9> rows{};
    kl_time_id_data data{};
};

// A time id and a model id in any state.
class FuzzIds {
public:
    explicit FuzzIds(FuzzInput &in)
    {
        change(in);
        change(in);
    }

    ~FuzzIds()
    {
        kl_time_close(&time, nullptr);
        kl_model_close(&model, nullptr);
    }

    FuzzIds(const FuzzIds &) = delete;
    FuzzIds &operator=(const FuzzIds &) = delete;

    // Initialises, replaces or closes one of them.
    void change(FuzzInput &in)
    {
        long ierr[1] = {0};
        switch (in.byte() % 6) {
        case 0: {
            const std::array<double, 4> readings = in.reals<4>();
            const long orbit = in.number();
            const double anx_time = in.real(), duration = in.real();
            expect_status(kl_time_ref_init(in.maybe(readings.data()), in.maybe(&orbit), in.maybe(&anx_time),
                                           in.maybe(&duration), in.maybe(&time), in.maybe(ierr)),
                          ierr);
            break;
        }
        case 1:
            expect_status(kl_time_close(in.maybe(&time), in.maybe(ierr)), ierr);
            break;
        case 2: {
            const long mode = in.below(2);
            long models[9];
            for (long &m : models)
                m = in.byte() % 8 == 0 ? in.number() : 0;
            expect_status(kl_model_init(in.maybe(&mode), in.maybe(&models[0]), in.maybe(&model), in.maybe(ierr)), ierr);
            break;
        }
        case 3:
            expect_status(kl_model_close(in.maybe(&model), in.maybe(ierr)), ierr);
            break;
        default: {
            const FuzzTable table(in);
            const void *before = time.record;
            if (kl_time_set_id_data(in.maybe(&time), in.maybe(&table.data)) != 0 && time.record != before)
                __builtin_trap(); // a refusal builds nothing
        }
        }
    }

    kl_time_id time = {nullptr};
    kl_model_id model = {nullptr};
};

// As wide as any record of an on-board clock: every satellite reads its own part of it.
union ClockRecord {
    long sat_id;
    long words[8];
};

inline ClockRecord clock_record(FuzzInput &in)
{
    ClockRecord record;
    for (long &word : record.words) {
        const double real = in.byte() % 4 == 0 ? in.real() : 0.0;
        if (real != 0.0)
            std::memcpy(&word, &real, sizeof word);
        else
            word = in.number();
    }
    return record;
}

// Satellites with a clock, those without, and any number.
inline long satellite(FuzzInput &in)
{
    constexpr long kSatellites[] = {21, 51, 61, 71, 200, 0};
    return in.byte() % 8 == 0 ? in.number() : kSatellites[in.byte() % 6];
}

#endif
