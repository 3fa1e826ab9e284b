// One valid call of every public function, for tests that hold for all of them.
#ifndef KL_TESTS_SUPPORT_EVERY_FUNCTION_H
#define KL_TESTS_SUPPORT_EVERY_FUNCTION_H

#include "kl_lib.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

// An argument of the call that is not what it should be: no pointer, or numbers out of every range in its place.
struct BadArgument {
    static constexpr int kKinds = 7; // the first is NULL
    int position = -1;
    int kind = 0;

    const double *reals() const;
    const long *integers() const;

    template <typename T>
    T in_place_of(T value, int at) const
    {
        if (at != position)
            return value;
        if constexpr (std::is_arithmetic_v<T>)
            return static_cast<T>(*integers());
        else if (kind == 0)
            return nullptr;
        else if constexpr (std::is_same_v<T, const double *>)
            return reals();
        else if constexpr (std::is_same_v<T, const long *>)
            return integers();
        else
            return value;
    }
};

// What a call leaves: equal bytes are equal outputs.
struct Outputs {
    long status = KL_OK;
    long ierr[2] = {0, 0};
    double a[32] = {};
    double days = 0.0;
    long fields[4] = {};
    char text[2][KL_TIME_ASCII_LENGTH] = {};
    unsigned char octets[24] = {};                             // KL_CUC_LENGTH and no padding
    alignas(double) unsigned char record_space[sizeof a] = {}; // of any record that a call fills

    bool operator==(const Outputs &other) const { return std::memcmp(this, &other, sizeof other) == 0; }
};

// What the calls take and where they write. open() makes the shared ids, close() ends whatever is open.
struct World : Outputs {
    kl_time_id time = {nullptr};
    kl_model_id model = {nullptr};
    long run = -1;
    double at = 6000.25; // the instant of the calls, MJD2000

    // For the functions that open something themselves.
    kl_time_id own_time = {nullptr};
    kl_model_id own_model = {nullptr};
    kl_time_id_data own_rows = {};
    long own_run = -1;
    long own_sat = -1;

    BadArgument bad;
    int n_arguments = 0; // of the function called last
    // By argument, what a call takes in place of the valid one, if anything: NULL, empty (a time id), refused 4 (a
    // model id whose selection 4 is not offered), a text, or numbers; in records whole ones end with an l.
    std::vector<std::string> given;
    kl_model_id refused_model = {nullptr};

    bool open();
    void close();

    template <typename Record>
    Record *record()
    {
        static_assert(sizeof(Record) <= sizeof record_space);
        return reinterpret_cast<Record *>(record_space);
    }

    template <typename Result, typename... Parameters, typename... Arguments>
    long call(Result (*function)(Parameters...), Arguments... arguments)
    {
        n_arguments = static_cast<int>(sizeof...(Parameters));
        return call_with(function, std::tuple<Parameters...>(arguments...), std::index_sequence_for<Parameters...>());
    }

private:
    template <typename Result, typename... Parameters, std::size_t... I>
    long call_with(Result (*function)(Parameters...), const std::tuple<Parameters...> &all, std::index_sequence<I...>)
    {
        if constexpr (std::is_void_v<Result>) {
            function(argument(std::get<I>(all), I)...);
            return KL_OK;
        } else {
            return function(argument(std::get<I>(all), I)...);
        }
    }

    template <typename T>
    T argument(T valid, std::size_t k)
    {
        if (k >= given.size() || given[k].empty())
            return bad.in_place_of(valid, static_cast<int>(k));
        if constexpr (std::is_arithmetic_v<T>)
            return static_cast<T>(std::stod(given[k]));
        else if constexpr (std::is_function_v<std::remove_pointer_t<T>>)
            return nullptr;
        else if (given[k] == "NULL")
            return nullptr;
        else if constexpr (std::is_same_v<T, kl_time_id *>)
            return &empty_time_;
        else if constexpr (std::is_same_v<T, kl_model_id *>)
            return refused(given[k]);
        else if constexpr (std::is_same_v<T, const char *>)
            return given[k].c_str();
        else
            return reinterpret_cast<T>(words_of(given[k], std::is_same_v<T, const long *>, &words_[k]));
    }

    using Words = std::vector<std::uint64_t>;
    static std::uint64_t *words_of(const std::string &cell, bool whole, Words *words);
    kl_model_id *refused(const std::string &cell);

    kl_time_id empty_time_ = {nullptr};
    Words words_[16];
};

struct PublicCall {
    const char *name;
    long (*call)(World &);
    bool has_vector;            // of errors
    bool has_conditions = true; // in that vector: without, a warning has no bit
};

// Makes the call, with nothing left of the one before.
inline const Outputs &outputs_of(const PublicCall &f, World &world)
{
    static_cast<Outputs &>(world) = {};
    world.status = f.call(world);
    return world;
}

// The first call and the one behind the last.
const PublicCall *every_call();
const PublicCall *every_call_end();

#endif
