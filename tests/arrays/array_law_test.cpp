// The law of array forms: n elements in one call are n scalar calls in order, bit for bit.
#include "support/captured_stream.h"

#include "kl_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Columns of an array call: doubles per element, of the inputs and of the outputs.
struct Columns {
    std::vector<int> in, out;
};

// Doubles that end at a page which nobody may touch.
class Guarded {
public:
    explicit Guarded(std::size_t n)
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t bytes = n * sizeof(double);
        size_ = (bytes / page + 2) * page;
        block_ = static_cast<char *>(mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        EXPECT_EQ(mprotect(block_ + size_ - page, page, PROT_NONE), 0);
        doubles_ = reinterpret_cast<double *>(block_ + size_ - page - bytes);
    }
    ~Guarded() { munmap(block_, size_); }
    Guarded(const Guarded &) = delete;
    Guarded &operator=(const Guarded &) = delete;
    double *get() const { return doubles_; }

private:
    std::size_t size_ = 0;
    char *block_ = nullptr;
    double *doubles_ = nullptr;
};

// The pointers of one call: element i of an input of width w stands at in[c] + w i.
struct Pointers {
    double *in[8] = {};
    double *out[8] = {};
};

struct Function {
    const char *name;
    Columns columns;
    std::function<long(const Pointers &, long, long *)> one;           // element, vector
    std::function<long(const Pointers &, long, long *, long *)> array; // n, status, vector
    std::function<double(std::mt19937_64 &, int)> number;              // for a column
};

double even(std::mt19937_64 &random, double from, double to)
{
    return std::uniform_real_distribution<double>(from, to)(random);
}

// Now and then what no function likes.
double awkward(std::mt19937_64 &random)
{
    constexpr double kAwkward[] = {0.0, -0.0, 1e300, -1e300, 5e-324, kNaN, HUGE_VAL, -18262.0, 36524.0, 36524.1, 1.0};
    return kAwkward[random() % std::size(kAwkward)];
}

using Three = double (*)[3];
using ConstThree = const double (*)[3];
using Four = double (*)[4];
using Nine = double (*)[9];

struct Ids {
    kl_time_id time = {nullptr};
    kl_time_id table = {nullptr}, twin = {nullptr}; // each keeps its own once-only flags
    kl_model_id model = {nullptr};
    long ref = KL_TIME_UTC, mode = KL_CALC_POS_VEL_ACC, from = KL_GM2000, to = KL_EF, planet = KL_MARS, slerp = 0;
    long degree = 12;

    Ids()
    {
        long ierr = 0;
        const double tri[4] = {8000.0, 8000.0 - 37.0 / 86400.0, 8000.0 - 36.9 / 86400.0, 8000.0 - 19.0 / 86400.0};
        const long orbit = 0;
        const double zero = 0.0;
        EXPECT_EQ(kl_time_ref_init(tri, &orbit, &zero, &zero, &time, &ierr), KL_OK);
        std::vector<kl_time_row> rows;
        for (int i = 0; i < 400; ++i) {
            kl_time_row row = {};
            row.tai = 6000.0 + 10.0 * i;
            row.tai_utc = i < 200 ? 35.0 : 36.0;
            row.tai_ut1 = row.tai_utc - 0.3 + 0.0007 * i + (i < 200 ? 0.0 : -0.5);
            row.tai_gps = 19.0;
            row.utc = row.tai - row.tai_utc / 86400.0;
            row.ut1 = row.tai - row.tai_ut1 / 86400.0;
            rows.push_back(row);
        }
        kl_time_id_data data = {};
        data.model = 5;
        data.n_rows = static_cast<long>(rows.size());
        data.rows = rows.data();
        EXPECT_EQ(kl_time_set_id_data(&table, &data), 0);
        EXPECT_EQ(kl_time_set_id_data(&twin, &data), 0);
    }
    ~Ids()
    {
        long ierr = 0;
        kl_time_close(&time, &ierr);
        kl_time_close(&table, &ierr);
        kl_time_close(&twin, &ierr);
    }
};

double instant_or_metres(std::mt19937_64 &random, int column)
{
    return column != 0         ? even(random, -1e7, 1e7)
           : random() % 8 == 0 ? even(random, -18262.0, 36524.0)
                               : even(random, 6010.0, 9980.0);
}

