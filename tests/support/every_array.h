// Every array form with what its calls take: ids, one value of each selector, columns. Values come by name and type.
#ifndef KL_TESTS_SUPPORT_EVERY_ARRAY_H
#define KL_TESTS_SUPPORT_EVERY_ARRAY_H

#include "kl_lib.h"

#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// One column: role e(ach), g(ives) or b(oth); an element's words are d(oubles), l(ongs), k(ept whatever happens), or
// one t(ext) or o(ctets).
struct Column {
    char role;
    const char *name;
    const char *type;
    const char *words;
};

enum class Correlation { explicit_values, rows, built_in };

struct ArrayWorld {
    static constexpr int kColumns = 10;

    kl_time_id time = {nullptr};
    kl_model_id model = {nullptr};
    long run = -1;
    long satellite = 51;                                // its clock is the one below
    std::map<std::string, long, std::less<>> selectors; // a look-up makes no string
    kl_geodetic origin = {48.0, 11.0, 600.0, 0.0, 0.0, 0.0};
    kl_cuc_config config = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1958, KL_TIME_TAI, 0.0, 4, 2};
    kl_obt_param_vardo clock = {51, 0};
    unsigned char *at[kColumns] = {}; // null: an array that is missing
    long width[kColumns] = {};        // octets of an element

    std::vector<double> odd_instants; // some of the calls', which then lie about the leap second of 2016

    bool open(Correlation kind);
    bool open(const std::function<bool(kl_time_id *)> &make);
    void close();

    const long *selected(const char *name) const { return &selectors.find(std::string_view(name))->second; }

    template <typename Record>
    const Record *record() const;

    template <typename T>
    T *element(int k, long i) const
    {
        return at[k] != nullptr ? static_cast<T *>(static_cast<void *>(at[k] + i * width[k])) : nullptr;
    }
    template <typename T>
    T *column(int k) const
    {
        return static_cast<T *>(static_cast<void *>(at[k]));
    }
};

template <>
inline const kl_geodetic *ArrayWorld::record() const
{
    return &origin;
}
template <>
inline const kl_cuc_config *ArrayWorld::record() const
{
    return &config;
}
template <>
inline const void *ArrayWorld::record() const
{
    return &clock;
}

struct ArrayForm {
    const char *name;
    int n_vector;
    std::vector<Column> columns;
    long (*one)(ArrayWorld &w, long i, long *ierr);
    long (*all)(ArrayWorld &w, const long *n, long *status, long *ierr);
};

// Of the table of functions, and the one whose scalar form takes a record apart.
const std::vector<ArrayForm> &every_array_form();

// ---- values ----

using Random = std::mt19937_64;
using Bytes = std::vector<unsigned char>;

// The selectors, each in its range: not all of them together make a valid call.
void choose(Random &random, ArrayWorld *w);

// Octets of an element, with the selectors as they are.
long width_of(const ArrayWorld &w, const Column &c);

// How the instants of a column go on.
enum class Instants { each_its_own, in_runs, one };

// The inputs of n elements that every function likes, by column (of results: as much room); spoilt: some words not.
std::vector<Bytes> make_inputs(const ArrayForm &f, const ArrayWorld &w, long n, bool spoilt, Instants instants,
                               Random &random);

// Chooses until an element without fault is accepted; false if none was.
bool choose_valid(const ArrayForm &f, Random &random, ArrayWorld *w);

#endif