std::vector<Function> functions(Ids &ids, kl_time_id *time_id)
{
    return {
        {"kl_change_cart_cs",
         {{1, 3, 3, 3}, {3, 3, 3}},
         [&ids, time_id](const Pointers &p, long i, long *ierr) {
             return kl_change_cart_cs(&ids.model, time_id, &ids.mode, &ids.from, &ids.to, &ids.ref, p.in[0] + i,
                                      p.in[1] + 3 * i, p.in[2] + 3 * i, p.in[3] + 3 * i, p.out[0] + 3 * i,
                                      p.out[1] + 3 * i, p.out[2] + 3 * i, ierr);
         },
         [&ids, time_id](const Pointers &p, long n, long *status, long *ierr) {
             return kl_change_cart_cs_n(&ids.model, time_id, &n, &ids.mode, &ids.from, &ids.to, &ids.ref, p.in[0],
                                        ConstThree(p.in[1]), ConstThree(p.in[2]), ConstThree(p.in[3]), Three(p.out[0]),
                                        Three(p.out[1]), Three(p.out[2]), status, ierr);
         },
         instant_or_metres},
        {"kl_sun",
         {{1}, {3, 3}},
         [&ids, time_id](const Pointers &p, long i, long *ierr) {
             return kl_sun(&ids.model, time_id, &ids.ref, p.in[0] + i, p.out[0] + 3 * i, p.out[1] + 3 * i, ierr);
         },
         [&ids, time_id](const Pointers &p, long n, long *status, long *ierr) {
             return kl_sun_n(&ids.model, time_id, &n, &ids.ref, p.in[0], Three(p.out[0]), Three(p.out[1]), status,
                             ierr);
         },
         instant_or_metres},
        {"kl_moon",
         {{1}, {3, 3}},
         [&ids, time_id](const Pointers &p, long i, long *ierr) {
             return kl_moon(&ids.model, time_id, &ids.ref, p.in[0] + i, p.out[0] + 3 * i, p.out[1] + 3 * i, ierr);
         },
         [&ids, time_id](const Pointers &p, long n, long *status, long *ierr) {
             return kl_moon_n(&ids.model, time_id, &n, &ids.ref, p.in[0], Three(p.out[0]), Three(p.out[1]), status,
                              ierr);
         },
         instant_or_metres},
        {"kl_planet",
         {{1}, {3, 3}},
         [&ids, time_id](const Pointers &p, long i, long *ierr) {
             return kl_planet(&ids.model, time_id, &ids.planet, &ids.ref, p.in[0] + i, p.out[0] + 3 * i,
                              p.out[1] + 3 * i, ierr);
         },
         [&ids, time_id](const Pointers &p, long n, long *status, long *ierr) {
             return kl_planet_n(&ids.model, time_id, &n, &ids.planet, &ids.ref, p.in[0], Three(p.out[0]),
                                Three(p.out[1]), status, ierr);
         },
         instant_or_metres},
        {"kl_geoid_calc",
         {{1, 1}, {1}},
         [&ids](const Pointers &p, long i, long *ierr) {
             const kl_geoid_input point = {&ids.model, p.in[0][i], p.in[1][i], 0.0, ids.degree};
             return kl_geoid_calc(&point, p.out[0] + i, ierr);
         },
         [&ids](const Pointers &p, long n, long *status, long *ierr) {
             return kl_geoid_calc_n(&ids.model, &n, p.in[0], p.in[1], &ids.degree, p.out[0], status, ierr);
         },
         [](std::mt19937_64 &random, int column) {
             return column == 0 ? even(random, -90.0, 90.0) : even(random, 0.0, 360.0);
         }},
        {"kl_euler_to_matrix",
         {{3}, {9}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_euler_to_matrix(p.in[0] + 3 * i, p.out[0] + 9 * i, ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_euler_to_matrix_n(&n, ConstThree(p.in[0]), Nine(p.out[0]), status, ierr);
         },
         [](std::mt19937_64 &random, int) { return even(random, -400.0, 400.0); }},
        {"kl_matrix_to_euler",
         {{9}, {3}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_matrix_to_euler(p.in[0] + 9 * i, p.out[0] + 3 * i, ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_matrix_to_euler_n(&n, Nine(p.in[0]), Three(p.out[0]), status, ierr);
         },
         [](std::mt19937_64 &random, int) { return static_cast<double>(random() % 3) - 1.0; }},
        {"kl_quaternions_to_vectors",
         {{4}, {3, 3, 3}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_quaternions_to_vectors(p.in[0] + 4 * i, p.out[0] + 3 * i, p.out[1] + 3 * i, p.out[2] + 3 * i,
                                              ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_quaternions_to_vectors_n(&n, Four(p.in[0]), Three(p.out[0]), Three(p.out[1]), Three(p.out[2]),
                                                status, ierr);
         },
         [](std::mt19937_64 &random, int) { return random() % 4 == 0   ? 1.0
                                                   : random() % 2 == 0 ? 0.5
                                                                       : -0.5; }},
        {"kl_vectors_to_quaternions",
         {{3, 3, 3}, {4}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_vectors_to_quaternions(p.in[0] + 3 * i, p.in[1] + 3 * i, p.in[2] + 3 * i, p.out[0] + 4 * i,
                                              ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_vectors_to_quaternions_n(&n, Three(p.in[0]), Three(p.in[1]), Three(p.in[2]), Four(p.out[0]),
                                                status, ierr);
         },
         [](std::mt19937_64 &random, int) { return static_cast<double>(random() % 3) - 1.0; }},
        {"kl_get_rotation_angles",
         {{3, 3, 3, 3, 3, 3}, {3}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_get_rotation_angles(p.in[0] + 3 * i, p.in[1] + 3 * i, p.in[2] + 3 * i, p.in[3] + 3 * i,
                                           p.in[4] + 3 * i, p.in[5] + 3 * i, p.out[0] + 3 * i, ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_get_rotation_angles_n(&n, Three(p.in[0]), Three(p.in[1]), Three(p.in[2]), Three(p.in[3]),
                                             Three(p.in[4]), Three(p.in[5]), Three(p.out[0]), status, ierr);
         },
         [](std::mt19937_64 &random, int) { return static_cast<double>(random() % 3) - 1.0; }},
        {"kl_get_rotated_vectors",
         {{3, 3, 3, 3}, {3, 3, 3}},
         [](const Pointers &p, long i, long *ierr) {
             return kl_get_rotated_vectors(p.in[0] + 3 * i, p.in[1] + 3 * i, p.in[2] + 3 * i, p.in[3] + 3 * i,
                                           p.out[0] + 3 * i, p.out[1] + 3 * i, p.out[2] + 3 * i, ierr);
         },
         [](const Pointers &p, long n, long *status, long *ierr) {
             return kl_get_rotated_vectors_n(&n, Three(p.in[0]), Three(p.in[1]), Three(p.in[2]), Three(p.in[3]),
                                             Three(p.out[0]), Three(p.out[1]), Three(p.out[2]), status, ierr);
         },
         [](std::mt19937_64 &random, int) { return static_cast<double>(random() % 3) - 1.0; }},
        {"kl_quaternions_interpol", // q2 is written too: it stands at the end of both
         {{1, 4, 1, 1, 4}, {4}},
         [&ids](const Pointers &p, long i, long *ierr) {
             return kl_quaternions_interpol(&ids.slerp, p.in[0] + i, p.in[1] + 4 * i, p.in[2] + i, p.in[4] + 4 * i,
                                            p.in[3] + i, p.out[0] + 4 * i, ierr);
         },
         [&ids](const Pointers &p, long n, long *status, long *ierr) {
             return kl_quaternions_interpol_n(&n, &ids.slerp, p.in[0], Four(p.in[1]), p.in[2], Four(p.in[4]), p.in[3],
                                              Four(p.out[0]), status, ierr);
         },
         [](std::mt19937_64 &random, int column) {
             return column == 0   ? 0.0
                    : column == 2 ? 1.0
                    : column == 3 ? even(random, -0.5, 1.5)
                                  : (random() % 2 == 0 ? 0.5 : -0.5);
         }},
    };
}

// One set of inputs, and the outputs of both ways.
struct Case {
    long n;
    std::vector<std::vector<double>> inputs;
};

Case random_case(const Function &f, long n, std::mt19937_64 &random)
{
    Case c = {n, {}};
    const int kind = static_cast<int>(random() % 4); // without trouble, all kinds, one instant, instants in runs
    for (std::size_t k = 0; k < f.columns.in.size(); ++k) {
        std::vector<double> column;
        const int width = f.columns.in[k];
        for (long i = 0; i < n * width; ++i) {
            if (kind >= 2 && width == 1 && i > 0 && (kind == 2 || random() % 3 != 0))
                column.push_back(column.back());
            else if (kind == 1 && random() % (10 * static_cast<unsigned>(width)) == 0)
                column.push_back(awkward(random));
            else
                column.push_back(f.number(random, static_cast<int>(k)));
        }
        c.inputs.push_back(column);
    }
    return c;
}

bool same_bits(const double *a, const double *b, long n)
{
    for (long i = 0; i < n; ++i)
        if (std::memcmp(a + i, b + i, sizeof(double)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i])))
            return false;
    return true;
}

// Outputs on inputs where their shapes agree, or apart.
void expect_law(const Function &f, const Function &of_many, const Case &c, bool in_place, bool with_status)
{
    SCOPED_TRACE(std::string(f.name) + ", n " + std::to_string(c.n) + (in_place ? ", in place" : ""));
    std::vector<std::unique_ptr<Guarded>> own;
    const auto doubles = [&](long n) {
        return own.emplace_back(std::make_unique<Guarded>(static_cast<std::size_t>(n)))->get();
    };
    Pointers scalar, array;
    const std::size_t n_in = f.columns.in.size(), n_out = f.columns.out.size();
    for (std::size_t k = 0; k < n_in; ++k)
        for (Pointers *p : {&scalar, &array}) {
            p->in[k] = doubles(c.n * f.columns.in[k]);
            std::copy(c.inputs[k].begin(), c.inputs[k].end(), p->in[k]);
        }
    for (std::size_t k = 0; k < n_out; ++k) {
        const bool fits = in_place && n_in >= n_out && f.columns.in[n_in - n_out + k] == f.columns.out[k];
        scalar.out[k] = doubles(c.n * f.columns.out[k]);
        array.out[k] = fits ? array.in[n_in - n_out + k] : doubles(c.n * f.columns.out[k]);
    }
    // Statuses end at the page too.
    std::vector<long> expected(static_cast<std::size_t>(c.n));
    long expected_word = 0;
    long expected_result = KL_OK;
    for (long i = 0; i < c.n; ++i) {
        long word = 0;
        expected[static_cast<std::size_t>(i)] = f.one(scalar, i, &word);
        expected_word |= word;
        if (expected[static_cast<std::size_t>(i)] == KL_ERR) {
            expected_result = KL_ERR;
            for (std::size_t k = 0; k < n_out; ++k)
                std::fill_n(scalar.out[k] + i * f.columns.out[k], f.columns.out[k], kNaN);
        } else if (expected_result == KL_OK)
            expected_result = expected[static_cast<std::size_t>(i)];
    }
    long *const status = with_status ? reinterpret_cast<long *>(doubles(c.n)) : nullptr;
    long word = -1;
    EXPECT_EQ(of_many.array(array, c.n, status, &word), expected_result);
    EXPECT_EQ(word, expected_word);
    for (long i = 0; status != nullptr && i < c.n; ++i)
        ASSERT_EQ(status[i], expected[static_cast<std::size_t>(i)]) << "element " << i;
    for (std::size_t k = 0; k < n_out; ++k)
        for (long i = 0; i < c.n; ++i)
            ASSERT_TRUE(
                same_bits(scalar.out[k] + i * f.columns.out[k], array.out[k] + i * f.columns.out[k], f.columns.out[k]))
                << "output " << k << " of element " << i << ": " << array.out[k][i * f.columns.out[k]] << " for "
                << scalar.out[k][i * f.columns.out[k]];
}

constexpr long kCounts[] = {0, 1, 2, 3, 7, 8, 9, 15, 16, 17, 63, 64, 65, 100, 127, 128, 129};

TEST(ArrayForm, GivesWhatTheScalarCallsInOrderGive)
{
    kl_silent();
    Ids ids;
    std::mt19937_64 random(2026);
    for (const bool with_table : {false, true}) {
        // Once-only warnings: the two ids meet the same instants in the same order.
        const std::vector<Function> one = functions(ids, with_table ? &ids.table : &ids.time);
        const std::vector<Function> many = functions(ids, with_table ? &ids.twin : &ids.time);
        for (std::size_t f = 0; f < one.size(); ++f)
            for (const long n : kCounts)
                for (int again = 0; again < 6; ++again) {
                    ids.ref = static_cast<long>(random() % 4);
                    ids.planet = 1 + static_cast<long>(random() % 8);
                    ids.from = 1 + static_cast<long>(random() % 11);
                    ids.to = 1 + static_cast<long>(random() % 11);
                    ids.mode = 1 + static_cast<long>(random() % 3);
                    ids.degree = static_cast<long>(random() % 40);
                    if (ids.from != KL_LIF && ids.to != KL_LIF) // refused as a whole: below
                        expect_law(one[f], many[f], random_case(one[f], n, random), again % 2 == 1, again % 3 != 0);
                    if (HasFatalFailure())
                        return;
                }
    }
}

TEST(ArrayForm, PrintsTheLinesOfTheScalarCalls)
{
    Ids ids;
    std::mt19937_64 random(7);
    for (const Function &f : functions(ids, &ids.time)) {
        const Case c = random_case(f, 20, random);
        Pointers p;
        std::vector<std::vector<double>> columns = c.inputs;
        for (std::size_t k = 0; k < columns.size(); ++k)
            p.in[k] = columns[k].data();
        std::vector<std::vector<double>> outputs;
        for (const int width : f.columns.out)
            outputs.emplace_back(20 * width);
        for (std::size_t k = 0; k < outputs.size(); ++k)
            p.out[k] = outputs[k].data();
        const std::string expected = verbose_text([&] {
            for (long i = 0; i < 20; ++i) {
                long word = 0;
                f.one(p, i, &word);
            }
        });
        for (std::size_t k = 0; k < columns.size(); ++k)
            std::copy(c.inputs[k].begin(), c.inputs[k].end(), p.in[k]);
        EXPECT_EQ(verbose_text([&] {
                      long word = 0;
                      f.array(p, 20, nullptr, &word);
                  }),
                  expected)
            << f.name;
    }
}

// What no element can help: one bit, one line, every element failed.
TEST(ArrayForm, RefusesTheCallForWhatNoElementCanHelp)
{
    kl_silent();
    Ids ids;
    kl_time_id closed = {nullptr};
    const long n = 3, bad = 99, good = KL_TIME_TAI;
    const double time[3] = {0.0, 1e9, 2.0};
    double a[3][3] = {}, b[3][3], c[3][3], d[3][3];
    long status[3], ierr = 0;
    const auto expect_refused = [&](long result, long bit, const char *what) {
        EXPECT_EQ(result, KL_ERR) << what;
        EXPECT_EQ(ierr & std::numeric_limits<long>::max(), 1L << bit) << what; // the sign bit tells an error
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(status[i], KL_ERR) << what;
            EXPECT_TRUE(std::isnan(b[i][0])) << what;
        }
    };
    expect_refused(kl_sun_n(&ids.model, &ids.time, &n, &bad, time, b, c, status, &ierr), KL_SUN_TIME_REF_ERR, "scale");
    expect_refused(kl_moon_n(&ids.model, &closed, &n, &good, time, b, c, status, &ierr), KL_MOON_PROC_TO_PROC_ERR,
                   "time id");
    expect_refused(kl_planet_n(&ids.model, &ids.time, &n, &bad, &good, time, b, c, status, &ierr), KL_PLANET_CODE_ERR,
                   "planet");
    const long lif = KL_LIF, ef = KL_EF, mode = KL_CALC_POS;
    expect_refused(
        kl_change_cart_cs_n(&ids.model, &ids.time, &n, &mode, &ef, &lif, &good, time, a, a, a, b, c, d, status, &ierr),
        KL_CHANGE_CART_CS_LIF_ERR, "launch frame");
    const long minus = -1, none = 0;
    ierr = 5;
    EXPECT_EQ(kl_sun_n(&ids.model, &ids.time, &minus, &good, time, b, c, status, &ierr), KL_ERR);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(kl_sun_n(&ids.model, &ids.time, nullptr, &good, time, b, c, status, &ierr), KL_ERR);
    status[0] = 77;
    EXPECT_EQ(kl_sun_n(&ids.model, &ids.time, &none, &bad, time, b, c, status, &ierr), KL_OK);
    EXPECT_EQ(status[0], 77);
}

} // namespace
